#include "statistics/form_stat.h"

#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/area_parametri.h"
#include "screens/casella_cifre.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "statistics/form_spec.h"
#include "statistics/form_stat2.h"
#include "statistics/parametri.h"
#include "statistics/serie_speciali.h"
#include "systems/ric_stat.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFileInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QVBoxLayout>
#include <chrono>
#include <string_view>
#include <utility>

namespace sortimetra {

namespace {

/// The slip printing program, in the program's folder.
constexpr const char* kProgrammaSchedine = "stampa.exe";

/// Whether `ComboRit` has a say in a search.
bool ammette_tipo(const Ricerca& ricerca) {
    return ricerca.ammette(kOpzTipo) || ricerca.ammette(kOpzTipoTerno);
}

/// A named frame with its caption and its controls under it.
QFrame* riquadro(const QString& nome, QLabel* scritta, std::initializer_list<QWidget*> controlli) {
    auto* f = new QFrame;
    f->setObjectName(nome);
    auto* colonna = new QVBoxLayout{f};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(kPasso);
    colonna->addWidget(scritta);
    auto* riga = new QHBoxLayout;
    riga->setSpacing(2 * kPasso);
    for (QWidget* c : controlli) riga->addWidget(c);
    colonna->addLayout(riga);
    return f;
}

QLabel* etichetta(const QString& testo, QWidget* compagno) {
    auto* l = new QLabel{testo};
    l->setBuddy(compagno);
    assegna_ruolo(l, "sezione");
    compagno->setAccessibleName(testo);
    return l;
}

}  // namespace

Form_stat::Form_stat(Sessione& sessione, QWidget* padre)
    : SchermoRicerca{sessione, QStringLiteral("Form_stat"), padre} {
    avvia_programma = [](const QString& programma) {
        return QProcess::startDetached(programma, {}, QFileInfo{programma}.absolutePath());
    };
    componi_riquadri();
    componi_comandi();
}

void Form_stat::componi_riquadri() {
    capogioco_ = new CasellaCifre;
    capogioco_->setObjectName(QStringLiteral("txtcapogioco"));
    frame_capogioco_ = riquadro(QStringLiteral("FrameCapogioco"),
                                etichetta(tr("Ambata Capogioco"), capogioco_), {capogioco_});

    for (std::size_t i = 0; i < ambo_capo_.size(); ++i) {
        ambo_capo_[i] = new CasellaCifre;
        ambo_capo_[i]->setObjectName(QStringLiteral("txtAmboCapo_%1").arg(i));
    }
    frame_ambo_capo_ =
        riquadro(QStringLiteral("FrameAmboCapo"), etichetta(tr("Ambo Capogioco"), ambo_capo_[0]),
                 {ambo_capo_[0], ambo_capo_[1]});
    ambo_capo_[0]->setAccessibleName(tr("Ambo Capogioco, primo numero"));
    ambo_capo_[1]->setAccessibleName(tr("Ambo Capogioco, secondo numero"));

    combo_rit_ = new QComboBox;
    combo_rit_->setObjectName(QStringLiteral("ComboRit"));
    frame_rit_ = riquadro(QStringLiteral("FrameRit"), etichetta(tr("Rit. e Freq. Relativi"), combo_rit_),
                          {combo_rit_});

    estratto_ = new QComboBox;
    estratto_->setObjectName(QStringLiteral("cmbEstratto"));
    for (int i = 1; i <= kEstratti; ++i) estratto_->addItem(tr("%1° Estratto").arg(i));
    frame_estratto_ = riquadro(QStringLiteral("FrameEstratto"),
                               etichetta(tr("Seleziona l'estratto"), estratto_), {estratto_});

    for (QFrame* f : {frame_capogioco_, frame_ambo_capo_, frame_rit_, frame_estratto_}) {
        f->hide();
        cornice()->colonna_extra()->addWidget(f);
    }

    // A choice made by hand asks the question again at once; one made by the program does not.
    connect(combo_rit_, &QComboBox::activated, this, [this] { avvia(); });
    connect(combo_rit_, &QComboBox::currentIndexChanged, this, [this](int i) {
        if (!frame_rit_->isHidden()) sessione().indice_combo_rit = i;
    });
    // A result of another capo or another estratto must not stay beside the new one.
    for (QLineEdit* casella : {capogioco_, ambo_capo_[0], ambo_capo_[1]})
        connect(casella, &QLineEdit::textEdited, this, [this] { svuota(); });
    connect(estratto_, &QComboBox::currentIndexChanged, this, [this] { svuota(); });
    connect(combo_rit_, &QComboBox::currentIndexChanged, this, &Form_stat::svuota_tabella_ruote);
    connect(area(), &AreaParametri::cambiato, this, &Form_stat::svuota_tabella_ruote);
    connect(area(), &AreaParametri::tratto_cambiato, this, &Form_stat::svuota_tabella_ruote);
}

void Form_stat::componi_comandi() {
    cmd_spec_ = new QPushButton{tr("Tabella riepilogativa dei ritardi su tutte  le ruote"), this};
    cmd_spec_->setObjectName(QStringLiteral("cmdSpec"));
    cmd_spec_->setIcon(icona(QStringLiteral("tabella")));
    cornice()->riga_comandi()->addWidget(cmd_spec_);
    connect(cmd_spec_, &QPushButton::clicked, this, &Form_stat::apri_tabella_ruote);

    schedine_ = new QPushButton{tr("Schedine"), this};
    schedine_->setObjectName(QStringLiteral("Command2"));
    schedine_->setIcon(icona(QStringLiteral("schedina")));
    cornice()->riga_comandi()->addWidget(schedine_);
    connect(schedine_, &QPushButton::clicked, this, &Form_stat::passa_alle_schedine);

    combo_comb_ = new QComboBox{this};
    combo_comb_->setObjectName(QStringLiteral("ComboComb"));
    etichetta_comb_ = etichetta(tr("N. Comb."), combo_comb_);
    cornice()->riga_comandi()->addWidget(etichetta_comb_);
    cornice()->riga_comandi()->addWidget(combo_comb_);

    for (std::size_t i = 0; i < analisi_.size(); ++i) {
        auto* b = new QPushButton{tr("Analisi Gruppo"), this};
        b->setObjectName(QStringLiteral("Command%1").arg(i + 3));
        b->setIcon(icona(QStringLiteral("analisi")));
        cornice()->riga_comandi()->addWidget(b);
        connect(b, &QPushButton::clicked, this, &Form_stat::analizza_gruppo);
        analisi_[i] = b;
    }
}

void Form_stat::imposta_serie(std::vector<int> numeri, int sorte) {
    numeri_ = std::move(numeri);
    sorte_ = sorte;
}

void Form_stat::intitola(const QString& titolo) {
    setWindowTitle(titolo);
    cornice()->intitola(titolo, testo_qt(ricerca()->frase));
}

void Form_stat::proponi_tipi(int quanti, int scelto) {
    const QSignalBlocker zitto{combo_rit_};
    while (combo_rit_->count() > quanti) combo_rit_->removeItem(combo_rit_->count() - 1);
    combo_rit_->setCurrentIndex(scelto);
    sessione().indice_combo_rit = scelto;
}

void Form_stat::inizializza_griglia() {
    const Ricerca& r = *ricerca();
    const bool serie = r.famiglia != nullptr;
    frame_capogioco_->setVisible(r.ammette(kOpzCapogioco));
    frame_ambo_capo_->setVisible(r.ammette(kOpzAmboCapo));
    frame_estratto_->setVisible(r.ammette(kOpzEstratto));
    frame_rit_->setVisible(ammette_tipo(r));
    riempi_combo_rit();
    cmd_spec_->setVisible(r.ammette(kOpzTutteLeRuote));
    schedine_->setVisible(r.schedine || serie);
    analisi_[0]->setVisible(r.ammette(kOpzCapogioco));
    analisi_[1]->setVisible(r.ammette(kOpzAmboCapo));
    analisi_[2]->setVisible(serie);
    combo_comb_->clear();
    combo_comb_->setVisible(r.ammette(kOpzAmboCapo));
    etichetta_comb_->setVisible(r.ammette(kOpzAmboCapo));
    capogioco_->clear();
    for (CasellaCifre* c : ambo_capo_) c->clear();
    estratto_->setCurrentIndex(0);
    if (spec_ != nullptr) spec_->close();
    if (stat2_ != nullptr) stat2_->close();
    griglia()->inizializza({titoli_serie(r.famiglia)});
}

void Form_stat::riempi_combo_rit() {
    const QSignalBlocker zitto{combo_rit_};
    combo_rit_->clear();
    if (ricerca()->ammette(kOpzTipoTerno))
        combo_rit_->addItems({tr("all' Ambata"), tr("all' Ambo"), tr("al Terno")});
    else
        combo_rit_->addItems({tr("all'Ambata"), tr("all'Ambo")});
    combo_rit_->setCurrentIndex(0);
    if (ammette_tipo(*ricerca())) sessione().indice_combo_rit = 0;
}

Parametri Form_stat::parametri() const {
    ParametriStatistica p;
    const Ricerca& r = *ricerca();
    if (ammette_tipo(r)) p.tipo = combo_rit_->currentIndex();
    if (r.ammette(kOpzCapogioco)) p.capogioco = {capogioco_->numero()};
    if (r.ammette(kOpzAmboCapo)) p.capogioco = {ambo_capo_[0]->numero(), ambo_capo_[1]->numero()};
    if (r.ammette(kOpzEstratto)) p.estratto = estratto_->currentIndex() + 1;
    // A decomposition is of numbers that another screen has set, whatever the game calls their option.
    if (r.ammette(kOpzSorte)) {
        p.numeri = numeri_;
        p.sorte = sorte_;
    }
    return p;
}

void Form_stat::imposta(const Domanda& domanda) {
    const auto& p = domanda.di<ParametriStatistica>();
    const auto scrivi = [&p](CasellaCifre* casella, std::size_t i) {
        casella->setText(i < p.capogioco.size() ? QString::number(p.capogioco[i]) : QString{});
    };
    if (ammette_tipo(*ricerca())) combo_rit_->setCurrentIndex(p.tipo);
    scrivi(capogioco_, 0);
    for (std::size_t i = 0; i < ambo_capo_.size(); ++i) scrivi(ambo_capo_[i], i);
    estratto_->setCurrentIndex(p.estratto - 1);
    if (ricerca()->ammette(kOpzNumeri)) numeri_ = p.numeri;
    if (ricerca()->ammette(kOpzSorte)) sorte_ = p.sorte;
    svuota_tabella_ruote();
    SchermoRicerca::imposta(domanda);
}

void Form_stat::svuota() {
    combo_comb_->clear();
    SchermoRicerca::svuota();
}

void Form_stat::svuota_tabella_ruote() {
    if (spec_ != nullptr) spec_->svuota();
}

void Form_stat::closeEvent(QCloseEvent* evento) {
    SchermoRicerca::closeEvent(evento);
    if (evento->isAccepted() && spec_ != nullptr) spec_->close();
}

void Form_stat::mostra(const EsitoRicerca& esito) {
    SchermoRicerca::mostra(esito);
    combo_comb_->clear();
    if (!ricerca()->ammette(kOpzAmboCapo)) return;
    const int righe = static_cast<int>(esito.righe());
    for (int i = 1; i <= righe; ++i) combo_comb_->addItem(QString::number(i));
    combo_comb_->setCurrentIndex(righe - 1);
}

void Form_stat::mostra_messaggio(const Messaggio& messaggio) {
    QWidget* sbagliata = messaggio.avviso == Avviso::capogioco   ? capogioco_
                         : messaggio.avviso == Avviso::capigioco ? ambo_capo_[0]
                                                                 : nullptr;
    if (sbagliata == nullptr) {
        SchermoRicerca::mostra_messaggio(messaggio);
        return;
    }
    // These two messages have no title.
    messaggi().informa(this, {}, QString::fromStdString(messaggio.testo));
    sbagliata->setFocus();
}

void Form_stat::aggiorna_comandi() {
    SchermoRicerca::aggiorna_comandi();
    if (ricerca() == nullptr) return;
    const bool qualcosa = in_mostra() != nullptr;
    const bool ammessa = ricerca()->schedine;
    schedine_->setEnabled(qualcosa && ammessa && ammette_schedina(*in_mostra()));
    schedine_->setToolTip(!ammessa    ? tr("Da questa ricerca non si ricavano schedine.")
                          : !qualcosa ? tr("Avvia prima la ricerca.")
                                      : tr("Passa i numeri del risultato al programma delle schedine."));
    for (QPushButton* b : analisi_) {
        b->setEnabled(qualcosa);
        b->setToolTip(qualcosa ? tr("Analizza come un gruppo le serie sullo schermo.")
                               : tr("Avvia prima la ricerca."));
    }
    combo_comb_->setEnabled(qualcosa && combo_comb_->count() > 0);
}

void Form_stat::apri_tabella_ruote() {
    if (in_corsa()) return;
    area()->riporta_tratto();
    Domanda d = domanda(*ricerca());
    d.parametri.per<ParametriStatistica>().tutte_le_ruote = true;
    const EsitoRicerca esito = corri(*ricerca(), std::move(d));
    if (esito.prodotto()) {
        if (spec_ == nullptr) spec_ = new Form_spec{this};
        spec_->mostra(esito);
    }
    di_messaggi(esito);
}

void Form_stat::analizza_gruppo() {
    const EsitoRicerca* esito = in_mostra();
    if (in_corsa() || esito == nullptr) return;
    Domanda d = esito->domanda;
    auto& p = d.parametri.per<ParametriStatistica>();
    // The bet is that of the box as it stands, also where the grid itself has no use for it.
    p.tipo = frame_rit_->isHidden() ? 0 : combo_rit_->currentIndex();
    p.analisi = true;
    if (!combo_comb_->isHidden()) {
        p.combinazioni = combo_comb_->currentIndex() + 1;
        p.ordine = griglia()->modello()->ordine();
    }
    const EsitoRicerca analizzato = corri(*ricerca(), std::move(d));
    if (analizzato.prodotto()) {
        if (stat2_ == nullptr) stat2_ = new Form_stat2{this};
        stat2_->mostra(analizzato, stampatore());
    }
    di_messaggi(analizzato);
}

void Form_stat::passa_alle_schedine() {
    const EsitoRicerca* esito = in_mostra();
    if (in_corsa() || esito == nullptr) return;
    const auto consegna = scrivi_schedina(sessione().percorso_programma, *esito, oggi());
    if (!consegna) {
        messaggi().avvisa(this, kTitoloMessaggi, QString::fromStdString(consegna.error().testo()));
        return;
    }
    const QString scritto =
        tr("Sistema scritto in %1").arg(testo_qt((sessione().percorso_programma / consegna->file).string()));
    // The slip program reads the new system by itself.
    if (consegna->programma_aperto) {
        cornice()->scrivi_stato(scritto + tr(": il programma delle schedine è già aperto e lo legge da lì."));
        return;
    }
    cornice()->scrivi_stato(scritto);
    const auto programma = sessione().percorso_programma / kProgrammaSchedine;
    if (avvia_programma(QString::fromStdU16String(programma.u16string()))) return;
    messaggi().informa(this, kTitoloMessaggi, tr("File Danneggiato!\nReinstalla Sortimetra dal tuo CD-ROM."));
    cornice()->scrivi_stato(scritto +
                            tr(": i file ci sono, ma il programma delle schedine (%1) non si avvia.")
                                .arg(QString::fromLatin1(kProgrammaSchedine)));
}

}  // namespace sortimetra
