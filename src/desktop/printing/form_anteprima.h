#pragma once

#include "printing/rapporto.h"
#include "results/risposta.h"

#include <QDialog>
#include <memory>

class QBoxLayout;
class QComboBox;
class QFrame;
class QLabel;
class QPushButton;

namespace sortimetra {

class CasellaCifre;
class PannelloAvanzamento;
class VistaFogli;
struct LavoroStampa;
struct Sessione;

/// The preview before paper: the sheets at the left, at the right the page, the size and the frame
/// `Frame_opz` with the pages to print (`txtpag_0`, `txtpag_1`, `lbltotale`, `cmdopzioni_0` "Annulla",
/// `cmdopzioni_1` "Stampa"), "Stampa questa pagina" and "Salva come PDF".
///
/// Page Up and Page Down go through the sheets, Home and End to the first and the last page, Ctrl with plus,
/// minus or the wheel changes the size, Ctrl+0 shows the page whole, Ctrl+P prints, Esc closes.
class FormAnteprima final : public QDialog {
    Q_OBJECT
  public:
    /// `tenuto` is whatever the report reads; it lives as long as the window.
    FormAnteprima(Rapporto rapporto, std::shared_ptr<const void> tenuto, QWidget* padre = nullptr);

    /// Opens where it was left the last time, and remembers its place; before it is shown.
    void ricorda(const Sessione& sessione) { sessione_ = &sessione; }

    [[nodiscard]] int pagina() const;
    /// Shows a page, brought within the report.
    void vai(int pagina);
    /// The pages of `txtpag_0` and `txtpag_1`.
    [[nodiscard]] PagineScelte pagine() const;

    /// Prints the pages of the boxes.
    void stampa();
    /// Prints what is in sight, and leaves the preview open.
    void stampa_in_vista();
    void salva_pdf();

    void done(int esito) override;

  protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

  private:
    void componi();
    QBoxLayout* componi_pagine();
    QBoxLayout* componi_salto();
    QBoxLayout* componi_grandezza();
    QFrame* componi_opzioni();
    QPushButton* bottone_pagina(const char* nome, const QString& figura, const QString& scritta,
                                const QString& tasto);
    void aggiorna_pagina();
    /// False if nothing was printed.
    bool stampa_pagine(PagineScelte scelte);
    void riporta(CasellaCifre* casella) const;
    /// Whether the pages make sense; says so under the boxes if not.
    bool pagine_valide();
    template <class Lavoro>
    void con_avanzamento(Lavoro&& lavoro);

    Rapporto rapporto_;
    std::shared_ptr<const void> tenuto_;
    const Sessione* sessione_ = nullptr;
    bool in_corsa_ = false;
    bool posto_letto_ = false;

    QWidget* corpo_;
    VistaFogli* vista_;
    QPushButton* prima_;
    QPushButton* indietro_;
    QPushButton* avanti_;
    QPushButton* ultima_;
    QLabel* lbl_pagina_;
    CasellaCifre* txt_pagina_;
    QComboBox* grandezza_;
    CasellaCifre* txtpag_0_;
    CasellaCifre* txtpag_1_;
    QPushButton* in_vista_;
    QLabel* esito_;
    PannelloAvanzamento* pannello_;
};

/// What every screen's "Stampa" does: the report of an answer in the preview, over its window. Returns at
/// once; the window deletes itself when it is closed, and remembers its place if there is a session.
FormAnteprima* stampa_risultato(QWidget* finestra, const Risposta& risposta,
                                const Sessione* sessione = nullptr);

/// The same for a report that is no answer, and that reads nothing but itself.
void stampa_rapporto(QWidget* finestra, Rapporto rapporto);

/// The same for what a search screen hands over.
void stampa_lavoro(const LavoroStampa& lavoro, const Sessione& sessione);

}  // namespace sortimetra
