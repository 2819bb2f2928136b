#include "FKREmpfaenger.h"

#include "FKRAnzeigeName.h"
#include "FKRImportAnfrage.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"
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

FKREmpfaenger *FKREmpfaenger::findeEmpfaengerFuerImportAuftraggeberStringWithAuftraggeber(
    const QString &auftraggeber, const QString &auftraggeberAdresse, const ManagedObjectModel &model,
    ManagedObjectContext &context)
{
    QList<FKREmpfaenger *> alle;
    if (const auto anfrage = model.fetchRequestTemplate(QStringLiteral("AlleEmpfaengerFetchRequest"))) {
        for (ManagedObject *object : context.executeFetchRequest(*anfrage)) {
            if (auto *empfaenger = qobject_cast<FKREmpfaenger *>(object))
                alle.append(empfaenger);
        }
    }
    if (FKREmpfaenger *gefunden = FKRImportAnfrage::passenderEmpfaenger(alle, auftraggeber))
        return gefunden;
    auto *neu = context.insertNewObject<FKREmpfaenger>();
    // A tracker's client is a business far more often than a private person.
    neu->setFirma(auftraggeber);
    neu->setNotiz(auftraggeberAdresse);
    return neu;
}
