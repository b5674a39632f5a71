#include "tools/stampa_spia.h"

#include "results/risultato.h"
#include "tools/spia.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace sortimetra {

namespace {

constexpr float kTitoli = 58;
constexpr float kPrimaRiga = 63;
constexpr float kRigaSpia = 4.25F;
constexpr std::array<float, 6> kLarghezze{22, 26, 38, 30, 30, 44};  ///< the band in all

// The legends, between the last row and the page's number.
constexpr float kLegenda = 257;
constexpr float kRigaLegenda = 3.3F;
constexpr float kCampione = 2.4F;  ///< side of a shade's sample
constexpr float kRientro = 4;
constexpr std::int16_t kCorpoLegenda = 7;

struct VoceLegenda {
    Colore colore;
    std::string_view testo;
};
constexpr std::array<VoceLegenda, 4> kVoci{{{kNessunColore, kLegendaPercento1},
                                            {kNessunColore, kLegendaPercento2},
                                            {kSfondoInAttesa, kLegendaRosso},
                                            {kSfondoSeguita, kLegendaVerde}}};

/// Writes a text in lines no wider than `larghezza`, broken between words; returns where the next line goes.
float scrivi_a_capo(EasyPrint& stampante, std::string_view testo, float x, float y, float larghezza) {
    while (!testo.empty()) {
        std::size_t fine = testo.size();
        while (stampante.TextWidth(testo.substr(0, fine)) > larghezza) {
            const auto spazio = testo.rfind(' ', fine - 1);
            if (spazio == std::string_view::npos || spazio == 0) break;
            fine = spazio;
        }
        stampante.PrintLeft(x, y, testo.substr(0, fine));
        testo.remove_prefix(std::min(fine + 1, testo.size()));
        y += kRigaLegenda;
    }
    return y;
}

void stampa_legende(EasyPrint& stampante, float x) {
    stampante.FontSize(kCorpoLegenda);
    float y = kLegenda;
    for (const VoceLegenda& voce : kVoci) {
        if (voce.colore != kNessunColore)
            stampa_fondo(stampante, voce.colore, x, y + 0.3F, kCampione, kCampione);
        y = scrivi_a_capo(stampante, voce.testo, x + kRientro, y, kBanda - kRientro);
    }
    stampante.FontSize(10);
}

void stampa_colonna(EasyPrint& stampante, const MaterialeRapporto& materiale, std::size_t prima_riga,
                    std::size_t colonna, float x) {
    const Tabella& tabella = materiale.risultato.tabelle[0];
    const float larga = kLarghezze[colonna];
    const std::size_t righe = std::min(kRighePaginaSpia, tabella.righe() - prima_riga);
    stampante.FontBold(true);
    stampante.ForeColor(kBluScuro);
    stampante.PrintCentre(x + larga / 2, kTitoli, tabella.titoli[0][colonna]);
    stampante.ForeColor(colonna == 0 ? kBlu : kNero);
    for (std::size_t r = 0; r < righe; ++r) {
        const std::size_t riga = riga_in_griglia(tabella, prima_riga + r, materiale.ordine);
        const float y = kPrimaRiga + kRigaSpia * static_cast<float>(r);
        const Colore fondo = tabella.sfondo(riga, colonna);
        const bool segnata = fondo != kNessunColore && fondo != kSfondoLontana;
        if (segnata) stampa_fondo(stampante, fondo, x, y, larga, kRigaSpia);
        stampante.FontBold(segnata || colonna == 0);
        stampante.PrintCentre(x + larga / 2, y + 0.25F, tabella.testo(riga, colonna));
    }
    stampante.FontBold(false);
    stampante.ForeColor(kNero);
}

void stampa_cornici(EasyPrint& stampante, std::size_t righe, float x) {
    stampante.DrawWidth(1);
    for (std::size_t r = 1; r < righe; r += 2)
        stampante.PrintShape(x, kPrimaRiga + kRigaSpia * static_cast<float>(r), kBanda, kRigaSpia);
    stampante.DrawWidth(4);
    float larga = 0;
    for (const float w : kLarghezze) {
        larga += w;
        stampante.PrintShape(x, kPrimaRiga, larga, kRigaSpia * static_cast<float>(righe));
    }
}

}  // namespace

Rapporto stampa_spia(const MaterialeRapporto& materiale) {
    const auto& tabelle = materiale.risultato.tabelle;
    if (tabelle.empty() || tabelle[0].n_colonne() != kLarghezze.size()) return rapporto_tabelle(materiale);
    const std::size_t righe = tabelle[0].righe();
    const int pagine =
        static_cast<int>(std::max<std::size_t>((righe + kRighePaginaSpia - 1) / kRighePaginaSpia, 1));
    return {.titolo = materiale.testa.ricerca,
            .pagine = pagine,
            .disegna = [&risultato = materiale.risultato, pagine, righe, testa = materiale.testa,
                        ordine = std::vector(materiale.ordine.begin(), materiale.ordine.end())](
                           EasyPrint& stampante, int pagina) {
                stampa_intestazione(stampante, testa);
                const std::size_t prima = static_cast<std::size_t>(pagina - 1) * kRighePaginaSpia;
                const float sinistra = inizio_banda(stampante);
                float x = sinistra;
                for (std::size_t c = 0; c < kLarghezze.size(); ++c) {
                    stampa_colonna(stampante, {risultato, testa, ordine}, prima, c, x);
                    x += kLarghezze[c];
                }
                stampa_cornici(stampante, std::min(kRighePaginaSpia, righe - prima), sinistra);
                stampa_legende(stampante, sinistra);
                stampa_piede(stampante, pagina, pagine);
            }};
}

}  // namespace sortimetra
