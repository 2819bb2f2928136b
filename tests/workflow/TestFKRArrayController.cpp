// The arrangement behind every table follows inserts, deletes and saves without moving rows.

#include "WorkflowTestSupport.h"

using namespace workflowtest;

namespace {

class ArrayControllerTest : public FensterTest
{
protected:
    FKRArrayController controller{moc(), u"FKRRechnung"_s};
    static bool ungesendet(const ManagedObject &o) { return static_cast<const FKRRechnung &>(o).versandt() != true; }
};

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
