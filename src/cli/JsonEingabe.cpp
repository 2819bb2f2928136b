#include "JsonEingabe.h"

#include "EingabeFehler.h"
#include "Meldungstext.h"

#include <vector>

using nlohmann::json;

namespace {

constexpr std::size_t kSchluesselLaenge = 80;

// Builds the value from the parser's events. The parser itself keeps no recursion; this builder
// keeps a stack of the open arrays and objects and the key path to the current place, so that a
// refusal can name it.
class Aufbau
{
public:
    explicit Aufbau(json &wurzel) : m_wurzel(wurzel) {}

    bool null() { return setze(json()); }
    bool boolean(bool wert) { return setze(json(wert)); }
    bool number_integer(json::number_integer_t wert) { return setze(json(wert)); }
    bool number_unsigned(json::number_unsigned_t wert) { return setze(json(wert)); }
    bool number_float(json::number_float_t, const json::string_t &text)
    {
        return setze(json::binary(std::vector<std::uint8_t>(text.begin(), text.end()), JsonEingabe::kZahlText));
    }
    bool string(json::string_t &wert) { return setze(json(std::move(wert))); }
    bool binary(json::binary_t &wert) { return setze(json::binary(std::move(wert))); }

    bool start_object(std::size_t) { return oeffne(json::object()); }
    bool key(json::string_t &schluessel)
    {
        m_schluessel = std::move(schluessel);
        return true;
    }
    bool end_object() { return schliesse(); }
    bool start_array(std::size_t) { return oeffne(json::array()); }
    bool end_array() { return schliesse(); }

    bool parse_error(std::size_t position, const std::string &, const nlohmann::detail::exception &fehler)
    {
        if (fehler.id == 406) // a number beyond what the parser can hold at all
            throw EingabeFehler(pfad(), "number out of range");
        // nlohmann's text starts with "[json.exception.parse_error.101] " and ends with the
        // token read last, which may be the whole rest of the input.
        std::string meldung = fehler.what();
        if (const auto ende = meldung.find("] "); ende != std::string::npos)
            meldung.erase(0, ende + 2);
        throw EingabeFehler({}, "input is not JSON (at byte " + std::to_string(position)
                                    + "): " + Meldungstext::kuerze(meldung, 160));
    }

private:
    struct Ebene {
        json *wert;
        std::string name; // "posten[2]" or "absender": the path down to this value
    };

    json *einfuegen(json &&wert)
    {
        if (m_offen.empty()) {
            m_wurzel = std::move(wert);
            return &m_wurzel;
        }
        json &behaelter = *m_offen.back().wert;
        if (behaelter.is_array()) {
            behaelter.push_back(std::move(wert));
            return &behaelter.back();
        }
        json &ziel = behaelter[m_schluessel];
        ziel = std::move(wert);
        return &ziel;
    }

    bool setze(json &&wert)
    {
        einfuegen(std::move(wert));
        return true;
    }

    bool oeffne(json &&wert)
    {
        const std::string name = pfad();
        if (m_offen.size() >= JsonEingabe::kTiefste)
            throw EingabeFehler(name, "nested deeper than " + std::to_string(JsonEingabe::kTiefste) + " levels");
        json *neu = einfuegen(std::move(wert));
        m_offen.push_back({neu, name});
        return true;
    }

    bool schliesse()
    {
        m_offen.pop_back();
        return true;
    }

    // The path of the value being read now: the open containers' path plus the current key or
    // index. Keys are cut short here already, so that a path stays small however long they are.
    std::string pfad() const
    {
        if (m_offen.empty())
            return {};
        const Ebene &oben = m_offen.back();
        if (oben.wert->is_array())
            return oben.name + '[' + std::to_string(oben.wert->size()) + ']';
        const std::string schluessel = Meldungstext::kuerze(m_schluessel, kSchluesselLaenge);
        return oben.name.empty() ? schluessel : oben.name + '.' + schluessel;
    }

    json &m_wurzel;
    std::vector<Ebene> m_offen;
    std::string m_schluessel;
};

} // namespace

json JsonEingabe::lies(std::string_view text)
{
    json wurzel;
    Aufbau aufbau(wurzel);
    json::sax_parse(text.begin(), text.end(), &aufbau);
    return wurzel;
}

std::optional<std::string_view> JsonEingabe::zahlText(const json &wert)
{
    if (!wert.is_binary())
        return std::nullopt;
    const json::binary_t &daten = wert.get_binary();
    if (!daten.has_subtype() || daten.subtype() != kZahlText)
        return std::nullopt;
    return std::string_view(reinterpret_cast<const char *>(daten.data()), daten.size());
}

std::string JsonEingabe::artName(const json &wert)
{
    return zahlText(wert) ? "number" : wert.type_name();
}

std::string JsonEingabe::zeige(const json &wert)
{
    if (const auto zahl = zahlText(wert))
        return Meldungstext::kuerze(*zahl, kHoechstens);
    switch (wert.type()) {
    case json::value_t::array:
        return "[...] (" + std::to_string(wert.size()) + (wert.size() == 1 ? " value)" : " values)");
    case json::value_t::object:
        return "{...} (" + std::to_string(wert.size()) + (wert.size() == 1 ? " member)" : " members)");
    case json::value_t::string: {
        const std::string kurz = Meldungstext::kuerze(wert.get_ref<const std::string &>(), kHoechstens);
        return json(kurz).dump(-1, ' ', false, json::error_handler_t::replace);
    }
    case json::value_t::binary:
        return "binary data";
    default: // null, booleans, integers: short by nature
        return wert.dump();
    }
}
