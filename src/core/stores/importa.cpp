#include "stores/importa.h"

#include "draws/esame.h"
#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/dimostrazione.h"
#include "stores/limiti.h"
#include "stores/negozio_nativo.h"
#include "stores/pubblicati.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

namespace sortimetra {

namespace {

using std::chrono::days;

/// The draw of this day has concorso 402: SuperEnalotto began with it, and the archive's numbering hangs on
/// it.
constexpr Data kPrimoSuperEnalotto{std::chrono::year{1997} / 12 / 3};
constexpr Concorso kConcorsoPrimoSuperEnalotto = 402;
/// Bytes of a published file: thirty times those of a century and a half of draws.
constexpr std::size_t kTestoMassimo = std::size_t{64} << 20;

/// A stretch of a longer way: reports what is done of the stretch as what is done of the whole.
class TrattoAvanzamento final : public Avanzamento {
  public:
    TrattoAvanzamento(Avanzamento& intero, std::size_t da, std::size_t lungo, std::size_t totale)
        : intero_{intero}, da_{da}, lungo_{lungo}, totale_{totale} {}

    bool procedi(std::size_t fatto, std::size_t totale) override {
        const std::size_t parte =
            totale == 0 ? lungo_
                        : static_cast<std::size_t>(static_cast<double>(lungo_) * static_cast<double>(fatto) /
                                                   static_cast<double>(totale));
        return intero_.procedi(std::min(da_ + parte, totale_), totale_);
    }

  private:
    Avanzamento& intero_;
    std::size_t da_;
    std::size_t lungo_;
    std::size_t totale_;
};

// ---- numbering ----

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

// ---- reading ----

/// Draws of the given files; the Lotto is numbered, SuperEnalotto is not yet.
struct Testi {
    std::optional<std::vector<RigaLotto>> lotto{};
    std::optional<std::vector<RigaSuperEnalotto>> superenalotto{};
    std::optional<std::vector<RigaWinForLife>> winforlife{};
};

template <class Righe, class Leggi>
std::expected<void, ErroreArchivio> leggi_uno(const std::optional<std::filesystem::path>& file,
                                              const std::string& testo, Leggi leggi, Righe& dove,
                                              Avanzamento& avanzamento) {
    if (!file) return {};
    if (testo.empty()) return std::unexpected(ErroreArchivio{*file, "il file è vuoto"});
    auto righe = leggi(testo, avanzamento);
    if (!righe) return std::unexpected(ErroreArchivio{*file, std::move(righe.error())});
    dove = std::move(*righe);
    if (!avanzamento.procedi(1, 1)) return std::unexpected(ErroreArchivio{*file, std::string{kAnnullata}});
    return {};
}

std::expected<Testi, ErroreArchivio> leggi_testi(const FilePubblicati& file, Avanzamento& avanzamento) {
    const std::array percorsi{&file.lotto, &file.superenalotto, &file.winforlife};
    std::array<std::string, 3> byte;
    std::array<std::size_t, 4> inizio{};
    for (std::size_t i = 0; i < percorsi.size(); ++i) {
        if (*percorsi[i]) {
            auto letto = leggi_file(**percorsi[i], kTestoMassimo);
            if (!letto) return std::unexpected(std::move(letto.error()));
            byte[i] = std::move(*letto);
        }
        inizio[i + 1] = inizio[i] + byte[i].size();
    }
    const auto tratto = [&](std::size_t i) {
        return TrattoAvanzamento{avanzamento, inizio[i], byte[i].size(), inizio.back()};
    };
    Testi testi;
    auto primo = tratto(0);
    if (auto esito = leggi_uno(file.lotto, byte[0], leggi_testo_lotto, testi.lotto, primo); !esito)
        return std::unexpected(std::move(esito.error()));
    auto secondo = tratto(1);
    if (auto esito =
            leggi_uno(file.superenalotto, byte[1], leggi_testo_superenalotto, testi.superenalotto, secondo);
        !esito)
        return std::unexpected(std::move(esito.error()));
    auto terzo = tratto(2);
    if (auto esito = leggi_uno(file.winforlife, byte[2], leggi_testo_winforlife, testi.winforlife, terzo);
        !esito)
        return std::unexpected(std::move(esito.error()));
    if (testi.lotto) {
        if (auto esito = numera_lotto(*testi.lotto, file.tutto); !esito)
            return std::unexpected(ErroreArchivio{*file.lotto, std::move(esito.error())});
    }
    return testi;
}

/// Splits the rows of the text into the ten wheels and NAZIONALE.
void dividi(std::vector<RigaLotto> tutte, RigheArchivio& righe) {
    const auto nazionale = [](const RigaLotto& r) { return r.ruota == kNazionale; };
    righe.nazionale.clear();
    std::copy_if(tutte.begin(), tutte.end(), std::back_inserter(righe.nazionale), nazionale);
    std::erase_if(tutte, nazionale);
    righe.lotto = std::move(tutte);
}

// ---- building ----

std::unexpected<ErroreArchivio> rifiuta(const std::filesystem::path& file, std::string_view motivo) {
    return std::unexpected(ErroreArchivio{file, std::string{motivo}});
}

/// The rows of the new `drawit.db`, made of the given texts and of what the archive holds already.
std::expected<LettiPubblicati, ErroreArchivio> componi_drawit(const std::filesystem::path& percorso_archivio,
                                                              const FilePubblicati& file, Testi& testi) {
    LettiPubblicati nuovi;
    RigheArchivio& righe = nuovi.righe;
    // Only one of the two games is given: the other one stays as it is.
    if (testi.lotto.has_value() != testi.superenalotto.has_value()) {
        auto vecchi = leggi_drawit(percorso_archivio,
                                   testi.lotto ? kTabellaSuperEnalotto : kTabellaLotto | kTabellaNazionale);
        if (!vecchi) return std::unexpected(std::move(vecchi.error()));
        if (*vecchi && !(*vecchi)->fonte.simulato) {
            righe = std::move((*vecchi)->righe);
        } else if (!testi.lotto && *vecchi) {
            return rifiuta(*file.superenalotto,
                           "il Lotto che c'è nell'archivio è simulato e non può numerare estrazioni vere: "
                           "importare anche il file del Lotto");
        }
        if (!testi.lotto && righe.lotto.empty())
            return rifiuta(
                *file.superenalotto,
                "i concorsi si contano con le estrazioni del Lotto, che nell'archivio non ci sono: "
                "importare anche il file del Lotto");
    }
    if (testi.lotto) dividi(std::move(*testi.lotto), righe);
    if (testi.superenalotto) righe.superenalotto = std::move(*testi.superenalotto);
    nuovi.avvisi = numera_superenalotto(righe.superenalotto, righe.lotto);
    return nuovi;
}

Importati conta(const RigheArchivio& righe, std::vector<std::string> avvisi) {
    return {righe.lotto.size(), righe.nazionale.size(), righe.superenalotto.size(), righe.winforlife.size(),
            std::move(avvisi)};
}

}  // namespace

std::expected<void, std::string> numera_lotto(std::vector<RigaLotto>& righe, bool tutto) {
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
    const auto primo = std::find_if(righe.begin(), righe.end(),
                                    [&](const RigaLotto& r) { return r.concorso > spostamento; });
    righe.erase(righe.begin(), primo);
    for (RigaLotto& r : righe) r.concorso -= spostamento;
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

std::expected<void, ErroreArchivio> scrivi_archivio(const std::filesystem::path& percorso_archivio,
                                                    const RigheArchivio& righe, bool con_drawit,
                                                    bool con_drawit2, bool simulato,
                                                    Avanzamento& avanzamento) {
    // An archive that would be refused at the next opening is not written at all.
    if (auto perche = oltre_i_limiti(righe)) return rifiuta(percorso_archivio, *perche);
    auto prova =
        ArchivioEstrazioni::componi(righe, {percorso_archivio, simulato}, {percorso_archivio, simulato});
    if (!prova) return std::unexpected(std::move(prova.error()));
    if (auto danno = primo_danno(*prova)) return std::unexpected(std::move(*danno));
    std::error_code errore;
    std::filesystem::create_directories(percorso_archivio, errore);
    if (errore)
        return rifiuta(percorso_archivio,
                       fmt::format("la cartella non si può creare: {}", motivo_sistema(errore.value())));
    const std::size_t prima = righe.lotto.size() + righe.nazionale.size() + righe.superenalotto.size();
    const std::size_t tutte = prima + righe.winforlife.size();
    std::vector<FileSicuro> file;
    if (con_drawit) {
        TrattoAvanzamento tratto{avanzamento, 0, prima, tutte};
        auto scritto = prepara_drawit(percorso_archivio / "drawit.db", righe, simulato, tratto);
        if (!scritto) return std::unexpected(std::move(scritto.error()));
        file.push_back(std::move(*scritto));
    }
    if (con_drawit2) {
        TrattoAvanzamento tratto{avanzamento, prima, righe.winforlife.size(), tutte};
        auto scritto = prepara_drawit2(percorso_archivio / "drawit2.db", righe, simulato, tratto);
        if (!scritto) return std::unexpected(std::move(scritto.error()));
        file.push_back(std::move(*scritto));
    }
    return FileSicuro::conferma_tutti(file);
}

std::expected<LettiPubblicati, ErroreArchivio> leggi_pubblicati(const FilePubblicati& file,
                                                                Avanzamento& avanzamento) {
    auto testi = leggi_testi(file, avanzamento);
    if (!testi) return std::unexpected(std::move(testi.error()));
    if (testi->superenalotto && !testi->lotto)
        return rifiuta(*file.superenalotto,
                       "i concorsi si contano con le estrazioni del Lotto: serve anche il "
                       "suo file");
    LettiPubblicati letti;
    if (testi->lotto) dividi(std::move(*testi->lotto), letti.righe);
    if (testi->superenalotto) {
        letti.righe.superenalotto = std::move(*testi->superenalotto);
        letti.avvisi = numera_superenalotto(letti.righe.superenalotto, letti.righe.lotto);
    }
    if (testi->winforlife) letti.righe.winforlife = std::move(*testi->winforlife);
    return letti;
}

std::expected<Importati, ErroreArchivio> importa_archivio(const std::filesystem::path& percorso_archivio,
                                                          const FilePubblicati& file,
                                                          Avanzamento& avanzamento) {
    if (!file.lotto && !file.superenalotto && !file.winforlife)
        return rifiuta({}, "nessun file da importare");
    // Half of the way is reading, half writing.
    constexpr std::size_t kMeta = 1000;
    TrattoAvanzamento lettura{avanzamento, 0, kMeta, 2 * kMeta};
    TrattoAvanzamento scrittura{avanzamento, kMeta, kMeta, 2 * kMeta};
    auto testi = leggi_testi(file, lettura);
    if (!testi) return std::unexpected(std::move(testi.error()));
    const bool con_drawit = testi->lotto || testi->superenalotto;
    const bool con_drawit2 = testi->winforlife.has_value();
    LettiPubblicati nuovi;
    if (con_drawit) {
        auto composti = componi_drawit(percorso_archivio, file, *testi);
        if (!composti) return std::unexpected(std::move(composti.error()));
        nuovi = std::move(*composti);
    }
    if (con_drawit2) nuovi.righe.winforlife = std::move(*testi->winforlife);
    if (auto esito =
            scrivi_archivio(percorso_archivio, nuovi.righe, con_drawit, con_drawit2, false, scrittura);
        !esito)
        return std::unexpected(std::move(esito.error()));
    return conta(nuovi.righe, std::move(nuovi.avvisi));
}

std::expected<Importati, ErroreArchivio> crea_dimostrazione(const std::filesystem::path& percorso_archivio,
                                                            Avanzamento& avanzamento) {
    if (contiene_archivio(percorso_archivio))
        return rifiuta(percorso_archivio,
                       "la cartella contiene già un archivio, che non viene sostituito con quello simulato");
    const RigheArchivio righe = archivio_dimostrativo();
    if (auto esito = scrivi_archivio(percorso_archivio, righe, true, true, true, avanzamento); !esito)
        return std::unexpected(std::move(esito.error()));
    return conta(righe, {});
}

}  // namespace sortimetra
