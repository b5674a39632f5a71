#include "results/selezione.h"

#include "results/opzione.h"
#include "results/risultato.h"
#include "text/numero.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

namespace sortimetra {

namespace {

/// The titles a column goes by: its own cell of every title row.
bool si_chiama(const Tabella& tabella, std::size_t colonna, const std::string& piegato) {
    return std::any_of(tabella.titoli.begin(), tabella.titoli.end(), [&](const auto& titoli) {
        return colonna < titoli.size() && piega_nome(titoli[colonna]) == piegato;
    });
}

/// The titles of the lowest title row, for an error.
std::string titoli_offerti(const Tabella& tabella) {
    std::string offerti;
    for (std::size_t c = 0; c < tabella.n_colonne(); ++c) {
        std::string_view titolo;
        for (const auto& titoli : tabella.titoli)
            if (c < titoli.size() && !rifila(titoli[c]).empty()) titolo = rifila(titoli[c]);
        if (titolo.empty()) continue;
        if (!offerti.empty()) offerti += ", ";
        offerti += titolo;
    }
    return offerti;
}

std::string_view senza_virgolette(std::string_view testo) {
    testo = rifila(testo);
    if (testo.size() >= 2 && testo.front() == '"' && testo.back() == '"') {
        testo.remove_prefix(1);
        testo.remove_suffix(1);
    }
    return testo;
}

// ---- expressions ----

enum class Segno : std::uint8_t {
    minore,
    minore_uguale,
    maggiore,
    maggiore_uguale,
    uguale,
    diverso,
    contiene
};

struct SegnoScritto {
    std::string_view testo;
    Segno segno;
};
/// The longer ones first: "<=" begins with "<".
constexpr std::array<SegnoScritto, 6> kSegni{{{"<=", Segno::minore_uguale},
                                              {">=", Segno::maggiore_uguale},
                                              {"!=", Segno::diverso},
                                              {"<", Segno::minore},
                                              {">", Segno::maggiore},
                                              {"=", Segno::uguale}}};

/// One comparison, ready to be asked of rows.
struct Confronto {
    std::size_t colonna = 0;
    Segno segno = Segno::uguale;
    std::optional<double> numero{};
    std::string piegato{};
};

/// A word of its own at a place outside quotes: a blank before it, a blank or the end behind.
bool parola_a(std::string_view testo, std::size_t i, std::string_view parola) {
    const auto bianco = [](char c) { return c == ' ' || c == '\t'; };
    return i > 0 && bianco(testo[i - 1]) && minuscolo(testo.substr(i, parola.size())) == parola &&
           (i + parola.size() == testo.size() || bianco(testo[i + parola.size()]));
}

/// The pieces between occurrences of a word that stand outside quotes.
std::vector<std::string_view> dividi(std::string_view testo, std::string_view parola) {
    std::vector<std::string_view> pezzi;
    std::size_t inizio = 0;
    bool virgolette = false;
    for (std::size_t i = 0; i < testo.size(); ++i) {
        if (testo[i] == '"') virgolette = !virgolette;
        if (virgolette || !parola_a(testo, i, parola)) continue;
        pezzi.push_back(testo.substr(inizio, i - inizio));
        inizio = i + parola.size();
        i = inizio - 1;
    }
    pezzi.push_back(testo.substr(inizio));
    return pezzi;
}

/// Where the sign of a comparison stands, and which; nothing without one.
std::optional<std::pair<std::size_t, SegnoScritto>> trova_segno(std::string_view testo) {
    constexpr std::string_view kContiene = "contiene";
    bool virgolette = false;
    for (std::size_t i = 0; i < testo.size(); ++i) {
        if (testo[i] == '"') virgolette = !virgolette;
        if (virgolette) continue;
        for (const SegnoScritto& s : kSegni)
            if (testo.substr(i).starts_with(s.testo)) return std::pair{i, s};
        if (parola_a(testo, i, kContiene)) return std::pair{i, SegnoScritto{kContiene, Segno::contiene}};
    }
    return std::nullopt;
}

std::expected<Confronto, std::string> leggi_confronto(const Tabella& tabella, std::string_view testo) {
    const auto segno = trova_segno(testo);
    if (!segno)
        return std::unexpected(fmt::format(
            "trovato \"{}\", atteso un confronto: TITOLO, uno fra < <= > >= = != contiene, VALORE",
            rifila(testo)));
    const auto colonna = trova_colonna(tabella, senza_virgolette(testo.substr(0, segno->first)));
    if (!colonna) return std::unexpected(colonna.error());
    const std::string_view valore = senza_virgolette(testo.substr(segno->first + segno->second.testo.size()));
    Confronto c{.colonna = *colonna, .segno = segno->second.segno, .piegato = piega_nome(valore)};
    if (const auto numero = leggi_numero(valore)) c.numero = numero->valore;
    return c;
}

template <class Uno, class Altro>
bool confronta(Segno segno, const Uno& uno, const Altro& altro) {
    switch (segno) {
        case Segno::minore:
            return uno < altro;
        case Segno::minore_uguale:
            return uno <= altro;
        case Segno::maggiore:
            return uno > altro;
        case Segno::maggiore_uguale:
            return uno >= altro;
        case Segno::uguale:
            return uno == altro;
        case Segno::diverso:
            return uno != altro;
        case Segno::contiene:
            break;
    }
    return false;
}

bool vale(const Confronto& c, std::optional<double> numero, std::string_view testo) {
    if (c.segno != Segno::contiene && c.numero && numero) return confronta(c.segno, *numero, *c.numero);
    const std::string piegato = piega_nome(testo);
    if (c.segno == Segno::contiene) return piegato.find(c.piegato) != std::string::npos;
    // A number and a text have no order between them, only a difference.
    if (c.numero.has_value() != numero.has_value()) return c.segno == Segno::diverso;
    return confronta(c.segno, piegato, c.piegato);
}

bool vale(const Confronto& c, const Tabella& tabella, std::size_t riga, std::string& testo) {
    if (const auto* interi = std::get_if<ColonnaInteri>(&tabella.colonne[c.colonna]);
        interi != nullptr && c.segno != Segno::contiene && interi->valori[riga] > kCellaPuntini)
        if (c.numero) return confronta(c.segno, static_cast<double>(interi->valori[riga]), *c.numero);
    testo.clear();
    tabella.aggiungi_testo(testo, riga, c.colonna);
    const auto numero = leggi_numero(rifila(testo));
    return vale(c, numero ? std::optional{numero->valore} : std::nullopt, testo);
}

/// Alternatives of comparisons that must all hold.
using Espressione = std::vector<std::vector<Confronto>>;

std::expected<Espressione, std::string> leggi_espressione(const Tabella& tabella, std::string_view testo) {
    if (std::count(testo.begin(), testo.end(), '"') % 2 != 0)
        return std::unexpected(std::string{"manca la virgoletta che chiude"});
    Espressione espressione;
    for (const std::string_view alternativa : dividi(testo, "o")) {
        auto& insieme = espressione.emplace_back();
        for (const std::string_view pezzo : dividi(alternativa, "e")) {
            auto confronto = leggi_confronto(tabella, pezzo);
            if (!confronto) return std::unexpected(std::move(confronto.error()));
            insieme.push_back(std::move(*confronto));
        }
    }
    return espressione;
}

std::vector<std::uint32_t> ogni_riga(const Tabella& tabella) {
    std::vector<std::uint32_t> righe(tabella.righe());
    std::iota(righe.begin(), righe.end(), 0U);
    return righe;
}

// ---- rows and columns taken out ----

Colonna prendi_righe(const Colonna& colonna, std::span<const std::uint32_t> righe) {
    return std::visit(
        [&](const auto& intera) -> Colonna {
            auto presa = intera;
            if constexpr (std::is_same_v<std::decay_t<decltype(intera)>, ColonnaGruppi>) {
                presa.numeri.clear();
                for (const std::uint32_t r : righe) {
                    const auto inizio =
                        intera.numeri.begin() + static_cast<std::ptrdiff_t>(std::size_t{r} * intera.quanti);
                    presa.numeri.insert(presa.numeri.end(), inizio,
                                        inizio + static_cast<std::ptrdiff_t>(intera.quanti));
                }
            } else if constexpr (std::is_same_v<std::decay_t<decltype(intera)>, ColonnaVoci>) {
                presa.scelte.clear();
                for (const std::uint32_t r : righe) presa.scelte.push_back(intera.scelte[r]);
            } else {
                presa.valori.clear();
                for (const std::uint32_t r : righe) presa.valori.push_back(intera.valori[r]);
            }
            return presa;
        },
        colonna);
}

std::vector<Colore> prendi_colori(const Tabella& tabella, const std::vector<Colore>& colori,
                                  std::span<const std::uint32_t> righe,
                                  std::span<const std::size_t> colonne) {
    std::vector<Colore> presi;
    if (colori.empty()) return presi;
    presi.reserve(righe.size() * colonne.size());
    for (const std::uint32_t r : righe)
        for (const std::size_t c : colonne) presi.push_back(colori[r * tabella.n_colonne() + c]);
    return presi;
}

/// The column in which the title over a column begins.
std::size_t inizio_titolo(const std::vector<std::string>& titoli, std::size_t colonna) {
    while (colonna > 0 && rifila(titoli[colonna]).empty()) --colonna;
    return colonna;
}

std::vector<std::string> prendi_titoli(const std::vector<std::string>& titoli, bool fusi,
                                       std::span<const std::size_t> colonne) {
    std::vector<std::string> presi;
    std::optional<std::size_t> ultimo;
    for (const std::size_t c : colonne) {
        const std::size_t inizio = fusi ? inizio_titolo(titoli, c) : c;
        presi.push_back(fusi && ultimo == inizio ? std::string{} : titoli[inizio]);
        ultimo = inizio;
    }
    return presi;
}

Eventi prendi_eventi(const Tabella& tabella, std::span<const std::uint32_t> righe) {
    Eventi eventi = tabella.eventi;
    if (eventi.presenti == 0 && eventi.quanti == 0) return eventi;
    // The column that told the numbers may be gone.
    eventi.quanti = static_cast<std::uint8_t>(std::min(tabella.numeri_per_riga(), kNumeriEvento));
    eventi.numeri.clear();
    for (const std::uint32_t r : righe) {
        const Evento e = tabella.numeri(r);
        eventi.numeri.insert(eventi.numeri.end(), e.numeri().begin(), e.numeri().end());
    }
    if (!eventi.senza.empty()) {
        eventi.senza.clear();
        for (const std::uint32_t r : righe) eventi.senza.push_back(tabella.eventi.senza[r]);
    }
    return eventi;
}

}  // namespace

std::expected<std::size_t, std::string> trova_colonna(const Tabella& tabella, std::string_view nome) {
    nome = senza_virgolette(nome);
    const std::string piegato = piega_nome(nome);
    std::vector<std::size_t> trovate;
    for (std::size_t c = 0; c < tabella.n_colonne() && !piegato.empty(); ++c)
        if (si_chiama(tabella, c, piegato)) trovate.push_back(c);
    if (trovate.size() == 1) return trovate.front();
    if (trovate.size() > 1)
        return std::unexpected(fmt::format(
            "\"{}\" è il titolo di {} colonne: scrivere il numero di una, da 0", nome, trovate.size()));
    const auto numero = intero_opzione(nome);
    if (numero && *numero >= 0 && static_cast<std::size_t>(*numero) < tabella.n_colonne())
        return static_cast<std::size_t>(*numero);
    return std::unexpected(
        fmt::format("trovato \"{}\", atteso il titolo di una colonna ({}) o il suo numero da 0 a {}", nome,
                    titoli_offerti(tabella), tabella.n_colonne() == 0 ? 0 : tabella.n_colonne() - 1));
}

std::expected<std::vector<Criterio>, std::string> leggi_criteri(const Tabella& tabella,
                                                                std::string_view testo) {
    std::vector<Criterio> criteri;
    for (std::string_view pezzo : pezzi_opzione(testo)) {
        Criterio criterio;
        if (const auto due_punti = pezzo.rfind(':'); due_punti != std::string_view::npos) {
            const std::string verso = minuscolo(rifila(pezzo.substr(due_punti + 1)));
            if (verso != "asc" && verso != "desc")
                return std::unexpected(
                    fmt::format("trovato \"{}\", atteso asc o desc dopo i due punti", pezzo));
            if (verso == "asc") criterio.verso = Verso::crescente;
            pezzo = pezzo.substr(0, due_punti);
        }
        const auto colonna = trova_colonna(tabella, pezzo);
        if (!colonna) return std::unexpected(colonna.error());
        criterio.colonna = *colonna;
        criteri.push_back(criterio);
    }
    return criteri;
}

std::vector<std::string> criteri_per_tabella(std::span<const Tabella> tabelle, std::string_view testo) {
    std::vector<std::string> per_tabella(tabelle.size());
    while (!testo.empty()) {
        const auto virgola = testo.find(',');
        std::string_view pezzo = rifila(testo.substr(0, virgola));
        testo = virgola == std::string_view::npos ? std::string_view{} : testo.substr(virgola + 1);
        std::size_t dove = 0;
        for (std::size_t t = 0; t < tabelle.size(); ++t) {
            const std::string prima = minuscolo(tabelle[t].nome + ".");
            if (!minuscolo(pezzo).starts_with(prima)) continue;
            dove = t;
            pezzo.remove_prefix(prima.size());
            break;
        }
        if (dove >= per_tabella.size()) break;
        if (!per_tabella[dove].empty()) per_tabella[dove] += ',';
        per_tabella[dove] += pezzo;
    }
    return per_tabella;
}

std::expected<std::vector<std::size_t>, std::string> leggi_colonne(const Tabella& tabella,
                                                                   std::string_view testo) {
    std::vector<std::size_t> colonne;
    for (const std::string_view pezzo : pezzi_opzione(testo)) {
        const auto colonna = trova_colonna(tabella, pezzo);
        if (!colonna) return std::unexpected(colonna.error());
        colonne.push_back(*colonna);
    }
    return colonne;
}

std::expected<std::vector<std::uint32_t>, std::string> filtra(const Tabella& tabella,
                                                              std::string_view espressione,
                                                              std::span<const std::uint32_t> ordine) {
    const auto letta = leggi_espressione(tabella, espressione);
    if (!letta) return std::unexpected(letta.error());
    std::vector<std::uint32_t> tenute =
        ordine.empty() ? ogni_riga(tabella) : std::vector<std::uint32_t>(ordine.begin(), ordine.end());
    std::string testo;
    std::erase_if(tenute, [&](std::uint32_t r) {
        return std::none_of(letta->begin(), letta->end(), [&](const auto& insieme) {
            return std::all_of(insieme.begin(), insieme.end(),
                               [&](const Confronto& c) { return vale(c, tabella, r, testo); });
        });
    });
    return tenute;
}

Tabella seleziona(const Tabella& tabella, std::span<const std::uint32_t> righe,
                  std::span<const std::size_t> colonne) {
    Tabella presa;
    presa.nome = tabella.nome;
    for (const auto& titoli : tabella.titoli)
        presa.titoli.push_back(prendi_titoli(titoli, tabella.titoli.size() > 1, colonne));
    for (const std::size_t c : colonne) presa.colonne.push_back(prendi_righe(tabella.colonne[c], righe));
    presa.sfondi = prendi_colori(tabella, tabella.sfondi, righe, colonne);
    presa.primi_piani = prendi_colori(tabella, tabella.primi_piani, righe, colonne);
    presa.eventi = prendi_eventi(tabella, righe);
    return presa;
}

}  // namespace sortimetra
