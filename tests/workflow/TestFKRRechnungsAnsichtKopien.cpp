// Duplicate and dunning letter from the document view: what the copy takes over and what not,
// its number in the document's own language, and where it ends up (drafts area, selected, in
// the editor).

#include "WorkflowTestSupport.h"

#include "FKRAbsender.h"
#include "FKRAnsichtAktionsBox.h"
#include "FKRArrayController.h"
#include "FKREmpfaenger.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "FKRRechnungsDetailsWindowController.h"
#include "FKRUhr.h"

#include <QToolButton>

#include <algorithm>

using namespace workflowtest;
using namespace Qt::Literals::StringLiterals;

namespace {

const QDateTime kJetzt(QDate(2026, 3, 11), QTime(9, 30));
const QDateTime kRechnungsDatum(QDate(2026, 2, 1), QTime(8, 0));

Decimal d(const char *text)
{
    return *Decimal::parse(text);
}

class KopienTest : public FensterTest
{
protected:
    void SetUp() override
    {
        FKRUhr::halteAn(kJetzt);
        baueHauptfenster();
    }
    void TearDown() override
    {
        // The editor the copy was opened in saves and goes when it is closed.
        if (auto *editor = FKRRechnungsDetailsWindowController::aktuellesFenster())
            editor->close();
        QCoreApplication::processEvents();
        FKRUhr::laufeWeiter();
    }

    // A sent and paid invoice with two items, one of them a template with its own VAT rate.
    FKRRechnung *quelle(qint64 sprache, const QString &nummer)
    {
        auto *r = moc().insertNewObject<FKRRechnung>();
        r->setAbsender(moc().insertNewObject<FKRAbsender>());
        r->setEmpfaenger(moc().insertNewObject<FKREmpfaenger>());
        r->empfaenger()->setFirma(u"Gärtnerei Lehmann"_s);
        r->setSprache(sprache);
        r->setRechnungsNummer(nummer);
        r->setRechnungsDatum(kRechnungsDatum);
        r->setLieferDatum(kRechnungsDatum);
        r->setFaelligkeitsDatum(kRechnungsDatum.addDays(14));
        r->setRabatt(d("0.05"));
        r->setWaehrung(u"CHF"_s);
        r->setRechnungsText(u"Wie besprochen:"_s);
        for (int position : {2, 1}) {
            auto *p = moc().insertNewObject<FKRPosten>();
            p->setPostenNummer(position);
            p->setPostenBezeichnung(u"Leistung %1"_s.arg(position));
            p->setAnzahl(Decimal(position));
            p->setEinzelbetrag(d("80.00"));
            if (position == 2) {
                p->setMwStSatz(d("0.07"));
                p->setIstVorlage(true);
            }
            p->setRechnung(r);
        }
        EXPECT_TRUE(moc().save());
        return r;
    }
    FKRRechnung *einzigeAndere(FKRRechnung *ausser)
    {
        QList<FKRRechnung *> andere = moc().fetch<FKRRechnung>();
        andere.removeAll(ausser);
        return andere.size() == 1 ? andere.constFirst() : nullptr;
    }
    static QList<FKRPosten *> sortiert(QList<FKRPosten *> posten)
    {
        std::sort(posten.begin(), posten.end(),
                  [](FKRPosten *a, FKRPosten *b) { return a->postenNummer() < b->postenNummer(); });
        return posten;
    }
    // The copy is a saved draft, selected in the drafts area, shown and open in the editor.
    void erwarteGeoeffneterEntwurf(FKRRechnung *kopie, FKRRechnung *original)
    {
        EXPECT_FALSE(moc().hasChanges());
        EXPECT_EQ(liste->selectedObjects(), QList<FKRRechnung *>{kopie});
        const auto angezeigt = liste->rechnungenListeArrayController().arranged<FKRRechnung>();
        EXPECT_TRUE(angezeigt.contains(kopie));
        EXPECT_FALSE(angezeigt.contains(original)); // sent: not a draft
        EXPECT_EQ(ansicht->rechnung(), kopie);
        EXPECT_NE(FKRRechnungsDetailsWindowController::aktuellesFenster(), nullptr);
    }
};

TEST_F(KopienTest, DuplikatIstEinUnversandterEntwurfMitDenselbenPosten)
{
    auto *original = quelle(1, u"Rechnung: 17"_s);
    ansicht->setRechnung(original);
    ansicht->aktualisiereAnsicht();
    QTest::mouseClick(ansicht->rechnungVersendetButtonBox()->knopf(), Qt::LeftButton);
    QTest::mouseClick(ansicht->rechnungBezahltButtonBox()->knopf(), Qt::LeftButton);
    ASSERT_EQ(original->bezahlt(), true);
    ASSERT_TRUE(original->binaryPDF().has_value());

    QTest::mouseClick(ansicht->duplizierenButtonBox()->knopf(), Qt::LeftButton);
    FKRRechnung *kopie = einzigeAndere(original);
    ASSERT_NE(kopie, nullptr);
    EXPECT_EQ(kopie->rechnungsNummer(), u"Rechnung: 17 Kopie"_s);
    EXPECT_NE(kopie->uniqueIdentifier(), original->uniqueIdentifier());
    EXPECT_EQ(kopie->versandt(), false);
    EXPECT_EQ(kopie->bezahlt(), false);
    EXPECT_EQ(kopie->bezahltDatum(), std::nullopt);
    EXPECT_EQ(kopie->binaryPDF(), std::nullopt);
    EXPECT_EQ(kopie->absender(), original->absender());
    EXPECT_EQ(kopie->empfaenger(), original->empfaenger());
    EXPECT_EQ(kopie->rechnungsDatum(), kRechnungsDatum);
    EXPECT_EQ(kopie->rabatt(), d("0.05"));
    EXPECT_EQ(kopie->waehrung(), u"CHF"_s);
    EXPECT_EQ(kopie->rechnungsText(), u"Wie besprochen:"_s);

    const auto posten = sortiert(kopie->posten());
    ASSERT_EQ(posten.size(), 2);
    EXPECT_EQ(posten[1]->postenBezeichnung(), u"Leistung 2"_s);
    EXPECT_EQ(posten[1]->einzelbetrag(), d("80.00"));
    EXPECT_EQ(posten[1]->mwStSatz(), std::nullopt);
    EXPECT_EQ(posten[1]->istVorlage(), false);
    EXPECT_EQ(kopie->postenSumme(), original->postenSumme());
    erwarteGeoeffneterEntwurf(kopie, original);
}

TEST_F(KopienTest, MahnungEinerFaelligenEnglischenRechnung)
{
    auto *original = quelle(2, u"INV-9"_s);
    original->setVersandt(true);
    ASSERT_TRUE(moc().save());
    ansicht->setRechnung(original);
    ansicht->aktualisiereAnsicht();
    ASSERT_TRUE(ansicht->mahnungButtonBox()->isVisibleTo(ansicht));

    QTest::mouseClick(ansicht->mahnungButtonBox()->knopf(), Qt::LeftButton);
    FKRRechnung *mahnung = einzigeAndere(original);
    ASSERT_NE(mahnung, nullptr);
    EXPECT_EQ(mahnung->rechnungsNummer(), u"Reminder for: INV-9"_s);
    EXPECT_EQ(mahnung->dokumentArt(), Decimal(5));
    EXPECT_EQ(mahnung->rechnungsDatum(), kJetzt);
    EXPECT_EQ(mahnung->faelligkeitsDatum(), kJetzt);
    EXPECT_EQ(mahnung->versandt(), false);
    EXPECT_EQ(mahnung->empfaenger(), original->empfaenger());
    EXPECT_EQ(mahnung->posten().size(), 2);
    // The source stays as it was.
    EXPECT_EQ(original->rechnungsNummer(), u"INV-9"_s);
    EXPECT_EQ(original->dokumentArt(), Decimal(3));
    erwarteGeoeffneterEntwurf(mahnung, original);
}

} // namespace
