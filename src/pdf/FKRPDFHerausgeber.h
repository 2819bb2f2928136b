#pragma once

// The fixed document information of every PDF the program writes.
namespace FKRPDFHerausgeber {
inline constexpr const char *kTitel = "Velmora Rechnungen";
// Written as the PDF's creator: the publisher's company name.
inline constexpr const char *kFirma = "Velmora Software";
// Written as the PDF's author: the publisher's web address.
inline constexpr const char *kWebAdresse = "https://velmora.example";
// Length of the owner password, taken from the start of a fresh UUID text for every file.
inline constexpr int kEigentuemerPasswortLaenge = 28;
} // namespace FKRPDFHerausgeber
