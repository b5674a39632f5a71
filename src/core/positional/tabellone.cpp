#include "positional/tabellone.h"

#include "draws/ambito.h"
#include "draws/combinazioni.h"
#include "positional/parametri.h"
#include "results/risultato.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <bit>
#include <bitset>
#include <span>
#include <string>
#include <utility>

namespace sortimetra {

namespace {

/// SuperEnalotto and what is derived from it begin after this concorso.
constexpr Concorso kPrimaDelSuperEnalotto = 401;
/// A board of these games leaves the rows of earlier concorsi empty.
constexpr Concorso kPrimoSulTabellone = 406;
/// Number of groups of five columns on the Lotto board: ten wheels and Nazionale.
constexpr std::size_t kGruppiLotto = 11;

constexpr Colore kTintaRuotaPari = 0xC0FFFF;
constexpr Colore kTintaRuotaDispari = 15914962;
constexpr Colore kSfondoTutte = 0xDDFFDF;
constexpr Colore kTestoTutte = 255;

/// Rows of all wheels that `calcola_rit_tutte` looks at, from the archive's end.
constexpr std::size_t kRigheTutte = 510;

struct Forma {
    std::size_t colonne;
    std::size_t ritardi;
    std::string_view primo_titolo;
    bool seconda_riga_titoli;
};
constexpr std::array<Forma, 5> kForme{{
    {kGruppiLotto * kEstratti, 301, "Ritardo", false},
    {6, 2001, "Ritardo", false},
    {6, 501, "Rit.", false},
    {20, 501, "Rit.", true},
    {10, 501, "Rit.", true},
}};
const Forma& forma(TipoTabellone tipo) {
    return kForme[static_cast<std::size_t>(tipo)];
}

using Visti = std::bitset<kNumeri + 1>;

/// Places the numbers of one draw that their group has not shown yet. Within one draw none hides another.
template <class Numeri>
void colloca(Tabellone& t, std::size_t ritardo, std::size_t prima_colonna, const Numeri& numeri,
             Visti& visti) {
    Visti nuovi;
    std::size_t colonna = prima_colonna;
    for (const auto n : numeri) {
        const auto i = static_cast<std::size_t>(n);
        if (i != 0 && !visti[i]) {
            t.celle[ritardo * t.colonne + colonna] = static_cast<Numero>(i);
            nuovi.set(i);
        }
        ++colonna;
    }
    visti |= nuovi;
}

Tabellone vuoto(TipoTabellone tipo) {
    const Forma& f = forma(tipo);
    return {f.colonne, f.ritardi, std::vector<Numero>(f.colonne * f.ritardi)};
}

Tabellone tabellone_ruote(const ArchivioEstrazioni& archivio, Concorso concorso) {
    Tabellone t = vuoto(TipoTabellone::lotto);
    const TabellaLotto& lotto = archivio.lotto();
    if (const auto inizio = cerca_concorso(lotto.concorso, concorso)) {
        std::array<Visti, kRuote> visti;
        for (std::size_t d = 0; d < t.ritardi && d <= *inizio; ++d)
            for (std::size_t w = 0; w < kRuote; ++w)
                colloca(t, d, w * kEstratti,
                        std::span{lotto.numeri[*inizio - d]}.subspan(w * kEstratti, kEstratti), visti[w]);
    }
    const TabellaNazionale& nazionale = archivio.nazionale();
    if (const auto inizio = cerca_concorso(nazionale.concorso, concorso)) {
        Visti visti;
        for (std::size_t d = 0; d < t.ritardi && d <= *inizio; ++d)
            colloca(t, d, kRuote * kEstratti, nazionale.numeri[*inizio - d], visti);
    }
    return t;
}

/// Calls `riga(d, i)` for each delay d of a board with one group and the row i of its table that stands
/// there. `righe` are the indexes of its draws in ascending concorso.
template <class Riga>
void percorri_indietro(TipoTabellone tipo, Concorso concorso, std::span<const Concorso> colonna,
                       const std::vector<std::size_t>& righe, Riga&& riga) {
    const auto prima = [&](std::size_t i, Concorso c) { return colonna[i] < c; };
    const auto it = std::lower_bound(righe.begin(), righe.end(), concorso, prima);
    const bool trovato = it != righe.end() && colonna[*it] == concorso;
    // A draw that is not there leaves its own row empty, and the walk starts behind the last one.
    auto passo = trovato ? it - righe.begin() : static_cast<std::ptrdiff_t>(righe.size());
    for (std::size_t d = 0; d < forma(tipo).ritardi && passo >= 0; ++d, --passo) {
        if (passo == static_cast<std::ptrdiff_t>(righe.size())) continue;
        const std::size_t i = righe[static_cast<std::size_t>(passo)];
        if (colonna[i] >= kPrimoSulTabellone) riga(d, i);
    }
}

/// A board with one group; `combinazione(i)` gives the numbers of row i.
template <class Combina>
Tabellone tabellone_unico(TipoTabellone tipo, Concorso concorso, std::span<const Concorso> colonna,
                          const std::vector<std::size_t>& righe, Combina&& combinazione) {
    Tabellone t = vuoto(tipo);
    Visti visti;
    percorri_indietro(tipo, concorso, colonna, righe, [&](std::size_t d, std::size_t i) {
        const Combinazione c = combinazione(i);
        colloca(t, d, 0, std::span{c}.subspan(1, t.colonne), visti);
    });
    return t;
}

/// Indexes of the rows above concorso 401 that `passa` lets through.
template <class Passa>
std::vector<std::size_t> righe_oltre_401(std::span<const Concorso> colonna, Passa&& passa) {
    std::vector<std::size_t> righe;
    const auto primo = std::upper_bound(colonna.begin(), colonna.end(), kPrimaDelSuperEnalotto);
    for (auto i = static_cast<std::size_t>(primo - colonna.begin()); i < colonna.size(); ++i)
        if (passa(i)) righe.push_back(i);
    return righe;
}

bool ha_bari(const TabellaLotto& t, std::size_t i) {
    return (t.presenti[i] & 1U) != 0;
}

/// Indexes of the rows that a board with one group is built from.
std::vector<std::size_t> righe_unico(const ArchivioEstrazioni& archivio, TipoTabellone tipo) {
    const auto ogni = [](std::size_t) { return true; };
    const TabellaLotto& lotto = archivio.lotto();
    if (tipo == TipoTabellone::sestina) return righe_oltre_401(archivio.superenalotto().concorso, ogni);
    if (tipo == TipoTabellone::win_for_life) return righe_oltre_401(archivio.winforlife().concorso, ogni);
    if (tipo == TipoTabellone::dieci_e_lotto) return righe_oltre_401(lotto.concorso, ogni);
    return righe_oltre_401(lotto.concorso, [&](std::size_t i) { return ha_bari(lotto, i); });
}

std::vector<std::vector<std::string>> titoli_tabellone(TipoTabellone tipo) {
    const Forma& f = forma(tipo);
    std::vector<std::vector<std::string>> titoli(f.seconda_riga_titoli ? 2 : 1,
                                                 std::vector<std::string>(f.colonne + 1));
    titoli[0][0] = f.primo_titolo;
    switch (tipo) {
        case TipoTabellone::lotto:
            for (std::size_t w = 0; w < kRuote; ++w) titoli[0][1 + w * kEstratti] = kNomiRuote[w].esteso;
            titoli[0][1 + kRuote * kEstratti] = kNomiRuote[kNazionale].esteso;
            break;
        case TipoTabellone::primi_estratti: {
            std::size_t colonna = 1;
            for (const std::size_t w : {0U, 2U, 4U, 5U, 6U, 7U}) titoli[0][colonna++] = kNomiRuote[w].esteso;
            break;
        }
        case TipoTabellone::sestina:
            titoli[0][1] = "Sestina SuperEnalotto";
            break;
        case TipoTabellone::dieci_e_lotto:
            titoli[0][1] = "Combinazione 10 e lotto";
            break;
        case TipoTabellone::win_for_life:
            titoli[0][1] = "Combinazione win for life";
            break;
    }
    return titoli;
}

Tabella tabella_di(const Tabellone& t, TipoTabellone tipo) {
    Tabella tabella;
    tabella.titoli = titoli_tabellone(tipo);
    std::vector<ColonnaInteri> colonne(t.colonne + 1);
    std::size_t righe = 0;
    for (std::size_t d = t.ritardi; d-- > 0;) {
        if (t.riga_vuota(d)) continue;
        ++righe;
        colonne[0].valori.push_back(static_cast<std::int32_t>(d));
        for (std::size_t c = 0; c < t.colonne; ++c) {
            const Numero n = t.cella(d, c);
            colonne[c + 1].valori.push_back(n == 0 ? kCellaVuota : std::int32_t{n});
        }
    }
    for (ColonnaInteri& c : colonne) tabella.colonne.emplace_back(std::move(c));
    if (tipo == TipoTabellone::lotto) {
        std::vector<Colore> riga(t.colonne + 1, kNessunColore);
        for (std::size_t c = 0; c < t.colonne; ++c)
            riga[c + 1] = c / kEstratti % 2 == 0 ? kTintaRuotaPari : kTintaRuotaDispari;
        for (std::size_t r = 0; r < righe; ++r)
            tabella.sfondi.insert(tabella.sfondi.end(), riga.begin(), riga.end());
    }
    return tabella;
}

Risultato cerca_tabellone(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                          Avanzamento& avanzamento, TipoTabellone tipo) {
    Risultato r;
    const Concorso concorso =
        concorso_scelto(archivio, tipo, domanda.di<ParametriTabellone>().concorso, &r.note);
    if (concorso < 1) return senza_estrazioni();
    r.titolo = titolo_tabellone(tipo, data_tabellone(archivio, tipo, concorso));
    r.tabelle.push_back(tabella_di(iniz_tabellone(archivio, tipo, concorso), tipo));
    avanzamento.procedi(1, 1);
    return r;
}

/// A place of a list of ten: a number and its delay, 0 and 0 while nothing stands there.
struct PostoRitardo {
    int numero = 0;
    int ritardo = 0;
};
using DieciPosti = std::array<PostoRitardo, 10>;

DieciPosti dieci_della_ruota(const Tabellone& tabellone, std::size_t gruppo, int ritardo_assenti) {
    DieciPosti posti{};
    std::size_t messi = 0;
    Visti visti;
    for (std::size_t d = tabellone.ritardi; d-- > 0;)
        for (std::size_t p = 0; p < kEstratti; ++p) {
            const Numero n = tabellone.cella(d, gruppo * kEstratti + p);
            if (n == 0) continue;
            visti.set(n);
            if (messi < posti.size()) posti[messi++] = {n, static_cast<int>(d)};
        }
    // Each absent number goes to the head, before those that went there earlier.
    for (std::size_t n = 1; n <= kNumeri; ++n) {
        if (visti[n]) continue;
        std::move_backward(posti.begin(), posti.end() - 1, posti.end());
        posti[0] = {static_cast<int>(n), ritardo_assenti};
    }
    return posti;
}

/// Delays across all ten wheels at the archive's end, longest first, equal ones in number order. A number
/// that is not in the last 510 rows has 0.
DieciPosti calcola_rit_tutte(const TabellaLotto& lotto) {
    std::array<PostoRitardo, kNumeri> numeri;
    for (std::size_t n = 0; n < kNumeri; ++n) numeri[n] = {static_cast<int>(n + 1), 0};
    Visti visti;
    std::size_t righe = 0;
    for (std::size_t i = lotto.concorso.size(); i-- > 0 && righe < kRigheTutte;)
        for (std::size_t w = kRuote; w-- > 0 && righe < kRigheTutte;) {
            if ((lotto.presenti[i] >> w & 1U) == 0) continue;
            ++righe;
            for (std::size_t p = 0; p < kEstratti; ++p) {
                const Numero n = lotto.numeri[i][w * kEstratti + p];
                if (n == 0 || visti[n]) continue;
                visti.set(n);
                numeri[n - 1U].ritardo = lotto.concorso.back() - lotto.concorso[i];
            }
        }
    std::stable_sort(numeri.begin(), numeri.end(),
                     [](const PostoRitardo& a, const PostoRitardo& b) { return a.ritardo > b.ritardo; });
    DieciPosti posti;
    std::copy_n(numeri.begin(), posti.size(), posti.begin());
    return posti;
}

}  // namespace

bool Tabellone::riga_vuota(std::size_t ritardo) const {
    const auto riga = std::span{celle}.subspan(ritardo * colonne, colonne);
    return std::all_of(riga.begin(), riga.end(), [](Numero n) { return n == 0; });
}

LimitiConcorso limiti_concorso(const ArchivioEstrazioni& archivio, TipoTabellone tipo) {
    const TabellaLotto& lotto = archivio.lotto();
    LimitiConcorso limiti;
    switch (tipo) {
        case TipoTabellone::lotto:
            for (std::size_t i = 0; i < lotto.concorso.size(); ++i)
                limiti.massimo += ha_bari(lotto, i) ? 1 : 0;
            break;
        case TipoTabellone::primi_estratti:
            limiti.massimo = archivio.ultimo_concorso();
            break;
        case TipoTabellone::sestina:
            limiti.massimo = static_cast<Concorso>(archivio.superenalotto().concorso.size());
            break;
        case TipoTabellone::dieci_e_lotto: {
            std::size_t righe = 0;
            for (std::size_t i = 0; i < lotto.concorso.size(); ++i)
                if (lotto.concorso[i] > kPrimaDelSuperEnalotto)
                    righe += static_cast<std::size_t>(std::popcount(lotto.presenti[i]));
            limiti.massimo = quoziente_pari(righe, kRuote);
            break;
        }
        case TipoTabellone::win_for_life:
            limiti.massimo = archivio.ultimo_concorso_winforlife();
            break;
    }
    return limiti;
}

Concorso concorso_scelto(const ArchivioEstrazioni& archivio, TipoTabellone tipo,
                         const std::optional<Concorso>& scritto, std::vector<std::string>* note) {
    if (!scritto)
        return tipo == TipoTabellone::win_for_life ? archivio.ultimo_concorso_winforlife()
                                                   : archivio.ultimo_concorso();
    const Concorso riportato = limiti_concorso(archivio, tipo).riporta(*scritto);
    if (riportato != *scritto && note != nullptr)
        note->push_back(fmt::format("concorso {} riportato a {}", *scritto, riportato));
    return riportato;
}

Tabellone iniz_tabellone(const ArchivioEstrazioni& archivio, TipoTabellone tipo, Concorso concorso) {
    if (tipo == TipoTabellone::lotto) return tabellone_ruote(archivio, concorso);
    const TabellaLotto& lotto = archivio.lotto();
    const TabellaSuperEnalotto& superenalotto = archivio.superenalotto();
    const TabellaWinForLife& wfl = archivio.winforlife();
    const auto righe = righe_unico(archivio, tipo);
    switch (tipo) {
        case TipoTabellone::sestina:
            return tabellone_unico(tipo, concorso, superenalotto.concorso, righe, [&](std::size_t i) {
                return calc_combinazione_superenalotto(superenalotto, i);
            });
        case TipoTabellone::dieci_e_lotto:
            return tabellone_unico(tipo, concorso, lotto.concorso, righe,
                                   [&](std::size_t i) { return calc_combinazione_10elotto(lotto, i); });
        case TipoTabellone::win_for_life:
            return tabellone_unico(tipo, concorso, wfl.concorso, righe, [&](std::size_t i) {
                return calc_combinazione_WinForLife(wfl, wfl.concorso[i]);
            });
        case TipoTabellone::primi_estratti:
        case TipoTabellone::lotto:
            break;
    }
    return tabellone_unico(tipo, concorso, lotto.concorso, righe, [&](std::size_t i) {
        // Five numbers for six columns: the missing one sorts to the front.
        Combinazione c{};
        std::copy_n(lotto.numeri[i].begin(), kEstratti, c.begin() + 2);
        std::sort(c.begin() + 1, c.begin() + 7);
        return c;
    });
}

std::vector<std::optional<EstrazioneTabellone>> estrazioni_tabellone(const ArchivioEstrazioni& archivio,
                                                                     TipoTabellone tipo, Concorso concorso,
                                                                     bool nazionale) {
    std::vector<std::optional<EstrazioneTabellone>> estrazioni;
    const auto metti = [&](const auto& tabella, std::size_t d, std::size_t i) {
        estrazioni.resize(d + 1);
        estrazioni[d] = {tabella.concorso[i], tabella.data[i]};
    };
    const auto indietro = [&](const auto& tabella) {
        if (const auto inizio = cerca_concorso(tabella.concorso, concorso))
            for (std::size_t d = 0; d < forma(tipo).ritardi && d <= *inizio; ++d)
                metti(tabella, d, *inizio - d);
    };
    const auto unico = [&](const auto& tabella) {
        percorri_indietro(tipo, concorso, tabella.concorso, righe_unico(archivio, tipo),
                          [&](std::size_t d, std::size_t i) { metti(tabella, d, i); });
    };
    switch (tipo) {
        case TipoTabellone::lotto:
            nazionale ? indietro(archivio.nazionale()) : indietro(archivio.lotto());
            break;
        case TipoTabellone::sestina:
            unico(archivio.superenalotto());
            break;
        case TipoTabellone::win_for_life:
            unico(archivio.winforlife());
            break;
        case TipoTabellone::primi_estratti:
        case TipoTabellone::dieci_e_lotto:
            unico(archivio.lotto());
            break;
    }
    return estrazioni;
}

std::string titolo_tabellone(TipoTabellone tipo, std::string_view data) {
    switch (tipo) {
        case TipoTabellone::primi_estratti:
        case TipoTabellone::sestina:
            return fmt::format("Tabellone Posizionale ({}) - SuperEnalotto", data);
        case TipoTabellone::dieci_e_lotto:
            return fmt::format("Tabellone Posizionale ({}) - 10 e lotto", data);
        case TipoTabellone::win_for_life:
            return fmt::format("Tabellone Posizionale ({}) - Win for Life", data);
        case TipoTabellone::lotto:
            break;
    }
    return fmt::format("La Posizione dei 90 numeri dopo l'estrazione del {} - Lotto", data);
}

std::string titolo_dieci(std::string_view data) {
    return fmt::format("I 10 Numeri più in ritardo per ogni Ruota ({})", data);
}

std::string data_tabellone(const ArchivioEstrazioni& archivio, TipoTabellone tipo, Concorso concorso) {
    const auto data = tipo == TipoTabellone::win_for_life ? archivio.data_winforlife(concorso)
                                                          : archivio.data_bari(concorso);
    return data ? testo_data(*data) : std::string{};
}

Risultato tabellone_lotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                          Avanzamento& avanzamento) {
    return cerca_tabellone(archivio, domanda, avanzamento, TipoTabellone::lotto);
}
Risultato tabellone_primi_estratti(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                   Avanzamento& avanzamento) {
    return cerca_tabellone(archivio, domanda, avanzamento, TipoTabellone::primi_estratti);
}
Risultato tabellone_sestina(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                            Avanzamento& avanzamento) {
    return cerca_tabellone(archivio, domanda, avanzamento, TipoTabellone::sestina);
}
Risultato tabellone_10elotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                             Avanzamento& avanzamento) {
    return cerca_tabellone(archivio, domanda, avanzamento, TipoTabellone::dieci_e_lotto);
}
Risultato tabellone_winforlife(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                               Avanzamento& avanzamento) {
    return cerca_tabellone(archivio, domanda, avanzamento, TipoTabellone::win_for_life);
}

Risultato dieci_piu_in_ritardo(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                               Avanzamento& avanzamento) {
    Risultato r;
    const Concorso concorso =
        concorso_scelto(archivio, TipoTabellone::lotto, domanda.di<ParametriTabellone>().concorso, &r.note);
    if (concorso < 1) return senza_estrazioni();
    r.titolo = titolo_dieci(data_tabellone(archivio, TipoTabellone::lotto, concorso));
    const Tabellone tabellone = iniz_tabellone(archivio, TipoTabellone::lotto, concorso);
    const auto& nazionale = archivio.nazionale().concorso;
    const auto fino_a =
        static_cast<int>(std::upper_bound(nazionale.begin(), nazionale.end(), concorso) - nazionale.begin());

    ColonnaTesti ruote;
    ColonnaInteri posti;
    ColonnaInteri numeri;
    ColonnaInteri ritardi;
    const auto scrivi = [&](std::string_view ruota, const DieciPosti* dieci) {
        for (std::size_t p = 0; p < std::tuple_size_v<DieciPosti>; ++p) {
            ruote.valori.emplace_back(ruota);
            posti.valori.push_back(static_cast<std::int32_t>(p + 1));
            const bool scritto = dieci != nullptr && (*dieci)[p].numero != 0;
            numeri.valori.push_back(scritto ? (*dieci)[p].numero : kCellaVuota);
            ritardi.valori.push_back(scritto ? (*dieci)[p].ritardo : kCellaVuota);
        }
    };
    for (std::size_t w = 0; w < kRuote; ++w) {
        const DieciPosti dieci = dieci_della_ruota(tabellone, w, fino_a);
        scrivi(kNomiRuote[w].esteso, &dieci);
    }
    const DieciPosti della_nazionale = dieci_della_ruota(tabellone, kRuote, fino_a);
    scrivi(kNomiRuote[kNazionale].esteso, fino_a == 0 ? nullptr : &della_nazionale);
    const DieciPosti di_tutte = calcola_rit_tutte(archivio.lotto());
    scrivi(kNomiRuote[kTutte].esteso, &di_tutte);
    avanzamento.procedi(1, 1);

    Tabella t;
    t.titoli = {{"Ruota", "Posto", "Num.", "Rit."}};
    const std::size_t righe = ruote.valori.size();
    t.colonne.emplace_back(std::move(ruote));
    t.colonne.emplace_back(std::move(posti));
    t.colonne.emplace_back(std::move(numeri));
    t.colonne.emplace_back(std::move(ritardi));
    t.sfondi.assign(righe * 4, kNessunColore);
    t.primi_piani.assign(righe * 4, kNessunColore);
    for (std::size_t riga = righe - std::tuple_size_v<DieciPosti>; riga < righe; ++riga)
        for (const std::size_t colonna : {2U, 3U}) {
            t.sfondi[riga * 4 + colonna] = kSfondoTutte;
            t.primi_piani[riga * 4 + colonna] = kTestoTutte;
        }
    r.tabelle.push_back(std::move(t));
    return r;
}

Tabella griglia_dieci(const Tabella& dieci) {
    constexpr std::size_t kPosti = std::tuple_size_v<DieciPosti>;
    // Groups of the answer in the order of the two bands: Bari to Milano and Tutte, Napoli to Nazionale.
    constexpr std::array<std::size_t, 2 * kGruppiBanda> kOrdine{0, 1, 2, 3, 4, 11, 5, 6, 7, 8, 9, 10};
    constexpr std::size_t kRighe = 2 * kRigheBanda + 1;
    std::vector<ColonnaTesti> colonne(kColonneDieci);
    for (ColonnaTesti& c : colonne) c.valori.resize(kRighe);
    Tabella t;
    t.sfondi.assign(kRighe * kColonneDieci, kNessunColore);
    t.primi_piani.assign(kRighe * kColonneDieci, kNessunColore);
    for (std::size_t g = 0; g < kOrdine.size(); ++g) {
        const std::size_t cima = g / kGruppiBanda * (kRigheBanda + 1);
        const std::size_t colonna = 3 * (g % kGruppiBanda) + 1;
        const std::size_t prima = kOrdine[g] * kPosti;
        if (prima + kPosti > dieci.righe()) continue;
        colonne[colonna].valori[cima] = dieci.testo(prima, 0);
        for (std::size_t c = 0; c < 2; ++c) {
            colonne[colonna + c].valori[cima + 1] = dieci.titoli.back()[2 + c];
            for (std::size_t p = 0; p < kPosti; ++p) {
                const std::size_t riga = cima + 2 + p;
                colonne[colonna + c].valori[riga] = dieci.testo(prima + p, 2 + c);
                t.sfondi[riga * kColonneDieci + colonna + c] = dieci.sfondo(prima + p, 2 + c);
                t.primi_piani[riga * kColonneDieci + colonna + c] = dieci.primo_piano(prima + p, 2 + c);
            }
        }
        for (std::size_t p = 0; p < kPosti; ++p)
            colonne[0].valori[cima + 2 + p] = std::to_string(p + 1) + "°";
    }
    for (ColonnaTesti& c : colonne) t.colonne.emplace_back(std::move(c));
    return t;
}

}  // namespace sortimetra
