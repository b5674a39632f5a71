#include "draws/combinazioni.h"
#include "lunghette/parametri.h"
#include "lunghette/scomposte.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace sortimetra::prove {
namespace {

Domanda chiedi(int meta, int ordine, AmbitoRicerca ambito = {}) {
    Domanda d = domanda("calcolo lunghette scomposte", ambito);
    d.parametri = ParametriScomposte{.meta = meta, .ordine = ordine};
    return d;
}

constexpr std::string_view kQuattro =
    "1 9:00 10 9 8 7 6 5 4 3 2 1\n"
    "2 9:00 1 2 3 4 6 7 8 9 10 11\n"
    "3 10:00 1 2 3 4 5 16 17 18 19 20\n"
    "4 10:00 2 3 4 5 6 16 17 18 19 20\n";

TEST(Scomposte, IPrimiEGliUltimiAMano) {
    const auto archivio = da_testi("", "", kQuattro);
    const auto primi = esegui(chiedi(0, 1), archivio);
    EXPECT_EQ(primi.tabelle[0].righe(), 3003U);
    // In draws 1 and 3, whatever the order in which they came; one draw since; the gap of one at either end.
    EXPECT_EQ(riga(primi, "01-02-03-04-05"), "01-02-03-04-05 2 1 1");
    EXPECT_EQ(riga(primi, "01-02-03-04-06"), "01-02-03-04-06 1 2 2");
    // Never: all four draws, twice.
    EXPECT_EQ(riga(primi, "11-12-13-14-15"), "11-12-13-14-15 0 4 4");
    const auto ultimi = esegui(chiedi(1, 1), archivio);
    EXPECT_EQ(ultimi.tabelle[0].righe(), 3003U);
    EXPECT_EQ(riga(ultimi, "16-17-18-19-20"), "16-17-18-19-20 2 0 2");
    EXPECT_EQ(riga(ultimi, "06-07-08-09-10"), "06-07-08-09-10 1 3 3");
    EXPECT_EQ(riga(ultimi, "01-02-03-04-05"), "");
}

TEST(Scomposte, ConIFrequentiIlRitardoSiContaDallaPrima) {
    const auto archivio = da_testi("", "", kQuattro);
    const auto frequenti = esegui(chiedi(1, 0), archivio);
    EXPECT_EQ(riga(frequenti, "16-17-18-19-20"), "16-17-18-19-20 2 2 2");
    EXPECT_EQ(riga(frequenti, "06-07-08-09-10"), "06-07-08-09-10 1 0 3");
    EXPECT_EQ(riga(frequenti, "06-07-08-09-11"), "06-07-08-09-11 0 4 4");
}

TEST(Scomposte, LOraNonHaEffetto) {
    const auto archivio = da_testi("", "", kQuattro);
    AmbitoRicerca alle_nove;
    alle_nove.ora = *trova_ora("9:00");
    const auto risposta = rispondi(chiedi(0, 0, alle_nove), archivio);
    EXPECT_EQ(*risposta.risultato, esegui(chiedi(0, 0), archivio));
    EXPECT_EQ(risposta.ambito->intervallo, "Tutti");
}

TEST(Scomposte, SenzaEstrazioniOSenzaMetaNonFaNulla) {
    const auto archivio = da_testi("", "", kQuattro);
    AmbitoRicerca vuoto;
    vuoto.tratto = {.da = 3, .a = 2};
    EXPECT_FALSE(esegui(chiedi(0, 0, vuoto), archivio).prodotto);
    EXPECT_FALSE(esegui(chiedi(-1, 0), archivio).prodotto);
    EXPECT_TRUE(controlla_scomposte(chiedi(-1, 0)));
    EXPECT_FALSE(controlla_scomposte(chiedi(1, 1)));
}

/// Has had enough after a few rows.
class Basta final : public Avanzamento {
  public:
    bool procedi(std::size_t fatto, std::size_t totale) override {
        EXPECT_EQ(totale, 3003U);
        return fatto < 100;
    }
};

TEST(Scomposte, AnnullataTieneLeRigheScritte) {
    const auto archivio = da_testi("", "", kQuattro);
    Basta basta;
    const auto poche = lunghette_scomposte(archivio, chiedi(0, 1), basta);
    EXPECT_EQ(poche.tabelle[0].righe(), 100U);
    EXPECT_EQ(riga(poche, "01-02-03-04-05"), "01-02-03-04-05 2 1 1");
}

TEST(Scomposte, LaRigaDiceCheCosaMisura) {
    const auto r = esegui(chiedi(1, 0), da_testi("", "", kQuattro));
    const auto e = r.tabelle[0].evento(0);
    ASSERT_TRUE(e);
    EXPECT_EQ(e->presenti, 5);
    EXPECT_EQ(e->posti, Posti{0b11111'00000});
}

/// Five nested loops, and for each cinquina a walk over all draws, comparing place by place.
std::vector<std::string> scomposte_lente(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito,
                                         int s, bool ritardo) {
    const auto& t = archivio.winforlife();
    std::vector<Combinazione> estrazioni;
    const auto tratto = ambito.tratto.riportato(archivio.ultimo_concorso_winforlife());
    for (const Concorso c : t.concorso)
        if (tratto.contiene(c) && tratto.da <= tratto.a)
            estrazioni.push_back(calc_combinazione_WinForLife(t, c));
    if (ritardo) std::reverse(estrazioni.begin(), estrazioni.end());
    std::vector<std::string> righe;
    if (estrazioni.empty()) return righe;
    for (int i = s; i <= s + 10; ++i)
        for (int j = i + 1; j <= s + 11; ++j)
            for (int k = j + 1; k <= s + 12; ++k)
                for (int l = k + 1; l <= s + 13; ++l)
                    for (int m = l + 1; m <= s + 14; ++m) {
                        int frequenza = 0;
                        int rit = 0;
                        int storico = 0;
                        int vuoto = 0;
                        for (const Combinazione& c : estrazioni) {
                            const auto p = static_cast<std::size_t>(s);
                            const bool uguale =
                                c[p] == i && c[p + 1] == j && c[p + 2] == k && c[p + 3] == l && c[p + 4] == m;
                            if (uguale) {
                                storico = std::max(storico, vuoto);
                                vuoto = 0;
                                ++frequenza;
                                continue;
                            }
                            ++vuoto;
                            if (frequenza == 0) ++rit;
                        }
                        storico = std::max(storico, vuoto);
                        std::string nome;
                        for (const int n : {i, j, k, l, m})
                            nome += (nome.empty() ? "" : "-") + std::string(n < 10 ? "0" : "") +
                                    std::to_string(n);
                        righe.push_back(nome + " " + std::to_string(frequenza) + " " + std::to_string(rit) +
                                        " " + std::to_string(storico));
                    }
    return righe;
}

TEST(Scomposte, ComeLeLente) {
    for (std::uint32_t seme = 1; seme <= 40; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const auto ambito = ambito_casuale(seme);
        const int meta = static_cast<int>(seme % 2);
        const int ordine = static_cast<int>(seme / 2 % 2);
        const auto lente = scomposte_lente(archivio, ambito, meta == 0 ? 1 : 6, ordine == 1);
        const auto r = esegui(chiedi(meta, ordine, ambito), archivio);
        if (lente.empty()) {
            EXPECT_FALSE(r.prodotto);
            continue;
        }
        std::string attese;
        for (const std::string& l : lente) attese += l + "\n";
        EXPECT_EQ(righe(r.tabelle[0]), attese);
    }
}

}  // namespace
}  // namespace sortimetra::prove
