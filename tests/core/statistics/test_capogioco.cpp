#include "catalogue/ricerche.h"
#include "statistics/capogioco.h"
#include "statistics/parametri.h"
#include "support/archivi.h"
#include "support/lente_serie.h"

#include <gtest/gtest.h>

#include <string>

namespace sortimetra {
namespace {

using prove::ambito_casuale;
using prove::archivio_casuale;
using prove::da_testo;
using prove::riga;

Risultato cerca(const ArchivioEstrazioni& archivio, std::vector<int> capi, int combo_rit = 0,
                const AmbitoRicerca& ambito = {}, std::string_view chiave = "ambo capogioco") {
    Domanda d = prove::domanda(chiave, ambito);
    d.parametri.per<ParametriStatistica>().capogioco = std::move(capi);
    d.parametri.per<ParametriStatistica>().tipo = combo_rit;
    return prove::esegui(d, archivio);
}

Risultato cerca_ambata(const ArchivioEstrazioni& archivio, std::vector<int> capi,
                       const AmbitoRicerca& ambito = {}) {
    return cerca(archivio, std::move(capi), 0, ambito, "ambata capogioco");
}

/// "" where there are no tables.
std::string righe(const Risultato& r) {
    return r.tabelle.empty() ? "" : prove::righe(r.tabelle.front());
}

TEST(AmbataCapogioco, GliAmbiDelCapo) {
    const auto archivio = da_testo(
        "1 BA 7 12 30 40 50\n"
        "2 BA 1 2 3 4 5\n"
        "3 BA 12 60 7 61 62\n"
        "4 BA 7 63 64 65 66\n");
    const Risultato r = cerca_ambata(archivio, {7});
    EXPECT_EQ(r.tabelle.at(0).righe(), 89U);
    EXPECT_EQ(riga(r, "07-12"), "07-12 2 1 1");
    EXPECT_EQ(riga(r, "07-63"), "07-63 1 0 0");
    EXPECT_EQ(riga(r, "01-07"), "01-07 0 4 0");
    EXPECT_EQ(r.tabelle[0].titoli,
              (std::vector<std::vector<std::string>>{{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}}));
}

TEST(AmbataCapogioco, CapoNovantaECapoUno) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n");
    const Risultato novanta = cerca_ambata(archivio, {90});
    EXPECT_EQ(novanta.tabelle.at(0).testo(0, 0), "01-90");
    EXPECT_EQ(novanta.tabelle.at(0).testo(88, 0), "89-90");
    const Risultato uno = cerca_ambata(archivio, {1});
    EXPECT_EQ(uno.tabelle.at(0).testo(0, 0), "01-02");
    EXPECT_EQ(uno.tabelle.at(0).testo(88, 0), "01-90");
}

TEST(Capogioco, CapiNonValidi) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n");
    for (const auto& capi : std::vector<std::vector<int>>{{}, {0}, {91}, {-4}}) {
        const Risultato r = cerca_ambata(archivio, capi);
        EXPECT_FALSE(r.prodotto);
        EXPECT_TRUE(r.tabelle.empty());
        EXPECT_EQ(prove::messaggi(r), std::vector<std::string>{"Capogioco specificato non valido"});
    }
    for (const auto& capi : std::vector<std::vector<int>>{{}, {5}, {5, 0}, {0, 5}, {5, 91}, {100, 5}}) {
        const Risultato r = cerca(archivio, capi, 1);
        EXPECT_FALSE(r.prodotto);
        EXPECT_TRUE(r.tabelle.empty());
        EXPECT_EQ(prove::messaggi(r), std::vector<std::string>{"Capigioco specificati non valido"});
    }
}

TEST(Capogioco, LAmbitoVuotoVienePrimaDelCapo) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n");
    AmbitoRicerca ambito;
    ambito.tratto = {2, 1};
    const std::vector<std::string> messaggi{std::string{kNessunaEstrazione}};
    EXPECT_EQ(prove::messaggi(cerca_ambata(archivio, {0}, ambito)), messaggi);
    EXPECT_EQ(prove::messaggi(cerca(archivio, {0, 0}, 0, ambito)), messaggi);
}

TEST(AmboCapogioco, AllAmboServonoDueDeiTre) {
    const auto archivio = da_testo(
        "1 BA 10 20 30 40 50\n"
        "2 BA 10 1 2 3 4\n"
        "3 BA 5 6 7 8 9\n"
        "4 BA 60 61 20 1 62\n");
    const Risultato r = cerca(archivio, {20, 10}, 1);
    EXPECT_EQ(r.tabelle.at(0).righe(), 88U);
    EXPECT_EQ(r.tabelle.at(0).testo(0, 0), "01-10-20");
    EXPECT_EQ(r.tabelle.at(0).testo(87, 0), "10-20-90");
    // Draw 1 hits all terni; 1 also comes out with 10 (draw 2) and with 20 (draw 4).
    EXPECT_EQ(riga(r, "01-10-20"), "01-10-20 3 0 1");
    EXPECT_EQ(riga(r, "10-15-20"), "10-15-20 1 3 0");
    EXPECT_EQ(riga(r, "05-10-20"), "05-10-20 1 3 0");
}

TEST(AmboCapogioco, AllAmbataBastaUnoDeiTre) {
    const auto archivio = da_testo(
        "1 BA 5 6 7 8 9\n"
        "2 BA 1 2 3 4 11\n"
        "3 BA 10 30 31 32 33\n"
        "4 BA 5 6 7 8 9\n");
    const Risultato r = cerca(archivio, {10, 20}, 0);
    EXPECT_EQ(r.tabelle.at(0).righe(), 7744U);
    EXPECT_EQ(riga(r, "05-10-20"), "05-10-20 3 0 1");
    EXPECT_EQ(riga(r, "01-10-20"), "01-10-20 2 1 0");
    EXPECT_EQ(riga(r, "10-20-90"), "10-20-90 1 1 0");
    // Only one of the two stands in it: written, but no row ever touches it.
    EXPECT_EQ(riga(r, "05-10-30"), "05-10-30 0 4 0");
    EXPECT_EQ(riga(r, "05-06-07"), "");
    EXPECT_EQ(r.tabelle.at(0).testo(0, 0), "01-02-10");
    EXPECT_EQ(r.tabelle.at(0).testo(7743, 0), "20-89-90");
}

TEST(AmboCapogioco, CapiUguali) {
    const auto archivio = da_testo(
        "1 BA 12 40 41 42 43\n"
        "2 BA 5 60 61 62 63\n"
        "3 BA 70 71 72 73 74\n");
    const Risultato ambo = cerca(archivio, {12, 12}, 1);
    EXPECT_EQ(ambo.tabelle.at(0).righe(), 89U);
    EXPECT_EQ(ambo.tabelle.at(0).testo(4, 0), "05-12-12");
    EXPECT_EQ(ambo.tabelle.at(0).testo(11, 0), "12-12-13");
    EXPECT_EQ(riga(ambo, "05-12-12"), "05-12-12 1 2 0");
    const Risultato ambata = cerca(archivio, {12, 12}, 0);
    EXPECT_EQ(ambata.tabelle.at(0).righe(), 89U);
    EXPECT_EQ(riga(ambata, "05-12-12"), "05-12-12 2 1 0");
    EXPECT_EQ(riga(ambata, "12-12-90"), "12-12-90 1 2 0");
}

TEST(AmboCapogioco, RigaConLaPrimaCellaVuotaContaComeConcorso) {
    const auto archivio = da_testo("1 BA 10 20 3 4 5\n2 BA - 10 20 30 40\n3 BA 10 20 6 7 8\n");
    EXPECT_EQ(riga(cerca(archivio, {10, 20}, 1), "10-20-90"), "10-20-90 2 0 1");
    EXPECT_EQ(riga(cerca_ambata(archivio, {10}), "10-20"), "10-20 2 0 1");
    EXPECT_EQ(riga(cerca_ambata(archivio, {10}), "10-30"), "10-30 0 3 0");
}

TEST(AmboCapogioco, LaSortitaDettaNelResoconto) {
    EXPECT_EQ(dati_riferiti(0), "Dati riferiti alla sortita dell'ambata");
    EXPECT_EQ(dati_riferiti(1), "Dati riferiti alla sortita dell'ambo");
}

TEST(Capogioco, UgualeAllaLentaSuArchiviCasuali) {
    for (std::uint32_t seme = 1; seme <= 40; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const auto ambito = ambito_casuale(seme);
        const auto piane = prove::righe_piane(archivio, ambito);
        const int ruote = ambito.ruote.n_ruote();
        const int k1 = static_cast<int>(seme * 7 % 90 + 1);
        const int k2 = seme % 5 == 0 ? k1 : static_cast<int>(seme * 11 % 40 + 1);
        EXPECT_EQ(righe(cerca_ambata(archivio, {k1}, ambito)),
                  piane.empty() ? "" : prove::ambata_capogioco_lenta(piane, ruote, k1));
        for (const int combo_rit : {0, 1})
            EXPECT_EQ(righe(cerca(archivio, {k1, k2}, combo_rit, ambito)),
                      piane.empty() ? "" : prove::ambo_capogioco_lento(piane, ruote, k1, k2, combo_rit == 0));
    }
}

}  // namespace
}  // namespace sortimetra
