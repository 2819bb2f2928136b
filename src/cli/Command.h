#pragma once

#include <QStringList>

#include <iosfwd>
#include <string>
#include <string_view>

// Where a command reads its input and writes its results and complaints. The program hands in
// the standard streams; tests hand in string streams and run a command in-process.
struct CommandStreams
{
    std::istream &in;
    std::ostream &out;
    std::ostream &err;
};

// Exit statuses of velmora-cli: 2 for anything wrong with what the user gave us (command,
// arguments, input), 1 when the program itself could not finish (a write failed).
enum ExitStatus : int { kExitOk = 0, kExitFailure = 1, kExitUsage = 2 };

// One sub-command of velmora-cli ("amounts", later "render", "backup", "restore"). Each lives in
// a file of its own and is registered once in VelmoraCli; nothing else needs to know it exists.
class Command
{
public:
    Command() = default;
    virtual ~Command() = default;
    Command(const Command &) = delete;
    Command &operator=(const Command &) = delete;

    // The word on the command line.
    virtual std::string_view name() const = 0;
    // Its arguments for the usage line, for example "[FILE|-]".
    virtual std::string_view arguments() const = 0;
    // One line for the command overview.
    virtual std::string_view summary() const = 0;
    // The rest of "velmora-cli help NAME": what the command reads and writes.
    virtual std::string_view description() const = 0;

    // Runs the command with the arguments that follow its name and returns the exit status.
    virtual int execute(const QStringList &arguments, CommandStreams &io) = 0;

    // "Usage: velmora-cli NAME ARGUMENTS", the summary and the description.
    void printHelp(std::ostream &out) const;

protected:
    // True (after printing the help to `out`) when the arguments ask for help.
    bool printHelpIfAsked(const QStringList &arguments, std::ostream &out) const;
};

// One message line, prefixed "velmora-cli: ", with control characters escaped, cut after
// kLaengsteMeldung bytes.
void printError(std::ostream &err, const std::string &message);
inline constexpr std::size_t kLaengsteMeldung = 1000;

inline constexpr std::string_view kProgramName = "velmora-cli";
