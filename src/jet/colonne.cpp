#include "jet/colonne.h"

#include <mdbtools.h>

#include <algorithm>

namespace sortimetra::jet {

namespace {

/// Bytes of a type that has always as many; nothing for texts and types that no table of draws has.
std::optional<int> grandezza_del_tipo(int tipo) {
    switch (tipo) {
        case MDB_BYTE:
            return 1;
        case MDB_INT:
            return 2;
        case MDB_LONGINT:
        case MDB_FLOAT:
            return 4;
        case MDB_MONEY:
        case MDB_DOUBLE:
        case MDB_DATETIME:
            return 8;
        case MDB_REPID:
            return 16;
        case MDB_NUMERIC:
            return 17;
        default:
            return std::nullopt;
    }
}

bool coerente(const Colonna& c) {
    if (const auto attesa = grandezza_del_tipo(c.tipo)) return c.fissa && c.grandezza == *attesa;
    if (c.tipo == MDB_TEXT) return c.grandezza > 0;
    if (c.tipo == MDB_MEMO || c.tipo == MDB_OLE) return !c.fissa;
    return true;
}

/// A column that has the same number as another, or one that is too high.
std::optional<std::size_t> numero_doppio(const Definizione& d) {
    std::vector<bool> preso(static_cast<std::size_t>(std::max(d.massime, 0)));
    for (std::size_t i = 0; i < d.colonne.size(); ++i) {
        const auto n = static_cast<std::size_t>(d.colonne[i].numero);
        if (d.colonne[i].numero < 0 || n >= preso.size() || preso[n]) return i;
        preso[n] = true;
    }
    return std::nullopt;
}

/// Fixed columns stand one behind the other; only a deleted one leaves a gap.
std::optional<std::size_t> posto_sbagliato(const Definizione& d, bool con_buchi) {
    std::vector<std::size_t> fisse;
    for (std::size_t i = 0; i < d.colonne.size(); ++i)
        if (d.colonne[i].fissa && d.colonne[i].tipo != MDB_BOOL) fisse.push_back(i);
    std::stable_sort(fisse.begin(), fisse.end(),
                     [&](std::size_t a, std::size_t b) { return d.colonne[a].posto < d.colonne[b].posto; });
    int fine = 0;
    for (const std::size_t i : fisse) {
        const Colonna& c = d.colonne[i];
        if (c.posto < fine || (!con_buchi && c.posto != fine)) return i;
        fine = c.posto + c.grandezza;
    }
    return std::nullopt;
}

std::optional<std::size_t> variabile_sbagliata(const Definizione& d, bool con_buchi) {
    std::vector<bool> presa(static_cast<std::size_t>(std::max(d.variabili, 0)));
    std::size_t quante = 0;
    for (std::size_t i = 0; i < d.colonne.size(); ++i) {
        const Colonna& c = d.colonne[i];
        if (c.fissa) continue;
        const auto n = static_cast<std::size_t>(c.variabile);
        if (c.variabile < 0 || n >= presa.size() || presa[n]) return i;
        presa[n] = true;
        ++quante;
    }
    // One that is not there any more: nobody can say which.
    if (!con_buchi && quante != presa.size()) return d.colonne.size();
    return std::nullopt;
}

}  // namespace

std::optional<std::size_t> contraddizione(const Definizione& definizione) {
    const auto& colonne = definizione.colonne;
    for (std::size_t i = 0; i < colonne.size(); ++i)
        if (!coerente(colonne[i])) return i;
    const auto tutte = static_cast<int>(colonne.size());
    if (definizione.massime < tutte) return colonne.size();
    const bool con_buchi = definizione.massime > tutte;
    if (const auto i = numero_doppio(definizione)) return i;
    if (const auto i = posto_sbagliato(definizione, con_buchi)) return i;
    return variabile_sbagliata(definizione, con_buchi);
}

}  // namespace sortimetra::jet
