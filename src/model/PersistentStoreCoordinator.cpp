#include "PersistentStoreCoordinator.h"

#include "FKRLocalizationHelper.h"
#include "ManagedObject.h"
#include "ManagedObjectContext.h"
#include "StoreColumns.h"

#include <QFileInfo>
#include <QSet>

#include <sqlite3.h>

namespace {
const QString kMetadataTable = QStringLiteral("VelmoraStoreMetadata");
} // namespace

PersistentStoreCoordinator::PersistentStoreCoordinator(const ManagedObjectModel &model) : m_model(model) {}

PersistentStoreCoordinator::~PersistentStoreCoordinator()
{
    m_statements.clear();
    m_db.close();
}

void PersistentStoreCoordinator::fail(StoreError::Kind kind, const char *messageKey, const QString &detail) const
{
    const QString key = QString::fromLatin1(messageKey);
    QString message = FKRLocalizationHelper::hauptTabellenText(key);
    // Without a loaded table the key comes back; the path and reason must still reach the user.
    message = message == key ? key + QStringLiteral(": %1 (%2)") : message;
    message = message.arg(m_path, detail);
    throw StoreError(kind, message, detail);
}

void PersistentStoreCoordinator::setBusyTimeout(int milliseconds)
{
    if (m_db.isOpen())
        m_db.setBusyTimeout(milliseconds);
}

void PersistentStoreCoordinator::addPersistentStore(const QString &path)
{
    m_path = path;
    const QFileInfo info(path);
    const bool exists = info.exists();
    if (exists && !info.isFile())
        fail(StoreError::Kind::CannotOpen, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_CANNOT_OPEN"), QStringLiteral("not a regular file"));
    if (!m_db.open(path, !exists))
        fail(StoreError::Kind::CannotOpen, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_CANNOT_OPEN"), m_db.lastError());
    m_db.setBusyTimeout(5000);
    checkIsStore();
}

void PersistentStoreCoordinator::checkIsStore()
{
    // Only reads until the file is known to be a store of ours, so a foreign file stays untouched.
    QSet<QString> tables;
    {
        auto query = m_db.prepare(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table'"));
        if (query) {
            while (query->step())
                tables.insert(query->columnText(0));
        }
        if (!query || !query->ok()) {
            const int code = m_db.lastErrorCode() & 0xff;
            m_db.close();
            if (code == SQLITE_NOTADB)
                fail(StoreError::Kind::NotAStore, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_NOT_A_STORE"), m_db.lastError());
            if (code == SQLITE_CORRUPT)
                fail(StoreError::Kind::Damaged, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_DAMAGED"), m_db.lastError());
            fail(StoreError::Kind::CannotOpen, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_CANNOT_OPEN"), m_db.lastError());
        }
    }
    const bool fresh = tables.isEmpty();
    if (!fresh && !tables.contains(kMetadataTable)) {
        m_db.close();
        fail(StoreError::Kind::NotAStore, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_NOT_A_STORE"), QStringLiteral("no store metadata"));
    }
    if (!fresh) {
        auto query = m_db.prepare(QStringLiteral("SELECT value FROM ") + kMetadataTable
                                  + QStringLiteral(" WHERE key = 'schemaVersion'"));
        int version = 0;
        if (query && query->step())
            version = int(query->columnInt(0));
        if (!query || !query->ok()) {
            m_db.close();
            fail(StoreError::Kind::Damaged, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_DAMAGED"), m_db.lastError());
        }
        if (version > ManagedObjectModel::kSchemaVersion) {
            m_db.close();
            fail(StoreError::Kind::NewerVersion, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_NEWER_VERSION"), QString::number(version));
        }
    }
    // Every save must be on disk when it returns: a rollback journal and full syncs.
    if (!m_db.exec(QStringLiteral("PRAGMA journal_mode = DELETE")) || !m_db.exec(QStringLiteral("PRAGMA synchronous = FULL"))) {
        m_db.close();
        fail(StoreError::Kind::CannotOpen, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_CANNOT_OPEN"), m_db.lastError());
    }
    createOrMigrateSchema(fresh);
}

void PersistentStoreCoordinator::createOrMigrateSchema(bool fresh)
{
    QStringList statements;
    if (fresh)
        statements << QStringLiteral("CREATE TABLE ") + kMetadataTable + QStringLiteral(" (key TEXT PRIMARY KEY, value TEXT)");
    for (const auto &entity : m_model.entities()) {
        QSet<QString> existing;
        auto info = m_db.prepare(QStringLiteral("PRAGMA table_info(") + StoreColumns::quoted(entity->name()) + QLatin1Char(')'));
        if (!info) {
            m_db.close();
            fail(StoreError::Kind::Damaged, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_DAMAGED"), m_db.lastError());
        }
        while (info->step())
            existing.insert(info->columnText(1));
        if (existing.isEmpty()) {
            QStringList columns{QStringLiteral("\"pk\" INTEGER PRIMARY KEY")};
            for (const AttributeDescription &attribute : entity->attributes())
                columns << StoreColumns::columnDefinition(attribute);
            for (const QString &fk : StoreColumns::foreignKeyColumns(*entity))
                columns << StoreColumns::quoted(fk) + QStringLiteral(" INTEGER");
            statements << QStringLiteral("CREATE TABLE ") + StoreColumns::quoted(entity->name()) + QStringLiteral(" (")
                              + columns.join(QStringLiteral(", ")) + QLatin1Char(')');
            continue;
        }
        // A column added by a newer version: old rows receive the default of a new object.
        for (const AttributeDescription &attribute : entity->attributes()) {
            if (!existing.contains(attribute.name))
                statements << QStringLiteral("ALTER TABLE ") + StoreColumns::quoted(entity->name()) + QStringLiteral(" ADD COLUMN ")
                                  + StoreColumns::columnDefinition(attribute);
        }
        for (const QString &fk : StoreColumns::foreignKeyColumns(*entity)) {
            if (!existing.contains(fk))
                statements << QStringLiteral("ALTER TABLE ") + StoreColumns::quoted(entity->name()) + QStringLiteral(" ADD COLUMN ")
                                  + StoreColumns::quoted(fk) + QStringLiteral(" INTEGER");
        }
    }
    if (statements.isEmpty() && !fresh) {
        auto version = m_db.prepare(QStringLiteral("SELECT value FROM ") + kMetadataTable
                                    + QStringLiteral(" WHERE key = 'schemaVersion'"));
        if (version && version->step() && version->columnInt(0) == ManagedObjectModel::kSchemaVersion)
            return; // nothing to write: opening an up-to-date store leaves the file alone
    }
    statements << QStringLiteral("INSERT OR REPLACE INTO ") + kMetadataTable
                      + QStringLiteral(" (key, value) VALUES ('schemaVersion', '%1')").arg(ManagedObjectModel::kSchemaVersion);
    if (!m_db.exec(QStringLiteral("BEGIN IMMEDIATE"))) {
        m_db.close();
        fail(StoreError::Kind::CannotOpen, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_CANNOT_OPEN"), m_db.lastError());
    }
    for (const QString &sql : std::as_const(statements)) {
        if (!m_db.exec(sql)) {
            const QString error = m_db.lastError();
            m_db.exec(QStringLiteral("ROLLBACK"));
            m_db.close();
            fail(StoreError::Kind::CannotOpen, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_CANNOT_OPEN"), error);
        }
    }
    if (!m_db.exec(QStringLiteral("COMMIT"))) {
        const QString error = m_db.lastError();
        m_db.exec(QStringLiteral("ROLLBACK"));
        m_db.close();
        fail(StoreError::Kind::CannotOpen, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_CANNOT_OPEN"), error);
    }
}

void PersistentStoreCoordinator::loadObjects(ManagedObjectContext &context)
{
    struct PendingLink {
        ManagedObject *object;
        int relationship;
        qint64 target;
    };
    QHash<QString, QHash<qint64, ManagedObject *>> byKey;
    std::vector<PendingLink> links;

    for (const auto &entity : m_model.entities()) {
        QStringList columns{QStringLiteral("\"pk\"")};
        for (const AttributeDescription &attribute : entity->attributes()) {
            // Images and frozen PDFs stay on disk until someone looks at them; the load only
            // asks whether there are bytes (1) or none (0).
            columns << (attribute.kind == AttributeKind::Binary
                            ? QStringLiteral("(") + StoreColumns::quoted(attribute.name) + QStringLiteral(" IS NOT NULL)")
                            : StoreColumns::quoted(attribute.name));
        }
        const QStringList fks = StoreColumns::foreignKeyColumns(*entity);
        for (const QString &fk : fks)
            columns << StoreColumns::quoted(fk);
        auto query = m_db.prepare(QStringLiteral("SELECT ") + columns.join(QStringLiteral(", ")) + QStringLiteral(" FROM ")
                                  + StoreColumns::quoted(entity->name()));
        if (!query)
            fail(StoreError::Kind::Damaged, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_DAMAGED"), m_db.lastError());
        const auto &attributes = entity->attributes();
        QHash<qint64, ManagedObject *> &objects = byKey[entity->name()];
        while (query->step()) {
            const qint64 pk = query->columnInt(0);
            ManagedObject *object = context.registerLoadedObject(*entity, pk);
            for (std::size_t i = 0; i < attributes.size(); ++i) {
                const int column = int(i) + 1;
                if (attributes[i].kind == AttributeKind::Binary)
                    object->setPrimitiveValue(int(i), query->columnInt(column) != 0 ? AttributeValue(BlobFault{}) : AttributeValue());
                else
                    object->setPrimitiveValue(int(i), StoreColumns::readColumn(*query, column, attributes[i].kind));
            }
            for (qsizetype f = 0; f < fks.size(); ++f) {
                const int column = int(attributes.size()) + 1 + int(f);
                if (!query->isNull(column))
                    links.push_back({object, entity->relationshipIndex(fks[f]), query->columnInt(column)});
            }
            objects.insert(pk, object);
        }
        if (!query->ok())
            fail(StoreError::Kind::Damaged, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_DAMAGED"), m_db.lastError());
    }
    // Relationships are linked once every object exists; a reference to a row that is gone
    // leaves the relationship empty.
    for (const PendingLink &link : links) {
        const RelationshipDescription &relationship = link.object->entity().relationships()[std::size_t(link.relationship)];
        ManagedObject *target = byKey.value(relationship.destinationEntity).value(link.target);
        if (!target)
            continue;
        link.object->m_toOne[std::size_t(link.relationship)] = target;
        const int inverse = target->entity().relationshipIndex(relationship.inverseName);
        target->m_toMany[std::size_t(inverse)].append(link.object);
    }
}

SqliteStatement &PersistentStoreCoordinator::statement(const QString &sql)
{
    auto it = m_statements.find(sql);
    if (it == m_statements.end()) {
        auto prepared = m_db.prepare(sql);
        if (!prepared)
            fail(StoreError::Kind::SaveFailed, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_SAVE_FAILED"), m_db.lastError());
        it = m_statements.emplace(sql, std::move(*prepared)).first;
    }
    it->second.reset();
    return it->second;
}

void PersistentStoreCoordinator::writeObject(const ManagedObject &object, bool insert)
{
    const EntityDescription &entity = object.entity();
    const auto &attributes = entity.attributes();
    QStringList columns;
    std::vector<const AttributeValue *> values;
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        const AttributeValue &value = object.primitiveValue(int(i));
        if (std::holds_alternative<BlobFault>(value))
            continue; // unchanged bytes that were never read
        columns << StoreColumns::quoted(attributes[i].name);
        values.push_back(&value);
    }
    std::vector<const ManagedObject *> targets;
    for (const RelationshipDescription &relationship : entity.relationships()) {
        if (relationship.toMany)
            continue;
        columns << StoreColumns::quoted(relationship.name);
        targets.push_back(object.toOne(relationship.name));
    }
    QString sql;
    if (insert) {
        QStringList marks(columns.size() + 1, QStringLiteral("?"));
        sql = QStringLiteral("INSERT INTO ") + StoreColumns::quoted(entity.name()) + QStringLiteral(" (\"pk\", ")
              + columns.join(QStringLiteral(", ")) + QStringLiteral(") VALUES (") + marks.join(QStringLiteral(", "))
              + QLatin1Char(')');
    } else {
        sql = QStringLiteral("UPDATE ") + StoreColumns::quoted(entity.name()) + QStringLiteral(" SET ")
              + columns.join(QStringLiteral(" = ?, ")) + QStringLiteral(" = ? WHERE \"pk\" = ?");
    }
    SqliteStatement &st = statement(sql);
    int index = 1;
    if (insert)
        st.bindInt(index++, object.primaryKey());
    for (const AttributeValue *value : values)
        StoreColumns::bindValue(st, index++, *value);
    for (const ManagedObject *target : targets) {
        if (target)
            st.bindInt(index++, target->primaryKey());
        else
            st.bindNull(index++);
    }
    if (!insert)
        st.bindInt(index++, object.primaryKey());
    st.step();
    if (!st.ok())
        throw StoreError(StoreError::Kind::SaveFailed, QString(), m_db.lastError());
}

void PersistentStoreCoordinator::save(const QList<ManagedObject *> &inserted, const QList<ManagedObject *> &updated,
                                      const QList<ManagedObject *> &deleted)
{
    if (!m_db.isOpen())
        fail(StoreError::Kind::SaveFailed, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_SAVE_FAILED"), QStringLiteral("no store"));
    if (!m_db.exec(QStringLiteral("BEGIN IMMEDIATE")))
        fail(StoreError::Kind::SaveFailed, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_SAVE_FAILED"), m_db.lastError());
    try {
        for (const ManagedObject *object : deleted) {
            SqliteStatement &st = statement(QStringLiteral("DELETE FROM ") + StoreColumns::quoted(object->entity().name())
                                            + QStringLiteral(" WHERE \"pk\" = ?"));
            st.bindInt(1, object->primaryKey());
            st.step();
            if (!st.ok())
                throw StoreError(StoreError::Kind::SaveFailed, QString(), m_db.lastError());
        }
        for (const ManagedObject *object : inserted)
            writeObject(*object, true);
        for (const ManagedObject *object : updated)
            writeObject(*object, false);
        if (!m_db.exec(QStringLiteral("COMMIT")))
            throw StoreError(StoreError::Kind::SaveFailed, QString(), m_db.lastError());
    } catch (const StoreError &e) {
        m_db.exec(QStringLiteral("ROLLBACK"));
        fail(StoreError::Kind::SaveFailed, QT_TRANSLATE_NOOP("Velmora", "STORE_ERROR_SAVE_FAILED"), e.detail());
    }
}

std::optional<AttributeValue> PersistentStoreCoordinator::fetchBlob(const EntityDescription &entity, qint64 primaryKey,
                                                                     int slot)
{
    if (!m_db.isOpen())
        return std::nullopt;
    try {
        SqliteStatement &st = statement(QStringLiteral("SELECT ") + StoreColumns::quoted(entity.attributes()[std::size_t(slot)].name)
                                        + QStringLiteral(" FROM ") + StoreColumns::quoted(entity.name()) + QStringLiteral(" WHERE \"pk\" = ?"));
        st.bindInt(1, primaryKey);
        if (st.step()) {
            AttributeValue value = st.isNull(0) ? AttributeValue() : AttributeValue(st.columnBlob(0));
            st.reset();
            return value;
        }
        return st.ok() ? std::optional<AttributeValue>(AttributeValue()) : std::nullopt;
    } catch (const StoreError &) {
        return std::nullopt;
    }
}
