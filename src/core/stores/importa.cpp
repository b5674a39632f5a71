#include "stores/importa.h"

#include "draws/esame.h"
#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/cambio.h"
#include "stores/dimostrazione.h"
#include "stores/file_jet.h"
#include "stores/limiti.h"
#include "stores/negozio_jet.h"
#include "stores/numerazione.h"
#include "stores/perdite.h"
#include "stores/pubblicati.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

namespace sortimetra {

namespace {

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

/// The Lotto's text, which is the long one.
std::expected<std::vector<RigaLotto>, ErroreArchivio> leggi_lotto(const std::filesystem::path& file,
                                                                  FileAPezzi& pezzi,
                                                                  Avanzamento& avanzamento) {
    const auto rifiuta = [&](std::string motivo) {
        return std::unexpected(ErroreArchivio{file, std::move(motivo)});
    };
    if (pezzi.grandezza() == 0) return rifiuta("il file è vuoto");
    auto righe = leggi_lotto_a_pezzi([&](std::size_t usati) { return pezzi.avanti(usati); },
                                     pezzi.grandezza(), avanzamento);
    if (pezzi.errore()) return std::unexpected(*pezzi.errore());
    if (!righe) return rifiuta(std::move(righe.error()));
    if (!avanzamento.procedi(1, 1)) return rifiuta(std::string{kAnnullata});
    return std::move(*righe);
}

std::expected<Testi, ErroreArchivio> leggi_testi(const FilePubblicati& file, Avanzamento& avanzamento) {
    // All files are opened before any is read through.
    std::optional<FileAPezzi> lotto;
    std::array<std::size_t, 4> inizio{};
    if (file.lotto) {
        auto aperto = FileAPezzi::apri(*file.lotto, kTestoMassimo);
        if (!aperto) return std::unexpected(std::move(aperto.error()));
        lotto = std::move(*aperto);
        inizio[1] = lotto->grandezza();
    }
    const std::array percorsi{&file.superenalotto, &file.winforlife};
    std::array<std::string, 2> byte;
    for (std::size_t i = 0; i < percorsi.size(); ++i) {
        if (*percorsi[i]) {
            auto letto = leggi_file(**percorsi[i], kTestoMassimo);
            if (!letto) return std::unexpected(std::move(letto.error()));
            byte[i] = std::move(*letto);
        }
        inizio[i + 2] = inizio[i + 1] + byte[i].size();
    }
    const auto tratto = [&](std::size_t i) {
        return TrattoAvanzamento{avanzamento, inizio[i], inizio[i + 1] - inizio[i], inizio.back()};
    };
    Testi testi;
    if (lotto) {
        auto primo = tratto(0);
        auto righe = leggi_lotto(*file.lotto, *lotto, primo);
        if (!righe) return std::unexpected(std::move(righe.error()));
        testi.lotto = std::move(*righe);
    }
    auto secondo = tratto(1);
    if (auto esito =
            leggi_uno(file.superenalotto, byte[0], leggi_testo_superenalotto, testi.superenalotto, secondo);
        !esito)
        return std::unexpected(std::move(esito.error()));
    auto terzo = tratto(2);
    if (auto esito = leggi_uno(file.winforlife, byte[1], leggi_testo_winforlife, testi.winforlife, terzo);
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

/// The rows of the new `drawit.db`, made of the given texts and of what the archive holds already.
std::expected<LettiPubblicati, ErroreArchivio> componi_drawit(ArchivioAttuale attuale,
                                                              const FilePubblicati& file, Testi& testi) {
    LettiPubblicati nuovi;
    RigheArchivio& righe = nuovi.righe;
    // Only one of the two games is given: the other one stays as it is.
    if (testi.lotto.has_value() != testi.superenalotto.has_value()) {
        if (attuale.illeggibile) return std::unexpected(std::move(*attuale.illeggibile));
        const bool c_e = !attuale.drawit.file.empty();
        if (c_e && !attuale.drawit.simulato) {
            righe = std::move(attuale.righe);
        } else if (!testi.lotto && c_e) {
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

/// Stops an import that would take from the archive what nobody asked it to take. Simulated draws are no
/// loss.
std::expected<void, ErroreArchivio> ammetti(const ArchivioAttuale& attuale, bool simulato,
                                            const RigheArchivio& nuove, unsigned tabelle) {
    if (attuale.illeggibile)
        return rifiuta(attuale.illeggibile->file,
                       fmt::format("quel che c'è nell'archivio non si può leggere ({}), e non si sa quali "
                                   "estrazioni andrebbero perse; con --sostituisci si importa lo stesso",
                                   attuale.illeggibile->motivo));
    if (simulato) return {};
    const auto perse = perdite(attuale.righe, nuove, tabelle);
    if (perse.empty()) return {};
    return rifiuta((tabelle & kTabellaWinForLife) != 0 ? attuale.drawit2.file : attuale.drawit.file,
                   fmt::format("estrazioni che ci sono andrebbero perse: {}; con --sostituisci si importa lo "
                               "stesso",
                               racconta(perse)));
}

/// Simulated draws never stand beside real ones: a file that the import leaves as it is goes, if it is
/// simulated.
void togli_simulati(bool drawit_simulato, bool drawit2_simulato, NuovoArchivio& nuovo,
                    std::vector<std::string>& avvisi) {
    if (drawit_simulato && nuovo.drawit == Destino::Resta) {
        nuovo.drawit = Destino::Tolto;
        avvisi.emplace_back("le estrazioni simulate di Lotto e SuperEnalotto sono state tolte dall'archivio");
    }
    if (drawit2_simulato && nuovo.drawit2 == Destino::Resta) {
        nuovo.drawit2 = Destino::Tolto;
        avvisi.emplace_back("le estrazioni simulate di Win for Life sono state tolte dall'archivio");
    }
}

/// Whether all that was read of an archive is simulated.
bool simulato(const ArchivioAttuale& attuale) {
    return !attuale.illeggibile && (attuale.drawit.file.empty() || attuale.drawit.simulato) &&
           (attuale.drawit2.file.empty() || attuale.drawit2.simulato);
}

constexpr unsigned kInDrawit = kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto;

/// What the archive holds before it is changed, file by file.
struct Prima {
    ArchivioAttuale drawit;
    ArchivioAttuale drawit2;
};

Prima leggi_prima(const CambioArchivio& cambio) {
    return {cambio.leggi(kInDrawit), cambio.leggi(kTabellaWinForLife)};
}

/// Takes the new files into the archive, if that takes nothing from it or is asked for. Returns remarks.
std::expected<std::vector<std::string>, ErroreArchivio> metti(CambioArchivio& cambio, const Prima& prima,
                                                              NuovoArchivio& nuovo, bool sostituisci,
                                                              Avanzamento& avanzamento) {
    const std::array<std::tuple<Destino, const ArchivioAttuale*, bool, unsigned>, 2> file{
        {{nuovo.drawit, &prima.drawit, prima.drawit.drawit.simulato, kInDrawit},
         {nuovo.drawit2, &prima.drawit2, prima.drawit2.drawit2.simulato, kTabellaWinForLife}}};
    for (const auto& [destino, attuale, simulato, tabelle] : file) {
        if (destino != Destino::Nuovo || sostituisci) continue;
        if (auto esito = ammetti(*attuale, simulato, nuovo.righe, tabelle); !esito)
            return std::unexpected(std::move(esito.error()));
    }
    std::vector<std::string> avvisi;
    togli_simulati(prima.drawit.drawit.simulato, prima.drawit2.drawit2.simulato, nuovo, avvisi);
    if (auto esito = cambio.scrivi(nuovo, avanzamento); !esito)
        return std::unexpected(std::move(esito.error()));
    return avvisi;
}

// ---- what cannot be true, and where it stands ----

/// Date and wheel, or hour, of the draw that something was found in.
struct Segno {
    Data data{};
    std::string testo{};
};

template <class Riga>
std::optional<Segno> segno_di(const std::vector<Riga>& righe, const Rilievo& r) {
    const auto it = std::find_if(righe.begin(), righe.end(), [&](const Riga& x) {
        if constexpr (std::is_same_v<Riga, RigaLotto>)
            if (r.ruota >= 0 && x.ruota != r.ruota) return false;
        return x.concorso == r.concorso;
    });
    if (it == righe.end()) return std::nullopt;
    Segno segno{.data = it->data};
    if constexpr (std::is_same_v<Riga, RigaWinForLife>) segno.testo = it->ora;
    if constexpr (std::is_same_v<Riga, RigaLotto>)
        if (r.ruota >= 0) segno.testo = kNomiRuote[static_cast<std::size_t>(r.ruota)].codice;
    return segno;
}

std::optional<std::size_t> riga_nel_testo(std::string_view testo, const RigheArchivio& righe,
                                          const Rilievo& r) {
    const auto cerca = [&](const std::optional<Segno>& s) -> std::optional<std::size_t> {
        return s ? riga_di(testo, s->data, s->testo) : std::nullopt;
    };
    switch (r.tabella) {
        case TabellaArchivio::SuperEnalotto:
            return cerca(segno_di(righe.superenalotto, r));
        case TabellaArchivio::WinForLife:
            return cerca(segno_di(righe.winforlife, r));
        case TabellaArchivio::Lotto:
            return cerca(segno_di(righe.lotto, r));
        case TabellaArchivio::Nazionale: {
            auto s = segno_di(righe.nazionale, r);
            if (!s) return std::nullopt;
            // It is published under two codes.
            s->testo = "RN";
            const auto riga = cerca(s);
            s->testo = "NZ";
            return riga ? riga : cerca(s);
        }
    }
    return std::nullopt;
}

/// Says in which line of which file an import found what no archive may hold. The line is looked for only
/// now: to keep that of every row would cost each import what one in a thousand needs.
ErroreArchivio con_la_riga(ErroreArchivio errore, const FilePubblicati& file, const RigheArchivio& righe) {
    const auto archivio = ArchivioEstrazioni::componi(righe);
    if (!archivio) return errore;
    const Esame esame = esamina(*archivio);
    if (esame.danni.empty() || esame.danni.front().frase() != errore.motivo) return errore;
    const Rilievo& r = esame.danni.front();
    const auto& testo = r.tabella == TabellaArchivio::SuperEnalotto ? file.superenalotto
                        : r.tabella == TabellaArchivio::WinForLife  ? file.winforlife
                                                                    : file.lotto;
    const auto byte = testo ? leggi_file(*testo, kTestoMassimo) : std::unexpected(errore);
    const auto riga = byte ? riga_nel_testo(*byte, righe, r) : std::nullopt;
    if (!riga) return errore;
    return {*testo, fmt::format("riga {}: {}", *riga, errore.motivo)};
}

Importati conta(const RigheArchivio& righe, std::vector<std::string> avvisi) {
    return {righe.lotto.size(), righe.nazionale.size(), righe.superenalotto.size(), righe.winforlife.size(),
            std::move(avvisi)};
}

}  // namespace

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
    TrattoAvanzamento attesa{avanzamento, kMeta, 0, 2 * kMeta};
    TrattoAvanzamento scrittura{avanzamento, kMeta, kMeta, 2 * kMeta};
    auto testi = leggi_testi(file, lettura);
    if (!testi) return std::unexpected(std::move(testi.error()));
    auto cambio = CambioArchivio::apri(percorso_archivio, attesa);
    if (!cambio) return std::unexpected(std::move(cambio.error()));
    const Prima prima = leggi_prima(*cambio);
    NuovoArchivio nuovo;
    std::vector<std::string> avvisi;
    if (testi->lotto || testi->superenalotto) {
        auto composti = componi_drawit(prima.drawit, file, *testi);
        if (!composti) return std::unexpected(std::move(composti.error()));
        nuovo.righe = std::move(composti->righe);
        avvisi = std::move(composti->avvisi);
        nuovo.drawit = Destino::Nuovo;
    }
    if (testi->winforlife) {
        nuovo.righe.winforlife = std::move(*testi->winforlife);
        nuovo.drawit2 = Destino::Nuovo;
    }
    auto altri = metti(*cambio, prima, nuovo, file.sostituisci, scrittura);
    if (!altri) return std::unexpected(con_la_riga(std::move(altri.error()), file, nuovo.righe));
    avvisi.insert(avvisi.end(), altri->begin(), altri->end());
    for (std::string& frase : nascosti_da_jet(percorso_archivio, nuovo)) avvisi.push_back(std::move(frase));
    return conta(nuovo.righe, std::move(avvisi));
}

std::expected<Importati, ErroreArchivio> importa_jet(const std::filesystem::path& percorso_archivio,
                                                     const std::filesystem::path& cartella_jet,
                                                     bool sostituisci, Avanzamento& avanzamento) {
    std::error_code errore;
    const auto sotto = cartella_jet / "archivio";
    const auto cartella = std::filesystem::is_directory(sotto, errore) ? sotto : cartella_jet;
    const auto drawit = trova_file(cartella, "drawit.mdb");
    const auto drawit2 = trova_file(cartella, "drawit2.mdb");
    if (!drawit && !drawit2) return rifiuta(cartella, "non vi si trova né drawit.mdb né drawit2.mdb");
    NuovoArchivio nuovo;
    if (drawit) {
        auto lette = leggi_jet(*drawit, kInDrawit);
        if (!lette) return std::unexpected(std::move(lette.error()));
        nuovo.righe = std::move(*lette);
        nuovo.drawit = Destino::Nuovo;
    }
    if (drawit2) {
        auto lette = leggi_jet(*drawit2, kTabellaWinForLife);
        if (!lette) return std::unexpected(std::move(lette.error()));
        nuovo.righe.winforlife = std::move(lette->winforlife);
        nuovo.drawit2 = Destino::Nuovo;
    }
    auto cambio = CambioArchivio::apri(percorso_archivio, avanzamento);
    if (!cambio) return std::unexpected(std::move(cambio.error()));
    auto avvisi = metti(*cambio, leggi_prima(*cambio), nuovo, sostituisci, avanzamento);
    if (!avvisi) return std::unexpected(std::move(avvisi.error()));
    preferisci_nativi(percorso_archivio);
    return conta(nuovo.righe, std::move(*avvisi));
}

std::expected<void, ErroreArchivio> annulla_importazione(const std::filesystem::path& percorso_archivio,
                                                         Avanzamento& avanzamento) {
    auto cambio = CambioArchivio::apri(percorso_archivio, avanzamento);
    if (!cambio) return std::unexpected(std::move(cambio.error()));
    return cambio->annulla();
}

std::expected<Importati, ErroreArchivio> crea_dimostrazione(const std::filesystem::path& percorso_archivio,
                                                            Avanzamento& avanzamento) {
    auto cambio = CambioArchivio::apri(percorso_archivio, avanzamento);
    if (!cambio) return std::unexpected(std::move(cambio.error()));
    const FileLetti letti = file_letti(percorso_archivio);
    NuovoArchivio nuovo{.simulato = true};
    if (!letti.drawit) nuovo.drawit = Destino::Nuovo;
    if (!letti.drawit2) nuovo.drawit2 = Destino::Nuovo;
    // One of the two files alone: the rest of a demonstration archive may join it, but never real draws.
    const bool tutti = letti.drawit && letti.drawit2;
    const bool nessuno = !letti.drawit && !letti.drawit2;
    if (!nessuno && (tutti || !simulato(cambio->leggi(kTutteLeTabelle))))
        return rifiuta(percorso_archivio,
                       "la cartella contiene già un archivio, che non viene sostituito con quello simulato");
    nuovo.righe = archivio_dimostrativo();
    if (auto esito = cambio->scrivi(nuovo, avanzamento); !esito)
        return std::unexpected(std::move(esito.error()));
    return conta(nuovo.righe, {});
}

bool ammette_dimostrazione(const std::filesystem::path& percorso_archivio) {
    const FileLetti letti = file_letti(percorso_archivio);
    if (!letti.drawit && !letti.drawit2) return true;
    if (letti.drawit && letti.drawit2) return false;
    const auto letto = letti.drawit ? leggi_drawit(percorso_archivio, kTabellaNazionale)
                                    : leggi_drawit2(percorso_archivio, kTabellaWinForLife);
    return letto && *letto && (*letto)->fonte.simulato;
}

}  // namespace sortimetra
