#include "systems/ultimi.h"

#include "draws/cursore.h"
#include "results/risultato.h"
#include "systems/misure_combinazione.h"
#include "systems/parametri.h"
#include "systems/scelte.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <utility>

namespace sortimetra {

namespace {

constexpr int kGiocoSuperEnalotto = 1;
constexpr int kGioco10eLotto = 2;
constexpr int kGiocoWinForLife = 3;

/// A draw as a column of the table has it.
struct Colonna21 {
    Concorso concorso = 0;
    std::vector<Valore> numeri;
};

// ---- the draws, walked back from the last ----

/// Up to 21 draws of a cursor, the last first. `combina(estrazione)` gives the numbers, or none for a draw
/// that is passed over.
template <class Combina>
std::vector<Colonna21> a_ritroso(Cursore cursore, Combina&& combina) {
    std::vector<Colonna21> colonne;
    for (cursore.ultimo(); colonne.size() <= kUltimi; cursore.precedente()) {
        const auto estrazione = cursore.corrente();
        if (!estrazione) break;
        if (auto numeri = combina(*estrazione); !numeri.empty())
            colonne.push_back({estrazione->concorso(), std::move(numeri)});
    }
    return colonne;
}

std::vector<Colonna21> ultimi_lotto(Cursore cursore) {
    return a_ritroso(std::move(cursore), [](const Estrazione& e) {
        return std::vector<Valore>(e.numeri().begin(), e.numeri().end());
    });
}

std::vector<Colonna21> ultimi_superenalotto(Cursore cursore) {
    return a_ritroso(std::move(cursore), [](const Estrazione& e) {
        std::vector<Valore> numeri(e.numeri().begin(), e.numeri().end());
        std::sort(numeri.begin(), numeri.end());
        return numeri;
    });
}

std::vector<Colonna21> ultimi_10elotto(Cursore cursore, const ArchivioEstrazioni& archivio,
                                       const ParametriSistemi& p) {
    return a_ritroso(std::move(cursore), [&](const Estrazione& e) -> std::vector<Valore> {
        const auto record = cerca_concorso(archivio.lotto().concorso, e.concorso());
        if (!record) return {};
        const Dieci dieci =
            alle_posizioni(calc_combinazione_10elotto(archivio.lotto(), *record), p.posizioni);
        return {dieci.begin(), dieci.end()};
    });
}

std::vector<Colonna21> ultimi_WinForLife(Cursore cursore, const ArchivioEstrazioni& archivio,
                                         const ParametriSistemi& p) {
    return a_ritroso(std::move(cursore), [&](const Estrazione& e) -> std::vector<Valore> {
        const Combinazione c = calc_combinazione_WinForLife(archivio.winforlife(), e.concorso());
        if (!passa(c, p)) return {};
        const Dieci dieci = primi_dieci(c);
        return {dieci.begin(), dieci.end()};
    });
}

// ---- the measures ----

/// The rows of one draw, the two repetitions still empty.
std::vector<std::int32_t> misura(Lista c, Specchi specchi) {
    std::vector<std::int32_t> righe;
    righe.reserve(RigheUltimi{c.size()}.quante());
    const int simmetrie = calcola_simmetrie(c, specchi);
    const int paralleli = calcola_paralleli(c, specchi);
    righe.insert(righe.end(),
                 {simmetrie, paralleli, simmetrie + paralleli, calcola_interruzioni(c), calcola_pari(c)});
    righe.insert(righe.end(), c.begin(), c.end());
    righe.insert(righe.end(), {somma_generale(c), somma_s1(c), somma_s2(c), codomino(c), resto(c),
                               somma_decine(c), somma_cadenze(c)});
    for (std::size_t j = 1; j < c.size(); ++j) righe.push_back(distanza(c, j));
    righe.push_back(somma_distanze(c));
    const Consecutivita passi{c};
    for (int s = 1; s <= kPassi; ++s) righe.push_back(passi.passo(s));
    righe.push_back(passi.somma());
    righe.insert(righe.end(), {kCellaVuota, kCellaVuota});
    const std::size_t gruppi = righe.size();
    righe.resize(gruppi + kGruppiNumeri.size());
    for (const Valore v : c) {
        if (!e_numero(v)) continue;
        ++righe[gruppi + decina_di(v)];
        ++righe[gruppi + cadenza_di(v)];
    }
    righe.push_back(kCellaVuota);
    return righe;
}

/// Rows from `primo` to before `fine` that are the same in two neighbouring columns.
std::int32_t ripetizione(const std::vector<std::int32_t>& a, const std::vector<std::int32_t>& b,
                         std::size_t primo, std::size_t fine) {
    std::int32_t n = 0;
    for (std::size_t r = primo; r < fine; ++r) n += a[r] == b[r] ? 1 : 0;
    return n;
}

Tabella tabella_misure(const std::vector<Colonna21>& estrazioni, std::size_t numeri, Specchi specchi) {
    const RigheUltimi posti{numeri};
    // Columns without a draw are empty, and equal to each other.
    std::vector<std::vector<std::int32_t>> colonne(kUltimi + 1,
                                                   std::vector<std::int32_t>(posti.quante(), kCellaVuota));
    for (std::size_t c = 0; c < estrazioni.size(); ++c) colonne[c] = misura(estrazioni[c].numeri, specchi);

    Tabella t;
    t.titoli = {std::vector<std::string>(1 + kUltimi)};
    t.colonne.emplace_back(ColonnaTesti{titoli_ultimi(numeri)});
    for (std::size_t c = 0; c < kUltimi; ++c) {
        auto& questa = colonne[c];
        questa[posti.ripetizione_filtri()] =
            ripetizione(questa, colonne[c + 1], 0, posti.ripetizione_filtri());
        questa[posti.ripetizione_gruppi()] =
            ripetizione(questa, colonne[c + 1], posti.decine(), posti.ripetizione_gruppi());
        t.colonne.emplace_back(ColonnaInteri{std::move(questa)});
    }
    return t;
}

Tabella tabella_lista(const std::vector<Colonna21>& estrazioni) {
    ColonnaInteri concorsi{std::vector<std::int32_t>(kUltimi, kCellaVuota)};
    ColonnaTesti combinazioni{std::vector<std::string>(kUltimi)};
    for (std::size_t i = 0; i < std::min(estrazioni.size(), kUltimi); ++i) {
        concorsi.valori[i] = estrazioni[i].concorso;
        std::string& testo = combinazioni.valori[i];
        for (const Valore v : estrazioni[i].numeri) {
            if (!testo.empty()) testo += " - ";
            aggiungi_due_cifre(testo, v);
        }
    }
    Tabella t;
    t.nome = "lista";
    t.titoli = {{"Conc.", "Combinazione"}};
    t.colonne.emplace_back(std::move(concorsi));
    t.colonne.emplace_back(std::move(combinazioni));
    return t;
}

/// The rows that a game is walked on.
Cursore cursore_di(const ArchivioEstrazioni& archivio, const Domanda& domanda) {
    AmbitoRicerca ambito = domanda.ambito;
    switch (domanda.di<ParametriSistemi>().sistema) {
        case kGiocoSuperEnalotto:
            return estrazioni_superenalotto(archivio, ambito);
        case kGioco10eLotto:
            ambito.ruote = {};
            return estrazioni_ruote(archivio, ambito);
        case kGiocoWinForLife:
            return estrazioni_winforlife(archivio, ambito);
        default:
            return estrazioni_ruote(archivio, ambito);
    }
}

}  // namespace

std::vector<std::string> titoli_ultimi(std::size_t numeri) {
    std::vector<std::string> titoli;
    const auto aggiungi = [&titoli](std::span<const GrigliaMisura> misure) {
        for (const GrigliaMisura& m : misure) titoli.emplace_back(m.titolo_ultimi);
    };
    aggiungi(kCondizioni);
    for (std::size_t j = 1; j <= numeri; ++j) titoli.push_back(fmt::format("Casella {}", j));
    aggiungi(kSomme1);
    aggiungi(kSomme2);
    aggiungi(std::span{kDistanze}.first(numeri - 1));
    aggiungi(std::span{kDistanze}.last(1));
    aggiungi(kConsecutivita);
    titoli.insert(titoli.end(), {"Ripetizione Filtri", ""});
    for (const GruppoNumeri& g : kGruppiNumeri) titoli.emplace_back(g.titolo_ultimi);
    titoli.emplace_back("Ripetizione Gruppi");
    return titoli;
}

Risultato ultimi_concorsi(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                          Avanzamento& avanzamento) {
    const auto& p = domanda.di<ParametriSistemi>();
    Cursore cursore = cursore_di(archivio, domanda);
    if (cursore.conteggio() == 0) return senza_estrazioni();
    std::vector<Colonna21> estrazioni;
    switch (p.sistema) {
        case kGiocoSuperEnalotto:
            estrazioni = ultimi_superenalotto(std::move(cursore));
            break;
        case kGioco10eLotto:
            estrazioni = ultimi_10elotto(std::move(cursore), archivio, p);
            break;
        case kGiocoWinForLife:
            if (auto messaggio = scelta_senza_numeri(p)) return non_avviata(std::move(*messaggio));
            estrazioni = ultimi_WinForLife(std::move(cursore), archivio, p);
            break;
        default:
            estrazioni = ultimi_lotto(std::move(cursore));
            break;
    }
    avanzamento.procedi(estrazioni.size(), estrazioni.size());
    const Specchi specchi = p.sistema == kGiocoWinForLife ? kSpecchiWinForLife : kSpecchiLotto;
    Risultato r;
    r.tabelle.push_back(
        tabella_misure(estrazioni, kNumeriUltimi[static_cast<std::size_t>(p.sistema)], specchi));
    r.tabelle.push_back(tabella_lista(estrazioni));
    return r;
}

std::optional<std::string> controlla_ultimi(const Domanda& domanda) {
    return controlla_scelte(domanda.di<ParametriSistemi>(), kGioco10eLotto);
}

Gioco gioco_ultimi(const Domanda& domanda) {
    switch (domanda.di<ParametriSistemi>().sistema) {
        case kGiocoSuperEnalotto:
            return Gioco::superenalotto;
        case kGioco10eLotto:
            return Gioco::dieci_e_lotto;
        case kGiocoWinForLife:
            return Gioco::win_for_life;
        default:
            return Gioco::lotto;
    }
}

}  // namespace sortimetra
