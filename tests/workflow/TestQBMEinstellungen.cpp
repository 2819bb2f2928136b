// The settings screen writes through to the settings file at once (check boxes, swatches, the
// days of grace of a dunning letter), drives the sync seam in the right order, and starts the
// database import.

#include "WorkflowTestSupport.h"
#include "../model/StoreTestSupport.h"

#include "FKRDatenbankImport.h"
#include "QBMEinstellungenViewController.h"
#include "QBMStyleUtil.h"

#include <QCheckBox>
#include <QLabel>
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
        einstellungen->setBackgroundColorRechnungen(43);
        einstellungen->setPdfDocumentSizeIsLetter(false);
        einstellungen->setVerwendeiCloudSync(false);
        einstellungen->setMahnungZahlungsfristTage(14);
        einstellungen->sichereBenutzerEinstellungen();
        screen.show();
    }

    // What the settings file holds now, read by a second reader.
    std::unique_ptr<QBBenutzerEinstellungen> gespeichert()
    {
        return QBBenutzerEinstellungen::withSettingsFile(einstellungen->settingsFilePath());
    }

    QBBenutzerEinstellungen *einstellungen = QBBenutzerEinstellungen::sharedInstance();
    apptest::SyncAttrappe *sync = nullptr;
    QBMEinstellungenViewController screen{*delegate};
};

TEST_F(EinstellungenTest, FarbfelderUndKontrollkaestchenSpeichernSofort)
{
    EXPECT_EQ(screen.versionStringTextField()->text(), u"v 3.13"_s);
    EXPECT_TRUE(screen.swatch(3)->isChecked()); // the default red
    const int codes[] = {3, 2, 43, 53, 23, 33, 13, 63};
    for (int i = 1; i <= 8; ++i) {
        QTest::mouseClick(screen.swatch(i), Qt::LeftButton);
        EXPECT_EQ(gespeichert()->backgroundColorRechnungen(), Decimal(codes[i - 1])) << i;
        EXPECT_TRUE(screen.swatch(i)->isChecked());
        EXPECT_FALSE(screen.swatch(i == 3 ? 1 : 3)->isChecked());
        if (i == 1)
            EXPECT_EQ(QBMStyleUtil::appColor(), QColor(165, 165, 165));
    }
    EXPECT_EQ(QBMStyleUtil::appColor(), QColor(170, 10, 150));

    ASSERT_TRUE(screen.dokumenteInA4Checkbox()->isChecked());
    QTest::mouseClick(screen.dokumenteInA4Checkbox(), Qt::LeftButton);
    EXPECT_TRUE(gespeichert()->pdfDocumentSizeIsLetter());
    QTest::mouseClick(screen.dokumenteInA4Checkbox(), Qt::LeftButton);
    EXPECT_FALSE(gespeichert()->pdfDocumentSizeIsLetter());
    QTest::mouseClick(screen.mitteilungenCheckbox(), Qt::LeftButton);
    EXPECT_TRUE(gespeichert()->deaktiviereFaelligeRechnungsMitteilungen());
    EXPECT_TRUE(sync->aufrufe.isEmpty());

    // A dunning letter's days of grace: every step is saved, within 0 to 365 days.
    QSpinBox *frist = screen.mahnungZahlungsfristSpinBox();
    EXPECT_EQ(frist->value(), 14);
    EXPECT_EQ(frist->suffix(), u" Tage"_s);
    QTest::keyClick(frist, Qt::Key_Up);
    EXPECT_EQ(gespeichert()->mahnungZahlungsfristTage(), 15);
    QTest::keyClick(frist, Qt::Key_PageUp); // ten steps
    EXPECT_EQ(gespeichert()->mahnungZahlungsfristTage(), 25);
    EXPECT_EQ(frist->minimum(), 0);
    EXPECT_EQ(frist->maximum(), 365);
}

TEST_F(EinstellungenTest, SyncAusTrenntVorDemSyncSchritt)
{
    QTest::mouseClick(screen.syncCheckbox(), Qt::LeftButton);
    EXPECT_TRUE(gespeichert()->verwendeiCloudSync());
    EXPECT_EQ(sync->aufrufe, QStringList{u"synchronisiere"_s});
    sync->aufrufe.clear();
    QTest::mouseClick(screen.syncCheckbox(), Qt::LeftButton);
    EXPECT_FALSE(gespeichert()->verwendeiCloudSync());
    EXPECT_EQ(sync->aufrufe, (QStringList{u"trenneSyncMitAbschluss"_s, u"synchronisiere"_s}));
}

TEST_F(EinstellungenTest, ImportKnopfPrueftDieDateiBevorEtwasGeleertWird)
{
    // The user cancels the confirmation: nothing else happens and the screen is idle again.
    presenter.antworten = {kZweiterKnopf};
    QTest::mouseClick(screen.importButton(), Qt::LeftButton);
    ASSERT_EQ(presenter.alertTexte(), QStringList{u"ALERT_TEXT_REALLY_IMPORT_DATABASE"_s});
    EXPECT_EQ(screen.datenbankImport().zustand(), FKRDatenbankImport::Zustand::Bereit);
    EXPECT_FALSE(screen.spinnerView()->isVisible());
    EXPECT_TRUE(screen.importButton()->isEnabled());

    // A file that only looks like a backup: while it is checked the progress shows and the
    // button cannot start a second import; then the user learns why, and every document is
    // still there.
    dokument(u"Rechnung: 7"_s);
    delegate->saveAction();
    sync->aufrufe.clear();
    QTemporaryDir ordner;
    QFile datei(ordner.filePath(u"sicherung.fks"_s));
    ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
    datei.write("PK\x03\x04 keine Datensicherung");
    datei.close();
    bool sichtbarWaehrendDesImports = false;
    QObject::connect(&screen.datenbankImport(), &FKRDatenbankImport::fortschrittSichtbar, &screen, [&](bool an) {
        if (an)
            sichtbarWaehrendDesImports = screen.spinnerView()->isVisible() && !screen.importButton()->isEnabled();
    });
    presenter.alerts.clear();
    presenter.panelAntworten = {QStringList{datei.fileName()}};
    QTest::mouseClick(screen.importButton(), Qt::LeftButton);
    EXPECT_TRUE(apptest::warteBis([&] { return screen.datenbankImport().zustand() == FKRDatenbankImport::Zustand::Bereit; }));
    EXPECT_TRUE(sichtbarWaehrendDesImports);
    EXPECT_FALSE(screen.spinnerView()->isVisible());
    EXPECT_EQ(presenter.alertTexte(), (QStringList{u"ALERT_TEXT_REALLY_IMPORT_DATABASE"_s, u"DATABASE_IMPORT_PROBLEM"_s}));
    storetest::OpenStore store(delegate->storeURL());
    EXPECT_EQ(FensterTest::nummern(FKRArrayController(store.moc(), u"FKRRechnung"_s)), QStringList{u"Rechnung: 7"_s});
    EXPECT_TRUE(sync->aufrufe.isEmpty());
}

} // namespace
