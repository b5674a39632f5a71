#include "catalogue/ricerche.h"
#include "cli/cartella_cli.h"
#include "cli/comandi.h"
#include "cli/richiesta.h"

#include <set>

// How the program answers lines that are wrong, and what it says of itself: whole standard output, whole
// standard error, exit code.

namespace sortimetra::prove {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using Uso = ProgrammaTest;

constexpr std::string_view kNovanta = "ritardo e frequenza dei 90 numeri";

TEST_F(Uso, SenzaComando) {
    const Esito p = esegui({});
    EXPECT_EQ(p.codice, 2);
    EXPECT_EQ(p.uscita, "");
    EXPECT_THAT(p.errori, AllOf(StartsWith("sortimetra-cli: manca il comando, uno fra elenco, ricerca"),
                                EndsWith("\n\"sortimetra-cli --aiuto\" spiega come si usa.\n")));
}

TEST_F(Uso, ComandoSconosciuto) {
    const Esito p = esegui({"ricrca", "x"});
    EXPECT_EQ(p.codice, 2);
    EXPECT_EQ(p.uscita, "");
    EXPECT_EQ(p.errori,
              "sortimetra-cli: il comando \"ricrca\" non esiste. Volevi dire \"ricerca\"?\n"
              "\"sortimetra-cli --aiuto\" spiega come si usa.\n");
}

TEST_F(Uso, ComandoNonAncoraFatto) {
    for (const Comando& c : comandi()) {
        if (c.esegui != nullptr) continue;
        const Esito p = esegui({std::string{c.nome}});
        EXPECT_EQ(p.codice, 1) << c.nome;
        EXPECT_EQ(p.uscita, "");
        EXPECT_EQ(p.errori,
                  "sortimetra-cli: il comando " + std::string{c.nome} + " non è ancora disponibile.\n");
        EXPECT_THAT(esegui({"--aiuto"}).uscita, Not(HasSubstr("\n  " + std::string{c.nome} + " ")));
    }
}

TEST_F(Uso, Versione) {
    for (const auto& riga : std::vector<std::vector<std::string>>{
             {"--versione"}, {"elenco", "--versione"}, {"--versione", "--cartella", "x"}}) {
        const Esito p = esegui(riga);
        EXPECT_EQ(p.codice, 0);
        EXPECT_THAT(p.uscita, ::testing::MatchesRegex("sortimetra-cli [0-9]+\\.[0-9]+\\.[0-9]+\n"));
        EXPECT_EQ(p.errori, "");
    }
}

/// A line that must be refused, what it says, and the help that it points to.
struct RigaSbagliata {
    std::vector<std::string> argomenti;
    std::string errore;
};

class UsoErrato : public ProgrammaTest, public ::testing::WithParamInterface<RigaSbagliata> {};

TEST_P(UsoErrato, DiceIlPerche) {
    const Esito p = esegui(GetParam().argomenti);
    EXPECT_EQ(p.codice, 2);
    EXPECT_EQ(p.uscita, "");
    const auto prima = p.errori.substr(0, p.errori.find('\n'));
    EXPECT_EQ(prima, "sortimetra-cli: " + GetParam().errore);
    EXPECT_THAT(p.errori, EndsWith("--aiuto\" spiega come si usa.\n"));
    EXPECT_TRUE(std::filesystem::is_empty(casa())) << "a refused line leaves nothing behind";
}

const std::string kAttesoRuote =
    ", atteso uno o più codici fra BA CA FI GE MI NA PA RM TO VE uniti da virgole, oppure uno solo fra "
    "TUTTE, "
    "NZ e nessuna. ";

INSTANTIATE_TEST_SUITE_P(
    Righe, UsoErrato,
    ::testing::ValuesIn(std::vector<RigaSbagliata>{
        // The key.
        {{"ricerca"}, "ricerca: manca la CHIAVE della ricerca. \"sortimetra-cli elenco\" le elenca."},
        {{"ricerca", ""}, "nessuna ricerca ha la chiave \"\"."},
        {{"ricerca", "qwertyuiop"}, "nessuna ricerca ha la chiave \"qwertyuiop\"."},
        {{"ricerca", "ambata capogico"},
         "nessuna ricerca ha la chiave \"ambata capogico\". Volevi dire \"ambata capogioco\" oppure \"ambo "
         "capogioco\"?"},
        {{"ricerca", "numeri spia"},
         "nessuna ricerca ha la chiave \"numeri spia\". Volevi dire \"calcolo dei numeri spia\"?"},
        {{"ricerca", "ambata", "capogioco"}, "la CHIAVE va scritta fra virgolette: \"ambata capogioco\"."},
        {{"ricerca", "decine", "cadenze"}, "\"cadenze\" è di troppo."},
        // Options that are none, or none of this search.
        {{"ricerca", "decine", "--ruota", "BA"}, "opzione sconosciuta --ruota. Volevi dire \"--ruote\"?"},
        {{"ricerca", "decine", "-ordina", "1"}, "opzione sconosciuta -ordina. Volevi dire \"--ordina\"?"},
        {{"ricerca", "decine", "--qwertyuiop"}, "opzione sconosciuta --qwertyuiop."},
        {{"ricerca", "decine", "--capogioco", "5"}, "--capogioco non è un'opzione di ricerca \"decine\"."},
        {{"ricerca", "ambi vertibili", "--tutte-le-ruote"},
         "--tutte-le-ruote non è un'opzione di ricerca \"ambi vertibili\"."},
        {{"ricerca", "cifre", "--schedina", "1"}, "--schedina non è un'opzione di ricerca \"cifre\"."},
        {{"ricerca", "decine", "--json"}, "--json non è un'opzione di ricerca \"decine\"."},
        {{"elenco", "--ruote", "BA"}, "--ruote non è un'opzione di elenco."},
        {{"elenco", "--formato", "csv"}, "--formato non è un'opzione di elenco."},
        {{"--ruote", "BA"}, "--ruote non è un'opzione di sortimetra-cli."},
        {{"--boh"}, "opzione sconosciuta --boh."},
        {{"archivio", "tutto"}, "\"tutto\" è di troppo."},
        // Values that are missing, too many or given twice.
        {{"ricerca", "decine", "--da"},
         "--da: manca il valore, atteso il numero di un concorso o una data gg/mm/aaaa."},
        {{"ricerca", "decine", "--da", "--a", "5"},
         "--da: manca il valore, atteso il numero di un concorso o una data gg/mm/aaaa."},
        {{"ricerca", "decine", "-o"}, "-o: manca il valore, atteso il nome di un file."},
        {{"ricerca", "decine", "-o", ""}, "-o: trovato \"\", atteso il nome di un file."},
        {{"elenco", "--cartella", ""}, "--cartella: trovato \"\", atteso il nome di una cartella."},
        {{"elenco", "--json=si"}, "--json non prende un valore (trovato \"si\")."},
        {{"ricerca", "decine", "--da", "1", "--da", "2"}, "--da è data due volte."},
        // Wheels.
        {{"ricerca", "decine", "--ruote", "BX"},
         "--ruote: trovato \"BX\"" + kAttesoRuote + "La ruota \"BX\" non esiste. Volevi dire \"BA\"?"},
        {{"ricerca", "decine", "--ruote", "BA,Firenze"},
         "--ruote: trovato \"BA,Firenze\"" + kAttesoRuote +
             "La ruota \"Firenze\" non esiste. Volevi dire \"FI\"?"},
        {{"ricerca", "decine", "--ruote", "TUTE"},
         "--ruote: trovato \"TUTE\"" + kAttesoRuote + "La ruota \"TUTE\" non esiste. Volevi dire \"TUTTE\"?"},
        {{"ricerca", "decine", "--ruote", ""},
         "--ruote: trovato \"\"" + kAttesoRuote + "La ruota \"\" non esiste."},
        {{"ricerca", "decine", "--ruote", "BA,"},
         "--ruote: trovato \"BA,\"" + kAttesoRuote + "La ruota \"\" non esiste."},
        {{"ricerca", "decine", "--ruote", "BA,NZ"},
         "--ruote: trovato \"BA,NZ\"" + kAttesoRuote + "TUTTE, NZ e nessuna valgono soltanto da sole."},
        {{"ricerca", "decine", "--ruote", "TUTTE,BA"},
         "--ruote: trovato \"TUTTE,BA\"" + kAttesoRuote + "TUTTE, NZ e nessuna valgono soltanto da sole."},
        {{"ricerca", "decine", "--ruote", "nessuna,BA"},
         "--ruote: trovato \"nessuna,BA\"" + kAttesoRuote + "TUTTE, NZ e nessuna valgono soltanto da sole."},
        // A search that has no wheels still refuses a wheel that does not exist.
        {{"ricerca", "tabella dei segnalimite cabalistici", "--ruote", "XX"},
         "--ruote: trovato \"XX\"" + kAttesoRuote + "La ruota \"XX\" non esiste."},
        // Range.
        {{"ricerca", "decine", "--da", "primo"},
         "--da: trovato \"primo\", atteso il numero di un concorso o una data gg/mm/aaaa."},
        {{"ricerca", "decine", "--da", ""},
         "--da: trovato \"\", atteso il numero di un concorso o una data gg/mm/aaaa."},
        {{"ricerca", "decine", "--a", "12x"},
         "--a: trovato \"12x\", atteso il numero di un concorso o una data gg/mm/aaaa."},
        {{"ricerca", "decine", "--a", "1.000"},
         "--a: trovato \"1.000\", atteso il numero di un concorso o una data gg/mm/aaaa."},
        {{"ricerca", "decine", "--a", "-"},
         "--a: trovato \"-\", atteso il numero di un concorso o una data gg/mm/aaaa."},
        {{"ricerca", "decine", "--a", "+-3"},
         "--a: trovato \"+-3\", atteso il numero di un concorso o una data gg/mm/aaaa."},
        // What comes out.
        {{"ricerca", "decine", "--formato", "xml"},
         "--formato: trovato \"xml\", atteso tabella|csv|json|xlsx."},
        {{"ricerca", "decine", "--formato", "cvs"},
         "--formato: trovato \"cvs\", atteso tabella|csv|json|xlsx. Volevi dire \"csv\"?"},
        {{"ricerca", "decine", "--ordina", "1:su"},
         "--ordina: trovato \"1:su\", atteso colonne unite da virgole, ciascuna con :asc o :desc se serve."},
        {{"ricerca", "decine", "--ordina", "Ritardo,,Numeri"},
         "--ordina: trovato \"Ritardo,,Numeri\", atteso colonne unite da virgole, ciascuna con :asc o :desc "
         "se "
         "serve."},
        {{"ricerca", "decine", "--formato", "json", "-o", "x.csv"},
         "--formato e -o non vanno d'accordo: il file si chiama \"x.csv\"."},
        {{"ricerca", "decine", "-ox.pdf"},
         "-o: trovato \"x.pdf\", un PDF si scrive con \"sortimetra-cli stampa\"."},
        {{"stampa", "decine", "-o", "x.csv"},
         "-o: trovato \"x.csv\", atteso il nome di un file PDF; un altro formato si scrive con "
         "\"sortimetra-cli ricerca\"."},
        {{"ricerca", "decine", "--prime", "-3"}, "--prime: trovato \"-3\", atteso un numero di righe."},
        {{"ricerca", "decine", "--prime", "x"}, "--prime: trovato \"x\", atteso un numero di righe."},
        // Options of single searches.
        {{"ricerca", "decine", "--tipo", "terno"}, "--tipo: trovato \"terno\", atteso ambata|ambo."},
        {{"ricerca", "scomposizione", "--tipo", "quaterna"},
         "--tipo: trovato \"quaterna\", atteso ambata|ambo|terno."},
        {{"ricerca", "decine", "--tipo", "ambat"},
         "--tipo: trovato \"ambat\", atteso ambata|ambo. Volevi dire \"ambata\"?"},
        {{"ricerca", "ambata capogioco", "--capogioco", "abc"},
         "--capogioco: trovato \"abc\", atteso un numero."},
        {{"ricerca", "ambata capogioco", "--capogioco", "5,6"},
         "--capogioco: trovato \"5,6\", atteso un numero."},
        {{"ricerca", "ambo capogioco", "--capogioco", "5,6,7"},
         "--capogioco: trovato \"5,6,7\", atteso due numeri uniti da una virgola."},
        {{"ricerca", "ambo capogioco", "--capogioco", "5;6"},
         "--capogioco: trovato \"5;6\", atteso due numeri uniti da una virgola."},
        {{"ricerca", "scomposizione", "--numeri", "5,91"},
         "--numeri: trovato \"5,91\", atteso numeri del gioco uniti da virgole."},
        {{"ricerca", "scomposizione", "--numeri", "0"},
         "--numeri: trovato \"0\", atteso numeri del gioco uniti da virgole."},
        {{"ricerca", "scomposizione", "--sorte", "6"}, "--sorte: trovato \"6\", atteso un numero da 1 a 5."},
        {{"ricerca", "ricerche su tutti gli ambi negli estratti delle 10 ruote", "--estratto", "0"},
         "--estratto: trovato \"0\", atteso un numero da 1 a 5."},
        {{"ricerca", "tabellone posizionale", "--concorso", "ultimo"},
         "--concorso: trovato \"ultimo\", atteso un numero."},
        // Import.
        {{"importa"}, "importa: serve almeno un file, con --lotto, --superenalotto o --winforlife."},
        {{"importa", "--lotto"}, "--lotto: manca il valore, atteso il nome di un file."},
        {{"importa", "--winforlife", "x", "--tutto"},
         "--tutto conta le estrazioni del Lotto: serve anche --lotto."},
    }),
    [](const auto& parametro) {
        std::string nome = std::to_string(parametro.index);
        for (const std::string& a : parametro.param.argomenti) {
            nome += '_';
            for (const char c : a)
                if ((c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) nome += c;
        }
        return nome;
    });

TEST_F(Uso, IntervalloSconosciuto) {
    const Esito lotto = esegui({"ricerca", std::string{kNovanta}, "--intervallo", "ani pari"});
    EXPECT_EQ(lotto.codice, 2);
    EXPECT_EQ(lotto.uscita, "");
    EXPECT_THAT(
        lotto.errori,
        AllOf(StartsWith("sortimetra-cli: --intervallo: trovato \"ani pari\", atteso uno fra \"Tutti i "
                         "Concorsi\", \"Tutti i Concorsi - Mesi Pari\", "),
              HasSubstr("\"Dicembre\". Volevi dire \"Anni Pari\"?\n"), Not(HasSubstr("8:00"))));
    // An hour is an interval of Win for Life alone.
    EXPECT_EQ(esegui({"ricerca", std::string{kNovanta}, "--intervallo", "8:00"}).codice, 2);
    const Esito ore = esegui({"ricerca", "ritardo e frequenza dei 20 numeri nella combinazione win for life",
                              "--intervallo", "7:00"});
    EXPECT_EQ(ore.codice, 2);
    EXPECT_THAT(ore.errori, AllOf(HasSubstr("trovato \"7:00\", atteso uno fra \"Tutti\", \"8:00\", "),
                                  HasSubstr("\"22:00\"."), Not(HasSubstr("Gennaio"))));
}

// ---- help ----

TEST_F(Uso, AiutoGenerale) {
    const Esito p = esegui({"--aiuto"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.errori, "");
    EXPECT_THAT(p.uscita, AllOf(StartsWith("Uso: sortimetra-cli COMANDO [opzioni]\n"),
                                HasSubstr("\n  3  l'archivio non si può aprire o è danneggiato\n")));
    for (const Comando& c : comandi())
        if (c.esegui != nullptr) {
            EXPECT_THAT(p.uscita, HasSubstr("\n  " + std::string{c.nome} + " "));
        }
}

/// The lines of a help that name an option.
std::set<std::string> nominate(const std::string& aiuto) {
    std::set<std::string> nomi;
    for (std::size_t i = 0; (i = aiuto.find("\n  -", i)) != std::string::npos; ++i) {
        const std::size_t da = i + 3;
        nomi.insert(aiuto.substr(da, aiuto.find_first_of(" \n", da) - da));
    }
    return nomi;
}

TEST_F(Uso, AiutoDiOgniComandoElencaLeSueOpzioni) {
    for (const Comando& c : comandi()) {
        if (c.esegui == nullptr) continue;
        const Esito p = esegui({std::string{c.nome}, "--aiuto"});
        EXPECT_EQ(p.codice, 0) << c.nome;
        EXPECT_EQ(p.errori, "");
        EXPECT_THAT(p.uscita, StartsWith("Uso: sortimetra-cli " + std::string{c.nome}));
        const auto nomi = nominate(p.uscita);
        std::set<std::string> attese;
        for (const VoceOpzione& o : opzioni())
            if (o.ammessa == nullptr && (o.comandi & c.bit) != 0) attese.emplace(o.nome);
        // A command that runs one search has that one's options too.
        if (const Ricerca* sua = ricerca_propria(c))
            for (const Opzione* o : sua->opzioni) attese.emplace(o->nome);
        EXPECT_THAT(attese, ::testing::Each(::testing::ResultOf(
                                [&](const std::string& n) { return nomi.contains(n); }, true)))
            << c.nome;
        for (const std::string& n : nomi)
            EXPECT_TRUE(attese.contains(n) || (c.bit & (kComRicerca | kComStampa)) != 0)
                << c.nome << " " << n;
    }
}

TEST_F(Uso, AiutoDiUnaRicercaElencaLeOpzioniCheConosce) {
    const auto capogioco = nominate(esegui({"ricerca", "Ambo Capogioco", "--aiuto"}).uscita);
    EXPECT_TRUE(capogioco.contains("--capogioco"));
    EXPECT_TRUE(capogioco.contains("--tipo"));
    EXPECT_TRUE(capogioco.contains("--ruote"));
    EXPECT_FALSE(capogioco.contains("--sorte"));
    const auto novanta = nominate(esegui({"ricerca", std::string{kNovanta}, "--aiuto"}).uscita);
    EXPECT_FALSE(novanta.contains("--capogioco"));
    EXPECT_TRUE(novanta.contains("--da"));
}

TEST_F(Uso, LAiutoVincePerfinoSuUnaRigaSbagliata) {
    const Esito p = esegui({"ricerca", "decine", "--ruote", "XX", "--aiuto"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_THAT(p.uscita, StartsWith("Uso: sortimetra-cli ricerca \"decine\" [opzioni]\n\nDecine\n"));
}

TEST_F(Uso, NessunaRigaDiAiutoEPiuLargaDiUnTerminale) {
    std::vector<std::vector<std::string>> righe{{"--aiuto"}, {"ricerca", "--aiuto"}, {"importa", "--aiuto"}};
    for (const Ricerca& r : ricerche()) righe.push_back({"ricerca", std::string{r.chiave()}, "--aiuto"});
    for (const auto& riga : righe) {
        std::ostringstream uscita;
        std::ostringstream errori;
        ASSERT_EQ(esegui_comando(riga, uscita, errori), 0);
        std::istringstream linee{uscita.str()};
        for (std::string linea; std::getline(linee, linea);) {
            if (linea.starts_with("Uso: ")) continue;
            std::size_t caratteri = 0;
            for (const char c : linea) caratteri += (static_cast<unsigned char>(c) & 0xC0U) != 0x80;
            EXPECT_LE(caratteri, 80) << linea;
        }
    }
}

}  // namespace
}  // namespace sortimetra::prove
