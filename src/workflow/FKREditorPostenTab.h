#pragma once

#include <QWidget>

class FKRFeldBindung;
class FKRPosten;
class FKRRechnungsDetailsViewController;
class FKRTabellenAuswahl;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTableView;

// The editor's items tab: the document number, the items of the document in a table whose
// cells are edited in place (amounts in the user's locale), the description of the chosen item,
// and the item sum, which follows every change at once.
class FKREditorPostenTab : public QWidget
{
    Q_OBJECT

public:
    explicit FKREditorPostenTab(FKRRechnungsDetailsViewController &editor);

    // Number, item sum, and numbers for items that have none yet (postenNummer 0).
    void aktualisiere();
    void neuerPostenButtonPressed();
    void loeschePostenButtonPressed();
    // An amount of an item changed: number, sums, and the item's own total in the table.
    void einzelpostenBetragChanged();
    void waehleAus(FKRPosten *posten);
    FKRTabellenAuswahl &auswahl() const { return *m_auswahl; }

    // Outlets.
    QLineEdit *rechnungsNummerTextField = nullptr;
    QTableView *postenTableView = nullptr;
    QPlainTextEdit *postenBeschreibungTextField = nullptr;
    QPushButton *neuerPostenButton = nullptr;
    QPushButton *loeschePostenButton = nullptr;
    QLineEdit *postenTabRechnungsSummeTextField = nullptr;

    // The columns of the item table.
    enum PostenSpalte { kNummer, kBezeichnung, kBeschreibung, kAnzahl, kEinzelbetrag, kGesamt };

private:
    void setzeSpalten();
    void auswahlGeaendert();

    FKRRechnungsDetailsViewController &m_editor;
    FKRTabellenAuswahl *m_auswahl = nullptr;
    FKRFeldBindung *m_nummerBindung = nullptr;
    FKRFeldBindung *m_beschreibungBindung = nullptr;
};
