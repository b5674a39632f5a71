#include "screens/calore.h"

#include "screens/tema.h"

#include <algorithm>
#include <cmath>

namespace sortimetra {

QRgb calore(double parte) {
    // The last step at which text is read is found once for a skin; the steps below it share it out.
    constexpr int kGradini = 64;
    constexpr double kLeggibile = 4.5;
    const Skin& s = skin_in_uso();
    const auto fondo = [&s](int gradino) {
        const auto m = [gradino](int a, int b) { return a + (b - a) * gradino / kGradini; };
        return qRgb(m(qRed(s.superficie), qRed(s.accento)), m(qGreen(s.superficie), qGreen(s.accento)),
                    m(qBlue(s.superficie), qBlue(s.accento)));
    };
    int ultimo = 0;
    while (ultimo < kGradini && contrasto(s.testo, fondo(ultimo + 1)) >= kLeggibile) ++ultimo;
    return fondo(static_cast<int>(std::lround(std::clamp(parte, 0.0, 1.0) * ultimo)));
}

}  // namespace sortimetra
