#pragma once

#include "printing/superficie.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// A surface that draws nothing and remembers everything: what stands on which page, where. Places are
/// millimetres from the sheet's corner. Texts are as wide as on paper.
class SuperficieRegistrata final : public Superficie {
  public:
    struct Testo {
        int pagina;
        double x, y;  ///< upper left corner
        double larghezza;
        std::string testo;
        Carattere carattere;
        Colore colore;
    };
    struct Tratto {
        int pagina;
        double x1, y1, x2, y2;
        int spessore;
        Colore colore;
        int stile;
    };
    struct Arco {
        int pagina;
        double x, y, raggio, da, a;
    };
    struct Figura {
        int pagina;
        double x, y;
        Dimensioni dimensioni;
        std::string nome;
    };

    /// An A4 sheet whose printable area begins as told, in mm from its corner.
    explicit SuperficieRegistrata(double scostamento_x = 0, double scostamento_y = 0);

    [[nodiscard]] Foglio foglio() const override;
    void imposta(const Lavoro& lavoro) override { lavoro_ = lavoro; }
    [[nodiscard]] int n_caratteri() const override { return 2; }
    [[nodiscard]] std::string nome_carattere(int i) const override;
    [[nodiscard]] double larghezza(std::string_view testo) override;
    [[nodiscard]] double altezza(std::string_view testo) override;
    /// Pictures are taken to be 40 x 30 mm; one without bytes cannot be read.
    [[nodiscard]] std::expected<Dimensioni, ErroreDisegno> dimensioni(const Immagine& immagine) override;
    Esito scrivi(std::string_view testo) override;
    Esito linea(double x1, double y1, double x2, double y2) override;
    Esito rettangolo(double x1, double y1, double x2, double y2) override;
    Esito arco(double centro_x, double centro_y, double raggio, double da, double a) override;
    Esito disegna(const Immagine& immagine, double x, double y, Dimensioni misure) override;
    [[nodiscard]] int pagina() const override { return pagina_; }
    Esito nuova_pagina() override;
    Esito fine() override;
    void annulla() override { annullato_ = true; }

    /// Every drawing from now on fails with this error.
    void guasta(ErroreDisegno errore) { guasto_ = std::move(errore); }

    [[nodiscard]] const std::vector<Testo>& testi() const { return testi_; }
    [[nodiscard]] const std::vector<Tratto>& linee() const { return linee_; }
    [[nodiscard]] const std::vector<Tratto>& riquadri() const { return riquadri_; }
    [[nodiscard]] const std::vector<Arco>& archi() const { return archi_; }
    [[nodiscard]] const std::vector<Figura>& figure() const { return figure_; }
    [[nodiscard]] bool finito() const { return finito_; }
    [[nodiscard]] bool annullato() const { return annullato_; }

    /// The first text that reads so, on the page (0: on any); null if there is none.
    [[nodiscard]] const Testo* trova(std::string_view testo, int pagina = 0) const;
    /// The texts of a page in the order of drawing, each "x y testo" with one decimal, one a line.
    [[nodiscard]] std::string pagina_come_testo(int pagina) const;

  private:
    [[nodiscard]] Esito esito() const;
    double scostamento_x_;
    double scostamento_y_;
    std::optional<ErroreDisegno> guasto_;
    int pagina_ = 1;
    bool finito_ = false;
    bool annullato_ = false;
    std::vector<Testo> testi_;
    std::vector<Tratto> linee_;
    std::vector<Tratto> riquadri_;
    std::vector<Arco> archi_;
    std::vector<Figura> figure_;
};

}  // namespace sortimetra
