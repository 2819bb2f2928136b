// What the store does when things go wrong: a save that cannot complete leaves the file as it
// was and the context with all its changes for a later try; another writer only delays it; a file that is not a store of ours,
// is damaged or comes from a newer version is refused and left byte for byte untouched; a
// place where no store can be made is reported as such.

#include "StoreTestSupport.h"

#include "FKRLocalizationHelper.h"

#include <QFileInfo>

#include <chrono>
#include <functional>
#include <future>
#include <thread>

using namespace storetest;
using namespace Qt::Literals::StringLiterals;

namespace {

class StoreFailures : public StoreFixture
{
protected:
    // The messages come from the user's text table, as in the application.
    static void SetUpTestSuite() { FKRLocalizationHelper::installiereHauptTabelle(); }

    // A store with one invoice of two items, then edits of every kind: an update, a delete, new
    // objects with relationships.
    void openWithChanges()
    {
        {
            OpenStore existing(path);
            auto *rechnung = existing.moc().insertNewObject<FKRRechnung>();
            rechnung->setRechnungsNummer(u"RE-1"_s);
            rechnung->addPostenObject(existing.moc().insertNewObject<FKRPosten>());
            rechnung->addPostenObject(existing.moc().insertNewObject<FKRPosten>());
            save(existing.moc());
        }
        store = std::make_unique<OpenStore>(path);
        auto *alt = store->only<FKRRechnung>();
        alt->setRechnungsNummer(u"RE-1 geändert"_s);
        store->moc().deleteObject(alt->posten().first());
        auto *neu = store->moc().insertNewObject<FKRRechnung>();
        neu->setRechnungsNummer(u"RE-2"_s);
        neu->setEmpfaenger(store->moc().insertNewObject<FKREmpfaenger>());
        neu->addPostenObject(store->moc().insertNewObject<FKRPosten>());
    }
    std::unique_ptr<OpenStore> store;

    // The file as a fresh open sees it, in short.
    QString contents()
    {
        OpenStore fresh(path);
        QStringList parts;
        for (const auto *rechnung : fresh.moc().fetch<FKRRechnung>({}, {{u"rechnungsNummer"_s, true}}))
            parts << *rechnung->rechnungsNummer() + u":"_s + QString::number(rechnung->posten().size())
                         + (rechnung->empfaenger() ? u"+E"_s : QString());
        return parts.join(u", "_s);
    }

    StoreError::Kind refusal(const QString &where)
    {
        try {
            OpenStore opened(where);
        } catch (const StoreError &e) {
            EXPECT_FALSE(e.message().isEmpty() || e.message().startsWith(u"STORE_ERROR"_s)) << e.message().toStdString();
            return e.kind();
        }
        ADD_FAILURE() << "the store opened";
        return StoreError::Kind::SaveFailed;
    }
};

TEST_F(StoreFailures, SaveFailingHalfwayRollsBackEveryStatement)
{
    openWithChanges();
    const auto inserted = store->moc().insertedObjects().size();
    RawSql other(path);
    // Items are written after documents, so the document update and the delete have already
    // reached the transaction when this stops it.
    other.mustExec("CREATE TRIGGER sperre BEFORE INSERT ON FKRPosten BEGIN SELECT RAISE(ABORT, 'Posten gesperrt'); END");
    QString error;
    EXPECT_FALSE(store->moc().save(&error));
    EXPECT_TRUE(error.contains(u"Posten gesperrt"_s)) << error.toStdString();
    EXPECT_TRUE(store->moc().hasChanges());
    EXPECT_EQ(store->moc().insertedObjects().size(), inserted);
    EXPECT_EQ(contents(), u"RE-1:2"_s);
    EXPECT_EQ(sideFiles(path), QStringList());

    other.mustExec("DROP TRIGGER sperre");
    ASSERT_TRUE(store->moc().save(&error)) << error.toStdString();
    EXPECT_EQ(contents(), u"RE-1 geändert:1, RE-2:1+E"_s);
    EXPECT_EQ(other.number(u"SELECT count(*) FROM FKRPosten"_s), 2);
}

// A writer that holds the file for a moment (a backup being zipped) only delays a save.
TEST_F(StoreFailures, SaveWaitsForAnotherWriterHoldingTheFileForAMoment)
{
    openWithChanges();
    std::promise<void> locked;
    std::thread backup([&] {
        RawSql other(path);
        other.mustExec("BEGIN IMMEDIATE");
        locked.set_value();
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        other.mustExec("COMMIT");
    });
    locked.get_future().wait();
    QString error;
    const bool saved = store->moc().save(&error);
    backup.join();
    EXPECT_TRUE(saved) << error.toStdString();
    EXPECT_EQ(contents(), u"RE-1 geändert:1, RE-2:1+E"_s);
}

TEST_F(StoreFailures, UnusableFilesAreRefusedAndLeftByteForByte)
{
    const struct {
        const char *was;
        std::function<void()> anlegen;
        StoreError::Kind art;
    } faelle[] = {
        {"noise", [&] { writeFile(path, QByteArray(64 * 1024, '\x5a') + QByteArray::number(4711)); }, StoreError::Kind::NotAStore},
        {"truncated",
         [&] {
             OpenStore(path).moc().save();
             RawSql(path).mustExec("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 4000) "
                                   "INSERT INTO FKRPosten (postenBeschreibung, postenNummer) SELECT printf('Leistung %d im Zeitraum "
                                   "März bis April %0100d', i, i), i FROM n");
             const QByteArray bytes = fileBytes(path);
             ASSERT_GT(bytes.size(), 256 * 1024);
             writeFile(path, bytes.left(bytes.size() / 2));
         },
         StoreError::Kind::Damaged},
        {"newer schema",
         [&] {
             OpenStore(path).moc().save();
             RawSql(path).mustExec("UPDATE VelmoraStoreMetadata SET value = '2' WHERE key = 'schemaVersion'");
         },
         StoreError::Kind::NewerVersion},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.was);
        QFile::remove(path);
        fall.anlegen();
        const QByteArray before = fileBytes(path);
        EXPECT_EQ(refusal(path), fall.art);
        EXPECT_EQ(fileBytes(path), before);
        EXPECT_EQ(sideFiles(path), QStringList());
    }
}

TEST_F(StoreFailures, PlacesWhereNoStoreCanBeMadeCannotBeOpened)
{
    EXPECT_EQ(refusal(dir.filePath(u"fehlt/noch/x.storedata"_s)), StoreError::Kind::CannotOpen);
    EXPECT_FALSE(QFileInfo::exists(dir.filePath(u"fehlt"_s)));
    // A folder where the store file should be; fails even for the superuser.
    ASSERT_TRUE(QDir(dir.path()).mkdir(QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName)));
    EXPECT_EQ(refusal(path), StoreError::Kind::CannotOpen);
    EXPECT_TRUE(QFileInfo(path).isDir());
}

} // namespace
