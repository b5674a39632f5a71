#include "stores/aggiorna.h"

#include "draws/calendario.h"
#include "draws/esame.h"
#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/file_jet.h"
#include "stores/numerazione.h"
#include "stores/pubblicati.h"
#include "text/ora.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <iterator>
#include <map>
#include <set>
#include <span>
#include <string_view>
#include <utility>

namespace sortimetra {

namespace {

std::string_view nome_gioco(Gioco gioco) {
    switch (gioco) {
        case Gioco::superenalotto:
            return "SuperEnalotto";
        case Gioco::win_for_life:
            return "Win for Life";
        default:
            return "Lotto";
    }
}

// ---- one draw of any game ----

/// The places of a draw that are compared and told together: the eleven wheels of five, the eight numbers of
/// SuperEnalotto, the ten of Win for Life.
constexpr std::size_t kPosti = 55;
constexpr int kGruppoNazionale = 10;

struct Estratta {
    Concorso concorso{};
    Appuntamento quando{};
    std::uint16_t presenti = 1;  ///< bit g is set where group g is there
    std::array<Numero, kPosti> numeri{};

    [[nodiscard]] bool presente(int gruppo) const {
        return (presenti >> static_cast<unsigned>(gruppo) & 1U) != 0;
    }
};
using Estratte = std::vector<Estratta>;

/// How the numbers of a game's draw are grouped.
struct Gruppi {
    int quanti;
    int lungo;
    int distinti;  ///< so many numbers from the front of a group are drawn from one urn
};
constexpr Gruppi gruppi(Gioco gioco) {
    switch (gioco) {
        case Gioco::superenalotto:
            return {.quanti = 1, .lungo = 8, .distinti = 7};  // the SuperStar has an urn of its own
        case Gioco::win_for_life:
            return {.quanti = 1, .lungo = 10, .distinti = 10};
        default:
            return {.quanti = kGruppoNazionale + 1, .lungo = kEstratti, .distinti = kEstratti};
    }
}

std::span<const Numero> numeri_gruppo(const Estratta& e, const Gruppi& g, int gruppo) {
    return std::span{e.numeri}.subspan(static_cast<std::size_t>(gruppo * g.lungo),
                                       static_cast<std::size_t>(g.lungo));
}

std::string codice_gruppo(Gioco gioco, int gruppo) {
    if (gioco != Gioco::lotto) return {};
    const int ruota = gruppo == kGruppoNazionale ? kNazionale : gruppo;
    return std::string{kNomiRuote[static_cast<std::size_t>(ruota)].codice};
}

std::string testo_gruppo(const Estratta& e, const Gruppi& g, int gruppo) {
    if (!e.presente(gruppo)) return "manca";
    std::string testo;
    for (const Numero n : numeri_gruppo(e, g, gruppo))
        testo += fmt::format("{}{:02}", testo.empty() ? "" : ".", n);
    return testo;
}

std::string testo_ora(int minuti) {
    return fmt::format("{:02}:{:02}", minuti / 60, minuti % 60);
}

EstrazioneDetta detta(Gioco gioco, const Estratta& e) {
    return {e.concorso, e.quando.data,
            gioco == Gioco::win_for_life ? testo_ora(e.quando.minuti) : std::string{}};
}

bool prima(const Estratta& a, const Estratta& b) {
    return a.quando < b.quando;
}

// ---- rows to draws and back ----

void metti_ruota(Estratta& e, const RigaLotto& r) {
    const int gruppo = r.ruota == kNazionale ? kGruppoNazionale : r.ruota;
    e.presenti = static_cast<std::uint16_t>(e.presenti | 1U << static_cast<unsigned>(gruppo));
    std::copy(r.numeri.begin(), r.numeri.end(), e.numeri.begin() + gruppo * kEstratti);
}

/// Rows of the Lotto that are ordered by `stessa`'s measure, a run of them for each draw.
template <class Stessa>
Estratte raccogli_lotto(std::span<const RigaLotto> righe, Stessa stessa) {
    Estratte tutte;
    for (const RigaLotto& r : righe) {
        if (tutte.empty() || !stessa(tutte.back(), r))
            tutte.push_back({.concorso = r.concorso, .quando = {.data = r.data}, .presenti = 0});
        metti_ruota(tutte.back(), r);
    }
    return tutte;
}

Estratta estratta(const RigaSuperEnalotto& r) {
    Estratta e{.concorso = r.concorso, .quando = {.data = r.data}};
    std::copy(r.numeri.begin(), r.numeri.end(), e.numeri.begin());
    e.numeri[6] = r.jolly;
    e.numeri[7] = r.superstar;
    return e;
}

Estratta estratta(const RigaWinForLife& r) {
    Estratta e{.concorso = r.concorso,
               .quando = {.data = r.data, .minuti = leggi_ora(rifila(r.ora)).value_or(0)}};
    std::copy(r.numeri.begin(), r.numeri.end(), e.numeri.begin());
    return e;
}

template <class Riga>
Estratte estratte(const std::vector<Riga>& righe) {
    Estratte tutte;
    tutte.reserve(righe.size());
    for (const Riga& r : righe) tutte.push_back(estratta(r));
    return tutte;
}

void versa_lotto(const Estratta& e, RigheArchivio& righe) {
    for (int g = 0; g <= kGruppoNazionale; ++g) {
        if (!e.presente(g)) continue;
        RigaLotto r{
            .concorso = e.concorso, .data = e.quando.data, .ruota = g == kGruppoNazionale ? kNazionale : g};
        std::copy_n(e.numeri.begin() + g * kEstratti, kEstratti, r.numeri.begin());
        (g == kGruppoNazionale ? righe.nazionale : righe.lotto).push_back(r);
    }
}

RigaSuperEnalotto riga_superenalotto(const Estratta& e) {
    RigaSuperEnalotto r{
        .concorso = e.concorso, .data = e.quando.data, .jolly = e.numeri[6], .superstar = e.numeri[7]};
    std::copy_n(e.numeri.begin(), r.numeri.size(), r.numeri.begin());
    return r;
}

void versa(Gioco gioco, const Estratte& tutte, RigheArchivio& righe) {
    for (const Estratta& e : tutte) {
        if (gioco == Gioco::lotto) {
            versa_lotto(e, righe);
        } else if (gioco == Gioco::superenalotto) {
            righe.superenalotto.push_back(riga_superenalotto(e));
        } else {
            RigaWinForLife r{
                .concorso = e.concorso, .data = e.quando.data, .ora = testo_ora(e.quando.minuti)};
            std::copy_n(e.numeri.begin(), r.numeri.size(), r.numeri.begin());
            righe.winforlife.push_back(std::move(r));
        }
    }
}

// ---- comparing ----

/// The archive's draws of one game, in the order of the concorsi, and how to find one by its day.
class Vecchie {
  public:
    explicit Vecchie(Estratte tutte) : tutte_{std::move(tutte)}, per_data_(tutte_.size()) {
        for (std::size_t i = 0; i < per_data_.size(); ++i) per_data_[i] = i;
        const auto segue = [&](std::size_t a, std::size_t b) { return prima(tutte_[a], tutte_[b]); };
        if (!std::is_sorted(per_data_.begin(), per_data_.end(), segue))
            std::stable_sort(per_data_.begin(), per_data_.end(), segue);
    }

    [[nodiscard]] const Estratte& tutte() const { return tutte_; }
    [[nodiscard]] Estratte& tutte() { return tutte_; }

    [[nodiscard]] std::optional<std::size_t> cerca(Appuntamento quando) const {
        const auto it = std::lower_bound(per_data_.begin(), per_data_.end(), quando,
                                         [&](std::size_t i, Appuntamento q) { return tutte_[i].quando < q; });
        if (it == per_data_.end() || tutte_[*it].quando != quando) return std::nullopt;
        return *it;
    }

  private:
    Estratte tutte_;
    std::vector<std::size_t> per_data_;
};

/// Compares one arrived draw with the same of the archive, which takes its numbers where that is wanted.
/// Returns whether they are alike.
bool confronta(PropostaGioco& p, Estratta& vecchia, const Estratta& arrivata, Differenze differenze) {
    const Gruppi g = gruppi(p.gioco);
    bool uguale = true;
    for (int i = 0; i < g.quanti; ++i) {
        // A wheel that did not arrive is no difference.
        if (!arrivata.presente(i)) continue;
        const auto sua = numeri_gruppo(vecchia, g, i);
        const auto nuova = numeri_gruppo(arrivata, g, i);
        if (vecchia.presente(i) && std::equal(sua.begin(), sua.end(), nuova.begin())) continue;
        uguale = false;
        p.diverse.push_back({detta(p.gioco, vecchia), codice_gruppo(p.gioco, i), testo_gruppo(vecchia, g, i),
                             testo_gruppo(arrivata, g, i)});
        if (differenze == Differenze::elenca) continue;
        std::copy(nuova.begin(), nuova.end(), vecchia.numeri.begin() + i * g.lungo);
        vecchia.presenti = static_cast<std::uint16_t>(vecchia.presenti | 1U << static_cast<unsigned>(i));
    }
    return uguale;
}

// ---- numbering ----

struct Inserite {
    Estratte tutte;
    std::vector<Concorso> delle_vecchie;  ///< the concorso that each old draw has now
};

/// Puts the new draws (by date) among the old ones (by concorso) and gives them their numbers. Those between
/// two old draws fit if exactly as many concorsi are free there; otherwise all that follows moves, or they
/// stay outside.
Inserite inserisci(PropostaGioco& p, const Estratte& vecchie, const Estratte& nuove, Differenze differenze) {
    Inserite i;
    i.tutte.reserve(vecchie.size() + nuove.size());
    i.delle_vecchie.reserve(vecchie.size());
    Concorso spostate = 0;  // how much higher the numbers are from here on
    auto nuova = nuove.begin();
    for (const Estratta& vecchia : vecchie) {
        auto fine = nuova;
        while (fine != nuove.end() && prima(*fine, vecchia)) ++fine;
        const auto quante = static_cast<Concorso>(fine - nuova);
        if (i.tutte.empty()) {
            p.precedenti += static_cast<std::size_t>(quante);
            nuova = fine;
        } else if (quante > 0) {
            Concorso numero = i.tutte.back().concorso;
            const Concorso libere = vecchia.concorso + spostate - numero - 1;
            const bool entrano = quante == libere || differenze == Differenze::sostituisci;
            for (; nuova != fine; ++nuova) {
                Estratta e = *nuova;
                e.concorso = ++numero;
                (entrano ? p.nuove : p.fuori_posto).push_back(detta(p.gioco, e));
                if (entrano) i.tutte.push_back(e);
            }
            if (entrano && quante > libere) {
                spostate += quante - libere;
                p.rinumera = true;
            }
        }
        i.tutte.push_back(vecchia);
        i.tutte.back().concorso += spostate;
        i.delle_vecchie.push_back(i.tutte.back().concorso);
    }
    for (; nuova != nuove.end(); ++nuova) {
        Estratta e = *nuova;
        e.concorso = i.tutte.empty() ? 1 : i.tutte.back().concorso + 1;
        p.nuove.push_back(detta(p.gioco, e));
        i.tutte.push_back(e);
    }
    return i;
}

/// The gaps right before and behind the new draws, as the calendar and the numbers tell them.
void cerca_lacune(PropostaGioco& p, const Estratte& tutte) {
    std::set<Concorso> nuove;
    for (const EstrazioneDetta& e : p.nuove) nuove.insert(e.concorso);
    for (std::size_t i = 1; i < tutte.size(); ++i) {
        const Estratta& a = tutte[i - 1];
        const Estratta& b = tutte[i];
        if (!nuove.contains(a.concorso) && !nuove.contains(b.concorso)) continue;
        const auto attese = static_cast<int>(appuntamenti_fra(p.gioco, a.quando, b.quando).size());
        const int circa = std::max(attese, p.gioco == Gioco::superenalotto ? 0 : b.concorso - a.concorso - 1);
        if (circa > 0) p.lacune.push_back({detta(p.gioco, a), detta(p.gioco, b), circa});
    }
}

// ---- what cannot be true ----

/// A number twice in what is drawn from one urn.
std::optional<std::string> controlla_numeri(Gioco gioco, const Estratta& e) {
    const Gruppi g = gruppi(gioco);
    for (int i = 0; i < g.quanti; ++i) {
        std::bitset<kNumeri + 1> visti;
        for (const Numero n : numeri_gruppo(e, g, i).first(static_cast<std::size_t>(g.distinti))) {
            if (n != 0 && visti[n])
                return fmt::format("{} del {}{}{}: il numero {} vi sta due volte", nome_gioco(gioco),
                                   testo_data(e.quando.data), gioco == Gioco::lotto ? ", ruota " : "",
                                   codice_gruppo(gioco, i), n);
            visti.set(n);
        }
    }
    return std::nullopt;
}

std::optional<std::string> controlla_nuova(Gioco gioco, const Estratta& e, Data oggi) {
    const std::string quale = fmt::format("{} del {}", nome_gioco(gioco), testo_data(e.quando.data));
    if (e.quando.data > oggi)
        return fmt::format("{}: è una data futura, oggi è il {}", quale, testo_data(oggi));
    if (gioco == Gioco::lotto && e.presenti == 1U << static_cast<unsigned>(kGruppoNazionale))
        return fmt::format("{}: vi è soltanto la Nazionale, attesa almeno una delle dieci ruote", quale);
    return controlla_numeri(gioco, e);
}

/// What a new Lotto draw lacks, for a remark: a draw that was cut short looks so.
std::string ruote_mancanti(const Estratta& e) {
    std::string codici;
    for (int w = 0; w < kRuote; ++w)
        if (!e.presente(w)) codici += (codici.empty() ? "" : " ") + codice_gruppo(Gioco::lotto, w);
    return codici;
}

// ---- the archive that is there ----

bool jet(const Fonte& fonte) {
    return minuscolo(fonte.file.extension().string()) == ".mdb";
}

/// What the archive holds of the games that arrived; an empty one where there is none.
std::expected<ArchivioEstrazioni, ErroreArchivio> apri_presente(
    const std::filesystem::path& percorso_archivio, unsigned tabelle, ModoApertura modo) {
    const unsigned presenti = tabelle_presenti(percorso_archivio);
    if (presenti == 0) return ArchivioEstrazioni{};
    // Of the other file the smallest table, to know whether it is simulated, or Jet. It may be damaged: that
    // is no reason not to update this one.
    const unsigned altra = (tabelle & kTabelleDrawit) == 0 ? kTabellaNazionale : kTabellaWinForLife;
    auto archivio = apri_archivio(percorso_archivio, (tabelle | altra) & presenti, modo);
    if (!archivio && (tabelle & presenti) != 0)
        archivio = apri_archivio(percorso_archivio, tabelle & presenti, modo);
    if (!archivio) return archivio;
    // The native store begins with all that the Jet files hold.
    if (jet(archivio->drawit()) || jet(archivio->drawit2()))
        archivio = apri_archivio(percorso_archivio, presenti, modo);
    return archivio;
}

/// The rows of a packed archive again, in the order of the walk.
RigheArchivio righe_di(const ArchivioEstrazioni& a) {
    RigheArchivio righe;
    const TabellaLotto& l = a.lotto();
    righe.lotto.reserve(l.righe);
    for (std::size_t i = 0; i < l.concorso.size(); ++i)
        for (int w = 0; w < kRuote; ++w) {
            if ((l.presenti[i] >> static_cast<unsigned>(w) & 1U) == 0) continue;
            RigaLotto r{.concorso = l.concorso[i], .data = l.data[i], .ruota = w};
            std::copy_n(l.numeri[i].begin() + w * kEstratti, kEstratti, r.numeri.begin());
            righe.lotto.push_back(r);
        }
    const TabellaNazionale& n = a.nazionale();
    for (std::size_t i = 0; i < n.concorso.size(); ++i)
        righe.nazionale.push_back({n.concorso[i], n.data[i], kNazionale, n.numeri[i]});
    const TabellaSuperEnalotto& s = a.superenalotto();
    for (std::size_t i = 0; i < s.concorso.size(); ++i) {
        RigaSuperEnalotto r{.concorso = s.concorso[i],
                            .data = s.data[i],
                            .jolly = s.numeri[i][6],
                            .superstar = s.numeri[i][7]};
        std::copy_n(s.numeri[i].begin(), r.numeri.size(), r.numeri.begin());
        righe.superenalotto.push_back(r);
    }
    const TabellaWinForLife& w = a.winforlife();
    for (std::size_t i = 0; i < w.concorso.size(); ++i)
        righe.winforlife.push_back({w.concorso[i], w.data[i], std::string{w.ora[i]}, w.numeri[i]});
    return righe;
}

/// The files of the archive in the folder, as they are now.
std::vector<ImprontaFile> impronte(const std::filesystem::path& cartella) {
    static constexpr std::array<std::string_view, 4> kNomi{"drawit.db", "drawit.mdb", "drawit2.db",
                                                           "drawit2.mdb"};
    std::vector<ImprontaFile> tutte;
    std::error_code errore;
    std::filesystem::directory_iterator it{cartella, errore};
    for (; !errore && it != std::filesystem::directory_iterator{}; it.increment(errore)) {
        const std::string nome = minuscolo(it->path().filename().string());
        if (std::find(kNomi.begin(), kNomi.end(), nome) == kNomi.end()) continue;
        std::error_code senza;
        tutte.push_back({it->path(), it->file_size(senza), it->last_write_time(senza)});
    }
    std::sort(tutte.begin(), tutte.end(), [](const auto& a, const auto& b) { return a.file < b.file; });
    return tutte;
}

// ---- the proposal, game by game ----

/// Builds the proposal: what is found of each game, and the rows that the archive would have then.
class Proponente {
  public:
    Proponente(Proposta& proposta, const ArchivioEstrazioni& presente, const Arrivate& arrivate)
        : p_{proposta},
          arrivate_{arrivate},
          drawit_{presente.drawit()},
          drawit2_{presente.drawit2()},
          righe_{righe_di(presente)} {}

    std::expected<void, ErroreArchivio> tutti() {
        const RigheArchivio& r = arrivate_.righe;
        if (!r.lotto.empty())
            if (auto esito = lotto(); !esito) return esito;
        if (!r.superenalotto.empty())
            if (auto esito = superenalotto(); !esito) return esito;
        if (!r.winforlife.empty())
            if (auto esito = winforlife(); !esito) return esito;
        concludi();
        return {};
    }

  private:
    /// What the arrived draws are compared with; none where the archive's are simulated.
    [[nodiscard]] Estratte lotto_presente() const {
        if (drawit_.simulato) return {};
        std::vector<RigaLotto> righe = righe_.lotto;
        righe.insert(righe.end(), righe_.nazionale.begin(), righe_.nazionale.end());
        std::stable_sort(righe.begin(), righe.end(),
                         [](const RigaLotto& a, const RigaLotto& b) { return a.concorso < b.concorso; });
        return raccogli_lotto(righe,
                              [](const Estratta& e, const RigaLotto& r) { return e.concorso == r.concorso; });
    }

    static std::unexpected<ErroreArchivio> serve_la_storia(const Fonte& fonte, std::string_view quale) {
        if (fonte.simulato)
            return rifiuta(
                {}, fmt::format("l'archivio che c'è è quello dimostrativo: alle sue estrazioni simulate "
                                "non se ne aggiungono di vere. Serve {}, che lo sostituisce",
                                quale));
        return rifiuta(
            {}, fmt::format("nell'archivio non ci sono ancora estrazioni di questo gioco: serve {}", quale));
    }

    /// Checks those that are new, compares the others; gives the new ones, by date.
    std::expected<Estratte, ErroreArchivio> confronta_tutte(PropostaGioco& g, Vecchie& vecchie,
                                                            const Estratte& arrivate) const {
        Estratte nuove;
        for (const Estratta& e : arrivate) {
            if (const auto i = vecchie.cerca(e.quando)) {
                if (confronta(g, vecchie.tutte()[*i], e, p_.modo.differenze))
                    ++g.uguali;
                else if (p_.modo.differenze == Differenze::sostituisci)
                    if (auto errore = controlla_numeri(g.gioco, e)) return rifiuta({}, std::move(*errore));
                continue;
            }
            const bool precede = !vecchie.tutte().empty() && e.quando < vecchie.tutte().front().quando;
            if (!precede)
                if (auto errore = controlla_nuova(g.gioco, e, p_.modo.oggi))
                    return rifiuta({}, std::move(*errore));
            nuove.push_back(e);
        }
        return nuove;
    }

    static PropostaGioco inizia(Gioco gioco, const Estratte& vecchie) {
        PropostaGioco g{.gioco = gioco};
        if (!vecchie.empty()) g.ultima = detta(gioco, vecchie.back());
        return g;
    }

    std::expected<void, ErroreArchivio> lotto() {
        Vecchie vecchie{lotto_presente()};
        PropostaGioco g = inizia(Gioco::lotto, vecchie.tutte());
        if (vecchie.tutte().empty()) return lotto_intero(std::move(g));
        const Estratte arrivate =
            raccogli_lotto(arrivate_.righe.lotto,
                           [](const Estratta& e, const RigaLotto& r) { return e.quando.data == r.data; });
        const auto nuove = confronta_tutte(g, vecchie, arrivate);
        if (!nuove) return std::unexpected(nuove.error());
        Inserite i = inserisci(g, vecchie.tutte(), *nuove, p_.modo.differenze);
        sposta_superenalotto(vecchie.tutte(), i.delle_vecchie);
        finisci_lotto(std::move(g), std::move(i.tutte));
        return {};
    }

    /// The archive begins with what arrived.
    std::expected<void, ErroreArchivio> lotto_intero(PropostaGioco g) {
        if ((arrivate_.intere & kTabellaLotto) == 0)
            return serve_la_storia(
                drawit_,
                "la storia intera del Lotto, con l'estrazione del 03/12/1997 dalla quale si "
                "contano i concorsi");
        std::vector<RigaLotto> righe = arrivate_.righe.lotto;
        if (auto esito = numera_lotto(righe, false); !esito) return rifiuta({}, std::move(esito.error()));
        Estratte tutte = raccogli_lotto(
            righe, [](const Estratta& e, const RigaLotto& r) { return e.concorso == r.concorso; });
        for (const Estratta& e : tutte) {
            if (auto errore = controlla_nuova(Gioco::lotto, e, p_.modo.oggi))
                return rifiuta({}, std::move(*errore));
            g.nuove.push_back(detta(Gioco::lotto, e));
        }
        if (drawit_.simulato) {
            lotto_vero_ = true;
            righe_.superenalotto.clear();
        }
        finisci_lotto(std::move(g), std::move(tutte));
        return {};
    }

    void finisci_lotto(PropostaGioco g, Estratte tutte) {
        cerca_lacune(g, tutte);
        for (const EstrazioneDetta& e : g.nuove) {
            if (g.nuove.size() > kPoche) break;
            const auto it = std::find_if(tutte.begin(), tutte.end(),
                                         [&](const Estratta& x) { return x.concorso == e.concorso; });
            if (const std::string codici = ruote_mancanti(*it); !codici.empty())
                p_.avvisi.push_back(
                    fmt::format("Lotto del {}: mancano le ruote {}", testo_data(e.data), codici));
        }
        if (cambia(g)) {
            righe_.lotto.clear();
            righe_.nazionale.clear();
            versa(Gioco::lotto, tutte, righe_);
        }
        p_.giochi.push_back(std::move(g));
    }

    /// SuperEnalotto goes where its Lotto draws go.
    void sposta_superenalotto(const Estratte& lotto, const std::vector<Concorso>& numeri) {
        if (lotto.empty() || lotto.back().concorso == numeri.back()) return;
        for (RigaSuperEnalotto& r : righe_.superenalotto) {
            auto it = std::upper_bound(lotto.begin(), lotto.end(), r.concorso,
                                       [](Concorso c, const Estratta& e) { return c < e.concorso; });
            if (it == lotto.begin()) continue;
            --it;
            r.concorso += numeri[static_cast<std::size_t>(it - lotto.begin())] - it->concorso;
        }
    }

    std::expected<void, ErroreArchivio> superenalotto() {
        if (drawit_.simulato && !lotto_vero_)
            return serve_la_storia(drawit_, "la storia intera del Lotto insieme a quella del SuperEnalotto");
        if (righe_.lotto.empty())
            return rifiuta({},
                           "i concorsi del SuperEnalotto si contano con le estrazioni del Lotto, che "
                           "nell'archivio non ci sono: serve anche la storia del Lotto");
        Vecchie vecchie{estratte(righe_.superenalotto)};
        PropostaGioco g = inizia(Gioco::superenalotto, vecchie.tutte());
        auto nuove = confronta_tutte(g, vecchie, estratte(arrivate_.righe.superenalotto));
        if (!nuove) return std::unexpected(std::move(nuove.error()));
        std::vector<GiornoConcorso> giorni;
        for (const RigaLotto& r : righe_.lotto)
            if (giorni.empty() || giorni.back().concorso != r.concorso)
                giorni.push_back({r.data, r.concorso});
        std::vector<RigaSuperEnalotto> righe = collocabili(g, vecchie.tutte(), *nuove, giorni);
        std::set<Concorso> presi;
        for (const Estratta& e : vecchie.tutte()) presi.insert(e.concorso);
        std::vector<std::string> avvisi = numera_superenalotto(righe, std::move(giorni), std::move(presi));
        std::move(avvisi.begin(), avvisi.end(), std::back_inserter(p_.avvisi));
        Estratte tutte = std::move(vecchie.tutte());
        for (const RigaSuperEnalotto& r : righe) {
            tutte.push_back(estratta(r));
            // Also one before the archive's first draw may have found a place.
            if (auto errore = controlla_numeri(Gioco::superenalotto, tutte.back()))
                return rifiuta({}, std::move(*errore));
            g.nuove.push_back(detta(Gioco::superenalotto, tutte.back()));
        }
        std::stable_sort(tutte.begin(), tutte.end(),
                         [](const Estratta& a, const Estratta& b) { return a.concorso < b.concorso; });
        cerca_lacune(g, tutte);
        if (cambia(g)) {
            righe_.superenalotto.clear();
            versa(Gioco::superenalotto, tutte, righe_);
        }
        p_.giochi.push_back(std::move(g));
        return {};
    }

    /// The new draws for which a concorso can be looked for. One without a Lotto draw on its day borrows one
    /// nearby, and waits until those nearby are known not to be wanted by draws of their own days.
    static std::vector<RigaSuperEnalotto> collocabili(PropostaGioco& g, const Estratte& vecchie,
                                                      const Estratte& nuove,
                                                      const std::vector<GiornoConcorso>& giorni) {
        std::set<Data> lotto;
        for (const GiornoConcorso& x : giorni) lotto.insert(x.data);
        Data nota = nuove.empty() ? Data{} : nuove.back().quando.data;
        if (!vecchie.empty()) nota = std::max(nota, vecchie.back().quando.data);
        nota = std::min(nota, *lotto.rbegin());
        std::vector<RigaSuperEnalotto> righe;
        for (const Estratta& e : nuove) {
            const Data giorno = e.quando.data;
            if (giorno + kGiorniVicini < *lotto.begin()) {
                ++g.precedenti;
            } else if (lotto.contains(giorno) || giorno + kGiorniVicini <= nota) {
                righe.push_back(riga_superenalotto(e));
            } else {
                g.in_attesa.push_back(detta(Gioco::superenalotto, e));
            }
        }
        return righe;
    }

    std::expected<void, ErroreArchivio> winforlife() {
        Vecchie vecchie{drawit2_.simulato ? Estratte{} : estratte(righe_.winforlife)};
        PropostaGioco g = inizia(Gioco::win_for_life, vecchie.tutte());
        if (vecchie.tutte().empty() && (arrivate_.intere & kTabellaWinForLife) == 0)
            return serve_la_storia(drawit2_, "la storia intera di Win for Life, con la sua riga dei titoli");
        const auto nuove = confronta_tutte(g, vecchie, estratte(arrivate_.righe.winforlife));
        if (!nuove) return std::unexpected(nuove.error());
        const Inserite i = inserisci(g, vecchie.tutte(), *nuove, p_.modo.differenze);
        cerca_lacune(g, i.tutte);
        if (cambia(g)) {
            righe_.winforlife.clear();
            versa(Gioco::win_for_life, i.tutte, righe_);
        }
        p_.giochi.push_back(std::move(g));
        return {};
    }

    [[nodiscard]] bool cambia(const PropostaGioco& g) const {
        return !g.nuove.empty() || (p_.modo.differenze == Differenze::sostituisci && !g.diverse.empty());
    }

    /// What becomes of the two files.
    void concludi() {
        Destino& drawit = p_.nuovo.drawit;
        Destino& drawit2 = p_.nuovo.drawit2;
        for (const PropostaGioco& g : p_.giochi)
            if (cambia(g)) (g.gioco == Gioco::win_for_life ? drawit2 : drawit) = Destino::Nuovo;
        if (p_.niente_di_nuovo()) return;
        // Where the old files are Jet, the native store takes all of them at once.
        if (jet(drawit_)) drawit = Destino::Nuovo;
        if (jet(drawit2_)) drawit2 = Destino::Nuovo;
        p_.da_jet = jet(drawit_) || jet(drawit2_);
        // Simulated draws never stand beside real ones.
        if (drawit == Destino::Resta && drawit_.simulato) drawit = Destino::Tolto;
        if (drawit2 == Destino::Resta && drawit2_.simulato) drawit2 = Destino::Tolto;
        p_.sostituisce_simulato = drawit_.simulato || drawit2_.simulato;
        if (drawit != Destino::Nuovo) {
            righe_.lotto.clear();
            righe_.nazionale.clear();
            righe_.superenalotto.clear();
        }
        if (drawit2 != Destino::Nuovo) righe_.winforlife.clear();
        p_.nuovo.righe = std::move(righe_);
    }

    static constexpr std::size_t kPoche = 50;  ///< more new draws than this are no newest lines

    Proposta& p_;
    const Arrivate& arrivate_;
    Fonte drawit_;
    Fonte drawit2_;
    bool lotto_vero_ = false;  ///< a whole history takes the place of the simulated Lotto
    RigheArchivio righe_;      ///< of the archive, then as they would be
};

// ---- telling it ----

/// Items of a long list that are named one by one.
constexpr std::size_t kNominate = 20;

std::string quante(std::size_t n, std::string_view una, std::string_view molte) {
    return fmt::format("{} {}", migliaia(static_cast<std::int64_t>(n)), n == 1 ? una : molte);
}

std::string numero_e_data(const EstrazioneDetta& e) {
    return fmt::format("{} del {}{}{}", e.concorso, testo_data(e.data), e.ora.empty() ? "" : " ", e.ora);
}

/// "4656 del 22/08/2026, 4657 del 25/08/2026", of many the first and the last.
std::string elenco(const std::vector<EstrazioneDetta>& tutte) {
    if (tutte.size() > kNominate)
        return fmt::format("dalla {} alla {}", numero_e_data(tutte.front()), numero_e_data(tutte.back()));
    std::string testo;
    for (const EstrazioneDetta& e : tutte) testo += (testo.empty() ? "" : ", ") + numero_e_data(e);
    return testo;
}

/// One line each for the first of them, one for how many there are besides.
template <class Cosa, class Una>
void uno_per_riga(const std::vector<Cosa>& cose, std::string_view gioco, std::vector<std::string>& righe,
                  Una una) {
    for (std::size_t i = 0; i < std::min(cose.size(), kNominate); ++i) righe.push_back(una(cose[i]));
    if (cose.size() > kNominate)
        righe.push_back(fmt::format("{}: e così altre {}", gioco, cose.size() - kNominate));
}

void racconta_gioco(const PropostaGioco& g, Differenze differenze, std::vector<std::string>& righe) {
    const std::string_view gioco = nome_gioco(g.gioco);
    const auto una = [&](std::string_view testo) { righe.push_back(fmt::format("{}: {}", gioco, testo)); };
    if (!g.nuove.empty())
        una(quante(g.nuove.size(), "estrazione nuova", "estrazioni nuove") + ": " + elenco(g.nuove));
    if (g.uguali > 0)
        una(quante(g.uguali, "estrazione uguale a quella dell'archivio",
                   "estrazioni uguali a quelle dell'archivio"));
    if (g.precedenti > 0)
        una(quante(g.precedenti, "estrazione precedente la prima dell'archivio resta fuori",
                   "estrazioni precedenti la prima dell'archivio restano fuori"));
    uno_per_riga(g.diverse, gioco, righe, [&](const EstrazioneDiversa& d) {
        return fmt::format("{}: {}{}{} nell'archivio è {}, arriva {}{}", gioco, numero_e_data(d.estrazione),
                           d.ruota.empty() ? "" : " ", d.ruota, d.in_archivio, d.arrivata,
                           differenze == Differenze::elenca ? ": resta quella dell'archivio" : "");
    });
    if (!g.fuori_posto.empty())
        una("mancano all'archivio e sono più vecchie della sua ultima: " + elenco(g.fuori_posto) +
            ". Metterle darebbe altri concorsi a tutte le seguenti: restano fuori");
    if (g.rinumera) una("le estrazioni seguenti dell'archivio prendono concorsi più alti");
    if (!g.in_attesa.empty()) {
        std::string date;
        for (const EstrazioneDetta& e : g.in_attesa) date += (date.empty() ? "" : ", ") + testo_data(e.data);
        una("aspettano il Lotto, dal quale prendono il concorso: " + date);
    }
    uno_per_riga(g.lacune, gioco, righe, [&](const Lacuna& l) {
        return fmt::format("{}: fra la {} e la {} {} circa {}", gioco, numero_e_data(l.dopo),
                           numero_e_data(l.prima), l.circa == 1 ? "manca" : "mancano",
                           quante(static_cast<std::size_t>(l.circa), "estrazione", "estrazioni"));
    });
}

}  // namespace

bool Proposta::niente_di_nuovo() const {
    return nuovo.drawit == Destino::Resta && nuovo.drawit2 == Destino::Resta;
}

bool Proposta::qualcosa_resta_fuori() const {
    return std::any_of(giochi.begin(), giochi.end(), [&](const PropostaGioco& g) {
        return !g.fuori_posto.empty() || !g.in_attesa.empty() ||
               (modo.differenze == Differenze::elenca && !g.diverse.empty());
    });
}

std::expected<Proposta, ErroreArchivio> proponi(const std::filesystem::path& percorso_archivio,
                                                const Arrivate& arrivate, const ModoAggiorna& modo,
                                                Avanzamento& avanzamento) {
    Proposta p{.modo = modo, .testi = arrivate.testi, .avvisi = arrivate.avvisi};
    p.visti = impronte(percorso_archivio);
    const RigheArchivio& r = arrivate.righe;
    const unsigned tabelle = (r.lotto.empty() && r.superenalotto.empty() ? 0U : kTabelleDrawit) |
                             (r.winforlife.empty() ? 0U : unsigned{kTabellaWinForLife});
    auto presente = apri_presente(percorso_archivio, tabelle, {.copia = true});
    // Draws that lack in the archive's midst are damage; they may be just what arrived.
    std::optional<ErroreArchivio> danno;
    if (!presente) {
        danno = presente.error();
        presente = apri_presente(percorso_archivio, tabelle, {.esamina = false});
    }
    if (!presente) return std::unexpected(presente.error());
    if (!avanzamento.procedi(1, 2)) return rifiuta({}, std::string{kAnnullata});
    if (auto esito = Proponente{p, *presente, arrivate}.tutti(); !esito)
        return std::unexpected(std::move(esito.error()));
    if (danno && p.niente_di_nuovo()) return std::unexpected(std::move(*danno));
    if (!avanzamento.procedi(2, 2)) return rifiuta({}, std::string{kAnnullata});
    return p;
}

std::expected<void, ErroreArchivio> applica(const std::filesystem::path& percorso_archivio,
                                            const Proposta& proposta, Avanzamento& avanzamento) {
    if (proposta.niente_di_nuovo()) return {};
    auto cambio = CambioArchivio::apri(percorso_archivio, avanzamento);
    if (!cambio) return std::unexpected(std::move(cambio.error()));
    if (impronte(percorso_archivio) != proposta.visti)
        return rifiuta(percorso_archivio,
                       "l'archivio è cambiato dopo il confronto: ripetere l'aggiornamento");
    if (auto esito = cambio->scrivi(proposta.nuovo, avanzamento); !esito) return esito;
    preferisci_nativi(percorso_archivio);
    return {};
}

std::vector<std::string> racconta(const Proposta& proposta) {
    std::vector<std::string> righe;
    righe.reserve(proposta.testi.size());
    for (const TestoArrivato& t : proposta.testi)
        righe.push_back(fmt::format(
            "{}: {}, {} {}", t.nome, nome_gioco(t.gioco), quante(t.estrazioni, "estrazione", "estrazioni"),
            t.prima == t.ultima ? "del " + testo_data(t.prima)
                                : "dal " + testo_data(t.prima) + " al " + testo_data(t.ultima)));
    if (proposta.sostituisce_simulato)
        righe.emplace_back("L'archivio dimostrativo lascia il posto alle estrazioni vere.");
    if (proposta.da_jet)
        righe.emplace_back(
            "L'archivio si legge da file .mdb, che restano come sono: tutte le loro estrazioni entrano in "
            "drawit.db e drawit2.db, e da ora si leggono questi.");
    for (const PropostaGioco& g : proposta.giochi) racconta_gioco(g, proposta.modo.differenze, righe);
    righe.insert(righe.end(), proposta.avvisi.begin(), proposta.avvisi.end());
    return righe;
}

}  // namespace sortimetra
