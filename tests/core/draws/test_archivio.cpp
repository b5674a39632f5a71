#include "draws/archivio.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <type_traits>

namespace sortimetra {
namespace {

using testing::ElementsAre;

const Data kGiorno = leggi_data_iso("2000-01-01").value();

RigaLotto riga(Concorso concorso, int ruota, std::array<Numero, 5> numeri = {1, 2, 3, 4, 5}) {
    return {concorso, kGiorno + std::chrono::days{concorso}, ruota, numeri};
}

/// Why an archive with these rows in one table is refused.
template <class Riga>
std::string errore(std::vector<Riga> RigheArchivio::* tabella,
                   std::type_identity_t<std::vector<Riga>> righe) {
    RigheArchivio tutte;
    tutte.*tabella = std::move(righe);
    const auto a = ArchivioEstrazioni::componi(std::move(tutte), {"drawit.db"}, {"drawit2.db"});
    return a ? "composto" : a.error().testo();
}

TEST(Componi, InQualunqueOrdineArrivino) {
    RigheArchivio righe;
    righe.lotto = {riga(2, 9), riga(1, 3, {9, 8, 7, 6, 5}), riga(2, 0), riga(1, 1)};
    const auto a = ArchivioEstrazioni::componi(righe);
    ASSERT_TRUE(a);
    EXPECT_THAT(a->lotto().concorso, ElementsAre(1, 2));
    EXPECT_THAT(a->lotto().presenti, ElementsAre(0b1010, 0b1000000001));
    EXPECT_EQ(a->lotto().righe, 4U);
    EXPECT_EQ(a->lotto().numeri[0][15], 9);
    EXPECT_EQ(a->lotto().numeri[0][0], 0);
    EXPECT_EQ(a->data_bari(2), kGiorno + std::chrono::days{2});
    EXPECT_FALSE(a->data_bari(1));
    EXPECT_FALSE(a->data_bari(3));
}

TEST(Componi, UnConcorsoHaUnaData) {
    std::vector<RigaLotto> righe{riga(1, 0), riga(1, 2)};
    righe[1].data += std::chrono::days{1};
    EXPECT_EQ(errore(&RigheArchivio::lotto, righe),
              "drawit.db: tabella archivio, concorso 1, ruota FI: trovata la data " +
                  testo_data(righe[1].data) + ", attesa " + testo_data(righe[0].data) +
                  " come sulle altre ruote");
}

TEST(Componi, RigheCheNonPossonoEssere) {
    EXPECT_EQ(errore(&RigheArchivio::lotto, {riga(1, 0), riga(1, 0)}),
              "drawit.db: tabella archivio, concorso 1: la ruota BA vi sta due volte");
    EXPECT_EQ(errore(&RigheArchivio::lotto, {riga(0, 0)}),
              "drawit.db: tabella archivio: trovato il concorso 0, atteso un numero da 1 in su");
    EXPECT_EQ(errore(&RigheArchivio::lotto, {riga(1, 0, {1, 2, 91, 4, 5})}),
              "drawit.db: tabella archivio, concorso 1: trovato il numero 91, atteso da 1 a 90");
    EXPECT_EQ(errore(&RigheArchivio::lotto, {riga(1, kNazionale)}),
              "drawit.db: tabella archivio, concorso 1: ruota sconosciuta");
    EXPECT_EQ(errore(&RigheArchivio::nazionale, {riga(4, kNazionale), riga(4, kNazionale)}),
              "drawit.db: tabella archivion: il concorso 4 vi sta due volte");
    EXPECT_EQ(errore(&RigheArchivio::superenalotto, {{.concorso = 2, .data = kGiorno, .jolly = 91}}),
              "drawit.db: tabella archivios, concorso 2: trovato il numero 91, atteso da 1 a 90");
    EXPECT_EQ(
        errore(&RigheArchivio::winforlife, {{.concorso = 1, .data = kGiorno, .ora = "8:00", .numeri = {21}}}),
        "drawit2.db: tabella archivio, concorso 1: trovato il numero 21, atteso da 1 a 20");
    EXPECT_EQ(errore(&RigheArchivio::lotto, {}), "composto");
}

TEST(CercaConcorso, ComeUnaRicercaPiana) {
    for (unsigned seme = 0; seme < 200; ++seme) {
        std::mt19937 caso{seme};
        const auto fra = [&](int da, int a) { return std::uniform_int_distribution{da, a}(caso); };
        std::vector<Concorso> colonna;
        Concorso c = fra(1, 3);
        for (int n = fra(0, 40); n > 0; --n, c += fra(0, 9) < 8 ? 1 : fra(0, 3)) colonna.push_back(c);
        for (Concorso cercato = -2; cercato < 60; ++cercato) {
            const auto it = std::find(colonna.begin(), colonna.end(), cercato);
            const auto trovato = cerca_concorso(colonna, cercato);
            ASSERT_EQ(trovato.has_value(), it != colonna.end()) << seme << " " << cercato;
            if (trovato) {
                ASSERT_EQ(*trovato, static_cast<std::size_t>(it - colonna.begin()));
            }
        }
    }
}

TEST(Archivio, PrimaDelLuglio2009IlSuperEnalottoVieneDalleRuote) {
    const auto* vero = prove::archivio_vero();
    if (vero == nullptr) GTEST_SKIP() << "no real draws here";
    // The importer's numbering is right if every sestina is that of the wheels of its concorso: the first
    // number of Bari, then of Firenze, Milano, Napoli, Palermo and Roma the first that is not there yet, and
    // of Venezia the Jolly.
    const TabellaSuperEnalotto& s = vero->superenalotto();
    int provati = 0;
    for (std::size_t i = 0; i < s.concorso.size() && s.data[i] < leggi_data_iso("2009-07-01").value(); ++i) {
        const auto k = cerca_concorso(vero->lotto().concorso, s.concorso[i]);
        ASSERT_TRUE(k);
        std::vector<Numero> presi;
        for (const std::size_t w : {0U, 2U, 4U, 5U, 6U, 7U, 9U})
            for (std::size_t p = 0; p < 5; ++p) {
                const Numero n = vero->lotto().numeri[*k][w * 5 + p];
                if (std::find(presi.begin(), presi.end(), n) != presi.end()) continue;
                presi.push_back(n);
                break;
            }
        ASSERT_EQ(presi.size(), 7U) << s.concorso[i];
        EXPECT_EQ(presi[6], s.numeri[i][6]) << s.concorso[i];
        std::sort(presi.begin(), presi.begin() + 6);
        EXPECT_TRUE(std::equal(presi.begin(), presi.begin() + 6, s.numeri[i].begin())) << s.concorso[i];
        ++provati;
    }
    EXPECT_GT(provati, 1300);
}

}  // namespace
}  // namespace sortimetra
