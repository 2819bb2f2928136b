#pragma once

// The throwaway server of a test run (tests/sync runs under pg_virtualenv, which exports PGHOST,
// PGPORT, PGUSER and PGPASSWORD of a fresh cluster) and users on it, none of them superuser:
// row-level security applies to them as to any user of a shared server.

#include "RecordDatabase.h"
#include "PostgresConnection.h"

#include <QProcess>
#include <gtest/gtest.h>

namespace testserver {

using namespace Qt::Literals::StringLiterals;

const RecordZoneID kZone{u"com.velmora.test.zone"_s};

// A node of the file tree as the cloud file system stores it: a directory without a size, a file
// with its size and bytes.
inline Record knoten(const QString &pfad, qint64 groesse = 0, const QByteArray &daten = {})
{
    Record record(u"CDEFileSystemNode"_s, u"CDEFileSystemNode_"_s + pfad);
    record.set(u"path"_s, pfad);
    record.set(u"isDirectory"_s, qint64(groesse == 0));
    record.set(u"directory"_s, RecordReference{u"CDEFileSystemNode_/"_s});
    if (groesse > 0)
        record.set(u"fileSize"_s, groesse), record.set(u"data"_s, RecordAsset{daten});
    return record;
}

// A login role `name` (password = name) that may make the sync tables; its connection string.
inline QByteArray nutzer(const QByteArray &name)
{
    PostgresConnection admin("");
    QString fehler;
    EXPECT_TRUE(admin.connect(&fehler)) << fehler.toStdString() << " (run under pg_virtualenv)";
    if (!admin.exec("SELECT 1 FROM pg_roles WHERE rolname = $1", {PostgresConnection::Parameter{name}}).rows()) {
        admin.exec(QByteArray("CREATE ROLE " + name + " LOGIN PASSWORD '" + name + "'").constData());
        admin.exec(QByteArray("GRANT CREATE ON SCHEMA public TO " + name).constData());
    }
    return "user=" + name + " password=" + name;
}

// Restarts the throwaway server, dropping every connection at once (as a server that goes away).
inline bool starteNeu()
{
    return QProcess::execute(u"pg_ctlcluster"_s, {qEnvironmentVariable("PGVERSION"), u"regress"_s, u"restart"_s, u"-m"_s, u"fast"_s}) == 0;
}

inline void leereZone(RecordDatabase &db, const RecordZoneID &zone)
{
    db.deleteZone(zone);
    ASSERT_FALSE(db.saveZone(zone)) << "cannot make the zone";
}

} // namespace testserver
