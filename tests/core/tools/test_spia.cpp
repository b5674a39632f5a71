#include "draws/ambito.h"
#include "draws/cursore.h"
#include "support/archivi.h"
#include "tools/parametri.h"
#include "tools/spia.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using namespace prove;
using testing::HasSubstr;

constexpr std::string_view kChiave = "calcolo dei numeri spia";

Domanda chiedi(std::vector<int> numeri, AmbitoRicerca ambito = {}) {
    Domanda d = domanda(kChiave, ambito);
    d.parametri.per<ParametriSpia>().numeri = std::move(numeri);
    return d;
}

/// One row of Bari per draw.
ArchivioEstrazioni di_bari(const std::vector<std::string>& estrazioni) {
    std::string testo;
    for (std::size_t i = 0; i < estrazioni.size(); ++i)
        testo += std::to_string(i + 1) + " BA " + estrazioni[i] + "\n";
    return da_testo(testo);
}

/// The colour of the delay of the spy.
Colore colore(const Risultato& r, std::size_t riga = 0) {
    return r.tabelle.at(0).sfondo(riga, 5);
}

TEST(Spia, UnNumeroCheNeAnnunciaUnAltro) {
    // 7 comes one draw before 50 each time but the first, and once without it.
    std::vector<std::string> estrazioni(30, "80 81 82 83 84");
    estrazioni[14] = "7 60 61 62 63";
    estrazioni[15] = "50 60 61 62 63";
    estrazioni[26] = "7 64 65 66 67";
    estrazioni[27] = "50 64 65 66 67";
    estrazioni[29] = "7 68 69 70 71";
    const Risultato r = esegui(chiedi({50}), di_bari(estrazioni));
    // The numbers of every other draw stand before 50 as often as 7 does; among equals the lowest is the spy.
    // Two of the three 7 were followed, the last one came in the last draw.
    EXPECT_EQ(riga(r, "50"), "50 2 7 67% 100% 0");
    EXPECT_EQ(r.tabelle[0].titoli[0],
              (std::vector<std::string>{"Num.", "Rit.", "Num. Spia", "%1", "%2", "Rit. Num. Spia"}));
    // Red: 7 has come and 50 has not followed yet.
    EXPECT_EQ(colore(r), 255);
    EXPECT_EQ(r.tabelle[0].sfondo(0, 2), 65535);
    for (const std::size_t c : {0U, 1U, 3U, 4U}) EXPECT_EQ(r.tabelle[0].sfondo(0, c), kNessunColore);
    // The row is about the number in exam.
    ASSERT_TRUE(r.tabelle[0].evento(0).has_value());
    EXPECT_EQ(r.tabelle[0].evento(0)->numeri()[0], 50);
}

TEST(Spia, LaSpiaFuoriDaiNoveColpiNonConta) {
    std::vector<std::string> estrazioni(40, "80 81 82 83 84");
    // 7 stands ten rows before 50, 8 nine.
    estrazioni[20] = "7 60 61 62 63";
    estrazioni[21] = "8 60 61 62 63";
    estrazioni[30] = "50 70 71 72 73";
    for (std::size_t i = 22; i < 30; ++i) estrazioni[i] = "- - - - -";
    const Risultato r = esegui(chiedi({50}), di_bari(estrazioni));
    EXPECT_EQ(riga(r, "50"), "50 9 8 100% 100% 18");
    EXPECT_EQ(colore(r), 0xFFFFFF);
}

TEST(Spia, UnNumeroMaiUscitoNonHaSpia) {
    const Risultato r = esegui(chiedi({50}), di_bari(std::vector<std::string>(20, "1 2 3 4 5")));
    // The rows less nine.
    EXPECT_EQ(riga(r, "50"), "50 11 0 0% 0% 0");
    EXPECT_EQ(colore(r), 255);
    EXPECT_EQ(r.tabelle[0].sfondo(0, 2), 65535);
    // On a short scope that is negative, and then green.
    const Risultato corto = esegui(chiedi({50}), di_bari({"1 2 3 4 5"}));
    EXPECT_EQ(riga(corto, "50"), "50 -8 0 0% 0% 0");
    EXPECT_EQ(colore(corto), 65280);
}

TEST(Spia, RitardoZeroDiEntrambiEVerde) {
    std::vector<std::string> estrazioni(20, "80 81 82 83 84");
    estrazioni[18] = "7 60 61 62 63";
    estrazioni[19] = "50 7 64 65 66";
    const Risultato r = esegui(chiedi({50}), di_bari(estrazioni));
    EXPECT_EQ(riga(r, "50"), "50 0 7 50% 100% 0");
    EXPECT_EQ(colore(r), 65280);
}

TEST(Spia, NoveEDentroDieciEBianco) {
    for (const std::size_t dopo : {9U, 10U}) {
        SCOPED_TRACE(dopo);
        // The spy 7 in the draw before 50, then so many draws that it is `dopo` draws old.
        std::vector<std::string> estrazioni(20, "80 81 82 83 84");
        estrazioni.insert(estrazioni.end(), {"7 60 61 62 63", "50 64 65 66 67"});
        estrazioni.insert(estrazioni.end(), dopo - 1, "70 71 72 73 74");
        const Risultato r = esegui(chiedi({50}), di_bari(estrazioni));
        EXPECT_EQ(riga(r, "50"), "50 " + std::to_string(dopo - 1) + " 7 100% 100% " + std::to_string(dopo));
        EXPECT_EQ(colore(r), dopo == 9 ? 65280 : 0xFFFFFF);
    }
}

TEST(Spia, AllInizioUnNumeroContaDueVolte) {
    // 50 comes at the fifth draw: 7 stood twice in the four before it, 3 once.
    const Risultato r =
        esegui(chiedi({50}),
               di_bari({"7 3 1 2 4", "7 60 61 62 63", "64 65 66 67 68", "70 71 72 73 74", "50 5 6 8 9"}));
    EXPECT_EQ(riga(r, "50"), "50 0 7 100% 200% 3");
    // Nine draws after the first of the scope it counts once, and the lowest of the equals is the spy.
    std::vector<std::string> estrazioni(10, "70 71 72 73 74");
    estrazioni[1] = estrazioni[2] = "7 60 61 62 63";
    estrazioni[9] = "50 5 6 8 9";
    EXPECT_EQ(riga(esegui(chiedi({50}), di_bari(estrazioni)), "50"), "50 0 7 100% 100% 7");
}

TEST(Spia, UnNumeroPuoEssereLaSuaSpia) {
    std::vector<std::string> estrazioni(15, "- - - - -");
    estrazioni[11] = estrazioni[12] = estrazioni[13] = "50 - - - -";
    EXPECT_EQ(riga(esegui(chiedi({50}), di_bari(estrazioni)), "50"), "50 1 50 67% 67% 1");
}

TEST(Spia, LePercentualiVannoAlPari) {
    // 7 stands before one of the eight times of 50: 12,5% goes to 12. Of its own two times one is followed.
    std::vector<std::string> estrazioni(120, "- - - - -");
    for (std::size_t k = 0; k < 8; ++k) estrazioni[20 + k * 10] = "50 - - - -";
    estrazioni[25] = "7 - - - -";
    estrazioni[119] = "7 - - - -";
    EXPECT_EQ(riga(esegui(chiedi({50}), di_bari(estrazioni)), "50"), "50 29 7 50% 12% 0");
}

TEST(Spia, ChiNonEPiuSeguitoRestaNelDenominatore) {
    std::vector<std::string> estrazioni(60, "- - - - -");
    estrazioni[20] = "7 - - - -";
    estrazioni[22] = "50 - - - -";
    estrazioni[40] = estrazioni[50] = "7 - - - -";
    EXPECT_EQ(riga(esegui(chiedi({50}), di_bari(estrazioni)), "50"), "50 37 7 33% 100% 9");
}

TEST(Spia, UnNumeroDueVolteInUnaRigaEUnaSortitaSola) {
    std::vector<std::string> estrazioni(20, "- - - - -");
    estrazioni[14] = "7 7 - - -";
    estrazioni[15] = "50 50 - - -";
    // One of 7's two occurrences is a row that 50 follows; before 50's only row it stood once.
    EXPECT_EQ(riga(esegui(chiedi({50}), di_bari(estrazioni)), "50"), "50 4 7 50% 100% 5");
}

TEST(Spia, LeRigheVannoInOrdineDiNumero) {
    const Risultato r = esegui(chiedi({9, 3, 5}), di_bari({"1 2 3 4 5", "9 10 11 12 13"}));
    EXPECT_EQ(r.tabelle[0].testo(0, 0) + r.tabelle[0].testo(1, 0) + r.tabelle[0].testo(2, 0), "359");
}

TEST(Spia, DueRisposteDiventanoUna) {
    const auto archivio = di_bari({"1 2 3 4 5", "2 5 11 40 90", "1 7 8 9 10", "5 6 7 40 41"});
    const Risultato insieme = esegui(chiedi({2, 5, 11, 40, 90}), archivio);
    const Risultato prima = esegui(chiedi({5, 40}), archivio);
    const Risultato altre = esegui(chiedi({2, 11, 90}), archivio);
    EXPECT_EQ(unisci_spie(prima, altre), insieme);
    EXPECT_EQ(unisci_spie(esegui(chiedi({90, 2, 11}), archivio), prima), insieme);
    EXPECT_EQ(unisci_spie({}, prima), prima);
    EXPECT_EQ(unisci_spie(prima, {}), prima);
    EXPECT_EQ(numeri_esaminati(insieme), (std::vector<int>{2, 5, 11, 40, 90}));
    EXPECT_TRUE(numeri_esaminati({}).empty());
}

TEST(Spia, SenzaEstrazioniNonParte) {
    AmbitoRicerca ambito;
    ambito.tratto = {3, 1};
    const Risultato r = esegui(chiedi({5}, ambito), di_bari({"1 2 3 4 5", "9 10 11 12 13", "1 2 3 4 5"}));
    EXPECT_FALSE(r.prodotto);
    EXPECT_TRUE(r.tabelle.empty());
    ASSERT_EQ(r.messaggi.size(), 1U);
    EXPECT_EQ(r.messaggi[0].testo, kNessunaEstrazione);
}

TEST(Spia, AnnullataTieneINumeriEsaminati) {
    struct FinoATre final : Avanzamento {
        bool procedi(std::size_t fatto, std::size_t totale) override {
            EXPECT_EQ(totale, 90U);
            return fatto < 3;
        }
    };
    std::vector<int> tutti(90);
    std::iota(tutti.begin(), tutti.end(), 1);
    FinoATre avanzamento;
    const Domanda d = chiedi(tutti);
    const Risultato r = numeri_spia(di_bari({"1 2 3 4 5"}), d, avanzamento);
    EXPECT_TRUE(r.prodotto);
    EXPECT_EQ(r.tabelle[0].righe(), 3U);
}

TEST(Spia, Opzione) {
    Domanda d = domanda(kChiave);
    EXPECT_EQ(kOpzNumeriSpia.scrivi(d), std::nullopt);
    EXPECT_TRUE(kOpzNumeriSpia.leggi("9, 3,9", d));
    EXPECT_EQ(d.di<ParametriSpia>().numeri, (std::vector<int>{3, 9}));
    EXPECT_EQ(kOpzNumeriSpia.scrivi(d), "3,9");
    EXPECT_TRUE(kOpzNumeriSpia.leggi("TUTTI", d));
    EXPECT_EQ(d.di<ParametriSpia>().numeri.size(), 90U);
    EXPECT_EQ(kOpzNumeriSpia.scrivi(d), "tutti");
    for (const std::string_view errata : {"0", "91", "", "a", "1,tutti", "1;2"})
        EXPECT_FALSE(kOpzNumeriSpia.leggi(errata, d)) << errata;
}

TEST(Spia, UnaRuotaSolaEAlmenoUnNumero) {
    EXPECT_THAT(controlla_spia(domanda(kChiave)).value_or(""), HasSubstr("--numeri"));
    AmbitoRicerca ambito;
    EXPECT_EQ(controlla_spia(chiedi({5}, ambito)), std::nullopt);
    ambito.ruote.clic(3, true);
    EXPECT_THAT(controlla_spia(chiedi({5}, ambito)).value_or(""),
                AllOf(HasSubstr("--ruote"), HasSubstr("Bari, Genova")));
    for (const auto& ruote :
         {SelezioneRuote::tutte(), SelezioneRuote::nazionale(), SelezioneRuote::nessuna()}) {
        ambito.ruote = ruote;
        EXPECT_EQ(controlla_spia(chiedi({5}, ambito)), std::nullopt);
    }
}

// ---- the same, plainly ----

struct Migliore {
    int numero = 0;
    int percento1 = 0;
    int percento2 = 0;
    int ritardo = 0;
};

/// Nearest whole number, ties to the even one; nothing by 0.
std::optional<int> percento(int parte, int intero) {
    if (intero == 0) return std::nullopt;
    const int doppio = 2 * 100 * parte;
    int q = doppio / (2 * intero);
    const int resto = doppio % (2 * intero);
    if (resto > intero || (resto == intero && q % 2 == 1)) ++q;
    return q;
}

bool contiene(const std::optional<Estrazione>& e, int numero) {
    return e && std::count(e->numeri().begin(), e->numeri().end(), numero) > 0;
}

/// The screen's way, cursor in hand: for one number the six candidates, each walked from its every hit.
class Piana {
  public:
    Piana(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito)
        : cursore_{estrazioni_ruote(archivio, ambito)} {
        for (cursore_.primo(); !cursore_.fine(); cursore_.successivo())
            for (const Numero n : cursore_.corrente()->numeri())
                if (n > 0) ++frequenza_90_[n];
        cursore_.primo();
        primo_ = cursore_.corrente()->concorso();
        cursore_.ultimo();
        ultimo_ = cursore_.corrente()->concorso();
    }

    std::string inizializza(int n) {
        std::array<int, 91> conteggio{};
        int uscite = 0;
        int ultimo_numero = 0;
        for (cursore_.primo(); !cursore_.fine(); cursore_.successivo()) {
            if (!contiene(cursore_.corrente(), n)) continue;
            ++uscite;
            ultimo_numero = cursore_.corrente()->concorso();
            conta(conteggio, ultimo_numero - primo_);
        }
        std::array<int, 91> numeri{};
        std::iota(numeri.begin(), numeri.end(), 0);
        for (std::size_t i = 1; i <= 89; ++i)
            for (std::size_t j = i + 1; j <= 90; ++j)
                if (conteggio[i] < conteggio[j]) {
                    std::swap(conteggio[i], conteggio[j]);
                    std::swap(numeri[i], numeri[j]);
                }
        Migliore migliore;
        for (std::size_t p = 1; p <= 6; ++p) lblnum4_Click(numeri[p], n, conteggio[p], uscite, migliore);
        const int ritardo = uscite > 0 ? ultimo_ - ultimo_numero : static_cast<int>(cursore_.conteggio()) - 9;
        return std::to_string(n) + " " + std::to_string(ritardo) + " " + std::to_string(migliore.numero) +
               " " + std::to_string(migliore.percento1) + "% " + std::to_string(migliore.percento2) + "% " +
               std::to_string(migliore.ritardo);
    }

  private:
    /// The cursor stands on a hit and comes back to it.
    void conta(std::array<int, 91>& conteggio, int passati) {
        std::array<bool, 91> visto{};
        const int passi = std::min(passati, 9);
        int indietro = 0;
        for (; indietro < passi; ++indietro) {
            cursore_.precedente();
            if (cursore_.inizio()) {
                cursore_.successivo();
                break;
            }
        }
        for (; indietro > 0; --indietro) {
            for (const Numero x : cursore_.corrente()->numeri()) {
                if (x == 0 || (passati >= 9 && visto[x])) continue;
                ++conteggio[x];
                visto[x] = true;
            }
            cursore_.successivo();
        }
    }

    void lblnum4_Click(int c, int n, int conteggio, int uscite, Migliore& migliore) {
        std::array<int, 201> distanze{};
        int ultima = 0;
        for (cursore_.primo(); !cursore_.fine(); cursore_.successivo()) {
            if (!contiene(cursore_.corrente(), c)) continue;
            ultima = cursore_.corrente()->concorso();
            int passi = 1;
            cursore_.successivo();
            for (; !cursore_.fine() && !contiene(cursore_.corrente(), n); ++passi) cursore_.successivo();
            if (!cursore_.fine() && passi <= 200) ++distanze[static_cast<std::size_t>(passi)];
            cursore_.sposta(-passi);
        }
        const int entro = std::accumulate(distanze.begin() + 1, distanze.begin() + 10, 0);
        const int percento1 = percento(entro, frequenza_90_[static_cast<std::size_t>(c)]).value_or(0);
        const int percento2 = percento(conteggio, uscite).value_or(0);
        if (percento2 > migliore.percento2) migliore = {c, percento1, percento2, ultimo_ - ultima};
    }

    Cursore cursore_;
    std::array<int, 91> frequenza_90_{};
    int primo_ = 0;
    int ultimo_ = 0;
};

TEST(Spia, UgualeAllaSecondaVersione) {
    for (std::uint32_t seme = 1; seme <= 90; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const AmbitoRicerca ambito = ambito_casuale(seme);
        std::vector<int> numeri;
        for (int n = 1 + static_cast<int>(seme % 9); n <= 90; n += 9) numeri.push_back(n);
        const Risultato r = esegui(chiedi(numeri, ambito), archivio);
        if (estrazioni_ruote(archivio, ambito).conteggio() == 0) {
            EXPECT_FALSE(r.prodotto);
            continue;
        }
        Piana piana{archivio, ambito};
        for (const int n : numeri) EXPECT_EQ(riga(r, std::to_string(n)), piana.inizializza(n));
    }
}

}  // namespace
}  // namespace sortimetra
