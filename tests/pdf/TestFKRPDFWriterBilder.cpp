// Images and areas on the page, measured on a rendering of the written file.
#include "FKRDokumentZuGross.h"
#include "Testbilder.h"
#include "WriterTestSupport.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QUrl>

using namespace Qt::Literals::StringLiterals;
using namespace writertest;

namespace {

const QColor kOrange(255, 128, 0);

TEST_F(PDFWriter, ImagesAreFittedIntoTheirBoxWithoutEnlargingOrDistortion)
{
    QList<double> ys;
    const PdfPruefung pdf = schreibe(m_writer, u"bilder.pdf"_s, [&](ProbeWriter &w, FKRRechnung &) {
        // Small: its own size; wide, tall, or wide and still too tall: limited by the box;
        // right-aligned: right edge at x; twice the resolution: half the size; no stated
        // resolution: a point per pixel, whatever screen the program runs on.
        ys << w.zeichneBild(png({60, 40}, Qt::red), FKRPDFWriter::Links, 100, 100, 200, 200)
           << w.zeichneBild(png({400, 100}, Qt::green), FKRPDFWriter::Links, 100, 200, 200, 200)
           << w.zeichneBild(png({100, 400}, Qt::blue), FKRPDFWriter::Links, 350, 100, 200, 200)
           << w.zeichneBild(png({400, 300}, Qt::magenta), FKRPDFWriter::Links, 100, 400, 200, 100)
           << w.zeichneBild(png({60, 40}, Qt::cyan), FKRPDFWriter::Rechts, 500, 600, 200, 200)
           << w.zeichneBild(png({100, 100}, Qt::yellow, 5669), FKRPDFWriter::Links, 100, 600, 200, 200)
           << w.zeichneBild(png({100, 50}, kOrange, 0), FKRPDFWriter::Links, 250, 700, 400, 400);
    });
    const QImage bild = pdf.bild(1, kDpi);
    const struct
    {
        QColor farbe;
        QRectF erwartet;
    } faelle[] = {
        {Qt::red, QRectF(100, 100, punkte(60), punkte(40))},
        {Qt::green, QRectF(100, 200, 200, 50)},
        {Qt::blue, QRectF(350, 100, 50, 200)},
        {Qt::magenta, QRectF(100, 400, 100 * 400.0 / 300.0, 100)},
        {Qt::cyan, QRectF(500 - punkte(60), 600, punkte(60), punkte(40))},
        {Qt::yellow, QRectF(100, 600, punkte(100, 5669), punkte(100, 5669))},
        {kOrange, QRectF(250, 700, 100, 50)},
    };
    for (int i = 0; i < int(std::size(faelle)); ++i) {
        SCOPED_TRACE(faelle[i].farbe.name().toStdString());
        const QRectF gezeichnet = flaeche(bild, faelle[i].farbe), &erwartet = faelle[i].erwartet;
        EXPECT_LE((gezeichnet.topLeft() - erwartet.topLeft()).manhattanLength(), 0.7) << testing::PrintToString(gezeichnet);
        EXPECT_LE((gezeichnet.bottomRight() - erwartet.bottomRight()).manhattanLength(), 0.7)
            << testing::PrintToString(gezeichnet);
        EXPECT_NEAR(ys.at(i), erwartet.bottom(), 1e-6);
    }
}

TEST_F(PDFWriter, ImagesFromFileUrlsAndImagesThatCannotBeDrawn)
{
    const QString datei = pfad(u"logo.png"_s);
    QFile png_(datei);
    ASSERT_TRUE(png_.open(QIODevice::WriteOnly));
    png_.write(png({80, 20}, Qt::red));
    png_.close();
    const QString url = QUrl::fromLocalFile(datei).toString();
    ASSERT_TRUE(url.startsWith(u"file:///"_s));

    QList<double> nichts;
    double ausDatei = 0;
    const PdfPruefung pdf = schreibe(m_writer, u"url.pdf"_s, [&](ProbeWriter &w, FKRRechnung &) {
        for (const std::optional<QByteArray> &bytes :
             {std::optional<QByteArray>(), std::optional(QByteArray()), std::optional("kein Bild"_ba),
              std::optional(png({80, 20}, Qt::blue).left(60))})
            nichts << w.zeichneBild(bytes, FKRPDFWriter::Links, 100, 300, 200, 200);
        for (const std::optional<QString> &ort :
             {std::optional<QString>(), std::optional(datei), std::optional(u"nicht ganz eine URL %%"_s),
              std::optional(u"https://velmora.example/logo.png"_s),
              std::optional(QUrl::fromLocalFile(pfad(u"fehlt.png"_s)).toString())})
            nichts << w.zeichneBildMitDateiPfad(ort, FKRPDFWriter::Links, 100, 300, 200, 200);
        ausDatei = w.zeichneBildMitDateiPfad(url, FKRPDFWriter::Rechts, 400, 100, 200, 200);
    });
    EXPECT_EQ(nichts, QList<double>(9, 300.0));
    EXPECT_NEAR(ausDatei, 100 + punkte(20), 1e-6);
    const QImage bild = pdf.bild(1, kDpi);
    const QRectF rot = flaeche(bild, Qt::red);
    EXPECT_NEAR(rot.right(), 400, 0.5);
    EXPECT_NEAR(rot.width(), punkte(80), 0.7);
    EXPECT_TRUE(flaeche(bild, Qt::blue).isNull()) << "a truncated image must not be drawn in part";
}

TEST_F(PDFWriter, AStoredImageBeyondTheBoundsRefusesTheDocument)
{
    const QString lang = pfad(u"lang.png"_s);
    QFile datei(lang);
    ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
    datei.write(png({80, 20}, Qt::red));
    ASSERT_TRUE(datei.resize(FKRBildLeser::kMaxBytes + 1));
    datei.close();
    const struct
    {
        std::function<double(ProbeWriter &)> zeichne;
        const char *meldung;
    } faelle[] = {
        {[](ProbeWriter &w) { return w.zeichneBild(testbilder::jpegMitKopf({40000, 40000}), FKRPDFWriter::Links, 0, 0, 100, 100); },
         "an image of the sender cannot be used: the image is 40000 x 40000 pixels; at most 32 megapixels are taken"},
        {[&](ProbeWriter &w) {
             return w.zeichneBildMitDateiPfad(QUrl::fromLocalFile(lang).toString(), FKRPDFWriter::Links, 0, 0, 100, 100);
         },
         "an image of the sender cannot be used: the image file has 32.0 MB; at most 32 MB are taken"},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.meldung);
        m_writer.inhalt = [&](ProbeWriter &w, FKRRechnung &) { fall.zeichne(w); };
        try {
            m_writer.erstellePDFDateiImPfad(pfad(u"bild.pdf"_s), *m_rechnung);
            ADD_FAILURE() << "drawn";
        } catch (const FKRDokumentZuGross &fehler) {
            EXPECT_EQ(fehler.art(), FKRDokumentZuGross::Art::Bild);
            EXPECT_STREQ(fehler.what(), fall.meldung);
        }
    }
}

TEST_F(PDFWriter, AnImageOnEveryPageIsReadOnceAndHeldOnceInTheFile)
{
    // Noise, which no compression shrinks.
    QImage rauschen(200, 200, QImage::Format_RGB32);
    for (int y = 0; y < rauschen.height(); ++y)
        for (int x = 0; x < rauschen.width(); ++x)
            rauschen.setPixel(x, y, QRandomGenerator::global()->generate() | 0xFF000000u);
    const QByteArray bild = pngBytes(rauschen);
    const auto seiten = [&](int anzahl) {
        return [&, anzahl](ProbeWriter &w, FKRRechnung &r) {
            for (int seite = 1; seite <= anzahl; ++seite) {
                if (seite > 1)
                    w.erzeugeNeueSeite(r);
                w.zeichneBild(bild, FKRPDFWriter::Links, 0, 0, 200, 200);
            }
        };
    };
    schreibe(m_writer, u"eine.pdf"_s, seiten(1));
    const PdfPruefung fuenf = schreibe(m_writer, u"fuenf.pdf"_s, seiten(5));
    ASSERT_EQ(fuenf.seitenAnzahl(), 5);
    EXPECT_LT(QFileInfo(pfad(u"fuenf.pdf"_s)).size() - QFileInfo(pfad(u"eine.pdf"_s)).size(), 200 * 200 * 3 / 2);
    EXPECT_FALSE(flaeche(fuenf.bild(5, kDpi), rauschen.pixelColor(100, 100)).isNull());
}

TEST_F(PDFWriter, LinesAreGreyAndAreasAreFilledEitherWay)
{
    const PdfPruefung pdf = schreibe(m_writer, u"linien.pdf"_s, [&](ProbeWriter &w, FKRRechnung &) {
        w.zeichneWaagerechteLinieAnYPosition(150, 100, 300, 2);
        w.fuelleRechteckVonStartpunkt({100, 200}, {200, 250}, Qt::blue);
        // The end above the start: the area extends from the start downward all the same.
        w.fuelleRechteckVonStartpunkt({300, 250}, {400, 200}, Qt::green);
        w.schreibeText(u"Danach"_s, FKRPDFWriter::Links, m_font, 100, 300, 300, 100, true);
    });
    const QImage bild = pdf.bild(1, kDpi);
    const QRgb linie = bild.pixel(int(200 * kDpi / 72), int(150 * kDpi / 72));
    EXPECT_NEAR(qRed(linie), 128, 16);
    EXPECT_EQ(qRed(linie), qBlue(linie));
    EXPECT_EQ(tinte(bild, 99, 150), 0);
    EXPECT_EQ(tinte(bild, 301, 150), 0);
    const QRectF blau = flaeche(bild, Qt::blue), gruen = flaeche(bild, Qt::green);
    EXPECT_LE((blau.topLeft() - QPointF(100, 200)).manhattanLength(), 0.7);
    EXPECT_LE((blau.bottomRight() - QPointF(200, 250)).manhattanLength(), 0.7);
    EXPECT_LE((gruen.topLeft() - QPointF(300, 200)).manhattanLength(), 0.7);
    EXPECT_LE((gruen.bottomRight() - QPointF(400, 250)).manhattanLength(), 0.7);
    // A fill leaves no colour behind for the text that follows.
    const auto danach = pdf.finde(1, u"Danach"_s);
    ASSERT_TRUE(danach);
    EXPECT_TRUE(flaeche(bild, Qt::black).intersects(*danach));
}

} // namespace
