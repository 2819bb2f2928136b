#include "AmountsCommand.h"

#include "EingabeFehler.h"
#include "FKRFehlenderWert.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "JsonDokumentLeser.h"
#include "ManagedObjectContext.h"

#include <QFile>

#include <algorithm>
#include <istream>
#include <ostream>
#include <iterator>

using nlohmann::ordered_json;

namespace {

std::string text(const Decimal &betrag)
{
    return betrag.toString();
}

// Runs one step of the arithmetic and turns its failures into a message about the input:
// an absent value names the attribute that lacks it, an overflow the amount being computed.
template<typename Schritt>
auto berechne(const std::string &pfad, const std::string &betrag, Schritt schritt)
{
    try {
        return schritt();
    } catch (const FKRFehlenderWert &fehlt) {
        throw EingabeFehler(JsonDokumentLeser::pfadZu(pfad, fehlt.attribute().toStdString()),
                            "missing value, but the amounts need it");
    } catch (const DecimalError &fehler) {
        throw EingabeFehler(JsonDokumentLeser::pfadZu(pfad, betrag), std::string(fehler.what()) + " while computing it");
    }
}

Decimal berechneBetrag(const std::string &name, Decimal (FKRRechnung::*betrag)() const, const FKRRechnung &rechnung)
{
    return berechne({}, name, [&] { return (rechnung.*betrag)(); });
}

std::string liesEingabe(const QStringList &arguments, std::istream &in)
{
    const QString quelle = arguments.value(0, QStringLiteral("-"));
    if (quelle == u"-")
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    QFile datei(quelle);
    if (!datei.open(QIODevice::ReadOnly))
        throw EingabeFehler(quelle.toStdString(), "cannot read: " + datei.errorString().toStdString());
    return datei.readAll().toStdString();
}

} // namespace

std::string_view AmountsCommand::summary() const
{
    return "Print every amount of a document given as JSON";
}

std::string_view AmountsCommand::description() const
{
    return R"(Reads one document as a JSON object from FILE, or from standard input when FILE
is "-" or missing, and prints its amounts as a JSON object.

Input: members named like the stored attributes of a document ("sprache", "waehrung",
"brutto", "mwStSatz", "rabatt", "zuschlag", "skonto", "skontoZeitraum", "dokumentArt", ...)
and "posten", an array of items with the item attributes ("postenNummer", "anzahl",
"einzelbetrag", "mwStSatz", "postenBezeichnung", ...). Rates, discounts and surcharges are
fractions ("0.19" for 19 %). Decimals are best given as strings ("10.005"); JSON numbers
are read through their shortest round-trip text. Dates are ISO 8601 with an offset.
A member left out keeps the default of a new document, null makes it absent, and a
document without "posten" has no items at all. Unknown members are an error.

Output: postenSumme, rabattBetrag, zuschlagBetrag, nettoSumme, umsatzsteuerJeSatz
(rate label -> VAT, in the order the rates first occur), umsatzsteuerSumme,
rechnungsSumme, skontoBetrag, rechnungsSummeAbzueglichSkonto, and posten: per item in
postenNummer order its postenNummer, zwischenSumme, mwStSatzInProzent and mwStBetrag.
Amounts are exact decimals in plain notation, rounded only where the invoice rounds.

Exit status 0 on success; 2 with one line on standard error naming the offending key
when the input cannot be used.
)";
}

ordered_json AmountsCommand::betraege(const FKRRechnung &rechnung, const QList<FKRPosten *> &posten)
{
    // The items first: a missing unit price is then reported with the item's index.
    QList<qsizetype> reihenfolge;
    for (qsizetype i = 0; i < posten.size(); ++i)
        reihenfolge.append(i);
    std::stable_sort(reihenfolge.begin(), reihenfolge.end(), [&](qsizetype a, qsizetype b) {
        // Like the editor's item list: ascending postenNummer, unnumbered items first.
        return posten[a]->postenNummer() < posten[b]->postenNummer();
    });
    ordered_json zeilen = ordered_json::array();
    for (const qsizetype i : reihenfolge) {
        const FKRPosten &p = *posten[i];
        const std::string pfad = "posten[" + std::to_string(i) + ']';
        ordered_json zeile;
        zeile["postenNummer"] = p.postenNummer() ? ordered_json(*p.postenNummer()) : ordered_json();
        zeile["zwischenSumme"] = text(berechne(pfad, "zwischenSumme", [&] { return p.zwischenSumme(); }));
        zeile["mwStSatzInProzent"] = text(berechne(pfad, "mwStSatzInProzent", [&] { return p.mwStSatzInProzent(); }));
        zeile["mwStBetrag"] = text(berechne(pfad, "mwStBetrag", [&] { return p.mwStBetrag(rechnung); }));
        zeilen.push_back(std::move(zeile));
    }

    ordered_json ergebnis;
    ergebnis["postenSumme"] = text(berechneBetrag("postenSumme", &FKRRechnung::postenSumme, rechnung));
    ergebnis["rabattBetrag"] = text(berechneBetrag("rabattBetrag", &FKRRechnung::rabattBetrag, rechnung));
    ergebnis["zuschlagBetrag"] = text(berechneBetrag("zuschlagBetrag", &FKRRechnung::zuschlagBetrag, rechnung));
    ergebnis["nettoSumme"] = text(berechneBetrag("nettoSumme", &FKRRechnung::nettoSumme, rechnung));
    ordered_json jeSatz = ordered_json::object();
    for (const auto &[label, steuer] : berechne({}, "umsatzsteuerJeSatz", [&] { return rechnung.umsatzsteuerJeSatz(); }))
        jeSatz[label.toStdString()] = text(steuer);
    ergebnis["umsatzsteuerJeSatz"] = std::move(jeSatz);
    ergebnis["umsatzsteuerSumme"] = text(berechneBetrag("umsatzsteuerSumme", &FKRRechnung::umsatzsteuerSumme, rechnung));
    ergebnis["rechnungsSumme"] = text(berechneBetrag("rechnungsSumme", &FKRRechnung::rechnungsSumme, rechnung));
    ergebnis["skontoBetrag"] = text(berechneBetrag("skontoBetrag", &FKRRechnung::skontoBetrag, rechnung));
    ergebnis["rechnungsSummeAbzueglichSkonto"] =
        text(berechneBetrag("rechnungsSummeAbzueglichSkonto", &FKRRechnung::rechnungsSummeAbzueglichSkonto, rechnung));
    ergebnis["posten"] = std::move(zeilen);
    return ergebnis;
}

int AmountsCommand::execute(const QStringList &arguments, CommandStreams &io)
{
    if (printHelpIfAsked(arguments, io.out))
        return kExitOk;
    if (arguments.size() > 1) {
        printError(io.err, "amounts takes at most one FILE; see \"velmora-cli help amounts\"");
        return kExitUsage;
    }
    try {
        const nlohmann::json eingabe = JsonDokumentLeser::parse(liesEingabe(arguments, io.in));
        ManagedObjectContext context;
        JsonDokumentLeser leser(context);
        const FKRRechnung *rechnung = leser.leseRechnung(eingabe);
        io.out << betraege(*rechnung, leser.gelesenePosten()).dump(2) << '\n';
    } catch (const EingabeFehler &fehler) {
        printError(io.err, fehler.zeile());
        return kExitUsage;
    }
    io.out.flush();
    if (!io.out) {
        printError(io.err, "cannot write the amounts");
        return kExitFailure;
    }
    return kExitOk;
}
