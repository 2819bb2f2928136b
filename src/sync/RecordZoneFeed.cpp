#include "RecordZoneFeed.h"

#include "PostgresConnection.h"
#include "RecordFields.h"

#include <climits>

using P = PostgresConnection::Parameter;

namespace {

// Rows of the feed: changed records and tombstones after a counter value, in counter order.
const char *const kFeed = "SELECT * FROM ("
                          " SELECT record_name, record_type, fields::text, change_tag AS seq, false AS deleted"
                          "  FROM velmora_record WHERE owner = current_user AND zone_name = $1 AND change_tag %1 $2"
                          " UNION ALL"
                          " SELECT record_name, '', '', change_seq, true"
                          "  FROM velmora_tombstone WHERE owner = current_user AND zone_name = $1 AND change_seq %1 $2"
                          ") AS c ORDER BY seq, record_name";

} // namespace

RecordResult<RecordZoneChanges> RecordZoneFeed::page(const RecordZoneID &zone, const std::optional<RecordChangeToken> &since,
                                                     const QStringList &desiredKeys, int limit)
{
    RecordResult<RecordZoneChanges> ergebnis;
    // One snapshot for the counter and the rows: every change up to the counter it shows.
    m_connection.exec("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
    const P z = P::text(zone.zoneName);
    const auto kopf = m_connection.exec("SELECT generation, change_seq FROM velmora_zone"
                                        " WHERE owner = current_user AND zone_name = $1", {z});
    if (!kopf.rows()) {
        m_connection.exec("COMMIT");
        ergebnis.error = RecordError(RecordError::ZoneNotFound, QStringLiteral("there is no zone \"%1\"").arg(zone.zoneName));
        return ergebnis;
    }
    const RecordChangeToken jetzt{kopf.number(0, 0), kopf.number(0, 1)};
    // A token of an earlier zone of this name, or one ahead of the server (a server restored from
    // an older backup), cannot be continued from: the client starts over.
    if (since && (since->generation != jetzt.generation || since->counter > jetzt.counter)) {
        m_connection.exec("COMMIT");
        ergebnis.error = RecordError(RecordError::UserDeletedZone,
                                     QStringLiteral("the zone \"%1\" was made anew; its changes start over").arg(zone.zoneName));
        return ergebnis;
    }
    const qint64 ab = since ? since->counter : 0;
    const int grenze = std::max(1, limit);
    const auto feed = [&](const char *vergleich, qint64 wert, bool begrenzt) {
        const QByteArray sql = QByteArray(kFeed).replace("%1", vergleich) + (begrenzt ? " LIMIT $3" : "");
        return begrenzt ? m_connection.exec(sql.constData(), {z, P::number(wert), P::number(grenze + 1)})
                        : m_connection.exec(sql.constData(), {z, P::number(wert)});
    };
    struct Zeile {
        Record record;
        bool geloescht;
        qint64 seq;
    };
    const auto zeilenVon = [&](const PostgresConnection::Result &r, int bis) {
        QList<Zeile> liste;
        for (int i = 0; i < std::min(bis, r.rows()); ++i) {
            Zeile zeile{Record(r.text(i, 1), r.text(i, 0)), r.text(i, 4) == u"t", r.number(i, 3)};
            zeile.record.setChangeTag(QString::number(zeile.seq));
            if (!zeile.geloescht)
                RecordFields::addFromJson(zeile.record, r.text(i, 2).toUtf8(), desiredKeys);
            liste.append(zeile);
        }
        return liste;
    };
    const auto erste = feed(">", ab, true);
    QList<Zeile> seite = zeilenVon(erste, grenze);
    RecordZoneChanges &changes = ergebnis.value;
    changes.token = jetzt;
    if (erste.rows() > grenze) {
        // A page ends after a whole counter value: the rest of the last one comes along, so the
        // next page can start after it.
        const qint64 letzte = seite.last().seq;
        if (erste.number(grenze, 3) == letzte) {
            seite.removeIf([&](const Zeile &zeile) { return zeile.seq == letzte; });
            seite += zeilenVon(feed("=", letzte, false), INT_MAX);
        }
        changes.token.counter = letzte;
        changes.moreComing = true;
    }
    // The page's assets in one query: those of the records changed after `ab` up to the new
    // token, of the wanted fields only.
    QMap<QString, qsizetype> stelle;
    for (const Zeile &zeile : std::as_const(seite)) {
        if (zeile.geloescht) {
            changes.deleted.append(zeile.record.name());
        } else {
            stelle.insert(zeile.record.name(), changes.changed.size());
            changes.changed.append(zeile.record);
        }
    }
    const auto assets = m_connection.exec(
        "SELECT a.record_name, a.field, a.bytes FROM velmora_asset a JOIN velmora_record r USING (owner, zone_name, record_name)"
        " WHERE r.owner = current_user AND r.zone_name = $1 AND r.change_tag > $2 AND r.change_tag <= $3"
        " AND ($4 = '' OR a.field = ANY (string_to_array($4, E'\\n')))",
        {z, P::number(ab), P::number(changes.token.counter), P::text(desiredKeys.join(u'\n'))}, true);
    for (int i = 0; i < assets.rows(); ++i)
        if (const auto it = stelle.constFind(assets.text(i, 0)); it != stelle.cend())
            changes.changed[*it].set(assets.text(i, 1), RecordAsset{assets.bytes(i, 2)});
    m_connection.exec("COMMIT");
    return ergebnis;
}
