// The object store end to end: what goes into the file comes back the same after a fresh open,
// new objects start from the store's defaults, images and PDFs are never lost by an unrelated save.

#include "StoreTestSupport.h"

#include "ManagedObjectModel.h"

#include <QTimeZone>

#include <array>

using namespace storetest;
using namespace Qt::Literals::StringLiterals;

namespace {

Decimal dec(const char *text) { return *Decimal::parse(text); }

// Fills every stored attribute with a value of its kind that is hard to keep (decimals beyond a
// double's precision, dates before 1970 with milliseconds, bytes with zeros, integers beyond 2^53).
void fillEveryAttribute(ManagedObject &object, int n)
{
    static const char *const decimals[] = {"0.123456789012345678901234567890", "-12345678901234567890.123456789012345678",
                                           "0.07", "9007199254740993", "1E-20"};
    int i = n;
    for (const AttributeDescription &attribute : object.entity().attributes()) {
        ++i;
        const QVariant v = [&]() -> QVariant {
            switch (attribute.kind) {
            case AttributeKind::Flag: return !std::get_if<bool>(&attribute.defaultValue) || !std::get<bool>(attribute.defaultValue);
            case AttributeKind::Integer: return qint64(9007199254740993) + i;
            case AttributeKind::DecimalNum: return QVariant::fromValue(dec(decimals[i % 5]));
            case AttributeKind::Text: return u"%1 %2\r\nGrüße an Frau Müller – „Straße“ 😀\n\tÄÖÜ ß"_s.arg(attribute.name).arg(i);
            case AttributeKind::Date: return QDateTime::fromMSecsSinceEpoch((i % 2 ? -1 : 1) * (1709251199000 + i), Qt::UTC);
            case AttributeKind::Binary:
                return QByteArray(bytes("%PDF-1.4\n\0\0\x01\xff") + QByteArray(1000 * i, '\0') + QByteArray::number(i));
            }
            return {};
        }();
        ASSERT_TRUE(object.setValue(attribute.name, v)) << attribute.name.toStdString();
        ASSERT_TRUE(object.value(attribute.name).isValid()) << attribute.name.toStdString();
    }
}

using ObjectStore = StoreFixture;

TEST_F(ObjectStore, EveryAttributeOfEveryEntitySurvivesSaveAndReopen)
{
    OpenStore store(path);
    auto &moc = store.moc();
    auto *absender = moc.insertNewObject<FKRAbsender>();
    auto *empfaenger = moc.insertNewObject<FKREmpfaenger>();
    auto *rechnung = moc.insertNewObject<FKRRechnung>();
    fillEveryAttribute(*absender, 0);
    fillEveryAttribute(*empfaenger, 1);
    fillEveryAttribute(*rechnung, 2);
    rechnung->setAbsender(absender);
    rechnung->setEmpfaenger(empfaenger);
    for (int i = 0; i < 3; ++i) {
        auto *posten = moc.insertNewObject<FKRPosten>();
        fillEveryAttribute(*posten, 10 * i);
        rechnung->addPostenObject(posten);
    }
    // By hand on top: a local time with milliseconds, a zero character, empty beside absent.
    rechnung->setFaelligkeitsDatum(QDateTime(QDate(2024, 10, 27), QTime(2, 30, 15, 1), QTimeZone::systemTimeZone()));
    rechnung->setRabatt(std::nullopt);
    empfaenger->setNotiz(QStringLiteral("zahlt spät\nNotiz mit\0Nullzeichen"));
    empfaenger->setPlz(u""_s);
    absender->setLogoImageBinary(QByteArray(""));
    absender->setStrasse(std::nullopt);
    const QList<ManagedObject *> originals = moc.insertedObjects();
    ASSERT_EQ(originals.size(), 6);
    save(moc);

    OpenStore reopened(path);
    for (ManagedObject *original : originals) {
        const ManagedObject *copy = reopened.byIdentifier(original->entity().name(),
                                                          original->value(u"uniqueIdentifier"_s).toString());
        ASSERT_TRUE(copy);
        expectSameAttributes(*original, *copy);
    }
    auto *copy = reopened.only<FKRRechnung>();
    ASSERT_TRUE(copy && copy->absender() && copy->empfaenger());
    EXPECT_EQ(copy->posten().size(), 3);
}

TEST_F(ObjectStore, InsertionGivesFreshIdentifierAndStoreDefaults)
{
    {
        OpenStore store(path);
        const auto eins = store.moc().insertNewObject<FKRRechnung>()->uniqueIdentifier();
        EXPECT_NE(eins.value_or(QString()), store.moc().insertNewObject<FKRPosten>()->uniqueIdentifier().value_or(QString()));
        EXPECT_FALSE(eins.value_or(QString()).isEmpty());
        save(store.moc());
    }
    // The defaults must be in the file, not only in a fresh object's memory.
    OpenStore store(path);
    const std::array<const char *, 3> faelle[] = {
        {"FKRRechnung", "dokumentArt", "Decimal 3"}, {"FKRRechnung", "sprache", "qlonglong 1"},
        {"FKRRechnung", "mwStSatz", "Decimal 0.19"}, {"FKRRechnung", "brutto", "bool true"},
        {"FKRRechnung", "waehrung", "QString €"}, {"FKRRechnung", "rabatt", "Decimal 0"},
        {"FKRRechnung", "bezahlt", "bool false"}, {"FKRPosten", "istVorlage", "bool false"}, {"FKRPosten", "anzahl", "<absent>"}};
    for (const auto &[entity, key, wert] : faelle) {
        const ManagedObject *object = store.moc().executeFetchRequest({QString::fromLatin1(entity), {}, {}}).value(0);
        ASSERT_TRUE(object) << entity;
        EXPECT_EQ(describe(object->value(QString::fromLatin1(key))), wert) << entity << "." << key;
    }
}

// Editing other fields of objects whose images were never looked at keeps the images; removing
// bytes that were never read removes them in the file too.
TEST_F(ObjectStore, BinariesSurviveOtherUpdatesAndGoWhenRemovedUnread)
{
    const QByteArray pdf = QByteArray(4 * 1024 * 1024, '\0') + bytes("%%EOF\x01\xff");
    {
        OpenStore store(path);
        auto *rechnung = store.moc().insertNewObject<FKRRechnung>();
        rechnung->setBinaryPDF(pdf);
        rechnung->setAbsender(store.moc().insertNewObject<FKRAbsender>());
        rechnung->absender()->setLogoImageBinary(bytes("logo\0bytes"));
        save(store.moc());
    }
    {
        OpenStore store(path);
        store.only<FKRRechnung>()->setRechnungsNummer(u"RE-1"_s);
        store.only<FKRAbsender>()->setUnterschriftImageBinary(QByteArray("x"));
        store.only<FKRAbsender>()->setLogoImageBinary(std::nullopt);
        save(store.moc());
    }
    OpenStore store(path);
    EXPECT_EQ(store.only<FKRRechnung>()->binaryPDF(), pdf);
    EXPECT_FALSE(store.only<FKRAbsender>()->logoImageBinary().has_value());
    EXPECT_EQ(store.only<FKRAbsender>()->unterschriftImageBinary(), QByteArray("x"));
}

} // namespace
