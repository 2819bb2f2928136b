// The blocks every layout shares, read back from finished files: the item table and its totals,
// the due-date and cash-discount sentences, the dates block, the sender line, page breaks and
// page numbers, and what is printed when a document lacks a date or its language.
//
// Documents use the header-bar layout, whose body has the full 16 cm width and whose dates block
// stands on the right, where the shared blocks put it.
#include "FKRAbsender.h"
#include "FKRDokumentZuGross.h"
#include "FKREmpfaenger.h"
#include "FKRFehlenderWert.h"
#include "FKRLocalizationHelper.h"
#include "FKRPDFLayout.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"
#include "PdfPruefung.h"
#include "Testbilder.h"

#include <QTemporaryDir>

#include <cmath>
#include <functional>
#include <QTimeZone>
#include <gtest/gtest.h>

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

    PdfPruefung rendere(FKRRechnung &r)
    {
        const QString pfad = m_ordner.filePath(u"dokument-%1.pdf"_s.arg(++m_nummer));
        FKRPDFLayout &layout = FKRPDFLayout::fuerRechnung(r);
        layout.erstellePDFDateiImPfad(pfad, r);
        EXPECT_TRUE(layout.letzteDateiGeschrieben()) << layout.letzterSchreibFehler().toStdString();
        PdfPruefung pdf(pfad);
        EXPECT_TRUE(pdf.gelesen()) << pdf.fehler().toStdString();
        return pdf;
    }

    ManagedObjectContext m_context;
    QTemporaryDir m_ordner;
    int m_nummer = 0;
};

double oben(const PdfPruefung &pdf, int seite, const QString &phrase)
{
    const auto box = pdf.finde(seite, phrase);
    EXPECT_TRUE(box.has_value()) << "missing on page " << seite << ": " << phrase.toStdString();
    return box ? box->top() : -1.0;
}

// The tops of every line on which `label` stands with `betrag` to its right; the extractor reads
// table columns separately, so rows are recognised by position.
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
    FKRRechnung &r = rechnung();
    r.setRabatt(d("0.1"));
    r.setMwStSatz(d("0.19"));
    r.setBrutto(true);
    posten(r, 1, "2", "500", u"Beratung"_s);
    const PdfPruefung pdf = rendere(r);

    // Subtotal, discount, subtotal, VAT, total, one below the other, with German numbers.
    const double zwischen1 = zeile(pdf, 1, u"Zwischensumme"_s, u"€ 1.000,00"_s);
    const double rabatt = zeile(pdf, 1, u"Rabatt 10,00%"_s, u"€ 100,00"_s);
    const double zwischen2 = zeile(pdf, 1, u"Zwischensumme"_s, u"€ 900,00"_s);
    const double steuer = zeile(pdf, 1, u"Umsatzsteuer 19,00%"_s, u"€ 171,00"_s);
    const double summe = zeile(pdf, 1, u"Gesamtsumme"_s, u"€ 1.071,00"_s);
    EXPECT_GT(zwischen1, 0);
    EXPECT_LT(zwischen1, rabatt);
    EXPECT_LT(rabatt, zwischen2);
    EXPECT_LT(zwischen2, steuer);
    EXPECT_LT(steuer, summe);
    EXPECT_FALSE(pdf.text(1).contains(u"Zuschlag"_s));
    // A rule above a row lengthens the step to it by 0.1 cm more than one without.
    EXPECT_GT(zwischen2 - rabatt, rabatt - zwischen1);

    // Without discount, surcharge and VAT only the total remains.
    FKRRechnung &schlicht = rechnung();
    posten(schlicht, 1, "1", "10", u"Beratung"_s);
    const PdfPruefung nurSumme = rendere(schlicht);
    zeile(nurSumme, 1, u"Gesamtsumme"_s, u"€ 10,00"_s);
    EXPECT_FALSE(nurSumme.text(1).contains(u"Zwischensumme"_s));
    EXPECT_FALSE(nurSumme.text(1).contains(u"Umsatzsteuer"_s));
}

TEST_F(LayoutTest, ItemRowsAreSortedAndPriceTheUnroundedProduct)
{
    FKRRechnung &r = rechnung();
    posten(r, 3, "1", "1", u"Drittens"_s);
    posten(r, 1, "1", "1", u"Erstens"_s);
    // 3 × 0.125 = 0.375 printed half to even: 0,38, while three cent-rounded unit prices
    // would make 0,39.
    posten(r, 2, "3", "0.125", u"Zweitens"_s);
    const PdfPruefung pdf = rendere(r);

    const double erstens = oben(pdf, 1, u"Erstens"_s);
    const double zweitens = oben(pdf, 1, u"Zweitens"_s);
    const double drittens = oben(pdf, 1, u"Drittens"_s);
    EXPECT_LT(erstens, zweitens);
    EXPECT_LT(zweitens, drittens);
    EXPECT_NEAR(zeile(pdf, 1, u"Zweitens"_s, u"3,00"_s), zweitens, 0.5);
    EXPECT_NEAR(zeile(pdf, 1, u"€ 0,12"_s, u"€ 0,38"_s), zweitens, 0.5);

    // The header band: the four column titles on one line above the first row.
    const double kopf = oben(pdf, 1, u"Beschreibung"_s);
    EXPECT_NEAR(oben(pdf, 1, u"Anzahl"_s), kopf, 0.01);
    EXPECT_NEAR(oben(pdf, 1, u"Einzelpreis"_s), kopf, 0.01);
    EXPECT_LT(kopf, erstens);
    // "Summe" is right-aligned at the table's right edge less 0.1 cm (18.5 cm - 0.1 cm).
    const auto summe = pdf.finde(1, u"Summe"_s);
    ASSERT_TRUE(summe);
    EXPECT_NEAR(summe->right(), 18.4 * kcm, 0.5);
}

TEST_F(LayoutTest, DueSentenceDependsOnTheDocumentType)
{
    FKRRechnung &angebot = rechnung(2);
    posten(angebot, 1, "1", "100", u"Entwurf"_s);
    const QString angebotText = rendere(angebot).text(1);
    EXPECT_TRUE(angebotText.contains(u"Dieses Angebot bleibt gültig bis 30.11.2026."_s)) << angebotText.toStdString();
    EXPECT_TRUE(angebotText.contains(u"Gültig bis"_s));

    FKRRechnung &mahnung = rechnung(5);
    posten(mahnung, 1, "1", "100", u"Entwurf"_s);
    const QString mahnungText = rendere(mahnung).text(1);
    EXPECT_TRUE(mahnungText.contains(u"(€ 100,00) ist fällig am 30.11.2026 (Zahlungseingang)."_s))
        << mahnungText.toStdString();
    // A dunning letter's dates: dunning date and due date, no document or service date.
    EXPECT_TRUE(mahnungText.contains(u"Fällig am"_s));
    EXPECT_FALSE(mahnungText.contains(u"Rechnungsdatum"_s));
    EXPECT_FALSE(mahnungText.contains(u"Leistungsdatum"_s));

    FKRRechnung &anschreiben = rechnung(1);
    const QString anschreibenText = rendere(anschreiben).text(1);
    EXPECT_FALSE(anschreibenText.contains(u"fällig"_s));
    EXPECT_FALSE(anschreibenText.contains(u"gültig"_s));
    // No items: no table and no totals.
    EXPECT_FALSE(anschreibenText.contains(u"Gesamtsumme"_s));
    EXPECT_FALSE(anschreibenText.contains(u"Beschreibung"_s));
}

TEST_F(LayoutTest, EnglishDocumentTakesEnglishWordsButTheUsersNumbers)
{
    FKRRechnung &r = rechnung();
    r.setSprache(2);
    r.setSkonto(d("0.02"));
    r.setSkontoZeitraum(10);
    posten(r, 1, "1", "1234.5", u"Design"_s);
    const PdfPruefung pdf = rendere(r);
    const QString text = pdf.text(1);
    EXPECT_TRUE(text.contains(u"Invoice date"_s)) << text.toStdString();
    EXPECT_TRUE(text.contains(u"Nov 16, 2026"_s));
    EXPECT_TRUE(text.contains(u"Oct 2026"_s)) << "service month";
    // The user is German: amounts keep the German separators in an English document.
    zeile(pdf, 1, u"Total"_s, u"€ 1.234,50"_s);
    // The cash discount runs to the end of the tenth day after the document date.
    EXPECT_TRUE(text.contains(u"If paid by Nov 26, 2026, a cash discount of 2,00% (€ 24,69)"_s));
    EXPECT_TRUE(text.contains(u"is then € 1.209,81."_s));
}

TEST_F(LayoutTest, BlocksStandWhereTheLetterPutsThem)
{
    FKRRechnung &r = rechnung();
    posten(r, 1, "1", "10", u"Beratung"_s);
    const PdfPruefung pdf = rendere(r);

    // The number at 2.5 cm; the dates block right-aligned in 13 cm to 18.5 cm, from 5 cm down.
    const auto nummer = pdf.finde(1, u"Rechnung: 2026-042"_s);
    ASSERT_TRUE(nummer);
    EXPECT_NEAR(nummer->left(), 2.5 * kcm, 0.5);
    const auto datumLabel = pdf.finde(1, u"Rechnungsdatum"_s);
    ASSERT_TRUE(datumLabel);
    EXPECT_NEAR(datumLabel->right(), 18.5 * kcm, 0.5);
    // The label's glyphs begin just below the line top: the same offset as the number's at 9.5 cm.
    const double versatz = nummer->top() - 9.5 * kcm;
    EXPECT_NEAR(datumLabel->top() - versatz, 5.0 * kcm, 0.5);
    // Then the date, a gap of 0.4 cm, the service month label.
    const double datumZeile = oben(pdf, 1, u"16.11.2026"_s) - datumLabel->top();
    EXPECT_NEAR(oben(pdf, 1, u"Leistungsdatum"_s) - datumLabel->top(), 2 * datumZeile + 0.4 * kcm, 0.5);
}

TEST_F(LayoutTest, LongItemListBreaksWithoutRepeatingTheHeader)
{
    FKRRechnung &r = rechnung();
    for (int i = 1; i <= 30; ++i)
        posten(r, i, "1", "10", u"Posten-%1"_s.arg(i));
    const PdfPruefung pdf = rendere(r);
    ASSERT_GE(pdf.seitenAnzahl(), 2);

    // No row crosses 4 cm above the bottom edge.
    double tiefsteZeile = 0;
    for (const PdfPruefung::Wort &wort : pdf.woerter(1))
        if (wort.text.startsWith(u"Posten-"_s))
            tiefsteZeile = std::max(tiefsteZeile, wort.box.bottom());
    EXPECT_LT(tiefsteZeile, 841.89 - 4 * kcm);

    // Page 2 continues at 5 cm, without the column titles, numbered at 4 cm in the dates column.
    EXPECT_FALSE(pdf.finde(2, u"Beschreibung"_s).has_value());
    const auto nummer = pdf.finde(2, u"Seite 2"_s);
    ASSERT_TRUE(nummer);
    EXPECT_NEAR(nummer->right(), 18.5 * kcm, 0.5);
    const auto erste = pdf.finde(1, u"Rechnung: 2026-042"_s);
    const double versatz = erste->top() - 9.5 * kcm;
    EXPECT_NEAR(nummer->top() - versatz, 4.0 * kcm, 0.5);
    double hoechsteZeile = 841.89;
    for (const PdfPruefung::Wort &wort : pdf.woerter(2))
        if (wort.text.startsWith(u"Posten-"_s))
            hoechsteZeile = std::min(hoechsteZeile, wort.box.top());
    EXPECT_NEAR(hoechsteZeile - versatz, 5.0 * kcm + 0.1 * kcm, 0.5);
    // Page 1 carries its number too, below the dates.
    EXPECT_TRUE(pdf.finde(1, u"Seite 1"_s).has_value());
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

    // A letterhead that is not printed still replaces the sender line.
    absender->setGeschaeftspapierImagePath(u"file:///nonexistent/letterhead.png"_s);
    absender->setGeschaeftspapierDrucken(false);
    EXPECT_FALSE(rendere(r).text(1).contains(u"Hauptstr."_s));
}

TEST_F(LayoutTest, MissingDatesAndLanguagePrintNothingMisleading)
{
    FKRRechnung &r = rechnung();
    r.setFaelligkeitsDatum(std::nullopt);
    r.setLieferDatum(std::nullopt);
    r.setSprache(std::nullopt);
    r.setSkonto(d("0.02"));
    r.setSkontoZeitraum(10);
    r.setRechnungsDatum(std::nullopt);
    posten(r, 1, "1", "10", u"Beratung"_s);
    const QString text = rendere(r).text(1);
    // No label without its date, no sentence about a day that is not known.
    EXPECT_FALSE(text.contains(u"Fällig am"_s)) << text.toStdString();
    EXPECT_FALSE(text.contains(u"Leistungsdatum"_s));
    EXPECT_FALSE(text.contains(u"Rechnungsdatum"_s));
    EXPECT_FALSE(text.contains(u"ist fällig"_s));
    EXPECT_FALSE(text.contains(u"Skonto"_s));
    // Without a language the labels come in the user's language.
    EXPECT_TRUE(text.contains(u"Gesamtsumme"_s));
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
             auto *absender = m_context.insertNewObject<FKRAbsender>();
             absender->setUnterschriftImageBinary(testbilder::jpegMitKopf({40000, 40000}));
             r.setAbsender(absender);
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
