#include "cli/richiesta.h"

#include "chance/grafico.h"
#include "chance/per_ruota.h"
#include "cli/simili.h"
#include "files/indirizzi.h"
#include "results/risultato.h"
#include "systems/sistemi_salvati.h"
#include "text/data.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace sortimetra {

namespace {

// ---- values ----

// ---- words ----

constexpr std::array<std::string_view, 4> kFormati{"tabella", "csv", "json", "xlsx"};
constexpr std::array<std::string_view, 13> kRuoteParole{"BA", "CA", "FI", "GE", "MI",    "NA",     "PA",
                                                        "RM", "TO", "VE", "NZ", "TUTTE", "nessuna"};

constexpr auto kNomiIntervalli = [] {
    std::array<std::string_view, kIntervalli.size()> nomi;
    for (std::size_t i = 0; i < nomi.size(); ++i) nomi[i] = kIntervalli[i].testo;
    return nomi;
}();

/// Which list of intervals a search has: the calendar's, the hours', or either where the game is an option.
bool ha_ore(const Ricerca& r) {
    return r.gioco == Gioco::win_for_life || r.gioco == Gioco::sistemi || r.tabelle == 0;
}
bool ha_calendario(const Ricerca& r) {
    return r.gioco != Gioco::win_for_life || r.tabelle == 0;
}

// ---- setters ----

/// A wheel by its code in any case; 10 for TUTTE.
std::optional<int> ruota(std::string_view parola) {
    const auto p = posto_parola(parola, kRuoteParole);
    if (!p || *p > kTutte + 1) return std::nullopt;
    return *p < kTutte ? *p : *p == kTutte ? kNazionale : kTutte;
}

bool leggi_ruote(std::string_view valore, Richiesta& r) {
    SelezioneRuote scelte = SelezioneRuote::nessuna();
    const auto parole = pezzi_opzione(valore);
    if (parole.size() == 1 && minuscolo(parole.front()) == "nessuna") {
        r.domanda.ambito.ruote = scelte;
        return r.senza_ruote = true;
    }
    for (const std::string_view p : parole) {
        const auto w = ruota(p);
        // TUTTE and NAZIONALE stand alone.
        if (!w || (parole.size() > 1 && *w >= kTutte)) return false;
        scelte.clic(*w, true);
    }
    r.domanda.ambito.ruote = scelte;
    return true;
}

std::string spiega_ruote(std::string_view valore, const Richiesta&) {
    constexpr std::string_view kAtteso =
        "uno o più codici fra BA CA FI GE MI NA PA RM TO VE uniti da virgole, oppure uno solo fra TUTTE, NZ "
        "e "
        "nessuna";
    std::string perche = "TUTTE, NZ e nessuna valgono soltanto da sole.";
    for (const std::string_view p : pezzi_opzione(valore)) {
        if (ruota(p) || minuscolo(p) == "nessuna") continue;
        std::string vicina = volevi_dire(p, kRuoteParole);
        // A wheel's full name is many letters away from its code.
        for (const NomeRuota& n : kNomiRuote)
            if (!n.codice.empty() && minuscolo(n.esteso) == minuscolo(p))
                vicina = fmt::format(" Volevi dire \"{}\"?", n.codice);
        perche = fmt::format("La ruota \"{}\" non esiste.{}", p, vicina);
        break;
    }
    return fmt::format("trovato \"{}\", atteso {}. {}", valore, kAtteso, perche);
}

bool leggi_intervallo(std::string_view valore, Richiesta& r) {
    const std::string_view testo = rifila(valore);
    if (ha_calendario(*r.ricerca))
        if (const auto voce = trova_intervallo(testo)) {
            r.domanda.ambito.intervallo = *voce;
            return true;
        }
    if (ha_ore(*r.ricerca))
        if (const auto voce = trova_ora(testo)) {
            r.domanda.ambito.ora = *voce;
            return true;
        }
    return false;
}

std::string spiega_intervallo(std::string_view valore, const Richiesta& r) {
    std::vector<std::string_view> voci;
    if (ha_calendario(*r.ricerca)) voci.assign(kNomiIntervalli.begin(), kNomiIntervalli.end());
    if (ha_ore(*r.ricerca)) voci.insert(voci.end(), kOre.begin(), kOre.end());
    std::string elenco;
    for (const std::string_view v : voci) {
        if (!elenco.empty()) elenco += ", ";
        elenco += '"';
        elenco += v;
        elenco += '"';
    }
    return fmt::format("trovato \"{}\", atteso uno fra {}.{}", valore, elenco, volevi_dire(valore, voci));
}

bool leggi_estremo(std::string_view valore, EstremoTratto& estremo) {
    estremo.concorso = intero_opzione(valore);
    if (!estremo.concorso) estremo.data = leggi_data_italiana(rifila(valore));
    return estremo.concorso || estremo.data;
}
bool leggi_da(std::string_view valore, Richiesta& r) {
    return leggi_estremo(valore, r.da);
}
bool leggi_a(std::string_view valore, Richiesta& r) {
    return leggi_estremo(valore, r.a);
}

bool leggi_percorso(std::string_view valore, std::optional<std::filesystem::path>& dove) {
    if (!valore.empty()) dove = valore;
    return !valore.empty();
}
bool leggi_cartella(std::string_view valore, Richiesta& r) {
    return leggi_percorso(valore, r.cartella);
}
bool leggi_file_uscita(std::string_view valore, Richiesta& r) {
    return leggi_percorso(valore, r.file);
}
bool leggi_file_lotto(std::string_view valore, Richiesta& r) {
    return leggi_percorso(valore, r.pubblicati.lotto);
}
bool leggi_file_superenalotto(std::string_view valore, Richiesta& r) {
    return leggi_percorso(valore, r.pubblicati.superenalotto);
}
bool leggi_file_winforlife(std::string_view valore, Richiesta& r) {
    return leggi_percorso(valore, r.pubblicati.winforlife);
}
bool leggi_jet_da(std::string_view valore, Richiesta& r) {
    return leggi_percorso(valore, r.jet);
}
bool leggi_indirizzo(std::string_view valore, Richiesta& r) {
    const std::string_view testo = rifila(valore);
    if (rifiuto_indirizzo(testo).empty()) r.indirizzo = testo;
    return r.indirizzo.has_value();
}
bool leggi_prova(std::string_view, Richiesta& r) {
    return r.prova = true;
}
bool leggi_tutto(std::string_view, Richiesta& r) {
    return r.pubblicati.tutto = true;
}
bool leggi_sostituisci(std::string_view, Richiesta& r) {
    return r.pubblicati.sostituisci = true;
}
bool leggi_annulla(std::string_view, Richiesta& r) {
    return r.annulla = true;
}
bool leggi_senza_copia(std::string_view, Richiesta& r) {
    return r.senza_copia = true;
}
bool leggi_aiuto(std::string_view, Richiesta& r) {
    return r.aiuto = true;
}
bool leggi_versione(std::string_view, Richiesta& r) {
    return r.versione = true;
}
bool leggi_json(std::string_view, Richiesta& r) {
    return r.json = true;
}

bool leggi_esame(std::string_view, Richiesta& r) {
    return r.esame = true;
}

bool leggi_sistema(std::string_view valore, Richiesta& r) {
    r.sistema = intero_opzione(valore, 0, static_cast<std::int32_t>(kGeneriSistema) - 1);
    return r.sistema.has_value();
}

bool leggi_formato(std::string_view valore, Richiesta& r) {
    const auto p = posto_parola(valore, kFormati);
    if (p) r.formato = static_cast<Formato>(*p);
    return p.has_value();
}

/// Taken as typed; what it means shows once the table is there.
bool leggi_parole(std::string_view valore, std::optional<std::string>& dove) {
    dove = rifila(valore);
    return !dove->empty();
}
/// The ways are checked at once, the columns when there are any.
bool leggi_ordina(std::string_view valore, Richiesta& r) {
    for (const std::string_view pezzo : pezzi_opzione(valore)) {
        const auto due_punti = pezzo.rfind(':');
        const std::string verso =
            due_punti == std::string_view::npos ? "desc" : minuscolo(rifila(pezzo.substr(due_punti + 1)));
        if (rifila(pezzo.substr(0, due_punti)).empty() || (verso != "asc" && verso != "desc")) return false;
    }
    return leggi_parole(valore, r.ordina);
}
bool leggi_dove(std::string_view valore, Richiesta& r) {
    return leggi_parole(valore, r.dove);
}
bool leggi_colonne_scelte(std::string_view valore, Richiesta& r) {
    return leggi_parole(valore, r.colonne);
}
bool leggi_intestazione(std::string_view, Richiesta& r) {
    return r.intestazione = true;
}

bool leggi_prime(std::string_view valore, Richiesta& r) {
    const auto n = intero_opzione(valore, 0, std::numeric_limits<std::int32_t>::max());
    if (n) r.prime = static_cast<std::size_t>(*n);
    return n.has_value();
}

bool leggi_schedina(std::string_view valore, Richiesta& r) {
    r.schedina = intero_opzione(valore, 1, kInteroMassimo);
    return r.schedina.has_value();
}

bool leggi_caso(std::string_view, Richiesta& r) {
    return r.caso = true;
}
bool leggi_per_ruota(std::string_view, Richiesta& r) {
    return r.per_ruota = true;
}
bool leggi_misura(std::string_view valore, Richiesta& r) {
    const auto p = posto_parola(valore, kMisureRuote);
    if (p) r.misura = static_cast<MisuraRuote>(*p);
    return p.has_value();
}
bool leggi_grafico(std::string_view valore, Richiesta& r) {
    return formato_grafico(valore) && leggi_percorso(valore, r.grafico);
}

// ---- the table ----

constexpr unsigned kCerca = kComRicerca | kComStampa | kComStoria;
/// Who prints tables.
constexpr unsigned kTabelle = kComRicerca | kComStoria;

constexpr auto kOpzioni = std::to_array<VoceOpzione>({
    {.nome = "--schedina",
     .meta = "RIGA",
     .atteso = "il numero di una riga della tabella, da 1",
     .frase =
         "Prepara come sistema da giocare tutte le righe della tabella. RIGA, contata da 1, deve esserci.",
     .comandi = kComRicerca,
     .ammessa = [](const Ricerca& r) { return r.schedine; },
     .leggi = leggi_schedina},
    {.nome = "--sistema",
     .meta = "I",
     .atteso = "un numero da 0 a 6",
     .frase = "Il tipo di sistema: 0 Ambo, 1 Terno, 2 Quaterna, 3 Cinquina, 4 SuperEnalotto, 5 10eLotto, "
              "6 Win for Life.",
     .comandi = kComSistemi,
     .leggi = leggi_sistema},
    // The scope.
    {.nome = "--ruote",
     .meta = "ELENCO",
     .atteso = "l'elenco delle ruote",
     .frase =
         "Le ruote, unite da virgole: BA, CA, FI, GE, MI, NA, PA, RM, TO, VE; oppure una sola fra TUTTE "
         "(tutte e dieci), NZ (la Nazionale) e nessuna. Se manca: BA; TUTTE per i 90 numeri del 10eLotto.",
     .comandi = kCerca,
     .parole = kRuoteParole,
     .leggi = leggi_ruote,
     .spiega = spiega_ruote},
    {.nome = "--intervallo",
     .meta = "TESTO",
     .atteso = "il nome di un intervallo",
     .frase =
         "Quali estrazioni contare: \"Anni Pari\", \"Tutti i Concorsi - Mesi Dispari\", \"Agosto\" …; per "
         "Win for Life l'ora, da \"8:00\" a \"22:00\". Se manca: tutte.",
     .comandi = kCerca,
     .parole = kNomiIntervalli,
     .leggi = leggi_intervallo,
     .spiega = spiega_intervallo},
    {.nome = "--da",
     .meta = "N",
     .atteso = "il numero di un concorso o una data gg/mm/aaaa",
     .frase = "Il primo concorso, o la data dalla quale contare: --da 01/01/2020. Se manca: 1.",
     .comandi = kCerca,
     .leggi = leggi_da},
    {.nome = "--a",
     .meta = "N",
     .atteso = "il numero di un concorso o una data gg/mm/aaaa",
     .frase = "L'ultimo concorso, o la data fino alla quale contare. Se manca: l'ultimo dell'archivio.",
     .comandi = kCerca,
     .leggi = leggi_a},
    // What comes out.
    {.nome = "--formato",
     .meta = "FORMATO",
     .atteso = "tabella|csv|json|xlsx",
     .frase =
         "tabella (allineata, da leggere), csv (la prima tabella, campi divisi da \";\"), json (tutte le "
         "tabelle con titoli, colori e messaggi) o xlsx (una cartella di lavoro). Se manca: quello del nome "
         "di -o, altrimenti tabella.",
     .comandi = kTabelle,
     .parole = kFormati,
     .leggi = leggi_formato},
    {.nome = "--ordina",
     .meta = "COLONNA[:asc|desc]",
     .atteso = "colonne unite da virgole, ciascuna con :asc o :desc se serve",
     .frase =
         "Ordina la prima tabella per una colonna, detta col titolo o col numero da 0: --ordina Ritardo "
         "mette "
         "in testa i ritardi più lunghi, --ordina Ritardo:asc i più brevi; di più colonne unite da virgole "
         "decide la prima. Per una tabella oltre la prima, TABELLA.COLONNA: --ordina "
         "\"MSH_Distanza(9).Freq.\". "
         "Se manca il verso: desc.",
     .comandi = kCerca,
     .leggi = leggi_ordina},
    {.nome = "--dove",
     .meta = "ESPRESSIONE",
     .atteso = "un confronto come \"ritardo>100\"",
     .frase = "Soltanto le righe per cui vale: --dove \"ritardo>100 e frequenza<=20\". Un confronto è un "
              "titolo, uno "
              "fra < <= > >= = != e contiene, un valore; più confronti si uniscono con e, o.",
     .comandi = kTabelle,
     .leggi = leggi_dove},
    {.nome = "--colonne",
     .meta = "ELENCO",
     .atteso = "titoli o numeri di colonne uniti da virgole",
     .frase = "Soltanto queste colonne, in quest'ordine: --colonne Numeri,Ritardo.",
     .comandi = kTabelle,
     .leggi = leggi_colonne_scelte},
    {.nome = "--prime",
     .meta = "N",
     .atteso = "un numero di righe",
     .frase = "Soltanto le prime N righe della prima tabella.",
     .comandi = kTabelle,
     .leggi = leggi_prime},
    {.nome = "--intestazione",
     .frase = "Davanti alla tabella o al csv dice di che cosa sono: ruote, intervallo, concorsi, archivio.",
     .comandi = kTabelle,
     .leggi = leggi_intestazione},
    {.nome = "-o",
     .meta = "FILE",
     .atteso = "il nome di un file",
     .frase = "Scrive in un file, che viene sostituito soltanto se tutto riesce; - è l'uscita. Se manca: "
              "sull'uscita.",
     .comandi = kTabelle,
     .leggi = leggi_file_uscita},
    {.nome = "--caso",
     .frase = "Aggiunge la tabella \"caso\": accanto a ogni riga che cosa darebbe il caso da solo. Attesa, "
              "scarto, probabilità del ritardo (per la riga e per una qualunque della tabella), record "
              "atteso. Con stampa sono colonne in più.",
     .comandi = kComRicerca | kComStampa,
     .ammessa = [](const Ricerca& r) { return r.un_evento; },
     .leggi = leggi_caso},
    {.nome = "--per-ruota",
     .frase = "Aggiunge la tabella \"ruote\": una colonna per ciascuna delle ruote scelte, con la misura di "
              "--misura su quella ruota soltanto. Con stampa sta al posto della prima tabella.",
     .comandi = kComRicerca | kComStampa,
     .ammessa = ha_ruote,
     .leggi = leggi_per_ruota},
    {.nome = "--misura",
     .meta = "MISURA",
     .atteso = "ritardo|frequenza|storico",
     .frase = "Che cosa confronta --per-ruota: ritardo, frequenza o storico. Se manca: ritardo.",
     .comandi = kComRicerca | kComStampa,
     .parole = kMisureRuote,
     .ammessa = ha_ruote,
     .leggi = leggi_misura},
    {.nome = "--grafico",
     .meta = "FILE",
     .atteso = "il nome di un file .svg, .png o .pdf",
     .frase = "Disegna la storia in un file .svg, .png o .pdf: i ritardi nel tempo, quanti ritardi di ogni "
              "lunghezza, le uscite di ogni anno, ciascuno con ciò che darebbe il caso.",
     .comandi = kComStoria,
     .leggi = leggi_grafico},
    {.nome = "-o",
     .meta = "FILE.pdf",
     .atteso = "il nome di un file",
     .frase = "Il file PDF da scrivere.",
     .comandi = kComStampa,
     .leggi = leggi_file_uscita},
    {.nome = "--json",
     .frase = "Stampa un oggetto JSON in luogo di una tabella.",
     .comandi = kComElenco | kComArchivio | kComGruppi | kComSistemi,
     .leggi = leggi_json},
    {.nome = "--esame",
     .frase = "Elenca che cosa c'è da dire delle estrazioni: i danni, per i quali l'archivio non si apre, e "
              "gli avvisi, come le celle vuote e le righe che mancano.",
     .comandi = kComArchivio,
     .leggi = leggi_esame},
    // The files of an import.
    {.nome = "--lotto",
     .meta = "FILE",
     .atteso = "il nome di un file",
     .frase = "Estrazioni del Lotto: su ogni riga data (aaaa/mm/gg), ruota e cinque numeri, divisi da "
              "tabulazioni.",
     .comandi = kComImporta,
     .leggi = leggi_file_lotto},
    {.nome = "--superenalotto",
     .meta = "FILE",
     .atteso = "il nome di un file",
     .frase = "Estrazioni del SuperEnalotto: dopo una riga di titoli, data (aaaa-mm-gg), sei numeri, Jolly e "
              "SuperStar, divisi da \";\".",
     .comandi = kComImporta,
     .leggi = leggi_file_superenalotto},
    {.nome = "--winforlife",
     .meta = "FILE",
     .atteso = "il nome di un file",
     .frase = "Estrazioni di Win for Life: dopo una riga di titoli, concorso, data (aaaa-mm-gg), ora, dieci "
              "numeri e il numerone, divisi da \";\".",
     .comandi = kComImporta,
     .leggi = leggi_file_winforlife},
    {.nome = "--tutto",
     .frase =
         "Conta i concorsi del Lotto dalla prima estrazione del file. Senza, l'estrazione del 03/12/1997 "
         "ha il concorso 402 e quelle prima del concorso 1 restano fuori.",
     .comandi = kComImporta,
     .leggi = leggi_tutto},
    {.nome = "--sostituisci",
     .frase = "Importa anche se estrazioni che l'archivio ha andrebbero perse o cambierebbero.",
     .comandi = kComImporta,
     .leggi = leggi_sostituisci},
    {.nome = "--annulla",
     .frase =
         "Riporta l'archivio che c'era prima dell'ultimo cambiamento; quello di adesso resta da parte, e "
         "una seconda volta lo riporta.",
     .comandi = kComImporta,
     .leggi = leggi_annulla},
    {.nome = "--senza-copia",
     .frase = "Legge l'archivio dai suoi file, riga per riga. Altrimenti ne tiene accanto una copia pronta, "
              "rifatta "
              "da sola quando l'archivio cambia, che si apre in un attimo; le risposte sono le stesse.",
     .comandi = kComRicerca | kComStampa | kComArchivio | kComImporta,
     .leggi = leggi_senza_copia},
    {.nome = "--jet",
     .meta = "DIR",
     .atteso = "il nome di una cartella",
     .frase = "Porta nell'archivio tutte le estrazioni di drawit.mdb e drawit2.mdb di una cartella, che "
              "restano come sono.",
     .comandi = kComImporta,
     .leggi = leggi_jet_da},
    // An update.
    {.nome = "--indirizzo",
     .meta = "URL",
     .atteso = "un indirizzo che comincia con https://",
     .frase = "Scarica un file di risultati pubblicati da un indirizzo https; al massimo 50 MB, entro 60 "
              "secondi.",
     .comandi = kComAggiorna,
     .leggi = leggi_indirizzo},
    {.nome = "--prova",
     .frase = "Dice soltanto che cosa farebbe.",
     .comandi = kComAggiorna,
     .leggi = leggi_prova},
    {.nome = "--sostituisci",
     .frase = "Cambia le estrazioni dell'archivio che arrivano diverse, e mette al loro posto quelle più "
              "vecchie che gli mancano; le seguenti prendono allora concorsi più alti.",
     .comandi = kComAggiorna,
     .leggi = leggi_sostituisci},
    // Every command.
    {.nome = "--cartella",
     .meta = "DIR",
     .atteso = "il nome di una cartella",
     .frase =
         "La cartella del programma, quella che contiene archivio. Se manca: la cartella dell'eseguibile, "
         "se contiene archivio, altrimenti la cartella dei dati dell'utente.",
     .comandi = kOgniComando,
     .leggi = leggi_cartella},
    {.nome = "--aiuto",
     .frase = "Spiega il comando, o la ricerca, e le sue opzioni; anche --help, -h.",
     .comandi = kOgniComando,
     .leggi = leggi_aiuto},
    {.nome = "--versione",
     .frase = "Dice la versione del programma; anche --version.",
     .comandi = kOgniComando,
     .leggi = leggi_versione},
});

/// Calls `visita(nome, meta, atteso)` for every option of the program, those of the searches first.
template <class Visita>
void ogni_opzione(Visita&& visita) {
    for (const Opzione* o : opzioni_ricerche()) visita(o->nome, o->meta, o->atteso);
    for (const VoceOpzione& o : kOpzioni) visita(o.nome, o.meta, o.atteso);
}

/// What follows an option of this name, as an error says it ("" for a switch); nothing if there is no such
/// option. The same for all of a name, so that a line can be told apart before its command is known.
std::optional<std::string_view> valore_atteso(std::string_view nome) {
    std::optional<std::string_view> trovato;
    ogni_opzione([&](std::string_view n, std::string_view meta, std::string_view atteso) {
        if (n == nome && !trovato) trovato = meta.empty() ? std::string_view{} : atteso;
    });
    return trovato;
}

/// The name under which an option stands in the table.
std::string nome_proprio(const std::string& nome) {
    if (nome == "--help" || nome == "-h") return "--aiuto";
    if (nome == "--version") return "--versione";
    return nome;
}

/// "-" followed by something that is no digit: an option, even one that does not exist.
bool sembra_opzione(std::string_view parola) {
    return parola.size() > 1 && parola[0] == '-' && !(parola[1] >= '0' && parola[1] <= '9');
}

}  // namespace

std::span<const VoceOpzione> opzioni() {
    return kOpzioni;
}

bool conosce(const VoceOpzione& voce, unsigned comando, const Ricerca* ricerca) {
    if ((voce.comandi & comando) == 0) return false;
    return voce.ammessa == nullptr || ricerca == nullptr || voce.ammessa(*ricerca);
}

std::expected<Parole, std::string> separa(std::span<const std::string> parole) {
    Parole p;
    for (std::size_t i = 0; i < parole.size(); ++i) {
        const std::string& parola = parole[i];
        if (parola == "--") {
            p.argomenti.insert(p.argomenti.end(), parole.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                               parole.end());
            break;
        }
        if (!sembra_opzione(parola)) {
            p.argomenti.push_back(parola);
            continue;
        }
        OpzioneData data{.nome = nome_proprio(parola), .valore = std::nullopt};
        // "-ordina" is a slip for "--ordina", no file of that name.
        if (parola.starts_with("-o") && parola.size() > 2 && !valore_atteso("-" + parola)) {
            data.nome = "-o";
            data.valore = parola.substr(2);
        }
        if (const auto uguale = parola.find('='); parola[1] == '-' && uguale != std::string::npos) {
            data.nome = parola.substr(0, uguale);
            data.valore = parola.substr(uguale + 1);
        }
        const auto atteso = valore_atteso(data.nome);
        if (atteso && atteso->empty() && data.valore)
            return std::unexpected(
                fmt::format("{} non prende un valore (trovato \"{}\").", data.nome, *data.valore));
        if (atteso && !atteso->empty() && !data.valore) {
            if (i + 1 == parole.size() || sembra_opzione(parole[i + 1]))
                return std::unexpected(fmt::format("{}: manca il valore, atteso {}.", data.nome, *atteso));
            data.valore = parole[++i];
        }
        p.date.push_back(std::move(data));
    }
    return p;
}

namespace {

/// Why an option of this name is not taken: another command's, another search's, or nobody's.
std::string opzione_estranea(std::string_view nome, unsigned comando, std::string_view nome_comando,
                             const Ricerca* ricerca) {
    if (valore_atteso(nome)) {
        if (ricerca != nullptr)
            return fmt::format("{} non è un'opzione di {} \"{}\".", nome, nome_comando, ricerca->chiave());
        return fmt::format("{} non è un'opzione di {}.", nome, nome_comando);
    }
    std::vector<std::string_view> nomi;
    if (ricerca != nullptr)
        for (const Opzione* o : ricerca->opzioni) nomi.push_back(o->nome);
    for (const VoceOpzione& v : kOpzioni)
        if (conosce(v, comando, ricerca)) nomi.push_back(v.nome);
    return fmt::format("opzione sconosciuta {}.{}", nome,
                       nome == "-?" ? std::string{" Volevi dire \"--aiuto\"?"} : volevi_dire(nome, nomi));
}

/// Reads one option of the search itself. False if it has no such option.
std::expected<bool, std::string> leggi_di_ricerca(const OpzioneData& data, Richiesta& richiesta) {
    if (richiesta.ricerca == nullptr) return false;
    const std::string_view valore = data.valore ? std::string_view{*data.valore} : std::string_view{};
    for (const Opzione* o : richiesta.ricerca->opzioni) {
        if (o->nome != data.nome) continue;
        if (o->leggi(valore, richiesta.domanda)) return true;
        return std::unexpected(fmt::format("{}: trovato \"{}\", atteso {}.{}", o->nome, valore, o->atteso,
                                           volevi_dire(valore, o->parole)));
    }
    return false;
}

std::expected<void, std::string> leggi_di_comando(const OpzioneData& data, const VoceOpzione& voce,
                                                  Richiesta& richiesta) {
    const std::string_view valore = data.valore ? std::string_view{*data.valore} : std::string_view{};
    if (voce.leggi(valore, richiesta)) return {};
    if (voce.spiega != nullptr)
        return std::unexpected(fmt::format("{}: {}", voce.nome, voce.spiega(valore, richiesta)));
    return std::unexpected(fmt::format("{}: trovato \"{}\", atteso {}.{}", voce.nome, valore, voce.atteso,
                                       volevi_dire(valore, voce.parole)));
}

}  // namespace

std::expected<void, std::string> leggi_opzioni(const Parole& parole, unsigned comando,
                                               std::string_view nome_comando, Richiesta& richiesta) {
    std::vector<std::string_view> viste;
    for (const OpzioneData& data : parole.date) {
        const auto sua = leggi_di_ricerca(data, richiesta);
        std::expected<void, std::string> letta;
        if (!sua) {
            letta = std::unexpected(sua.error());
        } else if (!*sua) {
            const auto voce = std::find_if(kOpzioni.begin(), kOpzioni.end(), [&](const VoceOpzione& v) {
                return v.nome == data.nome && conosce(v, comando, richiesta.ricerca);
            });
            if (voce == kOpzioni.end())
                return std::unexpected(opzione_estranea(data.nome, comando, nome_comando, richiesta.ricerca));
            letta = leggi_di_comando(data, *voce, richiesta);
        }
        // Twice the same option is more often a slip than a wish: --da 100 --da 200.
        if (std::find(viste.begin(), viste.end(), data.nome) != viste.end())
            return std::unexpected(fmt::format("{} è data due volte.", data.nome));
        viste.push_back(data.nome);
        if (!letta) return letta;
    }
    return {};
}

}  // namespace sortimetra
