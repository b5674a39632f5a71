#include "stores/arrivi.h"
#include "support/archivi.h"

#include <archive.h>
#include <archive_entry.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <random>
#include <utility>
#include <vector>

namespace sortimetra {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view kLotto = "2001/06/16\tBA\t1\t2\t3\t4\t5\n";
constexpr std::string_view kSuper = "2001-06-16;1;2;3;4;5;6;7;0\n";

std::string gzip(std::string_view byte) {
    z_stream z{};
    EXPECT_EQ(deflateInit2(&z, Z_BEST_SPEED, Z_DEFLATED, MAX_WBITS + 16, 8, Z_DEFAULT_STRATEGY), Z_OK);
    std::string fuori(deflateBound(&z, byte.size()), '\0');
    z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(byte.data()));
    z.avail_in = static_cast<uInt>(byte.size());
    z.next_out = reinterpret_cast<Bytef*>(fuori.data());
    z.avail_out = static_cast<uInt>(fuori.size());
    EXPECT_EQ(deflate(&z, Z_FINISH), Z_STREAM_END);
    fuori.resize(z.total_out);
    deflateEnd(&z);
    return fuori;
}

std::string zip(const std::vector<std::pair<std::string, std::string>>& file) {
    std::string fuori((std::size_t{1} << 20U) + 1000 * file.size(), '\0');
    std::size_t usati = 0;
    archive* a = archive_write_new();
    archive_write_set_format_zip(a);
    archive_write_set_bytes_in_last_block(a, 1);
    EXPECT_EQ(archive_write_open_memory(a, fuori.data(), fuori.size(), &usati), ARCHIVE_OK);
    for (const auto& [nome, byte] : file) {
        archive_entry* voce = archive_entry_new();
        archive_entry_set_pathname(voce, nome.c_str());
        archive_entry_set_filetype(voce, nome.ends_with('/') ? AE_IFDIR : AE_IFREG);
        archive_entry_set_perm(voce, 0644);
        archive_entry_set_size(voce, static_cast<la_int64_t>(byte.size()));
        EXPECT_EQ(archive_write_header(a, voce), ARCHIVE_OK);
        EXPECT_EQ(archive_write_data(a, byte.data(), byte.size()), static_cast<la_ssize_t>(byte.size()));
        archive_entry_free(voce);
    }
    EXPECT_EQ(archive_write_close(a), ARCHIVE_OK);
    archive_write_free(a);
    fuori.resize(usati);
    return fuori;
}

std::expected<Arrivate, ErroreArchivio> leggi(std::string byte) {
    SenzaAvanzamento nessuno;
    const std::vector<Arrivo> uno{{"pacco", std::move(byte)}};
    return leggi_arrivi(uno, nessuno);
}
std::string errore(std::string byte) {
    const auto a = leggi(std::move(byte));
    return a ? "nessun errore" : a.error().testo();
}

TEST(Spacchetta, Gzip) {
    const auto a = leggi(gzip(kLotto));
    ASSERT_TRUE(a) << a.error().testo();
    EXPECT_EQ(a->testi[0].nome, "pacco");
    EXPECT_EQ(a->righe.lotto.size(), 1U);
    // Two members follow each other, as `cat` makes them.
    const auto due = leggi(gzip(kLotto) + gzip("2001/06/16\tCA\t1\t2\t3\t4\t5\n"));
    ASSERT_TRUE(due) << due.error().testo();
    EXPECT_EQ(due->righe.lotto.size(), 2U);
}

TEST(Spacchetta, Zip) {
    const auto a = leggi(zip({{"dati/", ""},
                              {"dati/lotto.txt", std::string{kLotto}},
                              {"super.csv", std::string{kSuper}},
                              {"LEGGIMI", "Buona fortuna\n"}}));
    ASSERT_TRUE(a) << a.error().testo();
    EXPECT_EQ(a->righe.lotto.size(), 1U);
    EXPECT_EQ(a->righe.superenalotto.size(), 1U);
    ASSERT_EQ(a->testi.size(), 2U);
    EXPECT_EQ(a->testi[0].nome, "pacco: dati/lotto.txt");
    EXPECT_THAT(a->avvisi, ElementsAre("pacco: LEGGIMI: non è un testo di estrazioni, tralasciato"));
}

TEST(Spacchetta, UnZipSenzaEstrazioni) {
    EXPECT_EQ(errore(zip({{"LEGGIMI", "Buona fortuna\n"}})), "pacco: non contiene alcun testo di estrazioni");
    EXPECT_EQ(errore(zip({})), "pacco: non contiene alcun testo di estrazioni");
    // One layer only.
    EXPECT_EQ(errore(zip({{"lotto.gz", gzip(kLotto)}})), "pacco: non contiene alcun testo di estrazioni");
    EXPECT_THAT(errore(gzip(gzip(kLotto))), HasSubstr("pacco: non è un testo di estrazioni"));
    EXPECT_EQ(errore(zip({{"lotto.txt", "2001/06/16\tXX\t1\t2\t3\t4\t5\n"}})),
              "pacco: lotto.txt: riga 1: trovato \"XX\", atteso uno fra BA CA FI GE MI NA PA RM TO VE RN NZ");
}

TEST(Spacchetta, LeBombeSiFermano) {
    const std::string zeri(kArrivoMassimo / 2 + 1, '0');
    EXPECT_EQ(errore(gzip(zeri + zeri)), "pacco: espanso è troppo grande: al massimo 50 MB");
    EXPECT_EQ(errore(zip({{"a", zeri}, {"b", zeri}})), "pacco: espanso è troppo grande: al massimo 50 MB")
        << "all of them together";
    std::vector<std::pair<std::string, std::string>> molti;
    for (int i = 0; i <= 1000; ++i) molti.emplace_back(std::to_string(i), "");
    EXPECT_EQ(errore(zip(molti)), "pacco: contiene più di 1000 file");
}

TEST(Spacchetta, RotteOTroncate) {
    const std::string danno = "pacco: il file compresso è danneggiato o troncato";
    std::string testo;
    for (int g = 1; g <= 28; ++g)
        for (const char* ruota : {"BA", "CA", "FI"})
            testo += "2001/06/" + std::string(g < 10 ? "0" : "") + std::to_string(g) + "\t" + ruota +
                     "\t1\t2\t3\t4\t" + std::to_string(g) + "\n";
    const std::string g = gzip(testo);
    const std::string z = zip({{"lotto.txt", testo}});
    for (std::size_t n = 2; n < g.size(); ++n) EXPECT_EQ(errore(g.substr(0, n)), danno) << n;
    EXPECT_EQ(errore(g + "coda"), danno);
    // Whatever byte changes: an error, or the same text (a time stamp, a name).
    std::mt19937 caso{7};
    for (const std::string& intero : {g, z})
        for (int volta = 0; volta < 300; ++volta) {
            std::string rotto = intero;
            rotto[2 + caso() % (rotto.size() - 2)] ^= static_cast<char>(1 + caso() % 255);
            const auto a = leggi(rotto);
            if (a) {
                EXPECT_EQ(a->righe.lotto.size(), 84U) << volta;
            }
        }
    for (std::size_t n = 5; n < z.size(); n += 3) (void)leggi(z.substr(0, n));
}

}  // namespace
}  // namespace sortimetra
