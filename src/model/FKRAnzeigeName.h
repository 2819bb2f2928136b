#pragma once

#include <QString>

#include <optional>

// Display names and address blocks of senders and recipients, which share these rules.
class FKRAnzeigeName
{
public:
    // first - second when both are set (even if empty), else whichever is set, else placeholder.
    static QString verbinde(const std::optional<QString> &first, const std::optional<QString> &second,
                            const QString &placeholder);

    struct Adresse {
        std::optional<QString> firma, name, strasse, plz, ort, land;
    };
    static QString adressBlock(const Adresse &adresse);
};
