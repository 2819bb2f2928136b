#pragma once

#include "Decimal.h"

#include <QList>
#include <QStringList>

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

class FKRPosten;
class FKRRechnung;
class ManagedObject;
class ManagedObjectContext;

// Reads a document given as JSON into an in-memory context, for the commands of velmora-cli.
//
// Members are named like the stored attributes of the entities (FKRRechnung: "sprache",
// "waehrung", "brutto", "mwStSatz", ...; FKRPosten: "postenNummer", "anzahl", "einzelbetrag",
// ...). Decimals are JSON strings in plain or scientific notation ("10.005", "1e-3"); JSON
// numbers are accepted too and read from the text as written (JsonEingabe), so 0.1 means
// exactly 0.1. Integers are JSON integers, flags JSON booleans, texts JSON strings, dates
// ISO 8601 text with a UTC offset or "Z", binary data base64 text.
//
// A member that is left out keeps the value a new document has in the store; null makes the
// attribute absent. The items are the array "posten": without it (or with null) the document
// has no item relationship at all, which is not the same as an empty array. Every other member
// is an error, so a misspelt key never passes silently for a default.
//
// Every failure is an EingabeFehler naming the member as a key path ("posten[2].anzahl").
class JsonDokumentLeser
{
public:
    explicit JsonDokumentLeser(ManagedObjectContext &context) : m_context(context) {}

    // The whole text as one JSON value; an EingabeFehler without key when it is not JSON.
    static nlohmann::json parse(std::string_view text);

    // A new document in the context, with its items. Members listed in `weitereSchluessel` are
    // left to the caller (a command that reads more than amounts adds its own members so).
    FKRRechnung *leseRechnung(const nlohmann::json &dokument, const QStringList &weitereSchluessel = {});

    // The items of the last document read, in the order of the "posten" array, so that a
    // message about an item can give its index.
    const QList<FKRPosten *> &gelesenePosten() const { return m_posten; }

    // Sets the stored attributes of `ziel` from the members of the JSON object `objekt`, whose
    // place in the input is `pfad` (empty at the top). Members named in `andereSchluessel` are
    // skipped; any other member that is not a stored attribute is an error.
    static void leseAttribute(const nlohmann::json &objekt, ManagedObject &ziel, const std::string &pfad,
                              const QStringList &andereSchluessel = {});

    // A decimal from a JSON string or number; `pfad` names it in the error.
    static Decimal leseDezimal(const nlohmann::json &wert, const std::string &pfad);

    // "posten[2].anzahl" from "posten[2]" and "anzahl"; the key alone at the top.
    static std::string pfadZu(const std::string &pfad, std::string_view schluessel);

private:
    ManagedObjectContext &m_context;
    QList<FKRPosten *> m_posten;
};
