#include "statistics/famiglie.h"

#include "draws/archivio.h"
#include "files/file_sicuro.h"
#include "text/testi.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace sortimetra {

namespace {

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

constexpr auto kFamiglie = std::to_array<Famiglia>({
    {.chiave = "ambi vertibili",
     .carica = "carica_vertibili",
     .righe = 28,
     .colonne = 2,
     .regola = coppie<[](int a, int b) { return std::array{10 * a + b, 10 * b + a}; }>},
    {.chiave = "ambi complementari",
     .carica = "carica_complementari",
     .righe = 44,
     .colonne = 2,
     .regola = ogni<1, 44, [](int i) { return std::array{i, 90 - i}; }>},
    {.chiave = "ambi simmetrici",
     .carica = "carica_simmetrici",
     .righe = 45,
     .colonne = 2,
     .regola = ogni<1, 45, [](int i) { return std::array{i, 91 - i}; }>},
    {.chiave = "ambi a distanza 45",
     .carica = "carica_distanza45",
     .righe = 45,
     .colonne = 2,
     .regola = ogni<1, 45, [](int i) { return std::array{i, i + 45}; }>},
    {.chiave = "ambi consecutivi",
     .carica = "carica_consecutivi",
     .righe = 89,
     .colonne = 2,
     .regola = ogni<1, 89, [](int i) { return std::array{i, i + 1}; }>},
    {.chiave = "ambi dadologici",
     .carica = "Carica_dadologici",
     .righe = 45,
     .colonne = 2,
     .regola = ogni<1, 85, [](int i) { return std::array{i, i + 5, i + 1, i + 4, i + 2, i + 3}; }, 6>},
    {.chiave = "ambi somma(11)",
     .carica = "Carica_ambisomma",
     .righe = 45,
     .colonne = 2,
     .regola = di_seguito<ogni<1, 5, [](int i) { return std::array{i, 11 - i}; }>,
                          ogni<11, 50, [](int i) { return std::array{i, 101 - i}; }>>},
    {.chiave = "ambi fabarri", .carica = "Carica_fabarri", .righe = 45, .colonne = 2, .regola = fabarri},
    {.chiave = "terzine consecutive",
     .carica = "carica_terzine_consecutive",
     .righe = 88,
     .colonne = 3,
     .regola = ogni<1, 88, [](int i) { return fila<3>(i, 1); }>},
    {.chiave = "terzine correlative simmetriche",
     .carica = "carica_terzine_correlative",
     .righe = 15,
     .colonne = 3,
     .scritta = "1 9 81; 2 42 47; 3 4 84; 5 41 45; 11 15 65; 12 17 62; 13 83 85; 21 31 39; 23 25 43; "
                "24 33 34; 32 72 77; 35 71 75; 51 61 69; 53 55 73; 54 63 64"},
    {.chiave = "terzine distanza 30",
     .carica = "carica_terzine_distanza30",
     .righe = 30,
     .colonne = 3,
     .regola = ogni<1, 30, [](int i) { return fila<3>(i, 30); }>},
    {.chiave = "terzine a coesione matematica",
     .carica = "carica_terzine_coesione",
     .righe = 45,
     .colonne = 3,
     .regola = ogni<1, 45, [](int i) { return std::array{i, 2 * i, 91 - i}; }>},
    {.chiave = "terzine fabarri",
     .carica = "carica_terzine_fabarri",
     .righe = 34,
     .colonne = 3,
     .scritta = "3 4 9; 3 4 13; 3 4 77; 3 9 13; 3 9 77; 4 9 10; 4 9 19; 4 9 26; 4 9 30; 4 9 72; 4 9 87; "
                "4 9 90; 4 10 13; 4 10 77; 4 13 19; 4 13 26; 4 13 30; 4 13 72; 4 13 77; 4 13 87; "
                "4 13 90; 4 19 77; 4 26 77; 4 30 77; 4 77 87; 4 77 90; 9 26 77; 9 72 77; 9 77 87; "
                "13 26 77; 13 72 77; 13 77 87; 13 77 90; 13 87 90"},
    {.chiave = "terzine di gemelli",
     .carica = "carica_terzine_gemelli",
     .righe = 8,
     .colonne = 3,
     .scritta = "11 22 33; 22 33 44; 33 44 55; 44 55 66; 55 66 77; 66 77 88; 77 88 11; 88 11 22"},
    {.chiave = "grattacielo dei 90",
     .carica = "carica_grattacielo",
     .righe = 22,
     .colonne = 4,
     .regola = ogni<1, 22, [](int i) { return std::array{i, 46 - i, i + 45, 91 - i}; }>},
    {.chiave = "quartine con numeri doppi",
     .carica = "carica_quartine_ndoppi",
     .righe = 11,
     .colonne = 4,
     .regola = ogni<1, 11, [](int i) { return std::array{i, 2 * i, 4 * i, 8 * i}; }>},
    {.chiave = "quartine con numeri triplicati",
     .carica = "carica_quartine_ntripli",
     .righe = 8,
     .colonne = 4,
     .scritta = "1 3 9 27; 2 6 18 54; 3 9 27 81; 4 12 18 36; 5 9 15 45; 6 18 54 72; 7 9 21 63; 8 24 36 72"},
    // The one family that is not made here: its numbers are on file.
    {.chiave = "cinquine dei 90",
     .carica = "carica_cinquine_dei90",
     .righe = 436,
     .colonne = 5,
     .su_file = true},
    {.chiave = "cinquine classiche",
     .carica = "carica_cinquine_classiche",
     .righe = 28,
     .colonne = 5,
     .regola = classiche},
    // The second member reads 59 where the rule would give 89, and has always read so: it is kept as it
    // stands.
    {.chiave = "cinquine a coesione",
     .carica = "carica_cinquine_coesione",
     .righe = 22,
     .colonne = 5,
     .regola = di_seguito<ogni<1, 22, [](int i) { return std::array{i, 46 - i, 45 + i, 91 - i, 2 * i}; }>,
                          [](SerieCorrente& s) { s.numeri[1 * 5 + 3] = 59; }>},
    {.chiave = "cinquine consecutive",
     .carica = "Carica_cinquine_consecutive",
     .righe = 22,
     .colonne = 5,
     .regola = ogni<1, 85, [](int i) { return fila<5>(i, 1); }, 4>},
    {.chiave = "cinquine correlative",
     .carica = "carica_cinquine_correlative",
     .righe = 8,
     .colonne = 5,
     .scritta = "1 11 2 10 19; 2 22 4 20 29; 3 33 6 30 39; 4 44 8 40 49; 5 55 1 50 59; 6 66 3 60 69; "
                "7 77 5 70 79; 8 88 7 80 89"},
    {.chiave = "cinquine dispari",
     .carica = "carica_cinquine_dispari",
     .righe = 9,
     .colonne = 5,
     .regola = ogni<1, 81, [](int i) { return fila<5>(i, 2); }, 10>},
    {.chiave = "cinquine pari",
     .carica = "carica_cinquine_pari",
     .righe = 9,
     .colonne = 5,
     .regola = ogni<2, 82, [](int i) { return fila<5>(i, 2); }, 10>},
    {.chiave = "cinquine pentagonali",
     .carica = "carica_cinquine_pentagonali",
     .righe = 18,
     .colonne = 5,
     .regola = ogni<1, 18, [](int i) { return fila<5>(i, 18); }>},
    {.chiave = "cinquine sun",
     .carica = "carica_cinquine_sun",
     .righe = 18,
     .colonne = 5,
     .regola = ogni<1, 86, [](int i) { return fila<5>(i, 1); }, 5>},
    {.chiave = "sestine tricifriche",
     .carica = "carica_tricifriche",
     .righe = 6,
     .colonne = 6,
     .regola =
         ogni<1, 6, [](int i) { return std::array{i, i + 1, i + 2, 11 * i, 11 * (i + 1), 11 * (i + 2)}; }>},
    {.chiave = "sestine di cifra composta",
     .carica = "carica_cifra_composta",
     .righe = 6,
     .colonne = 6,
     .scritta = "12 23 34 13 24 35; 21 32 43 23 34 45; 31 42 53 32 43 54; 45 56 67 46 57 68; "
                "54 65 76 56 67 78; 64 75 86 65 76 87"},
    {.chiave = "sestine circolari",
     .carica = "carica_sestine_circolari",
     .righe = 15,
     .colonne = 6,
     .regola = ogni<1, 85, [](int i) { return fila<6>(i, 1); }, 6>},
    {.chiave = "sestine consecutive",
     .carica = "carica_sestine_consecutive",
     .righe = 18,
     .colonne = 6,
     .regola = di_seguito<ogni<1, 81, [](int i) { return fila<6>(i, 1); }, 5>,
                          [](SerieCorrente& s) { s.aggiungi({1, 86, 87, 88, 89, 90}); }>},
    {.chiave = "sestine esagonali",
     .carica = "carica_sestine_esagonali",
     .righe = 15,
     .colonne = 6,
     .regola = ogni<1, 15, [](int i) { return fila<6>(i, 15); }>},
    {.chiave = "sestine passo multiplo",
     .carica = "carica_sestine_multiple",
     .righe = 15,
     .colonne = 6,
     .regola = ogni<1, 15, [](int i) { return fila<6>(i, i); }>},
    {.chiave = "sestine somma 273",
     .carica = "carica_sestine_somma",
     .righe = 15,
     .colonne = 6,
     .regola = ogni<1, 15, [](int i) { return std::array{i, 31 - i, 30 + i, 61 - i, 60 + i, 91 - i}; }>},
    {.chiave = "settine renard",
     .carica = "carica_renard",
     .righe = 28,
     .colonne = 7,
     .regola = coppie<[](int a, int b) {
         return std::array{a, b, a + b, 11 * a, 10 * a + b, 10 * b + a, 11 * b};
     }>},
    {.chiave = "decine",
     .carica = "carica_decine",
     .righe = 9,
     .colonne = 10,
     .regola = di_seguito<[](SerieCorrente& s) { s.aggiungi({90, 1, 2, 3, 4, 5, 6, 7, 8, 9}); },
                          ogni<10, 80, [](int i) { return fila<10>(i, 1); }, 10>>,
     .etichetta = EtichettaMembro::decina,
     .descrizione = "Le Decine sono composte da 10 numeri che hanno in comune la stessa cifra. Fa eccezione "
                    "la prima decina che comprende il numero 90 in aggiunta ai 9 numeretti (1 - 9).  L’Ambo "
                    "su 10 numeri vince 5,39 volte la posta, il Terno 34,35 volte la posta."},
    {.chiave = "decine simmetriche",
     .carica = "carica_decine_simmetriche",
     .righe = 9,
     .colonne = 10,
     .scritta = "1 3 22 24 45 46 67 69 88 90; 2 18 20 26 44 47 65 71 73 89; "
                "4 21 23 25 42 49 66 68 70 87; 5 17 29 41 43 48 50 62 74 86; "
                "6 19 27 38 40 51 53 64 72 85; 7 15 31 33 39 52 58 60 76 84; "
                "8 10 12 34 36 55 57 79 81 83; 9 16 28 30 37 54 61 63 75 82; "
                "11 13 14 32 35 56 59 77 78 80",
     .etichetta = EtichettaMembro::primo_ultimo,
     .descrizione = "Le decine simmetriche sono composte da 5 coppie simmetriche (somma 91). Si tratta di "
                    "serie speciali con bassi ritardi conseguibili"},
    {.chiave = "controfigure",
     .carica = "carica_controfigure",
     .righe = 10,
     .colonne = 9,
     .scritta = "1 12 23 34 45 56 67 78 89; 2 13 24 35 46 57 68 79 90; 3 11 14 25 36 47 58 69 80; "
                "4 15 22 26 37 48 59 70 81; 5 16 27 33 38 49 60 71 82; 6 17 28 39 44 50 61 72 83; "
                "7 18 29 40 51 55 62 73 84; 8 19 30 41 52 63 66 74 85; 9 20 31 42 53 64 75 77 86; "
                "10 21 32 43 54 65 76 87 88",
     .etichetta = EtichettaMembro::primo_ultimo,
     .descrizione = "Le controfigure sono costituite da 10 gruppi di numeri a distanza 11. (es: 1 - 12 - 23 "
                    "ecc...). A partire dalla 3^ controfigura per completare la serie si utilizza il gemello "
                    "corrispondente (es: 3^=33)."},
    {.chiave = "cadenze",
     .carica = "carica_cadenze",
     .righe = 10,
     .colonne = 9,
     .regola = ogni<1, 10, [](int c) { return fila<9>(c, 10); }>,
     .etichetta = EtichettaMembro::primo_ultimo,
     .descrizione = "Le Cadenze sono composte da 9 numeri che hanno in comune la stessa cifra finale. L’Ambo "
                    "su 9 numeri vince 6,73 volte la posta, il Terno 49,07 volte la posta."},
    {.chiave = "figure",
     .carica = "carica_figure",
     .righe = 9,
     .colonne = 10,
     .regola = ogni<1, 9, [](int r) { return fila<10>(r, 9); }>,
     .etichetta = EtichettaMembro::primo_ultimo,
     .descrizione = "Le Figure sono composte da 10 numeri distanti fra loro di 9 unità. L’Ambo su 10 numeri "
                    "vince 5,39 volte la posta, il Terno 34,35 volte la posta."},
    {.chiave = "cifre",
     .carica = "carica_cifre",
     .righe = 9,
     .colonne = 18,
     .regola = cifre,
     .etichetta = EtichettaMembro::cifra,
     .descrizione = "Le Cifre sono composte da serie di 18 numeri che hanno per decina o per unità una "
                    "stessa cifra. L’Ambo su 18 numeri vince 1,58 volte la posta, il Terno 5,05 volte la "
                    "posta, la Quaterna 25,36 volte la posta."},
    {.chiave = "gemelli",
     .carica = "carica_gemelli",
     .righe = 1,
     .colonne = 8,
     .scritta = "11 22 33 44 55 66 77 88",
     .etichetta = EtichettaMembro::primo_ultimo,
     .descrizione = "I Gemelli sono composti da una serie di  8 numeri aventi in comune le cifre uguali. "
                    "L’Ambo su 8 numeri paga 8,66 volte la posta, il Terno 73,61 volte la posta."},
    {.chiave = "radicali",
     .carica = "carica_radicali",
     .righe = 8,
     .colonne = 4,
     .regola = ogni<1, 8, [](int i) { return std::array{i, 10 * i, 11 * i, 10 * i + 9}; }>,
     .descrizione =
         "I Radicali sono 8 quartine formate dal numeretto, dal numero zerato in decina, dal numero gemello "
         "e dal corrispondente numero con finale 9. L’Ambo su 4 numeri paga 40,42 volte la posta, il Terno "
         "1.030,62 volte. Giocando tutte le 8 quartine l’ambo paga 5,05 volte, il Terno 128,83 volte."},
});
static_assert(kFamiglie.size() == 42);

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

/// The numbers of a plain list after its first line; nothing if it holds fewer than `attesi`, or anything
/// that is no number 1 to 90. What follows the last wanted number is not looked at.
std::vector<Numero> leggi_numeri(std::string_view testo, std::size_t attesi) {
    constexpr std::string_view kSeparatori = ", \t\r\n";
    std::vector<Numero> numeri;
    const auto prima_linea = testo.find('\n');
    testo.remove_prefix(prima_linea == std::string_view::npos ? testo.size() : prima_linea + 1);
    while (numeri.size() < attesi) {
        const auto inizio = testo.find_first_not_of(kSeparatori);
        if (inizio == std::string_view::npos) return {};
        testo.remove_prefix(inizio);
        const std::string_view campo = testo.substr(0, testo.find_first_of(kSeparatori));
        int numero = 0;
        const auto [fine, errore] = std::from_chars(campo.data(), campo.data() + campo.size(), numero);
        if (errore != std::errc{} || fine != campo.data() + campo.size() || numero < 1 || numero > kNumeri)
            return {};
        numeri.push_back(static_cast<Numero>(numero));
        testo.remove_prefix(campo.size());
    }
    return numeri;
}

template <class Campo>
const Famiglia* trova(std::string_view testo, Campo campo) {
    const auto it = std::find_if(kFamiglie.begin(), kFamiglie.end(),
                                 [&](const Famiglia& f) { return f.*campo == testo; });
    return it == kFamiglie.end() ? nullptr : &*it;
}

}  // namespace

std::span<const Famiglia> famiglie() {
    return kFamiglie;
}

const Famiglia* trova_famiglia(std::string_view chiave) {
    return trova(chiave, &Famiglia::chiave);
}

const Famiglia* trova_caricatore(std::string_view carica) {
    return trova(carica, &Famiglia::carica);
}

std::expected<SerieCorrente, std::string> carica_serie(const Famiglia& famiglia,
                                                       const std::filesystem::path& cartella) {
    if (!famiglia.su_file) return componi(famiglia);
    constexpr std::size_t kMassimo = 1U << 20;
    const auto testo = leggi_file(cartella / kFileCinquine, kMassimo);
    SerieCorrente s{.colonne = famiglia.colonne};
    if (testo) s.numeri = leggi_numeri(*testo, famiglia.righe * famiglia.colonne);
    if (s.numeri.empty()) return std::unexpected(std::string{kFileDanneggiato});
    return s;
}

std::string etichetta_membro(const Famiglia& famiglia, const SerieCorrente& serie, std::size_t i) {
    const auto membro = serie.membro(i);
    std::string testo;
    switch (famiglia.etichetta) {
        case EtichettaMembro::numeri:
            break;
        case EtichettaMembro::decina:
            if (i == 0) return "1/9 (90)";
            [[fallthrough]];
        case EtichettaMembro::primo_ultimo:
            aggiungi_intero(testo, membro.front());
            testo += '/';
            aggiungi_intero(testo, membro.back());
            break;
        case EtichettaMembro::cifra:
            if (i + 1 == serie.righe()) return "9/0";
            aggiungi_intero(testo, membro.front());
            break;
    }
    return testo;
}

}  // namespace sortimetra
