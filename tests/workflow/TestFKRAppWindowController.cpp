// What the application core asks of the main window: imported items reach the open editor,
// the reminders are read in the list's order without disturbing it, a click on a reminder
// shows the due area, closing the window closes the editors with it, and the help panels that
// the start offers until the user closes them.

#include "WorkflowTestSupport.h"

#include "FKRHilfeBox.h"

#include <QSettings>

using namespace workflowtest;

namespace {

class HauptfensterTest : public ProgrammTest
{
protected:
    FKRRechnung *dokument(const QString &nummer, int faelligInTagen, bool bezahlt)
    {
        auto *r = FensterTest::dokument(nummer);
        r->setFaelligkeitsDatum(QDateTime::currentDateTime().addDays(faelligInTagen));
        r->setBezahlt(bezahlt);
        return r;
    }
};

TEST_F(HauptfensterTest, ImportiertePostenGehenInDenOffenenEditor)
{
    FKRRechnung *rechnung = dokument(u"RE-7"_s, 14, false);
    delegate->saveAction();

    // Without an editor the user is asked to open a document, and nothing is stored.
    const QString url = u"velmora://importRechnungsPosten?auftraggeber=Acme&summeStunden=5400&summeErtraege=120"_s;
    delegate->handleGetUrlEvent(url);
    EXPECT_EQ(presenter.alertTexte(), QStringList{u"ALERT_TEXT_RECHNUNG_OEFFNEN_FUER_IMPORT"_s});
    EXPECT_TRUE(rechnung->posten().isEmpty());

    fenster->listeViewController()->setSelectedObjects({rechnung});
    fenster->listeViewController()->tabelleDoppelGeklickt();
    QPointer<FKRRechnungsDetailsWindowController> editorFenster = FKRRechnungsDetailsWindowController::aktuellesFenster();
    ASSERT_TRUE(editorFenster);
    ASSERT_EQ(fenster->offenerEditor(), editorFenster->editor());
    delegate->handleGetUrlEvent(url);
    ASSERT_EQ(rechnung->posten().size(), 1);
    FKRPosten *posten = rechnung->posten().first();
    EXPECT_EQ(posten->anzahl(), Decimal::parse("1.5"));
    EXPECT_EQ(posten->einzelbetrag(), Decimal(80));
    ASSERT_NE(rechnung->empfaenger(), nullptr);
    EXPECT_EQ(rechnung->empfaenger()->firma(), u"Acme"_s);
    EXPECT_EQ(editorFenster->editor()->rechnungsPostenArrayController().arranged<FKRPosten>(), QList<FKRPosten *>{posten});
    EXPECT_EQ(editorFenster->editor()->postenTab()->postenTabRechnungsSummeTextField->text(), u"€ 120,00"_s);
    EXPECT_FALSE(moc().hasChanges());

    // Closing the main window (the quit decision allows it) closes the editor too.
    EXPECT_TRUE(fenster->close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(editorFenster.isNull());
    EXPECT_EQ(fenster->offenerEditor(), nullptr);
}

TEST_F(HauptfensterTest, ErinnerungenInListenOrdnungUndKlickZeigtFaellige)
{
    FKRRechnung *spaet = dokument(u"B"_s, 30, false);
    FKRRechnung *faellig = dokument(u"A"_s, -2, false);
    dokument(u"C"_s, -5, true);
    delegate->saveAction();

    // The drafts area with one row selected: reading the reminders (due date descending)
    // leaves both alone.
    QTest::mouseClick(fenster->menuViewController()->bereichsKnopf(0), Qt::LeftButton);
    auto &liste = fenster->listeViewController()->rechnungenListeArrayController();
    fenster->listeViewController()->setSelectedObjects({faellig});
    const QList<FKRRechnung *> vorher = liste.arranged<FKRRechnung>();
    EXPECT_EQ(fenster->unbezahlteRechnungen(), (QList<FKRRechnung *>{spaet, faellig}));
    EXPECT_EQ(liste.arranged<FKRRechnung>(), vorher);
    EXPECT_EQ(fenster->listeViewController()->selectedObjects(), QList<FKRRechnung *>{faellig});

    // A click on a reminder: the due area, highlighted, with the due document only.
    fenster->zeigeFaelligeRechnungen();
    EXPECT_EQ(liste.arranged<FKRRechnung>(), QList<FKRRechnung *>{faellig});
    EXPECT_EQ(fenster->menuViewController()->bereichsKnopf(2)->textFarbe(), QColor(Qt::white));
    EXPECT_EQ(fenster->ansichtViewController()->rechnung(), nullptr);
}

TEST_F(HauptfensterTest, HilfeDesStartsBleibtGeschlossenWennDerBenutzerSieSchliesst)
{
    for (int i = 0; i < 30; ++i)
        dokument(u"RE-%1"_s.arg(i), i, false);
    delegate->saveAction();
    FKRRechnungenListeViewController *liste = fenster->listeViewController();
    FKRHilfeBox *ansichtsHilfe = fenster->ansichtViewController()->findChild<FKRHilfeBox *>();
    QTableView *tabelle = liste->tableView();
    const QPoint obenLinks = tabelle->viewport()->mapTo(liste, tabelle->visualRect(tabelle->model()->index(0, 0)).center());
    const QImage ohneHilfe = liste->grab().toImage();
    const auto hilfe = [&](void (FKRAppWindowController::*befehl)()) {
        (fenster.get()->*befehl)();
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        return liste->hilfeBox()->isVisible();
    };

    // The start opens both panels; the list around the card is neither dimmed nor covered.
    ASSERT_TRUE(hilfe(&FKRAppWindowController::zeigeHilfe));
    ASSERT_TRUE(ansichtsHilfe->isVisible());
    EXPECT_EQ(liste->childAt(obenLinks), tabelle->viewport());
    EXPECT_EQ(liste->grab().toImage().pixelColor(obenLinks), ohneHilfe.pixelColor(obenLinks));
    EXPECT_NE(liste->childAt(liste->hilfeBox()->mask().boundingRect().center()), tabelle->viewport());

    // Closed by its button: both go, and the next start does not open them again; the help
    // command still does.
    QTest::mouseClick(ansichtsHilfe->schliessenKnopf(), Qt::LeftButton);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_FALSE(liste->hilfeBox()->isVisible());
    EXPECT_FALSE(ansichtsHilfe->isVisible());
    EXPECT_EQ(QSettings().value(u"zeigeErklaerungstexte"_s).toBool(), false);
    EXPECT_FALSE(hilfe(&FKRAppWindowController::zeigeHilfe));
    EXPECT_TRUE(hilfe(&FKRAppWindowController::zeigeHilfeView));

    // Put away with the help command counts as closed, too.
    QBBenutzerEinstellungen::sharedInstance()->setZeigeErklaerungstexte(true);
    EXPECT_FALSE(hilfe(&FKRAppWindowController::zeigeHilfeView));
    EXPECT_FALSE(FKRHilfeBox::erscheintBeimStart());
    QBBenutzerEinstellungen::sharedInstance()->setZeigeErklaerungstexte(true);
    QBBenutzerEinstellungen::sharedInstance()->sichereBenutzerEinstellungen();
}

} // namespace
