#include "FKRStoreEinspielung.h"

#include "UnbrauchbareArchive.h"

using namespace ziptest;

namespace {

// The check and the replacement are two steps that the caller may keep apart: a checked store
// waits, hidden, until it is put in place; a refused one leaves nothing behind at once.
TEST(FKRStoreEinspielung, DerGepruefteStoreWartetVerborgenBisErEingesetztWird)
{
    QTemporaryDir wurzel;
    const QString daten = wurzel.filePath(QStringLiteral("Velmora-Rechnungen"));
    const QString store = daten + QStringLiteral("/VelmoraRechnungen.storedata");
    ASSERT_TRUE(QDir().mkpath(daten));
    schreibe(store, "der Store von vorher");
    const QString archiv = wurzel.filePath(QStringLiteral("a.fks"));
    const QMap<QString, QByteArray> vorher = baum(daten);

    // Refused by the archive check, and by the store check after unpacking.
    FKRStoreEinspielung einspielung(daten);
    QString fehler;
    for (const bool istZip : {false, true}) {
        if (istZip)
            baueStoreArchiv(archiv, "kein Store");
        else
            schreibe(archiv, "kein Zip");
        EXPECT_EQ(einspielung.pruefe(archiv, &fehler), FKRZipArchiv::Ergebnis::Abgelehnt);
        EXPECT_FALSE(einspielung.istGeprueft());
        EXPECT_EQ(unterschiede(vorher, baum(daten)), "") << istZip;
        EXPECT_FALSE(einspielung.setzeEin(&fehler)) << "nothing checked, nothing to put in place";
    }
    EXPECT_EQ(lies(store), "der Store von vorher");

    const QByteArray gut = guterStore(wurzel.path());
    baueStoreArchiv(archiv, gut);
    ASSERT_EQ(einspielung.pruefe(archiv, &fehler), FKRZipArchiv::Ergebnis::Erfolg) << fehler.toStdString();
    EXPECT_TRUE(einspielung.istGeprueft());
    EXPECT_EQ(lies(store), "der Store von vorher");
    ASSERT_TRUE(einspielung.setzeEin(&fehler)) << fehler.toStdString();
    EXPECT_EQ(lies(store), gut);
    EXPECT_EQ(baum(daten).keys(), QStringList{QStringLiteral("/VelmoraRechnungen.storedata")});

    // A data folder that cannot take the unpacked store any more drops the store checked before.
    ASSERT_EQ(einspielung.pruefe(archiv, &fehler), FKRZipArchiv::Ergebnis::Erfolg) << fehler.toStdString();
    ASSERT_TRUE(QDir(daten).removeRecursively());
    EXPECT_EQ(einspielung.pruefe(archiv, &fehler), FKRZipArchiv::Ergebnis::SchreibFehler);
    EXPECT_FALSE(einspielung.setzeEin(&fehler));
}

} // namespace
