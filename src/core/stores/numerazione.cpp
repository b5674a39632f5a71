#include "stores/numerazione.h"

#include "draws/esame.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace sortimetra {

namespace {

using std::chrono::days;

/// The draw of this day has concorso 402: SuperEnalotto began with it, and the archive's numbering hangs on
/// it.
constexpr Concorso kConcorsoPrimoSuperEnalotto = 402;

/// The concorsi by their dates, ascending.
class ConcorsiPerData {
  public:
    explicit ConcorsiPerData(std::vector<GiornoConcorso> giorni) : giorni_{std::move(giorni)} {
        std::stable_sort(giorni_.begin(), giorni_.end(),
                         [](const auto& a, const auto& b) { return a.data < b.data; });
    }
    /// 0 for a day without a draw.
    [[nodiscard]] Concorso di(Data data) const {
        const auto it = std::lower_bound(giorni_.begin(), giorni_.end(), data,
                                         [](const auto& g, Data d) { return g.data < d; });
        return it == giorni_.end() || it->data != data ? 0 : it->concorso;
    }

  private:
    std::vector<GiornoConcorso> giorni_;
};

}  // namespace

std::expected<void, std::string> numera_lotto(std::vector<RigaLotto>& righe, bool tutto) {
    Concorso concorso = 0;
    Concorso ancora = 0;
    Data precedente{};
    for (RigaLotto& r : righe) {
        if (concorso == 0 || r.data != precedente) ++concorso;
        precedente = r.data;
        r.concorso = concorso;
        if (r.data == kGiornoDellaNumerazione) ancora = concorso;
    }
    if (tutto) return {};
    if (ancora == 0)
        return std::unexpected(
            "manca l'estrazione del 03/12/1997, dalla quale si contano i concorsi; con --tutto si conta "
            "dalla prima");
    const Concorso spostamento = ancora - kConcorsoPrimoSuperEnalotto;
    const auto primo = std::find_if(righe.begin(), righe.end(),
                                    [&](const RigaLotto& r) { return r.concorso > spostamento; });
    righe.erase(righe.begin(), primo);
    for (RigaLotto& r : righe) r.concorso -= spostamento;
    if (righe.front().concorso > 1)
        return std::unexpected(
            fmt::format("la storia comincia dal {}: mancano i concorsi da 1 a {}; con --tutto si conta dalla "
                        "prima estrazione che c'è",
                        testo_data(righe.front().data), righe.front().concorso - 1));
    return {};
}

std::vector<std::string> numera_superenalotto(std::vector<RigaSuperEnalotto>& righe,
                                              const std::vector<RigaLotto>& lotto) {
    std::vector<GiornoConcorso> giorni;
    for (const RigaLotto& r : lotto)
        if (giorni.empty() || giorni.back().data != r.data) giorni.push_back({r.data, r.concorso});
    return numera_superenalotto(righe, std::move(giorni), {});
}

std::vector<std::string> numera_superenalotto(std::vector<RigaSuperEnalotto>& righe,
                                              std::vector<GiornoConcorso> giorni, std::set<Concorso> presi) {
    const ConcorsiPerData concorsi{std::move(giorni)};
    for (RigaSuperEnalotto& r : righe) {
        r.concorso = concorsi.di(r.data);
        if (r.concorso != 0 && !presi.insert(r.concorso).second) r.concorso = 0;
    }
    std::vector<std::string> avvisi;
    for (RigaSuperEnalotto& r : righe) {
        for (days d{1}; r.concorso == 0 && d <= kGiorniVicini; ++d) {
            for (const Data vicino : {r.data - d, r.data + d}) {
                const Concorso libero = concorsi.di(vicino);
                if (libero == 0 || !presi.insert(libero).second) continue;
                r.concorso = libero;
                break;
            }
        }
        if (r.concorso == 0)
            avvisi.push_back(fmt::format(
                "SuperEnalotto del {}: nessun concorso libero entro cinque giorni, estrazione tralasciata",
                testo_data(r.data)));
    }
    std::erase_if(righe, [](const RigaSuperEnalotto& r) { return r.concorso == 0; });
    std::stable_sort(righe.begin(), righe.end(), [](const RigaSuperEnalotto& a, const RigaSuperEnalotto& b) {
        return a.concorso < b.concorso;
    });
    return avvisi;
}

}  // namespace sortimetra
