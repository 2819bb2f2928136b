#include "FKRAbsender.h"

#include "FKRAnzeigeName.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"
#include "ManagedObjectModel.h"

#include <QFile>
#include <QUrl>

namespace {

std::optional<QByteArray> dateiInhalt(const QUrl &datei)
{
    if (!datei.isLocalFile())
        return std::nullopt;
    QFile file(datei.toLocalFile());
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray inhalt = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return inhalt;
}

void sichereKontext(ManagedObjectContext *context)
{
    // A failed save keeps the change in the context; the editor's save operation that follows
    // every drop reports it to the user.
    if (context && context->hasChanges())
        context->save();
}

} // namespace

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

bool FKRAbsender::speichereLogoBildAusDatei(const QUrl &datei)
{
    return speichereBildAusDatei(datei, &FKRAbsender::setLogoImageBinary);
}

bool FKRAbsender::speichereUnterschriftBildAusDatei(const QUrl &datei)
{
    return speichereBildAusDatei(datei, &FKRAbsender::setUnterschriftImageBinary);
}

bool FKRAbsender::speichereGeschaeftspapierBildAusDatei(const QUrl &datei)
{
    return speichereBildAusDatei(datei, &FKRAbsender::setGeschaeftspapierImageBinary);
}

bool FKRAbsender::speichereBildAusDatei(const QUrl &datei,
                                        void (FKRAbsender::*setzeBytes)(const std::optional<QByteArray> &))
{
    const auto inhalt = dateiInhalt(datei);
    if (!inhalt)
        return false;
    (this->*setzeBytes)(inhalt);
    sichereKontext(managedObjectContext());
    return true;
}
