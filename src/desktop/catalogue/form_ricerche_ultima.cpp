#include "catalogue/form_ricerche_ultima.h"

#include "qt_testi.h"
#include "screens/tema.h"
#include "text/testi.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <span>
#include <string>

namespace sortimetra {

namespace {

QStringList due_cifre(std::span<const Numero> numeri) {
    QStringList lista;
    for (const Numero n : numeri) {
        std::string t;
        if (n != 0) aggiungi_due_cifre(t, n);
        lista << QString::fromStdString(t);
    }
    return lista;
}

QString concorso_del(Concorso concorso, Data data) {
    return UltimaEstrazione::tr("Concorso %1 del %2")
        .arg(concorso)
        .arg(QString::fromStdString(testo_data(data)));
}

}  // namespace

UltimaEstrazione::UltimaEstrazione(QWidget* genitore) : QWidget{genitore} {
    setObjectName(QStringLiteral("UltimaEstrazione"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    setAccessibleName(tr("Ultima estrazione"));
}

void UltimaEstrazione::mostra(const ArchivioEstrazioni* archivio, Gioco gioco) {
    data_.clear();
    righe_.clear();
    if (archivio != nullptr && (gioco == Gioco::lotto || gioco == Gioco::dieci_e_lotto)) {
        if (const TabellaLotto& t = archivio->lotto(); !t.concorso.empty()) {
            data_ = concorso_del(t.concorso.back(), t.data.back());
            for (std::size_t r = 0; r < kRuote; ++r)
                if ((t.presenti.back() >> r & 1U) != 0)
                    righe_.emplace_back(
                        testo_qt(kNomiRuote[r].esteso),
                        due_cifre(std::span{t.numeri.back()}.subspan(r * kEstratti, kEstratti)));
            const TabellaNazionale& nazionale = archivio->nazionale();
            if (gioco == Gioco::lotto && !nazionale.concorso.empty() &&
                nazionale.concorso.back() == t.concorso.back())
                righe_.emplace_back(testo_qt(kNomiRuote[kNazionale].esteso),
                                    due_cifre(nazionale.numeri.back()));
        }
    } else if (archivio != nullptr && gioco == Gioco::superenalotto) {
        if (const TabellaSuperEnalotto& t = archivio->superenalotto(); !t.concorso.empty()) {
            data_ = concorso_del(t.concorso.back(), t.data.back());
            const std::span<const Numero> n{t.numeri.back()};
            righe_.emplace_back(tr("Sestina"), due_cifre(n.first(6)));
            righe_.emplace_back(tr("Jolly"), due_cifre(n.subspan(6, 1)));
            righe_.emplace_back(tr("SuperStar"), due_cifre(n.subspan(7, 1)));
        }
    } else if (archivio != nullptr && gioco == Gioco::win_for_life) {
        if (const TabellaWinForLife& t = archivio->winforlife(); !t.concorso.empty()) {
            data_ = concorso_del(t.concorso.back(), t.data.back());
            const std::span<const Numero> n{t.numeri.back()};
            righe_.emplace_back(tr("Ore %1").arg(testo_qt(rifila(t.ora.back()))), due_cifre(n.first(5)));
            righe_.emplace_back(QString{}, due_cifre(n.last(5)));
        }
    }
    setAccessibleDescription(testo());
    updateGeometry();
    update();
}

QString UltimaEstrazione::testo() const {
    if (righe_.empty()) return {};
    QString t = data_;
    for (const auto& [nome, numeri] : righe_)
        t += QLatin1Char{'\n'} + (nome + QLatin1Char{' '} + numeri.join(QLatin1Char{' '})).trimmed();
    return t;
}

int UltimaEstrazione::altezza_riga() const {
    return fontMetrics().height() + kPasso;
}

QSize UltimaEstrazione::sizeHint() const {
    // Two heading lines, a gap, and the rows.
    return {0, righe_.empty() ? 0 : altezza_riga() * (2 + static_cast<int>(righe_.size())) + 2 * kPasso};
}

void UltimaEstrazione::paintEvent(QPaintEvent*) {
    if (righe_.empty() || height() < sizeHint().height()) return;
    const Skin& s = skin_in_uso();
    QPainter p{this};
    const int alta = altezza_riga();
    p.setPen(QColor::fromRgb(s.linea));
    p.drawLine(0, 0, width(), 0);
    QFont forte = font();
    forte.setWeight(QFont::DemiBold);
    p.setFont(forte);
    p.setPen(QColor::fromRgb(s.testo_quieto));
    p.drawText(QRect{0, 2 * kPasso, width(), alta}, Qt::AlignLeft | Qt::AlignVCenter,
               tr("Ultima estrazione"));
    p.setFont(font());
    p.drawText(QRect{0, 2 * kPasso + alta, width(), alta}, Qt::AlignLeft | Qt::AlignVCenter, data_);
    const QFont cifre = carattere_tabellare(font());
    const int colonna = QFontMetrics{cifre}.horizontalAdvance(QStringLiteral("00")) + 3 * kPasso;
    const auto lunga = std::max_element(righe_.begin(), righe_.end(), [](const auto& a, const auto& b) {
        return a.second.size() < b.second.size();
    });
    const int sinistra = width() - colonna * static_cast<int>(lunga->second.size());
    int alto = 2 * kPasso + 2 * alta;
    for (const auto& [nome, numeri] : righe_) {
        p.setFont(font());
        p.setPen(QColor::fromRgb(s.testo_quieto));
        p.drawText(QRect{0, alto, sinistra, alta}, Qt::AlignLeft | Qt::AlignVCenter, nome);
        p.setFont(cifre);
        p.setPen(QColor::fromRgb(s.testo));
        for (qsizetype i = 0; i < numeri.size(); ++i)
            p.drawText(QRect{sinistra + static_cast<int>(i) * colonna, alto, colonna, alta},
                       Qt::AlignRight | Qt::AlignVCenter, numeri[i]);
        alto += alta;
    }
}

void UltimaEstrazione::changeEvent(QEvent* evento) {
    QWidget::changeEvent(evento);
    if (evento->type() == QEvent::FontChange) updateGeometry();
}

}  // namespace sortimetra
