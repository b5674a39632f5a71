#include "statistics/famiglie.h"

#include "statistics/tabella_famiglie.h"
#include "text/testi.h"

#include <algorithm>

namespace sortimetra {

std::span<const Famiglia> famiglie() {
    return dettaglio::kFamiglie;
}

const Famiglia* trova_caricatore(std::string_view carica) {
    const auto it = std::find_if(dettaglio::kFamiglie.begin(), dettaglio::kFamiglie.end(),
                                 [&](const Famiglia& f) { return f.carica == carica; });
    return it == dettaglio::kFamiglie.end() ? nullptr : &*it;
}

SerieCorrente carica_serie(const Famiglia& famiglia) {
    return famiglia.su_file ? SerieCorrente{.colonne = famiglia.colonne} : dettaglio::componi(famiglia);
}

std::string etichetta_membro(const Famiglia& famiglia, const SerieCorrente& serie, std::size_t i) {
    const auto membro = serie.membro(i);
    std::string testo;
    switch (famiglia.etichetta) {
        case EtichettaMembro::numeri:
            break;
        case EtichettaMembro::decina:
            if (i == 0) return "1/9 (90)";
            [[fallthrough]];
        case EtichettaMembro::primo_ultimo:
            aggiungi_intero(testo, membro.front());
            testo += '/';
            aggiungi_intero(testo, membro.back());
            break;
        case EtichettaMembro::cifra:
            if (i + 1 == serie.righe()) return "9/0";
            aggiungi_intero(testo, membro.front());
            break;
    }
    return testo;
}

}  // namespace sortimetra
