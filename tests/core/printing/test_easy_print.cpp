#include "printing/easy_print.h"
#include "printing/metriche.h"
#include "support/superficie_registrata.h"
#include "text/utf8.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

/// A sheet whose printable area begins 5 and 4.2 mm inside, and the boxes that came up.
struct Banco {
    SuperficieRegistrata foglio{5, 4.2};
    std::vector<std::string> avvisi;
    EasyPrint stampante{foglio, [this](const std::string& titolo, const std::string& testo) {
                            avvisi.push_back(titolo + "|" + testo);
                        }};

    [[nodiscard]] const SuperficieRegistrata::Testo& testo(std::size_t i = 0) const {
        return foglio.testi().at(i);
    }
};

constexpr double kDecimo = 0.05;

TEST(EasyPrint, LeCoordinateSonoDalBordoDelFoglio) {
    Banco b;
    EXPECT_NEAR(b.stampante.CurrentX(), 0, kDecimo);
    EXPECT_NEAR(b.stampante.CurrentY(), 0, kDecimo);
    // What the surface itself is told starts at the printable area.
    EXPECT_NEAR(b.foglio.stato.x, -5, kDecimo);
    EXPECT_NEAR(b.foglio.stato.y, -4.2, kDecimo);
    b.stampante.PrintLeft(30, 40, "Bari");
    EXPECT_NEAR(b.testo().x, 30, kDecimo);
    EXPECT_NEAR(b.testo().y, 40, kDecimo);
    b.stampante.CurrentX(12.5F);
    EXPECT_NEAR(b.stampante.CurrentX(), 12.5, kDecimo);
    EXPECT_NEAR(b.foglio.stato.x, 7.5, kDecimo);
    EXPECT_NEAR(b.stampante.PageWidth(), 210, kDecimo);
    EXPECT_NEAR(b.stampante.PageHeight(), 297, kDecimo);
    b.stampante.Orientation(2);
    EXPECT_NEAR(b.stampante.PageWidth(), 297, kDecimo);
    EXPECT_NEAR(b.stampante.PageHeight(), 210, kDecimo);
    b.stampante.Orientation(7);
    EXPECT_NEAR(b.stampante.PageWidth(), 297, kDecimo);
}

TEST(EasyPrint, ProprietaLetteEScritte) {
    Banco b;
    EasyPrint& p = b.stampante;
    EXPECT_EQ(p.SpaziaturaLinea(), 1);
    p.SpaziaturaLinea(1.5F);
    EXPECT_EQ(p.SpaziaturaLinea(), 1.5F);
    p.SpaziaturaLinea(-1);
    EXPECT_EQ(p.SpaziaturaLinea(), 1);
    p.SpaziaturaLinea(0);
    EXPECT_EQ(p.SpaziaturaLinea(), 0);
    p.FontName("Courier New");
    p.FontSize(14);
    p.FontBold(true);
    p.FontItalic(true);
    p.FontUnderline(true);
    p.ForeColor(255);
    p.PrintLeft(1, 1, "x");
    const auto& t = b.testo();
    EXPECT_EQ(t.carattere, (Carattere{"Courier New", 14, true, true, true}));
    EXPECT_EQ(t.colore, 255);
    EXPECT_EQ(p.FontName(), "Courier New");
    EXPECT_EQ(p.FontSize(), 14);
    EXPECT_TRUE(p.FontBold() && p.FontItalic() && p.FontUnderline());
    EXPECT_EQ(p.ForeColor(), 255);
    p.FontSize(-3);
    EXPECT_EQ(p.FontSize(), 1);
    p.PaperSize(8);
    EXPECT_EQ(p.PaperSize(), 8);
    EXPECT_NEAR(p.PageHeight(), 420, kDecimo);
    p.Copies(3);
    EXPECT_EQ(p.Copies(), 3);
    p.Copies(0);
    EXPECT_EQ(p.Copies(), 1);
    p.PrintQuality(-2);
    EXPECT_EQ(b.foglio.lavoro().qualita, -2);
    p.ColorMode(1);
    EXPECT_EQ(b.foglio.lavoro().colori, 1);
    EXPECT_EQ(p.FontCount(), 2);
    EXPECT_EQ(p.Fonts(0), "Arial");
    EXPECT_EQ(p.Fonts(2), "");
    EXPECT_EQ(p.Fonts(-1), "");
    EXPECT_EQ(p.Page(), 1);
    p.NewPage();
    EXPECT_EQ(p.Page(), 2);
    p.EndDoc();
    EXPECT_TRUE(b.foglio.finito());
    p.KillDoc();
    EXPECT_TRUE(b.foglio.annullato());
    EXPECT_TRUE(b.avvisi.empty());
}

TEST(EasyPrint, LargoComeArial) {
    Banco b;
    // Ten digits at 10 points: 10 x 1139/2048 x 10 points.
    EXPECT_NEAR(b.stampante.TextWidth("0123456789"), 10 * 1139.0 / 2048 * 10 * 25.4 / 72, 1e-4);
    EXPECT_NEAR(b.stampante.TextHeight("Ag"), (1854.0 + 434) / 2048 * 10 * 25.4 / 72, 1e-4);
    EXPECT_EQ(b.stampante.TextWidth(""), 0);
    // An accent is one character, not two bytes.
    EXPECT_NEAR(b.stampante.TextWidth("più"), b.stampante.TextWidth("piu"), 1e-4);
    EXPECT_NEAR(b.stampante.TextWidth("€"), b.stampante.TextWidth("0"), 1e-4);
    b.stampante.FontName("Courier New");
    EXPECT_NEAR(b.stampante.TextWidth("ii"), b.stampante.TextWidth("MM"), 1e-4);
}

TEST(EasyPrint, RigheSeparateDaCr) {
    Banco b;
    b.stampante.PrintLeft(10, 30, "Ricerca:\r Ruote Esaminate: \r\nConcorsi\r");
    ASSERT_EQ(b.foglio.testi().size(), 3U);  // the fourth line is empty: nothing is drawn for it
    const double passo = altezza_testo({});
    EXPECT_EQ(b.testo(0).testo, "Ricerca:");
    EXPECT_EQ(b.testo(1).testo, "Ruote Esaminate:");
    EXPECT_EQ(b.testo(2).testo, "Concorsi");
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(b.testo(i).x, 10, kDecimo);
        EXPECT_NEAR(b.testo(i).y, 30 + passo * static_cast<double>(i), kDecimo);
    }
}

TEST(EasyPrint, LfSenzaCrFaParteDellaRiga) {
    Banco b;
    b.stampante.PrintLeft(10, 30, "a\nb");
    ASSERT_EQ(b.foglio.testi().size(), 1U);
    EXPECT_EQ(b.testo().testo, "a\nb");
}

TEST(EasyPrint, SpaziaturaFraLeRighe) {
    Banco b;
    b.stampante.SpaziaturaLinea(2);
    b.stampante.PrintCentre(100, 20, "uno\rdue\rtre");
    const double passo = altezza_testo({}) * 2;
    EXPECT_NEAR(b.testo(0).y, 20, kDecimo);
    EXPECT_NEAR(b.testo(1).y, 20 + passo, kDecimo);
    EXPECT_NEAR(b.testo(2).y, 20 + 2 * passo, kDecimo);
}

TEST(EasyPrint, TestoVuotoNonMuoveNulla) {
    Banco b;
    b.stampante.PrintLeft(10, 20, "");
    EXPECT_TRUE(b.foglio.testi().empty());
    EXPECT_NEAR(b.stampante.CurrentX(), 10, kDecimo);
    EXPECT_NEAR(b.stampante.CurrentY(), 20, kDecimo);
    EXPECT_EQ(b.stampante.Page(), 1);
}

TEST(EasyPrint, RientroDellaPrimaRiga) {
    Banco b;
    b.stampante.PrintLeft(10, 20, "uno\rdue", 7);
    EXPECT_NEAR(b.testo(0).x, 17, kDecimo);
    EXPECT_NEAR(b.testo(1).x, 10, kDecimo);
    b.stampante.PrintRight(200, 40, "tre\rquattro", 7);
    EXPECT_NEAR(b.testo(2).x + b.testo(2).larghezza, 193, kDecimo);
    EXPECT_NEAR(b.testo(3).x + b.testo(3).larghezza, 200, kDecimo);
}

TEST(EasyPrint, AllineatoADestraEAlCentro) {
    Banco b;
    b.stampante.PrintRight(200, 282, "Pagina 1 di 12");
    EXPECT_NEAR(b.testo(0).x + b.testo(0).larghezza, 200, kDecimo);
    b.stampante.PrintCentre(105, 50, "Bari, Cagliari\rRoma");
    EXPECT_NEAR(b.testo(1).x + b.testo(1).larghezza / 2, 105, kDecimo);
    EXPECT_NEAR(b.testo(2).x + b.testo(2).larghezza / 2, 105, kDecimo);
}

TEST(EasyPrint, RitagliaAllaFineOAllInizio) {
    Banco b;
    const float larga = b.stampante.TextWidth("01-02");
    b.stampante.PrintLeft(10, 10, "01-02-03", 0, larga);
    b.stampante.PrintRight(100, 10, "01-02-03", 0, larga);
    b.stampante.PrintCentre(50, 10, "01-02-03", larga);
    EXPECT_EQ(b.testo(0).testo, "01-02");
    EXPECT_EQ(b.testo(1).testo, "02-03");
    EXPECT_NEAR(b.testo(1).x + b.testo(1).larghezza, 100, kDecimo);
    EXPECT_EQ(b.testo(2).testo, "01-02");
    // Each line by itself; a width that holds everything takes nothing away.
    b.stampante.PrintLeft(10, 10, "01-02-03\r1", 0, larga);
    EXPECT_EQ(b.testo(3).testo, "01-02");
    EXPECT_EQ(b.testo(4).testo, "1");
}

TEST(EasyPrint, IlRitaglioFinisceSempre) {
    Banco b;
    b.stampante.PrintLeft(10, 10, "troppo", 0, 0.1F);
    b.stampante.PrintRight(10, 10, "troppo", 0, 0.1F);
    EXPECT_TRUE(b.foglio.testi().empty());
    const std::string lungo(2'000'000, 'x');
    b.stampante.PrintLeft(10, 10, lungo, 0, 50);
    EXPECT_LE(b.testo().larghezza, 50.001);
    EXPECT_GT(b.testo().larghezza, 48);
    EXPECT_TRUE(b.avvisi.empty());
}

TEST(EasyPrint, IlRitaglioNonSpezzaUnaLettera) {
    for (float larghezza = 0.5F; larghezza < 20; larghezza += 0.25F) {
        SCOPED_TRACE(larghezza);
        Banco b;
        b.stampante.PrintLeft(10, 10, "èèèèè€€", 0, larghezza);
        b.stampante.PrintRight(10, 10, "èèèèè€€", 0, larghezza);
        for (const auto& t : b.foglio.testi()) {
            EXPECT_LE(t.larghezza, larghezza + 1e-4);
            std::string_view resto = t.testo;
            while (!resto.empty()) EXPECT_NE(prendi_lettera(resto), kLetteraIgnota);
        }
    }
}

/// The clipping as it is told: one character less until it fits.
std::string ritaglia_piano(EasyPrint& p, std::string testo, float larghezza, bool dalla_fine) {
    while (!testo.empty() && p.TextWidth(testo) > larghezza)
        dalla_fine ? testo.pop_back() : static_cast<void>(testo.erase(0, 1));
    return testo;
}

TEST(EasyPrint, RitagliaComeUnCaratterePerVolta) {
    const std::string testo = "Tutti i Concorsi - Mesi Dispari: 07/01/1939 - 21/11/2023 WWWiii";
    for (float larghezza = 0.5F; larghezza < 130; larghezza += 0.7F) {
        SCOPED_TRACE(larghezza);
        Banco b;
        b.stampante.PrintLeft(10, 10, testo, 0, larghezza);
        b.stampante.PrintRight(200, 20, testo, 0, larghezza);
        const auto scritto = [&](double y) {
            for (const auto& t : b.foglio.testi())
                if (std::abs(t.y - y) < 1) return t.testo;
            return std::string{};
        };
        EXPECT_EQ(scritto(10), ritaglia_piano(b.stampante, testo, larghezza, true));
        EXPECT_EQ(scritto(20), ritaglia_piano(b.stampante, testo, larghezza, false));
    }
}

TEST(EasyPrint, CoordinateNegativeContinuanoDoveFinivaIlTesto) {
    Banco b;
    b.stampante.PrintLeft(10, 20, "Frequenza ");
    const double fine = 10 + b.testo(0).larghezza;
    b.stampante.FontBold(true);
    b.stampante.PrintLeft(-1, 20, "12");
    EXPECT_NEAR(b.testo(1).x, fine, kDecimo);
    EXPECT_NEAR(b.testo(1).y, 20, kDecimo);
    // Also y: the same line as before.
    b.stampante.PrintLeft(-1, -1, "volte", 9);
    EXPECT_NEAR(b.testo(2).x, fine + b.testo(1).larghezza, kDecimo);
    EXPECT_NEAR(b.testo(2).y, 20, kDecimo);
    // Right-aligned and centred texts start there as well.
    const double qui = b.testo(2).x + b.testo(2).larghezza;
    b.stampante.PrintRight(-1, -1, "su");
    EXPECT_NEAR(b.testo(3).x, qui, kDecimo);
    b.stampante.PrintLeft(60, -1, "Bari");
    EXPECT_NEAR(b.testo(4).x, 60, kDecimo);
    EXPECT_NEAR(b.testo(4).y, 20, kDecimo);
    b.stampante.PrintLeft(0, 0, "angolo");
    EXPECT_NEAR(b.testo(5).x, 0, kDecimo);
    EXPECT_NEAR(b.testo(5).y, 0, kDecimo);
}

TEST(EasyPrint, RiquadroSemplice) {
    Banco b;
    b.stampante.DrawWidth(4);
    b.stampante.DrawStyle(2);
    b.stampante.ForeColor(16711680);
    b.stampante.PrintShape(10, 69, 190, 191.25F);
    ASSERT_EQ(b.foglio.riquadri().size(), 1U);
    const auto& r = b.foglio.riquadri()[0];
    EXPECT_NEAR(r.x1, 10, kDecimo);
    EXPECT_NEAR(r.y1, 69, kDecimo);
    EXPECT_NEAR(r.x2, 200, kDecimo);
    EXPECT_NEAR(r.y2, 260.25, kDecimo);
    EXPECT_EQ(r.spessore, 4);
    EXPECT_EQ(r.stile, 2);
    EXPECT_EQ(r.colore, 16711680);
    EXPECT_TRUE(b.foglio.linee().empty());
    b.stampante.PrintShape(10, 10, 5, 5, -2);
    EXPECT_EQ(b.foglio.riquadri().size(), 2U);
}

TEST(EasyPrint, RiquadroArrotondato) {
    Banco b;
    b.stampante.PrintShape(10, 20, 40, 30, 5);
    EXPECT_TRUE(b.foglio.riquadri().empty());
    ASSERT_EQ(b.foglio.linee().size(), 4U);
    const auto& alto = b.foglio.linee()[0];
    EXPECT_NEAR(alto.x1, 15, kDecimo);
    EXPECT_NEAR(alto.x2, 45, kDecimo);
    EXPECT_NEAR(alto.y1, 20, kDecimo);
    const auto& destra = b.foglio.linee()[3];
    EXPECT_NEAR(destra.x1, 50, kDecimo);
    EXPECT_NEAR(destra.y1, 25, kDecimo);
    EXPECT_NEAR(destra.y2, 45, kDecimo);
    ASSERT_EQ(b.foglio.archi().size(), 4U);
    const double pi = 3.14159265;
    const auto& alto_destra = b.foglio.archi()[0];
    EXPECT_NEAR(alto_destra.x, 45, kDecimo);
    EXPECT_NEAR(alto_destra.y, 25, kDecimo);
    EXPECT_NEAR(alto_destra.raggio, 5, kDecimo);
    for (std::size_t q = 0; q < 4; ++q) {
        EXPECT_DOUBLE_EQ(b.foglio.archi()[q].da, static_cast<double>(q) * pi / 2);
        EXPECT_DOUBLE_EQ(b.foglio.archi()[q].a, static_cast<double>(q + 1) * pi / 2);
    }
}

TEST(EasyPrint, RaggioTroppoGrandeDaUnoStadio) {
    Banco b;
    b.stampante.PrintShape(10, 20, 40, 10, 30);
    // The upright edges are gone; the others run between the half circles.
    ASSERT_EQ(b.foglio.linee().size(), 2U);
    EXPECT_NEAR(b.foglio.linee()[0].x1, 15, kDecimo);
    EXPECT_NEAR(b.foglio.linee()[0].x2, 45, kDecimo);
    ASSERT_EQ(b.foglio.archi().size(), 4U);
    for (const auto& a : b.foglio.archi()) {
        EXPECT_NEAR(a.raggio, 5, kDecimo);
        EXPECT_NEAR(a.y, 25, kDecimo);
    }
    // A square becomes a circle: no edge is left at all.
    Banco c;
    c.stampante.PrintShape(10, 20, 10, 10, 30);
    EXPECT_TRUE(c.foglio.linee().empty());
    EXPECT_EQ(c.foglio.archi().size(), 4U);
}

TEST(EasyPrint, LeQuattroFormeDiUnImmagine) {
    const Immagine immagine{"logo", "<svg/>"};  // 40 x 30 mm on the recording surface
    Banco b;
    b.stampante.PrintPicture(immagine, 10, 5);
    b.stampante.PrintPicture(immagine, 10, 5, 190);
    b.stampante.PrintPicture(immagine, 10, 5, 0, 20);
    b.stampante.PrintPicture(immagine, 10, 5, 190, 20);
    ASSERT_EQ(b.foglio.figure().size(), 4U);
    const auto e = [&](std::size_t i, double w, double h) {
        EXPECT_NEAR(b.foglio.figure()[i].dimensioni.larghezza, w, kDecimo);
        EXPECT_NEAR(b.foglio.figure()[i].dimensioni.altezza, h, kDecimo);
        EXPECT_NEAR(b.foglio.figure()[i].x, 10, kDecimo);
        EXPECT_NEAR(b.foglio.figure()[i].y, 5, kDecimo);
    };
    e(0, 40, 30);
    e(1, 190, 30);
    e(2, 40, 20);
    e(3, 190, 20);
}

TEST(EasyPrint, UnErroreSiMostraEIlRapportoContinua) {
    Banco b;
    b.foglio.guasta({482, "La stampante non risponde"});
    const std::string atteso =
        "EasyPrint|Errore nella routine di stampa\r\nErrore numero: 482\r\nLa stampante non risponde";
    b.stampante.PrintLeft(10, 10, "uno\rdue");  // one box per call, not per line
    EXPECT_EQ(b.avvisi, std::vector<std::string>{atteso});
    b.stampante.PrintShape(10, 10, 5, 5);
    b.stampante.PrintShape(10, 10, 5, 5, 1);
    b.stampante.PrintPicture({"x", "<svg/>"}, 1, 1);
    b.stampante.NewPage();
    b.stampante.EndDoc();
    EXPECT_EQ(b.avvisi, std::vector<std::string>(6, atteso));
    EXPECT_TRUE(b.stampante.fallita());
}

TEST(EasyPrint, ImmagineCheNonSiLegge) {
    Banco b;
    b.stampante.PrintPicture({"vuota", ""}, 10, 10, 20, 20);
    b.stampante.PrintPicture({"vuota", ""}, 10, 10);
    ASSERT_EQ(b.avvisi.size(), 2U);
    EXPECT_EQ(b.avvisi[0],
              "EasyPrint|Errore nella routine di stampa\r\nErrore numero: 481\r\nImmagine non valida");
    EXPECT_TRUE(b.foglio.figure().empty());
}

TEST(EasyPrint, MisureImpossibiliSonoUnErrore) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInf = std::numeric_limits<float>::infinity();
    Banco b;
    b.stampante.PrintLeft(kNan, 10, "a");
    b.stampante.PrintRight(10, kInf, "a");
    b.stampante.PrintCentre(10, 10, "a", kNan);
    b.stampante.PrintShape(10, 10, kInf, 3);
    b.stampante.PrintShape(10, 10, 3, 3, kNan);
    b.stampante.PrintPicture({"x", "<svg/>"}, 10, 10, -kInf, 4);
    EXPECT_EQ(b.avvisi.size(), 6U);
    EXPECT_TRUE(b.foglio.testi().empty());
    EXPECT_TRUE(b.foglio.riquadri().empty());
}

}  // namespace
}  // namespace sortimetra
