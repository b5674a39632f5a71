#pragma once

#include "draws/ambito.h"
#include "draws/archivio.h"

#include <QFrame>
#include <QSpinBox>
#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace sortimetra {

/// A concorso box and its stepper in one: the text field is `txtda` or `txta`, the spin box `UpDown1_0` or
/// `UpDown1_1`. Only the backspace and the characters of codes 48 to 58 (the digits and the colon) get into
/// it; a number out of the range may be typed and is brought back on leaving.
class CasellaConcorso : public QSpinBox {
    Q_OBJECT
  public:
    explicit CasellaConcorso(QWidget* padre = nullptr);

    /// The text as a number: digits up to the first other character, 0 without any.
    [[nodiscard]] Concorso concorso() const;
    /// What leaving the box does: above the maximum the maximum, below 1 the minimum.
    virtual void riporta();
    [[nodiscard]] QLineEdit* testo() const { return lineEdit(); }

    QValidator::State validate(QString& testo, int& posto) const override;
    void fixup(QString& testo) const override;
    [[nodiscard]] int valueFromText(const QString& testo) const override;
    [[nodiscard]] QString textFromValue(int valore) const override;

  signals:
    void testo_cambiato();

  protected:
    /// Whether a character may be typed.
    [[nodiscard]] virtual bool ammette(QChar c) const;
    void focusOutEvent(QFocusEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    void guarda_testo();

    QString ultimo_testo_;
};

/// The parameter area `FrameParametri` that every search screen has: wheels, calendar (or hour) and range of
/// concorsi. It gives an `AmbitoRicerca` and knows nothing of searches.
class AreaParametri final : public QFrame {
    Q_OBJECT
  public:
    /// What a screen asks: wheels and calendar, calendar alone (SuperEnalotto), the hour (Win for Life), or
    /// nothing but the wheels.
    enum class Genere { lotto, senza_ruote, win_for_life, solo_ruote };

    explicit AreaParametri(QWidget* padre = nullptr);

    /// Lays the area out for a game and fills `ComboIntervallo` with its entries, the first one chosen.
    void configura(Genere genere);
    [[nodiscard]] Genere genere() const { return genere_; }

    /// Takes the dates and the last concorso from an archive, ticks `ruote` and opens the range to the whole
    /// archive. No signal is sent. The archive must stay until the next `apri`.
    void apri(const ArchivioEstrazioni& archivio, SelezioneRuote ruote);

    [[nodiscard]] AmbitoRicerca ambito() const;
    [[nodiscard]] SelezioneRuote ruote() const { return ruote_; }
    void imposta_ruote(SelezioneRuote ruote);
    /// A screen that looks at one wheel: a wheel that is ticked clears all others.
    void imposta_ruota_unica(bool si) { unica_ = si; }
    /// Puts wheels, calendar (or hour) and range as another screen has them. No signal is sent.
    void imposta_ambito(const AmbitoRicerca& ambito);
    /// The last concorso of the archive, as the boxes have it.
    [[nodiscard]] Concorso ultimo() const { return tratto_[0]->maximum(); }
    /// Text of `ComboIntervallo` and of the two boxes with their dates, as a report's head shows them.
    [[nodiscard]] QString testo_intervallo() const;
    [[nodiscard]] QString testo_concorsi() const;
    /// The leave rule on both boxes, for a search that is started from inside one.
    void riporta_tratto();

  signals:
    /// A wheel or an entry of `ComboIntervallo` was chosen: the result on show is no longer of this scope.
    void cambiato();
    /// The same for the range of concorsi.
    void tratto_cambiato();

  private:
    void componi_ruote();
    void componi_intervallo();
    void componi_concorsi();
    void ruota_premuta(int casella, bool spuntata);
    void mostra_ruote();
    void aggiorna_data(int quale);

    std::array<QCheckBox*, 12> caselle_{};
    QWidget* riquadro_ruote_;
    QLabel* titolo_intervallo_;
    QComboBox* intervallo_;
    QWidget* riquadro_concorsi_;
    std::array<CasellaConcorso*, 2> tratto_{};
    std::array<QLabel*, 2> date_{};
    const ArchivioEstrazioni* archivio_ = nullptr;
    SelezioneRuote ruote_;
    Genere genere_ = Genere::lotto;
    bool unica_ = false;
    bool fermo_ = false;  ///< set while the area itself changes its controls: no rule runs, no signal is sent
};

}  // namespace sortimetra
