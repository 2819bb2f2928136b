// velmora-cli backup and restore against a private data folder; refusals leave the store as it was.
#include "../app/AppTestSupport.h"
#include "../app/UnbrauchbareArchive.h"

#include "FKRDatenOrdnerSperre.h"
#include "FKRUhr.h"
#include "QBBenutzerEinstellungen.h"
#include "CliLauf.h"
#include "RestoreCommand.h"

#include <QFileInfo>

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
    EXPECT_EQ(starteCli({"backup"}).status, 1) << "no store yet";
    legeStoreAn({"A-1", "A-2"});
    EXPECT_NE(starteCli({"backup"}).out, starteCli({"backup"}).out) << "a second backup in the same minute replaces nothing";
    EXPECT_EQ(sicherungen().size(), 2);

    QTemporaryDir woanders;
    ASSERT_EQ(starteCli({"backup", "--out=" + woanders.path()}).status, 0);
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

    for (const QStringList &aufruf : {QStringList{"restore", woanders.path() + "/fehlt.fks"}, {"restore", archiv, archiv}})
        EXPECT_EQ(starteCli(aufruf).status, 2) << aufruf.join(' ').toStdString();
    {
        // While the program runs (it holds the data folder's lock).
        FKRDatenOrdnerSperre laufendesProgramm;
        ASSERT_EQ(laufendesProgramm.sperre(datenOrdner()), FKRDatenOrdnerSperre::Ergebnis::Gehalten);
        EXPECT_EQ(starteCli({"restore", archiv}).status, 1);
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

    // An older version's store whose last save is still in its write-ahead log: the log comes along.
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
    QBBenutzerEinstellungen::sharedInstance()->setDatenbankWurdeNeuImportiert(false);
}

} // namespace
