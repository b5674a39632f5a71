#pragma once

#include "chance/storia.h"
#include "files/errore.h"
#include "files/modulo.h"
#include "results/risposta.h"
#include "text/data.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sortimetra {

// The picture of one or more stories as plain numbers: three panels, each with a curve of the law beside what
// was. Screen, paper and files paint it from here, so that they all show the same.

/// A delay at the draw where it was closed; the last one of a line is the present delay, still open.
struct PuntoRitardo {
    Concorso concorso = 0;
    Data data{};
    std::int32_t ritardo = 0;
    bool aperto = false;
};

/// A bar of delays `da` to `a`, both included.
struct BarraRitardi {
    std::int32_t da = 0;
    std::int32_t a = 0;
    std::int32_t quanti = 0;  ///< closed delays of that length
    double attesi = 0;        ///< as many as the law gives of that many closed delays
};

struct BarraAnno {
    int anno = 0;
    std::int32_t colpi = 0;  ///< frequency of the year
    double attesi = 0;
};

/// One event's share of the picture.
struct SerieGrafico {
    std::string nome;  ///< "67", "12-45"
    /// Upper panel: concorso (or date) across, delay upward.
    std::vector<PuntoRitardo> linea;
    std::int32_t record = 0;    ///< `Ritardo Storico`: a level line
    std::int32_t presente = 0;  ///< the delay now: a level line
    double record_atteso = 0;   ///< what chance gives: a level line of another stroke
    /// Lower left: the histogram of the closed delays. All series of a picture have the same bars.
    std::vector<BarraRitardi> barre;
    /// Lower right: hits by year. All series of a picture have the same years.
    std::vector<BarraAnno> anni;
};

/// How a picture is painted without a screen.
enum class FormatoGrafico : std::uint8_t { svg, png, pdf };

struct Grafico {
    std::string titolo;       ///< "La storia di 67"
    std::string sottotitolo;  ///< wheels, concorsi and dates
    std::string asse_ritardo = "Ritardo (concorsi)";
    std::string asse_concorso = "Concorso";
    std::string asse_ritardi_chiusi = "Ritardi chiusi";
    std::string asse_anno = "Anno";
    std::string asse_uscite = "Uscite";
    bool simulato = false;  ///< "Archivio simulato" must stand on it
    std::vector<SerieGrafico> serie{};
};

/// The picture of stories over one scope.
[[nodiscard]] Grafico grafico(std::span<const Storia> storie, std::string sottotitolo, bool simulato = false);

/// What a picture is of, in one line: "Bari, concorsi 1 - 4655, dal 07/01/1939 al 03/12/2024".
[[nodiscard]] std::string sottotitolo_grafico(const AmbitoDetto& ambito);

/// What ends a file's name: ".svg", ".png", ".pdf", in small letters or capitals; nothing for any other.
[[nodiscard]] std::optional<FormatoGrafico> formato_grafico(const std::filesystem::path& file);

// ---- the module that paints ----

/// Paints the picture into a file. Module and program are always built together.
using DisegnaGrafico = std::expected<void, ErroreArchivio> (*)(const Grafico&, const std::filesystem::path&,
                                                               FormatoGrafico);
/// The module's file name, beside the program or in `../lib/sortimetra`, and the C function that it exports:
/// `extern "C" sortimetra::DisegnaGrafico sortimetra_disegna_grafico()`.
inline constexpr Modulo kModuloGrafico{"libsortimetra-grafico.so", "sortimetra_disegna_grafico",
                                       "il modulo dei grafici"};

/// Loads the module at the first call and paints with it.
[[nodiscard]] std::expected<void, ErroreArchivio> scrivi_grafico(const Grafico& grafico,
                                                                 const std::filesystem::path& file,
                                                                 FormatoGrafico formato);

}  // namespace sortimetra
