// Whole processes, as a user or a script waits for them: from the start of sortimetra-cli to its end. Each
// run of a command has one of `--versione` beside it, and the counters tell both: on a busy machine only what
// a row takes beyond that says anything.

#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/importa.h"
#include "support/archivi.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace sortimetra;
namespace fs = std::filesystem;
using Orologio = std::chrono::steady_clock;

const std::string kNovanta = "ritardo e frequenza dei 90 numeri";
const std::string kNovantaSuperEnalotto = "ritardo e frequenza dei 90 numeri nella sestina superenalotto";

/// Program's folders with the real draws, or the simulated ones where there are no others.
struct Cartelle {
    prove::CartellaProva radice{};
    fs::path nativa = radice.percorso() / "nativa";
    std::optional<fs::path> jet{};

    Cartelle() {
        SenzaAvanzamento zitto;
        const auto condivisa = prove::cartella_condivisa();
        if (!condivisa) {
            (void)crea_dimostrazione(nativa / "archivio", zitto);
        } else {
            const fs::path vero = *condivisa / "archivio";
            (void)importa_archivio(nativa / "archivio",
                                   {.lotto = vero / "lotto.txt",
                                    .superenalotto = vero / "superenalotto.csv",
                                    .winforlife = vero / "winforlife.csv"},
                                   zitto);
            std::error_code errore;
            const fs::path altra = radice.percorso() / "jet";
            fs::create_directories(altra / "archivio", errore);
            for (const char* nome : {"drawit.mdb", "drawit2.mdb"})
                fs::copy_file(vero / nome, altra / "archivio" / nome, errore);
            if (!errore) jet = altra;
        }
        // A store that was written a moment ago gets no copy yet.
        std::this_thread::sleep_for(std::chrono::milliseconds{50});
    }
};

const Cartelle& cartelle() {
    static const Cartelle c;
    return c;
}

/// Milliseconds of a run of sortimetra-cli whose output nobody reads; nothing unless it ends well.
std::optional<double> corri(std::vector<std::string> argomenti) {
    argomenti.insert(argomenti.begin(), SORTIMETRA_BIN "/sortimetra-cli");
    std::vector<char*> parole;
    for (std::string& a : argomenti) parole.push_back(a.data());
    parole.push_back(nullptr);
    posix_spawn_file_actions_t azioni;
    posix_spawn_file_actions_init(&azioni);
    for (const int canale : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&azioni, canale, "/dev/null", O_WRONLY, 0);
    const auto inizio = Orologio::now();
    pid_t figlio = 0;
    int stato = -1;
    const int codice = posix_spawn(&figlio, parole.front(), &azioni, nullptr, parole.data(), environ);
    if (codice == 0 && waitpid(figlio, &stato, 0) != figlio) stato = -1;
    const std::chrono::duration<double, std::milli> tempo = Orologio::now() - inizio;
    posix_spawn_file_actions_destroy(&azioni);
    if (codice != 0 || stato != 0) return std::nullopt;
    return tempo.count();
}

double mediana(std::vector<double> tempi) {
    std::sort(tempi.begin(), tempi.end());
    return tempi[tempi.size() / 2];
}

/// The copies of the archive in a program's folder are gone.
void togli_copie(const fs::path& cartella) {
    std::error_code errore;
    for (const auto& voce : fs::directory_iterator{cartella / "archivio", errore})
        if (voce.path().extension() == ".cache") fs::remove(voce.path(), errore);
}

enum class Volta : std::uint8_t { prima, seconda, senza_copia };

void processo(benchmark::State& stato, const fs::path& cartella, const std::string& chiave, Volta volta) {
    std::vector<std::string> argomenti{"ricerca", chiave,       "--ruote",
                                       "TUTTE",   "--cartella", cartella.string()};
    if (volta == Volta::senza_copia) argomenti.emplace_back("--senza-copia");
    togli_copie(cartella);
    if (volta == Volta::seconda) (void)corri(argomenti);
    std::vector<double> versione;
    std::vector<double> tempi;
    std::vector<double> oltre;
    for (auto _ : stato) {
        if (volta == Volta::prima) togli_copie(cartella);
        const auto vuoto = corri({"--versione"});
        const auto pieno = corri(argomenti);
        if (!vuoto || !pieno) {
            stato.SkipWithError("the program has not answered");
            return;
        }
        stato.SetIterationTime(*pieno / 1000);
        versione.push_back(*vuoto);
        tempi.push_back(*pieno);
        oltre.push_back(*pieno - *vuoto);
    }
    stato.counters["minimo"] = *std::min_element(tempi.begin(), tempi.end());
    stato.counters["mediana"] = mediana(tempi);
    stato.counters["versione"] = mediana(versione);
    stato.counters["oltre"] = mediana(oltre);
}

void nativo(benchmark::State& stato, const std::string& chiave, Volta volta) {
    processo(stato, cartelle().nativa, chiave, volta);
}
void jet(benchmark::State& stato, const std::string& chiave, Volta volta) {
    if (cartelle().jet)
        processo(stato, *cartelle().jet, chiave, volta);
    else
        stato.SkipWithError("no real draws here");
}

#define SORTIMETRA_PROCESSO(funzione, nome, chiave, volta) \
    BENCHMARK_CAPTURE(funzione, nome, chiave, volta)       \
        ->UseManualTime()                                  \
        ->Iterations(200)                                  \
        ->Unit(benchmark::kMillisecond)

SORTIMETRA_PROCESSO(nativo, novanta_prima_volta, kNovanta, Volta::prima);
SORTIMETRA_PROCESSO(nativo, novanta_seconda_volta, kNovanta, Volta::seconda);
SORTIMETRA_PROCESSO(nativo, novanta_senza_copia, kNovanta, Volta::senza_copia);
SORTIMETRA_PROCESSO(nativo, superenalotto_prima_volta, kNovantaSuperEnalotto, Volta::prima);
SORTIMETRA_PROCESSO(nativo, superenalotto_seconda_volta, kNovantaSuperEnalotto, Volta::seconda);
SORTIMETRA_PROCESSO(nativo, superenalotto_senza_copia, kNovantaSuperEnalotto, Volta::senza_copia);
SORTIMETRA_PROCESSO(jet, novanta_prima_volta, kNovanta, Volta::prima);
SORTIMETRA_PROCESSO(jet, novanta_seconda_volta, kNovanta, Volta::seconda);
SORTIMETRA_PROCESSO(jet, novanta_senza_copia, kNovanta, Volta::senza_copia);
SORTIMETRA_PROCESSO(jet, superenalotto_seconda_volta, kNovantaSuperEnalotto, Volta::seconda);

// ---- the opening alone, as the desktop does it ----

void apri_con_copia(benchmark::State& stato, Tenuta tenuta) {
    const fs::path archivio = cartelle().nativa / "archivio";
    const ModoApertura modo{.copia = true, .tenuta = tenuta};
    const auto tabelle = static_cast<unsigned>(stato.range(0));
    (void)apri_archivio(archivio, tabelle, modo);
    for (auto _ : stato) {
        auto archivio_aperto = apri_archivio(archivio, tabelle, modo);
        if (!archivio_aperto) stato.SkipWithError(archivio_aperto.error().motivo.c_str());
        benchmark::DoNotOptimize(archivio_aperto);
    }
}
BENCHMARK_CAPTURE(apri_con_copia, mappata, Tenuta::mappata)
    ->Arg(kTabellaLotto)
    ->Arg(kTutteLeTabelle)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(apri_con_copia, propria, Tenuta::propria)
    ->Arg(kTabellaLotto)
    ->Arg(kTutteLeTabelle)
    ->Unit(benchmark::kMillisecond);

}  // namespace
