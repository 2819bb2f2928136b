// Relationships and fetches: both sides of a relationship stay in step, delete rules reach the
// file, the named fetch templates find what start-up and sync look for, and fetches filter and
// order the way the lists ask.

#include "StoreTestSupport.h"

#include "ManagedObjectModel.h"

using namespace storetest;
using namespace Qt::Literals::StringLiterals;

namespace {

Decimal dec(const char *text) { return *Decimal::parse(text); }

using StoreRelationships = StoreFixture;

TEST_F(StoreRelationships, RelationshipsKeepBothSidesInStep)
{
    {
        OpenStore store(path);
        auto &moc = store.moc();
        auto *eins = moc.insertNewObject<FKRRechnung>(), *zwei = moc.insertNewObject<FKRRechnung>();
        auto *alt = moc.insertNewObject<FKRAbsender>(), *neu = moc.insertNewObject<FKRAbsender>();
        eins->setRechnungsNummer(u"1"_s);
        zwei->setRechnungsNummer(u"2"_s);

        eins->setAbsender(alt);
        zwei->setAbsender(alt);
        EXPECT_EQ(alt->rechnungen(), (QList<FKRRechnung *>{eins, zwei}));
        zwei->setAbsender(neu);
        EXPECT_EQ(alt->rechnungen(), QList<FKRRechnung *>{eins});
        EXPECT_EQ(neu->rechnungen(), QList<FKRRechnung *>{zwei});
        eins->setAbsender(nullptr);
        EXPECT_TRUE(alt->rechnungen().isEmpty());

        auto *posten = moc.insertNewObject<FKRPosten>();
        eins->addPostenObject(posten);
        EXPECT_EQ(posten->rechnung(), eins);
        posten->setRechnung(zwei); // moved to the other document
        EXPECT_TRUE(eins->posten().isEmpty());
        EXPECT_EQ(zwei->posten(), QList<FKRPosten *>{posten});
        auto *weg = moc.insertNewObject<FKRPosten>();
        eins->addPostenObject(weg);
        eins->removePostenObject(weg);
        EXPECT_EQ(weg->rechnung(), nullptr);
        zwei->removePostenObject(weg); // not one of its items: nothing happens
        save(moc);
    }
    OpenStore store(path);
    const auto docs = store.moc().fetch<FKRRechnung>({}, {{u"rechnungsNummer"_s, true}});
    ASSERT_EQ(docs.size(), 2);
    EXPECT_EQ(docs[0]->absender(), nullptr);
    EXPECT_TRUE(docs[0]->posten().isEmpty());
    ASSERT_TRUE(docs[1]->absender());
    EXPECT_EQ(docs[1]->absender()->rechnungen(), QList<FKRRechnung *>{docs[1]});
    EXPECT_EQ(docs[1]->posten().size(), 1);
    EXPECT_EQ(store.moc().fetch<FKRPosten>().size(), 2);
}

TEST_F(StoreRelationships, DeleteRulesReachTheFile)
{
    {
        OpenStore store(path);
        auto *absender = store.moc().insertNewObject<FKRAbsender>();
        for (const char *nummer : {"weg", "bleibt"}) {
            auto *rechnung = store.moc().insertNewObject<FKRRechnung>();
            rechnung->setRechnungsNummer(QString::fromLatin1(nummer));
            rechnung->setAbsender(absender);
            for (int i = 0; i < 3; ++i)
                rechnung->addPostenObject(store.moc().insertNewObject<FKRPosten>());
        }
        save(store.moc());
    }
    {
        OpenStore store(path);
        auto *weg = store.moc().fetch<FKRRechnung>([](const ManagedObject &o) {
            return o.value(u"rechnungsNummer"_s) == u"weg"_s;
        }).first();
        const auto items = weg->posten();
        store.moc().deleteObject(weg);
        for (const FKRPosten *posten : items)
            EXPECT_TRUE(posten->isDeleted());
        EXPECT_EQ(store.moc().fetch<FKRPosten>().size(), 3);
        EXPECT_EQ(store.only<FKRAbsender>()->rechnungen().size(), 1);
        save(store.moc());
    }
    EXPECT_EQ(RawSql(path).text(u"SELECT count(*) || count(rechnung) FROM FKRPosten"_s), u"33"_s);
    EXPECT_EQ(RawSql(path).number(u"SELECT count(*) FROM FKRRechnung"_s), 1);
    {
        OpenStore store(path);
        store.moc().deleteObject(store.only<FKRAbsender>());
        EXPECT_EQ(store.only<FKRRechnung>()->absender(), nullptr);
        save(store.moc());
    }
    OpenStore store(path);
    EXPECT_TRUE(store.moc().fetch<FKRAbsender>().isEmpty());
    const auto *bleibt = store.only<FKRRechnung>();
    ASSERT_TRUE(bleibt);
    EXPECT_EQ(bleibt->rechnungsNummer(), u"bleibt"_s);
    EXPECT_EQ(bleibt->absender(), nullptr);
    EXPECT_EQ(bleibt->posten().size(), 3);
    EXPECT_EQ(RawSql(path).text(u"SELECT absender FROM FKRRechnung"_s), u"<null>"_s);
}

TEST_F(StoreRelationships, FetchTemplatesFindObjectsWithoutIdentifierOrAll)
{
    const ManagedObjectModel &model = ManagedObjectModel::defaultModel();
    EXPECT_EQ(model.fetchRequestTemplateNames().size(), 8);
    EXPECT_TRUE(model.fetchRequestTemplate(u"AlleRechungenFetchRequest"_s));
    EXPECT_FALSE(model.fetchRequestTemplate(u"AlleRechnungenFetchRequest"_s));
    const std::pair<const char *, const char *> entities[] = {
        {"FKRAbsender", "Absender"}, {"FKREmpfaenger", "Empfaenger"}, {"FKRPosten", "Posten"}, {"FKRRechnung", "Rechnung"}};
    {
        OpenStore store(path);
        for (const auto &[entity, stem] : entities) {
            for (int i = 0; i < 4; ++i) {
                ManagedObject *object = store.moc().insertNewObjectForEntityForName(QString::fromLatin1(entity));
                if (i % 2 == 0) // an empty text is an identifier too, only a missing one counts
                    object->setValue(u"uniqueIdentifier"_s, i == 0 ? QVariant() : QVariant(QString()));
            }
        }
        save(store.moc());
    }
    OpenStore store(path);
    for (const auto &[entity, stem] : entities) {
        const QString s = QString::fromLatin1(stem);
        const auto ohne = model.fetchRequestTemplate(s + u"OhneUUIDFetchRequest"_s);
        const auto alle = model.fetchRequestTemplate(s == u"Rechnung"_s ? u"AlleRechungenFetchRequest"_s
                                                                          : u"Alle"_s + s + u"FetchRequest"_s);
        ASSERT_TRUE(ohne && alle) << stem;
        const auto found = store.moc().executeFetchRequest(*ohne);
        ASSERT_EQ(found.size(), 1) << stem;
        EXPECT_FALSE(found.first()->value(u"uniqueIdentifier"_s).isValid()) << stem;
        EXPECT_EQ(store.moc().executeFetchRequest(*alle).size(), 4) << stem;
        for (ManagedObject *object : store.moc().executeFetchRequest(*alle))
            EXPECT_EQ(object->entity().name(), QString::fromLatin1(entity));
        // A deleted object is no longer found.
        store.moc().deleteObject(found.first());
        EXPECT_TRUE(store.moc().executeFetchRequest(*ohne).isEmpty()) << stem;
    }
}

TEST_F(StoreRelationships, FetchFiltersAndSortsByKeyPathsWithAbsentValuesFirst)
{
    OpenStore store(path);
    auto &moc = store.moc();
    const struct {
        const char *nummer, *firma /* null: no recipient at all */, *rabatt;
    } rows[] = {{"A", "Zander AG", "10"}, {"B", nullptr, "9"}, {"C", "Becker KG", nullptr}, {"D", "Albrecht", "0.5"}, {"E", "Becker KG", "9"}};
    for (const auto &row : rows) {
        auto *rechnung = moc.insertNewObject<FKRRechnung>();
        rechnung->setRechnungsNummer(QString::fromLatin1(row.nummer));
        rechnung->setRabatt(row.rabatt ? std::optional(dec(row.rabatt)) : std::nullopt);
        if (row.firma) {
            auto *empfaenger = moc.insertNewObject<FKREmpfaenger>();
            empfaenger->setFirma(QString::fromUtf8(row.firma));
            rechnung->setEmpfaenger(empfaenger);
        }
    }
    const auto numbers = [](const QList<FKRRechnung *> &docs) {
        QString s;
        for (const auto *d : docs)
            s += *d->rechnungsNummer();
        return s;
    };
    EXPECT_EQ(numbers(moc.fetch<FKRRechnung>({}, {{u"empfaenger.firmaUndName"_s, true}, {u"rechnungsNummer"_s, false}})),
              u"BDECA"_s);
    EXPECT_EQ(numbers(moc.fetch<FKRRechnung>({}, {{u"empfaenger.firmaUndName"_s, false}, {u"rechnungsNummer"_s, true}})),
              u"ACEDB"_s);
    // Decimals sort by value, not by their text ("10" after "9").
    EXPECT_EQ(numbers(moc.fetch<FKRRechnung>({}, {{u"rabatt"_s, true}, {u"rechnungsNummer"_s, true}})), u"CDBEA"_s);
    const auto becker = moc.fetch<FKRRechnung>(
        [](const ManagedObject &o) { return o.valueForKeyPath(u"empfaenger.firma"_s) == u"Becker KG"_s; },
        {{u"rechnungsNummer"_s, true}});
    EXPECT_EQ(numbers(becker), u"CE"_s);
    EXPECT_FALSE(moc.fetch<FKRRechnung>().first()->valueForKeyPath(u"absender.firma"_s).isValid());
}

} // namespace
