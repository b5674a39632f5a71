#include "grafico/quadro.h"
#include "grafico/tela.h"

#include <QKeyEvent>
#include <QVBoxLayout>

namespace {

using namespace sortimetra;

/// The picture on a screen: what the module hands out.
class Tela final : public TelaStoria {
  public:
    explicit Tela(QWidget* padre) : TelaStoria{padre}, quadro_{new Quadro{this}} {
        auto* tutto = new QVBoxLayout{this};
        tutto->setContentsMargins(0, 0, 0, 0);
        tutto->addWidget(quadro_);
        setFocusPolicy(Qt::StrongFocus);
        setFocusProxy(nullptr);
    }
    void mostra(const Grafico& grafico, const ColoriGrafico& colori) override {
        quadro_->setFont(font());
        tinte_ = colori_serie(colori.fondo);
        quadro_->mostra(grafico, colori, Quadro::Titoli::no);
    }
    void rimetti() override { quadro_->rimetti(); }
    [[nodiscard]] QString testo_a(QPoint punto) const override { return quadro_->testo_a(punto); }
    [[nodiscard]] QRgb colore(int serie) const override { return tinte_[static_cast<std::size_t>(serie)]; }
    [[nodiscard]] std::pair<double, double> tratto() const override { return quadro_->tratto(); }

  protected:
    void keyPressEvent(QKeyEvent* evento) override {
        if (evento->modifiers() == Qt::NoModifier || evento->modifiers() == Qt::KeypadModifier ||
            evento->modifiers() == Qt::ShiftModifier)
            if (quadro_->tasto(evento->key())) return;
        TelaStoria::keyPressEvent(evento);
    }

  private:
    Quadro* quadro_;
    std::array<QRgb, kSerieGrafico> tinte_{};
};

}  // namespace

/// See chance/grafico.h and tela.h.
extern "C" {
__attribute__((visibility("default"))) sortimetra::DisegnaGrafico sortimetra_disegna_grafico() {
    return sortimetra::disegna_grafico;
}
__attribute__((visibility("default"))) sortimetra::TelaStoria* sortimetra_tela_storia(QWidget* padre) {
    return new Tela{padre};
}
__attribute__((visibility("default"))) void sortimetra_dipingi_grafico(const sortimetra::Grafico& grafico,
                                                                       QImage& foglio) {
    sortimetra::dipingi_grafico(grafico, foglio);
}
}
