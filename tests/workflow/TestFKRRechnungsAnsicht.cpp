// The document view: the actions each state offers, the one-way send, paid and printing.

#include "WorkflowTestSupport.h"

#include "FKRDokumentZuGross.h"
#include "Testbilder.h"

#include <QDateTimeEdit>
#include <QPdfDocument>
#include <QPrinter>

#include <functional>

using namespace workflowtest;

namespace {

const QDateTime kJetzt(QDate(2026, 3, 11), QTime(9, 30));
const QColor kRot(235, 10, 0);
const QColor kErledigt(0, 0, 0, 102);

class AnsichtTest : public FensterTest
{
protected:
    void SetUp() override { FKRUhr::halteAn(kJetzt), baueHauptfenster(); }

    FKRRechnung *dokument(const QString &nummer, int anzahlPosten = 1)
    {
        auto *r = FensterTest::dokument(nummer);
        r->setAbsender(moc().insertNewObject<FKRAbsender>());
        r->setEmpfaenger(moc().insertNewObject<FKREmpfaenger>());
        r->setRechnungsDatum(kJetzt.addDays(-20));
        r->setFaelligkeitsDatum(kJetzt.addDays(14));
        for (int nummer = 1; nummer <= anzahlPosten; ++nummer) {
            auto *p = moc().insertNewObject<FKRPosten>();
            p->setPostenBezeichnung(u"Leistung %1"_s.arg(nummer));
            p->setAnzahl(Decimal(2));
            p->setEinzelbetrag(zahl("45.50"));
            p->setRechnung(r);
        }
        EXPECT_TRUE(moc().save());
        return r;
    }
    void zeige(FKRRechnung *r) { ansicht->setRechnung(r); ansicht->aktualisiereAnsicht(); }
    QString angezeigterText() const
    {
        QString text;
        for (int seite = 0; seite < ansicht->pdfDocument()->pageCount(); ++seite)
            text += ansicht->pdfDocument()->getAllText(seite).text();
        return text;
    }
    // "!": the open step, "✓": done.
    QString aktionen() const
    {
        const std::pair<const char *, FKRAnsichtAktionsBox *> boxen[] = {
            {"duplizieren", ansicht->duplizierenButtonBox()}, {"mahnung", ansicht->mahnungButtonBox()},
            {"sichern", ansicht->sichernButtonBox()},         {"drucken", ansicht->druckenButtonBox()},
            {"versendet", ansicht->rechnungVersendetButtonBox()}, {"bezahlt", ansicht->rechnungBezahltButtonBox()},
            {"unbezahlt", ansicht->rechnungUnbezahltButtonBox()}};
        QStringList sichtbar;
        for (const auto &[name, box] : boxen)
            if (box->isVisibleTo(ansicht))
                sichtbar << QString::fromLatin1(name)
                                + (box->labelFarbe() == kRot ? u"!"_s : box->labelFarbe() == kErledigt ? u"✓"_s : u""_s);
        if (ansicht->rechnungBezahltDatePicker()->isVisibleTo(ansicht))
            sichtbar << u"datum"_s;
        return sichtbar.join(u' ');
    }
};

TEST_F(AnsichtTest, AktionenUndFarbenFolgenDemZustand)
{
    const QDateTime eingang(QDate(2026, 3, 2), QTime(12, 0));
    const struct {
        const char *fall;
        std::optional<bool> versandt, bezahlt;
        int faelligInTagen;
        std::optional<QDateTime> bezahltAm;
        QString aktionen;
        int art = 3;
    } faelle[] = {
        {"draft", false, false, 14, {}, u"duplizieren sichern drucken versendet!"_s},
        {"draft due", false, false, -1, {}, u"duplizieren sichern drucken versendet!"_s},
        {"sent", true, false, 14, {}, u"duplizieren sichern drucken versendet✓ bezahlt!"_s},
        // Dunning letters are for due invoices and fee notes only.
        {"due today", true, false, 0, {}, u"duplizieren mahnung! sichern drucken versendet✓ bezahlt!"_s},
        {"fee note due", true, false, -1, {}, u"duplizieren mahnung! sichern drucken versendet✓ bezahlt!"_s, 4},
        {"quote due", true, false, -1, {}, u"duplizieren sichern drucken versendet✓ bezahlt!"_s, 2},
        {"paid", true, true, -1, eingang, u"duplizieren sichern drucken versendet✓ bezahlt✓ unbezahlt datum"_s},
        {"paid without a date", true, true, -1, {}, u"duplizieren sichern drucken versendet✓ bezahlt✓ unbezahlt"_s},
    };
    auto *r = dokument(u"Rechnung: 17"_s);
    zeige(r);
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        r->setVersandt(fall.versandt);
        r->setBezahlt(fall.bezahlt);
        r->setFaelligkeitsDatum(kJetzt.addDays(fall.faelligInTagen));
        r->setBezahltDatum(fall.bezahltAm);
        r->setDokumentArt(Decimal(fall.art));
        ansicht->aktualisiereAnsicht();
        EXPECT_EQ(aktionen(), fall.aktionen);
        if (fall.aktionen.endsWith(u"datum"_s))
            EXPECT_EQ(ansicht->rechnungBezahltDatePicker()->dateTime(), *fall.bezahltAm);
    }
}

TEST_F(AnsichtTest, EinDokumentJenseitsDerGrenzenSagtWarumDieAnsichtLeerBleibt)
{
    const struct {
        const char *fall;
        std::function<void(FKRRechnung &)> aendere;
        QString alert;
    } faelle[] = {
        {"too much text", [](FKRRechnung &r) { r.setRechnungsText(QString(FKRDokumentZuGross::kMaxZeichen + 1, u'x')); },
         u"ALERT_TEXT_DOKUMENT_ZU_GROSS"_s},
        {"a signature of 40000 x 40000 pixels",
         [](FKRRechnung &r) { r.absender()->setUnterschriftImageBinary(testbilder::jpegMitKopf({40000, 40000})); },
         u"ALERT_TEXT_ABSENDERBILD_ZU_GROSS"_s},
        {"an ordinary document after them is shown without a word", [](FKRRechnung &) {}, {}},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        FKRRechnung *r = dokument(u"Rechnung: 19"_s);
        fall.aendere(*r);
        presenter.alerts.clear();
        zeige(r);
        EXPECT_EQ(presenter.alertTexte(), fall.alert.isEmpty() ? QStringList() : QStringList{fall.alert});
        EXPECT_EQ(angezeigterText().contains(u"Rechnung: 19"_s), fall.alert.isEmpty());
    }
}

TEST_F(AnsichtTest, BezahltMarkierenUndZuruecknehmen)
{
    auto *r = dokument(u"Rechnung: 18"_s);
    r->setVersandt(true);
    zeige(r);
    klicke(ansicht->rechnungBezahltButtonBox());
    EXPECT_EQ(r->bezahltDatum(), kJetzt);
    EXPECT_EQ(ansicht->rechnungBezahltDatePicker()->dateTime(), kJetzt);
    const QDateTime eingang(QDate(2026, 3, 2), QTime(12, 0));
    ansicht->rechnungBezahltDatePicker()->setDateTime(eingang);
    EXPECT_EQ(r->bezahltDatum(), eingang);
    EXPECT_FALSE(moc().hasChanges());

    klicke(ansicht->rechnungUnbezahltButtonBox());
    EXPECT_EQ(r->bezahlt(), false);
    EXPECT_EQ(r->bezahltDatum(), std::nullopt);
    EXPECT_FALSE(moc().hasChanges());
}

TEST_F(AnsichtTest, VersendenArchiviertEinmalFriertDasPDFEinUndDruckenGibtJedeSeiteAus)
{
    auto *r = dokument(u"RE/2026: 7"_s, 45);
    zeige(r);
    // Sending asks first; declined or closed, nothing is archived or stored.
    presenter.antworten = {kAlertAbgebrochen};
    klicke(ansicht->rechnungVersendetButtonBox());
    EXPECT_EQ(r->versandt(), false);
    EXPECT_EQ(r->binaryPDF(), std::nullopt);
    EXPECT_TRUE(archivDateien().isEmpty());
    // Confirmed, also without a value in the sent mark: a file name that sorts by date.
    r->setVersandt(std::nullopt);
    klicke(ansicht->rechnungVersendetButtonBox());
    ASSERT_EQ(r->versandt(), true);
    ASSERT_EQ(archivDateien(), QStringList{u"2026-03-11 09.30.00-RE-2026 7-archived.pdf"_s});
    QFile datei(delegate->applicationArchiveDirectory() + u"/"_s + archivDateien().first());
    ASSERT_TRUE(datei.open(QIODevice::ReadOnly));
    const QByteArray eingefroren = datei.readAll();
    EXPECT_FALSE(moc().hasChanges());
    FKRUhr::halteAn(kJetzt.addSecs(120));
    klicke(ansicht->rechnungVersendetButtonBox());
    EXPECT_EQ(presenter.alerts.size(), 2);
    EXPECT_EQ(archivDateien().size(), 1);

    r->empfaenger()->setFirma(u"Baumschule Krüger"_s);
    ASSERT_TRUE(moc().save());
    QCoreApplication::processEvents();
    ansicht->aktualisiereAnsicht();
    EXPECT_EQ(ansicht->angezeigtePDFDaten(), eingefroren);
    const QString ziel = heimat.pfad() + u"/druck.pdf"_s;
    ansicht->setDruckDialog([&](QPrinter &printer) {
        printer.setOutputFormat(QPrinter::PdfFormat), printer.setOutputFileName(ziel);
        return true;
    });
    klicke(ansicht->druckenButtonBox());
    QPdfDocument druck;
    ASSERT_EQ(druck.load(ziel), QPdfDocument::Error::None);
    EXPECT_EQ(druck.pageCount(), ansicht->pdfDocument()->pageCount());
    EXPECT_GE(druck.pageCount(), 2);
}

} // namespace
