// Numbers in the editor: the user's locale, exact percentages, refusals, net, gross and currency.

#include "WorkflowTestSupport.h"

#include "FKRDezimalFeld.h"
#include "FKREditorBetragTab.h"

#include <QComboBox>
#include <QRadioButton>
#include <QTabWidget>

using namespace workflowtest;

namespace {

class BetragTest : public FensterTest
{
protected:
    FKREditorBetragTab &oeffneBetragTab()
    {
        rechnung = moc().insertNewObject<FKRRechnung>();
        rechnung->setMwStSatz(zahl("0.19"));
        rechnung->setBrutto(true);
        posten = moc().insertNewObject<FKRPosten>();
        posten->setAnzahl(Decimal(1));
        posten->setEinzelbetrag(Decimal(100));
        posten->setRechnung(rechnung);
        moc().save();
        editor = FKRRechnungsDetailsWindowController::oeffne(*delegate, rechnung, nullptr)->editor();
        editor->tabView()->setCurrentIndex(1);
        return *editor->betragTab();
    }
    QString summe() const { return editor->betragTab()->betragTabRechnungsSummeTextField->text(); }
    static bool zeigtWarnung(FKRDezimalFeld *feld, const char *grund)
    {
        return feld->zeigtHinweis() && feld->toolTip().contains(QString::fromUtf8(grund));
    }

    FKRRechnung *rechnung = nullptr;
    FKRPosten *posten = nullptr;
    FKRRechnungsDetailsViewController *editor = nullptr;
};

TEST_F(BetragTest, ZahlenInDerSpracheDesBenutzers)
{
    // nullptr: refused. The other separator is a decimal one where it cannot group thousands.
    const struct {
        const char *locale;
        QString text;
        const char *wert;
    } faelle[] = {
        {"de_DE", u"1.234,5"_s, "1234.5"}, {"de_DE", u" -12,50 "_s, "-12.5"}, {"de_DE", u"7.5"_s, "7.5"},
        {"de_DE", u"1.234"_s, "1234"},     {"de_DE", u"1.5.0"_s, nullptr},   {"de_DE", u"12.34.567"_s, nullptr},
        {"de_DE", u"1e3"_s, nullptr},      {"de_DE", u"-"_s, nullptr},       {"en_US", u"1,234.5"_s, "1234.5"},
        {"en_US", u"7,5"_s, "7.5"},        {"en_US", u"1.234,5"_s, nullptr}, {"fr_FR", u"1.234"_s, "1.234"},
    };
    for (const auto &fall : faelle) {
        QLocale::setDefault(QLocale(QString::fromLatin1(fall.locale)));
        EXPECT_EQ(FKRDezimalFeld::leseZahl(fall.text), fall.wert ? std::optional(zahl(fall.wert)) : std::nullopt)
            << fall.locale << " " << fall.text.toStdString();
    }
    QLocale::setDefault(QLocale(u"de_DE"_s));
    EXPECT_EQ(FKRDezimalFeld::zahlText(zahl("-7.5")), u"-7,5"_s);
}

TEST_F(BetragTest, ProzenteWerdenAlsBruchGespeichertUndFalscherTextNie)
{
    FKREditorBetragTab &tab = oeffneBetragTab();
    EXPECT_EQ(tab.betragTabMwStSatzTextField->text(), u"19"_s);
    ersetze(tab.betragTabRabattTextField, u"12,5"_s);
    QTest::keyClick(tab.betragTabRabattTextField, Qt::Key_Return);
    EXPECT_EQ(summe(), u"€ 104,13"_s);
    ersetze(tab.betragTabRabattTextField, u"zwanzig"_s);
    EXPECT_EQ(rechnung->rabatt(), zahl("0.125"));
    EXPECT_EQ(summe(), u"€ 104,13"_s);
}

TEST_F(BetragTest, JedesZahlenfeldUndJedeZahlenzelleSagtWarumSieAblehnt)
{
    setzeSprache("en_US");
    const char *keineZahl = "not a valid number", *keineGanzzahl = "whole number";
    FKREditorBetragTab &tab = oeffneBetragTab();
    for (const auto &[feld, grund] :
         {std::pair{tab.betragTabZuschlagTextField, keineZahl}, {tab.betragTabSkontoZeitraumTextField, keineGanzzahl}}) {
        ersetze(feld, u"x"_s);
        EXPECT_TRUE(zeigtWarnung(feld, grund)) << feld->objectName().toStdString();
    }
    // A cell keeps the refused text and its warning (Return does not leave it) until Escape.
    editor->tabView()->setCurrentIndex(0);
    for (const auto &[spalte, grund] : {std::pair{FKREditorPostenTab::kNummer, keineGanzzahl},
                                        {FKREditorPostenTab::kAnzahl, keineZahl}}) {
        auto *feld = qobject_cast<FKRDezimalFeld *>(bearbeiteZelle(*editor, spalte, u"1,2,3"_s));
        ASSERT_NE(feld, nullptr);
        EXPECT_TRUE(zeigtWarnung(feld, grund)) << spalte;
        QTest::keyClick(feld, Qt::Key_Escape);
    }
    EXPECT_EQ(posten->anzahl(), Decimal(1));
}

TEST_F(BetragTest, NettoBruttoWaehrungUndPostenZellenAendernDieSummeSofort)
{
    FKREditorBetragTab &tab = oeffneBetragTab();
    rechnung->setWaehrung(std::nullopt);
    editor->tabView()->setCurrentIndex(0);
    editor->tabView()->setCurrentIndex(1);
    EXPECT_EQ(tab.betragTabWaehrungsComboBox->currentText(), u"€"_s);
    EXPECT_EQ(rechnung->waehrung(), std::nullopt);
    // Net clears the VAT; gross shows zero until a rate is typed.
    QTest::mouseClick(tab.betragTabNettoRadioButton, Qt::LeftButton);
    EXPECT_EQ(rechnung->mwStSatz(), Decimal(0));
    EXPECT_EQ(summe(), u"€ 100,00"_s);
    QTest::mouseClick(tab.betragTabBruttoRadioButton, Qt::LeftButton);
    ersetze(tab.betragTabMwStSatzTextField, u"19"_s);
    EXPECT_EQ(rechnung->mwStSatz(), zahl("0.19"));
    tab.betragTabWaehrungsComboBox->setCurrentIndex(tab.betragTabWaehrungsComboBox->findText(u"CHF"_s));
    EXPECT_EQ(summe(), u"CHF 119,00"_s);

    editor->tabView()->setCurrentIndex(0);
    bearbeiteZelle(*editor, FKREditorPostenTab::kEinzelbetrag, u"1.000,50"_s);
    EXPECT_EQ(posten->einzelbetrag(), zahl("1000.5"));
    EXPECT_EQ(editor->postenTab()->postenTabRechnungsSummeTextField->text(), u"CHF 1.000,50"_s);
    EXPECT_EQ(summe(), u"CHF 1.190,60"_s);
}

} // namespace
