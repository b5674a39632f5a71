#include "qt_caratteri.h"

#include "qt_testi.h"
#include "text/testi.h"
#include "text/utf8.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>
#include <string>

namespace sortimetra {

namespace {

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

CaratteriQt::Stile& CaratteriQt::stile(const Carattere& carattere) {
    if (ultimo_ < stili_.size() && stili_[ultimo_].first == carattere) return *stili_[ultimo_].second;
    for (std::size_t i = 0; i < stili_.size(); ++i) {
        if (stili_[i].first == carattere) {
            ultimo_ = i;
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
    ultimo_ = stili_.size() - 1;
    return *stili_.back().second;
}

const CaratteriQt::Glifo& CaratteriQt::glifo(Stile& stile, char32_t carattere) {
    Glifo& g = carattere < stile.latini.size() ? stile.latini[carattere] : stile.altri[carattere];
    if (g.noto) return g;
    g.noto = true;
    const auto indici = stile.grezzo.glyphIndexesForString(QString::fromUcs4(&carattere, 1));
    if (indici.isEmpty()) return g;
    g.indice = indici.front();
    g.avanzamento = stile.grezzo.advancesForGlyphIndexes({g.indice}).front().x();
    return g;
}

bool CaratteriQt::a_glifi(Stile& stile, std::string_view testo, double& larghezza) {
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

double CaratteriQt::larghezza(Stile& stile, std::string_view testo) {
    double unita = 0;
    if (a_glifi(stile, testo, unita)) return unita;
    return QFontMetricsF{stile.font}.horizontalAdvance(testo_qt(testo));
}

}  // namespace sortimetra
