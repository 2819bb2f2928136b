// The document editor in its window, driven through its controls: the recipient and sender a
// document is given, type change with the number and the dates relabelled, the old layout code,
// the numbering of items, the delete confirmation, and the next button that closes and saves.

#include "WorkflowTestSupport.h"

#include "FKREditorEmpfaengerTab.h"
#include "FKREditorStatusTab.h"
#include "FKRTabellenAuswahl.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QPdfDocument>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>

using namespace workflowtest;

namespace {

QString text(const QString &schluessel)
{
    return FKRLocalizationHelper::hauptTabellenText(schluessel);
}

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
    // No recipient and no sender exist: both are created under their translated names, at the
    // first change of tab, not merely by opening.
    FKRRechnung *erstes = dokument(u"Rechnung: 17"_s);
    FKRRechnungsDetailsViewController &editor = oeffne(erstes);
    EXPECT_EQ(erstes->empfaenger(), nullptr);
    klickeTab(editor, 2);
    ASSERT_NE(erstes->empfaenger(), nullptr);
    ASSERT_NE(erstes->absender(), nullptr);
    EXPECT_EQ(erstes->absender()->name(), u"Neuer Absender"_s);
    EXPECT_EQ(editor.empfaengerTab()->empfaengerTabNameTextField->text(), u"Neuer Empfänger"_s);
    EXPECT_FALSE(moc().hasChanges());
    fenster->close();
    // Without a company it would sort before every other recipient.
    moc().deleteObject(erstes->empfaenger());

    // Recipients exist: the first by company, then name, both without regard to case.
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
    EXPECT_EQ(zweiter.empfaengerTab()->auswahl().ausgewaehlteObjekte(), QList<ManagedObject *>{erwartet});
    EXPECT_EQ(zweiter.empfaengerTab()->empfaengerTabFirmaTextField->text(), u"Alpha AG"_s);

    // Typing into the address edits the chosen recipient; a click on another row makes that one
    // the document's recipient.
    QTest::keyClicks(zweiter.empfaengerTab()->empfaengerTabOrtTextField, u"Bremen"_s);
    EXPECT_EQ(erwartet->ort(), u"Bremen"_s);
    QTableView *tabelle = zweiter.empfaengerTab()->empfaengerTableView;
    FKRArrayController &empfaenger = zweiter.empfaengerArrayController();
    const int zeile = empfaenger.rowOf(empfaenger.arranged<FKREmpfaenger>().last());
    QTest::mouseClick(tabelle->viewport(), Qt::LeftButton, {}, tabelle->visualRect(empfaenger.index(zeile, 0)).center());
    EXPECT_EQ(zweites->empfaenger()->firma(), u"Beta GmbH"_s);
    QCoreApplication::processEvents();
    EXPECT_FALSE(moc().hasChanges());

    // Deleting the document's recipient gives it the next one at once.
    FKREmpfaenger *alt = zweites->empfaenger();
    QTest::mouseClick(zweiter.empfaengerTab()->empfaengerLoeschenButton, Qt::LeftButton);
    EXPECT_TRUE(alt->isDeleted());
    ASSERT_NE(zweites->empfaenger(), nullptr);
    EXPECT_NE(zweites->empfaenger(), alt);
}

TEST_F(EditorTest, TypwechselBenenntDieNummerUmUndBeschriftetDieDaten)
{
    FKRRechnung *rechnung = dokument(u"Rechnung: 2024-17"_s);
    rechnung->setDokumentArt(Decimal(3));
    rechnung->setLayout(Decimal(4)); // the old footer layout is shown and stored as 3
    FKRRechnungsDetailsViewController &editor = oeffne(rechnung);
    FKREditorStatusTab &status = *editor.statusTab();
    klickeTab(editor, 5);
    EXPECT_EQ(rechnung->layout(), Decimal(3));
    EXPECT_EQ(status.rechnungsLayoutPopUpButton->currentData().toInt(), 3);
    QTest::keyClick(status.rechnungsLayoutPopUpButton, Qt::Key_Up);
    EXPECT_EQ(rechnung->layout(), Decimal(2));
    EXPECT_EQ(status.datumTabLieferDatumLabel->text(), text(u"Leistungs-Datum"_s));
    EXPECT_FALSE(status.datumTabLieferDatumDatePicker->isHidden());

    // One step up in the pop-up is the quote, then the cover letter with only its date.
    const struct {
        QString nummer, datum, faellig;
        bool lieferDatum, faelligkeit;
    } schritte[] = {{u"Angebot: 2024-17"_s, u"Angebots-Datum"_s, u"Gültig bis"_s, false, true},
                    {u"Anschreiben: 2024-17"_s, u"Datum"_s, {}, false, false}};
    for (const auto &schritt : schritte) {
        SCOPED_TRACE(schritt.nummer.toStdString());
        QTest::keyClick(status.dokumentenArtPopUpButton, Qt::Key_Up);
        EXPECT_EQ(rechnung->rechnungsNummer(), schritt.nummer);
        EXPECT_EQ(editor.postenTab()->rechnungsNummerTextField->text(), schritt.nummer);
        EXPECT_EQ(status.datumTabRechnungsDatumLabel->text(), text(schritt.datum));
        if (schritt.faelligkeit)
            EXPECT_EQ(status.datumTabFaelligkeitsDatumLabel->text(), text(schritt.faellig));
        EXPECT_EQ(status.datumTabFaelligkeitsDatumLabel->isHidden(), !schritt.faelligkeit);
        EXPECT_EQ(status.datumTabFaelligkeitsDatumDatePicker->isHidden(), !schritt.faelligkeit);
        EXPECT_EQ(status.datumTabLieferDatumLabel->isHidden(), !schritt.lieferDatum);
        EXPECT_EQ(status.datumTabLieferDatumDatePicker->isHidden(), !schritt.lieferDatum);
        EXPECT_FALSE(moc().hasChanges());
    }
    EXPECT_EQ(rechnung->dokumentArt(), Decimal(1));

    // Choosing another day keeps the time of day of the stored date.
    rechnung->setFaelligkeitsDatum(QDateTime(QDate(2024, 5, 2), QTime(9, 30)));
    QTest::keyClick(status.dokumentenArtPopUpButton, Qt::Key_Down);
    status.datumTabFaelligkeitsDatumDatePicker->setFocus();
    status.datumTabFaelligkeitsDatumDatePicker->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClick(status.datumTabFaelligkeitsDatumDatePicker, Qt::Key_Up);
    EXPECT_EQ(rechnung->faelligkeitsDatum(), QDateTime(QDate(2024, 5, 3), QTime(9, 30)));
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
    EXPECT_EQ(editor.rechnungsPostenArrayController().rowCount(), 3);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(posten[i]->postenNummer(), (QList<qint64>{1, 2, 5, 0}[i])) << i;

    QTest::mouseClick(editor.postenTab()->neuerPostenButton, Qt::LeftButton);
    ASSERT_EQ(rechnung->posten().size(), 4);
    FKRPosten *neu = nullptr;
    for (FKRPosten *p : rechnung->posten())
        if (!posten.contains(p))
            neu = p;
    ASSERT_NE(neu, nullptr);
    EXPECT_EQ(neu->postenNummer(), qint64(4));
    // One of something without texts: the editor shows hints, which the item never holds.
    EXPECT_EQ(neu->anzahl(), Decimal(1));
    EXPECT_EQ(neu->postenBezeichnung(), std::nullopt);
    EXPECT_EQ(neu->postenBeschreibung(), std::nullopt);
    FKRArrayController &zeilen = editor.rechnungsPostenArrayController();
    const QModelIndex name = zeilen.index(zeilen.rowOf(neu), FKREditorPostenTab::kBezeichnung);
    EXPECT_EQ(name.data(Qt::DisplayRole), text(u"EDITOR_PLATZHALTER_BEZEICHNUNG"_s));
    EXPECT_EQ(name.data(Qt::EditRole), QString());
    EXPECT_TRUE(name.data(Qt::ForegroundRole).isValid());
    EXPECT_EQ(editor.postenTab()->postenBeschreibungTextField->toPlainText(), QString());
    EXPECT_EQ(editor.postenTab()->postenBeschreibungTextField->placeholderText(),
              text(u"EDITOR_PLATZHALTER_BESCHREIBUNG"_s));
    EXPECT_EQ(editor.postenTab()->auswahl().ausgewaehlteObjekte(), QList<ManagedObject *>{neu});
    EXPECT_FALSE(moc().hasChanges());
    neu->setPostenBezeichnung(u"Beratung"_s);
    EXPECT_EQ(name.data(Qt::DisplayRole), u"Beratung"_s);
    EXPECT_FALSE(name.data(Qt::ForegroundRole).isValid());

    // An item chosen from outside, as an import does, is selected in the table.
    static_cast<FKROffenerEditor &>(editor).waehlePostenAus(posten[0]);
    EXPECT_EQ(editor.postenTab()->auswahl().ausgewaehlteObjekte(), QList<ManagedObject *>{posten[0]});

    // Deleting asks; cancelled, everything stays.
    presenter.antworten = {kZweiterKnopf};
    QTest::mouseClick(editor.postenTab()->loeschePostenButton, Qt::LeftButton);
    ASSERT_EQ(presenter.alerts.size(), 1);
    EXPECT_EQ(alertZeile(presenter.alerts[0]),
              u"ALERT_TITLE_DELETE / ALERT_TEXT_DELETE / BUTTON_TITLE_OK,BUTTON_TITLE_ABBRECHEN"_s);
    EXPECT_FALSE(posten[0]->isDeleted());
    QTest::mouseClick(editor.postenTab()->loeschePostenButton, Qt::LeftButton);
    EXPECT_TRUE(posten[0]->isDeleted());
    EXPECT_EQ(zeilen.rowCount(), 3);
    EXPECT_FALSE(moc().hasChanges());
}

TEST_F(EditorTest, WeiterFuehrtDurchAlleTabsUndSchliesstAmEndeMitSichern)
{
    baueHauptfenster();
    FKRRechnung *rechnung = dokument(u"Rechnung: 17"_s);
    FKRRechnungsDetailsViewController &editor = oeffne(rechnung);
    EXPECT_EQ(FKRRechnungsDetailsWindowController::aktuellesFenster(), fenster.data());
    QTest::keyClicks(editor.postenTab()->rechnungsNummerTextField, u"-A"_s);
    for (int tab = 0; tab <= 5; ++tab) {
        EXPECT_EQ(editor.tabView()->currentIndex(), tab);
        EXPECT_EQ(editor.hilfeTextField()->text(),
                  text(u"HILFE_TEXT_"_s + FKRRechnungsDetailsViewController::tabIdentifier()[tab]));
        if (tab < 5)
            QTest::mouseClick(editor.weiterButton(), Qt::LeftButton);
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

} // namespace
