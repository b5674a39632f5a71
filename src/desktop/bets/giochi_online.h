#pragma once

#include "files/sessione.h"

#include <QString>
#include <QUrl>
#include <functional>

class QWidget;

namespace sortimetra {

/// What "Giochi Online" says when it cannot go on.
inline constexpr const char* kImpossibileScommettere =
    "Impossibile scommettere. Verificare se è disponibile una connessione a Internet.";

/// Hands the user over to the betting client, a program of its own in the program's folder. Before it is
/// started a fresh "host" is fetched for it from a server whose address is the setting
/// `giochi_online/indirizzo` of `schermi.ini`, empty unless someone writes it there.
///
/// Only HTTPS is spoken. The file is fetched whole to a temporary before the old one goes, and nothing is
/// started that did not stand in the folder before.
class GiochiOnline {
  public:
    /// Fetches an address into a file; false if anything went wrong.
    using Trasferimento = std::function<bool(const QUrl& indirizzo, const QString& file)>;
    using Avviamento = std::function<bool(const QString& programma)>;

    explicit GiochiOnline(const Sessione& sessione);

    /// Fetches and starts, or says why not over `finestra`. Returns whether the client was started.
    bool apri(QWidget* finestra) const;

    Trasferimento trasferisci;
    Avviamento avvia;

  private:
    [[nodiscard]] bool prepara() const;
    [[nodiscard]] QUrl indirizzo() const;
    [[nodiscard]] QString nella_cartella(const QString& nome) const;

    const Sessione& sessione_;
};

}  // namespace sortimetra
