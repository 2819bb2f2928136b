// The navigation menu: the highlight of the chosen area and the areas' effect on list and view.

#include "WorkflowTestSupport.h"

using namespace workflowtest;

namespace {

class MenuTest : public FensterTest
{
protected:
    MenuTest() { baueHauptfenster(); }

    void erwarteHervorgehoben(int aktiv)
    {
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(menu->bereichsKnopf(i)->textFarbe() == QColor(Qt::white), i == aktiv) << "area " << i;
    }
};

TEST_F(MenuTest, BereichsKnoepfeMarkierenFilternUndLeerenDieAnsicht)
{
    auto *offen = moc().insertNewObject<FKRRechnung>();
    auto *bezahlt = moc().insertNewObject<FKRRechnung>();
    bezahlt->setBezahlt(true);
    ASSERT_TRUE(moc().save());
    erwarteHervorgehoben(4);
    liste->setSelectedObjects({offen});
    ASSERT_EQ(ansicht->rechnung(), offen);
    QTest::mouseClick(menu->bereichsKnopf(3), Qt::LeftButton);
    erwarteHervorgehoben(3);
    EXPECT_EQ(liste->rechnungenListeArrayController().arranged<FKRRechnung>(), QList<FKRRechnung *>{bezahlt});
    EXPECT_EQ(ansicht->rechnung(), nullptr);
    menu->bereichsKnopf(0)->setFocus();
    QTest::keyClick(menu->bereichsKnopf(0), Qt::Key_Space);
    erwarteHervorgehoben(0);
}

} // namespace
