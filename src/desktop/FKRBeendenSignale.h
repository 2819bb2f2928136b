#pragma once

#include <QObject>

class QSocketNotifier;

// SIGTERM (logout, shutdown, `kill`) and SIGINT (Ctrl+C in a terminal) end the program the way
// the user's quit does, so pending edits are saved and the hand-over socket is removed. The
// signal handler only writes a byte into a pipe; the work happens in the event loop.
class FKRBeendenSignale : public QObject
{
    Q_OBJECT

public:
    explicit FKRBeendenSignale(QObject *parent = nullptr);
    ~FKRBeendenSignale() override;

Q_SIGNALS:
    void beendenVerlangt();

private:
    QSocketNotifier *m_melder = nullptr;
};
