#include "catalogue/rapporti.h"
#include "printing/rapporto.h"
#include "support/archivi.h"
#include "support/superficie_registrata.h"
#include "systems/parametri.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <string>

namespace sortimetra {
namespace {

using prove::CartellaProva;

/// Some hundred draws of two wheels, of SuperEnalotto and of Win for Life, without pattern.
const ArchivioEstrazioni& archivio() {
    static const ArchivioEstrazioni a = [] {
        std::mt19937 caso{5};
        const auto diversi = [&](std::size_t quanti, int massimo) {
            std::set<int> n;
            while (n.size() < quanti) n.insert(static_cast<int>(caso() % static_cast<unsigned>(massimo)) + 1);
            std::string testo;
            for (const int x : n) testo += " " + std::to_string(x);
            return testo;
        };
        std::string lotto;
        std::string sestine;
        std::string vita;
        for (int c = 1; c <= 300; ++c) {
            const std::string concorso = std::to_string(c);
            for (const char* ruota : {" BA", " CA"}) lotto += concorso + ruota + diversi(5, 90) + "\n";
            sestine += concorso + diversi(6, 90) + " 0 0\n";
            vita += concorso + " 9:00" + diversi(10, 20) + "\n";
        }
        return prove::da_testi(lotto, sestine, vita);
    }();
    return a;
}

/// A report on the recording surface; no text may leave the sheet.
struct Stampato {
    Rapporto rapporto;
    SuperficieRegistrata foglio;

    explicit Stampato(std::string_view chiave, ParametriSistemi p, std::vector<std::uint32_t> ordine = {},
                      const std::filesystem::path& cartella = {}) {
        Domanda d = prove::domanda(chiave);
        d.parametri = std::move(p);
        Risposta risposta = prove::rispondi(std::move(d), archivio(), cartella);
        EXPECT_TRUE(risposta.prodotta());
        risposta.ordine = std::move(ordine);
        rapporto = prepara_rapporto(risposta);
        EasyPrint stampante{foglio, [](const std::string&, const std::string& t) { ADD_FAILURE() << t; }};
        SenzaAvanzamento nessuno;
        EXPECT_TRUE(stampa(stampante, rapporto, {}, nessuno));
        for (const auto& t : foglio.testi()) {
            SCOPED_TRACE(t.testo + ", pagina " + std::to_string(t.pagina));
            EXPECT_GE(t.x, 4.5);
            EXPECT_LE(t.x + t.larghezza, foglio.foglio().larghezza - 4.5);
            EXPECT_LE(t.y, foglio.foglio().altezza - 8);
        }
    }
    /// Texts that begin so.
    [[nodiscard]] std::size_t quante_con(std::string_view inizio) const {
        std::size_t n = 0;
        for (const auto& t : foglio.testi()) n += t.testo.starts_with(inizio) ? 1 : 0;
        return n;
    }
    [[nodiscard]] std::size_t quante(std::string_view testo, int pagina = 0) const {
        std::size_t n = 0;
        for (const auto& t : foglio.testi())
            n += t.testo == testo && (pagina == 0 || t.pagina == pagina) ? 1 : 0;
        return n;
    }
};

constexpr std::string_view kFiltri = "filtri di condizionamento";

ParametriSistemi parametri(int sistema, Statistica statistica) {
    return {.sistema = sistema, .statistica = static_cast<int>(statistica)};
}

TEST(StampaFiltri, LaTestaDiceLaStatisticaELaMisuraDelleCombinazioni) {
    const Stampato s{kFiltri, parametri(1, Statistica::condizioni)};
    EXPECT_EQ(
        s.quante("Filtri di Condizionamento: Simm. - Parall. - Simm.+Parall. - Interr. - Pari - Dettaglio "
                 "Pari",
                 1),
        1U);
    EXPECT_EQ(s.quante("Bari (Terzine)", 1), 1U);
    for (const char* titolo :
         {"Simmetrie", "Paralleli", "Simmetrie + Paralleli", "Interruzioni", "Pari", "Dettaglio Pari"})
        EXPECT_EQ(s.quante(titolo), 1U) << titolo;
    EXPECT_EQ(s.quante("3  CAS  D"), 1U);
    EXPECT_EQ(s.quante_con("Pagina 1 di "), 1U);
    EXPECT_EQ(s.rapporto.orientamento, Orientamento::verticale);
}

TEST(StampaFiltri, TutteLeRigheDiTutteLeGriglie) {
    for (int sistema = 0; sistema < 7; ++sistema)
        for (int statistica = 1; statistica < 7; ++statistica) {
            SCOPED_TRACE(std::to_string(sistema) + " " + std::to_string(statistica));
            ParametriSistemi p = parametri(sistema, static_cast<Statistica>(statistica));
            p.posizioni = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
            Domanda d = prove::domanda(kFiltri);
            d.parametri = p;
            const Risultato r = prove::esegui(d, archivio());
            const Stampato s{kFiltri, p};
            std::multiset<std::string> scritti;
            for (const auto& t : s.foglio.testi()) scritti.insert(t.testo);
            std::multiset<std::string> attesi;
            for (const Tabella& t : r.tabelle)
                for (std::size_t riga = 0; riga < t.righe(); ++riga)
                    for (std::size_t c = 0; c < t.n_colonne(); ++c)
                        if (!t.testo(riga, c).empty()) attesi.insert(t.testo(riga, c));
            for (const std::string& cella : attesi)
                ASSERT_GE(scritti.count(cella), attesi.count(cella)) << cella;
        }
}

TEST(StampaFiltri, PosizioniConLaLegendaInFondo) {
    const Stampato s{kFiltri, parametri(4, Statistica::posizione)};
    EXPECT_EQ(s.rapporto.pagine, 2);
    EXPECT_EQ(s.quante("SuperEnalotto (Sestine)"), 2U);
    for (const char* titolo : {"Posizione 1", "Posizione 6", "Jolly"})
        EXPECT_EQ(s.quante(titolo), 2U) << titolo;
    EXPECT_EQ(s.quante("F = Frequenza", 1), 0U);
    for (const char* voce : {"F = Frequenza", "R = Ritardo", "RS = Ritardo Storico"})
        EXPECT_EQ(s.quante(voce, 2), 1U) << voce;
    EXPECT_EQ(s.quante_con("Pagina 2 di "), 1U);
}

TEST(StampaFiltri, NellOrdineDellaGriglia) {
    std::vector<std::uint32_t> ordine(90);
    for (std::uint32_t i = 0; i < 90; ++i) ordine[i] = 89 - i;
    const Stampato s{kFiltri, parametri(3, Statistica::posizione), ordine};
    const auto* novanta = s.foglio.trova("90", 1);
    const auto* ottanta = s.foglio.trova("80", 1);
    ASSERT_NE(novanta, nullptr);
    ASSERT_NE(ottanta, nullptr);
    EXPECT_LT(novanta->y, ottanta->y);
}

TEST(StampaFiltri, UnSistemaSalvatoHaIlSuoTitoloENienteAmbito) {
    const CartellaProva dove;
    std::filesystem::create_directories(dove.percorso() / "cinquina");
    std::ofstream{dove.percorso() / "cinquina/miosyd.txt"} << "1,2,3,4,5\r\n";
    ParametriSistemi p = parametri(3, Statistica::posizione);
    p.nome = "mio";
    const Stampato s{"statistica relativa ai sistemi realizzati", p, {}, dove.percorso()};
    EXPECT_EQ(s.quante("Statistica Relativa ai Sistemi Realizzati - mio: Posizione", 1), 1U);
    EXPECT_EQ(s.quante("Ruote Esaminate:"), 0U);
    EXPECT_EQ(s.quante("F = Frequenza"), 1U);
    EXPECT_EQ(s.quante("% = Percentuale"), 1U);
    EXPECT_EQ(s.quante("RS = Ritardo Storico"), 0U);
}

TEST(StampaUltimi, InOrizzontaleColSuoTitolo) {
    for (int gioco = 0; gioco < 4; ++gioco) {
        SCOPED_TRACE(gioco);
        ParametriSistemi p;
        p.sistema = gioco;
        if (gioco == 2) p.posizioni = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
        const Stampato s{"ultimi 20 concorsi", p};
        constexpr std::array<std::string_view, 4> kTitoli{
            "Ultimi 20 Concorsi Lotto - 1 - 300", "Ultimi 20 Concorsi SuperEnalotto - 1 - 300",
            "Ultimi 20 Concorsi 10 e Lotto - 1 - 300", "Ultimi 20 Concorsi Win for Life - 1 - 300"};
        EXPECT_EQ(s.rapporto.orientamento, Orientamento::orizzontale);
        EXPECT_EQ(s.quante(kTitoli[static_cast<std::size_t>(gioco)], 1), 1U);
        EXPECT_EQ(s.quante("300", 1), 1U);
        EXPECT_EQ(s.quante("Ripetizione Filtri", 1), 1U);
        EXPECT_EQ(s.quante("Ripetizione Gruppi", 2), 1U);
        EXPECT_EQ(s.quante("Combinazione", 2), 1U);
        EXPECT_EQ(s.quante("Pagina 2 di 2"), 1U);
    }
}

}  // namespace
}  // namespace sortimetra
