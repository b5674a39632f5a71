#include "personal/form_piramide.h"

#include "personal/griglia_poste.h"
#include "personal/parametri.h"
#include "personal/piramide.h"
#include "personal/stampa_piramide.h"
#include "personal/taratura.h"
#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/area_parametri.h"
#include "screens/casella_cifre.h"
#include "screens/messaggi.h"
#include "screens/tema.h"

#include <QAction>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>
#include <variant>

namespace sortimetra {

namespace {

constexpr int kCella = 10 * kPasso;
constexpr int kAltezzaMinima = 5 * kPasso;
constexpr int kLarghezzaTitolo = 34 * kPasso;
constexpr int kTraCelle = kPasso;

}  // namespace

Form_Piramide::Form_Piramide(Sessione& sessione, QWidget* padre)
    : FinestraRicerca{sessione, QStringLiteral("Form_Piramide"), padre},
      opzioni_{new QButtonGroup{this}},
      invito_{new QLabel{tr(
          "Scegli la ruota e da dove parte la piramide,\npoi premi «Avvia Ricerca» (oppure Invio, o F5).")}},
      piede_{new QLabel},
      testi_{new QListWidget{this}},
      pannelli_{new QStackedWidget},
      poste_{new GrigliaPoste},
      schedine_{new QPushButton{tr("Stampa Sc&hedine")}},
      stampa_schedine_{new QAction{tr("Stampa le schedine…"), this}} {
    incornicia(CorniceRicerca::Domande::con_parametri);
    // The names that these commands have on this screen.
    cornice()->primario()->setObjectName(QStringLiteral("CmdAvviaRicerca"));
    cornice()->cmd_stampa()->setObjectName(QStringLiteral("cmdstampa"));
    cornice()->cmd_chiudi()->setObjectName(QStringLiteral("Cmdesci"));
    // A triangle has no rows to choose from.
    cornice()->cmd_filtra()->hide();
    cornice()->cmd_chiudi()->setText(tr("&Esci"));
    cornice()->cmd_esporta()->setText(tr("Es&porta…"));
    area()->imposta_ruota_unica(true);
    componi_domande();
    pannelli_->addWidget(componi_piramide());
    pannelli_->addWidget(componi_schedine());
    cornice()->risposta()->addWidget(pannelli_);

    auto* menu = new QMenu{this};
    stampa_schedine_->setObjectName(QStringLiteral("mnustampa"));
    auto* parametri = new QAction{tr("Parametri delle schedine…"), this};
    parametri->setObjectName(QStringLiteral("mnuparametri"));
    menu->addAction(stampa_schedine_);
    menu->addAction(parametri);
    connect(stampa_schedine_, &QAction::triggered, this, &Form_Piramide::stampa_le_schedine);
    connect(parametri, &QAction::triggered, this, &Form_Piramide::apri_parametri);
    schedine_->setObjectName(QStringLiteral("cmdSchedine"));
    schedine_->setIcon(icona(QStringLiteral("schedina")));
    schedine_->setMenu(menu);
    cornice()->riga_comandi()->addWidget(schedine_);
}

void Form_Piramide::componi_domande() {
    auto* extra = cornice()->colonna_extra();
    const auto scelta = [this](int i, const QString& testo, CasellaCifre* numero = nullptr) {
        auto* bottone = new QRadioButton{testo};
        bottone->setObjectName(QStringLiteral("OptionP_%1").arg(i));
        opzioni_->addButton(bottone, i);
        auto* riga = new QHBoxLayout;
        riga->addWidget(bottone, 1);
        if (numero != nullptr) riga->addWidget(numero);
        return riga;
    };
    for (std::size_t i = 0; i < numeri_.size(); ++i) {
        numeri_[i] = new CasellaCifre;
        numeri_[i]->setObjectName(QStringLiteral("txtnumpir_%1").arg(i));
        numeri_[i]->setMaxLength(2);
        numeri_[i]->setFixedWidth(15 * kPasso);
        numeri_[i]->setAccessibleName(i == 0 ? tr("Numero personale, per ritardo")
                                             : tr("Numero personale, per frequenza"));
        connect(numeri_[i], &QLineEdit::textEdited, this, [this, i] {
            opzioni_->button(i == 0 ? 0 : 3)->setChecked(true);
            svuota();
        });
    }
    auto* ritardo = new QVBoxLayout;
    ritardo->setSpacing(kPasso);
    ritardo->addWidget(nuova_sezione(tr("Piramide Generata per Ritardo")));
    ritardo->addLayout(scelta(0, tr("Numero Personale"), numeri_[0]));
    ritardo->addLayout(scelta(1, tr("Ambata più in Ritardo")));
    auto* frequenza = new QVBoxLayout;
    frequenza->setSpacing(kPasso);
    frequenza->addWidget(nuova_sezione(tr("Piramide Generata per Frequenza")));
    frequenza->addLayout(scelta(2, tr("Ambata più frequente")));
    frequenza->addLayout(scelta(3, tr("Numero Personale"), numeri_[1]));
    extra->addLayout(ritardo);
    extra->addLayout(frequenza);
    connect(opzioni_, &QButtonGroup::idToggled, this, [this](int, bool si) {
        if (si) svuota();
    });
}

QWidget* Form_Piramide::componi_piramide() {
    auto* tavola = new QWidget;
    auto* griglia = new QGridLayout{tavola};
    griglia->setSpacing(kTraCelle);
    griglia->setContentsMargins(0, 0, 0, 0);
    int ordine = 0;
    for (int r = 0; r < static_cast<int>(kRighePiramide); ++r) {
        for (int c = 0; c <= r; ++c) {
            auto* cella = new QLabel;
            cella->setObjectName(QStringLiteral("IMGNumeri_%1").arg(ordine++));
            cella->setAlignment(Qt::AlignCenter);
            cella->setFixedWidth(kCella);
            cella->setMinimumHeight(kAltezzaMinima);
            cella->setMaximumHeight(kCella);
            cella->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
            // The start number stands out: every row begins with it.
            assegna_ruolo(cella, c == 0 ? "pannello" : "scheda");
            QFont carattere = carattere_tabellare(font());
            carattere.setBold(c == 0);
            cella->setFont(carattere);
            // Half a cell further left with each row: every cell takes two columns of the layout.
            griglia->addWidget(cella, r, static_cast<int>(kRighePiramide) - 1 - r + 2 * c, 1, 2);
            celle_[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)] = cella;
        }
        auto* titolo = new QLabel{testo_qt(kTitoliPiramide[static_cast<std::size_t>(r)]).trimmed()};
        titolo->setObjectName(QStringLiteral("lbltitolo_%1").arg(r));
        titolo->setWordWrap(true);
        titolo->setFixedWidth(kLarghezzaTitolo);
        assegna_ruolo(titolo, "quieto");
        griglia->addWidget(titolo, r, 2 * static_cast<int>(kRighePiramide) + 1);
    }
    griglia->setColumnMinimumWidth(2 * static_cast<int>(kRighePiramide), 3 * kPasso);

    testi_->setObjectName(QStringLiteral("List1"));
    testi_->setAccessibleName(tr("Numeri della piramide"));
    testi_->hide();
    piede_->setObjectName(QStringLiteral("lblpiede"));
    assegna_ruolo(piede_, "sezione");
    invito_->setAlignment(Qt::AlignCenter);
    assegna_ruolo(invito_, "quieto");
    auto* pannello = new QFrame;
    pannello->setObjectName(QStringLiteral("FramePiramide"));
    auto* colonna = new QVBoxLayout{pannello};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(3 * kPasso);
    // As high as the window lets it be, up to squares.
    tavola->setMaximumHeight(static_cast<int>(kRighePiramide) * (kCella + kTraCelle));
    colonna->addStretch(1);
    colonna->addWidget(tavola, 20, Qt::AlignHCenter);
    colonna->addWidget(piede_, 0, Qt::AlignHCenter);
    colonna->addWidget(invito_);
    colonna->addStretch(1);
    return pannello;
}

QWidget* Form_Piramide::componi_schedine() {
    auto* pannello = new QFrame;
    pannello->setObjectName(QStringLiteral("Frameschedine"));
    auto* colonna = new QVBoxLayout{pannello};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(2 * kPasso);
    colonna->addWidget(nuova_sezione(tr("Poste delle schedine, in euro")));
    colonna->addWidget(poste_, 1);
    auto* riga = new QHBoxLayout;
    riga->setSpacing(2 * kPasso);
    auto* salva = new QPushButton{tr("Sal&va")};
    salva->setObjectName(QStringLiteral("cmdframesch_1"));
    auto* esci = new QPushButton{tr("Esci")};
    esci->setObjectName(QStringLiteral("cmdframesch_0"));
    esci->setAccessibleName(tr("Esci dalle poste"));
    connect(salva, &QPushButton::clicked, this, &Form_Piramide::salva_poste);
    connect(esci, &QPushButton::clicked, this, &Form_Piramide::lascia_poste);
    riga->addWidget(salva);
    riga->addWidget(esci);
    riga->addStretch(1);
    colonna->addLayout(riga);
    return pannello;
}

int Form_Piramide::opzione() const {
    return std::max(opzioni_->checkedId(), 0);
}

bool Form_Piramide::sulle_schedine() const {
    return pannelli_->currentIndex() == 1;
}

void Form_Piramide::prepara() {
    for (CasellaCifre* c : numeri_) c->clear();
    opzioni_->button(1)->setChecked(true);
    pannelli_->setCurrentIndex(0);
    svuota_piramide();
}

void Form_Piramide::svuota_piramide() {
    for (std::size_t r = 0; r < kRighePiramide; ++r)
        for (std::size_t c = 0; c <= r; ++c) celle_[r][c]->clear();
    testi_->clear();
    piede_->clear();
    piede_->hide();
    invito_->show();
}

Parametri Form_Piramide::parametri() const {
    ParametriPiramide p{.opzione = opzione()};
    const CasellaCifre* casella = p.opzione == 0 ? numeri_[0] : p.opzione == 3 ? numeri_[1] : nullptr;
    if (casella != nullptr && casella->numero() >= 1 && casella->numero() <= kNumeri)
        p.numero = casella->numero();
    return p;
}

void Form_Piramide::imposta(const Domanda& domanda) {
    const auto& p = domanda.di<ParametriPiramide>();
    opzioni_->button(p.opzione)->setChecked(true);
    for (CasellaCifre* c : numeri_) c->clear();
    if (p.numero && (p.opzione == 0 || p.opzione == 3))
        numeri_[p.opzione == 0 ? 0 : 1]->setText(QString::number(*p.numero));
    FinestraRicerca::imposta(domanda);
}

void Form_Piramide::avvia() {
    // Over the stakes nothing is searched.
    if (!sulle_schedine()) FinestraRicerca::avvia();
}

void Form_Piramide::mostra(const EsitoRicerca& esito) {
    const auto piramide = piramide_di(*esito.risultato);
    if (!piramide) return;
    testi_->clear();
    for (std::size_t r = 0; r < kRighePiramide; ++r)
        for (std::size_t c = 0; c <= r; ++c) {
            const QString numero = testo_qt(esito.risultato->tabelle[0].testo(r, c));
            testi_->addItem(numero);
            celle_[r][c]->setText(numero);
            celle_[r][c]->setAccessibleName(tr("Riga %1, numero %2: %3").arg(r + 1).arg(c + 1).arg(numero));
        }
    for (const Etichetta& e : esito.risultato->etichette)
        if (const auto* testo = std::get_if<std::string>(&e.testo); testo != nullptr && e.nome == "piede")
            piede_->setText(testo_qt(*testo));
    piede_->show();
    invito_->hide();
}

void Form_Piramide::svuota() {
    svuota_piramide();
    FinestraRicerca::svuota();
}

void Form_Piramide::aggiorna_comandi() {
    FinestraRicerca::aggiorna_comandi();
    const bool piramide = in_mostra() != nullptr && piramide_di(*in_mostra()->risultato).has_value();
    stampa_schedine_->setEnabled(piramide && stampa_rapporto_ != nullptr);
    cornice()->primario()->setEnabled(!sulle_schedine());
    schedine_->setEnabled(!sulle_schedine());
}

// ---- stakes and slips ----

void Form_Piramide::imposta_stampa_rapporto(std::function<void(QWidget*, Rapporto)> stampa) {
    stampa_rapporto_ = std::move(stampa);
    aggiorna_comandi();
}

std::optional<Poste> Form_Piramide::poste_su_disco() {
    const auto& cartella = sessione().percorso_programma;
    if (const auto creata = crea_poste(cartella); !creata) {
        messaggi().avvisa(this, kTitoloMessaggi, testo_qt(creata.error().testo()));
        return std::nullopt;
    }
    const auto poste = leggi_poste(cartella);
    if (poste) return *poste;
    messaggi().avvisa(this, kTitoloMessaggi, testo_qt(poste.error().testo()));
    return std::nullopt;
}

void Form_Piramide::apri_parametri() {
    const auto poste = poste_su_disco();
    if (!poste) return;
    poste_->mostra(*poste);
    pannelli_->setCurrentIndex(1);
    poste_->setCurrentCell(0, 0);
    poste_->setFocus();
    aggiorna_comandi();
}

void Form_Piramide::salva_poste() {
    // A cell that is still being edited is left first.
    poste_->setFocus();
    if (const auto scritte = scrivi_poste(sessione().percorso_programma, poste_->poste()); !scritte) {
        messaggi().avvisa(this, kTitoloMessaggi, testo_qt(scritte.error().testo()));
        return;
    }
    poste_->segna_salvate();
}

bool Form_Piramide::lascia_poste() {
    poste_->setFocus();
    if (poste_->modificate() &&
        !messaggi().chiede(this, kTitoloMessaggi, tr("Uscire senza salvare le modifiche?")))
        return false;
    poste_->segna_salvate();
    pannelli_->setCurrentIndex(0);
    aggiorna_comandi();
    return true;
}

void Form_Piramide::stampa_le_schedine() {
    const EsitoRicerca* esito = in_mostra();
    const auto piramide = esito == nullptr ? std::nullopt : piramide_di(*esito->risultato);
    if (!piramide || !stampa_rapporto_) return;
    const auto poste = poste_su_disco();
    if (!poste) return;
    const auto taratura = taratura_per_stampa(sessione().percorso_programma);
    if (!taratura) {
        messaggi().avvisa(this, kTitoloMessaggi, testo_qt(taratura.error().testo()));
        return;
    }
    stampa_rapporto_(this, stampa_schedine({.piramide = *piramide,
                                            .ruote = esito->domanda.ambito.ruote,
                                            .poste = *poste,
                                            .taratura = *taratura}));
}

void Form_Piramide::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape && sulle_schedine())
        lascia_poste();
    else
        FinestraRicerca::keyPressEvent(evento);
}

void Form_Piramide::closeEvent(QCloseEvent* evento) {
    if (sulle_schedine() && !lascia_poste()) {
        evento->ignore();
        return;
    }
    FinestraRicerca::closeEvent(evento);
}

}  // namespace sortimetra
