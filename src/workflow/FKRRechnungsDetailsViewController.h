#pragma once

#include "Decimal.h"
#include "FKROffenerEditor.h"
#include "FetchRequest.h"

#include <QStringList>
#include <QWidget>

class FKRAppDelegate;
class FKRArrayController;
class FKREditorAbsenderTab;
class FKREditorBetragTab;
class FKREditorEmpfaengerTab;
class FKREditorPostenTab;
class FKREditorStatusTab;
class FKREditorTextTab;
class FKRRechnung;
class QLabel;
class QPushButton;
class QTabWidget;

// The document editor: one document's items, amounts, recipient, sender, texts, type, language,
// dates and layout on six tabs. The item import of the time tracker reaches it as the open
// editor.
//
// Fields write the document, recipient, sender and items as the user types; structural changes
// (new and deleted objects, assignments, type and layout, images) are saved at once, everything
// else by the next save, at the latest when the window closes. Every change of the tab refreshes
// all six tabs, which is also when a document without recipient or sender is given one.
class FKRRechnungsDetailsViewController : public QWidget, public FKROffenerEditor, public FKREmpfaengerListe
{
    Q_OBJECT

public:
    // The identifiers of the six tabs in their order; each tab's help text is the translation
    // of "HILFE_TEXT_" followed by its identifier.
    static const QStringList &tabIdentifier();

    // The orders of the three lists, built on first use and kept.
    static const QList<SortDescriptor> &einzelpostenSortDescriptor();
    static const QList<SortDescriptor> &empfaengerNameSortDescriptor();
    static const QList<SortDescriptor> &absenderSortDescriptor();

    explicit FKRRechnungsDetailsViewController(FKRAppDelegate &delegate, QWidget *parent = nullptr);
    ~FKRRechnungsDetailsViewController() override;

    // Shows `rechnung` (nullptr: none). The item list's filter is set by whoever opens the
    // editor.
    void setRechnung(FKRRechnung *rechnung);
    QTabWidget *tabView() const;
    FKRArrayController &rechnungsPostenArrayController();
    FKRArrayController &empfaengerArrayController();
    FKRArrayController &absenderArrayController();

    FKRAppDelegate &delegate() const { return m_delegate; }
    QLabel *hilfeTextField() const { return m_hilfeText; }
    QPushButton *weiterButton() const { return m_weiter; }
    FKREditorPostenTab *postenTab() const { return m_postenTab; }
    FKREditorBetragTab *betragTab() const { return m_betragTab; }
    FKREditorEmpfaengerTab *empfaengerTab() const { return m_empfaengerTab; }
    FKREditorAbsenderTab *absenderTab() const { return m_absenderTab; }
    FKREditorTextTab *textTab() const { return m_textTab; }
    FKREditorStatusTab *statusTab() const { return m_statusTab; }

    // Opening: help text, type and language of the document.
    void viewWillAppear();
    // All six tabs in their order, then the help text.
    void updateTabViews();
    void updateHilfeTexte();
    void updateRechnungsPostenTab();
    void aktualisiereRechnungsSummeBetragTab();

    // The item sum and the total of the document: zero without document, NaN when the document
    // lacks a value the arithmetic needs or the amounts overflow.
    Decimal zwischenSummePostenTab() const;
    Decimal rechnungsSummeBetragTab() const;
    // The amount as the editor shows it: currency and two decimals, a dash for NaN.
    QString betragsText(const Decimal &betrag) const;

    // Selects the recipient in the recipient list (the list opens the editor with it).
    void waehleEmpfaengerAus(FKREmpfaenger *empfaenger);

    // The type pop-up chose `art`: relabel the number, save, refresh every tab.
    void dokumentenArtDidChange(const Decimal &art);
    // Next tab; on the last one the window closes.
    void weiterButtonPressed();
    // The application's save operation.
    void sichern();
    // The delete confirmation of items, recipients, senders and images; true for the first
    // button, the only one that acts.
    bool bestaetigeLoeschen();
    // Hands a cell that is being edited to its object before the window saves and closes.
    void commitEditing();

    // FKROffenerEditor
    FKRRechnung *rechnung() const override { return m_rechnung; }
    FKRPosten *neuerPosten() override;
    FKREmpfaengerListe *empfaengerListe() override { return this; }
    void waehlePostenAus(FKRPosten *posten) override;

    // FKREmpfaengerListe
    QList<FKREmpfaenger *> angeordneteEmpfaenger() const override;
    FKREmpfaenger *neuerEmpfaenger() override;

Q_SIGNALS:
    // The next button on the last tab: the window closes.
    void schliessenAngefordert();

private:
    void tabGewechselt();

    FKRAppDelegate &m_delegate;
    FKRRechnung *m_rechnung = nullptr;
    FKRArrayController *m_postenController = nullptr;
    FKRArrayController *m_empfaengerController = nullptr;
    FKRArrayController *m_absenderController = nullptr;
    QTabWidget *m_tabView = nullptr;
    QLabel *m_hilfeText = nullptr;
    QPushButton *m_weiter = nullptr;
    FKREditorPostenTab *m_postenTab = nullptr;
    FKREditorBetragTab *m_betragTab = nullptr;
    FKREditorEmpfaengerTab *m_empfaengerTab = nullptr;
    FKREditorAbsenderTab *m_absenderTab = nullptr;
    FKREditorTextTab *m_textTab = nullptr;
    FKREditorStatusTab *m_statusTab = nullptr;
};
