#include "FKRAnzeigeName.h"

QString FKRAnzeigeName::verbinde(const std::optional<QString> &first, const std::optional<QString> &second,
                                 const QString &placeholder)
{
    if (first && second)
        return *first + QStringLiteral(" - ") + *second;
    if (first)
        return *first;
    if (second)
        return *second;
    return placeholder;
}

QString FKRAnzeigeName::adressBlock(const Adresse &a)
{
    const auto hasText = [](const std::optional<QString> &v) { return v && !v->isEmpty(); };
    const QChar newline(u'\n');
    QString block;
    if (hasText(a.firma))
        block += *a.firma;
    if (hasText(a.name)) {
        if (hasText(a.firma))
            block += QStringLiteral(" - ");
        block += *a.name;
    }
    if (hasText(a.strasse))
        block += newline + *a.strasse;
    if (hasText(a.plz))
        block += newline + *a.plz;
    if (hasText(a.ort))
        block += (hasText(a.plz) ? QChar(u' ') : newline) + *a.ort;
    if (hasText(a.land))
        block += newline + *a.land;
    return block;
}
