#pragma once

#include <QFont>
#include <QIcon>
#include <QRgb>
#include <QString>
#include <array>

class QApplication;
class QLabel;
class QWidget;

namespace sortimetra {

/// One skin: a set of colours by role. Whatever draws with a colour takes it from here, never from a literal,
/// so that a new skin is a new row of the table in tema.cpp and nothing else.
struct Skin {
    const char* nome;       ///< as shown to the user
    const char* carattere;  ///< one line on what it is like
    bool scura;
    QRgb finestra;         ///< ground of the windows
    QRgb superficie;       ///< ground of fields, cards and grids
    QRgb rilievo;          ///< ground of buttons, titles of grids, whatever is under the pointer
    QRgb testo;            ///< text on the three grounds and on the two tints
    QRgb testo_quieto;     ///< secondary text on the same grounds
    QRgb linea;            ///< rules that part things; carries no information
    QRgb bordo;            ///< edge of a control, by which it is recognised: 3:1 on its ground
    QRgb accento;          ///< the primary button, what is ticked, the focus
    QRgb testo_accento;    ///< text on `accento`
    QRgb tinta_a;          ///< ground of the odd rows of a grid
    QRgb tinta_b;          ///< ground of the even rows
    QRgb selezione;        ///< ground of selected rows
    QRgb testo_selezione;  ///< text on `selezione`
    QRgb trovato;          ///< ground of a hit
    QRgb testo_trovato;    ///< text on `trovato`
    QRgb avviso;           ///< text of a warning, negative marks
    QRgb buono;            ///< text of a good outcome, positive marks
};

inline constexpr int kNumeroSkin = 9;
/// Everything that is measured in a layout is a multiple of this (in pixels at 100 %).
inline constexpr int kPasso = 4;
/// Between the edge of a window and what it shows.
inline constexpr int kMargine = 4 * kPasso;

/// The skins in order: index n of the settings is element n - 1.
[[nodiscard]] const std::array<Skin, kNumeroSkin>& skin();

/// The skin in use, and its index 1 to 9. Before `applica_tema` it is the first.
[[nodiscard]] const Skin& skin_in_uso();
[[nodiscard]] int indice_skin_in_uso();

/// Dresses the whole program in skin `indice`, 1 to 9: style, palette, style sheet. May be called again at
/// any moment; open windows change at once. An index outside 1 to 9 loads nothing and gives false (the first
/// call then dresses the program in skin 1 all the same, since something must be shown).
///
/// What a widget is, is told to the style sheet by the property `ruolo` (see `assegna_ruolo`).
bool applica_tema(QApplication& applicazione, int indice);

/// Roles that the style sheet knows:
/// - QPushButton: "primario" (one per screen), "gruppo" (large, tinted, checkable), "ordina" (sort buttons
/// over
///   a grid), "piatto" (no ground until the pointer is over it),
///   "interruttore" (the same, checkable);
/// - QCheckBox: "chip";
/// - QLabel: "titolo", "quieto", "avviso", "sezione" (small heading of a group of controls);
/// - QFrame: "scheda" (surface with an edge), "linea" (a one-pixel rule).
void assegna_ruolo(QWidget* widget, const char* ruolo);

/// The small heading of a group of controls; `compagno`, where there is one, goes by the same name.
[[nodiscard]] QLabel* nuova_sezione(const QString& testo, QWidget* compagno = nullptr);

/// The style sheet of a skin; `punti` is the size of the desktop's font.
[[nodiscard]] QString foglio_di_stile(const Skin& skin, double punti);

/// Contrast of two colours by the sRGB luminance formula, 1 to 21.
[[nodiscard]] double contrasto(QRgb a, QRgb b);
/// Whichever of black and white is the more readable on a ground that no skin has chosen.
[[nodiscard]] QRgb testo_su(QRgb fondo);

enum class TintaIcona { testo, quieto, accento, su_accento, avviso };

/// An icon of data/icone by its file's name, drawn in the colours of the skin in use at each painting: it
/// follows a change of skin and any scale.
[[nodiscard]] QIcon icona(const QString& nome, TintaIcona tinta = TintaIcona::testo);

/// `base` if its ten digits are equally wide, else the nearest font of the system whose digits are, in the
/// same size: columns of numbers must stand digit under digit.
[[nodiscard]] QFont carattere_tabellare(const QFont& base);

}  // namespace sortimetra
