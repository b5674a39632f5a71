#pragma once

#include "chance/grafico.h"

#include <QImage>
#include <QRgb>
#include <QString>
#include <QWidget>

namespace sortimetra {

/// The colours of a picture's ground and letters; those of its series follow from them.
struct ColoriGrafico {
    QRgb fondo = qRgb(255, 255, 255);
    QRgb testo = qRgb(0x1D, 0x21, 0x29);
    QRgb quieto = qRgb(0x5A, 0x61, 0x6D);
    QRgb linea = qRgb(0xDA, 0xD7, 0xCE);
};

/// As many stories lie over each other as there are colours that everybody tells apart on any ground.
inline constexpr int kSerieGrafico = 4;

/// The picture of stories on a screen. It comes out of a module that is loaded when the first one is wanted:
/// the plotting library costs a program nothing until then.
///
/// The wheel and a drag zoom and move through time, so do "+", "-" and the arrows; a double click or Home
/// shows the whole again. Hovering names the draw.
class TelaStoria : public QWidget {
  public:
    using QWidget::QWidget;

    virtual void mostra(const Grafico& grafico, const ColoriGrafico& colori) = 0;
    /// Shows the whole time again.
    virtual void rimetti() = 0;
    /// What stands at a point: "67, concorso 4012 del 12/03/2019: ritardo 152"; "" for nothing.
    [[nodiscard]] virtual QString testo_a(QPoint punto) const = 0;
    /// The colour of a series, for whatever names it elsewhere.
    [[nodiscard]] virtual QRgb colore(int serie) const = 0;
    /// The first and last concorso in sight.
    [[nodiscard]] virtual std::pair<double, double> tratto() const = 0;
};

/// Makes one; the module's second door, beside that of chance/grafico.h:
/// `extern "C" sortimetra::TelaStoria* sortimetra_tela_storia(QWidget*)`.
using CreaTelaStoria = TelaStoria* (*)(QWidget*);
inline constexpr Modulo kModuloTela{kModuloGrafico.file, "sortimetra_tela_storia", kModuloGrafico.cosa};
/// The same picture as pixels of a sheet of that size, black on white, for paper; the third door,
/// `extern "C" void sortimetra_dipingi_grafico(const Grafico&, QImage&)`.
using DipingiGrafico = void (*)(const Grafico&, QImage&);
inline constexpr Modulo kModuloDipingi{kModuloGrafico.file, "sortimetra_dipingi_grafico",
                                       kModuloGrafico.cosa};

}  // namespace sortimetra
