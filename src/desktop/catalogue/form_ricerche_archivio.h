#pragma once

#include "draws/archivio.h"

#include <QFrame>
#include <QObject>
#include <QString>
#include <expected>
#include <filesystem>
#include <functional>
#include <optional>
#include <thread>

class QLabel;
class QPushButton;

namespace sortimetra {

/// Why the archive of a folder is not in use, in words for the user.
struct ArchivioNegato {
    bool manca = false;  ///< none is there, in place of one that does not open
    QString perche;
};

using EsitoArchivio = std::expected<ArchivioEstrazioni, ArchivioNegato>;

/// Opens the archive in a program's folder, by its packed copy if `copia`, and writes nothing else there.
[[nodiscard]] EsitoArchivio guarda_archivio(const std::filesystem::path& percorso_archivio,
                                            bool copia = true);

/// Reads archives in a thread of its own, so that the window lives on whatever the disk or the file does. One
/// at a time: what is asked for while another is read is read next, and the other one comes to nothing.
class LettoreArchivio final : public QObject {
    Q_OBJECT
  public:
    /// Calls `letto` in the window's thread for what was asked for last.
    explicit LettoreArchivio(std::function<void(EsitoArchivio)> letto);
    /// Waits for a reading that is on; the store's own limits bound that.
    ~LettoreArchivio() override = default;

    void leggi(const std::filesystem::path& percorso_archivio);
    [[nodiscard]] bool legge() const { return legge_; }

    /// How an archive is opened, in the other thread. A test puts its own here, before the first reading.
    std::function<EsitoArchivio(const std::filesystem::path&)> guarda =
        [](const std::filesystem::path& dove) { return guarda_archivio(dove); };

  private:
    void finita(EsitoArchivio esito);

    std::function<void(EsitoArchivio)> letto_;
    bool legge_ = false;
    std::optional<std::filesystem::path> prossimo_;
    std::jthread filo_;  ///< the last member: it ends before the others go
};

/// The program's folder that is meant by one that the user picked: whoever points at `archivio` itself means
/// its parent.
[[nodiscard]] std::filesystem::path cartella_intesa(const std::filesystem::path& scelta);

/// The card `FrameArchivio` over the list while there is no archive: why, and what can be done.
class FrameArchivio final : public QFrame {
    Q_OBJECT
  public:
    explicit FrameArchivio(QWidget* genitore = nullptr);

    void spiega(const ArchivioNegato& negato);
    /// While an archive is being read that takes long.
    void mentre_legge();
    /// While the demonstration is being made, and where that failed.
    void mentre_crea();
    void non_creato(const QString& perche);

  signals:
    void dimostrazione();
    void aggiorna();
    void cartella();
    void riprova();

  private:
    QLabel* titolo_;
    QLabel* testo_;
    QPushButton* cmd_dimostrazione_;
    QPushButton* cmd_riprova_;
};

}  // namespace sortimetra
