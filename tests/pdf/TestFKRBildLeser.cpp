// Reading a picture: the formats taken, its size on paper, the bounds checked before decoding.
#include "FKRBildLeser.h"
#include "Testbilder.h"
#include "WriterTestSupport.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using Ablehnung = FKRBildLeser::Ablehnung;
using testbilder::jpegMitKopf;

namespace {

// A picture of 30 x 20 pixels padded with zeros to `laenge` bytes.
QByteArray kodiert(qint64 laenge = 0) { return writertest::png({30, 20}, Qt::darkCyan).leftJustified(laenge, '\0'); }

TEST(FKRBildLeser, TakesPicturesWithinTheBoundsAndSaysWhyItRefusesOthers)
{
    const struct
    {
        const char *fall;
        QByteArray bytes;
        Ablehnung ablehnung;
        QString grund = {};
    } faelle[] = {
        {"text", "keine Grafik"_ba, Ablehnung::KeinBild,
         u"not a PNG, JPEG, TIFF, GIF, BMP or WebP image that can be read"_s},
        {"40000 x 40000 pixels", jpegMitKopf({40000, 40000}), Ablehnung::ZuVieleBildpunkte,
         u"the image is 40000 x 40000 pixels; at most 32 megapixels are taken"_s},
        {"one row more than 32 megapixels", jpegMitKopf({8000, 4001}), Ablehnung::ZuVieleBildpunkte},
        {"exactly 32 megapixels", jpegMitKopf({8000, 4000}), Ablehnung::Keine},
        {"exactly 32 MB", kodiert(FKRBildLeser::kMaxBytes), Ablehnung::Keine},
        {"one byte more", kodiert(FKRBildLeser::kMaxBytes + 1), Ablehnung::ZuVieleBytes,
         u"the image file has 32.0 MB; at most 32 MB are taken"_s},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        const FKRBildLeser::Ergebnis ergebnis = FKRBildLeser::lies(fall.bytes);
        EXPECT_EQ(ergebnis.ablehnung, fall.ablehnung);
        EXPECT_EQ(ergebnis.zuGross(),
                  fall.ablehnung == Ablehnung::ZuVieleBytes || fall.ablehnung == Ablehnung::ZuVieleBildpunkte);
        EXPECT_TRUE(fall.grund.isEmpty() || ergebnis.grund() == fall.grund) << ergebnis.grund().toStdString();
        EXPECT_EQ(ergebnis.grund().isEmpty(), ergebnis.gelesen());
    }
}

TEST(FKRBildLeser, FilesBeyondTheBoundAreRefusedBeforeTheyAreRead)
{
    QTemporaryDir ordner;
    QFile datei(ordner.filePath(u"gross.png"_s));
    ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
    datei.write(kodiert());
    ASSERT_TRUE(datei.resize(FKRBildLeser::kMaxBytes + 1)); // sparse: long without taking the space
    EXPECT_EQ(FKRBildLeser::liesDatei(datei.fileName()).ablehnung, Ablehnung::ZuVieleBytes);
    ASSERT_TRUE(datei.resize(FKRBildLeser::kMaxBytes));
    EXPECT_EQ(FKRBildLeser::liesDatei(datei.fileName()).ablehnung, Ablehnung::Keine);
    for (const QString &pfad : {ordner.path(), ordner.filePath(u"fehlt.png"_s), u"/dev/zero"_s})
        EXPECT_EQ(FKRBildLeser::liesDatei(pfad).ablehnung, Ablehnung::KeinBild) << pfad.toStdString();
}

} // namespace
