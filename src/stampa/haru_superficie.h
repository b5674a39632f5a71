#pragma once

#include "qt_caratteri.h"

#include <hpdf.h>

#include <QPageLayout>
#include <QPen>
#include <QSvgRenderer>
#include <array>
#include <expected>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace sortimetra {

/// A PDF without Qt's own writer: a text is one string of the file, where Qt places every letter by itself. A
/// third of the time and of the size.
///
/// Beyond it are letters outside of the Western code page, fonts that are not in a TrueType file, lines under
/// texts, and pictures of anything but plain outlines: the call fails, `oltre_le_forze` is true from then on,
/// and the document is to be drawn by Qt. Widths are Qt's, so that both give the same pages.
class SuperficieHaru final : public Superficie {
  public:
    /// `formato` is the paper until `imposta` changes it.
    SuperficieHaru(const std::string& titolo, const QPageLayout& formato);

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
    void annulla() override { documento_.reset(); }

    [[nodiscard]] bool oltre_le_forze() const { return oltre_; }
    /// The bytes of the ended document.
    [[nodiscard]] std::expected<std::string, ErroreDisegno> byte();

  private:
    /// A font file in the document.
    struct Incluso {
        HPDF_Font font = nullptr;  ///< null: the file cannot be included
        /// By byte of the code page: how wide readers take it for, in thousandths of the size; -1 not asked.
        std::array<int, 256> larghezze;
    };
    struct Disegno {
        std::unique_ptr<QSvgRenderer> svg;
        HPDF_Dict modulo = nullptr;
        bool provato = false;
    };
    /// What the page's content has set so far.
    struct Messo {
        bool testo = false;  ///< between the operators that begin and end texts
        const void* carattere = nullptr;
        std::int64_t colore = -1;
        long long x = 0;
        long long y = 0;
        std::string penna{};
    };

    std::unexpected<ErroreDisegno> oltre(const char* cosa);
    Esito comincia();
    Esito versa_pagina();
    /// Ends a group of texts: outlines stand between them.
    void chiudi_testi();
    void apri_testo(CaratteriQt::Stile& stile, Incluso& incluso, long long x, long long y);
    Incluso& includi(CaratteriQt::Stile& stile);
    /// The bytes of `testo` as the file's operator shows them, or false.
    bool codifica(CaratteriQt::Stile& stile, Incluso& incluso, std::string_view testo, double& larghezza);
    Esito traccia(const QPainterPath& percorso);
    QSvgRenderer* carica(const Immagine& immagine);
    HPDF_Dict modulo(const Immagine& immagine);
    void leggi_foglio();

    std::unique_ptr<_HPDF_Doc_Rec, void (*)(HPDF_Doc)> documento_;
    HPDF_Page foglio_pdf_ = nullptr;
    QPageLayout formato_;
    Foglio foglio_;
    int pagina_ = 1;
    bool oltre_ = false;
    CaratteriQt caratteri_;
    std::unordered_map<const void*, Incluso*> per_stile_;
    std::map<std::string, Incluso> inclusi_;
    std::unordered_map<char32_t, unsigned char> codici_;
    std::map<const char*, Disegno> immagini_;
    std::string contenuto_;
    std::string mostrato_;
    Messo messo_;
};

}  // namespace sortimetra
