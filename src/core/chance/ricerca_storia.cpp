#include "chance/ricerca_storia.h"

#include "chance/legge.h"
#include "chance/parametri.h"
#include "chance/storia.h"
#include "results/risultato.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace sortimetra {

Gioco gioco_storia(const Domanda& domanda) {
    return static_cast<Gioco>(domanda.di<ParametriStoria>().gioco);
}

Evento evento_storia(const Domanda& domanda) {
    const auto& p = domanda.di<ParametriStoria>();
    Evento evento{.gioco = gioco_storia(domanda), .presenti = static_cast<std::uint8_t>(p.presenti)};
    for (const int n : p.numeri)
        if (evento.quanti < kNumeriEvento) evento.caselle[evento.quanti++] = static_cast<Numero>(n);
    if (p.posto) evento.posti = Posti{1} << static_cast<unsigned>(*p.posto - 1);
    return evento;
}

std::optional<std::string> controlla_storia(const Domanda& domanda) {
    const auto& p = domanda.di<ParametriStoria>();
    const Evento evento = evento_storia(domanda);
    const Urna u = urna(evento.gioco);
    const std::string_view gioco = kGiochiStoria[static_cast<std::size_t>(p.gioco)];
    if (p.numeri.empty()) return "manca --numeri, i numeri di cui raccontare le uscite: --numeri 5,17.";
    for (const int n : p.numeri)
        if (n > u.numeri)
            return fmt::format("--numeri: trovato \"{}\", attesi con --gioco {} numeri da 1 a {}.", n, gioco,
                               u.numeri);
    // The places of the other games are those of a combination put in order: they tell nothing of a draw.
    if (p.posto && evento.gioco != Gioco::lotto)
        return fmt::format("--posto: vale per il Lotto, trovato --gioco {}.", gioco);
    if (p.posto && p.presenti > 1)
        return fmt::format("--presenti: trovato \"{}\", a un posto esce un numero solo.", p.presenti);
    if (const int massimo = std::min(static_cast<int>(p.numeri.size()), u.estratti); p.presenti > massimo)
        return fmt::format(
            "--presenti: trovato \"{}\", atteso un numero da 1 a {}: {}.", p.presenti, massimo,
            massimo == u.estratti ? "di più non ne escono insieme" : "i numeri non sono di più");
    return std::nullopt;
}

Risultato ricerca_storia(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                         Avanzamento& avanzamento) {
    if (auto perche = controlla_storia(domanda))
        return non_avviata({Avviso::numero_mancante, std::move(*perche)});
    const Storia s = storia(archivio, domanda.ambito, evento_storia(domanda), avanzamento);
    if (s.vuota) return senza_estrazioni();
    Risultato r;
    r.tabelle.push_back(tabella_colpi(s));
    r.tabelle.push_back(tabella_sintesi(s));
    return r;
}

}  // namespace sortimetra
