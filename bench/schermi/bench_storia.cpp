// The story of a row: from the click on it to the picture on the screen, to stay under 50 ms. And what chance
// makes of the largest table of all: its columns are to be there within 30.

#include "catalogue/ricerche.h"
#include "chance/risposta_estesa.h"
#include "misure_schermi.h"
#include "screens/griglia_risultati.h"
#include "screens/pannello_storia.h"
#include "statistics/form_stat.h"
#include "stores/apertura.h"
#include "support/archivi.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QCheckBox>
#include <QtTest>
#include <chrono>

namespace sortimetra::misure {

namespace {

/// Counts how often a widget has been painted.
class Pitture final : public QObject {
  public:
    int quante = 0;
    bool eventFilter(QObject*, QEvent* evento) override {
        if (evento->type() == QEvent::Paint) ++quante;
        return false;
    }
};

/// Clicks on one row after the other, with the hits of one wheel or of ten, until the picture of that row is
/// painted.
void clic(benchmark::State& stato, const std::filesystem::path& cartella) {
    const auto archivio = apri_archivio(cartella / "archivio", kTabellaLotto);
    const Ricerca* ricerca = trova_ricerca("ritardo e frequenza dei 90 numeri");
    if (!archivio || ricerca == nullptr) return stato.SkipWithError("no archive");
    Sessione sessione;
    sessione.percorso_programma = cartella;
    Form_stat form{sessione};
    form.apri(*ricerca, *archivio);
    form.show();
    form.resize(1600, 900);
    QTest::qWait(100);
    form.findChild<QCheckBox*>(stato.range(0) == 1 ? QStringLiteral("CheckRuota_0")
                                                   : QStringLiteral("CheckRuota_10"))
        ->setChecked(true);
    form.avvia();
    auto* vista = form.griglia()->vista();
    const auto premi = [&](int riga) {
        QTest::mouseClick(vista->viewport(), Qt::LeftButton, Qt::NoModifier,
                          vista->visualRect(form.griglia()->modello()->index(riga, 0)).center());
    };
    // The first click loads the plotting library, too: that one is not measured here.
    premi(0);
    QTest::qWait(300);
    const auto* pannello = form.findChild<PannelloStoria*>();
    if (pannello == nullptr || pannello->tela() == nullptr) return stato.SkipWithError("no story");
    Pitture pitture;
    pannello->tela()->findChild<QWidget*>()->installEventFilter(&pitture);
    int riga = 0;
    for (auto _ : stato) {
        riga = (riga + 1) % 20;
        const int prima = pitture.quante;
        const auto inizio = std::chrono::steady_clock::now();
        premi(riga);
        while (pitture.quante == prima || pannello->storie().front().evento.caselle[0] != riga + 1)
            QApplication::processEvents();
        stato.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count());
    }
}

void caso(benchmark::State& stato, const std::filesystem::path& cartella) {
    const auto archivio = apri_archivio(cartella / "archivio", kTabellaLotto);
    if (!archivio) return stato.SkipWithError("no archive");
    Domanda d = prove::domanda("ricerche su tutti i terni");
    d.ambito.ruote = SelezioneRuote::tutte();
    SenzaAvanzamento senza;
    const Risposta risposta = rispondi(d, *archivio, {}, senza);
    for (auto _ : stato) benchmark::DoNotOptimize(con_caso(risposta));
    stato.counters["righe"] = static_cast<double>(risposta.risultato->tabelle.front().righe());
}

}  // namespace

void registra_storia(const Cartelle& cartelle) {
    const auto dove = cartelle.nativa;
    benchmark::RegisterBenchmark("storia/clic", [dove](benchmark::State& s) { clic(s, dove); })
        ->Arg(1)
        ->Arg(10)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("caso_117480", [dove](benchmark::State& s) {
        caso(s, dove);
    })->Unit(benchmark::kMillisecond);
}

}  // namespace sortimetra::misure
