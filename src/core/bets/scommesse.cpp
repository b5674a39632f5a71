#include "bets/scommesse.h"

#include "bets/parametri.h"
#include "draws/ambito.h"
#include "results/risultato.h"
#include "statistics/misure.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

constexpr int kMeta = 45;                   ///< the numbers up to here are low
constexpr std::ptrdiff_t kMaggioranza = 3;  ///< of five

constexpr std::array<std::string_view, 2> kUnderOver{"Under", "Over"};
constexpr std::array<std::string_view, 2> kPrimoUltimo{"Primo", "Ultimo"};
constexpr std::array<std::string_view, 2> kBassiAlti{"Bassi", "Alti"};
constexpr std::array<std::string_view, 2> kDispariPari{"Dispari", "Pari"};
constexpr std::array<std::string_view, 3> kTerzi{"1/30", "31/60", "61/90"};
constexpr std::array<std::string_view, 2> kLettereUnderOver{"U", "O"};
constexpr std::array<std::string_view, 2> kLetterePrimoUltimo{"P", "U"};
constexpr std::array<std::string_view, 2> kLettereBassiAlti{"B", "A"};
constexpr std::array<std::string_view, 2> kLettereDispariPari{"D", "P"};

constexpr std::array<Scommessa, 9> kScommesse{{
    {"Under/Over", "Under/Over", kUnderOver, kLettereUnderOver, under_over},
    {"Primo Vs Ultimo", "Primo Vs Ultimo", kPrimoUltimo, kLetterePrimoUltimo, primo_vs_ultimo},
    {"Bassi Vs Alti", "Bassi Vs Alti", kBassiAlti, kLettereBassiAlti, bassi_vs_alti},
    {"Dispari vs Pari", "Dispari Vs Pari", kDispariPari, kLettereDispariPari, dispari_vs_pari},
    {"1° Estratto", "1° Estratto", kTerzi, kTerzi, sub1_5_estratti<1>},
    {"2° Estratto", "2° Estratto", kTerzi, kTerzi, sub1_5_estratti<2>},
    {"3° Estratto", "3° Estratto", kTerzi, kTerzi, sub1_5_estratti<3>},
    {"4° Estratto", "4° Estratto", kTerzi, kTerzi, sub1_5_estratti<4>},
    {"5° Estratto", "5° Estratto", kTerzi, kTerzi, sub1_5_estratti<5>},
}};
constexpr std::size_t kEsitiMassimi = 3;

/// No outcome: the row's first cell is empty.
constexpr std::uint8_t kNessunEsito = 0xFF;

/// The rows of one table of draws in scope, in order, `per_concorso` of them to a draw.
struct Righe {
    std::size_t per_concorso = 1;
    std::vector<std::uint8_t> esiti{};
    std::vector<Concorso> concorsi{};

    /// The draws that are counted: rows over wheels, rounded.
    [[nodiscard]] Estrazioni c() const {
        return Estrazioni{quoziente_pari(esiti.size(), static_cast<int>(per_concorso))};
    }
    /// The draws that are shown one by one.
    [[nodiscard]] std::size_t ultimi() const {
        return std::min(static_cast<std::size_t>(std::int32_t{c()}), kUltimiConcorsi);
    }
    /// The row where the i-th of those, the newest at 0, begins. A long scope is read from its end, a short
    /// one from its start.
    [[nodiscard]] std::size_t inizio_ultimo(std::size_t i) const {
        const std::size_t blocco = kUltimiConcorsi * per_concorso;
        const std::size_t inizio = esiti.size() < blocco ? 0 : esiti.size() - blocco;
        return inizio + (ultimi() - 1 - i) * per_concorso;
    }
};

Righe classifica(const ArchivioEstrazioni& archivio, AmbitoRicerca ambito, SelezioneRuote ruote,
                 const Scommessa& scommessa, float limite) {
    ambito.ruote = ruote;
    const VistaEstrazioni vista{archivio, ambito};
    Righe righe{.per_concorso = static_cast<std::size_t>(vista.n_ruote())};
    righe.esiti.reserve(vista.righe());
    righe.concorsi.reserve(vista.righe());
    SenzaAvanzamento nessuno;
    percorri(vista, nessuno, [&](int c, const Numero* numeri) {
        righe.esiti.push_back(
            numeri[0] == 0 ? kNessunEsito : static_cast<std::uint8_t>(scommessa.classifica(numeri, limite)));
        righe.concorsi.push_back(vista.concorso(static_cast<std::size_t>(c) - 1));
    });
    return righe;
}

/// The measures of each outcome, wheel by wheel.
std::vector<std::array<Misura, kEsitiMassimi>> misura_esiti(const Righe& righe) {
    std::vector<std::array<Misura, kEsitiMassimi>> misure(righe.per_concorso);
    const auto contate = static_cast<std::size_t>(std::int32_t{righe.c()}) * righe.per_concorso;
    for (std::size_t k = 0; k < std::min(righe.esiti.size(), contate); ++k) {
        if (righe.esiti[k] == kNessunEsito) continue;
        esce(misure[k % righe.per_concorso][righe.esiti[k]],
             static_cast<std::int32_t>(k / righe.per_concorso) + 1);
    }
    return misure;
}

/// The grid: the wheels' names, three columns per outcome, one per draw that is shown.
class Griglia {
  public:
    Griglia(const Scommessa& scommessa, std::size_t ultimi)
        : scommessa_{scommessa},
          ultimi_{ultimi},
          titoli_{titoli_scommessa(scommessa, ultimi)},
          misure_(scommessa.esiti.size() * 3),
          lettere_(ultimi) {}

    /// The rows of the wheels from `prima` on; those of a table without a draw stay empty if `vuote`.
    void aggiungi(const Righe& righe, std::size_t prima, bool vuote) {
        const auto misure = misura_esiti(righe);
        for (std::size_t w = 0; w < righe.per_concorso; ++w) {
            ruote_.valori.emplace_back(kNomiRuote[prima + w].esteso);
            for (std::size_t e = 0; e < scommessa_.esiti.size(); ++e) {
                const Misura& m = misure[w][e];
                misure_[e * 3].valori.push_back(vuote ? kCellaVuota : m.frequenza);
                misure_[e * 3 + 1].valori.push_back(vuote ? kCellaVuota : ritardo(m, righe.c()));
                misure_[e * 3 + 2].valori.push_back(vuote ? kCellaVuota : m.storico);
            }
            for (std::size_t i = 0; i < ultimi_; ++i) lettere_[i].valori.push_back(lettera(righe, w, i));
        }
        for (std::size_t i = 0; i < righe.ultimi(); ++i)
            titoli_[1][prima_lettera() + i] = std::to_string(righe.concorsi[righe.inizio_ultimo(i)]);
    }

    [[nodiscard]] Tabella tabella() && {
        Tabella t;
        t.titoli = std::move(titoli_);
        t.colonne.emplace_back(std::move(ruote_));
        for (ColonnaInteri& colonna : misure_) t.colonne.emplace_back(std::move(colonna));
        for (ColonnaTesti& colonna : lettere_) t.colonne.emplace_back(std::move(colonna));
        return t;
    }

  private:
    [[nodiscard]] std::size_t prima_lettera() const { return 1 + misure_.size(); }

    [[nodiscard]] std::string lettera(const Righe& righe, std::size_t ruota, std::size_t ultimo) const {
        if (ultimo >= righe.ultimi()) return {};
        const std::size_t k = righe.inizio_ultimo(ultimo) + ruota;
        if (k >= righe.esiti.size() || righe.esiti[k] == kNessunEsito) return {};
        return std::string{scommessa_.lettere[righe.esiti[k]]};
    }

    const Scommessa& scommessa_;
    std::size_t ultimi_;
    std::vector<std::vector<std::string>> titoli_;
    ColonnaTesti ruote_;
    std::vector<ColonnaInteri> misure_;
    std::vector<ColonnaTesti> lettere_;
};

}  // namespace

std::size_t under_over(const Numero* numeri, float limite) {
    return static_cast<float>(std::accumulate(numeri, numeri + kEstratti, 0)) < limite ? 0 : 1;
}

std::size_t primo_vs_ultimo(const Numero* numeri, float /*limite*/) {
    return numeri[kEstratti - 1] >= numeri[0] ? 1 : 0;
}

std::size_t bassi_vs_alti(const Numero* numeri, float /*limite*/) {
    return std::count_if(numeri, numeri + kEstratti, [](Numero n) { return n > kMeta; }) >= kMaggioranza ? 1
                                                                                                         : 0;
}

std::size_t dispari_vs_pari(const Numero* numeri, float /*limite*/) {
    return std::count_if(numeri, numeri + kEstratti, [](Numero n) { return n % 2 == 1; }) >= kMaggioranza ? 0
                                                                                                          : 1;
}

std::span<const Scommessa> scommesse() {
    return kScommesse;
}

const Scommessa& scommessa_chiesta(const Domanda& domanda) {
    const auto analisi = static_cast<std::size_t>(domanda.di<ParametriScommesse>().analisi);
    return kScommesse[std::min(analisi, kScommesse.size() - 1)];
}

std::vector<std::vector<std::string>> titoli_scommessa(const Scommessa& scommessa, std::size_t ultimi) {
    const std::size_t esiti = scommessa.esiti.size();
    std::vector<std::vector<std::string>> titoli(3, std::vector<std::string>(1 + esiti * 3 + ultimi));
    titoli[0][0] = "Ruota";
    for (std::size_t e = 0; e < esiti; ++e) {
        titoli[0][1 + e * 3] = scommessa.esiti[e];
        titoli[1][1 + e * 3] = "F";
        titoli[1][2 + e * 3] = "R";
        titoli[1][3 + e * 3] = "RS";
    }
    if (ultimi > 0) titoli[0][1 + esiti * 3] = "Ultimi 10 concorsi";
    return titoli;
}

Risultato scommesse_lotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                          Avanzamento& avanzamento) {
    const auto& parametri = domanda.di<ParametriScommesse>();
    const Scommessa& scommessa = scommessa_chiesta(domanda);
    const Righe dieci =
        classifica(archivio, domanda.ambito, SelezioneRuote::tutte(), scommessa, parametri.in_vigore());
    avanzamento.procedi(1, 2);
    const Righe nazionale =
        classifica(archivio, domanda.ambito, SelezioneRuote::nazionale(), scommessa, parametri.in_vigore());
    Griglia griglia{scommessa, std::max(dieci.ultimi(), nazionale.ultimi())};
    griglia.aggiungi(dieci, 0, false);
    griglia.aggiungi(nazionale, kNazionale, nazionale.esiti.empty());
    avanzamento.procedi(2, 2);
    Risultato risultato;
    risultato.tabelle.push_back(std::move(griglia).tabella());
    return risultato;
}

std::expected<void, Messaggio> carica_limite(const std::filesystem::path& cartella, Domanda& domanda) {
    auto& parametri = domanda.parametri.per<ParametriScommesse>();
    // The file is asked only for what needs it.
    if (parametri.analisi != 0 || parametri.limite) return {};
    const auto letto = leggi_limite(cartella);
    if (!letto) return std::unexpected(Messaggio{Avviso::altro, letto.error().testo()});
    if (*letto) parametri.archiviato = (*letto)->valore;
    return {};
}

}  // namespace sortimetra
