#include "FKRArbeitsSperre.h"

#include "ZipTestSupport.h"

using namespace ziptest;

namespace {

TEST(FKRArbeitsSperre, EntferntNurWasNiemandHaeltUndSichSeitEinerWeileNichtGeaendertHat)
{
    QTemporaryDir wurzel;
    const QString ordner = wurzel.filePath(QStringLiteral("ordner"));
    const QString draussen = wurzel.filePath(QStringLiteral("draussen.txt"));
    ASSERT_TRUE(QDir().mkpath(ordner));
    schreibe(draussen, "gehoert dem Nutzer");

    enum Art { Datei, Ordner, Link };
    struct Fall {
        const char *name;
        Art art;
        time_t alter;
        bool gehalten;
        bool bleibt;
    };
    const Fall faelle[] = {
        {".DataBackup-Min001.part", Datei, 61, false, false},   // a minute after it was made
        {".DataBackup-Jung01.part", Datei, 5, false, true},     // may be about to be locked
        {".DataBackup-Halt01.part", Datei, 7200, true, true},   // another run's work in progress
        {".DataBackup-Link01.part", Link, 7200, false, false},  // the link goes, not its target
        {".VelmoraRechnungen.storedata.Alt002", Ordner, 7200, false, false},
        {".DataBackup-Alt001.partx", Datei, 7200, false, true}, // not a name of ours
    };
    std::vector<std::unique_ptr<FKRArbeitsSperre>> sperren;
    for (const Fall &fall : faelle) {
        const QString pfad = ordner + QLatin1Char('/') + QLatin1String(fall.name);
        if (fall.art == Datei) {
            schreibe(pfad, "halb");
        } else if (fall.art == Link) {
            ASSERT_TRUE(QFile::link(draussen, pfad));
        } else {
            ASSERT_TRUE(QDir().mkpath(pfad));
            schreibe(pfad + QStringLiteral("/VelmoraRechnungen.storedata"), "entpackt");
            ASSERT_TRUE(QFile::link(draussen, pfad + QStringLiteral("/VelmoraRechnungen.storedata-wal")));
        }
        if (fall.gehalten) {
            sperren.push_back(std::make_unique<FKRArbeitsSperre>(pfad));
            EXPECT_TRUE(sperren.back()->gehalten());
        }
        altere(pfad, fall.alter);
    }

    FKRArbeitsSperre::raeumeAuf(ordner, {QStringLiteral(".DataBackup-??????.part"),
                                         QStringLiteral(".VelmoraRechnungen.storedata*.??????")});
    for (const Fall &fall : faelle) {
        const QFileInfo info(ordner + QLatin1Char('/') + QLatin1String(fall.name));
        EXPECT_EQ(info.exists() || info.isSymLink(), fall.bleibt) << fall.name;
    }
    EXPECT_EQ(lies(draussen), "gehoert dem Nutzer");
}

} // namespace
