#include "cli/manuali.h"

#include "cli/richiesta.h"
#include "cli/voci.h"
#include "results/risultato.h"

#include <fmt/core.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace sortimetra {

namespace {

/// A text as the formatter of `man` takes it: hyphens that can be copied, no word of its own language.
std::string roff(std::string_view testo) {
    std::string scritto;
    if (testo.starts_with('.') || testo.starts_with('\'')) scritto = "\\&";
    for (const char c : testo) {
        switch (c) {
            case '\\':
                scritto += "\\e";
                break;
            case '-':
                scritto += "\\-";
                break;
            // At the beginning of a line either would be a request.
            case '\n':
                scritto += "\n\\&";
                break;
            default:
                scritto += c;
        }
    }
    return scritto;
}

std::string sezione(std::string_view titolo) {
    return fmt::format(".SH {}\n", titolo.find(' ') == std::string_view::npos
                                       ? std::string{titolo}
                                       : fmt::format("\"{}\"", titolo));
}

std::string paragrafo(std::string_view testo) {
    return fmt::format(".PP\n{}\n", roff(testo));
}

/// A term and what it is, set in under it.
std::string termine(std::string_view termine, std::string_view testo) {
    return fmt::format(".TP\n{}\n{}\n", termine, roff(testo));
}

std::string voce(const VoceManuale& v) {
    std::string nome = fmt::format("\\fB{}\\fR", roff(v.nome));
    if (!v.meta.empty()) nome += fmt::format(" \\fI{}\\fR", roff(v.meta));
    return termine(nome, v.frase);
}

std::string voci(const std::vector<VoceManuale>& tutte) {
    std::string t;
    for (const VoceManuale& v : tutte) t += voce(v);
    return t;
}

std::string testata(std::string_view nome, std::string_view frase) {
    return fmt::format(
        ".\\\" Fatta dalla tabella delle opzioni: non si cambia a mano.\n"
        ".TH {} 1 \"\" \"Sortimetra {}\" \"Comandi per l'utente\"\n{}{} \\- {}\n",
        roff(nome), SORTIMETRA_VERSIONE, sezione("NOME"), roff(nome), roff(frase));
}

/// Where both programs look, and what of it can be moved.
std::string file_e_ambiente() {
    return sezione("FILE") +
           termine(
               "\\fIarchivio/\\fR",
               "Nella cartella del programma: le estrazioni, in drawit.mdb e drawit2.mdb o in drawit.db e "
               "drawit2.db. Se ci sono gli uni e gli altri valgono i più recenti.") +
           termine(roff("~/.local/share/sortimetra"),
                   "La cartella del programma, se non ne è scelta un'altra.") +
           termine(roff("~/.config/sortimetra/impostazioni.ini"),
                   "La cartella scelta nella finestra: vale per tutti e due i programmi, finché contiene "
                   "\"archivio\". E gli indirizzi da cui si aggiorna.") +
           sezione("AMBIENTE") +
           termine("\\fBXDG_DATA_HOME\\fR, \\fBXDG_CONFIG_HOME\\fR",
                   "Se sono percorsi assoluti, stanno in luogo di ~/.local/share e di ~/.config.");
}

std::string comando(const Comando& c) {
    std::string t = fmt::format(".SS \"{}{}{}\"\n{}\n", c.nome, c.argomenti.empty() ? "" : " ",
                                roff(c.argomenti), roff(c.frase));
    std::string_view resto = c.dettaglio;
    while (!resto.empty()) {
        const std::size_t fine = std::min(resto.find('\n'), resto.size());
        t += paragrafo(resto.substr(0, fine));
        resto.remove_prefix(std::min(fine + 1, resto.size()));
    }
    return t + voci(voci_comando(c));
}

/// For which searches an option is there: their keys if they are few.
std::string vale_per(const Opzione& o) {
    constexpr std::size_t kPoche = 4;
    std::vector<std::string_view> chiavi;
    for (const Ricerca* r : ricerche_pronte())
        if (r->ammette(o)) chiavi.push_back(r->chiave());
    if (chiavi.empty()) return {};
    if (chiavi.size() > kPoche) return fmt::format(" Vale per {} ricerche.", chiavi.size());
    std::string t = " Vale per: ";
    for (const std::string_view c : chiavi) t += fmt::format("{}{}", c == chiavi.front() ? "" : ", ", c);
    return t + ".";
}

std::string opzioni_delle_ricerche() {
    std::string t = sezione("OPZIONI DELLE RICERCHE") +
                    paragrafo("Ogni ricerca ha le sue: \"sortimetra-cli ricerca CHIAVE --aiuto\" le dice.");
    for (const Opzione* o : opzioni_ricerche()) {
        const std::string frase = fmt::format("{}{}", o->frase, vale_per(*o));
        t += voce({.nome = o->nome, .meta = o->meta, .frase = frase});
    }
    // What a command does for some searches and not for all.
    for (const Comando* c : comandi_pronti())
        for (const VoceOpzione& o : opzioni())
            if (o.ammessa != nullptr && conosce(o, c->bit, nullptr))
                t += voce(
                    {.nome = o.nome,
                     .meta = o.meta,
                     .frase = fmt::format("{} Vale per {}, dove la ricerca la ammette.", o.frase, c->nome)});
    return t;
}

}  // namespace

std::string manuale_cli() {
    std::string t = testata("sortimetra-cli", "ricerche statistiche sulle lotterie italiane, senza finestre");
    t += sezione("SINTASSI") + "\\fBsortimetra\\-cli\\fR \\fICOMANDO\\fR [\\fIopzioni\\fR]\n";
    t += sezione("DESCRIZIONE") +
         paragrafo(
             "Le ricerche di Sortimetra sul Lotto, sul SuperEnalotto, sul 10eLotto e su Win for Life: le "
             "stesse tabelle della finestra, cella per cella. Guardano indietro: nessuna statistica dice "
             "quali numeri usciranno.") +
         paragrafo(
             "Le opzioni stanno dove si vuole, ciascuna una volta sola; il valore segue uno spazio o "
             "\"=\": --da 100, --da=100. Gli elenchi sono uniti da virgole.") +
         paragrafo(
             "\"sortimetra-cli aiuto COMANDO\", --help e -h fanno ciò che fa --aiuto, --version ciò che fa "
             "--versione.");
    t += sezione("COMANDI");
    for (const Comando* c : comandi_pronti()) t += comando(*c);
    t += sezione("OPZIONI DI OGNI COMANDO") + voci(voci_di_ogni_comando());
    t += opzioni_delle_ricerche();
    t += sezione("RICERCHE") + paragrafo("Le chiavi; maiuscole e minuscole sono uguali.");
    for (const Ricerca* r : ricerche_pronte())
        t += termine(fmt::format("\\fB{}\\fR", roff(r->chiave())), r->frase);
    t += sezione("CODICE D'USCITA") + termine("0", "C'è un risultato.") +
         termine("1", "La ricerca non è partita o non ha dati.") +
         termine("2", "La riga di comando è sbagliata.") +
         termine("3", "L'archivio non si può aprire o è danneggiato.") +
         paragrafo("Il perché è sempre detto sull'uscita degli errori.");
    t += file_e_ambiente();
    t += sezione("ESEMPI");
    for (const std::string_view riga :
         {"sortimetra-cli dimostrazione", "sortimetra-cli elenco",
          "sortimetra-cli ricerca \"ritardo e frequenza dei 90 numeri\" --ruote BA,RM --prime 10",
          "sortimetra-cli ricerca \"ambata capogioco\" --capogioco 7 --formato json",
          "sortimetra-cli stampa \"ritardo e frequenza dei 90 numeri\" -o novanta.pdf"})
        t += fmt::format(".PP\n.nf\n{}\n.fi\n", roff(riga));
    return t + sezione("VEDI ANCHE") + "\\fBsortimetra\\fR(1)\n";
}

std::string manuale_finestra(std::span<const Opzione> opzioni) {
    std::string t = testata("sortimetra", "statistiche sulle lotterie italiane");
    t += sezione("SINTASSI") + "\\fBsortimetra\\fR [\\fIopzioni\\fR]\n";
    t += sezione("DESCRIZIONE") +
         paragrafo(
             "Apre il catalogo delle ricerche statistiche sul Lotto, sul SuperEnalotto, sul 10eLotto e su "
             "Win for Life: ritardi, frequenze e serie dell'archivio delle estrazioni, che si ordinano, "
             "si stampano e si esportano. Senza uno schermo si usa sortimetra-cli.");
    t += sezione("OPZIONI");
    for (const Opzione& o : opzioni) t += voce({.nome = o.nome, .meta = o.meta, .frase = o.frase});
    t += sezione("CODICE D'USCITA") + termine("0", "Il programma è stato chiuso.") +
         termine("2", "La riga di comando è sbagliata.");
    return t + file_e_ambiente() + sezione("VEDI ANCHE") + "\\fBsortimetra\\-cli\\fR(1)\n";
}

}  // namespace sortimetra
