#pragma once

#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>

class FKRAppDelegate;
class FKRBeendenSignale;
class FKRAppWindowController;
class FKRMessageBoxPresenter;
class FKRUrlEmpfang;

// The desktop program around the application core: one running program per data folder, the
// main window, the alerts, the URLs of the scheme and the way the program ends.
class FKRDesktopAnwendung : public QObject
{
    Q_OBJECT

public:
    FKRDesktopAnwendung();
    ~FKRDesktopAnwendung() override;

    // Hands `urls` to the program that works on the data folder and gives this process's exit
    // status: 0 when every item was stored (or the program came forward), otherwise 1 after one
    // line per failure on stderr. Nothing (the process goes on to `starte`) when this process
    // took the data folder's lock and so became the program.
    std::optional<int> uebergibtAnLaufendesProgramm(const QStringList &urls);
    void starte(const QStringList &urls);

    static QStringList urlsAusArgumenten(const QStringList &argumente);

private:
    std::unique_ptr<FKRMessageBoxPresenter> m_presenter;
    std::unique_ptr<FKRAppDelegate> m_delegate;
    std::unique_ptr<FKRUrlEmpfang> m_empfang;
    std::unique_ptr<FKRAppWindowController> m_fenster;
    std::unique_ptr<FKRBeendenSignale> m_signale;
};
