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

    SkriptPresenter presenter;
    erster->closeWriteChannel();
    ASSERT_TRUE(erster->waitForFinished(15000));
    EXPECT_EQ(erster->exitCode(), 0);
    FKRAppDelegate delegate(presenter);
    EXPECT_NE(delegate.managedObjectContext(), nullptr);
    EXPECT_EQ(delegate.sperreDatenOrdner(), Ergebnis::Gehalten);
    EXPECT_TRUE(presenter.alerts.isEmpty());
}

} // namespace
