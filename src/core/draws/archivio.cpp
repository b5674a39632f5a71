#include "draws/archivio.h"

#include <fmt/core.h>

#include <algorithm>
#include <memory>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <unordered_map>
#include <utility>

namespace sortimetra {

namespace {

std::optional<std::string> controlla_concorso(std::string_view tabella, Concorso concorso) {
    if (concorso >= 1 && concorso <= kConcorsoMassimo) return std::nullopt;
    return fmt::format("tabella {}: trovato il concorso {}, atteso un numero da 1 in su", tabella, concorso);
}

template <std::size_t N>
std::optional<std::string> controlla_numeri(std::string_view tabella, Concorso concorso,
                                            const std::array<Numero, N>& numeri, int massimo) {
    for (const Numero n : numeri)
        if (n > massimo)
            return fmt::format("tabella {}, concorso {}: trovato il numero {}, atteso da 1 a {}", tabella,
                               concorso, n, massimo);
    return std::nullopt;
}

/// Bytes of hours that differ. Those of a day are a hundred.
constexpr std::size_t kOreMassime = std::size_t{1} << 30;

/// The order of the walk: concorso, then wheel. Stores usually hold it already, so it is tested first.
void ordina_lotto(std::vector<RigaLotto>& righe) {
    const auto prima = [](const RigaLotto& a, const RigaLotto& b) {
        return a.concorso != b.concorso ? a.concorso < b.concorso : a.ruota < b.ruota;
    };
    if (!std::is_sorted(righe.begin(), righe.end(), prima))
        std::stable_sort(righe.begin(), righe.end(), prima);
}

template <class Riga>
void ordina_concorsi(std::vector<Riga>& righe) {
    const auto prima = [](const Riga& a, const Riga& b) { return a.concorso < b.concorso; };
    if (!std::is_sorted(righe.begin(), righe.end(), prima))
        std::stable_sort(righe.begin(), righe.end(), prima);
}

// ---- columns while they grow ----

struct ColonneLotto {
    std::vector<Concorso> concorso;
    std::vector<Data> data;
    std::vector<std::uint16_t> presenti;
    std::vector<std::array<Numero, kRuote * kEstratti>> numeri;
};

template <std::size_t N>
struct ColonneNumeri {
    std::vector<Concorso> concorso;
    std::vector<Data> data;
    std::vector<std::array<Numero, N>> numeri;
};

/// The texts that differ, in the order in which they come.
class RaccoltaOre {
  public:
    std::uint32_t voce(const std::string& ora) {
        const auto [dove, nuova] = voci_.try_emplace(ora, static_cast<std::uint32_t>(voci_.size()));
        if (nuova) {
            testi_ += ora;
            fine_.push_back(static_cast<std::uint32_t>(testi_.size()));
        }
        return dove->second;
    }
    [[nodiscard]] const std::vector<std::uint32_t>& fine() const { return fine_; }
    [[nodiscard]] const std::string& testi() const { return testi_; }

  private:
    std::unordered_map<std::string, std::uint32_t> voci_;
    std::vector<std::uint32_t> fine_;
    std::string testi_;
};

struct ColonneWinForLife : ColonneNumeri<10> {
    std::vector<std::uint32_t> ora;
    RaccoltaOre ore;
};

/// A table on columns that have grown.
template <class Tabella, class C>
Tabella tabella_su(C&& colonne) {
    const auto custode = std::make_shared<const std::remove_cvref_t<C>>(std::forward<C>(colonne));
    Tabella t;
    t.concorso = custode->concorso;
    t.data = custode->data;
    t.numeri = custode->numeri;
    if constexpr (requires { custode->presenti; }) t.presenti = custode->presenti;
    if constexpr (requires { custode->ora; })
        t.ora = {custode->ora, custode->ore.fine(), custode->ore.testi()};
    t.custode = custode;
    return t;
}

std::expected<TabellaLotto, std::string> impacchetta_lotto(std::vector<RigaLotto> righe) {
    ordina_lotto(righe);
    ColonneLotto t;
    const std::size_t attesi = righe.size() / kRuote + 1;
    t.concorso.reserve(attesi);
    t.data.reserve(attesi);
    t.presenti.reserve(attesi);
    t.numeri.reserve(attesi);
    for (const RigaLotto& r : righe) {
        if (r.ruota < 0 || r.ruota >= kRuote)
            return std::unexpected(
                fmt::format("tabella archivio, concorso {}: ruota sconosciuta", r.concorso));
        if (t.concorso.empty() || t.concorso.back() != r.concorso) {
            if (auto errore = controlla_concorso("archivio", r.concorso)) return std::unexpected(*errore);
            t.concorso.push_back(r.concorso);
            t.data.push_back(r.data);
            t.presenti.push_back(0);
            t.numeri.push_back({});
        }
        if (t.data.back() != r.data)
            return std::unexpected(
                fmt::format("tabella archivio, concorso {}, ruota {}: trovata la data {}, attesa {} come "
                            "sulle altre ruote",
                            r.concorso, kNomiRuote[static_cast<std::size_t>(r.ruota)].codice,
                            testo_data(r.data), testo_data(t.data.back())));
        if (auto errore = controlla_numeri("archivio", r.concorso, r.numeri, kNumeri))
            return std::unexpected(*errore);
        const auto bit = static_cast<std::uint16_t>(1U << r.ruota);
        if ((t.presenti.back() & bit) != 0)
            return std::unexpected(fmt::format("tabella archivio, concorso {}: la ruota {} vi sta due volte",
                                               r.concorso,
                                               kNomiRuote[static_cast<std::size_t>(r.ruota)].codice));
        t.presenti.back() = static_cast<std::uint16_t>(t.presenti.back() | bit);
        std::copy(r.numeri.begin(), r.numeri.end(), t.numeri.back().begin() + r.ruota * kEstratti);
    }
    auto tabella = tabella_su<TabellaLotto>(std::move(t));
    tabella.righe = righe.size();
    return tabella;
}

/// The two tables with one row per concorso.
template <class Tabella, class Riga, class Numeri>
std::expected<Tabella, std::string> impacchetta_unica(std::vector<Riga> righe, std::string_view nome,
                                                      Numeri numeri) {
    ordina_concorsi(righe);
    ColonneNumeri<std::tuple_size_v<std::invoke_result_t<Numeri, const Riga&>>> t;
    t.concorso.reserve(righe.size());
    t.data.reserve(righe.size());
    t.numeri.reserve(righe.size());
    for (const Riga& r : righe) {
        if (auto errore = controlla_concorso(nome, r.concorso)) return std::unexpected(*errore);
        if (!t.concorso.empty() && t.concorso.back() == r.concorso)
            return std::unexpected(
                fmt::format("tabella {}: il concorso {} vi sta due volte", nome, r.concorso));
        const auto n = numeri(r);
        if (auto errore = controlla_numeri(nome, r.concorso, n, kNumeri)) return std::unexpected(*errore);
        t.concorso.push_back(r.concorso);
        t.data.push_back(r.data);
        t.numeri.push_back(n);
    }
    return tabella_su<Tabella>(std::move(t));
}

std::expected<TabellaWinForLife, std::string> impacchetta_winforlife(std::vector<RigaWinForLife> righe) {
    ordina_concorsi(righe);
    ColonneWinForLife t;
    t.concorso.reserve(righe.size());
    t.data.reserve(righe.size());
    t.ora.reserve(righe.size());
    t.numeri.reserve(righe.size());
    for (const RigaWinForLife& r : righe) {
        if (auto errore = controlla_concorso("archivio", r.concorso)) return std::unexpected(*errore);
        if (auto errore = controlla_numeri("archivio", r.concorso, r.numeri, kNumeriWinForLife))
            return std::unexpected(*errore);
        t.concorso.push_back(r.concorso);
        t.data.push_back(r.data);
        t.ora.push_back(t.ore.voce(r.ora));
        if (t.ore.testi().size() > kOreMassime)
            return std::unexpected("tabella archivio: troppe ore diverse, attesa l'ora di ogni estrazione");
        t.numeri.push_back(r.numeri);
    }
    return tabella_su<TabellaWinForLife>(std::move(t));
}

}  // namespace

ConfiniLotto confini_lotto(std::span<const RigaLotto> righe) {
    ConfiniLotto confini;
    for (const RigaLotto& r : righe) confini.ultimo = std::max(confini.ultimo, r.concorso);
    for (const RigaLotto& r : righe) {
        if (r.ruota != 0) continue;
        if (r.concorso == 1) confini.primo_giorno = r.data;
        if (r.concorso == confini.ultimo) confini.ultimo_giorno = r.data;
    }
    return confini;
}

bool possibili(const ConfiniLotto& confini) {
    const auto giorno = [](const std::optional<Data>& d) {
        return !d || (*d >= kPrimaData && *d <= kUltimaData);
    };
    return confini.ultimo >= 0 && confini.ultimo <= kConcorsoMassimo && giorno(confini.primo_giorno) &&
           giorno(confini.ultimo_giorno);
}

std::expected<ArchivioEstrazioni, ErroreArchivio> ArchivioEstrazioni::componi(RigheArchivio righe,
                                                                              Fonte drawit, Fonte drawit2) {
    auto lotto = impacchetta_lotto(std::move(righe.lotto));
    if (!lotto) return std::unexpected(ErroreArchivio{drawit.file, std::move(lotto.error())});
    auto nazionale = impacchetta_unica<TabellaNazionale>(std::move(righe.nazionale), "archivion",
                                                         [](const RigaLotto& r) { return r.numeri; });
    if (!nazionale) return std::unexpected(ErroreArchivio{drawit.file, std::move(nazionale.error())});
    auto superenalotto = impacchetta_unica<TabellaSuperEnalotto>(
        std::move(righe.superenalotto), "archivios", [](const RigaSuperEnalotto& r) {
            std::array<Numero, 8> n{};
            std::copy(r.numeri.begin(), r.numeri.end(), n.begin());
            n[6] = r.jolly;
            n[7] = r.superstar;
            return n;
        });
    if (!superenalotto) return std::unexpected(ErroreArchivio{drawit.file, std::move(superenalotto.error())});
    auto winforlife = impacchetta_winforlife(std::move(righe.winforlife));
    if (!winforlife) return std::unexpected(ErroreArchivio{drawit2.file, std::move(winforlife.error())});

    return ArchivioEstrazioni{
        {std::move(*lotto), std::move(*nazionale), std::move(*superenalotto), std::move(*winforlife)},
        std::move(drawit),
        std::move(drawit2)};
}

bool operator==(const ColonnaOre& a, const ColonnaOre& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i]) return false;
    return true;
}

std::optional<std::size_t> cerca_concorso(std::span<const Concorso> colonna, Concorso concorso) {
    // Concorsi count from 1 without gaps in a sound archive, so the first guess is nearly always right.
    const auto i = static_cast<std::size_t>(concorso) - 1;
    if (concorso >= 1 && i < colonna.size() && colonna[i] == concorso &&
        (i == 0 || colonna[i - 1] != concorso))
        return i;
    const auto it = std::lower_bound(colonna.begin(), colonna.end(), concorso);
    if (it == colonna.end() || *it != concorso) return std::nullopt;
    return static_cast<std::size_t>(it - colonna.begin());
}

std::optional<Data> ArchivioEstrazioni::data_bari(Concorso concorso) const {
    if (const auto& confini = tabelle_.confini; confini && lotto().concorso.empty()) {
        if (concorso == confini->ultimo) return confini->ultimo_giorno;
        return concorso == 1 ? confini->primo_giorno : std::nullopt;
    }
    const auto i = cerca_concorso(lotto().concorso, concorso);
    if (!i || (lotto().presenti[*i] & 1U) == 0) return std::nullopt;
    return lotto().data[*i];
}

std::optional<Data> ArchivioEstrazioni::data_winforlife(Concorso concorso) const {
    const auto i = cerca_concorso(winforlife().concorso, concorso);
    if (!i) return std::nullopt;
    return winforlife().data[*i];
}

}  // namespace sortimetra
