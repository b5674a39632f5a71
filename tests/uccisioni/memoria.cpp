// Writes the memory of the searches without end, to be killed at it; and looks whether what is there is
// whole.
#include "files/file_sicuro.h"
#include "files/memoria_ricerca.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// The groups that the file has from the beginning.
constexpr int kGruppi = 7;

/// Sections and keys, without the values.
std::vector<std::string> ossatura(const std::filesystem::path& cartella) {
    const auto testo = sortimetra::leggi_file(cartella / "ric.ini");
    std::vector<std::string> righe;
    for (std::size_t da = 0; testo && da < testo->size();) {
        const auto fine = testo->find("\r\n", da);
        if (fine == std::string::npos) return {};
        righe.push_back(testo->substr(da, fine - da));
        righe.back().resize(std::min(righe.back().size(), righe.back().find('=')));
        da = fine + 2;
    }
    return righe;
}

}  // namespace

int main(int quanti, char** parole) {
    if (quanti != 3) return 2;
    const std::filesystem::path cartella = parole[2];
    if (std::string_view{parole[1]} == "esamina") {
        const auto intera = cartella / "intera";
        std::filesystem::create_directories(intera);
        sortimetra::MemoriaRicerca{intera}.crea_memoria();
        return !ossatura(intera).empty() && ossatura(cartella) == ossatura(intera) ? 0 : 1;
    }
    sortimetra::MemoriaRicerca memoria{cartella};
    memoria.crea_se_manca();
    memoria.completa();
    for (int i = 0;; ++i) {
        memoria.scrivi_gruppo(i % kGruppi);
        memoria.scrivi_selezione(i % kGruppi, std::string(static_cast<std::size_t>(i % 60), 'x'), i);
    }
}
