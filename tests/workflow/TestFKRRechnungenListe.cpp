// The document list: areas with a stopped clock, header orders, new documents, deleting.

#include "WorkflowTestSupport.h"

#include "FKRRechnungsZeilenDelegate.h"

#include <QHeaderView>

using namespace workflowtest;

namespace {

const QDate kHeute(2026, 3, 11);

QDateTime um(const QDate &tag, int stunde) { return QDateTime(tag, QTime(stunde, 0)); }

class ListeTest : public FensterTest
{
protected:
    void SetUp() override { baueHauptfenster(); }
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
    // A day later the areas still compare with yesterday 15:00 and its end of day.
    const struct {
        int tag, bereich;
        QStringList nummern;
    } faelle[] = {{0, 1, {u"B"_s}}, {0, 2, {u"B"_s, u"A"_s, u"C"_s}}, {0, 0, {u"E"_s, u"C"_s}}, {0, 3, {u"D"_s}},
                  {1, 1, {u"B"_s}}, {1, 2, {u"B"_s, u"A"_s, u"C"_s}}};
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
    EXPECT_FALSE(liste->grab().isNull()); // painting both rows does not throw
}

TEST_F(ListeTest, KopfKlicksDurchlaufenFuenfOrdnungenMitGleichstandsRegeln)
{
    const auto setze = [this](FKRRechnung *r, const QString &firma, const QString &name, int rechnungsTag, int bezahltTag) {
        r->setEmpfaenger(moc().insertNewObject<FKREmpfaenger>());
        r->empfaenger()->setFirma(firma), r->empfaenger()->setName(name);
        r->setRechnungsDatum(um(kHeute.addDays(rechnungsTag), 9));
        r->setBezahltDatum(bezahltTag ? std::optional(um(kHeute.addDays(bezahltTag), 9)) : std::nullopt);
    };
    setze(dokument(u"R2"_s, um(kHeute, 12)), u"beta"_s, u"X"_s, 2, 1);
    setze(dokument(u"r1"_s, um(kHeute, 12)), u"beta"_s, u"X"_s, 1, 0);
    setze(dokument(u"R3"_s, um(kHeute, 8)), u"Alpha"_s, u"Z"_s, 0, 2);
    setze(dokument(u"R1"_s, um(kHeute, 12)), u"alpha"_s, u"A"_s, 1, 1);
    ASSERT_TRUE(moc().save());

    // Equal due dates: number without regard to case, then company, then name; unpaid last.
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
        EXPECT_EQ(nummern(), schritt.reihenfolge) << schritt.titel;
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
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.locale);
        setzeSprache(fall.locale);
        FKRRechnung *neu = liste->erstelleNeueRechnung();
        setzeSprache("de_DE");
        ASSERT_NE(neu, nullptr);
        EXPECT_EQ(neu->sprache(), fall.sprache);
        EXPECT_EQ(neu->rechnungsNummer(), fall.nummer);
        EXPECT_EQ(neu->faelligkeitsDatum(), jetzt.addDays(14));
        EXPECT_EQ(neu->absender(), einziger);
        EXPECT_FALSE(moc().hasChanges());
        EXPECT_EQ(ansicht->rechnung(), neu);
    }
}

TEST_F(ListeTest, LoeschenFragtEinmalFuerAlleAusgewaehltenUndReturnOeffnetDenEditor)
{
    dokument(u"A"_s, um(kHeute, 12));
    auto *b = dokument(u"B"_s, um(kHeute, 11));
    dokument(u"C"_s, um(kHeute, 10));
    dokument(u"S"_s, um(kHeute, 9), true);
    ASSERT_TRUE(moc().save());
    klicke(3);
    EXPECT_TRUE(liste->loeschenButtonBox()->isHidden()); // sent: no delete button
    klicke(0);
    klicke(2, Qt::ControlModifier);
    presenter.antworten = {kZweiterKnopf};
    taste(Qt::Key_Delete);
    EXPECT_EQ(nummern().size(), 4);
    taste(Qt::Key_Delete); // first button
    EXPECT_EQ(presenter.alerts.size(), 2);
    EXPECT_EQ(nummern(), (QStringList{u"B"_s, u"S"_s}));
    EXPECT_FALSE(moc().hasChanges());
    EXPECT_EQ(ansicht->rechnung(), nullptr);

    klicke(0);
    taste(Qt::Key_Return);
    FKRRechnungsDetailsWindowController *editor = FKRRechnungsDetailsWindowController::aktuellesFenster();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->editor()->rechnung(), b);
    editor->close();
}

} // namespace
