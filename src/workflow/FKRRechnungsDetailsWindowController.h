#pragma once

#include <QPointer>
#include <QWidget>

class FKRAppDelegate;
class FKREmpfaenger;
class FKRRechnung;
class FKRRechnungsAnsichtViewController;
class FKRRechnungsDetailsViewController;

// The editor's own window. Closing it saves, makes the document view of the main window
// redisplay and lets the editor go. Several editors can be open at once; the one the user
// worked in last receives the items of the time tracker.
class FKRRechnungsDetailsWindowController : public QWidget
{
    Q_OBJECT

public:
    // Prepares and shows an editor window on `rechnung` (the list's and the view's segues);
    // `empfaenger`, when set, is selected in the editor's recipient list. The window deletes
    // itself when closed.
    static FKRRechnungsDetailsWindowController *oeffne(FKRAppDelegate &delegate, FKRRechnung *rechnung,
                                                       FKRRechnungsAnsichtViewController *ansicht,
                                                       FKREmpfaenger *empfaenger = nullptr);
    // The editor window the user worked in last, nullptr when none is open.
    static FKRRechnungsDetailsWindowController *aktuellesFenster();

    ~FKRRechnungsDetailsWindowController() override;

    FKRRechnungsDetailsViewController *editor() const { return m_editor; }
    FKRRechnungsAnsichtViewController *rechnungsAnsichtViewController() const;
    void setRechnungsAnsichtViewController(FKRRechnungsAnsichtViewController *ansicht);

protected:
    bool event(QEvent *event) override;
    // Saves, makes the document view redisplay and lets the editor's document go.
    void closeEvent(QCloseEvent *event) override;

private:
    FKRRechnungsDetailsWindowController(FKRAppDelegate &delegate, QWidget *parent = nullptr);

    FKRAppDelegate &m_delegate;
    FKRRechnungsDetailsViewController *m_editor = nullptr;
    QPointer<FKRRechnungsAnsichtViewController> m_ansicht;
};
