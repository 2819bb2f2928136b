#pragma once

#include "SqliteDatabase.h"

#include <QString>

#include <functional>

struct sqlite3_file;

// The live store file as the backup reads it, through an SQLite connection of its own.
//
// The backup reads the file's bytes through that connection's file handle instead of opening
// the file again: SQLite's locks are POSIX record locks, which belong to the process, and closing
// any other descriptor of the store file would silently drop the locks the program's own
// connection holds while it saves.
class FKRDatensicherungQuelle
{
public:
    // What tells whether the file changed: SQLite's change counter (bumped by every committed
    // write), the size, the modification time and the file itself (a replaced file is another).
    struct Zustand {
        quint32 aenderungsZaehler = 0;
        qint64 groesse = 0;
        qint64 geaendertNs = 0;
        quint64 inode = 0;
        bool operator==(const Zustand &) const = default;
    };
    enum class Art { Datenbank, KeineDatenbank, Fehler };

    explicit FKRDatensicherungQuelle(const QString &storePfad);
    ~FKRDatensicherungQuelle();
    FKRDatensicherungQuelle(const FKRDatensicherungQuelle &) = delete;
    FKRDatensicherungQuelle &operator=(const FKRDatensicherungQuelle &) = delete;

    // Opens the file read-write without creating it, so a journal left by a crashed save is
    // rolled back as by any other opening. False when the file cannot be opened.
    bool oeffne(QString *fehler);

    // The file's state under a short read transaction. KeineDatenbank: the file is no SQLite
    // database (or a damaged one) and is taken as it is; Fehler: it could not be read now.
    Art leseZustand(Zustand *zustand, QString *fehler);

    // The file's bytes from the start, read without any lock (the caller checks the state
    // before and after). For FKRZipArchiv::Eintrag::leser.
    std::function<qint64(char *, qint64)> leser();

    // A consistent copy of the database into the new file `zielPfad` through SQLite's online
    // backup, in small steps between which the program's saves go ahead.
    bool kopiere(const QString &zielPfad, QString *fehler);

private:
    QString m_pfad;
    SqliteDatabase m_db;
    sqlite3_file *m_datei = nullptr;
    qint64 m_position = 0;
};
