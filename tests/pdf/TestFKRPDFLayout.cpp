// The blocks every layout shares, read back from finished files: totals, sentences and dates,
// the document's language, the document information, a document that cannot be drawn.
#include "FKRAbsender.h"
#include "FKRDokumentZuGross.h"
#include "FKRFehlenderWert.h"
#include "FKRLocalizationHelper.h"
#include "FKRPDFHerausgeber.h"
#include "FKRPosten.h"
#include "GoldenDokumente.h"
#include "Testbilder.h"
#include "WriterTestSupport.h"

#include <QRegularExpression>
#include <QTimeZone>

using namespace Qt::Literals::StringLiterals;

namespace {

Decimal d(const char *text) { return *Decimal::parse(text); }

QDateTime datum(int monat, int tag) { return QDateTime(QDate(2026, monat, tag), QTime(10, 0), QTimeZone::systemTimeZone()); }

class LayoutTest : public ::testing::Test
{
protected:
    // The user's own table, for labels of documents without a language.
    static void SetUpTestSuite() { FKRLocalizationHelper::installiereHauptTabelle(); }

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
    PdfPruefung rendere(FKRRechnung &r) { return writertest::rendere(r, m_ordner.filePath(u"%1.pdf"_s.arg(++m_nummer))); }

    ManagedObjectContext m_context;
    QTemporaryDir m_ordner;
    int m_nummer = 0;
};

TEST_F(LayoutTest, TotalsSentencesAndDatesFollowTheDocumentTypeAndWhatIsKnown)
{
    // German documents with an item of 2 × 500,00; totals rows are listed from the top.
    const struct
    {
        const char *fall;
        int art;
        const char *mwSt, *rabatt, *zuschlag;
        std::optional<bool> brutto;
        std::function<void(FKRRechnung &)> aendere;
        QStringList steht, fehlt;
    } faelle[] = {
        {"discount and VAT, gross", 3, "0.19", "0.1", "0", true, {},
         {u"Zwischensumme € 1.000,00 Rabatt 10,00% € 100,00 Zwischensumme € 900,00 Umsatzsteuer 19,00% € 171,00 "
          "Gesamtsumme € 1.071,00"_s}, {u"Zuschlag"_s}},
        {"VAT, gross", 3, "0.19", "0", "0", true, {},
         {u"Zwischensumme € 1.000,00 Umsatzsteuer 19,00% € 190,00 Gesamtsumme € 1.190,00"_s}, {u"Rabatt"_s}},
        // A net document prints no VAT, and no subtotal that would only repeat the total.
        {"VAT, net", 3, "0.19", "0", "0", false, {}, {u"Gesamtsumme € 1.000,00"_s}, {u"Zwischensumme"_s, u"Umsatzsteuer"_s}},
        {"VAT, neither gross nor net", 3, "0.19", "0", "0", {}, {}, {u"Gesamtsumme"_s}, {u"Umsatzsteuer"_s}},
        {"no VAT", 3, "0", "0", "0", true, {}, {u"Gesamtsumme € 1.000,00"_s}, {u"Zwischensumme"_s, u"Umsatzsteuer"_s}},
        {"surcharge, net", 3, "0.19", "0", "0.05", false, {},
         {u"Zwischensumme € 1.000,00 Zuschlag 5,00% € 50,00 Zwischensumme € 1.050,00 Gesamtsumme € 1.050,00"_s},
         {u"Umsatzsteuer"_s}},
        // Sorted by number; the row's 3 × 0.125 = 0.375 printed half to even: 0,38.
        {"invoice", 3, "0", "0", "0", true, [&](FKRRechnung &r) { posten(r, 0, "3", "0.125", u"Zweitens"_s); },
         {u"Zweitens 3,00 € 0,12 € 0,38 Entwurf"_s, u"Rechnungsdatum"_s, u"Leistungsdatum"_s}, {}},
        {"quote", 2, "0", "0", "0", true, {}, {u"Dieses Angebot bleibt gültig bis 30.11.2026."_s, u"Gültig bis"_s}, {}},
        {"dunning letter", 5, "0", "0", "0", true, {},
         {u"(€ 1.000,00) ist fällig am 30.11.2026 (Zahlungseingang)."_s, u"Fällig am"_s},
         {u"Rechnungsdatum"_s, u"Leistungsdatum"_s}},
        // No items: no table and no totals.
        {"cover letter", 1, "0", "0", "0", true, [](FKRRechnung &r) { r.removePostenObject(r.posten().first()); }, {},
         {u"fällig"_s, u"gültig"_s, u"Gesamtsumme"_s, u"Beschreibung"_s}},
        // No label without its date, no sentence about an unknown day.
        {"invoice without dates", 3, "0", "0", "0", true,
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
        FKRRechnung &r = rechnung(fall.art);
        r.setSprache(1);
        r.setMwStSatz(d(fall.mwSt));
        r.setRabatt(d(fall.rabatt));
        r.setZuschlag(d(fall.zuschlag));
        r.setBrutto(fall.brutto);
        posten(r, 1, "2", "500", u"Entwurf"_s);
        if (fall.aendere)
            fall.aendere(r);
        const QString text = rendere(r).fliesstext();
        for (const QString &teil : fall.steht)
            EXPECT_TRUE(text.contains(teil)) << teil.toStdString() << "\n" << text.toStdString();
        for (const QString &teil : fall.fehlt)
            EXPECT_FALSE(text.contains(teil)) << teil.toStdString() << "\n" << text.toStdString();
    }
}

// Every fixed text the layouts print, for the check that an English document shows none in German.
constexpr const char *kFesteTexte[] = {
    "Beschreibung", "Anzahl", "Betrag", "Summe", "Zwischensumme", "Rabatt", "Zuschlag", "Umsatzsteuer ",
    "Rechnungssumme", "Dieses Angebot bleibt gültig bis ", "Der Rechnungsbetrag ", "Der Honorarnoten-Betrag ",
    "Der Mahnungsbetrag ", " ist fällig am ", " (Zahlungseingang).", "HTML_TOKEN_SKONTO_SATZ", "Datum",
    "Angebots-Datum", "Rechnungs-Datum", "Honorarnoten-Datum", "Leistungs-Datum", "Mahnungs-Datum", "Gültig bis",
    "Fällig am", "PDF_EXPORT_SEITENNUMMER", "Ums.St.-ID", "Steuernr", "Bankverbindung", "Institut",
};

TEST_F(LayoutTest, WordsAndNumbersFollowTheDocumentsLanguage)
{
    // Item 1.5 × 1,000.00 and 29 free ones (for a second page), discount 10 %, surcharge 5 %,
    // VAT 19 %, gross, 2 % cash discount within 10 days; from a sender with every detail.
    const struct
    {
        std::optional<int> sprache;
        const char *benutzer; // the user's locale
        int art, layout;
        QStringList texte;
    } faelle[] = {
        {2, "de_DE", 3, 2,
         {u"Invoice date Nov 16, 2026"_s, u"Date of service Oct 2026"_s, u"Due on Nov 30, 2026"_s,
          u"Description Qty Unit price Amount"_s, u"1.50 €1,000.00 €1,500.00"_s, u"Subtotal"_s,
          u"Discount 10.00% €150.00"_s, u"Surcharge 5.00% €75.00"_s, u"€1,425.00"_s, u"VAT 19.00% €270.75"_s,
          u"Total"_s, u"The invoice amount (€1,695.75) is due on Nov 30, 2026 (payment to be received by this date)."_s,
          u"If paid by Nov 26, 2026, a cash discount of 2.00% (€33.92) may be deducted; the amount payable is then "
          "€1,661.83."_s,
          u"Page 1"_s, u"Page 2"_s, u"VAT ID: DE123456789"_s, u"Tax number: 231/456/78901"_s, u"Bank details"_s}},
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
        const QString text = rendere(r).fliesstext();
        for (const QString &erwartet : fall.texte)
            EXPECT_TRUE(text.contains(erwartet)) << erwartet.toStdString() << "\n" << text.toStdString();
        for (const char *schluessel : kFesteTexte) {
            const QString deutsch = FKRLocalizationHelper::lokalisierterText(QString::fromUtf8(schluessel), 1);
            if (fall.sprache != 2 || deutsch == FKRLocalizationHelper::lokalisierterText(QString::fromUtf8(schluessel), 2))
                continue; // the same word in both languages ("IBAN")
            for (const QString &teil : deutsch.split(QRegularExpression(u"%\\d"_s)))
                EXPECT_TRUE(teil.simplified().size() <= 3 || !text.contains(teil.simplified())) << teil.toStdString();
        }
    }
    QLocale::setDefault(benutzerVorher);
}

TEST_F(LayoutTest, ReadersListTheFileUnderItsNumberAndSender)
{
    // Without a number or a sender's name the program's title and its publisher stand in.
    for (const auto &[nummer, firma, titel, autor] :
         {std::tuple(u" Rechnung Ü-7 "_s, u"Ätelierwerk"_s, u"Rechnung Ü-7"_s, u"Ätelierwerk - Mira Sommer"_s),
          std::tuple(u" "_s, QString(), QString::fromUtf8(FKRPDFHerausgeber::kTitel),
                     QString::fromUtf8(FKRPDFHerausgeber::kWebAdresse))}) {
        FKRRechnung &r = rechnung();
        r.setRechnungsNummer(nummer);
        r.setAbsender(m_context.insertNewObject<FKRAbsender>());
        r.absender()->setFirma(firma);
        r.absender()->setName(firma.isEmpty() ? u"  "_s : u"Mira Sommer"_s);
        const QMap<QString, QString> info = rendere(r).info();
        EXPECT_EQ(info.value(u"Title"_s), titel);
        EXPECT_EQ(info.value(u"Author"_s), autor);
        EXPECT_EQ(info.value(u"Creator"_s), QString::fromUtf8(FKRPDFHerausgeber::kFirma));
    }
}

TEST_F(LayoutTest, ADocumentThatCannotBeDrawnLeavesTheOldFileInPlace)
{
    const QString pfad = m_ordner.filePath(u"bestehend.pdf"_s);
    QFile alt(pfad);
    ASSERT_TRUE(alt.open(QIODevice::WriteOnly) && alt.write("old content") > 0);
    alt.close();
    using Art = FKRDokumentZuGross::Art;
    const struct
    {
        std::function<void(FKRRechnung &)> aendere;
        std::optional<Art> art; // none: a value is missing
    } faelle[] = {
        {[](FKRRechnung &r) { r.posten().first()->setEinzelbetrag(std::nullopt); }, std::nullopt},
        {[](FKRRechnung &r) { r.setRechnungsText(QString(FKRDokumentZuGross::kMaxZeichen + 1, u'x')); }, Art::Text},
        {[&](FKRRechnung &r) {
             r.setAbsender(m_context.insertNewObject<FKRAbsender>());
             r.absender()->setUnterschriftImageBinary(testbilder::jpegMitKopf({40000, 40000}));
         },
         Art::Bild},
    };
    for (const auto &fall : faelle) {
        FKRRechnung &r = rechnung();
        posten(r, 1, "1", "10", u"Beratung"_s);
        fall.aendere(r);
        try {
            FKRPDFLayout::fuerRechnung(r).erstellePDFDateiImPfad(pfad, r);
            ADD_FAILURE() << "written";
        } catch (const FKRDokumentZuGross &fehler) {
            EXPECT_EQ(std::optional(fehler.art()), fall.art) << fehler.what();
        } catch (const FKRFehlenderWert &) {
            EXPECT_FALSE(fall.art);
        }
        ASSERT_TRUE(alt.open(QIODevice::ReadOnly));
        EXPECT_EQ(alt.readAll(), QByteArray("old content"));
        alt.close();
    }
    // The shared layout is ready for the next document.
    EXPECT_EQ(rendere(rechnung()).seitenAnzahl(), 1);
}

} // namespace
