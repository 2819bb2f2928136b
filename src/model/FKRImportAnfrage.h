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
//
// A request is refused as a whole, with a reason for the sender, when it carries values no user
// would put on an invoice: hours that are no number of seconds or lie outside 0.01 to 1000000
// hours, earnings that are no amount or lie outside 0 to 1000000000000, or a control character
// (a line break, NUL, ...) in one of the one-line texts. The client note may hold line breaks
// and tabs (it is an address); other control characters refuse it too. Any text is safe to
// read: nothing here throws, and the work grows with the length of the text.
class FKRImportAnfrage
{
public:
    // What makes a request unusable; the first one found counts.
    enum class Mangel { Keiner, Stunden, Ertraege, Steuerzeichen };

    static constexpr int kMindestSekunden = 18;               // 0.005 hours, rounded to 0.01
    static constexpr qint64 kHoechstSekunden = 3600000000LL;   // 1000000 hours
    static constexpr qint64 kHoechstErtraege = 1000000000000LL;

    static FKRImportAnfrage lies(const QString &dekodierteAnfrage);

    QString startDatum;
    QString stopDatum;
    QString aufgabe;
    QString auftrag;
    QString auftraggeber;
    QString auftraggeberNotiz; // line breaks as "\n", whatever the sender used
    QString summeStunden;      // seconds, as sent
    QString summeErtraege;     // earnings for those seconds, as sent

    Mangel mangel = Mangel::Keiner;
    // The refused key without its "=" ("summeStunden", "aufgabe", ...); empty when accepted.
    QString mangelhafterSchluessel;

    // The hours as the invoice shows them: summeStunden read as a decimal with "." (whatever the
    // user's locale), cut to whole seconds, divided by 3600 and rounded to hundredths. NaN when
    // summeStunden is missing or the request is refused.
    Decimal anzahl = Decimal::notANumber();
    // summeErtraege ÷ anzahl, rounded to the cent: the amounts count the unit price in cents,
    // so the item holds exactly the price they use. NaN when summeErtraege or anzahl is
    // missing or the request is refused.
    Decimal einzelbetrag = Decimal::notANumber();

    bool istAngenommen() const { return mangel == Mangel::Keiner; }
    // Why the request is refused, one English line for the sender; empty when accepted.
    QString grund() const;

    // "auftraggeber auftrag aufgabe"; empty values keep their blanks.
    QString postenBezeichnung() const;
    // "startDatum - stopDatum".
    QString postenBeschreibung() const;

    // Writes quantity, unit price, title and description into the item and returns true; title
    // and description replace what the item had even when they are empty. Without summeStunden
    // the item has no quantity; without summeErtraege or quantity it keeps its unit price (a new
    // item's is zero) for the user to fill in. A refused request changes nothing (false).
    bool uebertrageAuf(FKRPosten &posten) const;

    // The first of `kandidaten`, in their order, whose name or else whose company equals
    // `auftraggeber` exactly (case-sensitive); nullptr when none does.
    static FKREmpfaenger *passenderEmpfaenger(const QList<FKREmpfaenger *> &kandidaten, const QString &auftraggeber);
};
