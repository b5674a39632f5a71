#include "files/file_sicuro.h"
#include "personal/file_gruppi.h"
#include "personal/parametri.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace sortimetra {
namespace {

namespace fs = std::filesystem;
using prove::CartellaProva;

SerieCorrente gruppo(std::string_view testo) {
    return leggi_lunghette(testo).value();
}
void scrivi(const CartellaProva& c, std::string_view testo) {
    ASSERT_TRUE(scrivi_file(c.percorso() / "grup.dat", testo));
}
std::string byte(const CartellaProva& c, std::string_view nome = "grup.dat") {
    return leggi_file(c.percorso() / nome).value_or("(manca)");
}
std::string errore(const std::expected<void, Messaggio>& esito) {
    return esito ? "" : esito.error().testo;
}
std::string elenco(const CartellaProva& c) {
    const auto voci = elenca_gruppi(c.percorso());
    if (!voci) return voci.error().testo;
    std::string testo;
    for (const VoceGruppo& v : *voci)
        testo += v.nome + " " + std::to_string(v.lunghette) + " " + std::to_string(v.numeri) + "\n";
    return testo;
}

TEST(FileGruppi, SalvaIByteDiSempre) {
    const CartellaProva c;
    EXPECT_EQ(errore(salva_gruppo(c.percorso(), "Perché no", gruppo("1 2 3;4 5 90"))), "");
    EXPECT_EQ(byte(c), "\"Perch\xE9 no\"\r\n2,3\r\n1,2,3,4,5,90\r\n");
    EXPECT_EQ(errore(salva_gruppo(c.percorso(), "Uno, due", gruppo("7"))), "");
    EXPECT_EQ(byte(c), "\"Perch\xE9 no\"\r\n2,3\r\n1,2,3,4,5,90\r\n\"Uno, due\"\r\n1,1\r\n7\r\n");
    EXPECT_EQ(elenco(c), "Perché no 2 3\nUno, due 1 1\n");
    EXPECT_EQ(apri_gruppo(c.percorso(), "Perché no").value(), gruppo("1 2 3;4 5 90"));
    EXPECT_EQ(apri_gruppo(c.percorso(), "Uno, due").value(), gruppo("7"));
}

TEST(FileGruppi, SenzaFile) {
    const CartellaProva c;
    EXPECT_EQ(elenco(c), "Nessun gruppo di lunghette è stato ancora salvato.");
    EXPECT_EQ(apri_gruppo(c.percorso(), "a").error().testo,
              "Nessun gruppo di lunghette è stato ancora salvato.");
}

TEST(FileGruppi, UnNomeGiaInUso) {
    const CartellaProva c;
    ASSERT_TRUE(salva_gruppo(c.percorso(), "A", gruppo("1 2")));
    const std::string prima = byte(c);
    EXPECT_EQ(errore(salva_gruppo(c.percorso(), "A", gruppo("3"))),
              "Il nome scelto è già in uso. Impossibile salvare");
    EXPECT_EQ(byte(c), prima);
    // Exact text: another case is another name.
    EXPECT_EQ(errore(salva_gruppo(c.percorso(), "a", gruppo("3"))), "");
}

TEST(FileGruppi, UnNomeCheSomigliaAlPrimoNumero) {
    const CartellaProva c;
    ASSERT_TRUE(salva_gruppo(c.percorso(), "A", gruppo("12 13;14 15")));
    EXPECT_EQ(errore(salva_gruppo(c.percorso(), "12", gruppo("1"))),
              "Il nome scelto è già in uso. Impossibile salvare");
    EXPECT_EQ(errore(salva_gruppo(c.percorso(), "13", gruppo("1 2"))), "");
    // Put there by hand: the walk meets the third line's 12 first, and what follows it is no group.
    scrivi(c, "\"A\"\r\n2,2\r\n12,13,14,15\r\n\"12\"\r\n1,2\r\n1,2\r\n");
    EXPECT_FALSE(apri_gruppo(c.percorso(), "12"));
    EXPECT_EQ(elenco(c), "A 2 2\n12 1 2\n");
}

TEST(FileGruppi, DopoUnNumeroSoloLaRicercaSaltaUnNome) {
    const CartellaProva c;
    // The third line's only number takes its line's end along, and the next name goes as "the rest of the
    // line".
    scrivi(c, "\"A\"\r\n1,1\r\n5\r\n\"B\"\r\n1,2\r\n3,4\r\n\"C\"\r\n1,1\r\n6\r\n");
    EXPECT_EQ(elenco(c), "A 1 1\nB 1 2\nC 1 1\n");
    EXPECT_FALSE(apri_gruppo(c.percorso(), "B"));
    EXPECT_EQ(apri_gruppo(c.percorso(), "C").value(), gruppo("6"));
}

TEST(FileGruppi, EliminareLasciaGliAltriInTgrup) {
    const CartellaProva c;
    for (const char* nome : {"A", "B", "A2"})
        ASSERT_TRUE(salva_gruppo(c.percorso(), nome, gruppo("1 2;3 4")));
    EXPECT_EQ(errore(elimina_gruppo(c.percorso(), 1)), "");
    EXPECT_FALSE(fs::exists(c.percorso() / "grup.dat"));
    EXPECT_EQ(byte(c, "tgrup.dat"), "\"A\"\r\n2,2\r\n1,2,3,4\r\n\"A2\"\r\n2,2\r\n1,2,3,4\r\n");
    EXPECT_EQ(elenco(c), "Nessun gruppo di lunghette è stato ancora salvato.");
    // A new save begins a new file; the next deletion writes over what was left.
    ASSERT_TRUE(salva_gruppo(c.percorso(), "D", gruppo("9")));
    EXPECT_EQ(elenco(c), "D 1 1\n");
    EXPECT_EQ(errore(elimina_gruppo(c.percorso(), 0)), "");
    EXPECT_EQ(byte(c, "tgrup.dat"), "");
}

TEST(FileGruppi, NomiCheIlFileNonPuoTenere) {
    const CartellaProva c;
    for (const char* nome : {"a\"b", "a\nb", "a\rb", "gruppo ♥", "\xFF"}) {
        const auto esito = salva_gruppo(c.percorso(), nome, gruppo("1"));
        ASSERT_FALSE(esito) << nome;
        EXPECT_EQ(esito.error().avviso, Avviso::nome_non_valido);
    }
    EXPECT_FALSE(fs::exists(c.percorso() / "grup.dat"));
}

TEST(FileGruppi, UnFileRovinatoSiDiceERestaComE) {
    const CartellaProva c;
    for (const std::string_view testo :
         {"\"A\"\r\n", "\"A\"\r\n2,3\r\n", "\"A\"\r\n51,3\r\n1,2\r\n", "\"A\"\r\n2,21\r\n1,2\r\n",
          "\"A\"\r\nx,3\r\n1\r\n", "\"A\"\r\n2,3\r\n1,2,3,4,5", "\"A", "A,B,C\r\n1,1\r\n5\r\n",
          "\"A\"\r\n2\r\n3\r\n1\r\n"}) {
        scrivi(c, testo);
        const auto voci = elenca_gruppi(c.percorso());
        ASSERT_FALSE(voci) << testo;
        EXPECT_EQ(voci.error().avviso, Avviso::file_danneggiato);
        EXPECT_NE(voci.error().testo.find("riga"), std::string::npos) << voci.error().testo;
        EXPECT_FALSE(salva_gruppo(c.percorso(), "nuovo", gruppo("1"))) << testo;
        EXPECT_FALSE(elimina_gruppo(c.percorso(), 0)) << testo;
        EXPECT_EQ(byte(c), testo);
        EXPECT_FALSE(fs::exists(c.percorso() / "tgrup.dat"));
    }
    for (const std::string_view testo :
         {"\"A\"\r\n2,3\r\n1,2,3,4,5\r\n", "\"A\"\r\n2,3\r\n1,2,3,4,5,91\r\n",
          "\"A\"\r\n2,3\r\n1,2,3,4,5,0\r\n", "\"A\"\r\n2,3\r\n1,2,x,4,5,6\r\n"}) {
        scrivi(c, testo);
        EXPECT_EQ(apri_gruppo(c.percorso(), "A").error().avviso, Avviso::file_danneggiato) << testo;
        EXPECT_EQ(byte(c), testo);
    }
}

TEST(FileGruppi, QuandoIlDiscoDiceDiNo) {
    const CartellaProva c;
    ASSERT_TRUE(salva_gruppo(c.percorso(), "A", gruppo("1 2")));
    const std::string prima = byte(c);
    // The file that should take the others is a folder: nothing is deleted.
    fs::create_directory(c.percorso() / "tgrup.dat");
    EXPECT_NE(errore(elimina_gruppo(c.percorso(), 0)), "");
    EXPECT_EQ(byte(c), prima);
    const CartellaProva altra;
    fs::create_directory(altra.percorso() / "grup.dat");
    EXPECT_NE(errore(salva_gruppo(altra.percorso(), "A", gruppo("1"))), "");
}

TEST(FileGruppi, CiòCheSiSalvaSiRiapre) {
    const CartellaProva c;
    std::vector<SerieCorrente> tutti;
    for (int i = 0; i < 30; ++i) {
        SerieCorrente g{.colonne = static_cast<std::size_t>(i % 19 + 2)};
        for (std::size_t n = 0; n < g.colonne * static_cast<std::size_t>(i % 50 + 1); ++n)
            g.numeri.push_back(static_cast<Numero>((static_cast<int>(n) * 7 + i) % 90 + 1));
        ASSERT_TRUE(salva_gruppo(c.percorso(), "gruppo " + std::to_string(i), g));
        tutti.push_back(g);
    }
    for (int i = 0; i < 30; ++i)
        EXPECT_EQ(apri_gruppo(c.percorso(), "gruppo " + std::to_string(i)).value(),
                  tutti[static_cast<std::size_t>(i)]);
    EXPECT_EQ(elenca_gruppi(c.percorso()).value().size(), 30U);
}

}  // namespace
}  // namespace sortimetra
