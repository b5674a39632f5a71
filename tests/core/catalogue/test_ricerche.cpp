#include "catalogue/ricerche.h"
#include "support/archivi.h"
#include "text/testi.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace sortimetra {
namespace {

TEST(Ricerche, LeChiaviSonoMinuscoleEDistinte) {
    std::set<std::string_view> viste;
    for (const Ricerca& r : ricerche()) {
        EXPECT_EQ(r.chiave(), minuscolo(r.chiave()));
        EXPECT_TRUE(viste.insert(r.chiave()).second) << r.chiave();
        EXPECT_FALSE(r.titolo().empty()) << r.chiave();
    }
}

TEST(Ricerche, SiTrovanoSenzaRiguardoAMaiuscoleAccentiEBianchi) {
    for (const Ricerca& r : ricerche()) EXPECT_EQ(trova_ricerca(r.chiave()), &r);
    ASSERT_NE(trova_ricerca("AMBATA CAPOGIOCO"), nullptr);
    EXPECT_EQ(trova_ricerca("AMBATA CAPOGIOCO"), trova_ricerca("ambata capogioco"));
    EXPECT_EQ(trova_ricerca("i 10 numeri PIÙ in ritardo su ogni ruota"),
              trova_ricerca("I 10 numeri più in ritardo su ogni ruota"));
    EXPECT_EQ(trova_ricerca(""), nullptr);
    EXPECT_EQ(trova_ricerca("  ambata   capogioco "), trova_ricerca("ambata capogioco"));
    EXPECT_EQ(trova_ricerca("i 10 numeri piu in ritardo su ogni ruota"),
              trova_ricerca("I 10 numeri più in ritardo su ogni ruota"));
    EXPECT_EQ(trova_ricerca("ambatacapogioco"), nullptr) << "words stay apart";
}

/// Runs every search that is built over an archive, and looks at what every answer must have.
void ognuna(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito) {
    for (const Ricerca& r : ricerche()) {
        if (!r.pronta()) continue;
        SCOPED_TRACE(r.chiave());
        Domanda domanda = domanda_intatta(r);
        domanda.ambito = ambito;
        const Risposta risposta = prove::rispondi(std::move(domanda), archivio, prove::cartella_dati());
        ASSERT_NE(risposta.risultato, nullptr);
        EXPECT_EQ(&risposta.ricerca(), &r);
        EXPECT_FALSE(risposta.titolo().empty());
        EXPECT_TRUE(risposta.prodotta() || !risposta.risultato->messaggi.empty() ||
                    !risposta.risultato->note.empty())
            << "a refusal says why, in a box or as a remark";
        for (const Tabella& t : risposta.risultato->tabelle)
            for (const Colonna& c : t.colonne) EXPECT_EQ(lunghezza(c), t.righe());
    }
}

TEST(Ricerche, OgniRispostaEIntera) {
    for (const std::uint32_t seme : {1U, 2U, 3U}) {
        SCOPED_TRACE(seme);
        ognuna(prove::archivio_casuale(seme), prove::ambito_casuale(seme));
    }
}

TEST(Ricerche, SenzaEstrazioniNessunaCade) {
    ognuna({}, {});
}

// ---- the lists ----

TEST(Schede, OgniNomeHaLaSuaRicercaUnaVoltaPerElenco) {
    for (const Scheda& s : schede())
        for (const Elenco& e : s.elenchi) {
            std::set<const Ricerca*> viste;
            for (const std::string_view nome : e.voci) {
                EXPECT_NE(trova_ricerca(nome), nullptr) << s.nome << ", " << e.nome << ": " << nome;
                EXPECT_TRUE(viste.insert(trova_ricerca(nome)).second) << e.nome << ": " << nome;
            }
        }
}

TEST(Schede, SoloIlBottoneCheApreSubitoNonHaElenco) {
    const auto gruppi = schede().front().elenchi;
    ASSERT_GT(gruppi.size(), kGruppoTabellaRitardi);
    for (std::size_t g = 0; g < gruppi.size(); ++g)
        EXPECT_EQ(gruppi[g].voci.empty(), g == kGruppoTabellaRitardi) << gruppi[g].nome;
}

}  // namespace
}  // namespace sortimetra
