#include "stores/form_aggiorna.h"

#include "draws/calendario.h"
#include "files/indirizzi.h"
#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/giro_di_tab.h"
#include "screens/griglia_risultati.h"
#include "screens/manuale.h"
#include "screens/messaggi.h"
#include "screens/pannello_avanzamento.h"
#include "screens/posto_finestra.h"
#include "screens/tema.h"
#include "stores/form_estrazione.h"
#include "stores/importa.h"
#include "text/testi.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QUrl>
#include <QVBoxLayout>
#include <span>
#include <tuple>
#include <utility>

namespace sortimetra {

namespace {

constexpr int kLarghezzaDomanda = 70 * kPasso;

QString nome_gioco(Gioco gioco) {
    switch (gioco) {
        case Gioco::superenalotto:
            return QStringLiteral("SuperEnalotto");
        case Gioco::win_for_life:
            return QStringLiteral("Win for Life");
        default:
            return QStringLiteral("Lotto");
    }
}

QString quante(std::size_t n, const QString& una, const QString& molte) {
    return QStringLiteral("%1 %2").arg(testo_qt(migliaia(static_cast<std::int64_t>(n))),
                                       n == 1 ? una : molte);
}

/// A button of a road that draws come by.
QPushButton* via(const char* nome, const QString& scritta, const QString& aiuto) {
    auto* b = new QPushButton{scritta};
    b->setObjectName(QString::fromLatin1(nome));
    b->setToolTip(aiuto);
    return b;
}

/// The archive before the last change is kept, or that there was none.
bool c_e_un_prima(const std::filesystem::path& archivio) {
    std::error_code errore;
    return std::filesystem::exists(archivio / "drawit.db.prec", errore) ||
           std::filesystem::exists(archivio / "drawit2.db.prec", errore);
}

/// Rows of the table, filled one by one.
class Righe {
  public:
    void riga(Gioco gioco, const EstrazioneDetta& e, std::string che_cosa) {
        giochi_.valori.push_back(nome_gioco(gioco).toStdString());
        concorsi_.valori.push_back(e.concorso == 0 ? kCellaVuota : e.concorso);
        std::string quando = testo_data(e.data);
        if (!e.ora.empty()) quando += " ore " + e.ora;
        date_.valori.push_back(std::move(quando));
        cose_.valori.push_back(std::move(che_cosa));
    }
    [[nodiscard]] Tabella tabella() && {
        Tabella t;
        t.titoli = {{"Gioco", "Concorso", "Data", "Che cosa"}};
        t.colonne.emplace_back(std::move(giochi_));
        t.colonne.emplace_back(std::move(concorsi_));
        t.colonne.emplace_back(std::move(date_));
        t.colonne.emplace_back(std::move(cose_));
        return t;
    }

  private:
    ColonnaTesti giochi_;
    ColonnaInteri concorsi_;
    ColonnaTesti date_;
    ColonnaTesti cose_;
};

std::string testo_diversa(const EstrazioneDiversa& d, bool sostituisce) {
    return (d.ruota.empty() ? std::string{} : d.ruota + ": ") + "in archivio " + d.in_archivio +
           ", arrivata " + d.arrivata + (sostituisce ? "; si sostituisce" : "; resta com'è");
}

}  // namespace

Tabella tabella_proposta(const Proposta& proposta) {
    const bool sostituisce = proposta.modo.differenze == Differenze::sostituisci;
    Righe righe;
    for (const PropostaGioco& g : proposta.giochi) {
        for (const auto& d : g.diverse) righe.riga(g.gioco, d.estrazione, testo_diversa(d, sostituisce));
        for (const auto& e : g.fuori_posto)
            righe.riga(g.gioco, e, "manca in mezzo all'archivio: entra soltanto sostituendo");
        for (const auto& e : g.in_attesa) righe.riga(g.gioco, e, "aspetta il Lotto di quel giorno");
        for (const auto& l : g.lacune)
            righe.riga(g.gioco, l.dopo,
                       "dopo questa ne mancano circa " + migliaia(l.circa) + ", fino al " +
                           testo_data(l.prima.data));
        // The newest first: they are what one looks for.
        for (auto it = g.nuove.rbegin(); it != g.nuove.rend(); ++it) righe.riga(g.gioco, *it, "nuova");
    }
    return std::move(righe).tabella();
}

Form_Aggiorna::Form_Aggiorna(Sessione& sessione, QWidget* padre)
    : QWidget{padre, Qt::Window}, sessione_{sessione}, pannello_{new PannelloAvanzamento{this}} {
    setObjectName(QStringLiteral("Form_Aggiorna"));
    assegna_capitolo(this, "aggiornare-larchivio");
    setWindowTitle(tr("Aggiorna archivio"));
    chiedi_file = [this] {
        return QFileDialog::getOpenFileNames(this, tr("Scegli i file delle estrazioni"), {},
                                             tr("Estrazioni (*.txt *.csv *.zip *.gz);;Tutti i file (*)"));
    };
    scarica = [](const std::string& indirizzo, Avanzamento& avanzamento) {
        return scarica_arrivo(indirizzo, avanzamento);
    };

    auto* corpo = new QHBoxLayout;
    corpo->setSpacing(4 * kPasso);
    corpo->addWidget(componi_domanda());
    corpo->addWidget(componi_risposta(), 1);
    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(4 * kPasso, 4 * kPasso, 4 * kPasso, 4 * kPasso);
    colonna->setSpacing(3 * kPasso);
    colonna->addLayout(corpo, 1);
    colonna->addWidget(componi_piede());
    pannello_->imposta_annullabile(true);
    pannello_->imposta_annulla(tr("Annulla"));
    pannello_->hide();
    connect(new QShortcut{QKeySequence::Open, this}, &QShortcut::activated, this,
            &Form_Aggiorna::scegli_file);
    leggi_posto(*this, sessione_, {245 * kPasso, 150 * kPasso});
    svuota();
}

Form_Aggiorna::~Form_Aggiorna() = default;

QWidget* Form_Aggiorna::componi_domanda() {
    auto* colonna = new QWidget;
    colonna->setFixedWidth(kLarghezzaDomanda);
    auto* piano = new QVBoxLayout{colonna};
    piano->setContentsMargins(0, 0, 0, 0);
    piano->setSpacing(2 * kPasso);
    const auto sezione = [&](const QString& testo) {
        auto* l = new QLabel{testo};
        assegna_ruolo(l, "sezione");
        piano->addWidget(l);
        return l;
    };
    sezione(tr("In archivio"));
    ultime_ = new QLabel;
    ultime_->setObjectName(QStringLiteral("lblUltime"));
    ultime_->setWordWrap(true);
    piano->addWidget(ultime_);
    piano->addSpacing(2 * kPasso);

    sezione(tr("Da dove arrivano le estrazioni"));
    auto* file = via("cmdFile", tr("Da &file…"),
                     tr("Uno o più file, interi o con le sole ultime righe, anche gzip o zip (Ctrl+O)"));
    auto* incolla = via("cmdIncolla", tr("Dagli a&ppunti"), tr("Il testo o i file copiati altrove (Ctrl+V)"));
    auto* mano = via("cmdMano", tr("A &mano…"), tr("Scrivi l'ultima estrazione numero per numero"));
    connect(file, &QPushButton::clicked, this, &Form_Aggiorna::scegli_file);
    connect(incolla, &QPushButton::clicked, this, &Form_Aggiorna::incolla);
    connect(mano, &QPushButton::clicked, this, &Form_Aggiorna::scrivi_a_mano);
    for (QPushButton* b : {file, incolla, mano}) piano->addWidget(b);
    piano->addSpacing(2 * kPasso);

    QLabel* scritta = sezione(tr("Indirizzi, uno per riga"));
    indirizzi_ = new QPlainTextEdit;
    indirizzi_->setObjectName(QStringLiteral("txtIndirizzi"));
    indirizzi_->setAccessibleName(tr("Indirizzi dei file pubblicati, uno per riga"));
    indirizzi_->setPlaceholderText(tr("https://…"));
    indirizzi_->setLineWrapMode(QPlainTextEdit::NoWrap);
    indirizzi_->setTabChangesFocus(true);
    indirizzi_->setFixedHeight(20 * kPasso);
    scritta->setBuddy(indirizzi_);
    piano->addWidget(indirizzi_);
    scarica_ = via("cmdScarica", tr("&Scarica"), tr("Prende i file da questi indirizzi, soltanto per HTTPS"));
    connect(scarica_, &QPushButton::clicked, this, &Form_Aggiorna::scarica_indirizzi);
    connect(indirizzi_, &QPlainTextEdit::textChanged, this,
            [this] { scarica_->setEnabled(!indirizzi_->toPlainText().trimmed().isEmpty()); });
    piano->addWidget(scarica_);
    piano->addStretch(1);
    annulla_ = via("cmdAnnullaUltimo", tr("Annulla l'&ultimo aggiornamento"),
                   tr("Rimette l'archivio com'era prima; una seconda volta lo rifà"));
    connect(annulla_, &QPushButton::clicked, this, &Form_Aggiorna::annulla_ultimo);
    piano->addWidget(annulla_);
    giro_di_tab({file, incolla, mano, indirizzi_, scarica_, annulla_});
    return colonna;
}

QWidget* Form_Aggiorna::componi_risposta() {
    auto* risposta = new QWidget;
    auto* piano = new QVBoxLayout{risposta};
    piano->setContentsMargins(0, 0, 0, 0);
    piano->setSpacing(2 * kPasso);
    trovato_ = new QLabel;
    trovato_->setObjectName(QStringLiteral("lblTrovato"));
    trovato_->setWordWrap(true);
    assegna_ruolo(trovato_, "titolo");
    racconto_ = new QLabel;
    racconto_->setObjectName(QStringLiteral("lblRacconto"));
    racconto_->setWordWrap(true);
    racconto_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    assegna_ruolo(racconto_, "quieto");
    griglia_ = new GrigliaRisultati;
    griglia_->imposta_frase_vuota(
        tr("Scegli un file, incolla il testo, oppure trascina qui i file delle estrazioni.\n"
           "Prima di scrivere vedrai che cosa è nuovo."));
    sostituisci_ = new QCheckBox{tr("Sostituisci anche le estrazioni diverse")};
    sostituisci_->setObjectName(QStringLiteral("CheckSostituisci"));
    connect(sostituisci_, &QCheckBox::toggled, this, [this] {
        if (arrivate_) esamina(Arrivate{*arrivate_});
    });
    piano->addWidget(trovato_);
    piano->addWidget(racconto_);
    piano->addWidget(griglia_, 1);
    piano->addWidget(sostituisci_);
    return risposta;
}

QWidget* Form_Aggiorna::componi_piede() {
    stato_ = new QLabel;
    stato_->setObjectName(QStringLiteral("lblStato"));
    stato_->setWordWrap(true);
    applica_ = new QPushButton;
    applica_->setObjectName(QStringLiteral("cmdApplica"));
    assegna_ruolo(applica_, "primario");
    connect(applica_, &QPushButton::clicked, this, &Form_Aggiorna::applica_proposta);
    auto* chiudi = new QPushButton{icona(QStringLiteral("chiudi")), tr("&Chiudi")};
    chiudi->setObjectName(QStringLiteral("cmdChiudi"));
    connect(chiudi, &QPushButton::clicked, this, &QWidget::close);
    auto* piede = new QWidget;
    auto* piano = new QHBoxLayout{piede};
    piano->setContentsMargins(0, 0, 0, 0);
    piano->setSpacing(2 * kPasso);
    piano->addWidget(stato_, 1);
    piano->addWidget(applica_);
    piano->addWidget(chiudi);
    return piede;
}

void Form_Aggiorna::prepara(const ArchivioEstrazioni* archivio, Data oggi) {
    usa_archivio(archivio, oggi);
    svuota();
    di_stato({}, "quieto");
    QStringList testi;
    for (const std::string& t : leggi_indirizzi()) testi.push_back(testo_qt(t));
    indirizzi_->setPlainText(testi.join(QLatin1Char{'\n'}));
    scarica_->setEnabled(!testi.isEmpty());
}

void Form_Aggiorna::usa_archivio(const ArchivioEstrazioni* archivio, Data oggi) {
    archivio_ = archivio;
    oggi_ = oggi;
    QStringList righe;
    const auto detta = [&](const QString& gioco, std::span<const Data> date, Concorso concorso) {
        if (!date.empty())
            righe.push_back(
                tr("%1: concorso %2 del %3").arg(gioco).arg(concorso).arg(testo_qt(testo_data(date.back()))));
    };
    if (archivio != nullptr) {
        detta(nome_gioco(Gioco::lotto), archivio->lotto().data, archivio->ultimo_concorso());
        const auto& s = archivio->superenalotto();
        detta(nome_gioco(Gioco::superenalotto), s.data, s.concorso.empty() ? 0 : s.concorso.back());
        detta(nome_gioco(Gioco::win_for_life), archivio->winforlife().data,
              archivio->ultimo_concorso_winforlife());
    }
    ultime_->setText(righe.isEmpty() ? tr("Nessuna estrazione.") : righe.join(QLatin1Char{'\n'}));
    annulla_->setEnabled(c_e_un_prima(cartella()));
}

void Form_Aggiorna::svuota() {
    arrivate_.reset();
    proposta_.reset();
    trovato_->setText(tr("Nuove estrazioni"));
    racconto_->clear();
    racconto_->hide();
    sostituisci_->setChecked(false);
    sostituisci_->hide();
    griglia_->inizializza({{"Gioco", "Concorso", "Data", "Che cosa"}});
    applica_->setText(tr("&Aggiungi"));
    applica_->setEnabled(false);
}

// ---- what comes ----

void Form_Aggiorna::scegli_file() {
    accogli_file(chiedi_file());
}

void Form_Aggiorna::incolla() {
    accogli(*QApplication::clipboard()->mimeData());
}

void Form_Aggiorna::accogli(const QMimeData& portato) {
    QStringList file;
    for (const QUrl& url : portato.urls())
        if (url.isLocalFile()) file.push_back(url.toLocalFile());
    if (!file.isEmpty()) {
        accogli_file(file);
        return;
    }
    if (portato.hasText() && !portato.text().trimmed().isEmpty()) {
        accogli_arrivi({{.nome = tr("appunti").toStdString(), .byte = portato.text().toStdString()}});
        return;
    }
    di_errore(tr("Negli appunti non c'è un testo di estrazioni né un file."));
}

void Form_Aggiorna::accogli_file(const QStringList& file) {
    if (file.isEmpty()) return;
    std::vector<Arrivo> arrivi;
    for (const QString& f : file) {
        auto letto = leggi_arrivo(std::filesystem::path{f.toStdU16String()});
        if (!letto) {
            di_errore(testo_qt(letto.error().testo()));
            return;
        }
        arrivi.push_back(std::move(*letto));
    }
    accogli_arrivi(arrivi);
}

void Form_Aggiorna::accogli_arrivi(const std::vector<Arrivo>& arrivi) {
    svuota();
    std::expected<Arrivate, ErroreArchivio> lette = std::unexpected{ErroreArchivio{}};
    {
        CorsaRicerca corsa{this, pannello_, griglia_};
        lette = leggi_arrivi(arrivi, corsa);
    }
    if (!lette) {
        di_errore(testo_qt(lette.error().testo()));
        return;
    }
    esamina(*lette);
}

std::vector<std::string> Form_Aggiorna::indirizzi_scritti() const {
    std::vector<std::string> indirizzi;
    for (const QString& riga : indirizzi_->toPlainText().split(QLatin1Char{'\n'}))
        if (!riga.trimmed().isEmpty()) indirizzi.push_back(riga.trimmed().toStdString());
    return indirizzi;
}

void Form_Aggiorna::scarica_indirizzi() {
    const std::vector<std::string> indirizzi = indirizzi_scritti();
    if (const auto scritti = scrivi_indirizzi(indirizzi); !scritti) {
        di_errore(testo_qt(scritti.error().testo()));
        return;
    }
    std::vector<Arrivo> arrivi;
    for (const std::string& indirizzo : indirizzi) {
        di_stato(tr("Scarico %1 …").arg(testo_qt(indirizzo)), "quieto");
        CorsaRicerca corsa{this, pannello_, griglia_};
        auto arrivo = scarica(indirizzo, corsa);
        if (!arrivo) {
            di_errore(testo_qt(arrivo.error().testo()));
            return;
        }
        arrivi.push_back(std::move(*arrivo));
    }
    accogli_arrivi(arrivi);
}

void Form_Aggiorna::scrivi_a_mano() {
    if (a_mano_ == nullptr) {
        a_mano_ = std::make_unique<Form_Estrazione>(sessione_);
        connect(a_mano_.get(), &Form_Estrazione::scritta, this, [this](const Arrivate& arrivate) {
            svuota();
            esamina(arrivate);
            raise();
            activateWindow();
            if (applica_->isEnabled()) applica_->setFocus();
        });
    }
    a_mano_->prepara(archivio_, oggi_);
    a_mano_->show();
    a_mano_->raise();
    a_mano_->activateWindow();
}

// ---- what is found ----

void Form_Aggiorna::esamina(const Arrivate& arrivate) {
    const ModoAggiorna modo{
        .oggi = oggi_,
        .differenze = sostituisci_->isChecked() ? Differenze::sostituisci : Differenze::elenca};
    std::expected<Proposta, ErroreArchivio> proposta = std::unexpected{ErroreArchivio{}};
    {
        CorsaRicerca corsa{this, pannello_, griglia_};
        proposta = proponi(cartella(), arrivate, modo, corsa);
    }
    if (!proposta) {
        di_errore(testo_qt(proposta.error().testo()));
        return;
    }
    arrivate_ = arrivate;
    proposta_ = std::move(*proposta);
    mostra_proposta();
}

void Form_Aggiorna::mostra_proposta() {
    std::size_t nuove = 0;
    std::size_t diverse = 0;
    for (const PropostaGioco& g : proposta_->giochi) {
        nuove += g.nuove.size();
        diverse += g.diverse.size() + g.fuori_posto.size();
    }
    const bool niente = proposta_->niente_di_nuovo();
    trovato_->setText(niente ? tr("Niente di nuovo")
                             : quante(nuove, tr("estrazione nuova"), tr("estrazioni nuove")));
    QStringList righe;
    for (const std::string& r : racconta(*proposta_)) righe.push_back(testo_qt(r));
    constexpr qsizetype kRigheMassime = 6;
    if (righe.size() > kRigheMassime) righe = righe.mid(0, kRigheMassime) << QStringLiteral("…");
    racconto_->setText(righe.join(QLatin1Char{'\n'}));
    racconto_->setVisible(!righe.isEmpty());
    griglia_->mostra(std::make_shared<const Tabella>(tabella_proposta(*proposta_)));
    sostituisci_->setVisible(diverse > 0 || sostituisci_->isChecked());
    applica_->setText(niente      ? tr("&Aggiungi")
                      : nuove > 0 ? tr("&Aggiungi %1").arg(quante(nuove, tr("estrazione"), tr("estrazioni")))
                                  : tr("&Sostituisci"));
    applica_->setEnabled(!niente);
    di_stato(niente ? tr("L'archivio ha già tutto quello che è arrivato.") : tr("Niente è ancora scritto."),
             "quieto");
}

void Form_Aggiorna::applica_proposta() {
    if (!proposta_ || proposta_->niente_di_nuovo()) return;
    std::expected<void, ErroreArchivio> fatto;
    {
        CorsaRicerca corsa{this, pannello_, griglia_};
        fatto = applica(cartella(), *proposta_, corsa);
    }
    if (!fatto) {
        di_errore(testo_qt(fatto.error().testo()));
        return;
    }
    const QString quanto = trovato_->text();
    svuota();
    trovato_->setText(tr("Fatto: %1").arg(quanto));
    di_stato(tr("L'archivio è aggiornato."), "quieto");
    emit archivio_cambiato();
}

void Form_Aggiorna::annulla_ultimo() {
    if (!messaggi().chiede(this, kTitoloMessaggi,
                           tr("Rimettere l'archivio com'era prima dell'ultimo aggiornamento?")))
        return;
    SenzaAvanzamento subito;
    const auto fatto = annulla_importazione(cartella(), subito);
    if (!fatto) {
        di_errore(testo_qt(fatto.error().testo()));
        return;
    }
    svuota();
    emit archivio_cambiato();
    di_stato(tr("L'archivio è di nuovo com'era prima dell'ultimo aggiornamento."), "quieto");
}

// ---- what is said ----

void Form_Aggiorna::di_errore(const QString& testo) {
    di_stato(testo, "avviso");
    applica_->setEnabled(proposta_ && !proposta_->niente_di_nuovo());
}

void Form_Aggiorna::di_stato(const QString& testo, const char* ruolo) {
    assegna_ruolo(stato_, ruolo);
    stato_->setText(testo);
}

void Form_Aggiorna::keyPressEvent(QKeyEvent* evento) {
    if (evento->matches(QKeySequence::Paste))
        incolla();
    else if (evento->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(evento);
}

void Form_Aggiorna::closeEvent(QCloseEvent* evento) {
    scrivi_posto(*this, sessione_);
    // What was written or taken away without a download is kept as well; what is no address is not.
    if (const auto scritti = indirizzi_scritti(); scritti != leggi_indirizzi())
        std::ignore = scrivi_indirizzi(scritti);
    if (a_mano_ != nullptr) a_mano_->close();
    QWidget::closeEvent(evento);
}

}  // namespace sortimetra
