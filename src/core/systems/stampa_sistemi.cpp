#include "systems/stampa_sistemi.h"

#include "results/ricerca.h"
#include "results/risultato.h"
#include "systems/parametri.h"
#include "systems/ultimi.h"

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

constexpr float kRiga = 4.25F;
constexpr std::int16_t kCorpo = 9;

/// The head of a search over draws, or the logo and the title of one that has no scope.
void testa_di(EasyPrint& stampante, const Intestazione& testa) {
    if (testa.concorsi.empty())
        stampa_testa_propria(stampante, testa.ricerca, 31, 12);
    else
        stampa_intestazione(stampante, testa);
    stampante.FontSize(kCorpo);
}

/// Columns of a printed table: where each begins, and after the last where it ends, from the table's edge.
using Bordi = std::vector<float>;

float larghezza(const Bordi& bordi) {
    return bordi.back();
}

/// Some rows of a table, one part of a page.
struct Pezzo {
    const Tabella* tabella = nullptr;
    std::string titolo{};  ///< above it; "" for none
    std::size_t prima_riga = 0;
    std::size_t righe = 0;
    std::vector<std::size_t> colonne{};
    Bordi bordi{};
    float x = 0;
    float y = 0;
    float riga = kRiga;
};

/// A title row: a merged title is centred over the empty ones behind it.
void stampa_titoli(EasyPrint& stampante, const Pezzo& p, std::size_t fila, float y) {
    const auto& titoli = p.tabella->titoli[fila];
    const bool ultima = fila + 1 == p.tabella->titoli.size();
    for (std::size_t i = 0; i < p.colonne.size();) {
        const std::string& testo = titoli[p.colonne[i]];
        std::size_t fine = i + 1;
        while (!ultima && !testo.empty() && fine < p.colonne.size() && titoli[p.colonne[fine]].empty())
            ++fine;
        if (!testo.empty())
            stampante.PrintCentre(p.x + (p.bordi[i] + p.bordi[fine]) / 2, y, testo,
                                  p.bordi[fine] - p.bordi[i]);
        i = fine;
    }
}

/// Titles, rows with every second one framed, a frame round each column; `ordine` is the grid's.
void stampa_pezzo(EasyPrint& stampante, const Pezzo& p, std::span<const std::uint32_t> ordine) {
    float y = p.y;
    stampante.FontBold(true);
    stampante.ForeColor(kRosso);
    if (!p.titolo.empty())
        stampante.PrintCentre(p.x + larghezza(p.bordi) / 2, y, p.titolo, larghezza(p.bordi));
    if (!p.titolo.empty()) y += p.riga;
    stampante.ForeColor(kBluScuro);
    for (std::size_t f = 0; f < p.tabella->titoli.size(); ++f, y += p.riga) stampa_titoli(stampante, p, f, y);
    stampante.ForeColor(kNero);
    std::string testo;
    for (std::size_t i = 0; i < p.colonne.size(); ++i) {
        stampante.FontBold(i == 0);
        stampante.ForeColor(i == 0 ? kBlu : kNero);
        const bool a_sinistra =
            i == 0 && std::holds_alternative<ColonnaTesti>(p.tabella->colonne[p.colonne[i]]);
        for (std::size_t r = 0; r < p.righe; ++r) {
            testo.clear();
            p.tabella->aggiungi_testo(testo, riga_in_griglia(*p.tabella, p.prima_riga + r, ordine),
                                      p.colonne[i]);
            if (testo.empty()) continue;
            const float y_riga = y + p.riga * static_cast<float>(r) + 0.25F;
            if (a_sinistra)
                stampante.PrintLeft(p.x + p.bordi[i] + 1, y_riga, testo, 0, p.bordi[i + 1] - p.bordi[i]);
            else
                stampante.PrintCentre(p.x + (p.bordi[i] + p.bordi[i + 1]) / 2, y_riga, testo);
        }
    }
    stampante.FontBold(false);
    stampante.ForeColor(kNero);
    stampante.DrawWidth(1);
    for (std::size_t r = 1; r < p.righe; r += 2)
        stampante.PrintShape(p.x, y + p.riga * static_cast<float>(r), larghezza(p.bordi), p.riga);
    stampante.DrawWidth(3);
    for (std::size_t i = 0; i < p.colonne.size(); ++i)
        stampante.PrintShape(p.x, y, p.bordi[i + 1], p.riga * static_cast<float>(p.righe));
}

std::vector<std::size_t> tutte_le_colonne(const Tabella& t) {
    std::vector<std::size_t> colonne(t.n_colonne());
    for (std::size_t c = 0; c < colonne.size(); ++c) colonne[c] = c;
    return colonne;
}

Bordi bordi_uguali(std::size_t colonne, float prima, float altre) {
    Bordi bordi{0};
    for (std::size_t c = 0; c < colonne; ++c) bordi.push_back(bordi.back() + (c == 0 ? prima : altre));
    return bordi;
}

// ---- the grids of a statistic: strips from left to right, pages after pages ----

constexpr float kCima = 56;  ///< of the strips
constexpr float kFondo = 276;
constexpr float kTraStrisce = 3.3F;
constexpr float kMargine = 10;
/// A table of at most so many rows is kept in one piece, of a longer one so many stand at a strip's foot.
constexpr std::size_t kRigheUnite = 20;
constexpr std::size_t kRigheMinime = 4;

/// Where the next piece goes.
class Strisce {
  public:
    /// Lines that are left in the strip.
    [[nodiscard]] std::size_t posto() const {
        return static_cast<std::size_t>(std::max(0.0F, (kFondo - y_) / kRiga));
    }
    [[nodiscard]] bool intatta() const { return y_ == kCima; }
    void prossima() {
        x_ += larga_ + kTraStrisce;
        y_ = kCima;
        larga_ = 0;
    }
    /// Tables of another width stand in a strip of their own.
    void allinea(float larga) {
        if (!intatta() && larga != larga_) prossima();
    }
    /// Puts a piece there; a strip that the sheet has no room for begins a new one.
    void metti(Pezzo pezzo, std::size_t linee, std::vector<std::vector<Pezzo>>& pagine) {
        const float larga = larghezza(pezzo.bordi);
        if (pagine.empty() || x_ + larga > kMargine + kBanda + 0.1F) {
            pagine.emplace_back();
            x_ = kMargine;
            y_ = kCima;
        }
        pezzo.x = x_;
        pezzo.y = y_;
        y_ += kRiga * static_cast<float>(linee);
        larga_ = std::max(larga_, larga);
        pagine.back().push_back(std::move(pezzo));
    }

  private:
    float x_ = kMargine;
    float y_ = kCima;
    float larga_ = 0;
};

/// Widths by the number of columns: those of values, of numbers, of groups.
Bordi bordi_griglia(const Tabella& t) {
    switch (t.n_colonne()) {
        case 5:
            return bordi_uguali(5, 26, 13);
        case 4:
            return bordi_uguali(4, 12, 12);
        default:
            return bordi_uguali(t.n_colonne(), 17, 14);
    }
}

void disponi(const Tabella& t, const std::string& titolo, Strisce& strisce,
             std::vector<std::vector<Pezzo>>& pagine) {
    const std::size_t testa = t.titoli.size() + (titolo.empty() ? 0 : 1);
    const std::size_t unite = t.righe() <= kRigheUnite ? t.righe() : kRigheMinime;
    strisce.allinea(larghezza(bordi_griglia(t)));
    for (std::size_t riga = 0; riga < t.righe();) {
        const std::size_t restano = t.righe() - riga;
        if (!strisce.intatta() && strisce.posto() < testa + std::min(restano, unite)) strisce.prossima();
        const std::size_t righe = std::min(restano, strisce.posto() - testa);
        // One line of air under it.
        strisce.metti({.tabella = &t,
                       .titolo = titolo,
                       .prima_riga = riga,
                       .righe = righe,
                       .colonne = tutte_le_colonne(t),
                       .bordi = bordi_griglia(t)},
                      testa + righe + 1, pagine);
        riga += righe;
    }
}

// ---- the table of positions ----

constexpr float kCimaPosizioni = 60;
constexpr float kColonnaNumero = 12;
constexpr float kBloccoPosizione = 25;
constexpr float kLegenda = 264;
constexpr std::array<std::string_view, 3> kLegendaEstrazioni{"F = Frequenza", "R = Ritardo",
                                                             "RS = Ritardo Storico"};
constexpr std::array<std::string_view, 2> kLegendaSistema{"F = Frequenza", "% = Percentuale"};

std::size_t colonne_blocco(const Tabella& t) {
    return t.titoli[1].size() > 2 && t.titoli[1][2] == "%" ? 2 : 3;
}

std::vector<std::vector<Pezzo>> pagine_posizioni(const Tabella& t) {
    const std::size_t per_blocco = colonne_blocco(t);
    const auto per_pagina =
        static_cast<std::size_t>((kBanda - kColonnaNumero) / kBloccoPosizione) * per_blocco;
    std::vector<std::vector<Pezzo>> pagine;
    for (std::size_t prima = 1; prima < t.n_colonne(); prima += per_pagina)
        for (std::size_t riga = 0; riga < t.righe(); riga += kRigheBlocco) {
            Pezzo p{.tabella = &t,
                    .prima_riga = riga,
                    .righe = std::min(kRigheBlocco, t.righe() - riga),
                    .colonne = {0},
                    .x = kMargine,
                    .y = kCimaPosizioni};
            for (std::size_t c = prima; c < std::min(prima + per_pagina, t.n_colonne()); ++c)
                p.colonne.push_back(c);
            p.bordi = bordi_uguali(p.colonne.size(), kColonnaNumero,
                                   kBloccoPosizione / static_cast<float>(per_blocco));
            pagine.push_back({std::move(p)});
        }
    return pagine;
}

// ---- the last draws ----

constexpr float kCimaUltimi = 50;
constexpr float kRigaUltimi = 3.1F;
constexpr std::int16_t kCorpoUltimi = 7;
constexpr float kTitoloMisura = 37;
constexpr float kColonnaUltimi = 12;
constexpr float kTraTabelle = 6;

constexpr std::array<std::string_view, 4> kGiochiUltimi{"Lotto", "SuperEnalotto", "10 e Lotto",
                                                        "Win for Life"};

/// The rows `prima` to before `fine` of the measures, under the concorsi of their draws.
void stampa_misure(EasyPrint& stampante, const Risultato& risultato, std::size_t prima, std::size_t fine) {
    const Tabella& lista = risultato.tabelle[1];
    Tabella righe = risultato.tabelle[0];
    for (std::size_t c = 0; c < kUltimi; ++c) righe.titoli[0][c + 1] = lista.testo(c, 0);
    stampa_pezzo(stampante,
                 {.tabella = &righe,
                  .titolo = {},
                  .prima_riga = prima,
                  .righe = fine - prima,
                  .colonne = tutte_le_colonne(righe),
                  .bordi = bordi_uguali(righe.n_colonne(), kTitoloMisura, kColonnaUltimi),
                  .x = kMargine,
                  .y = kCimaUltimi,
                  .riga = kRigaUltimi},
                 {});
}

}  // namespace

void completa_intestazione(Intestazione& testa, const Domanda& domanda) {
    const auto& p = domanda.di<ParametriSistemi>();
    if (!domanda.ricerca->ammette(kOpzStatistica)) {
        const std::string_view gioco = kGiochiUltimi[static_cast<std::size_t>(p.sistema)];
        testa.ricerca.append(" ").append(gioco).append(" - ").append(testa.concorsi);
        return;
    }
    const std::string_view statistica = kStatistiche[static_cast<std::size_t>(p.statistica)];
    if (!p.nome.empty()) testa.ricerca.append(" - ").append(p.nome);
    testa.ricerca.append(": ").append(statistica);
    if (!testa.ruote.empty())
        testa.ruote.append(" ").append(parola_combinazione(kGeneri[static_cast<std::size_t>(p.sistema)].k));
}

Rapporto rapporto_filtri(const MaterialeRapporto& materiale) {
    const auto& tabelle = materiale.risultato.tabelle;
    if (tabelle.empty()) return rapporto_tabelle(materiale);
    const bool posizioni = tabelle.size() == 1;
    std::vector<std::vector<Pezzo>> pagine;
    if (posizioni) {
        pagine = pagine_posizioni(tabelle[0]);
    } else {
        const auto* titoli =
            materiale.risultato.etichette.empty()
                ? nullptr
                : std::get_if<std::vector<std::string>>(&materiale.risultato.etichette.front().testo);
        Strisce strisce;
        for (std::size_t t = 0; t < tabelle.size(); ++t)
            disponi(tabelle[t], titoli != nullptr && t < titoli->size() ? (*titoli)[t] : "", strisce, pagine);
    }
    if (pagine.empty()) pagine.emplace_back();
    const auto quante = static_cast<int>(pagine.size());
    return {.titolo = materiale.testa.ricerca,
            .pagine = quante,
            .disegna = [&tabelle, pagine = std::move(pagine), testa = materiale.testa, posizioni, quante,
                        ordine = std::vector(materiale.ordine.begin(), materiale.ordine.end())](
                           EasyPrint& stampante, int pagina) {
                testa_di(stampante, testa);
                for (const Pezzo& p : pagine[static_cast<std::size_t>(pagina - 1)])
                    stampa_pezzo(stampante, p,
                                 p.tabella == tabelle.data() ? std::span<const std::uint32_t>{ordine}
                                                             : std::span<const std::uint32_t>{});
                if (posizioni && pagina == quante) {
                    if (colonne_blocco(tabelle[0]) == 2)
                        stampa_legenda(stampante, kLegenda, kLegendaSistema);
                    else
                        stampa_legenda(stampante, kLegenda, kLegendaEstrazioni);
                }
                stampa_piede(stampante, pagina, quante);
            }};
}

Rapporto rapporto_ultimi(const MaterialeRapporto& materiale) {
    if (materiale.risultato.tabelle.size() != 2) return rapporto_tabelle(materiale);
    constexpr int kPagine = 2;
    return {.titolo = materiale.testa.ricerca,
            .orientamento = Orientamento::orizzontale,
            .pagine = kPagine,
            .disegna = [&risultato = materiale.risultato, testa = materiale.testa](EasyPrint& stampante,
                                                                                   int pagina) {
                stampa_intestazione(stampante, testa);
                stampante.FontSize(kCorpoUltimi);
                const Tabella& misure = risultato.tabelle[0];
                // The rows of the groups are the same for every game: the last twenty.
                const std::size_t gruppi = misure.righe() - (kDecine + kCadenze + 1);
                if (pagina == 1) {
                    stampa_misure(stampante, risultato, 0, gruppi - 1);
                } else {
                    stampa_misure(stampante, risultato, gruppi, misure.righe());
                    const Tabella& lista = risultato.tabelle[1];
                    stampa_pezzo(stampante,
                                 {.tabella = &lista,
                                  .titolo = {},
                                  .prima_riga = 0,
                                  .righe = lista.righe(),
                                  .colonne = tutte_le_colonne(lista),
                                  .bordi = bordi_uguali(2, 15, 90),
                                  .x = kMargine,
                                  .y = kCimaUltimi +
                                       kRigaUltimi * static_cast<float>(kDecine + kCadenze + 2) + kTraTabelle,
                                  .riga = kRigaUltimi},
                                 {});
                }
                stampa_piede(stampante, pagina, kPagine);
            }};
}

}  // namespace sortimetra
