#include "systems/quadro_griglie.h"

#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"
#include "systems/conteggi.h"

#include <QGridLayout>
#include <QLabel>
#include <QResizeEvent>
#include <QVBoxLayout>
#include <algorithm>

namespace sortimetra {

namespace {

/// Width that a grid of three columns of numbers asks for, with the bar that scrolls it.
constexpr int kLarghezzaGriglia = 46 * kPasso;
constexpr int kAltezzaMinima = 25 * kPasso;
constexpr int kColonneGriglia = 3;
constexpr std::size_t kGruppiInColonna = 2;

/// "MSH_Distanza(3)" as an object name.
QString nome_griglia(std::string_view nome) {
    QString n = testo_qt(nome);
    n.replace(QLatin1Char{'('}, QLatin1Char{'_'});
    n.remove(QLatin1Char{')'});
    return n;
}

/// How the sort buttons of a statistic's grids are called; "%1" is three times the grid and the column.
QString nome_pulsanti(Statistica statistica) {
    switch (statistica) {
        case Statistica::posizione:
            return QStringLiteral("cmdcol_%1");
        case Statistica::distanza:
            return QStringLiteral("cmdcolDistanza_%1");
        case Statistica::condizioni:
            return QStringLiteral("cmdColCondizioni_%1");
        case Statistica::somme1:
        case Statistica::somme2:
            return QStringLiteral("cmdColSOMME_%1");
        case Statistica::consecutivita:
            return QStringLiteral("cmdcolConsec_%1");
        case Statistica::gruppi:
            return QStringLiteral("cmdColGruppi_%1");
    }
    return {};
}

}  // namespace

QuadroGriglie::QuadroGriglie(Statistica statistica, const QString& nome, QWidget* padre)
    : QFrame{padre}, statistica_{statistica}, disposizione_{new QGridLayout{this}} {
    setObjectName(nome);
    disposizione_->setContentsMargins(0, 0, 0, 0);
    disposizione_->setSpacing(2 * kPasso);
    const QString pulsanti = nome_pulsanti(statistica);
    switch (statistica) {
        case Statistica::posizione:
            crea_griglia(QStringLiteral("MSHFlexGrid1"), pulsanti, 0);
            griglie_[0]->blocca_prima_colonna(true);
            break;
        case Statistica::gruppi: {
            // Five columns, five and four: the buttons are counted on.
            constexpr int kColonneGruppo = 5;
            for (int g = 0; g < 3; ++g)
                crea_griglia(QStringLiteral("MSH_Gruppi_%1").arg(g), pulsanti, g * kColonneGruppo);
            break;
        }
        default: {
            // The sums of the second kind are the fourth grid and the following of the same array.
            const int primo = statistica == Statistica::somme2 ? static_cast<int>(kSomme1.size()) : 0;
            for (const GrigliaMisura& m : griglie_misura(statistica))
                crea_griglia(nome_griglia(m.griglia), pulsanti,
                             (primo + static_cast<int>(griglie_.size())) * kColonneGriglia);
            if (statistica == Statistica::condizioni)
                crea_griglia(QStringLiteral("MSH_condizioni_5"), pulsanti,
                             static_cast<int>(kCondizioni.size()) * kColonneGriglia);
        }
    }
}

void QuadroGriglie::crea_griglia(const QString& nome, const QString& pulsanti, int primo) {
    auto* pannello = new QWidget{this};
    auto* colonna = new QVBoxLayout{pannello};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(kPasso);
    auto* titolo = new QLabel{pannello};
    titolo->setObjectName(QStringLiteral("lbl_%1").arg(nome));
    assegna_ruolo(titolo, "sezione");
    auto* griglia = new GrigliaRisultati{pannello};
    griglia->imposta_pulsanti(pulsanti, primo);
    griglia->imposta_compatta(statistica_ != Statistica::posizione);
    griglia->vista()->setObjectName(nome);
    // A few rows at least: where there is no room for them the board scrolls.
    griglia->vista()->setMinimumHeight(kAltezzaMinima);
    titolo->setBuddy(griglia->vista());
    colonna->addWidget(titolo);
    colonna->addWidget(griglia, 1);
    connect(griglia, &GrigliaRisultati::esporta_richiesta, this, &QuadroGriglie::esporta_richiesta);
    connect(griglia, &GrigliaRisultati::stampa_richiesta, this, &QuadroGriglie::stampa_richiesta);
    pannelli_.push_back(pannello);
    titoli_.push_back(titolo);
    griglie_.push_back(griglia);
}

void QuadroGriglie::inizializza(std::size_t k) {
    k_ = k;
    const auto titoli = titoli_griglie(statistica_, k);
    const auto conteggio = crea_conteggio(statistica_, {.k = k, .intero = 1});
    const auto vuote = conteggio->tabelle();
    for (std::size_t g = 0; g < griglie_.size(); ++g) {
        const QString titolo = testo_qt(titoli[g]);
        titoli_[g]->setText(titolo);
        titoli_[g]->setVisible(!titolo.isEmpty());
        griglie_[g]->vista()->setAccessibleName(titolo.isEmpty() ? tr("Numeri") : titolo);
        griglie_[g]->inizializza(vuote[g].titoli);
        const bool piena = riempie(statistica_, g, k);
        // The Codomino of two numbers would repeat their sum: it stays in sight, and grey.
        const bool grigia = !piena && statistica_ == Statistica::somme2;
        pannelli_[g]->setVisible(piena || grigia);
        pannelli_[g]->setEnabled(piena);
    }
    in_riga_ = 0;
    disponi();
    svuota();
}

int QuadroGriglie::per_riga(int quante) const {
    const int posto = std::max(1, width() / kLarghezzaGriglia);
    if (quante <= posto && quante <= 4) return quante;
    // Rows as even as they come: ten in two rows of five, or in three.
    const int righe = std::max(2, (quante + posto - 1) / posto);
    return (quante + righe - 1) / righe;
}

void QuadroGriglie::disponi() {
    std::vector<QWidget*> in_vista;
    for (QWidget* p : pannelli_)
        if (!p->isHidden()) in_vista.push_back(p);
    if (in_vista.empty()) return;
    const bool gruppi = statistica_ == Statistica::gruppi;
    const int riga = gruppi ? 2 : per_riga(static_cast<int>(in_vista.size()));
    if (riga == in_riga_) return;
    in_riga_ = riga;
    for (QWidget* p : pannelli_) disposizione_->removeWidget(p);
    for (std::size_t i = 0; i < in_vista.size(); ++i) {
        const int n = static_cast<int>(i);
        if (!gruppi)
            disposizione_->addWidget(in_vista[i], n / riga, n % riga);
        else if (i < kGruppiInColonna)
            disposizione_->addWidget(in_vista[i], n, 0);
        else
            disposizione_->addWidget(in_vista[i], 0, 1, static_cast<int>(kGruppiInColonna), 1);
    }
    const int righe = gruppi ? 2 : (static_cast<int>(in_vista.size()) + riga - 1) / riga;
    for (int c = 0; c < static_cast<int>(pannelli_.size()); ++c) {
        disposizione_->setColumnStretch(c, c < riga ? 1 : 0);
        disposizione_->setRowStretch(c, c < righe ? 1 : 0);
    }
}

void QuadroGriglie::resizeEvent(QResizeEvent* evento) {
    QFrame::resizeEvent(evento);
    disponi();
}

void QuadroGriglie::mostra(const std::shared_ptr<const Risultato>& risultato) {
    for (std::size_t g = 0; g < std::min(griglie_.size(), risultato->tabelle.size()); ++g) {
        griglie_[g]->imposta_frase_vuota(tr("Nessuna combinazione"));
        griglie_[g]->mostra(std::shared_ptr<const Tabella>{risultato, &risultato->tabelle[g]});
    }
}

void QuadroGriglie::svuota() {
    for (GrigliaRisultati* g : griglie_) {
        g->svuota();
        g->imposta_frase_vuota(g == griglie_.front() ? tr("Premi «Avvia Ricerca»\n(oppure Invio, o F5).")
                                                     : QString{});
    }
}

GrigliaRisultati* QuadroGriglie::in_uso() const {
    for (GrigliaRisultati* g : griglie_)
        if (g->isAncestorOf(focusWidget())) return g;
    return griglie_.front();
}

}  // namespace sortimetra
