#pragma once

#include "draws/ruote.h"
#include "files/errore.h"

#include <array>
#include <expected>
#include <filesystem>
#include <string_view>

namespace sortimetra {

/// Where on the paper a mark goes, in mm from the sheet's edge.
struct PuntoSchedina {
    float x = 0;
    float y = 0;
    friend bool operator==(PuntoSchedina, PuntoSchedina) = default;
};

/// The calibration of the slips: the places of the marks, table by table as the file has them.
struct TaraturaLotto {
    std::array<PuntoSchedina, kNumeri> numeri{};  ///< the numbers 1 to 90
    std::array<PuntoSchedina, 8> primo_gruppo{};
    std::array<PuntoSchedina, 9> secondo_gruppo{};
    /// The stakes of the five bets, by denomination from the largest; the sixth table is in reserve.
    std::array<std::array<PuntoSchedina, 20>, 6> poste{};
    std::array<PuntoSchedina, kRuote> ruote{};  ///< the ten wheels
    PuntoSchedina nazionale{};                  ///< the single point
    bool due = false;  ///< the first closing number: 2 with the screen's flag, else 1

    friend bool operator==(const TaraturaLotto&, const TaraturaLotto&) = default;
};

inline constexpr std::string_view kFileTaratura = "tarlo";

/// The places that are used until a user has calibrated the slips.
[[nodiscard]] TaraturaLotto default_taratura_lotto();
/// Reads the calibration. A file that is missing, cut short or unreadable is an error, and is left alone.
[[nodiscard]] std::expected<TaraturaLotto, ErroreArchivio> apri_taratura_lotto(
    const std::filesystem::path& cartella);
[[nodiscard]] std::expected<void, ErroreArchivio> SALVA_DATI(const std::filesystem::path& cartella,
                                                             const TaraturaLotto& taratura);
/// What printing a slip does: reads the calibration, and writes that of the defaults first where there is
/// none.
[[nodiscard]] std::expected<TaraturaLotto, ErroreArchivio> taratura_per_stampa(
    const std::filesystem::path& cartella);

}  // namespace sortimetra
