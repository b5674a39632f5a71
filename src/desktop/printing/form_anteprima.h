#pragma once

#include "printing/rapporto.h"
#include "results/risposta.h"

#include <QDialog>
#include <QImage>
#include <cstdint>
#include <memory>
#include <vector>

class QBoxLayout;
class QComboBox;
class QFrame;
class QLabel;
class QPushButton;
class QScrollArea;

namespace sortimetra {

class CasellaCifre;
class PannelloAvanzamento;
struct LavoroStampa;

/// A sheet of a report as it will be, at any size: a page is drawn when it is shown, never before.
class FoglioAnteprima final : public QWidget {
    Q_OBJECT
  public:
    explicit FoglioAnteprima(QWidget* padre = nullptr);

    void imposta(const Rapporto* rapporto);
    void mostra(int pagina);
    /// Millimetres to pixels of the screen; the widget takes the sheet's size.
    void imposta_scala(double pixel_per_mm);
    [[nodiscard]] QSizeF misure_mm() const;

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    const Rapporto* rapporto_ = nullptr;
    int pagina_ = 1;
    double scala_ = 1;
    QImage immagine_;
};

/// The preview before paper: the sheet at the left, at the right the page, the size and the frame `Frame_opz`
/// with the pages to print (`txtpag_0`, `txtpag_1`, `lbltotale`, `cmdopzioni_0` "Annulla", `cmdopzioni_1`
/// "Stampa"), and "Salva come PDF". Page Up and Page Down turn pages, Ctrl+P prints, Esc closes.
class FormAnteprima final : public QDialog {
    Q_OBJECT
  public:
    /// `tenuto` is whatever the report reads; it lives as long as the window.
    FormAnteprima(Rapporto rapporto, std::shared_ptr<const void> tenuto, QWidget* padre = nullptr);

    [[nodiscard]] int pagina() const { return pagina_; }
    /// Shows a page, brought within the report.
    void vai(int pagina);
    /// The pages of `txtpag_0` and `txtpag_1`.
    [[nodiscard]] PagineScelte pagine() const;

    void stampa();
    void salva_pdf();

  protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

  private:
    void componi();
    QBoxLayout* componi_pagine();
    QBoxLayout* componi_grandezza();
    QFrame* componi_opzioni();
    void adatta();
    void riporta(CasellaCifre* casella) const;
    /// Whether the pages make sense; says so under the boxes if not.
    bool pagine_valide();
    template <class Lavoro>
    void con_avanzamento(Lavoro&& lavoro);

    Rapporto rapporto_;
    std::shared_ptr<const void> tenuto_;
    int pagina_ = 1;
    bool in_corsa_ = false;

    QWidget* corpo_;
    QScrollArea* scorri_;
    FoglioAnteprima* foglio_;
    QPushButton* indietro_;
    QPushButton* avanti_;
    CasellaCifre* txt_pagina_;
    QComboBox* grandezza_;
    CasellaCifre* txtpag_0_;
    CasellaCifre* txtpag_1_;
    QLabel* esito_;
    PannelloAvanzamento* pannello_;
};

/// What every screen's "Stampa" does: the report of an answer in the preview, over its window. Returns at
/// once; the window deletes itself when it is closed.
FormAnteprima* stampa_risultato(QWidget* finestra, const Risposta& risposta);

/// The same for what a search screen hands over: `schermo.imposta_stampa(stampa_lavoro)`.
void stampa_lavoro(const LavoroStampa& lavoro);

}  // namespace sortimetra
