#include "draws/ambito.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using prove::da_testi;
using prove::da_testo;
using testing::ElementsAre;
using testing::IsEmpty;

SelezioneRuote con(std::initializer_list<int> caselle) {
    SelezioneRuote r = SelezioneRuote::nessuna();
    for (const int c : caselle) r.clic(c, true);
    return r;
}
AmbitoRicerca ambito(SelezioneRuote ruote, TrattoConcorsi tratto = {}, std::size_t intervallo = 0) {
    return {ruote, intervallo, 0, tratto};
}

/// The concorsi of a view.
std::vector<Concorso> concorsi(const VistaEstrazioni& vista) {
    std::vector<Concorso> tutti;
    for (std::size_t i = 0; i < vista.concorsi(); ++i) tutti.push_back(vista.concorso(i));
    return tutti;
}

// ---- the twelve boxes ----

TEST(SelezioneRuote, UnoSchermoNuovoHaBari) {
    const SelezioneRuote r;
    for (int c = 0; c < 12; ++c) EXPECT_EQ(r.spuntata(c), c == 0);
    EXPECT_EQ(r.ruote_lette(), 1);
    EXPECT_EQ(r.n_ruote(), 1);
    EXPECT_EQ(r.nomi(), "Bari");
}

TEST(SelezioneRuote, TutteENazionaleStannoSole) {
    SelezioneRuote r = con({0, 7});
    r.clic(kTutte, true);
    EXPECT_EQ(r, SelezioneRuote::tutte());
    r.clic(kNazionale, true);
    EXPECT_EQ(r, SelezioneRuote::nazionale());
    r.clic(3, true);
    EXPECT_EQ(r, con({3})) << "a wheel takes both away";
    r = SelezioneRuote::tutte();
    r.clic(3, false);
    EXPECT_EQ(r, SelezioneRuote::nessuna()) << "even when its tick is taken";
    r = SelezioneRuote::nazionale();
    r.clic(kNazionale, false);
    EXPECT_EQ(r, SelezioneRuote::nessuna());
}

TEST(SelezioneRuote, SenzaSpunteSiLeggeBariENonSiConta) {
    const auto r = SelezioneRuote::nessuna();
    EXPECT_EQ(r.ruote_lette(), 1);
    EXPECT_EQ(r.n_ruote(), 0);
    EXPECT_EQ(r.nomi(), "");
}

TEST(SelezioneRuote, QuanteEQuali) {
    EXPECT_EQ(SelezioneRuote::tutte().ruote_lette(), 0x3FF);
    EXPECT_EQ(SelezioneRuote::tutte().n_ruote(), 10);
    EXPECT_EQ(SelezioneRuote::nazionale().ruote_lette(), 0);
    EXPECT_EQ(SelezioneRuote::nazionale().n_ruote(), 1);
    EXPECT_EQ(con({9, 0, 7}).ruote_lette(), 0b1010000001);
    EXPECT_EQ(con({9, 0, 7}).n_ruote(), 3);
    EXPECT_EQ(con({9, 0, 7}).nomi(), "Bari, Roma, Venezia");
    EXPECT_EQ(con({9, 0, 7}).nomi("-"), "Bari-Roma-Venezia");
    EXPECT_EQ(SelezioneRuote::tutte().nomi(), "Tutte");
}

// ---- the range ----

TEST(TrattoConcorsi, OgniEstremoPerSe) {
    constexpr TrattoConcorsi kIntero;
    EXPECT_EQ(kIntero.riportato(40), (TrattoConcorsi{1, 40}));
    EXPECT_EQ((TrattoConcorsi{0, 50}.riportato(40)), (TrattoConcorsi{1, 40}));
    EXPECT_EQ((TrattoConcorsi{60, -3}.riportato(40)), (TrattoConcorsi{40, 1})) << "the first may stay above";
    EXPECT_EQ((TrattoConcorsi{5, 9}.riportato(40)), (TrattoConcorsi{5, 9}));
    EXPECT_TRUE((TrattoConcorsi{5, 9}.contiene(5)));
    EXPECT_TRUE((TrattoConcorsi{5, 9}.contiene(9)));
    EXPECT_FALSE((TrattoConcorsi{5, 9}.contiene(10)));
}

// ---- the calendar ----

TEST(Intervallo, OgniVoceSuUnGiornoAllaVolta) {
    const auto passa = [](std::string_view voce, std::string_view giorno) {
        const auto i = trova_intervallo(voce);
        const auto data = leggi_data_italiana(giorno);
        EXPECT_TRUE(i && data) << voce << " " << giorno;
        return i && data && accetta(kIntervalli.at(*i), *data);
    };
    EXPECT_TRUE(passa("Tutti i Concorsi", "31/12/1999"));
    EXPECT_TRUE(passa("Tutti i Concorsi - Mesi Pari", "31/12/1999"));
    EXPECT_FALSE(passa("Tutti i Concorsi - Mesi Dispari", "31/12/1999"));
    EXPECT_TRUE(passa("Anni Dispari - Mesi Pari", "31/12/1999"));
    EXPECT_FALSE(passa("Anni Pari", "31/12/1999"));
    EXPECT_TRUE(passa("Anni Pari - Mesi Dispari", "01/01/2000"));
    EXPECT_FALSE(passa("Anni Pari - Mesi Pari", "01/01/2000"));
    EXPECT_TRUE(passa("gennaio", "01/01/2000")) << "capitals do not count";
    EXPECT_FALSE(passa("Dicembre", "01/01/2000"));
    EXPECT_FALSE(trova_intervallo("Brumaio"));
}

TEST(Intervallo, OgniMeseStaInUnaVoceSolaFraLeDodici) {
    for (int mese = 1; mese <= 12; ++mese) {
        const Data giorno = std::chrono::year{2001} / mese / 15;
        int quante = 0;
        for (std::size_t i = 9; i < kIntervalli.size(); ++i)
            if (accetta(kIntervalli.at(i), giorno)) ++quante;
        EXPECT_EQ(quante, 1) << mese;
    }
}

TEST(Ora, ComeStaInTabella) {
    const auto otto = trova_ora("8:00").value();
    EXPECT_TRUE(accetta_ora(otto, "8:00"));
    EXPECT_TRUE(accetta_ora(otto, "08:00"));
    EXPECT_TRUE(accetta_ora(otto, " 8:00 "));
    EXPECT_FALSE(accetta_ora(otto, "18:00"));
    EXPECT_FALSE(accetta_ora(otto, " 08:00")) << "padded and with a zero is neither";
    const auto dieci = trova_ora("10:00").value();
    EXPECT_TRUE(accetta_ora(dieci, "10:00"));
    EXPECT_FALSE(accetta_ora(dieci, "0:00"));
    EXPECT_TRUE(accetta_ora(trova_ora("TUTTI").value(), "23:00"));
    EXPECT_FALSE(trova_ora("7:00")) << "there are such draws, but no such entry";
}

// ---- T ----

TEST(QuozientePari, AlPariPiuVicino) {
    EXPECT_EQ(quoziente_pari(20, 10), 2);
    EXPECT_EQ(quoziente_pari(24, 10), 2);
    EXPECT_EQ(quoziente_pari(26, 10), 3);
    EXPECT_EQ(quoziente_pari(25, 10), 2) << "a tie goes to the even one";
    EXPECT_EQ(quoziente_pari(35, 10), 4);
    EXPECT_EQ(quoziente_pari(1, 2), 0);
    EXPECT_EQ(quoziente_pari(3, 2), 2);
    EXPECT_EQ(quoziente_pari(7, 0), 0) << "no wheel, no T";
}

// ---- the view ----

constexpr std::string_view kTre =
    "1 BA 1 2 3 4 5\n1 CA 6 7 8 9 10\n"
    "2 BA 11 12 13 14 15\n"
    "4 CA 16 17 18 19 20\n4 NZ 21 22 23 24 25\n";

TEST(Vista, SoloIConcorsiCheHannoUnaDelleRuote) {
    const auto archivio = da_testo(kTre);
    EXPECT_THAT(concorsi({archivio, ambito(con({0}))}), ElementsAre(1, 2));
    EXPECT_THAT(concorsi({archivio, ambito(con({1}))}), ElementsAre(1, 4));
    EXPECT_THAT(concorsi({archivio, ambito(con({2}))}), IsEmpty());
    const VistaEstrazioni due{archivio, ambito(con({0, 1}))};
    EXPECT_THAT(concorsi(due), ElementsAre(1, 2, 4));
    EXPECT_EQ(due.righe(), 4U);
    EXPECT_EQ(due.t(), 2) << "four rows over two wheels, though three draws are walked";
    EXPECT_EQ(due.maschera(0), 0b11U);
    EXPECT_EQ(due.maschera(2), 0b10U);
    EXPECT_EQ(due.numeri(2)[kEstratti], 16);
}

TEST(Vista, LaNazionaleHaLaSuaTabella) {
    const auto archivio = da_testo(kTre);
    const VistaEstrazioni vista{archivio, ambito(SelezioneRuote::nazionale())};
    EXPECT_THAT(concorsi(vista), ElementsAre(4));
    EXPECT_EQ(vista.maschera(0), 1U);
    EXPECT_EQ(vista.numeri(0)[0], 21);
    EXPECT_EQ(vista.record(0), 0U);
    EXPECT_EQ(vista.t(), 1);
}

TEST(Vista, TrattoECalendario) {
    // Draw c is dated c - 1 days after 1 January 2000, but where the line says a date.
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n2001-02-03 3 BA 1 2 3 4 5\n");
    EXPECT_THAT(concorsi({archivio, ambito({}, {2, 99})}), ElementsAre(2, 3));
    EXPECT_THAT(concorsi({archivio, ambito({}, {-5, 1})}), ElementsAre(1));
    EXPECT_THAT(concorsi({archivio, ambito({}, {3, 2})}), IsEmpty());
    EXPECT_THAT(concorsi({archivio, ambito({}, {}, trova_intervallo("Febbraio").value())}), ElementsAre(3));
    EXPECT_THAT(concorsi({archivio, ambito({}, {}, trova_intervallo("Anni Pari").value())}),
                ElementsAre(1, 2));
}

TEST(Vista, SenzaEstrazioni) {
    const ArchivioEstrazioni vuoto;
    for (const auto& r : {SelezioneRuote{}, SelezioneRuote::tutte(), SelezioneRuote::nazionale()}) {
        const VistaEstrazioni vista{vuoto, ambito(r)};
        EXPECT_TRUE(vista.vuota());
        EXPECT_EQ(vista.concorsi(), 0U);
        EXPECT_EQ(vista.t(), 0);
    }
}

TEST(Vista, DiSuperEnalottoEWinForLife) {
    const auto archivio = da_testi("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n",
                                   "1 1 2 3 4 5 6 7 0\n2 1 2 3 4 5 6 7 0\n3 1 2 3 4 5 6 7 0\n",
                                   "1 8:00 1 2 3 4 5 6 7 8 9 10\n2 08:00 1 2 3 4 5 6 7 8 9 10\n"
                                   "3 9:00 1 2 3 4 5 6 7 8 9 10\n");
    EXPECT_THAT(vista_superenalotto(archivio, {}), ElementsAre(0, 1))
        << "the range ends where the Lotto ends";
    EXPECT_THAT(vista_winforlife(archivio, {}), ElementsAre(0, 1, 2));
    AmbitoRicerca otto;
    otto.ora = trova_ora("8:00").value();
    EXPECT_THAT(vista_winforlife(archivio, otto), ElementsAre(0, 1));
}

// ---- walking ----

TEST(Percorri, InOrdineDiConcorsoEDiRuota) {
    const auto archivio = da_testo(kTre);
    SenzaAvanzamento nessuno;
    std::vector<std::string> viste;
    EXPECT_TRUE(percorri(
        VistaEstrazioni{archivio, ambito(SelezioneRuote::tutte())}, nessuno,
        [&](int c, const Numero* n) { viste.push_back(std::to_string(c) + ":" + std::to_string(n[0])); }));
    EXPECT_THAT(viste, ElementsAre("1:1", "1:6", "2:11", "3:16"));
}

TEST(Percorri, UnConcorsoConPiuRigheEUnoSolo) {
    SenzaAvanzamento nessuno;
    std::vector<std::string> viste;
    const std::vector<Concorso> concorso{7, 7, 8, 8, 9};
    percorri_righe({0, 1, 2, 4}, concorso, nessuno, [&](int c, std::size_t i) {
        viste.push_back(std::to_string(c) + ":" + std::to_string(i));
    });
    EXPECT_THAT(viste, ElementsAre("1:0", "1:1", "2:2", "3:4"));
}

TEST(Vista, ComeUnaSceltaRigaPerRiga) {
    for (std::uint32_t seme = 0; seme < 200; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = prove::archivio_casuale(seme);
        const auto a = prove::ambito_casuale(seme);
        const auto tratto = a.tratto.riportato(archivio.ultimo_concorso());
        const bool nazionale = a.ruote.spuntata(kNazionale);
        std::size_t righe = 0;
        std::vector<Concorso> attesi;
        const auto forse = [&](Concorso c, Data data, int quante) {
            if (quante == 0 || c < tratto.da || c > tratto.a || !accetta(kIntervalli.at(a.intervallo), data))
                return;
            righe += static_cast<std::size_t>(quante);
            attesi.push_back(c);
        };
        const auto& lotto = archivio.lotto();
        const auto& nz = archivio.nazionale();
        for (std::size_t i = 0; nazionale && i < nz.concorso.size(); ++i)
            forse(nz.concorso[i], nz.data[i], 1);
        for (std::size_t i = 0; !nazionale && i < lotto.concorso.size(); ++i) {
            int quante = 0;
            for (int w = 0; w < kRuote; ++w)
                if ((a.ruote.ruote_lette() >> w & 1) != 0 && (lotto.presenti[i] >> w & 1) != 0) ++quante;
            forse(lotto.concorso[i], lotto.data[i], quante);
        }
        const VistaEstrazioni vista{archivio, a};
        EXPECT_EQ(concorsi(vista), attesi);
        EXPECT_EQ(vista.righe(), righe);
        SenzaAvanzamento nessuno;
        std::size_t camminate = 0;
        percorri(vista, nessuno, [&](int, const Numero*) { ++camminate; });
        EXPECT_EQ(camminate, righe);
    }
}

}  // namespace
}  // namespace sortimetra
