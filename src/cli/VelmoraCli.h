#pragma once

#include "Command.h"

#include <memory>
#include <vector>

// The command dispatcher of velmora-cli: picks the command named by the first argument and
// hands it the rest. A new command is one class in its own file plus one line in the
// constructor.
class VelmoraCli
{
public:
    VelmoraCli();

    // `arguments` without the program name. Returns the exit status.
    int run(const QStringList &arguments, CommandStreams &io);

    const std::vector<std::unique_ptr<Command>> &commands() const { return m_commands; }
    Command *command(const QString &name) const;

    // The overview: usage line and one line per command.
    void printUsage(std::ostream &out) const;

private:
    std::vector<std::unique_ptr<Command>> m_commands;
};
