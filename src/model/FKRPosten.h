#pragma once

#include "ManagedObject.h"

class FKRRechnung;
class ManagedObjectContext;
class ManagedObjectModel;

// One line item of a document.
class FKRPosten : public ManagedObject
{
    Q_OBJECT
    Q_PROPERTY(std::optional<Decimal> anzahl READ anzahl WRITE setAnzahl NOTIFY anzahlChanged)
    Q_PROPERTY(std::optional<Decimal> einzelbetrag READ einzelbetrag WRITE setEinzelbetrag NOTIFY einzelbetragChanged)
    Q_PROPERTY(std::optional<bool> istVorlage READ istVorlage WRITE setIstVorlage NOTIFY istVorlageChanged)
    Q_PROPERTY(std::optional<Decimal> mwStSatz READ mwStSatz WRITE setMwStSatz NOTIFY mwStSatzChanged)
    Q_PROPERTY(std::optional<QString> postenBeschreibung READ postenBeschreibung WRITE setPostenBeschreibung NOTIFY postenBeschreibungChanged)
    Q_PROPERTY(std::optional<QString> postenBezeichnung READ postenBezeichnung WRITE setPostenBezeichnung NOTIFY postenBezeichnungChanged)
    Q_PROPERTY(std::optional<qint64> postenNummer READ postenNummer WRITE setPostenNummer NOTIFY postenNummerChanged)
    Q_PROPERTY(std::optional<QString> uniqueIdentifier READ uniqueIdentifier WRITE setUniqueIdentifier NOTIFY uniqueIdentifierChanged)

    Q_PROPERTY(Decimal zwischenSumme READ zwischenSumme NOTIFY zwischenSummeChanged STORED false)

public:
    static const EntityDescription &entityDescription();

    VELMORA_ATTRIBUTE(Decimal, anzahl, setAnzahl)
    VELMORA_ATTRIBUTE(Decimal, einzelbetrag, setEinzelbetrag)
    VELMORA_ATTRIBUTE(bool, istVorlage, setIstVorlage)
    VELMORA_ATTRIBUTE(Decimal, mwStSatz, setMwStSatz)
    VELMORA_ATTRIBUTE(QString, postenBeschreibung, setPostenBeschreibung)
    VELMORA_ATTRIBUTE(QString, postenBezeichnung, setPostenBezeichnung)
    VELMORA_ATTRIBUTE(qint64, postenNummer, setPostenNummer)
    VELMORA_ATTRIBUTE(QString, uniqueIdentifier, setUniqueIdentifier)

    FKRRechnung *rechnung() const;
    void setRechnung(FKRRechnung *rechnung);

    // Amounts (FKRPostenBetraege.cpp). zwischenSumme: anzahl × einzelbetrag cent-rounded, zero
    // without anzahl. mwStSatzInProzent: the item's own rate, or the document's when the item
    // has none or zero, in percent. mwStBetrag: zwischenSumme × the effective fraction, unrounded.
    Decimal zwischenSumme() const;
    Decimal mwStSatzInProzent() const;
    Decimal mwStBetrag(const FKRRechnung &rechnung) const;

    // Item import without an open editor: applies the decoded query of a time tracker's request
    // to this item (quantity, unit price, title, description) and, when the request names a
    // client, makes the recipient found or created for it the recipient of `rechnung`. Does not
    // attach the item to the document, number it or save. A refused request (FKRImportAnfrage)
    // changes nothing and gives false.
    bool setzeImportPostenDetailsFuerWithQuery(const QString &decodedQuery, FKRRechnung *rechnung,
                                              const ManagedObjectModel &model, ManagedObjectContext &context);

Q_SIGNALS:
    void anzahlChanged();
    void einzelbetragChanged();
    void istVorlageChanged();
    void mwStSatzChanged();
    void postenBeschreibungChanged();
    void postenBezeichnungChanged();
    void postenNummerChanged();
    void uniqueIdentifierChanged();
    void zwischenSummeChanged();

protected:
    using ManagedObject::ManagedObject;
    friend class ManagedObjectModel;
};
