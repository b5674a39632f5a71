#include "screens/messaggi.h"

#include "qt_testi.h"
#include "screens/tema.h"
#include "statistics/famiglie.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace sortimetra {

namespace {

Messaggi veri;
Messaggi* messaggi_in_uso = &veri;

/// Side of a box's picture.
constexpr int kFigura = 8 * kPasso;

/// A box with a picture of the program's own, drawn at the display's scale.
void vesti(QMessageBox& riquadro, const char* figura, TintaIcona tinta) {
    riquadro.setObjectName(QStringLiteral("riquadro_%1").arg(QLatin1String{figura}));
    riquadro.setIconPixmap(icona(QString::fromLatin1(figura), tinta)
                               .pixmap(QSize{kFigura, kFigura}, riquadro.devicePixelRatioF()));
}

void mostra(QWidget* padre, const char* figura, TintaIcona tinta, const QString& titolo,
            const QString& testo) {
    QMessageBox riquadro{QMessageBox::NoIcon, titolo, testo, QMessageBox::Ok, padre};
    vesti(riquadro, figura, tinta);
    riquadro.exec();
}

}  // namespace

void Messaggi::informa(QWidget* padre, const QString& titolo, const QString& testo) {
    mostra(padre, "info", TintaIcona::accento, titolo, testo);
}

void Messaggi::avvisa(QWidget* padre, const QString& titolo, const QString& testo) {
    mostra(padre, "avviso", TintaIcona::avviso, titolo, testo);
}

void Messaggi::ferma(QWidget* padre, const QString& titolo, const QString& testo) {
    mostra(padre, "ferma", TintaIcona::avviso, titolo, testo);
}

bool Messaggi::chiede(QWidget* padre, const QString& titolo, const QString& testo) {
    QMessageBox riquadro{QMessageBox::NoIcon, titolo, testo, QMessageBox::NoButton, padre};
    vesti(riquadro, "domanda", TintaIcona::accento);
    riquadro.addButton(QMessageBox::tr("&Sì"), QMessageBox::YesRole);
    QPushButton* no = riquadro.addButton(QMessageBox::tr("&No"), QMessageBox::NoRole);
    riquadro.setDefaultButton(no);
    riquadro.setEscapeButton(no);
    riquadro.exec();
    return riquadro.clickedButton() != no;
}

Assenso Messaggi::chiede_o_annulla(QWidget* padre, const QString& titolo, const QString& testo) {
    QMessageBox riquadro{QMessageBox::NoIcon, titolo, testo, QMessageBox::NoButton, padre};
    vesti(riquadro, "domanda", TintaIcona::accento);
    const QPushButton* si = riquadro.addButton(QMessageBox::tr("&Sì"), QMessageBox::YesRole);
    const QPushButton* no = riquadro.addButton(QMessageBox::tr("&No"), QMessageBox::NoRole);
    QPushButton* annulla = riquadro.addButton(QMessageBox::tr("&Annulla"), QMessageBox::RejectRole);
    riquadro.setDefaultButton(annulla);
    riquadro.setEscapeButton(annulla);
    riquadro.exec();
    if (riquadro.clickedButton() == si) return Assenso::si;
    return riquadro.clickedButton() == no ? Assenso::no : Assenso::annulla;
}

std::optional<QString> Messaggi::file_da_scrivere(QWidget* padre, const QString& titolo,
                                                  const QString& proposto, const QString& filtri,
                                                  QString* filtro) {
    const QString file = QFileDialog::getSaveFileName(padre, titolo, proposto, filtri, filtro);
    return file.isEmpty() ? std::nullopt : std::optional{file};
}

std::optional<QString> Messaggi::file_da_leggere(QWidget* padre, const QString& titolo,
                                                 const QString& cartella, const QString& filtri) {
    const QString file = QFileDialog::getOpenFileName(padre, titolo, cartella, filtri);
    return file.isEmpty() ? std::nullopt : std::optional{file};
}

void mostra_messaggio(QWidget* padre, const Messaggio& messaggio) {
    const bool danneggiato = messaggio.avviso == Avviso::file_danneggiato;
    messaggi().informa(padre, danneggiato ? QStringLiteral("Sortimetra 2001") : kTitoloMessaggi,
                       testo_qt(messaggio.testo));
}

Messaggi& messaggi() {
    return *messaggi_in_uso;
}

MessaggiDiProva::MessaggiDiProva() : precedente_{messaggi_in_uso} {
    messaggi_in_uso = this;
}

MessaggiDiProva::~MessaggiDiProva() {
    messaggi_in_uso = precedente_;
}

void MessaggiDiProva::informa(QWidget*, const QString& titolo, const QString& testo) {
    detti.append({titolo, testo});
}

void MessaggiDiProva::avvisa(QWidget*, const QString& titolo, const QString& testo) {
    detti.append({titolo, testo});
}

void MessaggiDiProva::ferma(QWidget*, const QString& titolo, const QString& testo) {
    detti.append({titolo, testo});
}

Assenso MessaggiDiProva::chiede_o_annulla(QWidget*, const QString& titolo, const QString& testo) {
    detti.append({titolo, testo});
    return risposta_a_tre;
}

bool MessaggiDiProva::chiede(QWidget*, const QString& titolo, const QString& testo) {
    detti.append({titolo, testo});
    return risposta;
}

std::optional<QString> MessaggiDiProva::file_da_scrivere(QWidget*, const QString&, const QString& offerto,
                                                         const QString&, QString*) {
    proposto = offerto;
    return file;
}

std::optional<QString> MessaggiDiProva::file_da_leggere(QWidget*, const QString&, const QString& cartella,
                                                        const QString&) {
    proposto = cartella;
    return file;
}

}  // namespace sortimetra
