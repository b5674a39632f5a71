#include "stores/moduli_arrivi.h"

// (With this zlib does not ask for bytes that it could change.)
#define ZLIB_CONST
#include <archive.h>
#include <archive_entry.h>
#include <fmt/core.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <utility>

namespace sortimetra {

namespace {

using Tutti = std::expected<std::vector<Spacchettato>, std::string>;

/// No zip of result files has more: a directory of millions of empty entries is nothing to walk through.
constexpr int kVociMassime = 1000;
constexpr std::size_t kPezzo = std::size_t{1} << 16U;

std::unexpected<std::string> danneggiato() {
    return std::unexpected(std::string{"il file compresso è danneggiato o troncato"});
}
std::unexpected<std::string> troppo_grande(std::size_t massimo) {
    return std::unexpected(
        fmt::format("espanso è troppo grande: al massimo {} MB", massimo >> std::size_t{20}));
}

// ---- gzip: zlib itself, which holds the bytes to their checksum ----

struct ChiudiInflate {
    void operator()(z_stream* z) const {
        inflateEnd(z);
        delete z;
    }
};
using Flusso = std::unique_ptr<z_stream, ChiudiInflate>;

Flusso apri_gzip(std::string_view byte) {
    auto nuovo = std::make_unique<z_stream>();
    nuovo->next_in = reinterpret_cast<const Bytef*>(byte.data());
    nuovo->avail_in = static_cast<uInt>(byte.size());
    if (inflateInit2(nuovo.get(), MAX_WBITS + 16) != Z_OK) return nullptr;
    return Flusso{nuovo.release()};
}

/// All members of a gzip file, one after the other; a tail that is none, as some transfers leave, is damage.
Tutti apri_tutto_gzip(std::string_view byte, std::size_t massimo) {
    if (byte.size() > std::numeric_limits<uInt>::max()) return troppo_grande(massimo);
    const Flusso z = apri_gzip(byte);
    if (!z) return std::unexpected(std::string{"la memoria non basta"});
    std::string tutto;
    std::array<char, kPezzo> pezzo;
    for (;;) {
        z->next_out = reinterpret_cast<Bytef*>(pezzo.data());
        z->avail_out = static_cast<uInt>(pezzo.size());
        const int esito = inflate(z.get(), Z_NO_FLUSH);
        const std::size_t usciti = pezzo.size() - z->avail_out;
        if (tutto.size() + usciti > massimo) return troppo_grande(massimo);
        tutto.append(pezzo.data(), usciti);
        if (esito == Z_STREAM_END) {
            if (z->avail_in == 0) break;
            if (inflateReset(z.get()) != Z_OK) return danneggiato();
        } else if (esito != Z_OK) {
            return danneggiato();
        }
    }
    std::vector<Spacchettato> uno;
    uno.push_back({.nome = {}, .byte = std::move(tutto)});
    return uno;
}

// ---- zip ----

struct ChiudiArchivio {
    void operator()(archive* a) const { archive_read_free(a); }
};

/// The bytes of the entry under the cursor, up to `massimo`.
std::expected<std::string, std::string> byte_voce(archive* zip, std::size_t massimo, std::size_t limite) {
    std::string byte;
    std::array<char, kPezzo> pezzo;
    for (;;) {
        const la_ssize_t letti = archive_read_data(zip, pezzo.data(), pezzo.size());
        if (letti == 0) return byte;
        if (letti < 0) return danneggiato();
        if (byte.size() + static_cast<std::size_t>(letti) > massimo) return troppo_grande(limite);
        byte.append(pezzo.data(), static_cast<std::size_t>(letti));
    }
}

Tutti apri_tutto_zip(std::string_view byte, std::size_t massimo) {
    const std::unique_ptr<archive, ChiudiArchivio> zip{archive_read_new()};
    if (!zip || archive_read_support_format_zip(zip.get()) != ARCHIVE_OK ||
        archive_read_open_memory(zip.get(), byte.data(), byte.size()) != ARCHIVE_OK)
        return danneggiato();
    std::vector<Spacchettato> tutti;
    std::size_t usati = 0;
    archive_entry* voce = nullptr;
    for (int voci = 0;; ++voci) {
        const int esito = archive_read_next_header(zip.get(), &voce);
        if (esito == ARCHIVE_EOF) return tutti;
        // (A warning is a name that this locale cannot write.)
        if (esito != ARCHIVE_OK && esito != ARCHIVE_WARN) return danneggiato();
        if (voci >= kVociMassime)
            return std::unexpected(fmt::format("contiene più di {} file", kVociMassime));
        if (archive_entry_is_encrypted(voce) != 0)
            return std::unexpected(std::string{"è protetto da una parola d'ordine"});
        if (archive_entry_filetype(voce) != AE_IFREG) continue;
        const char* nome = archive_entry_pathname(voce);
        auto suoi = byte_voce(zip.get(), massimo - usati, massimo);
        if (!suoi) return std::unexpected(std::move(suoi.error()));
        usati += suoi->size();
        tutti.push_back({.nome = nome == nullptr ? "?" : nome, .byte = std::move(*suoi)});
    }
}

Tutti spacchetta(std::string_view byte, std::size_t massimo) {
    return byte.starts_with("\x1F\x8B") ? apri_tutto_gzip(byte, massimo) : apri_tutto_zip(byte, massimo);
}

}  // namespace

}  // namespace sortimetra

/// See moduli_arrivi.h.
extern "C" __attribute__((visibility("default"))) sortimetra::Spacchetta sortimetra_spacchetta() {
    return sortimetra::spacchetta;
}
