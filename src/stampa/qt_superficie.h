#pragma once

#include "printing/superficie.h"
#include "qt_caratteri.h"

#include <QGlyphRun>
#include <QImage>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPointF>
#include <QString>
#include <QSvgRenderer>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace sortimetra {

/// A surface on Qt's painter: a PDF, a printer, or a sheet of a preview. Texts stay texts.
///
/// Lengths inside are those of `kUnita`. Texts of one font and colour are gathered and handed to the painter
/// together: a page has hundreds.
class SuperficieQt : public Superficie {
  public:
    /// Pages of a device, which must outlive the surface. Drawing begins with the first call that draws;
    /// paper and orientation are the device's until `imposta` changes them.
    explicit SuperficieQt(QPagedPaintDevice& dispositivo);
    /// One sheet of the given size on a painter whose unit is a millimetre and whose origin is the sheet's
    /// corner. New pages are ignored.
    SuperficieQt(QPainter& pittore, Dimensioni misure, Orientamento orientamento);
    ~SuperficieQt() override;

    [[nodiscard]] Foglio foglio() const override { return foglio_; }
    void imposta(const Lavoro& lavoro) override;
    [[nodiscard]] int n_caratteri() const override;
    [[nodiscard]] std::string nome_carattere(int i) const override;
    [[nodiscard]] double larghezza(std::string_view testo) override;
    [[nodiscard]] double altezza(std::string_view testo) override;
    [[nodiscard]] std::expected<Dimensioni, ErroreDisegno> dimensioni(const Immagine& immagine) override;
    Esito scrivi(std::string_view testo) override;
    Esito linea(double x1, double y1, double x2, double y2) override;
    Esito rettangolo(double x1, double y1, double x2, double y2) override;
    Esito arco(double centro_x, double centro_y, double raggio, double da, double a) override;
    Esito disegna(const Immagine& immagine, double x, double y, Dimensioni misure) override;
    [[nodiscard]] int pagina() const override { return pagina_; }
    Esito nuova_pagina() override;
    Esito fine() override;
    void annulla() override;

  protected:
    /// Copies, quality and colours, where the device has them; called before drawing begins.
    virtual void imposta_dispositivo(const Lavoro&) {}
    /// Throws the job away, where the device can.
    virtual void annulla_dispositivo() {}

  private:
    struct Disegno {
        std::unique_ptr<QSvgRenderer> svg;
        QImage punti;
        [[nodiscard]] bool valido() const { return svg ? svg->isValid() : !punti.isNull(); }
    };

    CaratteriQt::Stile& stile() { return caratteri_.stile(stato.carattere); }
    const Disegno& carica(const Immagine& immagine);
    Esito comincia();
    /// Hands the gathered texts to the painter.
    void versa();
    Esito prepara_tratto();
    void leggi_foglio();

    QPagedPaintDevice* dispositivo_ = nullptr;
    QPainter proprio_;
    QPainter* pittore_;
    Foglio foglio_;
    int pagina_ = 1;

    CaratteriQt caratteri_;
    std::map<const char*, Disegno> immagini_;

    QList<quint32> glifi_;
    QList<QPointF> posti_;
    CaratteriQt::Stile* stile_raccolto_ = nullptr;
    Colore colore_raccolto_ = 0;
};

}  // namespace sortimetra
