#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/importa.h"
#include "stores/negozio_nativo.h"
#include "stores/pubblicati.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include <thread>

namespace sortimetra {
namespace {

using prove::CartellaProva;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view kTitoliS = "data;n1;n2;n3;n4;n5;n6;jolly;superstar\n";
constexpr std::string_view kTitoliW = "concorso;data;ora;n1;n2;n3;n4;n5;n6;n7;n8;n9;n10;numerone\n";

std::filesystem::path metti(const CartellaProva& cartella, std::string_view nome, std::string_view testo) {
    const auto file = cartella.percorso() / nome;
    std::ofstream{file, std::ios::binary | std::ios::trunc} << testo;
    return file;
}

/// "CONCORSO data" of each SuperEnalotto draw that is left after numbering.
std::vector<std::string> concorsi(const std::vector<RigaSuperEnalotto>& righe) {
    std::vector<std::string> testi;
    for (const auto& r : righe) testi.push_back(std::to_string(r.concorso) + " " + testo_data(r.data));
    return testi;
}

// ---- numbering ----

/// A Lotto text with a Bari row on each of the days.
std::string lotto_dei_giorni(const std::vector<std::string>& giorni) {
    std::string testo;
    for (const auto& g : giorni) testo += g + "\tBA\t1\t2\t3\t4\t5\n";
    return testo;
}

std::expected<LettiPubblicati, ErroreArchivio> leggi(const CartellaProva& cartella, std::string_view lotto,
                                                     std::string_view superenalotto, bool tutto = true) {
    FilePubblicati file;
    file.lotto = metti(cartella, "lotto.txt", lotto);
    file.superenalotto =
        metti(cartella, "superenalotto.csv", std::string{kTitoliS} + std::string{superenalotto});
    file.tutto = tutto;
    SenzaAvanzamento nessuno;
    return leggi_pubblicati(file, nessuno);
}

TEST(Numerazione, SiContaDallaDataDelPrimoSuperEnalotto) {
    const CartellaProva cartella;
    std::string lotto;
    Data g = leggi_data_italiana("03/12/1997").value() - std::chrono::days{500};
    for (int i = 0; i <= 510; ++i, g += std::chrono::days{1}) {
        std::string giorno = testo_data_iso(g);
        std::replace(giorno.begin(), giorno.end(), '-', '/');
        lotto += giorno + "\tBA\t1\t2\t3\t4\t5\n";
    }
    FilePubblicati file{.lotto = metti(cartella, "lotto.txt", lotto)};
    SenzaAvanzamento nessuno;
    const auto letti = leggi_pubblicati(file, nessuno);
    ASSERT_TRUE(letti) << letti.error().testo();
    ASSERT_EQ(letti->righe.lotto.size(), 412U);
    EXPECT_EQ(letti->righe.lotto.front().concorso, 1);
    EXPECT_EQ(letti->righe.lotto[401].concorso, 402);
    EXPECT_EQ(testo_data(letti->righe.lotto[401].data), "03/12/1997");
    file.tutto = true;
    const auto tutti = leggi_pubblicati(file, nessuno);
    ASSERT_EQ(tutti->righe.lotto.size(), 511U);
    EXPECT_EQ(tutti->righe.lotto[500].concorso, 501);
}

TEST(Numerazione, SenzaLaDataDiPartenza) {
    const CartellaProva cartella;
    const FilePubblicati file{.lotto = metti(cartella, "lotto.txt", "2000/01/01\tBA\t1\t2\t3\t4\t5\n")};
    SenzaAvanzamento nessuno;
    const auto letti = leggi_pubblicati(file, nessuno);
    ASSERT_FALSE(letti);
    EXPECT_EQ(letti.error().file, *file.lotto);
    EXPECT_THAT(letti.error().motivo, HasSubstr("03/12/1997"));
    EXPECT_THAT(letti.error().motivo, HasSubstr("--tutto"));
}

TEST(Numerazione, IlConcorsoLiberoPiuVicino) {
    const CartellaProva cartella;
    // Lotto on the 1st, 4th, 8th and 20th. The 1st and 8th have SuperEnalotto draws of their own.
    const auto letti =
        leggi(cartella, lotto_dei_giorni({"2001/06/01", "2001/06/04", "2001/06/08", "2001/06/20"}),
              "2001-06-01;1;2;3;4;5;6;7;0\n"
              "2001-06-02;1;2;3;4;5;6;7;0\n"  // 1st is nearer but taken: the 4th
              "2001-06-08;1;2;3;4;5;6;7;0\n"
              "2001-06-09;1;2;3;4;5;6;7;0\n"    // 8th taken, 4th taken by now: left out
              "2001-06-15;1;2;3;4;5;6;7;0\n"    // five days before the 20th
              "2001-06-26;1;2;3;4;5;6;7;0\n");  // six days after it: too far
    ASSERT_TRUE(letti) << letti.error().testo();
    EXPECT_THAT(concorsi(letti->righe.superenalotto),
                ElementsAre("1 01/06/2001", "2 02/06/2001", "3 08/06/2001", "4 15/06/2001"));
    EXPECT_THAT(letti->avvisi,
                ElementsAre("SuperEnalotto del 09/06/2001: nessun concorso libero entro cinque giorni, "
                            "estrazione tralasciata",
                            "SuperEnalotto del 26/06/2001: nessun concorso libero entro cinque giorni, "
                            "estrazione tralasciata"));
}

TEST(Numerazione, AParitaIlPrecedente) {
    const CartellaProva cartella;
    const auto letti = leggi(cartella, lotto_dei_giorni({"2001/06/01", "2001/06/05"}),
                             "2001-06-03;1;2;3;4;5;6;7;0\n2001-06-02;1;2;3;4;5;6;8;0\n");
    ASSERT_TRUE(letti) << letti.error().testo();
    // The 3rd stands first in the file and takes the 1st; the 2nd is left with the 5th.
    EXPECT_THAT(concorsi(letti->righe.superenalotto), ElementsAre("1 03/06/2001", "2 02/06/2001"));
}

TEST(Numerazione, ChiHaLaSuaDataVienePrima) {
    const CartellaProva cartella;
    // The draw of the 2nd would like the 1st, but the 1st belongs to the draw of its own date, further down.
    const auto letti = leggi(cartella, lotto_dei_giorni({"2001/06/01"}),
                             "2001-06-02;1;2;3;4;5;6;7;0\n2001-06-01;1;2;3;4;5;6;8;0\n");
    ASSERT_TRUE(letti) << letti.error().testo();
    EXPECT_THAT(concorsi(letti->righe.superenalotto), ElementsAre("1 01/06/2001"));
    EXPECT_EQ(letti->avvisi.size(), 1U);
}

TEST(Numerazione, IlVero) {
    const auto* vero = prove::archivio_vero();
    if (vero == nullptr) GTEST_SKIP() << "no real draws here";
    EXPECT_EQ(vero->lotto().concorso.size(), 4655U);
    EXPECT_EQ(testo_data(vero->lotto().data.front()), "22/12/1990");
    EXPECT_EQ(testo_data(vero->data_bari(402).value()), "03/12/1997");
    EXPECT_EQ(vero->nazionale().concorso.front(), 1182);
    EXPECT_EQ(vero->superenalotto().concorso.front(), 402);
    EXPECT_EQ(vero->winforlife().concorso.size(), 1000U);
}

// ---- the whole import ----

const std::string kLottoPiccolo =
    "2001/06/01\tBA\t1\t2\t3\t4\t5\n2001/06/01\tCA\t6\t7\t8\t9\t10\n2001/06/01\tRN\t1\t2\t3\t4\t5\n"
    "2001/06/05\tBA\t11\t12\t13\t14\t15\n";
const std::string kWflPiccolo = std::string{kTitoliW} + "9000;2023-10-09;07:00;1;3;4;5;6;9;12;16;18;20;14\n";

struct Prova {
    CartellaProva cartella;
    SenzaAvanzamento nessuno;
    [[nodiscard]] std::filesystem::path archivio() const { return cartella.percorso() / "archivio"; }
    bool sostituisci = false;
    std::expected<Importati, ErroreArchivio> importa(std::optional<std::string> lotto,
                                                     std::optional<std::string> superenalotto = {},
                                                     std::optional<std::string> winforlife = {}) {
        FilePubblicati file;
        if (lotto) file.lotto = metti(cartella, "lotto.txt", *lotto);
        if (superenalotto)
            file.superenalotto = metti(cartella, "s.csv", std::string{kTitoliS} + *superenalotto);
        if (winforlife) file.winforlife = metti(cartella, "w.csv", *winforlife);
        file.tutto = true;
        file.sostituisci = sostituisci;
        return importa_archivio(archivio(), file, nessuno);
    }
    std::set<std::string> nomi() const {
        std::set<std::string> tutti;
        for (const auto& voce : std::filesystem::directory_iterator{archivio()})
            tutti.insert(voce.path().filename());
        return tutti;
    }
};

TEST(Importa, TuttiETre) {
    Prova p;
    const auto fatto = p.importa(kLottoPiccolo, "2001-06-01;1;2;3;4;5;6;7;9\n", kWflPiccolo);
    ASSERT_TRUE(fatto) << fatto.error().testo();
    EXPECT_EQ(fatto->lotto, 3U);
    EXPECT_EQ(fatto->nazionale, 1U);
    EXPECT_EQ(fatto->superenalotto, 1U);
    EXPECT_EQ(fatto->winforlife, 1U);
    EXPECT_THAT(p.nomi(), ElementsAre("drawit.db", "drawit.db.prec", "drawit2.db", "drawit2.db.prec"));
    const auto a = apri_archivio(p.archivio());
    ASSERT_TRUE(a) << a.error().testo();
    EXPECT_EQ(a->lotto().righe, 3U);
    EXPECT_EQ(a->ultimo_concorso(), 2);
    EXPECT_EQ(a->superenalotto().numeri[0], (std::array<Numero, 8>{1, 2, 3, 4, 5, 6, 7, 9}));
    EXPECT_EQ(a->winforlife().ora[0], "07:00");
    EXPECT_FALSE(a->drawit().simulato);
}

TEST(Importa, SoloIlLottoTieneIlSuperEnalotto) {
    Prova p;
    ASSERT_TRUE(p.importa(kLottoPiccolo, "2001-06-05;1;2;3;4;5;6;7;9\n"));
    // One draw earlier: all concorsi move by one, SuperEnalotto with them.
    ASSERT_TRUE(p.importa("2001/05/30\tBA\t1\t2\t3\t4\t5\n" + kLottoPiccolo));
    const auto a = apri_archivio(p.archivio());
    ASSERT_TRUE(a) << a.error().testo();
    EXPECT_EQ(a->ultimo_concorso(), 3);
    EXPECT_THAT(a->superenalotto().concorso, ElementsAre(3));
}

TEST(Importa, SoloIlSuperEnalottoSiNumeraColLottoCheCE) {
    Prova p;
    ASSERT_TRUE(p.importa(kLottoPiccolo));
    ASSERT_TRUE(p.importa({}, "2001-06-05;1;2;3;4;5;6;7;9\n"));
    const auto a = apri_archivio(p.archivio());
    ASSERT_TRUE(a) << a.error().testo();
    EXPECT_EQ(a->lotto().righe, 3U);
    EXPECT_EQ(a->nazionale().concorso.size(), 1U);
    EXPECT_THAT(a->superenalotto().concorso, ElementsAre(2));
}

TEST(Importa, SoloIlSuperEnalottoSenzaLotto) {
    Prova p;
    const auto fatto = p.importa({}, "2001-06-05;1;2;3;4;5;6;7;9\n");
    ASSERT_FALSE(fatto);
    EXPECT_THAT(fatto.error().testo(), HasSubstr("s.csv: i concorsi si contano con le estrazioni del Lotto"));
    EXPECT_FALSE(std::filesystem::exists(p.archivio()));
}

TEST(Importa, SoloWinForLifeNonToccaIlResto) {
    Prova p;
    ASSERT_TRUE(p.importa(kLottoPiccolo));
    const auto prima = leggi_file(p.archivio() / "drawit.db").value();
    ASSERT_TRUE(p.importa({}, {}, kWflPiccolo));
    EXPECT_EQ(leggi_file(p.archivio() / "drawit.db").value(), prima);
    EXPECT_THAT(p.nomi(), ElementsAre("drawit.db", "drawit2.db", "drawit2.db.prec"));
}

TEST(Importa, NessunFile) {
    Prova p;
    EXPECT_EQ(p.importa({}).error().testo(), "nessun file da importare");
}

TEST(Importa, UnErroreLasciaTuttoComEra) {
    Prova p;
    ASSERT_TRUE(p.importa(kLottoPiccolo, "2001-06-05;1;2;3;4;5;6;7;9\n", kWflPiccolo));
    const auto prima = leggi_file(p.archivio() / "drawit.db").value();
    const auto prima2 = leggi_file(p.archivio() / "drawit2.db").value();
    const auto fatto = p.importa("2002/01/01\tBA\t1\t2\t3\t4\t5\n", {}, kWflPiccolo + "storto\n");
    ASSERT_FALSE(fatto);
    EXPECT_EQ(fatto.error().file.filename(), "w.csv");
    EXPECT_EQ(fatto.error().motivo, "riga 3: trovato \"storto\", atteso un numero di concorso");
    EXPECT_EQ(leggi_file(p.archivio() / "drawit.db").value(), prima);
    EXPECT_EQ(leggi_file(p.archivio() / "drawit2.db").value(), prima2);
    EXPECT_THAT(p.nomi(), ElementsAre("drawit.db", "drawit.db.prec", "drawit2.db", "drawit2.db.prec"));
}

TEST(Importa, SeUnoDeiDueFileNonSiPuoScrivereNessunoCambia) {
    Prova p;
    ASSERT_TRUE(p.importa(kLottoPiccolo));
    const auto prima = leggi_file(p.archivio() / "drawit.db").value();
    // A folder stands where the second file should go.
    std::filesystem::create_directory(p.archivio() / "drawit2.db");
    p.sostituisci = true;
    const auto fatto = p.importa("2002/01/01\tBA\t1\t2\t3\t4\t5\n", {}, kWflPiccolo);
    ASSERT_FALSE(fatto);
    EXPECT_EQ(fatto.error().motivo, "non si può scrivere: è una cartella");
    EXPECT_EQ(leggi_file(p.archivio() / "drawit.db").value(), prima);
    EXPECT_THAT(p.nomi(), ElementsAre("drawit.db", "drawit.db.prec", "drawit2.db"));
}

TEST(Importa, FileCheMancaOVuoto) {
    Prova p;
    SenzaAvanzamento nessuno;
    const FilePubblicati manca{.lotto = p.cartella.percorso() / "non c'è.txt"};
    EXPECT_EQ(importa_archivio(p.archivio(), manca, nessuno).error().motivo, "il file non c'è");
    EXPECT_EQ(p.importa("").error().motivo, "il file è vuoto");
    const FilePubblicati cartella{.lotto = p.cartella.percorso()};
    EXPECT_EQ(importa_archivio(p.archivio(), cartella, nessuno).error().motivo,
              "è una cartella, non un file");
}

/// Counts the reports and cancels at the n-th.
class Annulla final : public Avanzamento {
  public:
    explicit Annulla(int dopo) : dopo_{dopo} {}
    bool procedi(std::size_t fatto, std::size_t totale) override {
        EXPECT_LE(fatto, totale);
        EXPECT_GE(static_cast<double>(fatto) / static_cast<double>(totale), ultimo_);
        ultimo_ = static_cast<double>(fatto) / static_cast<double>(totale);
        return ++volte != dopo_;
    }
    int volte = 0;

  private:
    double ultimo_ = 0;
    int dopo_;
};

TEST(Importa, AnnullatoInQualunquePuntoNonLasciaNulla) {
    int volte = 0;
    {
        const CartellaProva cartella;
        Annulla mai{-1};
        const auto fatto = crea_dimostrazione(cartella.percorso() / "archivio", mai);
        ASSERT_TRUE(fatto) << fatto.error().testo();
        volte = mai.volte;
        EXPECT_GT(volte, 10);
    }
    for (int dopo = 1; dopo <= volte; dopo += 7) {
        const CartellaProva cartella;
        Annulla annulla{dopo};
        const auto fatto = crea_dimostrazione(cartella.percorso(), annulla);
        ASSERT_FALSE(fatto);
        EXPECT_THAT(fatto.error().motivo, HasSubstr("annullata"));
        EXPECT_TRUE(std::filesystem::is_empty(cartella.percorso()));
    }
}

TEST(Importa, DimostrazioneSoloDoveNonCENulla) {
    Prova p;
    const auto fatto = crea_dimostrazione(p.archivio(), p.nessuno);
    ASSERT_TRUE(fatto) << fatto.error().testo();
    const auto a = apri_archivio(p.archivio());
    ASSERT_TRUE(a) << a.error().testo();
    EXPECT_TRUE(a->drawit().simulato);
    EXPECT_TRUE(a->drawit2().simulato);
    EXPECT_EQ(a->ultimo_concorso(), 4655);
    EXPECT_EQ(crea_dimostrazione(p.archivio(), p.nessuno).error().motivo,
              "la cartella contiene già un archivio, che non viene sostituito con quello simulato");
}

TEST(Importa, VeroESimulatoNonSiMescolano) {
    Prova p;
    ASSERT_TRUE(crea_dimostrazione(p.archivio(), p.nessuno));
    const auto rifiutato = p.importa({}, "2001-06-05;1;2;3;4;5;6;7;9\n");
    ASSERT_FALSE(rifiutato);
    EXPECT_THAT(rifiutato.error().motivo, HasSubstr("simulato"));
    ASSERT_TRUE(p.importa(kLottoPiccolo));
    const auto a = apri_archivio(p.archivio());
    ASSERT_TRUE(a) << a.error().testo();
    EXPECT_FALSE(a->drawit().simulato);
    EXPECT_FALSE(a->drawit2().simulato);
    EXPECT_TRUE(a->superenalotto().concorso.empty());
    EXPECT_TRUE(a->winforlife().concorso.empty());
    EXPECT_FALSE(std::filesystem::exists(p.archivio() / "drawit2.db"));
    // All of the demonstration comes back, and goes again.
    ASSERT_TRUE(annulla_importazione(p.archivio(), p.nessuno));
    const auto prima = apri_archivio(p.archivio());
    EXPECT_TRUE(prima->drawit().simulato && prima->drawit2().simulato);
    ASSERT_TRUE(annulla_importazione(p.archivio(), p.nessuno));
    EXPECT_FALSE(apri_archivio(p.archivio())->drawit().simulato);
    EXPECT_FALSE(std::filesystem::exists(p.archivio() / "drawit2.db"));
}

TEST(Importa, WinForLifeVeroNonStaAccantoAlLottoSimulato) {
    Prova p;
    ASSERT_TRUE(crea_dimostrazione(p.archivio(), p.nessuno));
    const auto fatto = p.importa({}, {}, kWflPiccolo);
    ASSERT_TRUE(fatto) << fatto.error().testo();
    EXPECT_THAT(fatto->avvisi, ElementsAre(HasSubstr("Lotto e SuperEnalotto sono state tolte")));
    EXPECT_FALSE(std::filesystem::exists(p.archivio() / "drawit.db"));
    EXPECT_EQ(apri_archivio(p.archivio())->winforlife().concorso.size(), 1U);
}

// ---- what an import would lose ----

TEST(Importa, CioCheAndrebbePersoLaFerma) {
    Prova p;
    const std::string due = "2001-06-01;1;2;3;4;5;6;7;9\n2001-06-05;1;2;3;4;5;6;7;9\n";
    ASSERT_TRUE(p.importa(kLottoPiccolo, due, kWflPiccolo));
    const auto prima = leggi_file(p.archivio() / "drawit.db").value();
    const auto prima2 = leggi_file(p.archivio() / "drawit2.db").value();
    // A download that stopped after the first draw.
    const std::string corto = kLottoPiccolo.substr(0, kLottoPiccolo.find("2001/06/05"));
    const auto fermata = p.importa(corto);
    ASSERT_FALSE(fermata);
    EXPECT_EQ(fermata.error().file, p.archivio() / "drawit.db");
    EXPECT_EQ(fermata.error().motivo,
              "estrazioni che ci sono andrebbero perse: Lotto: 1 riga in meno (concorso 2 del 05/06/2001, "
              "BA); SuperEnalotto: 1 riga in meno (concorso 2 del 05/06/2001); con --sostituisci si importa "
              "lo stesso");
    // Another number, another hour; nothing of an import goes in if one of its files loses something.
    const std::string altro = std::string{kTitoliW} + "9000;2023-10-09;08:00;1;3;4;5;6;9;12;16;18;20;14\n";
    const auto ferma2 = p.importa(kLottoPiccolo, due, altro);
    ASSERT_FALSE(ferma2);
    EXPECT_THAT(ferma2.error().motivo, HasSubstr("Win for Life: 1 riga in meno"));
    const auto ferma3 = p.importa({}, "2001-06-01;1;2;3;4;5;6;8;9\n2001-06-05;1;2;3;4;5;6;7;9\n");
    ASSERT_FALSE(ferma3);
    EXPECT_THAT(ferma3.error().motivo, HasSubstr("SuperEnalotto: 1 riga cambiata (concorso 1"));
    EXPECT_EQ(leggi_file(p.archivio() / "drawit.db").value(), prima);
    EXPECT_EQ(leggi_file(p.archivio() / "drawit2.db").value(), prima2);
    p.sostituisci = true;
    ASSERT_TRUE(p.importa(corto, {}, altro));
    EXPECT_EQ(apri_archivio(p.archivio())->lotto().righe, 2U);
    ASSERT_TRUE(annulla_importazione(p.archivio(), p.nessuno));
    EXPECT_EQ(leggi_file(p.archivio() / "drawit.db").value(), prima);
    EXPECT_EQ(leggi_file(p.archivio() / "drawit2.db").value(), prima2);
}

TEST(Importa, SopraUnArchivioCheNonSiLegge) {
    Prova p;
    ASSERT_TRUE(p.importa(kLottoPiccolo));
    ASSERT_TRUE(scrivi_file(p.archivio() / "drawit.db", "rotto"));
    const auto due = std::string{"2001-06-01;1;2;3;4;5;6;7;9\n"};
    const auto fermata = p.importa(kLottoPiccolo, due);
    ASSERT_FALSE(fermata);
    EXPECT_THAT(fermata.error().motivo, HasSubstr("non si può leggere"));
    EXPECT_THAT(fermata.error().motivo, HasSubstr("--sostituisci"));
    p.sostituisci = true;
    ASSERT_TRUE(p.importa(kLottoPiccolo, due));
    EXPECT_EQ(leggi_file(p.archivio() / "drawit.db.prec").value(), "rotto");
}

TEST(Importa, DueInsiemeNonPerdonoNulla) {
    for (int volta = 0; volta < 10; ++volta) {
        Prova p;
        ASSERT_TRUE(p.importa(kLottoPiccolo));
        const auto importa = [&](std::string_view nome, std::string_view testo, bool lotto) {
            const auto file = metti(p.cartella, nome, testo);
            FilePubblicati pubblicati{.tutto = true};
            (lotto ? pubblicati.lotto : pubblicati.superenalotto) = file;
            SenzaAvanzamento nessuno;
            const auto fatto = importa_archivio(p.archivio(), pubblicati, nessuno);
            EXPECT_TRUE(fatto) << fatto.error().testo();
        };
        {
            const std::jthread uno{
                [&] { importa("a.txt", kLottoPiccolo + "2001/06/05\tRM\t21\t22\t23\t24\t25\n", true); }};
            const std::jthread due{
                [&] { importa("b.csv", std::string{kTitoliS} + "2001-06-05;1;2;3;4;5;6;7;9\n", false); }};
        }
        const auto a = apri_archivio(p.archivio());
        ASSERT_TRUE(a) << a.error().testo();
        EXPECT_EQ(a->lotto().righe, 4U);
        EXPECT_EQ(a->superenalotto().concorso.size(), 1U);
    }
}

TEST(Importa, UnaDimostrazioneAMetaSiCompleta) {
    for (const char* manca : {"drawit.db", "drawit2.db"}) {
        Prova p;
        ASSERT_TRUE(crea_dimostrazione(p.archivio(), p.nessuno));
        EXPECT_FALSE(ammette_dimostrazione(p.archivio()));
        const auto byte = leggi_file(p.archivio() / manca).value();
        std::filesystem::remove(p.archivio() / manca);
        EXPECT_TRUE(ammette_dimostrazione(p.archivio()));
        ASSERT_TRUE(crea_dimostrazione(p.archivio(), p.nessuno));
        EXPECT_EQ(leggi_file(p.archivio() / manca).value(), byte);
    }
    // Half of a real archive is whole.
    Prova p;
    EXPECT_TRUE(ammette_dimostrazione(p.archivio()));
    ASSERT_TRUE(p.importa(kLottoPiccolo));
    EXPECT_FALSE(ammette_dimostrazione(p.archivio()));
    EXPECT_FALSE(crea_dimostrazione(p.archivio(), p.nessuno));
    EXPECT_FALSE(std::filesystem::exists(p.archivio() / "drawit2.db"));
}

TEST(Importa, UgualeAlVeroDopoIlGiroPerIlNegozio) {
    const auto* vero = prove::archivio_vero();
    if (vero == nullptr) GTEST_SKIP() << "no real draws here";
    const auto da = *prove::cartella_condivisa() / "archivio";
    const CartellaProva cartella;
    SenzaAvanzamento nessuno;
    const auto fatto = importa_archivio(cartella.percorso(),
                                        {.lotto = da / "lotto.txt",
                                         .superenalotto = da / "superenalotto.csv",
                                         .winforlife = da / "winforlife.csv"},
                                        nessuno);
    ASSERT_TRUE(fatto) << fatto.error().testo();
    const auto a = apri_archivio(cartella.percorso());
    ASSERT_TRUE(a) << a.error().testo();
    EXPECT_TRUE(a->lotto().numeri == vero->lotto().numeri);
    EXPECT_EQ(a->lotto().data, vero->lotto().data);
    EXPECT_TRUE(a->nazionale().numeri == vero->nazionale().numeri);
    EXPECT_TRUE(a->superenalotto().numeri == vero->superenalotto().numeri);
    EXPECT_EQ(a->superenalotto().concorso, vero->superenalotto().concorso);
    EXPECT_TRUE(a->winforlife().numeri == vero->winforlife().numeri);
    EXPECT_EQ(a->winforlife().ora, vero->winforlife().ora);
}

/// The text in pieces that end anywhere, each at least one byte longer than what was left of the one before.
std::expected<std::vector<RigaLotto>, std::string> a_pezzi(const std::string& testo, std::mt19937& caso) {
    std::size_t da = 0;
    std::size_t a = 0;
    const auto fonte = [&](std::size_t usati) {
        da += usati;
        a = std::min(testo.size(), a + 1 + caso() % 90);
        return PezzoFile{std::string_view{testo}.substr(da, a - da), a == testo.size()};
    };
    SenzaAvanzamento nessuno;
    return leggi_lotto_a_pezzi(fonte, testo.size(), nessuno);
}

TEST(Importa, TestiRovinatiACasoNonCadonoMai) {
    SenzaAvanzamento nessuno;
    std::string lotto;
    for (int g = 10; g < 30; ++g)
        for (int w = 0; w < 11; ++w)
            lotto += "1997/12/" + std::to_string(g) + "\t" +
                     (w == 10 ? "RN" : std::string{kNomiRuote[static_cast<std::size_t>(w)].codice}) +
                     "\t1\t22\t3\t44\t90\n";
    const std::string superenalotto = std::string{kTitoliS} +
                                      "1997-12-03;20;36;39;41;72;76;88;0\n"
                                      "1997-12-06;2;4;25;29;30;52;24;7\n";
    const std::string winforlife = kWflPiccolo + "9001;2023-10-09;08:00;1;3;4;5;6;9;12;16;18;20;14\n";
    std::mt19937 caso{3};
    const auto a_caso = [&](std::size_t n) {
        return std::uniform_int_distribution<std::size_t>{0, n - 1}(caso);
    };
    const auto rovina = [&](std::string testo) {
        if (a_caso(4) == 0) testo.resize(a_caso(testo.size()));
        for (std::size_t n = a_caso(4); n > 0 && !testo.empty(); --n)
            testo[a_caso(testo.size())] = static_cast<char>(a_caso(256));
        return testo;
    };
    int rifiutati = 0;
    for (int giro = 0; giro < 20'000; ++giro) {
        SCOPED_TRACE(giro);
        const std::string testo = rovina(lotto);
        const auto a = leggi_testo_lotto(testo, nessuno);
        ASSERT_EQ(a_pezzi(testo, caso), a) << "in pieces as in one";
        const auto b = leggi_testo_superenalotto(rovina(superenalotto), nessuno);
        const auto c = leggi_testo_winforlife(rovina(winforlife), nessuno);
        rifiutati += !a + !b + !c;
        if (a) {
            for (const auto& r : *a)
                ASSERT_TRUE(std::all_of(r.numeri.begin(), r.numeri.end(), [](Numero n) { return n <= 90; }));
        } else {
            ASSERT_THAT(a.error(), testing::AnyOf(testing::StartsWith("riga "), HasSubstr("non contiene")));
        }
    }
    EXPECT_GT(rifiutati, 20'000);
}

TEST(Importa, CioCheNonPuoEssereNonEntra) {
    const CartellaProva cartella;
    const auto archivio = cartella.percorso() / "archivio";
    SenzaAvanzamento nessuno;
    const auto importa = [&](const char* opzione, const std::string& testo) {
        const auto file = cartella.percorso() / "testo";
        EXPECT_TRUE(scrivi_file(file, testo));
        FilePubblicati pubblicati{.tutto = true};
        (opzione[0] == 'l' ? pubblicati.lotto : pubblicati.winforlife) = file;
        const auto esito = importa_archivio(archivio, pubblicati, nessuno);
        if (esito) return std::string{"importato"};
        EXPECT_EQ(esito.error().file, file);
        return esito.error().motivo;
    };
    EXPECT_EQ(importa("lotto",
                      "2000/01/04\tBA\t1\t2\t3\t4\t5\r\n\r\n2000/01/01\tCA\t1\t2\t3\t4\t5\n"
                      " 2000/01/01 \tBA\t1\t2\t45\t4\t45\n"),
              "riga 4: tabella archivio, concorso 1, ruota BA: il numero 45 sta due volte nella riga, in "
              "3°estratto e in "
              "5°estratto");
    // The newest draw first: counted in the order of the file, every delay would be wrong.
    EXPECT_EQ(
        importa("winforlife", std::string{kTitoliW} + "2;2023-10-09;08:00;1;3;4;5;6;9;12;16;18;20;14\n"
                                                      "1;2023-10-08;08:00;1;3;4;5;6;9;12;16;18;20;14\n"),
        "riga 3: tabella archivio, concorso 2: la data 08/10/2023 non viene dopo quella dell'estrazione "
        "prima, "
        "09/10/2023");
    EXPECT_EQ(importa("winforlife", std::string{kTitoliW} + "1;2023-10-09;08:00;1;3;4;5;6;9;12;16;18;20;14\n"
                                                            "2;2023-10-09;09:00;1;3;4;5;6;9;12;16;18;3;14\n"),
              "riga 3: tabella archivio, concorso 2: il numero 3 sta due volte nella riga, in 2° e in 10°");
    EXPECT_EQ(
        importa("lotto", "2000/01/01\tBA\t1\t2\t3\t4\t5\n2000/01/01\tNZ\t9\t2\t9\t4\t5\n"),
        "riga 2: tabella archivion, concorso 1: il numero 9 sta due volte nella riga, in 1°estratto e in "
        "3°estratto");
    EXPECT_EQ(importa("lotto", "2000/01/01\tBA\t1\t2\t3\t4\t5\n2000/01/04\tRN\t1\t2\t3\t4\t5\n"),
              "riga 2: tabella archivion, concorso 2: il concorso non c'è nelle estrazioni del Lotto");
    EXPECT_FALSE(contiene_archivio(archivio));
    EXPECT_EQ(importa("lotto", "2000/01/01\tBA\t1\t2\t45\t4\t\n"), "importato") << "an empty cell is allowed";
}

TEST(Importa, UnSuperEnalottoSbagliatoDiceLaSuaRiga) {
    const CartellaProva cartella;
    SenzaAvanzamento nessuno;
    FilePubblicati file{.tutto = true};
    file.lotto = metti(cartella, "l.txt", "2000/01/01\tBA\t1\t2\t3\t4\t5\n");
    file.superenalotto = metti(cartella, "s.csv",
                               std::string{"\xEF\xBB\xBF"}.append(kTitoliS) + "2000-01-01;1;2;3;4;5;6;6;0\n");
    const auto esito = importa_archivio(cartella.percorso() / "archivio", file, nessuno);
    ASSERT_FALSE(esito);
    EXPECT_EQ(esito.error().file, *file.superenalotto);
    EXPECT_EQ(
        esito.error().motivo,
        "riga 2: tabella archivios, concorso 1: il numero 6 sta due volte nella riga, in 6°estratto e in "
        "Jolly");
}

}  // namespace
}  // namespace sortimetra
