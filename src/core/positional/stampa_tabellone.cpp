#include "positional/stampa_tabellone.h"

#include "positional/tabellone.h"
#include "results/risultato.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

constexpr float kDidascalia = 28;  ///< top of the caption

// The Lotto board on a lying sheet: forty rows between the caption and the foot.
constexpr float kTitoliLotto = 33;
constexpr float kRigaLotto = 3.83F;
constexpr float kColonnaRitardoLotto = 10;
constexpr float kTraRuote = 1.5F;

// The others on an upright one: two blocks of 57 rows.
constexpr std::size_t kRigheBloccoTabellone = kRighePaginaTabellone2 / 2;
constexpr float kTitoliBlocco = 34;
constexpr float kRigaBlocco = 4.2F;
constexpr float kColonnaRitardo = 12;
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

/// Where a board, or a block of one, stands, in mm, and how it is set.
struct Posa {
    float x = 0;
    float y = 0;  ///< top of the titles
    float ritardo = kColonnaRitardo;
    float larga = 0;   ///< of a column of numbers
    float spazio = 0;  ///< before each group of columns
    float riga = 0;
    std::int16_t corpo = kCorpoBlocco;
    bool posti = false;  ///< the places are numbered under their title
};

/// Some rows of a board.
struct Righe {
    const Tabella& tabella;
    std::size_t prima = 0;
    std::size_t quante = 0;
};

void didascalia(EasyPrint& stampante, std::string_view titolo, int pagina, int pagine) {
    std::string testo{titolo};
    testo += "  (pag. " + std::to_string(pagina) + " di " + std::to_string(pagine) + ")";
    stampa_testa_propria(stampante, testo, kDidascalia, 11);
}

void piede(EasyPrint& stampante, int pagina, int pagine) {
    stampante.FontSize(10);
    stampa_piede(stampante, pagina, pagine);
}

/// A board's titles, cells and frames.
class DisegnoTabellone {
  public:
    DisegnoTabellone(EasyPrint& stampante, const Posa& posa, std::span<const TitoloColonne> titoli)
        : p_{stampante}, posa_{posa}, titoli_{titoli} {}

    void disegna(const Righe& righe) {
        const float cima = scrivi_titoli();
        scrivi_celle(righe, cima);
        incornicia(righe.quante, cima);
    }

  private:
    /// Left edge of a column of numbers, by its group.
    [[nodiscard]] float sinistra(std::size_t gruppo, std::size_t colonna) const {
        return posa_.x + posa_.ritardo + posa_.spazio * static_cast<float>(gruppo + 1) +
               posa_.larga * static_cast<float>(colonna);
    }
    [[nodiscard]] float larghezza(const TitoloColonne& t) const {
        return posa_.larga * static_cast<float>(t.quante);
    }

    /// Returns the top of the first row.
    float scrivi_titoli() {
        p_.FontSize(posa_.corpo);
        p_.FontBold(true);
        p_.ForeColor(kBluScuro);
        float y = posa_.y;
        const float alta = p_.TextHeight("0");
        p_.PrintCentre(posa_.x + posa_.ritardo / 2, posa_.posti ? y + alta : y, "Rit.");
        for (std::size_t g = 0; g < titoli_.size(); ++g)
            p_.PrintCentre(sinistra(g, titoli_[g].prima) + larghezza(titoli_[g]) / 2, y, titoli_[g].testo);
        y += alta;
        p_.FontBold(false);
        if (posa_.posti) {
            for (std::size_t g = 0; g < titoli_.size(); ++g)
                for (std::size_t c = 0; c < titoli_[g].quante; ++c)
                    p_.PrintCentre(sinistra(g, titoli_[g].prima + c) + posa_.larga / 2, y,
                                   std::to_string(c + 1));
            y += alta;
        }
        p_.ForeColor(kNero);
        return y + 0.3F;
    }

    void scrivi_celle(const Righe& righe, float cima) {
        std::string testo;
        const float agio = std::max((posa_.riga - p_.TextHeight("0")) / 2, 0.0F);
        const auto colonna = [&](std::size_t c, float centro) {
            for (std::size_t r = 0; r < righe.quante; ++r) {
                testo.clear();
                righe.tabella.aggiungi_testo(testo, righe.prima + r, c);
                if (!testo.empty())
                    p_.PrintCentre(centro, cima + posa_.riga * static_cast<float>(r) + agio, testo);
            }
        };
        p_.FontBold(true);
        colonna(0, posa_.x + posa_.ritardo / 2);
        p_.FontBold(false);
        for (std::size_t g = 0; g < titoli_.size(); ++g)
            for (std::size_t c = titoli_[g].prima; c < titoli_[g].prima + titoli_[g].quante; ++c)
                colonna(c + 1, sinistra(g, c) + posa_.larga / 2);
    }

    /// Light frames round every second row, strong ones round the delays and each group.
    void incornicia(std::size_t righe, float cima) {
        const auto colonna = [&](float x, float larga) {
            p_.DrawWidth(1);
            for (std::size_t r = 1; r < righe; r += 2)
                p_.PrintShape(x, cima + posa_.riga * static_cast<float>(r), larga, posa_.riga);
            p_.DrawWidth(3);
            p_.PrintShape(x, cima, larga, posa_.riga * static_cast<float>(righe));
        };
        colonna(posa_.x, posa_.ritardo);
        for (std::size_t g = 0; g < titoli_.size(); ++g)
            colonna(sinistra(g, titoli_[g].prima), larghezza(titoli_[g]));
    }

    EasyPrint& p_;
    Posa posa_;
    std::span<const TitoloColonne> titoli_;
};

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
    Posa posa{.y = kTitoliBlocco, .riga = kRigaBlocco};
    posa.larga = std::min(((solo ? kBanda : kLarghezzaBlocco) - kColonnaRitardo) / colonne,
                          solo ? kColonnaMassimaSola : kColonnaMassima);
    const float rientro = solo ? (kBanda - kColonnaRitardo - posa.larga * colonne) / 2 : 0;
    return {.titolo = materiale.testa.ricerca,
            .pagine = pagine,
            .disegna = [&tabella, pagine, posa, rientro, titolo = materiale.testa.ricerca,
                        titoli = std::move(titoli)](EasyPrint& stampante, int pagina) {
                didascalia(stampante, titolo, pagina, pagine);
                for (std::size_t b = 0; b < 2; ++b) {
                    const std::size_t prima = static_cast<std::size_t>(pagina - 1) * kRighePaginaTabellone2 +
                                              b * kRigheBloccoTabellone;
                    if (b > 0 && prima >= tabella.righe()) break;
                    Posa blocco = posa;
                    blocco.x = inizio_banda(stampante) + rientro + kTraBlocchi * static_cast<float>(b);
                    DisegnoTabellone{stampante, blocco, titoli}.disegna(
                        {tabella, prima, std::min(kRigheBloccoTabellone, tabella.righe() - prima)});
                }
                piede(stampante, pagina, pagine);
            }};
}

}  // namespace

Rapporto stampa_tab_pos(const MaterialeRapporto& materiale) {
    if (!e_tabellone(materiale.risultato)) return rapporto_tabelle(materiale);
    const Tabella& tabella = materiale.risultato.tabelle[0];
    const int pagine = pagine_di(tabella.righe(), kRighePaginaTabellone);
    return {.titolo = materiale.testa.ricerca,
            .orientamento = Orientamento::orizzontale,
            .pagine = pagine,
            .disegna = [&tabella, pagine, titoli = titoli_di(tabella), titolo = materiale.testa.ricerca](
                           EasyPrint& stampante, int pagina) {
                didascalia(stampante, titolo, pagina, pagine);
                const std::size_t prima = static_cast<std::size_t>(pagina - 1) * kRighePaginaTabellone;
                Posa posa{.x = kMargineFoglio,
                          .y = kTitoliLotto,
                          .ritardo = kColonnaRitardoLotto,
                          .spazio = kTraRuote,
                          .riga = kRigaLotto,
                          .corpo = kCorpoOrizzontale,
                          .posti = true};
                posa.larga = (stampante.PageWidth() - 2 * kMargineFoglio - posa.ritardo -
                              posa.spazio * static_cast<float>(titoli.size())) /
                             static_cast<float>(tabella.n_colonne() - 1);
                DisegnoTabellone{stampante, posa, titoli}.disegna(
                    {tabella, prima, std::min(kRighePaginaTabellone, tabella.righe() - prima)});
                piede(stampante, pagina, pagine);
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

// ---- the ten most delayed numbers ----

namespace {

constexpr std::size_t kGruppi = 12;
constexpr std::size_t kPosti = 10;

/// One group: its name, "Num." and "Rit.", ten rows, a frame.
void stampa_gruppo(EasyPrint& stampante, const Tabella& tabella, std::size_t gruppo, const PosaDieci& posa) {
    const auto centro = [&](std::size_t c) { return posa.x + posa.larga * (c == 0 ? 0.28F : 0.72F); };
    stampante.FontBold(true);
    stampante.ForeColor(kBluScuro);
    stampante.PrintCentre(posa.x + posa.larga / 2, posa.y, tabella.testo(gruppo * kPosti, 0));
    for (std::size_t c = 0; c < 2; ++c)
        stampante.PrintCentre(centro(c), posa.y + posa.riga, tabella.titoli.back()[2 + c]);
    for (std::size_t c = 0; c < 2; ++c) {
        stampante.FontBold(c == 0);
        for (std::size_t p = 0; p < kPosti; ++p) {
            const std::size_t riga = gruppo * kPosti + p;
            const Colore colore = tabella.primo_piano(riga, 2 + c);
            stampante.ForeColor(colore == kNessunColore ? kNero : colore);
            stampante.PrintCentre(centro(c), posa.y + posa.riga * static_cast<float>(2 + p),
                                  tabella.testo(riga, 2 + c));
        }
    }
    stampante.ForeColor(kNero);
    stampante.FontBold(false);
    stampante.DrawWidth(3);
    const float cima = posa.y - 0.15F * posa.riga;
    stampante.PrintShape(posa.x, cima, posa.larga, 2 * posa.riga);
    stampante.PrintShape(posa.x, cima, posa.larga, posa.riga * (2.15F + static_cast<float>(kPosti)));
}

}  // namespace

bool e_lista_dieci(const Tabella& tabella) {
    return tabella.righe() == kGruppi * kPosti && tabella.n_colonne() == 4;
}

void stampa_lista_dieci(EasyPrint& stampante, const Tabella& tabella, const PosaDieci& posa) {
    const auto gruppi = static_cast<float>(kGruppiBanda);
    const float larga = (posa.larga - posa.spazio * (gruppi - 1)) / gruppi;
    for (std::size_t g = 0; g < kGruppi; ++g) {
        PosaDieci suo = posa;
        suo.larga = larga;
        suo.x += (larga + posa.spazio) * static_cast<float>(g % kGruppiBanda);
        const std::size_t fascia = g / kGruppiBanda;
        suo.y += posa.tra_fasce * static_cast<float>(fascia);
        stampa_gruppo(stampante, tabella, g, suo);
    }
}

Rapporto stampa_10_num(const MaterialeRapporto& materiale) {
    if (materiale.risultato.tabelle.empty() || !e_lista_dieci(materiale.risultato.tabelle[0]))
        return rapporto_tabelle(materiale);
    return {.titolo = materiale.testa.ricerca,
            .orientamento = Orientamento::orizzontale,
            .disegna = [&tabella = materiale.risultato.tabelle[0], titolo = materiale.testa.ricerca](
                           EasyPrint& stampante, int) {
                stampa_testa_propria(stampante, titolo, 30, 12);
                stampante.FontSize(kCorpoOrizzontale);
                stampa_lista_dieci(stampante, tabella,
                                   {.x = kMargineFoglio,
                                    .y = 42,
                                    .larga = stampante.PageWidth() - 2 * kMargineFoglio,
                                    .riga = 5.5F,
                                    .tra_fasce = 75,
                                    .spazio = 4});
                piede(stampante, 1, 1);
            }};
}

}  // namespace sortimetra
