// The record database on a real server: records with their fields and assets, the errors a batch
// gives item by item, the change feed (paged, restartable, exact under concurrent writers), and
// users of one server kept apart.
#include "TestServer.h"

#include <QMutex>
#include <QSet>

#include <atomic>
#include <random>
#include <thread>

namespace {

using namespace Qt::Literals::StringLiterals;
using testserver::kZone;
using testserver::knoten;

QStringList namen(const QList<Record> &records)
{
    QStringList liste;
    for (const Record &r : records)
        liste << r.name();
    return liste;
}

// Every page of the feed after `token`; the token is moved on.
RecordZoneChanges alleSeiten(RecordDatabase &db, std::optional<RecordChangeToken> &token, int limit, int *seiten = nullptr)
{
    RecordZoneChanges alle;
    for (bool weiter = true; weiter;) {
        const auto seite = db.fetchZoneChanges(kZone, token, {u"path"_s}, limit);
        EXPECT_FALSE(seite.error) << seite.error->message().toStdString();
        if (seite.error)
            break;
        alle.changed += seite.value.changed;
        alle.deleted += seite.value.deleted;
        token = seite.value.token;
        weiter = seite.value.moreComing;
        seiten && ++*seiten;
    }
    return alle;
}

class RecordDatabaseTest : public ::testing::Test
{
protected:
    void SetUp() override { testserver::leereZone(db, kZone); }

    RecordDatabase db{testserver::nutzer("alice")};
};

TEST_F(RecordDatabaseTest, RecordsKeepEveryFieldAndBatchesFailItemByItem)
{
    const QByteArray daten = QByteArray(1 << 20, '\0') + "\x01\xff%PDF";
    const auto gespeichert = db.saveRecords(kZone, {knoten(u"/a"_s, Q_INT64_C(9007199254740993), daten), knoten(u"/d"_s)});
    ASSERT_FALSE(gespeichert.error) << gespeichert.error->message().toStdString();

    const auto gelesen = db.fetchRecords(kZone, {u"CDEFileSystemNode_/a"_s, u"CDEFileSystemNode_/fehlt"_s});
    ASSERT_EQ(gelesen.value.size(), 1);
    const Record &a = gelesen.value.first();
    EXPECT_EQ(a.asset(u"data"_s)->bytes, daten);
    EXPECT_EQ(a.number(u"fileSize"_s), Q_INT64_C(9007199254740993));
    EXPECT_EQ(a.reference(u"directory"_s)->recordName, u"CDEFileSystemNode_/"_s);
    EXPECT_EQ(a.changeTag(), gespeichert.value.first().changeTag());
    ASSERT_TRUE(gelesen.error && gelesen.error->onlyIncludesErrorCode(RecordError::UnknownItem));
    EXPECT_EQ(db.fetchRecords(kZone, {a.name()}, {u"path"_s}).value.first().fields().keys(), QStringList{u"path"_s});

    // A new record whose name is taken, or a change from a state the server no longer has: 14;
    // the good items of the batch are saved all the same.
    Record aktuell = a;
    aktuell.set(u"path"_s, u"/z"_s);
    const auto neuerStand = db.saveRecords(kZone, {aktuell});
    ASSERT_FALSE(neuerStand.error);
    const auto konflikt = db.saveRecords(kZone, {knoten(u"/d"_s), a, knoten(u"/neu"_s)});
    EXPECT_EQ(namen(konflikt.value), QStringList{u"CDEFileSystemNode_/neu"_s});
    ASSERT_TRUE(konflikt.error && konflikt.error->onlyIncludesErrorCode(RecordError::ServerRecordChanged));
    EXPECT_EQ(konflikt.error->itemErrors().size(), 2);

    const auto kinder = db.queryRecords(kZone, {u"CDEFileSystemNode"_s, u"directory"_s, u"CDEFileSystemNode_/"_s, u"path"_s, {}});
    EXPECT_EQ(namen(kinder.value), (QStringList{u"CDEFileSystemNode_/d"_s, u"CDEFileSystemNode_/neu"_s, u"CDEFileSystemNode_/a"_s}));
    EXPECT_EQ(kinder.value.last().changeTag(), neuerStand.value.first().changeTag()) << "a query's records can be saved again";
    const auto geloescht = db.deleteRecords(kZone, {u"CDEFileSystemNode_/d"_s, u"CDEFileSystemNode_/fehlt"_s});
    EXPECT_EQ(geloescht.value, QStringList{u"CDEFileSystemNode_/d"_s});
    EXPECT_TRUE(geloescht.error && geloescht.error->onlyIncludesErrorCode(RecordError::UnknownItem));

    const RecordZoneID fehlt{u"fehlt"_s};
    EXPECT_EQ(db.fetchZone(fehlt)->code(), RecordError::ZoneNotFound);
    EXPECT_EQ(db.saveRecords(fehlt, {knoten(u"/x"_s)}).error->code(), RecordError::ZoneNotFound);
    EXPECT_EQ(db.fetchZoneChanges(fehlt, std::nullopt).error->code(), RecordError::ZoneNotFound);
}

TEST_F(RecordDatabaseTest, TheFeedPagesByWholeSavesRestartsFromItsTokenAndEndsWithTheZone)
{
    QList<Record> stapel;
    for (int i = 0; i < 5; ++i)
        stapel << knoten(u"/stapel/%1"_s.arg(i));
    ASSERT_FALSE(db.saveRecords(kZone, stapel).error);
    for (int i = 0; i < 3; ++i)
        ASSERT_FALSE(db.saveRecords(kZone, {knoten(u"/einzeln/%1"_s.arg(i))}).error);
    ASSERT_FALSE(db.deleteRecords(kZone, {u"CDEFileSystemNode_/einzeln/0"_s}).error);

    // Pages of 3: the batch of 5 comes whole, then the rest.
    std::optional<RecordChangeToken> token;
    int seiten = 0;
    const RecordZoneChanges alle = alleSeiten(db, token, 3, &seiten);
    EXPECT_EQ(seiten, 2);
    EXPECT_EQ(alle.changed.size(), 7);
    EXPECT_EQ(alle.deleted, QStringList{u"CDEFileSystemNode_/einzeln/0"_s});
    EXPECT_EQ(alle.changed.first().fields().keys(), QStringList{u"path"_s});

    // From the kept token: nothing twice, then only what came since.
    EXPECT_TRUE(alleSeiten(db, token, 3).changed.isEmpty());
    ASSERT_FALSE(db.saveRecords(kZone, {knoten(u"/danach"_s)}).error);
    EXPECT_EQ(namen(alleSeiten(db, token, 3).changed), QStringList{u"CDEFileSystemNode_/danach"_s});
    ASSERT_TRUE(RecordChangeToken::fromBytes(token->toBytes()) == token);
    // Assets come with the feed when asked for, and only the fields asked for.
    const auto gespeichert = db.saveRecords(kZone, {knoten(u"/mit-daten"_s, 3, "abc")});
    const auto mitDaten = db.fetchZoneChanges(kZone, token, {u"data"_s});
    ASSERT_EQ(mitDaten.value.changed.size(), 1);
    EXPECT_EQ(mitDaten.value.changed.first().changeTag(), gespeichert.value.first().changeTag());
    EXPECT_EQ(mitDaten.value.changed.first().fields(), (QMap<QString, RecordValue>{{u"data"_s, RecordAsset{"abc"}}}));

    // The zone made anew: the old token is void.
    testserver::leereZone(db, kZone);
    EXPECT_EQ(db.fetchZoneChanges(kZone, token).error->code(), RecordError::UserDeletedZone);
    EXPECT_EQ(db.fetchZoneChanges(kZone, RecordChangeToken{token->generation + 1000, 0}).error->code(), RecordError::UserDeletedZone);
}

// Writers on their own connections save batches at random moments, each save pausing for a random
// while after it took its place in the feed (a trigger on the server), while a reader follows the
// feed in small pages: every record reaches the reader exactly once.
TEST_F(RecordDatabaseTest, ConcurrentWritersNeverHideARecordFromTheFeed)
{
    PostgresConnection admin("");
    ASSERT_TRUE(admin.connect(nullptr));
    admin.exec("CREATE OR REPLACE FUNCTION zoegern() RETURNS trigger LANGUAGE plpgsql AS"
               " $$ BEGIN PERFORM pg_sleep(random() * 0.03); RETURN NEW; END $$");
    admin.exec("CREATE OR REPLACE TRIGGER zoegern BEFORE INSERT ON velmora_asset FOR EACH ROW EXECUTE FUNCTION zoegern()");
    constexpr int kSchreiber = 3, kJe = 40;
    std::atomic<int> fertig = 0;
    std::vector<std::thread> schreiber;
    for (int s = 0; s < kSchreiber; ++s) {
        schreiber.emplace_back([s, &fertig] {
            RecordDatabase eigene(testserver::nutzer("alice"));
            std::mt19937 zufall(s);
            for (int i = 0; i < kJe;) {
                QList<Record> stapel;
                for (int n = int(zufall() % 5) + 1; n > 0 && i < kJe; --n, ++i)
                    stapel << knoten(u"/s%1/%2"_s.arg(s).arg(i), 1 + zufall() % 300000, QByteArray(int(zufall() % 3000), 'x'));
                EXPECT_FALSE(eigene.saveRecords(kZone, stapel).error);
                std::this_thread::sleep_for(std::chrono::milliseconds(zufall() % 20));
            }
            ++fertig;
        });
    }
    QStringList gesehen;
    std::optional<RecordChangeToken> token;
    for (bool letzteRunde = false; !letzteRunde;) {
        letzteRunde = fertig == kSchreiber;
        gesehen += namen(alleSeiten(db, token, 7).changed);
    }
    for (std::thread &t : schreiber)
        t.join();
    EXPECT_EQ(gesehen.size(), kSchreiber * kJe);
    EXPECT_EQ(QSet<QString>(gesehen.cbegin(), gesehen.cend()).size(), kSchreiber * kJe) << "a record came twice";
    admin.exec("DROP TRIGGER zoegern ON velmora_asset");
}

TEST_F(RecordDatabaseTest, UsersOfOneServerSeeOnlyTheirOwnZonesAndRecords)
{
    RecordDatabase bob(testserver::nutzer("bob"));
    testserver::leereZone(bob, kZone);
    ASSERT_FALSE(db.saveRecords(kZone, {knoten(u"/alice"_s)}).error);
    ASSERT_FALSE(bob.saveRecords(kZone, {knoten(u"/bob"_s)}).error);

    std::optional<RecordChangeToken> token;
    EXPECT_EQ(namen(alleSeiten(bob, token, 10).changed), QStringList{u"CDEFileSystemNode_/bob"_s});
    EXPECT_TRUE(bob.fetchRecords(kZone, {u"CDEFileSystemNode_/alice"_s}).error->onlyIncludesErrorCode(RecordError::UnknownItem));
    EXPECT_TRUE(bob.deleteRecords(kZone, {u"CDEFileSystemNode_/alice"_s}).error->onlyIncludesErrorCode(RecordError::UnknownItem));
    EXPECT_EQ(db.countRecords(kZone).value, 1);
    EXPECT_EQ(bob.userName().value, u"bob"_s);
}

} // namespace
