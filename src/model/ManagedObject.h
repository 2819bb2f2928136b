#pragma once

#include "AttributeValue.h"
#include "EntityDescription.h"
#include "ModelMetaTypes.h"

#include <QList>
#include <QObject>
#include <QVariant>

#include <vector>

class ManagedObjectContext;

// Base of the four stored entities. An object keeps nothing but its stored attribute values and
// relationships; everything derived is computed on every read. Attributes are read and written
// by name (bindings of the editor, sort keys of the lists) and every change is announced through
// the property's NOTIFY signal, through the signals of the keys that declare a dependency on it,
// and through valueChanged(key).
class ManagedObject : public QObject
{
    Q_OBJECT

public:
    ~ManagedObject() override;

    // A fresh globally unique text for uniqueIdentifier, different on every call: an object's
    // identity across the user's machines.
    static QString neueKennung();

    const EntityDescription &entity() const { return m_entity; }
    ManagedObjectContext *managedObjectContext() const { return m_context; }

    bool isInserted() const { return m_inserted; }
    bool isDeleted() const { return m_deleted; }
    bool isUpdated() const { return m_updated; }

    // Attributes: the value, or an invalid QVariant when absent. Derived properties: their value.
    // To-one relationships: a QVariant holding ManagedObject*; to-many: QList<ManagedObject*>.
    QVariant value(const QString &key) const;
    // Follows relationships: "empfaenger.firmaUndName". Invalid when a step is absent.
    QVariant valueForKeyPath(const QString &keyPath) const;
    // Writes an attribute by name; an invalid QVariant makes it absent. False for unknown keys
    // and for values of the wrong kind (nothing changes then).
    bool setValue(const QString &key, const QVariant &value);

    // Relationships by name.
    ManagedObject *toOne(const QString &name) const;
    void setToOne(const QString &name, ManagedObject *object);
    QList<ManagedObject *> toMany(const QString &name) const;
    void addToMany(const QString &name, ManagedObject *object);
    void removeFromMany(const QString &name, ManagedObject *object);
    // A to-many relationship of an object built outside the store (a document read from a file)
    // can be absent rather than empty; adding an object makes it present again.
    bool isRelationshipAbsent(const QString &name) const;
    void setRelationshipAbsent(const QString &name);

    // Raw slot access for the store; no notifications, no change tracking.
    const AttributeValue &primitiveValue(int slot) const { return m_values[std::size_t(slot)]; }
    void setPrimitiveValue(int slot, AttributeValue value) { m_values[std::size_t(slot)] = std::move(value); }
    qint64 primaryKey() const { return m_primaryKey; }

Q_SIGNALS:
    void valueChanged(const QString &key);

protected:
    ManagedObject(const EntityDescription &entity, ManagedObjectContext *context);

    // Called once when the object is inserted into a context: a fresh identity.
    virtual void awakeFromInsert();

    int slotOf(const char *attribute) const;

    template<typename T>
    std::optional<T> attribute(int slot) const
    {
        const AttributeValue &v = loadedValue(slot);
        if (const T *p = std::get_if<T>(&v))
            return *p;
        return std::nullopt;
    }
    template<typename T>
    void setAttribute(int slot, const std::optional<T> &value)
    {
        storeValue(slot, value ? AttributeValue(*value) : AttributeValue());
    }

    // Emits the change signals of `key` and of every key declared to depend on it.
    void announceChange(const QString &key);

private:
    friend class ManagedObjectContext;
    friend class PersistentStoreCoordinator;

    const AttributeValue &loadedValue(int slot) const;
    void storeValue(int slot, AttributeValue value);
    void emitNotifySignal(const QString &key);
    void attachInverse(int relationship, ManagedObject *other);
    void detachInverse(int relationship, ManagedObject *other);
    void markUpdated();

    const EntityDescription &m_entity;
    ManagedObjectContext *m_context;
    mutable std::vector<AttributeValue> m_values;
    std::vector<ManagedObject *> m_toOne;             // per relationship (null for to-many)
    std::vector<QList<ManagedObject *>> m_toMany;     // per relationship (empty for to-one)
    std::vector<bool> m_toManyAbsent;                 // per relationship
    qint64 m_primaryKey = 0;
    bool m_inserted = false;
    bool m_deleted = false;
    bool m_updated = false;
};

// Typed accessors of one stored attribute; the Q_PROPERTY of the same name is declared beside it.
#define VELMORA_ATTRIBUTE(Type, getter, setter)                                                          \
    std::optional<Type> getter() const                                                                   \
    {                                                                                                    \
        static const int s = slotOf(#getter);                                                            \
        return attribute<Type>(s);                                                                       \
    }                                                                                                    \
    void setter(const std::optional<Type> &value)                                                        \
    {                                                                                                    \
        static const int s = slotOf(#getter);                                                            \
        setAttribute<Type>(s, value);                                                                    \
    }
