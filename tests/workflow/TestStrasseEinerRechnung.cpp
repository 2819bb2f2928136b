// The roads of an invoice and a dunning letter through the main window, by keyboard and mouse.

#include "WorkflowTestSupport.h"

#include "FKREditorAbsenderTab.h"
#include "FKREditorBetragTab.h"
#include "FKREditorEmpfaengerTab.h"
#include "FKRDezimalFeld.h"

#include <QPdfDocument>
#include <QRadioButton>

using namespace workflowtest;

namespace {

class StrasseTest : public ProgrammTest
{
protected:
    using ProgrammTest::ProgrammTest;

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
    bool zeigtPdfMitSeiten()
    {
        QPdfDocument *pdf = fenster->ansichtViewController()->pdfDocument();
        return apptest::warteBis([&] { return pdf->status() == QPdfDocument::Status::Ready && pdf->pageCount() >= 1; },
                                 5000);
    }
    QList<FKRRechnung *> imBereich(int bereich)
    {
        QTest::mouseClick(fenster->menuViewController()->bereichsKnopf(bereich), Qt::LeftButton);
        return liste();
    }
    QList<FKRRechnung *> liste() { return fenster->listeViewController()->rechnungenListeArrayController().arranged<FKRRechnung>(); }
};

// The number's label, the item sum of 2 × 450 and the total with VAT per desktop language.
struct Sprache {
    const char *locale;
    QString nummer, summe, gesamt;
};

class StrasseInSprache : public StrasseTest, public ::testing::WithParamInterface<Sprache>
{
protected:
    StrasseInSprache() : StrasseTest(GetParam().locale) {}
};

INSTANTIATE_TEST_SUITE_P(Desktops, StrasseInSprache,
                         ::testing::Values(Sprache{"de_DE", u"Rechnung: "_s, u"€ 900,00"_s, u"€ 1.071,00"_s},
                                           Sprache{"en_US", u"Invoice: "_s, u"€ 900.00"_s, u"€ 1,071.00"_s}),
                         [](const auto &info) { return std::string(info.param.locale); });

TEST_P(StrasseInSprache, EineRechnungVomEntwurfBisBezahlt)
{
    const Sprache &sprache = GetParam();
    QTest::keyClick(fenster.get(), Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    auto *editorFenster = FKRRechnungsDetailsWindowController::aktuellesFenster();
    ASSERT_NE(editorFenster, nullptr);
    FKRRechnungsDetailsViewController &editor = *editorFenster->editor();
    FKRRechnung *rechnung = editor.rechnung();
    ASSERT_NE(rechnung, nullptr);
    EXPECT_EQ(rechnung->rechnungsNummer(), sprache.nummer);
    EXPECT_EQ(rechnung->faelligkeitsDatum()->date(), QDate::currentDate().addDays(14));
    EXPECT_FALSE(rechnung->isFaellig());

    // Items: the number completed, one item of 2 × 450 (a new item is one of something).
    QTest::keyClick(editor.postenTab()->rechnungsNummerTextField, Qt::Key_End);
    QTest::keyClicks(editor.postenTab()->rechnungsNummerTextField, u"2026-100"_s);
    QTest::mouseClick(editor.postenTab()->neuerPostenButton, Qt::LeftButton);
    bearbeiteZelle(editor, FKREditorPostenTab::kEinzelbetrag, u"450"_s);
    bearbeiteZelle(editor, FKREditorPostenTab::kAnzahl, u"2"_s);
    EXPECT_EQ(editor.postenTab()->postenTabRechnungsSummeTextField->text(), sprache.summe);

    // Amounts: gross with 19 % VAT. Then recipient and sender, each made for the document and named.
    QTest::mouseClick(editor.weiterButton(), Qt::LeftButton);
    QTest::mouseClick(editor.betragTab()->betragTabBruttoRadioButton, Qt::LeftButton);
    ersetze(editor.betragTab()->betragTabMwStSatzTextField, u"19"_s);
    EXPECT_EQ(rechnung->mwStSatz(), zahl("0.19"));
    EXPECT_EQ(editor.betragTab()->betragTabRechnungsSummeTextField->text(), sprache.gesamt);
    QTest::mouseClick(editor.weiterButton(), Qt::LeftButton);
    ASSERT_NE(rechnung->empfaenger(), nullptr);
    ersetze(editor.empfaengerTab()->empfaengerTabFirmaTextField, u"Nordlicht Verlag"_s);
    QTest::mouseClick(editor.weiterButton(), Qt::LeftButton);
    ersetze(editor.absenderTab()->absenderTabFirmaTextField, u"Lindqvist Design"_s);

    schliesseMitWeiter(editorFenster);
    EXPECT_FALSE(moc().hasChanges());
    EXPECT_EQ(rechnung->empfaenger()->firma(), u"Nordlicht Verlag"_s);
    fenster->listeViewController()->setSelectedObjects({rechnung});
    FKRRechnungsAnsichtViewController *ansicht = fenster->ansichtViewController();
    EXPECT_EQ(ansicht->rechnung(), rechnung);
    ASSERT_TRUE(zeigtPdfMitSeiten());

    klicke(ansicht->rechnungVersendetButtonBox());
    EXPECT_EQ(rechnung->versandt(), true);
    ASSERT_EQ(archivDateien().size(), 1);
    QFile datei(QDir(delegate->applicationArchiveDirectory()).filePath(archivDateien().first()));
    ASSERT_TRUE(datei.open(QIODevice::ReadOnly));
    EXPECT_EQ(rechnung->binaryPDF(), datei.readAll());

    // Paid: the date recorded, and the document is found in the paid area.
    klicke(ansicht->rechnungBezahltButtonBox());
    EXPECT_EQ(rechnung->bezahlt(), true);
    EXPECT_TRUE(rechnung->bezahltDatum().has_value());
    EXPECT_EQ(imBereich(3), QList<FKRRechnung *>{rechnung});
    EXPECT_FALSE(moc().hasChanges());
}

TEST_F(StrasseTest, EineFaelligeRechnungWirdZurMahnung)
{
    auto *kunde = moc().insertNewObject<FKREmpfaenger>();
    kunde->setFirma(u"Café Amsel"_s);
    auto *rechnung = dokument(u"Rechnung: 2026-019"_s);
    rechnung->setDokumentArt(3);
    rechnung->setEmpfaenger(kunde);
    rechnung->setFaelligkeitsDatum(QDateTime::currentDateTime().addDays(-3));
    rechnung->setVersandt(true), rechnung->setBezahlt(false);
    delegate->saveAction();

    ASSERT_EQ(imBereich(2), QList<FKRRechnung *>{rechnung});
    fenster->listeViewController()->setSelectedObjects({rechnung});
    FKRRechnungsAnsichtViewController *ansicht = fenster->ansichtViewController();
    ASSERT_TRUE(ansicht->mahnungButtonBox()->isVisible());
    klicke(ansicht->mahnungButtonBox());

    auto *editorFenster = FKRRechnungsDetailsWindowController::aktuellesFenster();
    ASSERT_NE(editorFenster, nullptr);
    FKRRechnung *mahnung = editorFenster->editor()->rechnung();
    ASSERT_NE(mahnung, rechnung);
    EXPECT_EQ(mahnung->empfaenger(), kunde);
    schliesseMitWeiter(editorFenster);

    // Sent and archived; in the drafts area the row and the view stay until the area changes.
    fenster->listeViewController()->setSelectedObjects({mahnung});
    ASSERT_EQ(ansicht->rechnung(), mahnung);
    ASSERT_TRUE(zeigtPdfMitSeiten());
    klicke(ansicht->rechnungVersendetButtonBox());
    ASSERT_EQ(archivDateien().size(), 1);
    EXPECT_EQ(ansicht->rechnung(), mahnung);
    // Paid: both documents can now be found where they belong, the source still unpaid and due.
    klicke(ansicht->rechnungBezahltButtonBox());
    EXPECT_EQ(imBereich(3), QList<FKRRechnung *>{mahnung});
    EXPECT_EQ(imBereich(2), QList<FKRRechnung *>{rechnung});
}

} // namespace
