#pragma once

#include <QByteArray>
#include <QString>

// Where the user's sync server is: a libpq connection URI or key=value string. The settings keep it
// without its password; a password the user typed goes into libpq's password file (PGPASSFILE, or
// ~/.pgpass), readable by the user alone, where libpq finds it when connecting.
class SyncServerAdresse
{
public:
    // Parses `adresse`; an error message when libpq cannot read it.
    static bool pruefe(const QByteArray &adresse, QString *fehler);
    // The same connection as key=value pairs, without the password.
    static QByteArray ohnePasswort(const QByteArray &adresse);
    // Writes the password of `adresse`, if it has one, into the password file (replacing the line
    // of the same host, port, database and user). False with a message when the file cannot be written.
    static bool merkePasswort(const QByteArray &adresse, QString *fehler);
    static QString passwortDatei();
};
