#include "cli/avanzamento_riga.h"

#include <fmt/core.h>

#include <algorithm>

namespace sortimetra {

namespace {

using namespace std::chrono_literals;

constexpr auto kAttesaTerminale = 400ms;
constexpr auto kPassoTerminale = 100ms;
constexpr auto kPassoAltrove = 5s;
constexpr std::string_view kCancella = "\r\033[K";

}  // namespace

AvanzamentoRiga::AvanzamentoRiga(const Canali& canali, std::string_view cosa)
    : canali_{canali},
      cosa_{cosa},
      prossima_{Orologio::now() + (canali.terminale ? Orologio::duration{kAttesaTerminale}
                                                    : Orologio::duration{kPassoAltrove})} {}

std::ostream& AvanzamentoRiga::disegno() const {
    return canali_.disegno != nullptr ? *canali_.disegno : canali_.errori;
}

bool AvanzamentoRiga::procedi(std::size_t fatto, std::size_t totale) {
    const auto ora = Orologio::now();
    if (ora < prossima_) return true;
    const std::size_t percento = totale == 0 ? 0 : std::min(fatto, totale) * 100 / totale;
    if (canali_.terminale)
        disegno() << kCancella << fmt::format("{}: {}%", cosa_, percento) << std::flush;
    else
        canali_.errori << fmt::format("{}: {}%\n", cosa_, percento) << std::flush;
    mostrata_ = true;
    prossima_ =
        ora + (canali_.terminale ? Orologio::duration{kPassoTerminale} : Orologio::duration{kPassoAltrove});
    return true;
}

void AvanzamentoRiga::finito() {
    if (mostrata_ && canali_.terminale) disegno() << kCancella << std::flush;
}

}  // namespace sortimetra
