#include "QBBenutzerEinstellungen.h"

#include <QFile>
#include <QMetaProperty>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

#include <latch>
#include <map>
#include <thread>
#include <utility>
#include <vector>

namespace {

std::string text(const Decimal &value)
{
    return value.toString();
}

class QBBenutzerEinstellungenTest : public ::testing::Test
{
protected:
    QString path() const { return m_dir.filePath(QStringLiteral("einstellungen.ini")); }

    // The file as another program or an older version may have left it.
    void schreibeDatei(const QByteArray &generalSection) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("[General]\n") + generalSection);
    }

    QByteArray dateiInhalt() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // The entries as they are in the file now. Read from the bytes, because QSettings objects
    // of one process share unsaved changes and would hide a missing flush.
    std::map<std::string, std::string> aufPlatte() const
    {
        std::map<std::string, std::string> entries;
        for (const QByteArray &line : dateiInhalt().split('\n')) {
            const qsizetype equals = line.indexOf('=');
            if (equals > 0)
                entries[line.left(equals).trimmed().toStdString()] = line.mid(equals + 1).trimmed().toStdString();
        }
        return entries;
    }

    std::string aufPlatte(const char *key) const
    {
        const auto entries = aufPlatte();
        const auto found = entries.find(key);
        return found == entries.end() ? "<missing>" : found->second;
    }

private:
    QTemporaryDir m_dir;
};

TEST_F(QBBenutzerEinstellungenTest, FirstStartWritesEveryDefaultUnderItsExactKeyThenLoadsThem)
{
    const auto settings = QBBenutzerEinstellungen::withSettingsFile(path());

    const std::map<std::string, std::string> expected = {
        {"datenbankWurdeNeuImportiert", "false"}, {"deaktiviereFaelligeRechnungsMitteilungen", "false"},
        {"zeigeErklaerungstexte", "true"},        {"zeitFormat24h", "false"},
        {"zeitFormatDezimal", "false"},           {"singleRecordModeActivated", "false"},
        {"calendarWeekModeActivated", "false"},   {"verwendeiCloudSync", "false"},
        {"versteckeArchivierteObjekte", "false"}, {"seperatorComma", "false"},
        {"pdfExportRevenue", "true"},             {"pdfExportNotes", "false"},
        {"pdfExportLayout", "0"},                 {"pdfDocumentSizeIsLetter", "false"},
        {"backgroundColor", "0"},                 {"backgroundColorRechnungen", "43"},
        {"startHelperAtLogin", "false"},          {"rechnungsNummernMigriert", "false"},
        {"anzahlAppStarts", "0"},                 {"appVersion", "1.3"},
        {"dokumentenNummerSequence", "0"},        {"daysToDisplayInNotificationCenter", "5"},
        {"mahnungZahlungsfristTage", "14"},
    };
    EXPECT_EQ(aufPlatte(), expected);

    EXPECT_TRUE(settings->zeigeErklaerungstexte());
    EXPECT_TRUE(settings->pdfExportRevenue());
    EXPECT_FALSE(settings->seperatorComma());
    EXPECT_TRUE(settings->seperatorSemikolon());
    EXPECT_EQ(text(settings->backgroundColorRechnungen()), "43");
    EXPECT_EQ(text(settings->daysToDisplayInNotificationCenter()), "5");
    EXPECT_EQ(settings->appVersion(), "1.3");
    EXPECT_EQ(settings->mahnungZahlungsfristTage(), 14);
}

TEST_F(QBBenutzerEinstellungenTest, StoreWithStartCounterIsLoadedWithFallbacksAndLeftUntouched)
{
    schreibeDatei("anzahlAppStarts=7\ndokumentenNummerSequence=12\nzeitFormat24h=true\n");
    const QByteArray before = dateiInhalt();

    const auto settings = QBBenutzerEinstellungen::withSettingsFile(path());

    EXPECT_EQ(settings->appVersion(), "1.3");
    EXPECT_EQ(text(settings->anzahlAppStarts()), "7");
    EXPECT_EQ(text(settings->dokumentenNummerSequence()), "12");
    EXPECT_TRUE(settings->zeitFormat24h());
    // Missing booleans read as false, even those whose first-start value is true.
    EXPECT_FALSE(settings->zeigeErklaerungstexte());
    EXPECT_EQ(text(settings->backgroundColorRechnungen()), "43");
    EXPECT_EQ(settings->mahnungZahlungsfristTage(), 14); // a file from before the setting existed
    EXPECT_EQ(dateiInhalt(), before);
}

TEST_F(QBBenutzerEinstellungenTest, DunningDaysAreAWholeNumberWithinTheirBounds)
{
    const struct {
        const char *gespeichert;
        int geladen;
    } faelle[] = {{"30", 30}, {"21.9", 21}, {"0", 0}, {"365", 365}, {"366", 365}, {"-3", 0}, {"1e3", 365},
                  {"zwei", 14}, {"NaN", 14}};
    for (const auto &fall : faelle) {
        schreibeDatei(QByteArray("anzahlAppStarts=1\nmahnungZahlungsfristTage=") + fall.gespeichert + '\n');
        EXPECT_EQ(QBBenutzerEinstellungen::withSettingsFile(path())->mahnungZahlungsfristTage(), fall.geladen)
            << fall.gespeichert;
    }
    const auto settings = QBBenutzerEinstellungen::withSettingsFile(path());
    const std::pair<int, int> gesetztGehalten[] = {{400, 365}, {-1, 0}, {7, 7}};
    for (const auto &[gesetzt, gehalten] : gesetztGehalten) {
        settings->setMahnungZahlungsfristTage(gesetzt);
        EXPECT_EQ(settings->mahnungZahlungsfristTage(), gehalten) << gesetzt;
    }
    settings->sichereBenutzerEinstellungen();
    EXPECT_EQ(aufPlatte("mahnungZahlungsfristTage"), "7");
}

TEST_F(QBBenutzerEinstellungenTest, OtherWritersShapesAreReadAndUnreadableEntriesFallBack)
{
    schreibeDatei("anzahlAppStarts=12.0\nbackgroundColor=4.3e1\ndaysToDisplayInNotificationCenter=\" 17 \"\n"
                  "startHelperAtLogin=1\npdfExportNotes=YES\nzeitFormat24h=2\n"
                  "backgroundColorRechnungen=rot\ndokumentenNummerSequence=1e999\npdfExportLayout=true\n"
                  "verwendeiCloudSync=vielleicht\nzeigeErklaerungstexte=\nappVersion=3, 13\n");

    const auto settings = QBBenutzerEinstellungen::withSettingsFile(path());

    EXPECT_EQ(text(settings->anzahlAppStarts()), "12");
    EXPECT_EQ(text(settings->backgroundColor()), "43");
    EXPECT_EQ(text(settings->daysToDisplayInNotificationCenter()), "17");
    EXPECT_TRUE(settings->startHelperAtLogin());
    EXPECT_TRUE(settings->pdfExportNotes());
    EXPECT_TRUE(settings->zeitFormat24h());

    EXPECT_EQ(text(settings->backgroundColorRechnungen()), "43");
    EXPECT_EQ(text(settings->dokumentenNummerSequence()), "0");
    EXPECT_EQ(text(settings->pdfExportLayout()), "0");
    EXPECT_FALSE(settings->verwendeiCloudSync());
    EXPECT_FALSE(settings->zeigeErklaerungstexte());
    EXPECT_EQ(settings->appVersion(), "1.3");
}

TEST_F(QBBenutzerEinstellungenTest, UnreadableStartCounterIsNoFirstStart)
{
    schreibeDatei("anzahlAppStarts=viele\n");
    const auto settings = QBBenutzerEinstellungen::withSettingsFile(path());
    EXPECT_EQ(text(settings->anzahlAppStarts()), "0");
    EXPECT_EQ(aufPlatte(), (std::map<std::string, std::string>{{"anzahlAppStarts", "viele"}}));
}

TEST_F(QBBenutzerEinstellungenTest, SettersNotifyOnlyOnChangeAndReachDiskOnlyWhenSaved)
{
    const auto settings = QBBenutzerEinstellungen::withSettingsFile(path());
    int zeitFormatSignals = 0;
    int farbeSignals = 0;
    QObject::connect(settings.get(), &QBBenutzerEinstellungen::zeitFormat24hChanged,
                     [&](bool) { ++zeitFormatSignals; });
    QObject::connect(settings.get(), &QBBenutzerEinstellungen::backgroundColorRechnungenChanged,
                     [&](const Decimal &) { ++farbeSignals; });

    settings->setZeitFormat24h(true);
    settings->setZeitFormat24h(true);
    settings->setBackgroundColorRechnungen(*Decimal::parse("43.00"));
    settings->setBackgroundColorRechnungen(12);
    EXPECT_EQ(zeitFormatSignals, 1);
    EXPECT_EQ(farbeSignals, 1);
    EXPECT_EQ(aufPlatte("zeitFormat24h"), "false");
    EXPECT_EQ(aufPlatte("backgroundColorRechnungen"), "43");

    settings->sichereBenutzerEinstellungen();
    EXPECT_EQ(aufPlatte("zeitFormat24h"), "true");
    EXPECT_EQ(aufPlatte("backgroundColorRechnungen"), "12");
}

TEST_F(QBBenutzerEinstellungenTest, SeparatorViewsNotifyEachOtherAndSemikolonSavesAtOnce)
{
    const auto settings = QBBenutzerEinstellungen::withSettingsFile(path());
    std::vector<bool> commaSeen;
    std::vector<bool> semikolonSeen;
    QObject::connect(settings.get(), &QBBenutzerEinstellungen::seperatorCommaChanged,
                     [&](bool value) { commaSeen.push_back(value); });
    QObject::connect(settings.get(), &QBBenutzerEinstellungen::seperatorSemikolonChanged,
                     [&](bool value) { semikolonSeen.push_back(value); });

    settings->setSeperatorSemikolon(false);
    EXPECT_TRUE(settings->seperatorComma());
    EXPECT_EQ(aufPlatte("seperatorComma"), "true");

    settings->setSeperatorSemikolon(true);
    EXPECT_FALSE(settings->seperatorComma());
    EXPECT_EQ(aufPlatte("seperatorComma"), "false");

    settings->setSeperatorComma(true); // the plain setter notifies both views but does not save
    EXPECT_FALSE(settings->seperatorSemikolon());
    EXPECT_EQ(aufPlatte("seperatorComma"), "false");

    EXPECT_EQ(commaSeen, (std::vector<bool>{true, false, true}));
    EXPECT_EQ(semikolonSeen, (std::vector<bool>{false, true, false}));
    EXPECT_EQ(aufPlatte("seperatorSemikolon"), "<missing>");
}

TEST_F(QBBenutzerEinstellungenTest, NeueDokumentenNummerCountsFromTheWholePartAndSavesEachStep)
{
    {
        const auto settings = QBBenutzerEinstellungen::withSettingsFile(path());
        EXPECT_EQ(text(settings->neueDokumentenNummer()), "1");
        EXPECT_EQ(text(settings->neueDokumentenNummer()), "2");
        EXPECT_EQ(aufPlatte("dokumentenNummerSequence"), "2");
    }
    EXPECT_EQ(text(QBBenutzerEinstellungen::withSettingsFile(path())->dokumentenNummerSequence()), "2");

    const auto settings = QBBenutzerEinstellungen::withSettingsFile(path());
    settings->setDokumentenNummerSequence(*Decimal::parse("7.9"));
    EXPECT_EQ(text(settings->neueDokumentenNummer()), "8");
    // The next number after the largest 32-bit value is computed in decimals, without wrapping.
    settings->setDokumentenNummerSequence(2147483647);
    EXPECT_EQ(text(settings->neueDokumentenNummer()), "2147483648");
    EXPECT_EQ(aufPlatte("dokumentenNummerSequence"), "2147483648");
}

TEST_F(QBBenutzerEinstellungenTest, SaveRoundTripsEveryStoredPropertyExactly)
{
    const auto written = QBBenutzerEinstellungen::withSettingsFile(path());
    const QMetaObject &meta = QBBenutzerEinstellungen::staticMetaObject;
    // 38 significant digits: a value that went through double would come back changed.
    const Decimal base = *Decimal::parse("1234567890123456789.0123456789012345678");
    std::map<QString, QVariant> values;
    int stored = 0;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        if (!property.isStored())
            continue;
        ++stored;
        QVariant value;
        if (property.metaType() == QMetaType::fromType<bool>())
            value = !property.read(written.get()).toBool();
        else if (property.metaType() == QMetaType::fromType<Decimal>())
            value = QVariant::fromValue(base + Decimal(i));
        else if (property.metaType() == QMetaType::fromType<int>())
            value = 300 + i;
        else
            value = QStringLiteral("3.13 (Build 7; \"beta\")");
        ASSERT_TRUE(property.write(written.get(), value)) << property.name();
        values[QString::fromLatin1(property.name())] = value;
    }
    EXPECT_EQ(stored, 23);
    written->sichereBenutzerEinstellungen();

    const auto read = QBBenutzerEinstellungen::withSettingsFile(path());
    for (const auto &[name, value] : values) {
        const QVariant loaded = read->property(name.toLatin1().constData());
        if (value.metaType() == QMetaType::fromType<Decimal>())
            EXPECT_EQ(text(loaded.value<Decimal>()), text(value.value<Decimal>())) << name.toStdString();
        else
            EXPECT_EQ(loaded, value) << name.toStdString();
    }
}

TEST(QBBenutzerEinstellungenShared, ConcurrentFirstCallsShareOneObjectOnTheMainThread)
{
    constexpr int kThreads = 8;
    std::vector<QBBenutzerEinstellungen *> seen(kThreads, nullptr);
    std::latch start(kThreads);
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            seen[i] = QBBenutzerEinstellungen::sharedInstance();
        });
    }
    for (std::thread &thread : threads)
        thread.join();

    QBBenutzerEinstellungen *const shared = QBBenutzerEinstellungen::sharedInstance();
    ASSERT_NE(shared, nullptr);
    for (QBBenutzerEinstellungen *each : seen)
        EXPECT_EQ(each, shared);
    EXPECT_EQ(shared->thread(), QThread::currentThread());
    const QString expectedFile =
        qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/Velmora/Velmora-Rechnungen.conf");
    EXPECT_EQ(shared->settingsFilePath(), expectedFile);
    QFile file(expectedFile);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("\nbackgroundColorRechnungen=43\n"));
}

} // namespace
