// The catalogue and what is opened from it, each time new: the first opening is the one that is waited for.

#include "catalogue/form_ricerche.h"
#include "files/sessione.h"
#include "misure_schermi.h"
#include "pittura.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/schermo_ricerca.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEventLoop>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace sortimetra::misure {

namespace {

using Cartella = std::filesystem::path;

benchmark::internal::Benchmark* registra(const std::string& nome, auto&& misura) {
    return benchmark::RegisterBenchmark(nome.c_str(), std::forward<decltype(misura)>(misura))
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

/// From nothing to a window that is painted; the archive is opened behind that.
void fino_alla_prima_finestra(benchmark::State& stato, const Cartella& cartella) {
    for (auto _ : stato) {
        Sessione sessione{cartella};
        std::unique_ptr<form_ricerche> form;
        stato.SetIterationTime(fino_alla_prima_pittura([&] {
            form = std::make_unique<form_ricerche>(sessione);
            form->show();
        }));
    }
}

/// From nothing to a catalogue from which a search can be opened.
void fino_all_archivio(benchmark::State& stato, const Cartella& cartella) {
    for (auto _ : stato) {
        Sessione sessione{cartella};
        std::unique_ptr<form_ricerche> form;
        stato.SetIterationTime(fino_alla_pittura([&] {
            form = std::make_unique<form_ricerche>(sessione);
            form->show();
            // (Asleep between events, as the program is: the archive is read by another thread.)
            while (!form->archivio_aperto()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }));
    }
}

/// A catalogue on show with its archive open.
struct Catalogo {
    Sessione sessione;
    form_ricerche form;

    explicit Catalogo(const Cartella& cartella) : sessione{cartella}, form{sessione} {
        form.show();
        form.carica_archivio();
        while (form.legge_archivio()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QApplication::processEvents();
    }
};

void apri_schermo(benchmark::State& stato, const Cartella& cartella, const Ricerca& ricerca) {
    for (auto _ : stato) {
        Catalogo c{cartella};
        const double tempo = fino_alla_pittura([&] { c.form.apri(ricerca); });
        if (tempo < 0) {
            stato.SkipWithError("the screen does not open");
            return;
        }
        stato.SetIterationTime(tempo);
    }
}

/// The click on the primary button, all wheels ticked, to the grid filled and painted.
void avvia(benchmark::State& stato, const Cartella& cartella, const Ricerca& ricerca) {
    Catalogo c{cartella};
    c.form.apri(ricerca);
    SchermoRicerca* schermo = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* s = qobject_cast<SchermoRicerca*>(w); s != nullptr && s->isVisible()) schermo = s;
    if (schermo == nullptr) {
        stato.SkipWithError("the screen does not open");
        return;
    }
    schermo->area()->imposta_ruote(SelezioneRuote::tutte());
    for (auto _ : stato) stato.SetIterationTime(fino_alla_pittura([&] { schermo->avvia(); }));
    stato.counters["righe"] = schermo->griglia()->modello()->rowCount();
}

}  // namespace

void registra_catalogo(const Cartelle& cartelle) {
    const Cartella& dove = cartelle.nativa;
    registra("catalogo_dipinto", [dove](benchmark::State& s) { fino_alla_prima_finestra(s, dove); });
    registra("catalogo_con_archivio/nativo", [dove](benchmark::State& s) { fino_all_archivio(s, dove); });
    if (cartelle.jet)
        registra("catalogo_con_archivio/jet",
                 [jet = *cartelle.jet](benchmark::State& s) { fino_all_archivio(s, jet); });

    // The first search of each screen that this program has, and the page inside the catalogue.
    std::set<Schermo> fatti;
    for (const RigaSchermo& r : schermi_del_programma()) fatti.insert(r.schermo);
    fatti.insert(Schermo::segnalimite);
    for (const Ricerca& r : ricerche())
        if (r.pronta() && fatti.erase(schermo_di(r)) != 0)
            registra("apri_schermo/" + std::string{r.chiave()},
                     [dove, &r](benchmark::State& s) { apri_schermo(s, dove, r); });

    for (const char* chiave : {"ritardo e frequenza dei 90 numeri", "ricerche su tutti gli ambi",
                               "ricerche su tutti i terni", "cinquine dei 90"})
        if (const Ricerca* r = trova_ricerca(chiave))
            registra("avvia_ricerca/" + std::string{chiave},
                     [dove, r](benchmark::State& s) { avvia(s, dove, *r); });
}

}  // namespace sortimetra::misure
