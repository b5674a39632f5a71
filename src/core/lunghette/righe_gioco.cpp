#include "lunghette/righe_gioco.h"

#include "draws/combinazioni.h"

#include <algorithm>
#include <bit>

namespace sortimetra {

namespace {

constexpr std::size_t kPosti10eLotto = 20;
constexpr std::size_t kPostiWinForLife = 10;

RigheGioco vuote_a_punti(Gioco gioco) {
    const bool wfl = gioco == Gioco::win_for_life;
    return {.posti = wfl ? kPostiWinForLife : kPosti10eLotto,
            .massimo = wfl ? kNumeriWinForLife : kNumeri,
            .a_punti = true};
}

void aggiungi_10elotto(RigheGioco& righe, const TabellaLotto& tabella, std::size_t record) {
    const Combinazione combinazione = calc_combinazione_10elotto(tabella, record);
    for (std::size_t p = 1; p <= kPosti10eLotto; ++p)
        righe.celle.push_back(combinazione[p] == 0 ? kNessunNumero : static_cast<Numero>(combinazione[p]));
    righe.concorso.push_back(tabella.concorso[record]);
}

void aggiungi_winforlife(RigheGioco& righe, const TabellaWinForLife& tabella, std::size_t record) {
    const Concorso concorso = tabella.concorso[record];
    righe.concorso.push_back(concorso);
    while (record > 0 && tabella.concorso[record - 1] == concorso) --record;
    const auto& numeri = tabella.numeri[record];
    // Ten different numbers, as every sound draw has them, come out sorted of a word of bits.
    std::uint32_t insieme = 0;
    for (const Numero n : numeri) insieme |= 1U << (n % 32U);
    insieme &= ~1U;
    const std::size_t inizio = righe.celle.size();
    righe.celle.resize(inizio + kPostiWinForLife);
    Numero* posto = righe.celle.data() + inizio;
    const bool sani = *std::max_element(numeri.begin(), numeri.end()) <= kNumeriWinForLife;
    std::size_t diversi = 0;
    if (sani)
        for (std::uint32_t m = insieme; m != 0; m &= m - 1)
            posto[diversi++] = static_cast<Numero>(std::countr_zero(m));
    if (diversi == kPostiWinForLife) return;
    std::copy(numeri.begin(), numeri.end(), posto);
    std::sort(posto, posto + kPostiWinForLife);
    for (std::size_t p = 0; p < kPostiWinForLife; ++p)
        if (posto[p] < 1 || posto[p] > kNumeriWinForLife) posto[p] = kNessunNumero;
}

}  // namespace

RigheGioco righe_lotto(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito) {
    const VistaEstrazioni vista{archivio, ambito};
    RigheGioco righe{.t = vista.t(), .passo = vista.n_ruote()};
    righe.celle.resize(vista.righe() * kEstratti);
    righe.c.resize(vista.righe());
    Numero* cella = righe.celle.data();
    std::int32_t* ordinale = righe.c.data();
    SenzaAvanzamento nessuno;
    percorri(vista, nessuno, [&](int c, const Numero* numeri) {
        *ordinale++ = c;
        // A row whose first cell is empty counts as a draw and holds nothing.
        if (numeri[0] == 0)
            std::fill_n(cella, kEstratti, kNessunNumero);
        else
            std::copy_n(numeri, kEstratti, cella);
        cella += kEstratti;
    });
    return righe;
}

RigheGioco righe_10elotto(const ArchivioEstrazioni& archivio, AmbitoRicerca ambito) {
    ambito.ruote = SelezioneRuote::tutte();
    const VistaEstrazioni vista{archivio, ambito};
    RigheGioco righe = vuote_a_punti(Gioco::dieci_e_lotto);
    righe.t = vista.t();
    righe.celle.reserve(vista.concorsi() * kPosti10eLotto);
    for (std::size_t i = 0; i < vista.concorsi(); ++i) {
        aggiungi_10elotto(righe, archivio.lotto(), vista.record(i));
        righe.c.push_back(static_cast<std::int32_t>(i) + 1);
    }
    return righe;
}

RigheGioco righe_winforlife(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito) {
    const TabellaWinForLife& tabella = archivio.winforlife();
    const auto record = vista_winforlife(archivio, ambito);
    RigheGioco righe = vuote_a_punti(Gioco::win_for_life);
    righe.t = static_cast<std::int32_t>(record.size());
    righe.celle.reserve(record.size() * kPostiWinForLife);
    righe.c.reserve(record.size());
    righe.concorso.reserve(record.size());
    SenzaAvanzamento nessuno;
    percorri_righe(record, tabella.concorso, nessuno, [&](int c, std::uint32_t r) {
        aggiungi_winforlife(righe, tabella, r);
        righe.c.push_back(c);
    });
    return righe;
}

RigheGioco righe_a_punti(Gioco gioco, const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito) {
    return gioco == Gioco::win_for_life ? righe_winforlife(archivio, ambito)
                                        : righe_10elotto(archivio, ambito);
}

RigheGioco righe_a_ritroso(Gioco gioco, const ArchivioEstrazioni& archivio, Concorso da, std::size_t quante) {
    const bool wfl = gioco == Gioco::win_for_life;
    RigheGioco righe = vuote_a_punti(gioco);
    const auto primo = cerca_concorso(wfl ? archivio.winforlife().concorso : archivio.lotto().concorso, da);
    if (!primo) return righe;
    for (std::size_t i = 0; i < quante && i <= *primo; ++i) {
        if (wfl)
            aggiungi_winforlife(righe, archivio.winforlife(), *primo - i);
        else
            aggiungi_10elotto(righe, archivio.lotto(), *primo - i);
        righe.c.push_back(static_cast<std::int32_t>(i) + 1);
    }
    return righe;
}

}  // namespace sortimetra
