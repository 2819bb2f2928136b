#pragma once

#include "FKRFensterSchicht.h"

#include <QMainWindow>

class FKRAppDelegate;
class FKRMenuViewController;
class FKRRechnungenListeViewController;
class FKRRechnungsAnsichtViewController;
class QSplitter;

// The main window: the navigation menu, the document list and the document view side by side
// in one split view (items 0, 1 and 2), the window-level commands and their menu bar. The
// application core reaches the windows through it.
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

    // FKRFensterSchicht
    FKROffenerEditor *offenerEditor() override;
    QList<FKRRechnung *> unbezahlteRechnungen() override;
    void zeigeFaelligeRechnungen() override;
    void zeigeHilfe() override;
    bool commitEditing() override;

private:
    FKRAppDelegate &m_delegate;
    QSplitter *m_splitView = nullptr;
};
