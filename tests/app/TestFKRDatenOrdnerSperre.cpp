// One data folder, one program: the folder's lock decides between objects of one process and
// between processes, and a program started by the holder does not inherit it.

#include "AppTestSupport.h"
#include "SkriptPresenter.h"

#include "FKRAppDelegate.h"
#include "FKRDatenOrdnerSperre.h"


using namespace apptest;
using namespace Qt::Literals::StringLiterals;
using Ergebnis = FKRDatenOrdnerSperre::Ergebnis;

namespace {

TEST(DatenOrdnerSperre, NurEinerHaeltSieUndKeinGestartetesProgrammErbtSie)
{
    QTemporaryDir ordner;
    FKRDatenOrdnerSperre erste, zweite;
    EXPECT_EQ(erste.sperre(ordner.path()), Ergebnis::Gehalten);
    EXPECT_EQ(erste.sperre(ordner.path()), Ergebnis::Gehalten) << "asking again changes nothing";
    EXPECT_EQ(zweite.sperre(ordner.path()), Ergebnis::Belegt);
    EXPECT_FALSE(zweite.gehalten());

    // A program started meanwhile outlives the holder's lock without holding it.
    const auto kind = harness::starteKind(u"sleep"_s, {u"10"_s});
    erste.gibFrei();
    EXPECT_EQ(zweite.sperre(ordner.path()), Ergebnis::Gehalten);
    kind->kill();
    kind->waitForFinished(5000);

    FKRDatenOrdnerSperre dritte;
    EXPECT_EQ(dritte.sperre(ordner.path() + u"/fehlt"_s), Ergebnis::Fehler);
    EXPECT_TRUE(dritte.fehler().contains(ordner.path() + u"/fehlt/.velmora.lock"_s)) << dritte.fehler().toStdString();
}

// Two real programs on one data folder: the second never opens the store, tells its user and
// ends with a failure status; once the first has ended the store opens again.
TEST(DatenOrdnerSperre, ZweitesProgrammOeffnetDenStoreNichtUndEndetMitFehler)
{
    DatenHeimat heimat;
    const QString kindProgramm = QStringLiteral(VELMORA_BINARY_DIR "/tests/velmora_test_speicherkind");
    const auto erster = harness::starteKind(kindProgramm, {u"--halten"_s});
    ASSERT_TRUE(erster->waitForReadyRead(15000));
    ASSERT_EQ(erster->readAllStandardOutput(), "offen\n") << erster->readAllStandardError().toStdString();

    const auto zweiter = harness::starteKind(kindProgramm, {u"--halten"_s});
    ASSERT_TRUE(zweiter->waitForFinished(15000));
    EXPECT_EQ(zweiter->exitCode(), EXIT_FAILURE);
    EXPECT_EQ(zweiter->readAllStandardOutput(), "") << "the store was not opened";
    EXPECT_TRUE(zweiter->readAllStandardError().contains("alert ALERT_TEXT_DATENORDNER_BELEGT\n"));

    // Nor does a restore put other store files in place under it.
    const QString archiv = heimat.pfad() + u"/alt.fks"_s;
    QFile(archiv).open(QIODevice::WriteOnly);
    const auto restore = harness::starteKind(QStringLiteral(VELMORA_BINARY_DIR "/src/cli/velmora-cli"), {u"restore"_s, archiv});
    ASSERT_TRUE(restore->waitForFinished(15000));
    EXPECT_EQ(restore->exitCode(), 1);
    const QByteArray meldung = "\n" + restore->readAllStandardError();
    EXPECT_TRUE(meldung.endsWith("\nvelmora-cli: Velmora Rechnungen is running (or another restore); quit it before "
                                 "restoring a backup\n")
                && meldung.count("velmora-cli:") == 1)
        << meldung.constData();

    // The same in this process, with the alert as the user sees it.
    SkriptPresenter presenter;
    {
        FKRAppDelegate delegate(presenter);
        delegate.setProzessEnde([](int status) { throw ProzessEnde{status}; });
        try {
            delegate.managedObjectContext();
            ADD_FAILURE() << "the store was opened";
        } catch (const ProzessEnde &ende) {
            EXPECT_EQ(ende.status, EXIT_FAILURE);
        }
        ASSERT_EQ(presenter.alerts.size(), 1);
        EXPECT_EQ(presenter.alerts[0].titelSchluessel, u"ALERT_TITLE_DATENORDNER_BELEGT"_s);
        EXPECT_EQ(presenter.alerts[0].textSchluessel, u"ALERT_TEXT_DATENORDNER_BELEGT"_s);
        EXPECT_EQ(presenter.alerts[0].zusatzText, heimat.datenOrdner());
        EXPECT_TRUE(presenter.fehler.isEmpty());
    }

    erster->closeWriteChannel();
    ASSERT_TRUE(erster->waitForFinished(15000));
    EXPECT_EQ(erster->exitCode(), 0);
    FKRAppDelegate delegate(presenter);
    EXPECT_NE(delegate.managedObjectContext(), nullptr);
    EXPECT_EQ(delegate.sperreDatenOrdner(), Ergebnis::Gehalten);
    EXPECT_EQ(presenter.alerts.size(), 1);
}

} // namespace
