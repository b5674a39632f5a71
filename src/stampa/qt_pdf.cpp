#include "qt_pdf.h"

#include "files/file_sicuro.h"
#include "qt_superficie.h"

#include <QFile>
#include <QGuiApplication>
#include <QIODevice>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QtGlobal>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace sortimetra {

namespace {

/// Qt's remarks (a locale that is not UTF-8, a folder of its own that it misses) are nothing to a user of the
/// command line.
void taci(QtMsgType, const QMessageLogContext&, const QString&) {}

/// Texts need an application with fonts. Without a display one is started once; Qt would end the process
/// where its plug-in is missing, so that is asked first.
std::expected<void, ErroreArchivio> prepara_qt() {
    if (QCoreApplication::instance() != nullptr) return {};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(taci);
    bool trovato = false;
    for (const QString& cartella : QCoreApplication::libraryPaths())
        trovato = trovato || QFile::exists(cartella + QStringLiteral("/platforms/libqoffscreen.so"));
    if (!trovato)
        return std::unexpected(
            ErroreArchivio{"libqoffscreen.so", "la parte di Qt che disegna senza schermo non è installata"});
    static int argc = 1;
    static char nome[] = "sortimetra";
    static char* argv[] = {nome, nullptr};
    // Never destroyed: fonts and plug-ins would be torn down after the libraries that they live in.
    static auto* applicazione = new QGuiApplication(argc, argv);
    (void)applicazione;
    return {};
}

/// What Qt writes, into a file that is replaced whole or not at all.
class DispositivoSicuro final : public QIODevice {
  public:
    explicit DispositivoSicuro(FileSicuro& file) : file_{&file} {}
    [[nodiscard]] bool isSequential() const override { return true; }
    /// The first error; Qt itself does not look at what a write returns.
    [[nodiscard]] const std::optional<ErroreArchivio>& errore() const { return errore_; }

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* byte, qint64 quanti) override {
        if (errore_) return -1;
        if (auto esito = file_->scrivi({byte, static_cast<std::size_t>(quanti)}); !esito) {
            errore_ = std::move(esito.error());
            return -1;
        }
        return quanti;
    }

  private:
    FileSicuro* file_;
    std::optional<ErroreArchivio> errore_;
};

/// Ends the report at the first failure: on paper one would go on, a file is whole or not at all.
class FinoAlPrimoErrore final : public Avanzamento {
  public:
    FinoAlPrimoErrore(Avanzamento& sotto, std::function<bool()> guasto)
        : sotto_{&sotto}, guasto_{std::move(guasto)} {}
    bool procedi(std::size_t fatto, std::size_t totale) override {
        return !guasto_() && sotto_->procedi(fatto, totale);
    }

  private:
    Avanzamento* sotto_;
    std::function<bool()> guasto_;
};

}  // namespace

std::expected<void, ErroreArchivio> scrivi_pdf(const Rapporto& rapporto,
                                               const std::filesystem::path& percorso,
                                               Avanzamento& avanzamento, PagineScelte pagine) {
    if (const auto pronto = prepara_qt(); !pronto) return pronto;
    auto file = FileSicuro::apri(percorso);
    if (!file) return std::unexpected(std::move(file.error()));
    DispositivoSicuro dispositivo{*file};
    dispositivo.open(QIODevice::WriteOnly);
    QPdfWriter pdf{&dispositivo};
    pdf.setResolution(1440);
    pdf.setCreator(QStringLiteral("Sortimetra"));
    pdf.setTitle(QString::fromStdString(rapporto.titolo));
    pdf.setPageLayout(QPageLayout{QPageSize{QPageSize::A4}, QPageLayout::Portrait, QMarginsF{}});

    std::string avviso;
    bool finito = false;
    {
        SuperficieQt superficie{pdf};
        EasyPrint stampante{superficie, [&avviso](const std::string&, const std::string& testo) {
                                if (avviso.empty()) avviso = testo;
                            }};
        FinoAlPrimoErrore freno{avanzamento, [&] { return !avviso.empty() || dispositivo.errore(); }};
        finito = stampa(stampante, rapporto, pagine, freno);
    }
    if (dispositivo.errore()) return std::unexpected(*dispositivo.errore());
    if (!avviso.empty()) return std::unexpected(ErroreArchivio{percorso, avviso});
    if (!finito) return std::unexpected(ErroreArchivio{percorso, "stampa annullata"});
    return file->conferma();
}

}  // namespace sortimetra
