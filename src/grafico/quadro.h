#pragma once

#include "chance/grafico.h"
#include "grafico/tela.h"

#include <qcustomplot.h>

#include <QFont>
#include <QString>
#include <array>
#include <utility>
#include <vector>

namespace sortimetra {

/// The colours of the series on a ground, after Okabe and Ito: those of their eight that stand out from it.
[[nodiscard]] std::array<QRgb, kSerieGrafico> colori_serie(QRgb fondo);

/// Draws a picture of stories: the delays through time above, below them the closed delays by length and the
/// hits by year, each with what the law gives. Series differ by colour, dashes, marks and hatching.
class Quadro final : public QCustomPlot {
  public:
    explicit Quadro(QWidget* padre = nullptr);

    /// With its titles a picture stands by itself, on paper or in a file.
    enum class Titoli { si, no };
    void mostra(const Grafico& grafico, const ColoriGrafico& colori, Titoli titoli);
    void rimetti();
    [[nodiscard]] QString testo_a(QPointF punto) const;
    [[nodiscard]] std::pair<double, double> tratto() const;
    /// Moves or zooms by the keyboard; false for a key that does neither.
    bool tasto(int quale);
    /// Paints all of it within a size, in lines rather than pixels where the painter can.
    void dipingi(QCPPainter& pittore, QSize misura);

  protected:
    void mouseMoveEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void leaveEvent(QEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

  private:
    void componi(Titoli titoli);
    void metti_titoli();
    void metti_legenda();
    void vesti(QCPAxisRect* riquadro, const QString& titolo);
    void disegna_linea();
    void livello(double valore, Qt::PenStyle tratto, QRgb colore, const QString& testo, double dove);
    /// Marks each draw where they are few enough to be told apart; more would only be slow.
    void adatta_segni();
    void disegna_barre();
    void disegna_anni();
    QCPBars* barre(QCPAxisRect* riquadro, std::size_t serie, double larghezza);
    QCPGraph* curva(QCPAxisRect* riquadro, std::size_t serie);
    struct Vicino {
        std::size_t serie;
        const PuntoRitardo* punto;
    };
    [[nodiscard]] std::optional<Vicino> vicino(QPointF dove) const;
    [[nodiscard]] QString testo_barre(QPointF dove) const;
    [[nodiscard]] QString testo_anni(QPointF dove) const;
    void segna(QPointF dove);
    [[nodiscard]] bool sola() const { return grafico_.serie.size() == 1; }

    Grafico grafico_;
    ColoriGrafico colori_;
    std::array<QRgb, kSerieGrafico> tinte_{};
    QFont piccolo_;
    QCPAxisRect* linea_ = nullptr;
    QCPAxisRect* ritardi_ = nullptr;
    QCPAxisRect* anni_ = nullptr;
    std::vector<QCPGraph*> linee_;  ///< the delays of each series
    QCPLegend* legenda_ = nullptr;
    QCPItemTracer* segno_ = nullptr;
    QCPRange tutto_;
};

/// Paints a picture into a file, whole or not at all.
[[nodiscard]] std::expected<void, ErroreArchivio> disegna_grafico(const Grafico& grafico,
                                                                  const std::filesystem::path& file,
                                                                  FormatoGrafico formato);
void dipingi_grafico(const Grafico& grafico, QImage& foglio);

}  // namespace sortimetra
