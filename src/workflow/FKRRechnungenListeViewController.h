#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

class FKRAppDelegate;
class FKRArrayController;
class FKRObjektAuswahl;
class FKRRechnung;
class FKRRechnungsAnsichtViewController;
class FKRRechnungsDetailsWindowController;
class FKRRechnungsListenKriterien;
class FKRZeilenAktionen;
class ManagedObject;
class ManagedObjectContext;
class QAction;
class QComboBox;
class QMenu;
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
    // The buttons that appear on the row under the mouse.
    FKRZeilenAktionen *zeilenAktionen() const { return m_zeilenAktionen; }

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

    // The row actions of row `zeile`, duplicate and delete, as the context menu offers them; a
    // row outside the list gets actions that do nothing. The actions belong to `parent`.
    QList<QAction *> rowActionsForRow(int zeile, QObject *parent);
    // The context menu of the row last asked for (nullptr when none is open).
    QMenu *kontextMenue() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void baueOberflaeche();
    void setzeBereich(const std::function<bool(const ManagedObject &)> *bereich);
    void aktualisiereFilter();
    void setzeSpaltenTitel();
    void tableViewSelectionDidChange();
    void zeigeKontextMenue(const QPoint &position);
    void dupliziereZeile(int zeile);
    void loescheZeile(int zeile);
    FKRRechnungsAnsichtViewController *ansicht() const;

    FKRAppDelegate &m_delegate;
    int m_sortierung = 0;
    ManagedObjectContext *m_context = nullptr;
    std::unique_ptr<FKRRechnungsListenKriterien> m_kriterien;
    // Both point into m_kriterien, which keeps every predicate for the life of the list.
    const std::function<bool(const ManagedObject &)> *m_appAreaPredicate = nullptr;
    const std::function<bool(const ManagedObject &)> *m_dokumentArtPredicate = nullptr;
    FKRArrayController *m_arrayController = nullptr;
    QTableView *m_tableView = nullptr;
    QComboBox *m_dokumentArtPopUpButton = nullptr;
    QWidget *m_loeschenButtonBox = nullptr;
    QWidget *m_hilfeBox = nullptr;
    FKRZeilenAktionen *m_zeilenAktionen = nullptr;
    QPointer<QMenu> m_kontextMenue;
    FKRObjektAuswahl *m_auswahl = nullptr;
};
