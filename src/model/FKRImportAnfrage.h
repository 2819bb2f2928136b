#pragma once

#include "Decimal.h"

#include <QList>
#include <QString>

class FKREmpfaenger;
class FKRPosten;

// A block of tracked work handed over by a time tracker: the values of the request's query, read
// once, with the quantity and unit price derived from them. Both roads of the item import (the
// open editor and the model-side operation) read requests here, so they agree on every rule.
//
// The query is the already percent-decoded text: pairs separated by "&" (empty pieces skipped),
// each matched against the keys in a fixed order as a case-sensitive prefix that includes the
// "="; a pair that matches no key is ignored, the last occurrence of a key wins, and values are
// taken verbatim (no trimming). A missing key leaves its value empty.
class FKRImportAnfrage
{
public:
    static FKRImportAnfrage lies(const QString &dekodierteAnfrage);

    QString startDatum;
    QString stopDatum;
    QString aufgabe;
    QString auftrag;
    QString auftraggeber;
    QString auftraggeberNotiz;
    QString summeStunden;  // seconds, as sent
    QString summeErtraege; // earnings for those seconds, as sent

    // The hours: summeStunden read as a decimal with "." (whatever the user's locale), cut to
    // whole seconds and divided by 3600. NaN when summeStunden is missing or not a number.
    Decimal anzahl = Decimal::notANumber();
    // summeErtraege ÷ anzahl. NaN when either is not a number, when anzahl is zero (less than a
    // second was tracked) and when the quotient lies beyond what a Decimal holds.
    Decimal einzelbetrag = Decimal::notANumber();

    // "auftraggeber auftrag aufgabe"; empty values keep their blanks.
    QString postenBezeichnung() const;
    // "startDatum - stopDatum".
    QString postenBeschreibung() const;

    // Writes quantity, unit price, title and description into the item; title and description
    // replace what the item had even when they are empty. A quantity that is not a number leaves
    // the item without one (the store keeps no NaN). The unit price is written only when it is a
    // number and the quantity is too: an item with a quantity always needs a unit price for its
    // sums, so otherwise it keeps the one it had (a new item's is zero) for the user to fill in.
    void uebertrageAuf(FKRPosten &posten) const;

    // The first of `kandidaten`, in their order, whose name or else whose company equals
    // `auftraggeber` exactly (case-sensitive); nullptr when none does.
    static FKREmpfaenger *passenderEmpfaenger(const QList<FKREmpfaenger *> &kandidaten, const QString &auftraggeber);
};
