#include "systems/conteggi.h"

#include "results/risultato.h"
#include "statistics/misure.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace sortimetra {

namespace {

constexpr std::size_t kGrigliaSomma = 9;  ///< of the distances and of the steps: the last grid, always
constexpr std::size_t kDistanzeMostrate = 9;
constexpr std::string_view kDettaglioPari = "MSH_condizioni(5)";
constexpr std::string_view kGrigliaPosizione = "MSHFlexGrid1";
/// A group's delay is told for one to four of its numbers in a row.
constexpr std::size_t kInsieme = 4;

// ---- families of measures: the values of one combination, in the order of their grids ----

struct Condizioni {
    static constexpr std::span<const GrigliaMisura> kGriglie = kCondizioni;
    static constexpr bool mostra(std::size_t, std::size_t) { return true; }
    template <std::size_t K>
    static void valori(std::span<const Valore, K> c, Specchi specchi, int* v) {
        const Coppie coppie = calcola_coppie(c, specchi);
        v[0] = coppie.simmetrie;
        v[1] = coppie.paralleli;
        v[2] = v[0] + v[1];
        v[3] = calcola_interruzioni(c);
        v[4] = calcola_pari(c);
    }
};

struct Somme1 {
    static constexpr std::span<const GrigliaMisura> kGriglie = kSomme1;
    /// The halves of two numbers would be the numbers.
    static constexpr bool mostra(std::size_t g, std::size_t k) { return g == 0 || k > 2; }
    template <std::size_t K>
    static void valori(std::span<const Valore, K> c, Specchi, int* v) {
        v[0] = somma_generale(c);
        v[1] = somma_s1(c);
        v[2] = somma_s2(c);
    }
};

struct Somme2 {
    static constexpr std::span<const GrigliaMisura> kGriglie = kSomme2;
    /// The Codomino of two numbers is their sum.
    static constexpr bool mostra(std::size_t g, std::size_t k) { return g != 0 || k > 2; }
    template <std::size_t K>
    static void valori(std::span<const Valore, K> c, Specchi, int* v) {
        v[0] = codomino(c);
        v[1] = resto(c);
        v[2] = somma_decine(c);
        v[3] = somma_cadenze(c);
    }
};

struct Distanze {
    static constexpr std::span<const GrigliaMisura> kGriglie = kDistanze;
    static constexpr bool mostra(std::size_t g, std::size_t k) {
        return g == kGrigliaSomma ? k > 2 : g + 1 < k;
    }
    /// Of twenty numbers the distances beyond the ninth stand in the sum alone.
    template <std::size_t K>
    static void valori(std::span<const Valore, K> c, Specchi, int* v) {
        int totale = 0;
        for (std::size_t j = 1; j < c.size(); ++j) {
            const int d = distanza(c, j);
            if (j <= kDistanzeMostrate) v[j - 1] = d;
            totale += d;
        }
        v[kGrigliaSomma] = totale;
    }
};

struct Passi {
    static constexpr std::span<const GrigliaMisura> kGriglie = kConsecutivita;
    static constexpr bool mostra(std::size_t, std::size_t) { return true; }
    template <std::size_t K>
    static void valori(std::span<const Valore, K> c, Specchi, int* v) {
        const Consecutivita passi{c};
        for (int s = 1; s <= kPassi; ++s) v[s - 1] = passi.passo(s);
        v[kGrigliaSomma] = passi.somma();
    }
};

/// Largest value of a grid that has a counter; a combination beyond it is counted nowhere.
int massimo(const GrigliaMisura& griglia, const BaseConteggio& base) {
    const int m = base.sistema || base.k >= kListaMassima / 2 ? griglia.massimo_lungo : griglia.massimo;
    const bool passo = &griglia >= kConsecutivita.data() && &griglia < &kConsecutivita.back();
    return passo ? std::min(m, static_cast<int>(base.k) - 1) : m;
}

Tabella tabella_valori(std::string_view nome, std::string_view prima) {
    Tabella t;
    t.nome = nome;
    t.titoli = {{std::string{prima}, "Freq.", "%"}};
    return t;
}

void metti_colonne(Tabella& t, Colonna valori, ColonnaInteri frequenze, std::int64_t intero,
                   bool punti = false) {
    ColonnaTesti percentuali;
    percentuali.valori.reserve(frequenze.valori.size());
    for (const std::int32_t f : frequenze.valori)
        percentuali.valori.push_back(quoziente_due_decimali(std::int64_t{f} * 100, intero, punti));
    t.colonne.emplace_back(std::move(valori));
    t.colonne.emplace_back(std::move(frequenze));
    t.colonne.emplace_back(std::move(percentuali));
}

/// Counts how often each value of some measures came.
template <std::size_t K, class Famiglia>
class ConteggioValori : public ContoMisure {
  public:
    explicit ConteggioValori(const BaseConteggio& base) : base_{base} {
        std::size_t posto = 0;
        for (std::size_t g = 0; g < kQuante; ++g) {
            massimi_[g] = Famiglia::mostra(g, K) ? massimo(Famiglia::kGriglie[g], base) : -1;
            inizi_[g] = posto;
            posto += static_cast<std::size_t>(massimi_[g] + 1);
        }
        conteggi_.resize(posto);
    }

    void conta(const BloccoCombinazioni& blocco) override {
        std::array<int, kQuante> v{};
        std::uint32_t* const conteggi = conteggi_.data();
        for (std::size_t i = 0; i + K <= blocco.numeri.size(); i += K) {
            const auto c = blocco.numeri.subspan(i).template first<K>();
            Famiglia::valori(c, base_.specchi, v.data());
            for (std::size_t g = 0; g < kQuante; ++g)
                if (v[g] >= 0 && v[g] <= massimi_[g]) ++conteggi[inizi_[g] + static_cast<std::size_t>(v[g])];
        }
    }

    [[nodiscard]] std::vector<Tabella> tabelle() const override {
        std::vector<Tabella> t;
        t.reserve(kQuante);
        for (std::size_t g = 0; g < kQuante; ++g) t.push_back(tabella(g));
        return t;
    }

  protected:
    static constexpr std::size_t kQuante = Famiglia::kGriglie.size();
    [[nodiscard]] const BaseConteggio& base() const { return base_; }

  private:
    [[nodiscard]] Tabella tabella(std::size_t g) const {
        const std::string_view nome = Famiglia::kGriglie[g].griglia;
        // The nine grids of the steps are narrow.
        Tabella t =
            tabella_valori(nome, nome.starts_with("MSH_Consec") && g != kGrigliaSomma ? "Val" : "Val.");
        ColonnaInteri valori;
        ColonnaInteri frequenze;
        for (int v = 0; v <= massimi_[g]; ++v) {
            auto f = static_cast<std::int32_t>(conteggi_[inizi_[g] + static_cast<std::size_t>(v)]);
            if (f == 0) continue;
            if (base_.sedici_bit) f = std::min<std::int32_t>(f, std::numeric_limits<std::int16_t>::max());
            valori.valori.push_back(v);
            frequenze.valori.push_back(f);
        }
        metti_colonne(t, std::move(valori), std::move(frequenze), base_.intero);
        return t;
    }

    BaseConteggio base_;
    std::array<int, kQuante> massimi_{};  ///< -1 for a grid that stays empty
    std::array<std::size_t, kQuante> inizi_{};
    std::vector<std::uint32_t> conteggi_;
};

/// The conditions, and for each position whether even or odd.
template <std::size_t K>
class ConteggioCondizioni final : public ConteggioValori<K, Condizioni> {
    using Base = ConteggioValori<K, Condizioni>;

  public:
    using Base::Base;

    void conta(const BloccoCombinazioni& blocco) override {
        Base::conta(blocco);
        for (std::size_t i = 0; i + K <= blocco.numeri.size(); i += K) {
            for (std::size_t j = 0; j < K; ++j)
                dispari_[j] += static_cast<unsigned>(blocco.numeri[i + j]) & 1U;
            ++totale_;
        }
    }

    [[nodiscard]] std::vector<Tabella> tabelle() const override {
        auto t = Base::tabelle();
        Tabella dettaglio = tabella_valori(kDettaglioPari, "Val.");
        ColonnaTesti caselle;
        ColonnaInteri frequenze;
        for (std::size_t j = 0; j < K; ++j)
            for (const bool pari : {true, false}) {
                caselle.valori.push_back(fmt::format("{}  CAS  {}", j + 1, pari ? "P" : "D"));
                frequenze.valori.push_back(
                    static_cast<std::int32_t>(pari ? totale_ - dispari_[j] : dispari_[j]));
            }
        metti_colonne(dettaglio, std::move(caselle), std::move(frequenze), this->base().intero);
        t.push_back(std::move(dettaglio));
        return t;
    }

  private:
    std::array<std::uint32_t, K> dispari_{};
    std::uint32_t totale_ = 0;
};

// ---- positions ----

std::vector<std::string> titoli_blocchi(std::size_t posti, bool jolly,
                                        std::span<const std::string_view> sotto,
                                        std::vector<std::string>& sopra) {
    std::vector<std::string> bassi{""};
    sopra = {"N."};
    for (std::size_t p = 1; p <= posti + (jolly ? 1 : 0); ++p) {
        sopra.push_back(p > posti ? "Jolly" : fmt::format("Posizione {}", p));
        sopra.resize(sopra.size() + sotto.size() - 1);
        bassi.insert(bassi.end(), sotto.begin(), sotto.end());
    }
    return bassi;
}

/// The table of positions with its titles and the column of the numbers.
Tabella tabella_posizioni(const BaseConteggio& base) {
    constexpr std::array<std::string_view, 3> kMisure{"F", "R", "RS"};
    constexpr std::array<std::string_view, 2> kQuote{"F", "%"};
    Tabella t;
    t.nome = kGrigliaPosizione;
    t.titoli.resize(2);
    t.titoli[1] = titoli_blocchi(
        base.k, base.jolly, base.sistema ? std::span<const std::string_view>{kQuote} : kMisure, t.titoli[0]);
    ColonnaInteri numeri;
    for (int n = 1; n <= kNumeri; ++n) numeri.valori.push_back(n);
    t.colonne.emplace_back(std::move(numeri));
    return t;
}

const Colonna kColonnaVuota = ColonnaInteri{std::vector<std::int32_t>(kNumeri, kCellaVuota)};

/// Frequency and delays of every number at every position of the combinations of a draw.
template <std::size_t K>
class ConteggioPosizioni final : public ContoMisure {
  public:
    explicit ConteggioPosizioni(const BaseConteggio& base)
        : base_{base},
          misure_((kNumeri + 1) * K, Misura{.ultimo = inizio_ambata(Estrazioni{base.concorsi})}) {}

    void conta(const BloccoCombinazioni& blocco) override {
        for (std::size_t i = 0; i < blocco.estrazioni.size(); ++i)
            for (std::size_t j = 0; j < K; ++j)
                if (const Valore v = blocco.numeri[i * K + j]; e_numero(v))
                    esce(misure_[static_cast<std::size_t>(v) * K + j], blocco.estrazioni[i]);
    }

    [[nodiscard]] std::vector<Tabella> tabelle() const override {
        Tabella t = tabella_posizioni(base_);
        for (std::size_t j = 0; j < K; ++j) {
            ColonnaInteri f;
            ColonnaInteri r;
            ColonnaInteri rs;
            for (std::size_t n = 1; n <= kNumeri; ++n) {
                const Misura& m = misure_[n * K + j];
                const bool mai = m.frequenza == 0;
                f.valori.push_back(mai ? kCellaPuntini : m.frequenza);
                r.valori.push_back(ritardo(m, Estrazioni{base_.concorsi}));
                rs.valori.push_back(mai ? kCellaPuntini : m.storico);
            }
            t.colonne.emplace_back(std::move(f));
            t.colonne.emplace_back(std::move(r));
            t.colonne.emplace_back(std::move(rs));
        }
        if (base_.jolly) t.colonne.insert(t.colonne.end(), 3, kColonnaVuota);
        return {std::move(t)};
    }

  private:
    BaseConteggio base_;
    std::vector<Misura> misure_;  ///< by number, then position
};

/// The same for a saved system, which has no draws: how often, and of how many.
template <std::size_t K>
class ConteggioPosizioniSistema final : public ContoMisure {
  public:
    explicit ConteggioPosizioniSistema(const BaseConteggio& base)
        : base_{base}, frequenze_((kNumeri + 1) * K) {}

    void conta(const BloccoCombinazioni& blocco) override {
        for (std::size_t i = 0; i + K <= blocco.numeri.size(); i += K)
            for (std::size_t j = 0; j < K; ++j)
                if (const Valore v = blocco.numeri[i + j]; e_numero(v))
                    ++frequenze_[static_cast<std::size_t>(v) * K + j];
    }

    [[nodiscard]] std::vector<Tabella> tabelle() const override {
        Tabella t = tabella_posizioni(base_);
        for (std::size_t j = 0; j < K; ++j) {
            ColonnaInteri f;
            ColonnaTesti quote;
            for (std::size_t n = 1; n <= kNumeri; ++n) {
                f.valori.push_back(static_cast<std::int32_t>(frequenze_[n * K + j]));
                quote.valori.push_back(
                    quoziente_due_decimali(std::int64_t{f.valori.back()} * 100, base_.intero, true));
            }
            t.colonne.emplace_back(std::move(f));
            t.colonne.emplace_back(std::move(quote));
        }
        if (base_.jolly) t.colonne.insert(t.colonne.end(), 2, kColonnaVuota);
        return {std::move(t)};
    }

  private:
    BaseConteggio base_;
    std::vector<std::uint32_t> frequenze_;  ///< by number, then position
};

// ---- groups of numbers ----

/// Delays of the Decine and the Cadenze by how many of their numbers came in one row, and the measures of the
/// numbers themselves. The wait before a number's first appearance counts here.
template <std::size_t K>
class ConteggioGruppi final : public ContoMisure {
  public:
    explicit ConteggioGruppi(const BaseConteggio& base) : base_{base} {
        for (auto& gruppo : ritardi_) gruppo.fill(base.concorsi);
    }

    void conta(const BloccoCombinazioni& blocco) override {
        for (std::size_t i = 0; i < blocco.estrazioni.size(); ++i) {
            const std::int32_t d = blocco.estrazioni[i];
            std::array<std::uint8_t, kGruppiNumeri.size()> presenti{};
            for (std::size_t j = 0; j < K; ++j) {
                const int v = blocco.numeri[i * K + j];
                if (!e_numero(v)) continue;
                esce(numeri_[static_cast<std::size_t>(v)], d);
                insieme(presenti, decina_di(v), d);
                if (v != kSenzaCadenza) insieme(presenti, cadenza_di(v), d);
            }
        }
    }

    [[nodiscard]] std::vector<Tabella> tabelle() const override {
        Tabella t;
        t.nome = "MSH_Gruppi(2)";
        t.titoli = {{"Num.", "Freq.", "Rit.", "R.S."}};
        ColonnaInteri colonne[4];  // NOLINT(*-avoid-c-arrays): the four titles
        for (std::size_t n = 1; n <= kNumeri; ++n) {
            const Misura& m = numeri_[n];
            const std::int32_t celle[] = {static_cast<std::int32_t>(n),
                                          m.frequenza,  // NOLINT(*-avoid-c-arrays)
                                          ritardo(m, Estrazioni{base_.concorsi}), m.storico};
            for (std::size_t c = 0; c < 4; ++c) colonne[c].valori.push_back(celle[c]);
        }
        for (ColonnaInteri& c : colonne) t.colonne.emplace_back(std::move(c));
        if (base_.gioco) t.eventi = {.gioco = *base_.gioco, .presenti = 1};
        return {gruppi("MSH_Gruppi(0)", 0, kDecine), gruppi("MSH_Gruppi(1)", kDecine, kCadenze),
                std::move(t)};
    }

  private:
    /// One more number of a group in this row: as many together as there are now came in draw `d`.
    void insieme(std::array<std::uint8_t, kGruppiNumeri.size()>& presenti, std::size_t gruppo,
                 std::int32_t d) {
        const std::size_t m = presenti[gruppo]++;
        if (m < kInsieme) ritardi_[gruppo][m] = base_.concorsi - d;
    }
    [[nodiscard]] Tabella gruppi(std::string_view nome, std::size_t primo, std::size_t quanti) const {
        Tabella t;
        t.nome = nome;
        t.titoli = {{"Ritardo Serie", "", "", "", ""}, {"Num", "1", "2", "3", "4"}};
        ColonnaTesti titoli;
        for (std::size_t g = primo; g < primo + quanti; ++g)
            titoli.valori.emplace_back(kGruppiNumeri[g].titolo);
        t.colonne.emplace_back(std::move(titoli));
        for (std::size_t m = 0; m < kInsieme; ++m) {
            ColonnaInteri r;
            for (std::size_t g = primo; g < primo + quanti; ++g) r.valori.push_back(ritardi_[g][m]);
            t.colonne.emplace_back(std::move(r));
        }
        return t;
    }

    BaseConteggio base_;
    MisureNumeri numeri_{};
    std::array<std::array<std::int32_t, kInsieme>, kGruppiNumeri.size()> ritardi_{};
};

template <std::size_t K>
std::unique_ptr<ContoMisure> crea_di(Statistica statistica, const BaseConteggio& base) {
    switch (statistica) {
        case Statistica::posizione:
            if (base.sistema) return std::make_unique<ConteggioPosizioniSistema<K>>(base);
            return std::make_unique<ConteggioPosizioni<K>>(base);
        case Statistica::distanza:
            return std::make_unique<ConteggioValori<K, Distanze>>(base);
        case Statistica::condizioni:
            return std::make_unique<ConteggioCondizioni<K>>(base);
        case Statistica::somme1:
            return std::make_unique<ConteggioValori<K, Somme1>>(base);
        case Statistica::somme2:
            return std::make_unique<ConteggioValori<K, Somme2>>(base);
        case Statistica::consecutivita:
            return std::make_unique<ConteggioValori<K, Passi>>(base);
        case Statistica::gruppi:
            return std::make_unique<ConteggioGruppi<K>>(base);
    }
    return nullptr;
}

}  // namespace

std::unique_ptr<ContoMisure> crea_conteggio(Statistica statistica, const BaseConteggio& base) {
    switch (base.k) {
        case 2:
            return crea_di<2>(statistica, base);
        case 3:
            return crea_di<3>(statistica, base);
        case 4:
            return crea_di<4>(statistica, base);
        case 5:
            return crea_di<5>(statistica, base);
        case 6:
            return crea_di<6>(statistica, base);
        case 10:
            return crea_di<10>(statistica, base);
        case kListaMassima:
            if (statistica == Statistica::distanza)
                return std::make_unique<ConteggioValori<kListaMassima, Distanze>>(base);
            return std::make_unique<ConteggioPosizioniSistema<kListaMassima>>(base);
        default:
            return nullptr;
    }
}

bool riempie(Statistica statistica, std::size_t griglia, std::size_t k) {
    switch (statistica) {
        case Statistica::distanza:
            return Distanze::mostra(griglia, k);
        case Statistica::somme1:
            return Somme1::mostra(griglia, k);
        case Statistica::somme2:
            return Somme2::mostra(griglia, k);
        default:
            return true;
    }
}

std::span<const GrigliaMisura> griglie_misura(Statistica statistica) {
    switch (statistica) {
        case Statistica::distanza:
            return kDistanze;
        case Statistica::condizioni:
            return kCondizioni;
        case Statistica::somme1:
            return kSomme1;
        case Statistica::somme2:
            return kSomme2;
        case Statistica::consecutivita:
            return kConsecutivita;
        default:
            return {};
    }
}

std::vector<std::string> titoli_griglie(Statistica statistica, std::size_t k) {
    if (statistica == Statistica::posizione) return {""};
    if (statistica == Statistica::gruppi) return {"Decine", "Cadenze", ""};
    std::vector<std::string> titoli;
    for (const GrigliaMisura& g : griglie_misura(statistica)) {
        titoli.emplace_back(g.titolo);
        if (titoli.back().ends_with(' ')) titoli.back() += std::to_string(k);
    }
    if (statistica == Statistica::condizioni) titoli.emplace_back("Dettaglio Pari");
    return titoli;
}

}  // namespace sortimetra
