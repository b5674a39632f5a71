#pragma once

#include "results/nome.h"

/// The names of the searches that are no named series, each told once: the dispatch table, the desktop's
/// table of screens and the tests take them from here. The series have theirs in the table of families.
namespace sortimetra::nomi {

inline constexpr NomeRicerca kUltimi = nome<"Ultimi 20 Concorsi">;
inline constexpr NomeRicerca kFiltri = nome<"Filtri di Condizionamento">;
inline constexpr NomeRicerca kSistemiRealizzati = nome<"Statistica Relativa ai Sistemi Realizzati">;
inline constexpr NomeRicerca kNovantaNumeri = nome<"Ritardo e Frequenza dei 90 numeri">;
inline constexpr NomeRicerca kPosizione = nome<"Ritardi e Frequenze per Posizione dei 90 numeri">;
inline constexpr NomeRicerca kTuttiGliAmbi = nome<"Ricerche su Tutti gli Ambi">;
inline constexpr NomeRicerca kTuttiITerni = nome<"Ricerche su Tutti i Terni">;
inline constexpr NomeRicerca kTabellone = nome<"Tabellone Posizionale">;
inline constexpr NomeRicerca kDieciNumeri = nome<"I 10 numeri più in ritardo su ogni ruota">;
inline constexpr NomeRicerca kSegnalimiteCabalistici = nome<"Tabella dei Segnalimite Cabalistici">;
inline constexpr NomeRicerca kSpia = nome<"Calcolo dei Numeri Spia">;
inline constexpr NomeRicerca kAmbataCapogioco = nome<"Ambata Capogioco">;
inline constexpr NomeRicerca kAmboCapogioco = nome<"Ambo Capogioco">;
inline constexpr NomeRicerca kPersonali = nome<"Ricerche su Numeri Personali">;
inline constexpr NomeRicerca kGruppi = nome<"Ricerche per Gruppi">;
inline constexpr NomeRicerca kCiclometria = nome<"Calcolo Somme e Distanze Ciclometriche">;
inline constexpr NomeRicerca kLunghette = nome<"Lunghette Ritardate/Frequenti per Ambo e Terno">;
inline constexpr NomeRicerca kPiramide = nome<"Piramide Statistica">;
inline constexpr NomeRicerca kPrimoEstratto = nome<"Ritardo e frequenza del primo estratto su ruota">;
inline constexpr NomeRicerca kSuperstar = nome<"Ritardo e frequenza del numero superstar">;
inline constexpr NomeRicerca kTabellonePrimiEstratti = nome<"Tabellone Posizionale primi estratti">;
inline constexpr NomeRicerca kTabelloneSestina = nome<"Tabellone Posizionale sestina SuperEnalotto">;
inline constexpr NomeRicerca kPosizioneSuperEnalotto =
    nome<"Frequenza e ritardo dei 90 numeri per posizione (SuperEnalotto)">;
inline constexpr NomeRicerca kAmbiSuperEnalotto =
    nome<"Ricerche su tutti gli ambi (nella sestina SuperEnalotto)">;
inline constexpr NomeRicerca kTerniSuperEnalotto =
    nome<"Ricerche su tutti i terni (nella sestina SuperEnalotto)">;
inline constexpr NomeRicerca kNovantaSuperEnalotto =
    nome<"Ritardo e frequenza dei 90 numeri nella sestina SuperEnalotto">;
inline constexpr NomeRicerca kAmbiDieciRuote =
    nome<"Ricerche su tutti gli ambi negli estratti delle 10 ruote">;
inline constexpr NomeRicerca kPersonaliSuperEnalotto =
    nome_e_titolo<"Ricerche sui Numeri Personali", "Ricerche su numeri personali - SuperEnalotto">;
inline constexpr NomeRicerca kScommesse = nome<"Scommesse Lotto">;
inline constexpr NomeRicerca kMiglioriRitardi =
    nome_e_titolo<"tabellone migliori ritardi", "I Migliori Ritardi Statistici">;
inline constexpr NomeRicerca kNumeriSparsi = nome<"Analisi numeri sparsi">;
inline constexpr NomeRicerca kNovanta10eLotto =
    nome<"Ritardo e frequenza dei 90 numeri nella combinazione 10 e lotto">;
inline constexpr NomeRicerca kTabellone10eLotto = nome<"Tabellone Posizionale combinazione 10 e lotto">;
inline constexpr NomeRicerca kPosizione10eLotto =
    nome<"Frequenza e ritardo dei 90 numeri per posizione (10 e lotto)">;
inline constexpr NomeRicerca kPersonali10eLotto =
    nome_e_titolo<"Ricerche sui Numeri Personali (10 e lotto)", "Ricerche su numeri personali - 10 e lotto">;
inline constexpr NomeRicerca kLunghette10eLotto =
    nome_e_titolo<"Calcolo lunghette per punteggio 10eLotto", "Ricerca Lunghette 10 e Lotto">;
inline constexpr NomeRicerca kVentiNumeriWinForLife =
    nome<"Ritardo e frequenza dei 20 numeri nella combinazione Win for Life">;
inline constexpr NomeRicerca kTabelloneWinForLife = nome<"Tabellone Posizionale combinazione Win for Life">;
inline constexpr NomeRicerca kPosizioneWinForLife =
    nome<"Frequenza e ritardo dei 20 numeri per posizione (Win for Life)">;
inline constexpr NomeRicerca kPersonaliWinForLife =
    nome_e_titolo<"Ricerche sui Numeri Personali (Win for Life)",
                  "Ricerche su numeri personali - win for life">;
inline constexpr NomeRicerca kLunghetteWinForLife =
    nome_e_titolo<"Calcolo lunghette per punteggio", "Ricerca Lunghette Win for Life">;
inline constexpr NomeRicerca kLunghetteScomposte =
    nome_e_titolo<"Calcolo Lunghette Scomposte", "Calcolo lunghette scomposte  win for life">;
inline constexpr NomeRicerca kScomposizione = nome<"Scomposizione">;
inline constexpr NomeRicerca kScomposizione10eLotto = nome<"Scomposizione 10 e Lotto">;
inline constexpr NomeRicerca kScomposizioneWinForLife = nome<"Scomposizione Win for Life">;
inline constexpr NomeRicerca kAmbiCapogiocoWinForLife = nome<"Analisi Gruppo Win for Life">;
inline constexpr NomeRicerca kStoria = nome<"Storia">;
inline constexpr NomeRicerca kSchedine = nome<"Schedine">;

}  // namespace sortimetra::nomi
