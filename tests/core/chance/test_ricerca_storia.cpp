#include "chance/parametri.h"
#include "chance/ricerca_storia.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

namespace sortimetra {
namespace {

Domanda chiedi(ParametriStoria p) {
    Domanda d = prove::domanda("storia");
    d.parametri = std::move(p);
    return d;
}

TEST(RicercaStoria, DaLeUsciteELaSintesi) {
    const auto archivio = prove::da_testo("1 BA 7 2 3 4 5\n2 BA 1 2 3 4 5\n3 BA 7 2 3 4 5\n");
    const auto risposta = prove::rispondi(chiedi({.numeri = {7}}), archivio);
    ASSERT_TRUE(risposta.prodotta());
    ASSERT_EQ(risposta.risultato->tabelle.size(), 2U);
    EXPECT_EQ(risposta.risultato->tabelle[0].nome, "risultati");
    EXPECT_EQ(prove::righe(risposta.risultato->tabelle[0]),
              "1 1 01/01/2000 Bari 07 ...\n"
              "2 3 03/01/2000 Bari 07 1\n");
    EXPECT_EQ(risposta.risultato->tabelle[1].nome, "sintesi");
    EXPECT_EQ(risposta.risultato->tabelle[1].testo(0, 0), "2");
}

TEST(RicercaStoria, SenzaEstrazioniLoDice) {
    const auto risposta = prove::rispondi(chiedi({.numeri = {7}}), prove::da_testo(""));
    EXPECT_FALSE(risposta.prodotta());
    EXPECT_EQ(prove::messaggi(*risposta.risultato),
              std::vector<std::string>{std::string{kNessunaEstrazione}});
}

TEST(RicercaStoria, CioCheNonPuoEssereChiesto) {
    EXPECT_TRUE(controlla_storia(chiedi({})));
    EXPECT_FALSE(controlla_storia(chiedi({.numeri = {7}})));
    EXPECT_TRUE(controlla_storia(chiedi({.numeri = {7}, .presenti = 2})));
    EXPECT_TRUE(controlla_storia(chiedi({.numeri = {21}, .gioco = 3})));
    EXPECT_TRUE(controlla_storia(chiedi({.numeri = {7}, .posto = 1, .gioco = 1})));
    EXPECT_TRUE(controlla_storia(chiedi({.numeri = {7, 8}, .presenti = 2, .posto = 1})));
    EXPECT_FALSE(controlla_storia(chiedi({.numeri = {7, 8}, .posto = 1})));
    // No more than five come together on a wheel.
    EXPECT_TRUE(controlla_storia(chiedi({.numeri = {1, 2, 3, 4, 5, 6}, .presenti = 6})));
    EXPECT_FALSE(controlla_storia(chiedi({.numeri = {1, 2, 3, 4, 5, 6}, .presenti = 6, .gioco = 1})));
}

TEST(RicercaStoria, IlGiocoLoDicelaDomanda) {
    EXPECT_EQ(gioco_storia(chiedi({.numeri = {7}})), Gioco::lotto);
    EXPECT_EQ(gioco_storia(chiedi({.numeri = {7}, .gioco = 2})), Gioco::dieci_e_lotto);
    const Evento e = evento_storia(chiedi({.numeri = {7, 9}, .presenti = 2, .posto = 3}));
    EXPECT_EQ(e.quanti, 2);
    EXPECT_EQ(e.presenti, 2);
    EXPECT_EQ(e.posti, 4U);
}

}  // namespace
}  // namespace sortimetra
