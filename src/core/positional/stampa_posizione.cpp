#include "positional/stampa_posizione.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

// From the head's last line down to the foot, in mm: a lying A4 sheet is 210 high and 45 rows fill it.
constexpr float kTitoloSopra = 50;     ///< "Num." and "Posizione"
constexpr float kTitoloPosto = 53.5F;  ///< number of the place
constexpr float kTitoloLettere = 57;
constexpr float kPrimaRiga = 61;
constexpr float kRiga = 2.95F;
constexpr float kPiede = 195.5F;
constexpr float kColonnaNumero = 13;
constexpr std::int16_t kCorpo = 7;

constexpr std::array<std::string_view, 3> kLegenda{"F = Frequenza", "R = Ritardo", "RS = Ritardo Storico"};

/// The title of the report, which is not the screen's.
std::string_view titolo(std::size_t posti) {
    switch (posti) {
        case 5:
            return "Frequenza e Ritardo dei 90 numeri per posizione";
        case 10:
            return "Frequenza e Ritardo dei 20 numeri per posizione (Win for Life)";
        case 20:
            return "Frequenza e Ritardo dei 90 numeri per posizione (10 e lotto)";
        default:
            return "Frequenza e Ritardo dei 90 numeri per posizione (Superenalotto)";
    }
}

/// One sheet's share of the table.
struct Foglietto {
    std::size_t prima_riga;
    std::size_t righe;
    std::size_t primo_posto;
    std::size_t posti;
};

std::vector<Foglietto> dividi(const Tabella& tabella) {
    const std::size_t posti = (tabella.n_colonne() - 1) / 3;
    const std::size_t gruppi = (posti + kPostiPaginaPosizione - 1) / kPostiPaginaPosizione;
    const std::size_t per_gruppo = (posti + gruppi - 1) / gruppi;
    std::vector<Foglietto> fogli;
    for (std::size_t riga = 0; riga < tabella.righe(); riga += kRighePaginaPosizione)
        for (std::size_t p = 0; p < posti; p += per_gruppo)
            fogli.push_back({riga, std::min(kRighePaginaPosizione, tabella.righe() - riga), p,
                             std::min(per_gruppo, posti - p)});
    return fogli;
}

void stampa_foglietto(EasyPrint& stampante, const Tabella& tabella, const Foglietto& foglio,
                      std::span<const std::uint32_t> ordine) {
    const float x = inizio_banda(stampante);
    const float larga = (kBanda - kColonnaNumero) / static_cast<float>(3 * foglio.posti);
    const auto sinistra = [&](std::size_t colonna) {
        return x + kColonnaNumero + larga * static_cast<float>(colonna);
    };
    stampante.FontSize(kCorpo + 1);
    stampante.FontBold(true);
    stampante.PrintCentre(x + kColonnaNumero / 2, kTitoloSopra, "Num.");
    stampante.PrintCentre(x + kColonnaNumero + (kBanda - kColonnaNumero) / 2, kTitoloSopra, "Posizione");
    for (std::size_t p = 0; p < foglio.posti; ++p) {
        const std::size_t colonna = 1 + 3 * (foglio.primo_posto + p);
        stampante.FontUnderline(true);
        stampante.PrintCentre(sinistra(3 * p + 1) + larga / 2, kTitoloPosto, tabella.titoli[1][colonna]);
        stampante.FontUnderline(false);
        for (std::size_t k = 0; k < 3; ++k)
            stampante.PrintRight(sinistra(3 * p + k + 1) - 1, kTitoloLettere, tabella.titoli[2][colonna + k]);
    }
    stampante.FontSize(kCorpo);
    std::string testo;
    const auto cella = [&](std::size_t r, std::size_t colonna) -> const std::string& {
        testo.clear();
        tabella.aggiungi_testo(testo, riga_in_griglia(tabella, foglio.prima_riga + r, ordine), colonna);
        return testo;
    };
    const auto y = [](std::size_t r) { return kPrimaRiga + kRiga * static_cast<float>(r); };
    for (std::size_t r = 0; r < foglio.righe; ++r)
        stampante.PrintRight(x + kColonnaNumero - 4, y(r), cella(r, 0));
    stampante.FontBold(false);
    for (std::size_t c = 0; c < 3 * foglio.posti; ++c)
        for (std::size_t r = 0; r < foglio.righe; ++r)
            stampante.PrintRight(sinistra(c + 1) - 1, y(r), cella(r, 1 + 3 * foglio.primo_posto + c));

    const float altezza = kRiga * static_cast<float>(foglio.righe);
    stampante.DrawWidth(1);
    for (std::size_t r = 1; r < foglio.righe; r += 2) stampante.PrintShape(x, y(r), kBanda, kRiga);
    stampante.DrawWidth(3);
    for (std::size_t p = 0; p <= foglio.posti; ++p)
        stampante.PrintShape(x, kPrimaRiga, sinistra(3 * p) - x, altezza);
}

}  // namespace

Rapporto rapporto_posizione(const MaterialeRapporto& materiale) {
    if (materiale.risultato.tabelle.empty() || materiale.risultato.tabelle[0].titoli.size() != 3)
        return rapporto_tabelle(materiale);
    const Tabella& tabella = materiale.risultato.tabelle[0];
    auto fogli = dividi(tabella);
    const int pagine = std::max(static_cast<int>(fogli.size()), 1);
    Intestazione testa = materiale.testa;
    testa.ricerca = titolo((tabella.n_colonne() - 1) / 3);
    testa.concorsi = materiale.testa.intervallo;
    testa.periodo = materiale.testa.date;
    return {.titolo = testa.ricerca,
            .orientamento = Orientamento::orizzontale,
            .pagine = pagine,
            .disegna = [&tabella, pagine, testa, fogli = std::move(fogli),
                        ordine = std::vector(materiale.ordine.begin(), materiale.ordine.end())](
                           EasyPrint& stampante, int pagina) {
                stampa_intestazione(stampante, testa);
                if (!fogli.empty())
                    stampa_foglietto(stampante, tabella, fogli[static_cast<std::size_t>(pagina - 1)], ordine);
                stampante.FontSize(kCorpo + 1);
                const float x = inizio_banda(stampante);
                stampante.PrintRight(x + kBanda, kPiede,
                                     "Pagina " + std::to_string(pagina) + " di " + std::to_string(pagine));
                if (pagina == pagine) stampa_legenda(stampante, kPiede, kLegenda);
                stampante.FontSize(10);
            }};
}

}  // namespace sortimetra
