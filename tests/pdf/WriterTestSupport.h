#pragma once

// A writer drawing whatever a test asks, its fixture writing to a fresh folder, documents by layout.
#include "FKRPDFLayout.h"
#include "FKRPDFSchriften.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"
#include "PdfPruefung.h"
#include "QBBenutzerEinstellungen.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace writertest {

class ProbeWriter : public FKRPDFWriter
{
public:
    std::function<void(ProbeWriter &, FKRRechnung &)> inhalt;
    void erstellePDFDateiImPfad(const QString &pfad, FKRRechnung &rechnung) override
    {
        startePDFDateiImPfad(pfad, rechnung);
        schreibeInhaltFuerRechnung(rechnung, 0.0);
        beendePDFDatei(rechnung);
    }
    double schreibeInhaltFuerRechnung(FKRRechnung &rechnung, double y) override
    {
        return inhalt ? (inhalt(*this, rechnung), y) : y;
    }
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
    bild.save(&puffer, "PNG");
    if (const qsizetype chunk = daten.indexOf("pHYs"); punkteJeMeter == 0 && chunk >= 4)
        daten.remove(chunk - 4, 4 + 4 + 9 + 4); // length, type, data, CRC
    return daten;
}

inline PdfPruefung rendere(FKRRechnung &rechnung, const QString &pfad)
{
    FKRPDFLayout &layout = FKRPDFLayout::fuerRechnung(rechnung);
    layout.erstellePDFDateiImPfad(pfad, rechnung);
    EXPECT_TRUE(layout.letzteDateiGeschrieben()) << layout.letzterSchreibFehler().toStdString();
    return PdfPruefung(pfad);
}

} // namespace writertest

class PDFWriter : public ::testing::Test
{
protected:
    QString pfad(const QString &name) const { return m_ordner.filePath(name); }
    PdfPruefung schreibe(writertest::ProbeWriter &writer, const QString &name,
                         std::function<void(writertest::ProbeWriter &, FKRRechnung &)> inhalt = {})
    {
        writer.inhalt = std::move(inhalt);
        writer.erstellePDFDateiImPfad(pfad(name), *m_rechnung);
        EXPECT_TRUE(writer.letzteDateiGeschrieben()) << writer.letzterSchreibFehler().toStdString();
        return PdfPruefung(pfad(name));
    }

    QTemporaryDir m_ordner;
    ManagedObjectContext m_context;
    FKRRechnung *m_rechnung = m_context.insertNewObject<FKRRechnung>();
    writertest::ProbeWriter m_writer;
    const QFont m_font = FKRPDFSchriften::schrift(12);
};
