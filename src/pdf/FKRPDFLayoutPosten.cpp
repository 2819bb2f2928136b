// The item table with its totals, and the two sentences below it (due date, cash discount).
#include "FKRPDFLayout.h"

#include "FKRFehlenderWert.h"
#include "FKRLocalizationHelper.h"
#include "FKRPDFZahlen.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "QBAdditions.h"

#include <algorithm>

namespace {

std::optional<int> sprache(const FKRRechnung &rechnung)
{
    const auto wert = rechnung.sprache();
    return wert ? std::optional<int>(static_cast<int>(*wert)) : std::nullopt;
}

QString text(const FKRRechnung &rechnung, const char *schluessel)
{
    return FKRLocalizationHelper::lokalisierterText(QString::fromUtf8(schluessel), sprache(rechnung));
}

QString betrag(const Decimal &wert, const FKRRechnung &rechnung)
{
    return FKRPDFZahlen::betrag(wert, rechnung);
}

QString prozent(const Decimal &anteil, const FKRRechnung &rechnung)
{
    return FKRPDFZahlen::prozent(anteil, rechnung);
}

bool positiv(const std::optional<Decimal> &wert)
{
    return wert && *wert > Decimal();
}

} // namespace

double FKRPDFLayout::schreibePosten(FKRRechnung &rechnung, double y)
{
    QList<FKRPosten *> posten = rechnung.posten();
    if (posten.isEmpty())
        return y + 0.4 * kcm();

    y = schreibePostenKopf(rechnung, y + 0.3 * kcm());
    std::stable_sort(posten.begin(), posten.end(), [](const FKRPosten *a, const FKRPosten *b) {
        return a->postenNummer() < b->postenNummer();
    });
    for (const FKRPosten *p : std::as_const(posten))
        y = schreibePostenZeile(*p, rechnung, y);

    const double x = rechnungsTextXPosition;
    const double w = rechnungsTextWidth;
    const auto rabatt = rechnung.rabatt();
    const auto zuschlag = rechnung.zuschlag();
    // A net document adds no VAT to its total, so it prints none: a VAT row between the subtotal
    // and an equal total would read as an error in the sum.
    const bool mitSteuer = positiv(rechnung.mwStSatz()) && rechnung.brutto() == true;
    const auto zeile = [&](bool linie, const QString &label, const Decimal &wert) {
        y = schreibeSummenZeile(textFont, linie, label, betrag(wert, rechnung), x, y, w, rechnung);
    };
    // The subtotal stands before what changes it; with nothing between it and the total it would
    // only repeat the total.
    if (positiv(rabatt) || positiv(zuschlag) || mitSteuer)
        zeile(true, text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Zwischensumme")), rechnung.postenSumme());
    if (positiv(rabatt))
        zeile(false, text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Rabatt")) + QLatin1Char(' ') + prozent(*rabatt, rechnung) + u'%',
              rechnung.rabattBetrag());
    if (positiv(zuschlag))
        zeile(false,
              text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Zuschlag")) + QLatin1Char(' ') + prozent(*zuschlag, rechnung) + u'%',
              rechnung.zuschlagBetrag());
    if (positiv(rabatt) || positiv(zuschlag))
        zeile(true, text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Zwischensumme")), rechnung.nettoSumme());
    if (mitSteuer)
        zeile(false,
              text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Umsatzsteuer ")) + prozent(*rechnung.mwStSatz(), rechnung) + u'%',
              rechnung.umsatzsteuerSumme());
    zeile(true, text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Rechnungssumme")), rechnung.rechnungsSumme());
    return y + 0.4 * kcm();
}

double FKRPDFLayout::schreibePostenKopf(FKRRechnung &rechnung, double y)
{
    const double x = rechnungsTextXPosition;
    const double k1 = kSpalte1Breite(), k2 = kSpalte2Breite(), k3 = kSpalte3Breite(), k4 = kSpalte4Breite();
    const double zehntel = 0.1 * kcm();
    const QString beschreibung = text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Beschreibung"));
    const double oben = pruefeSeitenumbruch(beschreibung, textFont, rechnung, y);
    const double yT = oben + zehntel;
    const double hoehe = pageSize().height() - yT;
    schreibeText(beschreibung, Links, textFont, x + zehntel, yT, k1, hoehe, false);
    schreibeText(text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Anzahl")), Rechts, textFont, x + k1 - zehntel, yT, k2,
                 hoehe, false);
    schreibeText(text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Betrag")), Rechts, textFont, x + k1 + k2 - zehntel, yT,
                 k3, hoehe, false);
    const double unten = schreibeText(text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Summe")), Rechts, textFont,
                                      x + k1 + k2 + k3 - zehntel, yT, k4, hoehe, true);
    // A light band behind the column titles.
    fuelleRechteckVonStartpunkt(QPointF(x, oben), QPointF(x + rechnungsTextWidth, unten), QColor::fromRgbF(0.0f, 0.0f, 0.0f, 0.1f));
    return unten;
}

double FKRPDFLayout::schreibePostenZeile(const FKRPosten &posten, FKRRechnung &rechnung, double y)
{
    const double x = rechnungsTextXPosition;
    const double k1 = kSpalte1Breite(), k2 = kSpalte2Breite(), k3 = kSpalte3Breite(), k4 = kSpalte4Breite();
    const double zehntel = 0.1 * kcm();

    // The line amount is the unit price as entered times the quantity, rounded only for print.
    const auto anzahl = posten.anzahl();
    const auto einzelbetrag = posten.einzelbetrag();
    if (anzahl && !einzelbetrag)
        throw FKRFehlenderWert(QStringLiteral("einzelbetrag"));
    const QString menge = anzahl ? FKRPDFZahlen::zahl(*anzahl, rechnung) : QString();
    const QString preis = einzelbetrag ? betrag(*einzelbetrag, rechnung) : QString();
    const QString summe = anzahl ? betrag(*einzelbetrag * *anzahl, rechnung) : QString();
    const QString bezeichnung = posten.postenBezeichnung().value_or(QString());
    const QString beschreibung = posten.postenBeschreibung().value_or(QString());

    const double zeile = pruefeSeitenumbruch(bezeichnung + QLatin1Char('\n') + beschreibung, textFont, rechnung, y);
    zeichneWaagerechteLinieAnYPosition(zeile, x, x + rechnungsTextWidth, kLineWidth());
    const double yT = zeile + zehntel;
    const double hoehe = pageSize().height() - yT;
    schreibeText(menge, Rechts, textFont, x + k1 - zehntel, yT, k2, hoehe, false);
    schreibeText(preis, Rechts, textFont, x + k1 + k2 - zehntel, yT, k3, hoehe, false);
    schreibeText(summe, Rechts, textFont, x + k1 + k2 + k3 - zehntel, yT, k4, hoehe, false);
    double unten = schreibeText(bezeichnung, Links, boldTextFont, x + zehntel, yT, k1, hoehe, true);
    unten = schreibeText(beschreibung, Links, textFont, x + zehntel, unten, k1, pageSize().height() - unten, true);
    return unten;
}

double FKRPDFLayout::schreibeSummenZeile(const QFont &font, bool linie, const QString &label, const QString &betrag,
                                         double x, double y, double w, FKRRechnung &rechnung)
{
    y = pruefeSeitenumbruch(betrag, font, rechnung, y);
    if (linie)
        zeichneWaagerechteLinieAnYPosition(y, x, x + w, kLineWidth());
    y += 0.1 * kcm();
    const double k123 = kSpalte1Breite() + kSpalte2Breite() + kSpalte3Breite();
    schreibeText(label, Rechts, font, x - 0.1 * kcm(), y, k123, pageSize().height() - y, false);
    return schreibeText(betrag, Rechts, font, x + k123 - 0.1 * kcm(), y, kSpalte4Breite(), pageSize().height() - y, true);
}

double FKRPDFLayout::schreibeFaelligkeit(FKRRechnung &rechnung, double y)
{
    const auto art = rechnung.dokumentArt();
    const auto faellig = rechnung.faelligkeitsDatum();
    // Without a due date there is no sentence: "due on ." would tell the customer nothing.
    if (!art || !faellig)
        return y;
    const QString datum =
        FKRLocalizationHelper::lokalisiertesDatum(*faellig, DateStyle::Medium, DateStyle::None, sprache(rechnung));
    const auto faelligkeitsSatz = [&](const char *anfang) -> QString {
        return text(rechnung, anfang) + u'(' + betrag(rechnung.rechnungsSumme(), rechnung) + u')' +
               text(rechnung, QT_TRANSLATE_NOOP("Velmora", " ist fällig am ")) + datum +
               text(rechnung, QT_TRANSLATE_NOOP("Velmora", " (Zahlungseingang)."));
    };
    QString satz;
    switch (art->toInt32()) {
    case 2:
        satz = text(rechnung, QT_TRANSLATE_NOOP("Velmora", "Dieses Angebot bleibt gültig bis ")) + datum + u'.';
        break;
    case 3:
        satz = faelligkeitsSatz(QT_TRANSLATE_NOOP("Velmora", "Der Rechnungsbetrag "));
        break;
    case 4:
        satz = faelligkeitsSatz(QT_TRANSLATE_NOOP("Velmora", "Der Honorarnoten-Betrag "));
        break;
    case 5:
        satz = faelligkeitsSatz(QT_TRANSLATE_NOOP("Velmora", "Der Mahnungsbetrag "));
        break;
    default:
        return y;
    }
    y = pruefeSeitenumbruch(satz, faelligkeitsFont, rechnung, y);
    return schreibeText(satz, Links, faelligkeitsFont, rechnungsTextXPosition, y, rechnungsTextWidth,
                        pageSize().height() - y, true);
}

double FKRPDFLayout::schreibeSkonto(FKRRechnung &rechnung, double y)
{
    const auto skonto = rechnung.skonto();
    const auto zeitraum = rechnung.skontoZeitraum();
    // The sentence names the last day of the discount, counted from the document date; without
    // that date there is no day to name, and no discount is offered.
    if (!positiv(skonto) || !zeitraum || *zeitraum <= 0 || !rechnung.rechnungsDatum())
        return y;
    const QDateTime letzterTag = QBAdditions::endOfTheDayWithDayShift(
        *rechnung.rechnungsDatum(), static_cast<std::int32_t>(std::min<qint64>(*zeitraum, 1'000'000)));
    const QString satz =
        text(rechnung, QT_TRANSLATE_NOOP("Velmora", "HTML_TOKEN_SKONTO_SATZ"))
            .arg(FKRLocalizationHelper::lokalisiertesDatum(letzterTag, DateStyle::Medium, DateStyle::None,
                                                           sprache(rechnung)),
                 prozent(*skonto, rechnung), betrag(rechnung.skontoBetrag(), rechnung),
                 betrag(rechnung.rechnungsSummeAbzueglichSkonto(), rechnung));
    y = pruefeSeitenumbruch(satz, faelligkeitsFont, rechnung, y);
    return schreibeText(satz, Links, faelligkeitsFont, rechnungsTextXPosition, y, rechnungsTextWidth,
                        pageSize().height() - y, true);
}
