// The page writer as a reader of its files sees it: bounds, paper, text, replacing a file, protection.
#include "FKRDokumentZuGross.h"
#include "FKRPDFHerausgeber.h"
#include "FKRPDFSchutz.h"
#include "WriterTestSupport.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;
using namespace writertest;

namespace {

TEST_F(PDFWriter, AFileIsHeldToAThousandPagesAndTwoMillionCharactersOfTextAndStartsAfresh)
{
    m_writer.inhalt = [](ProbeWriter &w, FKRRechnung &r) {
        for (;;)
            w.erzeugeNeueSeite(r);
    };
    try {
        m_writer.erstellePDFDateiImPfad(pfad(u"lang.pdf"_s), *m_rechnung);
        ADD_FAILURE() << "no bound on pages";
    } catch (const FKRDokumentZuGross &fehler) {
        EXPECT_STREQ(fehler.what(), "the document would run to more than 1,000 pages");
    }
    EXPECT_EQ(m_writer.seitennummer(), FKRDokumentZuGross::kMaxSeiten);

    // Text is checked before it is set, measured or drawn; only drawn text counts.
    QStringList abgelehnt;
    const auto zeichne = [&](ProbeWriter &w, const QString &text) {
        w.schreibeText(text, FKRPDFWriter::Links, m_font, 100, 100, 300, 100, true);
    };
    const auto versuche = [&](const QString &was, const std::function<void()> &schritt) {
        try {
            schritt();
        } catch (const FKRDokumentZuGross &fehler) {
            EXPECT_STREQ(fehler.what(), "the document's texts come to more than 2,000,000 characters");
            abgelehnt << was;
        }
    };
    schreibe(m_writer, u"grenze.pdf"_s, [&](ProbeWriter &w, FKRRechnung &) {
        zeichne(w, QString(FKRDokumentZuGross::kMaxZeichen - 5, u' '));
        versuche(u"measure 6"_s, [&] { w.berechneTextBoxFuerString(u"123456"_s, m_font, {300, 100}); });
        versuche(u"measure 5"_s, [&] { w.berechneTextBoxFuerString(u"12345"_s, m_font, {300, 100}); });
        versuche(u"draw 5"_s, [&] { zeichne(w, u"12345"_s); });
        versuche(u"draw 1"_s, [&] { zeichne(w, u"1"_s); });
    });
    EXPECT_EQ(abgelehnt, (QStringList{u"measure 6"_s, u"draw 1"_s}));

    // Every file starts afresh.
    const auto neueSeite = [&](ProbeWriter &w, FKRRechnung &r) { w.erzeugeNeueSeite(r); };
    EXPECT_EQ(schreibe(m_writer, u"wieder.pdf"_s, neueSeite).seitenAnzahl(), 2);
}

TEST_F(PDFWriter, TextStandsInItsBoxWrapsAtTheWidthAndReturnsTheYBelowIt)
{
    const QString langerText = u"Konzeption und Umsetzung der neuen Internetpraesenz mit Startseite, "
                               "Kontaktformular und Impressum sowie drei Korrekturschleifen"_s;
    QList<double> ys;
    schreibe(m_writer, u"text.pdf"_s, [&](ProbeWriter &w, FKRRechnung &) {
        ys << w.schreibeText(u"Linksbuendig"_s, FKRPDFWriter::Links, m_font, 100, 100, 150, 500, true)
           << w.schreibeText(u"Rechtsbuendig"_s, FKRPDFWriter::Rechts, m_font, 250, 200, 150, 100, true)
           << w.schreibeText(u"Stehenbleiben"_s, FKRPDFWriter::Links, m_font, 100, 400, 300, 100, false)
           << w.schreibeText(std::nullopt, FKRPDFWriter::Links, m_font, 100, 100, 150, 500, true)
           << w.schreibeText(langerText, FKRPDFWriter::Links, m_font, 100, 450, 150, 500, true, 0.15)
           << w.schreibeText(u"Erster\nZweiter"_s, FKRPDFWriter::Links, m_font, 300, 600, 300, 100, true);
    });
    const double zeile = m_writer.berechneTextBoxFuerString(u" "_s, m_font, {150, 500}).height();
    EXPECT_NEAR(zeile, 12 * (FKRPDFSchriften::kZeilenhoehe + 0.15), 1e-4);
    EXPECT_EQ(m_writer.berechneTextBoxFuerString(std::nullopt, m_font, {150, 500}), QSizeF(0, 0));
    const QSizeF gemessen = m_writer.berechneTextBoxFuerString(langerText, m_font, {150, 500});
    // A missing text takes one line; a line feed starts a line at the wider default spacing.
    const double abstand = 12 * (FKRPDFSchriften::kZeilenhoehe + 0.5);
    const QList<double> erwartet = {100 + zeile, 200 + zeile, 400, 100 + zeile, 450 + gemessen.height(),
                                    600 + abstand + 12 * FKRPDFSchriften::kZeilenhoehe};
    ASSERT_EQ(ys.size(), erwartet.size());
    for (qsizetype i = 0; i < ys.size(); ++i)
        EXPECT_NEAR(ys[i], erwartet[i], 1e-3) << i;
}

TEST_F(PDFWriter, ExistingFileIsReplacedOnlyByAFinishedFileThatOpensWithoutPasswordButProtected)
{
    const QString ziel = pfad(u"rechnung.pdf"_s), ordner = pfad(u"ordner.pdf"_s);
    QFile alt(ziel);
    ASSERT_TRUE(alt.open(QIODevice::WriteOnly) && alt.write("alte Fassung") > 0);
    alt.close();
    const PdfPruefung pdf = schreibe(m_writer, u"rechnung.pdf"_s);
    ASSERT_TRUE(pdf.gelesen()) << pdf.fehler().toStdString();
    // A path that cannot take a file: a folder stands there, or the folder is missing.
    ASSERT_TRUE(QDir().mkpath(ordner + u"/inhalt"_s));
    for (const QString &falsch : {ordner, pfad(u"fehlt/rechnung.pdf"_s)}) {
        m_writer.erstellePDFDateiImPfad(falsch, *m_rechnung);
        EXPECT_FALSE(m_writer.letzteDateiGeschrieben());
        EXPECT_FALSE(m_writer.letzterSchreibFehler().isEmpty());
    }
    EXPECT_TRUE(QDir(ordner + u"/inhalt"_s).exists());
    EXPECT_EQ(QDir(m_ordner.path()).entryList(QDir::Files), QStringList{u"rechnung.pdf"_s}); // no leftovers

    const QMap<QString, QString> schutz = pdf.verschluesselung();
    // Opened with the empty password, which is the user password: the owner password is another.
    EXPECT_GE(schutz.value(u"R"_s).toInt(), 4);
    EXPECT_TRUE(schutz.value(u"stream encryption method"_s).startsWith(u"AES"_s));
    EXPECT_TRUE(schutz.contains(u"Supplied password is user password"_s));
    EXPECT_EQ(schutz.value(u"print high resolution"_s) + schutz.value(u"modify anything"_s), u"allowednot allowed"_s);
    const QString p1 = FKRPDFSchutz::neuesEigentuemerPasswort();
    EXPECT_EQ(p1.size(), FKRPDFHerausgeber::kEigentuemerPasswortLaenge);
    EXPECT_NE(p1, FKRPDFSchutz::neuesEigentuemerPasswort());
}

} // namespace
