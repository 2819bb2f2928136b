#include "FKRAbsender.h"

#include "FKRAnzeigeName.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "ManagedObjectModel.h"

const EntityDescription &FKRAbsender::entityDescription()
{
    static const EntityDescription &entity = *ManagedObjectModel::defaultModel().entity(QStringLiteral("FKRAbsender"));
    return entity;
}

QString FKRAbsender::firmaUndName() const
{
    return FKRAnzeigeName::verbinde(firma(), name(), FKRLocalizationHelper::hauptTabellenText(QStringLiteral(" Neuer Absender")));
}

QString FKRAbsender::nameUndFirma() const
{
    return FKRAnzeigeName::verbinde(name(), firma(), FKRLocalizationHelper::hauptTabellenText(QStringLiteral(" Neuer Absender")));
}

QString FKRAbsender::firmaNameAdresse() const
{
    return FKRAnzeigeName::adressBlock({firma(), name(), strasse(), plz(), ort(), land()});
}

QList<FKRRechnung *> FKRAbsender::rechnungen() const
{
    QList<FKRRechnung *> result;
    for (ManagedObject *object : toMany(QStringLiteral("rechnungen")))
        result.append(static_cast<FKRRechnung *>(object));
    return result;
}
