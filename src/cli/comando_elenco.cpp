#include "catalogue/nomi.h"
#include "catalogue/ricerche.h"
#include "cli/comandi.h"
#include "cli/richiesta.h"
#include "files/sessione.h"
#include "results/risultato.h"
#include "results/scrittori.h"
#include "stores/apertura.h"
#include "text/testi.h"
#include "text/utf8.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

namespace sortimetra {

namespace {

/// Why a search cannot run here; "" if it can. `presenti` are the tables whose files are there, sound or not.
std::string_view impedimento(const Ricerca& r, unsigned presenti) {
    if (!r.pronta()) return "non è ancora disponibile";
    if (r.tabelle != 0 && (r.tabelle & presenti) == 0) return "manca l'archivio";
    return {};
}

/// A place where a search is listed.
struct Posto {
    std::string_view scheda;
    std::string_view gruppo;
    std::string_view nome;  ///< as the list spells it
    const Ricerca* ricerca = nullptr;
};

constexpr std::string_view kFuori = "(fuori dal catalogo)";

/// Every place of the catalogue in its order, then the searches that stand in no list.
std::vector<Posto> posti() {
    std::vector<Posto> tutti;
    std::set<const Ricerca*> elencate;
    const auto posto = [&](std::string_view scheda, std::string_view gruppo, std::string_view nome,
                           const Ricerca& r) {
        elencate.insert(&r);
        tutti.push_back({scheda, gruppo, nome, &r});
    };
    for (const Scheda& s : schede())
        for (const Elenco& e : s.elenchi) {
            for (const std::string_view nome : e.voci)
                if (const Ricerca* r = trova_ricerca(nome)) posto(s.nome, e.nome, nome, *r);
            // A group without a list is a button that opens its search at once.
            if (e.voci.empty())
                if (const Ricerca* r = trova_ricerca(nomi::kMiglioriRitardi.chiave))
                    posto(s.nome, e.nome, r->titolo(), *r);
        }
    for (const Ricerca& r : ricerche())
        if (!elencate.contains(&r)) posto(kFuori, "", r.titolo(), r);
    return tutti;
}

/// Whether a place has every word in its names, its place or its sentence.
bool ha_le_parole(const Posto& posto, const std::vector<std::string>& parole) {
    std::string pagliaio;
    for (const std::string_view t : {posto.scheda, posto.gruppo, posto.nome, posto.ricerca->chiave(),
                                     posto.ricerca->titolo(), posto.ricerca->frase})
        pagliaio += piega(t) + '\n';
    return std::all_of(parole.begin(), parole.end(),
                       [&](const std::string& p) { return pagliaio.find(p) != std::string::npos; });
}

std::string in_json(const std::vector<Posto>& posti, unsigned presenti) {
    auto lista = nlohmann::ordered_json::array();
    for (const Posto& p : posti) {
        const std::string_view perche_no = impedimento(*p.ricerca, presenti);
        lista.push_back({{"scheda", p.scheda},
                         {"gruppo", p.gruppo},
                         {"ricerca", p.nome},
                         {"chiave", p.ricerca->chiave()},
                         {"eseguibile", perche_no.empty()},
                         {"motivo", perche_no}});
    }
    return lista.dump(1) + "\n";
}

/// A text cut to so many columns of a terminal, with a sign that it goes on.
std::string tagliato(std::string_view testo, std::size_t colonne) {
    if (larghezza_terminale(testo) <= colonne) return std::string{testo};
    std::string corto;
    std::size_t larga = 0;
    while (!testo.empty()) {
        const Lettera l = prima_lettera(testo);
        const std::string_view lettera = testo.substr(0, l.byte);
        larga += larghezza_terminale(lettera);
        if (larga + 1 > colonne) break;
        corto += lettera;
        testo.remove_prefix(l.byte);
    }
    return corto + "…";
}

/// One line a search under its tab: its key, then where there is room the groups that list it.
std::string in_righe(const std::vector<Posto>& posti, unsigned presenti, std::size_t larghezza) {
    std::string testo;
    std::string_view scheda;
    std::set<const Ricerca*> scritte;
    for (const Posto& p : posti) {
        if (!scritte.insert(p.ricerca).second) continue;
        if (p.scheda != scheda) {
            if (!testo.empty()) testo += '\n';
            testo += std::string{p.scheda} + '\n';
            scheda = p.scheda;
        }
        std::string altro;
        std::string_view ultimo;
        for (const Posto& q : posti)
            if (q.ricerca == p.ricerca && q.scheda == p.scheda && !q.gruppo.empty() && q.gruppo != q.scheda &&
                q.gruppo != ultimo) {
                altro += (altro.empty() ? "" : ", ") + std::string{q.gruppo};
                ultimo = q.gruppo;
            }
        if (const auto perche_no = impedimento(*p.ricerca, presenti); !perche_no.empty())
            altro = "[" + std::string{perche_no} + "]";
        std::string riga = "  " + std::string{p.ricerca->chiave()};
        constexpr std::size_t kColonnaGruppi = 50;
        if (!altro.empty()) {
            const std::size_t larga = larghezza_terminale(riga);
            riga.append(larga + 2 > kColonnaGruppi ? 2 : kColonnaGruppi - larga, ' ');
            riga += altro;
        }
        testo += tagliato(riga, larghezza) + '\n';
    }
    return testo;
}

}  // namespace

int comando_elenco(Richiesta& richiesta, const Canali& canali) {
    const Sessione sessione{.percorso_programma = cartella_programma(richiesta.cartella)};
    const unsigned presenti = tabelle_presenti(sessione.percorso_archivio());
    std::vector<std::string> parole;
    for (const std::string& argomento : richiesta.argomenti)
        for (std::string resto = piega_nome(argomento); !resto.empty();) {
            const auto fine = std::min(resto.find(' '), resto.size());
            parole.push_back(resto.substr(0, fine));
            resto.erase(0, fine + 1);
        }
    auto elencati = posti();
    std::erase_if(elencati, [&](const Posto& p) { return !ha_le_parole(p, parole); });
    if (elencati.empty()) {
        lamenta(canali, "nessuna ricerca ha queste parole; \"sortimetra-cli elenco\" le elenca tutte.");
        if (richiesta.json) return consegna(canali, in_json(elencati, presenti), kSenzaDati);
        return kSenzaDati;
    }
    return consegna(canali, richiesta.json ? in_json(elencati, presenti)
                                           : in_righe(elencati, presenti, canali.larghezza));
}

}  // namespace sortimetra
