#pragma once

#include "results/risultato.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace sortimetra {

/// Measures every terno by the ambi in it, while ambi come out.
///
/// A terno's last hit is the latest of its three ambi's, and its longest gap a maximum over its hits. So no
/// cell per terno is touched while draws are walked: each ambo keeps a strip of 90 cells, the longest gap
/// that one of its own hits has closed for each third number, and the three strips of a terno meet at the
/// end. A hit is then a few vector operations over 90 neighbours instead of 88 scattered updates; most hits
/// end even before that, since an ambo that was out a short while ago cannot close a longer gap than the
/// least of its strip.
class TerniPerAmbi {
  public:
    /// `t` is T of the view that will be walked.
    explicit TerniPerAmbi(Estrazioni t);
    TerniPerAmbi(TerniPerAmbi&&) noexcept;
    TerniPerAmbi& operator=(TerniPerAmbi&&) noexcept;
    ~TerniPerAmbi();

    /// The ambo a < b comes out at the c-th draw.
    void esce(std::size_t a, std::size_t b, std::int32_t c);

    /// The table of all terni in ascending order, with `nomi` as its first column.
    [[nodiscard]] Risultato risultato(Colonna nomi) &&;

  private:
    struct Stato;
    std::unique_ptr<Stato> stato_;
};

}  // namespace sortimetra
