#include "draws/combinazioni.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <random>
#include <vector>

namespace sortimetra {
namespace {

using prove::da_testi;
using prove::da_testo;

std::vector<int> venti(const ArchivioEstrazioni& archivio) {
    const Combinazione c = calc_combinazione_10elotto(archivio.lotto(), 0);
    return {c.begin() + 1, c.end()};
}

/// Ten rows whose first numbers are 1 to 10 and second ones 11 to 20, the rest as told per wheel.
std::string dieci_ruote(const std::array<std::string, 10>& righe) {
    std::string testo;
    for (std::size_t w = 0; w < 10; ++w)
        testo += "1 " + std::string{kNomiRuote[w].codice} + " " + righe[w] + "\n";
    return testo;
}
const std::array<std::string, 10> kDistinti{
    "1 11 21 31 41", "2 12 22 32 42", "3 13 23 33 43", "4 14 24 34 44", "5 15 25 35 45",
    "6 16 26 36 46", "7 17 27 37 47", "8 18 28 38 48", "9 19 29 39 49", "10 20 30 40 50"};

TEST(DieciELotto, VentiDistintiNonLeggonoIlTerzoNumero) {
    std::vector<int> attesi(20);
    for (int i = 0; i < 20; ++i) attesi[static_cast<std::size_t>(i)] = i + 1;
    EXPECT_EQ(venti(da_testo(dieci_ruote(kDistinti))), attesi);
}

TEST(DieciELotto, UnDoppionePrendeIlTerzoNumeroDiBari) {
    auto righe = kDistinti;
    righe[3] = "4 1 24 34 44";  // second number of Genova repeats the first of Bari
    const auto n = venti(da_testo(dieci_ruote(righe)));
    EXPECT_EQ(std::count(n.begin(), n.end(), 14), 0);
    EXPECT_EQ(std::count(n.begin(), n.end(), 1), 1);
    EXPECT_EQ(std::count(n.begin(), n.end(), 21), 1);
}

TEST(DieciELotto, IlTerzoNumeroChePareIlPosto) {
    auto righe = kDistinti;
    righe[0] = "1 11 2 31 41";  // Bari's third is taken, so Cagliari's third is next
    righe[3] = "4 1 24 34 44";
    const auto n = venti(da_testo(dieci_ruote(righe)));
    EXPECT_EQ(std::count(n.begin(), n.end(), 22), 1);
    EXPECT_EQ(std::count(n.begin(), n.end(), 2), 1);
}

TEST(DieciELotto, PocheRuoteFinisconoSenzaGirareAVuoto) {
    const auto n = venti(da_testo("1 BA 1 2 3 4 5\n1 CA 1 2 3 4 5\n"));
    EXPECT_EQ(n.size(), 20U);
    EXPECT_EQ(n.front(), 0);
}

/// The first place that another one finds empty or with its own number; 0 when twenty numbers differ.
std::size_t difetto(const std::array<int, 21>& c) {
    for (std::size_t i = 1; i <= 20; ++i)
        for (std::size_t j = 1; j <= 20; ++j)
            if (j != i && (c[j] == 0 || c[j] == c[i])) return j;
    return 0;
}

/// Told place by place: each number that follows goes to the first such place.
std::vector<int> venti_lenti(const TabellaLotto& t, std::size_t record) {
    std::vector<const Numero*> righe;
    for (std::size_t w = 0; w < kRuote; ++w)
        if ((t.presenti[record] >> w & 1U) != 0) righe.push_back(t.numeri[record].data() + w * kEstratti);
    std::array<int, 21> c{};
    for (std::size_t i = 0; i < righe.size(); ++i) {
        c[i + 1] = righe[i][0];
        c[i + 11] = righe[i][1];
    }
    for (std::size_t posto = 2; posto < kEstratti; ++posto)
        for (const Numero* riga : righe)
            if (const std::size_t j = difetto(c); j != 0 && riga[posto] != 0) c[j] = riga[posto];
    std::sort(c.begin() + 1, c.end());
    return {c.begin() + 1, c.end()};
}

/// Rows of 60,000 draws: urns of few and of all numbers, rows and cells that are missing, numbers twice.
RigheArchivio righe_a_caso(std::uint32_t seme) {
    std::mt19937 caso{seme};
    const auto fra = [&caso](int da, int a) { return std::uniform_int_distribution<int>{da, a}(caso); };
    RigheArchivio righe;
    for (Concorso c = 1; c <= 60'000; ++c) {
        const int urna = fra(0, 2) == 0 ? fra(6, 30) : kNumeri;
        const bool buchi = fra(0, 2) == 0;
        for (int w = 0; w < kRuote; ++w) {
            if (buchi && fra(0, 9) == 0) continue;
            RigaLotto r{.concorso = c, .data = Data{} + std::chrono::days{c}, .ruota = w};
            for (Numero& n : r.numeri)
                n = buchi && fra(0, 12) == 0 ? Numero{0} : static_cast<Numero>(fra(1, urna));
            righe.lotto.push_back(r);
        }
    }
    return righe;
}

TEST(DieciELotto, SessantamilaEstrazioniComeDetteAPosti) {
    const auto archivio = ArchivioEstrazioni::componi(righe_a_caso(17));
    ASSERT_TRUE(archivio);
    const TabellaLotto& t = archivio->lotto();
    std::size_t finiti = 0;
    for (std::size_t i = 0; i < t.concorso.size(); ++i) {
        const Combinazione c = calc_combinazione_10elotto(t, i);
        const auto attesi = venti_lenti(t, i);
        ASSERT_EQ((std::vector<int>{c.begin() + 1, c.end()}), attesi) << "concorso " << t.concorso[i];
        ASSERT_EQ(c[0], 0);
        if (std::adjacent_find(attesi.begin(), attesi.end()) != attesi.end()) ++finiti;
    }
    // Draws whose wheels run out of numbers were among them, and the others too.
    EXPECT_GT(finiti, 5'000U);
    EXPECT_GT(t.concorso.size() - finiti, 30'000U);
}

TEST(SuperEnalotto, OrdinaLaSestina) {
    const auto archivio = da_testi("", "5 60 10 50 20 40 30 7 88\n", "");
    const Combinazione c = calc_combinazione_superenalotto(archivio.superenalotto(), 0);
    EXPECT_EQ((std::vector<int>{c.begin(), c.begin() + 8}),
              (std::vector<int>{7, 10, 20, 30, 40, 50, 60, 88}));
    EXPECT_EQ(calc_combinazione_superenalotto(archivio.superenalotto(), 1), Combinazione{});
}

TEST(SuperEnalotto, DalleRuoteUnDoppionePassaAlPostoDopo) {
    auto righe = kDistinti;
    righe[2] = "1 63 23 33 43";  // Firenze begins with Bari's number
    righe[9] = "5 63 30 40 50";  // and Venezia's first two are taken
    const auto archivio = da_testo(dieci_ruote(righe));
    const Combinazione c = calc_combinazione_superenalotto_s(archivio.lotto(), 0);
    EXPECT_EQ((std::vector<int>{c.begin(), c.begin() + 8}), (std::vector<int>{30, 1, 5, 6, 7, 8, 63, 0}));
}

TEST(SuperEnalotto, DalleRuoteRomaTuttaPresa) {
    auto righe = kDistinti;
    righe[7] = "1 3 5 6 7";
    const Combinazione c = calc_combinazione_superenalotto_s(da_testo(dieci_ruote(righe)).lotto(), 0);
    // Palermo's number is lost with Roma's, so that two zeros come first.
    EXPECT_EQ((std::vector<int>{c.begin() + 1, c.begin() + 7}), (std::vector<int>{0, 0, 1, 3, 5, 6}));
}

TEST(SuperEnalotto, DalleRuoteVeneziaTuttaPresa) {
    auto righe = kDistinti;
    righe[9] = "1 3 5 6 7";
    const Combinazione c = calc_combinazione_superenalotto_s(da_testo(dieci_ruote(righe)).lotto(), 0);
    EXPECT_EQ((std::vector<int>{c.begin(), c.begin() + 7}), (std::vector<int>{0, 1, 3, 5, 6, 7, 0}));
}

TEST(SuperEnalotto, DalleRuoteUnaCellaVuotaSvuotaTutto) {
    auto righe = kDistinti;
    righe[5] = "- 16 26 36 46";
    EXPECT_EQ(calc_combinazione_superenalotto_s(da_testo(dieci_ruote(righe)).lotto(), 0), Combinazione{});
}

TEST(SuperEnalotto, LeRuoteVereDannoLaSestinaVeraFinoAGiugno2009) {
    const ArchivioEstrazioni* vero = prove::archivio_vero();
    if (vero == nullptr) GTEST_SKIP() << "no real draws beside the project";
    const Data luglio_2009 = leggi_data_iso("2009-07-01").value();
    int confrontate = 0;
    const auto& t = vero->superenalotto();
    for (std::size_t i = 0; i < t.concorso.size(); ++i) {
        if (t.data[i] >= luglio_2009) continue;
        const auto record = cerca_concorso(vero->lotto().concorso, t.concorso[i]);
        ASSERT_TRUE(record);
        const Combinazione sua = calc_combinazione_superenalotto(t, i);
        const Combinazione ruote = calc_combinazione_superenalotto_s(vero->lotto(), *record);
        EXPECT_TRUE(std::equal(sua.begin(), sua.begin() + 7, ruote.begin())) << "concorso " << t.concorso[i];
        ++confrontate;
    }
    EXPECT_GT(confrontate, 1000);
}

TEST(WinForLife, LaPrimaRigaDelConcorso) {
    const auto archivio =
        da_testi("", "", "3 8:00 10 9 8 7 6 5 4 3 2 1\n3 9:00 11 12 13 14 15 16 17 18 19 20\n");
    const Combinazione c = calc_combinazione_WinForLife(archivio.winforlife(), 3);
    EXPECT_EQ((std::vector<int>{c.begin(), c.begin() + 12}),
              (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0}));
    EXPECT_EQ(calc_combinazione_WinForLife(archivio.winforlife(), 4), Combinazione{});
}

}  // namespace
}  // namespace sortimetra
