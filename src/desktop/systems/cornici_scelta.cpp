#include "systems/cornici_scelta.h"

#include "draws/ruote.h"
#include "qt_testi.h"
#include "screens/casella_cifre.h"
#include "screens/chip.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "systems/scelte.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

namespace sortimetra {

namespace {

constexpr int kMargineCornice = 6 * kPasso;
/// Boxes side by side; the others stand under them.
constexpr int kPerRiga = 5;
/// Where the option of the places stands, under that of the numbers and its two rows of boxes.
constexpr int kRigaPosti = 4;

}  // namespace

CorniceScelta::CorniceScelta(const QString& nome, const QString& titolo, QWidget* padre)
    : QFrame{padre}, contenuto_{new QVBoxLayout}, procedi_{new QPushButton{tr("&Procedi"), this}} {
    setObjectName(nome);
    assegna_ruolo(this, "scheda");
    auto* tutto = new QVBoxLayout{this};
    tutto->setContentsMargins(kMargineCornice, kMargineCornice, kMargineCornice, kMargineCornice);
    tutto->setSpacing(4 * kPasso);
    auto* scritta = new QLabel{titolo, this};
    assegna_ruolo(scritta, "titolo");
    scritta->setWordWrap(true);
    tutto->addWidget(scritta);
    contenuto_->setSpacing(3 * kPasso);
    tutto->addLayout(contenuto_);
    tutto->addStretch(1);
}

void CorniceScelta::chiudi(const char* nome_bottone) {
    procedi_->setObjectName(QString::fromLatin1(nome_bottone));
    assegna_ruolo(procedi_, "primario");
    auto* annulla = new QPushButton{tr("A&nnulla"), this};
    annulla->setObjectName(QStringLiteral("cmdAnnullaScelta"));
    annulla->setToolTip(tr("Torna al risultato senza cercare (Esc)"));
    connect(procedi_, &QPushButton::clicked, this, [this] { procedi(); });
    connect(annulla, &QPushButton::clicked, this, &CorniceScelta::annullato);
    auto* riga = new QHBoxLayout;
    riga->setSpacing(2 * kPasso);
    riga->addWidget(procedi_);
    riga->addWidget(annulla);
    riga->addStretch(1);
    contenuto_->addLayout(riga);
}

// ---- 10eLotto ----

ScegliPosizioni::ScegliPosizioni(QWidget* padre)
    : CorniceScelta{QStringLiteral("FrameSceltaPosizioni10elotto"),
                    tr("Scegli le 10 posizioni da analizzare"), padre},
      conto_{new QLabel{this}} {
    auto* griglia = new QGridLayout;
    griglia->setSpacing(kPasso);
    for (std::size_t i = 0; i < caselle_.size(); ++i) {
        const int posto = static_cast<int>(i) + 1;
        auto* c = new Chip{QString::number(posto), this};
        c->setObjectName(QStringLiteral("chkPosizioni10elotto_%1").arg(posto));
        c->setAccessibleName(tr("Posizione %1").arg(posto));
        c->setMinimumWidth(20 * kPasso);
        assegna_ruolo(c, "chip");
        connect(c, &QCheckBox::toggled, this, [this, c](bool si) { spuntata(c, si); });
        griglia->addWidget(c, static_cast<int>(i) / kPerRiga, static_cast<int>(i) % kPerRiga);
        caselle_[i] = c;
    }
    griglia->setColumnStretch(kPerRiga, 1);
    contenuto()->addLayout(griglia);
    conto_->setObjectName(QStringLiteral("lblposizioni"));
    assegna_ruolo(conto_, "quieto");
    contenuto()->addWidget(conto_);
    chiudi("cmdProcediPos10elotto");
    spuntata(caselle_[0], false);
}

std::vector<int> ScegliPosizioni::spuntate() const {
    std::vector<int> posti;
    for (std::size_t i = 0; i < caselle_.size(); ++i)
        if (caselle_[i]->isChecked()) posti.push_back(static_cast<int>(i) + 1);
    return posti;
}

void ScegliPosizioni::spuntata(QCheckBox* casella, bool si) {
    if (si && spuntate().size() > kDieci) {
        casella->setChecked(false);
        return;
    }
    const std::size_t quante = spuntate().size();
    conto_->setText(tr("%1 di 10 scelte").arg(quante));
    bottone()->setEnabled(quante == kDieci);
}

void ScegliPosizioni::procedi() {
    if (!bottone()->isEnabled()) return;
    scelte_ = spuntate();
    emit scelto();
}

void ScegliPosizioni::prendi_tastiera() {
    if (bottone()->isEnabled())
        bottone()->setFocus();
    else
        caselle_[0]->setFocus();
}

// ---- Win for Life ----

ScegliNumeri::ScegliNumeri(QWidget* padre)
    : CorniceScelta{QStringLiteral("frameSceltaNumeriWFL"), tr("Scegli le Combinazioni da analizzare"),
                    padre},
      errore_{new QLabel{this}} {
    constexpr std::array kTesti{"Tutte le combinazioni", "Contenenti i seguenti  numeri generici a scelta",
                                "Contenenti i numeri nelle posizioni"};
    auto* griglia = new QGridLayout;
    griglia->setHorizontalSpacing(kPasso);
    griglia->setVerticalSpacing(2 * kPasso);
    for (std::size_t i = 0; i < opzioni_.size(); ++i) {
        opzioni_[i] = new QRadioButton{QString::fromUtf8(kTesti[i]), this};
        opzioni_[i]->setObjectName(QStringLiteral("Option1_%1").arg(i));
        connect(opzioni_[i], &QRadioButton::toggled, this, [this] { aggiorna(); });
    }
    opzioni_[tutte]->setChecked(true);
    griglia->addWidget(opzioni_[tutte], 0, 0, 1, kPerRiga + 1);
    griglia->addWidget(opzioni_[con_numeri], 1, 0, 1, kPerRiga + 1);
    griglia->addWidget(opzioni_[con_posizioni], kRigaPosti, 0, 1, kPerRiga + 1);
    componi_caselle(griglia);
    griglia->setColumnStretch(kPerRiga, 1);
    contenuto()->addLayout(griglia);
    errore_->setObjectName(QStringLiteral("lblerrore_scelta"));
    assegna_ruolo(errore_, "avviso");
    errore_->hide();
    contenuto()->addWidget(errore_);
    chiudi("cmdProcediPosWFL");
    aggiorna();
}

void ScegliNumeri::componi_caselle(QGridLayout* griglia) {
    for (std::size_t i = 0; i < numeri_.size(); ++i) {
        const int n = static_cast<int>(i);
        auto* numero = new CasellaCifre{this};
        numero->setObjectName(QStringLiteral("txtNumeriScelti_%1").arg(i));
        numero->setAccessibleName(tr("Numero %1").arg(i + 1));
        numero->setMaxLength(2);
        numero->setAlignment(Qt::AlignHCenter);
        numero->setFixedWidth(16 * kPasso);
        griglia->addWidget(numero, 2 + n / kPerRiga, n % kPerRiga);
        numeri_[i] = numero;
    }
    for (std::size_t i = 0; i < posti_.size(); ++i) {
        auto* posto = new QComboBox{this};
        posto->setObjectName(QStringLiteral("cmbNumeriPosizione_%1").arg(i));
        posto->setAccessibleName(tr("Numero in posizione %1").arg(i + 1));
        posto->setFixedWidth(16 * kPasso);
        posto->addItem(QString{});
        for (int n = 1; n <= kNumeriWinForLife; ++n) posto->addItem(QString::number(n));
        auto* titolo = new QLabel{QStringLiteral("%1ª").arg(i + 1), this};
        titolo->setAlignment(Qt::AlignHCenter);
        assegna_ruolo(titolo, "quieto");
        const int n = static_cast<int>(i);
        const int riga = kRigaPosti + 1 + 2 * (n / kPerRiga);
        griglia->addWidget(titolo, riga, n % kPerRiga);
        griglia->addWidget(posto, riga + 1, n % kPerRiga);
        posti_[i] = posto;
    }
}

ScegliNumeri::Opzione ScegliNumeri::opzione() const {
    for (const Opzione o : {con_numeri, con_posizioni})
        if (opzioni_[o]->isChecked()) return o;
    return tutte;
}

void ScegliNumeri::aggiorna() {
    if (numeri_[0] == nullptr || posti_.back() == nullptr) return;
    for (CasellaCifre* c : numeri_) c->setEnabled(opzione() == con_numeri);
    for (QComboBox* c : posti_) c->setEnabled(opzione() == con_posizioni);
    errore_->hide();
}

void ScegliNumeri::procedi() {
    std::vector<int> scelti;
    if (opzione() == con_numeri)
        for (const CasellaCifre* c : numeri_) scelti.push_back(c->numero());
    if (opzione() == con_posizioni)
        for (const QComboBox* c : posti_) scelti.push_back(c->currentIndex());
    if (opzione() != tutte && std::all_of(scelti.begin(), scelti.end(), [](int n) { return n == 0; })) {
        messaggi().informa(this, kTitoloMessaggi, testo_qt(kInserireUnNumero));
        prendi_tastiera();
        return;
    }
    if (std::any_of(scelti.begin(), scelti.end(), [](int n) { return n > kNumeriWinForLife; })) {
        errore_->setText(tr("I numeri di Win for Life vanno da 1 a 20."));
        errore_->show();
        return;
    }
    errore_->hide();
    contenenti_ = opzione() == con_numeri ? scelti : std::vector<int>{};
    nelle_posizioni_ = opzione() == con_posizioni ? scelti : std::vector<int>{};
    emit scelto();
}

void ScegliNumeri::prendi_tastiera() {
    if (opzione() == con_numeri && numeri_[0]->numero() == 0)
        numeri_[0]->setFocus();
    else if (opzione() == con_posizioni && posti_[0]->currentIndex() == 0)
        posti_[0]->setFocus();
    else
        bottone()->setFocus();
}

}  // namespace sortimetra
