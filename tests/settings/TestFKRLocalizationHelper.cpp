#include "FKRLocalizationHelper.h"

#include <QCoreApplication>
#include <QDate>
#include <QLocale>
#include <QTime>
#include <QTimeZone>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

using namespace Qt::Literals::StringLiterals;

inline void PrintTo(const QString &text, std::ostream *out) { *out << '"' << text.toStdString() << '"'; }

namespace {

// Switches the user's language for one test and puts the previous one back afterwards.
class UserLanguage : public ::testing::Test
{
protected:
    void TearDown() override
    {
        QLocale::setDefault(saved);
        FKRLocalizationHelper::installiereHauptTabelle();
    }

    static void useLocale(QLocale::Language language, QLocale::Territory territory)
    {
        QLocale::setDefault(QLocale(language, territory));
        FKRLocalizationHelper::installiereHauptTabelle();
    }

    const QLocale saved;
};

// Kept in the German table only, so an English document has to fall back for it.
const QString kNurDeutsch = QStringLiteral("PRUEFTEXT_NUR_DEUTSCH");
const QString kUnbekannt = QStringLiteral("KEIN_SCHLUESSEL_IN_IRGENDEINER_TABELLE");

QDateTime berlin(int year, int month, int day, int hour, int minute)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute), QTimeZone("Europe/Berlin"));
}

// Restores TZ when a test leaves, also when an expectation fails on the way.
class ZoneGuard
{
public:
    ZoneGuard() : had(std::getenv("TZ") != nullptr), old(had ? std::getenv("TZ") : "") {}
    ~ZoneGuard()
    {
        if (had)
            setenv("TZ", old.c_str(), 1);
        else
            unsetenv("TZ");
    }

private:
    bool had;
    std::string old;
};

} // namespace

using DocumentLanguage = UserLanguage;

TEST_F(DocumentLanguage, GermanAndEnglishTablesWinWhateverTheUserSpeaks)
{
    for (const auto language : {QLocale::German, QLocale::English, QLocale::French}) {
        useLocale(language, QLocale::AnyTerritory);
        SCOPED_TRACE(QLocale::languageToString(language).toStdString());
        EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(QStringLiteral("Rechnung:"), 1), u"Rechnung:"_s);
        EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(QStringLiteral("Rechnung:"), 2), u"Invoice:"_s);
        EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(QStringLiteral("PDF_EXPORT_SEITENNUMMER"), 1), u"Seite "_s);
        EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(QStringLiteral("PDF_EXPORT_SEITENNUMMER"), 2), u"Page "_s);
        // Keys that are German words still get a real English text.
        EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(QStringLiteral("Zwischensumme"), 2), u"Subtotal"_s);
        EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(QStringLiteral(" Neuer Empfänger"), 2), u" New recipient"_s);
    }
}

TEST_F(DocumentLanguage, KeyMissingFromTheDocumentTableFallsBackToTheUserLanguage)
{
    useLocale(QLocale::German, QLocale::Germany);
    EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(kNurDeutsch, 2), u"Nur im deutschen Katalog"_s);

    // An English user has no text for it either, so the key itself is what comes back.
    useLocale(QLocale::English, QLocale::UnitedStates);
    EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(kNurDeutsch, 2), kNurDeutsch);
    EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(kNurDeutsch, 1), u"Nur im deutschen Katalog"_s);
}

TEST_F(DocumentLanguage, AbsentOrUnknownLanguageFollowsTheUser)
{
    useLocale(QLocale::English, QLocale::UnitedKingdom);
    for (const std::optional<int> sprache : {std::optional<int>(), std::optional<int>(0), std::optional<int>(3)}) {
        EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(QStringLiteral("Angebot:"), sprache), u"Quote:"_s);
        EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(QStringLiteral("BUTTON_TITLE_ABBRECHEN"), sprache), u"Cancel"_s);
    }
    useLocale(QLocale::German, QLocale::Austria);
    EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(QStringLiteral("Angebot:"), 3), u"Angebot:"_s);
    EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(QStringLiteral("BUTTON_TITLE_ABBRECHEN"), std::nullopt),
              u"Abbrechen"_s);
    // Any language other than German gets the English table.
    useLocale(QLocale::French, QLocale::France);
    EXPECT_EQ(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("WOCHENTAG_MONTAG")), u"Monday"_s);
}

TEST_F(DocumentLanguage, KeyMissingEverywhereComesBackUnchanged)
{
    for (const auto language : {QLocale::German, QLocale::English}) {
        useLocale(language, QLocale::AnyTerritory);
        for (const std::optional<int> sprache : {std::optional<int>(1), std::optional<int>(2), std::optional<int>()})
            EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(kUnbekannt, sprache), kUnbekannt);
        EXPECT_EQ(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("Mahnung für: ä")), u"Mahnung für: ä"_s);
    }
}

TEST_F(DocumentLanguage, InstallingAgainReplacesTheMainTable)
{
    useLocale(QLocale::English, QLocale::UnitedStates);
    EXPECT_EQ(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("ALERT_TITLE_HINWEIS")), u"Note"_s);
    EXPECT_EQ(QCoreApplication::translate(FKRLocalizationHelper::kContext, "BUTTON_TITLE_CLOSE"), u"Close"_s);
    useLocale(QLocale::German, QLocale::Switzerland);
    EXPECT_EQ(FKRLocalizationHelper::hauptTabellenText(QStringLiteral("ALERT_TITLE_HINWEIS")), u"Hinweis"_s);
    EXPECT_EQ(QCoreApplication::translate(FKRLocalizationHelper::kContext, "BUTTON_TITLE_CLOSE"), u"Schließen"_s);
}

TEST(DocumentLanguageTables, ConcurrentFirstUseGivesEveryThreadTheFullTables)
{
    // ctest runs each test in its own process, so this is the very first use of the tables.
    std::atomic<int> ready{0};
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            ++ready;
            while (ready.load() < 4) {
            }
            const int sprache = t % 2 + 1;
            const QString expected = sprache == 1 ? QStringLiteral("Mahnung:") : QStringLiteral("Reminder:");
            for (int i = 0; i < 200; ++i) {
                if (FKRLocalizationHelper::lokalisierterText(QStringLiteral("Mahnung:"), sprache) != expected)
                    ++wrong;
            }
        });
    }
    for (auto &thread : threads)
        thread.join();
    EXPECT_EQ(wrong.load(), 0);
}

using DocumentDates = UserLanguage;

TEST_F(DocumentDates, MediumDateInTheDocumentLanguage)
{
    useLocale(QLocale::French, QLocale::France);
    const QDateTime date = berlin(2026, 11, 16, 12, 0);
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(date, DateStyle::Medium, DateStyle::None, 1), u"16.11.2026"_s);
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(date, DateStyle::Medium, DateStyle::None, 2), u"Nov 16, 2026"_s);
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(date, DateStyle::Short, DateStyle::Short, 1),
              u"16.11.26, 12:00"_s);
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(date, DateStyle::None, DateStyle::Short, 1), u"12:00"_s);
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(date, DateStyle::Long, DateStyle::None, 1),
              u"16. November 2026"_s);
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(date, DateStyle::Full, DateStyle::None, 2),
              u"Monday, November 16, 2026"_s);
}

TEST_F(DocumentDates, AbsentOrUnknownLanguageUsesTheUserLocaleAtCallTime)
{
    const QDateTime date = berlin(2026, 11, 16, 12, 0);
    useLocale(QLocale::English, QLocale::UnitedStates);
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(date, DateStyle::Medium, DateStyle::None, std::nullopt),
              u"Nov 16, 2026"_s);
    useLocale(QLocale::German, QLocale::Germany);
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(date, DateStyle::Medium, DateStyle::None, 3), u"16.11.2026"_s);
    useLocale(QLocale::English, QLocale::UnitedKingdom);
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(date, DateStyle::Medium, DateStyle::None, std::nullopt),
              u"16 Nov 2026"_s);
}

TEST_F(DocumentDates, DayFollowsTheTimeZoneInForceAtCallTime)
{
    const ZoneGuard guard;
    // 23:30 in Berlin is still the 16th in New York and already the 17th in Tokyo.
    const QDateTime date = berlin(2026, 11, 16, 23, 30);
    setenv("TZ", "Europe/Berlin", 1);
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(date, DateStyle::Medium, DateStyle::Short, 1),
              u"16.11.2026, 23:30"_s);
    setenv("TZ", "America/New_York", 1);
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(date, DateStyle::Medium, DateStyle::Short, 1),
              u"16.11.2026, 17:30"_s);
    setenv("TZ", "Asia/Tokyo", 1);
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(date, DateStyle::Medium, DateStyle::None, 1), u"17.11.2026"_s);
    // A date given in another zone is the same instant, printed in the current zone.
    const QDateTime utc = date.toUTC();
    EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(utc, DateStyle::None, DateStyle::Short, 1), u"07:30"_s);
}

TEST_F(DocumentDates, NothingToPrintGivesTheEmptyText)
{
    EXPECT_TRUE(FKRLocalizationHelper::lokalisiertesDatum(QDateTime(), DateStyle::Medium, DateStyle::None, 1).isEmpty());
    EXPECT_TRUE(FKRLocalizationHelper::lokalisiertesDatum(QDateTime(QDate(2026, 2, 30), QTime(10, 0)),
                                                          DateStyle::Medium, DateStyle::None, 2)
                    .isEmpty());
    EXPECT_TRUE(FKRLocalizationHelper::lokalisiertesDatum(berlin(2026, 11, 16, 12, 0), DateStyle::None,
                                                          DateStyle::None, 1)
                    .isEmpty());
}
