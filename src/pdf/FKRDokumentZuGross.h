#pragma once

#include <stdexcept>
#include <string>

// A document that cannot be rendered within the bounds every document is held to, thrown while
// it is rendered; the file it was written to is abandoned. The bounds keep a document that would
// run to absurd lengths, or that carries an absurdly large image, from taking the machine's
// memory and minutes of its time, and are far beyond any real letter or invoice:
//   - at most 1,000 pages (an invoice of some 19,000 items of one line each);
//   - at most 2,000,000 characters of text drawn;
//   - images within the bounds of FKRBildLeser (a stored one that exceeds them, from an older
//     version or a restored backup, is not drawn smaller but refused, so it can be replaced).
// what() is one English line for the command line; art() lets the desktop pick its alert.
class FKRDokumentZuGross : public std::runtime_error
{
public:
    static constexpr unsigned kMaxSeiten = 1000;
    static constexpr long long kMaxZeichen = 2'000'000;

    enum class Art { Seiten, Text, Bild };

    FKRDokumentZuGross(Art art, const std::string &meldung)
        : std::runtime_error(meldung), m_art(art)
    {
    }

    Art art() const { return m_art; }

private:
    Art m_art;
};
