// The shared folder as the cloud file system: two machines on one folder see each other's files
// whole, never the sharing programs' conflict copies or half-written files, never replace a file,
// and hear of new files through the folder.
#include "CDEFolderFileSystem.h"
#include "DateisystemPruefung.h"
#include "harness/DateiGroessenGrenze.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

using namespace dateisystem;

QString schreibe(const QString &pfad, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(pfad).path());
    QFile datei(pfad);
    EXPECT_TRUE(datei.open(QIODevice::WriteOnly) && datei.write(bytes) == bytes.size());
    return pfad;
}

TEST(CDEFolderFileSystem, TwoMachinesShareAFolderWithoutConflictCopiesOrHalfFiles)
{
    QTemporaryDir ordner, lokal;
    const QString geteilt = ordner.filePath(u"Velmora"_s);
    CDEFolderFileSystem a(geteilt), b(geteilt);
    ASSERT_FALSE(fertig([&](auto c) { a.connect(c); }));
    int geweckt = 0;
    QObject::connect(&b, &CDECloudFileSystem::pushNotificationReceived, [&] { ++geweckt; });
    ASSERT_FALSE(fertig([&](auto c) { b.subscribeForPushNotificationsWithCompletion(c); }));

    ASSERT_FALSE(fertig([&](auto c) { a.createDirectoryAtPath(u"/logs"_s, c); }));
    const QStringList dateien{schreibe(lokal.filePath(u"1"_s), "eins"), schreibe(lokal.filePath(u"2"_s), "zwei!")};
    ASSERT_FALSE(fertig([&](auto c) { a.uploadLocalFiles(dateien, {u"/logs/1"_s, u"/logs/2"_s}, c); }));
    EXPECT_TRUE(harness::warteBis([&] { return geweckt > 0; }, 2000)) << "no push from the folder";
    // What Syncthing, Nextcloud and Dropbox leave in a folder, and a draft of ours.
    for (const QString &fremd : {u"1.sync-conflict-20260301-101500-ABCDEFG"_s, u".syncthing.2.tmp"_s, u"~syncthing~2.tmp"_s,
                                 u"1 (conflicted copy 2026-03-01 101500)"_s, u"2 (Anna's conflicted copy 2026-03-01)"_s,
                                 u".velmora-tmp-0123"_s})
        schreibe(geteilt + u"/logs/"_s + fremd, "fremd");

    EXPECT_EQ(liste(b, u"/logs"_s), (QStringList{u"1:4"_s, u"2:5"_s}));
    EXPECT_EQ(liste(b, u"/"_s), QStringList{u"logs:dir"_s});
    EXPECT_EQ(liste(b, u"/nirgends"_s), QStringList{u"108"_s});
    const std::pair<QString, QString> fragen[] = {{u"/logs/2"_s, u"datei"_s}, {u"/logs"_s, u"ordner"_s},
                                                  {u"/logs/.syncthing.2.tmp"_s, u"nein"_s}, {u"/nie"_s, u"nein"_s}};
    for (const auto &[pfad, antwort] : fragen)
        EXPECT_EQ(gibtEs(b, pfad), antwort) << pfad.toStdString();

    // Files never change once there: a second upload under the same name keeps the first.
    EXPECT_FALSE(fertig([&](auto c) { b.uploadLocalFiles({schreibe(lokal.filePath(u"3"_s), "anders")}, {u"/logs/1"_s}, c); }));
    const QString ziel = lokal.filePath(u"geladen"_s);
    ASSERT_FALSE(fertig([&](auto c) { b.downloadFromPaths({u"/logs/1"_s}, {ziel}, c); }));
    EXPECT_EQ(inhalt(ziel), "eins");
    EXPECT_TRUE(fertig([&](auto c) { b.downloadFromPaths({u"/logs/1"_s}, {ziel}, c); })) << "the local file exists";
    const Fehler fehlt = fertig([&](auto c) { b.downloadFromPaths({u"/logs/9"_s}, {lokal.filePath(u"9"_s)}, c); });
    EXPECT_TRUE(fehlt && fehlt->onlyIncludesErrorCode(RecordError::UnknownItem));

    ASSERT_FALSE(fertig([&](auto c) { a.removeItemsAtPaths({u"/logs"_s, u"/nie"_s}, c); }));
    EXPECT_EQ(liste(b, u"/"_s), QStringList{});
}

// A disk that fills up while a file is written: an error, and neither the file nor its draft.
TEST(CDEFolderFileSystem, AFullDiskLeavesNeitherHalfAFileNorItsDraft)
{
    QTemporaryDir ordner, lokal;
    CDEFolderFileSystem fs(ordner.path());
    const QString gross = schreibe(lokal.filePath(u"gross"_s), QByteArray(2 << 20, 'g'));
    Fehler fehler;
    {
        const harness::DateiGroessenGrenze grenze(1 << 20);
        fehler = fertig([&](auto c) { fs.uploadLocalFiles({gross}, {u"/gross"_s}, c); });
    }
    EXPECT_TRUE(fehler);
    EXPECT_TRUE(QDir(ordner.path()).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)) << "something was left";
}

TEST(CDEFolderFileSystem, WithoutItsFolderThereIsNoConnection)
{
    QTemporaryDir ordner;
    const QString datei = schreibe(ordner.filePath(u"keinOrdner"_s), "x");
    for (const QString &wurzel : {QString(), datei}) {
        CDEFolderFileSystem fs(wurzel);
        const Fehler fehler = fertig([&](auto c) { fs.primeForActivityWithCompletion(c); });
        ASSERT_TRUE(fehler) << wurzel.toStdString();
        EXPECT_EQ(fehler->code(), RecordError::NoConnection);
        EXPECT_EQ(gibtEs(fs, u"/x"_s), u"1002"_s);
    }
}

} // namespace
