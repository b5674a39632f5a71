#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>
#include <vector>

// In place of libFuzzer: gives a target the files of a folder, so that what was once found is tried by every
// build, with any compiler.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n);

namespace {

/// Every beginning of an input no longer than this is tried as well.
constexpr std::size_t kCorto = 256;

void prova(const std::vector<std::uint8_t>& byte, std::size_t n) {
    // A copy of just that length: a sanitizer sees a read behind it.
    const std::vector<std::uint8_t> parte(byte.begin(), byte.begin() + static_cast<std::ptrdiff_t>(n));
    LLVMFuzzerTestOneInput(parte.data(), parte.size());
}

/// Short inputs of any bytes, for some seconds: enough for a target whose inputs are lists of changes.
int a_caso(int secondi, unsigned seme) {
    constexpr std::size_t kLungo = 24;
    const auto fine = std::chrono::steady_clock::now() + std::chrono::seconds{secondi};
    std::mt19937 caso{seme};
    unsigned long provati = 0;
    for (; std::chrono::steady_clock::now() < fine; ++provati) {
        std::vector<std::uint8_t> byte(1 + caso() % kLungo);
        for (std::uint8_t& b : byte) b = static_cast<std::uint8_t>(caso());
        prova(byte, byte.size());
    }
    std::printf("%lu inputs in %d s, seed %u\n", provati, secondi, seme);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc >= 3 && std::string{argv[1]} == "--a-caso")
        return a_caso(std::atoi(argv[2]), argc > 3 ? static_cast<unsigned>(std::atoi(argv[3])) : 1U);
    if (argc != 2) {
        std::fputs("usage: fuzz_NAME FOLDER\n       fuzz_NAME --a-caso SECONDS [SEED]\n", stderr);
        return 2;
    }
    std::vector<std::filesystem::path> file;
    std::error_code errore;
    for (const auto& voce : std::filesystem::directory_iterator{argv[1], errore}) file.push_back(voce.path());
    std::sort(file.begin(), file.end());
    if (file.empty()) {
        std::fprintf(stderr, "%s: no inputs\n", argv[1]);
        return 1;
    }
    for (const auto& f : file) {
        // Told beforehand: who breaks does not come back to tell.
        std::printf("%s\n", f.c_str());
        std::fflush(stdout);
        std::ifstream flusso{f, std::ios::binary};
        const std::vector<std::uint8_t> byte{std::istreambuf_iterator<char>{flusso}, {}};
        for (std::size_t n = 0; byte.size() <= kCorto && n < byte.size(); ++n) prova(byte, n);
        prova(byte, byte.size());
    }
    return 0;
}
