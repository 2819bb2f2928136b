#pragma once

#include "ManagedObject.h"

#include <QList>
#include <QMap>

class FKRAbsender;
class FKREmpfaenger;
class FKRPosten;

// A business document: cover letter, quote, invoice, fee note or dunning letter (dokumentArt).
// Amounts are computed on every read from the items and never stored (FKRRechnungBetraege.cpp);
// types, states and number texts live in FKRRechnungStatus.cpp.
class FKRRechnung : public ManagedObject
{
    Q_OBJECT
    Q_PROPERTY(std::optional<bool> archiviert READ archiviert WRITE setArchiviert NOTIFY archiviertChanged)
    Q_PROPERTY(std::optional<bool> bezahlt READ bezahlt WRITE setBezahlt NOTIFY bezahltChanged)
    Q_PROPERTY(std::optional<QDateTime> bezahltDatum READ bezahltDatum WRITE setBezahltDatum NOTIFY bezahltDatumChanged)
    Q_PROPERTY(std::optional<QByteArray> binaryPDF READ binaryPDF WRITE setBinaryPDF NOTIFY binaryPDFChanged)
    Q_PROPERTY(std::optional<bool> brutto READ brutto WRITE setBrutto NOTIFY bruttoChanged)
    Q_PROPERTY(std::optional<Decimal> dokumentArt READ dokumentArt WRITE setDokumentArt NOTIFY dokumentArtChanged)
    Q_PROPERTY(std::optional<QDateTime> faelligkeitsDatum READ faelligkeitsDatum WRITE setFaelligkeitsDatum NOTIFY faelligkeitsDatumChanged)
    Q_PROPERTY(std::optional<Decimal> layout READ layout WRITE setLayout NOTIFY layoutChanged)
    Q_PROPERTY(std::optional<QDateTime> lieferDatum READ lieferDatum WRITE setLieferDatum NOTIFY lieferDatumChanged)
    Q_PROPERTY(std::optional<Decimal> mwStSatz READ mwStSatz WRITE setMwStSatz NOTIFY mwStSatzChanged)
    Q_PROPERTY(std::optional<Decimal> rabatt READ rabatt WRITE setRabatt NOTIFY rabattChanged)
    Q_PROPERTY(std::optional<QDateTime> rechnungsDatum READ rechnungsDatum WRITE setRechnungsDatum NOTIFY rechnungsDatumChanged)
    Q_PROPERTY(std::optional<QString> rechnungsNummer READ rechnungsNummer WRITE setRechnungsNummer NOTIFY rechnungsNummerChanged)
    Q_PROPERTY(std::optional<QString> rechnungsText READ rechnungsText WRITE setRechnungsText NOTIFY rechnungsTextChanged)
    Q_PROPERTY(std::optional<QString> rechnungsText2 READ rechnungsText2 WRITE setRechnungsText2 NOTIFY rechnungsText2Changed)
    Q_PROPERTY(std::optional<QString> rechnungsTextAnrede READ rechnungsTextAnrede WRITE setRechnungsTextAnrede NOTIFY rechnungsTextAnredeChanged)
    Q_PROPERTY(std::optional<Decimal> skonto READ skonto WRITE setSkonto NOTIFY skontoChanged)
    Q_PROPERTY(std::optional<qint64> skontoZeitraum READ skontoZeitraum WRITE setSkontoZeitraum NOTIFY skontoZeitraumChanged)
    Q_PROPERTY(std::optional<qint64> sprache READ sprache WRITE setSprache NOTIFY spracheChanged)
    Q_PROPERTY(std::optional<QString> uniqueIdentifier READ uniqueIdentifier WRITE setUniqueIdentifier NOTIFY uniqueIdentifierChanged)
    Q_PROPERTY(std::optional<bool> versandt READ versandt WRITE setVersandt NOTIFY versandtChanged)
    Q_PROPERTY(std::optional<QString> waehrung READ waehrung WRITE setWaehrung NOTIFY waehrungChanged)
    Q_PROPERTY(std::optional<Decimal> zuschlag READ zuschlag WRITE setZuschlag NOTIFY zuschlagChanged)

    Q_PROPERTY(bool isAnschreiben READ isAnschreiben NOTIFY dokumentArtChanged STORED false)
    Q_PROPERTY(bool isAngebot READ isAngebot NOTIFY dokumentArtChanged STORED false)
    Q_PROPERTY(bool isRechnung READ isRechnung NOTIFY dokumentArtChanged STORED false)
    Q_PROPERTY(bool isHonorarnote READ isHonorarnote NOTIFY dokumentArtChanged STORED false)
    Q_PROPERTY(bool isMahnung READ isMahnung NOTIFY dokumentArtChanged STORED false)
    Q_PROPERTY(bool isFaellig READ isFaellig STORED false)

public:
    static const EntityDescription &entityDescription();

    VELMORA_ATTRIBUTE(bool, archiviert, setArchiviert)
    VELMORA_ATTRIBUTE(bool, bezahlt, setBezahlt)
    VELMORA_ATTRIBUTE(QDateTime, bezahltDatum, setBezahltDatum)
    VELMORA_ATTRIBUTE(QByteArray, binaryPDF, setBinaryPDF)
    VELMORA_ATTRIBUTE(bool, brutto, setBrutto)
    VELMORA_ATTRIBUTE(Decimal, dokumentArt, setDokumentArt)
    VELMORA_ATTRIBUTE(QDateTime, faelligkeitsDatum, setFaelligkeitsDatum)
    VELMORA_ATTRIBUTE(Decimal, layout, setLayout)
    VELMORA_ATTRIBUTE(QDateTime, lieferDatum, setLieferDatum)
    VELMORA_ATTRIBUTE(Decimal, mwStSatz, setMwStSatz)
    VELMORA_ATTRIBUTE(Decimal, rabatt, setRabatt)
    VELMORA_ATTRIBUTE(QDateTime, rechnungsDatum, setRechnungsDatum)
    VELMORA_ATTRIBUTE(QString, rechnungsNummer, setRechnungsNummer)
    VELMORA_ATTRIBUTE(QString, rechnungsText, setRechnungsText)
    VELMORA_ATTRIBUTE(QString, rechnungsText2, setRechnungsText2)
    VELMORA_ATTRIBUTE(QString, rechnungsTextAnrede, setRechnungsTextAnrede)
    VELMORA_ATTRIBUTE(Decimal, skonto, setSkonto)
    VELMORA_ATTRIBUTE(qint64, skontoZeitraum, setSkontoZeitraum)
    VELMORA_ATTRIBUTE(qint64, sprache, setSprache)
    VELMORA_ATTRIBUTE(QString, uniqueIdentifier, setUniqueIdentifier)
    VELMORA_ATTRIBUTE(bool, versandt, setVersandt)
    VELMORA_ATTRIBUTE(QString, waehrung, setWaehrung)
    VELMORA_ATTRIBUTE(Decimal, zuschlag, setZuschlag)

    // Relationships: absender (inverse rechnungen), empfaenger (inverse rechnungen),
    // posten (unordered, inverse rechnung; deleting the document deletes its items).
    FKRAbsender *absender() const;
    void setAbsender(FKRAbsender *absender);
    FKREmpfaenger *empfaenger() const;
    void setEmpfaenger(FKREmpfaenger *empfaenger);
    QList<FKRPosten *> posten() const;
    void addPostenObject(FKRPosten *posten);
    void removePostenObject(FKRPosten *posten);
    // Only a document built outside the store can lack its item relationship; every amount is
    // then zero.
    bool hatPostenBeziehung() const { return !isRelationshipAbsent(QStringLiteral("posten")); }

    // ---- Amounts: decimal arithmetic with rounding at fixed points (FKRRechnungBetraege.cpp) ----
    // Each throws FKRFehlenderWert when a value that the arithmetic reads unconditionally is
    // absent (rabatt, zuschlag, skonto; an item's einzelbetrag beside its anzahl), and
    // DecimalError on overflow.
    Decimal postenSumme() const;
    Decimal rabattBetrag() const;
    Decimal zuschlagBetrag() const;
    Decimal nettoSumme() const;
    // Rate label -> VAT amount, unrounded, in the order the labels first occur.
    QList<QPair<QString, Decimal>> umsatzsteuerJeSatz() const;
    Decimal umsatzsteuerSumme() const;
    Decimal rechnungsSumme() const;
    Decimal skontoBetrag() const;
    Decimal rechnungsSummeAbzueglichSkonto() const;
    // "en_US" for English documents, "de_DE" otherwise.
    QString sprachLocale() const;
    // Nearest multiple of 0.05 for documents in exactly "CHF"; any other currency unchanged.
    Decimal waehrungsRundung(const Decimal &betrag) const;

    // ---- Types, states and numbers (FKRRechnungStatus.cpp) ----
    bool isAnschreiben() const;
    bool isAngebot() const;
    bool isRechnung() const;
    bool isHonorarnote() const;
    bool isMahnung() const;
    // Unpaid (bezahlt exactly false) with a due date before the end of today.
    bool isFaellig() const;
    // The next reminder: 10:00 on the due day, or when that has passed, the next 10:00 from now.
    std::optional<QDateTime> erinnerungsDatum() const;
    // 10:00:00 of the calendar day of `date` in the current time zone.
    static QDateTime zehnUhrAm(const QDateTime &date);

    // Number texts, all in the document's own language:
    // a new document's number is its type label and a blank, for the user to complete;
    void setzeNummerFuerNeuesDokument();
    // a copy's number is the source's number followed by "Kopie";
    void setzeNummerAlsKopieVon(const FKRRechnung &quelle);
    // a dunning letter is of type 5 and numbered "Mahnung für: " and the source's number;
    void setzeNummerAlsMahnungZu(const FKRRechnung &quelle);
    // a type change exchanges every other type's label in the number for the new one's
    // (removes them for a code outside 1..5) and keeps the rest of the text;
    void wechsleDokumentArt(const Decimal &neueArt);
    // a language change turns the labels that begin the number ("Rechnung: ", also "Mahnung
    // für: Rechnung: ") into the new language's; a number that does not begin with a label of
    // the old language is the user's own and stays as it is.
    void wechsleSprache(qint64 neueSprache);

    // ---- New documents (FKRRechnungStatus.cpp) ----
    // Days from the document date to the due date of a new document: a document is not due on
    // the day it is written.
    static constexpr int kZahlungszielTage = 14;
    // The language a new document starts in: German on a German desktop, English on any other
    // (the language the program itself speaks there).
    static qint64 spracheFuerNeueDokumente();
    // Document and delivery date `jetzt`, due date kZahlungszielTage calendar days later.
    void setzeDatenFuerNeuesDokument(const QDateTime &jetzt);
    // The sender a new document starts with: the only one there is; otherwise the sender of the
    // newest of `dokumente` (by document date) that has one; nullptr when neither decides.
    static FKRAbsender *absenderFuerNeuesDokument(const QList<FKRAbsender *> &absender,
                                                  const QList<FKRRechnung *> &dokumente);

Q_SIGNALS:
    void archiviertChanged();
    void bezahltChanged();
    void bezahltDatumChanged();
    void binaryPDFChanged();
    void bruttoChanged();
    void dokumentArtChanged();
    void faelligkeitsDatumChanged();
    void layoutChanged();
    void lieferDatumChanged();
    void mwStSatzChanged();
    void rabattChanged();
    void rechnungsDatumChanged();
    void rechnungsNummerChanged();
    void rechnungsTextChanged();
    void rechnungsText2Changed();
    void rechnungsTextAnredeChanged();
    void skontoChanged();
    void skontoZeitraumChanged();
    void spracheChanged();
    void uniqueIdentifierChanged();
    void versandtChanged();
    void waehrungChanged();
    void zuschlagChanged();

protected:
    using ManagedObject::ManagedObject;
    friend class ManagedObjectModel;
};
