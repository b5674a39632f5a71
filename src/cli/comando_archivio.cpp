#include "cli/apri.h"
#include "cli/avanzamento_riga.h"
#include "cli/comandi.h"
#include "cli/richiesta.h"
#include "draws/esame.h"
#include "files/sessione.h"
#include "results/risultato.h"
#include "results/scrittori.h"
#include "statistics/cinquine_dei_90.h"
#include "stores/apertura.h"
#include "stores/importa.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <nlohmann/json.hpp>
#include <optional>

namespace sortimetra {

namespace {

/// One line of `archivio`.
struct RigaRiassunto {
    std::string_view nome;  ///< of the table, as in the file
    std::string_view gioco;
    std::size_t righe = 0;
    Concorso primo = 0;
    Concorso ultimo = 0;
    Data prima_data{};
    Data ultima_data{};
    const Fonte* fonte = nullptr;
};

template <class Tabella>
RigaRiassunto riassumi(std::string_view nome, std::string_view gioco, const Tabella& t, std::size_t righe,
                       const Fonte& fonte) {
    RigaRiassunto r{.nome = nome, .gioco = gioco, .righe = righe, .fonte = &fonte};
    if (!t.concorso.empty()) {
        r.primo = t.concorso.front();
        r.ultimo = t.concorso.back();
        r.prima_data = t.data.front();
        r.ultima_data = t.data.back();
    }
    return r;
}

std::array<RigaRiassunto, 4> riassunto(const ArchivioEstrazioni& a) {
    return {
        riassumi("archivio", "Lotto", a.lotto(), a.lotto().righe, a.drawit()),
        riassumi("archivion", "Lotto, Nazionale", a.nazionale(), a.nazionale().concorso.size(), a.drawit()),
        riassumi("archivios", "SuperEnalotto", a.superenalotto(), a.superenalotto().concorso.size(),
                 a.drawit()),
        riassumi("archivio", "Win for Life", a.winforlife(), a.winforlife().concorso.size(), a.drawit2())};
}

bool simulato(const ArchivioEstrazioni& a) {
    return a.drawit().simulato || a.drawit2().simulato;
}

using nlohmann::ordered_json;

/// A folder's name, and a cell, may be any bytes.
std::string testo_json(const ordered_json& j) {
    return j.dump(1, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

std::string riassunto_json(const ArchivioEstrazioni& a, const std::filesystem::path& cartella) {
    ordered_json tabelle = ordered_json::array();
    for (const RigaRiassunto& r : riassunto(a)) {
        const auto estremo = [&](Concorso concorso, Data data) {
            return r.righe == 0 ? ordered_json{}
                                : ordered_json{{"concorso", concorso}, {"data", testo_data(data)}};
        };
        tabelle.push_back({{"tabella", r.nome},
                           {"gioco", r.gioco},
                           {"righe", r.righe},
                           {"primo", estremo(r.primo, r.prima_data)},
                           {"ultimo", estremo(r.ultimo, r.ultima_data)},
                           {"file", r.fonte->file.string()},
                           {"simulato", r.fonte->simulato}});
    }
    ordered_json tutto{{"cartella", cartella.string()}, {"simulato", simulato(a)}, {"tabelle", tabelle}};
    if (simulato(a)) tutto["avviso"] = kAvvisoSimulato;
    tutto["avvisi"] = esamina(a, oggi()).quanti_avvisi;
    return testo_json(tutto);
}

std::string riassunto_testo(const ArchivioEstrazioni& a) {
    Tabella t;
    t.titoli = {{"Tabella", "Gioco", "Righe", "Dal concorso", "del", "Al concorso", "del", "File"}};
    std::array<ColonnaTesti, 8> colonne;
    for (const RigaRiassunto& r : riassunto(a)) {
        const bool vuota = r.righe == 0;
        for (std::size_t c = 0;
             const std::string& testo :
             {std::string{r.nome}, std::string{r.gioco}, migliaia(static_cast<std::int64_t>(r.righe)),
              vuota ? std::string{} : std::to_string(r.primo),
              vuota ? std::string{} : testo_data(r.prima_data),
              vuota ? std::string{} : std::to_string(r.ultimo),
              vuota ? std::string{} : testo_data(r.ultima_data),
              r.fonte->file.string() + (r.fonte->simulato ? " (simulato)" : "")})
            colonne[c++].valori.push_back(testo);
    }
    for (ColonnaTesti& c : colonne) t.colonne.emplace_back(std::move(c));
    std::string testo;
    scrivi_tabella(testo, t);
    if (simulato(a)) testo += fmt::format("\nAttenzione, {}\n", kAvvisoSimulato);
    if (const std::size_t avvisi = esamina(a, oggi()).quanti_avvisi; avvisi != 0)
        testo +=
            fmt::format("\nCon {}: \"sortimetra-cli archivio --esame\" li elenca.\n",
                        avvisi == 1 ? "un avviso" : migliaia(static_cast<std::int64_t>(avvisi)) + " avvisi");
    return testo;
}

bool manca_la_lista(const Sessione& sessione) {
    std::error_code errore;
    return !std::filesystem::exists(sessione.percorso_programma / kFileCinquine, errore);
}

bool archivio_simulato(const std::filesystem::path& archivio) {
    const auto aperto = apri_archivio(archivio, kTabellaNazionale | kTabellaWinForLife);
    return aperto && aperto->drawit().simulato && aperto->drawit2().simulato;
}

// ---- the examination ----

std::string concorsi(const Rilievo& r) {
    return r.fino > r.concorso ? fmt::format("{}-{}", r.concorso, r.fino) : std::to_string(r.concorso);
}

/// Of a list that was cut off: how many more there are.
std::string altri(std::size_t quanti, const std::vector<Rilievo>& elencati) {
    return quanti == elencati.size() ? std::string{} : fmt::format("e altri {}.\n", quanti - elencati.size());
}

std::string avvisi_testo(const Esame& esame) {
    if (esame.quanti_avvisi == 0) return "Nessun danno e nessun avviso.\n";
    Tabella t;
    t.titoli = {{"Tabella", "Gioco", "Concorso", "Avviso"}};
    std::array<ColonnaTesti, 4> colonne;
    for (const Rilievo& r : esame.avvisi) {
        colonne[0].valori.emplace_back(nome_tabella(r.tabella));
        colonne[1].valori.emplace_back(nome_gioco(r.tabella));
        colonne[2].valori.push_back(concorsi(r));
        colonne[3].valori.push_back(r.testo);
    }
    for (ColonnaTesti& c : colonne) t.colonne.emplace_back(std::move(c));
    std::string testo;
    scrivi_tabella(testo, t);
    return testo + altri(esame.quanti_avvisi, esame.avvisi);
}

std::string avvisi_json(const ArchivioEstrazioni& a, const Esame& esame) {
    ordered_json avvisi = ordered_json::array();
    for (const Rilievo& r : esame.avvisi)
        avvisi.push_back({{"tabella", nome_tabella(r.tabella)},
                          {"gioco", nome_gioco(r.tabella)},
                          {"file", fonte(a, r.tabella).file.string()},
                          {"concorso", r.concorso},
                          {"fino", r.fino},
                          {"testo", r.testo}});
    return testo_json({{"quanti", esame.quanti_avvisi}, {"avvisi", avvisi}});
}

/// `archivio --esame`. Damage is an archive that does not open: it is listed where errors are.
int elenca_esame(const Sessione& sessione, bool json, const Canali& canali) {
    const auto archivio = apri_archivio(sessione.percorso_archivio(), kTutteLeTabelle, {.esamina = false});
    if (!archivio) {
        lamenta(canali, archivio.error().testo());
        return kArchivioChiuso;
    }
    const Esame esame = esamina(*archivio, oggi());
    for (const Rilievo& r : esame.danni)
        lamenta(canali, ErroreArchivio{fonte(*archivio, r.tabella).file, r.frase()}.testo());
    if (esame.quanti_danni != 0) {
        canali.errori << altri(esame.quanti_danni, esame.danni);
        return kArchivioChiuso;
    }
    return consegna(canali, json ? avvisi_json(*archivio, esame) : avvisi_testo(esame));
}

}  // namespace

int comando_archivio(Richiesta& richiesta, const Canali& canali) {
    const Sessione sessione{.percorso_programma = cartella_programma(richiesta.cartella),
                            .copia = !richiesta.senza_copia};
    if (richiesta.esame) return elenca_esame(sessione, richiesta.json, canali);
    const auto archivio = apri_per_leggere(sessione, kTutteLeTabelle, canali);
    if (!archivio) return kArchivioChiuso;
    return consegna(canali, richiesta.json ? riassunto_json(*archivio, sessione.percorso_programma)
                                           : riassunto_testo(*archivio));
}

namespace {

/// What an archive holds after it was changed: what has been written is read again, the best proof and what
/// the user wants to see.
int mostra_cambiato(const Sessione& sessione, const Canali& canali) {
    const auto archivio = apri_per_leggere(sessione, kTutteLeTabelle, canali);
    if (!archivio) return kArchivioChiuso;
    return consegna(canali, riassunto_testo(*archivio));
}

int rimasto(const ErroreArchivio& errore, const Canali& canali) {
    lamenta(canali, errore.testo());
    lamenta(canali, "l'archivio è rimasto com'era.");
    return kSenzaDati;
}

int annulla_ultima(const Sessione& sessione, const Canali& canali) {
    AvanzamentoRiga avanzamento{canali, "annullamento in corso"};
    const auto esito = annulla_importazione(sessione.percorso_archivio(), avanzamento);
    avanzamento.finito();
    if (!esito) return rimasto(esito.error(), canali);
    if (contiene_archivio(sessione.percorso_archivio())) return mostra_cambiato(sessione, canali);
    return consegna(canali, fmt::format("Prima dell'ultima importazione in {} non c'era un archivio: è stato "
                                        "tolto, e tenuto da parte.\n",
                                        sessione.percorso_archivio().string()));
}

}  // namespace

int comando_importa(Richiesta& richiesta, const Canali& canali) {
    const FilePubblicati& file = richiesta.pubblicati;
    const bool nessun_file = !file.lotto && !file.superenalotto && !file.winforlife;
    if (richiesta.annulla && (!nessun_file || file.tutto || file.sostituisci || richiesta.jet))
        return uso_errato(canali, "--annulla riporta l'archivio di prima, e non prende altro.", "importa");
    if (richiesta.jet && (!nessun_file || file.tutto))
        return uso_errato(canali, "--jet porta tutto l'archivio, e non prende altri file.", "importa");
    if (!richiesta.annulla && !richiesta.jet && nessun_file)
        return uso_errato(
            canali, "importa: serve almeno un file, con --lotto, --superenalotto o --winforlife.", "importa");
    if (file.tutto && !file.lotto)
        return uso_errato(canali, "--tutto conta le estrazioni del Lotto: serve anche --lotto.", "importa");
    const Sessione sessione{.percorso_programma = cartella_programma(richiesta.cartella)};
    if (richiesta.annulla) return annulla_ultima(sessione, canali);
    AvanzamentoRiga avanzamento{canali, "importazione in corso"};
    const auto archivio = sessione.percorso_archivio();
    const auto esito = richiesta.jet ? importa_jet(archivio, *richiesta.jet, file.sostituisci, avanzamento)
                                     : importa_archivio(archivio, file, avanzamento);
    avanzamento.finito();
    if (!esito) return rimasto(esito.error(), canali);
    for (const std::string& avviso : esito->avvisi) canali.errori << avviso << '\n';
    return mostra_cambiato(sessione, canali);
}

int comando_dimostrazione(Richiesta& richiesta, const Canali& canali) {
    const Sessione sessione{.percorso_programma = cartella_programma(richiesta.cartella)};
    const auto archivio = sessione.percorso_archivio();
    const bool c_era = contiene_archivio(archivio);
    const bool intero = c_era && !ammette_dimostrazione(archivio);
    // The list that a search reads belongs to it: whoever was stopped before that has half of it only.
    if (intero && !(manca_la_lista(sessione) && archivio_simulato(archivio))) {
        lamenta(canali, fmt::format("{} contiene già un archivio, che resta com'è.", archivio.string()));
        return kSenzaDati;
    }
    if (!intero) {
        AvanzamentoRiga avanzamento{canali, "archivio in costruzione"};
        const auto creato = crea_dimostrazione(archivio, avanzamento);
        avanzamento.finito();
        if (!creato) {
            lamenta(canali, creato.error().testo());
            return kArchivioChiuso;
        }
    }
    // The folder is new: it gets the one list that a search reads from it.
    if (const auto lista = prepara_cinquine_dei_90(sessione.percorso_programma); !lista)
        lamenta(canali, lista.error().testo());
    return consegna(canali, fmt::format("{} in {} un {}\n", c_era ? "Completato" : "Creato",
                                        archivio.string(), kAvvisoSimulato));
}

}  // namespace sortimetra
