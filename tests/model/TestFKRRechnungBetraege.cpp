// The amount chain of a document: where it rounds, how, and in which order. The expected figures
// are worked out by hand in the comments, because the last cent is the behaviour under test.
#include "FKRBetragsFormat.h"
#include "FKRFehlenderWert.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"

#include <QLocale>
#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::Literals::StringLiterals;

inline void PrintTo(const Decimal &zahl, std::ostream *out) { *out << zahl.toString(); }
inline void PrintTo(const QString &text, std::ostream *out) { *out << '"' << text.toStdString() << '"'; }

namespace {

Decimal d(const char *text)
{
    return *Decimal::parse(text);
}

using JeSatz = QList<QPair<QString, Decimal>>;

class Betraege : public ::testing::Test
{
protected:
    // A new document has the store's defaults: German, "€", 19 %, gross, no discounts.
    FKRRechnung *dokument() { return m_context.insertNewObject<FKRRechnung>(); }

    // An item of `rechnung` (none for null); a null text leaves the attribute absent.
    FKRPosten *posten(FKRRechnung *rechnung, const char *anzahl, const char *einzelbetrag, const char *satz = nullptr)
    {
        auto *p = m_context.insertNewObject<FKRPosten>();
        p->setAnzahl(anzahl ? std::optional(d(anzahl)) : std::nullopt);
        p->setEinzelbetrag(einzelbetrag ? std::optional(d(einzelbetrag)) : std::nullopt);
        p->setMwStSatz(satz ? std::optional(d(satz)) : std::nullopt);
        if (rechnung)
            rechnung->addPostenObject(p);
        return p;
    }

    ManagedObjectContext m_context;
};

TEST_F(Betraege, CentRoundingIsHalfAwayFromZero)
{
    // The unit price is rounded first (10.005 -> 10.01), the product keeps its digits.
    EXPECT_EQ(posten(nullptr, "2", "10.005")->zwischenSumme(), d("20.02"));
    EXPECT_EQ(posten(nullptr, "1.5", "10.005")->zwischenSumme(), d("15.015"));
    EXPECT_EQ(posten(nullptr, "1", "-10.005")->zwischenSumme(), d("-10.01"));

    // 10.05 x 0.5 = 5.025 -> 5.03 (half to even would give 5.02); 10.05 x 0.25 = 2.5125 -> 2.51.
    FKRRechnung *r = dokument();
    posten(r, "1", "10.05");
    r->setRabatt(d("0.5"));
    r->setZuschlag(d("0.25"));
    EXPECT_EQ(r->rabattBetrag(), d("5.03"));
    EXPECT_EQ(r->zuschlagBetrag(), d("2.51"));
    EXPECT_EQ(r->nettoSumme(), d("7.53"));
}

TEST_F(Betraege, SwissFrancsRoundToFiveCentimesOnlyForExactlyCHF)
{
    FKRRechnung *r = dokument();
    r->setWaehrung(u"CHF"_s);
    const std::pair<const char *, const char *> faelle[] = {
        {"10.02", "10.00"}, {"10.025", "10.05"}, {"10.074", "10.05"}, {"10.075", "10.10"}, {"-10.025", "-10.05"}};
    for (const auto &[betrag, gerundet] : faelle)
        EXPECT_EQ(r->waehrungsRundung(d(betrag)), d(gerundet)) << betrag;

    posten(r, "2.5", "4.01"); // 10.025
    EXPECT_EQ(r->nettoSumme(), d("10.05"));
    for (const std::optional<QString> &andere : {std::optional(u"chf"_s), std::optional(u"CHF "_s), std::optional<QString>()}) {
        r->setWaehrung(andere);
        EXPECT_EQ(r->nettoSumme(), d("10.025")) << andere.value_or(u"(absent)"_s).toStdString();
    }
}

TEST_F(Betraege, DisplayRoundsHalfToEvenWithTheCurrencyInFront)
{
    // The user's locale (German here), not the document's.
    EXPECT_EQ(FKRBetragsFormat::formatiert(d("1234.5")), u"1.234,50"_s);
    EXPECT_EQ(FKRBetragsFormat::formatiert(d("2.345")), u"2,34"_s);
    EXPECT_EQ(FKRBetragsFormat::formatiert(d("2.355")), u"2,36"_s);
    const QLocale gespeichert;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(FKRBetragsFormat::formatiert(d("1234.5")), u"1,234.50"_s);
    QLocale::setDefault(gespeichert);

    FKRRechnung *r = dokument();
    const std::pair<std::optional<QString>, QString> faelle[] = {
        {std::nullopt, u"€ 1.234,50"_s}, {u"EUR"_s, u"EUR 1.234,50"_s}, {QString(), u" 1.234,50"_s}};
    for (const auto &[waehrung, text] : faelle) {
        r->setWaehrung(waehrung);
        EXPECT_EQ(FKRBetragsFormat::betragText(u"1.234,50"_s, *r), text);
    }
}

TEST_F(Betraege, VatIsCollectedPerRateLabelInTheDocumentsLanguage)
{
    FKRRechnung *r = dokument(); // 19 %
    posten(r, "1", "50", "0.07");
    posten(r, "1", "100");
    posten(r, "1", "10", "0"); // an own rate of 0 means the document's rate, not tax-free
    // In first-occurrence order: 7 %: 3.5; 19 %: 19 + 1.9 = 20.9.
    EXPECT_EQ(r->umsatzsteuerJeSatz(), (JeSatz{{u"7,00%"_s, d("3.5")}, {u"19,00%"_s, d("20.9")}}));
    r->setSprache(2);
    EXPECT_EQ(r->umsatzsteuerJeSatz(), (JeSatz{{u"7.00%"_s, d("3.5")}, {u"19.00%"_s, d("20.9")}}));

    // Rates that format alike share an entry, with their exact tax: 19 + 19.00001.
    FKRRechnung *gleich = dokument();
    posten(gleich, "1", "100", "0.190");
    posten(gleich, "1", "100", "0.1900001");
    EXPECT_EQ(gleich->umsatzsteuerJeSatz(), (JeSatz{{u"19,00%"_s, d("38.00001")}}));

    // A document rate of 0 with an item without rate: the empty label and no tax.
    FKRRechnung *ohne = dokument();
    ohne->setMwStSatz(d("0"));
    posten(ohne, "1", "100", "0");
    EXPECT_EQ(ohne->umsatzsteuerJeSatz(), (JeSatz{{QString(), d("0")}}));
}

TEST_F(Betraege, VatTotalIsCentRoundedAfterEveryRate)
{
    // 0.005 and 0.005: running 0.01, then 0.015 -> 0.02; one rounding at the end gives 0.01.
    FKRRechnung *r = dokument();
    r->setMwStSatz(d("0"));
    posten(r, "1", "0.05", "0.1");
    posten(r, "1", "0.1", "0.05");
    EXPECT_EQ(r->umsatzsteuerSumme(), d("0.02"));
    // 0.01 and -0.005: running 0.01, then 0.005 -> 0.01; rounding each rate alone would give
    // 0.01 - 0.01 = 0.00.
    FKRRechnung *s = dokument();
    s->setMwStSatz(d("0"));
    posten(s, "1", "0.1", "0.1");
    posten(s, "-1", "0.1", "0.05");
    EXPECT_EQ(s->umsatzsteuerSumme(), d("0.01"));
}

TEST_F(Betraege, DiscountSurchargeVatAndCashDiscount)
{
    FKRRechnung *r = dokument(); // 19 %, gross
    posten(r, "4", "25");
    r->setRabatt(d("0.1"));
    r->setZuschlag(d("0.05"));
    r->setSkonto(d("0.02"));
    EXPECT_EQ(r->postenSumme(), d("100"));
    EXPECT_EQ(r->rabattBetrag(), d("10.00"));
    EXPECT_EQ(r->zuschlagBetrag(), d("5.00"));
    EXPECT_EQ(r->nettoSumme(), d("95.00"));
    // 19.00 + 19.00 x 0.05 - 19.00 x 0.1 = 18.05; total 95.00 + 18.05.
    EXPECT_EQ(r->umsatzsteuerSumme(), d("18.05"));
    EXPECT_EQ(r->rechnungsSumme(), d("113.05"));
    // 113.05 x 0.02 = 2.261 -> 2.26; 113.05 - 2.26 = 110.79.
    EXPECT_EQ(r->skontoBetrag(), d("2.26"));
    EXPECT_EQ(r->rechnungsSummeAbzueglichSkonto(), d("110.79"));

    // Net or unflagged documents leave the VAT out: 95.00, less 1.90.
    for (const std::optional<bool> brutto : {std::optional(false), std::optional<bool>()}) {
        r->setBrutto(brutto);
        EXPECT_EQ(r->rechnungsSumme(), d("95.00"));
        EXPECT_EQ(r->rechnungsSummeAbzueglichSkonto(), d("93.10"));
    }
}

TEST_F(Betraege, NegativeDiscountActsInTheAmountButNotInTheVat)
{
    FKRRechnung *r = dokument(); // 19 %, gross
    posten(r, "1", "100");
    r->setRabatt(d("-0.1"));
    EXPECT_EQ(r->rabattBetrag(), d("-10.00"));
    EXPECT_EQ(r->nettoSumme(), d("110.00"));
    EXPECT_EQ(r->umsatzsteuerSumme(), d("19.00"));
    EXPECT_EQ(r->rechnungsSumme(), d("129.00"));
}

TEST_F(Betraege, ItemsAndValuesThatAreNotThere)
{
    // No item relationship (a document from a file) and an empty set: zeros and the document's
    // label; without the relationship not even an absent discount is read.
    FKRRechnung *ohneBeziehung = dokument();
    ohneBeziehung->setRelationshipAbsent(u"posten"_s);
    ohneBeziehung->setRabatt(std::nullopt);
    for (const FKRRechnung *r : {ohneBeziehung, dokument()}) {
        for (const Decimal &betrag : {r->postenSumme(), r->rabattBetrag(), r->nettoSumme(), r->umsatzsteuerSumme(),
                                      r->rechnungsSumme(), r->rechnungsSummeAbzueglichSkonto()})
            EXPECT_EQ(betrag, d("0"));
        EXPECT_EQ(r->umsatzsteuerJeSatz(), (JeSatz{{u"19,00%"_s, d("0")}}));
    }

    // An item without quantity counts nothing; a quantity needs a price; once there are items
    // the discount is needed too, but the VAT adjustment takes its absence as none.
    FKRRechnung *r = ohneBeziehung;
    posten(r, nullptr, nullptr);
    posten(r, "1", "100");
    EXPECT_EQ(r->postenSumme(), d("100"));
    auto fehlt = [](auto rechnen) -> QString {
        try {
            rechnen();
        } catch (const FKRFehlenderWert &fehler) {
            return fehler.attribute();
        }
        return u"(nothing)"_s;
    };
    EXPECT_EQ(fehlt([&] { r->rechnungsSumme(); }), u"rabatt"_s);
    EXPECT_EQ(r->umsatzsteuerSumme(), d("19"));
    r->setRabatt(d("0"));
    r->setSkonto(std::nullopt);
    EXPECT_EQ(r->rechnungsSumme(), d("119"));
    EXPECT_EQ(fehlt([&] { r->rechnungsSummeAbzueglichSkonto(); }), u"skonto"_s);
    EXPECT_EQ(fehlt([&] { posten(nullptr, "2", nullptr)->zwischenSumme(); }), u"einzelbetrag"_s);
}

} // namespace
