#include "qt_superficie.h"

#include "printing/fogli.h"
#include "printing/metriche.h"
#include "qt_testi.h"
#include "text/utf8.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPen>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace sortimetra {

namespace {

Esito errore(int numero, std::string descrizione) {
    return std::unexpected(ErroreDisegno{numero, std::move(descrizione)});
}

}  // namespace

SuperficieQt::SuperficieQt(QPagedPaintDevice& dispositivo) : dispositivo_{&dispositivo}, pittore_{&proprio_} {
    leggi_foglio();
    const QPageLayout layout = dispositivo.pageLayout();
    const QSizeF misure = layout.pageSize().size(QPageSize::Millimeter);
    lavoro_.foglio = codice_foglio({misure.width(), misure.height()});
    lavoro_.orientamento =
        layout.orientation() == QPageLayout::Landscape ? Orientamento::orizzontale : Orientamento::verticale;
}

SuperficieQt::SuperficieQt(QPainter& pittore, Dimensioni misure, Orientamento orientamento)
    : pittore_{&pittore}, foglio_{misure.larghezza, misure.altezza, 0, 0} {
    lavoro_.foglio = codice_foglio(misure);
    lavoro_.orientamento = orientamento;
    pittore_->save();
    pittore_->scale(1 / kUnita, 1 / kUnita);
}

SuperficieQt::~SuperficieQt() {
    if (dispositivo_ == nullptr) {
        versa();
        pittore_->restore();
    } else if (proprio_.isActive()) {
        annulla();
    }
}

void SuperficieQt::leggi_foglio() {
    const QPageLayout layout = dispositivo_->pageLayout();
    const QRectF intero = layout.fullRect(QPageLayout::Millimeter);
    foglio_ = {intero.width(), intero.height(), 0, 0};
    if (layout.mode() == QPageLayout::StandardMode) {
        const QMarginsF margini = layout.margins(QPageLayout::Millimeter);
        foglio_.scostamento_x = margini.left();
        foglio_.scostamento_y = margini.top();
    }
}

void SuperficieQt::imposta(const Lavoro& lavoro) {
    const Lavoro prima = std::exchange(lavoro_, lavoro);
    if (dispositivo_ == nullptr) return;
    if (lavoro.foglio != prima.foglio)
        if (const auto misure = misure_foglio(lavoro.foglio))
            dispositivo_->setPageSize(QPageSize{QSizeF{misure->larghezza, misure->altezza},
                                                QPageSize::Millimeter, QString{}, QPageSize::FuzzyMatch});
    if (lavoro.orientamento != prima.orientamento)
        dispositivo_->setPageOrientation(lavoro.orientamento == Orientamento::orizzontale
                                             ? QPageLayout::Landscape
                                             : QPageLayout::Portrait);
    if (!proprio_.isActive()) {
        imposta_dispositivo(lavoro);
        leggi_foglio();
    }
}

int SuperficieQt::n_caratteri() const {
    return static_cast<int>(QFontDatabase::families().size());
}

std::string SuperficieQt::nome_carattere(int i) const {
    const QStringList nomi = QFontDatabase::families();
    return i >= 0 && i < nomi.size() ? nomi[i].toStdString() : std::string{};
}

double SuperficieQt::larghezza(std::string_view testo) {
    return CaratteriQt::larghezza(stile(), testo) / kUnita;
}

double SuperficieQt::altezza(std::string_view) {
    return stile().altezza / kUnita;
}

// ---- drawing ----

Esito SuperficieQt::comincia() {
    if (dispositivo_ == nullptr || proprio_.isActive()) return {};
    if (!proprio_.begin(dispositivo_)) return errore(kErroreStampante, "La stampante non risponde");
    // The device's own unit differs from printer to printer.
    proprio_.scale(dispositivo_->logicalDpiX() / 1440.0, dispositivo_->logicalDpiY() / 1440.0);
    proprio_.setBrush(Qt::NoBrush);
    proprio_.setRenderHint(QPainter::Antialiasing);
    return {};
}

void SuperficieQt::versa() {
    if (glifi_.isEmpty()) return;
    QGlyphRun gruppo;
    gruppo.setRawFont(stile_raccolto_->grezzo);
    gruppo.setGlyphIndexes(glifi_);
    gruppo.setPositions(posti_);
    pittore_->setPen(colore_qt(colore_raccolto_));
    pittore_->drawGlyphRun(QPointF{0, 0}, gruppo);
    glifi_.clear();
    posti_.clear();
}

Esito SuperficieQt::scrivi(std::string_view testo) {
    if (const auto inizio = comincia(); !inizio) return inizio;
    CaratteriQt::Stile& s = stile();
    // Whole units keep a PDF's coordinates short; a unit is less than a fiftieth of a millimetre.
    double x = std::round(stato.x * kUnita);
    const double y = std::round(stato.y * kUnita + s.ascendente);
    double larga = 0;
    // The line under a run of glyphs would start at the sheet's corner: such texts are few and go their own
    // way.
    const bool glifi = !s.font.underline() && CaratteriQt::a_glifi(s, testo, larga);
    if (!glifi || stile_raccolto_ != &s || colore_raccolto_ != stato.colore) versa();
    if (glifi) {
        stile_raccolto_ = &s;
        colore_raccolto_ = stato.colore;
        for (std::string_view resto = testo; !resto.empty();) {
            const CaratteriQt::Glifo& g = CaratteriQt::glifo(s, prendi_lettera(resto));
            glifi_.append(g.indice);
            posti_.append(QPointF{std::round(x), y});
            x += g.avanzamento;
        }
    } else {
        const QString riga = testo_qt(testo);
        larga = QFontMetricsF{s.font}.horizontalAdvance(riga);
        pittore_->setFont(s.font);
        pittore_->setPen(colore_qt(stato.colore));
        pittore_->drawText(QPointF{x, y}, riga);
    }
    stato.x += larga / kUnita;
    return {};
}

/// Ready to draw lines in the current colour, style and width.
Esito SuperficieQt::prepara_tratto() {
    if (const auto inizio = comincia(); !inizio) return inizio;
    versa();
    constexpr std::array kStili{Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
    const Qt::PenStyle tratto = stato.stile >= 0 && static_cast<std::size_t>(stato.stile) < kStili.size()
                                    ? kStili[static_cast<std::size_t>(stato.stile)]
                                    : Qt::SolidLine;
    const QPen penna{colore_qt(stato.colore), std::max(stato.spessore, 1) * kPunto * kUnita, tratto,
                     Qt::FlatCap, Qt::MiterJoin};
    pittore_->setPen(penna);
    return {};
}

Esito SuperficieQt::linea(double x1, double y1, double x2, double y2) {
    if (const auto pronto = prepara_tratto(); !pronto) return pronto;
    pittore_->drawLine(QPointF{x1 * kUnita, y1 * kUnita}, QPointF{x2 * kUnita, y2 * kUnita});
    return {};
}

Esito SuperficieQt::rettangolo(double x1, double y1, double x2, double y2) {
    if (const auto pronto = prepara_tratto(); !pronto) return pronto;
    pittore_->drawRect(QRectF{QPointF{x1 * kUnita, y1 * kUnita}, QPointF{x2 * kUnita, y2 * kUnita}});
    return {};
}

Esito SuperficieQt::arco(double centro_x, double centro_y, double raggio, double da, double a) {
    if (const auto pronto = prepara_tratto(); !pronto) return pronto;
    const auto sedicesimi = [](double radianti) {
        return static_cast<int>(std::lround(radianti * 180 * 16 / std::numbers::pi));
    };
    const double r = raggio * kUnita;
    pittore_->drawArc(QRectF{centro_x * kUnita - r, centro_y * kUnita - r, 2 * r, 2 * r}, sedicesimi(da),
                      sedicesimi(a - da));
    return {};
}

// ---- pictures ----

const SuperficieQt::Disegno& SuperficieQt::carica(const Immagine& immagine) {
    const auto [posto, nuovo] = immagini_.try_emplace(immagine.dati.data());
    Disegno& disegno = posto->second;
    if (!nuovo) return disegno;
    const auto dati =
        QByteArray::fromRawData(immagine.dati.data(), static_cast<qsizetype>(immagine.dati.size()));
    if (immagine.dati.substr(0, 1024).find("<svg") != std::string_view::npos)
        disegno.svg = std::make_unique<QSvgRenderer>(dati);
    else
        disegno.punti = QImage::fromData(dati);
    return disegno;
}

std::expected<Dimensioni, ErroreDisegno> SuperficieQt::dimensioni(const Immagine& immagine) {
    const Disegno& disegno = carica(immagine);
    if (!disegno.valido()) return std::unexpected(ErroreDisegno{kErroreImmagine, "Immagine non valida"});
    if (disegno.svg) {
        const QSize punti = disegno.svg->defaultSize();  // at 90 or 96 dots per inch, as the file tells
        return Dimensioni{punti.width() * kPollice / 96, punti.height() * kPollice / 96};
    }
    const QImage& punti = disegno.punti;
    const auto misura = [](int quanti, int per_metro) {
        return per_metro > 0 ? quanti * 1000.0 / per_metro : quanti * kPollice / 96;
    };
    return Dimensioni{misura(punti.width(), punti.dotsPerMeterX()),
                      misura(punti.height(), punti.dotsPerMeterY())};
}

Esito SuperficieQt::disegna(const Immagine& immagine, double x, double y, Dimensioni misure) {
    const Disegno& disegno = carica(immagine);
    if (!disegno.valido()) return errore(kErroreImmagine, "Immagine non valida");
    if (const auto inizio = comincia(); !inizio) return inizio;
    versa();
    const QRectF riquadro{x * kUnita, y * kUnita, misure.larghezza * kUnita, misure.altezza * kUnita};
    if (disegno.svg)
        disegno.svg->render(pittore_, riquadro);
    else
        pittore_->drawImage(riquadro, disegno.punti);
    return {};
}

// ---- pages ----

Esito SuperficieQt::nuova_pagina() {
    if (dispositivo_ == nullptr) return {};
    if (const auto inizio = comincia(); !inizio) return inizio;  // a first page may stay empty
    versa();
    if (!dispositivo_->newPage()) return errore(kErroreStampante, "La stampante non accetta un'altra pagina");
    ++pagina_;
    leggi_foglio();
    return {};
}

Esito SuperficieQt::fine() {
    if (dispositivo_ == nullptr) return {};
    if (const auto inizio = comincia(); !inizio) return inizio;  // a document has at least one page
    versa();
    if (!proprio_.end()) return errore(kErroreStampante, "La stampante non ha finito il documento");
    return {};
}

void SuperficieQt::annulla() {
    glifi_.clear();
    posti_.clear();
    if (dispositivo_ == nullptr || !proprio_.isActive()) return;
    annulla_dispositivo();
    proprio_.end();
}

}  // namespace sortimetra
