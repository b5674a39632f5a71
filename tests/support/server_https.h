#pragma once

#include "support/archivi.h"

#include <sys/types.h>

#include <map>
#include <string>

namespace sortimetra::prove {

/// An HTTPS server on the loopback address, with certificates of its own (server_https.py says what it
/// serves), for as long as the object lives.
class ServerHttps {
  public:
    /// Waits until it answers; `avviato` is false where openssl or python3 is missing.
    ServerHttps();
    ServerHttps(const ServerHttps&) = delete;
    ServerHttps& operator=(const ServerHttps&) = delete;
    ~ServerHttps();

    [[nodiscard]] bool avviato() const { return !porte_.empty(); }
    /// "https://localhost:PORT/…" with the certificate of that name: "giusto", "altrui" (another authority),
    /// "nome" (another host), "scaduto".
    [[nodiscard]] std::string indirizzo(const std::string& certificato, const std::string& percorso) const;
    /// The certificate of the authority that signed "giusto", "nome" and "scaduto".
    [[nodiscard]] const std::string& autorita() const { return autorita_; }

  private:
    CartellaProva cartella_;
    pid_t figlio_ = -1;
    int ingresso_ = -1;  ///< it serves until this closes
    std::map<std::string, int> porte_;
    std::string autorita_;
};

}  // namespace sortimetra::prove
