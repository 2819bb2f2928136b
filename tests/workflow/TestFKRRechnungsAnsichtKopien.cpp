// Duplicate and dunning letter: what the copy takes over, its texts in the document's language.

#include "WorkflowTestSupport.h"

#include "../pdf/PdfPruefung.h"

#include <QPdfDocument>
#include <QPdfSelection>

using namespace workflowtest;

namespace {

const QDateTime kJetzt(QDate(2026, 3, 11), QTime(9, 30));
const QDateTime kRechnungsDatum(QDate(2026, 2, 1), QTime(8, 0));

class KopienTest : public FensterTest
{
protected:
    void SetUp() override { FKRUhr::halteAn(kJetzt), baueHauptfenster(); }

    FKRRechnung *quelle(qint64 sprache, const QString &nummer, int art = 3)
    {
        auto *r = dokument(nummer);
        r->setAbsender(moc().insertNewObject<FKRAbsender>()), r->setEmpfaenger(moc().insertNewObject<FKREmpfaenger>());
        r->setSprache(sprache);
        r->setDokumentArt(Decimal(art));
        r->setVersandt(true);
        r->setRechnungsDatum(kRechnungsDatum);
        r->setFaelligkeitsDatum(kRechnungsDatum.addDays(14));
        r->setRabatt(zahl("0.05")), r->setSkonto(zahl("0.02")), r->setSkontoZeitraum(8);
        for (int position : {2, 1}) {
            auto *p = moc().insertNewObject<FKRPosten>();
            p->setPostenNummer(position);
            p->setPostenBezeichnung(u"Leistung %1"_s.arg(position));
            p->setAnzahl(Decimal(position));
            p->setEinzelbetrag(zahl("80.00"));
            p->setMwStSatz(position == 2 ? std::optional(zahl("0.07")) : std::nullopt);
            p->setIstVorlage(position == 2);
            p->setRechnung(r);
        }
        EXPECT_TRUE(moc().save());
        ansicht->setRechnung(r);
        ansicht->aktualisiereAnsicht();
        return r;
    }
    void erwarteGeoeffneterEntwurf(FKRRechnung *kopie, FKRRechnung *original)
    {
        EXPECT_FALSE(moc().hasChanges());
        EXPECT_EQ(kopie->versandt(), false);
        EXPECT_EQ(kopie->empfaenger(), original->empfaenger());
        const auto angezeigt = liste->rechnungenListeArrayController().arranged<FKRRechnung>();
        EXPECT_TRUE(angezeigt.contains(kopie) && !angezeigt.contains(original));
        EXPECT_EQ(ansicht->rechnung(), kopie);
        ASSERT_NE(FKRRechnungsDetailsWindowController::aktuellesFenster(), nullptr);
        FKRRechnungsDetailsWindowController::aktuellesFenster()->close();
        QCoreApplication::processEvents();
    }
};

TEST_F(KopienTest, DuplikatIstEinUnversandterEntwurfMitDenselbenPosten)
{
    auto *original = quelle(1, u"Rechnung: 17"_s);
    klicke(ansicht->rechnungBezahltButtonBox());
    ASSERT_EQ(original->bezahlt(), true);
    // Shown once sent, its look of now was frozen: its own pages, not those shown before.
    ASSERT_TRUE(original->binaryPDF().has_value());
    EXPECT_TRUE(ansicht->pdfDocument()->getAllText(0).text().contains(u"Rechnung: 17"_s));

    klicke(ansicht->duplizierenButtonBox());
    FKRRechnung *kopie = ansicht->rechnung();
    ASSERT_NE(kopie, original);
    EXPECT_EQ(kopie->rechnungsNummer(), u"Rechnung: 17 Kopie"_s);
    EXPECT_EQ(kopie->bezahlt(), false);
    EXPECT_EQ(kopie->binaryPDF(), std::nullopt);
    EXPECT_EQ(kopie->rabatt(), zahl("0.05"));
    // Items are copied as plain items: a template's own VAT rate and its template mark stay behind.
    ASSERT_EQ(kopie->posten().size(), 2);
    for (FKRPosten *p : kopie->posten())
        EXPECT_TRUE(p->mwStSatz() == std::nullopt && p->istVorlage() == false);
    erwarteGeoeffneterEntwurf(kopie, original);
}

TEST_F(KopienTest, MahnungErinnertAnDieRechnungInIhrerSprache)
{
    const struct {
        qint64 sprache;
        int art;
        const char *nummer;
        int fristTage;
        QString mahnungsNummer, anrede, text;
        QStringList imPdf;
    } faelle[] = {
        {2, 3, "INV-9", 14, u"Reminder for: INV-9"_s, u"Dear Sir or Madam,"_s,
         u"Perhaps it has escaped your notice: our invoice no. INV-9 dated Feb 1, 2026 was due for payment on "
         u"Feb 15, 2026, but we have not yet received your payment. We kindly ask you to transfer the amount "
         u"listed below by the date given."_s,
         {u"Reminder for: INV-9"_s, u"Dear Sir or Madam,"_s, u"invoice no. INV-9 dated Feb 1, 2026"_s,
          u"payment on Feb 15, 2026,"_s, u"is due on Mar 25, 2026"_s, u"please disregard this"_s, u"Kind regards"_s}},
        // The type label in front of the number is not repeated in the sentence.
        {1, 4, "Honorarnote: 17", 0, u"Mahnung für: Honorarnote: 17"_s, u"Sehr geehrte Damen und Herren,"_s,
         u"sicher ist es Ihrer Aufmerksamkeit entgangen: Unsere Honorarnote Nr. 17 vom 01.02.2026 war am 15.02.2026 "
         u"zur Zahlung fällig, ein Zahlungseingang ist bei uns jedoch noch nicht verbucht. Wir bitten Sie, den unten "
         u"aufgeführten Betrag bis zum genannten Datum zu überweisen."_s,
         {}},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.nummer);
        QBBenutzerEinstellungen::sharedInstance()->setMahnungZahlungsfristTage(fall.fristTage);
        auto *original = quelle(fall.sprache, QString::fromUtf8(fall.nummer), fall.art);
        klicke(ansicht->mahnungButtonBox());
        FKRRechnung *mahnung = ansicht->rechnung();
        ASSERT_NE(mahnung, original);
        EXPECT_EQ(mahnung->rechnungsNummer(), fall.mahnungsNummer);
        EXPECT_EQ(mahnung->dokumentArt(), Decimal(5));
        EXPECT_EQ(mahnung->faelligkeitsDatum(), kJetzt.addDays(fall.fristTage));
        EXPECT_EQ(mahnung->skonto(), Decimal(0));
        EXPECT_EQ(mahnung->rechnungsTextAnrede(), fall.anrede);
        EXPECT_EQ(mahnung->rechnungsText(), fall.text);
        EXPECT_EQ(original->dokumentArt(), Decimal(fall.art)); // the source stays as it was
        EXPECT_EQ(original->skonto(), zahl("0.02"));
        erwarteGeoeffneterEntwurf(mahnung, original);
        if (fall.imPdf.isEmpty())
            continue;
        // Its PDF names the invoice and neither thanks nor offers a cash discount.
        const QString ziel = heimat.pfad() + u"/mahnung.pdf"_s;
        presenter.speicherAntworten = {ziel};
        klicke(ansicht->sichernButtonBox());
        const PdfPruefung pdf(ziel);
        ASSERT_TRUE(pdf.gelesen()) << pdf.fehler().toStdString();
        for (const QString &phrase : fall.imPdf)
            EXPECT_TRUE(pdf.finde(1, phrase).has_value()) << phrase.toStdString() << "\n" << pdf.text(1).toStdString();
        EXPECT_FALSE(pdf.text(1).contains(u"cash discount"_s)) << pdf.text(1).toStdString();
    }
}

} // namespace
