#pragma once

class PostgresConnection;

// The tables of the record database on the server, made by the first client that connects and
// brought up to this program's version by the first newer one: in one transaction, under a lock,
// so two machines connecting at once make them once.
//
// Every row belongs to the role that wrote it, and row-level security, forced also for the tables'
// owner, shows each role its own rows only: one database can serve several users.
namespace PostgresSchema {

constexpr int kVersion = 1;

// Creates or upgrades; the version found afterwards. Throws PostgresConnection::Failure, also for
// a server whose schema is newer than this program knows.
int ensure(PostgresConnection &connection);

} // namespace PostgresSchema
