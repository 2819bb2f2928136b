#include "QBAdditions.h"

#include <QLocale>
#include <QTimeZone>
#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <string>

namespace {
using Q = QBAdditions;
std::string s(const QString &text) { return text.toStdString(); }

QDateTime um(const char *isoText) { return QDateTime::fromString(QString::fromLatin1(isoText), Qt::ISODate); }

// Rounding works on the wall clock of the current zone; the tests read it in Berlin.
class QBAdditionsRundung : public ::testing::Test
{
protected:
    QBAdditionsRundung() { zone("Europe/Berlin"); }
    ~QBAdditionsRundung() override { zone(vorher.constData()); }
    static void zone(const char *id) { qputenv("TZ", id); tzset(); }
    static std::string uhr(const QDateTime &date)
    {
        return date.isValid() ? s(date.toTimeZone(QTimeZone("Europe/Berlin")).toString(QStringLiteral("dd. HH:mm:ss")))
                              : "invalid";
    }
    const QByteArray vorher = qgetenv("TZ");
};

TEST(QBAdditionsDauer, DecimalHoursAndDurationTextsByAccuracy)
{
    EXPECT_EQ(Q::formatNSTimeIntervalAsDecimalNumber(5400.9).toString(), "1.5");
    EXPECT_EQ(Q::formatNSTimeIntervalAsDecimalNumber(1000).toString(), "0.27777777777777777777777777777777777778");
    EXPECT_EQ(Q::formatNSTimeIntervalAsDecimalNumber(std::nan("")).toString(), "0");
    const QLocale gesichert;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(s(Q::formatNSTimeIntervalAsDecimalString(90)), "0,02"); // 0.025: ties go to even
    EXPECT_EQ(s(Q::formatNSTimeIntervalAsDecimalStringWithSymbol(3600 * 1234.5)), "1.234,50h");
    QLocale::setDefault(gesichert);

    const struct { double sekunden; std::int64_t genauigkeit; const char *text; } faelle[] = {
        {90061, Q::DAYS_ACCURACY, "01d 01h 01m"}, {12000, Q::DAYS_ACCURACY, "03h 20m"}, {300.7, Q::DAYS_ACCURACY, "05m"},
        {59, Q::DAYS_ACCURACY, "00h 00m"}, {3599, Q::HOURS_ACCURACY, "00h 59m"}, {90061, Q::HOURS_ACCURACY, "25h"},
        {90061, Q::MINUTES_ACCURACY, "25h 01m"}};
    for (const auto &f : faelle)
        EXPECT_EQ(s(Q::formatNSTimeIntervalAsNSString(f.sekunden, f.genauigkeit)), f.text) << f.sekunden;
    EXPECT_EQ(s(Q::formatNSTimeIntervalAsNSStringForExport(26 * 3600 + 5 * 60 + 59)), "26:05");
}

TEST_F(QBAdditionsRundung, BeginTimesOnTheGrid)
{
    EXPECT_EQ(Q::retrieveRundungsIntervallForIncrement(10), 90);
    EXPECT_EQ(Q::retrieveRundungsIntervallForIncrement(11), 0);
    const QDateTime sieben = um("2026-03-14T10:07:20+01:00");
    const struct { QDateTime beginn; int modus, schritt; const char *gerundet; } faelle[] = {
        {sieben, 1, 3, "14. 10:15:20"}, {sieben, 2, 3, "14. 10:00:20"}, {sieben, 7, 3, "14. 10:00:20"},
        {um("2026-03-14T10:08:00+01:00"), 7, 3, "14. 10:15:00"},
        // Rounding up carries into the hour, here past midnight; a 75-minute grid past the hour.
        {um("2026-03-14T23:56:00+01:00"), 1, 1, "15. 00:00:00"}, {um("2026-03-14T10:44:00+01:00"), 7, 9, "14. 11:15:00"},
        {sieben, 0, 3, "14. 10:07:20"}, {sieben, 8, 3, "14. 10:07:20"}, {sieben, 1, 0, "14. 10:07:20"}};
    for (const auto &f : faelle)
        EXPECT_EQ(uhr(Q::roundBeginDateWithRoundingMode(f.beginn, f.modus, f.schritt)), f.gerundet) << &f - faelle;
}

TEST_F(QBAdditionsRundung, EndTimesOnTheGrid)
{
    const QDateTime beginn = um("2026-03-14T10:07:00+01:00"), ende = um("2026-03-14T10:38:00+01:00");
    const struct { QDateTime ende; int modus; const char *gerundet; QDateTime beginn; } faelle[] = {
        {ende, 1, "14. 10:45:00", beginn}, {ende, 7, "14. 10:45:00", beginn}, {ende, 2, "14. 10:30:00", beginn},
        {ende, 0, "14. 10:38:00", beginn},
        // Modes 3 and 4 put the 31 minutes on the grid and add them to the begin rounded down;
        // exactly one interval stays one; less, or even a negative duration, still counts one.
        {ende, 3, "14. 10:45:00", beginn}, {ende, 4, "14. 10:30:00", beginn},
        {um("2026-03-14T10:22:00+01:00"), 3, "14. 10:15:00", beginn},
        {um("2026-03-14T10:09:00+01:00"), 4, "14. 10:15:00", beginn},
        {um("2026-03-14T10:00:00+01:00"), 3, "14. 10:15:00", beginn},
        // Elapsed time: across the spring change 01:50 to 03:10 is 20 minutes, up to 30, after 01:45.
        {um("2026-03-29T03:10:00+02:00"), 3, "29. 03:15:00", um("2026-03-29T01:50:00+01:00")},
        {ende, 3, "invalid", QDateTime()}};
    for (const auto &f : faelle)
        EXPECT_EQ(uhr(Q::roundEndDateWithBeginDate(f.ende, f.beginn, f.modus, 3)), f.gerundet) << &f - faelle;
}
} // namespace
