#pragma once

#include <QFont>

// The typeface of every document. The documents were designed for "Trebuchet MS", which is not
// free to ship; Noto Sans, a humanist sans of the same kind under the SIL Open Font License,
// travels inside the program in its regular and bold faces and stands in for it. Because the
// program brings its own files, every machine lays out the same glyphs, and each PDF embeds
// the subset of glyphs it uses. The bundled files carry no hinting instructions: PDF viewers
// rasterise the outlines themselves, and running the instructions made embedding the subset
// a noticeable part of the time a document takes.
//
// Lines are set to the designed typeface's vertical metrics rather than the substitute's (which
// has taller ascenders and descenders), so a document keeps the line pitch, and therefore the
// page breaks, it was designed with.
class FKRPDFSchriften
{
public:
    static constexpr const char *kEntwurfsFamilie = "Trebuchet MS";
    static constexpr const char *kFamilie = "Noto Sans";

    // Height of one line and distance from its top to the baseline, in multiples of the font
    // size: the ascent and descent of the designed typeface (1923 and 455 of 2048 units).
    static constexpr double kZeilenhoehe = (1923.0 + 455.0) / 2048.0;
    static constexpr double kOberlaenge = 1923.0 / 2048.0;

    // Registers the bundled faces with the application's font database, once per process.
    // Needs a running QGuiApplication. Throws std::runtime_error when a face cannot be loaded,
    // because a document must not silently come out in some other font.
    static void registriere();

    // The document font at `punkte` points, regular or bold; registers the faces on first use.
    // Hinting is off so that glyph advances scale exactly with the size; glyphs are set one per
    // character, without ligatures, so the text reads back exactly as it was written.
    static QFont schrift(double punkte, bool fett = false);
};
