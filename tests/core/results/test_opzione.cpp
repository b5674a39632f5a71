#include "results/opzione.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using testing::ElementsAre;

TEST(Opzione, UnNumeroIntero) {
    EXPECT_EQ(intero_opzione("12"), 12);
    EXPECT_EQ(intero_opzione(" -3 "), -3);
    EXPECT_EQ(intero_opzione("+5"), 5);
    EXPECT_EQ(intero_opzione("007"), 7);
    EXPECT_EQ(intero_opzione("99999999999999999999"), kInteroMassimo);
    EXPECT_EQ(intero_opzione("-99999999999999999999"), kInteroMinimo);
    for (const std::string_view t : {"", " ", "+", "-", "+-3", "1,5", "1.5", "12a", "1 2", "uno"})
        EXPECT_FALSE(intero_opzione(t)) << "\"" << t << "\"";
    EXPECT_EQ(intero_opzione("90", 1, 90), 90);
    EXPECT_FALSE(intero_opzione("91", 1, 90));
    EXPECT_FALSE(intero_opzione("0", 1, 90));
}

TEST(Opzione, UnElenco) {
    EXPECT_THAT(pezzi_opzione("BA, RM ,"), ElementsAre("BA", "RM", ""));
    EXPECT_THAT(pezzi_opzione(""), ElementsAre(""));
    EXPECT_EQ(interi_opzione("3, 90,3", 1, 90), (std::vector<int>{3, 90, 3}));
    EXPECT_FALSE(interi_opzione("", 1, 90));
    EXPECT_FALSE(interi_opzione("3,", 1, 90));
    EXPECT_FALSE(interi_opzione("3,91", 1, 90));
    EXPECT_THAT(senza_doppi({3, 90, 3, 1, 90}), ElementsAre(3, 90, 1));
    EXPECT_EQ(testo_interi({3, 90}), "3,90");
    EXPECT_EQ(testo_interi({}), "");
}

constexpr std::array<std::string_view, 2> kTipi{"ambata", "ambo"};

TEST(Opzione, UnaParola) {
    EXPECT_EQ(posto_parola("AMBO ", kTipi), 1);
    EXPECT_FALSE(posto_parola("terno", kTipi));
    EXPECT_FALSE(posto_parola("", kTipi));
}

/// Parameters of a search that only this test has.
struct Prova {
    bool acceso = false;
    int quanti = 2;
    std::optional<Concorso> concorso;
    int tipo = 0;
    std::vector<int> numeri;
};
constexpr Opzione kAcceso = interruttore<&Prova::acceso>({.nome = "--acceso"});
constexpr Opzione kQuanti = intero<&Prova::quanti, 1, 5>({.nome = "--quanti"});
constexpr Opzione kConcorso = intero<&Prova::concorso>({.nome = "--concorso"});
constexpr Opzione kTipo = parola<&Prova::tipo, kTipi>({.nome = "--tipo"});
constexpr Opzione kNumeri = elenco<&Prova::numeri, 1, 90, 3, Doppi::contano_una_volta>({.nome = "--numeri"});

TEST(Opzione, OgniSpecieAlSuoPosto) {
    Domanda d;
    EXPECT_TRUE(kAcceso.leggi("", d));
    EXPECT_TRUE(kQuanti.leggi("5", d));
    EXPECT_TRUE(kConcorso.leggi("4655", d));
    EXPECT_TRUE(kTipo.leggi("ambo", d));
    EXPECT_TRUE(kNumeri.leggi("7,7,9", d));
    const auto& p = d.di<Prova>();
    EXPECT_TRUE(p.acceso);
    EXPECT_EQ(p.quanti, 5);
    EXPECT_EQ(p.concorso, 4655);
    EXPECT_EQ(p.tipo, 1);
    EXPECT_THAT(p.numeri, ElementsAre(7, 9));
}

TEST(Opzione, UnValoreCheNonVaNonCambiaNulla) {
    Domanda d;
    for (const auto& [opzione, valore] :
         {std::pair{&kQuanti, "6"}, std::pair{&kQuanti, ""}, std::pair{&kConcorso, "x"},
          std::pair{&kTipo, "terno"}, std::pair{&kNumeri, "1,2,3,4"}, std::pair{&kNumeri, "0"}}) {
        EXPECT_FALSE(opzione->leggi(valore, d)) << opzione->nome << " " << valore;
        EXPECT_FALSE(opzione->scrivi(d)) << "untouched, so there is nothing to write";
    }
}

TEST(Opzione, CioCheScriveSiRilegge) {
    Domanda d;
    d.parametri.per<Prova>() = {.acceso = true, .quanti = 3, .concorso = 7, .tipo = 1, .numeri = {4, 5}};
    Domanda altra;
    for (const Opzione* o : {&kAcceso, &kQuanti, &kConcorso, &kTipo, &kNumeri}) {
        const auto valore = o->scrivi(d);
        ASSERT_TRUE(valore) << o->nome;
        EXPECT_TRUE(o->leggi(*valore, altra)) << o->nome;
        EXPECT_EQ(o->scrivi(altra), valore) << o->nome;
    }
}

}  // namespace
}  // namespace sortimetra
