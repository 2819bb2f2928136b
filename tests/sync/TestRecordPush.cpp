// Push between the user's machines: a file another machine creates wakes the listener within a
// second; directories and other users' files do not; after the server restarts the listener is
// back by itself.
#include "TestServer.h"

#include "RecordPushListener.h"
#include "harness/Prozesse.h"


#include <ctime>

namespace {

using testserver::kZone;
using testserver::knoten;
using harness::warteBis;
using namespace Qt::Literals::StringLiterals;

// Saved even if the first try finds the connection broken by a restart.
QString speichere(RecordDatabase &db, const Record &record)
{
    for (int versuch = 0; versuch < 3; ++versuch) {
        const auto ergebnis = db.saveRecords(kZone, {record});
        if (!ergebnis.error)
            return ergebnis.value.first().changeTag();
        EXPECT_TRUE(ergebnis.error->retryable()) << ergebnis.error->message().toStdString();
    }
    return {};
}

TEST(RecordPush, AnotherMachinesNewFileWakesTheListenerAlsoAfterTheServerRestarted)
{
    const RecordSubscription abo{u"CDEFileAddedSubscription"_s, u"CDEFileSystemNode"_s, u"fileSize"_s};
    RecordDatabase alice(testserver::nutzer("alice")), bob(testserver::nutzer("bob"));
    for (RecordDatabase *db : {&alice, &bob}) {
        testserver::leereZone(*db, kZone);
        ASSERT_FALSE(db->saveSubscription(kZone, abo));
    }

    RecordPushListener hoerer(testserver::nutzer("alice"));
    QObject kontext; // receives the listener's signals on this thread
    int verbunden = 0;
    QList<qint64> zaehler;
    QObject::connect(&hoerer, &RecordPushListener::connected, &kontext, [&] { ++verbunden; });
    QObject::connect(&hoerer, &RecordPushListener::notified, &kontext, [&](const QString &zone, qint64 zahl) {
        EXPECT_EQ(zone, kZone.zoneName);
        zaehler << zahl;
    });
    hoerer.start();
    ASSERT_TRUE(warteBis([&] { return verbunden == 1; }));
    // Waiting for news costs no processor time.
    const std::clock_t vorher = std::clock();
    harness::laufe(500);
    EXPECT_LT(std::clock() - vorher, CLOCKS_PER_SEC / 16) << "the listener is busy while nothing happens";

    speichere(bob, knoten(u"/von-bob"_s, 5, "bytes"));
    speichere(alice, knoten(u"/ordner"_s));
    const QString tag = speichere(alice, knoten(u"/datei"_s, 3, "abc"));
    ASSERT_TRUE(warteBis([&] { return !zaehler.isEmpty(); }, 1000));
    harness::laufe(300);
    EXPECT_EQ(zaehler, QList<qint64>{tag.toLongLong()});

    ASSERT_TRUE(testserver::starteNeu());
    ASSERT_TRUE(warteBis([&] { return verbunden == 2; }, 10000)) << "the listener did not come back";
    const QString danach = speichere(alice, knoten(u"/danach"_s, 1, "x"));
    ASSERT_TRUE(warteBis([&] { return zaehler.size() == 2; }, 1000));
    EXPECT_EQ(zaehler.last(), danach.toLongLong());
    hoerer.stop();
}

} // namespace
