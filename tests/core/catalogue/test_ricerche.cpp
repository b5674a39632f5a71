#include "catalogue/ricerche.h"
#include "chance/parametri.h"
#include "personal/parametri.h"
#include "positional/parametri.h"
#include "results/scrittori.h"
#include "stores/apertura.h"
#include "support/archivi.h"
#include "systems/parametri.h"
#include "text/testi.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

// ---- the tables that are read ----

/// What a store hands over for these tables.
ArchivioEstrazioni solo(const ArchivioEstrazioni& intero, unsigned tabelle) {
    const TabelleArchivio& da = intero.tabelle();
    TabelleArchivio t;
    if ((tabelle & kTabellaLotto) != 0) t.lotto = da.lotto;
    if ((tabelle & kTabellaNazionale) != 0) t.nazionale = da.nazionale;
    if ((tabelle & kTabellaSuperEnalotto) != 0) t.superenalotto = da.superenalotto;
    if ((tabelle & kTabellaWinForLife) != 0) t.winforlife = da.winforlife;
    if (solo_confini(tabelle)) t.confini = intero.confini_lotto();
    return {std::move(t), intero.drawit(), intero.drawit2()};
}

std::string in_json(const Domanda& domanda, const ArchivioEstrazioni& archivio) {
    std::string testo;
    constexpr std::size_t kPrime = 300;  // of 117,480 terni; all of them hang on the same draws
    scrivi_json(testo, prove::rispondi(domanda, archivio, prove::cartella_dati()), kPrime);
    return testo;
}

/// The questions of a search: as it opens, and with each choice that other tables hang on.
std::vector<Domanda> domande(const Ricerca& ricerca, const AmbitoRicerca& ambito) {
    std::vector<Parametri> parametri(1);
    for (int gioco = 0; ricerca.gioco_scelto != nullptr && gioco < 4; ++gioco) {
        parametri.emplace_back(ParametriStoria{.numeri = {1, 2}, .gioco = gioco});
        ParametriSistemi sistemi;
        sistemi.sistema = gioco;
        parametri.emplace_back(std::move(sistemi));
    }
    parametri.emplace_back(ParametriTabellone{.concorso = 3});
    parametri.emplace_back(ParametriPersonali{.numeri = {1, 2, 3}});
    std::vector<Domanda> tutte;
    for (Parametri& p : parametri) {
        Domanda d = domanda_intatta(ricerca);
        d.ambito = ambito;
        d.parametri = std::move(p);
        tutte.push_back(std::move(d));
    }
    return tutte;
}

TEST(Ricerche, SiLeggonoSoloLeTabelleCheServono) {
    std::size_t senza_lotto = 0;
    for (std::uint32_t seme = 1; seme <= 40; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = prove::archivio_casuale(seme);
        AmbitoRicerca ambito = prove::ambito_casuale(seme);
        // Mostly the whole range, as it is mostly asked for.
        if (seme % 3 != 0) ambito.tratto = {};
        for (const Ricerca& r : ricerche()) {
            if (!r.pronta() || r.famiglia != nullptr) continue;
            SCOPED_TRACE(r.chiave());
            for (const Domanda& d : domande(r, ambito)) {
                const unsigned tabelle = tabelle_lette(d, false);
                if ((tabelle & (kTabellaLotto | kTabellaSuperEnalotto)) == kTabellaSuperEnalotto)
                    ++senza_lotto;
                ASSERT_EQ(in_json(d, solo(archivio, tabelle)), in_json(d, archivio)) << tabelle;
            }
        }
    }
    EXPECT_GT(senza_lotto, 100U);
}

TEST(Ricerche, IlSuperEnalottoVuoleIlLottoSoloPerLeDateDiDentro) {
    const auto tabelle = [](std::string_view chiave, bool con_estremi = false, TrattoConcorsi tratto = {}) {
        Domanda d = domanda_intatta(*trova_ricerca(chiave));
        d.ambito.tratto = tratto;
        return tabelle_lette(d, con_estremi);
    };
    constexpr std::string_view kNovanta = "ritardo e frequenza dei 90 numeri nella sestina superenalotto";
    ASSERT_NE(trova_ricerca(kNovanta), nullptr);
    EXPECT_EQ(tabelle(kNovanta), unsigned{kTabellaSuperEnalotto | kConfiniLotto});
    EXPECT_EQ(tabelle(kNovanta, true), unsigned{kTabellaSuperEnalotto | kTabellaLotto});
    EXPECT_EQ(tabelle(kNovanta, false, {.da = 2}), unsigned{kTabellaSuperEnalotto | kTabellaLotto});
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
