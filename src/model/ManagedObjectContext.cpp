#include "ManagedObjectContext.h"

#include "ManagedObject.h"
#include "PersistentStoreCoordinator.h"
#include "StoreError.h"

#include <algorithm>
#include <limits>

ManagedObjectContext::ManagedObjectContext(PersistentStoreCoordinator *coordinator, const ManagedObjectModel &model)
    : m_model(model), m_coordinator(coordinator)
{
    if (m_coordinator)
        m_coordinator->loadObjects(*this);
}

ManagedObjectContext::~ManagedObjectContext() = default;

ManagedObject *ManagedObjectContext::registerLoadedObject(const EntityDescription &entity, qint64 primaryKey)
{
    ManagedObject *object = entity.create(this);
    object->m_primaryKey = primaryKey;
    m_objects.emplace_back(object);
    m_registered[entity.name()].append(object);
    qint64 &next = m_nextPrimaryKey[entity.name()];
    // A key at the very top (only a foreign or tampered file has one) leaves no key above it;
    // the next insert then fails its save instead of wrapping around.
    next = std::max(next, primaryKey < std::numeric_limits<qint64>::max() ? primaryKey + 1 : primaryKey);
    return object;
}

ManagedObject *ManagedObjectContext::insertNewObjectForEntityForName(const QString &entityName)
{
    const EntityDescription *entity = m_model.entity(entityName);
    if (!entity)
        return nullptr;
    qint64 &next = m_nextPrimaryKey[entityName];
    next = std::max<qint64>(next, 1);
    ManagedObject *object = registerLoadedObject(*entity, next);
    object->m_inserted = true;
    object->awakeFromInsert();
    m_insertedObjects.append(object);
    Q_EMIT objectsDidChange();
    return object;
}

void ManagedObjectContext::deleteObject(ManagedObject *object)
{
    if (!object || object->m_deleted || object->m_context != this)
        return;
    const bool wasInserted = object->m_inserted;
    object->m_deleted = true;
    if (wasInserted) {
        m_insertedObjects.removeOne(object);
        object->m_inserted = false;
    } else {
        if (object->m_updated)
            m_updatedObjects.removeOne(object);
        object->m_updated = false;
        m_deletedObjects.append(object);
    }
    // Fetches skip deleted objects; the lists are compacted once per save, so emptying a large
    // store stays linear.
    m_hasDeletedRegistrations = true;

    const auto &relationships = object->entity().relationships();
    for (std::size_t i = 0; i < relationships.size(); ++i) {
        const RelationshipDescription &relationship = relationships[i];
        if (!relationship.toMany) {
            // Leave the other side's list; the deleted object keeps no references.
            if (ManagedObject *other = object->m_toOne[i]) {
                object->m_toOne[i] = nullptr;
                other->detachInverse(other->entity().relationshipIndex(relationship.inverseName), object);
            }
            continue;
        }
        const QList<ManagedObject *> others = object->m_toMany[i];
        for (ManagedObject *other : others) {
            if (relationship.deleteRule == DeleteRule::Cascade)
                deleteObject(other);
            else
                other->setToOne(relationship.inverseName, nullptr);
        }
        object->m_toMany[i].clear();
    }
    Q_EMIT objectsDidChange();
}

void ManagedObjectContext::objectDidChange(ManagedObject *object)
{
    m_updatedObjects.append(object);
}

QList<ManagedObject *> ManagedObjectContext::executeFetchRequest(const FetchRequest &request) const
{
    QList<ManagedObject *> result;
    const auto it = m_registered.constFind(request.entityName);
    if (it == m_registered.constEnd())
        return result;
    result.reserve(it->size());
    for (ManagedObject *object : *it) {
        if (!object->m_deleted && (!request.predicate || request.predicate(*object)))
            result.append(object);
    }
    if (!request.sortDescriptors.isEmpty()) {
        // Absent values sort first, as they do in the store's own ordering.
        std::stable_sort(result.begin(), result.end(), [&](const ManagedObject *a, const ManagedObject *b) {
            for (const SortDescriptor &sort : request.sortDescriptors) {
                const QVariant va = a->valueForKeyPath(sort.keyPath);
                const QVariant vb = b->valueForKeyPath(sort.keyPath);
                int c = 0;
                if (!va.isValid() || !vb.isValid()) {
                    c = int(va.isValid()) - int(vb.isValid());
                } else if (va.metaType() == QMetaType::fromType<QString>()) {
                    c = QString::localeAwareCompare(va.toString(), vb.toString());
                } else {
                    const QPartialOrdering order = QVariant::compare(va, vb);
                    c = order == QPartialOrdering::Less ? -1 : (order == QPartialOrdering::Greater ? 1 : 0);
                }
                if (c != 0)
                    return sort.ascending ? c < 0 : c > 0;
            }
            return false;
        });
    }
    return result;
}

bool ManagedObjectContext::hasChanges() const
{
    return !m_insertedObjects.isEmpty() || !m_updatedObjects.isEmpty() || !m_deletedObjects.isEmpty();
}

bool ManagedObjectContext::save(QString *error)
{
    if (!hasChanges())
        return true;
    if (m_coordinator) {
        try {
            m_coordinator->save(m_insertedObjects, m_updatedObjects, m_deletedObjects);
        } catch (const StoreError &e) {
            if (error)
                *error = e.message();
            return false;
        }
    }
    for (ManagedObject *object : std::as_const(m_insertedObjects))
        object->m_inserted = false;
    for (ManagedObject *object : std::as_const(m_updatedObjects))
        object->m_updated = false;
    m_insertedObjects.clear();
    m_updatedObjects.clear();
    m_deletedObjects.clear();
    if (m_hasDeletedRegistrations) {
        for (QList<ManagedObject *> &objects : m_registered)
            objects.removeIf([](const ManagedObject *object) { return object->m_deleted; });
        m_hasDeletedRegistrations = false;
    }
    Q_EMIT didSave();
    return true;
}

std::optional<AttributeValue> ManagedObjectContext::fetchBlob(const ManagedObject *object, int slot) const
{
    if (!m_coordinator)
        return AttributeValue();
    return m_coordinator->fetchBlob(object->entity(), object->primaryKey(), slot);
}
