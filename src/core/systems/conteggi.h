#pragma once

#include "draws/gioco.h"
#include "results/risultato_fwd.h"
#include "systems/misure_combinazione.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sortimetra {

/// Some combinations of one length, one after the other, and the draw (from 1) that each comes from.
struct BloccoCombinazioni {
    std::span<const Valore> numeri;
    std::span<const std::int32_t> estrazioni;  ///< empty for those of a saved system
};

/// What a count needs to know beside the combinations.
struct BaseConteggio {
    std::size_t k = 2;
    Specchi specchi = kSpecchiLotto;
    bool sistema = false;     ///< a saved system: long counters, percentages in place of delays
    bool sedici_bit = false;  ///< counters of distances stop at 32767
    bool jolly = false;       ///< the table of positions has the block "Jolly", which nothing fills
    /// Whose numbers the rows of the 90 numbers are, where each measures one event of it.
    std::optional<Gioco> gioco = std::nullopt;
    std::int32_t concorsi = 0;  ///< C, the draws in scope
    std::int64_t intero = 0;    ///< what 100 % is; 0 leaves the percentages empty
};

/// One statistic on its way: it is shown combinations and in the end makes its grids.
class ContoMisure {
  public:
    ContoMisure() = default;
    ContoMisure(const ContoMisure&) = delete;
    ContoMisure& operator=(const ContoMisure&) = delete;
    virtual ~ContoMisure() = default;

    virtual void conta(const BloccoCombinazioni& blocco) = 0;
    /// All grids of the statistic in their order, those that the game does not fill without rows.
    [[nodiscard]] virtual std::vector<Tabella> tabelle() const = 0;
};

/// The count of a statistic for combinations of `base.k` numbers: 2 to 6, 10, and 20 for the positions and
/// the distances of a saved system.
[[nodiscard]] std::unique_ptr<ContoMisure> crea_conteggio(Statistica statistica, const BaseConteggio& base);

/// The title above each grid of a statistic, for combinations of k numbers.
[[nodiscard]] std::vector<std::string> titoli_griglie(Statistica statistica, std::size_t k);

/// Whether combinations of k numbers fill a grid of a statistic, by its place among them.
[[nodiscard]] bool riempie(Statistica statistica, std::size_t griglia, std::size_t k);

/// The measures of a statistic that counts values: its grids without those that show something else.
[[nodiscard]] std::span<const GrigliaMisura> griglie_misura(Statistica statistica);

/// Gathers combinations and shows them to a count some thousands at a time.
class RaccoltaCombinazioni {
  public:
    RaccoltaCombinazioni(ContoMisure& conteggio, std::size_t k)
        : conteggio_{conteggio}, k_{k}, numeri_(kQuante * k), estrazioni_(kQuante) {}
    RaccoltaCombinazioni(const RaccoltaCombinazioni&) = delete;
    RaccoltaCombinazioni& operator=(const RaccoltaCombinazioni&) = delete;
    ~RaccoltaCombinazioni() = default;

    /// Where the combinations of the next row go: room for `kPerRiga` of them.
    [[nodiscard]] Valore* posto() {
        if (quante_ + kPerRiga > kQuante) svuota();
        return numeri_.data() + quante_ * k_;
    }
    /// So many combinations of a draw have been put there.
    void prese(std::size_t quante, std::int32_t estrazione) {
        for (std::size_t i = 0; i < quante; ++i) estrazioni_[quante_++] = estrazione;
    }
    /// To be called once after the last row.
    void svuota() {
        conteggio_.conta({.numeri = std::span{numeri_}.first(quante_ * k_),
                          .estrazioni = std::span{estrazioni_}.first(quante_)});
        quante_ = 0;
    }

  private:
    static constexpr std::size_t kQuante = 1024;
    static constexpr std::size_t kPerRiga = 10;
    ContoMisure& conteggio_;
    std::size_t k_;
    std::size_t quante_ = 0;
    std::vector<Valore> numeri_;
    std::vector<std::int32_t> estrazioni_;
};

}  // namespace sortimetra
