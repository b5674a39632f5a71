#include "text/testo_ini.h"

#include "text/testi.h"

#include <algorithm>
#include <cstddef>

namespace sortimetra {

namespace {

constexpr std::string_view kSegnoUtf8 = "\xEF\xBB\xBF";

bool uguali(std::string_view a, std::string_view b) {
    const auto basso = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return basso(x) == basso(y); });
}

bool fra_virgolette(std::string_view v) {
    return v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.front() == v.back();
}

/// One line and where it stands: [inizio, fine) without its line end, `seguente` behind that.
struct Riga {
    std::size_t inizio = 0;
    std::size_t fine = 0;
    std::size_t seguente = 0;
};

Riga riga_da(std::string_view testo, std::size_t inizio) {
    const auto fine = testo.find('\n', inizio);
    if (fine == std::string_view::npos) return {inizio, testo.size(), testo.size()};
    return {inizio, fine, fine + 1};
}

/// The name in "[name]"; nothing for any other line.
std::optional<std::string_view> nome_sezione(std::string_view riga) {
    riga = rifila(riga);
    if (!riga.starts_with('[')) return std::nullopt;
    const auto chiusa = riga.find(']');
    if (chiusa == std::string_view::npos) return std::nullopt;
    return rifila(riga.substr(1, chiusa - 1));
}

/// Where a key stands, or where it would have to be put.
struct Posto {
    std::optional<Riga> chiave;
    std::optional<std::size_t> in_coda;  ///< behind the last key (or the title) of the section
};

Posto trova(std::string_view testo, std::string_view sezione, std::string_view chiave) {
    Posto posto;
    bool dentro = false;
    bool prima = false;  // inside the first section of that name: a new key joins it, not a namesake
    for (std::size_t i = testo.starts_with(kSegnoUtf8) ? kSegnoUtf8.size() : 0; i < testo.size();) {
        const Riga riga = riga_da(testo, i);
        const std::string_view parola = rifila(testo.substr(riga.inizio, riga.fine - riga.inizio));
        i = riga.seguente;
        if (const auto nome = nome_sezione(parola)) {
            dentro = uguali(*nome, sezione);
            prima = dentro && !posto.in_coda;
            if (prima) posto.in_coda = riga.seguente;
            continue;
        }
        if (!dentro || parola.empty() || parola.front() == ';') continue;
        const auto segno = parola.find('=');
        if (segno == std::string_view::npos) continue;
        if (prima) posto.in_coda = riga.seguente;
        if (uguali(rifila(parola.substr(0, segno)), chiave)) {
            posto.chiave = riga;
            return posto;
        }
    }
    return posto;
}

}  // namespace

std::optional<std::string_view> valore_ini(std::string_view testo, std::string_view sezione,
                                           std::string_view chiave) {
    const auto posto = trova(testo, sezione, chiave);
    if (!posto.chiave) return std::nullopt;
    std::string_view riga = testo.substr(posto.chiave->inizio, posto.chiave->fine - posto.chiave->inizio);
    riga.remove_prefix(riga.find('=') + 1);
    std::string_view valore = rifila(riga.substr(0, riga.find('\0')));
    if (fra_virgolette(valore)) valore = valore.substr(1, valore.size() - 2);
    return valore;
}

std::string con_valore_ini(std::string_view testo, std::string_view sezione, std::string_view chiave,
                           std::string_view valore) {
    valore = valore.substr(0, valore.find_first_of(std::string_view{"\r\n\0", 3}));
    const bool virgolette = fra_virgolette(valore) || rifila(valore).size() != valore.size();
    const std::string scritto = virgolette ? '"' + std::string{valore} + '"' : std::string{valore};

    const auto posto = trova(testo, sezione, chiave);
    std::string nuovo;
    nuovo.reserve(testo.size() + sezione.size() + chiave.size() + scritto.size() + 8);
    if (posto.chiave) {
        // The key keeps its spelling and the line its end.
        const auto segno = testo.find('=', posto.chiave->inizio);
        auto fine = posto.chiave->fine;
        if (fine > segno + 1 && testo[fine - 1] == '\r') --fine;
        nuovo.append(testo.substr(0, segno + 1)).append(scritto).append(testo.substr(fine));
        return nuovo;
    }
    const auto dove = posto.in_coda.value_or(testo.size());
    nuovo.append(testo.substr(0, dove));
    if (!nuovo.empty() && nuovo.back() != '\n') nuovo += "\r\n";
    if (!posto.in_coda) nuovo.append("[").append(sezione).append("]\r\n");
    nuovo.append(chiave).append("=").append(scritto).append("\r\n").append(testo.substr(dove));
    return nuovo;
}

}  // namespace sortimetra
