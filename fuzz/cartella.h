#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

namespace sortimetra::fuzz {

/// A folder of this process alone, gone with what is in it when the process ends well.
class Cartella {
  public:
    Cartella() {
        std::string nome = std::filesystem::temp_directory_path() / "sortimetra-fuzz-XXXXXX";
        if (mkdtemp(nome.data()) == nullptr) std::abort();
        percorso_ = nome;
    }
    Cartella(const Cartella&) = delete;
    Cartella& operator=(const Cartella&) = delete;
    ~Cartella() {
        std::error_code errore;
        std::filesystem::remove_all(percorso_, errore);
    }
    [[nodiscard]] const std::filesystem::path& percorso() const { return percorso_; }

    /// Puts a file of these bytes into the folder, in place of the one that is there.
    void scrivi(std::string_view nome, std::string_view byte) const {
        const int file = open((percorso_ / nome).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        if (file < 0 || write(file, byte.data(), byte.size()) != static_cast<ssize_t>(byte.size()))
            std::abort();
        close(file);
    }

    /// The bytes of a file of the folder.
    [[nodiscard]] std::string leggi(std::string_view nome) const {
        std::ifstream flusso{percorso_ / nome, std::ios::binary};
        return {std::istreambuf_iterator<char>{flusso}, {}};
    }

  private:
    std::filesystem::path percorso_;
};

}  // namespace sortimetra::fuzz
