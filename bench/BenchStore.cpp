// The object store at the size of a long-running business: 10,000 documents of 10 items each.
// Saving them all into a new store should take well under 5 s; opening that store and touching
// every document with its items (what the document list does at start) under 300 ms.

#include "FKRAbsender.h"
#include "FKREmpfaenger.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"
#include "PersistentStoreCoordinator.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int kDokumente = 10000;
constexpr int kPostenJeDokument = 10;

Decimal dec(const char *text)
{
    return *Decimal::parse(text);
}

// Two senders, 300 customers and the documents of about eight years, every one with its items.
void fuelleBestand(ManagedObjectContext &moc)
{
    QList<FKRAbsender *> absender;
    for (int i = 0; i < 2; ++i) {
        auto *a = moc.insertNewObject<FKRAbsender>();
        a->setFirma(QStringLiteral("Studio Weiß %1").arg(i + 1));
        a->setName(QStringLiteral("Eva Weiß"));
        a->setStrasse(QStringLiteral("Holstenstraße %1").arg(i + 1));
        a->setPlz(QStringLiteral("24103"));
        a->setOrt(QStringLiteral("Kiel"));
        a->setBankVerbindungIban(QStringLiteral("DE02 1203 0000 0000 2020 51"));
        a->setUmsatzsteuerId(QStringLiteral("DE123456789"));
        absender << a;
    }
    QList<FKREmpfaenger *> empfaenger;
    for (int i = 0; i < 300; ++i) {
        auto *e = moc.insertNewObject<FKREmpfaenger>();
        e->setFirma(QStringLiteral("Kunde %1 GmbH & Co. KG").arg(i));
        e->setName(QStringLiteral("Jörg Übel"));
        e->setStrasse(QStringLiteral("Hauptplatz %1").arg(i % 90 + 1));
        e->setPlz(QStringLiteral("%1").arg(10000 + i * 37));
        e->setOrt(QStringLiteral("Köln"));
        empfaenger << e;
    }
    const QDateTime start(QDate(2017, 1, 2), QTime(9, 0));
    const Decimal preise[] = {dec("95"), dec("120.50"), dec("0.35"), dec("1499.99"), dec("12.75")};
    for (int d = 0; d < kDokumente; ++d) {
        auto *r = moc.insertNewObject<FKRRechnung>();
        r->setRechnungsNummer(QStringLiteral("RE-%1-%2").arg(2017 + d / 1250).arg(d % 1250 + 1, 4, 10, QLatin1Char('0')));
        r->setRechnungsDatum(start.addSecs(qint64(d) * 6 * 3600));
        r->setLieferDatum(start.addSecs(qint64(d) * 6 * 3600));
        r->setFaelligkeitsDatum(start.addDays(14 + d / 4));
        r->setRechnungsTextAnrede(QStringLiteral("Sehr geehrte Damen und Herren,"));
        r->setRechnungsText(QStringLiteral("vielen Dank für Ihren Auftrag. Für die erbrachten Leistungen "
                                           "berechne ich Ihnen wie folgt:"));
        r->setRechnungsText2(QStringLiteral("Bitte überweisen Sie den Betrag innerhalb von 14 Tagen.\nMit freundlichen Grüßen"));
        r->setVersandt(d % 3 != 0);
        r->setBezahlt(d % 5 != 0);
        r->setAbsender(absender[d % 2]);
        r->setEmpfaenger(empfaenger[d % empfaenger.size()]);
        for (int p = 0; p < kPostenJeDokument; ++p) {
            auto *posten = moc.insertNewObject<FKRPosten>();
            posten->setPostenNummer(p + 1);
            posten->setPostenBezeichnung(QStringLiteral("Leistung %1").arg(p + 1));
            posten->setPostenBeschreibung(QStringLiteral("Beratung und Umsetzung im Zeitraum März bis April, "
                                                         "laut Angebot vom 12. Februar"));
            posten->setAnzahl(Decimal(p % 4 + 1));
            posten->setEinzelbetrag(preise[(d + p) % 5]);
            r->addPostenObject(posten);
        }
    }
}

QString storePath(const QTemporaryDir &dir)
{
    return dir.filePath(QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName));
}

void BM_SaveTenThousandDocumentsIntoNewStore(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto dir = std::make_unique<QTemporaryDir>();
        auto coordinator = std::make_unique<PersistentStoreCoordinator>();
        coordinator->addPersistentStore(storePath(*dir));
        auto moc = std::make_unique<ManagedObjectContext>(coordinator.get());
        fuelleBestand(*moc);
        state.ResumeTiming();

        QString error;
        if (!moc->save(&error))
            state.SkipWithError(error.toUtf8().constData());

        state.PauseTiming();
        moc.reset();
        coordinator.reset();
        dir.reset();
        state.ResumeTiming();
    }
    state.counters["objects"] = double(kDokumente * (kPostenJeDokument + 1) + 302);
}

// The store the reading benchmark opens, written once.
const QTemporaryDir &gespeicherterBestand()
{
    static const auto dir = [] {
        auto d = std::make_unique<QTemporaryDir>();
        PersistentStoreCoordinator coordinator;
        coordinator.addPersistentStore(storePath(*d));
        ManagedObjectContext moc(&coordinator);
        fuelleBestand(moc);
        moc.save();
        return d;
    }();
    return *dir;
}

void BM_OpenStoreAndTouchEveryDocumentWithItems(benchmark::State &state)
{
    const QString path = storePath(gespeicherterBestand());
    for (auto _ : state) {
        auto coordinator = std::make_unique<PersistentStoreCoordinator>();
        coordinator->addPersistentStore(path);
        auto moc = std::make_unique<ManagedObjectContext>(coordinator.get());
        qint64 posten = 0;
        qsizetype zeichen = 0;
        for (const FKRRechnung *rechnung : moc->fetch<FKRRechnung>()) {
            zeichen += rechnung->rechnungsNummer()->size() + rechnung->empfaenger()->firmaUndName().size();
            for (const FKRPosten *p : rechnung->posten())
                posten += p->postenNummer().value_or(0);
        }
        benchmark::DoNotOptimize(posten);
        benchmark::DoNotOptimize(zeichen);
        if (posten != qint64(kDokumente) * kPostenJeDokument * (kPostenJeDokument + 1) / 2)
            state.SkipWithError("items missing");

        // The application keeps its objects until it quits; tearing them down is not part of it.
        state.PauseTiming();
        moc.reset();
        coordinator.reset();
        state.ResumeTiming();
    }
}

} // namespace

BENCHMARK(BM_SaveTenThousandDocumentsIntoNewStore)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();
BENCHMARK(BM_OpenStoreAndTouchEveryDocumentWithItems)->Unit(benchmark::kMillisecond)->Iterations(10)->UseRealTime();

BENCHMARK_MAIN();
