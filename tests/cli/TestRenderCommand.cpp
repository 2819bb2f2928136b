// velmora-cli render on JSON documents and on a store; the PDF read back with the poppler tools.
#include "../model/StoreTestSupport.h"

#include "FKRDokumentZuGross.h"
#include "QBBenutzerEinstellungen.h"
#include "CliLauf.h"
#include "JsonDokumentLeser.h"

#include <QFileInfo>
#include <QImage>
#include <QLocale>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>

using nlohmann::json;

namespace {

Lauf starte(const QStringList &arguments) { return starteCli(QStringList{QStringLiteral("render")} + arguments); }

QString poppler(const char *werkzeug, const QStringList &argumente)
{
    QProcess prozess;
    prozess.start(QString::fromLatin1(werkzeug), argumente);
    prozess.waitForFinished();
    return QString::fromUtf8(prozess.readAllStandardOutput());
}

class RenderTest : public ::testing::Test
{
protected:
    QTemporaryDir ordner;
    QString pfad(const char *name) const { return ordner.filePath(QString::fromLatin1(name)); }
    QString text(const char *pdf) const { return poppler("pdftotext", {pfad(pdf), QStringLiteral("-")}); }
    QString seite(const char *pdf) const
    {
        return poppler("pdfinfo", {pfad(pdf)}).section(QStringLiteral("Page size:"), 1).section(QStringLiteral(" pts"), 0, 0).simplified();
    }

    void SetUp() override
    {
        for (const char *werkzeug : {"pdftotext", "pdfinfo"}) {
            if (QStandardPaths::findExecutable(QString::fromLatin1(werkzeug)).isEmpty())
                GTEST_SKIP() << werkzeug << " (poppler-utils) is not installed";
        }
        QImage logo(40, 20, QImage::Format_RGB32);
        logo.fill(Qt::darkRed);
        ASSERT_TRUE(logo.save(pfad("logo.png"), "PNG"));
        dokument = {
            {"sprache", 1}, {"dokumentArt", 3}, {"rechnungsNummer", "RE-2026-017"},
            {"rechnungsDatum", "2026-03-01T10:00:00+01:00"},
            {"absender", {{"firma", "Muster GmbH"}, {"ort", "Berlin"}, {"logoImageFile", "logo.png"}}},
            {"empfaenger", {{"firma", "Kunde AG"}, {"ort", "Hamburg"}}},
            {"posten", {{{"postenNummer", 1}, {"anzahl", "1"}, {"einzelbetrag", "1234.50"}, {"postenBezeichnung", "Beratung im März"}}}},
        };
    }

    QString schreibe(const json &inhalt, const QString &name = QStringLiteral("dokument.json")) const
    {
        storetest::writeFile(ordner.filePath(name), QByteArray::fromStdString(inhalt.dump()));
        return ordner.filePath(name);
    }

    json dokument;
};

TEST_F(RenderTest, PdfOfTheDocumentInItsLanguageOnThePaperOfTheRun)
{
    QBBenutzerEinstellungen &einstellungen = *QBBenutzerEinstellungen::sharedInstance();
    const QString eingabe = schreibe(dokument);
    const Lauf lauf = starte({eingabe, pfad("aus.pdf")});
    ASSERT_EQ(lauf.status, 0) << lauf.err;
    for (const char *erwartet : {"Muster GmbH", "Kunde AG", "RE-2026-017", "Beratung im März", "€ 1.469,06"})
        EXPECT_TRUE(text("aus.pdf").contains(QString::fromUtf8(erwartet))) << erwartet << " in\n" << text("aus.pdf").toStdString();
    EXPECT_EQ(seite("aus.pdf"), "595.276 x 841.89"); // and the logo was found beside the document

    // The user's locale writes the numbers of a document without a language, for this run only.
    json ohneSprache = dokument;
    ohneSprache["sprache"] = nullptr;
    const QString localeVorher = QLocale().name();
    ASSERT_EQ(starte({QStringLiteral("--letter"), QStringLiteral("--locale"), QStringLiteral("en_US"),
                      schreibe(ohneSprache, QStringLiteral("ohne.json")), pfad("letter.pdf")}).status, 0);
    EXPECT_EQ(seite("letter.pdf"), "612 x 792");
    EXPECT_TRUE(text("letter.pdf").contains(u"€ 1,234.50"));
    EXPECT_FALSE(einstellungen.pdfDocumentSizeIsLetter());
    EXPECT_EQ(QLocale().name(), localeVorher);
}

TEST_F(RenderTest, BadInputLeavesTheOutputAlone)
{
    storetest::writeFile(pfad("kein-bild.png"), "no image at all");
    int n = 0;
    auto mit = [&](const char *zeiger, json wert) {
        json d = dokument;
        d[json::json_pointer(zeiger)] = std::move(wert);
        return QStringList{schreibe(d, QString::number(++n) + u".json"), pfad("aus.pdf")};
    };
    const QString eingabe = schreibe(dokument);
    const QString aus = pfad("aus.pdf");
    const std::pair<QStringList, std::string> faelle[] = {
        {mit("/absender/telefon", "030"), R"("absender.telefon": unknown key for FKRAbsender)"},
        {mit("/absender/logoImageFile", "fehlt.png"), R"("absender.logoImageFile": cannot read ")"},
        {mit("/absender/logoImageFile", "/dev/zero"), R"("absender.logoImageFile": cannot read "/dev/zero": it is not a regular file)"},
        {mit("/absender/unterschriftImageFile", "kein-bild.png"), R"("absender.unterschriftImageFile": not an image)"},
        {mit("/absender/geschaeftspapierImageFile", 7), R"("absender.geschaeftspapierImageFile": expected the name)"},
        {mit("/absender/logoImageBinary", "iVBORw=="), R"("absender.logoImageFile": give either)"},
        {mit("/rechnungsText", std::string(FKRDokumentZuGross::kMaxZeichen + 1, 'x')),
         "cannot render the document: the document's texts come to more than 2,000,000 characters\n"},
        {mit("/rabatt", nullptr), R"("rabatt": missing value)"},
        {{eingabe}, "render takes INPUT and OUTPUT.pdf"},
        {{QStringLiteral("--paper"), eingabe, aus}, "unknown option \"--paper\""},
        {{QStringLiteral("--locale=de_XX"), eingabe, aus}, "\"--locale\": not a known locale name"},
        {{eingabe, aus, QStringLiteral("--locale")}, "--locale needs a value"},
        {{QStringLiteral("--store"), pfad("s"), aus}, "--store and --id go together"},
        {{eingabe, eingabe}, "OUTPUT.pdf is the INPUT file"},
        {{pfad("fehlt.json"), aus}, "\"" + pfad("fehlt.json").toStdString() + "\": cannot read"},
        {{ordner.path(), aus}, "\"" + ordner.path().toStdString() + "\": cannot read"},
    };
    const QByteArray frueher = "%PDF-1.4 an earlier rendering";
    for (const bool vorhanden : {false, true}) {
        if (vorhanden)
            storetest::writeFile(pfad("aus.pdf"), frueher);
        for (const auto &[argumente, meldung] : faelle) {
            const Lauf lauf = starte(argumente);
            SCOPED_TRACE(argumente.join(u' ').left(200).toStdString());
            EXPECT_EQ(lauf.status, 2);
            EXPECT_EQ(lauf.err.rfind("velmora-cli: " + meldung, 0), 0u) << lauf.err;
            EXPECT_EQ(std::count(lauf.err.begin(), lauf.err.end(), '\n'), 1) << lauf.err;
            EXPECT_EQ(QFile::exists(pfad("aus.pdf")), vorhanden);
        }
    }
    EXPECT_EQ(storetest::fileBytes(pfad("aus.pdf")), frueher);

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
        offen.moc().insertNewObject<FKRRechnung>(); // another document, not asked for
        ASSERT_TRUE(offen.moc().save());
        id = *rechnung->uniqueIdentifier();
    }
    // A journal mode that opening the store would change; the file must still keep every byte.
    storetest::RawSql(store).mustExec("PRAGMA journal_mode = WAL");
    const QByteArray vorher = storetest::fileBytes(store);
    const Lauf lauf = starte({QStringLiteral("--store"), store, QStringLiteral("--id"), id, pfad("store.pdf")});
    ASSERT_EQ(lauf.status, 0) << lauf.err;
    EXPECT_TRUE(text("store.pdf").contains(u"RE-STORE-1"));
    EXPECT_EQ(storetest::sideFiles(store), QStringList());

    storetest::writeFile(pfad("fremd.storedata"), "not a database, just text that is long enough to look at");
    const std::pair<QStringList, std::string> faelle[] = {
        {{store, QStringLiteral("kein-solches-dokument")}, "no document with uniqueIdentifier \"kein-solches-dokument\""},
        {{pfad("fehlt.storedata"), id}, "cannot open the store \"" + pfad("fehlt.storedata").toStdString() + "\": no such"},
        {{pfad("fremd.storedata"), id}, "cannot open the store \"" + pfad("fremd.storedata").toStdString() + "\": not a store"},
    };
    for (const auto &[storeUndId, meldung] : faelle) {
        const Lauf fehler = starte({QStringLiteral("--store"), storeUndId[0], QStringLiteral("--id"), storeUndId[1], pfad("nie.pdf")});
        EXPECT_EQ(fehler.status, 2);
        EXPECT_EQ(fehler.err.rfind("velmora-cli: " + meldung, 0), 0u) << fehler.err;
    }
    EXPECT_FALSE(QFile::exists(pfad("nie.pdf")) || QFile::exists(pfad("fehlt.storedata")));
    EXPECT_EQ(storetest::fileBytes(store), vorher);
}

} // namespace
