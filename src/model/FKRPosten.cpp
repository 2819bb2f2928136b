#include "FKRPosten.h"

#include "FKREmpfaenger.h"
#include "FKRImportAnfrage.h"
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

bool FKRPosten::setzeImportPostenDetailsFuerWithQuery(const QString &decodedQuery, FKRRechnung *rechnung,
                                                     const ManagedObjectModel &model, ManagedObjectContext &context)
{
    const FKRImportAnfrage anfrage = FKRImportAnfrage::lies(decodedQuery);
    if (!anfrage.uebertrageAuf(*this))
        return false;
    if (rechnung && !anfrage.auftraggeber.isEmpty()) {
        rechnung->setEmpfaenger(FKREmpfaenger::findeEmpfaengerFuerImportAuftraggeberStringWithAuftraggeber(
            anfrage.auftraggeber, anfrage.auftraggeberNotiz, model, context));
    }
    return true;
}
