// The start of a program with years of business in its store: 10,000 documents, each with its
// frozen PDF of about 20 KB, some 200 MB in all. Every start zips a backup of that store; the
// window must stay responsive meanwhile, so the backup runs on a worker thread and the main
// thread's heartbeat should never stall much longer than opening the store takes on its own.
//
//   BM_ZipStore/<level>            the store zipped once, at level 1 and at the default level
//   BM_StoreOhneSicherung          the store opened on the main thread, nothing else
//   BM_StartMitSicherung/edits:<0|1>  the delegate's start-up: backup started, store opened, while
//                                  a 2 ms heartbeat on the main thread records its longest gap;
//                                  with edits, a save every 100 ms while the archive is written
//   BM_PruefeSicherung             the first step of a restore or import of that store's backup:
//                                  unpacked within its bounds next to the store and opened there
//                                  as a store of ours (integrity check, every object read)

#include "FKRAlertPresenter.h"
#include "FKRAppDelegate.h"
#include "FKRDatensicherung.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "FKRStoreEinspielung.h"
#include "FKRZipArchiv.h"
#include "ManagedObjectContext.h"
#include "PersistentStoreCoordinator.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <zlib.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>

namespace {

constexpr int kDokumente = 10000;
constexpr int kPostenJeDokument = 5;
constexpr qsizetype kPdfGroesse = 20 * 1024;

// The bytes of a frozen PDF: object text that compresses well, then content and font streams
// that are deflated already.
QByteArray eingefrorenesPdf(int nummer, std::mt19937_64 &zufall)
{
    QByteArray pdf = "%PDF-1.4\n%\xe2\xe3\xcf\xd3\n";
    for (int objekt = 1; pdf.size() < 2500; ++objekt) {
        pdf += QByteArray::number(objekt) + " 0 obj\n<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595.28 841.89] "
               "/Resources << /Font << /F1 7 0 R >> >> /Contents " + QByteArray::number(objekt + 1)
               + " 0 R /Annots [] >>\nendobj\n% RE-" + QByteArray::number(nummer) + "\n";
    }
    pdf += "stream\n";
    while (pdf.size() < kPdfGroesse - 40) {
        const quint64 wert = zufall();
        pdf.append(reinterpret_cast<const char *>(&wert), sizeof wert);
    }
    pdf += "\nendstream\nendobj\n%%EOF\n";
    return pdf;
}

// The store, written once per run into a folder shaped like the program's data folder.
struct Bestand {
    QTemporaryDir wurzel;
    QString datenOrdner() const { return wurzel.filePath(QString::fromLatin1(FKRAppDelegate::kDatenOrdnerName)); }
    QString store() const { return datenOrdner() + QLatin1Char('/') + QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName); }
    QString sicherungen() const { return datenOrdner() + QStringLiteral("/dataBackups"); }
};

const Bestand &bestand()
{
    static const auto b = [] {
        auto neu = std::make_unique<Bestand>();
        QDir().mkpath(neu->sicherungen());
        PersistentStoreCoordinator coordinator;
        coordinator.addPersistentStore(neu->store());
        ManagedObjectContext moc(&coordinator);
        std::mt19937_64 zufall(42);
        for (int d = 0; d < kDokumente; ++d) {
            auto *r = moc.insertNewObject<FKRRechnung>();
            r->setRechnungsNummer(QStringLiteral("RE-%1").arg(d + 1, 5, 10, QLatin1Char('0')));
            r->setRechnungsText(QStringLiteral("Vielen Dank für Ihren Auftrag. Für die erbrachten Leistungen berechne ich:"));
            r->setVersandt(true);
            r->setBinaryPDF(eingefrorenesPdf(d, zufall));
            for (int p = 0; p < kPostenJeDokument; ++p) {
                auto *posten = moc.insertNewObject<FKRPosten>();
                posten->setPostenNummer(p + 1);
                posten->setPostenBezeichnung(QStringLiteral("Beratung und Umsetzung, Phase %1").arg(p + 1));
                posten->setAnzahl(Decimal(p + 1));
                r->addPostenObject(posten);
            }
        }
        moc.save();
        return neu;
    }();
    return *b;
}

void leereSicherungen()
{
    QDir ordner(bestand().sicherungen());
    for (const QString &name : ordner.entryList(QDir::Files | QDir::Hidden))
        ordner.remove(name);
}

void BM_ZipStore(benchmark::State &state)
{
    const QString store = bestand().store();
    const QString archiv = bestand().wurzel.filePath(QStringLiteral("baseline.fks"));
    const int stufe = int(state.range(0));
    for (auto _ : state) {
        QString fehler;
        if (!FKRZipArchiv::erstelle(archiv, {{store, QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName)}}, &fehler, stufe))
            state.SkipWithError(fehler.toUtf8().constData());
    }
    const double storeMb = double(QFileInfo(store).size()) / 1e6;
    state.counters["store_MB"] = storeMb;
    state.counters["archive_MB"] = double(QFileInfo(archiv).size()) / 1e6;
    state.counters["MB_per_s"] = benchmark::Counter(storeMb * double(state.iterations()), benchmark::Counter::kIsRate);
    QFile::remove(archiv);
}

// The main thread's pulse: a timer every 2 ms that remembers the longest time between two beats.
class Herzschlag
{
public:
    Herzschlag()
    {
        m_timer.setInterval(2);
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            m_laengste = std::max(m_laengste, m_uhr.restart());
        });
        m_uhr.start();
        m_timer.start();
    }
    qint64 laengsteLueckeMs() const { return std::max(m_laengste, m_uhr.elapsed()); }
    void neuBeginnen()
    {
        m_laengste = 0;
        m_uhr.restart();
    }

private:
    QTimer m_timer;
    QElapsedTimer m_uhr;
    qint64 m_laengste = 0;
};

class StillerPresenter : public FKRAlertPresenter
{
public:
    QList<FKRAlert> alerts;
    int zeigeAlert(const FKRAlert &alert) override
    {
        alerts.append(alert);
        return kErsterKnopf;
    }
    bool praesentiereFehler(const FKRAnwendungsFehler &) override { return false; }
    QStringList waehleDateien(const QString &, const QString &, const QString &, const DateiFilter &) override { return {}; }
    QString waehleSpeicherOrt(const QString &, const QString &, const QString &, const QString &) override
    {
        return {};
    }
};

void BM_StoreOhneSicherung(benchmark::State &state)
{
    const QString store = bestand().store();
    for (auto _ : state) {
        auto coordinator = std::make_unique<PersistentStoreCoordinator>();
        coordinator->addPersistentStore(store);
        auto moc = std::make_unique<ManagedObjectContext>(coordinator.get());
        benchmark::DoNotOptimize(moc->fetch<FKRRechnung>().size());
        state.PauseTiming();
        moc.reset();
        coordinator.reset();
        state.ResumeTiming();
    }
}

void BM_StartMitSicherung(benchmark::State &state)
{
    // The delegate finds its data folder through XDG_DATA_HOME, its settings through
    // XDG_CONFIG_HOME: both point into the bench's folder, never at the user's own.
    const QString wurzel = bestand().wurzel.path();
    setenv("XDG_DATA_HOME", QFile::encodeName(wurzel).constData(), 1);
    setenv("XDG_CONFIG_HOME", QFile::encodeName(wurzel + QStringLiteral("/config")).constData(), 1);
    qint64 laengsteLuecke = 0, laengsteNachStart = 0, startMs = 0, laengstesSpeichern = 0, speicherungen = 0;
    for (auto _ : state) {
        StillerPresenter presenter;
        auto delegate = std::make_unique<FKRAppDelegate>(presenter);
        bool gesichert = false;
        QObject::connect(delegate.get(), &FKRAppDelegate::datensicherungBeendet, delegate.get(),
                         [&](const QString &archiv) {
                             gesichert = true;
                             if (archiv.isEmpty())
                                 state.SkipWithError("the backup failed");
                         });
        Herzschlag herz;
        QElapsedTimer uhr;
        uhr.start();
        delegate->applicationDidFinishLaunching();
        startMs = std::max(startMs, uhr.elapsed());
        laengsteLuecke = std::max(laengsteLuecke, herz.laengsteLueckeMs());
        herz.neuBeginnen();

        // The user edits while the archive is written: a save every 100 ms.
        ManagedObjectContext *moc = delegate->managedObjectContext();
        FKRRechnung *rechnung = moc->fetch<FKRRechnung>().value(0);
        QTimer bearbeiten;
        QObject::connect(&bearbeiten, &QTimer::timeout, [&] {
            rechnung->setRechnungsText(QStringLiteral("Bearbeitet %1").arg(++speicherungen));
            QElapsedTimer s;
            s.start();
            moc->save();
            laengstesSpeichern = std::max(laengstesSpeichern, s.elapsed());
        });
        if (state.range(0) != 0)
            bearbeiten.start(100);
        while (!gesichert)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        bearbeiten.stop();
        laengsteNachStart = std::max(laengsteNachStart, herz.laengsteLueckeMs());
        laengsteLuecke = std::max(laengsteLuecke, laengsteNachStart);

        state.PauseTiming();
        delegate.reset();
        leereSicherungen();
        state.ResumeTiming();
    }
    state.counters["longest_stall_ms"] = double(laengsteLuecke);
    state.counters["longest_stall_after_launch_ms"] = double(laengsteNachStart);
    state.counters["launch_call_ms"] = double(startMs);
    state.counters["longest_save_ms"] = double(laengstesSpeichern);
    state.counters["saves"] = double(speicherungen);
}

void BM_PruefeSicherung(benchmark::State &state)
{
    const QString archiv = bestand().wurzel.filePath(QStringLiteral("pruefen.fks"));
    QString fehler;
    if (!FKRZipArchiv::erstelle(archiv, {{bestand().store(), QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName)}}, &fehler)) {
        state.SkipWithError(fehler.toUtf8().constData());
        return;
    }
    for (auto _ : state) {
        FKRStoreEinspielung einspielung(bestand().datenOrdner());
        if (einspielung.pruefe(archiv, &fehler) != FKRZipArchiv::Ergebnis::Erfolg)
            state.SkipWithError(fehler.toUtf8().constData());
    }
    state.counters["archive_MB"] = double(QFileInfo(archiv).size()) / 1e6;
    state.counters["store_MB"] = double(QFileInfo(bestand().store()).size()) / 1e6;
    QFile::remove(archiv);
}

} // namespace

BENCHMARK(BM_ZipStore)->Arg(0)->Arg(1)->Arg(Z_DEFAULT_COMPRESSION)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();
BENCHMARK(BM_StoreOhneSicherung)->Unit(benchmark::kMillisecond)->Iterations(5)->UseRealTime();
BENCHMARK(BM_StartMitSicherung)->ArgName("edits")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();
BENCHMARK(BM_PruefeSicherung)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

int main(int argc, char **argv)
{
    QCoreApplication anwendung(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora"));
    QCoreApplication::setApplicationName(QStringLiteral("Velmora-Rechnungen-Bench"));
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
