#include "FKREditorAbsenderTab.h"

#include "FKRAbsender.h"
#include "FKRGeschaeftspapierImageView.h"
#include "FKRLocalizationHelper.h"
#include "FKRLogoImageView.h"
#include "FKRRechnungsDetailsViewController.h"
#include "FKRUnterschriftImageView.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {

// The user's text of a literal key (the key check of the translation tables finds it here).
QString hauptTabellenText(const char *schluessel)
{
    return FKRLocalizationHelper::hauptTabellenText(QString::fromUtf8(schluessel));
}

} // namespace

FKREditorAbsenderTab::FKREditorAbsenderTab(FKRRechnungsDetailsViewController &editor)
    : FKREditorBeteiligteTab(editor, editor.absenderArrayController(), QStringLiteral("absender"),
                             QT_TRANSLATE_NOOP("Velmora", "Neuer Absender"))
{
    absenderTableView = erstelleTabelle("absenderTableView");
    absenderTableView->setMaximumHeight(150);
    neuerAbsenderButton = erstelleNeuKnopf("neuerAbsenderButton", hauptTabellenText("BUTTON_TITLE_NEUER_ABSENDER"));
    absenderLoeschenButton =
        erstelleLoeschenKnopf("absenderLoeschenButton", hauptTabellenText("BUTTON_TITLE_ABSENDER_LOESCHEN"));

    // The text fields: outlet, its name, label key, and the sender's attribute it edits.
    struct TextFeld {
        QLineEdit *FKREditorAbsenderTab::*outlet;
        const char *name;
        const char *titel;
        const char *schluessel;
    };
    using T = FKREditorAbsenderTab;
    static const TextFeld adressFelder[] = {
        {&T::absenderTabFirmaTextField, "absenderTabFirmaTextField", QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_FIRMA"), "firma"},
        {&T::absenderTabNameTextField, "absenderTabNameTextField", QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_NAME"), "name"},
        {&T::absenderTabStrasseTextField, "absenderTabStrasseTextField", QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_STRASSE"),
         "strasse"},
        {&T::absenderTabPlzTextField, "absenderTabPlzTextField", QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_PLZ"), "plz"},
        {&T::absenderTabOrtTextField, "absenderTabOrtTextField", QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_ORT"), "ort"},
        {&T::absenderTabLandTextField, "absenderTabLandTextField", QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_LAND"), "land"},
        {&T::absenderTabEmailTextField, "absenderTabEmailTextField", QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_EMAIL"),
         "emailAdresse"},
        {&T::absenderTabTelefonTextField, "absenderTabTelefonTextField", QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_TELEFON"),
         "telefonNummer"},
        {&T::absenderTabFaxTextField, "absenderTabFaxTextField", QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_FAX"), "faxNummer"},
    };
    static const TextFeld bankFelder[] = {
        {&T::bankVerbindungTabIbanTextField, "bankVerbindungTabIbanTextField", QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_IBAN"),
         "bankVerbindungIban"},
        {&T::bankVerbindungTabBicTextField, "bankVerbindungTabBicTextField", QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_BIC"),
         "bankVerbindungBic"},
        {&T::bankVerbindungTabBankTextField, "bankVerbindungTabBankTextField", QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_BANK"),
         "bankVerbindungInstitut"},
        {&T::bankVerbindungTabSteuerNummerTextField, "bankVerbindungTabSteuerNummerTextField",
         QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_STEUERNUMMER"), "steuerNummer"},
        {&T::bankVerbindungTabUmsatzteuerIdTextField, "bankVerbindungTabUmsatzteuerIdTextField",
         QT_TRANSLATE_NOOP("Velmora", "EDITOR_LABEL_UMSATZSTEUERID"), "umsatzsteuerId"},
    };
    auto *adresse = new QFormLayout;
    for (const TextFeld &feld : adressFelder)
        this->*feld.outlet = textFeld(adresse, feld.name, hauptTabellenText(feld.titel), feld.schluessel);
    auto *bank = new QFormLayout;
    for (const TextFeld &feld : bankFelder)
        this->*feld.outlet = textFeld(bank, feld.name, hauptTabellenText(feld.titel), feld.schluessel);

    absenderLogoImageView = new FKRLogoImageView(editor.delegate(), this);
    absenderUnterschriftImageView = new FKRUnterschriftImageView(editor.delegate(), this);
    geschaeftspapierImageView = new FKRGeschaeftspapierImageView(editor.delegate(), this);
    geschaeftspapierDruckenCheckbox = new QCheckBox(hauptTabellenText("EDITOR_LABEL_GESCHAEFTSPAPIER_DRUCKEN"), this);
    geschaeftspapierDruckenCheckbox->setObjectName(QStringLiteral("geschaeftspapierDruckenCheckbox"));
    auto *bilder = new QHBoxLayout;
    bilder->addLayout(bildBereich(absenderLogoImageView, "absenderLogoImageView", hauptTabellenText("EDITOR_LABEL_LOGO")));
    bilder->addLayout(bildBereich(absenderUnterschriftImageView, "absenderUnterschriftImageView",
                                  hauptTabellenText("EDITOR_LABEL_UNTERSCHRIFT")));
    QVBoxLayout *papier = bildBereich(geschaeftspapierImageView, "geschaeftspapierImageView",
                                      hauptTabellenText("EDITOR_LABEL_GESCHAEFTSPAPIER"));
    papier->addWidget(geschaeftspapierDruckenCheckbox);
    bilder->addLayout(papier);

    auto *listenKnoepfe = new QHBoxLayout;
    listenKnoepfe->addWidget(neuerAbsenderButton);
    listenKnoepfe->addWidget(absenderLoeschenButton);
    listenKnoepfe->addStretch();
    auto *details = new QHBoxLayout;
    details->addLayout(adresse, 1);
    details->addLayout(bank, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(absenderTableView);
    layout->addLayout(listenKnoepfe);
    layout->addLayout(details);
    layout->addLayout(bilder, 1);

    connect(geschaeftspapierDruckenCheckbox, &QCheckBox::clicked, this,
            &FKREditorAbsenderTab::absenderGeschaeftspapierDruckenChanged);
    bindeFelder();
}

QVBoxLayout *FKREditorAbsenderTab::bildBereich(FKRImageView *bildFeld, const char *name, const QString &titel)
{
    bildFeld->setObjectName(QString::fromLatin1(name));
    m_bildFelder.append(bildFeld);
    auto *waehlen = new QPushButton(hauptTabellenText("BUTTON_TITLE_BILD_WAEHLEN"), this);
    waehlen->setObjectName(QString::fromLatin1(name) + QStringLiteral("WaehlenButton"));
    auto *loeschen = new QPushButton(hauptTabellenText("BUTTON_TITLE_DELETE"), this);
    loeschen->setObjectName(QString::fromLatin1(name) + QStringLiteral("LoeschenButton"));
    connect(waehlen, &QPushButton::clicked, bildFeld, &FKRImageView::waehleBildDatei);
    connect(loeschen, &QPushButton::clicked, this, [this, bildFeld] { bildLoeschenButtonPressed(bildFeld); });
    connect(bildFeld, &FKRImageView::loeschenAngefordert, this, [this, bildFeld] { bildLoeschenButtonPressed(bildFeld); });
    connect(bildFeld, &FKRImageView::bildGespeichert, this, &FKREditorBeteiligteTab::aktualisiere);

    auto *knoepfe = new QHBoxLayout;
    knoepfe->addWidget(waehlen);
    knoepfe->addWidget(loeschen);
    auto *bereich = new QVBoxLayout;
    auto *beschriftung = new QLabel(titel, this);
    beschriftung->setBuddy(bildFeld);
    bereich->addWidget(beschriftung);
    bereich->addWidget(bildFeld, 1);
    bereich->addLayout(knoepfe);
    return bereich;
}

void FKREditorAbsenderTab::bindeFelder()
{
    FKREditorBeteiligteTab::bindeFelder();
    auto *absender = static_cast<FKRAbsender *>(gewaehlterBeteiligter());
    for (FKRImageView *bildFeld : std::as_const(m_bildFelder)) {
        bildFeld->setAbsender(absender);
        bildFeld->zeigeGespeichertesBild();
    }
    geschaeftspapierDruckenCheckbox->setEnabled(absender != nullptr);
    geschaeftspapierDruckenCheckbox->setChecked(absender && absender->geschaeftspapierDrucken() == true);
}

void FKREditorAbsenderTab::bildLoeschenButtonPressed(FKRImageView *bildFeld)
{
    auto *absender = static_cast<FKRAbsender *>(gewaehlterBeteiligter());
    if (!absender || !bildFeld->zeigtBild() || !m_editor.bestaetigeLoeschen())
        return;
    bildFeld->loescheBild(*absender);
    m_editor.sichern();
    aktualisiere();
}

void FKREditorAbsenderTab::absenderGeschaeftspapierDruckenChanged()
{
    auto *absender = static_cast<FKRAbsender *>(gewaehlterBeteiligter());
    if (!absender)
        return;
    absender->setGeschaeftspapierDrucken(geschaeftspapierDruckenCheckbox->isChecked());
    m_editor.sichern();
    aktualisiere();
}
