#include "catalogue/ricerche.h"
#include "chance/caso.h"
#include "results/ricerca.h"
#include "statistics/parametri.h"
#include "support/archivi.h"
#include "text/numero.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {
namespace {

using prove::da_testo;
using prove::domanda;

constexpr std::string_view kNovanta = "ritardo e frequenza dei 90 numeri";

/// `quanti` draws of five numbers on Bari, number 67 in the first one alone.
ArchivioEstrazioni solo_al_primo(int quanti) {
    std::string testo = "1 BA 67 1 2 3 4\n";
    for (int c = 2; c <= quanti; ++c) testo += std::to_string(c) + " BA 5 1 2 3 4\n";
    return da_testo(testo);
}

TEST(TestiDelCaso, PercentualiDiTreCifre) {
    EXPECT_EQ(testo_percentuale(1), "100%");
    EXPECT_EQ(testo_percentuale(0.154), "15,4%");
    EXPECT_EQ(testo_percentuale(0.000169), "0,0169%");
    EXPECT_EQ(testo_percentuale(0.5), "50,0%");
    EXPECT_EQ(testo_percentuale(0.0999), "9,99%");
    // Half away from zero, and a fourth digit that carries.
    EXPECT_EQ(testo_percentuale(0.03125), "3,13%");
    EXPECT_EQ(testo_percentuale(0.09999), "10,0%");
    EXPECT_EQ(testo_percentuale(0.9999), "100%");
    EXPECT_EQ(testo_percentuale(0.9994), "99,9%");
    EXPECT_EQ(testo_percentuale(0.9995), "100%");
    EXPECT_EQ(testo_percentuale(1.23e-9), "0,000000123%");
    EXPECT_EQ(testo_percentuale(1e-14), "0,00000000000100%");
    EXPECT_EQ(testo_percentuale(1e-200), "<0,000000000001%");
    EXPECT_EQ(testo_percentuale(0), "<0,000000000001%");
}

TEST(TestiDelCaso, LoScartoHaSempreIlSegno) {
    EXPECT_EQ(testo_scarto(1.234), "+1,23");
    EXPECT_EQ(testo_scarto(-0.4), "-0,40");
    EXPECT_EQ(testo_scarto(0), "+0,00");
    EXPECT_EQ(testo_scarto(2.125), "+2,13");
    EXPECT_EQ(testo_scarto(-12.999), "-13,00");
}

TEST(TestiDelCaso, LAttesaArrotondaLeMetaInSu) {
    Evento meta{.gioco = Gioco::win_for_life, .quanti = 1};
    meta.caselle[0] = 7;
    EXPECT_EQ(Legge{meta}.attesa(3), "1,5");
    EXPECT_EQ(Legge{meta}.attesa(5001), "2.500,5");
    // 224 rows of 10eLotto, 63 hits: (63 - 224 * 2/9) / sqrt(224 * 2/9 * 7/9) is 17/8 to the last digit.
    Evento dieci{.gioco = Gioco::dieci_e_lotto, .quanti = 1};
    dieci.caselle[0] = 7;
    EXPECT_EQ(testo_scarto(*Legge{dieci}.scarto(224, 63)), "+2,13");
}

TEST(Caso, LeColonneDiUnaRigaContataAMano) {
    const auto archivio = solo_al_primo(153);
    const auto risposta = prove::rispondi(domanda(kNovanta), archivio);
    ASSERT_TRUE(risposta.percorso);
    EXPECT_EQ(*risposta.percorso, (Percorso{153, 153}));
    const Tabella caso = tabella_caso(risposta.risultato->tabelle.front(), *risposta.percorso);
    EXPECT_EQ(caso.nome, "caso");
    EXPECT_EQ(caso.titoli,
              (std::vector<std::vector<std::string>>{
                  {"Numeri", "Attesa", "Scarto", "Ritardo", "Probabilità", "In tabella", "Record atteso"}}));
    ASSERT_EQ(caso.righe(), 90U);
    // 153 * 5/90 = 8.5; (1 - 8.5) / sqrt(8.5 * 17/18) = -2.647; (17/18)^152; 1 - (1 - that)^90;
    // (ln(8.5) + 0.5772) / ln(18/17) - 1/2 = 47.04.
    EXPECT_EQ(caso.testo(66, 0), "67");
    EXPECT_EQ(caso.testo(66, 1), "8,5");
    EXPECT_EQ(caso.testo(66, 2), "-2,65");
    EXPECT_EQ(caso.testo(66, 3), "152");
    EXPECT_EQ(caso.testo(66, 4), "0,0169%");
    EXPECT_EQ(caso.testo(66, 5), "1,51%");
    EXPECT_EQ(caso.testo(66, 6), "47");
}

TEST(Caso, LaRigaPiuInsolitaSiLeggeAdAltaVoce) {
    // Every number but 67 came within the last 18 draws.
    std::string testo = "1 BA 67 1 2 3 4\n";
    for (int c = 2; c <= 153; ++c) {
        testo += std::to_string(c) + " BA";
        for (int k = 0; k < 5; ++k) {
            const int n = ((c * 5) + k) % 90 + 1;
            testo += " " + std::to_string(n == 67 ? 66 : n);
        }
        testo += "\n";
    }
    const auto risposta = prove::rispondi(domanda(kNovanta), da_testo(testo));
    EXPECT_EQ(frase_insolita(risposta.risultato->tabelle.front(), *risposta.percorso),
              "67 manca da 152 concorsi: succede per caso a uno dei 90 numeri circa una volta su 66.");
}

TEST(Caso, UnRitardoCheCapitaSempreLoDice) {
    const auto risposta = prove::rispondi(domanda(kNovanta), da_testo("1 BA 1 2 3 4 5\n2 BA 6 7 8 9 10\n"));
    EXPECT_EQ(frase_insolita(risposta.risultato->tabelle.front(), *risposta.percorso),
              "11 manca da 2 concorsi: succede per caso quasi sempre a uno dei 90 numeri.");
}

TEST(Caso, UnRitardoSottoZeroNonHaProbabilita) {
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::nessuna();
    const auto risposta = prove::rispondi(domanda(kNovanta, ambito), solo_al_primo(3));
    const Tabella caso = tabella_caso(risposta.risultato->tabelle.front(), *risposta.percorso);
    EXPECT_EQ(caso.testo(66, 3), "-1");
    EXPECT_EQ(caso.testo(66, 4), "");
    EXPECT_EQ(caso.testo(66, 5), "");
    EXPECT_EQ(caso.testo(66, 1), "0,2");
}

TEST(Caso, LeRigheIntatteDiAmboCapogiocoSonoVuote) {
    Domanda d = domanda("ambo capogioco");
    d.parametri.per<ParametriStatistica>().capogioco = {12, 34};
    const auto risposta = prove::rispondi(d, solo_al_primo(20));
    const Tabella& prima = risposta.risultato->tabelle.front();
    const Tabella caso = tabella_caso(prima, *risposta.percorso);
    std::size_t vuote = 0;
    for (std::size_t r = 0; r < prima.righe(); ++r) {
        const bool vuota = caso.testo(r, 1).empty();
        EXPECT_EQ(vuota, !prima.evento(r).has_value());
        for (std::size_t c = 2; c < caso.n_colonne(); ++c) EXPECT_EQ(caso.testo(r, c).empty(), vuota);
        vuote += vuota ? 1 : 0;
    }
    EXPECT_EQ(vuote, 7744U - 88U);
}

TEST(Caso, SiOrdinaPerValoreENonPerTesto) {
    const auto risposta = prove::rispondi(domanda(kNovanta), solo_al_primo(153));
    const Tabella caso = tabella_caso(risposta.risultato->tabelle.front(), *risposta.percorso);
    // The 84 numbers that never came are away for 153 draws, 67 for 152.
    const auto per_probabilita = ordina(caso, 4, Verso::crescente);
    EXPECT_EQ(caso.testo(per_probabilita[0], 3), "153");
    EXPECT_EQ(caso.testo(per_probabilita[84], 3), "152");
    EXPECT_EQ(caso.testo(per_probabilita[85], 3), "0");
    // A certain thing is as certain as another: such rows keep their order, whatever their delays.
    const auto in_tabella = ordina(caso, 5, Verso::decrescente);
    EXPECT_EQ(caso.testo(in_tabella[0], 0), "1");
    EXPECT_EQ(caso.testo(in_tabella[4], 0), "5");
    const auto per_scarto = ordina(caso, 2, Verso::crescente);
    EXPECT_EQ(caso.testo(per_scarto.front(), 2), "-3,00");
    EXPECT_EQ(caso.testo(per_scarto.back(), 2).front(), '+');
}

/// Every search of the table of which the row says so gives events, and no other.
TEST(Caso, LaTabellaDelleRicercheDiceChiMisuraEventi) {
    const auto archivio = prove::archivio_casuale(4);
    for (const Ricerca& r : ricerche()) {
        if (!r.pronta()) continue;
        SCOPED_TRACE(r.chiave());
        Domanda d = domanda_intatta(r);
        auto& p = d.parametri.per<ParametriStatistica>();
        p.capogioco = {12, 34};
        p.numeri = {1, 2, 3, 4};
        const auto risposta = prove::rispondi(d, archivio, prove::cartella_dati());
        if (!risposta.prodotta()) continue;
        EXPECT_EQ(misura_eventi(risposta), r.un_evento);
        EXPECT_EQ(risposta.percorso.has_value(), r.un_evento);
    }
}

// ---- a slow second implementation ----

double scelte(int n, int k) {
    if (k < 0 || k > n) return 0;
    double c = 1;
    for (int i = 1; i <= k; ++i) c = c * (n - k + i) / i;
    return c;
}

/// What one row adds on the average and how much that varies, by the hypergeometric sum.
struct Momenti {
    double p = 0;
    double media = 0;
    double varianza = 0;
};
Momenti momenti(const Evento& e) {
    const Urna u = urna(e.gioco, e.posti);
    Momenti m;
    double quadro = 0;
    for (int x = e.presenti; x <= std::min<int>(e.quanti, u.estratti); ++x) {
        const double p =
            scelte(e.quanti, x) * scelte(u.numeri - e.quanti, u.estratti - x) / scelte(u.numeri, u.estratti);
        const double volte = e.conteggio == Conteggio::una_volta ? 1 : scelte(x, e.presenti);
        m.p += p;
        m.media += p * volte;
        quadro += p * volte * volte;
    }
    m.varianza = quadro - m.media * m.media;
    return m;
}

/// The value that a text tells lies within half a unit of its last digit.
void vicino(const std::string& testo, double atteso) {
    const auto letto = leggi_numero(testo);
    ASSERT_TRUE(letto) << testo;
    EXPECT_NEAR(letto->valore, atteso, 0.5001 * std::pow(10, -letto->decimali) + 1e-9 * std::fabs(atteso))
        << testo;
}

void confronta(const Tabella& prima, Percorso percorso) {
    const Tabella caso = tabella_caso(prima, percorso);
    ASSERT_EQ(caso.righe(), prima.righe());
    const auto colonne = *colonne_misure(prima);
    const auto& frequenze = std::get<ColonnaInteri>(prima.colonne[colonne.frequenza]).valori;
    const auto& ritardi = std::get<ColonnaInteri>(prima.colonne[colonne.ritardo]).valori;
    const double w = percorso.righe_per_concorso();
    double m = 0;
    for (std::size_t r = 0; r < prima.righe(); ++r) m += prima.evento(r) ? 1 : 0;
    for (std::size_t r = 0; r < prima.righe(); r += prima.righe() > 5000 ? 997 : 1) {
        EXPECT_EQ(caso.testo(r, 0), prima.testo(r, 0));
        if (!prima.evento(r)) continue;
        const Momenti e = momenti(*prima.evento(r));
        const auto righe = static_cast<double>(percorso.righe);
        vicino(caso.testo(r, 1), righe * e.media);
        vicino(caso.testo(r, 2), (frequenze[r] - righe * e.media) / std::sqrt(righe * e.varianza));
        EXPECT_EQ(caso.testo(r, 3), std::to_string(ritardi[r]));
        const double q = 1 - std::pow(1 - e.p, w);
        const double record = (std::log(percorso.concorsi * q) + 0.5772) / -std::log(1 - q) - 0.5;
        EXPECT_NEAR(std::stod(caso.testo(r, 6)), std::max(0.0, record), 0.501);
        if (ritardi[r] < 0) {
            EXPECT_EQ(caso.testo(r, 4), "");
            continue;
        }
        const double p = std::pow(1 - e.p, w * ritardi[r]);
        if (p < 1e-12) continue;
        vicino(caso.testo(r, 4), p * 100);
        vicino(caso.testo(r, 5), (1 - std::pow(1 - p, m)) * 100);
    }
}

TEST(Caso, VaDAccordoConLaSommaLentaSuArchiviCasuali) {
    constexpr std::array<std::string_view, 12> kChiavi{
        "ritardo e frequenza dei 90 numeri",
        "ritardo e frequenza del primo estratto su ruota",
        "ritardo e frequenza del numero superstar",
        "ritardo e frequenza dei 90 numeri nella sestina superenalotto",
        "ritardo e frequenza dei 90 numeri nella combinazione 10 e lotto",
        "ritardo e frequenza dei 20 numeri nella combinazione win for life",
        "ricerche su tutti gli ambi",
        "ricerche su tutti i terni",
        "ricerche su tutti gli ambi (nella sestina superenalotto)",
        "ambata capogioco",
        "decine",
        "cadenze"};
    for (std::uint32_t seme = 1; seme <= 20; ++seme) {
        const auto archivio = prove::archivio_casuale(seme);
        for (const std::string_view chiave : kChiavi) {
            SCOPED_TRACE(std::to_string(seme) + " " + std::string{chiave});
            Domanda d = domanda(chiave, prove::ambito_casuale(seme));
            auto& p = d.parametri.per<ParametriStatistica>();
            p.capogioco = {12};
            p.tipo = static_cast<int>(seme % 2);
            const auto risposta = prove::rispondi(d, archivio);
            if (!risposta.prodotta() || risposta.percorso->righe == 0) continue;
            confronta(risposta.risultato->tabelle.front(), *risposta.percorso);
        }
    }
}

// ---- simulated draws ----

/// A row of the Lotto from a fair urn.
class UrnaSimulata {
  public:
    explicit UrnaSimulata(std::uint32_t seme) : caso_{seme} {}
    std::array<bool, 91> riga() {
        std::array<bool, 91> uscito{};
        for (int presi = 0; presi < 5;) {
            const auto n = 1 + caso_() % 90;
            if (uscito[n]) continue;
            uscito[n] = true;
            ++presi;
        }
        return uscito;
    }

  private:
    std::mt19937 caso_;
};

/// A million rows: frequencies fall within five standard deviations of what the law expects (one such test in
/// 1.7 million would fail by chance; the seed is fixed), and so does the share of long waits.
TEST(Caso, UnMilioneDiEstrazioniSimulateDaRagioneAllaLegge) {
    constexpr int kRighe = 1'000'000;
    constexpr std::int32_t kAttesa = 40;
    struct Provato {
        Evento evento{};
        std::int64_t frequenza = 0;
        int ultimo = -1;
        std::int64_t lunghi = 0;
        std::int64_t attese = 0;
    };
    std::array<Provato, 4> provati;
    const auto evento = [](std::initializer_list<int> numeri, int presenti) {
        Evento e{.presenti = static_cast<std::uint8_t>(presenti)};
        for (const int n : numeri) e.caselle[e.quanti++] = static_cast<Numero>(n);
        return e;
    };
    provati[0].evento = evento({67}, 1);
    provati[1].evento = evento({1, 2}, 2);
    provati[2].evento = evento({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, 2);
    provati[3].evento = evento({1, 2, 3}, 2);
    provati[3].evento.conteggio = Conteggio::ogni_combinazione;
    UrnaSimulata urna{20261122};
    for (int r = 0; r < kRighe; ++r) {
        const auto uscito = urna.riga();
        for (Provato& p : provati) {
            int presenti = 0;
            for (const Numero n : p.evento.numeri()) presenti += uscito[n] ? 1 : 0;
            if (presenti < p.evento.presenti) continue;
            p.frequenza += p.evento.conteggio == Conteggio::ogni_combinazione && presenti == 3 ? 3 : 1;
            ++p.attese;
            p.lunghi += r - p.ultimo - 1 >= kAttesa ? 1 : 0;
            p.ultimo = r;
        }
    }
    for (const Provato& p : provati) {
        const Legge legge{p.evento};
        const double scarto = *legge.scarto(kRighe, p.frequenza);
        EXPECT_LT(std::fabs(scarto), 5) << p.frequenza;
        const double lungo = legge.probabilita({kRighe, kRighe}, kAttesa);
        const auto attese = static_cast<double>(p.attese);
        EXPECT_NEAR(static_cast<double>(p.lunghi) / attese, lungo,
                    5 * std::sqrt(lungo * (1 - lungo) / attese));
    }
}

/// The greatest of the closed waits of 90 numbers over 4,655 draws of ten simulated wheels: their mean lies
/// close to 107. The greatest of about 259 waits spreads by 1.28 / -ln(1 - p) = 22, so the mean of 900 by
/// 0.75; beyond it the formula itself is an approximation by less than one draw.
TEST(Caso, IlRecordAttesoEVicinoAllaMediaDelleRuoteSimulate) {
    constexpr int kConcorsi = 4655;
    constexpr int kRuoteSimulate = 10;
    UrnaSimulata urna{67};
    double somma = 0;
    for (int ruota = 0; ruota < kRuoteSimulate; ++ruota) {
        std::array<int, 91> ultimo{};
        std::array<int, 91> record{};
        ultimo.fill(-1);
        for (int c = 0; c < kConcorsi; ++c) {
            const auto uscito = urna.riga();
            for (std::size_t n = 1; n <= 90; ++n) {
                if (!uscito[n]) continue;
                record[n] = std::max(record[n], c - ultimo[n] - 1);
                ultimo[n] = c;
            }
        }
        for (std::size_t n = 1; n <= 90; ++n) somma += record[n];
    }
    Evento uno{.quanti = 1};
    uno.caselle[0] = 67;
    EXPECT_NEAR(somma / (90 * kRuoteSimulate), Legge{uno}.record_atteso({kConcorsi, kConcorsi}),
                5 * 0.75 + 1);
}

/// On the real wheels the mean record of the 90 numbers lies near what chance gives: within five standard
/// deviations of a mean of 90 (22 / sqrt(90)) and one draw for the approximation.
TEST(Caso, SulleEstrazioniVereIlRecordMedioEQuelloAtteso) {
    const ArchivioEstrazioni* archivio = prove::archivio_vero();
    if (archivio == nullptr) GTEST_SKIP() << "no real draws here";
    for (int ruota = 0; ruota < kRuote; ++ruota) {
        SCOPED_TRACE(ruota);
        AmbitoRicerca ambito;
        ambito.ruote = SelezioneRuote::nessuna();
        ambito.ruote.clic(ruota, true);
        const auto risposta = prove::rispondi(domanda(kNovanta, ambito), *archivio);
        const Tabella& prima = risposta.risultato->tabelle.front();
        double somma = 0;
        for (const std::int32_t s : std::get<ColonnaInteri>(prima.colonne[3]).valori) somma += s;
        EXPECT_NEAR(somma / 90, Legge{*prima.evento(0)}.record_atteso(*risposta.percorso),
                    5 * 22 / std::sqrt(90.0) + 1);
    }
}

// ---- chi-squared ----

Tabella novanta(const std::array<std::int32_t, 90>& frequenze, Posti posti = kOgniPosto) {
    Tabella t;
    t.titoli = {{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}};
    ColonnaInteri numeri;
    ColonnaInteri volte;
    for (std::size_t n = 0; n < 90; ++n) {
        numeri.valori.push_back(static_cast<std::int32_t>(n + 1));
        volte.valori.push_back(frequenze[n]);
    }
    const ColonnaInteri zeri{std::vector<std::int32_t>(90)};
    t.colonne = {numeri, volte, zeri, zeri};
    t.eventi = {.presenti = 1, .posti = posti};
    return t;
}

TEST(ChiQuadro, FrequenzeTutteUgualiSonoTroppoUguali) {
    std::array<std::int32_t, 90> frequenze{};
    frequenze.fill(100);
    EXPECT_DOUBLE_EQ(*p_chi_quadro(novanta(frequenze)), 1);
    EXPECT_EQ(frase_chi_quadro(novanta(frequenze)),
              "frequenze così uguali capitano per caso circa una volta su mille miliardi (p > 0,9999)");
}

TEST(ChiQuadro, LaStatisticaTieneContoCheINumeriNonSiRimettono) {
    // Half of the numbers at 110, half at 90: the plain sum is 90, with the first place alone that is the
    // statistic, and for five places it is 90 * 89 / 85 = 94.24.
    std::array<std::int32_t, 90> frequenze{};
    for (std::size_t n = 0; n < 90; ++n) frequenze[n] = n % 2 == 0 ? 110 : 90;
    EXPECT_NEAR(*p_chi_quadro(novanta(frequenze, 1)), 0.4504, 0.00005);
    EXPECT_NEAR(*p_chi_quadro(novanta(frequenze)), 0.3319, 0.00005);
    EXPECT_EQ(frase_chi_quadro(novanta(frequenze)), "le frequenze sono quelle del caso (p = 0,33)");
}

TEST(ChiQuadro, FrequenzeTroppoDiverseLoDicono) {
    std::array<std::int32_t, 90> frequenze{};
    for (std::size_t n = 0; n < 90; ++n) frequenze[n] = n % 2 == 0 ? 130 : 70;
    EXPECT_EQ(frase_chi_quadro(novanta(frequenze)),
              "frequenze così diverse capitano per caso circa una volta su mille miliardi (p < 0,0001)");
    // 37 more or less than 1,000: 90 * 37^2 / 1000 * 89/85 = 129.0 with 89 degrees of freedom.
    for (std::size_t n = 0; n < 90; ++n) frequenze[n] = n % 2 == 0 ? 1037 : 963;
    EXPECT_EQ(frase_chi_quadro(novanta(frequenze)),
              "frequenze così diverse capitano per caso circa una volta su 278 (p = 0,0036)");
}

TEST(ChiQuadro, ValeSoltantoPerTuttiINumeriDiUnGioco) {
    const auto archivio = prove::archivio_casuale(4);
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::tutte();
    EXPECT_FALSE(p_chi_quadro(
        prove::rispondi(domanda("ricerche su tutti gli ambi", ambito), archivio).risultato->tabelle.front()));
    EXPECT_TRUE(
        p_chi_quadro(prove::rispondi(domanda(kNovanta, ambito), archivio).risultato->tabelle.front()));
}

/// Of fair draws the p-value is as often in one part of 0 to 1 as in another: its mean over 400 archives of
/// 300 draws lies within five standard deviations (1 / sqrt(12 * 400)) of a half. Without the factor of
/// numbers that are not put back it would lie at 0.61.
TEST(ChiQuadro, DiEstrazioniOnesteIlValorePEUniforme) {
    UrnaSimulata urna{90};
    double somma = 0;
    constexpr int kArchivi = 400;
    for (int a = 0; a < kArchivi; ++a) {
        std::array<std::int32_t, 90> frequenze{};
        for (int c = 0; c < 300; ++c) {
            const auto uscito = urna.riga();
            for (std::size_t n = 1; n <= 90; ++n) frequenze[n - 1] += uscito[n] ? 1 : 0;
        }
        somma += *p_chi_quadro(novanta(frequenze));
    }
    EXPECT_NEAR(somma / kArchivi, 0.5, 5 / std::sqrt(12.0 * kArchivi));
}

}  // namespace
}  // namespace sortimetra
