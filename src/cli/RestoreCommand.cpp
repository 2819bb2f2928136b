#include "RestoreCommand.h"

#include "FKRAppDelegate.h"
#include "FKRDatenOrdnerSperre.h"
#include "FKRDatensicherung.h"
#include "FKRStoreEinspielung.h"
#include "FKRUhr.h"
#include "PersistentStoreCoordinator.h"
#include "QBBenutzerEinstellungen.h"

#include <QDir>
#include <QFileInfo>

#include <ostream>

std::string_view RestoreCommand::summary() const
{
    return "replace the store with the one in a backup archive (program not running)";
}

std::string_view RestoreCommand::description() const
{
    return "Checks the archive completely (only the store files at its top level, every entry\n"
           "intact, unpacking to no more than a hundred times its size beyond 64 MB) and unpacks\n"
           "it next to the store, where its store must open as a store of this version: an intact\n"
           "SQLite file with the program's metadata, of a schema version it reads, that can be\n"
           "brought to the current schema. Only then is the current store backed up into the\n"
           "backups folder and the archive's files put in place of the store files, each one\n"
           "atomically. Sync is switched off and the next start gives every restored object a new\n"
           "identity, as after an import in the program's settings.\n"
           "\n"
           "Refuses while Velmora Rechnungen is running: quit it first. Exit status 0 on success,\n"
           "1 when the program runs or files could not be written (a full disk among them), 2 for\n"
           "an archive that is not a sound backup of a usable store (wrong extension, damaged,\n"
           "unexpected entries, too big, a store that is no store of ours or of a newer version;\n"
           "nothing is changed then) or wrong arguments.\n";
}

int RestoreCommand::execute(const QStringList &arguments, CommandStreams &io)
{
    if (printHelpIfAsked(arguments, io.out))
        return kExitOk;
    if (arguments.size() != 1) {
        printError(io.err, "expected one backup archive; see \"velmora-cli help restore\"");
        return kExitUsage;
    }
    const QString archiv = arguments.first();
    if (QFileInfo(archiv).suffix() != u"fks") {
        printError(io.err, archiv.toStdString() + " is not a backup archive (the name must end in \".fks\")");
        return kExitUsage;
    }
    if (!QFileInfo(archiv).isFile()) {
        printError(io.err, "cannot read " + archiv.toStdString());
        return kExitUsage;
    }

    const QString datenOrdner = FKRAppDelegate::datenOrdnerPfad();
    if (!QDir().mkpath(datenOrdner)) {
        printError(io.err, "cannot create the data folder " + datenOrdner.toStdString());
        return kExitFailure;
    }
    // Held until the files are in place: no program may open the store meanwhile, and a
    // program that has it open must not have it replaced under it.
    FKRDatenOrdnerSperre sperre;
    switch (sperre.sperre(datenOrdner)) {
    case FKRDatenOrdnerSperre::Ergebnis::Gehalten:
        break;
    case FKRDatenOrdnerSperre::Ergebnis::Belegt:
        printError(io.err, "Velmora Rechnungen is running (or another restore); quit it before restoring a backup");
        return kExitFailure;
    case FKRDatenOrdnerSperre::Ergebnis::Fehler:
        printError(io.err, "cannot lock the data folder: " + sperre.fehler().toStdString());
        return kExitFailure;
    }

    // The archive's store is checked before anything else happens: a refused archive leaves no
    // backup behind and the store exactly as it was.
    FKRStoreEinspielung einspielung(datenOrdner, m_grenzen);
    QString fehler;
    switch (einspielung.pruefe(archiv, &fehler)) {
    case FKRZipArchiv::Ergebnis::Abgelehnt:
        printError(io.err, "refused " + archiv.toStdString() + ": " + fehler.toStdString());
        return kExitUsage;
    case FKRZipArchiv::Ergebnis::SchreibFehler:
        printError(io.err, "the archive could not be unpacked, the store is unchanged: " + fehler.toStdString());
        return kExitFailure;
    case FKRZipArchiv::Ergebnis::Erfolg:
        break;
    }

    const QString store = QDir(datenOrdner).filePath(QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName));
    if (QFileInfo(store).isFile()) {
        const QString sicherungen = QDir(datenOrdner).filePath(QStringLiteral("dataBackups"));
        QDir().mkpath(sicherungen);
        const QString vorher = FKRDatensicherung::freierArchivPfad(sicherungen, FKRUhr::jetzt());
        FKRDatensicherung sicherung(datenOrdner, sicherungen);
        if (!sicherung.erstelleJetzt(vorher, &fehler)) {
            printError(io.err, "the current store could not be backed up, nothing was restored: " + fehler.toStdString());
            return kExitFailure;
        }
        io.out << "Current store backed up to " << vorher.toStdString() << '\n';
    }

    if (!einspielung.setzeEin(&fehler)) {
        printError(io.err, "the store files could not be written, the store is unchanged: " + fehler.toStdString());
        return kExitFailure;
    }

    QBBenutzerEinstellungen *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    einstellungen->setVerwendeiCloudSync(false);
    einstellungen->setDatenbankWurdeNeuImportiert(true);
    einstellungen->sichereBenutzerEinstellungen();
    io.out << "Restored " << archiv.toStdString() << " into " << datenOrdner.toStdString() << '\n';
    return kExitOk;
}
