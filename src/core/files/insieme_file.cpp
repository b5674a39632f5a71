#include "files/insieme_file.h"

#include "files/file_sicuro.h"

#include <algorithm>
#include <utility>

namespace sortimetra {

InsiemeFile::Voce& InsiemeFile::voce(const std::filesystem::path& file) {
    const auto trovata =
        std::find_if(voci_.begin(), voci_.end(), [&](const Voce& v) { return v.file == file; });
    return trovata != voci_.end() ? *trovata : voci_.emplace_back(Voce{file, {}});
}

void InsiemeFile::scrivi(const std::filesystem::path& file, std::string byte) {
    voce(file).byte = std::move(byte);
}

void InsiemeFile::togli(const std::filesystem::path& file) {
    voce(file).byte.reset();
}

void InsiemeFile::annuncia(const std::filesystem::path& file, std::string byte) {
    annuncio_ = Voce{file, std::move(byte)};
}

bool InsiemeFile::ci_sara(const std::filesystem::path& file) const {
    if (annuncio_ && annuncio_->file == file) return true;
    const auto trovata =
        std::find_if(voci_.begin(), voci_.end(), [&](const Voce& v) { return v.file == file; });
    if (trovata != voci_.end()) return trovata->byte.has_value();
    std::error_code errore;
    return std::filesystem::exists(file, errore);
}

std::expected<void, ErroreArchivio> InsiemeFile::conferma() const {
    std::vector<FileSicuro> nuovi;
    std::vector<std::filesystem::path> da_togliere;
    const auto prepara = [&](const Voce& v) -> std::expected<void, ErroreArchivio> {
        auto f = FileSicuro::apri(v.file);
        if (!f) return std::unexpected(std::move(f.error()));
        if (auto esito = f->scrivi(*v.byte); !esito) return esito;
        nuovi.push_back(std::move(*f));
        return {};
    };
    if (annuncio_) da_togliere.push_back(annuncio_->file);
    for (const Voce& v : voci_) {
        if (!v.byte) {
            da_togliere.push_back(v.file);
        } else if (auto esito = prepara(v); !esito) {
            return esito;
        }
    }
    if (annuncio_)
        if (auto esito = prepara(*annuncio_); !esito) return esito;
    return FileSicuro::conferma_tutti(nuovi, da_togliere);
}

}  // namespace sortimetra
