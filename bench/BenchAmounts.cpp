// Every amount of a document with 1,000 items, as the editor and the PDF layouts read them: all
// recomputed from the items on each read. Target: well under 2 ms for the whole set.
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

Decimal d(const std::string &text)
{
    return *Decimal::parse(text);
}

// Quantities with and without fractions, prices with a third decimal that the cent rounding
// drops, every third item at the reduced rate of its own, the rest at the document's.
FKRRechnung *grossesDokument(ManagedObjectContext &context, int anzahlPosten)
{
    auto *rechnung = context.insertNewObject<FKRRechnung>();
    rechnung->setRabatt(d("0.03"));
    rechnung->setZuschlag(d("0.01"));
    rechnung->setSkonto(d("0.02"));
    for (int i = 0; i < anzahlPosten; ++i) {
        auto *posten = context.insertNewObject<FKRPosten>();
        posten->setPostenNummer(i + 1);
        posten->setAnzahl(d(std::to_string(1 + i % 7) + (i % 2 ? ".5" : "")));
        posten->setEinzelbetrag(d(std::to_string(10 + i % 90) + '.' + std::to_string(100 + i % 900)));
        if (i % 3 == 0)
            posten->setMwStSatz(d("0.07"));
        rechnung->addPostenObject(posten);
    }
    return rechnung;
}

void alleBetraege(benchmark::State &state)
{
    ManagedObjectContext context;
    const FKRRechnung *rechnung = grossesDokument(context, int(state.range(0)));
    const QList<FKRPosten *> posten = rechnung->posten();
    for (auto _ : state) {
        for (const FKRPosten *p : posten) {
            benchmark::DoNotOptimize(p->zwischenSumme());
            benchmark::DoNotOptimize(p->mwStSatzInProzent());
            benchmark::DoNotOptimize(p->mwStBetrag(*rechnung));
        }
        benchmark::DoNotOptimize(rechnung->postenSumme());
        benchmark::DoNotOptimize(rechnung->rabattBetrag());
        benchmark::DoNotOptimize(rechnung->zuschlagBetrag());
        benchmark::DoNotOptimize(rechnung->nettoSumme());
        benchmark::DoNotOptimize(rechnung->umsatzsteuerJeSatz());
        benchmark::DoNotOptimize(rechnung->umsatzsteuerSumme());
        benchmark::DoNotOptimize(rechnung->rechnungsSumme());
        benchmark::DoNotOptimize(rechnung->skontoBetrag());
        benchmark::DoNotOptimize(rechnung->rechnungsSummeAbzueglichSkonto());
    }
}
BENCHMARK(alleBetraege)->Arg(1000)->Unit(benchmark::kMillisecond);

// What the editor reads after every change of an item: the item sum and the total.
void editorBetraege(benchmark::State &state)
{
    ManagedObjectContext context;
    const FKRRechnung *rechnung = grossesDokument(context, int(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(rechnung->postenSumme());
        benchmark::DoNotOptimize(rechnung->rechnungsSumme());
    }
}
BENCHMARK(editorBetraege)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
