#pragma once

#include "RecordDatabase.h"

class PostgresConnection;

// Reading a zone's change feed on an open connection: one bounded page after a token, in one
// snapshot, so that the token it returns covers every change the page could have missed.
class RecordZoneFeed
{
public:
    explicit RecordZoneFeed(PostgresConnection &connection) : m_connection(connection) {}

    // Throws PostgresConnection::Failure; the caller ends the transaction on failure.
    RecordResult<RecordZoneChanges> page(const RecordZoneID &zone, const std::optional<RecordChangeToken> &since,
                                         const QStringList &desiredKeys, int limit);

private:
    PostgresConnection &m_connection;
};
