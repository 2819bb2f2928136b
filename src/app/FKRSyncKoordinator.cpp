#include "FKRSyncKoordinator.h"

#include <QTimer>

void FKRSyncKoordinator::synchronisiere()
{
}

void FKRSyncKoordinator::synchronisiereMitAbschluss(std::function<void()> abschluss)
{
    // Completions always arrive later on the main queue, as they will from the sync engine.
    if (abschluss)
        QTimer::singleShot(0, this, std::move(abschluss));
}

void FKRSyncKoordinator::trenneSyncMitAbschluss(std::function<void()> abschluss)
{
    if (abschluss)
        QTimer::singleShot(0, this, std::move(abschluss));
}

bool FKRSyncKoordinator::istBeschaeftigt() const
{
    return false;
}
