#include "JsonDokumentLeser.h"

#include "EingabeFehler.h"
#include "JsonEingabe.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"

#include <QByteArray>
#include <QDateTime>
#include <QVariant>

#include <cstdint>
#include <limits>

using nlohmann::json;

namespace {

std::string zeige(const json &wert)
{
    return JsonEingabe::zeige(wert);
}

std::string erwartet(const char *was, const json &wert)
{
    return std::string("expected ") + was + ", got " + JsonEingabe::artName(wert) + ' ' + zeige(wert);
}

// Digits, at most one point, an optional exponent: text that Decimal::parse rejects although it
// has this shape is a number beyond the decimal range, not a typing error.
bool hatZahlenForm(std::string_view text)
{
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        ++i;
    bool ziffer = false;
    bool punkt = false;
    for (; i < text.size(); ++i) {
        if (text[i] >= '0' && text[i] <= '9')
            ziffer = true;
        else if (text[i] == '.' && !punkt)
            punkt = true;
        else
            break;
    }
    if (!ziffer)
        return false;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < text.size() && (text[i] == '+' || text[i] == '-'))
            ++i;
        const std::size_t start = i;
        while (i < text.size() && text[i] >= '0' && text[i] <= '9')
            ++i;
        if (i == start)
            return false;
    }
    return i == text.size();
}

Decimal dezimalAusText(std::string_view text, const json &wert, const std::string &pfad)
{
    if (const auto zahl = Decimal::parse(text))
        return *zahl;
    if (hatZahlenForm(text))
        throw EingabeFehler(pfad, "decimal number out of range: " + zeige(wert));
    throw EingabeFehler(pfad, "not a decimal number: " + zeige(wert));
}

qint64 leseGanzzahl(const json &wert, const std::string &pfad)
{
    if (wert.is_number_integer() && !wert.is_number_unsigned())
        return wert.get<std::int64_t>();
    if (wert.is_number_unsigned()) {
        const auto n = wert.get<std::uint64_t>();
        if (n <= std::uint64_t(std::numeric_limits<qint64>::max()))
            return qint64(n);
        throw EingabeFehler(pfad, "integer out of range: " + zeige(wert));
    }
    if (JsonEingabe::zahlText(wert)) {
        // 14.0 is the integer 14; 14.5 is not an integer.
        const Decimal zahl = JsonDokumentLeser::leseDezimal(wert, pfad);
        const qint64 n = zahl.toInt64();
        if (Decimal(std::int64_t(n)) == zahl)
            return n;
    }
    throw EingabeFehler(pfad, erwartet("an integer", wert));
}

QDateTime leseDatum(const json &wert, const std::string &pfad)
{
    if (wert.is_string()) {
        const QDateTime datum = QDateTime::fromString(QString::fromStdString(wert.get<std::string>()), Qt::ISODateWithMs);
        // Without an offset the moment would depend on the zone the program happens to run in.
        if (datum.isValid() && datum.timeSpec() != Qt::LocalTime)
            return datum;
    }
    throw EingabeFehler(pfad, "expected an ISO 8601 date and time with offset such as \"2026-03-01T10:00:00+01:00\", got "
                                  + zeige(wert));
}

QByteArray leseDaten(const json &wert, const std::string &pfad)
{
    if (wert.is_string()) {
        const QByteArray text = QByteArray::fromStdString(wert.get<std::string>());
        auto ergebnis = QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors);
        if (ergebnis)
            return *ergebnis;
    }
    throw EingabeFehler(pfad, erwartet("base64 text", wert));
}

QVariant leseWert(AttributeKind art, const json &wert, const std::string &pfad)
{
    if (wert.is_null())
        return QVariant();
    switch (art) {
    case AttributeKind::Flag:
        if (!wert.is_boolean())
            throw EingabeFehler(pfad, erwartet("true or false", wert));
        return QVariant(wert.get<bool>());
    case AttributeKind::Integer:
        return QVariant(qlonglong(leseGanzzahl(wert, pfad)));
    case AttributeKind::DecimalNum:
        return QVariant::fromValue(JsonDokumentLeser::leseDezimal(wert, pfad));
    case AttributeKind::Text:
        if (!wert.is_string())
            throw EingabeFehler(pfad, erwartet("a text", wert));
        return QVariant(QString::fromStdString(wert.get<std::string>()));
    case AttributeKind::Date:
        return QVariant(leseDatum(wert, pfad));
    case AttributeKind::Binary:
        return QVariant(leseDaten(wert, pfad));
    }
    return QVariant();
}

} // namespace

json JsonDokumentLeser::parse(std::string_view text)
{
    return JsonEingabe::lies(text);
}

std::string JsonDokumentLeser::pfadZu(const std::string &pfad, std::string_view schluessel)
{
    return pfad.empty() ? std::string(schluessel) : pfad + '.' + std::string(schluessel);
}

Decimal JsonDokumentLeser::leseDezimal(const json &wert, const std::string &pfad)
{
    switch (wert.type()) {
    case json::value_t::string:
        return dezimalAusText(wert.get_ref<const std::string &>(), wert, pfad);
    case json::value_t::number_integer:
        return Decimal(wert.get<std::int64_t>());
    case json::value_t::number_unsigned:
        return dezimalAusText(std::to_string(wert.get<std::uint64_t>()), wert, pfad);
    case json::value_t::binary:
        // A number as the user wrote it (10.005 stays 10.005; it never was a double).
        if (const auto text = JsonEingabe::zahlText(wert))
            return dezimalAusText(*text, wert, pfad);
        break;
    default:
        break;
    }
    throw EingabeFehler(pfad, erwartet("a decimal number as text or number", wert));
}

void JsonDokumentLeser::leseAttribute(const json &objekt, ManagedObject &ziel, const std::string &pfad,
                                      const QStringList &andereSchluessel)
{
    if (!objekt.is_object())
        throw EingabeFehler(pfad, erwartet("an object", objekt));
    const EntityDescription &entity = ziel.entity();
    for (const auto &[schluessel, wert] : objekt.items()) {
        const QString name = QString::fromStdString(schluessel);
        if (andereSchluessel.contains(name))
            continue;
        const std::string ort = pfadZu(pfad, schluessel);
        const int slot = entity.attributeSlot(name);
        if (slot < 0)
            throw EingabeFehler(ort, "unknown key for " + entity.name().toStdString());
        if (!ziel.setValue(name, leseWert(entity.attributes()[std::size_t(slot)].kind, wert, ort)))
            throw EingabeFehler(ort, "value not accepted: " + zeige(wert));
    }
}

FKRRechnung *JsonDokumentLeser::leseRechnung(const json &dokument, const QStringList &weitereSchluessel)
{
    if (!dokument.is_object())
        throw EingabeFehler({}, erwartet("a document as a JSON object", dokument));
    m_posten.clear();
    auto *rechnung = m_context.insertNewObject<FKRRechnung>();
    leseAttribute(dokument, *rechnung, {}, QStringList(weitereSchluessel) << QStringLiteral("posten"));

    const auto posten = dokument.find("posten");
    if (posten == dokument.end() || posten->is_null()) {
        rechnung->setRelationshipAbsent(QStringLiteral("posten"));
        return rechnung;
    }
    if (!posten->is_array())
        throw EingabeFehler("posten", erwartet("an array of items", *posten));
    for (std::size_t i = 0; i < posten->size(); ++i) {
        const std::string ort = "posten[" + std::to_string(i) + ']';
        const json &eintrag = (*posten)[i];
        if (!eintrag.is_object())
            throw EingabeFehler(ort, erwartet("an item as a JSON object", eintrag));
        auto *einzelposten = m_context.insertNewObject<FKRPosten>();
        leseAttribute(eintrag, *einzelposten, ort);
        rechnung->addPostenObject(einzelposten);
        m_posten.append(einzelposten);
    }
    return rechnung;
}
