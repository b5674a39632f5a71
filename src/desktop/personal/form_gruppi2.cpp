#include "personal/form_gruppi2.h"

#include "personal/file_gruppi.h"
#include "personal/gruppi.h"
#include "personal/parametri.h"
#include "personal/scelta_numeri.h"
#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "statistics/pannello_gruppo.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace sortimetra {

namespace {

constexpr int kLunghetteProposte = 5;
constexpr int kNumeriProposti = 10;
constexpr int kColonnaTavola = 10 * kPasso;
constexpr int kLarghezzaScelta = 72 * kPasso;
const QString kTitoloNomeInUso = QStringLiteral("Sortimetra 2004");

void riempi(QComboBox* combo, int fino_a, int proposto) {
    for (int n = 1; n <= fino_a; ++n) combo->addItem(QString::number(n));
    combo->setCurrentIndex(proposto - 1);
}

}  // namespace

Form_Gruppi2::Form_Gruppi2(Sessione& sessione, QWidget* padre)
    : FinestraRicerca{sessione, QStringLiteral("Form_Gruppi2"), padre},
      lunghette_{new QComboBox},
      numeri_{new QComboBox},
      sorte_{new QComboBox},
      scelta_{new SceltaNumeri},
      lblnumeri_{new QLabel},
      inserite_{new QLabel},
      nome_{new QLabel},
      tavola_{new QTableWidget},
      riquadro_nome_{new QFrame},
      txtnome_{new QLineEdit},
      ok_nome_{new QPushButton{tr("Salva")}},
      annulla_nome_{new QPushButton{tr("Annulla")}},
      pagine_{new QStackedWidget},
      salvati_{new GrigliaRisultati},
      pannello_{new PannelloGruppo},
      torna_{new QPushButton{tr("Torna al gruppo")}} {
    incornicia(CorniceRicerca::Domande::con_parametri);
    cornice()->primario()->setObjectName(QStringLiteral("cmdanalizza"));
    cornice()->primario()->setText(tr("&Analizza Gruppo"));
    componi_domande();
    pagine_->addWidget(pagina_gruppo_ = componi_gruppo());
    auto* pagina_esito = new QWidget;
    auto* colonna = new QVBoxLayout{pagina_esito};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->addWidget(pannello_);
    pagine_->addWidget(pagina_esito);
    pagine_->addWidget(pagina_salvati_ = componi_salvati());
    cornice()->risposta()->addWidget(pagine_);
    connect(pannello_, &PannelloGruppo::scomposta_richiesta, this, &Form_Gruppi2::scomponi);
    connect(pannello_, &PannelloGruppo::stampa_richiesta, this, &Form_Gruppi2::stampa);
    connect(pannello_, &PannelloGruppo::esporta_richiesta, this, &Form_Gruppi2::esporta);

    for (QPushButton* b : {comando("cmdnuovo", tr("&Nuovo Gruppo"), &Form_Gruppi2::nuovo),
                           comando("cmdsalvagruppo", tr("Salva &Gruppo"), &Form_Gruppi2::salva),
                           comando("cmdaprigruppo", tr("A&pri Gruppo"), &Form_Gruppi2::apri_elenco),
                           comando("cmdannullagruppo", tr("Annulla Gruppo"), &Form_Gruppi2::nuovo)})
        cornice()->riga_comandi()->addWidget(b);
    torna_->setObjectName(QStringLiteral("cmdtorna"));
    connect(torna_, &QPushButton::clicked, this, [this] { svuota(); });
    cornice()->riga_comandi()->addWidget(torna_);
    comandi_.push_back(torna_);
    comandi_.push_back(cornice()->primario());
}

QPushButton* Form_Gruppi2::comando(const char* nome, const QString& testo, void (Form_Gruppi2::*azione)()) {
    auto* b = new QPushButton{testo};
    b->setObjectName(QString::fromLatin1(nome));
    connect(b, &QPushButton::clicked, this, azione);
    comandi_.push_back(b);
    return b;
}

void Form_Gruppi2::componi_domande() {
    lunghette_->setObjectName(QStringLiteral("Cmblunghe"));
    numeri_->setObjectName(QStringLiteral("cmblunghe2"));
    sorte_->setObjectName(QStringLiteral("ComboRit"));
    riempi(lunghette_, static_cast<int>(kLunghetteGruppo), kLunghetteProposte);
    riempi(numeri_, static_cast<int>(kNumeriLunghetta), kNumeriProposti);
    auto* extra = cornice()->colonna_extra();
    auto* riga = new QHBoxLayout;
    riga->setSpacing(2 * kPasso);
    for (const auto& [testo, combo] :
         {std::pair{tr("Lunghette"), lunghette_}, std::pair{tr("Numeri per lunghetta"), numeri_}}) {
        auto* colonna = new QVBoxLayout;
        colonna->setSpacing(kPasso);
        colonna->addWidget(nuova_sezione(testo, combo));
        colonna->addWidget(combo);
        riga->addLayout(colonna);
    }
    extra->addLayout(riga);
    auto* esito = new QVBoxLayout;
    esito->setSpacing(kPasso);
    esito->addWidget(nuova_sezione(tr("Esito positivo"), sorte_));
    esito->addWidget(sorte_);
    extra->addLayout(esito);
    connect(lunghette_, &QComboBox::currentIndexChanged, this, &Form_Gruppi2::dimensioni_cambiate);
    connect(numeri_, &QComboBox::currentIndexChanged, this, &Form_Gruppi2::dimensioni_cambiate);
    connect(sorte_, &QComboBox::currentIndexChanged, this, [this] { svuota(); });
}

QWidget* Form_Gruppi2::componi_gruppo() {
    lblnumeri_->setObjectName(QStringLiteral("lblnumeri"));
    assegna_ruolo(lblnumeri_, "sezione");
    scelta_->setFixedWidth(kLarghezzaScelta);
    connect(scelta_, &SceltaNumeri::cambiati, this,
            [this] { lblnumeri_->setText(tr("Numeri Selezionati: %1").arg(scelta_->numeri().size())); });
    auto* sinistra = new QVBoxLayout;
    sinistra->setSpacing(2 * kPasso);
    sinistra->addWidget(lblnumeri_);
    sinistra->addWidget(scelta_);
    sinistra->addWidget(comando("cmdconferma", tr("&Conferma Lunghetta"), &Form_Gruppi2::conferma_lunghetta));
    sinistra->addStretch(1);

    nome_->setObjectName(QStringLiteral("lblnome"));
    assegna_ruolo(nome_, "sezione");
    inserite_->setObjectName(QStringLiteral("Label4"));
    tavola_->setObjectName(QStringLiteral("MSFlexGrid2"));
    tavola_->setAccessibleName(tr("Lunghette inserite"));
    tavola_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tavola_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tavola_->setSelectionMode(QAbstractItemView::SingleSelection);
    tavola_->setTabKeyNavigation(false);
    tavola_->setFont(carattere_tabellare(font()));
    tavola_->horizontalHeader()->hide();
    tavola_->horizontalHeader()->setMinimumSectionSize(1);
    tavola_->horizontalHeader()->setDefaultSectionSize(kColonnaTavola);
    auto* testata = new QHBoxLayout;
    testata->addWidget(nome_, 1);
    testata->addWidget(inserite_);
    auto* destra = new QVBoxLayout;
    destra->setSpacing(2 * kPasso);
    destra->addLayout(testata);
    destra->addWidget(tavola_, 1);
    destra->addWidget(componi_nome());
    auto* riga = new QHBoxLayout;
    riga->addWidget(
        comando("Command1", tr("Elimina Lunghetta Selezionata"), &Form_Gruppi2::elimina_lunghetta));
    riga->addStretch(1);
    destra->addLayout(riga);

    auto* pagina = new QWidget;
    auto* tutto = new QHBoxLayout{pagina};
    tutto->setContentsMargins(0, 0, 0, 0);
    tutto->setSpacing(4 * kPasso);
    tutto->addLayout(sinistra);
    tutto->addLayout(destra, 1);
    return pagina;
}

QWidget* Form_Gruppi2::componi_nome() {
    txtnome_->setObjectName(QStringLiteral("txtnomegruppo"));
    ok_nome_->setObjectName(QStringLiteral("cmdoksalva"));
    annulla_nome_->setObjectName(QStringLiteral("cmdannullasalva"));
    riquadro_nome_->setObjectName(QStringLiteral("framegruppo"));
    auto* riga = new QHBoxLayout{riquadro_nome_};
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(2 * kPasso);
    riga->addWidget(nuova_sezione(tr("Nome del gruppo"), txtnome_));
    riga->addWidget(txtnome_, 1);
    riga->addWidget(ok_nome_);
    riga->addWidget(annulla_nome_);
    connect(ok_nome_, &QPushButton::clicked, this, &Form_Gruppi2::salva_con_nome);
    connect(annulla_nome_, &QPushButton::clicked, this, &Form_Gruppi2::chiudi_nome);
    riquadro_nome_->hide();
    return riquadro_nome_;
}

QWidget* Form_Gruppi2::componi_salvati() {
    salvati_->vista()->setObjectName(QStringLiteral("ListView3"));
    salvati_->vista()->setAccessibleName(tr("Gruppi salvati"));
    salvati_->imposta_frase_vuota(tr("Nessun gruppo salvato."));
    connect(salvati_->vista(), &QAbstractItemView::doubleClicked, this, &Form_Gruppi2::apri_salvato);
    auto* pagina = new QWidget;
    auto* colonna = new QVBoxLayout{pagina};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(2 * kPasso);
    colonna->addWidget(nuova_sezione(tr("Gruppi salvati")));
    colonna->addWidget(salvati_, 1);
    auto* riga = new QHBoxLayout;
    riga->setSpacing(2 * kPasso);
    riga->addWidget(comando("cmdapri", tr("Apri"), &Form_Gruppi2::apri_salvato));
    riga->addWidget(comando("cmdelimina", tr("Elimina"), &Form_Gruppi2::elimina_salvato));
    riga->addWidget(comando("cmdchiudielenco", tr("Annulla"), &Form_Gruppi2::chiudi_elenco));
    riga->addStretch(1);
    colonna->addLayout(riga);
    return pagina;
}

// ---- the group ----

std::size_t Form_Gruppi2::lunghette() const {
    return static_cast<std::size_t>(lunghette_->currentIndex() + 1);
}

std::size_t Form_Gruppi2::numeri() const {
    return static_cast<std::size_t>(numeri_->currentIndex() + 1);
}

bool Form_Gruppi2::in_nome() const {
    return !riquadro_nome_->isHidden();
}

void Form_Gruppi2::prepara() {
    scelta_->disponi(kNumeri);
    chiudi_nome();
    {
        const QSignalBlocker a{lunghette_};
        const QSignalBlocker b{numeri_};
        lunghette_->setCurrentIndex(kLunghetteProposte - 1);
        numeri_->setCurrentIndex(kNumeriProposti - 1);
    }
    gruppo_ = {};
    dimensioni_cambiate();
    nuovo();
}

void Form_Gruppi2::nuovo() {
    gruppo_ = {.colonne = numeri()};
    nome_->clear();
    scelta_->svuota();
    mostra_gruppo();
    svuota();
    scelta_->setFocus();
}

void Form_Gruppi2::dimensioni_cambiate() {
    // Lunghette of another length cannot stay; those that fit do.
    if (gruppo_.colonne != numeri()) gruppo_ = {.colonne = numeri()};
    gruppo_.numeri.resize(std::min(gruppo_.numeri.size(), lunghette() * numeri()));
    {
        const QSignalBlocker zitto{sorte_};
        const int prima = std::max(sorte_->currentIndex(), 0);
        const QStringList sorti{tr("per Ambata"), tr("per Ambo"), tr("per Terno"), tr("per Quaterna"),
                                tr("per Cinquina")};
        sorte_->clear();
        sorte_->addItems(sorti.mid(0, std::min<qsizetype>(static_cast<qsizetype>(numeri()), sorti.size())));
        sorte_->setCurrentIndex(std::min(prima, sorte_->count() - 1));
    }
    mostra_gruppo();
    svuota();
}

void Form_Gruppi2::mostra_gruppo() {
    tavola_->clear();
    tavola_->setRowCount(static_cast<int>(lunghette()));
    tavola_->setColumnCount(static_cast<int>(numeri()));
    QStringList titoli;
    for (std::size_t i = 0; i < lunghette(); ++i) titoli << tr("%1°").arg(i + 1);
    tavola_->setVerticalHeaderLabels(titoli);
    for (std::size_t i = 0; i < gruppo_.righe(); ++i)
        for (std::size_t c = 0; c < gruppo_.colonne; ++c) {
            auto* cella = new QTableWidgetItem{QString::number(gruppo_.membro(i)[c])};
            cella->setTextAlignment(Qt::AlignCenter);
            tavola_->setItem(static_cast<int>(i), static_cast<int>(c), cella);
        }
    inserite_->setText(tr("Lunghe inserite %1 di %2").arg(gruppo_.righe()).arg(lunghette()));
}

void Form_Gruppi2::conferma_lunghetta() {
    const std::vector<int> scelti = scelta_->numeri();
    if (completo()) {
        di(tr("Inserimento gruppo completato"));
        return;
    }
    if (scelti.size() != numeri()) {
        di(tr("Selezionare %1 numeri").arg(numeri()));
        return;
    }
    for (const int n : scelti) gruppo_.aggiungi({n});
    scelta_->svuota();
    mostra_gruppo();
    tavola_->selectRow(static_cast<int>(gruppo_.righe()) - 1);
    if (completo()) di(tr("Inserimento gruppo completato"));
}

void Form_Gruppi2::elimina_lunghetta() {
    const auto riga = static_cast<std::size_t>(std::max(tavola_->currentRow(), 0));
    if (tavola_->currentRow() < 0 || riga >= gruppo_.righe()) return;
    const auto inizio = gruppo_.numeri.begin() + static_cast<std::ptrdiff_t>(riga * gruppo_.colonne);
    gruppo_.numeri.erase(inizio, inizio + static_cast<std::ptrdiff_t>(gruppo_.colonne));
    mostra_gruppo();
}

// ---- the saved groups ----

void Form_Gruppi2::salva() {
    if (!completo()) {
        di(tr("Inserimento gruppo non completato, impossibile salvare."));
        return;
    }
    pagine_->setCurrentWidget(pagina_gruppo_);
    riquadro_nome_->show();
    txtnome_->clear();
    txtnome_->setFocus();
    aggiorna_comandi();
}

void Form_Gruppi2::salva_con_nome() {
    const std::string nome = txtnome_->text().toStdString();
    // Without a name nothing happens.
    if (nome.empty()) return;
    if (const auto salvato = salva_gruppo(sessione().percorso_programma, nome, gruppo_); !salvato) {
        di(salvato.error());
        txtnome_->setFocus();
        return;
    }
    nome_->setText(tr("Nome Gruppo: %1").arg(txtnome_->text()));
    chiudi_nome();
}

void Form_Gruppi2::chiudi_nome() {
    riquadro_nome_->hide();
    aggiorna_comandi();
}

bool Form_Gruppi2::riempi_elenco() {
    const auto gruppi = elenca_gruppi(sessione().percorso_programma);
    auto tabella = std::make_shared<Tabella>();
    tabella->titoli = {{"Nome Gruppo", "Lunhge", "Numeri"}};
    ColonnaTesti nomi;
    ColonnaInteri quante;
    ColonnaInteri quanti;
    for (const VoceGruppo& g : gruppi.value_or(std::vector<VoceGruppo>{})) {
        nomi.valori.push_back(g.nome);
        quante.valori.push_back(g.lunghette);
        quanti.valori.push_back(g.numeri);
    }
    tabella->colonne = {std::move(nomi), std::move(quante), std::move(quanti)};
    salvati_->mostra(tabella);
    if (gruppi) return true;
    di(gruppi.error());
    return false;
}

void Form_Gruppi2::apri_elenco() {
    if (!riempi_elenco()) return;
    svuota();
    pagine_->setCurrentWidget(pagina_salvati_);
    salvati_->vista()->selectRow(0);
    salvati_->vista()->setFocus();
    aggiorna_comandi();
}

void Form_Gruppi2::chiudi_elenco() {
    pagine_->setCurrentWidget(pagina_gruppo_);
    aggiorna_comandi();
}

void Form_Gruppi2::apri_salvato() {
    const auto riga = salvati_->vuota() ? std::nullopt : salvati_->riga_scelta();
    if (!riga) return;
    const std::string nome = salvati_->modello()->tabella()->testo(*riga, 0);
    auto gruppo = apri_gruppo(sessione().percorso_programma, nome);
    if (!gruppo) {
        di(gruppo.error());
        return;
    }
    gruppo_ = std::move(*gruppo);
    {
        const QSignalBlocker a{lunghette_};
        const QSignalBlocker b{numeri_};
        lunghette_->setCurrentIndex(static_cast<int>(gruppo_.righe()) - 1);
        numeri_->setCurrentIndex(static_cast<int>(gruppo_.colonne) - 1);
    }
    dimensioni_cambiate();
    nome_->setText(tr("Nome Gruppo: %1").arg(testo_qt(nome)));
    chiudi_elenco();
}

void Form_Gruppi2::elimina_salvato() {
    const auto riga = salvati_->vuota() ? std::nullopt : salvati_->riga_scelta();
    if (!riga) return;
    if (const auto eliminato = elimina_gruppo(sessione().percorso_programma, *riga); !eliminato) {
        di(eliminato.error());
        return;
    }
    // The row goes; the others stay in sight, although their file is another one now.
    const Tabella& prima = *salvati_->modello()->tabella();
    auto dopo = std::make_shared<Tabella>(prima);
    auto& nomi = std::get<ColonnaTesti>(dopo->colonne[0]).valori;
    nomi.erase(nomi.begin() + static_cast<std::ptrdiff_t>(*riga));
    for (const std::size_t c : {1U, 2U}) {
        auto& valori = std::get<ColonnaInteri>(dopo->colonne[c]).valori;
        valori.erase(valori.begin() + static_cast<std::ptrdiff_t>(*riga));
    }
    salvati_->mostra(dopo);
}

// ---- question and answer ----

Parametri Form_Gruppi2::parametri() const {
    return ParametriGruppi{.lunghette = gruppo_, .sorte = std::max(sorte_->currentIndex(), 0) + 1};
}

void Form_Gruppi2::avvia() {
    if (in_nome()) {
        salva_con_nome();
        return;
    }
    if (pagine_->currentWidget() == pagina_salvati_) {
        apri_salvato();
        return;
    }
    if (!completo()) {
        di(testo_qt(kGruppoIncompleto));
        return;
    }
    // A decomposition on show is made anew of the new answer.
    const bool scomposta = pannello_->scomposta();
    const auto lunghetta = pannello_->lunghetta_scelta();
    FinestraRicerca::avvia();
    if (!scomposta || in_mostra() == nullptr || !lunghetta ||
        parametri().come<ParametriGruppi>().sorte > kSorteDettaglio)
        return;
    pannello_->lunghette()->vista()->selectRow(static_cast<int>(*lunghetta));
    scomponi();
}

void Form_Gruppi2::mostra(const EsitoRicerca& esito) {
    pannello_->mostra(esito.risultato);
    pannello_->imposta_scomponibile(esito.domanda.di<ParametriGruppi>().sorte <= kSorteDettaglio);
    pagine_->setCurrentIndex(1);
}

void Form_Gruppi2::svuota() {
    pannello_->svuota();
    if (pagine_->currentIndex() == 1) pagine_->setCurrentWidget(pagina_gruppo_);
    FinestraRicerca::svuota();
}

void Form_Gruppi2::scomponi() {
    const EsitoRicerca* esito = in_mostra();
    const auto riga = pannello_->lunghetta_scelta();
    if (esito == nullptr || !riga) return;
    Domanda d = esito->domanda;
    d.parametri.per<ParametriGruppi>().dettaglio = static_cast<int>(*riga) + 1;
    const EsitoRicerca dettaglio = corri(*ricerca(), std::move(d));
    if (!dettaglio.prodotto()) return;
    for (const Tabella& t : dettaglio.risultato->tabelle)
        if (t.nome == "dettaglio") pannello_->mostra_scomposta({dettaglio.risultato, &t});
}

std::vector<std::uint32_t> Form_Gruppi2::ordine_in_mostra() const {
    return pannello_->ritardi()->modello()->ordine();
}

void Form_Gruppi2::trova() {
    if (pagine_->currentIndex() == 1) pannello_->esiti()->apri_trova();
}

void Form_Gruppi2::aggiorna_comandi() {
    FinestraRicerca::aggiorna_comandi();
    const bool nome = in_nome();
    const bool elenco = pagine_->currentWidget() == pagina_salvati_;
    for (QPushButton* b : comandi_) b->setEnabled(!nome);
    cornice()->primario()->setEnabled(!nome && !elenco);
    for (QComboBox* c : {lunghette_, numeri_}) c->setEnabled(!nome && !elenco);
    torna_->setVisible(in_mostra() != nullptr);
    cornice()->cmd_chiudi()->setEnabled(!nome);
    if (!nome) return;
    cornice()->cmd_stampa()->setEnabled(false);
    cornice()->cmd_esporta()->setEnabled(false);
}

void Form_Gruppi2::keyPressEvent(QKeyEvent* evento) {
    // Esc leaves what is open inside the window first.
    if (evento->key() == Qt::Key_Escape && in_nome())
        chiudi_nome();
    else if (evento->key() == Qt::Key_Escape && pagine_->currentWidget() == pagina_salvati_)
        chiudi_elenco();
    else
        FinestraRicerca::keyPressEvent(evento);
}

void Form_Gruppi2::di(const QString& testo) {
    messaggi().informa(this, kTitoloMessaggi, testo);
}

void Form_Gruppi2::di(const Messaggio& messaggio) {
    if (messaggio.avviso == Avviso::nome_in_uso)
        messaggi().informa(this, kTitoloNomeInUso, testo_qt(messaggio.testo));
    else
        di(testo_qt(messaggio.testo));
}

}  // namespace sortimetra
