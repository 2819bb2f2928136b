// Amounts of one line item.
#include "FKRFehlenderWert.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"

namespace {
// The item's own rate when it has one other than zero; otherwise nothing.
std::optional<Decimal> eigenerSatz(const FKRPosten &posten)
{
    const auto satz = posten.mwStSatz();
    if (satz && !satz->isZero())
        return satz;
    return std::nullopt;
}
} // namespace

Decimal FKRPosten::zwischenSumme() const
{
    const auto menge = anzahl();
    if (!menge)
        return Decimal();
    const auto preis = einzelbetrag();
    if (!preis)
        throw FKRFehlenderWert(QStringLiteral("einzelbetrag"));
    // The unit price is cent-rounded first; the product keeps every digit.
    return *menge * preis->rounded(2, Decimal::Rounding::HalfAwayFromZero);
}

Decimal FKRPosten::mwStSatzInProzent() const
{
    std::optional<Decimal> satz = eigenerSatz(*this);
    if (!satz) {
        const FKRRechnung *dokument = rechnung();
        satz = dokument ? dokument->mwStSatz().value_or(Decimal()) : Decimal();
    }
    return *satz * Decimal(100);
}

Decimal FKRPosten::mwStBetrag(const FKRRechnung &dokument) const
{
    const Decimal satz = eigenerSatz(*this).value_or(dokument.mwStSatz().value_or(Decimal()));
    return zwischenSumme() * satz;
}
