#include "grafico/quadro.h"

#include "text/data.h"
#include "text/testi.h"

#include <QFontInfo>
#include <QMouseEvent>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace sortimetra {

namespace {

constexpr double kGrossoLinea = 1.3;
/// Pixels within which a point counts as meant.
constexpr double kVicino = 14;
/// Concorsi that stay in sight at least.
constexpr double kTrattoMinimo = 12;
/// More points than these have no marks.
constexpr int kTantiPunti = 400;
constexpr int kEtichettaAnno = 56;

// Okabe and Ito's colours: whoever sees fewer colours than others tells them apart as well. On a light ground
// their green and purple are drawn a shade deeper, on a dark one the green a shade lighter, so that each
// stands out from the ground by three to one.
constexpr std::array<QRgb, kSerieGrafico> kSuChiaro{0xFF0072B2, 0xFFD55E00, 0xFF007A59, 0xFF9A4A78};
constexpr std::array<QRgb, kSerieGrafico> kSuScuro{0xFF56B4E9, 0xFFE69F00, 0xFF21C79A, 0xFFF0E442};

constexpr std::array kTratti{Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};
constexpr std::array kSegni{QCPScatterStyle::ssDisc, QCPScatterStyle::ssSquare, QCPScatterStyle::ssTriangle,
                            QCPScatterStyle::ssDiamond};
constexpr std::array kTrame{Qt::SolidPattern, Qt::BDiagPattern, Qt::FDiagPattern, Qt::DiagCrossPattern};

QString qt(const std::string& testo) {
    return QString::fromStdString(testo);
}

QString intero(double n) {
    return qt(migliaia(static_cast<std::int64_t>(std::llround(n))));
}

QString decimale(double n) {
    return QString::number(n, 'f', 1).replace(QLatin1Char{'.'}, QLatin1Char{','});
}

QColor colore(QRgb c, int alfa = 255) {
    QColor q = QColor::fromRgb(c);
    q.setAlpha(alfa);
    return q;
}

/// Marks at whole numbers alone.
class SegniInteri : public QCPAxisTicker {
  public:
    SegniInteri() { setTickCount(4); }

  protected:
    double getTickStep(const QCPRange& tratto) override {
        return std::max(1.0, QCPAxisTicker::getTickStep(tratto));
    }
    int getSubTickCount(double) override { return 0; }
    QString getTickLabel(double dove, const QLocale&, QChar, int) override { return intero(dove); }
};

/// Marks where a year begins, on an axis of concorsi; where little time is in sight, concorsi.
class SegniAnni final : public SegniInteri {
  public:
    /// Where each year begins, from `primo` on.
    SegniAnni(std::vector<double> inizi, int primo) : inizi_{std::move(inizi)}, primo_{primo} {}
    /// As many labels as there is room for.
    void imposta_posto(int pixel) { quante_ = std::max(2, pixel / kEtichettaAnno); }

  protected:
    QVector<double> createTickVector(double passo, const QCPRange& tratto) override {
        const auto in_vista = static_cast<int>(
            std::count_if(inizi_.begin(), inizi_.end(), [&](double x) { return tratto.contains(x); }));
        anni_ = in_vista >= 2;
        if (!anni_) return SegniInteri::createTickVector(passo, tratto);
        int ogni = 1;
        for (const int prova : {1, 2, 5, 10, 20}) {
            ogni = prova;
            if (in_vista / prova <= quante_) break;
        }
        QVector<double> segni;
        for (std::size_t i = 0; i < inizi_.size(); ++i)
            if ((primo_ + static_cast<int>(i)) % ogni == 0) segni.push_back(inizi_[i]);
        return segni;
    }
    QString getTickLabel(double dove, const QLocale& lingua, QChar forma, int cifre) override {
        if (!anni_) return SegniInteri::getTickLabel(dove, lingua, forma, cifre);
        const auto i = std::find(inizi_.begin(), inizi_.end(), dove);
        return i == inizi_.end() ? QString{} : QString::number(primo_ + (i - inizi_.begin()));
    }

  private:
    std::vector<double> inizi_;
    int primo_;
    int quante_ = 8;
    bool anni_ = true;
};

/// Where each year begins on the axis of concorsi, between the draws that the picture knows.
QSharedPointer<SegniAnni> segni_anni(const Grafico& g) {
    std::vector<std::pair<double, double>> noti;  // day, concorso
    for (const SerieGrafico& s : g.serie)
        for (const PuntoRitardo& p : s.linea)
            noti.emplace_back(static_cast<double>(p.data.time_since_epoch().count()), p.concorso);
    std::sort(noti.begin(), noti.end());
    if (noti.size() < 2) return QSharedPointer<SegniAnni>::create(std::vector<double>{}, 0);
    const auto anno_di = [](double giorno) {
        return mese_anno(Data{std::chrono::days{static_cast<int>(giorno)}}).anno;
    };
    const int primo = anno_di(noti.front().first) + 1;
    const int ultimo = anno_di(noti.back().first);
    std::vector<double> inizi;
    for (int anno = primo; anno <= ultimo; ++anno) {
        const Data capodanno = std::chrono::sys_days{std::chrono::year{anno} / 1 / 1};
        const auto giorno = static_cast<double>(capodanno.time_since_epoch().count());
        const auto dopo = std::lower_bound(noti.begin(), noti.end(), std::pair{giorno, 0.0});
        if (dopo == noti.begin() || dopo == noti.end()) continue;
        const auto& [g0, c0] = *(dopo - 1);
        const auto& [g1, c1] = *dopo;
        inizi.push_back(g1 > g0 ? c0 + (c1 - c0) * (giorno - g0) / (g1 - g0) : c1);
    }
    return QSharedPointer<SegniAnni>::create(std::move(inizi), primo);
}

}  // namespace

std::array<QRgb, kSerieGrafico> colori_serie(QRgb fondo) {
    return QColor::fromRgb(fondo).lightnessF() > 0.5F ? kSuChiaro : kSuScuro;
}

Quadro::Quadro(QWidget* padre) : QCustomPlot{padre} {
    setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    setNoAntialiasingOnDrag(true);
    setAutoAddPlottableToLegend(false);
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
}

void Quadro::mostra(const Grafico& grafico, const ColoriGrafico& colori, Titoli titoli) {
    grafico_ = grafico;
    if (grafico_.serie.size() > static_cast<std::size_t>(kSerieGrafico)) grafico_.serie.resize(kSerieGrafico);
    colori_ = colori;
    tinte_ = colori_serie(colori.fondo);
    piccolo_ = font();
    const double punti = QFontInfo{font()}.pointSizeF();
    piccolo_.setPointSizeF(std::max(punti * 0.86, 6.5));
    componi(titoli);
    disegna_linea();
    disegna_barre();
    disegna_anni();
    rimetti();
}

void Quadro::componi(Titoli titoli) {
    segno_ = nullptr;
    legenda_ = nullptr;
    linee_.clear();
    clearItems();
    clearPlottables();
    plotLayout()->clear();
    setBackground(QBrush{colore(colori_.fondo)});
    plotLayout()->setRowSpacing(2);
    if (titoli == Titoli::si) metti_titoli();
    if (!sola()) metti_legenda();
    linea_ = new QCPAxisRect{this};
    ritardi_ = new QCPAxisRect{this};
    anni_ = new QCPAxisRect{this};
    const int riga = plotLayout()->rowCount();
    plotLayout()->addElement(riga, 0, linea_);
    auto* sotto = new QCPLayoutGrid;
    sotto->setColumnSpacing(6);
    plotLayout()->addElement(riga + 1, 0, sotto);
    sotto->addElement(0, 0, ritardi_);
    sotto->addElement(0, 1, anni_);
    plotLayout()->setRowStretchFactor(riga, 1.25);
    vesti(linea_, qt(grafico_.asse_ritardo));
    vesti(ritardi_, qt(grafico_.asse_ritardi_chiusi) + QStringLiteral(" · linea: il caso"));
    vesti(anni_, qt(grafico_.asse_uscite) + QStringLiteral(" per anno · linea: il caso"));
    linea_->setRangeDrag(Qt::Horizontal);
    linea_->setRangeZoom(Qt::Horizontal);
    for (QCPAxisRect* r : {ritardi_, anni_}) {
        r->setRangeDrag({});
        r->setRangeZoom({});
    }
    connect(linea_->axis(QCPAxis::atBottom), qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
            [this](const QCPRange& r) {
                if (tutto_.size() <= 0) return;
                QCPRange dentro = r.size() > tutto_.size() ? tutto_ : r.bounded(tutto_.lower, tutto_.upper);
                if (dentro.size() < std::min(kTrattoMinimo, tutto_.size())) {
                    const double centro = dentro.center();
                    dentro = QCPRange{centro - kTrattoMinimo / 2, centro + kTrattoMinimo / 2}.bounded(
                        tutto_.lower, tutto_.upper);
                }
                linea_->axis(QCPAxis::atBottom)->setRange(dentro);
                adatta_segni();
            });
}

void Quadro::metti_titoli() {
    const auto riga = [this](const QString& testo, QRgb tinta, double volte, bool grassetto) {
        if (testo.isEmpty()) return;
        QFont carattere = font();
        carattere.setPointSizeF(QFontInfo{font()}.pointSizeF() * volte);
        carattere.setBold(grassetto);
        auto* titolo = new QCPTextElement{this, testo, carattere};
        titolo->setTextColor(colore(tinta));
        titolo->setTextFlags(Qt::AlignLeft | Qt::AlignVCenter);
        titolo->setMargins({8, 2, 8, 2});
        plotLayout()->addElement(plotLayout()->rowCount(), 0, titolo);
    };
    riga(qt(grafico_.titolo), colori_.testo, 1.4, true);
    riga(qt(grafico_.sottotitolo), colori_.quieto, 1, false);
    if (grafico_.simulato) riga(QStringLiteral("Archivio simulato"), qRgb(0xB3, 0x26, 0x1E), 1, true);
}

void Quadro::metti_legenda() {
    auto* legenda = new QCPLegend;
    legenda_ = legenda;
    legenda->setFillOrder(QCPLegend::foColumnsFirst);
    legenda->setWrap(kSerieGrafico);
    legenda->setBorderPen(Qt::NoPen);
    legenda->setBrush(Qt::NoBrush);
    legenda->setFont(piccolo_);
    legenda->setTextColor(colore(colori_.testo));
    legenda->setMargins({4, 0, 4, 0});
    plotLayout()->addElement(plotLayout()->rowCount(), 0, legenda);
    plotLayout()->setRowStretchFactor(plotLayout()->rowCount() - 1, 0.001);
}

void Quadro::vesti(QCPAxisRect* riquadro, const QString& titolo) {
    riquadro->setupFullAxesBox(false);
    riquadro->setMinimumMargins({8, 4, 8, 4});
    for (QCPAxis* asse : riquadro->axes()) {
        asse->setBasePen(QPen{colore(colori_.linea)});
        asse->setTickPen(Qt::NoPen);
        asse->setSubTickPen(Qt::NoPen);
        asse->setTickLabelFont(piccolo_);
        asse->setTickLabelColor(colore(colori_.quieto));
        asse->setLabelFont(piccolo_);
        asse->setLabelColor(colore(colori_.quieto));
        asse->grid()->setPen(QPen{colore(colori_.linea), 0, Qt::DotLine});
        asse->grid()->setZeroLinePen(Qt::NoPen);
        asse->setTicker(QSharedPointer<SegniInteri>::create());
    }
    QCPAxis* sopra = riquadro->axis(QCPAxis::atTop);
    sopra->setTickLabels(false);
    sopra->setBasePen(Qt::NoPen);
    sopra->setLabel(titolo);
    riquadro->axis(QCPAxis::atRight)->setVisible(false);
    riquadro->axis(QCPAxis::atBottom)->grid()->setVisible(false);
}

void Quadro::disegna_linea() {
    QCPAxis* x = linea_->axis(QCPAxis::atBottom);
    QCPAxis* y = linea_->axis(QCPAxis::atLeft);
    x->setTicker(segni_anni(grafico_));
    double alto = 1;
    double primo = std::numeric_limits<double>::max();
    double ultimo = std::numeric_limits<double>::lowest();
    for (std::size_t i = 0; i < grafico_.serie.size(); ++i) {
        const SerieGrafico& s = grafico_.serie[i];
        QCPGraph* g = addGraph(x, y);
        g->setName(qt(s.nome));
        linee_.push_back(g);
        if (!sola()) {
            g->setName(QStringLiteral("%1: oggi %2, record %3")
                           .arg(qt(s.nome), intero(s.presente), intero(s.record)));
            g->addToLegend(legenda_);
        }
        QVector<double> xs;
        QVector<double> ys;
        for (const PuntoRitardo& p : s.linea) {
            xs.push_back(p.concorso);
            ys.push_back(p.ritardo);
            alto = std::max(alto, static_cast<double>(p.ritardo));
            primo = std::min(primo, static_cast<double>(p.concorso));
            ultimo = std::max(ultimo, static_cast<double>(p.concorso));
        }
        g->setData(xs, ys, true);
        if (!s.linea.empty() && s.linea.back().aperto) {
            // The delay of today is not closed yet: a ring, not a mark.
            QCPGraph* oggi = addGraph(x, y);
            oggi->setLineStyle(QCPGraph::lsNone);
            oggi->setScatterStyle({kSegni[i], QPen{colore(tinte_[i]), 2}, QBrush{colore(colori_.fondo)}, 8});
            oggi->setData({xs.back()}, {ys.back()}, true);
        }
        alto = std::max({alto, s.record_atteso, static_cast<double>(s.record)});
    }
    for (std::size_t i = 0; i < grafico_.serie.size(); ++i) {
        const SerieGrafico& s = grafico_.serie[i];
        const bool gia_detto =
            std::any_of(grafico_.serie.begin(), grafico_.serie.begin() + static_cast<long>(i),
                        [&](const auto& a) { return a.record_atteso == s.record_atteso; });
        if (!gia_detto)
            livello(s.record_atteso, Qt::DashLine, sola() ? colori_.testo : colori_.quieto,
                    QStringLiteral("record atteso %1").arg(intero(s.record_atteso)), 0.5);
        if (sola() && s.record > 0)
            livello(s.record, Qt::SolidLine, tinte_[i], QStringLiteral("record %1").arg(intero(s.record)),
                    0.01);
        if (sola() && s.presente >= 0 && !s.linea.empty())
            livello(s.presente, Qt::DotLine, tinte_[i], QStringLiteral("oggi %1").arg(intero(s.presente)),
                    0.97);
    }
    // Room for the names of the level lines.
    y->setRange(0, alto * 1.25);
    tutto_ = primo > ultimo ? QCPRange{0, 1} : QCPRange{primo, ultimo};
    const double bordo = std::max(tutto_.size() * 0.015, 1.0);
    tutto_ = QCPRange{tutto_.lower - bordo, tutto_.upper + bordo};
}

void Quadro::adatta_segni() {
    const QCPRange in_vista = linea_->axis(QCPAxis::atBottom)->range();
    for (std::size_t i = 0; i < linee_.size(); ++i) {
        const auto& punti = grafico_.serie[i].linea;
        const auto quanti = std::count_if(
            punti.begin(), punti.end(), [&](const PuntoRitardo& p) { return in_vista.contains(p.concorso); });
        const bool tanti = quanti > kTantiPunti;
        // So many spikes are drawn the quick way: a hair's breadth, without smoothing.
        linee_[i]->setAntialiased(!tanti);
        linee_[i]->setPen(QPen{colore(tinte_[i], tanti ? 255 : 150), tanti ? 1 : kGrossoLinea, kTratti[i]});
        if (tanti)
            linee_[i]->setScatterStyle(QCPScatterStyle::ssNone);
        else
            linee_[i]->setScatterStyle({kSegni[i], QPen{colore(tinte_[i])}, QBrush{colore(tinte_[i])}, 4.5});
    }
}

/// A level line with its name over it, `dove` along the width.
void Quadro::livello(double valore, Qt::PenStyle tratto, QRgb tinta, const QString& testo, double dove) {
    auto* riga = new QCPItemStraightLine{this};
    riga->setClipAxisRect(linea_);
    for (QCPItemPosition* p : {riga->point1, riga->point2}) {
        p->setAxisRect(linea_);
        p->setAxes(linea_->axis(QCPAxis::atBottom), linea_->axis(QCPAxis::atLeft));
        p->setTypeX(QCPItemPosition::ptAxisRectRatio);
        p->setTypeY(QCPItemPosition::ptPlotCoords);
    }
    riga->point1->setCoords(0, valore);
    riga->point2->setCoords(1, valore);
    riga->setPen(QPen{colore(tinta), 1, tratto});
    auto* nome = new QCPItemText{this};
    nome->setClipAxisRect(linea_);
    nome->position->setAxisRect(linea_);
    nome->position->setAxes(linea_->axis(QCPAxis::atBottom), linea_->axis(QCPAxis::atLeft));
    nome->position->setTypeX(QCPItemPosition::ptAxisRectRatio);
    nome->position->setTypeY(QCPItemPosition::ptPlotCoords);
    nome->position->setCoords(dove, valore);
    nome->setPositionAlignment(Qt::AlignBottom | (dove < 0.3   ? Qt::AlignLeft
                                                  : dove > 0.7 ? Qt::AlignRight
                                                               : Qt::AlignHCenter));
    nome->setText(testo);
    nome->setFont(piccolo_);
    nome->setColor(colore(colori_.testo));
    nome->setBrush(QBrush{colore(colori_.fondo, 190)});
    nome->setPadding({3, 0, 3, 0});
}

QCPBars* Quadro::barre(QCPAxisRect* riquadro, std::size_t serie, double larghezza) {
    auto* b = new QCPBars{riquadro->axis(QCPAxis::atBottom), riquadro->axis(QCPAxis::atLeft)};
    b->setWidth(larghezza);
    b->setPen(QPen{colore(tinte_[serie]), 0});
    b->setBrush(QBrush{colore(tinte_[serie], sola() ? 110 : 150), kTrame[serie]});
    return b;
}

QCPGraph* Quadro::curva(QCPAxisRect* riquadro, std::size_t serie) {
    QCPGraph* g = addGraph(riquadro->axis(QCPAxis::atBottom), riquadro->axis(QCPAxis::atLeft));
    g->setPen(QPen{colore(sola() ? colori_.testo : tinte_[serie]), 1.6, kTratti[serie]});
    return g;
}

void Quadro::disegna_barre() {
    double alto = 1;
    double fine = 0;
    auto* gruppo = new QCPBarsGroup{this};
    for (std::size_t i = 0; i < grafico_.serie.size(); ++i) {
        const auto& barre_sue = grafico_.serie[i].barre;
        QVector<double> xs;
        QVector<double> ys;
        QVector<double> legge;
        for (const BarraRitardi& b : barre_sue) {
            xs.push_back((b.da + b.a) / 2.0);
            ys.push_back(b.quanti);
            legge.push_back(b.attesi);
            alto = std::max({alto, static_cast<double>(b.quanti), b.attesi});
            fine = std::max(fine, b.a + 0.5);
        }
        const double larga = barre_sue.empty() ? 1 : barre_sue.front().a - barre_sue.front().da + 1;
        QCPBars* b = barre(ritardi_, i, larga * 0.86 / static_cast<double>(grafico_.serie.size()));
        b->setBarsGroup(gruppo);
        b->setData(xs, ys, true);
        curva(ritardi_, i)->setData(xs, legge, true);
    }
    gruppo->setSpacing(0);
    ritardi_->axis(QCPAxis::atBottom)->setRange(-0.5, std::max(fine, 1.0));
    ritardi_->axis(QCPAxis::atLeft)->setRange(0, alto * 1.1);
}

void Quadro::disegna_anni() {
    double alto = 1;
    QCPRange anni{0, 1};
    auto* gruppo = new QCPBarsGroup{this};
    gruppo->setSpacing(0);
    for (std::size_t i = 0; i < grafico_.serie.size(); ++i) {
        QVector<double> xs;
        QVector<double> ys;
        QVector<double> legge;
        for (const BarraAnno& a : grafico_.serie[i].anni) {
            xs.push_back(a.anno);
            ys.push_back(a.colpi);
            legge.push_back(a.attesi);
            alto = std::max({alto, static_cast<double>(a.colpi), a.attesi});
        }
        if (!xs.empty()) anni = {xs.front() - 0.6, xs.back() + 0.6};
        QCPBars* b = barre(anni_, i, 0.86 / static_cast<double>(grafico_.serie.size()));
        b->setBarsGroup(gruppo);
        b->setData(xs, ys, true);
        curva(anni_, i)->setData(xs, legge, true);
    }
    class SegniAnno final : public SegniInteri {
      protected:
        QString getTickLabel(double dove, const QLocale&, QChar, int) override {
            return QString::number(std::lround(dove));
        }
    };
    anni_->axis(QCPAxis::atBottom)->setTicker(QSharedPointer<SegniAnno>::create());
    anni_->axis(QCPAxis::atBottom)->setRange(anni);
    anni_->axis(QCPAxis::atLeft)->setRange(0, alto * 1.1);
}

void Quadro::rimetti() {
    if (linea_ == nullptr) return;
    linea_->axis(QCPAxis::atBottom)->setRange(tutto_);
    adatta_segni();
    replot(rpQueuedReplot);
}

std::pair<double, double> Quadro::tratto() const {
    if (linea_ == nullptr) return {0, 0};
    const QCPRange r = linea_->axis(QCPAxis::atBottom)->range();
    return {r.lower, r.upper};
}

bool Quadro::tasto(int quale) {
    if (linea_ == nullptr) return false;
    QCPAxis* x = linea_->axis(QCPAxis::atBottom);
    const double passo = x->range().size() / 5;
    switch (quale) {
        case Qt::Key_Plus:
            x->scaleRange(0.7);
            break;
        case Qt::Key_Minus:
            x->scaleRange(1 / 0.7);
            break;
        case Qt::Key_Left:
            x->moveRange(-passo);
            break;
        case Qt::Key_Right:
            x->moveRange(passo);
            break;
        case Qt::Key_Home:
            rimetti();
            return true;
        default:
            return false;
    }
    replot(rpQueuedReplot);
    return true;
}

// ---- under the pointer ----

std::optional<Quadro::Vicino> Quadro::vicino(QPointF dove) const {
    if (linea_ == nullptr || !linea_->rect().contains(dove.toPoint())) return std::nullopt;
    const QCPAxis* x = linea_->axis(QCPAxis::atBottom);
    const QCPAxis* y = linea_->axis(QCPAxis::atLeft);
    double minima = kVicino * kVicino;
    std::optional<Vicino> trovato;
    for (std::size_t i = 0; i < grafico_.serie.size(); ++i)
        for (const PuntoRitardo& p : grafico_.serie[i].linea) {
            const double dx = x->coordToPixel(p.concorso) - dove.x();
            const double dy = y->coordToPixel(p.ritardo) - dove.y();
            if (const double d = dx * dx + dy * dy; d < minima) {
                minima = d;
                trovato = Vicino{i, &p};
            }
        }
    return trovato;
}

QString Quadro::testo_barre(QPointF dove) const {
    const double ritardo = ritardi_->axis(QCPAxis::atBottom)->pixelToCoord(dove.x());
    QStringList righe;
    for (const SerieGrafico& s : grafico_.serie)
        for (const BarraRitardi& b : s.barre)
            if (ritardo >= b.da - 0.5 && ritardo < b.a + 0.5)
                righe << QStringLiteral("%1, ritardi %2: %3 (il caso %4)")
                             .arg(qt(s.nome),
                                  b.da == b.a ? QStringLiteral("di %1").arg(b.da)
                                              : QStringLiteral("da %1 a %2").arg(b.da).arg(b.a),
                                  intero(b.quanti), decimale(b.attesi));
    return righe.join(QLatin1Char{'\n'});
}

QString Quadro::testo_anni(QPointF dove) const {
    const auto anno = static_cast<int>(std::lround(anni_->axis(QCPAxis::atBottom)->pixelToCoord(dove.x())));
    QStringList righe;
    for (const SerieGrafico& s : grafico_.serie)
        for (const BarraAnno& a : s.anni)
            if (a.anno == anno)
                righe << QStringLiteral("%1, %2: %3 %4 (il caso %5)")
                             .arg(qt(s.nome))
                             .arg(a.anno)
                             .arg(intero(a.colpi),
                                  a.colpi == 1 ? QStringLiteral("uscita") : QStringLiteral("uscite"),
                                  decimale(a.attesi));
    return righe.join(QLatin1Char{'\n'});
}

QString Quadro::testo_a(QPointF punto) const {
    if (linea_ == nullptr) return {};
    if (const auto v = vicino(punto))
        return QStringLiteral("%1, concorso %2 del %3: %4 %5")
            .arg(qt(grafico_.serie[v->serie].nome))
            .arg(v->punto->concorso)
            .arg(qt(testo_data(v->punto->data)),
                 v->punto->aperto ? QStringLiteral("oggi manca da") : QStringLiteral("ritardo"),
                 intero(v->punto->ritardo));
    if (ritardi_->rect().contains(punto.toPoint())) return testo_barre(punto);
    if (anni_->rect().contains(punto.toPoint())) return testo_anni(punto);
    return {};
}

/// Rings the point that is meant.
void Quadro::segna(QPointF dove) {
    const auto v = vicino(dove);
    if (segno_ == nullptr && !v) return;
    if (segno_ == nullptr) {
        segno_ = new QCPItemTracer{this};
        segno_->setClipAxisRect(linea_);
        segno_->position->setAxisRect(linea_);
        segno_->position->setAxes(linea_->axis(QCPAxis::atBottom), linea_->axis(QCPAxis::atLeft));
        segno_->position->setType(QCPItemPosition::ptPlotCoords);
        segno_->setStyle(QCPItemTracer::tsCircle);
        segno_->setSize(11);
        segno_->setPen(QPen{colore(colori_.testo), 1.6});
    }
    const bool prima = segno_->visible();
    segno_->setVisible(v.has_value());
    if (v) segno_->position->setCoords(v->punto->concorso, v->punto->ritardo);
    if (v || prima) replot(rpQueuedReplot);
}

void Quadro::mouseMoveEvent(QMouseEvent* evento) {
    QCustomPlot::mouseMoveEvent(evento);
    if (evento->buttons() != Qt::NoButton) return;
    segna(evento->position());
    const QString testo = testo_a(evento->position());
    if (testo.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(evento->globalPosition().toPoint(), testo, this);
}

void Quadro::mouseDoubleClickEvent(QMouseEvent* evento) {
    QCustomPlot::mouseDoubleClickEvent(evento);
    rimetti();
}

void Quadro::leaveEvent(QEvent* evento) {
    QCustomPlot::leaveEvent(evento);
    segna({-1, -1});
}

void Quadro::resizeEvent(QResizeEvent* evento) {
    if (linea_ != nullptr)
        if (auto segni = linea_->axis(QCPAxis::atBottom)->ticker().dynamicCast<SegniAnni>())
            segni->imposta_posto(width());
    QCustomPlot::resizeEvent(evento);
}

void Quadro::dipingi(QCPPainter& pittore, QSize misura) {
    if (auto segni = linea_->axis(QCPAxis::atBottom)->ticker().dynamicCast<SegniAnni>())
        segni->imposta_posto(misura.width());
    toPainter(&pittore, misura.width(), misura.height());
}

}  // namespace sortimetra
