// The desktop program as a user starts it, from the start of its process to the first window that is painted.
// It is to stay under 400 ms.

#include "misure_schermi.h"
#include "pittura.h"

#include <benchmark/benchmark.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <chrono>
#include <string>

namespace sortimetra::misure {

namespace {

void fino_alla_prima_finestra(benchmark::State& stato, const std::filesystem::path& cartella) {
    auto ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(QStringLiteral("QT_LOGGING_RULES"), QString::fromLatin1(kRegoleRegistro));
    ambiente.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
    const QStringList argomenti{QStringLiteral("--cartella"), QString::fromStdString(cartella.string())};
    for (auto _ : stato) {
        QProcess programma;
        programma.setProcessEnvironment(ambiente);
        programma.setStandardOutputFile(QProcess::nullDevice());
        programma.setReadChannel(QProcess::StandardError);
        const auto inizio = std::chrono::steady_clock::now();
        programma.start(QStringLiteral(SORTIMETRA_BIN "/sortimetra"), argomenti);
        QByteArray registro;
        bool dipinto = false;
        while (!dipinto && programma.waitForReadyRead(10000)) {
            registro += programma.readAllStandardError();
            dipinto = registro.contains(kDipinto);
        }
        const std::chrono::duration<double> tempo = std::chrono::steady_clock::now() - inizio;
        programma.kill();
        programma.waitForFinished();
        if (!dipinto) {
            stato.SkipWithError("the program has painted nothing");
            return;
        }
        stato.SetIterationTime(tempo.count());
    }
}

void registra(const char* nome, const std::filesystem::path& cartella) {
    benchmark::RegisterBenchmark(nome,
                                 [cartella](benchmark::State& s) { fino_alla_prima_finestra(s, cartella); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

}  // namespace

void registra_avvio(const Cartelle& cartelle) {
    registra("avvio_del_programma/nativo", cartelle.nativa);
    if (cartelle.jet) registra("avvio_del_programma/jet", *cartelle.jet);
}

}  // namespace sortimetra::misure
