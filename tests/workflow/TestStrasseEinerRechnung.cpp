// The road of one invoice and of a dunning letter through the real main window, with the
// keyboard and the mouse: new document, editor, PDF view, sent (archived and frozen), paid.

#include "WorkflowTestSupport.h"

#include "FKRAnsichtAktionsBox.h"
#include "FKRAppWindowController.h"
#include "FKRArrayController.h"
#include "FKRDezimalFeld.h"
#include "FKREditorAbsenderTab.h"
#include "FKREditorBetragTab.h"
#include "FKREditorEmpfaengerTab.h"
#include "FKREditorPostenTab.h"
#include "FKREmpfaenger.h"
#include "FKRMenuKnopf.h"
#include "FKRRechnung.h"
#include "FKRRechnungsDetailsViewController.h"
#include "FKRRechnungsDetailsWindowController.h"

#include <QDir>
#include <QLineEdit>
#include <QPdfDocument>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QToolButton>

using namespace workflowtest;
using namespace Qt::Literals::StringLiterals;

namespace {

Decimal zahl(const char *text)
{
    return *Decimal::parse(text);
}

class StrasseTest : public FensterTest
{
protected:
    // The whole program on a desktop of the given locale.
    explicit StrasseTest(const char *locale = "de_DE")
    {
        QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
        FKRLocalizationHelper::installiereHauptTabelle();
        fenster = std::make_unique<FKRAppWindowController>(*delegate);
        delegate->setFensterSchicht(fenster.get());
        fenster->show();
        QApplication::setActiveWindow(fenster.get());
    }
    ~StrasseTest() override
    {
        delegate->setFensterSchicht(nullptr);
        fenster.reset();
        QLocale::setDefault(QLocale(u"de_DE"_s));
        FKRLocalizationHelper::installiereHauptTabelle();
    }

    static void ersetze(QWidget *feld, const QString &text)
    {
        QTest::keyClick(feld, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(feld, text);
    }

    static void bearbeiteZelle(FKRRechnungsDetailsViewController &editor, int spalte, const QString &text)
    {
        QTableView *tabelle = editor.postenTab()->postenTableView;
        const QModelIndex zelle = editor.rechnungsPostenArrayController().index(0, spalte);
        tabelle->setCurrentIndex(zelle);
        tabelle->edit(zelle);
        QWidget *feld = tabelle->indexWidget(zelle);
        ASSERT_NE(feld, nullptr);
        ersetze(feld, text);
        QTest::keyClick(feld, Qt::Key_Return);
        QCoreApplication::processEvents();
    }

    static void klicke(FKRAnsichtAktionsBox *box)
    {
        ASSERT_TRUE(box->isVisible());
        QTest::mouseClick(box->knopf(), Qt::LeftButton);
    }

    // Next until the editor's last tab closes its window.
    static void schliesseMitWeiter(FKRRechnungsDetailsWindowController *editorFenster)
    {
        QPointer<FKRRechnungsDetailsWindowController> offen(editorFenster);
        for (int i = 0; offen && i < 10; ++i) {
            QTest::mouseClick(offen->editor()->weiterButton(), Qt::LeftButton);
            QCoreApplication::processEvents();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(offen.isNull());
    }

    QStringList archivDateien() const
    {
        return QDir(delegate->applicationArchiveDirectory()).entryList({u"*-archived.pdf"_s}, QDir::Files);
    }

    bool zeigtPdfMitSeiten()
    {
        QPdfDocument *pdf = fenster->ansichtViewController()->pdfDocument();
        return apptest::warteBis([&] { return pdf->status() == QPdfDocument::Status::Ready && pdf->pageCount() >= 1; },
                                 5000);
    }

    QList<FKRRechnung *> liste() { return fenster->listeViewController()->rechnungenListeArrayController().arranged<FKRRechnung>(); }

    std::unique_ptr<FKRAppWindowController> fenster;
};

// What differs between a German and an English desktop on the road of one invoice.
struct Sprache {
    const char *locale;
    QString nummer;
    QString einzeln; // the item sum of 1 × 450, then of 2 × 450, then the total with VAT
    QString summe;
    QString gesamt;
};

class StrasseInSprache : public StrasseTest, public ::testing::WithParamInterface<Sprache>
{
protected:
    StrasseInSprache()
        : StrasseTest(GetParam().locale)
    {
    }
};

INSTANTIATE_TEST_SUITE_P(Desktops, StrasseInSprache,
                         ::testing::Values(Sprache{"de_DE", u"Rechnung: "_s, u"€ 450,00"_s, u"€ 900,00"_s, u"€ 1.071,00"_s},
                                           Sprache{"en_US", u"Invoice: "_s, u"€ 450.00"_s, u"€ 900.00"_s,
                                                   u"€ 1,071.00"_s}),
                         [](const auto &info) { return std::string(info.param.locale); });

TEST_P(StrasseInSprache, EineRechnungVomEntwurfBisBezahlt)
{
    const Sprache &sprache = GetParam();
    // Ctrl+Shift+N: a new document, opened in the editor.
    QTest::keyClick(fenster.get(), Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    auto *editorFenster = FKRRechnungsDetailsWindowController::aktuellesFenster();
    ASSERT_NE(editorFenster, nullptr);
    FKRRechnungsDetailsViewController &editor = *editorFenster->editor();
    FKRRechnung *rechnung = editor.rechnung();
    ASSERT_NE(rechnung, nullptr);
    EXPECT_EQ(rechnung->rechnungsNummer(), sprache.nummer);
    // Due in two weeks, so not listed as due on the day it is written.
    EXPECT_EQ(rechnung->faelligkeitsDatum()->date(), QDate::currentDate().addDays(14));
    EXPECT_FALSE(rechnung->isFaellig());

    // Items: the number completed, one item of 2 × 450 (a new item is one of something).
    QTest::keyClick(editor.postenTab()->rechnungsNummerTextField, Qt::Key_End);
    QTest::keyClicks(editor.postenTab()->rechnungsNummerTextField, u"2026-100"_s);
    QTest::mouseClick(editor.postenTab()->neuerPostenButton, Qt::LeftButton);
    bearbeiteZelle(editor, FKREditorPostenTab::kEinzelbetrag, u"450"_s);
    EXPECT_EQ(editor.postenTab()->postenTabRechnungsSummeTextField->text(), sprache.einzeln);
    bearbeiteZelle(editor, FKREditorPostenTab::kAnzahl, u"2"_s);
    EXPECT_EQ(editor.postenTab()->postenTabRechnungsSummeTextField->text(), sprache.summe);

    // Amounts: gross with 19 % VAT.
    QTest::mouseClick(editor.weiterButton(), Qt::LeftButton);
    QTest::mouseClick(editor.betragTab()->betragTabBruttoRadioButton, Qt::LeftButton);
    ersetze(editor.betragTab()->betragTabMwStSatzTextField, u"19"_s);
    EXPECT_EQ(rechnung->mwStSatz(), zahl("0.19"));
    EXPECT_EQ(editor.betragTab()->betragTabRechnungsSummeTextField->text(), sprache.gesamt);

    // Recipient and sender: the first of each is made for the document, then named.
    QTest::mouseClick(editor.weiterButton(), Qt::LeftButton);
    ASSERT_NE(rechnung->empfaenger(), nullptr);
    ersetze(editor.empfaengerTab()->empfaengerTabFirmaTextField, u"Nordlicht Verlag"_s);
    QTest::mouseClick(editor.weiterButton(), Qt::LeftButton);
    ASSERT_NE(rechnung->absender(), nullptr);
    ersetze(editor.absenderTab()->absenderTabFirmaTextField, u"Lindqvist Design"_s);

    // The last tab's next button closes the editor, which saves and shows the PDF.
    schliesseMitWeiter(editorFenster);
    EXPECT_FALSE(moc().hasChanges());
    EXPECT_EQ(rechnung->empfaenger()->firma(), u"Nordlicht Verlag"_s);
    fenster->listeViewController()->setSelectedObjects({rechnung});
    EXPECT_EQ(fenster->ansichtViewController()->rechnung(), rechnung);
    ASSERT_TRUE(zeigtPdfMitSeiten());

    // Sent: archived once, and the archive's bytes are what the document keeps.
    FKRRechnungsAnsichtViewController *ansicht = fenster->ansichtViewController();
    EXPECT_FALSE(ansicht->rechnungBezahltButtonBox()->isVisible());
    klicke(ansicht->rechnungVersendetButtonBox());
    EXPECT_EQ(rechnung->versandt(), true);
    const QStringList archiv = archivDateien();
    ASSERT_EQ(archiv.size(), 1);
    EXPECT_TRUE(archiv.first().contains(sprache.nummer.trimmed().chopped(1)));
    QFile datei(QDir(delegate->applicationArchiveDirectory()).filePath(archiv.first()));
    ASSERT_TRUE(datei.open(QIODevice::ReadOnly));
    EXPECT_EQ(rechnung->binaryPDF(), datei.readAll());

    // Paid: the date recorded, and the document is found in the paid area.
    klicke(ansicht->rechnungBezahltButtonBox());
    EXPECT_EQ(rechnung->bezahlt(), true);
    EXPECT_TRUE(rechnung->bezahltDatum().has_value());
    QTest::mouseClick(fenster->menuViewController()->bereichsKnopf(3), Qt::LeftButton);
    EXPECT_EQ(liste(), QList<FKRRechnung *>{rechnung});
    EXPECT_FALSE(moc().hasChanges());
}

TEST_F(StrasseTest, EineFaelligeRechnungWirdZurMahnung)
{
    auto *kunde = moc().insertNewObject<FKREmpfaenger>();
    kunde->setFirma(u"Café Amsel"_s);
    auto *rechnung = moc().insertNewObject<FKRRechnung>();
    rechnung->setDokumentArt(3);
    rechnung->setRechnungsNummer(u"Rechnung: 2026-019"_s);
    rechnung->setEmpfaenger(kunde);
    rechnung->setFaelligkeitsDatum(QDateTime::currentDateTime().addDays(-3));
    rechnung->setVersandt(true);
    rechnung->setBezahlt(false);
    delegate->saveAction();

    // The due area lists it; the view offers the dunning letter.
    QTest::mouseClick(fenster->menuViewController()->bereichsKnopf(2), Qt::LeftButton);
    ASSERT_EQ(liste(), QList<FKRRechnung *>{rechnung});
    fenster->listeViewController()->setSelectedObjects({rechnung});
    FKRRechnungsAnsichtViewController *ansicht = fenster->ansichtViewController();
    klicke(ansicht->mahnungButtonBox());

    // A new draft of type 5 opens in the editor, under the drafts area.
    auto *editorFenster = FKRRechnungsDetailsWindowController::aktuellesFenster();
    ASSERT_NE(editorFenster, nullptr);
    FKRRechnung *mahnung = editorFenster->editor()->rechnung();
    ASSERT_NE(mahnung, rechnung);
    EXPECT_EQ(mahnung->dokumentArt(), Decimal(5));
    EXPECT_EQ(mahnung->rechnungsNummer(), u"Mahnung für: Rechnung: 2026-019"_s);
    EXPECT_EQ(mahnung->empfaenger(), kunde);
    EXPECT_EQ(mahnung->rechnungsDatum()->date(), QDate::currentDate());
    EXPECT_TRUE(liste().contains(mahnung));
    EXPECT_FALSE(liste().contains(rechnung));
    schliesseMitWeiter(editorFenster);

    // Sent and archived, then paid: both documents can now be found where they belong.
    fenster->listeViewController()->setSelectedObjects({mahnung});
    ASSERT_EQ(ansicht->rechnung(), mahnung);
    ASSERT_TRUE(zeigtPdfMitSeiten());
    klicke(ansicht->rechnungVersendetButtonBox());
    ASSERT_EQ(archivDateien().size(), 1);
    EXPECT_TRUE(archivDateien().first().contains(u"Mahnung"_s));
    // Sent in the drafts area: the row and the view stay until the user changes the area.
    EXPECT_EQ(ansicht->rechnung(), mahnung);
    klicke(ansicht->rechnungBezahltButtonBox());
    QTest::mouseClick(fenster->menuViewController()->bereichsKnopf(3), Qt::LeftButton);
    EXPECT_EQ(liste(), QList<FKRRechnung *>{mahnung});
    // The source invoice is still unpaid and due.
    QTest::mouseClick(fenster->menuViewController()->bereichsKnopf(2), Qt::LeftButton);
    EXPECT_EQ(liste(), QList<FKRRechnung *>{rechnung});
}

} // namespace
