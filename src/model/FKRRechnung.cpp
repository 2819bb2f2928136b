#include "FKRRechnung.h"

#include "FKRAbsender.h"
#include "FKREmpfaenger.h"
#include "FKRPosten.h"
#include "ManagedObjectModel.h"

const EntityDescription &FKRRechnung::entityDescription()
{
    static const EntityDescription &entity = *ManagedObjectModel::defaultModel().entity(QStringLiteral("FKRRechnung"));
    return entity;
}

FKRAbsender *FKRRechnung::absender() const
{
    return static_cast<FKRAbsender *>(toOne(QStringLiteral("absender")));
}

void FKRRechnung::setAbsender(FKRAbsender *absender)
{
    setToOne(QStringLiteral("absender"), absender);
}

FKREmpfaenger *FKRRechnung::empfaenger() const
{
    return static_cast<FKREmpfaenger *>(toOne(QStringLiteral("empfaenger")));
}

void FKRRechnung::setEmpfaenger(FKREmpfaenger *empfaenger)
{
    setToOne(QStringLiteral("empfaenger"), empfaenger);
}

QList<FKRPosten *> FKRRechnung::posten() const
{
    QList<FKRPosten *> result;
    for (ManagedObject *object : toMany(QStringLiteral("posten")))
        result.append(static_cast<FKRPosten *>(object));
    return result;
}

void FKRRechnung::addPostenObject(FKRPosten *posten)
{
    addToMany(QStringLiteral("posten"), posten);
}

void FKRRechnung::removePostenObject(FKRPosten *posten)
{
    removeFromMany(QStringLiteral("posten"), posten);
}
