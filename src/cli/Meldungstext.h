#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Pieces of user input that end up in a message: every message of velmora-cli is one line of
// readable length, whatever the input holds (line breaks in a key, a file name of control
// characters, a key of a megabyte).
class Meldungstext
{
public:
    Meldungstext() = delete;

    // At most `hoechstens` bytes of `text`, cut at a character boundary, "..." added when cut.
    static std::string kuerze(std::string_view text, std::size_t hoechstens);

    // `text` with every control character written as an escape ("\n", "\t", "\u001b"), so that
    // the result is one line.
    static std::string einzeilig(std::string_view text);
};
