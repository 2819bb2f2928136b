// The entities as the editor and the lists see them: display names and address blocks of
// senders and recipients, change notifications that reach the observers of dependent keys, and
// attributes read and written by name.

#include "StoreTestSupport.h"

#include "FKRLocalizationHelper.h"

#include <QLocale>
#include <QMetaProperty>

#include <map>
#include <vector>

using namespace storetest;
using namespace Qt::Literals::StringLiterals;

// Adds one to a counter whenever the signal connected to heard() is emitted.
class NotifyCounter : public QObject
{
    Q_OBJECT
public:
    NotifyCounter(int *count, QObject *parent) : QObject(parent), m_count(count) {}
public Q_SLOTS:
    void heard() { ++*m_count; }

private:
    int *m_count;
};

namespace {

std::optional<QString> text(const char *v) { return v ? std::optional(QString::fromUtf8(v)) : std::nullopt; }

class Entities : public ::testing::Test
{
protected:
    ManagedObjectContext moc; // in memory: nothing here needs the file
    const QLocale userLocale;
    void SetUp() override { FKRLocalizationHelper::installiereHauptTabelle(); }
    void TearDown() override
    {
        QLocale::setDefault(userLocale);
        FKRLocalizationHelper::installiereHauptTabelle();
    }
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
    const struct {
        const char *firma, *name, *firmaUndName, *nameUndFirma;
    } cases[] = {
        {"Muster GmbH", "Eva Beispiel", "Muster GmbH - Eva Beispiel", "Eva Beispiel - Muster GmbH"},
        {nullptr, "Eva Beispiel", "Eva Beispiel", "Eva Beispiel"},
        {"Muster GmbH", nullptr, "Muster GmbH", "Muster GmbH"},
        // Only presence counts: an empty company is still joined.
        {"", "Eva Beispiel", " - Eva Beispiel", "Eva Beispiel - "}, {"", nullptr, "", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.firma ? c.firma : "<absent>") + " / " + (c.name ? c.name : "<absent>"));
        const auto *empfaenger = party<FKREmpfaenger>(moc, c.firma, c.name);
        const auto *absender = party<FKRAbsender>(moc, c.firma, c.name);
        EXPECT_EQ(empfaenger->firmaUndName(), QString::fromUtf8(c.firmaUndName));
        EXPECT_EQ(empfaenger->nameUndFirma(), QString::fromUtf8(c.nameUndFirma));
        EXPECT_EQ(absender->firmaUndName(), QString::fromUtf8(c.firmaUndName));
        EXPECT_EQ(absender->nameUndFirma(), QString::fromUtf8(c.nameUndFirma));
        // The lists read them by name.
        EXPECT_EQ(empfaenger->value(u"firmaUndName"_s).toString(), QString::fromUtf8(c.firmaUndName));
    }
}

TEST_F(Entities, NamelessPartiesShowTheLocalisedPlaceholder)
{
    const auto *empfaenger = party<FKREmpfaenger>(moc, nullptr, nullptr);
    const auto *absender = party<FKRAbsender>(moc, nullptr, nullptr);
    EXPECT_EQ(empfaenger->firmaUndName(), u" Neuer Empfänger"_s);
    EXPECT_EQ(empfaenger->nameUndFirma(), u" Neuer Empfänger"_s);
    EXPECT_EQ(absender->firmaUndName(), u" Neuer Absender"_s);

    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    FKRLocalizationHelper::installiereHauptTabelle();
    EXPECT_EQ(empfaenger->firmaUndName(), u" New recipient"_s);
    EXPECT_EQ(absender->nameUndFirma(), u" New sender"_s);
}

TEST_F(Entities, AddressBlockHasOneLinePerPartWithText)
{
    const struct {
        const char *firma, *name, *strasse, *plz, *ort, *land, *block;
    } cases[] = {
        {"A", "B", "S 1", "12345", "T", "C", "A - B\nS 1\n12345 T\nC"},
        {"Muster GmbH", "Eva Beispiel", "Hauptstraße 5", nullptr, "Köln", nullptr, "Muster GmbH - Eva Beispiel\nHauptstraße 5\nKöln"},
        {"Muster GmbH", nullptr, "Hauptstraße 5", "", "Köln", "", "Muster GmbH\nHauptstraße 5\nKöln"},
        {"", "Eva Beispiel", "", "50667", "", "Deutschland", "Eva Beispiel\n50667\nDeutschland"},
        {nullptr, "", "Hauptstraße 5", "50667", "Köln", nullptr, "\nHauptstraße 5\n50667 Köln"},
        {nullptr, nullptr, nullptr, nullptr, nullptr, "Schweiz", "\nSchweiz"},
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

// Counts the NOTIFY signal of each property and every valueChanged key of one object, the way a
// bound control or a list column observes it.
class Observer
{
public:
    explicit Observer(ManagedObject *object)
    {
        const QMetaObject *meta = object->metaObject();
        for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
            const QMetaProperty property = meta->property(i);
            if (!property.hasNotifySignal())
                continue;
            auto *counter = new NotifyCounter(&notified[QString::fromLatin1(property.name())], &m_connections);
            QObject::connect(object, property.notifySignal(), counter,
                             counter->metaObject()->method(counter->metaObject()->indexOfSlot("heard()")));
        }
        QObject::connect(object, &ManagedObject::valueChanged, &m_connections, [this](const QString &key) { keys << key; });
    }
    std::map<QString, int> notified;
    QStringList keys;
    int count(const char *key) const
    {
        const auto it = notified.find(QString::fromLatin1(key));
        return it == notified.end() ? -1 : it->second;
    }

private:
    QObject m_connections; // receiver of every connection, so they end with the observer
};

TEST_F(Entities, ItemObserversOfTheSubtotalHearQuantityAndPrice)
{
    auto *posten = moc.insertNewObject<FKRPosten>();
    int heard = 0;
    QObject::connect(posten, &FKRPosten::zwischenSummeChanged, posten, [&] { ++heard; });
    QStringList keys;
    QObject::connect(posten, &ManagedObject::valueChanged, posten, [&](const QString &key) { keys << key; });

    posten->setAnzahl(Decimal(2));
    EXPECT_EQ(heard, 1);
    posten->setValue(u"einzelbetrag"_s, u"19.99"_s);
    EXPECT_EQ(heard, 2);
    // The editor's bindings write through the property system.
    posten->setProperty("anzahl", QVariant::fromValue(std::optional<Decimal>(Decimal(3))));
    EXPECT_EQ(heard, 3);
    EXPECT_EQ(posten->zwischenSumme(), *Decimal::parse("59.97"));
    posten->setAnzahl(Decimal(3)); // unchanged: nobody is disturbed
    posten->setPostenBezeichnung(u"Beratung"_s);
    EXPECT_EQ(heard, 3);
    EXPECT_EQ(keys, (QStringList{u"anzahl"_s, u"zwischenSumme"_s, u"einzelbetrag"_s, u"zwischenSumme"_s, u"anzahl"_s,
                                 u"zwischenSumme"_s, u"postenBezeichnung"_s}));
}

TEST_F(Entities, CompanyAndNameNotifyEachOtherAndTheDisplayName)
{
    for (ManagedObject *object : {static_cast<ManagedObject *>(moc.insertNewObject<FKREmpfaenger>()),
                                  static_cast<ManagedObject *>(moc.insertNewObject<FKRAbsender>())}) {
        SCOPED_TRACE(object->entity().name().toStdString());
        Observer observer(object);
        const auto zaehler = [&] {
            return std::vector{observer.count("firma"), observer.count("name"), observer.count("firmaUndName"),
                               observer.count("ort")};
        };
        object->setValue(u"firma"_s, u"Muster GmbH"_s);
        EXPECT_EQ(zaehler(), (std::vector{1, 1, 1, 0}));
        QStringList keys = observer.keys;
        keys.sort();
        EXPECT_EQ(keys, (QStringList{u"firma"_s, u"firmaUndName"_s, u"name"_s}));

        object->setValue(u"name"_s, u"Eva Beispiel"_s);
        EXPECT_EQ(zaehler(), (std::vector{2, 2, 2, 0}));
        object->setValue(u"ort"_s, u"Köln"_s);
        EXPECT_EQ(zaehler(), (std::vector{2, 2, 2, 1}));
    }
}

TEST_F(Entities, RelationshipChangesAreAnnouncedOnBothSides)
{
    auto *eins = moc.insertNewObject<FKRRechnung>(), *zwei = moc.insertNewObject<FKRRechnung>();
    auto *absender = moc.insertNewObject<FKRAbsender>();
    auto *posten = moc.insertNewObject<FKRPosten>();
    eins->addPostenObject(posten);
    Observer e(eins), z(zwei), a(absender), p(posten);
    posten->setRechnung(zwei);
    eins->setAbsender(absender);
    EXPECT_EQ(e.keys, (QStringList{u"posten"_s, u"absender"_s}));
    EXPECT_EQ(z.keys, QStringList{u"posten"_s});
    EXPECT_EQ(a.keys, QStringList{u"rechnungen"_s});
    EXPECT_EQ(p.keys, QStringList{u"rechnung"_s});
}

TEST_F(Entities, AttributesByNameAcceptOnlyTheirOwnKind)
{
    auto *posten = moc.insertNewObject<FKRPosten>();
    EXPECT_TRUE(posten->setValue(u"mwStSatz"_s, u"0.07"_s));
    EXPECT_EQ(posten->mwStSatz(), *Decimal::parse("0.07"));
    EXPECT_TRUE(posten->setValue(u"postenNummer"_s, 4));
    EXPECT_EQ(posten->postenNummer(), 4);

    // Refused without a trace: no change, no notification.
    const struct {
        const char *key;
        QVariant value;
    } refused[] = {
        {"mwStSatz", u"sieben Prozent"_s}, {"mwStSatz", 0.07},       {"postenNummer", u"vier"_s},
        {"postenBezeichnung", 42},         {"zwischenSumme", 1},     {"gibtEsNicht", 1},
        {"uniqueIdentifier", QDateTime()}, {"rechnung", QVariant()},
    };
    moc.save();
    Observer observer(posten);
    for (const auto &r : refused)
        EXPECT_FALSE(posten->setValue(QString::fromLatin1(r.key), r.value)) << r.key;
    EXPECT_EQ(posten->mwStSatz(), *Decimal::parse("0.07"));
    EXPECT_EQ(posten->postenNummer(), 4);
    EXPECT_TRUE(observer.keys.isEmpty());
    EXPECT_FALSE(moc.hasChanges());

    auto *rechnung = moc.insertNewObject<FKRRechnung>();
    EXPECT_TRUE(rechnung->setValue(u"rechnungsDatum"_s, QDateTime(QDate(2024, 5, 17), QTime(9, 30, 0, 125))));
    EXPECT_EQ(rechnung->value(u"rechnungsDatum"_s).toDateTime().time().msec(), 125);
    EXPECT_TRUE(rechnung->setValue(u"brutto"_s, QVariant()));
    EXPECT_FALSE(rechnung->brutto().has_value());
    EXPECT_FALSE(rechnung->value(u"brutto"_s).isValid());
}

} // namespace

#include "TestEntities.moc"
