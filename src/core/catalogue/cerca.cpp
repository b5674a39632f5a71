#include "catalogue/cerca.h"

#include "text/testi.h"

#include <algorithm>
#include <iterator>

namespace sortimetra {

namespace {

struct Pagliaio {
    std::string nome;  ///< name, game and group
    std::string tutto;
};

std::vector<std::string> parole(std::string_view testo) {
    std::vector<std::string> trovate;
    const std::string piegato = piega(testo);
    for (std::size_t i = 0; i < piegato.size();) {
        const auto inizio = piegato.find_first_not_of(" \t", i);
        if (inizio == std::string::npos) break;
        const auto fine = std::min(piegato.find_first_of(" \t", inizio), piegato.size());
        trovate.push_back(piegato.substr(inizio, fine - inizio));
        i = fine;
    }
    return trovate;
}

std::vector<VoceElenco> raccogli() {
    std::vector<VoceElenco> tutte;
    const auto nuova = [&](const Ricerca* r) {
        return std::none_of(tutte.begin(), tutte.end(), [r](const VoceElenco& v) { return v.ricerca == r; });
    };
    for (const Scheda& scheda : schede())
        for (const Elenco& elenco : scheda.elenchi)
            for (const VoceElenco& voce : voci(elenco))
                if (nuova(voce.ricerca)) {
                    tutte.push_back(voce);
                    if (scheda.elenchi.size() > 1) tutte.back().gruppo = elenco.nome;
                }
    for (const Ricerca& r : ricerche())
        if (r.dove != Dove::solo_comandi && nuova(&r))
            tutte.push_back({r.titolo(), &r, nome_gioco(r.gioco), {}});
    return tutte;
}

}  // namespace

std::string_view nome_gioco(Gioco gioco) {
    switch (gioco) {
        case Gioco::lotto:
            return "Lotto";
        case Gioco::superenalotto:
            return "SuperEnalotto";
        case Gioco::dieci_e_lotto:
            return "10 e Lotto";
        case Gioco::win_for_life:
            return "Win for Life";
        case Gioco::sistemi:
            break;
    }
    return "Sistemi";
}

std::vector<VoceElenco> voci(const Elenco& elenco) {
    std::vector<VoceElenco> lista;
    lista.reserve(elenco.voci.size());
    for (const std::string_view nome : elenco.voci)
        if (const Ricerca* r = trova_ricerca(nome)) lista.push_back({nome, r, nome_gioco(r->gioco), {}});
    return lista;
}

const std::vector<VoceElenco>& tutte_le_voci() {
    static const std::vector<VoceElenco> tutte = raccogli();
    return tutte;
}

std::vector<VoceElenco> cerca(std::string_view testo) {
    static const std::vector<Pagliaio> pagliai = [] {
        std::vector<Pagliaio> tutti;
        for (const VoceElenco& v : tutte_le_voci()) {
            std::string nome = piega(v.nome) + '\n' + piega(v.gioco) + '\n' + piega(v.gruppo) + '\n';
            std::string tutto = nome + piega(v.ricerca->frase);
            tutti.push_back({std::move(nome), std::move(tutto)});
        }
        return tutti;
    }();
    const auto cercate = parole(testo);
    if (cercate.empty()) return {};
    const auto contiene = [&](const std::string& pagliaio) {
        return std::all_of(cercate.begin(), cercate.end(), [&](const std::string& parola) {
            return pagliaio.find(parola) != std::string::npos;
        });
    };
    std::vector<VoceElenco> prime;
    std::vector<VoceElenco> seconde;
    for (std::size_t i = 0; i < pagliai.size(); ++i) {
        if (contiene(pagliai[i].nome))
            prime.push_back(tutte_le_voci()[i]);
        else if (contiene(pagliai[i].tutto))
            seconde.push_back(tutte_le_voci()[i]);
    }
    prime.insert(prime.end(), seconde.begin(), seconde.end());
    return prime;
}

}  // namespace sortimetra
