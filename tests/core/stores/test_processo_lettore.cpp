#include "files/descrittore.h"
#include "jet/sonda.h"
#include "stores/processo_lettore.h"
#include "support/archivi.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <string>

namespace sortimetra {
namespace {

using prove::CartellaProva;
using prove::Sonda;
using std::chrono::milliseconds;
using testing::HasSubstr;

const std::filesystem::path kSonda = std::filesystem::path{SORTIMETRA_BIN} / "sonda-lettore";

/// No test here waits for long: what does not end is what is tested.
constexpr LimitiLettore kStretti{.tempo = milliseconds{300}, .congedo = milliseconds{100}, .uscita = 1 << 20};
constexpr LimitiLettore kUscitaStretta{.uscita = 1 << 20};

std::string esito(Sonda modo, const LimitiLettore& limiti = {}) {
    const Descrittore niente{open("/dev/null", O_RDONLY | O_CLOEXEC)};
    const auto detto = esegui_lettore(kSonda, niente.numero(), static_cast<unsigned>(modo), limiti);
    return detto ? "detto: " + *detto : detto.error();
}

/// Children of this process, running or not yet waited for.
bool nessun_figlio() {
    return waitpid(-1, nullptr, WNOHANG) < 0;
}

TEST(ProcessoLettore, NonSiAspettaPerSempre) {
    EXPECT_EQ(esito(Sonda::Tace, kStretti), "il file è danneggiato: la lettura non finisce");
    EXPECT_TRUE(nessun_figlio());
}

TEST(ProcessoLettore, ChiudeLUscitaEViveAncora) {
    EXPECT_EQ(esito(Sonda::ChiudeEVive, kStretti), "il file è danneggiato: la lettura non finisce");
    EXPECT_TRUE(nessun_figlio());
}

TEST(ProcessoLettore, UscitaSenzaFine) {
    EXPECT_EQ(esito(Sonda::SenzaFine, kUscitaStretta),
              "il file è danneggiato: contiene più righe di quante vi stiano");
    EXPECT_TRUE(nessun_figlio());
}

TEST(ProcessoLettore, QuantoPuoDireDiUnFile) {
    EXPECT_EQ(limiti_lettore(0).uscita, 65'536U);
    EXPECT_EQ(limiti_lettore(1 << 20).uscita, (8U << 20) + 65'536U);
    EXPECT_EQ(limiti_lettore(1 << 30).uscita, std::size_t{64} << 20);
    EXPECT_EQ(limiti_lettore(~std::uint64_t{0}).uscita, std::size_t{64} << 20);
}

TEST(ProcessoLettore, ComeFinisce) {
    EXPECT_EQ(esito(Sonda::SenzaMemoria), "la memoria non basta per leggere il file");
    EXPECT_EQ(esito(Sonda::Uccisa), "la memoria non basta per leggere il file");
    EXPECT_EQ(esito(Sonda::SenzaRecinto),
              "il programma sonda-lettore non legge: il sistema non permette di isolarlo (seccomp)");
}

TEST(ProcessoLettore, NonSiAvvia) {
    const CartellaProva cartella;
    const auto avvia = [](const std::filesystem::path& programma) {
        return esegui_lettore(programma, STDIN_FILENO, 1).error();
    };
    EXPECT_EQ(avvia(cartella.percorso() / "manca"), "il programma manca non si avvia: non c'è");
    std::ofstream{cartella.percorso() / "testo"} << "?";
    EXPECT_EQ(avvia(cartella.percorso() / "testo"), "il programma testo non si avvia: permesso negato");
}

TEST(ProcessoLettore, SenzaAltriProcessi) {
    if (geteuid() == 0) GTEST_SKIP() << "root has no limit of processes";
    rlimit prima{};
    ASSERT_EQ(getrlimit(RLIMIT_NPROC, &prima), 0);
    const rlimit nessuno{0, prima.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NPROC, &nessuno), 0);
    const std::string detto = esito(Sonda::Tace, kStretti);
    setrlimit(RLIMIT_NPROC, &prima);
    EXPECT_EQ(detto, "il programma sonda-lettore non si avvia: il sistema non concede altri processi");
}

TEST(ProcessoLettore, DopoSiTracciaComePrima) {
    const int prima = prctl(PR_GET_DUMPABLE, 0, 0, 0, 0);
    (void)esito(Sonda::SenzaMemoria);
    EXPECT_EQ(prctl(PR_GET_DUMPABLE, 0, 0, 0, 0), prima);
}

}  // namespace
}  // namespace sortimetra
