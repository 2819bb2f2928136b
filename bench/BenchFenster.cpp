// The main window with years of business: 10,000 documents of 200 customers in the list.
// Switching the area or stepping the sort order must feel instant (target under 50 ms,
// the table repainted included), and the document view re-renders the shown one-page document
// well within a frame or two (target under 20 ms, the working file written and loaded).
//
//   BM_BereichWechseln      the menu's due area and all documents, alternately
//   BM_SortierungAendern    one step of the five cyclic sort orders
//   BM_AnsichtNeuZeichnen   the view re-renders after its document changed (two documents in turn)

#include "FKRAlertPresenter.h"
#include "FKRAppDelegate.h"
#include "FKRArrayController.h"
#include "FKREmpfaenger.h"
#include "FKRMenuViewController.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "FKRRechnungenListeViewController.h"
#include "FKRRechnungsAnsichtViewController.h"
#include "ManagedObjectContext.h"

#include <QApplication>
#include <QSplitter>
#include <QTableView>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kDokumente = 10000;
constexpr int kKunden = 200;

struct StillerPresenter : FKRAlertPresenter {
    int zeigeAlert(const FKRAlert &) override { return kErsterKnopf; }
    bool praesentiereFehler(const FKRAnwendungsFehler &) override { return false; }
    QStringList waehleDateien(const QString &, const QString &, const QString &, const DateiFilter &) override { return {}; }
    QString waehleSpeicherOrt(const QString &, const QString &, const QString &, const QString &) override
    {
        return {};
    }
};

// One main window over an in-memory store of kDokumente documents, made once for all runs.
struct Hauptfenster {
    QTemporaryDir heimat;
    StillerPresenter presenter;
    std::unique_ptr<FKRAppDelegate> delegate;
    QSplitter splitView;
    FKRMenuViewController *menu = nullptr;
    FKRRechnungenListeViewController *liste = nullptr;
    FKRRechnungsAnsichtViewController *ansicht = nullptr;
    QList<FKRRechnung *> dokumente;

    Hauptfenster()
    {
        qputenv("XDG_DATA_HOME", heimat.path().toUtf8());
        qputenv("XDG_CACHE_HOME", (heimat.path() + u"/cache"_s).toUtf8());
        qputenv("XDG_CONFIG_HOME", (heimat.path() + u"/config"_s).toUtf8());
        delegate = std::make_unique<FKRAppDelegate>(presenter);
        auto moc = std::make_unique<ManagedObjectContext>();
        QList<FKREmpfaenger *> kunden;
        for (int k = 0; k < kKunden; ++k) {
            auto *e = moc->insertNewObject<FKREmpfaenger>();
            e->setFirma(u"Kunde %1 GmbH"_s.arg(k % 37));
            e->setName(u"Ansprechpartner %1"_s.arg(k));
            kunden.append(e);
        }
        const QDateTime jetzt = QDateTime::currentDateTime();
        for (int i = 0; i < kDokumente; ++i) {
            auto *r = moc->insertNewObject<FKRRechnung>();
            r->setRechnungsNummer(u"Rechnung: %1"_s.arg(kDokumente - i));
            r->setDokumentArt(1 + i % 5);
            r->setEmpfaenger(kunden[i % kKunden]);
            r->setRechnungsDatum(jetzt.addDays(-(i % 900)));
            r->setFaelligkeitsDatum(jetzt.addDays(14 - (i % 900)));
            r->setVersandt(i % 3 != 0);
            r->setBezahlt(i % 4 == 0);
            if (i % 4 == 0)
                r->setBezahltDatum(jetzt.addDays(-(i % 800)));
            r->setMwStSatz(*Decimal::parse("0.19"));
            r->setBrutto(true);
            for (int p = 0; p < 3; ++p) {
                auto *posten = moc->insertNewObject<FKRPosten>();
                posten->setPostenNummer(p + 1);
                posten->setPostenBezeichnung(u"Leistung %1"_s.arg(p + 1));
                posten->setAnzahl(p + 1);
                posten->setEinzelbetrag(*Decimal::parse("87.5"));
                posten->setRechnung(r);
            }
            dokumente.append(r);
        }
        delegate->setManagedObjectContext(std::move(moc));

        menu = new FKRMenuViewController(&splitView);
        liste = new FKRRechnungenListeViewController(*delegate, &splitView);
        ansicht = new FKRRechnungsAnsichtViewController(*delegate, &splitView);
        splitView.addWidget(menu);
        splitView.addWidget(liste);
        splitView.addWidget(ansicht);
        splitView.resize(1400, 860);
        splitView.show();
        QCoreApplication::processEvents();
    }

    // Paints what changed, as the event loop would before the user sees it.
    static void zeichne() { QCoreApplication::processEvents(); }
};

Hauptfenster &fenster()
{
    static Hauptfenster f;
    return f;
}

void BM_BereichWechseln(benchmark::State &state)
{
    Hauptfenster &f = fenster();
    bool faellig = false;
    for (auto _ : state) {
        faellig = !faellig;
        if (faellig)
            f.menu->faelligeRechnungenButtonPressed();
        else
            f.menu->alleRechnungenButtonPressed();
        Hauptfenster::zeichne();
    }
    state.counters["rows"] = double(f.liste->rechnungenListeArrayController().rowCount());
}
BENCHMARK(BM_BereichWechseln)->Unit(benchmark::kMillisecond);

void BM_SortierungAendern(benchmark::State &state)
{
    Hauptfenster &f = fenster();
    f.menu->alleRechnungenButtonPressed();
    for (auto _ : state) {
        f.liste->sortierungAendern();
        Hauptfenster::zeichne();
    }
    state.counters["rows"] = double(f.liste->rechnungenListeArrayController().rowCount());
}
BENCHMARK(BM_SortierungAendern)->Unit(benchmark::kMillisecond);

void BM_AnsichtNeuZeichnen(benchmark::State &state)
{
    Hauptfenster &f = fenster();
    // Two drafts (every third document is one): shown from a fresh rendering each time.
    int i = 0;
    for (auto _ : state) {
        f.ansicht->setRechnung(f.dokumente[3 * ((i++) % 2)]);
        f.ansicht->aktualisiereAnsicht();
        Hauptfenster::zeichne();
    }
}
BENCHMARK(BM_AnsichtNeuZeichnen)->Unit(benchmark::kMillisecond);

} // namespace

// The windows run without a display here.
int main(int argc, char **argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication anwendung(argc, argv);
    QCoreApplication::setOrganizationName(u"Velmora"_s);
    QCoreApplication::setApplicationName(u"Velmora-Rechnungen-Bench"_s);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
