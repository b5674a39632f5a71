#include "support/superficie_registrata.h"

#include "printing/fogli.h"
#include "printing/metriche.h"

#include <fmt/core.h>

#include <utility>

namespace sortimetra {

SuperficieRegistrata::SuperficieRegistrata(double scostamento_x, double scostamento_y)
    : scostamento_x_{scostamento_x}, scostamento_y_{scostamento_y} {}

Foglio SuperficieRegistrata::foglio() const {
    Dimensioni misure = misure_foglio(lavoro_.foglio).value_or(Dimensioni{210, 297});
    if (lavoro_.orientamento == Orientamento::orizzontale) std::swap(misure.larghezza, misure.altezza);
    return {misure.larghezza, misure.altezza, scostamento_x_, scostamento_y_};
}

std::string SuperficieRegistrata::nome_carattere(int i) const {
    return i == 0 ? "Arial" : i == 1 ? "Courier New" : "";
}

double SuperficieRegistrata::larghezza(std::string_view testo) {
    return larghezza_testo(stato.carattere, testo);
}
double SuperficieRegistrata::altezza(std::string_view) {
    return altezza_testo(stato.carattere);
}

std::expected<Dimensioni, ErroreDisegno> SuperficieRegistrata::dimensioni(const Immagine& immagine) {
    if (immagine.dati.empty()) return std::unexpected(ErroreDisegno{kErroreImmagine, "Immagine non valida"});
    return Dimensioni{40, 30};
}

Esito SuperficieRegistrata::esito() const {
    if (guasto_) return std::unexpected(*guasto_);
    return {};
}

Esito SuperficieRegistrata::scrivi(std::string_view testo) {
    if (guasto_) return esito();
    const double w = larghezza(testo);
    testi_.push_back({pagina_, stato.x + scostamento_x_, stato.y + scostamento_y_, w, std::string{testo},
                      stato.carattere, stato.colore});
    stato.x += w;
    return {};
}

Esito SuperficieRegistrata::linea(double x1, double y1, double x2, double y2) {
    if (!guasto_)
        linee_.push_back({pagina_, x1 + scostamento_x_, y1 + scostamento_y_, x2 + scostamento_x_,
                          y2 + scostamento_y_, stato.spessore, stato.colore, stato.stile});
    return esito();
}

Esito SuperficieRegistrata::rettangolo(double x1, double y1, double x2, double y2) {
    if (!guasto_)
        riquadri_.push_back({pagina_, x1 + scostamento_x_, y1 + scostamento_y_, x2 + scostamento_x_,
                             y2 + scostamento_y_, stato.spessore, stato.colore, stato.stile});
    return esito();
}

Esito SuperficieRegistrata::arco(double centro_x, double centro_y, double raggio, double da, double a) {
    if (!guasto_)
        archi_.push_back({pagina_, centro_x + scostamento_x_, centro_y + scostamento_y_, raggio, da, a});
    return esito();
}

Esito SuperficieRegistrata::disegna(const Immagine& immagine, double x, double y, Dimensioni misure) {
    if (guasto_) return esito();
    if (immagine.dati.empty()) return std::unexpected(ErroreDisegno{kErroreImmagine, "Immagine non valida"});
    figure_.push_back({pagina_, x + scostamento_x_, y + scostamento_y_, misure, std::string{immagine.nome}});
    return {};
}

Esito SuperficieRegistrata::nuova_pagina() {
    if (!guasto_) ++pagina_;
    return esito();
}

Esito SuperficieRegistrata::fine() {
    if (!guasto_) finito_ = true;
    return esito();
}

const SuperficieRegistrata::Testo* SuperficieRegistrata::trova(std::string_view testo, int pagina) const {
    for (const Testo& t : testi_)
        if (t.testo == testo && (pagina == 0 || t.pagina == pagina)) return &t;
    return nullptr;
}

std::string SuperficieRegistrata::pagina_come_testo(int pagina) const {
    std::string testo;
    for (const Testo& t : testi_)
        if (t.pagina == pagina) testo += fmt::format("{:.1f} {:.1f} {}\n", t.x, t.y, t.testo);
    return testo;
}

}  // namespace sortimetra
