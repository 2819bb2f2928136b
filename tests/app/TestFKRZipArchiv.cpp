#include "FKRZipArchiv.h"

#include "ZipTestSupport.h"

#include <QDateTime>
#include <QStorageInfo>

#include <csignal>
#include <functional>
#include <sys/resource.h>

using namespace ziptest;
using Ergebnis = FKRZipArchiv::Ergebnis;

namespace {

const QString kStore = QStringLiteral("VelmoraRechnungen.storedata");
const QString kShm = QStringLiteral("VelmoraRechnungen.storedata-shm");
const QString kWal = QStringLiteral("VelmoraRechnungen.storedata-wal");
const QStringList kStoreNamen{kStore, kShm, kWal};

// Files may grow only to `bytes` while it lives: the next write beyond fails as on a full disk.
class DateiGroessenGrenze
{
public:
    explicit DateiGroessenGrenze(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_alt);
        rlimit neu = m_alt;
        neu.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &neu);
    }
    ~DateiGroessenGrenze() { setrlimit(RLIMIT_FSIZE, &m_alt); }

private:
    rlimit m_alt{};
};

class FKRZipArchivTest : public ::testing::Test
{
protected:
    QTemporaryDir wurzel;
    QString pfad(const QString &name) const { return wurzel.filePath(name); }

    // A folder with the three store files as the program leaves them.
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

TEST_F(FKRZipArchivTest, DieStoreDateienGehenUnterIhrenNamenHineinUndKommenUnveraendertZurueck)
{
    const QByteArray store = "SQLite format 3" + zufallsBytes(3 << 20, 1);
    const QString quelle = ordnerMitStore(QStringLiteral("quelle"), store);
    const QDateTime zeit(QDate(2024, 5, 6), QTime(7, 8, 10));
    {
        QFile datei(quelle + QLatin1Char('/') + kStore);
        ASSERT_TRUE(datei.open(QIODevice::ReadWrite));
        ASSERT_TRUE(datei.setFileTime(zeit, QFileDevice::FileModificationTime));
    }
    QList<FKRZipArchiv::Eintrag> eintraege;
    for (const QString &name : kStoreNamen)
        eintraege.append({quelle + QLatin1Char('/') + name, name});
    eintraege.append({quelle + QStringLiteral("/fehlt"), QStringLiteral("fehlt")});
    eintraege.append({quelle, QStringLiteral("ein Ordner")});
    const QString archiv = pfad(QStringLiteral("2026-03-14 10.00.00-DataBackup.fks"));
    QString fehler;
    ASSERT_TRUE(FKRZipArchiv::erstelle(archiv, eintraege, &fehler)) << fehler.toStdString();

    // Top-level entries in the given order; what cannot be opened is not there.
    const QList<Gelesen> gelesen = liesArchiv(archiv);
    ASSERT_EQ(namen(gelesen), kStoreNamen);
    EXPECT_EQ(gelesen[0].inhalt, store);
    EXPECT_EQ(gelesen[1].inhalt, QByteArray());
    EXPECT_EQ(gelesen[2].inhalt, "wal bytes");
    const unz_file_info64 &info = gelesen[0].info;
    EXPECT_TRUE(info.flag & (1u << 11)) << "names are marked as UTF-8";
    EXPECT_EQ(info.version >> 8, 3u) << "made on Unix";
    EXPECT_TRUE(S_ISREG(mode_t(info.external_fa >> 16)));
    EXPECT_EQ(info.compression_method, uLong(Z_DEFLATED));
    EXPECT_EQ(QDateTime(QDate(int(info.tmu_date.tm_year), int(info.tmu_date.tm_mon) + 1, int(info.tmu_date.tm_mday)),
                        QTime(int(info.tmu_date.tm_hour), int(info.tmu_date.tm_min), int(info.tmu_date.tm_sec))),
              zeit);
    EXPECT_TRUE(baum(wurzel.path()).keys().filter(QStringLiteral(".part")).isEmpty());

    // Extraction replaces the store files and leaves everything else in the folder alone.
    const QString ziel = ordnerMitStore(QStringLiteral("ziel"), "alter Store");
    schreibe(ziel + QStringLiteral("/andere.txt"), "bleibt");
    ASSERT_EQ(FKRZipArchiv::entpackeSicher(archiv, ziel, kStoreNamen, &fehler), Ergebnis::Erfolg) << fehler.toStdString();
    const QMap<QString, QByteArray> nachher = baum(ziel);
    EXPECT_EQ(nachher.keys(), (QStringList{QStringLiteral("/") + kStore, QStringLiteral("/") + kShm,
                                           QStringLiteral("/") + kWal, QStringLiteral("/andere.txt")}));
    EXPECT_EQ(nachher.value(QStringLiteral("/") + kStore), store);
    EXPECT_EQ(nachher.value(QStringLiteral("/") + kWal), "wal bytes");
    EXPECT_EQ(nachher.value(QStringLiteral("/andere.txt")), "bleibt");

    // An archive without the side files replaces only the store; stale side files stay.
    const QString nurStore = pfad(QStringLiteral("nur-store.fks"));
    ASSERT_TRUE(FKRZipArchiv::erstelle(nurStore, {{quelle + QLatin1Char('/') + kStore, kStore}}));
    schreibe(ziel + QLatin1Char('/') + kStore, "wieder alt");
    schreibe(ziel + QLatin1Char('/') + kShm, "altes shm");
    ASSERT_EQ(FKRZipArchiv::entpackeSicher(nurStore, ziel, kStoreNamen), Ergebnis::Erfolg);
    EXPECT_EQ(lies(ziel + QLatin1Char('/') + kStore), store);
    EXPECT_EQ(lies(ziel + QLatin1Char('/') + kShm), "altes shm");
}

TEST_F(FKRZipArchivTest, EinArchivDasNichtFertigWirdHinterlaesstNichts)
{
    const QByteArray gross = zufallsBytes(3 << 20, 2);
    const QString quelle = ordnerMitStore(QStringLiteral("quelle"), gross);
    const QList<FKRZipArchiv::Eintrag> eintraege{{quelle + QLatin1Char('/') + kStore, kStore}};

    // A backups "folder" that is a file, and one that does not exist.
    schreibe(pfad(QStringLiteral("datei")), "keine Ordner");
    QString fehler;
    EXPECT_FALSE(FKRZipArchiv::erstelle(pfad(QStringLiteral("datei/a.fks")), eintraege, &fehler));
    EXPECT_FALSE(fehler.isEmpty());
    EXPECT_FALSE(FKRZipArchiv::erstelle(pfad(QStringLiteral("fehlt/a.fks")), eintraege));
    EXPECT_FALSE(QFileInfo::exists(pfad(QStringLiteral("fehlt"))));

    // A full disk halfway through, and a source that fails while it is read: the older archive
    // of that name stays exactly as it was and no partial file is left behind.
    const QString archiv = pfad(QStringLiteral("a.fks"));
    schreibe(archiv, "das aeltere Archiv");
    const QMap<QString, QByteArray> vorher = baum(wurzel.path());
    {
        const DateiGroessenGrenze grenze(1 << 20);
        EXPECT_FALSE(FKRZipArchiv::erstelle(archiv, eintraege, &fehler));
    }
    qint64 bisher = 0;
    FKRZipArchiv::Eintrag bricht{quelle + QLatin1Char('/') + kStore, kStore};
    bricht.leser = [&bisher](char *puffer, qint64 groesse) -> qint64 {
        if (bisher > (1 << 20))
            return -1;
        std::memset(puffer, 'x', std::size_t(groesse));
        bisher += groesse;
        return groesse;
    };
    EXPECT_FALSE(FKRZipArchiv::erstelle(archiv, {bricht}, &fehler));
    EXPECT_EQ(unterschiede(vorher, baum(wurzel.path())), "");
}

TEST_F(FKRZipArchivTest, UnsichereOderBeschaedigteArchiveWerdenAbgelehntOhneEtwasZuSchreiben)
{
    const QString ziel = ordnerMitStore(QStringLiteral("daten/Velmora-Rechnungen"), "der Store von vorher");
    const QByteArray neu = zufallsBytes(200000, 3);
    const Roh gut{kStore.toUtf8(), neu};
    auto mitGutemZuerst = [&](Roh boese) { return QList<Roh>{gut, boese}; };
    Roh link{kShm.toUtf8(), "/etc/passwd", uLong(S_IFLNK | 0777) << 16};
    Roh ordnerUnix{kWal.toUtf8(), {}, uLong(S_IFDIR | 0755) << 16};
    Roh ordnerDos{kWal.toUtf8(), {}, 0x10, 0};
    Roh gespeichert{kStore.toUtf8(), neu, uLong(S_IFREG | 0644) << 16, (uLong(3) << 8) | 30, 0};

    struct Fall {
        const char *was;
        std::function<void(const QString &)> baue;
    };
    const QList<Fall> faelle{
        {"../ leaves the folder", [&](const QString &p) { baueArchiv(p, mitGutemZuerst({"../" + kStore.toUtf8(), "x"})); }},
        {"absolute path", [&](const QString &p) { baueArchiv(p, mitGutemZuerst({"/tmp/" + kShm.toUtf8(), "x"})); }},
        {"entry in a sub-folder", [&](const QString &p) { baueArchiv(p, mitGutemZuerst({"sub/" + kWal.toUtf8(), "x"})); }},
        {"backslash", [&](const QString &p) { baueArchiv(p, mitGutemZuerst({"..\\" + kWal.toUtf8(), "x"})); }},
        {"bare ..", [&](const QString &p) { baueArchiv(p, mitGutemZuerst({"..", "x"})); }},
        {"name not allowed", [&](const QString &p) { baueArchiv(p, mitGutemZuerst({"autostart.sh", "x"})); }},
        {"name with a line break", [&](const QString &p) { baueArchiv(p, mitGutemZuerst({"a\nb\r\x1b", "x"})); }},
        {"symbolic link", [&](const QString &p) { baueArchiv(p, mitGutemZuerst(link)); }},
        {"Unix folder", [&](const QString &p) { baueArchiv(p, mitGutemZuerst(ordnerUnix)); }},
        {"DOS folder", [&](const QString &p) { baueArchiv(p, mitGutemZuerst(ordnerDos)); }},
        {"name twice", [&](const QString &p) { baueArchiv(p, mitGutemZuerst({kStore.toUtf8(), "zweiter Store"})); }},
        {"no entries", [&](const QString &p) { baueArchiv(p, {}); }},
        {"side file without the store", [&](const QString &p) { baueArchiv(p, {{kWal.toUtf8(), "x"}}); }},
        {"empty file", [&](const QString &p) { schreibe(p, {}); }},
        {"not a zip", [&](const QString &p) { schreibe(p, "SQLite format 3" + zufallsBytes(4000, 4)); }},
        {"cut in half", [&](const QString &p) {
             baueArchiv(p, {gut});
             QByteArray bytes = lies(p);
             schreibe(p, bytes.left(bytes.size() / 2));
         }},
        {"stored entry with a changed byte", [&](const QString &p) {
             baueArchiv(p, {gespeichert});
             QByteArray bytes = lies(p);
             bytes[bytes.indexOf(neu.left(64)) + 1000] ^= 0x01;
             schreibe(p, bytes);
         }},
        {"compressed entry with a changed byte", [&](const QString &p) {
             baueArchiv(p, {{kStore.toUtf8(), QByteArray(500000, 'a') + neu}});
             QByteArray bytes = lies(p);
             bytes[bytes.size() / 2] ^= 0x10;
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
    EXPECT_EQ(FKRZipArchiv::entpackeSicher(pfad(QStringLiteral("gibt-es-nicht.fks")), ziel, kStoreNamen), Ergebnis::Abgelehnt);

    // The sound archive that all of them start with is taken, up to the byte within its bounds.
    const QString gutesArchiv = pfad(QStringLiteral("gut.fks"));
    baueArchiv(gutesArchiv, {gut, {kWal.toUtf8(), "w"}});
    FKRZipArchiv::Grenzen knapp;
    knapp.hoechstens = neu.size();
    const QMap<QString, QByteArray> vorher = baum(wurzel.path());
    QString fehler;
    EXPECT_EQ(FKRZipArchiv::entpackeSicher(gutesArchiv, ziel, kStoreNamen, &fehler, knapp), Ergebnis::Abgelehnt);
    EXPECT_TRUE(fehler.contains(QStringLiteral("%1 bytes allowed").arg(neu.size()))) << fehler.toStdString();
    // Beyond the floor, at most the ratio times the archive's size (this one hardly compresses).
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
    EXPECT_EQ(FKRZipArchiv::entpackeSicher(archiv, pfad(QStringLiteral("fehlt")), kStoreNamen, &fehler), Ergebnis::SchreibFehler);
    EXPECT_FALSE(QFileInfo::exists(pfad(QStringLiteral("fehlt"))));

    // A full disk while the big store is written, and a disk without room for the archive
    // (found before anything is written).
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

    // A folder where the last file should go: found before any file is replaced.
    QFile::remove(ziel + QLatin1Char('/') + kWal);
    ASSERT_TRUE(QDir(ziel).mkdir(kWal));
    vorher = baum(wurzel.path());
    EXPECT_EQ(FKRZipArchiv::entpackeSicher(archiv, ziel, kStoreNamen), Ergebnis::SchreibFehler);
    EXPECT_EQ(unterschiede(vorher, baum(wurzel.path())), "");
}

} // namespace
