#include "cli/cartella_cli.h"
#include "cli/comandi.h"
#include "cli/completamento.h"
#include "cli/manuali.h"
#include "cli/richiesta.h"
#include "desktop/opzioni_avvio.h"

#include <sstream>

// The pages and the completions hold all that the tables hold, and bash completes with them as its users do.
// (zsh and the formatter of the pages have tests of their own, installazione/.)

namespace sortimetra::prove {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::UnorderedElementsAre;

/// Whether a name stands in a text as a whole: "--da" does not stand in "--dado".
bool nomina(const std::string& testo, std::string_view nome) {
    for (std::size_t i = 0; (i = testo.find(nome, i)) != std::string::npos; ++i) {
        const std::string_view dopo = std::string_view{testo}.substr(i + nome.size());
        const bool continua = dopo.starts_with('-') || dopo.starts_with("\\-") ||
                              (!dopo.empty() && std::isalnum(static_cast<unsigned char>(dopo.front())) != 0);
        if (!continua) return true;
    }
    return false;
}

/// A text as a manual page writes it.
std::string nella_pagina(std::string_view testo) {
    std::string scritto;
    for (const char c : testo) {
        if (c == '-') scritto += '\\';
        scritto += c;
    }
    return scritto;
}

void e_ovunque(std::string_view nome) {
    EXPECT_TRUE(nomina(completamento_bash_cli(), nome)) << nome;
    EXPECT_TRUE(nomina(completamento_zsh_cli(), nome)) << nome;
    EXPECT_TRUE(nomina(manuale_cli(), nella_pagina(nome))) << nome;
}

TEST(Manuali, OgniOpzioneDelleTabelleCE) {
    for (const VoceOpzione& o : opzioni())
        for (const Comando& c : comandi())
            if (c.esegui != nullptr && (o.comandi & c.bit) != 0) e_ovunque(o.nome);
    for (const Opzione* o : opzioni_ricerche()) {
        const auto pronta = [&](const Ricerca& r) { return r.pronta() && r.ammette(*o); };
        if (std::any_of(ricerche().begin(), ricerche().end(), pronta)) e_ovunque(o->nome);
        EXPECT_THAT(manuale_cli(), HasSubstr(nella_pagina(o->frase))) << o->nome;
    }
    for (const Opzione& o : kOpzioniAvvio) {
        EXPECT_TRUE(nomina(completamento_bash_finestra(kOpzioniAvvio), o.nome)) << o.nome;
        EXPECT_TRUE(nomina(completamento_zsh_finestra(kOpzioniAvvio), o.nome)) << o.nome;
        EXPECT_THAT(manuale_finestra(kOpzioniAvvio), HasSubstr(nella_pagina(o.frase))) << o.nome;
    }
}

TEST(Manuali, OgniComandoEOgniRicercaCE) {
    for (const Comando& c : comandi()) {
        if (c.esegui == nullptr) continue;
        e_ovunque(c.nome);
        EXPECT_THAT(manuale_cli(), HasSubstr("\n" + nella_pagina(c.frase) + "\n")) << c.nome;
    }
    for (const Ricerca& r : ricerche()) {
        if (!r.pronta()) continue;
        EXPECT_THAT(completamento_bash_cli(), HasSubstr("'" + std::string{r.chiave()} + "'"));
        EXPECT_THAT(completamento_zsh_cli(), HasSubstr("'" + std::string{r.chiave()} + ":"));
        EXPECT_THAT(manuale_cli(), HasSubstr("\\fB" + nella_pagina(r.chiave()) + "\\fR\n"));
    }
}

TEST(Manuali, ICodiciDiUscitaSonoQuelliDellAiuto) {
    std::ostringstream uscita;
    std::ostringstream errori;
    ASSERT_EQ(esegui_comando({"--aiuto"}, uscita, errori), 0);
    const std::string aiuto = uscita.str();
    const std::string pagina = manuale_cli();
    for (const char* codice : {"0", "1", "2", "3"}) {
        // "  0  c'è un risultato" in the help, "C'è un risultato." under its code on the page.
        const std::string inizio = std::string{"\n  "} + codice + "  ";
        const auto da = aiuto.find(inizio);
        ASSERT_NE(da, std::string::npos) << codice;
        const auto frase = da + inizio.size();
        const std::string resto = aiuto.substr(frase + 1, aiuto.find('\n', frase) - frase - 1);
        const std::string voce = std::string{".TP\n"} + codice + "\n";
        const auto posto = pagina.find(voce);
        ASSERT_NE(posto, std::string::npos) << codice;
        EXPECT_EQ(pagina.substr(posto + voce.size() + 1, resto.size() + 2), resto + ".\n") << codice;
    }
}

/// A real bash with the completion loaded.
class Bash : public ProgrammaTest {
  protected:
    /// What Tab offers after words that bash has cut as it does: at blanks, "=" and ":".
    [[nodiscard]] std::vector<std::string> offerte(std::vector<std::string> parole,
                                                   const std::string& funzione = "_sortimetra_cli") const {
        scrivi(casa() / "completamento",
               completamento_bash_cli() + completamento_bash_finestra(kOpzioniAvvio));
        const std::string testo =
            "source ./completamento; f=$1; shift; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); COMPREPLY=(); "
            "$f; printf '%s\\n' \"${COMPREPLY[@]}\"";
        std::vector<std::string> argomenti{"--norc", "-c", testo, "bash", funzione, "sortimetra-cli"};
        argomenti.insert(argomenti.end(), parole.begin(), parole.end());
        const Esito e = esegui_programma("/bin/bash", argomenti, {.cartella = casa()});
        EXPECT_EQ(e.errori, "");
        std::vector<std::string> righe;
        std::istringstream flusso{e.uscita};
        for (std::string riga; std::getline(flusso, riga);)
            if (!riga.empty()) righe.push_back(riga);
        return righe;
    }
};

TEST_F(Bash, IComandi) {
    EXPECT_THAT(offerte({"dim"}), ElementsAre("dimostrazione"));
    EXPECT_THAT(offerte({""}), IsSupersetOf({"elenco", "ricerca", "archivio", "importa", "stampa"}));
    EXPECT_THAT(offerte({"aiu"}), ElementsAre("aiuto"));
    EXPECT_THAT(offerte({"aiuto", "imp"}), ElementsAre("importa"));
    // An option may come before the command; its value is not the command.
    EXPECT_THAT(offerte({"--cartella", "elenco", "arch"}), ElementsAre("archivio"));
    EXPECT_THAT(offerte({"--cartella", "=", "elenco", "arch"}), ElementsAre("archivio"));
}

TEST_F(Bash, LeChiavi) {
    EXPECT_THAT(offerte({"ricerca", "ambata"}), ElementsAre("ambata\\ capogioco"));
    EXPECT_THAT(offerte({"ricerca", "AMBATA"}), ElementsAre("ambata\\ capogioco"));
    EXPECT_THAT(offerte({"ricerca", "ambata\\ c"}), ElementsAre("ambata\\ capogioco"));
    // Within a quote nothing is to be escaped.
    EXPECT_THAT(offerte({"stampa", "\"ambata c"}), ElementsAre("ambata capogioco"));
    EXPECT_THAT(offerte({"ricerca", "ambi\\ somma"}), ElementsAre("ambi\\ somma\\(11\\)"));
    EXPECT_THAT(offerte({"elenco", "amb"}), IsEmpty());
    EXPECT_THAT(offerte({"ricerca", "decine", "amb"}), IsEmpty());
}

TEST_F(Bash, LeOpzioniSonoDelComandoEDellaRicerca) {
    EXPECT_THAT(offerte({"elenco", "-"}),
                UnorderedElementsAre("--json", "--cartella", "--aiuto", "--versione"));
    EXPECT_THAT(offerte({"ricerca", "\"ambata capogioco\"", "--capo"}), ElementsAre("--capogioco"));
    EXPECT_THAT(offerte({"ricerca", "ambata\\ capogioco", "--capo"}), ElementsAre("--capogioco"));
    EXPECT_THAT(offerte({"ricerca", "Ambata\\ Capogioco", "--schedina", "3", "--capo"}),
                ElementsAre("--capogioco"));
    EXPECT_THAT(offerte({"ricerca", "decine", "--"}), Contains("--tipo"));
    EXPECT_THAT(offerte({"ricerca", "decine", "--"}), Not(Contains("--capogioco")));
    // A sort column with its way comes as three words, and none of them is the key.
    EXPECT_THAT(offerte({"ricerca", "--ordina", "2", ":", "asc", "ambata"}),
                ElementsAre("ambata\\ capogioco"));
}

TEST_F(Bash, IValori) {
    EXPECT_THAT(offerte({"ricerca", "decine", "--tipo", ""}), ElementsAre("ambata", "ambo"));
    EXPECT_THAT(offerte({"ricerca", "scomposizione", "--tipo", ""}), ElementsAre("ambata", "ambo", "terno"));
    EXPECT_THAT(offerte({"ricerca", "decine", "--formato", "c"}), ElementsAre("csv"));
    EXPECT_THAT(offerte({"ricerca", "decine", "--formato", "="}), IsSupersetOf({"tabella", "csv", "json"}));
    EXPECT_THAT(offerte({"ricerca", "decine", "--formato", "=", "js"}), ElementsAre("json"));
    // The last piece of a list.
    EXPECT_THAT(offerte({"ricerca", "decine", "--ruote", "r"}), ElementsAre("RM"));
    EXPECT_THAT(offerte({"ricerca", "decine", "--ruote", "BA,CA,T"}),
                ElementsAre("BA\\,CA\\,TO", "BA\\,CA\\,TUTTE"));
    EXPECT_THAT(offerte({"ricerca", "decine", "--intervallo", "Anni\\ Pari\\ -"}),
                ElementsAre("Anni\\ Pari\\ -\\ Mesi\\ Pari", "Anni\\ Pari\\ -\\ Mesi\\ Dispari"));
    EXPECT_THAT(offerte({"ricerca", "decine", "--da", ""}), IsEmpty());
}

TEST_F(Bash, FileECartelle) {
    std::filesystem::create_directory(casa() / "estrazioni");
    scrivi(casa() / "esito.csv", "x");
    EXPECT_THAT(offerte({"ricerca", "decine", "-o", "es"}), UnorderedElementsAre("esito.csv", "estrazioni"));
    EXPECT_THAT(offerte({"archivio", "--cartella", "es"}), ElementsAre("estrazioni"));
    EXPECT_THAT(offerte({"--cartella", "=", "es"}, "_sortimetra"), ElementsAre("estrazioni"));
    EXPECT_THAT(offerte({"--ver"}, "_sortimetra"), ElementsAre("--versione"));
}

}  // namespace
}  // namespace sortimetra::prove
