#include "results/risultato.h"

#include "draws/ambito.h"
#include "text/numero.h"
#include "text/testi.h"

#include <algorithm>
#include <numeric>
#include <type_traits>

namespace sortimetra {

namespace {

/// A cell's place in the generic order. Where numbers and text meet, pairwise text comparison would not be
/// transitive; the rank settles it: empty, negative numbers, text below "0", numbers from 0, other text.
struct ChiaveCella {
    int rango = 0;
    double numero = 0;
    std::string testo;

    bool operator<(const ChiaveCella& altra) const {
        if (rango != altra.rango) return rango < altra.rango;
        if (rango == 1 || rango == 3) return numero < altra.numero;
        return testo < altra.testo;
    }
};

ChiaveCella chiave_cella(std::string_view testo) {
    testo = rifila(testo);
    if (testo.empty()) return {};
    if (const auto numero = leggi_numero(testo)) return {numero->valore < 0 ? 1 : 3, numero->valore, {}};
    return {testo.front() < '0' ? 2 : 4, 0, minuscolo(testo)};
}

std::vector<ChiaveCella> chiavi_celle(const std::vector<std::string>& testi) {
    std::vector<ChiaveCella> chiavi;
    chiavi.reserve(testi.size());
    for (const auto& t : testi) chiavi.push_back(chiave_cella(t));
    return chiavi;
}

/// The value's place and its row side by side in one word: words sort several times as fast as rows whose
/// values are looked up, and the row in the low half keeps equal cells in their order.
void ordina_interi(std::vector<std::uint32_t>& ordine, const std::vector<std::int32_t>& valori, Verso verso) {
    // An empty cell comes before anything, "..." between -1 and 0, a number at twice its distance from there.
    const auto posto = [](std::int32_t valore) -> std::uint64_t {
        if (valore == kCellaVuota) return 0;
        constexpr std::int64_t kMezzo = std::int64_t{1} << 32U;
        const std::int64_t doppio = valore == kCellaPuntini ? -1 : std::int64_t{valore} * 2;
        return static_cast<std::uint64_t>(doppio + kMezzo);
    };
    constexpr std::uint64_t kMassimo = (std::uint64_t{1} << 33U) - 1;
    constexpr unsigned kBitRiga = 31;
    std::vector<std::uint64_t> parole(valori.size());
    for (std::size_t i = 0; i < valori.size(); ++i) {
        const std::uint64_t p = posto(valori[ordine[i]]);
        parole[i] = (verso == Verso::crescente ? p : kMassimo - p) << kBitRiga | i;
    }
    std::sort(parole.begin(), parole.end());
    const std::vector<std::uint32_t> prima = ordine;
    for (std::size_t i = 0; i < parole.size(); ++i)
        ordine[i] = prima[parole[i] & ((std::uint64_t{1} << kBitRiga) - 1)];
}

template <class Minore>
void riordina(std::vector<std::uint32_t>& ordine, Verso verso, Minore&& minore) {
    if (verso == Verso::crescente)
        std::stable_sort(ordine.begin(), ordine.end(), minore);
    else
        std::stable_sort(ordine.begin(), ordine.end(), [&](auto a, auto b) { return minore(b, a); });
}

}  // namespace

std::size_t lunghezza(const Colonna& colonna) {
    return std::visit(
        [](const auto& c) -> std::size_t {
            if constexpr (std::is_same_v<std::decay_t<decltype(c)>, ColonnaGruppi>)
                return c.quanti == 0 ? 0 : c.numeri.size() / c.quanti;
            else if constexpr (std::is_same_v<std::decay_t<decltype(c)>, ColonnaVoci>)
                return c.scelte.size();
            else
                return c.valori.size();
        },
        colonna);
}

bool e_numerica(const Colonna& colonna) {
    if (std::holds_alternative<ColonnaInteri>(colonna)) return true;
    const auto* testi = std::get_if<ColonnaTesti>(&colonna);
    const auto* voci = std::get_if<ColonnaVoci>(&colonna);
    if (testi == nullptr && voci == nullptr) return false;
    bool qualcuno = false;
    for (const std::string_view t : voci != nullptr ? voci->voci : testi->valori) {
        const std::string_view cella = rifila(t);
        if (cella.empty() || cella == "...") continue;
        if (!leggi_numero(cella)) return false;
        qualcuno = true;
    }
    return qualcuno;
}

void Tabella::aggiungi_testo(std::string& testo, std::size_t riga, std::size_t colonna) const {
    const Colonna& c = colonne[colonna];
    if (const auto* interi = std::get_if<ColonnaInteri>(&c)) {
        const std::int32_t valore = interi->valori[riga];
        if (valore == kCellaPuntini)
            testo += "...";
        else if (valore != kCellaVuota)
            aggiungi_intero(testo, valore);
    } else if (const auto* gruppi = std::get_if<ColonnaGruppi>(&c)) {
        for (std::size_t i = 0; i < gruppi->quanti; ++i) {
            if (i > 0) testo += gruppi->separatore;
            aggiungi_due_cifre(testo, gruppi->numeri[riga * gruppi->quanti + i]);
        }
    } else if (const auto* voci = std::get_if<ColonnaVoci>(&c)) {
        testo += voci->testo(riga);
    } else {
        testo += std::get<ColonnaTesti>(c).valori[riga];
    }
}

std::string Tabella::testo(std::size_t riga, std::size_t colonna) const {
    std::string t;
    aggiungi_testo(t, riga, colonna);
    return t;
}

Colore Tabella::sfondo(std::size_t riga, std::size_t colonna) const {
    return sfondi.empty() ? kNessunColore : sfondi[riga * n_colonne() + colonna];
}

Colore Tabella::primo_piano(std::size_t riga, std::size_t colonna) const {
    return primi_piani.empty() ? kNessunColore : primi_piani[riga * n_colonne() + colonna];
}

std::size_t Tabella::numeri_per_riga() const {
    if (eventi.quanti != 0 || colonne.empty()) return eventi.quanti;
    if (const auto* gruppi = std::get_if<ColonnaGruppi>(&colonne.front())) return gruppi->quanti;
    return eventi.presenti != 0 && std::holds_alternative<ColonnaInteri>(colonne.front()) ? 1 : 0;
}

Evento Tabella::numeri(std::size_t riga) const {
    Evento e{.gioco = eventi.gioco,
             .presenti = eventi.presenti,
             .conteggio = eventi.conteggio,
             .quanti = static_cast<std::uint8_t>(std::min(numeri_per_riga(), kNumeriEvento)),
             .posti = eventi.posti};
    if (e.quanti == 0) return e;
    if (eventi.quanti != 0)
        std::copy_n(eventi.numeri.data() + riga * eventi.quanti, e.quanti, e.caselle.data());
    else if (const auto* gruppi = std::get_if<ColonnaGruppi>(&colonne.front()))
        std::copy_n(gruppi->numeri.data() + riga * gruppi->quanti, e.quanti, e.caselle.data());
    else
        e.caselle[0] = static_cast<Numero>(std::get<ColonnaInteri>(colonne.front()).valori[riga]);
    return e;
}

std::optional<Evento> Tabella::evento(std::size_t riga) const {
    if (eventi.presenti == 0 || (!eventi.senza.empty() && eventi.senza[riga])) return std::nullopt;
    return numeri(riga);
}

Risultato non_avviata(Messaggio messaggio) {
    Risultato r;
    r.prodotto = false;
    if (!messaggio.testo.empty()) r.messaggi.push_back(std::move(messaggio));
    return r;
}

Risultato non_avviata_in_silenzio(std::string manca) {
    Risultato r = non_avviata({});
    r.note.push_back(std::move(manca));
    return r;
}

Risultato senza_estrazioni() {
    return non_avviata({Avviso::nessuna_estrazione, std::string{kNessunaEstrazione}});
}

namespace {

/// Puts rows that stand in some order into that of a column; rows equal in it stay as they stood.
void riordina_per(const Tabella& tabella, const Criterio& criterio, std::vector<std::uint32_t>& ordine) {
    const auto [colonna, verso] = criterio;
    const Colonna& c = tabella.colonne[colonna];
    if (const auto* interi = std::get_if<ColonnaInteri>(&c)) {
        ordina_interi(ordine, interi->valori, verso);
    } else if (const auto* gruppi = std::get_if<ColonnaGruppi>(&c)) {
        // Two digits each: comparing the numbers compares the texts.
        const std::size_t k = gruppi->quanti;
        riordina(ordine, verso, [&](auto a, auto b) {
            const auto* x = gruppi->numeri.data();
            return std::lexicographical_compare(x + a * k, x + a * k + k, x + b * k, x + b * k + k);
        });
    } else if (const auto* voci = std::get_if<ColonnaVoci>(&c)) {
        const auto& scelte = voci->scelte;
        const auto chiavi = voci->in_ordine ? std::vector<ChiaveCella>{} : chiavi_celle(voci->voci);
        riordina(ordine, verso, [&](auto a, auto b) {
            return voci->in_ordine ? scelte[a] < scelte[b] : chiavi[scelte[a]] < chiavi[scelte[b]];
        });
    } else {
        const auto chiavi = chiavi_celle(std::get<ColonnaTesti>(c).valori);
        riordina(ordine, verso, [&](auto a, auto b) { return chiavi[a] < chiavi[b]; });
    }
}

}  // namespace

std::vector<std::uint32_t> ordina(const Tabella& tabella, std::span<const Criterio> criteri) {
    std::vector<std::uint32_t> ordine(tabella.righe());
    std::iota(ordine.begin(), ordine.end(), 0U);
    // The last first: what a later sort finds equal keeps the order of the one before.
    for (std::size_t i = criteri.size(); i-- > 0;) riordina_per(tabella, criteri[i], ordine);
    return ordine;
}

std::vector<std::uint32_t> ordina(const Tabella& tabella, std::size_t colonna, Verso verso) {
    const Criterio criterio{colonna, verso};
    return ordina(tabella, std::span{&criterio, 1});
}

}  // namespace sortimetra
