#pragma once

#include "CDECloudFileSystem.h"

#include <memory>

class QFileSystemWatcher;

// The cloud file system as a folder on disk that another program (Syncthing, Nextcloud, Dropbox)
// keeps in step between the user's machines. Such programs deliver files late, in pieces and twice,
// and make conflict copies; so files here are immutable and appear only whole (written under a
// temporary name, flushed, renamed), a file that exists is never replaced, conflict copies and
// temporary files of those programs are not listed, and a file missing from a listing is only
// not there yet: nothing here ever takes it for deleted. Changes in the folder are the push.
class CDEFolderFileSystem : public CDECloudFileSystem
{
    Q_OBJECT

public:
    explicit CDEFolderFileSystem(QString rootFolder, QObject *parent = nullptr);
    ~CDEFolderFileSystem() override;

    const QString &rootFolder() const { return m_root; }
    // Whether a file of this name is one of the sharing programs' conflict copies or temporary files.
    static bool isForeignFile(const QString &fileName);

    bool isConnected() const override { return !m_root.isEmpty(); }
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
    void subscribeForPushNotificationsWithCompletion(Completion completion) override;

private:
    std::optional<RecordError> ready() override { return reachable(); }
    std::optional<RecordError> reachable() const;
    QString localPath(const QString &path) const;
    void watchFolders();

    QString m_root;
    std::unique_ptr<QFileSystemWatcher> m_watcher;
};
