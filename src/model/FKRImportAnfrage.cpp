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

// "." is the separator whatever the user's locale; anything that is not a plain or scientific
// decimal, or lies beyond what a Decimal holds, is NaN.
Decimal alsZahl(const QString &text)
{
    return Decimal::parse(text.toStdString()).value_or(Decimal::notANumber());
}

Decimal quotient(const Decimal &dividend, const Decimal &divisor)
{
    if (divisor.isNaN() || divisor.isZero())
        return Decimal::notANumber();
    try {
        return dividend / divisor;
    } catch (const DecimalError &) {
        return Decimal::notANumber(); // overflow or underflow of extreme values
    }
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
    anfrage.anzahl = QBDauerTexte::formatDecimalIntervalAsDecimalNumber(alsZahl(anfrage.summeStunden));
    anfrage.einzelbetrag = quotient(alsZahl(anfrage.summeErtraege), anfrage.anzahl);
    return anfrage;
}

QString FKRImportAnfrage::postenBezeichnung() const
{
    return auftraggeber + QLatin1Char(' ') + auftrag + QLatin1Char(' ') + aufgabe;
}

QString FKRImportAnfrage::postenBeschreibung() const
{
    return startDatum + QLatin1String(" - ") + stopDatum;
}

void FKRImportAnfrage::uebertrageAuf(FKRPosten &posten) const
{
    posten.setAnzahl(anzahl);
    if (!anzahl.isNaN() && !einzelbetrag.isNaN())
        posten.setEinzelbetrag(einzelbetrag);
    posten.setPostenBezeichnung(postenBezeichnung());
    posten.setPostenBeschreibung(postenBeschreibung());
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
