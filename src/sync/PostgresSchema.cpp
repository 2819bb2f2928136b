#include "PostgresSchema.h"

#include "PostgresConnection.h"

namespace {

// Version 1: zones with their generation and change counter, records with their fields (jsonb)
// and the counter value of their last change, assets as bytea, tombstones of deleted records for
// the change feed, and push subscriptions.
const char *const kVersion1[] = {
    "CREATE SEQUENCE velmora_zone_generation",
    "CREATE TABLE velmora_zone ("
    " owner name NOT NULL DEFAULT current_user, zone_name text NOT NULL,"
    " generation bigint NOT NULL DEFAULT nextval('velmora_zone_generation'), change_seq bigint NOT NULL DEFAULT 0,"
    " PRIMARY KEY (owner, zone_name))",
    "CREATE TABLE velmora_record ("
    " owner name NOT NULL DEFAULT current_user, zone_name text NOT NULL, record_name text NOT NULL,"
    " record_type text NOT NULL, fields jsonb NOT NULL, change_tag bigint NOT NULL,"
    " PRIMARY KEY (owner, zone_name, record_name),"
    " FOREIGN KEY (owner, zone_name) REFERENCES velmora_zone ON DELETE CASCADE)",
    "CREATE INDEX velmora_record_feed ON velmora_record (owner, zone_name, change_tag)",
    "CREATE TABLE velmora_asset ("
    " owner name NOT NULL DEFAULT current_user, zone_name text NOT NULL, record_name text NOT NULL,"
    " field text NOT NULL, bytes bytea NOT NULL,"
    " PRIMARY KEY (owner, zone_name, record_name, field),"
    " FOREIGN KEY (owner, zone_name, record_name) REFERENCES velmora_record ON DELETE CASCADE)",
    // PDFs and pictures do not compress; storing them as they are saves the server the attempt.
    "ALTER TABLE velmora_asset ALTER COLUMN bytes SET STORAGE EXTERNAL",
    "CREATE TABLE velmora_tombstone ("
    " owner name NOT NULL DEFAULT current_user, zone_name text NOT NULL, record_name text NOT NULL,"
    " change_seq bigint NOT NULL, PRIMARY KEY (owner, zone_name, record_name),"
    " FOREIGN KEY (owner, zone_name) REFERENCES velmora_zone ON DELETE CASCADE)",
    "CREATE INDEX velmora_tombstone_feed ON velmora_tombstone (owner, zone_name, change_seq)",
    "CREATE TABLE velmora_subscription ("
    " owner name NOT NULL DEFAULT current_user, zone_name text NOT NULL, subscription_id text NOT NULL,"
    " record_type text NOT NULL, positive_field text NOT NULL,"
    " PRIMARY KEY (owner, zone_name, subscription_id),"
    " FOREIGN KEY (owner, zone_name) REFERENCES velmora_zone ON DELETE CASCADE)",
    "GRANT USAGE ON SEQUENCE velmora_zone_generation TO PUBLIC",
};

const char *const kTabellen[] = {"velmora_zone", "velmora_record", "velmora_asset", "velmora_tombstone",
                                 "velmora_subscription"};

void zeilenschutz(PostgresConnection &verbindung)
{
    const char *const vorlagen[] = {"ALTER TABLE %1 ENABLE ROW LEVEL SECURITY", "ALTER TABLE %1 FORCE ROW LEVEL SECURITY",
                                    "CREATE POLICY velmora_own_rows ON %1 USING (owner = current_user) WITH CHECK (owner = current_user)",
                                    "GRANT SELECT, INSERT, UPDATE, DELETE ON %1 TO PUBLIC"};
    for (const char *tabelle : kTabellen)
        for (const char *vorlage : vorlagen)
            verbindung.exec(QByteArray(vorlage).replace("%1", tabelle).constData());
}

} // namespace

int PostgresSchema::ensure(PostgresConnection &verbindung)
{
    const auto version = [&] {
        const auto r = verbindung.exec("SELECT coalesce(max(version), 0) FROM velmora_schema");
        return int(r.number(0, 0));
    };
    // Most connections find the current version and change nothing.
    if (verbindung.exec("SELECT to_regclass('velmora_schema') IS NOT NULL").text(0, 0) == u"t" && version() == kVersion)
        return kVersion;

    verbindung.exec("BEGIN");
    try {
        verbindung.exec("SELECT pg_advisory_xact_lock(hashtext('velmora schema'))");
        verbindung.exec("CREATE TABLE IF NOT EXISTS velmora_schema (version integer NOT NULL)");
        verbindung.exec("GRANT SELECT ON velmora_schema TO PUBLIC");
        const int gefunden = version();
        if (gefunden > kVersion)
            throw PostgresConnection::Failure(
                QStringLiteral("the server's sync tables are of version %1, newer than this program knows (%2)")
                    .arg(gefunden)
                    .arg(kVersion),
                "VR001", false);
        if (gefunden < 1) {
            for (const char *schritt : kVersion1)
                verbindung.exec(schritt);
            zeilenschutz(verbindung);
        }
        verbindung.exec("DELETE FROM velmora_schema");
        verbindung.exec("INSERT INTO velmora_schema VALUES ($1)", {PostgresConnection::Parameter::number(kVersion)});
        verbindung.exec("COMMIT");
    } catch (...) {
        try {
            verbindung.exec("ROLLBACK");
        } catch (const PostgresConnection::Failure &) {
            // The connection is gone; the server rolls back on its own.
        }
        throw;
    }
    return kVersion;
}
