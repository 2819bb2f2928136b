// Line breaking of the page writer: the engine's lines by words in any script, long words broken.
#include "FKRPDFSchriften.h"
#include "FKRPDFTextSatz.h"

#include <QTextLayout>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList engineZeilen(const QString &text, const QFont &font, double breite)
{
    QFont geraet = font;
    geraet.setPixelSize(qRound(font.pointSizeF() * FKRPDFTextSatz::kMassstab));
    QTextLayout layout(QString(text).replace(u'\n', QChar::LineSeparator), geraet);
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);
    layout.setTextOption(option);
    QStringList zeilen;
    layout.beginLayout();
    for (QTextLine zeile = layout.createLine(); zeile.isValid(); zeile = layout.createLine()) {
        zeile.setLineWidth(breite * FKRPDFTextSatz::kMassstab);
        zeilen << layout.text().mid(zeile.textStart(), zeile.textLength());
    }
    layout.endLayout();
    return zeilen;
}

TEST(FKRPDFTextSatz, LinesAreTheEnginesOwnAndAWordEndsWhereTheEngineWouldBreak)
{
    const QFont font = FKRPDFSchriften::schrift(9.0);
    const auto breite = [&](const QString &t) { return FKRPDFTextSatz(t, font, 1000, Qt::AlignLeft, 0).breite(); };
    // A box in which a word of 70 letters fits, but not with the hyphen a soft hyphen after it shows.
    const double knapp = breite(u"x"_s.repeated(70)) + breite(u"-"_s) / 2;
    const struct
    {
        const char *art;
        QString text;
        QList<double> breiten = {56.0, 340.0};
    } faelle[] = {
        {"prose", u"Wir berechnen Ihnen für die Arbeiten im März folgende Leistungen, "_s.repeated(12)},
        {"tab before a long word", u"Betrag\t"_s + u"x"_s.repeated(400) + u"\nneue Zeile"_s},
        {"soft hyphens before a tab at the end of a full line", u"x"_s.repeated(70) + u"\u00AD\u00AD\ty"_s, {knapp}},
        {"Japanese with closing marks", u"請求書を送付します。ご確認ください、"_s.repeated(30)},
        {"Korean syllables", u"청구서금액"_s.repeated(80) + u" 감사합니다"_s},
    };
    for (const auto &fall : faelle)
        for (const double box : fall.breiten) {
            SCOPED_TRACE(testing::Message() << fall.art << " at " << box << " pt");
            const FKRPDFTextSatz satz(fall.text, font, box, Qt::AlignLeft, 0.15);
            EXPECT_EQ(satz.zeilenTexte(), engineZeilen(fall.text, font, box));
            EXPECT_EQ(satz.zeilen(), satz.zeilenTexte().size());
        }
    // Whether a line starting in a long run without a blank may be set by words.
    const std::pair<QString, bool> runs[] = {
        {u"Rechnungsbetrag"_s.repeated(10), false}, {u"rechnungen/2024/maerz/"_s.repeated(5), true},
        {u"ภาษาไทยใบแจ้งหนี้"_s.repeated(10), true}, {u"請求書を送付します"_s.repeated(10), true},
        {u"청구서금액"_s.repeated(20), false}, {u"ㄱㄴㄷ"_s.repeated(30), false},
        {u"x\u1100\u1161"_s.repeated(30), false}, {u"x"_s.repeated(40) + u"\u00ADy"_s, true},
    };
    for (const auto &[text, endet] : runs)
        EXPECT_EQ(FKRPDFTextSatz::wortEndetBis(text, 2, 40), endet) << text.left(12).toStdString();
    // Line ends of every system start a line.
    EXPECT_EQ(FKRPDFTextSatz(u"eins\r\nzwei\rdrei\nvier"_s, font, 100.0, Qt::AlignLeft, 0.15).zeilen(), 4);
}

} // namespace
