#include "FKRPDFFussleisteLayout.h"

#include "FKRAbsender.h"
#include "FKRPDFAbsenderZeilen.h"
#include "FKRRechnung.h"

#include <algorithm>

FKRPDFFussleisteLayout::FKRPDFFussleisteLayout(QObject *parent)
    : FKRPDFLayout(parent)
{
}

double FKRPDFFussleisteLayout::schreibeInhaltFuerRechnung(FKRRechnung &rechnung, double y)
{
    FKRPDFLayout::schreibeInhaltFuerRechnung(rechnung, y);

    // The bar takes the lowest 3 cm of the page instead of the usual 4 cm margin.
    setRandUnten(3 * kcm());
    const double seitenBreite = pageSize().width();
    const double breite = (seitenBreite - randLinks() - randRechts()) / 3 - 0.5 * kcm();
    const double leistenY = pageSize().height() - randUnten();
    absenderBlock1XPosition = randLinks();
    absenderBlock1YPosition = leistenY;
    absenderBlock1Width = breite;
    absenderBlock2XPosition = seitenBreite / 2 - breite / 2;
    absenderBlock2YPosition = leistenY;
    absenderBlock2Width = breite;
    absenderBlock3XPosition = seitenBreite - randRechts() - breite;
    absenderBlock3YPosition = leistenY;
    absenderBlock3Width = breite;

    schreibeAbsenderBloecke(rechnung, absenderBlock1YPosition);
    schreibeDatumsAngaben(rechnung, datumsAngabenBlockYPosition);
    zeichneLogo(rechnung, randOben());
    schreibeHauptteil(rechnung);
    return y;
}

double FKRPDFFussleisteLayout::schreibeAbsenderBloecke(FKRRechnung &rechnung, double y)
{
    const FKRAbsender *absender = rechnung.absender();
    if (!absender || hatGeschaeftspapier(absender))
        return y;
    const std::optional<int> sprache = rechnung.sprache();

    zeichneWaagerechteLinieAnYPosition(y, randLinks(), pageSize().width() - randRechts(), kLineWidth());
    const double start = y + 0.2 * kcm();

    const double ende1 = FKRPDFAbsenderZeilen::schreibe(*this, FKRPDFAbsenderZeilen::adresse(*absender),
                                                        faelligkeitsFont, absenderBlock1XPosition,
                                                        absenderBlock1Width, start);

    double ende2 = FKRPDFAbsenderZeilen::schreibe(*this, FKRPDFAbsenderZeilen::kontakt(*absender), faelligkeitsFont,
                                                  absenderBlock2XPosition, absenderBlock2Width, start);
    ende2 += 0.2 * kcm();
    ende2 = FKRPDFAbsenderZeilen::schreibe(*this, FKRPDFAbsenderZeilen::steuer(*absender, sprache), faelligkeitsFont,
                                           absenderBlock2XPosition, absenderBlock2Width, ende2);

    const double ende3 = FKRPDFAbsenderZeilen::schreibe(*this, FKRPDFAbsenderZeilen::bank(*absender, sprache),
                                                        faelligkeitsFont, absenderBlock3XPosition,
                                                        absenderBlock3Width, start);
    return std::max({ende1, ende2, ende3});
}

double FKRPDFFussleisteLayout::zeichneLogo(FKRRechnung &rechnung, double y)
{
    // Across the text width, its right edge on the right margin, above the sender line and the
    // dates block.
    return zeichneLogoInRaum(rechnung,
                             QRectF(QPointF(randLinks(), y), QPointF(pageSize().width() - randRechts(), logoUnterkante())));
}

double FKRPDFFussleisteLayout::pruefeSeitenumbruch(const QString &text, const QFont &font, FKRRechnung &rechnung,
                                                   double y)
{
    const QSizeF seite = pageSize();
    const QSizeF grenze(seite.width() - randLinks() - randRechts(), seite.height() - randOben() - randUnten() - y);
    const double hoehe = berechneTextBoxFuerString(text, font, grenze).height();
    // The bar is drawn on the first page only, but every page keeps the same lower limit so the
    // body ends at the same height throughout the document.
    if (y + hoehe <= absenderBlock1YPosition - 0.5 * kcm())
        return y;
    erzeugeNeueSeite(rechnung);
    const FKRAbsender *absender = rechnung.absender();
    if (absender && hatGeschaeftspapier(absender) && absender->geschaeftspapierDrucken() == true)
        zeichneGeschaeftspapier(rechnung);
    return randObenZweiteSeite();
}
