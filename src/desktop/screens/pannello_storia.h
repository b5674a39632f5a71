#pragma once

#include "chance/grafico.h"
#include "chance/storia.h"
#include "draws/archivio.h"
#include "grafico/tela.h"

#include <QFrame>
#include <QImage>
#include <QString>
#include <functional>
#include <vector>

class QLabel;
class QToolButton;
class QVBoxLayout;

namespace sortimetra {

class GrigliaRisultati;

/// The story of one to four rows: the picture of their delays, closed delays and hits by year, under it the
/// list of the hits of the first. The plotting library is loaded when the first story is drawn.
///
/// Ctrl+C copies the list of all stories as tab-separated text. Its menu saves the picture, `stampa` prints.
class PannelloStoria final : public QFrame {
    Q_OBJECT
  public:
    explicit PannelloStoria(QWidget* padre);

    /// Draws stories over one scope; `di_che` says of what they are, in one line.
    void mostra(std::vector<Storia> storie, const QString& di_che, bool simulato);
    /// Shows nothing but a quiet sentence.
    void svuota(const QString& frase);
    [[nodiscard]] const Grafico& grafico() const { return grafico_; }
    [[nodiscard]] const std::vector<Storia>& storie() const { return storie_; }
    /// The picture; null before the first story, or where the module is missing.
    [[nodiscard]] TelaStoria* tela() const { return tela_; }
    [[nodiscard]] GrigliaRisultati* elenco() const { return elenco_; }

    /// What "Stampa" does with the picture on paper; without it the button is not there.
    void imposta_stampa(std::function<void(QWidget*, const QImage&)> stampa);
    /// A drawer closes with Esc; beside the answer Esc is the window's.
    void imposta_cassetto(bool si) { cassetto_ = si; }

    void copia_dati() const;
    /// Asks for a file and writes the picture there.
    void salva(FormatoGrafico formato);
    void stampa();

  signals:
    void chiudi();

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void changeEvent(QEvent* evento) override;

  private:
    void componi_testata(QVBoxLayout* colonna);
    void disegna();
    [[nodiscard]] bool carica_tela();
    void mostra_elenco();

    std::vector<Storia> storie_;
    Grafico grafico_;
    TelaStoria* tela_ = nullptr;
    QWidget* campo_;
    QVBoxLayout* posto_tela_;
    QLabel* titolo_;
    QLabel* di_che_;
    QLabel* frase_;
    QLabel* errore_;
    QLabel* lbl_elenco_;
    QToolButton* cmd_salva_;
    QToolButton* cmd_stampa_;
    GrigliaRisultati* elenco_;
    std::function<void(QWidget*, const QImage&)> stampa_;
    bool cassetto_ = false;
};

}  // namespace sortimetra
