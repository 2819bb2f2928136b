#include "FKRPosten.h"

#include "FKRRechnung.h"
#include "ManagedObjectModel.h"

const EntityDescription &FKRPosten::entityDescription()
{
    static const EntityDescription &entity = *ManagedObjectModel::defaultModel().entity(QStringLiteral("FKRPosten"));
    return entity;
}

FKRRechnung *FKRPosten::rechnung() const
{
    return static_cast<FKRRechnung *>(toOne(QStringLiteral("rechnung")));
}

void FKRPosten::setRechnung(FKRRechnung *rechnung)
{
    setToOne(QStringLiteral("rechnung"), rechnung);
}
