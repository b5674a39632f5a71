#include "tools/spia.h"

#include "draws/ambito.h"
#include "results/risultato.h"
#include "tools/parametri.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <variant>
#include <vector>

namespace sortimetra {

namespace {

/// One row of the grid.
struct RigaSpia {
    std::int32_t numero = 0;
    std::int32_t ritardo = 0;
    std::int32_t spia = 0;
    std::int32_t percento1 = 0;
    std::int32_t percento2 = 0;
    std::int32_t ritardo_spia = 0;
};

std::int32_t percento(std::int32_t parte, std::int32_t intero) {
    return quoziente_pari(static_cast<std::size_t>(parte) * 100, intero);
}

/// The rows of a scope one after the other, whatever their wheel, and where each number stands among them.
class Spie {
  public:
    explicit Spie(const VistaEstrazioni& vista) {
        estratti_.reserve(vista.righe());
        concorso_.reserve(vista.righe());
        SenzaAvanzamento nessuno;
        percorri(vista, nessuno, [&](int c, const Numero* numeri) {
            const auto riga = static_cast<std::uint32_t>(estratti_.size());
            estratti_.push_back(numeri);
            concorso_.push_back(vista.concorso(static_cast<std::size_t>(c) - 1));
            for (std::size_t p = 0; p < kEstratti; ++p) {
                auto& dove = dove_[numeri[p]];
                ++frequenza_90_[numeri[p]];
                if (dove.empty() || dove.back() != riga) dove.push_back(riga);
            }
        });
    }

    [[nodiscard]] RigaSpia esamina(std::size_t numero) const {
        RigaSpia r{.numero = static_cast<std::int32_t>(numero), .ritardo = ritardo(numero)};
        const auto conteggio = presenze(numero);
        // The highest count has the highest percentage; among equals the lowest number comes first.
        const auto migliore = std::max_element(conteggio.begin() + 1, conteggio.end());
        const std::int32_t percento2 = percento(*migliore, quante_righe(numero));
        if (percento2 == 0) return r;
        const auto spia = static_cast<std::size_t>(migliore - conteggio.begin());
        r.spia = static_cast<std::int32_t>(spia);
        r.percento1 = percento(seguita(spia, numero), frequenza_90_[spia]);
        r.percento2 = percento2;
        r.ritardo_spia = ritardo(spia);
        return r;
    }

  private:
    using Conteggio = std::array<std::int32_t, kNumeri + 1>;

    [[nodiscard]] std::int32_t quante_righe(std::size_t numero) const {
        return static_cast<std::int32_t>(dove_[numero].size());
    }

    /// Concorsi since a number came. One that never came has the rows less nine, which is below 0 on a short
    /// scope.
    [[nodiscard]] std::int32_t ritardo(std::size_t numero) const {
        if (dove_[numero].empty()) return static_cast<std::int32_t>(estratti_.size()) - kColpi;
        return concorso_.back() - concorso_[dove_[numero].back()];
    }

    /// In how many of a number's hits each number stood in the nine rows before. Near the scope's start as
    /// many rows count as concorsi have passed, and there a number that comes twice counts twice.
    [[nodiscard]] Conteggio presenze(std::size_t numero) const {
        Conteggio conteggio{};
        std::array<std::uint32_t, kNumeri + 1> visto{};
        std::uint32_t uscita = 0;
        for (const std::uint32_t riga : dove_[numero]) {
            ++uscita;
            const Concorso passati = concorso_[riga] - concorso_.front();
            const bool una_volta = passati >= kColpi;
            const auto indietro = static_cast<std::uint32_t>(una_volta ? kColpi : passati);
            for (std::uint32_t i = riga - std::min(riga, indietro); i < riga; ++i) {
                for (std::size_t p = 0; p < kEstratti; ++p) {
                    const Numero n = estratti_[i][p];
                    if (una_volta && visto[n] == uscita) continue;
                    visto[n] = uscita;
                    ++conteggio[n];
                }
            }
        }
        conteggio[0] = 0;  // empty cells
        return conteggio;
    }

    /// How many rows of `spia` are followed by one of `numero` within the nine rows after.
    [[nodiscard]] std::int32_t seguita(std::size_t spia, std::size_t numero) const {
        std::int32_t entro = 0;
        auto dopo = dove_[numero].begin();
        for (const std::uint32_t riga : dove_[spia]) {
            while (dopo != dove_[numero].end() && *dopo <= riga) ++dopo;
            if (dopo == dove_[numero].end()) break;
            if (*dopo - riga <= kColpi) ++entro;
        }
        return entro;
    }

    std::vector<const Numero*> estratti_;
    std::vector<Concorso> concorso_;
    /// Rows that hold each number, and its occurrences; index 0 takes the empty cells.
    std::array<std::vector<std::uint32_t>, kNumeri + 1> dove_;
    Conteggio frequenza_90_{};
};

Colore colore_ritardo_spia(const RigaSpia& r) {
    if (r.ritardo_spia > kColpi) return kSfondoLontana;
    return r.ritardo_spia < r.ritardo ? kSfondoInAttesa : kSfondoSeguita;
}

Tabella tabella_spie(const std::vector<RigaSpia>& righe) {
    constexpr std::size_t kColonne = 6;
    std::array<ColonnaInteri, 4> interi;
    std::array<ColonnaTesti, 2> percentuali;
    Tabella t;
    t.titoli = {{"Num.", "Rit.", "Num. Spia", "%1", "%2", "Rit. Num. Spia"}};
    t.sfondi.reserve(righe.size() * kColonne);
    for (const RigaSpia& r : righe) {
        interi[0].valori.push_back(r.numero);
        interi[1].valori.push_back(r.ritardo);
        interi[2].valori.push_back(r.spia);
        percentuali[0].valori.push_back(std::to_string(r.percento1) + "%");
        percentuali[1].valori.push_back(std::to_string(r.percento2) + "%");
        interi[3].valori.push_back(r.ritardo_spia);
        t.sfondi.insert(t.sfondi.end(), {kNessunColore, kNessunColore, kSfondoSpia, kNessunColore,
                                         kNessunColore, colore_ritardo_spia(r)});
    }
    t.colonne = {std::move(interi[0]),      std::move(interi[1]),      std::move(interi[2]),
                 std::move(percentuali[0]), std::move(percentuali[1]), std::move(interi[3])};
    // A row is about the number in exam.
    t.eventi.presenti = 1;
    return t;
}

}  // namespace

Risultato numeri_spia(const ArchivioEstrazioni& archivio, const Domanda& domanda, Avanzamento& avanzamento) {
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();
    auto numeri = domanda.di<ParametriSpia>().numeri;
    std::sort(numeri.begin(), numeri.end());
    const Spie spie{vista};
    std::vector<RigaSpia> righe;
    for (const int numero : numeri) {
        if (numero < 1 || numero > kNumeri) continue;
        righe.push_back(spie.esamina(static_cast<std::size_t>(numero)));
        if (!avanzamento.procedi(righe.size(), numeri.size())) break;
    }
    Risultato risultato;
    risultato.tabelle.push_back(tabella_spie(righe));
    return risultato;
}

std::vector<int> numeri_esaminati(const Risultato& risultato) {
    if (risultato.tabelle.empty()) return {};
    const auto& numeri = std::get<ColonnaInteri>(risultato.tabelle[0].colonne[0]).valori;
    return {numeri.begin(), numeri.end()};
}

Risultato unisci_spie(const Risultato& prima, const Risultato& altre) {
    if (prima.tabelle.empty()) return altre;
    if (altre.tabelle.empty()) return prima;
    std::vector<std::pair<const Tabella*, std::size_t>> ordine;
    for (const Risultato* r : {&prima, &altre})
        for (std::size_t i = 0; i < r->tabelle[0].righe(); ++i) ordine.emplace_back(r->tabelle.data(), i);
    const auto numero = [](const auto& posto) {
        return std::get<ColonnaInteri>(posto.first->colonne[0]).valori[posto.second];
    };
    std::stable_sort(ordine.begin(), ordine.end(),
                     [&](const auto& a, const auto& b) { return numero(a) < numero(b); });
    Risultato insieme = altre;
    Tabella& t = insieme.tabelle[0];
    for (std::size_t c = 0; c < t.n_colonne(); ++c)
        std::visit(
            [&]<class Tipo>(Tipo& colonna) {
                if constexpr (requires { colonna.valori; }) {
                    colonna.valori.clear();
                    for (const auto& [tabella, riga] : ordine)
                        colonna.valori.push_back(std::get<Tipo>(tabella->colonne[c]).valori[riga]);
                }
            },
            t.colonne[c]);
    t.sfondi.clear();
    for (const auto& [tabella, riga] : ordine)
        for (std::size_t c = 0; c < t.n_colonne(); ++c) t.sfondi.push_back(tabella->sfondo(riga, c));
    return insieme;
}

std::optional<std::string> controlla_spia(const Domanda& domanda) {
    if (domanda.di<ParametriSpia>().numeri.empty())
        return fmt::format("manca {}, attesi {}.", kOpzNumeriSpia.nome, kOpzNumeriSpia.atteso);
    const SelezioneRuote& ruote = domanda.ambito.ruote;
    if (!ruote.spuntata(kTutte) && ruote.n_ruote() > 1)
        return fmt::format(
            "--ruote: trovate {} ruote ({}), attesa una ruota sola, oppure TUTTE, NZ o nessuna.",
            ruote.n_ruote(), ruote.nomi());
    return std::nullopt;
}

}  // namespace sortimetra
