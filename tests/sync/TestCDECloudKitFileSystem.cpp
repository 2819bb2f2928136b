// The cloud file system between two machines of one user on a real server: files one uploads the
// other lists, reads and is told of; the cache survives a restart and is made anew when its file
// or its token is no good; repairs; no server, no connection.
#include "TestServer.h"

#include "CDECloudKitFileSystem.h"
#include "DateisystemPruefung.h"
#include "harness/DateiGroessenGrenze.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace dateisystem;
using harness::warteBis;

class FileSystemTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        RecordDatabase db(uri);
        db.deleteZone({CDECloudKitSchema::recordZoneName(2)});
        db.deleteZone({CDECloudKitSchema::recordZoneName(1)});
    }
    std::unique_ptr<CDECloudKitFileSystem> maschine(const QString &cache, int schema = 2)
    {
        return std::make_unique<CDECloudKitFileSystem>(u"velmora.test"_s, schema, uri, ordner.filePath(cache));
    }
    QString lokal(const QString &name, const QByteArray &inhalt)
    {
        QFile datei(ordner.filePath(name));
        EXPECT_TRUE(datei.open(QIODevice::WriteOnly) && datei.write(inhalt) == inhalt.size());
        return datei.fileName();
    }

    const QByteArray uri = testserver::nutzer("alice");
    QTemporaryDir ordner;
};

TEST_F(FileSystemTest, TwoMachinesSeeEachOthersFilesInBatchesOfThirty)
{
    auto a = maschine(u"a"_s), b = maschine(u"b"_s);
    int geweckt = 0;
    QObject::connect(b.get(), &CDECloudKitFileSystem::pushNotificationReceived, [&] { ++geweckt; });
    ASSERT_FALSE(fertig([&](auto c) { b->subscribeForPushNotificationsWithCompletion(c); }));
    ASSERT_TRUE(warteBis([&] { return geweckt == 1; })) << "the listener connects and asks to catch up";

    ASSERT_FALSE(fertig([&](auto c) { a->createDirectoryAtPath(u"/logs"_s, c); }));
    QStringList dateien, pfade;
    for (int i = 0; i < 31; ++i)
        dateien << lokal(u"f%1"_s.arg(i), QByteArray(i * 100, char('a' + i % 26))), pfade << u"/logs/f%1"_s.arg(i);
    for (qsizetype ab = 0; ab < dateien.size(); ab += CDECloudKitFileSystem::fileUploadMaximumBatchSize) {
        const qsizetype n = CDECloudKitFileSystem::fileUploadMaximumBatchSize;
        ASSERT_FALSE(fertig([&](auto c) { a->uploadLocalFiles(dateien.mid(ab, n), pfade.mid(ab, n), c); }));
    }
    ASSERT_TRUE(warteBis([&] { return geweckt >= 2; }, 1000)) << "no push within a second";
    // Uploaded a moment ago by another machine: taken as done.
    EXPECT_FALSE(fertig([&](auto c) { b->uploadLocalFiles({dateien[3]}, {pfade[3]}, c); }));

    ASSERT_FALSE(fertig([&](auto c) { b->primeForActivityWithCompletion(c); }));
    const QStringList logs = liste(*b, u"/logs"_s);
    ASSERT_EQ(logs.size(), 31);
    EXPECT_TRUE(logs.contains(u"f7:700"_s));
    EXPECT_EQ(liste(*b, u"/"_s), QStringList{u"logs:dir"_s});
    EXPECT_EQ(liste(*b, u"/unbekannt"_s), QStringList{u"108"_s});
    const std::pair<QString, QString> fragen[] = {{u"/logs/f3"_s, u"datei"_s}, {u"/logs"_s, u"ordner"_s}, {u"/nie"_s, u"nein"_s}};
    for (const auto &[pfad, antwort] : fragen)
        EXPECT_EQ(gibtEs(*b, pfad), antwort) << pfad.toStdString();

    const QStringList ziele{ordner.filePath(u"r5"_s), ordner.filePath(u"r9"_s)};
    ASSERT_FALSE(fertig([&](auto c) { b->downloadFromPaths({pfade[5], pfade[9]}, ziele, c); }));
    EXPECT_EQ(inhalt(ziele[1]), QByteArray(900, 'j'));
    EXPECT_TRUE(fertig([&](auto c) { b->downloadFromPaths({pfade[5]}, {ziele[0]}, c); })) << "the local file exists";

    // A directory goes with everything below it.
    ASSERT_FALSE(fertig([&](auto c) { a->removeItemsAtPaths({u"/logs"_s, u"/nie"_s}, c); }));
    ASSERT_FALSE(fertig([&](auto c) { b->primeForActivityWithCompletion(c); }));
    EXPECT_EQ(liste(*b, u"/"_s), QStringList{});
    EXPECT_EQ(gibtEs(*b, u"/logs/f1"_s), u"nein"_s);
}

TEST_F(FileSystemTest, TheCacheSurvivesARestartAndIsMadeAnewWhenItsFileOrTokenIsNoGood)
{
    auto a = maschine(u"a"_s);
    ASSERT_FALSE(fertig([&](auto c) { a->uploadLocalFiles({lokal(u"x"_s, "xx")}, {u"/x"_s}, c); }));
    ASSERT_FALSE(fertig([&](auto c) { a->primeForActivityWithCompletion(c); }));
    // Only a cache answers that a directory is unknown; the server just lists nothing.
    a = maschine(u"a"_s);
    EXPECT_EQ(liste(*a, u"/nirgends"_s), QStringList{u"108"_s});
    EXPECT_EQ(liste(*a, u"/"_s), QStringList{u"x:2"_s});

    const QString datei = a->cacheFilePath();
    a.reset();
    QFile fremd(datei);
    ASSERT_TRUE(fremd.open(QIODevice::WriteOnly) && fremd.write("VCKC but not a cache of ours") > 0);
    fremd.close();
    a = maschine(u"a"_s);
    EXPECT_FALSE(QFile::exists(datei)) << "a cache that cannot be read is deleted";
    EXPECT_EQ(liste(*a, u"/nirgends"_s), QStringList{});
    ASSERT_FALSE(fertig([&](auto c) { a->primeForActivityWithCompletion(c); }));

    // The zone made anew on the server: the old token is refused and the picture rebuilt.
    RecordDatabase db(uri);
    const RecordZoneID zone{CDECloudKitSchema::recordZoneName(2)};
    ASSERT_FALSE(db.deleteZone(zone));
    ASSERT_FALSE(db.saveZone(zone));
    ASSERT_FALSE(db.saveRecords(zone, QList<Record>{a->schema().createRootRecord()} + a->schema().fileRecords(u"/neu"_s, "n")).error);
    ASSERT_FALSE(fertig([&](auto c) { a->primeForActivityWithCompletion(c); }));
    EXPECT_EQ(liste(*a, u"/"_s), QStringList{u"neu:1"_s});

    ASSERT_FALSE(fertig([&](auto c) { a->removeAllItemsWithCompletion(c); }));
    EXPECT_EQ(db.countRecords(zone).value, 0);
}

// The server restarts while a batch of large files goes up: afterwards every file another machine
// lists is whole, and the batch can simply be sent again.
TEST_F(FileSystemTest, AServerRestartDuringAnUploadNeverLeavesHalfAFile)
{
    auto a = maschine(u"a"_s), b = maschine(u"b"_s);
    QStringList dateien, pfade;
    for (int i = 0; i < 30; ++i)
        dateien << lokal(u"g%1"_s.arg(i), QByteArray(2 << 20, char('A' + i))), pfade << u"/g%1"_s.arg(i);
    std::optional<Fehler> hoch;
    a->uploadLocalFiles(dateien, pfade, [&](Fehler fehler) { hoch = std::move(fehler); });
    ASSERT_TRUE(testserver::starteNeu());
    ASSERT_TRUE(warteBis([&] { return hoch.has_value(); }, 30000));
    EXPECT_TRUE(!*hoch || (*hoch)->retryable()) << (*hoch)->message().toStdString();

    const auto ganz = [&] {
        EXPECT_TRUE(warteBis([&] { return !fertig([&](auto c) { b->primeForActivityWithCompletion(c); }); }, 10000));
        for (const QString &zeile : liste(*b, u"/"_s))
            EXPECT_TRUE(zeile.endsWith(u":2097152"_s)) << zeile.toStdString();
    };
    ganz();
    if (*hoch) {
        ASSERT_FALSE(fertig([&](auto c) { a->uploadLocalFiles(dateien, pfade, c); }));
    }
    ganz();
    EXPECT_EQ(liste(*b, u"/"_s).size(), 30);

    // A disk that fills up while a file comes down: an error and no local file, never half of one.
    Fehler voll;
    {
        const harness::DateiGroessenGrenze grenze(1 << 20);
        voll = fertig([&](auto c) { b->downloadFromPaths({pfade[0]}, {ordner.filePath(u"voll"_s)}, c); });
    }
    EXPECT_TRUE(voll);
    EXPECT_FALSE(QFile::exists(ordner.filePath(u"voll"_s)));
}

TEST_F(FileSystemTest, AFileWhoseDataWentMissingIsRemovedWhenItIsRead)
{
    auto alt = maschine(u"alt"_s, 1);
    ASSERT_FALSE(fertig([&](auto c) { alt->uploadLocalFiles({lokal(u"d"_s, "daten")}, {u"/d"_s}, c); }));
    RecordDatabase db(uri);
    ASSERT_FALSE(db.deleteRecords({CDECloudKitSchema::recordZoneName(1)}, {u"DataFile_/d"_s}).error);
    const Fehler fehler = fertig([&](auto c) { alt->downloadFromPaths({u"/d"_s}, {ordner.filePath(u"d2"_s)}, c); });
    ASSERT_TRUE(fehler && fehler->onlyIncludesErrorCode(RecordError::UnknownItem));
    EXPECT_EQ(gibtEs(*alt, u"/d"_s), u"nein"_s);
}

TEST_F(FileSystemTest, WithoutAServerEveryOperationSaysThereIsNoConnection)
{
    for (const QByteArray &ohne : {QByteArray(), QByteArray("host=127.0.0.1 port=1 connect_timeout=1")}) {
        CDECloudKitFileSystem fs(u"velmora.test"_s, 2, ohne, ordner.filePath(u"ohne"_s));
        const Fehler fehler = fertig([&](auto c) { fs.primeForActivityWithCompletion(c); });
        ASSERT_TRUE(fehler);
        EXPECT_EQ(fehler->code(), RecordError::NoConnection);
        EXPECT_EQ(fehler->message(), u"No iCloud connection"_s);
        EXPECT_EQ(gibtEs(fs, u"/x"_s), u"1002"_s);
    }
}

} // namespace
