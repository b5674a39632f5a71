#include "bets/giochi_online.h"

#include "draws/avanzamento.h"
#include "files/file_sicuro.h"
#include "screens/memoria_schermi.h"
#include "screens/messaggi.h"
#include "stores/arrivi.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryFile>
#include <chrono>
#include <filesystem>

namespace sortimetra {

namespace {

constexpr const char* kCliente = "client.exe";
constexpr const char* kFileServer = "host";
constexpr const char* kPercorsoServer = "/download/host";
constexpr std::chrono::seconds kAttesaMassima{20};                ///< for the whole transfer
constexpr std::size_t kGrandezzaMassima = std::size_t{16} << 20;  ///< bytes; the file is a small one

/// Lets the windows be painted while the transfer goes on; nobody stops it.
class FinestreVive final : public Avanzamento {
  public:
    bool procedi(std::size_t /*fatto*/, std::size_t /*totale*/) override {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        return true;
    }
};

bool scarica(const QUrl& indirizzo, const QString& file) {
    FinestreVive avanzamento;
    const auto arrivo = scarica_arrivo(indirizzo.toString(QUrl::FullyEncoded).toStdString(), avanzamento,
                                       {.massimo = kGrandezzaMassima, .tempo = kAttesaMassima});
    return arrivo && scrivi_file(std::filesystem::path{file.toStdU16String()}, arrivo->byte);
}

}  // namespace

GiochiOnline::GiochiOnline(const Sessione& sessione)
    : trasferisci{scarica},
      avvia{[](const QString& programma) {
          return QProcess::startDetached(programma, {}, QFileInfo{programma}.absolutePath());
      }},
      sessione_{sessione} {}

QUrl GiochiOnline::indirizzo() const {
    const MemoriaSchermi impostazioni{sessione_};
    const QUrl scritto{impostazioni.value(QStringLiteral("giochi_online/indirizzo")).toString().trimmed(),
                       QUrl::StrictMode};
    if (!scritto.isValid() || scritto.scheme() != QLatin1String{"https"} || scritto.host().isEmpty())
        return {};
    QUrl url;
    url.setScheme(scritto.scheme());
    url.setHost(scritto.host());
    url.setPort(scritto.port());
    url.setPath(QString::fromLatin1(kPercorsoServer));
    return url;
}

QString GiochiOnline::nella_cartella(const QString& nome) const {
    return QString::fromStdString((sessione_.percorso_programma / nome.toStdString()).string());
}

bool GiochiOnline::prepara() const {
    const QUrl url = indirizzo();
    // What is not there now is never started, whatever comes from the net.
    if (url.isEmpty() || !QFileInfo{nella_cartella(kCliente)}.isFile()) return false;
    QTemporaryFile temporaneo{nella_cartella(QStringLiteral("host-XXXXXX"))};
    if (!temporaneo.open()) return false;
    temporaneo.close();
    if (!trasferisci(url, temporaneo.fileName())) return false;
    std::error_code errore;
    std::filesystem::rename(temporaneo.fileName().toStdString(), sessione_.percorso_programma / kFileServer,
                            errore);
    return !errore;
}

bool GiochiOnline::apri(QWidget* finestra) const {
    if (prepara() && avvia(nella_cartella(kCliente))) return true;
    messaggi().avvisa(finestra, kTitoloMessaggi, QString::fromUtf8(kImpossibileScommettere));
    return false;
}

}  // namespace sortimetra
