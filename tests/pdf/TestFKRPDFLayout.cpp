// The blocks every layout shares, read back from finished files: the item table and its totals,
// the due-date sentences, the dates block, the sender line, page breaks and numbers, words and
// numbers in the document's language, the document information. Documents use the header-bar
// layout, whose body has the full 16 cm width.
#include "FKRDokumentZuGross.h"
#include "FKRFehlenderWert.h"
#include "FKRLocalizationHelper.h"
#include "FKRPDFHerausgeber.h"
#include "FKRPosten.h"
#include "Testbilder.h"
#include "WriterTestSupport.h"

#include <QFile>
#include <QRegularExpression>
#include <QTimeZone>

#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kcm = 841.89 / 29.7;

Decimal d(const char *text)
{
    return *Decimal::parse(text);
}

QDateTime datum(int jahr, int monat, int tag)
{
    return QDateTime(QDate(jahr, monat, tag), QTime(10, 0), QTimeZone::systemTimeZone());
}

class LayoutTest : public ::testing::Test
{
protected:
    // The user's own table, for labels of documents without a language.
    static void SetUpTestSuite() { FKRLocalizationHelper::installiereHauptTabelle(); }

    FKRRechnung &rechnung(int art = 3)
    {
        FKRRechnung *r = m_context.insertNewObject<FKRRechnung>();
        r->setLayout(d("2"));
        r->setDokumentArt(Decimal(art));
        r->setRechnungsDatum(datum(2026, 11, 16));
        r->setFaelligkeitsDatum(datum(2026, 11, 30));
        r->setLieferDatum(datum(2026, 10, 31));
        r->setRechnungsNummer(u"Rechnung: 2026-042"_s);
        r->setMwStSatz(Decimal());
        return *r;
    }

    FKRPosten &posten(FKRRechnung &r, qint64 nummer, const char *anzahl, const char *preis, const QString &name)
    {
        FKRPosten *p = m_context.insertNewObject<FKRPosten>();
        p->setPostenNummer(nummer);
        p->setAnzahl(d(anzahl));
        p->setEinzelbetrag(d(preis));
        p->setPostenBezeichnung(name);
        r.addPostenObject(p);
        return *p;
    }

    FKRAbsender &absender(FKRRechnung &r) { return writertest::vollerAbsender(m_context, r); }
    PdfPruefung rendere(FKRRechnung &r)
    {
        return writertest::rendere(r, m_ordner.filePath(u"dokument-%1.pdf"_s.arg(++m_nummer)));
    }

    ManagedObjectContext m_context;
    QTemporaryDir m_ordner;
    int m_nummer = 0;
};

QRectF box(const PdfPruefung &pdf, int seite, const QString &phrase)
{
    const auto gefunden = pdf.finde(seite, phrase);
    EXPECT_TRUE(gefunden) << "missing on page " << seite << ": " << phrase.toStdString();
    return gefunden.value_or(QRectF());
}

double oben(const PdfPruefung &pdf, int seite, const QString &phrase)
{
    return box(pdf, seite, phrase).top();
}

// The tops of the lines on which `label` stands with `betrag` to its right.
QList<double> zeilen(const PdfPruefung &pdf, int seite, const QString &label, const QString &betrag)
{
    QList<double> ergebnis;
    for (const QRectF &l : pdf.findeAlle(seite, label))
        for (const QRectF &b : pdf.findeAlle(seite, betrag))
            if (std::abs(l.top() - b.top()) < 0.5 && l.right() < b.left())
                ergebnis.append(l.top());
    return ergebnis;
}

double zeile(const PdfPruefung &pdf, int seite, const QString &label, const QString &betrag)
{
    const QList<double> gefunden = zeilen(pdf, seite, label, betrag);
    EXPECT_EQ(gefunden.size(), 1) << label.toStdString() << " / " << betrag.toStdString();
    return gefunden.value(0, -1.0);
}

TEST_F(LayoutTest, TotalsRowsFollowDiscountSurchargeAndVat)
{
    // Items of 1.000,00 in a document of the user's language (German); each case lists the rows
    // under the table, from the top.
    using Zeilen = QList<std::pair<QString, QString>>;
    const struct
    {
        const char *fall;
        const char *rabatt, *zuschlag, *mwSt;
        std::optional<bool> brutto;
        Zeilen zeilen;
    } faelle[] = {
        {"discount and VAT, gross", "0.1", "0", "0.19", true,
         {{u"Zwischensumme"_s, u"€ 1.000,00"_s}, {u"Rabatt 10,00%"_s, u"€ 100,00"_s},
          {u"Zwischensumme"_s, u"€ 900,00"_s}, {u"Umsatzsteuer 19,00%"_s, u"€ 171,00"_s},
          {u"Gesamtsumme"_s, u"€ 1.071,00"_s}}},
        {"VAT, gross", "0", "0", "0.19", true,
         {{u"Zwischensumme"_s, u"€ 1.000,00"_s}, {u"Umsatzsteuer 19,00%"_s, u"€ 190,00"_s},
          {u"Gesamtsumme"_s, u"€ 1.190,00"_s}}},
        // A net document prints no VAT, and no subtotal that would only repeat the total.
        {"VAT, net", "0", "0", "0.19", false, {{u"Gesamtsumme"_s, u"€ 1.000,00"_s}}},
        {"VAT, neither gross nor net", "0", "0", "0.19", std::nullopt, {{u"Gesamtsumme"_s, u"€ 1.000,00"_s}}},
        {"surcharge and VAT, net", "0", "0.05", "0.19", false,
         {{u"Zwischensumme"_s, u"€ 1.000,00"_s}, {u"Zuschlag 5,00%"_s, u"€ 50,00"_s},
          {u"Zwischensumme"_s, u"€ 1.050,00"_s}, {u"Gesamtsumme"_s, u"€ 1.050,00"_s}}},
        {"nothing", "0", "0", "0", true, {{u"Gesamtsumme"_s, u"€ 1.000,00"_s}}},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        FKRRechnung &r = rechnung();
        r.setRabatt(d(fall.rabatt));
        r.setZuschlag(d(fall.zuschlag));
        r.setMwStSatz(d(fall.mwSt));
        r.setBrutto(fall.brutto);
        posten(r, 1, "2", "500", u"Beratung"_s);
        const PdfPruefung pdf = rendere(r);

        double vorige = 0;
        for (const auto &[label, betrag] : fall.zeilen) {
            const QList<double> gefunden = zeilen(pdf, 1, label, betrag);
            // "Zwischensumme" may stand twice with different amounts, never twice with one.
            ASSERT_EQ(gefunden.size(), 1) << label.toStdString() << " " << betrag.toStdString();
            EXPECT_GT(gefunden.first(), vorige) << label.toStdString();
            vorige = gefunden.first();
        }
        const QString text = pdf.text(1);
        for (const QString &label : {u"Zwischensumme"_s, u"Rabatt"_s, u"Zuschlag"_s, u"Umsatzsteuer"_s})
            EXPECT_EQ(text.count(label), std::count_if(fall.zeilen.begin(), fall.zeilen.end(), [&](const auto &zeile) {
                          return zeile.first.startsWith(label);
                      })) << label.toStdString();
    }
}

TEST_F(LayoutTest, ItemRowsAreSortedPricedUnroundedAndBreakWithoutRepeatingTheHeader)
{
    FKRRechnung &r = rechnung();
    posten(r, 3, "1", "1", u"Drittens"_s);
    posten(r, 1, "1", "1", u"Erstens"_s);
    // 3 × 0.125 = 0.375 printed half to even: 0,38, where three rounded unit prices make 0,39.
    posten(r, 2, "3", "0.125", u"Zweitens"_s);
    for (int i = 4; i <= 30; ++i)
        posten(r, i, "1", "10", u"Posten-%1"_s.arg(i));
    const PdfPruefung pdf = rendere(r);
    ASSERT_GE(pdf.seitenAnzahl(), 2);

    const double erstens = oben(pdf, 1, u"Erstens"_s), zweitens = oben(pdf, 1, u"Zweitens"_s);
    EXPECT_LT(erstens, zweitens);
    EXPECT_LT(zweitens, oben(pdf, 1, u"Drittens"_s));
    EXPECT_NEAR(zeile(pdf, 1, u"Zweitens"_s, u"3,00"_s), zweitens, 0.5);
    EXPECT_NEAR(zeile(pdf, 1, u"€ 0,12"_s, u"€ 0,38"_s), zweitens, 0.5);
    // The column titles on one line above the first row, "Summe" right-aligned 1 mm inside 18.5 cm.
    const double kopf = oben(pdf, 1, u"Beschreibung"_s);
    EXPECT_NEAR(oben(pdf, 1, u"Anzahl"_s), kopf, 0.01);
    EXPECT_NEAR(oben(pdf, 1, u"Einzelpreis"_s), kopf, 0.01);
    EXPECT_LT(kopf, erstens);
    EXPECT_NEAR(box(pdf, 1, u"Summe"_s).right(), 18.4 * kcm, 0.5);

    // The number at 2.5 cm and 9.5 cm; the dates block right-aligned at 18.5 cm from 5 cm down:
    // label, date, a gap of 0.4 cm, the service month.
    const QRectF nummer = box(pdf, 1, u"Rechnung: 2026-042"_s), datumLabel = box(pdf, 1, u"Rechnungsdatum"_s);
    const double versatz = nummer.top() - 9.5 * kcm;
    EXPECT_NEAR(nummer.left(), 2.5 * kcm, 0.5);
    EXPECT_NEAR(datumLabel.right(), 18.5 * kcm, 0.5);
    EXPECT_NEAR(datumLabel.top() - versatz, 5.0 * kcm, 0.5);
    const double datumZeile = oben(pdf, 1, u"16.11.2026"_s) - datumLabel.top();
    EXPECT_NEAR(oben(pdf, 1, u"Leistungsdatum"_s) - datumLabel.top(), 2 * datumZeile + 0.4 * kcm, 0.5);

    // No row crosses 4 cm above the bottom edge; page 2 goes on at 5 cm without the column
    // titles, numbered at 4 cm in the dates column; page 1 is numbered too.
    double tiefste = 0, hoechste = 841.89;
    for (int seite : {1, 2})
        for (const PdfPruefung::Wort &wort : pdf.woerter(seite))
            if (wort.text.startsWith(u"Posten-"_s))
                seite == 1 ? tiefste = std::max(tiefste, wort.box.bottom()) : hoechste = std::min(hoechste, wort.box.top());
    EXPECT_LT(tiefste, 841.89 - 4 * kcm);
    EXPECT_NEAR(hoechste - versatz, 5.1 * kcm, 0.5);
    EXPECT_FALSE(pdf.finde(2, u"Beschreibung"_s));
    const QRectF seite2 = box(pdf, 2, u"Seite 2"_s);
    EXPECT_NEAR(seite2.right(), 18.5 * kcm, 0.5);
    EXPECT_NEAR(seite2.top() - versatz, 4.0 * kcm, 0.5);
    EXPECT_TRUE(pdf.finde(1, u"Seite 1"_s));
}

TEST_F(LayoutTest, SentencesAndDatesDependOnTheDocumentTypeAndWhatIsKnown)
{
    const struct
    {
        const char *fall;
        int art;
        std::function<void(FKRRechnung &)> aendere;
        QStringList steht, fehlt;
    } faelle[] = {
        {"quote", 2, {}, {u"Dieses Angebot bleibt gültig bis 30.11.2026."_s, u"Gültig bis"_s}, {}},
        {"dunning letter", 5, {},
         {u"(€ 100,00) ist fällig am 30.11.2026 (Zahlungseingang)."_s, u"Fällig am"_s},
         {u"Rechnungsdatum"_s, u"Leistungsdatum"_s}},
        // No items: no table and no totals.
        {"cover letter", 1, [](FKRRechnung &r) { r.removePostenObject(r.posten().first()); }, {},
         {u"fällig"_s, u"gültig"_s, u"Gesamtsumme"_s, u"Beschreibung"_s}},
        // No label without its date, no sentence about an unknown day; labels in the user's language.
        {"invoice without dates or language", 3,
         [](FKRRechnung &r) {
             r.setFaelligkeitsDatum(std::nullopt);
             r.setLieferDatum(std::nullopt);
             r.setRechnungsDatum(std::nullopt);
             r.setSprache(std::nullopt);
             r.setSkonto(d("0.02"));
             r.setSkontoZeitraum(10);
         },
         {u"Gesamtsumme"_s}, {u"Fällig am"_s, u"Leistungsdatum"_s, u"Rechnungsdatum"_s, u"ist fällig"_s, u"Skonto"_s}},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        FKRRechnung &r = rechnung(fall.art);
        posten(r, 1, "1", "100", u"Entwurf"_s);
        if (fall.aendere)
            fall.aendere(r);
        const QString text = rendere(r).text(1);
        for (const QString &teil : fall.steht)
            EXPECT_TRUE(text.contains(teil)) << teil.toStdString() << "\n" << text.toStdString();
        for (const QString &teil : fall.fehlt)
            EXPECT_FALSE(text.contains(teil)) << teil.toStdString();
    }
}

// Every fixed text the layouts print, for the check that an English document shows none of
// them in German.
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
        const char *fall;
        std::optional<int> sprache;
        const char *benutzer; // the user's locale
        int art, layout;
        QStringList texte;
    } faelle[] = {
        {"English invoice, header bar", 2, "de_DE", 3, 2,
         {u"Invoice date Nov 16, 2026"_s, u"Date of service Oct 2026"_s, u"Due on Nov 30, 2026"_s,
          u"Description Qty Unit price Amount"_s, u"1.50 €1,000.00 €1,500.00"_s, u"Subtotal"_s, u"Discount 10.00%"_s,
          u"€150.00"_s, u"Surcharge 5.00%"_s, u"€75.00"_s, u"€1,425.00"_s, u"VAT 19.00%"_s, u"€270.75"_s,
          u"Total"_s, u"The invoice amount (€1,695.75) is due on Nov 30, 2026 (payment to be received by this date)."_s,
          u"If paid by Nov 26, 2026, a cash discount of 2.00% (€33.92) may be deducted; the amount payable is then "
          "€1,661.83."_s,
          u"Page 1"_s, u"Page 2"_s, u"VAT ID: DE123456789"_s, u"Tax number: 22/333/44444"_s, u"Bank details"_s,
          u"Bank: Hafenbank"_s, u"IBAN: DE02120300000000202051"_s, u"BIC: BYLADEM1001"_s}},
        {"English quote, sidebar", 2, "de_DE", 2, 1,
         {u"Quote date Nov 16, 2026"_s, u"Valid until Nov 30, 2026"_s, u"This quote is valid until Nov 30, 2026."_s,
          u"Page 1"_s, u"Bank details"_s, u"VAT ID: DE123456789"_s}},
        {"English fee note, footer bar", 2, "de_DE", 4, 3,
         {u"Fee note date Nov 16, 2026"_s, u"The fee amount (€1,695.75) is due on"_s, u"Page 2"_s}},
        {"English dunning letter, sidebar", 2, "de_DE", 5, 1,
         {u"Reminder date Nov 16, 2026"_s, u"The outstanding amount (€1,695.75)"_s}},
        {"English cover letter, footer bar", 2, "de_DE", 1, 3, {u"Date Nov 16, 2026"_s, u"Total €1,695.75"_s}},
        // A German document keeps its German numbers whatever the user's locale.
        {"German invoice of an English user", 1, "en_US", 3, 2,
         {u"Rechnungsdatum 16.11.2026"_s, u"1,50 € 1.000,00 € 1.500,00"_s, u"Rabatt 10,00%"_s, u"Zuschlag 5,00%"_s,
          u"Umsatzsteuer 19,00%"_s, u"€ 1.695,75"_s, u"(€ 33,92)"_s, u"2,00%"_s, u"Seite 2"_s}},
        // Without a language, numbers are the user's, the currency in front as in German.
        {"invoice without a language", std::nullopt, "en_US", 3, 2,
         {u"1.50 € 1,000.00 € 1,500.00"_s, u"10.00%"_s, u"€ 1,695.75"_s}},
    };
    const QLocale benutzerVorher;
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        QLocale::setDefault(QLocale(QString::fromLatin1(fall.benutzer)));
        FKRRechnung &r = rechnung(fall.art);
        r.setLayout(Decimal(fall.layout));
        r.setSprache(fall.sprache);
        absender(r);
        r.setRabatt(d("0.1"));
        r.setZuschlag(d("0.05"));
        r.setMwStSatz(d("0.19"));
        r.setBrutto(true);
        r.setSkonto(d("0.02"));
        r.setSkontoZeitraum(10);
        posten(r, 1, "1.5", "1000", u"Design"_s);
        for (int i = 2; i <= 30; ++i)
            posten(r, i, "1", "0", u"Posten-%1"_s.arg(i));
        const PdfPruefung pdf = rendere(r);
        const QString text = pdf.fliesstext();
        for (const QString &erwartet : fall.texte)
            EXPECT_TRUE(text.contains(erwartet)) << erwartet.toStdString() << "\n" << text.toStdString();
        if (fall.sprache != 2)
            continue;
        for (const char *schluessel : kFesteTexte) {
            const QString deutsch = FKRLocalizationHelper::lokalisierterText(QString::fromUtf8(schluessel), 1);
            if (deutsch == FKRLocalizationHelper::lokalisierterText(QString::fromUtf8(schluessel), 2))
                continue; // the same word in both languages ("IBAN")
            for (const QString &teil : deutsch.split(QRegularExpression(u"%\\d"_s)))
                EXPECT_TRUE(teil.simplified().size() <= 3 || !text.contains(teil.simplified())) << teil.toStdString();
        }
    }
    QLocale::setDefault(benutzerVorher);
}

TEST_F(LayoutTest, SenderLineAndLetterhead)
{
    FKRRechnung &r = rechnung();
    FKRAbsender *absender = m_context.insertNewObject<FKRAbsender>();
    absender->setStrasse(u"Hauptstr. 1"_s);
    absender->setOrt(u"Berlin"_s);
    r.setAbsender(absender);
    // Neither company nor name: the line starts with the separator before the street.
    EXPECT_TRUE(rendere(r).text(1).contains(u"- Hauptstr. 1 - Berlin"_s));

    // Postcode and town stay together wherever the line would end: the house number's length
    // moves the end of the first line across them, and at least one length must put them at the
    // start of the second line. The sender line is drawn from 5 cm in the 8 cm to the recipient.
    absender->setFirma(u"Atelierwerk"_s);
    absender->setPlz(u"BS1 4DJ"_s);
    absender->setOrt(u"Frankfurt am Main"_s);
    bool umbrochen = false;
    for (int laenge = 1; laenge <= 40; laenge += 3) {
        absender->setStrasse(u"Hafenweg "_s + QString(laenge, u'9'));
        const PdfPruefung pdf = rendere(r);
        QList<PdfPruefung::Wort> ortsZeile;
        for (const PdfPruefung::Wort &wort : pdf.woerter(1))
            if (wort.box.top() > 5 * kcm - 1 && wort.box.top() < 6 * kcm - 1 && wort.box.right() < 10.6 * kcm
                && QStringList({u"BS1"_s, u"4DJ"_s, u"Frankfurt"_s, u"am"_s, u"Main"_s}).contains(wort.text))
                ortsZeile.append(wort);
        ASSERT_EQ(ortsZeile.size(), 5) << laenge;
        for (const PdfPruefung::Wort &wort : ortsZeile)
            EXPECT_EQ(wort.box.top(), ortsZeile.first().box.top()) << laenge << " " << wort.text.toStdString();
        umbrochen = umbrochen || std::abs(ortsZeile.first().box.left() - 2.5 * kcm) < 0.5;
    }
    EXPECT_TRUE(umbrochen);

    // A letterhead that is not printed still replaces the sender line.
    absender->setGeschaeftspapierImagePath(u"file:///nonexistent/letterhead.png"_s);
    absender->setGeschaeftspapierDrucken(false);
    EXPECT_FALSE(rendere(r).text(1).contains(u"Hauptstr."_s));
}

TEST_F(LayoutTest, ReadersListTheFileUnderItsNumberAndSender)
{
    const struct
    {
        std::optional<QString> nummer, firma, name;
        bool mitAbsender;
        QString titel, autor;
    } faelle[] = {
        {u"Rechnung: 2026-042"_s, u"Atelierwerk"_s, u"Mira Sommer"_s, true, u"Rechnung: 2026-042"_s,
         u"Atelierwerk - Mira Sommer"_s},
        {u" Invoice Ü-7 "_s, std::nullopt, u"Mira Sommer"_s, true, u"Invoice Ü-7"_s, u"Mira Sommer"_s},
        {u"Angebot"_s, u"Ätelierwerk"_s, u"  "_s, true, u"Angebot"_s, u"Ätelierwerk"_s},
        // Without a number or a sender's name the program's title and its publisher stand in.
        {std::nullopt, std::nullopt, std::nullopt, true, QString::fromUtf8(FKRPDFHerausgeber::kTitel),
         QString::fromUtf8(FKRPDFHerausgeber::kWebAdresse)},
        {u" "_s, std::nullopt, std::nullopt, false, QString::fromUtf8(FKRPDFHerausgeber::kTitel),
         QString::fromUtf8(FKRPDFHerausgeber::kWebAdresse)},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.titel.toStdString());
        FKRRechnung &r = rechnung();
        r.setRechnungsNummer(fall.nummer);
        if (fall.mitAbsender) {
            absender(r).setFirma(fall.firma);
            r.absender()->setName(fall.name);
        }
        const QMap<QString, QString> info = rendere(r).info();
        EXPECT_EQ(info.value(u"Title"_s), fall.titel);
        EXPECT_EQ(info.value(u"Author"_s), fall.autor);
        EXPECT_EQ(info.value(u"Creator"_s), QString::fromUtf8(FKRPDFHerausgeber::kFirma));
    }
}

TEST_F(LayoutTest, ADocumentThatCannotBeDrawnLeavesTheOldFileInPlace)
{
    const QString pfad = m_ordner.filePath(u"bestehend.pdf"_s);
    QFile alt(pfad);
    ASSERT_TRUE(alt.open(QIODevice::WriteOnly));
    alt.write("old content");
    alt.close();

    const auto fehlt = [](const std::exception &fehler) { return dynamic_cast<const FKRFehlenderWert *>(&fehler); };
    const auto zuGross = [](FKRDokumentZuGross::Art art) {
        return [art](const std::exception &fehler) {
            const auto *grenze = dynamic_cast<const FKRDokumentZuGross *>(&fehler);
            return grenze && grenze->art() == art;
        };
    };
    const struct
    {
        const char *fall;
        std::function<void(FKRRechnung &)> aendere;
        std::function<bool(const std::exception &)> erwartet;
    } faelle[] = {
        {"a missing unit price", [&](FKRRechnung &r) { r.posten().first()->setEinzelbetrag(std::nullopt); }, fehlt},
        {"2,000,001 characters in the text",
         [](FKRRechnung &r) { r.setRechnungsText(QString(FKRDokumentZuGross::kMaxZeichen + 1, u'x')); },
         zuGross(FKRDokumentZuGross::Art::Text)},
        {"a signature of 40000 x 40000 pixels",
         [&](FKRRechnung &r) {
             absender(r).setUnterschriftImageBinary(testbilder::jpegMitKopf({40000, 40000}));
         },
         zuGross(FKRDokumentZuGross::Art::Bild)},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        FKRRechnung &r = rechnung();
        posten(r, 1, "1", "10", u"Beratung"_s);
        fall.aendere(r);
        try {
            FKRPDFLayout::fuerRechnung(r).erstellePDFDateiImPfad(pfad, r);
            ADD_FAILURE() << "written";
        } catch (const std::exception &fehler) {
            EXPECT_TRUE(fall.erwartet(fehler)) << fehler.what();
        }
        ASSERT_TRUE(alt.open(QIODevice::ReadOnly));
        EXPECT_EQ(alt.readAll(), QByteArray("old content"));
        alt.close();
    }
    // The shared layout is ready for the next document.
    EXPECT_EQ(rendere(rechnung()).seitenAnzahl(), 1);
}

} // namespace
