#include "personal/stampa_piramide.h"

#include "results/risultato.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

// The triangle, in mm.
constexpr float kCima = 62;
constexpr float kAltezzaRiga = 17;
constexpr float kCella = 12;
constexpr float kTraCelle = 13;
constexpr float kDestraTriangolo = 142;
constexpr float kTitoloRiga = 147;

/// The rows as the report calls them, the longer ones on two lines.
constexpr std::array<std::string_view, kRighePiramide> kTitoliRapporto{"Ambata",
                                                                       "Ambo",
                                                                       "Terzina per\rAmbo e Terno",
                                                                       "Quartina per\rAmbo e Terno",
                                                                       "Cinquina per\rAmbo e Terno",
                                                                       "Sestina per\rAmbo e Terno",
                                                                       "Settina per\rAmbo e Terno",
                                                                       "Ottina per Ambo\rTerno e Quaterna",
                                                                       "Novina per Ambo\rTerno e Quaterna",
                                                                       "Decina per Ambo\rTerno e Quaterna"};

void stampa_triangolo(EasyPrint& stampante, const Tabella& tabella) {
    stampante.FontSize(12);
    stampante.DrawWidth(2);
    for (std::size_t r = 0; r < tabella.righe(); ++r) {
        const float y = kCima + kAltezzaRiga * static_cast<float>(r);
        for (std::size_t c = 0; c <= r && c < tabella.n_colonne(); ++c) {
            const float x = kDestraTriangolo - kCella - kTraCelle * static_cast<float>(r - c);
            stampante.PrintShape(x, y, kCella, kCella, 2);
            stampante.FontBold(true);
            stampante.PrintCentre(x + kCella / 2, y + 3.5F, tabella.testo(r, c));
            stampante.FontBold(false);
        }
        const std::string_view titolo = kTitoliRapporto[r];
        const bool due = titolo.find('\r') != std::string_view::npos;
        stampante.FontSize(10);
        stampante.ForeColor(kBluScuro);
        stampante.PrintLeft(kTitoloRiga, y + (due ? 1.5F : 3.8F), titolo);
        stampante.ForeColor(kNero);
        stampante.FontSize(12);
    }
    stampante.FontSize(10);
}

std::string piede(const Risultato& risultato) {
    for (const Etichetta& e : risultato.etichette)
        if (const auto* testo = std::get_if<std::string>(&e.testo); testo != nullptr && e.nome == "piede")
            return *testo;
    return {};
}

// The slip.
constexpr float kTestaSchedina = 20;
constexpr float kRigaSchedina = 28;
constexpr float kPiedeSchedina = 200;
constexpr std::string_view kCrocetta = "X";

void crocetta(EasyPrint& stampante, PuntoSchedina p) {
    stampante.PrintCentre(p.x, p.y, kCrocetta);
}

/// The wheels' marks: one wheel, all ten, or NAZIONALE.
void stampa_ruote(EasyPrint& stampante, const MaterialeSchedine& m) {
    if (m.ruote.e_nazionale()) {
        crocetta(stampante, m.taratura.nazionale);
        return;
    }
    for (std::size_t w = 0; w < kRuote; ++w)
        if (m.ruote.spuntata(kTutte) || m.ruote.spuntata(static_cast<int>(w)))
            crocetta(stampante, m.taratura.ruote[w]);
}

void completa_stampa_lotto(EasyPrint& stampante, Centesimi totale) {
    stampante.FontName("arial");
    stampante.FontSize(10);
    stampante.PrintLeft(20, kPiedeSchedina, "Importo: " + testo_importo(totale));
}

/// One slip: the first `riga` + 1 numbers, the wheel, the stakes.
void stampa_sistema(EasyPrint& stampante, const MaterialeSchedine& m, std::size_t riga) {
    stampante.FontName("Arial");
    stampante.FontSize(12);
    stampante.FontBold(true);
    stampante.PrintLeft(20, kTestaSchedina, "Piramide Statistica");
    stampante.FontBold(false);
    stampante.PrintLeft(20, kRigaSchedina, kTitoliSchedine[riga]);
    stampante.FontSize(8);
    std::vector<Numero> marcati(m.piramide.begin(),
                                m.piramide.begin() + static_cast<std::ptrdiff_t>(riga) + 1);
    std::sort(marcati.begin(), marcati.end());
    // A number that stands twice in the pyramid has one place on the slip.
    marcati.erase(std::unique(marcati.begin(), marcati.end()), marcati.end());
    for (const Numero n : marcati)
        if (n >= 1 && n <= kNumeri) crocetta(stampante, m.taratura.numeri[n - std::size_t{1}]);
    stampa_ruote(stampante, m);
    for (std::size_t s = 0; s < kSorti; ++s)
        for (const std::size_t taglio : marche(m.poste[riga].poste[s]))
            crocetta(stampante, m.taratura.poste[s][taglio]);
    completa_stampa_lotto(stampante, totale_marche(m.poste[riga]));
}

}  // namespace

Rapporto rapporto_piramide(const MaterialeRapporto& materiale) {
    if (materiale.risultato.tabelle.empty()) return rapporto_tabelle(materiale);
    Intestazione testa = materiale.testa;
    testa.concorsi = materiale.testa.date;
    if (const auto segno = testa.concorsi.find('-'); segno != std::string::npos)
        testa.concorsi.replace(segno, 1, " - ");
    testa.periodo = materiale.testa.intervallo;
    return {.titolo = testa.ricerca,
            .disegna = [&risultato = materiale.risultato, testa](EasyPrint& stampante, int) {
                stampa_intestazione(stampante, testa);
                stampa_triangolo(stampante, risultato.tabelle[0]);
                stampante.PrintLeft(10, kCima + kAltezzaRiga * static_cast<float>(kRighePiramide) + 6,
                                    piede(risultato), 0, kBanda);
                stampa_piede(stampante, 1, 1);
            }};
}

Rapporto stampa_schedine(const MaterialeSchedine& materiale) {
    std::vector<std::size_t> righe;
    for (std::size_t r = 0; r < kRighePiramide; ++r)
        if (materiale.poste[r].stampa) righe.push_back(r);
    const int pagine = std::max(static_cast<int>(righe.size()), 1);
    return {.titolo = "Piramide Statistica - Schedine",
            .pagine = pagine,
            .disegna = [materiale, righe = std::move(righe)](EasyPrint& stampante, int pagina) {
                if (!righe.empty()) {
                    stampa_sistema(stampante, materiale, righe[static_cast<std::size_t>(pagina - 1)]);
                    return;
                }
                stampante.FontName("Arial");
                stampante.FontSize(12);
                stampante.PrintLeft(20, kTestaSchedina, "Nessuna riga della piramide è da stampare.");
            }};
}

}  // namespace sortimetra
