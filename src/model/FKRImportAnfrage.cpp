#include "FKRImportAnfrage.h"

#include "FKREmpfaenger.h"
#include "FKRPosten.h"
#include "QBDauerTexte.h"

#include <array>

namespace {
struct Schluessel {
    QLatin1String text;
    QString FKRImportAnfrage::*wert;
};

// In the order in which every pair is tested; the "=" belongs to the key, so "auftrag=" never
// takes a pair of "auftraggeber=".
const std::array<Schluessel, 8> kSchluessel{{
    {QLatin1String("startDatum="), &FKRImportAnfrage::startDatum},
    {QLatin1String("stopDatum="), &FKRImportAnfrage::stopDatum},
    {QLatin1String("aufgabe="), &FKRImportAnfrage::aufgabe},
    {QLatin1String("auftrag="), &FKRImportAnfrage::auftrag},
    {QLatin1String("auftraggeber="), &FKRImportAnfrage::auftraggeber},
    {QLatin1String("auftraggeberNotiz="), &FKRImportAnfrage::auftraggeberNotiz},
    {QLatin1String("summeStunden="), &FKRImportAnfrage::summeStunden},
    {QLatin1String("summeErtraege="), &FKRImportAnfrage::summeErtraege},
}};
// Places in the table: the one-line texts come first, then the note and the two numbers.
constexpr std::size_t kNotiz = 5;
constexpr std::size_t kStunden = 6;
constexpr std::size_t kErtraege = 7;

// Control characters, and the Unicode line and paragraph separators that break a line as well.
bool istSteuerzeichen(QChar zeichen)
{
    return zeichen.category() == QChar::Other_Control || zeichen == QChar::LineSeparator
        || zeichen == QChar::ParagraphSeparator;
}

bool hatSteuerzeichen(const QString &text, bool zeilenUndTabsErlaubt)
{
    for (const QChar zeichen : text) {
        if (zeilenUndTabsErlaubt && (zeichen == u'\n' || zeichen == u'\t'))
            continue;
        if (istSteuerzeichen(zeichen))
            return true;
    }
    return false;
}

// "." is the separator whatever the user's locale; a missing value and anything that is no plain
// or scientific decimal (blanks, "," or "NaN") are nullopt, and so is a value beyond what a
// Decimal holds.
std::optional<Decimal> alsZahl(const QString &text)
{
    return Decimal::parse(text.toStdString());
}

QLatin1String ohneGleich(QLatin1String schluessel)
{
    return schluessel.chopped(1);
}
} // namespace

FKRImportAnfrage FKRImportAnfrage::lies(const QString &dekodierteAnfrage)
{
    FKRImportAnfrage anfrage;
    const QStringList paare = dekodierteAnfrage.split(QLatin1Char('&'), Qt::SkipEmptyParts);
    for (const QString &paar : paare) {
        for (const Schluessel &schluessel : kSchluessel) {
            if (paar.startsWith(schluessel.text)) {
                anfrage.*schluessel.wert = paar.mid(schluessel.text.size());
                break;
            }
        }
    }
    anfrage.auftraggeberNotiz.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');

    const auto lehneAb = [&anfrage](Mangel mangel, QLatin1String schluessel) {
        anfrage.mangel = mangel;
        anfrage.mangelhafterSchluessel = ohneGleich(schluessel);
        return anfrage;
    };
    for (std::size_t i = 0; i <= kNotiz; ++i) {
        if (hatSteuerzeichen(anfrage.*kSchluessel[i].wert, i == kNotiz))
            return lehneAb(Mangel::Steuerzeichen, kSchluessel[i].text);
    }

    if (!anfrage.summeStunden.isEmpty()) {
        const std::optional<Decimal> sekunden = alsZahl(anfrage.summeStunden);
        const Decimal ganze = sekunden ? sekunden->rounded(0, Decimal::Rounding::Down) : Decimal::notANumber();
        if (!sekunden || !(ganze >= Decimal(kMindestSekunden) && ganze <= Decimal(std::int64_t(kHoechstSekunden))))
            return lehneAb(Mangel::Stunden, kSchluessel[kStunden].text);
        anfrage.anzahl = QBDauerTexte::formatDecimalIntervalAsDecimalNumber(ganze).rounded(2, Decimal::Rounding::HalfAwayFromZero);
    }
    if (!anfrage.summeErtraege.isEmpty()) {
        const std::optional<Decimal> ertraege = alsZahl(anfrage.summeErtraege);
        if (!ertraege || ertraege->isNegative() || *ertraege > Decimal(std::int64_t(kHoechstErtraege)))
            return lehneAb(Mangel::Ertraege, kSchluessel[kErtraege].text);
        if (!anfrage.anzahl.isNaN()) {
            try {
                anfrage.einzelbetrag = (*ertraege / anfrage.anzahl).rounded(2, Decimal::Rounding::HalfAwayFromZero);
            } catch (const DecimalError &) {
                // Only earnings too small for any Decimal once divided get here (the bounds rule
                // out an overflow): they are no cent.
                anfrage.einzelbetrag = Decimal(0);
            }
        }
    }
    return anfrage;
}

QString FKRImportAnfrage::grund() const
{
    switch (mangel) {
    case Mangel::Keiner:
        break;
    case Mangel::Stunden:
        return QStringLiteral("summeStunden must be a number of seconds from %1 to %2 (0.01 to 1000000 hours)")
            .arg(kMindestSekunden)
            .arg(kHoechstSekunden);
    case Mangel::Ertraege:
        return QStringLiteral("summeErtraege must be an amount from 0 to %1").arg(kHoechstErtraege);
    case Mangel::Steuerzeichen:
        if (mangelhafterSchluessel == ohneGleich(kSchluessel[kNotiz].text))
            return mangelhafterSchluessel + QLatin1String(" contains a control character other than a line break or tab");
        return mangelhafterSchluessel + QLatin1String(" contains a line break or another control character");
    }
    return {};
}

QString FKRImportAnfrage::postenBezeichnung() const
{
    return auftraggeber + QLatin1Char(' ') + auftrag + QLatin1Char(' ') + aufgabe;
}

QString FKRImportAnfrage::postenBeschreibung() const
{
    return startDatum + QLatin1String(" - ") + stopDatum;
}

bool FKRImportAnfrage::uebertrageAuf(FKRPosten &posten) const
{
    if (!istAngenommen())
        return false;
    posten.setAnzahl(anzahl);
    if (!anzahl.isNaN() && !einzelbetrag.isNaN())
        posten.setEinzelbetrag(einzelbetrag);
    posten.setPostenBezeichnung(postenBezeichnung());
    posten.setPostenBeschreibung(postenBeschreibung());
    return true;
}

FKREmpfaenger *FKRImportAnfrage::passenderEmpfaenger(const QList<FKREmpfaenger *> &kandidaten,
                                                     const QString &auftraggeber)
{
    for (FKREmpfaenger *empfaenger : kandidaten) {
        if (!empfaenger)
            continue;
        if (empfaenger->name() == auftraggeber || empfaenger->firma() == auftraggeber)
            return empfaenger;
    }
    return nullptr;
}
