#include "chance/legge.h"

#include "text/testi.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>

namespace sortimetra {

namespace {

__extension__ using Conto = unsigned __int128;

/// C(n, k); the products stay below 2^128 for n up to 90 and k up to 20.
Conto combinazioni(int n, int k) {
    if (k < 0 || k > n) return 0;
    Conto quante = 1;
    for (int i = 1; i <= k; ++i) quante = quante * static_cast<Conto>(n - k + i) / static_cast<Conto>(i);
    return quante;
}

/// In how many ways `j` different numbers of an event can come that count as `peso` (a number that stands
/// twice counts twice): entry [j][peso].
using Scelte = std::array<std::array<Conto, kNumeriEvento + 1>, kNumeriEvento + 1>;

struct NumeriContati {
    int diversi = 0;
    Scelte scelte{};
};

NumeriContati conta_scelte(const Evento& evento) {
    NumeriContati c;
    c.scelte[0][0] = 1;
    const auto numeri = evento.numeri();
    for (std::size_t i = 0; i < numeri.size(); ++i) {
        if (std::find(numeri.begin(), numeri.begin() + static_cast<std::ptrdiff_t>(i), numeri[i]) !=
            numeri.begin() + static_cast<std::ptrdiff_t>(i))
            continue;
        const auto peso = static_cast<std::size_t>(std::count(numeri.begin(), numeri.end(), numeri[i]));
        ++c.diversi;
        for (std::size_t j = kNumeriEvento; j >= 1; --j)
            for (std::size_t w = kNumeriEvento; w >= peso; --w) c.scelte[j][w] += c.scelte[j - 1][w - peso];
    }
    return c;
}

}  // namespace

Urna urna(Gioco gioco, Posti posti) {
    Urna u;
    switch (gioco) {
        case Gioco::superenalotto:
            u.estratti = 6;
            break;
        case Gioco::dieci_e_lotto:
            u.estratti = 20;
            break;
        case Gioco::win_for_life:
            u = {.numeri = kNumeriWinForLife, .estratti = 10};
            break;
        default:
            break;
    }
    if (posti != kOgniPosto) u.estratti = std::popcount(posti);
    return u;
}

Legge::Legge(const Evento& evento) {
    const Urna u = urna(evento.gioco, evento.posti);
    const NumeriContati contati = conta_scelte(evento);
    tutte_ = combinazioni(u.numeri, u.estratti);
    // Draws that add 1, 3 …: those with exactly these numbers of the event.
    std::array<Conto, kNumeriEvento + 1> per_peso{};
    for (int j = 0; j <= contati.diversi; ++j) {
        const Conto altri = combinazioni(u.numeri - contati.diversi, u.estratti - j);
        for (std::size_t w = 0; w < per_peso.size(); ++w)
            per_peso[w] += contati.scelte[static_cast<std::size_t>(j)][w] * altri;
    }
    const auto aggiunge = [&](std::size_t w) -> Conto {
        if (w < evento.presenti) return 0;
        return evento.conteggio == Conteggio::una_volta ? Conto{1}
                                                        : combinazioni(static_cast<int>(w), evento.presenti);
    };
    const auto tutte = static_cast<long double>(tutte_);
    Conto con_evento = 0;
    for (std::size_t w = evento.presenti; w < per_peso.size(); ++w) {
        con_evento += per_peso[w];
        uscite_ += per_peso[w] * aggiunge(w);
    }
    p_ = static_cast<long double>(con_evento) / tutte;
    ln_manca_ = p_ < 0.5L ? std::log1p(-p_) : std::log(static_cast<long double>(tutte_ - con_evento) / tutte);
    media_ = static_cast<long double>(uscite_) / tutte;
    for (std::size_t w = 0; w < per_peso.size(); ++w) {
        const long double distanza = static_cast<long double>(aggiunge(w)) - media_;
        varianza_ += static_cast<long double>(per_peso[w]) / tutte * distanza * distanza;
    }
}

std::string Legge::attesa(std::int64_t righe) const {
    // The doubled quotient in tenths, halves away from zero.
    const Conto decimi = (static_cast<Conto>(righe) * uscite_ * 20 + tutte_) / (tutte_ * 2);
    std::string testo = migliaia(static_cast<std::int64_t>(decimi / 10));
    testo += ',';
    aggiungi_intero(testo, static_cast<std::int64_t>(decimi % 10));
    return testo;
}

std::optional<double> Legge::scarto(std::int64_t righe, std::int64_t frequenza) const {
    const long double varianza = static_cast<long double>(righe) * varianza_;
    if (varianza <= 0) return std::nullopt;
    const long double distanza =
        static_cast<long double>(frequenza) - static_cast<long double>(righe) * media_;
    return static_cast<double>(distanza / std::sqrt(varianza));
}

double Legge::probabilita(Percorso percorso, std::int32_t ritardo) const {
    if (ritardo == 0 || percorso.concorsi == 0) return 1;
    const long double righe =
        static_cast<long double>(percorso.righe) * ritardo / static_cast<long double>(percorso.concorsi);
    return static_cast<double>(std::exp(righe * ln_manca_));
}

double Legge::per_concorso(Percorso percorso) const {
    if (percorso.concorsi == 0) return 0;
    const long double righe = static_cast<long double>(percorso.righe) / percorso.concorsi;
    return static_cast<double>(-std::expm1(righe * ln_manca_));
}

double Legge::record_atteso(Percorso percorso) const {
    constexpr double kEulero = 0.5772;
    const double q = per_concorso(percorso);
    if (q <= 0) return 0;
    const long double ln_manca = static_cast<long double>(percorso.righe) / percorso.concorsi * ln_manca_;
    const double attese = static_cast<double>(percorso.concorsi) * q;
    return std::max(0.0, static_cast<double>((std::log(attese) + kEulero) / -ln_manca - 0.5L));
}

double almeno_uno(double p, std::int64_t m) {
    return p >= 1 ? (m > 0 ? 1.0 : 0.0) : -std::expm1(static_cast<double>(m) * std::log1p(-p));
}

}  // namespace sortimetra
