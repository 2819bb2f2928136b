#pragma once

#include "Command.h"

#include <QList>

#include <nlohmann/json.hpp>

class FKRPosten;
class FKRRechnung;

// velmora-cli amounts [FILE|-]: reads one document as JSON (JsonDokumentLeser) and prints every
// amount the application computes for it, so that figures can be checked, scripted or compared
// with another tool without opening the editor.
class AmountsCommand final : public Command
{
public:
    std::string_view name() const override { return "amounts"; }
    std::string_view arguments() const override { return "[FILE|-]"; }
    std::string_view summary() const override;
    std::string_view description() const override;
    int execute(const QStringList &arguments, CommandStreams &io) override;

    // The amounts of `rechnung` as a JSON object, every decimal as plain-notation text. `posten`
    // are its items in input order; a message about one of them names its index there. Throws
    // EingabeFehler when a needed value is absent or a result leaves the decimal range.
    static nlohmann::ordered_json betraege(const FKRRechnung &rechnung, const QList<FKRPosten *> &posten);
};
