#pragma once

#include <QDateTime>

// The clock behind every "now" of the document states: the due test, the reminder time.
// It reads the system clock; a test may stop it at a fixed moment so that "due yesterday at
// 18:00" or "asked at 09:30" mean the same on every run, whatever the hour the suite runs at.
// Set and read on the main thread only, like the rest of the model.
class FKRUhr
{
public:
    FKRUhr() = delete;

    // The current moment, or the fixed moment while one is set.
    static QDateTime jetzt();

    // Stops the clock at `moment`; an invalid date lets it run again.
    static void halteAn(const QDateTime &moment);
    static void laufeWeiter() { halteAn(QDateTime()); }
};
