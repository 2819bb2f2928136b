// The arrangement behind every table: filter, case-insensitive multi-key order with absent
// values first, and following the context through inserts, deletes and saves.

#include "WorkflowTestSupport.h"

#include "FKRArrayController.h"
#include "FKREmpfaenger.h"
#include "FKRRechnung.h"

using namespace workflowtest;
using namespace Qt::Literals::StringLiterals;

namespace {

class ArrayControllerTest : public FensterTest
{
protected:
    FKRRechnung *dokument(const QString &nummer, FKREmpfaenger *empfaenger = nullptr)
    {
        auto *r = moc().insertNewObject<FKRRechnung>();
        r->setRechnungsNummer(nummer);
        r->setEmpfaenger(empfaenger);
        return r;
    }
    QStringList nummern(const FKRArrayController &controller)
    {
        QStringList result;
        for (FKRRechnung *r : controller.arranged<FKRRechnung>())
            result.append(r->rechnungsNummer().value_or(u"-"_s));
        return result;
    }
};

TEST_F(ArrayControllerTest, OrdnetNachMehrerenSchluesselnOhneRuecksichtAufGrossschreibung)
{
    auto *beta = moc().insertNewObject<FKREmpfaenger>();
    beta->setFirma(u"beta"_s);
    auto *alpha = moc().insertNewObject<FKREmpfaenger>();
    alpha->setFirma(u"Alpha"_s);
    dokument(u"R2"_s, beta);
    dokument(u"r1"_s, beta);
    dokument(u"R3"_s, alpha);
    auto *ohne = dokument(u"R0"_s);
    ohne->setRechnungsNummer(std::nullopt);

    FKRArrayController controller(moc(), u"FKRRechnung"_s);
    controller.setSortDescriptors({{u"empfaenger.firma"_s, true}, {u"rechnungsNummer"_s, true}});
    // No recipient sorts first; "Alpha" before "beta" although 'A' < 'b' only without case.
    EXPECT_EQ(nummern(controller), (QStringList{u"-"_s, u"R3"_s, u"r1"_s, u"R2"_s}));

    controller.setSortDescriptors({{u"rechnungsNummer"_s, false}});
    EXPECT_EQ(nummern(controller), (QStringList{u"R3"_s, u"R2"_s, u"r1"_s, u"-"_s}));

    controller.setFilterPredicate([](const ManagedObject &o) {
        return static_cast<const FKRRechnung &>(o).empfaenger() != nullptr;
    });
    EXPECT_EQ(nummern(controller), (QStringList{u"R3"_s, u"R2"_s, u"r1"_s}));
    EXPECT_EQ(controller.rowCount(), 3);
}

TEST_F(ArrayControllerTest, FolgtEinfuegenLoeschenUndSpeichernOhneZeilenZuVerschieben)
{
    FKRArrayController controller(moc(), u"FKRRechnung"_s);
    controller.setSortDescriptors({{u"rechnungsNummer"_s, true}});
    controller.setFilterPredicate([](const ManagedObject &o) {
        return static_cast<const FKRRechnung &>(o).versandt() != true;
    });
    auto *b = dokument(u"B"_s);
    // An insert is seen by the next reader at once, and by the views on the next turn.
    EXPECT_EQ(nummern(controller), QStringList{u"B"_s});

    auto *neu = controller.newObjectOf<FKRRechnung>();
    EXPECT_EQ(controller.rowOf(neu), 1); // new rows join at the end
    neu->setRechnungsNummer(u"A"_s);
    b->setVersandt(true);
    ASSERT_TRUE(moc().save());
    // A save neither reorders nor drops a row that no longer passes the filter ...
    EXPECT_EQ(nummern(controller), (QStringList{u"B"_s, u"A"_s}));
    // ... until the controller is asked to arrange again.
    controller.rearrangeObjects();
    EXPECT_EQ(nummern(controller), QStringList{u"A"_s});
    controller.setFilterPredicate({});

    int umordnungen = 0;
    QObject::connect(&controller, &FKRArrayController::arrangedObjectsChanged, [&] { ++umordnungen; });
    moc().deleteObject(b);
    moc().deleteObject(neu);
    ASSERT_TRUE(apptest::warteBis([&] { return controller.rowCount() == 0; }, 2000));
    EXPECT_EQ(umordnungen, 1); // two deletes, one rebuild
    EXPECT_EQ(controller.objectAt(0), nullptr);
    EXPECT_EQ(controller.rowOf(b), -1);
}

} // namespace
