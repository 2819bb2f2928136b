#pragma once

#include "Meldungstext.h"

#include <stdexcept>
#include <string>

// Something in the user's input that velmora-cli cannot use. Names the place in the input as a
// path of keys ("posten[0].anzahl"), empty for the input as a whole, so that the one line the
// user sees says where to look.
class EingabeFehler : public std::runtime_error
{
public:
    EingabeFehler(std::string schluessel, const std::string &meldung)
        : std::runtime_error(meldung), m_schluessel(std::move(schluessel))
    {
    }

    const std::string &schluessel() const { return m_schluessel; }

    // "\"posten[0].anzahl\": not a decimal number: \"abc\"", or the bare message without a key;
    // a key of any length or content is shown short and on the one line.
    std::string zeile() const
    {
        if (m_schluessel.empty())
            return what();
        return '"' + Meldungstext::einzeilig(Meldungstext::kuerze(m_schluessel, kSchluesselLaenge)) + "\": " + what();
    }

    static constexpr std::size_t kSchluesselLaenge = 200;

private:
    std::string m_schluessel;
};
