// The cloud file system against a local throwaway server (run it as
// "tests/sync/mit-server.sh build/bench/BenchSync"): 1,000 files of 10 KB up and down in batches
// of 30, priming an empty cache from 10,000 records, and the time from an upload on one machine
// to the push on another.

#include "CDECloudKitFileSystem.h"
#include "RecordDatabase.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int kDateien = 1000;
constexpr int kStapel = CDECloudKitFileSystem::fileUploadMaximumBatchSize;

const RecordZoneID kZone{CDECloudKitSchema::recordZoneName(2)};
// The throwaway server's database; the rest comes from the PG* variables of mit-server.sh.
const QByteArray kServer = "dbname=postgres";

void leereZone()
{
    RecordDatabase db("");
    db.deleteZone(kZone);
}

// Runs an operation and lets the event loop turn until its completion.
void warte(const std::function<void(CDECloudKitFileSystem::Completion)> &operation)
{
    bool fertig = false;
    operation([&](const std::optional<RecordError> &fehler) {
        if (fehler)
            qFatal("%s", qPrintable(fehler->message()));
        fertig = true;
    });
    while (!fertig)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

struct Dateien {
    QTemporaryDir ordner;
    QStringList lokal, pfade;
    Dateien()
    {
        for (int i = 0; i < kDateien; ++i) {
            QFile datei(ordner.filePath(u"f%1"_s.arg(i)));
            datei.open(QIODevice::WriteOnly);
            datei.write(QByteArray(10 * 1024, char('a' + i % 26)));
            lokal << datei.fileName();
            pfade << u"/f%1"_s.arg(i);
        }
    }
    void hochladen(CDECloudKitFileSystem &fs) const
    {
        for (int ab = 0; ab < kDateien; ab += kStapel)
            warte([&](auto c) { fs.uploadLocalFiles(lokal.mid(ab, kStapel), pfade.mid(ab, kStapel), c); });
    }
};

void BM_TausendDateienHochladen(benchmark::State &state)
{
    const Dateien dateien;
    for (auto _ : state) {
        state.PauseTiming();
        leereZone();
        QTemporaryDir cache;
        CDECloudKitFileSystem mitServer(u"bench"_s, 2, kServer, cache.path());
        warte([&](auto c) { mitServer.connect(c); });
        state.ResumeTiming();
        dateien.hochladen(mitServer);
    }
}
BENCHMARK(BM_TausendDateienHochladen)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_TausendDateienHerunterladen(benchmark::State &state)
{
    const Dateien dateien;
    leereZone();
    QTemporaryDir cache;
    CDECloudKitFileSystem fs(u"bench"_s, 2, kServer, cache.path());
    dateien.hochladen(fs);
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir ziel;
        QStringList lokal;
        for (int i = 0; i < kDateien; ++i)
            lokal << ziel.filePath(u"f%1"_s.arg(i));
        state.ResumeTiming();
        for (int ab = 0; ab < kDateien; ab += kStapel)
            warte([&](auto c) { fs.downloadFromPaths(dateien.pfade.mid(ab, kStapel), lokal.mid(ab, kStapel), c); });
    }
}
BENCHMARK(BM_TausendDateienHerunterladen)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_LeerenCacheAusZehntausendRecordsVorbereiten(benchmark::State &state)
{
    leereZone();
    {
        QTemporaryDir cache;
        CDECloudKitFileSystem fs(u"bench"_s, 2, kServer, cache.path());
        warte([&](auto c) { fs.connect(c); });
        RecordDatabase db("");
        for (int ab = 0; ab < 10000; ab += 500) {
            QList<Record> stapel;
            for (int i = ab; i < ab + 500; ++i)
                stapel << fs.schema().directoryRecord(u"/d%1"_s.arg(i));
            if (db.saveRecords(kZone, stapel).error)
                qFatal("cannot fill the zone");
        }
    }
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir cache;
        CDECloudKitFileSystem fs(u"bench"_s, 2, kServer, cache.path());
        warte([&](auto c) { fs.connect(c); });
        state.ResumeTiming();
        warte([&](auto c) { fs.primeForActivityWithCompletion(c); });
    }
}
BENCHMARK(BM_LeerenCacheAusZehntausendRecordsVorbereiten)->Unit(benchmark::kMillisecond)->Iterations(3);

// From the call that uploads one file on machine A to the push on machine B.
void BM_VomHochladenZumPush(benchmark::State &state)
{
    leereZone();
    QTemporaryDir cacheA, cacheB;
    CDECloudKitFileSystem a(u"bench"_s, 2, kServer, cacheA.path()), b(u"bench"_s, 2, kServer, cacheB.path());
    int geweckt = 0;
    QObject::connect(&b, &CDECloudKitFileSystem::pushNotificationReceived, [&] { ++geweckt; });
    warte([&](auto c) { b.subscribeForPushNotificationsWithCompletion(c); });
    while (geweckt == 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QFile datei(cacheA.filePath(u"eine"_s));
    datei.open(QIODevice::WriteOnly);
    datei.write("push");
    datei.close();
    int n = 0;
    for (auto _ : state) {
        const int vorher = geweckt;
        a.uploadLocalFiles({datei.fileName()}, {u"/push%1"_s.arg(++n)}, {});
        while (geweckt == vorher)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}
BENCHMARK(BM_VomHochladenZumPush)->Unit(benchmark::kMillisecond)->Iterations(20);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication anwendung(argc, argv);
    QTemporaryDir heim;
    qputenv("XDG_CACHE_HOME", heim.path().toUtf8());
    if (!RecordDatabase("").connect().value) {
        fprintf(stderr, "no server: run under tests/sync/mit-server.sh\n");
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
