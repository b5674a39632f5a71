#include "chance/grafico.h"
#include "chance/storia.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

/// Thirty draws of Bari: the 7 comes at draws 3, 4, 9 and 20, the 12 in every one.
Grafico storie(std::vector<Numero> numeri, bool simulato = false) {
    std::string lotto;
    for (int c = 1; c <= 30; ++c) {
        const bool sette = c == 3 || c == 4 || c == 9 || c == 20;
        lotto +=
            std::to_string(c) + " BA " + (sette ? "7" : "80") + " 12 33 44 " + std::to_string(50 + c) + "\n";
    }
    const ArchivioEstrazioni archivio = prove::da_testo(lotto);
    AmbitoRicerca ambito;
    ambito.tratto = {1, 30};
    SenzaAvanzamento senza;
    std::vector<Storia> s;
    for (const Numero n : numeri) {
        Evento e;
        e.quanti = 1;
        e.caselle[0] = n;
        s.push_back(storia(archivio, ambito, e, senza));
    }
    return grafico(s, "Bari, concorsi 1-30", simulato);
}

std::string letto(const std::filesystem::path& file) {
    std::ifstream flusso{file, std::ios::binary};
    return {std::istreambuf_iterator<char>{flusso}, {}};
}

struct Disegno : testing::Test {
    prove::CartellaProva cartella;

    std::string disegna(const Grafico& g, const char* nome) {
        const auto file = cartella.percorso() / nome;
        const auto fatto = scrivi_grafico(g, file, *formato_grafico(file));
        EXPECT_TRUE(fatto) << (fatto ? "" : fatto.error().testo());
        return letto(file);
    }
};

TEST_F(Disegno, SenzaSchermoNeiTreFormati) {
    const Grafico g = storie({7});
    EXPECT_TRUE(disegna(g, "storia.svg").starts_with("<?xml"));
    EXPECT_TRUE(disegna(g, "storia.PNG").starts_with("\x89PNG"));
    EXPECT_TRUE(disegna(g, "storia.pdf").starts_with("%PDF"));
}

TEST_F(Disegno, DiceDiChiEDiCheEQuantoEIlCaso) {
    const std::string svg = disegna(storie({7}, true), "storia.svg");
    for (const char* testo : {"Storia di 07", "Bari, concorsi 1-30", "Archivio simulato", "record 10",
                              "oggi 10", "record atteso", "Ritardo (concorsi)", "linea: il caso"})
        EXPECT_NE(svg.find(testo), std::string::npos) << testo;
    EXPECT_EQ(disegna(storie({7}), "vero.svg").find("Archivio simulato"), std::string::npos);
}

TEST_F(Disegno, PiuStorieHannoUnaLegenda) {
    const std::string svg = disegna(storie({7, 12, 44}), "storie.svg");
    for (const char* testo : {"07: oggi 10, record 10", "12: oggi 0, record 0", "44: oggi 0, record 0"})
        EXPECT_NE(svg.find(testo), std::string::npos) << testo;
    // Dashes tell them apart as well as colours do.
    EXPECT_NE(svg.find("stroke-dasharray"), std::string::npos);
}

TEST_F(Disegno, ChiNonEMaiUscitoHaLaSuaStoria) {
    EXPECT_NE(disegna(storie({90}), "mai.svg").find("Storia di 90"), std::string::npos);
    EXPECT_TRUE(disegna(storie({}), "nessuna.png").starts_with("\x89PNG"));
}

TEST_F(Disegno, UnaCartellaCheNonCELoDice) {
    const auto fatto =
        scrivi_grafico(storie({7}), cartella.percorso() / "no" / "storia.svg", FormatoGrafico::svg);
    ASSERT_FALSE(fatto);
    EXPECT_FALSE(fatto.error().testo().empty());
}

}  // namespace
}  // namespace sortimetra
