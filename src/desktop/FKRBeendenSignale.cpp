#include "FKRBeendenSignale.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {
int g_rohr[2] = {-1, -1};

extern "C" void merkeSignal(int)
{
    const char zeichen = 1;
    // Only async-signal-safe calls here; a full pipe already carries the request.
    [[maybe_unused]] const ssize_t geschrieben = ::write(g_rohr[1], &zeichen, 1);
}
} // namespace

FKRBeendenSignale::FKRBeendenSignale(QObject *parent)
    : QObject(parent)
{
    if (g_rohr[0] >= 0 || ::pipe2(g_rohr, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_melder = new QSocketNotifier(g_rohr[0], QSocketNotifier::Read, this);
    connect(m_melder, &QSocketNotifier::activated, this, [this] {
        char puffer[16];
        while (::read(g_rohr[0], puffer, sizeof puffer) > 0) {
        }
        Q_EMIT beendenVerlangt();
    });
    struct sigaction aktion = {};
    aktion.sa_handler = merkeSignal;
    sigemptyset(&aktion.sa_mask);
    aktion.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &aktion, nullptr);
    sigaction(SIGINT, &aktion, nullptr);
}

FKRBeendenSignale::~FKRBeendenSignale()
{
    if (!m_melder)
        return;
    signal(SIGTERM, SIG_DFL);
    signal(SIGINT, SIG_DFL);
    ::close(g_rohr[0]);
    ::close(g_rohr[1]);
    g_rohr[0] = g_rohr[1] = -1;
}
