#include "stores/impronta.h"

#include "stores/apertura.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

namespace sortimetra {

namespace {

__extension__ using Doppio = unsigned __int128;

/// Multiplies to 128 bits and folds the halves together: each bit of either word reaches all 64 of the
/// result. Two words a step; a row of the Lotto is one step.
class SommaRighe {
  public:
    explicit SommaRighe(std::uint64_t seme) : stato_{mescola(seme ^ kTerza, kPrima)} {}

    void aggiungi(std::uint64_t a, std::uint64_t b) { stato_ = mescola(a ^ kPrima, b ^ kSeconda ^ stato_); }
    void aggiungi(std::string_view testo) {
        aggiungi(testo.size(), 0);
        for (; !testo.empty(); testo.remove_prefix(std::min<std::size_t>(8, testo.size())))
            aggiungi(parola(testo.substr(0, 8)), 1);
    }
    [[nodiscard]] std::uint64_t valore() const { return mescola(stato_ ^ kSeconda, kTerza); }

    /// Up to eight numbers, or characters, in one word.
    template <class Lettere>
    static std::uint64_t parola(const Lettere& lettere) {
        std::uint64_t n = 0;
        for (const auto l : lettere) n = n << 8U | static_cast<unsigned char>(l);
        return n;
    }
    static std::uint64_t parola(Concorso concorso, Data data) {
        return static_cast<std::uint64_t>(static_cast<std::uint32_t>(concorso)) << 32U |
               static_cast<std::uint32_t>(data.time_since_epoch().count());
    }

  private:
    // Odd, half of the bits set, none like the other.
    static constexpr std::uint64_t kPrima = 0x9E3779B97F4A7C15U;
    static constexpr std::uint64_t kSeconda = 0xC2B2AE3D27D4EB4FU;
    static constexpr std::uint64_t kTerza = 0xD6E8FEB86659FD93U;

    static std::uint64_t mescola(std::uint64_t a, std::uint64_t b) {
        const Doppio p = static_cast<Doppio>(a) * b;
        // With a word of its own, so that a factor that happens to be 0 does not wipe the other one out.
        return static_cast<std::uint64_t>(p) ^ static_cast<std::uint64_t>(p >> 64U) ^ (a + b);
    }
    std::uint64_t stato_;
};

void somma_riga(SommaRighe& s, const RigaLotto& r) {
    s.aggiungi(SommaRighe::parola(r.concorso, r.data),
               SommaRighe::parola(r.numeri) << 8U | static_cast<std::uint64_t>(r.ruota));
}
void somma_riga(SommaRighe& s, const RigaSuperEnalotto& r) {
    s.aggiungi(SommaRighe::parola(r.concorso, r.data), SommaRighe::parola(r.numeri) << 16U |
                                                           static_cast<std::uint64_t>(r.jolly) << 8U |
                                                           std::uint64_t{r.superstar});
}
void somma_riga(SommaRighe& s, const RigaWinForLife& r) {
    const std::span numeri{r.numeri};
    s.aggiungi(SommaRighe::parola(r.concorso, r.data), SommaRighe::parola(numeri.first(5)));
    s.aggiungi(SommaRighe::parola(numeri.subspan(5)), 2);
    s.aggiungi(r.ora);
}

template <class Riga>
ImprontaTabella di(const std::vector<Riga>& righe, unsigned tabella, bool simulato) {
    SommaRighe s{tabella * 2U + (simulato ? 1U : 0U)};
    for (const Riga& r : righe) somma_riga(s, r);
    return {righe.size(), s.valore()};
}

}  // namespace

ImprontaTabella impronta(const RigheArchivio& righe, unsigned tabella, bool simulato) {
    switch (tabella) {
        case kTabellaLotto:
            return di(righe.lotto, tabella, simulato);
        case kTabellaNazionale:
            return di(righe.nazionale, tabella, simulato);
        case kTabellaSuperEnalotto:
            return di(righe.superenalotto, tabella, simulato);
        default:
            return di(righe.winforlife, tabella, simulato);
    }
}

std::uint64_t sigillo(const ConfiniLotto& confini, const ImprontaTabella& lotto) {
    constexpr std::uint64_t kSeme = 0x10;  // none of a table's
    SommaRighe s{kSeme};
    s.aggiungi(lotto.righe, lotto.somma);
    s.aggiungi(static_cast<std::uint64_t>(confini.ultimo), 0);
    for (const auto& giorno : {confini.primo_giorno, confini.ultimo_giorno})
        s.aggiungi(giorno ? static_cast<std::uint64_t>(giorno->time_since_epoch().count()) : 0,
                   giorno ? 1 : 0);
    return s.valore();
}

}  // namespace sortimetra
