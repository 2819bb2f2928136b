// The navigation menu: the accent colour from the settings, the highlight of the chosen area,
// the areas' effect on list and view.

#include "WorkflowTestSupport.h"

#include "QBMStyleUtil.h"

using namespace workflowtest;

namespace {

class MenuTest : public FensterTest
{
protected:
    MenuTest() { baueHauptfenster(); }
    ~MenuTest() override { QBBenutzerEinstellungen::sharedInstance()->setBackgroundColorRechnungen(Decimal(43)); }

    void erwarteHervorgehoben(int aktiv)
    {
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(menu->bereichsKnopf(i)->textFarbe() == QColor(Qt::white), i == aktiv) << "area " << i;
    }
};

TEST_F(MenuTest, AkzentFarbeAusDerEinstellungMitRueckfallAufGrau)
{
    const struct {
        Decimal code;
        QColor farbe;
    } faelle[] = {{Decimal(43), {235, 10, 0}}, {zahl("13.5"), {165, 165, 165}}, {zahl("63.0"), {170, 10, 150}}};
    for (const auto &fall : faelle) {
        QBBenutzerEinstellungen::sharedInstance()->setBackgroundColorRechnungen(fall.code);
        EXPECT_EQ(menu->grab().toImage().pixelColor(1, 1), fall.farbe) << fall.code.toString();
    }
}

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
