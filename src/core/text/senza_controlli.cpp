#include "text/senza_controlli.h"

#include "text/utf8.h"

#include <algorithm>
#include <array>

namespace sortimetra {

namespace {

/// A control that a terminal obeys. A line may end in CR LF.
bool controllo(char32_t lettera, std::string_view dopo) {
    if (lettera == U'\n' || lettera == U'\t') return false;
    if (lettera == U'\r') return !dopo.starts_with('\n');
    return lettera < 0x20 || (lettera >= 0x7F && lettera < 0xA0);
}

void aggiungi_codice(std::string& testo, unsigned codice) {
    constexpr std::string_view kCifre = "0123456789abcdef";
    testo += "\\x";
    testo += kCifre[codice >> 4U & 0xFU];
    testo += kCifre[codice & 0xFU];
}

/// Bytes at the end of the text that begin a character and may be continued.
std::size_t incompleti(std::string_view testo) {
    constexpr std::size_t kMassimi = 3;
    for (std::size_t n = 1; n <= std::min(kMassimi, testo.size()); ++n) {
        const char primo = testo[testo.size() - n];
        if (continua_lettera(primo)) continue;
        const auto byte = static_cast<unsigned char>(primo);
        const std::size_t servono = byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
        return primo == '\r' || servono > n ? n : 0;
    }
    return 0;
}

}  // namespace

std::string senza_controlli(std::string_view testo) {
    std::string pulito;
    pulito.reserve(testo.size());
    while (!testo.empty()) {
        const auto [codice, byte] = prima_lettera(testo);
        const std::string_view lettera = testo.substr(0, byte);
        testo.remove_prefix(byte);
        const bool nessuna = codice == kLetteraIgnota && byte == 1;
        if (nessuna || controllo(codice, testo))
            aggiungi_codice(pulito, nessuna ? static_cast<unsigned char>(lettera.front()) : codice);
        else
            pulito += lettera;
    }
    return pulito;
}

bool BufferSenzaControlli::consegna(std::string_view testo) {
    const std::string pulito = senza_controlli(testo);
    const auto quanti = static_cast<std::streamsize>(pulito.size());
    return destinazione_->sputn(pulito.data(), quanti) == quanti;
}

std::streamsize BufferSenzaControlli::xsputn(const char* byte, std::streamsize quanti) {
    resto_.append(byte, static_cast<std::size_t>(quanti));
    const std::size_t aspettano = incompleti(resto_);
    const bool fatto = consegna(std::string_view{resto_}.substr(0, resto_.size() - aspettano));
    resto_.erase(0, resto_.size() - aspettano);
    return fatto ? quanti : 0;
}

BufferSenzaControlli::int_type BufferSenzaControlli::overflow(int_type c) {
    if (traits_type::eq_int_type(c, traits_type::eof())) return sync() == 0 ? traits_type::not_eof(c) : c;
    const char byte = traits_type::to_char_type(c);
    return xsputn(&byte, 1) == 1 ? c : traits_type::eof();
}

int BufferSenzaControlli::sync() {
    const bool fatto = resto_.empty() || consegna(resto_);
    resto_.clear();
    return destinazione_->pubsync() == 0 && fatto ? 0 : -1;
}

}  // namespace sortimetra
