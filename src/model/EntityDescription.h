#pragma once

#include "AttributeValue.h"

#include <QHash>
#include <QMetaObject>
#include <QString>
#include <QStringList>

#include <vector>

struct AttributeDescription {
    QString name;
    AttributeKind kind;
    int propertyIndex;     // index in the entity class's meta-object
    AttributeValue defaultValue; // what a new object and a migrated row start with
};

enum class DeleteRule {
    Nullify, // the objects on the other side stay and lose the reference
    Cascade, // the objects on the other side are deleted too
};

struct RelationshipDescription {
    QString name;
    QString destinationEntity;
    QString inverseName;
    bool toMany = false;
    DeleteRule deleteRule = DeleteRule::Nullify;
};

class ManagedObject;
class ManagedObjectContext;

// One entity of the store: its stored attributes, taken in declaration order from the stored
// properties of its class, and its relationships. The class's Q_PROPERTY list is the one place
// where attributes are declared; the store's columns follow from it.
class EntityDescription
{
public:
    using Factory = ManagedObject *(*)(const EntityDescription &, ManagedObjectContext *);

    EntityDescription(const QMetaObject &metaObject, Factory factory, std::vector<RelationshipDescription> relationships,
                      const QHash<QString, AttributeValue> &defaults,
                      const QHash<QString, QStringList> &keysAffectingKey);

    const QString &name() const { return m_name; }
    const QMetaObject &metaObject() const { return *m_metaObject; }
    const std::vector<AttributeDescription> &attributes() const { return m_attributes; }
    const std::vector<RelationshipDescription> &relationships() const { return m_relationships; }

    int attributeSlot(const QString &name) const;    // -1 when unknown
    int relationshipIndex(const QString &name) const; // -1 when unknown
    // Keys whose observers must hear about a change of `key` (declared dependencies).
    QStringList keysAffectedBy(const QString &key) const { return m_affected.value(key); }

    ManagedObject *create(ManagedObjectContext *context) const { return m_factory(*this, context); }

private:
    QString m_name;
    const QMetaObject *m_metaObject;
    Factory m_factory;
    std::vector<AttributeDescription> m_attributes;
    std::vector<RelationshipDescription> m_relationships;
    QHash<QString, int> m_slots;
    QHash<QString, QStringList> m_affected; // changed key -> dependent keys
};
