#include "support/archivi.h"

#include "statistics/cinquine_dei_90.h"
#include "stores/importa.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <numeric>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace sortimetra::prove {

namespace {

using std::chrono::days;

const Data kPrimoGiorno = leggi_data_iso("2000-01-01").value();

Numero cella(const std::string& testo) {
    return testo == "-" ? Numero{0} : static_cast<Numero>(std::stoi(testo));
}

template <class Riga>
void per_ogni_linea(std::string_view testo, Riga&& riga) {
    std::istringstream tutto{std::string{testo}};
    std::string linea;
    while (std::getline(tutto, linea)) {
        std::istringstream campi{linea};
        std::string primo;
        if (!(campi >> primo)) continue;
        std::optional<Data> data = leggi_data_iso(primo);
        if (data) campi >> primo;
        const Concorso concorso = std::stoi(primo);
        riga(concorso, data.value_or(kPrimoGiorno + days{concorso - 1}), campi);
    }
}

template <class Numeri>
void leggi_numeri(std::istringstream& campi, Numeri& numeri) {
    std::string testo;
    for (Numero& n : numeri)
        if (campi >> testo) n = cella(testo);
}

template <std::size_t N>
std::array<Numero, N> estrai(std::mt19937& caso, int massimo) {
    std::array<int, kNumeri> urna{};
    std::iota(urna.begin(), urna.begin() + massimo, 1);
    std::shuffle(urna.begin(), urna.begin() + massimo, caso);
    std::array<Numero, N> numeri{};
    for (std::size_t i = 0; i < N; ++i) numeri[i] = static_cast<Numero>(urna[i]);
    return numeri;
}

int fra(std::mt19937& caso, int da, int a) {
    return std::uniform_int_distribution<int>{da, a}(caso);
}
bool una_su(std::mt19937& caso, int n) {
    return fra(caso, 1, n) == 1;
}

ArchivioEstrazioni obbligatorio(RigheArchivio righe) {
    auto archivio = ArchivioEstrazioni::componi(std::move(righe));
    if (!archivio) throw std::logic_error(archivio.error().testo());
    return std::move(*archivio);
}

}  // namespace

ArchivioEstrazioni da_testi(std::string_view lotto, std::string_view superenalotto,
                            std::string_view winforlife) {
    RigheArchivio righe;
    per_ogni_linea(lotto, [&](Concorso concorso, Data data, std::istringstream& campi) {
        RigaLotto r{.concorso = concorso, .data = data};
        std::string codice;
        campi >> codice;
        r.ruota = indice_ruota(codice).value();
        leggi_numeri(campi, r.numeri);
        (r.ruota == kNazionale ? righe.nazionale : righe.lotto).push_back(r);
    });
    per_ogni_linea(superenalotto, [&](Concorso concorso, Data data, std::istringstream& campi) {
        RigaSuperEnalotto r{.concorso = concorso, .data = data};
        leggi_numeri(campi, r.numeri);
        std::array<Numero, 2> altri{};
        leggi_numeri(campi, altri);
        r.jolly = altri[0];
        r.superstar = altri[1];
        righe.superenalotto.push_back(r);
    });
    per_ogni_linea(winforlife, [&](Concorso concorso, Data data, std::istringstream& campi) {
        RigaWinForLife r{.concorso = concorso, .data = data};
        campi >> r.ora;
        leggi_numeri(campi, r.numeri);
        righe.winforlife.push_back(r);
    });
    return obbligatorio(std::move(righe));
}

ArchivioEstrazioni da_testo(std::string_view testo) {
    return da_testi(testo, "", "");
}

ArchivioEstrazioni archivio_casuale(std::uint32_t seme) {
    std::mt19937 caso{seme};
    RigheArchivio righe;
    const int grandezza = fra(caso, 0, 5);
    const int estrazioni = grandezza == 0 ? fra(caso, 0, 2) : fra(caso, 1, 60 * grandezza);
    // Few numbers in the urn make hits, ties and repeated delays frequent; all 90 make absent ones frequent.
    const int urna = una_su(caso, 3) ? kNumeri : fra(caso, 25, kNumeri);
    const bool ruote_mancanti = una_su(caso, 2);
    const bool celle_vuote = una_su(caso, 2);
    const bool buchi = una_su(caso, 5);
    Data data = kPrimoGiorno + days{fra(caso, 0, 3000)};
    Concorso concorso = 0;
    for (int e = 0; e < estrazioni; ++e) {
        concorso += buchi && una_su(caso, 10) ? 2 : 1;
        data += days{fra(caso, 1, 4)};
        for (int w = 0; w < kRuote; ++w) {
            if (ruote_mancanti && una_su(caso, 8)) continue;
            RigaLotto r{.concorso = concorso, .data = data, .ruota = w};
            r.numeri = estrai<kEstratti>(caso, urna);
            if (celle_vuote && una_su(caso, 15)) r.numeri[static_cast<std::size_t>(fra(caso, 0, 4))] = 0;
            if (celle_vuote && una_su(caso, 25)) r.numeri = {};
            righe.lotto.push_back(r);
        }
        if (e > estrazioni / 3 && !una_su(caso, 20))
            righe.nazionale.push_back({concorso, data, kNazionale, estrai<kEstratti>(caso, urna)});
        if (e > estrazioni / 4 && !una_su(caso, 10)) {
            RigaSuperEnalotto r{.concorso = concorso, .data = data};
            const auto otto = estrai<8>(caso, urna);
            std::copy_n(otto.begin(), 6, r.numeri.begin());
            r.jolly = otto[6];
            r.superstar = una_su(caso, 4) ? Numero{0} : otto[7];
            if (celle_vuote && una_su(caso, 20)) r.numeri[static_cast<std::size_t>(fra(caso, 0, 5))] = 0;
            righe.superenalotto.push_back(r);
        }
    }
    const int ore = grandezza == 0 ? fra(caso, 0, 2) : fra(caso, 1, 300);
    Concorso wfl = 0;
    for (int e = 0; e < ore; ++e) {
        wfl += una_su(caso, 40) ? 0 : 1;
        RigaWinForLife r{.concorso = std::max(wfl, 1), .data = kPrimoGiorno + days{e / 17}};
        const int ora = 7 + e % 17;
        r.ora = (una_su(caso, 2) && ora < 10 ? "0"
                 : una_su(caso, 10)          ? " "
                                             : "") +
                std::to_string(ora) + ":00";
        r.numeri = estrai<10>(caso, kNumeriWinForLife);
        if (celle_vuote && una_su(caso, 20)) r.numeri[static_cast<std::size_t>(fra(caso, 0, 9))] = 0;
        righe.winforlife.push_back(std::move(r));
    }
    return obbligatorio(std::move(righe));
}

AmbitoRicerca ambito_casuale(std::uint32_t seme) {
    std::mt19937 caso{seme * 7919U + 1U};
    AmbitoRicerca ambito;
    switch (fra(caso, 0, 5)) {
        case 0:
            ambito.ruote = SelezioneRuote::tutte();
            break;
        case 1:
            ambito.ruote = SelezioneRuote::nazionale();
            break;
        case 2:
            ambito.ruote = SelezioneRuote::nessuna();
            break;
        default:
            ambito.ruote = SelezioneRuote::nessuna();
            for (int n = fra(caso, 1, 6); n > 0; --n) ambito.ruote.clic(fra(caso, 0, 9), true);
    }
    if (una_su(caso, 2)) ambito.intervallo = static_cast<std::size_t>(fra(caso, 0, 20));
    if (una_su(caso, 2)) ambito.ora = static_cast<std::size_t>(fra(caso, 0, 15));
    if (una_su(caso, 2)) ambito.tratto.da = fra(caso, -3, 200);
    if (una_su(caso, 2)) ambito.tratto.a = fra(caso, 1, 400);
    return ambito;
}

Domanda domanda(std::string_view chiave, AmbitoRicerca ambito) {
    Domanda d;
    d.ricerca = trova_ricerca(chiave);
    d.ambito = ambito;
    return d;
}

Risposta rispondi(Domanda domanda, const ArchivioEstrazioni& archivio,
                  const std::filesystem::path& cartella) {
    SenzaAvanzamento nessuno;
    return sortimetra::rispondi(std::move(domanda), archivio, cartella, nessuno);
}

Risultato esegui(Domanda domanda, const ArchivioEstrazioni& archivio, const std::filesystem::path& cartella) {
    return *rispondi(std::move(domanda), archivio, cartella).risultato;
}

Risposta risposta_da(Risultato risultato) {
    return {.domanda = domanda_intatta(*trova_ricerca("ritardo e frequenza dei 90 numeri")),
            .risultato = std::make_shared<const Risultato>(std::move(risultato))};
}

std::vector<std::string> messaggi(const Risultato& risultato) {
    std::vector<std::string> testi;
    for (const Messaggio& m : risultato.messaggi) testi.push_back(m.testo);
    return testi;
}

std::filesystem::path cartella_dati() {
    return std::filesystem::path{SORTIMETRA_RADICE} / "data";
}

const Famiglia* famiglia(std::string_view chiave) {
    const Ricerca* ricerca = trova_ricerca(chiave);
    return ricerca == nullptr ? nullptr : ricerca->famiglia;
}

SerieCorrente serie(const Famiglia& famiglia) {
    return famiglia.su_file ? leggi_cinquine_dei_90(cartella_dati()).value_or(SerieCorrente{})
                            : carica_serie(famiglia);
}

std::string righe(const Tabella& tabella) {
    std::string testo;
    for (std::size_t r = 0; r < tabella.righe(); ++r) {
        for (std::size_t c = 0; c < tabella.n_colonne(); ++c) {
            if (c > 0) testo += ' ';
            tabella.aggiungi_testo(testo, r, c);
        }
        testo += '\n';
    }
    return testo;
}

std::string riga(const Risultato& risultato, std::string_view prima) {
    if (risultato.tabelle.empty()) return {};
    const Tabella& t = risultato.tabelle.front();
    for (std::size_t r = 0; r < t.righe(); ++r) {
        if (t.testo(r, 0) != prima) continue;
        std::string testo{prima};
        for (std::size_t c = 1; c < t.n_colonne(); ++c) {
            testo += ' ';
            t.aggiungi_testo(testo, r, c);
        }
        return testo;
    }
    return {};
}

std::optional<std::filesystem::path> cartella_condivisa() {
    const std::filesystem::path cartella = std::filesystem::path{SORTIMETRA_RADICE}.parent_path() / "shared";
    std::error_code errore;
    if (!std::filesystem::is_directory(cartella / "archivio", errore)) return std::nullopt;
    return cartella;
}

const ArchivioEstrazioni* archivio_vero() {
    static const std::optional<ArchivioEstrazioni> vero = []() -> std::optional<ArchivioEstrazioni> {
        const auto cartella = cartella_condivisa();
        if (!cartella) return std::nullopt;
        SenzaAvanzamento nessuno;
        auto letti = leggi_pubblicati({.lotto = *cartella / "archivio" / "lotto.txt",
                                       .superenalotto = *cartella / "archivio" / "superenalotto.csv",
                                       .winforlife = *cartella / "archivio" / "winforlife.csv"},
                                      nessuno);
        if (!letti) throw std::logic_error(letti.error().testo());
        return obbligatorio(std::move(letti->righe));
    }();
    return vero ? &*vero : nullptr;
}

CartellaProva::CartellaProva() {
    std::string modello = (std::filesystem::temp_directory_path() / "sortimetra-XXXXXX").string();
    if (mkdtemp(modello.data()) == nullptr) throw std::logic_error("no temporary folder");
    percorso_ = modello;
}

CartellaProva::~CartellaProva() {
    std::error_code errore;
    std::filesystem::remove_all(percorso_, errore);
}

}  // namespace sortimetra::prove
