// Whole documents against the reference images in tests/data/golden: a page passes when few pixels
// differ by more than a shade (font rasterisation varies). scripts/update-goldens renders them anew;
// a failing page leaves its rendering and its differences in red in golden-diff/ of the build folder.
#include "FKRPDFLayout.h"
#include "FKRUhr.h"
#include "GoldenDokumente.h"
#include "WriterTestSupport.h"

#include <QDir>
#include <QFile>
#include <QTimeZone>

using namespace Qt::Literals::StringLiterals;

void PrintTo(const GoldenDokumente::Dokument &dokument, std::ostream *out) { *out << dokument.name.toStdString(); }

namespace {

constexpr double kDpi = 60.0;
// Grey levels a pixel may be off, share of pixels that may be off.
constexpr int kToleranz = 24;
constexpr double kAnteilToleranz = 1e-5;

const QString kGoldenOrdner = QStringLiteral(VELMORA_TEST_DATA "/golden");

class GoldenRenderings : public ::testing::TestWithParam<GoldenDokumente::Dokument>
{
protected:
    static void SetUpTestSuite()
    {
        // Nothing depends on the day; the shared layouts keep the paper they were made with: A4.
        FKRUhr::halteAn(QDateTime(QDate(2024, 3, 20), QTime(9, 30), QTimeZone("Europe/Berlin")));
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
    const PdfPruefung pdf = writertest::rendere(*rechnung, m_ordner.filePath(dokument.name + u".pdf"_s));
    ASSERT_TRUE(pdf.gelesen()) << pdf.fehler().toStdString();
    EXPECT_EQ(pdf.seitenGroesse(1), dokument.letter ? QSizeF(612, 792) : QSizeF(595.276, 841.89));

    const auto referenz = [&](int seite) { return u"%1/%2-%3.png"_s.arg(kGoldenOrdner, dokument.name).arg(seite); };
    if (qEnvironmentVariableIntValue("VELMORA_UPDATE_GOLDENS") == 1) {
        QDir().mkpath(kGoldenOrdner);
        for (int seite = 1; seite <= pdf.seitenAnzahl(); ++seite) {
            const QImage grau = pdf.bild(seite, kDpi).convertToFormat(QImage::Format_Grayscale8);
            ASSERT_TRUE(grau.save(referenz(seite), "PNG", 9)) << referenz(seite).toStdString();
        }
        return;
    }

    EXPECT_FALSE(QFile::exists(referenz(pdf.seitenAnzahl() + 1))) << "the reference has more pages";
    const QString diffOrdner = QStringLiteral(VELMORA_BINARY_DIR "/golden-diff");
    for (int seite = 1; seite <= pdf.seitenAnzahl(); ++seite) {
        SCOPED_TRACE(testing::Message() << "page " << seite);
        const QImage soll = QImage(referenz(seite)).convertToFormat(QImage::Format_Grayscale8);
        ASSERT_FALSE(soll.isNull()) << "no reference " << referenz(seite).toStdString() << " (scripts/update-goldens)";
        const QImage ist = pdf.bild(seite, kDpi), grau = ist.convertToFormat(QImage::Format_Grayscale8);
        ASSERT_EQ(ist.size(), soll.size());
        QImage diff = soll.convertToFormat(QImage::Format_RGB32);
        qsizetype abweichend = 0;
        for (int y = 0; y < soll.height(); ++y)
            for (int x = 0; x < soll.width(); ++x)
                if (std::abs(int(soll.constScanLine(y)[x]) - int(grau.constScanLine(y)[x])) > kToleranz) {
                    ++abweichend;
                    diff.setPixel(x, y, qRgb(255, 0, 0));
                }
        const double anteil = double(abweichend) / (double(ist.width()) * ist.height());
        EXPECT_LE(anteil, kAnteilToleranz) << abweichend << " pixels differ; see " << diffOrdner.toStdString();
        if (anteil > kAnteilToleranz) {
            QDir().mkpath(diffOrdner);
            const QString stamm = u"%1/%2-%3"_s.arg(diffOrdner, dokument.name).arg(seite);
            ist.save(stamm + u"-ist.png"_s);
            diff.save(stamm + u"-diff.png"_s);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Dokumente, GoldenRenderings, ::testing::ValuesIn(GoldenDokumente::alle()),
                         [](const testing::TestParamInfo<GoldenDokumente::Dokument> &param) {
                             return QString(param.param.name).replace(u'-', u'_').toStdString();
                         });

} // namespace
