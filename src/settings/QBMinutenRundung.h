#pragma once

#include <QDateTime>

// Rounding of the begin and end times of time records to a grid of minutes. Reached as
// QBAdditions::… by callers.
//
// The rounding mode says which way each end goes:
//   0       no rounding
//   1       begin up,   end up
//   2       begin down, end down
//   3       begin down; the duration up to the grid (at least one interval)
//   4       begin down; the duration down to the grid (at least one interval)
//   5       begin up,   end down
//   6       begin down, end up
//   7       both to the nearer grid minute (halfway goes up)
// The increment (1..10) selects the grid interval; any other increment means no rounding.
// Only the minute moves; the seconds of the wall clock stay as they are, and a minute of 60
// or more carries into the next hour.
class QBMinutenRundung
{
public:
    QBMinutenRundung() = delete;

    // Increment 1..10 → 5, 10, 15, 20, 30, 40, 45, 60, 75, 90 minutes; anything else → 0.
    static int retrieveRundungsIntervallForIncrement(int increment);

    // The begin time on the grid; the date itself for mode 0, an unknown mode or no interval.
    static QDateTime roundBeginDateWithRoundingMode(const QDateTime &date, int mode, int increment);
    // The end time on the grid. Modes 3 and 4 round the duration from `begin` instead and add
    // it to the begin time as rounded for the same mode.
    static QDateTime roundEndDateWithBeginDate(const QDateTime &end, const QDateTime &begin, int mode,
                                               int increment);
};
