#pragma once

#include "AttributeValue.h"
#include "ManagedObjectModel.h"
#include "SqliteDatabase.h"
#include "StoreError.h"

#include <QHash>
#include <QList>
#include <QString>

#include <map>
#include <optional>

class ManagedObject;
class ManagedObjectContext;

// The SQLite file behind the context. Opening checks that the file is a store of this
// application without writing to it, then adds what an older version of the schema lacks
// (tables, columns with their defaults) in one transaction, so nothing stored is lost.
// Decimals are kept as exact text, dates as milliseconds since 1970 UTC, formatted texts as
// their plain characters, images and PDFs as BLOBs, relationships as primary keys.
class PersistentStoreCoordinator
{
public:
    static constexpr const char *kStoreFileName = "VelmoraRechnungen.storedata";

    explicit PersistentStoreCoordinator(const ManagedObjectModel &model = ManagedObjectModel::defaultModel());
    ~PersistentStoreCoordinator();

    // Opens the store at `path`, creating it when the file does not exist. Throws StoreError;
    // a file that is not a store or is damaged is left exactly as it was.
    void addPersistentStore(const QString &path);
    QString storePath() const { return m_path; }
    const ManagedObjectModel &managedObjectModel() const { return m_model; }

    // How long a save waits for another process that holds the file (default 5 s).
    void setBusyTimeout(int milliseconds);

private:
    friend class ManagedObjectContext;

    void loadObjects(ManagedObjectContext &context);
    void save(const QList<ManagedObject *> &inserted, const QList<ManagedObject *> &updated,
              const QList<ManagedObject *> &deleted);
    // nullopt when the file cannot be read; the caller then keeps the value unread.
    std::optional<AttributeValue> fetchBlob(const EntityDescription &entity, qint64 primaryKey, int slot);

    void checkIsStore();
    void createOrMigrateSchema(bool fresh);
    void writeObject(const ManagedObject &object, bool insert);
    SqliteStatement &statement(const QString &sql);
    [[noreturn]] void fail(StoreError::Kind kind, const char *messageKey, const QString &detail) const;

    const ManagedObjectModel &m_model;
    SqliteDatabase m_db;
    QString m_path;
    std::map<QString, SqliteStatement> m_statements;
};
