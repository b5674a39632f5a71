#pragma once

#include "results/colore.h"

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>

namespace sortimetra {

/// Why a surface could not draw: a number for the message box and one sentence.
struct ErroreDisegno {
    int numero = 0;
    std::string descrizione;
};
using Esito = std::expected<void, ErroreDisegno>;

/// The printer does not begin, go on or end; a picture cannot be read.
inline constexpr int kErroreStampante = 482;
inline constexpr int kErroreImmagine = 481;

/// How the sheet lies; the values are those that printers use.
enum class Orientamento : std::uint8_t { verticale = 1, orizzontale = 2 };

/// A picture as the bytes of its file (SVG, PNG …). The bytes must outlive every surface that draws it; the
/// same bytes are read once per surface, however often they are drawn.
struct Immagine {
    std::string_view nome;
    std::string_view dati;
};

/// Width and height in millimetres.
struct Dimensioni {
    double larghezza = 0;
    double altezza = 0;
};

/// The sheet as it lies. The origin of a surface is the corner of the printable area, which stands
/// `scostamento_x`, `scostamento_y` millimetres inside the sheet's corner.
struct Foglio {
    double larghezza = 210;
    double altezza = 297;
    double scostamento_x = 0;
    double scostamento_y = 0;
};

struct Carattere {
    std::string famiglia = "Arial";
    int corpo = 10;  ///< points
    bool grassetto = false;
    bool corsivo = false;
    bool sottolineato = false;

    friend bool operator==(const Carattere&, const Carattere&) = default;
};

/// What belongs to the whole job. A surface without a printer behind it keeps copies and quality unused.
struct Lavoro {
    int foglio = 9;  ///< paper code, 9 is A4
    int copie = 1;
    int qualita = -4;  ///< printer's own scale, -4 the best
    int colori = 2;    ///< 1 black and white, 2 colour
    Orientamento orientamento = Orientamento::verticale;
};

/// Millimetres of an inch.
inline constexpr double kPollice = 25.4;

/// The width of a line is told in dots; on every surface a dot is this wide, so that a page looks the same
/// whatever the resolution: one three-hundredth of an inch, in millimetres.
inline constexpr double kPunto = kPollice / 300;

/// A place to draw a page: paper, a PDF, a preview, or a test's notebook.
///
/// All lengths are millimetres from the corner of the printable area, y downward. Whoever draws sets `stato`
/// and calls; a text starts with its upper left corner at (`stato.x`, `stato.y`).
class Superficie {
  public:
    struct Stato {
        Carattere carattere;
        Colore colore = 0;
        int stile = 0;     ///< 0 solid, 1 dashes, 2 dots, 3 dash and dot, 4 dash and two dots, 5 none
        int spessore = 1;  ///< dots, see `kPunto`
        double x = 0;
        double y = 0;
    };

    Superficie() = default;
    Superficie(const Superficie&) = delete;
    Superficie& operator=(const Superficie&) = delete;
    virtual ~Superficie() = default;

    Stato stato;

    [[nodiscard]] virtual Foglio foglio() const = 0;
    [[nodiscard]] const Lavoro& lavoro() const { return lavoro_; }
    /// Paper and orientation hold from the next page on, or at once while nothing is drawn yet.
    virtual void imposta(const Lavoro& lavoro) = 0;

    [[nodiscard]] virtual int n_caratteri() const = 0;
    /// Name of the i-th font, from 0; "" beyond the last.
    [[nodiscard]] virtual std::string nome_carattere(int i) const = 0;

    /// Of one line, in the current font.
    [[nodiscard]] virtual double larghezza(std::string_view testo) = 0;
    [[nodiscard]] virtual double altezza(std::string_view testo) = 0;
    [[nodiscard]] virtual std::expected<Dimensioni, ErroreDisegno> dimensioni(const Immagine& immagine) = 0;

    /// One line of text at the current position, which moves to the text's right end.
    virtual Esito scrivi(std::string_view testo) = 0;
    virtual Esito linea(double x1, double y1, double x2, double y2) = 0;
    /// An outline; the inside stays as it is.
    virtual Esito rettangolo(double x1, double y1, double x2, double y2) = 0;
    /// Part of a circle, counterclockwise from `da` to `a` in radians, 0 pointing right.
    virtual Esito arco(double centro_x, double centro_y, double raggio, double da, double a) = 0;
    virtual Esito disegna(const Immagine& immagine, double x, double y, Dimensioni misure) = 0;

    /// Number of the current page, from 1.
    [[nodiscard]] virtual int pagina() const = 0;
    virtual Esito nuova_pagina() = 0;
    /// Ends the document and hands it over.
    virtual Esito fine() = 0;
    /// Abandons the document.
    virtual void annulla() = 0;

  protected:
    Lavoro lavoro_;
};

}  // namespace sortimetra
