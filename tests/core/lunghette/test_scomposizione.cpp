#include "draws/combinazioni.h"
#include "lunghette/scomposizione.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace sortimetra::prove {
namespace {

Domanda chiedi(std::string_view chiave, ParametriStatistica p, AmbitoRicerca ambito = {}) {
    Domanda d = domanda(chiave, ambito);
    d.parametri = std::move(p);
    return d;
}
constexpr std::string_view kWinForLife = "scomposizione win for life";
constexpr std::string_view kDieci = "scomposizione 10 e lotto";

TEST(ScomposizioneAPunti, GliAmbiSulleEstrazioniDelGioco) {
    const auto archivio = da_testi("", "",
                                   "1 9:00 1 2 3 4 5 6 7 8 9 10\n"
                                   "2 10:00 1 3 11 12 13 14 15 16 17 18\n"
                                   "3 9:00 11 12 13 14 15 16 17 18 19 20\n"
                                   "4 10:00 2 3 11 12 13 14 15 16 17 18\n");
    const auto r = esegui(chiedi(kWinForLife, {.tipo = 1, .numeri = {1, 2, 3}, .sorte = 2}), archivio);
    // Two of two in draw 1; in draws 1 and 2; in draws 1 and 4. The wait before the first counts less one.
    EXPECT_EQ(righe(r.tabelle[0]), "01.02 1 3 0\n01.03 2 2 0\n02.03 2 0 2\n");
    AmbitoRicerca alle_nove;
    alle_nove.ora = *trova_ora("9:00");
    EXPECT_EQ(
        righe(esegui(chiedi(kWinForLife, {.tipo = 1, .numeri = {1, 2, 3}}, alle_nove), archivio).tabelle[0]),
        "01.02 1 1 0\n01.03 1 1 0\n02.03 1 1 0\n");
    const auto evento = r.tabelle[0].evento(0);
    ASSERT_TRUE(evento);
    EXPECT_EQ(evento->gioco, Gioco::win_for_life);
    EXPECT_EQ(evento->presenti, 2);
}

TEST(ScomposizioneAPunti, AmbitoVuotoETroppeCombinazioni) {
    const auto archivio = archivio_casuale(5);
    AmbitoRicerca vuoto;
    vuoto.tratto = {.da = 3, .a = 2};
    EXPECT_EQ(esegui(chiedi(kDieci, {.numeri = {1, 2}}, vuoto), archivio), senza_estrazioni());
    std::vector<int> tutti;
    for (int n = 1; n <= 90; ++n) tutti.push_back(n);
    const auto troppe = esegui(chiedi(kDieci, {.numeri = tutti, .sorte = 4}), archivio);
    ASSERT_EQ(troppe.messaggi.size(), 1U);
    EXPECT_EQ(troppe.messaggi[0].avviso, Avviso::troppe_combinazioni);
}

/// Every pair in every draw of 10eLotto, one by one.
TEST(ScomposizioneAPunti, ComeLaLenta) {
    for (std::uint32_t seme = 1; seme <= 40; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        auto ambito = ambito_casuale(seme);
        const std::vector<int> numeri{3, 30, 17, 22, 9};
        const auto r = esegui(chiedi(kDieci, {.tipo = 1, .numeri = numeri, .sorte = 2}, ambito), archivio);
        ambito.ruote = SelezioneRuote::tutte();
        const VistaEstrazioni vista{archivio, ambito};
        if (vista.vuota()) {
            EXPECT_FALSE(r.prodotto);
            continue;
        }
        std::string attese;
        for (std::size_t i = 0; i < numeri.size(); ++i)
            for (std::size_t j = i + 1; j < numeri.size(); ++j) {
                int frequenza = 0;
                int ultimo = 1;
                int storico = 0;
                for (std::size_t d = 0; d < vista.concorsi(); ++d) {
                    const auto c = calc_combinazione_10elotto(archivio.lotto(), vista.record(d));
                    if (std::find(c.begin(), c.end(), numeri[i]) == c.end() ||
                        std::find(c.begin(), c.end(), numeri[j]) == c.end())
                        continue;
                    const int ordinale = static_cast<int>(d) + 1;
                    ++frequenza;
                    storico = std::max(storico, ordinale - ultimo - 1);
                    ultimo = ordinale;
                }
                const auto due = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
                attese += due(numeri[i]) + "." + due(numeri[j]) + " " + std::to_string(frequenza) + " " +
                          std::to_string(frequenza == 0 ? vista.t() : vista.t() - ultimo) + " " +
                          std::to_string(storico) + "\n";
            }
        EXPECT_EQ(righe(r.tabelle[0]), attese);
    }
}

}  // namespace
}  // namespace sortimetra::prove
