#include "tracciati_pdf.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace sortimetra {

namespace {

/// A side of the square that a picture is drawn in before it is scaled: its coordinates then need few
/// decimals.
constexpr int kLato = 10000;

/// Takes paths from a painter and notes when it was asked for anything else.
class MotoreTracciati final : public QPaintEngine {
  public:
    MotoreTracciati() : QPaintEngine{QPaintEngine::AllFeatures} {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    [[nodiscard]] Type type() const override { return QPaintEngine::User; }
    void drawPath(const QPainterPath& percorso) override;
    void drawPolygon(const QPointF* punti, int quanti, PolygonDrawMode modo) override;
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override { solo_percorsi_ = false; }
    void drawTextItem(const QPointF&, const QTextItem&) override { solo_percorsi_ = false; }

    [[nodiscard]] bool solo_percorsi() const { return solo_percorsi_; }
    [[nodiscard]] const std::string& contenuto() const { return contenuto_; }

  private:
    std::string contenuto_;
    bool solo_percorsi_ = true;
};

bool pieno(const QBrush& pennello) {
    return pennello.style() == Qt::SolidPattern && pennello.color().alpha() == 255;
}

void MotoreTracciati::drawPath(const QPainterPath& percorso) {
    const QPainter& p = *painter();
    const bool riempie = p.brush().style() != Qt::NoBrush;
    const bool traccia = p.pen().style() != Qt::NoPen;
    if ((riempie && !pieno(p.brush())) || (traccia && !pieno(p.pen().brush())) || p.opacity() < 1 ||
        p.hasClipping())
        solo_percorsi_ = false;
    if (!riempie && !traccia) return;
    const QTransform& t = p.transform();
    contenuto_ += "q ";
    for (const double numero : {t.m11(), t.m12(), t.m21(), t.m22(), t.dx(), t.dy()}) {
        aggiungi_numero(contenuto_, numero);
        contenuto_ += ' ';
    }
    contenuto_ += "cm\n";
    if (riempie) aggiungi_colore(contenuto_, p.brush().color(), "rg");
    if (traccia) aggiungi_penna(contenuto_, p.pen());
    aggiungi_percorso(contenuto_, percorso);
    const bool alterno = percorso.fillRule() == Qt::OddEvenFill;
    contenuto_ += !riempie ? "S" : traccia ? (alterno ? "B*" : "B") : (alterno ? "f*" : "f");
    contenuto_ += "\nQ\n";
}

void MotoreTracciati::drawPolygon(const QPointF* punti, int quanti, PolygonDrawMode modo) {
    if (quanti < 1) return;
    QPainterPath percorso{punti[0]};
    for (int i = 1; i < quanti; ++i) percorso.lineTo(punti[i]);
    if (modo == PolylineMode) {
        solo_percorsi_ = solo_percorsi_ && painter()->brush().style() == Qt::NoBrush;
    } else {
        percorso.closeSubpath();
        percorso.setFillRule(modo == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
    }
    drawPath(percorso);
}

class FoglioTracciati final : public QPaintDevice {
  public:
    [[nodiscard]] QPaintEngine* paintEngine() const override { return &motore_; }
    [[nodiscard]] const MotoreTracciati& motore() const { return motore_; }

  protected:
    [[nodiscard]] int metric(PaintDeviceMetric quale) const override {
        switch (quale) {
            case PdmWidth:
            case PdmHeight:
            case PdmWidthMM:
            case PdmHeightMM:
                return kLato;
            case PdmDevicePixelRatio:
            case PdmDepth:
                return 1;
            case PdmDevicePixelRatioScaled:
                return static_cast<int>(devicePixelRatioFScale());
            default:
                return 96;  // dots per inch
        }
    }

  private:
    mutable MotoreTracciati motore_;
};

}  // namespace

void aggiungi_numero(std::string& contenuto, double numero) {
    // Whatever a library may read: no exponent, and nothing that is no number.
    const double entro = std::isfinite(numero) ? std::clamp(numero, -1e7, 1e7) : 0;
    const long long decimillesimi = std::llround(entro * 10000);
    std::array<char, 24> cifre{};
    char* fine = cifre.data();
    if (decimillesimi < 0) *fine++ = '-';
    const long long intero = std::abs(decimillesimi);
    fine = std::to_chars(fine, cifre.data() + cifre.size(), intero / 10000).ptr;
    if (long long resto = intero % 10000; resto != 0) {
        *fine++ = '.';
        for (long long peso = 1000; resto != 0; resto %= peso, peso /= 10)
            *fine++ = static_cast<char>('0' + resto / peso);
    }
    contenuto.append(cifre.data(), fine);
}

void aggiungi_colore(std::string& contenuto, const QColor& colore, std::string_view operatore) {
    for (const double parte : {colore.redF(), colore.greenF(), colore.blueF()}) {
        aggiungi_numero(contenuto, parte);
        contenuto += ' ';
    }
    contenuto += operatore;
    contenuto += '\n';
}

void aggiungi_penna(std::string& contenuto, const QPen& penna) {
    aggiungi_colore(contenuto, penna.color(), "RG");
    const double larga = penna.widthF();
    aggiungi_numero(contenuto, larga);
    contenuto += " w ";
    contenuto += penna.capStyle() == Qt::RoundCap ? '1' : penna.capStyle() == Qt::SquareCap ? '2' : '0';
    contenuto += " J ";
    contenuto += penna.joinStyle() == Qt::RoundJoin ? '1' : penna.joinStyle() == Qt::BevelJoin ? '2' : '0';
    contenuto += " j [";
    const QList<qreal> tratti = penna.dashPattern();  // in widths of the pen
    for (const double tratto : tratti) {
        aggiungi_numero(contenuto, tratto * larga);
        contenuto += ' ';
    }
    contenuto += "] 0 d\n";
}

void aggiungi_percorso(std::string& contenuto, const QPainterPath& percorso) {
    const auto punto = [&](const QPainterPath::Element& e) {
        aggiungi_numero(contenuto, e.x);
        contenuto += ' ';
        aggiungi_numero(contenuto, e.y);
        contenuto += ' ';
    };
    QPointF inizio;
    for (int i = 0; i < percorso.elementCount(); ++i) {
        const QPainterPath::Element e = percorso.elementAt(i);
        switch (e.type) {
            case QPainterPath::MoveToElement:
                inizio = e;
                punto(e);
                contenuto += "m\n";
                break;
            case QPainterPath::LineToElement:
                // A line back to where it began closes, so that the corner there is joined.
                if (QPointF{e} == inizio &&
                    (i + 1 == percorso.elementCount() || percorso.elementAt(i + 1).isMoveTo())) {
                    contenuto += "h\n";
                } else {
                    punto(e);
                    contenuto += "l\n";
                }
                break;
            case QPainterPath::CurveToElement:
                punto(e);
                punto(percorso.elementAt(i + 1));
                punto(percorso.elementAt(i + 2));
                contenuto += "c\n";
                i += 2;
                break;
            case QPainterPath::CurveToDataElement:
                break;
        }
    }
}

std::optional<std::string> tracciati(QSvgRenderer& disegno) {
    FoglioTracciati foglio;
    QPainter pittore;
    if (!disegno.isValid() || !pittore.begin(&foglio)) return std::nullopt;
    disegno.render(&pittore, QRectF{0, 0, kLato, kLato});
    pittore.end();
    if (!foglio.motore().solo_percorsi()) return std::nullopt;
    std::string contenuto;
    aggiungi_numero(contenuto, 1.0 / kLato);
    contenuto += " 0 0 ";
    aggiungi_numero(contenuto, 1.0 / kLato);
    contenuto += " 0 0 cm\n";
    return contenuto + foglio.motore().contenuto();
}

}  // namespace sortimetra
