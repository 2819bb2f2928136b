#pragma once

#include <QObject>
#include <QString>

#include <condition_variable>
#include <mutex>
#include <thread>

// Push for the user's machines: a connection of its own to the server (a direct one; poolers in
// transaction mode drop LISTEN) that listens on the user's channel and says when another machine
// created a record a subscription asks for. The server sends only at commit and only to connected
// listeners, so after every (re)connection `connected` asks the client to catch up through the
// change feed. A lost connection is tried again after 0.25 s, doubling up to 30 s: never a busy
// loop, and back within a second of a restarted server.
class RecordPushListener : public QObject
{
    Q_OBJECT

public:
    explicit RecordPushListener(QByteArray uri, QObject *parent = nullptr);
    ~RecordPushListener() override;

    void start();
    void stop();

Q_SIGNALS:
    // From the listening thread; receivers in other threads get them queued.
    void connected();
    void notified(const QString &zoneName, qint64 counter);
    void connectionLost(const QString &reason);

private:
    void laufe();
    // Waits `ms` unless stopped meanwhile; whether to go on.
    bool warte(int ms);

    QByteArray m_uri;
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_wecker;
    bool m_stop = false;
};
