#pragma once

#include "draws/avanzamento.h"
#include "files/errore.h"
#include "printing/easy_print.h"
#include "results/colore.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

/// The four texts of a page's head. With an empty `ricerca` the head is the logo alone.
struct Intestazione {
    std::string ricerca{};
    std::string ruote{};
    std::string concorsi{};
    std::string periodo{};
    /// A line under the head of some searches, "" for none: which kind of hit was counted.
    std::string nota{};
    /// The two halves of `periodo`, for a head that tells them apart: the entry of `ComboIntervallo` and
    /// "22/12/1990-21/08/2026".
    std::string intervallo{};
    std::string date{};

    friend bool operator==(const Intestazione&, const Intestazione&) = default;
};

/// A report ready to be drawn: any page of it, in any order, so that a preview shows page 1,000 without
/// drawing the others.
struct Rapporto {
    std::string titolo;  ///< name of the document
    Orientamento orientamento = Orientamento::verticale;
    int pagine = 1;
    /// Draws page `pagina` (from 1) with its head and its foot. What it reads (the result above all) must
    /// outlive the report.
    std::function<void(EasyPrint&, int pagina)> disegna;
};

/// First and last page, both included. The default is the whole report.
struct PagineScelte {
    int da = 1;
    int a = 0;  ///< 0: to the end

    /// Both ends within 1 to `totale`, the first not after the last.
    [[nodiscard]] PagineScelte entro(int totale) const;
    friend bool operator==(PagineScelte, PagineScelte) = default;
};

/// What a report is made from. `ordine` is the grid's row order on the screen (see `ordina`); empty for the
/// order of writing.
struct MaterialeRapporto {
    const Risultato& risultato;
    Intestazione testa;
    std::span<const std::uint32_t> ordine;
    /// The question, for a report that tells more of it than the head; null where nobody has asked.
    const Domanda* domanda = nullptr;
};

/// Draws the chosen pages, a new page between them, and ends the document. If `avanzamento` says stop the
/// document is abandoned. Returns whether it was ended.
bool stampa(EasyPrint& stampante, const Rapporto& rapporto, PagineScelte pagine, Avanzamento& avanzamento);

/// Writes a report as a PDF (A4), whole or not at all. The drawing surface is a module of its own beside the
/// program, loaded at the first call: no other command pays for it at start.
[[nodiscard]] std::expected<void, ErroreArchivio> stampa_pdf(const Rapporto& rapporto,
                                                             const std::filesystem::path& percorso,
                                                             Avanzamento& avanzamento,
                                                             PagineScelte pagine = {});

// ---- what reports share ----

/// What stands out on paper.
inline constexpr Colore kNero = 0;
inline constexpr Colore kRosso = 255;
inline constexpr Colore kBlu = 16711680;
inline constexpr Colore kBluScuro = 8388608;

/// Row of a table that stands in row `riga` of its grid, by the grid's order (empty: that of writing).
[[nodiscard]] std::size_t riga_in_griglia(const Tabella& tabella, std::size_t riga,
                                          std::span<const std::uint32_t> ordine);

/// Width of the band that head and foot of every report keep to, in mm.
inline constexpr float kBanda = 190;
/// Where that band begins: 10 on an upright sheet, centred on one that lies.
[[nodiscard]] float inizio_banda(const EasyPrint& stampante);

/// Left and right of a table on a lying sheet, which it fills from one margin to the other; and the sheet's
/// width, for what is settled before there is a printer.
inline constexpr float kMargineFoglio = 10;
inline constexpr float kFoglioCoricato = 297;
/// Sizes of a table's texts on a lying sheet: the larger one where rows are high enough for it.
inline constexpr std::int16_t kCorpoOrizzontale = 9;
inline constexpr std::int16_t kCorpoOrizzontaleFitto = 8;

/// The product's logo, 190 x 20 mm.
[[nodiscard]] const Immagine& logo();

/// The head of every report on the current page.
void stampa_intestazione(EasyPrint& stampante, std::string_view ricerca, std::string_view ruote,
                         std::string_view concorsi, std::string_view periodo);
/// The same with its note.
void stampa_intestazione(EasyPrint& stampante, const Intestazione& testa);

/// The head of a report without a scope: the logo, and under it at `y` the report's own title, centred in
/// red. Leaves the size of the title.
void stampa_testa_propria(EasyPrint& stampante, std::string_view titolo, float y, std::int16_t corpo);

/// "Pagina n di m" at the foot, right; with `totale` 0 "Pagina n".
void stampa_piede(EasyPrint& stampante, int pagina, int totale);
/// Height of the sheet that the foot keeps for itself: a table ends above it.
inline constexpr float kAltezzaPiede = 15;

/// The same report with "Archivio simulato" at the foot of each of its pages, in the middle: its draws never
/// took place.
[[nodiscard]] Rapporto segna_simulato(Rapporto rapporto);

/// The lines of a legend under each other, from y on at the band's left edge.
void stampa_legenda(EasyPrint& stampante, float y, std::span<const std::string_view> righe);

/// A box filled with a shade: what marks a cell on paper, drawn before the cell's text.
void stampa_fondo(EasyPrint& stampante, Colore colore, float x, float y, float larghezza, float altezza);

/// "(Ambi)", "(Terzine)" … for combinations of 2, 3, 4, 5, 6 and 10 numbers; "" for any other size.
[[nodiscard]] std::string_view parola_combinazione(std::size_t numeri);

/// Rows of one block of a printed grid.
inline constexpr std::size_t kRigheBlocco = 45;

/// Pages of a grid with that many rows, the title row not counted: two blocks a page, at least one page.
[[nodiscard]] int pagine_griglia(std::size_t righe);

/// One page of a grid of numbers: number or combination, frequency, delay, historic delay. Blocks of 45 rows,
/// two side by side; a grid of one block has wide columns. `titoli` are for a grid with four of its own.
void stampa_griglia(EasyPrint& stampante, const Tabella& tabella, std::span<const std::uint32_t> ordine,
                    int pagina, std::span<const std::string_view> titoli = {});

// ---- the reports ----

/// Head and `stampa_griglia`: the report of every grid with the three measures. A result of another shape is
/// printed by `rapporto_tabelle`.
[[nodiscard]] Rapporto rapporto_griglia(const MaterialeRapporto& materiale);
/// The same under four titles of its own, which must outlive the report.
[[nodiscard]] Rapporto rapporto_griglia_intitolata(const MaterialeRapporto& materiale,
                                                   std::span<const std::string_view> titoli);

/// All tables of a result as ruled tables whose columns fit their content, cells with a colour of their own
/// framed. Upright where they fit the band, else lying; a table too wide for that goes on in further pages
/// with its first column repeated.
[[nodiscard]] Rapporto rapporto_tabelle(const MaterialeRapporto& materiale);
/// The same on lying sheets, whatever would fit.
[[nodiscard]] Rapporto rapporto_tabelle_orizzontale(const MaterialeRapporto& materiale);

/// The fixed table of the 90 numbers' segnalimite, 45 rows in each of two column pairs.
[[nodiscard]] Rapporto rapporto_segnalimite(const MaterialeRapporto& materiale);

}  // namespace sortimetra
