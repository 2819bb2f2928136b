#include "FKRMahnung.h"

#include "DateStyle.h"
#include "FKRDokumentArt.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"

#include <QDateTime>

namespace {

QString text(const char *schluessel, const FKRRechnung &rechnung)
{
    return FKRLocalizationHelper::lokalisierterText(QString::fromLatin1(schluessel), rechnung.sprache());
}

QString datum(const QDateTime &moment, const FKRRechnung &rechnung)
{
    return FKRLocalizationHelper::lokalisiertesDatum(moment, DateStyle::Medium, DateStyle::None, rechnung.sprache());
}

// The source's number as the user completed it: without the type label that a new document's
// number starts with ("Rechnung: 17" gives 17), since the sentence names the kind itself.
QString nummerOhneTypLabel(const FKRRechnung &quelle)
{
    const QString nummer = quelle.rechnungsNummer().value_or(QString()).trimmed();
    const auto art = quelle.dokumentArt();
    const auto schluessel = nummernLabelSchluessel(art ? art->toInt64() : 0);
    const QString label = schluessel ? FKRLocalizationHelper::lokalisierterText(*schluessel, quelle.sprache()) : QString();
    if (label.isEmpty() || !nummer.startsWith(label) || nummer.size() == label.size())
        return nummer;
    return nummer.mid(label.size()).trimmed();
}

} // namespace

bool FKRMahnung::istMoeglich(const FKRRechnung &rechnung)
{
    // isFaellig already asks for a due date and an unpaid mark that is set.
    return (rechnung.isRechnung() || rechnung.isHonorarnote()) && rechnung.versandt() == true
           && rechnung.isFaellig();
}

void FKRMahnung::gestalte(FKRRechnung &mahnung, const FKRRechnung &quelle, const QDateTime &jetzt,
                          int zahlungsfristTage)
{
    mahnung.setzeNummerAlsMahnungZu(quelle);
    mahnung.setRechnungsDatum(jetzt);
    mahnung.setLieferDatum(jetzt);
    mahnung.setFaelligkeitsDatum(jetzt.addDays(zahlungsfristTage));
    // A reminder asks for the full amount: the discount for early payment has lapsed. Zero
    // rather than absent, as the amounts read the rate unconditionally.
    mahnung.setSkonto(Decimal(0));
    mahnung.setSkontoZeitraum(0);

    // Sentence of the reference: the number, and the date when the source has one.
    const QString nummer = nummerOhneTypLabel(quelle);
    const auto quellDatum = quelle.rechnungsDatum();
    const QString bezug =
        quellDatum ? text(QT_TRANSLATE_NOOP("Velmora", "MAHNUNG_NUMMER_VOM"), mahnung).arg(nummer, datum(*quellDatum, mahnung))
                   : nummer;
    const char *satz = quelle.isHonorarnote() ? QT_TRANSLATE_NOOP("Velmora", "MAHNUNG_TEXT_HONORARNOTE")
                                              : QT_TRANSLATE_NOOP("Velmora", "MAHNUNG_TEXT_RECHNUNG");
    const QString faelligAm = datum(quelle.faelligkeitsDatum().value_or(QDateTime()), mahnung);

    mahnung.setRechnungsTextAnrede(text(QT_TRANSLATE_NOOP("Velmora", "MAHNUNG_ANREDE"), mahnung));
    mahnung.setRechnungsText(text(satz, mahnung).arg(bezug, faelligAm));
    mahnung.setRechnungsText2(QString(text(QT_TRANSLATE_NOOP("Velmora", "MAHNUNG_TEXT_SCHLUSS"), mahnung) + u"\n\n"
                                      + text(QT_TRANSLATE_NOOP("Velmora", "MAHNUNG_GRUSSFORMEL"), mahnung)));
}
