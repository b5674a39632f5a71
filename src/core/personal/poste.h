#pragma once

#include "files/errore.h"
#include "results/domanda.h"
#include "results/messaggio.h"
#include "results/risultato_fwd.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

class ArchivioEstrazioni;
class Avanzamento;

/// An amount of money in euro cents.
using Centesimi = std::int64_t;

inline constexpr std::size_t kRighePiramide = 10;
inline constexpr std::size_t kSorti = 5;

/// The stakes of one row of the pyramid, and whether its slip is printed (`Checksch`).
struct RigaPoste {
    std::array<Centesimi, kSorti> poste{};
    bool stampa = true;

    [[nodiscard]] Centesimi importo() const;
    friend bool operator==(const RigaPoste&, const RigaPoste&) = default;
};
using Poste = std::array<RigaPoste, kRighePiramide>;

inline constexpr std::array<std::string_view, kSorti> kNomiSorti{"Ambata", "Ambo", "Terno", "Quaterna",
                                                                 "Cinquina"};
/// The rows as the stake grid calls them, and as a slip does.
inline constexpr std::array<std::string_view, kRighePiramide> kRigheSchedine{
    "Ambata", "Ambo", "Terno", "Quaterna", "Cinquina", "Sestina", "settina", "Ottina", "Novina", "Decina"};
inline constexpr std::array<std::string_view, kRighePiramide> kTitoliSchedine{
    "Ambata", "Ambo", "Terzina", "Quartina", "Cinquina", "Sestina", "Settina", "Ottina", "Novina", "Decina"};

inline constexpr std::string_view kFilePoste = "impir.dat";

/// The stakes that a slip can mark, from the largest.
inline constexpr std::array<Centesimi, 18> kTagli{20000, 10000, 5000, 4000, 3000, 2000, 1000, 500, 400,
                                                  300,   200,   100,  50,   40,   30,   20,   10,  5};
/// Marks that one bet takes at most.
inline constexpr std::size_t kMarcheMassime = 5;

[[nodiscard]] constexpr Poste poste_predefinite() {
    constexpr RigaPoste kCinque{.poste = {0, 225, 100, 50, 25}};
    constexpr RigaPoste kSette{.poste = {0, 300, 100, 75, 25}};
    return {RigaPoste{.poste = {500}},
            RigaPoste{.poste = {0, 100}},
            RigaPoste{.poste = {0, 100, 100}},
            RigaPoste{.poste = {0, 250, 100, 50}},
            kCinque,
            kCinque,
            kSette,
            kSette,
            kSette,
            RigaPoste{.poste = {0, 400, 100, 75, 25}}};
}

/// The denominations of a stake, as places in `kTagli`: from the largest, each at most once, five at most.
/// What they do not cover is not marked.
[[nodiscard]] std::vector<std::size_t> marche(Centesimi posta);
/// What the marks of a row's bets add up to: the slip's total.
[[nodiscard]] Centesimi totale_marche(const RigaPoste& riga);
/// "2", "0,5", "0,05".
[[nodiscard]] std::string testo_taglio(Centesimi taglio);

/// "1.234,50"; the empty text for no stake.
[[nodiscard]] std::string testo_posta(Centesimi posta);
/// "€ 4,00", with its total for 0 too.
[[nodiscard]] std::string testo_importo(Centesimi importo);
/// What a cell's text is worth: digits, with points between the thousands and a comma before the decimals;
/// decimals beyond the second are rounded. A text that is no number is worth 0.
[[nodiscard]] Centesimi leggi_posta(std::string_view testo);
/// A cell's text as it stands once the cell is left: two decimals, the last of them 0 or 5. "0,03" gives
/// "0,00".
[[nodiscard]] std::string posta_lasciata(std::string_view testo);

/// The stakes on disk; the defaults where there is no file. A damaged file is told and left alone.
[[nodiscard]] std::expected<Poste, ErroreArchivio> leggi_poste(const std::filesystem::path& cartella);
/// Writes the file of the defaults if there is none.
[[nodiscard]] std::expected<void, ErroreArchivio> crea_poste(const std::filesystem::path& cartella);
[[nodiscard]] std::expected<void, ErroreArchivio> scrivi_poste(const std::filesystem::path& cartella,
                                                               const Poste& poste);

/// "schedine": the stakes and totals by row ("risultati"), and the marks of each stake of the rows that are
/// printed ("marche").
[[nodiscard]] Risultato schedine(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                 Avanzamento& avanzamento);
[[nodiscard]] std::expected<void, Messaggio> carica_poste(const std::filesystem::path& cartella,
                                                          Domanda& domanda);

}  // namespace sortimetra
