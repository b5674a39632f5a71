#include "catalogue/form_ricerche_dettaglio.h"

#include "catalogue/form_ricerche_ultima.h"
#include "qt_testi.h"
#include "screens/tema.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace sortimetra {

namespace {

constexpr int kLarghezza = 70 * kPasso;

QLabel* riga(const char* nome, const char* ruolo) {
    auto* l = new QLabel;
    l->setObjectName(QString::fromLatin1(nome));
    if (ruolo != nullptr) assegna_ruolo(l, ruolo);
    return l;
}

}  // namespace

FrameDettaglio::FrameDettaglio(QWidget* genitore)
    : QFrame{genitore},
      lbl_dove_{riga("lblDove", "sezione")},
      lbl_nome_{riga("lblNome", "titolo")},
      lbl_frase_{riga("lblFrase", nullptr)},
      ultima_{new UltimaEstrazione},
      lbl_impedimento_{riga("lblImpedimento", "avviso")},
      cmd_conferma_{new QPushButton{tr("&Conferma")}} {
    setObjectName(QStringLiteral("FrameDettaglio"));
    assegna_ruolo(this, "scheda");
    setFixedWidth(kLarghezza);
    for (QLabel* l : {lbl_nome_, lbl_frase_, lbl_impedimento_}) l->setWordWrap(true);
    auto* suggerimento = riga("lblSuggerimento", "quieto");
    suggerimento->setText(tr("Invio o doppio clic"));
    suggerimento->setAlignment(Qt::AlignHCenter);
    cmd_conferma_->setObjectName(QStringLiteral("cmdConferma"));
    assegna_ruolo(cmd_conferma_, "primario");
    auto* piano = new QVBoxLayout{this};
    piano->setContentsMargins(4 * kPasso, 4 * kPasso, 4 * kPasso, 3 * kPasso);
    piano->setSpacing(2 * kPasso);
    piano->addWidget(lbl_dove_);
    piano->addWidget(lbl_nome_);
    piano->addWidget(lbl_frase_);
    piano->addStretch(1);
    piano->addWidget(ultima_);
    piano->addSpacing(2 * kPasso);
    piano->addWidget(lbl_impedimento_);
    piano->addWidget(cmd_conferma_);
    piano->addWidget(suggerimento);
}

void FrameDettaglio::mostra(const VoceElenco& voce, const QString& dove, const QString& impedisce,
                            const ArchivioEstrazioni* archivio) {
    lbl_dove_->setText(dove);
    lbl_nome_->setText(testo_qt(voce.nome));
    lbl_frase_->setText(testo_qt(voce.ricerca->frase));
    lbl_impedimento_->setText(impedisce);
    lbl_impedimento_->setVisible(!impedisce.isEmpty());
    ultima_->mostra(archivio, voce.ricerca->gioco);
    cmd_conferma_->setEnabled(impedisce.isEmpty());
    cmd_conferma_->setToolTip(impedisce);
}

void FrameDettaglio::svuota() {
    for (QLabel* l : {lbl_dove_, lbl_nome_, lbl_frase_}) l->clear();
    lbl_impedimento_->setVisible(false);
    ultima_->mostra(nullptr, Gioco::sistemi);
    cmd_conferma_->setEnabled(false);
    cmd_conferma_->setToolTip({});
}

}  // namespace sortimetra
