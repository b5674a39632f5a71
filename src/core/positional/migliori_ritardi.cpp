#include "positional/migliori_ritardi.h"

#include "draws/ambito.h"
#include "positional/parametri.h"
#include "positional/tabellone.h"
#include "results/risultato.h"
#include "statistics/cinquine_dei_90.h"
#include "statistics/famiglie.h"
#include "statistics/misura_serie.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

constexpr std::array<FamigliaMigliori, 16> kPagina1{{
    {"Ambi vertibili", "carica_vertibili", 3},
    {"Ambi simmetrici", "carica_simmetrici", 3},
    {"Ambi complementari", "carica_complementari", 3},
    {"Ambi a distanza 45", "carica_distanza45", 3},
    {"Ambi consecutivi", "carica_consecutivi", 3},
    {"Terzine a coesione", "carica_terzine_coesione", 3},
    {"Sestine tricifriche", "carica_tricifriche", 3},
    {"Sestine circolari", "carica_sestine_circolari", 3},
    {"Sestine esagonali", "carica_sestine_esagonali", 3},
    {"Sestine somma 273", "carica_sestine_somma", 3},
    {"Decine", "carica_decine", 3, true},
    {"Cadenze", "carica_cadenze", 3, true},
    {"Figure", "carica_figure", 3, true},
    {"Gemelli", "carica_gemelli", 3, true},
    {"Cifre", "carica_cifre", 3, true},
    {"Radicali", "carica_radicali", 2},
}};

constexpr std::array<FamigliaMigliori, 16> kPagina2{{
    {"Sestine di cifra composta", "carica_cifra_composta", 2},
    {"Settine Renard", "carica_renard", 2},
    {"Decine simmetriche", "carica_decine_simmetriche", 2, false, SogliaFamiglia::combo_rit},
    {"Controfigure", "carica_controfigure", 3, false, SogliaFamiglia::combo_rit},
    {"Sestine consecutive", "carica_sestine_consecutive", 3},
    {"Sestine passo multiplo", "carica_sestine_multiple", 3},
    {"Terzine correlative simmetriche", "carica_terzine_correlative", 3},
    {"Grattacielo dei 90", "carica_grattacielo", 3},
    {"Cinquine dei  90", "carica_cinquine_dei90", 3},
    {"Cinquine a coesione", "carica_cinquine_coesione", 2},
    {"Cinquine consecutive", "Carica_cinquine_consecutive", 2},
    {"Cinquine correlative", "carica_cinquine_correlative", 2},
    {"Cinquine pari/dispari", "carica_cinquine_dispari", 1, false, SogliaFamiglia::ambo, "D. "},
    {"Cinquine pari/dispari", "carica_cinquine_pari", 1, false, SogliaFamiglia::ambo, "P. "},
    {"Cinquine pentagonali", "carica_cinquine_pentagonali", 2},
    {"Cinquine Sun", "carica_cinquine_sun", 2},
}};

/// A group as the page tells it: ambi with " - " between the numbers, all others with "-".
std::string testo_gruppo(const FamigliaMigliori& migliori, const Famiglia& famiglia,
                         const SerieCorrente& serie, std::size_t membro) {
    if (migliori.etichette_brevi) {
        // The first of the cadenze is told as the last one is: the page has always shown "10/90" for both.
        const std::size_t detto =
            famiglia.carica == "carica_cadenze" && membro == 0 ? serie.righe() - 1 : membro;
        return etichetta_membro(famiglia, serie, detto);
    }
    std::string testo{migliori.prefisso};
    const std::string_view separatore = serie.colonne == 2 ? " - " : "-";
    bool primo = true;
    for (const Numero n : serie.membro(membro)) {
        if (!primo) testo += separatore;
        primo = false;
        aggiungi_due_cifre(testo, n);
    }
    return testo;
}

/// The members of a series that came out last the longest ago, at most `quanti`; of equal ones the family's
/// order holds. Before any hit a member's delay is T, as if it had come out at draw 0.
std::vector<std::size_t> piu_in_ritardo(const std::vector<std::int32_t>& ultime, std::size_t quanti) {
    std::vector<std::size_t> ordine(ultime.size());
    std::iota(ordine.begin(), ordine.end(), std::size_t{0});
    const auto fine = ordine.begin() + static_cast<std::ptrdiff_t>(std::min(quanti, ordine.size()));
    std::partial_sort(ordine.begin(), fine, ordine.end(), [&](std::size_t a, std::size_t b) {
        return std::pair{ultime[a], a} < std::pair{ultime[b], b};
    });
    ordine.erase(fine, ordine.end());
    return ordine;
}

}  // namespace

std::span<const FamigliaMigliori> famiglie_migliori(int pagina) {
    return pagina == 2 ? std::span{kPagina2} : std::span{kPagina1};
}

std::expected<void, Messaggio> carica_cinquine_migliori(const std::filesystem::path& cartella,
                                                        Domanda& domanda) {
    if (auto serie = leggi_cinquine_dei_90(cartella))
        domanda.parametri.per<ParametriTabellone>().cinquine =
            std::make_shared<const SerieCorrente>(std::move(*serie));
    return {};
}

std::string titolo_migliori(Concorso concorso, std::string_view data) {
    return fmt::format("I migliori ritardi statistici all'estrazione n°{} del {}", concorso, data);
}

Risultato migliori_ritardi(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                           Avanzamento& avanzamento) {
    const auto& parametri = domanda.di<ParametriTabellone>();
    Risultato r;
    AmbitoRicerca ambito;
    ambito.ruote = domanda.ambito.ruote;
    ambito.tratto.a = concorso_scelto(archivio, TipoTabellone::lotto, parametri.concorso, &r.note);
    const VistaEstrazioni vista{archivio, ambito};
    if (ambito.tratto.a < 1 || vista.vuota()) return senza_estrazioni();
    const Estrazioni n = vista.t();
    r.titolo =
        titolo_migliori(ambito.tratto.a, data_tabellone(archivio, TipoTabellone::lotto, ambito.tratto.a));

    ColonnaTesti titoli;
    ColonnaTesti gruppi;
    ColonnaTesti ritardi;
    const auto famiglie = famiglie_migliori(parametri.pagina);
    SenzaAvanzamento nessuno;  // the bar moves by family
    std::size_t fatte = 0;
    for (const FamigliaMigliori& migliori : famiglie) {
        const Famiglia& famiglia = *trova_caricatore(migliori.carica);
        if (famiglia.su_file && !parametri.cinquine)
            r.messaggi.push_back({Avviso::file_danneggiato, std::string{kFileDanneggiato}});
        const SerieCorrente serie =
            famiglia.su_file && parametri.cinquine ? *parametri.cinquine : carica_serie(famiglia);
        const int soglia = migliori.soglia == SogliaFamiglia::ambo ? 2 : parametri.indice_combo + 1;
        const auto ultime = ultime_uscite(vista, serie, soglia);
        const auto ordine = piu_in_ritardo(ultime, migliori.righe);
        for (std::size_t i = 0; i < migliori.righe; ++i) {
            titoli.valori.emplace_back(migliori.titolo);
            const bool c_e = i < ordine.size();
            gruppi.valori.push_back(c_e ? testo_gruppo(migliori, famiglia, serie, ordine[i]) : "");
            ritardi.valori.push_back(c_e ? "R. " + std::to_string(n - ultime[ordine[i]]) : "");
        }
        if (!avanzamento.procedi(++fatte, famiglie.size())) break;
    }

    Tabella t;
    t.titoli = {{"Serie", "Gruppo", "Ritardo"}};
    t.colonne.emplace_back(std::move(titoli));
    t.colonne.emplace_back(std::move(gruppi));
    t.colonne.emplace_back(std::move(ritardi));
    r.tabelle.push_back(std::move(t));
    // The first page has the list of the ten most delayed numbers under its families.
    if (parametri.pagina == 1) r.allegati = dieci_piu_in_ritardo(archivio, domanda, nessuno).tabelle;
    return r;
}

}  // namespace sortimetra
