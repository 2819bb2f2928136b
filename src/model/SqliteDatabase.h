#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

class SqliteStatement;

// An open SQLite connection, closed when the object goes. Errors are reported as return values
// with the library's message in lastError(), never thrown, so callers decide what the user sees.
class SqliteDatabase
{
public:
    SqliteDatabase() = default;
    ~SqliteDatabase();
    SqliteDatabase(const SqliteDatabase &) = delete;
    SqliteDatabase &operator=(const SqliteDatabase &) = delete;

    // create: make the file when missing; otherwise the file must exist.
    bool open(const QString &path, bool create);
    void close();
    bool isOpen() const { return m_db != nullptr; }

    bool exec(const QString &sql);
    std::optional<SqliteStatement> prepare(const QString &sql);

    QString lastError() const { return m_lastError; }
    int lastErrorCode() const { return m_lastCode; }
    void setBusyTimeout(int milliseconds);
    sqlite3 *handle() const { return m_db; }

private:
    friend class SqliteStatement;
    void recordError();

    sqlite3 *m_db = nullptr;
    QString m_lastError;
    int m_lastCode = 0;
};

// A prepared statement; step() returns true while rows come, false at the end or on error
// (then ok() is false and the database's lastError() tells why).
class SqliteStatement
{
public:
    SqliteStatement(SqliteDatabase *db, sqlite3_stmt *stmt) : m_db(db), m_stmt(stmt) {}
    SqliteStatement(SqliteStatement &&other) noexcept;
    SqliteStatement &operator=(SqliteStatement &&other) noexcept;
    ~SqliteStatement();

    void bindNull(int index);
    void bindInt(int index, qint64 value);
    void bindText(int index, const QString &value);
    void bindBlob(int index, const QByteArray &value);

    bool step();
    bool ok() const { return m_ok; }
    void reset();

    bool isNull(int column) const;
    qint64 columnInt(int column) const;
    QString columnText(int column) const;
    std::string_view columnUtf8(int column) const;
    QByteArray columnBlob(int column) const;

private:
    SqliteDatabase *m_db;
    sqlite3_stmt *m_stmt;
    bool m_ok = true;
};
