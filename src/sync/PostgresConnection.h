#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>
#include <stdexcept>

struct pg_conn;
struct pg_result;

// One connection to the server: connecting with a libpq connection URI (missing parts come from
// libpq's environment and password file), statements with parameters, and their failures in the
// server's own terms (SQLSTATE), which the record database translates.
class PostgresConnection
{
public:
    struct Failure : std::runtime_error {
        Failure(const QString &message, QByteArray sqlState, bool connectionLost);
        QByteArray sqlState;
        bool connectionLost;
    };

    struct Parameter {
        QByteArray value;
        bool binary = false;
        bool null = false;
        static Parameter text(const QString &text) { return {text.toUtf8()}; }
        static Parameter number(qint64 n) { return {QByteArray::number(n)}; }
        static Parameter bytes(const QByteArray &b) { return {b, true}; }
    };

    class Result
    {
    public:
        explicit Result(pg_result *result);
        int rows() const;
        bool isNull(int row, int column) const;
        QString text(int row, int column) const;
        QByteArray bytes(int row, int column) const; // raw in a binary result
        qint64 number(int row, int column) const { return text(row, column).toLongLong(); }

    private:
        std::shared_ptr<pg_result> m_result;
    };

    explicit PostgresConnection(QByteArray uri);
    ~PostgresConnection();
    PostgresConnection(const PostgresConnection &) = delete;
    PostgresConnection &operator=(const PostgresConnection &) = delete;

    // Connects unless connected and healthy; the server's first line of complaint otherwise.
    bool connect(QString *error);
    bool isConnected() const;
    void disconnect();

    // Throws Failure. `binaryResult` returns every column in its binary form (bytea as raw bytes).
    Result exec(const char *sql, const QList<Parameter> &parameters = {}, bool binaryResult = false);

    pg_conn *handle() const { return m_conn; }
    int serverVersion() const;

private:
    QByteArray m_uri;
    pg_conn *m_conn = nullptr;
};
