#pragma once

#include "systems/schermo_sistemi.h"

#include <array>

class QComboBox;
class QTreeWidget;

namespace sortimetra {

class QuadroGriglie;

/// How often each value of the measures of a combination came: over the draws of a game, or over the
/// combinations of a saved system. One frame per statistic; a frame keeps its figures until the question is
/// another one.
class Form_filtri final : public SchermoSistemi {
    Q_OBJECT
  public:
    explicit Form_filtri(Sessione& sessione);

    [[nodiscard]] Statistica statistica() const;
    [[nodiscard]] QuadroGriglie* quadro(Statistica statistica) const;

  protected:
    void prepara() override;
    void esegui() override;
    void sistema_cambiato() override;
    [[nodiscard]] bool chiede_scelte() const override { return !sui_sistemi(); }
    void svuota() override;
    [[nodiscard]] Parametri parametri() const override;
    void imposta(const Domanda& domanda) override;
    [[nodiscard]] std::vector<std::uint32_t> ordine_in_mostra() const override;
    [[nodiscard]] LavoroStampa lavoro() override;
    void trova() override;

  private:
    static constexpr std::size_t kQuadri = kStatistiche.size();

    /// The second mode: no scope, but a list of systems.
    [[nodiscard]] bool sui_sistemi() const;
    void componi_sistemi();
    void statistica_cambiata();
    void elenca_sistemi();

    QComboBox* combo_;
    QWidget* frame_sistemi_;
    QTreeWidget* elenco_;
    std::array<QuadroGriglie*, kQuadri> quadri_{};
    std::array<EsitoRicerca, kQuadri> esiti_;  ///< a frame's mark is set while its answer is there
    bool fermo_ = false;
};

}  // namespace sortimetra
