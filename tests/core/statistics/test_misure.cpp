#include "statistics/misure.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

/// "frequency delay storico" after hits at these draws, of T in all.
std::string misura(const std::vector<std::int32_t>& uscite, std::int32_t t, std::int32_t inizio) {
    Misura m{.ultimo = inizio};
    for (const std::int32_t c : uscite) esce(m, c);
    return std::to_string(m.frequenza) + " " + std::to_string(ritardo(m, Estrazioni{t})) + " " +
           std::to_string(m.storico);
}

TEST(Misura, LAttesaSiContaQuandoSiChiude) {
    // Out at draws 3 and 8 of 10: between them four draws without, after them two, and those are still open.
    EXPECT_EQ(misura({3, 8}, 10, inizio_ambata(Estrazioni{10})), "2 2 4");
    EXPECT_EQ(misura({3, 8}, 10, kInizioSerie), "2 2 4");
}

TEST(Misura, LAttesaPrimaDellaPrimaSortita) {
    EXPECT_EQ(misura({8}, 10, inizio_ambata(Estrazioni{10})), "1 2 0") << "outside for numbers";
    EXPECT_EQ(misura({8}, 10, kInizioSerie), "1 2 6") << "inside for the series, less one";
    EXPECT_EQ(misura({1}, 1, kInizioSerie), "1 0 0");
}

TEST(Misura, MaiSortitaOSortitaSempre) {
    EXPECT_EQ(misura({}, 10, inizio_ambata(Estrazioni{10})), "0 10 0");
    EXPECT_EQ(misura({}, 0, inizio_ambata(Estrazioni{0})), "0 0 0");
    EXPECT_EQ(misura({1, 2, 3}, 3, inizio_ambata(Estrazioni{3})), "3 0 0");
}

TEST(MisuraBreve, ConteComeInQuelleLarghe) {
    for (std::uint32_t seme = 1; seme <= 200; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        const auto passo = 1 + caso() % (seme % 2 == 0 ? 3000U : 4U);
        const auto inizio = static_cast<std::int32_t>(caso() % 0x10000);
        Misura larga{.ultimo = inizio};
        MisuraBreve breve{inizio};
        for (std::uint32_t c = 1 + caso() % passo; c <= 0xFFFF; c += caso() % (passo + 1)) {
            esce(larga, static_cast<std::int32_t>(c));
            esce(breve, static_cast<std::int32_t>(c));
            ASSERT_EQ(static_cast<Misura>(breve), larga);
        }
    }
}

TEST(MisuraBreve, BastaFinoA65535Estrazioni) {
    EXPECT_TRUE(MisuraBreve::basta(65535, 65535));
    EXPECT_TRUE(MisuraBreve::basta(0, 0));
    EXPECT_FALSE(MisuraBreve::basta(65536, 1));
    EXPECT_FALSE(MisuraBreve::basta(10, 65536));
    EXPECT_FALSE(MisuraBreve::basta(10, -1)) << "T is 0 where no wheel is chosen";
}

TEST(Misura, DueSortiteNelloStessoConcorso) {
    EXPECT_EQ(misura({2, 2, 5, 5}, 6, inizio_ambata(Estrazioni{6})), "4 1 2");
}

TEST(Misura, ConPiuConcorsiDiTIlRitardoScendeSottoZero) {
    EXPECT_EQ(misura({7}, 5, inizio_ambata(Estrazioni{5})), "1 -2 2");
}

TEST(Misura, ComeGuardandoOgniConcorso) {
    for (unsigned seme = 0; seme < 300; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 dado{seme};
        const auto t = static_cast<std::int32_t>(dado() % 40);
        std::vector<std::int32_t> uscite;
        std::string schermo;  // one sign a draw
        for (std::int32_t c = 1; c <= t; ++c) {
            schermo += dado() % 4 == 0 ? 'X' : '.';
            if (schermo.back() == 'X') uscite.push_back(c);
        }
        const auto primo = schermo.find('X');
        const auto ultimo = schermo.rfind('X');
        std::size_t storico = 0;
        std::size_t vuoti = 0;
        for (std::size_t i = primo; primo != std::string::npos && i <= ultimo; ++i) {
            vuoti = schermo[i] == 'X' ? 0 : vuoti + 1;
            storico = std::max(storico, vuoti);
        }
        const std::size_t coda = primo == std::string::npos ? schermo.size() : schermo.size() - 1 - ultimo;
        EXPECT_EQ(misura(uscite, t, inizio_ambata(Estrazioni{t})),
                  std::to_string(uscite.size()) + " " + std::to_string(coda) + " " + std::to_string(storico));
    }
}

TEST(TabellaNumeri, UnaRigaPerNumero) {
    MisureNumeri misure{};
    esce(misure[2], 3);
    esce(misure[0], 1);  // an empty cell is no number
    const Risultato r = tabella_numeri(misure, 3, Estrazioni{5}, Gioco::lotto);
    ASSERT_EQ(r.tabelle.size(), 1U);
    const Tabella& t = r.tabelle[0];
    ASSERT_EQ(t.righe(), 3U);
    EXPECT_EQ(t.titoli, (std::vector<std::vector<std::string>>{kTitoliMisure}));
    const auto riga = [&](std::size_t i) {
        return t.testo(i, 0) + " " + t.testo(i, 1) + " " + t.testo(i, 2) + " " + t.testo(i, 3);
    };
    EXPECT_EQ(riga(0), "1 0 5 0");
    EXPECT_EQ(riga(1), "2 1 2 2");
    EXPECT_EQ(riga(2), "3 0 5 0");
}

TEST(TabellaMisure, ColonnaETitoliDati) {
    const std::vector<Misura> misure{{.ultimo = 4, .frequenza = 2, .storico = 1}};
    const Risultato r = tabella_misure(ColonnaGruppi{.quanti = 2, .separatore = '-', .numeri = {1, 90}},
                                       misure, Estrazioni{6}, {}, kTitoliMisureBrevi);
    EXPECT_EQ(r.tabelle[0].titoli[0], kTitoliMisureBrevi);
    EXPECT_EQ(r.tabelle[0].testo(0, 0), "01-90");
    EXPECT_EQ(r.tabelle[0].testo(0, 2), "2");
}

TEST(ScrittoreMisure, RigheUnaPerVoltaEInsieme) {
    ScrittoreMisure scrittore{3};
    scrittore.riga(9, 8, 7);
    const std::vector<Misura> due{{.ultimo = 1, .frequenza = 1, .storico = 0}, {}};
    scrittore.righe(due, Estrazioni{5});
    const Risultato r = std::move(scrittore).risultato(ColonnaInteri{{1, 2, 3}});
    const auto& t = r.tabelle[0];
    EXPECT_EQ(t.testo(0, 2), "8");
    EXPECT_EQ(t.testo(1, 2), "4");
    EXPECT_EQ(t.testo(2, 2), "5");
}

}  // namespace
}  // namespace sortimetra
