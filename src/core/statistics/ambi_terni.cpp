#include "statistics/ambi_terni.h"

#include "results/risultato.h"
#include "statistics/combinatoria.h"
#include "statistics/parametri.h"
#include "statistics/righe_ordinate.h"
#include "statistics/terni_per_ambi.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// Walks the rows that count, numbers ascending. Sound rows take the instance without tests.
template <class Regolare, class Difettosa>
void percorri_ordinate(const VistaEstrazioni& vista, Avanzamento& avanzamento, Regolare&& regolare,
                       Difettosa&& difettosa) {
    percorri(vista, avanzamento, [&](int c, const Numero* numeri) {
        const RigaOrdinata r = ordina_riga(numeri);
        if (r.regolare)
            regolare(c, r.n);
        else if (numeri[0] != 0)
            difettosa(c, r.n);
    });
}

ColonnaGruppi nomi_ambi() {
    ColonnaGruppi nomi{.quanti = 2, .separatore = '-', .numeri = std::vector<std::uint8_t>(kAmbi * 2)};
    std::uint8_t* n = nomi.numeri.data();
    for (std::uint8_t a = 1; a <= 89; ++a)
        for (auto b = static_cast<std::uint8_t>(a + 1); b <= 90; ++b, n += 2) {
            n[0] = a;
            n[1] = b;
        }
    return nomi;
}

ColonnaGruppi nomi_terni() {
    ColonnaGruppi nomi{.quanti = 3, .separatore = '-', .numeri = std::vector<std::uint8_t>(kTerni * 3)};
    std::uint8_t* __restrict n = nomi.numeri.data();
    for (std::uint8_t a = 1; a <= 88; ++a)
        for (auto b = static_cast<std::uint8_t>(a + 1); b <= 89; ++b)
            for (auto c = static_cast<std::uint8_t>(b + 1); c <= 90; ++c, n += 3) {
                n[0] = a;
                n[1] = b;
                n[2] = c;
            }
    return nomi;
}

}  // namespace

std::vector<Misura> misura_ambi(const VistaEstrazioni& vista, Avanzamento& avanzamento) {
    std::vector<Misura> misure(kAmbi, Misura{.ultimo = inizio_ambata(vista.t())});
    const auto conta = [celle = misure.data()](int c) {
        return [celle, c](std::size_t a, std::size_t b) { esce(celle[indice_ambo(a, b)], c); };
    };
    percorri_ordinate(
        vista, avanzamento, [&](int c, const auto& n) { per_ogni_ambo<true>(n, conta(c)); },
        [&](int c, const auto& n) { per_ogni_ambo(n, conta(c)); });
    return misure;
}

Risultato tabella_ambi(std::span<const Misura> misure, Estrazioni t, Gioco gioco) {
    return tabella_misure(nomi_ambi(), misure, t, {.gioco = gioco, .presenti = 2});
}

Risultato tabella_terni(std::span<const Misura> misure, Estrazioni t, Gioco gioco) {
    return tabella_misure(nomi_terni(), misure, t, {.gioco = gioco, .presenti = 3});
}

Risultato ambilotto(const ArchivioEstrazioni& archivio, const Domanda& domanda, Avanzamento& avanzamento) {
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();
    return tabella_ambi(misura_ambi(vista, avanzamento), vista.t(), Gioco::lotto);
}

namespace {

/// Counts the ten terni of each row a few rows later: their cells lie scattered over a megabyte, and are
/// fetched while those of other rows are counted.
template <class Cella>
class ContaTerni {
  public:
    explicit ContaTerni(std::vector<Cella>& celle) : celle_{celle.data()} {}

    /// A row of five different numbers.
    void regolare(int c, const std::array<std::uint32_t, kEstratti>& n) {
        std::uint32_t* attesa = attese_[righe_].data();
        per_ogni_terno<true>(n, [&](std::size_t x, std::size_t y, std::size_t z) {
            const std::size_t i = indice_terno(x, y, z);
            __builtin_prefetch(celle_ + i, 1);
            *attesa++ = static_cast<std::uint32_t>(i);
        });
        concorsi_[righe_] = c;
        if (++righe_ == kRighe) in_pari();
    }
    /// Any other; those that wait came before it.
    void difettosa(int c, const std::array<std::uint32_t, kEstratti>& n) {
        in_pari();
        per_ogni_terno(
            n, [&](std::size_t x, std::size_t y, std::size_t z) { esce(celle_[indice_terno(x, y, z)], c); });
    }
    /// Counts the rows that wait.
    void in_pari() {
        for (std::size_t r = 0; r < righe_; ++r)
            for (const std::uint32_t i : attese_[r]) esce(celle_[i], concorsi_[r]);
        righe_ = 0;
    }

  private:
    static constexpr std::size_t kRighe = 8;
    static constexpr std::size_t kTerniRiga = 10;

    Cella* celle_;
    std::size_t righe_ = 0;
    std::array<std::array<std::uint32_t, kTerniRiga>, kRighe> attese_{};
    std::array<int, kRighe> concorsi_{};
};

/// All terni by their own appearances, counted in cells of that kind.
template <class Cella>
Risultato terni_in(const VistaEstrazioni& vista, Avanzamento& avanzamento) {
    const Estrazioni t = vista.t();
    std::vector<Cella> misure(kTerni, Cella{inizio_ambata(t)});
    ContaTerni conta{misure};
    percorri_ordinate(
        vista, avanzamento, [&](int c, const auto& n) { conta.regolare(c, n); },
        [&](int c, const auto& n) { conta.difettosa(c, n); });
    conta.in_pari();
    return tabella_misure(nomi_terni(), std::span<const Cella>{misure}, t,
                          {.gioco = Gioco::lotto, .presenti = 3});
}

}  // namespace

Risultato ternilotto(const ArchivioEstrazioni& archivio, const Domanda& domanda, Avanzamento& avanzamento) {
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();
    return MisuraBreve::basta(vista.concorsi(), inizio_ambata(vista.t()))
               ? terni_in<MisuraBreve>(vista, avanzamento)
               : terni_in<Misura>(vista, avanzamento);
}

Risultato ternilotto_ambo(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                          Avanzamento& avanzamento) {
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();
    TerniPerAmbi terni{vista.t()};
    const auto conta = [&terni](int c) {
        return [&terni, c](std::size_t a, std::size_t b) { terni.esce(a, b, c); };
    };
    percorri_ordinate(
        vista, avanzamento, [&](int c, const auto& n) { per_ogni_ambo<true>(n, conta(c)); },
        [&](int c, const auto& n) { per_ogni_ambo(n, conta(c)); });
    return std::move(terni).risultato(nomi_terni());
}

Risultato tutti_i_terni(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                        Avanzamento& avanzamento) {
    return domanda.di<ParametriStatistica>().tipo == 0 ? ternilotto_ambo(archivio, domanda, avanzamento)
                                                       : ternilotto(archivio, domanda, avanzamento);
}

}  // namespace sortimetra
