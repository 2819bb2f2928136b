#include "FKRZipArchiv.h"

#include "ZipTestSupport.h"
#include "harness/DateiGroessenGrenze.h"

#include <QStorageInfo>

#include <functional>

using namespace ziptest;
using Ergebnis = FKRZipArchiv::Ergebnis;
using harness::DateiGroessenGrenze;

namespace {

const QString kStore = QStringLiteral("VelmoraRechnungen.storedata");
const QString kShm = QStringLiteral("VelmoraRechnungen.storedata-shm");
const QString kWal = QStringLiteral("VelmoraRechnungen.storedata-wal");
const QStringList kStoreNamen{kStore, kShm, kWal}; // a backup round-trips in the restore command's test

class FKRZipArchivTest : public ::testing::Test
{
protected:
    QTemporaryDir wurzel;
    QString pfad(const QString &name) const { return wurzel.filePath(name); }

    QString ordnerMitStore(const QString &name, const QByteArray &store)
    {
        const QString ordner = pfad(name);
        EXPECT_TRUE(QDir().mkpath(ordner));
        schreibe(ordner + QLatin1Char('/') + kStore, store);
        schreibe(ordner + QLatin1Char('/') + kShm, QByteArray());
        schreibe(ordner + QLatin1Char('/') + kWal, "wal bytes");
        return ordner;
    }
};

TEST_F(FKRZipArchivTest, UnsichereOderBeschaedigteArchiveWerdenAbgelehntOhneEtwasZuSchreiben)
{
    const QString ziel = ordnerMitStore(QStringLiteral("daten/Velmora-Rechnungen"), "der Store von vorher");
    const QByteArray neu = zufallsBytes(200000, 3);
    const Roh gut{kStore.toUtf8(), neu};
    auto mitGutemZuerst = [&](Roh boese) { return QList<Roh>{gut, boese}; };
    Roh link{kShm.toUtf8(), "/etc/passwd", uLong(S_IFLNK | 0777) << 16};
    Roh ordnerUnix{kWal.toUtf8(), {}, uLong(S_IFDIR | 0755) << 16};
    Roh gespeichert{kStore.toUtf8(), neu, uLong(S_IFREG | 0644) << 16, (uLong(3) << 8) | 30, 0};

    struct Fall {
        const char *was;
        std::function<void(const QString &)> baue;
    };
    const QList<Fall> faelle{
        {"../ leaves the folder", [&](const QString &p) { baueArchiv(p, mitGutemZuerst({"../" + kStore.toUtf8(), "x"})); }},
        {"name not allowed", [&](const QString &p) { baueArchiv(p, mitGutemZuerst({"autostart.sh", "x"})); }},
        {"name with a line break", [&](const QString &p) { baueArchiv(p, mitGutemZuerst({"a\nb\r\x1b", "x"})); }},
        {"symbolic link", [&](const QString &p) { baueArchiv(p, mitGutemZuerst(link)); }},
        {"Unix folder", [&](const QString &p) { baueArchiv(p, mitGutemZuerst(ordnerUnix)); }},
        {"name twice", [&](const QString &p) { baueArchiv(p, mitGutemZuerst({kStore.toUtf8(), "zweiter Store"})); }},
        {"side file without the store", [&](const QString &p) { baueArchiv(p, {{kWal.toUtf8(), "x"}}); }},
        {"not a zip", [&](const QString &p) { schreibe(p, "SQLite format 3" + zufallsBytes(4000, 4)); }},
        {"stored entry with a changed byte", [&](const QString &p) {
             baueArchiv(p, {gespeichert});
             QByteArray bytes = lies(p);
             bytes[bytes.indexOf(neu.left(64)) + 1000] ^= 0x01;
             schreibe(p, bytes);
         }},
    };
    for (const Fall &fall : faelle) {
        SCOPED_TRACE(fall.was);
        const QString archiv = pfad(QStringLiteral("boese.fks"));
        QFile::remove(archiv);
        fall.baue(archiv);
        const QMap<QString, QByteArray> vorher = baum(wurzel.path());
        QString fehler;
        EXPECT_EQ(FKRZipArchiv::entpackeSicher(archiv, ziel, kStoreNamen, &fehler), Ergebnis::Abgelehnt);
        EXPECT_FALSE(fehler.isEmpty());
        EXPECT_FALSE(fehler.contains(QLatin1Char('\n')) || fehler.contains(QLatin1Char('\r'))) << fehler.toStdString();
        EXPECT_EQ(unterschiede(vorher, baum(wurzel.path())), "");
    }

    // The sound archive that all of them start with is taken, up to the byte within its bounds;
    // beyond the floor, at most the ratio times the archive's size (this one hardly compresses).
    const QString gutesArchiv = pfad(QStringLiteral("gut.fks"));
    baueArchiv(gutesArchiv, {gut, {kWal.toUtf8(), "w"}});
    FKRZipArchiv::Grenzen knapp;
    knapp.hoechstens = neu.size();
    const QMap<QString, QByteArray> vorher = baum(wurzel.path());
    QString fehler;
    EXPECT_EQ(FKRZipArchiv::entpackeSicher(gutesArchiv, ziel, kStoreNamen, &fehler, knapp), Ergebnis::Abgelehnt);
    EXPECT_TRUE(fehler.contains(QStringLiteral("%1 bytes allowed").arg(neu.size()))) << fehler.toStdString();
    FKRZipArchiv::Grenzen verhaeltnis;
    verhaeltnis.ohneVerhaeltnis = 0;
    verhaeltnis.verhaeltnis = 0;
    EXPECT_EQ(FKRZipArchiv::entpackeSicher(gutesArchiv, ziel, kStoreNamen, nullptr, verhaeltnis), Ergebnis::Abgelehnt);
    EXPECT_EQ(unterschiede(vorher, baum(wurzel.path())), "");
    verhaeltnis.verhaeltnis = 1;
    knapp.hoechstens = neu.size() + 1;
    EXPECT_EQ(FKRZipArchiv::entpackeSicher(gutesArchiv, ziel, kStoreNamen, nullptr, verhaeltnis), Ergebnis::Erfolg);
    EXPECT_EQ(FKRZipArchiv::entpackeSicher(gutesArchiv, ziel, kStoreNamen, nullptr, knapp), Ergebnis::Erfolg);
    EXPECT_EQ(lies(ziel + QLatin1Char('/') + kStore), neu);
}

TEST_F(FKRZipArchivTest, SchreibFehlerLassenDieVorhandenenDateienWieSieWaren)
{
    const QByteArray neu = zufallsBytes(3 << 20, 5);
    const QString archiv = pfad(QStringLiteral("gut.fks"));
    baueArchiv(archiv, {{kStore.toUtf8(), neu}, {kShm.toUtf8(), "shm"}, {kWal.toUtf8(), "wal"}});
    const QString ziel = ordnerMitStore(QStringLiteral("ziel"), "der alte Store");

    QString fehler;
    // A full disk while the big store is written, and one found too small before.
    QMap<QString, QByteArray> vorher = baum(wurzel.path());
    {
        const DateiGroessenGrenze grenze(1 << 20);
        EXPECT_EQ(FKRZipArchiv::entpackeSicher(archiv, ziel, kStoreNamen, &fehler), Ergebnis::SchreibFehler);
    }
    EXPECT_FALSE(fehler.isEmpty());
    FKRZipArchiv::Grenzen platz;
    platz.freiLassen = QStorageInfo(ziel).bytesAvailable();
    EXPECT_EQ(FKRZipArchiv::entpackeSicher(archiv, ziel, kStoreNamen, &fehler, platz), Ergebnis::SchreibFehler);
    EXPECT_TRUE(fehler.contains(QStringLiteral("free space"))) << fehler.toStdString();
    EXPECT_EQ(unterschiede(vorher, baum(wurzel.path())), "");

    // A folder where the last file should go.
    QFile::remove(ziel + QLatin1Char('/') + kWal);
    ASSERT_TRUE(QDir(ziel).mkdir(kWal));
    vorher = baum(wurzel.path());
    EXPECT_EQ(FKRZipArchiv::entpackeSicher(archiv, ziel, kStoreNamen), Ergebnis::SchreibFehler);
    EXPECT_EQ(unterschiede(vorher, baum(wurzel.path())), "");
}

} // namespace
