#include "ManagedObjectModel.h"

#include "FKRAbsender.h"
#include "FKREmpfaenger.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"

namespace {
bool lacksIdentifier(const ManagedObject &object)
{
    return !object.value(QStringLiteral("uniqueIdentifier")).isValid();
}
} // namespace

template<typename T>
ManagedObject *ManagedObjectModel::make(const EntityDescription &entity, ManagedObjectContext *context)
{
    return new T(entity, context);
}

const ManagedObjectModel &ManagedObjectModel::defaultModel()
{
    static const ManagedObjectModel model;
    return model;
}

ManagedObjectModel::ManagedObjectModel()
{
    const QString rechnung = QStringLiteral("FKRRechnung");
    const QString posten = QStringLiteral("FKRPosten");
    const QString absender = QStringLiteral("FKRAbsender");
    const QString empfaenger = QStringLiteral("FKREmpfaenger");
    const QString rechnungen = QStringLiteral("rechnungen");

    // A new document is a German invoice at 19 % VAT with gross totals in euros, ready to use
    // without touching a setting; discounts are zero rather than absent because the amounts
    // read them unconditionally.
    m_entities.push_back(std::make_unique<EntityDescription>(
        FKRRechnung::staticMetaObject, &ManagedObjectModel::make<FKRRechnung>,
        std::vector<RelationshipDescription>{
            {QStringLiteral("absender"), absender, rechnungen, false, DeleteRule::Nullify},
            {QStringLiteral("empfaenger"), empfaenger, rechnungen, false, DeleteRule::Nullify},
            {QStringLiteral("posten"), posten, QStringLiteral("rechnung"), true, DeleteRule::Cascade},
        },
        QHash<QString, AttributeValue>{
            {QStringLiteral("archiviert"), false},
            {QStringLiteral("bezahlt"), false},
            {QStringLiteral("versandt"), false},
            {QStringLiteral("brutto"), true},
            {QStringLiteral("dokumentArt"), Decimal(3)},
            {QStringLiteral("sprache"), qint64(1)},
            {QStringLiteral("mwStSatz"), *Decimal::parse("0.19")},
            {QStringLiteral("waehrung"), QStringLiteral("€")},
            {QStringLiteral("rabatt"), Decimal(0)},
            {QStringLiteral("zuschlag"), Decimal(0)},
            {QStringLiteral("skonto"), Decimal(0)},
            {QStringLiteral("skontoZeitraum"), qint64(0)},
            {QStringLiteral("layout"), Decimal(1)},
        },
        QHash<QString, QStringList>{}));

    m_entities.push_back(std::make_unique<EntityDescription>(
        FKRPosten::staticMetaObject, &ManagedObjectModel::make<FKRPosten>,
        std::vector<RelationshipDescription>{
            {QStringLiteral("rechnung"), rechnung, QStringLiteral("posten"), false, DeleteRule::Nullify},
        },
        QHash<QString, AttributeValue>{
            {QStringLiteral("istVorlage"), false},
            {QStringLiteral("postenNummer"), qint64(0)},
            {QStringLiteral("einzelbetrag"), Decimal(0)},
        },
        QHash<QString, QStringList>{
            {QStringLiteral("zwischenSumme"), {QStringLiteral("anzahl"), QStringLiteral("einzelbetrag")}},
        }));

    // Company and name are shown as one display name, so an edit of either concerns both.
    const QHash<QString, QStringList> displayNameDependencies{
        {QStringLiteral("name"), {QStringLiteral("firma")}},
        {QStringLiteral("firma"), {QStringLiteral("name")}},
        {QStringLiteral("firmaUndName"), {QStringLiteral("firma"), QStringLiteral("name")}},
    };
    m_entities.push_back(std::make_unique<EntityDescription>(
        FKRAbsender::staticMetaObject, &ManagedObjectModel::make<FKRAbsender>,
        std::vector<RelationshipDescription>{
            {rechnungen, rechnung, QStringLiteral("absender"), true, DeleteRule::Nullify},
        },
        QHash<QString, AttributeValue>{
            {QStringLiteral("archiviert"), false},
            {QStringLiteral("geschaeftspapierDrucken"), false},
        },
        displayNameDependencies));
    m_entities.push_back(std::make_unique<EntityDescription>(
        FKREmpfaenger::staticMetaObject, &ManagedObjectModel::make<FKREmpfaenger>,
        std::vector<RelationshipDescription>{
            {rechnungen, rechnung, QStringLiteral("empfaenger"), true, DeleteRule::Nullify},
        },
        QHash<QString, AttributeValue>{
            {QStringLiteral("archiviert"), false},
        },
        displayNameDependencies));

    const std::pair<QString, QString> templateNames[] = {
        {absender, QStringLiteral("Absender")},
        {empfaenger, QStringLiteral("Empfaenger")},
        {posten, QStringLiteral("Posten")},
        {rechnung, QStringLiteral("Rechnung")},
    };
    for (const auto &[entity, stem] : templateNames) {
        m_templates.insert(stem + QStringLiteral("OhneUUIDFetchRequest"), FetchRequest{entity, &lacksIdentifier, {}});
        // The document template's name is spelled "Rechungen", and so it stays.
        const QString all = stem == QStringLiteral("Rechnung") ? QStringLiteral("AlleRechungenFetchRequest")
                                                               : QStringLiteral("Alle") + stem + QStringLiteral("FetchRequest");
        m_templates.insert(all, FetchRequest{entity, {}, {}});
    }
}

const EntityDescription *ManagedObjectModel::entity(const QString &name) const
{
    for (const auto &e : m_entities) {
        if (e->name() == name)
            return e.get();
    }
    return nullptr;
}

std::optional<FetchRequest> ManagedObjectModel::fetchRequestTemplate(const QString &name) const
{
    const auto it = m_templates.constFind(name);
    if (it == m_templates.constEnd())
        return std::nullopt;
    return *it;
}

QStringList ManagedObjectModel::fetchRequestTemplateNames() const
{
    QStringList names = m_templates.keys();
    names.sort();
    return names;
}
