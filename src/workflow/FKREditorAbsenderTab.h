#pragma once

#include <QList>
#include <QWidget>

class FKRAbsender;
class FKRFeldBindung;
class FKRGeschaeftspapierImageView;
class FKRImageView;
class FKRLogoImageView;
class FKRRechnungsDetailsViewController;
class FKRTabellenAuswahl;
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
class FKREditorAbsenderTab : public QWidget
{
    Q_OBJECT

public:
    explicit FKREditorAbsenderTab(FKRRechnungsDetailsViewController &editor);

    // Selects the document's sender (a document without one gets the first of the list, or a
    // new one when there is none) and shows its details and images.
    void aktualisiere();
    void absenderSelected();
    void neuerAbsenderButtonPressed();
    void absenderLoeschenButtonPressed();
    // The delete buttons of the slots and the Delete key on a slot: after the confirmation the
    // slot's image (bytes and path) is removed from the sender.
    void bildLoeschenButtonPressed(FKRImageView *bildFeld);
    void absenderGeschaeftspapierDruckenChanged();
    FKRTabellenAuswahl &auswahl() const { return *m_auswahl; }

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

private:
    QLineEdit *textFeld(QFormLayout *formular, const char *name, const QString &titel, const char *schluessel);
    QVBoxLayout *bildBereich(FKRImageView *bildFeld, const char *name, const QString &titel);
    FKRAbsender *erstelleAbsender();
    void bindeFelder();

    FKRRechnungsDetailsViewController &m_editor;
    FKRTabellenAuswahl *m_auswahl = nullptr;
    QList<FKRFeldBindung *> m_bindungen;
    QList<FKRImageView *> m_bildFelder;
};
