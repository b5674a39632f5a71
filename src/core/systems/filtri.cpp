#include "systems/filtri.h"

#include "draws/ambito.h"
#include "draws/combinazioni.h"
#include "results/risultato.h"
#include "systems/conteggi.h"
#include "systems/parametri.h"
#include "systems/scelte.h"

#include <fmt/core.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// How many numbers are read of a saved system at a time; a multiple of every length of a combination.
constexpr std::size_t kNumeriBlocco = 240 * 64;

Statistica statistica_di(const ParametriSistemi& p) {
    return static_cast<Statistica>(p.statistica);
}

Risultato risultato_di(const ContoMisure& conteggio, Statistica statistica, std::size_t k) {
    Risultato r;
    r.tabelle = conteggio.tabelle();
    r.etichette.push_back({"titoli", titoli_griglie(statistica, k)});
    return r;
}

/// Counts combinations that `percorri_in(raccolta)` puts together.
template <class Percorri>
Risultato conta(Statistica statistica, const BaseConteggio& base, Percorri&& percorri_in) {
    const auto conteggio = crea_conteggio(statistica, base);
    RaccoltaCombinazioni raccolta{*conteggio, base.k};
    percorri_in(raccolta);
    raccolta.svuota();
    return risultato_di(*conteggio, statistica, base.k);
}

Risultato filtri_lotto(const ArchivioEstrazioni& archivio, const Domanda& domanda, Avanzamento& avanzamento) {
    const auto& p = domanda.di<ParametriSistemi>();
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();
    const Statistica statistica = statistica_di(p);
    // Groups are counted on the five numbers as they were drawn.
    const std::size_t k =
        statistica == Statistica::gruppi ? kEstratti : kGeneri[static_cast<std::size_t>(p.sistema)].k;
    const BaseConteggio base{.k = k,
                             .sedici_bit = statistica == Statistica::distanza,
                             .gioco = Gioco::lotto,
                             .concorsi = vista.t(),
                             .intero = std::int64_t{vista.t()} * combinazioni_per_riga(k) * vista.n_ruote()};
    return conta(statistica, base, [&](RaccoltaCombinazioni& raccolta) {
        percorri(vista, avanzamento, [&](int c, const Numero* numeri) {
            if (numeri[0] == 0) return;
            const std::span<const Numero, kEstratti> estratti{numeri, kEstratti};
            raccolta.prese(scomponi(k, estratti, raccolta.posto()), c);
        });
    });
}

Risultato filtri_superenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                               Avanzamento& avanzamento) {
    const TabellaSuperEnalotto& tabella = archivio.superenalotto();
    const auto righe = vista_superenalotto(archivio, domanda.ambito);
    if (righe.empty()) return senza_estrazioni();
    const BaseConteggio base{.k = 6,
                             .jolly = true,
                             .gioco = Gioco::superenalotto,
                             .concorsi = static_cast<std::int32_t>(righe.size()),
                             .intero = static_cast<std::int64_t>(righe.size())};
    return conta(statistica_di(domanda.di<ParametriSistemi>()), base, [&](RaccoltaCombinazioni& raccolta) {
        percorri_righe(righe, tabella.concorso, avanzamento, [&](int c, std::size_t riga) {
            if (tabella.numeri[riga][0] == 0) return;
            const Combinazione combinazione = calc_combinazione_superenalotto(tabella, riga);
            std::copy_n(combinazione.begin() + 1, base.k, raccolta.posto());
            raccolta.prese(1, c);
        });
    });
}

/// One combination per draw that has a row of Bari, whatever wheels are ticked.
Risultato filtri_10elotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                          Avanzamento& avanzamento) {
    const auto& p = domanda.di<ParametriSistemi>();
    AmbitoRicerca ambito = domanda.ambito;
    ambito.ruote = {};
    const VistaEstrazioni vista{archivio, ambito};
    if (vista.vuota()) return senza_estrazioni();
    const BaseConteggio base{.k = kDieci, .concorsi = vista.t(), .intero = vista.t()};
    return conta(statistica_di(p), base, [&](RaccoltaCombinazioni& raccolta) {
        for (std::size_t i = 0; i < vista.concorsi(); ++i) {
            if (vista.numeri(i)[0] == 0) continue;
            const Dieci dieci =
                alle_posizioni(calc_combinazione_10elotto(archivio.lotto(), vista.record(i)), p.posizioni);
            std::copy(dieci.begin(), dieci.end(), raccolta.posto());
            raccolta.prese(1, static_cast<std::int32_t>(i) + 1);
        }
        avanzamento.procedi(vista.concorsi(), vista.concorsi());
    });
}

Risultato filtri_winforlife(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                            Avanzamento& avanzamento) {
    const auto& p = domanda.di<ParametriSistemi>();
    const TabellaWinForLife& tabella = archivio.winforlife();
    const auto righe = vista_winforlife(archivio, domanda.ambito);
    if (righe.empty()) return senza_estrazioni();
    if (auto messaggio = scelta_senza_numeri(p)) return non_avviata(std::move(*messaggio));
    // 100 % is every draw in scope, also those that the choice leaves out.
    const BaseConteggio base{.k = kDieci,
                             .specchi = kSpecchiWinForLife,
                             .concorsi = static_cast<std::int32_t>(righe.size()),
                             .intero = static_cast<std::int64_t>(righe.size())};
    return conta(statistica_di(p), base, [&](RaccoltaCombinazioni& raccolta) {
        percorri_righe(righe, tabella.concorso, avanzamento, [&](int c, std::size_t riga) {
            if (tabella.numeri[riga][0] == 0) return;
            const Combinazione combinazione = calc_combinazione_WinForLife(tabella, tabella.concorso[riga]);
            if (!passa(combinazione, p)) return;
            const Dieci dieci = primi_dieci(combinazione);
            std::copy(dieci.begin(), dieci.end(), raccolta.posto());
            raccolta.prese(1, c);
        });
    });
}

/// A search that does nothing, as the window does without a chosen system; the remark says why.
Risultato niente(std::string perche) {
    Risultato r = non_avviata({});
    r.note.push_back(std::move(perche));
    return r;
}

Risultato danneggiato(const ErroreArchivio& errore) {
    return non_avviata({Avviso::sistema_danneggiato, errore.testo()});
}

}  // namespace

Risultato ricerche_filtri(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                          Avanzamento& avanzamento) {
    switch (gioco_filtri(domanda)) {
        case Gioco::superenalotto:
            return filtri_superenalotto(archivio, domanda, avanzamento);
        case Gioco::dieci_e_lotto:
            return filtri_10elotto(archivio, domanda, avanzamento);
        case Gioco::win_for_life:
            return filtri_winforlife(archivio, domanda, avanzamento);
        default:
            return filtri_lotto(archivio, domanda, avanzamento);
    }
}

Risultato ricerche_Sistemi(const ArchivioEstrazioni&, const Domanda& domanda, Avanzamento& avanzamento) {
    const auto& p = domanda.di<ParametriSistemi>();
    const Statistica statistica = statistica_di(p);
    const GenereSistema& genere = kGeneri[static_cast<std::size_t>(p.sistema)];
    if (statistica == Statistica::gruppi)
        return niente("\"Gruppi Numerici\" non ha una statistica sui sistemi salvati.");
    if (p.salvato == nullptr)
        return niente(p.nome.empty() ? std::string{"Nessun sistema scelto: --nome dice quale."}
                                     : fmt::format("Fra i \"{}\" non c'è un sistema salvato di nome \"{}\".",
                                                   genere.titolo, p.nome));
    auto lettore = LettoreSistema::apri(p.salvato->file);
    if (!lettore) return danneggiato(lettore.error());

    // Positions and distances take two lines of ten as one list of twenty. T counts the lines all the same.
    const bool doppia =
        genere.k == kDieci && (statistica == Statistica::posizione || statistica == Statistica::distanza);
    const std::size_t k = doppia ? kListaMassima : genere.k;
    const auto conteggio = crea_conteggio(statistica, {.k = k,
                                                       .sistema = true,
                                                       .jolly = p.sistema == kSistemaSuperEnalotto,
                                                       .intero = p.salvato->combinazioni.value_or(0)});
    std::vector<Valore> numeri(kNumeriBlocco);
    while (true) {
        const auto letti = lettore->leggi(numeri);
        if (!letti) return danneggiato(letti.error());
        // An incomplete last record is none.
        conteggio->conta({.numeri = std::span{numeri}.first(*letti - *letti % k), .estrazioni = {}});
        if (*letti < numeri.size() || !avanzamento.procedi(lettore->letti(), lettore->grandezza())) break;
    }
    return risultato_di(*conteggio, statistica, genere.k);
}

std::expected<void, Messaggio> carica_sistema(const std::filesystem::path& cartella, Domanda& domanda) {
    auto& p = domanda.parametri.per<ParametriSistemi>();
    p.salvato = nullptr;
    if (p.nome.empty()) return {};
    for (VoceSistema& voce : trova_sistemi(cartella, p.sistema))
        if (voce.nome == p.nome) p.salvato = std::make_shared<const VoceSistema>(std::move(voce));
    return {};
}

std::optional<std::string> controlla_filtri(const Domanda& domanda) {
    return controlla_scelte(domanda.di<ParametriSistemi>(), kSistema10eLotto);
}

Gioco gioco_filtri(const Domanda& domanda) {
    switch (domanda.di<ParametriSistemi>().sistema) {
        case kSistemaSuperEnalotto:
            return Gioco::superenalotto;
        case kSistema10eLotto:
            return Gioco::dieci_e_lotto;
        case kSistemaWinForLife:
            return Gioco::win_for_life;
        default:
            return Gioco::lotto;
    }
}

}  // namespace sortimetra
