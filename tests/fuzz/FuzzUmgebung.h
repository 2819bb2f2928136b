#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

// What every fuzz target needs before its first input: a private XDG home (no input may reach the
// developer's settings or data), an offscreen application object, and a scratch folder that
// each input may fill and that is emptied after it.
class FuzzUmgebung
{
public:
    // Once, from LLVMFuzzerInitialize.
    static void richteEin(int *argc, char ***argv);

    // The scratch folder, emptied by leere().
    static QString arbeitsOrdner();
    // Removes everything an input left in the scratch folder.
    static void leere();
    // `daten` as a file of the scratch folder named `name`; its path.
    static QString alsDatei(const std::uint8_t *daten, std::size_t groesse, const QString &name);

    static QByteArray bytes(const std::uint8_t *daten, std::size_t groesse)
    {
        return QByteArray(reinterpret_cast<const char *>(daten), qsizetype(groesse));
    }
};
