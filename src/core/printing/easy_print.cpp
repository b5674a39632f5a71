#include "printing/easy_print.h"

#include "text/testi.h"
#include "text/utf8.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// The quarter turns of a rounded corner.
constexpr double kPi = 3.14159265;

/// What a caller's own mistake is reported as.
constexpr int kArgomentoErrato = 5;

std::int16_t sedici_bit(int valore) {
    using Limiti = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(
        std::clamp(valore, static_cast<int>(Limiti::min()), static_cast<int>(Limiti::max())));
}

/// A coordinate that no sheet has would end in undefined conversions on the surface.
template <class... Numeri>
Esito plausibili(Numeri... numeri) {
    constexpr float kLimite = 1e6F;
    if ((... && (std::abs(numeri) <= kLimite))) return {};
    return std::unexpected(ErroreDisegno{kArgomentoErrato, "Posizione o misura non valida"});
}

/// Without the blanks at both ends; tabs and the like stay, as they are part of the text.
std::string_view senza_spazi(std::string_view riga) {
    const auto inizio = riga.find_first_not_of(' ');
    if (inizio == std::string_view::npos) return {};
    return riga.substr(inizio, riga.find_last_not_of(' ') - inizio + 1);
}

/// The next line of `testo`, which loses it and the CR (and LF) behind it.
std::string_view prossima_riga(std::string_view& testo) {
    const auto fine = testo.find('\r');
    const auto riga = testo.substr(0, fine);
    testo.remove_prefix(fine == std::string_view::npos ? testo.size() : fine + 1);
    if (fine != std::string_view::npos && testo.starts_with('\n')) testo.remove_prefix(1);
    return senza_spazi(riga);
}

}  // namespace

EasyPrint::EasyPrint(Superficie& superficie, Avviso avviso)
    : superficie_{&superficie}, avviso_{std::move(avviso)} {
    CurrentX(0);
    CurrentY(0);
}

bool EasyPrint::controlla(const Esito& esito) {
    if (esito) return true;
    fallita_ = true;
    if (avviso_)
        avviso_("EasyPrint", "Errore nella routine di stampa\r\nErrore numero: " +
                                 std::to_string(esito.error().numero) + "\r\n" + esito.error().descrizione);
    return false;
}

float EasyPrint::margine_x() const {
    return static_cast<float>(-superficie_->foglio().scostamento_x);
}
float EasyPrint::margine_y() const {
    return static_cast<float>(-superficie_->foglio().scostamento_y);
}

std::int16_t EasyPrint::FontSize() const {
    return sedici_bit(superficie_->stato.carattere.corpo);
}
void EasyPrint::FontSize(std::int16_t punti) {
    superficie_->stato.carattere.corpo = std::max<std::int16_t>(punti, 1);
}

std::int16_t EasyPrint::PaperSize() const {
    return sedici_bit(superficie_->lavoro().foglio);
}
void EasyPrint::PaperSize(std::int16_t codice) {
    Lavoro lavoro = superficie_->lavoro();
    lavoro.foglio = codice;
    superficie_->imposta(lavoro);
}

std::int16_t EasyPrint::Copies() const {
    return sedici_bit(superficie_->lavoro().copie);
}
void EasyPrint::Copies(std::int16_t copie) {
    Lavoro lavoro = superficie_->lavoro();
    lavoro.copie = std::max<std::int16_t>(copie, 1);
    superficie_->imposta(lavoro);
}

void EasyPrint::PrintQuality(std::int16_t qualita) {
    Lavoro lavoro = superficie_->lavoro();
    lavoro.qualita = qualita;
    superficie_->imposta(lavoro);
}

void EasyPrint::ColorMode(std::int16_t modo) {
    Lavoro lavoro = superficie_->lavoro();
    lavoro.colori = modo;
    superficie_->imposta(lavoro);
}

void EasyPrint::Orientation(std::int16_t orientamento) {
    if (orientamento != 1 && orientamento != 2) return;
    Lavoro lavoro = superficie_->lavoro();
    lavoro.orientamento = orientamento == 1 ? Orientamento::verticale : Orientamento::orizzontale;
    superficie_->imposta(lavoro);
}

float EasyPrint::CurrentX() const {
    return static_cast<float>(superficie_->stato.x) - margine_x();
}
void EasyPrint::CurrentX(float x) {
    superficie_->stato.x = x + margine_x();
}
float EasyPrint::CurrentY() const {
    return static_cast<float>(superficie_->stato.y) - margine_y();
}
void EasyPrint::CurrentY(float y) {
    superficie_->stato.y = y + margine_y();
}

std::int16_t EasyPrint::FontCount() const {
    return sedici_bit(superficie_->n_caratteri());
}
float EasyPrint::PageHeight() const {
    return static_cast<float>(superficie_->foglio().altezza);
}
float EasyPrint::PageWidth() const {
    return static_cast<float>(superficie_->foglio().larghezza);
}
std::int16_t EasyPrint::Page() const {
    return sedici_bit(superficie_->pagina());
}

float EasyPrint::TextWidth(std::string_view testo) const {
    return static_cast<float>(superficie_->larghezza(testo));
}
float EasyPrint::TextHeight(std::string_view testo) const {
    return static_cast<float>(superficie_->altezza(testo));
}

void EasyPrint::PrintLeft(float x, float y, std::string_view testo, float rientro, float larghezza_max) {
    stampa_righe(Allineamento::sinistra, x, y, testo, rientro, larghezza_max);
}
void EasyPrint::PrintRight(float x, float y, std::string_view testo, float rientro, float larghezza_max) {
    stampa_righe(Allineamento::destra, x, y, testo, rientro, larghezza_max);
}
void EasyPrint::PrintCentre(float x, float y, std::string_view testo, float larghezza_max) {
    stampa_righe(Allineamento::centro, x, y, testo, 0, larghezza_max);
}

/// Characters are dropped one by one until the line fits. Since a shorter text is never wider, the longest
/// part that fits is found by halving: a very long line costs no more than a few measurements.
std::string_view EasyPrint::ritaglia(std::string_view riga, float larghezza_max, bool dalla_fine) const {
    if (TextWidth(riga) <= larghezza_max) return riga;
    std::vector<std::size_t> confini;  // where a character begins
    for (std::size_t i = 0; i < riga.size(); ++i)
        if (!continua_lettera(riga[i]) || i == 0) confini.push_back(i);
    confini.push_back(riga.size());
    const auto parte = [&](std::size_t caratteri) {
        const std::size_t n = confini.size() - 1;
        return dalla_fine ? riga.substr(0, confini[caratteri]) : riga.substr(confini[n - caratteri]);
    };
    std::size_t entra = 0;  // the empty line always ends it
    std::size_t troppi = confini.size() - 1;
    while (troppi - entra > 1) {
        const std::size_t meta = entra + (troppi - entra) / 2;
        (TextWidth(parte(meta)) <= larghezza_max ? entra : troppi) = meta;
    }
    return parte(entra);
}

void EasyPrint::stampa_righe(Allineamento allineamento, float x, float y, std::string_view testo,
                             float rientro, float larghezza_max) {
    if (!controlla(plausibili(x, y, rientro, larghezza_max))) return;
    const float mx = margine_x();
    const float my = margine_y();
    int i = 0;
    bool altra = true;
    while (altra) {
        altra = testo.find('\r') != std::string_view::npos;
        std::string_view riga = prossima_riga(testo);
        if (larghezza_max > 0) riga = ritaglia(riga, larghezza_max, allineamento != Allineamento::destra);
        if (x >= 0) {
            float inizio = x + mx;
            switch (allineamento) {
                case Allineamento::sinistra:
                    if (i == 0) inizio += rientro;
                    break;
                case Allineamento::destra:
                    if (i == 0) inizio -= rientro;
                    inizio -= TextWidth(riga);
                    break;
                case Allineamento::centro:
                    inizio -= TextWidth(riga) / 2;
                    break;
            }
            superficie_->stato.x = inizio;
        }
        if (y >= 0)
            superficie_->stato.y =
                i == 0 ? y + my : y + my + static_cast<float>(i) * TextHeight(riga) * spaziatura_linea_;
        if (!riga.empty() && !controlla(superficie_->scrivi(riga))) return;
        ++i;
    }
}

void EasyPrint::PrintShape(float x, float y, float larghezza, float altezza, float raggio) {
    if (!controlla(plausibili(x, y, larghezza, altezza, raggio))) return;
    // Sizes to the left or upward name the same box.
    const double x1 = std::min(x, x + larghezza) + margine_x();
    const double y1 = std::min(y, y + altezza) + margine_y();
    const double w = std::abs(larghezza);
    const double h = std::abs(altezza);
    const double x2 = x1 + w;
    const double y2 = y1 + h;
    if (raggio <= 0) {
        controlla(superficie_->rettangolo(x1, y1, x2, y2));
        return;
    }
    const double r = std::min({static_cast<double>(raggio), w / 2, h / 2});
    Esito esito;
    const auto spigolo = [&](double da_x, double da_y, double a_x, double a_y) {
        // A stadium has no edge left on two sides: a line without length would show as a dot.
        if (esito && (a_x > da_x || a_y > da_y)) esito = superficie_->linea(da_x, da_y, a_x, a_y);
    };
    spigolo(x1 + r, y1, x2 - r, y1);
    spigolo(x1 + r, y2, x2 - r, y2);
    spigolo(x1, y1 + r, x1, y2 - r);
    spigolo(x2, y1 + r, x2, y2 - r);
    const auto angolo = [&](double centro_x, double centro_y, int quarto) {
        if (esito && r > 0)
            esito = superficie_->arco(centro_x, centro_y, r, quarto * kPi / 2, (quarto + 1) * kPi / 2);
    };
    angolo(x2 - r, y1 + r, 0);
    angolo(x1 + r, y1 + r, 1);
    angolo(x1 + r, y2 - r, 2);
    angolo(x2 - r, y2 - r, 3);
    controlla(esito);
}

void EasyPrint::PrintPicture(const Immagine& immagine, float x, float y, float larghezza, float altezza) {
    if (!controlla(plausibili(x, y, larghezza, altezza))) return;
    Dimensioni dimensioni{larghezza, altezza};
    if (larghezza == 0 || altezza == 0) {
        const auto naturali = superficie_->dimensioni(immagine);
        if (!naturali) {
            controlla(std::unexpected(naturali.error()));
            return;
        }
        if (larghezza == 0) dimensioni.larghezza = naturali->larghezza;
        if (altezza == 0) dimensioni.altezza = naturali->altezza;
    }
    controlla(superficie_->disegna(immagine, x + margine_x(), y + margine_y(), dimensioni));
}

void EasyPrint::NewPage() {
    controlla(superficie_->nuova_pagina());
}
void EasyPrint::EndDoc() {
    controlla(superficie_->fine());
}

}  // namespace sortimetra
