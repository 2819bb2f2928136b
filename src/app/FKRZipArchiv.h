#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

// How much an archive may unpack to. A store is mostly frozen PDFs, which hardly compress
// any further, and SQLite pages of text, which shrink a few times: a real backup unpacks to
// a few times its own size at most. Deflate can make a thousand bytes of one, so an archive of
// a megabyte could fill a gigabyte of the user's disk; beyond a floor that any small store
// stays under, the unpacked size is bounded by the archive's own size.
struct FKRZipGrenzen {
    qint64 hoechstens = qint64(8) << 30;      // all entries together, in any case
    qint64 ohneVerhaeltnis = qint64(64) << 20; // up to this much the ratio does not matter
    qint64 verhaeltnis = 100;                  // beyond, at most this many times the archive
    qint64 freiLassen = qint64(64) << 20;      // room left on the target's disk afterwards
};

// Zip archives of the store files ("fks" archives), over minizip.
class FKRZipArchiv
{
public:
    struct Eintrag {
        QString quellPfad; // the file to read
        QString name;      // its name at the archive's top level
        // When set, the bytes come from here instead of opening `quellPfad` (which still gives
        // the entry its time and mode): fills at most `groesse` bytes, returns how many, 0 at
        // the end and -1 on a read error.
        std::function<qint64(char *puffer, qint64 groesse)> leser = {};
    };

    // The stores are mostly frozen PDFs, whose streams are compressed already. On such a store
    // of 214 MB the fastest level gives 183 MB and the default level 182 MB in about the same
    // time; on the text of the store the fastest level is the quicker one by far.
    static constexpr int kKompressionsStufe = 1;

    using Grenzen = FKRZipGrenzen;

    enum class Ergebnis {
        Erfolg,
        Abgelehnt,   // the archive is not one to extract: unreadable, damaged, empty, with an
                     // entry that is not one of the allowed names at the top level (absolute
                     // paths, "..", folders, links), or unpacking beyond its bounds; nothing
                     // was written
        SchreibFehler // the archive was sound but the files could not be written (or would not
                      // fit on the disk); the files that were there before are unchanged
    };

    FKRZipArchiv() = delete;

    // Creates or replaces the archive at `archivPfad`. A listed file that cannot be opened is
    // skipped. Returns false (with `fehler`) only when the archive cannot be created or
    // completed; then no archive is left at the path (an earlier one stays as it was).
    static bool erstelle(const QString &archivPfad, const QList<Eintrag> &eintraege, QString *fehler = nullptr,
                         int stufe = kKompressionsStufe);

    // Checks the whole archive first (names, kinds, sizes within `grenzen`, every entry read back
    // with its checksum) and only then replaces the files of `zielOrdner` named like its
    // entries, each atomically. Only names in `erlaubteNamen` are accepted, and the first of them
    // (the store itself) must be there; nothing outside `zielOrdner` is ever written. Any bytes
    // at all may be handed in as the archive.
    static Ergebnis entpackeSicher(const QString &archivPfad, const QString &zielOrdner,
                                   const QStringList &erlaubteNamen, QString *fehler = nullptr,
                                   const Grenzen &grenzen = {});

private:
    // Forces the file's (or folder's) data to the disk; false when that fails.
    static bool aufPlatte(const QString &pfad);
};
