// Images on the page, measured on a rendering of the written file.
#include "WriterTestSupport.h"

#include <QFile>
#include <QUrl>

using namespace Qt::Literals::StringLiterals;
using namespace writertest;

namespace {

constexpr double kDpi = 216.0; // 3 pixels per point
const QColor kOrange(255, 128, 0);

QRectF flaeche(const QImage &bild, QColor farbe) { return PdfPruefung::flaeche(bild, kDpi, farbe); }
double punkte(int pixel, int punkteJeMeter = 2835) { return pixel * 72.0 / (punkteJeMeter * 0.0254); }

TEST_F(PDFWriter, ImagesAreFittedIntoTheirBoxWithoutEnlargingOrDistortion)
{
    const QString datei = pfad(u"logo.png"_s);
    QFile png_(datei);
    ASSERT_TRUE(png_.open(QIODevice::WriteOnly) && png_.write(png({60, 40}, Qt::darkGreen)) > 0 && png_.flush());
    // Small: own size; wide, tall, wide and still too tall: limited by the box; right-aligned: right
    // edge at x; 144 dpi: half the size; no stated resolution: a point per pixel; from a file.
    const struct
    {
        QColor farbe;
        QByteArray bild;
        int ausrichtung;
        QRectF box, erwartet;
    } faelle[] = {
        {Qt::red, png({60, 40}, Qt::red), 0, {100, 100, 200, 200}, {100, 100, punkte(60), punkte(40)}},
        {Qt::green, png({400, 100}, Qt::green), 0, {100, 200, 200, 200}, {100, 200, 200, 50}},
        {Qt::blue, png({100, 400}, Qt::blue), 0, {350, 100, 200, 200}, {350, 100, 50, 200}},
        {Qt::magenta, png({400, 300}, Qt::magenta), 0, {100, 400, 200, 100}, {100, 400, 100 * 400.0 / 300.0, 100}},
        {Qt::cyan, png({60, 40}, Qt::cyan), 1, {500, 600, 200, 200}, {500 - punkte(60), 600, punkte(60), punkte(40)}},
        {Qt::yellow, png({100, 100}, Qt::yellow, 5669), 0, {100, 600, 200, 200},
         {100, 600, punkte(100, 5669), punkte(100, 5669)}},
        {kOrange, png({100, 50}, kOrange, 0), 0, {250, 700, 400, 400}, {250, 700, 100, 50}},
        {Qt::darkGreen, {}, 1, {550, 300, 200, 200}, {550 - punkte(60), 300, punkte(60), punkte(40)}},
    };
    QList<double> ys, nichts;
    const PdfPruefung pdf = schreibe(m_writer, u"bilder.pdf"_s, [&](ProbeWriter &w, FKRRechnung &) {
        for (const auto &[farbe, bytes, ausrichtung, box, erwartet] : faelle)
            ys << (bytes.isEmpty() ? w.zeichneBildMitDateiPfad(QUrl::fromLocalFile(datei).toString(), ausrichtung,
                                                               box.x(), box.y(), box.width(), box.height())
                                   : w.zeichneBild(bytes, ausrichtung, box.x(), box.y(), box.width(), box.height()));
        // What cannot be read, or is not a local file, is left out and takes no room.
        for (const auto &bytes : {std::optional<QByteArray>(), std::optional("kein Bild"_ba),
                                  std::optional(png({80, 20}, Qt::black).left(60))})
            nichts << w.zeichneBild(bytes, FKRPDFWriter::Links, 100, 300, 200, 200);
        for (const auto &ort : {std::optional<QString>(), std::optional(u"https://velmora.example/logo.png"_s),
                                std::optional(QUrl::fromLocalFile(pfad(u"fehlt.png"_s)).toString())})
            nichts << w.zeichneBildMitDateiPfad(ort, FKRPDFWriter::Links, 100, 300, 200, 200);
    });
    EXPECT_EQ(nichts, QList<double>(6, 300.0));
    const QImage bild = pdf.bild(1, kDpi);
    EXPECT_TRUE(flaeche(bild, Qt::black).isNull()) << "a truncated image must not be drawn in part";
    for (qsizetype i = 0; i < qsizetype(std::size(faelle)); ++i) {
        SCOPED_TRACE(faelle[i].farbe.name().toStdString());
        const QRectF gezeichnet = flaeche(bild, faelle[i].farbe), &erwartet = faelle[i].erwartet;
        EXPECT_LE((gezeichnet.topLeft() - erwartet.topLeft()).manhattanLength(), 0.7)
            << testing::PrintToString(gezeichnet);
        EXPECT_LE((gezeichnet.bottomRight() - erwartet.bottomRight()).manhattanLength(), 0.7);
        EXPECT_NEAR(ys.at(i), erwartet.bottom(), 1e-6);
    }
}

} // namespace
