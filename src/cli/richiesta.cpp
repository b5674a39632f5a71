#include "cli/richiesta.h"

#include "cli/simili.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace sortimetra {

namespace {

// ---- values ----

/// A whole number, digits with a sign before them or none; one too large for its type becomes the largest, as
/// a box brings it back. Nothing for any other text.
std::optional<std::int32_t> intero(std::string_view testo) {
    testo = rifila(testo);
    if (testo.starts_with('+')) {
        testo.remove_prefix(1);
        if (testo.starts_with('-')) return std::nullopt;
    }
    std::int32_t n = 0;
    const auto [fine, errore] = std::from_chars(testo.data(), testo.data() + testo.size(), n);
    if (fine != testo.data() + testo.size() || errore == std::errc::invalid_argument) return std::nullopt;
    if (errore == std::errc::result_out_of_range)
        return testo.starts_with('-') ? std::numeric_limits<std::int32_t>::min()
                                      : std::numeric_limits<std::int32_t>::max();
    return n;
}

std::optional<std::int32_t> intero_fra(std::string_view testo, std::int32_t minimo, std::int32_t massimo) {
    const auto n = intero(testo);
    return n && *n >= minimo && *n <= massimo ? n : std::nullopt;
}

/// The pieces of a list joined by ",", blanks at their ends removed; an empty list has one empty piece.
std::vector<std::string_view> pezzi(std::string_view elenco) {
    std::vector<std::string_view> p;
    while (true) {
        const auto virgola = elenco.find(',');
        p.push_back(rifila(elenco.substr(0, virgola)));
        if (virgola == std::string_view::npos) return p;
        elenco.remove_prefix(virgola + 1);
    }
}

std::optional<std::vector<int>> interi(std::string_view elenco, std::int32_t minimo, std::int32_t massimo) {
    std::vector<int> numeri;
    for (const std::string_view p : pezzi(elenco)) {
        const auto n = intero_fra(p, minimo, massimo);
        if (!n) return std::nullopt;
        numeri.push_back(*n);
    }
    return numeri;
}

/// Place of a word in a list, without regard to case.
std::optional<int> posto(std::string_view parola, std::span<const std::string_view> parole) {
    const std::string cercata = minuscolo(rifila(parola));
    for (std::size_t i = 0; i < parole.size(); ++i)
        if (minuscolo(parole[i]) == cercata) return static_cast<int>(i);
    return std::nullopt;
}

bool metti(std::int32_t& dove, std::optional<std::int32_t> valore) {
    if (valore) dove = *valore;
    return valore.has_value();
}

// ---- words ----

constexpr std::array<std::string_view, 3> kFormati{"tabella", "csv", "json"};
constexpr std::array<std::string_view, 2> kTipi{"ambata", "ambo"};
constexpr std::array<std::string_view, 3> kTipiTerno{"ambata", "ambo", "terno"};
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
    const auto p = posto(parola, kRuoteParole);
    if (!p || *p > kTutte + 1) return std::nullopt;
    return *p < kTutte ? *p : *p == kTutte ? kNazionale : kTutte;
}

bool leggi_ruote(std::string_view valore, Richiesta& r) {
    SelezioneRuote scelte = SelezioneRuote::nessuna();
    const auto parole = pezzi(valore);
    if (parole.size() == 1 && minuscolo(parole.front()) == "nessuna") {
        r.domanda.ambito.ruote = scelte;
        return true;
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
    for (const std::string_view p : pezzi(valore)) {
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

bool leggi_da(std::string_view valore, Richiesta& r) {
    return metti(r.domanda.ambito.tratto.da, intero(valore));
}
bool leggi_a(std::string_view valore, Richiesta& r) {
    return metti(r.domanda.ambito.tratto.a, intero(valore));
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
bool leggi_tutto(std::string_view, Richiesta& r) {
    return r.pubblicati.tutto = true;
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

bool leggi_formato(std::string_view valore, Richiesta& r) {
    const auto p = posto(valore, kFormati);
    if (p) r.formato = static_cast<Formato>(*p);
    return p.has_value();
}

bool leggi_ordina(std::string_view valore, Richiesta& r) {
    const auto due_punti = valore.find(':');
    const auto colonna = intero_fra(valore.substr(0, due_punti), 0, std::numeric_limits<std::int32_t>::max());
    if (!colonna) return false;
    Ordinamento o{.colonna = static_cast<std::size_t>(*colonna)};
    if (due_punti != std::string_view::npos) {
        const std::string verso = minuscolo(rifila(valore.substr(due_punti + 1)));
        if (verso != "asc" && verso != "desc") return false;
        if (verso == "asc") o.verso = Verso::crescente;
    }
    r.ordina = o;
    return true;
}

bool leggi_prime(std::string_view valore, Richiesta& r) {
    const auto n = intero_fra(valore, 0, std::numeric_limits<std::int32_t>::max());
    if (n) r.prime = static_cast<std::size_t>(*n);
    return n.has_value();
}

bool leggi_tipo(std::string_view valore, Richiesta& r) {
    return metti(r.domanda.parametri.combo_rit, posto(valore, kTipi));
}
bool leggi_tipo_terno(std::string_view valore, Richiesta& r) {
    return metti(r.domanda.parametri.combo_rit, posto(valore, kTipiTerno));
}

/// Digits only: what the box lets one type. Whether it is a number of the game, the search tells.
bool leggi_capi(std::string_view valore, Richiesta& r, std::size_t massimo) {
    const auto capi = interi(valore, 0, std::numeric_limits<std::int32_t>::max());
    if (!capi || capi->size() > massimo) return false;
    r.domanda.parametri.capogioco = *capi;
    return true;
}
bool leggi_capogioco(std::string_view valore, Richiesta& r) {
    return leggi_capi(valore, r, 1);
}
bool leggi_ambo_capo(std::string_view valore, Richiesta& r) {
    return leggi_capi(valore, r, 2);
}

bool leggi_numeri(std::string_view valore, Richiesta& r) {
    const int massimo = r.ricerca->gioco == Gioco::win_for_life ? kNumeriWinForLife : kNumeri;
    auto numeri = interi(valore, 1, massimo);
    if (!numeri) return false;
    // A decomposition takes its numbers as they come; everywhere else a number repeated counts once.
    if (!r.ricerca->ammette(kOpzSorte)) {
        std::vector<int> unici;
        for (const int n : *numeri)
            if (std::find(unici.begin(), unici.end(), n) == unici.end()) unici.push_back(n);
        numeri = std::move(unici);
    }
    r.domanda.parametri.numeri = std::move(*numeri);
    return true;
}

bool leggi_sorte(std::string_view valore, Richiesta& r) {
    return metti(r.domanda.parametri.sorte, intero_fra(valore, 1, 5));
}
bool leggi_estratto(std::string_view valore, Richiesta& r) {
    return metti(r.domanda.parametri.estratto, intero_fra(valore, 1, kEstratti));
}
bool leggi_tutte_le_ruote(std::string_view, Richiesta& r) {
    return r.domanda.parametri.tutte_le_ruote = true;
}
bool leggi_concorso(std::string_view valore, Richiesta& r) {
    r.domanda.parametri.concorso = intero(valore);
    return r.domanda.parametri.concorso.has_value();
}
bool leggi_pagina(std::string_view valore, Richiesta& r) {
    return metti(r.domanda.parametri.pagina, intero_fra(valore, 1, 2));
}
bool leggi_indice_combo(std::string_view valore, Richiesta& r) {
    return metti(r.domanda.parametri.indice_combo, intero_fra(valore, -1, 2));
}
bool leggi_schedina(std::string_view valore, Richiesta& r) {
    r.domanda.parametri.schedina = intero_fra(valore, 1, std::numeric_limits<std::int32_t>::max());
    return r.domanda.parametri.schedina.has_value();
}

// ---- the table ----

constexpr unsigned kCerca = kComRicerca | kComStampa;

constexpr auto kOpzioni = std::to_array<VoceOpzione>({
    // What a search takes.
    {.nome = "--tipo",
     .meta = "TIPO",
     .atteso = "ambata|ambo|terno",
     .frase = "Quanti numeri di una combinazione devono uscire insieme: uno, due o tre. Se manca: ambata.",
     .comandi = kCerca,
     .opzione = kOpzTipoTerno,
     .parole = kTipiTerno,
     .leggi = leggi_tipo_terno},
    {.nome = "--tipo",
     .meta = "TIPO",
     .atteso = "ambata|ambo",
     .frase =
         "Che cosa conta come uscita: basta un numero della serie (ambata) oppure ne servono due (ambo). "
         "Se manca: ambata.",
     .comandi = kCerca,
     .opzione = kOpzTipo,
     .parole = kTipi,
     .leggi = leggi_tipo},
    {.nome = "--capogioco",
     .meta = "K",
     .atteso = "un numero",
     .frase = "Il capogioco, da 1 a 90.",
     .comandi = kCerca,
     .opzione = kOpzCapogioco,
     .leggi = leggi_capogioco},
    {.nome = "--capogioco",
     .meta = "A,B",
     .atteso = "due numeri uniti da una virgola",
     .frase = "I due capigioco, da 1 a 90: --capogioco 12,45.",
     .comandi = kCerca,
     .opzione = kOpzAmboCapo,
     .leggi = leggi_ambo_capo},
    {.nome = "--tutte-le-ruote",
     .frase = "La tabella dei ritardi ruota per ruota, in luogo di quella delle ruote scelte.",
     .comandi = kCerca,
     .opzione = kOpzTutteLeRuote,
     .leggi = leggi_tutte_le_ruote},
    {.nome = "--numeri",
     .meta = "ELENCO",
     .atteso = "numeri del gioco uniti da virgole",
     .frase = "I tuoi numeri, uniti da virgole: --numeri 5,17,90.",
     .comandi = kCerca,
     .opzione = kOpzNumeri,
     .leggi = leggi_numeri},
    {.nome = "--sorte",
     .meta = "K",
     .atteso = "un numero da 1 a 5",
     .frase = "Di quanti numeri è ogni combinazione. Se manca: 2.",
     .comandi = kCerca,
     .opzione = kOpzSorte,
     .leggi = leggi_sorte},
    {.nome = "--estratto",
     .meta = "K",
     .atteso = "un numero da 1 a 5",
     .frase = "Il posto in cui i dieci numeri sono usciti, da 1 a 5. Se manca: 1.",
     .comandi = kCerca,
     .opzione = kOpzEstratto,
     .leggi = leggi_estratto},
    {.nome = "--concorso",
     .meta = "N",
     .atteso = "un numero",
     .frase = "Il concorso al quale guardare. Se manca: l'ultimo.",
     .comandi = kCerca,
     .opzione = kOpzConcorso,
     .leggi = leggi_concorso},
    {.nome = "--pagina",
     .meta = "P",
     .atteso = "1|2",
     .frase = "La pagina del tabellone. Se manca: 1.",
     .comandi = kCerca,
     .opzione = kOpzPagina,
     .leggi = leggi_pagina},
    {.nome = "--indice-combo",
     .meta = "I",
     .atteso = "un numero da -1 a 2",
     .frase = "La scelta rimasta nella finestra delle statistiche: -1 nessuna, 0 all'Ambata, 1 all'Ambo. "
              "Se manca: -1.",
     .comandi = kCerca,
     .opzione = kOpzIndiceCombo,
     .leggi = leggi_indice_combo},
    {.nome = "--schedina",
     .meta = "RIGA",
     .atteso = "il numero di una riga della tabella, da 1",
     .frase = "Prepara il sistema da giocare a partire da questa riga della tabella, contata da 1.",
     .comandi = kComRicerca,
     .opzione = kOpzSchedina,
     .leggi = leggi_schedina},
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
     .leggi = leggi_intervallo,
     .spiega = spiega_intervallo},
    {.nome = "--da",
     .meta = "N",
     .atteso = "il numero di un concorso",
     .frase = "Il primo concorso. Se manca: 1.",
     .comandi = kCerca,
     .leggi = leggi_da},
    {.nome = "--a",
     .meta = "N",
     .atteso = "il numero di un concorso",
     .frase = "L'ultimo concorso. Se manca: l'ultimo dell'archivio.",
     .comandi = kCerca,
     .leggi = leggi_a},
    // What comes out.
    {.nome = "--formato",
     .meta = "FORMATO",
     .atteso = "tabella|csv|json",
     .frase =
         "tabella (allineata, da leggere), csv (la prima tabella, campi divisi da \";\") o json (tutte le "
         "tabelle con titoli, colori e messaggi). Se manca: tabella.",
     .comandi = kComRicerca,
     .parole = kFormati,
     .leggi = leggi_formato},
    {.nome = "--ordina",
     .meta = "COLONNA[:asc|desc]",
     .atteso = "il numero di una colonna, da 0, poi se serve :asc o :desc",
     .frase =
         "Ordina la prima tabella per una colonna, contata da 0: --ordina 2 mette in testa i ritardi più "
         "lunghi, --ordina 2:asc i più brevi. Se manca il verso: desc.",
     .comandi = kCerca,
     .leggi = leggi_ordina},
    {.nome = "--prime",
     .meta = "N",
     .atteso = "un numero di righe",
     .frase = "Soltanto le prime N righe della prima tabella.",
     .comandi = kComRicerca,
     .leggi = leggi_prime},
    {.nome = "-o",
     .meta = "FILE",
     .atteso = "il nome di un file",
     .frase = "Scrive in un file, che viene sostituito soltanto se tutto riesce. Se manca: sull'uscita.",
     .comandi = kComRicerca,
     .leggi = leggi_file_uscita},
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
     .frase = "Spiega il comando, o la ricerca, e le sue opzioni.",
     .comandi = kOgniComando,
     .leggi = leggi_aiuto},
    {.nome = "--versione",
     .frase = "Dice la versione del programma.",
     .comandi = kOgniComando,
     .leggi = leggi_versione},
});

/// Whether an option of this name is followed by a value; nothing if there is no such option. The same for
/// all rows of a name, so that a line can be told apart before its command is known.
std::optional<bool> vuole_valore(std::string_view nome) {
    const auto it =
        std::find_if(kOpzioni.begin(), kOpzioni.end(), [&](const VoceOpzione& v) { return v.nome == nome; });
    if (it == kOpzioni.end()) return std::nullopt;
    return !it->meta.empty();
}

constexpr bool valori_concordi() {
    for (const VoceOpzione& a : kOpzioni)
        for (const VoceOpzione& b : kOpzioni)
            if (a.nome == b.nome && a.meta.empty() != b.meta.empty()) return false;
    return true;
}
static_assert(valori_concordi());

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
    return voce.opzione == 0 || ricerca == nullptr || (ricerca->opzioni & voce.opzione) != 0;
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
        OpzioneData data{.nome = parola, .valore = std::nullopt};
        if (const auto uguale = parola.find('='); parola[1] == '-' && uguale != std::string::npos) {
            data.nome = parola.substr(0, uguale);
            data.valore = parola.substr(uguale + 1);
        }
        const auto vuole = vuole_valore(data.nome);
        if (vuole == false && data.valore)
            return std::unexpected(
                fmt::format("{} non prende un valore (trovato \"{}\").", data.nome, *data.valore));
        if (vuole == true && !data.valore) {
            if (i + 1 == parole.size() || sembra_opzione(parole[i + 1]))
                return std::unexpected(
                    fmt::format("{}: manca il valore, atteso {}.", data.nome,
                                std::find_if(kOpzioni.begin(), kOpzioni.end(), [&](const VoceOpzione& v) {
                                    return v.nome == data.nome;
                                })->atteso));
            data.valore = parole[++i];
        }
        p.date.push_back(std::move(data));
    }
    return p;
}

std::expected<void, std::string> leggi_opzioni(const Parole& parole, unsigned comando,
                                               std::string_view nome_comando, Richiesta& richiesta) {
    std::vector<std::string_view> viste;
    for (const OpzioneData& data : parole.date) {
        const auto voce = std::find_if(kOpzioni.begin(), kOpzioni.end(), [&](const VoceOpzione& v) {
            return v.nome == data.nome && conosce(v, comando, richiesta.ricerca);
        });
        if (voce == kOpzioni.end()) {
            if (vuole_valore(data.nome)) {
                if (richiesta.ricerca != nullptr)
                    return std::unexpected(fmt::format("{} non è un'opzione di {} \"{}\".", data.nome,
                                                       nome_comando, richiesta.ricerca->chiave));
                return std::unexpected(fmt::format("{} non è un'opzione di {}.", data.nome, nome_comando));
            }
            std::vector<std::string_view> nomi;
            for (const VoceOpzione& v : kOpzioni)
                if (conosce(v, comando, richiesta.ricerca)) nomi.push_back(v.nome);
            const bool inglese = data.nome == "--help" || data.nome == "-h" || data.nome == "-?";
            return std::unexpected(fmt::format(
                "opzione sconosciuta {}.{}", data.nome,
                inglese ? std::string{" Volevi dire \"--aiuto\"?"} : volevi_dire(data.nome, nomi)));
        }
        // Twice the same option is more often a slip than a wish: --da 100 --da 200.
        if (std::find(viste.begin(), viste.end(), voce->nome) != viste.end())
            return std::unexpected(fmt::format("{} è data due volte.", voce->nome));
        viste.push_back(voce->nome);
        const std::string_view valore = data.valore ? std::string_view{*data.valore} : std::string_view{};
        if (voce->leggi(valore, richiesta)) continue;
        if (voce->spiega != nullptr)
            return std::unexpected(fmt::format("{}: {}", voce->nome, voce->spiega(valore, richiesta)));
        return std::unexpected(fmt::format("{}: trovato \"{}\", atteso {}.{}", voce->nome, valore,
                                           voce->atteso, volevi_dire(valore, voce->parole)));
    }
    return {};
}

}  // namespace sortimetra
