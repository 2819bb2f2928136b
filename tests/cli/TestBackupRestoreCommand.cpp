// velmora-cli backup and restore: run in-process against a private data folder, the archives
// read back through a restore, and the refusals that must leave the store as it was.
#include "../model/StoreTestSupport.h"

#include "FKRDatenOrdnerSperre.h"
#include "FKRUhr.h"
#include "QBBenutzerEinstellungen.h"
#include "CliLauf.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sstream>

namespace {

Lauf starte(const QStringList &arguments)
{
    return starteCli(arguments);
}

class BackupRestore : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_alt = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", m_heimat.path().toUtf8());
        FKRUhr::halteAn(QDateTime(QDate(2026, 11, 23), QTime(14, 5)));
    }
    void TearDown() override
    {
        FKRUhr::laufeWeiter();
        qputenv("XDG_DATA_HOME", m_alt);
    }

    QString datenOrdner() const { return m_heimat.path() + "/Velmora-Rechnungen"; }
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

    QTemporaryDir m_heimat;
    QByteArray m_alt;
};

TEST_F(BackupRestore, SicherungLandetImSicherungsordnerOderWoDerNutzerWill)
{
    const Lauf ohneStore = starte({"backup"});
    EXPECT_EQ(ohneStore.status, 1);
    EXPECT_NE(ohneStore.err.find("no store"), std::string::npos) << ohneStore.err;

    legeStoreAn({"A-1", "A-2"});
    const Lauf erste = starte({"backup"});
    ASSERT_EQ(erste.status, 0) << erste.err;
    const Lauf zweite = starte({"backup"});
    ASSERT_EQ(zweite.status, 0) << zweite.err;
    EXPECT_NE(erste.out, zweite.out) << "a second backup in the same minute must not replace the first";
    EXPECT_EQ(sicherungen().size(), 2);
    for (const QString &name : sicherungen())
        EXPECT_TRUE(name.endsWith("-DataBackup.fks")) << name.toStdString();

    QTemporaryDir woanders;
    const QString datei = woanders.path() + "/mein.fks";
    const Lauf mitZiel = starte({"backup", "--out", datei});
    ASSERT_EQ(mitZiel.status, 0) << mitZiel.err;
    EXPECT_TRUE(QFileInfo(datei).size() > 0);
    const Lauf inOrdner = starte({"backup", "--out=" + woanders.path()});
    ASSERT_EQ(inOrdner.status, 0) << inOrdner.err;
    EXPECT_EQ(QDir(woanders.path()).entryList({"*-DataBackup.fks"}, QDir::Files).size(), 1);

    EXPECT_EQ(starte({"backup", "--out"}).status, 2);
    EXPECT_EQ(starte({"backup", "extra"}).status, 2);
}

TEST_F(BackupRestore, WiederherstellungSichertErstDenAktuellenStoreUndMarkiertDenImport)
{
    legeStoreAn({"Alt-1"});
    QTemporaryDir woanders;
    const QString archiv = woanders.path() + "/umzug.fks";
    ASSERT_EQ(starte({"backup", "--out", archiv}).status, 0);
    legeStoreAn({"Neu-1", "Neu-2"});
    auto *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    einstellungen->setVerwendeiCloudSync(true);
    einstellungen->setDatenbankWurdeNeuImportiert(false);

    const Lauf lauf = starte({"restore", archiv});
    ASSERT_EQ(lauf.status, 0) << lauf.err;
    EXPECT_EQ(nummernImStore(), QStringList{"Alt-1"});
    EXPECT_TRUE(einstellungen->datenbankWurdeNeuImportiert());
    EXPECT_FALSE(einstellungen->verwendeiCloudSync());
    // The store that was replaced is in the backups folder.
    ASSERT_EQ(sicherungen().size(), 1);
    const Lauf zurueck = starte({"restore", datenOrdner() + "/dataBackups/" + sicherungen().first()});
    ASSERT_EQ(zurueck.status, 0) << zurueck.err;
    EXPECT_EQ(nummernImStore(), (QStringList{"Neu-1", "Neu-2"}));
    einstellungen->setDatenbankWurdeNeuImportiert(false);
}

TEST_F(BackupRestore, WiederherstellungVerweigertUndLaesstDenStoreStehen)
{
    legeStoreAn({"Bleibt"});
    QTemporaryDir woanders;
    const QString archiv = woanders.path() + "/gut.fks";
    ASSERT_EQ(starte({"backup", "--out", archiv}).status, 0);

    // Wrong extension, missing file, wrong arguments.
    QFile::copy(archiv, woanders.path() + "/gut.zip");
    EXPECT_EQ(starte({"restore", woanders.path() + "/gut.zip"}).status, 2);
    EXPECT_EQ(starte({"restore", woanders.path() + "/fehlt.fks"}).status, 2);
    EXPECT_EQ(starte({"restore"}).status, 2);

    // A truncated archive.
    const QString kaputt = woanders.path() + "/kaputt.fks";
    {
        QFile quelle(archiv);
        ASSERT_TRUE(quelle.open(QIODevice::ReadOnly));
        QFile ziel(kaputt);
        ASSERT_TRUE(ziel.open(QIODevice::WriteOnly));
        ziel.write(quelle.readAll().left(int(quelle.size() / 2)));
    }
    const Lauf abgeschnitten = starte({"restore", kaputt});
    EXPECT_EQ(abgeschnitten.status, 2) << abgeschnitten.err;

    // While the program runs (it holds the data folder's lock).
    FKRDatenOrdnerSperre laufendesProgramm;
    ASSERT_EQ(laufendesProgramm.sperre(datenOrdner()), FKRDatenOrdnerSperre::Ergebnis::Gehalten);
    const Lauf waehrendEsLaeuft = starte({"restore", archiv});
    EXPECT_EQ(waehrendEsLaeuft.status, 1);
    EXPECT_NE(waehrendEsLaeuft.err.find("running"), std::string::npos) << waehrendEsLaeuft.err;

    EXPECT_EQ(nummernImStore(), QStringList{"Bleibt"});
    EXPECT_FALSE(QBBenutzerEinstellungen::sharedInstance()->datenbankWurdeNeuImportiert());
}

} // namespace
