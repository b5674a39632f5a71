// Writes the manual pages and the completions of both programs into a folder, its only argument, under the
// names by which `man` and the shells find them.

#include "cli/completamento.h"
#include "cli/manuali.h"
#include "desktop/opzioni_avvio.h"
#include "files/file_sicuro.h"

#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

int main(int argc, char** argv) {
    using namespace sortimetra;
    if (argc != 2) {
        std::fputs("uso: genera-manuali CARTELLA\n", stderr);
        return 2;
    }
    const std::filesystem::path cartella = argv[1];
    const std::pair<const char*, std::string> pagine[] = {
        {"man/sortimetra-cli.1", manuale_cli()},
        {"man/sortimetra.1", manuale_finestra(kOpzioniAvvio)},
        {"bash/sortimetra-cli", completamento_bash_cli()},
        {"bash/sortimetra", completamento_bash_finestra(kOpzioniAvvio)},
        {"zsh/_sortimetra-cli", completamento_zsh_cli()},
        {"zsh/_sortimetra", completamento_zsh_finestra(kOpzioniAvvio)},
    };
    for (const auto& [nome, testo] : pagine) {
        std::error_code errore;
        std::filesystem::create_directories((cartella / nome).parent_path(), errore);
        if (const auto scritto = scrivi_file(cartella / nome, testo); !scritto) {
            std::fprintf(stderr, "genera-manuali: %s\n", scritto.error().testo().c_str());
            return 1;
        }
    }
    return 0;
}
