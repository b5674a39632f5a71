#pragma once

#include "draws/archivio.h"
#include "stores/casella_estratto.h"

#include <QString>
#include <QWidget>
#include <vector>

class QGridLayout;
class QLabel;

namespace sortimetra {

/// The boxes of one draw, row by row: a wheel of the Lotto, a combination. The keyboard goes on by itself
/// from box to box; a whole row may be pasted into any of its boxes, and more rows than one fill the next
/// ones.
class QuadroEstrazione final : public QWidget {
    Q_OBJECT
  public:
    /// `nome` names the boxes: `nome`_0, `nome`_1 … through all rows. Numbers from 1 to `massimo`.
    QuadroEstrazione(QString nome, int massimo, QWidget* padre = nullptr);

    /// Adds a row of boxes behind its caption.
    void aggiungi_riga(const QString& scritta, int caselle);
    /// Adds one box of its own; `libera` if its number may also stand in the row before it.
    CasellaEstratto* aggiungi_casella(const QString& nome, const QString& scritta, bool libera);

    void svuota();
    [[nodiscard]] bool vuoto() const;
    [[nodiscard]] std::vector<Numero> numeri(std::size_t riga) const;
    /// What is wrong or still missing, in words for the user; empty when the draw is whole.
    [[nodiscard]] QString manca() const;
    /// A number stands where it cannot.
    [[nodiscard]] bool errato() const;
    [[nodiscard]] const QList<CasellaEstratto*>& caselle() const { return tutte_; }

  signals:
    /// A number was typed, erased or pasted.
    void cambiato();
    /// The last box is complete.
    void finito();

  private:
    struct Riga {
        QString scritta;
        QList<CasellaEstratto*> caselle;
        bool libera = false;   ///< its numbers may stand in the row before
        bool sciolta = false;  ///< a single box beside the row before
    };
    CasellaEstratto* casella(const QString& nome, const QString& accessibile);
    void incolla(CasellaEstratto* da, const QList<int>& numeri);
    void vai(CasellaEstratto* da, int passi);
    void controlla();

    QString nome_;
    int massimo_;
    QGridLayout* piano_;
    std::vector<Riga> righe_;
    QList<CasellaEstratto*> tutte_;
};

}  // namespace sortimetra
