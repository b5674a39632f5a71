#include "bets/giochi_online.h"

#include "screens/messaggi.h"
#include "screens/posto_finestra.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QSaveFile>
#include <QSettings>
#include <QTemporaryFile>
#include <filesystem>

namespace sortimetra {

namespace {

constexpr const char* kCliente = "client.exe";
constexpr const char* kFileServer = "host";
constexpr const char* kPercorsoServer = "/download/host";
constexpr int kAttesaMassima = 20'000;            ///< milliseconds for the whole transfer
constexpr qint64 kGrandezzaMassima = 16LL << 20;  ///< bytes; the file is a small one

bool scarica(const QUrl& indirizzo, const QString& file) {
    QNetworkAccessManager rete;
    QNetworkRequest richiesta{indirizzo};
    // A redirection away from HTTPS is a failure.
    richiesta.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                           QNetworkRequest::NoLessSafeRedirectPolicy);
    richiesta.setTransferTimeout(kAttesaMassima);
    QNetworkReply* risposta = rete.get(richiesta);
    QObject::connect(risposta, &QNetworkReply::downloadProgress, risposta,
                     [risposta](qint64 arrivati, qint64) {
                         if (arrivati > kGrandezzaMassima) risposta->abort();
                     });
    QEventLoop attesa;
    QObject::connect(risposta, &QNetworkReply::finished, &attesa, &QEventLoop::quit);
    attesa.exec(QEventLoop::ExcludeUserInputEvents);
    const bool arrivato =
        risposta->error() == QNetworkReply::NoError && risposta->url().scheme() == QLatin1String{"https"};
    QSaveFile scritto{file};
    return arrivato && scritto.open(QIODevice::WriteOnly) && scritto.write(risposta->readAll()) >= 0 &&
           scritto.commit();
}

}  // namespace

GiochiOnline::GiochiOnline(const Sessione& sessione)
    : trasferisci{scarica},
      avvia{[](const QString& programma) {
          return QProcess::startDetached(programma, {}, QFileInfo{programma}.absolutePath());
      }},
      sessione_{sessione} {}

QUrl GiochiOnline::indirizzo() const {
    const QSettings impostazioni{file_posti(sessione_), QSettings::IniFormat};
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
