#pragma once

// The page writer under test: a writer whose content is whatever a test draws, the fixture that
// writes its files to a fresh folder and reads them back, and measures on rendered pages.
#include "FKRPDFSchriften.h"
#include "FKRPDFWriter.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"
#include "PdfPruefung.h"
#include "QBBenutzerEinstellungen.h"

#include <QBuffer>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>
#include <iostream>

inline void PrintTo(const QRectF &r, std::ostream *out)
{
    *out << "(" << r.left() << ", " << r.top() << ") - (" << r.right() << ", " << r.bottom() << ")";
}

namespace writertest {

inline constexpr double kDpi = 216.0; // 3 pixels per point

// A writer whose content is whatever the test draws, and whose page numbers are plain texts
// at a fixed place, so they can be found in the file.
class ProbeWriter : public FKRPDFWriter
{
public:
    struct Nummerierung
    {
        uint seite;
        uint seitennummerBeimAufruf;
        bool mitRechnung;
        bool operator==(const Nummerierung &) const = default;
    };

    std::function<void(ProbeWriter &, FKRRechnung &)> inhalt;
    QList<Nummerierung> nummerierungen;

    void erstellePDFDateiImPfad(const QString &pfad, FKRRechnung &rechnung) override
    {
        nummerierungen.clear();
        startePDFDateiImPfad(pfad, rechnung);
        schreibeInhaltFuerRechnung(rechnung, 0.0);
        beendePDFDatei(rechnung);
    }
    double schreibeInhaltFuerRechnung(FKRRechnung &rechnung, double y) override
    {
        if (inhalt)
            inhalt(*this, rechnung);
        return y;
    }
    void schreibeSeitennummer(uint seite, FKRRechnung &) override
    {
        nummerierungen.append({seite, seitennummer(), true});
        schreibeText(QStringLiteral("Seitenzahl %1").arg(seite), Links, FKRPDFSchriften::schrift(9), 300, 100, 200, 20, false);
    }
    void schreibeSeitennummer(uint seite) override { nummerierungen.append({seite, seitennummer(), false}); }
};

// A one-colour PNG stating `punkteJeMeter` as its resolution; 0 states none (no pHYs chunk).
inline QByteArray png(QSize pixel, QColor farbe, int punkteJeMeter = 2835)
{
    QImage bild(pixel, QImage::Format_RGB32);
    bild.fill(farbe);
    bild.setDotsPerMeterX(std::max(punkteJeMeter, 1));
    bild.setDotsPerMeterY(std::max(punkteJeMeter, 1));
    QByteArray daten;
    QBuffer puffer(&daten);
    puffer.open(QIODevice::WriteOnly);
    bild.save(&puffer, "PNG");
    const qsizetype chunk = daten.indexOf("pHYs");
    if (punkteJeMeter == 0 && chunk >= 4)
        daten.remove(chunk - 4, 4 + 4 + 9 + 4); // length, type, data, CRC
    return daten;
}

// A PNG at 72 dpi (a pixel is a point) that is transparent but for a frame of `farbe` two pixels
// wide, so that its whole box shows on a rendered page while text under it would not be hidden.
inline QByteArray rahmenPng(QSize pixel, QColor farbe)
{
    QImage bild(pixel, QImage::Format_ARGB32);
    bild.fill(Qt::transparent);
    for (int y = 0; y < pixel.height(); ++y)
        for (int x = 0; x < pixel.width(); ++x)
            if (x < 2 || y < 2 || x >= pixel.width() - 2 || y >= pixel.height() - 2)
                bild.setPixelColor(x, y, farbe);
    bild.setDotsPerMeterX(2835);
    bild.setDotsPerMeterY(2835);
    QByteArray daten;
    QBuffer puffer(&daten);
    puffer.open(QIODevice::WriteOnly);
    bild.save(&puffer, "PNG");
    return daten;
}

// Size in points of an image of `pixel` at `punkteJeMeter`, as paper measures it.
inline double punkte(int pixel, int punkteJeMeter = 2835)
{
    return pixel * 72.0 / (punkteJeMeter * 0.0254);
}

// The bounding box, in points, of the pixels that have `farbe` (give or take the rendering's
// blending at the edges).
inline QRectF flaeche(const QImage &bild, QColor farbe)
{
    int links = bild.width(), oben = bild.height(), rechts = -1, unten = -1;
    for (int y = 0; y < bild.height(); ++y) {
        const QRgb *zeile = reinterpret_cast<const QRgb *>(bild.constScanLine(y));
        for (int x = 0; x < bild.width(); ++x) {
            if (std::abs(qRed(zeile[x]) - farbe.red()) < 60 && std::abs(qGreen(zeile[x]) - farbe.green()) < 60
                && std::abs(qBlue(zeile[x]) - farbe.blue()) < 60) {
                links = std::min(links, x), rechts = std::max(rechts, x);
                oben = std::min(oben, y), unten = std::max(unten, y);
            }
        }
    }
    if (rechts < 0)
        return {};
    const double f = 72.0 / kDpi;
    return QRectF(QPointF(links * f, oben * f), QPointF((rechts + 1) * f, (unten + 1) * f));
}

// How far the pixel at (x, y) points is from white, 0 to 255.
inline int tinte(const QImage &bild, double x, double y)
{
    const QRgb p = bild.pixel(int(x * kDpi / 72.0), int(y * kDpi / 72.0));
    return 255 - std::min({qRed(p), qGreen(p), qBlue(p)});
}

} // namespace writertest

class PDFWriter : public ::testing::Test
{
protected:
    void SetUp() override { QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false); }
    void TearDown() override
    {
        QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false);
        // The files of a failed test stay for a look.
        if (HasFailure()) {
            m_ordner.setAutoRemove(false);
            std::cerr << "PDF files kept in " << m_ordner.path().toStdString() << "\n";
        }
    }

    QString pfad(const QString &name) const { return m_ordner.filePath(name); }

    // Writes a file with `inhalt` and reads it back.
    PdfPruefung schreibe(writertest::ProbeWriter &writer, const QString &name,
                         std::function<void(writertest::ProbeWriter &, FKRRechnung &)> inhalt = {})
    {
        writer.inhalt = std::move(inhalt);
        writer.erstellePDFDateiImPfad(pfad(name), *m_rechnung);
        EXPECT_TRUE(writer.letzteDateiGeschrieben()) << writer.letzterSchreibFehler().toStdString();
        PdfPruefung pdf(pfad(name));
        EXPECT_TRUE(pdf.gelesen()) << pdf.fehler().toStdString();
        return pdf;
    }

    QTemporaryDir m_ordner;
    ManagedObjectContext m_context;
    FKRRechnung *m_rechnung = m_context.insertNewObject<FKRRechnung>();
    writertest::ProbeWriter m_writer;
    const QFont m_font = FKRPDFSchriften::schrift(12);
};
