#include "files/indirizzi.h"

#include "files/sessione.h"
#include "text/testi.h"
#include "text/testo_ini.h"

#include <fmt/core.h>

#include <algorithm>

namespace sortimetra {

namespace {

constexpr std::string_view kSezioneIndirizzi = "Indirizzi";

}  // namespace

std::vector<std::string> leggi_indirizzi() {
    const auto testo = leggi_impostazioni();
    if (!testo) return {};
    std::vector<std::string> tutti;
    for (std::size_t i = 1; i <= kIndirizziMassimi; ++i) {
        const auto valore = valore_ini(*testo, kSezioneIndirizzi, std::to_string(i));
        if (valore && rifiuto_indirizzo(*valore).empty()) tutti.emplace_back(*valore);
    }
    return tutti;
}

std::string_view rifiuto_indirizzo(std::string_view indirizzo) {
    constexpr std::string_view kInizio = "https://";
    if (!minuscolo(indirizzo.substr(0, kInizio.size())).starts_with(kInizio))
        return "un indirizzo comincia con https://";
    if (indirizzo.size() == kInizio.size()) return "dopo https:// manca il nome del server";
    const bool strano = std::any_of(indirizzo.begin(), indirizzo.end(), [](char c) {
        return static_cast<unsigned char>(c) <= ' ' || c == '\x7F' || c == '"';
    });
    return strano ? "un indirizzo non contiene spazi né virgolette" : "";
}

std::expected<void, ErroreArchivio> scrivi_indirizzi(std::span<const std::string> indirizzi) {
    for (const std::string& i : indirizzi)
        if (const auto motivo = rifiuto_indirizzo(i); !motivo.empty())
            return std::unexpected(ErroreArchivio{i, std::string{motivo}});
    if (indirizzi.size() > kIndirizziMassimi)
        return std::unexpected(
            ErroreArchivio{{}, fmt::format("si tengono al massimo {} indirizzi", kIndirizziMassimi)});
    return cambia_impostazioni([&](std::string testo) {
        for (std::size_t i = 1; i <= kIndirizziMassimi; ++i) {
            const std::string chiave = std::to_string(i);
            const std::string_view valore = i <= indirizzi.size() ? std::string_view{indirizzi[i - 1]} : "";
            if (!valore.empty() || valore_ini(testo, kSezioneIndirizzi, chiave))
                testo = con_valore_ini(testo, kSezioneIndirizzi, chiave, valore);
        }
        return testo;
    });
}

}  // namespace sortimetra
