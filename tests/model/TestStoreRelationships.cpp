// Relationships and fetches: both sides of a relationship stay in step, delete rules reach the
// file, fetches order as lists ask.

#include "StoreTestSupport.h"

using namespace storetest;
using namespace Qt::Literals::StringLiterals;

namespace {

using StoreRelationships = StoreFixture;

TEST_F(StoreRelationships, DeleteRulesAndMovesReachTheFile)
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
        const auto docs = store.moc().fetch<FKRRechnung>({}, {{u"rechnungsNummer"_s, false}});
        auto *weg = docs[0], *bleibt = docs[1];
        weg->posten().first()->setRechnung(bleibt); // moved before its document goes
        store.moc().deleteObject(weg);
        EXPECT_EQ(store.moc().fetch<FKRPosten>().size(), 4);
        EXPECT_EQ(store.only<FKRAbsender>()->rechnungen(), QList<FKRRechnung *>{bleibt});
        store.moc().deleteObject(store.only<FKRAbsender>());
        EXPECT_EQ(bleibt->absender(), nullptr);
        save(store.moc());
    }
    OpenStore store(path);
    EXPECT_TRUE(store.moc().fetch<FKRAbsender>().isEmpty());
    ASSERT_TRUE(store.only<FKRRechnung>());
    EXPECT_EQ(store.only<FKRRechnung>()->rechnungsNummer(), u"bleibt"_s);
    EXPECT_EQ(store.only<FKRRechnung>()->posten().size(), 4);
    EXPECT_EQ(RawSql(path).text(u"SELECT absender FROM FKRRechnung"_s), u"<null>"_s);
}

TEST_F(StoreRelationships, DeletingTwiceOrAnotherContextsObjectChangesNothing)
{
    OpenStore store(path), other(path);
    auto *verworfen = store.moc().insertNewObject<FKRRechnung>();
    store.moc().deleteObject(verworfen);
    store.moc().deleteObject(verworfen);
    EXPECT_FALSE(store.moc().hasChanges());
    auto *fremd = other.moc().insertNewObject<FKRRechnung>();
    store.moc().deleteObject(fremd);
    EXPECT_FALSE(fremd->isDeleted());
    EXPECT_FALSE(store.moc().hasChanges());
}

TEST_F(StoreRelationships, FetchSortsByKeyPathsWithAbsentValuesFirst)
{
    OpenStore store(path);
    auto &moc = store.moc();
    const struct {
        const char *nummer, *firma /* null: no recipient at all */, *rabatt;
    } rows[] = {{"A", "Zander AG", "10"}, {"B", nullptr, "9"}, {"C", "Becker KG", nullptr},
                {"D", "Albrecht", "0.5"}, {"E", "Becker KG", "9"}};
    for (const auto &row : rows) {
        auto *rechnung = moc.insertNewObject<FKRRechnung>();
        rechnung->setRechnungsNummer(QString::fromLatin1(row.nummer));
        rechnung->setRabatt(row.rabatt ? Decimal::parse(row.rabatt) : std::nullopt);
        if (row.firma) {
            rechnung->setEmpfaenger(moc.insertNewObject<FKREmpfaenger>());
            rechnung->empfaenger()->setFirma(QString::fromUtf8(row.firma));
        }
    }
    const auto numbers = [&](QList<SortDescriptor> sort) {
        QString s;
        for (const auto *d : moc.fetch<FKRRechnung>({}, sort))
            s += *d->rechnungsNummer();
        return s;
    };
    EXPECT_EQ(numbers({{u"empfaenger.firmaUndName"_s, true}, {u"rechnungsNummer"_s, false}}), u"BDECA"_s);
    // Decimals sort by value, not by their text ("10" after "9"), either way.
    EXPECT_EQ(numbers({{u"rabatt"_s, true}, {u"rechnungsNummer"_s, true}}), u"CDBEA"_s);
    EXPECT_EQ(numbers({{u"rabatt"_s, false}, {u"rechnungsNummer"_s, true}}), u"ABEDC"_s);
}

} // namespace
