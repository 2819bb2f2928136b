#pragma once

#include <QImage>
#include <QMap>
#include <QRectF>
#include <QStringList>

#include <optional>

// A finished PDF file read back by readers that did not write it (pdftotext, pdfinfo, qpdf, QtPdf).
// Positions are in points from the page's top-left corner, pages are numbered from 1.
class PdfPruefung
{
public:
    struct Wort
    {
        QString text;
        QRectF box;
        bool operator==(const Wort &) const = default;
    };

    explicit PdfPruefung(const QString &pfad);

    bool gelesen() const { return m_fehler.isEmpty(); }
    const QString &fehler() const { return m_fehler; }

    int seitenAnzahl() const { return int(m_seiten.size()); }
    QSizeF seitenGroesse(int seite) const { return seite_(seite).groesse; }
    const QList<Wort> &woerter(int seite) const { return seite_(seite).woerter; }
    // The box around the first occurrence of `phrase` as consecutive words.
    std::optional<QRectF> finde(int seite, const QString &phrase) const;
    // The page's text in reading order; the text of every page, each run of white space one blank.
    QString text(int seite) const;
    QString fliesstext() const;

    // pdfinfo's and qpdf --show-encryption's lines as key → value (statements: an empty value).
    QMap<QString, QString> info() const;
    QMap<QString, QString> verschluesselung() const;

    // The page rendered at `dpi` onto white paper; the box in points around the pixels close to `farbe`.
    QImage bild(int seite, double dpi) const;
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
