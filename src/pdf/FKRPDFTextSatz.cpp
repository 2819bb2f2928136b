#include "FKRPDFTextSatz.h"

#include "FKRPDFSchriften.h"

#include <QPainter>
#include <QTextBoundaryFinder>
#include <QTextOption>

#include <algorithm>

namespace {

// The layout engine breaks lines only at Unicode line separators; a typed text has line feeds.
QString mitZeilentrennern(QString text)
{
    text.replace(QLatin1String("\r\n"), QString(QChar::LineSeparator));
    text.replace(QLatin1Char('\n'), QChar::LineSeparator);
    text.replace(QLatin1Char('\r'), QChar::LineSeparator);
    return text;
}

QFont geraeteSchrift(QFont font)
{
    const double punkte = font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize();
    font.setPixelSize(std::max(1, qRound(punkte * FKRPDFTextSatz::kMassstab)));
    return font;
}

double punktGroesse(const QFont &font)
{
    return font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize();
}

// Setting a text by words, the engine collects words until one does not fit, reading each word
// to its end. A line whose first word is wider than the box is then set again, breaking the word
// where the box ends; the next line starts in the rest of that word, which is read to its end
// once more. A word of n characters cost n² / line length steps that way.
//
// A line that starts within a long run of characters without a blank is therefore first set
// breaking anywhere, which reads no further than the box reaches. When a word ends within that
// line, its first word fits, and it is set again by words; otherwise the first word is wider than
// the box and the line stays as it is, which is what the engine makes of it too. A line starting
// near a blank is set by words directly. Either way the lines are the engine's, and setting a
// text takes time in proportion to its length.
constexpr int kLangerLauf = 64;

// Blanks that end a word for the engine; a no-break space joins words.
bool trenntWoerter(QChar zeichen)
{
    return zeichen.isSpace() && zeichen.decompositionTag() != QChar::NoBreak;
}

// Where the next blank lies, for positions that never decrease from one question to the next.
class Leerzeichen
{
public:
    explicit Leerzeichen(const QString &text)
        : m_text(text)
    {
    }

    int abPosition(int von)
    {
        m_position = std::max(m_position, von);
        while (m_position < m_text.size() && !trenntWoerter(m_text.at(m_position)))
            ++m_position;
        return m_position;
    }

private:
    const QString m_text;
    int m_position = 0;
};

} // namespace

bool FKRPDFTextSatz::wortEndetBis(const QString &text, int von, int ende)
{
    // The engine shows a soft hyphen at the end of a line but not after the first word, so a
    // line that stopped before one may hold that word after all: the engine decides.
    if (ende < text.size() && text.at(ende) == QChar::SoftHyphen)
        return true;
    const int anfang = std::max(0, von - kLangerLauf);
    QString umgebung = text.mid(anfang, ende + kLangerLauf - anfang);
    for (QChar &zeichen : umgebung) {
        const char16_t c = zeichen.unicode();
        if ((c >= 0x1100 && c <= 0x11FF) || (c >= 0x3130 && c <= 0x318F) || (c >= 0xA960 && c <= 0xA97F)
            || (c >= 0xAC00 && c <= 0xD7FF))
            zeichen = QLatin1Char('a');
    }
    QTextBoundaryFinder umbrueche(QTextBoundaryFinder::Line, umgebung);
    umbrueche.setPosition(von - anfang);
    const qsizetype naechster = umbrueche.toNextBoundary();
    return naechster >= 0 && anfang + naechster <= ende;
}

FKRPDFTextSatz::FKRPDFTextSatz(const QString &text, const QFont &font, double breite, Qt::Alignment ausrichtung,
                               double zeilenabstand)
    : m_layout(mitZeilentrennern(text), geraeteSchrift(font))
{
    m_groesse = punktGroesse(font);
    m_zeilenSchritt = m_groesse * (FKRPDFSchriften::kZeilenhoehe + zeilenabstand);
    const double oberlaenge = m_groesse * FKRPDFSchriften::kOberlaenge * kMassstab;

    QTextOption option(ausrichtung);
    option.setUseDesignMetrics(true);
    const auto umbrechen = [&](QTextOption::WrapMode art) {
        option.setWrapMode(art);
        m_layout.setTextOption(option);
    };
    umbrechen(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_layout.setCacheEnabled(true);
    const QString gesetzt = m_layout.text();
    Leerzeichen leerzeichen(gesetzt);

    const double zeilenBreite = std::max(0.0, breite) * kMassstab;
    double breitesteZeile = 0.0;
    m_layout.beginLayout();
    for (QTextLine zeile = m_layout.createLine(); zeile.isValid(); zeile = m_layout.createLine()) {
        const int von = zeile.textStart();
        const int blank = leerzeichen.abPosition(von);
        if (blank - von > kLangerLauf) {
            umbrechen(QTextOption::WrapAnywhere);
            zeile.setLineWidth(zeilenBreite);
            const int ende = von + zeile.textLength();
            umbrechen(QTextOption::WrapAtWordBoundaryOrAnywhere);
            if (blank <= ende || wortEndetBis(gesetzt, von, ende))
                zeile.setLineWidth(zeilenBreite);
        } else {
            zeile.setLineWidth(zeilenBreite);
        }
        // The baseline sits at the designed ascent below the line's top, whatever the substitute's
        // own ascent is.
        zeile.setPosition(QPointF(0.0, m_zeilen * m_zeilenSchritt * kMassstab + oberlaenge - zeile.ascent()));
        breitesteZeile = std::max(breitesteZeile, zeile.naturalTextWidth());
        ++m_zeilen;
    }
    m_layout.endLayout();
    m_breite = breitesteZeile / kMassstab;
}

double FKRPDFTextSatz::hoehe(double zeilenabstand) const
{
    return m_zeilen * (m_groesse * (FKRPDFSchriften::kZeilenhoehe + zeilenabstand));
}

QStringList FKRPDFTextSatz::zeilenTexte() const
{
    QStringList texte;
    for (int i = 0; i < m_layout.lineCount(); ++i) {
        const QTextLine zeile = m_layout.lineAt(i);
        texte << m_layout.text().mid(zeile.textStart(), zeile.textLength());
    }
    return texte;
}

void FKRPDFTextSatz::zeichne(QPainter &painter, QPointF obenLinks, const QRectF &sichtbar) const
{
    m_layout.draw(&painter, obenLinks, {}, sichtbar);
}
