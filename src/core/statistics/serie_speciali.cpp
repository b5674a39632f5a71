#include "statistics/serie_speciali.h"

#include "draws/ambito.h"
#include "results/risultato.h"
#include "statistics/cinquine_dei_90.h"
#include "statistics/misura_combinazioni.h"
#include "statistics/misura_serie.h"
#include "statistics/misure.h"
#include "statistics/parametri.h"

#include <algorithm>
#include <array>
#include <bit>
#include <memory>
#include <utility>
#include <variant>

namespace sortimetra {

namespace {

/// A decomposition with more members than this is refused: nobody reads it, and its table would not fit the
/// memory of a small machine. All quaterne of the 90 numbers are 2,555,190.
constexpr std::size_t kMembriMassimi = 5'000'000;

/// The first column: the numbers as they stand in the series, or the short labels of the family.
Colonna colonna_membri(const SerieCorrente& serie, const Famiglia& famiglia) {
    if (famiglia.etichetta == EtichettaMembro::numeri) return ColonnaGruppi{serie.colonne, '.', serie.numeri};
    ColonnaTesti testi;
    for (std::size_t i = 0; i < serie.righe(); ++i)
        testi.valori.push_back(etichetta_membro(famiglia, serie, i));
    return testi;
}

Risultato tabella_serie(const VistaEstrazioni& vista, const SerieCorrente& serie, int soglia,
                        const Famiglia& famiglia, Avanzamento& avanzamento) {
    Eventi eventi{.presenti = static_cast<std::uint8_t>(soglia)};
    Colonna membri = colonna_membri(serie, famiglia);
    if (!std::holds_alternative<ColonnaGruppi>(membri)) {
        eventi.quanti = static_cast<std::uint8_t>(serie.colonne);
        eventi.numeri = serie.numeri;
        // "1/9 (90)": the label tells the 90 of the first decina last.
        if (famiglia.etichetta == EtichettaMembro::decina)
            std::rotate(eventi.numeri.begin(), eventi.numeri.begin() + 1,
                        eventi.numeri.begin() + static_cast<std::ptrdiff_t>(serie.colonne));
    }
    return tabella_misure(std::move(membri), misura_serie(vista, serie, soglia, avanzamento), vista.t(),
                          std::move(eventi), titoli_serie(&famiglia));
}

/// The delay of every member on every wheel of a view, wheel by wheel: entry w * members + i. Read from the
/// last draw back, since each wheel's last hit is all that is asked for. A wheel without a hit keeps T.
std::vector<std::int32_t> ritardi_per_ruota(const VistaEstrazioni& vista, const SerieCorrente& serie,
                                            int soglia, std::size_t ruote) {
    const std::size_t membri = serie.righe();
    const Estrazioni t = vista.t();
    std::vector<std::int32_t> ritardi(ruote * membri, t);
    std::vector<bool> trovati(ritardi.size(), false);
    std::size_t mancano = ritardi.size();
    for (std::size_t d = vista.concorsi(); d-- > 0 && mancano > 0;) {
        for (unsigned m = vista.maschera(d); m != 0; m &= m - 1) {
            const auto ruota = static_cast<std::size_t>(std::countr_zero(m));
            const Numero* riga = vista.numeri(d) + ruota * kEstratti;
            if (riga[0] == 0) continue;
            for (std::size_t i = 0; i < membri; ++i) {
                const std::size_t cella = ruota * membri + i;
                if (trovati[cella] || presenti(serie.membro(i), riga) < soglia) continue;
                trovati[cella] = true;
                ritardi[cella] = t - static_cast<std::int32_t>(d + 1);
                --mancano;
            }
        }
    }
    return ritardi;
}

/// The delay of every member on each of the ten wheels, counted over the draws of all ten, and on NAZIONALE,
/// counted over its own rows and blank where it has none. The ticked wheels do not matter.
Risultato decine_a_tutte_le_ruote(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                  const Famiglia& famiglia, const SerieCorrente& serie, int soglia) {
    AmbitoRicerca ambito = domanda.ambito;
    ambito.ruote = SelezioneRuote::tutte();
    const VistaEstrazioni dieci{archivio, ambito};
    if (dieci.vuota()) return senza_estrazioni();
    ambito.ruote = SelezioneRuote::nazionale();
    const VistaEstrazioni nazionale{archivio, ambito};

    const std::size_t membri = serie.righe();
    auto ritardi = ritardi_per_ruota(dieci, serie, soglia, kRuote);
    const auto ultimi = nazionale.vuota() ? std::vector<std::int32_t>(membri, kCellaVuota)
                                          : ritardi_per_ruota(nazionale, serie, soglia, 1);
    ritardi.insert(ritardi.end(), ultimi.begin(), ultimi.end());

    Tabella tabella;
    tabella.titoli = {{"Numeri"}};
    tabella.colonne.push_back(colonna_membri(serie, famiglia));
    for (std::size_t w = 0; w <= kRuote; ++w) {
        tabella.titoli.front().emplace_back(kNomiRuote[w < kRuote ? w : kNazionale].codice);
        const auto inizio = ritardi.begin() + static_cast<std::ptrdiff_t>(w * membri);
        tabella.colonne.emplace_back(ColonnaInteri{{inizio, inizio + static_cast<std::ptrdiff_t>(membri)}});
    }
    Risultato r;
    r.titolo = std::string{famiglia.nome.chiave} + std::string{kTitoloOgniRuota};
    r.tabelle.push_back(std::move(tabella));
    return r;
}

/// Calls `combinazione` for each choice of `k` of `n` places, ascending, the last place fastest.
template <class Combinazione>
void combinazioni(std::size_t n, std::size_t k, Combinazione&& combinazione) {
    if (k > n) return;
    std::array<std::size_t, 5> posti{0, 1, 2, 3, 4};
    while (true) {
        combinazione(std::span{posti}.first(k));
        std::size_t p = k;
        while (p > 0 && posti[p - 1] == n - k + p - 1) --p;
        if (p == 0) return;
        ++posti[p - 1];
        for (; p < k; ++p) posti[p] = posti[p - 1] + 1;
    }
}

/// How many combinations there are, or one more than `kMembriMassimi` where there are more.
std::size_t quante_combinazioni(std::size_t n, std::size_t k) {
    if (k > n) return 0;
    std::size_t quante = 1;
    for (std::size_t i = 1; i <= k; ++i) {
        quante = quante * (n - k + i) / i;
        if (quante > kMembriMassimi) return kMembriMassimi + 1;
    }
    return quante;
}

}  // namespace

const std::vector<std::string>& titoli_serie(const Famiglia* famiglia) {
    return famiglia != nullptr && famiglia->titoli_brevi ? kTitoliMisureBrevi : kTitoliMisure;
}

std::expected<void, Messaggio> carica_cinquine(const std::filesystem::path& cartella, Domanda& domanda) {
    if (auto serie = leggi_cinquine_dei_90(cartella))
        domanda.parametri.per<ParametriStatistica>().cinquine =
            std::make_shared<const SerieCorrente>(std::move(*serie));
    return {};
}

Risultato serie_speciali(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                         Avanzamento& avanzamento) {
    const Famiglia& famiglia = *domanda.ricerca->famiglia;
    const auto& parametri = domanda.di<ParametriStatistica>();
    const bool ogni_ruota = parametri.tutte_le_ruote && !famiglia.descrizione.empty();
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota() && !ogni_ruota) return senza_estrazioni();
    if (famiglia.su_file && !parametri.cinquine)
        return non_avviata({Avviso::file_danneggiato, std::string{kFileDanneggiato}});
    const SerieCorrente serie = famiglia.su_file ? *parametri.cinquine : carica_serie(famiglia);

    const int soglia = parametri.tipo == 0 ? 1 : 2;
    Risultato r = ogni_ruota ? decine_a_tutte_le_ruote(archivio, domanda, famiglia, serie, soglia)
                             : tabella_serie(vista, serie, soglia, famiglia, avanzamento);
    if (r.prodotto && !famiglia.descrizione.empty())
        r.etichette.push_back({"descrizione", std::string{famiglia.descrizione}});
    return r;
}

SerieCorrente scomposizione_gruppo(std::span<const Numero> numeri, int k) {
    SerieCorrente serie;
    if (k < 1 || k > 5) return serie;
    serie.colonne = static_cast<std::size_t>(k);
    serie.numeri.reserve(quante_combinazioni(numeri.size(), serie.colonne) * serie.colonne);
    combinazioni(numeri.size(), serie.colonne, [&](std::span<const std::size_t> posti) {
        for (const std::size_t p : posti) serie.numeri.push_back(numeri[p]);
    });
    return serie;
}

Risultato scomposizione(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                        Avanzamento& avanzamento) {
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();
    std::vector<Numero> numeri;
    const auto& parametri = domanda.di<ParametriStatistica>();
    for (const int n : parametri.numeri)
        if (n >= 1 && n <= kNumeri) numeri.push_back(static_cast<Numero>(n));
    const int k = parametri.sorte;
    if (k >= 1 && quante_combinazioni(numeri.size(), static_cast<std::size_t>(k)) > kMembriMassimi)
        return non_avviata({Avviso::troppe_combinazioni, "Troppe combinazioni: scegliere meno numeri"});
    SerieCorrente serie = scomposizione_gruppo(numeri, k);
    const int soglia = parametri.tipo + 1;
    const auto misure = misura_combinazioni(vista, numeri, serie, soglia, avanzamento);
    return tabella_misure(ColonnaGruppi{serie.colonne, '.', std::move(serie.numeri)}, misure, vista.t(),
                          {.presenti = static_cast<std::uint8_t>(soglia)}, titoli_serie(nullptr));
}

}  // namespace sortimetra
