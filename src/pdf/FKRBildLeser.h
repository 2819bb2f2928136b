#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QSizeF>
#include <QString>

// The one way from the bytes of a picture to an image, for the documents and for the sender's
// image slots alike. Whatever the bytes are (a dropped file, a stored logo, a restored backup,
// anything at all), reading them ends with an image or with the reason it was refused, and takes
// memory and time within the bounds below: the image's size is read from its header before
// anything is decoded, and nothing larger is decoded.
//
// Bounds: a file of at most 32 MB, and at most 32 megapixels, which is a letterhead of A4 or
// Letter paper scanned at 550 dpi. Decoded at up to 8 bytes a pixel, such an image stays below
// the 256 MB that Qt allows one image. Taken are the usual picture formats: PNG, JPEG, TIFF, GIF,
// BMP and WebP (of an animation, its first picture).
class FKRBildLeser
{
public:
    static constexpr qint64 kMaxBytes = 32'000'000;
    static constexpr qint64 kMaxBildpunkte = 32'000'000;

    enum class Ablehnung {
        Keine,
        // Not a picture of a format taken, or one that cannot be decoded.
        KeinBild,
        ZuVieleBytes,
        ZuVieleBildpunkte,
    };

    struct Ergebnis
    {
        Ablehnung ablehnung = Ablehnung::KeinBild;
        // The decoded image; null unless it was taken.
        QImage bild;
        // Its size on paper in points (groesseInPunkten).
        QSizeF punkte;
        // What was found of the picture: its length, and its size in pixels when the header
        // states one.
        qint64 bytes = 0;
        QSize bildpunkte;

        bool gelesen() const { return ablehnung == Ablehnung::Keine; }
        bool zuGross() const
        {
            return ablehnung == Ablehnung::ZuVieleBytes || ablehnung == Ablehnung::ZuVieleBildpunkte;
        }
        // Why it was refused, as one English line for the command line ("the image is 40000 x
        // 40000 pixels; at most 32 megapixels are taken"); empty when it was taken.
        QString grund() const;
    };

    // Reads an image from its bytes.
    static Ergebnis lies(const QByteArray &bytes);
    // Reads an image from a file; a file larger than the bound is refused before it is read,
    // and one that cannot be read (a folder, a device, a missing file) is no picture. `bytes`,
    // when given, receives what was read.
    static Ergebnis liesDatei(const QString &pfad, QByteArray *bytes = nullptr);

    // The size of an image on paper in points: from its own resolution, one point per pixel when
    // it states none. A file without a resolution gets that of a new image (the screen's), which
    // would make the same logo print at different sizes on different machines; it counts as none,
    // and so does a file that states exactly the screen's resolution.
    static QSizeF groesseInPunkten(const QImage &bild);
};
