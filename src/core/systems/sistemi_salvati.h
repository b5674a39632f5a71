#pragma once

#include "files/errore.h"
#include "systems/misure_combinazione.h"
#include "text/data.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// A kind of number system: a box of `CheckSistema`.
struct GenereSistema {
    std::string_view titolo;    ///< caption of its box
    std::string_view cartella;  ///< of its files, below the program's folder
    std::string_view lettera;   ///< what every file's name has before ".txt"
    std::size_t k;              ///< numbers per combination
};

inline constexpr std::size_t kGeneriSistema = 7;
inline constexpr std::array<GenereSistema, kGeneriSistema> kGeneri{{
    {"Sistemi per Ambo", "ambo", "a", 2},
    {"Sistemi per Terno", "terno", "b", 3},
    {"Sistemi per Quaterna", "quaterna", "c", 4},
    {"Sistema per Cinquina", "cinquina", "d", 5},
    {"Sistemi SuperEnalotto", "superenalotto", "e", 6},
    {"Sistemi Dieci e Lotto", "10elotto", "10", 10},
    {"Sistemi Win for Life", "wforlife", "10", 10},
}};
inline constexpr int kSistemaSuperEnalotto = 4;
inline constexpr int kSistema10eLotto = 5;
inline constexpr int kSistemaWinForLife = 6;

/// A row of the list of saved systems.
struct VoceSistema {
    std::string nome;
    std::optional<Data> data;  ///< when its combinations were first written, where the disk knows it
    /// As its count file tells; nothing where that cannot be read.
    std::optional<std::int64_t> combinazioni;
    std::filesystem::path file;  ///< its combinations

    /// The cell "Numero Combinazioni": points between the thousands, empty for none.
    [[nodiscard]] std::string testo_combinazioni() const;
};

/// The saved systems of a kind (0 to 6), by name. Those that stand in unregistered development (a file ".nn"
/// beside them) are left out; a folder that does not exist has none.
[[nodiscard]] std::vector<VoceSistema> trova_sistemi(const std::filesystem::path& cartella, int genere);

/// When a file was made, local day; where the disk keeps no such time, when it was last changed.
[[nodiscard]] std::optional<Data> ShowFileInfo(const std::filesystem::path& file);

/// Reads the combinations of a saved system as one stream of whole numbers, parted by commas, blanks or line
/// ends. A system of any size passes through one buffer.
class LettoreSistema {
  public:
    [[nodiscard]] static std::expected<LettoreSistema, ErroreArchivio> apri(
        const std::filesystem::path& file);
    LettoreSistema(LettoreSistema&& altro) noexcept;
    LettoreSistema& operator=(LettoreSistema&&) = delete;
    LettoreSistema(const LettoreSistema&) = delete;
    LettoreSistema& operator=(const LettoreSistema&) = delete;
    ~LettoreSistema();

    /// Puts the next numbers at `dove`, as many as there is room for, and returns how many; 0 at the end. The
    /// error names the line, what stands there and what should: anything but a number, one that does not fit,
    /// nothing between two commas.
    [[nodiscard]] std::expected<std::size_t, ErroreArchivio> leggi(std::span<Valore> dove);

    /// Bytes read so far, and in the file.
    [[nodiscard]] std::size_t letti() const { return letti_; }
    [[nodiscard]] std::size_t grandezza() const { return grandezza_; }

  private:
    /// What stands before the next character.
    enum class Stato : std::uint8_t {
        libero,  ///< a line end, or the beginning
        segno,   ///< a sign without its digits
        numero,  ///< digits
        chiuso,  ///< a blank behind a number: its comma may follow
        dopo_virgola
    };

    LettoreSistema() = default;
    [[nodiscard]] bool riempi();
    [[nodiscard]] bool leggi_blocco(std::span<Valore> dove, std::size_t& n);
    [[nodiscard]] ErroreArchivio danno(std::string_view perche = {}) const;

    static constexpr std::size_t kBlocco = std::size_t{1} << 18U;

    std::filesystem::path file_;
    int descrittore_ = -1;
    std::size_t grandezza_ = 0;
    std::size_t letti_ = 0;
    std::size_t riga_ = 1;
    std::unique_ptr<char[]> blocco_;  // NOLINT(*-avoid-c-arrays): bytes that nobody has to clear first
    std::size_t posto_ = 0;
    std::size_t fine_ = 0;
    Stato stato_ = Stato::libero;
    bool negativo_ = false;
    bool finito_ = false;
    int valore_ = 0;
    int motivo_ = 0;  ///< what the system said of a failed read
};

}  // namespace sortimetra
