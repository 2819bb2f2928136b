#pragma once

// Backup archives that are sound zip archives but hold no usable store of ours, shared by the
// tests of every road a store comes in by (velmora-cli restore, the settings screen's import).
// Each case gives the store file's bytes and a word of the one-line reason it must be refused with.

#include "../model/StoreTestSupport.h"
#include "ZipTestSupport.h"

#include "FKRZipArchiv.h"

#include <functional>

namespace ziptest {

// Bounds small enough that a bomb of a few megabytes trips them; the good stores of the tests
// stay well below.
inline FKRZipArchiv::Grenzen testGrenzen()
{
    FKRZipArchiv::Grenzen grenzen;
    grenzen.ohneVerhaeltnis = qint64(1) << 20;
    return grenzen;
}

// A store as the program writes it, with documents whose texts fill a few pages.
inline QByteArray guterStore(const QString &ordner, const QStringList &nummern = {QStringLiteral("Gut-1")})
{
    const QString pfad = ordner + QStringLiteral("/gut.storedata");
    QFile::remove(pfad);
    {
        storetest::OpenStore offen(pfad);
        for (const QString &nummer : nummern) {
            auto *rechnung = offen.moc().insertNewObject<FKRRechnung>();
            rechnung->setRechnungsNummer(nummer);
            rechnung->setRechnungsText(QString(3000, QLatin1Char('x')));
        }
        EXPECT_TRUE(offen.moc().save());
    }
    return lies(pfad);
}

// A good store changed behind the program's back with `sql`.
inline QByteArray veraenderterStore(const QString &ordner, const char *sql)
{
    guterStore(ordner, {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    storetest::RawSql(ordner + QStringLiteral("/gut.storedata")).mustExec(sql);
    return lies(ordner + QStringLiteral("/gut.storedata"));
}

struct UnbrauchbaresArchiv {
    const char *was;
    const char *grund; // part of the reason given
    std::function<QByteArray(const QString &ordner)> store;
};

inline QList<UnbrauchbaresArchiv> unbrauchbareArchive()
{
    const auto mitSql = [](const char *sql) { return [sql](const QString &o) { return veraenderterStore(o, sql); }; };
    return {
        {"not SQLite", "not an SQLite database", [](const QString &) -> QByteArray { return "kein SQLite " + zufallsBytes(20000, 11); }},
        {"truncated SQLite", "damaged", [](const QString &o) {
             const QByteArray store = veraenderterStore(o, "SELECT 1");
             return store.left(store.size() / 2);
         }},
        {"SQLite of another program", "no store metadata", [](const QString &o) {
             storetest::RawSql(o + QStringLiteral("/fremd.sqlite"), true)
                 .mustExec("CREATE TABLE moz_places (id INTEGER PRIMARY KEY, url TEXT); INSERT INTO moz_places VALUES (1, 'x')");
             return lies(o + QStringLiteral("/fremd.sqlite"));
         }},
        {"newer schema version", "newer version", mitSql("UPDATE VelmoraStoreMetadata SET value = '2' WHERE key = 'schemaVersion'")},
        {"schema version no number", "no version number",
         mitSql("UPDATE VelmoraStoreMetadata SET value = 'zwei' WHERE key = 'schemaVersion'")},
        {"missing metadata", "no store metadata", mitSql("DROP TABLE VelmoraStoreMetadata")},
        {"empty store file", "empty", [](const QString &) { return QByteArray(); }},
        {"a view that runs the maker's code", "view",
         mitSql("CREATE VIEW endlos AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n")},
        // The store lacks "skonto" in the program's spelling, and adding it clashes.
        {"migration fails", "current schema", mitSql("ALTER TABLE FKRRechnung RENAME COLUMN skonto TO Skonto")},
        // The items' key column under another name: every migration passes, no item loads.
        {"objects unreadable", "objects cannot be read", mitSql("ALTER TABLE FKRPosten RENAME COLUMN pk TO nummer")},
        {"zip bomb", "bytes allowed", [](const QString &o) -> QByteArray { return guterStore(o) + QByteArray(8 << 20, '\0'); }},
    };
}

// The archive of `store` as the only entry, as a backup of the program has it.
inline void baueStoreArchiv(const QString &archiv, const QByteArray &store)
{
    QFile::remove(archiv);
    baueArchiv(archiv, {{QByteArrayLiteral("VelmoraRechnungen.storedata"), store}});
}

} // namespace ziptest
