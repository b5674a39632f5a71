#pragma once

#include "catalogue/ricerche.h"

#include <array>
#include <string_view>

// The lists of the catalogue, in the order and the spelling in which the user reads them. One search may
// stand in several lists with other capitals; its key is the name in lower case.

namespace sortimetra::elenchi {

inline constexpr std::string_view kAmbata[] = {
    "Ritardo e frequenza dei 90 numeri",
    "Ritardi e Frequenze per Posizione dei 90 numeri",
    "Tabellone Posizionale",
    "I 10 numeri più in ritardo su ogni ruota",
    "Calcolo dei numeri spia",
    "Tabella dei segnalimite cabalistici",
    "Ambata capogioco",
    "Ambo capogioco",
    "Ambi Vertibili",
    "Ambi Simmetrici",
    "Ambi Complementari",
    "Ambi a Distanza 45",
    "Ambi Consecutivi",
    "Ambi Dadologici",
    "Ambi Somma(11)",
    "Terzine Consecutive",
    "Terzine Correlative Simmetriche",
    "Terzine a Coesione Matematica",
    "Terzine di gemelli",
    "Grattacielo dei 90",
    "Cinquine dei 90",
    "Cinquine Classiche",
    "Cinquine a Coesione",
    "Cinquine Consecutive",
    "Cinquine Correlative",
    "Cinquine Dispari",
    "Cinquine Pari",
    "Cinquine Pentagonali",
    "Cinquine Sun",
    "Sestine Tricifriche",
    "Sestine di Cifra Composta",
    "Settine Renard",
    "Ricerche su numeri personali",
    "Ricerche per gruppi",
    "Sestine Circolari",
    "Sestine Consecutive",
    "Sestine Esagonali",
    "Sestine Passo Multiplo",
    "Sestine somma 273",
};

inline constexpr std::string_view kAmbo[] = {
    "Ambata capogioco",
    "Ambo capogioco",
    "Ambi vertibili",
    "Ambi complementari",
    "Ambi simmetrici",
    "Ambi a distanza 45",
    "Ambi consecutivi",
    "Ambi dadologici",
    "Ambi fabarri",
    "Ambi somma(11)",
    "Ricerche su tutti gli Ambi",
    "Ricerche su tutti i Terni",
    "Terzine Consecutive",
    "Terzine Correlative Simmetriche",
    "Terzine a Coesione Matematica",
    "Terzine di gemelli",
    "Grattacielo dei 90",
    "Cinquine dei 90",
    "Cinquine Classiche",
    "Cinquine a Coesione",
    "Cinquine Consecutive",
    "Cinquine Correlative",
    "Cinquine Dispari",
    "Cinquine Pari",
    "Cinquine Pentagonali",
    "Cinquine Sun",
    "Sestine Tricifriche",
    "Sestine di Cifra Composta",
    "Settine Renard",
    "Ricerche su Numeri Personali",
    "Lunghette ritardate/frequenti per Ambo e Terno",
    "Ricerche per gruppi",
    "Sestine Circolari",
    "Sestine Consecutive",
    "Sestine Esagonali",
    "Sestine Passo Multiplo",
    "Sestine somma 273",
};

inline constexpr std::string_view kTerno[] = {
    "Ricerche su tutti i Terni",
    "Terzine Consecutive",
    "Terzine Correlative Simmetriche",
    "Terzine Distanza 30",
    "Terzine a coesione matematica",
    "Terzine fabarri",
    "Terzine di gemelli",
    "Lunghette ritardate/frequenti per Ambo e Terno",
    "Ricerche su Numeri Personali",
    "Ricerche per Gruppi",
};

inline constexpr std::string_view kQuaterna[] = {
    "Grattacielo dei 90",           "Quartine con numeri doppi", "Quartine con numeri triplicati",
    "Ricerche su Numeri Personali", "Ricerche per Gruppi",
};

inline constexpr std::string_view kCinquina[] = {
    "Cinquine dei 90",      "Cinquine Classiche",
    "Cinquine a Coesione",  "Cinquine Consecutive",
    "Cinquine Correlative", "Cinquine Dispari",
    "Cinquine Pari",        "Cinquine Pentagonali",
    "Cinquine sun",         "Ricerche su Numeri Personali",
    "Ricerche per Gruppi",
};

inline constexpr std::string_view kSpeciali[] = {
    "Scommesse Lotto",
    "Lunghette ritardate/frequenti per Ambo e Terno",
    "Decine",
    "Cadenze",
    "Figure",
    "Cifre",
    "Gemelli",
    "Radicali",
    "Sestine tricifriche",
    "Sestine di cifra composta",
    "Settine renard",
    "Ricerche per gruppi",
    "Piramide statistica",
    "Calcolo somme e distanze ciclometriche",
    "Decine Simmetriche",
    "Controfigure",
    "Sestine Circolari",
    "Sestine Consecutive",
    "Sestine Esagonali",
    "Sestine Passo Multiplo",
    "Sestine somma 273",
    "Ricerche su Numeri Personali",
};

inline constexpr std::string_view kSuperEnalotto[] = {
    "Ritardo e frequenza del numero superstar",
    "Ritardo e frequenza dei 90 numeri nella sestina SuperEnalotto",
    "Tabellone Posizionale sestina superenalotto",
    "Frequenza e ritardo dei 90 numeri per posizione (SuperEnalotto)",
    "Ricerche su tutti gli ambi (nella sestina SuperEnalotto)",
    "Ricerche su tutti i terni (nella sestina SuperEnalotto)",
    "Ricerche sui Numeri Personali",
};

inline constexpr std::string_view kDieciELotto[] = {
    "Ritardo e frequenza dei 90 numeri nella combinazione 10 e lotto",
    "Tabellone Posizionale combinazione 10 e lotto",
    "Frequenza e ritardo dei 90 numeri per posizione (10 e lotto)",
    "Ricerche sui Numeri Personali (10 e lotto)",
    "Calcolo lunghette per punteggio 10eLotto",
};

inline constexpr std::string_view kWinForLife[] = {
    "Ritardo e frequenza dei 20 numeri nella combinazione Win for Life",
    "Tabellone Posizionale combinazione Win for Life",
    "Frequenza e ritardo dei 20 numeri per posizione (Win for Life)",
    "Ricerche sui Numeri Personali (Win for Life)",
    "Calcolo lunghette per punteggio",
    "Calcolo Lunghette Scomposte",
};

inline constexpr std::string_view kSistemi[] = {
    "Statistica relativa ai sistemi realizzati",
    "Filtri di condizionamento",
    "Ultimi 20 Concorsi",
};

inline constexpr std::array<Elenco, 7> kGruppiLotto{{
    {"Ambata", kAmbata},
    {"Ambo", kAmbo},
    {"Terno", kTerno},
    {"Quaterna", kQuaterna},
    {"Cinquina", kCinquina},
    {"Ricerche Speciali", kSpeciali},
    {"Tabella Ritardi", {}},
}};
inline constexpr std::array<Elenco, 1> kGruppiSuperEnalotto{{{"Ricerche SuperEnalotto", kSuperEnalotto}}};
inline constexpr std::array<Elenco, 1> kGruppiDieciELotto{{{"Ricerche 10 e Lotto", kDieciELotto}}};
inline constexpr std::array<Elenco, 1> kGruppiWinForLife{{{"Ricerche WinForLife", kWinForLife}}};
inline constexpr std::array<Elenco, 1> kGruppiSistemi{{{"Ricerche sui Sistemi", kSistemi}}};

inline constexpr std::array<Scheda, 5> kSchede{{
    {"Ricerche Lotto", kGruppiLotto},
    {"Ricerche SuperEnalotto", kGruppiSuperEnalotto},
    {"Ricerche 10 e Lotto", kGruppiDieciELotto},
    {"Ricerche WinForLife", kGruppiWinForLife},
    {"Ricerche sui Sistemi", kGruppiSistemi},
}};

}  // namespace sortimetra::elenchi
