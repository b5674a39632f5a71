#pragma once

#include "printing/rapporto.h"
#include "qt_superficie.h"

#include <QPageSize>
#include <QPrinter>
#include <QString>
#include <QStringList>
#include <memory>

class QWidget;

namespace sortimetra {

/// The printers of the desktop. Everything that would reach for a real one goes through here, so that a test
/// prints to a file and answers the dialog.
class Stampanti {
  public:
    Stampanti() = default;
    Stampanti(const Stampanti&) = delete;
    Stampanti& operator=(const Stampanti&) = delete;
    virtual ~Stampanti() = default;

    /// Name of the default printer, "" where there is none.
    [[nodiscard]] virtual QString predefinita();
    /// A printer by its name, its own sheet without margins, best resolution; null if it cannot be opened.
    [[nodiscard]] virtual std::unique_ptr<QPrinter> apri(const QString& nome);
    /// The system's print dialog; false if the user thinks better of it.
    [[nodiscard]] virtual bool scegli(QWidget* padre, QPrinter& stampante);
    /// Whether the printer takes pictures.
    [[nodiscard]] virtual bool disegna_immagini(const QPrinter& stampante);
    /// Told before each document of a job.
    virtual void nuovo_documento(QPrinter&) {}
};

/// The ones in use: real printers, unless a test has put its own in their place.
[[nodiscard]] Stampanti& stampanti();

/// Stands in for the printers while it lives: documents become PDF files in a folder.
class StampantiDiProva final : public Stampanti {
  public:
    explicit StampantiDiProva(QString cartella);
    ~StampantiDiProva() override;

    QString predefinita() override { return nome; }
    std::unique_ptr<QPrinter> apri(const QString& chiesta) override;
    bool scegli(QWidget* padre, QPrinter& stampante) override;
    bool disegna_immagini(const QPrinter&) override { return immagini; }
    void nuovo_documento(QPrinter& stampante) override;

    QString nome = QStringLiteral("Prova,winspool,Ne00:");
    bool si_apre = true;
    bool accetta = true;
    bool immagini = true;
    QPageSize::PageSizeId foglio = QPageSize::A4;
    QPageLayout::Orientation orientamento = QPageLayout::Portrait;
    QStringList aperte;     ///< names that were asked for
    QStringList documenti;  ///< files, in the order of printing; a file that cannot be written is a failure
    QString prossimo;       ///< path of the next document, "" for one in the folder

  private:
    QString cartella_;
    Stampanti* precedenti_;
};

/// The surface of a printer of the desktop: copies and colours too.
class SuperficieStampante final : public SuperficieQt {
  public:
    explicit SuperficieStampante(QPrinter& stampante);

  protected:
    void imposta_dispositivo(const Lavoro& lavoro) override;
    void annulla_dispositivo() override { stampante_->abort(); }

  private:
    QPrinter* stampante_;
};

}  // namespace sortimetra
