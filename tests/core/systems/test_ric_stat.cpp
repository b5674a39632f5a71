#include "catalogue/ricerche.h"
#include "files/file_sicuro.h"
#include "statistics/famiglie.h"
#include "statistics/parametri.h"
#include "support/archivi.h"
#include "support/passi.h"
#include "systems/ric_stat.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace sortimetra {
namespace {

namespace fs = std::filesystem;
using prove::CartellaProva;
using prove::da_testo;

const Data kOggi = leggi_data_iso("2026-07-04").value();

/// The answer of a search over one small archive.
Risposta risposta(std::string_view chiave, const Parametri& parametri = {}) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n");
    Domanda d = prove::domanda(chiave);
    d.parametri = parametri;
    return prove::rispondi(d, archivio, prove::cartella_dati());
}

std::string testo(const fs::path& file) {
    return leggi_file(file).value_or("(manca)");
}

std::set<std::string> contenuto(const fs::path& cartella) {
    std::set<std::string> nomi;
    for (const auto& voce : fs::recursive_directory_iterator{cartella})
        nomi.insert(fs::relative(voce.path(), cartella).generic_string());
    return nomi;
}

/// A decomposition's answer with these rows.
Risposta di_gruppi(std::size_t quanti, std::vector<std::uint8_t> numeri, char separatore = '-') {
    Tabella t;
    t.titoli = {{"Numeri"}};
    t.colonne.emplace_back(ColonnaGruppi{quanti, separatore, std::move(numeri)});
    Risultato r;
    r.tabelle.push_back(std::move(t));
    Risposta risposta = prove::risposta_da(std::move(r));
    risposta.domanda.ricerca = trova_ricerca("scomposizione");
    return risposta;
}

TEST(RicStat, AmbiByteSuByte) {
    const CartellaProva dove;
    const auto c = scrivi_schedina(dove.percorso(), di_gruppi(2, {12, 21, 5, 50, 12, 45}, '.'), kOggi);
    ASSERT_TRUE(c.has_value()) << c.error().testo();
    EXPECT_EQ(c->file, "ambo/ric_stat");
    EXPECT_FALSE(c->programma_aperto);
    EXPECT_EQ(testo(dove.percorso() / "ambo/ric_statsya.txt"), "12,21\r\n5,50\r\n12,45\r\n");
    EXPECT_EQ(testo(dove.percorso() / "ambo/ric_statnua.txt"), "#2026-07-04#,\"\"\r\n3,3\r\n");
    EXPECT_EQ(testo(dove.percorso() / "ambo/ric_statina.txt"), "5\r\n5\r\n12\r\n21\r\n45\r\n50\r\n");
    EXPECT_EQ(testo(dove.percorso() / "ambo/ric_stat.nn"), "");
    EXPECT_EQ(testo(dove.percorso() / "trans"), "\"ambo\",\"ric_stat\"\r\n");
    EXPECT_EQ(
        contenuto(dove.percorso()),
        (std::set<std::string>{"ambo", "ambo/ric_stat.nn", "ambo/ric_statina.txt", "ambo/ric_statnua.txt",
                               "ambo/ric_statsya.txt", "sestine-decine", "trans"}));
}

TEST(RicStat, CartellaELetteraDalNumeroDiNumeri) {
    struct Caso {
        std::size_t k;
        std::string file;
        std::string sy;
    };
    for (const Caso& caso : {Caso{2, "ambo/ric_stat", "ambo/ric_statsya.txt"},
                             Caso{3, "terno/ric_stat", "terno/ric_statsyb.txt"},
                             Caso{4, "quaterna/ric_stat", "quaterna/ric_statsyc.txt"},
                             Caso{5, "cinquina/ric_stat", "cinquina/ric_statsyd.txt"},
                             Caso{6, "sestine-decine/ric_stat", "sestine-decine/ric_statsyf.txt"},
                             Caso{7, "sestine-decine/ric_stat", "sestine-decine/ric_statsyf.txt"}}) {
        const CartellaProva dove;
        std::vector<std::uint8_t> numeri;
        std::string riga;
        for (std::size_t i = 1; i <= caso.k; ++i) {
            numeri.push_back(static_cast<std::uint8_t>(i));
            riga += (i > 1 ? "," : "") + std::to_string(i);
        }
        const auto c = scrivi_schedina(dove.percorso(), di_gruppi(caso.k, numeri, '.'), kOggi);
        ASSERT_TRUE(c.has_value());
        EXPECT_EQ(c->file, caso.file);
        EXPECT_EQ(testo(dove.percorso() / caso.sy), riga + "\r\n");
        EXPECT_EQ(testo(dove.percorso() / "trans"),
                  "\"" + caso.file.substr(0, caso.file.find('/')) + "\",\"ric_stat\"\r\n");
        EXPECT_TRUE(fs::is_directory(dove.percorso() / "sestine-decine"));
    }
}

std::string presi(std::vector<Numero> numeri) {
    std::string r;
    for (const int n : combinazione_sistema(numeri)) r += (r.empty() ? "" : " ") + std::to_string(n);
    return r;
}

TEST(RicStat, LeCaselleDiUnaCombinazione) {
    EXPECT_EQ(presi({1, 90}), "1 90 0 0 0 0 0 0 0 0");
    EXPECT_EQ(presi({2, 44, 47, 59, 4}), "2 44 47 59 4 0 0 0 0 0");
    EXPECT_EQ(presi({5, 5, 7}), "5 7 0 0 0 0 0 0 0 0");
    EXPECT_EQ(presi({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}), "1 2 3 4 5 6 7 8 9 10");
    EXPECT_EQ(presi({}), "0 0 0 0 0 0 0 0 0 0");
}

/// The first rows of a family's system, as they are written.
std::string prima_riga(std::string_view chiave, std::size_t riga = 0) {
    const auto s = sistema_da_griglia(risposta(chiave));
    if (!s) return "nessuno";
    std::string r = std::to_string(s->k) + ":";
    for (std::size_t i = 0; i < s->k; ++i) r += " " + std::to_string(s->combinazioni.at(riga)[i]);
    return r;
}

TEST(RicStat, LeEtichetteBreviHannoILoroNumeri) {
    EXPECT_EQ(prima_riga("decine"), "10: 1 2 3 4 5 6 7 8 9 90");
    EXPECT_EQ(prima_riga("decine", 1), "10: 10 11 12 13 14 15 16 17 18 19");
    EXPECT_EQ(prima_riga("cadenze"), "9: 1 11 21 31 41 51 61 71 81");
    EXPECT_EQ(prima_riga("cadenze", 9), "9: 10 20 30 40 50 60 70 80 90");
    EXPECT_EQ(prima_riga("figure", 8), "10: 9 18 27 36 45 54 63 72 81 90");
    EXPECT_EQ(prima_riga("gemelli"), "8: 11 22 33 44 55 66 77 88");
    EXPECT_EQ(prima_riga("decine simmetriche", 1), "10: 2 18 20 26 44 47 65 71 73 89");
    EXPECT_EQ(prima_riga("controfigure", 7), "9: 8 19 30 41 52 63 66 74 85");
    EXPECT_EQ(prima_riga("radicali"), "4: 1 10 11 19");
    EXPECT_EQ(prima_riga("cifre"), "nessuno");
}

TEST(RicStat, NumeroRipetutoLasciaUnoZero) {
    const CartellaProva dove;
    ASSERT_TRUE(scrivi_schedina(dove.percorso(), di_gruppi(3, {5, 5, 7, 1, 2, 3}, '-'), kOggi));
    EXPECT_EQ(testo(dove.percorso() / "terno/ric_statsyb.txt"), "5,7,0\r\n1,2,3\r\n");
    EXPECT_EQ(testo(dove.percorso() / "terno/ric_statinb.txt"), "5\r\n1\r\n2\r\n3\r\n5\r\n7\r\n");
}

TEST(RicStat, GrigliaSenzaRighe) {
    const CartellaProva dove;
    const auto c = scrivi_schedina(dove.percorso(), di_gruppi(4, {}), kOggi);
    ASSERT_TRUE(c.has_value());
    EXPECT_EQ(c->file, "quaterna/ric_stat");
    EXPECT_EQ(testo(dove.percorso() / "quaterna/ric_statsyc.txt"), "");
    EXPECT_EQ(testo(dove.percorso() / "quaterna/ric_statnuc.txt"), "#2026-07-04#,\"\"\r\n0,0\r\n");
    EXPECT_EQ(testo(dove.percorso() / "quaterna/ric_statinc.txt"), "0\r\n");
}

TEST(RicStat, OgniFamigliaSiConsegnaTranneCifre) {
    for (const Famiglia& f : famiglie()) {
        SCOPED_TRACE(f.nome.chiave);
        const auto s = sistema_da_griglia(risposta(f.nome.chiave));
        if (f.nome.chiave == "cifre") {
            EXPECT_FALSE(s.has_value());
            continue;
        }
        ASSERT_TRUE(s.has_value());
        EXPECT_EQ(s->k, f.colonne);
        EXPECT_EQ(s->combinazioni.size(), f.righe);
        // The members' own numbers, whatever the grid shows in their place.
        const SerieCorrente serie = prove::serie(f);
        for (std::size_t i = 0; i < f.righe; ++i) {
            const auto m = serie.membro(i);
            const auto& c = s->combinazioni[i];
            EXPECT_EQ(std::set<int>(m.begin(), m.end()), std::set<int>(c.begin(), c.begin() + f.colonne));
        }
    }
}

TEST(RicStat, GriglieSenzaSchedina) {
    EXPECT_FALSE(ammette_schedina(risposta("ritardo e frequenza dei 90 numeri")));
    EXPECT_FALSE(
        ammette_schedina(risposta("scomposizione", ParametriStatistica{.numeri = {5, 6}, .sorte = 1})));
    EXPECT_FALSE(ammette_schedina(risposta("cifre")));
    EXPECT_FALSE(ammette_schedina(risposta("decine", ParametriStatistica{.tutte_le_ruote = true})));
    EXPECT_TRUE(ammette_schedina(risposta("ricerche su tutti gli ambi")));
    EXPECT_TRUE(ammette_schedina(risposta("decine")));
    const CartellaProva dove;
    EXPECT_FALSE(scrivi_schedina(dove.percorso(), risposta("cifre"), kOggi).has_value());
    EXPECT_TRUE(contenuto(dove.percorso()).empty());
}

TEST(RicStat, QuelCheCEraSparisce) {
    const CartellaProva dove;
    ASSERT_TRUE(fs::create_directory(dove.percorso() / "ambo"));
    for (const char* nome :
         {"ambo/ric_statsya.txt", "ambo/ric_statnua.txt", "ambo/ric_statina.txt", "ambo/ric_statena.txt",
          "ambo/ric_stat.rr", "tempsya.txt", "tempsyb.txt", "ambo/miosya.txt", "ambo/mio.rr"})
        ASSERT_TRUE(scrivi_file(dove.percorso() / nome, "vecchio"));
    ASSERT_TRUE(scrivi_schedina(dove.percorso(), di_gruppi(2, {12, 21}), kOggi));
    EXPECT_EQ(contenuto(dove.percorso()),
              (std::set<std::string>{"ambo", "ambo/mio.rr", "ambo/miosya.txt", "ambo/ric_stat.nn",
                                     "ambo/ric_statina.txt", "ambo/ric_statnua.txt", "ambo/ric_statsya.txt",
                                     "sestine-decine", "tempsyb.txt", "trans"}));
    EXPECT_EQ(testo(dove.percorso() / "ambo/ric_statsya.txt"), "12,21\r\n");
}

TEST(RicStat, ProgrammaDelleSchedineGiaAperto) {
    const CartellaProva dove;
    ASSERT_TRUE(scrivi_file(dove.percorso() / "sch", ""));
    const auto c = scrivi_schedina(dove.percorso(), di_gruppi(2, {12, 21}), kOggi);
    ASSERT_TRUE(c.has_value());
    EXPECT_TRUE(c->programma_aperto);
    EXPECT_EQ(testo(dove.percorso() / "ambo/ric_statsya.txt"), "12,21\r\n");
    EXPECT_FALSE(fs::exists(dove.percorso() / "trans"));
}

TEST(RicStat, ZeroCombinazioniConIlSistemaRielaborato) {
    const CartellaProva dove;
    ASSERT_TRUE(fs::create_directory(dove.percorso() / "ambo"));
    const Sistema s{.nome_file_sistema = "ambo/ric_stat", .lettera_sistema = "a", .k = 2, .combinazioni = {}};
    ASSERT_TRUE(scrivi_file(dove.percorso() / "ambo/ric_stat.rr", ""));
    InsiemeFile insieme;
    EXPECT_EQ(scrivi_conteggio_sistema(insieme, dove.percorso(), s, kOggi),
              "Il sistema rielaborato ha dato zero combinazioni valide.\r\n"
              "Da adesso sarà considerato un sistema condizionato a sviluppo non registrato.");
    ASSERT_TRUE(insieme.conferma());
    EXPECT_FALSE(fs::exists(dove.percorso() / "ambo/ric_stat.rr"));
    EXPECT_TRUE(fs::exists(dove.percorso() / "ambo/ric_stat.nn"));
    // Run after `prepara_sistema`, as always, there is nothing left to tell.
    ASSERT_TRUE(scrivi_file(dove.percorso() / "ambo/ric_stat.rr", ""));
    InsiemeFile altro;
    prepara_sistema(altro, dove.percorso(), s);
    EXPECT_EQ(scrivi_conteggio_sistema(altro, dove.percorso(), s, kOggi), std::nullopt);
}

/// All files of a folder with their bytes.
std::map<std::string, std::string> tutto(const fs::path& cartella) {
    std::map<std::string, std::string> file;
    for (const auto& voce : fs::recursive_directory_iterator{cartella})
        if (voce.is_regular_file())
            file[fs::relative(voce.path(), cartella).generic_string()] = testo(voce.path());
    return file;
}

/// The system of two ambi, beside what an older one left.
void vecchio_sistema(const fs::path& cartella) {
    ASSERT_TRUE(scrivi_schedina(cartella, di_gruppi(2, {12, 21, 5, 50}), kOggi));
    ASSERT_TRUE(scrivi_file(cartella / "ambo/ric_statena.txt", "vecchio"));
    ASSERT_TRUE(scrivi_file(cartella / "tempsya.txt", "vecchio"));
}

/// 4,005 ambi: some tens of thousands of bytes, where the other files have a few.
Risposta tutti_gli_ambi() {
    std::vector<std::uint8_t> numeri;
    for (std::uint8_t a = 1; a < 90; ++a)
        for (std::uint8_t b = a + 1; b <= 90; ++b) numeri.insert(numeri.end(), {a, b});
    return di_gruppi(2, std::move(numeri));
}

TEST(RicStat, UnDiscoPienoLasciaIlSistemaCheCEra) {
    for (const rlim_t byte : {rlim_t{0}, rlim_t{10}, rlim_t{100}, rlim_t{10'000}}) {
        SCOPED_TRACE(byte);
        const CartellaProva dove;
        vecchio_sistema(dove.percorso());
        const auto prima = tutto(dove.percorso());
        const pid_t pid = fork();
        if (pid == 0) {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limite{byte, byte};
            setrlimit(RLIMIT_FSIZE, &limite);
            _exit(scrivi_schedina(dove.percorso(), tutti_gli_ambi(), kOggi) ? 0 : 7);
        }
        int stato = 0;
        waitpid(pid, &stato, 0);
        EXPECT_EQ(WEXITSTATUS(stato), 7);
        EXPECT_EQ(tutto(dove.percorso()), prima);
    }
}

TEST(RicStat, OgniPassoCheNonRiesceLasciaIlSistemaCheCEra) {
    int rifiuti = 0;
    for (int n = 1;; ++n) {
        SCOPED_TRACE(n);
        const CartellaProva dove;
        vecchio_sistema(dove.percorso());
        const auto prima = tutto(dove.percorso());
        bool scritto = false;
        bool toccato = false;
        {
            const prove::DiscoGuasto guasto{n};
            scritto = scrivi_schedina(dove.percorso(), tutti_gli_ambi(), kOggi).has_value();
            toccato = prove::DiscoGuasto::toccato();
        }
        if (scritto) {
            EXPECT_GT(testo(dove.percorso() / "ambo/ric_statsya.txt").size(), 20'000U);
        } else {
            EXPECT_EQ(tutto(dove.percorso()), prima);
            ++rifiuti;
        }
        if (!toccato) break;
    }
    EXPECT_GT(rifiuti, 10);
}

TEST(RicStat, UccisoNonAnnunciaMaiMezzoSistema) {
    for (int n = 1;; ++n) {
        SCOPED_TRACE(n);
        const CartellaProva dove;
        vecchio_sistema(dove.percorso());
        const bool finito =
            prove::fino_al_passo(n, [&] { (void)scrivi_schedina(dove.percorso(), tutti_gli_ambi(), kOggi); });
        const auto righe = [&](std::string_view nome) {
            const std::string t = testo(dove.percorso() / nome);
            return std::count(t.begin(), t.end(), '\n');
        };
        if (fs::exists(dove.percorso() / "trans")) {
            const auto combinazioni = righe("ambo/ric_statsya.txt");
            EXPECT_EQ(testo(dove.percorso() / "ambo/ric_statnua.txt"),
                      "#2026-07-04#,\"\"\r\n" + std::to_string(combinazioni) + "," +
                          std::to_string(combinazioni) + "\r\n");
            EXPECT_EQ(righe("ambo/ric_statina.txt"), combinazioni == 2 ? 5 : 91);
        }
        if (finito) {
            EXPECT_TRUE(fs::exists(dove.percorso() / "trans"));
            break;
        }
    }
}

TEST(RicStat, CartellaCheNonSiPuoCreare) {
    const CartellaProva dove;
    ASSERT_TRUE(scrivi_file(dove.percorso() / "ambo", "un file, non una cartella"));
    const auto c = scrivi_schedina(dove.percorso(), di_gruppi(2, {12, 21}), kOggi);
    ASSERT_FALSE(c.has_value());
    EXPECT_EQ(c.error().file.filename(), "ambo");
    EXPECT_FALSE(fs::exists(dove.percorso() / "trans"));
}

}  // namespace
}  // namespace sortimetra
