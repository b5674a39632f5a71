#include "lunghette/condivisi.h"
#include "lunghette/lunghette.h"
#include "lunghette/parametri.h"
#include "lunghette/stadi.h"
#include "lunghette/voci.h"
#include "results/ricerca.h"
#include "results/risultato.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// How many numbers of a draw in ascending order the delay by points looks at: its lower half in 10eLotto,
/// all of it in Win for Life.
constexpr std::size_t kPrimiPosti = 10;

/// One search by points: what it is asked, and what it works on.
struct CorsaPunti {
    const ArchivioEstrazioni& archivio;
    const AmbitoRicerca& ambito;
    Gioco gioco;
    VoceLunghette voce;
    TrattoConcorsi tratto;  ///< `txtda` and `txta`, within the archive
    BancoLunghette& banco;
    Lunghetta& lunghetta;
    int lunghezza;
    Avanzamento& avanzamento;
    const OsservaPasso& osserva;

    [[nodiscard]] bool a_ritardo() const { return voce.tipo == TipoRicerca::ritardo; }
    void seme() const {
        if (osserva) osserva({.entrato = 0, .lunghetta = lunghetta});
    }
    void cresci() const {
        ric_lunga(banco, lunghetta, {.tipo = voce.tipo, .k = voce.k, .fino_a = lunghezza}, avanzamento,
                  osserva);
    }
    void scrivi(std::size_t casella, int numero) const { lunghetta.caselle[casella] = numero; }
};

/// How many of some slots hold each number: a number that stands in two slots counts twice.
using Cercati = std::array<std::uint8_t, kIndiciCella>;

Cercati primi_della(const Lunghetta& lunghetta, int quante) {
    Cercati cercati{};
    for (int i = 0; i < quante; ++i)
        if (const int n = lunghetta.numero(static_cast<std::size_t>(i)); n > 0)
            ++cercati[static_cast<std::size_t>(n)];
    return cercati;
}

/// How many of the slots hold a number that stands among the first `posti` cells of a row, whose numbers are
/// in ascending order: one that stands twice is met once.
int presenti(const RigheGioco& righe, std::size_t riga, const Cercati& cercati, std::size_t posti) {
    int n = 0;
    Numero prima = kNessunNumero;
    for (const Numero cella : righe.riga(riga).first(std::min(posti, righe.posti))) {
        n += cella == prima ? 0 : cercati[cella];
        prima = cella;
    }
    return n;
}

/// The final delay: from `txta` back to the last concorso in which exactly so many of the lunghetta's
/// numbers stand among the first ten, else to the first concorso in scope.
void CalcolaRitardo_Lunghetta(const CorsaPunti& corsa) {
    const RigheGioco& righe = corsa.banco.righe();
    const Cercati cercati = primi_della(corsa.lunghetta, corsa.lunghezza);
    std::size_t r = righe.righe() - 1;
    while (r > 0 && presenti(righe, r, cercati, kPrimiPosti) != corsa.voce.k) --r;
    corsa.lunghetta.punteggio = corsa.tratto.a - righe.concorso[r];
}

/// The final frequency: concorsi in which exactly so many of the lunghetta's numbers stand.
void CalcolaFrequenza_Lunghetta(const CorsaPunti& corsa) {
    const RigheGioco& righe = corsa.banco.righe();
    const Cercati cercati = primi_della(corsa.lunghetta, corsa.lunghezza);
    int n = 0;
    for (std::size_t r = 0; r < righe.righe(); ++r)
        n += presenti(righe, r, cercati, righe.posti) == corsa.voce.k ? 1 : 0;
    corsa.lunghetta.punteggio = n;
}

void calcolo_finale(const CorsaPunti& corsa) {
    if (corsa.a_ritardo())
        CalcolaRitardo_Lunghetta(corsa);
    else
        CalcolaFrequenza_Lunghetta(corsa);
}

/// The table of concorsi read back from `txta`, as many as the scope has draws. Numbers of the first ten
/// places that a newer draw has there too are struck out; with `per_posto` only its same place counts.
RigheGioco tabella_dei_concorsi(const CorsaPunti& corsa, bool per_posto) {
    RigheGioco righe = righe_a_ritroso(corsa.gioco, corsa.archivio, corsa.tratto.a,
                                       static_cast<std::size_t>(corsa.banco.righe().t));
    std::array<std::array<bool, kIndiciCella>, kPrimiPosti> piu_recenti{};
    for (std::size_t r = 0; r < righe.righe(); ++r) {
        Numero* riga = righe.celle.data() + r * righe.posti;
        // A number that stands twice in its own draw is not struck out by it.
        std::array<Numero, kPrimiPosti> letti{};
        std::copy_n(riga, kPrimiPosti, letti.begin());
        for (std::size_t p = 0; p < kPrimiPosti; ++p)
            if (piu_recenti[per_posto ? p : 0][riga[p]]) riga[p] = kNessunNumero;
        for (std::size_t p = 0; p < kPrimiPosti; ++p) piu_recenti[per_posto ? p : 0][letti[p]] = true;
    }
    return righe;
}

/// From `txta` back to `txtda`: the draw whose first ten numbers hold all of the list.
Concorso concorso_con_tutti(const CorsaPunti& corsa, std::size_t quanti) {
    const auto tutti = static_cast<std::size_t>(std::max(corsa.tratto.a - corsa.tratto.da + 1, 0));
    const RigheGioco righe = righe_a_ritroso(corsa.gioco, corsa.archivio, corsa.tratto.a, tutti);
    const Cercati cercati = primi_della(corsa.lunghetta, static_cast<int>(quanti));
    for (std::size_t r = 0; r < righe.righe() && righe.concorso[r] >= corsa.tratto.da; ++r)
        if (presenti(righe, r, cercati, kPrimiPosti) == static_cast<int>(quanti)) return righe.concorso[r];
    return corsa.tratto.da;
}

/// The most delayed numbers, by their last appearance among the first ten of a draw.
void CercaNumeriRitardo(const CorsaPunti& corsa, int quanti) {
    const RigheGioco righe = tabella_dei_concorsi(corsa, false);
    const auto voluti = static_cast<std::size_t>(quanti);
    std::size_t trovati = 0;
    for (std::size_t r = righe.righe(); r-- > 0 && trovati < voluti;)
        for (const Numero n : righe.riga(r))
            if (n != kNessunNumero && trovati < voluti) corsa.scrivi(trovati++, n);
    corsa.lunghetta.punteggio = corsa.tratto.a - concorso_con_tutti(corsa, trovati);
}

/// In each place of the draw the number that has been missing there longest.
void CercaNumeriRitardoPos(const CorsaPunti& corsa) {
    const RigheGioco righe = tabella_dei_concorsi(corsa, true);
    for (std::size_t p = 0; p < righe.posti; ++p)
        for (std::size_t r = righe.righe(); r-- > 0;)
            if (const Numero n = righe.riga(r)[p]; n != kNessunNumero) {
                corsa.scrivi(p, n);
                break;
            }
}

/// How often each number stands in each place.
std::vector<std::array<int, kIndiciCella>> frequenze_per_posto(const RigheGioco& righe) {
    std::vector<std::array<int, kIndiciCella>> conta(righe.posti);
    for (std::size_t r = 0; r < righe.righe(); ++r)
        for (std::size_t p = 0; p < righe.posti; ++p) ++conta[p][righe.riga(r)[p]];
    for (auto& c : conta) c[kNessunNumero] = 0;
    return conta;
}

/// The most frequent number, the lowest on ties; 0 where none came.
int piu_frequente(const std::array<int, kIndiciCella>& conta) {
    const auto migliore = std::max_element(conta.begin(), conta.end());
    return *migliore == 0 ? 0 : static_cast<int>(migliore - conta.begin());
}

/// The most frequent numbers, wherever they stand.
void CercaNumeriFrequenti(const CorsaPunti& corsa, int quanti) {
    std::array<int, kIndiciCella> conta{};
    for (const auto& posto : frequenze_per_posto(corsa.banco.righe()))
        for (std::size_t n = 0; n < conta.size(); ++n) conta[n] += posto[n];
    for (std::size_t i = 0; i < static_cast<std::size_t>(quanti); ++i) {
        const int n = piu_frequente(conta);
        if (n == 0) return;
        corsa.scrivi(i, n);
        conta[static_cast<std::size_t>(n)] = 0;
    }
}

/// In each place of the draw the number that came there most often.
void CercaNumeriFrequentiPos(const CorsaPunti& corsa) {
    const auto conta = frequenze_per_posto(corsa.banco.righe());
    for (std::size_t p = 0; p < conta.size(); ++p)
        if (const int n = piu_frequente(conta[p]); n != 0) corsa.scrivi(p, n);
}

/// Numbers that stand twice and empty slots go, the later ones move down, and what is beyond `lunghezza` is
/// cut. Where just so many slots are filled, all stays as it is.
void CompletaLunghetta(Lunghetta& lunghetta, int lunghezza) {
    const auto voluti = static_cast<std::size_t>(lunghezza);
    if (lunghetta.piene() == voluti) return;
    std::vector<int> diversi;
    for (const int n : lunghetta.caselle)
        if (n > 0 && std::find(diversi.begin(), diversi.end(), n) == diversi.end()) diversi.push_back(n);
    lunghetta.caselle.fill(kCasellaVuota);
    std::copy_n(diversi.begin(), std::min(diversi.size(), voluti), lunghetta.caselle.begin());
}

/// The draw that shares exactly 5 of its 20 numbers (3 of 10) with most others. It looks at the whole range,
/// whatever the calendar; the hour of Win for Life counts.
void Cercalunghetta10(const CorsaPunti& corsa) {
    const int quanti = corsa.gioco == Gioco::win_for_life ? 3 : 5;
    const auto cerca = [&](const RigheGioco& righe) {
        const auto riga = piu_condivisa(righe, quanti, corsa.avanzamento);
        if (!riga) return;
        std::size_t casella = 0;
        for (const Numero n : righe.riga(*riga))
            if (n != kNessunNumero) corsa.scrivi(casella++, n);
    };
    if (corsa.gioco == Gioco::win_for_life || corsa.ambito.intervallo == 0) {
        cerca(corsa.banco.righe());
    } else {
        AmbitoRicerca senza_calendario = corsa.ambito;
        senza_calendario.intervallo = 0;
        cerca(righe_10elotto(corsa.archivio, senza_calendario));
    }
}

/// From the numbers of the draws: as many as there are points.
void da_punti(const CorsaPunti& corsa) {
    if (corsa.a_ritardo()) {
        CercaNumeriRitardo(corsa, corsa.voce.k);
        corsa.lunghetta.lunghezza = corsa.voce.k;
    } else {
        // The length stays 0: the growth begins at the first slot, and what it does not write over stays.
        CercaNumeriFrequenti(corsa, corsa.voce.k);
        CalcolaFrequenza_Lunghetta(corsa);
    }
}

void da_numero(const CorsaPunti& corsa) {
    Ric_ambata(corsa.banco, corsa.lunghetta, corsa.voce.tipo);
    ric_terni_lotto(corsa.banco, corsa.lunghetta, corsa.voce.tipo);
}

void da_personali(const CorsaPunti& corsa, const std::vector<int>& numeri) {
    // No triple is looked for before the boxes are copied: there is no head to hold yet.
    std::copy(numeri.begin(), numeri.end(), corsa.lunghetta.caselle.begin());
    corsa.lunghetta.lunghezza = static_cast<int>(numeri.size());
}

/// One number of each place, in its slot.
void per_posizione(const CorsaPunti& corsa) {
    if (corsa.a_ritardo())
        CercaNumeriRitardoPos(corsa);
    else
        CercaNumeriFrequentiPos(corsa);
    CompletaLunghetta(corsa.lunghetta, corsa.lunghezza);
    corsa.seme();
    calcolo_finale(corsa);
}

}  // namespace

std::expected<void, Messaggio> tutte_le_ruote(const std::filesystem::path& /*cartella*/, Domanda& domanda) {
    domanda.ambito.ruote = SelezioneRuote::tutte();
    return {};
}

Risultato lunghette_a_punti(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                            Avanzamento& avanzamento) {
    const auto& p = domanda.di<ParametriLunghette>();
    const Gioco gioco = domanda.ricerca->gioco;
    const bool wfl = gioco == Gioco::win_for_life;
    BancoLunghette banco{righe_a_punti(gioco, archivio, domanda.ambito)};
    if (banco.righe().righe() == 0) return nessuna_lunghetta(std::string{kNessunaEstrazione} + ".");
    Lunghetta lunghetta = p.partenza ? *p.partenza : Lunghetta{};
    const bool troppi = p.posizione && !p.frequente && p.lunghezza > kLunghezzaPosizione;
    const CorsaPunti corsa{.archivio = archivio,
                           .ambito = domanda.ambito,
                           .gioco = gioco,
                           .voce = voce_lunghette(gioco, p.ricerca),
                           .tratto = domanda.ambito.tratto.riportato(
                               wfl ? archivio.ultimo_concorso_winforlife() : archivio.ultimo_concorso()),
                           .banco = banco,
                           .lunghetta = lunghetta,
                           .lunghezza = p.frequente ? kLunghezzaMassima
                                        : troppi    ? kLunghezzaPosizione
                                                    : p.lunghezza,
                           .avanzamento = avanzamento,
                           .osserva = p.a_ogni_passo};
    if (p.frequente) {
        Cercalunghetta10(corsa);
        corsa.seme();
        CalcolaFrequenza_Lunghetta(corsa);
    } else if (p.posizione && !p.partenza) {
        per_posizione(corsa);
    } else {
        if (!p.partenza) {
            const auto numeri = numeri_personali(gioco, p.numeri);
            if (p.opzione == 2 && numeri.empty())
                return nessuna_lunghetta("Nessun numero personale da cui cominciare.");
            if (p.opzione < 0 || p.opzione > 2) return nessuna_lunghetta("Opzione senza ricerca.");
            if (p.opzione == 0) da_numero(corsa);
            if (p.opzione == 1) da_punti(corsa);
            if (p.opzione == 2) da_personali(corsa, numeri);
            corsa.seme();
        }
        corsa.cresci();
        calcolo_finale(corsa);
    }
    Risultato r = risultato_lunghetta(lunghetta, {.gioco = gioco, .presenti = corsa.voce.k});
    if (troppi) r.messaggi.push_back({Avviso::posizione_dieci, std::string{kPosizioneDieci}});
    return r;
}

}  // namespace sortimetra
