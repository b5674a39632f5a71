#include "catalogue/ricerche.h"

#include "bets/parametri.h"
#include "bets/scommesse.h"
#include "catalogue/elenchi.h"
#include "catalogue/nomi.h"
#include "catalogue/segnalimite.h"
#include "chance/caso.h"
#include "chance/parametri.h"
#include "chance/ricerca_storia.h"
#include "lunghette/lunghette.h"
#include "lunghette/parametri.h"
#include "lunghette/scomposizione.h"
#include "lunghette/scomposte.h"
#include "lunghette/stampa_lunghette.h"
#include "personal/analisi_serie.h"
#include "personal/gruppi.h"
#include "personal/numeri_personali.h"
#include "personal/parametri.h"
#include "personal/piramide.h"
#include "personal/poste.h"
#include "personal/stampa_personali.h"
#include "personal/stampa_piramide.h"
#include "positional/migliori_ritardi.h"
#include "positional/parametri.h"
#include "positional/posizione.h"
#include "positional/stampa_migliori.h"
#include "positional/stampa_posizione.h"
#include "positional/stampa_tabellone.h"
#include "positional/tabellone.h"
#include "results/risultato.h"
#include "statistics/altri_giochi.h"
#include "statistics/ambata.h"
#include "statistics/ambi_terni.h"
#include "statistics/capogioco.h"
#include "statistics/parametri.h"
#include "statistics/serie_speciali.h"
#include "statistics/tabella_famiglie.h"
#include "stores/apertura.h"
#include "systems/filtri.h"
#include "systems/parametri.h"
#include "systems/stampa_sistemi.h"
#include "systems/ultimi.h"
#include "text/testi.h"
#include "tools/ciclometria.h"
#include "tools/parametri.h"
#include "tools/spia.h"
#include "tools/stampa_ciclometria.h"
#include "tools/stampa_spia.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// The ten wheels and NAZIONALE: what a scope of wheels may ask for.
constexpr unsigned kRuote10 = kTabellaLotto | kTabellaNazionale;
/// SuperEnalotto's own rows; its range ends where the Lotto's concorsi end.
constexpr unsigned kSuperEnalottoInAmbito = kConfiniLotto | kTabellaSuperEnalotto;

/// A slip's line has room for ten numbers.
constexpr std::size_t kNumeriSchedina = 10;

/// The searches that are no named series.
constexpr auto kAltre = std::to_array<Ricerca>({
    {.nome = nomi::kUltimi,
     .gioco = Gioco::sistemi,
     .tabelle = kTutteLeTabelle,
     .opzioni = kOpzioniUltimi,
     .esegui = ultimi_concorsi,
     .controlla = controlla_ultimi,
     .frase = "Gli ultimi venti concorsi, visti attraverso le misure delle loro combinazioni.",
     .rapporto = rapporto_ultimi,
     .gioco_scelto = gioco_ultimi},
    {.nome = nomi::kFiltri,
     .gioco = Gioco::sistemi,
     .tabelle = kTutteLeTabelle,
     .opzioni = kOpzioniFiltri,
     .esegui = ricerche_filtri,
     .controlla = controlla_filtri,
     .frase = "Quante volte ogni misura di una combinazione si è presentata nell'archivio.",
     .rapporto = rapporto_filtri,
     .gioco_scelto = gioco_filtri},
    {.nome = nomi::kSistemiRealizzati,
     .gioco = Gioco::sistemi,
     .opzioni = kOpzioniSalvati,
     .esegui = ricerche_Sistemi,
     .carica = carica_sistema,
     .frase = "Le stesse misure, contate sulle combinazioni di un sistema salvato.",
     .rapporto = rapporto_filtri,
     .gioco_scelto = gioco_filtri},
    {.nome = nomi::kNovantaNumeri,
     .tabelle = kRuote10,
     .esegui = novanta_numeri,
     .frase = "Per ogni numero: quante volte è uscito, da quanti concorsi manca e il più lungo ritardo già "
              "chiuso.",
     .un_evento = true},
    {.nome = nomi::kPosizione,
     .tabelle = kRuote10,
     .esegui = posizione::estratto,
     .frase = "Frequenza e ritardo di ogni numero nel primo, secondo, terzo, quarto e quinto estratto.",
     .rapporto = rapporto_posizione},
    {.nome = nomi::kTuttiGliAmbi,
     .tabelle = kRuote10,
     .esegui = ambilotto,
     .frase = "Frequenza, ritardo e ritardo storico di tutti i 4.005 ambi.",
     .schedine = true,
     .un_evento = true},
    {.nome = nomi::kTuttiITerni,
     .tabelle = kRuote10,
     .opzioni = kOpzioniTerni,
     .esegui = tutti_i_terni,
     .frase = "Frequenza, ritardo e ritardo storico di tutti i 117.480 terni, anche misurati dai loro ambi.",
     .schedine = true,
     .un_evento = true},
    {.nome = nomi::kTabellone,
     .tabelle = kRuote10,
     .opzioni = kOpzioniTabellone,
     .esegui = tabellone_lotto,
     .frase =
         "Ogni numero una volta sola: nella riga del suo ritardo, sotto la ruota e il posto in cui è uscito.",
     .rapporto = stampa_tab_pos},
    {.nome = nomi::kDieciNumeri,
     .tabelle = kRuote10,
     .opzioni = kOpzioniTabellone,
     .esegui = dieci_piu_in_ritardo,
     .frase = "I dieci numeri che mancano da più tempo, ruota per ruota e su tutte insieme.",
     .rapporto = stampa_10_num},
    {.nome = nomi::kSegnalimiteCabalistici,
     .esegui = segnalimite,
     .frase = "La tabella fissa dei tre segnalimite di ciascun numero.",
     .rapporto = rapporto_segnalimite},
    {.nome = nomi::kSpia,
     .tabelle = kRuote10,
     .opzioni = kOpzioniSpia,
     .esegui = numeri_spia,
     .controlla = controlla_spia,
     .frase = "Quale numero annuncia un altro entro nove concorsi.",
     .rapporto = stampa_spia},
    {.nome = nomi::kAmbataCapogioco,
     .tabelle = kRuote10,
     .opzioni = kOpzioniAmbataCapogioco,
     .esegui = ambata_capogioco_o_gruppo,
     .controlla = controlla_analisi,
     .frase = "Gli 89 ambi formati dal capogioco con ciascun altro numero.",
     .schedine = true,
     .un_evento = true},
    {.nome = nomi::kAmboCapogioco,
     .tabelle = kRuote10,
     .opzioni = kOpzioniAmboCapogioco,
     .esegui = ambo_capogioco_o_gruppo,
     .controlla = controlla_analisi,
     .frase = "I terni formati da due capigioco con ciascun altro numero.",
     .schedine = true,
     .un_evento = true},
    {.nome = nomi::kPersonali,
     .tabelle = kRuote10,
     .opzioni = kOpzioniPersonaliLotto,
     .esegui = ricerca_lotto,
     .frase = "I tuoi numeri: quando sono usciti, insieme e uno per uno.",
     .rapporto = rapporto_personali},
    {.nome = nomi::kGruppi,
     .tabelle = kRuote10,
     .opzioni = kOpzioniGruppi,
     .esegui = ricerche_per_gruppi,
     .carica = carica_gruppo,
     .controlla = controlla_gruppo,
     .frase = "Un gruppo di lunghette tue: esiti, ritardi e probabilità."},
    {.nome = nomi::kCiclometria,
     .tabelle = kRuote10,
     .opzioni = kOpzioniCiclometria,
     .esegui = ciclometria,
     .controlla = controlla_ciclometria,
     .frase = "Somme e distanze ciclometriche di un'estrazione.",
     .rapporto = stampa_ciclometria},
    {.nome = nomi::kLunghette,
     .tabelle = kRuote10,
     .opzioni = kOpzioniLunghette,
     .esegui = lunghette_lotto,
     .controlla = controlla_lunghette,
     .frase = "Serie di numeri che crescono passo dopo passo dai più ritardati o frequenti.",
     .rapporto = stampa_lunghetta},
    {.nome = nomi::kPiramide,
     .tabelle = kRuote10,
     .opzioni = kOpzioniPiramide,
     .esegui = piramide_statistica,
     .controlla = controlla_piramide,
     .frase = "La piramide di dieci righe costruita sull'archivio.",
     .rapporto = rapporto_piramide},
    {.nome = nomi::kPrimoEstratto,
     .tabelle = kRuote10,
     .esegui = primo_estratto,
     .frase = "Come i 90 numeri, contando soltanto il primo estratto di ogni ruota.",
     .dove = Dove::fuori_elenco,
     .un_evento = true},
    {.nome = nomi::kSuperstar,
     .gioco = Gioco::superenalotto,
     .tabelle = kSuperEnalottoInAmbito,
     .esegui = superstar,
     .frase = "Frequenza e ritardo dei 90 numeri come SuperStar.",
     .un_evento = true},
    {.nome = nomi::kTabellonePrimiEstratti,
     .gioco = Gioco::superenalotto,
     .tabelle = kTabellaLotto | kTabellaSuperEnalotto,
     .opzioni = kOpzioniTabellone,
     .esegui = tabellone_primi_estratti,
     .frase =
         "I primi estratti delle sei ruote del vecchio SuperEnalotto, ciascuno nella riga del suo ritardo.",
     .rapporto = stampa_tab_pos_s2,
     .dove = Dove::fuori_elenco},
    {.nome = nomi::kTabelloneSestina,
     .gioco = Gioco::superenalotto,
     .tabelle = kSuperEnalottoInAmbito,
     .opzioni = kOpzioniTabellone,
     .esegui = tabellone_sestina,
     .frase = "I 90 numeri nella riga del loro ritardo nella sestina.",
     .rapporto = stampa_tab_pos_s2},
    {.nome = nomi::kPosizioneSuperEnalotto,
     .gioco = Gioco::superenalotto,
     .tabelle = kSuperEnalottoInAmbito,
     .esegui = posizione::ambataSuperEnalotto,
     .frase = "Frequenza e ritardo di ogni numero in ciascun posto della sestina ordinata, e come Jolly.",
     .rapporto = rapporto_posizione},
    {.nome = nomi::kAmbiSuperEnalotto,
     .gioco = Gioco::superenalotto,
     .tabelle = kSuperEnalottoInAmbito,
     .esegui = ambisuperenalotto,
     .frase = "Tutti i 4.005 ambi nella sestina.",
     .schedine = true,
     .un_evento = true},
    {.nome = nomi::kTerniSuperEnalotto,
     .gioco = Gioco::superenalotto,
     .tabelle = kSuperEnalottoInAmbito,
     .esegui = ternisuperenalotto,
     .frase = "Tutti i 117.480 terni nella sestina.",
     .schedine = true,
     .un_evento = true},
    {.nome = nomi::kNovantaSuperEnalotto,
     .gioco = Gioco::superenalotto,
     .tabelle = kSuperEnalottoInAmbito,
     .esegui = ambataSuperEnalotto,
     .frase = "Frequenza, ritardo e ritardo storico dei 90 numeri nella sestina.",
     .un_evento = true},
    {.nome = nomi::kAmbiDieciRuote,
     .gioco = Gioco::superenalotto,
     .tabelle = kSuperEnalottoInAmbito,
     .opzioni = kOpzioniDieciRuote,
     .esegui = ambi10ruoteSuperenalotto,
     .frase = "Gli ambi fra i dieci numeri usciti allo stesso posto.",
     .schedine = true,
     .dove = Dove::fuori_elenco},
    {.nome = nomi::kPersonaliSuperEnalotto,
     .gioco = Gioco::superenalotto,
     .tabelle = kSuperEnalottoInAmbito,
     .opzioni = kOpzioniPersonali,
     .esegui = ricerca_superenalotto,
     .frase = "I tuoi numeri nella sestina.",
     .rapporto = rapporto_personali},
    {.nome = nomi::kScommesse,
     .tabelle = kRuote10,
     .opzioni = kOpzioniScommesse,
     .esegui = scommesse_lotto,
     .carica = carica_limite,
     .frase = "Le scommesse a quota fissa sul Lotto, ruota per ruota.",
     .ruote = SelezioneRuote::tutte(),
     .rapporto = rapporto_tabelle_orizzontale},
    {.nome = nomi::kMiglioriRitardi,
     .tabelle = kRuote10,
     .opzioni = kOpzioniMigliori,
     .esegui = migliori_ritardi,
     .carica = carica_cinquine_migliori,
     .frase = "I gruppi più ritardati di 31 famiglie classiche.",
     .rapporto = stampa_migliori},
    {.nome = nomi::kNumeriSparsi,
     .gioco = Gioco::superenalotto,
     .tabelle = kSuperEnalottoInAmbito,
     .esegui = ambatalottoSuperenalotto,
     .frase = "I 90 numeri nelle celle della sestina così come sono archiviate.",
     .dove = Dove::fuori_elenco,
     .un_evento = true},
    {.nome = nomi::kNovanta10eLotto,
     .gioco = Gioco::dieci_e_lotto,
     .tabelle = kTabellaLotto | kTabellaNazionale,
     .esegui = ambata10elotto,
     .frase = "Frequenza, ritardo e ritardo storico dei 90 numeri nella combinazione di venti.",
     .ruote = SelezioneRuote::tutte(),
     .un_evento = true,
     .passo = PassoDieciELotto::dieci_righe},
    {.nome = nomi::kTabellone10eLotto,
     .gioco = Gioco::dieci_e_lotto,
     .tabelle = kTabellaLotto,
     .opzioni = kOpzioniTabellone,
     .esegui = tabellone_10elotto,
     .frase = "I 90 numeri nella riga del loro ritardo nella combinazione di venti.",
     .rapporto = stampa_tab_pos_10},
    {.nome = nomi::kPosizione10eLotto,
     .gioco = Gioco::dieci_e_lotto,
     .tabelle = kTabellaLotto | kTabellaNazionale,
     .esegui = posizione::ambata10elotto,
     .frase = "Frequenza e ritardo di ogni numero in ciascuno dei venti posti.",
     .rapporto = rapporto_posizione},
    {.nome = nomi::kPersonali10eLotto,
     .gioco = Gioco::dieci_e_lotto,
     .tabelle = kTabellaLotto | kTabellaNazionale,
     .opzioni = kOpzioniPersonali,
     .esegui = ricerca_10elotto,
     .frase = "I tuoi numeri nella combinazione di venti.",
     .rapporto = rapporto_personali},
    {.nome = nomi::kLunghette10eLotto,
     .gioco = Gioco::dieci_e_lotto,
     .tabelle = kTabellaLotto,
     .opzioni = kOpzioniPunti10,
     .esegui = lunghette_a_punti,
     .carica = tutte_le_ruote,
     .frase = "Serie di numeri scelte per i punti che fanno nel 10eLotto.",
     .ruote = SelezioneRuote::tutte(),
     .rapporto = stampa_lunghetta},
    {.nome = nomi::kVentiNumeriWinForLife,
     .gioco = Gioco::win_for_life,
     .tabelle = kTabellaWinForLife,
     .esegui = ambataWinForLife,
     .frase = "Frequenza, ritardo e ritardo storico dei 20 numeri.",
     .un_evento = true},
    {.nome = nomi::kTabelloneWinForLife,
     .gioco = Gioco::win_for_life,
     .tabelle = kTabellaWinForLife,
     .opzioni = kOpzioniTabellone,
     .esegui = tabellone_winforlife,
     .frase = "I 20 numeri nella riga del loro ritardo.",
     .rapporto = stampa_tab_pos_10},
    {.nome = nomi::kPosizioneWinForLife,
     .gioco = Gioco::win_for_life,
     .tabelle = kTabellaWinForLife,
     .esegui = posizione::ambataWinForLife,
     .frase = "Frequenza e ritardo di ogni numero in ciascuno dei dieci posti.",
     .rapporto = rapporto_posizione},
    {.nome = nomi::kPersonaliWinForLife,
     .gioco = Gioco::win_for_life,
     .tabelle = kTabellaWinForLife,
     .opzioni = kOpzioniPersonaliWinForLife,
     .esegui = ricerca_winforlife,
     .frase = "I tuoi numeri nella combinazione di dieci.",
     .rapporto = rapporto_personali},
    {.nome = nomi::kLunghetteWinForLife,
     .gioco = Gioco::win_for_life,
     .tabelle = kTabellaWinForLife,
     .opzioni = kOpzioniPuntiWFL,
     .esegui = lunghette_a_punti,
     .frase = "Serie di numeri scelte per i punti che fanno nel Win for Life.",
     .rapporto = stampa_lunghetta},
    {.nome = nomi::kLunghetteScomposte,
     .gioco = Gioco::win_for_life,
     .tabelle = kTabellaWinForLife,
     .opzioni = kOpzioniScomposte,
     .esegui = lunghette_scomposte,
     .carica = ogni_ora,
     .controlla = controlla_scomposte,
     .frase = "Le cinquine della metà bassa o alta della combinazione.",
     .rapporto = stampa_scomposte},
    {.nome = nomi::kScomposizione,
     .tabelle = kRuote10,
     .opzioni = kOpzioniScomposizione,
     .esegui = scomposizione,
     .frase = "Tutte le combinazioni di alcuni numeri tuoi, misurate come una serie.",
     .schedine = true,
     .dove = Dove::solo_comandi,
     .un_evento = true},
    {.nome = nomi::kScomposizione10eLotto,
     .gioco = Gioco::dieci_e_lotto,
     .tabelle = kTabellaLotto,
     .opzioni = kOpzioniScomposizione,
     .esegui = scomposizione_a_punti,
     .carica = tutte_le_ruote,
     .frase = "Tutte le combinazioni di alcuni numeri tuoi, misurate nella combinazione di venti.",
     .ruote = SelezioneRuote::tutte(),
     .dove = Dove::solo_comandi,
     .un_evento = true},
    {.nome = nomi::kScomposizioneWinForLife,
     .gioco = Gioco::win_for_life,
     .tabelle = kTabellaWinForLife,
     .opzioni = kOpzioniScomposizioneWinForLife,
     .esegui = scomposizione_a_punti,
     .frase = "Tutte le combinazioni di alcuni numeri tuoi, misurate nella combinazione di dieci.",
     .dove = Dove::solo_comandi,
     .un_evento = true},
    {.nome = nomi::kAmbiCapogiocoWinForLife,
     .gioco = Gioco::win_for_life,
     .tabelle = kTabellaWinForLife,
     .opzioni = kOpzioniAmbiWinForLife,
     .esegui = gruppo_capogioco_winforlife,
     .frase = "Gli ambi di un capogioco come gruppo: esiti, ritardi e probabilità.",
     .dove = Dove::solo_comandi},
    {.nome = nomi::kStoria,
     .gioco = Gioco::sistemi,
     .tabelle = kTutteLeTabelle,
     .opzioni = kOpzioniStoria,
     .esegui = ricerca_storia,
     .controlla = controlla_storia,
     .frase = "Ogni uscita di alcuni numeri, una per una, e che cosa ne fa il caso.",
     .rapporto = rapporto_tabelle,
     .dove = Dove::solo_comandi,
     .gioco_scelto = gioco_storia},
    {.nome = nomi::kSchedine,
     .esegui = schedine,
     .carica = carica_poste,
     .frase = "Le poste della piramide.",
     .dove = Dove::solo_comandi},
});

/// The row of a named series.
constexpr Ricerca riga_di(const Famiglia& famiglia) {
    const bool con_ruote = !famiglia.descrizione.empty();
    return {.nome = famiglia.nome,
            .tabelle = kRuote10,
            .opzioni = con_ruote ? Opzioni{kOpzioniSerieConRuote} : Opzioni{kOpzioniSerie},
            .esegui = serie_o_gruppo,
            .carica = famiglia.su_file ? carica_cinquine : nullptr,
            .controlla = controlla_analisi,
            .frase = famiglia.frase,
            .famiglia = &famiglia,
            .schedine = famiglia.colonne <= kNumeriSchedina,
            .un_evento = true};
}

constexpr auto kRicerche = [] {
    std::array<Ricerca, kAltre.size() + dettaglio::kFamiglie.size()> tutte{};
    auto fine = std::copy(kAltre.begin(), kAltre.end(), tutte.begin());
    std::transform(dettaglio::kFamiglie.begin(), dettaglio::kFamiglie.end(), fine, riga_di);
    return tutte;
}();

constexpr bool chiavi_distinte() {
    for (std::size_t i = 0; i < kRicerche.size(); ++i)
        for (std::size_t j = i + 1; j < kRicerche.size(); ++j)
            if (kRicerche[i].chiave() == kRicerche[j].chiave()) return false;
    return true;
}
static_assert(chiavi_distinte(), "a key stands twice");

/// Whether `si` holds for a name of the lists that is spelled like the key.
constexpr bool elencata(const Ricerca& ricerca) {
    if (ricerca.chiave() == nomi::kMiglioriRitardi.chiave) return true;
    for (const Scheda& scheda : elenchi::kSchede)
        for (const Elenco& elenco : scheda.elenchi)
            for (const std::string_view nome : elenco.voci)
                if (stessa_chiave(nome, ricerca.chiave())) return true;
    return false;
}
constexpr bool ogni_riga_ha_il_suo_posto() {
    return std::all_of(kRicerche.begin(), kRicerche.end(),
                       [](const Ricerca& r) { return elencata(r) == (r.dove == Dove::negli_elenchi); });
}
static_assert(ogni_riga_ha_il_suo_posto(), "a row stands in no list, or in one although it says otherwise");

constexpr bool ogni_nome_ha_la_sua_riga() {
    for (const Scheda& scheda : elenchi::kSchede)
        for (const Elenco& elenco : scheda.elenchi)
            for (const std::string_view nome : elenco.voci)
                if (std::none_of(kRicerche.begin(), kRicerche.end(),
                                 [nome](const Ricerca& r) { return stessa_chiave(nome, r.chiave()); }))
                    return false;
    return true;
}
static_assert(ogni_nome_ha_la_sua_riga(), "a list names a search that has no row");

/// The entry of `ComboIntervallo` as a report tells it.
std::string testo_intervallo(const Domanda& domanda) {
    if (domanda.ricerca->gioco_di(domanda) != Gioco::win_for_life)
        return std::string{kIntervalli[domanda.ambito.intervallo].testo};
    const std::string ora{kOre[domanda.ambito.ora]};
    return domanda.ambito.ora == 0 ? ora : "ore " + ora;
}

std::string testo_ruote(const Domanda& domanda) {
    switch (domanda.ricerca->gioco_di(domanda)) {
        case Gioco::superenalotto:
            return "SuperEnalotto";
        case Gioco::win_for_life:
            return "Win for Life";
        case Gioco::dieci_e_lotto:
            // Where the game is a choice of the search its draws are whole, whatever wheels are ticked.
            if (domanda.ricerca->gioco == Gioco::sistemi) return "10eLotto";
            break;
        default:
            break;
    }
    // The bets and the wheel-by-wheel table of a series show every wheel, whatever is ticked.
    if (domanda.di<ParametriStatistica>().tutte_le_ruote || domanda.ricerca->esegui == scommesse_lotto)
        return "Tutte, Nazionale";
    // With no box ticked Bari is what is read.
    const std::string nomi = domanda.ambito.ruote.nomi();
    return nomi.empty() ? std::string{kNomiRuote[0].esteso} : nomi;
}

/// The draws in scope of a game that has its own: which they are, and T. Nothing for the other games.
template <class Tabella>
void di_estrazioni_proprie(AmbitoDetto& ambito, const Tabella& tabella,
                           const std::vector<std::uint32_t>& righe) {
    ambito.t = static_cast<std::int32_t>(righe.size());
    if (righe.empty()) return;
    const auto [da, a] = std::pair{righe.front(), righe.back()};
    ambito.proprio = PeriodoProprio{.tratto = {tabella.concorso[da], tabella.concorso[a]},
                                    .dal = tabella.data[da],
                                    .al = tabella.data[a]};
}

/// T of a question, the draws in scope as every measure counts them, and the period of a game's own draws.
void di_estrazioni(AmbitoDetto& detto, const Domanda& domanda, const ArchivioEstrazioni& archivio) {
    AmbitoRicerca ambito = domanda.ambito;
    switch (domanda.ricerca->gioco_di(domanda)) {
        case Gioco::superenalotto:
            di_estrazioni_proprie(detto, archivio.superenalotto(), vista_superenalotto(archivio, ambito));
            return;
        case Gioco::win_for_life:
            di_estrazioni_proprie(detto, archivio.winforlife(), vista_winforlife(archivio, ambito));
            return;
        case Gioco::dieci_e_lotto:
            if (domanda.ricerca->gioco == Gioco::sistemi) ambito.ruote = {};
            break;
        default:
            break;
    }
    detto.t = VistaEstrazioni{archivio, ambito}.t();
}

/// The tables of a row; where the user chooses the game, those of the one chosen.
unsigned tabelle_del_gioco(const Domanda& domanda) {
    const Ricerca& ricerca = *domanda.ricerca;
    if (ricerca.tabelle == 0 || ricerca.gioco_scelto == nullptr) return ricerca.tabelle;
    switch (ricerca.gioco_di(domanda)) {
        case Gioco::superenalotto:
            return kSuperEnalottoInAmbito;
        case Gioco::win_for_life:
            return kTabellaWinForLife;
        default:
            return kRuote10;
    }
}

}  // namespace

std::span<const Ricerca> ricerche() {
    return kRicerche;
}

std::span<const Scheda> schede() {
    return elenchi::kSchede;
}

const Ricerca* trova_ricerca(std::string_view nome) {
    const auto cerca = [](auto&& stessa) {
        const auto it = std::find_if(kRicerche.begin(), kRicerche.end(), stessa);
        return it == kRicerche.end() ? nullptr : &*it;
    };
    const std::string chiave = minuscolo(nome);
    if (const Ricerca* r = cerca([&](const Ricerca& q) { return q.chiave() == chiave; })) return r;
    const std::string piegata = piega_nome(nome);
    return cerca([&](const Ricerca& q) { return piega_nome(q.chiave()) == piegata; });
}

const std::vector<const Opzione*>& opzioni_ricerche() {
    static const std::vector<const Opzione*> tutte = [] {
        std::vector<const Opzione*> viste;
        for (const Ricerca& r : kRicerche)
            for (const Opzione* o : r.opzioni)
                if (std::find(viste.begin(), viste.end(), o) == viste.end()) viste.push_back(o);
        return viste;
    }();
    return tutte;
}

unsigned tabelle_lette(const Domanda& domanda, bool con_estremi) {
    unsigned tabelle = tabelle_del_gioco(domanda);
    // T of a question about NAZIONALE is counted in its own table, whatever the search walks.
    if ((tabelle & kTabellaLotto) != 0 && domanda.ambito.ruote.e_nazionale()) tabelle |= kTabellaNazionale;
    // The date of any other concorso stands in its row alone, and a date is looked for in all of them.
    const bool altrove = con_estremi || domanda.ambito.tratto != TrattoConcorsi{} ||
                         domanda.di<ParametriTabellone>().concorso.has_value();
    return altrove ? tabelle_intere(tabelle) : tabelle;
}

Domanda domanda_intatta(const Ricerca& ricerca) {
    Domanda domanda{.ricerca = &ricerca, .ambito = {}, .parametri = {}};
    domanda.ambito.ruote = ricerca.ruote;
    return domanda;
}

std::optional<AmbitoDetto> ambito_detto(const Domanda& domanda, const ArchivioEstrazioni& archivio) {
    if (domanda.ricerca->tabelle == 0) return std::nullopt;
    const bool wfl = domanda.ricerca->gioco_di(domanda) == Gioco::win_for_life;
    const Concorso ultimo = wfl ? archivio.ultimo_concorso_winforlife() : archivio.ultimo_concorso();
    const Fonte& fonte = wfl ? archivio.drawit2() : archivio.drawit();
    const TrattoConcorsi tratto = domanda.ambito.tratto.riportato(ultimo);
    const auto data = [&](Concorso c) { return wfl ? archivio.data_winforlife(c) : archivio.data_bari(c); };
    AmbitoDetto detto{.ruote = testo_ruote(domanda),
                      .intervallo = testo_intervallo(domanda),
                      .tratto = tratto,
                      .dal = data(tratto.da),
                      .al = data(tratto.a),
                      .archivio = fonte.file.filename().string(),
                      .simulato = fonte.simulato};
    di_estrazioni(detto, domanda, archivio);
    return detto;
}

Risposta rispondi(Domanda domanda, const ArchivioEstrazioni& archivio, const std::filesystem::path& cartella,
                  Avanzamento& avanzamento) {
    const Ricerca& ricerca = *domanda.ricerca;
    Risultato risultato;
    if (const auto letto =
            ricerca.carica == nullptr ? std::expected<void, Messaggio>{} : ricerca.carica(cartella, domanda);
        letto)
        risultato = ricerca.esegui(archivio, domanda, avanzamento);
    else
        risultato = non_avviata(letto.error());
    auto ambito = ambito_detto(domanda, archivio);
    std::optional<Percorso> percorso;
    if (ricerca.un_evento && risultato.prodotto && !risultato.tabelle.empty() &&
        misura_eventi(risultato.tabelle.front())) {
        const Eventi& eventi = risultato.tabelle.front().eventi;
        percorso = percorso_di(archivio, eventi.gioco, domanda.ambito, eventi.posti, ricerca.passo);
    }
    return {.domanda = std::move(domanda),
            .risultato = std::make_shared<const Risultato>(std::move(risultato)),
            .ordine = {},
            .ambito = std::move(ambito),
            .percorso = percorso};
}

}  // namespace sortimetra
