#include "chance/grafico.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <numeric>

namespace sortimetra {
namespace {

Storia racconta(const ArchivioEstrazioni& archivio, int numero) {
    SenzaAvanzamento nessuno;
    Evento e{.quanti = 1};
    e.caselle[0] = static_cast<Numero>(numero);
    return storia(archivio, {}, e, nessuno);
}

ArchivioEstrazioni ogni_cinque(int quanti) {
    std::string testo;
    for (int c = 1; c <= quanti; ++c)
        testo += std::to_string(c) + (c % 5 == 1 ? " BA 77 1 2 3 4\n" : " BA 5 1 2 3 4\n");
    return prove::da_testo(testo);
}

TEST(Grafico, LaLineaHaIRitardiChiusiEAllaFineQuelloAperto) {
    const auto archivio = ogni_cinque(13);  // 77 comes at 1, 6, 11
    const Storia s = racconta(archivio, 77);
    const Grafico g = grafico(std::span{&s, 1}, "Bari");
    ASSERT_EQ(g.serie.size(), 1U);
    const SerieGrafico& serie = g.serie.front();
    EXPECT_EQ(g.titolo, "Storia di 77");
    EXPECT_EQ(g.sottotitolo, "Bari");
    ASSERT_EQ(serie.linea.size(), 3U);
    EXPECT_EQ(serie.linea[0].concorso, 6);
    EXPECT_EQ(serie.linea[0].ritardo, 4);
    EXPECT_FALSE(serie.linea[1].aperto);
    EXPECT_EQ(serie.linea[2].concorso, 13);
    EXPECT_EQ(serie.linea[2].ritardo, 2);
    EXPECT_TRUE(serie.linea[2].aperto);
    EXPECT_EQ(serie.record, 4);
    EXPECT_EQ(serie.presente, 2);
}

TEST(Grafico, LeBarreHannoOgniRitardoChiusoELaLeggeLaStessaSomma) {
    const auto archivio = ogni_cinque(101);
    const Storia s = racconta(archivio, 77);
    const SerieGrafico serie = grafico(std::span{&s, 1}, "").serie.front();
    // Delays of 4, so bars of one draw each: 0, 1, 2, 3, 4.
    ASSERT_EQ(serie.barre.size(), 5U);
    EXPECT_EQ(serie.barre[4].quanti, 20);
    EXPECT_EQ(serie.barre[0].quanti, 0);
    // Of 20 closed delays one in 18 is 0 draws long.
    EXPECT_NEAR(serie.barre[0].attesi, 20.0 / 18, 1e-9);
    EXPECT_NEAR(serie.barre[1].attesi, 20.0 / 18 * 17 / 18, 1e-9);
}

TEST(Grafico, PiuStorieHannoLeStesseBarreEGliStessiAnni) {
    const auto archivio = prove::archivio_casuale(7);
    const std::vector<Storia> storie{racconta(archivio, 1), racconta(archivio, 2), racconta(archivio, 90)};
    const Grafico g = grafico(storie, "", true);
    EXPECT_TRUE(g.simulato);
    ASSERT_EQ(g.serie.size(), 3U);
    for (const SerieGrafico& serie : g.serie) {
        ASSERT_EQ(serie.barre.size(), g.serie[0].barre.size());
        ASSERT_EQ(serie.anni.size(), g.serie[0].anni.size());
        EXPECT_LE(serie.barre.size(), 30U);
        for (std::size_t i = 0; i < serie.barre.size(); ++i) {
            EXPECT_EQ(serie.barre[i].da, g.serie[0].barre[i].da);
            EXPECT_EQ(serie.barre[i].da, i == 0 ? 0 : serie.barre[i - 1].a + 1);
        }
    }
    for (std::size_t i = 0; i < storie.size(); ++i) {
        const auto& barre = g.serie[i].barre;
        const int chiusi = std::accumulate(barre.begin(), barre.end(), 0,
                                           [](int n, const BarraRitardi& b) { return n + b.quanti; });
        EXPECT_EQ(chiusi, std::max(0, static_cast<int>(storie[i].colpi.size()) - 1));
    }
}

TEST(Grafico, SenzaUsciteSiDisegnaLoStesso) {
    const auto archivio = ogni_cinque(13);
    const Storia s = racconta(archivio, 60);
    const Grafico g = grafico(std::span{&s, 1}, "");
    ASSERT_EQ(g.serie.size(), 1U);
    ASSERT_EQ(g.serie[0].linea.size(), 1U);
    EXPECT_EQ(g.serie[0].linea[0].ritardo, 13);
    EXPECT_TRUE(grafico({}, "").serie.empty());
}

TEST(Grafico, IFormatiSonoTre) {
    EXPECT_EQ(formato_grafico("a.svg"), FormatoGrafico::svg);
    EXPECT_EQ(formato_grafico("a.PNG"), FormatoGrafico::png);
    EXPECT_EQ(formato_grafico("dir.x/a.pdf"), FormatoGrafico::pdf);
    EXPECT_FALSE(formato_grafico("a.txt"));
    EXPECT_FALSE(formato_grafico("svg"));
}

TEST(Grafico, IlSottotitoloDiceDiCheCosa) {
    AmbitoDetto ambito{.ruote = "Bari, Roma", .intervallo = "Tutti i Concorsi", .tratto = {1, 100}};
    EXPECT_EQ(sottotitolo_grafico(ambito), "Bari, Roma, concorsi 1 - 100");
    ambito.intervallo = "Agosto";
    EXPECT_EQ(sottotitolo_grafico(ambito), "Bari, Roma, concorsi 1 - 100, Agosto");
}

}  // namespace
}  // namespace sortimetra
