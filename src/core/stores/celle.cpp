#include "stores/celle.h"

#include "stores/apertura.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <utility>

namespace sortimetra {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year;

constexpr std::array<std::string_view, 8> kColonneLotto{"data estrazione", "ruota",      "1°estratto",
                                                        "2°estratto",      "3°estratto", "4°estratto",
                                                        "5°estratto",      "concorso"};
constexpr std::array<std::string_view, 10> kColonneSuperEnalotto{
    "data estrazione", "1°estratto", "2°estratto", "3°estratto", "4°estratto",
    "5°estratto",      "6°estratto", "Jolly",      "superstar",  "concorso"};
constexpr std::array<std::string_view, 13> kColonneWinForLife{
    "concorso", "data estrazione", "ora", "1°", "2°", "3°", "4°", "5°", "6°", "7°", "8°", "9°", "10°"};

constexpr std::array<FormaTabella, 3> kFormeDrawit{
    {{kTabellaLotto, "archivio", kColonneLotto},
     {kTabellaNazionale, "archivion", kColonneLotto},
     {kTabellaSuperEnalotto, "archivios", kColonneSuperEnalotto}}};
constexpr std::array<FormaTabella, 1> kFormeDrawit2{{{kTabellaWinForLife, "archivio", kColonneWinForLife}}};

/// Day 0 of the calendar in which Jet counts.
constexpr sys_days kGiornoZero{year{1899} / 12 / 30};

std::string come_testo(const Cella& c) {
    switch (c.tipo) {
        case Cella::Tipo::Vuota:
            return "";
        case Cella::Tipo::Intero:
            return std::to_string(c.intero);
        case Cella::Tipo::Reale:
        case Cella::Tipo::Momento:
            return fmt::format("{}", c.reale);
        case Cella::Tipo::Guasta:
            return "?";
        case Cella::Tipo::Testo:
            break;
    }
    // Only what can be shown: a damaged cell may hold anything.
    std::string testo;
    for (const char x : c.testo.substr(0, 40))
        testo += static_cast<unsigned char>(x) < 0x20 || x == '\x7F' ? '?' : x;
    return testo;
}

// Numbers that are no draw's and no concorso's.
constexpr std::int64_t kVuoto = INT64_MIN;    ///< of an empty or blank cell
constexpr std::int64_t kNessuno = INT64_MAX;  ///< of one that holds no whole number: a part of one, a moment

/// The whole number that a cell begins with. (A plain number: an optional would go through memory, half a
/// million times.)
std::int64_t intero(const Cella& c) {
    switch (c.tipo) {
        case Cella::Tipo::Intero:
            return std::max(c.intero, kVuoto + 1);  // the least of all is no blank
        case Cella::Tipo::Reale:
            if (!(std::abs(c.reale) < 1e15) || c.reale != std::floor(c.reale)) return kNessuno;
            return static_cast<std::int64_t>(c.reale);
        case Cella::Tipo::Testo: {
            const std::string_view t = c.testo;
            if (t.size() == 1 && t[0] >= '0' && t[0] <= '9') return t[0] - '0';
            if (t.size() == 2 && t[0] >= '0' && t[0] <= '9' && t[1] >= '0' && t[1] <= '9')
                return (t[0] - '0') * 10 + (t[1] - '0');
            return rifila(t).empty() ? kVuoto : valore_iniziale(t);
        }
        case Cella::Tipo::Vuota:
            return kVuoto;
        default:
            return kNessuno;
    }
}

std::optional<Concorso> concorso(const Cella& c) {
    const std::int64_t n = intero(c);
    if (n < 1 || n > INT32_MAX) return std::nullopt;
    return static_cast<Concorso>(n);
}

std::optional<Numero> numero(const Cella& c) {
    const std::int64_t n = intero(c);
    if (n == kVuoto) return Numero{0};
    if (n < 0 || n > kNumeri) return std::nullopt;
    return static_cast<Numero>(n);
}

template <std::size_t N>
std::optional<std::string> numeri(const FormaTabella& forma, Concorso c, std::span<const Cella> celle,
                                  std::array<Numero, N>& dove) {
    for (std::size_t i = 0; i < N; ++i) {
        const auto n = numero(celle[i]);
        if (!n)
            return fmt::format("tabella {}, concorso {}: trovato il numero \"{}\", atteso da 1 a {}",
                               forma.nome, c, come_testo(celle[i]), kNumeri);
        dove[i] = *n;
    }
    return std::nullopt;
}

std::optional<int> ruota(const Cella& c) {
    if (c.tipo != Cella::Tipo::Testo) return std::nullopt;
    const std::string_view t = rifila(c.testo);
    std::array<char, 9> alto{};
    if (t.size() > alto.size()) return std::nullopt;
    for (std::size_t i = 0; i < t.size(); ++i)
        alto[i] = t[i] >= 'a' && t[i] <= 'z' ? static_cast<char>(t[i] - 'a' + 'A') : t[i];
    const std::string_view codice{alto.data(), t.size()};
    return codice == kParolaNazionale ? kNazionale : indice_ruota(codice);
}

const Cella& cella_concorso(const FormaTabella& forma, std::span<const Cella> celle) {
    return forma.bit == kTabellaWinForLife ? celle.front() : celle.back();
}

/// What to say of the first cell that its store could not read; nothing if it read them all.
std::optional<std::string> cella_guasta(const FormaTabella& forma, std::span<const Cella> celle) {
    const auto guasta = std::find_if(celle.begin(), celle.end(),
                                     [](const Cella& c) { return c.tipo == Cella::Tipo::Guasta; });
    if (guasta == celle.end()) return std::nullopt;
    const auto c = concorso(cella_concorso(forma, celle));
    return fmt::format("tabella {}{}: la cella \"{}\" non si legge, il file è danneggiato", forma.nome,
                       c ? fmt::format(", concorso {}", *c) : std::string{},
                       forma.colonne[static_cast<std::size_t>(guasta - celle.begin())]);
}

/// Clock text. A store that keeps hours as moments gives "8:00".
std::string ora(const Cella& c) {
    if (c.tipo == Cella::Tipo::Testo) return std::string{c.testo};
    if (c.tipo != Cella::Tipo::Momento && c.tipo != Cella::Tipo::Reale) return come_testo(c);
    const double frazione = c.reale - std::floor(c.reale);
    if (!(frazione >= 0 && frazione < 1)) return {};
    const int minuti = static_cast<int>(std::lround(frazione * 24 * 60)) % (24 * 60);
    return fmt::format("{}:{:02}", minuti / 60, minuti % 60);
}

}  // namespace

std::span<const FormaTabella> tabelle_drawit() {
    return kFormeDrawit;
}
std::span<const FormaTabella> tabelle_drawit2() {
    return kFormeDrawit2;
}

std::optional<Data> LettoreRighe::data(const Cella& c) {
    if (c.tipo == Cella::Tipo::Testo) {
        std::string_view t = c.testo;
        if (t.size() != testo_data_.size()) {
            t = rifila(t);
            // A time of day behind the date has no meaning here.
            if (t.size() > testo_data_.size() && (t[10] == ' ' || t[10] == 'T')) t = t.substr(0, 10);
            if (t.size() != testo_data_.size()) return std::nullopt;
        }
        if (testo_letto_ && std::memcmp(t.data(), testo_data_.data(), testo_data_.size()) == 0)
            return data_testo_;
        auto letta = leggi_data_iso(t);
        if (!letta) letta = leggi_data_italiana(t);
        if (!letta || *letta < kPrimaData || *letta > kUltimaData) return std::nullopt;
        std::memcpy(testo_data_.data(), t.data(), testo_data_.size());
        data_testo_ = *letta;
        testo_letto_ = true;
        return letta;
    }
    double giorno = c.reale;
    if (c.tipo == Cella::Tipo::Vuota || c.tipo == Cella::Tipo::Guasta) return std::nullopt;
    if (c.tipo == Cella::Tipo::Intero) giorno = static_cast<double>(c.intero);
    if (momento_letto_ && giorno == momento_) return data_momento_;
    // Before day 0 the whole part still names the day and the fraction counts away from 0.
    if (!(giorno > -40'000 && giorno < 500'000)) return std::nullopt;
    const Data letta = kGiornoZero + days{static_cast<int>(giorno)};
    if (letta < kPrimaData || letta > kUltimaData) return std::nullopt;
    momento_ = giorno;
    data_momento_ = letta;
    momento_letto_ = true;
    return letta;
}

std::optional<std::string> LettoreRighe::aggiungi(const FormaTabella& forma, std::span<const Cella> celle) {
    auto errore = interpreta(forma, celle);
    // Of a row that cannot be true, a cell that could not even be read is the better news.
    if (errore)
        if (auto guasta = cella_guasta(forma, celle)) return guasta;
    return errore;
}

std::optional<std::string> LettoreRighe::interpreta(const FormaTabella& forma, std::span<const Cella> celle) {
    const bool wfl = forma.bit == kTabellaWinForLife;
    const Cella& cella_data = celle[wfl ? 1 : 0];
    const auto c = concorso(cella_concorso(forma, celle));
    if (!c)
        return fmt::format("tabella {}: trovato il concorso \"{}\", atteso un numero da 1 in su", forma.nome,
                           come_testo(cella_concorso(forma, celle)));
    const auto giorno = data(cella_data);
    if (!giorno)
        return fmt::format("tabella {}, concorso {}: trovata la data \"{}\", attesa la data dell'estrazione",
                           forma.nome, *c, come_testo(cella_data));
    switch (forma.bit) {
        case kTabellaLotto:
        case kTabellaNazionale: {
            RigaLotto r{.concorso = *c, .data = *giorno};
            const auto w = ruota(celle[1]);
            const bool nazionale = forma.bit == kTabellaNazionale;
            if (!w || (*w == kNazionale) != nazionale)
                return fmt::format("tabella {}, concorso {}: trovata la ruota \"{}\", attes{}", forma.nome,
                                   *c, come_testo(celle[1]),
                                   nazionale ? "a NAZIONALE" : "o uno fra BA CA FI GE MI NA PA RM TO VE");
            r.ruota = *w;
            if (auto errore = numeri(forma, *c, celle.subspan(2), r.numeri)) return errore;
            (nazionale ? righe_.nazionale : righe_.lotto).push_back(r);
            return std::nullopt;
        }
        case kTabellaSuperEnalotto: {
            RigaSuperEnalotto r{.concorso = *c, .data = *giorno};
            if (auto errore = numeri(forma, *c, celle.subspan(1), r.numeri)) return errore;
            std::array<Numero, 2> altri{};
            if (auto errore = numeri(forma, *c, celle.subspan(7), altri)) return errore;
            r.jolly = altri[0];
            r.superstar = altri[1];
            righe_.superenalotto.push_back(r);
            return std::nullopt;
        }
        default: {
            RigaWinForLife r{.concorso = *c, .data = *giorno};
            if (celle[2].tipo == Cella::Tipo::Guasta) return "ora";  // `cella_guasta` says the rest
            r.ora = ora(celle[2]);
            if (auto errore = numeri(forma, *c, celle.subspan(3), r.numeri)) return errore;
            righe_.winforlife.push_back(std::move(r));
            return std::nullopt;
        }
    }
}

}  // namespace sortimetra
