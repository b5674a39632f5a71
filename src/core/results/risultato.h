#pragma once

#include "results/colore.h"
#include "results/evento.h"
#include "results/messaggio.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace sortimetra {

/// A whole-number cell that shows nothing.
inline constexpr std::int32_t kCellaVuota = std::numeric_limits<std::int32_t>::min();
/// A whole-number cell that shows "...": a count that never began.
inline constexpr std::int32_t kCellaPuntini = kCellaVuota + 1;

/// Whole numbers, shown in plain decimal.
struct ColonnaInteri {
    std::vector<std::int32_t> valori;
    friend bool operator==(const ColonnaInteri&, const ColonnaInteri&) = default;
};

/// Text that is not made of numbers: labels, names, percentages.
struct ColonnaTesti {
    std::vector<std::string> valori;
    friend bool operator==(const ColonnaTesti&, const ColonnaTesti&) = default;
};

/// Groups of `quanti` numbers, shown with two digits each and joined: "01-02-03". Row r is
/// `numeri[r * quanti]` onward.
struct ColonnaGruppi {
    std::size_t quanti = 1;
    char separatore = '-';
    std::vector<std::uint8_t> numeri;
    friend bool operator==(const ColonnaGruppi&, const ColonnaGruppi&) = default;
};

/// Texts of which there are few, each told many times: dates, wheels, drawn numbers that may be missing. Row
/// r shows `voci[scelte[r]]`, so that a million dates take four bytes each.
struct ColonnaVoci {
    std::vector<std::string> voci;
    std::vector<std::uint32_t> scelte;
    /// The texts stand in their own order (days, two-digit numbers): rows sort by it, not by the letters.
    bool in_ordine = false;

    [[nodiscard]] const std::string& testo(std::size_t riga) const { return voci[scelte[riga]]; }
    friend bool operator==(const ColonnaVoci&, const ColonnaVoci&) = default;
};

using Colonna = std::variant<ColonnaInteri, ColonnaTesti, ColonnaGruppi, ColonnaVoci>;

[[nodiscard]] std::size_t lunghezza(const Colonna& colonna);
/// Whether a column is read as numbers, which stand under each other by their units: whole ones, or texts
/// that are all numbers ("258,6", "15,4%"); "..." and an empty cell say nothing either way.
[[nodiscard]] bool e_numerica(const Colonna& colonna);

/// One result table: fixed title rows, typed columns of equal length, colours where the search gives any.
struct Tabella {
    std::string nome = "risultati";
    /// One list per title row, each as long as there are columns; a merged title stands in its first cell.
    std::vector<std::vector<std::string>> titoli;
    std::vector<Colonna> colonne;
    /// Back colours by row, then column; empty where the search colours nothing.
    std::vector<Colore> sfondi;
    /// Fore colours in the same shape; empty for the grid's own.
    std::vector<Colore> primi_piani;
    /// What its rows measure; `presenti` 0 where they measure no single event.
    Eventi eventi;

    [[nodiscard]] std::size_t righe() const { return colonne.empty() ? 0 : lunghezza(colonne.front()); }
    [[nodiscard]] std::size_t n_colonne() const { return colonne.size(); }
    /// Appends the text of a cell to `testo`.
    void aggiungi_testo(std::string& testo, std::size_t riga, std::size_t colonna) const;
    [[nodiscard]] std::string testo(std::size_t riga, std::size_t colonna) const;
    [[nodiscard]] Colore sfondo(std::size_t riga, std::size_t colonna) const;
    [[nodiscard]] Colore primo_piano(std::size_t riga, std::size_t colonna) const;
    /// Numbers that each row is about; 0 where rows are about none.
    [[nodiscard]] std::size_t numeri_per_riga() const;
    /// The numbers of a row (at most `kNumeriEvento`) without its measure; none where rows are about none.
    [[nodiscard]] Evento numeri(std::size_t riga) const;
    /// What a row measures; nothing where it measures no single event.
    [[nodiscard]] std::optional<Evento> evento(std::size_t riga) const;

    friend bool operator==(const Tabella&, const Tabella&) = default;
};

/// The text of a label (or of a control array's labels), by the control's name.
struct Etichetta {
    std::string nome;
    std::variant<std::string, std::vector<std::string>> testo;
    friend bool operator==(const Etichetta&, const Etichetta&) = default;
};

/// What a search answers. A plain value: grid, paper and files only read it.
struct Risultato {
    /// What the answer calls itself where that is not the search's title; "" else.
    std::string titolo;
    std::vector<Tabella> tabelle;
    /// Tables of another search that stand on the printed page with the answer; no file has them.
    std::vector<Tabella> allegati;
    std::vector<Etichetta> etichette;
    std::vector<Messaggio> messaggi;  ///< what message boxes say
    /// Remarks that are no message box: the status line shows them, the command line writes them to standard
    /// error. They are not part of the answer.
    std::vector<std::string> note;
    /// False when the search did not start or had no data; `messaggi` then says why.
    bool prodotto = true;

    friend bool operator==(const Risultato&, const Risultato&) = default;
};

/// The answer of a search that does not start: no table, one message.
[[nodiscard]] Risultato non_avviata(Messaggio messaggio);
/// The answer of a search that does not start and shows no box: what is missing is a remark.
[[nodiscard]] Risultato non_avviata_in_silenzio(std::string manca);
/// The answer of a search where no draw is left by wheels, range and calendar.
[[nodiscard]] Risultato senza_estrazioni();

enum class Verso : std::uint8_t { crescente, decrescente };

/// The grid's generic sort: the permutation of the rows, from the order of writing, by one column. Numbers
/// compare as numbers, other text as text (capitals and small letters alike); equal cells keep their order.
/// Beside numbers, an empty cell comes first and text stands where its first character falls: "..." after the
/// negative numbers and before 0.
[[nodiscard]] std::vector<std::uint32_t> ordina(const Tabella& tabella, std::size_t colonna, Verso verso);

/// A column by which rows are ordered.
struct Criterio {
    std::size_t colonna = 0;
    Verso verso = Verso::decrescente;
    friend bool operator==(const Criterio&, const Criterio&) = default;
};
/// The same by several columns: the first decides, the next ones where it finds rows equal.
[[nodiscard]] std::vector<std::uint32_t> ordina(const Tabella& tabella, std::span<const Criterio> criteri);

}  // namespace sortimetra
