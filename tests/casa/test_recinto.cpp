#include "casa/recinto.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>

namespace sortimetra::casa {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Core files whose tests stand in the file of a neighbour.
const Coperture kCoperture{
    {"src/core/catalogue/rapporti.cpp", "tests/core/printing/test_rapporto.cpp"},
    {"src/core/lunghette/lunghetta.cpp", "tests/core/lunghette/test_lunghette.cpp"},
    {"src/core/lunghette/misuratore.cpp", "tests/core/lunghette/test_lunghette.cpp"},
    {"src/core/lunghette/righe_gioco.cpp", "tests/core/lunghette/test_lunghette.cpp"},
    {"src/core/lunghette/stadi.cpp", "tests/core/lunghette/test_lunghette.cpp"},
    {"src/core/lunghette/voci.cpp", "tests/core/lunghette/test_stampa_lunghette.cpp"},
    {"src/core/systems/conteggi.cpp", "tests/core/systems/test_filtri.cpp"},
    {"src/core/systems/scelte.cpp", "tests/core/systems/test_filtri.cpp"},
    {"src/core/personal/analisi_serie.cpp", "tests/core/personal/test_gruppi.cpp"},
    {"src/core/personal/stampa_piramide.cpp", "tests/core/personal/test_stampa_personali.cpp"},
    {"src/core/personal/taratura.cpp", "tests/core/personal/test_poste.cpp"},
    {"src/core/positional/stampa_migliori.cpp", "tests/core/positional/test_stampa_posizionale.cpp"},
    {"src/core/positional/stampa_posizione.cpp", "tests/core/positional/test_stampa_posizionale.cpp"},
    {"src/core/positional/stampa_tabellone.cpp", "tests/core/positional/test_stampa_posizionale.cpp"},
    {"src/core/results/righe_xlsx.cpp", "tests/core/results/test_scrittore_xlsx.cpp"},
    {"src/core/statistics/misura_serie.cpp", "tests/core/statistics/test_serie_speciali.cpp"},
};

const Sorgenti& casa() {
    static const Sorgenti sorgenti = leggi_sorgenti(SORTIMETRA_RADICE, "src");
    return sorgenti;
}

// ---- the house as it stands ----

TEST(Recinto, LeInclusioniVannoInGiu) {
    ASSERT_GT(casa().size(), 100U);
    EXPECT_THAT(inclusioni_vietate(casa()), IsEmpty());
}

TEST(Recinto, NessunaStanzaAVicenda) {
    EXPECT_THAT(stanze_a_vicenda(casa()), IsEmpty());
}

TEST(Recinto, SenzaQtIlCuoreELaRigaDiComando) {
    EXPECT_THAT(qt_dove_non_deve(casa()), IsEmpty());
}

TEST(Recinto, OgniFileDelCuoreHaLoSpecchio) {
    EXPECT_THAT(senza_specchio(casa(), leggi_sorgenti(SORTIMETRA_RADICE, "tests"), kCoperture), IsEmpty());
}

TEST(Recinto, UnNomePerTipo) {
    EXPECT_THAT(tipi_doppi(casa()), IsEmpty());
}

// ---- houses that break a rule ----

TEST(Stanza, DalPercorso) {
    EXPECT_EQ(stanza("src/core/text/data.h"), "core/text");
    EXPECT_EQ(stanza("src/core/text/dentro/data.h"), "core/text");
    EXPECT_EQ(stanza("src/desktop/main.cpp"), "desktop");
    EXPECT_EQ(stanza("src/stampa/modulo/porta.cpp"), "stampa");
    EXPECT_EQ(stanza("src/cli/main.cpp"), "cli");
    EXPECT_EQ(stanza("tests/cli/test_uso.cpp"), "");
}

/// What is found where `file` includes `nome`, and a file stands at `altro`.
Rilievi vietate(const std::string& file, const std::string& nome, const std::string& altro) {
    return inclusioni_vietate({{file, "#pragma once\n#  include \"" + nome + "\"\n"}, {altro, ""}});
}

TEST(InclusioniVietate, InGiuENellaStessaStanza) {
    EXPECT_THAT(vietate("src/core/draws/a.h", "text/b.h", "src/core/text/b.h"), IsEmpty());
    EXPECT_THAT(vietate("src/core/text/a.h", "text/b.h", "src/core/text/b.h"), IsEmpty());
    EXPECT_THAT(vietate("src/core/positional/a.h", "printing/b.h", "src/core/printing/b.h"), IsEmpty());
    EXPECT_THAT(vietate("src/core/printing/a.h", "results/b.h", "src/core/results/b.h"), IsEmpty());
    EXPECT_THAT(vietate("src/desktop/statistics/a.h", "qt_b.h", "src/stampa/qt_b.h"), IsEmpty());
    EXPECT_THAT(vietate("src/desktop/main.cpp", "catalogue/b.h", "src/desktop/catalogue/b.h"), IsEmpty());
}

TEST(InclusioniVietate, InSuEDiTraverso) {
    EXPECT_THAT(vietate("src/core/text/a.h", "draws/b.h", "src/core/draws/b.h"),
                ElementsAre("src/core/text/a.h: core/text must not know src/core/draws/b.h"));
    for (const auto& [da, nome, a] :
         {std::array{"src/core/stores/a.h", "results/b.h", "src/core/results/b.h"},
          std::array{"src/core/printing/a.h", "statistics/b.h", "src/core/statistics/b.h"},
          std::array{"src/core/positional/a.h", "systems/b.h", "src/core/systems/b.h"},
          std::array{"src/core/statistics/a.h", "catalogue/b.h", "src/core/catalogue/b.h"},
          std::array{"src/core/catalogue/a.h", "screens/b.h", "src/desktop/screens/b.h"},
          std::array{"src/cli/a.h", "qt_b.h", "src/stampa/qt_b.h"},
          std::array{"src/cli/a.h", "jet/b.h", "src/jet/b.h"},
          std::array{"src/desktop/main.cpp", "cli/b.h", "src/cli/b.h"},
          std::array{"src/desktop/screens/a.h", "positional/b.h", "src/desktop/positional/b.h"},
          std::array{"src/desktop/positional/a.h", "catalogue/b.h", "src/desktop/catalogue/b.h"}})
        EXPECT_EQ(vietate(da, nome, a).size(), 1U) << da << " -> " << a;
}

TEST(InclusioniVietate, StanzaSenzaPianoENomeDiDue) {
    EXPECT_THAT(inclusioni_vietate({{"src/core/varie/a.h", ""}}),
                ElementsAre("src/core/varie/a.h: room \"core/varie\" has no floor"));
    EXPECT_THAT(inclusioni_vietate({{"src/desktop/printing/c.h", "#include <printing/b.h>"},
                                    {"src/core/printing/b.h", ""},
                                    {"src/desktop/printing/b.h", ""}}),
                ElementsAre("src/desktop/printing/c.h: \"printing/b.h\" is src/core/printing/b.h or "
                            "src/desktop/printing/b.h"));
}

TEST(StanzeAVicenda, DueCheSiIncludono) {
    const Sorgente a{"src/core/text/a.h", "#include \"draws/d.h\"\n"};
    const Sorgente b{"src/core/text/b.h", ""};
    const Sorgente c{"src/core/draws/c.h", "#include \"text/b.h\"\n"};
    const Sorgente d{"src/core/draws/d.h", "#include \"draws/c.h\"\n"};
    EXPECT_THAT(stanze_a_vicenda({b, c, d}), IsEmpty());
    EXPECT_THAT(stanze_a_vicenda({a, b, c, d}),
                ElementsAre("core/draws and core/text: src/core/draws/c.h includes text/b.h, "
                            "src/core/text/a.h includes draws/d.h"));
}

TEST(QtDoveNonDeve, SoloSottoIlVetro) {
    EXPECT_THAT(qt_dove_non_deve({{"src/stampa/a.h", "#include <QPainter>\n"},
                                  {"src/desktop/main.cpp", "#include <QApplication>\n"},
                                  {"src/core/text/a.h", "#include <queue>\n#include \"text/Quadro.h\"\n"}}),
                IsEmpty());
    EXPECT_THAT(qt_dove_non_deve({{"src/core/text/a.h", "#include <QString>\n"},
                                  {"src/cli/b.cpp", "#include \"qt_pdf.h\"\n"},
                                  {"src/jet/c.cpp", "#include <QtCore/QString>\n"}}),
                ElementsAre("src/core/text/a.h: includes QString", "src/cli/b.cpp: includes qt_pdf.h",
                            "src/jet/c.cpp: includes QtCore/QString"));
}

TEST(SenzaSpecchio, NominaIlFileELaProva) {
    const Sorgenti cuore{{"src/core/text/a.cpp", ""}, {"src/core/text/a.h", ""}, {"src/cli/b.cpp", ""}};
    EXPECT_THAT(senza_specchio(cuore, {{"tests/core/text/test_a.cpp", ""}}, {}), IsEmpty());
    EXPECT_THAT(senza_specchio(cuore, {{"tests/core/draws/test_a.cpp", ""}}, {}),
                ElementsAre("src/core/text/a.cpp: no tests/core/text/test_a.cpp"));
}

TEST(SenzaSpecchio, ChiStaPerUnAltro) {
    const Sorgenti cuore{{"src/core/text/a.cpp", ""}};
    const std::string altra = "tests/core/text/test_b.cpp";
    const Coperture coperture{{"src/core/text/a.cpp", altra}};
    EXPECT_THAT(senza_specchio(cuore, {{altra, "#include \"text/a.h\"\n"}}, coperture), IsEmpty());
    EXPECT_THAT(senza_specchio(cuore, {{altra, "// nothing of it\n"}}, coperture),
                ElementsAre(HasSubstr("does not include text/a.h")));
    EXPECT_THAT(senza_specchio(cuore, {}, coperture), ElementsAre(HasSubstr("no " + altra)));
    EXPECT_THAT(
        senza_specchio(cuore, {{altra, "#include \"text/a.h\"\n"}, {"tests/core/text/test_a.cpp", ""}},
                       coperture),
        ElementsAre(HasSubstr("no other need stand in")));
    EXPECT_THAT(senza_specchio({}, {}, coperture), ElementsAre(HasSubstr("is not there")));
}

/// What is found in two files, "a.cpp" and "b.cpp".
Rilievi doppi(const std::string& a, const std::string& b) {
    return tipi_doppi({{"a.cpp", a}, {"b.cpp", b}});
}

TEST(TipiDoppi, LoStessoNomeNelloStessoSpazio) {
    EXPECT_THAT(doppi("namespace s { struct Cella { int x; }; }", "namespace s {\nclass Cella final {};\n}"),
                ElementsAre("s::Cella: in a.cpp and in b.cpp"));
    EXPECT_THAT(doppi("namespace s::t { enum class E : int { a }; }",
                      "namespace s { namespace t { struct [[nodiscard]] E : B<int, 2> {}; } }"),
                ElementsAre("s::t::E: in a.cpp and in b.cpp"));
    EXPECT_THAT(doppi("namespace s { using N = int; }", "namespace s { struct N {}; }"),
                ElementsAre("s::N: in a.cpp and in b.cpp"));
    EXPECT_THAT(doppi("namespace s { using N = int; }", "namespace s { using N = long; }"),
                ElementsAre("s::N: in a.cpp and in b.cpp"));
    EXPECT_THAT(doppi("namespace s { template <class T> struct P { T t; }; }",
                      "namespace s { template <class U> struct P { U u; }; }"),
                ElementsAre("s::P: in a.cpp and in b.cpp"));
}

TEST(TipiDoppi, NomiCheSiPossonoRipetere) {
    // Another namespace, another type round it, a mere declaration, a function's own, the same other name.
    EXPECT_THAT(doppi("namespace s { struct A {}; }", "namespace t { struct A {}; }"), IsEmpty());
    EXPECT_THAT(doppi("struct A { enum class Tipo { x }; };", "struct B { enum class Tipo { y }; };"),
                IsEmpty());
    EXPECT_THAT(doppi("struct A { struct Tipo {}; };", "struct Tipo {};"), IsEmpty());
    EXPECT_THAT(doppi("struct A {};", "struct A;\nfriend class A;\nvoid f(struct A* a) { use(a); }"),
                IsEmpty());
    EXPECT_THAT(doppi("void f() { struct L {}; }", "void g() { if (x) { struct L {}; } }"), IsEmpty());
    EXPECT_THAT(doppi("using N = std::vector<int>;", "using N = std::vector<int>;"), IsEmpty());
    EXPECT_THAT(doppi("template <class T> struct P {};", "template <> struct P<int> {};"), IsEmpty());
}

TEST(TipiDoppi, SpaziSenzaNome) {
    EXPECT_THAT(
        doppi("namespace s { namespace { struct L {}; } }", "namespace s { namespace { struct L {}; } }"),
        IsEmpty());
    EXPECT_THAT(doppi("namespace s { struct L {}; }", "namespace s { namespace { struct L {}; } }"),
                ElementsAre("s::L: in a.cpp, and another one within b.cpp"));
    EXPECT_THAT(doppi("namespace s { namespace { struct Q { struct L {}; }; } struct M {}; }",
                      "namespace s { struct L {}; namespace { int x{}; } struct M {}; }"),
                ElementsAre("s::M: in a.cpp and in b.cpp"));
}

TEST(TipiDoppi, CommentiTestiEDirettiveNonContano) {
    const std::string vero = "namespace s { struct A {}; }";
    EXPECT_THAT(doppi(vero, "namespace s {\n// struct A {};\n/* struct A {}; */\n}"), IsEmpty());
    EXPECT_THAT(doppi(vero, "namespace s { auto t = \"} struct A { \\\" }\"; }"), IsEmpty());
    EXPECT_THAT(doppi(vero, "namespace s { auto t = R\"x(struct A {\")\")x\"; }"), IsEmpty());
    EXPECT_THAT(doppi(vero, "namespace s {\n#define T struct A { \\\n}; struct A {}\n}"), IsEmpty());
    // After them the reading goes on in the right place.
    EXPECT_THAT(doppi(vero, "namespace s { int n = 4'000'000; char c = '{', d = '\\''; struct A {}; }"),
                ElementsAre("s::A: in a.cpp and in b.cpp"));
    EXPECT_THAT(
        doppi(vero, "namespace s { auto t = R\"(})\"; /* } */ void f() { g({1, 2}); } struct A {}; }"),
        ElementsAre("s::A: in a.cpp and in b.cpp"));
}

}  // namespace
}  // namespace sortimetra::casa
