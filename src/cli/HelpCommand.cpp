#include "HelpCommand.h"

#include "VelmoraCli.h"

#include <ostream>

int HelpCommand::execute(const QStringList &arguments, CommandStreams &io)
{
    if (arguments.isEmpty()) {
        m_cli.printUsage(io.out);
        return kExitOk;
    }
    const Command *gefragt = arguments.size() == 1 ? m_cli.command(arguments.first()) : nullptr;
    if (!gefragt) {
        printError(io.err, "no help for \"" + arguments.join(u' ').toStdString() + '"');
        m_cli.printUsage(io.err);
        return kExitUsage;
    }
    gefragt->printHelp(io.out);
    return kExitOk;
}
