// The arrangement behind every table: filter, case-insensitive multi-key order with absent
// values first, and following the context through inserts, deletes and saves.

#include "WorkflowTestSupport.h"

using namespace workflowtest;

namespace {

class ArrayControllerTest : public FensterTest
{
protected:
    FKRArrayController controller{moc(), u"FKRRechnung"_s};
    static bool ungesendet(const ManagedObject &o) { return static_cast<const FKRRechnung &>(o).versandt() != true; }
};

TEST_F(ArrayControllerTest, OrdnetNachMehrerenSchluesselnOhneRuecksichtAufGrossschreibung)
{
    for (const auto &[nummer, firma] : {std::pair{u"R2"_s, u"beta"_s}, {u"r1"_s, u"beta"_s}, {u"R3"_s, u"Alpha"_s}}) {
        auto *r = dokument(nummer);
        r->setEmpfaenger(moc().insertNewObject<FKREmpfaenger>());
        r->empfaenger()->setFirma(firma);
    }
    dokument(u"R0"_s)->setRechnungsNummer(std::nullopt);
    controller.setSortDescriptors({{u"empfaenger.firma"_s, true}, {u"rechnungsNummer"_s, true}});
    EXPECT_EQ(nummern(controller), (QStringList{u"-"_s, u"R3"_s, u"r1"_s, u"R2"_s}));
    controller.setSortDescriptors({{u"rechnungsNummer"_s, false}});
    EXPECT_EQ(nummern(controller), (QStringList{u"R3"_s, u"R2"_s, u"r1"_s, u"-"_s}));
}

TEST_F(ArrayControllerTest, FolgtEinfuegenLoeschenUndSpeichernOhneZeilenZuVerschieben)
{
    controller.setSortDescriptors({{u"rechnungsNummer"_s, true}});
    controller.setFilterPredicate(ungesendet);
    auto *b = dokument(u"B"_s);
    EXPECT_EQ(nummern(controller), QStringList{u"B"_s}); // an insert is seen by the next reader at once
    auto *neu = controller.newObjectOf<FKRRechnung>();
    EXPECT_EQ(controller.rowOf(neu), 1); // new rows join at the end
    neu->setRechnungsNummer(u"A"_s);
    b->setVersandt(true);
    ASSERT_TRUE(moc().save());
    // A save neither reorders nor drops a row until the controller arranges again.
    EXPECT_EQ(nummern(controller), (QStringList{u"B"_s, u"A"_s}));
    controller.rearrangeObjects();
    EXPECT_EQ(nummern(controller), QStringList{u"A"_s});
    moc().deleteObject(neu);
    ASSERT_TRUE(apptest::warteBis([&] { return controller.rowCount() == 0; }, 2000));
    EXPECT_EQ(controller.rowOf(b), -1);
}

} // namespace
