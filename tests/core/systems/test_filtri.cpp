#include "draws/cursore.h"
#include "results/scrittori.h"
#include "support/archivi.h"
#include "systems/conteggi.h"
#include "systems/filtri.h"
#include "systems/parametri.h"
#include "systems/scelte.h"

#include <fmt/core.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using prove::archivio_casuale;
using prove::da_testi;
using prove::da_testo;

constexpr std::string_view kChiave = "filtri di condizionamento";

Domanda domanda(int sistema, Statistica statistica, AmbitoRicerca ambito = {}) {
    Domanda d = prove::domanda(kChiave, ambito);
    d.parametri = ParametriSistemi{.sistema = sistema, .statistica = static_cast<int>(statistica)};
    return d;
}

const Tabella& griglia(const Risultato& r, std::string_view nome) {
    const auto t =
        std::find_if(r.tabelle.begin(), r.tabelle.end(), [&](const Tabella& x) { return x.nome == nome; });
    if (t == r.tabelle.end()) throw std::runtime_error{"no grid " + std::string{nome}};
    return *t;
}

// ---- the plain way: texts, lists and maps ----

using Lenta = std::vector<int>;
/// A draw: its ordinal in scope and the combinations that it gives.
struct Uscita {
    int d;
    std::vector<Lenta> combinazioni;
};
struct Uscite {
    std::vector<Uscita> tutte;
    long c = 0;
    long intero = 0;
    int simmetria = 91;
    int parallelo = 45;
};

void sottoinsiemi(const Lenta& da, std::size_t k, std::size_t primo, Lenta& presa, std::vector<Lenta>& dove) {
    if (presa.size() == k) {
        dove.push_back(presa);
        return;
    }
    for (std::size_t i = primo; i < da.size(); ++i) {
        presa.push_back(da[i]);
        sottoinsiemi(da, k, i + 1, presa, dove);
        presa.pop_back();
    }
}

Uscite uscite_lente(const ArchivioEstrazioni& archivio, const Domanda& d) {
    const auto& p = d.di<ParametriSistemi>();
    const bool gruppi = static_cast<Statistica>(p.statistica) == Statistica::gruppi;
    AmbitoRicerca ambito = d.ambito;
    if (p.sistema == 5) ambito.ruote = SelezioneRuote{};
    Cursore cursore = p.sistema == 4   ? estrazioni_superenalotto(archivio, ambito)
                      : p.sistema == 6 ? estrazioni_winforlife(archivio, ambito)
                                       : estrazioni_ruote(archivio, ambito);
    Uscite u;
    const int w = p.sistema < 4 ? ambito.ruote.n_ruote() : 1;
    const std::size_t k = gruppi && p.sistema < 4 ? 5 : kGeneri[static_cast<std::size_t>(p.sistema)].k;
    const long n = p.sistema < 4 ? (k == 5 ? 1 : k == 4 ? 5 : 10) : 1;
    u.c = w == 0 ? 0 : std::lrint(static_cast<double>(cursore.conteggio()) / w);
    u.intero = u.c * n * w;
    if (p.sistema == 6) {
        u.simmetria = 21;
        u.parallelo = 10;
    }
    int conteggio = 0;
    int prima = 0;
    for (cursore.primo(); !cursore.fine(); cursore.successivo()) {
        const Estrazione e = *cursore.corrente();
        if (e.concorso() != prima) ++conteggio;
        prima = e.concorso();
        if (e.numero(1) == 0) continue;
        Lenta numeri(e.numeri().begin(), e.numeri().end());
        std::vector<Lenta> combinazioni;
        if (p.sistema == 4) {
            std::sort(numeri.begin(), numeri.end());
            combinazioni = {numeri};
        } else if (p.sistema == 5) {
            const auto record = cerca_concorso(archivio.lotto().concorso, e.concorso());
            const Combinazione c = calc_combinazione_10elotto(archivio.lotto(), record.value());
            combinazioni = {{}};
            for (const int posto : p.posizioni) combinazioni[0].push_back(c[static_cast<std::size_t>(posto)]);
        } else if (p.sistema == 6) {
            const Combinazione c = calc_combinazione_WinForLife(archivio.winforlife(), e.concorso());
            const Lenta dieci(c.begin() + 1, c.begin() + 11);
            bool buona = true;
            for (const int scelto : p.contenenti)
                if (scelto > 0) buona = buona && std::count(dieci.begin(), dieci.end(), scelto) > 0;
            for (std::size_t j = 0; j < p.nelle_posizioni.size(); ++j)
                if (p.nelle_posizioni[j] > 0) buona = buona && dieci[j] == p.nelle_posizioni[j];
            if (!buona) continue;
            combinazioni = {dieci};
        } else if (k == 5) {
            combinazioni = {numeri};
        } else {
            std::sort(numeri.begin(), numeri.end());
            Lenta presa;
            sottoinsiemi(numeri, k, 0, presa, combinazioni);
        }
        u.tutte.push_back({conteggio, combinazioni});
    }
    return u;
}

std::string senza_zeri(int n) {
    return n == 0 ? "" : std::to_string(n);
}

int unite(const std::string& a, const std::string& b) {
    return a.find_first_of(b) == std::string::npos ? 0 : 1;
}

/// Value of every measure of one combination, by grid.
std::map<std::string, int> misure_lente(const Lenta& c, const Uscite& u) {
    std::map<std::string, int> m;
    const auto k = static_cast<int>(c.size());
    const auto una = [&](const std::string& griglia, int valore) { m[griglia] = valore; };
    int simmetrie = 0;
    int paralleli = 0;
    std::map<int, int> passi;
    for (int i = 0; i < k; ++i)
        for (int j = 0; j < i; ++j) {
            const int a = c[static_cast<std::size_t>(i)];
            const int b = c[static_cast<std::size_t>(j)];
            if (a + b == u.simmetria) ++simmetrie;
            if (std::abs(a - b) == u.parallelo) ++paralleli;
            ++passi[std::abs(a - b)];
        }
    una("MSH_condizioni(0)", simmetrie);
    una("MSH_condizioni(1)", paralleli);
    una("MSH_condizioni(2)", simmetrie + paralleli);
    Lenta ordinata = c;
    std::sort(ordinata.begin(), ordinata.end());
    int interruzioni = k - 1;
    for (std::size_t i = 1; i < c.size(); ++i)
        interruzioni -= unite(senza_zeri(ordinata[i - 1]), senza_zeri(ordinata[i]));
    una("MSH_condizioni(3)", interruzioni);
    una("MSH_condizioni(4)",
        static_cast<int>(std::count_if(c.begin(), c.end(), [](int n) { return n % 2 == 0; })));
    int totale = 0;
    int decine = 0;
    int cadenze = 0;
    for (const int n : c) {
        const std::string testo = fmt::format("{:02}", n);
        totale += n;
        decine += testo.front() - '0';
        cadenze += testo.back() - '0';
    }
    una("MSH_Somme1(0)", totale);
    const std::map<int, std::pair<int, int>> meta{
        {3, {2, 2}}, {4, {2, 3}}, {5, {3, 4}}, {6, {3, 4}}, {10, {5, 6}}};
    if (k > 2) {
        int s1 = 0;
        int s2 = 0;
        for (int i = 1; i <= k; ++i) {
            if (i <= meta.at(k).first) s1 += c[static_cast<std::size_t>(i - 1)];
            if (i >= meta.at(k).second) s2 += c[static_cast<std::size_t>(i - 1)];
        }
        una("MSH_Somme1(1)", s1);
        una("MSH_Somme1(2)", s2);
        una("MSH_Somme1(3)", c.front() + c.back());
    }
    una("MSH_Somme1(4)", totale % k);
    una("MSH_Somme1(5)", decine);
    una("MSH_Somme1(6)", cadenze);
    int distanze = 0;
    for (int j = 1; j < k; ++j) {
        const int d = std::abs(c[static_cast<std::size_t>(j)] - c[static_cast<std::size_t>(j - 1)]) - 1;
        distanze += d;
        una(fmt::format("MSH_Distanza({})", j - 1), d);
    }
    if (k > 2) una("MSH_Distanza(9)", distanze);
    int consecutivi = 0;
    for (int s = 1; s <= 9; ++s) {
        consecutivi += passi[s];
        una(fmt::format("MSH_Consec({})", s - 1), passi[s]);
    }
    una("MSH_Consec(9)", consecutivi);
    return m;
}

std::string percento(long f, long intero) {
    if (intero == 0) return "";
    const long centesimi = (20000 * f + intero) / (2 * intero);
    return fmt::format("{},{:02}", centesimi / 100, centesimi % 100);
}

/// Largest value that a grid of distances counts; the other tables of random draws are never left.
bool contata(const std::string& griglia, int valore) {
    if (valore < 0) return false;
    return !griglia.starts_with("MSH_Distanza") || griglia == "MSH_Distanza(9)" || valore <= 90;
}

/// How often each value of each grid came.
using Frequenze = std::map<std::string, std::map<int, long>>;
Frequenze frequenze_lente(const Uscite& u) {
    Frequenze f;
    for (const Uscita& uscita : u.tutte)
        for (const Lenta& c : uscita.combinazioni)
            for (const auto& [griglia, valore] : misure_lente(c, u))
                if (contata(griglia, valore)) ++f[griglia][valore];
    return f;
}

std::string griglia_lenta(const std::string& nome, const Frequenze& f, const Uscite& u) {
    std::string righe;
    if (f.contains(nome))
        for (const auto& [valore, quante] : f.at(nome))
            righe += fmt::format("{} {} {}\n", valore, quante, percento(quante, u.intero));
    return righe;
}

std::string dettaglio_lento(const Uscite& u, std::size_t k) {
    std::string righe;
    for (std::size_t j = 0; j < k; ++j)
        for (const int resto : {0, 1}) {
            long f = 0;
            for (const Uscita& uscita : u.tutte)
                for (const Lenta& c : uscita.combinazioni) f += c[j] % 2 == resto ? 1 : 0;
            righe +=
                fmt::format("{}  CAS  {} {} {}\n", j + 1, resto == 0 ? "P" : "D", f, percento(f, u.intero));
        }
    return righe;
}

/// Ordinals of the draws that have a number at a position, or anywhere (position 0), with repetitions.
std::vector<int> quando(const Uscite& u, int numero, std::size_t posto) {
    std::vector<int> d;
    for (const Uscita& uscita : u.tutte)
        for (const Lenta& c : uscita.combinazioni)
            for (std::size_t j = 1; j <= c.size(); ++j)
                if (c[j - 1] == numero && (posto == 0 || posto == j)) d.push_back(uscita.d);
    return d;
}

std::string posizioni_lente(const Uscite& u, std::size_t k, bool jolly) {
    std::string righe;
    for (int n = 1; n <= 90; ++n) {
        std::string riga = std::to_string(n);
        for (std::size_t j = 1; j <= k; ++j) {
            const auto d = quando(u, n, j);
            long rs = 0;
            for (std::size_t i = 0; i < d.size(); ++i)
                rs = std::max(rs, d[i] - (i == 0 ? u.c - 1 : d[i - 1]) - 1);
            riga += d.empty() ? fmt::format(" ... {} ...", u.c)
                              : fmt::format(" {} {} {}", d.size(), u.c - d.back(), rs);
        }
        if (jolly) riga += "   ";
        righe += riga + "\n";
    }
    return righe;
}

std::string numeri_lenti(const Uscite& u) {
    std::string righe;
    for (int n = 1; n <= 90; ++n) {
        const auto d = quando(u, n, 0);
        long rs = 0;
        for (std::size_t i = 0; i < d.size(); ++i)
            rs = std::max<long>(rs, d[i] - (i == 0 ? 0 : d[i - 1]) - 1);
        righe += fmt::format("{} {} {} {}\n", n, d.size(), d.empty() ? u.c : u.c - d.back(), rs);
    }
    return righe;
}

/// The texts of the groups as the screen has always had them.
const std::vector<std::pair<std::string, std::string>> kDecineTesto{
    {"1-9 & (90)", "90.01.02.03.04.05.06.07.08.09"}, {"10-19", "10.11.12.13.14.15.16.17.18.19"},
    {"20-29", "20.21.22.23.24.25.26.27.28.29"},      {"30-39", "30.31.32.33.34.35.36.37.38.39"},
    {"40-49", "40.41.42.43.44.45.46.47.48.49"},      {"50-59", "50.51.52.53.54.55.56.57.58.59"},
    {"60-69", "60.61.62.63.64.65.66.67.68.69"},      {"70-79", "70.71.72.73.74.75.76.77.78.79"},
    {"80-89", "80.81.82.83.84.85.86.87.88.89"}};
const std::vector<std::pair<std::string, std::string>> kCadenzeTesto{
    {"1-81", "01.11.21.31.41.51.61.71.81"}, {"2-82", "02.22.22.32.42.52.62.72.82"},
    {"3-83", "03.13.23.33.43.53.63.73.83"}, {"4-84", "04.14.24.34.44.54.64.74.84"},
    {"5-85", "05.15.25.35.45.55.65.75.85"}, {"6-86", "06.16.26.36.46.56.66.76.86"},
    {"7-87", "07.17.27.37.47.57.67.77.87"}, {"8-88", "08.18.28.38.48.58.68.78.88"},
    {"9-89", "09.19.29.39.49.59.69.79.89"}, {"10-90", "10.20.30.40.50.60.70.80.90"}};

std::string gruppi_lenti(const Uscite& u, const std::vector<std::pair<std::string, std::string>>& gruppi) {
    std::string righe;
    for (const auto& [titolo, testo] : gruppi) {
        std::string riga = titolo;
        for (int m = 1; m <= 4; ++m) {
            long r = u.c;
            for (const Uscita& uscita : u.tutte)
                for (const Lenta& c : uscita.combinazioni) {
                    const auto dentro = std::count_if(c.begin(), c.end(), [&](int n) {
                        return testo.find(fmt::format("{:02}", n)) != std::string::npos;
                    });
                    if (dentro >= m) r = u.c - uscita.d;
                }
            riga += fmt::format(" {}", r);
        }
        righe += riga + "\n";
    }
    return righe;
}

std::string lenta(const Tabella& t, const Uscite& u, const Frequenze& f, std::size_t k, bool jolly) {
    if (t.nome == "MSHFlexGrid1") return posizioni_lente(u, k, jolly);
    if (t.nome == "MSH_condizioni(5)") return dettaglio_lento(u, k);
    if (t.nome == "MSH_Gruppi(0)") return gruppi_lenti(u, kDecineTesto);
    if (t.nome == "MSH_Gruppi(1)") return gruppi_lenti(u, kCadenzeTesto);
    if (t.nome == "MSH_Gruppi(2)") return numeri_lenti(u);
    return griglia_lenta(t.nome, f, u);
}

/// A choice for the games that ask for one.
void scegli(ParametriSistemi& p, std::mt19937& caso) {
    if (p.sistema == 5) {
        std::vector<int> posti(20);
        for (std::size_t i = 0; i < posti.size(); ++i) posti[i] = static_cast<int>(i) + 1;
        std::shuffle(posti.begin(), posti.end(), caso);
        posti.resize(10);
        std::sort(posti.begin(), posti.end());
        p.posizioni = posti;
    }
    if (p.sistema == 6) {
        const auto che = caso() % 3;
        if (che == 1)
            p.contenenti = {static_cast<int>(caso() % 20) + 1, 0, static_cast<int>(caso() % 20) + 1};
        if (che == 2) p.nelle_posizioni = {0, static_cast<int>(caso() % 6) + 1};
    }
}

TEST(Filtri, UgualeAllaViaPiana) {
    for (unsigned seme = 0; seme < 24; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        std::mt19937 caso{seme};
        for (int sistema = 0; sistema < 7; ++sistema)
            for (int statistica = 0; statistica < 7; ++statistica) {
                SCOPED_TRACE(fmt::format("{} {}", sistema, statistica));
                Domanda d =
                    domanda(sistema, static_cast<Statistica>(statistica), prove::ambito_casuale(seme));
                auto& p = d.parametri.per<ParametriSistemi>();
                scegli(p, caso);
                const Risultato r = prove::esegui(d, archivio);
                const Uscite u = uscite_lente(archivio, d);
                const bool gruppi = statistica == static_cast<int>(Statistica::gruppi);
                const std::size_t k =
                    gruppi && sistema < 4 ? 5 : kGeneri[static_cast<std::size_t>(sistema)].k;
                if (r.tabelle.empty()) {
                    EXPECT_TRUE(u.tutte.empty());
                    continue;
                }
                const bool misure = !gruppi && statistica != static_cast<int>(Statistica::posizione);
                const Frequenze f = misure ? frequenze_lente(u) : Frequenze{};
                for (const Tabella& t : r.tabelle)
                    EXPECT_EQ(prove::righe(t), lenta(t, u, f, k, sistema == 4)) << t.nome;
            }
    }
}

// ---- what a player can count by hand ----

TEST(Filtri, UnAmboSuUnaRuotaDaDieciCombinazioni) {
    const auto archivio = da_testo("1 BA 10 20 31 33 90\n");
    const Risultato r = prove::esegui(domanda(0, Statistica::distanza), archivio);
    EXPECT_EQ(prove::righe(griglia(r, "MSH_Distanza(0)")),
              "1 1 10,00\n9 1 10,00\n10 1 10,00\n12 1 10,00\n20 1 10,00\n22 1 10,00\n56 1 10,00\n58 1 10,00\n"
              "69 1 10,00\n79 1 10,00\n");
    for (int g = 1; g < 10; ++g) EXPECT_EQ(griglia(r, fmt::format("MSH_Distanza({})", g)).righe(), 0U) << g;
    EXPECT_EQ(griglia(r, "MSH_Distanza(0)").titoli,
              (std::vector<std::vector<std::string>>{{"Val.", "Freq.", "%"}}));
}

TEST(Filtri, DiUnAmboNienteMetaENienteCodomino) {
    const auto archivio = da_testo("1 BA 10 20 31 33 90\n");
    const Risultato somme1 = prove::esegui(domanda(0, Statistica::somme1), archivio);
    EXPECT_EQ(griglia(somme1, "MSH_Somme1(0)").righe(), 10U);
    EXPECT_EQ(griglia(somme1, "MSH_Somme1(1)").righe(), 0U);
    EXPECT_EQ(griglia(somme1, "MSH_Somme1(2)").righe(), 0U);
    const Risultato somme2 = prove::esegui(domanda(0, Statistica::somme2), archivio);
    EXPECT_EQ(griglia(somme2, "MSH_Somme1(3)").righe(), 0U);
    EXPECT_NE(griglia(somme2, "MSH_Somme1(4)").righe(), 0U);
    EXPECT_EQ(std::get<std::vector<std::string>>(somme2.etichette.at(0).testo),
              (std::vector<std::string>{"Codomino", "Resto a 2", "SiS 1", "SiS 2"}));
}

TEST(Filtri, LaCinquinaConservaLOrdineDiUscita) {
    const auto archivio = da_testo("1 BA 1 90 2 89 3\n");
    const Risultato r = prove::esegui(domanda(3, Statistica::distanza), archivio);
    EXPECT_EQ(prove::righe(griglia(r, "MSH_Distanza(0)")), "88 1 100,00\n");
    EXPECT_EQ(prove::righe(griglia(r, "MSH_Distanza(9)")), "346 1 100,00\n");
}

TEST(Filtri, IlDodiciNonMuoveNessunaCadenza) {
    const auto archivio = da_testo("1 BA 12 1 3 4 5\n2 BA 6 7 8 9 11\n");
    const Risultato r = prove::esegui(domanda(0, Statistica::gruppi), archivio);
    EXPECT_EQ(prove::righe(griglia(r, "MSH_Gruppi(1)")).substr(0, 27), "1-81 0 2 2 2\n2-82 2 2 2 2\n3");
    EXPECT_EQ(prove::righe(griglia(r, "MSH_Gruppi(0)")).substr(0, 30), "1-9 & (90) 0 0 0 0\n10-19 0 2 2");
    EXPECT_EQ(griglia(r, "MSH_Gruppi(2)").testo(11, 1), "1");
}

TEST(Filtri, SenzaRuoteLePercentualiRestanoVuote) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n");
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::nessuna();
    const Risultato r = prove::esegui(domanda(3, Statistica::somme1, ambito), archivio);
    EXPECT_EQ(prove::righe(griglia(r, "MSH_Somme1(0)")), "15 1 \n");
}

TEST(Filtri, UnaRigaVuotaContaComeConcorso) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA - - - - -\n3 BA 1 12 13 14 15\n");
    const Risultato r = prove::esegui(domanda(3, Statistica::posizione), archivio);
    EXPECT_EQ(griglia(r, "MSHFlexGrid1").testo(0, 1), "2");
    EXPECT_EQ(griglia(r, "MSHFlexGrid1").testo(0, 2), "0");
    EXPECT_EQ(griglia(r, "MSHFlexGrid1").testo(0, 3), "1");
    EXPECT_EQ(griglia(r, "MSHFlexGrid1").testo(1, 4), "1");
    EXPECT_EQ(griglia(r, "MSHFlexGrid1").testo(1, 5), "2");
    EXPECT_EQ(griglia(r, "MSHFlexGrid1").testo(1, 1), "...");
}

TEST(Filtri, LeDistanzeDelLottoSiFermanoASediciBit) {
    // 33,000 draws of the same ambo distance; the sums of the same combinations are counted to their end.
    RigheArchivio righe;
    for (int c = 1; c <= 33000; ++c)
        righe.lotto.push_back({.concorso = c, .data = {}, .ruota = 0, .numeri = {1, 2, 3, 4, 5}});
    const auto archivio = ArchivioEstrazioni::componi(std::move(righe)).value();
    const Risultato distanze = prove::esegui(domanda(3, Statistica::distanza), archivio);
    EXPECT_EQ(prove::righe(griglia(distanze, "MSH_Distanza(0)")), "0 32767 99,29\n");
    const Risultato somme = prove::esegui(domanda(3, Statistica::somme1), archivio);
    EXPECT_EQ(prove::righe(griglia(somme, "MSH_Somme1(0)")), "15 33000 100,00\n");
}

constexpr std::string_view kVita =
    "1 8:00 1 2 7 8 9 10 11 12 13 14\n"
    "2 9:00 1 3 5 8 9 10 11 12 13 14\n"
    "3 10:00 7 8 9 10 11 12 13 14 15 16\n";

TEST(Filtri, WinForLifeNellePosizioni) {
    const auto archivio = da_testi("", "", kVita);
    Domanda d = domanda(6, Statistica::somme1);
    d.parametri.per<ParametriSistemi>().nelle_posizioni = {0, 0, 7};
    // One of three draws has 7 third; the others count in what 100 % is.
    EXPECT_EQ(prove::righe(griglia(prove::esegui(d, archivio), "MSH_Somme1(0)")), "87 1 33,33\n");
    d.parametri.per<ParametriSistemi>() = {
        .sistema = 6, .statistica = static_cast<int>(Statistica::somme1), .contenenti = {7, 0, 8}};
    EXPECT_EQ(prove::righe(griglia(prove::esegui(d, archivio), "MSH_Somme1(0)")),
              "87 1 33,33\n115 1 33,33\n");
    // A choice that no draw passes leaves empty grids, and no message.
    d.parametri.per<ParametriSistemi>().contenenti = {20};
    const Risultato vuoto = prove::esegui(d, archivio);
    EXPECT_TRUE(vuoto.prodotto);
    EXPECT_TRUE(vuoto.messaggi.empty());
    EXPECT_EQ(griglia(vuoto, "MSH_Somme1(0)").righe(), 0U);
}

TEST(Filtri, SoltantoZeriNonParte) {
    const auto archivio = da_testi("", "", kVita);
    Domanda d = domanda(6, Statistica::somme1);
    d.parametri.per<ParametriSistemi>().contenenti = {0, 0};
    const Risultato r = prove::esegui(d, archivio);
    EXPECT_FALSE(r.prodotto);
    ASSERT_EQ(r.messaggi.size(), 1U);
    EXPECT_EQ(r.messaggi[0], (Messaggio{Avviso::numero_mancante, "inserire almeno un numero"}));
}

TEST(Filtri, SenzaEstrazioniIlMessaggio) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n");
    for (int sistema = 0; sistema < 7; ++sistema) {
        Domanda d = domanda(sistema, Statistica::distanza);
        d.ambito.tratto = {2, 1};
        const Risultato r = prove::esegui(d, sistema < 4 ? archivio : ArchivioEstrazioni{});
        EXPECT_FALSE(r.prodotto);
        ASSERT_EQ(r.messaggi.size(), 1U);
        EXPECT_EQ(r.messaggi[0].testo, "Non ci sono estrazioni per l'intervallo selezionato");
    }
}

TEST(Filtri, TitoliDiOgniGriglia) {
    const auto archivio = da_testi("1 BA 1 2 3 4 5\n", "1 1 2 3 4 5 6 7 8\n", "");
    const Risultato r = prove::esegui(domanda(4, Statistica::posizione), archivio);
    const Tabella& t = griglia(r, "MSHFlexGrid1");
    ASSERT_EQ(t.titoli.size(), 2U);
    EXPECT_EQ(t.titoli[0][0], "N.");
    EXPECT_EQ(t.titoli[1][0], "");
    EXPECT_EQ(t.titoli[0][16], "Posizione 6");
    EXPECT_EQ(t.titoli[0][19], "Jolly");
    EXPECT_EQ(t.titoli[1][21], "RS");
    EXPECT_EQ(t.testo(6, 19), "");
    EXPECT_EQ(t.righe(), 90U);
}

TEST(Scelte, PosizioniEScelti) {
    EXPECT_EQ(leggi_posizioni("20,1,3,2,4,5,6,7,8,9"), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 20}));
    for (const std::string_view sbagliate :
         {"1,2,3,4,5,6,7,8,9", "1,1,2,3,4,5,6,7,8,9", "0,1,2,3,4,5,6,7,8,9", "1,2,3,4,5,6,7,8,9,21", "", "x",
          "1,2,3,4,5,6,7,8,9,10,11"})
        EXPECT_EQ(leggi_posizioni(sbagliate), std::nullopt) << sbagliate;
    EXPECT_EQ(leggi_scelti(",,7"), (std::vector<int>{0, 0, 7}));
    EXPECT_EQ(leggi_scelti("0, 3"), (std::vector<int>{0, 3}));
    for (const std::string_view sbagliati : {"21", "-1", "a", "1,2,3,4,5,6,7,8,9,10,11"})
        EXPECT_EQ(leggi_scelti(sbagliati), std::nullopt) << sbagliati;
}

}  // namespace
}  // namespace sortimetra
