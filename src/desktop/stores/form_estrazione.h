#pragma once

#include "draws/archivio.h"
#include "draws/gioco.h"
#include "files/sessione.h"
#include "stores/arrivi.h"

#include <QWidget>
#include <array>

class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTabBar;

namespace sortimetra {

class QuadroEstrazione;

/// The newest draw of a game, typed in by hand: the eleven wheels of the Lotto, SuperEnalotto's six with
/// Jolly and SuperStar, a draw of Win for Life. The date is the one that the calendar has after the archive's
/// last; numbers are checked as they are typed.
///
/// What is typed goes the way of every update: it is handed on and shown before anything is written.
class Form_Estrazione final : public QWidget {
    Q_OBJECT
  public:
    explicit Form_Estrazione(Sessione& sessione, QWidget* padre = nullptr);

    /// Empties the boxes and proposes dates behind what the archive holds, none later than `oggi`; null for
    /// no archive.
    void prepara(const ArchivioEstrazioni* archivio, Data oggi);

  signals:
    /// The draw is whole and goes to be shown.
    void scritta(const Arrivate& arrivate);

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

  private:
    void componi();
    QWidget* componi_data();
    void componi_quadri();
    void mostra_gioco(int quale);
    void aggiorna();
    void aggiungi();
    [[nodiscard]] Gioco gioco() const;
    [[nodiscard]] Data data_scritta() const;
    [[nodiscard]] QuadroEstrazione* quadro() const;
    [[nodiscard]] Arrivate arrivate() const;

    Sessione& sessione_;
    Data oggi_{};
    QTabBar* giochi_ = nullptr;
    QStackedWidget* pagine_ = nullptr;
    std::array<QuadroEstrazione*, 3> quadri_{};
    /// What is proposed to each game, kept while another one is on show.
    std::array<Data, 3> date_{};
    int minuti_ = 0;  ///< hour proposed for Win for Life, since midnight
    QDateEdit* data_ = nullptr;
    QLabel* giorno_ = nullptr;
    QLabel* scritta_ora_ = nullptr;
    QComboBox* ora_ = nullptr;
    QLabel* stato_ = nullptr;
    QPushButton* aggiungi_ = nullptr;
};

}  // namespace sortimetra
