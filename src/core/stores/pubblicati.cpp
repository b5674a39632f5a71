#include "stores/pubblicati.h"

#include "text/ora.h"
#include "text/testi.h"
#include "text/utf8.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <optional>
#include <set>
#include <utility>

namespace sortimetra {

namespace {

/// Lines between two reports of progress.
constexpr int kLinee = 8192;

constexpr std::string_view kNessuna = "il file non contiene estrazioni";

std::string_view senza_bom(std::string_view testo) {
    if (testo.starts_with("\xEF\xBB\xBF")) testo.remove_prefix(3);
    return testo;
}

/// What stood in the file, fit for a message: cut short, without control characters.
std::string citato(std::string_view trovato) {
    constexpr std::size_t kMassimo = 60;
    const std::string_view intero = tronca_lettere(trovato, kMassimo);
    std::string testo;
    for (const char c : intero) testo += static_cast<unsigned char>(c) < 0x20 || c == '\x7F' ? '?' : c;
    return intero.size() < trovato.size() ? testo + "…" : testo;
}

std::string errore_riga(std::size_t riga, std::string_view trovato, std::string_view atteso) {
    return fmt::format("riga {}: trovato \"{}\", {}", riga, citato(trovato), atteso);
}

/// The fields of one line, each without the blanks round it.
class Linea {
  public:
    Linea(std::string_view testo, char separatore, std::size_t riga)
        : testo_{testo}, separatore_{separatore}, riga_{riga} {}

    /// The next field; nothing behind the last one.
    std::optional<std::string_view> campo() {
        if (finita_) return std::nullopt;
        const auto fine = testo_.find(separatore_);
        const std::string_view c = rifila(testo_.substr(0, fine));
        if (fine == std::string_view::npos) {
            finita_ = true;
        } else {
            testo_.remove_prefix(fine + 1);
        }
        return c;
    }

    [[nodiscard]] std::unexpected<std::string> errore(std::optional<std::string_view> trovato,
                                                      std::string_view atteso) const {
        return std::unexpected(errore_riga(riga_, trovato.value_or("fine della riga"), atteso));
    }

    std::expected<Data, std::string> data(char separatore) {
        const auto c = campo();
        const auto letta = c ? leggi_data_iso(*c, separatore) : std::nullopt;
        if (letta && (*letta < kPrimaData || *letta > kUltimaData))
            return errore(c, "attesa una data fra il 1800 e il 2999");
        if (!letta)
            return errore(c, separatore == '/' ? "attesa una data aaaa/mm/gg" : "attesa una data aaaa-mm-gg");
        return *letta;
    }

    /// Number cells: empty or 0 for none, else 1 to `massimo`.
    template <std::size_t N>
    std::expected<void, std::string> numeri(std::array<Numero, N>& dove, int massimo) {
        for (Numero& n : dove) {
            const auto c = campo();
            int letto = 0;
            if (c && !c->empty()) {
                const auto esito = std::from_chars(c->data(), c->data() + c->size(), letto);
                if (esito.ec != std::errc{} || esito.ptr != c->data() + c->size()) letto = -1;
            }
            if (!c || letto < 0 || letto > massimo)
                return errore(c, fmt::format("atteso un numero da 1 a {}, oppure vuoto o 0", massimo));
            n = static_cast<Numero>(letto);
        }
        return {};
    }

    std::expected<void, std::string> fine(std::string_view dopo) {
        if (finita_) return {};
        return errore(testo_, fmt::format("attesa la fine della riga dopo {}", dopo));
    }

  private:
    std::string_view testo_;
    char separatore_;
    std::size_t riga_;
    bool finita_ = false;
};

// ---- the Lotto text ----

std::expected<RigaLotto, std::string> leggi_riga_lotto(std::string_view testo, std::size_t riga) {
    Linea l{testo, '\t', riga};
    RigaLotto r;
    const auto data = l.data('/');
    if (!data) return std::unexpected(data.error());
    r.data = *data;
    const auto codice = l.campo();
    const auto ruota = codice ? indice_ruota(*codice) : std::nullopt;
    if (!ruota) return l.errore(codice, "atteso uno fra BA CA FI GE MI NA PA RM TO VE RN NZ");
    r.ruota = *ruota;
    if (auto esito = l.numeri(r.numeri, kNumeri); !esito) return std::unexpected(std::move(esito.error()));
    if (auto esito = l.fine("cinque numeri"); !esito) return std::unexpected(std::move(esito.error()));
    return r;
}

/// Reads lines as nearly all files have them: no blanks, every number there, ended by LF or CR LF. Nothing
/// else: any other line is left to `leggi_riga_lotto`, which knows all forms and all errors.
class LettoreVeloce {
  public:
    /// Longest such line: date, wheel, five numbers of two digits, CR LF.
    static constexpr std::size_t kLunghezza = 10 + 1 + 2 + 5 * 3 + 2;

    /// Reads the line at `p`, which has `kLunghezza` readable bytes. Returns where the next line begins, or
    /// null for a line of another form.
    const char* leggi(const char* p, RigaLotto& r) {
        std::uint64_t testa = 0;
        std::uint64_t coda = 0;
        std::memcpy(&testa, p, 8);
        std::memcpy(&coda, p + 2, 8);
        // Up to eleven lines in a run have the same date.
        if (!data_letta_ || testa != testa_ || coda != coda_) {
            const auto data = leggi_data_iso({p, 10}, '/');
            if (!data || *data < kPrimaData || *data > kUltimaData) return nullptr;
            data_ = *data;
            testa_ = testa;
            coda_ = coda;
            data_letta_ = true;
        }
        if (p[10] != '\t' || p[13] != '\t') return nullptr;
        const auto ruota = indice_ruota({p + 11, 2});
        if (!ruota) return nullptr;
        r.ruota = *ruota;
        r.data = data_;
        p += 13;
        for (Numero& n : r.numeri) {
            if (*p != '\t') return nullptr;
            unsigned valore = static_cast<unsigned char>(*++p) - static_cast<unsigned>('0');
            if (valore > 9) return nullptr;
            const unsigned unita = static_cast<unsigned char>(*++p) - static_cast<unsigned>('0');
            if (unita <= 9) {
                valore = valore * 10 + unita;
                ++p;
            }
            if (valore > kNumeri) return nullptr;
            n = static_cast<Numero>(valore);
        }
        if (*p == '\r') ++p;
        return *p == '\n' ? p + 1 : nullptr;
    }

  private:
    bool data_letta_ = false;
    std::uint64_t testa_ = 0;  ///< the first eight bytes of the last date read
    std::uint64_t coda_ = 0;   ///< its last eight
    Data data_{};
};

/// Which wheels each day has, and from it the place of every row in the order of date and wheel.
class Giorni {
  public:
    /// The wheels of a day, bit by bit; valid until the next day is asked for.
    std::uint16_t& ruote(Data data) {
        const std::size_t g = giorno(data);
        if (ruote_.empty()) primo_ = g;
        if (g < primo_) {
            // As much again towards the past, so that a file in descending order moves the rest but seldom.
            const std::size_t nuovo = std::min(g, primo_ - std::min(primo_, ruote_.size()));
            ruote_.insert(ruote_.begin(), primo_ - nuovo, 0);
            primo_ = nuovo;
        }
        if (g - primo_ >= ruote_.size()) ruote_.resize(g - primo_ + 1);
        return ruote_[g - primo_];
    }

    [[nodiscard]] std::vector<RigaLotto> ordina(const std::vector<RigaLotto>& righe) const {
        std::vector<std::uint32_t> prima(ruote_.size());
        std::uint32_t somma = 0;
        for (std::size_t g = 0; g < ruote_.size(); ++g) {
            prima[g] = somma;
            somma += static_cast<std::uint32_t>(std::popcount(ruote_[g]));
        }
        std::vector<RigaLotto> ordinate(righe.size());
        for (const RigaLotto& r : righe) {
            const std::size_t g = giorno(r.data) - primo_;
            const unsigned minori = ruote_[g] & ((1U << static_cast<unsigned>(r.ruota)) - 1);
            ordinate[prima[g] + static_cast<std::uint32_t>(std::popcount(minori))] = r;
        }
        return ordinate;
    }

  private:
    static std::size_t giorno(Data data) { return static_cast<std::size_t>((data - kPrimaData).count()); }

    std::size_t primo_ = 0;             ///< day of the first entry, counted from `kPrimaData`
    std::vector<std::uint16_t> ruote_;  ///< bit w is set where wheel w has a row
};

/// The rows of a text that comes in pieces.
class TestoLotto {
  public:
    TestoLotto(std::size_t totale, Avanzamento& avanzamento) : totale_{totale}, avanzamento_{avanzamento} {
        righe_.reserve(totale / 28);
    }

    /// Reads the whole lines at the front and returns their length; of the last piece all is a line.
    std::expected<std::size_t, std::string> leggi(std::string_view byte, bool ultimo) {
        const char* p = byte.data();
        const char* const fine = p + byte.size();
        const char* const fine_veloce =
            byte.size() < LettoreVeloce::kLunghezza ? p : fine - LettoreVeloce::kLunghezza;
        const auto letti = [&] { return static_cast<std::size_t>(p - byte.data()); };
        while (p < fine) {
            if ((riga_ + 1) % kLinee == 0 && !avanzamento_.procedi(letti_ + letti(), totale_))
                return std::unexpected(std::string{kAnnullata});
            // Filled where it stays: a row that is built elsewhere, byte by byte, waits for its bytes to be
            // copied.
            RigaLotto& r = righe_.emplace_back();
            const char* dopo = p < fine_veloce ? veloce_.leggi(p, r) : nullptr;
            if (dopo == nullptr) {
                const std::string_view resto{p, static_cast<std::size_t>(fine - p)};
                const auto a_capo = resto.find('\n');
                if (a_capo == std::string_view::npos && !ultimo) {
                    righe_.pop_back();
                    break;
                }
                dopo = a_capo == std::string_view::npos ? fine : p + a_capo + 1;
                if (auto esito = leggi_lenta(resto.substr(0, a_capo)); !esito)
                    return std::unexpected(std::move(esito.error()));
            } else if (++riga_; !segna(r)) {
                return std::unexpected(due_volte(r));
            }
            p = dopo;
        }
        letti_ += letti();
        return letti();
    }

    /// By date, then wheel.
    std::expected<std::vector<RigaLotto>, std::string> righe() && {
        if (righe_.empty()) return std::unexpected(std::string{kNessuna});
        return ordinate_ ? std::move(righe_) : giorni_.ordina(righe_);
    }

  private:
    /// A line of any form into the last row.
    std::expected<void, std::string> leggi_lenta(std::string_view linea) {
        ++riga_;
        if (rifila(linea).empty()) {
            righe_.pop_back();
            return {};
        }
        auto letta = leggi_riga_lotto(linea, riga_);
        if (!letta) return std::unexpected(std::move(letta.error()));
        righe_.back() = *letta;
        if (!segna(*letta)) return std::unexpected(due_volte(*letta));
        return {};
    }

    /// Notes the wheel of the day; false where that is there already.
    bool segna(const RigaLotto& r) {
        // Up to eleven lines in a run have the same date.
        if (ruote_ == nullptr || r.data != data_prima_) {
            ordinate_ = ordinate_ && (ruote_ == nullptr || r.data > data_prima_);
            ruote_ = &giorni_.ruote(r.data);
            data_prima_ = r.data;
        }
        // This wheel of the day lowest, those that come after it above.
        const unsigned da_questa = static_cast<unsigned>(*ruote_) >> static_cast<unsigned>(r.ruota);
        if ((da_questa & 1U) != 0) return false;
        ordinate_ = ordinate_ && da_questa == 0;
        *ruote_ = static_cast<std::uint16_t>(*ruote_ | 1U << static_cast<unsigned>(r.ruota));
        return true;
    }

    [[nodiscard]] std::string due_volte(const RigaLotto& r) const {
        return fmt::format(
            "riga {}: trovata di nuovo la ruota {} del {}, attesa una sola riga per ruota e data", riga_,
            kNomiRuote[static_cast<std::size_t>(r.ruota)].codice, testo_data(r.data));
    }

    std::vector<RigaLotto> righe_;
    Giorni giorni_;
    LettoreVeloce veloce_;
    bool ordinate_ = true;
    Data data_prima_{};
    std::uint16_t* ruote_ = nullptr;  ///< of the day of the line before
    std::size_t riga_ = 0;            ///< lines that were read
    std::size_t letti_ = 0;           ///< bytes of the pieces before
    std::size_t totale_;
    Avanzamento& avanzamento_;
};

// ---- the texts with a title line ----

enum class Titoli : std::uint8_t { richiesti, facoltativi };

/// Calls `una(Linea&)` for each line behind the title line that is not blank.
template <class Una>
std::expected<void, std::string> per_ogni_linea(std::string_view testo, std::string_view titoli, Titoli come,
                                                Avanzamento& avanzamento, Una&& una) {
    testo = senza_bom(testo);
    const std::size_t totale = testo.size();
    std::size_t riga = 0;
    bool titoli_letti = false;
    while (!testo.empty()) {
        const auto fine = testo.find('\n');
        const std::string_view linea = rifila(testo.substr(0, fine));
        testo.remove_prefix(fine == std::string_view::npos ? testo.size() : fine + 1);
        ++riga;
        if (riga % kLinee == 0 && !avanzamento.procedi(totale - testo.size(), totale))
            return std::unexpected(std::string{kAnnullata});
        if (linea.empty()) continue;
        if (!titoli_letti) {
            titoli_letti = true;
            if (minuscolo(linea) == titoli) continue;
            if (come == Titoli::richiesti)
                return std::unexpected(
                    errore_riga(riga, linea, fmt::format("attesa la riga dei titoli \"{}\"", titoli)));
        }
        Linea l{linea, ';', riga};
        if (auto esito = una(l); !esito) return std::unexpected(std::move(esito.error()));
    }
    return {};
}

std::expected<std::vector<RigaSuperEnalotto>, std::string> leggi_superenalotto(std::string_view testo,
                                                                               Titoli come,
                                                                               Avanzamento& avanzamento) {
    std::vector<RigaSuperEnalotto> righe;
    std::set<Data> date;
    auto esito = per_ogni_linea(
        testo, kTitoliSuperEnalotto, come, avanzamento, [&](Linea& l) -> std::expected<void, std::string> {
            const auto data = l.data('-');
            if (!data) return std::unexpected(data.error());
            std::array<Numero, 8> n{};
            if (auto numeri = l.numeri(n, kNumeri); !numeri) return numeri;
            if (auto fine = l.fine("il superstar"); !fine) return fine;
            if (!date.insert(*data).second)
                return l.errore(testo_data_iso(*data), "attesa una sola riga per data");
            RigaSuperEnalotto r{.data = *data, .jolly = n[6], .superstar = n[7]};
            std::copy_n(n.begin(), r.numeri.size(), r.numeri.begin());
            righe.push_back(r);
            return {};
        });
    if (!esito) return std::unexpected(std::move(esito.error()));
    if (righe.empty()) return std::unexpected(std::string{kNessuna});
    return righe;
}

std::expected<std::vector<RigaWinForLife>, std::string> leggi_winforlife(std::string_view testo, Titoli come,
                                                                         Avanzamento& avanzamento) {
    std::vector<RigaWinForLife> righe;
    std::set<std::pair<Data, int>> ore;
    auto esito = per_ogni_linea(
        testo, kTitoliWinForLife, come, avanzamento, [&](Linea& l) -> std::expected<void, std::string> {
            const auto concorso = l.campo();
            if (!concorso || concorso->empty() ||
                concorso->find_first_not_of("0123456789") != std::string_view::npos)
                return l.errore(concorso, "atteso un numero di concorso");
            const auto data = l.data('-');
            if (!data) return std::unexpected(data.error());
            const auto ora = l.campo();
            const auto minuti = ora ? leggi_ora(*ora) : std::nullopt;
            if (!minuti) return l.errore(ora, R"(attesa un'ora come "8:00" o "08:00")");
            RigaWinForLife r{.concorso = static_cast<Concorso>(righe.size()) + 1, .data = *data};
            r.ora = *ora;
            if (auto numeri = l.numeri(r.numeri, kNumeriWinForLife); !numeri) return numeri;
            std::array<Numero, 1> numerone{};
            if (auto numeri = l.numeri(numerone, kNumeriWinForLife); !numeri) return numeri;
            if (auto fine = l.fine("il numerone"); !fine) return fine;
            if (!ore.insert({*data, *minuti}).second)
                return l.errore(fmt::format("{};{}", testo_data_iso(*data), *ora),
                                "attesa una sola riga per data e ora");
            righe.push_back(std::move(r));
            return {};
        });
    if (!esito) return std::unexpected(std::move(esito.error()));
    if (righe.empty()) return std::unexpected(std::string{kNessuna});
    return righe;
}

}  // namespace

std::expected<std::vector<RigaLotto>, std::string> leggi_lotto_a_pezzi(const FonteTesto& fonte,
                                                                       std::size_t totale,
                                                                       Avanzamento& avanzamento) {
    TestoLotto testo{totale, avanzamento};
    PezzoFile pezzo = fonte(0);
    std::size_t usati = pezzo.byte.size() - senza_bom(pezzo.byte).size();
    while (true) {
        const auto letti = testo.leggi(pezzo.byte.substr(usati), pezzo.ultimo);
        if (!letti) return std::unexpected(letti.error());
        if (pezzo.ultimo) return std::move(testo).righe();
        pezzo = fonte(usati + *letti);
        usati = 0;
    }
}

std::expected<std::vector<RigaLotto>, std::string> leggi_testo_lotto(std::string_view testo,
                                                                     Avanzamento& avanzamento) {
    return leggi_lotto_a_pezzi([testo](std::size_t /*usati*/) { return PezzoFile{testo, true}; },
                               testo.size(), avanzamento);
}

std::expected<std::vector<RigaSuperEnalotto>, std::string> leggi_testo_superenalotto(
    std::string_view testo, Avanzamento& avanzamento) {
    return leggi_superenalotto(testo, Titoli::richiesti, avanzamento);
}

std::expected<std::vector<RigaWinForLife>, std::string> leggi_testo_winforlife(std::string_view testo,
                                                                               Avanzamento& avanzamento) {
    return leggi_winforlife(testo, Titoli::richiesti, avanzamento);
}

std::expected<std::vector<RigaSuperEnalotto>, std::string> leggi_righe_superenalotto(
    std::string_view testo, Avanzamento& avanzamento) {
    return leggi_superenalotto(testo, Titoli::facoltativi, avanzamento);
}

std::expected<std::vector<RigaWinForLife>, std::string> leggi_righe_winforlife(std::string_view testo,
                                                                               Avanzamento& avanzamento) {
    return leggi_winforlife(testo, Titoli::facoltativi, avanzamento);
}

std::optional<std::size_t> riga_di(std::string_view testo, Data data, std::string_view segno) {
    // Date and wheel, or hour, are among the first fields of each form.
    constexpr int kCampi = 3;
    testo = senza_bom(testo);
    for (std::size_t riga = 1; !testo.empty(); ++riga) {
        const auto fine = testo.find('\n');
        const std::string_view linea = testo.substr(0, fine);
        testo.remove_prefix(fine == std::string_view::npos ? testo.size() : fine + 1);
        const bool lotto = linea.find('\t') != std::string_view::npos;
        Linea l{linea, lotto ? '\t' : ';', riga};
        bool suo_giorno = false;
        bool suo_segno = segno.empty();
        for (int i = 0; i < kCampi; ++i) {
            const std::string_view campo = l.campo().value_or("");
            suo_giorno = suo_giorno || leggi_data_iso(campo, lotto ? '/' : '-') == data;
            suo_segno = suo_segno || campo == segno;
        }
        if (suo_giorno && suo_segno) return riga;
    }
    return std::nullopt;
}

}  // namespace sortimetra
