#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
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

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: fuzz_NAME FOLDER\n", stderr);
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
