#include "draws/ambito.h"

#include "text/testi.h"

#include <bit>

namespace sortimetra {

namespace {

/// Indexes of the rows of an ascending concorso column that lie in the range and pass `passa(i)`.
template <class Passa>
std::vector<std::uint32_t> righe_nel_tratto(std::span<const Concorso> concorso, TrattoConcorsi tratto,
                                            Passa&& passa) {
    std::vector<std::uint32_t> scelte;
    const auto primo = std::lower_bound(concorso.begin(), concorso.end(), tratto.da);
    const auto oltre = std::upper_bound(primo, concorso.end(), tratto.a);
    if (tratto.da > tratto.a) return scelte;
    const auto inizio = static_cast<std::uint32_t>(primo - concorso.begin());
    const auto fine = static_cast<std::uint32_t>(oltre - concorso.begin());
    scelte.reserve(fine - inizio);
    for (std::uint32_t i = inizio; i < fine; ++i)
        if (passa(i)) scelte.push_back(i);
    return scelte;
}

}  // namespace

void SelezioneRuote::clic(int casella, bool spuntata) {
    const unsigned bit = 1U << casella;
    unsigned nuove = spuntata ? caselle_ | bit : caselle_ & ~bit;
    if (casella < kRuote) {
        nuove &= kDieciRuote;
    } else if (spuntata) {
        nuove = bit;
    }
    caselle_ = static_cast<std::uint16_t>(nuove);
}

std::uint16_t SelezioneRuote::ruote_lette() const {
    if (spuntata(kNazionale)) return 0;
    if (spuntata(kTutte)) return kDieciRuote;
    const unsigned scelte = caselle_ & kDieciRuote;
    return static_cast<std::uint16_t>(scelte == 0 ? 1U : scelte);
}

int SelezioneRuote::n_ruote() const {
    if (spuntata(kNazionale)) return 1;
    if (spuntata(kTutte)) return kRuote;
    return std::popcount(caselle_ & kDieciRuote);
}

std::string SelezioneRuote::nomi(std::string_view separatore) const {
    if (spuntata(kNazionale)) return std::string{kNomiRuote[kNazionale].esteso};
    if (spuntata(kTutte)) return std::string{kNomiRuote[kTutte].esteso};
    std::string testo;
    for (std::size_t w = 0; w < kRuote; ++w) {
        if (!spuntata(static_cast<int>(w))) continue;
        if (!testo.empty()) testo += separatore;
        testo += kNomiRuote[w].esteso;
    }
    return testo;
}

bool accetta(const VoceIntervallo& voce, Data data) {
    if (voce.resto_anno < 0 && voce.resto_mese < 0 && voce.mese == 0) return true;
    const auto [mese, anno] = mese_anno(data);
    return (voce.resto_anno < 0 || anno % 2 == voce.resto_anno) &&
           (voce.resto_mese < 0 || mese % 2 == voce.resto_mese) && (voce.mese == 0 || mese == voce.mese);
}

bool accetta_ora(std::size_t voce, std::string_view ora) {
    if (voce == 0) return true;
    const std::string_view entrata = kOre[voce];
    return rifila(ora) == entrata || (ora.starts_with('0') && ora.substr(1) == entrata);
}

std::optional<std::size_t> trova_intervallo(std::string_view testo) {
    const std::string cercato = minuscolo(testo);
    for (std::size_t i = 0; i < kIntervalli.size(); ++i)
        if (minuscolo(kIntervalli[i].testo) == cercato) return i;
    return std::nullopt;
}

std::optional<std::size_t> trova_ora(std::string_view testo) {
    const std::string cercato = minuscolo(testo);
    for (std::size_t i = 0; i < kOre.size(); ++i)
        if (minuscolo(kOre[i]) == cercato) return i;
    return std::nullopt;
}

VistaEstrazioni::VistaEstrazioni(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito)
    : n_ruote_{ambito.ruote.n_ruote()} {
    const TrattoConcorsi tratto = ambito.tratto.riportato(archivio.ultimo_concorso());
    const VoceIntervallo& voce = kIntervalli[ambito.intervallo];
    if (ambito.ruote.e_nazionale()) {
        const TabellaNazionale& t = archivio.nazionale();
        concorso_ = t.concorso.data();
        passo_ = kEstratti;
        if (!t.numeri.empty()) base_ = t.numeri.front().data();
        record_ =
            righe_nel_tratto(t.concorso, tratto, [&](std::uint32_t i) { return accetta(voce, t.data[i]); });
        righe_ = record_.size();
        return;
    }
    const TabellaLotto& t = archivio.lotto();
    ruote_ = ambito.ruote.ruote_lette();
    concorso_ = t.concorso.data();
    presenti_ = t.presenti.data();
    passo_ = kRuote * kEstratti;
    if (!t.numeri.empty()) base_ = t.numeri.front().data();
    record_ = righe_nel_tratto(t.concorso, tratto, [&](std::uint32_t i) {
        const int righe = std::popcount(t.presenti[i] & ruote_);
        if (righe == 0 || !accetta(voce, t.data[i])) return false;
        righe_ += static_cast<std::size_t>(righe);
        return true;
    });
}

std::vector<std::uint32_t> vista_superenalotto(const ArchivioEstrazioni& archivio,
                                               const AmbitoRicerca& ambito) {
    const TabellaSuperEnalotto& t = archivio.superenalotto();
    const VoceIntervallo& voce = kIntervalli[ambito.intervallo];
    return righe_nel_tratto(t.concorso, ambito.tratto.riportato(archivio.ultimo_concorso()),
                            [&](std::uint32_t i) { return accetta(voce, t.data[i]); });
}

std::vector<std::uint32_t> vista_winforlife(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito) {
    const TabellaWinForLife& t = archivio.winforlife();
    // The texts that differ are few: each is judged once.
    std::vector<bool> passa(t.ora.voci());
    for (std::size_t k = 0; k < passa.size(); ++k) passa[k] = accetta_ora(ambito.ora, t.ora.testo(k));
    const auto voce = t.ora.voce();
    return righe_nel_tratto(t.concorso, ambito.tratto.riportato(archivio.ultimo_concorso_winforlife()),
                            [&](std::uint32_t i) { return passa[voce[i]]; });
}

}  // namespace sortimetra
