#pragma once

#include "EntityDescription.h"
#include "FetchRequest.h"

#include <QHash>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

// The store's schema: the four entities with their default values, relationships and change
// dependencies, and the named fetch requests that start-up and sync use.
class ManagedObjectModel
{
public:
    // The model of this application; built once, shared by every context.
    static const ManagedObjectModel &defaultModel();

    const std::vector<std::unique_ptr<EntityDescription>> &entities() const { return m_entities; }
    const EntityDescription *entity(const QString &name) const;

    // "RechnungOhneUUIDFetchRequest", "AlleRechungenFetchRequest", ...; nullopt for unknown names.
    std::optional<FetchRequest> fetchRequestTemplate(const QString &name) const;
    QStringList fetchRequestTemplateNames() const;

    // Schema version written into every store; raised whenever attributes are added.
    static constexpr int kSchemaVersion = 1;

private:
    ManagedObjectModel();
    template<typename T>
    static ManagedObject *make(const EntityDescription &entity, ManagedObjectContext *context);

    std::vector<std::unique_ptr<EntityDescription>> m_entities;
    QHash<QString, FetchRequest> m_templates;
};
