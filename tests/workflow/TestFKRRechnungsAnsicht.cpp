// The document view through its buttons: the placeholder, which actions each state offers, the
// confirmed one-way send with its archive file and frozen PDF, paid and taking it back, the
// export and printing.

#include "WorkflowTestSupport.h"

#include "FKRDokumentZuGross.h"
#include "Testbilder.h"

#include <QDateTimeEdit>
#include <QPdfDocument>
#include <QPdfPageRenderer>
#include <QPdfSelection>
#include <QPdfView>
#include <QPrinter>
#include <QStandardPaths>

#include <functional>

using namespace workflowtest;

namespace {

const QDateTime kJetzt(QDate(2026, 3, 11), QTime(9, 30));
const QColor kRot(235, 10, 0);
const QColor kErledigt(0, 0, 0, 102);

class AnsichtTest : public FensterTest
{
protected:
    void SetUp() override
    {
        FKRUhr::halteAn(kJetzt);
        baueHauptfenster();
    }

    // Sender, recipient and items of 2 × 45.50, saved, due in two weeks.
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
    // The offered actions in order, "!" when red (the open step), "✓" when done; "datum" for
    // the payment date picker.
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

TEST_F(AnsichtTest, OhneDokumentNurPlatzhalterKeineAktion)
{
    EXPECT_TRUE(angezeigterText().contains(u"Wähle ein Dokument"_s)) << angezeigterText().toStdString();
    EXPECT_EQ(aktionen(), QString());

    // The menu may call every action without a document: nothing happens, nothing is asked.
    ansicht->markiereRechnungVersendet();
    ansicht->markiereRechnungBezahlt();
    ansicht->dupliziereRechnung();
    ansicht->erstelleMahnung();
    ansicht->sichereRechnungAlsPDF();
    EXPECT_TRUE(presenter.speicherVorschlaege.isEmpty());
    EXPECT_TRUE(moc().fetch<FKRRechnung>().isEmpty());

    setzeSprache("en_US");
    ansicht->aktualisiereAnsicht();
    EXPECT_TRUE(angezeigterText().contains(u"Choose a document"_s)) << angezeigterText().toStdString();
}

TEST_F(AnsichtTest, AktionenUndFarbenFolgenDemZustand)
{
    const QDateTime eingang(QDate(2026, 3, 2), QTime(12, 0));
    const struct {
        const char *fall;
        std::optional<bool> versandt, bezahlt;
        int faelligInTagen;
        std::optional<QDateTime> bezahltAm;
        QString aktionen;
    } faelle[] = {
        {"draft", false, false, 14, {}, u"duplizieren sichern drucken versendet!"_s},
        {"sent", true, false, 14, {}, u"duplizieren sichern drucken versendet✓ bezahlt!"_s},
        {"due today", true, false, 0, {}, u"duplizieren mahnung! sichern drucken versendet✓ bezahlt!"_s},
        {"due without a paid mark", true, std::nullopt, -1, {}, u"duplizieren sichern drucken versendet✓ bezahlt!"_s},
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
    // A date corrected in the picker is saved at once; pressing "paid" again changes nothing.
    const QDateTime eingang(QDate(2026, 3, 2), QTime(12, 0));
    ansicht->rechnungBezahltDatePicker()->setDateTime(eingang);
    FKRUhr::halteAn(kJetzt.addDays(1));
    klicke(ansicht->rechnungBezahltButtonBox());
    EXPECT_EQ(r->bezahltDatum(), eingang);
    EXPECT_FALSE(moc().hasChanges());

    klicke(ansicht->rechnungUnbezahltButtonBox());
    EXPECT_EQ(r->bezahlt(), false);
    EXPECT_EQ(r->bezahltDatum(), std::nullopt);
    EXPECT_FALSE(moc().hasChanges());
    // Paid once more records the new moment, also when the paid mark holds no value.
    r->setBezahlt(std::nullopt);
    klicke(ansicht->rechnungBezahltButtonBox());
    EXPECT_EQ(r->bezahlt(), true);
    EXPECT_EQ(r->bezahltDatum(), kJetzt.addDays(1));
}

TEST_F(AnsichtTest, VersendenArchiviertEinmalUndFriertDasPDFEin)
{
    auto *r = dokument(u"RE/2026: 7"_s);
    zeige(r);
    // Sending asks first; declined or closed, nothing is archived or stored.
    for (const int antwort : {kZweiterKnopf, kAlertAbgebrochen}) {
        presenter.antworten = {antwort};
        klicke(ansicht->rechnungVersendetButtonBox());
        EXPECT_EQ(r->versandt(), false);
        EXPECT_EQ(r->binaryPDF(), std::nullopt);
        EXPECT_TRUE(archivDateien().isEmpty());
    }
    // Confirmed, also without a value in the sent mark: one flat file name that sorts by date.
    r->setVersandt(std::nullopt);
    klicke(ansicht->rechnungVersendetButtonBox());
    ASSERT_EQ(r->versandt(), true);
    ASSERT_EQ(archivDateien(), QStringList{u"2026-03-11 09.30.00-RE-2026 7-archived.pdf"_s});
    QFile datei(delegate->applicationArchiveDirectory() + u"/"_s + archivDateien().first());
    ASSERT_TRUE(datei.open(QIODevice::ReadOnly));
    const QByteArray eingefroren = datei.readAll();
    EXPECT_EQ(r->binaryPDF(), eingefroren);
    EXPECT_FALSE(moc().hasChanges());
    // The second press neither asks, archives nor freezes again.
    FKRUhr::halteAn(kJetzt.addSecs(120));
    klicke(ansicht->rechnungVersendetButtonBox());
    EXPECT_EQ(presenter.alerts.size(), 3);
    EXPECT_EQ(archivDateien().size(), 1);

    // A later change of the recipient: the view keeps the frozen PDF, the export is rendered anew.
    r->empfaenger()->setFirma(u"Baumschule Krüger"_s);
    ASSERT_TRUE(moc().save());
    QCoreApplication::processEvents();
    ansicht->aktualisiereAnsicht();
    EXPECT_EQ(ansicht->angezeigtePDFDaten(), eingefroren);
    const QString ziel = heimat.pfad() + u"/export.pdf"_s;
    presenter.speicherAntworten = {ziel};
    klicke(ansicht->sichernButtonBox());
    const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    EXPECT_EQ(presenter.speicherVorschlaege, QStringList{downloads + u"/2026-03-11 09.32.00-RE-2026 7.pdf|pdf"_s});
    QPdfDocument export_;
    ASSERT_EQ(export_.load(ziel), QPdfDocument::Error::None);
    EXPECT_TRUE(export_.getAllText(0).text().contains(u"Baumschule Krüger"_s));
}

TEST_F(AnsichtTest, ZeigtNieEineSeiteDesVorigenPDFs)
{
    auto *r = dokument(u"Rechnung: 22"_s);
    auto *seiten = ansicht->pdfView()->findChild<QPdfPageRenderer *>();
    ASSERT_NE(seiten, nullptr);
    QList<QPair<QSize, QImage>> bilder;
    QObject::connect(seiten, &QPdfPageRenderer::pageRendered, ansicht,
                     [&](int seite, QSize groesse, const QImage &bild) { seite == 0 ? bilder.append({groesse, bild}) : void(); });
    // The placeholder's page is asked for when it is painted; the document follows at once.
    ansicht->pdfView()->viewport()->grab();
    zeige(r);
    ASSERT_TRUE(apptest::warteBis([&] { return !bilder.isEmpty(); }, 2000));
    for (const auto &[groesse, bild] : bilder)
        EXPECT_TRUE(bild == ansicht->pdfDocument()->render(0, groesse));
}

TEST_F(AnsichtTest, DruckenGibtJedeSeiteDesAngezeigtenPDFsAus)
{
    zeige(dokument(u"Rechnung: 21"_s, 45));
    const int seiten = ansicht->pdfDocument()->pageCount();
    ASSERT_GE(seiten, 2);

    const QString ziel = heimat.pfad() + u"/druck.pdf"_s;
    for (const bool bestaetigt : {false, true}) {
        ansicht->setDruckDialog([&](QPrinter &printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(ziel);
            return bestaetigt;
        });
        klicke(ansicht->druckenButtonBox());
        EXPECT_EQ(QFile::exists(ziel), bestaetigt);
    }
    QPdfDocument druck;
    ASSERT_EQ(druck.load(ziel), QPdfDocument::Error::None);
    EXPECT_EQ(druck.pageCount(), seiten);
}

} // namespace
