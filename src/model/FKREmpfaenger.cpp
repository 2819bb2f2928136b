#include "FKREmpfaenger.h"

#include "FKRAnzeigeName.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "ManagedObjectModel.h"

const EntityDescription &FKREmpfaenger::entityDescription()
{
    static const EntityDescription &entity = *ManagedObjectModel::defaultModel().entity(QStringLiteral("FKREmpfaenger"));
    return entity;
}

QString FKREmpfaenger::firmaUndName() const
{
    return FKRAnzeigeName::verbinde(firma(), name(), FKRLocalizationHelper::hauptTabellenText(QStringLiteral(" Neuer Empfänger")));
}

QString FKREmpfaenger::nameUndFirma() const
{
    return FKRAnzeigeName::verbinde(name(), firma(), FKRLocalizationHelper::hauptTabellenText(QStringLiteral(" Neuer Empfänger")));
}

QString FKREmpfaenger::firmaNameAdresse() const
{
    return FKRAnzeigeName::adressBlock({firma(), name(), strasse(), plz(), ort(), land()});
}

QList<FKRRechnung *> FKREmpfaenger::rechnungen() const
{
    QList<FKRRechnung *> result;
    for (ManagedObject *object : toMany(QStringLiteral("rechnungen")))
        result.append(static_cast<FKRRechnung *>(object));
    return result;
}
