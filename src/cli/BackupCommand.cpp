#include "BackupCommand.h"

#include "FKRAppDelegate.h"
#include "FKRDatensicherung.h"
#include "FKRUhr.h"
#include "PersistentStoreCoordinator.h"

#include <QDir>
#include <QFileInfo>

#include <ostream>

std::string_view BackupCommand::summary() const
{
    return "write a backup archive (.fks) of the store now";
}

std::string_view BackupCommand::description() const
{
    return "Zips the store files of the data folder ($XDG_DATA_HOME/Velmora-Rechnungen) into a\n"
           "backup archive, the same kind the program writes at every start. The archive holds a\n"
           "consistent store even while the program is running and saving.\n"
           "\n"
           "Without --out the archive goes into the backups folder under the usual name (date and\n"
           "time followed by \"-DataBackup.fks\"); an existing archive is never replaced there.\n"
           "--out FILE writes FILE instead (replacing it); a folder as FILE takes the usual name.\n"
           "Prints the path of the archive. Exit status 0 on success, 1 when the archive could not\n"
           "be written or there is no store, 2 for wrong arguments.\n";
}

int BackupCommand::execute(const QStringList &arguments, CommandStreams &io)
{
    if (printHelpIfAsked(arguments, io.out))
        return kExitOk;
    QString ziel;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == u"--out" && i + 1 < arguments.size()) {
            ziel = arguments[++i];
        } else if (arguments[i].startsWith(u"--out=")) {
            ziel = arguments[i].mid(6);
        } else {
            printError(io.err, "unexpected argument \"" + arguments[i].toStdString()
                                   + "\"; see \"velmora-cli help backup\"");
            return kExitUsage;
        }
    }
    if (ziel.isEmpty() && arguments.contains(u"--out")) {
        printError(io.err, "--out needs a file name");
        return kExitUsage;
    }

    const QString datenOrdner = FKRAppDelegate::datenOrdnerPfad();
    const QString store = QDir(datenOrdner).filePath(QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName));
    if (!QFileInfo(store).isFile()) {
        printError(io.err, "there is no store to back up at " + store.toStdString());
        return kExitFailure;
    }
    const QString sicherungen = QDir(datenOrdner).filePath(QStringLiteral("dataBackups"));
    if (ziel.isEmpty()) {
        QDir().mkpath(sicherungen);
        ziel = FKRDatensicherung::freierArchivPfad(sicherungen, FKRUhr::jetzt());
    } else if (QFileInfo(ziel).isDir()) {
        ziel = FKRDatensicherung::freierArchivPfad(ziel, FKRUhr::jetzt());
    }

    FKRDatensicherung sicherung(datenOrdner, QFileInfo(ziel).absolutePath());
    QString fehler;
    if (!sicherung.erstelleJetzt(ziel, &fehler)) {
        printError(io.err, "the backup could not be written: " + fehler.toStdString());
        return kExitFailure;
    }
    io.out << QFileInfo(ziel).absoluteFilePath().toStdString() << '\n';
    return kExitOk;
}
