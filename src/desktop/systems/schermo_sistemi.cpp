#include "systems/schermo_sistemi.h"

#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/area_parametri.h"
#include "screens/area_scorrevole.h"
#include "screens/chip.h"
#include "screens/tema.h"
#include "systems/cornici_scelta.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace sortimetra {

SchermoSistemi::SchermoSistemi(Sessione& sessione, const QString& nome,
                               std::span<const std::string_view> titoli)
    : FinestraRicerca{sessione, nome},
      pagine_{new QStackedWidget},
      posizioni_{new ScegliPosizioni},
      numeri_{new ScegliNumeri} {
    CorniceRicerca* cornice = incornicia(CorniceRicerca::Domande::con_parametri);
    cornice->risposta()->addWidget(pagine_, 1);
    auto* tipi = new QFrame;
    tipi->setObjectName(QStringLiteral("FrameTipoSistema"));
    auto* colonna = new QVBoxLayout{tipi};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(kPasso);
    auto* titolo = new QLabel{tr("Tipo di Sistema"), tipi};
    assegna_ruolo(titolo, "sezione");
    colonna->addWidget(titolo);
    for (const std::string_view testo : titoli) {
        const auto i = static_cast<int>(caselle_.size());
        auto* c = new Chip{testo_qt(testo), tipi};
        c->setObjectName(QStringLiteral("CheckSistema_%1").arg(i));
        c->setAccessibleName(c->text());
        assegna_ruolo(c, "chip");
        connect(c, &QCheckBox::toggled, this, [this, i](bool si) { sistema_premuto(i, si); });
        colonna->addWidget(c);
        caselle_.push_back(c);
    }
    domande()->addWidget(tipi);
    componi_scelta(posizioni_);
    componi_scelta(numeri_);
}

void SchermoSistemi::componi_scelta(CorniceScelta* scelta) {
    pagine_->addWidget(new AreaScorrevole{scelta});
    connect(scelta, &CorniceScelta::scelto, this, &SchermoSistemi::scelta_fatta);
    connect(scelta, &CorniceScelta::annullato, this, [this] {
        torna_alla_pagina();
        cornice()->primario()->setFocus();
    });
}

QVBoxLayout* SchermoSistemi::domande() const {
    return cornice()->colonna_extra();
}

void SchermoSistemi::aggiungi_pagina(QWidget* pagina) {
    pagine_->addWidget(new AreaScorrevole{pagina});
}

void SchermoSistemi::mostra_pagina(QWidget* pagina) {
    pagina_ = pagina;
    torna_alla_pagina();
}

void SchermoSistemi::in_vista(QWidget* pagina) {
    // The page stands in the viewport of what scrolls it.
    pagine_->setCurrentWidget(pagina->parentWidget()->parentWidget());
}

// ---- the ticked box ----

void SchermoSistemi::inizia_da(int sistema) {
    fermo_ = true;
    sistema_ = sistema;
    for (std::size_t i = 0; i < caselle_.size(); ++i) caselle_[i]->setChecked(static_cast<int>(i) == sistema);
    fermo_ = false;
}

void SchermoSistemi::sistema_premuto(int indice, bool si) {
    if (fermo_) return;
    const bool altro = si && indice != sistema_;
    // One box is always ticked: a click on that one leaves it.
    inizia_da(si ? indice : sistema_);
    if (!altro) return;
    prepara_area();
    svuota();
    sistema_cambiato();
}

Gioco SchermoSistemi::gioco() const {
    Domanda d;
    d.ricerca = ricerca();
    d.parametri = ParametriSistemi{.sistema = sistema_};
    return ricerca()->gioco_di(d);
}

void SchermoSistemi::attiva() {
    inizia_da(0);
    scelte_ = {};
    con_ore_ = false;
    area()->setVisible(ricerca()->tabelle != 0);
    area()->configura(AreaParametri::Genere::lotto);
    area()->apri(*archivio(), ricerca()->ruote);
    prepara_area();
    svuota();
    sistema_cambiato();
}

void SchermoSistemi::prepara_area() {
    const bool ore = gioco() == Gioco::win_for_life;
    if (ore != con_ore_) {
        con_ore_ = ore;
        area()->configura(ore ? AreaParametri::Genere::win_for_life : AreaParametri::Genere::lotto);
        area()->apri(*archivio(), ricerca()->ruote);
    }
    // The other games are drawn whole: no wheel can be chosen.
    const bool ruote = gioco() == Gioco::lotto;
    if (!ruote) area()->imposta_ruote({});
    for (QCheckBox* c : area()->findChildren<QCheckBox*>()) c->setEnabled(ruote);
}

Parametri SchermoSistemi::parametri() const {
    ParametriSistemi p = scelte_;
    p.sistema = sistema_;
    return p;
}

void SchermoSistemi::imposta(const Domanda& domanda) {
    // The area of the game comes before the scope; positions and numbers are asked for at each start.
    const int sistema = domanda.di<ParametriSistemi>().sistema;
    if (sistema >= 0 && static_cast<std::size_t>(sistema) < caselle_.size()) sistema_premuto(sistema, true);
    FinestraRicerca::imposta(domanda);
}

// ---- positions and numbers ----

CorniceScelta* SchermoSistemi::scelta_del_gioco() const {
    if (!chiede_scelte()) return nullptr;
    switch (gioco()) {
        case Gioco::dieci_e_lotto:
            return posizioni_;
        case Gioco::win_for_life:
            // Without draws there is nothing to choose from: the search says so.
            return vista_winforlife(*archivio(), area()->ambito()).empty() ? nullptr : numeri_;
        default:
            return nullptr;
    }
}

CorniceScelta* SchermoSistemi::scelta_in_mostra() const {
    const auto* scorri = qobject_cast<QScrollArea*>(pagine_->currentWidget());
    return scorri == nullptr ? nullptr : qobject_cast<CorniceScelta*>(scorri->widget());
}

void SchermoSistemi::avvia() {
    if (in_corsa() || ricerca() == nullptr || archivio() == nullptr) return;
    if (CorniceScelta* scelta = scelta_in_mostra(); scelta != nullptr) {
        scelta->procedi();
        return;
    }
    area()->riporta_tratto();
    CorniceScelta* scelta = scelta_del_gioco();
    if (scelta == nullptr) {
        esegui();
        return;
    }
    in_vista(scelta);
    scelta->prendi_tastiera();
}

void SchermoSistemi::scelta_fatta() {
    ParametriSistemi nuove;
    if (scelta_in_mostra() == posizioni_) nuove.posizioni = posizioni_->posizioni();
    if (scelta_in_mostra() == numeri_) {
        nuove.contenenti = numeri_->contenenti();
        nuove.nelle_posizioni = numeri_->nelle_posizioni();
    }
    torna_alla_pagina();
    // Nothing stays on show that was counted with another choice.
    if (nuove.posizioni != scelte_.posizioni || nuove.contenenti != scelte_.contenenti ||
        nuove.nelle_posizioni != scelte_.nelle_posizioni)
        svuota();
    scelte_ = std::move(nuove);
    esegui();
    cornice()->primario()->setFocus();
}

void SchermoSistemi::torna_alla_pagina() {
    if (pagina_ != nullptr) in_vista(pagina_);
}

void SchermoSistemi::svuota() {
    // Another scope: the choice in progress was begun for the one before.
    torna_alla_pagina();
    FinestraRicerca::svuota();
}

void SchermoSistemi::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape && scelta_in_mostra() != nullptr) {
        torna_alla_pagina();
        cornice()->primario()->setFocus();
        return;
    }
    FinestraRicerca::keyPressEvent(evento);
}

void SchermoSistemi::mostra_messaggio(const Messaggio& messaggio) {
    // What is wrong with a file is read and mended outside: a line, no box.
    if (messaggio.avviso == Avviso::sistema_danneggiato)
        cornice()->scrivi_stato(QString::fromStdString(messaggio.testo));
    else
        FinestraRicerca::mostra_messaggio(messaggio);
}

void SchermoSistemi::di_note(const EsitoRicerca& esito) {
    if (esito.risultato != nullptr && !esito.prodotto() && !esito.risultato->note.empty())
        cornice()->scrivi_stato(QString::fromStdString(esito.risultato->note.front()));
}

}  // namespace sortimetra
