#include "file_carattere.h"

#include "files/file_sicuro.h"

#include <fontconfig/fontconfig.h>

#include <QByteArray>
#include <QString>
#include <memory>
#include <string_view>

namespace sortimetra {

namespace {

constexpr std::size_t kMassimo = std::size_t{64} << 20;

using Modello = std::unique_ptr<FcPattern, void (*)(FcPattern*)>;

const FcChar8* fc(const char* testo) {
    return reinterpret_cast<const FcChar8*>(testo);
}

Modello trova(const CaratteriQt::Stile& stile) {
    Modello voluto{FcPatternCreate(), FcPatternDestroy};
    if (!voluto) return voluto;
    const QByteArray famiglia = stile.grezzo.familyName().toUtf8();
    FcPatternAddString(voluto.get(), FC_FAMILY, fc(famiglia.constData()));
    FcPatternAddInteger(voluto.get(), FC_WEIGHT, stile.font.bold() ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(voluto.get(), FC_SLANT, stile.font.italic() ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcConfigSubstitute(nullptr, voluto.get(), FcMatchPattern);
    FcDefaultSubstitute(voluto.get());
    FcResult esito{};
    return {FcFontMatch(nullptr, voluto.get(), &esito), FcPatternDestroy};
}

/// Whether the file's own table of measures is that of the font in use: its sum over the whole font tells
/// two fonts apart, whatever their names.
bool contiene(const std::string& byte, const CaratteriQt::Stile& stile) {
    const QByteArray tabella = stile.grezzo.fontTable("head");
    return !tabella.isEmpty() &&
           byte.find(std::string_view{tabella.constData(), static_cast<std::size_t>(tabella.size())}) !=
               std::string::npos;
}

}  // namespace

std::optional<std::string> file_carattere(const CaratteriQt::Stile& stile) {
    const Modello trovato = trova(stile);
    FcChar8* nome = nullptr;
    if (!trovato || FcPatternGetString(trovato.get(), FC_FILE, 0, &nome) != FcResultMatch)
        return std::nullopt;
    // What the font lacks is made by Qt from the upright, thin letters.
    int spessore = FC_WEIGHT_REGULAR;
    int pendenza = FC_SLANT_ROMAN;
    FcPatternGetInteger(trovato.get(), FC_WEIGHT, 0, &spessore);
    FcPatternGetInteger(trovato.get(), FC_SLANT, 0, &pendenza);
    if ((spessore > FC_WEIGHT_MEDIUM) != stile.font.bold() ||
        (pendenza != FC_SLANT_ROMAN) != stile.font.italic())
        return std::nullopt;
    std::string percorso{reinterpret_cast<const char*>(nome)};
    const auto byte = leggi_file(percorso, kMassimo);
    constexpr std::string_view kTrueType{"\0\1\0\0", 4};
    if (!byte || !byte->starts_with(kTrueType) || !contiene(*byte, stile)) return std::nullopt;
    return percorso;
}

}  // namespace sortimetra
