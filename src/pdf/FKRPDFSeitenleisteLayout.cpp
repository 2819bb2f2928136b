#include "FKRPDFSeitenleisteLayout.h"

#include "FKRAbsender.h"
#include "FKRLocalizationHelper.h"
#include "FKRPDFAbsenderZeilen.h"
#include "FKRRechnung.h"

FKRPDFSeitenleisteLayout::FKRPDFSeitenleisteLayout(QObject *parent)
    : FKRPDFLayout(parent)
{
}

double FKRPDFSeitenleisteLayout::schreibeInhaltFuerRechnung(FKRRechnung &rechnung, double y)
{
    FKRPDFLayout::schreibeInhaltFuerRechnung(rechnung, y);

    const double cm = kcm();
    rechnungsNummerXPosition = randLinks();
    rechnungsNummerYPosition = 9.5 * cm;
    rechnungsNummerWidth = 12.0 * cm;
    rechnungsTextAnredeXPosition = randLinks();
    rechnungsTextAnredeWidth = 12.0 * cm;
    rechnungsTextXPosition = randLinks();
    rechnungsTextWidth = 12.0 * cm;
    setKSpalte1Breite(5.5 * cm);
    setKSpalte2Breite(2.0 * cm);
    setKSpalte3Breite(2.0 * cm);
    setKSpalte4Breite(2.5 * cm);
    absenderBlockXPosition = 15.0 * cm;
    absenderBlockYPosition = randOben();
    absenderBlockWidth = 5.5 * cm;

    schreibeSeitenleiste(rechnung, absenderBlockYPosition);
    zeichneLogo(rechnung, absenderBlockYPosition);
    // The dates are part of the column, so the body follows directly.
    schreibeHauptteil(rechnung);
    return y;
}

double FKRPDFSeitenleisteLayout::schreibeSeitenleiste(FKRRechnung &rechnung, double y)
{
    const FKRAbsender *absender = rechnung.absender();
    if (!absender)
        return y;
    // The letterhead already carries the sender's details; only the dates are the document's own.
    if (hatGeschaeftspapier(absender))
        return schreibeDatumsAngaben(rechnung, datumsAngabenBlockYPosition);

    const std::optional<int> sprache = rechnung.sprache();
    const auto gruppe = [&](const QStringList &zeilen, double von) {
        return FKRPDFAbsenderZeilen::schreibe(*this, zeilen, textFont, absenderBlockXPosition, absenderBlockWidth, von);
    };
    y = gruppe(FKRPDFAbsenderZeilen::adresse(*absender), y);
    y = gruppe(FKRPDFAbsenderZeilen::kontakt(*absender), y + 0.4 * kcm());
    y = gruppe(FKRPDFAbsenderZeilen::steuer(*absender, sprache), y + 0.4 * kcm());
    y = gruppe(FKRPDFAbsenderZeilen::bank(*absender, sprache), y + 0.4 * kcm());
    return schreibeDatumsZeilen(rechnung, y + 0.8 * kcm(), Links, absenderBlockXPosition, absenderBlockWidth);
}

double FKRPDFSeitenleisteLayout::schreibeDatumsAngaben(FKRRechnung &rechnung, double y)
{
    datumsAngabenBlockXPosition = randLinks() + rechnungsTextWidth - datumsAngabenBlockWidth;
    return schreibeDatumsZeilen(rechnung, y, Rechts, datumsAngabenBlockXPosition, datumsAngabenBlockWidth);
}

double FKRPDFSeitenleisteLayout::zeichneLogo(FKRRechnung &rechnung, double y)
{
    // Left of the column, from the left margin to half a centimetre before the column, and
    // above the sender line.
    return zeichneLogoInRaum(rechnung, QRectF(QPointF(randLinks(), y),
                                              QPointF(absenderBlockXPosition - 0.5 * kcm(), logoUnterkante())));
}

void FKRPDFSeitenleisteLayout::schreibeSeitennummer(uint seite, FKRRechnung &rechnung)
{
    seitennummerBlockXPosition = datumsAngabenBlockXPosition;
    seitennummerBlockWidth = datumsAngabenBlockWidth;
    const QString nummer = FKRLocalizationHelper::lokalisierterText(QStringLiteral("PDF_EXPORT_SEITENNUMMER"),
                                                                    rechnung.sprache())
                           + QString::number(seite);
    // Further pages have no column; their number stands where the column would begin, half a
    // centimetre above the continued text.
    const double y = seite == 1 ? seitennummerBlockYPosition : randObenZweiteSeite() - 0.5 * kcm();
    if (hatGeschaeftspapier(rechnung.absender()))
        schreibeText(nummer, Rechts, textFont, seitennummerBlockXPosition, y, seitennummerBlockWidth, 1.0 * kcm(),
                     false, 0.0);
    else
        schreibeText(nummer, Links, textFont, absenderBlockXPosition, y, absenderBlockWidth, 1.0 * kcm(), false, 0.0);
}
