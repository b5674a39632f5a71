#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/importa.h"
#include "support/archivi.h"
#include "support/passi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <functional>
#include <random>
#include <set>
#include <thread>

namespace sortimetra {
namespace {

using prove::CartellaProva;
using testing::ElementsAre;
using testing::HasSubstr;

std::set<std::string> nomi(const std::filesystem::path& cartella) {
    std::set<std::string> tutti;
    for (const auto& voce : std::filesystem::directory_iterator{cartella})
        tutti.insert(voce.path().filename());
    return tutti;
}

/// What a process of its own says, which may take rights and room from itself without taking them from us.
std::string nel_figlio(const std::function<std::string()>& cosa) {
    std::array<int, 2> tubo{};
    EXPECT_EQ(pipe(tubo.data()), 0);
    const pid_t pid = fork();
    if (pid == 0) {
        const std::string detto = cosa();
        (void)!write(tubo[1], detto.data(), detto.size());
        _exit(0);
    }
    close(tubo[1]);
    std::string detto(4096, '\0');
    const ssize_t n = read(tubo[0], detto.data(), detto.size());
    detto.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
    close(tubo[0]);
    int stato = 0;
    waitpid(pid, &stato, 0);
    EXPECT_TRUE(WIFEXITED(stato));
    return detto;
}

std::string esito(const std::expected<void, ErroreArchivio>& e) {
    return e ? "scritto" : e.error().motivo;
}

TEST(FileSicuro, ScriveESostituisce) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "grup.dat";
    EXPECT_EQ(esito(scrivi_file(file, "uno")), "scritto");
    EXPECT_EQ(leggi_file(file).value(), "uno");
    EXPECT_EQ(esito(scrivi_file(file, "")), "scritto");
    EXPECT_EQ(leggi_file(file).value(), "");
    EXPECT_THAT(nomi(cartella.percorso()), ElementsAre("grup.dat"));
}

TEST(FileSicuro, SenzaConfermaRestaIlVecchio) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "grup.dat";
    ASSERT_TRUE(scrivi_file(file, "vecchio"));
    {
        auto f = FileSicuro::apri(file);
        ASSERT_TRUE(f);
        ASSERT_TRUE(f->scrivi("nuovo a metà"));
        EXPECT_EQ(nomi(cartella.percorso()).size(), 2U);
        FileSicuro altrove = std::move(*f);
    }
    EXPECT_EQ(leggi_file(file).value(), "vecchio");
    EXPECT_THAT(nomi(cartella.percorso()), ElementsAre("grup.dat"));
}

TEST(FileSicuro, TieneIDirittiEIlCollegamento) {
    const CartellaProva cartella;
    const auto vero = cartella.percorso() / "vero.dat";
    const auto collegamento = cartella.percorso() / "grup.dat";
    ASSERT_TRUE(scrivi_file(vero, "vecchio"));
    ASSERT_EQ(chmod(vero.c_str(), 0640), 0);
    std::filesystem::create_symlink("vero.dat", collegamento);
    ASSERT_TRUE(scrivi_file(collegamento, "nuovo"));
    EXPECT_TRUE(std::filesystem::is_symlink(collegamento));
    EXPECT_EQ(leggi_file(vero).value(), "nuovo");
    struct stat stato{};
    ASSERT_EQ(stat(vero.c_str(), &stato), 0);
    EXPECT_EQ(stato.st_mode & 0777, 0640U);
}

TEST(FileSicuro, DoveNonSiPuo) {
    const CartellaProva cartella;
    EXPECT_EQ(esito(scrivi_file(cartella.percorso(), "x")), "non si può scrivere: è una cartella");
    EXPECT_EQ(esito(scrivi_file(cartella.percorso() / "manca" / "grup.dat", "x")),
              "non si può scrivere: la cartella non c'è");
    ASSERT_TRUE(scrivi_file(cartella.percorso() / "file", "x"));
    EXPECT_EQ(esito(scrivi_file(cartella.percorso() / "file" / "grup.dat", "x")),
              "non si può scrivere: una parte del percorso non è una cartella");
}

TEST(FileSicuro, CartellaDiSolaLettura) {
    const CartellaProva cartella;
    std::filesystem::permissions(cartella.percorso(), std::filesystem::perms{0555});
    const auto detto = nel_figlio([&] {
        // Root may write everywhere, so it becomes somebody.
        if (geteuid() == 0 && setuid(65534) != 0) return std::string{"non si può diventare qualcuno"};
        return esito(scrivi_file(cartella.percorso() / "grup.dat", "x"));
    });
    std::filesystem::permissions(cartella.percorso(), std::filesystem::perms{0755});
    // Somebody cannot even look into a folder that mkdtemp made, or can look but not write.
    EXPECT_EQ(detto, "non si può scrivere: permesso negato");
    EXPECT_TRUE(std::filesystem::is_empty(cartella.percorso()));
}

/// The disk that is full, as far as one process can feel it: no file may grow beyond `byte`.
void restringi(rlim_t byte) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limite{byte, byte};
    setrlimit(RLIMIT_FSIZE, &limite);
}

TEST(FileSicuro, QuandoLoSpazioFinisce) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "grup.dat";
    ASSERT_TRUE(scrivi_file(file, "vecchio"));
    const auto detto = nel_figlio([&] {
        restringi(1000);
        return esito(scrivi_file(file, std::string(5000, 'x')));
    });
    EXPECT_EQ(detto, "la scrittura non è riuscita: il file sarebbe troppo grande");
    EXPECT_EQ(leggi_file(file).value(), "vecchio");
    EXPECT_THAT(nomi(cartella.percorso()), ElementsAre("grup.dat"));
}

TEST(FileSicuro, LArchivioQuandoLoSpazioFinisce) {
    const CartellaProva cartella;
    // At the first page, in the middle of the first file, in the second file.
    for (const rlim_t byte : {0UL, 1'000'000UL, 1'500'000UL}) {
        const auto detto = nel_figlio([&] {
            restringi(byte);
            SenzaAvanzamento nessuno;
            const auto fatto = crea_dimostrazione(cartella.percorso(), nessuno);
            return fatto ? "scritto" : fatto.error().motivo;
        });
        EXPECT_THAT(detto, HasSubstr("la scrittura non è riuscita: ")) << byte;
        EXPECT_TRUE(std::filesystem::is_empty(cartella.percorso())) << byte;
    }
}

TEST(FileSicuro, TuttiONessuno) {
    const CartellaProva cartella;
    const auto primo = cartella.percorso() / "drawit.db";
    const auto secondo = cartella.percorso() / "drawit2.db";
    ASSERT_TRUE(scrivi_file(primo, "vecchio"));
    const auto prepara = [&] {
        std::vector<FileSicuro> file;
        for (const auto& p : {primo, secondo}) {
            auto f = FileSicuro::apri(p);
            EXPECT_TRUE(f->scrivi("nuovo"));
            file.push_back(std::move(*f));
        }
        return file;
    };
    {
        auto file = prepara();
        // The second rename fails: a folder that is not empty has come in its place meanwhile.
        std::filesystem::create_directories(secondo / "dentro");
        EXPECT_FALSE(FileSicuro::conferma_tutti(file));
    }
    EXPECT_EQ(leggi_file(primo).value(), "vecchio");
    std::filesystem::remove_all(secondo);
    {
        // The same where the first file is new: it goes again.
        std::filesystem::remove(primo);
        auto file = prepara();
        std::filesystem::create_directories(secondo / "dentro");
        EXPECT_FALSE(FileSicuro::conferma_tutti(file));
    }
    EXPECT_FALSE(std::filesystem::exists(primo));
    std::filesystem::remove_all(secondo);
    auto file = prepara();
    ASSERT_TRUE(FileSicuro::conferma_tutti(file));
    EXPECT_EQ(leggi_file(primo).value(), "nuovo");
    EXPECT_EQ(leggi_file(secondo).value(), "nuovo");
    EXPECT_THAT(nomi(cartella.percorso()), ElementsAre("drawit.db", "drawit2.db"));
}

TEST(FileSicuro, InsiemeSiTolgonoESiMettono) {
    const CartellaProva cartella;
    const auto file = [&](std::string_view nome) { return cartella.percorso() / nome; };
    const auto stato = [&] {
        std::string testo;
        for (const std::string& nome : nomi(cartella.percorso()))
            testo += nome + "=" + leggi_file(file(nome)).value() + " ";
        return testo;
    };
    const auto cambia = [&] {
        std::vector<FileSicuro> nuovi;
        for (const char* nome : {"a", "b", "trans"}) {
            nuovi.push_back(FileSicuro::apri(file(nome)).value());
            EXPECT_TRUE(nuovi.back().scrivi("nuovo"));
        }
        return FileSicuro::conferma_tutti(nuovi, std::array{file("trans"), file("resto"), file("manca")});
    };
    const std::string vecchio = "a=vecchio resto=vecchio trans=vecchio ";
    const auto prepara = [&] {
        for (const auto& voce : std::filesystem::directory_iterator{cartella.percorso()})
            std::filesystem::remove(voce);
        for (const char* nome : {"a", "resto", "trans"}) ASSERT_TRUE(scrivi_file(file(nome), "vecchio"));
    };
    // Each step in its turn fails: all as it was. Only what tidies up behind may fail without harm.
    for (int n = 1;; ++n) {
        SCOPED_TRACE(n);
        prepara();
        std::expected<void, ErroreArchivio> esito;
        bool toccato = false;
        {
            const prove::DiscoGuasto guasto{n};
            esito = cambia();
            toccato = prove::DiscoGuasto::toccato();
        }
        if (!toccato) {
            EXPECT_TRUE(esito);
            EXPECT_EQ(stato(), "a=nuovo b=nuovo trans=nuovo ");
            EXPECT_GT(n, 10);
            break;
        }
        if (!esito) {
            EXPECT_EQ(stato(), vecchio);
        } else {
            EXPECT_EQ(leggi_file(file("trans")).value(), "nuovo");
            EXPECT_FALSE(std::filesystem::exists(file("resto")));
        }
    }
    // Stopped dead before any step: "trans" is there only beside what it belongs to.
    for (int n = 1;; ++n) {
        SCOPED_TRACE(n);
        prepara();
        const bool finito = prove::fino_al_passo(n, [&] { (void)cambia(); });
        const auto trans = leggi_file(file("trans"));
        if (trans) {
            EXPECT_EQ(leggi_file(file("a")).value(), *trans);
            EXPECT_EQ(leggi_file(file("b")).value_or("vecchio"), *trans);
        }
        if (finito) break;
    }
}

TEST(FileSicuro, SiSpazzaDietroAChiNonCEPiu) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.db";
    // Killed between writing and renaming: its temporary stays.
    EXPECT_FALSE(prove::fino_al_passo(2, [&] { (void)scrivi_file(file, "nuovo"); }));
    ASSERT_EQ(nomi(cartella.percorso()).size(), 1U);
    // Ours is in work, and other names look like it but are not.
    auto nostro = FileSicuro::apri(file);
    ASSERT_TRUE(nostro);
    for (const char* nome : {".drawit.db.tmp", ".drawit.db.4-5.tmp", ".4194303999-1-0.tmp", "4194303-1-0.tmp",
                             ".drawit.db.4194303-1-0x.tmp"})
        ASSERT_TRUE(scrivi_file(cartella.percorso() / nome, "x"));
    const auto prima = nomi(cartella.percorso());
    ASSERT_TRUE(scrivi_file(cartella.percorso() / kFileCambio, "un cambio aspetta"));
    spazza_temporanei(cartella.percorso());
    EXPECT_EQ(nomi(cartella.percorso()).size(), prima.size() + 1);
    std::filesystem::remove(cartella.percorso() / kFileCambio);
    spazza_temporanei(cartella.percorso());
    EXPECT_EQ(nomi(cartella.percorso()).size(), 6U);
    EXPECT_TRUE(nomi(cartella.percorso()).contains(nostro->temporaneo().filename().string()));
    ASSERT_TRUE(nostro->conferma());
}

TEST(FileSicuro, SiSpazzaAncheDietroAChiNessunoHaSepolto) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.db";
    const pid_t pid = fork();
    if (pid == 0) {
        auto suo = FileSicuro::apri(file);
        (void)suo->lascia();
        _exit(0);
    }
    siginfo_t fine{};
    ASSERT_EQ(waitid(P_PID, static_cast<id_t>(pid), &fine, WEXITED | WNOWAIT), 0);
    ASSERT_EQ(nomi(cartella.percorso()).size(), 1U);
    spazza_temporanei(cartella.percorso());
    EXPECT_TRUE(std::filesystem::is_empty(cartella.percorso()));
    int stato = 0;
    waitpid(pid, &stato, 0);
}

TEST(FileSicuro, DueInsiemeNonSiMescolano) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "ric.ini";
    ASSERT_TRUE(scrivi_file(file, std::string(100'000, 'a')));
    const auto scrivi = [&](char lettera) {
        for (int i = 0; i < 30; ++i) EXPECT_TRUE(scrivi_file(file, std::string(100'000, lettera)));
    };
    std::thread a{scrivi, 'a'};
    std::thread b{scrivi, 'b'};
    for (int i = 0; i < 200; ++i) {
        const auto letto = leggi_file(file);
        ASSERT_TRUE(letto);
        ASSERT_EQ(letto->size(), 100'000U);
        ASSERT_EQ(letto->find_first_not_of(letto->front()), std::string::npos);
    }
    a.join();
    b.join();
    EXPECT_THAT(nomi(cartella.percorso()), ElementsAre("ric.ini"));
}

/// The file as it comes when of each piece so many bytes are used.
std::string a_pezzi(const std::filesystem::path& file, const std::function<std::size_t(PezzoFile)>& usati) {
    auto aperto = FileAPezzi::apri(file, std::size_t{1} << 24).value();
    std::string tutto;
    PezzoFile p = aperto.avanti(0);
    while (!p.ultimo) {
        const std::size_t n = usati(p);
        const std::size_t restano = p.byte.size() - n;
        tutto += p.byte.substr(0, n);
        p = aperto.avanti(n);
        EXPECT_TRUE(p.ultimo || p.byte.size() > restano);
    }
    EXPECT_FALSE(aperto.errore());
    return tutto += p.byte;
}

TEST(FileAPezzi, RendeIlFileComunqueLoSiUsi) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "testo";
    std::mt19937 caso{1};
    for (const std::size_t grande : {0U, 1U, 65535U, 65536U, 65537U, 131072U, 1'000'003U}) {
        SCOPED_TRACE(grande);
        std::string testo(grande, ' ');
        for (char& c : testo) c = static_cast<char>(caso());
        ASSERT_TRUE(scrivi_file(file, testo));
        EXPECT_EQ(a_pezzi(file, [](PezzoFile p) { return p.byte.size(); }), testo);
        EXPECT_EQ(a_pezzi(file, [](PezzoFile) { return 0; }), testo) << "a line as long as the file";
        for (int giro = 0; giro < 5; ++giro)
            EXPECT_EQ(a_pezzi(file, [&](PezzoFile p) { return caso() % (p.byte.size() + 1); }), testo);
    }
}

TEST(FileAPezzi, QuelCheCEQuandoIlFileCambiaSottoGliOcchi) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "testo";
    const std::string testo(200'000, 'x');
    for (const std::size_t dopo : {100'000U, 65'536U, 10U, 400'000U}) {
        SCOPED_TRACE(dopo);
        ASSERT_TRUE(scrivi_file(file, testo));
        auto aperto = FileAPezzi::apri(file, testo.size()).value();
        EXPECT_EQ(aperto.grandezza(), testo.size());
        PezzoFile p = aperto.avanti(0);
        std::size_t letti = p.byte.size();
        std::filesystem::resize_file(file, dopo);
        while (!p.ultimo) {
            p = aperto.avanti(p.byte.size());
            letti += p.byte.size();
        }
        EXPECT_EQ(letti, std::clamp<std::size_t>(dopo, 65'536, testo.size())) << "never more than at first";
    }
    EXPECT_THAT(FileAPezzi::apri(file, 99).error().motivo, HasSubstr("troppo grande"));
    EXPECT_EQ(FileAPezzi::apri(cartella.percorso(), 99).error().motivo, "è una cartella, non un file");
    EXPECT_EQ(FileAPezzi::apri(cartella.percorso() / "manca", 99).error().motivo, "il file non c'è");
}

TEST(LeggiFile, CioCheNonEUnFile) {
    const CartellaProva cartella;
    const auto motivo = [](const std::filesystem::path& p) { return leggi_file(p).error().motivo; };
    EXPECT_EQ(motivo(cartella.percorso() / "manca"), "il file non c'è");
    EXPECT_EQ(motivo(cartella.percorso()), "è una cartella, non un file");
    EXPECT_EQ(motivo("/dev/zero"), "non è un file");
    ASSERT_TRUE(scrivi_file(cartella.percorso() / "grande", std::string(100, 'x')));
    EXPECT_EQ(leggi_file(cartella.percorso() / "grande", 99).error().motivo,
              "il file è troppo grande: ha 100 byte, se ne leggono al più 99");
    std::filesystem::create_symlink("tondo", cartella.percorso() / "tondo");
    EXPECT_EQ(motivo(cartella.percorso() / "tondo"),
              "il file non si può leggere: i collegamenti girano in tondo");
}

}  // namespace
}  // namespace sortimetra
