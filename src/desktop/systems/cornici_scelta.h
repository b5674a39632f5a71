#pragma once

#include <QFrame>
#include <array>
#include <vector>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QRadioButton;
class QVBoxLayout;

namespace sortimetra {

class CasellaCifre;

/// A frame that stands in the answer's place while a search asks one more thing before it starts: title, what
/// there is to choose, "Procedi" and "Annulla". What was chosen last stays chosen.
class CorniceScelta : public QFrame {
    Q_OBJECT
  public:
    /// What "Procedi" does: takes the choice if it is one, else says why not and stays.
    virtual void procedi() = 0;
    /// The keyboard comes to what is to be done next.
    virtual void prendi_tastiera() = 0;

  signals:
    void scelto();
    void annullato();

  protected:
    CorniceScelta(const QString& nome, const QString& titolo, QWidget* padre);
    /// Where the choice stands.
    [[nodiscard]] QVBoxLayout* contenuto() const { return contenuto_; }
    [[nodiscard]] QPushButton* bottone() const { return procedi_; }
    void chiudi(const char* nome_bottone);

  private:
    QVBoxLayout* contenuto_;
    QPushButton* procedi_;
};

/// Ten of the twenty places of a 10eLotto draw. An eleventh tick is undone; "Procedi" waits for exactly ten.
class ScegliPosizioni final : public CorniceScelta {
    Q_OBJECT
  public:
    explicit ScegliPosizioni(QWidget* padre = nullptr);

    /// The chosen places, ascending.
    [[nodiscard]] const std::vector<int>& posizioni() const { return scelte_; }
    void procedi() override;
    void prendi_tastiera() override;

  private:
    void spuntata(QCheckBox* casella, bool si);
    [[nodiscard]] std::vector<int> spuntate() const;

    std::array<QCheckBox*, 20> caselle_{};
    QLabel* conto_;
    std::vector<int> scelte_;
};

/// Which draws of Win for Life are counted: all, those that hold some numbers, those that have them in their
/// places.
class ScegliNumeri final : public CorniceScelta {
    Q_OBJECT
  public:
    explicit ScegliNumeri(QWidget* padre = nullptr);

    /// The two lists of the question; one of them is empty, or both.
    [[nodiscard]] const std::vector<int>& contenenti() const { return contenenti_; }
    [[nodiscard]] const std::vector<int>& nelle_posizioni() const { return nelle_posizioni_; }
    void procedi() override;
    void prendi_tastiera() override;

  private:
    enum Opzione { tutte, con_numeri, con_posizioni };
    void componi_caselle(QGridLayout* griglia);
    void aggiorna();
    [[nodiscard]] Opzione opzione() const;

    std::array<QRadioButton*, 3> opzioni_{};
    std::array<CasellaCifre*, 10> numeri_{};
    std::array<QComboBox*, 10> posti_{};
    QLabel* errore_;
    std::vector<int> contenenti_;
    std::vector<int> nelle_posizioni_;
};

}  // namespace sortimetra
