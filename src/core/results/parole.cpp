#include "results/parole.h"

#include "results/risultato.h"
#include "text/testi.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string>

namespace sortimetra {

namespace {

/// A row as an example reads it.
struct Riga {
    const Tabella& tabella;
    std::size_t riga;
    std::size_t colonna;

    [[nodiscard]] std::string nome() const { return std::string{rifila(tabella.testo(riga, 0))}; }
    [[nodiscard]] std::string valore() const { return std::string{rifila(tabella.testo(riga, colonna))}; }
    [[nodiscard]] std::optional<std::int32_t> intero() const {
        return intero_della_cella(tabella, riga, colonna);
    }
    /// The whole number that the same row has under another measure.
    [[nodiscard]] std::optional<std::int32_t> di(std::string_view misura) const {
        const auto c = colonna_della_misura(tabella, misura);
        return c ? intero_della_cella(tabella, riga, *c) : std::nullopt;
    }
};

std::string concorsi(std::int32_t n) {
    return n == 1 ? "1 concorso" : migliaia(n) + " concorsi";
}

std::string esempio_frequenza(const Riga& r) {
    const auto n = r.intero();
    if (!n || *n < 0) return {};
    return *n == 1 ? fmt::format("Per esempio {}: è uscito 1 volta.", r.nome())
                   : fmt::format("Per esempio {}: è uscito {} volte.", r.nome(), migliaia(*n));
}

std::string esempio_ritardo(const Riga& r) {
    const auto n = r.intero();
    if (!n || *n < 0) return {};
    if (*n == 0) return fmt::format("Per esempio {}: è uscito nell'ultimo concorso, ritardo 0.", r.nome());
    return fmt::format("Per esempio {}: manca da {}.", r.nome(), concorsi(*n));
}

std::string esempio_storico(const Riga& r) {
    const auto storico = r.intero();
    if (!storico || *storico < 0) return {};
    const auto ritardo = r.di("Ritardo");
    const std::string t =
        fmt::format("Per esempio {}: la sua attesa più lunga è stata di {}", r.nome(), concorsi(*storico));
    if (!ritardo || *ritardo < 0) return t + '.';
    if (*ritardo > *storico)
        return t + fmt::format("; oggi manca da {}, di più, ma quell'attesa non si è ancora chiusa.",
                               concorsi(*ritardo));
    return t + fmt::format("; oggi manca da {}.", concorsi(*ritardo));
}

std::string esempio_medio(const Riga& r) {
    return fmt::format("Qui: {} concorsi.", r.valore());
}

std::string esempio_percentuale(const Riga& r) {
    return fmt::format("Per esempio {}: {}.", r.nome(), r.valore());
}

std::string esempio_attesa(const Riga& r) {
    const auto frequenza = r.di("Frequenza");
    if (!frequenza) return fmt::format("Per esempio {}: il caso ne darebbe {}.", r.nome(), r.valore());
    return fmt::format("Per esempio {}: il caso ne darebbe {}, sono state {}.", r.nome(), r.valore(),
                       migliaia(*frequenza));
}

std::string esempio_scarto(const Riga& r) {
    return fmt::format(
        "Per esempio {}: {}, {}.", r.nome(), r.valore(),
        r.valore().starts_with('-') ? "meno uscite di quelle attese" : "più uscite di quelle attese");
}

std::string esempio_probabilita(const Riga& r) {
    const auto ritardo = r.di("Ritardo");
    if (!ritardo) return fmt::format("Per esempio {}: {}.", r.nome(), r.valore());
    return fmt::format("Per esempio {}: un ritardo di {} o più si trova nel {} dei casi.", r.nome(),
                       migliaia(*ritardo), r.valore());
}

std::string esempio_in_tabella(const Riga& r) {
    return fmt::format(
        "Per esempio {}: almeno una riga così, in una tabella come questa, si trova nel {} dei "
        "casi.",
        r.nome(), r.valore());
}

std::string esempio_record_atteso(const Riga& r) {
    const auto n = r.intero();
    const auto storico = r.di("Ritardo Storico");
    if (!n) return {};
    const std::string t = fmt::format("Per esempio {}: il caso ne aspetta uno di {}", r.nome(), concorsi(*n));
    return storico && *storico >= 0 ? t + fmt::format("; il suo è di {}.", migliaia(*storico)) : t + '.';
}

struct Voce {
    std::string_view nome;
    std::string_view frasi;
    std::string (*esempio)(const Riga&);
};

constexpr std::array kVoci{
    Voce{"Frequenza",
         "Quante volte è uscito nei concorsi cercati. Conta una volta per ogni ruota scelta su cui esce: con "
         "dieci ruote un solo concorso ne può dare anche dieci.",
         esempio_frequenza},
    Voce{"Ritardo",
         "Da quanti concorsi manca: 0 vuol dire che è uscito nell'ultimo. Con più ruote insieme basta che "
         "esca su una perché l'attesa ricominci.",
         esempio_ritardo},
    Voce{"Ritardo Storico",
         "Il più lungo ritardo già chiuso: quanti concorsi, al massimo, si sono dovuti aspettare fra due "
         "uscite. L'attesa di oggi non conta finché non esce: per questo il ritardo può superarlo.",
         esempio_storico},
    Voce{"Ritardo Medio",
         "La media dei ritardi già chiusi, in concorsi. È attorno a questo valore che le attese si "
         "dispongono, "
         "molte più corte e poche molto più lunghe.",
         esempio_medio},
    Voce{"Frequenza del ritardo",
         "Quante volte un'attesa è durata proprio tanti concorsi. Le attese corte sono sempre le più "
         "numerose: "
         "è così anche per un dado.",
         nullptr},
    Voce{"Percentuale",
         "La parte sul totale, in centesimi. Tutte le righe insieme fanno 100, salvo l'arrotondamento.",
         esempio_percentuale},
    Voce{"Attesa",
         "Quante uscite darebbe il solo caso in tanti concorsi. La frequenza vera le sta attorno, quasi mai "
         "precisa.",
         esempio_attesa},
    Voce{"Scarto",
         "Di quanto la frequenza si allontana dall'attesa, misurato con il passo che il caso fa di solito. "
         "Fra "
         "-2 e +2 non c'è niente di strano; oltre 3 è raro per un evento solo, normale in una tabella lunga.",
         esempio_scarto},
    Voce{
        "Probabilità",
        "Quanto è facile, per il solo caso, che un evento scelto prima manchi da tanto o di più. Dice quanto "
        "è raro ciò che si vede, non quando finirà: la prossima estrazione non ne sa niente.",
        esempio_probabilita},
    Voce{
        "In tabella",
        "Quanto è facile, per il solo caso, che almeno una delle righe di questa tabella manchi da tanto. Il "
        "conto le tratta come indipendenti; chi guarda tante righe ne trova sempre una che pare strana.",
        esempio_in_tabella},
    Voce{
        "Record atteso",
        "Il ritardo più lungo che il solo caso fa aspettare, in media, in tanti concorsi. Un ritardo storico "
        "vicino a questo valore è quello che ci vuole.",
        esempio_record_atteso},
};

/// A title as it is recognised, and the measure that it stands for.
struct Sigla {
    std::string_view ridotta;  ///< small letters, without blanks and full stops
    std::string_view nome;
};

constexpr std::array kSigle{
    Sigla{"freq", "Frequenza"},
    Sigla{"f", "Frequenza"},
    Sigla{"rit", "Ritardo"},
    Sigla{"r", "Ritardo"},
    Sigla{"rs", "Ritardo Storico"},
    Sigla{"rstorico", "Ritardo Storico"},
    Sigla{"ritstor", "Ritardo Storico"},
    Sigla{"%", "Percentuale"},
};

std::string ridotta(std::string_view titolo) {
    std::string r;
    for (const char c : titolo)
        if (c != ' ' && c != '.') r += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return r;
}

const Voce* voce_del_titolo(std::string_view titolo) {
    const std::string_view nome = misura_del_titolo(titolo);
    const auto* v = std::find_if(kVoci.begin(), kVoci.end(), [&](const Voce& x) { return x.nome == nome; });
    return v == kVoci.end() ? nullptr : v;
}

}  // namespace

std::string_view misura_del_titolo(std::string_view titolo) {
    const std::string cercata = ridotta(titolo);
    for (const Voce& v : kVoci)
        if (ridotta(v.nome) == cercata) return v.nome;
    for (const Sigla& s : kSigle)
        if (s.ridotta == cercata) return s.nome;
    return {};
}

std::optional<Spiegazione> spiega(const Tabella& tabella, std::size_t colonna,
                                  std::span<const std::uint32_t> righe) {
    if (tabella.titoli.empty() || colonna >= tabella.titoli.back().size()) return std::nullopt;
    const Voce* voce = voce_del_titolo(tabella.titoli.back()[colonna]);
    if (voce == nullptr) return std::nullopt;
    Spiegazione s{voce->nome, voce->frasi, {}};
    const std::size_t quante = righe.empty() ? tabella.righe() : righe.size();
    if (voce->esempio == nullptr || colonna >= tabella.n_colonne()) return s;
    for (std::size_t i = 0; i < quante && s.esempio.empty(); ++i) {
        const Riga r{tabella, righe.empty() ? i : righe[i], colonna};
        const std::string valore = r.valore();
        if (!valore.empty() && valore != "...") s.esempio = voce->esempio(r);
    }
    return s;
}

std::optional<std::size_t> colonna_della_misura(const Tabella& tabella, std::string_view nome) {
    if (tabella.titoli.empty()) return std::nullopt;
    std::optional<std::size_t> trovata;
    const auto& titoli = tabella.titoli.back();
    for (std::size_t c = 0; c < std::min(titoli.size(), tabella.n_colonne()); ++c) {
        if (misura_del_titolo(titoli[c]) != nome) continue;
        if (trovata) return std::nullopt;
        trovata = c;
    }
    return trovata;
}

std::optional<std::int32_t> intero_della_cella(const Tabella& tabella, std::size_t riga,
                                               std::size_t colonna) {
    if (const auto* interi = std::get_if<ColonnaInteri>(&tabella.colonne[colonna])) {
        const std::int32_t v = interi->valori[riga];
        return v == kCellaVuota || v == kCellaPuntini ? std::nullopt : std::optional{v};
    }
    const std::string testo = tabella.testo(riga, colonna);
    const std::string_view cella = rifila(testo);
    std::int32_t v = 0;
    const auto [fine, errore] = std::from_chars(cella.data(), cella.data() + cella.size(), v);
    if (errore != std::errc{} || fine != cella.data() + cella.size()) return std::nullopt;
    return v;
}

}  // namespace sortimetra
