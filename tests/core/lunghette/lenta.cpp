#include "lenta.h"

#include "draws/combinazioni.h"
#include "draws/cursore.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

namespace sortimetra::prove {

namespace {

std::string due(int n) {
    return (n < 10 ? "0" : "") + std::to_string(n);
}

/// Nearest whole number, ties to the even one.
int arrotonda(std::size_t righe, int ruote) {
    return ruote == 0 ? 0 : static_cast<int>(std::nearbyint(static_cast<double>(righe) / ruote));
}

struct Celle {
    int frequenza = 0;
    int ritardo = 0;
};
using Chiave = std::vector<int>;

/// The cells of a table of counts: `ritardo` starts at T.
class Tavola {
  public:
    explicit Tavola(int t) : t_{t} {}
    void esce(Chiave chiave, int c) {
        std::sort(chiave.begin(), chiave.end());
        Celle& celle = celle_.try_emplace(chiave, Celle{0, t_}).first->second;
        ++celle.frequenza;
        celle.ritardo = t_ - c;
    }
    [[nodiscard]] int valore(const Chiave& chiave, char tipo) const {
        const auto it = celle_.find(chiave);
        if (it == celle_.end()) return tipo == 'r' ? t_ : 0;
        return tipo == 'r' ? it->second.ritardo : it->second.frequenza;
    }

  private:
    int t_;
    std::map<Chiave, Celle> celle_;
};

int conta_nel_testo(const std::string& testo, const std::vector<int>& membri) {
    int n = 0;
    for (const int m : membri) n += testo.find(due(m)) != std::string::npos ? 1 : 0;
    return n;
}

LentaLunghetta::Riga riga_di(Concorso concorso, const Combinazione& combinazione, int quanti) {
    return {concorso, {combinazione.begin() + 1, combinazione.begin() + 1 + quanti}};
}

}  // namespace

LentaLunghetta LentaLunghetta::lotto(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito) {
    LentaLunghetta l;
    for (Cursore c = estrazioni_ruote(archivio, ambito); !c.fine(); c.successivo()) {
        const auto numeri = c.corrente()->numeri();
        l.righe.push_back({c.corrente()->concorso(), {numeri.begin(), numeri.end()}});
    }
    l.w = ambito.ruote.n_ruote();
    l.t = arrotonda(l.righe.size(), l.w);
    return l;
}

LentaLunghetta LentaLunghetta::punti(Gioco gioco, const ArchivioEstrazioni& archivio, AmbitoRicerca ambito) {
    LentaLunghetta l;
    l.a_punti = true;
    l.wfl = gioco == Gioco::win_for_life;
    if (l.wfl) {
        const auto& tabella = archivio.winforlife();
        const auto leggi = [&](std::uint32_t i) {
            return riga_di(tabella.concorso[i], calc_combinazione_WinForLife(tabella, tabella.concorso[i]),
                           10);
        };
        for (const auto i : vista_winforlife(archivio, ambito)) l.righe.push_back(leggi(i));
        for (std::uint32_t i = 0; i < tabella.concorso.size(); ++i) l.tutte.push_back(leggi(i));
        l.senza_calendario = l.righe;
        l.massimo = 20;
        l.t = static_cast<int>(l.righe.size());
        l.tratto = ambito.tratto.riportato(archivio.ultimo_concorso_winforlife());
        return l;
    }
    ambito.ruote = SelezioneRuote::tutte();
    const auto leggi = [&](AmbitoRicerca a, std::vector<Riga>& dove) {
        std::size_t record = 0;
        for (Cursore c = estrazioni_ruote(archivio, a); !c.fine(); c.successivo(), ++record) {
            const Concorso n = c.corrente()->concorso();
            if (!dove.empty() && dove.back().concorso == n) continue;
            const auto r = cerca_concorso(archivio.lotto().concorso, n).value();
            dove.push_back(riga_di(n, calc_combinazione_10elotto(archivio.lotto(), r), 20));
        }
        return record;
    };
    l.t = arrotonda(leggi(ambito, l.righe), kRuote);
    ambito.intervallo = 0;
    leggi(ambito, l.senza_calendario);
    AmbitoRicerca tutto;
    tutto.ruote = SelezioneRuote::tutte();
    leggi(tutto, l.tutte);
    l.tratto = ambito.tratto.riportato(archivio.ultimo_concorso());
    return l;
}

void LentaLunghetta::svuota() {
    lblnum.fill("");
    lbloption.fill("");
    lblRit_freq.clear();
    lunga = 0;
}

int LentaLunghetta::numero(std::size_t casella) const {
    return lblnum[casella].empty() ? 0 : std::stoi(lblnum[casella]);
}

/// Two digits each, joined; in the games by points an empty place is no number, in the Lotto it reads "00".
std::string LentaLunghetta::testo(const Riga& riga) const {
    std::string s;
    for (const int n : riga.numeri)
        if (n != 0 || !a_punti) s += due(n) + "-";
    return s;
}

/// `fai(c, row)` for each row with a draw.
template <class Fai>
void LentaLunghetta::per_ogni_riga(Fai&& fai) const {
    int c = 0;
    Concorso prima = -1;
    for (const Riga& r : righe) {
        if (r.concorso != prima) ++c;
        prima = r.concorso;
        if (r.numeri[0] == 0 && !a_punti) continue;
        fai(c, r);
    }
}

void LentaLunghetta::Ric_ambata(char tipo) {
    Tavola tavola{t};
    per_ogni_riga([&](int c, const Riga& r) {
        for (const int n : r.numeri) tavola.esce({n}, c);
    });
    int migliore = 1;
    for (int n = 2; n <= massimo; ++n)
        if (tavola.valore({n}, tipo) > tavola.valore({migliore}, tipo)) migliore = n;
    lbloption[0] = lblnum[0] = std::to_string(migliore);
    lunga = 1;
    lblRit_freq = std::to_string(tavola.valore({migliore}, tipo));
}

void LentaLunghetta::ric_ambata_capogioco(char tipo) {
    const int capo = numero(0);
    Tavola tavola{t};
    per_ogni_riga([&](int c, const Riga& r) {
        for (std::size_t p = 0; p < r.numeri.size(); ++p)
            for (std::size_t q = p + 1; q < r.numeri.size(); ++q)
                if (r.numeri[p] == capo || r.numeri[q] == capo) tavola.esce({r.numeri[p], r.numeri[q]}, c);
    });
    int migliore = 0;
    for (int i = 1; i < massimo; ++i)
        for (int j = i + 1; j <= massimo; ++j) {
            if ((i != capo && j != capo) || tavola.valore({i, j}, tipo) <= migliore) continue;
            migliore = tavola.valore({i, j}, tipo);
            lblnum[0] = std::to_string(i);
            lblnum[1] = std::to_string(j);
            lblRit_freq = std::to_string(migliore);
        }
    lunga = 2;
}

void LentaLunghetta::ric_ambi_lotto(char tipo) {
    Tavola tavola{t};
    per_ogni_riga([&](int c, const Riga& r) {
        for (std::size_t p = 0; p < r.numeri.size(); ++p)
            for (std::size_t q = p + 1; q < r.numeri.size(); ++q) tavola.esce({r.numeri[p], r.numeri[q]}, c);
    });
    int migliore = 0;
    for (int i = 1; i < massimo; ++i)
        for (int j = i + 1; j <= massimo; ++j) {
            if (tavola.valore({i, j}, tipo) <= migliore) continue;
            migliore = tavola.valore({i, j}, tipo);
            lblnum[0] = std::to_string(i);
            lblnum[1] = std::to_string(j);
            lbloption[1] = lblnum[0] + " - " + lblnum[1];
            lblRit_freq = std::to_string(migliore);
        }
}

void LentaLunghetta::ric_ambo_capogioco(char tipo, int k) {
    const int a = numero(0);
    const int b = numero(1);
    Tavola tavola{t};
    per_ogni_riga([&](int c, const Riga& r) {
        const std::string s = testo(r);
        if (conta_nel_testo(s, {a, b}) == 0) return;
        for (int n = 1; n <= massimo; ++n)
            if (n != a && n != b && conta_nel_testo(s, {a, b, n}) >= k) tavola.esce({a, b, n}, c);
    });
    int migliore = 0;
    for (int i = 1; i <= massimo - 2; ++i)
        for (int j = i + 1; j <= massimo - 1; ++j)
            for (int l = j + 1; l <= massimo; ++l) {
                const auto tiene = [&](int n) { return i == n || j == n || l == n; };
                if (!tiene(a) || !tiene(b)) continue;
                const int v = tavola.valore({i, j, l}, tipo);
                if (v <= migliore) continue;
                migliore = v;
                lblnum[0] = std::to_string(i);
                lblnum[1] = std::to_string(j);
                lblnum[2] = std::to_string(l);
                lblRit_freq = std::to_string(v);
            }
    lunga = 3;
}

void LentaLunghetta::ric_terni_lotto(char tipo) {
    const int capo = numero(0);
    Tavola tavola{t};
    per_ogni_riga([&](int c, const Riga& r) {
        const auto& n = r.numeri;
        for (std::size_t p = 0; p < n.size(); ++p)
            for (std::size_t q = p + 1; q < n.size(); ++q)
                for (std::size_t s = q + 1; s < n.size(); ++s)
                    if (n[p] == capo || n[q] == capo || n[s] == capo) tavola.esce({n[p], n[q], n[s]}, c);
    });
    lunga = 3;
    int migliore = 0;
    for (int i = 1; i <= massimo - 2; ++i)
        for (int j = i + 1; j <= massimo - 1; ++j)
            for (int l = j + 1; l <= massimo; ++l) {
                if (i != capo && j != capo && l != capo) continue;
                const int v = tavola.valore({i, j, l}, tipo);
                if (v <= migliore) continue;
                migliore = v;
                lblnum[0] = std::to_string(i);
                lblnum[1] = std::to_string(j);
                lblnum[2] = std::to_string(l);
                lblRit_freq = std::to_string(v);
                if (v >= t) return;
            }
}

void LentaLunghetta::ric_lunga(char tipo, int k, int lunghezza) {
    std::vector<std::string> testi;
    for (const Riga& r : righe) testi.push_back(testo(r));
    const auto n_righe = static_cast<std::int64_t>(righe.size());
    for (int s = lunga + 1; s <= lunghezza; ++s) {
        const int p = lblRit_freq.empty() ? 0 : std::stoi(lblRit_freq);
        std::vector<int> lista;
        std::string membri;
        for (int i = 0; i < s - 1; ++i) {
            lista.push_back(numero(static_cast<std::size_t>(i)));
            membri += due(lista.back()) + ".";
        }
        lista.push_back(0);
        std::int64_t inizio = 0;
        if (tipo == 'r') inizio = a_punti ? t - 1 - std::int64_t{p} : n_righe - 1 - (std::int64_t{p} - 1) * w;
        inizio = std::max<std::int64_t>(inizio, 0);
        int migliore = 0;
        for (int n = 1; n <= massimo; ++n) {
            if (membri.find(due(n)) != std::string::npos) continue;
            lista.back() = n;
            int frequenza = 0;
            int ritardo = p;
            int c = 0;
            Concorso prima = -1;
            for (std::int64_t i = inizio; i < n_righe; ++i) {
                const Riga& r = righe[static_cast<std::size_t>(i)];
                if (r.concorso != prima) ++c;
                prima = r.concorso;
                if (r.numeri[0] == 0 && !a_punti) continue;
                if (conta_nel_testo(testi[static_cast<std::size_t>(i)], lista) < k) continue;
                ++frequenza;
                ritardo = p - c;
            }
            const int v = tipo == 'r' ? ritardo : frequenza;
            if (v <= migliore) continue;
            migliore = v;
            lblnum[static_cast<std::size_t>(s - 1)] = std::to_string(n);
            lblRit_freq = std::to_string(v);
            if (tipo == 'r' && v == p) break;
        }
        for (int i = 0; i < s; ++i)
            if (const std::string& l = lblnum[static_cast<std::size_t>(i)]; !l.empty())
                lista[static_cast<std::size_t>(i)] = std::stoi(l);
        std::sort(lista.begin(), lista.end());
        for (int i = 0; i < s; ++i)
            lblnum[static_cast<std::size_t>(i)] = std::to_string(lista[static_cast<std::size_t>(i)]);
        lunga = s;
    }
}

void LentaLunghetta::ricerca_automatica(int lunghezza) {
    std::vector<std::string> vincente(20);
    int massima = 0;
    for (int i = 1; i <= 90; ++i) {
        svuota();
        lblnum[0] = std::to_string(i);
        lunga = 1;
        ric_ambata_capogioco('r');
        ric_ambo_capogioco('r', 2);
        ric_lunga('r', 2, lunghezza);
        const int v = lblRit_freq.empty() ? 0 : std::stoi(lblRit_freq);
        if (v <= massima) continue;
        massima = v;
        vincente.assign(lblnum.begin(), lblnum.begin() + lunghezza);
    }
    svuota();
    std::copy(vincente.begin(), vincente.end(), lblnum.begin());
    lblRit_freq = std::to_string(massima);
}

bool LentaLunghetta::personali(char tipo, int k, int lunghezza, const std::vector<int>& n) {
    const auto copia = [&] {
        for (std::size_t i = 0; i < n.size(); ++i) lblnum[i] = std::to_string(n[i]);
    };
    if (n.empty()) return false;
    copia();
    lunga = static_cast<int>(n.size());
    if (n.size() == 3 && tipo == 'r') {
        ric_ambo_capogioco('r', 2);
        copia();
    }
    if (n.size() == 1) ric_ambata_capogioco(tipo);
    if (n.size() <= 2) ric_ambo_capogioco(tipo, k);
    ric_lunga(tipo, k, lunghezza);
    return true;
}

bool LentaLunghetta::cerca_lotto(int ricerca, int opzione, int lunghezza, const std::vector<int>& caselle) {
    svuota();
    const char tipo = ricerca < 2 ? 'r' : 'f';
    const int k = ricerca % 2 == 0 ? 2 : 3;
    switch (opzione) {
        case 0:
            Ric_ambata(tipo);
            if (ricerca == 1) {
                ric_terni_lotto('r');
            } else {
                ric_ambata_capogioco(tipo);
                ric_ambo_capogioco(tipo, k);
            }
            break;
        case 2:
            return personali(tipo, k, lunghezza, caselle);
        case 3:
            ricerca_automatica(lunghezza);
            return true;
        default:
            ric_ambi_lotto(tipo);
            ric_ambo_capogioco(tipo, k);
            if (opzione == 4) lbloption[2] = due(numero(0)) + "-" + due(numero(1)) + "-" + due(numero(2));
    }
    ric_lunga(tipo, k, lunghezza);
    return true;
}

// ---- by points ----

std::vector<LentaLunghetta::Riga> LentaLunghetta::indietro(Concorso da, std::size_t quante) const {
    std::vector<Riga> viste;
    const auto it =
        std::find_if(tutte.begin(), tutte.end(), [da](const Riga& r) { return r.concorso == da; });
    if (it == tutte.end()) return viste;
    for (auto i = it + 1; i != tutte.begin() && viste.size() < quante;) viste.push_back(*--i);
    return viste;
}

void LentaLunghetta::CalcolaRitardo(int n, int p) {
    for (std::size_t r = righe.size(); r-- > 0;) {
        int presenti = 0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(n); ++i)
            for (std::size_t q = 0; q < 10; ++q)
                if (numero(i) != 0 && numero(i) == righe[r].numeri[q]) {
                    ++presenti;
                    break;
                }
        if (presenti != p && r > 0) continue;
        lblRit_freq = std::to_string(tratto.a - righe[r].concorso);
        return;
    }
}

void LentaLunghetta::CalcolaFrequenza(int n, int p) {
    int volte = 0;
    for (const Riga& r : righe) {
        int presenti = 0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(n); ++i)
            if (numero(i) != 0 && std::count(r.numeri.begin(), r.numeri.end(), numero(i)) > 0) ++presenti;
        if (presenti == p) ++volte;
    }
    lblRit_freq = std::to_string(volte);
}

void LentaLunghetta::CercaNumeriRitardo(int quanti) {
    const auto viste = indietro(tratto.a, static_cast<std::size_t>(t));
    std::vector<int> lista;
    for (std::size_t r = viste.size(); r-- > 0;)
        for (std::size_t p = 0; p < viste[r].numeri.size(); ++p) {
            const int n = viste[r].numeri[p];
            bool cancellato = n == 0;
            for (std::size_t q = 0; q < r && p < 10; ++q)
                for (std::size_t x = 0; x < 10; ++x)
                    if (viste[q].numeri[x] == n) cancellato = true;
            if (!cancellato && static_cast<int>(lista.size()) < quanti) lista.push_back(n);
        }
    for (std::size_t i = 0; i < lista.size(); ++i) lblnum[i] = std::to_string(lista[i]);
    Concorso raggiunto = tratto.da;
    for (const Riga& r : indietro(tratto.a, tutte.size())) {
        if (r.concorso < tratto.da) break;
        if (std::all_of(lista.begin(), lista.end(), [&](int n) {
                return std::find(r.numeri.begin(), r.numeri.begin() + 10, n) != r.numeri.begin() + 10;
            })) {
            raggiunto = r.concorso;
            break;
        }
    }
    lblRit_freq = std::to_string(tratto.a - raggiunto);
}

void LentaLunghetta::CercaNumeriFrequenti(int quanti) {
    std::vector<std::pair<int, int>> numeri;  // minus the frequency, the number
    for (int n = 1; n <= massimo; ++n) {
        int f = 0;
        for (const Riga& r : righe) f += static_cast<int>(std::count(r.numeri.begin(), r.numeri.end(), n));
        if (f > 0) numeri.emplace_back(-f, n);
    }
    std::sort(numeri.begin(), numeri.end());
    for (std::size_t i = 0; i < std::min(numeri.size(), static_cast<std::size_t>(quanti)); ++i)
        lblnum[i] = std::to_string(numeri[i].second);
}

void LentaLunghetta::Pos(bool ritardo, int lunghezza) {
    const auto viste = indietro(tratto.a, static_cast<std::size_t>(t));
    for (std::size_t p = 0; p < righe.front().numeri.size(); ++p) {
        int scelto = 0;
        if (ritardo) {
            for (std::size_t r = viste.size(); r-- > 0 && scelto == 0;) {
                const int n = viste[r].numeri[p];
                bool cancellato = n == 0;
                for (std::size_t q = 0; q < r && p < 10; ++q) cancellato |= viste[q].numeri[p] == n;
                if (!cancellato) scelto = n;
            }
        } else {
            int migliore = 0;
            for (int n = 1; n <= massimo; ++n) {
                const auto f = static_cast<int>(std::count_if(
                    righe.begin(), righe.end(), [&](const Riga& r) { return r.numeri[p] == n; }));
                if (f <= migliore) continue;
                migliore = f;
                scelto = n;
            }
        }
        if (scelto != 0) lblnum[p] = std::to_string(scelto);
    }
    if (std::count(lblnum.begin(), lblnum.end(), "") == 20 - lunghezza) return;
    std::vector<std::string> diversi;
    for (const std::string& s : lblnum)
        if (!s.empty() && std::find(diversi.begin(), diversi.end(), s) == diversi.end()) diversi.push_back(s);
    lblnum.fill("");
    for (std::size_t i = 0; i < std::min(diversi.size(), static_cast<std::size_t>(lunghezza)); ++i)
        lblnum[i] = diversi[i];
}

void LentaLunghetta::Cercalunghetta10() {
    int migliore = 0;
    const std::size_t quanti = wfl ? 3 : 5;
    for (std::size_t a = 0; a < senza_calendario.size(); ++a) {
        std::set<int> questi(senza_calendario[a].numeri.begin(), senza_calendario[a].numeri.end());
        questi.erase(0);
        int altri = 0;
        for (std::size_t b = 0; b < senza_calendario.size(); ++b) {
            std::set<int> comuni;
            for (const int n : senza_calendario[b].numeri)
                if (questi.contains(n)) comuni.insert(n);
            if (a != b && comuni.size() == quanti) ++altri;
        }
        if (altri <= migliore) continue;
        migliore = altri;
        lblnum.fill("");
        std::size_t i = 0;
        for (const int n : senza_calendario[a].numeri)
            if (n != 0) lblnum[i++] = std::to_string(n);
    }
}

bool LentaLunghetta::cerca_punti(DomandaPunti d) {
    svuota();
    const bool ritardo = d.ricerca < 11;
    const char tipo = ritardo ? 'r' : 'f';
    const int p = d.ricerca % 11;
    if (d.frequente) {
        Cercalunghetta10();
        CalcolaFrequenza(20, p);
        return true;
    }
    if (d.posizione) {
        d.lunghezza = std::min(d.lunghezza, 10);
        Pos(ritardo, d.lunghezza);
    } else {
        if (d.opzione == 0) {
            Ric_ambata(tipo);
            ric_terni_lotto(tipo);
        } else if (d.opzione == 1 && ritardo) {
            CercaNumeriRitardo(p);
            lunga = p;
        } else if (d.opzione == 1) {
            CercaNumeriFrequenti(p);
            CalcolaFrequenza(d.lunghezza, p);
        } else {
            if (d.caselle.empty()) return false;
            ric_ambo_capogioco(tipo, 2);
            for (std::size_t i = 0; i < d.caselle.size(); ++i) lblnum[i] = std::to_string(d.caselle[i]);
            lunga = static_cast<int>(d.caselle.size());
            if (!ritardo) CalcolaFrequenza(d.lunghezza, p);
        }
        ric_lunga(tipo, p, d.lunghezza);
    }
    if (ritardo)
        CalcolaRitardo(d.lunghezza, p);
    else
        CalcolaFrequenza(d.lunghezza, p);
    return true;
}

}  // namespace sortimetra::prove
