#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// The JSON text a user hands to velmora-cli, read into a value without trusting any of it.
//
// Amounts are exact decimals, so a JSON number that is not a plain integer never becomes a double
// on the way in: it is kept as the text the user wrote, held as binary data with the subtype
// kZahlText (the text format itself never produces binary values, so nothing else can look like
// one). Integers that fit 64 bits stay integers. A number too large for the parser at all
// ("1e999", an integer of 400 digits) is refused with the key under which it stands.
//
// Nesting deeper than kTiefste is refused while reading, before anything deep is built; a
// document of this program never needs more than three levels, and nothing that reads or prints
// a value then has to descend without bound.
class JsonEingabe
{
public:
    static constexpr std::size_t kTiefste = 32;
    static constexpr std::uint64_t kZahlText = 0x4e; // 'N'

    JsonEingabe() = delete;

    // The whole text as one JSON value; an EingabeFehler (naming the key where it can) otherwise.
    static nlohmann::json lies(std::string_view text);

    // The text of a number that is not an integer, as written; nullopt for every other value.
    static std::optional<std::string_view> zahlText(const nlohmann::json &wert);

    // What kind of value this is, for messages: "number" for kept number texts, otherwise the
    // JSON type name.
    static std::string artName(const nlohmann::json &wert);

    // The value as the user wrote it, short and on one line: texts and numbers cut after
    // kHoechstens characters, arrays and objects only by their size. Never walks the value.
    static std::string zeige(const nlohmann::json &wert);

    static constexpr std::size_t kHoechstens = 60;
};
