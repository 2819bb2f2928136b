#pragma once

#include "FKREditorBeteiligteTab.h"

#include <QList>

class FKRGeschaeftspapierImageView;
class FKRImageView;
class FKRLogoImageView;
class FKRUnterschriftImageView;
class QCheckBox;
class QFormLayout;
class QLineEdit;
class QPushButton;
class QTableView;
class QVBoxLayout;

// The editor's sender tab: all senders by company and name, the document's sender chosen among
// them, its address, contact, tax and bank details edited in place, and its three images
// (logo, signature, letterhead) with the choice whether the letterhead is printed.
class FKREditorAbsenderTab : public FKREditorBeteiligteTab
{
    Q_OBJECT

public:
    explicit FKREditorAbsenderTab(FKRRechnungsDetailsViewController &editor);

    void absenderSelected() { beteiligterGewaehlt(); }
    void neuerAbsenderButtonPressed() { neuKnopfGedrueckt(); }
    void absenderLoeschenButtonPressed() { loeschenKnopfGedrueckt(); }
    // The delete buttons of the slots and the Delete key on a slot: after the confirmation the
    // slot's image (bytes and path) is removed from the sender.
    void bildLoeschenButtonPressed(FKRImageView *bildFeld);
    void absenderGeschaeftspapierDruckenChanged();

    // Outlets.
    QTableView *absenderTableView = nullptr;
    QPushButton *neuerAbsenderButton = nullptr;
    QPushButton *absenderLoeschenButton = nullptr;
    QLineEdit *absenderTabFirmaTextField = nullptr;
    QLineEdit *absenderTabNameTextField = nullptr;
    QLineEdit *absenderTabStrasseTextField = nullptr;
    QLineEdit *absenderTabPlzTextField = nullptr;
    QLineEdit *absenderTabOrtTextField = nullptr;
    QLineEdit *absenderTabLandTextField = nullptr;
    QLineEdit *absenderTabEmailTextField = nullptr;
    QLineEdit *absenderTabTelefonTextField = nullptr;
    QLineEdit *absenderTabFaxTextField = nullptr;
    QLineEdit *bankVerbindungTabIbanTextField = nullptr;
    QLineEdit *bankVerbindungTabBicTextField = nullptr;
    QLineEdit *bankVerbindungTabBankTextField = nullptr;
    QLineEdit *bankVerbindungTabSteuerNummerTextField = nullptr;
    QLineEdit *bankVerbindungTabUmsatzteuerIdTextField = nullptr;
    FKRLogoImageView *absenderLogoImageView = nullptr;
    FKRUnterschriftImageView *absenderUnterschriftImageView = nullptr;
    FKRGeschaeftspapierImageView *geschaeftspapierImageView = nullptr;
    QCheckBox *geschaeftspapierDruckenCheckbox = nullptr;

protected:
    // The images and the letterhead choice of the chosen sender besides its text fields.
    void bindeFelder() override;

private:
    QVBoxLayout *bildBereich(FKRImageView *bildFeld, const char *name, const QString &titel);

    QList<FKRImageView *> m_bildFelder;
};
