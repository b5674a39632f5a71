#include "personal/gruppi.h"

#include "draws/ambito.h"
#include "personal/file_gruppi.h"
#include "personal/parametri.h"
#include "results/risultato.h"
#include "statistics/misure.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <numeric>
#include <span>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

constexpr std::size_t kBit = 64;
/// Delays of the group that have a row of their own: 0 to 1000.
constexpr std::size_t kRitardi = 1001;
/// More outcomes than this are refused: their table would not fit the memory of a small machine.
constexpr std::size_t kEsitiMassimi = 10'000'000;

/// Which lunghette hold each number, one bit each, `parole` words per number. Where a lunghetta repeats a
/// number a second table holds those that have it twice, and so on. Number 0, an empty cell, stands nowhere.
struct Maschere {
    std::size_t parole = 0;
    std::vector<std::vector<std::uint64_t>> strati;

    explicit Maschere(const SerieCorrente& gruppo)
        : parole{(gruppo.righe() + kBit - 1) / kBit}, strati(1, vuoto()) {
        for (std::size_t i = 0; i < gruppo.righe(); ++i) {
            const std::uint64_t bit = std::uint64_t{1} << i % kBit;
            for (const Numero n : gruppo.membro(i)) {
                const std::size_t dove = n * parole + i / kBit;
                std::size_t s = 0;
                while (s < strati.size() && (strati[s][dove] & bit) != 0) ++s;
                if (s == strati.size()) strati.push_back(vuoto());
                strati[s][dove] |= bit;
            }
        }
    }

  private:
    [[nodiscard]] std::vector<std::uint64_t> vuoto() const {
        return std::vector<std::uint64_t>((kNumeri + 1) * parole);
    }
};

/// The lunghette of word `w` of which a row of `Posti` cells holds at least `K` numbers. `almeno[k]` are
/// those of which more than k were met so far.
template <int Posti, int K>
std::uint64_t colpite(const Maschere& maschere, const Numero* riga, std::size_t w) {
    std::array<std::uint64_t, K> almeno{};
    for (const auto& strato : maschere.strati)
        for (int p = 0; p < Posti; ++p) {
            const std::uint64_t m = strato[riga[p] * maschere.parole + w];
            for (std::size_t k = K - 1; k > 0; --k) almeno[k] |= almeno[k - 1] & m;
            almeno[0] |= m;
        }
    return almeno[K - 1];
}
using Colpite = std::uint64_t (*)(const Maschere&, const Numero*, std::size_t);
template <int Posti>
constexpr std::array<Colpite, kEstratti> kColpite{colpite<Posti, 1>, colpite<Posti, 2>, colpite<Posti, 3>,
                                                  colpite<Posti, 4>, colpite<Posti, 5>};

/// Where the outcomes are looked for: the rows of the chosen wheels, draw by draw.
class RigheRuote {
  public:
    static constexpr int kPosti = kEstratti;
    static constexpr Gioco kGioco = Gioco::lotto;

    RigheRuote(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito)
        : vista_{archivio, ambito},
          date_{ambito.ruote.e_nazionale() ? archivio.nazionale().data : archivio.lotto().data} {}

    [[nodiscard]] std::size_t righe() const { return vista_.righe(); }
    [[nodiscard]] std::size_t concorsi() const { return vista_.concorsi(); }
    [[nodiscard]] Estrazioni t() const { return vista_.t(); }
    [[nodiscard]] Concorso concorso(std::size_t estrazione) const { return vista_.concorso(estrazione); }
    [[nodiscard]] Data data(std::size_t estrazione) const { return date_[vista_.record(estrazione)]; }
    template <class Riga>
    void ogni_riga(Avanzamento& avanzamento, Riga&& riga) const {
        percorri(vista_, avanzamento, riga);
    }

  private:
    VistaEstrazioni vista_;
    std::span<const Data> date_;
};

/// The same for Win for Life: its records, of which two of one concorso are one draw.
class RigheWinForLife {
  public:
    static constexpr int kPosti = 10;
    static constexpr Gioco kGioco = Gioco::win_for_life;

    RigheWinForLife(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito)
        : tabella_{archivio.winforlife()}, record_{vista_winforlife(archivio, ambito)} {
        SenzaAvanzamento nessuno;
        percorri_righe(record_, tabella_.concorso, nessuno, [this](int c, std::uint32_t record) {
            if (static_cast<std::size_t>(c) > primi_.size()) primi_.push_back(record);
        });
    }

    [[nodiscard]] std::size_t righe() const { return record_.size(); }
    [[nodiscard]] std::size_t concorsi() const { return primi_.size(); }
    [[nodiscard]] Estrazioni t() const { return Estrazioni{static_cast<std::int32_t>(record_.size())}; }
    [[nodiscard]] Concorso concorso(std::size_t estrazione) const {
        return tabella_.concorso[primi_[estrazione]];
    }
    [[nodiscard]] Data data(std::size_t estrazione) const { return tabella_.data[primi_[estrazione]]; }
    template <class Riga>
    void ogni_riga(Avanzamento& avanzamento, Riga&& riga) const {
        percorri_righe(record_, tabella_.concorso, avanzamento,
                       [&](int c, std::uint32_t record) { riga(c, tabella_.numeri[record].data()); });
    }

  private:
    const TabellaWinForLife& tabella_;
    std::vector<std::uint32_t> record_;
    std::vector<std::uint32_t> primi_;  ///< first record of each draw
};

/// A row with outcomes: its draw (from 0) and how many lunghette it hits.
struct RigaEsiti {
    std::uint32_t estrazione;
    std::uint32_t quanti;
};

/// All rows with outcomes, in draw order, and the lunghette that each hits: `parole` words per row.
struct Esiti {
    std::vector<RigaEsiti> righe;
    std::vector<std::uint64_t> colpite;
    std::size_t quanti = 0;
};

template <class Righe>
Esiti trova_esiti(const Righe& righe, const Maschere& maschere, int sorte, Avanzamento& avanzamento) {
    Esiti esiti;
    const Colpite conta = kColpite<Righe::kPosti>[static_cast<std::size_t>(sorte - 1)];
    righe.ogni_riga(avanzamento, [&](int c, const Numero* numeri) {
        const std::size_t inizio = esiti.colpite.size();
        std::uint32_t quanti = 0;
        for (std::size_t w = 0; w < maschere.parole; ++w) {
            const std::uint64_t m = conta(maschere, numeri, w);
            quanti += static_cast<std::uint32_t>(std::popcount(m));
            esiti.colpite.push_back(m);
        }
        if (quanti == 0)
            esiti.colpite.resize(inizio);
        else
            esiti.righe.push_back({static_cast<std::uint32_t>(c - 1), quanti});
        esiti.quanti += quanti;
    });
    return esiti;
}

/// What the walk over the outcomes counts for the group as a whole.
struct ContiGruppo {
    std::array<std::int32_t, kRitardi> ritardi{};  ///< outcomes by their delay
    std::int64_t somma = 0;                        ///< of all delays
    std::int32_t storico = 0;                      ///< the longest
    std::int32_t ritardo = 0;                      ///< of the group now

    void esce(std::int32_t d, std::uint32_t volte) {
        if (volte == 0) return;
        if (static_cast<std::size_t>(d) < kRitardi)
            ritardi[static_cast<std::size_t>(d)] += static_cast<std::int32_t>(volte);
        somma += std::int64_t{d} * volte;
        storico = std::max(storico, d);
    }
};

/// The table of outcomes, filled row by row.
class TabellaEsiti {
  public:
    explicit TabellaEsiti(std::size_t quanti) {
        ritardi_.valori.resize(quanti);
        concorsi_.valori.resize(quanti);
        date_.scelte.resize(quanti);
        date_.in_ordine = true;
    }
    /// The outcomes of one row: the first has the group's delay, the others 0.
    void riga(const RigaEsiti& r, std::int32_t ritardo, Concorso concorso, Data data) {
        if (date_.voci.empty() || data != ultima_) date_.voci.push_back(testo_data(data));
        ultima_ = data;
        const auto voce = static_cast<std::uint32_t>(date_.voci.size() - 1);
        ritardi_.valori[posto_] = ritardo;
        std::fill_n(concorsi_.valori.data() + posto_, r.quanti, concorso);
        std::fill_n(date_.scelte.data() + posto_, r.quanti, voce);
        posto_ += r.quanti;
    }
    [[nodiscard]] Tabella tabella() && {
        Tabella t;
        t.nome = "esiti";
        t.titoli = {{"Ritardo", "Concorso", "Data"}};
        t.colonne.emplace_back(std::move(ritardi_));
        t.colonne.emplace_back(std::move(concorsi_));
        t.colonne.emplace_back(std::move(date_));
        return t;
    }

  private:
    std::size_t posto_ = 0;
    Data ultima_{};
    ColonnaInteri ritardi_;
    ColonnaInteri concorsi_;
    ColonnaVoci date_;
};

Tabella tabella_ritardi(const ContiGruppo& conti, std::size_t esiti) {
    ColonnaInteri ritardi;
    ColonnaInteri frequenze;
    ColonnaTesti percentuali;
    for (std::size_t d = 0; d < kRitardi; ++d) {
        if (conti.ritardi[d] == 0) continue;
        ritardi.valori.push_back(static_cast<std::int32_t>(d));
        frequenze.valori.push_back(conti.ritardi[d]);
        percentuali.valori.push_back(quoziente_due_decimali(std::int64_t{conti.ritardi[d]} * 100,
                                                            static_cast<std::int64_t>(esiti), true) +
                                     "%");
    }
    Tabella t;
    t.titoli = {{"Ritardo", "Frequenza del ritardo", "Percentuale"}};
    t.colonne.emplace_back(std::move(ritardi));
    t.colonne.emplace_back(std::move(frequenze));
    t.colonne.emplace_back(std::move(percentuali));
    return t;
}

Tabella tabella_lunghette(Gioco gioco, const AnalisiGruppo& analisi, std::span<const Misura> misure,
                          Estrazioni t) {
    const SerieCorrente& gruppo = analisi.gruppo;
    ColonnaTesti nomi;
    for (std::size_t i = 0; i < gruppo.righe(); ++i) {
        std::string nome;
        for (const Numero n : gruppo.membro(i)) {
            if (!nome.empty()) nome += " - ";
            aggiungi_intero(nome, n);
        }
        nomi.valori.push_back(std::move(nome));
    }
    Eventi eventi{.gioco = gioco,
                  .presenti = static_cast<std::uint8_t>(analisi.sorte),
                  .quanti = static_cast<std::uint8_t>(gruppo.colonne),
                  .numeri = gruppo.numeri};
    static const std::vector<std::string> titoli{"Lunghette", "Frequenza", "Ritardo", "Ritardo Storico"};
    Risultato r = tabella_misure(std::move(nomi), misure, t, std::move(eventi), titoli);
    r.tabelle.front().nome = "lunghette";
    return std::move(r.tabelle.front());
}

Tabella tabella_sintesi(const ContiGruppo& conti, std::size_t esiti, std::size_t righe) {
    Tabella t;
    t.nome = "sintesi";
    t.titoli = {{"Frequenza", "Ritardo", "Ritardo Storico", "Ritardo Medio"}};
    t.colonne.emplace_back(ColonnaTesti{{fmt::format("{} / {}", esiti, righe)}});
    t.colonne.emplace_back(ColonnaInteri{{conti.ritardo}});
    t.colonne.emplace_back(ColonnaInteri{{conti.storico}});
    t.colonne.emplace_back(
        ColonnaTesti{{quoziente_due_decimali(conti.somma, static_cast<std::int64_t>(esiti), true)}});
    return t;
}

std::vector<std::string> fasce(std::int32_t storico) {
    std::vector<std::string> testi;
    for (const int parte : {75, 85, 95})
        testi.push_back(fmt::format(
            "0 - {}  ({}%)",
            quoziente_pari(static_cast<std::size_t>(storico) * static_cast<std::size_t>(parte), 100), parte));
    return testi;
}

/// The rows of the combinations' measures: the place of (i, j, l), each by its place in the lunghetta.
class PostiCombinazioni {
  public:
    PostiCombinazioni(std::size_t n, std::size_t k)
        : n_{n},
          k_{k},
          posti_(k == 1   ? n
                 : k == 2 ? n * n
                          : n * n * n) {
        std::vector<std::size_t> tutti(n_);
        std::iota(tutti.begin(), tutti.end(), std::size_t{0});
        ogni_scelta(tutti, k_, [this](std::span<const std::size_t> s) { posti_[indice(s)] = quante_++; });
    }
    [[nodiscard]] std::size_t quante() const { return quante_; }
    [[nodiscard]] std::uint32_t operator()(std::span<const std::size_t> scelti) const {
        return posti_[indice(scelti)];
    }
    /// Calls `combinazione(posti)` for each choice of k of the given places.
    template <class F>
    static void ogni_scelta(std::span<const std::size_t> da, std::size_t k, F&& combinazione) {
        std::array<std::size_t, 3> s{};
        const std::size_t n = da.size();
        for (std::size_t i = 0; i < n; ++i) {
            s[0] = da[i];
            if (k == 1) combinazione(std::span{s}.first(1));
            for (std::size_t j = i + 1; k > 1 && j < n; ++j) {
                s[1] = da[j];
                if (k == 2) combinazione(std::span{s}.first(2));
                for (std::size_t l = j + 1; k > 2 && l < n; ++l) {
                    s[2] = da[l];
                    combinazione(std::span{s}.first(3));
                }
            }
        }
    }

  private:
    [[nodiscard]] std::size_t indice(std::span<const std::size_t> scelti) const {
        std::size_t i = 0;
        for (const std::size_t s : scelti) i = i * n_ + s;
        return i;
    }

    std::size_t n_;
    std::size_t k_;
    std::uint32_t quante_ = 0;
    std::vector<std::uint32_t> posti_;
};

template <class Righe>
Risultato analizza_righe(const Righe& righe, const AnalisiGruppo& analisi, Avanzamento& avanzamento) {
    if (righe.righe() == 0) return senza_estrazioni();
    const Maschere maschere{analisi.gruppo};
    const Esiti esiti = trova_esiti(righe, maschere, analisi.sorte, avanzamento);
    if (esiti.quanti > kEsitiMassimi)
        return non_avviata(
            {Avviso::troppe_combinazioni,
             fmt::format("Gli esiti sono più di {}: scegliere meno combinazioni, meno ruote o un "
                         "intervallo più breve",
                         migliaia(static_cast<std::int64_t>(kEsitiMassimi)))});

    ContiGruppo conti;
    std::vector<Misura> misure(analisi.gruppo.righe());
    TabellaEsiti tabella{esiti.quanti};
    // An outcome at draw e sets the group's delay to -1; it goes up by one at the end of every draw.
    std::int64_t ultimo = -1;
    const std::uint64_t* colpite = esiti.colpite.data();
    for (const RigaEsiti& r : esiti.righe) {
        const auto d = static_cast<std::int32_t>(std::max<std::int64_t>(r.estrazione - ultimo - 1, 0));
        ultimo = r.estrazione;
        tabella.riga(r, d, righe.concorso(r.estrazione), righe.data(r.estrazione));
        conti.esce(d, 1);
        conti.esce(0, r.quanti - 1);
        for (std::size_t w = 0; w < maschere.parole; ++w, ++colpite)
            for (std::uint64_t m = *colpite; m != 0; m &= m - 1)
                esce(misure[w * kBit + static_cast<std::size_t>(std::countr_zero(m))],
                     static_cast<std::int32_t>(r.estrazione) + 1);
    }
    conti.ritardo = static_cast<std::int32_t>(static_cast<std::int64_t>(righe.concorsi()) - ultimo - 1);

    Risultato r;
    r.tabelle.push_back(tabella_ritardi(conti, esiti.quanti));
    r.tabelle.push_back(std::move(tabella).tabella());
    r.tabelle.push_back(tabella_lunghette(Righe::kGioco, analisi, misure, righe.t()));
    r.tabelle.push_back(tabella_sintesi(conti, esiti.quanti, righe.righe()));
    r.etichette.push_back({"lblfasce", fasce(conti.storico)});
    r.etichette.push_back(
        {"lblprob", analisi.entro ? probabilita_gruppo(*analisi.entro, conti.ritardo, conti.storico) : ""});
    return r;
}

}  // namespace

Risultato analisi_gruppo(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito,
                         const AnalisiGruppo& analisi, Avanzamento& avanzamento) {
    return analizza_righe(RigheRuote{archivio, ambito}, analisi, avanzamento);
}

Risultato analisi_gruppo_winforlife(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito,
                                    const AnalisiGruppo& analisi, Avanzamento& avanzamento) {
    return analizza_righe(RigheWinForLife{archivio, ambito}, analisi, avanzamento);
}

Tabella dettaglio_scomposta(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito,
                            std::span<const Numero> lunghetta, int sorte, Avanzamento& avanzamento) {
    const VistaEstrazioni vista{archivio, ambito};
    std::vector<Numero> numeri(lunghetta.begin(), lunghetta.end());
    std::sort(numeri.begin(), numeri.end());
    const auto k = static_cast<std::size_t>(sorte);
    const PostiCombinazioni posti{numeri.size(), k};
    std::vector<Misura> misure(posti.quante());
    percorri(vista, avanzamento, [&](int c, const Numero* riga) {
        // Places of the lunghetta whose numbers came. A number that it repeats comes at each of its places.
        std::array<std::size_t, kNumeriLunghetta> usciti{};
        std::size_t quanti = 0;
        for (std::size_t i = 0; i < numeri.size(); ++i)
            if (std::find(riga, riga + kEstratti, numeri[i]) != riga + kEstratti) usciti[quanti++] = i;
        if (quanti < k) return;
        PostiCombinazioni::ogni_scelta(std::span{usciti}.first(quanti), k,
                                       [&](std::span<const std::size_t> s) { esce(misure[posti(s)], c); });
    });
    ColonnaGruppi combinazioni{.quanti = k, .separatore = '-', .numeri = {}};
    std::vector<std::size_t> tutti(numeri.size());
    std::iota(tutti.begin(), tutti.end(), std::size_t{0});
    PostiCombinazioni::ogni_scelta(tutti, k, [&](std::span<const std::size_t> s) {
        for (const std::size_t i : s) combinazioni.numeri.push_back(numeri[i]);
    });
    Risultato r = tabella_misure(std::move(combinazioni), misure, vista.t(),
                                 {.presenti = static_cast<std::uint8_t>(sorte)});
    Tabella t = std::move(r.tabelle.front());
    t.nome = "dettaglio";
    t.titoli = {{"Combinazioni", "Ritardo", "Frequenza", "Ritardo Storico"}};
    std::swap(t.colonne[1], t.colonne[2]);
    return t;
}

std::string probabilita_gruppo(int entro, int ritardo, int storico) {
    if (ritardo >= storico) return {};
    const std::int64_t parte = (std::int64_t{entro} + ritardo) * 100;
    return quoziente_due_decimali(std::min(parte, std::int64_t{storico} * 100), storico, true) + "%";
}

std::optional<std::size_t> ritardo_piu_frequente(const Tabella& ritardi) {
    const auto& frequenze = std::get<ColonnaInteri>(ritardi.colonne[1]).valori;
    if (frequenze.empty()) return std::nullopt;
    return static_cast<std::size_t>(std::max_element(frequenze.begin(), frequenze.end()) - frequenze.begin());
}

Risultato ricerche_per_gruppi(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                              Avanzamento& avanzamento) {
    const auto& parametri = domanda.di<ParametriGruppi>();
    const SerieCorrente& gruppo = parametri.lunghette;
    if (gruppo.righe() == 0) return non_avviata({Avviso::gruppo_incompleto, std::string{kGruppoIncompleto}});
    Risultato r =
        analisi_gruppo(archivio, domanda.ambito,
                       {.gruppo = gruppo, .sorte = parametri.sorte, .entro = parametri.entro}, avanzamento);
    if (r.prodotto && parametri.dettaglio && parametri.sorte <= kSorteDettaglio)
        r.tabelle.push_back(dettaglio_scomposta(
            archivio, domanda.ambito, gruppo.membro(static_cast<std::size_t>(*parametri.dettaglio) - 1),
            parametri.sorte, avanzamento));
    return r;
}

std::expected<void, Messaggio> carica_gruppo(const std::filesystem::path& cartella, Domanda& domanda) {
    auto& parametri = domanda.parametri.per<ParametriGruppi>();
    if (parametri.gruppo.empty()) return {};
    auto gruppo = apri_gruppo(cartella, parametri.gruppo);
    if (!gruppo) return std::unexpected(gruppo.error());
    parametri.lunghette = std::move(*gruppo);
    return {};
}

std::optional<std::string> controlla_gruppo(const Domanda& domanda) {
    const auto& p = domanda.di<ParametriGruppi>();
    if (p.lunghette.righe() == 0) return std::nullopt;
    const auto numeri = static_cast<int>(p.lunghette.colonne);
    if (p.sorte > std::min(kEstratti, numeri))
        return fmt::format("--sorte: trovato \"{}\", atteso al più {}: le lunghette sono di {} numeri.",
                           p.sorte, std::min(kEstratti, numeri), numeri);
    if (!p.dettaglio) return std::nullopt;
    if (*p.dettaglio > static_cast<int>(p.lunghette.righe()))
        return fmt::format("--dettaglio: trovato \"{}\", attesa una lunghetta da 1 a {}.", *p.dettaglio,
                           p.lunghette.righe());
    if (p.sorte > kSorteDettaglio)
        return fmt::format("--dettaglio: le combinazioni si elencano fino al terno, con --sorte al più {}.",
                           kSorteDettaglio);
    return std::nullopt;
}

std::optional<SerieCorrente> leggi_lunghette(std::string_view testo) {
    SerieCorrente gruppo;
    std::size_t lunghette = 0;
    while (true) {
        const auto fine = testo.find(';');
        std::string_view lunghetta = rifila(testo.substr(0, fine));
        std::size_t quanti = 0;
        while (!lunghetta.empty()) {
            const auto spazio = lunghetta.find_first_of(" \t");
            const auto n = intero_opzione(lunghetta.substr(0, spazio), 1, kNumeri);
            if (!n) return std::nullopt;
            gruppo.numeri.push_back(static_cast<Numero>(*n));
            ++quanti;
            lunghetta =
                spazio == std::string_view::npos ? std::string_view{} : rifila(lunghetta.substr(spazio));
        }
        if (lunghette == 0) gruppo.colonne = quanti;
        if (quanti == 0 || quanti > kNumeriLunghetta || quanti != gruppo.colonne) return std::nullopt;
        if (++lunghette > kLunghetteGruppo) return std::nullopt;
        if (fine == std::string_view::npos) return gruppo;
        testo.remove_prefix(fine + 1);
    }
}

std::string testo_lunghette(const SerieCorrente& gruppo) {
    std::string testo;
    for (std::size_t i = 0; i < gruppo.righe(); ++i) {
        if (i > 0) testo += ';';
        std::string_view prima;
        for (const Numero n : gruppo.membro(i)) {
            testo += prima;
            aggiungi_intero(testo, n);
            prima = " ";
        }
    }
    return testo;
}

}  // namespace sortimetra
