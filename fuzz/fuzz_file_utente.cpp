#include "bets/limite.h"
#include "cartella.h"
#include "conti.h"
#include "files/memoria_ricerca.h"
#include "morsi.h"
#include "personal/file_gruppi.h"
#include "personal/poste.h"
#include "personal/taratura.h"
#include "stores/pubblicati.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace {

using namespace sortimetra;
using Percorso = std::filesystem::path;
/// What a reader makes of a file, as a text; nothing where it refuses it.
using Risposta = std::optional<std::string>;

/// A file of the user's, or one to import.
struct FileUtente {
    std::string_view nome;
    Risposta (*leggi)(const Percorso& cartella, std::string_view byte);
    std::string sano;
    /// How many of its lines there must be, or what it says of them: a line that is missing shows.
    bool conta_le_righe = true;
    /// Told to be read as far as it goes.
    bool indulgente = false;
    /// Of a list that may have any number of entries: lines of one. 0 for none.
    int righe_di_una_voce = 0;
};

Risposta gruppi(const Percorso& cartella, std::string_view) {
    const auto voci = elenca_gruppi(cartella);
    if (!voci) return std::nullopt;
    std::string testo;
    for (const VoceGruppo& v : *voci) {
        testo += v.nome + ':' + std::to_string(v.lunghette) + 'x' + std::to_string(v.numeri) + '\n';
        const auto aperto = apri_gruppo(cartella, v.nome);
        if (!aperto) return std::nullopt;
        for (const Numero n : aperto->numeri) testo += std::to_string(n) + ' ';
    }
    return testo;
}

Risposta poste(const Percorso& cartella, std::string_view) {
    const auto lette = leggi_poste(cartella);
    if (!lette) return std::nullopt;
    std::string testo;
    for (const RigaPoste& r : *lette) {
        for (const Centesimi c : r.poste) testo += std::to_string(c) + ' ';
        testo += r.stampa ? "1\n" : "0\n";
    }
    return testo;
}

Risposta taratura(const Percorso& cartella, std::string_view) {
    const auto letta = apri_taratura_lotto(cartella);
    if (!letta) return std::nullopt;
    return *letta == default_taratura_lotto() ? "predefinita" : "altra";
}

Risposta limite(const Percorso& cartella, std::string_view) {
    const auto letto = leggi_limite(cartella);
    if (!letto || !*letto) return std::nullopt;
    return (*letto)->testo + '=' + std::to_string((*letto)->valore);
}

Risposta skin(const Percorso& cartella, std::string_view) {
    const auto letta = leggi_skin(cartella);
    if (!letta) return std::nullopt;
    return std::to_string(*letta);
}

template <class Righe>
Risposta righe(const Righe& lette) {
    if (!lette) return std::nullopt;
    std::string testo;
    for (const auto& r : *lette) {
        testo += testo_data(r.data);
        for (const Numero n : r.numeri) testo += ' ' + std::to_string(n);
        testo += '\n';
    }
    return testo;
}

Risposta lotto(const Percorso&, std::string_view byte) {
    SenzaAvanzamento nessuno;
    return righe(leggi_testo_lotto(byte, nessuno));
}
Risposta superenalotto(const Percorso&, std::string_view byte) {
    SenzaAvanzamento nessuno;
    return righe(leggi_testo_superenalotto(byte, nessuno));
}
Risposta winforlife(const Percorso&, std::string_view byte) {
    SenzaAvanzamento nessuno;
    return righe(leggi_testo_winforlife(byte, nessuno));
}

const std::array<FileUtente, 8>& file_utente() {
    static const std::array<FileUtente, 8> tutti{{
        {"grup.dat", gruppi, "\"uno\"\r\n2,3\r\n1,2,3,88,89,90\r\n\"Più di due\"\r\n1,4\r\n11,22,33,44\r\n",
         true, false, 3},
        {"impir.dat", poste,
         "5,0,0,0,0,1\r\n0,1,0,0,0,1\r\n0,1,1,0,0,0\r\n0,2,1,3,0,1\r\n0,2,1,3,4,1\r\n"
         "0,2,1,3,4,1\r\n0,3,1,4,2,1\r\n0,3,1,4,2,0\r\n0,3,1,4,2,1\r\n0,4,1,3,2,1\r\n"},
        {"tarlo", taratura, {}},
        {"uo.dat", limite, "\"227,5\"\r\n", true, true},
        {"skn.dat", skin, "3", true, true},
        {"lotto.txt", lotto,
         "2000/01/01\tBA\t90\t12\t33\t4\t5\n2000/01/01\tRM\t1\t2\t90\t3\t4\n"
         "2000/01/04\tBA\t7\t8\t9\t10\t11\n2000/01/04\tRM\t7\t21\t22\t23\t24\n"
         "2000/01/04\tRN\t50\t51\t52\t53\t54\n",
         false},
        {"superenalotto.csv", superenalotto,
         "data;n1;n2;n3;n4;n5;n6;jolly;superstar\n2000-01-01;1;2;3;4;5;6;7;8\n"
         "2000-01-09;11;12;13;14;15;16;17;18\n2000-03-01;21;22;23;24;25;26;27;28\n",
         false},
        {"winforlife.csv", winforlife,
         "concorso;data;ora;n1;n2;n3;n4;n5;n6;n7;n8;n9;n10;numerone\n"
         "501;2000-01-01;08:00;1;2;3;4;5;6;7;8;9;10;3\n502;2000-01-01;09:00;11;12;13;14;15;16;17;18;19;20;"
         "5\n",
         false},
    }};
    return tutti;
}

// ---- damage ----

constexpr std::string_view kDivisori = ",;\t\"\r\n/-:";

bool fra_virgolette(std::string_view testo, std::size_t posto) {
    return std::count(testo.begin(), testo.begin() + static_cast<std::ptrdiff_t>(posto), '"') % 2 != 0;
}

/// The line around a place, with its end.
std::pair<std::size_t, std::size_t> linea(std::string_view testo, std::size_t posto) {
    const std::size_t prima = posto == 0 ? std::string_view::npos : testo.rfind('\n', posto - 1);
    const std::size_t da = prima == std::string_view::npos ? 0 : prima + 1;
    const std::size_t a = testo.find('\n', posto);
    return {da, (a == std::string_view::npos ? testo.size() : a + 1) - da};
}

/// Whether the text ends behind an entry, of so many lines each; of the last one the end may be missing.
bool righe_intere(std::string_view testo, int di_una_voce) {
    const auto fini =
        std::count(testo.begin(), testo.end(), '\n') + (testo.empty() || testo.ends_with('\n') ? 0 : 1);
    return di_una_voce != 0 && fini % di_una_voce == 0;
}

/// One thing wrong with the text; whether nothing in it could tell.
bool guasta(std::string& testo, const FileUtente& file, fuzz::Morsi& morsi) {
    const unsigned che = morsi.byte() % 6U;
    const std::size_t posto = morsi.sotto(testo.size());
    const bool divisore = kDivisori.find(testo[posto]) != std::string_view::npos;
    const bool in_nome = fra_virgolette(testo, posto);
    switch (che) {
        case 0:
            testo.resize(posto);
            return !file.conta_le_righe || righe_intere(testo, file.righe_di_una_voce);
        case 1: {
            const auto [da, quanti] = linea(testo, posto);
            testo.erase(da, quanti);
            return !file.conta_le_righe;
        }
        case 2: {
            const auto [da, quanti] = linea(testo, posto);
            testo.insert(da, testo.substr(da, quanti));
            return false;
        }
        case 3:  // a digit less is another number
            testo.erase(posto, 1);
            return !divisore || in_nome;
        case 4:
            testo[posto] = 'x';
            return in_nome;
        default:
            testo.insert(posto, 1, 'x');
            return in_nome;
    }
}

}  // namespace

/// A sound file of the user's with one thing wrong: refused, or the sound file's answer, unless what was
/// changed is a value that could as well have been meant.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    static const fuzz::Cartella cartella;
    static fuzz::Conti conti{"fuzz_file_utente"};
    fuzz::Morsi morsi{dati, n};
    const FileUtente& file = file_utente().at(morsi.byte() % file_utente().size());
    std::string testo = file.sano;
    if (testo.empty()) {
        if (!SALVA_DATI(cartella.percorso(), default_taratura_lotto())) std::abort();
        testo = cartella.leggi(file.nome);
    }
    cartella.scrivi(file.nome, testo);
    const Risposta sana = file.leggi(cartella.percorso(), testo);
    if (!sana) std::abort();
    const std::string prima = testo;
    const bool indistinguibile = guasta(testo, file, morsi);
    cartella.scrivi(file.nome, testo);
    const Risposta letta = file.leggi(cartella.percorso(), testo);
    if (!letta)
        conti.rifiutato();
    else if (letta == sana)
        conti.uguale();
    else if (indistinguibile || file.indulgente)
        conti.inevitabile();
    else
        conti.diverso(std::string{file.nome} + ": " + testo);
    return 0;
}
