#pragma once

#include "ManagedObject.h"

#include <QList>

class FKRRechnung;
class QUrl;

// The issuing business: contact, tax and bank details, logo, signature and letterhead.
class FKRAbsender : public ManagedObject
{
    Q_OBJECT
    Q_PROPERTY(std::optional<bool> archiviert READ archiviert WRITE setArchiviert NOTIFY archiviertChanged)
    Q_PROPERTY(std::optional<QString> bankVerbindungBic READ bankVerbindungBic WRITE setBankVerbindungBic NOTIFY bankVerbindungBicChanged)
    Q_PROPERTY(std::optional<QString> bankVerbindungIban READ bankVerbindungIban WRITE setBankVerbindungIban NOTIFY bankVerbindungIbanChanged)
    Q_PROPERTY(std::optional<QString> bankVerbindungInstitut READ bankVerbindungInstitut WRITE setBankVerbindungInstitut NOTIFY bankVerbindungInstitutChanged)
    Q_PROPERTY(std::optional<QString> emailAdresse READ emailAdresse WRITE setEmailAdresse NOTIFY emailAdresseChanged)
    Q_PROPERTY(std::optional<QString> faxNummer READ faxNummer WRITE setFaxNummer NOTIFY faxNummerChanged)
    Q_PROPERTY(std::optional<QString> firma READ firma WRITE setFirma NOTIFY firmaChanged)
    Q_PROPERTY(std::optional<bool> geschaeftspapierDrucken READ geschaeftspapierDrucken WRITE setGeschaeftspapierDrucken NOTIFY geschaeftspapierDruckenChanged)
    Q_PROPERTY(std::optional<QByteArray> geschaeftspapierImageBinary READ geschaeftspapierImageBinary WRITE setGeschaeftspapierImageBinary NOTIFY geschaeftspapierImageBinaryChanged)
    Q_PROPERTY(std::optional<QString> geschaeftspapierImagePath READ geschaeftspapierImagePath WRITE setGeschaeftspapierImagePath NOTIFY geschaeftspapierImagePathChanged)
    Q_PROPERTY(std::optional<QString> land READ land WRITE setLand NOTIFY landChanged)
    Q_PROPERTY(std::optional<QByteArray> logoImageBinary READ logoImageBinary WRITE setLogoImageBinary NOTIFY logoImageBinaryChanged)
    Q_PROPERTY(std::optional<QString> logoImagePath READ logoImagePath WRITE setLogoImagePath NOTIFY logoImagePathChanged)
    Q_PROPERTY(std::optional<QString> name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(std::optional<QString> ort READ ort WRITE setOrt NOTIFY ortChanged)
    Q_PROPERTY(std::optional<QString> plz READ plz WRITE setPlz NOTIFY plzChanged)
    Q_PROPERTY(std::optional<QString> steuerNummer READ steuerNummer WRITE setSteuerNummer NOTIFY steuerNummerChanged)
    Q_PROPERTY(std::optional<QString> strasse READ strasse WRITE setStrasse NOTIFY strasseChanged)
    Q_PROPERTY(std::optional<QString> telefonNummer READ telefonNummer WRITE setTelefonNummer NOTIFY telefonNummerChanged)
    Q_PROPERTY(std::optional<QString> umsatzsteuerId READ umsatzsteuerId WRITE setUmsatzsteuerId NOTIFY umsatzsteuerIdChanged)
    Q_PROPERTY(std::optional<QString> uniqueIdentifier READ uniqueIdentifier WRITE setUniqueIdentifier NOTIFY uniqueIdentifierChanged)
    Q_PROPERTY(std::optional<QByteArray> unterschriftImageBinary READ unterschriftImageBinary WRITE setUnterschriftImageBinary NOTIFY unterschriftImageBinaryChanged)
    Q_PROPERTY(std::optional<QString> unterschriftImagePath READ unterschriftImagePath WRITE setUnterschriftImagePath NOTIFY unterschriftImagePathChanged)

    Q_PROPERTY(QString firmaUndName READ firmaUndName NOTIFY firmaUndNameChanged STORED false)
    Q_PROPERTY(QString nameUndFirma READ nameUndFirma STORED false)
    Q_PROPERTY(QString firmaNameAdresse READ firmaNameAdresse STORED false)

public:
    static const EntityDescription &entityDescription();

    VELMORA_ATTRIBUTE(bool, archiviert, setArchiviert)
    VELMORA_ATTRIBUTE(QString, bankVerbindungBic, setBankVerbindungBic)
    VELMORA_ATTRIBUTE(QString, bankVerbindungIban, setBankVerbindungIban)
    VELMORA_ATTRIBUTE(QString, bankVerbindungInstitut, setBankVerbindungInstitut)
    VELMORA_ATTRIBUTE(QString, emailAdresse, setEmailAdresse)
    VELMORA_ATTRIBUTE(QString, faxNummer, setFaxNummer)
    VELMORA_ATTRIBUTE(QString, firma, setFirma)
    VELMORA_ATTRIBUTE(bool, geschaeftspapierDrucken, setGeschaeftspapierDrucken)
    VELMORA_ATTRIBUTE(QByteArray, geschaeftspapierImageBinary, setGeschaeftspapierImageBinary)
    VELMORA_ATTRIBUTE(QString, geschaeftspapierImagePath, setGeschaeftspapierImagePath)
    VELMORA_ATTRIBUTE(QString, land, setLand)
    VELMORA_ATTRIBUTE(QByteArray, logoImageBinary, setLogoImageBinary)
    VELMORA_ATTRIBUTE(QString, logoImagePath, setLogoImagePath)
    VELMORA_ATTRIBUTE(QString, name, setName)
    VELMORA_ATTRIBUTE(QString, ort, setOrt)
    VELMORA_ATTRIBUTE(QString, plz, setPlz)
    VELMORA_ATTRIBUTE(QString, steuerNummer, setSteuerNummer)
    VELMORA_ATTRIBUTE(QString, strasse, setStrasse)
    VELMORA_ATTRIBUTE(QString, telefonNummer, setTelefonNummer)
    VELMORA_ATTRIBUTE(QString, umsatzsteuerId, setUmsatzsteuerId)
    VELMORA_ATTRIBUTE(QString, uniqueIdentifier, setUniqueIdentifier)
    VELMORA_ATTRIBUTE(QByteArray, unterschriftImageBinary, setUnterschriftImageBinary)
    VELMORA_ATTRIBUTE(QString, unterschriftImagePath, setUnterschriftImagePath)

    // "firma - name" (resp. "name - firma") when both are set, else whichever is set, else the
    // localised placeholder of a new sender. Only presence counts: an empty firma still gets " - ".
    QString firmaUndName() const;
    QString nameUndFirma() const;
    // Company and name, street, postcode and town on one line, country; one line per part
    // that has text.
    QString firmaNameAdresse() const;

    QList<FKRRechnung *> rechnungen() const;

    // The image files dropped on the editor's slots: the whole file is kept in the store, so a
    // document keeps its logo, signature and letterhead when the file is moved or deleted. The
    // path attribute is left alone. Saves the context when it has changes. False, with nothing
    // changed, when the file cannot be read.
    bool speichereLogoBildAusDatei(const QUrl &datei);
    bool speichereUnterschriftBildAusDatei(const QUrl &datei);
    bool speichereGeschaeftspapierBildAusDatei(const QUrl &datei);

Q_SIGNALS:
    void archiviertChanged();
    void bankVerbindungBicChanged();
    void bankVerbindungIbanChanged();
    void bankVerbindungInstitutChanged();
    void emailAdresseChanged();
    void faxNummerChanged();
    void firmaChanged();
    void geschaeftspapierDruckenChanged();
    void geschaeftspapierImageBinaryChanged();
    void geschaeftspapierImagePathChanged();
    void landChanged();
    void logoImageBinaryChanged();
    void logoImagePathChanged();
    void nameChanged();
    void ortChanged();
    void plzChanged();
    void steuerNummerChanged();
    void strasseChanged();
    void telefonNummerChanged();
    void umsatzsteuerIdChanged();
    void uniqueIdentifierChanged();
    void unterschriftImageBinaryChanged();
    void unterschriftImagePathChanged();
    void firmaUndNameChanged();

protected:
    using ManagedObject::ManagedObject;
    friend class ManagedObjectModel;

private:
    // Reads the whole file into the image attribute that `setzeBytes` writes and saves.
    bool speichereBildAusDatei(const QUrl &datei, void (FKRAbsender::*setzeBytes)(const std::optional<QByteArray> &));
};
