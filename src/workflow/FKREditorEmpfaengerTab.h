#pragma once

#include "FKREditorBeteiligteTab.h"

class FKREmpfaenger;
class QLineEdit;
class QPushButton;
class QTableView;

// The editor's recipient tab: all recipients by company and name, the document's recipient
// chosen among them, and the address of the chosen one, edited in place.
class FKREditorEmpfaengerTab : public FKREditorBeteiligteTab
{
    Q_OBJECT

public:
    explicit FKREditorEmpfaengerTab(FKRRechnungsDetailsViewController &editor);

    void empfaengerSelected() { beteiligterGewaehlt(); }
    void neuerEmpfaengerButtonPressed() { neuKnopfGedrueckt(); }
    void empfaengerLoeschenButtonPressed() { loeschenKnopfGedrueckt(); }
    void waehleAus(FKREmpfaenger *empfaenger);

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
};
