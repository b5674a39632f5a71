#pragma once

#include "files/sessione.h"

#include <QString>
#include <QStringList>
#include <QWidget>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;
class QToolButton;

namespace sortimetra {

/// The manual in a window: chapters at the left where there is room, the text, a line that finds (Ctrl+F,
/// Enter, Shift+Enter), links between chapters and the way back (Alt+Left). Esc closes it.
///
/// A chapter is named by its heading as links name it: small letters, "-" for blanks, nothing but letters and
/// digits ("la-storia-di-una-riga").
class FinestraManuale final : public QWidget {
    Q_OBJECT
  public:
    explicit FinestraManuale(QWidget* padre = nullptr);

    /// Goes to a chapter; to the beginning where there is none of that name.
    void vai_a(const QString& capitolo);
    /// The chapter at the top of the window.
    [[nodiscard]] QString capitolo() const;
    /// The names of all chapters, in their order.
    [[nodiscard]] QStringList capitoli() const;
    /// Where the window stood last is remembered in `schermi.ini` of the program's folder.
    void ricorda(const Sessione& sessione) { sessione_ = sessione; }

  protected:
    void showEvent(QShowEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void changeEvent(QEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    struct Capitolo {
        QString nome;
        QString titolo;
        int livello;
        int blocco;  ///< number of the heading's block in the text
    };
    void componi();
    void scrivi();
    void vesti();
    void salta(const QString& capitolo);
    void indietro();
    void trova(bool avanti);
    void segna_capitolo();
    [[nodiscard]] int altezza_di(int blocco) const;

    Sessione sessione_;
    QTextBrowser* testo_;
    QListWidget* indice_;
    QLineEdit* txt_trova_;
    QLabel* esito_;
    QToolButton* cmd_indietro_;
    std::vector<Capitolo> capitoli_;
    std::vector<int> passati_;  ///< where the text stood before each jump
    QString arrivo_;            ///< the chapter gone to last: near the end it cannot come to the top
    int alto_all_arrivo_ = -1;  ///< where the text stood then
    bool posto_letto_ = false;
};

/// Something that answers F1 by itself where the keyboard is on a part that it can explain.
class Spiegabile {
  public:
    Spiegabile() = default;
    Spiegabile(const Spiegabile&) = delete;
    Spiegabile& operator=(const Spiegabile&) = delete;
    virtual ~Spiegabile() = default;
    /// Explains `parte`, the widget with the keyboard; false where it has nothing to say of it. `maiuscole`
    /// is Shift+F1, which asks about what the cursor is on.
    virtual bool spiega_parte(QWidget* parte, bool maiuscole) = 0;
};

/// Says which chapter of the manual F1 opens on a window, or on a part of one.
void assegna_capitolo(QWidget* finestra, const char* capitolo);

/// From now on F1 asks the nearest `Spiegabile` round the keyboard, else opens the manual at the chapter of
/// the nearest widget that has one. Once is enough; more does no harm but for the session, the last of which
/// remembers the window's place.
void ascolta_f1(const Sessione& sessione);

/// Opens the manual (or brings it forward) at a chapter. It belongs to the window that it was asked from:
/// over a modal one it could not be used otherwise.
FinestraManuale* apri_manuale(QWidget* da, const QString& capitolo);

}  // namespace sortimetra
