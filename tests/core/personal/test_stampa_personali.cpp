#include "catalogue/rapporti.h"
#include "personal/parametri.h"
#include "personal/stampa_personali.h"
#include "personal/stampa_piramide.h"
#include "support/archivi.h"
#include "support/superficie_registrata.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace sortimetra {
namespace {

using prove::da_testo;

/// A report on paper.
struct Carta {
    SuperficieRegistrata foglio;
    int pagine = 0;

    explicit Carta(const Rapporto& rapporto) : pagine{rapporto.pagine} {
        SenzaAvanzamento nessuno;
        EasyPrint stampante{foglio, [](const std::string&, const std::string& t) { FAIL() << t; }};
        EXPECT_TRUE(stampa(stampante, rapporto, {}, nessuno));
    }
};
Risposta risposta(std::string_view chiave, const ArchivioEstrazioni& archivio, Parametri parametri) {
    Domanda d = prove::domanda(chiave);
    d.parametri = std::move(parametri);
    return prove::rispondi(d, archivio);
}

const auto kTre = "1 BA 5 17 30 40 50\n2 BA 1 2 3 4 6\n3 BA 17 5 71 72 73\n";

TEST(StampaPersonali, TestaGrigliaERiepilogo) {
    const Carta c(prepara_rapporto(
        risposta("ricerche su numeri personali", da_testo(kTre), ParametriPersonali{.numeri = {17, 5}})));
    EXPECT_EQ(c.pagine, 1);
    for (const char* testo :
         {"Ruote: Bari",
          "Concorsi selezionati: dal concorso n. 1 del 01/01/2000 al concorso n. 3 del 03/01/2000",
          "Numeri Selezionati: 5,17", "Num.", "Trovati", "R.Storico", "Ruota + Ritardata", "Quaterna",
          "Pagina 1 di 1"})
        EXPECT_NE(c.foglio.trova(testo), nullptr) << testo;
    EXPECT_EQ(c.foglio.trova("Num.")->carattere.famiglia, "Courier New");
    // Two hits in each of two draws, framed.
    EXPECT_EQ(c.foglio.riquadri().size(), 4U);
    // The measures of the numbers stand beside the first draws.
    EXPECT_NEAR(c.foglio.trova("Concorso")->y, c.foglio.trova("Numero")->y, 0.01);
}

TEST(StampaPersonali, MoltiNumeriEPocheEstrazioni) {
    std::vector<int> tutti;
    for (int n = 1; n <= 90; ++n) tutti.push_back(n);
    const Carta c(prepara_rapporto(
        risposta("ricerche su numeri personali", da_testo(kTre), ParametriPersonali{.numeri = tutti})));
    EXPECT_EQ(c.pagine, 2);
    EXPECT_NE(c.foglio.trova("Cinquina", 2), nullptr);
}

TEST(StampaPersonali, LaSerieDaSola) {
    const Risposta r = risposta("ricerche su numeri personali", da_testo(kTre),
                                ParametriPersonali{.numeri = {30, 71}, .chiusura = true});
    const Carta tutto(prepara_rapporto(r));
    EXPECT_EQ(tutto.pagine, 2);
    const Carta serie(rapporto_serie({*r.risultato, intestazione(r), {}}));
    EXPECT_EQ(serie.pagine, 1);
    EXPECT_NE(serie.foglio.trova("30"), nullptr);
    EXPECT_EQ(serie.foglio.trova("Ruota + Ritardata"), nullptr);
}

TEST(StampaPersonali, LaCombinazioneDiVentiStaInOrizzontale) {
    std::string righe;
    for (int w = 0; w < 10; ++w)
        righe += "1 " + std::string{kNomiRuote[static_cast<std::size_t>(w)].codice} + " " +
                 std::to_string(w * 5 + 1) + " " + std::to_string(w * 5 + 2) + " " +
                 std::to_string(w * 5 + 3) + " 89 90\n";
    const Rapporto r = prepara_rapporto(risposta("ricerche sui numeri personali (10 e lotto)",
                                                 da_testo(righe), ParametriPersonali{.numeri = {1}}));
    EXPECT_EQ(r.orientamento, Orientamento::orizzontale);
    const Carta c(r);
    EXPECT_NE(c.foglio.trova("Comb"), nullptr);
    EXPECT_NE(c.foglio.trova("20 Numeri"), nullptr);
}

TEST(StampaPiramide, IlTriangoloConITitoliSuDueRighe) {
    const Carta c(prepara_rapporto(
        risposta("piramide statistica", da_testo(kTre), ParametriPiramide{.opzione = 0, .numero = 90})));
    for (const char* testo : {"Bari", "01/01/2000 - 03/01/2000", "Tutti i Concorsi", "Terzina per",
                              "Ambo e Terno", "Ottina per Ambo", "Terno e Quaterna",
                              "Piramide generata per ritardo ottenuta a partire dal numero 90"})
        EXPECT_NE(c.foglio.trova(testo), nullptr) << testo;
    const auto testi = c.foglio.testi();
    EXPECT_EQ(std::count_if(testi.begin(), testi.end(), [](const auto& t) { return t.testo == "90"; }), 10);
}

TEST(StampaSchedine, UnaPaginaPerRigaConLeSueCrocette) {
    MaterialeSchedine m{.piramide = {33, 7, 7, 8, 9, 10, 12, 14, 15, 17}, .ruote = {}};
    for (std::size_t r = 0; r < kRighePiramide; ++r) m.poste[r].stampa = r == 2 || r == 4;
    const Carta c(stampa_schedine(m));
    EXPECT_EQ(c.pagine, 2);
    EXPECT_NE(c.foglio.trova("Piramide Statistica", 1), nullptr);
    EXPECT_NE(c.foglio.trova("Terzina", 1), nullptr);
    EXPECT_NE(c.foglio.trova("Cinquina", 2), nullptr);
    EXPECT_NE(c.foglio.trova("Importo: € 2,00", 1), nullptr);
    EXPECT_NE(c.foglio.trova("Importo: € 4,00", 2), nullptr);
    int crocette = 0;
    for (const auto& t : c.foglio.testi()) crocette += t.pagina == 1 && t.testo == "X" ? 1 : 0;
    // 33 and 7 (which stands twice), Bari, one mark for the ambo and one for the terno.
    EXPECT_EQ(crocette, 5);
    const PuntoSchedina sette = m.taratura.numeri[6];
    const auto testi = c.foglio.testi();
    EXPECT_TRUE(std::any_of(testi.begin(), testi.end(), [&](const auto& t) {
        return t.testo == "X" && std::abs(t.x + t.larghezza / 2 - sette.x) < 0.1 &&
               std::abs(t.y - sette.y) < 0.1;
    }));
}

TEST(StampaSchedine, SenzaRigheDaStampare) {
    MaterialeSchedine m;
    for (RigaPoste& r : m.poste) r.stampa = false;
    const Carta c(stampa_schedine(m));
    EXPECT_EQ(c.pagine, 1);
    EXPECT_NE(c.foglio.trova("Nessuna riga della piramide è da stampare."), nullptr);
}

}  // namespace
}  // namespace sortimetra
