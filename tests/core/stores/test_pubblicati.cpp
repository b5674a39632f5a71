#include "stores/pubblicati.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <set>
#include <sstream>

namespace sortimetra {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view kTitoliS = "data;n1;n2;n3;n4;n5;n6;jolly;superstar\n";
constexpr std::string_view kTitoliW = "concorso;data;ora;n1;n2;n3;n4;n5;n6;n7;n8;n9;n10;numerone\n";

std::string errore_lotto(std::string_view testo) {
    SenzaAvanzamento nessuno;
    const auto righe = leggi_testo_lotto(testo, nessuno);
    return righe ? "letto" : righe.error();
}
std::string errore_superenalotto(std::string_view righe) {
    SenzaAvanzamento nessuno;
    const auto lette = leggi_testo_superenalotto(std::string{kTitoliS} + std::string{righe}, nessuno);
    return lette ? "letto" : lette.error();
}
std::string errore_winforlife(std::string_view righe) {
    SenzaAvanzamento nessuno;
    const auto lette = leggi_testo_winforlife(std::string{kTitoliW} + std::string{righe}, nessuno);
    return lette ? "letto" : lette.error();
}

// ---- the Lotto text ----

TEST(TestoLotto, UnaRigaPerRuota) {
    SenzaAvanzamento nessuno;
    const auto righe =
        leggi_testo_lotto("1997/12/03\tBA\t58\t22\t7\t49\t69\n1997/12/03\tRN\t1\t\t0\t4\t90\n", nessuno);
    ASSERT_TRUE(righe) << righe.error();
    ASSERT_EQ(righe->size(), 2U);
    EXPECT_EQ((*righe)[0].ruota, 0);
    EXPECT_EQ((*righe)[0].numeri, (std::array<Numero, 5>{58, 22, 7, 49, 69}));
    EXPECT_EQ(testo_data((*righe)[0].data), "03/12/1997");
    EXPECT_EQ((*righe)[1].ruota, kNazionale);
    EXPECT_EQ((*righe)[1].numeri, (std::array<Numero, 5>{1, 0, 0, 4, 90}));
}

TEST(TestoLotto, FormeCheSiAccettano) {
    EXPECT_EQ(errore_lotto("\xEF\xBB\xBF"
                           "1997/12/03\tBA\t1\t2\t3\t4\t5\r\n1997/12/03\tNZ\t1\t2\t3\t4\t5\r\n"),
              "letto");
    EXPECT_EQ(errore_lotto("\n  \n1997/12/03\t BA \t 1\t02 \t3\t4\t5\n\r\n"), "letto");
    EXPECT_EQ(errore_lotto("1997/12/03\tBA\t1\t2\t3\t4\t5"), "letto");
}

TEST(TestoLotto, ErroriConRigaTrovatoAtteso) {
    const std::string buona = "1997/12/03\tBA\t1\t2\t3\t4\t5\n";
    EXPECT_EQ(errore_lotto(buona + "1997/12/03\tXX\t1\t2\t3\t4\t5\n"),
              "riga 2: trovato \"XX\", atteso uno fra BA CA FI GE MI NA PA RM TO VE RN NZ");
    EXPECT_EQ(errore_lotto(buona + buona),
              "riga 2: trovata di nuovo la ruota BA del 03/12/1997, attesa una sola riga per ruota e data");
    EXPECT_EQ(errore_lotto(buona + "\n1997/02/29\tCA\t1\t2\t3\t4\t5\n"),
              "riga 3: trovato \"1997/02/29\", attesa una data aaaa/mm/gg");
    EXPECT_EQ(errore_lotto("1997-12-03\tBA\t1\t2\t3\t4\t5\n"),
              "riga 1: trovato \"1997-12-03\", attesa una data aaaa/mm/gg");
    EXPECT_EQ(errore_lotto("1997/12/03\tBA\t1\t2\t3\t4\t91\n"),
              "riga 1: trovato \"91\", atteso un numero da 1 a 90, oppure vuoto o 0");
    EXPECT_EQ(errore_lotto("1997/12/03\tBA\t1\t2\t-3\t4\t9\n"),
              "riga 1: trovato \"-3\", atteso un numero da 1 a 90, oppure vuoto o 0");
    EXPECT_EQ(errore_lotto("1997/12/03\tBA\t1\t2\t3,5\t4\t9\n"),
              "riga 1: trovato \"3,5\", atteso un numero da 1 a 90, oppure vuoto o 0");
    EXPECT_EQ(errore_lotto("1997/12/03\tBA\t1\t2\t3\t4\n"),
              "riga 1: trovato \"fine della riga\", atteso un numero da 1 a 90, oppure vuoto o 0");
    EXPECT_EQ(errore_lotto("1997/12/03\tBA\t1\t2\t3\t4\t5\t6\n"),
              "riga 1: trovato \"6\", attesa la fine della riga dopo cinque numeri");
    EXPECT_EQ(errore_lotto("1997/12/03\n"),
              "riga 1: trovato \"fine della riga\", atteso uno fra BA CA FI GE MI NA PA RM TO VE RN NZ");
    EXPECT_EQ(errore_lotto("\n\n"), "il file non contiene estrazioni");
    EXPECT_EQ(errore_lotto(std::string("1997/12/03\tBA\t1\t2\t3\t4\t5\n\0\n", 26)),
              "riga 2: trovato \"?\", attesa una data aaaa/mm/gg");
}

TEST(TestoLotto, DieciByteNulliNonSonoUnaData) {
    // Enough lines behind it that the first one is read on the quick road, where a date is remembered.
    const std::string nulli(10, '\0');
    const std::string riga = "\tBA\t1\t2\t3\t4\t5\n";
    const std::string seguito = "1997/12/03" + riga + "1997/12/06" + riga;
    EXPECT_EQ(errore_lotto(nulli + riga + seguito),
              "riga 1: trovato \"??????????\", attesa una data aaaa/mm/gg");
    EXPECT_EQ(errore_lotto("1997/11/29" + riga + nulli + riga + seguito),
              "riga 2: trovato \"??????????\", attesa una data aaaa/mm/gg");
}

TEST(TestoLotto, LErroreNonSpezzaUnaLettera) {
    // 60 bytes are cited: the 30 letters of two bytes whole, or the 29 that fit beside another.
    std::string trenta;
    for (int i = 0; i < 40; ++i) trenta += "à";
    EXPECT_THAT(errore_lotto(trenta), HasSubstr("trovato \"" + trenta.substr(0, 60) + "…\""));
    EXPECT_THAT(errore_lotto("x" + trenta), HasSubstr("trovato \"x" + trenta.substr(0, 58) + "…\""));
}

TEST(TestoLotto, InQualunqueOrdine) {
    SenzaAvanzamento nessuno;
    const auto righe = leggi_testo_lotto(
        "1998/01/03\tVE\t1\t2\t3\t4\t5\n"
        "1997/12/03\tRN\t6\t7\t8\t9\t10\n"
        "1998/01/03\tBA\t11\t12\t13\t14\t15\n"
        "1997/12/03\tTO\t16\t17\t18\t19\t20\n",
        nessuno);
    ASSERT_TRUE(righe) << righe.error();
    std::vector<std::string> in_ordine;
    for (const auto& r : *righe) in_ordine.push_back(testo_data(r.data) + " " + std::to_string(r.numeri[0]));
    EXPECT_THAT(in_ordine, ElementsAre("03/12/1997 16", "03/12/1997 6", "03/01/1998 11", "03/01/1998 1"));
}

// A plain second reader: split at every separator, check each field on its own.
const Data kDal = leggi_data_iso("1800-01-01").value();
const Data kAl = leggi_data_iso("2999-12-31").value();

std::optional<std::vector<RigaLotto>> leggi_piano(const std::string& testo) {
    std::vector<RigaLotto> righe;
    std::istringstream flusso{testo};
    std::string linea;
    while (std::getline(flusso, linea)) {
        if (!linea.empty() && linea.back() == '\r') linea.pop_back();
        if (linea.empty()) continue;
        std::vector<std::string> campi{""};
        for (const char c : linea)
            if (c == '\t') {
                campi.emplace_back();
            } else {
                campi.back() += c;
            }
        if (campi.size() != 7) return std::nullopt;
        RigaLotto r;
        const auto data = leggi_data_iso(campi[0], '/');
        if (!data || *data < kDal || *data > kAl) return std::nullopt;
        r.data = *data;
        const auto ruota = campi[1] == "RN" ? std::optional{kNazionale} : indice_ruota(campi[1]);
        if (!ruota) return std::nullopt;
        r.ruota = *ruota;
        for (std::size_t i = 0; i < 5; ++i) {
            const std::string& c = campi[i + 2];
            if (c.find_first_not_of("0123456789") != std::string::npos || c.size() > 3) return std::nullopt;
            const int n = c.empty() ? 0 : std::stoi(c);
            if (n > 90) return std::nullopt;
            r.numeri[i] = static_cast<Numero>(n);
        }
        for (const auto& altra : righe)
            if (altra.data == r.data && altra.ruota == r.ruota) return std::nullopt;
        righe.push_back(r);
    }
    if (righe.empty()) return std::nullopt;
    std::stable_sort(righe.begin(), righe.end(), [](const RigaLotto& a, const RigaLotto& b) {
        return a.data != b.data ? a.data < b.data : a.ruota < b.ruota;
    });
    return righe;
}

TEST(TestoLotto, ComeIlLettorePiano) {
    for (unsigned seme = 0; seme < 3000; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        const auto fra = [&](int da, int a) { return std::uniform_int_distribution{da, a}(caso); };
        std::string testo;
        const char* const fine_riga = fra(0, 1) == 0 ? "\n" : "\r\n";
        for (int i = fra(0, 12); i > 0; --i) {
            testo += std::to_string(fra(1997, 1998)) + "/0" + std::to_string(fra(1, 3)) + "/" +
                     std::to_string(fra(10, fra(0, 3) == 0 ? 31 : 28)) + "\t";
            const int w = fra(0, 10);
            testo += w == 10 ? fra(0, 1) == 0 ? "RN" : "NZ" : kNomiRuote[static_cast<std::size_t>(w)].codice;
            for (int k = 0; k < 5; ++k) {
                testo += '\t';
                if (fra(0, 20) != 0) testo += std::to_string(fra(0, fra(0, 60) == 0 ? 300 : 90));
            }
            if (i > 1 || fra(0, 1) == 0) testo += fine_riga;
        }
        for (int n = fra(0, 5) == 0 ? fra(1, 3) : 0; n > 0 && !testo.empty(); --n)
            testo[static_cast<std::size_t>(fra(0, static_cast<int>(testo.size()) - 1))] =
                "0123456789\t\nBAX/"[fra(0, 15)];
        SenzaAvanzamento nessuno;
        const auto veloce = leggi_testo_lotto(testo, nessuno);
        const auto piano = leggi_piano(testo);
        ASSERT_EQ(veloce.has_value(), piano.has_value()) << testo << (veloce ? "" : veloce.error());
        if (!piano) continue;
        ASSERT_EQ(veloce->size(), piano->size());
        for (std::size_t i = 0; i < piano->size(); ++i) {
            ASSERT_EQ((*veloce)[i].data, (*piano)[i].data);
            ASSERT_EQ((*veloce)[i].ruota, (*piano)[i].ruota);
            ASSERT_EQ((*veloce)[i].numeri, (*piano)[i].numeri);
        }
    }
}

// ---- the texts with titles ----

TEST(TestoSuperEnalotto, Errori) {
    EXPECT_EQ(errore_superenalotto("1997-12-03;20;36;39;41;72;76;88;0\r\n"), "letto");
    SenzaAvanzamento nessuno;
    EXPECT_EQ(leggi_testo_superenalotto("1997-12-03;20;36;39;41;72;76;88;0\n", nessuno).error(),
              "riga 1: trovato \"1997-12-03;20;36;39;41;72;76;88;0\", attesa la riga dei titoli "
              "\"data;n1;n2;n3;n4;n5;n6;jolly;superstar\"");
    EXPECT_EQ(errore_superenalotto("1997/12/03;20;36;39;41;72;76;88;0\n"),
              "riga 2: trovato \"1997/12/03\", attesa una data aaaa-mm-gg");
    EXPECT_EQ(errore_superenalotto("1997-12-03;20;36;39;41;72;76;88\n"),
              "riga 2: trovato \"fine della riga\", atteso un numero da 1 a 90, oppure vuoto o 0");
    EXPECT_EQ(errore_superenalotto("1997-12-03;20;36;39;41;72;76;88;0;7\n"),
              "riga 2: trovato \"7\", attesa la fine della riga dopo il superstar");
    EXPECT_EQ(errore_superenalotto("1997-12-03;20;36;39;41;72;76;88;0\n1997-12-03;1;2;3;4;5;6;7;0\n"),
              "riga 3: trovato \"1997-12-03\", attesa una sola riga per data");
    EXPECT_EQ(errore_superenalotto(""), "il file non contiene estrazioni");
}

TEST(TestoWinForLife, Errori) {
    EXPECT_EQ(errore_winforlife("4769;2023-10-08;15:00;1;3;4;5;6;9;12;16;18;20;14\n"), "letto");
    EXPECT_EQ(errore_winforlife("4769;2023-10-08;8:00;1;3;4;5;6;9;12;16;18;20;14\n"), "letto");
    for (const std::string ora : {"24:00", "8", "8:60", "otto", "", "8.00", "08:00:00", "-8:00"})
        EXPECT_EQ(errore_winforlife("4769;2023-10-08;" + ora + ";1;3;4;5;6;9;12;16;18;20;14\n"),
                  "riga 2: trovato \"" + ora + "\", attesa un'ora come \"8:00\" o \"08:00\"");
    EXPECT_EQ(errore_winforlife("x;2023-10-08;15:00;1;3;4;5;6;9;12;16;18;20;14\n"),
              "riga 2: trovato \"x\", atteso un numero di concorso");
    EXPECT_EQ(errore_winforlife("1;2023-10-08;15:00;1;3;4;5;6;9;12;16;18;21;14\n"),
              "riga 2: trovato \"21\", atteso un numero da 1 a 20, oppure vuoto o 0");
    EXPECT_EQ(errore_winforlife("1;2023-10-08;15:00;1;3;4;5;6;9;12;16;18;20\n"),
              "riga 2: trovato \"fine della riga\", atteso un numero da 1 a 20, oppure vuoto o 0");
    EXPECT_EQ(errore_winforlife("1;2023-10-08;08:00;1;3;4;5;6;9;12;16;18;20;14\n"
                                "2;2023-10-08;8:00;1;3;4;5;6;9;12;16;18;20;14\n"),
              "riga 3: trovato \"2023-10-08;8:00\", attesa una sola riga per data e ora");
}

TEST(TestoWinForLife, ContaDaUnoNellOrdineDelFile) {
    SenzaAvanzamento nessuno;
    const auto righe = leggi_testo_winforlife(std::string{kTitoliW} +
                                                  "9000;2023-10-09;07:00;1;3;4;5;6;9;12;16;18;20;14\n"
                                                  "4769;2023-10-08;15:00;1;3;4;5;6;9;12;16;18;20;14\n",
                                              nessuno);
    ASSERT_TRUE(righe) << righe.error();
    EXPECT_EQ((*righe)[0].concorso, 1);
    EXPECT_EQ((*righe)[0].ora, "07:00");
    EXPECT_EQ((*righe)[1].concorso, 2);
}

TEST(RigaDi, SiTrovaPerDataESegno) {
    const Data giorno = leggi_data_iso("2000-01-04").value();
    constexpr std::string_view kLotto =
        "\xEF\xBB\xBF"
        "2000/01/01\tBA\t1\t2\t3\t4\t5\r\n\r\n2000/01/04\tCA\t1\t2\t3\t4\t5\r\n 2000/01/04\tBA "
        "\t1\t2\t3\t4\t5";
    EXPECT_EQ(riga_di(kLotto, giorno, "BA"), 4U);
    EXPECT_EQ(riga_di(kLotto, giorno, ""), 3U);
    EXPECT_EQ(riga_di(kLotto, giorno, "TO"), std::nullopt);
    EXPECT_EQ(riga_di("data;n1\n2000-01-01;1\n2000-01-04;2\n", giorno, ""), 3U);
    EXPECT_EQ(riga_di("9;2000-01-04;07:00;1\n10;2000-01-04;08:00;1\n", giorno, "08:00"), 2U);
    EXPECT_EQ(riga_di("", giorno, ""), std::nullopt);
}

}  // namespace
}  // namespace sortimetra
