// What the core asks of the main window: imported items, reminders, closing with the editors.

#include "WorkflowTestSupport.h"

using namespace workflowtest;

namespace {

class HauptfensterTest : public ProgrammTest
{
protected:
    FKRRechnung *dokument(const QString &nummer, int faelligInTagen, bool bezahlt = false)
    {
        auto *r = FensterTest::dokument(nummer);
        r->setFaelligkeitsDatum(QDateTime::currentDateTime().addDays(faelligInTagen));
        r->setBezahlt(bezahlt);
        return r;
    }
};

TEST_F(HauptfensterTest, ImportiertePostenGehenInDenOffenenEditor)
{
    FKRRechnung *rechnung = dokument(u"RE-7"_s, 14);
    delegate->saveAction();
    const QString url = u"velmora://importRechnungsPosten?auftraggeber=Acme&summeStunden=5400&summeErtraege=120"_s;
    delegate->handleGetUrlEvent(url);
    EXPECT_EQ(presenter.alertTexte(), QStringList{u"ALERT_TEXT_RECHNUNG_OEFFNEN_FUER_IMPORT"_s});
    EXPECT_TRUE(rechnung->posten().isEmpty());

    fenster->listeViewController()->setSelectedObjects({rechnung});
    fenster->listeViewController()->tabelleDoppelGeklickt();
    QPointer<FKRRechnungsDetailsWindowController> editorFenster = FKRRechnungsDetailsWindowController::aktuellesFenster();
    ASSERT_TRUE(editorFenster);
    delegate->handleGetUrlEvent(url);
    ASSERT_EQ(rechnung->posten().size(), 1);
    EXPECT_EQ(rechnung->empfaenger()->firma(), u"Acme"_s);
    EXPECT_EQ(editorFenster->editor()->postenTab()->postenTabRechnungsSummeTextField->text(), u"€ 120,00"_s);
    EXPECT_FALSE(moc().hasChanges());

    EXPECT_TRUE(fenster->close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(editorFenster.isNull());
}

TEST_F(HauptfensterTest, ErinnerungenInListenOrdnungUndKlickZeigtFaellige)
{
    FKRRechnung *spaet = dokument(u"B"_s, 30);
    FKRRechnung *faellig = dokument(u"A"_s, -2);
    dokument(u"C"_s, -5, true);
    delegate->saveAction();
    QTest::mouseClick(fenster->menuViewController()->bereichsKnopf(0), Qt::LeftButton);
    auto &liste = fenster->listeViewController()->rechnungenListeArrayController();
    fenster->listeViewController()->setSelectedObjects({faellig});
    EXPECT_EQ(fenster->unbezahlteRechnungen(), (QList<FKRRechnung *>{spaet, faellig}));
    EXPECT_EQ(fenster->listeViewController()->selectedObjects(), QList<FKRRechnung *>{faellig});
    fenster->zeigeFaelligeRechnungen();
    EXPECT_EQ(liste.arranged<FKRRechnung>(), QList<FKRRechnung *>{faellig});
}

} // namespace
