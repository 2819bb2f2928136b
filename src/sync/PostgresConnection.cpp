#include "PostgresConnection.h"

#include <libpq-fe.h>

#include <vector>

namespace {

QString ersteZeile(const char *text)
{
    return QString::fromUtf8(text).section(QLatin1Char('\n'), 0, 0).trimmed();
}

} // namespace

PostgresConnection::Failure::Failure(const QString &message, QByteArray state, bool lost)
    : std::runtime_error(message.toStdString()), sqlState(std::move(state)), connectionLost(lost)
{
}

PostgresConnection::Result::Result(pg_result *result) : m_result(result, PQclear) {}

int PostgresConnection::Result::rows() const { return PQntuples(m_result.get()); }

bool PostgresConnection::Result::isNull(int row, int column) const { return PQgetisnull(m_result.get(), row, column); }

QString PostgresConnection::Result::text(int row, int column) const
{
    return QString::fromUtf8(PQgetvalue(m_result.get(), row, column), PQgetlength(m_result.get(), row, column));
}

QByteArray PostgresConnection::Result::bytes(int row, int column) const
{
    return QByteArray(PQgetvalue(m_result.get(), row, column), PQgetlength(m_result.get(), row, column));
}

PostgresConnection::PostgresConnection(QByteArray uri) : m_uri(std::move(uri)) {}

PostgresConnection::~PostgresConnection() { disconnect(); }

bool PostgresConnection::connect(QString *error)
{
    if (isConnected())
        return true;
    disconnect();
    // A server that does not answer must not hang the program: five seconds, then an error.
    // The URI comes last, so that what it says wins over these defaults.
    const char *const namen[] = {"connect_timeout", "application_name", "client_encoding", "dbname", nullptr};
    const char *const werte[] = {"5", "velmora", "UTF8", m_uri.constData(), nullptr};
    m_conn = PQconnectdbParams(namen, werte, 1);
    if (PQstatus(m_conn) == CONNECTION_OK)
        return true;
    if (error)
        *error = ersteZeile(PQerrorMessage(m_conn));
    disconnect();
    return false;
}

bool PostgresConnection::isConnected() const { return m_conn && PQstatus(m_conn) == CONNECTION_OK; }

void PostgresConnection::disconnect()
{
    if (m_conn)
        PQfinish(m_conn);
    m_conn = nullptr;
}

PostgresConnection::Result PostgresConnection::exec(const char *sql, const QList<Parameter> &parameters, bool binaryResult)
{
    if (!m_conn)
        throw Failure(QStringLiteral("not connected"), "08003", true);
    std::vector<const char *> werte;
    std::vector<int> laengen, formate;
    for (const Parameter &p : parameters) {
        werte.push_back(p.null ? nullptr : p.value.constData());
        laengen.push_back(int(p.value.size()));
        formate.push_back(p.binary ? 1 : 0);
    }
    pg_result *roh = PQexecParams(m_conn, sql, int(werte.size()), nullptr, werte.data(), laengen.data(), formate.data(),
                                  binaryResult ? 1 : 0);
    Result ergebnis(roh);
    const ExecStatusType status = PQresultStatus(roh);
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK)
        return ergebnis;
    const char *state = roh ? PQresultErrorField(roh, PG_DIAG_SQLSTATE) : nullptr;
    const bool verloren = PQstatus(m_conn) != CONNECTION_OK;
    throw Failure(ersteZeile(roh ? PQresultErrorMessage(roh) : PQerrorMessage(m_conn)), state ? QByteArray(state) : QByteArray("08006"),
                  verloren);
}

int PostgresConnection::serverVersion() const { return m_conn ? PQserverVersion(m_conn) : 0; }
