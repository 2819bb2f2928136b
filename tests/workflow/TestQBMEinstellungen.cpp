// The settings screen saves at once, orders the sync steps and checks an import before emptying.

#include "WorkflowTestSupport.h"
#include "../model/StoreTestSupport.h"

#include "FKRDatenbankImport.h"
#include "QBMEinstellungenViewController.h"

#include <QCheckBox>
#include <QSpinBox>
#include <QTemporaryDir>

using namespace workflowtest;

namespace {

class EinstellungenTest : public FensterTest
{
protected:
    EinstellungenTest()
    {
        auto attrappe = std::make_unique<apptest::SyncAttrappe>();
        sync = attrappe.get();
        delegate->setSyncKoordinator(std::move(attrappe));
        einstellungen->setPdfDocumentSizeIsLetter(false);
        einstellungen->setVerwendeiCloudSync(false);
        einstellungen->setMahnungZahlungsfristTage(14);
        einstellungen->sichereBenutzerEinstellungen();
        screen.show();
    }
    std::unique_ptr<QBBenutzerEinstellungen> gespeichert()
    {
        return QBBenutzerEinstellungen::withSettingsFile(einstellungen->settingsFilePath());
    }

    QBBenutzerEinstellungen *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    apptest::SyncAttrappe *sync = nullptr;
    QBMEinstellungenViewController screen{*delegate};
};

TEST_F(EinstellungenTest, JedeAenderungIstSofortGespeichertUndSyncAusTrenntZuerst)
{
    QTest::keyClick(screen.mahnungZahlungsfristSpinBox(), Qt::Key_Up);
    EXPECT_EQ(gespeichert()->mahnungZahlungsfristTage(), 15);
    QTest::mouseClick(screen.syncCheckbox(), Qt::LeftButton);
    EXPECT_TRUE(gespeichert()->verwendeiCloudSync());
    sync->aufrufe.clear();
    QTest::mouseClick(screen.syncCheckbox(), Qt::LeftButton);
    EXPECT_EQ(sync->aufrufe, (QStringList{u"trenneSyncMitAbschluss"_s, u"synchronisiere"_s}));
}

TEST_F(EinstellungenTest, ImportKnopfPrueftDieDateiBevorEtwasGeleertWird)
{
    dokument(u"Rechnung: 7"_s);
    delegate->saveAction();
    QTemporaryDir ordner;
    QFile datei(ordner.filePath(u"sicherung.fks"_s));
    ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
    datei.write("PK\x03\x04 keine Datensicherung");
    datei.close();
    presenter.panelAntworten = {QStringList{datei.fileName()}};
    QTest::mouseClick(screen.importButton(), Qt::LeftButton);
    EXPECT_TRUE(apptest::warteBis([&] { return screen.datenbankImport().zustand() == FKRDatenbankImport::Zustand::Bereit; }));
    EXPECT_EQ(presenter.alertTexte(), (QStringList{u"ALERT_TEXT_REALLY_IMPORT_DATABASE"_s, u"DATABASE_IMPORT_PROBLEM"_s}));
    EXPECT_TRUE(screen.importButton()->isEnabled());
    storetest::OpenStore store(delegate->storeURL());
    EXPECT_EQ(FensterTest::nummern(FKRArrayController(store.moc(), u"FKRRechnung"_s)), QStringList{u"Rechnung: 7"_s});
}

} // namespace
