#include "pittura.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QString>
#include <cstring>
#include <optional>

namespace sortimetra::misure {

namespace {

using Orologio = std::chrono::steady_clock;
using namespace std::chrono_literals;

QtMessageHandler precedente = nullptr;
std::optional<Orologio::time_point> prima;
Orologio::time_point ultima;

void ricevi(QtMsgType tipo, const QMessageLogContext& contesto, const QString& testo) {
    if (contesto.category == nullptr || std::strcmp(contesto.category, "qt.widgets.painting") != 0) {
        // The offscreen platform says of each window what it cannot do.
        if (!testo.startsWith(QLatin1String{"This plugin does not support"}))
            precedente(tipo, contesto, testo);
        return;
    }
    if (!testo.startsWith(QLatin1String{kDipinto.data(), kDipinto.size()})) return;
    ultima = Orologio::now();
    if (!prima) prima = ultima;
}

/// Runs the event loop until something is painted; returns when the action began, nothing if that takes
/// longer than a user would wait.
std::optional<Orologio::time_point> aspetta(const std::function<void()>& azione) {
    QCoreApplication::processEvents();
    prima.reset();
    const auto inizio = Orologio::now();
    azione();
    while (!prima) {
        QCoreApplication::processEvents();
        if (Orologio::now() - inizio > 10s) return std::nullopt;
    }
    return inizio;
}

double secondi(Orologio::duration d) {
    return std::chrono::duration<double>(d).count();
}

}  // namespace

void ascolta_le_pitture() {
    QLoggingCategory::setFilterRules(QString::fromLatin1(kRegoleRegistro));
    precedente = qInstallMessageHandler(ricevi);
}

double fino_alla_pittura(const std::function<void()>& azione) {
    const auto inizio = aspetta(azione);
    if (!inizio) return -1;
    QCoreApplication::processEvents();
    return secondi(ultima - *inizio);
}

double fino_alla_prima_pittura(const std::function<void()>& azione) {
    const auto inizio = aspetta(azione);
    return inizio ? secondi(*prima - *inizio) : -1;
}

}  // namespace sortimetra::misure
