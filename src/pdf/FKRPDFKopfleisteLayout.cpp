#include "FKRPDFKopfleisteLayout.h"

#include "FKRAbsender.h"
#include "FKRPDFAbsenderZeilen.h"
#include "FKRRechnung.h"

#include <algorithm>

FKRPDFKopfleisteLayout::FKRPDFKopfleisteLayout(QObject *parent)
    : FKRPDFLayout(parent)
{
}

double FKRPDFKopfleisteLayout::schreibeInhaltFuerRechnung(FKRRechnung &rechnung, double y)
{
    FKRPDFLayout::schreibeInhaltFuerRechnung(rechnung, y);

    // The bar sits higher than a letter's usual top margin so that it stays clear of the sender
    // line above the recipient at 5 cm.
    setRandOben(1 * kcm());
    const double seitenBreite = pageSize().width();
    const double breite = (seitenBreite - randLinks() - randRechts()) / 3 - 0.5 * kcm();
    absenderBlock1XPosition = randLinks();
    absenderBlock1YPosition = randOben();
    absenderBlock1Width = breite;
    absenderBlock2XPosition = seitenBreite / 2 - breite / 2;
    absenderBlock2YPosition = randOben();
    absenderBlock2Width = breite;
    absenderBlock3XPosition = seitenBreite - randRechts() - breite;
    absenderBlock3YPosition = randOben();
    absenderBlock3Width = breite;

    schreibeAbsenderBloecke(rechnung, absenderBlock1YPosition);
    schreibeDatumsAngaben(rechnung, datumsAngabenBlockYPosition);
    schreibeHauptteil(rechnung);
    return y;
}

double FKRPDFKopfleisteLayout::schreibeAbsenderBloecke(FKRRechnung &rechnung, double y)
{
    const FKRAbsender *absender = rechnung.absender();
    if (!absender || hatGeschaeftspapier(absender))
        return y;
    const std::optional<int> sprache = rechnung.sprache();

    const double ende1 = FKRPDFAbsenderZeilen::schreibe(*this, FKRPDFAbsenderZeilen::adresse(*absender),
                                                        faelligkeitsFont, absenderBlock1XPosition,
                                                        absenderBlock1Width, absenderBlock1YPosition);

    double ende2 = FKRPDFAbsenderZeilen::schreibe(*this, FKRPDFAbsenderZeilen::kontakt(*absender), faelligkeitsFont,
                                                  absenderBlock2XPosition, absenderBlock2Width,
                                                  absenderBlock2YPosition);
    ende2 += 0.2 * kcm();
    ende2 = FKRPDFAbsenderZeilen::schreibe(*this, FKRPDFAbsenderZeilen::steuer(*absender, sprache), faelligkeitsFont,
                                           absenderBlock2XPosition, absenderBlock2Width, ende2);

    const double ende3 = FKRPDFAbsenderZeilen::schreibe(*this, FKRPDFAbsenderZeilen::bank(*absender, sprache),
                                                        faelligkeitsFont, absenderBlock3XPosition,
                                                        absenderBlock3Width, absenderBlock3YPosition);

    const double linie = std::max({ende1, ende2, ende3}) + 0.2 * kcm();
    zeichneWaagerechteLinieAnYPosition(linie, randLinks(), pageSize().width() - randRechts(), kLineWidth());
    return linie;
}
