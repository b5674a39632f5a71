#include "chance/caso.h"
#include "chance/per_ruota.h"
#include "results/ricerca.h"
#include "statistics/parametri.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

namespace sortimetra {
namespace {

using prove::domanda;

Tabella ruote(const Risposta& risposta, const ArchivioEstrazioni& archivio, MisuraRuote misura) {
    SenzaAvanzamento nessuno;
    return tabella_ruote(risposta, archivio, misura, nessuno);
}

TEST(PerRuota, UnaColonnaPerRuotaScelta) {
    const auto archivio = prove::da_testo(
        "1 BA 90 2 3 4 5\n"
        "1 RM 1 2 3 4 5\n"
        "2 BA 1 2 3 4 5\n"
        "3 BA 1 2 3 4 5\n"
        "3 RM 90 2 3 4 5\n");
    AmbitoRicerca ambito;
    ambito.ruote.clic(7, true);
    ambito.ruote.clic(1, true);
    const auto risposta = prove::rispondi(domanda("ritardo e frequenza dei 90 numeri", ambito), archivio);
    const Tabella ritardi = ruote(risposta, archivio, MisuraRuote::ritardo);
    EXPECT_EQ(ritardi.nome, "ruote");
    EXPECT_EQ(ritardi.titoli, (std::vector<std::vector<std::string>>{{"Numeri", "BA", "CA", "RM"}}));
    // Cagliari has no draw. Rome has two: 90 came in the last.
    EXPECT_EQ(ritardi.testo(89, 0), "90");
    EXPECT_EQ(ritardi.testo(89, 1), "2");
    EXPECT_EQ(ritardi.testo(89, 2), "");
    EXPECT_EQ(ritardi.testo(89, 3), "0");
    EXPECT_EQ(ruote(risposta, archivio, MisuraRuote::frequenza).testo(1, 1), "3");
}

TEST(PerRuota, TutteENazionale) {
    const auto archivio = prove::archivio_casuale(4);
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::tutte();
    const auto tutte = prove::rispondi(domanda("ritardo e frequenza dei 90 numeri", ambito), archivio);
    EXPECT_EQ(ruote(tutte, archivio, MisuraRuote::ritardo).n_colonne(), 11U);
    ambito.ruote = SelezioneRuote::nazionale();
    const auto nz = prove::rispondi(domanda("ritardo e frequenza dei 90 numeri", ambito), archivio);
    ASSERT_TRUE(nz.prodotta());
    EXPECT_EQ(ruote(nz, archivio, MisuraRuote::ritardo).titoli.front().at(1), "NZ");
}

/// Each column is what the search gives on that wheel alone.
TEST(PerRuota, OgniColonnaELaRicercaSuQuellaRuota) {
    constexpr std::array<std::string_view, 4> kChiavi{"ritardo e frequenza dei 90 numeri",
                                                      "ricerche su tutti gli ambi", "cadenze",
                                                      "ritardo e frequenza del primo estratto su ruota"};
    constexpr std::array kMisure{MisuraRuote::ritardo, MisuraRuote::frequenza, MisuraRuote::storico};
    for (std::uint32_t seme = 1; seme <= 20; ++seme) {
        const auto archivio = prove::archivio_casuale(seme);
        for (const std::string_view chiave : kChiavi) {
            SCOPED_TRACE(std::to_string(seme) + " " + std::string{chiave});
            AmbitoRicerca ambito = prove::ambito_casuale(seme);
            const auto risposta = prove::rispondi(domanda(chiave, ambito), archivio);
            if (!risposta.prodotta()) continue;
            ASSERT_TRUE(ha_ruote(risposta.ricerca()));
            const std::size_t quale = seme % 3;
            const Tabella t = ruote(risposta, archivio, kMisure[quale]);
            for (std::size_t c = 1; c < t.n_colonne(); ++c) {
                ambito.ruote = SelezioneRuote::nessuna();
                ambito.ruote.clic(*indice_ruota(t.titoli.front()[c]), true);
                const auto una = prove::rispondi(domanda(chiave, ambito), archivio);
                for (std::size_t r = 0; r < t.righe(); r += 7) {
                    std::string atteso;
                    if (una.prodotta()) {
                        const Tabella& prima = una.risultato->tabelle.front();
                        const auto m = *colonne_misure(prima);
                        const std::array colonne{m.ritardo, m.frequenza, m.storico};
                        atteso = prima.testo(r, colonne[quale]);
                    }
                    EXPECT_EQ(t.testo(r, c), atteso);
                }
            }
        }
    }
}

TEST(PerRuota, SoltantoDoveLeRuoteSiMisurano) {
    EXPECT_TRUE(ha_ruote(*trova_ricerca("ambata capogioco")));
    EXPECT_FALSE(ha_ruote(*trova_ricerca("tabellone posizionale")));
    EXPECT_FALSE(ha_ruote(*trova_ricerca("ritardo e frequenza del numero superstar")));
}

}  // namespace
}  // namespace sortimetra
