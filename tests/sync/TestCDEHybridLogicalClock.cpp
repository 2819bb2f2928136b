// The clock that orders changes across machines: always ahead of what it stamped or adopted,
// never adopting a value more than a day ahead of this machine's own wall clock.
#include "CDEHybridLogicalClock.h"

#include <gtest/gtest.h>

namespace {

constexpr qint64 kTag = CDEHybridLogicalClock::kLongestLeadMs;

TEST(CDEHybridLogicalClock, StampsIncreaseWhateverTheWallClockDoes)
{
    qint64 wand = 1000;
    CDEHybridLogicalClock uhr({}, [&] { return wand; });
    // Wall clock readings one after the other: forward, standing, backward (a corrected clock).
    const struct {
        qint64 wand;
        CDEClockValue erwartet;
    } schritte[] = {{1000, {1000, 0}}, {1000, {1000, 1}}, {900, {1000, 2}}, {1500, {1500, 0}}};
    for (const auto &schritt : schritte) {
        wand = schritt.wand;
        EXPECT_EQ(uhr.tick(), schritt.erwartet) << schritt.wand;
    }
    // After a restart with the kept value, a wall clock set back changes nothing.
    wand = 10;
    EXPECT_EQ(CDEHybridLogicalClock(uhr.last(), [&] { return wand; }).tick(), (CDEClockValue{1500, 1}));
}

TEST(CDEHybridLogicalClock, AdoptsOtherMachinesValuesButHoldsBackOnesADayAhead)
{
    qint64 wand = 5000;
    const struct {
        CDEClockValue eigen, fremd;
        bool uebernommen;
        CDEClockValue danach; // the value after receiving
    } faelle[] = {
        {{5000, 3}, {4000, 9}, true, {5000, 4}},            // behind: only the counter moves
        {{5000, 3}, {5000, 7}, true, {5000, 8}},            // the same millisecond: past both counters
        {{5000, 3}, {8000, 2}, true, {8000, 3}},            // ahead, but less than a day
        {{100, 0}, {200, 0}, true, {5000, 0}},              // both behind the wall clock
        {{5000, 3}, {5000 + kTag, 0}, true, {5000 + kTag, 1}},
        {{5000, 3}, {5001 + kTag, 0}, false, {5000, 3}},    // a wrong date on the other machine
    };
    for (const auto &fall : faelle) {
        CDEHybridLogicalClock uhr(fall.eigen, [&] { return wand; });
        EXPECT_EQ(uhr.receive(fall.fremd), fall.uebernommen) << fall.fremd.milliseconds;
        EXPECT_EQ(uhr.last(), fall.danach) << fall.fremd.milliseconds;
        EXPECT_GT(uhr.tick(), fall.uebernommen ? fall.fremd : fall.eigen);
    }
}

} // namespace
