#pragma once

#include "FKRFensterSchicht.h"

#include <QMainWindow>
#include <QPointer>

class FKRAppDelegate;
class FKRMenuViewController;
class FKRRechnungenListeViewController;
class FKRRechnungsAnsichtViewController;
class FKRRechnungsDetailsWindowController;
class QBMEinstellungenViewController;
class QSplitter;

// The main window: the navigation menu, the document list and the document view side by side
// in one split view (items 0, 1 and 2), the window-level commands and their menu bar. The
// application core reaches the windows through it. Closing it asks the application whether it
// may quit.
class FKRAppWindowController : public QMainWindow, public FKRFensterSchicht
{
    Q_OBJECT

public:
    explicit FKRAppWindowController(FKRAppDelegate &delegate, QWidget *parent = nullptr);
    ~FKRAppWindowController() override;

    QSplitter *splitView() const { return m_splitView; }
    FKRMenuViewController *menuViewController() const;
    FKRRechnungenListeViewController *listeViewController() const;
    FKRRechnungsAnsichtViewController *ansichtViewController() const;

    // Window-level commands (also in the menu bar, with their shortcuts).
    void neueRechnung();
    // "zeigeNeueFKRRechnungDetails": a new document, opened in the editor.
    FKRRechnungsDetailsWindowController *neueRechnungImEditor();
    void sichereRechnungAlsPDF();
    void druckeRechnung();
    void zeigeHilfeView();
    void zeigeTutorial();
    // The status line while a backup is being written; its end reports the archive.
    void zeigeDatensicherungLaeuft();
    // The settings screen, one window that is raised when already open.
    QBMEinstellungenViewController *zeigeEinstellungen();

    // FKRFensterSchicht
    FKROffenerEditor *offenerEditor() override;
    QList<FKRRechnung *> unbezahlteRechnungen() override;
    void zeigeFaelligeRechnungen() override;
    // The help the start offers: the panels open unless the user has closed them before.
    void zeigeHilfe() override;
    bool commitEditing() override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void baueMenue();

    FKRAppDelegate &m_delegate;
    QSplitter *m_splitView = nullptr;
    QPointer<QBMEinstellungenViewController> m_einstellungen;
};
