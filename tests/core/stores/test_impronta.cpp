#include "stores/apertura.h"
#include "stores/dimostrazione.h"
#include "stores/impronta.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <chrono>
#include <set>
#include <utility>

namespace sortimetra {
namespace {

RigheArchivio poche() {
    RigheArchivio righe;
    const Data data{std::chrono::days{10'000}};
    for (int w = 0; w < 3; ++w)
        righe.lotto.push_back({.concorso = 1, .data = data, .ruota = w, .numeri = {1, 2, 3, 4, 5}});
    righe.nazionale.push_back({.concorso = 1, .data = data, .ruota = kNazionale, .numeri = {1, 2, 3, 4, 5}});
    righe.superenalotto.push_back(
        {.concorso = 1, .data = data, .numeri = {1, 2, 3, 4, 5, 6}, .jolly = 7, .superstar = 8});
    righe.winforlife.push_back(
        {.concorso = 1, .data = data, .ora = "8:00", .numeri = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}});
    return righe;
}

TEST(Impronta, ContaLeRighe) {
    EXPECT_EQ(impronta(poche(), kTabellaLotto, false).righe, 3U);
    EXPECT_EQ(impronta(poche(), kTabellaWinForLife, false).righe, 1U);
    EXPECT_EQ(impronta({}, kTabellaSuperEnalotto, false).righe, 0U);
}

TEST(Impronta, UgualeSoloPerLeStesseRighe) {
    // Each change of a single value, and of the order, gives another digest.
    using Cambia = void (*)(RigheArchivio&);
    const auto prova = [](unsigned tabella, std::initializer_list<Cambia> cambiamenti) {
        std::set<std::uint64_t> somme{impronta(poche(), tabella, false).somma,
                                      impronta(poche(), tabella, true).somma};
        EXPECT_EQ(impronta(poche(), tabella, false), impronta(poche(), tabella, false));
        for (const Cambia cambia : cambiamenti) {
            RigheArchivio righe = poche();
            cambia(righe);
            somme.insert(impronta(righe, tabella, false).somma);
        }
        EXPECT_EQ(somme.size(), cambiamenti.size() + 2);
    };
    prova(kTabellaLotto,
          {[](RigheArchivio& r) { r.lotto[1].concorso = 2; },
           [](RigheArchivio& r) { r.lotto[1].data += std::chrono::days{1}; },
           [](RigheArchivio& r) { r.lotto[1].ruota = 5; }, [](RigheArchivio& r) { r.lotto[1].numeri[0] = 6; },
           [](RigheArchivio& r) { r.lotto[1].numeri[4] = 6; },
           [](RigheArchivio& r) { std::swap(r.lotto[0], r.lotto[1]); },
           [](RigheArchivio& r) { std::swap(r.lotto[1].numeri[0], r.lotto[1].numeri[1]); },
           [](RigheArchivio& r) { r.lotto.pop_back(); }, [](RigheArchivio& r) { r.lotto.push_back({}); }});
    prova(kTabellaNazionale, {[](RigheArchivio& r) { r.nazionale[0].numeri[2] = 90; },
                              [](RigheArchivio& r) { r.nazionale.clear(); }});
    prova(kTabellaSuperEnalotto,
          {[](RigheArchivio& r) { r.superenalotto[0].numeri[5] = 9; },
           [](RigheArchivio& r) { r.superenalotto[0].jolly = 9; },
           [](RigheArchivio& r) { r.superenalotto[0].superstar = 9; },
           [](RigheArchivio& r) { std::swap(r.superenalotto[0].jolly, r.superenalotto[0].superstar); }});
    prova(kTabellaWinForLife,
          {[](RigheArchivio& r) { r.winforlife[0].ora = "08:00"; },
           [](RigheArchivio& r) { r.winforlife[0].ora = ""; },
           [](RigheArchivio& r) { r.winforlife[0].ora = "un'ora che prende più di una parola"; },
           [](RigheArchivio& r) { r.winforlife[0].numeri[0] = 20; },
           [](RigheArchivio& r) { r.winforlife[0].numeri[9] = 20; }});
}

TEST(Impronta, OgniBitSiSpargeSuTutti) {
    // One bit of one number among 46,550 rows changes half of the 64, give or take.
    RigheArchivio righe = archivio_dimostrativo();
    const std::uint64_t prima = impronta(righe, kTabellaLotto, false).somma;
    int minimo = 64;
    int massimo = 0;
    for (std::size_t i = 0; i < righe.lotto.size(); i += 997)
        for (unsigned bit = 0; bit < 7; ++bit) {
            Numero& n = righe.lotto[i].numeri[i % kEstratti];
            n = static_cast<Numero>(n ^ 1U << bit);
            const int diversi = std::popcount(prima ^ impronta(righe, kTabellaLotto, false).somma);
            n = static_cast<Numero>(n ^ 1U << bit);
            minimo = std::min(minimo, diversi);
            massimo = std::max(massimo, diversi);
        }
    EXPECT_GT(minimo, 12);
    EXPECT_LT(massimo, 52);
}

TEST(Impronta, IlSigilloValePerQuesteRigheEQuestiConfini) {
    const ImprontaTabella lotto{30, 12345};
    const ConfiniLotto confini{.ultimo = 3, .primo_giorno = kPrimaData, .ultimo_giorno = kUltimaData};
    const std::set<std::uint64_t> sigilli{
        sigillo(confini, lotto),
        sigillo(confini, {31, 12345}),
        sigillo(confini, {30, 12346}),
        sigillo({4, kPrimaData, kUltimaData}, lotto),
        sigillo({3, kUltimaData, kPrimaData}, lotto),
        sigillo({3, std::nullopt, kUltimaData}, lotto),
        sigillo({3, kPrimaData, std::nullopt}, lotto),
        sigillo({3, std::nullopt, std::nullopt}, lotto),
        sigillo({3, Data{}, kUltimaData}, lotto),  // the day that counts 0 is not none
    };
    EXPECT_EQ(sigilli.size(), 9U);
}

TEST(Impronta, NonDipendeDallaMacchina) {
    // Files go from one machine to another: these are the digests of every one.
    const RigheArchivio righe = poche();
    EXPECT_EQ(impronta(righe, kTabellaLotto, false).somma, 13753846698762377718U);
    EXPECT_EQ(impronta(righe, kTabellaWinForLife, true).somma, 9575331858581574716U);
}

}  // namespace
}  // namespace sortimetra
