#include "chance/caso.h"

#include "results/risultato.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <bit>
#include <boost/math/special_functions/gamma.hpp>
#include <cmath>
#include <limits>
#include <map>
#include <numeric>
#include <span>
#include <utility>
#include <variant>

namespace sortimetra {

namespace {

/// A value that is a half in exact arithmetic may lie a bit below it in the machine's: such a one is taken as
/// the half that it is. `valore` is 0 or more; the result is exact up to 10^15.
std::int64_t arrotonda(long double valore) {
    constexpr long double kUnSoffio = 1e-13L;
    return static_cast<std::int64_t>(std::floor(valore * (1 + kUnSoffio) + 0.5L));
}

/// `intero` / 10^decimali in plain Italian digits: 169 with 4 is "0,0169".
std::string con_decimali(std::int64_t intero, int decimali) {
    std::string cifre = std::to_string(intero);
    if (decimali == 0) return cifre;
    const auto d = static_cast<std::size_t>(decimali);
    if (cifre.size() <= d) cifre.insert(0, d + 1 - cifre.size(), '0');
    cifre.insert(cifre.size() - d, ",");
    return cifre;
}

/// Cells of one column of which few differ: each is told by its value, by which the rows will sort, and gets
/// its text once.
class ColonnaDaValori {
  public:
    explicit ColonnaDaValori(std::size_t righe) : scelte_(righe, 0) {
        voci_.push_back({-std::numeric_limits<double>::infinity(), ""});
    }
    /// A new text; its place is what `metti` takes.
    std::uint32_t voce(double valore, std::string testo) {
        voci_.push_back({valore, std::move(testo)});
        return static_cast<std::uint32_t>(voci_.size() - 1);
    }
    void metti(std::size_t riga, std::uint32_t voce) { scelte_[riga] = voce; }

    [[nodiscard]] ColonnaVoci colonna() && {
        std::vector<std::uint32_t> ordine(voci_.size());
        std::iota(ordine.begin(), ordine.end(), 0U);
        std::stable_sort(ordine.begin(), ordine.end(),
                         [this](auto a, auto b) { return voci_[a].valore < voci_[b].valore; });
        std::vector<std::uint32_t> posto(voci_.size());
        ColonnaVoci c;
        c.in_ordine = true;
        c.voci.reserve(voci_.size());
        double ultimo = std::numeric_limits<double>::quiet_NaN();
        for (const std::uint32_t v : ordine) {
            // Equal values share a text, so that rows which do not differ keep their order.
            if (voci_[v].valore != ultimo) c.voci.push_back(std::move(voci_[v].testo));
            ultimo = voci_[v].valore;
            posto[v] = static_cast<std::uint32_t>(c.voci.size() - 1);
        }
        for (std::uint32_t& s : scelte_) s = posto[s];
        c.scelte = std::move(scelte_);
        return c;
    }

  private:
    struct Voce {
        double valore;
        std::string testo;
    };
    std::vector<Voce> voci_;
    std::vector<std::uint32_t> scelte_;
};

/// A table's measures and events, row by row.
class RigheMisurate {
  public:
    explicit RigheMisurate(const Tabella& tabella)
        : tabella_{&tabella},
          colonne_{colonne_misure(tabella).value_or(ColonneMisure{})},
          frequenze_{std::get<ColonnaInteri>(tabella.colonne[colonne_.frequenza]).valori},
          ritardi_{std::get<ColonnaInteri>(tabella.colonne[colonne_.ritardo]).valori},
          doppi_possibili_{tabella.numeri_per_riga() > 1} {
        const auto& senza = tabella.eventi.senza;
        eventi_ = static_cast<std::int64_t>(righe()) - std::count(senza.begin(), senza.end(), true);
    }
    [[nodiscard]] std::size_t righe() const { return frequenze_.size(); }
    [[nodiscard]] std::int64_t con_evento() const { return eventi_; }
    [[nodiscard]] bool ha_evento(std::size_t r) const {
        const auto& senza = tabella_->eventi.senza;
        return r >= senza.size() || !senza[r];
    }
    [[nodiscard]] std::int32_t frequenza(std::size_t r) const { return frequenze_[r]; }
    /// The delay on show; nothing where it is no number or below 0.
    [[nodiscard]] std::optional<std::int32_t> ritardo(std::size_t r) const {
        return ritardi_[r] < 0 ? std::nullopt : std::optional{ritardi_[r]};
    }
    [[nodiscard]] std::int32_t cella_ritardo(std::size_t r) const { return ritardi_[r]; }
    /// Rows of a table have equally many numbers, so they differ before the law only by numbers that stand
    /// twice: how often each stands, in ascending order; zeros where none stands twice.
    using Ripetizioni = std::array<std::uint8_t, kNumeriEvento>;
    [[nodiscard]] Ripetizioni ripetizioni(std::size_t r) const {
        if (!doppi_possibili_) return {};
        const Evento numeri = tabella_->numeri(r);
        std::array<std::uint64_t, 2> insieme{};
        for (const Numero n : numeri.numeri()) insieme[n / 64U] |= std::uint64_t{1} << (n % 64U);
        if (std::popcount(insieme[0]) + std::popcount(insieme[1]) == numeri.quanti) return {};
        std::map<Numero, std::uint8_t> volte;
        for (const Numero n : numeri.numeri()) ++volte[n];
        Ripetizioni ripetute{};
        std::size_t i = 0;
        for (const auto& [n, quante] : volte) ripetute[i++] = quante;
        std::sort(ripetute.begin(), ripetute.end());
        return ripetute;
    }
    [[nodiscard]] Evento evento(std::size_t r) const { return tabella_->evento(r).value_or(Evento{}); }

  private:
    const Tabella* tabella_;
    ColonneMisure colonne_;
    std::span<const std::int32_t> frequenze_;
    std::span<const std::int32_t> ritardi_;
    std::int64_t eventi_ = 0;
    bool doppi_possibili_;  ///< one number a row cannot stand twice in it
};

/// Calls `riga(r, legge, classe)` for each row with an event; the law is worked out once for rows that do not
/// differ before it, which share a `classe` (from 0).
template <class Riga>
void per_ogni_legge(const RigheMisurate& righe, Riga&& riga) {
    std::map<RigheMisurate::Ripetizioni, std::size_t> classi;
    std::vector<Legge> leggi;
    for (std::size_t r = 0; r < righe.righe(); ++r) {
        if (!righe.ha_evento(r)) continue;
        const auto [classe, nuova] = classi.try_emplace(righe.ripetizioni(r), leggi.size());
        if (nuova) leggi.emplace_back(righe.evento(r));
        riga(r, leggi[classe->second], classe->second);
    }
}

/// Where a value (a frequency, a delay) has its text, for each class of rows.
class Trovate {
  public:
    template <class Nuova>
    std::uint32_t trova(std::size_t classe, std::int32_t valore, Nuova&& nuova) {
        if (classe >= classi_.size()) classi_.resize(classe + 1);
        auto& posti = classi_[classe];
        const auto v = static_cast<std::size_t>(valore);
        if (v >= posti.size()) posti.resize(v + v / 2 + 64, 0);
        if (posti[v] == 0) posti[v] = nuova();
        return posti[v];
    }

  private:
    std::vector<std::vector<std::uint32_t>> classi_;
};

std::string testo_record(double record) {
    return std::to_string(arrotonda(static_cast<long double>(record)));
}

/// The six columns, filled row by row.
class ScrittoreCaso {
  public:
    ScrittoreCaso(std::size_t righe, Percorso percorso, std::int64_t m)
        : percorso_{percorso},
          m_{m},
          attesa_{righe},
          scarto_{righe},
          ritardo_{std::vector<std::int32_t>(righe, kCellaVuota)},
          probabilita_{righe},
          in_tabella_{righe},
          record_{righe} {}

    void riga(std::size_t r, const Legge& legge, std::size_t classe, const RigheMisurate& righe) {
        attesa_.metti(r, attese_.trova(classe, 0, [&] {
            return attesa_.voce(legge.media(), legge.attesa(percorso_.righe));
        }));
        scarto_.metti(r, scarti_.trova(classe, std::max(righe.frequenza(r), 0), [&] {
            const auto scarto = legge.scarto(percorso_.righe, righe.frequenza(r));
            return scarto ? scarto_.voce(*scarto, testo_scarto(*scarto)) : 0U;
        }));
        ritardo_.valori[r] = righe.cella_ritardo(r);
        record_.metti(r, record_trovati_.trova(classe, 0, [&] {
            const double record = legge.record_atteso(percorso_);
            return record_.voce(record, testo_record(record));
        }));
        const auto ritardo = righe.ritardo(r);
        if (!ritardo) return;
        probabilita_.metti(r, probabili_.trova(classe, *ritardo, [&] {
            const double p = legge.probabilita(percorso_, *ritardo);
            return probabilita_.voce(p, testo_percentuale(p));
        }));
        in_tabella_.metti(r, tabellari_.trova(classe, *ritardo, [&] {
            const double p = almeno_uno(legge.probabilita(percorso_, *ritardo), m_);
            return in_tabella_.voce(p, testo_percentuale(p));
        }));
    }
    /// The columns, behind the first of the table.
    void aggiungi(Tabella& tabella) && {
        tabella.colonne.emplace_back(std::move(attesa_).colonna());
        tabella.colonne.emplace_back(std::move(scarto_).colonna());
        tabella.colonne.emplace_back(std::move(ritardo_));
        tabella.colonne.emplace_back(std::move(probabilita_).colonna());
        tabella.colonne.emplace_back(std::move(in_tabella_).colonna());
        tabella.colonne.emplace_back(std::move(record_).colonna());
    }

  private:
    Percorso percorso_;
    std::int64_t m_;
    ColonnaDaValori attesa_, scarto_;
    ColonnaInteri ritardo_;
    ColonnaDaValori probabilita_, in_tabella_, record_;
    Trovate attese_, scarti_, probabili_, tabellari_, record_trovati_;
};

/// "uno dei 90 numeri", "una delle 22 serie".
std::string uno_di(const Tabella& tabella, std::int64_t m) {
    static constexpr std::array<std::string_view, 4> kNomi{"", "numeri", "ambi", "terni"};
    const std::size_t quanti = tabella.numeri_per_riga();
    if (quanti >= 1 && quanti < kNomi.size()) return fmt::format("uno dei {} {}", migliaia(m), kNomi[quanti]);
    return fmt::format("una delle {} serie", migliaia(m));
}

/// "p = 0,43"; what the decimals cannot tell apart from 0 and 1 is said to lie beyond the last that they can.
std::string testo_p(double p, int decimali) {
    const std::int64_t uno = decimali == 2 ? 100 : 10'000;
    const std::int64_t cifre = arrotonda(static_cast<long double>(p) * static_cast<long double>(uno));
    if (cifre == 0) return "p < " + con_decimali(1, decimali);
    if (cifre == uno) return "p > " + con_decimali(uno - 1, decimali);
    return "p = " + con_decimali(cifre, decimali);
}

}  // namespace

std::optional<ColonneMisure> colonne_misure(const Tabella& tabella) {
    if (tabella.titoli.size() != 1) return std::nullopt;
    const auto& titoli = tabella.titoli.front();
    const auto trova = [&](std::string_view lungo, std::string_view breve) -> std::optional<std::size_t> {
        for (std::size_t c = 0; c < titoli.size() && c < tabella.colonne.size(); ++c)
            if ((titoli[c] == lungo || titoli[c] == breve) &&
                std::holds_alternative<ColonnaInteri>(tabella.colonne[c]))
                return c;
        return std::nullopt;
    };
    const auto frequenza = trova("Frequenza", "Freq.");
    const auto ritardo = trova("Ritardo", "Rit.");
    const auto storico = trova("Ritardo Storico", "R. S.");
    if (!frequenza || !ritardo || !storico) return std::nullopt;
    return ColonneMisure{*frequenza, *ritardo, *storico};
}

bool misura_eventi(const Tabella& tabella) {
    return tabella.eventi.presenti > 0 && tabella.numeri_per_riga() > 0 &&
           colonne_misure(tabella).has_value();
}

bool misura_eventi(const Risposta& risposta) {
    return risposta.prodotta() && !risposta.risultato->tabelle.empty() &&
           misura_eventi(risposta.risultato->tabelle.front());
}

Tabella tabella_caso(const Tabella& tabella, Percorso percorso) {
    const RigheMisurate righe{tabella};
    ScrittoreCaso scrittore{righe.righe(), percorso, righe.con_evento()};
    per_ogni_legge(righe, [&](std::size_t r, const Legge& legge, std::size_t classe) {
        scrittore.riga(r, legge, classe, righe);
    });
    Tabella caso;
    caso.nome = "caso";
    caso.titoli = {{tabella.titoli.front().front()}};
    caso.titoli.front().insert(caso.titoli.front().end(), kTitoliCaso.begin(), kTitoliCaso.end());
    caso.colonne.push_back(tabella.colonne.front());
    std::move(scrittore).aggiungi(caso);
    return caso;
}

TestiCaso testi_caso(const Legge& legge, Percorso percorso, std::int32_t frequenza,
                     std::optional<std::int32_t> ritardo, std::int64_t m) {
    TestiCaso testi{.attesa = legge.attesa(percorso.righe),
                    .record_atteso = testo_record(legge.record_atteso(percorso))};
    if (const auto scarto = legge.scarto(percorso.righe, frequenza)) testi.scarto = testo_scarto(*scarto);
    if (!ritardo || *ritardo < 0) return testi;
    const double p = legge.probabilita(percorso, *ritardo);
    testi.probabilita = testo_percentuale(p);
    testi.in_tabella = testo_percentuale(almeno_uno(p, m));
    return testi;
}

std::string frase_insolita(const Tabella& tabella, Percorso percorso) {
    if (!misura_eventi(tabella)) return {};
    const RigheMisurate righe{tabella};
    std::optional<std::size_t> scelta;
    double minima = 2;
    per_ogni_legge(righe, [&](std::size_t r, const Legge& legge, std::size_t) {
        const auto ritardo = righe.ritardo(r);
        if (!ritardo) return;
        const double p = legge.probabilita(percorso, *ritardo);
        if (p >= minima) return;
        minima = p;
        scelta = r;
    });
    if (!scelta) return {};
    const std::int32_t ritardo = *righe.ritardo(*scelta);
    const std::int64_t m = righe.con_evento();
    const double su = 1 / almeno_uno(minima, m);
    const std::string a_chi = m > 1 ? " a " + uno_di(tabella, m) : std::string{};
    const std::string manca = fmt::format("{} manca da {} {}: succede per caso", tabella.testo(*scelta, 0),
                                          migliaia(ritardo), ritardo == 1 ? "concorso" : "concorsi");
    // What happens more often than not is no "once in".
    if (su < 1.5) return fmt::format("{} quasi sempre{}.", manca, a_chi);
    if (su >= 1e15) return fmt::format("{}{} praticamente mai.", manca, a_chi);
    return fmt::format("{}{} circa una volta su {}.", manca, a_chi, migliaia(std::llround(su)));
}

std::optional<double> p_chi_quadro(const Tabella& tabella) {
    if (!misura_eventi(tabella) || tabella.eventi.presenti != 1 || tabella.numeri_per_riga() != 1 ||
        !tabella.eventi.senza.empty())
        return std::nullopt;
    const Urna u = urna(tabella.eventi.gioco, tabella.eventi.posti);
    const RigheMisurate righe{tabella};
    if (righe.righe() != static_cast<std::size_t>(u.numeri)) return std::nullopt;
    std::int64_t somma = 0;
    for (std::size_t r = 0; r < righe.righe(); ++r) {
        if (righe.evento(r).caselle[0] != r + 1) return std::nullopt;
        somma += righe.frequenza(r);
    }
    if (somma == 0) return std::nullopt;
    const double attesa = static_cast<double>(somma) / u.numeri;
    double quadro = 0;
    for (std::size_t r = 0; r < righe.righe(); ++r) {
        const double distanza = righe.frequenza(r) - attesa;
        quadro += distanza * distanza / attesa;
    }
    const double gradi = u.numeri - 1;
    quadro *= gradi / (u.numeri - u.estratti);
    return boost::math::gamma_q(gradi / 2, quadro / 2);
}

std::string frase_chi_quadro(const Tabella& tabella) {
    const auto p = p_chi_quadro(tabella);
    if (!p) return {};
    // Beyond one in a hundred on either side it is said plainly that chance seldom gives as much.
    constexpr double kRaro = 0.01;
    const auto raro = [&](std::string_view come, double quanto) {
        return fmt::format("frequenze così {} capitano per caso circa una volta su {} ({})", come,
                           quanto < 1e-12 ? "mille miliardi" : migliaia(std::llround(1 / quanto)),
                           testo_p(*p, 4));
    };
    if (*p < kRaro) return raro("diverse", *p);
    if (*p > 1 - kRaro) return raro("uguali", 1 - *p);
    return fmt::format("le frequenze sono quelle del caso ({})", testo_p(*p, 2));
}

std::string testo_percentuale(double probabilita) {
    constexpr double kMinima = 1e-14;
    if (!(probabilita >= kMinima)) return "<0,000000000001%";
    const long double percento = static_cast<long double>(probabilita) * 100;
    int decimali = 2 - static_cast<int>(std::floor(std::log10(percento)));
    std::int64_t cifre = arrotonda(percento * std::pow(10.0L, decimali));
    if (cifre >= 1000) {  // 99.97 becomes 100
        --decimali;
        cifre = arrotonda(percento * std::pow(10.0L, decimali));
    }
    return con_decimali(cifre, decimali) + '%';
}

std::string testo_scarto(double scarto) {
    const auto centesimi = arrotonda(std::fabs(static_cast<long double>(scarto)) * 100);
    return (scarto < 0 ? '-' : '+') + con_decimali(centesimi, 2);
}

}  // namespace sortimetra
