#include "positional/stampa_migliori.h"

#include "positional/stampa_tabellone.h"
#include "results/risultato.h"

#include <cstddef>
#include <string>
#include <vector>

namespace sortimetra {

namespace {

constexpr float kTitolo = 29;
constexpr float kRigaRuote = 35;
constexpr float kPrimaScheda = 42;

/// Cards side by side on the band, in mm.
struct Schede {
    std::size_t per_fila = 2;
    float larga = 93;
    float tra_colonne = 97;
    float alta = 27;
    float tra_file = 29.5F;
    float riga = 5;
    float margine = 4;
    std::int16_t corpo = 10;
};
/// A page with nothing but its cards, some with groups of ten numbers.
constexpr Schede kSoleSchede{};
/// One that has the ten most delayed numbers under them: three smaller ones in a row.
constexpr Schede kConLista{.per_fila = 3,
                           .larga = 62,
                           .tra_colonne = 64,
                           .alta = 19.5F,
                           .tra_file = 21,
                           .riga = 4.25F,
                           .margine = 3,
                           .corpo = 9};

/// One family's card; `r` goes on to the next family's first row.
void stampa_scheda(EasyPrint& stampante, const Schede& schede, const Tabella& tabella, std::size_t& r,
                   std::size_t scheda) {
    const std::string famiglia = tabella.testo(r, 0);
    const float x =
        inizio_banda(stampante) + schede.tra_colonne * static_cast<float>(scheda % schede.per_fila);
    const std::size_t fila = scheda / schede.per_fila;
    const float cima = kPrimaScheda + schede.tra_file * static_cast<float>(fila);
    stampante.PrintShape(x, cima, schede.larga, schede.alta, 2);
    stampante.FontBold(true);
    stampante.ForeColor(kBluScuro);
    stampante.PrintLeft(x + schede.margine, cima + 1.2F, famiglia);
    stampante.ForeColor(kNero);
    const float posto = schede.larga - 2 * schede.margine;
    float y = cima + 1.7F + schede.riga;
    for (; r < tabella.righe() && tabella.testo(r, 0) == famiglia; ++r, y += schede.riga) {
        stampante.FontBold(true);
        const std::string ritardo = tabella.testo(r, 2);
        stampante.PrintRight(x + schede.larga - schede.margine, y, ritardo);
        const float largo = stampante.TextWidth(ritardo);
        stampante.FontBold(false);
        stampante.PrintLeft(x + schede.margine, y, tabella.testo(r, 1), 0, posto - largo - 1);
    }
}

/// The list under the cards, with the screen's heading.
void stampa_lista(EasyPrint& stampante, const Tabella& lista, float y) {
    const float x = inizio_banda(stampante);
    stampante.FontBold(true);
    stampante.ForeColor(kBluScuro);
    stampante.PrintLeft(x, y,
                        "I 10 numeri più in ritardo su ogni ruota («Tutte» all'ultima estrazione "
                        "dell'archivio)",
                        0, kBanda);
    stampante.ForeColor(kNero);
    stampante.FontBold(false);
    stampa_lista_dieci(stampante, lista,
                       {.x = x, .y = y + 5.5F, .larga = kBanda, .riga = 4, .tra_fasce = 50.5F, .spazio = 2});
}

}  // namespace

Rapporto stampa_migliori(const MaterialeRapporto& materiale) {
    if (materiale.risultato.tabelle.empty()) return rapporto_tabelle(materiale);
    return {
        .titolo = materiale.testa.ricerca,
        .disegna = [&risultato = materiale.risultato, testa = materiale.testa](EasyPrint& stampante, int) {
            const Tabella& tabella = risultato.tabelle[0];
            const Tabella* lista = !risultato.allegati.empty() && e_lista_dieci(risultato.allegati[0])
                                       ? risultato.allegati.data()
                                       : nullptr;
            const Schede& schede = lista != nullptr ? kConLista : kSoleSchede;
            stampa_testa_propria(stampante, testa.ricerca, kTitolo, 13);
            stampante.FontSize(10);
            stampante.PrintCentre(stampante.PageWidth() / 2, kRigaRuote, "Ruote: " + testa.ruote, kBanda);
            stampante.DrawWidth(2);
            stampante.FontSize(schede.corpo);
            std::size_t scheda = 0;
            for (std::size_t r = 0; r < tabella.righe(); ++scheda)
                stampa_scheda(stampante, schede, tabella, r, scheda);
            const std::size_t file = (scheda + schede.per_fila - 1) / schede.per_fila;
            if (lista != nullptr)
                stampa_lista(stampante, *lista,
                             kPrimaScheda + schede.tra_file * static_cast<float>(file) + 0.5F);
            stampante.FontSize(10);
            stampa_piede(stampante, 1, 1);
        }};
}

}  // namespace sortimetra
