#include "VelmoraCli.h"

#include "AmountsCommand.h"
#include "BackupCommand.h"
#include "HelpCommand.h"
#include "RenderCommand.h"
#include "RestoreCommand.h"
#include "SyncServerCommand.h"

#include <algorithm>
#include <exception>
#include <iomanip>
#include <ostream>

VelmoraCli::VelmoraCli()
{
    m_commands.push_back(std::make_unique<AmountsCommand>());
    m_commands.push_back(std::make_unique<RenderCommand>());
    m_commands.push_back(std::make_unique<BackupCommand>());
    m_commands.push_back(std::make_unique<RestoreCommand>());
    m_commands.push_back(std::make_unique<SyncServerCommand>());
    m_commands.push_back(std::make_unique<HelpCommand>(*this));
}

Command *VelmoraCli::command(const QString &name) const
{
    for (const auto &command : m_commands) {
        if (name == QLatin1StringView(command->name().data(), qsizetype(command->name().size())))
            return command.get();
    }
    return nullptr;
}

void VelmoraCli::printUsage(std::ostream &out) const
{
    out << "Usage: " << kProgramName << " COMMAND [ARGUMENTS]\n\nCommands:\n";
    std::size_t breite = 0;
    for (const auto &command : m_commands)
        breite = std::max(breite, command->name().size() + 1 + command->arguments().size());
    for (const auto &command : m_commands) {
        const std::string aufruf = std::string(command->name()) + ' ' + std::string(command->arguments());
        out << "  " << std::left << std::setw(int(breite)) << aufruf << "  " << command->summary() << '\n';
    }
    out << "\nRun \"" << kProgramName << " help COMMAND\" for the details of one command.\n";
}

int VelmoraCli::run(const QStringList &arguments, CommandStreams &io)
{
    if (arguments.isEmpty()) {
        printUsage(io.err);
        return kExitUsage;
    }
    const QString name = arguments.first();
    if (name == u"--help" || name == u"-h") {
        printUsage(io.out);
        return kExitOk;
    }
    Command *gewaehlt = command(name);
    if (!gewaehlt) {
        printError(io.err, "unknown command \"" + name.toStdString() + '"');
        printUsage(io.err);
        return kExitUsage;
    }
    // Each command answers bad input itself; what still escapes (memory exhausted, say) ends the
    // run with a message instead of an abort.
    try {
        return gewaehlt->execute(arguments.mid(1), io);
    } catch (const std::exception &fehler) {
        printError(io.err, std::string(gewaehlt->name()) + " failed: " + fehler.what());
        return kExitFailure;
    }
}
