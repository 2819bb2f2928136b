#include "CDECloudKitSchema.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kPrefix2 = u"CDEFileSystemNode_"_s;
const QString kDatenPrefix = u"DataFile_"_s;

} // namespace

CDECloudKitSchema::CDECloudKitSchema(int version, QString rootDirectory)
    : m_version(version), m_root(rootDirectory.isEmpty() ? u"/"_s : std::move(rootDirectory))
{
}

QString CDECloudKitSchema::recordZoneName(int schemaVersion)
{
    if (schemaVersion == 1 || schemaVersion == 2)
        return u"com.velmora.rechnungen.sync.zone.schema%1"_s.arg(schemaVersion);
    return u"_defaultZone"_s;
}

QString CDECloudKitSchema::nodeType() const { return m_version == 1 ? u"CDEItem"_s : u"CDEFileSystemNode"_s; }

QString CDECloudKitSchema::fullPathForPath(const QString &path) const
{
    const QString ohneSchraegstrich = path.startsWith(u'/') ? path.mid(1) : path;
    if (ohneSchraegstrich.isEmpty())
        return m_root;
    return m_root.endsWith(u'/') ? QString(m_root + ohneSchraegstrich) : QString(m_root + u'/' + ohneSchraegstrich);
}

QString CDECloudKitSchema::recordNameForFullPath(const QString &fullPath) const
{
    return m_version == 1 ? fullPath : kPrefix2 + fullPath;
}

std::optional<QString> CDECloudKitSchema::fullPathFromRecordName(const QString &recordName) const
{
    if (m_version == 1)
        return recordName.startsWith(kDatenPrefix) ? std::nullopt : std::optional(recordName);
    return recordName.startsWith(kPrefix2) ? std::optional(recordName.mid(kPrefix2.size())) : std::nullopt;
}

QString CDECloudKitSchema::dataRecordNameForFullPath(const QString &fullPath) const
{
    return m_version == 1 ? recordNameForFullPath(kDatenPrefix + fullPath) : recordNameForFullPath(fullPath);
}

QString CDECloudKitSchema::pathBelowRoot(const QString &fullPath) const
{
    return fullPath.startsWith(m_root) ? fullPath.mid(m_root.size()) : fullPath;
}

std::optional<QString> CDECloudKitSchema::parentPath(const QString &fullPath)
{
    const qsizetype schnitt = fullPath.lastIndexOf(u'/');
    if (fullPath.size() < 2 || schnitt < 0)
        return std::nullopt;
    return schnitt == 0 ? u"/"_s : fullPath.left(schnitt);
}

Record CDECloudKitSchema::node(const QString &fullPath, bool directory) const
{
    Record record(nodeType(), recordNameForFullPath(fullPath));
    record.set(u"isDirectory"_s, qint64(directory));
    record.set(u"path"_s, fullPath);
    if (const auto eltern = parentPath(fullPath); eltern && fullPath != m_root)
        record.set(u"directory"_s, RecordReference{recordNameForFullPath(*eltern)});
    return record;
}

Record CDECloudKitSchema::createRootRecord() const { return node(m_root, true); }

Record CDECloudKitSchema::directoryRecord(const QString &fullPath) const { return node(fullPath, true); }

QList<Record> CDECloudKitSchema::fileRecords(const QString &fullPath, const QByteArray &bytes) const
{
    Record datei = node(fullPath, false);
    datei.set(u"fileSize"_s, qint64(bytes.size()));
    if (m_version == 2) {
        datei.set(u"data"_s, RecordAsset{bytes});
        return {datei};
    }
    Record daten(u"CDEDataFile"_s, dataRecordNameForFullPath(fullPath));
    daten.set(u"file"_s, RecordReference{datei.name()});
    daten.set(u"data"_s, RecordAsset{bytes});
    return {datei, daten};
}
