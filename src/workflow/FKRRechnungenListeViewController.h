#pragma once

#include "FetchRequest.h"

#include <QList>
#include <QWidget>

#include <functional>

class FKRAppDelegate;
class FKRArrayController;
class FKRRechnung;
class FKRRechnungsDetailsWindowController;
class ManagedObject;
class ManagedObjectContext;
class QComboBox;
class QTableView;

// The middle column of the main window: the documents of the store that pass the area chosen
// in the menu and the type chosen in the pop-up, in one of five cyclic sort orders. Creates and
// deletes documents, hands its selection to the document view and opens the editor.
class FKRRechnungenListeViewController : public QWidget
{
    Q_OBJECT

public:
    explicit FKRRechnungenListeViewController(FKRAppDelegate &delegate, QWidget *parent = nullptr);
    ~FKRRechnungenListeViewController() override;

    FKRArrayController &rechnungenListeArrayController();
    ManagedObjectContext *managedObjectContext();
    QTableView *tableView() const;
    QComboBox *dokumentArtPopUpButton() const;
    QWidget *loeschenButtonBox() const;
    QWidget *hilfeBox() const;

    int sortierung() const { return m_sortierung; }
    // The header title of the single column (the name of the current sort order).
    QString spaltenTitel() const;

    // Areas, from the navigation menu.
    void zeigeEntwuerfe();
    void zeigeVersandteRechnungen();
    void zeigeFaelligeRechnungen();
    void zeigeBezahlteRechnungen();
    void zeigeAlleRechnungen();
    // The type pop-up chose the item with this tag (1..5 a type, anything else all types).
    void dokumentArtDidChange(int tag);
    // Steps to the next sort order (also a click on the column header).
    void sortierungAendern();

    QList<FKRRechnung *> selectedObjects() const;
    void setSelectedObjects(const QList<FKRRechnung *> &rechnungen);

    void tabelleDoppelGeklickt();
    void dupliziereRechnung();
    void loescheRechung();
    // "zeigeFKRRechnungDetails": the editor on the first selected document; any other segue: a
    // new document. Returns the editor's window (nullptr when nothing was opened).
    FKRRechnungsDetailsWindowController *prepareForSegue(const QString &segue);
    FKRRechnung *erstelleNeueRechnung();
    void zeigeHilfeBox();

private:
    FKRAppDelegate &m_delegate;
    int m_sortierung = 0;
};
