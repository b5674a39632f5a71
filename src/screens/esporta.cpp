#include "screens/esporta.h"

#include "archive/file_sicuro.h"
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

/// The folder of the last export of this run: the next one starts there.
QString ultima_cartella;

QString nome_proposto(const Risultato& risultato) {
    QString nome = QString::fromStdString(risultato.titolo).simplified();
    nome.replace(QRegularExpression{QStringLiteral("[\\\\/:*?\"<>|]+")}, QStringLiteral("-"));
    if (nome.isEmpty()) nome = QStringLiteral("risultato");
    const QString cartella = ultima_cartella.isEmpty()
                                 ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                                 : ultima_cartella;
    return QDir{cartella}.filePath(nome + QStringLiteral(".csv"));
}

}  // namespace

std::optional<QString> esporta_risultato(QWidget* finestra, const Risultato& risultato,
                                         std::span<const std::uint32_t> ordine) {
    if (risultato.tabelle.empty()) return std::nullopt;
    const QString csv = QWidget::tr("Testo con separatori (*.csv)");
    const QString xlsx = QWidget::tr("Cartella di lavoro (*.xlsx)");
    const QString json = QWidget::tr("JSON (*.json)");
    QString filtro = csv;
    std::optional<QString> scelto =
        messaggi().file_da_scrivere(finestra, QWidget::tr("Esporta il risultato"), nome_proposto(risultato),
                                    csv + QStringLiteral(";;") + xlsx + QStringLiteral(";;") + json, &filtro);
    if (!scelto) return std::nullopt;
    // The kind chosen in the dialog holds where the name has no ending, or still the one that was offered.
    QString fine = QFileInfo{*scelto}.suffix().toLower();
    const QString voluta = filtro == xlsx   ? QStringLiteral("xlsx")
                           : filtro == json ? QStringLiteral("json")
                                            : QStringLiteral("csv");
    if (fine != QLatin1String("csv") && fine != QLatin1String("xlsx") && fine != QLatin1String("json")) {
        *scelto += QLatin1Char{'.'} + voluta;
        fine = voluta;
    } else if (fine == QLatin1String("csv") && voluta != fine) {
        scelto->chop(3);
        *scelto += voluta;
        fine = voluta;
    }
    ultima_cartella = QFileInfo{*scelto}.absolutePath();

    const std::filesystem::path file{scelto->toStdU16String()};
    const RigheScelte righe{.ordine = ordine};
    std::expected<void, ErroreArchivio> esito;
    if (fine == QLatin1String("xlsx")) {
        esito = scrivi_xlsx(file, risultato, righe);
    } else {
        std::string testo;
        if (fine == QLatin1String("json"))
            scrivi_json(testo, risultato, righe);
        else
            scrivi_csv(testo, risultato.tabelle.front(), righe);
        esito = scrivi_file(file, testo);
    }
    if (!esito) {
        messaggi().avvisa(finestra, kTitoloMessaggi, QString::fromStdString(esito.error().testo()));
        return std::nullopt;
    }
    return scelto;
}

}  // namespace sortimetra
