#pragma once

#include <QList>
#include <QWidget>

class FKREmpfaenger;
class FKRFeldBindung;
class FKRRechnungsDetailsViewController;
class FKRTabellenAuswahl;
class QLineEdit;
class QPushButton;
class QTableView;

// The editor's recipient tab: all recipients by company and name, the document's recipient
// chosen among them, and the address of the chosen one, edited in place.
class FKREditorEmpfaengerTab : public QWidget
{
    Q_OBJECT

public:
    explicit FKREditorEmpfaengerTab(FKRRechnungsDetailsViewController &editor);

    // Selects the document's recipient; a document without one gets the first of the list, or
    // a new one when there is none.
    void aktualisiere();
    void empfaengerSelected();
    void neuerEmpfaengerButtonPressed();
    void empfaengerLoeschenButtonPressed();
    void waehleAus(FKREmpfaenger *empfaenger);
    FKRTabellenAuswahl &auswahl() const { return *m_auswahl; }

    // Outlets.
    QTableView *empfaengerTableView = nullptr;
    QLineEdit *empfaengerTabFirmaTextField = nullptr;
    QLineEdit *empfaengerTabNameTextField = nullptr;
    QLineEdit *empfaengerTabStrasseTextField = nullptr;
    QLineEdit *empfaengerTabPlzTextField = nullptr;
    QLineEdit *empfaengerTabOrtTextField = nullptr;
    QLineEdit *empfaengerTabLandTextField = nullptr;
    QPushButton *neuerEmpfaengerButton = nullptr;
    QPushButton *empfaengerLoeschenButton = nullptr;

private:
    FKREmpfaenger *erstelleEmpfaenger();
    void bindeFelder();

    FKRRechnungsDetailsViewController &m_editor;
    FKRTabellenAuswahl *m_auswahl = nullptr;
    QList<FKRFeldBindung *> m_bindungen;
};
