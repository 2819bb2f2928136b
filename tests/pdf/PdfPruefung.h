#pragma once

#include <QImage>
#include <QList>
#include <QMap>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <optional>

// A finished PDF file read back the way a reader sees it, by readers that did not write it:
// words and their boxes and page sizes (pdftotext -bbox), document information and protection
// (pdfinfo, qpdf), image placement (pdftohtml) and rendered pages (QtPdf). Positions are in
// points from the top-left corner of the page, pages are numbered from 1.
class PdfPruefung
{
public:
    struct Wort
    {
        QString text;
        QRectF box;
    };

    struct Seite
    {
        QSizeF groesse;
        QList<Wort> woerter;
    };

    explicit PdfPruefung(const QString &pfad);

    bool gelesen() const { return m_fehler.isEmpty(); }
    const QString &fehler() const { return m_fehler; }
    const QString &pfad() const { return m_pfad; }

    int seitenAnzahl() const { return int(m_seiten.size()); }
    QSizeF seitenGroesse(int seite) const;
    const QList<Wort> &woerter(int seite) const;
    // The box around the first occurrence of `phrase` as consecutive words, or nothing.
    std::optional<QRectF> finde(int seite, const QString &phrase) const;
    QList<QRectF> findeAlle(int seite, const QString &phrase) const;
    // Of several occurrences the one whose top is nearest to `top`.
    std::optional<QRectF> findeNahe(int seite, const QString &phrase, double top) const;
    // The page's text in reading order.
    QString text(int seite) const;
    // The text of every page, each run of white space one blank.
    QString fliesstext() const;

    // "Key: value" lines of pdfinfo (Title, Creator, Author, Encrypted, …).
    QMap<QString, QString> info() const;
    // qpdf --show-encryption as key → value; statements are keys with an empty value.
    QMap<QString, QString> verschluesselung() const;
    // The file's encryption dictionary as qpdf shows it.
    QString verschluesselungsEintraege() const;

    // The boxes in which the page's images are placed, in whole points.
    QList<QRectF> bilder(int seite) const;
    // The page rendered at `dpi` onto white paper (RGB32).
    QImage bild(int seite, double dpi) const;

    // Measures on a page rendered at `dpi`, in points: the bounding box of the pixels close to
    // `farbe`; how far the pixel at (x, y) is from white (0 to 255); the centres of the strokes
    // crossing the pixel column at x between y0 and y1.
    static QRectF flaeche(const QImage &bild, double dpi, QColor farbe, int toleranz = 60);
    static int tinte(const QImage &bild, double dpi, double x, double y);
    static QList<double> striche(const QImage &bild, double dpi, double x, double y0, double y1);

    static QByteArray starte(const QString &programm, const QStringList &argumente, QString *fehler = nullptr);

private:
    const Seite &seite(int seite) const;
    void leseWoerter(const QByteArray &xhtml);

    QString m_pfad;
    QString m_fehler;
    QList<Seite> m_seiten;
    mutable std::optional<QStringList> m_seitenTexte;
};
