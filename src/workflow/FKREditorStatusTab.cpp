#include "FKREditorStatusTab.h"

#include "FKRAppDelegate.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "FKRRechnungsDetailsViewController.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The user's text of a literal key (the key check of the translation tables finds it here).
QString hauptTabellenText(const char *schluessel)
{
    return FKRLocalizationHelper::hauptTabellenText(QString::fromUtf8(schluessel));
}

// A date picker without a stored date shows its lowest date as an empty field.
const QDate kKeinDatum(1900, 1, 1);

// Labels of the three dates per type: the document date's key, and the delivery and due
// dates' keys, nullptr where the date has no place in the document.
struct DatumsBeschriftung {
    const char *rechnungsDatum;
    const char *lieferDatum;
    const char *faelligkeitsDatum;
};

std::optional<DatumsBeschriftung> beschriftungFuerArt(qint64 art)
{
    switch (art) {
    case 1:
        return DatumsBeschriftung{QT_TRANSLATE_NOOP("Velmora", "Datum"), nullptr, nullptr};
    case 2:
        return DatumsBeschriftung{QT_TRANSLATE_NOOP("Velmora", "Angebots-Datum"), nullptr,
                                  QT_TRANSLATE_NOOP("Velmora", "Gültig bis")};
    case 3:
        return DatumsBeschriftung{QT_TRANSLATE_NOOP("Velmora", "Rechnungs-Datum"),
                                  QT_TRANSLATE_NOOP("Velmora", "Leistungs-Datum"),
                                  QT_TRANSLATE_NOOP("Velmora", "Fälligkeits-Datum")};
    case 4:
        return DatumsBeschriftung{QT_TRANSLATE_NOOP("Velmora", "Honorarnoten-Datum"),
                                  QT_TRANSLATE_NOOP("Velmora", "Leistungs-Datum"),
                                  QT_TRANSLATE_NOOP("Velmora", "Fälligkeits-Datum")};
    case 5:
        return DatumsBeschriftung{QT_TRANSLATE_NOOP("Velmora", "Mahnungs-Datum"), nullptr,
                                  QT_TRANSLATE_NOOP("Velmora", "Fälligkeits-Datum")};
    default:
        return std::nullopt;
    }
}

void beschrifte(QLabel *label, QDateEdit *picker, const char *schluessel)
{
    label->setVisible(schluessel != nullptr);
    picker->setVisible(schluessel != nullptr);
    if (schluessel)
        label->setText(hauptTabellenText(schluessel));
}

} // namespace

FKREditorStatusTab::FKREditorStatusTab(FKRRechnungsDetailsViewController &editor)
    : m_editor(editor)
{
    dokumentenArtPopUpButton = new QComboBox(this);
    dokumentenArtPopUpButton->setObjectName(QStringLiteral("dokumentenArtPopUpButton"));
    dokumentenArtPopUpButton->addItem(hauptTabellenText("EDITOR_ART_ANSCHREIBEN"), 1);
    dokumentenArtPopUpButton->addItem(hauptTabellenText("EDITOR_ART_ANGEBOT"), 2);
    dokumentenArtPopUpButton->addItem(hauptTabellenText("EDITOR_ART_RECHNUNG"), 3);
    dokumentenArtPopUpButton->addItem(hauptTabellenText("EDITOR_ART_HONORARNOTE"), 4);
    dokumentenArtPopUpButton->addItem(hauptTabellenText("EDITOR_ART_MAHNUNG"), 5);

    dokumentenSpracheSegmentedControl = new QWidget(this);
    dokumentenSpracheSegmentedControl->setObjectName(QStringLiteral("dokumentenSpracheSegmentedControl"));
    dokumentenSpracheSegmente = new QButtonGroup(this);
    auto *segmente = new QHBoxLayout(dokumentenSpracheSegmentedControl);
    segmente->setContentsMargins(0, 0, 0, 0);
    segmente->setSpacing(0);
    const auto segment = [this, segmente](const QString &titel, int tag) {
        auto *knopf = new QPushButton(titel, dokumentenSpracheSegmentedControl);
        knopf->setCheckable(true);
        dokumentenSpracheSegmente->addButton(knopf, tag);
        segmente->addWidget(knopf);
    };
    segment(hauptTabellenText("EDITOR_SPRACHE_DEUTSCH"), kDeutsch);
    segment(hauptTabellenText("EDITOR_SPRACHE_ENGLISCH"), kEnglisch);
    segmente->addStretch();

    datumTabRechnungsDatumLabel = new QLabel(this);
    datumTabRechnungsDatumDatePicker = datumsFeld("datumTabRechnungsDatumDatePicker", "rechnungsDatum");
    datumTabLieferDatumLabel = new QLabel(this);
    datumTabLieferDatumDatePicker = datumsFeld("datumTabLieferDatumDatePicker", "lieferDatum");
    datumTabFaelligkeitsDatumLabel = new QLabel(this);
    datumTabFaelligkeitsDatumDatePicker = datumsFeld("datumTabFaelligkeitsDatumDatePicker", "faelligkeitsDatum");
    datumTabRechnungsDatumLabel->setObjectName(QStringLiteral("datumTabRechnungsDatumLabel"));
    datumTabLieferDatumLabel->setObjectName(QStringLiteral("datumTabLieferDatumLabel"));
    datumTabFaelligkeitsDatumLabel->setObjectName(QStringLiteral("datumTabFaelligkeitsDatumLabel"));

    rechnungsLayoutPopUpButton = new QComboBox(this);
    rechnungsLayoutPopUpButton->setObjectName(QStringLiteral("rechnungsLayoutPopUpButton"));
    rechnungsLayoutPopUpButton->addItem(hauptTabellenText("EDITOR_LAYOUT_SEITENLEISTE"), int(kSeitenleiste));
    rechnungsLayoutPopUpButton->addItem(hauptTabellenText("EDITOR_LAYOUT_KOPFLEISTE"), int(kKopfleiste));
    rechnungsLayoutPopUpButton->addItem(hauptTabellenText("EDITOR_LAYOUT_FUSSLEISTE"), int(kFussleiste));

    auto *formular = new QFormLayout;
    formular->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    formular->addRow(hauptTabellenText("EDITOR_LABEL_DOKUMENTART"), dokumentenArtPopUpButton);
    formular->addRow(hauptTabellenText("EDITOR_LABEL_SPRACHE"), dokumentenSpracheSegmentedControl);
    formular->addRow(datumTabRechnungsDatumLabel, datumTabRechnungsDatumDatePicker);
    formular->addRow(datumTabLieferDatumLabel, datumTabLieferDatumDatePicker);
    formular->addRow(datumTabFaelligkeitsDatumLabel, datumTabFaelligkeitsDatumDatePicker);
    formular->addRow(hauptTabellenText("EDITOR_LABEL_LAYOUT"), rechnungsLayoutPopUpButton);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(formular);
    layout->addStretch();

    connect(dokumentenArtPopUpButton, &QComboBox::activated, this, [this](int index) {
        m_editor.dokumentenArtDidChange(Decimal(dokumentenArtPopUpButton->itemData(index).toInt()));
    });
    connect(dokumentenSpracheSegmente, &QButtonGroup::idClicked, this, &FKREditorStatusTab::dokumentenSpracheDidChange);
    connect(rechnungsLayoutPopUpButton, &QComboBox::activated, this, &FKREditorStatusTab::rechnungsLayoutDidChange);
}

QDateEdit *FKREditorStatusTab::datumsFeld(const char *name, const char *schluessel)
{
    auto *picker = new QDateEdit(this);
    picker->setObjectName(QString::fromLatin1(name));
    picker->setCalendarPopup(true);
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    if (!format.contains(QStringLiteral("yyyy")))
        format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    picker->setDisplayFormat(format);
    picker->setMinimumDate(kKeinDatum);
    picker->setSpecialValueText(QStringLiteral(" "));
    const QString key = QString::fromLatin1(schluessel);
    connect(picker, &QDateEdit::dateChanged, this, [this, key](QDate datum) {
        FKRRechnung *rechnung = m_editor.rechnung();
        if (m_zeigt || !rechnung || !datum.isValid() || datum == kKeinDatum)
            return;
        // Only the day is chosen here; the time of day of the stored date stays.
        const QDateTime bisher = rechnung->value(key).toDateTime();
        rechnung->setValue(key, QDateTime(datum, bisher.isValid() ? bisher.time() : QTime(0, 0)));
    });
    return picker;
}

void FKREditorStatusTab::zeigeArtUndSprache()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    const std::optional<Decimal> art = rechnung ? rechnung->dokumentArt() : std::nullopt;
    dokumentenArtPopUpButton->setCurrentIndex(dokumentenArtPopUpButton->findData(art ? art->toInt32() : 0));
    dokumentenArtPopUpButton->setEnabled(rechnung != nullptr);

    const std::optional<qint64> sprache = rechnung ? rechnung->sprache() : std::nullopt;
    // With no segment for the code, none is on.
    dokumentenSpracheSegmente->setExclusive(false);
    for (QAbstractButton *knopf : dokumentenSpracheSegmente->buttons())
        knopf->setChecked(sprache && dokumentenSpracheSegmente->id(knopf) == *sprache);
    dokumentenSpracheSegmente->setExclusive(true);
    dokumentenSpracheSegmentedControl->setEnabled(rechnung != nullptr);
}

void FKREditorStatusTab::aktualisiere()
{
    zeigeArtUndSprache();
    zeigeDatumsBeschriftungen();
    zeigeDaten();
    FKRRechnung *rechnung = m_editor.rechnung();
    rechnungsLayoutPopUpButton->setEnabled(rechnung != nullptr);
    if (!rechnung)
        return;
    // 4 is the older code of the footer-bar layout.
    if (rechnung->layout() == Decimal(4)) {
        rechnung->setLayout(Decimal(int(kFussleiste)));
        m_editor.sichern();
    }
    const std::optional<Decimal> layout = rechnung->layout();
    rechnungsLayoutPopUpButton->setCurrentIndex(rechnungsLayoutPopUpButton->findData(layout ? layout->toInt32() : 0));
}

void FKREditorStatusTab::zeigeDatumsBeschriftungen()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    const std::optional<Decimal> art = rechnung ? rechnung->dokumentArt() : std::nullopt;
    const std::optional<DatumsBeschriftung> beschriftung = art ? beschriftungFuerArt(art->toInt64()) : std::nullopt;
    // Any other type leaves the labels as they are.
    if (!beschriftung)
        return;
    beschrifte(datumTabRechnungsDatumLabel, datumTabRechnungsDatumDatePicker, beschriftung->rechnungsDatum);
    beschrifte(datumTabLieferDatumLabel, datumTabLieferDatumDatePicker, beschriftung->lieferDatum);
    beschrifte(datumTabFaelligkeitsDatumLabel, datumTabFaelligkeitsDatumDatePicker, beschriftung->faelligkeitsDatum);
}

void FKREditorStatusTab::zeigeDaten()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    m_zeigt = true;
    const auto zeige = [rechnung](QDateEdit *picker, const std::optional<QDateTime> &datum) {
        picker->setDate(datum && datum->isValid() ? datum->date() : kKeinDatum);
        picker->setEnabled(rechnung != nullptr);
    };
    zeige(datumTabRechnungsDatumDatePicker, rechnung ? rechnung->rechnungsDatum() : std::nullopt);
    zeige(datumTabLieferDatumDatePicker, rechnung ? rechnung->lieferDatum() : std::nullopt);
    zeige(datumTabFaelligkeitsDatumDatePicker, rechnung ? rechnung->faelligkeitsDatum() : std::nullopt);
    m_zeigt = false;
}

void FKREditorStatusTab::rechnungsLayoutDidChange()
{
    FKRRechnung *rechnung = m_editor.rechnung();
    const QVariant tag = rechnungsLayoutPopUpButton->currentData();
    if (!rechnung || !tag.isValid())
        return;
    rechnung->setLayout(Decimal(tag.toInt()));
    m_editor.sichern();
}

void FKREditorStatusTab::dokumentenSpracheDidChange(int sprache)
{
    FKRRechnung *rechnung = m_editor.rechnung();
    if (!rechnung)
        return;
    // The number's labels follow the language; saved at once, so the document view shows the
    // document in its new language while the editor is still open.
    rechnung->wechsleSprache(qint64(sprache));
    m_editor.sichern();
}
