#include "FKRPDFAbsenderZeilen.h"

#include "FKRAbsender.h"
#include "FKRLocalizationHelper.h"
#include "FKRPDFWriter.h"

namespace {

void fuegeAn(QStringList &zeilen, const std::optional<QString> &feld)
{
    if (feld)
        zeilen.append(*feld);
}

// "Label: value", only when the value is set.
void fuegeMitLabelAn(QStringList &zeilen, const QString &label, const std::optional<QString> &feld)
{
    if (feld)
        zeilen.append(label + QStringLiteral(": ") + *feld);
}

} // namespace

QStringList FKRPDFAbsenderZeilen::adresse(const FKRAbsender &absender)
{
    QStringList zeilen;
    fuegeAn(zeilen, absender.firma());
    fuegeAn(zeilen, absender.name());
    fuegeAn(zeilen, absender.strasse());
    const auto plz = absender.plz();
    const auto ort = absender.ort();
    if (plz || ort)
        zeilen.append((plz ? *plz + QLatin1Char(' ') : QString()) + ort.value_or(QString()));
    fuegeAn(zeilen, absender.land());
    return zeilen;
}

QStringList FKRPDFAbsenderZeilen::kontakt(const FKRAbsender &absender)
{
    QStringList zeilen;
    fuegeAn(zeilen, absender.emailAdresse());
    fuegeAn(zeilen, absender.telefonNummer());
    fuegeAn(zeilen, absender.faxNummer());
    return zeilen;
}

QStringList FKRPDFAbsenderZeilen::steuer(const FKRAbsender &absender, std::optional<int> sprache)
{
    QStringList zeilen;
    fuegeMitLabelAn(zeilen, FKRLocalizationHelper::lokalisierterText(QStringLiteral("Ums.St.-ID"), sprache),
                    absender.umsatzsteuerId());
    fuegeMitLabelAn(zeilen, FKRLocalizationHelper::lokalisierterText(QStringLiteral("Steuernr"), sprache),
                    absender.steuerNummer());
    return zeilen;
}

QStringList FKRPDFAbsenderZeilen::bank(const FKRAbsender &absender, std::optional<int> sprache)
{
    const auto institut = absender.bankVerbindungInstitut();
    const auto iban = absender.bankVerbindungIban();
    const auto bic = absender.bankVerbindungBic();
    QStringList zeilen;
    if (institut || iban || bic)
        zeilen.append(FKRLocalizationHelper::lokalisierterText(QStringLiteral("Bankverbindung"), sprache));
    fuegeMitLabelAn(zeilen, FKRLocalizationHelper::lokalisierterText(QStringLiteral("Institut"), sprache), institut);
    fuegeMitLabelAn(zeilen, FKRLocalizationHelper::lokalisierterText(QStringLiteral("IBAN"), sprache), iban);
    fuegeMitLabelAn(zeilen, FKRLocalizationHelper::lokalisierterText(QStringLiteral("BIC"), sprache), bic);
    return zeilen;
}

double FKRPDFAbsenderZeilen::schreibe(FKRPDFWriter &writer, const QStringList &zeilen, const QFont &font, double x,
                                      double weite, double y)
{
    // One call per line, so that every line starts at the left edge of its block and a line too
    // long for the block wraps inside it. The lines follow at the text engine's own spacing; the
    // pull-up by a millimetre per line that older desktops needed does not apply here.
    for (const QString &zeile : zeilen)
        y = writer.schreibeText(zeile, FKRPDFWriter::Links, font, x, y, weite, writer.pageSize().height() - y, true);
    return y;
}
