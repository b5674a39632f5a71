#include "positional/migliori_ritardi.h"
#include "positional/parametri.h"
#include "statistics/cinquine_dei_90.h"
#include "statistics/famiglie.h"
#include "statistics/misura_serie.h"
#include "support/archivi.h"
#include "support/lente.h"

#include <gtest/gtest.h>

namespace sortimetra {
namespace {

using namespace prove;

SenzaAvanzamento nessuno;

Domanda domanda_pagina(int pagina, AmbitoRicerca ambito = {}) {
    Domanda d = domanda("tabellone migliori ritardi", ambito);
    d.parametri.per<ParametriTabellone>().pagina = pagina;
    EXPECT_TRUE(carica_cinquine_migliori(cartella_dati(), d));
    return d;
}

/// Rows of one family: "group R. n".
std::vector<std::string> della_serie(const Risultato& r, std::string_view serie) {
    std::vector<std::string> trovate;
    for (std::size_t i = 0; i < r.tabelle.at(0).righe(); ++i)
        if (r.tabelle[0].testo(i, 0) == serie)
            trovate.push_back(r.tabelle[0].testo(i, 1) + " " + r.tabelle[0].testo(i, 2));
    return trovate;
}

TEST(MiglioriRitardi, SediciFamigliePerPagina) {
    std::size_t righe = 0;
    for (const int pagina : {1, 2}) {
        EXPECT_EQ(famiglie_migliori(pagina).size(), 16U);
        for (const FamigliaMigliori& f : famiglie_migliori(pagina)) {
            EXPECT_NE(trova_caricatore(f.carica), nullptr) << f.carica;
            righe += f.righe;
        }
    }
    EXPECT_EQ(2 * righe, 166U);  // a group and a delay each
}

TEST(MiglioriRitardi, LeFamiglieEQuantiGruppi) {
    std::string testo;
    for (const int pagina : {1, 2})
        for (const FamigliaMigliori& f : famiglie_migliori(pagina))
            testo += std::string{f.prefisso} + std::string{f.titolo} + " | " + std::string{f.carica} + " | " +
                     std::to_string(f.righe) +
                     (f.soglia == SogliaFamiglia::combo_rit ? " | soglia dalla combo" : "") + "\n";
    EXPECT_EQ(testo,
              "Ambi vertibili | carica_vertibili | 3\n"
              "Ambi simmetrici | carica_simmetrici | 3\n"
              "Ambi complementari | carica_complementari | 3\n"
              "Ambi a distanza 45 | carica_distanza45 | 3\n"
              "Ambi consecutivi | carica_consecutivi | 3\n"
              "Terzine a coesione | carica_terzine_coesione | 3\n"
              "Sestine tricifriche | carica_tricifriche | 3\n"
              "Sestine circolari | carica_sestine_circolari | 3\n"
              "Sestine esagonali | carica_sestine_esagonali | 3\n"
              "Sestine somma 273 | carica_sestine_somma | 3\n"
              "Decine | carica_decine | 3\n"
              "Cadenze | carica_cadenze | 3\n"
              "Figure | carica_figure | 3\n"
              "Gemelli | carica_gemelli | 3\n"
              "Cifre | carica_cifre | 3\n"
              "Radicali | carica_radicali | 2\n"
              "Sestine di cifra composta | carica_cifra_composta | 2\n"
              "Settine Renard | carica_renard | 2\n"
              "Decine simmetriche | carica_decine_simmetriche | 2 | soglia dalla combo\n"
              "Controfigure | carica_controfigure | 3 | soglia dalla combo\n"
              "Sestine consecutive | carica_sestine_consecutive | 3\n"
              "Sestine passo multiplo | carica_sestine_multiple | 3\n"
              "Terzine correlative simmetriche | carica_terzine_correlative | 3\n"
              "Grattacielo dei 90 | carica_grattacielo | 3\n"
              "Cinquine dei  90 | carica_cinquine_dei90 | 3\n"
              "Cinquine a coesione | carica_cinquine_coesione | 2\n"
              "Cinquine consecutive | Carica_cinquine_consecutive | 2\n"
              "Cinquine correlative | carica_cinquine_correlative | 2\n"
              "D. Cinquine pari/dispari | carica_cinquine_dispari | 1\n"
              "P. Cinquine pari/dispari | carica_cinquine_pari | 1\n"
              "Cinquine pentagonali | carica_cinquine_pentagonali | 2\n"
              "Cinquine Sun | carica_cinquine_sun | 2\n");
}

TEST(MiglioriRitardi, DalPiuLungoAlPiuCorto) {
    // One ten a draw: 90 and 1, then 10 and 11, 20 and 21 … 80 and 81 in the ninth and last.
    std::string testo = "1 BA 90 1 12 23 34\n";
    for (int c = 2; c <= 9; ++c) {
        const int d = 10 * (c - 1);
        testo += std::to_string(c) + " BA " + std::to_string(d) + " " + std::to_string(d + 1) + " " +
                 std::to_string((d + 12) % 90 + 1) + " " + std::to_string((d + 32) % 90 + 1) + " " +
                 std::to_string((d + 53) % 90 + 1) + "\n";
    }
    const Risultato r = migliori_ritardi(da_testo(testo), domanda_pagina(1), nessuno);
    EXPECT_EQ(della_serie(r, "Decine"),
              (std::vector<std::string>{"1/9 (90) R. 8", "10/19 R. 7", "20/29 R. 6"}));
    // The only series of the gemelli has come out in the very last draw.
    const auto ultima = da_testo("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n3 BA 11 22 3 4 5\n");
    EXPECT_EQ(della_serie(migliori_ritardi(ultima, domanda_pagina(1), nessuno), "Gemelli")[0], "11/88 R. 0");
}

TEST(MiglioriRitardi, UnNumeroPerEstrazioneNonBastaAUnaSerie) {
    // One number of the first ten in every draw, never two; of the second ten, two in the first draw alone.
    std::string testo = "1 BA 1 11 12 35 46\n";
    for (int c = 2; c <= 12; ++c)
        testo += std::to_string(c) + " BA " + std::to_string(1 + c % 9) + " 20 35 46 57\n";
    const Risultato r = migliori_ritardi(da_testo(testo), domanda_pagina(1), nessuno);
    EXPECT_EQ(della_serie(r, "Decine")[0], "1/9 (90) R. 12");
}

TEST(MiglioriRitardi, UnaRigaSenzaPrimoNumeroContaComeEstrazioneENonPerIGruppi) {
    // 12 and 21 stand in a row whose first cell is empty: not seen, though the draw is the third.
    const auto archivio = da_testo("1 BA 12 21 3 4 5\n2 BA 1 2 3 4 5\n3 BA - 12 21 4 5\n");
    AmbitoRicerca bari;
    const auto serie = carica_serie(*trova_caricatore("carica_vertibili"));
    const auto misure = misura_serie(VistaEstrazioni{archivio, bari}, serie, 2, nessuno);
    EXPECT_EQ(ritardo(misure[0], Estrazioni{3}), 2);
}

TEST(MiglioriRitardi, UnAmboSuDueRuoteDiUnConcorsoHaDueUscite) {
    const auto archivio = da_testo(
        "1 BA 1 2 3 4 5\n1 CA 1 2 3 4 5\n"
        "2 BA 12 21 3 4 5\n2 CA 21 12 3 4 6\n"
        "3 BA 1 2 3 4 5\n3 CA 1 2 3 4 5\n");
    AmbitoRicerca due;
    due.ruote.clic(1, true);
    const auto serie = carica_serie(*trova_caricatore("carica_vertibili"));
    const auto misure = misura_serie(VistaEstrazioni{archivio, due}, serie, 2, nessuno);
    EXPECT_EQ(misure[0].frequenza, 2);
    EXPECT_EQ(ritardo(misure[0], Estrazioni{3}), 1);
    // The wait before the first time counts, less one.
    EXPECT_EQ(misure[0].storico, 0);
}

TEST(MiglioriRitardi, LAmboMaiUscitoVaInTesta) {
    std::string testo;
    for (int c = 1; c <= 20; ++c) testo += std::to_string(c) + " BA 1 2 3 4 " + std::to_string(5 + c) + "\n";
    const Risultato r = migliori_ritardi(da_testo(testo), domanda_pagina(1), nessuno);
    EXPECT_EQ(r.tabelle[0].righe(), 47U);
    // Nothing of 12-21 has ever come out together: the whole archive is its delay.
    EXPECT_EQ(della_serie(r, "Ambi vertibili"),
              (std::vector<std::string>{"12 - 21 R. 20", "13 - 31 R. 20", "14 - 41 R. 20"}));
    // 1-2 has come out in every draw.
    EXPECT_EQ(della_serie(r, "Ambi consecutivi")[0], "04 - 05 R. 20");
    EXPECT_EQ(della_serie(r, "Gemelli"), (std::vector<std::string>{"11/88 R. 20", " ", " "}));
    // Never two numbers that end in 5 together, nor two of the second ten.
    EXPECT_EQ(della_serie(r, "Cadenze")[0], "5/85 R. 20");
    EXPECT_EQ(della_serie(r, "Decine")[0], "10/19 R. 20");
}

TEST(MiglioriRitardi, LaPrimaCadenzaSiChiamaComeLUltima) {
    const Risultato r = migliori_ritardi(da_testo("1 BA 2 12 3 13 40\n"), domanda_pagina(1), nessuno);
    EXPECT_EQ(della_serie(r, "Cadenze"), (std::vector<std::string>{"10/90 R. 1", "4/84 R. 1", "5/85 R. 1"}));
    EXPECT_EQ(della_serie(r, "Decine"), (std::vector<std::string>{"20/29 R. 1", "30/39 R. 1", "40/49 R. 1"}));
    EXPECT_EQ(della_serie(r, "Cifre"), (std::vector<std::string>{"4 R. 1", "5 R. 1", "6 R. 1"}));
}

TEST(MiglioriRitardi, IGruppiSiDiconoComeLeLoroFamiglie) {
    // Nothing but 31 and 47 has come out: all groups wait equally long and keep the family's order.
    const Risultato r = migliori_ritardi(da_testo("1 BA 31 47 - - -\n"), domanda_pagina(1), nessuno);
    EXPECT_EQ(della_serie(r, "Figure"), (std::vector<std::string>{"1/82 R. 1", "2/83 R. 1", "3/84 R. 1"}));
    EXPECT_EQ(della_serie(r, "Radicali"), (std::vector<std::string>{"01-10-11-19 R. 1", "02-20-22-29 R. 1"}));
    EXPECT_EQ(della_serie(r, "Terzine a coesione")[0], "01-02-90 R. 1");
    EXPECT_EQ(della_serie(r, "Ambi complementari")[0], "01 - 89 R. 1");
    // Eight digits have come out later than the last one, told as two.
    const auto cifre =
        da_testo("1 BA 1 12 23 34 45\n2 BA 11 12 22 23 33\n3 BA 44 45 55 56 66\n4 BA 67 68 77 78 88\n");
    EXPECT_EQ(della_serie(migliori_ritardi(cifre, domanda_pagina(1), nessuno), "Cifre")[0], "9/0 R. 4");
}

TEST(MiglioriRitardi, SediciPassiPerPagina) {
    class Passi final : public Avanzamento {
      public:
        bool procedi(std::size_t fatto, std::size_t totale) override {
            EXPECT_EQ(fatto, visti + 1);
            EXPECT_EQ(totale, 16U);
            visti = fatto;
            return true;
        }
        std::size_t visti = 0;
    };
    for (const int pagina : {1, 2}) {
        Passi passi;
        EXPECT_TRUE(migliori_ritardi(da_testo("1 BA 1 2 3 4 5\n"), domanda_pagina(pagina), passi).prodotto);
        EXPECT_EQ(passi.visti, 16U);
    }
}

TEST(MiglioriRitardi, CalendarioETrattoNonContano) {
    std::string testo;
    for (int c = 1; c <= 520; ++c)
        testo += std::to_string(c) + " BA 1 2 3 4 " + std::to_string(5 + c % 80) + "\n";
    const auto archivio = da_testo(testo);
    AmbitoRicerca stretto;
    stretto.intervallo = *trova_intervallo("Marzo");
    stretto.tratto = {500, 400};
    EXPECT_EQ(righe(migliori_ritardi(archivio, domanda_pagina(1, stretto), nessuno).tabelle.at(0)),
              righe(migliori_ritardi(archivio, domanda_pagina(1), nessuno).tabelle.at(0)));
}

TEST(MiglioriRitardi, FinoAlConcorsoScelto) {
    std::string testo;
    for (int c = 1; c <= 600; ++c)
        testo += std::to_string(c) + (c == 590 ? " BA 12 21 3 4 5\n" : " BA 1 2 3 4 5\n");
    Domanda d = domanda_pagina(1);
    EXPECT_EQ(della_serie(migliori_ritardi(da_testo(testo), d, nessuno), "Ambi vertibili")[0],
              "13 - 31 R. 600");
    d.parametri.per<ParametriTabellone>().concorso = 550;
    const Risultato r = migliori_ritardi(da_testo(testo), d, nessuno);
    EXPECT_EQ(della_serie(r, "Ambi vertibili")[0], "12 - 21 R. 550");
    EXPECT_TRUE(r.note.empty());
    d.parametri.per<ParametriTabellone>().concorso = 7;
    EXPECT_EQ(migliori_ritardi(da_testo(testo), d, nessuno).note,
              std::vector<std::string>{"concorso 7 riportato a 500"});
}

TEST(MiglioriRitardi, LaSogliaDelleDecineSimmetricheVieneDallAltraSchermata) {
    const auto archivio = da_testo("1 BA 2 30 50 60 70\n2 BA 1 7 11 31 41\n3 BA 2 30 50 60 70\n");
    Domanda d = domanda_pagina(2);
    d.parametri.per<ParametriTabellone>().indice_combo = -1;  // every draw counts as out
    EXPECT_EQ(della_serie(migliori_ritardi(archivio, d, nessuno), "Decine simmetriche")[0],
              "01-03-22-24-45-46-67-69-88-90 R. 0");
    d.parametri.per<ParametriTabellone>().indice_combo = 0;  // one number is enough
    EXPECT_EQ(della_serie(migliori_ritardi(archivio, d, nessuno), "Decine simmetriche")[0],
              "06-19-27-38-40-51-53-64-72-85 R. 3");
    d.parametri.per<ParametriTabellone>().indice_combo = 1;
    EXPECT_EQ(della_serie(migliori_ritardi(archivio, d, nessuno), "Decine simmetriche")[0],
              "01-03-22-24-45-46-67-69-88-90 R. 3");
}

TEST(MiglioriRitardi, SenzaIlFileDelleCinquineIlRestoSiCalcola) {
    const CartellaProva vuota;
    Domanda d = domanda("tabellone migliori ritardi");
    d.parametri.per<ParametriTabellone>().pagina = 2;
    const Risultato r = prove::esegui(d, da_testo("1 BA 1 2 3 4 5\n"), vuota.percorso());
    EXPECT_TRUE(r.prodotto);
    EXPECT_EQ(prove::messaggi(r), std::vector<std::string>{std::string{kFileDanneggiato}});
    EXPECT_EQ(della_serie(r, "Cinquine dei  90"), (std::vector<std::string>{" ", " ", " "}));
    EXPECT_EQ(della_serie(r, "Cinquine Sun")[0], "06-07-08-09-10 R. 1");
    EXPECT_EQ(della_serie(r, "Cinquine pari/dispari")[0], "D. 11-13-15-17-19 R. 1");
}

TEST(MiglioriRitardi, AmbitoVuoto) {
    AmbitoRicerca nazionale;
    nazionale.ruote = SelezioneRuote::nazionale();
    const Risultato r = migliori_ritardi(da_testo("1 BA 1 2 3 4 5\n"), domanda_pagina(1, nazionale), nessuno);
    EXPECT_FALSE(r.prodotto);
    EXPECT_EQ(prove::messaggi(r), std::vector<std::string>{std::string{kNessunaEstrazione}});
}

TEST(MiglioriRitardi, UgualiAiLentiSuArchiviCasuali) {
    for (std::uint32_t seme = 1; seme <= 12; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        AmbitoRicerca ambito;
        ambito.ruote = ambito_casuale(seme).ruote;
        const auto scelte = righe_piane(archivio, ambito);
        if (scelte.empty()) continue;
        const int n = arrotonda(scelte.size(), ambito.ruote.n_ruote());
        for (const int pagina : {1, 2}) {
            Domanda d = domanda_pagina(pagina, ambito);
            d.parametri.per<ParametriTabellone>().indice_combo = static_cast<int>(seme % 4) - 1;
            const Risultato r = migliori_ritardi(archivio, d, nessuno);
            std::size_t riga = 0;
            for (const FamigliaMigliori& f : famiglie_migliori(pagina)) {
                const auto serie = prove::serie(*trova_caricatore(f.carica));
                const int flag =
                    f.soglia == SogliaFamiglia::ambo ? 1 : d.parametri.per<ParametriTabellone>().indice_combo;
                std::vector<std::pair<int, std::string>> gruppi;
                for (std::size_t i = 0; i < serie.righe(); ++i) {
                    int delay = n;
                    cammina(scelte, [&](int c, const std::vector<int>& numeri) {
                        if (numeri[0] <= 0) return;
                        int presenti_qui = 0;
                        for (const Numero x : serie.membro(i))
                            presenti_qui += std::count(numeri.begin(), numeri.end(), int{x}) > 0 ? 1 : 0;
                        if (presenti_qui > flag) delay = n - c;
                    });
                    std::string gruppo{f.prefisso};
                    for (const Numero x : serie.membro(i)) {
                        if (gruppo.size() > f.prefisso.size()) gruppo += serie.colonne == 2 ? " - " : "-";
                        gruppo += due(x);
                    }
                    gruppi.emplace_back(delay, gruppo);
                }
                std::stable_sort(gruppi.begin(), gruppi.end(),
                                 [](const auto& a, const auto& b) { return a.first > b.first; });
                for (std::size_t i = 0; i < f.righe; ++i, ++riga) {
                    const bool c_e = i < gruppi.size();
                    EXPECT_EQ(r.tabelle[0].testo(riga, 2), c_e ? "R. " + std::to_string(gruppi[i].first) : "")
                        << f.titolo;
                    if (!f.etichette_brevi) {
                        EXPECT_EQ(r.tabelle[0].testo(riga, 1), c_e ? gruppi[i].second : "") << f.titolo;
                    }
                }
            }
        }
    }
}

}  // namespace
}  // namespace sortimetra
