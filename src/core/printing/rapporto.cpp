#include "printing/rapporto.h"

#include "printing/metriche.h"
#include "results/risposta.h"
#include "results/risultato.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>
#include <variant>
#include <vector>

namespace sortimetra {

namespace {

constexpr float kRiga = 4.25F;             ///< height of a row
constexpr float kPrimaRiga = 69;           ///< top of the frame round the rows
constexpr float kTitoli = 64.5F;           ///< top of the titles' text
constexpr float kTraBlocchi = 100;         ///< from one block to the next
constexpr float kMargineTabella = 10;      ///< from a block's edge to its table
constexpr std::size_t kBlocchiPagina = 2;  ///< side by side
constexpr std::size_t kSottileDa = 47;     ///< rows, title included, from which columns are narrow

/// A column of a block: where its texts are centred and where it ends, both from the block's edge (the
/// centre) and from the table's (the end).
struct ColonnaBlocco {
    std::string_view titolo;
    float centro;
    float fine;
};

constexpr std::array<ColonnaBlocco, 4> kLarghe{{{"Numeri", 37.5F, 55},
                                                {"Frequenza", 87.5F, 100},
                                                {"Ritardo", 132.5F, 145},
                                                {"Ritardo Storico", 177.5F, 190}}};
constexpr std::array<ColonnaBlocco, 4> kStrette{{{"Numeri", 21.25F, 22.5F},
                                                 {"Frequenza", 43.75F, 45},
                                                 {"Ritardo", 66.25F, 67.5F},
                                                 {"Rit. Stor.", 88.75F, 90}}};
constexpr std::array<ColonnaBlocco, 2> kSegnalimite{{{"Numeri", 21.25F, 22.5F}, {"Segnalimite", 66.25F, 90}}};

/// One block of a grid at `x`: rows, light frames round every second one, titles, frames of the columns.
/// `cella(testo, riga, colonna)` appends the text of a cell, both counted from 0.
template <class Cella>
void stampa_blocco(EasyPrint& stampante, float x, std::span<const ColonnaBlocco> colonne, std::size_t righe,
                   Cella&& cella) {
    const auto y_riga = [](std::size_t r) { return 65 + kRiga * static_cast<float>(r); };  // r from 1
    std::string testo;
    stampante.DrawWidth(1);
    // Column by column, not row by row: weight and colour change twice instead of twice a row.
    const std::int16_t corpo = stampante.FontSize();
    for (std::size_t c = 0; c < colonne.size(); ++c) {
        stampante.FontBold(c == 0);
        stampante.ForeColor(c == 0 ? kBlu : kNero);
        if (c == 0) {
            // Long combinations are set in a smaller size rather than over their neighbours.
            float larga = 0;
            for (std::size_t r = 0; r < righe; ++r) {
                testo.clear();
                cella(testo, r, c);
                larga = std::max(larga, stampante.TextWidth(testo));
            }
            const float posto = colonne[c].fine - 1;
            if (larga > posto)
                stampante.FontSize(static_cast<std::int16_t>(
                    std::max(4.0F, std::floor(static_cast<float>(corpo) * posto / larga))));
        }
        for (std::size_t r = 0; r < righe; ++r) {
            testo.clear();
            cella(testo, r, c);
            stampante.PrintCentre(x + colonne[c].centro, y_riga(r + 1), testo);
        }
        stampante.FontSize(corpo);
    }
    const float larghezza = colonne.back().fine;
    for (std::size_t r = 2; r <= righe; r += 2)
        stampante.PrintShape(x + kMargineTabella, y_riga(r) - 0.25F, larghezza, kRiga);

    stampante.DrawWidth(4);
    stampante.FontBold(true);
    stampante.ForeColor(kBluScuro);
    for (const ColonnaBlocco& colonna : colonne)
        stampante.PrintCentre(x + colonna.centro, kTitoli, colonna.titolo);
    stampante.ForeColor(kNero);
    stampante.FontBold(false);
    for (const ColonnaBlocco& colonna : colonne)
        stampante.PrintShape(x + kMargineTabella, kPrimaRiga, colonna.fine,
                             kRiga * static_cast<float>(righe));
}

std::size_t blocchi(std::size_t righe) {
    return (righe + kRigheBlocco - 1) / kRigheBlocco;
}

/// Whether a result is the usual grid: number or combination and the three measures, under whatever titles
/// the screen has room for.
bool e_griglia(const Risultato& risultato) {
    if (risultato.tabelle.size() != 1) return false;
    const Tabella& t = risultato.tabelle[0];
    return t.n_colonne() == kLarghe.size() && t.titoli.size() == 1 && t.titoli[0].size() == kLarghe.size() &&
           std::all_of(t.colonne.begin() + 1, t.colonne.end(),
                       [](const Colonna& c) { return std::holds_alternative<ColonnaInteri>(c); });
}

}  // namespace

PagineScelte PagineScelte::entro(int totale) const {
    const int ultima = std::max(totale, 1);
    const int fine = a < 1 ? ultima : std::min(a, ultima);
    return {std::clamp(da, 1, fine), fine};
}

bool stampa(EasyPrint& stampante, const Rapporto& rapporto, PagineScelte pagine, Avanzamento& avanzamento) {
    const auto [da, a] = pagine.entro(rapporto.pagine);
    stampante.Orientation(static_cast<std::int16_t>(rapporto.orientamento));
    const auto totale = static_cast<std::size_t>(a - da + 1);
    for (int p = da; p <= a; ++p) {
        if (p > da) stampante.NewPage();
        rapporto.disegna(stampante, p);
        if (!avanzamento.procedi(static_cast<std::size_t>(p - da + 1), totale)) {
            stampante.KillDoc();
            return false;
        }
    }
    stampante.EndDoc();
    return true;
}

// ---- what reports share ----

std::size_t riga_in_griglia(const Tabella& tabella, std::size_t riga, std::span<const std::uint32_t> ordine) {
    return riga < ordine.size() ? std::min<std::size_t>(ordine[riga], tabella.righe() - 1) : riga;
}

float inizio_banda(const EasyPrint& stampante) {
    return stampante.orientamento() == Orientamento::verticale ? 10 : stampante.PageWidth() / 2 - kBanda / 2;
}

void stampa_intestazione(EasyPrint& stampante, std::string_view ricerca, std::string_view ruote,
                         std::string_view concorsi, std::string_view periodo) {
    constexpr float kEtichette = 10;
    constexpr float kTesti = 47;
    stampante.FontName("Arial");
    stampante.FontSize(11);
    stampante.PrintPicture(logo(), inizio_banda(stampante), 5, kBanda, 20);
    if (!ricerca.empty()) {
        stampante.PrintLeft(kEtichette, 30,
                            "Ricerca:\rRuote Esaminate:\rConcorsi Esaminati:\rPeriodo Esaminato:", 0, 35);
        stampante.FontBold(true);
        stampante.ForeColor(kRosso);
        stampante.PrintLeft(kTesti, 30, ricerca, 0, 160);
        stampante.ForeColor(kNero);
        std::string righe{ruote};
        righe.append("\r").append(concorsi).append("\r").append(periodo);
        stampante.PrintLeft(kTesti, 34.5F, righe, 0, 160);
        stampante.FontBold(false);
    }
    stampante.FontSize(10);
}

void stampa_intestazione(EasyPrint& stampante, const Intestazione& testa) {
    stampa_intestazione(stampante, testa.ricerca, testa.ruote, testa.concorsi, testa.periodo);
    if (testa.nota.empty()) return;
    stampante.FontItalic(true);
    stampante.PrintLeft(10, 54, testa.nota, 0, kBanda);
    stampante.FontItalic(false);
}

void stampa_testa_propria(EasyPrint& stampante, std::string_view titolo, float y, std::int16_t corpo) {
    stampa_intestazione(stampante, "", "", "", "");
    stampante.FontSize(corpo);
    stampante.FontBold(true);
    stampante.ForeColor(kRosso);
    stampante.PrintCentre(stampante.PageWidth() / 2, y, titolo);
    stampante.ForeColor(kNero);
    stampante.FontBold(false);
}

void stampa_piede(EasyPrint& stampante, int pagina, int totale) {
    std::string testo = "Pagina " + std::to_string(pagina);
    if (totale > 0) testo += " di " + std::to_string(totale);
    stampante.PrintRight(stampante.PageWidth() / 2 + kBanda / 2, stampante.PageHeight() - kAltezzaPiede,
                         testo);
}

Rapporto segna_simulato(Rapporto rapporto) {
    rapporto.disegna = [disegna = std::move(rapporto.disegna)](EasyPrint& stampante, int pagina) {
        disegna(stampante, pagina);
        stampante.FontName("Arial");
        stampante.FontSize(10);
        stampante.FontBold(true);
        stampante.ForeColor(kRosso);
        stampante.PrintCentre(stampante.PageWidth() / 2, stampante.PageHeight() - kAltezzaPiede,
                              kArchivioSimulato);
        stampante.ForeColor(kNero);
        stampante.FontBold(false);
    };
    return rapporto;
}

void stampa_legenda(EasyPrint& stampante, float y, std::span<const std::string_view> righe) {
    std::string testo;
    for (const std::string_view riga : righe) {
        if (!testo.empty()) testo += '\r';
        testo += riga;
    }
    stampante.PrintLeft(inizio_banda(stampante), y, testo);
}

void stampa_fondo(EasyPrint& stampante, Colore colore, float x, float y, float larghezza, float altezza) {
    // A surface keeps a picture by the place of its bytes: one picture per shade, for as long as we run.
    static std::map<Colore, std::string> figure;
    std::string& figura = figure[colore];
    if (figura.empty()) {
        const auto c = static_cast<std::uint32_t>(colore);
        figura = fmt::format(
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"8\" height=\"8\" viewBox=\"0 0 8 8\">"
            "<rect width=\"8\" height=\"8\" fill=\"#{:02x}{:02x}{:02x}\"/></svg>",
            c & 0xFFU, c >> 8U & 0xFFU, c >> 16U & 0xFFU);
    }
    stampante.PrintPicture({.nome = "fondo", .dati = figura}, x, y, larghezza, altezza);
}

std::string_view parola_combinazione(std::size_t numeri) {
    switch (numeri) {
        case 2:
            return "(Ambi)";
        case 3:
            return "(Terzine)";
        case 4:
            return "(Quartine)";
        case 5:
            return "(Cinquine)";
        case 6:
            return "(Sestine)";
        case 10:
            return "(Decine)";
        default:
            return "";
    }
}

int pagine_griglia(std::size_t righe) {
    return static_cast<int>(std::max<std::size_t>((blocchi(righe) + kBlocchiPagina - 1) / kBlocchiPagina, 1));
}

void stampa_griglia(EasyPrint& stampante, const Tabella& tabella, std::span<const std::uint32_t> ordine,
                    int pagina, std::span<const std::string_view> titoli) {
    const std::size_t righe = tabella.righe();
    auto colonne = righe + 1 >= kSottileDa ? kStrette : kLarghe;
    for (std::size_t c = 0; c < std::min(colonne.size(), titoli.size()); ++c) colonne[c].titolo = titoli[c];
    const std::size_t primo = static_cast<std::size_t>(pagina - 1) * kBlocchiPagina;
    for (std::size_t b = primo; b < std::min(primo + kBlocchiPagina, blocchi(righe)); ++b) {
        const std::size_t prima_riga = b * kRigheBlocco;
        stampa_blocco(stampante, kTraBlocchi * static_cast<float>(b - primo), colonne,
                      std::min(kRigheBlocco, righe - prima_riga),
                      [&](std::string& testo, std::size_t r, std::size_t c) {
                          tabella.aggiungi_testo(testo, riga_in_griglia(tabella, prima_riga + r, ordine), c);
                      });
    }
}

// ---- the reports ----

Rapporto rapporto_griglia(const MaterialeRapporto& materiale) {
    return rapporto_griglia_intitolata(materiale, {});
}

Rapporto rapporto_griglia_intitolata(const MaterialeRapporto& materiale,
                                     std::span<const std::string_view> titoli) {
    if (!e_griglia(materiale.risultato)) return rapporto_tabelle(materiale);
    const Tabella& tabella = materiale.risultato.tabelle[0];
    const int pagine = pagine_griglia(tabella.righe());
    return {.titolo = materiale.testa.ricerca,
            .pagine = pagine,
            .disegna = [&tabella, pagine, titoli, testa = materiale.testa,
                        ordine = std::vector(materiale.ordine.begin(), materiale.ordine.end())](
                           EasyPrint& stampante, int pagina) {
                stampa_intestazione(stampante, testa);
                stampa_griglia(stampante, tabella, ordine, pagina, titoli);
                stampa_piede(stampante, pagina, pagine);
            }};
}

Rapporto rapporto_segnalimite(const MaterialeRapporto& materiale) {
    if (materiale.risultato.tabelle.empty()) return rapporto_tabelle(materiale);
    const Tabella& tabella = materiale.risultato.tabelle[0];
    return {.titolo = materiale.testa.ricerca,
            .pagine = 1,
            .disegna = [&tabella, titolo = materiale.testa.ricerca](EasyPrint& stampante, int) {
                stampa_testa_propria(stampante, titolo, 42, 14);
                stampante.FontSize(10);
                for (std::size_t inizio = 0;
                     inizio < std::min<std::size_t>(tabella.righe(), 2 * kRigheBlocco);
                     inizio += kRigheBlocco)
                    stampa_blocco(stampante, inizio == 0 ? 0 : kTraBlocchi, kSegnalimite,
                                  std::min(kRigheBlocco, tabella.righe() - inizio),
                                  [&](std::string& testo, std::size_t r, std::size_t c) {
                                      tabella.aggiungi_testo(testo, inizio + r, c);
                                  });
                stampa_piede(stampante, 1, 1);
            }};
}

namespace {

// ---- tables of any shape ----

constexpr float kAriaCella = 2;           ///< left and right of a cell's text
constexpr float kLarghezzaMassima = 120;  ///< of a column; longer texts are clipped
constexpr std::size_t kRigheVerticale = 45;
constexpr std::size_t kRigheOrizzontale = 28;
/// Width that a lying A4 sheet leaves for a table.
constexpr float kSpazioOrizzontale = kFoglioCoricato - 2 * kMargineFoglio;

/// One printed page's share of the result.
struct FoglioTabella {
    const Tabella* tabella;
    std::vector<std::size_t> colonne;
    std::size_t prima_riga;
    std::size_t righe;
    /// Over the table where a result has several.
    std::string_view nome;
};

struct PianoTabelle {
    Orientamento orientamento = Orientamento::verticale;
    std::int16_t corpo = 10;
    /// By table, then column, in mm.
    std::vector<std::vector<float>> larghezze;
    /// By table, then column: whether numbers stand in it.
    std::vector<std::vector<bool>> numeriche;
    std::vector<FoglioTabella> fogli;
};

/// The text of a title row's cell without the blanks that pad it on the screen.
std::string_view titolo(const std::vector<std::string>& riga, std::size_t colonna) {
    if (colonna >= riga.size()) return {};
    std::string_view testo = riga[colonna];
    while (testo.starts_with(' ')) testo.remove_prefix(1);
    while (testo.ends_with(' ')) testo.remove_suffix(1);
    return testo;
}

std::vector<float> misura_colonne(const Tabella& tabella, int corpo) {
    std::vector<float> larghezze(tabella.n_colonne());
    std::string testo;
    // Of several title rows only the last that says something stands over each column by itself; the others
    // span.
    const auto teste = std::find_if(tabella.titoli.rbegin(), tabella.titoli.rend(), [](const auto& riga) {
        return std::any_of(riga.begin(), riga.end(), [](const auto& t) { return !t.empty(); });
    });
    for (std::size_t c = 0; c < larghezze.size(); ++c) {
        double larga = 0;
        if (teste != tabella.titoli.rend())
            larga = larghezza_testo({.corpo = corpo, .grassetto = true}, titolo(*teste, c));
        for (std::size_t r = 0; r < tabella.righe(); ++r) {
            testo.clear();
            tabella.aggiungi_testo(testo, r, c);
            larga = std::max(larga, larghezza_testo({.corpo = corpo, .grassetto = c == 0}, testo));
        }
        larghezze[c] = std::min(static_cast<float>(larga) + 2 * kAriaCella, kLarghezzaMassima);
    }
    return larghezze;
}

float somma(const std::vector<float>& larghezze) {
    float s = 0;
    for (const float w : larghezze) s += w;
    return s;
}

/// How the tables are laid on sheets; lying ones where told, or where an upright one has no room.
PianoTabelle pianifica(const Risultato& risultato, Orientamento voluto) {
    PianoTabelle piano;
    piano.orientamento = voluto;
    const auto misura = [&](std::int16_t corpo) {
        piano.corpo = corpo;
        piano.larghezze.clear();
        float massima = 0;
        for (const Tabella& t : risultato.tabelle) {
            piano.larghezze.push_back(misura_colonne(t, corpo));
            massima = std::max(massima, somma(piano.larghezze.back()));
        }
        return massima;
    };
    if (misura(10) > kBanda) {
        piano.orientamento = Orientamento::orizzontale;
        if (misura(kCorpoOrizzontale) > kSpazioOrizzontale) misura(kCorpoOrizzontaleFitto);
    }
    for (const Tabella& t : risultato.tabelle) {
        piano.numeriche.emplace_back();
        for (const Colonna& c : t.colonne) piano.numeriche.back().push_back(e_numerica(c));
    }
    const bool verticale = piano.orientamento == Orientamento::verticale;
    const float spazio = verticale ? kBanda : kSpazioOrizzontale;
    const std::size_t per_pagina = verticale ? kRigheVerticale : kRigheOrizzontale;
    for (std::size_t t = 0; t < risultato.tabelle.size(); ++t) {
        const Tabella& tabella = risultato.tabelle[t];
        const auto& larghezze = piano.larghezze[t];
        std::vector<std::vector<std::size_t>> gruppi;
        float usata = 0;
        for (std::size_t c = 0; c < larghezze.size(); ++c) {
            if (gruppi.empty() || (usata + larghezze[c] > spazio && gruppi.back().size() > 1)) {
                gruppi.emplace_back();
                usata = 0;
                if (c > 0) {
                    gruppi.back().push_back(0);
                    usata = larghezze[0];
                }
            }
            gruppi.back().push_back(c);
            usata += larghezze[c];
        }
        // On a lying sheet a table that stands on it whole fills it.
        if (!verticale && gruppi.size() == 1)
            for (float& w : piano.larghezze[t]) w *= spazio / usata;
        for (std::size_t riga = 0; riga == 0 || riga < tabella.righe(); riga += per_pagina)
            for (const auto& gruppo : gruppi)
                piano.fogli.push_back(
                    {&tabella, gruppo, riga, std::min(per_pagina, tabella.righe() - riga),
                     risultato.tabelle.size() > 1 ? std::string_view{tabella.nome} : std::string_view{}});
    }
    return piano;
}

/// Numbers stand under each other by their units, texts by their first letter, combinations in the middle.
void stampa_cella(EasyPrint& stampante, const Colonna& colonna, bool numerica, float x, float y,
                  float larghezza, std::string_view testo) {
    const float posto = larghezza - kAriaCella;
    if (numerica)
        stampante.PrintRight(x + larghezza - kAriaCella, y, testo, 0, posto);
    else if (!std::holds_alternative<ColonnaGruppi>(colonna))
        stampante.PrintLeft(x + kAriaCella, y, testo, 0, posto);
    else
        stampante.PrintCentre(x + larghezza / 2, y, testo, posto);
}

void stampa_titoli(EasyPrint& stampante, const FoglioTabella& foglio, const std::vector<float>& larghezze,
                   float x) {
    stampante.FontBold(true);
    stampante.ForeColor(kBluScuro);
    const auto& titoli = foglio.tabella->titoli;
    for (std::size_t t = 0; t < titoli.size(); ++t) {
        const float y = kTitoli - kRiga * static_cast<float>(titoli.size() - 1 - t);
        float inizio = x;
        for (std::size_t i = 0; i < foglio.colonne.size();) {
            // A merged title stands in its first cell: it is centred over the empty ones behind it.
            std::size_t fine = i + 1;
            float larga = larghezze[foglio.colonne[i]];
            std::string_view testo = titolo(titoli[t], foglio.colonne[i]);
            // A part that begins within a merged title shows it too.
            if (i > 0 && t + 1 < titoli.size() && foglio.colonne[i] != foglio.colonne[i - 1] + 1)
                for (std::size_t c = foglio.colonne[i]; testo.empty() && c > 1; --c)
                    testo = titolo(titoli[t], c - 1);
            while (fine < foglio.colonne.size() && t + 1 < titoli.size() && !testo.empty() &&
                   titolo(titoli[t], foglio.colonne[fine]).empty())
                larga += larghezze[foglio.colonne[fine++]];
            if (!testo.empty()) stampante.PrintCentre(inizio + larga / 2, y, testo, larga);
            inizio += larga;
            i = fine;
        }
    }
    stampante.ForeColor(kNero);
    stampante.FontBold(false);
}

/// One sheet of the `t`-th table.
void stampa_foglio(EasyPrint& stampante, const PianoTabelle& piano, const FoglioTabella& foglio,
                   std::size_t t, std::span<const std::uint32_t> ordine) {
    const std::vector<float>& larghezze = piano.larghezze[t];
    float larghezza = 0;
    for (const std::size_t c : foglio.colonne) larghezza += larghezze[c];
    const float sinistra = (stampante.PageWidth() - larghezza) / 2;
    const Tabella& tabella = *foglio.tabella;
    if (!foglio.nome.empty()) {
        stampante.FontBold(true);
        std::string nome{foglio.nome};
        if (nome[0] >= 'a' && nome[0] <= 'z') nome[0] = static_cast<char>(nome[0] - 'a' + 'A');
        stampante.PrintLeft(10, 49.5F, nome, 0, kBanda);
        stampante.FontBold(false);
    }
    stampante.FontSize(piano.corpo);
    stampa_titoli(stampante, foglio, larghezze, sinistra);
    std::string testo;
    float x = sinistra;
    const float altezza = kRiga * static_cast<float>(foglio.righe);
    for (std::size_t i = 0; i < foglio.colonne.size(); ++i) {
        const std::size_t c = foglio.colonne[i];
        stampante.FontBold(i == 0);
        for (std::size_t r = 0; r < foglio.righe; ++r) {
            const std::size_t riga = riga_in_griglia(tabella, foglio.prima_riga + r, ordine);
            const float y = kPrimaRiga + kRiga * static_cast<float>(r);
            testo.clear();
            tabella.aggiungi_testo(testo, riga, c);
            const Colore colore = tabella.primo_piano(riga, c);
            stampante.ForeColor(colore != kNessunColore ? colore : i == 0 ? kBlu : kNero);
            stampa_cella(stampante, tabella.colonne[c], piano.numeriche[t][c], x, y + 0.25F, larghezze[c],
                         testo);
            if (tabella.sfondo(riga, c) != kNessunColore) {
                // Paper shows no back colour: a frame says the same.
                stampante.DrawWidth(3);
                stampante.PrintShape(x + 0.4F, y + 0.35F, larghezze[c] - 0.8F, kRiga - 0.7F, 0.8F);
            }
        }
        x += larghezze[c];
    }
    stampante.FontBold(false);
    stampante.ForeColor(kNero);
    stampante.DrawWidth(1);
    for (std::size_t r = 1; r < foglio.righe; r += 2)
        stampante.PrintShape(sinistra, kPrimaRiga + kRiga * static_cast<float>(r), larghezza, kRiga);
    stampante.DrawWidth(4);
    x = 0;
    for (const std::size_t c : foglio.colonne) {
        x += larghezze[c];
        stampante.PrintShape(sinistra, kPrimaRiga, x, altezza);
    }
    stampante.FontSize(10);
}

Rapporto tabelle_su(Orientamento voluto, const MaterialeRapporto& materiale) {
    auto piano = std::make_shared<const PianoTabelle>(pianifica(materiale.risultato, voluto));
    const int pagine = std::max(static_cast<int>(piano->fogli.size()), 1);
    return {.titolo = materiale.testa.ricerca,
            .orientamento = piano->orientamento,
            .pagine = pagine,
            .disegna = [piano, pagine, &risultato = materiale.risultato, testa = materiale.testa,
                        ordine = std::vector(materiale.ordine.begin(), materiale.ordine.end())](
                           EasyPrint& stampante, int pagina) {
                stampa_intestazione(stampante, testa);
                if (piano->fogli.empty()) {
                    float y = kPrimaRiga;
                    for (const Messaggio& messaggio : risultato.messaggi) {
                        stampante.PrintLeft(10, y, messaggio.testo, 0, kBanda);
                        y += kRiga;
                    }
                } else {
                    const FoglioTabella& foglio = piano->fogli[static_cast<std::size_t>(pagina - 1)];
                    const auto t = static_cast<std::size_t>(foglio.tabella - risultato.tabelle.data());
                    // The order on the screen is that of the main grid.
                    stampa_foglio(stampante, *piano, foglio, t,
                                  t == 0 ? std::span{ordine} : std::span<const std::uint32_t>{});
                }
                stampa_piede(stampante, pagina, pagine);
            }};
}

}  // namespace

Rapporto rapporto_tabelle(const MaterialeRapporto& materiale) {
    return tabelle_su(Orientamento::verticale, materiale);
}

Rapporto rapporto_tabelle_orizzontale(const MaterialeRapporto& materiale) {
    return tabelle_su(Orientamento::orizzontale, materiale);
}

}  // namespace sortimetra
