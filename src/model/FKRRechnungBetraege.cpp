// Amounts of a document. Every amount is computed from the items on each call; the order of the
// steps and the places where cents are rounded decide the last cent and are kept exactly.
#include "FKRBetragsFormat.h"
#include "FKRFehlenderWert.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"

namespace {
Decimal cent(const Decimal &betrag)
{
    return betrag.rounded(2, Decimal::Rounding::HalfAwayFromZero);
}

Decimal pflichtWert(const std::optional<Decimal> &wert, const char *name)
{
    if (!wert)
        throw FKRFehlenderWert(QString::fromLatin1(name));
    return *wert;
}

// Only positive discounts and surcharges adjust the VAT; the amounts themselves take any sign.
Decimal positiverAnteil(const Decimal &steuer, const std::optional<Decimal> &satz)
{
    if (satz && *satz > Decimal())
        return steuer * *satz;
    return Decimal();
}

// Discount or surcharge of an item sum: the fraction's share, cent-rounded. The composite amounts
// hand in the item sum they already have, so that one read walks the items as few times as
// possible; nothing is kept beyond the call.
Decimal anteilAn(const Decimal &postenSumme, const std::optional<Decimal> &satz, const char *name)
{
    return cent(postenSumme * pflichtWert(satz, name));
}

// The cash discount of a total: cent-rounded, then currency-rounded.
Decimal skontoVon(const FKRRechnung &rechnung, const Decimal &summe)
{
    return rechnung.waehrungsRundung(cent(summe * pflichtWert(rechnung.skonto(), "skonto")));
}
} // namespace

Decimal FKRRechnung::waehrungsRundung(const Decimal &betrag) const
{
    // Swiss francs are paid in steps of five centimes.
    if (waehrung() != QStringLiteral("CHF"))
        return betrag;
    const Decimal zwanzig(20);
    return (betrag * zwanzig).rounded(0, Decimal::Rounding::HalfAwayFromZero) / zwanzig;
}

QString FKRRechnung::sprachLocale() const
{
    return sprache() == 2 ? QStringLiteral("en_US") : QStringLiteral("de_DE");
}

Decimal FKRRechnung::postenSumme() const
{
    Decimal summe;
    if (!hatPostenBeziehung())
        return summe;
    for (const FKRPosten *p : posten())
        summe += p->zwischenSumme();
    return summe;
}

Decimal FKRRechnung::rabattBetrag() const
{
    if (!hatPostenBeziehung())
        return Decimal();
    return anteilAn(postenSumme(), rabatt(), "rabatt");
}

Decimal FKRRechnung::zuschlagBetrag() const
{
    if (!hatPostenBeziehung())
        return Decimal();
    return anteilAn(postenSumme(), zuschlag(), "zuschlag");
}

Decimal FKRRechnung::nettoSumme() const
{
    if (!hatPostenBeziehung())
        return Decimal();
    const Decimal summe = postenSumme();
    return waehrungsRundung(summe + anteilAn(summe, zuschlag(), "zuschlag") - anteilAn(summe, rabatt(), "rabatt"));
}

QList<QPair<QString, Decimal>> FKRRechnung::umsatzsteuerJeSatz() const
{
    const QString locale = sprachLocale();
    const QString dokumentLabel = FKRBetragsFormat::mwStSatzText(mwStSatz().value_or(Decimal()) * Decimal(100), locale);
    const QList<FKRPosten *> alle = posten();
    if (!hatPostenBeziehung() || alle.isEmpty())
        return {{dokumentLabel, Decimal()}};
    QList<QPair<QString, Decimal>> jeSatz;
    // A label costs a locale-aware number formatter; a document has many items but few rates,
    // so each distinct rate is formatted once per call (equal decimals give equal labels).
    QList<QPair<Decimal, QString>> labelJeProzent;
    auto labelFuer = [&](const Decimal &prozent) {
        for (const auto &[bekannt, label] : labelJeProzent) {
            if (bekannt == prozent)
                return label;
        }
        labelJeProzent.append({prozent, FKRBetragsFormat::mwStSatzText(prozent, locale)});
        return labelJeProzent.last().second;
    };
    for (const FKRPosten *p : alle) {
        const Decimal prozent = p->mwStSatzInProzent();
        const QString label = prozent.isZero() ? dokumentLabel : labelFuer(prozent);
        const Decimal betrag = p->mwStBetrag(*this);
        auto it = std::find_if(jeSatz.begin(), jeSatz.end(), [&](const auto &e) { return e.first == label; });
        if (it != jeSatz.end())
            it->second = it->second + betrag;
        else
            jeSatz.append({label, betrag});
    }
    return jeSatz;
}

Decimal FKRRechnung::umsatzsteuerSumme() const
{
    if (!hatPostenBeziehung())
        return Decimal();
    Decimal summe;
    const auto r = rabatt();
    const auto z = zuschlag();
    for (const auto &[label, steuer] : umsatzsteuerJeSatz())
        summe = cent(summe + steuer + positiverAnteil(steuer, z) - positiverAnteil(steuer, r));
    return waehrungsRundung(summe);
}

Decimal FKRRechnung::rechnungsSumme() const
{
    if (!hatPostenBeziehung())
        return Decimal();
    if (brutto() == true)
        return waehrungsRundung(nettoSumme() + umsatzsteuerSumme());
    return nettoSumme();
}

Decimal FKRRechnung::skontoBetrag() const
{
    if (!hatPostenBeziehung())
        return Decimal();
    return skontoVon(*this, rechnungsSumme());
}

Decimal FKRRechnung::rechnungsSummeAbzueglichSkonto() const
{
    if (!hatPostenBeziehung())
        return Decimal();
    // The cash discount of the same total, without computing the total a second time.
    const Decimal summe = rechnungsSumme();
    return waehrungsRundung(summe - skontoVon(*this, summe));
}
