#include "chance/caso.h"
#include "chance/grafico.h"
#include "chance/per_ruota.h"
#include "chance/storia.h"
#include "ricerca.h"

#include <benchmark/benchmark.h>

#include <span>

// What chance alone would give beside a result: to stay under 30 ms for 117,480 rows; a story's numbers well
// under the 50 ms in which it must be drawn.

namespace sortimetra {
namespace {

void colonne(benchmark::State& stato, const Domanda& domanda) {
    const Risposta risposta = prove::rispondi(domanda, misure::archivio());
    const Tabella& prima = risposta.risultato->tabelle.front();
    for (auto _ : stato) benchmark::DoNotOptimize(tabella_caso(prima, *risposta.percorso));
}
BENCHMARK_CAPTURE(colonne, caso_novanta_numeri, misure::domanda("ritardo e frequenza dei 90 numeri"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(colonne, caso_terni, misure::domanda("ricerche su tutti i terni", 1))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(colonne, caso_terni_per_ambi, misure::domanda("ricerche su tutti i terni"))
    ->Unit(benchmark::kMillisecond);

void percorso(benchmark::State& stato) {
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::tutte();
    for (auto _ : stato) benchmark::DoNotOptimize(percorso_di(misure::archivio(), Gioco::lotto, ambito));
}
BENCHMARK(percorso)->Unit(benchmark::kMillisecond);

/// A number on all wheels: the story with the most hits, and the data of its picture.
void storia_numero(benchmark::State& stato) {
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::tutte();
    Evento evento{.quanti = 1};
    evento.caselle[0] = 67;
    SenzaAvanzamento nessuno;
    for (auto _ : stato) {
        const Storia s = storia(misure::archivio(), ambito, evento, nessuno);
        benchmark::DoNotOptimize(grafico(std::span{&s, 1}, ""));
    }
}
BENCHMARK(storia_numero)->Unit(benchmark::kMillisecond);

void ruote_terni(benchmark::State& stato) {
    const Risposta risposta =
        prove::rispondi(misure::domanda("ricerche su tutti i terni", 1), misure::archivio());
    SenzaAvanzamento nessuno;
    for (auto _ : stato)
        benchmark::DoNotOptimize(tabella_ruote(risposta, misure::archivio(), MisuraRuote::ritardo, nessuno));
}
BENCHMARK(ruote_terni)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sortimetra
