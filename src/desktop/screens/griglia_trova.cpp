// The two lines of a grid: the one that finds in the result, the one that filters its rows.

#include "qt_testi.h"
#include "results/risultato.h"
#include "results/selezione.h"
#include "screens/corrispondenza.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <array>
#include <string_view>
#include <utility>

namespace sortimetra {

namespace {

/// Milliseconds without a key after which what was typed is taken for an expression.
constexpr int kPausaFiltro = 400;

template <class Azione>
QToolButton* bottone(QWidget* barra, const char* figura, const QString& nome, Azione azione) {
    auto* b = new QToolButton{barra};
    b->setIcon(icona(QString::fromLatin1(figura)));
    b->setToolTip(nome);
    b->setAccessibleName(nome);
    QObject::connect(b, &QToolButton::clicked, barra, azione);
    return b;
}

}  // namespace

void GrigliaRisultati::componi_trova() {
    auto* riga_trova = new QHBoxLayout{barra_trova_};
    riga_trova->setContentsMargins(0, 2 * kPasso, 0, 0);
    riga_trova->setSpacing(2 * kPasso);
    testo_trova_->setObjectName(QStringLiteral("txttrova"));
    testo_trova_->setPlaceholderText(tr("Trova nel risultato"));
    testo_trova_->setAccessibleName(tr("Trova nel risultato"));
    testo_trova_->setMaximumWidth(80 * kPasso);
    testo_trova_->addAction(icona(QStringLiteral("cerca"), TintaIcona::quieto), QLineEdit::LeadingPosition);
    testo_trova_->installEventFilter(this);
    assegna_ruolo(esito_trova_, "quieto");
    riga_trova->addWidget(testo_trova_, 1);
    riga_trova->addWidget(bottone(barra_trova_, "su", tr("Precedente"), [this] { trova(-1); }));
    riga_trova->addWidget(bottone(barra_trova_, "giu", tr("Successivo"), [this] { trova(1); }));
    riga_trova->addWidget(esito_trova_);
    riga_trova->addStretch(1);
    riga_trova->addWidget(bottone(barra_trova_, "chiudi", tr("Chiudi la ricerca"), [this] {
        barra_trova_->hide();
        vista_->setFocus();
    }));
    barra_trova_->hide();
    connect(testo_trova_, &QLineEdit::textChanged, this, [this] {
        cerca_corrispondenze();
        if (!corrispondenze_.empty()) vai_a(0);
    });
}

void GrigliaRisultati::componi_filtro() {
    testo_filtro_->setObjectName(QStringLiteral("txtfiltro"));
    testo_filtro_->setPlaceholderText(tr("Filtra le righe: ritardo > 100 e frequenza <= 20"));
    testo_filtro_->setAccessibleName(tr("Filtra le righe"));
    testo_filtro_->setToolTip(
        tr("Una colonna, un confronto (< <= > >= = != contiene) e un valore; più confronti si uniscono con "
           "«e» e «o».\nPer esempio: ritardo > 100 e Numeri contiene 07"));
    testo_filtro_->addAction(icona(QStringLiteral("filtro"), TintaIcona::quieto), QLineEdit::LeadingPosition);
    testo_filtro_->installEventFilter(this);
    conto_filtro_->setObjectName(QStringLiteral("lblcontofiltro"));
    assegna_ruolo(conto_filtro_, "quieto");
    errore_filtro_->setObjectName(QStringLiteral("lblerrorefiltro"));
    errore_filtro_->setWordWrap(true);
    assegna_ruolo(errore_filtro_, "avviso");
    errore_filtro_->hide();
    auto* riga = new QHBoxLayout;
    riga->setSpacing(2 * kPasso);
    riga->addWidget(testo_filtro_, 1);
    riga->addWidget(conto_filtro_);
    riga->addWidget(
        bottone(barra_filtro_, "chiudi", tr("Togli il filtro (Esc)"), [this] { chiudi_filtro(); }));
    auto* colonna = new QVBoxLayout{barra_filtro_};
    colonna->setContentsMargins(0, 0, 0, 2 * kPasso);
    colonna->setSpacing(kPasso);
    colonna->addLayout(riga);
    colonna->addWidget(errore_filtro_);
    barra_filtro_->hide();
    pausa_filtro_->setSingleShot(true);
    pausa_filtro_->setInterval(kPausaFiltro);
    connect(pausa_filtro_, &QTimer::timeout, this, [this] { filtra(true); });
    connect(testo_filtro_, &QLineEdit::textChanged, this, [this] {
        filtra(false);
        pausa_filtro_->start();
    });
}

void GrigliaRisultati::apri_filtro() {
    barra_filtro_->show();
    testo_filtro_->setFocus();
    testo_filtro_->selectAll();
    filtra(true);
}

void GrigliaRisultati::chiudi_filtro() {
    barra_filtro_->hide();
    pausa_filtro_->stop();
    filtra(false);
    vista_->setFocus();
}

/// Shows the rows for which the expression of the line holds. While one types a half-written expression
/// leaves the rows as they are and is no error yet.
void GrigliaRisultati::filtra(bool di_errore) {
    const std::string scritto = testo_filtro_->text().trimmed().toStdString();
    const auto& tabella = modello_->tabella();
    std::expected<std::vector<std::uint32_t>, std::string> righe;
    // A comparison that waits for its value says nothing about any row.
    if (!di_errore && !scritto.empty() &&
        std::string_view{"<>=!"}.find(scritto.back()) != std::string_view::npos)
        return;
    const bool attivo = tabella && tabella->righe() > 0 && !scritto.empty() && !barra_filtro_->isHidden();
    if (attivo) {
        if (ordinamento_)
            righe = sortimetra::filtra(
                *tabella, scritto,
                ordina(*tabella, static_cast<std::size_t>(ordinamento_->first), ordinamento_->second));
        else
            righe = sortimetra::filtra(*tabella, scritto);
    }
    if (!righe && !di_errore) return;
    errore_filtro_->setText(righe ? QString{} : testo_qt(righe.error()));
    errore_filtro_->setVisible(!righe);
    testo_filtro_->setProperty("errato", !righe);
    assegna_ruolo(testo_filtro_, "");
    conto_filtro_->setText(attivo && righe ? tr("%1 di %2 righe").arg(righe->size()).arg(tabella->righe())
                                           : QString{});
    const bool filtrava = modello_->filtrato();
    if (attivo && righe) {
        modello_->filtra(*righe);
    } else if (filtrava) {
        modello_->filtra({});
        if (ordinamento_) modello_->ordina_per(ordinamento_->first, ordinamento_->second);
    }
    if (!filtrava && !modello_->filtrato()) return;
    cerca_corrispondenze();
    aggiorna_frase();
    emit riga_cambiata();
}

/// Keys of the two lines: Enter goes on (or filters), Esc closes.
bool GrigliaRisultati::tasto_in_riga(QKeyEvent& tasto, const QObject* casella) {
    const bool ctrl = (tasto.modifiers() & Qt::ControlModifier) != 0;
    if (tasto.type() == QEvent::ShortcutOverride) {
        // The field would take these for moves of its cursor: here they print and export, as everywhere.
        if (!ctrl || (tasto.key() != Qt::Key_E && tasto.key() != Qt::Key_P)) return false;
        tasto.ignore();
        return true;
    }
    if (tasto.type() != QEvent::KeyPress) return false;
    const bool trova_qui = casella == testo_trova_;
    switch (tasto.key()) {
        case Qt::Key_Escape:
            if (trova_qui) {
                barra_trova_->hide();
                vista_->setFocus();
            } else {
                chiudi_filtro();
            }
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (trova_qui)
                trova((tasto.modifiers() & Qt::ShiftModifier) != 0 ? -1 : 1);
            else
                filtra(true);
            return true;
        default:
            return false;
    }
}

void GrigliaRisultati::apri_trova() {
    if (vuota()) return;
    barra_trova_->show();
    // Whatever was shown or sorted while the line was hidden.
    cerca_corrispondenze();
    testo_trova_->setFocus();
    testo_trova_->selectAll();
}

void GrigliaRisultati::cerca_corrispondenze() {
    corrispondenze_.clear();
    corrente_.reset();
    const Cercato cercato{testo_trova_->text().toStdString()};
    const auto& tabella = modello_->tabella();
    if (cercato.vuoto() || !tabella || barra_trova_->isHidden()) {
        esito_trova_->clear();
        return;
    }
    // The rows of a number before those where it is a count, these before longer counts that contain it.
    std::array<std::vector<std::pair<int, int>>, 3> gradi;
    const int righe = modello_->rowCount();
    const int colonne = modello_->columnCount();
    for (int r = 0; r < righe; ++r) {
        const std::size_t originale = modello_->riga_originale(r);
        for (int c = 0; c < colonne; ++c) {
            const auto colonna = static_cast<std::size_t>(c);
            if (tabellone_) {
                if (cercato.uguale(*tabella, originale, colonna)) gradi[0].emplace_back(r, c);
                continue;
            }
            const Cercato::Grado grado = cercato.grado(*tabella, originale, colonna);
            if (grado != Cercato::Grado::no) gradi[static_cast<std::size_t>(grado)].emplace_back(r, c);
        }
    }
    for (const auto& grado : gradi) corrispondenze_.insert(corrispondenze_.end(), grado.begin(), grado.end());
    esito_trova_->setText(corrispondenze_.empty() ? tr("Nessuna corrispondenza") : QString{});
}

void GrigliaRisultati::vai_a(std::size_t corrispondenza) {
    corrente_ = corrispondenza;
    const auto [r, c] = corrispondenze_[corrispondenza];
    const QModelIndex i = modello_->index(r, c);
    vista_->selectionModel()->setCurrentIndex(i, QItemSelectionModel::ClearAndSelect);
    vista_->scrollTo(i);
    esito_trova_->setText(tr("%1 di %2").arg(corrispondenza + 1).arg(corrispondenze_.size()));
}

void GrigliaRisultati::trova(int passo) {
    const std::size_t n = corrispondenze_.size();
    if (n == 0) return;
    if (passo > 0)
        vai_a(corrente_ ? (*corrente_ + 1) % n : 0);
    else
        vai_a((corrente_.value_or(0) + n - 1) % n);
}

}  // namespace sortimetra
