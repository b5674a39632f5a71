#include "draws/esame.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <set>

namespace sortimetra {
namespace {

using prove::archivio_casuale;
using prove::da_testi;
using prove::da_testo;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> frasi(const std::vector<Rilievo>& rilievi) {
    std::vector<std::string> f;
    for (const Rilievo& r : rilievi) f.push_back(r.frase());
    return f;
}
std::vector<std::string> danni(const ArchivioEstrazioni& a) {
    return frasi(esamina(a).danni);
}
std::vector<std::string> avvisi(const ArchivioEstrazioni& a) {
    return frasi(esamina(a).avvisi);
}

Data giorno(std::string_view testo) {
    return leggi_data_iso(testo).value();
}

TEST(Esame, UnArchivioSanoNonHaNulla) {
    const auto a = da_testi(
        "1 BA 1 2 3 4 5\n1 CA 1 2 3 4 5\n2 BA 6 7 8 9 90\n2 CA 11 12 13 14 15\n2 NZ 1 2 3 4 5\n",
        "2 1 2 3 4 5 6 7 6\n", "1 8:00 1 2 3 4 5 6 7 8 9 10\n2 08:00 11 12 13 14 15 16 17 18 19 20\n");
    EXPECT_THAT(danni(a), IsEmpty());
    EXPECT_THAT(avvisi(a), IsEmpty());
    EXPECT_FALSE(primo_danno(a));
    EXPECT_FALSE(primo_danno(ArchivioEstrazioni{}));
}

TEST(Esame, UnNumeroDueVolte) {
    EXPECT_THAT(
        danni(da_testo("1 BA 45 2 3 4 5\n2 BA 1 2 3 4 5\n2 FI 7 45 8 45 9\n")),
        ElementsAre(
            "tabella archivio, concorso 2, ruota FI: il numero 45 sta due volte nella riga, in 2°estratto "
            "e in 4°estratto"));
    EXPECT_THAT(
        danni(da_testo("1 BA 1 2 3 4 5\n1 NZ 1 2 3 4 1\n")),
        ElementsAre("tabella archivion, concorso 1: il numero 1 sta due volte nella riga, in 1°estratto e in "
                    "5°estratto"));
    EXPECT_THAT(
        danni(da_testi("", "1 1 2 3 4 5 6 6 7\n", "")),
        ElementsAre(
            "tabella archivios, concorso 1: il numero 6 sta due volte nella riga, in 6°estratto e in Jolly"));
    EXPECT_THAT(danni(da_testi("", "1 1 2 3 4 5 6 7 6\n", "")), IsEmpty())
        << "the SuperStar has an urn of its own";
    EXPECT_THAT(
        danni(da_testi("", "", "1 8:00 1 2 3 4 5 6 7 8 9 3\n")),
        ElementsAre("tabella archivio, concorso 1: il numero 3 sta due volte nella riga, in 3° e in 10°"));
}

TEST(Esame, CelleVuoteSonoUnAvviso) {
    const auto a =
        da_testi("1 BA 1 - 3 - 5\n1 CA - - - - -\n",
                 "1 1 2 3 4 5 - 7 -\n2 1 2 3 4 5 6 - 9\n3 1 2 3 4 5 6 7 -\n", "1 8:00 1 2 3 4 5 6 7 8 9 -\n");
    EXPECT_THAT(avvisi(a), testing::IsSupersetOf({
                               "tabella archivio, concorso 1, ruota BA: senza numero: 2°estratto, 4°estratto",
                               "tabella archivios, concorso 1: senza numero: 6°estratto",
                               "tabella archivios, concorso 2: senza numero: Jolly",
                               "tabella archivios, concorso 3: senza numero: superstar",
                               "tabella archivio, concorso 1: senza numero: 10°",
                           }))
        << "the SuperStar is missed only once there has been one";
    EXPECT_EQ(esamina(a).quanti_avvisi, 6U);
}

TEST(Esame, RuoteMancantiDallaLoroPrimaRigaInPoi) {
    const auto a = da_testo(
        "1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n2 CA 1 2 3 4 5\n3 FI 1 2 3 4 5\n4 BA 1 2 3 4 5\n4 CA 1 2 3 4 5\n4 "
        "FI 1 2 3 4 5\n");
    EXPECT_THAT(danni(a), IsEmpty());
    EXPECT_THAT(avvisi(a), ElementsAre("tabella archivio, concorso 3: mancano le righe di BA, CA"));
}

TEST(Esame, IConcorsiContanoDaUnoSenzaSalti) {
    EXPECT_THAT(danni(da_testo("1 BA 1 2 3 4 5\n3 BA 1 2 3 4 5\n7 BA 1 2 3 4 5\n")),
                ElementsAre("tabella archivio, concorso 2: il concorso manca",
                            "tabella archivio, concorsi 4-6: i concorsi mancano"));
    EXPECT_THAT(danni(da_testo("3 BA 1 2 3 4 5\n")),
                ElementsAre("tabella archivio, concorsi 1-2: i concorsi mancano"));
    EXPECT_THAT(danni(da_testi("", "", "2 8:00 1 2 3 4 5 6 7 8 9 10\n")),
                ElementsAre("tabella archivio, concorso 1: il concorso manca"));
}

TEST(Esame, NazionaleESuperEnalottoPossonoMancare) {
    const auto a = da_testi(
        "1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n3 BA 1 2 3 4 5\n4 BA 1 2 3 4 5\n5 BA 1 2 3 4 5\n2 NZ 1 2 3 4 5\n4 "
        "NZ 1 2 3 4 5\n",
        "3 1 2 3 4 5 6 7 8\n", "");
    EXPECT_THAT(danni(a), IsEmpty());
    EXPECT_THAT(avvisi(a), ElementsAre("tabella archivion, concorso 3: il concorso manca",
                                       "tabella archivion, concorso 5: il concorso manca",
                                       "tabella archivios, concorsi 4-5: i concorsi mancano"));
}

TEST(Esame, NonCEUnConcorsoCheIlLottoNonHa) {
    EXPECT_THAT(danni(da_testi("1 BA 1 2 3 4 5\n2 NZ 1 2 3 4 5\n", "2 1 2 3 4 5 6 7 8\n", "")),
                ElementsAre("tabella archivion, concorso 2: il concorso non c'è nelle estrazioni del Lotto",
                            "tabella archivios, concorso 2: il concorso non c'è nelle estrazioni del Lotto"));
    EXPECT_THAT(danni(da_testi("9 NZ 1 2 3 4 5\n", "2 1 2 3 4 5 6 7 8\n", "")), IsEmpty())
        << "the Lotto was not read";
}

TEST(Esame, LeDateSalgono) {
    EXPECT_THAT(
        danni(da_testo("2000-01-05 1 BA 1 2 3 4 5\n2000-01-01 2 BA 1 2 3 4 5\n2000-01-08 3 BA 1 2 3 4 5\n"
                       "2000-01-08 4 BA 1 2 3 4 5\n")),
        ElementsAre("tabella archivio, concorso 2: la data 01/01/2000 non viene dopo quella "
                    "dell'estrazione prima, 05/01/2000",
                    "tabella archivio, concorso 4: la data 08/01/2000 non viene dopo quella "
                    "dell'estrazione prima, 08/01/2000"));
    EXPECT_THAT(danni(da_testo("1899-12-30 8 NZ 1 2 3 4 5\n1899-12-30 9 NZ 1 2 3 4 5\n")),
                testing::SizeIs(1));
}

TEST(Esame, NazionaleHaLaDataDelLotto) {
    EXPECT_THAT(
        danni(da_testo("2000-01-05 1 BA 1 2 3 4 5\n2000-01-06 1 NZ 1 2 3 4 5\n")),
        ElementsAre("tabella archivion, concorso 1: la data è 06/01/2000, quella del Lotto 05/01/2000"));
}

TEST(Esame, IlSuperEnalottoPuoStareAPochiGiorniDalLotto) {
    // A draw of its own day takes a free concorso near it: its date may then lie behind that of the next one.
    const std::string lotto =
        "2000-01-05 1 BA 1 2 3 4 5\n2000-01-08 2 BA 1 2 3 4 5\n2000-01-12 3 BA 1 2 3 4 5\n";
    EXPECT_THAT(danni(da_testi(lotto, "2000-01-10 1 1 2 3 4 5 6 7 8\n2000-01-08 2 1 2 3 4 5 6 7 8\n", "")),
                IsEmpty());
    EXPECT_THAT(
        danni(da_testi(lotto, "2000-01-11 1 1 2 3 4 5 6 7 8\n", "")),
        ElementsAre("tabella archivios, concorso 1: la data è 11/01/2000, quella del Lotto 05/01/2000"));
    EXPECT_THAT(danni(da_testi("", "2000-01-20 1 1 2 3 4 5 6 7 8\n2000-01-09 2 1 2 3 4 5 6 7 8\n", "")),
                testing::SizeIs(1))
        << "without the Lotto the dates are held to each other";
}

TEST(Esame, LOra) {
    EXPECT_THAT(
        danni(da_testi("", "", "1 25:00 1 2 3 4 5 6 7 8 9 10\n2 otto 1 2 3 4 5 6 7 8 9 10\n")),
        ElementsAre("tabella archivio, concorso 1: trovata l'ora \"25:00\", attesa un'ora come \"8:00\"",
                    "tabella archivio, concorso 2: trovata l'ora \"otto\", attesa un'ora come \"8:00\""));
    EXPECT_THAT(danni(da_testi("", "", "1 8:00:00 1 2 3 4 5 6 7 8 9 10\n2 08:30 1 2 3 4 5 6 7 8 9 10\n")),
                IsEmpty());
    EXPECT_THAT(
        danni(da_testi("", "",
                       "2000-01-01 1 8:00 1 2 3 4 5 6 7 8 9 10\n2000-01-01 2 08:00 1 2 3 4 5 6 7 8 9 10\n")),
        ElementsAre("tabella archivio, concorso 2: l'ora 08:00 non viene dopo quella dell'estrazione "
                    "prima, 8:00"));
}

TEST(Esame, DueRigheDiWinForLifeConUnConcorso) {
    const auto con = [](std::string_view seconda) {
        return da_testi(
            "", "",
            "2000-01-01 1 8:00 1 2 3 4 5 6 7 8 9 10\n" + std::string{seconda} + " 1 2 3 4 5 6 7 8 9 10\n");
    };
    EXPECT_THAT(danni(con("2000-01-01 1 9:00")), IsEmpty());
    EXPECT_THAT(avvisi(con("2000-01-01 1 9:00")),
                ElementsAre("tabella archivio, concorso 1: vi sta due volte, alle 8:00 e alle 9:00"));
    EXPECT_THAT(danni(con("2000-01-01 1 08:00")),
                ElementsAre("tabella archivio, concorso 1: vi sta due volte"));
    EXPECT_THAT(danni(con("2000-01-02 1 9:00")),
                ElementsAre("tabella archivio, concorso 1: ha due date, 01/01/2000 e 02/01/2000"));
}

TEST(Esame, OltreOggi) {
    const auto a =
        da_testo("2000-01-05 1 BA 1 2 3 4 5\n2000-01-08 2 BA 1 2 3 4 5\n2000-01-12 3 BA 1 2 3 4 5\n");
    EXPECT_THAT(avvisi(a), IsEmpty());
    EXPECT_THAT(frasi(esamina(a, giorno("2000-01-12")).avvisi), IsEmpty());
    const auto oltre = frasi(esamina(a, giorno("2000-01-07")).avvisi);
    EXPECT_THAT(oltre, ElementsAre("tabella archivio, concorsi 2-3: la data 12/01/2000 viene dopo oggi, "
                                   "07/01/2000: o è sbagliata, o l'orologio del computer è indietro"));
    EXPECT_EQ(frasi(oltre_oggi(a, giorno("2000-01-07"))), oltre);
    EXPECT_THAT(esamina(a, giorno("2000-01-07")).danni, IsEmpty()) << "the clock may be wrong";
}

TEST(Esame, UnArchivioSimulatoNonHaOggi) {
    RigheArchivio righe;
    righe.lotto.push_back(
        {.concorso = 1, .data = giorno("2099-01-01"), .ruota = 0, .numeri = {1, 2, 3, 4, 5}});
    const auto vero = ArchivioEstrazioni::componi(righe, {}, {}).value();
    const auto simulato = ArchivioEstrazioni::componi(righe, {.file = {}, .simulato = true}, {}).value();
    EXPECT_EQ(oltre_oggi(vero, giorno("2026-01-01")).size(), 1U);
    EXPECT_THAT(oltre_oggi(simulato, giorno("2026-01-01")), IsEmpty());
}

TEST(Esame, IlPrimoDannoDiceIlFile) {
    RigheArchivio righe;
    righe.winforlife.push_back(
        {.concorso = 1, .data = giorno("2020-01-01"), .ora = "?", .numeri = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}});
    const auto a = ArchivioEstrazioni::componi(righe, {.file = "drawit.db"}, {.file = "drawit2.db"}).value();
    const auto danno = primo_danno(a);
    ASSERT_TRUE(danno);
    EXPECT_EQ(danno->testo(),
              "drawit2.db: tabella archivio, concorso 1: trovata l'ora \"?\", attesa un'ora come \"8:00\"");
}

TEST(Esame, DiMoltiSiTengonoIPrimi) {
    RigheArchivio righe;
    for (int c = 1; c <= 1500; ++c)
        righe.lotto.push_back({.concorso = c,
                               .data = giorno("2000-01-01") + std::chrono::days{c},
                               .ruota = 0,
                               .numeri = {1, 1, 0, 2, 3}});
    const Esame e = esamina(ArchivioEstrazioni::componi(righe).value());
    EXPECT_EQ(e.quanti_danni, 1500U);
    EXPECT_EQ(e.quanti_avvisi, 1500U);
    EXPECT_EQ(e.danni.size(), kRilieviElencati);
    EXPECT_EQ(e.avvisi.size(), kRilieviElencati);
}

/// The rules once more, row by row and without any haste: how many damages and warnings the Lotto has.
std::pair<std::size_t, std::size_t> lento(const TabellaLotto& t) {
    std::size_t danni = 0;
    std::size_t avvisi = 0;
    std::set<int> viste;
    for (std::size_t i = 0; i < t.concorso.size(); ++i) {
        if (t.concorso[i] != (i == 0 ? 1 : t.concorso[i - 1] + 1)) ++danni;
        if (i > 0 && !(t.data[i - 1] < t.data[i])) ++danni;
        bool manca = false;
        for (int w = 0; w < kRuote; ++w) {
            if ((t.presenti[i] >> static_cast<unsigned>(w) & 1U) == 0) {
                manca = manca || viste.contains(w);
                continue;
            }
            std::multiset<int> numeri;
            for (int p = 0; p < kEstratti; ++p)
                numeri.insert(t.numeri[i][static_cast<std::size_t>(w * kEstratti + p)]);
            if (numeri.contains(0)) ++avvisi;
            bool due = false;
            for (const int n : numeri) due = due || (n != 0 && numeri.count(n) > 1);
            if (due) ++danni;
        }
        if (manca) ++avvisi;
        for (int w = 0; w < kRuote; ++w)
            if ((t.presenti[i] >> static_cast<unsigned>(w) & 1U) != 0) viste.insert(w);
    }
    return {danni, avvisi};
}

TEST(Esame, ComeLEsameLento) {
    for (std::uint32_t seme = 1; seme <= 300; ++seme) {
        SCOPED_TRACE(seme);
        // The random archive as it is, then with some numbers changed: most of them end up twice in a row.
        std::mt19937 caso{seme};
        const auto fra = [&](std::size_t n) {
            return std::uniform_int_distribution<std::size_t>{0, n - 1}(caso);
        };
        RigheArchivio righe;
        const auto a = archivio_casuale(seme);
        const TabellaLotto& t = a.lotto();
        for (std::size_t i = 0; i < t.concorso.size(); ++i)
            for (int w = 0; w < kRuote; ++w) {
                if ((t.presenti[i] >> static_cast<unsigned>(w) & 1U) == 0) continue;
                RigaLotto r{.concorso = t.concorso[i], .data = t.data[i], .ruota = w};
                std::copy_n(t.numeri[i].begin() + w * kEstratti, kEstratti, r.numeri.begin());
                if (seme % 2 == 0 && fra(40) == 0) r.numeri[fra(5)] = r.numeri[fra(5)];
                righe.lotto.push_back(r);
            }
        const auto b = ArchivioEstrazioni::componi(std::move(righe)).value();
        const auto [danni, avvisi] = lento(b.lotto());
        const Esame e = esamina(b);
        EXPECT_EQ(e.quanti_danni, danni);
        EXPECT_EQ(e.quanti_avvisi, avvisi);
        EXPECT_EQ(primo_danno(b).has_value(), danni != 0);
    }
}

TEST(Esame, IlVeroHaSoloCioCheGliManca) {
    const auto* vero = prove::archivio_vero();
    if (vero == nullptr) GTEST_SKIP() << "no real draws here";
    EXPECT_THAT(danni(*vero), IsEmpty());
    for (const Rilievo& r : esamina(*vero).avvisi) {
        EXPECT_EQ(r.tabella, TabellaArchivio::SuperEnalotto) << r.frase();
        EXPECT_THAT(r.testo, testing::MatchesRegex("il concorso manca|i concorsi mancano")) << r.frase();
    }
}

}  // namespace
}  // namespace sortimetra
