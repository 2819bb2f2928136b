#pragma once

#include "Record.h"

#include <optional>

// The records of the file tree in one schema version. Version 2: one node record per directory or
// file, named "CDEFileSystemNode_" + full path, holding a file's bytes. Version 1: a "CDEItem" node
// named by the full path, and the bytes in a second "CDEDataFile" record named "DataFile_" + path.
class CDECloudKitSchema
{
public:
    CDECloudKitSchema(int version, QString rootDirectory);

    // The zone of a schema version; the program's own reverse domain is the prefix.
    static QString recordZoneName(int schemaVersion);

    int version() const { return m_version; }
    bool isValid() const { return m_version == 1 || m_version == 2; }
    const QString &rootDirectory() const { return m_root; }
    QString nodeType() const;

    QString fullPathForPath(const QString &path) const;
    QString recordNameForFullPath(const QString &fullPath) const;
    QString recordNameForPath(const QString &path) const { return recordNameForFullPath(fullPathForPath(path)); }
    // Nothing for a record name without this schema's prefix.
    std::optional<QString> fullPathFromRecordName(const QString &recordName) const;
    // The record holding a file's bytes: the node itself, or in version 1 its data record.
    QString dataRecordNameForFullPath(const QString &fullPath) const;
    // Directory items carry the path below the root directory.
    QString pathBelowRoot(const QString &fullPath) const;
    static std::optional<QString> parentPath(const QString &fullPath);

    Record createRootRecord() const;
    Record directoryRecord(const QString &fullPath) const;
    // The node, and in version 1 the data record after it.
    QList<Record> fileRecords(const QString &fullPath, const QByteArray &bytes) const;

private:
    Record node(const QString &fullPath, bool directory) const;

    int m_version;
    QString m_root;
};
