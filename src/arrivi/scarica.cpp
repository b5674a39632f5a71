#include "stores/moduli_arrivi.h"

#include <curl/curl.h>
#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <memory>

namespace sortimetra {

namespace {

/// What a server may send us round: more is a loop.
constexpr long kRinvii = 5;
/// A server that does not even answer is given up sooner than one that sends.
constexpr long kConnessioneMs = 15'000;

struct ChiudiCurl {
    void operator()(CURL* c) const { curl_easy_cleanup(c); }
};

/// What the transfer's callbacks work on.
struct Corsa {
    std::FILE* dove;
    Avanzamento& avanzamento;
    std::size_t massimo;
    std::size_t scritti = 0;
    bool troppo = false;
    bool disco = false;
    bool annullata = false;
};

std::size_t prendi(char* byte, std::size_t uno, std::size_t quanti, void* dato) {
    auto& corsa = *static_cast<Corsa*>(dato);
    const std::size_t n = uno * quanti;
    if (n > corsa.massimo - corsa.scritti) {
        corsa.troppo = true;
        return 0;
    }
    if (std::fwrite(byte, 1, n, corsa.dove) != n) {
        corsa.disco = true;
        return 0;
    }
    corsa.scritti += n;
    return n;
}

int avanza(void* dato, curl_off_t totale, curl_off_t fatto, curl_off_t, curl_off_t) {
    auto& corsa = *static_cast<Corsa*>(dato);
    const auto byte = static_cast<std::size_t>(std::max<curl_off_t>(fatto, 0));
    // Where the server does not say how much there is, the bar stays short of its end.
    const auto tutti = totale > 0 ? static_cast<std::size_t>(totale) : std::max(2 * byte, std::size_t{1});
    corsa.annullata = !corsa.avanzamento.procedi(byte, tutti);
    return corsa.annullata ? 1 : 0;
}

/// What a failed transfer means to a user.
std::string motivo(CURL* c, CURLcode codice, const Corsa& corsa, const Scarico& scarico) {
    if (corsa.annullata) return std::string{kAnnullata};
    if (corsa.disco) return "il file temporaneo non si può scrivere";
    if (corsa.troppo || codice == CURLE_FILESIZE_EXCEEDED)
        return fmt::format("è troppo grande: al massimo {} MB", scarico.massimo >> 20U);
    long risposta = 0;
    curl_easy_getinfo(c, CURLINFO_RESPONSE_CODE, &risposta);
    switch (codice) {
        case CURLE_UNSUPPORTED_PROTOCOL:
            return risposta >= 300 && risposta < 400
                       ? "il server rinvia a un indirizzo che non è https: non lo si segue"
                       : "si scarica soltanto da indirizzi https";
        case CURLE_URL_MALFORMAT:
            return "non è un indirizzo";
        case CURLE_COULDNT_RESOLVE_HOST:
        case CURLE_COULDNT_RESOLVE_PROXY:
            return "il nome del server non si trova: la rete c'è?";
        case CURLE_COULDNT_CONNECT:
            return "il server non risponde";
        case CURLE_OPERATION_TIMEDOUT:
            return fmt::format("non è arrivato entro {} secondi", (scarico.millisecondi + 999) / 1000);
        case CURLE_TOO_MANY_REDIRECTS:
            return fmt::format("il server rinvia più di {} volte", kRinvii);
        case CURLE_PARTIAL_FILE:
        case CURLE_RECV_ERROR:
        case CURLE_GOT_NOTHING:
            return "la trasmissione si è interrotta a metà";
        case CURLE_PEER_FAILED_VERIFICATION:
        case CURLE_SSL_ISSUER_ERROR:
            return fmt::format("il certificato del server non è valido ({})", curl_easy_strerror(codice));
        case CURLE_SSL_CONNECT_ERROR:
            return "la connessione sicura con il server non riesce";
        case CURLE_HTTP_RETURNED_ERROR:
            return fmt::format("il server risponde con l'errore {}{}", risposta,
                               risposta == 404 ? ": quel file non c'è" : "");
        default:
            return fmt::format("non si scarica ({})", curl_easy_strerror(codice));
    }
}

/// Only HTTPS, checked, within the limits; nothing of the user's is sent along.
void prepara(CURL* c, const Scarico& s, Corsa& corsa) {
    curl_easy_setopt(c, CURLOPT_URL, s.indirizzo.c_str());
    curl_easy_setopt(c, CURLOPT_PROTOCOLS_STR, "https");
    curl_easy_setopt(c, CURLOPT_REDIR_PROTOCOLS_STR, "https");
    curl_easy_setopt(c, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(c, CURLOPT_MAXREDIRS, kRinvii);
    curl_easy_setopt(c, CURLOPT_SSL_VERIFYPEER, 1L);
    curl_easy_setopt(c, CURLOPT_SSL_VERIFYHOST, 2L);
    curl_easy_setopt(c, CURLOPT_SSLVERSION, CURL_SSLVERSION_TLSv1_2);
    if (!s.autorita.empty()) {
        std::string certificati = s.autorita;
        curl_blob blocco{.data = certificati.data(), .len = certificati.size(), .flags = CURL_BLOB_COPY};
        curl_easy_setopt(c, CURLOPT_CAPATH, nullptr);
        curl_easy_setopt(c, CURLOPT_CAINFO_BLOB, &blocco);
    }
    curl_easy_setopt(c, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(s.massimo));
    curl_easy_setopt(c, CURLOPT_TIMEOUT_MS, s.millisecondi);
    curl_easy_setopt(c, CURLOPT_CONNECTTIMEOUT_MS, std::min(kConnessioneMs, s.millisecondi));
    curl_easy_setopt(c, CURLOPT_FAILONERROR, 1L);
    curl_easy_setopt(c, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(c, CURLOPT_USERAGENT, "sortimetra");
    curl_easy_setopt(c, CURLOPT_WRITEFUNCTION, prendi);
    curl_easy_setopt(c, CURLOPT_WRITEDATA, &corsa);
    curl_easy_setopt(c, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(c, CURLOPT_XFERINFOFUNCTION, avanza);
    curl_easy_setopt(c, CURLOPT_XFERINFODATA, &corsa);
}

std::expected<void, std::string> scarica(const Scarico& scarico, std::FILE* dove, Avanzamento& avanzamento) {
    static const CURLcode pronta = curl_global_init(CURL_GLOBAL_DEFAULT);
    const std::unique_ptr<CURL, ChiudiCurl> c{pronta == CURLE_OK ? curl_easy_init() : nullptr};
    if (!c) return std::unexpected(std::string{"la rete non si può usare"});
    Corsa corsa{.dove = dove, .avanzamento = avanzamento, .massimo = scarico.massimo};
    prepara(c.get(), scarico, corsa);
    const CURLcode esito = curl_easy_perform(c.get());
    if (esito != CURLE_OK) return std::unexpected(motivo(c.get(), esito, corsa, scarico));
    return {};
}

}  // namespace

}  // namespace sortimetra

/// See moduli_arrivi.h.
extern "C" __attribute__((visibility("default"))) sortimetra::Scarica sortimetra_scarica() {
    return sortimetra::scarica;
}
