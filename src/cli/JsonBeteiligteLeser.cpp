#include "JsonBeteiligteLeser.h"

#include "EingabeFehler.h"
#include "FKRAbsender.h"
#include "FKRBildLeser.h"
#include "FKREmpfaenger.h"
#include "FKRRechnung.h"
#include "JsonDokumentLeser.h"
#include "JsonEingabe.h"
#include "ManagedObjectContext.h"

#include <QFile>
#include <QFileInfo>

using nlohmann::json;

namespace {

const QString kAbsender = QStringLiteral("absender");
const QString kEmpfaenger = QStringLiteral("empfaenger");

// Image file member -> the image data it fills.
struct BildSchluessel
{
    const char *datei;
    const char *daten;
};
constexpr BildSchluessel kBilder[] = {
    {"logoImageFile", "logoImageBinary"},
    {"unterschriftImageFile", "unterschriftImageBinary"},
    {"geschaeftspapierImageFile", "geschaeftspapierImageBinary"},
};

} // namespace

QStringList JsonBeteiligteLeser::schluessel()
{
    return {kAbsender, kEmpfaenger};
}

void JsonBeteiligteLeser::leseBeteiligte(const json &dokument, FKRRechnung &rechnung)
{
    if (const auto absender = dokument.find(kAbsender.toStdString());
        absender != dokument.end() && !absender->is_null())
        rechnung.setAbsender(leseAbsender(*absender, kAbsender.toStdString()));
    if (const auto empfaenger = dokument.find(kEmpfaenger.toStdString());
        empfaenger != dokument.end() && !empfaenger->is_null())
        rechnung.setEmpfaenger(leseEmpfaenger(*empfaenger, kEmpfaenger.toStdString()));
}

FKRAbsender *JsonBeteiligteLeser::leseAbsender(const json &objekt, const std::string &pfad)
{
    QStringList dateiSchluessel;
    for (const BildSchluessel &bild : kBilder)
        dateiSchluessel << QString::fromLatin1(bild.datei);
    auto *absender = m_context.insertNewObject<FKRAbsender>();
    JsonDokumentLeser::leseAttribute(objekt, *absender, pfad, dateiSchluessel);

    for (const BildSchluessel &bild : kBilder) {
        const auto datei = objekt.find(bild.datei);
        if (datei == objekt.end())
            continue;
        const std::string ort = JsonDokumentLeser::pfadZu(pfad, bild.datei);
        // Two sources for one image would leave it to chance which one the document shows.
        if (objekt.contains(bild.daten))
            throw EingabeFehler(ort, std::string("give either ") + bild.datei + " or " + bild.daten + ", not both");
        absender->setValue(QString::fromLatin1(bild.daten),
                           datei->is_null() ? QVariant() : QVariant(leseBildDatei(*datei, ort)));
    }
    return absender;
}

FKREmpfaenger *JsonBeteiligteLeser::leseEmpfaenger(const json &objekt, const std::string &pfad)
{
    auto *empfaenger = m_context.insertNewObject<FKREmpfaenger>();
    JsonDokumentLeser::leseAttribute(objekt, *empfaenger, pfad);
    return empfaenger;
}

QByteArray JsonBeteiligteLeser::leseBildDatei(const json &wert, const std::string &pfad) const
{
    if (!wert.is_string() || wert.get_ref<const std::string &>().empty())
        throw EingabeFehler(pfad, "expected the name of an image file, got " + JsonEingabe::artName(wert) + ' '
                                      + JsonEingabe::zeige(wert));
    const QString name = m_bildOrdner.filePath(QString::fromStdString(wert.get<std::string>()));
    const std::string zitat = '"' + name.toStdString() + '"';
    if (QFileInfo(name).isDir())
        throw EingabeFehler(pfad, "cannot read " + zitat + ": it is a folder");
    // A device or a pipe (/dev/zero, /dev/stdin) would be read for ever.
    if (QFileInfo::exists(name) && !QFileInfo(name).isFile())
        throw EingabeFehler(pfad, "cannot read " + zitat + ": it is not a regular file");
    QFile datei(name);
    if (!datei.open(QIODevice::ReadOnly))
        throw EingabeFehler(pfad, "cannot read " + zitat + ": " + datei.errorString().toStdString());
    datei.close();

    // The same reading and the same bounds as the sender's image slots and the documents: a file
    // beyond them is not even read. The document would otherwise go without the image, or fail
    // later; say so while the user is looking at this member.
    QByteArray bytes;
    const FKRBildLeser::Ergebnis bild = FKRBildLeser::liesDatei(name, &bytes);
    if (bild.zuGross())
        throw EingabeFehler(pfad, "cannot use " + zitat + ": " + bild.grund().toStdString());
    if (!bild.gelesen())
        throw EingabeFehler(pfad, "not an image file: " + zitat);
    return bytes;
}
