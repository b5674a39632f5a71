#include "chance/caso.h"
#include "chance/per_ruota.h"
#include "chance/risposta_estesa.h"
#include "results/ricerca.h"
#include "results/risultato.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using prove::archivio_casuale;
using prove::domanda;

constexpr std::string_view kNovanta = "ritardo e frequenza dei 90 numeri";

TEST(RispostaEstesa, IlCasoSonoColonneInPiuNellaPrimaTabella) {
    const auto archivio = archivio_casuale(3);
    const Risposta r = prove::rispondi(domanda(kNovanta, {}), archivio);
    const Tabella& prima = r.risultato->tabelle.front();
    const Tabella caso = tabella_caso(prima, *r.percorso);
    const auto estesa = con_caso(r);
    const Tabella& t = estesa->tabelle.front();
    EXPECT_EQ(estesa->tabelle.size(), r.risultato->tabelle.size());
    EXPECT_EQ(estesa->titolo, r.risultato->titolo);
    ASSERT_EQ(t.n_colonne(), 9U);
    EXPECT_EQ(t.titoli.back(),
              (std::vector<std::string>{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico", "Attesa",
                                        "Scarto", "Probabilità", "In tabella", "Record atteso"}));
    ASSERT_EQ(t.righe(), prima.righe());
    constexpr std::size_t kDelCaso[]{1, 2, 4, 5, 6};
    for (std::size_t riga = 0; riga < t.righe(); ++riga) {
        SCOPED_TRACE(riga);
        for (std::size_t c = 0; c < 4; ++c) EXPECT_EQ(t.testo(riga, c), prima.testo(riga, c));
        for (std::size_t c = 0; c < 5; ++c) EXPECT_EQ(t.testo(riga, 4 + c), caso.testo(riga, kDelCaso[c]));
    }
}

TEST(RispostaEstesa, IColoriRestanoSulleLoroCelle) {
    const auto archivio = archivio_casuale(3);
    Risposta r = prove::rispondi(domanda(kNovanta, {}), archivio);
    auto colorato = std::make_shared<Risultato>(*r.risultato);
    Tabella& prima = colorato->tabelle.front();
    prima.sfondi.assign(prima.righe() * prima.n_colonne(), kNessunColore);
    prima.sfondi[5 * prima.n_colonne() + 2] = 255;
    r.risultato = colorato;
    const auto estesa = con_caso(r);
    const Tabella& t = estesa->tabelle.front();
    ASSERT_EQ(t.sfondi.size(), t.righe() * t.n_colonne());
    for (std::size_t riga = 0; riga < t.righe(); ++riga)
        for (std::size_t c = 0; c < t.n_colonne(); ++c)
            EXPECT_EQ(t.sfondi[riga * t.n_colonne() + c], riga == 5 && c == 2 ? 255 : kNessunColore)
                << riga << ' ' << c;
    EXPECT_TRUE(t.primi_piani.empty());
}

TEST(RispostaEstesa, LeRuoteStannoAlPostoDellaPrimaTabella) {
    const auto archivio = archivio_casuale(3);
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::tutte();
    const Risposta r = prove::rispondi(domanda(kNovanta, ambito), archivio);
    SenzaAvanzamento nessuno;
    const Tabella ruote = tabella_ruote(r, archivio, MisuraRuote::frequenza, nessuno);
    const auto estesa = con_ruote(r, ruote);
    ASSERT_EQ(estesa->tabelle.size(), 1U);
    const Tabella& t = estesa->tabelle.front();
    EXPECT_EQ(t.nome, "risultati");
    EXPECT_EQ(t.titoli, ruote.titoli);
    EXPECT_EQ(t.righe(), 90U);
    EXPECT_EQ(t.testo(89, 10), ruote.testo(89, 10));
    EXPECT_EQ(t.eventi.presenti, r.risultato->tabelle.front().eventi.presenti) << "what a row measures";
    EXPECT_EQ(estesa->titolo, r.risultato->titolo);
}

}  // namespace
}  // namespace sortimetra
