#include "catalogue/rapporti.h"
#include "catalogue/ricerche.h"
#include "printing/metriche.h"
#include "qt_pdf.h"
#include "qt_superficie.h"
#include "support/archivi.h"
#include "support/pdf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <array>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace sortimetra {
namespace {

using prove::testo_pdf;
using testing::HasSubstr;

Rapporto un_foglio(std::function<void(EasyPrint&)> disegna) {
    return {.titolo = "Prova", .disegna = [disegna = std::move(disegna)](EasyPrint& p, int) { disegna(p); }};
}

TEST(Pdf, ITestiRestanoTesti) {
    const prove::CartellaProva cartella;
    const auto file = cartella.percorso() / "testi.pdf";
    SenzaAvanzamento nessuno;
    const auto esito = scrivi_pdf(un_foglio([](EasyPrint& p) {
                                      p.PrintLeft(10, 30, "Più in ritardo: perché è così, Importo: € 1,50");
                                      p.FontBold(true);
                                      p.PrintLeft(10, 40, "È già l’1° Estratto – “Bari”…");
                                      p.FontUnderline(true);
                                      p.FontItalic(true);
                                      p.FontName("Courier New");
                                      p.PrintLeft(10, 50, "Frequenza\rRitardo");
                                  }),
                                  file, nessuno);
    ASSERT_TRUE(esito) << esito.error().testo();
    const auto testo = testo_pdf(file);
    EXPECT_THAT(testo, HasSubstr("Più in ritardo: perché è così, Importo: € 1,50"));
    EXPECT_THAT(testo, HasSubstr("È già l’1° Estratto – “Bari”…"));
    EXPECT_THAT(testo, HasSubstr("Frequenza\nRitardo"));
}

TEST(Pdf, LettereFuoriDalComune) {
    const prove::CartellaProva cartella;
    const auto file = cartella.percorso() / "lettere.pdf";
    SenzaAvanzamento nessuno;
    // Scripts that join letters, marks that combine, bytes that are no text: nothing falls.
    ASSERT_TRUE(scrivi_pdf(un_foglio([](EasyPrint& p) {
                               p.PrintLeft(10, 30,
                                           "a\xCC\x80 Ελλάδα \xE0\xA4\xA8\xE0\xA4\xAE \xF0\x9F\x8E\xB1");
                               p.PrintLeft(10, 40, "rotto \xFF\xC3");
                               p.PrintLeft(10, 50, "dopo");
                           }),
                           file, nessuno));
    const auto testo = testo_pdf(file);
    EXPECT_THAT(testo, HasSubstr("Ελλάδα"));
    EXPECT_THAT(testo, HasSubstr("dopo"));
}

TEST(Pdf, UnaRicercaIntera) {
    const auto archivio = prove::da_testo("1 BA 1 2 3 4 5\n2 BA 6 7 8 9 90\n3 BA 1 2 3 4 5\n");
    SenzaAvanzamento nessuno;
    const Risposta risposta = prove::rispondi(prove::domanda("ritardo e frequenza dei 90 numeri"), archivio);
    const prove::CartellaProva cartella;
    const auto file = cartella.percorso() / "novanta.pdf";
    // The way of the command line: through the module beside the program.
    const auto esito = stampa_pdf(prepara_rapporto(risposta), file, nessuno);
    ASSERT_TRUE(esito) << esito.error().testo();
    const auto testo = testo_pdf(file, "-layout");
    EXPECT_THAT(testo, HasSubstr("Ritardo e Frequenza dei 90 numeri"));
    EXPECT_THAT(testo, HasSubstr("Ruote Esaminate:"));
    EXPECT_THAT(testo, HasSubstr("Pagina 1 di 1"));
    EXPECT_THAT(testo, testing::ContainsRegex("\n +45 +0 +3 +0 +90 +1 +1 +-?[0-9]+"));
}

TEST(Pdf, SoloLePagineScelte) {
    const Rapporto rapporto{.titolo = "Pagine", .pagine = 5, .disegna = [](EasyPrint& p, int pagina) {
                                stampa_piede(p, pagina, 5);
                            }};
    const prove::CartellaProva cartella;
    const auto file = cartella.percorso() / "pagine.pdf";
    SenzaAvanzamento nessuno;
    ASSERT_TRUE(scrivi_pdf(rapporto, file, nessuno, {2, 3}));
    EXPECT_EQ(testo_pdf(file), "Pagina 2 di 5\n\n\fPagina 3 di 5\n\n\f");
}

class Annulla final : public Avanzamento {
  public:
    bool procedi(std::size_t, std::size_t) override { return false; }
};

TEST(Pdf, IlFileEInteroONonCe) {
    const prove::CartellaProva cartella;
    const auto file = cartella.percorso() / "resta.pdf";
    std::ofstream{file} << "prima";
    const auto contenuto = [&] {
        std::ifstream in{file};
        return std::string{std::istreambuf_iterator<char>{in}, {}};
    };
    Annulla annulla;
    const auto annullata = scrivi_pdf(un_foglio([](EasyPrint& p) { p.PrintLeft(1, 1, "x"); }), file, annulla);
    ASSERT_FALSE(annullata);
    EXPECT_EQ(annullata.error().motivo, "stampa annullata");
    EXPECT_EQ(contenuto(), "prima");

    SenzaAvanzamento nessuno;
    const auto guasta = scrivi_pdf(
        un_foglio([](EasyPrint& p) { p.PrintPicture({"niente", "niente"}, 1, 1); }), file, nessuno);
    ASSERT_FALSE(guasta);
    EXPECT_THAT(guasta.error().motivo, HasSubstr("Immagine non valida"));
    EXPECT_EQ(contenuto(), "prima");
    // Nothing is left beside it.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator{cartella.percorso()}, {}), 1);
}

TEST(Pdf, DoveNonSiPuoScrivere) {
    const prove::CartellaProva cartella;
    const auto file = cartella.percorso() / "manca" / "x.pdf";
    SenzaAvanzamento nessuno;
    const auto esito = scrivi_pdf(un_foglio([](EasyPrint&) {}), file, nessuno);
    ASSERT_FALSE(esito);
    EXPECT_EQ(esito.error().file, file);
    EXPECT_THAT(esito.error().motivo, HasSubstr("non si può scrivere"));
}

/// While it lives, no file of this process grows beyond some bytes: a disk that is full.
class DiscoPieno {
  public:
    DiscoPieno() {
        getrlimit(RLIMIT_FSIZE, &prima_);
        rlimit poco = prima_;
        poco.rlim_cur = 2000;
        segnale_ = std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &poco);
    }
    DiscoPieno(const DiscoPieno&) = delete;
    DiscoPieno& operator=(const DiscoPieno&) = delete;
    ~DiscoPieno() {
        setrlimit(RLIMIT_FSIZE, &prima_);
        std::signal(SIGXFSZ, segnale_);
    }

  private:
    rlimit prima_{};
    void (*segnale_)(int) = nullptr;
};

TEST(Pdf, DiscoPieno) {
    const prove::CartellaProva cartella;
    const auto file = cartella.percorso() / "pieno.pdf";
    std::ofstream{file} << "prima";
    SenzaAvanzamento nessuno;
    std::expected<void, ErroreArchivio> esito;
    {
        const DiscoPieno pieno;
        esito = scrivi_pdf(un_foglio([](EasyPrint& p) { stampa_intestazione(p, "Ricerca", "", "", ""); }),
                           file, nessuno);
    }
    ASSERT_FALSE(esito);
    EXPECT_EQ(esito.error().file, file);
    EXPECT_THAT(esito.error().motivo, HasSubstr("scrittura"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator{cartella.percorso()}, {}), 1);
    EXPECT_EQ(std::filesystem::file_size(file), 5U);
}

TEST(Pdf, NonAlPostoDiUnaCartellaODiUnaPipe) {
    const prove::CartellaProva cartella;
    const auto pipe = cartella.percorso() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    SenzaAvanzamento nessuno;
    EXPECT_FALSE(scrivi_pdf(un_foglio([](EasyPrint&) {}), pipe, nessuno));
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
    EXPECT_FALSE(scrivi_pdf(un_foglio([](EasyPrint&) {}), cartella.percorso(), nessuno));
}

TEST(Pdf, LeMisureSonoQuelleDellaCarta) {
    // The application exists since the tests above, or is made here.
    const prove::CartellaProva cartella;
    SenzaAvanzamento nessuno;
    ASSERT_TRUE(scrivi_pdf(un_foglio([](EasyPrint&) {}), cartella.percorso() / "a.pdf", nessuno));
    QPdfWriter pdf{QString::fromStdString((cartella.percorso() / "b.pdf").string())};
    pdf.setPageLayout(QPageLayout{QPageSize{QPageSize::A4}, QPageLayout::Portrait, QMarginsF{}});
    SuperficieQt superficie{pdf};
    EXPECT_NEAR(superficie.foglio().larghezza, 210, 0.1);
    EXPECT_NEAR(superficie.foglio().altezza, 297, 0.1);
    EXPECT_GT(superficie.n_caratteri(), 0);
    EXPECT_NE(superficie.nome_carattere(0), "");
    EXPECT_EQ(superficie.nome_carattere(-1), "");
    ASSERT_GT(superficie.larghezza("0"), 0) << "nessun carattere installato";
    const auto uguali = [&](const Carattere& carattere, const char* testo) {
        superficie.stato.carattere = carattere;
        EXPECT_NEAR(superficie.larghezza(testo), larghezza_testo(carattere, testo), 0.02) << testo;
        EXPECT_NEAR(superficie.altezza(testo), altezza_testo(carattere), 0.05) << testo;
    };
    for (const bool grassetto : {false, true}) {
        uguali({"Arial", 10, grassetto, false, false}, "Ritardo e Frequenza dei 90 numeri: 01-02-03");
        uguali({"Arial", 11, grassetto, true, false}, "ÀÈÌÒÙàèéìòù € n° ‘’“”–—…");
        uguali({"Courier New", 10, grassetto, false, false}, "Num. Comb");
    }
    superficie.imposta({.orientamento = Orientamento::orizzontale});
    EXPECT_NEAR(superficie.foglio().larghezza, 297, 0.1);
    superficie.imposta({.foglio = 1, .orientamento = Orientamento::verticale});
    EXPECT_NEAR(superficie.foglio().altezza, 279.4, 0.2);
}

TEST(Pdf, LaLineaSottoUnTestoStaSottoDiEsso) {
    const prove::CartellaProva cartella;
    SenzaAvanzamento nessuno;
    // Makes the application that fonts need, if no test before has.
    ASSERT_TRUE(scrivi_pdf(un_foglio([](EasyPrint&) {}), cartella.percorso() / "a.pdf", nessuno));
    constexpr int kPunti = 5;  // a millimetre
    QImage immagine{210 * kPunti, 297 * kPunti, QImage::Format_Grayscale8};
    immagine.fill(Qt::white);
    QPainter pittore{&immagine};
    pittore.scale(kPunti, kPunti);
    double larga = 0;
    {
        SuperficieQt superficie{pittore, {210, 297}, Orientamento::verticale};
        superficie.stato.carattere = {.corpo = 20, .sottolineato = true};
        larga = superficie.larghezza("H H");
        ASSERT_GT(larga, 0) << "nessun carattere installato";
        superficie.stato.x = 100;
        superficie.stato.y = 100;
        EXPECT_TRUE(superficie.scrivi("H H"));
        EXPECT_TRUE(superficie.fine());
    }
    pittore.end();
    // Some line of dots is dark from the text's first letter to its last, and nothing is dark beside it.
    bool linea = false;
    for (int y = 0; y < immagine.height(); ++y) {
        int scuri = 0;
        for (int x = 0; x < immagine.width(); ++x) {
            if (qGray(immagine.pixel(x, y)) > 128) continue;
            ++scuri;
            EXPECT_GE(x, 99 * kPunti);
            EXPECT_LE(x, (101 + larga) * kPunti);
            EXPECT_GE(y, 99 * kPunti);
        }
        linea = linea || scuri > 0.95 * larga * kPunti;
    }
    EXPECT_TRUE(linea);
}

TEST(Pdf, ScostamentoDellAreaStampabile) {
    const prove::CartellaProva cartella;
    QPdfWriter pdf{QString::fromStdString((cartella.percorso() / "c.pdf").string())};
    pdf.setPageLayout(QPageLayout{QPageSize{QPageSize::A4}, QPageLayout::Portrait, QMarginsF{5, 4, 6, 7},
                                  QPageLayout::Millimeter});
    SuperficieQt superficie{pdf};
    EXPECT_NEAR(superficie.foglio().scostamento_x, 5, 0.1);
    EXPECT_NEAR(superficie.foglio().scostamento_y, 4, 0.1);
    EXPECT_NEAR(superficie.foglio().larghezza, 210, 0.1);
    EasyPrint stampante{superficie, {}};
    stampante.CurrentX(20);
    EXPECT_NEAR(superficie.stato.x, 15, 0.1);
}

}  // namespace
}  // namespace sortimetra
