#pragma once

#include "Command.h"

// velmora-cli backup: writes a backup archive of the user's store now, the same archive the
// program writes at every start, into the backups folder or a file of the user's choice.
class BackupCommand final : public Command
{
public:
    std::string_view name() const override { return "backup"; }
    std::string_view arguments() const override { return "[--out FILE]"; }
    std::string_view summary() const override;
    std::string_view description() const override;
    int execute(const QStringList &arguments, CommandStreams &io) override;
};
