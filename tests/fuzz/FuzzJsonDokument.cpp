// The JSON document of velmora-cli: read, with its sender and recipient, and every amount
// computed. Whatever the bytes, the only failure allowed is an EingabeFehler (the command's exit
// status 2 with one line); any other exception, a crash or a hang is a fault.
#include "AmountsCommand.h"
#include "Command.h"
#include "EingabeFehler.h"
#include "FKRRechnung.h"
#include "FuzzUmgebung.h"
#include "JsonBeteiligteLeser.h"
#include "JsonDokumentLeser.h"
#include "ManagedObjectContext.h"

#include <QDir>

#include <cstdlib>
#include <sstream>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *daten, std::size_t groesse)
{
    try {
        const nlohmann::json eingabe = JsonDokumentLeser::parse(std::string_view(reinterpret_cast<const char *>(daten), groesse));
        ManagedObjectContext context;
        JsonDokumentLeser leser(context);
        FKRRechnung *rechnung = leser.leseRechnung(eingabe, JsonBeteiligteLeser::schluessel());
        JsonBeteiligteLeser(context, QDir(FuzzUmgebung::arbeitsOrdner())).leseBeteiligte(eingabe, *rechnung);
        const std::string zeilen = AmountsCommand::betraege(*rechnung, leser.gelesenePosten()).dump(2);
        if (zeilen.empty())
            std::abort();
    } catch (const EingabeFehler &fehler) {
        // What the user sees is one line of bounded length, whatever the input.
        std::ostringstream meldung;
        printError(meldung, fehler.zeile());
        const std::string zeile = meldung.str();
        if (zeile.find('\n') != zeile.size() - 1 || zeile.size() > kLaengsteMeldung + 40)
            std::abort();
    }
    return 0;
}
