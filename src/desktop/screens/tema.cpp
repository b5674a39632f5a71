#include "screens/tema.h"

#include "screens/accesso.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QIconEngine>
#include <QLabel>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStyle>
#include <QStyleFactory>
#include <QSvgRenderer>
#include <QToolTip>
#include <QWidget>
#include <algorithm>
#include <cmath>

// A static library's resources are left out by the linker unless somebody asks for them by name. In a
// namespace the macro would declare them there.
static void carica_risorse() {  // NOLINT(misc-use-anonymous-namespace)
    Q_INIT_RESOURCE(schermi);
}

namespace sortimetra {

namespace {

constexpr QRgb c(unsigned rgb) {
    return 0xFF000000U | rgb;
}

constexpr std::array<Skin, kNumeroSkin> kSkin{{
    {.nome = "Carta",
     .carattere = "Carta chiara e inchiostro blu",
     .scura = false,
     .finestra = c(0xF4F3EF),
     .superficie = c(0xFFFFFF),
     .rilievo = c(0xEAE8E1),
     .testo = c(0x1D2129),
     .testo_quieto = c(0x5A616D),
     .linea = c(0xDAD7CE),
     .bordo = c(0x8C8A82),
     .accento = c(0x1F5FBF),
     .testo_accento = c(0xFFFFFF),
     .tinta_a = c(0xFFFFFF),
     .tinta_b = c(0xEEF4FB),
     .selezione = c(0xC6DDF9),
     .testo_selezione = c(0x0F2A4A),
     .trovato = c(0xFFE45C),
     .testo_trovato = c(0x1D2129),
     .avviso = c(0xB3261E),
     .buono = c(0x1B6E3C)},
    {.nome = "Notte",
     .carattere = "Blu notte, luce fredda",
     .scura = true,
     .finestra = c(0x14181F),
     .superficie = c(0x1B212B),
     .rilievo = c(0x262E3B),
     .testo = c(0xE6EAF0),
     .testo_quieto = c(0x9AA5B5),
     .linea = c(0x2C3543),
     .bordo = c(0x6B7890),
     .accento = c(0x7AB0FF),
     .testo_accento = c(0x0B1626),
     .tinta_a = c(0x1B212B),
     .tinta_b = c(0x212936),
     .selezione = c(0x2B4A75),
     .testo_selezione = c(0xFFFFFF),
     .trovato = c(0xE5C84B),
     .testo_trovato = c(0x1A1606),
     .avviso = c(0xFF9C8F),
     .buono = c(0x7FD6A0)},
    {.nome = "Contrasto",
     .carattere = "Nero, bianco e giallo: il più leggibile",
     .scura = true,
     .finestra = c(0x000000),
     .superficie = c(0x000000),
     .rilievo = c(0x262626),
     .testo = c(0xFFFFFF),
     .testo_quieto = c(0xE4E4E4),
     .linea = c(0x8A8A8A),
     .bordo = c(0xFFFFFF),
     .accento = c(0xFFD800),
     .testo_accento = c(0x000000),
     .tinta_a = c(0x000000),
     .tinta_b = c(0x1C1C1C),
     .selezione = c(0x3DC6FF),
     .testo_selezione = c(0x000000),
     .trovato = c(0xFFFF00),
     .testo_trovato = c(0x000000),
     .avviso = c(0xFF9A8A),
     .buono = c(0x7CFF9B)},
    {.nome = "Salvia",
     .carattere = "Verde salvia, riposante",
     .scura = false,
     .finestra = c(0xEDF2EA),
     .superficie = c(0xFBFDF9),
     .rilievo = c(0xDFE8DA),
     .testo = c(0x1E2A22),
     .testo_quieto = c(0x4F5F56),
     .linea = c(0xCDD9C8),
     .bordo = c(0x76877A),
     .accento = c(0x2F6B4A),
     .testo_accento = c(0xFFFFFF),
     .tinta_a = c(0xFBFDF9),
     .tinta_b = c(0xEBF3E6),
     .selezione = c(0xC3E0CB),
     .testo_selezione = c(0x12301F),
     .trovato = c(0xF7DD62),
     .testo_trovato = c(0x1E2A22),
     .avviso = c(0xA3341A),
     .buono = c(0x1E6B3C)},
    {.nome = "Grafite",
     .carattere = "Grigio neutro e ambra",
     .scura = true,
     .finestra = c(0x1C1C1E),
     .superficie = c(0x242426),
     .rilievo = c(0x323235),
     .testo = c(0xECEAE6),
     .testo_quieto = c(0xADAAA4),
     .linea = c(0x3A3A3D),
     .bordo = c(0x858379),
     .accento = c(0xF0A93B),
     .testo_accento = c(0x241800),
     .tinta_a = c(0x242426),
     .tinta_b = c(0x2C2C2F),
     .selezione = c(0x5F4720),
     .testo_selezione = c(0xFFF3DC),
     .trovato = c(0xFFD65A),
     .testo_trovato = c(0x1E1700),
     .avviso = c(0xFF9B85),
     .buono = c(0x98D38A)},
    {.nome = "Terracotta",
     .carattere = "Sabbia calda e mattone",
     .scura = false,
     .finestra = c(0xF7EEE5),
     .superficie = c(0xFFFBF6),
     .rilievo = c(0xEFE0D1),
     .testo = c(0x2E211B),
     .testo_quieto = c(0x65513F),
     .linea = c(0xE2D0BF),
     .bordo = c(0x947A69),
     .accento = c(0xA6452A),
     .testo_accento = c(0xFFFFFF),
     .tinta_a = c(0xFFFBF6),
     .tinta_b = c(0xF9EEE1),
     .selezione = c(0xF3CFB8),
     .testo_selezione = c(0x401A0C),
     .trovato = c(0xFCDD6B),
     .testo_trovato = c(0x2E211B),
     .avviso = c(0xA3122B),
     .buono = c(0x35641F)},
    {.nome = "Laguna",
     .carattere = "Acqua chiara e ottanio",
     .scura = false,
     .finestra = c(0xE8F2F3),
     .superficie = c(0xFAFEFE),
     .rilievo = c(0xD7E8EA),
     .testo = c(0x12282C),
     .testo_quieto = c(0x425C64),
     .linea = c(0xC3D9DC),
     .bordo = c(0x698890),
     .accento = c(0x0B6573),
     .testo_accento = c(0xFFFFFF),
     .tinta_a = c(0xFAFEFE),
     .tinta_b = c(0xE6F3F5),
     .selezione = c(0xB2DEE6),
     .testo_selezione = c(0x06313A),
     .trovato = c(0xFFE169),
     .testo_trovato = c(0x12282C),
     .avviso = c(0xA82534),
     .buono = c(0x15623A)},
    {.nome = "Vinaccia",
     .carattere = "Vino scuro e rosa antico",
     .scura = true,
     .finestra = c(0x1F1319),
     .superficie = c(0x291A22),
     .rilievo = c(0x3A2630),
     .testo = c(0xF4E8EC),
     .testo_quieto = c(0xC2A7B2),
     .linea = c(0x452E3A),
     .bordo = c(0x957382),
     .accento = c(0xF08CA8),
     .testo_accento = c(0x2B0815),
     .tinta_a = c(0x291A22),
     .tinta_b = c(0x32202A),
     .selezione = c(0x6A2B45),
     .testo_selezione = c(0xFFEFF4),
     .trovato = c(0xF2CC5D),
     .testo_trovato = c(0x221600),
     .avviso = c(0xFF9A8C),
     .buono = c(0x9BD6A6)},
    {.nome = "Bosco",
     .carattere = "Verde profondo e ottone",
     .scura = true,
     .finestra = c(0x101A16),
     .superficie = c(0x16231E),
     .rilievo = c(0x21332C),
     .testo = c(0xE4EFE8),
     .testo_quieto = c(0x9DB3A7),
     .linea = c(0x2A3D35),
     .bordo = c(0x688578),
     .accento = c(0xD9B65B),
     .testo_accento = c(0x221A02),
     .tinta_a = c(0x16231E),
     .tinta_b = c(0x1C2D26),
     .selezione = c(0x2F5B47),
     .testo_selezione = c(0xF2FFF8),
     .trovato = c(0xE9CE63),
     .testo_trovato = c(0x221A02),
     .avviso = c(0xFF9E8A),
     .buono = c(0x8FDCA8)},
}};

int indice_corrente = 1;
bool vestito = false;

double luminanza(QRgb colore) {
    const auto canale = [](int v) {
        const double s = v / 255.0;
        return s <= 0.04045 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * canale(qRed(colore)) + 0.7152 * canale(qGreen(colore)) + 0.0722 * canale(qBlue(colore));
}

QRgb mescola(QRgb a, QRgb b, double quanto_b) {
    const auto m = [quanto_b](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * quanto_b)); };
    return qRgb(m(qRed(a), qRed(b)), m(qGreen(a), qGreen(b)), m(qBlue(a), qBlue(b)));
}

QString esadecimale(QRgb colore) {
    return QColor::fromRgb(colore).name();
}

QPalette tavolozza(const Skin& s) {
    QPalette p;
    const auto metti = [&p](QPalette::ColorRole ruolo, QRgb attivo, QRgb spento) {
        p.setColor(QPalette::Active, ruolo, QColor::fromRgb(attivo));
        p.setColor(QPalette::Inactive, ruolo, QColor::fromRgb(attivo));
        p.setColor(QPalette::Disabled, ruolo, QColor::fromRgb(spento));
    };
    const QRgb spento = mescola(s.finestra, s.testo_quieto, 0.62);
    metti(QPalette::Window, s.finestra, s.finestra);
    metti(QPalette::WindowText, s.testo, spento);
    metti(QPalette::Base, s.superficie, s.finestra);
    metti(QPalette::AlternateBase, s.tinta_b, s.tinta_b);
    metti(QPalette::Text, s.testo, spento);
    metti(QPalette::PlaceholderText, s.testo_quieto, spento);
    metti(QPalette::Button, s.rilievo, s.finestra);
    metti(QPalette::ButtonText, s.testo, spento);
    metti(QPalette::BrightText, s.avviso, spento);
    metti(QPalette::ToolTipBase, s.superficie, s.superficie);
    metti(QPalette::ToolTipText, s.testo, s.testo);
    metti(QPalette::Highlight, s.selezione, s.rilievo);
    metti(QPalette::HighlightedText, s.testo_selezione, spento);
    metti(QPalette::Link, s.accento, spento);
    metti(QPalette::LinkVisited, s.accento, spento);
    metti(QPalette::Light, s.superficie, s.superficie);
    metti(QPalette::Midlight, s.rilievo, s.rilievo);
    metti(QPalette::Mid, s.linea, s.linea);
    metti(QPalette::Dark, s.bordo, s.linea);
    metti(QPalette::Shadow, s.bordo, s.linea);
    return p;
}

/// Draws an SVG whose strokes and fills say "currentColor" in a colour of the skin in use.
class MotoreIcona final : public QIconEngine {
  public:
    MotoreIcona(QByteArray svg, TintaIcona tinta) : svg_{std::move(svg)}, tinta_{tinta} {}

    void paint(QPainter* pittore, const QRect& dove, QIcon::Mode modo, QIcon::State) override {
        const Skin& s = skin_in_uso();
        QRgb colore = s.testo;
        if (tinta_ == TintaIcona::quieto) colore = s.testo_quieto;
        if (tinta_ == TintaIcona::accento) colore = s.accento;
        if (tinta_ == TintaIcona::su_accento) colore = s.testo_accento;
        if (tinta_ == TintaIcona::avviso) colore = s.avviso;
        if (modo == QIcon::Disabled) colore = mescola(s.finestra, s.testo_quieto, 0.62);
        QByteArray svg = svg_;
        svg.replace("currentColor", esadecimale(colore).toLatin1());
        QSvgRenderer disegno{svg};
        disegno.setAspectRatioMode(Qt::KeepAspectRatio);
        disegno.render(pittore, QRectF{dove});
    }
    QPixmap pixmap(const QSize& misura, QIcon::Mode modo, QIcon::State stato) override {
        QPixmap immagine{misura};
        immagine.fill(Qt::transparent);
        QPainter pittore{&immagine};
        paint(&pittore, QRect{QPoint{}, misura}, modo, stato);
        return immagine;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new MotoreIcona{svg_, tinta_}; }

  private:
    QByteArray svg_;
    TintaIcona tinta_;
};

bool cifre_uguali(const QFont& carattere) {
    const QFontMetricsF misure{carattere};
    const double prima = misure.horizontalAdvance(QLatin1Char{'0'});
    for (char cifra = '1'; cifra <= '9'; ++cifra)
        if (std::abs(misure.horizontalAdvance(QLatin1Char{cifra}) - prima) > 0.01) return false;
    return true;
}

// Names in @...@ are filled in from the skin. Measures are multiples of four, less the one-pixel edges.
constexpr const char* kFoglio = R"(
QToolTip { background: @superficie@; color: @testo@; border: 1px solid @bordo@; padding: 4px 8px; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QLabel[ruolo="titolo"] { font-size: @punti_titolo@pt; font-weight: 600; }
QLabel[ruolo="quieto"] { color: @testo_quieto@; }
QLabel[ruolo="avviso"] { color: @avviso@; }
QLabel[ruolo="sezione"] { color: @testo_quieto@; font-weight: 600; }

QFrame[ruolo="scheda"] { background: @superficie@; border: 1px solid @linea@; border-radius: 8px; }
QFrame[ruolo="pannello"] { background: @superficie@; border: 1px solid @accento@; border-radius: 8px; }
QFrame[ruolo="barra_fondo"] { background: @rilievo@; border: none; border-radius: 4px; }
QFrame[ruolo="barra"] { background: @accento@; border: none; border-radius: 4px; }
QFrame[ruolo="linea"] { background: @linea@; border: none; max-height: 1px; min-height: 1px; }

/* Their edge tells the focus. */
QPushButton, QToolButton, QCheckBox, QRadioButton, QComboBox { outline: none; }

QPushButton { background: @superficie@; color: @testo@; border: 1px solid @bordo@; border-radius: 6px;
              padding: 5px 12px; }
QPushButton:hover { background: @rilievo@; }
QPushButton:pressed { background: @linea@; }
QPushButton:checked { background: @selezione@; color: @testo_selezione@; }
QPushButton:focus { border: 2px solid @accento@; padding: 4px 11px; }
QPushButton:disabled { background: @finestra@; color: @spento@; border-color: @linea@; }

QPushButton[ruolo="primario"] { background: @accento@; color: @testo_accento@; border: 1px solid @accento@;
              padding: 9px 16px; font-weight: 600; }
QPushButton[ruolo="primario"]:hover { background: @accento_sopra@; border-color: @accento_sopra@; }
QPushButton[ruolo="primario"]:pressed { background: @accento_sotto@; border-color: @accento_sotto@; }
QPushButton[ruolo="primario"]:focus { border: 2px solid @testo@; padding: 8px 15px; }
QPushButton[ruolo="primario"]:disabled { background: @rilievo@; color: @spento@; border-color: @linea@; }

QPushButton[ruolo="gruppo"] { background: @tinta_b@; border: 1px solid @linea@; border-radius: 8px;
              padding: 11px 12px; text-align: left; }
QPushButton[ruolo="gruppo"][tinta="a"] { background: @tinta_a@; }
QPushButton[ruolo="gruppo"]:hover { border-color: @accento@; }
QPushButton[ruolo="gruppo"]:checked { background: @trovato@; color: @testo_trovato@; border-color: @accento@;
              font-weight: 600; }
QPushButton[ruolo="gruppo"]:focus { border: 2px solid @accento@; padding: 10px 11px; }

QPushButton[ruolo="piatto"] { background: transparent; border: 1px solid transparent; }
QPushButton[ruolo="piatto"]:hover { background: @rilievo@; }
QPushButton[ruolo="piatto"]:focus { border: 2px solid @accento@; padding: 4px 11px; }
QPushButton[ruolo="piatto"]:disabled { background: transparent; border-color: transparent; }

QPushButton[ruolo="interruttore"] { background: transparent; border: 1px solid transparent; }
QPushButton[ruolo="interruttore"]:hover { background: @rilievo@; }
QPushButton[ruolo="interruttore"]:checked { background: @selezione@; color: @testo_selezione@;
              border-color: @accento@; }
QPushButton[ruolo="interruttore"]:focus { border: 2px solid @accento@; padding: 4px 11px; }
QPushButton[ruolo="interruttore"]:disabled { background: transparent; border-color: transparent; }

QPushButton[ruolo="ordina"] { background: transparent; border: none; border-radius: 0; padding: 0; }
QPushButton[ruolo="ordina"]:hover { background: @linea@; }
QPushButton[ruolo="ordina"]:focus { border: 2px solid @accento@; }
QPushButton[ruolo="ordina"][striscia="true"] { border-right: 1px solid @linea@; border-bottom: 1px solid @linea@; }
QPushButton[ruolo="ordina"][striscia="true"]:focus { border: 2px solid @accento@; }

QToolButton { background: transparent; border: 1px solid transparent; border-radius: 4px; padding: 3px; }
QToolButton:hover { background: @rilievo@; }
QToolButton:focus { border: 1px solid @accento@; }

QLineEdit, QPlainTextEdit, QTextEdit, QAbstractSpinBox { background: @superficie@; color: @testo@;
              border: 1px solid @bordo@; border-radius: 6px; padding: 4px 8px;
              selection-background-color: @accento@; selection-color: @testo_accento@; }
QLineEdit:focus, QPlainTextEdit:focus, QTextEdit:focus, QAbstractSpinBox:focus {
              border: 2px solid @accento@; padding: 3px 7px; }
QLineEdit:disabled, QAbstractSpinBox:disabled { background: @finestra@; color: @spento@; border-color: @linea@; }
QLineEdit[errato="true"] { border: 2px solid @avviso@; padding: 3px 7px; }

QAbstractSpinBox::up-button, QAbstractSpinBox::down-button { subcontrol-origin: border; width: 20px; border: none;
              border-left: 1px solid @linea@; background: transparent; }
QAbstractSpinBox::up-button { subcontrol-position: top right; border-top-right-radius: 5px; margin: 1px 1px 0 0; }
QAbstractSpinBox::down-button { subcontrol-position: bottom right; border-bottom-right-radius: 5px;
              margin: 0 1px 1px 0; }
QAbstractSpinBox::up-button:hover, QAbstractSpinBox::down-button:hover { background: @rilievo@; }
QAbstractSpinBox::up-arrow { image: url(:/icone/su_@glifi@.svg); width: 10px; height: 10px; }
QAbstractSpinBox::down-arrow { image: url(:/icone/giu_@glifi@.svg); width: 10px; height: 10px; }

QComboBox { background: @superficie@; color: @testo@; border: 1px solid @bordo@; border-radius: 6px;
              padding: 4px 8px; }
QComboBox:hover { background: @rilievo@; }
QComboBox:focus { border: 2px solid @accento@; padding: 3px 7px; }
QComboBox:disabled { background: @finestra@; color: @spento@; border-color: @linea@; }
QComboBox::drop-down, QDateEdit::drop-down { subcontrol-origin: border; subcontrol-position: center right; width: 24px; border: none; }
QComboBox::down-arrow, QDateEdit::down-arrow { image: url(:/icone/giu_@glifi@.svg); width: 12px; height: 12px; }
QComboBox QAbstractItemView, QComboBox QAbstractItemView:focus { background: @superficie@; color: @testo@;
              border: none; padding: 4px;
              selection-background-color: @selezione@; selection-color: @testo_selezione@; outline: none; }

QCheckBox, QRadioButton { spacing: 8px; padding: 2px; border: 1px solid transparent; border-radius: 4px; }
QCheckBox:focus, QRadioButton:focus { border-color: @accento@; }
QCheckBox::indicator { width: 14px; height: 14px; border: 1px solid @bordo@; border-radius: 4px;
              background: @superficie@; }
QCheckBox::indicator:checked { background: @accento@; border-color: @accento@;
              image: url(:/icone/spunta_@glifi_accento@.svg); }
QCheckBox::indicator:disabled { border-color: @linea@; background: @finestra@; }
QRadioButton::indicator { width: 14px; height: 14px; border: 1px solid @bordo@; border-radius: 8px;
              background: @superficie@; }
QRadioButton::indicator:checked { border: 5px solid @accento@; width: 6px; height: 6px; }

QCheckBox[ruolo="chip"] { background: @superficie@; border: 1px solid @bordo@; border-radius: 6px;
              padding: 4px 8px; spacing: 4px; }
QCheckBox[ruolo="chip"]:hover { background: @rilievo@; }
QCheckBox[ruolo="chip"]:checked { background: @accento@; color: @testo_accento@; border-color: @accento@; }
QCheckBox[ruolo="chip"]:focus { border: 2px solid @accento@; padding: 3px 7px; }
QCheckBox[ruolo="chip"]:checked:focus { border: 2px solid @testo@; }
QCheckBox[ruolo="chip"]:disabled { background: @finestra@; color: @spento@; border-color: @linea@; }
QCheckBox[ruolo="chip"]::indicator { width: 12px; height: 12px; border: none; background: transparent; }
QCheckBox[ruolo="chip"]::indicator:checked { image: url(:/icone/spunta_@glifi_accento@.svg); }

QTabWidget::pane { border: none; }
QTabBar { background: transparent; qproperty-drawBase: 0; }
QTabBar::tab { background: transparent; color: @testo_quieto@; border: none; border-bottom: 3px solid transparent;
              padding: 8px 16px 5px 16px; }
QTabBar::tab:hover { color: @testo@; border-bottom-color: @linea@; }
QTabBar::tab:selected { color: @testo@; border-bottom-color: @accento@; font-weight: 600; }
QTabBar::tab:focus { background: @rilievo@; }

QTableView, QListView, QTreeView { background: @superficie@; color: @testo@; alternate-background-color: @tinta_b@;
              gridline-color: @linea@; border: 1px solid @linea@; border-radius: 0; outline: none;
              selection-background-color: @selezione@; selection-color: @testo_selezione@; }
QTableView:focus, QListView:focus, QTreeView:focus { border-color: @accento@; }
QHeaderView { background: @rilievo@; border: none; }
QHeaderView::section { background: @rilievo@; color: @testo@; border: none; border-right: 1px solid @linea@;
              border-bottom: 1px solid @bordo@; padding: 4px 8px; font-weight: 600; }
QTableCornerButton::section { background: @rilievo@; border: none; }

QScrollBar:vertical { background: transparent; width: 12px; margin: 0; }
QScrollBar:horizontal { background: transparent; height: 12px; margin: 0; }
QScrollBar::handle { background: @barra@; border-radius: 4px; margin: 2px; }
QScrollBar::handle:vertical { min-height: 32px; }
QScrollBar::handle:horizontal { min-width: 32px; }
QScrollBar::handle:hover { background: @testo_quieto@; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QAbstractScrollArea::corner { background: transparent; }

QMenu { background: @superficie@; color: @testo@; border: 1px solid @bordo@; padding: 4px; }
QMenu::item { padding: 4px 24px 4px 24px; border-radius: 4px; }
QMenu::item:selected { background: @selezione@; color: @testo_selezione@; }
QMenu::item:disabled { color: @spento@; }
QMenu::separator { height: 1px; background: @linea@; margin: 4px 8px; }
QMenu::icon { padding-left: 8px; }

QProgressBar { background: @rilievo@; border: none; border-radius: 4px; min-height: 8px; max-height: 8px; }
QProgressBar::chunk { background: @accento@; border-radius: 4px; }
QGroupBox { border: 1px solid @linea@; border-radius: 8px; margin-top: 1em; padding: 8px; }
QGroupBox::title { subcontrol-origin: margin; left: 12px; padding: 0 4px; color: @testo_quieto@; }
QSplitter::handle { background: @linea@; }
QStatusBar { color: @testo_quieto@; }
QStatusBar::item { border: none; }
)";

}  // namespace

const std::array<Skin, kNumeroSkin>& skin() {
    return kSkin;
}

const Skin& skin_in_uso() {
    return kSkin[static_cast<std::size_t>(indice_corrente - 1)];
}

int indice_skin_in_uso() {
    return indice_corrente;
}

QString foglio_di_stile(const Skin& s, double punti) {
    const QRgb verso = s.scura ? qRgb(255, 255, 255) : qRgb(0, 0, 0);
    const auto glifi_su = [](QRgb fondo) { return qRed(testo_su(fondo)) == 0 ? "scuro" : "chiaro"; };
    const std::array<std::pair<const char*, QString>, 24> valori{{
        {"finestra", esadecimale(s.finestra)},
        {"superficie", esadecimale(s.superficie)},
        {"rilievo", esadecimale(s.rilievo)},
        {"testo", esadecimale(s.testo)},
        {"testo_quieto", esadecimale(s.testo_quieto)},
        {"linea", esadecimale(s.linea)},
        {"bordo", esadecimale(s.bordo)},
        {"accento", esadecimale(s.accento)},
        {"testo_accento", esadecimale(s.testo_accento)},
        {"tinta_a", esadecimale(s.tinta_a)},
        {"tinta_b", esadecimale(s.tinta_b)},
        {"selezione", esadecimale(s.selezione)},
        {"testo_selezione", esadecimale(s.testo_selezione)},
        {"trovato", esadecimale(s.trovato)},
        {"testo_trovato", esadecimale(s.testo_trovato)},
        {"avviso", esadecimale(s.avviso)},
        {"buono", esadecimale(s.buono)},
        {"spento", esadecimale(mescola(s.finestra, s.testo_quieto, 0.62))},
        {"barra", esadecimale(mescola(s.superficie, s.testo_quieto, 0.45))},
        {"accento_sopra", esadecimale(mescola(s.accento, verso, 0.08))},
        {"accento_sotto", esadecimale(mescola(s.accento, verso, 0.16))},
        {"punti_titolo", QString::number(punti * 1.3, 'f', 1)},
        {"glifi", QString::fromLatin1(glifi_su(s.superficie))},
        {"glifi_accento", QString::fromLatin1(glifi_su(s.accento))},
    }};
    QString foglio = QString::fromUtf8(kFoglio);
    for (const auto& [nome, valore] : valori)
        foglio.replace(QLatin1Char{'@'} + QString::fromLatin1(nome) + QLatin1Char{'@'}, valore);
    return foglio;
}

bool applica_tema(QApplication& applicazione, int indice) {
    const bool valido = indice >= 1 && indice <= kNumeroSkin;
    if (!valido && vestito) return false;
    indice_corrente = valido ? indice : 1;
    if (!vestito) {
        carica_risorse();
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        annuncia_finestre();
        vestito = true;
    }
    const QPalette colori = tavolozza(skin_in_uso());
    QApplication::setPalette(colori);
    QToolTip::setPalette(colori);
    applicazione.setStyleSheet(foglio_di_stile(skin_in_uso(), QFontInfo{QApplication::font()}.pointSizeF()));
    return valido;
}

QLabel* nuova_sezione(const QString& testo, QWidget* compagno) {
    auto* titolo = new QLabel{testo};
    assegna_ruolo(titolo, "sezione");
    if (compagno != nullptr) {
        titolo->setBuddy(compagno);
        compagno->setAccessibleName(testo);
    }
    return titolo;
}

void assegna_ruolo(QWidget* widget, const char* ruolo) {
    widget->setProperty("ruolo", QString::fromLatin1(ruolo));
    // A property changed after the first polish is only seen at the next one.
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

double contrasto(QRgb a, QRgb b) {
    const double la = luminanza(a);
    const double lb = luminanza(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QRgb testo_su(QRgb fondo) {
    const QRgb nero = qRgb(0, 0, 0);
    const QRgb bianco = qRgb(255, 255, 255);
    return contrasto(nero, fondo) >= contrasto(bianco, fondo) ? nero : bianco;
}

QIcon icona(const QString& nome, TintaIcona tinta) {
    carica_risorse();
    QFile file{QStringLiteral(":/icone/") + nome + QStringLiteral(".svg")};
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QIcon{new MotoreIcona{file.readAll(), tinta}};
}

QFont carattere_tabellare(const QFont& base) {
    if (cifre_uguali(base)) return base;
    for (const char* famiglia : {"Noto Sans", "DejaVu Sans", "Liberation Sans", "Arial", "Segoe UI"}) {
        if (!QFontDatabase::hasFamily(QString::fromLatin1(famiglia))) continue;
        QFont altro{base};
        altro.setFamilies({QString::fromLatin1(famiglia)});
        if (cifre_uguali(altro)) return altro;
    }
    QFont fisso = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fisso.setPointSizeF(QFontInfo{base}.pointSizeF());
    return fisso;
}

}  // namespace sortimetra
