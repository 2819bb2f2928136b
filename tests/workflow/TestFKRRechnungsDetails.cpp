// The document editor in its window, driven through its controls: the recipient and sender a
// document is given, type change with the number relabelled and the dates relabelled, the
// numbering of items, the delete confirmation, the old layout code, and the next button that
// closes and saves.

#include "WorkflowTestSupport.h"

#include "FKRAbsender.h"
#include "FKRArrayController.h"
#include "FKREditorEmpfaengerTab.h"
#include "FKREditorPostenTab.h"
#include "FKREditorStatusTab.h"
#include "FKREmpfaenger.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "FKRRechnungsDetailsViewController.h"
#include "FKRRechnungsDetailsWindowController.h"
#include "FKRTabellenAuswahl.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPdfDocument>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>

using namespace workflowtest;
using namespace Qt::Literals::StringLiterals;

namespace {

class EditorTest : public FensterTest
{
protected:
    ~EditorTest() override
    {
        // Open editors save on closing, which needs the delegate that the base class removes.
        while (auto *offen = FKRRechnungsDetailsWindowController::aktuellesFenster())
            offen->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    FKRRechnung *dokument(const QString &nummer = u"Rechnung: 17"_s)
    {
        auto *r = moc().insertNewObject<FKRRechnung>();
        r->setRechnungsNummer(nummer);
        return r;
    }

    FKRRechnungsDetailsViewController &oeffne(FKRRechnung *rechnung, FKREmpfaenger *empfaenger = nullptr)
    {
        moc().save();
        fenster = FKRRechnungsDetailsWindowController::oeffne(*delegate, rechnung, ansicht, empfaenger);
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
    // No recipient and no sender exist: both are created under their translated names, at the
    // first change of tab, not merely by opening.
    FKRRechnung *erstes = dokument();
    FKRRechnungsDetailsViewController &editor = oeffne(erstes);
    EXPECT_EQ(erstes->empfaenger(), nullptr);
    klickeTab(editor, 2);
    ASSERT_NE(erstes->empfaenger(), nullptr);
    EXPECT_EQ(erstes->empfaenger()->name(), u"Neuer Empfänger"_s);
    ASSERT_NE(erstes->absender(), nullptr);
    EXPECT_EQ(erstes->absender()->name(), u"Neuer Absender"_s);
    EXPECT_EQ(editor.empfaengerTab()->empfaengerTabNameTextField->text(), u"Neuer Empfänger"_s);
    EXPECT_FALSE(moc().hasChanges());
    fenster->close();
    // Without a company it would sort before every other recipient.
    moc().deleteObject(erstes->empfaenger());

    // Recipients exist: the first by company, then name, both without regard to case.
    const auto empfaenger = [this](const QString &firma, const QString &name) {
        auto *e = moc().insertNewObject<FKREmpfaenger>();
        e->setFirma(firma);
        e->setName(name);
        return e;
    };
    empfaenger(u"Beta GmbH"_s, u"Anna"_s);
    empfaenger(u"alpha AG"_s, u"Zora"_s);
    FKREmpfaenger *erwartet = empfaenger(u"Alpha AG"_s, u"Bert"_s);
    FKRRechnung *zweites = dokument();
    FKRRechnungsDetailsViewController &zweiter = oeffne(zweites);
    klickeTab(zweiter, 1);
    EXPECT_EQ(zweites->empfaenger(), erwartet);
    EXPECT_EQ(zweiter.empfaengerTab()->auswahl().ausgewaehlteObjekte(), QList<ManagedObject *>{erwartet});
    EXPECT_EQ(zweiter.empfaengerTab()->empfaengerTabFirmaTextField->text(), u"Alpha AG"_s);

    // Typing into the address edits the chosen recipient; a click on another row makes that one
    // the document's recipient.
    QTest::keyClicks(zweiter.empfaengerTab()->empfaengerTabOrtTextField, u"Bremen"_s);
    EXPECT_EQ(erwartet->ort(), u"Bremen"_s);
    QTableView *tabelle = zweiter.empfaengerTab()->empfaengerTableView;
    const int zeile = zweiter.empfaengerArrayController().rowOf(
        zweiter.empfaengerArrayController().arranged<FKREmpfaenger>().last());
    QTest::mouseClick(tabelle->viewport(), Qt::LeftButton, {},
                      tabelle->visualRect(zweiter.empfaengerArrayController().index(zeile, 0)).center());
    EXPECT_EQ(zweites->empfaenger()->firma(), u"Beta GmbH"_s);
    QCoreApplication::processEvents();
    EXPECT_FALSE(moc().hasChanges());
}

TEST_F(EditorTest, TypwechselBenenntDieNummerUmUndBeschriftetDieDaten)
{
    FKRRechnung *rechnung = dokument(u"Rechnung: 2024-17"_s);
    rechnung->setDokumentArt(Decimal(3));
    FKRRechnungsDetailsViewController &editor = oeffne(rechnung);
    FKREditorStatusTab &status = *editor.statusTab();
    EXPECT_EQ(status.dokumentenArtPopUpButton->currentData().toInt(), 3);
    klickeTab(editor, 5);
    EXPECT_EQ(status.datumTabLieferDatumLabel->text(), FKRLocalizationHelper::hauptTabellenText(u"Leistungs-Datum"_s));
    EXPECT_FALSE(status.datumTabLieferDatumDatePicker->isHidden());

    // One step up in the pop-up is the quote.
    QTest::keyClick(status.dokumentenArtPopUpButton, Qt::Key_Up);
    EXPECT_EQ(rechnung->dokumentArt(), Decimal(2));
    EXPECT_EQ(rechnung->rechnungsNummer(), u"Angebot: 2024-17"_s);
    EXPECT_EQ(editor.postenTab()->rechnungsNummerTextField->text(), u"Angebot: 2024-17"_s);
    EXPECT_EQ(status.datumTabRechnungsDatumLabel->text(), FKRLocalizationHelper::hauptTabellenText(u"Angebots-Datum"_s));
    EXPECT_EQ(status.datumTabFaelligkeitsDatumLabel->text(), FKRLocalizationHelper::hauptTabellenText(u"Gültig bis"_s));
    EXPECT_FALSE(status.datumTabFaelligkeitsDatumLabel->isHidden());
    EXPECT_TRUE(status.datumTabLieferDatumLabel->isHidden());
    EXPECT_TRUE(status.datumTabLieferDatumDatePicker->isHidden());
    EXPECT_FALSE(moc().hasChanges());

    // A cover letter shows only its date.
    QTest::keyClick(status.dokumentenArtPopUpButton, Qt::Key_Up);
    EXPECT_EQ(rechnung->rechnungsNummer(), u"Anschreiben: 2024-17"_s);
    EXPECT_EQ(status.datumTabRechnungsDatumLabel->text(), FKRLocalizationHelper::hauptTabellenText(u"Datum"_s));
    EXPECT_TRUE(status.datumTabFaelligkeitsDatumDatePicker->isHidden());

    // Choosing another day keeps the time of day of the stored date.
    rechnung->setFaelligkeitsDatum(QDateTime(QDate(2024, 5, 2), QTime(9, 30)));
    QTest::keyClick(status.dokumentenArtPopUpButton, Qt::Key_Down);
    status.datumTabFaelligkeitsDatumDatePicker->setFocus();
    status.datumTabFaelligkeitsDatumDatePicker->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClick(status.datumTabFaelligkeitsDatumDatePicker, Qt::Key_Up);
    EXPECT_EQ(rechnung->faelligkeitsDatum(), QDateTime(QDate(2024, 5, 3), QTime(9, 30)));
}

TEST_F(EditorTest, PostenOhneNummerWerdenDurchgezaehltUndNeuerPostenBekommtAnzahlPlusEins)
{
    FKRRechnung *rechnung = dokument();
    QList<FKRPosten *> posten;
    for (qint64 nummer : {0, 0, 5}) {
        auto *p = moc().insertNewObject<FKRPosten>();
        p->setPostenNummer(nummer);
        p->setRechnung(rechnung);
        posten.append(p);
    }
    auto *fremder = moc().insertNewObject<FKRPosten>();
    fremder->setPostenNummer(qint64(0));
    FKRRechnungsDetailsViewController &editor = oeffne(rechnung);
    EXPECT_EQ(editor.rechnungsPostenArrayController().rowCount(), 3);
    EXPECT_EQ(posten[0]->postenNummer(), qint64(1));
    EXPECT_EQ(posten[1]->postenNummer(), qint64(2));
    EXPECT_EQ(posten[2]->postenNummer(), qint64(5));
    EXPECT_EQ(fremder->postenNummer(), qint64(0)); // not an item of this document

    QTest::mouseClick(editor.postenTab()->neuerPostenButton, Qt::LeftButton);
    const QList<FKRPosten *> alle = rechnung->posten();
    ASSERT_EQ(alle.size(), 4);
    FKRPosten *neu = nullptr;
    for (FKRPosten *p : alle)
        if (!posten.contains(p))
            neu = p;
    ASSERT_NE(neu, nullptr);
    EXPECT_EQ(neu->postenNummer(), qint64(4));
    // One of something without texts: the editor shows hints, which the item never holds.
    EXPECT_EQ(neu->anzahl(), Decimal(1));
    EXPECT_EQ(neu->postenBezeichnung(), std::nullopt);
    EXPECT_EQ(neu->postenBeschreibung(), std::nullopt);
    const QModelIndex name = editor.rechnungsPostenArrayController().index(
        editor.rechnungsPostenArrayController().rowOf(neu), FKREditorPostenTab::kBezeichnung);
    EXPECT_EQ(name.data(Qt::DisplayRole), FKRLocalizationHelper::hauptTabellenText(u"EDITOR_PLATZHALTER_BEZEICHNUNG"_s));
    EXPECT_EQ(name.data(Qt::EditRole), QString());
    EXPECT_TRUE(name.data(Qt::ForegroundRole).isValid());
    EXPECT_EQ(editor.postenTab()->postenBeschreibungTextField->toPlainText(), QString());
    EXPECT_EQ(editor.postenTab()->postenBeschreibungTextField->placeholderText(),
              FKRLocalizationHelper::hauptTabellenText(u"EDITOR_PLATZHALTER_BESCHREIBUNG"_s));
    EXPECT_EQ(editor.postenTab()->auswahl().ausgewaehlteObjekte(), QList<ManagedObject *>{neu});
    EXPECT_FALSE(moc().hasChanges());

    // A named item shows its name.
    neu->setPostenBezeichnung(u"Beratung"_s);
    EXPECT_EQ(name.data(Qt::DisplayRole), u"Beratung"_s);
    EXPECT_FALSE(name.data(Qt::ForegroundRole).isValid());
}

TEST_F(EditorTest, LoeschenFragtUndAbbrechenBehaeltAlles)
{
    FKRRechnung *rechnung = dokument();
    auto *einzelposten = moc().insertNewObject<FKRPosten>();
    einzelposten->setRechnung(rechnung);
    FKRRechnungsDetailsViewController &editor = oeffne(rechnung);
    editor.postenTab()->waehleAus(einzelposten);

    presenter.antworten = {kZweiterKnopf};
    QTest::mouseClick(editor.postenTab()->loeschePostenButton, Qt::LeftButton);
    ASSERT_EQ(presenter.alerts.size(), 1);
    EXPECT_EQ(presenter.alerts[0].titelSchluessel, u"ALERT_TITLE_DELETE"_s);
    EXPECT_EQ(presenter.alerts[0].textSchluessel, u"ALERT_TEXT_DELETE"_s);
    EXPECT_EQ(presenter.alerts[0].knopfSchluessel, (QStringList{u"BUTTON_TITLE_OK"_s, u"BUTTON_TITLE_ABBRECHEN"_s}));
    EXPECT_FALSE(einzelposten->isDeleted());

    QTest::mouseClick(editor.postenTab()->loeschePostenButton, Qt::LeftButton);
    EXPECT_TRUE(einzelposten->isDeleted());
    EXPECT_EQ(editor.rechnungsPostenArrayController().rowCount(), 0);
    EXPECT_FALSE(moc().hasChanges());

    // Deleting the document's recipient gives it the next one at once.
    klickeTab(editor, 2);
    FKREmpfaenger *alt = rechnung->empfaenger();
    presenter.antworten = {kErsterKnopf};
    QTest::mouseClick(editor.empfaengerTab()->empfaengerLoeschenButton, Qt::LeftButton);
    EXPECT_TRUE(alt->isDeleted());
    ASSERT_NE(rechnung->empfaenger(), nullptr);
    EXPECT_NE(rechnung->empfaenger(), alt);
}

TEST_F(EditorTest, AltesFussleistenLayoutWirdAlsDreiGezeigtUndGespeichert)
{
    FKRRechnung *rechnung = dokument();
    rechnung->setLayout(Decimal(4));
    FKRRechnungsDetailsViewController &editor = oeffne(rechnung);
    klickeTab(editor, 5);
    EXPECT_EQ(rechnung->layout(), Decimal(3));
    EXPECT_EQ(editor.statusTab()->rechnungsLayoutPopUpButton->currentData().toInt(), 3);
    EXPECT_FALSE(moc().hasChanges());

    QTest::keyClick(editor.statusTab()->rechnungsLayoutPopUpButton, Qt::Key_Up);
    EXPECT_EQ(rechnung->layout(), Decimal(2));
    EXPECT_FALSE(moc().hasChanges());
}

TEST_F(EditorTest, WeiterFuehrtDurchAlleTabsUndSchliesstAmEndeMitSichern)
{
    baueHauptfenster();
    FKRRechnung *rechnung = dokument();
    FKRRechnungsDetailsViewController &editor = oeffne(rechnung);
    EXPECT_EQ(FKRRechnungsDetailsWindowController::aktuellesFenster(), fenster.data());
    EXPECT_EQ(editor.hilfeTextField()->text(), FKRLocalizationHelper::hauptTabellenText(u"HILFE_TEXT_POSTEN_TAB"_s));

    QTest::keyClicks(editor.postenTab()->rechnungsNummerTextField, u"-A"_s);
    for (int tab = 1; tab <= 5; ++tab) {
        QTest::mouseClick(editor.weiterButton(), Qt::LeftButton);
        EXPECT_EQ(editor.tabView()->currentIndex(), tab);
        EXPECT_EQ(editor.hilfeTextField()->text(),
                  FKRLocalizationHelper::hauptTabellenText(u"HILFE_TEXT_"_s
                                                           + FKRRechnungsDetailsViewController::tabIdentifier()[tab]));
    }
    EXPECT_EQ(rechnung->rechnungsNummer(), u"Rechnung: 17-A"_s);

    // The language segment relabels the number and saves, and the document view follows at once.
    ansicht->setRechnung(rechnung);
    ansicht->aktualisiereAnsicht();
    const auto zeigtText = [this](const QString &text) {
        return apptest::warteBis([&] {
            QCoreApplication::processEvents();
            QPdfDocument *pdf = ansicht->pdfDocument();
            return pdf->status() == QPdfDocument::Status::Ready && pdf->getAllText(0).text().contains(text);
        }, 5000);
    };
    ASSERT_TRUE(zeigtText(u"Rechnung: 17-A"_s));
    editor.statusTab()->dokumentenSpracheSegmente->button(FKREditorStatusTab::kEnglisch)->click();
    EXPECT_EQ(rechnung->sprache(), qint64(2));
    EXPECT_EQ(editor.postenTab()->rechnungsNummerTextField->text(), u"Invoice: 17-A"_s);
    EXPECT_FALSE(moc().hasChanges());
    EXPECT_TRUE(zeigtText(u"Invoice: 17-A"_s));
    QTest::keyClicks(editor.postenTab()->rechnungsNummerTextField, u"7"_s);
    ASSERT_TRUE(moc().hasChanges());

    QTest::mouseClick(editor.weiterButton(), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(fenster.isNull());
    EXPECT_FALSE(moc().hasChanges());
    EXPECT_EQ(FKRRechnungsDetailsWindowController::aktuellesFenster(), nullptr);
}

TEST_F(EditorTest, ImportierterPostenKommtUeberDenOffenenEditor)
{
    FKRRechnung *rechnung = dokument();
    FKRRechnungsDetailsViewController &editor = oeffne(rechnung);
    FKROffenerEditor &offen = editor;
    EXPECT_EQ(offen.rechnung(), rechnung);

    FKRPosten *posten = offen.neuerPosten();
    posten->setRechnung(rechnung);
    posten->setAnzahl(Decimal(3));
    posten->setEinzelbetrag(Decimal(20));
    offen.waehlePostenAus(posten);
    EXPECT_EQ(editor.postenTab()->auswahl().ausgewaehlteObjekte(), QList<ManagedObject *>{posten});
    EXPECT_EQ(editor.postenTab()->postenTabRechnungsSummeTextField->text(), u"€ 60,00"_s);

    FKREmpfaenger *neu = offen.empfaengerListe()->neuerEmpfaenger();
    neu->setName(u"Kunde"_s);
    EXPECT_TRUE(offen.empfaengerListe()->angeordneteEmpfaenger().contains(neu));
}

} // namespace
