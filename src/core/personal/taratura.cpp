#include "personal/taratura.h"

#include "files/file_sicuro.h"
#include "text/campi.h"

#include <fmt/core.h>

#include <cstddef>
#include <span>
#include <string>

namespace sortimetra {

namespace {

constexpr std::size_t kTaraturaMassimo = std::size_t{1} << 20U;
/// The second closing number, which is always the same.
constexpr int kChiusura = 3;

// Default places in hundredths of a millimetre, so that sums stay exact.
constexpr int kPrimaColonna = 2331;
constexpr int kTraColonne = 420;
constexpr int kPrimaFila = 14571;
constexpr int kTraRighe = 425;
/// Six tens stand under each other; the last three begin again below the slip's fold.
constexpr int kRigaDopoPiega = 17971;
constexpr int kDecineSopra = 6;

PuntoSchedina punto(int x, int y) {
    return {static_cast<float>(x) / 100, static_cast<float>(y) / 100};
}

/// Points in a row from (x, y) on.
void in_fila(std::span<PuntoSchedina> punti, int x, int y) {
    for (std::size_t i = 0; i < punti.size(); ++i) punti[i] = punto(x + kTraColonne * static_cast<int>(i), y);
}

/// Calls `visita` for each table in the order of the file.
template <class Taratura, class Visita>
void ogni_tabella(Taratura& t, Visita&& visita) {
    visita(std::span{t.numeri});
    visita(std::span{t.primo_gruppo});
    visita(std::span{t.secondo_gruppo});
    for (auto& tabella : t.poste) visita(std::span{tabella});
    visita(std::span{t.ruote});
    visita(std::span{&t.nazionale, 1});
}

}  // namespace

TaraturaLotto default_taratura_lotto() {
    TaraturaLotto t;
    for (std::size_t i = 0; i < t.numeri.size(); ++i) {
        const int colonna = static_cast<int>(i % 10);
        const int decina = static_cast<int>(i / 10);
        const int y = decina < kDecineSopra ? kPrimaFila + kTraRighe * decina
                                            : kRigaDopoPiega + kTraRighe * (decina - kDecineSopra);
        t.numeri[i] = punto(kPrimaColonna + kTraColonne * colonna, y);
    }
    // Right of the numbers: wheels over the stakes, one line of marks per bet.
    constexpr int kDestra = 9000;
    in_fila(t.ruote, kDestra, kPrimaFila);
    t.nazionale = punto(kDestra + kTraColonne * kRuote, kPrimaFila);
    for (std::size_t s = 0; s < t.poste.size(); ++s)
        in_fila(t.poste[s], kDestra, kPrimaFila + kTraRighe * (2 + static_cast<int>(s)));
    in_fila(t.primo_gruppo, kDestra, kRigaDopoPiega);
    in_fila(t.secondo_gruppo, kDestra, kRigaDopoPiega + kTraRighe);
    return t;
}

std::expected<TaraturaLotto, ErroreArchivio> apri_taratura_lotto(const std::filesystem::path& cartella) {
    const auto file = cartella / kFileTaratura;
    const auto testo = leggi_file(file, kTaraturaMassimo);
    if (!testo) return std::unexpected(testo.error());
    LettoreCampi lettore{*testo};
    TaraturaLotto taratura;
    int rovinata = 0;  // line that cannot be read
    ogni_tabella(taratura, [&](std::span<PuntoSchedina> punti) {
        for (PuntoSchedina& p : punti) {
            if (rovinata != 0) return;
            const int riga = lettore.riga();
            const auto x = lettore.decimale();
            const auto y = x ? lettore.decimale() : std::nullopt;
            if (!y || lettore.riga() != riga + 1) {
                rovinata = riga;
                return;
            }
            p = {*x, *y};
        }
        // The empty line behind the table.
        const int riga = lettore.riga();
        if (!lettore.resto().empty()) rovinata = riga;
    });
    const int ultima = lettore.riga();
    const auto primo = rovinata == 0 ? lettore.intero() : std::nullopt;
    const auto secondo = primo ? lettore.intero() : std::nullopt;
    if (rovinata == 0 && (!secondo || *primo < 1 || *primo > 2)) rovinata = ultima;
    if (rovinata != 0)
        return std::unexpected(ErroreArchivio{
            file, fmt::format(
                      "riga {}: attesi due numeri divisi da una virgola, o la riga vuota dopo ogni tabella. "
                      "Il file resta com'è",
                      rovinata)});
    taratura.due = *primo == 2;
    return taratura;
}

std::expected<void, ErroreArchivio> SALVA_DATI(const std::filesystem::path& cartella,
                                               const TaraturaLotto& taratura) {
    std::string testo;
    ogni_tabella(taratura, [&](std::span<const PuntoSchedina> punti) {
        for (const PuntoSchedina& p : punti) {
            aggiungi_campo(testo, p.x);
            testo += ',';
            aggiungi_campo(testo, p.y);
            testo += kFineRecord;
        }
        testo += kFineRecord;
    });
    testo += fmt::format("{},{}", taratura.due ? 2 : 1, kChiusura);
    testo += kFineRecord;
    return scrivi_file(cartella / kFileTaratura, testo);
}

std::expected<TaraturaLotto, ErroreArchivio> taratura_per_stampa(const std::filesystem::path& cartella) {
    std::error_code errore;
    if (std::filesystem::exists(cartella / kFileTaratura, errore)) return apri_taratura_lotto(cartella);
    const TaraturaLotto predefinita = default_taratura_lotto();
    if (const auto scritta = SALVA_DATI(cartella, predefinita); !scritta)
        return std::unexpected(scritta.error());
    return predefinita;
}

}  // namespace sortimetra
