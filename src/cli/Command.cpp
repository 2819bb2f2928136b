#include "Command.h"

#include "Meldungstext.h"

#include <ostream>

void Command::printHelp(std::ostream &out) const
{
    out << "Usage: " << kProgramName << ' ' << name();
    if (!arguments().empty())
        out << ' ' << arguments();
    out << "\n\n" << summary() << ".\n";
    if (!description().empty())
        out << '\n' << description();
}

bool Command::printHelpIfAsked(const QStringList &arguments, std::ostream &out) const
{
    for (const QString &argument : arguments) {
        if (argument == u"--help" || argument == u"-h") {
            printHelp(out);
            return true;
        }
    }
    return false;
}

void printError(std::ostream &err, const std::string &message)
{
    // One line whatever the message carries from the input (file names, keys, values).
    err << kProgramName << ": " << Meldungstext::kuerze(Meldungstext::einzeilig(message), kLaengsteMeldung) << '\n';
}
