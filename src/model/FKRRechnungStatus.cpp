// Types, states, reminder times and number texts of a document.
#include "FKRAbsender.h"
#include "FKRDokumentArt.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "FKRUhr.h"
#include "QBAdditions.h"

#include <QLocale>
#include <QTimeZone>

namespace {
qint64 artCode(const FKRRechnung &rechnung)
{
    const auto art = rechnung.dokumentArt();
    return art ? art->toInt64() : 0;
}
} // namespace

bool FKRRechnung::isAnschreiben() const { return artCode(*this) == 1; }
bool FKRRechnung::isAngebot() const { return artCode(*this) == 2; }
bool FKRRechnung::isRechnung() const { return artCode(*this) == 3; }
bool FKRRechnung::isHonorarnote() const { return artCode(*this) == 4; }
bool FKRRechnung::isMahnung() const { return artCode(*this) == 5; }

bool FKRRechnung::isFaellig() const
{
    const auto faellig = faelligkeitsDatum();
    if (!faellig || bezahlt() != false)
        return false;
    // Due all day long: from the first second of the due day, not only from its hour.
    const QDateTime tagesende = QBAdditions::endOfTheDay(FKRUhr::jetzt());
    return tagesende.isValid() && *faellig < tagesende;
}

QDateTime FKRRechnung::zehnUhrAm(const QDateTime &date)
{
    const QDateTime lokal = date.toTimeZone(QTimeZone::systemTimeZone());
    return QDateTime(lokal.date(), QTime(10, 0, 0), QTimeZone::systemTimeZone());
}

std::optional<QDateTime> FKRRechnung::erinnerungsDatum() const
{
    const auto faellig = faelligkeitsDatum();
    if (!faellig)
        return std::nullopt;
    const QDateTime jetzt = FKRUhr::jetzt();
    const QDateTime amFaelligkeitstag = zehnUhrAm(*faellig);
    if (amFaelligkeitstag >= jetzt)
        return amFaelligkeitstag;
    const QDateTime heute = zehnUhrAm(jetzt);
    if (jetzt < heute)
        return heute;
    return zehnUhrAm(QBAdditions::beginOfTheNextDay(jetzt));
}

void FKRRechnung::setzeNummerFuerNeuesDokument()
{
    const auto schluessel = nummernLabelSchluessel(artCode(*this));
    if (!schluessel)
        return;
    setRechnungsNummer(FKRLocalizationHelper::lokalisierterText(*schluessel, sprache()) + QLatin1Char(' '));
}

void FKRRechnung::setzeNummerAlsKopieVon(const FKRRechnung &quelle)
{
    setRechnungsNummer(quelle.rechnungsNummer().value_or(QString())
                       + FKRLocalizationHelper::lokalisierterText(QStringLiteral("Kopie"), sprache()));
}

void FKRRechnung::setzeNummerAlsMahnungZu(const FKRRechnung &quelle)
{
    setDokumentArt(Decimal(5));
    setRechnungsNummer(FKRLocalizationHelper::lokalisierterText(QStringLiteral("Mahnung für: "), sprache())
                       + quelle.rechnungsNummer().value_or(QString()));
}

void FKRRechnung::wechsleDokumentArt(const Decimal &neueArt)
{
    const qint64 neu = neueArt.toInt64();
    setDokumentArt(neueArt);
    const auto nummer = rechnungsNummer();
    if (!nummer)
        return;
    const auto neuerSchluessel = nummernLabelSchluessel(neu);
    const QString neuesLabel = neuerSchluessel ? FKRLocalizationHelper::lokalisierterText(*neuerSchluessel, sprache()) : QString();
    QString text = *nummer;
    for (qint64 code = 1; code <= 5; ++code) {
        if (code == neu)
            continue;
        const QString label = FKRLocalizationHelper::lokalisierterText(*nummernLabelSchluessel(code), sprache());
        if (!label.isEmpty() && label != neuesLabel)
            text.replace(label, neuesLabel);
    }
    setRechnungsNummer(text);
}

void FKRRechnung::wechsleSprache(qint64 neueSprache)
{
    const std::optional<qint64> bisher = sprache();
    setSprache(neueSprache);
    const auto nummer = rechnungsNummer();
    if (!nummer || bisher == neueSprache)
        return;
    const std::optional<int> alt = bisher ? std::optional<int>(int(*bisher)) : std::nullopt;
    // The dunning letter's label first: it may stand in front of the source's type label.
    QStringList schluessel{QStringLiteral("Mahnung für: ")};
    for (qint64 code = 1; code <= 5; ++code)
        schluessel.append(*nummernLabelSchluessel(code));
    QString rest = *nummer;
    QString labels;
    for (bool gefunden = true; gefunden;) {
        gefunden = false;
        for (const QString &key : std::as_const(schluessel)) {
            const QString label = FKRLocalizationHelper::lokalisierterText(key, alt);
            if (!label.isEmpty() && rest.startsWith(label)) {
                labels += FKRLocalizationHelper::lokalisierterText(key, int(neueSprache));
                rest = rest.mid(label.size());
                gefunden = true;
                break;
            }
        }
    }
    if (!labels.isEmpty())
        setRechnungsNummer(labels + rest);
}

qint64 FKRRechnung::spracheFuerNeueDokumente()
{
    return QLocale().language() == QLocale::German ? 1 : 2;
}

void FKRRechnung::setzeDatenFuerNeuesDokument(const QDateTime &jetzt)
{
    setRechnungsDatum(jetzt);
    setLieferDatum(jetzt);
    setFaelligkeitsDatum(jetzt.addDays(kZahlungszielTage));
}

FKRAbsender *FKRRechnung::absenderFuerNeuesDokument(const QList<FKRAbsender *> &absender,
                                                    const QList<FKRRechnung *> &dokumente)
{
    if (absender.size() == 1)
        return absender.first();
    FKRAbsender *zuletzt = nullptr;
    std::optional<QDateTime> neuestes;
    for (const FKRRechnung *dokument : dokumente) {
        FKRAbsender *a = dokument->absender();
        if (!a)
            continue;
        // A document without a date counts as the oldest; of two of the same moment the one
        // made later counts (the list is in the order of creation).
        const std::optional<QDateTime> datum = dokument->rechnungsDatum();
        const bool neuer = !zuletzt || (datum ? !neuestes || *datum >= *neuestes : !neuestes);
        if (neuer) {
            neuestes = datum;
            zuletzt = a;
        }
    }
    return zuletzt;
}
