#include "stores/arrivi.h"

#include "files/file_sicuro.h"
#include "stores/moduli_arrivi.h"
#include "stores/numerazione.h"
#include "stores/pubblicati.h"
#include "text/ora.h"
#include "text/testi.h"

#include <fmt/core.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <memory>
#include <type_traits>
#include <utility>

namespace sortimetra {

namespace {

/// The first line that is not blank, without the blanks round it.
std::string_view prima_linea(std::string_view testo) {
    if (testo.starts_with("\xEF\xBB\xBF")) testo.remove_prefix(3);
    while (!testo.empty()) {
        const auto fine = testo.find('\n');
        const std::string_view linea = rifila(testo.substr(0, fine));
        if (!linea.empty()) return linea;
        testo.remove_prefix(fine == std::string_view::npos ? testo.size() : fine + 1);
    }
    return {};
}

// ---- when and what ----

/// What tells the draws of a game apart: the Lotto's rows by day and wheel, those of Win for Life by the
/// hour.
using Chiave = std::pair<Data, int>;
Chiave chiave(const RigaLotto& r) {
    return {r.data, r.ruota};
}
Chiave chiave(const RigaSuperEnalotto& r) {
    return {r.data, 0};
}
Chiave chiave(const RigaWinForLife& r) {
    return {r.data, leggi_ora(rifila(r.ora)).value_or(0)};
}

bool stessi_numeri(const RigaSuperEnalotto& a, const RigaSuperEnalotto& b) {
    return a.numeri == b.numeri && a.jolly == b.jolly && a.superstar == b.superstar;
}
template <class Riga>
bool stessi_numeri(const Riga& a, const Riga& b) {
    return a.numeri == b.numeri;
}

std::string detta(const RigaLotto& r) {
    return fmt::format("la ruota {} del {}", kNomiRuote[static_cast<std::size_t>(r.ruota)].codice,
                       testo_data(r.data));
}
std::string detta(const RigaSuperEnalotto& r) {
    return fmt::format("l'estrazione del {}", testo_data(r.data));
}
std::string detta(const RigaWinForLife& r) {
    return fmt::format("l'estrazione del {} delle {}", testo_data(r.data), rifila(r.ora));
}

// ---- one game out of several texts ----

/// The rows of one game, each with the text that it came from.
template <class Riga>
class Mazzo {
  public:
    void aggiungi(std::vector<Riga> righe, std::size_t testo) {
        for (Riga& r : righe) righe_.emplace_back(std::move(r), testo);
    }

    /// By date, each draw once. The error is one that two texts tell differently.
    std::expected<std::vector<Riga>, ErroreArchivio> ordinate(const std::vector<TestoArrivato>& testi) && {
        const auto prima = [](const auto& a, const auto& b) { return chiave(a.first) < chiave(b.first); };
        if (!std::is_sorted(righe_.begin(), righe_.end(), prima))
            std::stable_sort(righe_.begin(), righe_.end(), prima);
        std::vector<Riga> tutte;
        tutte.reserve(righe_.size());
        std::size_t testo = 0;  // of the last one taken
        for (auto& [riga, da] : righe_) {
            if (!tutte.empty() && chiave(tutte.back()) == chiave(riga)) {
                if (stessi_numeri(tutte.back(), riga)) continue;
                return rifiuta(testi[da].nome,
                               fmt::format("{} ha altri numeri che in {}", detta(riga), testi[testo].nome));
            }
            testo = da;
            tutte.push_back(std::move(riga));
        }
        return tutte;
    }

  private:
    std::vector<std::pair<Riga, std::size_t>> righe_;
};

/// How many draws these rows are, and their days.
template <class Riga>
void riassumi(TestoArrivato& testo, const std::vector<Riga>& righe) {
    const auto prima = [](const Riga& a, const Riga& b) { return a.data < b.data; };
    const auto [da, a] = std::minmax_element(righe.begin(), righe.end(), prima);
    testo.prima = da->data;
    testo.ultima = a->data;
    testo.estrazioni = righe.size();
    if constexpr (std::is_same_v<Riga, RigaLotto>) {
        testo.estrazioni = 0;
        Data precedente{};
        for (const RigaLotto& r : righe) testo.estrazioni += std::exchange(precedente, r.data) != r.data;
    }
}

// ---- packed files ----

bool gzip(std::string_view byte) {
    return byte.starts_with("\x1F\x8B");
}
bool zip(std::string_view byte) {
    return byte.starts_with("PK\x03\x04") || byte.starts_with("PK\x05\x06");
}

std::expected<std::vector<Spacchettato>, ErroreArchivio> spacchetta(const Arrivo& a) {
    static const auto porta = apri_modulo(kModuloSpacchetta);
    if (!porta) return std::unexpected(porta.error());
    auto file = reinterpret_cast<Spacchetta (*)()>(*porta)()(a.byte, kArrivoMassimo);
    if (!file) return rifiuta(a.nome, std::move(file.error()));
    return std::move(*file);
}

/// Reads the texts and gathers their rows by game.
class Raccoglitore {
  public:
    std::expected<void, ErroreArchivio> leggi(const Arrivo& arrivo, Avanzamento& avanzamento) {
        if (!gzip(arrivo.byte) && !zip(arrivo.byte))
            return leggi_testo(arrivo.nome, arrivo.byte, avanzamento);
        const auto file = spacchetta(arrivo);
        if (!file) return std::unexpected(file.error());
        std::size_t letti = 0;
        for (const Spacchettato& f : *file) {
            const std::string nome = f.nome.empty() ? arrivo.nome : arrivo.nome + ": " + f.nome;
            // A zip may bring more than draws along.
            if (zip(arrivo.byte) && !riconosci_gioco(f.byte)) {
                arrivate_.avvisi.push_back(nome + ": non è un testo di estrazioni, tralasciato");
                continue;
            }
            if (auto esito = leggi_testo(nome, f.byte, avanzamento); !esito) return esito;
            ++letti;
        }
        if (letti == 0) return rifiuta(arrivo.nome, "non contiene alcun testo di estrazioni");
        return {};
    }

    std::expected<Arrivate, ErroreArchivio> tutte() && {
        auto lotto = std::move(lotto_).ordinate(arrivate_.testi);
        if (!lotto) return std::unexpected(std::move(lotto.error()));
        auto superenalotto = std::move(superenalotto_).ordinate(arrivate_.testi);
        if (!superenalotto) return std::unexpected(std::move(superenalotto.error()));
        auto winforlife = std::move(winforlife_).ordinate(arrivate_.testi);
        if (!winforlife) return std::unexpected(std::move(winforlife.error()));
        arrivate_.righe.lotto = std::move(*lotto);
        arrivate_.righe.superenalotto = std::move(*superenalotto);
        arrivate_.righe.winforlife = std::move(*winforlife);
        return std::move(arrivate_);
    }

  private:
    std::expected<void, ErroreArchivio> leggi_testo(std::string nome, std::string_view testo,
                                                    Avanzamento& avanzamento) {
        const auto gioco = riconosci_gioco(testo);
        if (!gioco)
            return rifiuta(nome, rifila(testo).empty()
                                     ? "non contiene estrazioni"
                                     : "non è un testo di estrazioni: attese righe di Lotto, SuperEnalotto o "
                                       "Win for Life come nei file pubblicati");
        arrivate_.testi.push_back({.nome = std::move(nome), .gioco = *gioco});
        switch (*gioco) {
            case Gioco::superenalotto:
                return prendi(testo, leggi_righe_superenalotto, superenalotto_, kTabellaSuperEnalotto,
                              avanzamento);
            case Gioco::win_for_life:
                return prendi(testo, leggi_righe_winforlife, winforlife_, kTabellaWinForLife, avanzamento);
            default:
                return prendi(testo, leggi_testo_lotto, lotto_, kTabellaLotto, avanzamento);
        }
    }

    template <class Lettore, class Riga>
    std::expected<void, ErroreArchivio> prendi(std::string_view testo, Lettore lettore, Mazzo<Riga>& mazzo,
                                               unsigned tabella, Avanzamento& avanzamento) {
        TestoArrivato& questo = arrivate_.testi.back();
        std::expected<std::vector<Riga>, std::string> righe = lettore(testo, avanzamento);
        if (!righe) return rifiuta(questo.nome, std::move(righe.error()));
        riassumi(questo, *righe);
        const bool intera = tabella == kTabellaLotto
                                ? std::any_of(righe->begin(), righe->end(),
                                              [](const Riga& r) { return r.data == kGiornoDellaNumerazione; })
                                : (prima_linea(testo)[0] < '0' || prima_linea(testo)[0] > '9');
        if (intera) arrivate_.intere |= tabella;
        mazzo.aggiungi(std::move(*righe), arrivate_.testi.size() - 1);
        return {};
    }

    Arrivate arrivate_;
    Mazzo<RigaLotto> lotto_;
    Mazzo<RigaSuperEnalotto> superenalotto_;
    Mazzo<RigaWinForLife> winforlife_;
};

/// All that an open file still has, up to the largest arrival.
std::expected<std::string, ErroreArchivio> leggi_tutto(int descrittore, std::string_view nome) {
    std::string byte;
    std::array<char, 1 << 16> pezzo;
    for (;;) {
        const ssize_t letti = ::read(descrittore, pezzo.data(), pezzo.size());
        if (letti < 0 && errno == EINTR) continue;
        if (letti < 0) return rifiuta(nome, std::string{motivo_sistema(errno)});
        if (letti == 0) return byte;
        byte.append(pezzo.data(), static_cast<std::size_t>(letti));
        if (byte.size() > kArrivoMassimo)
            return rifiuta(nome, fmt::format("è troppo grande: al massimo {} MB", kArrivoMassimo >> 20U));
    }
}

}  // namespace

std::expected<Arrivo, ErroreArchivio> leggi_arrivo(const std::filesystem::path& file) {
    auto byte = file == "-" ? leggi_tutto(STDIN_FILENO, "-") : leggi_file(file, kArrivoMassimo);
    if (!byte) return std::unexpected(std::move(byte.error()));
    return Arrivo{file.string(), std::move(*byte)};
}

std::expected<Arrivo, ErroreArchivio> scarica_arrivo(const std::string& indirizzo, Avanzamento& avanzamento,
                                                     const ModoScarico& modo) {
    if (!minuscolo(indirizzo).starts_with("https://"))
        return rifiuta(indirizzo, "si scarica soltanto da indirizzi che cominciano con https://");
    static const auto porta = apri_modulo(kModuloScarica);
    if (!porta) return std::unexpected(porta.error());
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file{std::tmpfile(), std::fclose};
    if (!file)
        return rifiuta(indirizzo,
                       fmt::format("il file temporaneo non si può creare: {}", motivo_sistema(errno)));
    const Scarico scarico{.indirizzo = indirizzo,
                          .massimo = modo.massimo,
                          .millisecondi = static_cast<long>(modo.tempo.count()),
                          .autorita = modo.autorita};
    const auto scaricato = reinterpret_cast<Scarica (*)()>(*porta)()(scarico, file.get(), avanzamento);
    if (!scaricato) return rifiuta(indirizzo, scaricato.error());
    if (std::fflush(file.get()) != 0 || std::fseek(file.get(), 0, SEEK_SET) != 0)
        return rifiuta(indirizzo, "il file temporaneo non si può scrivere");
    auto byte = leggi_tutto(fileno(file.get()), indirizzo);
    if (!byte) return std::unexpected(std::move(byte.error()));
    return Arrivo{indirizzo, std::move(*byte)};
}

std::optional<Gioco> riconosci_gioco(std::string_view testo) {
    const std::string_view linea = prima_linea(testo);
    const std::string titoli = minuscolo(linea.substr(0, 2 * kTitoliWinForLife.size()));
    if (titoli == kTitoliSuperEnalotto) return Gioco::superenalotto;
    if (titoli == kTitoliWinForLife) return Gioco::win_for_life;
    // Loose, so that a slip in the first line is told by the reader of that text, with line and reason.
    if (linea.empty() || linea[0] < '0' || linea[0] > '9') return std::nullopt;
    if (linea.find('\t') != std::string_view::npos) return Gioco::lotto;
    const std::string_view primo = linea.substr(0, linea.find(';'));
    if (primo.size() == linea.size()) return std::nullopt;
    return primo.find('-') != std::string_view::npos ? Gioco::superenalotto : Gioco::win_for_life;
}

std::expected<Arrivate, ErroreArchivio> leggi_arrivi(std::span<const Arrivo> arrivi,
                                                     Avanzamento& avanzamento) {
    Raccoglitore raccoglitore;
    for (const Arrivo& a : arrivi)
        if (auto esito = raccoglitore.leggi(a, avanzamento); !esito)
            return std::unexpected(std::move(esito.error()));
    return std::move(raccoglitore).tutte();
}

}  // namespace sortimetra
