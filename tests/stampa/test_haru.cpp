#include "catalogue/rapporti.h"
#include "catalogue/ricerche.h"
#include "haru_superficie.h"
#include "qt_pdf.h"
#include "qt_superficie.h"
#include "support/archivi.h"
#include "support/pdf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QPdfWriter>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace sortimetra {
namespace {

using prove::di_pdf;
using testing::HasSubstr;

Rapporto un_foglio(std::function<void(EasyPrint&)> disegna) {
    return {.titolo = "Prova", .disegna = [disegna = std::move(disegna)](EasyPrint& p, int) { disegna(p); }};
}

/// The same report by Qt's own writer: how it always looked.
void con_qt(const Rapporto& rapporto, const std::filesystem::path& file) {
    QPdfWriter pdf{QString::fromStdString(file.string())};
    pdf.setResolution(1440);
    pdf.setPageLayout(QPageLayout{QPageSize{QPageSize::A4}, QPageLayout::Portrait, QMarginsF{}});
    SuperficieQt superficie{pdf};
    EasyPrint stampante{superficie, {}};
    SenzaAvanzamento nessuno;
    ASSERT_TRUE(stampa(stampante, rapporto, {}, nessuno));
}

struct Parola {
    std::array<double, 4> riquadro{};
    std::string testo;
};

std::vector<Parola> parole(const std::filesystem::path& file) {
    std::vector<Parola> tutte;
    const std::string html = di_pdf("pdftotext -bbox", file, "-");
    for (auto i = html.find("<word"); i != std::string::npos; i = html.find("<word", i + 1)) {
        Parola p;
        auto& [x1, y1, x2, y2] = p.riquadro;
        if (std::sscanf(html.c_str() + i, R"(<word xMin="%lf" yMin="%lf" xMax="%lf" yMax="%lf")", &x1, &y1,
                        &x2, &y2) != 4)
            continue;
        const auto inizio = html.find('>', i) + 1;
        p.testo = html.substr(inizio, html.find('<', inizio) - inizio);
        tutte.push_back(std::move(p));
    }
    std::sort(tutte.begin(), tutte.end(), [](const Parola& a, const Parola& b) {
        const auto chiave = [](const Parola& p) {
            return std::tuple{std::lround(p.riquadro[3] / 2), std::lround(p.riquadro[0] / 2), p.testo};
        };
        return chiave(a) < chiave(b);
    });
    return tutte;
}

QImage immagine(const std::filesystem::path& file, int pagina) {
    const auto nudo = file.string() + ".vista";
    const auto p = std::to_string(pagina);
    (void)di_pdf("pdftoppm -r 60 -singlefile -f " + p + " -l " + p, file, "'" + nudo + "'");
    return QImage{QString::fromStdString(nudo + ".ppm")}.convertToFormat(QImage::Format_RGB32);
}

/// Mean difference of the colours, from 0 to 255; edges of letters differ a little.
double differenza(const QImage& a, const QImage& b) {
    if (a.isNull() || a.size() != b.size()) return 255;
    double somma = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            somma +=
                std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
        }
    return somma / (3.0 * a.width() * a.height());
}

class Haru : public testing::Test {
  protected:
    void SetUp() override {
        SenzaAvanzamento nessuno;
        // Makes the application that fonts need, if no test before has.
        ASSERT_TRUE(scrivi_pdf(un_foglio([](EasyPrint&) {}), file("avvio.pdf"), nessuno));
    }
    [[nodiscard]] std::filesystem::path file(const char* nome) const { return cartella_.percorso() / nome; }
    /// Written, and by the quick surface or by Qt's.
    void scrivi(const Rapporto& rapporto, const char* nome, const char* chi) const {
        SenzaAvanzamento nessuno;
        const auto esito = scrivi_pdf(rapporto, file(nome), nessuno);
        ASSERT_TRUE(esito) << esito.error().testo();
        EXPECT_THAT(di_pdf("pdfinfo", file(nome)), testing::ContainsRegex(std::string{"Producer: +"} + chi));
    }
    void come_qt(const Rapporto& rapporto) const {
        scrivi(rapporto, "haru.pdf", "Haru");
        con_qt(rapporto, file("qt.pdf"));
        const auto nuove = parole(file("haru.pdf"));
        const auto vecchie = parole(file("qt.pdf"));
        ASSERT_EQ(nuove.size(), vecchie.size());
        for (std::size_t i = 0; i < nuove.size(); ++i) {
            EXPECT_EQ(nuove[i].testo, vecchie[i].testo);
            for (const std::size_t lato : {0U, 2U})  // the box's height is of each reader's making
                EXPECT_NEAR(nuove[i].riquadro[lato], vecchie[i].riquadro[lato], 0.2) << nuove[i].testo;
        }
        for (int pagina = 1; pagina <= std::min(rapporto.pagine, 2); ++pagina)
            EXPECT_LT(differenza(immagine(file("haru.pdf"), pagina), immagine(file("qt.pdf"), pagina)), 0.8);
    }

  private:
    prove::CartellaProva cartella_;
};

TEST_F(Haru, LaRicercaHaLoStessoAspetto) {
    const auto archivio = prove::da_testo("1 BA 1 2 3 4 5\n2 BA 6 7 8 9 90\n3 BA 1 2 3 4 5\n");
    for (const char* chiave : {"ritardo e frequenza dei 90 numeri", "ricerche su tutti gli ambi",
                               "tabellone posizionale", "tabellone migliori ritardi"}) {
        SCOPED_TRACE(chiave);
        const Risposta risposta = prove::rispondi(prove::domanda(chiave), archivio);
        come_qt(prepara_rapporto(risposta));
    }
}

TEST_F(Haru, TrattiColoriEAngoli) {
    come_qt(un_foglio([](EasyPrint& p) {
        stampa_intestazione(p, "Più in ritardo", "Bari", "1 - 3", "Tutti");
        p.ForeColor(kRosso);
        p.DrawWidth(12);
        p.PrintShape(20, 80, 60, 30);
        p.ForeColor(kBlu);
        p.PrintShape(100, 80, 60, 30, 8);
        for (std::int16_t stile = 0; stile <= 5; ++stile) {
            p.DrawStyle(stile);
            p.PrintShape(20, 130 + 12.0F * static_cast<float>(stile), 150, 8);
        }
        p.ForeColor(kNero);
        p.PrintLeft(30, 240, "Sopra e sotto: (tonde) \\ barre");
    }));
    EXPECT_THAT(di_pdf("pdftotext", file("haru.pdf"), "-"), HasSubstr("(tonde) \\ barre"));
    // Two white sheets would be alike too.
    QImage bianca = immagine(file("haru.pdf"), 1);
    const QImage disegnata = bianca;
    bianca.fill(Qt::white);
    EXPECT_GT(differenza(disegnata, bianca), 5);
}

TEST_F(Haru, UnaRigaLungaFinisceDoveFinisceLaSuaMisura) {
    std::string lunga;
    for (int i = 0; i < 24; ++i) lunga += i % 2 == 0 ? "lilli" : "WàMè’";
    double larga = 0;
    come_qt(un_foglio([&](EasyPrint& p) {
        p.FontSize(8);
        p.PrintLeft(10, 50, lunga);
        larga = p.TextWidth(lunga);
    }));
    const auto trovate = parole(file("haru.pdf"));
    ASSERT_EQ(trovate.size(), 1U);
    EXPECT_EQ(trovate[0].testo, lunga);
    EXPECT_NEAR((trovate[0].riquadro[2] - trovate[0].riquadro[0]) * 25.4 / 72, larga, 0.05);
}

TEST_F(Haru, ICaratteriStannoNelFile) {
    scrivi(un_foglio([](EasyPrint& p) {
               p.PrintLeft(10, 30, "Tondo: € 1,50 “Bari”…");
               p.FontBold(true);
               p.PrintLeft(10, 40, "Grassetto");
               p.FontItalic(true);
               p.FontName("Courier New");
               p.PrintLeft(10, 50, "Corsivo");
           }),
           "caratteri.pdf", "Haru");
    const std::string caratteri = di_pdf("pdffonts", file("caratteri.pdf"));
    // Three fonts, each in the file, and only as far as it is used.
    std::size_t inclusi = 0;
    for (auto i = caratteri.find(" yes yes "); i != std::string::npos; i = caratteri.find(" yes yes ", i + 1))
        ++inclusi;
    EXPECT_EQ(inclusi, 3U) << caratteri;
    EXPECT_LT(std::filesystem::file_size(file("caratteri.pdf")), 200'000U);  // 1.2 MB as they are installed
    EXPECT_THAT(di_pdf("pdftotext", file("caratteri.pdf"), "-"), HasSubstr("Tondo: € 1,50 “Bari”…"));
}

TEST_F(Haru, TitoloEFoglio) {
    Rapporto rapporto = un_foglio([](EasyPrint& p) { p.PrintLeft(250, 30, "in fondo"); });
    rapporto.titolo = "Perché è così (€) 😀";
    rapporto.orientamento = Orientamento::orizzontale;
    scrivi(rapporto, "titolo.pdf", "Haru");
    const std::string notizie = di_pdf("pdfinfo", file("titolo.pdf"));
    EXPECT_THAT(notizie, HasSubstr("Perché è così (€)"));
    EXPECT_THAT(notizie, HasSubstr("Sortimetra"));
    EXPECT_THAT(notizie, HasSubstr("842 x 595 pts (A4)"));
    rapporto.titolo = "rotto \xFF\xC3";
    scrivi(rapporto, "rotto.pdf", "Haru");
    EXPECT_THAT(di_pdf("pdftotext", file("rotto.pdf"), "-"), HasSubstr("in fondo"));
}

TEST_F(Haru, CioCheNonSaLoDisegnaQt) {
    QImage punti{8, 8, QImage::Format_RGB32};
    punti.fill(Qt::red);
    QByteArray png;
    QBuffer dove{&png};
    ASSERT_TRUE(punti.save(&dove, "PNG"));
    const std::string byte = png.toStdString();
    const std::string sfumato =
        R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 9 9"><rect width="9" height="9" opacity="0.5"/></svg>)";
    const std::vector<std::function<void(EasyPrint&)>> oltre{
        [](EasyPrint& p) { p.PrintLeft(10, 40, "Ελλάδα"); },
        [](EasyPrint& p) {
            p.FontUnderline(true);
            p.PrintLeft(10, 40, "sottolineato");
        },
        [&](EasyPrint& p) { p.PrintPicture({"punti", byte}, 10, 40); },
        [&](EasyPrint& p) { p.PrintPicture({"sfumato", sfumato}, 10, 40, 30, 30); },
    };
    for (const auto& disegna : oltre) {
        scrivi(un_foglio([&](EasyPrint& p) {
                   p.PrintLeft(10, 30, "prima");
                   disegna(p);
               }),
               "oltre.pdf", "Qt");
        EXPECT_THAT(di_pdf("pdftotext", file("oltre.pdf"), "-"), HasSubstr("prima"));
    }
}

}  // namespace
}  // namespace sortimetra
