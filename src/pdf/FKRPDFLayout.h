#pragma once

#include "FKRPDFWriter.h"

#include <QFont>
#include <QList>
#include <QRectF>

class FKRAbsender;
class FKRPosten;

// The common layout of a business letter: fonts, the positions of all text blocks, and one
// operation per block (sender line, recipient, number, salutation, text, item table with totals,
// due-date sentence, cash-discount sentence, closing text, dates, signature, letterhead, page
// numbers, page-break test). The three page layouts derive from it and differ only in where they
// put the sender's details; they call the same blocks in the same order.
//
// Labels and dates follow the document's own language; amounts follow the user's locale.
class FKRPDFLayout : public FKRPDFWriter
{
    Q_OBJECT

public:
    explicit FKRPDFLayout(QObject *parent = nullptr);

    // The shared layout object that renders `rechnung`, by its `layout` field: 2 the header bar,
    // 3 or 4 the footer bar, anything else (also absent) the sidebar.
    static FKRPDFLayout &fuerRechnung(const FKRRechnung &rechnung);

    // Writes the complete file: opens it, draws the content, finishes and protects it. An existing
    // file at `pfad` is replaced only when the new one is complete (letzteDateiGeschrieben()).
    // Throws what the document's amounts throw for values they cannot do without
    // (FKRFehlenderWert, DecimalError), and FKRDokumentZuGross for a document beyond the bounds
    // every document is held to; the path is then left as it was.
    void erstellePDFDateiImPfad(const QString &pfad, FKRRechnung &rechnung) override;
    // The common start: page geometry, block positions, letterhead, sender line, recipient.
    double schreibeInhaltFuerRechnung(FKRRechnung &rechnung, double y) override;
    void schreibeSeitennummer(uint seite, FKRRechnung &rechnung) override;
    using FKRPDFWriter::schreibeSeitennummer;

    // ---- Blocks: each takes the document and a y and returns the y below what it drew ----
    virtual double schreibeAbsenderUeberEmpfaenger(FKRRechnung &rechnung, double y);
    virtual double schreibeEmpfaenger(FKRRechnung &rechnung, double y);
    virtual double schreibeRechnungsNummer(FKRRechnung &rechnung, double y);
    virtual double schreibeRechnungsTextAnrede(FKRRechnung &rechnung, double y);
    virtual double schreibeRechnungsText(FKRRechnung &rechnung, double y);
    virtual double schreibePosten(FKRRechnung &rechnung, double y);
    virtual double schreibeFaelligkeit(FKRRechnung &rechnung, double y);
    virtual double schreibeSkonto(FKRRechnung &rechnung, double y);
    virtual double schreibeRechnungsText2(FKRRechnung &rechnung, double y);
    virtual double schreibeDatumsAngaben(FKRRechnung &rechnung, double y);
    virtual double zeichneUnterschrift(FKRRechnung &rechnung, double y);
    virtual void zeichneGeschaeftspapier(FKRRechnung &rechnung);
    // Starts a new page when `text` in `font` would not fit between y and the bottom margin;
    // returns the y to draw it at.
    virtual double pruefeSeitenumbruch(const QString &text, const QFont &font, FKRRechnung &rechnung, double y);

    // The lines of the dates block in their order: the document date by type, then (after a gap
    // of 0.4 cm) the service month or the dunning date, then (after another gap) the validity or
    // due date. An entry with an empty label prints nothing but keeps its gap.
    struct DatumsZeile
    {
        QString label;
        QString datum;
        bool abstandDavor = false;
    };
    static QList<DatumsZeile> datumsZeilen(const FKRRechnung &rechnung);

    // The body chain from the number to the signature, starting at rechnungsNummerYPosition.
    double schreibeHauptteil(FKRRechnung &rechnung);

    // Whether the sender has a letterhead image (path or bytes), printed or not.
    static bool hatGeschaeftspapier(const FKRAbsender *absender);

    // ---- Fonts and positions (points), set for every document ----
    QFont textFont;
    QFont boldTextFont;
    QFont faelligkeitsFont;
    double empfaengerBlockXPosition = 0.0;
    double empfaengerBlockYPosition = 0.0;
    double empfaengerBlockWidth = 0.0;
    double absenderUeberEmpfaengerBlockXPosition = 0.0;
    double absenderUeberEmpfaengerBlockYPosition = 0.0;
    double absenderUeberEmpfaengerBlockWidth = 0.0;
    double rechnungsNummerXPosition = 0.0;
    double rechnungsNummerYPosition = 0.0;
    double rechnungsNummerWidth = 0.0;
    double rechnungsTextAnredeXPosition = 0.0;
    double rechnungsTextAnredeWidth = 0.0;
    double rechnungsTextXPosition = 0.0;
    double rechnungsTextWidth = 0.0;
    double datumsAngabenBlockXPosition = 0.0;
    double datumsAngabenBlockYPosition = 0.0;
    double datumsAngabenBlockWidth = 0.0;
    double seitennummerBlockXPosition = 0.0;
    double seitennummerBlockYPosition = 0.0;
    double seitennummerBlockWidth = 0.0;

protected:
    // The sender's logo (bytes, else file) with its right edge on the right of `raum` and its top
    // on the top, scaled down into `raum` keeping its proportions and never enlarged; nothing
    // without a sender or when the sender has a letterhead. Returns y below the logo.
    double zeichneLogoInRaum(FKRRechnung &rechnung, const QRectF &raum);
    // How far down a logo at the top of the page may reach: half a centimetre above the sender
    // line and the dates block, so that it never covers a line of them.
    double logoUnterkante() const;

    // The dates block's lines, aligned within (x, weite) from y; sets the page number's y below them.
    double schreibeDatumsZeilen(FKRRechnung &rechnung, double y, int ausrichtung, double x, double weite);

    // Parts of the item table (FKRPDFLayoutPosten.cpp).
    double schreibePostenKopf(FKRRechnung &rechnung, double y);
    double schreibePostenZeile(const FKRPosten &posten, FKRRechnung &rechnung, double y);
    double schreibeSummenZeile(const QFont &font, bool linie, const QString &label, const QString &betrag, double x,
                               double y, double w, FKRRechnung &rechnung);

    // Page size and kcm from the settings flag, in double precision.
    void setzeSeitenGeometrie();
};
