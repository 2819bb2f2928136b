#pragma once

#include "CDECloudItem.h"
#include "RecordError.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <optional>

// What the sync engine needs of the place its files go: a small file system of directories and
// immutable files, shared by the user's machines. Every operation is asynchronous and completes on
// the thread that made the file system. Two kinds exist: the record database on a server
// (CDECloudKitFileSystem) and a folder that another program keeps in step between the machines.
class CDECloudFileSystem : public QObject
{
    Q_OBJECT

public:
    using Completion = std::function<void(std::optional<RecordError>)>;

    using QObject::QObject;

    virtual bool isConnected() const = 0;
    virtual void connect(Completion completion) = 0;
    virtual void fetchUserIdentityWithCompletion(std::function<void(QString, std::optional<RecordError>)> completion) = 0;
    virtual void primeForActivityWithCompletion(Completion completion) = 0;

    virtual void fileExistsAtPath(const QString &path,
                                  std::function<void(bool exists, bool isDirectory, std::optional<RecordError>)> completion) = 0;
    virtual void contentsOfDirectoryAtPath(const QString &path,
                                           std::function<void(QList<CDECloudItem>, std::optional<RecordError>)> completion) = 0;
    virtual void createDirectoryAtPath(const QString &path, Completion completion) = 0;
    virtual void uploadLocalFiles(const QStringList &localFiles, const QStringList &paths, Completion completion) = 0;
    virtual void downloadFromPaths(const QStringList &paths, const QStringList &localFiles, Completion completion) = 0;
    virtual void removeItemsAtPaths(const QStringList &paths, Completion completion) = 0;
    virtual void removeAllItemsWithCompletion(Completion completion) = 0;
    virtual void subscribeForPushNotificationsWithCompletion(Completion completion) = 0;

Q_SIGNALS:
    // Another machine may have added files: time for a sync step.
    void pushNotificationReceived();
};
