#include "statistics/misura_combinazioni.h"

#include "statistics/misura_serie.h"

#include <algorithm>
#include <bit>

namespace sortimetra {

namespace {

/// Combinations that are counted over all rows at once: their cells, half a megabyte, stay near.
constexpr std::size_t kCelleVicine = 40'000;
/// What a hit costs, in members that `misura_serie` looks at in the same time (512 with a few instructions).
/// Measured; half or twice as much chooses much the same.
constexpr std::size_t kCostoColpo = 48;

}  // namespace

std::optional<Combinazioni> Combinazioni::di(std::span<const Numero> numeri, int k, int soglia) {
    if (k < 1 || static_cast<std::size_t>(k) > kMassimo || soglia < 1 || numeri.size() > kNumeri)
        return std::nullopt;
    Combinazioni c;
    c.k_ = static_cast<std::size_t>(k);
    c.soglia_ = static_cast<std::size_t>(soglia);
    c.n_ = numeri.size();
    for (std::size_t i = 0; i < numeri.size(); ++i) {
        const Numero n = numeri[i];
        if (n < 1 || n > kNumeri || c.posto_[n] != 0) return std::nullopt;
        c.posto_[n] = static_cast<std::uint8_t>(i + 1);
    }
    c.resto_[0].fill(1);
    for (std::size_t r = 1; r <= c.k_; ++r)
        for (std::size_t i = c.n_; i-- > 0;) c.resto_[r][i] = c.resto_[r][i + 1] + c.resto_[r - 1][i + 1];
    return c;
}

/// How many combinations a row hits that holds so many of the numbers.
std::size_t Combinazioni::colpite(std::size_t uscite) const {
    // r of m: r of the last m places of the list.
    const auto modi = [this](std::size_t m, std::size_t r) { return std::size_t{resto_[r][n_ - m]}; };
    std::size_t somma = 0;
    for (std::size_t s = soglia_; s <= k_; ++s) somma += modi(uscite, s) * modi(n_ - uscite, k_ - s);
    return somma;
}

void Combinazioni::riga(std::int32_t c, std::span<const Numero> numeri) {
    std::array<std::uint64_t, 2> insieme{};
    for (const Numero n : numeri)
        if (const unsigned posto = posto_[n]; posto != 0)
            insieme[(posto - 1) / 64] |= std::uint64_t{1} << (posto - 1) % 64;
    const auto quanti = static_cast<std::size_t>(std::popcount(insieme[0]) + std::popcount(insieme[1]));
    if (quanti < soglia_ || soglia_ > k_) return;
    colpi_ += colpite(quanti);
    righe_.push_back({posti_.size(), static_cast<std::uint8_t>(quanti), c});
    for (unsigned parola = 0; parola < 2; ++parola)
        for (std::uint64_t m = insieme[parola]; m != 0; m &= m - 1)
            posti_.push_back(
                static_cast<std::uint8_t>(parola * 64 + static_cast<unsigned>(std::countr_zero(m))));
}

/// One counting: the cells, and how far it has come.
class Combinazioni::Conto {
  public:
    Conto(const Combinazioni& di, std::vector<Misura>& celle, Avanzamento& avanzamento)
        : di_{di}, celle_{celle.data()}, totale_{celle.size()}, avanzamento_{avanzamento} {}

    /// Counts all combinations of a branch, of which `R` numbers are still to be chosen. Returns false if the
    /// user cancelled.
    template <std::size_t R>
    bool rami(const std::vector<Uscita>& uscite, Ramo ramo) {
        const auto& resto = di_.resto_[R];
        if (resto[ramo.da] <= kCelleVicine || R == 1) {
            for (const Uscita& u : uscite) colpisci<R>(u, ramo);
            return avanzamento_.procedi(ramo.fine, totale_);
        }
        if constexpr (R > 1) {
            std::vector<Uscita> dopo;
            for (std::size_t i = ramo.da; i + R <= di_.n_; ++i) {
                dopo.clear();
                for (Uscita u : uscite) {
                    avanza(u, i);
                    const bool uscito = u.quanti > 0 && *u.posti == i;
                    if (uscito) prendi(u);
                    if (u.mancano < R && u.mancano <= u.quanti) dopo.push_back(u);
                }
                if (!rami<R - 1>(dopo, {i + 1, ramo.fine - resto[i + 1]})) return false;
            }
        }
        return true;
    }

  private:
    /// Leaves out the places below `i`, which the combinations have passed over.
    static void avanza(Uscita& u, std::size_t i) {
        while (u.quanti > 0 && *u.posti < i) {
            ++u.posti;
            --u.quanti;
        }
    }
    /// The row's next place is chosen.
    static void prendi(Uscita& u) {
        ++u.posti;
        --u.quanti;
        if (u.mancano > 0) --u.mancano;
    }

    /// Counts one row in the cells of a branch.
    template <std::size_t R>
    void colpisci(Uscita u, Ramo ramo) {
        if (u.mancano == 0) {
            for (Misura* m = celle_ + (ramo.fine - di_.resto_[R][ramo.da]); m != celle_ + ramo.fine; ++m)
                esce(*m, u.c);
            return;
        }
        if constexpr (R == 1) {
            for (std::size_t j = 0; j < u.quanti; ++j) esce(celle_[ramo.fine - (di_.n_ - u.posti[j])], u.c);
        } else if constexpr (R == 2) {
            colpisci_coppie(u, ramo);
        } else {
            // The next number, as long as the row has enough behind it. Where all that is still to be chosen
            // must be of the row, nothing else will do.
            for (std::size_t i = ramo.da; u.mancano <= u.quanti; ++i) {
                if (u.mancano == R) i = *u.posti;
                Uscita con = u;
                if (i == *u.posti) {
                    prendi(con);
                    u.posti = con.posti;
                    u.quanti = con.quanti;
                }
                colpisci<R - 1>(con, {i + 1, ramo.fine - di_.resto_[R][i + 1]});
            }
        }
    }

    /// The same for the last two numbers, of which one or both must be of the row. Nearly all hits are made
    /// here: columns of the triangle of pairs, without a test inside.
    void colpisci_coppie(const Uscita& u, Ramo ramo) {
        const auto& resto = di_.resto_[2];
        // Cell of the pair of the places i and x: `riga(i)[x]`.
        const auto riga = [&](std::size_t i) { return celle_ + (ramo.fine - resto[i]) - (i + 1); };
        std::size_t da = u.mancano == 1 ? ramo.da : u.posti[0];
        for (std::size_t j = 0; j < u.quanti; ++j) {
            const std::size_t x = u.posti[j];
            for (std::size_t k = j; u.mancano == 1 && k < u.quanti; ++k)
                for (std::size_t i = da; i < x; ++i) esce(riga(i)[u.posti[k]], u.c);
            if (u.mancano == 1)
                for (std::size_t y = x + 1; y < di_.n_; ++y) esce(riga(x)[y], u.c);
            else
                for (std::size_t k = j + 1; k < u.quanti; ++k) esce(riga(x)[u.posti[k]], u.c);
            da = x + 1;
        }
    }

    const Combinazioni& di_;
    Misura* celle_;
    std::size_t totale_;
    Avanzamento& avanzamento_;
};

std::vector<Misura> Combinazioni::misura(Avanzamento& avanzamento) const {
    std::vector<Misura> misure(quante(), Misura{.ultimo = kInizioSerie});
    std::vector<Uscita> uscite;
    uscite.reserve(righe_.size());
    for (const Riga& r : righe_)
        uscite.push_back({posti_.data() + r.posti, r.quanti, static_cast<std::uint8_t>(soglia_), r.c});
    Conto conto{*this, misure, avanzamento};
    const Ramo tutto{0, quante()};
    switch (k_) {
        case 1:
            conto.rami<1>(uscite, tutto);
            break;
        case 2:
            conto.rami<2>(uscite, tutto);
            break;
        case 3:
            conto.rami<3>(uscite, tutto);
            break;
        case 4:
            conto.rami<4>(uscite, tutto);
            break;
        default:
            conto.rami<5>(uscite, tutto);
            break;
    }
    return misure;
}

std::vector<Misura> misura_combinazioni(const VistaEstrazioni& vista, std::span<const Numero> numeri,
                                        const SerieCorrente& serie, int soglia, Avanzamento& avanzamento) {
    auto combinazioni = Combinazioni::di(numeri, static_cast<int>(serie.colonne), soglia);
    if (combinazioni) {
        SenzaAvanzamento nessuno;  // the bar moves while they are counted
        percorri(vista, nessuno, [&](int c, const Numero* n) {
            // A row whose first cell is empty counts as a draw and is skipped otherwise.
            if (n[0] != 0) combinazioni->riga(c, {n, static_cast<std::size_t>(kEstratti)});
        });
        if (combinazioni->colpi() <= vista.righe() * combinazioni->quante() / kCostoColpo)
            return combinazioni->misura(avanzamento);
    }
    return misura_serie(vista, serie, soglia, avanzamento);
}

}  // namespace sortimetra
