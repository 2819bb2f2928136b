#include "FKRLocalizationHelper.h"
#include "QBAdditions.h"

#include <QLocale>
#include <QTimeZone>
#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <string>

namespace {
using Q = QBAdditions;

// A German desktop in Berlin unless a test says otherwise; both are put back after each test.
class QBAdditionsTest : public ::testing::Test
{
protected:
    void SetUp() override { zone("Europe/Berlin"); deutsch(); }
    void TearDown() override { zone(m_zone.constData()); QLocale::setDefault(m_locale); }
    static void zone(const char *id) { qputenv("TZ", id); tzset(); }
    static void deutsch() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }
    static void amerikanisch() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

private:
    QByteArray m_zone = qgetenv("TZ");
    QLocale m_locale;
};

QDateTime um(const char *isoText) { return QDateTime::fromString(QString::fromLatin1(isoText), Qt::ISODate); }

// Wall-clock time with offset in the zone, so a wrong hour and a wrong offset both show.
std::string iso(const QDateTime &date, const char *zone = "Europe/Berlin")
{
    return date.isValid() ? date.toTimeZone(QTimeZone(zone)).toString(Qt::ISODate).toStdString() : "invalid";
}

std::string s(const QString &text) { return text.toStdString(); }

struct Fall { QDateTime ist; const char *soll; };
void pruefe(std::initializer_list<Fall> faelle)
{
    for (const Fall &fall : faelle)
        EXPECT_EQ(iso(fall.ist), fall.soll) << "case " << (&fall - faelle.begin());
}

TEST_F(QBAdditionsTest, BoundariesOfDaysWeeksMonthsAndYearsWithShifts)
{
    const QDateTime mittag = um("2026-03-14T10:00:00+01:00"), letzterJanuar = um("2026-01-31T15:00:00+01:00");
    const QDateTime fruehling = um("2026-03-29T12:00:00+02:00"), herbst = um("2026-10-25T12:00:00+01:00");
    pruefe({
        // Days of the clock changes (23 and 25 hours) end at their last wall-clock second.
        {Q::endOfTheDay(fruehling), "2026-03-29T23:59:59+02:00"}, {Q::beginOfTheDay(herbst), "2026-10-25T00:00:00+02:00"},
        {Q::beginOfTheNextDay(um("2026-10-25T02:30:00+01:00")), "2026-10-26T00:00:00+01:00"},
        {Q::endOfTheMonthWithMonthShift(letzterJanuar, 1), "2026-02-28T23:59:59+01:00"},
        {Q::endOfTheMonthWithMonthShift(letzterJanuar, 25), "2028-02-29T23:59:59+01:00"},
        // Shifts beyond what the calendar can count give no date rather than a wrapped-around one.
        {Q::endOfTheDay(QDateTime()), "invalid"}, {Q::beginOfTheDayWithDayShift(mittag, INT_MAX), "invalid"},
        // The time is taken as shown on the clock: a summer time lands on a winter day unchanged.
        {Q::dateWithTimeFrom(um("2026-12-24T08:00:00+01:00"), um("2026-07-01T18:45:30+02:00")), "2026-12-24T18:45:30+01:00"},
    });
}

TEST_F(QBAdditionsTest, WeekdayNamesComeFromTheUsersTableOnTheClockOfTheCurrentZone)
{
    FKRLocalizationHelper::installiereHauptTabelle();
    EXPECT_EQ(s(Q::dayNameForDateString(QStringLiteral("16.03.26"))), "Montag");
    zone("America/Los_Angeles");
    EXPECT_EQ(s(Q::localizedDayName(um("2026-03-15T05:00:00+01:00"))), "Samstag");
    amerikanisch();
    FKRLocalizationHelper::installiereHauptTabelle();
    EXPECT_EQ(s(Q::dayNameForDateString(QStringLiteral("3/15/26"))), "Sunday");
}
} // namespace
