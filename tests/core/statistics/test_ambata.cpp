#include "statistics/ambata.h"
#include "support/archivi.h"
#include "support/lente.h"

#include <gtest/gtest.h>

#include <map>

namespace sortimetra {
namespace {

using prove::ambito_casuale;
using prove::archivio_casuale;
using prove::da_testo;
using prove::domanda;
using prove::riga;

Risultato cerca(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito) {
    SenzaAvanzamento nessuno;
    return novanta_numeri(archivio, domanda("ritardo e frequenza dei 90 numeri", ambito), nessuno);
}

TEST(Ambata, ContaIlNovantaSuBari) {
    const auto archivio = da_testo(
        "1 BA 90 12 33 4 5\n"
        "2 BA 1 2 90 3 4\n"
        "3 BA 7 8 9 10 11\n");
    const Risultato r = cerca(archivio, {});
    EXPECT_EQ(riga(r, "90"), "90 2 1 0");
    EXPECT_EQ(riga(r, "12"), "12 1 2 0");
    EXPECT_EQ(riga(r, "7"), "7 1 0 0");
    EXPECT_EQ(riga(r, "50"), "50 0 3 0");
    EXPECT_EQ(r.tabelle[0].titoli,
              (std::vector<std::vector<std::string>>{{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}}));
}

TEST(Ambata, UnSoloConcorso) {
    const auto archivio = da_testo(
        "1 BA 1 2 3 4 5\n"
        "2 BA 6 7 8 9 10\n");
    AmbitoRicerca ambito;
    ambito.tratto = {2, 2};
    const Risultato r = cerca(archivio, ambito);
    EXPECT_EQ(riga(r, "6"), "6 1 0 0");
    EXPECT_EQ(riga(r, "1"), "1 0 1 0");
}

TEST(Ambata, RitardoStoricoFraDueUscite) {
    std::string testo;
    for (int c = 1; c <= 30; ++c)
        testo += std::to_string(c) + (c == 5 || c == 20 ? " BA 77 1 2 3 4\n" : " BA 5 1 2 3 4\n");
    EXPECT_EQ(riga(cerca(da_testo(testo), {}), "77"), "77 2 10 14");
}

TEST(Ambata, NumeroUscitoSoloAlPrimoConcorso) {
    EXPECT_EQ(riga(cerca(da_testo("1 BA 9 0 0 0 0\n2 BA 1 2 3 4 5\n3 BA 1 2 3 4 5\n"), {}), "9"), "9 1 2 0");
}

TEST(Ambata, DueRuoteDelloStessoConcorsoContanoDue) {
    const auto archivio = da_testo(
        "1 BA 10 1 2 3 4\n1 CA 10 5 6 7 8\n"
        "2 BA 11 1 2 3 4\n2 CA 12 5 6 7 8\n");
    AmbitoRicerca ambito;
    ambito.ruote.clic(1, true);
    EXPECT_EQ(riga(cerca(archivio, ambito), "10"), "10 2 1 0");
}

TEST(Ambata, NessunaRuotaCorreSuBariConTZero) {
    const auto archivio = da_testo(
        "1 BA 1 2 3 4 5\n1 CA 80 81 82 83 84\n"
        "2 BA 6 7 8 9 10\n"
        "3 BA 1 11 12 13 14\n");
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::nessuna();
    const Risultato r = cerca(archivio, ambito);
    // The first appearance counts as a closed delay of C, since `ultimo` starts at -1.
    EXPECT_EQ(riga(r, "1"), "1 2 -3 1");
    EXPECT_EQ(riga(r, "6"), "6 1 -2 2");
    EXPECT_EQ(riga(r, "80"), "80 0 0 0");
}

TEST(Ambata, RuoteMancantiPossonoDareRitardiNegativi) {
    // Four rows over two wheels give T 2, although three draws are walked.
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n2 CA 6 7 8 9 10\n3 CA 20 21 22 23 24\n");
    AmbitoRicerca ambito;
    ambito.ruote.clic(1, true);
    EXPECT_EQ(riga(cerca(archivio, ambito), "20"), "20 1 -1 1");
}

TEST(Ambata, Nazionale) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n2 NZ 90 2 3 4 5\n3 NZ 90 1 6 7 8\n");
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::nazionale();
    ambito.tratto.a = 3;
    const Risultato r = cerca(archivio, ambito);
    // The range ends at the last concorso of the ten wheels, so draw 3 is outside.
    EXPECT_EQ(riga(r, "90"), "90 1 0 0");
    EXPECT_EQ(riga(r, "1"), "1 0 1 0");
}

TEST(Ambata, PrimoEstratto) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 2 1 3 4 5\n");
    SenzaAvanzamento nessuno;
    const Risultato r = primo_estratto(archivio, domanda("", {}), nessuno);
    EXPECT_EQ(riga(r, "1"), "1 1 1 0");
    EXPECT_EQ(riga(r, "3"), "3 0 2 0");
}

TEST(Ambata, AmbitoVuotoDiceIlPerche) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n");
    AmbitoRicerca ambito;
    ambito.tratto = {2, 1};
    const Risultato r = cerca(archivio, ambito);
    EXPECT_FALSE(r.prodotto);
    EXPECT_TRUE(r.tabelle.empty());
    EXPECT_EQ(prove::messaggi(r),
              std::vector<std::string>{"Non ci sono estrazioni per l'intervallo selezionato"});
}

/// The same search, told step by step over single rows, with nothing shared with the fast one.
std::string novanta_numeri_lenta(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito, int k) {
    const auto righe = prove::righe_piane(archivio, ambito);
    if (righe.empty()) return "";
    const int t = prove::arrotonda(righe.size(), ambito.ruote.n_ruote());
    std::map<int, prove::Conti> conti;
    for (int n = 1; n <= 90; ++n) conti[n] = {t - 1, 0, t, 0};
    prove::cammina(righe, [&](int c, const std::vector<int>& numeri) {
        for (int p = 0; p < k; ++p)
            if (numeri[static_cast<std::size_t>(p)] > 0)
                conti[numeri[static_cast<std::size_t>(p)]].esce(c, t);
    });
    std::string testo;
    for (const auto& [n, x] : conti) testo += std::to_string(n) + " " + x.testo();
    return testo;
}

TEST(Ambata, UgualeAllaLentaSuArchiviCasuali) {
    SenzaAvanzamento nessuno;
    for (std::uint32_t seme = 1; seme <= 300; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const auto ambito = ambito_casuale(seme);
        for (const int k : {1, 5}) {
            const Risultato r = ambatalotto(archivio, domanda("", ambito), nessuno, k);
            EXPECT_EQ(r.tabelle.empty() ? "" : prove::righe(r.tabelle[0]),
                      novanta_numeri_lenta(archivio, ambito, k));
        }
    }
}

}  // namespace
}  // namespace sortimetra
