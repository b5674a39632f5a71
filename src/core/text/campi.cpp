#include "text/campi.h"

#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace sortimetra {

namespace {

constexpr bool e_bianco(char c) {
    return c == ' ' || c == '\t';
}
constexpr bool e_fine(char c) {
    return c == '\r' || c == '\n';
}

}  // namespace

void LettoreCampi::salta_bianchi() {
    while (posto_ < byte_.size() && e_bianco(byte_[posto_])) ++posto_;
}

void LettoreCampi::salta_fine_riga() {
    if (posto_ == byte_.size()) return;
    const bool due = byte_[posto_] == '\r' && posto_ + 1 < byte_.size() && byte_[posto_ + 1] == '\n';
    posto_ += due ? 2 : 1;
    ++riga_;
}

std::optional<std::string_view> LettoreCampi::campo() {
    salta_bianchi();
    if (posto_ == byte_.size()) return std::nullopt;
    std::string_view testo;
    if (byte_[posto_] == '"') {
        const std::size_t fine = std::min(byte_.find('"', posto_ + 1), byte_.size());
        testo = byte_.substr(posto_ + 1, fine - posto_ - 1);
        riga_ += static_cast<int>(std::count(testo.begin(), testo.end(), '\n'));
        posto_ = std::min(fine + 1, byte_.size());
        salta_bianchi();
    } else {
        const std::size_t fine = std::min(byte_.find_first_of(",\r\n", posto_), byte_.size());
        testo = rifila(byte_.substr(posto_, fine - posto_));
        posto_ = fine;
    }
    if (posto_ < byte_.size() && byte_[posto_] == ',')
        ++posto_;
    else if (posto_ < byte_.size() && e_fine(byte_[posto_]))
        salta_fine_riga();
    return testo;
}

std::optional<int> LettoreCampi::intero() {
    const auto testo = campo();
    if (!testo || testo->empty() || testo->front() == '-') return std::nullopt;
    int valore = 0;
    const auto [fine, errore] = std::from_chars(testo->data(), testo->data() + testo->size(), valore);
    if (errore != std::errc{} || fine != testo->data() + testo->size()) return std::nullopt;
    return valore;
}

std::optional<float> LettoreCampi::decimale() {
    const auto testo = campo();
    if (!testo || testo->empty()) return std::nullopt;
    float valore = 0;
    const auto [fine, errore] = std::from_chars(testo->data(), testo->data() + testo->size(), valore);
    if (errore != std::errc{} || fine != testo->data() + testo->size() || !std::isfinite(valore))
        return std::nullopt;
    return valore;
}

std::string_view LettoreCampi::resto() {
    const std::size_t fine = std::min(byte_.find_first_of("\r\n", posto_), byte_.size());
    const std::string_view testo = byte_.substr(posto_, fine - posto_);
    posto_ = fine;
    salta_fine_riga();
    return testo;
}

bool LettoreCampi::finito() const {
    return byte_.find_first_not_of(" \t\r\n", posto_) == std::string_view::npos;
}

void aggiungi_campo(std::string& record, std::string_view testo) {
    record += '"';
    record += testo;
    record += '"';
}

void aggiungi_campo(std::string& record, float numero) {
    std::string testo = fmt::format("{}", numero);
    if (testo.starts_with("0."))
        testo.erase(0, 1);
    else if (testo.starts_with("-0."))
        testo.erase(1, 1);
    record += testo;
}

}  // namespace sortimetra
