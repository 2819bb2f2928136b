#include "FKRPDFLayout.h"

#include "FKRAbsender.h"
#include "FKRAnzeigeName.h"
#include "FKREmpfaenger.h"
#include "FKRLocalizationHelper.h"
#include "FKRPDFFussleisteLayout.h"
#include "FKRPDFHerausgeber.h"
#include "FKRPDFKopfleisteLayout.h"
#include "FKRPDFSchriften.h"
#include "FKRPDFSeitenleisteLayout.h"
#include "FKRRechnung.h"
#include "QBBenutzerEinstellungen.h"

#include <algorithm>

namespace {

std::optional<int> sprache(const FKRRechnung &rechnung)
{
    const auto wert = rechnung.sprache();
    return wert ? std::optional<int>(static_cast<int>(*wert)) : std::nullopt;
}

// "Datum" and so on: the label of a date in the document's language.
QString text(const FKRRechnung &rechnung, const char *schluessel)
{
    return FKRLocalizationHelper::lokalisierterText(QString::fromUtf8(schluessel), sprache(rechnung));
}

// A text with more than blanks in it, trimmed.
std::optional<QString> mitText(const std::optional<QString> &wert)
{
    return wert && !wert->trimmed().isEmpty() ? std::optional(wert->trimmed()) : std::nullopt;
}

} // namespace

FKRPDFLayout::FKRPDFLayout(QObject *parent)
    : FKRPDFWriter(parent)
    , textFont(FKRPDFSchriften::schrift(9.0))
    , boldTextFont(FKRPDFSchriften::schrift(9.0, true))
    , faelligkeitsFont(FKRPDFSchriften::schrift(7.0))
{
}

FKRPDFLayout &FKRPDFLayout::fuerRechnung(const FKRRechnung &rechnung)
{
    // One object per layout for the life of the process; documents are rendered one at a time.
    static FKRPDFSeitenleisteLayout seitenleiste;
    static FKRPDFKopfleisteLayout kopfleiste;
    static FKRPDFFussleisteLayout fussleiste;
    const auto layout = rechnung.layout();
    if (layout && *layout == Decimal(2))
        return kopfleiste;
    if (layout && (*layout == Decimal(3) || *layout == Decimal(4)))
        return fussleiste;
    return seitenleiste;
}

bool FKRPDFLayout::hatGeschaeftspapier(const FKRAbsender *absender)
{
    return absender && (absender->geschaeftspapierImagePath() || absender->geschaeftspapierImageBinary());
}

void FKRPDFLayout::setzeSeitenGeometrie()
{
    if (QBBenutzerEinstellungen::sharedInstance()->pdfDocumentSizeIsLetter()) {
        setPageSize(QSizeF(612.0, 792.0));
        setKcm(792.0 / 27.9);
    } else {
        setPageSize(QSizeF(595.276, 841.89));
        setKcm(841.89 / 29.7);
    }
}

void FKRPDFLayout::erstellePDFDateiImPfad(const QString &pfad, FKRRechnung &rechnung)
{
    // The page size is taken from the setting before the file is opened, so that the first
    // document after the user switched paper sizes already has pages of the new size.
    setzeSeitenGeometrie();
    startePDFDateiImPfad(pfad, rechnung);
    // A reader lists the file under the document's number and its sender; a document without
    // them keeps the program's own title and the publisher as author.
    const FKRAbsender *absender = rechnung.absender();
    const QString autor =
        absender ? FKRAnzeigeName::verbinde(mitText(absender->firma()), mitText(absender->name()), QString()) : QString();
    setzeDokumentInformation(mitText(rechnung.rechnungsNummer()).value_or(QString::fromUtf8(FKRPDFHerausgeber::kTitel)),
                             autor.isEmpty() ? QString::fromUtf8(FKRPDFHerausgeber::kWebAdresse) : autor);
    try {
        schreibeInhaltFuerRechnung(rechnung, 0.0);
        beendePDFDatei(rechnung);
    } catch (...) {
        // A value the amounts cannot do without, a document beyond the bounds: nothing of the
        // half-drawn file reaches the path.
        verwerfePDFDatei();
        throw;
    }
}

double FKRPDFLayout::schreibeInhaltFuerRechnung(FKRRechnung &rechnung, double y)
{
    setzeSeitenGeometrie();
    const double cm = kcm();

    empfaengerBlockXPosition = randLinks();
    empfaengerBlockYPosition = 6.0 * cm;
    empfaengerBlockWidth = 8.0 * cm;
    absenderUeberEmpfaengerBlockXPosition = randLinks();
    absenderUeberEmpfaengerBlockYPosition = 5.0 * cm;
    absenderUeberEmpfaengerBlockWidth = 8.0 * cm;
    rechnungsNummerXPosition = randLinks();
    rechnungsNummerYPosition = 9.5 * cm;
    rechnungsNummerWidth = 16.0 * cm;
    rechnungsTextAnredeXPosition = randLinks();
    rechnungsTextAnredeWidth = 16.0 * cm;
    rechnungsTextXPosition = randLinks();
    rechnungsTextWidth = 16.0 * cm;
    datumsAngabenBlockWidth = 5.5 * cm;
    datumsAngabenBlockXPosition = randLinks() + rechnungsTextWidth - datumsAngabenBlockWidth;
    datumsAngabenBlockYPosition = 5.0 * cm;
    setKSpalte1Breite(9.0 * cm);
    setKSpalte2Breite(1.5 * cm);
    setKSpalte3Breite(2.5 * cm);
    setKSpalte4Breite(3.0 * cm);

    const FKRAbsender *absender = rechnung.absender();
    if (hatGeschaeftspapier(absender) && absender->geschaeftspapierDrucken().value_or(false))
        zeichneGeschaeftspapier(rechnung);
    schreibeAbsenderUeberEmpfaenger(rechnung, absenderUeberEmpfaengerBlockYPosition);
    schreibeEmpfaenger(rechnung, empfaengerBlockYPosition);
    return y;
}

double FKRPDFLayout::schreibeHauptteil(FKRRechnung &rechnung)
{
    double y = schreibeRechnungsNummer(rechnung, rechnungsNummerYPosition);
    y = schreibeRechnungsTextAnrede(rechnung, y);
    y = schreibeRechnungsText(rechnung, y);
    y = schreibePosten(rechnung, y);
    y = schreibeFaelligkeit(rechnung, y);
    y = schreibeSkonto(rechnung, y);
    y = schreibeRechnungsText2(rechnung, y);
    return zeichneUnterschrift(rechnung, y);
}

// ---- Letterhead and addresses ----

void FKRPDFLayout::zeichneGeschaeftspapier(FKRRechnung &rechnung)
{
    const FKRAbsender *absender = rechnung.absender();
    if (!absender)
        return;
    if (absender->geschaeftspapierImageBinary())
        zeichneBild(absender->geschaeftspapierImageBinary(), Links, 0.0, 0.0, pageSize().width(), pageSize().height());
    else if (absender->geschaeftspapierImagePath())
        zeichneBildMitDateiPfad(absender->geschaeftspapierImagePath(), Links, 0.0, 0.0, pageSize().width(),
                                pageSize().height());
}

double FKRPDFLayout::zeichneLogoInRaum(FKRRechnung &rechnung, const QRectF &raum)
{
    const FKRAbsender *absender = rechnung.absender();
    if (!absender || hatGeschaeftspapier(absender) || raum.isEmpty())
        return raum.top();
    if (const auto bild = absender->logoImageBinary())
        return zeichneBild(bild, Rechts, raum.right(), raum.top(), raum.width(), raum.height());
    return zeichneBildMitDateiPfad(absender->logoImagePath(), Rechts, raum.right(), raum.top(), raum.width(),
                                   raum.height());
}

double FKRPDFLayout::logoUnterkante() const
{
    return std::min(absenderUeberEmpfaengerBlockYPosition, datumsAngabenBlockYPosition) - 0.5 * kcm();
}

double FKRPDFLayout::schreibeAbsenderUeberEmpfaenger(FKRRechnung &rechnung, double y)
{
    const FKRAbsender *absender = rechnung.absender();
    if (!absender || hatGeschaeftspapier(absender))
        return y;
    const QString trenner = QStringLiteral(" - ");
    QString zeile = absender->firma().value_or(QString());
    if (absender->name())
        zeile += (absender->firma() ? trenner : QString()) + *absender->name();
    if (absender->strasse())
        zeile += trenner + *absender->strasse();
    if (absender->ort()) {
        // Postcode and town stay on one line, also a postcode or a town with a blank of its own
        // ("BS1 4DJ", "Frankfurt am Main"): read across a line end, the town would lose its
        // postcode.
        QString ort = (absender->plz() ? *absender->plz() + QLatin1Char(' ') : QString()) + *absender->ort();
        zeile += trenner + ort.replace(QLatin1Char(' '), QChar(QChar::Nbsp));
    }
    if (absender->land())
        zeile += trenner + *absender->land();
    return schreibeText(zeile, Links, faelligkeitsFont, absenderUeberEmpfaengerBlockXPosition, y,
                        absenderUeberEmpfaengerBlockWidth, pageSize().height() - y, true);
}

double FKRPDFLayout::schreibeEmpfaenger(FKRRechnung &rechnung, double y)
{
    const FKREmpfaenger *empfaenger = rechnung.empfaenger();
    if (!empfaenger)
        return y;
    const auto zeile = [&](const QString &text) {
        y = schreibeText(text, Links, textFont, empfaengerBlockXPosition, y, empfaengerBlockWidth,
                         pageSize().height() - y, true);
    };
    if (empfaenger->firma())
        zeile(*empfaenger->firma());
    if (empfaenger->name())
        zeile(*empfaenger->name());
    if (empfaenger->strasse())
        zeile(*empfaenger->strasse());
    if (empfaenger->ort())
        zeile((empfaenger->plz() ? *empfaenger->plz() + QLatin1Char(' ') : QString()) + *empfaenger->ort());
    if (empfaenger->land())
        zeile(*empfaenger->land());
    return y;
}

// ---- Number and texts ----

double FKRPDFLayout::schreibeRechnungsNummer(FKRRechnung &rechnung, double y)
{
    if (!rechnung.rechnungsNummer())
        return y;
    return schreibeText(rechnung.rechnungsNummer(), Links, boldTextFont, rechnungsNummerXPosition, y,
                        rechnungsNummerWidth, pageSize().height() - y, true);
}

double FKRPDFLayout::schreibeRechnungsTextAnrede(FKRRechnung &rechnung, double y)
{
    const auto anrede = rechnung.rechnungsTextAnrede();
    if (!anrede)
        return y;
    y = pruefeSeitenumbruch(*anrede, faelligkeitsFont, rechnung, y + 0.3 * kcm());
    return schreibeText(anrede, Links, textFont, rechnungsTextAnredeXPosition, y, rechnungsTextAnredeWidth,
                        pageSize().height() - y, true);
}

double FKRPDFLayout::schreibeRechnungsText(FKRRechnung &rechnung, double y)
{
    const auto text = rechnung.rechnungsText();
    if (!text)
        return y;
    y = pruefeSeitenumbruch(*text, faelligkeitsFont, rechnung, y + 0.2 * kcm());
    return schreibeText(text, Links, textFont, rechnungsTextXPosition, y, rechnungsTextWidth,
                        pageSize().height() - y, true);
}

double FKRPDFLayout::schreibeRechnungsText2(FKRRechnung &rechnung, double y)
{
    const auto text = rechnung.rechnungsText2();
    if (!text)
        return y;
    y = pruefeSeitenumbruch(*text, textFont, rechnung, y) + 0.2 * kcm();
    return schreibeText(text, Links, textFont, rechnungsTextXPosition, y, rechnungsTextWidth,
                        pageSize().height() - y, true);
}

// ---- Dates, signature, page numbers ----

double FKRPDFLayout::schreibeDatumsAngaben(FKRRechnung &rechnung, double y)
{
    return schreibeDatumsZeilen(rechnung, y, Rechts, datumsAngabenBlockXPosition, datumsAngabenBlockWidth);
}

double FKRPDFLayout::schreibeDatumsZeilen(FKRRechnung &rechnung, double y, int ausrichtung, double x, double weite)
{
    const auto zeile = [&](const QString &text) {
        y = schreibeText(text, ausrichtung, textFont, x, y, weite, pageSize().height() - y, true);
    };
    for (const DatumsZeile &angabe : datumsZeilen(rechnung)) {
        if (angabe.abstandDavor)
            y += 0.4 * kcm();
        if (!angabe.label.isEmpty()) {
            zeile(angabe.label);
            zeile(angabe.datum);
        }
    }
    seitennummerBlockYPosition = y + 0.4 * kcm();
    return y;
}

QList<FKRPDFLayout::DatumsZeile> FKRPDFLayout::datumsZeilen(const FKRRechnung &rechnung)
{
    // 0 stands for a document without a type: it prints no dates.
    const int art = rechnung.dokumentArt() ? rechnung.dokumentArt()->toInt32() : 0;
    const auto datum = [&](const std::optional<QDateTime> &wert) {
        return wert ? FKRLocalizationHelper::lokalisiertesDatum(*wert, DateStyle::Medium, DateStyle::None,
                                                                sprache(rechnung))
                    : QString();
    };
    // A label is printed only with its date: a label above an empty line would read as if the
    // document had been issued or were due on no day at all.
    const auto angabe = [](const QString &label, const QString &wert, bool abstand) {
        return DatumsZeile{wert.isEmpty() ? QString() : label, wert, abstand};
    };

    QList<DatumsZeile> zeilen;
    const char *dokumentDatum = art == 1   ? QT_TRANSLATE_NOOP("Velmora", "Datum")
                                : art == 2 ? QT_TRANSLATE_NOOP("Velmora", "Angebots-Datum")
                                : art == 3 ? QT_TRANSLATE_NOOP("Velmora", "Rechnungs-Datum")
                                : art == 4 ? QT_TRANSLATE_NOOP("Velmora", "Honorarnoten-Datum")
                                           : nullptr;
    zeilen.append(dokumentDatum ? angabe(text(rechnung, dokumentDatum), datum(rechnung.rechnungsDatum()), false)
                                : DatumsZeile{});
    if (art == 3 || art == 4) {
        const QString monat = rechnung.lieferDatum()
                                  ? FKRLocalizationHelper::lokalisierterMonat(*rechnung.lieferDatum(), sprache(rechnung))
                                  : QString();
        zeilen.append(angabe(text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Leistungs-Datum")), monat, true));
    } else if (art == 5) {
        zeilen.append(angabe(text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Mahnungs-Datum")), datum(rechnung.rechnungsDatum()), true));
    } else {
        zeilen.append(DatumsZeile{QString(), QString(), true});
    }
    if (art == 2)
        zeilen.append(angabe(text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Gültig bis")), datum(rechnung.faelligkeitsDatum()), true));
    else if (art == 3 || art == 4 || art == 5)
        zeilen.append(angabe(text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Fällig am")), datum(rechnung.faelligkeitsDatum()), true));
    else
        zeilen.append(DatumsZeile{QString(), QString(), true});
    return zeilen;
}

double FKRPDFLayout::zeichneUnterschrift(FKRRechnung &rechnung, double y)
{
    const FKRAbsender *absender = rechnung.absender();
    if (!absender || (!absender->unterschriftImageBinary() && !absender->unterschriftImagePath()))
        return y;
    const double oben = y + 0.2 * kcm();
    const double maxWeite = rechnungsTextWidth / 3.0;
    const double maxHoehe = pageSize().height() - oben;
    const double unten =
        absender->unterschriftImageBinary()
            ? zeichneBild(absender->unterschriftImageBinary(), Links, rechnungsTextXPosition, oben, maxWeite, maxHoehe)
            : zeichneBildMitDateiPfad(absender->unterschriftImagePath(), Links, rechnungsTextXPosition, oben, maxWeite,
                                      maxHoehe);
    return unten + 0.3 * kcm();
}

void FKRPDFLayout::schreibeSeitennummer(uint seite, FKRRechnung &rechnung)
{
    seitennummerBlockXPosition = datumsAngabenBlockXPosition;
    seitennummerBlockWidth = datumsAngabenBlockWidth;
    const QString nummer = text(rechnung, QT_TRANSLATE_NOOP("Velmora", "PDF_EXPORT_SEITENNUMMER")) + QString::number(seite);
    const double y = seite == 1 ? seitennummerBlockYPosition : randObenZweiteSeite() - 1.0 * kcm();
    schreibeText(nummer, Rechts, textFont, seitennummerBlockXPosition, y, seitennummerBlockWidth, 1.0 * kcm(), false,
                 0.0);
}

double FKRPDFLayout::pruefeSeitenumbruch(const QString &text, const QFont &font, FKRRechnung &rechnung, double y)
{
    const double hoehe = berechneTextBoxFuerString(text, font,
                                                   QSizeF(pageSize().width() - randLinks() - randRechts(),
                                                          pageSize().height() - randOben() - randUnten() - y))
                             .height();
    if (y + hoehe <= pageSize().height() - randUnten())
        return y;
    const double neu = erzeugeNeueSeite(rechnung);
    const FKRAbsender *absender = rechnung.absender();
    if (hatGeschaeftspapier(absender) && absender->geschaeftspapierDrucken().value_or(false))
        zeichneGeschaeftspapier(rechnung);
    return neu;
}
