#include "AppTestSupport.h"
#include "SkriptPresenter.h"
#include "UnbrauchbareArchive.h"

#include "FKRAppDelegate.h"
#include "FKRDatenbankImport.h"
#include "FKRDatensicherung.h"
#include "QBBenutzerEinstellungen.h"

#include <QFileInfo>

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

        ManagedObjectContext *moc = delegate->managedObjectContext();
        auto *rechnung = moc->insertNewObject<FKRRechnung>();
        rechnung->setRechnungsNummer(QStringLiteral("Hiesig"));
        moc->insertNewObject<FKRPosten>()->setRechnung(rechnung);
        ASSERT_TRUE(moc->save());
    }

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
        return int(store.moc().fetch<FKRRechnung>().size() + store.moc().fetch<FKRPosten>().size());
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
    bool beendenAngefordert = false;
    QString fremdeKennung;
};

TEST_F(DatenbankImport, WasKeineBrauchbareSicherungIstWirdAbgelehntBevorEtwasGeleertWird)
{
    // The catalogue of unusable stores is the restore command's; one row shows the import takes it.
    import->setGrenzen(ziptest::testGrenzen());
    delegate->dataBackupsDirectory();
    QList<std::pair<std::string, std::function<QString()>>> faelle{
        {"another extension", [this] { return fremdesArchiv(QStringLiteral("sicherung.zip")); }},
    };
    for (const ziptest::UnbrauchbaresArchiv &fall : ziptest::unbrauchbareArchive().mid(3, 1)) {
        faelle.append({fall.was, [this, fall] {
                           const QString archiv = quelle.path() + "/fremd.fks";
                           ziptest::baueStoreArchiv(archiv, fall.store(quelle.path()));
                           return archiv;
                       }});
    }
    const QMap<QString, QByteArray> vorher = ziptest::baum(heimat.datenOrdner());
    for (const auto &[was, archiv] : faelle) {
        SCOPED_TRACE(was);
        presenter.alerts.clear();
        const QString pfad = archiv();
        presenter.panelAntworten = {QStringList{pfad}};
        import->datenbankImportButtonSelected();
        warteAufEnde();
        ASSERT_EQ(presenter.alertTexte(), (QStringList{"ALERT_TEXT_REALLY_IMPORT_DATABASE", "DATABASE_IMPORT_PROBLEM"}));
        EXPECT_EQ(presenter.alerts[1].zusatzText, QFileInfo(pfad).fileName());
        EXPECT_EQ(ziptest::unterschiede(vorher, ziptest::baum(heimat.datenOrdner())), "");
    }
    EXPECT_TRUE(sync->aufrufe.isEmpty());
    EXPECT_TRUE(QBBenutzerEinstellungen::sharedInstance()->verwendeiCloudSync());
    EXPECT_FALSE(beendenAngefordert);
}

TEST_F(DatenbankImport, OhneSicherungDerDatenVonVorherWirdNichtsGeleert)
{
    const QString sicherungen = delegate->dataBackupsDirectory();
    ASSERT_TRUE(QDir(sicherungen).removeRecursively());
    ziptest::schreibe(sicherungen, "kein Ordner");
    presenter.panelAntworten = {QStringList{fremdesArchiv(QStringLiteral("sicherung.fks"))}};
    import->datenbankImportButtonSelected();
    warteAufEnde();
    EXPECT_EQ(presenter.alertTexte().last(), "DATABASE_IMPORT_NO_BACKUP");
    EXPECT_EQ(anzahlImStore(), 2);
    EXPECT_FALSE(beendenAngefordert);
}

TEST_F(DatenbankImport, ScheitertDasEinsetzenLiegenDieDatenVonVorherInDerSicherung)
{
    const QString archiv = fremdesArchiv(QStringLiteral("sicherung.fks"));
    presenter.panelAntworten = {QStringList{archiv}};
    import->datenbankImportButtonSelected();
    ASSERT_TRUE(warteBis([this] { return import->zustand() == FKRDatenbankImport::Zustand::Leeren; }));
    // A folder where the store file was stops the renames.
    const QString store = heimat.datenOrdner() + "/VelmoraRechnungen.storedata";
    ASSERT_TRUE(QFile::remove(store));
    ASSERT_TRUE(QDir().mkdir(store));
    warteAufEnde();
    QDir(store).removeRecursively();

    ASSERT_EQ(presenter.alertTexte().last(), "DATABASE_IMPORT_FAILED");
    const QString sicherung = presenter.alerts.last().zusatzText;
    EXPECT_EQ(QFileInfo(sicherung).absolutePath(), QFileInfo(delegate->dataBackupsDirectory()).absoluteFilePath());

    // The backup holds the document as it was before the import emptied the store.
    QTemporaryDir entpackt;
    ASSERT_EQ(FKRZipArchiv::entpackeSicher(sicherung, entpackt.path(), FKRDatensicherung::storeDateiNamen()),
              FKRZipArchiv::Ergebnis::Erfolg);
    storetest::OpenStore vorher(entpackt.path() + "/VelmoraRechnungen.storedata");
    EXPECT_EQ(vorher.only<FKRRechnung>()->rechnungsNummer(), "Hiesig");
}

TEST_F(DatenbankImport, SicherungWirdEingespieltUndDerNaechsteStartVergibtNeueIdentitaeten)
{
    // Cancelled in the confirmation or in the file panel: nothing changes.
    presenter.antworten = {kZweiterKnopf};
    presenter.panelAntworten = {QStringList()};
    import->datenbankImportButtonSelected();
    import->datenbankImportButtonSelected();
    EXPECT_TRUE(sync->aufrufe.isEmpty());
    presenter.alerts.clear();

    const QString archiv = fremdesArchiv(QStringLiteral("2026-11-23 10.15.00-DataBackup.fks"));
    presenter.panelAntworten = {QStringList{archiv}};
    import->datenbankImportButtonSelected();
    EXPECT_EQ(import->zustand(), FKRDatenbankImport::Zustand::Pruefen) << "checked before anything is emptied";
    EXPECT_EQ(anzahlImStore(), 2);
    warteAufEnde();

    EXPECT_EQ(sync->aufrufe.last(), "trenneSyncMitAbschluss");
    EXPECT_EQ(presenter.alertTexte(), (QStringList{"ALERT_TEXT_REALLY_IMPORT_DATABASE", "DATABASE_IMPORT_SUCCESSFUL"}));
    auto *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    EXPECT_TRUE(einstellungen->datenbankWurdeNeuImportiert());
    EXPECT_FALSE(einstellungen->verwendeiCloudSync());
    EXPECT_TRUE(beendenAngefordert);

    // Quitting writes nothing of the old context over the imported store.
    delegate->managedObjectContext()->insertNewObject<FKRRechnung>();
    EXPECT_EQ(delegate->applicationShouldTerminate(), FKRAppDelegate::TerminateReply::TerminateNow);
    import.reset();
    delegate.reset();

    // What a killed import left next to the store goes at the next start.
    const QString rest = heimat.datenOrdner() + "/.VelmoraRechnungen.storedata.Ab12Cd";
    ziptest::schreibe(rest, {});
    ziptest::altere(rest, 86400);
    FKRAppDelegate neuStart(presenter);
    neuStart.setProzessEnde([](int status) { throw ProzessEnde{status}; });
    neuStart.applicationDidFinishLaunching();
    EXPECT_FALSE(QFileInfo::exists(rest));
    neuStart.warteAufDatensicherung();
    const auto rechnungen = neuStart.managedObjectContext()->fetch<FKRRechnung>();
    ASSERT_EQ(rechnungen.size(), 1);
    EXPECT_EQ(rechnungen[0]->rechnungsNummer(), "Importiert");
    EXPECT_NE(rechnungen[0]->uniqueIdentifier(), fremdeKennung);
}

} // namespace
