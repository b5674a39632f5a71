#include "cli/fai_ricerca.h"

#include "catalogue/ricerche.h"
#include "cli/aggiunte.h"
#include "cli/apri.h"
#include "cli/avanzamento_riga.h"
#include "files/sessione.h"
#include "results/risultato.h"
#include "results/selezione.h"
#include "stores/apertura.h"

#include <fmt/core.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// Why the question is asked wrongly, once what it needs from the user's files is read; nothing if it is not.
/// What cannot be read is told when the search itself asks for it.
std::optional<std::string> uso_sbagliato(const Domanda& domanda, const std::filesystem::path& cartella) {
    const Ricerca& ricerca = *domanda.ricerca;
    if (ricerca.controlla == nullptr) return std::nullopt;
    Domanda letta = domanda;
    if (ricerca.carica != nullptr && !ricerca.carica(cartella, letta)) return std::nullopt;
    return ricerca.controlla(letta);
}

/// A concorso of `--da` or `--a`, once the game's draws are known: of a date the first on or after it
/// (`primo`), or the last on or before it.
Concorso concorso_di(const Data& data, bool primo, std::span<const Concorso> concorsi,
                     std::span<const Data> date) {
    if (primo) {
        const auto da = std::lower_bound(date.begin(), date.end(), data);
        return da == date.end() ? (concorsi.empty() ? 0 : concorsi.back() + 1)
                                : concorsi[static_cast<std::size_t>(da - date.begin())];
    }
    const auto a = std::upper_bound(date.begin(), date.end(), data);
    return a == date.begin() ? 0 : concorsi[static_cast<std::size_t>(a - date.begin()) - 1];
}

/// Puts one end of the range into the question, with a remark where it is brought back into the archive.
void applica_estremo(const EstremoTratto& estremo, bool primo, const ArchivioEstrazioni& archivio,
                     Domanda& domanda, const Canali& canali) {
    if (!estremo.concorso && !estremo.data) return;
    const bool wfl = domanda.ricerca->gioco_di(domanda) == Gioco::win_for_life;
    const Concorso ultimo = wfl ? archivio.ultimo_concorso_winforlife() : archivio.ultimo_concorso();
    const Concorso chiesto =
        estremo.concorso ? *estremo.concorso
        : wfl ? concorso_di(*estremo.data, primo, archivio.winforlife().concorso, archivio.winforlife().data)
              : concorso_di(*estremo.data, primo, archivio.lotto().concorso, archivio.lotto().data);
    TrattoConcorsi& tratto = domanda.ambito.tratto;
    (primo ? tratto.da : tratto.a) = chiesto;
    if (domanda.ricerca->tabelle == 0 || ultimo == 0) return;
    const Concorso usato = primo ? tratto.riportato(ultimo).da : tratto.riportato(ultimo).a;
    if (usato != chiesto)
        canali.errori << fmt::format("{}: {} riportato a {}\n", primo ? "--da" : "--a",
                                     estremo.data ? testo_data(*estremo.data) : std::to_string(chiesto),
                                     usato);
}

/// The tables to be opened for a question. A game without its file has no draws; where the user chooses the
/// game, that is the answer and no failure.
unsigned da_aprire(const Richiesta& richiesta, const std::filesystem::path& percorso_archivio) {
    const auto dato = [](const EstremoTratto& e) { return e.concorso || e.data; };
    const unsigned tutte = richiesta.ricerca->tabelle;
    const unsigned tabelle = tabelle_lette(richiesta.domanda, dato(richiesta.da) || dato(richiesta.a));
    const bool a_scelta = richiesta.ricerca->gioco_scelto != nullptr;
    return a_scelta && (tabelle & tabelle_presenti(percorso_archivio)) == 0 ? tutte : tabelle;
}

/// Remarks on a question that is answered otherwise than one might think.
void nota_domanda(const Richiesta& richiesta, const Canali& canali) {
    const Ricerca& r = *richiesta.ricerca;
    const bool legge_ruote = (r.tabelle & kTabellaNazionale) != 0 && r.gioco != Gioco::sistemi;
    if (richiesta.senza_ruote && legge_ruote)
        canali.errori << "--ruote nessuna: si leggono le estrazioni di Bari e T vale 0\n";
}

/// What a search had to say, on the channel of errors. A message of a search that went well is part of the
/// JSON object; who reads a table must see it too.
void racconta(const Risultato& r, bool in_json, const Canali& canali) {
    for (const std::string& nota : r.note) canali.errori << nota << '\n';
    if (!r.prodotto && r.messaggi.empty()) lamenta(canali, "la ricerca non ha dati.");
    if (!r.prodotto || !in_json)
        for (const Messaggio& m : r.messaggi) lamenta(canali, m.testo);
}

}  // namespace

std::expected<Risposta, int> fai_ricerca(const Richiesta& richiesta, const Canali& canali, bool in_json) {
    const Ricerca& ricerca = *richiesta.ricerca;
    if (!ricerca.pronta()) {
        lamenta(canali, fmt::format("la ricerca \"{}\" non è ancora disponibile.", ricerca.chiave()));
        return Risposta{.domanda = richiesta.domanda,
                        .risultato = std::make_shared<const Risultato>(non_avviata({}))};
    }
    if (const auto perche = aggiunte_sbagliate(richiesta))
        return std::unexpected(uso_errato(canali, *perche, richiesta.aiuto_di));
    const Sessione sessione{.percorso_programma = cartella_programma(richiesta.cartella),
                            .copia = !richiesta.senza_copia};
    if (const auto perche = uso_sbagliato(richiesta.domanda, sessione.percorso_programma))
        return std::unexpected(uso_errato(canali, *perche, richiesta.aiuto_di));
    ArchivioEstrazioni archivio;
    if (ricerca.tabelle != 0) {
        auto aperto = apri_per_leggere(sessione, da_aprire(richiesta, sessione.percorso_archivio()), canali);
        if (!aperto) return std::unexpected(kArchivioChiuso);
        archivio = std::move(*aperto);
    }
    Domanda domanda = richiesta.domanda;
    applica_estremo(richiesta.da, true, archivio, domanda, canali);
    applica_estremo(richiesta.a, false, archivio, domanda, canali);
    nota_domanda(richiesta, canali);
    AvanzamentoRiga avanzamento{canali, "ricerca in corso"};
    Risposta risposta = rispondi(std::move(domanda), archivio, sessione.percorso_programma, avanzamento);
    avanzamento.finito();
    // A damaged file of the user's is told where a damaged archive would be.
    for (const Messaggio& m : risposta.risultato->messaggi)
        if (m.avviso == Avviso::sistema_danneggiato) {
            lamenta(canali, m.testo);
            return std::unexpected(kArchivioChiuso);
        }
    racconta(*risposta.risultato, in_json, canali);
    if (const auto codice = aggiungi(richiesta, risposta, archivio, canali)) return std::unexpected(*codice);
    return risposta;
}

namespace {

std::vector<std::size_t> ogni_colonna(const Tabella& tabella) {
    std::vector<std::size_t> colonne(tabella.n_colonne());
    std::iota(colonne.begin(), colonne.end(), std::size_t{0});
    return colonne;
}

/// Puts the tables in the order of `--ordina`: the first by `Risposta::ordine`, the others as they stand.
/// What is wrong with it, if anything.
std::optional<std::string> ordina_tabelle(std::string_view testo, Risposta& risposta) {
    const auto criteri = criteri_per_tabella(risposta.risultato->tabelle, testo);
    std::shared_ptr<Risultato> disposto;
    for (std::size_t t = 0; t < criteri.size(); ++t) {
        const Tabella& tabella = risposta.risultato->tabelle[t];
        if (criteri[t].empty()) continue;
        const auto letti = leggi_criteri(tabella, criteri[t]);
        if (!letti) return letti.error();
        if (t == 0) {
            risposta.ordine = ordina(tabella, *letti);
            continue;
        }
        // A grid that the game does not fill has nothing to put in order.
        if (tabella.righe() == 0) continue;
        if (disposto == nullptr) disposto = std::make_shared<Risultato>(*risposta.risultato);
        disposto->tabelle[t] = seleziona(tabella, ordina(tabella, *letti), ogni_colonna(tabella));
    }
    if (disposto != nullptr) risposta.risultato = std::move(disposto);
    return std::nullopt;
}

/// Gives the tables that go along with the first one its rows, in its order. One that `--ordina` names has an
/// order of its own.
void allinea(const Richiesta& richiesta, std::vector<std::uint32_t> righe, Risposta& risposta) {
    if (richiesta.prime && *richiesta.prime < righe.size()) righe.resize(*richiesta.prime);
    const auto& tabelle = risposta.risultato->tabelle;
    const auto criteri = criteri_per_tabella(tabelle, richiesta.ordina.value_or(""));
    std::shared_ptr<Risultato> disposto;
    for (std::size_t t = 1; t < tabelle.size(); ++t) {
        if (!segue_la_prima(tabelle[t]) || (t < criteri.size() && !criteri[t].empty())) continue;
        if (disposto == nullptr) disposto = std::make_shared<Risultato>(*risposta.risultato);
        disposto->tabelle[t] = seleziona(tabelle[t], righe, ogni_colonna(tabelle[t]));
    }
    if (disposto != nullptr) risposta.risultato = std::move(disposto);
}

}  // namespace

std::optional<int> disponi_risposta(const Richiesta& richiesta, Risposta& risposta, const Canali& canali) {
    if (risposta.risultato->tabelle.empty()) return std::nullopt;
    // Held, since ordering a further table puts another result in its place.
    const auto intero = risposta.risultato;
    const Tabella& prima = intero->tabelle.front();
    const auto errato = [&](std::string_view opzione, const std::string& perche) {
        return uso_errato(canali, fmt::format("{}: {}.", opzione, perche), richiesta.aiuto_di);
    };
    if (prima.n_colonne() == 0) return std::nullopt;
    if (richiesta.ordina)
        if (const auto perche = ordina_tabelle(*richiesta.ordina, risposta))
            return errato("--ordina", *perche);
    if (!richiesta.dove && !richiesta.colonne && !richiesta.ordina && !richiesta.prime) return std::nullopt;

    std::vector<std::uint32_t> righe = risposta.ordine;
    if (righe.empty()) {
        righe.resize(prima.righe());
        std::iota(righe.begin(), righe.end(), 0U);
    }
    if (richiesta.dove) {
        auto tenute = filtra(prima, *richiesta.dove, righe);
        if (!tenute) return errato("--dove", tenute.error());
        righe = std::move(*tenute);
    }
    allinea(richiesta, righe, risposta);
    if (!richiesta.dove && !richiesta.colonne) return std::nullopt;
    auto colonne = ogni_colonna(prima);
    if (richiesta.colonne) {
        auto scelte = leggi_colonne(prima, *richiesta.colonne);
        if (!scelte) return errato("--colonne", scelte.error());
        colonne = std::move(*scelte);
    }
    auto disposto = std::make_shared<Risultato>(*risposta.risultato);
    disposto->tabelle.front() = seleziona(prima, righe, colonne);
    risposta.risultato = std::move(disposto);
    risposta.ordine.clear();
    return std::nullopt;
}

}  // namespace sortimetra
