#include "QBBenutzerEinstellungen.h"

#include <QFile>
#include <QMetaProperty>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

#include <latch>
#include <map>
#include <thread>
#include <vector>

namespace {
using Eintraege = std::map<std::string, std::string>;

class QBBenutzerEinstellungenTest : public ::testing::Test
{
protected:
    QString path() const { return m_dir.filePath(QStringLiteral("einstellungen.ini")); }
    std::unique_ptr<QBBenutzerEinstellungen> laden() const { return QBBenutzerEinstellungen::withSettingsFile(path()); }

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
    // Read from the bytes, because QSettings objects of one process share unsaved changes and
    // would hide a missing flush.
    Eintraege aufPlatte() const
    {
        Eintraege entries;
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

std::string wert(const QObject &settings, const char *name)
{
    const QVariant v = settings.property(name);
    return v.metaType() == QMetaType::fromType<Decimal>() ? v.value<Decimal>().toString() : v.toString().toStdString();
}

TEST_F(QBBenutzerEinstellungenTest, FirstStartWritesEveryDefaultUnderItsExactKeyThenLoadsThem)
{
    const auto settings = laden();
    const Eintraege expected = {
        {"datenbankWurdeNeuImportiert", "false"}, {"deaktiviereFaelligeRechnungsMitteilungen", "false"},
        {"zeigeErklaerungstexte", "true"}, {"zeitFormat24h", "false"}, {"zeitFormatDezimal", "false"},
        {"singleRecordModeActivated", "false"}, {"calendarWeekModeActivated", "false"}, {"verwendeiCloudSync", "false"},
        {"versteckeArchivierteObjekte", "false"}, {"seperatorComma", "false"}, {"pdfExportRevenue", "true"},
        {"pdfExportNotes", "false"}, {"pdfExportLayout", "0"}, {"pdfDocumentSizeIsLetter", "false"},
        {"backgroundColor", "0"}, {"backgroundColorRechnungen", "43"}, {"startHelperAtLogin", "false"},
        {"rechnungsNummernMigriert", "false"}, {"anzahlAppStarts", "0"}, {"appVersion", "1.3"},
        {"dokumentenNummerSequence", "0"}, {"daysToDisplayInNotificationCenter", "5"}, {"mahnungZahlungsfristTage", "14"}};
    EXPECT_EQ(aufPlatte(), expected);
    for (const auto &[key, value] : expected)
        EXPECT_EQ(wert(*settings, key.c_str()), value) << key;
    EXPECT_TRUE(settings->seperatorSemikolon());
}

// A file with a start counter is no first start: it is read, never written, and whatever
// cannot be read falls back (booleans to false, even those whose first-start value is true).
TEST_F(QBBenutzerEinstellungenTest, ExistingFilesAreReadWithFallbacksAndLeftUntouched)
{
    const struct {
        const char *datei;
        Eintraege geladen;
    } faelle[] = {
        {"anzahlAppStarts=7\ndokumentenNummerSequence=12\nzeitFormat24h=true\n",
         {{"appVersion", "1.3"}, {"anzahlAppStarts", "7"}, {"dokumentenNummerSequence", "12"}, {"zeitFormat24h", "true"},
          {"zeigeErklaerungstexte", "false"}, {"backgroundColorRechnungen", "43"}, {"mahnungZahlungsfristTage", "14"}}},
        {"anzahlAppStarts=viele\n", {{"anzahlAppStarts", "0"}}},
        {"anzahlAppStarts=12.0\nbackgroundColor=4.3e1\ndaysToDisplayInNotificationCenter=\" 17 \"\n"
         "startHelperAtLogin=1\npdfExportNotes=YES\nzeitFormat24h=2\nbackgroundColorRechnungen=rot\n"
         "dokumentenNummerSequence=1e999\npdfExportLayout=true\nverwendeiCloudSync=vielleicht\n"
         "zeigeErklaerungstexte=\nappVersion=3, 13\n",
         {{"anzahlAppStarts", "12"}, {"backgroundColor", "43"}, {"daysToDisplayInNotificationCenter", "17"},
          {"startHelperAtLogin", "true"}, {"pdfExportNotes", "true"}, {"zeitFormat24h", "true"},
          {"backgroundColorRechnungen", "43"}, {"dokumentenNummerSequence", "0"}, {"pdfExportLayout", "0"},
          {"verwendeiCloudSync", "false"}, {"zeigeErklaerungstexte", "false"}, {"appVersion", "1.3"}}},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.datei);
        schreibeDatei(fall.datei);
        const QByteArray vorher = dateiInhalt();
        const auto settings = laden();
        for (const auto &[key, value] : fall.geladen)
            EXPECT_EQ(wert(*settings, key.c_str()), value) << key;
        EXPECT_EQ(dateiInhalt(), vorher);
    }
    // Dunning days are a whole number from 0 to 365.
    const std::pair<const char *, int> tage[] = {{"30", 30}, {"21.9", 21}, {"0", 0}, {"365", 365}, {"366", 365},
                                                  {"-3", 0}, {"1e3", 365}, {"zwei", 14}, {"NaN", 14}};
    for (const auto &[gespeichert, geladen] : tage) {
        schreibeDatei(QByteArray("anzahlAppStarts=1\nmahnungZahlungsfristTage=") + gespeichert + '\n');
        EXPECT_EQ(laden()->mahnungZahlungsfristTage(), geladen) << gespeichert;
    }
}

TEST_F(QBBenutzerEinstellungenTest, SettersNotifyOnlyOnChangeAndReachDiskOnlyWhenSaved)
{
    const auto settings = laden();
    int zeitFormatSignals = 0, farbeSignals = 0;
    QObject::connect(settings.get(), &QBBenutzerEinstellungen::zeitFormat24hChanged, [&](bool) { ++zeitFormatSignals; });
    QObject::connect(settings.get(), &QBBenutzerEinstellungen::backgroundColorRechnungenChanged,
                     [&](const Decimal &) { ++farbeSignals; });
    settings->setZeitFormat24h(true);
    settings->setZeitFormat24h(true);
    settings->setBackgroundColorRechnungen(*Decimal::parse("43.00"));
    settings->setBackgroundColorRechnungen(12);
    EXPECT_EQ(zeitFormatSignals, 1);
    EXPECT_EQ(farbeSignals, 1);
    const std::pair<int, int> gesetztGehalten[] = {{400, 365}, {-1, 0}, {7, 7}};
    for (const auto &[gesetzt, gehalten] : gesetztGehalten) {
        settings->setMahnungZahlungsfristTage(gesetzt);
        EXPECT_EQ(settings->mahnungZahlungsfristTage(), gehalten) << gesetzt;
    }
    EXPECT_EQ(aufPlatte("zeitFormat24h"), "false");
    EXPECT_EQ(aufPlatte("backgroundColorRechnungen"), "43");
    EXPECT_EQ(aufPlatte("mahnungZahlungsfristTage"), "14");
    settings->sichereBenutzerEinstellungen();
    EXPECT_EQ(aufPlatte("zeitFormat24h"), "true");
    EXPECT_EQ(aufPlatte("backgroundColorRechnungen"), "12");
    EXPECT_EQ(aufPlatte("mahnungZahlungsfristTage"), "7");
}

TEST_F(QBBenutzerEinstellungenTest, SeparatorViewsNotifyEachOtherAndSemikolonSavesAtOnce)
{
    const auto settings = laden();
    std::vector<bool> commaSeen, semikolonSeen;
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
        const auto settings = laden();
        EXPECT_EQ(settings->neueDokumentenNummer().toString(), "1");
        EXPECT_EQ(settings->neueDokumentenNummer().toString(), "2");
        EXPECT_EQ(aufPlatte("dokumentenNummerSequence"), "2");
    }
    const auto settings = laden();
    EXPECT_EQ(settings->dokumentenNummerSequence().toString(), "2");
    settings->setDokumentenNummerSequence(*Decimal::parse("7.9"));
    EXPECT_EQ(settings->neueDokumentenNummer().toString(), "8");
    // Computed in decimals: no wrap after the largest 32-bit value.
    settings->setDokumentenNummerSequence(2147483647);
    EXPECT_EQ(settings->neueDokumentenNummer().toString(), "2147483648");
    EXPECT_EQ(aufPlatte("dokumentenNummerSequence"), "2147483648");
}

TEST_F(QBBenutzerEinstellungenTest, SaveRoundTripsEveryStoredPropertyExactly)
{
    const auto written = laden();
    const QMetaObject &meta = QBBenutzerEinstellungen::staticMetaObject;
    // 38 significant digits: a value that went through double would come back changed.
    const Decimal base = *Decimal::parse("1234567890123456789.0123456789012345678");
    std::map<const char *, std::string> values;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        if (!property.isStored())
            continue;
        QVariant value = QStringLiteral("3.13 (Build 7; \"beta\")");
        if (property.metaType() == QMetaType::fromType<bool>())
            value = !property.read(written.get()).toBool();
        else if (property.metaType() == QMetaType::fromType<Decimal>())
            value = QVariant::fromValue(base + Decimal(i));
        else if (property.metaType() == QMetaType::fromType<int>())
            value = 300 + i;
        ASSERT_TRUE(property.write(written.get(), value)) << property.name();
        values[property.name()] = wert(*written, property.name());
    }
    EXPECT_EQ(values.size(), 23u);
    written->sichereBenutzerEinstellungen();
    const auto read = laden();
    for (const auto &[name, value] : values)
        EXPECT_EQ(wert(*read, name), value) << name;
}

TEST(QBBenutzerEinstellungenShared, ConcurrentFirstCallsShareOneObjectOnTheMainThread)
{
    constexpr int kThreads = 8;
    std::vector<QBBenutzerEinstellungen *> seen(kThreads, nullptr);
    std::latch start(kThreads);
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            seen[i] = QBBenutzerEinstellungen::sharedInstance();
        });
    for (std::thread &thread : threads)
        thread.join();
    QBBenutzerEinstellungen *const shared = QBBenutzerEinstellungen::sharedInstance();
    ASSERT_NE(shared, nullptr);
    EXPECT_EQ(seen, std::vector<QBBenutzerEinstellungen *>(kThreads, shared));
    EXPECT_EQ(shared->thread(), QThread::currentThread());
    const QString expectedFile = qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/Velmora/Velmora-Rechnungen.conf");
    EXPECT_EQ(shared->settingsFilePath(), expectedFile);
    QFile file(expectedFile);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("\nbackgroundColorRechnungen=43\n"));
}
} // namespace
