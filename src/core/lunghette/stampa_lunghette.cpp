#include "lunghette/stampa_lunghette.h"

#include "lunghette/parametri.h"
#include "lunghette/voci.h"
#include "results/ricerca.h"
#include "results/risultato.h"
#include "text/testi.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace sortimetra {

namespace {

// In mm: four rows of five boxes in the middle of the band.
constexpr float kPasso = 15;  ///< from one box to the next
constexpr float kLato = 12;
constexpr float kCima = 62;
constexpr float kSottoRighe = 6;  ///< from the last row's boxes to the line of the score
constexpr std::size_t kPerRiga = 5;
constexpr std::size_t kRighe = 4;

constexpr std::array<std::string_view, 4> kTitoliScomposte{"Numeri", "Freq.", "Rit.", "Rit. Stor."};

/// Searches by points have captions that begin with their own preposition.
std::string a_partire_da(std::string_view articolo, std::string didascalia) {
    if (didascalia.starts_with('D')) {
        didascalia[0] = 'd';
        return " a partire " + didascalia;
    }
    return std::string{" a partire "} + std::string{articolo} + didascalia;
}

std::string da_dove(Gioco gioco, const ParametriLunghette& p) {
    if (p.frequente) return std::string{": "} + std::string{testo_frequente(gioco)};
    if (p.posizione) return std::string{": "} + std::string{kConPosizione};
    switch (p.opzione) {
        case 2: {
            std::string testo = " a partire da Numeri Personali: ";
            const auto numeri = numeri_personali(gioco, p.numeri);
            for (std::size_t i = 0; i < numeri.size(); ++i) {
                if (i > 0) testo += " - ";
                aggiungi_intero(testo, numeri[i]);
            }
            return testo;
        }
        case 3:
            return ": " + testo_opzione(gioco, p.ricerca, p.opzione);
        case 4:
            return a_partire_da("dal ", testo_opzione(gioco, p.ricerca, p.opzione));
        default:
            return a_partire_da("dall'", testo_opzione(gioco, p.ricerca, p.opzione));
    }
}

/// The name of the score as paper tells it: without the word that only fits a growing one, its two blanks
/// left.
std::string nome_punteggio(std::string testo) {
    constexpr std::string_view kFinora = "finora";
    if (const auto dove = testo.find(kFinora); dove != std::string::npos) testo.erase(dove, kFinora.size());
    return testo;
}

/// The head: the entry of the interval and the two dates stand in lines of their own.
Intestazione testa_lunghetta(const MaterialeRapporto& materiale, Gioco gioco, const ParametriLunghette& p) {
    Intestazione testa = materiale.testa;
    testa.ricerca = "Ricerca Lunghette " + testo_ricerca(gioco, p.ricerca) + da_dove(gioco, p);
    // Ten wheels ticked one by one are all of them.
    if (std::count(testa.ruote.begin(), testa.ruote.end(), ',') >= kRuote - 1)
        testa.ruote = kNomiRuote[kTutte].esteso;
    const std::string& periodo = materiale.testa.periodo;
    const std::string& intervallo = materiale.testa.intervallo;
    testa.concorsi = intervallo;
    testa.periodo = periodo.size() > intervallo.size() + 2 ? periodo.substr(intervallo.size() + 2) : "";
    return testa;
}

/// The text of a label, or those of its array.
template <class Testo>
Testo etichetta(const Risultato& risultato, std::string_view nome) {
    for (const Etichetta& e : risultato.etichette)
        if (e.nome == nome)
            if (const auto* testo = std::get_if<Testo>(&e.testo)) return *testo;
    return {};
}

void stampa_caselle(EasyPrint& stampante, const std::vector<std::string>& numeri) {
    const float sinistra = stampante.PageWidth() / 2 - kPasso * static_cast<float>(kPerRiga) / 2;
    stampante.FontSize(14);
    stampante.FontBold(true);
    stampante.DrawWidth(3);
    for (std::size_t i = 0; i < std::min(numeri.size(), kPerRiga * kRighe); ++i) {
        const std::size_t riga = i / kPerRiga;
        const float x = sinistra + kPasso * static_cast<float>(i % kPerRiga) + (kPasso - kLato) / 2;
        const float y = kCima + kPasso * static_cast<float>(riga);
        stampante.ForeColor(riga % 2 == 0 ? kBlu : kRosso);
        stampante.PrintShape(x, y, kLato, kLato, 1.5F);
        stampante.PrintCentre(x + kLato / 2, y + (kLato - stampante.TextHeight("0")) / 2, numeri[i]);
    }
    stampante.ForeColor(kNero);
    stampante.FontBold(false);
    stampante.FontSize(10);
}

}  // namespace

Rapporto stampa_lunghetta(const MaterialeRapporto& materiale) {
    if (materiale.risultato.tabelle.empty() || materiale.domanda == nullptr)
        return rapporto_tabelle(materiale);
    const Gioco gioco = materiale.domanda->ricerca->gioco;
    const auto& p = materiale.domanda->di<ParametriLunghette>();
    auto numeri = etichetta<std::vector<std::string>>(materiale.risultato, "lblnum");
    const auto lunghezza = static_cast<std::size_t>(p.frequente ? kLunghezzaMassima : p.lunghezza);
    numeri.resize(std::min(numeri.size(), lunghezza));
    std::string punteggio = nome_punteggio(testo_punteggio(gioco, p.ricerca, p.frequente)) + ": " +
                            etichetta<std::string>(materiale.risultato, "lblRit_freq");
    Intestazione testa = testa_lunghetta(materiale, gioco, p);
    return {.titolo = testa.ricerca,
            .disegna = [testa = std::move(testa), numeri = std::move(numeri),
                        punteggio = std::move(punteggio)](EasyPrint& stampante, int) {
                stampa_intestazione(stampante, testa);
                stampa_caselle(stampante, numeri);
                stampante.FontItalic(true);
                stampante.PrintCentre(stampante.PageWidth() / 2,
                                      kCima + kPasso * static_cast<float>(kRighe) + kSottoRighe, punteggio,
                                      kBanda);
                stampante.FontItalic(false);
                stampa_piede(stampante, 1, 1);
            }};
}

Rapporto stampa_scomposte(const MaterialeRapporto& materiale) {
    return rapporto_griglia_intitolata(materiale, kTitoliScomposte);
}

}  // namespace sortimetra
