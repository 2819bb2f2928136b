#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// What every fuzz target has before its first input (set up by LLVMFuzzerInitialize in
// FuzzUmgebung.cpp): a private XDG home, so that no input reaches the developer's settings or data,
// an offscreen application object, and a scratch folder that an input may fill.
namespace FuzzUmgebung {

QString arbeitsOrdner();
// Empties the scratch folder after an input.
void leere();
// `daten` as a file of the scratch folder named `name`; its path.
QString alsDatei(const std::uint8_t *daten, std::size_t groesse, const QString &name);

inline QByteArray bytes(const std::uint8_t *daten, std::size_t groesse)
{
    return QByteArray(reinterpret_cast<const char *>(daten), qsizetype(groesse));
}

} // namespace FuzzUmgebung

// A property every input must keep; a broken one is a finding, named by its line.
#define erwarte(bedingung)                                                                          \
    do {                                                                                           \
        if (!(bedingung)) {                                                                        \
            std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #bedingung);                  \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)
