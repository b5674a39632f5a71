#pragma once

#include "cli/comandi.h"
#include "draws/avanzamento.h"

#include <chrono>
#include <string_view>

namespace sortimetra {

/// Progress as one line on the errors' channel: rewritten in place on a terminal, once something takes longer
/// than a moment; elsewhere a line every few seconds, so that a log shows that a long job lives.
class AvanzamentoRiga final : public Avanzamento {
  public:
    AvanzamentoRiga(const Canali& canali, std::string_view cosa);
    bool procedi(std::size_t fatto, std::size_t totale) override;
    /// Takes the line away from the terminal again.
    void finito();

  private:
    using Orologio = std::chrono::steady_clock;

    [[nodiscard]] std::ostream& disegno() const;

    const Canali& canali_;
    std::string_view cosa_;
    Orologio::time_point prossima_;
    bool mostrata_ = false;
};

}  // namespace sortimetra
