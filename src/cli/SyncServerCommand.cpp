#include "SyncServerCommand.h"

#include "CDECloudKitSchema.h"
#include "QBBenutzerEinstellungen.h"
#include "RecordDatabase.h"
#include "SyncServerAdresse.h"

#include <ostream>

std::string_view SyncServerCommand::summary() const
{
    return "try a sync server (check) or choose it for syncing (use)";
}

std::string_view SyncServerCommand::description() const
{
    return "URI is a PostgreSQL connection URI or key=value string, for example\n"
           "  postgresql://anna@sync.example.org/velmora?sslmode=verify-full\n"
           "Parts left out come from libpq's environment (PGHOST, PGUSER, ...) and its password file.\n"
           "\n"
           "check  connects, makes the server's sync tables or brings them up to this version, and\n"
           "       prints the server's version, the user, the sync zone and its number of records.\n"
           "use    does the same, then keeps the address (without its password) in the settings; a\n"
           "       password in URI goes into libpq's password file (PGPASSFILE or ~/.pgpass, mode 600).\n"
           "\n"
           "Exit status 0 on success, 1 when the server cannot be reached or refuses, 2 for wrong\n"
           "arguments.\n";
}

int SyncServerCommand::execute(const QStringList &arguments, CommandStreams &io)
{
    if (printHelpIfAsked(arguments, io.out))
        return kExitOk;
    if (arguments.size() != 2 || (arguments[0] != u"check" && arguments[0] != u"use")) {
        printError(io.err, "sync-server takes check or use and a URI; see \"velmora-cli help sync-server\"");
        return kExitUsage;
    }
    const QByteArray adresse = arguments[1].toUtf8();
    QString fehler;
    if (!SyncServerAdresse::pruefe(adresse, &fehler)) {
        printError(io.err, "not a connection URI: " + fehler.toStdString());
        return kExitUsage;
    }

    RecordDatabase datenbank(adresse);
    const RecordResult<int> version = datenbank.connect();
    const RecordResult<QString> nutzer = datenbank.userName();
    const RecordZoneID zone{CDECloudKitSchema::recordZoneName(2)};
    const std::optional<RecordError> ohneZone = datenbank.fetchZone(zone);
    const RecordResult<int> anzahl = datenbank.countRecords(zone);
    for (const std::optional<RecordError> &e : {version.error, nutzer.error, anzahl.error}) {
        if (e) {
            printError(io.err, e->message().toStdString());
            return kExitFailure;
        }
    }
    io.out << "server: PostgreSQL " << version.value / 10000 << '.' << version.value % 10000 << '\n'
           << "user: " << nutzer.value.toStdString() << '\n'
           << "zone: " << zone.zoneName.toStdString()
           << (ohneZone ? " (not made yet; the first machine that syncs makes it)" : "") << '\n'
           << "records: " << anzahl.value << '\n';

    if (arguments[0] == u"use") {
        if (!SyncServerAdresse::merkePasswort(adresse, &fehler)) {
            printError(io.err, fehler.toStdString());
            return kExitFailure;
        }
        QBBenutzerEinstellungen *einstellungen = QBBenutzerEinstellungen::sharedInstance();
        einstellungen->setSyncServerAdresse(QString::fromUtf8(SyncServerAdresse::ohnePasswort(adresse)));
        einstellungen->sichereBenutzerEinstellungen();
        io.out << "sync server: " << einstellungen->syncServerAdresse().toStdString() << '\n';
    }
    return kExitOk;
}
