#include "FKRPDFZahlen.h"

#include "DecimalFormatter.h"
#include "FKRBetragsFormat.h"
#include "FKRRechnung.h"
#include "FKRLocalizationHelper.h"

std::string FKRPDFZahlen::locale(const FKRRechnung &rechnung)
{
    return FKRLocalizationHelper::dokumentLocaleId(rechnung.sprache());
}

QString FKRPDFZahlen::zahl(const Decimal &wert, const FKRRechnung &rechnung)
{
    return QString::fromStdString(DecimalFormatter::format(wert, locale(rechnung), 2));
}

QString FKRPDFZahlen::betrag(const Decimal &wert, const FKRRechnung &rechnung)
{
    // English places the currency its own way for each currency; a text that names none (a
    // currency of the user's own making) stands in front with a blank, as in German.
    if (rechnung.sprache() == 2) {
        const QString waehrung = rechnung.waehrung().value_or(QStringLiteral("€"));
        if (const auto text = DecimalFormatter::formatCurrency(wert, locale(rechnung), waehrung.toStdString(), 2))
            return QString::fromStdString(*text);
    }
    return FKRBetragsFormat::betragText(zahl(wert, rechnung), rechnung);
}

QString FKRPDFZahlen::prozent(const Decimal &anteil, const FKRRechnung &rechnung)
{
    const QString text = zahl(anteil * Decimal(100), rechnung);
    return text.isEmpty() ? QStringLiteral("0") : text;
}
