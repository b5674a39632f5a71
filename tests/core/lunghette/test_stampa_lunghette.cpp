#include "catalogue/rapporti.h"
#include "lunghette/parametri.h"
#include "lunghette/voci.h"
#include "printing/rapporto.h"
#include "support/archivi.h"
#include "support/superficie_registrata.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace sortimetra::prove {
namespace {

constexpr std::string_view kLotto = "lunghette ritardate/frequenti per ambo e terno";

const ArchivioEstrazioni& casuale() {
    static const ArchivioEstrazioni archivio = archivio_casuale(5);
    return archivio;
}

struct Stampato {
    Rapporto rapporto;
    SuperficieRegistrata foglio;

    Stampato(std::string_view chiave, Parametri parametri, AmbitoRicerca ambito = {},
             const ArchivioEstrazioni& archivio = casuale()) {
        Domanda d = domanda(chiave, ambito);
        d.parametri = std::move(parametri);
        rapporto = prepara_rapporto(rispondi(std::move(d), archivio));
        SenzaAvanzamento nessuno;
        EasyPrint stampante{foglio, [](const std::string&, const std::string& t) { FAIL() << t; }};
        EXPECT_TRUE(stampa(stampante, rapporto, {}, nessuno));
    }
    /// The red line of the head.
    [[nodiscard]] std::string titolo() const { return rapporto.titolo; }
    [[nodiscard]] bool dice(std::string_view testo) const { return foglio.trova(testo) != nullptr; }
};

TEST(StampaLunghette, LaPrimaRigaDiceDaDoveSiParte) {
    const auto titolo = [](ParametriLunghette p) { return Stampato{kLotto, std::move(p)}.titolo(); };
    EXPECT_EQ(titolo({}),
              "Ricerca Lunghette più  in  Ritardo  per  Ambo a partire dall'Ambata più in Ritardo");
    EXPECT_EQ(titolo({.ricerca = 2, .opzione = 1}),
              "Ricerca Lunghette più  Frequenti   per  Ambo a partire dall'Ambo più Frequente");
    EXPECT_EQ(titolo({.ricerca = 3, .opzione = 4}),
              "Ricerca Lunghette più  Frequenti   per  Terno a partire dal Terno più Frequente");
    EXPECT_EQ(titolo({.opzione = 3}),
              "Ricerca Lunghette più  in  Ritardo  per  Ambo: Analisi Automatica sui 90 numeri");
    EXPECT_EQ(titolo({.ricerca = 1, .opzione = 2, .numeri = {7, 12}}),
              "Ricerca Lunghette più  in  Ritardo  per  Terno a partire da Numeri Personali: 7 - 12");
}

TEST(StampaLunghette, APuntiLaDidascaliaHaLaSuaPreposizione) {
    constexpr std::string_view kDieci = "calcolo lunghette per punteggio 10elotto";
    EXPECT_EQ((Stampato{kDieci, ParametriLunghette{.ricerca = 5}}.titolo()),
              "Ricerca Lunghette più  in  Ritardo  per  punti 5 a partire dal numero + in ritardo");
    EXPECT_EQ((Stampato{kDieci, ParametriLunghette{.ricerca = 16, .opzione = 1}}.titolo()),
              "Ricerca Lunghette più  Frequenti  per  punti 5 a partire da punti 5 + frequenti");
    const Stampato s{kDieci, ParametriLunghette{.ricerca = 5, .lunghezza = 20, .frequente = true}};
    EXPECT_EQ(s.titolo(),
              "Ricerca Lunghette più  in  Ritardo  per  punti 5: Trova ventina più frequente per punti 5");
    // It ends with the frequency, and says so.
    EXPECT_EQ(s.foglio.testi()[s.foglio.testi().size() - 2].testo.find(
                  "Frequenza per punti 5 della lunghetta ricavata: "),
              0U);
    EXPECT_TRUE(s.dice("Tutte"));
}

TEST(StampaLunghette, QuattroRigheDiCinqueCaselleBluERosse) {
    const Stampato s{kLotto, ParametriLunghette{.ricerca = 2, .lunghezza = 13}};
    // Thirteen boxes, each of four edges and four corners; the score under them without "finora", in italic.
    EXPECT_EQ(s.foglio.archi().size(), 13U * 4);
    std::vector<SuperficieRegistrata::Testo> numeri;
    for (const auto& t : s.foglio.testi())
        if (t.carattere.corpo == 14) numeri.push_back(t);
    ASSERT_EQ(numeri.size(), 13U);
    const auto mezzo = [](const auto& t) { return t.x + t.larghezza / 2; };
    EXPECT_NEAR(mezzo(numeri[1]) - mezzo(numeri[0]), 15, 0.05);
    EXPECT_NEAR(numeri[5].y - numeri[0].y, 15, 0.05);
    EXPECT_EQ(numeri[4].colore, kBlu);
    EXPECT_EQ(numeri[5].colore, kRosso);
    EXPECT_EQ(numeri[10].colore, kBlu);
    bool detto = false;
    for (const auto& t : s.foglio.testi())
        if (t.testo.starts_with("Frequenza per Ambo della lunghetta  ricavata: ")) {
            detto = true;
            EXPECT_TRUE(t.carattere.corsivo);
        }
    EXPECT_TRUE(detto);
}

TEST(StampaLunghette, SoltantoFinoAllaLunghezza) {
    // Ten numbers stand where ten points are asked for; the combo says five.
    const Stampato s{"calcolo lunghette per punteggio",
                     ParametriLunghette{.ricerca = 10, .opzione = 1, .lunghezza = 5}};
    EXPECT_EQ(s.foglio.archi().size(), 5U * 4);
}

TEST(StampaLunghette, RuoteDateEIntervalloStannoInTesta) {
    AmbitoRicerca dieci;
    for (int w = 1; w < kRuote; ++w) dieci.ruote.clic(w, true);
    dieci.intervallo = *trova_intervallo("Anni Pari");
    const Stampato s{kLotto, ParametriLunghette{}, dieci};
    EXPECT_TRUE(s.dice("Tutte"));
    EXPECT_TRUE(s.dice("Anni Pari"));
    AmbitoRicerca due;
    due.ruote.clic(1, true);
    EXPECT_TRUE((Stampato{kLotto, ParametriLunghette{}, due}.dice("Bari, Cagliari")));
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 6 7 8 9 10\n3 BA 1 2 3 4 5\n");
    AmbitoRicerca tratto;
    tratto.tratto = {.da = 2, .a = 9};
    const Stampato datata{kLotto, ParametriLunghette{}, tratto, archivio};
    EXPECT_TRUE(datata.dice("02/01/2000 - 03/01/2000"));
    EXPECT_TRUE(datata.dice("Tutti i Concorsi"));
}

TEST(StampaLunghette, LeScomposteHannoITitoliBrevi) {
    const Stampato s{"calcolo lunghette scomposte", ParametriScomposte{.meta = 0, .ordine = 1}};
    EXPECT_EQ(s.rapporto.pagine, 34);  // 3,003 rows, ninety a page
    for (const char* t : {"Numeri", "Freq.", "Rit.", "Rit. Stor.", "01-02-03-04-05", "11-12-13-14-15"})
        EXPECT_TRUE(s.dice(t)) << t;
    EXPECT_FALSE(s.dice("Frequenza"));
    EXPECT_NE(s.foglio.trova("Pagina 34 di 34", 34), nullptr);
}

}  // namespace
}  // namespace sortimetra::prove
