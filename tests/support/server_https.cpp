#include "support/server_https.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <fstream>
#include <iterator>
#include <thread>

extern char** environ;

namespace sortimetra::prove {

namespace {

std::string tutto(const std::filesystem::path& file) {
    std::ifstream flusso{file, std::ios::binary};
    return {std::istreambuf_iterator<char>{flusso}, {}};
}

}  // namespace

ServerHttps::ServerHttps() {
    std::array<int, 2> tubo{};
    if (pipe2(tubo.data(), O_CLOEXEC) != 0) return;
    posix_spawn_file_actions_t azioni;
    posix_spawn_file_actions_init(&azioni);
    posix_spawn_file_actions_adddup2(&azioni, tubo[0], STDIN_FILENO);
    std::string programma = "python3";
    std::string testo = SORTIMETRA_RADICE "/tests/support/server_https.py";
    std::string cartella = cartella_.percorso().string();
    std::array<char*, 4> argomenti{programma.data(), testo.data(), cartella.data(), nullptr};
    const int esito = posix_spawnp(&figlio_, "python3", &azioni, nullptr, argomenti.data(), environ);
    posix_spawn_file_actions_destroy(&azioni);
    close(tubo[0]);
    ingresso_ = tubo[1];
    if (esito != 0) {
        figlio_ = -1;
        return;
    }
    const auto porte = cartella_.percorso() / "porte";
    std::error_code errore;
    while (!std::filesystem::exists(porte, errore)) {
        if (waitpid(figlio_, nullptr, WNOHANG) != 0) {
            figlio_ = -1;  // it ended: something that it needs is missing
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds{5});
    }
    std::ifstream flusso{porte};
    std::string nome;
    for (int porta = 0; flusso >> nome >> porta;) porte_[nome] = porta;
    autorita_ = tutto(cartella_.percorso() / "nostra.pem");
}

ServerHttps::~ServerHttps() {
    if (ingresso_ >= 0) close(ingresso_);
    if (figlio_ > 0) waitpid(figlio_, nullptr, 0);
}

std::string ServerHttps::indirizzo(const std::string& certificato, const std::string& percorso) const {
    return "https://localhost:" + std::to_string(porte_.at(certificato)) + "/" + percorso;
}

}  // namespace sortimetra::prove
