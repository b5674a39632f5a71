#include "files/file_sicuro.h"
#include "stores/aggiorna.h"
#include "stores/importa.h"
#include "stores/negozio_jet.h"
#include "stores/negozio_nativo.h"
#include "stores/pubblicati.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <span>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

namespace sortimetra {
namespace {

using prove::CartellaProva;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::string_view kTitoliS = "data;n1;n2;n3;n4;n5;n6;jolly;superstar\n";
constexpr std::string_view kTitoliW = "concorso;data;ora;n1;n2;n3;n4;n5;n6;n7;n8;n9;n10;numerone\n";

Data giorno(std::string_view testo) {
    return leggi_data_italiana(testo).value();
}

/// A draw of the Lotto on the wheels of Bari and Cagliari, "2001/06/01".
std::string lotto(std::string_view data, int primo) {
    std::string testo;
    for (const std::string_view ruota : {"BA", "CA"}) {
        testo.append(data).append("\t").append(ruota);
        for (int i = 0; i < 5; ++i) testo.append("\t").append(std::to_string(primo + i));
        testo += '\n';
    }
    return testo;
}

/// Concorsi 1 to 4: the first draws of June 2001, Wednesdays and Saturdays.
const std::string kGiugno =
    lotto("2001/06/02", 1) + lotto("2001/06/06", 11) + lotto("2001/06/09", 21) + lotto("2001/06/13", 31);
const std::string kSuper =
    "2001-06-02;1;2;3;4;5;6;7;0\n"
    "2001-06-06;2;3;4;5;6;7;8;0\n"
    "2001-06-09;3;4;5;6;7;8;9;0\n";
const std::string kWin =
    "9000;2023-10-09;07:00;1;3;4;5;6;9;12;16;18;20;14\n"
    "9001;2023-10-09;08:00;2;3;4;5;6;9;12;16;18;20;14\n";

/// An archive in a folder of its own, and updates of it.
struct Banco {
    CartellaProva cartella;
    SenzaAvanzamento nessuno;
    ModoAggiorna modo{.oggi = giorno("31/12/2030")};

    [[nodiscard]] std::filesystem::path archivio() const { return cartella.percorso() / "archivio"; }

    std::filesystem::path metti(std::string_view nome, std::string_view testo) const {
        const auto file = cartella.percorso() / nome;
        std::ofstream{file, std::ios::binary | std::ios::trunc} << testo;
        return file;
    }
    void importa(const std::string& l, const std::string& s = {}, const std::string& w = {}) {
        FilePubblicati file;
        if (!l.empty()) file.lotto = metti("l.txt", l);
        if (!s.empty()) file.superenalotto = metti("s.csv", std::string{kTitoliS} + s);
        if (!w.empty()) file.winforlife = metti("w.csv", std::string{kTitoliW} + w);
        file.tutto = true;
        const auto fatto = importa_archivio(archivio(), file, nessuno);
        ASSERT_TRUE(fatto) << fatto.error().testo();
    }
    std::expected<Proposta, ErroreArchivio> propone(const std::vector<std::string>& testi) {
        std::vector<Arrivo> arrivi;
        for (const std::string& t : testi)
            arrivi.push_back({"testo " + std::to_string(arrivi.size() + 1), t});
        const auto arrivate = leggi_arrivi(arrivi, nessuno);
        if (!arrivate) return std::unexpected(arrivate.error());
        return proponi(archivio(), *arrivate, modo, nessuno);
    }
    /// Proposes and does it.
    Proposta aggiorna(const std::vector<std::string>& testi) {
        auto p = propone(testi);
        EXPECT_TRUE(p) << p.error().testo();
        if (!p) return {};
        const auto fatto = applica(archivio(), *p, nessuno);
        EXPECT_TRUE(fatto) << fatto.error().testo();
        return std::move(*p);
    }
    std::string errore(const std::vector<std::string>& testi) {
        const auto p = propone(testi);
        return p ? "nessun errore" : p.error().testo();
    }
    [[nodiscard]] ArchivioEstrazioni aperto() const {
        auto a = apri_archivio(archivio());
        EXPECT_TRUE(a) << a.error().testo();
        return a ? std::move(*a) : ArchivioEstrazioni{};
    }
};

std::vector<std::string> date(std::span<const Concorso> concorsi, std::span<const Data> giorni) {
    std::vector<std::string> testi;
    for (std::size_t i = 0; i < concorsi.size(); ++i)
        testi.push_back(std::to_string(concorsi[i]) + " " + testo_data(giorni[i]));
    return testi;
}
std::vector<std::string> lotto_di(const Banco& b) {
    const auto a = b.aperto();
    return date(a.lotto().concorso, a.lotto().data);
}
std::vector<std::string> super_di(const Banco& b) {
    const auto a = b.aperto();
    return date(a.superenalotto().concorso, a.superenalotto().data);
}

// ---- new draws ----

TEST(Aggiorna, UnaSolaEstrazioneInCoda) {
    Banco b;
    b.importa(kGiugno, kSuper);
    const Proposta p = b.aggiorna({lotto("2001/06/16", 41)});
    ASSERT_EQ(p.giochi.size(), 1U);
    const PropostaGioco& g = p.giochi[0];
    EXPECT_EQ(g.ultima->concorso, 4);
    ASSERT_EQ(g.nuove.size(), 1U);
    EXPECT_EQ(g.nuove[0].concorso, 5);
    EXPECT_EQ(testo_data(g.nuove[0].data), "16/06/2001");
    EXPECT_EQ(g.uguali, 0U);
    EXPECT_THAT(g.lacune, IsEmpty());
    EXPECT_FALSE(p.qualcosa_resta_fuori());
    EXPECT_THAT(racconta(p), ElementsAre("testo 1: Lotto, 1 estrazione del 16/06/2001",
                                         "Lotto: 1 estrazione nuova: 5 del 16/06/2001",
                                         "Lotto del 16/06/2001: mancano le ruote FI GE MI NA PA RM TO VE"));
    const auto a = b.aperto();
    EXPECT_EQ(a.ultimo_concorso(), 5);
    EXPECT_EQ(a.lotto().righe, 10U);
    EXPECT_EQ(a.lotto().numeri[4][0], 41);
    EXPECT_EQ(a.superenalotto().concorso.size(), 3U) << "the other game stays";
}

TEST(Aggiorna, NienteDiNuovo) {
    Banco b;
    b.importa(kGiugno, kSuper, kWin);
    const auto prima = leggi_file(b.archivio() / "drawit.db").value();
    const Proposta p = b.aggiorna({kGiugno, kSuper, kWin});
    EXPECT_TRUE(p.niente_di_nuovo());
    EXPECT_FALSE(p.qualcosa_resta_fuori());
    EXPECT_EQ(p.giochi[0].uguali, 4U);
    EXPECT_EQ(p.giochi[1].uguali, 3U);
    EXPECT_EQ(p.giochi[2].uguali, 2U);
    EXPECT_EQ(leggi_file(b.archivio() / "drawit.db").value(), prima);
}

TEST(Aggiorna, UnaRuotaSolaEUgualeAllaSua) {
    Banco b;
    b.importa(kGiugno);
    EXPECT_TRUE(b.aggiorna({"2001/06/13\tCA\t31\t32\t33\t34\t35\n"}).niente_di_nuovo());
}

TEST(Aggiorna, TuttiETreIGiochiInUnaVolta) {
    Banco b;
    b.importa(kGiugno, kSuper, kWin);
    // The hour with one digit is the same hour; the Lotto of the 16th numbers SuperEnalotto of that day.
    const Proposta p =
        b.aggiorna({"1;2023-10-09;8:00;2;3;4;5;6;9;12;16;18;20;14\n"
                    "2;2023-10-09;9:00;2;3;4;5;6;9;12;16;18;19;14\n",
                    "2001-06-16;3;4;5;6;7;8;9;0\n2001-06-13;4;5;6;7;8;9;10;0\n", lotto("2001/06/16", 41)});
    EXPECT_EQ(p.giochi[2].uguali, 1U);
    EXPECT_THAT(super_di(b),
                ElementsAre("1 02/06/2001", "2 06/06/2001", "3 09/06/2001", "4 13/06/2001", "5 16/06/2001"));
    const auto a = b.aperto();
    EXPECT_THAT(a.winforlife().concorso, ElementsAre(1, 2, 3));
    EXPECT_EQ(a.winforlife().ora[2], "09:00");
    EXPECT_EQ(a.winforlife().ora[0], "07:00");
    EXPECT_THAT(racconta(p), Contains("Win for Life: 1 estrazione nuova: 3 del 09/10/2023 09:00"));
}

TEST(Aggiorna, LaNazionaleStaFraLeRuote) {
    Banco b;
    b.importa(kGiugno);
    b.aggiorna({lotto("2001/06/16", 41) + "2001/06/16\tRN\t90\t89\t88\t87\t86\n"});
    const auto a = b.aperto();
    EXPECT_THAT(a.nazionale().concorso, ElementsAre(5));
    EXPECT_EQ(a.nazionale().numeri[0], (std::array<Numero, 5>{90, 89, 88, 87, 86}));
}

// ---- draws that differ, draws that lack ----

TEST(Aggiorna, UnaDiversaSiElencaENonSiCambia) {
    Banco b;
    b.importa(kGiugno);
    const std::string arrivo = "2001/06/13\tCA\t31\t32\t33\t34\t90\n2001/06/13\tFI\t1\t2\t3\t4\t\n";
    const Proposta p = b.aggiorna({arrivo});
    EXPECT_TRUE(p.niente_di_nuovo());
    EXPECT_TRUE(p.qualcosa_resta_fuori());
    EXPECT_THAT(racconta(p), ElementsAre("testo 1: Lotto, 1 estrazione del 13/06/2001",
                                         "Lotto: 4 del 13/06/2001 CA nell'archivio è 31.32.33.34.35, arriva "
                                         "31.32.33.34.90: resta quella dell'archivio",
                                         "Lotto: 4 del 13/06/2001 FI nell'archivio è manca, arriva "
                                         "01.02.03.04.00: resta quella dell'archivio"));
    EXPECT_EQ(b.aperto().lotto().numeri[3][9], 35);
    b.modo.differenze = Differenze::sostituisci;
    const Proposta q = b.aggiorna({arrivo});
    EXPECT_FALSE(q.niente_di_nuovo());
    EXPECT_FALSE(q.qualcosa_resta_fuori());
    const auto a = b.aperto();
    EXPECT_EQ(a.lotto().numeri[3][9], 90);
    EXPECT_EQ(a.lotto().numeri[3][5], 31);
    EXPECT_EQ(a.lotto().numeri[3][10], 1) << "the wheel that lacked";
    EXPECT_EQ(a.lotto().righe, 9U);
    EXPECT_THAT(lotto_di(b), ElementsAre("1 02/06/2001", "2 06/06/2001", "3 09/06/2001", "4 13/06/2001"));
}

TEST(Aggiorna, UnaPiuVecchiaNonTrovaPosto) {
    Banco b;
    b.importa(lotto("2001/06/02", 1) + lotto("2001/06/09", 21) + lotto("2001/06/13", 31),
              "2001-06-02;1;2;3;4;5;6;7;0\n2001-06-13;2;3;4;5;6;7;8;0\n");
    const std::string arrivo = lotto("2001/06/06", 11) + lotto("2001/05/30", 1);
    const Proposta p = b.aggiorna({arrivo});
    EXPECT_TRUE(p.niente_di_nuovo());
    EXPECT_TRUE(p.qualcosa_resta_fuori());
    EXPECT_EQ(p.giochi[0].precedenti, 1U) << "before the first draw of the archive";
    ASSERT_EQ(p.giochi[0].fuori_posto.size(), 1U);
    EXPECT_EQ(p.giochi[0].fuori_posto[0].concorso, 2);
    // Asked for, it moves all that follows, SuperEnalotto too.
    b.modo.differenze = Differenze::sostituisci;
    const Proposta q = b.aggiorna({arrivo});
    EXPECT_TRUE(q.giochi[0].rinumera);
    EXPECT_THAT(lotto_di(b), ElementsAre("1 02/06/2001", "2 06/06/2001", "3 09/06/2001", "4 13/06/2001"));
    EXPECT_THAT(super_di(b), ElementsAre("1 02/06/2001", "4 13/06/2001"));
}

TEST(Aggiorna, DoveICorsiSonoLiberiLaVecchiaEntra) {
    Banco b;
    // By hand: concorsi 2 and 3 are free.
    RigheArchivio righe;
    righe.lotto = {{1, giorno("02/06/2001"), 0, {1, 2, 3, 4, 5}},
                   {4, giorno("13/06/2001"), 0, {1, 2, 3, 4, 5}}};
    std::filesystem::create_directories(b.archivio());
    ASSERT_TRUE(scrivi_drawit(b.archivio() / "drawit.db", righe, false));
    // Such an archive does not open, and one draw does not mend it: 2 or 3? nobody can say.
    EXPECT_THAT(b.errore({lotto("2001/06/06", 11)}), HasSubstr("concorsi 2-3: i concorsi mancano"));
    const Proposta p = b.aggiorna({lotto("2001/06/06", 11) + lotto("2001/06/09", 21)});
    EXPECT_EQ(p.giochi[0].nuove.size(), 2U);
    EXPECT_FALSE(p.giochi[0].rinumera);
    EXPECT_THAT(lotto_di(b), ElementsAre("1 02/06/2001", "2 06/06/2001", "3 09/06/2001", "4 13/06/2001"));
}

TEST(Aggiorna, LeLacuneSiDicono) {
    Banco b;
    b.importa(kGiugno, {}, kWin);
    const Proposta p =
        b.aggiorna({lotto("2001/06/30", 41), "1;2023-10-09;11:00;1;3;4;5;6;9;12;16;18;20;1\n"});
    ASSERT_EQ(p.giochi[0].lacune.size(), 1U);
    EXPECT_EQ(p.giochi[0].lacune[0].circa, 4) << "the 16th, 20th, 23rd and 27th";
    EXPECT_EQ(p.giochi[0].nuove[0].concorso, 5) << "the archive's numbering stands";
    EXPECT_THAT(racconta(p),
                Contains("Lotto: fra la 4 del 13/06/2001 e la 5 del 30/06/2001 mancano circa 4 estrazioni"));
    EXPECT_THAT(racconta(p),
                Contains("Win for Life: fra la 2 del 09/10/2023 08:00 e la 3 del 09/10/2023 11:00 "
                         "mancano circa 2 estrazioni"));
}

TEST(Aggiorna, QuelloCheNonPuoEssereVero) {
    Banco b;
    b.importa(kGiugno, kSuper);
    EXPECT_EQ(b.errore({"2031/01/02\tBA\t1\t2\t3\t4\t5\n"}),
              "Lotto del 02/01/2031: è una data futura, oggi è il 31/12/2030");
    EXPECT_EQ(b.errore({"2001/06/16\tCA\t7\t2\t3\t4\t7\n"}),
              "Lotto del 16/06/2001, ruota CA: il numero 7 vi sta due volte");
    EXPECT_EQ(b.errore({"2001-06-13;1;2;3;4;5;6;6;0\n"}),
              "SuperEnalotto del 13/06/2001: il numero 6 vi sta due volte");
    EXPECT_FALSE(b.aggiorna({"2001-06-13;1;2;3;4;5;6;7;6\n"}).niente_di_nuovo())
        << "the SuperStar has an urn of its own";
}

TEST(Aggiorna, LaNazionaleDaSolaNonEUnEstrazione) {
    Banco b;
    b.importa(kGiugno);
    EXPECT_EQ(b.errore({"2001/06/16\tRN\t1\t2\t3\t4\t5\n"}),
              "Lotto del 16/06/2001: vi è soltanto la Nazionale, attesa almeno una delle dieci ruote");
    // To a draw that is there it may come later than the others.
    b.modo.differenze = Differenze::sostituisci;
    EXPECT_FALSE(b.aggiorna({"2001/06/13\tRN\t1\t2\t3\t4\t5\n"}).niente_di_nuovo());
    EXPECT_THAT(b.aperto().nazionale().concorso, ElementsAre(4));
}

TEST(Aggiorna, AncheQuelleCheSostituisconoSiGuardano) {
    Banco b;
    b.importa(kGiugno, kSuper);
    const std::vector<std::string> doppio{"2001/06/09\tBA\t1\t2\t3\t4\t1\n"};
    EXPECT_EQ(b.errore(doppio), "nessun errore") << "it is listed, and the archive keeps its own";
    b.modo.differenze = Differenze::sostituisci;
    EXPECT_EQ(b.errore(doppio), "Lotto del 09/06/2001, ruota BA: il numero 1 vi sta due volte");
}

TEST(Aggiorna, UnSuperEnalottoDiPrimaCheTrovaPostoSiGuarda) {
    Banco b;
    b.importa(kGiugno, "2001-06-06;1;2;3;4;5;6;7;0\n2001-06-09;1;2;3;4;5;6;7;0\n");
    // The day before the first Lotto draw, whose concorso is free.
    EXPECT_EQ(b.errore({"2001-06-01;61;12;12;14;15;16;17;0\n"}),
              "SuperEnalotto del 01/06/2001: il numero 12 vi sta due volte");
    b.aggiorna({"2001-06-01;61;12;13;14;15;16;17;0\n"});
    EXPECT_THAT(super_di(b), ElementsAre("1 01/06/2001", "2 06/06/2001", "3 09/06/2001"));
}

// ---- SuperEnalotto's numbers ----

TEST(Aggiorna, IlSuperEnalottoAspettaIlLotto) {
    Banco b;
    b.importa(kGiugno, kSuper);
    const Proposta p = b.aggiorna({"2001-06-16;1;2;3;4;5;6;7;0\n"});
    EXPECT_TRUE(p.niente_di_nuovo());
    EXPECT_TRUE(p.qualcosa_resta_fuori());
    EXPECT_THAT(racconta(p), Contains("SuperEnalotto: aspettano il Lotto, dal quale prendono il concorso: "
                                      "16/06/2001"));
    b.aggiorna({lotto("2001/06/16", 41), "2001-06-16;1;2;3;4;5;6;7;0\n"});
    EXPECT_THAT(super_di(b), Contains("5 16/06/2001"));
}

TEST(Aggiorna, UnGiornoSenzaLottoPrendeIlLiberoPiuVicino) {
    Banco b;
    b.importa(kGiugno, kSuper);  // the 13th has no SuperEnalotto yet
    // The 14th could borrow the 13th's number, but that draw may still come.
    EXPECT_TRUE(b.aggiorna({"2001-06-14;1;2;3;4;5;6;7;0\n"}).niente_di_nuovo());
    const std::string lotti = lotto("2001/06/16", 41) + lotto("2001/06/20", 51);
    b.aggiorna(
        {lotti, "2001-06-14;1;2;3;4;5;6;7;0\n2001-06-16;1;2;3;4;5;6;7;0\n2001-06-20;1;2;3;4;5;6;7;0\n"});
    EXPECT_THAT(super_di(b), ElementsAre("1 02/06/2001", "2 06/06/2001", "3 09/06/2001", "4 14/06/2001",
                                         "5 16/06/2001", "6 20/06/2001"));
    // None is left for another one: it is named and stays out, today and the next time.
    for (int volta = 0; volta < 2; ++volta) {
        const Proposta p = b.aggiorna({"2001-06-15;1;2;3;4;5;6;8;0\n"});
        EXPECT_TRUE(p.niente_di_nuovo());
        EXPECT_FALSE(p.qualcosa_resta_fuori());
        EXPECT_THAT(p.avvisi, ElementsAre("SuperEnalotto del 15/06/2001: nessun concorso libero entro cinque "
                                          "giorni, estrazione tralasciata"));
    }
}

// ---- no archive, a simulated one, one that changes meanwhile ----

/// From 1997 so that the draw of 3 December is there: its numbers count from it.
std::string storia() {
    std::string testo;
    Data g = giorno("03/12/1997") - std::chrono::days{401};
    for (int i = 0; i < 410; ++i, g += std::chrono::days{1}) {
        std::string data = testo_data_iso(g);
        std::replace(data.begin(), data.end(), '-', '/');
        testo += data + "\tBA\t1\t2\t3\t4\t5\n";
    }
    return testo;
}

TEST(Aggiorna, SenzaArchivioServeLaStoria) {
    Banco b;
    EXPECT_THAT(b.errore({lotto("2001/06/16", 41)}), HasSubstr("serve la storia intera del Lotto"));
    EXPECT_THAT(b.errore({"2001-06-16;1;2;3;4;5;6;7;0\n"}), HasSubstr("serve anche la storia del Lotto"));
    EXPECT_THAT(b.errore({kWin}), HasSubstr("serve la storia intera di Win for Life"));
    EXPECT_FALSE(std::filesystem::exists(b.archivio()));
    EXPECT_EQ(b.errore({storia() + "1997/12/20\tTO\t1\t2\t3\t3\t5\n1997/12/21\tTO\t1\t2\t3\t4\t5\n"}),
              "Lotto del 20/12/1997, ruota TO: il numero 3 vi sta due volte");
    b.aggiorna({storia(), std::string{kTitoliW} + kWin, "1997-12-03;1;2;3;4;5;6;7;0\n"});
    const auto a = b.aperto();
    EXPECT_EQ(a.ultimo_concorso(), 410);
    EXPECT_EQ(testo_data(a.data_bari(402).value()), "03/12/1997");
    EXPECT_EQ(a.winforlife().concorso.size(), 2U);
    EXPECT_THAT(a.superenalotto().concorso, ElementsAre(402));
}

TEST(Aggiorna, LeVereNonSiMescolanoAlleSimulate) {
    Banco b;
    ASSERT_TRUE(crea_dimostrazione(b.archivio(), b.nessuno));
    for (const std::vector<std::string>& testi :
         {std::vector<std::string>{lotto("2026/08/22", 1)}, {"2026-08-22;1;2;3;4;5;6;7;0\n"}, {kWin}}) {
        EXPECT_THAT(b.errore(testi), HasSubstr("l'archivio che c'è è quello dimostrativo"));
        EXPECT_THAT(b.errore(testi), HasSubstr("la storia intera"));
    }
    const Proposta p = b.aggiorna({storia()});
    EXPECT_TRUE(p.sostituisce_simulato);
    const auto a = b.aperto();
    EXPECT_FALSE(a.drawit().simulato);
    EXPECT_EQ(a.ultimo_concorso(), 410);
    EXPECT_THAT(a.superenalotto().concorso, IsEmpty()) << "no simulated SuperEnalotto beside real Lotto";
    EXPECT_FALSE(b.aggiorna({storia() + "1997/12/31\tBA\t1\t2\t3\t4\t5\n"}).niente_di_nuovo());
    EXPECT_EQ(b.aperto().ultimo_concorso(), 411);
}

TEST(Aggiorna, ConUnGiocoVeroVannoViaTuttiISimulati) {
    Banco b;
    ASSERT_TRUE(crea_dimostrazione(b.archivio(), b.nessuno));
    const Proposta p = b.aggiorna({std::string{kTitoliW} + kWin});
    EXPECT_THAT(racconta(p), Contains("L'archivio dimostrativo lascia il posto alle estrazioni vere."));
    const auto a = b.aperto();
    EXPECT_EQ(a.winforlife().concorso.size(), 2U);
    EXPECT_THAT(a.lotto().concorso, IsEmpty());
    EXPECT_THAT(b.errore({lotto("2026/08/22", 1)}), HasSubstr("serve la storia intera del Lotto"));
}

TEST(Aggiorna, LAltroFilePuoEssereGuasto) {
    Banco b;
    b.importa(kGiugno, {}, kWin);
    std::ofstream{b.archivio() / "drawit2.db"} << "guasto";
    b.aggiorna({lotto("2001/06/16", 41)});
    EXPECT_EQ(apri_archivio(b.archivio(), kTabellaLotto)->ultimo_concorso(), 5);
}

TEST(Aggiorna, LAnnullamentoRiportaQuelloDiPrima) {
    Banco b;
    b.importa(kGiugno, kSuper);
    const auto prima = leggi_file(b.archivio() / "drawit.db").value();
    b.aggiorna({lotto("2001/06/16", 41)});
    EXPECT_EQ(b.aperto().ultimo_concorso(), 5);
    ASSERT_TRUE(annulla_importazione(b.archivio(), b.nessuno));
    EXPECT_EQ(leggi_file(b.archivio() / "drawit.db").value(), prima);
    ASSERT_TRUE(annulla_importazione(b.archivio(), b.nessuno)) << "and back again";
    EXPECT_EQ(b.aperto().ultimo_concorso(), 5);
    // An update that finds nothing keeps what there is to come back to.
    EXPECT_TRUE(b.aggiorna({lotto("2001/06/16", 41)}).niente_di_nuovo());
    ASSERT_TRUE(annulla_importazione(b.archivio(), b.nessuno));
    EXPECT_EQ(b.aperto().ultimo_concorso(), 4);
}

TEST(Aggiorna, DueInsiemeUnoAllaVolta) {
    Banco b;
    b.importa(kGiugno);
    const auto uno = b.propone({lotto("2001/06/16", 41)});
    const auto due = b.propone({lotto("2001/06/16", 51)});
    ASSERT_TRUE(uno && due);
    std::array<bool, 2> fatti{};
    {
        const std::jthread primo{[&] {
            SenzaAvanzamento nessuno;
            fatti[0] = applica(b.archivio(), *uno, nessuno).has_value();
        }};
        SenzaAvanzamento nessuno;
        fatti[1] = applica(b.archivio(), *due, nessuno).has_value();
    }
    EXPECT_NE(fatti[0], fatti[1]) << "the second finds an archive that it was not made for";
    EXPECT_EQ(b.aperto().lotto().numeri[4][0], fatti[0] ? 41 : 51);
}

TEST(Aggiorna, UnArchivioCheCambiaNelFrattempo) {
    Banco b;
    b.importa(kGiugno);
    const auto p = b.propone({lotto("2001/06/16", 41)});
    ASSERT_TRUE(p);
    b.importa(kGiugno + lotto("2001/06/16", 51));
    const auto fatto = applica(b.archivio(), *p, b.nessuno);
    ASSERT_FALSE(fatto);
    EXPECT_THAT(fatto.error().motivo, HasSubstr("è cambiato dopo il confronto"));
    EXPECT_EQ(b.aperto().lotto().numeri[4][0], 51);
}

// ---- Jet ----

auto chiave(const RigaLotto& r) {
    return std::tuple{r.concorso, r.ruota, r.data, r.numeri};
}
auto chiave(const RigaSuperEnalotto& r) {
    return std::tuple{r.concorso, r.data, r.numeri, r.jolly, r.superstar};
}
auto chiave(const RigaWinForLife& r) {
    return std::tuple{r.concorso, r.ora, r.data, r.numeri};
}
template <class Riga>
auto ordinate(const std::vector<Riga>& righe) {
    std::vector<decltype(chiave(righe.front()))> chiavi;
    for (const Riga& r : righe) chiavi.push_back(chiave(r));
    std::sort(chiavi.begin(), chiavi.end());
    return chiavi;
}

struct BancoJet : Banco {
    std::optional<std::filesystem::path> veri = prove::cartella_condivisa();
    RigheArchivio righe;

    void SetUp() {
        std::filesystem::create_directories(archivio());
        for (const char* nome : {"drawit.mdb", "drawit2.mdb"})
            std::filesystem::copy_file(*veri / "archivio" / nome, archivio() / nome);
        righe = leggi_jet(archivio() / "drawit.mdb", kTutteLeTabelle & ~unsigned{kTabellaWinForLife}).value();
        righe.winforlife = leggi_jet(archivio() / "drawit2.mdb", kTabellaWinForLife).value().winforlife;
    }
    void nativi_uguali() {
        const auto drawit =
            leggi_nativo(archivio() / "drawit.db", kTutteLeTabelle & ~unsigned{kTabellaWinForLife});
        ASSERT_TRUE(drawit) << drawit.error().testo();
        const auto drawit2 = leggi_nativo(archivio() / "drawit2.db", kTabellaWinForLife);
        ASSERT_TRUE(drawit2) << drawit2.error().testo();
        EXPECT_EQ(ordinate(drawit->righe.lotto), ordinate(righe.lotto));
        EXPECT_EQ(ordinate(drawit->righe.nazionale), ordinate(righe.nazionale));
        EXPECT_EQ(ordinate(drawit->righe.superenalotto), ordinate(righe.superenalotto));
        EXPECT_EQ(ordinate(drawit2->righe.winforlife), ordinate(righe.winforlife));
    }
};

TEST(Aggiorna, IlPrimoDaJetPortaTutto) {
    BancoJet b;
    if (!b.veri) GTEST_SKIP() << "no real archive here";
    b.SetUp();
    // The clock of who wrote it was ahead: the native file is read nevertheless.
    std::filesystem::last_write_time(b.archivio() / "drawit.mdb",
                                     std::filesystem::file_time_type::clock::now() + std::chrono::hours{24});
    const std::string jet = leggi_file(b.archivio() / "drawit.mdb").value();
    const std::string jet2 = leggi_file(b.archivio() / "drawit2.mdb").value();
    const Proposta p = b.aggiorna({lotto("2026/08/22", 41)});
    EXPECT_TRUE(p.da_jet);
    EXPECT_EQ(p.giochi[0].nuove[0].concorso, 4656);
    for (const RigaLotto& r : {RigaLotto{4656, giorno("22/08/2026"), 0, {41, 42, 43, 44, 45}},
                               RigaLotto{4656, giorno("22/08/2026"), 1, {41, 42, 43, 44, 45}}})
        b.righe.lotto.push_back(r);
    b.nativi_uguali();
    EXPECT_EQ(leggi_file(b.archivio() / "drawit.mdb").value(), jet);
    EXPECT_EQ(leggi_file(b.archivio() / "drawit2.mdb").value(), jet2);
    const auto a = b.aperto();
    EXPECT_EQ(a.drawit().file.filename(), "drawit.db");
    EXPECT_EQ(a.drawit2().file.filename(), "drawit2.db");
    EXPECT_EQ(a.ultimo_concorso(), 4656);
    EXPECT_FALSE(b.aggiorna({lotto("2026/08/25", 51)}).da_jet) << "the second one is an ordinary one";
}

TEST(Aggiorna, NienteDiNuovoNonTraduceJet) {
    BancoJet b;
    if (!b.veri) GTEST_SKIP() << "no real archive here";
    b.SetUp();
    EXPECT_TRUE(b.aggiorna({leggi_file(*b.veri / "archivio" / "lotto.txt").value()}).niente_di_nuovo());
    EXPECT_FALSE(std::filesystem::exists(b.archivio() / "drawit.db"));
}

TEST(ImportaJet, TuttoRigaPerRiga) {
    BancoJet b;
    if (!b.veri) GTEST_SKIP() << "no real archive here";
    b.SetUp();
    const auto fatto = importa_jet(b.archivio(), *b.veri / "archivio", false, b.nessuno);
    ASSERT_TRUE(fatto) << fatto.error().testo();
    EXPECT_EQ(fatto->lotto, b.righe.lotto.size());
    b.nativi_uguali();
    EXPECT_EQ(b.aperto().drawit().file.filename(), "drawit.db");
}

TEST(ImportaJet, UnaCartellaSenza) {
    Banco b;
    const auto fatto = importa_jet(b.archivio(), b.cartella.percorso(), false, b.nessuno);
    ASSERT_FALSE(fatto);
    EXPECT_EQ(fatto.error().motivo, "non vi si trova né drawit.mdb né drawit2.mdb");
}

// ---- any history, in any pieces ----

/// The lines of a text in pieces, each piece with its lines in any order.
std::vector<std::string> pezzi(std::vector<std::string> giorni, std::mt19937& caso) {
    std::vector<std::string> tutti;
    for (std::size_t i = 0; i < giorni.size();) {
        const std::size_t quanti = std::min<std::size_t>(1 + caso() % 5, giorni.size() - i);
        // A piece overlaps what came before.
        const std::size_t da = i - std::min<std::size_t>(i, caso() % 3);
        std::vector<std::string> pezzo(giorni.begin() + static_cast<std::ptrdiff_t>(da),
                                       giorni.begin() + static_cast<std::ptrdiff_t>(i + quanti));
        std::shuffle(pezzo.begin(), pezzo.end(), caso);
        std::string testo;
        for (const std::string& g : pezzo) testo += g;
        tutti.push_back(testo);
        i += quanti;
    }
    return tutti;
}

TEST(Aggiorna, APezziComeTuttaInsieme) {
    for (unsigned seme = 1; seme <= 20; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        std::vector<std::string> giorni;
        Data g = giorno("02/06/2001");
        for (unsigned i = 0; i < 12 + caso() % 10; ++i, g += std::chrono::days{1 + caso() % 4}) {
            std::string data = testo_data_iso(g);
            std::replace(data.begin(), data.end(), '-', '/');
            giorni.push_back(lotto(data, static_cast<int>(1 + caso() % 80)));
        }
        std::string intera;
        for (const std::string& x : giorni) intera += x;
        Banco insieme;
        insieme.importa(intera);
        Banco pezzo_a_pezzo;
        const auto testi = pezzi(giorni, caso);
        pezzo_a_pezzo.importa(testi.front());
        for (std::size_t i = 1; i < testi.size(); ++i) pezzo_a_pezzo.aggiorna({testi[i]});
        const auto a = insieme.aperto();
        const auto b = pezzo_a_pezzo.aperto();
        EXPECT_EQ(a.lotto().concorso, b.lotto().concorso);
        EXPECT_EQ(a.lotto().data, b.lotto().data);
        EXPECT_EQ(a.lotto().numeri, b.lotto().numeri);
    }
}

TEST(Aggiorna, LaStoriaVeraAPezzi) {
    const auto veri = prove::cartella_condivisa();
    if (!veri) GTEST_SKIP() << "no real draws here";
    Banco b;
    const auto righe = [&](const char* nome, std::string_view fino) {
        std::string testo = leggi_file(*veri / "archivio" / nome).value();
        const auto taglio = testo.find(fino);
        EXPECT_NE(taglio, std::string::npos) << nome;
        return std::pair{testo.substr(0, taglio), testo.substr(taglio)};
    };
    const auto [lotto_prima, lotto_dopo] = righe("lotto.txt", "2017/12/02");
    const auto [super_prima, super_dopo] = righe("superenalotto.csv", "2017-12-02");
    const auto [win_prima, win_dopo] = righe("winforlife.csv", "5000;");
    b.aggiorna({lotto_prima, super_prima, win_prima});
    b.aggiorna({lotto_dopo, super_dopo, win_dopo});
    const auto* vero = prove::archivio_vero();
    const auto a = b.aperto();
    EXPECT_EQ(a.lotto().concorso, vero->lotto().concorso);
    EXPECT_EQ(a.lotto().numeri, vero->lotto().numeri);
    EXPECT_EQ(a.nazionale().numeri, vero->nazionale().numeri);
    EXPECT_EQ(a.superenalotto().concorso, vero->superenalotto().concorso);
    EXPECT_EQ(a.superenalotto().numeri, vero->superenalotto().numeri);
    EXPECT_EQ(a.winforlife().concorso, vero->winforlife().concorso);
    EXPECT_EQ(a.winforlife().ora, vero->winforlife().ora);
    EXPECT_EQ(a.winforlife().numeri, vero->winforlife().numeri);
}

}  // namespace
}  // namespace sortimetra
