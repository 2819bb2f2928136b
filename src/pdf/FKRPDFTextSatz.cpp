#include "FKRPDFTextSatz.h"

#include "FKRPDFSchriften.h"

#include <QPainter>
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

} // namespace

FKRPDFTextSatz::FKRPDFTextSatz(const QString &text, const QFont &font, double breite,
                               Qt::Alignment ausrichtung, double zeilenabstand)
    : m_layout(mitZeilentrennern(text), geraeteSchrift(font))
{
    const double groesse = punktGroesse(font);
    m_zeilenSchritt = groesse * (FKRPDFSchriften::kZeilenhoehe + zeilenabstand);
    const double oberlaenge = groesse * FKRPDFSchriften::kOberlaenge * kMassstab;

    QTextOption option(ausrichtung);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);
    m_layout.setTextOption(option);
    m_layout.setCacheEnabled(true);

    const double zeilenBreite = std::max(0.0, breite) * kMassstab;
    double breitesteZeile = 0.0;
    m_layout.beginLayout();
    for (QTextLine zeile = m_layout.createLine(); zeile.isValid(); zeile = m_layout.createLine()) {
        zeile.setLineWidth(zeilenBreite);
        // The baseline sits at the designed ascent below the line's top, whatever the substitute's
        // own ascent is.
        zeile.setPosition(QPointF(0.0, m_zeilen * m_zeilenSchritt * kMassstab + oberlaenge - zeile.ascent()));
        breitesteZeile = std::max(breitesteZeile, zeile.naturalTextWidth());
        ++m_zeilen;
    }
    m_layout.endLayout();
    m_breite = breitesteZeile / kMassstab;
}

void FKRPDFTextSatz::zeichne(QPainter &painter, QPointF obenLinks) const
{
    m_layout.draw(&painter, obenLinks);
}
