#include "statistics/ambi_terni.h"

#include "statistics/combinatoria.h"
#include "statistics/parametri.h"
#include "statistics/righe_ordinate.h"
#include "statistics/terni_per_ambi.h"

#include <utility>

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

/// All terni by their own appearances, counted in cells of that kind.
template <class Cella>
Risultato terni_in(const VistaEstrazioni& vista, Avanzamento& avanzamento) {
    const Estrazioni t = vista.t();
    std::vector<Cella> misure(kTerni, Cella{inizio_ambata(t)});
    const auto conta = [celle = misure.data()](int c) {
        return [celle, c](std::size_t x, std::size_t y, std::size_t z) {
            esce(celle[indice_terno(x, y, z)], c);
        };
    };
    percorri_ordinate(
        vista, avanzamento, [&](int c, const auto& n) { per_ogni_terno<true>(n, conta(c)); },
        [&](int c, const auto& n) { per_ogni_terno(n, conta(c)); });
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
