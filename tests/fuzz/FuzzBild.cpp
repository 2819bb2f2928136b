// The bytes of a picture, as a dropped file, a stored logo or a restored backup brings them:
// reading ends with an image within the bounds or with a one-line reason, never with a crash,
// a hang or memory beyond the bounds (the fuzzer's memory limit makes that a finding).
#include "FKRBildLeser.h"
#include "FuzzUmgebung.h"

#include <cmath>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *daten, std::size_t groesse)
{
    const FKRBildLeser::Ergebnis ergebnis = FKRBildLeser::lies(FuzzUmgebung::bytes(daten, groesse));
    if (!ergebnis.gelesen()) {
        erwarte(ergebnis.bild.isNull() && !ergebnis.grund().isEmpty() && !ergebnis.grund().contains(QLatin1Char('\n')));
        return 0;
    }
    const QImage &bild = ergebnis.bild;
    erwarte(!bild.isNull() && qint64(bild.width()) * bild.height() <= FKRBildLeser::kMaxBildpunkte);
    erwarte(std::isfinite(ergebnis.punkte.width()) && std::isfinite(ergebnis.punkte.height())
           && ergebnis.punkte.width() > 0 && ergebnis.punkte.height() > 0);
    return 0;
}
