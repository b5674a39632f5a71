#include "files/file_sicuro.h"
#include "statistics/cinquine_dei_90.h"
#include "statistics/famiglie.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <utility>

namespace sortimetra {
namespace {

SerieCorrente serie(std::string_view chiave) {
    const Famiglia* f = prove::famiglia(chiave);
    return f == nullptr ? SerieCorrente{} : prove::serie(*f);
}

/// Member `i` (from 1) with its numbers in their order.
std::string membro(const SerieCorrente& s, std::size_t i) {
    std::string testo;
    for (const Numero n : s.membro(i - 1)) testo += (testo.empty() ? "" : " ") + std::to_string(n);
    return testo;
}

struct Attesa {
    std::string_view chiave;
    std::size_t righe;
    std::size_t colonne;
    std::string_view primo;
    std::string_view ultimo;
};

TEST(Famiglie, GrandezzaPrimoEUltimoMembro) {
    constexpr std::array kAttese{
        Attesa{"ambi vertibili", 28, 2, "12 21", "78 87"},
        Attesa{"ambi complementari", 44, 2, "1 89", "44 46"},
        Attesa{"ambi simmetrici", 45, 2, "1 90", "45 46"},
        Attesa{"ambi a distanza 45", 45, 2, "1 46", "45 90"},
        Attesa{"ambi consecutivi", 89, 2, "1 2", "89 90"},
        Attesa{"ambi dadologici", 45, 2, "1 6", "87 88"},
        Attesa{"ambi somma(11)", 45, 2, "1 10", "50 51"},
        Attesa{"ambi fabarri", 45, 2, "3 4", "72 77"},
        Attesa{"terzine consecutive", 88, 3, "1 2 3", "88 89 90"},
        Attesa{"terzine correlative simmetriche", 15, 3, "1 9 81", "54 63 64"},
        Attesa{"terzine distanza 30", 30, 3, "1 31 61", "30 60 90"},
        Attesa{"terzine a coesione matematica", 45, 3, "1 2 90", "45 90 46"},
        Attesa{"terzine fabarri", 34, 3, "3 4 9", "13 87 90"},
        Attesa{"terzine di gemelli", 8, 3, "11 22 33", "88 11 22"},
        Attesa{"grattacielo dei 90", 22, 4, "1 45 46 90", "22 24 67 69"},
        Attesa{"quartine con numeri doppi", 11, 4, "1 2 4 8", "11 22 44 88"},
        Attesa{"quartine con numeri triplicati", 8, 4, "1 3 9 27", "8 24 36 72"},
        Attesa{"cinquine dei 90", 436, 5, "1 2 3 4 5", ""},
        Attesa{"cinquine classiche", 28, 5, "12 21 11 22 58", "78 87 77 88 16"},
        Attesa{"cinquine a coesione", 22, 5, "1 45 46 90 2", "22 24 67 69 44"},
        Attesa{"cinquine consecutive", 22, 5, "1 2 3 4 5", "85 86 87 88 89"},
        Attesa{"cinquine correlative", 8, 5, "1 11 2 10 19", "8 88 7 80 89"},
        Attesa{"cinquine dispari", 9, 5, "1 3 5 7 9", "81 83 85 87 89"},
        Attesa{"cinquine pari", 9, 5, "2 4 6 8 10", "82 84 86 88 90"},
        Attesa{"cinquine pentagonali", 18, 5, "1 19 37 55 73", "18 36 54 72 90"},
        Attesa{"cinquine sun", 18, 5, "1 2 3 4 5", "86 87 88 89 90"},
        Attesa{"sestine tricifriche", 6, 6, "1 2 3 11 22 33", "6 7 8 66 77 88"},
        Attesa{"sestine di cifra composta", 6, 6, "12 23 34 13 24 35", "64 75 86 65 76 87"},
        Attesa{"sestine circolari", 15, 6, "1 2 3 4 5 6", "85 86 87 88 89 90"},
        Attesa{"sestine consecutive", 18, 6, "1 2 3 4 5 6", "1 86 87 88 89 90"},
        Attesa{"sestine esagonali", 15, 6, "1 16 31 46 61 76", "15 30 45 60 75 90"},
        Attesa{"sestine passo multiplo", 15, 6, "1 2 3 4 5 6", "15 30 45 60 75 90"},
        Attesa{"sestine somma 273", 15, 6, "1 30 31 60 61 90", "15 16 45 46 75 76"},
        Attesa{"settine renard", 28, 7, "1 2 3 11 12 21 22", "7 8 15 77 78 87 88"},
        Attesa{"decine", 9, 10, "90 1 2 3 4 5 6 7 8 9", "80 81 82 83 84 85 86 87 88 89"},
        Attesa{"decine simmetriche", 9, 10, "1 3 22 24 45 46 67 69 88 90", "11 13 14 32 35 56 59 77 78 80"},
        Attesa{"controfigure", 10, 9, "1 12 23 34 45 56 67 78 89", "10 21 32 43 54 65 76 87 88"},
        Attesa{"cadenze", 10, 9, "1 11 21 31 41 51 61 71 81", "10 20 30 40 50 60 70 80 90"},
        Attesa{"figure", 9, 10, "1 10 19 28 37 46 55 64 73 82", "9 18 27 36 45 54 63 72 81 90"},
        Attesa{"cifre", 9, 18, "1 10 11 12 13 14 15 16 17 18 19 21 31 41 51 61 71 81",
               "9 10 19 20 29 30 39 40 49 50 59 60 69 70 79 80 89 90"},
        Attesa{"gemelli", 1, 8, "11 22 33 44 55 66 77 88", "11 22 33 44 55 66 77 88"},
        Attesa{"radicali", 8, 4, "1 10 11 19", "8 80 88 89"},
    };
    ASSERT_EQ(famiglie().size(), kAttese.size());
    for (const Attesa& a : kAttese) {
        SCOPED_TRACE(a.chiave);
        const SerieCorrente s = serie(a.chiave);
        ASSERT_EQ(s.righe(), a.righe);
        EXPECT_EQ(s.colonne, a.colonne);
        EXPECT_EQ(s.numeri.size(), a.righe * a.colonne);
        EXPECT_EQ(membro(s, 1), a.primo);
        if (!a.ultimo.empty()) {
            EXPECT_EQ(membro(s, a.righe), a.ultimo);
        }
        EXPECT_TRUE(
            std::all_of(s.numeri.begin(), s.numeri.end(), [](Numero n) { return n >= 1 && n <= 90; }));
    }
}

TEST(Famiglie, OgniChiaveEOgniCaricatoreUnaVolta) {
    std::set<std::string_view> nomi;
    for (const Famiglia& f : famiglie()) {
        EXPECT_TRUE(nomi.insert(f.nome.chiave).second) << f.nome.chiave;
        EXPECT_TRUE(nomi.insert(f.carica).second) << f.carica;
        EXPECT_EQ(prove::famiglia(f.nome.chiave), &f);
        EXPECT_EQ(trova_caricatore(f.carica), &f);
    }
    EXPECT_EQ(trova_caricatore("carica_cinquine_dei90")->nome.chiave, "cinquine dei 90");
}

TEST(Famiglie, OrdineDentroLeRegole) {
    EXPECT_EQ(membro(serie("ambi vertibili"), 8), "23 32");
    EXPECT_EQ(membro(serie("ambi dadologici"), 3), "3 4");
    EXPECT_EQ(membro(serie("ambi dadologici"), 4), "7 12");
    EXPECT_EQ(membro(serie("ambi somma(11)"), 5), "5 6");
    EXPECT_EQ(membro(serie("ambi somma(11)"), 6), "11 90");
    EXPECT_EQ(membro(serie("ambi fabarri"), 10), "4 6");
    EXPECT_EQ(membro(serie("terzine fabarri"), 6), "4 9 10");
    EXPECT_EQ(membro(serie("cinquine classiche"), 7), "18 81 11 88 82");
    EXPECT_EQ(membro(serie("cinquine classiche"), 8), "23 32 22 33 36");
    EXPECT_EQ(membro(serie("cinquine consecutive"), 2), "5 6 7 8 9");
    EXPECT_EQ(membro(serie("sestine consecutive"), 17), "81 82 83 84 85 86");
    EXPECT_EQ(membro(serie("sestine di cifra composta"), 4), "45 56 67 46 57 68");
    EXPECT_EQ(membro(serie("sestine somma 273"), 2), "2 29 32 59 62 89");
    EXPECT_EQ(membro(serie("settine renard"), 8), "2 3 5 22 23 32 33");
    EXPECT_EQ(membro(serie("decine"), 2), "10 11 12 13 14 15 16 17 18 19");
    EXPECT_EQ(membro(serie("cifre"), 8), "8 18 28 38 48 58 68 78 80 81 82 83 84 85 86 87 88 89");
    EXPECT_EQ(membro(serie("controfigure"), 8), "8 19 30 41 52 63 66 74 85");
}

TEST(Famiglie, LaRigaStranaRestaComeSta) {
    const SerieCorrente s = serie("cinquine a coesione");
    EXPECT_EQ(membro(s, 2), "2 44 47 59 4");  // the rule would give 89
    EXPECT_EQ(membro(s, 3), "3 43 48 88 6");
}

TEST(Famiglie, OgniSestinaSomma273) {
    const SerieCorrente s = serie("sestine somma 273");
    for (std::size_t i = 0; i < s.righe(); ++i) {
        int somma = 0;
        for (const Numero n : s.membro(i)) somma += n;
        EXPECT_EQ(somma, 273);
    }
}

TEST(Famiglie, FamiglieCheCopronoINumeriUnaVolta) {
    for (const std::string_view chiave :
         {"decine", "decine simmetriche", "cadenze", "figure", "sestine circolari", "cinquine sun",
          "cinquine pentagonali", "terzine distanza 30", "ambi simmetrici", "ambi dadologici",
          "sestine esagonali", "sestine somma 273"}) {
        SCOPED_TRACE(chiave);
        const SerieCorrente s = serie(chiave);
        EXPECT_EQ(s.numeri.size(), 90U);
        EXPECT_EQ(std::set<Numero>(s.numeri.begin(), s.numeri.end()).size(), 90U);
    }
}

TEST(Famiglie, EtichetteBrevi) {
    const auto etichetta = [](std::string_view chiave, std::size_t i) {
        return etichetta_membro(*prove::famiglia(chiave), serie(chiave), i - 1);
    };
    EXPECT_EQ(etichetta("decine", 1), "1/9 (90)");
    EXPECT_EQ(etichetta("decine", 2), "10/19");
    EXPECT_EQ(etichetta("decine", 9), "80/89");
    EXPECT_EQ(etichetta("cadenze", 1), "1/81");
    EXPECT_EQ(etichetta("cadenze", 10), "10/90");
    EXPECT_EQ(etichetta("figure", 9), "9/90");
    EXPECT_EQ(etichetta("cifre", 1), "1");
    EXPECT_EQ(etichetta("cifre", 8), "8");
    EXPECT_EQ(etichetta("cifre", 9), "9/0");
    EXPECT_EQ(etichetta("gemelli", 1), "11/88");
    EXPECT_EQ(etichetta("decine simmetriche", 1), "1/90");
    EXPECT_EQ(etichetta("controfigure", 1), "1/89");
    EXPECT_EQ(etichetta("radicali", 1), "");
    EXPECT_EQ(etichetta("cinquine sun", 1), "");
}

TEST(Famiglie, OttoFamiglieHannoUnaDescrizione) {
    std::set<std::string_view> con;
    for (const Famiglia& f : famiglie())
        if (!f.descrizione.empty()) con.insert(f.nome.chiave);
    EXPECT_EQ(con, (std::set<std::string_view>{"decine", "decine simmetriche", "controfigure", "cadenze",
                                               "figure", "cifre", "gemelli", "radicali"}));
}

// ---- the cinquine on file ----

TEST(CinquineDei90, IlFileFornitoContieneTuttiGliAmbi) {
    const auto testo = leggi_file(prove::cartella_dati() / kFileCinquine);
    ASSERT_TRUE(testo.has_value());
    EXPECT_TRUE(testo->starts_with("436\n"));
    const SerieCorrente s = serie("cinquine dei 90");
    ASSERT_EQ(s.righe(), 436U);
    std::set<std::set<Numero>> diverse;
    std::set<std::pair<Numero, Numero>> ambi;
    for (std::size_t i = 0; i < s.righe(); ++i) {
        const auto m = s.membro(i);
        const std::set<Numero> numeri(m.begin(), m.end());
        EXPECT_EQ(numeri.size(), 5U);
        diverse.insert(numeri);
        for (const Numero a : numeri)
            for (const Numero b : numeri)
                if (a < b) ambi.emplace(a, b);
    }
    EXPECT_EQ(diverse.size(), 436U);
    EXPECT_EQ(ambi.size(), 4005U);
}

std::string cinquine_lette(const std::string& testo) {
    const prove::CartellaProva cartella;
    if (!scrivi_file(cartella.percorso() / "n90ridd.rid", testo)) return "?";
    const auto s = leggi_cinquine_dei_90(cartella.percorso());
    return s ? membro(*s, 1) + " / " + membro(*s, s->righe()) : s.error().testo;
}

std::string ripeti(int volte, const std::string& testo) {
    std::string tutto;
    for (int i = 0; i < volte; ++i) tutto += testo;
    return tutto;
}

TEST(CinquineDei90, VirgoleBianchiEFineRigaSeparano) {
    EXPECT_EQ(cinquine_lette("436\n" + ripeti(436, "1,2,3,4,5\n")), "1 2 3 4 5 / 1 2 3 4 5");
    EXPECT_EQ(
        cinquine_lette("436 cinquine, di Tizio\r\n" + ripeti(435, " 1 , 2, 3 4\t05\r\n") + "86,87,88,89,90"),
        "1 2 3 4 5 / 86 87 88 89 90");
    // One long line is as good a list; what follows the last number is not looked at.
    EXPECT_EQ(cinquine_lette("\n" + ripeti(2180, "7 ") + "fine"), "7 7 7 7 7 / 7 7 7 7 7");
}

TEST(CinquineDei90, FileDanneggiato) {
    const std::string messaggio{kFileDanneggiato};
    EXPECT_EQ(messaggio, "File danneggiato! Impossibile effettuare Ricerca Statistica!");
    EXPECT_EQ(cinquine_lette(""), messaggio);
    EXPECT_EQ(cinquine_lette("436"), messaggio);
    EXPECT_EQ(cinquine_lette(ripeti(436, "1,2,3,4,5\n")), messaggio);  // the first line is not a cinquina
    EXPECT_EQ(cinquine_lette("436\n" + ripeti(435, "1,2,3,4,5\n") + "1,2,3,4\n"), messaggio);
    EXPECT_EQ(cinquine_lette("436\n" + ripeti(435, "1,2,3,4,5\n") + "1,2,3,4,x\n"), messaggio);
    EXPECT_EQ(cinquine_lette("436\n" + ripeti(435, "1,2,3,4,5\n") + "1,2,3,4,91\n"), messaggio);
    EXPECT_EQ(cinquine_lette("436\n" + ripeti(435, "1,2,3,4,5\n") + "0,2,3,4,5\n"), messaggio);
    EXPECT_EQ(cinquine_lette("436\n" + std::string(4000, '\0')), messaggio);
}

TEST(CinquineDei90, FileMancante) {
    const prove::CartellaProva cartella;
    const auto s = leggi_cinquine_dei_90(cartella.percorso());
    ASSERT_FALSE(s.has_value());
    EXPECT_EQ(s.error(), (Messaggio{Avviso::file_danneggiato, std::string{kFileDanneggiato}}));
}

}  // namespace
}  // namespace sortimetra
