#include "SqliteDatabase.h"

#include <sqlite3.h>

SqliteDatabase::~SqliteDatabase()
{
    close();
}

bool SqliteDatabase::open(const QString &path, bool create)
{
    close();
    const int flags = SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0) | SQLITE_OPEN_NOMUTEX;
    const int rc = sqlite3_open_v2(path.toUtf8().constData(), &m_db, flags, nullptr);
    if (rc != SQLITE_OK) {
        m_lastCode = rc;
        m_lastError = m_db ? QString::fromUtf8(sqlite3_errmsg(m_db)) : QString::fromUtf8(sqlite3_errstr(rc));
        close();
        return false;
    }
    sqlite3_extended_result_codes(m_db, 1);
    // A double-quoted name that is no column is an error, never the text of the name: otherwise
    // a store whose key column is missing loads every row under one key and saves into none.
    sqlite3_db_config(m_db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(m_db, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    return true;
}

void SqliteDatabase::close()
{
    if (m_db) {
        sqlite3_close_v2(m_db);
        m_db = nullptr;
    }
}

void SqliteDatabase::recordError()
{
    m_lastCode = sqlite3_extended_errcode(m_db);
    m_lastError = QString::fromUtf8(sqlite3_errmsg(m_db));
}

bool SqliteDatabase::exec(const QString &sql)
{
    char *message = nullptr;
    const int rc = sqlite3_exec(m_db, sql.toUtf8().constData(), nullptr, nullptr, &message);
    if (rc != SQLITE_OK) {
        m_lastCode = rc;
        m_lastError = message ? QString::fromUtf8(message) : QString::fromUtf8(sqlite3_errstr(rc));
        sqlite3_free(message);
        return false;
    }
    return true;
}

std::optional<SqliteStatement> SqliteDatabase::prepare(const QString &sql)
{
    sqlite3_stmt *stmt = nullptr;
    const QByteArray utf8 = sql.toUtf8();
    if (sqlite3_prepare_v2(m_db, utf8.constData(), int(utf8.size()), &stmt, nullptr) != SQLITE_OK) {
        recordError();
        return std::nullopt;
    }
    return SqliteStatement(this, stmt);
}

void SqliteDatabase::setBusyTimeout(int milliseconds)
{
    sqlite3_busy_timeout(m_db, milliseconds);
}

SqliteStatement::SqliteStatement(SqliteStatement &&other) noexcept
    : m_db(other.m_db), m_stmt(other.m_stmt), m_ok(other.m_ok)
{
    other.m_stmt = nullptr;
}

SqliteStatement &SqliteStatement::operator=(SqliteStatement &&other) noexcept
{
    if (this != &other) {
        sqlite3_finalize(m_stmt);
        m_db = other.m_db;
        m_stmt = other.m_stmt;
        m_ok = other.m_ok;
        other.m_stmt = nullptr;
    }
    return *this;
}

SqliteStatement::~SqliteStatement()
{
    sqlite3_finalize(m_stmt);
}

void SqliteStatement::bindNull(int index)
{
    sqlite3_bind_null(m_stmt, index);
}

void SqliteStatement::bindInt(int index, qint64 value)
{
    sqlite3_bind_int64(m_stmt, index, value);
}

void SqliteStatement::bindText(int index, const QString &value)
{
    const QByteArray utf8 = value.toUtf8();
    sqlite3_bind_text(m_stmt, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

void SqliteStatement::bindBlob(int index, const QByteArray &value)
{
    sqlite3_bind_blob64(m_stmt, index, value.constData(), sqlite3_uint64(value.size()), SQLITE_TRANSIENT);
}

bool SqliteStatement::step()
{
    const int rc = sqlite3_step(m_stmt);
    if (rc == SQLITE_ROW)
        return true;
    m_ok = rc == SQLITE_DONE;
    if (!m_ok)
        m_db->recordError();
    return false;
}

void SqliteStatement::reset()
{
    sqlite3_reset(m_stmt);
    sqlite3_clear_bindings(m_stmt);
    m_ok = true;
}

bool SqliteStatement::isNull(int column) const
{
    return sqlite3_column_type(m_stmt, column) == SQLITE_NULL;
}

qint64 SqliteStatement::columnInt(int column) const
{
    return sqlite3_column_int64(m_stmt, column);
}

QString SqliteStatement::columnText(int column) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(m_stmt, column));
    const int size = sqlite3_column_bytes(m_stmt, column);
    return text ? QString::fromUtf8(text, size) : QString(QLatin1String(""));
}

QByteArray SqliteStatement::columnBlob(int column) const
{
    const void *data = sqlite3_column_blob(m_stmt, column);
    const int size = sqlite3_column_bytes(m_stmt, column);
    return data ? QByteArray(static_cast<const char *>(data), size) : QByteArray("", 0);
}

std::string_view SqliteStatement::columnUtf8(int column) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(m_stmt, column));
    return text ? std::string_view(text, std::size_t(sqlite3_column_bytes(m_stmt, column))) : std::string_view();
}
