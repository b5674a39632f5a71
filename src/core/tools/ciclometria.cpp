#include "tools/ciclometria.h"

#include "draws/cursore.h"
#include "results/risultato.h"
#include "tools/parametri.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

constexpr std::size_t kRigheTabella = kRuote;
constexpr std::size_t kCoppie = kEstratti - 1;

/// One value per wheel's row and place; 0 shows "...".
template <std::size_t Posti>
using Valori = std::array<std::array<int, Posti>, kRigheTabella>;

Valori<kEstratti> carica_estrazione(const ArchivioEstrazioni& archivio, Concorso concorso) {
    Valori<kEstratti> estratti{};
    Cursore righe = estrazione_concorso(archivio, concorso);
    std::array<int, kEstratti> ultima{};
    for (auto& riga : estratti) {
        if (const auto letta = righe.corrente()) {
            std::copy_n(letta->numeri().begin(), kEstratti, ultima.begin());
            righe.successivo();
        }
        riga = ultima;
    }
    return estratti;
}

template <class Misura>
Valori<kCoppie> misura_coppie(const Valori<kEstratti>& estratti, Misura&& misura) {
    Valori<kCoppie> valori{};
    for (std::size_t w = 0; w < kRigheTabella; ++w)
        for (std::size_t p = 0; p < kCoppie; ++p) valori[w][p] = misura(estratti[w][p], estratti[w][p + 1]);
    return valori;
}

/// The shade that each value was given, over all columns of both tables of a draw.
using Memoria = std::array<Colore, kNumeri + 1>;

/// Shades the isotopes of a table column by column; the palette begins anew at each column, a value keeps
/// the shade that it once had. Column 0 of the table holds the wheels.
std::vector<Colore> colora(const Valori<kCoppie>& valori, Memoria& memoria) {
    constexpr std::size_t kColonne = kCoppie + 1;
    std::vector<Colore> sfondi;
    for (std::size_t w = 0; w < kRigheTabella; ++w)
        sfondi.insert(sfondi.end(), kColonne, kRigheCiclometria[w % kRigheCiclometria.size()]);
    for (std::size_t p = 0; p < kCoppie; ++p) {
        std::size_t prossimo = 0;
        const auto colore = [&](int valore) {
            Colore& suo = memoria[static_cast<std::size_t>(valore)];
            // Ten rows hold at most five values twice.
            if (suo == kNessunColore) suo = kPaletta[prossimo++];
            return suo;
        };
        for (std::size_t i = 0; i < kRigheTabella; ++i) {
            const int valore = valori[i][p];
            if (valore < 1) continue;
            for (std::size_t j = i + 1; j < kRigheTabella; ++j) {
                if (valori[j][p] != valore) continue;
                sfondi[i * kColonne + p + 1] = colore(valore);
                sfondi[j * kColonne + p + 1] = colore(valore);
            }
        }
    }
    return sfondi;
}

/// A table with the wheels' names before the values, one title over all columns.
template <std::size_t Posti>
Tabella tabella(std::string_view nome, std::string titolo, std::vector<std::string> teste,
                const Valori<Posti>& valori) {
    Tabella t;
    t.nome = nome;
    t.titoli.emplace_back(Posti + 1);
    t.titoli[0][0] = std::move(titolo);
    t.titoli.push_back(std::move(teste));
    ColonnaTesti ruote;
    for (std::size_t w = 0; w < kRigheTabella; ++w) ruote.valori.emplace_back(kNomiRuote[w].esteso);
    t.colonne.emplace_back(std::move(ruote));
    for (std::size_t p = 0; p < Posti; ++p) {
        ColonnaInteri colonna;
        for (std::size_t w = 0; w < kRigheTabella; ++w)
            colonna.valori.push_back(valori[w][p] > 0 ? valori[w][p] : kCellaPuntini);
        t.colonne.emplace_back(std::move(colonna));
    }
    return t;
}

std::vector<std::string> teste_posti() {
    std::vector<std::string> teste{""};
    for (int n = 1; n <= kEstratti; ++n) teste.push_back(fmt::format("{}°", n));
    return teste;
}

std::vector<std::string> teste_coppie() {
    std::vector<std::string> teste{""};
    for (int n = 1; n < kEstratti; ++n) teste.push_back(fmt::format("{}°- {}°", n, n + 1));
    return teste;
}

/// What a question without a draw is told.
std::string senza_estrazione(const Domanda& domanda) {
    const auto& parametri = domanda.di<ParametriCiclometria>();
    if (parametri.concorso) return fmt::format("Il concorso {} non è in archivio.", *parametri.concorso);
    if (parametri.data)
        return fmt::format("In archivio non c'è un'estrazione del {}, né una precedente.",
                           testo_data(*parametri.data));
    return "In archivio non ci sono estrazioni.";
}

/// "Bari, Roma e Venezia".
std::string elenco(const std::vector<std::string>& nomi) {
    std::string testo;
    for (std::size_t i = 0; i < nomi.size(); ++i) {
        if (i > 0) testo += i + 1 == nomi.size() ? " e " : ", ";
        testo += nomi[i];
    }
    return testo;
}

/// The lines of one column, by the first wheel of each value.
void isotopi_di(const Tabella& tabella, std::size_t colonna, std::vector<std::string>& testi) {
    std::map<std::string, std::vector<std::string>> ruote;
    std::vector<std::string> valori;
    for (std::size_t r = 0; r < tabella.righe(); ++r) {
        const std::string valore = tabella.testo(r, colonna);
        if (valore == "...") continue;
        auto& sue = ruote[valore];
        if (sue.empty()) valori.push_back(valore);
        sue.push_back(tabella.testo(r, 0));
    }
    const std::string& titolo = tabella.titoli[0][0];
    for (const std::string& valore : valori)
        if (ruote[valore].size() > 1)
            testi.push_back(fmt::format("{} {}: {} a {}", titolo.substr(0, titolo.find(' ')),
                                        tabella.titoli[1][colonna], valore, elenco(ruote[valore])));
}

}  // namespace

std::optional<Concorso> concorso_alla_data(const ArchivioEstrazioni& archivio, Data data) {
    const TabellaLotto& t = archivio.lotto();
    for (std::size_t i = t.concorso.size(); i-- > 0;)
        if (t.data[i] <= data) return t.concorso[i];
    return std::nullopt;
}

std::optional<Concorso> concorso_ciclometria(const ArchivioEstrazioni& archivio, const Domanda& domanda) {
    const auto& parametri = domanda.di<ParametriCiclometria>();
    if (parametri.data) return concorso_alla_data(archivio, *parametri.data);
    const Concorso concorso = parametri.concorso.value_or(archivio.ultimo_concorso());
    return cerca_concorso(archivio.lotto().concorso, concorso) ? std::optional{concorso} : std::nullopt;
}

Risultato ciclometria(const ArchivioEstrazioni& archivio, const Domanda& domanda, Avanzamento&) {
    const auto concorso = concorso_ciclometria(archivio, domanda);
    if (!concorso) {
        Risultato r = non_avviata({});
        r.note.push_back(senza_estrazione(domanda));
        return r;
    }
    const auto record = cerca_concorso(archivio.lotto().concorso, *concorso);
    const auto estratti = carica_estrazione(archivio, *concorso);
    const auto somme = misura_coppie(estratti, somma_ciclometrica);
    const auto distanze = misura_coppie(estratti, distanza_ciclometrica);
    Risultato r;
    r.tabelle.push_back(tabella("risultati", "Estrazione - " + testo_data(archivio.lotto().data[*record]),
                                teste_posti(), estratti));
    r.tabelle.push_back(tabella("somme", "Somma Ciclometrica", teste_coppie(), somme));
    r.tabelle.push_back(tabella("distanze", "Distanza Ciclometrica", teste_coppie(), distanze));
    Memoria memoria;
    memoria.fill(kNessunColore);
    r.tabelle[1].sfondi = colora(somme, memoria);
    r.tabelle[2].sfondi = colora(distanze, memoria);
    return r;
}

std::vector<std::string> testi_isotopi(const Risultato& risultato) {
    std::vector<std::string> testi;
    for (std::size_t t = 1; t < risultato.tabelle.size(); ++t)
        for (std::size_t c = 1; c < risultato.tabelle[t].n_colonne(); ++c)
            isotopi_di(risultato.tabelle[t], c, testi);
    return testi;
}

std::optional<std::string> controlla_ciclometria(const Domanda& domanda) {
    const auto& parametri = domanda.di<ParametriCiclometria>();
    if (!parametri.concorso || !parametri.data) return std::nullopt;
    return fmt::format("--data: trovata insieme a --concorso ({} e {}), attesa una sola delle due.",
                       testo_data(*parametri.data), *parametri.concorso);
}

}  // namespace sortimetra
