#pragma once

#include <QtGlobal>

#include <compare>

// A moment of the hybrid logical clock: wall-clock milliseconds and a counter for events within
// the same millisecond (or while the wall clock lags behind a value seen from another machine).
// Values order events across machines; equal values are told apart by the machine's identity.
struct CDEClockValue {
    qint64 milliseconds = 0;
    quint32 counter = 0;

    auto operator<=>(const CDEClockValue &) const = default;
};
