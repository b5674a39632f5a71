#include "lunghette/schermo_lunghetta.h"

#include "catalogue/nomi.h"
#include "lunghette/caselle_personali.h"
#include "lunghette/parametri.h"
#include "lunghette/tavola_lunghetta.h"
#include "lunghette/voci.h"
#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/area_parametri.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "statistics/form_stat.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace sortimetra {

namespace {

enum Opzione1 { kAmbata, kAmbo, kPersonali, kAutomatica, kTerno };

/// From which length on a lunghetta can be made longer.
constexpr int kDaAllungare = 3;

int voci_di(Gioco gioco) {
    return gioco == Gioco::lotto ? 4 : 22;
}

/// The decomposition whose ambi are looked for in the draws of the game.
const Ricerca* scomposizione_di(Gioco gioco) {
    switch (gioco) {
        case Gioco::dieci_e_lotto:
            return trova_ricerca(nomi::kScomposizione10eLotto.chiave);
        case Gioco::win_for_life:
            return trova_ricerca(nomi::kScomposizioneWinForLife.chiave);
        default:
            return trova_ricerca(nomi::kScomposizione.chiave);
    }
}

QLabel* sezione(const QString& testo, QWidget* compagno) {
    auto* l = new QLabel{testo};
    l->setBuddy(compagno);
    assegna_ruolo(l, "sezione");
    compagno->setAccessibleName(testo);
    return l;
}

/// The texts of a label array, or the one text of a label.
template <class Testo>
Testo etichetta(const Risultato& risultato, std::string_view nome) {
    for (const Etichetta& e : risultato.etichette)
        if (e.nome == nome)
            if (const auto* testo = std::get_if<Testo>(&e.testo)) return *testo;
    return {};
}

/// What an answer shows, read back as the screen does: slots, score, the seeds' texts.
Lunghetta riletta(const Risultato& risultato) {
    Lunghetta l;
    const auto numeri = etichetta<std::vector<std::string>>(risultato, "lblnum");
    for (std::size_t i = 0; i < std::min(numeri.size(), kCaselle); ++i)
        if (!numeri[i].empty()) l.caselle[i] = testo_qt(numeri[i]).toInt();
    if (const auto p = etichetta<std::string>(risultato, "lblRit_freq"); !p.empty())
        l.punteggio = testo_qt(p).toInt();
    const auto semi = etichetta<std::vector<std::string>>(risultato, "lbloption");
    std::copy_n(semi.begin(), std::min(semi.size(), l.semi.size()), l.semi.begin());
    return l;
}

}  // namespace

SchermoLunghetta::SchermoLunghetta(Sessione& sessione, const QString& nome, QWidget* padre)
    : FinestraRicerca{sessione, nome, padre},
      combo1_{new QComboBox},
      combo_lunga_{new QComboBox},
      opzioni_{new QButtonGroup{this}},
      lbldesc_{new QLabel},
      personali_{new CasellePersonali},
      check1_{new QCheckBox{testo_qt(kConPosizione)}},
      check2_{new QCheckBox},
      tavola_{new TavolaLunghetta},
      cmdscomposizione_{new QPushButton{tr("Scomposizione in &Ambi")}} {
    incornicia(CorniceRicerca::Domande::con_parametri);
    cornice()->risposta()->addWidget(tavola_);
    componi_domande();
    componi_comandi();
    // The question carries it beyond the run, and perhaps beyond the window.
    osserva_ = [questa = QPointer{this}](const PassoLunghetta& p) {
        if (questa) questa->passo(p);
    };
    imposta_annullabile(true);
    imposta_annullo_a_passi(true);
}

SchermoLunghetta::~SchermoLunghetta() = default;

// ---- controls ----

void SchermoLunghetta::componi_domande() {
    combo1_->setObjectName(QStringLiteral("Combo1"));
    combo1_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo1_->setMinimumContentsLength(14);
    combo1_->setMaxVisibleItems(22);
    combo_lunga_->setObjectName(QStringLiteral("ComboLunga"));
    combo_lunga_->setMaxVisibleItems(16);
    for (int n = kLunghezzaMinima; n <= kLunghezzaMassima; ++n) combo_lunga_->addItem(QString::number(n));
    check1_->setObjectName(QStringLiteral("Check1"));
    check2_->setObjectName(QStringLiteral("Check2"));

    auto* riquadro = new QFrame;
    riquadro->setObjectName(QStringLiteral("FrameParametri2"));
    auto* colonna = new QVBoxLayout{riquadro};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(kPasso);
    colonna->addWidget(sezione(tr("Cerca la lunghetta"), combo1_));
    colonna->addWidget(combo1_);
    componi_opzioni(colonna);
    colonna->addSpacing(2 * kPasso);
    colonna->addWidget(sezione(tr("Numero/i da cui far partire l'analisi"), personali_));
    colonna->addWidget(personali_);
    colonna->addSpacing(2 * kPasso);
    colonna->addWidget(check1_);
    colonna->addWidget(check2_);
    auto* riga = new QHBoxLayout;
    riga->addWidget(sezione(tr("Lunghezza della lunghetta"), combo_lunga_), 1);
    riga->addWidget(combo_lunga_);
    colonna->addLayout(riga);
    cornice()->colonna_extra()->addWidget(riquadro);

    connect(combo1_, &QComboBox::currentIndexChanged, this, [this] { ricerca_scelta(); });
    connect(combo_lunga_, &QComboBox::currentIndexChanged, this, [this] { lunghezza_scelta(); });
    connect(check1_, &QCheckBox::toggled, this, &SchermoLunghetta::posizione_cambiata);
    connect(check2_, &QCheckBox::toggled, this, &SchermoLunghetta::frequente_cambiata);
}

void SchermoLunghetta::componi_opzioni(QVBoxLayout* colonna) {
    // The order in which they are read is not that of their indexes: the terno stands where the ambo does.
    constexpr std::array<std::pair<Opzione1, int>, 3> kSemi{{{kAmbata, 0}, {kAmbo, 1}, {kTerno, 2}}};
    auto* griglia = new QGridLayout;
    griglia->setHorizontalSpacing(2 * kPasso);
    griglia->setVerticalSpacing(kPasso);
    griglia->setColumnStretch(0, 1);
    for (std::size_t i = 0; i < option1_.size(); ++i) {
        option1_[i] = new QRadioButton;
        option1_[i]->setObjectName(QStringLiteral("Option1_%1").arg(i));
        opzioni_->addButton(option1_[i], static_cast<int>(i));
    }
    int fila = 0;
    for (const auto& [opzione, seme] : kSemi) {
        auto* trovato = new QLabel;
        trovato->setObjectName(QStringLiteral("lbloption_%1").arg(seme));
        trovato->setFont(carattere_tabellare(trovato->font()));
        trovato->setAccessibleName(tr("Trovato"));
        lbloption_[static_cast<std::size_t>(seme)] = trovato;
        griglia->addWidget(option1_[opzione], fila, 0);
        griglia->addWidget(trovato, fila++, 1, Qt::AlignRight);
    }
    lbldesc_->setObjectName(QStringLiteral("lbldesc"));
    assegna_ruolo(lbldesc_, "quieto");
    griglia->addWidget(lbldesc_, fila++, 0, 1, 2);
    griglia->addWidget(option1_[kAutomatica], fila++, 0, 1, 2);
    griglia->addWidget(option1_[kPersonali], fila, 0, 1, 2);
    colonna->addSpacing(kPasso);
    colonna->addLayout(griglia);
    connect(opzioni_, &QButtonGroup::idToggled, this, [this](int opzione, bool si) {
        if (si) opzione_scelta(opzione);
    });
    connect(opzioni_, &QButtonGroup::idClicked, this, [this](int opzione) {
        if (opzione == kPersonali) personali_->prendi_fuoco();
    });
}

void SchermoLunghetta::componi_comandi() {
    // The names that these commands have on this screen.
    cornice()->primario()->setObjectName(QStringLiteral("cmdAvviaRicerca"));
    cornice()->cmd_chiudi()->setObjectName(QStringLiteral("cmdesci"));
    cornice()->cmd_chiudi()->setText(tr("Es&ci"));
    cmdscomposizione_->setObjectName(QStringLiteral("cmdscomposizione"));
    cmdscomposizione_->setIcon(icona(QStringLiteral("analisi")));
    cornice()->riga_comandi()->addWidget(cmdscomposizione_);
    connect(cmdscomposizione_, &QPushButton::clicked, this, &SchermoLunghetta::scomponi);
}

// ---- opening ----

bool SchermoLunghetta::a_punti() const {
    return ricerca() != nullptr && ricerca()->gioco != Gioco::lotto;
}

void SchermoLunghetta::prepara() {
    const Gioco gioco = ricerca()->gioco;
    {
        const QSignalBlocker zitto{combo1_};
        combo1_->clear();
        for (int i = 0; i < voci_di(gioco); ++i)
            combo1_->addItem(QString::fromStdString(testo_ricerca(gioco, i)));
    }
    personali_->disponi(caselle_personali(gioco), gioco == Gioco::win_for_life ? kNumeriWinForLife : kNumeri);
    check1_->setVisible(a_punti());
    check2_->setVisible(a_punti());
    check2_->setText(testo_qt(testo_frequente(gioco)));
    check2_->setChecked(false);
    check1_->setChecked(false);
    scegli_lunghezza(kLunghezzaMinima);
    svuota();
    ricerca_scelta();
}

void SchermoLunghetta::attiva() {
    if (!a_punti()) {
        FinestraRicerca::attiva();
        return;
    }
    // 10eLotto is always read on all ten wheels.
    area()->configura(AreaParametri::Genere::senza_ruote);
    area()->apri(*archivio(), SelezioneRuote::tutte());
}

// ---- choices ----

void SchermoLunghetta::ricerca_scelta() {
    const int r = combo1_->currentIndex();
    if (r < 0 || ricerca() == nullptr) return;
    scrivi_didascalie();
    layout(r);
    option1_[kAmbata]->setChecked(true);
    opzione_scelta(kAmbata);
}

void SchermoLunghetta::scrivi_didascalie() {
    const int r = combo1_->currentIndex();
    if (r < 0 || ricerca() == nullptr) return;
    const Gioco gioco = ricerca()->gioco;
    const bool frequente = check2_->isChecked();
    tavola_->nomina_punteggio(QString::fromStdString(testo_punteggio(gioco, r, frequente)));
    for (std::size_t i = 0; i < option1_.size(); ++i)
        option1_[i]->setText(QString::fromStdString(testo_opzione(gioco, r, static_cast<int>(i))));
    if (frequente) option1_[kAmbo]->setText(testo_qt(testo_opzione_frequente(gioco)));
    lbldesc_->setText(QString::fromStdString(testo_dal_terno(gioco, r)));
}

void SchermoLunghetta::layout(int ricerca) {
    const bool terno = !a_punti() && ricerca % 2 == 1;
    option1_[kAmbo]->setVisible(!terno);
    lbloption_[1]->setVisible(!terno);
    // The terno is worked out by the searches for it, but none begins with it.
    option1_[kTerno]->setVisible(terno || a_punti());
    option1_[kTerno]->setEnabled(false);
    lbldesc_->setVisible(terno || a_punti());
    lbloption_[2]->setVisible(terno || a_punti());
    option1_[kAutomatica]->setVisible(!a_punti() && ricerca == 0);
}

void SchermoLunghetta::opzione_scelta(int opzione) {
    option1_[kAmbata]->setProperty("Tag", opzione);
    lbloption_[0]->clear();
    lbloption_[1]->clear();
    personali_->apri(opzione == kPersonali);
}

int SchermoLunghetta::lunghezza() const {
    return combo_lunga_->currentIndex() + kLunghezzaMinima;
}

void SchermoLunghetta::scegli_lunghezza(int lunghezza) {
    const QSignalBlocker zitto{combo_lunga_};
    combo_lunga_->setCurrentIndex(lunghezza - kLunghezzaMinima);
}

void SchermoLunghetta::lunghezza_scelta() {
    if (in_corsa() || ricerca() == nullptr) return;
    if (lunghezza() != kLunghezzaMassima) check2_->setChecked(false);
    if (check1_->isChecked() && lunghezza() > kLunghezzaPosizione) {
        scegli_lunghezza(kLunghezzaPosizione);
        mostra_messaggio({Avviso::posizione_dieci, std::string{kPosizioneDieci}});
        return;
    }
    if (stato_ && stato_->lunghezza >= kDaAllungare && stato_->lunghezza <= lunghezza()) allunga();
}

void SchermoLunghetta::posizione_cambiata(bool si) {
    if (!si) return;
    check2_->setChecked(false);
    if (lunghezza() <= kLunghezzaPosizione) return;
    scegli_lunghezza(kLunghezzaPosizione);
    mostra_messaggio({Avviso::posizione_dieci, std::string{kPosizioneDieci}});
}

void SchermoLunghetta::frequente_cambiata(bool si) {
    if (si) {
        check1_->setChecked(false);
        scegli_lunghezza(kLunghezzaMassima);
    }
    check1_->setEnabled(!si);
    for (const Opzione1 o : {kAmbata, kAmbo, kPersonali, kAutomatica}) option1_[o]->setEnabled(!si);
    personali_->setEnabled(!si);
    scrivi_didascalie();
}

// ---- question and answer ----

Parametri SchermoLunghetta::parametri() const {
    return ParametriLunghette{.ricerca = combo1_->currentIndex(),
                              .opzione = option1_[kAmbata]->property("Tag").toInt(),
                              .lunghezza = lunghezza(),
                              .numeri = personali_->numeri(),
                              .posizione = a_punti() && check1_->isChecked(),
                              .frequente = a_punti() && check2_->isChecked(),
                              .partenza = partenza_,
                              .a_ogni_passo = osserva_};
}

void SchermoLunghetta::imposta(const Domanda& domanda) {
    const auto& p = domanda.di<ParametriLunghette>();
    combo1_->setCurrentIndex(p.ricerca);
    if (QAbstractButton* b = opzioni_->button(p.opzione)) b->setChecked(true);
    personali_->imposta(p.numeri);
    if (a_punti()) {
        check1_->setChecked(p.posizione);
        check2_->setChecked(p.frequente);
    }
    scegli_lunghezza(p.lunghezza);
    FinestraRicerca::imposta(domanda);
}

void SchermoLunghetta::passo(const PassoLunghetta& passo) {
    // Without a number of its own a step is a beginning: the seed, or the next of the automatic analysis.
    if (passo.entrato == 0) passi_.clear();
    passi_.push_back(passo);
    tavola_->mostra_passo(passo.lunghetta, passi_);
}

void SchermoLunghetta::avvia() {
    if (in_corsa() || ricerca() == nullptr || archivio() == nullptr) return;
    personali_->lascia();
    passi_.clear();
    // The old lunghetta goes before anything is asked of the archive.
    svuota();
    FinestraRicerca::avvia();
    if (!stato_ && opzioni_->checkedId() == kPersonali && personali_->numeri().empty())
        tavola_->svuota(tr("Scrivi a sinistra almeno un numero da cui cominciare."));
}

void SchermoLunghetta::allunga() {
    partenza_ = stato_;
    FinestraRicerca::avvia();
    partenza_.reset();
}

void SchermoLunghetta::mostra(const EsitoRicerca& esito) {
    Lunghetta l = riletta(*esito.risultato);
    l.lunghezza = passi_.empty() ? 0 : passi_.back().lunghetta.lunghezza;
    if (passi_.empty() && partenza_) l.lunghezza = partenza_->lunghezza;
    for (std::size_t i = 0; i < lbloption_.size(); ++i) lbloption_[i]->setText(testo_qt(l.semi[i]));
    tavola_->mostra(l, passi_);
    stato_ = std::make_shared<const Lunghetta>(std::move(l));
}

void SchermoLunghetta::svuota_label() {
    for (QLabel* l : lbloption_) l->clear();
    tavola_->svuota(
        tr("Scegli che cosa cercare a sinistra, poi premi «Avvia Ricerca» (oppure Invio, o F5)."));
}

void SchermoLunghetta::svuota() {
    stato_.reset();
    svuota_label();
    FinestraRicerca::svuota();
}

void SchermoLunghetta::aggiorna_comandi() {
    FinestraRicerca::aggiorna_comandi();
    if (ricerca() == nullptr) return;
    cmdscomposizione_->setEnabled(stato_ != nullptr && stato_->piene() > 0);
    cmdscomposizione_->setToolTip(stato_ ? tr("Elenca gli ambi della lunghetta con i loro ritardi.")
                                         : tr("Avvia prima la ricerca."));
}

void SchermoLunghetta::mostra_messaggio(const Messaggio& messaggio) {
    messaggi().informa(this, kTitoloMessaggi, QString::fromStdString(messaggio.testo));
}

// ---- the ambi of a lunghetta ----

void SchermoLunghetta::imposta_stampa(const std::function<void(const LavoroStampa&)>& stampa) {
    stampa_ = stampa;
    FinestraRicerca::imposta_stampa(stampa);
}

void SchermoLunghetta::scomponi() {
    const Ricerca* riga = scomposizione_di(ricerca()->gioco);
    if (in_corsa() || riga == nullptr || !stato_) return;
    std::vector<int> numeri;
    for (const int n : stato_->caselle)
        if (n > 0) numeri.push_back(n);
    const std::size_t ambi = numeri.empty() ? 0 : numeri.size() * (numeri.size() - 1) / 2;
    area()->riporta_tratto();
    if (!scomposizione_) scomposizione_ = std::make_unique<Form_stat>(sessione());
    scomposizione_->imposta_stampa(stampa_);
    scomposizione_->imposta_serie(numeri, 2);
    scomposizione_->apri(*riga, *archivio(), this);
    scomposizione_->area()->imposta_ambito(area()->ambito());
    scomposizione_->proponi_tipi(2, 1);
    scomposizione_->intitola(tr("Scomposizione Gruppo (%1 numeri = %2 %3)")
                                 .arg(numeri.size())
                                 .arg(ambi)
                                 .arg(ambi < 2 ? tr("Ambo") : tr("Ambi")));
    hide();
    scomposizione_->show();
    scomposizione_->avvia();
}

}  // namespace sortimetra
