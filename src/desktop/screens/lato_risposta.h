#pragma once

#include "chance/per_ruota.h"
#include "screens/finestra_ricerca.h"

#include <QImage>
#include <QObject>
#include <functional>

class QComboBox;
class QMenu;
class QPushButton;
class QTimer;

namespace sortimetra {

class GrigliaRisultati;
class PannelloStoria;

/// What stands beside the answers of a search window, whichever its screen: the switches "Storia" (Ctrl+G),
/// "Il caso" (Ctrl+I) and "Confronta ruote" (Ctrl+R), the sentence under the grid, and the story of the
/// chosen rows, in the empty right of a wide window or in a drawer over a narrow one.
///
/// The grid shows an answer as the switches say; it is kept as it was given, and comes back when they go off.
class LatoRisposta final : public QObject {
    Q_OBJECT
  public:
    explicit LatoRisposta(FinestraRicerca& finestra);

    /// Puts the switches beside the title of the frame.
    void incornicia();
    /// The window has been set on a search.
    void apri();
    /// An answer as it is to be shown, once it is known; after it is on show; and taken away.
    [[nodiscard]] EsitoRicerca vesti(const EsitoRicerca& esito);
    void mostrata();
    void svuotata();
    /// An answer that a page kept is on show again, as it was.
    void ripresa(const EsitoRicerca& esito);
    /// Follows the grids that a screen may have made since.
    void segui(GrigliaRisultati* griglia);
    /// The window has another size.
    void disponi();

    /// Closes the drawer; false where none is open.
    bool chiudi_cassetto();
    void storia();
    void caso();
    void ruote();
    void imposta_stampa(std::function<void(QWidget*, const QImage&)> stampa);

    /// The panel with the story; null before it was first needed.
    [[nodiscard]] PannelloStoria* pannello() const { return pannello_; }
    /// Whether a grid is part of the story rather than of the answer.
    [[nodiscard]] bool della_storia(const QWidget* widget) const;
    /// Whether the columns on show are those of the answer, so that their order may be remembered.
    [[nodiscard]] bool colonne_proprie() const { return !ruote_attive_; }

  private:
    void componi_interruttori();
    void aggiorna_interruttori();
    void ripresenta();
    void aggiungi_voci(QMenu* menu);
    void programma_storia(GrigliaRisultati* griglia);
    void racconta();
    void apri_pannello();
    void affianca(int larghezza);
    void apri_cassetto();
    [[nodiscard]] bool puo_caso() const;
    [[nodiscard]] bool puo_ruote() const;
    [[nodiscard]] int spazio_accanto() const;
    [[nodiscard]] bool ha_storie() const;
    [[nodiscard]] QString di_che() const;

    FinestraRicerca& finestra_;
    EsitoRicerca intatta_;  ///< the answer as it was given
    QWidget* interruttori_ = nullptr;
    QPushButton* cmd_storia_ = nullptr;
    QPushButton* cmd_caso_ = nullptr;
    QPushButton* cmd_ruote_ = nullptr;
    QComboBox* combo_misura_ = nullptr;
    PannelloStoria* pannello_ = nullptr;
    GrigliaRisultati* scelta_ = nullptr;  ///< the grid whose rows tell their story
    QTimer* pausa_;
    std::function<void(QWidget*, const QImage&)> stampa_;
    bool caso_attivo_ = false;
    bool ruote_attive_ = false;
    bool storia_voluta_ = true;  ///< beside the answer, where there is room
    bool cassetto_ = false;      ///< over it, where there is none
};

}  // namespace sortimetra
