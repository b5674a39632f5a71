#include "results/parole.h"
#include "results/risultato.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sortimetra {
namespace {

/// Three numbers of one wheel: the first is away for longer than ever.
Tabella misure() {
    Tabella t;
    t.titoli = {{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}};
    t.colonne = {ColonnaInteri{{67, 12, 5}}, ColonnaInteri{{250, 1, 0}}, ColonnaInteri{{152, 0, 1}},
                 ColonnaInteri{{123, 90, kCellaVuota}}};
    return t;
}

std::string esempio(const Tabella& t, std::size_t colonna, const std::vector<std::uint32_t>& righe = {}) {
    const auto s = spiega(t, colonna, righe);
    return s ? s->esempio : "nessuna";
}

TEST(Parole, IlRitardoStoricoDiceAncheIlRitardoDiOggi) {
    const Tabella t = misure();
    const auto s = spiega(t, 3);
    ASSERT_TRUE(s);
    EXPECT_EQ(s->nome, "Ritardo Storico");
    EXPECT_NE(s->frasi.find("già chiuso"), std::string_view::npos);
    EXPECT_EQ(
        s->esempio,
        "Per esempio 67: la sua attesa più lunga è stata di 123 concorsi; oggi manca da 152 concorsi, di "
        "più, ma quell'attesa non si è ancora chiusa.");
    EXPECT_EQ(esempio(t, 3, {1}),
              "Per esempio 12: la sua attesa più lunga è stata di 90 concorsi; oggi manca da 0 concorsi.");
}

TEST(Parole, LEsempioEDellaPrimaRigaInMostraCheNeHaUno) {
    const Tabella t = misure();
    EXPECT_EQ(esempio(t, 3, {2, 1}),
              "Per esempio 12: la sua attesa più lunga è stata di 90 concorsi; oggi manca da 0 concorsi.");
    EXPECT_EQ(esempio(t, 3, {2}), "");
    EXPECT_EQ(esempio(t, 2), "Per esempio 67: manca da 152 concorsi.");
    EXPECT_EQ(esempio(t, 2, {2, 0}), "Per esempio 5: manca da 1 concorso.");
    EXPECT_EQ(esempio(t, 2, {1}), "Per esempio 12: è uscito nell'ultimo concorso, ritardo 0.");
    EXPECT_EQ(esempio(t, 1), "Per esempio 67: è uscito 250 volte.");
    EXPECT_EQ(esempio(t, 1, {1}), "Per esempio 12: è uscito 1 volta.");
}

TEST(Parole, SenzaRigheLaSpiegazioneRestaSenzaEsempio) {
    Tabella t;
    t.titoli = {{"Numeri", "Frequenza"}};
    t.colonne = {ColonnaInteri{}, ColonnaInteri{}};
    EXPECT_EQ(esempio(t, 1), "");
    EXPECT_EQ(esempio(t, 0), "nessuna");
    EXPECT_EQ(esempio(t, 9), "nessuna");
    EXPECT_EQ(esempio(Tabella{}, 0), "nessuna");
}

TEST(Parole, UnTitoloAbbreviatoEQuelTitolo) {
    for (const auto& [titolo, nome] :
         std::vector<std::pair<std::string_view, std::string_view>>{{"Freq.", "Frequenza"},
                                                                    {"F", "Frequenza"},
                                                                    {"Rit.", "Ritardo"},
                                                                    {"ritardo", "Ritardo"},
                                                                    {"R. S.", "Ritardo Storico"},
                                                                    {"R.Storico", "Ritardo Storico"},
                                                                    {"Rit. Stor.", "Ritardo Storico"},
                                                                    {"RS", "Ritardo Storico"},
                                                                    {"Record atteso", "Record atteso"},
                                                                    {"Probabilità", "Probabilità"},
                                                                    {"%", "Percentuale"},
                                                                    {"Numeri", ""},
                                                                    {"Rit. Num. Spia", ""},
                                                                    {"%1", ""},
                                                                    {"", ""}})
        EXPECT_EQ(misura_del_titolo(titolo), nome) << titolo;
}

TEST(Parole, OgniMisuraSiSpiegaInDueFrasi) {
    for (const std::string_view nome :
         {"Frequenza", "Ritardo", "Ritardo Storico", "Ritardo Medio", "Frequenza del ritardo", "Percentuale",
          "Attesa", "Scarto", "Probabilità", "In tabella", "Record atteso"}) {
        Tabella t;
        t.titoli = {{std::string{nome}}};
        t.colonne = {ColonnaTesti{}};
        const auto s = spiega(t, 0);
        ASSERT_TRUE(s) << nome;
        std::size_t frasi = s->frasi.ends_with('.') ? 1 : 0;
        for (std::size_t i = 0; (i = s->frasi.find(". ", i)) != std::string_view::npos; ++i) ++frasi;
        EXPECT_EQ(frasi, 2U) << nome;
    }
}

TEST(Parole, GliEsempiDelCasoLeggonoLaStessaRiga) {
    Tabella t = misure();
    t.titoli[0].insert(t.titoli[0].end(), {"Attesa", "Scarto", "Probabilità", "In tabella", "Record atteso"});
    t.colonne.insert(t.colonne.end(),
                     {ColonnaTesti{{"258,6", "0,1", ""}}, ColonnaTesti{{"-0,55", "+2,80", ""}},
                      ColonnaTesti{{"0,0169%", "100%", ""}}, ColonnaTesti{{"1,51%", "100%", ""}},
                      ColonnaInteri{{107, 107, kCellaVuota}}});
    EXPECT_EQ(esempio(t, 4), "Per esempio 67: il caso ne darebbe 258,6, sono state 250.");
    EXPECT_EQ(esempio(t, 5), "Per esempio 67: -0,55, meno uscite di quelle attese.");
    EXPECT_EQ(esempio(t, 5, {1}), "Per esempio 12: +2,80, più uscite di quelle attese.");
    EXPECT_EQ(esempio(t, 6), "Per esempio 67: un ritardo di 152 o più si trova nel 0,0169% dei casi.");
    EXPECT_EQ(esempio(t, 8), "Per esempio 67: il caso ne aspetta uno di 107 concorsi; il suo è di 123.");
    EXPECT_EQ(esempio(t, 6, {2}), "");
}

TEST(Parole, UnaMisuraSiTrovaSoltantoDoveEUnaSola) {
    Tabella t = misure();
    EXPECT_EQ(colonna_della_misura(t, "Ritardo Storico"), 3U);
    EXPECT_EQ(colonna_della_misura(t, "Scarto"), std::nullopt);
    t.titoli[0][1] = "R";
    EXPECT_EQ(colonna_della_misura(t, "Ritardo"), std::nullopt);
}

TEST(Parole, UnaCellaSenzaNumeroNonHaValore) {
    Tabella t;
    t.titoli = {{"a", "b"}};
    t.colonne = {ColonnaInteri{{5, kCellaVuota, kCellaPuntini}}, ColonnaTesti{{" 12 ", "...", "1,5"}}};
    EXPECT_EQ(intero_della_cella(t, 0, 0), 5);
    EXPECT_EQ(intero_della_cella(t, 1, 0), std::nullopt);
    EXPECT_EQ(intero_della_cella(t, 2, 0), std::nullopt);
    EXPECT_EQ(intero_della_cella(t, 0, 1), 12);
    EXPECT_EQ(intero_della_cella(t, 1, 1), std::nullopt);
    EXPECT_EQ(intero_della_cella(t, 2, 1), std::nullopt);
}

}  // namespace
}  // namespace sortimetra
