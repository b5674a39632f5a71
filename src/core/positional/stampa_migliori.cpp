#include "positional/stampa_migliori.h"

#include <cstddef>
#include <string>

namespace sortimetra {

namespace {

constexpr float kTitolo = 29;
constexpr float kRigaRuote = 35;
constexpr float kPrimaScheda = 43;
constexpr float kTraSchede = 29.5F;
constexpr float kAltezzaScheda = 27;
constexpr float kLarghezzaScheda = 93;
constexpr float kTraColonne = 97;
constexpr float kRiga = 5;
constexpr float kMargine = 4;

}  // namespace

Rapporto stampa_migliori(const MaterialeRapporto& materiale) {
    if (materiale.risultato.tabelle.empty()) return rapporto_tabelle(materiale);
    return {.titolo = materiale.testa.ricerca,
            .disegna = [&tabella = materiale.risultato.tabelle[0], testa = materiale.testa](
                           EasyPrint& stampante, int) {
                stampa_testa_propria(stampante, testa.ricerca, kTitolo, 13);
                stampante.FontSize(10);
                stampante.PrintCentre(stampante.PageWidth() / 2, kRigaRuote, "Ruote: " + testa.ruote, kBanda);
                stampante.DrawWidth(2);
                std::size_t scheda = 0;
                for (std::size_t r = 0; r < tabella.righe(); ++scheda) {
                    const std::string famiglia = tabella.testo(r, 0);
                    const float x = inizio_banda(stampante) + kTraColonne * static_cast<float>(scheda % 2);
                    const std::size_t fila = scheda / 2;
                    const float cima = kPrimaScheda + kTraSchede * static_cast<float>(fila);
                    stampante.PrintShape(x, cima, kLarghezzaScheda, kAltezzaScheda, 2);
                    stampante.FontBold(true);
                    stampante.ForeColor(kBluScuro);
                    stampante.PrintLeft(x + kMargine, cima + 2, famiglia);
                    stampante.ForeColor(kNero);
                    float y = cima + 2 + kRiga + 1;
                    for (; r < tabella.righe() && tabella.testo(r, 0) == famiglia; ++r, y += kRiga) {
                        stampante.FontBold(false);
                        stampante.PrintLeft(x + kMargine, y, tabella.testo(r, 1), 0, 65);
                        stampante.FontBold(true);
                        stampante.PrintRight(x + kLarghezzaScheda - kMargine, y, tabella.testo(r, 2));
                    }
                    stampante.FontBold(false);
                }
            }};
}

}  // namespace sortimetra
