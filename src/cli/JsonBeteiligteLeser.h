#pragma once

#include <QDir>
#include <QStringList>

#include <nlohmann/json.hpp>

#include <string>

class FKRAbsender;
class FKREmpfaenger;
class FKRRechnung;
class ManagedObjectContext;

// Reads the sender and recipient of a document given as JSON: the members "absender" and
// "empfaenger", objects whose members are named like the stored attributes of FKRAbsender and
// FKREmpfaenger (JsonDokumentLeser reads the values). Left out or null: the document has none.
//
// A sender's images can also be given as files, whose bytes become the image data:
// "logoImageFile", "unterschriftImageFile" and "geschaeftspapierImageFile" fill
// logoImageBinary, unterschriftImageBinary and geschaeftspapierImageBinary. A relative file name
// is taken from the folder handed to the constructor (the folder of the input file), so a
// document and its images can move together. null leaves the image out; a file that cannot be
// read, is no image or is beyond the bounds of FKRBildLeser (32 MB, 32 megapixels) is an
// EingabeFehler naming the member ("absender.logoImageFile"), and so is a file given together
// with the image data it replaces.
class JsonBeteiligteLeser
{
public:
    JsonBeteiligteLeser(ManagedObjectContext &context, const QDir &bildOrdner)
        : m_context(context), m_bildOrdner(bildOrdner)
    {
    }

    // The members read here, for JsonDokumentLeser::leseRechnung to pass over.
    static QStringList schluessel();

    // Reads "absender" and "empfaenger" of `dokument` into new objects of the context and
    // assigns them to `rechnung`.
    void leseBeteiligte(const nlohmann::json &dokument, FKRRechnung &rechnung);

    FKRAbsender *leseAbsender(const nlohmann::json &objekt, const std::string &pfad);
    FKREmpfaenger *leseEmpfaenger(const nlohmann::json &objekt, const std::string &pfad);

private:
    // The bytes of the image file named by `wert`; `pfad` names the member in errors.
    QByteArray leseBildDatei(const nlohmann::json &wert, const std::string &pfad) const;

    ManagedObjectContext &m_context;
    QDir m_bildOrdner;
};
