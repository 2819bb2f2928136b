#pragma once

#include <QByteArray>
#include <QColor>
#include <QFont>
#include <QObject>
#include <QPointF>
#include <QSizeF>
#include <QString>

#include "FKRBildLeser.h"

#include <memory>
#include <optional>
#include <vector>

class FKRPDFDatei;
class FKRRechnung;

// The drawing base of every document PDF: owns one file while it is written, starts, numbers and
// ends its pages, draws the fold marks, and offers the few primitives the layouts are built from
// (measure and draw wrapped text, draw an image fitted into a box, lines, filled rectangles).
//
// Every position is in points from the top-left corner of the page, y growing downward. Lengths
// are usually multiples of kcm, the points per centimetre of the page in use, which is defined by
// the page height: an A4 page is exactly 29.7 kcm high, a Letter page 27.9 kcm.
//
// The writer knows nothing about documents; it hands them through to the hooks that the layouts
// override. One writer writes one file at a time.
class FKRPDFWriter : public QObject
{
    Q_OBJECT
    Q_PROPERTY(uint seitennummer READ seitennummer WRITE setSeitennummer)
    Q_PROPERTY(double kcm READ kcm WRITE setKcm)
    Q_PROPERTY(double kLineWidth READ kLineWidth WRITE setKLineWidth)
    Q_PROPERTY(double randLinks READ randLinks WRITE setRandLinks)
    Q_PROPERTY(double randRechts READ randRechts WRITE setRandRechts)
    Q_PROPERTY(double randOben READ randOben WRITE setRandOben)
    Q_PROPERTY(double randObenZweiteSeite READ randObenZweiteSeite WRITE setRandObenZweiteSeite)
    Q_PROPERTY(double randUnten READ randUnten WRITE setRandUnten)
    Q_PROPERTY(double kSpalte1Breite READ kSpalte1Breite WRITE setKSpalte1Breite)
    Q_PROPERTY(double kSpalte2Breite READ kSpalte2Breite WRITE setKSpalte2Breite)
    Q_PROPERTY(double kSpalte3Breite READ kSpalte3Breite WRITE setKSpalte3Breite)
    Q_PROPERTY(double kSpalte4Breite READ kSpalte4Breite WRITE setKSpalte4Breite)
    Q_PROPERTY(QSizeF pageSize READ pageSize WRITE setPageSize)

public:
    // Text alignment codes of the drawing primitives.
    enum Ausrichtung : int { Links = 0, Rechts = 1 };

    // Geometry of a new writer, from the settings flag pdfDocumentSizeIsLetter at this moment:
    // the single-precision figures the documents were designed with.
    explicit FKRPDFWriter(QObject *parent = nullptr);
    ~FKRPDFWriter() override;

    // A writer made on first request and kept for the process; only its page size is read (the
    // letterhead slot compares a dropped image's width with it). It keeps the page size of the
    // moment it was made.
    static FKRPDFWriter &instance();

    // ---- File and page lifecycle ----
    // Opens the file (replacing any file at `pfad` once it is finished) and its first page.
    void startePDFDateiImPfad(const QString &pfad, FKRRechnung &rechnung);
    // Next page number, a new page with fold marks; returns 11 kcm.
    double erzeugeErsteSeite();
    // Numbers the page being left, begins the next one with fold marks; returns
    // randObenZweiteSeite, where content continues.
    double erzeugeNeueSeite(FKRRechnung &rechnung);
    // Numbers the last page when there are two or more, ends it and finishes the file.
    void beendePDFDatei(FKRRechnung &rechnung);

    // Title and author that a reader shows for the open file; the publisher's until set.
    void setzeDokumentInformation(const QString &titel, const QString &autor);

    // Every file is held to the bounds of FKRDokumentZuGross: starting page 1,001 and drawing
    // text beyond 2,000,000 characters (also measuring a text that would go beyond) throw it.

    // Abandons the open file without writing anything to its path (drawing failed halfway).
    void verwerfePDFDatei();

    // Whether the last file was written to its path, and why not. The file at the path keeps
    // its previous content when writing failed.
    bool letzteDateiGeschrieben() const { return m_letzteDateiGeschrieben; }
    const QString &letzterSchreibFehler() const { return m_letzterSchreibFehler; }

    // ---- Hooks for the layouts ----
    virtual void erstellePDFDateiImPfad(const QString &pfad, FKRRechnung &rechnung);
    virtual double schreibeInhaltFuerRechnung(FKRRechnung &rechnung, double y);
    virtual void schreibeSeitennummer(uint seite, FKRRechnung &rechnung);
    virtual void schreibeSeitennummer(uint seite);

    // ---- Drawing primitives ----
    // Width and height of `text` laid out at most `grenze.width()` wide (the height is never
    // cut: a document must not lose text). An absent text measures (0, 0).
    QSizeF berechneTextBoxFuerString(const std::optional<QString> &text, const QFont &font, QSizeF grenze) const;
    // Draws `text` into the box at (x, y) of width `weite`; an absent or empty text is a single
    // blank and so occupies one line. Returns y below the text when `zeilenumbruch` is set, else y.
    // `zeilenabstand` is the extra spacing after each line as a fraction of the font size.
    double schreibeText(const std::optional<QString> &text, int ausrichtung, const QFont &font, double x, double y,
                        double weite, double hoehe, bool zeilenumbruch, double zeilenabstand = 0.5);
    // Draws an image scaled into (maxWeite, maxHoehe) without enlarging it or changing its
    // proportions; right alignment puts its right edge at x. Returns y below the image; absent
    // or undecodable bytes draw nothing and return y. An image beyond the bounds of FKRBildLeser
    // throws FKRDokumentZuGross.
    double zeichneBild(const std::optional<QByteArray> &bild, int ausrichtung, double x, double y, double maxWeite,
                       double maxHoehe);
    // The same with an image read from a file URL text ("file:///…"); anything else draws nothing.
    double zeichneBildMitDateiPfad(const std::optional<QString> &url, int ausrichtung, double x, double y,
                                   double maxWeite, double maxHoehe);
    void zeichneLinieVonStartpunkt(QPointF start, QPointF ende, double linienbreite);
    void zeichneWaagerechteLinieAnYPosition(double y, double vonX, double zuX, double linienbreite);
    void fuelleRechteckVonStartpunkt(QPointF start, QPointF ende, const QColor &farbe);
    void zeichneFalzMarkierungen();
    // Guide frames of the zones the layouts are built on; no layout draws them.
    void zeichneAbsenderBoxKlein();
    void zeichneAbsenderBoxGross();
    void zeichneEmpfaengerBox();
    void zeichneInhaltsBox();

    // ---- Geometry ----
    uint seitennummer() const { return m_seitennummer; }
    void setSeitennummer(uint wert) { m_seitennummer = wert; }
    double kcm() const { return m_kcm; }
    void setKcm(double wert) { m_kcm = wert; }
    double kLineWidth() const { return m_kLineWidth; }
    void setKLineWidth(double wert) { m_kLineWidth = wert; }
    double randLinks() const { return m_randLinks; }
    void setRandLinks(double wert) { m_randLinks = wert; }
    double randRechts() const { return m_randRechts; }
    void setRandRechts(double wert) { m_randRechts = wert; }
    double randOben() const { return m_randOben; }
    void setRandOben(double wert) { m_randOben = wert; }
    double randObenZweiteSeite() const { return m_randObenZweiteSeite; }
    void setRandObenZweiteSeite(double wert) { m_randObenZweiteSeite = wert; }
    double randUnten() const { return m_randUnten; }
    void setRandUnten(double wert) { m_randUnten = wert; }
    double kSpalte1Breite() const { return m_kSpalte1Breite; }
    void setKSpalte1Breite(double wert) { m_kSpalte1Breite = wert; }
    double kSpalte2Breite() const { return m_kSpalte2Breite; }
    void setKSpalte2Breite(double wert) { m_kSpalte2Breite = wert; }
    double kSpalte3Breite() const { return m_kSpalte3Breite; }
    void setKSpalte3Breite(double wert) { m_kSpalte3Breite = wert; }
    double kSpalte4Breite() const { return m_kSpalte4Breite; }
    void setKSpalte4Breite(double wert) { m_kSpalte4Breite = wert; }
    // The open file (and after closing, the last one until the next file replaces it).
    FKRPDFDatei *pdfContext() const { return m_pdfContext.get(); }
    QSizeF pageSize() const { return m_pageSize; }
    void setPageSize(QSizeF wert) { m_pageSize = wert; }

private:
    void zeichneRahmen(double linksCm, double rechtsCm, double obenCm, double untenCm);
    FKRPDFDatei &datei() const;
    void pruefeTextUmfang(const QString &text) const;
    // The image of stored bytes, or of the file at `pfad` when there are none, read once per file.
    const FKRBildLeser::Ergebnis &gelesenesBild(const std::optional<QByteArray> &bytes, const QString &pfad);
    double zeichneGelesenesBild(const FKRBildLeser::Ergebnis &bild, int ausrichtung, double x, double y,
                                double maxWeite, double maxHoehe);

    struct GelesenesBild
    {
        std::optional<QByteArray> bytes;
        QString pfad;
        FKRBildLeser::Ergebnis ergebnis;
    };

    uint m_seitennummer = 0;
    double m_kcm = 0.0;
    double m_kLineWidth = 0.0;
    double m_randLinks = 0.0;
    double m_randRechts = 0.0;
    double m_randOben = 0.0;
    double m_randObenZweiteSeite = 0.0;
    double m_randUnten = 0.0;
    double m_kSpalte1Breite = 0.0;
    double m_kSpalte2Breite = 0.0;
    double m_kSpalte3Breite = 0.0;
    double m_kSpalte4Breite = 0.0;
    std::unique_ptr<FKRPDFDatei> m_pdfContext;
    QSizeF m_pageSize;
    bool m_letzteDateiGeschrieben = false;
    QString m_letzterSchreibFehler;
    // Characters of text drawn into the open file, and the images read for it.
    qsizetype m_gezeichneteZeichen = 0;
    std::vector<GelesenesBild> m_bilder;
};
