#include "positional/form_tab_pos_scelta.h"

#include "screens/giro_di_tab.h"
#include "screens/tema.h"
#include "text/testi.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace sortimetra {

namespace {

/// Draws between the last concorso and where the stepper of most boards begins.
constexpr Concorso kScartoPasso = 401;
/// Above any concorso; what counts are the limits of the board.
constexpr int kMassimoScrivibile = 99'999'999;

}  // namespace

CasellaTabellone::CasellaTabellone(QWidget* padre) : CasellaConcorso{padre} {
    setObjectName(QStringLiteral("UpDown1"));
    testo()->setObjectName(QStringLiteral("txtconc"));
    testo()->setMaxLength(8);
    setRange(0, kMassimoScrivibile);
    connect(testo(), &QLineEdit::textEdited, this, [this] {
        toccato_ = true;
        if (limiti_.riporta(concorso()) == concorso()) passo_ = concorso();
    });
}

void CasellaTabellone::apri(LimitiConcorso limiti, Concorso passo, Concorso mostrato) {
    limiti_ = limiti;
    passo_ = limiti_.riporta(passo);
    testo()->setText(QString::number(mostrato));
    toccato_ = false;
}

std::optional<Concorso> CasellaTabellone::scritto() const {
    if (!toccato_) return std::nullopt;
    return concorso();
}

void CasellaTabellone::scrivi(Concorso concorso) {
    toccato_ = true;
    passo_ = limiti_.riporta(concorso);
    testo()->setText(QString::number(passo_));
}

void CasellaTabellone::riporta() {
    if (!toccato_) return;
    const Concorso prima = concorso();
    const Concorso dopo = limiti_.riporta(prima);
    if (dopo == prima) return;
    passo_ = dopo;
    testo()->setText(QString::number(dopo));
    emit riportato(prima, dopo);
}

void CasellaTabellone::stepBy(int passi) {
    passo_ = limiti_.riporta(passo_ + passi);
    toccato_ = true;
    testo()->setText(QString::number(passo_));
    selectAll();
}

bool CasellaTabellone::ammette(QChar c) const {
    return c >= QLatin1Char{'0'} && c <= QLatin1Char{'9'};
}

QAbstractSpinBox::StepEnabled CasellaTabellone::stepEnabled() const {
    StepEnabled versi = StepNone;
    if (passo_ < limiti_.massimo) versi |= StepUpEnabled;
    if (passo_ > limiti_.minimo) versi |= StepDownEnabled;
    return versi;
}

SceltaConcorso::SceltaConcorso(QWidget* padre)
    : QFrame{padre},
      casella_{new CasellaTabellone{this}},
      data_{new QLabel{this}},
      frase_{new QLabel{this}},
      limiti_{new QLabel{this}},
      messaggio_{new QLabel{tr("Attendere Prego"), this}},
      conferma_{new QPushButton{tr("Con&ferma"), this}} {
    setObjectName(QStringLiteral("Frame1"));
    assegna_ruolo(this, "scheda");
    setFixedWidth(130 * kPasso);
    componi();
    connect(casella_, &CasellaConcorso::testo_cambiato, this, &SceltaConcorso::aggiorna_data);
    connect(casella_, &CasellaTabellone::riportato, this, [this](int da, int a) {
        limiti_->setText(tr("Il concorso %1 è fuori dai limiti: riportato a %2.").arg(da).arg(a));
        limiti_->setProperty("riportato", true);
        assegna_ruolo(limiti_, "avviso");
    });
}

void SceltaConcorso::componi() {
    auto* titolo =
        new QLabel{tr("Tabellone posizionale dei numeri ritardatari all'estrazione del ..."), this};
    titolo->setWordWrap(true);
    assegna_ruolo(titolo, "titolo");
    frase_->setWordWrap(true);
    assegna_ruolo(frase_, "quieto");

    auto* scritta = new QLabel{tr("C&oncorso"), this};
    scritta->setBuddy(casella_);
    assegna_ruolo(scritta, "sezione");
    casella_->setAccessibleName(tr("Concorso"));
    casella_->testo()->setAccessibleName(tr("Concorso"));
    casella_->setMinimumWidth(36 * kPasso);
    auto* del = new QLabel{tr("del"), this};
    assegna_ruolo(del, "quieto");
    data_->setObjectName(QStringLiteral("lbldata"));
    data_->setFont(carattere_tabellare(font()));
    data_->setAccessibleDescription(tr("Data del concorso"));
    limiti_->setObjectName(QStringLiteral("lbllimiti"));
    limiti_->setWordWrap(true);
    assegna_ruolo(limiti_, "quieto");
    messaggio_->setObjectName(QStringLiteral("lblmessaggio"));
    messaggio_->setSizePolicy([this] {
        QSizePolicy p = messaggio_->sizePolicy();
        p.setRetainSizeWhenHidden(true);
        return p;
    }());
    messaggio_->hide();

    auto* riga = new QHBoxLayout;
    riga->setSpacing(2 * kPasso);
    riga->addWidget(casella_);
    riga->addWidget(del);
    riga->addWidget(data_);
    riga->addStretch(1);
    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(6 * kPasso, 6 * kPasso, 6 * kPasso, 6 * kPasso);
    colonna->setSpacing(2 * kPasso);
    colonna->addWidget(titolo);
    colonna->addWidget(frase_);
    colonna->addSpacing(2 * kPasso);
    colonna->addWidget(scritta);
    colonna->addLayout(riga);
    colonna->addWidget(limiti_);
    colonna->addSpacing(4 * kPasso);
    colonna->addLayout(componi_comandi());
}

QBoxLayout* SceltaConcorso::componi_comandi() {
    auto* esci = new QPushButton{tr("&Esci"), this};
    esci->setObjectName(QStringLiteral("cmdopzioni_0"));
    esci->setIcon(icona(QStringLiteral("sinistra")));
    esci->setToolTip(tr("Torna al catalogo (Esc)"));
    conferma_->setObjectName(QStringLiteral("cmdopzioni_1"));
    conferma_->setIcon(icona(QStringLiteral("tabella"), TintaIcona::su_accento));
    conferma_->setToolTip(tr("Mostra il tabellone a questo concorso (F5)"));
    assegna_ruolo(conferma_, "primario");
    auto* comandi = new QHBoxLayout;
    comandi->setSpacing(2 * kPasso);
    comandi->addWidget(messaggio_);
    comandi->addStretch(1);
    comandi->addWidget(esci);
    comandi->addWidget(conferma_);
    // The primary button is reached first; the box only by whoever wants another draw.
    giro_di_tab({casella_, conferma_, esci});
    connect(conferma_, &QPushButton::clicked, this, &SceltaConcorso::confermato);
    connect(esci, &QPushButton::clicked, this, &SceltaConcorso::chiuso);
    return comandi;
}

void SceltaConcorso::apri(const ArchivioEstrazioni& archivio, TipoTabellone tipo, const QString& frase) {
    archivio_ = &archivio;
    tipo_ = tipo;
    const LimitiConcorso limiti = limiti_concorso(archivio, tipo);
    const Concorso ultimo = concorso_scelto(archivio, tipo, std::nullopt);
    casella_->apri(limiti, tipo == TipoTabellone::lotto ? ultimo : ultimo - kScartoPasso, ultimo);
    frase_->setText(frase);
    limiti_->setText(
        limiti.massimo >= limiti.minimo
            ? tr("Si può scegliere un concorso da %1 a %2.")
                  .arg(QString::fromStdString(migliaia(limiti.minimo)),
                       QString::fromStdString(migliaia(limiti.massimo)))
            : tr("Con così poche estrazioni si può scegliere il solo concorso %1.").arg(limiti.massimo));
    assegna_ruolo(limiti_, "quieto");
    attesa(false);
    aggiorna_data();
}

void SceltaConcorso::attesa(bool si) {
    messaggio_->setVisible(si);
    // The search blocks the event loop at first: the word has to stand before it starts.
    if (si && isVisible()) messaggio_->repaint();
}

void SceltaConcorso::aggiungi_comando(QWidget* comando) {
    auto* colonna = qobject_cast<QVBoxLayout*>(layout());
    // Under the line of the limits.
    colonna->insertWidget(colonna->indexOf(limiti_) + 1, comando, 0, Qt::AlignLeft);
    comando->show();
}

void SceltaConcorso::fuoco_su_conferma() {
    conferma_->setFocus();
}

void SceltaConcorso::aggiorna_data() {
    if (archivio_ == nullptr) return;
    data_->setText(QString::fromStdString(data_tabellone(*archivio_, tipo_, casella_->concorso())));
}

}  // namespace sortimetra
