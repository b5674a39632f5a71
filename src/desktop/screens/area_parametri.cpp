#include "screens/area_parametri.h"

#include "qt_testi.h"
#include "screens/chip.h"
#include "screens/tema.h"
#include "text/testi.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>

namespace sortimetra {

namespace {

QLabel* titolo_sezione(const QString& testo, QWidget* padre) {
    auto* l = new QLabel{testo, padre};
    assegna_ruolo(l, "sezione");
    return l;
}

}  // namespace

CasellaConcorso::CasellaConcorso(QWidget* padre) : QSpinBox{padre} {
    setRange(1, 1);
    setAlignment(Qt::AlignRight);
    setFont(carattere_tabellare(font()));
    setKeyboardTracking(true);
    setAccelerated(true);
    lineEdit()->installEventFilter(this);
    // Typing changes the line, a step changes the value (and writes the line without its signal).
    connect(lineEdit(), &QLineEdit::textChanged, this, &CasellaConcorso::guarda_testo);
    connect(this, &QSpinBox::valueChanged, this, &CasellaConcorso::guarda_testo);
}

void CasellaConcorso::guarda_testo() {
    if (lineEdit()->text() == ultimo_testo_) return;
    ultimo_testo_ = lineEdit()->text();
    emit testo_cambiato();
}

Concorso CasellaConcorso::concorso() const {
    const std::int64_t v = valore_iniziale(lineEdit()->text().toStdString());
    return static_cast<Concorso>(std::min<std::int64_t>(v, std::numeric_limits<Concorso>::max()));
}

bool CasellaConcorso::ammette(QChar c) const {
    return c.unicode() >= 48 && c.unicode() <= 58;
}

void CasellaConcorso::riporta() {
    const Concorso c = concorso();
    if (c > maximum())
        setValue(maximum());
    else if (c < 1)
        setValue(minimum());
    else
        return;
    // The value may have been the bound already, with another text on show: then the box writes its line
    // without a signal.
    lineEdit()->setText(textFromValue(value()));
    guarda_testo();
}

QValidator::State CasellaConcorso::validate(QString& testo, int&) const {
    if (!std::all_of(testo.begin(), testo.end(), [this](QChar c) { return ammette(c); }))
        return QValidator::Invalid;
    const std::int64_t v = valore_iniziale(testo.toStdString());
    return v >= minimum() && v <= maximum() ? QValidator::Acceptable : QValidator::Intermediate;
}

void CasellaConcorso::fixup(QString& testo) const {
    testo = textFromValue(valueFromText(testo));
}

int CasellaConcorso::valueFromText(const QString& testo) const {
    return static_cast<int>(
        std::clamp<std::int64_t>(valore_iniziale(testo.toStdString()), minimum(), maximum()));
}

QString CasellaConcorso::textFromValue(int valore) const {
    return QString::number(valore);
}

void CasellaConcorso::focusOutEvent(QFocusEvent* evento) {
    riporta();
    QSpinBox::focusOutEvent(evento);
    guarda_testo();
}

void CasellaConcorso::keyPressEvent(QKeyEvent* evento) {
    QSpinBox::keyPressEvent(evento);
    // Return brings the text back without a signal.
    guarda_testo();
}

bool CasellaConcorso::eventFilter(QObject* oggetto, QEvent* evento) {
    // A key whose character is not let in is swallowed here, so that no shortcut of the screen sees it
    // either; Return and the keys without a character go on.
    if (oggetto == lineEdit() && evento->type() == QEvent::KeyPress) {
        const auto* tasto = dynamic_cast<QKeyEvent*>(evento);
        const QString t = tasto == nullptr ? QString{} : tasto->text();
        if (t.size() == 1 && t[0].isPrint() && !ammette(t[0]) &&
            (tasto->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0)
            return true;
    }
    return QSpinBox::eventFilter(oggetto, evento);
}

AreaParametri::AreaParametri(QWidget* padre)
    : QFrame{padre},
      riquadro_ruote_{new QWidget{this}},
      titolo_intervallo_{titolo_sezione({}, this)},
      intervallo_{new QComboBox{this}},
      riquadro_concorsi_{new QWidget{this}} {
    setObjectName(QStringLiteral("FrameParametri"));
    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(kPasso);

    componi_ruote();
    colonna->addWidget(riquadro_ruote_);
    componi_intervallo();
    colonna->addWidget(titolo_intervallo_);
    colonna->addWidget(intervallo_);
    componi_concorsi();
    colonna->addWidget(riquadro_concorsi_);
    configura(Genere::lotto);
    mostra_ruote();
}

void AreaParametri::componi_ruote() {
    auto* ruote = new QGridLayout{riquadro_ruote_};
    ruote->setContentsMargins(0, 0, 0, 2 * kPasso);
    ruote->setSpacing(kPasso);
    ruote->addWidget(titolo_sezione(tr("Ruote"), riquadro_ruote_), 0, 0, 1, 2);
    for (int i = 0; i < static_cast<int>(caselle_.size()); ++i) {
        const NomeRuota& nome = kNomiRuote[static_cast<std::size_t>(i)];
        auto* c = new Chip{testo_qt(nome.schermo), riquadro_ruote_};
        c->setObjectName(QStringLiteral("CheckRuota_%1").arg(i));
        c->setProperty("tag", testo_qt(nome.codice));
        c->setAccessibleName(i == kTutte ? tr("Tutte le ruote") : tr("Ruota %1").arg(testo_qt(nome.esteso)));
        c->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        assegna_ruolo(c, "chip");
        connect(c, &QCheckBox::toggled, this, [this, i](bool si) { ruota_premuta(i, si); });
        // Two columns in reading order; TUTTE and NAZIONALE stand apart under a blank row.
        ruote->addWidget(c, 1 + i / 2 + (i >= kTutte ? 1 : 0), i % 2);
        caselle_[static_cast<std::size_t>(i)] = c;
    }
    ruote->setRowMinimumHeight(1 + kRuote / 2, kPasso);
    ruote->setColumnStretch(0, 1);
    ruote->setColumnStretch(1, 1);
}

void AreaParametri::componi_intervallo() {
    intervallo_->setObjectName(QStringLiteral("ComboIntervallo"));
    intervallo_->setMaxVisibleItems(21);
    intervallo_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    intervallo_->setMinimumContentsLength(12);
    titolo_intervallo_->setBuddy(intervallo_);
    connect(intervallo_, &QComboBox::currentIndexChanged, this, [this] {
        if (!fermo_) emit cambiato();
    });
}

void AreaParametri::componi_concorsi() {
    auto* concorsi = new QGridLayout{riquadro_concorsi_};
    concorsi->setContentsMargins(0, 2 * kPasso, 0, 0);
    concorsi->setHorizontalSpacing(2 * kPasso);
    concorsi->setVerticalSpacing(kPasso);
    constexpr std::array kTesti{"txtda", "txta"};
    constexpr std::array kEtichette{"lbldata1", "lbldata2"};
    for (int i = 0; i < 2; ++i) {
        const auto n = static_cast<std::size_t>(i);
        auto* scritta = titolo_sezione(i == 0 ? tr("dal concorso") : tr("al concorso"), this);
        auto* casella = new CasellaConcorso{this};
        casella->setObjectName(QStringLiteral("UpDown1_%1").arg(i));
        casella->testo()->setObjectName(QString::fromLatin1(kTesti[n]));
        casella->setAccessibleName(scritta->text());
        casella->testo()->setAccessibleName(scritta->text());
        casella->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        scritta->setBuddy(casella);
        auto* del = new QLabel{tr("del"), this};
        assegna_ruolo(del, "quieto");
        auto* giorno = new QLabel{this};
        giorno->setObjectName(QString::fromLatin1(kEtichette[n]));
        giorno->setFont(carattere_tabellare(font()));
        // A description: a name would be read in place of the date.
        giorno->setAccessibleDescription(i == 0 ? tr("Data del primo concorso")
                                                : tr("Data dell'ultimo concorso"));
        giorno->setMinimumWidth(giorno->fontMetrics().horizontalAdvance(QStringLiteral("00/00/0000")) +
                                kPasso);
        tratto_[n] = casella;
        date_[n] = giorno;
        concorsi->addWidget(scritta, 3 * i, 0, 1, 3);
        concorsi->addWidget(casella, 3 * i + 1, 0);
        concorsi->addWidget(del, 3 * i + 1, 1);
        concorsi->addWidget(giorno, 3 * i + 1, 2);
        connect(casella, &CasellaConcorso::testo_cambiato, this, [this, i] {
            aggiorna_data(i);
            if (!fermo_) emit tratto_cambiato();
        });
    }
    // A blank row parts the two boxes.
    concorsi->setRowMinimumHeight(2, kPasso);
    concorsi->setColumnStretch(0, 1);
}

void AreaParametri::configura(Genere genere) {
    genere_ = genere;
    const bool ore = genere == Genere::win_for_life;
    const bool soltanto_ruote = genere == Genere::solo_ruote;
    riquadro_ruote_->setVisible(genere == Genere::lotto || soltanto_ruote);
    for (QWidget* w :
         {static_cast<QWidget*>(titolo_intervallo_), static_cast<QWidget*>(intervallo_), riquadro_concorsi_})
        w->setVisible(!soltanto_ruote);
    titolo_intervallo_->setText(ore ? tr("Ora") : tr("Intervallo"));
    intervallo_->setAccessibleName(titolo_intervallo_->text());
    fermo_ = true;
    intervallo_->clear();
    if (ore) {
        for (const std::string_view ora : kOre) intervallo_->addItem(testo_qt(ora));
    } else {
        for (const VoceIntervallo& voce : kIntervalli) intervallo_->addItem(testo_qt(voce.testo));
    }
    intervallo_->setCurrentIndex(0);
    fermo_ = false;
}

void AreaParametri::apri(const ArchivioEstrazioni& archivio, SelezioneRuote ruote) {
    archivio_ = &archivio;
    fermo_ = true;
    ruote_ = ruote;
    mostra_ruote();
    intervallo_->setCurrentIndex(0);
    const Concorso ultimo =
        genere_ == Genere::win_for_life ? archivio.ultimo_concorso_winforlife() : archivio.ultimo_concorso();
    for (std::size_t i = 0; i < tratto_.size(); ++i) {
        tratto_[i]->setRange(1, std::max(1, ultimo));
        const int valore = i == 0 ? 1 : tratto_[i]->maximum();
        tratto_[i]->setValue(valore);
        tratto_[i]->testo()->setText(QString::number(valore));
        aggiorna_data(static_cast<int>(i));
    }
    fermo_ = false;
}

AmbitoRicerca AreaParametri::ambito() const {
    AmbitoRicerca a;
    a.ruote = ruote_;
    const auto voce = static_cast<std::size_t>(std::max(0, intervallo_->currentIndex()));
    (genere_ == Genere::win_for_life ? a.ora : a.intervallo) = voce;
    a.tratto = {tratto_[0]->concorso(), tratto_[1]->concorso()};
    return a;
}

void AreaParametri::imposta_ruote(SelezioneRuote ruote) {
    if (ruote == ruote_) return;
    ruote_ = ruote;
    mostra_ruote();
    emit cambiato();
}

void AreaParametri::imposta_ambito(const AmbitoRicerca& ambito) {
    fermo_ = true;
    ruote_ = ambito.ruote;
    mostra_ruote();
    intervallo_->setCurrentIndex(
        static_cast<int>(genere_ == Genere::win_for_life ? ambito.ora : ambito.intervallo));
    const std::array<Concorso, 2> estremi{ambito.tratto.da, ambito.tratto.a};
    for (std::size_t i = 0; i < tratto_.size(); ++i) {
        tratto_[i]->setValue(estremi[i]);
        tratto_[i]->testo()->setText(QString::number(tratto_[i]->value()));
        aggiorna_data(static_cast<int>(i));
    }
    fermo_ = false;
}

QString AreaParametri::testo_intervallo() const {
    return intervallo_->currentText();
}

QString AreaParametri::testo_concorsi() const {
    return tr("dal concorso %1 del %2 al concorso %3 del %4")
        .arg(tratto_[0]->testo()->text(), date_[0]->text(), tratto_[1]->testo()->text(), date_[1]->text());
}

void AreaParametri::riporta_tratto() {
    for (CasellaConcorso* c : tratto_) c->riporta();
}

void AreaParametri::ruota_premuta(int casella, bool spuntata) {
    if (fermo_) return;
    if (unica_ && spuntata) ruote_ = SelezioneRuote::nessuna();
    ruote_.clic(casella, spuntata);
    mostra_ruote();
    emit cambiato();
}

void AreaParametri::mostra_ruote() {
    const bool prima = fermo_;
    fermo_ = true;
    for (std::size_t i = 0; i < caselle_.size(); ++i)
        caselle_[i]->setChecked(ruote_.spuntata(static_cast<int>(i)));
    fermo_ = prima;
}

void AreaParametri::aggiorna_data(int quale) {
    const auto i = static_cast<std::size_t>(quale);
    std::optional<Data> giorno;
    if (archivio_ != nullptr) {
        const Concorso c = tratto_[i]->concorso();
        giorno = genere_ == Genere::win_for_life ? archivio_->data_winforlife(c) : archivio_->data_bari(c);
    }
    date_[i]->setText(giorno ? testo_qt(testo_data(*giorno)) : QString{});
}

}  // namespace sortimetra
