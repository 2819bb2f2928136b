// velmora-cli backup and restore: run in-process against a private data folder, the archives
// read back through a restore, and the refusals that must leave the store as it was.
#include "../app/AppTestSupport.h"
#include "../app/UnbrauchbareArchive.h"

#include "FKRDatenOrdnerSperre.h"
#include "FKRUhr.h"
#include "QBBenutzerEinstellungen.h"
#include "CliLauf.h"
#include "RestoreCommand.h"

#include <QFileInfo>
#include <QRegularExpression>


namespace {

// A restore under bounds small enough for a test-sized zip bomb.
Lauf stelleWiederHer(const QString &archiv)
{
    RestoreCommand restore;
    restore.setGrenzen(ziptest::testGrenzen());
    std::istringstream in;
    std::ostringstream out, err;
    CommandStreams io{in, out, err};
    const int status = restore.execute({archiv}, io);
    return {status, out.str(), err.str()};
}

// Everything in the data folder but the lock file that each run takes, which only marks it.
QMap<QString, QByteArray> inhalt(const QString &ordner)
{
    QMap<QString, QByteArray> baum = ziptest::baum(ordner);
    baum.remove("/.velmora.lock");
    return baum;
}

class BackupRestore : public ::testing::Test
{
protected:
    void SetUp() override { FKRUhr::halteAn(QDateTime(QDate(2026, 11, 23), QTime(14, 5))); }
    void TearDown() override { FKRUhr::laufeWeiter(); }

    QString datenOrdner() const { return m_heimat.datenOrdner(); }
    QString store() const { return datenOrdner() + "/VelmoraRechnungen.storedata"; }
    QStringList sicherungen() const
    {
        return QDir(datenOrdner() + "/dataBackups").entryList({"*.fks"}, QDir::Files, QDir::Name);
    }

    void legeStoreAn(const QStringList &nummern)
    {
        QDir().mkpath(datenOrdner());
        storetest::OpenStore offen(store());
        for (ManagedObject *alt : offen.moc().executeFetchRequest({QStringLiteral("FKRRechnung"), {}, {}}))
            offen.moc().deleteObject(alt);
        for (const QString &nummer : nummern)
            offen.moc().insertNewObject<FKRRechnung>()->setRechnungsNummer(nummer);
        ASSERT_TRUE(offen.moc().save());
    }

    QStringList nummernImStore()
    {
        storetest::OpenStore offen(store());
        QStringList nummern;
        for (const FKRRechnung *rechnung : offen.moc().fetch<FKRRechnung>())
            nummern << rechnung->rechnungsNummer().value_or(QString());
        nummern.sort();
        return nummern;
    }

    apptest::DatenHeimat m_heimat;
};

TEST_F(BackupRestore, SicherungLandetImSicherungsordnerOderWoDerNutzerWill)
{
    const Lauf ohneStore = starteCli({"backup"});
    EXPECT_EQ(ohneStore.status, 1);
    EXPECT_NE(ohneStore.err.find("no store"), std::string::npos) << ohneStore.err;

    legeStoreAn({"A-1", "A-2"});
    const Lauf erste = starteCli({"backup"});
    ASSERT_EQ(erste.status, 0) << erste.err;
    const Lauf zweite = starteCli({"backup"});
    ASSERT_EQ(zweite.status, 0) << zweite.err;
    EXPECT_NE(erste.out, zweite.out) << "a second backup in the same minute must not replace the first";
    EXPECT_EQ(sicherungen().size(), 2);

    QTemporaryDir woanders;
    ASSERT_EQ(starteCli({"backup", "--out", woanders.path() + "/mein.fks"}).status, 0);
    EXPECT_TRUE(QFileInfo(woanders.path() + "/mein.fks").size() > 0);
    const Lauf inOrdner = starteCli({"backup", "--out=" + woanders.path()});
    ASSERT_EQ(inOrdner.status, 0) << inOrdner.err;
    EXPECT_EQ(QDir(woanders.path()).entryList({"*-DataBackup.fks"}, QDir::Files).size(), 1);

    for (const QStringList &aufruf : {QStringList{"backup", "--out"}, {"backup", "extra"}})
        EXPECT_EQ(starteCli(aufruf).status, 2);
}

TEST_F(BackupRestore, WiederherstellungSichertErstDenAktuellenStoreUndVerweigertUnbrauchbares)
{
    legeStoreAn({"Alt-1"});
    QTemporaryDir woanders;
    const QString archiv = woanders.path() + "/umzug.fks";
    ASSERT_EQ(starteCli({"backup", "--out", archiv}).status, 0);
    legeStoreAn({"Neu-1", "Neu-2"});
    auto *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    einstellungen->setVerwendeiCloudSync(true);

    QFile::copy(archiv, woanders.path() + "/gut.zip");
    const QByteArray bytes = ziptest::lies(archiv);
    ziptest::schreibe(woanders.path() + "/kaputt.fks", bytes.left(bytes.size() / 2));
    for (const QStringList &aufruf : {QStringList{"restore", woanders.path() + "/gut.zip"}, {"restore", woanders.path() + "/fehlt.fks"},
                                      {"restore"}, {"restore", archiv, archiv}, {"restore", woanders.path() + "/kaputt.fks"}})
        EXPECT_EQ(starteCli(aufruf).status, 2) << aufruf.join(' ').toStdString();
    {
        // While the program runs (it holds the data folder's lock).
        FKRDatenOrdnerSperre laufendesProgramm;
        ASSERT_EQ(laufendesProgramm.sperre(datenOrdner()), FKRDatenOrdnerSperre::Ergebnis::Gehalten);
        const Lauf waehrendEsLaeuft = starteCli({"restore", archiv});
        EXPECT_EQ(waehrendEsLaeuft.status, 1);
        EXPECT_NE(waehrendEsLaeuft.err.find("running"), std::string::npos) << waehrendEsLaeuft.err;
    }
    EXPECT_EQ(nummernImStore(), (QStringList{"Neu-1", "Neu-2"}));
    EXPECT_FALSE(einstellungen->datenbankWurdeNeuImportiert());
    EXPECT_TRUE(sicherungen().isEmpty());

    const Lauf lauf = starteCli({"restore", archiv});
    ASSERT_EQ(lauf.status, 0) << lauf.err;
    EXPECT_EQ(nummernImStore(), QStringList{"Alt-1"});
    EXPECT_TRUE(einstellungen->datenbankWurdeNeuImportiert());
    EXPECT_FALSE(einstellungen->verwendeiCloudSync());
    ASSERT_EQ(sicherungen().size(), 1);
    ASSERT_EQ(starteCli({"restore", datenOrdner() + "/dataBackups/" + sicherungen().first()}).status, 0);
    EXPECT_EQ(nummernImStore(), (QStringList{"Neu-1", "Neu-2"}));
    einstellungen->setDatenbankWurdeNeuImportiert(false);
}

TEST_F(BackupRestore, EinArchivOhneBrauchbarenStoreWirdAbgelehntOhneEtwasZuAendern)
{
    legeStoreAn({"Bleibt"});
    QTemporaryDir werkstatt;
    const QString archiv = werkstatt.path() + "/fremd.fks";
    const QMap<QString, QByteArray> vorher = inhalt(datenOrdner());
    for (const ziptest::UnbrauchbaresArchiv &fall : ziptest::unbrauchbareArchive()) {
        SCOPED_TRACE(fall.was);
        ziptest::baueStoreArchiv(archiv, fall.store(werkstatt.path()));
        const Lauf lauf = stelleWiederHer(archiv);
        EXPECT_EQ(lauf.status, 2);
        EXPECT_EQ(lauf.err.rfind("velmora-cli: refused ", 0), 0u) << lauf.err;
        EXPECT_NE(lauf.err.find(fall.grund), std::string::npos) << lauf.err;
        EXPECT_EQ(std::count(lauf.err.begin(), lauf.err.end(), '\n'), 1) << lauf.err;
        EXPECT_EQ(ziptest::unterschiede(vorher, inhalt(datenOrdner())), "");
    }
    EXPECT_FALSE(QBBenutzerEinstellungen::sharedInstance()->datenbankWurdeNeuImportiert());

    // A usable store of an older version whose last save is still in its write-ahead log: the
    // log comes along and is folded into the store.
    const QString wal = werkstatt.path() + "/wal.storedata";
    ziptest::schreibe(wal, ziptest::guterStore(werkstatt.path()));
    QByteArray store, log;
    {
        storetest::RawSql roh(wal);
        roh.mustExec("PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0;"
                     "UPDATE VelmoraStoreMetadata SET value = '0' WHERE key = 'schemaVersion';"
                     "ALTER TABLE FKRRechnung DROP COLUMN skonto;"
                     "UPDATE FKRRechnung SET rechnungsNummer = 'Aus dem Log'");
        store = ziptest::lies(wal);
        log = ziptest::lies(wal + "-wal");
    }
    ASSERT_FALSE(log.isEmpty());
    QFile::remove(archiv);
    ziptest::baueArchiv(archiv, {{"VelmoraRechnungen.storedata", store}, {"VelmoraRechnungen.storedata-wal", log}});
    const Lauf lauf = stelleWiederHer(archiv);
    ASSERT_EQ(lauf.status, 0) << lauf.err;
    EXPECT_EQ(nummernImStore(), QStringList{"Aus dem Log"});
    EXPECT_EQ(sicherungen().size(), 1) << "the replaced store is backed up";
    EXPECT_EQ(QStringList(inhalt(datenOrdner()).keys()).filter(QRegularExpression("^/[^/]*$")),
              (QStringList{"/VelmoraRechnungen.storedata", "/dataBackups"}));
    QBBenutzerEinstellungen::sharedInstance()->setDatenbankWurdeNeuImportiert(false);
}

} // namespace
