#include "FKRLocalizationHelper.h"
#include "QBAdditions.h"
#include "QBBenutzerEinstellungen.h"

#include <QCoreApplication>
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

// Recent locale data separates the time from AM/PM with a narrow no-break space.
#define NNBSP "\u202F"

TEST_F(QBAdditionsTest, BoundariesOfDaysWeeksMonthsAndYearsWithShifts)
{
    const QDateTime mittag = um("2026-03-14T10:00:00+01:00"), letzterJanuar = um("2026-01-31T15:00:00+01:00");
    const QDateTime fruehling = um("2026-03-29T12:00:00+02:00"), herbst = um("2026-10-25T12:00:00+01:00");
    const QDateTime mittwoch = um("2026-03-25T09:00:00+01:00");
    pruefe({
        {Q::beginOfTheDay(mittag), "2026-03-14T00:00:00+01:00"}, {Q::endOfTheDay(mittag), "2026-03-14T23:59:59+01:00"},
        {Q::beginOfTheDayWithDayShift(mittag, 300), "2027-01-08T00:00:00+01:00"},
        // Days of the clock changes (23 and 25 hours) end at their last wall-clock second.
        {Q::endOfTheDay(fruehling), "2026-03-29T23:59:59+02:00"}, {Q::beginOfTheDay(herbst), "2026-10-25T00:00:00+02:00"},
        {Q::beginOfTheNextDay(um("2026-10-25T02:30:00+01:00")), "2026-10-26T00:00:00+01:00"},
        {Q::beginOfTheNextWeek(mittwoch), "2026-03-30T00:00:00+02:00"},
        {Q::endOfTheMonthWithMonthShift(letzterJanuar, 1), "2026-02-28T23:59:59+01:00"},
        {Q::endOfTheMonthWithMonthShift(letzterJanuar, 25), "2028-02-29T23:59:59+01:00"},
        // Shifts beyond what the calendar can count give no date rather than a wrapped-around one.
        {Q::endOfTheDay(QDateTime()), "invalid"}, {Q::beginOfTheDayWithDayShift(mittag, INT_MAX), "invalid"},
        // The time is taken as shown on the clock: a summer time lands on a winter day unchanged.
        {Q::dateWithTimeFrom(um("2026-12-24T08:00:00+01:00"), um("2026-07-01T18:45:30+02:00")), "2026-12-24T18:45:30+01:00"},
        {Q::dateWithoutSeconds(um("2026-10-25T02:07:42+01:00")), "2026-10-25T02:07:00+01:00"},
    });
    const QStringList oktober = Q::datesForAllDaysInMonthForDate(herbst); // each day of the change once
    EXPECT_EQ(oktober.size(), 31);
    EXPECT_EQ(s(oktober.value(25)), "26.10.26");
    amerikanisch(); // weeks run from Monday to Sunday in every locale
    pruefe({{Q::beginOfTheWeek(um("2026-03-15T18:00:00+01:00")), "2026-03-09T00:00:00+01:00"}});
}

TEST_F(QBAdditionsTest, TextsFollowZoneLocaleAndTheTimeSettingAtTheTimeOfTheCall)
{
    // 23:30 UTC on 14 March is 15 March in Berlin, still 14 March in New York.
    const QDateTime moment = um("2026-03-14T23:30:00Z"), abend = um("2026-03-04T21:05:00+01:00");
    EXPECT_EQ(s(Q::formattedShortDateAndTimeString(moment)), "15.03.26, 00:30");
    EXPECT_EQ(s(Q::monthYearString(abend)), "März 2026");
    EXPECT_EQ(s(Q::formattedShortTimestampString(abend, false)), "21:05");
    zone("America/New_York");
    amerikanisch();
    EXPECT_EQ(s(Q::formattedShortDateAndTimeString(moment)), "3/14/26, 7:30" NNBSP "PM");
    QBBenutzerEinstellungen &einstellungen = *QBBenutzerEinstellungen::sharedInstance();
    const bool gespeichert = einstellungen.zeitFormat24h();
    einstellungen.setZeitFormat24h(true);
    EXPECT_EQ(s(Q::formattedShortTimestampString(moment)), "19:30");
    einstellungen.setZeitFormat24h(gespeichert);
    // 22:30 UTC on 31 March is still March in New York.
    EXPECT_EQ(s(Q::monthYearStringWithTimeZone(um("2026-03-31T22:30:00Z"), QTimeZone("America/New_York"))), "March 2026");
}

TEST_F(QBAdditionsTest, ReadingShortDateAndTimeTexts)
{
    const QDateTime date = um("2026-10-31T17:45:00+01:00");
    EXPECT_EQ(Q::dateForShortDateTimeString(Q::formattedShortDateAndTimeString(date)), date);
    for (const char *text : {"kein Datum", "14.03.26", "31.02.26, 10:00", "14.03.26, 25:00"})
        EXPECT_FALSE(Q::dateForShortDateTimeString(QString::fromUtf8(text)).isValid()) << text;
    amerikanisch();
    // Typed with an ordinary blank before PM.
    EXPECT_EQ(iso(Q::dateForShortDateTimeString(QStringLiteral("3/14/26, 9:05 PM"))), "2026-03-14T21:05:00+01:00");
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
    deutsch();
    FKRLocalizationHelper::installiereHauptTabelle();
}
} // namespace
