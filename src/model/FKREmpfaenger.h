#pragma once

#include "ManagedObject.h"

#include <QList>

class FKRRechnung;
class ManagedObjectContext;
class ManagedObjectModel;

// A customer to whom documents are addressed.
class FKREmpfaenger : public ManagedObject
{
    Q_OBJECT
    Q_PROPERTY(std::optional<bool> archiviert READ archiviert WRITE setArchiviert NOTIFY archiviertChanged)
    Q_PROPERTY(std::optional<QString> firma READ firma WRITE setFirma NOTIFY firmaChanged)
    Q_PROPERTY(std::optional<QString> land READ land WRITE setLand NOTIFY landChanged)
    Q_PROPERTY(std::optional<QString> name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(std::optional<QString> notiz READ notiz WRITE setNotiz NOTIFY notizChanged)
    Q_PROPERTY(std::optional<QString> ort READ ort WRITE setOrt NOTIFY ortChanged)
    Q_PROPERTY(std::optional<QString> plz READ plz WRITE setPlz NOTIFY plzChanged)
    Q_PROPERTY(std::optional<QString> rechnungsNummerPrefix READ rechnungsNummerPrefix WRITE setRechnungsNummerPrefix NOTIFY rechnungsNummerPrefixChanged)
    Q_PROPERTY(std::optional<QString> strasse READ strasse WRITE setStrasse NOTIFY strasseChanged)
    Q_PROPERTY(std::optional<QString> uniqueIdentifier READ uniqueIdentifier WRITE setUniqueIdentifier NOTIFY uniqueIdentifierChanged)

    Q_PROPERTY(QString firmaUndName READ firmaUndName NOTIFY firmaUndNameChanged STORED false)
    Q_PROPERTY(QString nameUndFirma READ nameUndFirma STORED false)
    Q_PROPERTY(QString firmaNameAdresse READ firmaNameAdresse STORED false)

public:
    static const EntityDescription &entityDescription();

    VELMORA_ATTRIBUTE(bool, archiviert, setArchiviert)
    VELMORA_ATTRIBUTE(QString, firma, setFirma)
    VELMORA_ATTRIBUTE(QString, land, setLand)
    VELMORA_ATTRIBUTE(QString, name, setName)
    VELMORA_ATTRIBUTE(QString, notiz, setNotiz)
    VELMORA_ATTRIBUTE(QString, ort, setOrt)
    VELMORA_ATTRIBUTE(QString, plz, setPlz)
    VELMORA_ATTRIBUTE(QString, rechnungsNummerPrefix, setRechnungsNummerPrefix)
    VELMORA_ATTRIBUTE(QString, strasse, setStrasse)
    VELMORA_ATTRIBUTE(QString, uniqueIdentifier, setUniqueIdentifier)

    // "firma - name" (resp. "name - firma") when both are set, else whichever is set, else the
    // localised placeholder of a new recipient. Only presence counts: an empty firma still gets " - ".
    QString firmaUndName() const;
    QString nameUndFirma() const;
    // Company and name, street, postcode and town on one line, country; one line per part
    // that has text.
    QString firmaNameAdresse() const;

    QList<FKRRechnung *> rechnungen() const;

    // The recipient for a client named by the item import: the first of all recipients (the
    // model's "AlleEmpfaengerFetchRequest") whose name, or else whose company, equals
    // `auftraggeber` exactly; otherwise a new one in `context` with that name and
    // `auftraggeberAdresse` as its note. The caller saves.
    static FKREmpfaenger *findeEmpfaengerFuerImportAuftraggeberStringWithAuftraggeber(
        const QString &auftraggeber, const QString &auftraggeberAdresse, const ManagedObjectModel &model,
        ManagedObjectContext &context);

Q_SIGNALS:
    void archiviertChanged();
    void firmaChanged();
    void landChanged();
    void nameChanged();
    void notizChanged();
    void ortChanged();
    void plzChanged();
    void rechnungsNummerPrefixChanged();
    void strasseChanged();
    void uniqueIdentifierChanged();
    void firmaUndNameChanged();

protected:
    using ManagedObject::ManagedObject;
    friend class ManagedObjectModel;
};
