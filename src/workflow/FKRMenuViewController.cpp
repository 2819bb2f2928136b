#include "FKRMenuViewController.h"

#include "FKRLocalizationHelper.h"
#include "FKRMenuKnopf.h"
#include "FKRRechnungenListeViewController.h"
#include "FKRRechnungsAnsichtViewController.h"
#include "FKRSplitViewItem.h"
#include "QBBenutzerEinstellungen.h"
#include "QBMStyleUtil.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int kIconPunkte = 36;

struct Eintrag {
    char16_t glyphe; // a code point of the icon font
    const char *schluessel;
};

// The five areas in the order of their numbers, then settings and help.
const Eintrag kEintraege[7] = {
    {u'\uf044', QT_TRANSLATE_NOOP("Velmora", "NAVIGATION_ENTWUERFE")},  // pencil on paper
    {u'\uf1d8', QT_TRANSLATE_NOOP("Velmora", "NAVIGATION_VERSANDT")},   // paper plane
    {u'\uf017', QT_TRANSLATE_NOOP("Velmora", "NAVIGATION_FAELLIG")},    // clock
    {u'\uf058', QT_TRANSLATE_NOOP("Velmora", "NAVIGATION_BEZAHLT")},    // check mark
    {u'\uf0c5', QT_TRANSLATE_NOOP("Velmora", "NAVIGATION_ALLE")},       // stacked pages
    {u'\uf013', QT_TRANSLATE_NOOP("Velmora", "NAVIGATION_EINSTELLUNGEN")}, // cog
    {u'\uf059', QT_TRANSLATE_NOOP("Velmora", "NAVIGATION_HILFE")},      // question mark
};

const QColor kAktiv = QColor::fromRgbF(1.0f, 1.0f, 1.0f, 1.0f);
const QColor kGedimmt = QColor::fromRgbF(1.0f, 1.0f, 1.0f, 0.6f);

QFont iconSchrift()
{
    QFont schrift;
    const QString familie = FKRMenuViewController::iconSchriftFamilie();
    if (!familie.isEmpty())
        schrift = QFont(familie);
    schrift.setPointSize(kIconPunkte);
    return schrift;
}

} // namespace

QString FKRMenuViewController::iconSchriftFamilie()
{
    // The glyphs travel inside the program; registered once per process.
    static const QString familie = [] {
        const int id = QFontDatabase::addApplicationFont(QStringLiteral(":/icons/fontawesome-webfont.ttf"));
        const QStringList familien = id >= 0 ? QFontDatabase::applicationFontFamilies(id) : QStringList();
        return familien.isEmpty() ? QString() : familien.first();
    }();
    return familie;
}

FKRMenuViewController::FKRMenuViewController(QWidget *parent)
    : QWidget(parent)
{
    const QFont glyphenSchrift = iconSchrift();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 16, 6, 12);
    layout->setSpacing(6);
    std::array<FKRMenuKnopf *, 7> knoepfe{};
    for (std::size_t i = 0; i < knoepfe.size(); ++i) {
        knoepfe[i] = new FKRMenuKnopf(QString(QChar(kEintraege[i].glyphe)),
                                      FKRLocalizationHelper::hauptTabellenText(QString::fromLatin1(kEintraege[i].schluessel)),
                                      glyphenSchrift, this);
        if (i == 5)
            layout->addStretch(1);
        layout->addWidget(knoepfe[i]);
    }
    std::copy_n(knoepfe.begin(), 5, m_bereiche.begin());
    m_einstellungen = knoepfe[5];
    m_hilfe = knoepfe[6];
    // Settings and help are commands, not places: they stay in the dimmed white.
    m_einstellungen->setTextFarbe(kGedimmt);
    m_hilfe->setTextFarbe(kGedimmt);
    setFixedWidth(qMax(112, layout->sizeHint().width()));

    connect(m_bereiche[kEntwuerfe], &FKRMenuKnopf::clicked, this, &FKRMenuViewController::entwuerfeButtonPressed);
    connect(m_bereiche[kVersandte], &FKRMenuKnopf::clicked, this,
            &FKRMenuViewController::versandteRechnungenButtonPressed);
    connect(m_bereiche[kFaellige], &FKRMenuKnopf::clicked, this,
            &FKRMenuViewController::faelligeRechnungenButtonPressed);
    connect(m_bereiche[kBezahlte], &FKRMenuKnopf::clicked, this,
            &FKRMenuViewController::bezahlteRechnungenButtonPressed);
    connect(m_bereiche[kAlle], &FKRMenuKnopf::clicked, this, &FKRMenuViewController::alleRechnungenButtonPressed);
    connect(m_einstellungen, &FKRMenuKnopf::clicked, this, &FKRMenuViewController::einstellungenGewaehlt);
    connect(m_hilfe, &FKRMenuKnopf::clicked, this, &FKRMenuViewController::hilfeButtonPressed);

    // The list starts with all documents.
    markiereAktivenBereich(kAlle);
    m_hintergrundFarbe = QBMStyleUtil::appColor();
    connect(QBBenutzerEinstellungen::sharedInstance(), &QBBenutzerEinstellungen::backgroundColorRechnungenChanged,
            this, &FKRMenuViewController::backgroundColorRechnungenChanged);
}

FKRMenuViewController::~FKRMenuViewController() = default;

FKRMenuKnopf *FKRMenuViewController::bereichsKnopf(int nummer) const
{
    return nummer >= 0 && nummer < int(m_bereiche.size()) ? m_bereiche[std::size_t(nummer)] : nullptr;
}

void FKRMenuViewController::entwuerfeButtonPressed() { bereichGewaehlt(kEntwuerfe); }
void FKRMenuViewController::versandteRechnungenButtonPressed() { bereichGewaehlt(kVersandte); }
void FKRMenuViewController::faelligeRechnungenButtonPressed() { bereichGewaehlt(kFaellige); }
void FKRMenuViewController::bezahlteRechnungenButtonPressed() { bereichGewaehlt(kBezahlte); }
void FKRMenuViewController::alleRechnungenButtonPressed() { bereichGewaehlt(kAlle); }

void FKRMenuViewController::bereichGewaehlt(int nummer)
{
    markiereAktivenBereich(nummer);
    if (auto *liste = FKRSplitView::splitViewItem<FKRRechnungenListeViewController>(this, FKRSplitView::kListe)) {
        switch (nummer) {
        case kEntwuerfe:
            liste->zeigeEntwuerfe();
            break;
        case kVersandte:
            liste->zeigeVersandteRechnungen();
            break;
        case kFaellige:
            liste->zeigeFaelligeRechnungen();
            break;
        case kBezahlte:
            liste->zeigeBezahlteRechnungen();
            break;
        default:
            liste->zeigeAlleRechnungen();
            break;
        }
    }
    // The view shows its placeholder until a row of the new area is chosen.
    if (auto *ansicht = FKRSplitView::splitViewItem<FKRRechnungsAnsichtViewController>(this, FKRSplitView::kAnsicht)) {
        ansicht->setRechnung(nullptr);
        ansicht->aktualisiereAnsicht();
    }
}

void FKRMenuViewController::hilfeButtonPressed()
{
    // Delivered once the click has finished, so the panels appear over a settled window.
    QTimer::singleShot(0, this, [this] { Q_EMIT hilfeGewaehlt(); });
}

void FKRMenuViewController::markiereAktivenBereich(int nummer)
{
    for (FKRMenuKnopf *knopf : m_bereiche)
        knopf->setTextFarbe(kGedimmt);
    if (FKRMenuKnopf *aktiv = bereichsKnopf(nummer))
        aktiv->setTextFarbe(kAktiv);
}

void FKRMenuViewController::backgroundColorRechnungenChanged()
{
    const QColor farbe = QBMStyleUtil::appColor();
    if (farbe == m_hintergrundFarbe)
        return;
    m_hintergrundFarbe = farbe;
    update();
}

void FKRMenuViewController::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_hintergrundFarbe);
}
