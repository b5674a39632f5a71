#include "positional/stampa_tabellone.h"

#include "draws/ruote.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

constexpr float kDidascalia = 28;  ///< top of the caption
constexpr float kColonnaRitardo = 12;
/// From a column title's top to the first row.
constexpr float kAltezzaTitolo = 5;

// The Lotto board on a lying sheet.
constexpr float kMargineLotto = 10;
constexpr float kTitoliLotto = 35;
constexpr float kRigaLotto = 3.9F;
constexpr std::int16_t kCorpoLotto = 8;

// The others on an upright one: two blocks.
constexpr std::size_t kRigheBloccoTabellone = kRighePaginaTabellone2 / 2;
constexpr float kTitoliBlocco = 35;
constexpr float kRigaBlocco = 4.25F;
constexpr float kLarghezzaBlocco = 92.5F;
constexpr float kTraBlocchi = 97.5F;
constexpr float kColonnaMassima = 10;
/// A board that one block holds has the band to itself.
constexpr float kColonnaMassimaSola = 14;
constexpr std::int16_t kCorpoBlocco = 8;

/// A title over some columns, counted from 0 without the delay's.
struct TitoloColonne {
    std::string_view testo;
    std::size_t prima;
    std::size_t quante;
};

void didascalia(EasyPrint& stampante, std::string_view titolo, int pagina, int pagine) {
    std::string testo{titolo};
    testo += "  (pag. " + std::to_string(pagina) + " di " + std::to_string(pagine) + ")";
    stampa_testa_propria(stampante, testo, kDidascalia, 11);
}

/// Rows of a board at (`x`, `y`): the delay, then the columns, each `larga` wide; titles over them, a frame
/// round each group that a title names.
void stampa_righe(EasyPrint& stampante, const Tabella& tabella, std::size_t prima_riga, std::size_t righe,
                  std::span<const TitoloColonne> titoli, float x, float y, float larga, float riga) {
    const auto sinistra = [&](std::size_t colonna) {
        return x + kColonnaRitardo + larga * static_cast<float>(colonna);
    };
    stampante.FontBold(true);
    stampante.ForeColor(kBluScuro);
    stampante.PrintCentre(x + kColonnaRitardo / 2, y, "Rit.");
    for (const TitoloColonne& t : titoli)
        stampante.PrintCentre(sinistra(t.prima) + larga * static_cast<float>(t.quante) / 2, y, t.testo);
    stampante.ForeColor(kNero);
    const float cima = y + kAltezzaTitolo;
    std::string testo;
    for (std::size_t c = 0; c < tabella.n_colonne(); ++c) {
        stampante.FontBold(c == 0);
        const float centro = c == 0 ? x + kColonnaRitardo / 2 : sinistra(c - 1) + larga / 2;
        for (std::size_t r = 0; r < righe; ++r) {
            testo.clear();
            tabella.aggiungi_testo(testo, prima_riga + r, c);
            if (!testo.empty())
                stampante.PrintCentre(centro, cima + riga * static_cast<float>(r) + 0.25F, testo);
        }
    }
    stampante.FontBold(false);
    const float larghezza = sinistra(tabella.n_colonne() - 1) - x;
    const float altezza = riga * static_cast<float>(righe);
    stampante.DrawWidth(1);
    for (std::size_t r = 1; r < righe; r += 2)
        stampante.PrintShape(x, cima + riga * static_cast<float>(r), larghezza, riga);
    stampante.DrawWidth(3);
    stampante.PrintShape(x, cima, kColonnaRitardo, altezza);
    for (const TitoloColonne& t : titoli)
        stampante.PrintShape(sinistra(t.prima), cima, larga * static_cast<float>(t.quante), altezza);
}

/// The merged titles of the table's first title row.
std::vector<TitoloColonne> titoli_di(const Tabella& tabella) {
    std::vector<TitoloColonne> titoli;
    const auto& riga = tabella.titoli.front();
    for (std::size_t c = 1; c < riga.size(); ++c) {
        if (!riga[c].empty() || titoli.empty())
            titoli.push_back({riga[c], c - 1, 1});
        else
            ++titoli.back().quante;
    }
    return titoli;
}

int pagine_di(std::size_t righe, std::size_t per_pagina) {
    return static_cast<int>(std::max<std::size_t>((righe + per_pagina - 1) / per_pagina, 1));
}

bool e_tabellone(const Risultato& risultato) {
    return !risultato.tabelle.empty() && !risultato.tabelle[0].titoli.empty() &&
           risultato.tabelle[0].n_colonne() > 1;
}

Rapporto a_blocchi(const MaterialeRapporto& materiale, std::vector<TitoloColonne> titoli) {
    const Tabella& tabella = materiale.risultato.tabelle[0];
    const int pagine = pagine_di(tabella.righe(), kRighePaginaTabellone2);
    const bool solo = tabella.righe() <= kRigheBloccoTabellone;
    const auto colonne = static_cast<float>(tabella.n_colonne() - 1);
    const float larga = std::min(((solo ? kBanda : kLarghezzaBlocco) - kColonnaRitardo) / colonne,
                                 solo ? kColonnaMassimaSola : kColonnaMassima);
    const float rientro = solo ? (kBanda - kColonnaRitardo - larga * colonne) / 2 : 0;
    return {.titolo = materiale.testa.ricerca,
            .pagine = pagine,
            .disegna = [&tabella, pagine, larga, rientro, titolo = materiale.testa.ricerca,
                        titoli = std::move(titoli)](EasyPrint& stampante, int pagina) {
                didascalia(stampante, titolo, pagina, pagine);
                stampante.FontSize(kCorpoBlocco);
                for (std::size_t b = 0; b < 2; ++b) {
                    const std::size_t prima = static_cast<std::size_t>(pagina - 1) * kRighePaginaTabellone2 +
                                              b * kRigheBloccoTabellone;
                    if (b > 0 && prima >= tabella.righe()) break;
                    stampa_righe(stampante, tabella, prima,
                                 std::min(kRigheBloccoTabellone, tabella.righe() - prima), titoli,
                                 inizio_banda(stampante) + rientro + kTraBlocchi * static_cast<float>(b),
                                 kTitoliBlocco, larga, kRigaBlocco);
                }
                stampante.FontSize(10);
            }};
}

}  // namespace

Rapporto stampa_tab_pos(const MaterialeRapporto& materiale) {
    if (!e_tabellone(materiale.risultato)) return rapporto_tabelle(materiale);
    const Tabella& tabella = materiale.risultato.tabelle[0];
    const int pagine = pagine_di(tabella.righe(), kRighePaginaTabellone);
    return {
        .titolo = materiale.testa.ricerca,
        .orientamento = Orientamento::orizzontale,
        .pagine = pagine,
        .disegna = [&tabella, pagine, titolo = materiale.testa.ricerca](EasyPrint& stampante, int pagina) {
            didascalia(stampante, titolo, pagina, pagine);
            stampante.FontSize(kCorpoLotto);
            const std::size_t prima = static_cast<std::size_t>(pagina - 1) * kRighePaginaTabellone;
            const float larga = (stampante.PageWidth() - 2 * kMargineLotto - kColonnaRitardo) /
                                static_cast<float>(tabella.n_colonne() - 1);
            stampa_righe(stampante, tabella, prima, std::min(kRighePaginaTabellone, tabella.righe() - prima),
                         titoli_di(tabella), kMargineLotto, kTitoliLotto, larga, kRigaLotto);
            stampante.FontSize(10);
        }};
}

Rapporto stampa_tab_pos_s2(const MaterialeRapporto& materiale) {
    if (!e_tabellone(materiale.risultato)) return rapporto_tabelle(materiale);
    auto titoli = titoli_di(materiale.risultato.tabelle[0]);
    // Six names of their own are told short; the archive's code of Roma is another one.
    constexpr std::string_view kCorte[]{"BA", "FI", "MI", "NA", "PA", "RO"};
    if (titoli.size() == std::size(kCorte))
        for (std::size_t i = 0; i < titoli.size(); ++i) titoli[i].testo = kCorte[i];
    return a_blocchi(materiale, std::move(titoli));
}

Rapporto stampa_tab_pos_10(const MaterialeRapporto& materiale) {
    if (!e_tabellone(materiale.risultato)) return rapporto_tabelle(materiale);
    return a_blocchi(materiale, titoli_di(materiale.risultato.tabelle[0]));
}

Rapporto stampa_10_num(const MaterialeRapporto& materiale) {
    constexpr std::size_t kGruppi = 12;
    constexpr std::size_t kPosti = 10;
    constexpr std::size_t kGruppiFila = 6;
    if (materiale.risultato.tabelle.empty() || materiale.risultato.tabelle[0].righe() != kGruppi * kPosti)
        return rapporto_tabelle(materiale);
    return {.titolo = materiale.testa.ricerca,
            .orientamento = Orientamento::orizzontale,
            .disegna = [&tabella = materiale.risultato.tabelle[0], titolo = materiale.testa.ricerca](
                           EasyPrint& stampante, int) {
                constexpr float kPrimaFila = 42;
                constexpr float kTraFile = 75;
                constexpr float kRiga = 5;
                constexpr float kSpazio = 2;  // right of each group
                constexpr float kGruppo = kBanda / kGruppiFila;
                stampa_testa_propria(stampante, titolo, 31, 12);
                stampante.FontSize(10);
                const float inizio = inizio_banda(stampante);
                for (std::size_t g = 0; g < kGruppi; ++g) {
                    const float x = inizio + kGruppo * static_cast<float>(g % kGruppiFila);
                    const std::size_t fila = g / kGruppiFila;
                    const float y = kPrimaFila + kTraFile * static_cast<float>(fila);
                    const float larga = kGruppo - kSpazio;
                    const auto centro = [&](std::size_t c) { return x + larga * (c == 0 ? 0.28F : 0.72F); };
                    stampante.FontBold(true);
                    stampante.ForeColor(kBluScuro);
                    stampante.PrintCentre(x + larga / 2, y, tabella.testo(g * kPosti, 0));
                    for (std::size_t c = 0; c < 2; ++c)
                        stampante.PrintCentre(centro(c), y + kRiga, tabella.titoli.back()[2 + c]);
                    for (std::size_t c = 0; c < 2; ++c) {
                        stampante.FontBold(c == 0);
                        for (std::size_t p = 0; p < kPosti; ++p) {
                            const std::size_t riga = g * kPosti + p;
                            const Colore colore = tabella.primo_piano(riga, 2 + c);
                            stampante.ForeColor(colore == kNessunColore ? kNero : colore);
                            stampante.PrintCentre(centro(c), y + kRiga * static_cast<float>(2 + p),
                                                  tabella.testo(riga, 2 + c));
                        }
                    }
                    stampante.ForeColor(kNero);
                    stampante.FontBold(false);
                    stampante.DrawWidth(3);
                    stampante.PrintShape(x, y - 1, larga, 2 * kRiga);
                    stampante.PrintShape(x, y - 1, larga, kRiga * static_cast<float>(2 + kPosti) + 0.5F);
                }
            }};
}

}  // namespace sortimetra
