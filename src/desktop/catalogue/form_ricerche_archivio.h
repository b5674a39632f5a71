#pragma once

#include "draws/archivio.h"

#include <QFrame>
#include <QString>
#include <expected>
#include <filesystem>

class QLabel;
class QPushButton;

namespace sortimetra {

/// Why the archive of a folder is not in use, in words for the user.
struct ArchivioNegato {
    bool manca = false;  ///< none is there, in place of one that does not open
    QString perche;
};

/// Opens the archive in a program's folder, by its packed copy if `copia`, and writes nothing else there.
[[nodiscard]] std::expected<ArchivioEstrazioni, ArchivioNegato> guarda_archivio(
    const std::filesystem::path& percorso_archivio, bool copia = true);

/// The program's folder that is meant by one that the user picked: whoever points at `archivio` itself means
/// its parent.
[[nodiscard]] std::filesystem::path cartella_intesa(const std::filesystem::path& scelta);

/// The card `FrameArchivio` over the list while there is no archive: why, and what can be done.
class FrameArchivio final : public QFrame {
    Q_OBJECT
  public:
    explicit FrameArchivio(QWidget* genitore = nullptr);

    void spiega(const ArchivioNegato& negato);
    /// While the demonstration is being made, and where that failed.
    void mentre_crea();
    void non_creato(const QString& perche);

  signals:
    void dimostrazione();
    void cartella();
    void riprova();

  private:
    QLabel* titolo_;
    QLabel* testo_;
    QPushButton* cmd_dimostrazione_;
    QPushButton* cmd_riprova_;
};

}  // namespace sortimetra
