#pragma once

// Pictures for tests of image reading: ones whose header states a size far beyond what would be
// decoded, which costs a test nothing as long as the bound is checked before decoding.
#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QSize>

namespace testbilder {

// A JPEG whose header states `groesse`, with the scan of a tiny picture behind it.
inline QByteArray jpegMitKopf(QSize groesse)
{
    QImage bild(16, 16, QImage::Format_RGB32);
    bild.fill(Qt::darkCyan);
    QByteArray jpeg;
    QBuffer puffer(&jpeg);
    puffer.open(QIODevice::WriteOnly);
    bild.save(&puffer, "JPEG");
    // The start-of-frame segment: marker, length, precision, then height and width.
    const qsizetype rahmen = jpeg.indexOf("\xFF\xC0");
    if (rahmen < 0)
        return {};
    jpeg[rahmen + 5] = char(groesse.height() >> 8);
    jpeg[rahmen + 6] = char(groesse.height() & 0xFF);
    jpeg[rahmen + 7] = char(groesse.width() >> 8);
    jpeg[rahmen + 8] = char(groesse.width() & 0xFF);
    return jpeg;
}

} // namespace testbilder
