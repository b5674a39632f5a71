#include "archive/importa.h"

#include "archive/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace sortimetra {

namespace {

using std::chrono::days;

/// The draw of this day has concorso 402: SuperEnalotto began with it, and the archive's numbering hangs on
/// it.
constexpr Data kPrimoSuperEnalotto{std::chrono::year{1997} / 12 / 3};
constexpr Concorso kConcorsoPrimoSuperEnalotto = 402;
/// A SuperEnalotto draw without a Lotto draw on its day looks this many concorsi' days around for a free one.
constexpr days kGiorniVicini{5};

std::expected<std::string, ErroreArchivio> leggi_file(const std::filesystem::path& file) {
    std::ifstream flusso{file, std::ios::binary};
    if (!flusso) return std::unexpected(ErroreArchivio{file, "il file non si può aprire"});
    std::string testo{std::istreambuf_iterator<char>{flusso}, {}};
    if (flusso.bad()) return std::unexpected(ErroreArchivio{file, "errore di lettura"});
    return testo;
}

/// One line of a published file, cut at `separatore`, that remembers where it stands for its error message.
class Linea {
  public:
    Linea(std::string_view testo, char separatore, int riga)
        : testo_{testo}, separatore_{separatore}, riga_{riga} {}

    std::string_view campo() {
        if (finita_) return {};
        const auto fine = testo_.find(separatore_);
        const std::string_view c = rifila(testo_.substr(0, fine));
        if (fine == std::string_view::npos) {
            finita_ = true;
            testo_ = {};
        } else {
            testo_.remove_prefix(fine + 1);
        }
        return c;
    }
    [[nodiscard]] bool finita() const { return finita_; }

    [[nodiscard]] std::unexpected<std::string> errore(std::string_view trovato,
                                                      std::string_view atteso) const {
        return std::unexpected(fmt::format("riga {}: trovato \"{}\", atteso {}", riga_, trovato, atteso));
    }

    /// A number cell: empty or 0 for none, else 1 to `massimo`.
    std::expected<Numero, std::string> numero(int massimo) {
        if (finita_) return errore("fine della riga", "un altro numero");
        const std::string_view c = campo();
        if (c.empty()) return Numero{0};
        int n = 0;
        const auto [fine, err] = std::from_chars(c.data(), c.data() + c.size(), n);
        if (err != std::errc{} || fine != c.data() + c.size() || n < 0 || n > massimo)
            return errore(c, fmt::format("un numero da 1 a {}, oppure vuoto o 0", massimo));
        return static_cast<Numero>(n);
    }

  private:
    std::string_view testo_;
    char separatore_;
    int riga_;
    bool finita_ = false;
};

/// Calls `una(Linea&)` for each line that is not blank. The first error ends it.
template <class Una>
std::expected<void, std::string> per_ogni_linea(std::string_view testo, char separatore, int salta,
                                                Una&& una) {
    int riga = 0;
    while (!testo.empty()) {
        const auto fine = testo.find('\n');
        const std::string_view linea = testo.substr(0, fine);
        testo.remove_prefix(fine == std::string_view::npos ? testo.size() : fine + 1);
        ++riga;
        if (riga <= salta || rifila(linea).empty()) continue;
        Linea l{linea, separatore, riga};
        if (auto esito = una(l); !esito) return std::unexpected(std::move(esito.error()));
    }
    return {};
}

template <std::size_t N>
std::expected<void, std::string> leggi_numeri(Linea& l, std::array<Numero, N>& numeri, int massimo) {
    for (Numero& n : numeri) {
        auto letto = l.numero(massimo);
        if (!letto) return std::unexpected(std::move(letto.error()));
        n = *letto;
    }
    return {};
}

std::expected<std::vector<RigaLotto>, std::string> leggi_lotto(std::string_view testo) {
    std::vector<RigaLotto> righe;
    righe.reserve(testo.size() / 26);
    auto esito = per_ogni_linea(testo, '\t', 0, [&](Linea& l) -> std::expected<void, std::string> {
        RigaLotto r;
        const std::string_view giorno = l.campo();
        const auto data = leggi_data_iso(giorno, '/');
        if (!data) return l.errore(giorno, "una data aaaa/mm/gg");
        r.data = *data;
        const std::string_view codice = l.campo();
        const auto ruota = codice == "RN" ? std::optional{kNazionale} : indice_ruota(codice);
        if (!ruota) return l.errore(codice, "uno fra BA CA FI GE MI NA PA RM TO VE RN NZ");
        r.ruota = *ruota;
        if (auto letti = leggi_numeri(l, r.numeri, kNumeri); !letti) return letti;
        if (!l.finita()) return l.errore("altri campi", "la fine della riga dopo cinque numeri");
        righe.push_back(r);
        return {};
    });
    if (!esito) return std::unexpected(std::move(esito.error()));
    return righe;
}

/// Numbers the draws by their dates and drops those before number 1.
std::expected<void, std::string> numera_lotto(std::vector<RigaLotto>& righe, bool tutto) {
    std::stable_sort(righe.begin(), righe.end(),
                     [](const RigaLotto& a, const RigaLotto& b) { return a.data < b.data; });
    Concorso concorso = 0;
    Concorso ancora = 0;
    Data precedente{};
    for (RigaLotto& r : righe) {
        if (concorso == 0 || r.data != precedente) ++concorso;
        precedente = r.data;
        r.concorso = concorso;
        if (r.data == kPrimoSuperEnalotto) ancora = concorso;
    }
    if (tutto) return {};
    if (ancora == 0)
        return std::unexpected(
            "manca l'estrazione del 03/12/1997, dalla quale si contano i concorsi; con --tutto si conta "
            "dalla "
            "prima");
    const Concorso spostamento = ancora - kConcorsoPrimoSuperEnalotto;
    for (RigaLotto& r : righe) r.concorso -= spostamento;
    std::erase_if(righe, [](const RigaLotto& r) { return r.concorso < 1; });
    return {};
}

}  // namespace

std::expected<LettiPubblicati, ErroreArchivio> leggi_pubblicati(const FilePubblicati& file,
                                                                Avanzamento& avanzamento) {
    LettiPubblicati letti;
    std::map<Data, Concorso> concorso_del_giorno;
    if (file.lotto) {
        auto testo = leggi_file(*file.lotto);
        if (!testo) return std::unexpected(std::move(testo.error()));
        auto righe = leggi_lotto(*testo);
        if (!righe) return std::unexpected(ErroreArchivio{*file.lotto, std::move(righe.error())});
        if (auto esito = numera_lotto(*righe, file.tutto); !esito)
            return std::unexpected(ErroreArchivio{*file.lotto, std::move(esito.error())});
        for (RigaLotto& r : *righe) {
            concorso_del_giorno.emplace(r.data, r.concorso);
            (r.ruota == kNazionale ? letti.righe.nazionale : letti.righe.lotto).push_back(r);
        }
        avanzamento.procedi(1, 3);
    }
    if (file.superenalotto) {
        auto testo = leggi_file(*file.superenalotto);
        if (!testo) return std::unexpected(std::move(testo.error()));
        auto esito = per_ogni_linea(*testo, ';', 1, [&](Linea& l) -> std::expected<void, std::string> {
            RigaSuperEnalotto r;
            const std::string_view giorno = l.campo();
            const auto data = leggi_data_iso(giorno);
            if (!data) return l.errore(giorno, "una data aaaa-mm-gg");
            r.data = *data;
            std::array<Numero, 8> n{};
            if (auto numeri = leggi_numeri(l, n, kNumeri); !numeri) return numeri;
            std::copy_n(n.begin(), 6, r.numeri.begin());
            r.jolly = n[6];
            r.superstar = n[7];
            letti.righe.superenalotto.push_back(r);
            return {};
        });
        if (!esito) return std::unexpected(ErroreArchivio{*file.superenalotto, std::move(esito.error())});
        std::set<Concorso> presi;
        auto& righe = letti.righe.superenalotto;
        for (RigaSuperEnalotto& r : righe) {
            const auto it = concorso_del_giorno.find(r.data);
            if (it == concorso_del_giorno.end()) continue;
            r.concorso = it->second;
            presi.insert(r.concorso);
        }
        for (RigaSuperEnalotto& r : righe) {
            if (r.concorso != 0) continue;
            for (days d{1}; d <= kGiorniVicini && r.concorso == 0; ++d)
                for (const Data vicino : {r.data - d, r.data + d}) {
                    const auto it = concorso_del_giorno.find(vicino);
                    if (it == concorso_del_giorno.end() || !presi.insert(it->second).second) continue;
                    r.concorso = it->second;
                    break;
                }
            if (r.concorso == 0)
                letti.avvisi.push_back(
                    fmt::format("SuperEnalotto del {}: nessun concorso libero entro cinque giorni, "
                                "estrazione tralasciata",
                                testo_data(r.data)));
        }
        std::erase_if(righe, [](const RigaSuperEnalotto& r) { return r.concorso == 0; });
        avanzamento.procedi(2, 3);
    }
    if (file.winforlife) {
        auto testo = leggi_file(*file.winforlife);
        if (!testo) return std::unexpected(std::move(testo.error()));
        Concorso concorso = 0;
        auto esito = per_ogni_linea(*testo, ';', 1, [&](Linea& l) -> std::expected<void, std::string> {
            RigaWinForLife r;
            l.campo();
            const std::string_view giorno = l.campo();
            const auto data = leggi_data_iso(giorno);
            if (!data) return l.errore(giorno, "una data aaaa-mm-gg");
            r.data = *data;
            r.ora = l.campo();
            if (auto numeri = leggi_numeri(l, r.numeri, kNumeriWinForLife); !numeri) return numeri;
            r.concorso = ++concorso;
            letti.righe.winforlife.push_back(std::move(r));
            return {};
        });
        if (!esito) return std::unexpected(ErroreArchivio{*file.winforlife, std::move(esito.error())});
        avanzamento.procedi(3, 3);
    }
    return letti;
}

}  // namespace sortimetra
