#pragma once

#include "catalogue/form_ricerche_archivio.h"
#include "catalogue/form_ricerche_memoria.h"
#include "catalogue/form_ricerche_schermi.h"

#include <QWidget>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>

class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QTabBar;

namespace sortimetra {

class CorniceGruppo;
class DelegatoElenco;
class FrameDettaglio;
class FrameSegnalimite;
class GrigliaElenco;
class ModelloElenco;
class PulsanteGruppo;
class PulsanteSkin;

/// The main window: the catalogue of all searches. The user picks a game, a group and a search, and confirms;
/// the catalogue hides while the search's screen is open. Closing it ends the program.
///
/// Everything that it remembers is written at the moment of the change, never at the end.
class form_ricerche final : public QWidget {
    Q_OBJECT
  public:
    explicit form_ricerche(Sessione& sessione,
                           std::span<const RigaSchermo> schermi = schermi_del_programma());
    ~form_ricerche() override;

    /// Opens a search: the one way to every screen. Does nothing for a search that cannot be opened; while
    /// the archive that it needs is being read it opens behind that.
    void apri(const Ricerca& ricerca);

    /// Why a search cannot be opened now, in words for the user; empty if it can.
    [[nodiscard]] QString impedimento(const Ricerca& ricerca) const;

    /// Loads a skin and writes its index; one outside 1 to 9 loads none and is written as it is.
    void carica_skin(int indice);

    /// Goes over to another program's folder, with its archive, memory and skin, once that archive has been
    /// read. Where none opens there it says so and leaves all as it is.
    void usa_cartella(const std::filesystem::path& cartella);

    /// Begins to read the archive if that has not been tried yet. The window does it by itself after its
    /// first paint.
    void carica_archivio();
    [[nodiscard]] bool archivio_aperto() const { return archivio_.has_value(); }
    /// An archive is being read, in a thread of its own.
    [[nodiscard]] bool legge_archivio() const { return lettore_.legge(); }
    [[nodiscard]] LettoreArchivio& lettore() { return lettore_; }

    /// Asks the user for a folder; empty when none was chosen. A test puts its own answer here.
    std::function<QString()> chiedi_cartella;

  signals:
    /// The window has been closed: the program ends.
    void terminata();
    /// The user has chosen another program's folder.
    void cartella_scelta(const QString& cartella);

  protected:
    void showEvent(QShowEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    // form_ricerche_componi.cpp
    void componi();
    void componi_schede();
    void componi_catalogo();
    QWidget* componi_testata();
    QWidget* componi_frame1();
    QWidget* componi_frame2();
    QWidget* componi_elenco();
    QWidget* componi_piede();
    void scorciatoie();

    void prima_attivazione();
    void cmdRicerche_Click(int indice);
    void TabStrip1_Click(int indice);
    void cmdConferma_Click();
    void riga_cambiata();
    void filtra(const QString& scritto);

    void carica_lista();
    void ripristina_riga();
    void colora_gruppi();
    void aggiorna_titolo_elenco();
    void aggiorna_dettaglio();
    void aggiorna_frame2();
    void aggiorna_stato();
    void mostra_segnalimite(bool mostra);
    void archivio_letto(EsitoArchivio esito);
    void cartella_letta(const std::filesystem::path& cartella, EsitoArchivio esito);
    void usa_archivio(ArchivioEstrazioni archivio);
    void crea_archivio_dimostrativo();
    void scegli_cartella();
    void torna();

    /// The buttons of the groups that have a list; one more opens a screen.
    static constexpr int kGruppi = 6;
    [[nodiscard]] static QString quante_ricerche(int n);
    [[nodiscard]] const Ricerca* ricerca_corrente() const;
    [[nodiscard]] bool costruita(const Ricerca& ricerca) const;
    [[nodiscard]] bool cerca_attiva() const;
    /// Key of the list shown in the memory: 0 to 5 the groups, 6 to 9 the tabs from the second on.
    [[nodiscard]] int chiave_memoria() const;

    Sessione& sessione_;
    MemoriaCatalogo memoria_;
    std::span<const RigaSchermo> schermi_;
    std::map<Schermo, std::unique_ptr<QWidget>> finestre_;
    std::optional<ArchivioEstrazioni> archivio_;
    bool archivio_cercato_ = false;  ///< found or not: the reading is over
    /// The folder whose archive is being read, if it is another one than that in use.
    std::optional<std::filesystem::path> cartella_in_prova_;
    bool lettura_lunga_ = false;       ///< and the window says so
    const Ricerca* attesa_ = nullptr;  ///< opens when the archive has been read
    LettoreArchivio lettore_;

    int gruppo_ = 0;          ///< group shown in the first tab
    bool terminata_ = false;  ///< closed by the user
    bool attivata_ = false;   ///< the memory has been read
    bool in_carica_ = true;   ///< lists change by program: nothing is written
    int skin_letta_ = 0;      ///< index as in skn.dat

    QStackedWidget* pagine_ = nullptr;
    QWidget* catalogo_ = nullptr;
    FrameSegnalimite* frame_segnalimite_ = nullptr;
    QTabBar* tab_strip_ = nullptr;
    QLineEdit* txt_cerca_ = nullptr;
    PulsanteSkin* cmd_skin_ = nullptr;
    QStackedWidget* cornici_ = nullptr;
    QWidget* frame1_ = nullptr;
    QWidget* frame2_ = nullptr;
    QLabel* lbl_frame2_ = nullptr;
    QLabel* lbl_gioco_ = nullptr;
    std::array<PulsanteGruppo*, 7> cmd_ricerche_{};
    std::array<CorniceGruppo*, 7> frame_b_{};
    QLabel* lbl_elenco_ = nullptr;
    QLabel* lbl_quante_ = nullptr;
    GrigliaElenco* griglia_ = nullptr;
    ModelloElenco* modello_ = nullptr;
    DelegatoElenco* delegato_ = nullptr;
    FrameDettaglio* dettaglio_ = nullptr;
    FrameArchivio* frame_archivio_ = nullptr;
    QLabel* lbl_stato_ = nullptr;
    QLabel* lbl_simulato_ = nullptr;
    QPushButton* command1_ = nullptr;
};

}  // namespace sortimetra
