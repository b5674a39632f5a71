#include "catalogue/rapporti.h"
#include "catalogue/ricerche.h"
#include "positional/parametri.h"
#include "positional/stampa_migliori.h"
#include "positional/stampa_posizione.h"
#include "positional/stampa_tabellone.h"
#include "positional/tabellone.h"
#include "printing/metriche.h"
#include "printing/rapporto.h"
#include "support/archivi.h"
#include "support/superficie_registrata.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using namespace prove;

constexpr double kDecimo = 0.05;

/// Draws of all wheels, Nazionale, SuperEnalotto and Win for Life, 1 to `concorsi`, without pattern.
const ArchivioEstrazioni& archivio_lungo() {
    static const ArchivioEstrazioni archivio = [] {
        std::mt19937 caso{20};
        const auto diversi = [&](int quanti, int massimo) {
            std::vector<int> urna(static_cast<std::size_t>(massimo));
            for (int n = 0; n < massimo; ++n) urna[static_cast<std::size_t>(n)] = n + 1;
            std::string testo;
            for (int i = 0; i < quanti; ++i) {
                const auto j = i + static_cast<int>(caso() % static_cast<unsigned>(massimo - i));
                std::swap(urna[static_cast<std::size_t>(i)], urna[static_cast<std::size_t>(j)]);
                testo += " " + std::to_string(urna[static_cast<std::size_t>(i)]);
            }
            return testo;
        };
        std::string lotto;
        std::string superenalotto;
        std::string wfl;
        for (int c = 1; c <= 700; ++c) {
            for (int w = 0; w < kRuote; ++w)
                lotto += std::to_string(c) + " " +
                         std::string{kNomiRuote[static_cast<std::size_t>(w)].codice} + diversi(5, 90) + "\n";
            if (c > 300) lotto += std::to_string(c) + " NZ" + diversi(5, 90) + "\n";
            if (c > 402) superenalotto += std::to_string(c) + diversi(6, 90) + " 0 0\n";
            wfl += std::to_string(c) + " 9:00" + diversi(10, 20) + "\n";
        }
        return da_testi(lotto, superenalotto, wfl);
    }();
    return archivio;
}

/// A search's report on the recording surface, by the row of the dispatch table, as every program prints it.
struct Stampato {
    Risultato risultato;
    Rapporto rapporto;
    SuperficieRegistrata foglio;
    std::vector<std::string> avvisi;

    explicit Stampato(std::string_view chiave, Domanda d = {}, std::vector<std::uint32_t> ordine = {}) {
        d.ricerca = trova_ricerca(chiave);
        SenzaAvanzamento nessuno;
        Risposta risposta = prove::rispondi(std::move(d), archivio_lungo(), prove::cartella_dati());
        risposta.ordine = std::move(ordine);
        risultato = *risposta.risultato;
        rapporto = prepara_rapporto(risposta);
        EasyPrint stampante{foglio,
                            [this](const std::string&, const std::string& t) { avvisi.push_back(t); }};
        EXPECT_TRUE(stampa(stampante, rapporto, {}, nessuno));
        EXPECT_TRUE(avvisi.empty());
        sul_foglio();
    }

    [[nodiscard]] std::size_t quante(std::string_view testo, int pagina = 0) const {
        std::size_t n = 0;
        for (const auto& t : foglio.testi())
            n += t.testo == testo && (pagina == 0 || t.pagina == pagina) ? 1 : 0;
        return n;
    }
    /// Texts of a page on one line of writing, left to right.
    [[nodiscard]] std::string riga(double y, int pagina) const {
        std::map<double, std::string> per_x;
        for (const auto& t : foglio.testi())
            if (t.pagina == pagina && std::abs(t.y - y) < kDecimo) per_x[t.x] = t.testo;
        std::string testo;
        for (const auto& [x, parola] : per_x) testo += (testo.empty() ? "" : " ") + parola;
        return testo;
    }

    /// Top of the row of a delay, which alone is bold on its line.
    [[nodiscard]] double y_del_ritardo(const std::string& ritardo, int pagina) const {
        for (const auto& t : foglio.testi())
            if (t.pagina == pagina && t.carattere.grassetto && t.testo == ritardo) return t.y;
        return -1;
    }
    /// Sizes of the texts under the head, the smallest and the largest.
    [[nodiscard]] std::pair<int, int> corpi_sotto(double y) const {
        std::pair<int, int> corpi{99, 0};
        for (const auto& t : foglio.testi())
            if (t.y > y && t.y < foglio.foglio().altezza - 15.5)
                corpi = {std::min(corpi.first, t.carattere.corpo), std::max(corpi.second, t.carattere.corpo)};
        return corpi;
    }

  private:
    /// Nothing leaves the sheet, whichever way it lies.
    void sul_foglio() const {
        const Foglio f = foglio.foglio();
        for (const auto& t : foglio.testi()) {
            SCOPED_TRACE(t.testo + ", pagina " + std::to_string(t.pagina));
            EXPECT_GE(t.x, 4.5);
            EXPECT_LE(t.x + t.larghezza, f.larghezza - 4.5);
            EXPECT_GE(t.y, 4.5);
            EXPECT_LE(t.y + t.carattere.corpo * 0.3528 * 1.2, f.altezza - 4.5);
        }
    }
};

// ---- by position ----

/// Height of a row where 45 of them stand between the titles and the foot.
constexpr double kRiga45 = (210 - 15 - 1.5 - 59.5) / 45;

TEST(StampaPosizione, LottoInDuePagineOrizzontali) {
    const Stampato s{"ritardi e frequenze per posizione dei 90 numeri"};
    EXPECT_EQ(s.rapporto.orientamento, Orientamento::orizzontale);
    EXPECT_EQ(s.rapporto.pagine, 2);
    EXPECT_EQ(s.foglio.pagina(), 2);
    for (int p = 1; p <= 2; ++p) {
        SCOPED_TRACE(p);
        EXPECT_EQ(s.quante("Frequenza e Ritardo dei 90 numeri per posizione", p), 1U);
        EXPECT_EQ(s.quante("Bari", p), 1U);
        EXPECT_EQ(s.quante("Tutti i Concorsi", p), 1U);
        EXPECT_EQ(s.quante("01/01/2000-30/11/2001", p), 1U);
        EXPECT_EQ(s.quante("Num.", p), 1U);
        EXPECT_EQ(s.quante("Posizione", p), 1U);
        EXPECT_EQ(s.quante("RS", p), 5U);
        EXPECT_EQ(s.quante("Pagina " + std::to_string(p) + " di 2", p), 1U);
    }
    // Row r of page p is row 45(p - 1) + r of the grid, its number and its 15 cells.
    const Tabella& t = s.risultato.tabelle[0];
    for (std::size_t r = 0; r < 90; ++r) {
        std::string attesa;
        for (std::size_t c = 0; c < 16; ++c) attesa += (c == 0 ? "" : " ") + t.testo(r, c);
        EXPECT_EQ(s.riga(59.5 + kRiga45 * static_cast<double>(r % 45), r < 45 ? 1 : 2), attesa);
    }
    // The legend stands on the last page alone.
    for (const char* voce : {"F = Frequenza", "R = Ritardo", "RS = Ritardo Storico"}) {
        EXPECT_EQ(s.quante(voce, 1), 0U);
        EXPECT_EQ(s.quante(voce, 2), 1U);
    }
    const auto* posto = s.foglio.trova("3", 1);
    ASSERT_NE(posto, nullptr);
}

TEST(StampaPosizione, IlNumeroDelPostoESottolineato) {
    const Stampato s{"ritardi e frequenze per posizione dei 90 numeri"};
    std::string sottolineati;
    for (const auto& t : s.foglio.testi())
        if (t.carattere.sottolineato && t.pagina == 1) sottolineati += t.testo;
    EXPECT_EQ(sottolineati, "12345");
}

TEST(StampaPosizione, LaTestaDiceRuoteIntervalloEDate) {
    Domanda d;
    d.ambito.ruote.clic(2, true);
    d.ambito.intervallo = *trova_intervallo("Anni Pari");
    d.ambito.tratto = {10, 20};
    const Stampato s{"ritardi e frequenze per posizione dei 90 numeri", d};
    for (int p = 1; p <= 2; ++p) {
        const auto* titolo = s.foglio.trova("Frequenza e Ritardo dei 90 numeri per posizione", p);
        const auto* ruote = s.foglio.trova("Bari, Firenze", p);
        const auto* intervallo = s.foglio.trova("Anni Pari", p);
        const auto* date = s.foglio.trova("10/01/2000-20/01/2000", p);
        ASSERT_TRUE(titolo != nullptr && ruote != nullptr && intervallo != nullptr && date != nullptr);
        for (const auto* t : {titolo, ruote, intervallo, date}) EXPECT_NEAR(t->x, 47, kDecimo);
        EXPECT_NEAR(titolo->y, 30, kDecimo);
        EXPECT_NEAR(ruote->y, 34.5, kDecimo);
        EXPECT_LT(ruote->y, intervallo->y);
        EXPECT_LT(intervallo->y, date->y);
    }
    // The legend on lines of their own, left; the page at the right end of the band.
    const auto* frequenza = s.foglio.trova("F = Frequenza", 2);
    const auto* ritardo = s.foglio.trova("R = Ritardo", 2);
    const auto* storico = s.foglio.trova("RS = Ritardo Storico", 2);
    const auto* pagina = s.foglio.trova("Pagina 2 di 2", 2);
    ASSERT_TRUE(frequenza != nullptr && ritardo != nullptr && storico != nullptr && pagina != nullptr);
    EXPECT_NEAR(frequenza->x, 297 / 2.0 - 95, kDecimo);
    EXPECT_NEAR(ritardo->y - frequenza->y, altezza_testo(ritardo->carattere), kDecimo);
    EXPECT_NEAR(storico->y - ritardo->y, altezza_testo(storico->carattere), kDecimo);
    EXPECT_NEAR(pagina->x + pagina->larghezza, 297 / 2.0 + 95, kDecimo);
}

TEST(StampaPosizione, LeRigheNellOrdineDellaGriglia) {
    std::vector<std::uint32_t> ordine(90);
    for (std::uint32_t i = 0; i < 90; ++i) ordine[i] = 89 - i;
    const Stampato s{"ritardi e frequenze per posizione dei 90 numeri", {}, ordine};
    EXPECT_EQ(s.riga(59.5, 1).substr(0, 3), "90 ");
    EXPECT_EQ(s.riga(59.5 + 44 * kRiga45, 2).substr(0, 2), "1 ");
}

TEST(StampaPosizione, GliAltriGiochi) {
    const Stampato superenalotto{"frequenza e ritardo dei 90 numeri per posizione (superenalotto)"};
    EXPECT_EQ(superenalotto.rapporto.pagine, 2);
    EXPECT_EQ(superenalotto.quante("Frequenza e Ritardo dei 90 numeri per posizione (Superenalotto)"), 2U);
    EXPECT_EQ(superenalotto.quante("Jolly", 1), 1U);
    EXPECT_EQ(superenalotto.quante("RS", 1), 7U);

    // Twenty places: two sheets for each half of the numbers, every place on one of them.
    const Stampato dieci{"frequenza e ritardo dei 90 numeri per posizione (10 e lotto)"};
    EXPECT_EQ(dieci.rapporto.pagine, 4);
    std::string posti;
    for (const auto& t : dieci.foglio.testi())
        if (t.carattere.sottolineato && t.pagina <= 2) posti += t.testo + " ";
    EXPECT_EQ(posti, "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 ");
    EXPECT_EQ(dieci.quante("RS = Ritardo Storico", 4), 1U);

    const Stampato wfl{"frequenza e ritardo dei 20 numeri per posizione (win for life)"};
    EXPECT_EQ(wfl.rapporto.pagine, 1);
    EXPECT_EQ(wfl.quante("RS", 1), 10U);
    EXPECT_EQ(wfl.quante("Win for Life", 1), 1U);
    // Beside the dates of the range those of the game's own draws.
    EXPECT_EQ(superenalotto.quante("01/01/2000-30/11/2001  (SuperEnalotto: 06/02/2001 - 30/11/2001)"), 2U);
    EXPECT_EQ(wfl.quante("01/01/2000-30/11/2001  (Win for Life: 01/01/2000 - 30/11/2001)"), 1U);
}

TEST(StampaPosizione, LaTabellaRiempieIlFoglio) {
    for (const char* chiave : {"ritardi e frequenze per posizione dei 90 numeri",
                               "frequenza e ritardo dei 90 numeri per posizione (superenalotto)",
                               "frequenza e ritardo dei 90 numeri per posizione (10 e lotto)",
                               "frequenza e ritardo dei 20 numeri per posizione (win for life)"}) {
        SCOPED_TRACE(chiave);
        const Stampato s{chiave};
        const auto [minimo, massimo] = s.corpi_sotto(48);
        EXPECT_GE(minimo, 8);
        EXPECT_LE(massimo, 9);
        double sinistra = 297;
        double destra = 0;
        double fondo = 0;
        for (const auto& r : s.foglio.riquadri()) {
            sinistra = std::min(sinistra, r.x1);
            destra = std::max(destra, r.x2);
            fondo = std::max(fondo, r.y2);
        }
        EXPECT_NEAR(sinistra, 10, kDecimo);
        EXPECT_NEAR(destra, 287, kDecimo);
        EXPECT_LE(fondo, 195);
    }
}

TEST(StampaPosizione, NumeriLarghiHannoPiuFogli) {
    // Delays of five digits leave no room for ten places: five and five.
    Risultato r =
        *prove::rispondi(prove::domanda("frequenza e ritardo dei 20 numeri per posizione (win for life)"),
                         archivio_lungo())
             .risultato;
    for (std::size_t c = 1; c < r.tabelle[0].n_colonne(); ++c)
        for (auto& v : std::get<ColonnaInteri>(r.tabelle[0].colonne[c]).valori) v = 20060;
    EXPECT_EQ(rapporto_posizione({r, {}, {}}).pagine, 2);
}

// ---- the boards ----

/// Cells of a board that hold a number, the delays among them.
std::size_t piene(const Tabella& t) {
    std::size_t n = 0;
    for (std::size_t r = 0; r < t.righe(); ++r)
        for (std::size_t c = 0; c < t.n_colonne(); ++c) n += t.testo(r, c).empty() ? 0 : 1;
    return n;
}

TEST(StampaTabellone, LottoQuarantaRighePerPagina) {
    const Stampato s{"tabellone posizionale"};
    const Tabella& t = s.risultato.tabelle[0];
    ASSERT_GT(t.righe(), 40U);
    const int pagine = static_cast<int>((t.righe() + 39) / 40);
    EXPECT_EQ(s.rapporto.pagine, pagine);
    EXPECT_EQ(s.rapporto.orientamento, Orientamento::orizzontale);
    const std::string titolo = "La Posizione dei 90 numeri dopo l'estrazione del 30/11/2001 - Lotto";
    EXPECT_EQ(s.risultato.titolo, titolo);
    for (int p = 1; p <= pagine; ++p) {
        EXPECT_EQ(
            s.quante(titolo + "  (pag. " + std::to_string(p) + " di " + std::to_string(pagine) + ")", p), 1U);
        EXPECT_EQ(s.quante("Rit.", p), 1U);
        for (const std::size_t w : {0U, 9U, 11U}) EXPECT_EQ(s.quante(kNomiRuote[w].esteso, p), 1U);
        // The head has no fields here.
        EXPECT_EQ(s.quante("Ricerca:", p), 0U);
    }
    // Each cell once, the row of a delay on one line; caption, twelve titles, 55 places and the foot a page.
    EXPECT_EQ(s.foglio.testi().size(), piene(t) + static_cast<std::size_t>(pagine) * (1 + 12 + 55 + 1));
    const auto [minimo, massimo] = s.corpi_sotto(32.5);
    EXPECT_GE(minimo, 8);
    EXPECT_LE(massimo, 9);
    for (const std::size_t r : {std::size_t{0}, std::size_t{39}, std::size_t{40}}) {
        std::string attesa;
        for (std::size_t c = 0; c < t.n_colonne(); ++c)
            if (!t.testo(r, c).empty()) attesa += (c == 0 ? "" : " ") + t.testo(r, c);
        const int pagina = r < 40 ? 1 : 2;
        EXPECT_EQ(s.riga(s.y_del_ritardo(t.testo(r, 0), pagina), pagina), attesa);
    }
    // The last row of a full page ends above the foot.
    double fondo = 0;
    for (const auto& r : s.foglio.riquadri()) fondo = std::max(fondo, r.y2);
    EXPECT_LT(fondo, 195);
}

TEST(StampaTabellone, OgniRuotaHaITitoliDeiSuoiPosti) {
    const Stampato s{"tabellone posizionale"};
    const auto* primo = s.foglio.trova("1", 1);
    ASSERT_NE(primo, nullptr);
    std::string posti;
    for (int w = 0; w < 11; ++w) posti += "1 2 3 4 5 ";
    EXPECT_EQ(s.riga(primo->y, 1), "Rit. " + posti.substr(0, posti.size() - 1));
    // A place stands over the cells of its column: the first row of the board is one number somewhere.
    const Tabella& t = s.risultato.tabelle[0];
    const double y = s.y_del_ritardo(t.testo(0, 0), 1);
    std::vector<double> centri;
    for (const auto& scritto : s.foglio.testi())
        if (scritto.pagina == 1 && std::abs(scritto.y - primo->y) < kDecimo)
            centri.push_back(scritto.x + scritto.larghezza / 2);
    std::sort(centri.begin(), centri.end());
    ASSERT_EQ(centri.size(), 56U);
    for (std::size_t c = 1; c < t.n_colonne(); ++c) {
        if (t.testo(0, c).empty()) continue;
        const auto trovato = std::any_of(
            s.foglio.testi().begin(), s.foglio.testi().end(), [&](const SuperficieRegistrata::Testo& x) {
                return x.pagina == 1 && x.testo == t.testo(0, c) && std::abs(x.y - y) < kDecimo &&
                       std::abs(x.x + x.larghezza / 2 - centri[c]) < kDecimo;
            });
        EXPECT_TRUE(trovato) << c;
    }
}

TEST(StampaTabellone, OgniTabelloneHaIlPiede) {
    for (const char* chiave :
         {"tabellone posizionale", "tabellone posizionale primi estratti",
          "tabellone posizionale sestina superenalotto", "tabellone posizionale combinazione 10 e lotto",
          "tabellone posizionale combinazione win for life", "i 10 numeri più in ritardo su ogni ruota",
          "tabellone migliori ritardi"}) {
        SCOPED_TRACE(chiave);
        const Stampato s{chiave};
        const Foglio carta = s.foglio.foglio();
        for (int p = 1; p <= s.rapporto.pagine; ++p) {
            const auto* piede =
                s.foglio.trova("Pagina " + std::to_string(p) + " di " + std::to_string(s.rapporto.pagine), p);
            ASSERT_NE(piede, nullptr) << p;
            EXPECT_NEAR(piede->y, carta.altezza - 15, kDecimo);
            EXPECT_NEAR(piede->x + piede->larghezza, carta.larghezza / 2 + 95, kDecimo);
            for (const auto& t : s.foglio.testi()) {
                if (t.pagina != p || &t == piede) continue;
                EXPECT_LT(t.y + altezza_testo(t.carattere), piede->y) << t.testo;
            }
        }
    }
}

TEST(StampaTabellone, UnRiquadroPerOgniRuota) {
    const Stampato s{"tabellone posizionale"};
    // Eleven wheels' frames beside the delays', from one edge of the sheet to the other.
    std::vector<double> sinistre;
    for (const auto& r : s.foglio.riquadri())
        if (r.pagina == 1 && r.spessore == 3) sinistre.push_back(r.x1);
    std::sort(sinistre.begin(), sinistre.end());
    ASSERT_EQ(sinistre.size(), 12U);
    // A gap parts each wheel from what stands before it.
    constexpr double kTra = 1.5;
    const double ruota = (297.0 - 20 - 10 - 11 * kTra) / 11;
    EXPECT_NEAR(sinistre[0], 10, kDecimo);
    for (std::size_t w = 0; w < 11; ++w)
        EXPECT_NEAR(sinistre[w + 1], 20 + kTra + (ruota + kTra) * static_cast<double>(w), kDecimo);
    // Each name stands in the middle of its wheel's frame.
    const auto* venezia = s.foglio.trova("Venezia", 1);
    ASSERT_NE(venezia, nullptr);
    EXPECT_NEAR(venezia->x + venezia->larghezza / 2, sinistre[10] + ruota / 2, kDecimo);
}

TEST(StampaTabellone, GliAltriAdueBlocchi) {
    const Stampato s{"tabellone posizionale primi estratti"};
    for (const char* nome : {"BA", "FI", "MI", "NA", "PA", "RO"}) EXPECT_EQ(s.quante(nome, 1), 1U);
    EXPECT_EQ(s.quante("Firenze"), 0U);
    EXPECT_EQ(s.rapporto.orientamento, Orientamento::verticale);
    const std::string primo = s.risultato.tabelle[0].testo(0, 0);
    EXPECT_TRUE(s.riga(s.y_del_ritardo(primo, 1), 1).starts_with(primo + " "));

    const Stampato sestina{"tabellone posizionale sestina superenalotto"};
    EXPECT_GE(sestina.quante("Sestina SuperEnalotto", 1), 1U);
    const Stampato dieci{"tabellone posizionale combinazione 10 e lotto"};
    EXPECT_GE(dieci.quante("Combinazione 10 e lotto", 1), 1U);
    const Stampato wfl{"tabellone posizionale combinazione win for life"};
    EXPECT_GE(wfl.quante("Combinazione win for life", 1), 1U);
    EXPECT_EQ(wfl.quante("Tabellone Posizionale (30/11/2001) - Win for Life  (pag. 1 di 1)"), 1U);
    EXPECT_EQ(wfl.foglio.testi().size(), piene(wfl.risultato.tabelle[0]) + 4);
}

TEST(StampaTabellone, UnBloccoSoloStaInMezzoAlFoglio) {
    const Stampato s{"tabellone posizionale combinazione 10 e lotto"};
    const Tabella& t = s.risultato.tabelle[0];
    ASSERT_LE(t.righe(), 57U);
    // The twenty columns of the last draw share the band of 190 mm, each as wide as the others.
    const double y = s.y_del_ritardo("0", 1);
    std::vector<double> centri;
    for (const auto& scritto : s.foglio.testi())
        if (std::abs(scritto.y - y) < kDecimo) centri.push_back(scritto.x + scritto.larghezza / 2);
    std::sort(centri.begin(), centri.end());
    ASSERT_EQ(centri.size(), 21U);
    const double passo = (190.0 - 12) / 20;
    EXPECT_NEAR(centri[0], 10 + 6, kDecimo);
    for (std::size_t c = 1; c <= 20; ++c)
        EXPECT_NEAR(centri[c], 22 + passo * (static_cast<double>(c) - 0.5), kDecimo);
    // Ten columns of 14 mm do not fill it: they stand in the middle of the sheet.
    const Stampato wfl{"tabellone posizionale combinazione win for life"};
    const auto* ritardo = wfl.foglio.trova("Rit.", 1);
    ASSERT_NE(ritardo, nullptr);
    EXPECT_NEAR(ritardo->x + ritardo->larghezza / 2, 105 - (12 + 140) / 2.0 + 6, kDecimo);
}

TEST(StampaTabellone, CentoquattordiciRighePerPagina) {
    // A board of 115 delays, one number each.
    Risultato r;
    r.titolo = "Tabellone";
    ColonnaInteri ritardi;
    ColonnaInteri numeri;
    for (int i = 0; i < 115; ++i) {
        ritardi.valori.push_back(200 - i);
        numeri.valori.push_back(1 + i % 90);
    }
    Tabella t;
    t.titoli = {{"Rit.", "Combinazione win for life"}, {"", ""}};
    t.colonne = {ritardi, numeri};
    r.tabelle.push_back(t);
    const Rapporto rapporto = stampa_tab_pos_10({r, {}, {}});
    EXPECT_EQ(rapporto.pagine, 2);
    SuperficieRegistrata foglio;
    EasyPrint stampante{foglio, {}};
    SenzaAvanzamento nessuno;
    EXPECT_TRUE(stampa(stampante, rapporto, {}, nessuno));
    // The second block goes on where the first ends, the second page where the second block does.
    const auto* prima = foglio.trova("200", 1);
    const auto* seconda = foglio.trova("143", 1);
    const auto* ultima = foglio.trova("86", 2);
    ASSERT_TRUE(prima != nullptr && seconda != nullptr && ultima != nullptr);
    EXPECT_NEAR(seconda->y, prima->y, kDecimo);
    EXPECT_NEAR(seconda->x, prima->x + 97.5, kDecimo);
    EXPECT_NEAR(ultima->y, prima->y, kDecimo);
    EXPECT_NEAR(foglio.trova("144", 1)->y, prima->y + 56 * 4.2, kDecimo);
    for (auto& c : r.tabelle[0].colonne) std::get<ColonnaInteri>(c).valori.pop_back();
    EXPECT_EQ(stampa_tab_pos_10({r, {}, {}}).pagine, 1);
}

TEST(StampaTabellone, IDieciPiuInRitardo) {
    const Stampato s{"i 10 numeri più in ritardo su ogni ruota"};
    EXPECT_EQ(s.rapporto.pagine, 1);
    EXPECT_EQ(s.rapporto.orientamento, Orientamento::orizzontale);
    EXPECT_EQ(s.riga(42, 1), "Bari Cagliari Firenze Genova Milano Napoli");
    EXPECT_EQ(s.riga(117, 1), "Palermo Roma Torino Venezia Nazionale Tutte");
    EXPECT_EQ(s.quante("Num."), 12U);
    const Tabella& t = s.risultato.tabelle[0];
    std::string attesa;
    for (const std::size_t g : {6U, 7U, 8U, 9U, 10U, 11U})
        attesa += (g == 6 ? "" : " ") + t.testo(g * 10, 2) + " " + t.testo(g * 10, 3);
    EXPECT_EQ(s.riga(117 + 2 * 5.5, 1), attesa);
    EXPECT_EQ(s.quante("I 10 Numeri più in ritardo per ogni Ruota (30/11/2001)"), 1U);
}

TEST(StampaMigliori, OgniFamigliaNellaSuaScheda) {
    for (const int pagina : {1, 2}) {
        Domanda d;
        d.parametri.per<ParametriTabellone>().pagina = pagina;
        d.ambito.ruote = SelezioneRuote::tutte();
        const Stampato s{"tabellone migliori ritardi", d};
        EXPECT_EQ(s.quante("I migliori ritardi statistici all'estrazione n°700 del 30/11/2001"), 1U);
        EXPECT_EQ(s.quante("Ruote: Tutte"), 1U);
        EXPECT_EQ(s.quante(pagina == 1 ? "Radicali" : "Cinquine pari/dispari"), 1U);
        EXPECT_EQ(s.rapporto.pagine, 1);
        const Tabella& t = s.risultato.tabelle[0];
        std::map<std::string, std::size_t> gruppi;
        for (std::size_t r = 0; r < t.righe(); ++r)
            if (t.testo(r, 1).find_first_of("-/") != std::string::npos) ++gruppi[t.testo(r, 1)];
        for (const auto& [gruppo, volte] : gruppi) EXPECT_EQ(s.quante(gruppo), volte) << gruppo;
    }
}

/// The first page is one document: the cards, and under them the list of the ten most delayed numbers, as
/// text, whoever prints it. The second has cards alone.
TEST(StampaMigliori, SottoLeSchedeIDieciNumeri) {
    Domanda d;
    d.ambito.ruote = SelezioneRuote::tutte();
    d.parametri.per<ParametriTabellone>().concorso = 650;
    const Stampato s{"tabellone migliori ritardi", d};
    EXPECT_EQ(s.risultato.tabelle.size(), 1U);
    const Stampato lista{"i 10 numeri più in ritardo su ogni ruota", d};
    ASSERT_EQ(s.risultato.allegati, lista.risultato.tabelle);
    const Tabella& t = lista.risultato.tabelle[0];
    EXPECT_EQ(s.quante("Num."), 12U);
    const auto* bari = s.foglio.trova("Bari", 1);
    const auto* tutte = s.foglio.trova("Tutte", 1);
    ASSERT_TRUE(bari != nullptr && tutte != nullptr);
    EXPECT_EQ(s.riga(bari->y, 1), "Bari Cagliari Firenze Genova Milano Napoli");
    EXPECT_EQ(s.riga(tutte->y, 1), "Palermo Roma Torino Venezia Nazionale Tutte");
    for (const std::size_t posto : {0U, 9U}) {
        std::string attesa;
        for (std::size_t g = 0; g < 6; ++g)
            attesa += (g == 0 ? "" : " ") + t.testo(g * 10 + posto, 2) + " " + t.testo(g * 10 + posto, 3);
        EXPECT_EQ(s.riga(bari->y + 4 * static_cast<double>(2 + posto), 1), attesa);
    }
    // Under the last card.
    EXPECT_GT(bari->y, s.foglio.trova("Radicali", 1)->y + 20);

    d.parametri.per<ParametriTabellone>().pagina = 2;
    const Stampato seconda{"tabellone migliori ritardi", d};
    EXPECT_TRUE(seconda.risultato.allegati.empty());
    EXPECT_EQ(seconda.quante("Num."), 0U);
}

// ---- what the screens read off a board ----

TEST(EstrazioniTabellone, UnRitardoUnEstrazione) {
    const ArchivioEstrazioni& a = archivio_lungo();
    const auto lotto = estrazioni_tabellone(a, TipoTabellone::lotto, 650);
    ASSERT_EQ(lotto.size(), 301U);
    EXPECT_EQ(lotto[0]->concorso, 650);
    EXPECT_EQ(lotto[300]->concorso, 350);
    const auto nazionale = estrazioni_tabellone(a, TipoTabellone::lotto, 650, true);
    EXPECT_EQ(nazionale.size(), 301U);
    EXPECT_EQ(nazionale[300]->concorso, 350);
    EXPECT_EQ(estrazioni_tabellone(a, TipoTabellone::lotto, 310, true).size(), 10U);
    // The boards that begin at 406 stop there.
    const auto dieci = estrazioni_tabellone(a, TipoTabellone::dieci_e_lotto, 500);
    ASSERT_EQ(dieci.size(), 95U);
    EXPECT_EQ(dieci.back()->concorso, 406);
    const auto sestina = estrazioni_tabellone(a, TipoTabellone::sestina, 9999);
    EXPECT_FALSE(sestina[0].has_value());
    EXPECT_EQ(sestina[1]->concorso, 700);
}

TEST(EstrazioniTabellone, IlNumeroStaNellEstrazioneDelSuoRitardo) {
    const ArchivioEstrazioni& a = archivio_lungo();
    for (const TipoTabellone tipo : {TipoTabellone::lotto, TipoTabellone::win_for_life}) {
        const Tabellone t = iniz_tabellone(a, tipo, 640);
        const auto estrazioni = estrazioni_tabellone(a, tipo, 640);
        for (std::size_t d = 0; d < t.ritardi; ++d) {
            if (t.riga_vuota(d)) continue;
            if (tipo == TipoTabellone::lotto) {
                const Numero n = t.cella(d, 0);
                if (n == 0) continue;
                const auto i = cerca_concorso(a.lotto().concorso, estrazioni.at(d)->concorso);
                EXPECT_EQ(a.lotto().numeri[*i][0], n);
            } else {
                ASSERT_LT(d, estrazioni.size());
                EXPECT_TRUE(estrazioni[d].has_value());
            }
        }
    }
}

TEST(GrigliaDieci, DueFasceDiSeiGruppi) {
    SenzaAvanzamento nessuno;
    const Risultato r = dieci_piu_in_ritardo(archivio_lungo(), domanda(""), nessuno);
    const Tabella& lista = r.tabelle[0];
    const Tabella g = griglia_dieci(lista);
    ASSERT_EQ(g.righe(), 25U);
    ASSERT_EQ(g.n_colonne(), 19U);
    const char* prima[]{"Bari", "Cagliari", "Firenze", "Genova", "Milano", "Tutte"};
    const char* seconda[]{"Napoli", "Palermo", "Roma", "Torino", "Venezia", "Nazionale"};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(g.testo(0, 3 * i + 1), prima[i]);
        EXPECT_EQ(g.testo(13, 3 * i + 1), seconda[i]);
        EXPECT_EQ(g.testo(1, 3 * i + 1), "Num.");
        EXPECT_EQ(g.testo(14, 3 * i + 2), "Rit.");
        EXPECT_EQ(g.testo(5, 3 * i + 3), "");
    }
    // Fourth place of Cagliari; first of Nazionale; the coloured ones of Tutte.
    EXPECT_EQ(g.testo(5, 4), lista.testo(13, 2));
    EXPECT_EQ(g.testo(5, 5), lista.testo(13, 3));
    EXPECT_EQ(g.testo(15, 16), lista.testo(100, 2));
    EXPECT_EQ(g.testo(2, 16), lista.testo(110, 2));
    EXPECT_EQ(g.sfondo(2, 16), 0xDDFFDF);
    EXPECT_EQ(g.primo_piano(11, 17), 255);
    EXPECT_EQ(g.sfondo(2, 1), kNessunColore);
    EXPECT_EQ(g.sfondo(2, 18), kNessunColore);
}

}  // namespace
}  // namespace sortimetra
