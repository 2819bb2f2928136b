// Line breaking of the page writer: the lines the layout engine sets by words, for ordinary texts
// and for long runs without a blank in any script; a word wider than the box breaks at its end.
#include "FKRPDFSchriften.h"
#include "FKRPDFTextSatz.h"

#include <QTextLayout>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

// The engine's own setting by words, line by line, as the writer asks for it.
QStringList engineZeilen(const QString &text, const QFont &font, double breite)
{
    QFont geraet = font;
    geraet.setPixelSize(qRound(font.pointSizeF() * FKRPDFTextSatz::kMassstab));
    QTextLayout layout(QString(text).replace(u'\n', QChar::LineSeparator), geraet);
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);
    layout.setTextOption(option);
    layout.setCacheEnabled(true);
    QStringList zeilen;
    layout.beginLayout();
    for (QTextLine zeile = layout.createLine(); zeile.isValid(); zeile = layout.createLine()) {
        zeile.setLineWidth(breite * FKRPDFTextSatz::kMassstab);
        zeilen << layout.text().mid(zeile.textStart(), zeile.textLength());
    }
    layout.endLayout();
    return zeilen;
}

TEST(FKRPDFTextSatz, LinesAreTheEnginesOwnForEveryKindOfText)
{
    const QFont font = FKRPDFSchriften::schrift(9.0);
    const auto breite = [&](const QString &text) { return FKRPDFTextSatz(text, font, 1000, Qt::AlignLeft, 0).breite(); };
    // A box in which a word of 70 letters fits, but not with the hyphen that a soft hyphen after
    // it shows at the end of a line.
    const double knapp = breite(u"x"_s.repeated(70)) + breite(u"-"_s) / 2;
    const struct
    {
        const char *art;
        QString text;
        QList<double> breiten = {56.0, 340.0};
    } faelle[] = {
        {"prose", u"Wir berechnen Ihnen für die Arbeiten im März folgende Leistungen, "_s.repeated(12)},
        {"one long word", u"Rechnungsbetrag"_s.repeated(60)},
        {"long word among words", u"Sehr geehrte Frau Lehmann, "_s + u"Gartenpflege"_s.repeated(30) + u" und mehr Text danach"_s},
        {"tab before a long word", u"Betrag\t"_s + u"x"_s.repeated(400) + u"\nneue Zeile"_s},
        {"soft hyphens in a long word", (u"Rechnungs\u00ADbetrags\u00AD"_s).repeated(30)},
        {"soft hyphens before a tab at the end of a full line", u"x"_s.repeated(70) + u"\u00AD\u00AD\ty"_s, {knapp}},
        {"no-break spaces", (u"12\u00A0€\u00A0"_s).repeated(120)},
        {"URL", u"https://example.com/rechnungen/2024/"_s + u"abc/def-ghi?x=1&"_s.repeated(40)},
        {"Japanese with closing marks", u"請求書を送付します。ご確認ください、"_s.repeated(30)},
        {"Thai", u"ภาษาไทยใบแจ้งหนี้"_s.repeated(40)},
        {"Korean syllables", u"청구서금액"_s.repeated(80) + u" 감사합니다"_s},
        {"combining marks", u"e\u0301\u0301"_s.repeated(300)},
        {"zero-width joiners", u"a\u200D"_s.repeated(400)},
        {"Arabic and Latin", QString(u"فاتورة"_s + u"Rechnung"_s).repeated(60)},
    };
    for (const auto &fall : faelle) {
        for (const double box : fall.breiten) {
            SCOPED_TRACE(testing::Message() << fall.art << " at " << box << " pt");
            const FKRPDFTextSatz satz(fall.text, font, box, Qt::AlignLeft, 0.15);
            EXPECT_EQ(satz.zeilenTexte(), engineZeilen(fall.text, font, box));
            EXPECT_EQ(satz.zeilen(), satz.zeilenTexte().size());
        }
    }
}

TEST(FKRPDFTextSatz, AWordEndsWhereTheEngineWouldBreakALine)
{
    // Whether a line starting in a long run without a blank may be set by words.
    const struct
    {
        const char *art;
        QString text;
        bool endet;
    } faelle[] = {
        {"one long word", u"Rechnungsbetrag"_s.repeated(10), false},
        {"a path", u"rechnungen/2024/maerz/"_s.repeated(5), true},
        {"Thai words", u"ภาษาไทยใบแจ้งหนี้"_s.repeated(10), true},
        {"Japanese", u"請求書を送付します"_s.repeated(10), true},
        {"Korean syllables", u"청구서금액"_s.repeated(20), false},
        {"Korean compatibility letters", u"ㄱㄴㄷ"_s.repeated(30), false},
        {"Korean letters among Latin ones", u"x\u1100\u1161"_s.repeated(30), false},
        {"a soft hyphen where the line stops", u"x"_s.repeated(40) + u"\u00ADy"_s, true},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.art);
        EXPECT_EQ(FKRPDFTextSatz::wortEndetBis(fall.text, 2, 40), fall.endet);
    }
}

TEST(FKRPDFTextSatz, AWordWiderThanTheBoxBreaksWhereTheBoxEnds)
{
    // Every line but the last holds as many equal characters as fit, and one more would not.
    const QFont font = FKRPDFSchriften::schrift(9.0);
    const double zeichen = FKRPDFTextSatz(u"x"_s, font, 1000, Qt::AlignLeft, 0.15).breite();
    for (const int laenge : {200, 200'000}) {
        SCOPED_TRACE(laenge);
        const FKRPDFTextSatz satz(u"x"_s.repeated(laenge), font, 100.0, Qt::AlignLeft, 0.15);
        const QStringList zeilen = satz.zeilenTexte();
        const qsizetype jeZeile = zeilen.value(0).size();
        EXPECT_LE(jeZeile * zeichen, 100.0 + 1e-6);
        EXPECT_GT((jeZeile + 1) * zeichen, 100.0);
        EXPECT_EQ(zeilen.size(), (laenge + jeZeile - 1) / jeZeile);
        for (qsizetype i = 0; i + 1 < zeilen.size(); ++i)
            ASSERT_EQ(zeilen[i].size(), jeZeile) << i;
        EXPECT_EQ(zeilen.join(QString()).size(), laenge);
        EXPECT_NEAR(satz.breite(), jeZeile * zeichen, 1e-6);
    }
    // Line ends of every system start a line.
    EXPECT_EQ(FKRPDFTextSatz(u"eins\r\nzwei\rdrei\nvier"_s, font, 100.0, Qt::AlignLeft, 0.15).zeilen(), 4);
}

} // namespace
