#include "stores/form_estrazione.h"

#include "draws/calendario.h"
#include "draws/ruote.h"
#include "qt_testi.h"
#include "screens/giro_di_tab.h"
#include "screens/manuale.h"
#include "screens/posto_finestra.h"
#include "screens/tema.h"
#include "stores/quadro_estrazione.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <utility>

namespace sortimetra {

namespace {

constexpr std::array kGiochi{Gioco::lotto, Gioco::superenalotto, Gioco::win_for_life};
constexpr std::size_t kWinForLife = 2;
constexpr int kPrimaOra = 7;
constexpr int kUltimaOra = 23;
constexpr int kMinutiOra = 60;

QDate in_qt(Data d) {
    const QDate inizio{1970, 1, 1};
    return inizio.addDays(d.time_since_epoch().count());
}

Data da_qt(QDate d) {
    return Data{std::chrono::days{QDate{1970, 1, 1}.daysTo(d)}};
}

/// The last draw of a game in an archive; the day before `oggi` where there is none.
Appuntamento ultima_di(Gioco gioco, const ArchivioEstrazioni* archivio, Data oggi) {
    Appuntamento ultima{.data = oggi - std::chrono::days{1}, .minuti = kUltimaOra * kMinutiOra};
    if (archivio == nullptr) return ultima;
    const auto& date = gioco == Gioco::lotto           ? archivio->lotto().data
                       : gioco == Gioco::superenalotto ? archivio->superenalotto().data
                                                       : archivio->winforlife().data;
    if (date.empty()) return ultima;
    ultima = {.data = date.back(), .minuti = 0};
    if (gioco == Gioco::win_for_life)
        ultima.minuti =
            testo_qt(archivio->winforlife().ora.back()).trimmed().section(QLatin1Char{':'}, 0, 0).toInt() *
            kMinutiOra;
    return ultima;
}

}  // namespace

Form_Estrazione::Form_Estrazione(Sessione& sessione, QWidget* padre)
    : QWidget{padre, Qt::Window}, sessione_{sessione} {
    setObjectName(QStringLiteral("Form_Estrazione"));
    assegna_capitolo(this, "aggiornare-larchivio");
    setWindowTitle(tr("Scrivi un'estrazione"));
    componi();
    leggi_posto(*this, sessione_, {140 * kPasso, 132 * kPasso});
    mostra_gioco(0);
}

void Form_Estrazione::componi() {
    giochi_ = new QTabBar;
    giochi_->setObjectName(QStringLiteral("TabGioco"));
    giochi_->setAccessibleName(tr("Gioco"));
    giochi_->setDrawBase(false);
    giochi_->setExpanding(false);
    giochi_->addTab(tr("Lotto"));
    giochi_->addTab(tr("SuperEnalotto"));
    giochi_->addTab(tr("Win for Life"));
    connect(giochi_, &QTabBar::currentChanged, this, &Form_Estrazione::mostra_gioco);
    QWidget* riga_data = componi_data();
    componi_quadri();

    stato_ = new QLabel;
    stato_->setObjectName(QStringLiteral("lblStato"));
    assegna_ruolo(stato_, "quieto");
    aggiungi_ = new QPushButton{tr("&Aggiungi…")};
    aggiungi_->setObjectName(QStringLiteral("cmdAggiungi"));
    aggiungi_->setToolTip(tr("Confronta con l'archivio e mostra che cosa cambia, prima di scrivere"));
    assegna_ruolo(aggiungi_, "primario");
    connect(aggiungi_, &QPushButton::clicked, this, &Form_Estrazione::aggiungi);
    auto* svuota = new QPushButton{tr("&Svuota")};
    svuota->setObjectName(QStringLiteral("cmdSvuota"));
    connect(svuota, &QPushButton::clicked, this, [this] {
        quadro()->svuota();
        quadro()->caselle().front()->setFocus();
    });
    auto* chiudi = new QPushButton{icona(QStringLiteral("chiudi")), tr("&Chiudi")};
    chiudi->setObjectName(QStringLiteral("cmdChiudi"));
    connect(chiudi, &QPushButton::clicked, this, &QWidget::close);

    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addWidget(stato_, 1);
    piede->addWidget(svuota);
    piede->addWidget(chiudi);
    piede->addWidget(aggiungi_);
    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(4 * kPasso, 3 * kPasso, 4 * kPasso, 4 * kPasso);
    colonna->setSpacing(2 * kPasso);
    colonna->addWidget(giochi_);
    colonna->addWidget(riga_data);
    colonna->addWidget(pagine_, 1);
    colonna->addLayout(piede);

    QList<QWidget*> giro{giochi_, data_, ora_};
    for (const QuadroEstrazione* q : quadri_)
        for (CasellaEstratto* c : q->caselle()) giro.push_back(c);
    giro += {svuota, chiudi, aggiungi_};
    giro_di_tab(giro);
}

QWidget* Form_Estrazione::componi_data() {
    data_ = new QDateEdit;
    data_->setObjectName(QStringLiteral("txtData"));
    data_->setAccessibleName(tr("Data dell'estrazione"));
    data_->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    data_->setCalendarPopup(true);
    auto* scritta = new QLabel{tr("Estrazione del")};
    scritta->setBuddy(data_);
    giorno_ = new QLabel;
    giorno_->setObjectName(QStringLiteral("lblGiorno"));
    assegna_ruolo(giorno_, "quieto");
    ora_ = new QComboBox;
    ora_->setObjectName(QStringLiteral("ComboOra"));
    ora_->setAccessibleName(tr("Ora dell'estrazione"));
    for (int o = kPrimaOra; o <= kUltimaOra; ++o)
        ora_->addItem(QStringLiteral("%1:00").arg(o), o * kMinutiOra);
    scritta_ora_ = new QLabel{tr("alle ore")};
    scritta_ora_->setBuddy(ora_);
    connect(data_, &QDateEdit::dateChanged, this, &Form_Estrazione::aggiorna);
    connect(ora_, &QComboBox::currentIndexChanged, this, &Form_Estrazione::aggiorna);
    auto* riga = new QWidget;
    auto* piano = new QHBoxLayout{riga};
    piano->setContentsMargins(0, 0, 0, 0);
    piano->setSpacing(2 * kPasso);
    for (QWidget* w : std::initializer_list<QWidget*>{scritta, data_, scritta_ora_, ora_, giorno_})
        piano->addWidget(w);
    piano->addStretch(1);
    return riga;
}

void Form_Estrazione::componi_quadri() {
    pagine_ = new QStackedWidget;
    auto* lotto = new QuadroEstrazione{QStringLiteral("txtLotto"), kNumeri};
    for (std::size_t r = 0; r < kNomiRuote.size(); ++r)
        if (static_cast<int>(r) != kTutte) lotto->aggiungi_riga(testo_qt(kNomiRuote[r].esteso), kEstratti);
    auto* sestina = new QuadroEstrazione{QStringLiteral("txtSuperEnalotto"), kNumeri};
    sestina->aggiungi_riga(tr("Sestina"), 6);
    sestina->aggiungi_casella(QStringLiteral("txtJolly"), tr("Jolly"), false);
    sestina->aggiungi_casella(QStringLiteral("txtSuperStar"), tr("SuperStar"), true);
    auto* decina = new QuadroEstrazione{QStringLiteral("txtWinForLife"), kNumeriWinForLife};
    decina->aggiungi_riga(tr("Numeri"), 10);
    quadri_ = {lotto, sestina, decina};
    for (QuadroEstrazione* q : quadri_) {
        auto* pagina = new QWidget;
        auto* piano = new QVBoxLayout{pagina};
        piano->setContentsMargins(0, kPasso, 0, kPasso);
        piano->addWidget(q);
        piano->addStretch(1);
        pagine_->addWidget(pagina);
        connect(q, &QuadroEstrazione::cambiato, this, &Form_Estrazione::aggiorna);
        connect(q, &QuadroEstrazione::finito, this, [this] { aggiungi_->setFocus(Qt::TabFocusReason); });
    }
}

void Form_Estrazione::prepara(const ArchivioEstrazioni* archivio, Data oggi) {
    oggi_ = oggi;
    for (std::size_t i = 0; i < kGiochi.size(); ++i) {
        const Appuntamento prossima = prossima_estrazione(kGiochi[i], ultima_di(kGiochi[i], archivio, oggi));
        // A draw to come cannot be typed in yet; who is early still starts from today.
        date_[i] = std::min(prossima.data, oggi);
        if (i == kWinForLife) minuti_ = prossima.minuti;
        quadri_[i]->svuota();
    }
    data_->setMaximumDate(in_qt(oggi));
    mostra_gioco(giochi_->currentIndex());
}

void Form_Estrazione::mostra_gioco(int quale) {
    const auto i = static_cast<std::size_t>(quale);
    pagine_->setCurrentIndex(quale);
    const bool a_ore = i == kWinForLife;
    scritta_ora_->setVisible(a_ore);
    ora_->setVisible(a_ore);
    if (date_[i] != Data{}) data_->setDate(in_qt(date_[i]));
    ora_->setCurrentIndex(std::max(ora_->findData(minuti_), 0));
    quadro()->caselle().front()->setFocus();
    aggiorna();
}

Gioco Form_Estrazione::gioco() const {
    return kGiochi[static_cast<std::size_t>(giochi_->currentIndex())];
}

Data Form_Estrazione::data_scritta() const {
    return da_qt(data_->date());
}

QuadroEstrazione* Form_Estrazione::quadro() const {
    return quadri_[static_cast<std::size_t>(giochi_->currentIndex())];
}

void Form_Estrazione::aggiorna() {
    if (aggiungi_ == nullptr) return;
    const Data giorno = data_scritta();
    const Appuntamento ieri{.data = giorno - std::chrono::days{1}, .minuti = kUltimaOra * kMinutiOra};
    const bool giorno_giusto = prossima_estrazione(gioco(), ieri).data == giorno;
    giorno_->setText(giorno_giusto ? QLocale{QLocale::Italian}.dayName(data_->date().dayOfWeek())
                                   : tr("%1: il calendario non prevede estrazioni")
                                         .arg(QLocale{QLocale::Italian}.dayName(data_->date().dayOfWeek())));
    assegna_ruolo(giorno_, giorno_giusto ? "quieto" : "avviso");
    const QString manca = quadro()->manca();
    const bool vuoto = quadro()->vuoto();
    stato_->setText(vuoto ? tr("Scrivi i numeri: si va avanti da soli. Una riga si può incollare.") : manca);
    assegna_ruolo(stato_, quadro()->errato() ? "avviso" : "quieto");
    aggiungi_->setEnabled(manca.isEmpty());
}

Arrivate Form_Estrazione::arrivate() const {
    Arrivate a;
    const Data giorno = data_scritta();
    const QuadroEstrazione& q = *quadro();
    TestoArrivato testo{.nome = tr("scritta a mano").toStdString(),
                        .gioco = gioco(),
                        .estrazioni = 1,
                        .prima = giorno,
                        .ultima = giorno};
    const auto copia = [](const std::vector<Numero>& da, auto& in) {
        std::copy_n(da.begin(), std::min(da.size(), in.size()), in.begin());
    };
    if (gioco() == Gioco::lotto) {
        std::size_t riga = 0;
        for (int r = 0; r <= kNazionale; ++r) {
            if (r == kTutte) continue;
            RigaLotto l{.data = giorno, .ruota = r};
            copia(q.numeri(riga++), l.numeri);
            a.righe.lotto.push_back(l);
        }
    } else if (gioco() == Gioco::superenalotto) {
        RigaSuperEnalotto s{.data = giorno};
        copia(q.numeri(0), s.numeri);
        s.jolly = q.numeri(1).front();
        s.superstar = q.numeri(2).front();
        a.righe.superenalotto.push_back(s);
    } else {
        RigaWinForLife w{.data = giorno, .ora = ora_->currentText().toStdString()};
        copia(q.numeri(0), w.numeri);
        a.righe.winforlife.push_back(w);
    }
    a.testi.push_back(std::move(testo));
    return a;
}

void Form_Estrazione::aggiungi() {
    if (!aggiungi_->isEnabled()) return;
    emit scritta(arrivate());
}

void Form_Estrazione::keyPressEvent(QKeyEvent* evento) {
    switch (evento->key()) {
        case Qt::Key_Escape:
            close();
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_F5:
            aggiungi();
            break;
        default:
            QWidget::keyPressEvent(evento);
    }
}

void Form_Estrazione::showEvent(QShowEvent* evento) {
    QWidget::showEvent(evento);
    quadro()->caselle().front()->setFocus();
}

void Form_Estrazione::closeEvent(QCloseEvent* evento) {
    scrivi_posto(*this, sessione_);
    QWidget::closeEvent(evento);
}

}  // namespace sortimetra
