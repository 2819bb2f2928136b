#include "RenderCommand.h"

#include "AmountsCommand.h"
#include "EingabeFehler.h"
#include "FKRDokumentZuGross.h"
#include "FKRFehlenderWert.h"
#include "FKRPDFLayout.h"
#include "FKRRechnung.h"
#include "GespeichertesDokument.h"
#include "JsonBeteiligteLeser.h"
#include "JsonDokumentLeser.h"
#include "LaufEinstellungen.h"
#include "ManagedObjectContext.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <istream>
#include <iterator>
#include <optional>

namespace {

const std::string kSieheHilfe = "; see \"velmora-cli help render\"";

// The command line, checked for its shape; the values are checked when they are used.
struct Aufruf
{
    bool letter = false;
    std::optional<QString> locale;
    std::optional<QString> store;
    std::optional<QString> id;
    QString eingabe;
    QString ausgabe;
};

Aufruf leseAufruf(const QStringList &arguments)
{
    Aufruf aufruf;
    QStringList dateien;
    bool nurDateien = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
        if (nurDateien || argument == u"-" || !argument.startsWith(u'-')) {
            dateien << argument;
            continue;
        }
        if (argument == u"--") {
            nurDateien = true;
            continue;
        }
        if (argument == u"--letter") {
            aufruf.letter = true;
            continue;
        }
        // --name VALUE or --name=VALUE
        const QString name = argument.section(u'=', 0, 0);
        std::optional<QString> *ziel = name == u"--locale" ? &aufruf.locale
                                       : name == u"--store" ? &aufruf.store
                                       : name == u"--id"    ? &aufruf.id
                                                            : nullptr;
        if (!ziel)
            throw EingabeFehler({}, "unknown option \"" + argument.toStdString() + '"' + kSieheHilfe);
        if (argument.contains(u'='))
            *ziel = argument.section(u'=', 1);
        else if (i + 1 < arguments.size())
            *ziel = arguments[++i];
        else
            throw EingabeFehler({}, name.toStdString() + " needs a value" + kSieheHilfe);
    }
    if (aufruf.store.has_value() != aufruf.id.has_value())
        throw EingabeFehler({}, "--store and --id go together" + kSieheHilfe);
    const qsizetype erwartet = aufruf.store ? 1 : 2;
    if (dateien.size() != erwartet)
        throw EingabeFehler({}, std::string(aufruf.store ? "render --store STORE --id UUID takes OUTPUT.pdf"
                                                         : "render takes INPUT and OUTPUT.pdf")
                                    + kSieheHilfe);
    if (!aufruf.store)
        aufruf.eingabe = dateien.takeFirst();
    aufruf.ausgabe = dateien.takeFirst();
    if (aufruf.ausgabe == u"-" || aufruf.ausgabe.isEmpty())
        throw EingabeFehler({}, "OUTPUT.pdf must name a file" + kSieheHilfe);
    return aufruf;
}

std::string liesEingabe(const QString &quelle, std::istream &in)
{
    if (quelle == u"-")
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    QFile datei(quelle);
    if (QFileInfo(quelle).isDir() || !datei.open(QIODevice::ReadOnly))
        throw EingabeFehler(quelle.toStdString(), "cannot read: " + (QFileInfo(quelle).isDir()
                                                                       ? std::string("it is a folder")
                                                                       : datei.errorString().toStdString()));
    return datei.readAll().toStdString();
}

// The rendering stopped at an amount that cannot be computed. The amounts command computes the
// same figures item by item and knows which item lacked the value; its message is taken when it
// is about the same attribute.
EingabeFehler betragsFehler(const FKRRechnung &rechnung, const QList<FKRPosten *> &posten,
                            const std::optional<std::string> &attribut, EingabeFehler ersatz)
{
    try {
        AmountsCommand::betraege(rechnung, posten);
    } catch (const EingabeFehler &genau) {
        const std::string &ort = genau.schluessel();
        if (!attribut || ort == *attribut
            || (ort.size() > attribut->size() && ort.ends_with('.' + *attribut)))
            return genau;
    }
    return ersatz;
}

} // namespace

std::string_view RenderCommand::summary() const
{
    return "Write the PDF of one document";
}

std::string_view RenderCommand::description() const
{
    return R"(  velmora-cli render [--letter] [--locale LOCALE] INPUT OUTPUT.pdf
  velmora-cli render [--letter] [--locale LOCALE] --store STORE --id UUID OUTPUT.pdf

Writes the PDF of one document to OUTPUT.pdf, laid out as the desktop program prints it: the
page layout named by the document's "layout", texts and dates in its language ("sprache").

INPUT is a JSON file (or "-" for standard input) in the format of "velmora-cli amounts", with
every other stored attribute of a document as well: "dokumentArt", "layout",
"rechnungsNummer", "rechnungsTextAnrede", "rechnungsText", "rechnungsText2" (plain text),
"rechnungsDatum", "lieferDatum", "faelligkeitsDatum" (ISO 8601 with offset), "versandt",
"bezahlt", ... The members "absender" and "empfaenger" are objects with the stored attributes
of the sender ("firma", "name", "strasse", "plz", "ort", "land", "steuerNummer",
"bankVerbindungIban", "geschaeftspapierDrucken", ...) and of the recipient.

The sender's images are given as files: "logoImageFile", "unterschriftImageFile" and
"geschaeftspapierImageFile" inside "absender" name image files whose bytes are read; a
relative name is taken from the folder of INPUT (from the current folder for standard input).
The stored attributes are accepted too: "logoImageBinary" etc. as base64 text, and
"logoImagePath" etc. as a file URL text ("file:///home/me/logo.png"), used as it is.

--store STORE --id UUID renders the document with that uniqueIdentifier from the store file
STORE. The store is only read, from a private copy; it is not changed in any way.
A document that has been sent is rendered afresh, not taken from its frozen PDF.

Options:
  --letter         Letter paper; without it the paper size of the user's settings.
  --locale LOCALE  The user's locale for this run (de_DE, en_US, ...), which decides how
                   amounts are written; otherwise it comes from the environment (LANG, LC_ALL).

Every document is held to bounds far beyond any real letter or invoice: at most 1,000 pages,
2,000,000 characters of text, and images of at most 32 MB and 32 megapixels each.

Exit status 0 on success; 2 with one line on standard error naming the offending key or
argument when the input cannot be used, including an amount that cannot be computed and a
document beyond the bounds; 1 when the PDF cannot be written. OUTPUT.pdf is replaced only by a complete file: after a failure an
existing file keeps its content and no new file appears.
)";
}

bool RenderCommand::rendere(FKRRechnung &rechnung, const QList<FKRPosten *> &posten, const QString &ausgabe,
                            QString *fehler)
{
    FKRPDFLayout &layout = FKRPDFLayout::fuerRechnung(rechnung);
    try {
        layout.erstellePDFDateiImPfad(ausgabe, rechnung);
    } catch (const FKRFehlenderWert &fehlt) {
        const std::string attribut = fehlt.attribute().toStdString();
        throw betragsFehler(rechnung, posten, attribut, EingabeFehler(attribut, "missing value, but the amounts need it"));
    } catch (const DecimalError &ueberlauf) {
        throw betragsFehler(rechnung, posten, std::nullopt,
                            EingabeFehler({}, std::string(ueberlauf.what()) + " while computing the amounts"));
    } catch (const FKRDokumentZuGross &grenze) {
        throw EingabeFehler({}, std::string("cannot render the document: ") + grenze.what());
    }
    if (!layout.letzteDateiGeschrieben() && fehler)
        *fehler = layout.letzterSchreibFehler();
    return layout.letzteDateiGeschrieben();
}

int RenderCommand::execute(const QStringList &arguments, CommandStreams &io)
{
    if (printHelpIfAsked(arguments, io.out))
        return kExitOk;
    try {
        const Aufruf aufruf = leseAufruf(arguments);
        std::optional<QLocale> locale;
        if (aufruf.locale) {
            locale = LaufEinstellungen::localeAusName(*aufruf.locale);
            if (!locale)
                throw EingabeFehler("--locale", "not a known locale name such as de_DE or en_US: \""
                                                    + aufruf.locale->toStdString() + '"');
        }
        if (const QString eingabe = QFileInfo(aufruf.eingabe).canonicalFilePath();
            aufruf.eingabe != u"-" && !eingabe.isEmpty() && eingabe == QFileInfo(aufruf.ausgabe).canonicalFilePath())
            throw EingabeFehler({}, "OUTPUT.pdf is the INPUT file" + kSieheHilfe);

        // Both ways to a document end in a context that must outlive the rendering.
        std::optional<ManagedObjectContext> context;
        std::optional<GespeichertesDokument> gespeichert;
        FKRRechnung *rechnung = nullptr;
        QList<FKRPosten *> posten;
        if (aufruf.store) {
            gespeichert.emplace(*aufruf.store, *aufruf.id);
            rechnung = &gespeichert->rechnung();
            posten = rechnung->posten();
        } else {
            const nlohmann::json eingabe = JsonDokumentLeser::parse(liesEingabe(aufruf.eingabe, io.in));
            context.emplace();
            JsonDokumentLeser leser(*context);
            rechnung = leser.leseRechnung(eingabe, JsonBeteiligteLeser::schluessel());
            const QDir bildOrdner = aufruf.eingabe == u"-" ? QDir::current() : QFileInfo(aufruf.eingabe).absoluteDir();
            JsonBeteiligteLeser(*context, bildOrdner).leseBeteiligte(eingabe, *rechnung);
            posten = leser.gelesenePosten();
        }

        LaufEinstellungen lauf;
        if (aufruf.letter)
            lauf.setzeLetter();
        if (locale)
            lauf.setzeLocale(*locale);
        QString fehler;
        if (!rendere(*rechnung, posten, aufruf.ausgabe, &fehler)) {
            printError(io.err, "cannot write \"" + aufruf.ausgabe.toStdString() + "\": " + fehler.toStdString());
            return kExitFailure;
        }
    } catch (const EingabeFehler &fehler) {
        printError(io.err, fehler.zeile());
        return kExitUsage;
    } catch (const std::exception &fehler) {
        printError(io.err, std::string("cannot render the document: ") + fehler.what());
        return kExitFailure;
    }
    return kExitOk;
}
