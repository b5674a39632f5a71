#pragma once

#include "draws/ruote.h"
#include "statistics/famiglie.h"

#include <algorithm>
#include <array>
#include <cstddef>

// The table of the 42 named families, for the two places that need it while they compile: the families
// themselves and the dispatch table, whose rows of series are made from it.

namespace sortimetra::dettaglio {

// ---- the words in which the rules are told ----

/// `Quanti` numbers from `da`, `passo` apart.
template <std::size_t Quanti>
constexpr std::array<int, Quanti> fila(int da, int passo) {
    std::array<int, Quanti> numeri{};
    for (std::size_t i = 0; i < Quanti; ++i) numeri[i] = da + passo * static_cast<int>(i);
    return numeri;
}

/// The numbers of `Riga(i)` for each i from `Da` to `A`.
template <int Da, int A, auto Riga, int Passo = 1>
constexpr void ogni(SerieCorrente& s) {
    for (int i = Da; i <= A; i += Passo)
        for (const int n : Riga(i)) s.aggiungi({n});
}

/// The numbers of `Riga(a, b)` for the digits a < b from 1 to 8, a outer.
template <auto Riga>
constexpr void coppie(SerieCorrente& s) {
    for (int a = 1; a <= 7; ++a)
        for (int b = a + 1; b <= 8; ++b)
            for (const int n : Riga(a, b)) s.aggiungi({n});
}

/// One rule after the other.
template <auto... Regole>
constexpr void di_seguito(SerieCorrente& s) {
    (Regole(s), ...);
}

/// All pairs, ascending, of ten numbers.
constexpr void fabarri(SerieCorrente& s) {
    constexpr std::array numeri{3, 4, 6, 9, 10, 13, 19, 26, 72, 77};
    for (std::size_t i = 0; i < numeri.size(); ++i)
        for (std::size_t j = i + 1; j < numeri.size(); ++j) s.aggiungi({numeri[i], numeri[j]});
}

/// Two vertibili, their gemelli and a fifth number by tradition.
constexpr void classiche(SerieCorrente& s) {
    constexpr std::array quinti{58, 47, 36, 25, 14, 3,  82,  // a = 1
                                36, 25, 14, 3,  82, 71,      // a = 2
                                14, 3,  82, 71, 60,          // a = 3
                                82, 71, 60, 49,              // a = 4
                                60, 49, 38,                  // a = 5
                                38, 27,                      // a = 6
                                16};                         // a = 7
    for (int a = 1; a <= 7; ++a)
        for (int b = a + 1; b <= 8; ++b)
            s.aggiungi({10 * a + b, 10 * b + a, 11 * a, 11 * b, quinti[s.righe()]});
}

/// For each digit the numbers that have it as tens or as units; the ninth takes 9 and 0 together.
constexpr void cifre(SerieCorrente& s) {
    const auto ha = [](int n, int cifra) { return n % 10 == cifra || (n >= 10 && n / 10 == cifra); };
    for (int cifra = 1; cifra <= 9; ++cifra)
        for (int n = 1; n <= kNumeri; ++n)
            if (ha(n, cifra) || (cifra == 9 && ha(n, 0))) s.aggiungi({n});
}

// ---- the families ----

inline constexpr auto kFamiglie = std::to_array<Famiglia>({
    {.nome = nome<"Ambi Vertibili">,
     .frase = "Gli ambi di due numeri con le cifre scambiate: 12 e 21, 13 e 31 …",
     .carica = "carica_vertibili",
     .righe = 28,
     .colonne = 2,
     .regola = coppie<[](int a, int b) { return std::array{10 * a + b, 10 * b + a}; }>},
    {.nome = nome<"Ambi Complementari">,
     .frase = "Gli ambi la cui somma è 90.",
     .carica = "carica_complementari",
     .righe = 44,
     .colonne = 2,
     .regola = ogni<1, 44, [](int i) { return std::array{i, 90 - i}; }>},
    {.nome = nome<"Ambi Simmetrici">,
     .frase = "Gli ambi la cui somma è 91.",
     .carica = "carica_simmetrici",
     .righe = 45,
     .colonne = 2,
     .regola = ogni<1, 45, [](int i) { return std::array{i, 91 - i}; }>},
    {.nome = nome<"Ambi a Distanza 45">,
     .frase = "Gli ambi di due numeri diametrali: 1 e 46, 2 e 47 …",
     .carica = "carica_distanza45",
     .righe = 45,
     .colonne = 2,
     .regola = ogni<1, 45, [](int i) { return std::array{i, i + 45}; }>},
    {.nome = nome<"Ambi Consecutivi">,
     .frase = "Gli ambi di due numeri vicini: 1 e 2, 2 e 3 …",
     .carica = "carica_consecutivi",
     .righe = 89,
     .colonne = 2,
     .regola = ogni<1, 89, [](int i) { return std::array{i, i + 1}; }>},
    {.nome = nome<"Ambi Dadologici">,
     .frase = "Le coppie opposte nelle sestine di sei numeri in fila, come le facce di un dado.",
     .carica = "Carica_dadologici",
     .righe = 45,
     .colonne = 2,
     .regola = ogni<1, 85, [](int i) { return std::array{i, i + 5, i + 1, i + 4, i + 2, i + 3}; }, 6>},
    {.nome = nome<"Ambi Somma(11)">,
     .frase = "Gli ambi la cui somma è 11 oppure 101.",
     .carica = "Carica_ambisomma",
     .righe = 45,
     .colonne = 2,
     .regola = di_seguito<ogni<1, 5, [](int i) { return std::array{i, 11 - i}; }>,
                          ogni<11, 50, [](int i) { return std::array{i, 101 - i}; }>>},
    {.nome = nome<"Ambi Fabarri">,
     .frase = "I 45 ambi dei dieci numeri della tradizione Fabarri.",
     .carica = "Carica_fabarri",
     .righe = 45,
     .colonne = 2,
     .regola = fabarri},
    {.nome = nome<"Terzine Consecutive">,
     .frase = "Le terzine di tre numeri in fila.",
     .carica = "carica_terzine_consecutive",
     .righe = 88,
     .colonne = 3,
     .regola = ogni<1, 88, [](int i) { return fila<3>(i, 1); }>},
    {.nome = nome<"Terzine Correlative Simmetriche">,
     .frase = "Le quindici terzine correlative simmetriche.",
     .carica = "carica_terzine_correlative",
     .righe = 15,
     .colonne = 3,
     .scritta = "1 9 81; 2 42 47; 3 4 84; 5 41 45; 11 15 65; 12 17 62; 13 83 85; 21 31 39; 23 25 43; "
                "24 33 34; 32 72 77; 35 71 75; 51 61 69; 53 55 73; 54 63 64"},
    {.nome = nome<"Terzine Distanza 30">,
     .frase = "Le terzine di numeri a distanza 30.",
     .carica = "carica_terzine_distanza30",
     .righe = 30,
     .colonne = 3,
     .regola = ogni<1, 30, [](int i) { return fila<3>(i, 30); }>},
    {.nome = nome<"Terzine a Coesione Matematica">,
     .frase = "Ogni numero con il suo doppio e il suo simmetrico.",
     .carica = "carica_terzine_coesione",
     .righe = 45,
     .colonne = 3,
     .regola = ogni<1, 45, [](int i) { return std::array{i, 2 * i, 91 - i}; }>},
    {.nome = nome<"Terzine Fabarri">,
     .frase = "Le 34 terzine della tradizione Fabarri.",
     .carica = "carica_terzine_fabarri",
     .righe = 34,
     .colonne = 3,
     .scritta = "3 4 9; 3 4 13; 3 4 77; 3 9 13; 3 9 77; 4 9 10; 4 9 19; 4 9 26; 4 9 30; 4 9 72; 4 9 87; "
                "4 9 90; 4 10 13; 4 10 77; 4 13 19; 4 13 26; 4 13 30; 4 13 72; 4 13 77; 4 13 87; "
                "4 13 90; 4 19 77; 4 26 77; 4 30 77; 4 77 87; 4 77 90; 9 26 77; 9 72 77; 9 77 87; "
                "13 26 77; 13 72 77; 13 77 87; 13 77 90; 13 87 90"},
    {.nome = nome<"Terzine di Gemelli">,
     .frase = "Tre gemelli in fila: 11, 22, 33 e così via.",
     .carica = "carica_terzine_gemelli",
     .righe = 8,
     .colonne = 3,
     .scritta = "11 22 33; 22 33 44; 33 44 55; 44 55 66; 55 66 77; 66 77 88; 77 88 11; 88 11 22"},
    {.nome = nome<"Grattacielo dei 90">,
     .frase = "Le 22 quartine simmetriche che formano il grattacielo.",
     .carica = "carica_grattacielo",
     .righe = 22,
     .colonne = 4,
     .regola = ogni<1, 22, [](int i) { return std::array{i, 46 - i, i + 45, 91 - i}; }>},
    {.nome = nome<"Quartine con Numeri Doppi">,
     .frase = "Ogni numero raddoppiato tre volte: 1, 2, 4, 8 …",
     .carica = "carica_quartine_ndoppi",
     .righe = 11,
     .colonne = 4,
     .regola = ogni<1, 11, [](int i) { return std::array{i, 2 * i, 4 * i, 8 * i}; }>},
    {.nome = nome<"Quartine con Numeri Triplicati">,
     .frase = "Le otto quartine di numeri triplicati.",
     .carica = "carica_quartine_ntripli",
     .righe = 8,
     .colonne = 4,
     .scritta = "1 3 9 27; 2 6 18 54; 3 9 27 81; 4 12 18 36; 5 9 15 45; 6 18 54 72; 7 9 21 63; 8 24 36 72"},
    // The one family that is not made here: its numbers are on file.
    {.nome = nome<"Cinquine dei 90">,
     .frase = "Le 436 cinquine che insieme contengono tutti gli ambi.",
     .carica = "carica_cinquine_dei90",
     .righe = 436,
     .colonne = 5,
     .titoli_brevi = true,
     .su_file = true},
    {.nome = nome<"Cinquine Classiche">,
     .frase = "Due vertibili, i loro gemelli e un quinto numero.",
     .carica = "carica_cinquine_classiche",
     .righe = 28,
     .colonne = 5,
     .titoli_brevi = true,
     .regola = classiche},
    // The second member reads 59 where the rule would give 89, and has always read so: it is kept as it
    // stands.
    {.nome = nome<"Cinquine a Coesione">,
     .frase = "Le 22 cinquine a coesione.",
     .carica = "carica_cinquine_coesione",
     .righe = 22,
     .colonne = 5,
     .titoli_brevi = true,
     .regola = di_seguito<ogni<1, 22, [](int i) { return std::array{i, 46 - i, 45 + i, 91 - i, 2 * i}; }>,
                          [](SerieCorrente& s) { s.numeri[1 * 5 + 3] = 59; }>},
    {.nome = nome<"Cinquine Consecutive">,
     .frase = "Cinque numeri in fila, a passi di quattro.",
     .carica = "Carica_cinquine_consecutive",
     .righe = 22,
     .colonne = 5,
     .titoli_brevi = true,
     .regola = ogni<1, 85, [](int i) { return fila<5>(i, 1); }, 4>},
    {.nome = nome<"Cinquine Correlative">,
     .frase = "Le otto cinquine correlative.",
     .carica = "carica_cinquine_correlative",
     .righe = 8,
     .colonne = 5,
     .titoli_brevi = true,
     .scritta = "1 11 2 10 19; 2 22 4 20 29; 3 33 6 30 39; 4 44 8 40 49; 5 55 1 50 59; 6 66 3 60 69; "
                "7 77 5 70 79; 8 88 7 80 89"},
    {.nome = nome<"Cinquine Dispari">,
     .frase = "I cinque numeri dispari di ogni decina.",
     .carica = "carica_cinquine_dispari",
     .righe = 9,
     .colonne = 5,
     .titoli_brevi = true,
     .regola = ogni<1, 81, [](int i) { return fila<5>(i, 2); }, 10>},
    {.nome = nome<"Cinquine Pari">,
     .frase = "I cinque numeri pari di ogni decina.",
     .carica = "carica_cinquine_pari",
     .righe = 9,
     .colonne = 5,
     .titoli_brevi = true,
     .regola = ogni<2, 82, [](int i) { return fila<5>(i, 2); }, 10>},
    {.nome = nome<"Cinquine Pentagonali">,
     .frase = "Cinque numeri a distanza 18 l'uno dall'altro.",
     .carica = "carica_cinquine_pentagonali",
     .righe = 18,
     .colonne = 5,
     .titoli_brevi = true,
     .regola = ogni<1, 18, [](int i) { return fila<5>(i, 18); }>},
    {.nome = nome<"Cinquine Sun">,
     .frase = "Cinque numeri in fila: 1-5, 6-10 e così via.",
     .carica = "carica_cinquine_sun",
     .righe = 18,
     .colonne = 5,
     .titoli_brevi = true,
     .regola = ogni<1, 86, [](int i) { return fila<5>(i, 1); }, 5>},
    {.nome = nome<"Sestine Tricifriche">,
     .frase = "Tre numeri in fila con i loro gemelli.",
     .carica = "carica_tricifriche",
     .righe = 6,
     .colonne = 6,
     .titoli_brevi = true,
     .regola =
         ogni<1, 6, [](int i) { return std::array{i, i + 1, i + 2, 11 * i, 11 * (i + 1), 11 * (i + 2)}; }>},
    {.nome = nome<"Sestine di Cifra Composta">,
     .frase = "Le sei sestine di cifra composta.",
     .carica = "carica_cifra_composta",
     .righe = 6,
     .colonne = 6,
     .titoli_brevi = true,
     .scritta = "12 23 34 13 24 35; 21 32 43 23 34 45; 31 42 53 32 43 54; 45 56 67 46 57 68; "
                "54 65 76 56 67 78; 64 75 86 65 76 87"},
    {.nome = nome<"Sestine Circolari">,
     .frase = "Sei numeri in fila: 1-6, 7-12 e così via.",
     .carica = "carica_sestine_circolari",
     .righe = 15,
     .colonne = 6,
     .titoli_brevi = true,
     .regola = ogni<1, 85, [](int i) { return fila<6>(i, 1); }, 6>},
    {.nome = nome<"Sestine Consecutive">,
     .frase = "Sei numeri in fila, a passi di cinque.",
     .carica = "carica_sestine_consecutive",
     .righe = 18,
     .colonne = 6,
     .titoli_brevi = true,
     .regola = di_seguito<ogni<1, 81, [](int i) { return fila<6>(i, 1); }, 5>,
                          [](SerieCorrente& s) { s.aggiungi({1, 86, 87, 88, 89, 90}); }>},
    {.nome = nome<"Sestine Esagonali">,
     .frase = "Sei numeri a distanza 15 l'uno dall'altro.",
     .carica = "carica_sestine_esagonali",
     .righe = 15,
     .colonne = 6,
     .titoli_brevi = true,
     .regola = ogni<1, 15, [](int i) { return fila<6>(i, 15); }>},
    {.nome = nome<"Sestine Passo Multiplo">,
     .frase = "Ogni numero con i suoi multipli fino a sei volte.",
     .carica = "carica_sestine_multiple",
     .righe = 15,
     .colonne = 6,
     .titoli_brevi = true,
     .regola = ogni<1, 15, [](int i) { return fila<6>(i, i); }>},
    {.nome = nome<"Sestine Somma 273">,
     .frase = "Le quindici sestine la cui somma è 273.",
     .carica = "carica_sestine_somma",
     .righe = 15,
     .colonne = 6,
     .titoli_brevi = true,
     .regola = ogni<1, 15, [](int i) { return std::array{i, 31 - i, 30 + i, 61 - i, 60 + i, 91 - i}; }>},
    {.nome = nome<"Settine Renard">,
     .frase = "Le 28 settine costruite da due cifre.",
     .carica = "carica_renard",
     .righe = 28,
     .colonne = 7,
     .titoli_brevi = true,
     .regola = coppie<[](int a, int b) {
         return std::array{a, b, a + b, 11 * a, 10 * a + b, 10 * b + a, 11 * b};
     }>},
    {.nome = nome<"Decine">,
     .frase = "I dieci numeri della stessa decina.",
     .carica = "carica_decine",
     .righe = 9,
     .colonne = 10,
     .regola = di_seguito<[](SerieCorrente& s) { s.aggiungi({90, 1, 2, 3, 4, 5, 6, 7, 8, 9}); },
                          ogni<10, 80, [](int i) { return fila<10>(i, 1); }, 10>>,
     .etichetta = EtichettaMembro::decina,
     .descrizione = "Le Decine sono composte da 10 numeri che hanno in comune la stessa cifra. Fa eccezione "
                    "la prima decina che comprende il numero 90 in aggiunta ai 9 numeretti (1 - 9).  L’Ambo "
                    "su 10 numeri vince 5,39 volte la posta, il Terno 34,35 volte la posta."},
    {.nome = nome<"Decine Simmetriche">,
     .frase = "Le nove decine formate da cinque coppie simmetriche.",
     .carica = "carica_decine_simmetriche",
     .righe = 9,
     .colonne = 10,
     .titoli_brevi = true,
     .scritta = "1 3 22 24 45 46 67 69 88 90; 2 18 20 26 44 47 65 71 73 89; "
                "4 21 23 25 42 49 66 68 70 87; 5 17 29 41 43 48 50 62 74 86; "
                "6 19 27 38 40 51 53 64 72 85; 7 15 31 33 39 52 58 60 76 84; "
                "8 10 12 34 36 55 57 79 81 83; 9 16 28 30 37 54 61 63 75 82; "
                "11 13 14 32 35 56 59 77 78 80",
     .etichetta = EtichettaMembro::primo_ultimo,
     .descrizione = "Le decine simmetriche sono composte da 5 coppie simmetriche (somma 91). Si tratta di "
                    "serie speciali con bassi ritardi conseguibili"},
    {.nome = nome<"Controfigure">,
     .frase = "I dieci gruppi di numeri a distanza undici.",
     .carica = "carica_controfigure",
     .righe = 10,
     .colonne = 9,
     .titoli_brevi = true,
     .scritta = "1 12 23 34 45 56 67 78 89; 2 13 24 35 46 57 68 79 90; 3 11 14 25 36 47 58 69 80; "
                "4 15 22 26 37 48 59 70 81; 5 16 27 33 38 49 60 71 82; 6 17 28 39 44 50 61 72 83; "
                "7 18 29 40 51 55 62 73 84; 8 19 30 41 52 63 66 74 85; 9 20 31 42 53 64 75 77 86; "
                "10 21 32 43 54 65 76 87 88",
     .etichetta = EtichettaMembro::primo_ultimo,
     .descrizione = "Le controfigure sono costituite da 10 gruppi di numeri a distanza 11. (es: 1 - 12 - 23 "
                    "ecc...). A partire dalla 3^ controfigura per completare la serie si utilizza il gemello "
                    "corrispondente (es: 3^=33)."},
    {.nome = nome<"Cadenze">,
     .frase = "I nove numeri con la stessa cifra finale.",
     .carica = "carica_cadenze",
     .righe = 10,
     .colonne = 9,
     .regola = ogni<1, 10, [](int c) { return fila<9>(c, 10); }>,
     .etichetta = EtichettaMembro::primo_ultimo,
     .descrizione = "Le Cadenze sono composte da 9 numeri che hanno in comune la stessa cifra finale. L’Ambo "
                    "su 9 numeri vince 6,73 volte la posta, il Terno 49,07 volte la posta."},
    {.nome = nome<"Figure">,
     .frase = "I dieci numeri a distanza nove l'uno dall'altro.",
     .carica = "carica_figure",
     .righe = 9,
     .colonne = 10,
     .regola = ogni<1, 9, [](int r) { return fila<10>(r, 9); }>,
     .etichetta = EtichettaMembro::primo_ultimo,
     .descrizione = "Le Figure sono composte da 10 numeri distanti fra loro di 9 unità. L’Ambo su 10 numeri "
                    "vince 5,39 volte la posta, il Terno 34,35 volte la posta."},
    {.nome = nome<"Cifre">,
     .frase = "I diciotto numeri che contengono la stessa cifra.",
     .carica = "carica_cifre",
     .righe = 9,
     .colonne = 18,
     .regola = cifre,
     .etichetta = EtichettaMembro::cifra,
     .descrizione = "Le Cifre sono composte da serie di 18 numeri che hanno per decina o per unità una "
                    "stessa cifra. L’Ambo su 18 numeri vince 1,58 volte la posta, il Terno 5,05 volte la "
                    "posta, la Quaterna 25,36 volte la posta."},
    {.nome = nome<"Gemelli">,
     .frase = "Gli otto numeri con le due cifre uguali.",
     .carica = "carica_gemelli",
     .righe = 1,
     .colonne = 8,
     .scritta = "11 22 33 44 55 66 77 88",
     .etichetta = EtichettaMembro::primo_ultimo,
     .descrizione = "I Gemelli sono composti da una serie di  8 numeri aventi in comune le cifre uguali. "
                    "L’Ambo su 8 numeri paga 8,66 volte la posta, il Terno 73,61 volte la posta."},
    {.nome = nome<"Radicali">,
     .frase = "Le otto quartine formate da una cifra, il suo zerato, il gemello e il finale nove.",
     .carica = "carica_radicali",
     .righe = 8,
     .colonne = 4,
     .regola = ogni<1, 8, [](int i) { return std::array{i, 10 * i, 11 * i, 10 * i + 9}; }>,
     .descrizione =
         "I Radicali sono 8 quartine formate dal numeretto, dal numero zerato in decina, dal numero gemello "
         "e dal corrispondente numero con finale 9. L’Ambo su 4 numeri paga 40,42 volte la posta, il Terno "
         "1.030,62 volte. Giocando tutte le 8 quartine l’ambo paga 5,05 volte, il Terno 128,83 volte."},
});

constexpr SerieCorrente componi(const Famiglia& famiglia) {
    SerieCorrente s{.colonne = famiglia.colonne};
    famiglia.regola(s);
    int numero = 0;
    for (const char c : famiglia.scritta) {
        if (c >= '0' && c <= '9') {
            numero = numero * 10 + (c - '0');
        } else if (numero != 0) {
            s.aggiungi({numero});
            numero = 0;
        }
    }
    if (numero != 0) s.aggiungi({numero});
    return s;
}

/// A row of the table whose rule does not give the size that stands beside it does not compile.
constexpr bool grandezze_giuste() {
    return std::all_of(kFamiglie.begin(), kFamiglie.end(), [](const Famiglia& f) {
        const SerieCorrente s = componi(f);
        return f.su_file || (s.numeri.size() == f.righe * f.colonne &&
                             std::all_of(s.numeri.begin(), s.numeri.end(),
                                         [](Numero n) { return n >= 1 && n <= kNumeri; }));
    });
}
static_assert(grandezze_giuste());

}  // namespace sortimetra::dettaglio
