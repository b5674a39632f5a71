#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/importa.h"
#include "stores/negozio_jet.h"
#include "stores/protocollo.h"
#include "support/archivi.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <fstream>
#include <random>

namespace sortimetra {
namespace {

using prove::CartellaProva;

using testing::AnyOf;
using testing::HasSubstr;

constexpr unsigned kDrawit = kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto;

std::filesystem::path vero(std::string_view nome) {
    const auto condivisa = prove::cartella_condivisa();
    return condivisa ? *condivisa / "archivio" / nome : std::filesystem::path{};
}

void scrivi(const std::filesystem::path& file, std::string_view byte) {
    std::ofstream{file, std::ios::binary | std::ios::trunc}.write(byte.data(),
                                                                  static_cast<std::streamsize>(byte.size()));
}

std::string motivo(const std::filesystem::path& file, unsigned tabelle = kTabellaLotto) {
    const auto letti = leggi_jet(file, tabelle);
    return letti ? "letto" : letti.error().motivo;
}

/// The first bytes that every Jet file of the newer format has, up to `quanti`, zeroes behind.
std::string testa_jet(std::size_t quanti) {
    std::string byte{"\0\1\0\0Standard Jet DB\0\1\0\0\0", 24};
    byte.resize(quanti);
    return byte;
}

TEST(NegozioJet, FileCheNonVanno) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.mdb";
    EXPECT_EQ(motivo(file), "il file non c'è");
    scrivi(file, "");
    EXPECT_EQ(motivo(file), "il file è vuoto");
    scrivi(file, "Questo è un testo, non un archivio.");
    EXPECT_EQ(motivo(file), "il file non è un archivio Jet (.mdb)");
    scrivi(file, std::string(8192, '\0'));
    EXPECT_EQ(motivo(file), "il file non è un archivio Jet (.mdb)");
    scrivi(file, testa_jet(20));
    EXPECT_EQ(motivo(file), "il file è troncato: ha solo 20 byte");
    scrivi(file, testa_jet(5000));
    EXPECT_EQ(motivo(file), "il file è troncato: 5000 byte non fanno pagine intere da 4096");
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    EXPECT_EQ(motivo(file), "è una cartella, non un file");
}

TEST(NegozioJet, SoloUnaTesta) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.mdb";
    for (const std::size_t pagine : {1U, 2U, 20U}) {
        scrivi(file, testa_jet(pagine * 4096));
        EXPECT_THAT(motivo(file), HasSubstr("il file è ")) << pagine;
    }
}

TEST(NegozioJet, SenzaPermesso) {
    if (geteuid() == 0) GTEST_SKIP() << "everything is permitted to root";
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.mdb";
    scrivi(file, testa_jet(8192));
    std::filesystem::permissions(file, std::filesystem::perms::none);
    EXPECT_EQ(motivo(file), "il file non si può leggere: permesso negato");
}

/// Another program, which takes a lock with `blocca` and keeps it until the end of the scope.
class Altro {
  public:
    template <class Blocca>
    Altro(const std::filesystem::path& file, Blocca blocca) {
        std::array<int, 2> pronto{};
        EXPECT_EQ(pipe(pronto.data()), 0);
        pid_ = fork();
        if (pid_ == 0) {
            const int d = open(file.c_str(), O_RDWR);
            const char esito = d >= 0 && blocca(d) ? 's' : 'n';
            (void)!write(pronto[1], &esito, 1);
            pause();
            _exit(0);
        }
        char esito = '?';
        EXPECT_EQ(read(pronto[0], &esito, 1), 1);
        EXPECT_EQ(esito, 's');
        close(pronto[0]);
        close(pronto[1]);
    }
    Altro(const Altro&) = delete;
    Altro& operator=(const Altro&) = delete;
    ~Altro() {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }

  private:
    pid_t pid_ = -1;
};

TEST(NegozioJet, BloccatoDaUnAltroProgramma) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.mdb";
    scrivi(file, testa_jet(8192));
    {
        const Altro altro{file, [](int d) { return flock(d, LOCK_EX) == 0; }};
        EXPECT_EQ(motivo(file), "il file è in uso da un altro programma");
    }
    {
        const Altro altro{file, [](int d) {
                              struct flock tutto{};
                              tutto.l_type = F_WRLCK;
                              tutto.l_whence = SEEK_SET;
                              return fcntl(d, F_SETLK, &tutto) == 0;
                          }};
        EXPECT_EQ(motivo(file), "il file è in uso da un altro programma");
    }
    EXPECT_NE(motivo(file), "il file è in uso da un altro programma");
}

// ---- what the reader program may write ----

std::string u32(std::uint32_t n) {
    std::string t;
    for (int i = 0; i < 4; ++i) t += static_cast<char>(n >> (8 * i));
    return t;
}
std::string testo(std::string_view t) {
    return static_cast<char>(jet::kTesto | t.size()) + std::string{t};
}
std::string intero(std::int32_t n) {
    return static_cast<char>(jet::kIntero) + u32(static_cast<std::uint32_t>(n));
}
std::string momento(double d) {
    std::string t(9, static_cast<char>(jet::kMomento));
    std::memcpy(t.data() + 1, &d, 8);
    return t;
}
const std::string kVuota(1, static_cast<char>(jet::kVuota));

std::string tabella_lotto(std::string_view righe, std::uint32_t quante) {
    return std::string{jet::kFirma} + "T" + '\1' + std::string{righe} + "E" + u32(quante) + "F";
}

TEST(LetturaJet, CelleDiOgniTipo) {
    const std::string righe = "R" + momento(33229) + testo("BA") + testo("83") + testo(" 7") + kVuota +
                              testo(" ") + testo("0") + intero(1) +  //
                              "R" + momento(33229.75) + testo("ca") + intero(5) + intero(0) + intero(90) +
                              kVuota + testo("12x") + testo("1") +  //
                              "R" + testo("22/12/1990") + testo("FI") + intero(5) + intero(0) + intero(90) +
                              kVuota + testo("") + intero(1) +  //
                              "R" + intero(33229) + testo("VE") + kVuota + kVuota + kVuota + kVuota + kVuota +
                              intero(1);
    const auto letti = interpreta_lettura_jet(tabella_lotto(righe, 4), kTabellaLotto);
    ASSERT_TRUE(letti) << letti.error();
    ASSERT_EQ(letti->lotto.size(), 4U);
    EXPECT_EQ(letti->lotto[0].numeri, (std::array<Numero, 5>{83, 7, 0, 0, 0}));
    EXPECT_EQ(letti->lotto[1].numeri, (std::array<Numero, 5>{5, 0, 90, 0, 12}));
    EXPECT_EQ(letti->lotto[1].ruota, 1);
    for (const auto& r : letti->lotto) EXPECT_EQ(testo_data(r.data), "22/12/1990");
}

TEST(LetturaJet, RuotaNazionaleConITreNomi) {
    for (const std::string_view nome : {"NAZIONALE", "NZ", "RN", "nazionale "}) {
        const std::string righe = "R" + momento(38476) + testo(nome) + intero(1) + intero(2) + intero(3) +
                                  intero(4) + intero(5) + intero(1182);
        const std::string byte = std::string{jet::kFirma} + "T" + '\2' + righe + "E" + u32(1) + "F";
        const auto letti = interpreta_lettura_jet(byte, kTabellaNazionale);
        ASSERT_TRUE(letti) << letti.error();
        EXPECT_EQ(letti->nazionale.at(0).ruota, kNazionale);
    }
}

TEST(LetturaJet, OraComeTestoOComeMomento) {
    const auto con = [](const std::string& ora) {
        std::string numeri;
        for (int n = 1; n <= 10; ++n) numeri += intero(n);
        const std::string byte = std::string{jet::kFirma} + "T" + '\x8' + "R" + intero(1) + momento(45207) +
                                 ora + numeri + "E" + u32(1) + "F";
        const auto letti = interpreta_lettura_jet(byte, kTabellaWinForLife);
        return letti ? letti->winforlife.at(0).ora : letti.error();
    };
    EXPECT_EQ(con(testo("08:00")), "08:00");
    EXPECT_EQ(con(testo(" 8:00 ")), " 8:00 ");
    EXPECT_EQ(con(momento(8.0 / 24)), "8:00");
    EXPECT_EQ(con(momento(45207 + 22.5 / 24)), "22:30");
}

TEST(LetturaJet, ErroriDelLettore) {
    const auto con = [](jet::Errore e, std::uint32_t primo, std::uint32_t secondo) {
        const std::string errore = std::string("X") + static_cast<char>(e) + u32(primo) + u32(secondo);
        return interpreta_lettura_jet(std::string{jet::kFirma} + errore, kDrawit).error();
    };
    EXPECT_EQ(con(jet::Errore::NonApre, 0, 0), "il file è danneggiato: non si apre");
    EXPECT_EQ(con(jet::Errore::Password, 0, 0), "il file è protetto da una password");
    EXPECT_EQ(con(jet::Errore::MancaTabella, kTabellaSuperEnalotto, 0), "manca la tabella archivios");
    EXPECT_EQ(con(jet::Errore::MancaColonna, kTabellaSuperEnalotto, 7),
              "nella tabella archivios manca la colonna \"Jolly\"");
    EXPECT_THAT(con(jet::Errore::MancaColonna, kTabellaSuperEnalotto, 70), HasSubstr("danneggiato"));
    EXPECT_THAT(con(jet::Errore::MancaTabella, 77, 0), HasSubstr("danneggiato"));
    EXPECT_THAT(con(static_cast<jet::Errore>(99), 0, 0), HasSubstr("danneggiato"));
    const std::string mezza =
        std::string{jet::kFirma} + "T" + '\1' + "X" + static_cast<char>(jet::Errore::Righe);
    EXPECT_EQ(interpreta_lettura_jet(mezza + u32(46550) + u32(12), kDrawit).error(),
              "il file è danneggiato o troncato: la tabella archivio dichiara 46550 righe, se ne trovano 12");
}

TEST(LetturaJet, OgniByteCheMancaFaUnErrore) {
    const std::string riga = "R" + momento(33229) + testo("BA") + testo("83") + intero(7) + kVuota +
                             testo("1") + testo("2") + intero(1);
    const std::string buona = tabella_lotto(riga, 1);
    ASSERT_TRUE(interpreta_lettura_jet(buona, kTabellaLotto));
    for (std::size_t n = 0; n < buona.size(); ++n)
        EXPECT_FALSE(interpreta_lettura_jet(buona.substr(0, n), kTabellaLotto)) << n;
    EXPECT_FALSE(interpreta_lettura_jet(buona + "F", kTabellaLotto));
    EXPECT_FALSE(interpreta_lettura_jet(tabella_lotto(riga, 2), kTabellaLotto));
    EXPECT_FALSE(interpreta_lettura_jet(buona, kTabellaNazionale));
    EXPECT_FALSE(interpreta_lettura_jet(buona, kTabellaWinForLife));
}

TEST(LetturaJet, ByteACaso) {
    const std::string riga = "R" + momento(33229) + testo("BA") + testo("83") + intero(7) + kVuota +
                             testo("1") + testo("2") + intero(1);
    std::mt19937 caso{7};
    for (int giro = 0; giro < 50'000; ++giro) {
        std::string byte = tabella_lotto(riga + riga + riga, 3);
        for (int n = std::uniform_int_distribution{1, 4}(caso); n > 0; --n)
            byte[std::uniform_int_distribution<std::size_t>{0, byte.size() - 1}(caso)] =
                static_cast<char>(std::uniform_int_distribution{0, 255}(caso));
        SCOPED_TRACE(giro);
        const auto letti = interpreta_lettura_jet(byte, kTabellaLotto);
        if (!letti) {
            ASSERT_FALSE(letti.error().empty());
            continue;
        }
        ASSERT_EQ(letti->lotto.size(), 3U);
        for (const auto& r : letti->lotto) {
            ASSERT_GE(r.concorso, 1);
            ASSERT_LT(r.ruota, kRuote);
            for (const Numero n : r.numeri) ASSERT_LE(n, kNumeri);
        }
    }
}

// ---- the real files, where they are ----

TEST(NegozioJet, IVeriDannoLeRigheDeiTestiPubblicati) {
    const auto* atteso = prove::archivio_vero();
    if (atteso == nullptr) GTEST_SKIP() << "no real draws here";
    const auto letto = apri_archivio(vero(""));
    ASSERT_TRUE(letto) << letto.error().testo();
    EXPECT_EQ(letto->drawit().file.filename(), "drawit.mdb");
    EXPECT_FALSE(letto->drawit().simulato);
    EXPECT_EQ(letto->lotto().righe, 46'550U);
    EXPECT_EQ(letto->lotto().concorso, atteso->lotto().concorso);
    EXPECT_EQ(letto->lotto().data, atteso->lotto().data);
    EXPECT_EQ(letto->lotto().presenti, atteso->lotto().presenti);
    EXPECT_TRUE(letto->lotto().numeri == atteso->lotto().numeri);
    EXPECT_EQ(letto->nazionale().concorso, atteso->nazionale().concorso);
    EXPECT_EQ(letto->nazionale().data, atteso->nazionale().data);
    EXPECT_TRUE(letto->nazionale().numeri == atteso->nazionale().numeri);
    EXPECT_EQ(letto->superenalotto().concorso, atteso->superenalotto().concorso);
    EXPECT_EQ(letto->superenalotto().data, atteso->superenalotto().data);
    EXPECT_TRUE(letto->superenalotto().numeri == atteso->superenalotto().numeri);
    EXPECT_EQ(letto->winforlife().concorso, atteso->winforlife().concorso);
    EXPECT_EQ(letto->winforlife().data, atteso->winforlife().data);
    EXPECT_EQ(letto->winforlife().ora, atteso->winforlife().ora);
    EXPECT_TRUE(letto->winforlife().numeri == atteso->winforlife().numeri);
}

TEST(NegozioJet, IlVeroTroncato) {
    if (vero("").empty()) GTEST_SKIP() << "no real draws here";
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.mdb";
    const std::string buono = leggi_file(vero("drawit.mdb")).value();
    // At every page, from the middle of the catalogue to near the end: the last pages hold the last rows.
    for (const std::size_t pagine : {1U, 3U, 18U, 19U, 40U, 100U, 300U, 600U, 800U}) {
        if (pagine * 4096 >= buono.size()) continue;
        scrivi(file, std::string_view{buono}.substr(0, pagine * 4096));
        EXPECT_THAT(motivo(file), AnyOf(HasSubstr("il file è danneggiato"), HasSubstr("il file è troncato")))
            << pagine;
        scrivi(file, std::string_view{buono}.substr(0, pagine * 4096 + 17));
        EXPECT_THAT(motivo(file), HasSubstr("il file è troncato")) << pagine;
    }
}

TEST(NegozioJet, IlVeroConUnaPaginaAzzerata) {
    if (vero("").empty()) GTEST_SKIP() << "no real draws here";
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.mdb";
    std::string byte = leggi_file(vero("drawit.mdb")).value();
    // The first full page of rows behind the middle of the file.
    std::size_t pagina = byte.size() / 2 / 4096 * 4096;
    while (byte[pagina] != 1) pagina += 4096;
    std::fill_n(byte.begin() + static_cast<std::ptrdiff_t>(pagina), 4096, '\0');
    scrivi(file, byte);
    EXPECT_THAT(motivo(file, kDrawit), HasSubstr("dichiara"));
}

TEST(NegozioJet, IlVeroConPassword) {
    if (vero("").empty()) GTEST_SKIP() << "no real draws here";
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.mdb";
    std::string byte = leggi_file(vero("drawit.mdb")).value();
    // The header is scrambled by exclusive-or with fixed bytes, so that this sets the first letter to "A".
    byte[0x42] = static_cast<char>(byte[0x42] ^ 'A');
    scrivi(file, byte);
    EXPECT_EQ(motivo(file), "il file è protetto da una password");
}

TEST(NegozioJet, IlVeroConUnAltraTabella) {
    if (vero("").empty()) GTEST_SKIP() << "no real draws here";
    // Win for Life's file in the place of the Lotto's, and the other way round.
    const CartellaProva cartella;
    std::filesystem::copy_file(vero("drawit2.mdb"), cartella.percorso() / "drawit.mdb");
    std::filesystem::copy_file(vero("drawit.mdb"), cartella.percorso() / "drawit2.mdb");
    EXPECT_EQ(motivo(cartella.percorso() / "drawit.mdb", kTabellaNazionale), "manca la tabella archivion");
    EXPECT_EQ(motivo(cartella.percorso() / "drawit.mdb", kTabellaLotto),
              "nella tabella archivio manca la colonna \"ruota\"");
    EXPECT_EQ(motivo(cartella.percorso() / "drawit2.mdb", kTabellaWinForLife),
              "nella tabella archivio manca la colonna \"ora\"");
}

TEST(NegozioJet, UnaRigaCheDiceDiAvereAltreColonne) {
    if (vero("").empty()) GTEST_SKIP() << "no real draws here";
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit2.mdb";
    const std::string buono = leggi_file(vero("drawit2.mdb")).value();
    // Thirteen columns, of the first draw; at its end one text, which begins at 0x22, and the mask.
    const std::size_t inizio = buono.find(std::string{"\x0d\0\x01\0\0\0\0\0\0\0\xe0\x12\xe6", 13});
    const std::size_t fine = buono.find(std::string{"\x22\0\x01\0\xff\x1f", 6});
    ASSERT_NE(inizio, std::string::npos);
    ASSERT_NE(fine, std::string::npos);
    // Nine columns, five (the library drops such a row); three texts, nine; a first one elsewhere: the last
    // numbers would vanish.
    for (const auto& [dove, bit] :
         {std::pair{inizio, 4}, {inizio, 8}, {fine + 2, 2}, {fine + 2, 8}, {fine, 2}}) {
        SCOPED_TRACE(bit);
        std::string byte = buono;
        byte[dove] = static_cast<char>(byte[dove] ^ bit);
        scrivi(file, byte);
        const auto letti = leggi_jet(file, kTabellaWinForLife);
        ASSERT_FALSE(letti);
        EXPECT_THAT(letti.error().motivo, testing::HasSubstr("il file è danneggiato"));
    }
    scrivi(file, buono);
    EXPECT_TRUE(leggi_jet(file, kTabellaWinForLife));
}

TEST(NegozioJet, IlVeroRovinatoACaso) {
    if (vero("").empty()) GTEST_SKIP() << "no real draws here";
    // The whole road with the real program; prova_rovina_jet has the tens of thousands of rounds.
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit2.mdb";
    const std::string buono = leggi_file(vero("drawit2.mdb")).value();
    std::mt19937 caso{11};
    const auto a_caso = [&](std::size_t n) {
        return std::uniform_int_distribution<std::size_t>{0, n - 1}(caso);
    };
    for (int giro = 0; giro < 150; ++giro) {
        SCOPED_TRACE(giro);
        std::string byte = buono;
        if (giro % 5 == 0) byte.resize(a_caso(byte.size() / 4096) * 4096);
        for (std::size_t n = a_caso(60); n > 0 && !byte.empty(); --n)
            byte[a_caso(byte.size())] = static_cast<char>(a_caso(256));
        scrivi(file, byte);
        const auto letti = leggi_jet(file, kTabellaWinForLife);
        if (letti) {
            EXPECT_EQ(letti->winforlife.size(), 1000U);
        } else {
            EXPECT_FALSE(letti.error().motivo.empty());
        }
    }
}

}  // namespace
}  // namespace sortimetra
