#include "draws/cursore.h"

#include "text/testi.h"

#include <algorithm>
#include <bit>
#include <bitset>
#include <numeric>
#include <utility>

namespace sortimetra {

namespace {

constexpr std::size_t kRuoteLotto = kRuote;
constexpr TrattoConcorsi kTuttoIlTratto{};

std::span<const Concorso> colonna_concorso(const ArchivioEstrazioni& a, TabellaArchivio t) {
    switch (t) {
        case TabellaArchivio::Lotto:
            return a.lotto().concorso;
        case TabellaArchivio::Nazionale:
            return a.nazionale().concorso;
        case TabellaArchivio::SuperEnalotto:
            return a.superenalotto().concorso;
        case TabellaArchivio::WinForLife:
            break;
    }
    return a.winforlife().concorso;
}

std::span<const Data> colonna_data(const ArchivioEstrazioni& a, TabellaArchivio t) {
    switch (t) {
        case TabellaArchivio::Lotto:
            return a.lotto().data;
        case TabellaArchivio::Nazionale:
            return a.nazionale().data;
        case TabellaArchivio::SuperEnalotto:
            return a.superenalotto().data;
        case TabellaArchivio::WinForLife:
            break;
    }
    return a.winforlife().data;
}

/// Adds the rows of one Lotto record that a mask of wheels lets through.
void aggiungi_ruote(std::vector<std::uint32_t>& righe, std::size_t record, unsigned maschera) {
    for (; maschera != 0; maschera &= maschera - 1)
        righe.push_back(static_cast<std::uint32_t>(record * kRuoteLotto) +
                        static_cast<std::uint32_t>(std::countr_zero(maschera)));
}

/// First and last-but-one record of a table that lie between two concorsi, both included.
std::pair<std::size_t, std::size_t> fra_concorsi(std::span<const Concorso> colonna, Concorso dalla,
                                                 Concorso alla) {
    const auto primo = std::lower_bound(colonna.begin(), colonna.end(), dalla);
    const auto oltre = std::upper_bound(primo, colonna.end(), alla);
    return {static_cast<std::size_t>(primo - colonna.begin()),
            static_cast<std::size_t>(oltre - colonna.begin())};
}

Cursore record_fra(const ArchivioEstrazioni& a, TabellaArchivio t, std::size_t da, std::size_t oltre) {
    std::vector<std::uint32_t> righe(oltre - da);
    std::iota(righe.begin(), righe.end(), static_cast<std::uint32_t>(da));
    return {a, t, std::move(righe)};
}

Cursore ruote_fra(const ArchivioEstrazioni& a, unsigned ruote, std::size_t da, std::size_t oltre) {
    std::vector<std::uint32_t> righe;
    righe.reserve((oltre - da) * static_cast<std::size_t>(std::popcount(ruote)));
    for (std::size_t i = da; i < oltre; ++i) aggiungi_ruote(righe, i, a.lotto().presenti[i] & ruote);
    return {a, TabellaArchivio::Lotto, std::move(righe)};
}

/// A number cell as a field.
Campo cella(Numero n) {
    return int{n};
}

/// The k of "k°estratto" or "k°", from 1; 0 for any other name.
int posto_di(std::string_view nome, std::string_view coda) {
    int k = 0;
    std::size_t i = 0;
    while (i < nome.size() && i < 2 && nome[i] >= '0' && nome[i] <= '9') k = k * 10 + (nome[i++] - '0');
    return nome.substr(i) == coda ? k : 0;
}

}  // namespace

// ---- one row ----

Concorso Estrazione::concorso() const {
    return colonna_concorso(*archivio_, tabella_)[record_];
}
Data Estrazione::data() const {
    return colonna_data(*archivio_, tabella_)[record_];
}
std::string_view Estrazione::ruota() const {
    if (tabella_ == TabellaArchivio::Nazionale) return kParolaNazionale;
    if (tabella_ != TabellaArchivio::Lotto) return {};
    return kNomiRuote[static_cast<std::size_t>(ruota_)].codice;
}
std::span<const Numero> Estrazione::numeri() const {
    switch (tabella_) {
        case TabellaArchivio::Lotto:
            return std::span{archivio_->lotto().numeri[record_]}.subspan(
                static_cast<std::size_t>(ruota_) * kEstratti, kEstratti);
        case TabellaArchivio::Nazionale:
            return archivio_->nazionale().numeri[record_];
        case TabellaArchivio::SuperEnalotto:
            return std::span{archivio_->superenalotto().numeri[record_]}.first(6);
        case TabellaArchivio::WinForLife:
            break;
    }
    return archivio_->winforlife().numeri[record_];
}
int Estrazione::numero(int k) const {
    const auto tutti = numeri();
    return k >= 1 && static_cast<std::size_t>(k) <= tutti.size() ? tutti[static_cast<std::size_t>(k) - 1] : 0;
}
std::optional<int> Estrazione::jolly() const {
    if (tabella_ != TabellaArchivio::SuperEnalotto) return std::nullopt;
    return archivio_->superenalotto().numeri[record_][6];
}
std::optional<int> Estrazione::superstar() const {
    if (tabella_ != TabellaArchivio::SuperEnalotto) return std::nullopt;
    return archivio_->superenalotto().numeri[record_][7];
}
std::string_view Estrazione::ora() const {
    if (tabella_ != TabellaArchivio::WinForLife) return {};
    return archivio_->winforlife().ora[record_];
}

Campo Estrazione::campo(int posizione) const {
    if (posizione < 0) return {};
    const auto p = static_cast<std::size_t>(posizione);
    const auto tutti = numeri();
    if (tabella_ == TabellaArchivio::WinForLife) {
        if (p == 0) return concorso();
        if (p == 1) return data();
        if (p == 2) return ora();
        return p - 3 < tutti.size() ? cella(tutti[p - 3]) : Campo{};
    }
    if (p == 0) return data();
    if (p >= 2 && p - 2 < tutti.size()) return cella(tutti[p - 2]);
    if (tabella_ == TabellaArchivio::SuperEnalotto) {
        if (p == 8) return superstar().value_or(0);
        if (p == 9) return concorso();
        return {};
    }
    if (p == 1) return ruota();
    if (p == 7) return concorso();
    return {};
}

Campo Estrazione::campo(std::string_view nome) const {
    const std::string basso = minuscolo(nome);
    if (basso == "concorso") return concorso();
    if (basso == "data estrazione") return data();
    const bool wfl = tabella_ == TabellaArchivio::WinForLife;
    if (basso == "ora" && wfl) return ora();
    if (basso == "ruota" && !ruota().empty()) return ruota();
    if (const auto j = jolly(); j && basso == "jolly") return *j;
    if (const auto s = superstar(); s && basso == "superstar") return *s;
    const int k = posto_di(basso, wfl ? "°" : "°estratto");
    if (k >= 1 && static_cast<std::size_t>(k) <= numeri().size()) return numero(k);
    return {};
}

// ---- the walk ----

void Cursore::sposta(std::ptrdiff_t n) {
    // Both ends are at most 2^32 away, so that this cannot overflow for any n.
    const std::ptrdiff_t indietro = -1 - posto_;
    const std::ptrdiff_t avanti = quante() - posto_;
    posto_ += std::clamp(n, indietro, std::max(indietro, avanti));
}

std::optional<Estrazione> Cursore::corrente() const {
    if (fine() || inizio()) return std::nullopt;
    const std::size_t riga = righe_[static_cast<std::size_t>(posto_)];
    if (tabella_ != TabellaArchivio::Lotto) return Estrazione{*archivio_, tabella_, riga, 0};
    return Estrazione{*archivio_, tabella_, riga / kRuoteLotto, static_cast<int>(riga % kRuoteLotto)};
}

// ---- the selections ----

Cursore estrazioni_ruote(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito) {
    const VistaEstrazioni vista{archivio, ambito};
    std::vector<std::uint32_t> righe;
    righe.reserve(vista.righe());
    const bool nazionale = ambito.ruote.e_nazionale();
    for (std::size_t i = 0; i < vista.concorsi(); ++i) {
        if (nazionale) {
            righe.push_back(static_cast<std::uint32_t>(vista.record(i)));
        } else {
            aggiungi_ruote(righe, vista.record(i), vista.maschera(i));
        }
    }
    return {archivio, nazionale ? TabellaArchivio::Nazionale : TabellaArchivio::Lotto, std::move(righe)};
}

Cursore estrazioni_nazionale(const ArchivioEstrazioni& archivio, AmbitoRicerca ambito) {
    ambito.ruote = SelezioneRuote::nazionale();
    return estrazioni_ruote(archivio, ambito);
}

Cursore estrazioni_superenalotto(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito) {
    return {archivio, TabellaArchivio::SuperEnalotto, vista_superenalotto(archivio, ambito)};
}

Cursore estrazioni_winforlife(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito) {
    return {archivio, TabellaArchivio::WinForLife, vista_winforlife(archivio, ambito)};
}

Cursore estrazione_concorso(const ArchivioEstrazioni& archivio, Concorso concorso) {
    const auto [da, oltre] = fra_concorsi(archivio.lotto().concorso, concorso, concorso);
    return ruote_fra(archivio, kDieciRuote, da, oltre);
}

Cursore estrazione_bari(const ArchivioEstrazioni& archivio, Concorso concorso) {
    return estrazioni_ruota(archivio, 0, concorso, concorso);
}

Cursore estrazioni_ruota(const ArchivioEstrazioni& archivio, int ruota, Concorso dalla, Concorso alla) {
    const auto tabella = ruota == kNazionale ? TabellaArchivio::Nazionale : TabellaArchivio::Lotto;
    const auto [da, oltre] = fra_concorsi(colonna_concorso(archivio, tabella), dalla, alla);
    if (ruota == kNazionale) return record_fra(archivio, tabella, da, oltre);
    return ruote_fra(archivio, ruota >= 0 && ruota < kRuote ? 1U << ruota : 0U, da, oltre);
}

Cursore tutte_le_estrazioni(const ArchivioEstrazioni& archivio, TabellaArchivio tabella) {
    const std::size_t n = colonna_concorso(archivio, tabella).size();
    if (tabella == TabellaArchivio::Lotto) return ruote_fra(archivio, kDieciRuote, 0, n);
    return record_fra(archivio, tabella, 0, n);
}

std::optional<Cursore> cerca_concorso(const ArchivioEstrazioni& archivio, TabellaArchivio tabella,
                                      Concorso concorso) {
    const auto i = cerca_concorso(colonna_concorso(archivio, tabella), concorso);
    if (!i) return std::nullopt;
    Cursore c = tutte_le_estrazioni(archivio, tabella);
    std::size_t righe = *i;
    if (tabella == TabellaArchivio::Lotto)
        righe = std::accumulate(
            archivio.lotto().presenti.begin(),
            archivio.lotto().presenti.begin() + static_cast<std::ptrdiff_t>(*i), std::size_t{0},
            [](std::size_t n, unsigned m) { return n + static_cast<std::size_t>(std::popcount(m)); });
    c.sposta(static_cast<std::ptrdiff_t>(righe));
    return c;
}

Cursore estrazioni_fino_a(const ArchivioEstrazioni& archivio, Data data) {
    const TabellaLotto& t = archivio.lotto();
    std::vector<std::uint32_t> righe;
    for (std::size_t i = t.concorso.size(); i-- > 0;)
        if (t.data[i] <= data) aggiungi_ruote(righe, i, t.presenti[i]);
    return {archivio, TabellaArchivio::Lotto, std::move(righe)};
}

Cursore estrazioni_nazionale_fino_a(const ArchivioEstrazioni& archivio, Concorso concorso) {
    return estrazioni_ruota(archivio, kNazionale, kTuttoIlTratto.da, concorso);
}

Cursore estrazioni_con_numeri(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito,
                              std::span<const int> numeri) {
    std::bitset<kNumeri + 1> cercati;
    for (const int n : numeri)
        if (n >= 1 && n <= kNumeri) cercati.set(static_cast<std::size_t>(n));
    const VistaEstrazioni vista{archivio, ambito};
    const bool nazionale = ambito.ruote.e_nazionale();
    std::vector<std::uint32_t> righe;
    for (std::size_t i = 0; i < vista.concorsi(); ++i) {
        const Numero* estratti = vista.numeri(i);
        unsigned con = 0;
        for (unsigned m = vista.maschera(i); m != 0; m &= m - 1) {
            const int w = std::countr_zero(m);
            if (std::any_of(estratti + w * kEstratti, estratti + (w + 1) * kEstratti,
                            [&](Numero n) { return cercati.test(n); }))
                con |= 1U << w;
        }
        if (nazionale && con != 0) {
            righe.push_back(static_cast<std::uint32_t>(vista.record(i)));
        } else {
            aggiungi_ruote(righe, vista.record(i), con);
        }
    }
    return {archivio, nazionale ? TabellaArchivio::Nazionale : TabellaArchivio::Lotto, std::move(righe)};
}

// ---- the scratch table ----

void TabellaTemp::crea_temp(std::vector<std::string> colonne) {
    elimina_temp();
    colonne_ = std::move(colonne);
}

bool TabellaTemp::riempi_temp(std::span<const int> valori) {
    if (colonne_.empty() || valori.size() != colonne_.size()) return false;
    valori_.insert(valori_.end(), valori.begin(), valori.end());
    return true;
}

std::vector<std::span<const int>> TabellaTemp::leggi_temp(std::string_view ordine) const {
    std::vector<std::span<const int>> righe;
    const std::size_t larga = colonne_.size();
    righe.reserve(conteggio());
    for (std::size_t i = 0; i < conteggio(); ++i)
        righe.push_back(std::span{valori_}.subspan(i * larga, larga));
    const std::string cercata = minuscolo(ordine);
    const auto colonna = std::find_if(colonne_.begin(), colonne_.end(),
                                      [&](const std::string& c) { return minuscolo(c) == cercata; });
    if (colonna == colonne_.end()) return righe;
    const auto k = static_cast<std::size_t>(colonna - colonne_.begin());
    std::stable_sort(righe.begin(), righe.end(), [k](const auto& a, const auto& b) { return a[k] > b[k]; });
    return righe;
}

void TabellaTemp::elimina_temp() {
    colonne_.clear();
    valori_.clear();
}

}  // namespace sortimetra
