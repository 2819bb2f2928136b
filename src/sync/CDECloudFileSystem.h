#pragma once

#include "CDECloudItem.h"
#include "CDEOperationQueue.h"
#include "RecordError.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <memory>
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

    explicit CDECloudFileSystem(QObject *parent = nullptr) : QObject(parent) {}

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

protected:
    // Runs `work` on the file system's own queue, one operation at a time in the order given, then
    // `deliver` on this object's thread (not at all when the object is gone by then).
    template<class Result>
    void enqueue(std::function<Result()> work, std::function<void(Result)> deliver)
    {
        const QPointer<CDECloudFileSystem> selbst(this);
        m_queue->add([this, selbst, work = std::move(work), deliver = std::move(deliver)] {
            Result ergebnis = work();
            QMetaObject::invokeMethod(this, [selbst, deliver, ergebnis] {
                if (selbst && deliver)
                    deliver(ergebnis);
            }, Qt::QueuedConnection);
        });
    }
    // An operation that completes with an error or none: on the queue, what every operation needs
    // first (ready), then `work`; an error is given to the caller as forCaller makes it.
    void run(std::function<std::optional<RecordError>()> work, Completion completion)
    {
        enqueue<std::optional<RecordError>>([this, work = std::move(work)]() -> std::optional<RecordError> {
            std::optional<RecordError> fehler = ready();
            if (!fehler)
                fehler = work();
            return fehler ? std::optional(forCaller(*fehler)) : std::nullopt;
        }, std::move(completion));
    }
    // Runs on the queue before each operation: the server's set-up, a reachable folder.
    virtual std::optional<RecordError> ready() = 0;
    virtual RecordError forCaller(const RecordError &error) const { return error; }
    // Lets the running operation finish and drops the others. A subclass calls it first in its
    // destructor, before the members its operations use are gone.
    void stopOperations() { m_queue.reset(); }

private:
    std::unique_ptr<CDEOperationQueue> m_queue = std::make_unique<CDEOperationQueue>();
};
