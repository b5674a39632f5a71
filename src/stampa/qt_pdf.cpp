#include "qt_pdf.h"

#include "files/file_sicuro.h"
#include "haru_superficie.h"
#include "qt_superficie.h"
#include "senza_schermo.h"

#include <QGuiApplication>
#include <QIODevice>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace sortimetra {

namespace {

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

/// How a drawing ended: the first thing that a surface said against it, and whether it came to its end.
struct Disegnato {
    std::string avviso;
    bool finito = false;
};

Disegnato disegna(Superficie& superficie, const Rapporto& rapporto, PagineScelte pagine,
                  Avanzamento& avanzamento, const std::function<bool()>& guasto) {
    Disegnato esito;
    EasyPrint stampante{superficie, [&esito](const std::string&, const std::string& testo) {
                            if (esito.avviso.empty()) esito.avviso = testo;
                        }};
    FinoAlPrimoErrore freno{avanzamento, [&] { return !esito.avviso.empty() || guasto(); }};
    esito.finito = stampa(stampante, rapporto, pagine, freno);
    return esito;
}

std::expected<void, ErroreArchivio> verdetto(const Disegnato& disegnato,
                                             const std::filesystem::path& percorso) {
    if (!disegnato.avviso.empty()) return std::unexpected(ErroreArchivio{percorso, disegnato.avviso});
    if (!disegnato.finito) return std::unexpected(ErroreArchivio{percorso, "stampa annullata"});
    return {};
}

QPageLayout a4() {
    return {QPageSize{QPageSize::A4}, QPageLayout::Portrait, QMarginsF{}};
}

std::expected<void, ErroreArchivio> con_qt(const Rapporto& rapporto, FileSicuro file,
                                           const std::filesystem::path& percorso, Avanzamento& avanzamento,
                                           PagineScelte pagine) {
    DispositivoSicuro dispositivo{file};
    dispositivo.open(QIODevice::WriteOnly);
    QPdfWriter pdf{&dispositivo};
    pdf.setResolution(1440);
    pdf.setCreator(QStringLiteral("Sortimetra"));
    pdf.setTitle(QString::fromStdString(rapporto.titolo));
    pdf.setPageLayout(a4());
    Disegnato disegnato;
    {
        SuperficieQt superficie{pdf};
        disegnato = disegna(superficie, rapporto, pagine, avanzamento,
                            [&] { return dispositivo.errore().has_value(); });
    }
    if (dispositivo.errore()) return std::unexpected(*dispositivo.errore());
    if (const auto esito = verdetto(disegnato, percorso); !esito) return esito;
    return file.conferma();
}

}  // namespace

std::expected<void, ErroreArchivio> scrivi_pdf(const Rapporto& rapporto,
                                               const std::filesystem::path& percorso,
                                               Avanzamento& avanzamento, PagineScelte pagine) {
    if (const auto pronto = avvia_senza_schermo<QGuiApplication>(); !pronto) return pronto;
    auto file = FileSicuro::apri(percorso);
    if (!file) return std::unexpected(std::move(file.error()));
    {
        SuperficieHaru superficie{rapporto.titolo, a4()};
        const Disegnato disegnato = disegna(superficie, rapporto, pagine, avanzamento, [] { return false; });
        // Here, and only here, it is decided who draws: what the quick surface cannot do is begun anew.
        if (!superficie.oltre_le_forze()) {
            if (const auto esito = verdetto(disegnato, percorso); !esito) return esito;
            const auto byte = superficie.byte();
            if (!byte) return std::unexpected(ErroreArchivio{percorso, byte.error().descrizione});
            if (const auto scritto = file->scrivi(*byte); !scritto) return scritto;
            return file->conferma();
        }
    }
    return con_qt(rapporto, std::move(*file), percorso, avanzamento, pagine);
}

}  // namespace sortimetra
