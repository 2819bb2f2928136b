#include "FKRLocalizationHelper.h"

#include <QCoreApplication>
#include <QDate>
#include <QLocale>
#include <QTime>
#include <QTimeZone>
#include <gtest/gtest.h>

#include <cstdlib>

using namespace Qt::Literals::StringLiterals;


namespace {
constexpr auto kMedium = DateStyle::Medium, kNone = DateStyle::None, kShort = DateStyle::Short;

// Each test may switch the user's language and zone; both come back afterwards.
class UserLanguage : public ::testing::Test
{
protected:
    void TearDown() override
    {
        QLocale::setDefault(saved);
        FKRLocalizationHelper::installiereHauptTabelle();
        hadZone ? qputenv("TZ", savedZone) : qunsetenv("TZ");
    }
    static void useLocale(const char *name)
    {
        QLocale::setDefault(QLocale(QString::fromLatin1(name)));
        FKRLocalizationHelper::installiereHauptTabelle();
    }
    const QLocale saved;
    const bool hadZone = qEnvironmentVariableIsSet("TZ");
    const QByteArray savedZone = qgetenv("TZ");
};
using DocumentLanguage = UserLanguage;
using DocumentDates = UserLanguage;

// German (1) and English (2) documents use their table whatever the user speaks; a key missing
// there falls back to the user's table, one missing everywhere comes back unchanged; an absent or
// unknown language follows the user. The main table and the standard dialogs speak the user's
// language, English for every language but German.
TEST_F(DocumentLanguage, TextsComeFromTheDocumentsTableThenTheUsersThenTheKeyItself)
{
    const struct { const char *locale, *key; std::optional<int> dokument; QString text; } faelle[] = {
        {"fr", "Rechnung:", 1, u"Rechnung:"_s}, {"fr", "Rechnung:", 2, u"Invoice:"_s},
        {"de_DE", "PRUEFTEXT_NUR_DEUTSCH", 2, u"Nur im deutschen Katalog"_s},
        {"en_US", "PRUEFTEXT_NUR_DEUTSCH", 2, u"PRUEFTEXT_NUR_DEUTSCH"_s}, {"en_GB", "Angebot:", std::nullopt, u"Quote:"_s},
        {"de_AT", "Angebot:", 0, u"Angebot:"_s},
    };
    for (const auto &fall : faelle) {
        useLocale(fall.locale);
        EXPECT_EQ(FKRLocalizationHelper::lokalisierterText(QString::fromUtf8(fall.key), fall.dokument), fall.text)
            << fall.locale << " " << fall.key << " " << fall.dokument.value_or(-1);
    }
    const struct { const char *locale; QString text, dialog; } haupt[] = {
        {"de_AT", u"Schließen"_s, u"Suchen in:"_s}, {"fr_FR", u"Close"_s, u"Look in:"_s}};
    for (const auto &fall : haupt) {
        useLocale(fall.locale);
        EXPECT_EQ(FKRLocalizationHelper::hauptTabellenText(u"BUTTON_TITLE_CLOSE"_s), fall.text);
        EXPECT_EQ(QCoreApplication::translate("QFileDialog", "Look in:"), fall.dialog);
    }
}

// The document's language decides the locale, else the user's at call time; the day is the one
// of the zone in force at call time (23:30 in Berlin is the 16th in New York).
TEST_F(DocumentDates, LanguageStylesAndZoneAtCallTimeDecide)
{
    const QDateTime mittag(QDate(2026, 11, 16), QTime(12, 0), QTimeZone("Europe/Berlin"));
    const QDateTime nacht(QDate(2026, 11, 16), QTime(23, 30), QTimeZone("Europe/Berlin"));
    const struct {
        const char *locale;
        QDateTime datum;
        DateStyle tag, zeit;
        std::optional<int> dokument;
        QString text;
        const char *zone = "Europe/Berlin";
    } faelle[] = {
        {"fr_FR", mittag, kMedium, kNone, 1, u"16.11.2026"_s}, {"fr_FR", mittag, kMedium, kNone, 2, u"Nov 16, 2026"_s},
        {"en_GB", mittag, kMedium, kNone, std::nullopt, u"16 Nov 2026"_s},
        {"de_DE", nacht, kMedium, kShort, 1, u"16.11.2026, 17:30"_s, "America/New_York"},
        {"de_DE", QDateTime(), kMedium, kNone, 1, QString()}, {"de_DE", mittag, kNone, kNone, 1, QString()},
    };
    for (const auto &fall : faelle) {
        useLocale(fall.locale);
        setenv("TZ", fall.zone, 1);
        EXPECT_EQ(FKRLocalizationHelper::lokalisiertesDatum(fall.datum, fall.tag, fall.zeit, fall.dokument), fall.text)
            << &fall - faelle;
    }
}
} // namespace
