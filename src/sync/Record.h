#pragma once

#include "RecordValue.h"

#include <QMap>

#include <optional>

// One record of a zone: its type, its name (unique in the zone), its fields, and the change tag
// the server gave its last saved state. A record without a change tag is new: saving it fails with
// "server record changed" when the name is taken; one with a tag replaces the server's only while
// the server still has that state.
class Record
{
public:
    Record() = default;
    Record(QString type, QString name) : m_type(std::move(type)), m_name(std::move(name)) {}

    const QString &type() const { return m_type; }
    const QString &name() const { return m_name; }
    const QString &changeTag() const { return m_changeTag; }
    void setChangeTag(const QString &tag) { m_changeTag = tag; }

    const QMap<QString, RecordValue> &fields() const { return m_fields; }
    void set(const QString &key, RecordValue value) { m_fields.insert(key, std::move(value)); }
    void remove(const QString &key) { m_fields.remove(key); }
    bool has(const QString &key) const { return m_fields.contains(key); }

    std::optional<qint64> number(const QString &key) const { return get<qint64>(key); }
    std::optional<QString> text(const QString &key) const { return get<QString>(key); }
    std::optional<RecordReference> reference(const QString &key) const { return get<RecordReference>(key); }
    std::optional<RecordAsset> asset(const QString &key) const { return get<RecordAsset>(key); }

private:
    template<class T>
    std::optional<T> get(const QString &key) const
    {
        const auto it = m_fields.constFind(key);
        if (it == m_fields.cend() || !std::holds_alternative<T>(*it))
            return std::nullopt;
        return std::get<T>(*it);
    }

    QString m_type;
    QString m_name;
    QString m_changeTag;
    QMap<QString, RecordValue> m_fields;
};
