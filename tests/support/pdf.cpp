#include "support/pdf.h"

#include <array>
#include <cstdio>
#include <memory>

namespace sortimetra::prove {

std::string di_pdf(const std::string& programma, const std::filesystem::path& file, const std::string& coda) {
    const std::string comando = programma + " '" + file.string() + "' " + coda;
    const std::unique_ptr<FILE, int (*)(FILE*)> tubo{popen(comando.c_str(), "r"), pclose};
    std::string testo;
    std::array<char, 4096> parte{};
    while (const auto n = std::fread(parte.data(), 1, parte.size(), tubo.get()))
        testo.append(parte.data(), n);
    return testo;
}

std::string testo_pdf(const std::filesystem::path& file, const std::string& opzioni) {
    return di_pdf("pdftotext " + opzioni, file, "-");
}

}  // namespace sortimetra::prove
