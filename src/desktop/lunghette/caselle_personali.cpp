#include "lunghette/caselle_personali.h"

#include "screens/casella_cifre.h"
#include "screens/tema.h"

#include <QEvent>
#include <QHBoxLayout>
#include <algorithm>

namespace sortimetra {

namespace {

constexpr int kCaselleMassime = 5;
constexpr int kCifre = 2;

}  // namespace

CasellePersonali::CasellePersonali(QWidget* padre) : QWidget{padre} {
    auto* riga = new QHBoxLayout{this};
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(kPasso);
    for (int i = 0; i < kCaselleMassime; ++i) {
        auto* c = new CasellaCifre{this};
        c->setObjectName(QStringLiteral("txtnumpers_%1").arg(i));
        c->setAccessibleName(tr("Numero personale %1").arg(i + 1));
        c->setMaxLength(kCifre);
        c->setMinimumWidth(10 * kPasso);
        c->installEventFilter(this);
        connect(c, &QLineEdit::textEdited, this, [this, i] { scritta(static_cast<std::size_t>(i)); });
        riga->addWidget(c, 1);
        caselle_.push_back(c);
    }
}

void CasellePersonali::disponi(std::size_t quante, int massimo) {
    massimo_ = massimo;
    for (std::size_t i = 0; i < caselle_.size(); ++i) {
        caselle_[i]->clear();
        caselle_[i]->setVisible(i < quante);
    }
    aggiorna();
}

void CasellePersonali::apri(bool si) {
    aperte_ = si;
    aggiorna();
}

void CasellePersonali::prendi_fuoco() {
    caselle_.front()->setFocus();
}

void CasellePersonali::aggiorna() {
    bool aperta = aperte_;
    for (CasellaCifre* c : caselle_) {
        c->setEnabled(aperta && !c->isHidden());
        // What can no longer be reached holds nothing; boxes that are closed all together keep their text.
        if (aperte_ && !aperta) c->clear();
        aperta = aperta && c->numero() != 0;
    }
}

void CasellePersonali::scritta(std::size_t quale) {
    aggiorna();
    emit cambiate();
    const bool piena = caselle_[quale]->text().size() == kCifre;
    if (piena && quale + 1 < caselle_.size() && caselle_[quale + 1]->isEnabled())
        caselle_[quale + 1]->setFocus();
}

void CasellePersonali::lasciata(std::size_t quale) {
    CasellaCifre& questa = *caselle_[quale];
    if (questa.text().isEmpty() || !questa.isEnabled()) return;
    const int n = questa.numero();
    const bool altrove = std::any_of(caselle_.begin(), caselle_.end(), [&](const CasellaCifre* c) {
        return c != &questa && c->isEnabled() && !c->text().isEmpty() && c->numero() == n;
    });
    if (n >= 1 && n <= massimo_ && !altrove) return;
    questa.clear();
    aggiorna();
    emit cambiate();
}

void CasellePersonali::imposta(const std::vector<int>& numeri) {
    for (std::size_t i = 0; i < caselle_.size(); ++i) {
        caselle_[i]->setText(i < numeri.size() ? QString::number(numeri[i]) : QString{});
        aggiorna();
    }
}

void CasellePersonali::lascia() {
    // Of two equal numbers the later one goes, which was typed last.
    for (std::size_t i = caselle_.size(); i-- > 0;) lasciata(i);
}

std::vector<int> CasellePersonali::numeri() const {
    std::vector<int> numeri;
    for (const CasellaCifre* c : caselle_) {
        if (c->isHidden() || c->numero() == 0) break;
        numeri.push_back(c->numero());
    }
    return numeri;
}

bool CasellePersonali::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::FocusOut) {
        const auto it = std::find(caselle_.begin(), caselle_.end(), oggetto);
        if (it != caselle_.end()) lasciata(static_cast<std::size_t>(it - caselle_.begin()));
    }
    return QWidget::eventFilter(oggetto, evento);
}

}  // namespace sortimetra
