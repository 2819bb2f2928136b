#include "QBAdditions.h"

#include <QTimeZone>
#include <gtest/gtest.h>

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

TEST(QBAdditionsDauer, DecimalHoursAreExact)
{
    EXPECT_EQ(Q::formatNSTimeIntervalAsDecimalNumber(5400.9).toString(), "1.5");
    EXPECT_EQ(Q::formatNSTimeIntervalAsDecimalNumber(1000).toString(), "0.27777777777777777777777777777777777778");
}

TEST_F(QBAdditionsRundung, BeginTimesOnTheGrid)
{
    const QDateTime sieben = um("2026-03-14T10:07:20+01:00");
    const struct { QDateTime beginn; int modus, schritt; const char *gerundet; } faelle[] = {
        {sieben, 1, 3, "14. 10:15:20"}, {sieben, 2, 3, "14. 10:00:20"}, {sieben, 7, 3, "14. 10:00:20"},
        {um("2026-03-14T10:08:00+01:00"), 7, 3, "14. 10:15:00"},
        // Rounding up carries into the hour, here past midnight; a 75-minute grid past the hour.
        {um("2026-03-14T23:56:00+01:00"), 1, 1, "15. 00:00:00"}, {um("2026-03-14T10:44:00+01:00"), 7, 9, "14. 11:15:00"},
        {sieben, 8, 3, "14. 10:07:20"}, {sieben, 1, 0, "14. 10:07:20"}};
    for (const auto &f : faelle)
        EXPECT_EQ(uhr(Q::roundBeginDateWithRoundingMode(f.beginn, f.modus, f.schritt)), f.gerundet) << &f - faelle;
}

TEST_F(QBAdditionsRundung, EndTimesOnTheGrid)
{
    const QDateTime beginn = um("2026-03-14T10:07:00+01:00"), ende = um("2026-03-14T10:38:00+01:00");
    const struct { QDateTime ende; int modus; const char *gerundet; QDateTime beginn; } faelle[] = {
        {ende, 1, "14. 10:45:00", beginn}, {ende, 7, "14. 10:45:00", beginn}, {ende, 2, "14. 10:30:00", beginn},
        // Modes 3 and 4 put the 31 minutes on the grid and add them to the begin rounded down;
        // exactly one interval stays one; less, or even a negative duration, still counts one.
        {ende, 3, "14. 10:45:00", beginn}, {ende, 4, "14. 10:30:00", beginn},
        {um("2026-03-14T10:09:00+01:00"), 4, "14. 10:15:00", beginn},
        {um("2026-03-14T10:00:00+01:00"), 3, "14. 10:15:00", beginn},
        // Elapsed time: across the spring change 01:50 to 03:10 is 20 minutes, up to 30, after 01:45.
        {um("2026-03-29T03:10:00+02:00"), 3, "29. 03:15:00", um("2026-03-29T01:50:00+01:00")},
        {ende, 3, "invalid", QDateTime()}};
    for (const auto &f : faelle)
        EXPECT_EQ(uhr(Q::roundEndDateWithBeginDate(f.ende, f.beginn, f.modus, 3)), f.gerundet) << &f - faelle;
}
} // namespace
