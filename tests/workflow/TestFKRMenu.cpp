// The navigation menu: the accent colour from the settings (and its repaint when the setting
// changes), the highlight of the chosen area, the areas' effect on list and view, and the
// settings and help buttons by mouse and keyboard.

#include "WorkflowTestSupport.h"

#include "QBMStyleUtil.h"

#include <QLabel>
#include <QSignalSpy>

using namespace workflowtest;

namespace {

class MenuTest : public FensterTest
{
protected:
    MenuTest()
    {
        einstellungen()->setBackgroundColorRechnungen(Decimal(43));
        baueHauptfenster();
    }
    ~MenuTest() override { einstellungen()->setBackgroundColorRechnungen(Decimal(43)); }

    static QBBenutzerEinstellungen *einstellungen() { return QBBenutzerEinstellungen::sharedInstance(); }
    // The colour both fields of an entry paint their text with, or an invalid colour when they differ.
    static QColor farbe(const FKRMenuKnopf *knopf)
    {
        const auto gemalt = [](const QLabel *feld) { return feld->palette().color(feld->foregroundRole()); };
        const QColor icon = gemalt(knopf->iconTextField());
        return icon == gemalt(knopf->labelTextField()) ? icon : QColor();
    }
    void erwarteHervorgehoben(int aktiv)
    {
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(farbe(menu->bereichsKnopf(i)), i == aktiv ? QColor(255, 255, 255) : QColor::fromRgbF(1, 1, 1, 0.6f))
                << "area " << i;
    }
};

TEST_F(MenuTest, AkzentFarbeAusDerEinstellungMitRueckfallAufGrauUndSofortGemalt)
{
    EXPECT_EQ(menu->hintergrundFarbe(), QColor(235, 10, 0));
    const struct {
        std::optional<Decimal> code;
        QColor farbe;
    } faelle[] = {{Decimal(43), {235, 10, 0}},           {Decimal(5), {165, 165, 165}},
                  {zahl("13.5"), {165, 165, 165}},       {Decimal::notANumber(), {165, 165, 165}},
                  {zahl("63.0"), {170, 10, 150}},        {Decimal(13), {0, 160, 230}},
                  {Decimal(99), {165, 165, 165}}};
    for (const auto &fall : faelle) {
        einstellungen()->setBackgroundColorRechnungen(*fall.code);
        EXPECT_EQ(QBMStyleUtil::appColor(), fall.farbe) << fall.code->toString();
        EXPECT_EQ(menu->grab().toImage().pixelColor(1, 1), fall.farbe) << fall.code->toString();
    }
    EXPECT_EQ(QBMStyleUtil::farbeFuerCode(Decimal(2)), QColor(80, 80, 80));
    EXPECT_EQ(QBMStyleUtil::mittelGrau(), QColor(165, 165, 165));
}

TEST_F(MenuTest, BereichsKnoepfeMarkierenFilternUndLeerenDieAnsicht)
{
    auto *offen = moc().insertNewObject<FKRRechnung>();
    auto *bezahlt = moc().insertNewObject<FKRRechnung>();
    bezahlt->setBezahlt(true);
    ASSERT_TRUE(moc().save());
    erwarteHervorgehoben(4);
    EXPECT_FALSE(FKRMenuViewController::iconSchriftFamilie().isEmpty());
    EXPECT_EQ(menu->bereichsKnopf(0)->iconTextField()->font().family(), FKRMenuViewController::iconSchriftFamilie());
    EXPECT_EQ(menu->hilfeButtonBox()->iconTextField()->font().pointSize(), 36);

    liste->setSelectedObjects({offen});
    ASSERT_EQ(ansicht->rechnung(), offen);
    for (int mal = 0; mal < 2; ++mal) {
        QTest::mouseClick(menu->bereichsKnopf(3), Qt::LeftButton);
        erwarteHervorgehoben(3);
        EXPECT_EQ(liste->rechnungenListeArrayController().arranged<FKRRechnung>(), QList<FKRRechnung *>{bezahlt});
        EXPECT_EQ(ansicht->rechnung(), nullptr);
    }

    // The keyboard: Space and Return press the focused entry.
    menu->bereichsKnopf(0)->setFocus();
    QTest::keyClick(menu->bereichsKnopf(0), Qt::Key_Space);
    erwarteHervorgehoben(0);
    EXPECT_EQ(liste->rechnungenListeArrayController().arrangedObjects().size(), 2); // both are drafts
    menu->bereichsKnopf(4)->setFocus();
    QTest::keyClick(menu->bereichsKnopf(4), Qt::Key_Return);
    erwarteHervorgehoben(4);
    menu->markiereAktivenBereich(7);
    erwarteHervorgehoben(-1);

    // Help comes one turn later, the settings at once.
    QSignalSpy hilfe(menu, &FKRMenuViewController::hilfeGewaehlt);
    QSignalSpy einstellungenSpy(menu, &FKRMenuViewController::einstellungenGewaehlt);
    QTest::mouseClick(menu->hilfeButtonBox(), Qt::LeftButton);
    EXPECT_EQ(hilfe.count(), 0);
    EXPECT_TRUE(hilfe.wait(1000));
    EXPECT_EQ(hilfe.count(), 1);
    QTest::mouseClick(menu->einstellungenButtonBox(), Qt::LeftButton);
    EXPECT_EQ(einstellungenSpy.count(), 1);
}

} // namespace
