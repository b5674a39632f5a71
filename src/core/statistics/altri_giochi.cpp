#include "statistics/altri_giochi.h"

#include "draws/ambito.h"
#include "draws/combinazioni.h"
#include "draws/dieci_e_lotto.h"
#include "results/risultato.h"
#include "statistics/ambi_terni.h"
#include "statistics/combinatoria.h"
#include "statistics/misure.h"
#include "statistics/parametri.h"
#include "statistics/righe_ordinate.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sortimetra {

namespace {

MisureNumeri misure_da(Estrazioni t) {
    MisureNumeri misure;
    misure.fill({.ultimo = inizio_ambata(t)});
    return misure;
}

template <std::size_t Quanti>
std::vector<Misura> gruppi_da(Estrazioni t) {
    return std::vector<Misura>(Quanti, Misura{.ultimo = inizio_ambata(t)});
}

template <class Numeri>
void escono(MisureNumeri& misure, const Numeri& numeri, std::int32_t c) {
    for (const auto n : numeri)
        if (n != 0) esce(misure[static_cast<std::size_t>(n)], c);
}

/// The sestina of a row in ascending order.
std::array<std::uint32_t, 6> sestina(const TabellaSuperEnalotto& tabella, std::size_t riga) {
    const Combinazione c = calc_combinazione_superenalotto(tabella, riga);
    std::array<std::uint32_t, 6> n{};
    std::copy_n(c.begin() + 1, 6, n.begin());
    return n;
}

/// Walks the SuperEnalotto rows in scope, each a draw: `prepara(t)` makes the cells, `conta` updates them for
/// a row, `finisci` makes the table of them.
template <class Prepara, class Conta, class Finisci>
Risultato cerca_superenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                              Avanzamento& avanzamento, Prepara&& prepara, Conta&& conta, Finisci&& finisci) {
    const auto righe = vista_superenalotto(archivio, domanda.ambito);
    if (righe.empty()) return senza_estrazioni();
    const Estrazioni t{static_cast<std::int32_t>(righe.size())};
    auto misure = prepara(t);
    percorri_righe(righe, archivio.superenalotto().concorso, avanzamento,
                   [&](int c, std::size_t riga) { conta(misure, archivio.superenalotto(), riga, c); });
    return finisci(misure, t);
}

/// The same for searches on the 90 numbers: `numeri(tabella, riga)` gives those of a row.
template <class Numeri>
Risultato cerca_numeri_superenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                     Avanzamento& avanzamento, Numeri&& numeri, Posti posti = kOgniPosto) {
    return cerca_superenalotto(
        archivio, domanda, avanzamento, misure_da,
        [&](MisureNumeri& misure, const TabellaSuperEnalotto& tabella, std::size_t riga, std::int32_t c) {
            escono(misure, numeri(tabella, riga), c);
        },
        [posti](const MisureNumeri& misure, Estrazioni t) {
            return tabella_numeri(misure, kNumeri, t, Gioco::superenalotto, posti);
        });
}

}  // namespace

Risultato ambataSuperEnalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                              Avanzamento& avanzamento) {
    return cerca_numeri_superenalotto(archivio, domanda, avanzamento, sestina);
}

Risultato ambatalottoSuperenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                   Avanzamento& avanzamento) {
    return cerca_numeri_superenalotto(
        archivio, domanda, avanzamento,
        [](const TabellaSuperEnalotto& t, std::size_t riga) { return std::span{t.numeri[riga]}.first<6>(); });
}

/// The SuperStar stands after the six numbers and the Jolly.
constexpr Posti kPostoSuperstar = 1U << 7U;

Risultato superstar(const ArchivioEstrazioni& archivio, const Domanda& domanda, Avanzamento& avanzamento) {
    return cerca_numeri_superenalotto(
        archivio, domanda, avanzamento,
        [](const TabellaSuperEnalotto& t, std::size_t riga) { return std::span{t.numeri[riga]}.last<1>(); },
        kPostoSuperstar);
}

Risultato ambata10elotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                         Avanzamento& avanzamento) {
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();
    const Estrazioni t = vista.t();
    MisureNumeri misure = misure_da(t);
    percorri_10elotto(archivio.lotto(), vista, PassoDieciELotto::dieci_righe, avanzamento,
                      [&](int c, int /*righe*/, const Combinazione& combinazione) {
                          escono(misure, std::span{combinazione}.subspan<1>(), c);
                      });
    return tabella_numeri(misure, kNumeri, t, Gioco::dieci_e_lotto);
}

Risultato ambataWinForLife(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                           Avanzamento& avanzamento) {
    const TabellaWinForLife& tabella = archivio.winforlife();
    const auto righe = vista_winforlife(archivio, domanda.ambito);
    if (righe.empty()) return senza_estrazioni();
    const Estrazioni t{static_cast<std::int32_t>(righe.size())};
    MisureNumeri misure = misure_da(t);
    percorri_righe(righe, tabella.concorso, avanzamento, [&](int c, std::size_t riga) {
        escono(misure, calc_combinazione_WinForLife(tabella, tabella.concorso[riga]), c);
    });
    return tabella_numeri(misure, kNumeriWinForLife, t, Gioco::win_for_life);
}

Risultato ambisuperenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                            Avanzamento& avanzamento) {
    const auto conta = [](std::vector<Misura>& misure, const TabellaSuperEnalotto& tabella, std::size_t riga,
                          std::int32_t c) {
        per_ogni_ambo(sestina(tabella, riga),
                      [&](std::size_t a, std::size_t b) { esce(misure[indice_ambo(a, b)], c); });
    };
    return cerca_superenalotto(archivio, domanda, avanzamento, gruppi_da<kAmbi>, conta,
                               [](const std::vector<Misura>& misure, Estrazioni t) {
                                   return tabella_ambi(misure, t, Gioco::superenalotto);
                               });
}

Risultato ternisuperenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                             Avanzamento& avanzamento) {
    const auto conta = [](std::vector<Misura>& misure, const TabellaSuperEnalotto& tabella, std::size_t riga,
                          std::int32_t c) {
        per_ogni_terno(sestina(tabella, riga), [&](std::size_t x, std::size_t y, std::size_t z) {
            esce(misure[indice_terno(x, y, z)], c);
        });
    };
    return cerca_superenalotto(archivio, domanda, avanzamento, gruppi_da<kTerni>, conta,
                               [](const std::vector<Misura>& misure, Estrazioni t) {
                                   return tabella_terni(misure, t, Gioco::superenalotto);
                               });
}

Risultato ambi10ruoteSuperenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                   Avanzamento& avanzamento) {
    const auto righe = vista_superenalotto(archivio, domanda.ambito);
    if (righe.empty()) return senza_estrazioni();
    const Estrazioni t{quoziente_pari(righe.size(), domanda.ambito.ruote.n_ruote())};
    const auto posto = static_cast<std::size_t>(domanda.di<ParametriStatistica>().estratto - 1);
    std::vector<Misura> misure = gruppi_da<kAmbi>(t);
    std::int32_t c = 0;
    for (std::size_t passo = 0; passo < righe.size(); passo += kRuote) {
        std::array<std::uint32_t, kRuote> numeri{};
        for (std::size_t i = 0; i < kRuote && passo + i < righe.size(); ++i)
            numeri[i] = archivio.superenalotto().numeri[righe[passo + i]][posto];
        std::sort(numeri.begin(), numeri.end());
        ++c;
        per_ogni_ambo(numeri, [&](std::size_t a, std::size_t b) { esce(misure[indice_ambo(a, b)], c); });
    }
    avanzamento.procedi(righe.size(), righe.size());
    Risultato r = tabella_ambi(misure, t, Gioco::superenalotto);
    // Ten draws taken together are no row of any game's table.
    r.tabelle.front().eventi.presenti = 0;
    return r;
}

}  // namespace sortimetra
