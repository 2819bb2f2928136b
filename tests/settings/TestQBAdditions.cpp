#include "FKRLocalizationHelper.h"
#include "QBAdditions.h"
#include "QBBenutzerEinstellungen.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTimeZone>
#include <QTranslator>
#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <string>

namespace {
// A German desktop in Berlin unless a test says otherwise; both are put back after each test.
class QBAdditionsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        zone("Europe/Berlin");
        deutsch();
    }
    void TearDown() override
    {
        zone(m_zone.constData());
        QLocale::setDefault(m_locale);
    }
    static void zone(const char *id)
    {
        qputenv("TZ", id);
        tzset();
    }
    static void deutsch() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }
    static void amerikanisch() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

private:
    QByteArray m_zone = qgetenv("TZ");
    QLocale m_locale;
};

QDateTime um(const char *isoText)
{
    return QDateTime::fromString(QString::fromLatin1(isoText), Qt::ISODate);
}

// Wall-clock time with offset in the zone, so a wrong hour and a wrong offset both show.
std::string iso(const QDateTime &date, const char *zone = "Europe/Berlin")
{
    return date.isValid() ? date.toTimeZone(QTimeZone(zone)).toString(Qt::ISODate).toStdString() : "invalid";
}

std::string s(const QString &text)
{
    return text.toStdString();
}

// Recent locale data separates the time from AM/PM with a narrow no-break space.
#define NNBSP "\u202F"
} // namespace

TEST_F(QBAdditionsTest, DayBoundariesWithShifts)
{
    const QDateTime mittag = um("2026-03-14T10:00:00+01:00");
    EXPECT_EQ(iso(QBAdditions::beginOfTheDay(mittag)), "2026-03-14T00:00:00+01:00");
    EXPECT_EQ(iso(QBAdditions::endOfTheDay(mittag)), "2026-03-14T23:59:59+01:00");
    EXPECT_EQ(iso(QBAdditions::beginOfTheNextDay(mittag)), "2026-03-15T00:00:00+01:00");
    EXPECT_EQ(iso(QBAdditions::endOfTheDayWithDayShift(mittag, -1)), "2026-03-13T23:59:59+01:00");
    EXPECT_EQ(iso(QBAdditions::beginOfTheDayWithDayShift(mittag, 300)), "2027-01-08T00:00:00+01:00");
    EXPECT_EQ(iso(QBAdditions::endOfThePreviousDay(um("2026-01-01T00:00:00+01:00"))), "2025-12-31T23:59:59+01:00");
}

TEST_F(QBAdditionsTest, DaysOfTheClockChangesEndAtTheirLastWallClockSecond)
{
    const QDateTime fruehling = um("2026-03-29T12:00:00+02:00"); // 23 hours
    EXPECT_EQ(iso(QBAdditions::beginOfTheDay(fruehling)), "2026-03-29T00:00:00+01:00");
    EXPECT_EQ(iso(QBAdditions::endOfTheDay(fruehling)), "2026-03-29T23:59:59+02:00");
    const QDateTime herbst = um("2026-10-25T12:00:00+01:00"); // 25 hours
    EXPECT_EQ(iso(QBAdditions::beginOfTheDay(herbst)), "2026-10-25T00:00:00+02:00");
    EXPECT_EQ(iso(QBAdditions::endOfTheDay(herbst)), "2026-10-25T23:59:59+01:00");
    // 02:30 occurs twice that night; both belong to the same day.
    for (const char *zweiUhrDreissig : {"2026-10-25T02:30:00+02:00", "2026-10-25T02:30:00+01:00"})
        EXPECT_EQ(iso(QBAdditions::beginOfTheNextDay(um(zweiUhrDreissig))), "2026-10-26T00:00:00+01:00");
}

TEST_F(QBAdditionsTest, WeeksRunFromMondayToSundayInEveryLocale)
{
    for (bool englisch : {false, true}) {
        englisch ? amerikanisch() : deutsch();
        const QDateTime sonntag = um("2026-03-15T18:00:00+01:00");
        EXPECT_EQ(iso(QBAdditions::beginOfTheWeek(sonntag)), "2026-03-09T00:00:00+01:00") << englisch;
        EXPECT_EQ(iso(QBAdditions::endOfTheWeek(um("2026-03-09T00:00:00+01:00"))), "2026-03-15T23:59:59+01:00");
    }
    const QDateTime mittwoch = um("2026-03-25T09:00:00+01:00");
    EXPECT_EQ(iso(QBAdditions::beginOfTheNextWeek(mittwoch)), "2026-03-30T00:00:00+02:00");
    EXPECT_EQ(iso(QBAdditions::endOfTheWeekWithWeekShift(mittwoch, -2)), "2026-03-15T23:59:59+01:00");
    // A week that spans the turn of the year is not cut at 1 January.
    EXPECT_EQ(iso(QBAdditions::beginOfTheWeek(um("2026-01-01T12:00:00+01:00"))), "2025-12-29T00:00:00+01:00");
}

TEST_F(QBAdditionsTest, MonthsAndYearsNormaliseOverflow)
{
    EXPECT_EQ(iso(QBAdditions::endOfTheMonth(um("2024-02-10T10:00:00+01:00"))), "2024-02-29T23:59:59+01:00");
    const QDateTime letzterJanuar = um("2026-01-31T15:00:00+01:00");
    EXPECT_EQ(iso(QBAdditions::beginOfTheMonthWithMonthShift(letzterJanuar, 1)), "2026-02-01T00:00:00+01:00");
    EXPECT_EQ(iso(QBAdditions::endOfTheMonthWithMonthShift(letzterJanuar, 1)), "2026-02-28T23:59:59+01:00");
    EXPECT_EQ(iso(QBAdditions::endOfThePreviousMonth(letzterJanuar)), "2025-12-31T23:59:59+01:00");
    EXPECT_EQ(iso(QBAdditions::beginOfTheMonthWithMonthShift(letzterJanuar, -13)), "2024-12-01T00:00:00+01:00");
    EXPECT_EQ(iso(QBAdditions::endOfTheMonthWithMonthShift(letzterJanuar, 25)), "2028-02-29T23:59:59+01:00");
    EXPECT_EQ(iso(QBAdditions::endOfTheNextMonth(um("2026-02-15T12:00:00+01:00"))), "2026-03-31T23:59:59+02:00");

    const QDateTime schalttag = um("2024-02-29T12:00:00+01:00");
    EXPECT_EQ(iso(QBAdditions::beginOfTheYear(schalttag)), "2024-01-01T00:00:00+01:00");
    EXPECT_EQ(iso(QBAdditions::endOfTheNextYear(schalttag)), "2025-12-31T23:59:59+01:00");
    EXPECT_EQ(iso(QBAdditions::beginOfThePreviousYear(schalttag)), "2023-01-01T00:00:00+01:00");
}

TEST_F(QBAdditionsTest, NoDateWhereNoneCanBeBuilt)
{
    EXPECT_FALSE(QBAdditions::endOfTheDay(QDateTime()).isValid());
    EXPECT_FALSE(QBAdditions::dateWithTimeFrom(um("2026-03-14T10:00:00+01:00"), QDateTime()).isValid());
    EXPECT_TRUE(QBAdditions::datesForAllDaysInMonthForDate(QDateTime()).isEmpty());
    // Shifts beyond what the calendar can count give no date rather than a wrapped-around one.
    const QDateTime heute = um("2026-03-14T10:00:00+01:00");
    EXPECT_FALSE(QBAdditions::beginOfTheDayWithDayShift(heute, INT_MAX).isValid());
    EXPECT_FALSE(QBAdditions::endOfTheWeekWithWeekShift(heute, INT_MIN).isValid());
    EXPECT_FALSE(QBAdditions::endOfTheMonthWithMonthShift(heute, INT_MAX).isValid());
    EXPECT_FALSE(QBAdditions::beginOfTheYearWithYearShift(heute, INT_MIN).isValid());
    EXPECT_EQ(QBAdditions::beginOfTheYearWithYearShift(heute, 10000).toTimeZone(QTimeZone("Europe/Berlin")),
              QDateTime(QDate(12026, 1, 1), QTime(0, 0), QTimeZone("Europe/Berlin")));
}

TEST_F(QBAdditionsTest, CalendarAndTextsFollowZoneAndLocaleAtTheTimeOfTheCall)
{
    // 23:30 UTC on 14 March is 15 March in Berlin, still 14 March in New York.
    const QDateTime moment = um("2026-03-14T23:30:00Z");
    EXPECT_EQ(iso(QBAdditions::beginOfTheDay(moment)), "2026-03-15T00:00:00+01:00");
    EXPECT_EQ(s(QBAdditions::formattedShortDateAndTimeString(moment)), "15.03.26, 00:30");
    zone("America/New_York");
    EXPECT_EQ(iso(QBAdditions::beginOfTheDay(moment), "America/New_York"), "2026-03-14T00:00:00-04:00");
    EXPECT_EQ(s(QBAdditions::formattedShortDateAndTimeString(moment)), "14.03.26, 19:30");
    amerikanisch();
    EXPECT_EQ(s(QBAdditions::formattedShortDateAndTimeString(moment)), "3/14/26, 7:30" NNBSP "PM");
    EXPECT_EQ(s(QBAdditions::monthYearString(moment)), "March 2026");
    zone("Asia/Tokyo");
    EXPECT_EQ(s(QBAdditions::formattedShortTimestampString24hFormat(moment)), "08:30");
    // 22:30 UTC on 31 March is April in Tokyo, still March in New York.
    const QDateTime monatsende = um("2026-03-31T22:30:00Z");
    EXPECT_EQ(s(QBAdditions::monthYearString(monatsende)), "April 2026");
    EXPECT_EQ(s(QBAdditions::monthYearStringWithTimeZone(monatsende, QTimeZone("America/New_York"))), "March 2026");
}

TEST_F(QBAdditionsTest, ShortTextsAndComponents)
{
    const QDateTime morgen = um("2026-03-04T09:05:00+01:00");
    const QDateTime abend = um("2026-03-04T21:05:00+01:00");
    EXPECT_EQ(s(QBAdditions::formattedShortDateAndTimeStringLocalFormat(morgen)), "04.03.26, 09:05");
    EXPECT_EQ(s(QBAdditions::formattedShortDateString(morgen)), "04.03.26");
    EXPECT_EQ(s(QBAdditions::formattedShortTimestampString(abend, false)), "21:05");
    EXPECT_EQ(s(QBAdditions::monthYearString(morgen)), "März 2026");
    amerikanisch();
    EXPECT_EQ(s(QBAdditions::formattedShortDateString(morgen)), "3/4/26");
    EXPECT_EQ(s(QBAdditions::formattedShortTimestampString(abend, false)), "9:05" NNBSP "PM");
    EXPECT_EQ(s(QBAdditions::formattedShortTimestampString(abend, true)), "21:05");
    EXPECT_EQ(s(QBAdditions::formattedShortTimestampString(morgen, true)), "09:05");
    QBBenutzerEinstellungen &einstellungen = *QBBenutzerEinstellungen::sharedInstance();
    const bool gespeichert = einstellungen.zeitFormat24h();
    einstellungen.setZeitFormat24h(true);
    EXPECT_EQ(s(QBAdditions::formattedShortTimestampString(abend)), "21:05");
    einstellungen.setZeitFormat24h(false);
    EXPECT_EQ(s(QBAdditions::formattedShortTimestampString(abend)), "9:05" NNBSP "PM");
    einstellungen.setZeitFormat24h(gespeichert);
    const QString felder = QBAdditions::yearComponentForDate(morgen) + QBAdditions::monthComponentForDate(morgen)
        + QBAdditions::dayComponentForDate(morgen) + QBAdditions::hourComponentForDate(abend)
        + QBAdditions::minuteComponentForDate(morgen);
    EXPECT_EQ(s(felder), "202603042105");
    EXPECT_EQ(s(QBAdditions::formattedShortDateString(QDateTime())), "");
}

TEST_F(QBAdditionsTest, ReadingShortDateAndTimeTexts)
{
    EXPECT_EQ(iso(QBAdditions::dateForShortDateTimeString(QStringLiteral("29.03.26, 23:59"))), "2026-03-29T23:59:00+02:00");
    const QDateTime date = um("2026-10-31T17:45:00+01:00");
    EXPECT_EQ(QBAdditions::dateForShortDateTimeString(QBAdditions::formattedShortDateAndTimeString(date)), date);
    for (const char *text : {"", "kein Datum", "14.03.26", "14.03.26, 09:05 Uhr", "31.02.26, 10:00", "14.03.26, 25:00"})
        EXPECT_FALSE(QBAdditions::dateForShortDateTimeString(QString::fromUtf8(text)).isValid()) << text;

    amerikanisch();
    EXPECT_EQ(QBAdditions::dateForShortDateTimeString(QBAdditions::formattedShortDateAndTimeString(date)), date);
    // Typed with an ordinary blank before PM.
    EXPECT_EQ(iso(QBAdditions::dateForShortDateTimeString(QStringLiteral("3/14/26, 9:05 PM"))), "2026-03-14T21:05:00+01:00");
    EXPECT_FALSE(QBAdditions::dateForShortDateTimeString(QStringLiteral("14.03.26, 09:05")).isValid());
}

TEST_F(QBAdditionsTest, DateAndTimeOperations)
{
    // The time is taken as shown on the clock: a summer time lands on a winter day unchanged.
    EXPECT_EQ(iso(QBAdditions::dateWithTimeFrom(um("2026-12-24T08:00:00+01:00"), um("2026-07-01T18:45:30+02:00"))),
              "2026-12-24T18:45:30+01:00");
    EXPECT_EQ(iso(QBAdditions::dateWithoutSeconds(um("2026-03-14T10:07:42.250+01:00"))), "2026-03-14T10:07:00+01:00");
    // In the repeated hour of the autumn change, the second 02:07 stays the second one.
    EXPECT_EQ(iso(QBAdditions::dateWithoutSeconds(um("2026-10-25T02:07:42+01:00"))), "2026-10-25T02:07:00+01:00");

    const QStringList februar = QBAdditions::datesForAllDaysInMonthForDate(um("2024-02-10T10:00:00+01:00"));
    EXPECT_EQ(februar.size(), 29);
    EXPECT_EQ(s(februar.last()), "29.02.24");
    // The month of the autumn change lists each of its 31 days once.
    const QStringList oktober = QBAdditions::datesForAllDaysInMonthForDate(um("2026-10-25T12:00:00+01:00"));
    EXPECT_EQ(oktober.size(), 31);
    EXPECT_EQ(s(oktober.value(25)), "26.10.26");
}

namespace {
// A user's table without a text for Sunday: it answers with the key, as Qt's lookup does.
class TabelleOhneSonntag : public QTranslator
{
public:
    QString translate(const char *, const char *key, const char *, int) const override
    {
        return qstrcmp(key, "WOCHENTAG_SONNTAG") == 0 ? QString::fromLatin1(key) : QString();
    }
    bool isEmpty() const override { return false; }
};
} // namespace

TEST_F(QBAdditionsTest, WeekdayNamesComeFromTheUsersTable)
{
    FKRLocalizationHelper::installiereHauptTabelle();
    const QDateTime samstag = um("2026-03-14T23:30:00+01:00");
    EXPECT_EQ(s(QBAdditions::localizedDayName(samstag)), "Samstag");
    EXPECT_EQ(s(QBAdditions::dayNameForDateString(QStringLiteral("16.03.26"))), "Montag");
    EXPECT_EQ(s(QBAdditions::dayNameForDateString(QStringLiteral("kein Datum"))), "");
    zone("America/Los_Angeles"); // the weekday on the clock of the current zone
    EXPECT_EQ(s(QBAdditions::localizedDayName(um("2026-03-15T05:00:00+01:00"))), "Samstag");

    amerikanisch();
    FKRLocalizationHelper::installiereHauptTabelle();
    EXPECT_EQ(s(QBAdditions::dayNameForDateString(QStringLiteral("3/15/26"))), "Sunday");
    TabelleOhneSonntag ohneSonntag;
    QCoreApplication::installTranslator(&ohneSonntag);
    EXPECT_EQ(s(QBAdditions::dayNameForDateString(QStringLiteral("3/15/26"))), "");
    EXPECT_EQ(s(QBAdditions::dayNameForDateString(QStringLiteral("3/14/26"))), "Saturday");
    QCoreApplication::removeTranslator(&ohneSonntag);
    deutsch();
    FKRLocalizationHelper::installiereHauptTabelle();
}
