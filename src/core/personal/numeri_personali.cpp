#include "personal/numeri_personali.h"

#include "draws/ambito.h"
#include "draws/combinazioni.h"
#include "personal/parametri.h"
#include "results/risultato.h"
#include "statistics/misure.h"
#include "text/data.h"
#include "text/testi.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

constexpr std::string_view kNessunNumero = "Nessun numero è stato scelto.";
constexpr std::size_t kPostiMassimi = 20;
/// Wheels with their own counts: the ten, and NAZIONALE behind them.
constexpr std::size_t kRuoteContate = 11;

/// What differs by game.
struct FormaGioco {
    Gioco gioco;
    std::size_t posti;  ///< numbers of a draw
    bool ruota;         ///< a column for the wheel
    bool jolly;         ///< a column for the Jolly
    bool anno_breve;    ///< dates as "dd/mm/yy"
    std::string_view titolo_numero;
};
constexpr FormaGioco kLotto{Gioco::lotto, kEstratti, true, false, false, "Numeri Estratti"};
constexpr FormaGioco kSuperEnalotto{Gioco::superenalotto, 6, false, true, false, "Combinazione"};
constexpr FormaGioco kDieciELotto{Gioco::dieci_e_lotto, 20, false, false, true, "Combinazione"};
constexpr FormaGioco kWinForLife{Gioco::win_for_life, 10, false, false, true, "Combinazione"};

const std::vector<std::string> kTitoliNumeri{"Numero", "Frequenza", "Ritardo", "R.Storico"};
const std::vector<std::string> kTitoliRiepilogoLotto{
    "", "Freq.", "Rit.", "Rit. Stor.", "Ruota + Frequente", "Freq.", "Ruota + Ritardata", "Rit."};
const std::vector<std::string> kTitoliRiepilogo{"", "Frequenza", "Ritardo", "Ritardo Storico"};

const FormaGioco& forma_di(Gioco gioco) {
    return gioco == Gioco::superenalotto   ? kSuperEnalotto
           : gioco == Gioco::dieci_e_lotto ? kDieciELotto
           : gioco == Gioco::win_for_life  ? kWinForLife
                                           : kLotto;
}

/// The marked numbers, ascending.
struct Selezione {
    std::vector<int> numeri;
    std::array<bool, kNumeri + 1> dentro{};

    explicit Selezione(const std::vector<int>& scelti) {
        for (const int n : scelti)
            if (n >= 1 && n <= kNumeri) dentro[static_cast<std::size_t>(n)] = true;
        for (int n = 1; n <= kNumeri; ++n)
            if (dentro[static_cast<std::size_t>(n)]) numeri.push_back(n);
    }
};

/// A draw as the walk meets it, and what was found in it.
struct Uscita {
    Concorso concorso = 0;
    Data data{};
    std::uint8_t ruota = 0;  ///< index into `kNomiRuote`
    Numero jolly = 0;        ///< the Jolly; once looked at, only where it is one of the numbers
    std::uint8_t trovati = 0;
    std::uint32_t posti = 0;  ///< bits of the places that hold one of the numbers
    std::array<Numero, kPostiMassimi> numeri{};
};

/// The counts of one search while draws are walked.
class ContiPersonali {
  public:
    ContiPersonali(const FormaGioco& forma, const Selezione& selezione, Estrazioni t, int estratto = 0)
        : forma_{forma},
          selezione_{selezione},
          t_{t},
          posti_{estratto == 0 ? (std::uint32_t{1} << forma.posti) - 1 : std::uint32_t{1} << (estratto - 1)} {
        sorti_.fill({.ultimo = kInizioSerie});
    }

    /// Looks at the c-th draw; keeps it if it holds one of the numbers.
    void estrazione(int c, Uscita& u) {
        std::uint32_t posti = 0;
        for (std::size_t p = 0; p < forma_.posti; ++p) {
            if (u.numeri[p] == 0) continue;
            esce(numeri_[u.numeri[p]], c);
            posti |= std::uint32_t{selezione_.dentro[u.numeri[p]]} << p;
        }
        u.posti = posti & posti_;
        conta(c, u);
    }
    /// The same for a wheel's row: without a first number it adds nothing to the measures of the single
    /// numbers.
    void riga(int c, Uscita& u) {
        std::uint32_t posti = 0;
        for (std::size_t p = 0; p < kEstratti; ++p) {
            if (u.numeri[0] != 0 && u.numeri[p] != 0) esce(numeri_[u.numeri[p]], c);
            posti |= std::uint32_t{selezione_.dentro[u.numeri[p]]} << p;
        }
        u.posti = posti & posti_;
        conta(c, u);
        for (std::size_t k = 0; k < u.trovati; ++k) esce(ruote_[indice(u.ruota)][k], c);
    }

    [[nodiscard]] const std::vector<Uscita>& uscite() const { return uscite_; }
    [[nodiscard]] Estrazioni t() const { return t_; }
    [[nodiscard]] const FormaGioco& forma() const { return forma_; }
    [[nodiscard]] const Selezione& selezione() const { return selezione_; }
    [[nodiscard]] const Misura& numero(int n) const { return numeri_[static_cast<std::size_t>(n)]; }
    /// At least k + 1 of the numbers in one row.
    [[nodiscard]] const Misura& sorte(std::size_t k) const { return sorti_[k]; }
    [[nodiscard]] const Misura& sorte_su(std::size_t ruota, std::size_t k) const {
        return ruote_[indice(ruota)][k];
    }

  private:
    static std::size_t indice(std::size_t ruota) { return std::min(ruota, kRuoteContate - 1); }

    void conta(int c, Uscita& u) {
        u.trovati = static_cast<std::uint8_t>(std::popcount(u.posti));
        if (u.trovati == 0) return;
        if (!selezione_.dentro[u.jolly]) u.jolly = 0;
        for (std::size_t k = 0; k < u.trovati; ++k) esce(sorti_[k], c);
        uscite_.push_back(u);
    }

    const FormaGioco& forma_;
    const Selezione& selezione_;
    Estrazioni t_;
    std::uint32_t posti_;  ///< places in which a number counts as found
    std::array<Misura, kPostiMassimi> sorti_{};
    std::array<std::array<Misura, kEstratti>, kRuoteContate> ruote_{};
    MisureNumeri numeri_{};  ///< `ultimo` starts at 0
    std::vector<Uscita> uscite_;
};

// ---- tables ----

/// The texts of drawn numbers: "" for none, else two digits.
const std::vector<std::string>& testi_numeri() {
    static const std::vector<std::string> testi = [] {
        std::vector<std::string> t(1);
        for (int n = 1; n <= kNumeri; ++n) aggiungi_due_cifre(t.emplace_back(), n);
        return t;
    }();
    return testi;
}

std::string testo_data(Data data, bool anno_breve) {
    std::string testo = sortimetra::testo_data(data);
    if (anno_breve) testo.erase(testo.size() - 4, 2);
    return testo;
}

Colonna colonna_concorsi(std::span<const Uscita> uscite) {
    ColonnaInteri c{std::vector<std::int32_t>(uscite.size())};
    std::transform(uscite.begin(), uscite.end(), c.valori.begin(),
                   [](const Uscita& u) { return u.concorso; });
    return c;
}

Colonna colonna_date(std::span<const Uscita> uscite, bool anno_breve) {
    ColonnaVoci c;
    c.in_ordine = true;
    c.scelte.reserve(uscite.size());
    Data ultima{};
    for (const Uscita& u : uscite) {
        if (c.voci.empty() || u.data != ultima) c.voci.push_back(testo_data(u.data, anno_breve));
        ultima = u.data;
        c.scelte.push_back(static_cast<std::uint32_t>(c.voci.size() - 1));
    }
    return c;
}

std::string nome_ruota(std::size_t ruota) {
    return std::string{ruota == kNazionale ? kParolaNazionale : kNomiRuote[ruota].esteso};
}

Colonna colonna_ruote(std::span<const Uscita> uscite) {
    ColonnaVoci c;
    for (std::size_t w = 0; w < kNomiRuote.size(); ++w) c.voci.push_back(nome_ruota(w));
    c.scelte.reserve(uscite.size());
    for (const Uscita& u : uscite) c.scelte.push_back(u.ruota);
    return c;
}

template <class Numero_>
Colonna colonna_numeri(std::span<const Uscita> uscite, Numero_&& numero) {
    ColonnaVoci c{testi_numeri(), std::vector<std::uint32_t>(uscite.size()), true};
    std::transform(uscite.begin(), uscite.end(), c.scelte.begin(), numero);
    return c;
}

/// "2", and "2 + J" where the Jolly is one of the numbers.
Colonna colonna_trovati(std::span<const Uscita> uscite, bool jolly) {
    if (!jolly) {
        ColonnaInteri c{std::vector<std::int32_t>(uscite.size())};
        std::transform(uscite.begin(), uscite.end(), c.valori.begin(),
                       [](const Uscita& u) { return u.trovati; });
        return c;
    }
    ColonnaTesti c;
    for (const Uscita& u : uscite)
        c.valori.push_back(std::to_string(u.trovati) + (u.jolly == 0 ? "" : " + J"));
    return c;
}

std::vector<std::string> titoli_uscite(const FormaGioco& forma) {
    std::vector<std::string> titoli{"Concorso", "Data"};
    if (forma.ruota) titoli.emplace_back("Ruota");
    titoli.insert(titoli.end(), forma.posti, std::string{forma.titolo_numero});
    if (forma.jolly) titoli.emplace_back("J");
    titoli.emplace_back("Trovati");
    return titoli;
}

/// The draws with their hits. `con_numero` adds the empty column that the summary of a series ends with.
Tabella tabella_uscite(const FormaGioco& forma, std::string_view nome, std::span<const Uscita> uscite,
                       bool con_numero = false) {
    Tabella t;
    t.nome = nome;
    t.titoli = {titoli_uscite(forma)};
    t.colonne = {colonna_concorsi(uscite), colonna_date(uscite, forma.anno_breve)};
    if (forma.ruota) t.colonne.push_back(colonna_ruote(uscite));
    const std::size_t primo = t.colonne.size();
    for (std::size_t p = 0; p < forma.posti; ++p)
        t.colonne.push_back(colonna_numeri(uscite, [p](const Uscita& u) { return u.numeri[p]; }));
    if (forma.jolly) t.colonne.push_back(colonna_numeri(uscite, [](const Uscita& u) { return u.jolly; }));
    t.colonne.push_back(colonna_trovati(uscite, forma.jolly));
    if (con_numero) {
        t.titoli[0].emplace_back("Numero");
        t.colonne.emplace_back(ColonnaVoci{{""}, std::vector<std::uint32_t>(uscite.size()), true});
    }
    const std::size_t larga = t.colonne.size();
    t.sfondi.assign(uscite.size() * larga, kNessunColore);
    for (std::size_t r = 0; r < uscite.size(); ++r) {
        Colore* celle = t.sfondi.data() + r * larga + primo;
        for (std::uint32_t m = uscite[r].posti; m != 0; m &= m - 1) celle[std::countr_zero(m)] = kTrovato;
        if (forma.jolly && uscite[r].jolly != 0) celle[forma.posti] = kTrovato;
    }
    return t;
}

/// "numeri": the numbers with three columns that `misure(numero)` fills.
template <class Misure>
Tabella tabella_scelti(const ContiPersonali& conti, bool con_righe, Misure&& misure) {
    std::array<ColonnaInteri, 4> colonne;
    for (const int n : conti.selezione().numeri) {
        if (!con_righe) break;
        colonne[0].valori.push_back(n);
        for (std::size_t c = 1; const std::int32_t v : misure(n)) colonne[c++].valori.push_back(v);
    }
    Tabella t;
    t.nome = "numeri";
    t.titoli = {kTitoliNumeri};
    t.eventi = {.gioco = conti.forma().gioco, .presenti = 1};
    for (ColonnaInteri& c : colonne) t.colonne.emplace_back(std::move(c));
    return t;
}

using TreMisure = std::array<std::int32_t, 3>;

/// The measures of every number over the whole scope.
Tabella tabella_cerca_ritardi(const ContiPersonali& conti, bool con_righe) {
    return tabella_scelti(conti, con_righe, [&](int n) {
        const Misura& m = conti.numero(n);
        return TreMisure{m.frequenza, ritardo(m, conti.t()), m.storico};
    });
}

/// The three measures of each bet size, or empty cells.
void aggiungi_misure(Tabella& t, const ContiPersonali& conti, std::size_t sorti, bool piene) {
    std::array<ColonnaInteri, 3> colonne;
    for (std::size_t k = 0; k < sorti; ++k) {
        const Misura& m = conti.sorte(k);
        const TreMisure misure{m.frequenza, ritardo(m, conti.t()), m.storico};
        for (std::size_t c = 0; c < colonne.size(); ++c)
            colonne[c].valori.push_back(piene ? misure[c] : kCellaVuota);
    }
    for (ColonnaInteri& c : colonne) t.colonne.emplace_back(std::move(c));
}

/// The wheels of a scope, in their order: those that are compared.
std::vector<std::size_t> ruote_in_ambito(const SelezioneRuote& ruote) {
    if (ruote.e_nazionale()) return {kNazionale};
    std::vector<std::size_t> scelte;
    for (unsigned m = ruote.ruote_lette(); m != 0; m &= m - 1)
        scelte.push_back(static_cast<std::size_t>(std::countr_zero(m)));
    return scelte;
}

/// The wheel with the highest value; of equal ones the last.
template <class Valore>
std::pair<std::size_t, std::int32_t> ruota_massima(const std::vector<std::size_t>& ruote, Valore&& valore) {
    std::pair<std::size_t, std::int32_t> migliore{ruote.front(), valore(ruote.front())};
    for (const std::size_t w : ruote)
        if (const std::int32_t v = valore(w); v >= migliore.second) migliore = {w, v};
    return migliore;
}

Tabella riepilogo_lotto(const ContiPersonali& conti, const SelezioneRuote& ruote, bool piena) {
    Tabella t;
    t.nome = "riepilogo";
    t.titoli = {kTitoliRiepilogoLotto};
    t.colonne.emplace_back(ColonnaTesti{{"Ambata", "Ambo", "Terno", "Quaterna", "Cinquina"}});
    aggiungi_misure(t, conti, kEstratti, piena);
    const auto scelte = ruote_in_ambito(ruote);
    const auto aggiungi = [&](auto&& valore) {
        ColonnaTesti nomi;
        ColonnaInteri valori;
        for (std::size_t k = 0; k < kEstratti; ++k) {
            const auto [w, v] =
                ruota_massima(scelte, [&](std::size_t r) { return valore(conti.sorte_su(r, k)); });
            nomi.valori.push_back(piena ? nome_ruota(w) : "");
            valori.valori.push_back(piena ? v : kCellaVuota);
        }
        t.colonne.emplace_back(std::move(nomi));
        t.colonne.emplace_back(std::move(valori));
    };
    aggiungi([](const Misura& m) { return m.frequenza; });
    aggiungi([&](const Misura& m) { return ritardo(m, conti.t()); });
    return t;
}

/// The summary of a game without wheels: a row per count of numbers, up to all that a draw has.
Tabella riepilogo_combinazioni(const ContiPersonali& conti, bool piena) {
    Tabella t;
    t.nome = "riepilogo";
    t.titoli = {kTitoliRiepilogo};
    ColonnaTesti nomi;
    for (std::size_t k = 1; k <= conti.forma().posti; ++k)
        nomi.valori.push_back(std::to_string(k) + (k == 1 && conti.forma().jolly ? " Numero" : " Numeri"));
    t.colonne.emplace_back(std::move(nomi));
    aggiungi_misure(t, conti, conti.forma().posti, piena);
    return t;
}

// ---- up to the closing of the series ----

/// First of the last draws that together hold every number; 0 where one is in none of them.
std::size_t prima_di_chiusura(std::span<const Uscita> uscite, const Selezione& selezione) {
    std::array<bool, kNumeri + 1> incontrati{};
    std::size_t mancano = selezione.numeri.size();
    for (std::size_t r = uscite.size(); r-- > 0;) {
        for (std::uint32_t m = uscite[r].posti; m != 0; m &= m - 1) {
            bool& gia = incontrati[uscite[r].numeri[static_cast<std::size_t>(std::countr_zero(m))]];
            if (!gia) --mancano;
            gia = true;
        }
        if (mancano == 0) return r;
    }
    return 0;
}

/// "numeri" counted on the draws that were kept: how many hold each number, and how many come after the last
/// one that does. There is no longest delay.
Tabella tabella_chiusura(const ContiPersonali& conti, std::span<const Uscita> tenute) {
    std::array<std::int32_t, kNumeri + 1> frequenze{};
    std::array<std::int32_t, kNumeri + 1> ultime{};  // from 1
    for (std::size_t r = 0; r < tenute.size(); ++r)
        for (std::uint32_t m = tenute[r].posti; m != 0; m &= m - 1) {
            const Numero n = tenute[r].numeri[static_cast<std::size_t>(std::countr_zero(m))];
            ++frequenze[n];
            ultime[n] = static_cast<std::int32_t>(r) + 1;
        }
    return tabella_scelti(conti, true, [&](int n) {
        const auto i = static_cast<std::size_t>(n);
        return TreMisure{frequenze[i], static_cast<std::int32_t>(tenute.size()) - ultime[i], kCellaVuota};
    });
}

/// All draws with a hit up to the whole concorso of the first one that was kept.
std::span<const Uscita> fino_alla_chiusura(std::span<const Uscita> uscite, std::size_t prima) {
    if (uscite.empty()) return {};
    std::size_t fine = prima;
    while (fine < uscite.size() && uscite[fine].concorso == uscite[prima].concorso) ++fine;
    return uscite.first(fine);
}

/// The tables of a game without wheels, which have rows only where the scope has draws.
Risultato risultato_combinazioni(const ContiPersonali& conti, bool vuoto) {
    Risultato r;
    r.tabelle = {tabella_uscite(conti.forma(), "risultati", conti.uscite()),
                 tabella_cerca_ritardi(conti, !vuoto), riepilogo_combinazioni(conti, !vuoto)};
    r.prodotto = !vuoto;
    return r;
}

/// The combination's numbers from index 1 on.
void metti_combinazione(Uscita& u, const Combinazione& combinazione, std::size_t posti) {
    for (std::size_t p = 0; p < posti; ++p) u.numeri[p] = static_cast<Numero>(combinazione[p + 1]);
}

/// Says that no draw is left: in a box, or where the screen shows none as a remark.
void dichiara_vuoto(Risultato& r, bool in_un_riquadro) {
    if (in_un_riquadro)
        r.messaggi.push_back({Avviso::nessuna_estrazione, std::string{kNessunaEstrazione}});
    else
        r.note.emplace_back(kNessunaEstrazione);
}

}  // namespace

TitoliPersonali titoli_personali(Gioco gioco) {
    return {.risultati = titoli_uscite(forma_di(gioco)),
            .numeri = kTitoliNumeri,
            .riepilogo = gioco == Gioco::lotto ? kTitoliRiepilogoLotto : kTitoliRiepilogo};
}

Risultato ricerca_lotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                        Avanzamento& avanzamento) {
    const auto& parametri = domanda.di<ParametriPersonali>();
    const Selezione selezione{parametri.numeri};
    if (selezione.numeri.empty()) return non_avviata_in_silenzio(std::string{kNessunNumero});
    const VistaEstrazioni vista{archivio, domanda.ambito};
    const bool nazionale = domanda.ambito.ruote.e_nazionale();
    const auto& date = nazionale ? archivio.nazionale().data : archivio.lotto().data;
    ContiPersonali conti{kLotto, selezione, vista.t(), parametri.estratto};
    Uscita u;
    for (std::size_t i = 0; i < vista.concorsi(); ++i) {
        u.concorso = vista.concorso(i);
        u.data = date[vista.record(i)];
        for (unsigned m = vista.maschera(i); m != 0; m &= m - 1) {
            const auto w = static_cast<std::size_t>(std::countr_zero(m));
            u.ruota = static_cast<std::uint8_t>(nazionale ? kNazionale : w);
            std::copy_n(vista.numeri(i) + w * kEstratti, kEstratti, u.numeri.begin());
            conti.riga(static_cast<int>(i) + 1, u);
        }
        if (i % 1024 == 1023 && !avanzamento.procedi(i + 1, vista.concorsi())) break;
    }
    const bool piena = !vista.vuota();
    const std::span<const Uscita> uscite{conti.uscite()};
    const std::size_t prima = parametri.chiusura ? prima_di_chiusura(uscite, selezione) : 0;
    const auto tenute = uscite.subspan(prima);
    Risultato r;
    r.prodotto = piena;
    r.tabelle.push_back(tabella_uscite(kLotto, "risultati", tenute));
    r.tabelle.push_back(parametri.chiusura && piena ? tabella_chiusura(conti, tenute)
                                                    : tabella_cerca_ritardi(conti, piena));
    r.tabelle.push_back(riepilogo_lotto(conti, domanda.ambito.ruote, piena));
    if (parametri.chiusura)
        r.tabelle.push_back(tabella_uscite(kLotto, "serie", fino_alla_chiusura(uscite, prima), true));
    if (!piena) dichiara_vuoto(r, nazionale);
    return r;
}

Risultato ricerca_superenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                Avanzamento& avanzamento) {
    const Selezione selezione{domanda.di<ParametriPersonali>().numeri};
    if (selezione.numeri.empty()) return non_avviata_in_silenzio(std::string{kNessunNumero});
    const TabellaSuperEnalotto& tabella = archivio.superenalotto();
    const auto righe = vista_superenalotto(archivio, domanda.ambito);
    ContiPersonali conti{kSuperEnalotto, selezione, Estrazioni{static_cast<std::int32_t>(righe.size())}};
    percorri_righe(righe, tabella.concorso, avanzamento, [&](int c, std::size_t riga) {
        const Combinazione combinazione = calc_combinazione_superenalotto(tabella, riga);
        Uscita u{.concorso = tabella.concorso[riga],
                 .data = tabella.data[riga],
                 .jolly = static_cast<Numero>(combinazione[0])};
        metti_combinazione(u, combinazione, kSuperEnalotto.posti);
        conti.estrazione(c, u);
    });
    Risultato r = risultato_combinazioni(conti, righe.empty());
    if (righe.empty()) dichiara_vuoto(r, true);
    return r;
}

Risultato ricerca_10elotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                           Avanzamento& avanzamento) {
    const Selezione selezione{domanda.di<ParametriPersonali>().numeri};
    if (selezione.numeri.empty()) return non_avviata_in_silenzio(std::string{kNessunNumero});
    const VistaEstrazioni vista{archivio, domanda.ambito};
    const bool nazionale = domanda.ambito.ruote.e_nazionale();
    const auto& date = nazionale ? archivio.nazionale().data : archivio.lotto().data;
    ContiPersonali conti{kDieciELotto, selezione, vista.t()};
    for (std::size_t i = 0; i < vista.concorsi(); ++i) {
        // The ten wheels of the concorso make the combination, whichever of them are in scope.
        const auto record = cerca_concorso(archivio.lotto().concorso, vista.concorso(i));
        Uscita u{.concorso = vista.concorso(i), .data = date[vista.record(i)]};
        if (record)
            metti_combinazione(u, calc_combinazione_10elotto(archivio.lotto(), *record), kDieciELotto.posti);
        conti.estrazione(static_cast<int>(i) + 1, u);
        if (i % 1024 == 1023 && !avanzamento.procedi(i + 1, vista.concorsi())) break;
    }
    Risultato r = risultato_combinazioni(conti, vista.vuota());
    if (vista.vuota()) dichiara_vuoto(r, nazionale);
    return r;
}

Risultato ricerca_winforlife(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                             Avanzamento& avanzamento) {
    const Selezione selezione{domanda.di<ParametriPersonali>().numeri};
    if (selezione.numeri.empty()) return non_avviata_in_silenzio(std::string{kNessunNumero});
    const TabellaWinForLife& tabella = archivio.winforlife();
    const auto righe = vista_winforlife(archivio, domanda.ambito);
    ContiPersonali conti{kWinForLife, selezione, Estrazioni{static_cast<std::int32_t>(righe.size())}};
    percorri_righe(righe, tabella.concorso, avanzamento, [&](int c, std::size_t riga) {
        Uscita u{.concorso = tabella.concorso[riga], .data = tabella.data[riga]};
        metti_combinazione(u, calc_combinazione_WinForLife(tabella, tabella.concorso[riga]),
                           kWinForLife.posti);
        conti.estrazione(c, u);
    });
    Risultato r = risultato_combinazioni(conti, righe.empty());
    if (righe.empty()) dichiara_vuoto(r, false);
    return r;
}

}  // namespace sortimetra
