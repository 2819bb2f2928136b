#pragma once

#include <QImage>
#include <QList>
#include <QMap>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <optional>

// A finished PDF file read back the way a reader sees it, for tests: the words and their boxes
// as a text extractor finds them, the page sizes, the document information and protection as
// the command-line PDF tools report them, and pages rendered to images.
//
// All positions are in points from the top-left corner of the page, like the writer's own
// coordinates, so a test compares what it asked for with what came out. Pages are numbered
// from 1. Text and sizes come from poppler (pdftotext -bbox), the protection from qpdf and
// pdfinfo, the images from QtPdf: each question goes to a reader that did not write the file.
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

    // Reads the words and page sizes at once; everything else on first request.
    explicit PdfPruefung(const QString &pfad);

    // Whether the file could be read as a PDF; otherwise why not.
    bool gelesen() const { return m_fehler.isEmpty(); }
    const QString &fehler() const { return m_fehler; }
    const QString &pfad() const { return m_pfad; }

    int seitenAnzahl() const { return int(m_seiten.size()); }
    // Page size in points as the file states it (media box, six decimals).
    QSizeF seitenGroesse(int seite) const;
    const QList<Wort> &woerter(int seite) const;
    // The box around the first occurrence of `phrase` as consecutive words on the page (words
    // are separated by white space in `phrase`), or nothing.
    std::optional<QRectF> finde(int seite, const QString &phrase) const;
    // Every occurrence.
    QList<QRectF> findeAlle(int seite, const QString &phrase) const;
    // The page's text in reading order, lines separated by line feeds.
    QString text(int seite) const;

    // "Key: value" lines of pdfinfo (Title, Creator, Author, Encrypted, Pages, …).
    QMap<QString, QString> info() const;
    // qpdf --show-encryption as key → value ("R" → "4", "print high resolution" → "allowed";
    // statements such as "Supplied password is user password" are keys with an empty value).
    QMap<QString, QString> verschluesselung() const;
    // The entries of the file's encryption dictionary that make it unique (/O, /U, /OE, /UE,
    // /Perms), as qpdf shows them.
    QString verschluesselungsEintraege() const;

    // The boxes in which the page's images are placed, as poppler's HTML converter lists them,
    // in whole points. An image shows only within its box, transparent parts included.
    QList<QRectF> bilder(int seite) const;

    // The page rendered at `dpi` onto white paper (RGB32).
    QImage bild(int seite, double dpi) const;

    // Runs a tool and returns its standard output; `fehler` gets the reason when it fails.
    static QByteArray starte(const QString &programm, const QStringList &argumente, QString *fehler = nullptr);

private:
    const Seite &seite(int seite) const;
    void leseWoerter(const QByteArray &xhtml);

    QString m_pfad;
    QString m_fehler;
    QList<Seite> m_seiten;
    mutable std::optional<QStringList> m_seitenTexte;
};
