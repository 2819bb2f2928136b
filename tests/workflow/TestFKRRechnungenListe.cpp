// The document list driven through its widgets: the menu's areas with a stopped clock, the type
// pop-up, header clicks through the five orders, new documents, deleting with confirmation, the
// double click, the row actions, and the selection across rebuilds.

#include "WorkflowTestSupport.h"

#include "FKRRechnungsZeilenDelegate.h"
#include "FKRZeilenAktionen.h"
#include "QBMStyleUtil.h"

#include <QAction>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>

using namespace workflowtest;

namespace {

const QDate kHeute(2026, 3, 11);

QDateTime um(const QDate &tag, int stunde)
{
    return QDateTime(tag, QTime(stunde, 0));
}

class ListeTest : public FensterTest
{
protected:
    void SetUp() override { baueHauptfenster(); }
    void TearDown() override
    {
        // Editor windows opened by a test would lie over the next test's rows.
        for (QWidget *fenster : QApplication::topLevelWidgets())
            if (fenster->isVisible() && fenster != splitView.get())
                fenster->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    FKRRechnung *dokument(const QString &nummer, const QDateTime &faellig, bool versandt = false, bool bezahlt = false)
    {
        auto *r = FensterTest::dokument(nummer);
        r->setFaelligkeitsDatum(faellig);
        r->setVersandt(versandt);
        r->setBezahlt(bezahlt);
        return r;
    }
    QStringList nummern() { return FensterTest::nummern(liste->rechnungenListeArrayController()); }
    QStringList imBereich(int nummer)
    {
        QTest::mouseClick(menu->bereichsKnopf(nummer), Qt::LeftButton);
        return nummern();
    }
    QWidget *zeilen() { return liste->tableView()->viewport(); }
    QPoint zeile(int row) { return liste->tableView()->visualRect(liste->tableView()->model()->index(row, 0)).center(); }
    void klicke(int row, Qt::KeyboardModifiers mod = {}) { QTest::mouseClick(zeilen(), Qt::LeftButton, mod, zeile(row)); }
    void taste(Qt::Key key) { QTest::keyClick(liste->tableView(), key); }
};

TEST_F(ListeTest, BereicheBehaltenDenMomentIhresErstenGebrauchs)
{
    FKRUhr::halteAn(um(kHeute, 15));
    dokument(u"A"_s, um(kHeute, 10), true);       // sent, due this morning: due only
    dokument(u"B"_s, um(kHeute, 23), true);       // sent, due tonight: sent and due
    dokument(u"C"_s, um(kHeute.addDays(-1), 12)); // draft past its day: draft and due
    dokument(u"D"_s, um(kHeute.addDays(-1), 12), true, true);
    dokument(u"E"_s, um(kHeute.addDays(1), 9)); // draft due tomorrow
    ASSERT_TRUE(moc().save());
    EXPECT_EQ(nummern().size(), 5); // no area, no type: everything

    // A day later the areas still compare with yesterday 15:00 and its end of day.
    const struct {
        int tag, bereich;
        QStringList nummern;
    } faelle[] = {{0, 1, {u"B"_s}}, {0, 2, {u"B"_s, u"A"_s, u"C"_s}}, {0, 0, {u"E"_s, u"C"_s}}, {0, 3, {u"D"_s}},
                  {1, 1, {u"B"_s}}, {1, 2, {u"B"_s, u"A"_s, u"C"_s}}, {1, 4, {u"E"_s, u"B"_s, u"A"_s, u"C"_s, u"D"_s}}};
    for (const auto &fall : faelle) {
        FKRUhr::halteAn(um(kHeute.addDays(fall.tag), fall.tag ? 12 : 15));
        EXPECT_EQ(imBereich(fall.bereich), fall.nummern) << fall.tag << " " << fall.bereich;
    }
}

TEST_F(ListeTest, ZeileZeigtSummeNurWennSieBerechenbarIst)
{
    FKRUhr::halteAn(um(kHeute, 15));
    dokument(u"R1"_s, um(kHeute, 12))->setRabatt(std::nullopt); // the arithmetic throws
    dokument(u"R2"_s, um(kHeute, 11), true);
    ASSERT_TRUE(moc().save());
    const auto daten = [&](int zeile, int rolle) {
        return liste->tableView()->model()->index(zeile, 0).data(rolle).toString();
    };
    EXPECT_EQ(daten(0, FKRRechnungsZeilenDelegate::SummeRolle), QString());
    EXPECT_EQ(daten(1, FKRRechnungsZeilenDelegate::SummeRolle), u"€ 0,00"_s);
    EXPECT_EQ(daten(0, FKRRechnungsZeilenDelegate::StatusRolle), u"Fällig"_s);
    EXPECT_EQ(daten(0, FKRRechnungsZeilenDelegate::FaelligRolle), u"11.03.26"_s);
    EXPECT_FALSE(liste->grab().isNull()); // painting both rows does not throw
}

TEST_F(ListeTest, TypUndBereichWirkenZusammen)
{
    dokument(u"R1"_s, um(kHeute, 12), true, true);
    dokument(u"R2"_s, um(kHeute, 11));
    dokument(u"Q1"_s, um(kHeute, 10), true, true)->setDokumentArt(Decimal(2));
    ASSERT_TRUE(moc().save());

    klicke(1); // R2, a draft: the view shows it and the delete button is offered
    EXPECT_EQ(ansicht->rechnung()->rechnungsNummer(), u"R2"_s);
    EXPECT_FALSE(liste->loeschenButtonBox()->isHidden());
    EXPECT_EQ(imBereich(3), (QStringList{u"R1"_s, u"Q1"_s}));
    EXPECT_TRUE(liste->selectedObjects().isEmpty());
    EXPECT_EQ(ansicht->rechnung(), nullptr);
    EXPECT_TRUE(liste->loeschenButtonBox()->isHidden());

    QComboBox *typ = liste->dokumentArtPopUpButton();
    ASSERT_EQ(typ->count(), 6);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(typ, Qt::Key_Down); // all, cover letters, quotes, invoices
    EXPECT_EQ(typ->currentData().toInt(), 3);
    EXPECT_EQ(nummern(), QStringList{u"R1"_s});

    // A tag outside 1..5 lifts only the type; the paid area stays.
    liste->dokumentArtDidChange(9);
    EXPECT_EQ(nummern(), (QStringList{u"R1"_s, u"Q1"_s}));
    EXPECT_EQ(typ->currentData().toInt(), 0);
    QTest::keyClick(typ, Qt::Key_Down);
    QTest::keyClick(typ, Qt::Key_Down);
    EXPECT_EQ(imBereich(4), QStringList{u"Q1"_s});
    QTest::keyClick(typ, Qt::Key_Up);
    QTest::keyClick(typ, Qt::Key_Up);
    EXPECT_EQ(nummern().size(), 3);
}

TEST_F(ListeTest, KopfKlicksDurchlaufenFuenfOrdnungenMitGleichstandsRegeln)
{
    const auto setze = [this](FKRRechnung *r, const QString &firma, const QString &name, int rechnungsTag, int bezahltTag) {
        r->setEmpfaenger(moc().insertNewObject<FKREmpfaenger>());
        r->empfaenger()->setFirma(firma);
        r->empfaenger()->setName(name);
        r->setRechnungsDatum(um(kHeute.addDays(rechnungsTag), 9));
        if (bezahltTag)
            r->setBezahltDatum(um(kHeute.addDays(bezahltTag), 9));
    };
    setze(dokument(u"R2"_s, um(kHeute, 12)), u"beta"_s, u"X"_s, 2, 1);
    setze(dokument(u"r1"_s, um(kHeute, 12)), u"beta"_s, u"X"_s, 1, 0);
    setze(dokument(u"R3"_s, um(kHeute, 8)), u"Alpha"_s, u"Z"_s, 0, 2);
    setze(dokument(u"R1"_s, um(kHeute, 12)), u"alpha"_s, u"A"_s, 1, 1);
    ASSERT_TRUE(moc().save());

    // Equal due dates: number without regard to case, then company, then name. Unpaid ones
    // (no date) come last in the payment order.
    QHeaderView *kopf = liste->tableView()->horizontalHeader();
    const struct {
        const char *titel;
        QStringList reihenfolge;
    } schritte[] = {
        {"FAELLIGKEIT", {u"R1"_s, u"r1"_s, u"R2"_s, u"R3"_s}},   {"EMPFAENGER", {u"R1"_s, u"R3"_s, u"r1"_s, u"R2"_s}},
        {"RECHNUNGSDATUM", {u"R3"_s, u"R1"_s, u"r1"_s, u"R2"_s}}, {"RECHNUNGSNUMMER", {u"R1"_s, u"r1"_s, u"R2"_s, u"R3"_s}},
        {"ZAHLUNGSEINGANG", {u"R3"_s, u"R1"_s, u"R2"_s, u"r1"_s}}, {"FAELLIGKEIT", {u"R1"_s, u"r1"_s, u"R2"_s, u"R3"_s}},
    };
    for (const auto &schritt : schritte) {
        SCOPED_TRACE(schritt.titel);
        const QString titel = u"RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_"_s + QLatin1String(schritt.titel);
        EXPECT_EQ(liste->spaltenTitel(), FKRLocalizationHelper::hauptTabellenText(titel));
        EXPECT_EQ(nummern(), schritt.reihenfolge);
        QTest::mouseClick(kopf->viewport(), Qt::LeftButton, {}, QPoint(20, kopf->height() / 2));
    }
    EXPECT_EQ(liste->sortierung(), 1);
}

TEST_F(ListeTest, NeuesDokumentInDerSpracheDesBenutzersVomLetztenAbsenderUndNichtSofortFaellig)
{
    const QDateTime jetzt = um(kHeute, 9).addSecs(30 * 60);
    FKRUhr::halteAn(jetzt);
    auto *einziger = moc().insertNewObject<FKRAbsender>();
    // Any desktop that is not German writes its documents in English.
    const struct {
        const char *locale;
        qint64 sprache;
        QString nummer;
    } faelle[] = {{"de_DE", 1, u"Rechnung: "_s}, {"en_US", 2, u"Invoice: "_s}, {"fr_FR", 2, u"Invoice: "_s}};
    FKRRechnung *neu = nullptr;
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.locale);
        setzeSprache(fall.locale);
        neu = liste->erstelleNeueRechnung();
        setzeSprache("de_DE");
        ASSERT_NE(neu, nullptr);
        EXPECT_EQ(neu->sprache(), fall.sprache);
        EXPECT_EQ(neu->rechnungsNummer(), fall.nummer);
        EXPECT_EQ(neu->rechnungsDatum(), jetzt);
        EXPECT_EQ(neu->lieferDatum(), jetzt);
        EXPECT_EQ(neu->faelligkeitsDatum(), jetzt.addDays(14));
        EXPECT_EQ(neu->absender(), einziger);
        EXPECT_FALSE(moc().hasChanges());
        EXPECT_EQ(liste->selectedObjects(), QList<FKRRechnung *>{neu});
        EXPECT_EQ(ansicht->rechnung(), neu);
    }
    EXPECT_TRUE(imBereich(2).isEmpty()); // not due on the day it is written

    // With a second sender the one of the newest document counts.
    auto *zweiter = moc().insertNewObject<FKRAbsender>();
    neu->setAbsender(zweiter);
    EXPECT_EQ(liste->erstelleNeueRechnung()->absender(), zweiter);
}

TEST_F(ListeTest, LoeschenFragtEinmalFuerAlleAusgewaehltenUndDoppelklickOeffnetNurEntwuerfe)
{
    dokument(u"A"_s, um(kHeute, 12));
    dokument(u"B"_s, um(kHeute, 11));
    dokument(u"C"_s, um(kHeute, 10));
    dokument(u"S"_s, um(kHeute, 9), true);
    ASSERT_TRUE(moc().save());

    klicke(3);
    EXPECT_TRUE(liste->loeschenButtonBox()->isHidden()); // sent: no delete button
    klicke(0);
    klicke(2, Qt::ControlModifier);
    ASSERT_EQ(liste->selectedObjects().size(), 2);
    presenter.antworten = {kZweiterKnopf};
    taste(Qt::Key_Delete);
    ASSERT_EQ(presenter.alerts.size(), 1);
    EXPECT_EQ(alertZeile(presenter.alerts.first()),
              u"ALERT_TITLE_DELETE / ALERT_TEXT_DELETE / BUTTON_TITLE_OK,BUTTON_TITLE_ABBRECHEN"_s);
    EXPECT_EQ(nummern().size(), 4);
    taste(Qt::Key_Delete); // first button
    EXPECT_EQ(presenter.alerts.size(), 2);
    EXPECT_EQ(nummern(), (QStringList{u"B"_s, u"S"_s}));
    EXPECT_FALSE(moc().hasChanges());
    EXPECT_TRUE(liste->selectedObjects().isEmpty());
    EXPECT_EQ(ansicht->rechnung(), nullptr);

    // A real double click on a sent one: press, release, double-click press, release. It warns only.
    klicke(1);
    QTest::mouseDClick(zeilen(), Qt::LeftButton, {}, zeile(1));
    QTest::mouseRelease(zeilen(), Qt::LeftButton, {}, zeile(1));
    ASSERT_EQ(presenter.alerts.size(), 3);
    EXPECT_EQ(alertZeile(presenter.alerts.last()),
              u"ALERT_TITLE_VERSANDTE_RECHNUNG_OEFFNEN / ALERT_TEXT_VERSANDTE_RECHNUNG_OEFFNEN / BUTTON_TITLE_OK"_s);
    EXPECT_EQ(FKRRechnungsDetailsWindowController::aktuellesFenster(), nullptr);

    // Return on an unsent one opens the editor on it without any alert and no new document.
    klicke(0);
    taste(Qt::Key_Return);
    EXPECT_EQ(presenter.alerts.size(), 3);
    EXPECT_EQ(nummern().size(), 2);
    FKRRechnungsDetailsWindowController *editor = FKRRechnungsDetailsWindowController::aktuellesFenster();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->editor()->rechnung()->rechnungsNummer(), u"B"_s);
    EXPECT_EQ(editor->rechnungsAnsichtViewController(), ansicht);
    editor->close();

    // The delete button asks the same.
    QTest::mouseClick(liste->loeschenButtonBox()->findChild<QPushButton *>(), Qt::LeftButton);
    EXPECT_EQ(nummern(), QStringList{u"S"_s});
}

TEST_F(ListeTest, ZeilenAktionenAuswahlUeberNeuaufbauUndHilfe)
{
    dokument(u"A"_s, um(kHeute, 12));
    auto *b = dokument(u"B"_s, um(kHeute, 11));
    ASSERT_TRUE(moc().save());

    // Context menu on row 1: delete selects that row and asks; cancelled, nothing goes.
    QContextMenuEvent menueEreignis(QContextMenuEvent::Mouse, zeile(1), zeilen()->mapToGlobal(zeile(1)));
    QApplication::sendEvent(zeilen(), &menueEreignis);
    QMenu *menue = liste->kontextMenue();
    ASSERT_NE(menue, nullptr);
    ASSERT_EQ(menue->actions().size(), 2);
    presenter.antworten = {kZweiterKnopf};
    QTest::mouseClick(menue, Qt::LeftButton, {}, menue->actionGeometry(menue->actions()[1]).center());
    EXPECT_EQ(presenter.alerts.size(), 1);
    EXPECT_EQ(ansicht->rechnung(), b);
    EXPECT_EQ(nummern().size(), 2);

    // Rows outside the list: the actions do nothing.
    QObject besitzer;
    for (QAction *aktion : liste->rowActionsForRow(7, &besitzer))
        aktion->trigger();
    EXPECT_EQ(presenter.alerts.size(), 1);

    // The buttons on the hovered row: duplicate in the mid grey.
    QTest::mouseMove(zeilen(), zeile(1));
    QTest::mouseMove(zeilen(), zeile(0));
    FKRZeilenAktionen *knoepfe = liste->zeilenAktionen();
    ASSERT_TRUE(apptest::warteBis([&] { return knoepfe->isVisible() && knoepfe->zeile() == 0; }, 2000));
    QPushButton *duplizieren = knoepfe->duplizierenKnopf();
    EXPECT_EQ(duplizieren->grab().toImage().pixelColor(2, 2), QBMStyleUtil::mittelGrau());
    QTest::mouseClick(duplizieren, Qt::LeftButton);
    ASSERT_TRUE(apptest::warteBis([&] { return nummern().size() == 3; }, 2000));
    EXPECT_TRUE(nummern().contains(u"A Kopie"_s));

    // The selection follows its document when the list is arranged again and it moves.
    liste->setSelectedObjects({b});
    b->setFaelligkeitsDatum(um(kHeute.addDays(5), 12));
    ASSERT_TRUE(moc().save());
    liste->rechnungenListeArrayController().rearrangeObjects();
    EXPECT_EQ(nummern().first(), u"B"_s);
    EXPECT_EQ(liste->selectedObjects(), QList<FKRRechnung *>{b});
    EXPECT_EQ(liste->tableView()->selectionModel()->selectedRows().first().row(), 0);

    liste->zeigeHilfeBox();
    EXPECT_TRUE(liste->hilfeBox()->isVisible());
    EXPECT_EQ(liste->hilfeBox()->geometry(), liste->rect());
    QTest::mouseClick(liste->hilfeBox()->findChild<QPushButton *>(), Qt::LeftButton);
    EXPECT_FALSE(liste->hilfeBox()->isVisible());
    liste->zeigeHilfeBox();
    liste->zeigeHilfeBox();
    EXPECT_FALSE(liste->hilfeBox()->isVisible());
}

} // namespace
