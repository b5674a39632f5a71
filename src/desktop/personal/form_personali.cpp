#include "personal/form_personali.h"

#include "catalogue/nomi.h"
#include "personal/frm_numeri_personali.h"
#include "personal/numeri_personali.h"
#include "personal/parametri.h"
#include "personal/scelta_numeri.h"
#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"
#include "statistics/form_stat.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>
#include <cstddef>

namespace sortimetra {

namespace {

/// A decomposition's button: what it is called in the title, and between how many numbers it is offered. The
/// larger ones are withdrawn where nobody could read them any more.
struct SorteScomposta {
    const char* nome;
    const char* relativa;
    std::size_t da;
    std::size_t a;
};
constexpr std::array<SorteScomposta, 5> kScomposizioni{{{"Ambata", "all'ambata", 1, 90},
                                                        {"Ambo", "all'ambo", 2, 90},
                                                        {"Terno", "al terno", 3, 50},
                                                        {"Quaterna", "alla quaterna", 4, 40},
                                                        {"Cinquina", "alla cinquina", 5, 25}}};

std::size_t combinazioni(std::size_t n, std::size_t k) {
    std::size_t quante = 1;
    for (std::size_t i = 1; i <= k; ++i) quante = quante * (n - k + i) / i;
    return quante;
}

std::shared_ptr<const Tabella> tabella(const std::shared_ptr<const Risultato>& risultato,
                                       std::string_view nome) {
    for (const Tabella& t : risultato->tabelle)
        if (t.nome == nome) return {risultato, &t};
    return nullptr;
}

/// Titles for the screen: one that stands over several columns becomes a row of its own above their places.
std::vector<std::vector<std::string>> titoli_a_schermo(const std::vector<std::string>& titoli) {
    std::vector<std::string> sopra(titoli.size(), " ");
    std::vector<std::string> sotto = titoli;
    for (std::size_t c = 0; c < titoli.size();) {
        std::size_t fine = c + 1;
        while (fine < titoli.size() && titoli[fine] == titoli[c]) ++fine;
        if (fine > c + 1) {
            sopra[c] = titoli[c];
            for (std::size_t i = c; i < fine; ++i) {
                if (i > c) sopra[i].clear();
                sotto[i] = std::to_string(i - c + 1) + "°";
            }
        }
        c = fine;
    }
    return {sopra, sotto};
}

/// A grid with a small heading over it.
QWidget* con_titolo(const QString& titolo, GrigliaRisultati* griglia) {
    auto* insieme = new QWidget;
    auto* colonna = new QVBoxLayout{insieme};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(kPasso);
    auto* scritta = new QLabel{titolo};
    assegna_ruolo(scritta, "sezione");
    colonna->addWidget(scritta);
    colonna->addWidget(griglia, 1);
    return insieme;
}

GrigliaRisultati* nuova_griglia(const QString& nome, const QString& per_chi_ascolta) {
    auto* griglia = new GrigliaRisultati;
    griglia->vista()->setObjectName(nome);
    griglia->vista()->setAccessibleName(per_chi_ascolta);
    return griglia;
}

}  // namespace

Form_Personali::Form_Personali(Sessione& sessione, QWidget* padre)
    : FinestraRicerca{sessione, QStringLiteral("Form_Personali"), padre},
      scelta_{new SceltaNumeri},
      lblnumeri_{new QLabel},
      solo_lotto_{new QWidget},
      estratto_{new QComboBox},
      chiusura_{new QCheckBox{tr("FINO A CHIUSURA SERIE")}},
      riga_scomposizione_{new QWidget},
      griglia_{nuova_griglia(QStringLiteral("MSHFlexGrid2"), tr("Estrazioni con i numeri scelti"))},
      numeri_{nuova_griglia(QStringLiteral("GrigliaNumeri"), tr("Misure di ogni numero"))},
      riepilogo_{nuova_griglia(QStringLiteral("MSHFlexGrid3"), tr("Riepilogo"))} {
    incornicia(CorniceRicerca::Domande::con_parametri);
    // The names that these commands have on this screen.
    cornice()->primario()->setObjectName(QStringLiteral("cmdRicerca"));
    cornice()->primario()->setText(tr("&Avvia Ricerca"));
    cornice()->cmd_stampa()->setObjectName(QStringLiteral("Command1"));
    componi_domande();
    componi_risposta();
}

Form_Personali::~Form_Personali() = default;

void Form_Personali::componi_domande() {
    lblnumeri_->setObjectName(QStringLiteral("lblnumeri"));
    assegna_ruolo(lblnumeri_, "sezione");
    auto* annulla = new QPushButton{tr("Annulla &Selezione")};
    annulla->setObjectName(QStringLiteral("Cmdannulla"));
    connect(annulla, &QPushButton::clicked, this, &Form_Personali::annulla_ricerche);
    connect(scelta_, &SceltaNumeri::cambiati, this, &Form_Personali::selezione_cambiata);

    estratto_->setObjectName(QStringLiteral("cmbEstratto"));
    estratto_->addItem(tr("Tutti"));
    for (int i = 1; i <= kEstratti; ++i) estratto_->addItem(tr("%1° Estratto").arg(i));
    connect(estratto_, &QComboBox::currentIndexChanged, this, [this] { svuota(); });
    chiusura_->setObjectName(QStringLiteral("Check1"));
    chiusura_->setAccessibleName(chiusura_->text());
    connect(chiusura_, &QCheckBox::toggled, this, [this] { svuota(); });
    auto* lotto = new QVBoxLayout{solo_lotto_};
    lotto->setContentsMargins(0, 0, 0, 0);
    lotto->setSpacing(kPasso);
    lotto->addWidget(nuova_sezione(tr("ESTRATTO"), estratto_));
    lotto->addWidget(estratto_);
    lotto->addWidget(chiusura_);

    auto* extra = cornice()->colonna_extra();
    auto* testata = new QHBoxLayout;
    testata->addWidget(lblnumeri_, 1);
    testata->addWidget(annulla);
    extra->addLayout(testata);
    extra->addWidget(scelta_);
    extra->addWidget(solo_lotto_);
}

void Form_Personali::componi_risposta() {
    griglia_->imposta_frase_vuota(
        tr("Segna i tuoi numeri a sinistra, poi premi «Avvia Ricerca»\n(oppure Invio, o F5)."));
    for (GrigliaRisultati* g : {griglia_, numeri_, riepilogo_}) {
        connect(g, &GrigliaRisultati::esporta_richiesta, this, &Form_Personali::esporta);
        connect(g, &GrigliaRisultati::stampa_richiesta, this, &Form_Personali::stampa);
    }
    numeri_->imposta_frase_vuota({});
    riepilogo_->imposta_frase_vuota({});
    // All four columns of a number in sight.
    numeri_->setMinimumWidth(98 * kPasso);
    auto* sotto = new QSplitter{Qt::Horizontal};
    sotto->addWidget(con_titolo(tr("Ogni numero"), numeri_));
    sotto->addWidget(con_titolo(tr("Riepilogo"), riepilogo_));
    sotto->setStretchFactor(0, 2);
    sotto->setStretchFactor(1, 3);
    auto* tutto = new QSplitter{Qt::Vertical};
    tutto->addWidget(con_titolo(tr("Estrazioni"), griglia_));
    tutto->addWidget(sotto);
    tutto->setStretchFactor(0, 3);
    tutto->setStretchFactor(1, 2);
    tutto->setChildrenCollapsible(false);
    sotto->setChildrenCollapsible(false);
    // A splitter puts what it is given behind what it has; Tab and screen readers follow the order of
    // reading.
    for (QSplitter* s : {sotto, tutto})
        for (int i = 0; i < s->count(); ++i) s->widget(i)->raise();
    cornice()->risposta()->addWidget(tutto);

    auto* riga = new QHBoxLayout{riga_scomposizione_};
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(2 * kPasso);
    riga->addWidget(new QLabel{tr("Scomposizione")});
    for (std::size_t i = 0; i < scomposizioni_.size(); ++i) {
        auto* b = new QPushButton{QString::fromUtf8(kScomposizioni[i].nome)};
        b->setObjectName(QStringLiteral("CmdScomposizione_%1").arg(i));
        b->setAccessibleName(tr("Scomposizione in %1").arg(b->text()));
        connect(b, &QPushButton::clicked, this, [this, i] { scomponi(static_cast<int>(i) + 1); });
        riga->addWidget(b);
        scomposizioni_[i] = b;
    }
    riga->addStretch(1);
    cornice()->risposta()->addWidget(riga_scomposizione_);
}

void Form_Personali::imposta_stampa(const std::function<void(const LavoroStampa&)>& stampa) {
    stampa_ = stampa;
    FinestraRicerca::imposta_stampa(stampa);
}

void Form_Personali::prepara() {
    const bool lotto = ricerca()->gioco == Gioco::lotto;
    const TitoliPersonali titoli = titoli_personali(ricerca()->gioco);
    griglia_->inizializza(titoli_a_schermo(titoli.risultati));
    numeri_->inizializza({titoli.numeri});
    riepilogo_->inizializza({titoli.riepilogo});
    solo_lotto_->setVisible(lotto);
    riga_scomposizione_->setVisible(lotto);
    estratto_->setCurrentIndex(0);
    chiusura_->setChecked(false);
    scelta_->disponi(ricerca()->gioco == Gioco::win_for_life ? kNumeriWinForLife : kNumeri);
    annulla_ricerche();
}

void Form_Personali::annulla_ricerche() {
    scelta_->svuota();
}

void Form_Personali::selezione_cambiata() {
    const std::size_t quanti = scelta_->numeri().size();
    lblnumeri_->setText(tr("Numeri Selezionati: %1").arg(quanti));
    for (std::size_t i = 0; i < scomposizioni_.size(); ++i)
        scomposizioni_[i]->setEnabled(quanti >= kScomposizioni[i].da && quanti <= kScomposizioni[i].a);
    svuota();
}

Parametri Form_Personali::parametri() const {
    ParametriPersonali p{.numeri = scelta_->numeri()};
    if (ricerca()->gioco == Gioco::lotto) {
        p.estratto = estratto_->currentIndex();
        p.chiusura = chiusura_->isChecked();
    }
    return p;
}

void Form_Personali::imposta(const Domanda& domanda) {
    const auto& p = domanda.di<ParametriPersonali>();
    scelta_->imposta(p.numeri);
    if (ricerca()->gioco == Gioco::lotto) {
        estratto_->setCurrentIndex(p.estratto);
        chiusura_->setChecked(p.chiusura);
    }
    FinestraRicerca::imposta(domanda);
}

void Form_Personali::mostra(const EsitoRicerca& esito) {
    auto uscite = std::make_shared<Tabella>(*tabella(esito.risultato, "risultati"));
    uscite->titoli = titoli_a_schermo(uscite->titoli[0]);
    griglia_->mostra(std::move(uscite));
    numeri_->mostra(tabella(esito.risultato, "numeri"));
    riepilogo_->mostra(tabella(esito.risultato, "riepilogo"));
    if (tabella(esito.risultato, "serie") == nullptr) return;
    if (serie_ == nullptr) {
        serie_ = new frmNumeriPersonali{this};
        connect(serie_, &frmNumeriPersonali::stampa_richiesta, this, [this](const LavoroStampa& lavoro) {
            if (stampa_) stampa_(lavoro);
        });
    }
    serie_->mostra(esito);
}

void Form_Personali::svuota() {
    for (GrigliaRisultati* g : {griglia_, numeri_, riepilogo_}) g->svuota();
    if (serie_ != nullptr) serie_->close();
    FinestraRicerca::svuota();
}

std::vector<std::uint32_t> Form_Personali::ordine_in_mostra() const {
    return griglia_->modello()->ordine();
}

void Form_Personali::trova() {
    griglia_->apri_trova();
}

void Form_Personali::aggiorna_comandi() {
    FinestraRicerca::aggiorna_comandi();
    for (GrigliaRisultati* g : {griglia_, numeri_, riepilogo_}) g->imposta_stampabile(stampabile());
}

void Form_Personali::scomponi(int sorte) {
    const Ricerca* riga = trova_ricerca(nomi::kScomposizione.chiave);
    if (in_corsa() || riga == nullptr) return;
    area()->riporta_tratto();
    const std::vector<int> scelti = scelta_->numeri();
    const SorteScomposta& s = kScomposizioni[static_cast<std::size_t>(sorte) - 1];
    if (!scomposizione_) scomposizione_ = std::make_unique<Form_stat>(sessione());
    scomposizione_->imposta_stampa(stampa_);
    scomposizione_->imposta_serie(scelti, sorte);
    scomposizione_->apri(*riga, *archivio(), this);
    scomposizione_->area()->imposta_ambito(area()->ambito());
    scomposizione_->intitola(
        tr("Scomposizione Gruppo relativi %1 (%2 numeri = %3 %4)")
            .arg(QString::fromUtf8(s.relativa))
            .arg(scelti.size())
            .arg(testo_qt(std::to_string(combinazioni(scelti.size(), static_cast<std::size_t>(sorte)))))
            .arg(QString::fromUtf8(s.nome).toLower()));
    hide();
    scomposizione_->show();
}

}  // namespace sortimetra
