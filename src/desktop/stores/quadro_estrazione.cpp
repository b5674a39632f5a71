#include "stores/quadro_estrazione.h"

#include "screens/tema.h"

#include <QGridLayout>
#include <QLabel>
#include <algorithm>
#include <set>
#include <utility>

namespace sortimetra {

QuadroEstrazione::QuadroEstrazione(QString nome, int massimo, QWidget* padre)
    : QWidget{padre}, nome_{std::move(nome)}, massimo_{massimo}, piano_{new QGridLayout{this}} {
    piano_->setContentsMargins(0, 0, 0, 0);
    piano_->setHorizontalSpacing(kPasso);
    piano_->setVerticalSpacing(kPasso);
}

CasellaEstratto* QuadroEstrazione::casella(const QString& nome, const QString& accessibile) {
    auto* c = new CasellaEstratto{massimo_, this};
    c->setObjectName(nome);
    c->setAccessibleName(accessibile);
    tutte_.push_back(c);
    connect(c, &QLineEdit::textChanged, this, [this] {
        controlla();
        emit cambiato();
    });
    connect(c, &CasellaEstratto::completa, this, [this, c] { vai(c, 1); });
    connect(c, &CasellaEstratto::indietro, this, [this, c] { vai(c, -1); });
    connect(c, &CasellaEstratto::incollati, this, [this, c](const QList<int>& n) { incolla(c, n); });
    return c;
}

void QuadroEstrazione::aggiungi_riga(const QString& scritta, int caselle) {
    Riga riga{.scritta = scritta, .caselle = {}};
    const int r = static_cast<int>(righe_.size());
    auto* etichetta = new QLabel{scritta, this};
    piano_->addWidget(etichetta, r, 0);
    piano_->setColumnMinimumWidth(0, 22 * kPasso);
    for (int i = 0; i < caselle; ++i) {
        riga.caselle.push_back(casella(QStringLiteral("%1_%2").arg(nome_).arg(tutte_.size()),
                                       tr("%1, %2° numero").arg(scritta).arg(i + 1)));
        piano_->addWidget(riga.caselle.back(), r, i + 1);
    }
    etichetta->setBuddy(riga.caselle.front());
    piano_->setColumnStretch(caselle + 1, 1);
    righe_.push_back(std::move(riga));
}

CasellaEstratto* QuadroEstrazione::aggiungi_casella(const QString& nome, const QString& scritta,
                                                    bool libera) {
    Riga riga{.scritta = scritta, .caselle = {}, .libera = libera, .sciolta = true};
    const int r = static_cast<int>(righe_.size());
    auto* etichetta = new QLabel{scritta, this};
    piano_->addWidget(etichetta, r, 0);
    riga.caselle.push_back(casella(nome, scritta));
    etichetta->setBuddy(riga.caselle.front());
    piano_->addWidget(riga.caselle.front(), r, 1);
    righe_.push_back(riga);
    return riga.caselle.front();
}

void QuadroEstrazione::svuota() {
    for (CasellaEstratto* c : tutte_) c->clear();
}

bool QuadroEstrazione::vuoto() const {
    return std::all_of(tutte_.begin(), tutte_.end(), [](const auto* c) { return c->text().isEmpty(); });
}

std::vector<Numero> QuadroEstrazione::numeri(std::size_t riga) const {
    std::vector<Numero> n;
    for (const CasellaEstratto* c : righe_[riga].caselle) n.push_back(c->numero());
    return n;
}

void QuadroEstrazione::vai(CasellaEstratto* da, int passi) {
    const auto dove = tutte_.indexOf(da) + passi;
    if (dove >= 0 && dove < tutte_.size())
        tutte_[dove]->setFocus(Qt::TabFocusReason);
    else if (passi > 0)
        emit finito();
}

void QuadroEstrazione::incolla(CasellaEstratto* da, const QList<int>& numeri) {
    // A whole row goes to the row's first box, wherever in it the keyboard stands; a part goes on from here.
    auto dove = tutte_.indexOf(da);
    for (const Riga& riga : righe_)
        if (riga.caselle.contains(da) && numeri.size() >= riga.caselle.size())
            dove = tutte_.indexOf(riga.caselle.front());
    qsizetype ultima = dove;
    for (const int n : numeri) {
        if (dove >= tutte_.size()) break;
        // What is no number of the game stays to be seen, and is marked.
        tutte_[dove]->setText(n > 99 ? QString{} : QString::number(n));
        ultima = dove++;
    }
    vai(tutte_[ultima], 1);
}

void QuadroEstrazione::controlla() {
    std::multiset<int> prima;
    for (const Riga& riga : righe_) {
        std::multiset<int> dentro;
        for (const CasellaEstratto* c : riga.caselle)
            if (!c->text().isEmpty()) dentro.insert(c->text().toInt());
        for (CasellaEstratto* c : riga.caselle) {
            const int n = c->text().toInt();
            const bool doppio = dentro.count(n) > 1 || (riga.sciolta && !riga.libera && prima.contains(n));
            c->segna(c->text().isEmpty() ? QString{}
                     : c->numero() == 0  ? tr("I numeri vanno da 1 a %1").arg(massimo_)
                     : doppio            ? tr("Il %1 c'è già").arg(n)
                                         : QString{});
        }
        if (!riga.sciolta) prima = std::move(dentro);
    }
}

bool QuadroEstrazione::errato() const {
    return std::any_of(tutte_.begin(), tutte_.end(), [](const auto* c) { return !c->toolTip().isEmpty(); });
}

QString QuadroEstrazione::manca() const {
    QStringList incomplete;
    for (const Riga& riga : righe_) {
        for (const CasellaEstratto* c : riga.caselle)
            if (!c->toolTip().isEmpty()) return QStringLiteral("%1: %2.").arg(riga.scritta, c->toolTip());
        if (std::any_of(riga.caselle.begin(), riga.caselle.end(),
                        [](const auto* c) { return c->text().isEmpty(); }))
            incomplete.push_back(riga.scritta);
    }
    if (incomplete.isEmpty()) return {};
    constexpr qsizetype kDaDire = 4;
    if (incomplete.size() > kDaDire) return tr("Mancano ancora %1 righe.").arg(incomplete.size());
    return tr("Da completare: %1.").arg(incomplete.join(QStringLiteral(", ")));
}

}  // namespace sortimetra
