#include "EntityDescription.h"

#include "ModelMetaTypes.h"

#include <QMetaProperty>

#include <stdexcept>

namespace {
std::optional<AttributeKind> kindOf(QMetaType type)
{
    if (type == QMetaType::fromType<std::optional<bool>>())
        return AttributeKind::Flag;
    if (type == QMetaType::fromType<std::optional<qint64>>())
        return AttributeKind::Integer;
    if (type == QMetaType::fromType<std::optional<Decimal>>())
        return AttributeKind::DecimalNum;
    if (type == QMetaType::fromType<std::optional<QString>>())
        return AttributeKind::Text;
    if (type == QMetaType::fromType<std::optional<QDateTime>>())
        return AttributeKind::Date;
    if (type == QMetaType::fromType<std::optional<QByteArray>>())
        return AttributeKind::Binary;
    return std::nullopt;
}
} // namespace

EntityDescription::EntityDescription(const QMetaObject &metaObject, Factory factory,
                                     std::vector<RelationshipDescription> relationships,
                                     const QHash<QString, AttributeValue> &defaults,
                                     const QHash<QString, QStringList> &keysAffectingKey)
    : m_name(QString::fromLatin1(metaObject.className()))
    , m_metaObject(&metaObject)
    , m_factory(factory)
    , m_relationships(std::move(relationships))
{
    for (int i = metaObject.propertyOffset(); i < metaObject.propertyCount(); ++i) {
        const QMetaProperty property = metaObject.property(i);
        if (!property.isStored())
            continue;
        const auto kind = kindOf(property.metaType());
        if (!kind)
            continue; // relationships and derived values are not columns
        const QString name = QString::fromLatin1(property.name());
        m_slots.insert(name, int(m_attributes.size()));
        m_attributes.push_back({name, *kind, i, defaults.value(name)});
    }
    for (auto it = defaults.begin(); it != defaults.end(); ++it) {
        if (!m_slots.contains(it.key()))
            throw std::logic_error("default for an unknown attribute: " + it.key().toStdString());
    }
    for (auto it = keysAffectingKey.begin(); it != keysAffectingKey.end(); ++it) {
        for (const QString &source : it.value())
            m_affected[source].append(it.key());
    }
}

int EntityDescription::attributeSlot(const QString &name) const
{
    return m_slots.value(name, -1);
}

int EntityDescription::relationshipIndex(const QString &name) const
{
    for (std::size_t i = 0; i < m_relationships.size(); ++i) {
        if (m_relationships[i].name == name)
            return int(i);
    }
    return -1;
}
