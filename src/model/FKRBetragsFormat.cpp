#include "FKRBetragsFormat.h"

#include "DecimalFormatter.h"
#include "FKRRechnung.h"
#include "UserLocale.h"

QString FKRBetragsFormat::mwStSatzText(const std::optional<Decimal> &prozent, const QString &locale)
{
    if (!prozent || prozent->isZero())
        return QString();
    const std::string localeId = locale.isEmpty() ? std::string("de_DE") : locale.toStdString();
    QString text = QString::fromStdString(DecimalFormatter::format(*prozent, localeId, 2));
    if (text.isEmpty())
        text = QStringLiteral("0");
    return text + QLatin1Char('%');
}

QString FKRBetragsFormat::formatiert(const Decimal &betrag)
{
    return QString::fromStdString(DecimalFormatter::format(betrag, UserLocale::icuLocaleId(), 2));
}

QString FKRBetragsFormat::betragText(const QString &formatiert, const FKRRechnung &rechnung)
{
    return rechnung.waehrung().value_or(QStringLiteral("€")) + QLatin1Char(' ') + formatiert;
}
