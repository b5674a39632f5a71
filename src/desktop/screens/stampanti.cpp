#include "screens/stampanti.h"

#include <QPageSize>
#include <QPaintEngine>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <utility>

namespace sortimetra {

namespace {

Stampanti vere;
Stampanti* stampanti_in_uso = &vere;

/// Reports measure from the sheet's corner: what the printer cannot reach is its own affair.
void foglio_intero(QPrinter& stampante) {
    stampante.setFullPage(true);
    stampante.setPageMargins(QMarginsF{});
}

}  // namespace

QString Stampanti::predefinita() {
    return QPrinterInfo::defaultPrinterName();
}

std::unique_ptr<QPrinter> Stampanti::apri(const QString& nome) {
    auto stampante = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (!nome.isEmpty()) stampante->setPrinterName(nome);
    if (!nome.isEmpty() && !stampante->isValid()) return nullptr;
    foglio_intero(*stampante);
    return stampante;
}

bool Stampanti::scegli(QWidget* padre, QPrinter& stampante) {
    QPrintDialog dialogo{&stampante, padre};
    // The pages were chosen before.
    dialogo.setOption(QAbstractPrintDialog::PrintPageRange, false);
    dialogo.setOption(QAbstractPrintDialog::PrintCurrentPage, false);
    dialogo.setOption(QAbstractPrintDialog::PrintSelection, false);
    if (dialogo.exec() != QDialog::Accepted) return false;
    foglio_intero(stampante);
    return true;
}

bool Stampanti::disegna_immagini(const QPrinter& stampante) {
    const QPaintEngine* motore = stampante.paintEngine();
    return motore != nullptr && motore->hasFeature(QPaintEngine::PixmapTransform);
}

Stampanti& stampanti() {
    return *stampanti_in_uso;
}

StampantiDiProva::StampantiDiProva(QString cartella)
    : cartella_{std::move(cartella)}, precedenti_{stampanti_in_uso} {
    stampanti_in_uso = this;
}

StampantiDiProva::~StampantiDiProva() {
    stampanti_in_uso = precedenti_;
}

std::unique_ptr<QPrinter> StampantiDiProva::apri(const QString& chiesta) {
    aperte.append(chiesta);
    if (!si_apre) return nullptr;
    auto stampante = std::make_unique<QPrinter>(QPrinter::HighResolution);
    stampante->setOutputFormat(QPrinter::PdfFormat);
    stampante->setPageSize(QPageSize{foglio});
    stampante->setPageOrientation(orientamento);
    foglio_intero(*stampante);
    return stampante;
}

bool StampantiDiProva::scegli(QWidget*, QPrinter&) {
    return accetta;
}

void StampantiDiProva::nuovo_documento(QPrinter& stampante) {
    const QString file = prossimo.isEmpty()
                             ? QStringLiteral("%1/stampa%2.pdf").arg(cartella_).arg(documenti.size() + 1)
                             : prossimo;
    documenti.append(file);
    stampante.setOutputFileName(file);
}

SuperficieStampante::SuperficieStampante(QPrinter& stampante)
    : SuperficieQt{stampante}, stampante_{&stampante} {
    lavoro_.copie = stampante.copyCount();
    lavoro_.colori = stampante.colorMode() == QPrinter::GrayScale ? 1 : 2;
}

void SuperficieStampante::imposta_dispositivo(const Lavoro& lavoro) {
    stampante_->setCopyCount(lavoro.copie);
    stampante_->setColorMode(lavoro.colori == 1 ? QPrinter::GrayScale : QPrinter::Color);
}

}  // namespace sortimetra
