#include "Meldungstext.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace {

// Length of the UTF-8 sequence that starts at `i`, or 0 when the bytes there are not one.
std::size_t zeichenLaenge(std::string_view text, std::size_t i)
{
    const auto b = static_cast<unsigned char>(text[i]);
    std::size_t laenge = 0;
    if (b < 0x80)
        return 1;
    if (b >= 0xc2 && b <= 0xdf)
        laenge = 2;
    else if (b >= 0xe0 && b <= 0xef)
        laenge = 3;
    else if (b >= 0xf0 && b <= 0xf4)
        laenge = 4;
    else
        return 0;
    if (i + laenge > text.size())
        return 0;
    for (std::size_t k = 1; k < laenge; ++k) {
        if ((static_cast<unsigned char>(text[i + k]) & 0xc0) != 0x80)
            return 0;
    }
    return laenge;
}

std::uint32_t codepunkt(std::string_view zeichen)
{
    const auto b = [&](std::size_t k) { return std::uint32_t(static_cast<unsigned char>(zeichen[k])); };
    switch (zeichen.size()) {
    case 1:
        return b(0);
    case 2:
        return ((b(0) & 0x1f) << 6) | (b(1) & 0x3f);
    case 3:
        return ((b(0) & 0x0f) << 12) | ((b(1) & 0x3f) << 6) | (b(2) & 0x3f);
    default:
        return ((b(0) & 0x07) << 18) | ((b(1) & 0x3f) << 12) | ((b(2) & 0x3f) << 6) | (b(3) & 0x3f);
    }
}

std::string escape(const char *format, unsigned wert)
{
    char puffer[16];
    std::snprintf(puffer, sizeof puffer, format, wert);
    return puffer;
}

} // namespace

std::string Meldungstext::kuerze(std::string_view text, std::size_t hoechstens)
{
    if (text.size() <= hoechstens)
        return std::string(text);
    std::size_t ende = 0;
    while (ende < hoechstens) {
        const std::size_t laenge = std::max<std::size_t>(1, zeichenLaenge(text, ende));
        if (ende + laenge > hoechstens)
            break;
        ende += laenge;
    }
    return std::string(text.substr(0, ende)) + "...";
}

std::string Meldungstext::einzeilig(std::string_view text)
{
    std::string zeile;
    zeile.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t laenge = zeichenLaenge(text, i);
        if (laenge == 0) { // a byte that is no character: shown, not passed to the terminal
            zeile += escape("\\x%02x", static_cast<unsigned char>(text[i]));
            ++i;
            continue;
        }
        const std::string_view zeichen = text.substr(i, laenge);
        const std::uint32_t c = codepunkt(zeichen);
        if (c == '\n')
            zeile += "\\n";
        else if (c == '\r')
            zeile += "\\r";
        else if (c == '\t')
            zeile += "\\t";
        else if (c < 0x20 || (c >= 0x7f && c <= 0x9f) || c == 0x2028 || c == 0x2029)
            zeile += escape("\\u%04x", c);
        else
            zeile += zeichen;
        i += laenge;
    }
    return zeile;
}
