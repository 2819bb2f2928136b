// velmora-cli amounts: the dispatcher and the command run in-process with string streams, the
// document reader on its own, and the built program once.
#include "EingabeFehler.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "JsonDokumentLeser.h"
#include "ManagedObjectContext.h"
#include "CliLauf.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <gtest/gtest.h>

#include <algorithm>

using nlohmann::json;
using nlohmann::ordered_json;

namespace {

ordered_json betraege(const std::string &eingabe)
{
    const Lauf lauf = starteCli({QStringLiteral("amounts")}, eingabe);
    EXPECT_EQ(lauf.status, 0) << lauf.err;
    return lauf.status == 0 ? ordered_json::parse(lauf.out) : ordered_json();
}

std::string wiederhole(std::string_view teil, int mal)
{
    std::string text;
    for (int i = 0; i < mal; ++i)
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
    EXPECT_EQ(betraege(R"({"sprache": 1, "waehrung": "CHF", "brutto": true, "mwStSatz": "0.19", "rabatt": "0.1",
        "zuschlag": "0.05", "skonto": "0.02", "skontoZeitraum": 14,
        "posten": [{"postenNummer": 1, "anzahl": "2", "einzelbetrag": "10.005", "mwStSatz": "0.07"}]})"), erwartet);
    // JSON numbers mean what they say, not the nearest binary fraction.
    EXPECT_EQ(betraege(R"({"sprache": 1, "waehrung": "CHF", "brutto": true, "mwStSatz": 0.19, "rabatt": 0.1,
        "zuschlag": 5e-2, "skonto": 0.02, "skontoZeitraum": 14,
        "posten": [{"postenNummer": 1, "anzahl": 2, "einzelbetrag": 10.005, "mwStSatz": 0.07}]})"), erwartet);
}

TEST(AmountsCommand, MissingKeepsTheDefaultNullMakesAbsent)
{
    const ordered_json ohneSatz = betraege(R"({"mwStSatz": null, )" + kEinPosten + "}");
    EXPECT_EQ(ohneSatz["umsatzsteuerJeSatz"], (ordered_json{{"", "0"}}));

    // No "posten" or null: no item relationship; []: an empty one. Same figures.
    const ordered_json leer = betraege(R"({"posten": []})");
    EXPECT_EQ(leer["umsatzsteuerJeSatz"], (ordered_json{{"19,00%", "0"}}));
    EXPECT_EQ(leer["posten"], ordered_json::array());
    EXPECT_EQ(betraege("{}"), leer);
    EXPECT_EQ(betraege(R"({"posten": null, "rabatt": null})"), leer);

    // Items in postenNummer order (null first, then the store's 0); rates in input order.
    const ordered_json sortiert = betraege(R"({"sprache": 2, "posten": [
        {"postenNummer": 2, "anzahl": "1", "einzelbetrag": "10", "mwStSatz": "0.07"},
        {"anzahl": "1", "einzelbetrag": "100"}, {"postenNummer": null}]})");
    std::vector<ordered_json> nummern;
    for (const auto &zeile : sortiert["posten"])
        nummern.push_back(zeile["postenNummer"]);
    EXPECT_EQ(nummern, (std::vector<ordered_json>{nullptr, 0, 2}));
    EXPECT_EQ(sortiert["umsatzsteuerJeSatz"], (ordered_json{{"7.00%", "0.7"}, {"19.00%", "19"}}));
}

TEST(AmountsCommand, BadInputGivesOneLineNamingTheKey)
{
    const std::pair<std::string, std::string> faelle[] = {
        {R"({"posten": [{"anzahl": "abc"}]})", R"("posten[0].anzahl": not a decimal number: "abc")"},
        {R"({"rabatt": "1,5"})", R"("rabatt": not a decimal number)"},
        {R"({"rabatt": 1e300})", R"("rabatt": decimal number out of range)"},
        {R"({"sprache": "2"})", R"("sprache": expected an integer)"},
        {R"({"skontoZeitraum": 14.5})", R"("skontoZeitraum": expected an integer, got number 14.5)"},
        {R"({"brutto": 1})", R"("brutto": expected true or false)"},
        {R"({"faelligkeitsDatum": "2026-03-01T10:00:00"})", R"("faelligkeitsDatum": expected an ISO 8601)"},
        {R"({"rechnungsSumme": "1"})", R"("rechnungsSumme": unknown key)"},
        {R"({"posten": [{}, 7]})", R"("posten[1]": expected an item)"},
        {R"({"rabatt": null, )" + kEinPosten + "}", R"("rabatt": missing value)"},
        {R"({"posten": [{}, {"anzahl": "2", "einzelbetrag": null}]})", R"("posten[1].einzelbetrag": missing value)"},
        {R"({"posten": [{"anzahl": "1e90", "einzelbetrag": "1e90"}]})", R"("posten[0].zwischenSumme": decimal overflow)"},
        {R"({"rabatt": )", "input is not JSON"},
        {"[]", "expected a document as a JSON object"},
        // Hostile input: numbers beyond any double, nesting beyond any document, keys and values
        // that would break or flood the one line.
        {R"({"posten": [{"anzahl": 1e999}]})", R"("posten[0].anzahl": number out of range)"},
        {R"({"unbekannt": -1e400})", R"("unbekannt": number out of range)"},
        {R"({"rabatt": )" + wiederhole("9", 400) + "}", R"("rabatt": number out of range)"},
        {R"({"rabatt": "1)" + wiederhole("0", 200000) + R"("})", R"("rabatt": decimal number out of range: "1000)"},
        {wiederhole("[", 70000) + wiederhole("]", 70000), R"("[0][0][0])"},
        {R"({"posten": )" + wiederhole("[", 40) + wiederhole("]", 40) + "}", R"("posten[0][0][0])"},
        {wiederhole(R"({"a":)", 70000) + "1" + wiederhole("}", 70000), R"("a.a.a.a)"},
        {"{\"ab\\ncd\": 1}", R"("ab\ncd": unknown key)"},
        {"{\"a\\u0085b\\u2028c\\u0000\": 1}", R"("a\u0085b\u2028c\u0000": unknown key)"},
        {R"({")" + wiederhole("k", 100000) + R"(": 1})", "\"kkkk"},
        {R"({")" + wiederhole("\\u007f", 300) + R"(": 1})", R"("\u007f\u007f)"},
        {R"({"waehrung": [1)" + wiederhole(",1", 50000) + "]}", R"("waehrung": expected a text, got array [...] (50001 values))"},
        {R"({"waehrung": ")" + wiederhole("x", 100000), "input is not JSON"},
    };
    const QTemporaryDir ordner;
    const QString nie = ordner.filePath(QStringLiteral("nie.pdf"));
    for (const auto &[eingabe, meldung] : faelle) {
        for (const char *befehl : {"amounts", "render"}) {
            const QStringList argumente = befehl == std::string("render")
                ? QStringList{QStringLiteral("render"), QStringLiteral("-"), nie}
                : QStringList{QStringLiteral("amounts")};
            const Lauf lauf = starteCli(argumente, eingabe);
            if (befehl == std::string("render") && meldung.find("missing value") != std::string::npos)
                continue; // rendering shows an absent amount as empty instead of refusing it
            EXPECT_EQ(lauf.status, 2) << befehl << ' ' << eingabe.substr(0, 80);
            EXPECT_EQ(lauf.out, "");
            EXPECT_EQ(lauf.err.rfind("velmora-cli: " + meldung, 0), 0u) << lauf.err.substr(0, 300);
            EXPECT_EQ(std::count(lauf.err.begin(), lauf.err.end(), '\n'), 1) << lauf.err.substr(0, 300);
            EXPECT_LE(lauf.err.size(), 1100u);
        }
    }
    EXPECT_FALSE(QFileInfo::exists(nie));
}

TEST(AmountsCommand, TextThatIsNotJsonIsNamedByWhereTheReaderStopped)
{
    EXPECT_EQ(starteCli({QStringLiteral("amounts")}, R"({"rabatt": )").err,
              "velmora-cli: input is not JSON (at byte 12): parse error at line 1, column 12: syntax error while parsing "
              "value - unexpected end of input; expected '[', '{', or a literal\n");
    // A byte that is no character is shown, not handed to the terminal.
    const std::string err = starteCli({QStringLiteral("amounts")}, "{\"a\xc3").err;
    EXPECT_NE(err.find("\\xc3"), std::string::npos) << err;
    EXPECT_EQ(err.find('\xc3'), std::string::npos) << err;
}

// Numbers are read as written, never through a double; absent keeps the default, null is absent.
TEST(AmountsCommand, OneFigureOfADocument)
{
    const std::string netto = R"("brutto": false, "mwStSatz": 0, )";
    const std::tuple<std::string, const char *, const char *> faelle[] = {
        {R"({"posten": [{"anzahl": 3, "einzelbetrag": 0.1}]})", "postenSumme", "0.3"},
        {R"({"posten": [{"anzahl": 9007199254740993, "einzelbetrag": 1}]})", "postenSumme", "9007199254740993"},
        {"{" + netto + R"("posten": [{"anzahl": 1.00000000000000000000001, "einzelbetrag": 1}]})", "postenSumme",
         "1.00000000000000000000001"},
        {"{" + netto + R"("posten": [{"anzahl": 123456789012345678901234567, "einzelbetrag": 1}]})", "postenSumme",
         "123456789012345678901234567"},
        {R"({"skontoZeitraum": 14.0, "posten": []})", "postenSumme", "0"},
        {"{" + kEinPosten + "}", "rechnungsSumme", "119"}, // 19 %, gross
        {R"({"brutto": null, )" + kEinPosten + "}", "rechnungsSumme", "100"},
    };
    for (const auto &[eingabe, schluessel, wert] : faelle)
        EXPECT_EQ(betraege(eingabe)[schluessel], wert) << eingabe;
}

TEST(AmountsCommand, ReaderTakesEveryStoredAttributeAndNull)
{
    // Built from the entity descriptions, so an attribute added later is covered as well. One
    // input and stored value per AttributeKind, in its order.
    const std::pair<json, QVariant> jeArt[] = {
        {true, true},
        {2, qlonglong(2)},
        {"0.125", QVariant::fromValue(*Decimal::parse("0.125"))},
        {"Müller", QStringLiteral("Müller")},
        {"2026-03-01T10:00:00+01:00", QDateTime::fromString(QStringLiteral("2026-03-01T10:00:00+01:00"), Qt::ISODate)},
        {"JVBERi0=", QByteArray("%PDF-")},
    };
    auto alsText = [](const QVariant &wert) {
        if (wert.metaType() == QMetaType::fromType<Decimal>())
            return QString::fromStdString(wert.value<Decimal>().toString());
        return wert.toString();
    };
    json dokument, posten, leer, leererPosten;
    for (const AttributeDescription &a : FKRRechnung::entityDescription().attributes()) {
        dokument[a.name.toStdString()] = jeArt[int(a.kind)].first;
        leer[a.name.toStdString()] = nullptr;
    }
    for (const AttributeDescription &a : FKRPosten::entityDescription().attributes()) {
        posten[a.name.toStdString()] = jeArt[int(a.kind)].first;
        leererPosten[a.name.toStdString()] = nullptr;
    }
    dokument["posten"] = json::array({posten});
    leer["posten"] = json::array({leererPosten});

    ManagedObjectContext context;
    JsonDokumentLeser leser(context);
    const ManagedObject *r = leser.leseRechnung(dokument);
    for (const ManagedObject *o : {r, static_cast<const ManagedObject *>(leser.gelesenePosten().value(0))}) {
        for (const AttributeDescription &a : o->entity().attributes())
            EXPECT_EQ(alsText(o->value(a.name)), alsText(jeArt[int(a.kind)].second)) << a.name.toStdString();
    }
    r = leser.leseRechnung(leer);
    for (const ManagedObject *o : {r, static_cast<const ManagedObject *>(leser.gelesenePosten().value(0))}) {
        for (const AttributeDescription &a : o->entity().attributes())
            EXPECT_FALSE(o->value(a.name).isValid()) << a.name.toStdString();
    }
    // Members a later command reads itself (sender, recipient) are passed over on request.
    EXPECT_THROW(leser.leseRechnung(json{{"absender", json::object()}}), EingabeFehler);
    EXPECT_NO_THROW(leser.leseRechnung(json{{"absender", json::object()}}, {QStringLiteral("absender")}));
}

TEST(AmountsCommand, DispatcherAndFiles)
{
    const Lauf hilfe = starteCli({QStringLiteral("--help")});
    EXPECT_EQ(hilfe.status, 0);
    EXPECT_NE(hilfe.out.find("  amounts [FILE|-]"), std::string::npos) << hilfe.out;
    EXPECT_EQ(starteCli({QStringLiteral("help"), QStringLiteral("amounts")}).out,
              starteCli({QStringLiteral("amounts"), QStringLiteral("--help")}).out);
    EXPECT_EQ(starteCli({QStringLiteral("rendr")}).err.rfind("velmora-cli: unknown command \"rendr\"\nUsage:", 0), 0u);

    QTemporaryFile datei;
    ASSERT_TRUE(datei.open());
    datei.write(R"({"posten": [{"anzahl": "2", "einzelbetrag": "10.005"}]})");
    datei.close();
    const Lauf ausDatei = starteCli({QStringLiteral("amounts"), datei.fileName()}, "not read");
    EXPECT_EQ(ausDatei.status, 0) << ausDatei.err;
    EXPECT_EQ(ordered_json::parse(ausDatei.out)["postenSumme"], "20.02");
    const std::pair<QStringList, int> aufrufe[] = {
        {{}, 2}, {{QStringLiteral("rendr")}, 2}, {{QStringLiteral("amounts"), QStringLiteral("-")}, 0},
        {{QStringLiteral("amounts"), datei.fileName() + u".fehlt"}, 2},
        {{QStringLiteral("amounts"), datei.fileName(), datei.fileName()}, 2},
    };
    for (const auto &[argumente, status] : aufrufe)
        EXPECT_EQ(starteCli(argumente, "{}").status, status) << argumente.join(u' ').toStdString();

    const QString programm = QStringLiteral(VELMORA_BINARY_DIR "/src/cli/velmora-cli");
    if (!QFileInfo(programm).isExecutable())
        GTEST_SKIP() << "velmora-cli is not built";
    QProcess prozess;
    prozess.start(programm, {QStringLiteral("amounts")});
    prozess.write(R"({"waehrung": "CHF", "posten": [{"anzahl": "1", "einzelbetrag": "10.02"}]})");
    prozess.closeWriteChannel();
    ASSERT_TRUE(prozess.waitForFinished());
    EXPECT_EQ(prozess.exitCode(), 0) << prozess.readAllStandardError().toStdString();
    // Net 10.02 -> 10.00; VAT 1.9038 -> 1.90; total 11.90.
    EXPECT_TRUE(prozess.readAllStandardOutput().contains(R"("rechnungsSumme": "11.9")"));
}

} // namespace
