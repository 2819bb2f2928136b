// velmora-cli amounts: the dispatcher and the command run in-process with string streams.
#include "CliLauf.h"

#include <nlohmann/json.hpp>

#include <QTemporaryFile>
#include <gtest/gtest.h>

#include <algorithm>

using nlohmann::ordered_json;

namespace {

ordered_json betraege(const std::string &eingabe)
{
    const Lauf lauf = starteCli({QStringLiteral("amounts")}, eingabe);
    EXPECT_EQ(lauf.status, 0) << lauf.err;
    return lauf.status == 0 ? ordered_json::parse(lauf.out) : ordered_json();
}

std::string mal(std::string_view teil, int n)
{
    std::string text;
    for (int i = 0; i < n; ++i)
        text += teil;
    return text;
}

const std::string kEinPosten = R"("posten": [{"anzahl": "1", "einzelbetrag": "100"}])";

TEST(AmountsCommand, ExampleDocumentInSwissFrancs)
{
    // Item: 10.005 -> 10.01, x 2 = 20.02, at its own 7 %: 1.4014. Discount 2.002 -> 2.00,
    // surcharge 1.001 -> 1.00; net 20.02 + 1.00 - 2.00 = 19.02 -> 19.00 in CHF.
    // VAT 1.4014 + 0.07007 - 0.14014 = 1.33133 -> 1.33 -> 1.35; total 19.00 + 1.35 = 20.35.
    // Cash discount 20.35 x 0.02 = 0.407 -> 0.41 -> 0.40; 20.35 - 0.40 = 19.95.
    const ordered_json erwartet = {
        {"postenSumme", "20.02"}, {"rabattBetrag", "2"}, {"zuschlagBetrag", "1"}, {"nettoSumme", "19"},
        {"umsatzsteuerJeSatz", {{"7,00%", "1.4014"}}}, {"umsatzsteuerSumme", "1.35"}, {"rechnungsSumme", "20.35"},
        {"skontoBetrag", "0.4"}, {"rechnungsSummeAbzueglichSkonto", "19.95"},
        {"posten", {{{"postenNummer", 1}, {"zwischenSumme", "20.02"}, {"mwStSatzInProzent", "7"}, {"mwStBetrag", "1.4014"}}}},
    };
    EXPECT_EQ(betraege(R"({"sprache": 1, "waehrung": "CHF", "brutto": true, "mwStSatz": "0.19", "rabatt": 0.1,
        "zuschlag": 5e-2, "skonto": "0.02", "skontoZeitraum": 14,
        "posten": [{"postenNummer": 1, "anzahl": 2, "einzelbetrag": 10.005, "mwStSatz": "0.07"}]})"), erwartet);
}

TEST(AmountsCommand, MissingKeepsTheDefaultNullMakesAbsent)
{
    EXPECT_EQ(betraege(R"({"mwStSatz": null, )" + kEinPosten + "}")["umsatzsteuerJeSatz"], (ordered_json{{"", "0"}}));
    const ordered_json leer = betraege(R"({"posten": []})");
    EXPECT_EQ(leer["umsatzsteuerJeSatz"], (ordered_json{{"19,00%", "0"}}));
    // Items in postenNummer order (null first, then the store's 0); rates in input order.
    const ordered_json sortiert = betraege(R"({"sprache": 2, "posten": [
        {"postenNummer": 2, "anzahl": "1", "einzelbetrag": "10", "mwStSatz": "0.07"},
        {"anzahl": "1", "einzelbetrag": "100"}, {"postenNummer": null}]})");
    EXPECT_EQ(sortiert["posten"][0]["postenNummer"], nullptr);
    EXPECT_EQ(sortiert["posten"][2]["postenNummer"], 2);
    EXPECT_EQ(sortiert["umsatzsteuerJeSatz"], (ordered_json{{"7.00%", "0.7"}, {"19.00%", "19"}}));
    // Numbers are read as written, never through a double.
    EXPECT_EQ(betraege(R"({"posten": [{"anzahl": 9007199254740993, "einzelbetrag": 1}]})")["postenSumme"], "9007199254740993");
}

TEST(AmountsCommand, BadInputGivesOneLineNamingTheKey)
{
    const std::pair<std::string, std::string> faelle[] = {
        {R"({"posten": [{"anzahl": "abc"}]})", R"("posten[0].anzahl": not a decimal number: "abc")"},
        {R"({"sprache": "2"})", R"("sprache": expected an integer)"},
        {R"({"skontoZeitraum": 14.5})", R"("skontoZeitraum": expected an integer)"},
        {R"({"brutto": 1})", R"("brutto": expected true or false)"},
        {R"({"faelligkeitsDatum": "2026-03-01T10:00:00"})", R"("faelligkeitsDatum": expected an ISO 8601)"},
        {R"({"rechnungsSumme": "1"})", R"("rechnungsSumme": unknown key)"},
        {R"({"posten": [{}, 7]})", R"("posten[1]": expected an item)"},
        {R"({"rabatt": null, )" + kEinPosten + "}", R"("rabatt": missing value)"},
        {R"({"posten": [{"anzahl": "1e90", "einzelbetrag": "1e90"}]})", R"("posten[0].zwischenSumme": decimal overflow)"},
        {R"({"rabatt": )", "input is not JSON (at byte 12)"},
        {"[]", "expected a document as a JSON object"},
        // Hostile input: beyond any double or document, keys and values that would break the line.
        {R"({"posten": [{"anzahl": 1e999}]})", R"("posten[0].anzahl": number out of range)"},
        {R"({"rabatt": "1)" + mal("0", 200000) + R"("})", R"("rabatt": decimal number out of range: "1000)"},
        {R"({"rabatt": "9e9999999"})", R"("rabatt": decimal number out of range: "9e9999999")"},
        {mal("[", 70000) + mal("]", 70000), R"("[0][0][0])"},
        {"{\"a\\u0085b\\u2028c\\u0000\": 1}", R"("a\u0085b\u2028c\u0000": unknown key)"},
        {R"({")" + mal("k", 100000) + R"(": 1})", "\"kkkk"},
        {R"({"waehrung": [1)" + mal(",1", 50000) + "]}", R"("waehrung": expected a text, got array [...] (50001 values))"},
        {"{\"a\xc3", "input is not JSON"},
    };
    for (const auto &[eingabe, meldung] : faelle) {
        const Lauf lauf = starteCli({QStringLiteral("amounts")}, eingabe);
        SCOPED_TRACE(eingabe.substr(0, 80));
        EXPECT_EQ(lauf.status, 2);
        EXPECT_EQ(lauf.out, "");
        EXPECT_EQ(lauf.err.rfind("velmora-cli: " + meldung, 0), 0u) << lauf.err.substr(0, 300);
        EXPECT_EQ(std::count(lauf.err.begin(), lauf.err.end(), '\n'), 1) << lauf.err.substr(0, 300);
        EXPECT_LE(lauf.err.size(), 1100u);
        EXPECT_EQ(lauf.err.find('\xc3'), std::string::npos) << "a byte that is no character is shown escaped";
    }
}

TEST(AmountsCommand, DispatcherAndFiles)
{
    EXPECT_NE(starteCli({QStringLiteral("--help")}).out.find("  amounts [FILE|-]"), std::string::npos);
    EXPECT_EQ(starteCli({QStringLiteral("rendr")}).err.rfind("velmora-cli: unknown command \"rendr\"\nUsage:", 0), 0u);

    QTemporaryFile datei;
    ASSERT_TRUE(datei.open() && datei.write(R"({"posten": [{"anzahl": "2", "einzelbetrag": "10.005"}]})") && datei.flush());
    const Lauf ausDatei = starteCli({QStringLiteral("amounts"), datei.fileName()}, "not read");
    EXPECT_EQ(ordered_json::parse(ausDatei.out)["postenSumme"], "20.02");
    const std::pair<QStringList, int> aufrufe[] = {
        {{}, 2}, {{QStringLiteral("amounts"), QStringLiteral("-")}, 0},
        {{QStringLiteral("amounts"), datei.fileName() + u".fehlt"}, 2},
        {{QStringLiteral("amounts"), datei.fileName(), datei.fileName()}, 2},
    };
    for (const auto &[argumente, status] : aufrufe)
        EXPECT_EQ(starteCli(argumente, "{}").status, status) << argumente.join(u' ').toStdString();
}

} // namespace
