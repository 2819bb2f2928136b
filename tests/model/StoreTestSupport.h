#pragma once

// A store opened as the application opens it, a second raw connection to its file, file snapshots.

#include "FKRAbsender.h"
#include "FKREmpfaenger.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"
#include "PersistentStoreCoordinator.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>
#include <ostream>

inline void PrintTo(const QString &text, std::ostream *out) { *out << '"' << text.toStdString() << '"'; }
inline void PrintTo(const Decimal &number, std::ostream *out) { *out << number.toString(); }

namespace storetest {

// Member order: the context goes first on destruction, as in the application.
struct OpenStore {
    std::unique_ptr<PersistentStoreCoordinator> coordinator;
    std::unique_ptr<ManagedObjectContext> context;

    explicit OpenStore(const QString &path)
        : coordinator(std::make_unique<PersistentStoreCoordinator>())
    {
        coordinator->addPersistentStore(path);
        context = std::make_unique<ManagedObjectContext>(coordinator.get());
    }
    ManagedObjectContext &moc() { return *context; }

    // The one object of its kind; null (and a failure) unless there is exactly one.
    template<typename T>
    T *only() { return single(context->fetch<T>(), "one of a kind"); }
    ManagedObject *byIdentifier(const QString &entity, const QString &id)
    {
        const auto hasId = [&](const ManagedObject &o) { return o.value(QStringLiteral("uniqueIdentifier")).toString() == id; };
        return single(context->executeFetchRequest({entity, hasId, {}}), id.toStdString());
    }
    template<typename T>
    static T *single(const QList<T *> &found, const std::string &what)
    {
        EXPECT_EQ(found.size(), 1) << what;
        return found.size() == 1 ? found.first() : nullptr;
    }
};

class RawSql
{
public:
    explicit RawSql(const QString &path, bool create = false)
    {
        const int flags = SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0);
        if (sqlite3_open_v2(path.toUtf8().constData(), &m_db, flags, nullptr) != SQLITE_OK)
            ADD_FAILURE() << "cannot open " << path.toStdString();
    }
    ~RawSql() { sqlite3_close_v2(m_db); }
    RawSql(const RawSql &) = delete;
    RawSql &operator=(const RawSql &) = delete;

    bool exec(const char *sql)
    {
        const int rc = sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr);
        m_lastError = rc == SQLITE_OK ? std::string() : std::string(sqlite3_errmsg(m_db));
        return rc == SQLITE_OK;
    }
    void mustExec(const char *sql) { ASSERT_TRUE(exec(sql)) << sql << ": " << m_lastError; }

    // One column of every row; "<null>" for NULL.
    QStringList rows(const QString &sql, int column = 0)
    {
        QStringList values;
        sqlite3_stmt *st = nullptr;
        if (sqlite3_prepare_v2(m_db, sql.toUtf8().constData(), -1, &st, nullptr) != SQLITE_OK)
            ADD_FAILURE() << sql.toStdString() << ": " << sqlite3_errmsg(m_db);
        while (st && sqlite3_step(st) == SQLITE_ROW) {
            const auto *value = reinterpret_cast<const char *>(sqlite3_column_text(st, column));
            values << (value ? QString::fromUtf8(value, sqlite3_column_bytes(st, column)) : QStringLiteral("<null>"));
        }
        sqlite3_finalize(st);
        return values;
    }
    // First column of the first row; "<none>" without a row.
    QString text(const QString &sql) { return rows(sql).value(0, QStringLiteral("<none>")); }
    qint64 number(const QString &sql) { return text(sql).toLongLong(); }
    QStringList columns(const QString &table) { return rows("PRAGMA table_info(\"" + table + "\")", 1); }
    const std::string &lastError() const { return m_lastError; }

private:
    sqlite3 *m_db = nullptr;
    std::string m_lastError;
};

template<std::size_t N>
QByteArray bytes(const char (&literal)[N]) { return QByteArray(literal, qsizetype(N - 1)); } // zero bytes included

inline QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

inline QStringList sideFiles(const QString &storePath)
{
    QStringList present;
    for (const char *suffix : {"-journal", "-wal", "-shm"})
        if (QFile::exists(storePath + QLatin1String(suffix)))
            present << storePath + QLatin1String(suffix);
    return present;
}

// An attribute value with its kind, as the tables of expected values write it.
inline std::string describe(const QVariant &v)
{
    if (!v.isValid())
        return "<absent>";
    if (v.metaType() == QMetaType::fromType<Decimal>())
        return "Decimal " + v.value<Decimal>().toString();
    if (v.metaType() == QMetaType::fromType<QByteArray>())
        return "bytes[" + std::to_string(v.toByteArray().size()) + "] " + v.toByteArray().left(32).toHex().toStdString();
    if (v.metaType() == QMetaType::fromType<QDateTime>())
        return "date " + v.toDateTime().toUTC().toString(Qt::ISODateWithMs).toStdString();
    return std::string(v.typeName()) + " " + v.toString().toStdString();
}

inline void expectSameAttributes(const ManagedObject &a, const ManagedObject &b)
{
    for (const AttributeDescription &attribute : a.entity().attributes()) {
        const QVariant va = a.value(attribute.name);
        const QVariant vb = b.value(attribute.name);
        EXPECT_TRUE(va.isValid() == vb.isValid() && va == vb)
            << a.entity().name().toStdString() << "." << attribute.name.toStdString() << ": " << describe(va)
            << " became " << describe(vb);
    }
}

} // namespace storetest

// A test with a fresh folder for its store file.
class StoreFixture : public ::testing::Test
{
protected:
    QTemporaryDir dir;
    const QString path = dir.filePath(QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName));

    void save(ManagedObjectContext &moc)
    {
        QString error;
        ASSERT_TRUE(moc.save(&error)) << error.toStdString();
    }
};
