#pragma once

#include "CDEClockValue.h"

#include <functional>

// The clock that stamps this machine's changes: never behind the wall clock, never behind any
// value it stamped or adopted, and strictly increasing. A value from another machine is adopted
// unless it is more than a day ahead of this machine's wall clock: such a value (a machine with a
// wrong date) is held back and logged, so that one machine's clock cannot win every conflict for
// ever.
class CDEHybridLogicalClock
{
public:
    static constexpr qint64 kLongestLeadMs = 24 * 60 * 60 * 1000;
    using WallClock = std::function<qint64()>; // milliseconds since 1970

    explicit CDEHybridLogicalClock(CDEClockValue last = {}, WallClock wallClock = {});

    // The value of a change made now.
    CDEClockValue tick();
    // Takes in a value seen in another machine's change; false when it was held back.
    bool receive(const CDEClockValue &remote);
    const CDEClockValue &last() const { return m_last; }

private:
    qint64 now() const;

    CDEClockValue m_last;
    WallClock m_wallClock;
};
