// The document view through its buttons: the placeholder, which actions each state offers, the
// confirmed one-way send with its archive file and frozen PDF, paid and taking it back, the
// export, rendering only when something changed, and the help panel.

#include "WorkflowTestSupport.h"

#include "FKRAnsichtAktionsBox.h"
#include "FKRHilfeBox.h"
#include "FKRAbsender.h"
#include "FKRDokumentZuGross.h"
#include "FKREmpfaenger.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "FKRUhr.h"
#include "QBBenutzerEinstellungen.h"
#include "Testbilder.h"

#include <QDateTimeEdit>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPdfDocument>
#include <QPdfPageRenderer>
#include <QPdfSelection>
#include <QPdfView>
#include <QPrinter>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QToolButton>

#include <functional>

using namespace workflowtest;
using namespace Qt::Literals::StringLiterals;

namespace {

const QDateTime kJetzt(QDate(2026, 3, 11), QTime(9, 30));

class AnsichtTest : public FensterTest
{
protected:
    void SetUp() override
    {
        FKRUhr::halteAn(kJetzt);
        baueHauptfenster();
    }
    void TearDown() override { FKRUhr::laufeWeiter(); }

    FKRRechnung *dokument(const QString &nummer, const QString &empfaengerFirma = u"Gärtnerei Lehmann"_s)
    {
        auto *absender = moc().insertNewObject<FKRAbsender>();
        absender->setFirma(u"Brandt Webdesign"_s);
        auto *empfaenger = moc().insertNewObject<FKREmpfaenger>();
        empfaenger->setFirma(empfaengerFirma);
        auto *r = moc().insertNewObject<FKRRechnung>();
        r->setAbsender(absender);
        r->setEmpfaenger(empfaenger);
        r->setRechnungsNummer(nummer);
        r->setRechnungsDatum(kJetzt.addDays(-20));
        r->setFaelligkeitsDatum(kJetzt.addDays(14));
        posten(r, 1, u"Beratung"_s);
        EXPECT_TRUE(moc().save());
        return r;
    }
    FKRPosten *posten(FKRRechnung *r, qint64 nummer, const QString &bezeichnung)
    {
        auto *p = moc().insertNewObject<FKRPosten>();
        p->setPostenNummer(nummer);
        p->setPostenBezeichnung(bezeichnung);
        p->setAnzahl(Decimal(2));
        p->setEinzelbetrag(*Decimal::parse("45.50"));
        p->setRechnung(r);
        return p;
    }
    void zeige(FKRRechnung *r)
    {
        ansicht->setRechnung(r);
        ansicht->aktualisiereAnsicht();
    }
    static void klicke(FKRAnsichtAktionsBox *box) { QTest::mouseClick(box->knopf(), Qt::LeftButton); }
    bool sichtbar(const QWidget *w) const { return w->isVisibleTo(ansicht); }
    QString angezeigterText() const
    {
        QString text;
        for (int seite = 0; seite < ansicht->pdfDocument()->pageCount(); ++seite)
            text += ansicht->pdfDocument()->getAllText(seite).text();
        return text;
    }
    static QString pdfText(const QString &pfad)
    {
        QPdfDocument pdf;
        if (pdf.load(pfad) != QPdfDocument::Error::None)
            return {};
        return pdf.getAllText(0).text();
    }
    QStringList archivDateien() const
    {
        return QDir(delegate->applicationArchiveDirectory()).entryList(QDir::Files);
    }
    QList<FKRAnsichtAktionsBox *> alleBoxen() const
    {
        return {ansicht->duplizierenButtonBox(), ansicht->mahnungButtonBox(), ansicht->sichernButtonBox(),
                ansicht->druckenButtonBox(), ansicht->rechnungVersendetButtonBox(),
                ansicht->rechnungBezahltButtonBox(), ansicht->rechnungUnbezahltButtonBox()};
    }
};

const QColor kRot(235, 10, 0);
const QColor kErledigt(0, 0, 0, 102);

TEST_F(AnsichtTest, OhneDokumentNurDerPlatzhalterDerBenutzerspracheUndKeineAktion)
{
    QFile deutsch(u":/pdf/waehleRechnung.pdf"_s);
    ASSERT_TRUE(deutsch.open(QIODevice::ReadOnly));
    EXPECT_EQ(ansicht->angezeigtePDFDaten(), deutsch.readAll());
    EXPECT_EQ(ansicht->pdfDocument()->status(), QPdfDocument::Status::Ready);
    EXPECT_TRUE(angezeigterText().contains(u"Wähle ein Dokument"_s)) << angezeigterText().toStdString();
    for (auto *box : alleBoxen())
        EXPECT_FALSE(sichtbar(box)) << box->label()->text().toStdString();
    EXPECT_FALSE(sichtbar(ansicht->rechnungBezahltDatePicker()));

    // The menu may call every action without a document: nothing happens, nothing is asked.
    ansicht->markiereRechnungVersendet();
    ansicht->markiereRechnungBezahlt();
    ansicht->markiereRechnungUnbezahlt();
    ansicht->dupliziereRechnung();
    ansicht->erstelleMahnung();
    ansicht->sichereRechnungAlsPDF();
    bool gedruckt = false;
    ansicht->setDruckDialog([&](QPrinter &) { return gedruckt = true; });
    ansicht->druckeRechnung();
    EXPECT_FALSE(gedruckt);
    EXPECT_TRUE(presenter.speicherVorschlaege.isEmpty());
    EXPECT_TRUE(moc().fetch<FKRRechnung>().isEmpty());
    EXPECT_TRUE(archivDateien().isEmpty());

    // An English user gets the English placeholder.
    QLocale::setDefault(QLocale(u"en_US"_s));
    FKRLocalizationHelper::installiereHauptTabelle();
    ansicht->aktualisiereAnsicht();
    EXPECT_EQ(FKRRechnungsAnsichtViewController::platzhalterPfad(), u":/pdf/selectDocument.pdf"_s);
    EXPECT_TRUE(angezeigterText().contains(u"Choose a document"_s)) << angezeigterText().toStdString();
}

TEST_F(AnsichtTest, AktionenUndFarbenFolgenDemZustand)
{
    auto *r = dokument(u"Rechnung: 17"_s);
    zeige(r);
    // A draft: sent is the open step; paid and dunning are not offered yet.
    EXPECT_TRUE(angezeigterText().contains(u"Gärtnerei Lehmann"_s));
    EXPECT_TRUE(sichtbar(ansicht->rechnungVersendetButtonBox()));
    EXPECT_EQ(ansicht->rechnungVersendetButtonBox()->labelFarbe(), kRot);
    EXPECT_FALSE(sichtbar(ansicht->rechnungBezahltButtonBox()));
    EXPECT_FALSE(sichtbar(ansicht->mahnungButtonBox()));
    for (auto *box : {ansicht->duplizierenButtonBox(), ansicht->sichernButtonBox(), ansicht->druckenButtonBox()})
        EXPECT_TRUE(sichtbar(box));

    // Sent, unpaid, not yet due: the paid step opens, still no dunning letter.
    r->setVersandt(true);
    ansicht->aktualisiereAnsicht();
    EXPECT_EQ(ansicht->rechnungVersendetButtonBox()->labelFarbe(), kErledigt);
    EXPECT_TRUE(sichtbar(ansicht->rechnungBezahltButtonBox()));
    EXPECT_EQ(ansicht->rechnungBezahltButtonBox()->labelFarbe(), kRot);
    EXPECT_FALSE(sichtbar(ansicht->mahnungButtonBox()));
    EXPECT_FALSE(sichtbar(ansicht->rechnungBezahltDatePicker()));

    // Due since yesterday: the dunning letter is offered, in red.
    r->setFaelligkeitsDatum(kJetzt.addDays(-1));
    ansicht->aktualisiereAnsicht();
    EXPECT_TRUE(sichtbar(ansicht->mahnungButtonBox()));
    EXPECT_EQ(ansicht->mahnungButtonBox()->labelFarbe(), kRot);
}

TEST_F(AnsichtTest, EinDokumentJenseitsDerGrenzenSagtWarumDieAnsichtLeerBleibt)
{
    const struct
    {
        const char *fall;
        std::function<void(FKRRechnung &)> aendere;
        QString alert;
    } faelle[] = {
        {"too much text", [](FKRRechnung &r) { r.setRechnungsText(QString(FKRDokumentZuGross::kMaxZeichen + 1, u'x')); },
         u"ALERT_TEXT_DOKUMENT_ZU_GROSS"_s},
        {"a signature of 40000 x 40000 pixels",
         [](FKRRechnung &r) { r.absender()->setUnterschriftImageBinary(testbilder::jpegMitKopf({40000, 40000})); },
         u"ALERT_TEXT_ABSENDERBILD_ZU_GROSS"_s},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.fall);
        FKRRechnung *r = dokument(QString::fromLatin1(fall.fall));
        fall.aendere(*r);
        presenter.alerts.clear();
        zeige(r);
        EXPECT_EQ(presenter.alertTexte(), QStringList{fall.alert});
        EXPECT_EQ(presenter.alerts.value(0).titelSchluessel, u"ALERT_TITLE_HINWEIS"_s);
        EXPECT_EQ(ansicht->pdfDocument()->pageCount(), 0);
    }
    // An ordinary document after them is shown without a word.
    presenter.alerts.clear();
    zeige(dokument(u"Rechnung: 19"_s));
    EXPECT_TRUE(presenter.alerts.isEmpty());
    EXPECT_TRUE(angezeigterText().contains(u"Rechnung: 19"_s));
}

TEST_F(AnsichtTest, BezahltMarkierenUndZuruecknehmen)
{
    auto *r = dokument(u"Rechnung: 18"_s);
    r->setVersandt(true);
    zeige(r);
    EXPECT_FALSE(sichtbar(ansicht->rechnungUnbezahltButtonBox()));
    klicke(ansicht->rechnungBezahltButtonBox());
    EXPECT_EQ(r->bezahlt(), true);
    EXPECT_EQ(r->bezahltDatum(), kJetzt);
    EXPECT_EQ(ansicht->rechnungBezahltButtonBox()->labelFarbe(), kErledigt);
    EXPECT_TRUE(sichtbar(ansicht->rechnungUnbezahltButtonBox()));
    ASSERT_TRUE(sichtbar(ansicht->rechnungBezahltDatePicker()));
    EXPECT_EQ(ansicht->rechnungBezahltDatePicker()->dateTime(), kJetzt);
    EXPECT_FALSE(moc().hasChanges());

    // The user corrects the date in the picker: written and saved at once. Pressing "paid"
    // again changes nothing.
    const QDateTime eingang(QDate(2026, 3, 2), QTime(12, 0));
    ansicht->rechnungBezahltDatePicker()->setDateTime(eingang);
    FKRUhr::halteAn(kJetzt.addDays(1));
    klicke(ansicht->rechnungBezahltButtonBox());
    EXPECT_EQ(r->bezahlt(), true);
    EXPECT_EQ(r->bezahltDatum(), eingang);
    EXPECT_FALSE(moc().hasChanges());

    // Taken back: unpaid without a payment date, saved, and paid is the open step again.
    klicke(ansicht->rechnungUnbezahltButtonBox());
    EXPECT_EQ(r->bezahlt(), false);
    EXPECT_EQ(r->bezahltDatum(), std::nullopt);
    EXPECT_FALSE(moc().hasChanges());
    EXPECT_EQ(ansicht->rechnungBezahltButtonBox()->labelFarbe(), kRot);
    EXPECT_FALSE(sichtbar(ansicht->rechnungUnbezahltButtonBox()));
    EXPECT_FALSE(sichtbar(ansicht->rechnungBezahltDatePicker()));
    ansicht->markiereRechnungUnbezahlt();
    EXPECT_EQ(r->bezahlt(), false);

    // Paid once more records the new moment; so does a document whose paid mark holds no value.
    FKRUhr::halteAn(kJetzt.addDays(3));
    klicke(ansicht->rechnungBezahltButtonBox());
    EXPECT_EQ(r->bezahltDatum(), kJetzt.addDays(3));
    auto *ohneWert = dokument(u"Rechnung: 19"_s);
    ohneWert->setVersandt(true);
    ohneWert->setBezahlt(std::nullopt);
    ohneWert->setBezahltDatum(eingang); // an old date while unpaid is neither shown nor kept
    zeige(ohneWert);
    EXPECT_FALSE(sichtbar(ansicht->rechnungBezahltDatePicker()));
    klicke(ansicht->rechnungBezahltButtonBox());
    EXPECT_EQ(ohneWert->bezahlt(), true);
    EXPECT_EQ(ohneWert->bezahltDatum(), kJetzt.addDays(3));
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
        EXPECT_FALSE(moc().hasChanges());
        EXPECT_EQ(ansicht->rechnungVersendetButtonBox()->labelFarbe(), kRot);
    }
    ASSERT_EQ(presenter.alerts.size(), 2);
    const FKRAlert &frage = presenter.alerts.constFirst();
    EXPECT_EQ(frage.titelSchluessel, u"ALERT_TITLE_VERSENDEN"_s);
    EXPECT_EQ(frage.textSchluessel, u"ALERT_TEXT_VERSENDEN"_s);
    EXPECT_EQ(frage.knopfSchluessel, (QStringList{u"BUTTON_TITLE_VERSENDEN"_s, u"BUTTON_TITLE_ABBRECHEN"_s}));

    // Confirmed, also for a document whose sent mark held no value.
    r->setVersandt(std::nullopt);
    klicke(ansicht->rechnungVersendetButtonBox());
    ASSERT_EQ(r->versandt(), true);
    ASSERT_EQ(archivDateien().size(), 1);
    const QString archiv = archivDateien().constFirst();
    // One flat file name in the archive that sorts by date: no separator, no colon, no escapes.
    EXPECT_EQ(archiv, u"2026-03-11 09.30.00-RE-2026 7-archived.pdf"_s);
    QFile datei(delegate->applicationArchiveDirectory() + u"/"_s + archiv);
    ASSERT_TRUE(datei.open(QIODevice::ReadOnly));
    const QByteArray eingefroren = datei.readAll();
    EXPECT_EQ(r->binaryPDF(), eingefroren);
    EXPECT_EQ(ansicht->angezeigtePDFDaten(), eingefroren);
    EXPECT_FALSE(moc().hasChanges());

    // The second press neither asks, archives nor freezes again.
    FKRUhr::halteAn(kJetzt.addSecs(120));
    klicke(ansicht->rechnungVersendetButtonBox());
    EXPECT_EQ(presenter.alerts.size(), 3);
    EXPECT_EQ(archivDateien().size(), 1);
    EXPECT_EQ(r->binaryPDF(), eingefroren);

    // The recipient changes after sending: the view keeps the frozen PDF ...
    r->empfaenger()->setFirma(u"Baumschule Krüger"_s);
    ASSERT_TRUE(moc().save());
    QCoreApplication::processEvents();
    ansicht->aktualisiereAnsicht();
    EXPECT_EQ(ansicht->angezeigtePDFDaten(), eingefroren);
    EXPECT_TRUE(angezeigterText().contains(u"Gärtnerei Lehmann"_s));

    // ... but the export is rendered anew. The proposed name is a valid file name.
    const QString ziel = heimat.pfad() + u"/export.pdf"_s;
    presenter.speicherAntworten = {ziel};
    klicke(ansicht->sichernButtonBox());
    ASSERT_EQ(presenter.speicherVorschlaege.size(), 1);
    const QString vorschlag = presenter.speicherVorschlaege.constFirst();
    const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    EXPECT_TRUE(vorschlag.startsWith(downloads + u"/"_s)) << vorschlag.toStdString();
    EXPECT_EQ(vorschlag, downloads + u"/2026-03-11 09.32.00-RE-2026 7.pdf|pdf"_s);
    EXPECT_TRUE(pdfText(ziel).contains(u"Baumschule Krüger"_s));
    EXPECT_EQ(ansicht->angezeigtePDFDaten(), eingefroren);

    // Cancelling the save panel writes nothing.
    QFile::remove(ziel);
    klicke(ansicht->sichernButtonBox());
    EXPECT_EQ(presenter.speicherVorschlaege.size(), 2);
    EXPECT_FALSE(QFile::exists(ziel));
}

TEST_F(AnsichtTest, RendertNurWennSichEtwasGeaendertHat)
{
    auto *r = dokument(u"Rechnung: 19"_s);
    auto *andere = dokument(u"Rechnung: 20"_s);
    QSignalSpy renderings(ansicht, &FKRRechnungsAnsichtViewController::dokumentGerendert);
    zeige(r);
    EXPECT_EQ(renderings.size(), 1);

    // Layout passes, resizes and redisplays without news cost no rendering.
    splitView->resize(900, 700);
    QCoreApplication::processEvents();
    splitView->resize(1300, 900);
    zeige(r);
    ansicht->aktualisiereAnsicht();
    QCoreApplication::processEvents();
    EXPECT_EQ(renderings.size(), 1);

    // Edits are not rendered until they are saved; then once, however many saves came together.
    r->setRechnungsNummer(u"Rechnung: 19a"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(renderings.size(), 1);
    ASSERT_TRUE(moc().save());
    delegate->saveAction();
    EXPECT_EQ(renderings.size(), 1);
    ASSERT_TRUE(apptest::warteBis([&] { return renderings.size() == 2; }, 2000));
    QCoreApplication::processEvents();
    EXPECT_EQ(renderings.size(), 2);
    EXPECT_TRUE(angezeigterText().contains(u"19a"_s));

    // Another document and the paper size are news.
    zeige(andere);
    EXPECT_EQ(renderings.size(), 3);
    auto *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    const bool letter = einstellungen->pdfDocumentSizeIsLetter();
    einstellungen->setPdfDocumentSizeIsLetter(!letter);
    ASSERT_TRUE(apptest::warteBis([&] { return renderings.size() == 4; }, 2000));
    einstellungen->setPdfDocumentSizeIsLetter(letter);
    ASSERT_TRUE(apptest::warteBis([&] { return renderings.size() == 5; }, 2000));
}

TEST_F(AnsichtTest, ZeigtNieEineSeiteDesVorigenPDFs)
{
    auto *r = dokument(u"Rechnung: 22"_s);
    auto *seiten = ansicht->pdfView()->findChild<QPdfPageRenderer *>();
    ASSERT_NE(seiten, nullptr);
    QList<QPair<QSize, QImage>> bilder;
    QObject::connect(seiten, &QPdfPageRenderer::pageRendered, ansicht,
                     [&](int seite, QSize groesse, const QImage &bild) {
                         if (seite == 0)
                             bilder.append({groesse, bild});
                     });
    // The placeholder's page is asked for when it is painted; the document follows at once.
    ansicht->pdfView()->viewport()->grab();
    zeige(r);
    ASSERT_TRUE(apptest::warteBis([&] { return !bilder.isEmpty(); }, 2000));
    for (const auto &[groesse, bild] : bilder)
        EXPECT_TRUE(bild == ansicht->pdfDocument()->render(0, groesse));
}

TEST_F(AnsichtTest, DruckenGibtJedeSeiteDesAngezeigtenPDFsAus)
{
    auto *r = dokument(u"Rechnung: 21"_s);
    for (int i = 2; i <= 45; ++i)
        posten(r, i, u"Leistung %1"_s.arg(i));
    ASSERT_TRUE(moc().save());
    zeige(r);
    const int seiten = ansicht->pdfDocument()->pageCount();
    ASSERT_GE(seiten, 2);

    const QString ziel = heimat.pfad() + u"/druck.pdf"_s;
    ansicht->setDruckDialog([&](QPrinter &printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(ziel);
        return true;
    });
    klicke(ansicht->druckenButtonBox());
    QPdfDocument druck;
    ASSERT_EQ(druck.load(ziel), QPdfDocument::Error::None);
    EXPECT_EQ(druck.pageCount(), seiten);
    const QSizeF original = ansicht->pdfDocument()->pagePointSize(0);
    EXPECT_NEAR(druck.pagePointSize(0).width(), original.width(), 1.0);
    EXPECT_NEAR(druck.pagePointSize(0).height(), original.height(), 1.0);

    // A cancelled dialog prints nothing.
    QFile::remove(ziel);
    ansicht->setDruckDialog([](QPrinter &) { return false; });
    klicke(ansicht->druckenButtonBox());
    EXPECT_FALSE(QFile::exists(ziel));
}

TEST_F(AnsichtTest, HilfeLiegtUeberDerAnsichtUndSchliessenFragtDasHauptfenster)
{
    QSignalSpy hilfe(ansicht, &FKRRechnungsAnsichtViewController::hilfeGewaehlt);
    ansicht->zeigeHilfeBox();
    ASSERT_TRUE(ansicht->hilfeBox()->isVisible());
    EXPECT_EQ(ansicht->hilfeBox()->geometry(), ansicht->rect());
    EXPECT_FALSE(ansicht->hilfeBox()->textLabel()->text().startsWith(u"HILFE_"_s));

    QTest::mouseClick(ansicht->hilfeBox()->schliessenKnopf(), Qt::LeftButton);
    EXPECT_EQ(hilfe.size(), 0); // on the next turn of the event loop
    ASSERT_TRUE(hilfe.wait(2000));
    ansicht->zeigeHilfeBox();
    EXPECT_FALSE(ansicht->hilfeBox()->isVisible());
}

} // namespace
