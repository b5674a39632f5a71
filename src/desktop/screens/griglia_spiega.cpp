// What a grid says about itself: the meaning of its titles.

#include "results/risultato.h"
#include "screens/fumetto.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"

#include <QHelpEvent>
#include <QPushButton>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <string_view>

namespace sortimetra {

namespace {

/// The measures that the manual explains in its chapter on chance.
constexpr std::array<std::string_view, 5> kTitoliCaso{"Attesa", "Scarto", "Probabilità", "In tabella",
                                                      "Record atteso"};

}  // namespace

std::optional<Spiegazione> GrigliaRisultati::spiegazione(int colonna) const {
    const auto& tabella = modello_->tabella();
    if (!tabella || colonna < 0) return std::nullopt;
    return spiega(*tabella, static_cast<std::size_t>(colonna), modello_->ordine());
}

/// The tooltip of a title: what it means, and what a click does.
QString GrigliaRisultati::suggerimento(int colonna) const {
    const QString ordina = tr("Ordina per questa colonna; un altro clic gira l'ordine");
    const auto s = spiegazione(colonna);
    return s ? testo_spiegazione(*s) + QStringLiteral("<br><small>%1</small>").arg(ordina) : ordina;
}

/// Over the small button of a title its meaning, then what the button does.
bool GrigliaRisultati::suggerisci(const QObject* oggetto, const QHelpEvent& evento) {
    const auto pulsante = std::find(pulsanti_.begin(), pulsanti_.end(), oggetto);
    if (pulsante == pulsanti_.end()) return false;
    const auto s = spiegazione(static_cast<int>(pulsante - pulsanti_.begin()));
    if (!s) return false;
    const QString fa =
        (*pulsante)->toolTip().toHtmlEscaped().replace(QLatin1Char{'\n'}, QStringLiteral("<br>"));
    QToolTip::showText(evento.globalPos(),
                       testo_spiegazione(*s) + QStringLiteral("<br><small>%1</small>").arg(fa), *pulsante);
    return true;
}

bool GrigliaRisultati::spiega_parte(QWidget* parte, bool maiuscole) {
    const auto pulsante = std::find(pulsanti_.begin(), pulsanti_.end(), parte);
    int colonna = -1;
    if (pulsante != pulsanti_.end())
        colonna = static_cast<int>(pulsante - pulsanti_.begin());
    else if (!maiuscole)
        colonna = titolo_sotto();
    else if (parte == vista_)
        colonna = vista_->currentIndex().column();
    const auto s = spiegazione(colonna);
    if (!s) return false;
    const bool del_caso = std::find(kTitoliCaso.begin(), kTitoliCaso.end(), s->nome) != kTitoliCaso.end();
    auto* fumetto = new Fumetto{this, *s, del_caso ? QStringLiteral("il-caso") : QStringLiteral("le-misure")};
    fumetto->mostra_a(vista_->viewport()->mapToGlobal(QPoint{vista_->columnViewportPosition(colonna), 0}));
    return true;
}

}  // namespace sortimetra
