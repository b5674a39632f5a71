#include "stores/perdite.h"

#include "draws/ruote.h"
#include "stores/apertura.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace sortimetra {

namespace {

/// An empty cell may get its number; a number may not get another one.
template <std::size_t N>
bool cambia(const std::array<Numero, N>& vecchi, const std::array<Numero, N>& nuovi) {
    for (std::size_t i = 0; i < N; ++i)
        if (vecchi[i] != 0 && vecchi[i] != nuovi[i]) return true;
    return false;
}

// What a draw is known by, whether other numbers stand in it, and how a user knows it.

auto identita(const RigaLotto& r) {
    return std::pair{r.data, r.ruota};
}
bool cambia(const RigaLotto& v, const RigaLotto& n) {
    return cambia(v.numeri, n.numeri);
}
std::string dove(const RigaLotto& r) {
    return r.ruota == kNazionale ? std::string{}
                                 : fmt::format(", {}", kNomiRuote[static_cast<std::size_t>(r.ruota)].codice);
}

auto identita(const RigaSuperEnalotto& r) {
    return r.data;
}
bool cambia(const RigaSuperEnalotto& v, const RigaSuperEnalotto& n) {
    return cambia(v.numeri, n.numeri) || cambia(std::array{v.jolly, v.superstar}, {n.jolly, n.superstar});
}
std::string dove(const RigaSuperEnalotto&) {
    return {};
}

/// "8:00" and "08:00 " are one hour.
auto identita(const RigaWinForLife& r) {
    std::string_view ora = rifila(r.ora);
    while (ora.starts_with('0')) ora.remove_prefix(1);
    return std::pair{r.data, ora};
}
bool cambia(const RigaWinForLife& v, const RigaWinForLife& n) {
    return cambia(v.numeri, n.numeri);
}
std::string dove(const RigaWinForLife& r) {
    return fmt::format(", ore {}", rifila(r.ora));
}

template <class Riga>
std::string esempio(const Riga& r) {
    return fmt::format("concorso {} del {}{}", r.concorso, testo_data(r.data), dove(r));
}

template <class Riga>
std::vector<const Riga*> per_chiave(const std::vector<Riga>& righe) {
    std::vector<const Riga*> ordinate;
    ordinate.reserve(righe.size());
    for (const Riga& r : righe) ordinate.push_back(&r);
    std::stable_sort(ordinate.begin(), ordinate.end(),
                     [](const Riga* a, const Riga* b) { return identita(*a) < identita(*b); });
    return ordinate;
}

/// Both lists by their draws, side by side. Rows of one draw go by pairs, in the order in which they stand.
template <class Riga>
Perdita confronta(std::string_view gioco, const std::vector<Riga>& vecchie, const std::vector<Riga>& nuove) {
    Perdita p{.gioco = gioco};
    const auto nuovo = per_chiave(nuove);
    auto n = nuovo.begin();
    const Riga* tolta = nullptr;
    const Riga* cambiata = nullptr;
    for (const Riga* v : per_chiave(vecchie)) {
        while (n != nuovo.end() && identita(**n) < identita(*v)) ++n;
        if (n == nuovo.end() || identita(**n) != identita(*v)) {
            if (tolta == nullptr) tolta = v;
            ++p.tolte;
            continue;
        }
        if (cambia(*v, **n)) {
            if (cambiata == nullptr) cambiata = v;
            ++p.cambiate;
        }
        ++n;
    }
    if (tolta != nullptr) p.primo_tolto = esempio(*tolta);
    if (cambiata != nullptr) p.primo_cambiato = esempio(*cambiata);
    return p;
}

std::string quante(std::size_t n, std::string_view una, std::string_view piu, std::string_view primo) {
    return fmt::format("{} {} ({}{})", migliaia(static_cast<std::int64_t>(n)), n == 1 ? una : piu,
                       n == 1 ? "" : "la prima: ", primo);
}

}  // namespace

std::vector<Perdita> perdite(const RigheArchivio& vecchie, const RigheArchivio& nuove, unsigned tabelle) {
    std::vector<Perdita> tutte;
    if ((tabelle & kTabellaLotto) != 0) tutte.push_back(confronta("Lotto", vecchie.lotto, nuove.lotto));
    if ((tabelle & kTabellaNazionale) != 0)
        tutte.push_back(confronta("Lotto, Nazionale", vecchie.nazionale, nuove.nazionale));
    if ((tabelle & kTabellaSuperEnalotto) != 0)
        tutte.push_back(confronta("SuperEnalotto", vecchie.superenalotto, nuove.superenalotto));
    if ((tabelle & kTabellaWinForLife) != 0)
        tutte.push_back(confronta("Win for Life", vecchie.winforlife, nuove.winforlife));
    std::erase_if(tutte, [](const Perdita& p) { return p.tolte == 0 && p.cambiate == 0; });
    return tutte;
}

std::string racconta(const std::vector<Perdita>& perdite) {
    std::string testo;
    for (const Perdita& p : perdite) {
        testo += fmt::format("{}{}: ", testo.empty() ? "" : "; ", p.gioco);
        if (p.tolte != 0) testo += quante(p.tolte, "riga in meno", "righe in meno", p.primo_tolto);
        if (p.tolte != 0 && p.cambiate != 0) testo += ", ";
        if (p.cambiate != 0) testo += quante(p.cambiate, "riga cambiata", "righe cambiate", p.primo_cambiato);
    }
    return testo;
}

}  // namespace sortimetra
