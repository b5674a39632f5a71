#include "statistics/misura_serie.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace sortimetra {

namespace {

constexpr std::size_t kBit = 64;

/// One bit per member, 64 W members at a time.
template <std::size_t W>
using Membri = std::array<std::uint64_t, W>;

/// Which members hold each number: one table for "at least once", a second for "at least twice" where a
/// member repeats a number, and so on. Entry 0 stays empty, so that an empty cell adds nothing.
template <std::size_t W>
using Strato = std::array<Membri<W>, kNumeri + 1>;

template <std::size_t W>
std::vector<Strato<W>> strati(const SerieCorrente& serie, std::size_t primo, std::size_t quanti) {
    std::vector<Strato<W>> tavole(1);
    for (std::size_t i = 0; i < quanti; ++i) {
        const std::uint64_t bit = std::uint64_t{1} << i % kBit;
        for (const Numero n : serie.membro(primo + i)) {
            if (n == 0 || n > kNumeri) continue;
            std::size_t volta = 0;
            while (volta < tavole.size() && (tavole[volta][n][i / kBit] & bit) != 0) ++volta;
            if (volta == tavole.size()) tavole.emplace_back();
            tavole[volta][n][i / kBit] |= bit;
        }
    }
    return tavole;
}

/// The five numbers of a row with each number once: a second copy becomes an empty cell.
std::array<Numero, kEstratti> senza_doppi(const Numero* r) {
    const auto nuovo = [r](int p, auto... prima) {
        return static_cast<Numero>((static_cast<int>(r[p] != r[prima]) & ...) * r[p]);
    };
    return {r[0], nuovo(1, 0), nuovo(2, 0, 1), nuovo(3, 0, 1, 2), nuovo(4, 0, 1, 2, 3)};
}

/// The members that a row hits. `almeno[k]` holds those of which more than k numbers were met so far.
template <int Soglia, std::size_t W>
Membri<W> colpiti(const std::vector<Strato<W>>& tavole, const Numero* riga) {
    if constexpr (Soglia == 0) {
        Membri<W> tutti;
        tutti.fill(~std::uint64_t{0});
        return tutti;
    } else if constexpr (Soglia == 1) {
        Membri<W> m{};
        for (int p = 0; p < kEstratti; ++p)
            for (std::size_t w = 0; w < W; ++w) m[w] |= tavole.front()[riga[p]][w];
        return m;
    } else {
        const auto distinti = senza_doppi(riga);
        std::array<Membri<W>, Soglia> almeno{};
        const auto aggiungi = [&](const Strato<W>& tavola) {
            for (const Numero n : distinti) {
                const Membri<W>& m = tavola[n];
                for (std::size_t k = Soglia - 1; k > 0; --k)
                    for (std::size_t w = 0; w < W; ++w) almeno[k][w] |= almeno[k - 1][w] & m[w];
                for (std::size_t w = 0; w < W; ++w) almeno[0][w] |= m[w];
            }
        };
        aggiungi(tavole.front());
        for (std::size_t s = 1; s < tavole.size(); ++s) aggiungi(tavole[s]);
        return almeno[Soglia - 1];
    }
}

/// How many rows hit each member, counted in binary across the words: bit b of a member's count stands in
/// plane b. Eight rows are folded into the lowest planes with full adders, so that only every eighth row
/// carries on upward.
template <std::size_t W>
class ContatoreRighe {
  public:
    void aggiungi(const Membri<W>& colpiti) {
        attesa_[in_attesa_++] = colpiti;
        if (in_attesa_ == attesa_.size()) piega();
    }

    /// To be called once, after the last row.
    void conta(std::span<Misura> misure) {
        while (in_attesa_ != 0) aggiungi({});
        for (std::size_t i = 0; i < misure.size(); ++i)
            for (std::size_t b = 0; b < piani_.size(); ++b)
                misure[i].frequenza += static_cast<std::int32_t>(piani_[b][i / kBit] >> i % kBit & 1U) << b;
    }

  private:
    /// Full adder: `uno` keeps the sum's ones, the carry is returned.
    static Membri<W> somma(Membri<W>& uno, const Membri<W>& a, const Membri<W>& b) {
        Membri<W> riporto;
        for (std::size_t w = 0; w < W; ++w) {
            const std::uint64_t x = uno[w] ^ a[w];
            riporto[w] = (uno[w] & a[w]) | (x & b[w]);
            uno[w] = x ^ b[w];
        }
        return riporto;
    }

    void piega() {
        in_attesa_ = 0;
        const auto& r = attesa_;
        const Membri<W> due_a = somma(piani_[0], r[0], r[1]);
        const Membri<W> due_b = somma(piani_[0], r[2], r[3]);
        const Membri<W> quattro_a = somma(piani_[1], due_a, due_b);
        const Membri<W> due_c = somma(piani_[0], r[4], r[5]);
        const Membri<W> due_d = somma(piani_[0], r[6], r[7]);
        const Membri<W> quattro_b = somma(piani_[1], due_c, due_d);
        Membri<W> riporto = somma(piani_[2], quattro_a, quattro_b);
        for (std::size_t b = 3; b < piani_.size(); ++b) {
            std::uint64_t resta = 0;
            for (std::size_t w = 0; w < W; ++w) {
                const std::uint64_t sopra = piani_[b][w] & riporto[w];
                piani_[b][w] ^= riporto[w];
                riporto[w] = sopra;
                resta |= sopra;
            }
            if (resta == 0) return;
        }
    }

    std::array<Membri<W>, 8> attesa_{};
    std::size_t in_attesa_ = 0;
    std::array<Membri<W>, 31> piani_{};
};

/// Mirrors a square of 64 by 64 bits on its diagonal, in place.
void trasponi(std::array<std::uint64_t, kBit>& x) {
    std::uint64_t bassi = 0x00000000FFFFFFFFU;
    for (std::size_t j = kBit / 2; j != 0; j /= 2, bassi ^= bassi << j)
        for (std::size_t inizio = 0; inizio < kBit; inizio += 2 * j)
            for (std::size_t k = inizio; k < inizio + j; ++k) {
                const std::uint64_t scambio = ((x[k] >> j) ^ x[k + j]) & bassi;
                x[k] ^= scambio << j;
                x[k + j] ^= scambio;
            }
}

/// Closes a member's delays over 64 draws at once: bit d of `uscite` says that draw `primo` + d hit it.
void chiudi_ritardi(Misura& m, std::uint64_t uscite, std::int32_t primo) {
    if (uscite == 0) return;
    const int prima = std::countr_zero(uscite);
    const int ultima = 63 - std::countl_zero(uscite);
    std::int32_t s = std::max(m.storico, primo + prima - m.ultimo - 1);
    m.ultimo = primo + ultima;
    if (ultima - prima - 1 > s) {
        // A delay longer than s is a run of s + 1 zeros between two hits: and-ing the zeros with themselves
        // shifted leaves a bit where such a run begins.
        std::uint64_t vuoti = ~uscite & (~std::uint64_t{0} << prima) & (~std::uint64_t{0} >> (63 - ultima));
        int lunghi = 1;
        for (; lunghi * 2 <= s + 1; lunghi *= 2) vuoti &= vuoti >> lunghi;
        vuoti &= vuoti >> (s + 1 - lunghi);
        for (; vuoti != 0; vuoti &= vuoti >> 1) ++s;
    }
    m.storico = s;
}

/// Counts up to 64 W members in one walk. Rows are joined to draws by OR, and 64 draws at a time are turned
/// over, so that a member's draws become one word.
template <int Soglia, std::size_t W>
class Contatore {
  public:
    Contatore(const SerieCorrente& serie, std::size_t primo, std::span<Misura> misure)
        : tavole_{strati<W>(serie, primo, misure.size())}, misure_{misure} {}

    void riga(std::int32_t c, const Numero* numeri) {
        if (c != c_) {
            if (c_ != 0) chiudi_concorso();
            c_ = c;
        }
        if (numeri[0] == 0) return;
        const Membri<W> m = colpiti<Soglia>(tavole_, numeri);
        for (std::size_t w = 0; w < W; ++w) concorso_[w] |= m[w];
        righe_.aggiungi(m);
    }

    /// To be called once, after the last row.
    void chiudi() {
        if (c_ == 0) return;
        chiudi_concorso();
        if (posto(c_) != kBit - 1) chiudi_blocco();
        righe_.conta(misure_);
    }

  private:
    static std::size_t posto(std::int32_t c) { return static_cast<std::size_t>(c - 1) % kBit; }

    void chiudi_concorso() {
        for (std::size_t w = 0; w < W; ++w) blocco_[w][posto(c_)] = concorso_[w];
        concorso_ = {};
        if (posto(c_) == kBit - 1) chiudi_blocco();
    }

    void chiudi_blocco() {
        const auto primo = c_ - static_cast<std::int32_t>(posto(c_));
        for (std::size_t inizio = 0; inizio < misure_.size(); inizio += kBit) {
            auto& parola = blocco_[inizio / kBit];
            trasponi(parola);
            const std::size_t quanti = std::min(kBit, misure_.size() - inizio);
            for (std::size_t i = 0; i < quanti; ++i) chiudi_ritardi(misure_[inizio + i], parola[i], primo);
        }
        blocco_ = {};
    }

    std::vector<Strato<W>> tavole_;
    std::span<Misura> misure_;
    std::int32_t c_ = 0;
    Membri<W> concorso_{};
    std::array<std::array<std::uint64_t, kBit>, W> blocco_{};
    ContatoreRighe<W> righe_;
};

/// Where several walks make one search, the bar still runs once.
class Parte final : public Avanzamento {
  public:
    Parte(Avanzamento& tutto, std::size_t parte, std::size_t parti)
        : tutto_{tutto}, parte_{parte}, parti_{parti} {}
    bool procedi(std::size_t fatto, std::size_t totale) override {
        return tutto_.procedi(parte_ * totale + fatto, parti_ * totale);
    }

  private:
    Avanzamento& tutto_;
    std::size_t parte_;
    std::size_t parti_;
};

template <int Soglia, std::size_t W>
bool conta(const VistaEstrazioni& vista, const SerieCorrente& serie, std::span<Misura> misure,
           Avanzamento& avanzamento) {
    constexpr std::size_t kPasso = kBit * W;
    const std::size_t parti = (misure.size() + kPasso - 1) / kPasso;
    for (std::size_t p = 0; p < parti; ++p) {
        const std::size_t primo = p * kPasso;
        const auto conteggio = std::make_unique<Contatore<Soglia, W>>(
            serie, primo, misure.subspan(primo, std::min(kPasso, misure.size() - primo)));
        Parte parte{avanzamento, p, parti};
        const bool prosegui = percorri(vista, parte, [&c = *conteggio](int concorso, const Numero* numeri) {
            c.riga(concorso, numeri);
        });
        conteggio->chiudi();
        if (!prosegui) return false;
    }
    return true;
}

template <int Soglia>
void conta(const VistaEstrazioni& vista, const SerieCorrente& serie, std::span<Misura> misure,
           Avanzamento& avanzamento) {
    if (misure.size() <= kBit)
        conta<Soglia, 1>(vista, serie, misure, avanzamento);
    else if (misure.size() <= 2 * kBit)
        conta<Soglia, 2>(vista, serie, misure, avanzamento);
    else
        conta<Soglia, 8>(vista, serie, misure, avanzamento);
}

/// The last hits of up to 64 W members, read from the last draw back: it ends where the last member is found,
/// which no longer archive puts off.
template <int Soglia, std::size_t W>
void cerca_ultime(const VistaEstrazioni& vista, const SerieCorrente& serie, std::size_t primo,
                  std::span<std::int32_t> ultime) {
    const auto tavole = strati<W>(serie, primo, ultime.size());
    Membri<W> mancano{};
    for (std::size_t i = 0; i < ultime.size(); ++i) mancano[i / kBit] |= std::uint64_t{1} << i % kBit;
    std::size_t quanti = ultime.size();
    for (std::size_t d = vista.concorsi(); d-- > 0 && quanti > 0;) {
        const Numero* numeri = vista.numeri(d);
        Membri<W> usciti{};
        for (unsigned m = vista.maschera(d); m != 0; m &= m - 1) {
            const Numero* riga = numeri + std::countr_zero(m) * kEstratti;
            if (riga[0] == 0) continue;
            const Membri<W> suoi = colpiti<Soglia>(tavole, riga);
            for (std::size_t w = 0; w < W; ++w) usciti[w] |= suoi[w];
        }
        for (std::size_t w = 0; w < W; ++w) {
            for (std::uint64_t nuovi = usciti[w] & mancano[w]; nuovi != 0; nuovi &= nuovi - 1, --quanti)
                ultime[w * kBit + static_cast<std::size_t>(std::countr_zero(nuovi))] =
                    static_cast<std::int32_t>(d) + 1;
            mancano[w] &= ~usciti[w];
        }
    }
}

template <int Soglia>
void cerca_ultime(const VistaEstrazioni& vista, const SerieCorrente& serie, std::span<std::int32_t> ultime) {
    if (ultime.size() <= kBit) return cerca_ultime<Soglia, 1>(vista, serie, 0, ultime);
    constexpr std::size_t kPasso = 8 * kBit;
    for (std::size_t primo = 0; primo < ultime.size(); primo += kPasso)
        cerca_ultime<Soglia, 8>(vista, serie, primo,
                                ultime.subspan(primo, std::min(kPasso, ultime.size() - primo)));
}

}  // namespace

std::vector<Misura> misura_serie(const VistaEstrazioni& vista, const SerieCorrente& serie, int soglia,
                                 Avanzamento& avanzamento) {
    std::vector<Misura> misure(serie.righe(), Misura{.ultimo = kInizioSerie});
    if (soglia <= 0) {
        conta<0>(vista, serie, misure, avanzamento);
    } else if (soglia == 1) {
        conta<1>(vista, serie, misure, avanzamento);
    } else if (soglia == 2) {
        conta<2>(vista, serie, misure, avanzamento);
    } else if (soglia == 3) {
        conta<3>(vista, serie, misure, avanzamento);
    } else {
        // No search of the catalogue asks for more, so this need not be quick.
        percorri(vista, avanzamento, [&](int c, const Numero* numeri) {
            if (numeri[0] == 0) return;
            for (std::size_t i = 0; i < misure.size(); ++i)
                if (presenti(serie.membro(i), numeri) >= soglia) esce(misure[i], c);
        });
    }
    return misure;
}

std::vector<std::int32_t> ultime_uscite(const VistaEstrazioni& vista, const SerieCorrente& serie,
                                        int soglia) {
    std::vector<std::int32_t> ultime(serie.righe());
    if (soglia <= 0) {
        cerca_ultime<0>(vista, serie, ultime);
    } else if (soglia == 1) {
        cerca_ultime<1>(vista, serie, ultime);
    } else if (soglia == 2) {
        cerca_ultime<2>(vista, serie, ultime);
    } else {
        // No page asks for more, so this need not be quick.
        SenzaAvanzamento nessuno;
        const auto misure = misura_serie(vista, serie, soglia, nessuno);
        for (std::size_t i = 0; i < misure.size(); ++i)
            ultime[i] = misure[i].frequenza == 0 ? 0 : misure[i].ultimo;
    }
    return ultime;
}

}  // namespace sortimetra
