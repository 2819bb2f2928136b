#pragma once

#include <QObject>
#include <QStringList>

#include <memory>

class FKRAppDelegate;
class FKRBeendenSignale;
class FKRAppWindowController;
class FKRMessageBoxPresenter;
class FKRUrlEmpfang;

// The desktop program around the application core: one running program per user, the main
// window, the alerts, the URLs of the scheme and the way the program ends.
class FKRDesktopAnwendung : public QObject
{
    Q_OBJECT

public:
    FKRDesktopAnwendung();
    ~FKRDesktopAnwendung() override;

    // Hands `urls` to a program that runs already (true: this process is done), or takes the
    // program's place and starts it with them.
    bool uebergibtAnLaufendesProgramm(const QStringList &urls);
    void starte(const QStringList &urls);

    static QStringList urlsAusArgumenten(const QStringList &argumente);

private:
    std::unique_ptr<FKRMessageBoxPresenter> m_presenter;
    std::unique_ptr<FKRAppDelegate> m_delegate;
    std::unique_ptr<FKRUrlEmpfang> m_empfang;
    std::unique_ptr<FKRAppWindowController> m_fenster;
    std::unique_ptr<FKRBeendenSignale> m_signale;
};
