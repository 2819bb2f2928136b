// The amount chain of a document: where it rounds, how, and in which order. The last cent is the behaviour under test,
// so the comments work the expected figures out by hand.
#include "FKRFehlenderWert.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::Literals::StringLiterals;

inline void PrintTo(const Decimal &zahl, std::ostream *out) { *out << zahl.toString(); }

namespace {
Decimal d(const char *text) { return *Decimal::parse(text); }
std::optional<Decimal> od(const char *text) { return text ? std::optional(d(text)) : std::nullopt; }

using JeSatz = QList<QPair<QString, Decimal>>;

struct Posten { const char *anzahl, *einzelbetrag, *satz = nullptr; }; // null: the attribute is absent
// Expected figures; null is not checked.
struct Summen { const char *posten, *rabatt, *zuschlag, *netto, *ust, *summe, *skonto, *zahlbetrag; };
struct Dokument {
    const char *was;
    std::vector<Posten> posten;
    Summen soll;
    const char *rabatt = "0", *zuschlag = "0", *skonto = "0", *mwst = "0.19";
    std::optional<bool> brutto = true;
    std::optional<QString> waehrung = u"€"_s;
};

class Betraege : public ::testing::Test
{
protected:
    // A new document has the store's defaults: German, "€", 19 %, gross, no discounts.
    FKRRechnung *dokument() { return m_context.insertNewObject<FKRRechnung>(); }
    FKRPosten *posten(FKRRechnung *rechnung, const Posten &p)
    {
        auto *posten = m_context.insertNewObject<FKRPosten>();
        posten->setAnzahl(od(p.anzahl));
        posten->setEinzelbetrag(od(p.einzelbetrag));
        posten->setMwStSatz(od(p.satz));
        if (rechnung)
            rechnung->addPostenObject(posten);
        return posten;
    }
    FKRRechnung *dokument(const Dokument &fall)
    {
        FKRRechnung *r = dokument();
        for (const Posten &p : fall.posten)
            posten(r, p);
        r->setRabatt(d(fall.rabatt));
        r->setZuschlag(d(fall.zuschlag));
        r->setSkonto(d(fall.skonto));
        r->setMwStSatz(d(fall.mwst));
        r->setBrutto(fall.brutto);
        r->setWaehrung(fall.waehrung);
        return r;
    }
    ManagedObjectContext m_context;
};

TEST_F(Betraege, DocumentTotalsRoundToTheCentHalfAwayFromZeroStepByStep)
{
    const Dokument faelle[] = {
        // 10.05 x 0.5 = 5.025 -> 5.03 (half to even would give 5.02); 10.05 x 0.25 = 2.5125 -> 2.51.
        {"discount and surcharge", {{"1", "10.05"}}, {"10.05", "5.03", "2.51", "7.53"}, "0.5", "0.25"},
        // VAT 19.00 + 19.00 x 0.05 - 19.00 x 0.1 = 18.05; 113.05 x 0.02 = 2.261 -> 2.26.
        {"all", {{"4", "25"}}, {"100", "10.00", "5.00", "95.00", "18.05", "113.05", "2.26", "110.79"}, "0.1", "0.05", "0.02"},
        // Net or unflagged documents leave the VAT out: 95.00, less 1.90.
        {"net", {{"4", "25"}}, {0, 0, 0, "95.00", 0, "95.00", 0, "93.10"}, "0.1", "0.05", "0.02", "0.19", false},
        {"unflagged", {{"4", "25"}}, {0, 0, 0, 0, 0, "95.00", 0, "93.10"}, "0.1", "0.05", "0.02", "0.19", std::nullopt},
        {"negative discount, not in the VAT", {{"1", "100"}}, {0, "-10.00", "0", "110.00", "19.00", "129.00"}, "-0.1"},
        // Each rate's VAT joins a running total rounded each time: 0.005 and 0.005 give 0.01, then 0.015 -> 0.02 (one
        // rounding at the end: 0.01); 0.01 and -0.005 give 0.01, then 0.005 -> 0.01 (rounding each rate alone: 0.00).
        {"running VAT", {{"1", "0.05", "0.1"}, {"1", "0.1", "0.05"}}, {0, 0, 0, 0, "0.02"}, "0", "0", "0", "0"},
        {"running VAT back", {{"1", "0.1", "0.1"}, {"-1", "0.1", "0.05"}}, {0, 0, 0, 0, "0.01"}, "0", "0", "0", "0"},
        // Swiss francs round to five centimes, only for exactly "CHF": 2.5 x 4.01 = 10.025.
        {"CHF", {{"2.5", "4.01"}}, {"10.025", 0, 0, "10.05"}, "0", "0", "0", "0.19", true, u"CHF"_s},
        {"chf", {{"2.5", "4.01"}}, {0, 0, 0, "10.025"}, "0", "0", "0", "0.19", true, u"chf"_s},
    };
    for (const Dokument &fall : faelle) {
        SCOPED_TRACE(fall.was);
        const FKRRechnung *r = dokument(fall);
        const std::pair<const char *, Decimal> summen[]
            = {{fall.soll.posten, r->postenSumme()}, {fall.soll.rabatt, r->rabattBetrag()},
                {fall.soll.zuschlag, r->zuschlagBetrag()}, {fall.soll.netto, r->nettoSumme()},
                {fall.soll.ust, r->umsatzsteuerSumme()}, {fall.soll.summe, r->rechnungsSumme()},
                {fall.soll.skonto, r->skontoBetrag()}, {fall.soll.zahlbetrag, r->rechnungsSummeAbzueglichSkonto()}};
        for (const auto &[soll, ist] : summen)
            if (soll)
                EXPECT_EQ(ist, d(soll)) << &soll - &summen[0].first;
    }
    // The unit price is rounded first (10.005 -> 10.01), the product keeps its digits.
    const std::pair<Posten, const char *> zwischensummen[]
        = {{{"1.5", "10.005"}, "15.015"}, {{"1", "-10.005"}, "-10.01"}};
    for (const auto &[p, summe] : zwischensummen)
        EXPECT_EQ(posten(nullptr, p)->zwischenSumme(), d(summe)) << p.anzahl << " x " << p.einzelbetrag;
    FKRRechnung *chf = dokument();
    chf->setWaehrung(u"CHF"_s);
    const std::pair<const char *, const char *> rundung[]
        = {{"10.02", "10.00"}, {"10.025", "10.05"}, {"10.074", "10.05"}, {"10.075", "10.10"}, {"-10.025", "-10.05"}};
    for (const auto &[betrag, gerundet] : rundung)
        EXPECT_EQ(chf->waehrungsRundung(d(betrag)), d(gerundet)) << betrag;
}

TEST_F(Betraege, VatIsCollectedPerRateLabel)
{
    // An own rate of 0 means the document's rate, not tax-free. In first-occurrence order: 7 %: 3.5; 19 %: 20.9.
    FKRRechnung *r = dokument({"", {{"1", "50", "0.07"}, {"1", "100"}, {"1", "10", "0"}}, {}});
    EXPECT_EQ(r->umsatzsteuerJeSatz(), (JeSatz{{u"7,00%"_s, d("3.5")}, {u"19,00%"_s, d("20.9")}}));
    // Rates that format alike share an entry, with their exact tax: 19 + 19.00001.
    const FKRRechnung *gleich = dokument({"", {{"1", "100", "0.190"}, {"1", "100", "0.1900001"}}, {}});
    EXPECT_EQ(gleich->umsatzsteuerJeSatz(), (JeSatz{{u"19,00%"_s, d("38.00001")}}));
    // A document rate of 0 with an item without rate: the empty label and no tax.
    const FKRRechnung *ohne = dokument({"", {{"1", "100", "0"}}, {}, "0", "0", "0", "0"});
    EXPECT_EQ(ohne->umsatzsteuerJeSatz(), (JeSatz{{QString(), d("0")}}));
}

TEST_F(Betraege, ItemsAndValuesThatAreNotThere)
{
    // No item relationship (a document from a file): zeros and the document's label; not even an absent discount is
    // read.
    FKRRechnung *ohneBeziehung = dokument();
    ohneBeziehung->setRelationshipAbsent(u"posten"_s);
    ohneBeziehung->setRabatt(std::nullopt);
    EXPECT_EQ(ohneBeziehung->rechnungsSummeAbzueglichSkonto(), d("0"));
    EXPECT_EQ(ohneBeziehung->umsatzsteuerJeSatz(), (JeSatz{{u"19,00%"_s, d("0")}}));
    // An item without quantity counts nothing; a quantity needs a price; once there are items the discount is needed
    // too, but the VAT adjustment takes its absence as none.
    FKRRechnung *r = ohneBeziehung;
    posten(r, {nullptr, nullptr});
    posten(r, {"1", "100"});
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
    EXPECT_EQ(fehlt([&] { posten(nullptr, {"2", nullptr})->zwischenSumme(); }), u"einzelbetrag"_s);
}
} // namespace
