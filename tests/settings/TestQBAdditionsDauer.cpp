#include "QBAdditions.h"

#include <QLocale>
#include <QTimeZone>
#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <string>
#include <utility>

namespace {
std::string s(const QString &text)
{
    return text.toStdString();
}

std::string dauer(double seconds, std::int64_t accuracy)
{
    return s(QBAdditions::formatNSTimeIntervalAsNSString(seconds, accuracy));
}

QDateTime um(const char *isoText)
{
    return QDateTime::fromString(QString::fromLatin1(isoText), Qt::ISODate);
}

// Rounding works on the wall clock of the current zone; the tests read it in Berlin.
struct InBerlin
{
    QByteArray vorher = qgetenv("TZ");
    InBerlin()
    {
        qputenv("TZ", "Europe/Berlin");
        tzset();
    }
    ~InBerlin()
    {
        qputenv("TZ", vorher);
        tzset();
    }
};

std::string uhr(const QDateTime &date)
{
    return date.isValid() ? s(date.toTimeZone(QTimeZone("Europe/Berlin")).toString(QStringLiteral("dd. HH:mm:ss")))
                          : "invalid";
}
} // namespace

TEST(QBAdditionsDauer, DecimalHours)
{
    EXPECT_EQ(QBAdditions::formatNSTimeIntervalAsDecimalNumber(5400.9).toString(), "1.5");
    EXPECT_EQ(QBAdditions::formatNSTimeIntervalAsDecimalNumber(-5400.9).toString(), "-1.5");
    EXPECT_EQ(QBAdditions::formatNSTimeIntervalAsDecimalNumber(1000).toString(), "0.27777777777777777777777777777777777778");
    EXPECT_EQ(QBAdditions::formatNSTimeIntervalAsDecimalNumber(std::nan("")).toString(), "0");

    const QLocale gesichert;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(s(QBAdditions::formatNSTimeIntervalAsDecimalString(5400)), "1,50");
    EXPECT_EQ(s(QBAdditions::formatNSTimeIntervalAsDecimalString(90)), "0,02"); // 0.025: ties go to even
    EXPECT_EQ(s(QBAdditions::formatNSTimeIntervalAsDecimalStringWithSymbol(3600 * 1234.5)), "1.234,50h");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(s(QBAdditions::formatNSTimeIntervalAsDecimalStringWithSymbol(3600 * 1234.5)), "1,234.50h");
    QLocale::setDefault(gesichert);
}

TEST(QBAdditionsDauer, DurationTextsByAccuracy)
{
    EXPECT_EQ(dauer(90061, QBAdditions::DAYS_ACCURACY), "01d 01h 01m");
    EXPECT_EQ(dauer(86400 * 12 + 59, QBAdditions::DAYS_ACCURACY), "12d 00h 00m");
    EXPECT_EQ(dauer(12000, QBAdditions::DAYS_ACCURACY), "03h 20m");
    EXPECT_EQ(dauer(300.7, QBAdditions::DAYS_ACCURACY), "05m");
    EXPECT_EQ(dauer(59, QBAdditions::DAYS_ACCURACY), "00h 00m");
    EXPECT_EQ(dauer(3599, QBAdditions::HOURS_ACCURACY), "00h 59m");
    EXPECT_EQ(dauer(90061, QBAdditions::HOURS_ACCURACY), "25h");
    EXPECT_EQ(dauer(90061, QBAdditions::MINUTES_ACCURACY), "25h 01m");
    EXPECT_EQ(dauer(90300, 42), "25h 05m");
    EXPECT_EQ(s(QBAdditions::formatNSTimeIntervalAsNSStringForExport(26 * 3600 + 5 * 60 + 59)), "26:05");
    EXPECT_EQ(s(QBAdditions::formatNSTimeIntervalAsNSStringForExport(59, QBAdditions::MINUTES_ACCURACY)), "00:00");
}

TEST(QBAdditionsRundung, BeginTimesOnTheGrid)
{
    const InBerlin zone;
    EXPECT_EQ(QBAdditions::retrieveRundungsIntervallForIncrement(1), 5);
    EXPECT_EQ(QBAdditions::retrieveRundungsIntervallForIncrement(10), 90);
    EXPECT_EQ(QBAdditions::retrieveRundungsIntervallForIncrement(11), 0);

    const QDateTime sieben = um("2026-03-14T10:07:20+01:00");
    for (int mode : {1, 5})
        EXPECT_EQ(uhr(QBAdditions::roundBeginDateWithRoundingMode(sieben, mode, 3)), "14. 10:15:20") << mode;
    for (int mode : {2, 3, 4, 6, 7})
        EXPECT_EQ(uhr(QBAdditions::roundBeginDateWithRoundingMode(sieben, mode, 3)), "14. 10:00:20") << mode;
    EXPECT_EQ(uhr(QBAdditions::roundBeginDateWithRoundingMode(um("2026-03-14T10:08:00+01:00"), 7, 3)), "14. 10:15:00");
    // Rounding up carries into the hour, here past midnight; a 75-minute grid past the hour.
    EXPECT_EQ(uhr(QBAdditions::roundBeginDateWithRoundingMode(um("2026-03-14T23:56:00+01:00"), 1, 1)), "15. 00:00:00");
    EXPECT_EQ(uhr(QBAdditions::roundBeginDateWithRoundingMode(um("2026-03-14T10:44:00+01:00"), 7, 9)), "14. 11:15:00");
    for (const auto &[mode, increment] : {std::pair{0, 3}, std::pair{8, 3}, std::pair{1, 0}})
        EXPECT_EQ(QBAdditions::roundBeginDateWithRoundingMode(sieben, mode, increment), sieben) << mode << increment;
}

TEST(QBAdditionsRundung, EndTimesOnTheGrid)
{
    const InBerlin zone;
    const QDateTime beginn = um("2026-03-14T10:07:00+01:00");
    const QDateTime ende = um("2026-03-14T10:38:00+01:00");
    for (int mode : {1, 6, 7})
        EXPECT_EQ(uhr(QBAdditions::roundEndDateWithBeginDate(ende, beginn, mode, 3)), "14. 10:45:00") << mode;
    for (int mode : {2, 5})
        EXPECT_EQ(uhr(QBAdditions::roundEndDateWithBeginDate(ende, beginn, mode, 3)), "14. 10:30:00") << mode;
    // Modes 3 and 4 put the 31 minutes on the grid and add them to the begin rounded down.
    EXPECT_EQ(uhr(QBAdditions::roundEndDateWithBeginDate(ende, beginn, 3, 3)), "14. 10:45:00");
    EXPECT_EQ(uhr(QBAdditions::roundEndDateWithBeginDate(ende, beginn, 4, 3)), "14. 10:30:00");
    // Exactly one interval stays one; less, or even a negative duration, still counts one.
    EXPECT_EQ(uhr(QBAdditions::roundEndDateWithBeginDate(um("2026-03-14T10:22:00+01:00"), beginn, 3, 3)), "14. 10:15:00");
    EXPECT_EQ(uhr(QBAdditions::roundEndDateWithBeginDate(um("2026-03-14T10:09:00+01:00"), beginn, 4, 3)), "14. 10:15:00");
    EXPECT_EQ(uhr(QBAdditions::roundEndDateWithBeginDate(um("2026-03-14T10:00:00+01:00"), beginn, 3, 3)), "14. 10:15:00");
    // The duration is elapsed time: across the spring change 01:50 to 03:10 is 20 minutes,
    // rounded up to 30 and added to 01:45.
    EXPECT_EQ(uhr(QBAdditions::roundEndDateWithBeginDate(um("2026-03-29T03:10:00+02:00"),
                                                         um("2026-03-29T01:50:00+01:00"), 3, 3)),
              "29. 03:15:00");
    EXPECT_EQ(QBAdditions::roundEndDateWithBeginDate(ende, beginn, 0, 3), ende);
    EXPECT_FALSE(QBAdditions::roundEndDateWithBeginDate(ende, QDateTime(), 3, 3).isValid());
}
