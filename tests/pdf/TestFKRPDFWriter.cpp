// The page writer as a reader of its files sees it: bounds, geometry, fold marks, page numbers,
// text placement, the replacement of an existing file, document information and protection.
#include "FKRDokumentZuGross.h"
#include "FKRPDFHerausgeber.h"
#include "FKRPDFSchutz.h"
#include "WriterTestSupport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

using namespace Qt::Literals::StringLiterals;
using namespace writertest;

namespace {

QRectF box(const PdfPruefung &pdf, const QString &phrase)
{
    const auto gefunden = pdf.finde(1, phrase);
    EXPECT_TRUE(gefunden) << phrase.toStdString() << " missing in\n" << pdf.text(1).toStdString();
    return gefunden.value_or(QRectF());
}

TEST_F(PDFWriter, AFileIsHeldToAThousandPagesAndTwoMillionCharactersOfText)
{
    // The thousandth page is the last a file gets.
    m_writer.inhalt = [](ProbeWriter &w, FKRRechnung &r) {
        for (;;)
            w.erzeugeNeueSeite(r);
    };
    try {
        m_writer.erstellePDFDateiImPfad(pfad(u"lang.pdf"_s), *m_rechnung);
        ADD_FAILURE() << "no bound on pages";
    } catch (const FKRDokumentZuGross &fehler) {
        EXPECT_EQ(fehler.art(), FKRDokumentZuGross::Art::Seiten);
        EXPECT_STREQ(fehler.what(), "the document would run to more than 1,000 pages");
    }
    EXPECT_EQ(m_writer.seitennummer(), FKRDokumentZuGross::kMaxSeiten);

    // Text is checked before it is set, measured or drawn; only drawn text counts.
    QStringList abgelehnt;
    const auto versuche = [&](const QString &was, const std::function<void()> &schritt) {
        try {
            schritt();
        } catch (const FKRDokumentZuGross &fehler) {
            EXPECT_EQ(fehler.art(), FKRDokumentZuGross::Art::Text);
            EXPECT_STREQ(fehler.what(), "the document's texts come to more than 2,000,000 characters");
            abgelehnt << was;
        }
    };
    const auto zeichne = [&](ProbeWriter &w, const QString &text) {
        w.schreibeText(text, FKRPDFWriter::Links, m_font, 100, 100, 300, 100, true);
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
    const PdfPruefung wieder = schreibe(m_writer, u"wieder.pdf"_s, [&](ProbeWriter &w, FKRRechnung &r) {
        w.erzeugeNeueSeite(r);
        zeichne(w, u"Wieder da"_s);
    });
    EXPECT_EQ(wieder.seitenAnzahl(), 2);
    EXPECT_TRUE(wieder.finde(2, u"Wieder da"_s));
}

TEST_F(PDFWriter, TextRunningOffThePageEndsAtItsEdge)
{
    const auto zeilen = [](int anzahl) {
        QStringList text;
        for (int i = 1; i <= anzahl; ++i)
            text << u"Zeile %1"_s.arg(i);
        return text.join(u'\n');
    };
    double unten = 0;
    const PdfPruefung drei = schreibe(m_writer, u"drei.pdf"_s, [&](ProbeWriter &w, FKRRechnung &) {
        w.schreibeText(zeilen(3), FKRPDFWriter::Links, m_font, 100, 780, 300, 100, true);
    });
    const PdfPruefung viele = schreibe(m_writer, u"viele.pdf"_s, [&](ProbeWriter &w, FKRRechnung &) {
        unten = w.schreibeText(zeilen(2000), FKRPDFWriter::Links, m_font, 100, 780, 300, 100, true);
    });
    // What lies below the page is not in the file, and the text still takes its whole height.
    EXPECT_EQ(viele.text(1), drei.text(1));
    EXPECT_LT(QFileInfo(viele.pfad()).size() - QFileInfo(drei.pfad()).size(), 1000);
    EXPECT_GT(unten, 780 + 1999 * 12 * FKRPDFSchriften::kZeilenhoehe);
}

TEST_F(PDFWriter, PageGeometryIsTakenFromTheSettingAtConstruction)
{
    // The margins are measured on the layouts' files; here the paper and the unit.
    ProbeWriter a4;
    EXPECT_EQ(a4.pageSize(), QSizeF(595.2760009765625, 841.8900146484375));
    EXPECT_EQ(a4.kcm(), 28.346464157104492);
    EXPECT_EQ(a4.kLineWidth(), 0.5);
    EXPECT_EQ(a4.seitennummer(), 0u);

    QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(true);
    ProbeWriter letter;
    EXPECT_EQ(letter.pageSize(), QSizeF(612, 792));
    EXPECT_EQ(letter.kcm(), 28.387096405029297);

    // A writer keeps the paper it was made with; the files carry the exact media boxes.
    const PdfPruefung letterPdf = schreibe(letter, u"letter.pdf"_s);
    QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false);
    const PdfPruefung letterDanach = schreibe(letter, u"letter2.pdf"_s);
    const PdfPruefung a4Pdf = schreibe(a4, u"a4.pdf"_s, [](ProbeWriter &w, FKRRechnung &r) { w.erzeugeNeueSeite(r); });
    EXPECT_EQ(letterPdf.seitenGroesse(1), QSizeF(612, 792));
    EXPECT_EQ(letterDanach.seitenGroesse(1), QSizeF(612, 792));
    ASSERT_EQ(a4Pdf.seitenAnzahl(), 2);
    for (int seite : {1, 2})
        EXPECT_EQ(a4Pdf.seitenGroesse(seite), QSizeF(595.276, 841.89)) << seite;
}

TEST_F(PDFWriter, FoldMarksSitAtTheLeftEdgeOfEveryPage)
{
    // One third, one half and two thirds of an A4 page, down to the millimetre.
    const auto pruefe = [&](const PdfPruefung &pdf, int seite, std::initializer_list<double> hoehen) {
        const QImage bild = pdf.bild(seite, kDpi);
        for (const double y : hoehen) {
            SCOPED_TRACE(testing::Message() << "page " << seite << ", mark at " << y);
            // Centre of the stroke, from the ink of a column through its middle.
            double summe = 0, gewicht = 0;
            for (double yy = y - 3; yy <= y + 3; yy += 72.0 / kDpi) {
                summe += tinte(bild, 17.5, yy) * (std::floor(yy * kDpi / 72.0) + 0.5) * 72.0 / kDpi;
                gewicht += tinte(bild, 17.5, yy);
            }
            ASSERT_GT(gewicht, 0);
            EXPECT_NEAR(summe / gewicht, y, 0.3);
            // Seven points long from x = 14, grey rather than black, nothing around it.
            EXPECT_GT(tinte(bild, 14.4, y), 30);
            EXPECT_GT(tinte(bild, 20.6, y), 30);
            EXPECT_LT(tinte(bild, 17.5, y), 200);
            for (const double x : {12.0, 23.0})
                EXPECT_EQ(tinte(bild, x, y), 0) << x;
            for (const double dy : {-2.0, 2.0})
                EXPECT_EQ(tinte(bild, 17.5, y + dy), 0) << dy;
        }
    };
    ProbeWriter a4;
    const PdfPruefung pdf = schreibe(a4, u"falz.pdf"_s, [](ProbeWriter &w, FKRRechnung &r) { w.erzeugeNeueSeite(r); });
    pruefe(pdf, 1, {280.63, 419.53, 558.43});
    pruefe(pdf, 2, {280.63, 419.53, 558.43});

    QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(true);
    ProbeWriter letter;
    const double k = letter.kcm();
    pruefe(schreibe(letter, u"falz-letter.pdf"_s), 1, {9.9 * k, 14.8 * k, 19.7 * k});
}

TEST_F(PDFWriter, OnlyDocumentsOfSeveralPagesAreNumberedEachPageBeforeItEnds)
{
    using N = ProbeWriter::Nummerierung;
    ProbeWriter writer;
    const PdfPruefung einzeln = schreibe(writer, u"eine.pdf"_s);
    EXPECT_TRUE(writer.nummerierungen.isEmpty());
    EXPECT_FALSE(einzeln.text(1).contains(u"Seitenzahl"_s));

    QList<double> weiterBei;
    const PdfPruefung drei = schreibe(writer, u"drei.pdf"_s, [&](ProbeWriter &w, FKRRechnung &r) {
        weiterBei << w.erzeugeNeueSeite(r) << w.erzeugeNeueSeite(r);
    });
    EXPECT_EQ(weiterBei, QList<double>(2, 5 * writer.kcm()));
    // The page being left is numbered while it is still the current one; the new page's bare hook
    // follows once it has begun.
    EXPECT_EQ(writer.nummerierungen,
              (QList<N>{{1, 1, true}, {2, 2, false}, {2, 2, true}, {3, 3, false}, {3, 3, true}}));
    ASSERT_EQ(drei.seitenAnzahl(), 3);
    for (int seite = 1; seite <= 3; ++seite) {
        EXPECT_TRUE(drei.finde(seite, u"Seitenzahl %1"_s.arg(seite)).has_value()) << drei.text(seite).toStdString();
        EXPECT_EQ(drei.findeAlle(seite, u"Seitenzahl"_s).size(), 1) << seite;
    }

    // The count starts again with every file.
    schreibe(writer, u"wieder-eine.pdf"_s);
    EXPECT_TRUE(writer.nummerierungen.isEmpty());
    EXPECT_EQ(writer.seitennummer(), 1u);
}

TEST_F(PDFWriter, TextStandsInItsBoxWrapsAtTheWidthAndReturnsTheYBelowIt)
{
    const QString langerText = u"Konzeption und Umsetzung der neuen Internetpraesenz mit Startseite, "
                               "Kontaktformular und Impressum sowie drei Korrekturschleifen"_s;
    QList<double> ys;
    const PdfPruefung pdf = schreibe(m_writer, u"text.pdf"_s, [&](ProbeWriter &w, FKRRechnung &) {
        ys << w.schreibeText(u"Linksbuendig"_s, FKRPDFWriter::Links, m_font, 100, 100, 150, 500, true)
           << w.schreibeText(u"Rechtsbuendig"_s, FKRPDFWriter::Rechts, m_font, 250, 200, 150, 100, true)
           << w.schreibeText(u"Stehenbleiben"_s, FKRPDFWriter::Links, m_font, 100, 400, 300, 100, false)
           << w.schreibeText(u""_s, FKRPDFWriter::Links, m_font, 100, 100, 150, 500, true)
           << w.schreibeText(std::nullopt, FKRPDFWriter::Links, m_font, 100, 100, 150, 500, true)
           << w.schreibeText(langerText, FKRPDFWriter::Links, m_font, 100, 450, 150, 500, true, 0.15)
           << w.schreibeText(u"Erster\nZweiter"_s, FKRPDFWriter::Links, m_font, 300, 600, 300, 100, true);
    });
    ProbeWriter messer;
    const double zeile = messer.berechneTextBoxFuerString(u" "_s, m_font, {150, 500}).height();
    EXPECT_NEAR(zeile, 12 * (FKRPDFSchriften::kZeilenhoehe + 0.15), 1e-4);
    EXPECT_EQ(messer.berechneTextBoxFuerString(std::nullopt, m_font, {150, 500}), QSizeF(0, 0));
    const QSizeF gemessen = messer.berechneTextBoxFuerString(langerText, m_font, {150, 500});
    EXPECT_LE(gemessen.width(), 150);
    // Empty and missing texts take one line; a line feed starts a line at the wider default spacing.
    const double abstand = 12 * (FKRPDFSchriften::kZeilenhoehe + 0.5);
    const QList<double> erwartet = {100 + zeile, 200 + zeile, 400, 100 + zeile, 100 + zeile, 450 + gemessen.height(),
                                    600 + abstand + 12 * FKRPDFSchriften::kZeilenhoehe};
    ASSERT_EQ(ys.size(), erwartet.size());
    for (qsizetype i = 0; i < ys.size(); ++i)
        EXPECT_NEAR(ys[i], erwartet[i], 1e-4) << i;

    // Left-aligned from x, right-aligned to x + width, the glyphs inside the measured line.
    const QRectF links = box(pdf, u"Linksbuendig"_s), rechts = box(pdf, u"Rechtsbuendig"_s);
    EXPECT_NEAR(links.left(), 100, 0.5);
    EXPECT_NEAR(rechts.right(), 400, 0.5);
    EXPECT_GT(links.center().y(), 100);
    EXPECT_LT(links.center().y(), 100 + zeile);
    EXPECT_NEAR(rechts.center().y() - links.center().y(), 100, 0.01);
    EXPECT_TRUE(pdf.finde(1, u"Stehenbleiben"_s));
    const QRectF erster = box(pdf, u"Erster"_s), zweiter = box(pdf, u"Zweiter"_s);
    EXPECT_NEAR(zweiter.top() - erster.top(), abstand, 0.01);
    EXPECT_NEAR(zweiter.left(), 300, 0.5);

    // Every word of the long text stays within the width, in exactly the lines it measured.
    QSet<int> zeilen;
    for (const PdfPruefung::Wort &wort : pdf.woerter(1)) {
        if (wort.box.top() < 440 || wort.box.top() > 590)
            continue;
        EXPECT_GE(wort.box.left(), 99.5) << wort.text.toStdString();
        EXPECT_LE(wort.box.right(), 250.5) << wort.text.toStdString();
        zeilen.insert(qRound(wort.box.top()));
    }
    EXPECT_GE(zeilen.size(), 4);
    EXPECT_NEAR(gemessen.height(), zeilen.size() * zeile, 1e-4);
    EXPECT_TRUE(pdf.text(1).contains(u"Kontaktformular"_s));
}

TEST_F(PDFWriter, ExistingFileIsReplacedOnlyByAFinishedFile)
{
    ProbeWriter writer;
    const QString ziel = pfad(u"rechnung.pdf"_s);
    QFile alt(ziel);
    ASSERT_TRUE(alt.open(QIODevice::WriteOnly));
    alt.write("alte Fassung");
    alt.close();
    writer.erstellePDFDateiImPfad(ziel, *m_rechnung);
    ASSERT_TRUE(writer.letzteDateiGeschrieben());
    EXPECT_TRUE(PdfPruefung(ziel).gelesen());

    // A path that cannot take a file: a folder stands there, or the folder is missing.
    const QString ordner = pfad(u"ordner.pdf"_s);
    ASSERT_TRUE(QDir().mkpath(ordner + u"/inhalt"_s));
    writer.erstellePDFDateiImPfad(ordner, *m_rechnung);
    EXPECT_FALSE(writer.letzteDateiGeschrieben());
    EXPECT_FALSE(writer.letzterSchreibFehler().isEmpty());
    EXPECT_TRUE(QDir(ordner + u"/inhalt"_s).exists());
    writer.erstellePDFDateiImPfad(pfad(u"fehlt/rechnung.pdf"_s), *m_rechnung);
    EXPECT_FALSE(writer.letzteDateiGeschrieben());
    EXPECT_FALSE(QFile::exists(pfad(u"fehlt/rechnung.pdf"_s)));
    // No half-written leftovers next to the target.
    EXPECT_EQ(QDir(m_ordner.path()).entryList(QDir::Files), QStringList{u"rechnung.pdf"_s});
}

TEST_F(PDFWriter, FilesCarryTheirInformationAndOpenWithoutPasswordButProtected)
{
    ProbeWriter writer;
    const PdfPruefung erste = schreibe(writer, u"erste.pdf"_s);
    const PdfPruefung zweite = schreibe(writer, u"zweite.pdf"_s);

    const QMap<QString, QString> info = erste.info();
    EXPECT_EQ(info.value(u"Title"_s), QString::fromLatin1(FKRPDFHerausgeber::kTitel));
    EXPECT_EQ(info.value(u"Creator"_s), QString::fromLatin1(FKRPDFHerausgeber::kFirma));
    EXPECT_EQ(info.value(u"Author"_s), QString::fromLatin1(FKRPDFHerausgeber::kWebAdresse));
    EXPECT_TRUE(info.value(u"Encrypted"_s).startsWith(u"yes (print:yes copy:yes change:no"_s))
        << info.value(u"Encrypted"_s).toStdString();

    // Opened with the empty password, which is the user password: the owner password is another.
    const QMap<QString, QString> schutz = erste.verschluesselung();
    EXPECT_GE(schutz.value(u"R"_s).toInt(), 4);
    EXPECT_EQ(schutz.value(u"User password"_s), QString());
    EXPECT_EQ(schutz.value(u"print high resolution"_s), u"allowed"_s);
    EXPECT_EQ(schutz.value(u"extract for any purpose"_s), u"allowed"_s);
    EXPECT_EQ(schutz.value(u"modify other"_s), u"not allowed"_s);
    EXPECT_EQ(schutz.value(u"modify anything"_s), u"not allowed"_s);
    EXPECT_TRUE(schutz.value(u"stream encryption method"_s).startsWith(u"AES"_s));
    EXPECT_TRUE(schutz.contains(u"Supplied password is user password"_s));

    // Every file is locked with an owner password of its own.
    const QString o1 = erste.verschluesselungsEintraege(), o2 = zweite.verschluesselungsEintraege();
    EXPECT_TRUE(o1.contains(u"/O "_s)) << o1.toStdString();
    EXPECT_NE(o1, o2);
    const QString p1 = FKRPDFSchutz::neuesEigentuemerPasswort(), p2 = FKRPDFSchutz::neuesEigentuemerPasswort();
    EXPECT_EQ(p1.size(), FKRPDFHerausgeber::kEigentuemerPasswortLaenge);
    EXPECT_NE(p1, p2);
}

} // namespace
