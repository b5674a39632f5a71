#include "tools/stampa_ciclometria.h"

#include "results/risultato.h"
#include "tools/ciclometria.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace sortimetra {

namespace {

constexpr float kTitolo = 32;
constexpr float kPrimaTabella = 44;
constexpr float kTraTabelle = 76;
constexpr float kRiga = 5.4F;
constexpr float kColonnaRuote = 40;
/// From the top of a cell to that of its text.
constexpr float kAria = 0.8F;

/// Where the columns of a table stand: the wheels, then the places, as wide in all tables.
struct Colonne {
    float sinistra;
    float larga;
    [[nodiscard]] float inizio(std::size_t colonna) const {
        return colonna == 0 ? sinistra : sinistra + kColonnaRuote + larga * static_cast<float>(colonna - 1);
    }
    [[nodiscard]] float larghezza(std::size_t colonna) const { return colonna == 0 ? kColonnaRuote : larga; }
};

bool e_isotopo(const Tabella& tabella, std::size_t riga, std::size_t colonna) {
    return std::find(kPaletta.begin(), kPaletta.end(), tabella.sfondo(riga, colonna)) != kPaletta.end();
}

void stampa_righe(EasyPrint& stampante, const Tabella& tabella, const Colonne& colonne, float cima) {
    for (std::size_t c = 0; c < tabella.n_colonne(); ++c) {
        const float centro = colonne.inizio(c) + colonne.larghezza(c) / 2;
        for (std::size_t r = 0; r < tabella.righe(); ++r) {
            const float y = cima + kRiga * static_cast<float>(r);
            const bool isotopo = e_isotopo(tabella, r, c);
            if (isotopo)
                stampa_fondo(stampante, tabella.sfondo(r, c), colonne.inizio(c), y, colonne.larghezza(c),
                             kRiga);
            // The shade is not the only sign.
            stampante.FontBold(isotopo || c == 0);
            if (c == 0)
                stampante.PrintLeft(colonne.inizio(0) + 3, y + kAria, tabella.testo(r, c));
            else
                stampante.PrintCentre(centro, y + kAria, tabella.testo(r, c));
        }
    }
    stampante.FontBold(false);
}

void stampa_tabella(EasyPrint& stampante, const Tabella& tabella, float cima) {
    const float sinistra = inizio_banda(stampante);
    const Colonne colonne{sinistra, (kBanda - kColonnaRuote) / static_cast<float>(tabella.n_colonne() - 1)};
    stampante.FontBold(true);
    stampante.ForeColor(kBluScuro);
    stampante.PrintCentre(sinistra + kBanda / 2, cima + kAria, tabella.titoli[0][0]);
    for (std::size_t c = 1; c < tabella.n_colonne(); ++c)
        stampante.PrintCentre(colonne.inizio(c) + colonne.larghezza(c) / 2, cima + kRiga + kAria,
                              tabella.titoli[1][c]);
    stampante.ForeColor(kNero);
    stampante.FontBold(false);
    stampa_righe(stampante, tabella, colonne, cima + 2 * kRiga);

    const auto righe = static_cast<float>(tabella.righe());
    stampante.DrawWidth(1);
    for (std::size_t r = 1; r < tabella.righe(); r += 2)
        stampante.PrintShape(sinistra, cima + kRiga * static_cast<float>(r + 2), kBanda, kRiga);
    stampante.DrawWidth(3);
    for (std::size_t c = 0; c < tabella.n_colonne(); ++c)
        stampante.PrintShape(colonne.inizio(c), cima + kRiga, colonne.larghezza(c), kRiga * (righe + 1));
    stampante.PrintShape(sinistra, cima, kBanda, kRiga * (righe + 2));
}

}  // namespace

Rapporto stampa_ciclometria(const MaterialeRapporto& materiale) {
    constexpr std::size_t kTabelle = 3;
    if (materiale.risultato.tabelle.size() != kTabelle) return rapporto_tabelle(materiale);
    return {.titolo = materiale.testa.ricerca,
            .disegna = [&risultato = materiale.risultato, titolo = materiale.testa.ricerca](
                           EasyPrint& stampante, int) {
                stampa_testa_propria(stampante, titolo, kTitolo, 13);
                stampante.FontSize(10);
                float cima = kPrimaTabella;
                for (const Tabella& tabella : risultato.tabelle) {
                    stampa_tabella(stampante, tabella, cima);
                    cima += kTraTabelle;
                }
                stampa_piede(stampante, 1, 1);
            }};
}

}  // namespace sortimetra
