#include "lenta.h"
#include "lunghette/lunghetta.h"
#include "lunghette/lunghette.h"
#include "lunghette/misuratore.h"
#include "lunghette/parametri.h"
#include "lunghette/righe_gioco.h"
#include "lunghette/stadi.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace sortimetra::prove {
namespace {

constexpr std::string_view kLotto = "lunghette ritardate/frequenti per ambo e terno";

template <class Testo>
Testo etichetta(const Risultato& r, std::string_view nome) {
    for (const Etichetta& e : r.etichette)
        if (e.nome == nome) return std::get<Testo>(e.testo);
    ADD_FAILURE() << "manca " << nome;
    return {};
}
std::string punteggio(const Risultato& r) {
    return etichetta<std::string>(r, "lblRit_freq");
}
std::vector<std::string> caselle(const Risultato& r) {
    return etichetta<std::vector<std::string>>(r, "lblnum");
}
std::string numeri(const Risultato& r) {
    return r.tabelle.empty() ? "nessuna tabella" : r.tabelle[0].testo(0, 0);
}

Domanda chiedi(ParametriLunghette p, AmbitoRicerca ambito = {}) {
    Domanda d = domanda(kLotto, ambito);
    d.parametri = std::move(p);
    return d;
}

AmbitoRicerca su(SelezioneRuote ruote) {
    AmbitoRicerca ambito;
    ambito.ruote = ruote;
    return ambito;
}
AmbitoRicerca dal_al(Concorso da, Concorso a) {
    AmbitoRicerca ambito;
    ambito.tratto = {.da = da, .a = a};
    return ambito;
}

/// Bari, five draws. The number 90 came in the first alone, the pair 1-2 in all but the last.
constexpr std::string_view kCinque =
    "1 BA 1 2 90 3 4\n"
    "2 BA 1 2 5 6 7\n"
    "3 BA 1 2 8 9 10\n"
    "4 BA 2 1 11 12 13\n"
    "5 BA 14 15 16 17 18\n";

TEST(Lunghette, UnoAUnoAMano) {
    const auto archivio = da_testo(kCinque);
    // 19 is the lowest that never came: delay T = 5, and 1-19 is its lowest ambo. No ambo of a third number
    // with 1 or 19 may have come: 2 to 13 came with 1, so 14. 15 to 18 came with 14, so 20, then 21.
    const Risultato r = esegui(chiedi({.ricerca = 0, .opzione = 0, .lunghezza = 5}), archivio);
    EXPECT_EQ(etichetta<std::vector<std::string>>(r, "lbloption")[0], "19");
    EXPECT_EQ(numeri(r), "01.14.19.20.21");
    EXPECT_EQ(punteggio(r), "5");
}

TEST(Lunghette, LeFrequenzeAMano) {
    const auto archivio = da_testo(kCinque);
    // 1 and 2 came four times each, 1 is the lower; 1-2 came four times. Only two of 14 to 18 together would
    // make a fifth draw, one alone adds none: at each step the lowest number enters.
    for (const int opzione : {0, 1}) {
        SCOPED_TRACE(opzione);
        const Risultato r = esegui(chiedi({.ricerca = 2, .opzione = opzione, .lunghezza = 6}), archivio);
        const auto semi = etichetta<std::vector<std::string>>(r, "lbloption");
        EXPECT_EQ(semi, (opzione == 0 ? std::vector<std::string>{"1", "", ""}
                                      : std::vector<std::string>{"", "1 - 2", ""}));
        EXPECT_EQ(numeri(r), "01.02.03.04.05.06");
        EXPECT_EQ(punteggio(r), "4");
    }
    // For the terno 1-2-3 came once; 5 makes it two draws, being lower than 8 and 11; then 8.
    const Risultato terno = esegui(chiedi({.ricerca = 3, .opzione = 0, .lunghezza = 5}), archivio);
    EXPECT_EQ(numeri(terno), "01.02.03.05.08");
    EXPECT_EQ(punteggio(terno), "3");
}

TEST(Lunghette, SenzaEstrazioniNonFaNulla) {
    const Risultato r = esegui(chiedi({}, dal_al(4, 2)), da_testo(kCinque));
    EXPECT_FALSE(r.prodotto);
    EXPECT_TRUE(r.tabelle.empty());
    EXPECT_TRUE(r.etichette.empty());
    EXPECT_TRUE(r.messaggi.empty());
    EXPECT_FALSE(r.note.empty());
}

TEST(Lunghette, SenzaNumeriPersonaliNonFaNulla) {
    const auto archivio = da_testo(kCinque);
    EXPECT_FALSE(esegui(chiedi({.opzione = 2}), archivio).prodotto);
    EXPECT_FALSE(esegui(chiedi({.opzione = 2, .numeri = {0, 7}}), archivio).prodotto);
    // What repeats ends the boxes.
    const auto ripetuto = esegui(chiedi({.opzione = 2, .lunghezza = 6, .numeri = {5, 5, 7}}), archivio);
    const auto solo = esegui(chiedi({.opzione = 2, .lunghezza = 6, .numeri = {5}}), archivio);
    EXPECT_EQ(ripetuto, solo);
}

TEST(Lunghette, UnSemeUscitoNellUltimoConcorsoAggiungeIPiuAlti) {
    const auto archivio = da_testo(
        "1 BA 1 2 3 4 5\n"
        "2 BA 63 81 7 8 9\n");
    // 63-81 came in the last draw: every triple on it has delay 0, none is chosen, and its place reads 0.
    const auto r = esegui(chiedi({.opzione = 2, .lunghezza = 6, .numeri = {81, 63}}), archivio);
    EXPECT_EQ(numeri(r), "00.63.81.88.89.90");
    EXPECT_EQ(caselle(r)[0], "0");
    EXPECT_EQ(caselle(r)[6], "");
    EXPECT_EQ(punteggio(r), "");
    // A row that shows 0 measures no event.
    EXPECT_EQ(r.tabelle[0].evento(0), std::nullopt);
}

TEST(Lunghette, SenzaRuoteIlTernoERipetutoAZero) {
    const auto archivio = da_testo(kCinque);
    const auto r = esegui(chiedi({.ricerca = 1, .opzione = 4}, su(SelezioneRuote::nessuna())), archivio);
    EXPECT_EQ(etichetta<std::vector<std::string>>(r, "lbloption")[2], "00-00-00");
    EXPECT_EQ(numeri(r), "00.00.00.89.90");
}

TEST(Lunghette, LAutomaticaSenzaVincitoreHaUnaRigaVuota) {
    const auto archivio = da_testo(kCinque);
    // Without a wheel T is 0 and no delay is above it.
    const auto r = esegui(chiedi({.opzione = 3}, su(SelezioneRuote::nessuna())), archivio);
    EXPECT_TRUE(r.prodotto);
    EXPECT_EQ(numeri(r), "");
    EXPECT_EQ(punteggio(r), "0");
    EXPECT_EQ(caselle(r), std::vector<std::string>(20));
}

TEST(Lunghette, SoloLUltimaRigaDelConcorsoSiGuarda) {
    // Two wheels. 1-2 and 3-4 in draw 3 of 5 (T = 5): the delay is 2. The stretch of a score of 2 begins at
    // the last row but two: the second row of draw 4, so that 1-2-3 is not told as hit by draw 3's pairs.
    const auto archivio = da_testo(
        "1 BA 80 81 82 83 84\n1 CA 80 81 82 83 84\n"
        "2 BA 80 81 82 83 84\n2 CA 80 81 82 83 84\n"
        "3 BA 1 2 82 83 84\n3 CA 3 4 82 83 84\n"
        "4 BA 1 3 82 83 84\n4 CA 80 81 82 83 84\n"
        "5 BA 80 81 82 83 84\n5 CA 80 81 82 83 84\n");
    AmbitoRicerca ambito;
    ambito.ruote.clic(1, true);
    auto da_due = std::make_shared<Lunghetta>();
    da_due->caselle[0] = 1;
    da_due->caselle[1] = 2;
    da_due->lunghezza = 2;
    da_due->punteggio = 2;
    // 3 would be hit by 1-3 on the first row of draw 4, which is not looked at: it keeps the score and is the
    // lowest.
    const auto r = esegui(chiedi({.lunghezza = 5, .partenza = da_due}, ambito), archivio);
    EXPECT_EQ(numeri(r).substr(0, 8), "01.02.03");
    EXPECT_EQ(punteggio(r), "2");
}

TEST(Lunghette, AllungareNonRicominciaEAccorciareNonCambia) {
    const auto archivio = da_testo(kCinque);
    std::vector<PassoLunghetta> passi;
    const auto osserva = [&](const PassoLunghetta& p) { passi.push_back(p); };
    const auto cinque = esegui(chiedi({.lunghezza = 5, .a_ogni_passo = osserva}), archivio);
    ASSERT_EQ(passi.size(), 3U);  // the seed and two numbers
    EXPECT_EQ(passi[0].lunghetta.lunghezza, 3);
    EXPECT_EQ(passi[2].lunghetta.lunghezza, 5);
    EXPECT_EQ(passi[2].entrato, 21);
    const auto stato = std::make_shared<const Lunghetta>(passi.back().lunghetta);
    passi.clear();
    const auto lunga = esegui(chiedi({.lunghezza = 9, .partenza = stato, .a_ogni_passo = osserva}), archivio);
    EXPECT_EQ(passi.size(), 4U);
    EXPECT_EQ(lunga, esegui(chiedi({.lunghezza = 9}), archivio));
    EXPECT_EQ(esegui(chiedi({.lunghezza = 5, .partenza = stato}), archivio), cinque);
    const auto lunghissima = std::make_shared<const Lunghetta>(passi.back().lunghetta);
    EXPECT_EQ(esegui(chiedi({.lunghezza = 6, .partenza = lunghissima}), archivio), lunga);
}

/// Stops at the n-th question, once: as a click does.
class Annulla final : public Avanzamento {
  public:
    explicit Annulla(int alla) : mancano_{alla} {}
    bool procedi(std::size_t, std::size_t) override { return --mancano_ != 0; }
    [[nodiscard]] bool annullato() const { return mancano_ <= 0; }

  private:
    int mancano_;
};

TEST(Lunghette, AnnullareFinisceSubitoETieneCioCheCe) {
    const auto archivio = da_testo(kCinque);
    // The frequency step of the fourth number tries 90 candidates; the best so far has its slot already, the
    // list is not sorted and the fifth number never comes.
    std::vector<PassoLunghetta> passi;
    Domanda d = chiedi({.ricerca = 2, .opzione = 2, .lunghezza = 8, .numeri = {90, 2, 1}});
    d.parametri.per<ParametriLunghette>().a_ogni_passo = [&](const PassoLunghetta& p) { passi.push_back(p); };
    Annulla quaranta{40};
    const Risultato r = lunghette_lotto(archivio, d, quaranta);
    EXPECT_TRUE(quaranta.annullato());
    EXPECT_EQ(numeri(r), "90.02.01.03");
    EXPECT_EQ(punteggio(r), "4");
    EXPECT_EQ(passi.size(), 1U);  // the seed
    EXPECT_EQ(passi[0].lunghetta.lunghezza, 3);
}

TEST(Lunghette, NellAutomaticaUnClicFinisceUnSoloNumero) {
    const auto archivio = da_testo(kCinque);
    Annulla subito{1};
    const Risultato r = lunghette_lotto(archivio, chiedi({.opzione = 3, .lunghezza = 6}), subito);
    EXPECT_TRUE(subito.annullato());
    // The growth of 1 stopped at its triple, whose score no later number beats.
    EXPECT_EQ(numeri(r), "01.14.19");
    EXPECT_EQ(punteggio(r), "5");
}

TEST(Lunghette, LOpzioneCheNonEsisteEUsoErrato) {
    const auto perche = [](int ricerca, int opzione) {
        return controlla_lunghette(chiedi({.ricerca = ricerca, .opzione = opzione}));
    };
    for (int ricerca = 0; ricerca < 4; ++ricerca) {
        SCOPED_TRACE(ricerca);
        EXPECT_EQ(perche(ricerca, 0), std::nullopt);
        EXPECT_EQ(perche(ricerca, 2), std::nullopt);
        EXPECT_EQ(perche(ricerca, 1).has_value(), ricerca % 2 != 0);
        EXPECT_EQ(perche(ricerca, 3).has_value(), ricerca != 0);
        EXPECT_EQ(perche(ricerca, 4).has_value(), ricerca % 2 == 0);
    }
}

TEST(Lunghette, LaRigaDiceCheCosaMisura) {
    const auto r = esegui(chiedi({.ricerca = 3, .opzione = 0, .lunghezza = 5}), da_testo(kCinque));
    const auto evento = r.tabelle[0].evento(0);
    ASSERT_TRUE(evento);
    EXPECT_EQ(evento->presenti, 3);
    EXPECT_EQ(evento->quanti, 5);
    EXPECT_EQ(evento->gioco, Gioco::lotto);
}

// ---- against the plain implementation ----

void confronta(const Risultato& r, const LentaLunghetta& lenta) {
    EXPECT_EQ(caselle(r), std::vector<std::string>(lenta.lblnum.begin(), lenta.lblnum.end()));
    EXPECT_EQ(punteggio(r), lenta.lblRit_freq);
    EXPECT_EQ(etichetta<std::vector<std::string>>(r, "lbloption"),
              std::vector<std::string>(lenta.lbloption.begin(), lenta.lbloption.end()));
}

std::vector<int> caselle_casuali(std::mt19937& caso, int massimo, std::size_t quante) {
    std::vector<int> scelte;
    for (std::size_t i = caso() % (quante + 1); i > 0; --i) {
        const int n = static_cast<int>(caso() % static_cast<unsigned>(massimo)) + 1;
        if (std::find(scelte.begin(), scelte.end(), n) != scelte.end()) break;
        scelte.push_back(n);
    }
    return scelte;
}

TEST(Lunghette, ComeLaLenta) {
    constexpr std::array<std::pair<int, int>, 12> kRighe{
        {{0, 0}, {0, 1}, {0, 2}, {1, 0}, {1, 2}, {1, 4}, {2, 0}, {2, 1}, {2, 2}, {3, 0}, {3, 2}, {3, 4}}};
    for (std::uint32_t seme = 1; seme <= 240; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        const auto archivio = archivio_casuale(seme);
        const auto ambito = ambito_casuale(seme);
        const auto [ricerca, opzione] = kRighe[seme % kRighe.size()];
        const int lunghezza = caso() % 8 == 0 ? 20 : 5 + static_cast<int>(caso() % 5);
        auto scelti = caselle_casuali(caso, 90, 3);
        auto lenta = LentaLunghetta::lotto(archivio, ambito);
        const Risultato r =
            esegui(chiedi({.ricerca = ricerca, .opzione = opzione, .lunghezza = lunghezza, .numeri = scelti},
                          ambito),
                   archivio);
        if (lenta.vuota() || !lenta.cerca_lotto(ricerca, opzione, lunghezza, scelti)) {
            EXPECT_FALSE(r.prodotto);
            continue;
        }
        confronta(r, lenta);
    }
}

TEST(Lunghette, LAutomaticaComeLaLenta) {
    int fatte = 0;
    for (std::uint32_t seme = 1; seme <= 60 && fatte < 8; ++seme) {
        const auto archivio = archivio_casuale(seme);
        auto ambito = ambito_casuale(seme);
        auto lenta = LentaLunghetta::lotto(archivio, ambito);
        if (lenta.vuota() || archivio.lotto().concorso.size() > 100) continue;
        SCOPED_TRACE(seme);
        ++fatte;
        lenta.cerca_lotto(0, 3, 6, {});
        confronta(esegui(chiedi({.opzione = 3, .lunghezza = 6}, ambito), archivio), lenta);
    }
    EXPECT_EQ(fatte, 8);
}

// ---- by points ----

struct PuntiTest : ::testing::TestWithParam<Gioco> {
    [[nodiscard]] static std::string_view chiave() {
        return GetParam() == Gioco::win_for_life ? "calcolo lunghette per punteggio"
                                                 : "calcolo lunghette per punteggio 10elotto";
    }
    [[nodiscard]] static Domanda chiedi_punti(ParametriLunghette p, AmbitoRicerca ambito = {}) {
        Domanda d = domanda(chiave(), ambito);
        d.parametri = std::move(p);
        return d;
    }
};

TEST_P(PuntiTest, ComeLaLenta) {
    for (std::uint32_t seme = 1; seme <= 150; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme * 31 + 7};
        const auto archivio = archivio_casuale(seme);
        const auto ambito = ambito_casuale(seme);
        LentaLunghetta::DomandaPunti d{.ricerca = static_cast<int>(caso() % 22),
                                       .opzione = static_cast<int>(caso() % 3),
                                       .lunghezza = caso() % 8 == 0 ? 20 : 5 + static_cast<int>(caso() % 6)};
        d.caselle = caselle_casuali(caso, GetParam() == Gioco::win_for_life ? 20 : 90, 5);
        d.posizione = caso() % 4 == 0;
        d.frequente = caso() % 12 == 0;
        auto lenta = LentaLunghetta::punti(GetParam(), archivio, ambito);
        const Risultato r = esegui(chiedi_punti({.ricerca = d.ricerca,
                                                 .opzione = d.opzione,
                                                 .lunghezza = d.lunghezza,
                                                 .numeri = d.caselle,
                                                 .posizione = d.posizione,
                                                 .frequente = d.frequente},
                                                ambito),
                                   archivio);
        if (lenta.vuota() || !lenta.cerca_punti(d)) {
            EXPECT_FALSE(r.prodotto);
            continue;
        }
        confronta(r, lenta);
        EXPECT_EQ(r.messaggi.size(), d.posizione && !d.frequente && d.lunghezza > 10 ? 1U : 0U);
    }
}

TEST_P(PuntiTest, LaPosizioneSiFermaADieciEVinceLaPiuFrequente) {
    const auto archivio = archivio_casuale(5);
    ASSERT_FALSE(archivio.winforlife().concorso.empty());
    const auto lunga = esegui(chiedi_punti({.ricerca = 14, .lunghezza = 15, .posizione = true}), archivio);
    ASSERT_EQ(lunga.messaggi.size(), 1U);
    EXPECT_EQ(lunga.messaggi[0].testo,
              "Con l'analisi per posizione la lunghetta può essere al massimo di 10 numeri.");
    EXPECT_EQ(lunga.messaggi[0].avviso, Avviso::posizione_dieci);
    const auto dieci = esegui(chiedi_punti({.ricerca = 14, .lunghezza = 10, .posizione = true}), archivio);
    EXPECT_TRUE(dieci.messaggi.empty());
    EXPECT_EQ(numeri(lunga), numeri(dieci));
    const auto tutte =
        esegui(chiedi_punti({.ricerca = 3, .lunghezza = 5, .posizione = true, .frequente = true}), archivio);
    EXPECT_TRUE(tutte.messaggi.empty());
    EXPECT_EQ(tutte, esegui(chiedi_punti({.ricerca = 14, .lunghezza = 20, .frequente = true}), archivio));
}

TEST_P(PuntiTest, ZeroPunti) {
    const auto archivio = archivio_casuale(9);
    const int massimo = GetParam() == Gioco::win_for_life ? 20 : 90;
    // By delay every draw scores, nothing beats 0, the highest free numbers enter; by frequency the lowest.
    const auto ritardo = esegui(chiedi_punti({.ricerca = 0, .opzione = 1, .lunghezza = 5}), archivio);
    std::string attesi;
    for (int n = massimo - 4; n <= massimo; ++n) attesi += (attesi.empty() ? "" : ".") + std::to_string(n);
    EXPECT_EQ(numeri(ritardo), attesi);
    const auto frequenza = esegui(chiedi_punti({.ricerca = 11, .opzione = 1, .lunghezza = 5}), archivio);
    EXPECT_EQ(numeri(frequenza), "01.02.03.04.05");
    // No points, no row that measures an event.
    EXPECT_EQ(frequenza.tabelle[0].evento(0), std::nullopt);
}

TEST_P(PuntiTest, PuntiOltreLaLunghezzaVannoAlPrimoConcorso) {
    const auto archivio = archivio_casuale(5);
    const bool wfl = GetParam() == Gioco::win_for_life;
    const Concorso ultimo = wfl ? archivio.ultimo_concorso_winforlife() : archivio.ultimo_concorso();
    const Concorso primo = wfl ? archivio.winforlife().concorso.front() : archivio.lotto().concorso.front();
    const auto r =
        esegui(chiedi_punti({.ricerca = 9, .opzione = 2, .lunghezza = 5, .numeri = {1, 2}}), archivio);
    EXPECT_EQ(punteggio(r), std::to_string(ultimo - primo));
}

INSTANTIATE_TEST_SUITE_P(Giochi, PuntiTest, ::testing::Values(Gioco::dieci_e_lotto, Gioco::win_for_life),
                         [](const auto& p) {
                             return p.param == Gioco::win_for_life ? "WinForLife" : "DieciELotto";
                         });

TEST(LunghetteAPunti, SiContanoVentiNumeriMaIlRitardoNeGuardaDieci) {
    // Two draws. In the last, 1 to 10 are the ten lowest numbers and 81 to 90 the others.
    const auto archivio = da_testo(
        "1 BA 11 21 31 41 51\n1 CA 12 22 32 42 52\n1 FI 13 23 33 43 53\n1 GE 14 24 34 44 54\n"
        "1 MI 15 25 35 45 55\n1 NA 16 26 36 46 56\n1 PA 17 27 37 47 57\n1 RM 18 28 38 48 58\n"
        "1 TO 19 29 39 49 59\n1 VE 20 30 40 50 60\n"
        "2 BA 1 81 31 41 51\n2 CA 2 82 32 42 52\n2 FI 3 83 33 43 53\n2 GE 4 84 34 44 54\n"
        "2 MI 5 85 35 45 55\n2 NA 6 86 36 46 56\n2 PA 7 87 37 47 57\n2 RM 8 88 38 48 58\n"
        "2 TO 9 89 39 49 59\n2 VE 10 90 40 50 60\n");
    const auto chiedi_tre = [&](int ricerca, std::vector<int> n) {
        Domanda d = domanda("calcolo lunghette per punteggio 10elotto");
        auto stato = std::make_shared<Lunghetta>();
        std::copy(n.begin(), n.end(), stato->caselle.begin());
        stato->lunghezza = 5;
        d.parametri = ParametriLunghette{.ricerca = ricerca, .lunghezza = 5, .partenza = std::move(stato)};
        return punteggio(esegui(d, archivio));
    };
    // Frequency for 5 points: all twenty numbers count. Delay for 5 points: 81 to 85 are not looked at.
    EXPECT_EQ(chiedi_tre(16, {81, 82, 83, 84, 85}), "1");
    EXPECT_EQ(chiedi_tre(5, {81, 82, 83, 84, 85}), "1");
    EXPECT_EQ(chiedi_tre(5, {1, 2, 3, 4, 5}), "0");
    // Exactly so many points, not at least: five are no four.
    EXPECT_EQ(chiedi_tre(15, {1, 2, 3, 4, 5}), "0");
    EXPECT_EQ(chiedi_tre(4, {1, 2, 3, 4, 90}), "0");
}

}  // namespace
}  // namespace sortimetra::prove
