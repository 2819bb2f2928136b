#include "RecordPushListener.h"

#include "PostgresConnection.h"

#include <libpq-fe.h>

#include <algorithm>
#include <poll.h>

RecordPushListener::RecordPushListener(QByteArray uri, QObject *parent) : QObject(parent), m_uri(std::move(uri)) {}

RecordPushListener::~RecordPushListener() { stop(); }

void RecordPushListener::start()
{
    if (m_thread.joinable())
        return;
    m_stop = false;
    m_thread = std::thread([this] { laufe(); });
}

void RecordPushListener::stop()
{
    {
        const std::lock_guard sperre(m_mutex);
        m_stop = true;
    }
    m_wecker.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

bool RecordPushListener::warte(int ms)
{
    std::unique_lock sperre(m_mutex);
    return !m_wecker.wait_for(sperre, std::chrono::milliseconds(ms), [this] { return m_stop; });
}

void RecordPushListener::laufe()
{
    int pause = 250;
    while (warte(0)) {
        PostgresConnection verbindung(m_uri);
        QString grund;
        try {
            if (!verbindung.connect(&grund))
                throw PostgresConnection::Failure(grund, "08001", true);
            const QString kanal = verbindung.exec("SELECT 'velmora_' || md5(current_user)").text(0, 0);
            verbindung.exec(QByteArray("LISTEN " + kanal.toUtf8()).constData());
            pause = 250;
            Q_EMIT connected();
            // Waits on the socket a second at a time, so that stop() is never kept waiting long.
            while (warte(0)) {
                pollfd fd{PQsocket(verbindung.handle()), POLLIN, 0};
                if (::poll(&fd, 1, 1000) < 0 && errno != EINTR)
                    throw PostgresConnection::Failure(QStringLiteral("poll failed"), "08006", true);
                if (!PQconsumeInput(verbindung.handle()) || PQstatus(verbindung.handle()) != CONNECTION_OK)
                    throw PostgresConnection::Failure(QString::fromUtf8(PQerrorMessage(verbindung.handle())).trimmed(), "08006", true);
                while (PGnotify *nachricht = PQnotifies(verbindung.handle())) {
                    const QString text = QString::fromUtf8(nachricht->extra);
                    PQfreemem(nachricht);
                    Q_EMIT notified(text.section(u' ', 0, -2), text.section(u' ', -1).toLongLong());
                }
            }
        } catch (const PostgresConnection::Failure &fehler) {
            Q_EMIT connectionLost(QString::fromUtf8(fehler.what()));
            warte(pause);
            pause = std::min(pause * 2, 30000);
        }
    }
}
