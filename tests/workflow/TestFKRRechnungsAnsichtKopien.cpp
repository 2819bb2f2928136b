// Duplicate and dunning letter from the document view: what the copy takes over and what not,
// its number and a dunning letter's texts in the document's own language, where it ends up
// (drafts area, selected, in the editor), and for which documents a dunning letter is offered.

#include "WorkflowTestSupport.h"

#include "FKRAbsender.h"
#include "FKRAnsichtAktionsBox.h"
#include "FKRArrayController.h"
#include "FKREmpfaenger.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "FKRRechnungsDetailsWindowController.h"
#include "FKRUhr.h"
#include "QBBenutzerEinstellungen.h"

#include "../pdf/PdfPruefung.h"

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
        schliesseEditor();
        FKRUhr::laufeWeiter();
    }
    // The editor the copy was opened in saves and goes when it is closed.
    static void schliesseEditor()
    {
        if (auto *editor = FKRRechnungsDetailsWindowController::aktuellesFenster())
            editor->close();
        QCoreApplication::processEvents();
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
        r->setRechnungsTextAnrede(u"Hallo Frau Lehmann,"_s);
        r->setRechnungsText(u"Wie besprochen:"_s);
        r->setRechnungsText2(u"Danke für den Auftrag!"_s);
        r->setSkonto(d("0.02"));
        r->setSkontoZeitraum(8);
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

TEST_F(KopienTest, MahnungErinnertAnDieRechnungInIhrerSprache)
{
    const struct {
        qint64 sprache;
        int art;
        const char *nummer;
        int fristTage;
        QString mahnungsNummer;
        QString anrede;
        QString text;
    } faelle[] = {
        {2, 3, "INV-9", 10, u"Reminder for: INV-9"_s, u"Dear Sir or Madam,"_s,
         u"Perhaps it has escaped your notice: our invoice no. INV-9 dated Feb 1, 2026 was due for payment on "
         u"Feb 15, 2026, but we have not yet received your payment. We kindly ask you to transfer the amount "
         u"listed below by the date given."_s},
        // The type label in front of the number is not repeated in the sentence.
        {1, 4, "Honorarnote: 17", 0, u"Mahnung für: Honorarnote: 17"_s, u"Sehr geehrte Damen und Herren,"_s,
         u"sicher ist es Ihrer Aufmerksamkeit entgangen: Unsere Honorarnote Nr. 17 vom 01.02.2026 war am 15.02.2026 "
         u"zur Zahlung fällig, ein Zahlungseingang ist bei uns jedoch noch nicht verbucht. Wir bitten Sie, den unten "
         u"aufgeführten Betrag bis zum genannten Datum zu überweisen."_s},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.nummer);
        auto *original = quelle(fall.sprache, QString::fromUtf8(fall.nummer));
        original->setDokumentArt(Decimal(fall.art));
        original->setVersandt(true);
        ASSERT_TRUE(moc().save());
        QBBenutzerEinstellungen::sharedInstance()->setMahnungZahlungsfristTage(fall.fristTage);
        ansicht->setRechnung(original);
        ansicht->aktualisiereAnsicht();
        ASSERT_TRUE(ansicht->mahnungButtonBox()->isVisibleTo(ansicht));

        QTest::mouseClick(ansicht->mahnungButtonBox()->knopf(), Qt::LeftButton);
        FKRRechnung *mahnung = ansicht->rechnung();
        ASSERT_NE(mahnung, original);
        EXPECT_EQ(mahnung->rechnungsNummer(), fall.mahnungsNummer);
        EXPECT_EQ(mahnung->dokumentArt(), Decimal(5));
        EXPECT_EQ(mahnung->rechnungsDatum(), kJetzt);
        EXPECT_EQ(mahnung->lieferDatum(), kJetzt);
        EXPECT_EQ(mahnung->faelligkeitsDatum(), kJetzt.addDays(fall.fristTage));
        EXPECT_EQ(mahnung->skonto(), Decimal(0));
        EXPECT_EQ(mahnung->skontoZeitraum(), 0);
        EXPECT_EQ(mahnung->rechnungsTextAnrede(), fall.anrede);
        EXPECT_EQ(mahnung->rechnungsText(), fall.text);
        EXPECT_EQ(mahnung->rechnungsText2(),
                  FKRLocalizationHelper::lokalisierterText(u"MAHNUNG_TEXT_SCHLUSS"_s, fall.sprache) + u"\n\n"_s
                      + FKRLocalizationHelper::lokalisierterText(u"MAHNUNG_GRUSSFORMEL"_s, fall.sprache));
        EXPECT_EQ(mahnung->versandt(), false);
        EXPECT_EQ(mahnung->empfaenger(), original->empfaenger());
        EXPECT_EQ(mahnung->posten().size(), 2);
        // The source stays as it was.
        EXPECT_EQ(original->rechnungsNummer(), QString::fromUtf8(fall.nummer));
        EXPECT_EQ(original->dokumentArt(), Decimal(fall.art));
        EXPECT_EQ(original->skonto(), d("0.02"));
        erwarteGeoeffneterEntwurf(mahnung, original);
        schliesseEditor();
    }
}

TEST_F(KopienTest, MahnungsPDFNenntDieRechnungUndDanktNicht)
{
    auto *original = quelle(2, u"INV-9"_s);
    original->setVersandt(true);
    ASSERT_TRUE(moc().save());
    QBBenutzerEinstellungen::sharedInstance()->setMahnungZahlungsfristTage(14);
    ansicht->setRechnung(original);
    ansicht->aktualisiereAnsicht();
    QTest::mouseClick(ansicht->mahnungButtonBox()->knopf(), Qt::LeftButton);
    ASSERT_NE(ansicht->rechnung(), original);

    const QString ziel = heimat.pfad() + u"/mahnung.pdf"_s;
    presenter.speicherAntworten = {ziel};
    QTest::mouseClick(ansicht->sichernButtonBox()->knopf(), Qt::LeftButton);
    const PdfPruefung pdf(ziel);
    ASSERT_TRUE(pdf.gelesen()) << pdf.fehler().toStdString();
    // Phrases within one line of the text.
    for (const QString &phrase : {u"Reminder for: INV-9"_s, u"Dear Sir or Madam,"_s, u"invoice no. INV-9 dated Feb 1, 2026"_s,
                                  u"payment on Feb 15, 2026,"_s, u"is due on Mar 25, 2026"_s,
                                  u"please disregard this"_s, u"Kind regards"_s})
        EXPECT_TRUE(pdf.finde(1, phrase).has_value()) << phrase.toStdString() << "\n" << pdf.text(1).toStdString();
    EXPECT_FALSE(pdf.text(1).contains(u"Danke"_s)) << pdf.text(1).toStdString();
    EXPECT_FALSE(pdf.text(1).contains(u"cash discount"_s)) << pdf.text(1).toStdString();
}

TEST_F(KopienTest, MahnungNurFuerVersandteUnbezahlteFaelligeRechnungenUndHonorarnoten)
{
    const struct {
        const char *fall;
        int art;
        bool versandt;
        bool bezahlt;
        int faelligInTagen;
        bool angeboten;
    } faelle[] = {
        {"due invoice", 3, true, false, -1, true},
        {"fee note due today", 4, true, false, 0, true},
        {"draft", 3, false, false, -1, false},
        {"not yet due", 3, true, false, 1, false},
        {"paid", 3, true, true, -1, false},
        {"cover letter", 1, true, false, -1, false},
        {"quote", 2, true, false, -1, false},
        {"dunning letter", 5, true, false, -1, false},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        auto *r = quelle(1, QString::fromLatin1(fall.fall));
        r->setDokumentArt(Decimal(fall.art));
        r->setVersandt(fall.versandt);
        r->setBezahlt(fall.bezahlt);
        r->setFaelligkeitsDatum(kJetzt.addDays(fall.faelligInTagen));
        ASSERT_TRUE(moc().save());
        ansicht->setRechnung(r);
        ansicht->aktualisiereAnsicht();
        EXPECT_EQ(ansicht->mahnungButtonBox()->isVisibleTo(ansicht), fall.angeboten);
        if (fall.angeboten)
            continue;
        // Asked for anyway, from a menu: nothing is created.
        const qsizetype vorher = moc().fetch<FKRRechnung>().size();
        ansicht->erstelleMahnung();
        EXPECT_EQ(moc().fetch<FKRRechnung>().size(), vorher);
        EXPECT_EQ(ansicht->rechnung(), r);
    }
}

} // namespace
