#pragma once

#include "printing/superficie.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace sortimetra {

/// The one class through which a page is drawn: a text and a place on the paper.
///
/// Positions and sizes are millimetres from the physical edge of the sheet. What the surface gains through
/// it: coordinates from the sheet's corner, texts of several lines, alignment at a point, clipping to a
/// width, rounded boxes. It holds no page: each call goes straight to the surface.
///
/// A drawing that fails tells `avviso` and returns, so that the report goes on with the next call.
class EasyPrint {
  public:
    /// Receives title and text of a stop box. The text's lines are parted by CR LF.
    using Avviso = std::function<void(const std::string& titolo, const std::string& testo)>;

    EasyPrint(Superficie& superficie, Avviso avviso);

    /// Factor of the line distance in texts of several lines. A negative value is stored as 1.
    [[nodiscard]] float SpaziaturaLinea() const { return spaziatura_linea_; }
    void SpaziaturaLinea(float fattore) { spaziatura_linea_ = fattore < 0 ? 1.0F : fattore; }

    [[nodiscard]] std::int16_t FontSize() const;
    void FontSize(std::int16_t punti);
    [[nodiscard]] const std::string& FontName() const { return superficie_->stato.carattere.famiglia; }
    void FontName(std::string_view nome) { superficie_->stato.carattere.famiglia = nome; }
    [[nodiscard]] bool FontBold() const { return superficie_->stato.carattere.grassetto; }
    void FontBold(bool si) { superficie_->stato.carattere.grassetto = si; }
    [[nodiscard]] bool FontItalic() const { return superficie_->stato.carattere.corsivo; }
    void FontItalic(bool si) { superficie_->stato.carattere.corsivo = si; }
    [[nodiscard]] bool FontUnderline() const { return superficie_->stato.carattere.sottolineato; }
    void FontUnderline(bool si) { superficie_->stato.carattere.sottolineato = si; }
    /// Packed 0xBBGGRR: 255 is red.
    [[nodiscard]] Colore ForeColor() const { return superficie_->stato.colore; }
    void ForeColor(Colore colore) { superficie_->stato.colore = colore; }

    /// Printer's paper code, see fogli.h.
    [[nodiscard]] std::int16_t PaperSize() const;
    void PaperSize(std::int16_t codice);
    [[nodiscard]] std::int16_t Copies() const;
    void Copies(std::int16_t copie);
    void PrintQuality(std::int16_t qualita);
    void ColorMode(std::int16_t modo);
    /// 1 portrait, 2 landscape; any other value changes nothing.
    void Orientation(std::int16_t orientamento);
    void DrawStyle(std::int16_t stile) { superficie_->stato.stile = stile; }
    void DrawWidth(std::int16_t punti) { superficie_->stato.spessore = punti; }

    [[nodiscard]] float CurrentX() const;
    void CurrentX(float x);
    [[nodiscard]] float CurrentY() const;
    void CurrentY(float y);
    [[nodiscard]] std::int16_t FontCount() const;
    /// Name of the i-th font, from 0.
    [[nodiscard]] std::string Fonts(int i) const { return superficie_->nome_carattere(i); }
    /// Height and width of the sheet as it lies.
    [[nodiscard]] float PageHeight() const;
    [[nodiscard]] float PageWidth() const;
    /// Number of the current page.
    [[nodiscard]] std::int16_t Page() const;

    /// Text starting at x. Lines are parted by CR (a LF after it is dropped), blanks at their ends are
    /// trimmed; the first line is indented by `rientro`, each is clipped at its end to `larghezza_max` where
    /// that is above 0. With x or y below 0 the text goes on where the last text ended, on that axis.
    void PrintLeft(float x, float y, std::string_view testo, float rientro = 0, float larghezza_max = 0);
    /// Text ending at x; `rientro` moves the end of the first line to the left, clipping takes away the
    /// start.
    void PrintRight(float x, float y, std::string_view testo, float rientro = 0, float larghezza_max = 0);
    /// Text centred on x, clipped at its end.
    void PrintCentre(float x, float y, std::string_view testo, float larghezza_max = 0);
    /// The outline of a box, with corners of radius `raggio` if that is above 0; at most half of the smaller
    /// side is used.
    void PrintShape(float x, float y, float larghezza, float altezza, float raggio = 0);
    /// A picture; a size of 0 means its natural one, on that axis.
    void PrintPicture(const Immagine& immagine, float x, float y, float larghezza = 0, float altezza = 0);

    /// Of one line in the current font, in mm.
    [[nodiscard]] float TextWidth(std::string_view testo) const;
    [[nodiscard]] float TextHeight(std::string_view testo) const;

    void EndDoc();
    void NewPage();
    void KillDoc() { superficie_->annulla(); }

    /// How the sheet lies: reports ask the printer itself.
    [[nodiscard]] Orientamento orientamento() const { return superficie_->lavoro().orientamento; }
    /// Whether any drawing has failed so far.
    [[nodiscard]] bool fallita() const { return fallita_; }

  private:
    enum class Allineamento : std::uint8_t { sinistra, destra, centro };
    void stampa_righe(Allineamento allineamento, float x, float y, std::string_view testo, float rientro,
                      float larghezza_max);
    [[nodiscard]] std::string_view ritaglia(std::string_view riga, float larghezza_max,
                                            bool dalla_fine) const;
    /// Shows the message of a failure. Returns whether all went well.
    bool controlla(const Esito& esito);

    Superficie* superficie_;
    Avviso avviso_;
    /// From a sheet coordinate to the surface's own; zero or negative, and changing with the sheet.
    [[nodiscard]] float margine_x() const;
    [[nodiscard]] float margine_y() const;
    float spaziatura_linea_ = 1;
    bool fallita_ = false;
};

}  // namespace sortimetra
