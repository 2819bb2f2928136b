// Numbers in the editor: typed in the user's locale, rates as percentages stored as exact
// fractions, refused text that never reaches the document, net and gross, the currency, and
// the sums that follow every edit at once.

#include "WorkflowTestSupport.h"

#include "FKRDezimalFeld.h"
#include "FKREditorBetragTab.h"

#include <QAction>
#include <QComboBox>
#include <QRadioButton>
#include <QTabWidget>

using namespace workflowtest;

namespace {

class BetragTest : public FensterTest
{
protected:
    // A document with one item of 100 at 19 % VAT, opened on the amount tab.
    FKRRechnungsDetailsViewController &oeffneBetragTab()
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
        return *editor;
    }
    void frischeAuf()
    {
        editor->tabView()->setCurrentIndex(0);
        editor->tabView()->setCurrentIndex(1);
    }
    QString summe() const { return editor->betragTab()->betragTabRechnungsSummeTextField->text(); }

    // The warning of a refused text: icon, red frame, and the reason as the tooltip.
    static bool zeigtWarnung(FKRDezimalFeld *feld, const char *grund)
    {
        const QImage bild = feld->grab().toImage();
        const QColor rand = bild.pixelColor(bild.width() / 2, 0);
        const bool rot = rand.red() > 150 && rand.green() < 100 && rand.blue() < 100;
        const bool symbol = !feld->actions().isEmpty() && feld->actions().first()->isVisible();
        return feld->zeigtHinweis() && rot && symbol && feld->toolTip().contains(QString::fromUtf8(grund));
    }

    FKRRechnung *rechnung = nullptr;
    FKRPosten *posten = nullptr;
    FKRRechnungsDetailsViewController *editor = nullptr;
};

TEST_F(BetragTest, ZahlenInDerSpracheDesBenutzers)
{
    // nullptr: refused. The other decimal separator counts where it cannot group thousands;
    // where it never groups (French), it is always the decimal one.
    const struct {
        const char *locale;
        QString text;
        const char *wert;
    } faelle[] = {
        {"de_DE", u"1.234,5"_s, "1234.5"}, {"de_DE", u" -12,50 "_s, "-12.5"}, {"de_DE", u",5"_s, "0.5"},
        {"de_DE", u"7,5"_s, "7.5"},        {"de_DE", u"7.5"_s, "7.5"},        {"de_DE", u"1.23"_s, "1.23"},
        {"de_DE", u"0.500"_s, "0.5"},      {"de_DE", u".5"_s, "0.5"},         {"de_DE", u"1.234"_s, "1234"},
        {"de_DE", u"1.234.567"_s, "1234567"}, {"de_DE", u"1.5.0"_s, nullptr}, {"de_DE", u"1.5,0"_s, nullptr},
        {"de_DE", u"1,2,3"_s, nullptr},    {"de_DE", u"12.34.567"_s, nullptr}, {"de_DE", u"1.23a"_s, nullptr},
        {"de_DE", u"12a"_s, nullptr},      {"de_DE", u"1e3"_s, nullptr},      {"de_DE", u""_s, nullptr},
        {"de_DE", u"-"_s, nullptr},        {"de_DE", u"∞"_s, nullptr},        {"en_US", u"1,234.5"_s, "1234.5"},
        {"fr_FR", u"7.5"_s, "7.5"},        {"fr_FR", u"1.234"_s, "1.234"},    {"en_US", u"7.5"_s, "7.5"},
        {"en_US", u"7,5"_s, "7.5"},        {"en_US", u"1,234"_s, "1234"},     {"en_US", u"0,25"_s, "0.25"},
        {"en_US", u"1,5.0"_s, nullptr},    {"en_US", u"1.234,5"_s, nullptr},
    };
    for (const auto &fall : faelle) {
        QLocale::setDefault(QLocale(QString::fromLatin1(fall.locale)));
        EXPECT_EQ(FKRDezimalFeld::leseZahl(fall.text), fall.wert ? std::optional(zahl(fall.wert)) : std::nullopt)
            << fall.locale << " " << fall.text.toStdString();
    }
    EXPECT_EQ(FKRDezimalFeld::zahlText(zahl("7.5")), u"7.5"_s);
    QLocale::setDefault(QLocale(u"de_DE"_s));
    EXPECT_EQ(FKRDezimalFeld::zahlText(zahl("-7.5")), u"-7,5"_s);
}

TEST_F(BetragTest, ProzenteWerdenAlsBruchGespeichertUndFalscherTextNie)
{
    FKREditorBetragTab &tab = *oeffneBetragTab().betragTab();
    EXPECT_EQ(tab.betragTabMwStSatzTextField->text(), u"19"_s);
    EXPECT_EQ(tab.betragTabRabattTextField->text(), u"0"_s);
    EXPECT_EQ(summe(), u"€ 119,00"_s);
    ersetze(tab.betragTabRabattTextField, u"12,5"_s);
    QTest::keyClick(tab.betragTabRabattTextField, Qt::Key_Return);
    EXPECT_EQ(rechnung->rabatt(), zahl("0.125"));
    EXPECT_EQ(summe(), u"€ 104,13"_s);

    // The value stays what it was before this edit, here the confirmed 12,5 %.
    ersetze(tab.betragTabRabattTextField, u"zwanzig"_s);
    EXPECT_TRUE(tab.betragTabRabattTextField->zeigtHinweis());
    EXPECT_EQ(tab.betragTabRabattTextField->toolTip(), FKRLocalizationHelper::hauptTabellenText(u"EDITOR_HINWEIS_KEINE_ZAHL"_s));
    EXPECT_EQ(rechnung->rabatt(), zahl("0.125"));
    EXPECT_EQ(summe(), u"€ 104,13"_s);
    ersetze(tab.betragTabRabattTextField, u"5 %"_s);
    EXPECT_FALSE(tab.betragTabRabattTextField->zeigtHinweis());
    EXPECT_EQ(rechnung->rabatt(), zahl("0.05"));

    // The period is whole days; the "1" typed on the way to "1,5" is not kept either.
    ersetze(tab.betragTabSkontoZeitraumTextField, u"1,5"_s);
    EXPECT_TRUE(tab.betragTabSkontoZeitraumTextField->zeigtHinweis());
    EXPECT_EQ(rechnung->skontoZeitraum(), qint64(0));
    ersetze(tab.betragTabSkontoZeitraumTextField, u"14"_s);
    EXPECT_EQ(rechnung->skontoZeitraum(), qint64(14));

    // A refreshed tab shows what is stored, days as days.
    ersetze(tab.betragTabZuschlagTextField, u"x"_s);
    frischeAuf();
    EXPECT_FALSE(tab.betragTabZuschlagTextField->zeigtHinweis());
    EXPECT_EQ(tab.betragTabZuschlagTextField->text(), u"0"_s);
    EXPECT_EQ(tab.betragTabSkontoZeitraumTextField->text(), u"14"_s);
}

TEST_F(BetragTest, JedesZahlenfeldUndJedeZahlenzelleSagtWarumSieAblehnt)
{
    struct Sprache {
        const char *locale, *keineZahl, *keineGanzzahl;
    };
    for (const Sprache &sprache : {Sprache{"de_DE", "keine gültige Zahl", "ganze Zahl"},
                                   Sprache{"en_US", "not a valid number", "whole number"}}) {
        SCOPED_TRACE(sprache.locale);
        setzeSprache(sprache.locale);
        FKREditorBetragTab &tab = *oeffneBetragTab().betragTab();
        const std::pair<FKRDezimalFeld *, const char *> felder[] = {
            {tab.betragTabMwStSatzTextField, sprache.keineZahl},   {tab.betragTabRabattTextField, sprache.keineZahl},
            {tab.betragTabZuschlagTextField, sprache.keineZahl},   {tab.betragTabSkontoTextField, sprache.keineZahl},
            {tab.betragTabSkontoZeitraumTextField, sprache.keineGanzzahl}};
        for (const auto &[feld, grund] : felder) {
            ersetze(feld, u"x"_s);
            EXPECT_TRUE(zeigtWarnung(feld, grund)) << feld->objectName().toStdString();
        }

        // A cell shows the same while it is edited (Return does not leave it), and still after
        // a click elsewhere, until Escape gives the text up.
        editor->tabView()->setCurrentIndex(0);
        QTableView *tabelle = editor->postenTab()->postenTableView;
        const std::pair<int, const char *> zellen[] = {{FKREditorPostenTab::kNummer, sprache.keineGanzzahl},
                                                       {FKREditorPostenTab::kAnzahl, sprache.keineZahl},
                                                       {FKREditorPostenTab::kEinzelbetrag, sprache.keineZahl}};
        for (const auto &[spalte, grund] : zellen) {
            const QModelIndex zelle = editor->rechnungsPostenArrayController().index(0, spalte);
            auto *feld = qobject_cast<FKRDezimalFeld *>(bearbeiteZelle(*editor, spalte, u"1,2,3"_s));
            ASSERT_NE(feld, nullptr);
            EXPECT_EQ(tabelle->indexWidget(zelle), feld);
            EXPECT_TRUE(zeigtWarnung(feld, grund)) << spalte;
            const QModelIndex anderswo = editor->rechnungsPostenArrayController().index(0, FKREditorPostenTab::kGesamt);
            QTest::mouseClick(tabelle->viewport(), Qt::LeftButton, {}, tabelle->visualRect(anderswo).center());
            QCoreApplication::processEvents();
            feld = qobject_cast<FKRDezimalFeld *>(tabelle->indexWidget(zelle));
            ASSERT_NE(feld, nullptr);
            EXPECT_EQ(feld->text(), u"1,2,3"_s);
            EXPECT_TRUE(zeigtWarnung(feld, grund)) << spalte;
            QTest::keyClick(feld, Qt::Key_Escape);
            QCoreApplication::processEvents();
            EXPECT_EQ(tabelle->indexWidget(zelle), nullptr);
        }
        EXPECT_EQ(posten->anzahl(), Decimal(1));
        // Nor does the model take text from anywhere else.
        EXPECT_FALSE(editor->rechnungsPostenArrayController().setData(
            editor->rechnungsPostenArrayController().index(0, FKREditorPostenTab::kAnzahl), u"viel"_s));
        FKRRechnungsDetailsWindowController::aktuellesFenster()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(BetragTest, NettoBruttoWaehrungUndPostenZellenAendernDieSummeSofort)
{
    FKREditorBetragTab &tab = *oeffneBetragTab().betragTab();
    EXPECT_TRUE(tab.betragTabBruttoRadioButton->isChecked());
    EXPECT_TRUE(tab.betragTabMwStSatzTextField->isEnabled());

    // Net clears the VAT; gross shows zero until a rate is typed.
    QTest::mouseClick(tab.betragTabNettoRadioButton, Qt::LeftButton);
    EXPECT_EQ(rechnung->brutto(), false);
    EXPECT_EQ(rechnung->mwStSatz(), Decimal(0));
    EXPECT_EQ(tab.betragTabMwStSatzTextField->text(), u"0"_s);
    EXPECT_FALSE(tab.betragTabMwStSatzTextField->isEnabled());
    EXPECT_EQ(summe(), u"€ 100,00"_s);
    QTest::mouseClick(tab.betragTabBruttoRadioButton, Qt::LeftButton);
    EXPECT_EQ(rechnung->brutto(), true);
    EXPECT_EQ(tab.betragTabMwStSatzTextField->text(), u"0"_s);
    EXPECT_TRUE(tab.betragTabMwStSatzTextField->isEnabled());
    ersetze(tab.betragTabMwStSatzTextField, u"19"_s);
    EXPECT_EQ(rechnung->mwStSatz(), zahl("0.19"));
    EXPECT_EQ(summe(), u"€ 119,00"_s);

    // The currency: the euro when none is stored (and nothing written), a foreign one kept.
    QComboBox *box = tab.betragTabWaehrungsComboBox;
    for (const std::optional<QString> &waehrung : {std::optional<QString>(), std::optional(u"SEK"_s)}) {
        rechnung->setWaehrung(waehrung);
        frischeAuf();
        EXPECT_EQ(box->currentText(), waehrung.value_or(u"€"_s));
        EXPECT_EQ(rechnung->waehrung(), waehrung);
    }
    box->setCurrentIndex(box->findText(u"CHF"_s));
    EXPECT_EQ(rechnung->waehrung(), u"CHF"_s);
    EXPECT_EQ(summe(), u"CHF 119,00"_s);
    box->setCurrentIndex(box->findText(u"€"_s));

    // Item cells change both sums at once.
    editor->tabView()->setCurrentIndex(0);
    bearbeiteZelle(*editor, FKREditorPostenTab::kAnzahl, u"2,5"_s);
    EXPECT_EQ(posten->anzahl(), zahl("2.5"));
    EXPECT_EQ(editor->postenTab()->postenTabRechnungsSummeTextField->text(), u"€ 250,00"_s);
    EXPECT_EQ(summe(), u"€ 297,50"_s);
    bearbeiteZelle(*editor, FKREditorPostenTab::kEinzelbetrag, u"1.000,50"_s);
    EXPECT_EQ(posten->einzelbetrag(), zahl("1000.5"));
    EXPECT_EQ(editor->postenTab()->postenTabRechnungsSummeTextField->text(), u"€ 2.501,25"_s);
}

} // namespace
