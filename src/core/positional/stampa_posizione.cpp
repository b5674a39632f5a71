#include "positional/stampa_posizione.h"

#include "printing/metriche.h"
#include "results/risultato.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

// From the head's last line down to the foot, in mm: 45 rows fill a lying sheet.
constexpr float kTitoloSopra = 49;     ///< "Num." and "Posizione"
constexpr float kTitoloPosto = 52.4F;  ///< number of the place
constexpr float kTitoloLettere = 55.8F;
constexpr float kPrimaRiga = 59.5F;
constexpr float kSottoTabella = 1.5F;  ///< to the foot
constexpr float kRigaMassima = 4.25F;
/// Rows and columns from this size on are set in the larger size.
constexpr float kRigaAgiata = 3.6F;
constexpr float kColonnaAgiata = 11;
constexpr float kColonnaNumero = 13;

constexpr std::array<std::string_view, 3> kLegenda{"F = Frequenza", "R = Ritardo", "RS = Ritardo Storico"};

/// The title of the report, which is not the screen's.
std::string_view titolo(std::size_t posti) {
    switch (posti) {
        case 5:
            return "Frequenza e Ritardo dei 90 numeri per posizione";
        case 10:
            return "Frequenza e Ritardo dei 20 numeri per posizione (Win for Life)";
        case 20:
            return "Frequenza e Ritardo dei 90 numeri per posizione (10 e lotto)";
        default:
            return "Frequenza e Ritardo dei 90 numeri per posizione (Superenalotto)";
    }
}

/// One sheet's share of the table.
struct Foglietto {
    std::size_t prima_riga;
    std::size_t righe;
    std::size_t primo_posto;
    std::size_t posti;
};

/// Left and right of the widest number of a column, in mm.
constexpr float kAriaColonna = 1;

/// How many places a lying sheet has room for, three columns each as wide as the widest cell.
std::size_t posti_per_foglio(const Tabella& tabella) {
    double larga = 0;
    std::string testo;
    for (std::size_t c = 1; c < tabella.n_colonne(); ++c)
        for (std::size_t r = 0; r < tabella.righe(); ++r) {
            testo.clear();
            tabella.aggiungi_testo(testo, r, c);
            larga = std::max(larga, larghezza_testo({.corpo = kCorpoOrizzontaleFitto}, testo));
        }
    const double posto = 3 * (larga + 2 * kAriaColonna);
    const double spazio = kFoglioCoricato - 2 * kMargineFoglio - kColonnaNumero;
    return std::clamp<std::size_t>(static_cast<std::size_t>(spazio / posto), 1, kPostiPaginaPosizione);
}

std::vector<Foglietto> dividi(const Tabella& tabella) {
    const std::size_t posti = (tabella.n_colonne() - 1) / 3;
    const std::size_t entrano = posti_per_foglio(tabella);
    const std::size_t gruppi = (posti + entrano - 1) / entrano;
    const std::size_t per_gruppo = (posti + gruppi - 1) / gruppi;
    std::vector<Foglietto> fogli;
    for (std::size_t riga = 0; riga < tabella.righe(); riga += kRighePaginaPosizione)
        for (std::size_t p = 0; p < posti; p += per_gruppo)
            fogli.push_back({riga, std::min(kRighePaginaPosizione, tabella.righe() - riga), p,
                             std::min(per_gruppo, posti - p)});
    return fogli;
}

/// One sheet: the table as wide as the sheet between its margins, rows as high as it leaves room for.
class DisegnoPosizione {
  public:
    DisegnoPosizione(EasyPrint& stampante, const Tabella& tabella, const Foglietto& foglio,
                     std::span<const std::uint32_t> ordine)
        : p_{stampante},
          tabella_{tabella},
          foglio_{foglio},
          ordine_{ordine},
          larghezza_{stampante.PageWidth() - 2 * kMargineFoglio},
          colonna_{(larghezza_ - kColonnaNumero) / static_cast<float>(3 * foglio.posti)},
          riga_{std::min(kRigaMassima, (stampante.PageHeight() - kAltezzaPiede - kSottoTabella - kPrimaRiga) /
                                           static_cast<float>(std::max<std::size_t>(foglio.righe, 1)))} {}

    void disegna() {
        scrivi_titoli();
        scrivi_celle();
        incornicia();
    }

  private:
    [[nodiscard]] float sinistra(std::size_t colonna) const {
        return kMargineFoglio + kColonnaNumero + colonna_ * static_cast<float>(colonna);
    }
    /// Numbers stand under each other by their units, in the middle of their column.
    [[nodiscard]] float destra(std::size_t colonna) const {
        return sinistra(colonna) + colonna_ / 2 + std::min(colonna_ / 2 - kAriaColonna, kMezzoNumero);
    }

    void scrivi_titoli() {
        p_.FontSize(kCorpoOrizzontale);
        p_.FontBold(true);
        p_.PrintCentre(kMargineFoglio + kColonnaNumero / 2, kTitoloSopra, "Num.");
        p_.PrintCentre(kMargineFoglio + kColonnaNumero + (larghezza_ - kColonnaNumero) / 2, kTitoloSopra,
                       "Posizione");
        for (std::size_t p = 0; p < foglio_.posti; ++p) {
            const std::size_t colonna = 1 + 3 * (foglio_.primo_posto + p);
            p_.FontUnderline(true);
            p_.PrintCentre(sinistra(3 * p + 1) + colonna_ / 2, kTitoloPosto, tabella_.titoli[1][colonna]);
            p_.FontUnderline(false);
            for (std::size_t k = 0; k < 3; ++k)
                p_.PrintRight(destra(3 * p + k), kTitoloLettere, tabella_.titoli[2][colonna + k]);
        }
    }

    void scrivi_celle() {
        const bool agiata = riga_ >= kRigaAgiata && colonna_ >= kColonnaAgiata;
        p_.FontSize(agiata ? kCorpoOrizzontale : kCorpoOrizzontaleFitto);
        const float agio = std::max((riga_ - p_.TextHeight("0")) / 2, 0.0F);
        std::string testo;
        const auto colonna = [&](float destra, std::size_t c) {
            for (std::size_t r = 0; r < foglio_.righe; ++r) {
                testo.clear();
                tabella_.aggiungi_testo(testo, riga_in_griglia(tabella_, foglio_.prima_riga + r, ordine_), c);
                p_.PrintRight(destra, y(r) + agio, testo);
            }
        };
        colonna(kMargineFoglio + kColonnaNumero - 4, 0);
        p_.FontBold(false);
        for (std::size_t c = 0; c < 3 * foglio_.posti; ++c)
            colonna(destra(c), 1 + 3 * foglio_.primo_posto + c);
    }

    void incornicia() {
        p_.DrawWidth(1);
        for (std::size_t r = 1; r < foglio_.righe; r += 2)
            p_.PrintShape(kMargineFoglio, y(r), larghezza_, riga_);
        p_.DrawWidth(3);
        for (std::size_t p = 0; p <= foglio_.posti; ++p)
            p_.PrintShape(kMargineFoglio, kPrimaRiga, sinistra(3 * p) - kMargineFoglio,
                          riga_ * static_cast<float>(foglio_.righe));
    }

    [[nodiscard]] float y(std::size_t r) const { return kPrimaRiga + riga_ * static_cast<float>(r); }

    /// Half of a delay of four digits.
    static constexpr float kMezzoNumero = 3.5F;

    EasyPrint& p_;
    const Tabella& tabella_;
    const Foglietto& foglio_;
    std::span<const std::uint32_t> ordine_;
    float larghezza_;
    float colonna_;
    float riga_;
};

}  // namespace

Rapporto rapporto_posizione(const MaterialeRapporto& materiale) {
    if (materiale.risultato.tabelle.empty() || materiale.risultato.tabelle[0].titoli.size() != 3)
        return rapporto_tabelle(materiale);
    const Tabella& tabella = materiale.risultato.tabelle[0];
    auto fogli = dividi(tabella);
    const int pagine = std::max(static_cast<int>(fogli.size()), 1);
    Intestazione testa = materiale.testa;
    testa.ricerca = titolo((tabella.n_colonne() - 1) / 3);
    testa.concorsi = materiale.testa.intervallo;
    testa.periodo = materiale.testa.date;
    testa.nota.clear();  // the dates have it; the titles stand where it would
    return {.titolo = testa.ricerca,
            .orientamento = Orientamento::orizzontale,
            .pagine = pagine,
            .disegna = [&tabella, pagine, testa, fogli = std::move(fogli),
                        ordine = std::vector(materiale.ordine.begin(), materiale.ordine.end())](
                           EasyPrint& stampante, int pagina) {
                stampa_intestazione(stampante, testa);
                if (!fogli.empty())
                    DisegnoPosizione{stampante, tabella, fogli[static_cast<std::size_t>(pagina - 1)], ordine}
                        .disegna();
                stampante.FontSize(kCorpoOrizzontaleFitto);
                if (pagina == pagine)
                    stampa_legenda(stampante, stampante.PageHeight() - kAltezzaPiede, kLegenda);
                stampante.FontSize(10);
                stampa_piede(stampante, pagina, pagine);
            }};
}

}  // namespace sortimetra
