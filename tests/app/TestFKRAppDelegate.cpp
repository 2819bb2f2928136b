#include "AppTestSupport.h"
#include "SkriptPresenter.h"
#include "../model/StoreTestSupport.h"

#include "FKRAppDelegate.h"
#include "FKRFaelligkeitsMitteilungen.h"
#include "FKRLocalizationHelper.h"
#include "FKRUhr.h"
#include "QBBenutzerEinstellungen.h"

#include <QFileInfo>

using namespace apptest;
using namespace Qt::Literals::StringLiterals;

namespace {

class AppDelegate : public ::testing::Test
{
protected:
    void SetUp() override
    {
        FKRLocalizationHelper::installiereHauptTabelle();
        auto *einstellungen = QBBenutzerEinstellungen::sharedInstance();
        einstellungen->setAppVersion(QStringLiteral("3.13"));
        einstellungen->setAnzahlAppStarts(Decimal(7));
        einstellungen->setDatenbankWurdeNeuImportiert(false);
        einstellungen->setDeaktiviereFaelligeRechnungsMitteilungen(false);
        einstellungen->sichereBenutzerEinstellungen();
    }

    std::unique_ptr<FKRAppDelegate> neuerDelegate()
    {
        auto delegate = std::make_unique<FKRAppDelegate>(presenter);
        delegate->setProzessEnde([](int status) { throw ProzessEnde{status}; });
        auto sync = std::make_unique<SyncAttrappe>();
        this->sync = sync.get();
        delegate->setSyncKoordinator(std::move(sync));
        delegate->setFensterSchicht(&fenster);
        return delegate;
    }

    int storeFehler(FKRAppDelegate &delegate)
    {
        try {
            delegate.managedObjectContext();
        } catch (const ProzessEnde &ende) {
            return ende.status;
        }
        return 0;
    }

    DatenHeimat heimat;
    SkriptPresenter presenter;
    FensterAttrappe fenster;
    SyncAttrappe *sync = nullptr;
};

TEST_F(AppDelegate, ErsterStartLegtOrdnerStoreUndSicherungAnUndZaehltDenStart)
{
    QBBenutzerEinstellungen::sharedInstance()->setAppVersion(QStringLiteral("1.3"));
    auto delegate = neuerDelegate();
    QString archiv;
    QObject::connect(delegate.get(), &FKRAppDelegate::datensicherungBeendet, [&](const QString &pfad) { archiv = pfad; });

    delegate->applicationWillFinishLaunching();
    delegate->applicationDidFinishLaunching();
    EXPECT_TRUE(QFileInfo::exists(delegate->storeURL()));
    EXPECT_EQ(sync->aufrufe.value(0), "synchronisiere");

    ASSERT_TRUE(warteBis([&] { return !archiv.isEmpty(); }));
    EXPECT_EQ(QFileInfo(archiv).absolutePath(), QFileInfo(delegate->dataBackupsDirectory()).absoluteFilePath());

    // The version bookkeeping comes a second later; the help panels open at the first start.
    auto *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    ASSERT_TRUE(warteBis([&] { return fenster.hilfeAufrufe == 1; }, 3000));
    EXPECT_EQ(einstellungen->appVersion(), "3.13");
    EXPECT_EQ(einstellungen->anzahlAppStarts(), Decimal(1));
}

TEST_F(AppDelegate, UnbrauchbarerDatenOrdnerOderStoreBeendetMitFehlerUndBleibtUnberuehrt)
{
    const QString ordnerAlsDatei = u"Für die Programmdaten wird ein Ordner erwartet, gefunden wurde aber eine Datei: %1."_s;
    const QString ladeFehler = u"Beim Anlegen oder Laden der gespeicherten Daten ist ein Fehler aufgetreten."_s;
    struct Fall {
        const char *imWeg; // below the data folder; "" is the data folder itself
        QByteArray inhalt; // empty: a folder
        QString grund;
    };
    const Fall faelle[] = {
        {"", "keine Daten", ordnerAlsDatei},
        {"/VelmoraRechnungen.storedata", QByteArray(5000, 'x'), ladeFehler},
    };
    for (const Fall &fall : faelle) {
        SCOPED_TRACE(fall.imWeg);
        DatenHeimat eigene;
        const QString pfad = eigene.datenOrdner() + QString::fromLatin1(fall.imWeg);
        QDir().mkpath(fall.inhalt.isEmpty() ? pfad : QFileInfo(pfad).path());
        if (!fall.inhalt.isEmpty())
            storetest::writeFile(pfad, fall.inhalt);
        presenter.fehler.clear();
        EXPECT_EQ(storeFehler(*neuerDelegate()), EXIT_FAILURE);
        ASSERT_EQ(presenter.fehler.size(), 1);
        EXPECT_EQ(presenter.fehler.first().failureReason, fall.grund.arg(eigene.datenOrdner()));
        EXPECT_EQ(storetest::fileBytes(pfad), fall.inhalt);
    }

    QDir().mkpath(heimat.datenOrdner());
    storetest::writeFile(heimat.datenOrdner() + "/dataBackups", {});
    auto delegate = neuerDelegate();
    delegate->applicationDidFinishLaunching();
    ASSERT_TRUE(warteBis([&] { return presenter.alerts.size() == 1; }));
    EXPECT_EQ(presenter.alerts[0].textSchluessel, "DATABASE_EXPORT_PROBLEM");
}

TEST_F(AppDelegate, FehlendeIdentitaetenWerdenVergebenVorhandeneBleiben)
{
    QString altRechnung, altPosten;
    {
        auto delegate = neuerDelegate();
        ManagedObjectContext *moc = delegate->managedObjectContext();
        auto *rechnung = moc->insertNewObject<FKRRechnung>();
        auto *posten = moc->insertNewObject<FKRPosten>();
        posten->setRechnung(rechnung);
        ASSERT_TRUE(moc->save());
        altRechnung = *rechnung->uniqueIdentifier();
        altPosten = *posten->uniqueIdentifier();
    }
    storetest::RawSql(heimat.datenOrdner() + "/VelmoraRechnungen.storedata").mustExec("UPDATE FKRPosten SET uniqueIdentifier = NULL");
    {
        auto delegate = neuerDelegate();
        delegate->vergibFehlendeUUIDs();
        storetest::OpenStore store(delegate->storeURL());
        EXPECT_EQ(*store.only<FKRRechnung>()->uniqueIdentifier(), altRechnung);
        EXPECT_NE(store.only<FKRPosten>()->uniqueIdentifier().value_or(altPosten), altPosten);
    }
}

TEST_F(AppDelegate, SichernSpeichertPlantMitteilungenUndSynchronisiert)
{
    FKRUhr::halteAn(QDateTime(QDate(2026, 11, 23), QTime(9, 0)));
    auto delegate = neuerDelegate();
    ManagedObjectContext *moc = delegate->managedObjectContext();
    auto *faellig = moc->insertNewObject<FKRRechnung>();
    faellig->setFaelligkeitsDatum(QDateTime(QDate(2026, 11, 26), QTime(0, 0)));
    moc->insertNewObject<FKRRechnung>()->setBezahlt(true);

    delegate->setFensterSchicht(nullptr);
    delegate->saveAction();
    EXPECT_EQ(sync->aufrufe, QStringList{"synchronisiere"});
    const auto geplant = delegate->mitteilungen().geplanteMitteilungen();
    ASSERT_EQ(geplant.size(), 1);
    EXPECT_EQ(geplant[0].zeit, QDateTime(QDate(2026, 11, 26), QTime(10, 0)));
    EXPECT_EQ(storetest::OpenStore(delegate->storeURL()).moc().fetch<FKRRechnung>().size(), 2);

    // A save the store refuses is presented and the changes stay.
    delegate->setFensterSchicht(&fenster);
    delegate->persistentStoreCoordinator()->setBusyTimeout(50);
    storetest::RawSql sperre(delegate->storeURL());
    sperre.mustExec("BEGIN EXCLUSIVE");
    faellig->setRechnungsNummer(QStringLiteral("R-3"));
    delegate->saveAction();
    EXPECT_EQ(presenter.fehler.size(), 1);
    EXPECT_TRUE(moc->hasChanges());
    sperre.mustExec("ROLLBACK");
    FKRUhr::laufeWeiter();
}

TEST_F(AppDelegate, BeendenFragtWaehrendDerSynchronisationUndSichertSonst)
{
    auto delegate = neuerDelegate();
    ManagedObjectContext *moc = delegate->managedObjectContext();
    moc->insertNewObject<FKRRechnung>();

    sync->beschaeftigt = true;
    presenter.antworten = {kErsterKnopf};
    EXPECT_EQ(delegate->applicationShouldTerminate(), FKRAppDelegate::TerminateReply::TerminateCancel);
    ASSERT_EQ(presenter.alerts.size(), 1);
    EXPECT_EQ(presenter.alerts[0].textSchluessel, "ALERT_TEXT_DATEN_WERDEN_GESICHERT");
    EXPECT_TRUE(moc->hasChanges());

    presenter.antworten = {kZweiterKnopf};
    EXPECT_EQ(delegate->applicationShouldTerminate(), FKRAppDelegate::TerminateReply::TerminateNow);
    EXPECT_FALSE(moc->hasChanges());
    EXPECT_EQ(sync->aufrufe.last(), "synchronisiere");

    // A failed save: resolved → stay; not resolved → ask, and the answer decides.
    sync->beschaeftigt = false;
    delegate->persistentStoreCoordinator()->setBusyTimeout(50);
    storetest::RawSql sperre(delegate->storeURL());
    sperre.mustExec("BEGIN EXCLUSIVE");
    moc->insertNewObject<FKRRechnung>();
    presenter.fehlerGeloest = {true};
    EXPECT_EQ(delegate->applicationShouldTerminate(), FKRAppDelegate::TerminateReply::TerminateCancel);
    presenter.fehlerGeloest = {false};
    presenter.antworten = {kErsterKnopf};
    EXPECT_EQ(delegate->applicationShouldTerminate(), FKRAppDelegate::TerminateReply::TerminateCancel);
    presenter.fehlerGeloest = {false};
    presenter.antworten = {kZweiterKnopf};
    EXPECT_EQ(delegate->applicationShouldTerminate(), FKRAppDelegate::TerminateReply::TerminateNow);
    EXPECT_EQ(presenter.fehler.size(), 3);
    sperre.mustExec("ROLLBACK");
}

TEST_F(AppDelegate, UrlsVorDemStartWartenAufDenHandler)
{
    auto delegate = neuerDelegate();
    QList<FKRUrlErgebnis> antworten;
    delegate->nimmUrlEntgegen(QStringLiteral("velmora://importRechnungsPosten?auftraggeber=Acme"),
                              [&](const FKRUrlErgebnis &ergebnis) { antworten.append(ergebnis); });
    EXPECT_TRUE(presenter.alerts.isEmpty() && antworten.isEmpty());
    delegate->registerForURLScheme();
    EXPECT_EQ(presenter.alerts.size(), 1);
    ASSERT_EQ(antworten.size(), 1);
    EXPECT_FALSE(antworten[0].erledigt);
}

} // namespace
