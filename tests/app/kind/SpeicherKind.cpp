// Saves documents one after the other and reports each save that returned ("gespeichert N") until
// it is killed. With "--halten" it opens the store, reports "offen" and holds it until stdin
// closes. Alerts go to stderr as "alert KEY"; a store it may not open ends it with status 1.

#include "../SkriptPresenter.h"

#include "FKRAppDelegate.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"

#include <QCoreApplication>

#include <cstdio>

namespace {
struct StillerPresenter : SkriptPresenter {
    int zeigeAlert(const FKRAlert &alert) override
    {
        std::fprintf(stderr, "alert %s\n", qPrintable(alert.textSchluessel));
        return kErsterKnopf;
    }
    bool praesentiereFehler(const FKRAnwendungsFehler &fehler) override
    {
        std::fprintf(stderr, "fehler %s\n", qPrintable(fehler.localizedDescription));
        return false;
    }
};
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora"));
    QCoreApplication::setApplicationName(QStringLiteral("Velmora-Rechnungen"));
    StillerPresenter presenter;
    FKRAppDelegate delegate(presenter);
    ManagedObjectContext *moc = delegate.managedObjectContext();
    if (app.arguments().contains(QStringLiteral("--halten"))) {
        std::printf("offen\n");
        std::fflush(stdout);
        while (std::getchar() != EOF) {
        }
        return 0;
    }
    qint64 n = moc->fetch<FKRRechnung>().size();
    for (;;) {
        ++n;
        auto *rechnung = moc->insertNewObject<FKRRechnung>();
        rechnung->setRechnungsNummer(QStringLiteral("K-%1").arg(n));
        // Three items per document: a torn save would show as a document with fewer.
        for (int i = 1; i <= 3; ++i) {
            auto *posten = moc->insertNewObject<FKRPosten>();
            posten->setPostenNummer(i);
            posten->setPostenBezeichnung(QString(2000, QLatin1Char('x')));
            posten->setRechnung(rechnung);
        }
        // Every tenth save also changes an older document, so updates are cut too.
        if (n % 10 == 0) {
            const auto alle = moc->fetch<FKRRechnung>();
            alle.first()->setRechnungsText(QStringLiteral("geändert bei %1").arg(n));
        }
        delegate.saveAction();
        if (moc->hasChanges())
            return 1;
        std::printf("gespeichert %lld\n", static_cast<long long>(n));
        std::fflush(stdout);
    }
}
