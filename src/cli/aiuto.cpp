#include "cli/aiuto.h"

#include "cli/richiesta.h"
#include "results/risultato.h"
#include "results/scrittori.h"

#include <algorithm>
#include <vector>

namespace sortimetra {

namespace {

/// Lines of the help end before this column.
constexpr std::size_t kLarghezza = 80;
/// Where the sentences stand beside the names.
constexpr std::size_t kRientro = 24;

/// Appends words broken into lines, the first beginning at `colonna` and the others at `rientro`.
void scorri(std::string& testo, std::string_view parole, std::size_t rientro, std::size_t colonna) {
    bool prima = true;
    while (!parole.empty()) {
        const std::size_t spazio = std::min(parole.find(' '), parole.size());
        const std::string_view parola = parole.substr(0, spazio);
        parole.remove_prefix(std::min(spazio + 1, parole.size()));
        const std::size_t larga = larghezza_terminale(parola);
        if (!prima && colonna + 1 + larga > kLarghezza) {
            testo += '\n';
            testo.append(rientro, ' ');
            colonna = rientro;
        } else if (!prima) {
            testo += ' ';
            ++colonna;
        }
        testo += parola;
        colonna += larga;
        prima = false;
    }
    testo += '\n';
}

void paragrafo(std::string& testo, std::string_view parole) {
    scorri(testo, parole, 0, 0);
}

/// A name and its sentence, in two columns.
void voce(std::string& testo, std::string_view nome, std::string_view frase) {
    testo += "  ";
    testo += nome;
    std::size_t colonna = 2 + larghezza_terminale(nome);
    if (colonna + 2 > kRientro) {
        testo += '\n';
        colonna = 0;
    }
    testo.append(kRientro - colonna, ' ');
    scorri(testo, frase, kRientro, kRientro);
}

/// An option of a command or of a search.
template <class Voce>
void voce(std::string& testo, const Voce& o) {
    std::string nome{o.nome};
    if (!o.meta.empty()) {
        nome += ' ';
        nome += o.meta;
    }
    voce(testo, nome, o.frase);
}

void titolo_gruppo(std::string& testo, std::string_view titolo) {
    testo += '\n';
    testo += titolo;
    testo += '\n';
}

/// The options that `quali` accepts under a title; nothing if there is none.
template <class Quali>
void gruppo(std::string& testo, std::string_view titolo, Quali&& quali) {
    std::vector<std::string_view> mostrate;
    for (const VoceOpzione& o : opzioni()) {
        if (!quali(o)) continue;
        if (std::find(mostrate.begin(), mostrate.end(), o.nome) != mostrate.end()) continue;
        if (mostrate.empty() && !titolo.empty()) titolo_gruppo(testo, titolo);
        mostrate.push_back(o.nome);
        voce(testo, o);
    }
}

/// What the search takes, and what the command does for this search and not for every one.
void opzioni_della_ricerca(std::string& testo, const Comando& comando, const Ricerca& ricerca) {
    constexpr std::string_view kTitolo = "Opzioni di questa ricerca:";
    if (!ricerca.opzioni.empty()) titolo_gruppo(testo, kTitolo);
    for (const Opzione* o : ricerca.opzioni) voce(testo, *o);
    gruppo(testo, ricerca.opzioni.empty() ? kTitolo : std::string_view{},
           [&](const VoceOpzione& o) { return o.ammessa != nullptr && conosce(o, comando.bit, &ricerca); });
}

}  // namespace

std::string aiuto_generale() {
    std::string t = "Uso: sortimetra-cli COMANDO [opzioni]\n\n";
    paragrafo(t,
              "Le ricerche statistiche di Sortimetra sul Lotto, sul SuperEnalotto, sul 10eLotto e su Win for "
              "Life, senza finestre: le stesse tabelle, cella per cella.");
    t += "\nComandi:\n";
    for (const Comando& c : comandi())
        if (c.esegui != nullptr) voce(t, c.nome, c.frase);
    gruppo(t, "Opzioni di ogni comando:", di_ogni_comando);
    t += '\n';
    paragrafo(t,
              "Le opzioni stanno dove si vuole, ciascuna una volta sola; il valore segue uno spazio o \"=\": "
              "--da 100, --da=100. Gli elenchi sono uniti da virgole.");
    t += "\nPer cominciare:\n"
         "  sortimetra-cli dimostrazione\n"
         "  sortimetra-cli elenco\n"
         "  sortimetra-cli ricerca \"ritardo e frequenza dei 90 numeri\" --ruote TUTTE\n"
         "\n";
    paragrafo(
        t,
        "\"sortimetra-cli COMANDO --aiuto\" spiega un comando, \"sortimetra-cli ricerca CHIAVE --aiuto\" "
        "una ricerca.");
    t += "\nCodice d'uscita:\n"
         "  0  c'è un risultato\n"
         "  1  la ricerca non è partita o non ha dati\n"
         "  2  la riga di comando è sbagliata\n"
         "  3  l'archivio non si può aprire o è danneggiato\n"
         "\n";
    paragrafo(t, "Il perché è sempre detto sull'uscita degli errori.");
    return t;
}

std::string aiuto_comando(const Comando& comando, const Ricerca* ricerca) {
    std::string t = "Uso: sortimetra-cli ";
    t += comando.nome;
    if (ricerca != nullptr) {
        t += " \"";
        t += ricerca->chiave();
        t += "\" [opzioni]\n\n";
        t += ricerca->titolo();
        t += '\n';
        paragrafo(t, ricerca->frase);
        if (!ricerca->pronta()) t += "Questa ricerca non è ancora disponibile.\n";
        opzioni_della_ricerca(t, comando, *ricerca);
    } else {
        if (!comando.argomenti.empty()) {
            t += ' ';
            t += comando.argomenti;
        }
        t += "\n\n";
        paragrafo(t, comando.frase);
        std::string_view resto = comando.dettaglio;
        while (!resto.empty()) {
            const std::size_t fine = std::min(resto.find('\n'), resto.size());
            t += '\n';
            paragrafo(t, resto.substr(0, fine));
            resto.remove_prefix(std::min(fine + 1, resto.size()));
        }
        if (const Ricerca* sua = ricerca_propria(comando)) opzioni_della_ricerca(t, comando, *sua);
    }
    const bool cerca = (comando.bit & (kComRicerca | kComStampa | kComStoria)) != 0;
    const auto sua = [&](const VoceOpzione& o) {
        return o.ammessa == nullptr && !di_ogni_comando(o) && conosce(o, comando.bit, ricerca);
    };
    const auto di_ambito = [](const VoceOpzione& o) {
        return o.nome == "--ruote" || o.nome == "--intervallo" || o.nome == "--da" || o.nome == "--a";
    };
    if (cerca) {
        gruppo(t, "Che cosa si conta:", [&](const VoceOpzione& o) { return sua(o) && di_ambito(o); });
        gruppo(t, "Che cosa esce:", [&](const VoceOpzione& o) { return sua(o) && !di_ambito(o); });
    } else {
        gruppo(t, "Opzioni:", sua);
    }
    gruppo(t, "Opzioni di ogni comando:", di_ogni_comando);
    if (cerca && ricerca == nullptr && comando.chiave.empty()) {
        t += '\n';
        paragrafo(t,
                  "Ogni ricerca può avere opzioni sue: \"sortimetra-cli ricerca CHIAVE --aiuto\". Un'opzione "
                  "di quelle che dicono che cosa si conta, se per una ricerca non ha senso, non ha effetto.");
    }
    return t;
}

}  // namespace sortimetra
