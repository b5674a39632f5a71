#include "personal/analisi_serie.h"

#include "draws/ambito.h"
#include "personal/gruppi.h"
#include "personal/parametri.h"
#include "results/risultato.h"
#include "statistics/capogioco.h"
#include "statistics/cinquine_dei_90.h"
#include "statistics/famiglie.h"
#include "statistics/parametri.h"
#include "statistics/serie_speciali.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace sortimetra {

namespace {

/// The analysis of a group as the statistics screen asks it: one number of a member is an outcome, or two.
Risultato analizza(const ArchivioEstrazioni& archivio, const Domanda& domanda, const SerieCorrente& gruppo,
                   Avanzamento& avanzamento) {
    const auto& parametri = domanda.di<ParametriStatistica>();
    Risultato r = analisi_gruppo(
        archivio, domanda.ambito,
        {.gruppo = gruppo, .sorte = parametri.tipo == 1 ? 2 : 1, .entro = parametri.entro}, avanzamento);
    if (r.prodotto) r.titolo = fmt::format("Analisi Gruppo - {}", domanda.ricerca->titolo());
    return r;
}

/// The group that the rows of a grid of combinations make: the first `quante`, in the order shown.
SerieCorrente gruppo_di(const Tabella& griglia, std::span<const std::uint32_t> ordine, std::size_t quante) {
    SerieCorrente gruppo{.colonne = griglia.numeri_per_riga()};
    for (std::size_t r = 0; r < std::min(quante, griglia.righe()); ++r) {
        const Evento e = griglia.numeri(r < ordine.size() ? ordine[r] : r);
        gruppo.numeri.insert(gruppo.numeri.end(), e.numeri().begin(), e.numeri().end());
    }
    return gruppo;
}

/// Analyses the grid that `cerca` answers with; its message where it answers with none.
template <class Cerca>
Risultato griglia_o_gruppo(Cerca&& cerca, bool scelte, const ArchivioEstrazioni& archivio,
                           const Domanda& domanda, Avanzamento& avanzamento) {
    Risultato r = cerca(archivio, domanda, avanzamento);
    const auto& parametri = domanda.di<ParametriStatistica>();
    if (!parametri.analisi || !r.prodotto) return r;
    const Tabella& griglia = r.tabelle.front();
    // Only a grid of which part is taken is taken in the order on show.
    const std::size_t quante = scelte && parametri.combinazioni
                                   ? static_cast<std::size_t>(*parametri.combinazioni)
                                   : griglia.righe();
    const std::span<const std::uint32_t> ordine =
        scelte ? std::span<const std::uint32_t>{parametri.ordine} : std::span<const std::uint32_t>{};
    return analizza(archivio, domanda, gruppo_di(griglia, ordine, quante), avanzamento);
}

}  // namespace

Risultato serie_o_gruppo(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                         Avanzamento& avanzamento) {
    const auto& parametri = domanda.di<ParametriStatistica>();
    if (!parametri.analisi) return serie_speciali(archivio, domanda, avanzamento);
    const Famiglia& famiglia = *domanda.ricerca->famiglia;
    const bool vuota = VistaEstrazioni{archivio, domanda.ambito}.vuota();
    if (famiglia.su_file && !parametri.cinquine && !vuota)
        return non_avviata({Avviso::file_danneggiato, std::string{kFileDanneggiato}});
    if (famiglia.su_file)
        return vuota ? senza_estrazioni() : analizza(archivio, domanda, *parametri.cinquine, avanzamento);
    return analizza(archivio, domanda, carica_serie(famiglia), avanzamento);
}

Risultato ambata_capogioco_o_gruppo(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                    Avanzamento& avanzamento) {
    return griglia_o_gruppo(ambatacapogioco, false, archivio, domanda, avanzamento);
}

Risultato ambo_capogioco_o_gruppo(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                  Avanzamento& avanzamento) {
    return griglia_o_gruppo(ambo_capogioco, true, archivio, domanda, avanzamento);
}

Risultato gruppo_capogioco_winforlife(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                      Avanzamento& avanzamento) {
    const auto& p = domanda.di<ParametriAmbiWinForLife>();
    AmbitoRicerca ambito = domanda.ambito;
    ambito.ora = 0;
    if (vista_winforlife(archivio, ambito).empty()) return senza_estrazioni();
    const int capo = p.capogioco.empty() ? 0 : p.capogioco.front();
    if (capo < 1 || capo > kNumeriWinForLife)
        return non_avviata({Avviso::capogioco, std::string{kCapogiocoNonValido}});
    SerieCorrente ambi{.colonne = 2};
    for (int n = 1; n <= kNumeriWinForLife; ++n)
        if (n != capo)
            for (const int m : {std::min(n, capo), std::max(n, capo)})
                ambi.numeri.push_back(static_cast<Numero>(m));
    Risultato r = analisi_gruppo_winforlife(
        archivio, ambito, {.gruppo = ambi, .sorte = p.tipo + 1, .entro = p.entro}, avanzamento);
    if (r.prodotto) r.titolo = fmt::format("Analisi Gruppo - ambi del {}", capo);
    return r;
}

std::optional<std::string> controlla_analisi(const Domanda& domanda) {
    const auto& p = domanda.di<ParametriStatistica>();
    if (p.analisi)
        return p.tutte_le_ruote
                   ? std::optional<std::string>{"--analisi-gruppo e --tutte-le-ruote non vanno insieme."}
                   : std::nullopt;
    const std::string_view sola = p.combinazioni ? "--combinazioni"
                                  : p.entro      ? "--entro"
                                  : p.tipo != 0 && domanda.ricerca->ammette(kOpzTipoCapogioco) ? "--tipo"
                                                                                               : "";
    if (sola.empty()) return std::nullopt;
    return fmt::format("{} vale soltanto con --analisi-gruppo.", sola);
}

}  // namespace sortimetra
