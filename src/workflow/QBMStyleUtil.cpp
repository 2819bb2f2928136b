#include "QBMStyleUtil.h"

#include "QBBenutzerEinstellungen.h"

#include <array>
#include <utility>

namespace {

struct CodeFarbe {
    int code;
    QColor farbe;
};

// Built on first use and shared by every window for the life of the process.
const std::array<CodeFarbe, 9> &farbTabelle()
{
    static const std::array<CodeFarbe, 9> tabelle{{
        {2, QColor(80, 80, 80)},     // dark grey
        {3, QColor(165, 165, 165)},  // mid grey
        {4, QColor(225, 225, 225)},  // light grey
        {13, QColor(0, 160, 230)},   // blue
        {23, QColor(255, 190, 0)},   // yellow
        {33, QColor(70, 195, 50)},   // green
        {43, QColor(235, 10, 0)},    // red
        {53, QColor(255, 115, 0)},   // orange
        {63, QColor(170, 10, 150)},  // purple
    }};
    return tabelle;
}

} // namespace

std::optional<QColor> QBMStyleUtil::farbeFuerCode(const Decimal &code)
{
    if (code.isNaN())
        return std::nullopt;
    for (const CodeFarbe &eintrag : farbTabelle()) {
        // Exact value comparison: 43.5 is no code, while 43.0 is the code 43.
        if (code == Decimal(eintrag.code))
            return eintrag.farbe;
    }
    return std::nullopt;
}

QColor QBMStyleUtil::mittelGrau()
{
    return farbTabelle()[1].farbe;
}

QColor QBMStyleUtil::appColor()
{
    const Decimal code = QBBenutzerEinstellungen::sharedInstance()->backgroundColorRechnungen();
    return farbeFuerCode(code).value_or(mittelGrau());
}
