#pragma once

#include <QFont>
#include <QString>
#include <QStringList>
#include <QTextLayout>

class QPainter;

// One text broken into lines for a box of a given width: the measuring and drawing engine of
// the page writer.
//
// Lines are laid out in device units of the PDF (kMassstab per point) with a font of the same
// scale, so measuring needs no open file and gives exactly the geometry that is later drawn.
// Line feeds in the text start new lines; long lines wrap at word boundaries (a word wider than
// the box is broken where the box ends). Setting a text takes time in proportion to its length,
// whatever words it is made of. Each line is the font size × FKRPDFSchriften::kZeilenhoehe high
// and followed by the extra spacing, so a text of n lines is n × (line height + spacing) high,
// and texts drawn one below the other keep the rhythm of one paragraph.
class FKRPDFTextSatz
{
public:
    // Device units per point of the PDF files (a resolution of 720 dpi), fine enough for
    // fractional font sizes and positions.
    static constexpr double kMassstab = 10.0;

    // `zeilenabstand` is the extra space after each line as a fraction of the font's point size;
    // `breite` is the box width in points; `ausrichtung` Qt::AlignLeft or Qt::AlignRight.
    FKRPDFTextSatz(const QString &text, const QFont &font, double breite, Qt::Alignment ausrichtung,
                   double zeilenabstand);

    int zeilen() const { return m_zeilen; }
    // Width of the widest line and height of all lines, in points.
    double breite() const { return m_breite; }
    double hoehe() const { return m_zeilen * m_zeilenSchritt; }
    // The height the same lines have with another extra spacing: the lines do not depend on it.
    double hoehe(double zeilenabstand) const;
    // The text of each line as laid out, with its trailing blanks and line separator.
    QStringList zeilenTexte() const;

    // Whether the layout engine, setting `text` by words, ends a word after `von` and no later
    // than `ende` (the end of a line set breaking anywhere). The opportunities to break a line are
    // found on the stretch around the line alone, with enough of the text before and after it
    // for the rules that look at neighbouring characters. Korean syllables count as letters, as
    // the engine takes them: a run of them is one word. Blanks are the caller's to look for.
    static bool wortEndetBis(const QString &text, int von, int ende);

    // Draws the lines with the box's top-left corner at `obenLinks` (device units); only those
    // that reach into `sichtbar` (the page), when it is given.
    void zeichne(QPainter &painter, QPointF obenLinks, const QRectF &sichtbar = QRectF()) const;

private:
    QTextLayout m_layout;
    int m_zeilen = 0;
    double m_breite = 0.0;
    double m_groesse = 0.0;
    double m_zeilenSchritt = 0.0;
};
