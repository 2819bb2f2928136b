// The document editor: recipient and sender, type and language relabelling the number, items.

#include "WorkflowTestSupport.h"

#include "FKREditorEmpfaengerTab.h"
#include "FKREditorStatusTab.h"
#include "FKRTabellenAuswahl.h"

#include <QButtonGroup>
#include <QPdfDocument>
#include <QTabBar>

using namespace workflowtest;

namespace {

class EditorTest : public FensterTest
{
protected:
    FKRRechnungsDetailsViewController &oeffne(FKRRechnung *rechnung)
    {
        moc().save();
        fenster = FKRRechnungsDetailsWindowController::oeffne(*delegate, rechnung, ansicht, nullptr);
        return *fenster->editor();
    }
    void klickeTab(FKRRechnungsDetailsViewController &editor, int index)
    {
        QTabBar *leiste = editor.tabView()->findChild<QTabBar *>();
        QTest::mouseClick(leiste, Qt::LeftButton, {}, leiste->tabRect(index).center());
        ASSERT_EQ(editor.tabView()->currentIndex(), index);
    }

    QPointer<FKRRechnungsDetailsWindowController> fenster;
};

TEST_F(EditorTest, DokumentOhneEmpfaengerBekommtNeuenOderDenErstenNachFirmaUndName)
{
    FKRRechnung *erstes = dokument(u"Rechnung: 17"_s);
    FKRRechnungsDetailsViewController &editor = oeffne(erstes);
    EXPECT_EQ(erstes->empfaenger(), nullptr);
    klickeTab(editor, 2);
    ASSERT_NE(erstes->empfaenger(), nullptr);
    EXPECT_EQ(erstes->absender()->name(), u"Neuer Absender"_s);
    EXPECT_EQ(erstes->empfaenger()->name(), u"Neuer Empfänger"_s);
    EXPECT_FALSE(moc().hasChanges());
    fenster->close();
    moc().deleteObject(erstes->empfaenger());

    // Otherwise the first by company, then name, both without regard to case.
    FKREmpfaenger *erwartet = nullptr;
    for (const auto &[firma, name] :
         {std::pair{u"Beta GmbH"_s, u"Anna"_s}, {u"alpha AG"_s, u"Zora"_s}, {u"Alpha AG"_s, u"Bert"_s}}) {
        erwartet = moc().insertNewObject<FKREmpfaenger>();
        erwartet->setFirma(firma);
        erwartet->setName(name);
    }
    FKRRechnung *zweites = dokument(u"Rechnung: 18"_s);
    FKRRechnungsDetailsViewController &zweiter = oeffne(zweites);
    klickeTab(zweiter, 1);
    EXPECT_EQ(zweites->empfaenger(), erwartet);
    QTest::mouseClick(zweiter.empfaengerTab()->empfaengerLoeschenButton, Qt::LeftButton);
    EXPECT_TRUE(erwartet->isDeleted());
    ASSERT_NE(zweites->empfaenger(), nullptr);
}

TEST_F(EditorTest, PostenWerdenDurchgezaehltNeuerPostenBekommtAnzahlPlusEinsLoeschenFragt)
{
    FKRRechnung *rechnung = dokument(u"Rechnung: 17"_s);
    QList<FKRPosten *> posten;
    for (qint64 nummer : {0, 0, 5, 0}) {
        posten.append(moc().insertNewObject<FKRPosten>());
        posten.last()->setPostenNummer(nummer);
        posten.last()->setRechnung(nummer || posten.size() < 3 ? rechnung : nullptr); // the last is another's
    }
    FKRRechnungsDetailsViewController &editor = oeffne(rechnung);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(posten[i]->postenNummer(), (QList<qint64>{1, 2, 5, 0}[i])) << i;
    QTest::mouseClick(editor.postenTab()->neuerPostenButton, Qt::LeftButton);
    ASSERT_EQ(rechnung->posten().size(), 4);
    FKRPosten *neu = static_cast<FKRPosten *>(editor.postenTab()->auswahl().ausgewaehlteObjekte().value(0));
    EXPECT_EQ(neu->postenNummer(), qint64(4));
    EXPECT_EQ(neu->anzahl(), Decimal(1));
    EXPECT_EQ(neu->postenBezeichnung(), std::nullopt);
    EXPECT_FALSE(moc().hasChanges());

    // A description shows on one line; a value that is no number is shown and edited as empty.
    posten[0]->setPostenBeschreibung(u"Beratung\nvor Ort"_s);
    posten[0]->setEinzelbetrag(Decimal::notANumber());
    const FKRArrayController &zeilen = editor.rechnungsPostenArrayController();
    const int zeile = zeilen.rowOf(posten[0]);
    EXPECT_EQ(zeilen.index(zeile, FKREditorPostenTab::kBeschreibung).data(), u"Beratung vor Ort"_s);
    EXPECT_EQ(zeilen.index(zeile, FKREditorPostenTab::kEinzelbetrag).data(Qt::EditRole), QString());
    static_cast<FKROffenerEditor &>(editor).waehlePostenAus(posten[0]);
    QTest::mouseClick(editor.postenTab()->loeschePostenButton, Qt::LeftButton);
    EXPECT_EQ(presenter.alertTexte(), QStringList{u"ALERT_TEXT_DELETE"_s});
    EXPECT_TRUE(posten[0]->isDeleted());
    EXPECT_FALSE(moc().hasChanges());
}

// Through the tabs with "Weiter" is the invoice's road; here the number the user typed is relabelled.
TEST_F(EditorTest, DieSpracheBenenntDieGetippteNummerUm)
{
    baueHauptfenster();
    FKRRechnung *rechnung = dokument(u"Rechnung: 17"_s);
    FKRRechnungsDetailsViewController &editor = oeffne(rechnung);
    QTest::keyClicks(editor.postenTab()->rechnungsNummerTextField, u"-A"_s);

    // The language segment relabels the number and saves, and the document view follows at once.
    ansicht->setRechnung(rechnung);
    ansicht->aktualisiereAnsicht();
    editor.statusTab()->dokumentenSpracheSegmente->button(FKREditorStatusTab::kEnglisch)->click();
    EXPECT_EQ(editor.postenTab()->rechnungsNummerTextField->text(), u"Invoice: 17-A"_s);
    EXPECT_FALSE(moc().hasChanges());
    EXPECT_TRUE(apptest::warteBis([&] {
        QCoreApplication::processEvents();
        QPdfDocument *pdf = ansicht->pdfDocument();
        return pdf->status() == QPdfDocument::Status::Ready && pdf->getAllText(0).text().contains(u"Invoice: 17-A"_s);
    }, 5000));
}

} // namespace
