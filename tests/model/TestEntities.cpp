// The entities as the editor and the lists see them: display names and address blocks,
// attributes read and written by name.

#include "StoreTestSupport.h"

#include "FKRLocalizationHelper.h"

#include <QLocale>

using namespace storetest;
using namespace Qt::Literals::StringLiterals;

namespace {

std::optional<QString> text(const char *v) { return v ? std::optional(QString::fromUtf8(v)) : std::nullopt; }

class Entities : public ::testing::Test
{
protected:
    ManagedObjectContext moc; // in memory: nothing here needs the file
    const QLocale userLocale;
    void SetUp() override { FKRLocalizationHelper::installiereHauptTabelle(); }
    void TearDown() override { QLocale::setDefault(userLocale); FKRLocalizationHelper::installiereHauptTabelle(); }
};

// Sender and recipient share every rule, so every case runs on both.
template<typename T>
T *party(ManagedObjectContext &moc, const char *firma, const char *name)
{
    auto *p = moc.insertNewObject<T>();
    p->setFirma(text(firma));
    p->setName(text(name));
    return p;
}

TEST_F(Entities, DisplayNamesJoinCompanyAndNameByPresence)
{
    const struct { const char *firma, *name, *firmaUndName, *nameUndFirma; } cases[] = {
        {"Muster GmbH", "Eva Beispiel", "Muster GmbH - Eva Beispiel", "Eva Beispiel - Muster GmbH"},
        {"Muster GmbH", nullptr, "Muster GmbH", "Muster GmbH"},
        // Only presence counts: an empty company is still joined.
        {"", "Eva Beispiel", " - Eva Beispiel", "Eva Beispiel - "}, {"", nullptr, "", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.firma ? c.firma : "<absent>") + " / " + (c.name ? c.name : "<absent>"));
        const auto *empfaenger = party<FKREmpfaenger>(moc, c.firma, c.name);
        const auto *absender = party<FKRAbsender>(moc, c.firma, c.name);
        const QString soll = QString::fromUtf8(c.firmaUndName) + u" | "_s + QString::fromUtf8(c.nameUndFirma);
        EXPECT_EQ(empfaenger->firmaUndName() + u" | "_s + empfaenger->nameUndFirma(), soll);
        EXPECT_EQ(absender->firmaUndName() + u" | "_s + absender->nameUndFirma(), soll);
        EXPECT_EQ(empfaenger->value(u"firmaUndName"_s).toString(), QString::fromUtf8(c.firmaUndName)); // as lists read it
    }
}

TEST_F(Entities, AddressBlockHasOneLinePerPartWithText)
{
    const struct { const char *firma, *name, *strasse, *plz, *ort, *land, *block; } cases[] = {
        {"A", "B", "S 1", "12345", "T", "C", "A - B\nS 1\n12345 T\nC"},
        {"Muster GmbH", nullptr, "Hauptstraße 5", "", "Köln", "", "Muster GmbH\nHauptstraße 5\nKöln"},
        {nullptr, "", "Hauptstraße 5", "50667", "Köln", nullptr, "\nHauptstraße 5\n50667 Köln"},
        {nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.block);
        for (ManagedObject *p : {static_cast<ManagedObject *>(party<FKREmpfaenger>(moc, c.firma, c.name)),
                                 static_cast<ManagedObject *>(party<FKRAbsender>(moc, c.firma, c.name))}) {
            const std::pair<const char *, const char *> fields[] = {
                {"strasse", c.strasse}, {"plz", c.plz}, {"ort", c.ort}, {"land", c.land}};
            for (const auto &[key, value] : fields)
                p->setValue(QString::fromLatin1(key), value ? QVariant(QString::fromUtf8(value)) : QVariant());
            EXPECT_EQ(p->value(u"firmaNameAdresse"_s).toString(), QString::fromUtf8(c.block)) << p->entity().name().toStdString();
        }
    }
}

TEST_F(Entities, AttributesByNameAcceptOnlyTheirOwnKind)
{
    auto *posten = moc.insertNewObject<FKRPosten>();
    EXPECT_TRUE(posten->setValue(u"mwStSatz"_s, u"0.07"_s));
    EXPECT_EQ(posten->mwStSatz(), *Decimal::parse("0.07"));
    EXPECT_TRUE(posten->setValue(u"postenNummer"_s, 4));
    EXPECT_EQ(posten->postenNummer(), 4);

    // Refused without a trace: no change, no notification.
    const struct { const char *key; QVariant value; } refused[] = {
        {"mwStSatz", u"sieben Prozent"_s}, {"mwStSatz", 0.07},       {"postenNummer", u"vier"_s},
        {"postenBezeichnung", 42},         {"zwischenSumme", 1},     {"gibtEsNicht", 1},
        {"uniqueIdentifier", QDateTime()}, {"rechnung", QVariant()},
    };
    moc.save();
    QStringList keys;
    QObject::connect(posten, &ManagedObject::valueChanged, posten, [&](const QString &key) { keys << key; });
    for (const auto &r : refused)
        EXPECT_FALSE(posten->setValue(QString::fromLatin1(r.key), r.value)) << r.key;
    EXPECT_EQ(posten->mwStSatz(), *Decimal::parse("0.07"));
    EXPECT_EQ(posten->postenNummer(), 4);
    EXPECT_TRUE(keys.isEmpty());
    EXPECT_FALSE(moc.hasChanges());
}

} // namespace

