#include "ManagedObject.h"

#include "ManagedObjectContext.h"

#include <QMetaProperty>
#include <QUuid>

#include <stdexcept>

ManagedObject::ManagedObject(const EntityDescription &entity, ManagedObjectContext *context)
    : m_entity(entity)
    , m_context(context)
    , m_toOne(entity.relationships().size(), nullptr)
    , m_toMany(entity.relationships().size())
    , m_toManyAbsent(entity.relationships().size(), false)
{
    m_values.reserve(entity.attributes().size());
    for (const AttributeDescription &attribute : entity.attributes())
        m_values.push_back(attribute.defaultValue);
}

ManagedObject::~ManagedObject() = default;

void ManagedObject::awakeFromInsert()
{
    const int slot = m_entity.attributeSlot(QStringLiteral("uniqueIdentifier"));
    if (slot >= 0)
        m_values[std::size_t(slot)] = neueKennung();
}

QString ManagedObject::neueKennung()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

int ManagedObject::slotOf(const char *attribute) const
{
    const int slot = m_entity.attributeSlot(QString::fromLatin1(attribute));
    if (slot < 0)
        throw std::logic_error(std::string("no stored attribute ") + attribute);
    return slot;
}

const AttributeValue &ManagedObject::loadedValue(int slot) const
{
    AttributeValue &v = m_values[std::size_t(slot)];
    if (std::holds_alternative<BlobFault>(v)) {
        // An unreadable value stays unread, so that a later save cannot overwrite the stored
        // bytes with nothing.
        const auto fetched = m_context ? m_context->fetchBlob(this, slot) : std::optional<AttributeValue>();
        if (!fetched) {
            static const AttributeValue absent;
            return absent;
        }
        v = *fetched;
    }
    return v;
}

void ManagedObject::storeValue(int slot, AttributeValue value)
{
    // NaN is not an amount; a value that is not a number is no value at all.
    if (const Decimal *d = std::get_if<Decimal>(&value); d && d->isNaN())
        value = std::monostate();
    AttributeValue &current = m_values[std::size_t(slot)];
    if (!std::holds_alternative<BlobFault>(current) && current == value)
        return;
    current = std::move(value);
    markUpdated();
    announceChange(m_entity.attributes()[std::size_t(slot)].name);
}

void ManagedObject::markUpdated()
{
    if (m_inserted || m_deleted || m_updated)
        return;
    m_updated = true;
    if (m_context)
        m_context->objectDidChange(this);
}

void ManagedObject::emitNotifySignal(const QString &key)
{
    const QMetaObject *meta = metaObject();
    const int index = meta->indexOfProperty(key.toLatin1().constData());
    if (index < 0)
        return;
    const QMetaProperty property = meta->property(index);
    if (property.hasNotifySignal())
        property.notifySignal().invoke(this, Qt::DirectConnection);
}

void ManagedObject::announceChange(const QString &key)
{
    const QStringList dependents = m_entity.keysAffectedBy(key);
    emitNotifySignal(key);
    for (const QString &dependent : dependents)
        emitNotifySignal(dependent);
    Q_EMIT valueChanged(key);
    for (const QString &dependent : dependents)
        Q_EMIT valueChanged(dependent);
}

namespace {
QVariant toVariant(const AttributeValue &v)
{
    return std::visit(
        [](const auto &x) -> QVariant {
            using T = std::decay_t<decltype(x)>;
            if constexpr (std::is_same_v<T, std::monostate> || std::is_same_v<T, BlobFault>)
                return QVariant();
            else
                return QVariant::fromValue(x);
        },
        v);
}

std::optional<AttributeValue> fromVariant(const QVariant &v, AttributeKind kind)
{
    if (!v.isValid())
        return AttributeValue();
    switch (kind) {
    case AttributeKind::Flag:
        if (v.canConvert<bool>())
            return AttributeValue(v.toBool());
        break;
    case AttributeKind::Integer: {
        bool ok = false;
        const qint64 n = v.toLongLong(&ok);
        if (ok)
            return AttributeValue(n);
        break;
    }
    case AttributeKind::DecimalNum:
        if (v.metaType() == QMetaType::fromType<Decimal>())
            return AttributeValue(v.value<Decimal>());
        if (v.metaType() == QMetaType::fromType<QString>()) {
            if (auto d = Decimal::parse(v.toString().toStdString()))
                return AttributeValue(*d);
        } else if (v.metaType() == QMetaType::fromType<int>() || v.metaType() == QMetaType::fromType<qlonglong>()) {
            return AttributeValue(Decimal(std::int64_t(v.toLongLong())));
        }
        break;
    case AttributeKind::Text:
        if (v.metaType() == QMetaType::fromType<QString>())
            return AttributeValue(v.toString());
        break;
    case AttributeKind::Date:
        if (v.metaType() == QMetaType::fromType<QDateTime>() && v.toDateTime().isValid())
            return AttributeValue(v.toDateTime());
        break;
    case AttributeKind::Binary:
        if (v.metaType() == QMetaType::fromType<QByteArray>())
            return AttributeValue(v.toByteArray());
        break;
    }
    return std::nullopt;
}
} // namespace

QVariant ManagedObject::value(const QString &key) const
{
    const int slot = m_entity.attributeSlot(key);
    if (slot >= 0)
        return toVariant(loadedValue(slot));
    const int rel = m_entity.relationshipIndex(key);
    if (rel >= 0) {
        if (m_entity.relationships()[std::size_t(rel)].toMany)
            return QVariant::fromValue(m_toMany[std::size_t(rel)]);
        return QVariant::fromValue(m_toOne[std::size_t(rel)]);
    }
    return property(key.toLatin1().constData());
}

QVariant ManagedObject::valueForKeyPath(const QString &keyPath) const
{
    const ManagedObject *object = this;
    const QStringList steps = keyPath.split(QLatin1Char('.'));
    for (qsizetype i = 0; i + 1 < steps.size(); ++i) {
        object = object->toOne(steps[i]);
        if (!object)
            return QVariant();
    }
    return object->value(steps.last());
}

bool ManagedObject::setValue(const QString &key, const QVariant &value)
{
    const int slot = m_entity.attributeSlot(key);
    if (slot < 0)
        return false;
    const auto converted = fromVariant(value, m_entity.attributes()[std::size_t(slot)].kind);
    if (!converted)
        return false;
    storeValue(slot, *converted);
    return true;
}

ManagedObject *ManagedObject::toOne(const QString &name) const
{
    const int rel = m_entity.relationshipIndex(name);
    if (rel < 0 || m_entity.relationships()[std::size_t(rel)].toMany)
        return nullptr;
    return m_toOne[std::size_t(rel)];
}

QList<ManagedObject *> ManagedObject::toMany(const QString &name) const
{
    const int rel = m_entity.relationshipIndex(name);
    if (rel < 0)
        return {};
    return m_toMany[std::size_t(rel)];
}

void ManagedObject::setToOne(const QString &name, ManagedObject *object)
{
    const int rel = m_entity.relationshipIndex(name);
    if (rel < 0 || m_entity.relationships()[std::size_t(rel)].toMany)
        throw std::logic_error("no to-one relationship " + name.toStdString());
    const RelationshipDescription &description = m_entity.relationships()[std::size_t(rel)];
    // A reference to an object of another kind, another context or one already deleted would
    // be written as a dangling key; it is refused and the relationship stays as it was.
    if (object && (object->entity().name() != description.destinationEntity || object->m_context != m_context
                   || object->m_deleted)) {
        qWarning("Refused to set relationship %s to a foreign or deleted object", qPrintable(name));
        return;
    }
    ManagedObject *old = m_toOne[std::size_t(rel)];
    if (old == object)
        return;
    m_toOne[std::size_t(rel)] = object;
    markUpdated();
    const int inverse = old ? old->m_entity.relationshipIndex(description.inverseName)
                            : (object ? object->m_entity.relationshipIndex(description.inverseName) : -1);
    if (old)
        old->detachInverse(inverse, this);
    if (object)
        object->attachInverse(inverse, this);
    announceChange(name);
}

void ManagedObject::attachInverse(int relationship, ManagedObject *other)
{
    if (relationship < 0)
        return;
    m_toManyAbsent[std::size_t(relationship)] = false;
    QList<ManagedObject *> &list = m_toMany[std::size_t(relationship)];
    if (!list.contains(other))
        list.append(other);
    announceChange(m_entity.relationships()[std::size_t(relationship)].name);
}

void ManagedObject::detachInverse(int relationship, ManagedObject *other)
{
    if (relationship < 0)
        return;
    m_toMany[std::size_t(relationship)].removeOne(other);
    announceChange(m_entity.relationships()[std::size_t(relationship)].name);
}

void ManagedObject::addToMany(const QString &name, ManagedObject *object)
{
    const int rel = m_entity.relationshipIndex(name);
    if (rel < 0 || !m_entity.relationships()[std::size_t(rel)].toMany || !object)
        throw std::logic_error("no to-many relationship " + name.toStdString());
    object->setToOne(m_entity.relationships()[std::size_t(rel)].inverseName, this);
}

void ManagedObject::removeFromMany(const QString &name, ManagedObject *object)
{
    const int rel = m_entity.relationshipIndex(name);
    if (rel < 0 || !m_entity.relationships()[std::size_t(rel)].toMany || !object)
        throw std::logic_error("no to-many relationship " + name.toStdString());
    if (m_toMany[std::size_t(rel)].contains(object))
        object->setToOne(m_entity.relationships()[std::size_t(rel)].inverseName, nullptr);
}

bool ManagedObject::isRelationshipAbsent(const QString &name) const
{
    const int rel = m_entity.relationshipIndex(name);
    return rel >= 0 && m_toManyAbsent[std::size_t(rel)];
}

void ManagedObject::setRelationshipAbsent(const QString &name)
{
    const int rel = m_entity.relationshipIndex(name);
    if (rel < 0 || !m_entity.relationships()[std::size_t(rel)].toMany)
        throw std::logic_error("no to-many relationship " + name.toStdString());
    for (ManagedObject *object : QList<ManagedObject *>(m_toMany[std::size_t(rel)]))
        removeFromMany(name, object);
    m_toManyAbsent[std::size_t(rel)] = true;
}
