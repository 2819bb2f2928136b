// The page layouts read back from finished files, for what the reference renderings cannot see.
#include "FKRAbsender.h"
#include "FKRDokumentZuGross.h"
#include "FKREmpfaenger.h"
#include "FKRBildLeser.h"
#include "FKRLocalizationHelper.h"
#include "FKRPDFHerausgeber.h"
#include "FKRPosten.h"
#include "GoldenDokumente.h"
#include "WriterTestSupport.h"

#include <QUrl>

using namespace Qt::Literals::StringLiterals;
using writertest::png;

namespace {

Decimal d(const char *text) { return *Decimal::parse(text); }

QDateTime datum(int monat, int tag) { return QDateTime(QDate(2026, monat, tag), QTime(10, 0)); }

void pruefeText(const QString &text, const QStringList &steht, const QStringList &fehlt = {})
{
    for (const QString &teil : steht)
        EXPECT_TRUE(text.contains(teil)) << teil.toStdString() << "\n" << text.toStdString();
    for (const QString &teil : fehlt)
        EXPECT_FALSE(text.contains(teil)) << teil.toStdString();
}

class LayoutTest : public ::testing::Test
{
protected:
    // The user's own table, for labels of documents without a language.
    static void SetUpTestSuite() { FKRLocalizationHelper::installiereHauptTabelle(); }
    void TearDown() override { QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(false); }

    // A document in the header-bar layout, dated 16 November 2026 for October, due 30 November.
    FKRRechnung &rechnung(int art = 3)
    {
        FKRRechnung *r = m_context.insertNewObject<FKRRechnung>();
        r->setLayout(d("2"));
        r->setDokumentArt(Decimal(art));
        r->setRechnungsDatum(datum(11, 16));
        r->setFaelligkeitsDatum(datum(11, 30));
        r->setLieferDatum(datum(10, 31));
        r->setRechnungsNummer(u"Rechnung: 2026-042"_s);
        r->setMwStSatz(Decimal());
        return *r;
    }
    void posten(FKRRechnung &r, qint64 nummer, const char *anzahl, const char *preis, const QString &name)
    {
        FKRPosten *p = m_context.insertNewObject<FKRPosten>();
        p->setPostenNummer(nummer);
        p->setAnzahl(d(anzahl));
        p->setEinzelbetrag(d(preis));
        p->setPostenBezeichnung(name);
        r.addPostenObject(p);
    }
    // A German invoice to "Kundenhaus" from a sender with every detail and a red logo.
    FKRRechnung *dokument(int layout, int anzahlPosten = 2)
    {
        FKRRechnung &r = rechnung();
        r.setLayout(Decimal(layout));
        r.setSprache(1);
        r.setEmpfaenger(m_context.insertNewObject<FKREmpfaenger>());
        r.empfaenger()->setFirma(u"Kundenhaus"_s);
        for (int i = 1; i <= anzahlPosten; ++i)
            posten(r, i, "1", "10", u"Posten%1"_s.arg(i, 2, 10, QLatin1Char('0')));
        r.setAbsender(GoldenDokumente::absender(m_context));
        r.absender()->setLogoImageBinary(writertest::png({120, 60}, Qt::red));
        return &r;
    }
    PdfPruefung rendere(FKRRechnung *r) { return writertest::rendere(*r, m_ordner.filePath(QString::number(++m_nr))); }

    ManagedObjectContext m_context;
    QTemporaryDir m_ordner;
    int m_nr = 0;
};

TEST_F(LayoutTest, TotalsSentencesAndDatesFollowTheDocumentTypeAndWhatIsKnown)
{
    // German documents with an item of 2 × 500,00; totals rows are listed from the top.
    const struct
    {
        const char *fall;
        const char *mwSt, *rabatt, *zuschlag;
        std::optional<bool> brutto;
        std::function<void(FKRRechnung &)> aendere;
        QStringList steht, fehlt;
    } faelle[] = {
        {"discount and VAT, gross", "0.19", "0.1", "0", true, {},
         {u"Zwischensumme € 1.000,00 Rabatt 10,00% € 100,00 Zwischensumme € 900,00 Umsatzsteuer 19,00% € 171,00 "
          "Gesamtsumme € 1.071,00"_s}, {u"Zuschlag"_s}},
        // No subtotal that would only repeat the total.
        {"no VAT", "0", "0", "0", true, {}, {u"Gesamtsumme € 1.000,00"_s}, {u"Zwischensumme"_s, u"Umsatzsteuer"_s}},
        {"surcharge, net", "0.19", "0", "0.05", false, {},
         {u"Zwischensumme € 1.000,00 Zuschlag 5,00% € 50,00 Zwischensumme € 1.050,00 Gesamtsumme € 1.050,00"_s},
         {u"Umsatzsteuer"_s, u"Rabatt"_s}},
        // Sorted by number; the row's 3 × 0.125 = 0.375 printed half to even: 0,38.
        {"invoice", "0", "0", "0", true, [&](FKRRechnung &r) { posten(r, 0, "3", "0.125", u"Zweitens"_s); },
         {u"Zweitens 3,00 € 0,12 € 0,38 Entwurf"_s, u"Rechnungsdatum"_s}, {}},
        // No label without its date, no sentence about an unknown day.
        {"invoice without dates", "0", "0", "0", true,
         [](FKRRechnung &r) {
             r.setFaelligkeitsDatum(std::nullopt);
             r.setLieferDatum(std::nullopt);
             r.setRechnungsDatum(std::nullopt);
             r.setSkonto(d("0.02"));
             r.setSkontoZeitraum(10);
         },
         {u"Gesamtsumme"_s}, {u"Fällig am"_s, u"Leistungsdatum"_s, u"Rechnungsdatum"_s, u"ist fällig"_s, u"Skonto"_s}},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        FKRRechnung &r = rechnung();
        r.setSprache(1);
        r.setMwStSatz(d(fall.mwSt));
        r.setRabatt(d(fall.rabatt));
        r.setZuschlag(d(fall.zuschlag));
        r.setBrutto(fall.brutto);
        posten(r, 1, "2", "500", u"Entwurf"_s);
        if (fall.aendere)
            fall.aendere(r);
        pruefeText(rendere(&r).fliesstext(), fall.steht, fall.fehlt);
    }
}

TEST_F(LayoutTest, WordsAndNumbersFollowTheDocumentsLanguage)
{
    // 1.5 × 1,000.00 and 29 free items, discount 10 %, surcharge 5 %, VAT 19 % gross, 2 % within 10 days.
    const struct
    {
        std::optional<int> sprache;
        const char *benutzer; // the user's locale
        int art, layout;
        QStringList texte;
    } faelle[] = {
        {2, "de_DE", 3, 2,
         {u"Invoice date Nov 16, 2026"_s, u"Date of service Oct 2026"_s, u"1.50 €1,000.00 €1,500.00"_s,
          u"Discount 10.00% €150.00"_s, u"Surcharge 5.00% €75.00"_s, u"€1,425.00"_s, u"VAT 19.00% €270.75"_s,
          u"The invoice amount (€1,695.75) is due on Nov 30, 2026 (payment to be received by this date)."_s,
          u"If paid by Nov 26, 2026, a cash discount of 2.00% (€33.92) may be deducted; the amount payable is then "
          "€1,661.83."_s, u"Page 2"_s}},
        {2, "de_DE", 4, 3, {u"Fee note date Nov 16, 2026"_s, u"The fee amount (€1,695.75) is due on"_s, u"Page 2"_s}},
        {2, "de_DE", 5, 1, {u"Reminder date Nov 16, 2026"_s, u"The outstanding amount (€1,695.75)"_s}},
        // A German document keeps its German numbers whatever the user's locale.
        {1, "en_US", 3, 2,
         {u"Rechnungsdatum 16.11.2026"_s, u"1,50 € 1.000,00 € 1.500,00"_s, u"Rabatt 10,00%"_s, u"Zuschlag 5,00%"_s,
          u"Umsatzsteuer 19,00%"_s, u"€ 1.695,75"_s, u"(€ 33,92)"_s, u"2,00%"_s, u"Seite 2"_s}},
        // Without a language, numbers are the user's, the currency in front as in German.
        {std::nullopt, "en_US", 3, 2, {u"1.50 € 1,000.00 € 1,500.00"_s, u"10.00%"_s, u"€ 1,695.75"_s}},
    };
    const QLocale benutzerVorher;
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.texte.first().toStdString());
        QLocale::setDefault(QLocale(QString::fromLatin1(fall.benutzer)));
        FKRRechnung &r = rechnung(fall.art);
        r.setLayout(Decimal(fall.layout));
        r.setSprache(fall.sprache);
        r.setAbsender(GoldenDokumente::absender(m_context));
        r.setRabatt(d("0.1"));
        r.setZuschlag(d("0.05"));
        r.setMwStSatz(d("0.19"));
        r.setBrutto(true);
        r.setSkonto(d("0.02"));
        r.setSkontoZeitraum(10);
        posten(r, 1, "1.5", "1000", u"Design"_s);
        for (int i = 2; i <= 30; ++i)
            posten(r, i, "1", "0", u"Posten-%1"_s.arg(i));
        const PdfPruefung pdf = rendere(&r);
        // Readers list the file under its number and its sender.
        EXPECT_EQ(pdf.info().value(u"Title"_s) + u" / "_s + pdf.info().value(u"Author"_s),
                  u"Rechnung: 2026-042 / Brandt & Söhne Webdesign - Johanna Brandt"_s);
        pruefeText(pdf.fliesstext(), fall.texte);
    }
    QLocale::setDefault(benutzerVorher);
}

// Texts beyond the bounds, pictures beyond them and missing values are refused at every road a
// document is drawn by (the view, velmora-cli render); here a picture file that is too large.
TEST_F(LayoutTest, ADocumentThatCannotBeDrawnLeavesTheOldFileInPlace)
{
    const QString pfad = m_ordner.filePath(u"bestehend.pdf"_s);
    QFile alt(pfad);
    ASSERT_TRUE(alt.open(QIODevice::WriteOnly) && alt.write("old content") > 0);
    alt.close();
    QFile gross(m_ordner.filePath(u"gross.png"_s));
    ASSERT_TRUE(gross.open(QIODevice::WriteOnly) && gross.resize(FKRBildLeser::kMaxBytes + 1));
    FKRRechnung &r = rechnung();
    posten(r, 1, "1", "10", u"Beratung"_s);
    r.setAbsender(m_context.insertNewObject<FKRAbsender>());
    r.absender()->setUnterschriftImagePath(QUrl::fromLocalFile(gross.fileName()).toString());
    try {
        FKRPDFLayout::fuerRechnung(r).erstellePDFDateiImPfad(pfad, r);
        ADD_FAILURE() << "written";
    } catch (const FKRDokumentZuGross &fehler) {
        EXPECT_EQ(fehler.art(), FKRDokumentZuGross::Art::Bild) << fehler.what();
    }
    ASSERT_TRUE(alt.open(QIODevice::ReadOnly));
    EXPECT_EQ(alt.readAll(), QByteArray("old content"));

    // The shared layout is ready for the next document; without a number or a sender's name the
    // program's title and its publisher stand in.
    FKRRechnung &leer = rechnung();
    leer.setRechnungsNummer(u" "_s);
    leer.setAbsender(m_context.insertNewObject<FKRAbsender>());
    leer.absender()->setName(u"  "_s);
    const QMap<QString, QString> info = rendere(&leer).info();
    EXPECT_EQ(info.value(u"Title"_s), QString::fromUtf8(FKRPDFHerausgeber::kTitel));
    EXPECT_EQ(info.value(u"Author"_s), QString::fromUtf8(FKRPDFHerausgeber::kWebAdresse));
    EXPECT_EQ(info.value(u"Creator"_s), QString::fromUtf8(FKRPDFHerausgeber::kFirma));
}

TEST_F(LayoutTest, OnlyWhatTheSenderHasIsPrintedAndALetterheadReplacesItAll)
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
        // Every detail in each layout, the header bar without its logo: the reference renderings.
        // A letterhead replaces sender and logo even if it cannot be read.
        {"header bar, unreadable letterhead", 2,
         [](FKRRechnung *, FKRAbsender *a) { a->setGeschaeftspapierImagePath(u"file:///nicht/vorhanden.png"_s); }, {},
         absender.mid(0, 3), false},
        {"sidebar, a name and an IBAN", 1,
         [this](FKRRechnung *r, FKRAbsender *) {
             r->setAbsender(m_context.insertNewObject<FKRAbsender>());
             r->absender()->setName(u"Mira Sommer"_s);
             r->absender()->setBankVerbindungIban(u"DE02120300000000202051"_s);
         },
         {u"Mira Sommer"_s, u"IBAN: DE02120300000000202051"_s}, {u"Institut:"_s, u"BIC:"_s, u"Ums.St.-ID:"_s}, false},
        {"sidebar without a sender", 1, [](FKRRechnung *r, FKRAbsender *) { r->setAbsender(nullptr); },
         {u"Kundenhaus"_s, u"Rechnung: 2026-042"_s}, {u"Rechnungsdatum"_s}, false},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        FKRRechnung *r = dokument(fall.layout);
        if (fall.aendere)
            fall.aendere(r, r->absender());
        const PdfPruefung pdf = rendere(r);
        pruefeText(pdf.fliesstext(), fall.steht, fall.fehlt);
        EXPECT_EQ(PdfPruefung::flaeche(pdf.bild(1, 36), 36, Qt::red, 40).isValid(), fall.logo);
    }
}

TEST_F(LayoutTest, ALogoIsFittedIntoTheFreeSpaceAndCoversNoText)
{
    // From the left margin to 0.5 cm before the column or to the right margin, from 1.5 cm to 4.5 cm;
    // right-aligned at its top. Proportions and enlarging are the page writer's, tested with it.
    const QSize logos[] = {{400, 120}, {1000, 50}, {60, 30}}; // too tall, too wide, small
    for (const bool letter : {false, true}) {
        QBBenutzerEinstellungen::sharedInstance()->setPdfDocumentSizeIsLetter(letter);
        const double cm = letter ? 792.0 / 27.9 : 841.89 / 29.7, breite = letter ? 612.0 : 595.276;
        const QPointF oben(2.5 * cm, 1.5 * cm);
        for (const auto &[layout, raum] : {std::pair(1, QRectF(oben, QPointF(14.5 * cm, 4.5 * cm))),
                                            std::pair(3, QRectF(oben, QPointF(breite - 2.5 * cm, 4.5 * cm)))}) {
            FKRRechnung *r = dokument(layout);
            r->absender()->setStrasse(u"Lindenallee 12, Hinterhaus, Aufgang C, dritter Stock links"_s);
            r->absender()->setLogoImageBinary(std::nullopt);
            const QList<PdfPruefung::Wort> ohne = rendere(r).woerter(1);
            if (layout == 3 && !letter) {
                r->setLayout(Decimal(4));
                EXPECT_EQ(rendere(r).woerter(1), ohne) << "a stored layout of 4 is the footer bar";
            }
            for (const QSize &logo : logos) {
                SCOPED_TRACE(testing::Message() << "layout " << layout << (letter ? ", Letter, " : ", A4, ")
                                                << logo.width() << "x" << logo.height());
                r->absender()->setLogoImageBinary(png(logo, Qt::red));
                const PdfPruefung pdf = rendere(r);
                EXPECT_EQ(pdf.woerter(1), ohne) << "every word stands where it stands without a logo";
                const QRectF box = PdfPruefung::flaeche(pdf.bild(1, 144), 144, Qt::red, 40);
                EXPECT_GE(box.left(), raum.left() - 1);
                EXPECT_NEAR(box.right(), raum.right(), 1);
                EXPECT_NEAR(box.top(), raum.top(), 1);
                EXPECT_LE(box.bottom(), raum.bottom() + 1);
                // Shrunk only as far as needed: it reaches the space's left or bottom edge unless whole.
                EXPECT_TRUE(std::abs(box.width() - logo.width()) < 1 || std::abs(box.left() - raum.left()) < 1
                            || std::abs(box.bottom() - raum.bottom()) < 1);
            }
        }
    }
}

} // namespace
