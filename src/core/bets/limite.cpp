#include "bets/limite.h"

#include "files/file_sicuro.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <system_error>

namespace sortimetra {

namespace {

/// One line; anything longer is no such file.
constexpr std::size_t kGrandezzaMassima = 4096;
constexpr std::size_t kCifreMassime = 12;

bool e_cifra(char c) {
    return c >= '0' && c <= '9';
}

/// The number that a text begins with, read with a decimal point: "227,5" gives 227, no digit 0.
float valore_con_punto(std::string_view testo) {
    std::string numero;
    bool punto = false;
    for (const char c : testo) {
        if (c == ' ' || c == '\t') continue;
        const bool segno = numero.empty() && c == '-';
        const bool primo_punto = c == '.' && !punto;
        if (!segno && !primo_punto && !e_cifra(c)) break;
        punto = punto || primo_punto;
        numero += c;
    }
    double valore = 0;
    std::from_chars(numero.data(), numero.data() + numero.size(), valore);
    return static_cast<float>(valore);
}

/// The first line of a text, without the quotes round it.
std::string_view senza_virgolette(std::string_view testo) {
    testo = rifila(testo.substr(0, testo.find_first_of("\r\n")));
    if (testo.starts_with('"')) testo.remove_prefix(1);
    if (testo.ends_with('"')) testo.remove_suffix(1);
    return testo;
}

/// Where the decimal sign of a typed number stands: its comma, or a point that groups no thousands.
std::size_t segno_decimale(std::string_view testo) {
    const auto virgola = testo.find(',');
    if (virgola != std::string_view::npos) return virgola;
    const auto punto = testo.find('.');
    constexpr std::size_t kGruppo = 3;
    const bool migliaia = punto != std::string_view::npos && punto > 0 && punto <= kGruppo &&
                          (testo.size() - punto) % (kGruppo + 1) == 0;
    return migliaia ? std::string_view::npos : punto;
}

}  // namespace

std::expected<std::optional<LimiteArchiviato>, ErroreArchivio> leggi_limite(
    const std::filesystem::path& cartella) {
    const auto file = cartella / kFileLimite;
    std::error_code errore;
    if (!std::filesystem::exists(file, errore) && !errore) return std::nullopt;
    const auto letto = leggi_file(file, kGrandezzaMassima);
    if (!letto) return std::unexpected(letto.error());
    const std::string_view testo = senza_virgolette(*letto);
    return LimiteArchiviato{.testo = std::string{testo}, .valore = valore_con_punto(testo)};
}

std::expected<void, ErroreArchivio> scrivi_limite(const std::filesystem::path& cartella,
                                                  std::string_view testo) {
    return scrivi_file(cartella / kFileLimite, fmt::format("\"{}\"\r\n", testo));
}

std::optional<std::int64_t> leggi_decimi(std::string_view testo) {
    testo = rifila(testo);
    const auto segno = segno_decimale(testo);
    const std::string_view decimali =
        segno == std::string_view::npos ? std::string_view{} : testo.substr(segno + 1);
    std::string intera{testo.substr(0, segno)};
    intera.erase(std::remove(intera.begin(), intera.end(), '.'), intera.end());
    const bool cifre = std::all_of(intera.begin(), intera.end(), e_cifra) &&
                       std::all_of(decimali.begin(), decimali.end(), e_cifra);
    if (!cifre || (intera.empty() && decimali.empty()) || intera.size() > kCifreMassime) return std::nullopt;
    std::int64_t decimi = 0;
    for (const char c : intera) decimi = decimi * 10 + (c - '0');
    decimi *= 10;
    if (!decimali.empty()) decimi += decimali[0] - '0';
    if (decimali.size() > 1 && decimali[1] >= '5') ++decimi;
    return decimi;
}

std::string testo_decimi(std::int64_t decimi) {
    return fmt::format("{},{}", migliaia(decimi / 10), decimi % 10);
}

std::string testo_limite(float limite) {
    // The shortest digits that are this float and no other.
    constexpr int kCifre = 64;
    std::array<char, kCifre> cifre{};
    const auto fine =
        std::to_chars(cifre.data(), cifre.data() + cifre.size(), limite, std::chars_format::fixed);
    const std::string_view testo{cifre.data(), static_cast<std::size_t>(fine.ptr - cifre.data())};
    const auto punto = testo.find('.');
    std::string italiano{testo.substr(0, punto)};
    constexpr std::ptrdiff_t kGruppo = 3;
    const std::ptrdiff_t inizio = limite < 0 ? 1 : 0;
    for (auto i = std::ssize(italiano) - kGruppo; i > inizio; i -= kGruppo)
        italiano.insert(static_cast<std::size_t>(i), 1, '.');
    if (punto != std::string_view::npos) italiano.append(",").append(testo.substr(punto + 1));
    return italiano;
}

}  // namespace sortimetra
