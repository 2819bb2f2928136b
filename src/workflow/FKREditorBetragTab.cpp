#include "FKREditorBetragTab.h"

#include "FKRDezimalFeld.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "FKRRechnungsDetailsViewController.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

// The user's text of a literal key (the key check of the translation tables finds it here).
QString hauptTabellenText(const char *schluessel)
{
    return FKRLocalizationHelper::hauptTabellenText(QString::fromUtf8(schluessel));
}

FKRDezimalFeld *feld(FKRDezimalFeld::Art art, const char *name, QWidget *parent)
{
    auto *f = new FKRDezimalFeld(art, parent);
    f->setObjectName(QString::fromLatin1(name));
    f->setMaximumWidth(140);
    return f;
}

} // namespace

QStringList FKREditorBetragTab::waehrungen()
{
    return {QStringLiteral("€"), QStringLiteral("CHF"), QStringLiteral("$"), QStringLiteral("£")};
}

FKREditorBetragTab::FKREditorBetragTab(FKRRechnungsDetailsViewController &editor)
    : m_editor(editor)
{
    betragTabNettoRadioButton = new QRadioButton(hauptTabellenText("EDITOR_LABEL_NETTO"), this);
    betragTabNettoRadioButton->setObjectName(QStringLiteral("betragTabNettoRadioButton"));
    betragTabBruttoRadioButton = new QRadioButton(hauptTabellenText("EDITOR_LABEL_BRUTTO"), this);
    betragTabBruttoRadioButton->setObjectName(QStringLiteral("betragTabBruttoRadioButton"));
    auto *gruppe = new QButtonGroup(this);
    gruppe->addButton(betragTabNettoRadioButton);
    gruppe->addButton(betragTabBruttoRadioButton);

    using Art = FKRDezimalFeld::Art;
    betragTabMwStSatzTextField = feld(Art::Prozent, "betragTabMwStSatzTextField", this);
    betragTabRabattTextField = feld(Art::Prozent, "betragTabRabattTextField", this);
    betragTabZuschlagTextField = feld(Art::Prozent, "betragTabZuschlagTextField", this);
    betragTabSkontoTextField = feld(Art::Prozent, "betragTabSkontoTextField", this);
    betragTabSkontoZeitraumTextField = feld(Art::Ganzzahl, "betragTabSkontoZeitraumTextField", this);

    betragTabWaehrungsComboBox = new QComboBox(this);
    betragTabWaehrungsComboBox->setObjectName(QStringLiteral("betragTabWaehrungsComboBox"));
    betragTabWaehrungsComboBox->setEditable(true);
    betragTabWaehrungsComboBox->setInsertPolicy(QComboBox::NoInsert);
    betragTabWaehrungsComboBox->addItems(waehrungen());
    betragTabWaehrungsComboBox->setMaximumWidth(140);

    betragTabRechnungsSummeTextField = new QLineEdit(this);
    betragTabRechnungsSummeTextField->setObjectName(QStringLiteral("betragTabRechnungsSummeTextField"));
    betragTabRechnungsSummeTextField->setReadOnly(true);
    betragTabRechnungsSummeTextField->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    betragTabRechnungsSummeTextField->setMaximumWidth(220);

    auto *art = new QHBoxLayout;
    art->addWidget(betragTabNettoRadioButton);
    art->addWidget(betragTabBruttoRadioButton);
    art->addStretch();
    auto *formular = new QFormLayout;
    formular->addRow(hauptTabellenText("EDITOR_LABEL_BERECHNUNG"), art);
    formular->addRow(hauptTabellenText("EDITOR_LABEL_MWST"), betragTabMwStSatzTextField);
    formular->addRow(hauptTabellenText("EDITOR_LABEL_RABATT"), betragTabRabattTextField);
    formular->addRow(hauptTabellenText("EDITOR_LABEL_ZUSCHLAG"), betragTabZuschlagTextField);
    formular->addRow(hauptTabellenText("EDITOR_LABEL_SKONTO"), betragTabSkontoTextField);
    formular->addRow(hauptTabellenText("EDITOR_LABEL_SKONTOZEITRAUM"), betragTabSkontoZeitraumTextField);
    formular->addRow(hauptTabellenText("EDITOR_LABEL_WAEHRUNG"), betragTabWaehrungsComboBox);
    formular->addRow(hauptTabellenText("EDITOR_LABEL_RECHNUNGSSUMME"), betragTabRechnungsSummeTextField);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(formular);
    layout->addStretch();

    connect(betragTabNettoRadioButton, &QRadioButton::clicked, this, [this] { bruttoChanged(true); });
    connect(betragTabBruttoRadioButton, &QRadioButton::clicked, this, [this] { bruttoChanged(false); });
    // Every accepted keystroke in an amount field is in the document already; the total follows.
    for (FKRDezimalFeld *f : {betragTabMwStSatzTextField, betragTabRabattTextField, betragTabZuschlagTextField,
                              betragTabSkontoTextField, betragTabSkontoZeitraumTextField})
        connect(f, &FKRDezimalFeld::wertGeaendert, this, &FKREditorBetragTab::aktualisiereRechnungsSumme);
    connect(betragTabWaehrungsComboBox, &QComboBox::currentTextChanged, this, &FKREditorBetragTab::waehrungGeaendert);
}

void FKREditorBetragTab::aktualisiere()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    betragTabMwStSatzTextField->binde(rechnung, QStringLiteral("mwStSatz"));
    betragTabRabattTextField->binde(rechnung, QStringLiteral("rabatt"));
    betragTabZuschlagTextField->binde(rechnung, QStringLiteral("zuschlag"));
    betragTabSkontoTextField->binde(rechnung, QStringLiteral("skonto"));
    betragTabSkontoZeitraumTextField->binde(rechnung, QStringLiteral("skontoZeitraum"));
    betragTabNettoRadioButton->setEnabled(rechnung != nullptr);
    betragTabBruttoRadioButton->setEnabled(rechnung != nullptr);
    betragTabWaehrungsComboBox->setEnabled(rechnung != nullptr);
    zeigeWaehrung();
    zeigeBrutto();
    aktualisiereRechnungsSumme();
}

void FKREditorBetragTab::zeigeWaehrung()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    if (!rechnung)
        return;
    const std::optional<QString> waehrung = rechnung->waehrung();
    m_zeigt = true;
    int index = betragTabWaehrungsComboBox->findText(waehrung.value_or(QStringLiteral("€")));
    if (index < 0 && waehrung && !waehrung->isEmpty()) {
        // A currency of the document's own is shown as it is, never replaced by one of the list.
        betragTabWaehrungsComboBox->addItem(*waehrung);
        index = betragTabWaehrungsComboBox->count() - 1;
    }
    betragTabWaehrungsComboBox->setCurrentIndex(index);
    if (index < 0)
        betragTabWaehrungsComboBox->setEditText(waehrung.value_or(QString()));
    m_zeigt = false;
}

void FKREditorBetragTab::zeigeBrutto()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    const std::optional<bool> brutto = rechnung ? rechnung->brutto() : std::nullopt;
    betragTabNettoRadioButton->setChecked(!brutto || *brutto == false);
    betragTabBruttoRadioButton->setChecked(brutto && *brutto != false);
    const bool mitSteuer = brutto == true;
    betragTabMwStSatzTextField->setEnabled(mitSteuer);
    betragTabMwStSatzTextField->setReadOnly(!mitSteuer);
}

void FKREditorBetragTab::bruttoChanged(bool netto)
{
    FKRRechnung *rechnung = m_editor.rechnung();
    if (!rechnung)
        return;
    if (netto) {
        // A net document carries no VAT: the rate goes to zero and stays there after a switch
        // back to gross until the user enters one.
        rechnung->setBrutto(false);
        rechnung->setMwStSatz(Decimal(0));
    } else {
        rechnung->setBrutto(true);
    }
    zeigeBrutto();
    aktualisiereRechnungsSumme();
}

void FKREditorBetragTab::waehrungGeaendert(const QString &waehrung)
{
    FKRRechnung *rechnung = m_editor.rechnung();
    if (m_zeigt || !rechnung)
        return;
    const QString text = waehrung.trimmed();
    rechnung->setWaehrung(text.isEmpty() ? std::nullopt : std::optional<QString>(text));
    aktualisiereRechnungsSumme();
}

void FKREditorBetragTab::aktualisiereRechnungsSumme()
{
    betragTabRechnungsSummeTextField->setText(m_editor.betragsText(m_editor.rechnungsSummeBetragTab()));
}
