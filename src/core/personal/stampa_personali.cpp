#include "personal/stampa_personali.h"

#include "results/risultato.h"
#include "text/testi.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

// From the head down, in mm.
constexpr float kTitolo = 28;
constexpr float kTesta = 36;
constexpr float kTitoli = 58;
constexpr float kPrimaRiga = 63;
constexpr float kRiga = 4;
constexpr std::int16_t kCorpo = 8;
/// Width of a character at that size; all are as wide as each other.
constexpr float kCarattere = 1.7F;
constexpr float kAria = 1.5F;
constexpr std::size_t kRigheVerticale = 50;
constexpr std::size_t kRigheOrizzontale = 30;
/// Lines that the summary needs beside its rows: an empty one, the titles.
constexpr std::size_t kRigheTitoli = 2;
constexpr float kBandaMassima = 277;

/// A column on paper: its title, its width in mm, and the column of the table.
struct ColonnaCarta {
    std::string titolo;
    float larga;
    std::size_t colonna;
};

float larghezza(std::size_t caratteri) {
    return kCarattere * static_cast<float>(caratteri) + kAria;
}

/// What a column of drawn numbers is called on paper.
std::string_view titolo_su_carta(std::string_view titolo) {
    return titolo == "Numeri Estratti" ? "Num." : titolo == "Combinazione" ? "Comb" : titolo;
}

/// The columns of a table, each as wide as its title and its longest cell. Draws are thousands of rows of
/// equal cells: the first and the last tell the width.
std::vector<ColonnaCarta> colonne_su_carta(const Tabella& tabella) {
    std::vector<ColonnaCarta> colonne;
    for (std::size_t c = 0; c < tabella.n_colonne(); ++c) {
        const std::string_view titolo = titolo_su_carta(tabella.titoli[0][c]);
        std::size_t caratteri = titolo.size();
        if (titolo == "Ruota") caratteri = kParolaNazionale.size();
        for (const std::size_t r : {std::size_t{0}, tabella.righe()})
            if (tabella.righe() > 0)
                caratteri = std::max(caratteri, tabella.testo(std::min(r, tabella.righe() - 1), c).size());
        colonne.push_back({std::string{titolo}, larghezza(caratteri), c});
    }
    return colonne;
}

float somma(std::span<const ColonnaCarta> colonne) {
    float s = 0;
    for (const ColonnaCarta& c : colonne) s += c.larga;
    return s;
}

/// One table at a place of the page: titles at `y`, then rows from `prima` on.
struct Riquadro {
    const Tabella* tabella;
    std::vector<ColonnaCarta> colonne;
    float x = 0;
};

void stampa_riquadro(EasyPrint& stampante, const Riquadro& riquadro, float y, std::size_t prima,
                     std::size_t righe) {
    float x = riquadro.x;
    std::string testo;
    for (const ColonnaCarta& c : riquadro.colonne) {
        stampante.FontBold(true);
        stampante.ForeColor(kBluScuro);
        stampante.PrintRight(x + c.larga, y, c.titolo);
        stampante.ForeColor(kNero);
        stampante.FontBold(false);
        for (std::size_t r = 0; r < righe; ++r) {
            testo.clear();
            riquadro.tabella->aggiungi_testo(testo, prima + r, c.colonna);
            const float riga = y + kPrimaRiga - kTitoli + kRiga * static_cast<float>(r);
            stampante.PrintRight(x + c.larga, riga, testo);
            if (riquadro.tabella->sfondo(prima + r, c.colonna) == kNessunColore) continue;
            stampante.DrawWidth(2);
            stampante.PrintShape(x + c.larga - larghezza(2) + 0.7F, riga - 0.2F, larghezza(2) - 0.4F,
                                 kRiga - 0.3F);
        }
        x += c.larga;
    }
}

/// The pieces of a text at the first `segno`.
std::pair<std::string, std::string> spezza(std::string_view testo, std::string_view segno) {
    const auto dove = testo.find(segno);
    if (dove == std::string_view::npos) return {std::string{testo}, ""};
    return {std::string{testo.substr(0, dove)}, std::string{testo.substr(dove + segno.size())}};
}

/// Everything that the pages need.
struct Piano {
    Intestazione testa;
    std::string numeri{};  ///< the numbers joined by ","
    Orientamento orientamento = Orientamento::verticale;
    std::size_t per_pagina = kRigheVerticale;
    Riquadro draws{};
    Riquadro misure{};     ///< of each number, beside the first draws
    Riquadro riepilogo{};  ///< null table: none
    std::size_t righe = 0;
    std::size_t pagine_draws = 1;
    bool riepilogo_a_parte = false;
    Riquadro serie{};
    std::size_t pagine_serie = 0;

    [[nodiscard]] int pagine() const {
        return static_cast<int>(pagine_draws + (riepilogo_a_parte ? 1 : 0) + pagine_serie);
    }
};

std::size_t pagine_di(std::size_t righe, std::size_t per_pagina) {
    return std::max<std::size_t>((righe + per_pagina - 1) / per_pagina, 1);
}

const Tabella* tabella_di(const Risultato& risultato, std::string_view nome) {
    const auto it = std::find_if(risultato.tabelle.begin(), risultato.tabelle.end(),
                                 [nome](const Tabella& t) { return t.nome == nome; });
    return it == risultato.tabelle.end() ? nullptr : &*it;
}

std::string numeri_scelti(const Tabella& numeri) {
    std::string testo;
    for (std::size_t r = 0; r < numeri.righe(); ++r) testo += (r == 0 ? "" : ",") + numeri.testo(r, 0);
    return testo;
}

/// Where the tables stand; `x` of the sheet's middle is found when a page is drawn.
Piano fai_piano(const MaterialeRapporto& materiale) {
    Piano p{.testa = materiale.testa};
    const Tabella& draws = materiale.risultato.tabelle[0];
    const Tabella& numeri = *tabella_di(materiale.risultato, "numeri");
    p.numeri = numeri_scelti(numeri);
    p.draws = {&draws, colonne_su_carta(draws)};
    p.misure = {&numeri, colonne_su_carta(numeri)};
    p.misure.x = somma(p.draws.colonne) + 2 * kAria;
    p.righe = std::max(draws.righe(), numeri.righe());
    if (p.misure.x + somma(p.misure.colonne) > kBanda) {
        p.orientamento = Orientamento::orizzontale;
        p.per_pagina = kRigheOrizzontale;
    }
    p.pagine_draws = pagine_di(p.righe, p.per_pagina);
    if (const Tabella* riepilogo = tabella_di(materiale.risultato, "riepilogo")) {
        p.riepilogo = {riepilogo, colonne_su_carta(*riepilogo)};
        const std::size_t libere = p.pagine_draws * p.per_pagina - p.righe;
        p.riepilogo_a_parte = libere < riepilogo->righe() + kRigheTitoli + 1;
    }
    if (const Tabella* serie = tabella_di(materiale.risultato, "serie")) {
        p.serie = {serie, colonne_su_carta(*serie)};
        p.pagine_serie = pagine_di(serie->righe(), p.per_pagina);
    }
    return p;
}

void stampa_testa_personali(EasyPrint& stampante, const Piano& p) {
    stampa_testa_propria(stampante, p.testa.ricerca, kTitolo, 13);
    const auto [da, a] = spezza(p.testa.concorsi, " - ");
    const auto [dal, al] = spezza(p.testa.date, "-");
    stampante.FontName("Courier New");
    stampante.FontSize(kCorpo + 1);
    std::string righe = "Ruote: " + p.testa.ruote + "\rConcorsi selezionati: dal concorso n. " + da;
    if (!dal.empty()) righe += " del " + dal;
    righe += " al concorso n. " + a;
    if (!al.empty()) righe += " del " + al;
    righe += "\rIntervallo: " + p.testa.intervallo + "\rNumeri Selezionati: " + p.numeri;
    stampante.PrintLeft(inizio_banda(stampante), kTesta, righe, 0, kBanda);
    stampante.FontSize(kCorpo);
}

/// Left edge of what is `larga` wide: the band's, or further out for a table wider than that.
float sinistra(const EasyPrint& stampante, float larga) {
    return larga <= kBanda ? inizio_banda(stampante)
                           : stampante.PageWidth() / 2 - std::min(larga, kBandaMassima) / 2;
}

void stampa_da(EasyPrint& stampante, Riquadro riquadro, float x, float y, std::size_t prima,
               std::size_t massimo) {
    if (riquadro.tabella == nullptr || (prima > 0 && prima >= riquadro.tabella->righe())) return;
    riquadro.x += x;
    stampa_riquadro(stampante, riquadro, y, prima, std::min(massimo, riquadro.tabella->righe() - prima));
}

void stampa_pagina(EasyPrint& stampante, const Piano& p, int pagina) {
    stampa_testa_personali(stampante, p);
    const auto i = static_cast<std::size_t>(pagina - 1);
    if (i < p.pagine_draws) {
        const float x = sinistra(stampante, p.misure.x + somma(p.misure.colonne));
        stampa_da(stampante, p.draws, x, kTitoli, i * p.per_pagina, p.per_pagina);
        stampa_da(stampante, p.misure, x, kTitoli, i * p.per_pagina, p.per_pagina);
    }
    const bool ultima = i + 1 == p.pagine_draws + (p.riepilogo_a_parte ? 1 : 0);
    if (ultima && p.riepilogo.tabella != nullptr) {
        const std::size_t occupate = p.riepilogo_a_parte ? 0 : p.righe - i * p.per_pagina + kRigheTitoli;
        stampa_da(stampante, p.riepilogo, sinistra(stampante, 0),
                  kTitoli + kRiga * static_cast<float>(occupate), 0, p.per_pagina);
    }
    const std::size_t prima_serie = p.pagine_draws + (p.riepilogo_a_parte ? 1 : 0);
    if (i >= prima_serie)
        stampa_da(stampante, p.serie, sinistra(stampante, somma(p.serie.colonne)), kTitoli,
                  (i - prima_serie) * p.per_pagina, p.per_pagina);
    stampante.FontName("Arial");
    stampante.FontSize(10);
    stampa_piede(stampante, pagina, p.pagine());
}

Rapporto rapporto_di(const Piano& piano) {
    return {
        .titolo = piano.testa.ricerca,
        .orientamento = piano.orientamento,
        .pagine = piano.pagine(),
        .disegna = [piano](EasyPrint& stampante, int pagina) { stampa_pagina(stampante, piano, pagina); }};
}

}  // namespace

Rapporto rapporto_personali(const MaterialeRapporto& materiale) {
    if (tabella_di(materiale.risultato, "numeri") == nullptr) return rapporto_tabelle(materiale);
    if (tabella_di(materiale.risultato, "risultati") == nullptr) return rapporto_serie(materiale);
    return rapporto_di(fai_piano(materiale));
}

Rapporto rapporto_serie(const MaterialeRapporto& materiale) {
    if (tabella_di(materiale.risultato, "serie") == nullptr) return rapporto_tabelle(materiale);
    Piano piano = fai_piano(materiale);
    piano.pagine_draws = 0;
    piano.riepilogo_a_parte = false;
    piano.riepilogo.tabella = nullptr;
    return rapporto_di(piano);
}

}  // namespace sortimetra
