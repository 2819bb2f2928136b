// The three page layouts as a reader of their files sees them (the sidebar column, the header
// and the footer bar), beyond what the reference renderings show: what is left out for a sender
// with a letterhead or few details, the logo fitted into the space left free, and the pages of
// long documents.
#include "FKRAbsender.h"
#include "FKREmpfaenger.h"
#include "FKRPosten.h"
#include "GoldenDokumente.h"
#include "WriterTestSupport.h"

#include <QFile>
#include <QUrl>

using namespace Qt::Literals::StringLiterals;
using writertest::png;

namespace {

constexpr double kDpi = 144.0;

class PDFLayouts : public ::testing::Test
{
protected:
    void TearDown() override { QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false); }

    // A German invoice to a customer from a sender with every detail, with a red logo.
    FKRRechnung *dokument(int layout, int anzahlPosten = 2)
    {
        auto *r = m_context.insertNewObject<FKRRechnung>();
        r->setDokumentArt(Decimal(3));
        r->setLayout(Decimal(layout));
        r->setSprache(1);
        r->setRechnungsDatum(QDateTime(QDate(2026, 3, 14), QTime(10, 0)));
        r->setRechnungsNummer(u"Rechnung: 2026-017"_s);
        r->setEmpfaenger(m_context.insertNewObject<FKREmpfaenger>());
        r->empfaenger()->setFirma(u"Kundenhaus"_s);
        for (int i = 1; i <= anzahlPosten; ++i) {
            auto *p = m_context.insertNewObject<FKRPosten>();
            p->setPostenNummer(i);
            p->setPostenBezeichnung(u"Posten%1"_s.arg(i, 2, 10, QLatin1Char('0')));
            p->setPostenBeschreibung(u"Erläuterung"_s);
            p->setAnzahl(Decimal(1));
            p->setEinzelbetrag(Decimal(10));
            r->addPostenObject(p);
        }
        r->setAbsender(GoldenDokumente::absender(m_context));
        r->absender()->setLogoImageBinary(png({120, 60}, Qt::red));
        return r;
    }
    PdfPruefung rendere(FKRRechnung *r) { return writertest::rendere(*r, m_ordner.filePath(u"%1.pdf"_s.arg(++m_nummer))); }

    QTemporaryDir m_ordner;
    ManagedObjectContext m_context;
    int m_nummer = 0;
};

TEST_F(PDFLayouts, OnlyWhatTheSenderHasIsPrintedAndALetterheadReplacesItAll)
{
    const QStringList absender = {u"Lindenallee"_s, u"DE123456789"_s, u"8605"_s, u"Rechnungsdatum"_s};
    const struct
    {
        const char *fall;
        int layout;
        std::function<void(FKRRechnung *, FKRAbsender *)> aendere;
        QStringList steht, fehlt;
        bool logo;
    } faelle[] = {
        {"sidebar, logo from a file", 1,
         [this](FKRRechnung *, FKRAbsender *a) {
             QFile datei(m_ordner.filePath(u"logo.png"_s));
             ASSERT_TRUE(datei.open(QIODevice::WriteOnly) && datei.write(png({120, 60}, Qt::red)) > 0);
             a->setLogoImageBinary(std::nullopt);
             a->setLogoImagePath(QUrl::fromLocalFile(datei.fileName()).toString());
         },
         absender, {}, true},
        // The header bar prints no logo.
        {"header bar", 2, {}, absender.mid(0, 3), {}, false},
        {"footer bar", 3, {}, absender.mid(0, 3), {}, true},
        // Paper that is not printed, or cannot even be read, counts all the same.
        {"sidebar, letterhead not printed", 1,
         [](FKRRechnung *, FKRAbsender *a) { a->setGeschaeftspapierImageBinary(png({10, 10}, Qt::white)); }, {},
         absender.mid(0, 3), false},
        {"header bar, unreadable letterhead", 2,
         [](FKRRechnung *, FKRAbsender *a) { a->setGeschaeftspapierImagePath(u"file:///nicht/vorhanden.png"_s); }, {},
         absender.mid(0, 3), false},
        {"footer bar, printed letterhead", 3,
         [](FKRRechnung *, FKRAbsender *a) {
             a->setGeschaeftspapierImageBinary(png({10, 10}, Qt::white));
             a->setGeschaeftspapierDrucken(true);
         },
         {}, absender.mid(0, 3), false},
        {"sidebar, a name and an IBAN", 1,
         [](FKRRechnung *r, FKRAbsender *) {
             r->setAbsender(r->managedObjectContext()->insertNewObject<FKRAbsender>());
             r->absender()->setName(u"Mira Sommer"_s);
             r->absender()->setBankVerbindungIban(u"DE02120300000000202051"_s);
         },
         {u"Mira Sommer"_s, u"IBAN: DE02120300000000202051"_s}, {u"Institut:"_s, u"BIC:"_s, u"Ums.St.-ID:"_s}, false},
        {"sidebar without a sender", 1, [](FKRRechnung *r, FKRAbsender *) { r->setAbsender(nullptr); },
         {u"Kundenhaus"_s, u"Rechnung: 2026-017"_s}, {u"Rechnungsdatum"_s}, false},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        FKRRechnung *r = dokument(fall.layout);
        if (fall.aendere)
            fall.aendere(r, r->absender());
        const PdfPruefung pdf = rendere(r);
        const QString text = pdf.fliesstext();
        for (const QString &teil : fall.steht)
            EXPECT_TRUE(text.contains(teil)) << teil.toStdString() << "\n" << text.toStdString();
        for (const QString &teil : fall.fehlt)
            EXPECT_FALSE(text.contains(teil)) << teil.toStdString();
        EXPECT_EQ(PdfPruefung::flaeche(pdf.bild(1, kDpi), kDpi, Qt::red, 40).isValid(), fall.logo);
    }
}

TEST_F(PDFLayouts, LongDocumentsAreNumberedBreakAtTheLayoutsLimitAndCarryTheLetterhead)
{
    // Rows stop 4 cm above the bottom edge, in the footer bar 0.5 cm above its bar (3 cm), and go
    // on at 5 cm without the column titles; the sidebar repeats nothing of its column.
    for (const int layout : {1, 2, 3}) {
        SCOPED_TRACE(testing::Message() << "layout " << layout);
        FKRRechnung *r = dokument(layout, 40);
        r->absender()->setGeschaeftspapierImageBinary(png({40, 40}, Qt::blue));
        r->absender()->setGeschaeftspapierDrucken(layout == 3);
        const PdfPruefung pdf = rendere(r);
        ASSERT_GE(pdf.seitenAnzahl(), 2);
        const double kcm = 841.89 / 29.7, grenze = 841.89 - (layout == 3 ? 3.5 : 4) * kcm;
        const double versatz = pdf.finde(1, u"Rechnung: 2026-017"_s).value_or(QRectF()).top() - 9.5 * kcm;
        double tiefste = 0, hoechste = 841.89;
        for (int seite = 1; seite <= pdf.seitenAnzahl(); ++seite) {
            for (const PdfPruefung::Wort &wort : pdf.woerter(seite))
                if (wort.text.startsWith(u"Posten"_s) && seite <= 2)
                    seite == 1 ? tiefste = std::max(tiefste, wort.box.bottom()) : hoechste = std::min(hoechste, wort.box.top());
            EXPECT_EQ(pdf.findeAlle(seite, u"Seite %1"_s.arg(seite)).size(), 1) << seite;
            const QImage bild = pdf.bild(seite, kDpi);
            EXPECT_EQ(PdfPruefung::flaeche(bild, kDpi, Qt::blue, 40).isValid(), layout == 3) << seite;
        }
        EXPECT_LT(tiefste, grenze);
        EXPECT_GT(tiefste, grenze - 1.5 * kcm);
        EXPECT_NEAR(hoechste - versatz, 5.1 * kcm, 0.5);
        EXPECT_FALSE(pdf.finde(2, u"Beschreibung"_s));
        EXPECT_EQ(pdf.text(2).contains(u"Lindenallee"_s), false) << "the letterhead replaces the sender";
    }
}

TEST_F(PDFLayouts, ALogoIsFittedIntoTheFreeSpaceAndCoversNoText)
{
    // The free space: from the left margin to half a centimetre before the column (sidebar) or
    // to the right margin (footer bar), from 1.5 cm to half a centimetre above the sender line
    // and the dates at 5 cm. Right-aligned at its top, in its own proportions, never enlarged,
    // and scaled down only as far as the space demands.
    const QSize logos[] = {{400, 120}, {100, 400}, {1000, 50}, {60, 30}};
    for (const bool letter : {false, true}) {
        QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(letter);
        const double cm = letter ? 792.0 / 27.9 : 841.89 / 29.7, breite = letter ? 612.0 : 595.276;
        for (const auto &[layout, raum] : {std::pair(1, QRectF(QPointF(2.5 * cm, 1.5 * cm), QPointF(14.5 * cm, 4.5 * cm))),
                                            std::pair(3, QRectF(QPointF(2.5 * cm, 1.5 * cm), QPointF(breite - 2.5 * cm, 4.5 * cm)))}) {
            FKRRechnung *r = dokument(layout);
            r->absender()->setStrasse(u"Lindenallee 12, Hinterhaus, Aufgang C, dritter Stock links"_s);
            r->absender()->setLogoImageBinary(std::nullopt);
            const QList<PdfPruefung::Wort> ohne = rendere(r).woerter(1);
            if (layout == 3 && !letter) {
                // A stored layout of 4 is the footer bar, word for word.
                r->setLayout(Decimal(4));
                const QList<PdfPruefung::Wort> vier = rendere(r).woerter(1);
                ASSERT_EQ(vier.size(), ohne.size());
                for (qsizetype i = 0; i < vier.size(); ++i)
                    EXPECT_EQ(vier[i].box, ohne[i].box) << vier[i].text.toStdString();
            }
            for (const QSize &logo : logos) {
                SCOPED_TRACE(testing::Message() << "layout " << layout << (letter ? ", Letter, " : ", A4, ") << logo.width() << "x" << logo.height());
                r->absender()->setLogoImageBinary(png(logo, Qt::red));
                const PdfPruefung pdf = rendere(r);
                ASSERT_EQ(pdf.woerter(1).size(), ohne.size());
                for (qsizetype i = 0; i < ohne.size(); ++i)
                    EXPECT_EQ(pdf.woerter(1)[i].box, ohne[i].box) << ohne[i].text.toStdString();
                const QRectF box = PdfPruefung::flaeche(pdf.bild(1, kDpi), kDpi, Qt::red, 40);
                EXPECT_GE(box.left(), raum.left() - 1);
                EXPECT_NEAR(box.right(), raum.right(), 1);
                EXPECT_NEAR(box.top(), raum.top(), 1);
                EXPECT_LE(box.bottom(), raum.bottom() + 1);
                const double massstab = std::max(box.width() / logo.width(), box.height() / logo.height());
                EXPECT_NEAR(box.width() * logo.height(), box.height() * logo.width(), 1.5 * std::max(logo.width(), logo.height()));
                EXPECT_LE(massstab, 1.0 + 1.0 / logo.width());
                if (massstab < 0.99)
                    EXPECT_TRUE(std::abs(box.left() - raum.left()) < 1 || std::abs(box.bottom() - raum.bottom()) < 1);
            }
        }
    }
}

} // namespace
