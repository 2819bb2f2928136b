#pragma once

// The page writer under test: a writer whose content is whatever a test draws, the fixture that
// writes its files to a fresh folder and reads them back, and documents written by their layout.
#include "FKRAbsender.h"
#include "FKRPDFLayout.h"
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

// A writer drawing what the test asks, with page numbers as plain texts at a fixed place.
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

inline QByteArray pngBytes(const QImage &bild)
{
    QByteArray daten;
    QBuffer puffer(&daten);
    puffer.open(QIODevice::WriteOnly);
    bild.save(&puffer, "PNG");
    return daten;
}

// A one-colour PNG stating `punkteJeMeter` as its resolution; 0 states none (no pHYs chunk).
inline QByteArray png(QSize pixel, QColor farbe, int punkteJeMeter = 2835)
{
    QImage bild(pixel, QImage::Format_RGB32);
    bild.fill(farbe);
    bild.setDotsPerMeterX(std::max(punkteJeMeter, 1));
    bild.setDotsPerMeterY(std::max(punkteJeMeter, 1));
    QByteArray daten = pngBytes(bild);
    const qsizetype chunk = daten.indexOf("pHYs");
    if (punkteJeMeter == 0 && chunk >= 4)
        daten.remove(chunk - 4, 4 + 4 + 9 + 4); // length, type, data, CRC
    return daten;
}

// A PNG at 72 dpi, transparent but for a frame of `farbe` two pixels wide.
inline QByteArray rahmenPng(QSize pixel, QColor farbe)
{
    QImage bild(pixel, QImage::Format_ARGB32);
    bild.fill(farbe);
    for (int y = 2; y < pixel.height() - 2; ++y)
        for (int x = 2; x < pixel.width() - 2; ++x)
            bild.setPixelColor(x, y, Qt::transparent);
    bild.setDotsPerMeterX(2835);
    bild.setDotsPerMeterY(2835);
    return pngBytes(bild);
}

// Size in points of an image of `pixel` at `punkteJeMeter`.
inline double punkte(int pixel, int punkteJeMeter = 2835)
{
    return pixel * 72.0 / (punkteJeMeter * 0.0254);
}

// Writes `rechnung` with its layout to `pfad` and reads it back.
inline PdfPruefung rendere(FKRRechnung &rechnung, const QString &pfad)
{
    FKRPDFLayout &layout = FKRPDFLayout::fuerRechnung(rechnung);
    layout.erstellePDFDateiImPfad(pfad, rechnung);
    EXPECT_TRUE(layout.letzteDateiGeschrieben()) << layout.letzterSchreibFehler().toStdString();
    PdfPruefung pdf(pfad);
    EXPECT_TRUE(pdf.gelesen()) << pdf.fehler().toStdString();
    return pdf;
}

// A sender with every detail the layouts print, as the sender of `rechnung`.
inline FKRAbsender &vollerAbsender(ManagedObjectContext &context, FKRRechnung &rechnung)
{
    auto *a = context.insertNewObject<FKRAbsender>();
    a->setFirma(QStringLiteral("Atelierwerk"));
    a->setName(QStringLiteral("Mira Sommer"));
    a->setStrasse(QStringLiteral("Hafenweg 12"));
    a->setPlz(QStringLiteral("20457"));
    a->setOrt(QStringLiteral("Hamburg"));
    a->setLand(QStringLiteral("Deutschland"));
    a->setEmailAdresse(QStringLiteral("post@atelierwerk.example"));
    a->setTelefonNummer(QStringLiteral("040-1234567"));
    a->setFaxNummer(QStringLiteral("040-1234568"));
    a->setUmsatzsteuerId(QStringLiteral("DE123456789"));
    a->setSteuerNummer(QStringLiteral("22/333/44444"));
    a->setBankVerbindungInstitut(QStringLiteral("Hafenbank"));
    a->setBankVerbindungIban(QStringLiteral("DE02120300000000202051"));
    a->setBankVerbindungBic(QStringLiteral("BYLADEM1001"));
    rechnung.setAbsender(a);
    return *a;
}

inline QRectF flaeche(const QImage &bild, QColor farbe) { return PdfPruefung::flaeche(bild, kDpi, farbe); }
inline int tinte(const QImage &bild, double x, double y) { return PdfPruefung::tinte(bild, kDpi, x, y); }

} // namespace writertest

class PDFWriter : public ::testing::Test
{
protected:
    void SetUp() override { QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false); }
    void TearDown() override
    {
        QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false);
        if (HasFailure()) {
            m_ordner.setAutoRemove(false);
            std::cerr << "PDF files kept in " << m_ordner.path().toStdString() << "\n";
        }
    }

    QString pfad(const QString &name) const { return m_ordner.filePath(name); }

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
