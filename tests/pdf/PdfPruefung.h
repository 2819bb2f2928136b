#pragma once

#include <QImage>
#include <QMap>
#include <QRectF>
#include <QStringList>

#include <optional>

// A finished PDF file read back the way a reader sees it, by readers that did not write it:
// words and their boxes and page sizes (pdftotext -bbox), document information and protection
// (pdfinfo, qpdf) and rendered pages (QtPdf). Positions are in points from the top-left corner
// of the page, pages are numbered from 1.
class PdfPruefung
{
public:
    struct Wort
    {
        QString text;
        QRectF box;
    };

    explicit PdfPruefung(const QString &pfad);

    bool gelesen() const { return m_fehler.isEmpty(); }
    const QString &fehler() const { return m_fehler; }

    int seitenAnzahl() const { return int(m_seiten.size()); }
    QSizeF seitenGroesse(int seite) const { return seite_(seite).groesse; }
    const QList<Wort> &woerter(int seite) const { return seite_(seite).woerter; }
    // The boxes around the occurrences of `phrase` as consecutive words.
    QList<QRectF> findeAlle(int seite, const QString &phrase) const;
    std::optional<QRectF> finde(int seite, const QString &phrase) const;
    // The page's text in reading order; the text of every page, each run of white space one blank.
    QString text(int seite) const;
    QString fliesstext() const;

    // "Key: value" lines of pdfinfo (Title, Creator, Author, Encrypted, …).
    QMap<QString, QString> info() const;
    // qpdf --show-encryption as key → value; statements are keys with an empty value.
    QMap<QString, QString> verschluesselung() const;

    // The page rendered at `dpi` onto white paper (RGB32).
    QImage bild(int seite, double dpi) const;
    // On a page rendered at `dpi`: the box in points around the pixels close to `farbe`.
    static QRectF flaeche(const QImage &bild, double dpi, QColor farbe, int toleranz = 60);

private:
    struct Seite
    {
        QSizeF groesse;
        QList<Wort> woerter;
    };
    const Seite &seite_(int seite) const;

    QString m_pfad;
    QString m_fehler;
    QList<Seite> m_seiten;
    mutable std::optional<QStringList> m_seitenTexte;
};
