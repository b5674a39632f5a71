#include "cli/comandi.h"
#include "cli/richiesta.h"
#include "files/sessione.h"
#include "results/risultato.h"
#include "results/scrittori.h"
#include "systems/sistemi_salvati.h"
#include "text/data.h"

#include <nlohmann/json.hpp>

namespace sortimetra {

namespace {

std::string sistemi_json(const std::vector<VoceSistema>& sistemi) {
    using nlohmann::ordered_json;
    auto lista = ordered_json::array();
    for (const VoceSistema& s : sistemi)
        lista.push_back({{"nome", s.nome},
                         {"data", s.data ? testo_data(*s.data) : std::string{}},
                         {"combinazioni", s.combinazioni ? ordered_json(*s.combinazioni) : ordered_json{}}});
    // A file's name may be any bytes.
    return lista.dump(1, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

std::string sistemi_testo(const std::vector<VoceSistema>& sistemi) {
    Tabella t;
    t.titoli = {{"Nome Sistema", "Data", "Numero Combinazioni"}};
    std::array<ColonnaTesti, 3> colonne;
    for (const VoceSistema& s : sistemi)
        for (std::size_t c = 0;
             const std::string& testo :
             {s.nome, s.data ? testo_data(*s.data) : std::string{}, s.testo_combinazioni()})
            colonne[c++].valori.push_back(testo);
    for (ColonnaTesti& c : colonne) t.colonne.emplace_back(std::move(c));
    std::string testo;
    scrivi_tabella(testo, t);
    return testo;
}

}  // namespace

int comando_sistemi(Richiesta& richiesta, const Canali& canali) {
    if (!richiesta.sistema)
        return uso_errato(canali, "sistemi: manca --sistema, atteso un numero da 0 a 6.", "sistemi");
    const auto sistemi = trova_sistemi(cartella_programma(richiesta.cartella), *richiesta.sistema);
    return consegna(canali, richiesta.json ? sistemi_json(sistemi) : sistemi_testo(sistemi));
}

}  // namespace sortimetra
