#include "FKRBildLeser.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace {

bool istGenommenesFormat(const QByteArray &format)
{
    static const QByteArrayList formate{"png", "jpeg", "tiff", "gif", "bmp", "webp"};
    return formate.contains(format);
}

qint64 bildpunkte(QSize groesse)
{
    return qint64(groesse.width()) * groesse.height();
}

QString megabytes(qint64 bytes)
{
    return QString::number(double(bytes) / 1e6, 'f', 1);
}

} // namespace

QString FKRBildLeser::Ergebnis::grund() const
{
    switch (ablehnung) {
    case Ablehnung::Keine:
        return {};
    case Ablehnung::KeinBild:
        return QStringLiteral("not a PNG, JPEG, TIFF, GIF, BMP or WebP image that can be read");
    case Ablehnung::ZuVieleBytes:
        return QStringLiteral("the image file has %1 MB; at most %2 MB are taken")
            .arg(megabytes(bytes), QString::number(kMaxBytes / 1'000'000));
    case Ablehnung::ZuVieleBildpunkte:
        return QStringLiteral("the image is %1 x %2 pixels; at most %3 megapixels are taken")
            .arg(bildpunkte.width())
            .arg(bildpunkte.height())
            .arg(kMaxBildpunkte / 1'000'000);
    }
    return {};
}

FKRBildLeser::Ergebnis FKRBildLeser::lies(const QByteArray &bytes)
{
    Ergebnis ergebnis;
    ergebnis.bytes = bytes.size();
    if (bytes.size() > kMaxBytes) {
        ergebnis.ablehnung = Ablehnung::ZuVieleBytes;
        return ergebnis;
    }
    QBuffer puffer;
    puffer.setData(bytes);
    puffer.open(QIODevice::ReadOnly);
    QImageReader leser(&puffer);
    if (!istGenommenesFormat(leser.format()))
        return ergebnis;
    // The size the header states, before a single pixel is decoded. A format that cannot state
    // it cannot be bounded and is not taken.
    ergebnis.bildpunkte = leser.size();
    if (!ergebnis.bildpunkte.isValid() || ergebnis.bildpunkte.isEmpty())
        return ergebnis;
    if (bildpunkte(ergebnis.bildpunkte) > kMaxBildpunkte) {
        ergebnis.ablehnung = Ablehnung::ZuVieleBildpunkte;
        return ergebnis;
    }
    // Qt's own bound for one image, which the environment may raise; it stays above what the
    // bound on pixels lets through.
    QImageReader::setAllocationLimit(256);
    QImage bild = leser.read();
    if (bild.isNull())
        return ergebnis;
    if (bildpunkte(bild.size()) > kMaxBildpunkte) {
        ergebnis.bildpunkte = bild.size();
        ergebnis.ablehnung = Ablehnung::ZuVieleBildpunkte;
        return ergebnis;
    }
    ergebnis.ablehnung = Ablehnung::Keine;
    ergebnis.punkte = groesseInPunkten(bild);
    ergebnis.bild = std::move(bild);
    return ergebnis;
}

FKRBildLeser::Ergebnis FKRBildLeser::liesDatei(const QString &pfad, QByteArray *gelesen)
{
    const QFileInfo info(pfad);
    Ergebnis ergebnis;
    // A device or a pipe would be read for ever.
    if (!info.isFile())
        return ergebnis;
    if (info.size() > kMaxBytes) {
        ergebnis.bytes = info.size();
        ergebnis.ablehnung = Ablehnung::ZuVieleBytes;
        return ergebnis;
    }
    QFile datei(pfad);
    if (!datei.open(QIODevice::ReadOnly))
        return ergebnis;
    // A file that grew since it was looked at is read no further than the bound.
    const QByteArray bytes = datei.read(kMaxBytes + 1);
    if (datei.error() != QFileDevice::NoError)
        return ergebnis;
    if (gelesen)
        *gelesen = bytes;
    return lies(bytes);
}

QSizeF FKRBildLeser::groesseInPunkten(const QImage &bild)
{
    const QImage neu(1, 1, QImage::Format_RGB32);
    const auto punkteJeBildpunkt = [](int punkteJeMeter, int ohneAngabe) {
        return punkteJeMeter > 0 && punkteJeMeter != ohneAngabe ? 72.0 / (punkteJeMeter * 0.0254) : 1.0;
    };
    return QSizeF(bild.width() * punkteJeBildpunkt(bild.dotsPerMeterX(), neu.dotsPerMeterX()),
                  bild.height() * punkteJeBildpunkt(bild.dotsPerMeterY(), neu.dotsPerMeterY()));
}
