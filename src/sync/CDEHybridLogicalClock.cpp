#include "CDEHybridLogicalClock.h"

#include "CDESyncLog.h"

#include <QDateTime>

#include <algorithm>

CDEHybridLogicalClock::CDEHybridLogicalClock(CDEClockValue last, WallClock wallClock)
    : m_last(last), m_wallClock(std::move(wallClock))
{
}

qint64 CDEHybridLogicalClock::now() const
{
    return m_wallClock ? m_wallClock() : QDateTime::currentMSecsSinceEpoch();
}

CDEClockValue CDEHybridLogicalClock::tick()
{
    const qint64 jetzt = now();
    if (jetzt > m_last.milliseconds)
        m_last = {jetzt, 0};
    else
        ++m_last.counter;
    return m_last;
}

bool CDEHybridLogicalClock::receive(const CDEClockValue &remote)
{
    const qint64 jetzt = now();
    if (remote.milliseconds > jetzt + kLongestLeadMs) {
        CDE_LOG(QStringLiteral("Held back a clock value %1 ms ahead of this machine's clock").arg(remote.milliseconds - jetzt));
        return false;
    }
    const qint64 neu = std::max({m_last.milliseconds, remote.milliseconds, jetzt});
    quint32 zaehler = 0;
    if (neu == m_last.milliseconds && neu == remote.milliseconds)
        zaehler = std::max(m_last.counter, remote.counter) + 1;
    else if (neu == m_last.milliseconds)
        zaehler = m_last.counter + 1;
    else if (neu == remote.milliseconds)
        zaehler = remote.counter + 1;
    m_last = {neu, zaehler};
    return true;
}
