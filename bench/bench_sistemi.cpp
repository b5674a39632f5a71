#include "ricerca.h"
#include "systems/parametri.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using sortimetra::Domanda;
using sortimetra::kGeneri;
using sortimetra::ParametriSistemi;
using sortimetra::Statistica;

constexpr std::array<std::string_view, 7> kNomi{"posizione", "distanza", "condizioni", "somme1",
                                                "somme2",    "passi",    "gruppi"};

/// One statistic of one game, all wheels where the game has them.
void filtri(benchmark::State& stato, int sistema, int statistica) {
    Domanda d = sortimetra::misure::domanda("filtri di condizionamento");
    auto& p = d.parametri.per<ParametriSistemi>();
    p.sistema = sistema;
    p.statistica = statistica;
    p.posizioni = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    sortimetra::misure::ricerca(stato, d);
}

/// A saved system of a million random rows, ascending as systems are written, under the system's temporary
/// folder, made once for each kind.
class MilioneDiRighe {
  public:
    explicit MilioneDiRighe(int sistema) {
        const auto& g = kGeneri[static_cast<std::size_t>(sistema)];
        const auto cartella = dove_.percorso() / g.cartella;
        std::filesystem::create_directories(cartella);
        std::ofstream sy{cartella / ("misurasy" + std::string{g.lettera} + ".txt"), std::ios::binary};
        std::mt19937 caso{1};
        std::string testo;
        for (int i = 0; i < kRighe; ++i) {
            std::vector<unsigned> numeri(g.k);
            for (unsigned& n : numeri) n = caso() % 90 + 1;
            std::sort(numeri.begin(), numeri.end());
            for (std::size_t j = 0; j < g.k; ++j) {
                if (j > 0) testo += ',';
                testo += std::to_string(numeri[j]);
            }
            testo += "\r\n";
        }
        sy << testo;
        std::ofstream{cartella / ("misuranu" + std::string{g.lettera} + ".txt")}
            << "#2026-07-04#,\"\"\r\n1000000,1000000\r\n";
    }
    [[nodiscard]] const std::filesystem::path& cartella() const { return dove_.percorso(); }

  private:
    static constexpr int kRighe = 1'000'000;
    sortimetra::prove::CartellaProva dove_;
};

void sistema_salvato(benchmark::State& stato, int sistema, int statistica) {
    static std::array<std::unique_ptr<MilioneDiRighe>, kGeneri.size()> fatti;
    auto& milione = fatti[static_cast<std::size_t>(sistema)];
    if (milione == nullptr) milione = std::make_unique<MilioneDiRighe>(sistema);
    Domanda d = sortimetra::prove::domanda("statistica relativa ai sistemi realizzati");
    auto& p = d.parametri.per<ParametriSistemi>();
    p.sistema = sistema;
    p.statistica = statistica;
    p.nome = "misura";
    static_cast<void>(d.ricerca->carica(milione->cartella(), d));
    sortimetra::misure::ricerca(stato, d);
}

void ultimi(benchmark::State& stato) {
    sortimetra::misure::ricerca(stato, sortimetra::misure::domanda("ultimi 20 concorsi"));
}

[[maybe_unused]] const bool registrate = [] {
    const auto registra = [](const std::string& nome, auto funzione, int sistema, int statistica) {
        benchmark::RegisterBenchmark(nome.c_str(), funzione, sistema, statistica)
            ->Unit(benchmark::kMillisecond);
    };
    for (int sistema = 0; sistema < static_cast<int>(kGeneri.size()); ++sistema)
        for (int s = 0; s < static_cast<int>(kNomi.size()); ++s) {
            const std::string nome = std::string{kGeneri[static_cast<std::size_t>(sistema)].cartella} + "/" +
                                     std::string{kNomi[static_cast<std::size_t>(s)]};
            registra("filtri/" + nome, filtri, sistema, s);
            // The groups have no statistic on systems; the two kinds of ten are read alike.
            if (s != static_cast<int>(Statistica::gruppi) && sistema != sortimetra::kSistemaWinForLife)
                registra("sistema/" + nome, sistema_salvato, sistema, s);
        }
    benchmark::RegisterBenchmark("ultimi", ultimi)->Unit(benchmark::kMillisecond);
    return true;
}();

}  // namespace
