// Whole documents, page by page, against reference images in tests/data/golden: the layouts
// must keep drawing what they drew when the references were last accepted. A page counts as
// unchanged when few of its pixels differ by more than a little (font rasterisation may vary by
// a shade between library versions; a moved block or a changed text does not pass).
//
// After an intended change, regenerate the references with scripts/update-goldens and review
// the new images before committing them. A failing page leaves <name>-<page>-ist.png and
// <name>-<page>-diff.png (differences in red) in golden-diff/ of the build folder.
#include "FKRPDFLayout.h"
#include "FKRRechnung.h"
#include "FKRUhr.h"
#include "GoldenDokumente.h"
#include "ManagedObjectContext.h"
#include "PdfPruefung.h"
#include "QBBenutzerEinstellungen.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimeZone>
#include <gtest/gtest.h>

#include <iostream>

using namespace Qt::Literals::StringLiterals;

void PrintTo(const GoldenDokumente::Dokument &dokument, std::ostream *out)
{
    *out << dokument.name.toStdString();
}

namespace {

constexpr double kDpi = 60.0;
// A pixel differs when its grey level is off by more than this much ...
constexpr int kToleranz = 24;
// ... and a page differs when more than this share of its pixels do.
constexpr double kAnteilToleranz = 1e-5;

QString goldenOrdner()
{
    return QStringLiteral(VELMORA_TEST_DATA "/golden");
}

bool aktualisieren()
{
    return qEnvironmentVariableIntValue("VELMORA_UPDATE_GOLDENS") == 1;
}

// The references are kept in grey levels, a third of the size of colour images; a changed
// colour still shows as a changed grey.
QImage grau(const QImage &bild)
{
    return bild.convertToFormat(QImage::Format_Grayscale8);
}

struct Vergleich
{
    qsizetype abweichend = 0;
    QImage diff;
};

Vergleich vergleiche(const QImage &soll, const QImage &ist)
{
    const QImage a = grau(soll), b = grau(ist);
    Vergleich ergebnis;
    ergebnis.diff = a.convertToFormat(QImage::Format_RGB32);
    QPainter blass(&ergebnis.diff);
    blass.fillRect(ergebnis.diff.rect(), QColor(255, 255, 255, 200));
    blass.end();
    for (int y = 0; y < a.height(); ++y) {
        const uchar *zeileA = a.constScanLine(y), *zeileB = b.constScanLine(y);
        for (int x = 0; x < a.width(); ++x) {
            if (std::abs(int(zeileA[x]) - int(zeileB[x])) > kToleranz) {
                ++ergebnis.abweichend;
                ergebnis.diff.setPixel(x, y, qRgb(255, 0, 0));
            }
        }
    }
    return ergebnis;
}

class GoldenRenderings : public ::testing::TestWithParam<GoldenDokumente::Dokument>
{
protected:
    static void SetUpTestSuite()
    {
        // Nothing of a rendering may depend on the day the suite runs.
        FKRUhr::halteAn(QDateTime(QDate(2024, 3, 20), QTime(9, 30), QTimeZone("Europe/Berlin")));
        // The shared layout objects keep the margins of the paper they were made with, so make
        // them on A4, as in a program started with the default setting, whichever document
        // comes first (ctest runs each document in a process of its own).
        QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false);
        ManagedObjectContext context;
        for (const int layout : {1, 2, 3}) {
            auto *rechnung = context.insertNewObject<FKRRechnung>();
            rechnung->setLayout(Decimal(layout));
            FKRPDFLayout::fuerRechnung(*rechnung);
        }
    }
    static void TearDownTestSuite()
    {
        FKRUhr::laufeWeiter();
        QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false);
    }

    QTemporaryDir m_ordner;
    ManagedObjectContext m_context;
};

TEST_P(GoldenRenderings, PagesMatchTheReferenceImages)
{
    const GoldenDokumente::Dokument &dokument = GetParam();
    QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(dokument.letter);
    FKRRechnung *rechnung = dokument.erstelle(m_context);
    const QString pdfPfad = m_ordner.filePath(dokument.name + u".pdf"_s);
    FKRPDFLayout &layout = FKRPDFLayout::fuerRechnung(*rechnung);
    layout.erstellePDFDateiImPfad(pdfPfad, *rechnung);
    ASSERT_TRUE(layout.letzteDateiGeschrieben()) << layout.letzterSchreibFehler().toStdString();
    const PdfPruefung pdf(pdfPfad);
    ASSERT_TRUE(pdf.gelesen()) << pdf.fehler().toStdString();
    EXPECT_EQ(pdf.seitenGroesse(1), dokument.letter ? QSizeF(612, 792) : QSizeF(595.276, 841.89));

    const auto referenz = [&](int seite) {
        return QDir(goldenOrdner()).filePath(u"%1-%2.png"_s.arg(dokument.name).arg(seite));
    };
    if (aktualisieren()) {
        QDir().mkpath(goldenOrdner());
        for (int seite = 1; seite <= pdf.seitenAnzahl(); ++seite)
            ASSERT_TRUE(grau(pdf.bild(seite, kDpi)).save(referenz(seite), "PNG", 9)) << referenz(seite).toStdString();
        // Pages the document no longer has.
        for (int seite = pdf.seitenAnzahl() + 1; QFile::exists(referenz(seite)); ++seite)
            QFile::remove(referenz(seite));
        std::cout << "updated " << pdf.seitenAnzahl() << " reference page(s) of " << dokument.name.toStdString()
                  << "\n";
        return;
    }

    EXPECT_FALSE(QFile::exists(referenz(pdf.seitenAnzahl() + 1))) << "the reference has more pages";
    const QString diffOrdner = QStringLiteral(VELMORA_BINARY_DIR "/golden-diff");
    for (int seite = 1; seite <= pdf.seitenAnzahl(); ++seite) {
        SCOPED_TRACE(testing::Message() << "page " << seite);
        const QImage soll(referenz(seite));
        ASSERT_FALSE(soll.isNull()) << "no reference image " << referenz(seite).toStdString()
                                    << " (scripts/update-goldens makes it)";
        const QImage ist = pdf.bild(seite, kDpi);
        ASSERT_EQ(ist.size(), soll.size());
        const Vergleich vergleich = vergleiche(soll, ist);
        const double anteil = double(vergleich.abweichend) / (double(ist.width()) * ist.height());
        EXPECT_LE(anteil, kAnteilToleranz) << vergleich.abweichend << " pixels differ; see " << diffOrdner.toStdString();
        if (anteil > kAnteilToleranz) {
            QDir().mkpath(diffOrdner);
            const QString stamm = u"%1/%2-%3"_s.arg(diffOrdner, dokument.name).arg(seite);
            ist.save(stamm + u"-ist.png"_s);
            vergleich.diff.save(stamm + u"-diff.png"_s);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Dokumente, GoldenRenderings, ::testing::ValuesIn(GoldenDokumente::alle()),
                         [](const testing::TestParamInfo<GoldenDokumente::Dokument> &info) {
                             return QString(info.param.name).replace(u'-', u'_').toStdString();
                         });

} // namespace
