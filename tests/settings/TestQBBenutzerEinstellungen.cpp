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
        for (const QByteArray &line : dateiInhalt().split('\n'))
            if (const qsizetype equals = line.indexOf('='); equals > 0)
                entries[line.left(equals).trimmed().toStdString()] = line.mid(equals + 1).trimmed().toStdString();
        return entries;
    }

private:
    QTemporaryDir m_dir;
};

std::string wert(const QObject &settings, const char *name)
{
    const QVariant v = settings.property(name);
    return v.metaType() == QMetaType::fromType<Decimal>() ? v.value<Decimal>().toString() : v.toString().toStdString();
}

TEST_F(QBBenutzerEinstellungenTest, FirstStartWritesEveryDefaultUnderItsExactKey)
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
        {"dokumentenNummerSequence", "0"}, {"daysToDisplayInNotificationCenter", "5"}, {"mahnungZahlungsfristTage", "14"},
        {"syncServerAdresse", ""}};
    EXPECT_EQ(aufPlatte(), expected);
}

// A file with a start counter is no first start: it is read, never written, and whatever
// cannot be read falls back (booleans to false, even those whose first-start value is true).
TEST_F(QBBenutzerEinstellungenTest, ExistingFilesAreReadWithFallbacksAndLeftUntouched)
{
    const struct { const char *datei; Eintraege geladen; } faelle[] = {
        {"anzahlAppStarts=7\nzeitFormat24h=true\n", {{"anzahlAppStarts", "7"}, {"zeitFormat24h", "true"},
          {"zeigeErklaerungstexte", "false"}, {"backgroundColorRechnungen", "43"}, {"mahnungZahlungsfristTage", "14"}}},
        {"anzahlAppStarts=12.0\nbackgroundColor=4.3e1\ndaysToDisplayInNotificationCenter=\" 17 \"\nstartHelperAtLogin=1\n"
         "backgroundColorRechnungen=rot\ndokumentenNummerSequence=1e999\nverwendeiCloudSync=vielleicht\n",
         {{"anzahlAppStarts", "12"}, {"backgroundColor", "43"}, {"daysToDisplayInNotificationCenter", "17"},
          {"startHelperAtLogin", "true"}, {"backgroundColorRechnungen", "43"}, {"dokumentenNummerSequence", "0"},
          {"verwendeiCloudSync", "false"}}},
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
    const std::pair<const char *, int> tage[] = {{"21.9", 21}, {"365", 365}, {"366", 365}, {"-3", 0}, {"zwei", 14}};
    for (const auto &[gespeichert, geladen] : tage) {
        schreibeDatei(QByteArray("anzahlAppStarts=1\nmahnungZahlungsfristTage=") + gespeichert + '\n');
        EXPECT_EQ(laden()->mahnungZahlungsfristTage(), geladen) << gespeichert;
    }
}

// Dunning days set in the window are held to 0..365; the separator choice is saved at once.
TEST_F(QBBenutzerEinstellungenTest, SettersHoldDunningDaysInRangeAndSaveTheSeparatorAtOnce)
{
    const auto settings = laden();
    for (const auto &[gesetzt, gehalten] : {std::pair{400, 365}, {-1, 0}, {7, 7}}) {
        settings->setMahnungZahlungsfristTage(gesetzt);
        EXPECT_EQ(settings->mahnungZahlungsfristTage(), gehalten) << gesetzt;
    }
    settings->setSeperatorSemikolon(false);
    EXPECT_TRUE(settings->seperatorComma());
    EXPECT_EQ(aufPlatte()["seperatorComma"], "true");
}

TEST_F(QBBenutzerEinstellungenTest, NeueDokumentenNummerCountsOnAndSavesEachStep)
{
    EXPECT_EQ(laden()->neueDokumentenNummer().toString(), "1");
    const auto settings = laden();
    EXPECT_EQ(settings->neueDokumentenNummer().toString(), "2");
    settings->setDokumentenNummerSequence(2147483647); // decimals: no wrap after 32 bits
    EXPECT_EQ(settings->neueDokumentenNummer().toString(), "2147483648");
    EXPECT_EQ(aufPlatte()["dokumentenNummerSequence"], "2147483648");
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
    EXPECT_EQ(values.size(), 24u);
    written->sichereBenutzerEinstellungen();
    const auto read = laden();
    for (const auto &[name, value] : values)
        EXPECT_EQ(wert(*read, name), value) << name;
}

TEST(QBBenutzerEinstellungenShared, ConcurrentFirstCallsShareOneObjectOnTheMainThread)
{
    std::vector<QBBenutzerEinstellungen *> seen(8, nullptr);
    std::latch start(8);
    std::vector<std::thread> threads;
    for (auto &slot : seen)
        threads.emplace_back([&] { start.arrive_and_wait(), slot = QBBenutzerEinstellungen::sharedInstance(); });
    for (std::thread &thread : threads)
        thread.join();
    QBBenutzerEinstellungen *const shared = QBBenutzerEinstellungen::sharedInstance();
    EXPECT_EQ(seen, std::vector<QBBenutzerEinstellungen *>(8, shared));
    EXPECT_EQ(shared->thread(), QThread::currentThread());
    EXPECT_EQ(shared->settingsFilePath(),
              qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/Velmora/Velmora-Rechnungen.conf"));
}
} // namespace
