#include "screens/risposta_estesa.h"

#include "chance/caso.h"
#include "results/risultato.h"
#include "screens/tema.h"

#include <algorithm>
#include <cmath>
#include <utility>

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

QRgb calore(double parte) {
    // The last step at which text is read is found once for a skin; the steps below it share it out.
    constexpr int kGradini = 64;
    constexpr double kLeggibile = 4.5;
    const Skin& s = skin_in_uso();
    const auto fondo = [&s](int gradino) {
        const auto m = [gradino](int a, int b) { return a + (b - a) * gradino / kGradini; };
        return qRgb(m(qRed(s.superficie), qRed(s.accento)), m(qGreen(s.superficie), qGreen(s.accento)),
                    m(qBlue(s.superficie), qBlue(s.accento)));
    };
    int ultimo = 0;
    while (ultimo < kGradini && contrasto(s.testo, fondo(ultimo + 1)) >= kLeggibile) ++ultimo;
    return fondo(static_cast<int>(std::lround(std::clamp(parte, 0.0, 1.0) * ultimo)));
}

}  // namespace sortimetra
