#include "files/limiti_processo.h"

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <system_error>

namespace sortimetra {

namespace {

const char* nome_programma = "sortimetra";
volatile std::sig_atomic_t file_troppo_grande = 0;

void segna_file_troppo_grande(int) {
    file_troppo_grande = 1;
}

/// `perche` without formatting: there may be no memory for it.
void scrivi(const char* perche) noexcept {
    for (const char* pezzo : {nome_programma, ": ", perche, "\n"})
        if (write(STDERR_FILENO, pezzo, std::strlen(pezzo)) < 0) return;
}

/// In the place of std::abort, where an exception has met a caller that lets none through.
[[noreturn]] void fine() {
    try {
        if (const auto motivo = std::current_exception()) std::rethrow_exception(motivo);
    } catch (const std::bad_alloc&) {
        _exit(memoria_finita());
    } catch (const std::system_error&) {
        scrivi("il sistema non concede altra memoria o altri processi.");
        _exit(kFermatoDaUnLimite);
    } catch (...) {
        std::abort();
    }
    std::abort();
}

}  // namespace

void ascolta_i_limiti(const char* programma) {
    nome_programma = programma;
    // A handler, not SIG_IGN: it leaves the same failed write, and that there was one is known.
    struct sigaction azione{};
    azione.sa_handler = segna_file_troppo_grande;
    azione.sa_flags = SA_RESTART;
    (void)sigaction(SIGXFSZ, &azione, nullptr);
    std::set_terminate(fine);
}

bool limite_dei_file_raggiunto() {
    return file_troppo_grande != 0;
}

int memoria_finita() noexcept {
    scrivi("la memoria che il sistema concede non basta.");
    return kFermatoDaUnLimite;
}

}  // namespace sortimetra
