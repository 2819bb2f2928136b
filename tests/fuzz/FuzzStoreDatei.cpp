// A store file from outside, as a restore or import brings it: the check must answer with a
// verdict for any bytes, and a store it calls usable must really be one the program can open,
// read and save into, or the user would be left with data the program cannot open.
#include "FKRRechnung.h"
#include "FuzzUmgebung.h"
#include "ManagedObjectContext.h"
#include "PersistentStoreCoordinator.h"
#include "StoreCheck.h"
#include "StoreError.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *daten, std::size_t groesse)
{
    const QString pfad = FuzzUmgebung::alsDatei(daten, groesse, QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName));
    const StoreCheck::Result befund = StoreCheck::check(pfad);
    if (befund.usable() != befund.reason.isEmpty() || befund.reason.contains(QLatin1Char('\n')))
        std::abort();
    if (befund.usable()) {
        try {
            PersistentStoreCoordinator coordinator;
            coordinator.addPersistentStore(pfad);
            ManagedObjectContext context(&coordinator);
            context.insertNewObject<FKRRechnung>();
            if (!context.save())
                std::abort();
        } catch (const StoreError &) {
            std::abort(); // called usable, yet the program could not work with it
        }
    }
    FuzzUmgebung::leere();
    return 0;
}
