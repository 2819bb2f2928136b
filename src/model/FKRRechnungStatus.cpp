// Types, states, reminder times and number texts of a document.
#include "FKRDokumentArt.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "FKRUhr.h"
#include "QBAdditions.h"

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
