#pragma once

#include "draws/archivio.h"
#include "files/sessione.h"
#include "results/risultato_fwd.h"
#include "stores/aggiorna.h"

#include <QStringList>
#include <QWidget>
#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QCheckBox;
class QLabel;
class QMimeData;
class QPlainTextEdit;
class QPushButton;

namespace sortimetra {

class Form_Estrazione;
class GrigliaRisultati;
class PannelloAvanzamento;

/// "Aggiorna archivio": the door for all draws that are new. Files chosen, dropped or pasted, a download from
/// the user's addresses, a draw typed by hand: whatever comes is first shown (what is new, the same,
/// different, missing) and goes into the archive only then. The last change can be taken back.
class Form_Aggiorna final : public QWidget {
    Q_OBJECT
  public:
    explicit Form_Aggiorna(Sessione& sessione, QWidget* padre = nullptr);
    ~Form_Aggiorna() override;

    /// Empties the window for an archive; null where none is open. `oggi` is the last day that a draw may
    /// have.
    void prepara(const ArchivioEstrazioni* archivio, Data oggi);

    /// The archive in use is another now, or one that was read anew; what is on show stays.
    void usa_archivio(const ArchivioEstrazioni* archivio, Data oggi);

    /// Takes what was dropped or pasted: files, or the text itself. Says so where it is neither.
    void accogli(const QMimeData& portato);
    void accogli_file(const QStringList& file);
    void accogli_arrivi(const std::vector<Arrivo>& arrivi);
    /// Compares and shows; nothing is written.
    void esamina(const Arrivate& arrivate);

    /// Asks for files; a test puts its own answer here.
    std::function<QStringList()> chiedi_file;
    /// Fetches an address; a test puts its own here.
    std::function<std::expected<Arrivo, ErroreArchivio>(const std::string& indirizzo, Avanzamento&)> scarica;

  signals:
    /// The archive's files are others now: whoever has it open reads it anew.
    void archivio_cambiato();

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

  private:
    QWidget* componi_domanda();
    QWidget* componi_risposta();
    QWidget* componi_piede();

    void scegli_file();
    void incolla();
    void scarica_indirizzi();
    [[nodiscard]] std::vector<std::string> indirizzi_scritti() const;
    void scrivi_a_mano();
    void applica_proposta();
    void annulla_ultimo();

    void mostra_proposta();
    void di_errore(const QString& testo);
    void di_stato(const QString& testo, const char* ruolo);
    void svuota();
    [[nodiscard]] std::filesystem::path cartella() const { return sessione_.percorso_archivio(); }

    Sessione& sessione_;
    const ArchivioEstrazioni* archivio_ = nullptr;
    Data oggi_{};
    std::optional<Arrivate> arrivate_;
    std::optional<Proposta> proposta_;

    QPlainTextEdit* indirizzi_ = nullptr;
    QPushButton* scarica_ = nullptr;
    QPushButton* annulla_ = nullptr;
    QLabel* ultime_ = nullptr;
    QLabel* trovato_ = nullptr;
    QLabel* racconto_ = nullptr;
    QCheckBox* sostituisci_ = nullptr;
    GrigliaRisultati* griglia_ = nullptr;
    QLabel* stato_ = nullptr;
    QPushButton* applica_ = nullptr;
    PannelloAvanzamento* pannello_ = nullptr;
    std::unique_ptr<Form_Estrazione> a_mano_;
};

/// The rows that the window shows for a proposal: game, concorso, date, what becomes of it.
[[nodiscard]] Tabella tabella_proposta(const Proposta& proposta);

}  // namespace sortimetra
