#pragma once

#include "lunghette/righe_gioco.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace sortimetra {

/// Delay or frequency: the letters "r" and "f" of the searches.
enum class TipoRicerca : std::uint8_t { ritardo, frequenza };

/// How a set of numbers does together with one number more: rows in which at least k of them stand.
///
/// A search adds the members one by one and asks about all candidates in between; what it asks is kept up to
/// date by the rows of the number that comes in, not counted anew.
class Misuratore {
  public:
    Misuratore() = default;
    Misuratore(const Misuratore&) = delete;
    Misuratore& operator=(const Misuratore&) = delete;
    virtual ~Misuratore() = default;

    /// Takes a member in; 0 stands for the empty cells of drawn rows.
    virtual void aggiungi(int numero) = 0;
    /// Rows that hit with this candidate beside the members.
    [[nodiscard]] virtual std::int32_t frequenza(int candidato) const = 0;
    /// The last such row, counted from 1; 0 where there is none.
    [[nodiscard]] virtual std::uint32_t ultima(int candidato) const = 0;
};

/// The rows of each number, ascending, each once.
class IndiceRighe {
  public:
    explicit IndiceRighe(const RigheGioco& righe);

    [[nodiscard]] std::span<const std::uint32_t> di(int numero) const {
        const auto n = static_cast<std::size_t>(numero);
        return std::span{righe_}.subspan(inizio_[n], quante_[n]);
    }
    /// The cells of a row; a number that stands twice in it has `kNessunNumero` the second time.
    [[nodiscard]] const Numero* celle(std::size_t riga) const {
        return (uniche_.empty() ? base_->celle.data() : uniche_.data()) + riga * base_->posti;
    }
    [[nodiscard]] const RigheGioco& righe() const { return *base_; }

  private:
    const RigheGioco* base_;
    std::array<std::size_t, kIndiciCella> inizio_{};
    std::array<std::size_t, kIndiciCella> quante_{};
    std::vector<std::uint32_t> righe_;
    std::vector<Numero> uniche_;  ///< empty where no row holds a number twice
};

/// The last row of every pair of numbers, counted from 1; 0 for a pair that never came. For the delay of the
/// ambo nothing else is needed: a set is hit when one of its pairs is.
class UltimeCoppie {
  public:
    explicit UltimeCoppie(const RigheGioco& righe);
    [[nodiscard]] std::uint32_t ultima(int a, int b) const { return riga(a)[static_cast<std::size_t>(b)]; }
    /// By the other number.
    [[nodiscard]] const std::uint32_t* riga(int numero) const {
        return ultime_.data() + static_cast<std::size_t>(numero) * kIndiciCella;
    }

  private:
    std::vector<std::uint32_t> ultime_;
};

/// A scope laid out for the searches: the rows, and what is worked out of them when first asked for.
class BancoLunghette {
  public:
    explicit BancoLunghette(RigheGioco righe) : righe_{std::move(righe)} {}
    BancoLunghette(const BancoLunghette&) = delete;
    BancoLunghette& operator=(const BancoLunghette&) = delete;
    ~BancoLunghette() = default;

    [[nodiscard]] const RigheGioco& righe() const { return righe_; }
    [[nodiscard]] const IndiceRighe& indice();
    [[nodiscard]] const UltimeCoppie& coppie();
    /// For hits of at least `k` of these members and one candidate.
    [[nodiscard]] std::unique_ptr<Misuratore> misuratore(TipoRicerca tipo, int k,
                                                         std::span<const int> membri);

    /// T minus the draw of a row counted from 1, T without a row.
    [[nodiscard]] std::int32_t ritardo(std::uint32_t ultima) const {
        return ultima == 0 ? righe_.t : righe_.t - righe_.c[ultima - 1];
    }

  private:
    RigheGioco righe_;
    std::optional<IndiceRighe> indice_;
    std::optional<UltimeCoppie> coppie_;
};

}  // namespace sortimetra
