#pragma once

#include "printing/superficie.h"

#include <QDialog>
#include <QImage>
#include <QPrinter>
#include <QRectF>
#include <QString>
#include <memory>
#include <optional>
#include <variant>

class QBoxLayout;
class QCheckBox;
class QFrame;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

namespace sortimetra {

struct Sessione;

/// What can be printed as a picture: a picture, or a control, which copies itself. An object that is no
/// control can be handed over but not printed.
using OggettoStampa = std::variant<std::monostate, QImage, QObject*>;

/// The sheet in the preview with the picture's frame on it, which the mouse and the arrow keys move. Inside
/// are `shpFoglio` and `shpBordo`.
class PicPreview final : public QWidget {
    Q_OBJECT
  public:
    explicit PicPreview(QWidget* padre = nullptr);

    void imposta_immagine(const QImage& immagine);
    /// Sheet and frame in millimetres.
    void imposta(QSizeF foglio, QRectF cornice);
    /// How many pixels of the screen the picture is wide.
    [[nodiscard]] double larghezza_mostrata() const { return cornice_.width() * scala(); }
    [[nodiscard]] QSize minimumSizeHint() const override { return {240, 260}; }

  signals:
    /// The frame was moved by that many millimetres.
    void spostata(double dx, double dy);
    /// The pointer is over a point of the picture, 0 to 1 on both axes.
    void guardata(QPointF punto);
    /// Ctrl with an arrow: the point looked at goes on by a step that way.
    void sguardo_spostato(QPointF passo);

  protected:
    void resizeEvent(QResizeEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    void disponi();
    [[nodiscard]] double scala() const;

    QFrame* foglio_;
    QLabel* bordo_;
    QImage immagine_;
    QSizeF misure_{210, 297};
    QRectF cornice_;
    std::optional<QPointF> presa_;
};

/// Prints the picture of an object of the screen on one sheet: the object is copied, shown on the sheet,
/// moved, scaled and centred, then printed. Lengths are millimetres.
class frmStampaFCPB final : public QDialog {
    Q_OBJECT
  public:
    explicit frmStampaFCPB(QWidget* padre = nullptr);

    /// Opens where it was left the last time, and remembers its place.
    void ricorda(const Sessione& sessione) { sessione_ = &sessione; }

    /// Checks the arguments, asks if the picture is larger than the sheet, then shows the preview until it is
    /// closed. Returns whether the preview came up. `nome` is how messages call the object.
    bool StampaFCPB(const OggettoStampa& oggetto, double x, double y, double larghezza, double altezza,
                    const QString& nome = {});

    /// The picture of an object; null after a message.
    [[nodiscard]] QImage Copia_Oggetto(const OggettoStampa& oggetto);
    /// Puts a picture on the sheet of the preview. False after a message.
    bool Preview(const QImage& immagine);
    /// Shows a picture enlarged in `picZoom`: the part round the point looked at, at least `kIngrandimento`
    /// times as large as in the preview; a small picture whole. False after a message.
    bool Zoom(const QImage& immagine);
    static constexpr double kIngrandimento = 3;
    /// Reads sheet, name and size from the printer. False after a message.
    bool FoglioStampa();
    /// " Foglio: A4,  Portrait".
    [[nodiscard]] QString testo_foglio() const { return testo_foglio_; }

    [[nodiscard]] QRectF cornice() const { return cornice_; }
    [[nodiscard]] QSizeF foglio() const { return foglio_; }
    /// The part of the picture that `picZoom` shows, in its pixels.
    [[nodiscard]] QRect parte_ingrandita() const { return parte_; }

    void done(int esito) override;

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    void componi();
    void componi_immagini();
    QGridLayout* componi_misure();
    void componi_posto(QBoxLayout* colonna);
    void componi_foglio(QBoxLayout* colonna);
    void componi_bottoni(QBoxLayout* colonna);
    /// Name of the default printer, "" after a message.
    [[nodiscard]] QString GetDefPrinterName();
    bool OpenDocPrinter(const QString& nome);
    bool Legge_PictureBox();
    bool controlla_scala();
    void Print_FCPB(double x, double y, double larghezza, double altezza);

    void mostra_valori();
    void ingrandisci();
    void guarda(QPointF punto);
    void cambia_posto();
    void cambia_misura(bool dalla_larghezza);
    void applica_scala();
    void centra();
    void usa_tutto();
    void stampa();
    /// The sheet as a file: paper, place and size as they are shown.
    void salva_pdf();
    void errore(const char* routine, const QString& testo);

    std::unique_ptr<QPrinter> stampante_;
    QImage immagine_;
    QSizeF naturale_;  ///< of the picture
    QSizeF foglio_{210, 297};
    QString testo_foglio_;
    QString nome_;  ///< of the object, as messages call it
    QRectF cornice_;
    QImage ingrandita_;  ///< what `picZoom` shows a part of
    QPointF sguardo_{0, 0};
    QRect parte_;
    const Sessione* sessione_ = nullptr;
    bool posto_letto_ = false;

    QLabel* pic_copia_;
    QLabel* pic_copia_temp_;
    PicPreview* preview_;
    QLabel* zoom_;
    QLineEdit* txt_x_;
    QLineEdit* txt_y_;
    QLineEdit* txt_w_;
    QLineEdit* txt_h_;
    QLineEdit* txt_scala_;
    QLineEdit* txt_copie_;
    QCheckBox* proporzioni_;
    QCheckBox* centro_;
    QGroupBox* fra_foglio_;
    QLabel* lbl_fg_w_;
    QLabel* lbl_fg_h_;
    QLabel* fuori_foglio_;
    QLabel* in_corso_;
    QPushButton* cmd_stampa_;
    QTimer* timer_;
};

/// A length or a factor as the boxes show it: thousands parted, at most two decimals, none if there are none:
/// "1.234,5", "210".
[[nodiscard]] QString testo_misura(double valore);
/// Reads such a text; "." and "," both part decimals, a "." before three digits and a "," or the end parts
/// thousands. Nothing for a text that is no number.
[[nodiscard]] std::optional<double> leggi_misura(const QString& testo);

}  // namespace sortimetra
