#include "RecordDatabase.h"

#include "PostgresConnection.h"
#include "PostgresSchema.h"
#include "RecordFields.h"
#include "RecordZoneFeed.h"

#include <type_traits>

using P = PostgresConnection::Parameter;

namespace {

template<class R>
R alsFehler(RecordError fehler)
{
    if constexpr (std::is_same_v<R, std::optional<RecordError>>) {
        return fehler;
    } else {
        R ergebnis;
        ergebnis.error = std::move(fehler);
        return ergebnis;
    }
}

RecordError zoneFehlt(const RecordZoneID &zone)
{
    return RecordError(RecordError::ZoneNotFound, QStringLiteral("there is no zone \"%1\"").arg(zone.zoneName));
}

} // namespace

RecordDatabase::RecordDatabase(const QByteArray &uri) : m_connection(std::make_unique<PostgresConnection>(uri)) {}

RecordDatabase::~RecordDatabase() = default;

// Every operation: connect (and make the tables) first; any failure leaves no transaction open and
// comes back as the record database's error.
template<class F>
auto RecordDatabase::run(F &&operation) -> decltype(operation())
{
    using R = decltype(operation());
    QString grund;
    if (!m_connection->connect(&grund)) {
        m_schemaReady = false;
        return alsFehler<R>(RecordError(RecordError::NetworkUnavailable, QStringLiteral("cannot reach the sync server: %1").arg(grund)));
    }
    try {
        if (!m_schemaReady)
            PostgresSchema::ensure(*m_connection);
        m_schemaReady = true;
        return operation();
    } catch (const PostgresConnection::Failure &fehler) {
        if (m_connection->isConnected()) {
            try {
                m_connection->exec("ROLLBACK");
            } catch (const PostgresConnection::Failure &) {
                m_connection->disconnect();
            }
        }
        if (!m_connection->isConnected())
            m_schemaReady = false;
        return alsFehler<R>(translate(fehler));
    }
}

RecordError RecordDatabase::translate(const PostgresConnection::Failure &failure) const
{
    const QByteArray &state = failure.sqlState;
    const QString text = QString::fromUtf8(failure.what());
    if (failure.connectionLost || state.startsWith("08") || state.startsWith("57P"))
        return RecordError(RecordError::NetworkFailure, QStringLiteral("the connection to the sync server broke: %1").arg(text));
    if (state == "40001" || state == "40P01" || state == "55P03" || state.startsWith("53"))
        return RecordError(RecordError::ServiceUnavailable, QStringLiteral("the sync server is busy: %1").arg(text));
    return RecordError(RecordError::InternalError, text);
}

RecordResult<int> RecordDatabase::connect()
{
    return run([&] { return RecordResult<int>{m_connection->serverVersion(), {}}; });
}

RecordResult<QString> RecordDatabase::userName()
{
    return run([&] { return RecordResult<QString>{m_connection->exec("SELECT current_user").text(0, 0), {}}; });
}

std::optional<qint64> RecordDatabase::beginWrite(const RecordZoneID &zone)
{
    m_connection->exec("BEGIN");
    // The row lock taken here is held to the commit: the zone's writers queue behind it, so the
    // counter values they take are in the order in which their changes become visible.
    const auto r = m_connection->exec("UPDATE velmora_zone SET change_seq = change_seq + 1"
                                      " WHERE owner = current_user AND zone_name = $1 RETURNING change_seq",
                                      {P::text(zone.zoneName)});
    if (r.rows())
        return r.number(0, 0);
    m_connection->exec("ROLLBACK");
    return std::nullopt;
}

bool RecordDatabase::zoneExists(const RecordZoneID &zone)
{
    return m_connection->exec("SELECT 1 FROM velmora_zone WHERE owner = current_user AND zone_name = $1",
                              {P::text(zone.zoneName)}).rows() > 0;
}

std::optional<RecordError> RecordDatabase::fetchZone(const RecordZoneID &zone)
{
    return run([&]() -> std::optional<RecordError> {
        return zoneExists(zone) ? std::nullopt : std::optional(zoneFehlt(zone));
    });
}

std::optional<RecordError> RecordDatabase::saveZone(const RecordZoneID &zone)
{
    return run([&]() -> std::optional<RecordError> {
        m_connection->exec("INSERT INTO velmora_zone (zone_name) VALUES ($1) ON CONFLICT DO NOTHING", {P::text(zone.zoneName)});
        return std::nullopt;
    });
}

std::optional<RecordError> RecordDatabase::deleteZone(const RecordZoneID &zone)
{
    return run([&]() -> std::optional<RecordError> {
        const auto r = m_connection->exec("DELETE FROM velmora_zone WHERE owner = current_user AND zone_name = $1 RETURNING 1",
                                          {P::text(zone.zoneName)});
        return r.rows() ? std::nullopt : std::optional(zoneFehlt(zone));
    });
}

QList<Record> RecordDatabase::readRecords(const RecordZoneID &zone, const QStringList &names, const QStringList &desiredKeys,
                                          bool withAssets)
{
    QList<Record> gefunden;
    for (const QString &name : names) {
        const auto r = m_connection->exec("SELECT record_type, fields::text, change_tag FROM velmora_record"
                                          " WHERE owner = current_user AND zone_name = $1 AND record_name = $2",
                                          {P::text(zone.zoneName), P::text(name)});
        if (!r.rows())
            continue;
        Record record(r.text(0, 0), name);
        record.setChangeTag(r.text(0, 2));
        RecordFields::addFromJson(record, r.text(0, 1).toUtf8(), desiredKeys);
        if (withAssets) {
            const auto a = m_connection->exec("SELECT field, bytes FROM velmora_asset"
                                              " WHERE owner = current_user AND zone_name = $1 AND record_name = $2",
                                              {P::text(zone.zoneName), P::text(name)}, true);
            for (int i = 0; i < a.rows(); ++i)
                if (RecordFields::wanted(a.text(i, 0), desiredKeys))
                    record.set(a.text(i, 0), RecordAsset{a.bytes(i, 1)});
        }
        gefunden.append(record);
    }
    return gefunden;
}

RecordResult<QList<Record>> RecordDatabase::fetchRecords(const RecordZoneID &zone, const QStringList &names,
                                                         const QStringList &desiredKeys)
{
    return run([&] {
        RecordResult<QList<Record>> ergebnis;
        // One snapshot: a record and its asset belong to the same save.
        m_connection->exec("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
        if (!zoneExists(zone)) {
            m_connection->exec("COMMIT");
            ergebnis.error = zoneFehlt(zone);
            return ergebnis;
        }
        ergebnis.value = readRecords(zone, names, desiredKeys, true);
        m_connection->exec("COMMIT");
        QMap<QString, RecordError> fehlend;
        for (const QString &name : names) {
            if (std::none_of(ergebnis.value.cbegin(), ergebnis.value.cend(), [&](const Record &r) { return r.name() == name; }))
                fehlend.insert(name, RecordError(RecordError::UnknownItem, QStringLiteral("no record \"%1\"").arg(name)));
        }
        if (!fehlend.isEmpty())
            ergebnis.error = RecordError::partial(fehlend);
        return ergebnis;
    });
}

RecordResult<QList<Record>> RecordDatabase::saveRecords(const RecordZoneID &zone, const QList<Record> &records)
{
    return run([&] {
        RecordResult<QList<Record>> ergebnis;
        const std::optional<qint64> seq = beginWrite(zone);
        if (!seq) {
            ergebnis.error = zoneFehlt(zone);
            return ergebnis;
        }
        const P z = P::text(zone.zoneName), tag = P::number(*seq);
        const auto abos = m_connection->exec("SELECT record_type, positive_field FROM velmora_subscription"
                                             " WHERE owner = current_user AND zone_name = $1", {z});
        bool wecken = false;
        QMap<QString, RecordError> fehler;
        for (Record record : records) {
            const P name = P::text(record.name());
            // Each record on its own: one that cannot be saved leaves the others of the batch saved.
            m_connection->exec("SAVEPOINT eintrag");
            const bool neu = record.changeTag().isEmpty();
            const auto r = neu ? m_connection->exec("INSERT INTO velmora_record (zone_name, record_name, record_type, fields, change_tag)"
                                                    " VALUES ($1, $2, $3, $4::jsonb, $5) ON CONFLICT DO NOTHING RETURNING 1",
                                                    {z, name, P::text(record.type()), P{RecordFields::toJson(record)}, tag})
                               : m_connection->exec("UPDATE velmora_record SET record_type = $3, fields = $4::jsonb, change_tag = $5"
                                                    " WHERE owner = current_user AND zone_name = $1 AND record_name = $2"
                                                    " AND change_tag::text = $6 RETURNING 1",
                                                    {z, name, P::text(record.type()), P{RecordFields::toJson(record)}, tag,
                                                     P::text(record.changeTag())});
            if (!r.rows()) {
                m_connection->exec("ROLLBACK TO SAVEPOINT eintrag");
                const bool gibtEs = m_connection->exec("SELECT 1 FROM velmora_record WHERE owner = current_user"
                                                       " AND zone_name = $1 AND record_name = $2", {z, name}).rows();
                fehler.insert(record.name(), gibtEs || neu ? RecordError(RecordError::ServerRecordChanged,
                                                                         QStringLiteral("the server has another state of \"%1\"").arg(record.name()))
                                                           : RecordError(RecordError::UnknownItem,
                                                                         QStringLiteral("no record \"%1\"").arg(record.name())));
                continue;
            }
            m_connection->exec("DELETE FROM velmora_asset WHERE owner = current_user AND zone_name = $1 AND record_name = $2", {z, name});
            for (auto it = record.fields().cbegin(); it != record.fields().cend(); ++it)
                if (const auto *asset = std::get_if<RecordAsset>(&*it))
                    m_connection->exec("INSERT INTO velmora_asset (zone_name, record_name, field, bytes) VALUES ($1, $2, $3, $4)",
                                       {z, name, P::text(it.key()), P::bytes(asset->bytes)});
            m_connection->exec("DELETE FROM velmora_tombstone WHERE owner = current_user AND zone_name = $1 AND record_name = $2",
                               {z, name});
            m_connection->exec("RELEASE SAVEPOINT eintrag");
            for (int i = 0; neu && i < abos.rows(); ++i)
                wecken = wecken || (abos.text(i, 0) == record.type() && record.number(abos.text(i, 1)).value_or(0) > 0);
            record.setChangeTag(QString::number(*seq));
            ergebnis.value.append(record);
        }
        if (ergebnis.value.isEmpty()) {
            m_connection->exec("ROLLBACK");
        } else {
            // Delivered at the commit, to whoever listens: only the zone and the counter, never a record.
            if (wecken)
                m_connection->exec("SELECT pg_notify('velmora_' || md5(current_user), $1 || ' ' || $2)", {z, tag});
            m_connection->exec("COMMIT");
        }
        if (!fehler.isEmpty())
            ergebnis.error = RecordError::partial(fehler);
        return ergebnis;
    });
}

RecordResult<QStringList> RecordDatabase::deleteRecords(const RecordZoneID &zone, const QStringList &names)
{
    return run([&] {
        RecordResult<QStringList> ergebnis;
        const std::optional<qint64> seq = beginWrite(zone);
        if (!seq) {
            ergebnis.error = zoneFehlt(zone);
            return ergebnis;
        }
        QMap<QString, RecordError> fehler;
        for (const QString &name : names) {
            const P z = P::text(zone.zoneName), n = P::text(name);
            if (!m_connection->exec("DELETE FROM velmora_record WHERE owner = current_user AND zone_name = $1"
                                    " AND record_name = $2 RETURNING 1", {z, n}).rows()) {
                fehler.insert(name, RecordError(RecordError::UnknownItem, QStringLiteral("no record \"%1\"").arg(name)));
                continue;
            }
            m_connection->exec("INSERT INTO velmora_tombstone (zone_name, record_name, change_seq) VALUES ($1, $2, $3)"
                               " ON CONFLICT (owner, zone_name, record_name) DO UPDATE SET change_seq = excluded.change_seq",
                               {z, n, P::number(*seq)});
            ergebnis.value.append(name);
        }
        m_connection->exec(ergebnis.value.isEmpty() ? "ROLLBACK" : "COMMIT");
        if (!fehler.isEmpty())
            ergebnis.error = RecordError::partial(fehler);
        return ergebnis;
    });
}

RecordResult<QList<Record>> RecordDatabase::queryRecords(const RecordZoneID &zone, const RecordQuery &query)
{
    return run([&] {
        RecordResult<QList<Record>> ergebnis;
        if (!zoneExists(zone)) {
            ergebnis.error = zoneFehlt(zone);
            return ergebnis;
        }
        // Byte order, as paths compare on every machine alike.
        const auto r = m_connection->exec(
            "SELECT record_name, record_type, fields::text, change_tag FROM velmora_record"
            " WHERE owner = current_user AND zone_name = $1 AND ($2 = '' OR record_type = $2)"
            " AND ($3 = '' OR fields -> $3 ->> 'r' = $4)"
            " ORDER BY (fields -> $5 ->> 't') COLLATE \"C\", record_name COLLATE \"C\"",
            {P::text(zone.zoneName), P::text(query.recordType), P::text(query.referenceField), P::text(query.referenceName),
             P::text(query.sortField)});
        for (int i = 0; i < r.rows(); ++i) {
            Record record(r.text(i, 1), r.text(i, 0));
            record.setChangeTag(r.text(i, 3));
            RecordFields::addFromJson(record, r.text(i, 2).toUtf8(), query.desiredKeys);
            ergebnis.value.append(record);
        }
        return ergebnis;
    });
}

RecordResult<int> RecordDatabase::countRecords(const RecordZoneID &zone)
{
    return run([&] {
        const auto r = m_connection->exec("SELECT count(*) FROM velmora_record WHERE owner = current_user AND zone_name = $1",
                                          {P::text(zone.zoneName)});
        return RecordResult<int>{int(r.number(0, 0)), {}};
    });
}

RecordResult<RecordZoneChanges> RecordDatabase::fetchZoneChanges(const RecordZoneID &zone,
                                                                 const std::optional<RecordChangeToken> &since,
                                                                 const QStringList &desiredKeys, int limit)
{
    return run([&] { return RecordZoneFeed(*m_connection).page(zone, since, desiredKeys, limit); });
}

std::optional<RecordError> RecordDatabase::saveSubscription(const RecordZoneID &zone, const RecordSubscription &subscription)
{
    return run([&]() -> std::optional<RecordError> {
        if (!zoneExists(zone))
            return zoneFehlt(zone);
        m_connection->exec("INSERT INTO velmora_subscription (zone_name, subscription_id, record_type, positive_field)"
                           " VALUES ($1, $2, $3, $4) ON CONFLICT (owner, zone_name, subscription_id)"
                           " DO UPDATE SET record_type = excluded.record_type, positive_field = excluded.positive_field",
                           {P::text(zone.zoneName), P::text(subscription.subscriptionID), P::text(subscription.recordType),
                            P::text(subscription.positiveNumberField)});
        return std::nullopt;
    });
}
