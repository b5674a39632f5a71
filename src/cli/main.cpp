#include "cli/comandi.h"
#include "files/limiti_processo.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <iostream>
#include <limits>
#include <new>

namespace {

/// A program started with a channel closed would get its number for the next file that it opens, and write
/// its messages there. A channel that can only fail takes its place.
void occupa_canali() {
    for (int canale = 0; canale <= 2; ++canale)
        if (::fcntl(canale, F_GETFD) == -1) ::open("/dev/null", canale == 0 ? O_WRONLY : O_RDONLY);
}

/// Columns of the terminal that standard output is; without end where it is a file or a pipe.
std::size_t larghezza() {
    winsize finestra{};
    if (::isatty(STDOUT_FILENO) != 1 || ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &finestra) != 0 ||
        finestra.ws_col == 0)
        return std::numeric_limits<std::size_t>::max();
    return finestra.ws_col;
}

}  // namespace

int main(int argc, char** argv) {
    occupa_canali();
    // A reader that has gone away is a failed write, not the end of the program.
    std::signal(SIGPIPE, SIG_IGN);
    std::ios::sync_with_stdio(false);
    sortimetra::ascolta_i_limiti("sortimetra-cli");
    try {
        const std::vector<std::string> argomenti(argv + (argc > 0 ? 1 : 0), argv + argc);
        const int codice = sortimetra::esegui_comando(argomenti, std::cout, std::cerr,
                                                      {.errori = ::isatty(STDERR_FILENO) == 1,
                                                       .uscita = ::isatty(STDOUT_FILENO) == 1,
                                                       .larghezza = larghezza()});
        const bool fermato = codice != sortimetra::kRiuscito && sortimetra::limite_dei_file_raggiunto();
        return fermato ? sortimetra::kFermatoDaUnLimite : codice;
    } catch (const std::bad_alloc&) {
        // By now all that was begun has been taken back: no temporary is left anywhere.
        return sortimetra::memoria_finita();
    }
}
