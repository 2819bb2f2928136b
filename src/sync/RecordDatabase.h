#pragma once

#include "Record.h"
#include "RecordChangeToken.h"
#include "RecordError.h"
#include "RecordZoneID.h"

#include <QStringList>

#include "PostgresConnection.h"

#include <memory>

// What a zone's change feed delivers after a token: records changed since (their last state, once
// each), names of records deleted since, the token to ask with next time, and whether more changes
// wait beyond this bounded page.
struct RecordZoneChanges {
    QList<Record> changed;
    QStringList deleted;
    RecordChangeToken token;
    bool moreComing = false;
};

// Records of a type, optionally only those whose field refers to one record, sorted by a text
// field; only the wanted fields (all when empty).
struct RecordQuery {
    QString recordType;
    QString referenceField;
    QString referenceName;
    QString sortField;
    QStringList desiredKeys;
};

// A push subscription: every creation of a record of the type whose number field is above zero
// wakes the user's other connected clients (RecordPushListener).
struct RecordSubscription {
    QString subscriptionID;
    QString recordType;
    QString positiveNumberField;
};

// The user's private record database on a PostgreSQL server: zones, records with assets, the
// change feed and push subscriptions. Calls block; each opens the connection first if needed and
// makes or upgrades the server's tables once. Failures come back as RecordError; items of a batch
// fail alone (code PartialFailure with one error per item) and the rest of the batch is kept.
class RecordDatabase
{
public:
    // `uri` is a libpq connection URI; empty uses libpq's environment (PGHOST, PGUSER, …).
    explicit RecordDatabase(const QByteArray &uri);
    ~RecordDatabase();

    // Connects and makes the tables; the server's version number (e.g. 150018).
    RecordResult<int> connect();
    // The server's name for the connecting user, which owns the rows it writes.
    RecordResult<QString> userName();

    std::optional<RecordError> fetchZone(const RecordZoneID &zone);
    std::optional<RecordError> saveZone(const RecordZoneID &zone);
    std::optional<RecordError> deleteZone(const RecordZoneID &zone);

    RecordResult<QList<Record>> fetchRecords(const RecordZoneID &zone, const QStringList &names,
                                             const QStringList &desiredKeys = {});
    RecordResult<QList<Record>> saveRecords(const RecordZoneID &zone, const QList<Record> &records);
    RecordResult<QStringList> deleteRecords(const RecordZoneID &zone, const QStringList &names);
    RecordResult<QList<Record>> queryRecords(const RecordZoneID &zone, const RecordQuery &query);
    RecordResult<int> countRecords(const RecordZoneID &zone);

    // Changes after `since` (from the start without one), at most about `limit` records a page.
    RecordResult<RecordZoneChanges> fetchZoneChanges(const RecordZoneID &zone, const std::optional<RecordChangeToken> &since,
                                                     const QStringList &desiredKeys = {}, int limit = 400);

    std::optional<RecordError> saveSubscription(const RecordZoneID &zone, const RecordSubscription &subscription);

private:
    template<class F>
    auto run(F &&operation) -> decltype(operation());
    RecordError translate(const PostgresConnection::Failure &failure) const;
    // Begins a writing transaction with the zone's next counter value; none (and no transaction)
    // when the zone does not exist.
    std::optional<qint64> beginWrite(const RecordZoneID &zone);
    bool zoneExists(const RecordZoneID &zone);
    QList<Record> readRecords(const RecordZoneID &zone, const QStringList &names, const QStringList &desiredKeys,
                              bool withAssets);

    std::unique_ptr<PostgresConnection> m_connection;
    bool m_schemaReady = false;
};
