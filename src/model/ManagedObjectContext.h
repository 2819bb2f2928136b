#pragma once

#include "FetchRequest.h"
#include "ManagedObjectModel.h"

#include <QHash>
#include <QList>
#include <QObject>

#include <memory>
#include <vector>

class ManagedObject;
class PersistentStoreCoordinator;

// The one context of the main thread: holds every object of the store in memory, tracks what
// was inserted, changed and deleted since the last save, and writes all of it in one transaction.
// A failed save leaves the file as it was and the context with all its unsaved changes.
class ManagedObjectContext : public QObject
{
    Q_OBJECT

public:
    // Without a coordinator the context lives in memory only (a document read from a file).
    // With one, every object of the store is loaded now; throws StoreError when that fails.
    explicit ManagedObjectContext(PersistentStoreCoordinator *coordinator = nullptr,
                                  const ManagedObjectModel &model = ManagedObjectModel::defaultModel());
    ~ManagedObjectContext() override;

    const ManagedObjectModel &managedObjectModel() const { return m_model; }
    PersistentStoreCoordinator *persistentStoreCoordinator() const { return m_coordinator; }

    // A new object with the store's defaults and a fresh uniqueIdentifier.
    ManagedObject *insertNewObjectForEntityForName(const QString &entityName);
    template<typename T>
    T *insertNewObject()
    {
        return static_cast<T *>(insertNewObjectForEntityForName(QString::fromLatin1(T::staticMetaObject.className())));
    }

    // Marks the object deleted and applies the delete rules at once: a document takes its items
    // with it; documents of a deleted sender or recipient stay without one. The object stays
    // readable (no dangling pointers in views) until the context goes.
    void deleteObject(ManagedObject *object);

    QList<ManagedObject *> executeFetchRequest(const FetchRequest &request) const;
    template<typename T>
    QList<T *> fetch(std::function<bool(const ManagedObject &)> predicate = {},
                     const QList<SortDescriptor> &sort = {}) const
    {
        QList<T *> result;
        const auto objects = executeFetchRequest(
            {QString::fromLatin1(T::staticMetaObject.className()), std::move(predicate), sort});
        result.reserve(objects.size());
        for (ManagedObject *object : objects)
            result.append(static_cast<T *>(object));
        return result;
    }

    bool hasChanges() const;
    // Writes all changes in one transaction. On failure nothing in the file changes, the context
    // keeps its changes and `error` receives a message for the user.
    bool save(QString *error = nullptr);

    QList<ManagedObject *> insertedObjects() const { return m_insertedObjects; }
    QList<ManagedObject *> updatedObjects() const { return m_updatedObjects; }
    QList<ManagedObject *> deletedObjects() const { return m_deletedObjects; }

Q_SIGNALS:
    void objectsDidChange();
    void didSave();

private:
    friend class ManagedObject;
    friend class PersistentStoreCoordinator;

    void objectDidChange(ManagedObject *object);
    std::optional<AttributeValue> fetchBlob(const ManagedObject *object, int slot) const;
    ManagedObject *registerLoadedObject(const EntityDescription &entity, qint64 primaryKey);

    const ManagedObjectModel &m_model;
    PersistentStoreCoordinator *m_coordinator;
    std::vector<std::unique_ptr<ManagedObject>> m_objects; // owns every object, deleted ones too
    QHash<QString, QList<ManagedObject *>> m_registered;   // per entity, in creation order
    bool m_hasDeletedRegistrations = false;                 // m_registered still lists deleted ones
    QHash<QString, qint64> m_nextPrimaryKey;
    QList<ManagedObject *> m_insertedObjects;
    QList<ManagedObject *> m_updatedObjects;
    QList<ManagedObject *> m_deletedObjects;
};
