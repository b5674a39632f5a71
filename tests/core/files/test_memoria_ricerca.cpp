#include "files/memoria_ricerca.h"
#include "support/archivi.h"
#include "text/testo_ini.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <vector>

namespace sortimetra {
namespace {

namespace fs = std::filesystem;
using prove::CartellaProva;

std::string leggi(const fs::path& file) {
    std::ifstream flusso{file, std::ios::binary};
    return {std::istreambuf_iterator<char>{flusso}, {}};
}

void scrivi(const fs::path& file, std::string_view testo) {
    std::ofstream{file, std::ios::binary} << testo;
}

std::size_t quanti_file(const fs::path& cartella) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator{cartella}, {}));
}

/// A `ric.ini` with the given bytes, and what reads it.
struct Prova {
    CartellaProva cartella;
    MemoriaRicerca memoria{cartella.percorso()};

    explicit Prova(std::string_view testo) { scrivi(memoria.file(), testo); }
    [[nodiscard]] std::string nome(std::string_view chiave) const {
        return memoria.leggi_memoria("nome", chiave);
    }
    [[nodiscard]] std::string testo() const { return leggi(memoria.file()); }
};

constexpr std::string_view kPredefinito =
    "[TipoRic]\r\n"
    "index=0\r\n"
    "[NomeRIC]\r\n"
    "0=Ritardo e frequenza dei 90 numeri\r\n"
    "1=Ambata capogioco\r\n"
    "2=Ricerche su tutti i Terni\r\n"
    "3=Grattacielo dei 90\r\n"
    "4=Cinquine dei 90\r\n"
    "5=Ricerche su Numeri Personali\r\n"
    "6=Ritardo e frequenza del primo estratto su ruota\r\n"
    "0t=0\r\n"
    "1t=0\r\n"
    "2t=0\r\n"
    "3t=0\r\n"
    "4t=0\r\n"
    "5t=0\r\n"
    "6t=0\r\n"
    "[Ruota]\r\n"
    "Bari=1\r\n"
    "Cagliari=0\r\n"
    "Firenze=0\r\n"
    "Genova=0\r\n"
    "Milano=0\r\n"
    "Napoli=0\r\n"
    "Palermo=0\r\n"
    "Roma=0\r\n"
    "Torino=0\r\n"
    "Venezia=0\r\n"
    "[Concorsi]\r\n"
    "Indice=0\r\n"
    "[Intervallo]\r\n"
    "from=first\r\n"
    "to=last\r\n";

TEST(MemoriaRicerca, CreaTuttoIlFilePredefinito) {
    const CartellaProva cartella;
    MemoriaRicerca memoria{cartella.percorso() / "nuova"};
    EXPECT_FALSE(memoria.esiste());
    memoria.crea_memoria();
    EXPECT_TRUE(memoria.esiste());
    EXPECT_EQ(leggi(memoria.file()), kPredefinito);
    EXPECT_EQ(quanti_file(cartella.percorso() / "nuova"), 1U) << "nessun file provvisorio resta indietro";
    EXPECT_EQ(memoria.leggi_memoria("tipo", "qualsiasi"), "0");
    EXPECT_EQ(memoria.leggi_memoria("nome", "6"), "Ritardo e frequenza del primo estratto su ruota");
    EXPECT_EQ(memoria.leggi_memoria("nome", "6t"), "0");
}

TEST(MemoriaRicerca, CreaSoloDoveManca) {
    Prova p{"[TipoRic]\r\nindex=4\r\n"};
    p.memoria.crea_se_manca();
    EXPECT_EQ(p.testo(), "[TipoRic]\r\nindex=4\r\n");
    fs::remove(p.memoria.file());
    p.memoria.crea_se_manca();
    EXPECT_EQ(p.testo(), kPredefinito);
    scrivi(p.memoria.file(), "vecchio");
    p.memoria.crea_memoria();
    EXPECT_EQ(p.testo(), kPredefinito);
}

TEST(MemoriaRicerca, ChiaveMancanteVale0) {
    const CartellaProva cartella;
    const MemoriaRicerca assente{cartella.percorso()};
    EXPECT_EQ(assente.leggi_memoria("tipo", ""), "0");
    EXPECT_EQ(assente.leggi_memoria("nome", "3"), "0");
    const Prova p{"[NomeRIC]\r\n1=Uno\r\n"};
    EXPECT_EQ(p.nome("2"), "0");
    EXPECT_EQ(p.memoria.leggi_memoria("tipo", ""), "0");
    EXPECT_EQ(Prova{"1=fuori da ogni sezione\r\n"}.nome("1"), "0");
    EXPECT_EQ(Prova{"[NomeRIC]\r\n1=\r\n"}.nome("1"), "") << "c'è, ma è vuota";
}

TEST(MemoriaRicerca, NomiSenzaRiguardoAlleMaiuscole) {
    Prova p{"[tiporic]\r\nINDEX=3\r\n[NOMERIC]\r\n0T=17\r\n[NomeRic]\r\n4=Quattro\r\n"};
    EXPECT_EQ(p.memoria.leggi_memoria("tipo", ""), "3");
    EXPECT_EQ(p.nome("0t"), "17");
    EXPECT_EQ(p.nome("4"), "Quattro") << "NomeRIC e NomeRic sono una sezione sola";
    p.memoria.scrivi_gruppo(5);
    p.memoria.scrivi_selezione(4, "Cinque", 2);
    EXPECT_EQ(p.testo(), "[tiporic]\r\nINDEX=5\r\n[NOMERIC]\r\n0T=17\r\n4t=2\r\n[NomeRic]\r\n4=Cinque\r\n");
}

TEST(MemoriaRicerca, UnAltraParolaLeggeLaSezioneDiQuelNome) {
    const Prova p{"[sezione]\r\nx=7\r\n[altra]\r\nx=8\r\n"};
    EXPECT_EQ(p.memoria.leggi_memoria("altra", "x"), "7");
    EXPECT_EQ(p.memoria.leggi_memoria("altra", "y"), "0");
}

TEST(MemoriaRicerca, AccentiInWindows1252) {
    Prova p{""};
    p.memoria.scrivi_selezione(0, "I 10 numeri più in ritardo su ogni ruota", 3);
    EXPECT_EQ(p.testo(), "[NomeRIC]\r\n0=I 10 numeri pi\xF9 in ritardo su ogni ruota\r\n0t=3\r\n");
    EXPECT_EQ(p.nome("0"), "I 10 numeri più in ritardo su ogni ruota");
}

TEST(MemoriaRicerca, LimiteDi250Caratteri) {
    const std::string lungo(300, 'a');
    const Prova p{"[NomeRIC]\r\n1=" + lungo + "\r\n2=" + std::string(240, ' ') + "b\r\n"};
    EXPECT_EQ(p.nome("1"), std::string(249, 'a')) << "il carattere 250 è il NUL che chiude";
    EXPECT_EQ(p.nome("2"), "b");
    const Prova accenti{"[NomeRIC]\n1=" + std::string(300, '\xE8')};
    EXPECT_EQ(accenti.nome("1").size(), 249U * 2) << "caratteri, non byte di UTF-8";
}

TEST(MemoriaRicerca, VirgoletteBianchiENul) {
    using namespace std::string_literals;
    EXPECT_EQ(Prova{"[NomeRIC]\r\n1=\"Ambata capogioco\"\r\n"}.nome("1"), "Ambata capogioco");
    EXPECT_EQ(Prova{"[NomeRIC]\r\n1='Ambata capogioco'\r\n"}.nome("1"), "Ambata capogioco");
    EXPECT_EQ(Prova{"[NomeRIC]\r\n1=\"mezza\r\n"}.nome("1"), "\"mezza");
    EXPECT_EQ(Prova{"  [ NomeRIC ]  \n \t1 =  Ambata  \n"}.nome("1"), "Ambata");
    EXPECT_EQ(Prova{"[NomeRIC]\n1=Amb\0ata\n"s}.nome("1"), "Amb");
    EXPECT_EQ(Prova{"[NomeRIC]\n;1=commento\n1=a=b\n"}.nome("1"), "a=b");
    EXPECT_EQ(Prova{"\xEF\xBB\xBF[NomeRIC]\n1=segno\n"}.nome("1"), "segno");
    Prova p{""};
    p.memoria.scrivi_selezione(1, "\"tutto fra virgolette\"", 0);
    EXPECT_EQ(p.nome("1"), "\"tutto fra virgolette\"");
    p.memoria.scrivi_selezione(1, "riga\r\n[TipoRic]\r\nindex=9", 0);
    EXPECT_EQ(p.nome("1"), "riga") << "un nome non può portare righe sue nel file";
    EXPECT_EQ(p.memoria.leggi_memoria("tipo", ""), "0");
}

TEST(MemoriaRicerca, ConservaRigheESezioniSconosciute) {
    using namespace std::string_literals;
    const std::string prima =
        "; una nota\r\nriga senza segno\r\n[Altro]\r\nx = 1\r\n\r\n[TipoRic]\nindex = 2\n\n[Coda]\r\nresto\xFF\0fine"s;
    Prova p{prima};
    p.memoria.scrivi_gruppo(4);
    p.memoria.scrivi_selezione(2, "Terzine fabarri", 5);
    EXPECT_EQ(p.testo(),
              "; una nota\r\nriga senza segno\r\n[Altro]\r\nx = 1\r\n\r\n[TipoRic]\nindex "
              "=4\n\n[Coda]\r\nresto\xFF\0fine\r\n"
              "[NomeRIC]\r\n2=Terzine fabarri\r\n2t=5\r\n"s);
}

TEST(MemoriaRicerca, ChiaveNuovaInCodaAllaSuaSezione) {
    Prova p{"[NomeRIC]\r\n0=a\r\n\r\n; fine\r\n\r\n[Ruota]\r\nBari=1\r\n"};
    p.memoria.scrivi_selezione(0, "b", 1);
    EXPECT_EQ(p.testo(), "[NomeRIC]\r\n0=b\r\n0t=1\r\n\r\n; fine\r\n\r\n[Ruota]\r\nBari=1\r\n");
}

TEST(MemoriaRicerca, LoStessoValoreNonRiscriveIlFile) {
    Prova p{"[TipoRic]\r\nindex=4\r\n"};
    struct stat prima{}, dopo{};
    ASSERT_EQ(::stat(p.memoria.file().c_str(), &prima), 0);
    p.memoria.scrivi_gruppo(4);
    ASSERT_EQ(::stat(p.memoria.file().c_str(), &dopo), 0);
    EXPECT_EQ(prima.st_ino, dopo.st_ino);
    p.memoria.scrivi_gruppo(5);
    ASSERT_EQ(::stat(p.memoria.file().c_str(), &dopo), 0);
    EXPECT_NE(prima.st_ino, dopo.st_ino) << "ogni cambio sostituisce il file intero";
}

TEST(MemoriaRicerca, FileOstili) {
    const CartellaProva cartella;
    MemoriaRicerca memoria{cartella.percorso()};
    // A folder of that name, a pipe nobody writes to, a link to nowhere: nothing happens, nothing hangs.
    fs::create_directory(memoria.file());
    memoria.crea_se_manca();
    memoria.scrivi_gruppo(3);
    EXPECT_EQ(memoria.leggi_memoria("tipo", ""), "0");
    EXPECT_TRUE(fs::is_directory(memoria.file()));
    fs::remove(memoria.file());
    ASSERT_EQ(::mkfifo(memoria.file().c_str(), 0600), 0);
    EXPECT_EQ(memoria.leggi_memoria("nome", "1"), "0");
    memoria.scrivi_gruppo(3);
    EXPECT_TRUE(fs::is_fifo(memoria.file()));
    fs::remove(memoria.file());
    // What is far too large for a memory is neither read nor written over.
    std::string enorme = "[TipoRic]\r\nindex=2\r\n";
    enorme.resize(3U << 20U, 'x');
    scrivi(memoria.file(), enorme);
    EXPECT_EQ(memoria.leggi_memoria("tipo", ""), "0");
    memoria.scrivi_gruppo(3);
    EXPECT_EQ(leggi(memoria.file()), enorme);
    EXPECT_EQ(quanti_file(cartella.percorso()), 1U);
}

TEST(MemoriaRicerca, CartellaChiusaNonCambiaNulla) {
    Prova p{"[TipoRic]\r\nindex=2\r\n"};
    // The administrator may write anywhere: as somebody else, then, for the time of the test.
    const bool amministratore = ::geteuid() == 0;
    ::chmod(p.cartella.percorso().c_str(), 0555);
    if (amministratore) {
        ASSERT_EQ(::seteuid(65534), 0);
    }
    p.memoria.scrivi_gruppo(5);
    p.memoria.crea_memoria();
    scrivi_skin(p.cartella.percorso() / "skin", 4);
    const auto letto = p.memoria.leggi_memoria("tipo", "");
    const auto skin = leggi_skin(p.cartella.percorso() / "skin");
    if (amministratore) {
        ASSERT_EQ(::seteuid(0), 0);
    }
    ::chmod(p.cartella.percorso().c_str(), 0755);
    EXPECT_EQ(letto, "2");
    EXPECT_EQ(skin, 1);
    EXPECT_EQ(p.testo(), "[TipoRic]\r\nindex=2\r\n");
    EXPECT_EQ(quanti_file(p.cartella.percorso()), 1U);
}

/// Whatever bytes are there: a written value is read back, and every byte before it is still there.
TEST(MemoriaRicerca, ByteACaso) {
    constexpr std::string_view kPezzi[] = {"[",  "]",       "NomeRIC", "nomeric",     "=", "1",
                                           "1t", "\r\n",    "\n",      "\r",          ";", "\"",
                                           " ",  "TipoRic", "index",   "\xEF\xBB\xBF"};
    for (std::uint32_t seme = 1; seme <= 3000; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        std::string testo;
        const auto quanti = caso() % 60;
        for (std::uint32_t i = 0; i < quanti; ++i) {
            if (caso() % 3 == 0)
                testo += static_cast<char>(caso() % 256);
            else
                testo += kPezzi[caso() % std::size(kPezzi)];
        }
        const std::string dopo = con_valore_ini(testo, "NomeRIC", "1", "Ambata capogioco");
        ASSERT_EQ(valore_ini(dopo, "NomeRIC", "1"), "Ambata capogioco");
        // The other keys stay.
        for (const auto* chiave : {"1t", "index"})
            for (const auto* sezione : {"NomeRIC", "TipoRic"})
                ASSERT_EQ(valore_ini(dopo, sezione, chiave), valore_ini(testo, sezione, chiave));
        ASSERT_EQ(con_valore_ini(dopo, "NomeRIC", "1", "Ambata capogioco"), dopo);
        // Any bytes survive the way through UTF-8.
    }
}

TEST(MemoriaRicerca, DueIstanzeScrivonoInsieme) {
    const CartellaProva cartella;
    constexpr int kProcessi = 4;
    constexpr int kGiri = 50;
    MemoriaRicerca{cartella.percorso()}.crea_memoria();
    std::vector<pid_t> figli;
    for (int p = 0; p < kProcessi; ++p) {
        const pid_t figlio = ::fork();
        ASSERT_GE(figlio, 0);
        if (figlio == 0) {
            MemoriaRicerca memoria{cartella.percorso()};
            // Each has a group of its own: were one change made on an old copy of the file, another would be
            // lost.
            for (int i = 1; i <= kGiri; ++i) {
                memoria.scrivi_selezione(p, "ricerca " + std::to_string(i), i);
                if (memoria.leggi_memoria("nome", std::to_string(p)) != "ricerca " + std::to_string(i))
                    ::_exit(1);
            }
            memoria.completa();
            ::_exit(0);
        }
        figli.push_back(figlio);
    }
    for (const pid_t figlio : figli) {
        int stato = 0;
        ::waitpid(figlio, &stato, 0);
        EXPECT_TRUE(WIFEXITED(stato) && WEXITSTATUS(stato) == 0);
    }
    std::string atteso{kPredefinito};
    for (int p = 0; p < kProcessi; ++p) {
        atteso = con_valore_ini(atteso, "NomeRIC", std::to_string(p), "ricerca " + std::to_string(kGiri));
        atteso = con_valore_ini(atteso, "NomeRIC", std::to_string(p) + "t", std::to_string(kGiri));
    }
    EXPECT_EQ(leggi(cartella.percorso() / "ric.ini"), atteso);
    EXPECT_EQ(quanti_file(cartella.percorso()), 1U);
}

/// Holds the lock of a folder, as another instance would.
class Altrui {
  public:
    explicit Altrui(const std::filesystem::path& cartella)
        : fd_{::open(cartella.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)} {
        EXPECT_EQ(::flock(fd_, LOCK_EX), 0);
    }
    Altrui(const Altrui&) = delete;
    Altrui& operator=(const Altrui&) = delete;
    ~Altrui() { ::close(fd_); }

  private:
    int fd_;
};

TEST(MemoriaRicerca, MentreUnAltraScriveTieneEScriveDopo) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "ric.ini";
    {
        MemoriaRicerca memoria{cartella.percorso()};
        {
            const Altrui altrui{cartella.percorso()};
            memoria.crea_se_manca();
            memoria.scrivi_gruppo(3);
            memoria.scrivi_selezione(2, "Ambata capogioco", 1);
            memoria.scrivi_selezione(2, "Cadenze", 7);
            EXPECT_FALSE(std::filesystem::exists(file)) << "nothing is written under another one's lock";
            EXPECT_TRUE(memoria.in_sospeso());
            EXPECT_FALSE(memoria.riprova());
            // Read back as if it were there already.
            EXPECT_EQ(memoria.leggi_memoria("tipo", ""), "3");
            EXPECT_EQ(memoria.leggi_memoria("nome", "2"), "Cadenze");
            EXPECT_EQ(memoria.leggi_memoria("nome", "3"), "Grattacielo dei 90");
        }
        EXPECT_TRUE(memoria.riprova());
        EXPECT_FALSE(memoria.in_sospeso());
        const std::string scritto = leggi(file);
        EXPECT_EQ(valore_ini(scritto, "NomeRIC", "2"), "Cadenze");
        EXPECT_EQ(valore_ini(scritto, "NomeRIC", "2t"), "7");
        EXPECT_EQ(valore_ini(scritto, "TipoRic", "index"), "3");
        // What the other one changes meanwhile stays.
        {
            const Altrui altrui{cartella.percorso()};
            memoria.scrivi_gruppo(5);
            scrivi(file, con_valore_ini(scritto, "NomeRIC", "0", "di un'altra"));
        }
    }
    const std::string infine = leggi(file);
    EXPECT_EQ(valore_ini(infine, "TipoRic", "index"), "5") << "the end writes what was kept";
    EXPECT_EQ(valore_ini(infine, "NomeRIC", "0"), "di un'altra");
}

TEST(Skin, NonAspettaChiScrive) {
    const CartellaProva cartella;
    const auto skin = cartella.percorso();
    {
        const Altrui altrui{skin};
        EXPECT_FALSE(scrivi_skin(skin, 4, Attesa::nessuna));
        EXPECT_EQ(leggi_skin(skin), 1);
    }
    EXPECT_TRUE(scrivi_skin(skin, 4, Attesa::nessuna));
    EXPECT_EQ(leggi_skin(skin), 4);
}

TEST(Skin, MancanteVale1ELeggerlaNonScriveNulla) {
    const CartellaProva cartella;
    const auto skin = cartella.percorso() / "skin";
    EXPECT_EQ(leggi_skin(skin), 1);
    EXPECT_FALSE(std::filesystem::exists(skin));
    scrivi(skin / "skn.dat", "");
    EXPECT_EQ(leggi_skin(skin), 1);
    EXPECT_EQ(leggi(skin / "skn.dat"), "");
}

TEST(Skin, LeggeEScrive) {
    const CartellaProva cartella;
    for (int i = 1; i <= 9; ++i) {
        scrivi_skin(cartella.percorso(), i);
        EXPECT_EQ(leggi_skin(cartella.percorso()), i);
    }
    scrivi(cartella.percorso() / "skn.dat", " 7 ");
    EXPECT_EQ(leggi_skin(cartella.percorso()), 7);
    EXPECT_EQ(quanti_file(cartella.percorso()), 1U);
}

TEST(Skin, FuoriDa1A9RestaComEra) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "skn.dat";
    for (const std::string numero : {"0", "10", "-3", "2147483647"}) {
        scrivi(file, numero);
        EXPECT_EQ(leggi_skin(cartella.percorso()), std::stoi(numero));
        EXPECT_EQ(leggi(file), numero);
    }
    for (const std::string testo : {"rosso", "3rosso", "99999999999999", "\xFF\xFE"}) {
        scrivi(file, testo);
        EXPECT_EQ(leggi_skin(cartella.percorso()), std::nullopt);
        EXPECT_EQ(leggi(file), testo);
    }
}

}  // namespace
}  // namespace sortimetra
