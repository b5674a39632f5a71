#include "text/testi.h"

#include <fmt/core.h>

#include <charconv>

namespace sortimetra {

namespace {

/// The bare letters of the small letters U+00E0 to U+00FF, "\0" where there is none.
constexpr std::string_view kSenzaAccento{"aaaaaa\0ceeeeiiii\0nooooo\0\0uuuuy\0y", 32};
static_assert(kSenzaAccento.size() == 32);

constexpr std::string_view kBianchi = " \t\r\n";

}  // namespace

std::string_view rifila(std::string_view testo) {
    const auto inizio = testo.find_first_not_of(kBianchi);
    if (inizio == std::string_view::npos) return {};
    return testo.substr(inizio, testo.find_last_not_of(kBianchi) - inizio + 1);
}

std::string minuscolo(std::string_view testo) {
    std::string basso{testo};
    for (std::size_t i = 0; i < basso.size(); ++i) {
        const char c = basso[i];
        if (c >= 'A' && c <= 'Z') {
            basso[i] = static_cast<char>(c - 'A' + 'a');
        } else if (c == '\xC3' && i + 1 < basso.size()) {
            // U+00C0 to U+00DE in UTF-8 are C3 80 to C3 9E; lower case stands 0x20 further. 0x97 is "×".
            const auto d = static_cast<unsigned char>(basso[i + 1]);
            if (d >= 0x80 && d <= 0x9E && d != 0x97) basso[i + 1] = static_cast<char>(d + 0x20);
            ++i;
        }
    }
    return basso;
}

std::int64_t valore_iniziale(std::string_view testo) {
    constexpr std::int64_t kTetto = INT64_MAX / 20;
    std::int64_t valore = 0;
    bool negativo = false;
    bool cominciato = false;
    for (const char c : testo) {
        if (kBianchi.find(c) != std::string_view::npos) continue;
        if (!cominciato && (c == '-' || c == '+')) {
            negativo = c == '-';
            cominciato = true;
            continue;
        }
        if (c < '0' || c > '9') break;
        cominciato = true;
        if (valore < kTetto) valore = valore * 10 + (c - '0');
    }
    return negativo ? -valore : valore;
}

void aggiungi_due_cifre(std::string& testo, int numero) {
    testo += static_cast<char>('0' + numero / 10 % 10);
    testo += static_cast<char>('0' + numero % 10);
}

void aggiungi_intero(std::string& testo, std::int64_t numero) {
    char cifre[24];
    const auto fine = std::to_chars(cifre, cifre + sizeof cifre, numero).ptr;
    testo.append(cifre, fine);
}

std::string migliaia(std::int64_t numero) {
    std::string cifre = std::to_string(numero);
    const std::size_t inizio = numero < 0 ? 1 : 0;
    for (std::size_t i = cifre.size(); i > inizio + 3;) {
        i -= 3;
        cifre.insert(i, 1, '.');
    }
    return cifre;
}

std::string quoziente_due_decimali(std::int64_t numeratore, std::int64_t denominatore, bool punti) {
    if (denominatore == 0) return {};
    const bool negativo = (numeratore < 0) != (denominatore < 0);
    const auto n = static_cast<std::uint64_t>(numeratore < 0 ? -numeratore : numeratore);
    const auto d = static_cast<std::uint64_t>(denominatore < 0 ? -denominatore : denominatore);
    const std::uint64_t centesimi = (n * 200 + d) / (d * 2);
    const auto intera = static_cast<std::int64_t>(centesimi / 100);
    const auto resto = static_cast<int>(centesimi % 100);
    std::string testo = negativo && centesimi != 0 ? "-" : "";
    testo += punti ? migliaia(intera) : std::to_string(intera);
    testo += ',';
    aggiungi_due_cifre(testo, resto);
    return testo;
}

std::string piega(std::string_view testo) {
    const std::string basso = minuscolo(testo);
    std::string piegato;
    piegato.reserve(basso.size());
    for (std::size_t i = 0; i < basso.size(); ++i) {
        // U+00E0 to U+00FF in UTF-8 are C3 A0 to C3 BF.
        if (basso[i] == '\xC3' && i + 1 < basso.size()) {
            const auto d = static_cast<unsigned char>(basso[i + 1]);
            if (d >= 0xA0 && d <= 0xBF && kSenzaAccento[d - 0xA0] != '\0') {
                piegato += kSenzaAccento[d - 0xA0];
                ++i;
                continue;
            }
        }
        piegato += basso[i];
    }
    return piegato;
}

std::string piega_nome(std::string_view testo) {
    std::string nome;
    for (const char c : piega(testo)) {
        const bool bianco = c == ' ' || c == '\t' || c == '\r' || c == '\n';
        if (!bianco)
            nome += c;
        else if (!nome.empty() && nome.back() != ' ')
            nome += ' ';
    }
    if (nome.ends_with(' ')) nome.pop_back();
    return nome;
}

}  // namespace sortimetra
