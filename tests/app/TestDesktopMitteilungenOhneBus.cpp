// Without a session bus (a bare X session, a container) the reminders say so once and go on.
#include "harness/DesktopSitzung.h"

#include "FKRDesktopMitteilungen.h"
#include "FKRFaelligkeitsMitteilungen.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "FKRUhr.h"
#include "ManagedObjectContext.h"

#include <QTimeZone>

#include <cstdlib>

namespace {

// No bus address, no X display to start one through, no per-user bus socket: gone before main.
[[maybe_unused]] const bool ohneBus = [] {
    for (const char *name : {"DBUS_SESSION_BUS_ADDRESS", "DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR"})
        unsetenv(name);
    return true;
}();

QDateTime berlin(int tag, int stunde) { return QDateTime(QDate(2026, 5, tag), QTime(stunde, 0), QTimeZone("Europe/Berlin")); }

TEST(MitteilungenOhneBus, EineZeileImLogUndDerPlanBleibt)
{
    FKRLocalizationHelper::installiereHauptTabelle();
    FKRUhr::halteAn(berlin(12, 10));
    ManagedObjectContext context;
    auto dokument = [&](const QDateTime &faellig) {
        auto *r = context.insertNewObject<FKRRechnung>();
        r->setFaelligkeitsDatum(faellig);
        return r;
    };

    harness::Warnungen warnungen;
    {
        FKRFaelligkeitsMitteilungen mitteilungen;
        // One reminder is due right now and would be sent at once, the other waits.
        mitteilungen.pruefeFaelligeRechnungen({dokument(berlin(12, 8)), dokument(berlin(14, 8))});
        harness::laufe(200);
        mitteilungen.pruefeFaelligeRechnungen({dokument(berlin(15, 8))});

        ASSERT_EQ(mitteilungen.geplanteMitteilungen().size(), 1);
        EXPECT_EQ(mitteilungen.geplanteMitteilungen().first().zeit, berlin(15, 10));
    }
    FKRUhr::laufeWeiter();

    EXPECT_EQ(warnungen.zeilen().size(), 1) << warnungen.zeilen().join(u'\n').toStdString();
    EXPECT_FALSE(FKRDesktopMitteilungen().hatSitzungsBus());
}

} // namespace
