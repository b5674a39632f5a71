#include "personal/piramide.h"

#include "personal/parametri.h"
#include "results/risultato.h"
#include "statistics/misure.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// Rows of the ranking that are passed over.
constexpr std::size_t kSaltate = 18;

/// Values of the pairs with the start number, by partner.
using Valori = std::array<std::int32_t, kNumeri + 1>;

Valori valori_coppie(const VistaEstrazioni& vista, Numero numero, TipoPiramide tipo) {
    Valori valori{};
    const Concorso ultimo = vista.concorso(vista.concorsi() - 1);
    SenzaAvanzamento nessuno;
    percorri(vista, nessuno, [&](int c, const Numero* riga) {
        if (std::find(riga, riga + kEstratti, numero) == riga + kEstratti) return;
        for (int i = 0; i < kEstratti; ++i)
            for (int j = i + 1; j < kEstratti; ++j) {
                if (riga[i] != numero && riga[j] != numero) continue;
                std::int32_t& v = valori[riga[i] == numero ? riga[j] : riga[i]];
                v = tipo == TipoPiramide::freq ? v + 1
                                               : ultimo - vista.concorso(static_cast<std::size_t>(c - 1));
            }
    });
    return valori;
}

/// A row of the ranking: a pair (i, j) with the start number in it.
struct RigaCoppia {
    int a1;
    int a2;
    std::int32_t valore;
};

/// All pairs in the order of writing. Only ascending ones have a value.
std::vector<RigaCoppia> righe_coppie(const Valori& valori, int numero) {
    std::vector<RigaCoppia> righe;
    for (int i = 1; i <= kNumeri; ++i)
        for (int j = 1; j <= kNumeri; ++j) {
            if (i != numero && j != numero) continue;
            const auto compagno = static_cast<std::size_t>(i == numero ? j : i);
            righe.push_back({i, j, i <= j ? valori[compagno] : 0});
        }
    return righe;
}

std::string testo_piede(const ParametriPiramide& p) {
    const std::string_view per = p.per_frequenza() ? "frequenza" : "ritardo";
    const std::string da = p.personale()       ? std::to_string(*p.numero)
                           : p.per_frequenza() ? "più frequente"
                                               : "più in ritardo";
    return fmt::format("Piramide generata per {} ottenuta a partire dal numero {}", per, da);
}

}  // namespace

Numero Ric_ambata(const VistaEstrazioni& vista, TipoPiramide tipo) {
    const Estrazioni t{static_cast<std::int32_t>(vista.righe())};
    MisureNumeri misure{};
    SenzaAvanzamento nessuno;
    percorri(vista, nessuno, [&](int c, const Numero* riga) {
        if (riga[0] == 0) return;
        for (int p = 0; p < kEstratti; ++p) esce(misure[riga[p]], c);
    });
    const auto valore = [&](std::size_t n) {
        return tipo == TipoPiramide::freq ? misure[n].frequenza : ritardo(misure[n], t);
    };
    std::size_t migliore = 1;
    for (std::size_t n = 2; n <= kNumeri; ++n)
        if (valore(n) > valore(migliore)) migliore = n;
    return static_cast<Numero>(migliore);
}

Piramide TROVA_PIRAMIDE(const VistaEstrazioni& vista, Numero numero, TipoPiramide tipo) {
    auto righe = righe_coppie(valori_coppie(vista, numero, tipo), numero);
    std::stable_sort(righe.begin(), righe.end(),
                     [](const RigaCoppia& a, const RigaCoppia& b) { return a.valore > b.valore; });
    Piramide piramide{numero};
    for (std::size_t i = 1; i < piramide.size(); ++i) {
        const RigaCoppia& r = righe[kSaltate + i - 1];
        piramide[i] = static_cast<Numero>(r.a1 != numero ? r.a1 : r.a2);
    }
    return piramide;
}

Risultato piramide_statistica(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                              Avanzamento& avanzamento) {
    const auto& parametri = domanda.di<ParametriPiramide>();
    if (domanda.ambito.ruote.n_ruote() == 0) return non_avviata_in_silenzio("Nessuna ruota è stata scelta.");
    if (parametri.personale() && !parametri.numero)
        return non_avviata_in_silenzio("Manca il numero personale da cui far partire la piramide.");
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();
    const TipoPiramide tipo = parametri.per_frequenza() ? TipoPiramide::freq : TipoPiramide::rit;
    const Numero numero =
        parametri.personale() ? static_cast<Numero>(*parametri.numero) : Ric_ambata(vista, tipo);
    const Piramide piramide = TROVA_PIRAMIDE(vista, numero, tipo);
    avanzamento.procedi(1, 1);

    Tabella t;
    t.titoli.emplace_back();
    for (std::size_t c = 0; c < kRighePiramide; ++c) {
        t.titoli[0].push_back(std::to_string(c + 1));
        ColonnaTesti colonna;
        for (std::size_t r = 0; r < kRighePiramide; ++r) {
            std::string& testo = colonna.valori.emplace_back();
            if (c <= r) aggiungi_due_cifre(testo, piramide[c]);
        }
        t.colonne.emplace_back(std::move(colonna));
    }
    Risultato risultato;
    risultato.tabelle.push_back(std::move(t));
    risultato.etichette.push_back({"piede", testo_piede(parametri)});
    return risultato;
}

std::optional<std::string> controlla_piramide(const Domanda& domanda) {
    const SelezioneRuote& ruote = domanda.ambito.ruote;
    if (ruote.n_ruote() <= 1 || ruote.spuntata(kTutte)) return std::nullopt;
    return fmt::format("--ruote: trovate {} ruote, attesa una sola, TUTTE o NZ.", ruote.n_ruote());
}

std::optional<Piramide> piramide_di(const Risultato& risultato) {
    if (risultato.tabelle.empty() || risultato.tabelle[0].righe() != kRighePiramide ||
        risultato.tabelle[0].n_colonne() != kRighePiramide)
        return std::nullopt;
    Piramide piramide{};
    for (std::size_t i = 0; i < piramide.size(); ++i)
        piramide[i] = static_cast<Numero>(valore_iniziale(risultato.tabelle[0].testo(kRighePiramide - 1, i)));
    return piramide;
}

}  // namespace sortimetra
