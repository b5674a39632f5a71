#include "stores/cambio.h"

#include "draws/esame.h"
#include "files/file_sicuro.h"
#include "files/passi_disco.h"
#include "stores/apertura.h"
#include "stores/intento.h"
#include "stores/laterali.h"
#include "stores/limiti.h"
#include "stores/negozio_nativo.h"

#include <fmt/core.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <string_view>
#include <thread>
#include <utility>

namespace sortimetra {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kDrawit = "drawit.db";
constexpr std::string_view kDrawit2 = "drawit2.db";

/// Between two looks whether another program has let go of the folder.
constexpr auto kTraDueProve = std::chrono::milliseconds{10};

std::string precedente(std::string_view nome) {
    return fmt::format("{}{}", nome, kFinalePrecedente);
}

ErroreArchivio non_scritto(const fs::path& file, int codice) {
    return {file, fmt::format("la scrittura non è riuscita: {}", motivo_sistema(codice))};
}

/// The new things that stand beside the old ones while a change is prepared; they go again if it does not
/// come to pass.
class Preparati {
  public:
    Preparati() = default;
    Preparati(const Preparati&) = delete;
    Preparati& operator=(const Preparati&) = delete;
    ~Preparati() {
        for (const fs::path& f : file_) (void)unlink(f.c_str());
    }
    /// The step that puts it where it belongs.
    PassoCambio passo(std::string_view nome, fs::path temporaneo) {
        PassoCambio p{.che = PassoCambio::Che::Metti,
                      .nome = std::string{nome},
                      .temporaneo = temporaneo.filename().string()};
        file_.push_back(std::move(temporaneo));
        return p;
    }
    /// They are spoken for.
    void affida() { file_.clear(); }

  private:
    std::vector<fs::path> file_;
};

using Passo = std::expected<PassoCambio, ErroreArchivio>;

/// The step that gives what stands at `da` also the name `a`; nothing stands there: an empty file, which says
/// just that.
Passo conserva(const fs::path& cartella, std::string_view da, std::string_view a, Preparati& preparati) {
    const fs::path vecchio = posto(cartella, da);
    const fs::path dove = posto(cartella, a);
    if (esiste_voce(vecchio)) {
        fs::path temporaneo = nome_temporaneo(dove);
        if (const int codice = collega_file(vecchio, temporaneo); codice != 0)
            return std::unexpected(non_scritto(cartella / a, codice));
        return preparati.passo(a, std::move(temporaneo));
    }
    auto vuoto = FileSicuro::apri(dove);
    if (!vuoto) return std::unexpected(std::move(vuoto.error()));
    if (auto esito = vuoto->fissa(); !esito) return std::unexpected(std::move(esito.error()));
    return preparati.passo(a, vuoto->lascia());
}

/// Back to the files that were kept, after the change of the files themselves failed half way.
void torna_indietro(const fs::path& cartella, const Intento& intento, std::size_t fatti) {
    Intento indietro;
    for (std::size_t i = 0; i < fatti; ++i) {
        const std::string& nome = intento[i].nome;
        for (const PassoCambio& p : intento) {
            if (p.nome != precedente(nome)) continue;
            std::error_code errore;
            const fs::path tenuto = posto(cartella, p.nome).parent_path() / p.temporaneo;
            const fs::path ritorno = nome_temporaneo(posto(cartella, nome));
            if (fs::file_size(tenuto, errore) == 0 && !errore) {  // there was none
                indietro.push_back({.che = PassoCambio::Che::Togli, .nome = nome});
            } else if (collega_file(tenuto, ritorno) == 0) {
                indietro.push_back({.che = PassoCambio::Che::Metti,
                                    .nome = nome,
                                    .temporaneo = ritorno.filename().string()});
            } else {
                return;
            }
        }
    }
    if (scrivi_intento(cartella, indietro)) (void)applica_intento(cartella, indietro);
}

/// Takes the steps; the first `file` of them change the archive itself, the others what is kept of it.
std::expected<void, ErroreArchivio> compi(const fs::path& cartella, const Intento& intento, std::size_t file,
                                          Preparati& preparati) {
    if (intento.empty()) return {};
    if (auto esito = scrivi_intento(cartella, intento); !esito) return esito;
    auto avanzata = applica_intento(cartella, intento);
    // Once the files have changed the rest is taken at the next opening, if not now.
    if (!avanzata.errore || avanzata.fatti >= file) {
        preparati.affida();
        return {};
    }
    torna_indietro(cartella, intento, avanzata.fatti);
    if (cambio_sospeso(cartella)) preparati.affida();  // not even that: the next opening tries again
    return std::unexpected(std::move(*avanzata.errore));
}

using Prepara = std::expected<FileSicuro, ErroreArchivio> (*)(const fs::path&, const RigheArchivio&, bool,
                                                              Avanzamento&);

/// One of the two files: how it is written, and what is in it.
struct Genere {
    std::string_view nome;
    unsigned tabelle;
    Prepara prepara;
};
constexpr std::array<Genere, 2> kGeneri{
    {{kDrawit, kTabelleDrawit, prepara_drawit}, {kDrawit2, kTabellaWinForLife, prepara_drawit2}}};

/// What was written is what was to be written, down to the last cell.
std::expected<void, ErroreArchivio> rileggi(const fs::path& cartella, const fs::path& scritto,
                                            const Genere& genere, const NuovoArchivio& nuovo) {
    const auto letti = leggi_nativo(scritto, genere.tabelle);
    if (!letti)
        return std::unexpected(
            ErroreArchivio{cartella / genere.nome,
                           fmt::format("quel che è stato scritto non si rilegge: {}", letti.error().motivo)});
    const RigheArchivio& r = letti->righe;
    const RigheArchivio& n = nuovo.righe;
    const bool uguali = genere.tabelle == kTabelleDrawit ? r.lotto == n.lotto && r.nazionale == n.nazionale &&
                                                               r.superenalotto == n.superenalotto
                                                         : r.winforlife == n.winforlife;
    if (!uguali || letti->simulato != nuovo.simulato)
        return std::unexpected(
            ErroreArchivio{cartella / genere.nome,
                           "quel che è stato scritto si rilegge diverso: il disco potrebbe essere guasto"});
    return {};
}

/// A stretch of the rows that are written.
class TrattoRighe final : public Avanzamento {
  public:
    TrattoRighe(Avanzamento& intero, std::size_t da, std::size_t totale)
        : intero_{intero}, da_{da}, totale_{totale} {}
    bool procedi(std::size_t fatto, std::size_t) override { return intero_.procedi(da_ + fatto, totale_); }

  private:
    Avanzamento& intero_;
    std::size_t da_;
    std::size_t totale_;
};

Passo scrivi_nuovo(const fs::path& cartella, const Genere& genere, const NuovoArchivio& nuovo,
                   Avanzamento& avanzamento, Preparati& preparati) {
    auto scritto = genere.prepara(cartella / genere.nome, nuovo.righe, nuovo.simulato, avanzamento);
    if (!scritto) return std::unexpected(std::move(scritto.error()));
    if (auto esito = scritto->fissa(); !esito) return std::unexpected(std::move(esito.error()));
    if (auto esito = rileggi(cartella, scritto->temporaneo(), genere, nuovo); !esito)
        return std::unexpected(std::move(esito.error()));
    return preparati.passo(genere.nome, scritto->lascia());
}

}  // namespace

std::expected<CambioArchivio, ErroreArchivio> CambioArchivio::apri(const fs::path& percorso_archivio,
                                                                   Avanzamento& avanzamento,
                                                                   std::chrono::milliseconds attesa) {
    const auto fine = std::chrono::steady_clock::now() + attesa;
    for (bool creata = false;;) {
        std::error_code errore;
        creata = fs::create_directories(percorso_archivio, errore) || creata;
        if (errore)
            return std::unexpected(ErroreArchivio{
                percorso_archivio,
                fmt::format("la cartella non si può creare: {}", motivo_sistema(errore.value()))});
        if (auto blocco = BloccoCartella::prova(percorso_archivio)) {
            CambioArchivio cambio{percorso_archivio, std::move(*blocco), creata};
            auto intento = leggi_intento(percorso_archivio);
            if (!intento) return std::unexpected(std::move(intento.error()));
            if (*intento) {
                if (auto avanzata = applica_intento(percorso_archivio, **intento); avanzata.errore)
                    return std::unexpected(std::move(*avanzata.errore));
            }
            spazza_temporanei(percorso_archivio);
            return cambio;
        }
        if (access(percorso_archivio.c_str(), R_OK | X_OK) != 0)
            return std::unexpected(ErroreArchivio{percorso_archivio, "la cartella non si può leggere"});
        if (std::chrono::steady_clock::now() >= fine)
            return std::unexpected(
                ErroreArchivio{percorso_archivio,
                               "un altro programma sta cambiando l'archivio: riprovare quando ha finito"});
        if (!avanzamento.procedi(0, 1))
            return std::unexpected(ErroreArchivio{percorso_archivio, std::string{kAnnullata}});
        std::this_thread::sleep_for(kTraDueProve);
    }
}

CambioArchivio::CambioArchivio(CambioArchivio&& altro) noexcept
    : cartella_{std::move(altro.cartella_)},
      blocco_{std::move(altro.blocco_)},
      creata_{std::exchange(altro.creata_, false)} {}

CambioArchivio::~CambioArchivio() {
    // Only a folder with nothing in it goes.
    if (creata_) (void)rmdir(cartella_.c_str());
}

ArchivioAttuale CambioArchivio::leggi(unsigned tabelle) const {
    ArchivioAttuale attuale;
    const auto prendi = [&](auto letto, Fonte& fonte) {
        if (!letto) {
            if (!attuale.illeggibile) attuale.illeggibile = std::move(letto.error());
        } else if (*letto) {
            fonte = std::move((*letto)->fonte);
            return std::move((*letto)->righe);
        }
        return RigheArchivio{};
    };
    if ((tabelle & kTabelleDrawit) != 0)
        attuale.righe = prendi(leggi_drawit(cartella_, tabelle), attuale.drawit);
    if ((tabelle & kTabellaWinForLife) != 0)
        attuale.righe.winforlife = prendi(leggi_drawit2(cartella_, tabelle), attuale.drawit2).winforlife;
    return attuale;
}

std::expected<void, ErroreArchivio> CambioArchivio::scrivi(const NuovoArchivio& nuovo,
                                                           Avanzamento& avanzamento) {
    // An archive that would be refused at the next opening is not written at all.
    if (auto perche = oltre_i_limiti(nuovo.righe))
        return std::unexpected(ErroreArchivio{cartella_, std::move(*perche)});
    const auto prova =
        ArchivioEstrazioni::componi(nuovo.righe, {cartella_, nuovo.simulato}, {cartella_, nuovo.simulato});
    if (!prova) return std::unexpected(prova.error());
    if (auto danno = primo_danno(*prova)) return std::unexpected(std::move(*danno));
    const std::array destini{nuovo.drawit, nuovo.drawit2};
    const RigheArchivio& r = nuovo.righe;
    const std::array righe{
        nuovo.drawit == Destino::Nuovo ? r.lotto.size() + r.nazionale.size() + r.superenalotto.size() : 0,
        nuovo.drawit2 == Destino::Nuovo ? r.winforlife.size() : 0};
    Preparati preparati;
    Intento intento;
    Intento tenuti;
    for (std::size_t i = 0; i < kGeneri.size(); ++i) {
        const Genere& genere = kGeneri[i];
        const fs::path file = cartella_ / genere.nome;
        const bool cambia =
            destini[i] == Destino::Nuovo || (destini[i] == Destino::Tolto && esiste_voce(file));
        if (!cambia) {
            // What is kept is the archive before this change, and of that this file is no part.
            if (esiste_voce(cartella_ / precedente(genere.nome)))
                tenuti.push_back({.che = PassoCambio::Che::Togli, .nome = precedente(genere.nome)});
            continue;
        }
        if (destini[i] == Destino::Nuovo) {
            TrattoRighe tratto{avanzamento, i == 0 ? 0 : righe[0], righe[0] + righe[1]};
            auto passo = scrivi_nuovo(cartella_, genere, nuovo, tratto, preparati);
            if (!passo) return std::unexpected(std::move(passo.error()));
            intento.push_back(std::move(*passo));
        } else {
            intento.push_back({.che = PassoCambio::Che::Togli, .nome = std::string{genere.nome}});
        }
        if (auto esito = concludi_laterali(posto(cartella_, genere.nome)); !esito) return esito;
        auto passo = conserva(cartella_, genere.nome, precedente(genere.nome), preparati);
        if (!passo) return std::unexpected(std::move(passo.error()));
        tenuti.push_back(std::move(*passo));
    }
    const std::size_t file = intento.size();
    intento.insert(intento.end(), std::make_move_iterator(tenuti.begin()),
                   std::make_move_iterator(tenuti.end()));
    auto esito = compi(cartella_, intento, file, preparati);
    if (esito) creata_ = false;
    return esito;
}

std::expected<void, ErroreArchivio> CambioArchivio::annulla() {
    Preparati preparati;
    Intento intento;
    Intento tenuti;
    for (const Genere& genere : kGeneri) {
        const std::string tenuto = precedente(genere.nome);
        const fs::path vecchio = posto(cartella_, tenuto);
        if (!esiste_voce(vecchio)) continue;
        std::error_code errore;
        if (const bool nessuno = fs::file_size(vecchio, errore) == 0 && !errore; nessuno) {
            intento.push_back({.che = PassoCambio::Che::Togli, .nome = std::string{genere.nome}});
        } else {
            if (const auto sano = leggi_nativo(vecchio, genere.tabelle); !sano)
                return std::unexpected(sano.error());
            auto passo = conserva(cartella_, tenuto, genere.nome, preparati);
            if (!passo) return std::unexpected(std::move(passo.error()));
            intento.push_back(std::move(*passo));
        }
        if (auto esito = concludi_laterali(posto(cartella_, genere.nome)); !esito) return esito;
        auto passo = conserva(cartella_, genere.nome, tenuto, preparati);
        if (!passo) return std::unexpected(std::move(passo.error()));
        tenuti.push_back(std::move(*passo));
    }
    if (intento.empty())
        return std::unexpected(
            ErroreArchivio{cartella_, fmt::format("non c'è un'importazione da annullare: mancano {} e {}",
                                                  precedente(kDrawit), precedente(kDrawit2))});
    const std::size_t file = intento.size();
    intento.insert(intento.end(), std::make_move_iterator(tenuti.begin()),
                   std::make_move_iterator(tenuti.end()));
    return compi(cartella_, intento, file, preparati);
}

std::vector<std::string> nascosti_da_jet(const fs::path& percorso_archivio, const NuovoArchivio& nuovo) {
    const FileLetti letti = file_letti(percorso_archivio);
    std::vector<std::string> frasi;
    const auto guarda = [&](Destino destino, const std::optional<fs::path>& letto, std::string_view nome) {
        if (destino != Destino::Nuovo || !letto || letto->filename() == nome) return;
        const std::string altro = letto->filename().string();
        frasi.push_back(
            fmt::format("{0} porta una data più recente di {1}: le ricerche leggono ancora {0} e quel che è "
                        "appena entrato "
                        "nell'archivio non si vede. Perché si veda, togliere {0} dalla cartella {2} o dargli "
                        "un altro nome.",
                        altro, nome, percorso_archivio.string()));
    };
    guarda(nuovo.drawit, letti.drawit, kDrawit);
    guarda(nuovo.drawit2, letti.drawit2, kDrawit2);
    return frasi;
}

}  // namespace sortimetra
