#include "files/descrittore.h"
#include "files/file_sicuro.h"
#include "jet/sonda.h"
#include "stores/processo_lettore.h"
#include "support/archivi.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using prove::CartellaProva;
using prove::Sonda;
using testing::AnyOf;

constexpr std::string_view kContenuto = "resta com'è";

/// What came of each attempt of the probe. It is given a file that it could write.
class Tentativi {
  public:
    explicit Tentativi(Sonda modo) {
        file_ = cartella_.percorso() / "drawit.mdb";
        EXPECT_TRUE(scrivi_file(file_, kContenuto));
        const Descrittore aperto{open(file_.c_str(), O_RDWR | O_CLOEXEC)};
        // Something of this program's that the probe inherits.
        const Descrittore ereditato{open(file_.c_str(), O_RDWR)};
        const auto detto = esegui_lettore(std::filesystem::path{SORTIMETRA_BIN} / "sonda-lettore",
                                          aperto.numero(), static_cast<unsigned>(modo));
        EXPECT_TRUE(detto) << detto.error();
        if (!detto) return;
        std::istringstream parole{*detto};
        for (std::string nome, esito; parole >> nome >> esito;) esiti_[nome] = esito;
    }
    [[nodiscard]] std::string operator[](const std::string& nome) const {
        const auto trovato = esiti_.find(nome);
        return trovato == esiti_.end() ? "non tentato" : trovato->second;
    }
    [[nodiscard]] std::string contenuto() const { return leggi_file(file_).value_or("non c'è più"); }

  private:
    CartellaProva cartella_;
    std::filesystem::path file_;
    std::map<std::string, std::string> esiti_;
};

const std::vector<std::string> kVietati{
    "open",       "openat2",      "open-scrittura", "memoria-padre",  "ftruncate", "truncate",
    "write-file", "rename",       "unlink",         "read",           "mmap-file", "socket",
    "connect",    "socket-unix",  "ptrace",         "kill",           "tgkill",    "fork",
    "exec",       "vfork-clone3", "prctl",          "mmap-programma", "io_uring",  "process_vm_writev"};

TEST(Recinto, OgniTentativoFallisce) {
    const Tentativi esiti{Sonda::Recinto};
    for (const std::string& nome : kVietati) EXPECT_EQ(esiti[nome], "EPERM") << nome;
    EXPECT_EQ(esiti["descrittori"], "3");
    EXPECT_EQ(esiti.contenuto(), kContenuto);
}

TEST(Recinto, BastaIlFiltro) {
    const Tentativi esiti{Sonda::SoloFiltro};
    for (const std::string& nome : kVietati) EXPECT_EQ(esiti[nome], "EPERM") << nome;
    EXPECT_EQ(esiti.contenuto(), kContenuto);
}

TEST(Recinto, SenzaRecintoRiescono) {
    // What fails within the fence fails because of it.
    const Tentativi esiti{Sonda::Libera};
    for (const auto* nome :
         {"open", "open-scrittura", "ftruncate", "truncate", "write-file", "read", "mmap-file", "socket",
          "connect", "socket-unix", "kill", "tgkill", "fork", "exec", "prctl"})
        EXPECT_EQ(esiti[nome], "riuscito") << nome;
    // (Some containers forbid this one by themselves.)
    EXPECT_THAT(esiti["ptrace"], AnyOf("riuscito", "EPERM"));
    EXPECT_NE(esiti["descrittori"], "3");
    EXPECT_NE(esiti.contenuto(), kContenuto);
}

TEST(Recinto, AncheLandlockDaSolo) {
    const Tentativi esiti{Sonda::SoloLandlock};
    if (esiti["landlock"] != "sì") GTEST_SKIP() << "this kernel has no Landlock";
    EXPECT_THAT(esiti["open"], AnyOf("EACCES", "EPERM"));
    EXPECT_THAT(esiti["open-scrittura"], AnyOf("EACCES", "EPERM"));
    EXPECT_THAT(esiti["unlink"], AnyOf("EACCES", "EPERM"));
    EXPECT_EQ(esiti["exec"], "EIO");
    EXPECT_EQ(esiti["fork"], "riuscito");
}

TEST(Recinto, ChiAvviaNonSiTraccia) {
    if (geteuid() == 0) GTEST_SKIP() << "everything is permitted to root";
    // Without any fence on its side.
    EXPECT_EQ(Tentativi{Sonda::Libera}["memoria-padre"], "EACCES");
}

}  // namespace
}  // namespace sortimetra
