#pragma once

#include "printing/rapporto.h"

#include <QImage>
#include <QScrollArea>
#include <array>

namespace sortimetra {

/// A sheet of a report as it will be, at any size: a page is drawn when it is shown, never before.
class FoglioAnteprima final : public QWidget {
    Q_OBJECT
  public:
    explicit FoglioAnteprima(QWidget* padre = nullptr);

    void imposta(const Rapporto* rapporto);
    /// Page 0 leaves the place of the sheet empty.
    void mostra(int pagina);
    [[nodiscard]] int pagina() const { return pagina_; }
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

/// The sheets of a report to read: one, or two side by side like a book where there is room for both.
///
/// The wheel scrolls the sheet and at its end goes on to the next one; with Ctrl it changes the size, keeping
/// the point under the pointer. Page Up and Page Down do the same with a screenful.
class VistaFogli final : public QScrollArea {
    Q_OBJECT
  public:
    /// Sizes that follow the window; any other size is a percentage of the true one.
    static constexpr int kPaginaIntera = 0;
    static constexpr int kLarghezzaPagina = -1;
    static constexpr std::array kPercentuali{25, 50, 75, 100, 125, 150, 200, 300};

    explicit VistaFogli(QWidget* padre = nullptr);

    void imposta(const Rapporto* rapporto);
    /// The page that was asked for, and those in sight with it.
    [[nodiscard]] int pagina() const { return pagina_; }
    [[nodiscard]] int prima_in_vista() const;
    [[nodiscard]] int ultima_in_vista() const;
    /// Shows a page, brought within the report, from its top.
    void vai(int pagina);
    void avanti() { vai(ultima_in_vista() + 1); }
    void indietro() { vai(prima_in_vista() - 1); }
    /// A screenful on, or back; from the end of a sheet to the next one.
    void scorri(bool avanti);

    void imposta_misura(int misura);
    [[nodiscard]] int misura() const { return misura_; }
    /// The next size up or down from what is shown, around a point of the viewport.
    void ingrandisci(bool di_piu, QPoint attorno);
    void ingrandisci(bool di_piu);

  signals:
    void pagina_cambiata();
    void misura_cambiata(int misura);

  protected:
    void wheelEvent(QWheelEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void showEvent(QShowEvent* evento) override;

  private:
    void adatta();
    void mostra_pagine();
    [[nodiscard]] int pagine() const;
    /// Pixels to the millimetre at the true size.
    [[nodiscard]] double scala_vera() const;
    /// Turns a page where the sheet has no more to scroll that way; false where it has.
    bool volta(bool avanti);
    /// Whole notches of the wheel; touchpads send parts of them.
    [[nodiscard]] int scatti(int delta);

    const Rapporto* rapporto_ = nullptr;
    QWidget* tavolo_;
    std::array<FoglioAnteprima*, 2> fogli_;
    int pagina_ = 1;
    int misura_ = kPaginaIntera;
    double scala_ = 1;
    bool affiancati_ = false;
    int resto_ = 0;
};

}  // namespace sortimetra
