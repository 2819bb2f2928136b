#include "AppTestSupport.h"
#include "SkriptPresenter.h"
#include "UnbrauchbareArchive.h"

#include "FKRAppDelegate.h"
#include "FKRDatenbankImport.h"
#include "FKRZipArchiv.h"
#include "QBBenutzerEinstellungen.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

using namespace apptest;
using namespace std::chrono_literals;

namespace {

class DatenbankImport : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto *einstellungen = QBBenutzerEinstellungen::sharedInstance();
        einstellungen->setVerwendeiCloudSync(true);
        einstellungen->setDatenbankWurdeNeuImportiert(false);
        einstellungen->sichereBenutzerEinstellungen();

        delegate = std::make_unique<FKRAppDelegate>(presenter);
        auto attrappe = std::make_unique<SyncAttrappe>();
        sync = attrappe.get();
        delegate->setSyncKoordinator(std::move(attrappe));
        QObject::connect(delegate.get(), &FKRAppDelegate::beendenAngefordert, [this] { beendenAngefordert = true; });
        import = std::make_unique<FKRDatenbankImport>(*delegate);
        import->setWartezeit(30ms);
        QObject::connect(import.get(), &FKRDatenbankImport::fortschrittSichtbar,
                         [this](bool sichtbar) { fortschritt.append(sichtbar); });

        ManagedObjectContext *moc = delegate->managedObjectContext();
        auto *rechnung = moc->insertNewObject<FKRRechnung>();
        rechnung->setRechnungsNummer(QStringLiteral("Hiesig"));
        moc->insertNewObject<FKRPosten>()->setRechnung(rechnung);
        moc->insertNewObject<FKREmpfaenger>();
        moc->insertNewObject<FKRAbsender>();
        ASSERT_TRUE(moc->save());
    }

    // A backup archive of another machine's store with one document.
    QString fremdesArchiv(const QString &name)
    {
        const QString ordner = quelle.path() + "/fremd";
        QDir().mkpath(ordner);
        const QString store = ordner + "/VelmoraRechnungen.storedata";
        {
            storetest::OpenStore fremd(store);
            auto *rechnung = fremd.moc().insertNewObject<FKRRechnung>();
            rechnung->setRechnungsNummer(QStringLiteral("Importiert"));
            fremdeKennung = *rechnung->uniqueIdentifier();
            EXPECT_TRUE(fremd.moc().save());
        }
        const QString archiv = quelle.path() + "/" + name;
        EXPECT_TRUE(FKRZipArchiv::erstelle(archiv, {{store, QStringLiteral("VelmoraRechnungen.storedata")}}));
        return archiv;
    }

    int anzahlImStore()
    {
        storetest::OpenStore store(delegate->storeURL());
        return int(store.moc().fetch<FKRRechnung>().size() + store.moc().fetch<FKRPosten>().size()
                   + store.moc().fetch<FKREmpfaenger>().size() + store.moc().fetch<FKRAbsender>().size());
    }

    void warteAufEnde()
    {
        ASSERT_TRUE(warteBis([this] { return import->zustand() == FKRDatenbankImport::Zustand::Bereit
                                             || import->zustand() == FKRDatenbankImport::Zustand::Fertig; }));
    }

    DatenHeimat heimat;
    QTemporaryDir quelle;
    SkriptPresenter presenter;
    SyncAttrappe *sync = nullptr;
    std::unique_ptr<FKRAppDelegate> delegate;
    std::unique_ptr<FKRDatenbankImport> import;
    QList<bool> fortschritt;
    bool beendenAngefordert = false;
    QString fremdeKennung;
};

TEST_F(DatenbankImport, AbbrechenInBestaetigungOderDateiwahlLaesstAllesStehen)
{
    presenter.antworten = {kZweiterKnopf};
    import->datenbankImportButtonSelected();
    ASSERT_EQ(presenter.alerts.size(), 1);
    EXPECT_EQ(presenter.alerts[0].titelSchluessel, "ALERT_TITLE_HINWEIS");
    EXPECT_EQ(presenter.alerts[0].textSchluessel, "ALERT_TEXT_REALLY_IMPORT_DATABASE");
    EXPECT_EQ(presenter.alerts[0].knopfSchluessel, (QStringList{"BUTTON_TITLE_OK", "BUTTON_TITLE_ABBRECHEN"}));
    EXPECT_TRUE(presenter.panelOrdner.isEmpty());

    presenter.antworten = {kErsterKnopf};
    presenter.panelAntworten = {QStringList()};
    import->datenbankImportButtonSelected();
    EXPECT_EQ(presenter.panelOrdner, QStringList{QStandardPaths::writableLocation(QStandardPaths::DownloadLocation)});
    EXPECT_EQ(fortschritt, (QList<bool>{true, false}));
    EXPECT_EQ(import->zustand(), FKRDatenbankImport::Zustand::Bereit);
    EXPECT_EQ(anzahlImStore(), 4);
    EXPECT_TRUE(sync->aufrufe.isEmpty());
    EXPECT_TRUE(QBBenutzerEinstellungen::sharedInstance()->verwendeiCloudSync());
}

TEST_F(DatenbankImport, FalscheEndungMeldetDasProblemUndLaesstDieDatenbankLeer)
{
    const QString archiv = fremdesArchiv(QStringLiteral("sicherung.zip"));
    presenter.panelAntworten = {QStringList{archiv}};
    import->datenbankImportButtonSelected();
    EXPECT_EQ(anzahlImStore(), 0) << "emptied before the waits";
    warteAufEnde();
    ASSERT_EQ(presenter.alerts.size(), 2);
    EXPECT_EQ(presenter.alerts[1].titelSchluessel, "ALERT_TITLE_PROBLEM");
    EXPECT_EQ(presenter.alerts[1].textSchluessel, "DATABASE_IMPORT_PROBLEM");
    EXPECT_EQ(presenter.alerts[1].knopfSchluessel, QStringList{"BUTTON_TITLE_CLOSE"});
    EXPECT_EQ(anzahlImStore(), 0);
    EXPECT_FALSE(QBBenutzerEinstellungen::sharedInstance()->verwendeiCloudSync());
    EXPECT_FALSE(QBBenutzerEinstellungen::sharedInstance()->datenbankWurdeNeuImportiert());
    EXPECT_FALSE(beendenAngefordert);
    EXPECT_EQ(fortschritt.last(), false);
}

TEST_F(DatenbankImport, GefaehrlichesArchivWirdAbgelehntOhneEtwasZuSchreiben)
{
    // An archive that would put a file next to the data folder.
    const QString fremd = quelle.path() + "/boese.txt";
    {
        QFile datei(fremd);
        ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
        datei.write("boese");
    }
    const QString archiv = quelle.path() + "/boese.fks";
    ASSERT_TRUE(FKRZipArchiv::erstelle(archiv, {{fremd, QStringLiteral("../VelmoraRechnungen.storedata")}}));
    presenter.panelAntworten = {QStringList{archiv}};
    import->datenbankImportButtonSelected();
    warteAufEnde();
    EXPECT_EQ(presenter.alertTexte().last(), "DATABASE_IMPORT_PROBLEM");
    EXPECT_FALSE(QFileInfo::exists(heimat.pfad() + "/VelmoraRechnungen.storedata"));
    EXPECT_EQ(anzahlImStore(), 0) << "the emptied store is still a sound store";
    EXPECT_FALSE(beendenAngefordert);
}

TEST_F(DatenbankImport, EinArchivOhneBrauchbarenStoreWirdAbgelehntOhneEtwasZuAendern)
{
    // Emptied beforehand, so that the import's own emptying writes nothing.
    ManagedObjectContext *moc = delegate->managedObjectContext();
    for (const char *entitaet : {"FKRRechnung", "FKRPosten", "FKREmpfaenger", "FKRAbsender"}) {
        for (ManagedObject *objekt : moc->executeFetchRequest({QString::fromLatin1(entitaet), {}, {}}))
            moc->deleteObject(objekt);
    }
    delegate->saveAction();
    delegate->dataBackupsDirectory();
    import->setGrenzen(ziptest::testGrenzen());
    const QString archiv = quelle.path() + "/fremd.fks";
    const QMap<QString, QByteArray> vorher = ziptest::baum(heimat.datenOrdner());
    for (const ziptest::UnbrauchbaresArchiv &fall : ziptest::unbrauchbareArchive()) {
        SCOPED_TRACE(fall.was);
        ziptest::baueStoreArchiv(archiv, fall.store(quelle.path()));
        presenter.alerts.clear();
        presenter.antworten = {kErsterKnopf};
        presenter.panelAntworten = {QStringList{archiv}};
        import->datenbankImportButtonSelected();
        warteAufEnde();
        EXPECT_EQ(presenter.alertTexte(), (QStringList{"ALERT_TEXT_REALLY_IMPORT_DATABASE", "DATABASE_IMPORT_PROBLEM"}));
        EXPECT_EQ(ziptest::unterschiede(vorher, ziptest::baum(heimat.datenOrdner())), "");
    }
    EXPECT_FALSE(beendenAngefordert);
    EXPECT_FALSE(QBBenutzerEinstellungen::sharedInstance()->datenbankWurdeNeuImportiert());
}

TEST_F(DatenbankImport, SicherungWirdEingespieltUndDerNaechsteStartVergibtNeueIdentitaeten)
{
    const QString archiv = fremdesArchiv(QStringLiteral("23.11.26, 10-15-DataBackup.fks"));
    // A stale side file from before stays where it is; the archive has none.
    QFile(heimat.datenOrdner() + "/VelmoraRechnungen.storedata-wal").open(QIODevice::WriteOnly);
    presenter.panelAntworten = {QStringList{archiv}};
    import->datenbankImportButtonSelected();
    EXPECT_EQ(import->zustand(), FKRDatenbankImport::Zustand::Leeren);
    warteAufEnde();

    // The deletions went to sync, a wait later the store left it, another wait later it was unpacked.
    ASSERT_EQ(sync->aufrufe.mid(sync->aufrufe.size() - 2),
              (QStringList{"synchronisiereMitAbschluss", "trenneSyncMitAbschluss"}));
    EXPECT_GE(sync->zeiten.last() - sync->zeiten[sync->zeiten.size() - 2], 25);
    ASSERT_EQ(presenter.alerts.size(), 2);
    EXPECT_EQ(presenter.alerts[1].titelSchluessel, "ALERT_TITLE_HINWEIS");
    EXPECT_EQ(presenter.alerts[1].textSchluessel, "DATABASE_IMPORT_SUCCESSFUL");
    EXPECT_EQ(presenter.alerts[1].knopfSchluessel, QStringList{"BUTTON_TITLE_CLOSE"});
    auto *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    EXPECT_TRUE(einstellungen->datenbankWurdeNeuImportiert());
    EXPECT_FALSE(einstellungen->verwendeiCloudSync());
    EXPECT_TRUE(beendenAngefordert);
    EXPECT_TRUE(QFileInfo::exists(heimat.datenOrdner() + "/VelmoraRechnungen.storedata-wal"));

    // Quitting writes nothing of the old context over the imported store.
    delegate->managedObjectContext()->insertNewObject<FKRRechnung>();
    EXPECT_EQ(delegate->applicationShouldTerminate(), FKRAppDelegate::TerminateReply::TerminateNow);
    import.reset();
    delegate.reset();
    QFile::remove(heimat.datenOrdner() + "/VelmoraRechnungen.storedata-wal");

    // What a killed import left next to the store goes at the next start.
    const QString rest = heimat.datenOrdner() + "/.VelmoraRechnungen.storedata.Ab12Cd";
    {
        QFile datei(rest);
        ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
        ASSERT_TRUE(datei.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    }
    FKRAppDelegate neuStart(presenter);
    neuStart.setProzessEnde([](int status) { throw ProzessEnde{status}; });
    neuStart.applicationDidFinishLaunching();
    EXPECT_FALSE(QFileInfo::exists(rest));
    neuStart.warteAufDatensicherung();
    const auto rechnungen = neuStart.managedObjectContext()->fetch<FKRRechnung>();
    ASSERT_EQ(rechnungen.size(), 1);
    EXPECT_EQ(rechnungen[0]->rechnungsNummer(), "Importiert");
    EXPECT_NE(rechnungen[0]->uniqueIdentifier(), fremdeKennung);
    EXPECT_FALSE(einstellungen->datenbankWurdeNeuImportiert());
}

} // namespace
