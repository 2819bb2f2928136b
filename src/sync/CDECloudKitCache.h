#pragma once

#include "CDECloudItem.h"
#include "CDECloudKitSchema.h"
#include "RecordChangeToken.h"
#include "RecordDatabase.h"

#include <QMap>

// The local picture of the file tree: the last known node of every full path, the items of every
// directory, and the change-feed position up to which both are complete. The three parts exist
// together or not at all; they are kept in a file between runs.
class CDECloudKitCache
{
public:
    CDECloudKitCache(QString file, CDECloudKitSchema schema);

    // With all three parts: lookups may use it.
    bool isPresent() const { return m_token.has_value(); }
    const std::optional<RecordChangeToken> &serverChangeToken() const { return m_token; }
    void clear();
    // Priming from the start: empty maps, no token yet.
    void beginEmpty();

    // Reads the file; one that cannot be read is logged and deleted, one without all three parts dropped.
    void prepare();
    bool write() const;

    // A page of the change feed; the token is set by the caller once the page is complete.
    void apply(const RecordZoneChanges &changes);
    void setServerChangeToken(const RecordChangeToken &token) { m_token = token; }

    std::optional<Record> record(const QString &fullPath) const;
    std::optional<QList<CDECloudItem>> contents(const QString &directoryFullPath) const;

private:
    CDECloudItem item(const Record &node, const QString &fullPath) const;

    QString m_file;
    CDECloudKitSchema m_schema;
    QMap<QString, Record> m_records;
    QMap<QString, QMap<QString, CDECloudItem>> m_contents;
    std::optional<RecordChangeToken> m_token;
};
