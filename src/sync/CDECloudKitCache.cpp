#include "CDECloudKitCache.h"

#include "CDESyncLog.h"
#include "RecordFields.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::Literals::StringLiterals;

namespace {

// The file begins with these bytes and a format number, so that anything else is noticed.
constexpr quint32 kMagie = 0x56434b43; // "VCKC"
constexpr quint32 kFormat = 2;

} // namespace

CDECloudKitCache::CDECloudKitCache(QString file, CDECloudKitSchema schema) : m_file(std::move(file)), m_schema(std::move(schema)) {}

void CDECloudKitCache::clear()
{
    m_records.clear();
    m_contents.clear();
    m_token.reset();
}

void CDECloudKitCache::beginEmpty() { clear(); }

CDECloudItem CDECloudKitCache::item(const Record &node, const QString &fullPath) const
{
    const QString unten = m_schema.pathBelowRoot(fullPath);
    return {fullPath.section(u'/', -1), unten, node.number(u"isDirectory"_s).value_or(0) != 0, node.number(u"fileSize"_s).value_or(0)};
}

void CDECloudKitCache::apply(const RecordZoneChanges &changes)
{
    for (const Record &node : changes.changed) {
        if (node.type() != m_schema.nodeType() || !m_schema.fullPathFromRecordName(node.name()))
            continue;
        const std::optional<QString> pfad = node.text(u"path"_s);
        if (!pfad) {
            CDE_LOG(u"Got a record with no path: %1"_s.arg(node.name()));
            continue;
        }
        m_records.insert(*pfad, node);
        const CDECloudItem neu = item(node, *pfad);
        if (neu.isDirectory && !m_contents.contains(*pfad))
            m_contents.insert(*pfad, {});
        if (const auto eltern = CDECloudKitSchema::parentPath(*pfad))
            m_contents[*eltern].insert(*pfad, neu);
    }
    for (const QString &name : changes.deleted) {
        const std::optional<QString> pfad = m_schema.fullPathFromRecordName(name);
        if (!pfad)
            continue;
        m_records.remove(*pfad);
        if (const auto eltern = CDECloudKitSchema::parentPath(*pfad); eltern && m_contents.contains(*eltern))
            m_contents[*eltern].remove(*pfad);
    }
}

std::optional<Record> CDECloudKitCache::record(const QString &fullPath) const
{
    const auto it = m_records.constFind(fullPath);
    return it == m_records.cend() ? std::nullopt : std::optional(*it);
}

std::optional<QList<CDECloudItem>> CDECloudKitCache::contents(const QString &directoryFullPath) const
{
    const auto it = m_contents.constFind(directoryFullPath);
    return it == m_contents.cend() ? std::nullopt : std::optional(it->values());
}

bool CDECloudKitCache::write() const
{
    if (!m_token)
        return false;
    QDir().mkpath(QFileInfo(m_file).path());
    QSaveFile datei(m_file);
    if (!datei.open(QIODevice::WriteOnly))
        return false;
    QDataStream aus(&datei);
    aus << kMagie << kFormat << m_token->toBytes() << qint64(m_records.size());
    for (auto it = m_records.cbegin(); it != m_records.cend(); ++it)
        aus << it.key() << it->type() << it->name() << it->changeTag() << RecordFields::toJson(*it);
    aus << qint64(m_contents.size());
    for (auto it = m_contents.cbegin(); it != m_contents.cend(); ++it) {
        aus << it.key() << qint64(it->size());
        for (auto kind = it->cbegin(); kind != it->cend(); ++kind)
            aus << kind.key() << kind->name << kind->path << kind->isDirectory << kind->size;
    }
    return aus.status() == QDataStream::Ok && datei.commit();
}

void CDECloudKitCache::prepare()
{
    clear();
    QFile datei(m_file);
    if (!datei.exists())
        return;
    const auto verwerfen = [&] {
        CDE_LOG(u"Failed to read in cached data. Resetting cache."_s);
        clear();
        QFile::remove(m_file);
    };
    if (!datei.open(QIODevice::ReadOnly))
        return verwerfen();
    QDataStream ein(&datei);
    quint32 magie = 0, format = 0;
    QByteArray token;
    qint64 anzahl = 0;
    ein >> magie >> format >> token >> anzahl;
    const std::optional<RecordChangeToken> gelesen = RecordChangeToken::fromBytes(token);
    if (magie != kMagie || format != kFormat || !gelesen || anzahl < 0)
        return verwerfen();
    for (qint64 i = 0; i < anzahl && ein.status() == QDataStream::Ok; ++i) {
        QString pfad, typ, name, tag;
        QByteArray felder;
        ein >> pfad >> typ >> name >> tag >> felder;
        Record record(typ, name);
        record.setChangeTag(tag);
        if (!RecordFields::addFromJson(record, felder, {}))
            return verwerfen();
        m_records.insert(pfad, record);
    }
    ein >> anzahl;
    for (qint64 i = 0; i < anzahl && ein.status() == QDataStream::Ok; ++i) {
        QString ordner;
        qint64 kinder = 0;
        ein >> ordner >> kinder;
        QMap<QString, CDECloudItem> &inhalt = m_contents[ordner];
        for (qint64 k = 0; k < kinder && ein.status() == QDataStream::Ok; ++k) {
            QString schluessel;
            CDECloudItem eintrag;
            ein >> schluessel >> eintrag.name >> eintrag.path >> eintrag.isDirectory >> eintrag.size;
            inhalt.insert(schluessel, eintrag);
        }
    }
    if (ein.status() != QDataStream::Ok || !ein.atEnd())
        return verwerfen();
    m_token = gelesen;
}
