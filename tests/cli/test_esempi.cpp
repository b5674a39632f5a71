#include "catalogue/ricerche.h"
#include "cli/cartella_cli.h"
#include "cli/comandi.h"
#include "stores/importa.h"

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

// Every worked example beside the project: a command line and the object that it prints with --formato json.

namespace sortimetra::prove {
namespace {

using nlohmann::json;

struct Esempio {
    std::string file;
    int riga = 0;
    std::vector<std::string> argomenti;
    json atteso;
};

std::vector<Esempio> esempi() {
    std::vector<Esempio> tutti;
    const auto cartella = cartella_condivisa();
    if (!cartella) return tutti;
    std::vector<std::filesystem::path> file;
    std::error_code errore;
    for (const auto& voce : std::filesystem::directory_iterator{*cartella / "examples", errore})
        if (voce.path().extension() == ".jsonl") file.push_back(voce.path());
    std::sort(file.begin(), file.end());
    for (const auto& f : file) {
        std::ifstream flusso{f};
        int numero = 0;
        for (std::string riga; std::getline(flusso, riga);) {
            ++numero;
            if (riga.empty()) continue;
            const json j = json::parse(riga);
            tutti.push_back(
                {f.stem().string(), numero, j["args"].get<std::vector<std::string>>(), j["expected"]});
        }
    }
    return tutti;
}

/// The program's folder of all examples: the real archive and the file of cinquine, made once per process.
const std::filesystem::path& cartella_esempi() {
    static const CartellaProva cartella;
    static const bool fatta = [] {
        const auto condivisa = cartella_condivisa().value();
        const auto archivio = condivisa / "archivio";
        SenzaAvanzamento nessuno;
        const auto esito = importa_archivio(cartella.percorso() / "archivio",
                                            {.lotto = archivio / "lotto.txt",
                                             .superenalotto = archivio / "superenalotto.csv",
                                             .winforlife = archivio / "winforlife.csv"},
                                            nessuno);
        if (!esito) throw std::logic_error(esito.error().testo());
        std::filesystem::copy_file(condivisa / "examples" / "n90ridd.rid",
                                   cartella.percorso() / "n90ridd.rid");
        return true;
    }();
    static_cast<void>(fatta);
    return cartella.percorso();
}

std::vector<std::string> riga_di_comando(const Esempio& e) {
    std::vector<std::string> argomenti = e.argomenti;
    argomenti.insert(argomenti.end(), {"--formato", "json", "--cartella", cartella_esempi().string()});
    return argomenti;
}

/// The first cell in which two tables differ, for a message that can be read.
std::string prima_differenza(const json& trovato, const json& atteso, const std::string& dove = "") {
    if (trovato == atteso) return "";
    if (trovato.type() == atteso.type() && trovato.is_array()) {
        for (std::size_t i = 0; i < std::min(trovato.size(), atteso.size()); ++i)
            if (trovato[i] != atteso[i])
                return prima_differenza(trovato[i], atteso[i], dove + "[" + std::to_string(i) + "]");
        return dove + ": " + std::to_string(trovato.size()) + " in luogo di " + std::to_string(atteso.size());
    }
    if (trovato.is_object() && atteso.is_object())
        for (const auto& [chiave, valore] : atteso.items())
            if (!trovato.contains(chiave) || trovato[chiave] != valore)
                return trovato.contains(chiave)
                           ? prima_differenza(trovato[chiave], valore, dove + "." + chiave)
                           : dove + ": manca " + chiave;
    return dove + ": trovato " + trovato.dump().substr(0, 300) + ", atteso " + atteso.dump().substr(0, 300);
}

void confronta(const Esempio& e, int codice, const std::string& uscita, const std::string& errori) {
    ASSERT_TRUE(json::accept(uscita)) << errori;
    const json intero = json::parse(uscita);
    EXPECT_TRUE(intero.contains("titolo"));
    json atteso = e.atteso;
    // What is said beyond the example is further members; those that it has must be equal.
    json trovato = json::object();
    for (const auto& [chiave, valore] : atteso.items())
        if (intero.contains(chiave)) trovato[chiave] = intero[chiave];
    // An empty scope may always carry its message.
    if (atteso["tabelle"].empty() && atteso["messaggi"].empty() &&
        trovato["messaggi"] == json::array({std::string{kNessunaEstrazione}}))
        atteso["messaggi"] = trovato["messaggi"];
    EXPECT_TRUE(trovato == atteso) << prima_differenza(trovato, atteso);
    EXPECT_EQ(codice, atteso["tabelle"].empty() ? 1 : 0) << errori;
}

/// The examples of one file: the archive is read once for all of them.
class EsempiTest : public ::testing::TestWithParam<std::string> {};

TEST_P(EsempiTest, Uguali) {
    int fatti = 0;
    std::string saltati;
    for (const Esempio& e : esempi()) {
        if (e.file != GetParam()) continue;
        SCOPED_TRACE("riga " + std::to_string(e.riga));
        const Ricerca* r = trova_ricerca(e.argomenti.at(1));
        ASSERT_NE(r, nullptr) << e.argomenti[1];
        std::ostringstream uscita;
        std::ostringstream errori;
        const int codice = r->pronta() ? esegui_comando(riga_di_comando(e), uscita, errori) : 2;
        // A search, or an option of one, that is still to come.
        if (!r->pronta() || (codice == 2 && errori.str().find("sconosciuta") != std::string::npos)) {
            saltati += " " + std::to_string(e.riga);
            continue;
        }
        ++fatti;
        confronta(e, codice, uscita.str(), errori.str());
    }
    if (!saltati.empty())
        GTEST_SKIP() << fatti << " uguali; non ancora costruite le ricerche delle righe" << saltati;
}

std::vector<std::string> file_degli_esempi() {
    std::vector<std::string> nomi;
    for (const Esempio& e : esempi())
        if (nomi.empty() || nomi.back() != e.file) nomi.push_back(e.file);
    return nomi;
}

INSTANTIATE_TEST_SUITE_P(Condivisi, EsempiTest, ::testing::ValuesIn(file_degli_esempi()),
                         [](const auto& p) { return p.param; });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(EsempiTest);

/// A few through the program itself: what it prints is what the command wrote.
TEST(Esempi, AttraversoIlProgramma) {
    int fatti = 0;
    std::string ultimo;
    for (const Esempio& e : esempi()) {
        const Ricerca* r = trova_ricerca(e.argomenti.at(1));
        // The first of each file that is built.
        if (e.file == ultimo || r == nullptr || !r->pronta()) continue;
        ultimo = e.file;
        ++fatti;
        SCOPED_TRACE(e.file + ":" + std::to_string(e.riga));
        const Esito p =
            esegui_programma("sortimetra-cli", riga_di_comando(e), {.cartella = cartella_esempi()});
        if (p.codice == 2) continue;
        confronta(e, p.codice, p.uscita, p.errori);
    }
    if (fatti == 0) GTEST_SKIP() << "esempi non presenti";
}

}  // namespace
}  // namespace sortimetra::prove
