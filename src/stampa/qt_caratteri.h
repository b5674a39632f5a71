#pragma once

#include "printing/superficie.h"

#include <QColor>
#include <QFont>
#include <QRawFont>
#include <array>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace sortimetra {

/// Units of a drawing in a millimetre and in a point: 1/1440 inch, so that fonts have whole sizes.
inline constexpr double kUnita = 1440 / kPollice;
inline constexpr int kUnitaPunto = 20;

/// A packed colour as Qt's.
[[nodiscard]] inline QColor colore_qt(Colore c) {
    return QColor{c & 0xFF, c >> 8 & 0xFF, c >> 16 & 0xFF};
}

/// The fonts that a surface was asked for, with the widths that its texts have. Widths come from the font's
/// design, without kerning and hinting, and are therefore the same on every surface.
class CaratteriQt {
  public:
    struct Glifo {
        quint32 indice = 0;  ///< 0: the font has none
        double avanzamento = 0;
        bool noto = false;
    };
    /// A font with the glyphs that were asked for so far.
    struct Stile {
        QFont font;
        QRawFont grezzo;
        double ascendente = 0;
        double altezza = 0;
        std::array<Glifo, 256> latini;
        std::unordered_map<char32_t, Glifo> altri;
    };

    Stile& stile(const Carattere& carattere);
    static const Glifo& glifo(Stile& stile, char32_t carattere);
    /// Whether `testo` can be set glyph by glyph; fills its width.
    static bool a_glifi(Stile& stile, std::string_view testo, double& larghezza);
    /// Of one line, in units.
    static double larghezza(Stile& stile, std::string_view testo);

  private:
    std::vector<std::pair<Carattere, std::unique_ptr<Stile>>> stili_;
    std::size_t ultimo_ = 0;
};

}  // namespace sortimetra
