#pragma once

#include "CDECloudFileSystem.h"
#include "CDECloudKitCache.h"
#include "CDECloudKitSchema.h"
#include "RecordError.h"
#include "RecordZoneID.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

class RecordDatabase;
class RecordPushListener;

// The record database presented as a small file system of directories and files, where the sync
// engine keeps the files it exchanges between the user's machines: every directory and file is
// one record of the user's private zone, a file's bytes travel with its record. A local cache of
// the tree, kept up to date through the zone's change feed, answers existence and listing without
// asking the server.
//
// Every operation is asynchronous: it runs after the set-up on the file system's own queue, one at
// a time, and its completion comes on the thread that made the file system (the main thread).
// The shared-database mode of the cloud service is not offered: the program never uses it.
class CDECloudKitFileSystem : public CDECloudFileSystem
{
    Q_OBJECT

public:

    static constexpr int fileUploadMaximumBatchSize = 30;
    static constexpr int fileDownloadMaximumBatchSize = 30;

    // The private database of `serverUri` (a libpq connection URI; empty: no server configured),
    // root "/", the zone of the schema version. The cache file lies in `cacheDirectory` (the XDG
    // cache folder when empty).
    CDECloudKitFileSystem(const QString &ubiquityContainerIdentifier, int schemaVersion, const QByteArray &serverUri,
                          const QString &cacheDirectory = {}, QObject *parent = nullptr);
    ~CDECloudKitFileSystem() override;

    const QString &ubiquityContainerIdentifier() const { return m_container; }
    int databaseScope() const { return 2; }
    const QString &rootDirectory() const { return m_schema.rootDirectory(); }
    int schemaVersion() const { return m_schema.version(); }
    const RecordZoneID &recordZoneID() const { return m_zone; }
    const QString &cacheFilePath() const { return m_cacheFile; }
    const CDECloudKitSchema &schema() const { return m_schema; }

    bool isConnected() const override { return m_database != nullptr; }
    void connect(Completion completion) override;
    void fetchUserIdentityWithCompletion(std::function<void(QString, std::optional<RecordError>)> completion) override;
    void primeForActivityWithCompletion(Completion completion) override;

    void fileExistsAtPath(const QString &path,
                          std::function<void(bool exists, bool isDirectory, std::optional<RecordError>)> completion) override;
    void contentsOfDirectoryAtPath(const QString &path,
                                   std::function<void(QList<CDECloudItem>, std::optional<RecordError>)> completion) override;
    void createDirectoryAtPath(const QString &path, Completion completion) override;
    void uploadLocalFiles(const QStringList &localFiles, const QStringList &paths, Completion completion) override;
    void downloadFromPaths(const QStringList &paths, const QStringList &localFiles, Completion completion) override;
    void removeItemsAtPaths(const QStringList &paths, Completion completion) override;
    void removeAllItemsWithCompletion(Completion completion) override;
    // Saves the subscription and listens: `pushNotificationReceived` after another machine added a
    // file, and after every (re)connection of the listener, when one may have been missed.
    void subscribeForPushNotificationsWithCompletion(Completion completion) override;

    // Whether every item error of a batch error has `code`.
    static bool partialErrorOnlyIncludesErrorCode(const RecordError &error, int code) { return error.onlyIncludesErrorCode(code); }

private:
    std::optional<RecordError> setUp();
    std::optional<RecordError> ready() override { return setUp(); }
    // Without a reachable server the caller hears "No iCloud connection".
    RecordError forCaller(const RecordError &error) const override;
    std::optional<RecordError> prime();
    void performRepairsIfNecessaryForError(const RecordError &error);
    // The records at the paths and below their directories; an error when they cannot be collected.
    RecordResult<QStringList> recordsForRemoval(const QStringList &fullPaths);

    QString m_container;
    CDECloudKitSchema m_schema;
    RecordZoneID m_zone;
    QByteArray m_uri;
    QString m_cacheFile;
    std::unique_ptr<RecordDatabase> m_database;
    std::unique_ptr<CDECloudKitCache> m_cache;
    std::unique_ptr<RecordPushListener> m_listener;
    bool m_setUp = false;
};
