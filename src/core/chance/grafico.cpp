#include "chance/grafico.h"

#include "chance/legge.h"
#include "files/modulo.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace sortimetra {

namespace {

/// At most so many bars of closed delays: more are not told apart.
constexpr std::int32_t kBarre = 30;

/// The least of 1, 2, 5, 10, 20, 50 … with which delays up to `massimo` fit in `kBarre` bars.
std::int32_t larghezza_barra(std::int32_t massimo) {
    static constexpr std::array<std::int32_t, 3> kPassi{1, 2, 5};
    for (std::int32_t decina = 1;; decina *= 10)
        for (const std::int32_t passo : kPassi)
            if (massimo / (passo * decina) < kBarre) return passo * decina;
}

std::int32_t ritardo_chiuso_massimo(std::span<const Storia> storie) {
    std::int32_t massimo = 0;
    for (const Storia& s : storie)
        for (const ColpoStoria& colpo : s.colpi) massimo = std::max(massimo, colpo.ritardo.value_or(0));
    return massimo;
}

std::vector<PuntoRitardo> linea(const Storia& s) {
    std::vector<PuntoRitardo> punti;
    punti.reserve(s.colpi.size() + 1);
    for (const ColpoStoria& colpo : s.colpi)
        if (colpo.ritardo)
            punti.push_back({.concorso = colpo.concorso, .data = colpo.data, .ritardo = *colpo.ritardo});
    if (!s.vuota)
        punti.push_back(
            {.concorso = s.fine.concorso, .data = s.fine.data, .ritardo = s.ritardo, .aperto = true});
    return punti;
}

/// A closed delay lasts d draws with the probability (1 - q)^d q, q being that of a hit in a draw.
std::vector<BarraRitardi> barre(const Storia& s, std::int32_t massimo) {
    const std::int32_t larghezza = larghezza_barra(massimo);
    std::vector<BarraRitardi> barre;
    for (std::int32_t da = 0; da <= massimo; da += larghezza)
        barre.push_back({.da = da, .a = da + larghezza - 1});
    std::int32_t chiusi = 0;
    for (const ColpoStoria& colpo : s.colpi) {
        if (!colpo.ritardo) continue;
        ++barre[static_cast<std::size_t>(*colpo.ritardo / larghezza)].quanti;
        ++chiusi;
    }
    const Legge legge{s.evento};
    for (BarraRitardi& b : barre)
        b.attesi = chiusi * (legge.probabilita(s.percorso, b.da) - legge.probabilita(s.percorso, b.a + 1));
    return barre;
}

/// Hits by year over the years of all stories.
std::vector<BarraAnno> anni(const Storia& s, int primo, int ultimo) {
    const double media = Legge{s.evento}.media();
    std::vector<BarraAnno> barre;
    for (int anno = primo; anno <= ultimo; ++anno) {
        const auto it = std::find_if(s.anni.begin(), s.anni.end(),
                                     [anno](const Storia::Anno& a) { return a.anno == anno; });
        if (it == s.anni.end())
            barre.push_back({.anno = anno});
        else
            barre.push_back({.anno = anno, .colpi = it->colpi, .attesi = it->righe * media});
    }
    return barre;
}

}  // namespace

Grafico grafico(std::span<const Storia> storie, std::string sottotitolo, bool simulato) {
    Grafico g{.titolo = "Storia", .sottotitolo = std::move(sottotitolo), .simulato = simulato};
    const std::int32_t massimo = ritardo_chiuso_massimo(storie);
    int primo = 0;
    int ultimo = -1;
    for (const Storia& s : storie) {
        if (s.anni.empty()) continue;
        primo = ultimo < primo ? s.anni.front().anno : std::min(primo, s.anni.front().anno);
        ultimo = std::max(ultimo, s.anni.back().anno);
    }
    for (const Storia& s : storie) {
        g.titolo += (g.serie.empty() ? " di " : ", ") + nome_evento(s.evento);
        g.serie.push_back({.nome = nome_evento(s.evento),
                           .linea = linea(s),
                           .record = s.storico,
                           .presente = s.ritardo,
                           .record_atteso = Legge{s.evento}.record_atteso(s.percorso),
                           .barre = barre(s, massimo),
                           .anni = anni(s, primo, ultimo)});
    }
    return g;
}

std::string sottotitolo_grafico(const AmbitoDetto& ambito) {
    const TrattoConcorsi tratto = ambito.proprio ? ambito.proprio->tratto : ambito.tratto;
    std::string testo = fmt::format("{}, concorsi {} - {}", ambito.ruote, tratto.da, tratto.a);
    const auto dal = ambito.proprio ? std::optional{ambito.proprio->dal} : ambito.dal;
    const auto al = ambito.proprio ? std::optional{ambito.proprio->al} : ambito.al;
    if (dal && al) testo += fmt::format(", dal {} al {}", testo_data(*dal), testo_data(*al));
    if (ambito.intervallo != kIntervalli[0].testo && ambito.intervallo != kOre[0])
        testo += ", " + ambito.intervallo;
    return testo;
}

std::optional<FormatoGrafico> formato_grafico(const std::filesystem::path& file) {
    const std::string fine = minuscolo(file.extension().string());
    if (fine == ".svg") return FormatoGrafico::svg;
    if (fine == ".png") return FormatoGrafico::png;
    if (fine == ".pdf") return FormatoGrafico::pdf;
    return std::nullopt;
}

std::expected<void, ErroreArchivio> scrivi_grafico(const Grafico& grafico, const std::filesystem::path& file,
                                                   FormatoGrafico formato) {
    static const auto disegna = apri_modulo(kModuloGrafico);
    if (!disegna) return std::unexpected(disegna.error());
    return reinterpret_cast<DisegnaGrafico (*)()>(*disegna)()(grafico, file, formato);
}

}  // namespace sortimetra
