#include "draws/esame.h"

#include "text/ora.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace sortimetra {

namespace {

using std::chrono::days;

constexpr unsigned kOgniRuota = (1U << kRuote) - 1;
constexpr std::string_view kRuotaDavanti = "ruota ";

/// The cells of a row of `archivios` in the order of the packed archive; those of the Lotto are called alike.
constexpr std::array<std::string_view, 8> kCelleSuperEnalotto{
    "1°estratto", "2°estratto", "3°estratto", "4°estratto", "5°estratto", "6°estratto", "Jolly", "superstar"};

/// The name of the k-th cell of a row (from 0), as the file has it.
std::string nome_cella(TabellaArchivio tabella, std::size_t k) {
    if (tabella == TabellaArchivio::WinForLife) return fmt::format("{}°", k + 1);
    return std::string{kCelleSuperEnalotto[k]};
}

/// A row of a table; `ruota` where a concorso has several.
struct Riga {
    TabellaArchivio tabella{};
    Concorso concorso = 0;
    int ruota = -1;

    [[nodiscard]] std::string davanti() const {
        if (ruota < 0) return {};
        return fmt::format("{}{}: ", kRuotaDavanti, kNomiRuote[static_cast<std::size_t>(ruota)].codice);
    }
};

/// What keeps the findings. Texts are made only for those that are kept: a hostile archive may have millions.
class Taccuino {
  public:
    Taccuino(bool solo_danni, bool uno_solo) : solo_danni_{solo_danni}, uno_solo_{uno_solo} {}

    /// Nothing more is wanted.
    [[nodiscard]] bool basta() const { return uno_solo_ && esame_.quanti_danni != 0; }

    template <class Testo>
    void danno(TabellaArchivio tabella, Concorso da, Concorso a, Testo&& testo) {
        segna(esame_.danni, esame_.quanti_danni, {tabella, da, a}, testo);
    }
    /// Of one row: the wheel, where it has one, stands before the text.
    template <class Testo>
    void danno(const Riga& riga, Testo&& testo) {
        segna(esame_.danni, esame_.quanti_danni, {riga.tabella, riga.concorso, riga.concorso, {}, riga.ruota},
              [&] { return riga.davanti() + testo(); });
    }
    template <class Testo>
    void danno(TabellaArchivio tabella, Concorso concorso, Testo&& testo) {
        danno(tabella, concorso, concorso, testo);
    }
    template <class Testo>
    void avviso(TabellaArchivio tabella, Concorso da, Concorso a, Testo&& testo) {
        if (!solo_danni_) segna(esame_.avvisi, esame_.quanti_avvisi, {tabella, da, a}, testo);
    }
    template <class Testo>
    void avviso(TabellaArchivio tabella, Concorso concorso, Testo&& testo) {
        avviso(tabella, concorso, concorso, testo);
    }

    Esame esito() && { return std::move(esame_); }

  private:
    template <class Testo>
    static void segna(std::vector<Rilievo>& dove, std::size_t& quanti, Rilievo rilievo, Testo&& testo) {
        if (quanti++ >= kRilieviElencati) return;
        rilievo.testo = testo();
        dove.push_back(std::move(rilievo));
    }

    Esame esame_;
    bool solo_danni_;
    bool uno_solo_;
};

/// The names of the empty cells among `numeri`, joined by blanks.
std::string celle_vuote(TabellaArchivio tabella, std::span<const Numero> numeri) {
    std::string nomi;
    for (std::size_t k = 0; k < numeri.size(); ++k)
        if (numeri[k] == 0) nomi += (nomi.empty() ? "" : ", ") + nome_cella(tabella, k);
    return nomi;
}

/// Two places of one number among `numeri`; empty cells are like no other.
std::optional<std::pair<std::size_t, std::size_t>> doppio(std::span<const Numero> numeri) {
    std::array<std::uint8_t, kNumeri + 1> posto{};
    for (std::size_t k = 0; k < numeri.size(); ++k) {
        std::uint8_t& prima = posto[numeri[k]];
        if (numeri[k] != 0 && prima != 0) return std::pair{prima - std::size_t{1}, k};
        prima = static_cast<std::uint8_t>(k + 1);
    }
    return std::nullopt;
}

std::string frase_doppio(TabellaArchivio tabella, std::span<const Numero> numeri,
                         std::pair<std::size_t, std::size_t> posti) {
    return fmt::format("il numero {} sta due volte nella riga, in {} e in {}", numeri[posti.first],
                       nome_cella(tabella, posti.first), nome_cella(tabella, posti.second));
}

/// Whether no cell is empty and no number stands twice: what nearly all rows are. Each number up to
/// `kMassimo` has a bit; an empty cell is number 0, which is there from the start.
template <int kMassimo, std::size_t N>
bool completa(const Numero* numeri) {
    constexpr std::size_t kParole = kMassimo / 64 + 1;
    std::array<std::uint64_t, kParole> visti{1};
    std::uint64_t doppi = 0;
    for (std::size_t i = 0; i < N; ++i) {
        const std::uint64_t bit = std::uint64_t{1} << (numeri[i] & 63U);
        std::uint64_t& parola = visti[kParole == 1 ? 0 : numeri[i] >> 6U];
        doppi |= parola & bit;
        parola |= bit;
    }
    return doppi == 0;
}

/// A number twice, or empty cells, in a row.
void esamina_numeri(Taccuino& taccuino, const Riga& riga, std::span<const Numero> numeri) {
    if (const auto posti = doppio(numeri))
        taccuino.danno(riga, [&] { return frase_doppio(riga.tabella, numeri, *posti); });
    if (std::find(numeri.begin(), numeri.end(), Numero{0}) != numeri.end())
        taccuino.avviso(riga.tabella, riga.concorso, [&] {
            return riga.davanti() + "senza numero: " + celle_vuote(riga.tabella, numeri);
        });
}

std::string frase_data_indietro(Data data, Data prima) {
    return fmt::format("la data {} non viene dopo quella dell'estrazione prima, {}", testo_data(data),
                       testo_data(prima));
}

// ---- the Lotto ----

/// `kStessaRuota[d][i]`: all bits where places i and i + d of a record are on the same wheel.
constexpr std::size_t kPostiLotto = std::size_t{kRuote} * kEstratti;
constexpr auto kStessaRuota = [] {
    std::array<std::array<Numero, kPostiLotto>, kEstratti> maschere{};
    for (std::size_t d = 1; d < kEstratti; ++d)
        for (std::size_t i = 0; i < kPostiLotto; ++i)
            maschere[d][i] = i % kEstratti + d < kEstratti ? Numero{0xFF} : Numero{0};
    return maschere;
}();

/// Whether a draw has ten wheels of five different numbers: nearly all do, so nothing else need be looked at.
/// Byte by byte without a branch, so that the compiler makes it sixteen at a time.
bool tutte_complete(const std::array<Numero, kPostiLotto>& numeri) {
    Numero guasto = 0;
    for (std::size_t i = 0; i < kPostiLotto; ++i) guasto |= static_cast<Numero>(numeri[i] == 0 ? 0xFF : 0);
    for (std::size_t d = 1; d < kEstratti; ++d)
        for (std::size_t i = 0; i < kPostiLotto - d; ++i)
            guasto |= static_cast<Numero>((numeri[i] == numeri[i + d] ? 0xFF : 0) & kStessaRuota[d][i]);
    return guasto == 0;
}

/// The draw at `i`, wheel by wheel; `viste` are the wheels that an earlier draw had.
void esamina_ruote(Taccuino& taccuino, const TabellaLotto& t, std::size_t i, unsigned viste) {
    std::string mancanti;
    for (int w = 0; w < kRuote; ++w) {
        const unsigned bit = 1U << static_cast<unsigned>(w);
        if ((t.presenti[i] & bit) != 0) {
            const std::span<const Numero> numeri{t.numeri[i]};
            esamina_numeri(taccuino, {TabellaArchivio::Lotto, t.concorso[i], w},
                           numeri.subspan(static_cast<std::size_t>(w) * kEstratti, kEstratti));
        } else if ((viste & bit) != 0) {
            const auto& nome = kNomiRuote[static_cast<std::size_t>(w)];
            mancanti += (mancanti.empty() ? "" : ", ") + std::string{nome.codice};
        }
    }
    if (!mancanti.empty())
        taccuino.avviso(TabellaArchivio::Lotto, t.concorso[i],
                        [&] { return "mancano le righe di " + mancanti; });
}

/// A concorso that counts without gaps from 1: those that are missing before `concorso`.
void esamina_conto(Taccuino& taccuino, TabellaArchivio tabella, Concorso prima, Concorso concorso) {
    if (concorso > prima + 1)
        taccuino.danno(tabella, prima + 1, concorso - 1, [&] {
            return std::string{concorso == prima + 2 ? "il concorso manca" : "i concorsi mancano"};
        });
}

void esamina_lotto(Taccuino& taccuino, const TabellaLotto& t) {
    unsigned viste = 0;
    for (std::size_t i = 0; i < t.concorso.size() && !taccuino.basta(); ++i) {
        esamina_conto(taccuino, TabellaArchivio::Lotto, i == 0 ? 0 : t.concorso[i - 1], t.concorso[i]);
        if (i > 0 && t.data[i] <= t.data[i - 1])
            taccuino.danno(TabellaArchivio::Lotto, t.concorso[i],
                           [&] { return frase_data_indietro(t.data[i], t.data[i - 1]); });
        if (t.presenti[i] != kOgniRuota || !tutte_complete(t.numeri[i])) esamina_ruote(taccuino, t, i, viste);
        viste |= t.presenti[i];
    }
}

// ---- the two tables that go with the Lotto ----

/// The concorsi of the Lotto, walked beside those of another table.
class PassoLotto {
  public:
    explicit PassoLotto(const ArchivioEstrazioni& a) : t_{a.lotto()}, ultimo_{a.ultimo_concorso()} {}
    [[nodiscard]] Concorso ultimo() const { return ultimo_; }
    /// Whether the Lotto is known not to have a concorso; `attesa` is its date there. Without its rows, but
    /// with its last concorso, those up to that pass for sound.
    [[nodiscard]] bool manca(Concorso concorso, const std::optional<Data>& attesa) const {
        return t_.concorso.empty() ? ultimo_ > 0 && concorso > ultimo_ : !attesa;
    }
    /// The Lotto's date of a concorso; asked in ascending order.
    std::optional<Data> data(Concorso concorso) {
        while (i_ < t_.concorso.size() && t_.concorso[i_] < concorso) ++i_;
        if (i_ == t_.concorso.size() || t_.concorso[i_] != concorso) return std::nullopt;
        return t_.data[i_];
    }

  private:
    const TabellaLotto& t_;
    Concorso ultimo_;
    std::size_t i_ = 0;
};

/// Concorsi that a table lacks between its first and the Lotto's last.
void esamina_mancanti(Taccuino& taccuino, TabellaArchivio tabella, Concorso prima, Concorso dopo) {
    if (dopo > prima + 1)
        taccuino.avviso(tabella, prima + 1, dopo - 1, [&] {
            return std::string{dopo == prima + 2 ? "il concorso manca" : "i concorsi mancano"};
        });
}

/// What `archivion` and `archivios` have in common. `giorni`: how far their dates may be from the Lotto's.
template <class Tabella, class Riga>
void esamina_compagna(Taccuino& taccuino, TabellaArchivio quale, const Tabella& t,
                      const ArchivioEstrazioni& archivio, days giorni, Riga&& riga) {
    PassoLotto passo{archivio};
    for (std::size_t i = 0; i < t.concorso.size() && !taccuino.basta(); ++i) {
        const Concorso c = t.concorso[i];
        if (i > 0) esamina_mancanti(taccuino, quale, t.concorso[i - 1], c);
        const auto attesa = passo.data(c);
        if (passo.manca(c, attesa)) {
            taccuino.danno(quale, c,
                           [] { return std::string{"il concorso non c'è nelle estrazioni del Lotto"}; });
        } else if (attesa && std::chrono::abs(t.data[i] - *attesa) > giorni) {
            taccuino.danno(quale, c, [&] {
                return fmt::format("la data è {}, quella del Lotto {}", testo_data(t.data[i]),
                                   testo_data(*attesa));
            });
        }
        // A draw may have been given to a concorso before or behind its own: then dates run back, a little.
        if (i > 0 && (t.data[i] == t.data[i - 1] || t.data[i] < t.data[i - 1] - 2 * giorni))
            taccuino.danno(quale, c, [&] { return frase_data_indietro(t.data[i], t.data[i - 1]); });
        riga(i);
    }
    if (!t.concorso.empty()) esamina_mancanti(taccuino, quale, t.concorso.back(), passo.ultimo() + 1);
}

void esamina_nazionale(Taccuino& taccuino, const ArchivioEstrazioni& archivio) {
    const TabellaNazionale& t = archivio.nazionale();
    esamina_compagna(taccuino, TabellaArchivio::Nazionale, t, archivio, days{0}, [&](std::size_t i) {
        if (!completa<kNumeri, kEstratti>(t.numeri[i].data()))
            esamina_numeri(taccuino, {TabellaArchivio::Nazionale, t.concorso[i]}, t.numeri[i]);
    });
}

void esamina_superenalotto(Taccuino& taccuino, const ArchivioEstrazioni& archivio) {
    const TabellaSuperEnalotto& t = archivio.superenalotto();
    constexpr auto kQuale = TabellaArchivio::SuperEnalotto;
    bool superstar = false;
    esamina_compagna(taccuino, kQuale, t, archivio, kGiorniVicini, [&](std::size_t i) {
        // The Jolly comes out of the same urn as the six, the SuperStar out of another.
        const auto& numeri = t.numeri[i];
        constexpr std::size_t kUrna = 7;
        if (!completa<kNumeri, kUrna>(numeri.data()))
            esamina_numeri(taccuino, {kQuale, t.concorso[i]}, std::span{numeri}.first(kUrna));
        if (superstar && numeri[7] == 0)
            taccuino.avviso(kQuale, t.concorso[i], [] { return std::string{"senza numero: superstar"}; });
        superstar = superstar || numeri[7] != 0;
    });
}

// ---- Win for Life ----

constexpr int kNessunaOra = -1;
constexpr int kOraIllegibile = -2;

/// Minutes since midnight; seconds behind them are no matter.
int minuti(std::string_view ora) {
    std::string_view t = rifila(ora);
    if (t.empty()) return kNessunaOra;
    if (t.size() > 5 && t[t.size() - 3] == ':') t.remove_suffix(3);
    return leggi_ora(t).value_or(kOraIllegibile);
}

std::string visibile(std::string_view testo) {
    std::string t;
    for (const char c : testo.substr(0, 20)) t += c < 0x20 || c >= 0x7F ? '?' : c;
    return t;
}

/// One row of Win for Life against the one before it.
void esamina_seguito(Taccuino& taccuino, const TabellaWinForLife& t, std::size_t i, std::pair<int, int> ore) {
    constexpr auto kQuale = TabellaArchivio::WinForLife;
    const Concorso c = t.concorso[i];
    const auto [prima, ora] = ore;
    const bool con_ore = prima >= 0 && ora >= 0;
    if (c == t.concorso[i - 1]) {
        if (t.data[i] != t.data[i - 1]) {
            taccuino.danno(kQuale, c, [&] {
                return fmt::format("ha due date, {} e {}", testo_data(t.data[i - 1]), testo_data(t.data[i]));
            });
        } else if (!con_ore || ora == prima) {
            taccuino.danno(kQuale, c, [] { return std::string{"vi sta due volte"}; });
        } else {
            taccuino.avviso(kQuale, c, [&] {
                return fmt::format("vi sta due volte, alle {} e alle {}", visibile(rifila(t.ora[i - 1])),
                                   visibile(rifila(t.ora[i])));
            });
        }
        return;
    }
    esamina_conto(taccuino, kQuale, t.concorso[i - 1], c);
    if (t.data[i] < t.data[i - 1])
        taccuino.danno(kQuale, c, [&] { return frase_data_indietro(t.data[i], t.data[i - 1]); });
    else if (t.data[i] == t.data[i - 1] && con_ore && ora <= prima)
        taccuino.danno(kQuale, c, [&] {
            return fmt::format("l'ora {} non viene dopo quella dell'estrazione prima, {}",
                               visibile(rifila(t.ora[i])), visibile(rifila(t.ora[i - 1])));
        });
}

void esamina_winforlife(Taccuino& taccuino, const TabellaWinForLife& t) {
    constexpr auto kQuale = TabellaArchivio::WinForLife;
    int prima = kNessunaOra;
    for (std::size_t i = 0; i < t.concorso.size() && !taccuino.basta(); ++i) {
        const int ora = minuti(t.ora[i]);
        if (ora == kOraIllegibile)
            taccuino.danno(kQuale, t.concorso[i], [&] {
                return fmt::format(R"(trovata l'ora "{}", attesa un'ora come "8:00")", visibile(t.ora[i]));
            });
        if (ora == kNessunaOra)
            taccuino.avviso(kQuale, t.concorso[i], [] { return std::string{"senza ora"}; });
        if (i == 0)
            esamina_conto(taccuino, kQuale, 0, t.concorso[i]);
        else
            esamina_seguito(taccuino, t, i, {prima, ora});
        if (!completa<kNumeriWinForLife, 10>(t.numeri[i].data()))
            esamina_numeri(taccuino, {kQuale, t.concorso[i]}, t.numeri[i]);
        prima = ora;
    }
}

// ---- today ----

template <class Tabella>
void esamina_oggi(Taccuino& taccuino, TabellaArchivio quale, const Tabella& t, const Fonte& fonte,
                  Data oggi) {
    if (fonte.simulato) return;
    std::size_t i = t.data.size();
    while (i > 0 && t.data[i - 1] > oggi) --i;
    if (i == t.data.size()) return;
    taccuino.avviso(quale, t.concorso[i], t.concorso[t.data.size() - 1], [&] {
        return fmt::format(
            "la data {} viene dopo oggi, {}: o è sbagliata, o l'orologio del computer è indietro",
            testo_data(t.data[t.data.size() - 1]), testo_data(oggi));
    });
}

void esamina_oggi(Taccuino& taccuino, const ArchivioEstrazioni& a, Data oggi) {
    esamina_oggi(taccuino, TabellaArchivio::Lotto, a.lotto(), a.drawit(), oggi);
    esamina_oggi(taccuino, TabellaArchivio::Nazionale, a.nazionale(), a.drawit(), oggi);
    esamina_oggi(taccuino, TabellaArchivio::SuperEnalotto, a.superenalotto(), a.drawit(), oggi);
    esamina_oggi(taccuino, TabellaArchivio::WinForLife, a.winforlife(), a.drawit2(), oggi);
}

void esamina_tabelle(Taccuino& taccuino, const ArchivioEstrazioni& a) {
    esamina_lotto(taccuino, a.lotto());
    if (!taccuino.basta()) esamina_nazionale(taccuino, a);
    if (!taccuino.basta()) esamina_superenalotto(taccuino, a);
    if (!taccuino.basta()) esamina_winforlife(taccuino, a.winforlife());
}

}  // namespace

std::string Rilievo::frase() const {
    const std::string quali = fino > concorso ? fmt::format("concorsi {}-{}", concorso, fino)
                                              : fmt::format("concorso {}", concorso);
    // "ruota FI: …" goes on where the concorso ends; all else stands behind a colon.
    const std::string_view lega = testo.starts_with(kRuotaDavanti) ? ", " : ": ";
    return fmt::format("tabella {}, {}{}{}", nome_tabella(tabella), quali, lega, testo);
}

Esame esamina(const ArchivioEstrazioni& archivio, std::optional<Data> oggi) {
    Taccuino taccuino{false, false};
    esamina_tabelle(taccuino, archivio);
    if (oggi) esamina_oggi(taccuino, archivio, *oggi);
    return std::move(taccuino).esito();
}

std::optional<ErroreArchivio> primo_danno(const ArchivioEstrazioni& archivio) {
    Taccuino taccuino{true, true};
    esamina_tabelle(taccuino, archivio);
    const Esame esame = std::move(taccuino).esito();
    if (esame.danni.empty()) return std::nullopt;
    const Rilievo& primo = esame.danni.front();
    return ErroreArchivio{fonte(archivio, primo.tabella).file, primo.frase()};
}

std::vector<Rilievo> oltre_oggi(const ArchivioEstrazioni& archivio, Data oggi) {
    Taccuino taccuino{false, false};
    esamina_oggi(taccuino, archivio, oggi);
    return std::move(taccuino).esito().avvisi;
}

std::string_view nome_tabella(TabellaArchivio tabella) {
    switch (tabella) {
        case TabellaArchivio::Nazionale:
            return "archivion";
        case TabellaArchivio::SuperEnalotto:
            return "archivios";
        default:
            return "archivio";
    }
}

std::string_view nome_gioco(TabellaArchivio tabella) {
    switch (tabella) {
        case TabellaArchivio::Lotto:
            return "Lotto";
        case TabellaArchivio::Nazionale:
            return "Lotto, Nazionale";
        case TabellaArchivio::SuperEnalotto:
            return "SuperEnalotto";
        case TabellaArchivio::WinForLife:
            return "Win for Life";
    }
    return "";
}

const Fonte& fonte(const ArchivioEstrazioni& archivio, TabellaArchivio tabella) {
    return tabella == TabellaArchivio::WinForLife ? archivio.drawit2() : archivio.drawit();
}

}  // namespace sortimetra
