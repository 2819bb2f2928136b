// Reading the bytes of a picture: the formats taken, its size on paper, and the bounds on bytes
// and pixels, which are checked before anything is decoded.
#include "FKRBildLeser.h"
#include "Testbilder.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using Ablehnung = FKRBildLeser::Ablehnung;
using testbilder::jpegMitKopf;

namespace {

// A picture of `groesse` in `format`, padded with zeros to `laenge` bytes if given.
QByteArray kodiert(QSize groesse, const char *format, int punkteJeMeter = 2835, qint64 laenge = 0)
{
    QImage bild(groesse, QImage::Format_RGB32);
    bild.fill(Qt::darkCyan);
    bild.setDotsPerMeterX(punkteJeMeter);
    bild.setDotsPerMeterY(punkteJeMeter);
    QByteArray daten;
    QBuffer puffer(&daten);
    puffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(bild.save(&puffer, format)) << format;
    if (laenge > 0)
        daten.resize(laenge, '\0');
    return daten;
}

TEST(FKRBildLeser, TakesPicturesWithinTheBoundsAndSaysWhyItRefusesOthers)
{
    const struct
    {
        const char *fall;
        QByteArray bytes;
        Ablehnung ablehnung;
        QString grund = {};
    } faelle[] = {
        {"PNG", kodiert({60, 40}, "PNG"), Ablehnung::Keine},
        {"JPEG", kodiert({60, 40}, "JPEG"), Ablehnung::Keine},
        {"TIFF", kodiert({60, 40}, "TIFF"), Ablehnung::Keine},
        {"GIF", QByteArray::fromBase64("R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7"),
         Ablehnung::Keine},
        {"BMP", kodiert({60, 40}, "BMP"), Ablehnung::Keine},
        {"text", "keine Grafik"_ba, Ablehnung::KeinBild, u"not a PNG, JPEG, TIFF, GIF, BMP or WebP image that can be read"_s},
        {"nothing", QByteArray(), Ablehnung::KeinBild},
        {"a format not taken", kodiert({60, 40}, "XPM"), Ablehnung::KeinBild},
        {"a cut-off PNG", kodiert({60, 40}, "PNG").left(60), Ablehnung::KeinBild},
        {"40000 x 40000 pixels", jpegMitKopf({40000, 40000}), Ablehnung::ZuVieleBildpunkte,
         u"the image is 40000 x 40000 pixels; at most 32 megapixels are taken"_s},
        {"one row more than 32 megapixels", jpegMitKopf({8000, 4001}), Ablehnung::ZuVieleBildpunkte},
        {"exactly 32 megapixels", jpegMitKopf({8000, 4000}), Ablehnung::Keine},
        {"exactly 32 MB", kodiert({30, 20}, "PNG", 2835, FKRBildLeser::kMaxBytes), Ablehnung::Keine},
        {"one byte more", kodiert({30, 20}, "PNG", 2835, FKRBildLeser::kMaxBytes + 1), Ablehnung::ZuVieleBytes,
         u"the image file has 32.0 MB; at most 32 MB are taken"_s},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        const FKRBildLeser::Ergebnis ergebnis = FKRBildLeser::lies(fall.bytes);
        EXPECT_EQ(ergebnis.ablehnung, fall.ablehnung);
        EXPECT_EQ(ergebnis.gelesen(), !ergebnis.bild.isNull());
        EXPECT_EQ(ergebnis.zuGross(),
                  fall.ablehnung == Ablehnung::ZuVieleBytes || fall.ablehnung == Ablehnung::ZuVieleBildpunkte);
        EXPECT_EQ(ergebnis.bytes, fall.bytes.size());
        EXPECT_TRUE(fall.grund.isEmpty() || ergebnis.grund() == fall.grund) << ergebnis.grund().toStdString();
        EXPECT_EQ(ergebnis.grund().isEmpty(), ergebnis.gelesen());
    }
}

TEST(FKRBildLeser, SizeOnPaperComesFromTheStatedResolution)
{
    // 144 dpi (5669 dots per metre): half a point per pixel; no resolution: a point per pixel.
    const FKRBildLeser::Ergebnis fein = FKRBildLeser::lies(kodiert({100, 60}, "PNG", 5669));
    EXPECT_NEAR(fein.punkte.width(), 100 * 72 / (5669 * 0.0254), 1e-9);
    EXPECT_NEAR(fein.punkte.height(), 60 * 72 / (5669 * 0.0254), 1e-9);
    EXPECT_EQ(FKRBildLeser::groesseInPunkten(QImage(100, 60, QImage::Format_RGB32)), QSizeF(100, 60));
    EXPECT_EQ(FKRBildLeser::lies(kodiert({10, 10}, "PNG")).bildpunkte, QSize(10, 10));
}

TEST(FKRBildLeser, FilesBeyondTheBoundAreRefusedBeforeTheyAreRead)
{
    QTemporaryDir ordner;
    const QString gross = ordner.filePath(u"gross.png"_s);
    QFile datei(gross);
    ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
    datei.write(kodiert({30, 20}, "PNG"));
    // Sparse: the file is long without taking the space.
    ASSERT_TRUE(datei.resize(FKRBildLeser::kMaxBytes + 1));
    datei.close();
    const FKRBildLeser::Ergebnis zuGross = FKRBildLeser::liesDatei(gross);
    EXPECT_EQ(zuGross.ablehnung, Ablehnung::ZuVieleBytes);
    EXPECT_EQ(zuGross.bytes, FKRBildLeser::kMaxBytes + 1);

    ASSERT_TRUE(datei.resize(FKRBildLeser::kMaxBytes));
    EXPECT_EQ(FKRBildLeser::liesDatei(gross).ablehnung, Ablehnung::Keine);
    EXPECT_EQ(FKRBildLeser::liesDatei(ordner.path()).ablehnung, Ablehnung::KeinBild);
    EXPECT_EQ(FKRBildLeser::liesDatei(ordner.filePath(u"fehlt.png"_s)).ablehnung, Ablehnung::KeinBild);
    EXPECT_EQ(FKRBildLeser::liesDatei(u"/dev/zero"_s).ablehnung, Ablehnung::KeinBild);
}

} // namespace
