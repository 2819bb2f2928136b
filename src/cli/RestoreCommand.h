#pragma once

#include "Command.h"
#include "FKRZipArchiv.h"

// velmora-cli restore: puts the store of a backup archive in place of the user's store while
// the program is not running, after backing up the current store. The next start of the
// program gives every restored object a new identity and leaves sync off.
class RestoreCommand final : public Command
{
public:
    std::string_view name() const override { return "restore"; }
    std::string_view arguments() const override { return "FILE.fks"; }
    std::string_view summary() const override;
    std::string_view description() const override;
    int execute(const QStringList &arguments, CommandStreams &io) override;

    // How much an archive may unpack to (tests lower the bounds instead of writing gigabytes).
    void setGrenzen(const FKRZipArchiv::Grenzen &grenzen) { m_grenzen = grenzen; }

private:
    FKRZipArchiv::Grenzen m_grenzen;
};
