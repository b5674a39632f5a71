#include "screens/esporta.h"

#include "files/file_sicuro.h"
#include "qt_testi.h"
#include "results/risultato.h"
#include "results/scrittori.h"
#include "screens/messaggi.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QWidget>
#include <filesystem>
#include <string>

namespace sortimetra {

namespace {

/// The folder of the last document of this run: the next one is offered there.
QString ultima_cartella;

/// A path in a name that any disk takes.
QString percorso_proposto(const QString& documento, const QString& fine) {
    QString nome = documento.simplified();
    nome.replace(QRegularExpression{QStringLiteral("[\\\\/:*?\"<>|]+")}, QStringLiteral("-"));
    if (nome.isEmpty()) nome = QStringLiteral("risultato");
    QString cartella = ultima_cartella.isEmpty()
                           ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                           : ultima_cartella;
    // The dialog would offer wherever the program was started.
    if (!QFileInfo{cartella}.isDir()) cartella = QDir::homePath();
    return QDir{cartella}.filePath(nome + fine);
}

}  // namespace

std::optional<QString> chiedi_file(QWidget* finestra, const QString& titolo, const QString& documento,
                                   const QString& filtri, QString* filtro,
                                   const std::function<QString(QString scelto)>& finale) {
    const auto scelto = messaggi().file_da_scrivere(
        finestra, titolo, percorso_proposto(documento, finale(QString{})), filtri, filtro);
    if (!scelto) return std::nullopt;
    QString file = finale(*scelto);
    // The dialog asked about the name that it saw.
    if (file != *scelto && QFileInfo::exists(file) &&
        !messaggi().chiede(finestra, kTitoloMessaggi,
                           QWidget::tr("%1 esiste già.\nVuoi sostituirlo?").arg(QFileInfo{file}.fileName())))
        return std::nullopt;
    ultima_cartella = QFileInfo{file}.absolutePath();
    return file;
}

std::optional<QString> chiedi_pdf(QWidget* finestra, const QString& documento) {
    const QString pdf = QStringLiteral(".pdf");
    return chiedi_file(finestra, QWidget::tr("Salva come PDF"), documento,
                       QWidget::tr("Documento PDF (*.pdf)"), nullptr, [&](const QString& scelto) {
                           return scelto.endsWith(pdf, Qt::CaseInsensitive) ? scelto : scelto + pdf;
                       });
}

std::optional<QString> esporta_risultato(QWidget* finestra, const Risposta& risposta) {
    if (risposta.risultato->tabelle.empty()) return std::nullopt;
    const QString csv = QWidget::tr("Testo con separatori (*.csv)");
    const QString xlsx = QWidget::tr("Cartella di lavoro (*.xlsx)");
    const QString json = QWidget::tr("JSON (*.json)");
    QString filtro = csv;
    const auto finale = [&](QString nome) {
        // The kind chosen in the dialog holds where the name has no ending, or still the one that was
        // offered.
        const QString fine = QFileInfo{nome}.suffix().toLower();
        const QString voluta = filtro == xlsx   ? QStringLiteral("xlsx")
                               : filtro == json ? QStringLiteral("json")
                                                : QStringLiteral("csv");
        if (fine != QLatin1String("csv") && fine != QLatin1String("xlsx") && fine != QLatin1String("json")) {
            nome += QLatin1Char{'.'} + voluta;
        } else if (fine == QLatin1String("csv") && voluta != fine) {
            nome.chop(3);
            nome += voluta;
        }
        return nome;
    };
    auto scelto =
        chiedi_file(finestra, QWidget::tr("Esporta il risultato"), testo_qt(risposta.titolo()),
                    csv + QStringLiteral(";;") + xlsx + QStringLiteral(";;") + json, &filtro, finale);
    if (!scelto) return std::nullopt;

    const QString fine = QFileInfo{*scelto}.suffix().toLower();
    const std::filesystem::path file{scelto->toStdU16String()};
    std::expected<void, ErroreArchivio> esito;
    if (fine == QLatin1String("xlsx")) {
        esito = scrivi_xlsx(file, risposta);
    } else {
        std::string testo;
        if (fine == QLatin1String("json"))
            scrivi_json(testo, risposta);
        else
            scrivi_csv(testo, risposta.risultato->tabelle.front(), {.ordine = risposta.ordine});
        esito = scrivi_file(file, testo);
    }
    if (!esito) {
        messaggi().avvisa(finestra, kTitoloMessaggi, QString::fromStdString(esito.error().testo()));
        return std::nullopt;
    }
    return scelto;
}

}  // namespace sortimetra
