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
#include <thread>
#include <vector>

using namespace Qt::Literals::StringLiterals;

inline void PrintTo(const QString &text, std::ostream *out) { *out << '"' << text.toStdString() << '"'; }

namespace {

// Each test may switch the user's language; the German default comes back afterwards.
class UserLanguage : public ::testing::Test
{
protected:
    void TearDown() override
    {
        QLocale::setDefault(saved);
        FKRLocalizationHelper::installiereHauptTabelle();
        if (hadZone)
            qputenv("TZ", savedZone);
        else
            qunsetenv("TZ");
    }

    static void useLocale(QLocale::Language language, QLocale::Territory territory = QLocale::AnyTerritory)
    {
        QLocale::setDefault(QLocale(language, territory));
        FKRLocalizationHelper::installiereHauptTabelle();
    }

    static QString text(const char *key, std::optional<int> sprache)
    {
        return FKRLocalizationHelper::lokalisierterText(QString::fromUtf8(key), sprache);
    }

    static QString datum(const QDateTime &date, DateStyle dateStyle, DateStyle timeStyle, std::optional<int> sprache)
    {
        return FKRLocalizationHelper::lokalisiertesDatum(date, dateStyle, timeStyle, sprache);
    }

    const QLocale saved;
    const bool hadZone = qEnvironmentVariableIsSet("TZ");
    const QByteArray savedZone = qgetenv("TZ");
};

QDateTime berlin(int day, int hour, int minute)
{
    return QDateTime(QDate(2026, 11, day), QTime(hour, minute), QTimeZone("Europe/Berlin"));
}

} // namespace

using DocumentLanguage = UserLanguage;

TEST_F(DocumentLanguage, GermanAndEnglishTablesWinWhateverTheUserSpeaks)
{
    for (const auto language : {QLocale::German, QLocale::English, QLocale::French}) {
        useLocale(language);
        SCOPED_TRACE(QLocale::languageToString(language).toStdString());
        EXPECT_EQ(text("Rechnung:", 1), u"Rechnung:"_s);
        EXPECT_EQ(text("Rechnung:", 2), u"Invoice:"_s);
        EXPECT_EQ(text("PDF_EXPORT_SEITENNUMMER", 1), u"Seite "_s);
        EXPECT_EQ(text(" Neuer Empfänger", 2), u" New recipient"_s);
    }
}

TEST_F(DocumentLanguage, KeyMissingFromTheDocumentTableFallsBackToTheUserLanguage)
{
    // This key is kept in the German table only.
    useLocale(QLocale::German, QLocale::Germany);
    EXPECT_EQ(text("PRUEFTEXT_NUR_DEUTSCH", 2), u"Nur im deutschen Katalog"_s);
    useLocale(QLocale::English, QLocale::UnitedStates);
    EXPECT_EQ(text("PRUEFTEXT_NUR_DEUTSCH", 2), u"PRUEFTEXT_NUR_DEUTSCH"_s);
    EXPECT_EQ(text("PRUEFTEXT_NUR_DEUTSCH", 1), u"Nur im deutschen Katalog"_s);
}

TEST_F(DocumentLanguage, AbsentOrUnknownLanguageFollowsTheUserAndReinstallingSwitchesIt)
{
    useLocale(QLocale::English, QLocale::UnitedKingdom);
    for (const std::optional<int> sprache : {std::optional<int>(), std::optional<int>(0), std::optional<int>(3)})
        EXPECT_EQ(text("Angebot:", sprache), u"Quote:"_s);
    EXPECT_EQ(QCoreApplication::translate(FKRLocalizationHelper::kContext, "BUTTON_TITLE_CLOSE"), u"Close"_s);
    // The standard dialogs speak the user's language too.
    EXPECT_EQ(QCoreApplication::translate("QFileDialog", "Look in:"), u"Look in:"_s);

    useLocale(QLocale::German, QLocale::Austria);
    EXPECT_EQ(text("Angebot:", 3), u"Angebot:"_s);
    EXPECT_EQ(FKRLocalizationHelper::hauptTabellenText(u"BUTTON_TITLE_CLOSE"_s), u"Schließen"_s);
    EXPECT_EQ(QCoreApplication::translate("QFileDialog", "Look in:"), u"Suchen in:"_s);

    // Every language other than German gets the English table.
    useLocale(QLocale::French, QLocale::France);
    EXPECT_EQ(FKRLocalizationHelper::hauptTabellenText(u"WOCHENTAG_MONTAG"_s), u"Monday"_s);
    EXPECT_EQ(QCoreApplication::translate("QFileDialog", "Look in:"), u"Look in:"_s);
}

TEST_F(DocumentLanguage, KeyMissingEverywhereComesBackUnchanged)
{
    for (const auto language : {QLocale::German, QLocale::English}) {
        useLocale(language);
        for (const std::optional<int> sprache : {std::optional<int>(1), std::optional<int>(2), std::optional<int>()})
            EXPECT_EQ(text("KEIN_SCHLUESSEL_Ä", sprache), u"KEIN_SCHLUESSEL_Ä"_s);
    }
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
            const QString expected = sprache == 1 ? u"Mahnung:"_s : u"Reminder:"_s;
            for (int i = 0; i < 200; ++i) {
                if (FKRLocalizationHelper::lokalisierterText(u"Mahnung:"_s, sprache) != expected)
                    ++wrong;
            }
        });
    }
    for (auto &thread : threads)
        thread.join();
    EXPECT_EQ(wrong.load(), 0);
}

using DocumentDates = UserLanguage;

TEST_F(DocumentDates, DocumentLanguageDecidesTheLocaleAndTheStylesAreHonoured)
{
    useLocale(QLocale::French, QLocale::France);
    const QDateTime date = berlin(16, 12, 0);
    EXPECT_EQ(datum(date, DateStyle::Medium, DateStyle::None, 1), u"16.11.2026"_s);
    EXPECT_EQ(datum(date, DateStyle::Medium, DateStyle::None, 2), u"Nov 16, 2026"_s);
    EXPECT_EQ(datum(date, DateStyle::Short, DateStyle::Short, 1), u"16.11.26, 12:00"_s);
    EXPECT_EQ(datum(date, DateStyle::None, DateStyle::Short, 1), u"12:00"_s);
    EXPECT_EQ(datum(date, DateStyle::Long, DateStyle::None, 1), u"16. November 2026"_s);
    EXPECT_EQ(datum(date, DateStyle::Full, DateStyle::None, 2), u"Monday, November 16, 2026"_s);
}

TEST_F(DocumentDates, AbsentOrUnknownLanguageUsesTheUserLocaleAtCallTime)
{
    const QDateTime date = berlin(16, 12, 0);
    useLocale(QLocale::English, QLocale::UnitedStates);
    EXPECT_EQ(datum(date, DateStyle::Medium, DateStyle::None, std::nullopt), u"Nov 16, 2026"_s);
    useLocale(QLocale::German, QLocale::Germany);
    EXPECT_EQ(datum(date, DateStyle::Medium, DateStyle::None, 3), u"16.11.2026"_s);
    useLocale(QLocale::English, QLocale::UnitedKingdom);
    EXPECT_EQ(datum(date, DateStyle::Medium, DateStyle::None, std::nullopt), u"16 Nov 2026"_s);
}

TEST_F(DocumentDates, DayFollowsTheTimeZoneInForceAtCallTime)
{
    // 23:30 in Berlin is still the 16th in New York and already the 17th in Tokyo.
    const QDateTime date = berlin(16, 23, 30);
    setenv("TZ", "Europe/Berlin", 1);
    EXPECT_EQ(datum(date, DateStyle::Medium, DateStyle::Short, 1), u"16.11.2026, 23:30"_s);
    setenv("TZ", "America/New_York", 1);
    EXPECT_EQ(datum(date, DateStyle::Medium, DateStyle::Short, 1), u"16.11.2026, 17:30"_s);
    setenv("TZ", "Asia/Tokyo", 1);
    EXPECT_EQ(datum(date.toUTC(), DateStyle::Medium, DateStyle::Short, 1), u"17.11.2026, 07:30"_s);
}

TEST_F(DocumentDates, NothingToPrintGivesTheEmptyText)
{
    EXPECT_EQ(datum(QDateTime(), DateStyle::Medium, DateStyle::None, 1), QString());
    EXPECT_EQ(datum(QDateTime(QDate(2026, 2, 30), QTime(10, 0)), DateStyle::Medium, DateStyle::None, 2), QString());
    EXPECT_EQ(datum(berlin(16, 12, 0), DateStyle::None, DateStyle::None, 1), QString());
}
