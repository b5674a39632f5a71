#include "chance/risposta_estesa.h"

#include "chance/caso.h"
#include "results/risultato.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// Colours by row, then column, of a table that has got further columns.
void allarga(std::vector<Colore>& colori, std::size_t prima, std::size_t dopo) {
    if (colori.empty() || prima == 0) return;
    const std::size_t righe = colori.size() / prima;
    std::vector<Colore> larghi(righe * dopo, kNessunColore);
    for (std::size_t r = 0; r < righe; ++r)
        std::copy_n(colori.begin() + static_cast<std::ptrdiff_t>(r * prima), prima,
                    larghi.begin() + static_cast<std::ptrdiff_t>(r * dopo));
    colori = std::move(larghi);
}

}  // namespace

std::shared_ptr<const Risultato> con_caso(const Risposta& risposta) {
    auto r = std::make_shared<Risultato>(*risposta.risultato);
    Tabella& t = r->tabelle.front();
    Tabella caso = tabella_caso(t, *risposta.percorso);
    const std::size_t prima = t.n_colonne();
    constexpr auto kRitardo = 1 + static_cast<std::size_t>(ColonnaCaso::ritardo);
    for (std::size_t c = 1; c < caso.n_colonne(); ++c) {
        if (c == kRitardo) continue;
        t.titoli.back().push_back(std::move(caso.titoli.back()[c]));
        t.colonne.push_back(std::move(caso.colonne[c]));
    }
    allarga(t.sfondi, prima, t.n_colonne());
    allarga(t.primi_piani, prima, t.n_colonne());
    return r;
}

std::shared_ptr<const Risultato> con_ruote(const Risposta& risposta, Tabella ruote) {
    auto r = std::make_shared<Risultato>();
    r->titolo = risposta.risultato->titolo;
    r->etichette = risposta.risultato->etichette;
    r->note = risposta.risultato->note;
    ruote.nome = "risultati";
    ruote.eventi = risposta.risultato->tabelle.front().eventi;
    r->tabelle.push_back(std::move(ruote));
    return r;
}

}  // namespace sortimetra
