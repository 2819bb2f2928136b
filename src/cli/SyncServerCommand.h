#pragma once

#include "Command.h"

// velmora-cli sync-server: tries a sync server before sync is switched on ("check": connects,
// makes or upgrades the server's tables, reports the server, the user, the zone and its records)
// and chooses it ("use": the same, then keeps the address in the settings and its password in
// libpq's password file).
class SyncServerCommand final : public Command
{
public:
    std::string_view name() const override { return "sync-server"; }
    std::string_view arguments() const override { return "check|use URI"; }
    std::string_view summary() const override;
    std::string_view description() const override;
    int execute(const QStringList &arguments, CommandStreams &io) override;
};
