// velmora-cli render: the command run in-process on JSON documents and on a store, the PDF it
// writes read back with the poppler tools, and the built program once.
#include "../model/StoreTestSupport.h"

#include "FKRBildLeser.h"
#include "FKRDokumentZuGross.h"
#include "JsonDokumentLeser.h"
#include "QBBenutzerEinstellungen.h"
#include "CliLauf.h"
#include "Testbilder.h"

#include <QFileInfo>
#include <QImage>
#include <QLocale>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>

using nlohmann::json;

namespace {

Lauf starte(const QStringList &arguments, const std::string &eingabe = {})
{
    return starteCli(QStringList{QStringLiteral("render")} + arguments, eingabe);
}

// Output of a poppler tool; empty when it fails.
QString poppler(const char *werkzeug, const QStringList &argumente)
{
    QProcess prozess;
    prozess.start(QString::fromLatin1(werkzeug), argumente);
    prozess.waitForFinished();
    return QString::fromUtf8(prozess.readAllStandardOutput());
}

QString pdfText(const QString &pdf)
{
    return poppler("pdftotext", {pdf, QStringLiteral("-")});
}

QString seitenGroesse(const QString &pdf)
{
    for (const QString &zeile : poppler("pdfinfo", {pdf}).split(u'\n')) {
        if (zeile.startsWith(u"Page size:"))
            return zeile.section(u':', 1).simplified().section(QStringLiteral(" pts"), 0, 0);
    }
    return {};
}

// A folder with a document that names its logo by a relative file name.
class RenderTest : public ::testing::Test
{
protected:
    QTemporaryDir ordner;
    QString pfad(const char *name) const { return ordner.filePath(QString::fromLatin1(name)); }

    void SetUp() override
    {
        ASSERT_TRUE(ordner.isValid());
        for (const char *werkzeug : {"pdftotext", "pdfinfo", "pdfimages"}) {
            if (QStandardPaths::findExecutable(QString::fromLatin1(werkzeug)).isEmpty())
                GTEST_SKIP() << werkzeug << " (poppler-utils) is not installed";
        }
        QImage logo(40, 20, QImage::Format_RGB32);
        logo.fill(Qt::darkRed);
        ASSERT_TRUE(logo.save(pfad("logo.png"), "PNG"));
        dokument = {
            {"sprache", 1}, {"dokumentArt", 3}, {"rechnungsNummer", "RE-2026-017"},
            {"rechnungsDatum", "2026-03-01T10:00:00+01:00"}, {"lieferDatum", "2026-02-15T10:00:00+01:00"},
            {"faelligkeitsDatum", "2026-03-15T10:00:00+01:00"},
            {"rechnungsTextAnrede", "Sehr geehrte Frau Beispiel,"}, {"rechnungsText", "wir berechnen Ihnen:"},
            {"absender", {{"firma", "Muster GmbH"}, {"name", "Max Muster"}, {"strasse", "Hauptstr. 1"},
                          {"plz", "12345"}, {"ort", "Berlin"}, {"logoImageFile", "logo.png"}}},
            {"empfaenger", {{"firma", "Kunde AG"}, {"name", "Eva Beispiel"}, {"ort", "Hamburg"}}},
            {"posten", {{{"postenNummer", 1}, {"anzahl", "1"}, {"einzelbetrag", "1234.50"},
                         {"postenBezeichnung", "Beratung im März"}}}},
        };
    }

    QString schreibe(const json &inhalt, const char *name = "dokument.json") const
    {
        storetest::writeFile(pfad(name), QByteArray::fromStdString(inhalt.dump()));
        return pfad(name);
    }

    json dokument;
};

TEST_F(RenderTest, WritesThePdfOfTheDocumentWithSenderRecipientItemsAndLogo)
{
    const Lauf lauf = starte({schreibe(dokument), pfad("aus.pdf")});
    ASSERT_EQ(lauf.status, 0) << lauf.err;
    EXPECT_EQ(lauf.out + lauf.err, "");
    EXPECT_TRUE(storetest::fileBytes(pfad("aus.pdf")).startsWith("%PDF"));
    const QString text = pdfText(pfad("aus.pdf"));
    for (const char *erwartet : {"Muster GmbH", "Hauptstr. 1", "Kunde AG", "Eva Beispiel", "RE-2026-017",
                                 "Sehr geehrte Frau Beispiel,", "Beratung im März", "€ 1.234,50", "€ 1.469,06"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(erwartet))) << erwartet << " in\n" << text.toStdString();
    EXPECT_EQ(seitenGroesse(pfad("aus.pdf")), "595.276 x 841.89");

    // The logo is named relative to the document's folder, not the one the test runs in, and
    // reaches the PDF: the listing has a header, a rule and one image of the logo's size.
    const QStringList bilder = poppler("pdfimages", {QStringLiteral("-list"), pfad("aus.pdf")}).split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(bilder.size(), 3) << bilder.join(u'\n').toStdString();
    EXPECT_EQ(bilder[2].simplified().section(u' ', 3, 4), QStringLiteral("40 20"));
}

TEST_F(RenderTest, LetterAndLocaleHoldForTheRunOnly)
{
    QBBenutzerEinstellungen &einstellungen = *QBBenutzerEinstellungen::sharedInstance();
    const QString eingabe = schreibe(dokument);
    // The user's locale writes the numbers of a document without a language; a German one keeps
    // German numbers.
    json ohneSprache = dokument;
    ohneSprache["sprache"] = nullptr;
    const QString eingabeOhneSprache = schreibe(ohneSprache, "ohne-sprache.json");
    const QString localeVorher = QLocale().name();

    const Lauf letter = starte({QStringLiteral("--letter"), QStringLiteral("--locale"), QStringLiteral("en_US"),
                                eingabeOhneSprache, pfad("letter.pdf")});
    ASSERT_EQ(letter.status, 0) << letter.err;
    EXPECT_EQ(seitenGroesse(pfad("letter.pdf")), "612 x 792");
    EXPECT_TRUE(pdfText(pfad("letter.pdf")).contains(u"€ 1,234.50"));
    ASSERT_EQ(starte({QStringLiteral("--locale=en_US"), eingabe, pfad("de.pdf")}).status, 0);
    EXPECT_TRUE(pdfText(pfad("de.pdf")).contains(u"€ 1.234,50"));
    // Neither the paper nor the locale outlive the run, and the paper never reaches the file.
    EXPECT_FALSE(einstellungen.pdfDocumentSizeIsLetter());
    EXPECT_EQ(QLocale().name(), localeVorher);
    EXPECT_FALSE(storetest::fileBytes(einstellungen.settingsFilePath()).contains("pdfDocumentSizeIsLetter=true"));

    const Lauf deutsch = starte({QStringLiteral("--locale=de_DE"), eingabeOhneSprache, pfad("a4.pdf")});
    ASSERT_EQ(deutsch.status, 0) << deutsch.err;
    EXPECT_TRUE(pdfText(pfad("a4.pdf")).contains(u"€ 1.234,50"));

    // Without --letter the user's own choice counts.
    einstellungen.setPdfDocumentSizeIsLetter(true);
    const Lauf gespeichert = starte({eingabe, pfad("benutzer.pdf")});
    einstellungen.setPdfDocumentSizeIsLetter(false);
    ASSERT_EQ(gespeichert.status, 0) << gespeichert.err;
    EXPECT_EQ(seitenGroesse(pfad("benutzer.pdf")), "612 x 792");

    for (const char *falsch : {"xx_YY", "de_XX", "en_US_extra", "", "C"}) {
        const Lauf lauf = starte({QStringLiteral("--locale"), QString::fromLatin1(falsch), eingabe, pfad("nie.pdf")});
        EXPECT_EQ(lauf.status, 2) << falsch;
        EXPECT_EQ(lauf.err.rfind("velmora-cli: \"--locale\": not a known locale name", 0), 0u) << lauf.err;
    }
    EXPECT_FALSE(QFile::exists(pfad("nie.pdf")));
}

TEST_F(RenderTest, BadInputAndAmountFailuresLeaveOutputAlone)
{
    storetest::writeFile(pfad("kein-bild.png"), "no image at all");
    // Images beyond the bounds: one of 40000 x 40000 pixels (only its header is read), and a
    // file of more than 32 MB (not read at all).
    const QByteArray riesig = testbilder::jpegMitKopf({40000, 40000});
    storetest::writeFile(pfad("riesig.jpg"), riesig);
    QFile lang(pfad("lang.png"));
    ASSERT_TRUE(lang.open(QIODevice::WriteOnly) && lang.resize(FKRBildLeser::kMaxBytes + 1));
    lang.close();
    auto mit = [&](const char *zeiger, json wert) {
        json d = dokument;
        d[json::json_pointer(zeiger)] = std::move(wert);
        return d;
    };
    const std::pair<json, std::string> faelle[] = {
        {mit("/absender/telefon", "030"), R"("absender.telefon": unknown key for FKRAbsender)"},
        {mit("/empfaenger/logoImageFile", "logo.png"), R"("empfaenger.logoImageFile": unknown key)"},
        {mit("/absender/logoImageFile", "fehlt.png"), R"("absender.logoImageFile": cannot read ")"},
        {mit("/absender/logoImageFile", "/dev/zero"), R"("absender.logoImageFile": cannot read "/dev/zero": it is not a regular file)"},
        {mit("/absender/unterschriftImageFile", "kein-bild.png"), R"("absender.unterschriftImageFile": not an image)"},
        {mit("/absender/geschaeftspapierImageFile", 7), R"("absender.geschaeftspapierImageFile": expected the name)"},
        {mit("/absender/logoImageBinary", "iVBORw=="), R"("absender.logoImageFile": give either)"},
        {mit("/absender/logoImageFile", "riesig.jpg"), R"("absender.logoImageFile": cannot use ")"},
        {mit("/absender/unterschriftImageFile", "lang.png"), R"("absender.unterschriftImageFile": cannot use ")"},
        {mit("/absender/unterschriftImageBinary", riesig.toBase64().toStdString()),
         "cannot render the document: an image of the sender cannot be used: the image is 40000 x 40000 pixels; "
         "at most 32 megapixels are taken\n"},
        {mit("/rechnungsText", std::string(FKRDokumentZuGross::kMaxZeichen + 1, 'x')),
         "cannot render the document: the document's texts come to more than 2,000,000 characters\n"},
        {mit("/empfaenger", "Kunde AG"), R"("empfaenger": expected an object)"},
        {mit("/rabatt", nullptr), R"("rabatt": missing value)"},
        {mit("/posten/1", {{"anzahl", "2"}, {"einzelbetrag", nullptr}}), R"("posten[1].einzelbetrag": missing value)"},
        {mit("/rechnungsDatum", "2026-03-01"), R"("rechnungsDatum": expected an ISO 8601)"},
    };
    const QByteArray frueher = "%PDF-1.4 an earlier rendering";
    for (const bool vorhanden : {false, true}) {
        if (vorhanden)
            storetest::writeFile(pfad("aus.pdf"), frueher);
        for (const auto &[eingabe, meldung] : faelle) {
            const Lauf lauf = starte({schreibe(eingabe), pfad("aus.pdf")});
            EXPECT_EQ(lauf.status, 2) << eingabe.dump();
            EXPECT_EQ(lauf.err.rfind("velmora-cli: " + meldung, 0), 0u) << lauf.err;
            EXPECT_EQ(std::count(lauf.err.begin(), lauf.err.end(), '\n'), 1) << lauf.err;
            EXPECT_EQ(QFile::exists(pfad("aus.pdf")), vorhanden);
        }
        if (vorhanden)
            EXPECT_EQ(storetest::fileBytes(pfad("aus.pdf")), frueher);
    }

    // The command line.
    const QString eingabe = schreibe(dokument);
    const std::pair<QStringList, std::string> aufrufe[] = {
        {{eingabe}, "render takes INPUT and OUTPUT.pdf"},
        {{QStringLiteral("--paper"), eingabe, pfad("x.pdf")}, "unknown option \"--paper\""},
        {{eingabe, pfad("x.pdf"), QStringLiteral("--locale")}, "--locale needs a value"},
        {{QStringLiteral("--store"), pfad("s"), pfad("x.pdf")}, "--store and --id go together"},
        {{eingabe, eingabe}, "OUTPUT.pdf is the INPUT file"},
        {{pfad("fehlt.json"), pfad("x.pdf")}, "\"" + pfad("fehlt.json").toStdString() + "\": cannot read"},
    };
    for (const auto &[argumente, meldung] : aufrufe) {
        const Lauf lauf = starte(argumente);
        EXPECT_EQ(lauf.status, 2) << argumente.join(u' ').toStdString();
        EXPECT_EQ(lauf.err.rfind("velmora-cli: " + meldung, 0), 0u) << lauf.err;
    }
    EXPECT_FALSE(QFile::exists(pfad("x.pdf")));
    EXPECT_TRUE(QFile::exists(eingabe));

    // A folder that does not exist cannot take the file: the program failed, not the input.
    const Lauf schreibfehler = starte({eingabe, pfad("fehlt/aus.pdf")});
    EXPECT_EQ(schreibfehler.status, 1);
    EXPECT_EQ(schreibfehler.err.rfind("velmora-cli: cannot write \"", 0), 0u) << schreibfehler.err;
}

TEST_F(RenderTest, StoredDocumentIsRenderedAndTheStoreKeepsEveryByte)
{
    const QString store = pfad("VelmoraRechnungen.storedata");
    QString id;
    {
        storetest::OpenStore offen(store);
        auto *rechnung = offen.moc().insertNewObject<FKRRechnung>();
        rechnung->setRechnungsNummer(QStringLiteral("RE-STORE-1"));
        auto *empfaenger = offen.moc().insertNewObject<FKREmpfaenger>();
        empfaenger->setFirma(QStringLiteral("Gespeicherte Kundin"));
        rechnung->setEmpfaenger(empfaenger);
        auto *posten = offen.moc().insertNewObject<FKRPosten>();
        posten->setAnzahl(Decimal(3));
        posten->setEinzelbetrag(Decimal(1000));
        posten->setPostenBezeichnung(QStringLiteral("Gespeicherter Posten"));
        rechnung->addPostenObject(posten);
        offen.moc().insertNewObject<FKRRechnung>(); // another document, not asked for
        QString fehler;
        ASSERT_TRUE(offen.moc().save(&fehler)) << fehler.toStdString();
        id = *rechnung->uniqueIdentifier();
    }
    // A journal mode that opening the store would change; the file must still keep every byte.
    storetest::RawSql(store).mustExec("PRAGMA journal_mode = WAL");
    const QByteArray vorher = storetest::fileBytes(store);

    const Lauf lauf = starte({QStringLiteral("--store"), store, QStringLiteral("--id"), id, pfad("store.pdf")});
    ASSERT_EQ(lauf.status, 0) << lauf.err;
    const QString text = pdfText(pfad("store.pdf"));
    EXPECT_TRUE(text.contains(u"RE-STORE-1")) << text.toStdString();
    EXPECT_TRUE(text.contains(u"Gespeicherte Kundin"));
    EXPECT_TRUE(text.contains(u"€ 3.000,00"));
    EXPECT_EQ(storetest::fileBytes(store), vorher);
    EXPECT_EQ(storetest::sideFiles(store), QStringList());

    storetest::writeFile(pfad("fremd.storedata"), "not a database, just text that is long enough to look at");
    const std::pair<QStringList, std::string> faelle[] = {
        {{store, QStringLiteral("kein-solches-dokument")}, "no document with uniqueIdentifier \"kein-solches-dokument\""},
        {{pfad("fehlt.storedata"), id}, "cannot open the store \"" + pfad("fehlt.storedata").toStdString() + "\": no such"},
        {{pfad("fremd.storedata"), id}, "cannot open the store \"" + pfad("fremd.storedata").toStdString() + "\": not a store"},
        {{ordner.path(), id}, "cannot open the store \"" + ordner.path().toStdString() + "\": not a file"},
    };
    for (const auto &[storeUndId, meldung] : faelle) {
        const Lauf fehler = starte({QStringLiteral("--store"), storeUndId[0], QStringLiteral("--id"), storeUndId[1],
                                    pfad("nie.pdf")});
        EXPECT_EQ(fehler.status, 2);
        EXPECT_EQ(fehler.err.rfind("velmora-cli: " + meldung, 0), 0u) << fehler.err;
        EXPECT_EQ(std::count(fehler.err.begin(), fehler.err.end(), '\n'), 1) << fehler.err;
    }
    EXPECT_FALSE(QFile::exists(pfad("nie.pdf")));
    EXPECT_FALSE(QFile::exists(pfad("fehlt.storedata")));
    EXPECT_EQ(storetest::fileBytes(store), vorher);
}

TEST_F(RenderTest, HelpAndTheBuiltProgram)
{
    const Lauf hilfe = starteCli({QStringLiteral("help"), QStringLiteral("render")});
    ASSERT_EQ(hilfe.status, 0);
    for (const char *erwaehnt : {"\"absender\"", "logoImageFile", "folder of INPUT", "--letter", "--locale",
                                 "--store STORE --id UUID", "Exit status"})
        EXPECT_NE(hilfe.out.find(erwaehnt), std::string::npos) << erwaehnt;

    const QString programm = QStringLiteral(VELMORA_BINARY_DIR "/src/cli/velmora-cli");
    if (!QFileInfo(programm).isExecutable())
        GTEST_SKIP() << "velmora-cli is not built";
    // Standard input, with the logo taken from the current folder.
    QProcess prozess;
    prozess.setWorkingDirectory(ordner.path());
    prozess.start(programm, {QStringLiteral("render"), QStringLiteral("-"), QStringLiteral("stdin.pdf")});
    prozess.write(QByteArray::fromStdString(dokument.dump()));
    prozess.closeWriteChannel();
    ASSERT_TRUE(prozess.waitForFinished());
    EXPECT_EQ(prozess.exitCode(), 0) << prozess.readAllStandardError().toStdString();
    EXPECT_TRUE(storetest::fileBytes(pfad("stdin.pdf")).startsWith("%PDF"));
}

} // namespace
