#include "catalogue/nomi.h"
#include "catalogue/rapporti.h"
#include "catalogue/ricerche.h"
#include "chance/parametri.h"
#include "lunghette/parametri.h"
#include "personal/parametri.h"
#include "printing/metriche.h"
#include "statistics/parametri.h"
#include "stores/dimostrazione.h"
#include "support/archivi.h"
#include "support/superficie_registrata.h"
#include "tools/parametri.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

// What holds for the report of every search, present and to come: whoever adds one is tested here at once.

namespace sortimetra {
namespace {

/// The simulated archive, and the real one where it stands beside the project.
std::vector<const ArchivioEstrazioni*> archivi() {
    static const ArchivioEstrazioni simulato = ArchivioEstrazioni::componi(archivio_dimostrativo()).value();
    std::vector<const ArchivioEstrazioni*> tutti{&simulato};
    if (const ArchivioEstrazioni* vero = prove::archivio_vero()) tutti.push_back(vero);
    return tutti;
}

/// The search as a player might ask it, on one wheel and on all.
Domanda domanda_di(const Ricerca& ricerca, const SelezioneRuote& ruote) {
    Domanda d = prove::domanda(ricerca.chiave());
    d.ambito.ruote = ruote;
    if (ricerca.ammette(kOpzAmboCapo))
        d.parametri.per<ParametriStatistica>().capogioco = {12, 34};
    else if (ricerca.ammette(kOpzCapogioco))
        d.parametri.per<ParametriStatistica>().capogioco = {12};
    if (ricerca.ammette(kOpzCapogiocoWinForLife)) d.parametri.per<ParametriAmbiWinForLife>().capogioco = {12};
    if (ricerca.ammette(kOpzNumeriSpia)) d.parametri.per<ParametriSpia>().numeri = {5, 12, 40, 41, 77};
    if (ricerca.ammette(kOpzNumeri)) d.parametri.per<ParametriStatistica>().numeri = {5, 12, 40, 41, 77};
    if (ricerca.ammette(kOpzNumeriPersonali)) d.parametri.per<ParametriPersonali>().numeri = {5, 17, 90};
    if (ricerca.ammette(kOpzNumeriPersonaliWinForLife))
        d.parametri.per<ParametriPersonali>().numeri = {5, 17};
    if (ricerca.ammette(kOpzLunghette))
        d.parametri =
            ParametriGruppi{.lunghette = *leggi_lunghette("1 2 3 4;50 60 70 80"), .sorte = 2, .dettaglio = 1};
    if (ricerca.ammette(kOpzNumeroPiramide)) d.parametri.per<ParametriPiramide>().numero = 33;
    if (ricerca.ammette(kOpzNumeriStoria)) d.parametri = ParametriStoria{.numeri = {5, 17}};
    if (ricerca.ammette(kOpzMeta)) d.parametri.per<ParametriScomposte>().meta = 1;
    return d;
}

struct Stampato {
    std::string chiave;
    Risultato risultato;
    SuperficieRegistrata foglio;
    int pagine = 0;
    bool intero = false;
};

std::deque<Stampato> stampa_tutti() {
    std::deque<Stampato> stampati;
    std::set<std::string_view> viste;
    SenzaAvanzamento nessuno;
    for (const Ricerca& ricerca : ricerche()) {
        if (!ricerca.pronta() || !viste.insert(ricerca.chiave()).second) continue;
        // It needs a system that the user has saved: its report has a test of its own.
        if (ricerca.chiave() == nomi::kSistemiRealizzati.chiave) continue;
        for (const ArchivioEstrazioni* archivio : archivi()) {
            for (const SelezioneRuote& ruote : {SelezioneRuote::tutte(), ricerca.ruote}) {
                const Domanda domanda = domanda_di(ricerca, ruote);
                Stampato& s = stampati.emplace_back();
                s.chiave = ricerca.chiave();
                const Risposta risposta = prove::rispondi(domanda, *archivio, prove::cartella_dati());
                s.risultato = *risposta.risultato;
                EXPECT_FALSE(s.risultato.tabelle.empty()) << s.chiave;
                const Rapporto rapporto = prepara_rapporto(risposta);
                EasyPrint stampante{s.foglio, [](const std::string&, const std::string& t) { FAIL() << t; }};
                // The first pages: the many behind them are alike.
                s.pagine = std::min(rapporto.pagine, 6);
                EXPECT_TRUE(stampa(stampante, rapporto, {1, s.pagine}, nessuno)) << s.chiave;
                s.intero = rapporto.pagine == s.pagine;
            }
        }
    }
    return stampati;
}

/// Nothing is cut by the sheet's edge: 5 mm is what most printers cannot reach.
TEST(OgniRapporto, StaNelFoglio) {
    constexpr double kBordo = 4.9;
    for (const Stampato& s : stampa_tutti()) {
        SCOPED_TRACE(s.chiave);
        const Foglio carta = s.foglio.foglio();
        for (const auto& t : s.foglio.testi()) {
            EXPECT_GE(t.x, kBordo) << t.testo;
            EXPECT_LE(t.x + t.larghezza, carta.larghezza - kBordo) << t.testo;
            EXPECT_GE(t.y, kBordo) << t.testo;
            EXPECT_LE(t.y + altezza_testo(t.carattere), carta.altezza - kBordo) << t.testo;
        }
        for (const auto& r : s.foglio.riquadri()) {
            EXPECT_GE(std::min(r.x1, r.x2), kBordo);
            EXPECT_LE(std::max(r.x1, r.x2), carta.larghezza - kBordo);
            EXPECT_LE(std::max(r.y1, r.y2), carta.altezza - kBordo);
        }
    }
}

/// No text runs into the next one of its line.
TEST(OgniRapporto, NessunTestoSopraUnAltro) {
    for (const Stampato& s : stampa_tutti()) {
        SCOPED_TRACE(s.chiave);
        auto testi = s.foglio.testi();
        std::erase_if(testi, [](const auto& t) { return t.testo.empty(); });
        std::stable_sort(testi.begin(), testi.end(),
                         [](const auto& a, const auto& b) { return a.pagina < b.pagina; });
        for (std::size_t i = 0; i < testi.size(); ++i) {
            const auto& a = testi[i];
            for (std::size_t j = i + 1; j < testi.size() && testi[j].pagina == a.pagina; ++j) {
                const auto& b = testi[j];
                if (std::abs(a.y - b.y) > 1.5) continue;
                const double comune = std::min(a.x + a.larghezza, b.x + b.larghezza) - std::max(a.x, b.x);
                EXPECT_LT(comune, 0.3)
                    << "\"" << a.testo << "\" e \"" << b.testo << "\" a pagina " << a.pagina << ", y " << a.y;
            }
        }
    }
}

/// What the table says stands on the paper, each cell as often as the table has it.
TEST(OgniRapporto, DiceOgniCella) {
    for (const Stampato& s : stampa_tutti()) {
        SCOPED_TRACE(s.chiave);
        if (!s.intero) continue;
        std::map<std::string, int, std::less<>> scritti;
        for (const auto& t : s.foglio.testi()) ++scritti[t.testo];
        std::map<std::string, int> celle;
        const auto conta = [&](const Tabella& tabella) {
            // Where rows are printed in groups, what they share stands once over the group.
            const std::string& primo = tabella.titoli[0][0];
            const std::size_t in_comune = primo == "Ruota" ? 2 : primo == "Serie" ? 1 : 0;
            for (std::size_t r = 0; r < tabella.righe(); ++r)
                for (std::size_t c = in_comune; c < tabella.n_colonne(); ++c)
                    if (const std::string testo = tabella.testo(r, c); !testo.empty()) ++celle[testo];
        };
        // The one row of a lunghetta is printed number by number.
        const auto etichette = std::find_if(s.risultato.etichette.begin(), s.risultato.etichette.end(),
                                            [](const Etichetta& e) { return e.nome == "lblnum"; });
        if (etichette != s.risultato.etichette.end()) {
            for (const std::string& n : std::get<std::vector<std::string>>(etichette->testo))
                if (!n.empty()) ++celle[n];
        } else {
            for (const Tabella& tabella : s.risultato.tabelle) conta(tabella);
        }
        for (const auto& [testo, volte] : celle) EXPECT_GE(scritti[testo], volte) << testo;
    }
}

/// Head and foot stand on every page.
TEST(OgniRapporto, OgniPaginaHaLaTesta) {
    for (const Stampato& s : stampa_tutti()) {
        SCOPED_TRACE(s.chiave);
        std::set<int> con_logo;
        for (const auto& f : s.foglio.figure()) {
            if (f.nome != logo().nome) continue;
            con_logo.insert(f.pagina);
            EXPECT_NEAR(f.dimensioni.larghezza, 190, 0.01);
            EXPECT_NEAR(f.dimensioni.altezza, 20, 0.01);
            EXPECT_NEAR(f.y, 5, 0.01);
        }
        EXPECT_EQ(con_logo.size(), static_cast<std::size_t>(s.pagine));
        for (int p = 1; p <= s.pagine; ++p) {
            const auto piede = "Pagina " + std::to_string(p);
            EXPECT_TRUE(std::any_of(s.foglio.testi().begin(), s.foglio.testi().end(), [&](const auto& t) {
                return t.pagina == p && t.testo.starts_with(piede + " di ");
            })) << piede;
        }
    }
}

}  // namespace
}  // namespace sortimetra
