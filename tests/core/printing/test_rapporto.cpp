#include "catalogue/rapporti.h"
#include "catalogue/ricerche.h"
#include "printing/rapporto.h"
#include "statistics/parametri.h"
#include "stores/apertura.h"
#include "stores/importa.h"
#include "support/archivi.h"
#include "support/superficie_registrata.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

constexpr double kDecimo = 0.05;

/// A grid of the three measures whose row r (from 1) reads r, 2r, 3r, 4r.
Risultato griglia(int righe) {
    ColonnaInteri numeri, frequenza, ritardo, storico;
    for (int r = 1; r <= righe; ++r) {
        numeri.valori.push_back(r);
        frequenza.valori.push_back(2 * r);
        ritardo.valori.push_back(3 * r);
        storico.valori.push_back(4 * r);
    }
    Tabella tabella;
    tabella.titoli = {{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}};
    tabella.colonne = {numeri, frequenza, ritardo, storico};
    Risultato r;
    r.tabelle.push_back(std::move(tabella));
    return r;
}

const Intestazione kTesta{.ricerca = "Ritardo e Frequenza dei 90 numeri",
                          .ruote = "Bari",
                          .concorsi = "1 - 4655",
                          .periodo = "Tutti i Concorsi"};

/// A whole report on the recording surface.
struct Stampato {
    SuperficieRegistrata foglio;
    std::vector<std::string> avvisi;
    bool finito = false;

    explicit Stampato(const Rapporto& rapporto, PagineScelte pagine = {}) {
        EasyPrint stampante{foglio,
                            [this](const std::string&, const std::string& t) { avvisi.push_back(t); }};
        SenzaAvanzamento nessuno;
        finito = stampa(stampante, rapporto, pagine, nessuno);
    }

    /// The text centred at (x, y) on a page, "" if there is none.
    [[nodiscard]] std::string in(double x, double y, int pagina = 1) const {
        for (const auto& t : foglio.testi())
            if (t.pagina == pagina && std::abs(t.x + t.larghezza / 2 - x) < kDecimo &&
                std::abs(t.y - y) < kDecimo)
                return t.testo;
        return "";
    }
    /// Whether a box stands there.
    [[nodiscard]] bool riquadro(double x, double y, double w, double h, int spessore, int pagina = 1) const {
        for (const auto& r : foglio.riquadri())
            if (r.pagina == pagina && r.spessore == spessore && std::abs(r.x1 - x) < kDecimo &&
                std::abs(r.y1 - y) < kDecimo && std::abs(r.x2 - x - w) < kDecimo &&
                std::abs(r.y2 - y - h) < kDecimo)
                return true;
        return false;
    }
    [[nodiscard]] std::size_t riquadri(int pagina = 1) const {
        std::size_t n = 0;
        for (const auto& r : foglio.riquadri()) n += r.pagina == pagina ? 1 : 0;
        return n;
    }
};

Stampato stampata(int righe, PagineScelte pagine = {}) {
    const Risultato r = griglia(righe);
    return Stampato{rapporto_griglia({r, kTesta, {}}), pagine};
}

/// Top of the text of row r (from 1) of a block.
double y_riga(int r) {
    return 65 + 4.25 * r;
}

// ---- the head ----

TEST(Intestazione, InVerticale) {
    SuperficieRegistrata foglio;
    EasyPrint p{foglio, {}};
    stampa_intestazione(p, "Ricerca prova", "Bari, Roma", "1 - 10", "Anni Pari");
    ASSERT_EQ(foglio.figure().size(), 1U);
    EXPECT_NEAR(foglio.figure()[0].x, 10, kDecimo);
    EXPECT_NEAR(foglio.figure()[0].y, 5, kDecimo);
    EXPECT_NEAR(foglio.figure()[0].dimensioni.larghezza, 190, kDecimo);
    EXPECT_NEAR(foglio.figure()[0].dimensioni.altezza, 20, kDecimo);
    // 11 points are 4.3 mm high.
    EXPECT_EQ(foglio.pagina_come_testo(1),
              "10.0 30.0 Ricerca:\n"
              "10.0 34.3 Ruote Esaminate:\n"
              "10.0 38.7 Concorsi Esaminati:\n"
              "10.0 43.0 Periodo Esaminato:\n"
              "47.0 30.0 Ricerca prova\n"
              "47.0 34.5 Bari, Roma\n"
              "47.0 38.8 1 - 10\n"
              "47.0 43.2 Anni Pari\n");
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(foglio.testi()[i].carattere, (Carattere{"Arial", 11, i >= 4, false, false})) << i;
        EXPECT_EQ(foglio.testi()[i].colore, i == 4 ? 255 : 0) << i;
    }
    EXPECT_FALSE(p.FontBold());
    EXPECT_EQ(p.FontSize(), 10);
    EXPECT_EQ(p.ForeColor(), 0);
}

TEST(Intestazione, InOrizzontaleIlLogoStaAlCentro) {
    SuperficieRegistrata foglio;
    EasyPrint p{foglio, {}};
    p.Orientation(2);
    stampa_intestazione(p, "Ricerca", "", "", "");
    EXPECT_NEAR(foglio.figure()[0].x, 297.0 / 2 - 95, kDecimo);
    EXPECT_NEAR(foglio.testi()[0].x, 10, kDecimo);
}

TEST(Intestazione, SenzaRicercaIlSoloLogo) {
    SuperficieRegistrata foglio;
    EasyPrint p{foglio, {}};
    stampa_intestazione(p, "", "Bari", "1 - 10", "Anni Pari");
    EXPECT_EQ(foglio.figure().size(), 1U);
    EXPECT_TRUE(foglio.testi().empty());
    EXPECT_EQ(p.FontName(), "Arial");
    EXPECT_EQ(p.FontSize(), 10);
}

TEST(Intestazione, TestiLunghiRitagliati) {
    SuperficieRegistrata foglio;
    EasyPrint p{foglio, {}};
    stampa_intestazione(p, std::string(300, 'M'), "Bari", "", "");
    EXPECT_LE(foglio.testi()[4].larghezza, 160);
    EXPECT_GT(foglio.testi()[4].larghezza, 155);
}

// ---- the grid ----

TEST(Griglia, SenzaRigheIlSoloTitoloDellaPagina) {
    const Stampato s = stampata(0);  // R = 1
    EXPECT_EQ(s.foglio.pagina(), 1);
    EXPECT_EQ(s.riquadri(), 0U);
    EXPECT_EQ(s.foglio.trova("Numeri"), nullptr);
    EXPECT_NE(s.foglio.trova("Pagina 1 di 1"), nullptr);
    EXPECT_TRUE(s.finito);
    EXPECT_TRUE(s.foglio.finito());
}

TEST(Griglia, ColonneLargheFinoA45Righe) {
    for (const int righe : {44, 45}) {  // R = 45 and 46
        SCOPED_TRACE(righe);
        const Stampato s = stampata(righe);
        EXPECT_EQ(s.foglio.pagina(), 1);
        EXPECT_EQ(s.in(37.5, 64.5), "Numeri");
        EXPECT_EQ(s.in(87.5, 64.5), "Frequenza");
        EXPECT_EQ(s.in(132.5, 64.5), "Ritardo");
        EXPECT_EQ(s.in(177.5, 64.5), "Ritardo Storico");
        for (int r = 1; r <= righe; ++r) {
            EXPECT_EQ(s.in(37.5, y_riga(r)), std::to_string(r));
            EXPECT_EQ(s.in(87.5, y_riga(r)), std::to_string(2 * r));
            EXPECT_EQ(s.in(132.5, y_riga(r)), std::to_string(3 * r));
            EXPECT_EQ(s.in(177.5, y_riga(r)), std::to_string(4 * r));
        }
        EXPECT_EQ(s.in(37.5, y_riga(righe + 1)), "");
        for (int r = 2; r <= righe; r += 2) EXPECT_TRUE(s.riquadro(10, 65 + 4.25 * r - 0.25, 190, 4.25, 1));
        for (const double fine : {55.0, 100.0, 145.0, 190.0})
            EXPECT_TRUE(s.riquadro(10, 69, fine, 4.25 * righe, 4));
        EXPECT_EQ(s.riquadri(), static_cast<std::size_t>(righe / 2 + 4));
        EXPECT_NE(s.foglio.trova("Pagina 1 di 1"), nullptr);
    }
}

TEST(Griglia, ColoriEPesi) {
    const Stampato s = stampata(2);
    const auto* numero = s.foglio.trova("1");
    ASSERT_NE(numero, nullptr);
    EXPECT_TRUE(numero->carattere.grassetto);
    EXPECT_EQ(numero->colore, 16711680);
    const auto* storico = s.foglio.trova("8");
    ASSERT_NE(storico, nullptr);
    EXPECT_FALSE(storico->carattere.grassetto);
    EXPECT_EQ(storico->colore, 0);
    const auto* titolo = s.foglio.trova("Ritardo Storico");
    ASSERT_NE(titolo, nullptr);
    EXPECT_TRUE(titolo->carattere.grassetto);
    EXPECT_EQ(titolo->colore, 8388608);
    for (const auto& r : s.foglio.riquadri()) EXPECT_EQ(r.colore, 0);
}

TEST(Griglia, Da46RigheDueBlocchiStretti) {
    const Stampato s = stampata(46);  // R = 47
    EXPECT_EQ(s.foglio.pagina(), 1);
    const double centri[] = {21.25, 43.75, 66.25, 88.75};
    const char* titoli[] = {"Numeri", "Frequenza", "Ritardo", "Rit. Stor."};
    for (int c = 0; c < 4; ++c) {
        EXPECT_EQ(s.in(centri[c], 64.5), titoli[c]);
        EXPECT_EQ(s.in(100 + centri[c], 64.5), titoli[c]);
        EXPECT_EQ(s.in(centri[c], y_riga(45)), std::to_string(45 * (c + 1)));
        EXPECT_EQ(s.in(100 + centri[c], y_riga(1)), std::to_string(46 * (c + 1)));
        EXPECT_EQ(s.in(100 + centri[c], y_riga(2)), "");
    }
    for (const double fine : {22.5, 45.0, 67.5, 90.0}) {
        EXPECT_TRUE(s.riquadro(10, 69, fine, 45 * 4.25, 4));
        EXPECT_TRUE(s.riquadro(110, 69, fine, 4.25, 4));
    }
    EXPECT_TRUE(s.riquadro(10, 65 + 4.25 * 44 - 0.25, 90, 4.25, 1));
    EXPECT_EQ(s.riquadri(), 22U + 4 + 4);
}

TEST(Griglia, NovantaRigheSonoDueBlocchiPieni) {
    const Stampato s = stampata(90);  // R = 91
    EXPECT_EQ(s.foglio.pagina(), 1);
    EXPECT_EQ(s.in(21.25, y_riga(45)), "45");
    EXPECT_EQ(s.in(121.25, y_riga(1)), "46");
    EXPECT_EQ(s.in(121.25, y_riga(45)), "90");
    EXPECT_TRUE(s.riquadro(110, 69, 90, 45 * 4.25, 4));
    EXPECT_EQ(s.riquadri(), 2U * (22 + 4));
}

TEST(Griglia, GliAmbiVannoSuPiuPagine) {
    const Stampato s = stampata(4005);  // R = 4,006: 89 blocks
    EXPECT_EQ(s.foglio.pagina(), 45);
    EXPECT_EQ(s.foglio.figure().size(), 45U);
    EXPECT_EQ(s.in(21.25, y_riga(1), 2), "91");
    EXPECT_EQ(s.in(121.25, y_riga(45), 44), "3960");
    EXPECT_EQ(s.in(21.25, y_riga(45), 45), "4005");
    EXPECT_EQ(s.in(121.25, y_riga(1), 45), "");
    for (int p = 1; p <= 45; ++p) {
        const auto* piede = s.foglio.trova("Pagina " + std::to_string(p) + " di 45", p);
        ASSERT_NE(piede, nullptr) << p;
        EXPECT_NEAR(piede->x + piede->larghezza, 200, kDecimo);
        EXPECT_NEAR(piede->y, 282, kDecimo);
        EXPECT_NE(s.foglio.trova("Ricerca:", p), nullptr);
    }
}

TEST(Griglia, ITerniRiempiono1306Pagine) {
    EXPECT_EQ(pagine_griglia(117480), 1306);  // 2,611 blocks
    EXPECT_EQ(pagine_griglia(0), 1);
    EXPECT_EQ(pagine_griglia(45), 1);
    EXPECT_EQ(pagine_griglia(90), 1);
    EXPECT_EQ(pagine_griglia(91), 2);
}

TEST(Griglia, LeCombinazioniLungheSiStringono) {
    Risultato r = griglia(60);
    ColonnaGruppi gruppi{.quanti = 6, .separatore = '.', .numeri = {}};
    for (int i = 0; i < 60 * 6; ++i) gruppi.numeri.push_back(static_cast<std::uint8_t>(i % 90 + 1));
    r.tabelle[0].colonne[0] = gruppi;
    const Stampato s{rapporto_griglia({r, kTesta, {}})};
    const auto* sestina = s.foglio.trova("01.02.03.04.05.06");
    ASSERT_NE(sestina, nullptr);
    EXPECT_LT(sestina->carattere.corpo, 10);
    EXPECT_GE(sestina->x, 10);
    EXPECT_LE(sestina->x + sestina->larghezza, 32.5);
    EXPECT_NEAR(sestina->x + sestina->larghezza / 2, 21.25, kDecimo);
    EXPECT_EQ(s.foglio.trova("120")->carattere.corpo, 10);
}

TEST(Griglia, ITitoliCortiDelloSchermoSulFoglioSonoInteri) {
    Risultato r = griglia(3);
    r.tabelle[0].titoli = {{"Numeri", "Freq.", "Rit.", "R. S."}};
    const Stampato s{rapporto_griglia({r, kTesta, {}})};
    EXPECT_EQ(s.in(87.5, 64.5), "Frequenza");
    EXPECT_EQ(s.in(177.5, 64.5), "Ritardo Storico");
    EXPECT_EQ(s.in(177.5, y_riga(3)), "12");
    EXPECT_EQ(s.foglio.trova("R. S."), nullptr);
}

TEST(Griglia, NellOrdineDelloSchermo) {
    const Risultato r = griglia(3);
    const std::vector<std::uint32_t> ordine{2, 0, 1};
    const Stampato s{rapporto_griglia({r, kTesta, ordine})};
    EXPECT_EQ(s.in(37.5, y_riga(1)), "3");
    EXPECT_EQ(s.in(37.5, y_riga(2)), "1");
    EXPECT_EQ(s.in(177.5, y_riga(3)), "8");
}

// ---- pages ----

TEST(Pagine, IntervalloScelto) {
    const Stampato s = stampata(4005, {3, 4});
    EXPECT_EQ(s.foglio.pagina(), 2);
    EXPECT_EQ(s.in(21.25, y_riga(1), 1), "181");
    EXPECT_NE(s.foglio.trova("Pagina 3 di 45", 1), nullptr);
    EXPECT_NE(s.foglio.trova("Pagina 4 di 45", 2), nullptr);
}

TEST(Pagine, RestanoNelRapporto) {
    EXPECT_EQ((PagineScelte{}.entro(12)), (PagineScelte{1, 12}));
    EXPECT_EQ((PagineScelte{0, 99}.entro(12)), (PagineScelte{1, 12}));
    EXPECT_EQ((PagineScelte{50, 60}.entro(12)), (PagineScelte{12, 12}));
    EXPECT_EQ((PagineScelte{5, 3}.entro(12)), (PagineScelte{3, 3}));
    EXPECT_EQ((PagineScelte{1, 1}.entro(0)), (PagineScelte{1, 1}));
}

/// Stops after some pages.
class Ferma final : public Avanzamento {
  public:
    bool procedi(std::size_t fatto, std::size_t totale) override {
        totale_ = totale;
        return fatto < 3;
    }
    std::size_t totale_ = 0;
};

TEST(Pagine, AnnullareAbbandonaIlDocumento) {
    const Risultato r = griglia(4005);
    SuperficieRegistrata foglio;
    EasyPrint stampante{foglio, {}};
    Ferma ferma;
    EXPECT_FALSE(stampa(stampante, rapporto_griglia({r, kTesta, {}}), {}, ferma));
    EXPECT_EQ(ferma.totale_, 45U);
    EXPECT_EQ(foglio.pagina(), 3);
    EXPECT_TRUE(foglio.annullato());
    EXPECT_FALSE(foglio.finito());
}

TEST(Parole, DiUnaCombinazione) {
    EXPECT_EQ(parola_combinazione(2), "(Ambi)");
    EXPECT_EQ(parola_combinazione(3), "(Terzine)");
    EXPECT_EQ(parola_combinazione(4), "(Quartine)");
    EXPECT_EQ(parola_combinazione(5), "(Cinquine)");
    EXPECT_EQ(parola_combinazione(6), "(Sestine)");
    EXPECT_EQ(parola_combinazione(10), "(Decine)");
    for (const std::size_t k : {0U, 1U, 7U, 8U, 9U, 11U}) EXPECT_EQ(parola_combinazione(k), "");
}

// ---- the head's texts of a search ----

ArchivioEstrazioni tre_concorsi() {
    return prove::da_testo(
        "1 BA 1 2 3 4 5\n1 CA 6 7 8 9 10\n2 BA 11 12 13 14 15\n2 CA 1 2 3 4 5\n"
        "3 BA 1 2 3 4 5\n3 CA 6 7 8 9 10\n");
}

Intestazione testa_di(std::string_view chiave, const AmbitoRicerca& ambito) {
    const auto archivio = tre_concorsi();
    return intestazione(prove::rispondi(prove::domanda(chiave, ambito), archivio));
}

TEST(TestiTesta, NovantaNumeri) {
    AmbitoRicerca ambito;
    ambito.ruote.clic(1, true);
    ambito.tratto = {1, 99};
    EXPECT_EQ(testa_di("Ritardo e Frequenza dei 90 numeri", ambito),
              (Intestazione{.ricerca = "Ritardo e Frequenza dei 90 numeri",
                            .ruote = "Bari, Cagliari",
                            .concorsi = "1 - 3",
                            .periodo = "Tutti i Concorsi: 01/01/2000 - 03/01/2000",
                            .intervallo = "Tutti i Concorsi",
                            .date = "01/01/2000-03/01/2000"}));
    ambito.ruote = SelezioneRuote::nessuna();
    EXPECT_EQ(testa_di("ritardo e frequenza dei 90 numeri", ambito).ruote, "Bari");
    ambito.ruote = SelezioneRuote::nazionale();
    EXPECT_EQ(testa_di("ritardo e frequenza dei 90 numeri", ambito).ruote, "Nazionale");
}

TEST(TestiTesta, LaParolaDellaCombinazione) {
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::tutte();
    EXPECT_EQ(testa_di("ricerche su tutti gli ambi", ambito).ruote, "Tutte (Ambi)");
    ambito.ruote = {};
    EXPECT_EQ(testa_di("ricerche su tutti gli ambi", ambito).ruote, "Bari (Ambi)");
}

TEST(TestiTesta, ChiNonHaAmbitoHaSoloIlTitolo) {
    EXPECT_EQ(testa_di("tabella dei segnalimite cabalistici", {}),
              (Intestazione{.ricerca = "Tabella dei Segnalimite Cabalistici"}));
}

/// The games with draws of their own say when those were: the range is told by the Lotto's concorsi.
TEST(TestiTesta, IlPeriodoDelleEstrazioniProprie) {
    const auto archivio =
        prove::da_testi("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n3 BA 1 2 3 4 5\n4 BA 1 2 3 4 5\n5 BA 1 2 3 4 5\n",
                        "2 1 2 3 4 5 6 7 8\n3 1 2 3 4 5 6 7 8\n",
                        "1 9:00 1 2 3 4 5 6 7 8 9 10\n2 8:00 1 2 3 4 5 6 7 8 9 10\n"
                        "3 9:00 1 2 3 4 5 6 7 8 9 10\n4 8:00 1 2 3 4 5 6 7 8 9 10\n");
    const auto testa = [&](std::string_view chiave, const AmbitoRicerca& ambito) {
        return intestazione(prove::rispondi(prove::domanda(chiave, ambito), archivio));
    };
    const char* sestina = "ritardo e frequenza dei 90 numeri nella sestina superenalotto";
    EXPECT_EQ(testa(sestina, {}).periodo, "Tutti i Concorsi: 01/01/2000 - 05/01/2000");
    EXPECT_EQ(testa(sestina, {}).nota, "Estrazioni esaminate del SuperEnalotto: 02/01/2000 - 03/01/2000");
    AmbitoRicerca dal_tre;
    dal_tre.tratto.da = 3;
    EXPECT_EQ(testa(sestina, dal_tre).nota,
              "Estrazioni esaminate del SuperEnalotto: 03/01/2000 - 03/01/2000");
    // The hour chosen leaves out the first and the last day.
    AmbitoRicerca alle_otto;
    alle_otto.ora = *trova_ora("8:00");
    const Intestazione wfl =
        testa("ritardo e frequenza dei 20 numeri nella combinazione win for life", alle_otto);
    EXPECT_EQ(wfl.periodo, "ore 8:00: 01/01/2000 - 04/01/2000");
    EXPECT_EQ(wfl.nota, "Estrazioni esaminate del Win for Life: 02/01/2000 - 04/01/2000");
    EXPECT_EQ(testa("ritardo e frequenza dei 90 numeri", {}).nota, "");
    const auto proprio = prove::rispondi(prove::domanda(sestina, dal_tre), archivio).ambito->proprio;
    ASSERT_TRUE(proprio.has_value());
    EXPECT_EQ(proprio->tratto, (TrattoConcorsi{3, 3}));
}

TEST(TestiTesta, LaTabellaDiOgniRuotaTieneLeMaiuscole) {
    const auto archivio = tre_concorsi();
    Domanda d = prove::domanda("decine simmetriche");
    d.parametri.per<ParametriStatistica>().tutte_le_ruote = true;
    EXPECT_EQ(intestazione(prove::rispondi(d, archivio)).ricerca,
              "Decine Simmetriche - Ritardo per ogni ruota");
}

// ---- a simulated archive ----

/// Every sheet of every kind of report says that its draws never took place; none does of real ones.
TEST(Simulato, OgniFoglioLoDice) {
    const prove::CartellaProva cartella;
    SenzaAvanzamento nessuno;
    ASSERT_TRUE(crea_dimostrazione(cartella.percorso(), nessuno));
    const auto finto = apri_archivio(cartella.percorso());
    ASSERT_TRUE(finto);
    for (const char* chiave :
         {"ricerche su tutti gli ambi", "tabellone posizionale", "i 10 numeri più in ritardo su ogni ruota",
          "tabellone migliori ritardi", "tabellone posizionale combinazione win for life",
          "frequenza e ritardo dei 90 numeri per posizione (10 e lotto)"}) {
        SCOPED_TRACE(chiave);
        Risposta risposta = prove::rispondi(prove::domanda(chiave), *finto, prove::cartella_dati());
        const Rapporto rapporto = prepara_rapporto(risposta);
        const Stampato s{rapporto};
        for (int p = 1; p <= rapporto.pagine; ++p) {
            const auto* scritta = s.foglio.trova("Archivio simulato", p);
            ASSERT_NE(scritta, nullptr) << p;
            const Foglio carta = s.foglio.foglio();
            EXPECT_NEAR(scritta->x + scritta->larghezza / 2, carta.larghezza / 2, kDecimo);
            EXPECT_NEAR(scritta->y, carta.altezza - 15, kDecimo);
            EXPECT_EQ(scritta->colore, 255);
        }
        risposta.ambito->simulato = false;
        EXPECT_EQ(Stampato{prepara_rapporto(risposta)}.foglio.trova("Archivio simulato"), nullptr);
    }
}

// ---- other reports ----

TEST(Segnalimite, DueColonneDiQuarantacinque) {
    const auto archivio = tre_concorsi();
    const Risposta r = prove::rispondi(prove::domanda("tabella dei segnalimite cabalistici"), archivio);
    ASSERT_EQ(r.risultato->tabelle.size(), 1U);
    const Stampato s{prepara_rapporto(r)};
    EXPECT_EQ(s.foglio.pagina(), 1);
    EXPECT_NE(s.foglio.trova("Tabella dei Segnalimite Cabalistici"), nullptr);
    EXPECT_EQ(s.foglio.trova("Ricerca:"), nullptr);
    EXPECT_EQ(s.in(21.25, 64.5), "Numeri");
    EXPECT_EQ(s.in(66.25, 64.5), "Segnalimite");
    EXPECT_EQ(s.in(121.25, 64.5), "Numeri");
    EXPECT_EQ(s.in(21.25, y_riga(1)), "1");
    EXPECT_EQ(s.in(66.25, y_riga(1)), "04 - 07 - 70");
    EXPECT_EQ(s.in(21.25, y_riga(45)), "45");
    EXPECT_EQ(s.in(121.25, y_riga(1)), "46");
    EXPECT_EQ(s.in(166.25, y_riga(43)), "04 - 82 - 79");
    EXPECT_EQ(s.in(166.25, y_riga(45)), "06 - 60 - 87");
}

/// A table of another shape: columns of every kind, two title rows, a coloured cell.
Risultato larga(std::size_t colonne, int righe) {
    Tabella t;
    t.titoli.resize(2);
    for (std::size_t c = 0; c < colonne; ++c) {
        t.titoli[0].push_back(c % 3 == 1 ? "Posto " + std::to_string(c / 3 + 1) : "");
        t.titoli[1].push_back(c == 0 ? "Num." : c % 3 == 1 ? "F" : c % 3 == 2 ? "R" : "RS");
        ColonnaInteri valori;
        for (int r = 0; r < righe; ++r) valori.valori.push_back(r * 1000 + static_cast<int>(c));
        t.colonne.emplace_back(std::move(valori));
    }
    t.sfondi.assign(colonne * static_cast<std::size_t>(righe), kNessunColore);
    if (righe > 0) t.sfondi[colonne - 1] = 65535;
    Risultato r;
    r.tabelle.push_back(std::move(t));
    return r;
}

TEST(Tabelle, StretteInVerticale) {
    const Risultato r = larga(7, 50);
    const Rapporto rapporto = rapporto_tabelle({r, kTesta, {}});
    EXPECT_EQ(rapporto.orientamento, Orientamento::verticale);
    EXPECT_EQ(rapporto.pagine, 2);
    const Stampato s{rapporto};
    EXPECT_NE(s.foglio.trova("Posto 1", 1), nullptr);
    EXPECT_NE(s.foglio.trova("49006", 2), nullptr);
    EXPECT_EQ(s.foglio.archi().size(), 4U);  // the coloured cell's frame
    for (const auto& t : s.foglio.testi()) {
        EXPECT_GE(t.x, 9.9) << t.testo;
        EXPECT_LE(t.x + t.larghezza, 207.1) << t.testo;
    }
}

TEST(Tabelle, LarghePrimaInOrizzontalePoiSuPiuFogli) {
    const Risultato media = larga(16, 30);
    EXPECT_EQ(rapporto_tabelle({media, kTesta, {}}).orientamento, Orientamento::orizzontale);
    const Risultato enorme = larga(61, 30);
    const Rapporto rapporto = rapporto_tabelle({enorme, kTesta, {}});
    const Stampato s{rapporto};
    EXPECT_EQ(s.foglio.pagina(), rapporto.pagine);
    EXPECT_GT(rapporto.pagine, 2);
    // Every cell is there, on a lying sheet, and the first column on each.
    for (std::size_t c = 0; c < 61; ++c) EXPECT_NE(s.foglio.trova(std::to_string(29000 + c)), nullptr) << c;
    for (int p = 1; p <= rapporto.pagine; ++p) EXPECT_NE(s.foglio.trova("Num.", p), nullptr) << p;
    for (const auto& t : s.foglio.testi()) {
        EXPECT_GE(t.x, 9.9) << t.testo;
        EXPECT_LE(t.x + t.larghezza, 287.1) << t.testo;
        EXPECT_LE(t.y, 210 - 10) << t.testo;
    }
}

TEST(Tabelle, InOrizzontaleRiempionoIlFoglio) {
    const Stampato s{rapporto_tabelle({larga(16, 30), kTesta, {}})};
    double sinistra = 297;
    double destra = 0;
    for (const auto& r : s.foglio.riquadri()) {
        sinistra = std::min(sinistra, r.x1);
        destra = std::max(destra, r.x2);
    }
    EXPECT_NEAR(sinistra, 10, kDecimo);
    EXPECT_NEAR(destra, 287, kDecimo);
    const auto* cella = s.foglio.trova("1015", 1);
    ASSERT_NE(cella, nullptr);
    EXPECT_EQ(cella->carattere.corpo, 9);
}

TEST(Tabelle, INumeriScrittiComeTestiStannoADestra) {
    Risultato r;
    Tabella t;
    t.titoli = {{"Numeri", "Probabilità", "Quando"}};
    t.colonne = {ColonnaInteri{{1, 2}}, ColonnaTesti{{"5,12%", "0,000169%"}},
                 ColonnaTesti{{"mai", "ogni tanto"}}};
    r.tabelle.push_back(std::move(t));
    const Stampato s{rapporto_tabelle({r, kTesta, {}})};
    const auto cella = [&](const char* testo) {
        const auto* c = s.foglio.trova(testo, 1);
        EXPECT_NE(c, nullptr) << testo;
        return c == nullptr ? SuperficieRegistrata::Testo{} : *c;
    };
    const auto fine = [&](const char* testo) { return cella(testo).x + cella(testo).larghezza; };
    EXPECT_NEAR(fine("5,12%"), fine("0,000169%"), kDecimo);
    EXPECT_NEAR(cella("mai").x, cella("ogni tanto").x, kDecimo);
}

TEST(Tabelle, SenzaTabelleIlMessaggio) {
    const Risultato r = senza_estrazioni();
    const Stampato s{rapporto_griglia({r, kTesta, {}})};
    EXPECT_NE(s.foglio.trova("Non ci sono estrazioni per l'intervallo selezionato"), nullptr);
    EXPECT_TRUE(s.finito);
}

}  // namespace
}  // namespace sortimetra
