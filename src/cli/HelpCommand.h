#pragma once

#include "Command.h"

class VelmoraCli;

// velmora-cli help [COMMAND]: the overview of all commands, or the help of one.
class HelpCommand final : public Command
{
public:
    explicit HelpCommand(const VelmoraCli &cli) : m_cli(cli) {}

    std::string_view name() const override { return "help"; }
    std::string_view arguments() const override { return "[COMMAND]"; }
    std::string_view summary() const override { return "Show this overview or the help of one command"; }
    std::string_view description() const override { return {}; }
    int execute(const QStringList &arguments, CommandStreams &io) override;

private:
    const VelmoraCli &m_cli;
};
