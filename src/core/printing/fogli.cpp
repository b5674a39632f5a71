#include "printing/fogli.h"

#include <array>
#include <cmath>

namespace sortimetra {

namespace {

struct FoglioNoto {
    std::string_view nome;
    double larghezza;
    double altezza;
};

/// By paper code, from 1. 48 and 49 were never given.
constexpr std::array<FoglioNoto, 68> kFogli{{
    {"Letter", 8.5 * kPollice, 11 * kPollice},
    {"Letter Small", 8.5 * kPollice, 11 * kPollice},
    {"Tabloid", 11 * kPollice, 17 * kPollice},
    {"Ledger", 17 * kPollice, 11 * kPollice},
    {"Legal", 8.5 * kPollice, 14 * kPollice},
    {"Statement", 5.5 * kPollice, 8.5 * kPollice},
    {"Executive", 7.25 * kPollice, 10.5 * kPollice},
    {"A3", 297, 420},
    {"A4", 210, 297},
    {"A4 Small", 210, 297},
    {"A5", 148, 210},
    {"B4", 257, 364},
    {"B5", 182, 257},
    {"Folio", 8.5 * kPollice, 13 * kPollice},
    {"Quarto", 215, 275},
    {"10X14", 10 * kPollice, 14 * kPollice},
    {"11X17", 11 * kPollice, 17 * kPollice},
    {"Note", 8.5 * kPollice, 11 * kPollice},
    {"Envelope 9", 3.875 * kPollice, 8.875 * kPollice},
    {"Envelope 10", 4.125 * kPollice, 9.5 * kPollice},
    {"Envelope 11", 4.5 * kPollice, 10.375 * kPollice},
    {"Envelope 12", 4.75 * kPollice, 11 * kPollice},
    {"Envelope 14", 5 * kPollice, 11.5 * kPollice},
    {"C Sheet", 17 * kPollice, 22 * kPollice},
    {"D Sheet", 22 * kPollice, 34 * kPollice},
    {"E Sheet", 34 * kPollice, 44 * kPollice},
    {"Envelope DL", 110, 220},
    {"Envelope C5", 162, 229},
    {"Envelope C3", 324, 458},
    {"Envelope C4", 229, 324},
    {"Envelope C6", 114, 162},
    {"Envelope C65", 114, 229},
    {"Envelope B4", 250, 353},
    {"Envelope B5", 176, 250},
    {"Envelope B6", 176, 125},
    {"Envelope Italy", 110, 230},
    {"Envelope Monarch", 3.875 * kPollice, 7.5 * kPollice},
    {"Envelope Personal", 3.625 * kPollice, 6.5 * kPollice},
    {"Fanfold US", 14.875 * kPollice, 11 * kPollice},
    {"Fanfold Std. German", 8.5 * kPollice, 12 * kPollice},
    {"Fanfold Lgl. German", 8.5 * kPollice, 13 * kPollice},
    {"ISO B4", 250, 353},
    {"Japanese Postcard", 100, 148},
    {"9X11", 9 * kPollice, 11 * kPollice},
    {"10X11", 10 * kPollice, 11 * kPollice},
    {"15X11", 15 * kPollice, 11 * kPollice},
    {"Envelope Invite", 220, 220},
    {},
    {},
    {"Letter Extra", 9.5 * kPollice, 12 * kPollice},
    {"Legal Extra", 9.5 * kPollice, 15 * kPollice},
    {"Tabloid Extra", 11.69 * kPollice, 18 * kPollice},
    {"A4 Extra", 9.27 * kPollice, 12.69 * kPollice},
    {"Letter Transverse", 8.5 * kPollice, 11 * kPollice},
    {"A4 Transverse", 210, 297},
    {"Letter Extra Transverse", 9.5 * kPollice, 12 * kPollice},
    {"A Plus", 227, 356},
    {"B Plus", 305, 487},
    {"Letter Plus", 8.5 * kPollice, 12.69 * kPollice},
    {"A4 Plus", 210, 330},
    {"A5 Transverse", 148, 210},
    {"B5 Transverse", 182, 257},
    {"A3 Extra", 322, 445},
    {"A5 Extra", 174, 235},
    {"B5 Extra", 201, 276},
    {"A2", 420, 594},
    {"A3 Transverse", 297, 420},
    {"A3 Extra Transverse", 322, 445},
}};

/// Null for a code that names no sheet.
const FoglioNoto* foglio_noto(int codice) {
    if (codice < 1 || codice > static_cast<int>(kFogli.size())) return nullptr;
    const FoglioNoto& foglio = kFogli[static_cast<std::size_t>(codice - 1)];
    return foglio.nome.empty() ? nullptr : &foglio;
}

}  // namespace

std::string_view nome_foglio(int codice) {
    if (codice >= kFoglioUtente) return "User";
    const FoglioNoto* foglio = foglio_noto(codice);
    return foglio == nullptr ? "Unknown" : foglio->nome;
}

std::optional<Dimensioni> misure_foglio(int codice) {
    const FoglioNoto* foglio = foglio_noto(codice);
    if (foglio == nullptr) return std::nullopt;
    return Dimensioni{foglio->larghezza, foglio->altezza};
}

int codice_foglio(Dimensioni misure) {
    const auto vicini = [](double a, double b) { return std::abs(a - b) < 0.6; };
    const auto e = [&](const FoglioNoto& f, double larghezza, double altezza) {
        return !f.nome.empty() && vicini(f.larghezza, larghezza) && vicini(f.altezza, altezza);
    };
    // A4 before all: several codes share its size. Upright before lying: "Ledger" is a "Tabloid" on its side.
    if (e(kFogli[kFoglioA4 - 1], misure.larghezza, misure.altezza)) return kFoglioA4;
    for (std::size_t i = 0; i < kFogli.size(); ++i)
        if (e(kFogli[i], misure.larghezza, misure.altezza)) return static_cast<int>(i) + 1;
    for (std::size_t i = 0; i < kFogli.size(); ++i)
        if (e(kFogli[i], misure.altezza, misure.larghezza)) return static_cast<int>(i) + 1;
    return kFoglioUtente;
}

}  // namespace sortimetra
