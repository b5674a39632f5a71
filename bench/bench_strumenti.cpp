#include "bets/parametri.h"
#include "ricerca.h"
#include "tools/parametri.h"

#include <benchmark/benchmark.h>

#include <numeric>

namespace {

using sortimetra::Domanda;
using sortimetra::misure::domanda;
using sortimetra::misure::ricerca;

Domanda spia(bool tutti, sortimetra::SelezioneRuote ruote) {
    Domanda d = domanda("calcolo dei numeri spia");
    d.ambito.ruote = ruote;
    auto& numeri = d.parametri.per<sortimetra::ParametriSpia>().numeri;
    numeri.resize(tutti ? sortimetra::kNumeri : 1);
    std::iota(numeri.begin(), numeri.end(), tutti ? 1 : 50);
    return d;
}

Domanda scommessa(int analisi) {
    Domanda d = domanda("scommesse lotto");
    d.parametri.per<sortimetra::ParametriScommesse>().analisi = analisi;
    return d;
}

BENCHMARK_CAPTURE(ricerca, spia_un_numero_bari, spia(false, {}))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, spia_novanta_tutte, spia(true, sortimetra::SelezioneRuote::tutte()))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, ciclometria, domanda("calcolo somme e distanze ciclometriche"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, scommesse_under_over, scommessa(0))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, scommesse_terzi, scommessa(4))->Unit(benchmark::kMillisecond);

}  // namespace
