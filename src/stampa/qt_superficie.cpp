#include "qt_superficie.h"

#include "printing/fogli.h"
#include "printing/metriche.h"
#include "qt_testi.h"
#include "text/testi.h"
#include "text/utf8.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPen>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace sortimetra {

namespace {

/// Units of the painter in a millimetre and in a point.
constexpr double kUnita = 1440 / 25.4;
constexpr int kUnitaPunto = 20;

Esito errore(int numero, std::string descrizione) {
    return std::unexpected(ErroreDisegno{numero, std::move(descrizione)});
}

QColor colore_qt(Colore c) {
    return QColor{c & 0xFF, c >> 8 & 0xFF, c >> 16 & 0xFF};
}

/// The asked family, then those that have the same widths, then any.
QStringList famiglie(const std::string& nome) {
    const std::string minuscole = minuscolo(nome);
    QStringList lista{QString::fromStdString(nome)};
    if (minuscole.find("courier") != std::string::npos)
        lista << QStringLiteral("Liberation Mono") << QStringLiteral("Cousine");
    else if (minuscole.find("times") != std::string::npos)
        lista << QStringLiteral("Liberation Serif") << QStringLiteral("Tinos");
    else
        lista << QStringLiteral("Liberation Sans") << QStringLiteral("Arimo") << QStringLiteral("Helvetica")
              << QStringLiteral("DejaVu Sans");
    return lista;
}

/// Letters that stand one after the other, each by itself; combining marks and scripts that join their
/// letters are left to Qt's own layout.
bool semplice(char32_t c) {
    return (c >= 0x20 && c < 0x300) || (c >= 0x2000 && c < 0x2200 && c != 0x200D);
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

// ---- fonts ----

SuperficieQt::Stile& SuperficieQt::stile() {
    const Carattere& carattere = stato.carattere;
    if (ultimo_stile_ < stili_.size() && stili_[ultimo_stile_].first == carattere)
        return *stili_[ultimo_stile_].second;
    for (std::size_t i = 0; i < stili_.size(); ++i) {
        if (stili_[i].first == carattere) {
            ultimo_stile_ = i;
            return *stili_[i].second;
        }
    }
    auto nuovo = std::make_unique<Stile>();
    QFont& font = nuovo->font;
    font.setFamilies(famiglie(carattere.famiglia));
    font.setPixelSize(std::clamp(carattere.corpo, 1, 1000) * kUnitaPunto);
    font.setBold(carattere.grassetto);
    font.setItalic(carattere.corsivo);
    font.setUnderline(carattere.sottolineato);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    nuovo->grezzo = QRawFont::fromFont(font);
    nuovo->ascendente = nuovo->grezzo.ascent();
    nuovo->altezza = nuovo->ascendente + nuovo->grezzo.descent();
    stili_.emplace_back(carattere, std::move(nuovo));
    ultimo_stile_ = stili_.size() - 1;
    return *stili_.back().second;
}

const SuperficieQt::Glifo& SuperficieQt::glifo(Stile& stile, char32_t carattere) {
    Glifo& g = carattere < stile.latini.size() ? stile.latini[carattere] : stile.altri[carattere];
    if (g.noto) return g;
    g.noto = true;
    const auto indici = stile.grezzo.glyphIndexesForString(QString::fromUcs4(&carattere, 1));
    if (indici.isEmpty()) return g;
    g.indice = indici.front();
    g.avanzamento = stile.grezzo.advancesForGlyphIndexes({g.indice}).front().x();
    return g;
}

bool SuperficieQt::a_glifi(Stile& stile, std::string_view testo, double& larghezza) {
    larghezza = 0;
    while (!testo.empty()) {
        const char32_t c = prendi_lettera(testo);
        if (!semplice(c)) return false;
        const Glifo& g = glifo(stile, c);
        if (g.indice == 0) return false;
        larghezza += g.avanzamento;
    }
    return true;
}

double SuperficieQt::larghezza(std::string_view testo) {
    Stile& s = stile();
    double unita = 0;
    if (!a_glifi(s, testo, unita)) unita = QFontMetricsF{s.font}.horizontalAdvance(testo_qt(testo));
    return unita / kUnita;
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
    Stile& s = stile();
    // Whole units keep a PDF's coordinates short; a unit is less than a fiftieth of a millimetre.
    double x = std::round(stato.x * kUnita);
    const double y = std::round(stato.y * kUnita + s.ascendente);
    double larga = 0;
    // The line under a run of glyphs would start at the sheet's corner: such texts are few and go their own
    // way.
    const bool glifi = !s.font.underline() && a_glifi(s, testo, larga);
    if (!glifi || stile_raccolto_ != &s || colore_raccolto_ != stato.colore) versa();
    if (glifi) {
        stile_raccolto_ = &s;
        colore_raccolto_ = stato.colore;
        for (std::string_view resto = testo; !resto.empty();) {
            const Glifo& g = glifo(s, prendi_lettera(resto));
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
        return Dimensioni{punti.width() * 25.4 / 96, punti.height() * 25.4 / 96};
    }
    const QImage& punti = disegno.punti;
    const auto misura = [](int quanti, int per_metro) {
        return per_metro > 0 ? quanti * 1000.0 / per_metro : quanti * 25.4 / 96;
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
