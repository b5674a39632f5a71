#include "catalogue/form_ricerche_archivio.h"

#include "screens/tema.h"
#include "stores/apertura.h"
#include "text/testi.h"

#include <QGridLayout>
#include <QLabel>
#include <QMetaObject>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>
#include <utility>

namespace sortimetra {

EsitoArchivio guarda_archivio(const std::filesystem::path& percorso_archivio, bool copia) {
    if (const auto negata = cartella_negata(percorso_archivio))
        return std::unexpected{ArchivioNegato{false, QString::fromStdString(negata->testo())}};
    if (!contiene_archivio(percorso_archivio))
        return std::unexpected{
            ArchivioNegato{true, FrameArchivio::tr("Nella cartella %1 non si trovano né drawit.mdb né "
                                                   "drawit.db.")
                                     .arg(QString::fromStdString(percorso_archivio.string()))}};
    // A window is open for hours: what it shows is held in its own memory.
    auto aperto =
        apri_archivio(percorso_archivio, kTutteLeTabelle, {.copia = copia, .tenuta = Tenuta::propria});
    if (!aperto)
        return std::unexpected{ArchivioNegato{false, QString::fromStdString(aperto.error().testo())}};
    return std::move(*aperto);
}

LettoreArchivio::LettoreArchivio(std::function<void(EsitoArchivio)> letto) : letto_{std::move(letto)} {}

void LettoreArchivio::leggi(const std::filesystem::path& percorso_archivio) {
    if (legge_) {
        prossimo_ = percorso_archivio;
        return;
    }
    legge_ = true;
    filo_ = std::jthread{[this, percorso_archivio, come = guarda] {
        auto esito = std::make_shared<EsitoArchivio>(come(percorso_archivio));
        QMetaObject::invokeMethod(this, [this, esito] { finita(std::move(*esito)); }, Qt::QueuedConnection);
    }};
}

void LettoreArchivio::finita(EsitoArchivio esito) {
    legge_ = false;
    if (const auto prossimo = std::exchange(prossimo_, std::nullopt))
        leggi(*prossimo);
    else
        letto_(std::move(esito));
}

std::filesystem::path cartella_intesa(const std::filesystem::path& scelta) {
    const bool archivio = !contiene_archivio(scelta / "archivio") && contiene_archivio(scelta) &&
                          minuscolo(scelta.filename().string()) == "archivio";
    return archivio ? scelta.parent_path() : scelta;
}

FrameArchivio::FrameArchivio(QWidget* genitore)
    : QFrame{genitore},
      titolo_{new QLabel},
      testo_{new QLabel},
      cmd_dimostrazione_{new QPushButton{tr("Archivio &dimostrativo")}},
      cmd_riprova_{new QPushButton{tr("&Riprova")}} {
    setObjectName(QStringLiteral("FrameArchivio"));
    assegna_ruolo(this, "scheda");
    titolo_->setObjectName(QStringLiteral("lblArchivioTitolo"));
    assegna_ruolo(titolo_, "titolo");
    titolo_->setWordWrap(true);
    testo_->setObjectName(QStringLiteral("lblArchivioTesto"));
    testo_->setWordWrap(true);
    testo_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    cmd_dimostrazione_->setObjectName(QStringLiteral("cmdDimostrazione"));
    cmd_dimostrazione_->setToolTip(tr("Crea un archivio di estrazioni simulate, per provare il programma"));
    assegna_ruolo(cmd_dimostrazione_, "primario");
    auto* scegli = new QPushButton{tr("Scegli una car&tella…")};
    scegli->setObjectName(QStringLiteral("cmdCartella"));
    scegli->setToolTip(tr("Una cartella con drawit.mdb oppure drawit.db nella sua sottocartella archivio"));
    cmd_riprova_->setObjectName(QStringLiteral("cmdRiprova"));
    auto* importa = new QPushButton{tr("&Porta le estrazioni…")};
    importa->setObjectName(QStringLiteral("cmdPorta"));
    importa->setToolTip(tr("Costruisce l'archivio dai file pubblicati con la storia intera"));
    connect(importa, &QPushButton::clicked, this, &FrameArchivio::aggiorna);
    connect(cmd_dimostrazione_, &QPushButton::clicked, this, &FrameArchivio::dimostrazione);
    connect(scegli, &QPushButton::clicked, this, &FrameArchivio::cartella);
    connect(cmd_riprova_, &QPushButton::clicked, this, &FrameArchivio::riprova);

    // Two by two: in one row they would want a wider window than a small screen has.
    auto* pulsanti = new QGridLayout;
    pulsanti->setSpacing(2 * kPasso);
    pulsanti->addWidget(importa, 0, 0);
    pulsanti->addWidget(scegli, 0, 1);
    pulsanti->addWidget(cmd_dimostrazione_, 1, 0);
    pulsanti->addWidget(cmd_riprova_, 1, 1);
    pulsanti->setColumnStretch(2, 1);
    auto* piano = new QVBoxLayout{this};
    piano->setContentsMargins(4 * kPasso, 3 * kPasso, 4 * kPasso, 3 * kPasso);
    piano->setSpacing(2 * kPasso);
    piano->addWidget(titolo_);
    piano->addWidget(testo_);
    piano->addLayout(pulsanti);
}

void FrameArchivio::spiega(const ArchivioNegato& negato) {
    titolo_->setText(negato.manca ? tr("Qui non c'è ancora un archivio delle estrazioni")
                                  : tr("L'archivio non si apre"));
    testo_->setText(negato.manca
                        ? negato.perche + tr(" Puoi indicare la cartella di un'installazione che li ha, "
                                             "oppure provare il programma con estrazioni simulate.")
                        : negato.perche);
    assegna_ruolo(testo_, negato.manca ? "quieto" : "avviso");
    cmd_dimostrazione_->setVisible(negato.manca);
    cmd_riprova_->setVisible(!negato.manca);
}

void FrameArchivio::mentre_legge() {
    titolo_->setText(tr("Leggo l'archivio…"));
    testo_->setText(
        tr("Un disco lento o un file danneggiato possono chiedere qualche secondo. Una ricerca scelta "
           "intanto si apre appena l'archivio è letto."));
    assegna_ruolo(testo_, "quieto");
    cmd_dimostrazione_->setVisible(false);
    cmd_riprova_->setVisible(false);
}

void FrameArchivio::mentre_crea() {
    titolo_->setText(tr("Creo l'archivio dimostrativo…"));
    titolo_->repaint();
}

void FrameArchivio::non_creato(const QString& perche) {
    titolo_->setText(tr("L'archivio dimostrativo non si può creare"));
    testo_->setText(perche);
    assegna_ruolo(testo_, "avviso");
}

}  // namespace sortimetra
