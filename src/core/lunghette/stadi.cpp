#include "lunghette/stadi.h"

#include "text/testi.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// How often something came, and in which draw last (0: never).
struct Conta {
    std::int32_t frequenza = 0;
    std::int32_t ultimo = 0;

    void esce(std::int32_t c) {
        ++frequenza;
        ultimo = c;
    }
    [[nodiscard]] std::int32_t valore(TipoRicerca tipo, std::int32_t t) const {
        return tipo == TipoRicerca::ritardo ? t - ultimo : frequenza;
    }
};

/// One count per pair of cells' values.
class ContaCoppie {
  public:
    Conta& di(std::size_t a, std::size_t b) { return conta_[std::min(a, b) * kIndiciCella + std::max(a, b)]; }

  private:
    std::vector<Conta> conta_ = std::vector<Conta>(kIndiciCella * kIndiciCella);
};

/// Keeps the best of the candidates shown to it in ascending order: the lowest wins a tie, and nothing that
/// is not above 0 is ever chosen.
template <std::size_t N>
struct Scelta {
    std::int32_t valore = 0;
    std::array<int, N> numeri{};

    bool prova(std::int32_t v, const std::array<int, N>& n) {
        if (v <= valore) return false;
        valore = v;
        numeri = n;
        return true;
    }
    /// Writes what was found, in ascending order.
    void scrivi(Lunghetta& lunghetta) {
        if (valore == 0) return;
        std::sort(numeri.begin(), numeri.end());
        std::copy(numeri.begin(), numeri.end(), lunghetta.caselle.begin());
        lunghetta.punteggio = valore;
    }
};

/// The measure of the members with one candidate over the whole scope.
std::int32_t valore(const BancoLunghette& banco, const Misuratore& misuratore, TipoRicerca tipo,
                    int candidato) {
    return tipo == TipoRicerca::ritardo ? banco.ritardo(misuratore.ultima(candidato))
                                        : misuratore.frequenza(candidato);
}

/// The row from which the growth by delay looks: nothing before it can change a delay of `punteggio`.
std::int64_t inizio_tratto(const RigheGioco& righe, std::int32_t punteggio) {
    const std::int64_t p = punteggio;
    const std::int64_t inizio =
        righe.a_punti ? righe.t - 1 - p
                      : static_cast<std::int64_t>(righe.righe()) - 1 - (p - 1) * std::int64_t{righe.passo};
    return std::max<std::int64_t>(inizio, 0);
}

/// The delay of a growing set: `punteggio` as long as nothing of the stretch hits it, else less by the draws
/// from the stretch's beginning to the hit, that one included.
std::int32_t ritardo_nel_tratto(const RigheGioco& righe, std::int64_t inizio, std::int32_t punteggio,
                                std::uint32_t ultima) {
    const std::int64_t riga = std::int64_t{ultima} - 1;
    if (ultima == 0 || riga < inizio) return punteggio;
    return punteggio - (righe.c[ultima - 1] - righe.c[static_cast<std::size_t>(inizio)] + 1);
}

}  // namespace

void Ric_ambata(BancoLunghette& banco, Lunghetta& lunghetta, TipoRicerca tipo) {
    const RigheGioco& righe = banco.righe();
    std::array<Conta, kIndiciCella> conta{};
    for (std::size_t r = 0; r < righe.righe(); ++r)
        for (const Numero n : righe.riga(r)) conta[n].esce(righe.c[r]);
    int migliore = 1;
    const auto di = [&](int n) { return conta[static_cast<std::size_t>(n)].valore(tipo, righe.t); };
    for (int n = 2; n <= righe.massimo; ++n)
        if (di(n) > di(migliore)) migliore = n;
    lunghetta.caselle[0] = migliore;
    lunghetta.lunghezza = 1;
    lunghetta.punteggio = di(migliore);
    lunghetta.semi[0] = std::to_string(migliore);
}

void ric_ambata_capogioco(BancoLunghette& banco, Lunghetta& lunghetta, TipoRicerca tipo) {
    const int capo = lunghetta.numero(0);
    const auto misuratore = banco.misuratore(tipo, 2, std::array{capo});
    Scelta<2> scelta;
    for (int n = 1; n <= banco.righe().massimo; ++n)
        if (n != capo) scelta.prova(valore(banco, *misuratore, tipo, n), {capo, n});
    scelta.scrivi(lunghetta);
    lunghetta.lunghezza = 2;
}

void ric_ambi_lotto(BancoLunghette& banco, Lunghetta& lunghetta, TipoRicerca tipo) {
    const RigheGioco& righe = banco.righe();
    Scelta<2> scelta;
    const auto scegli = [&](auto&& misura) {
        for (int a = 1; a < righe.massimo; ++a)
            for (int b = a + 1; b <= righe.massimo; ++b) scelta.prova(misura(a, b), {a, b});
    };
    if (tipo == TipoRicerca::ritardo) {
        const UltimeCoppie& coppie = banco.coppie();
        scegli([&](int a, int b) { return banco.ritardo(coppie.ultima(a, b)); });
    } else {
        // In whichever order the two came: the two halves are added where they are asked for.
        std::vector<std::int32_t> conta(kIndiciCella * kIndiciCella);
        for (std::size_t r = 0; r < righe.righe(); ++r) {
            const auto celle = righe.riga(r);
            for (std::size_t p = 0; p < celle.size(); ++p)
                for (std::size_t q = p + 1; q < celle.size(); ++q)
                    ++conta[celle[p] * kIndiciCella + celle[q]];
        }
        scegli([&](int a, int b) {
            const auto x = static_cast<std::size_t>(a);
            const auto y = static_cast<std::size_t>(b);
            return conta[x * kIndiciCella + y] + conta[y * kIndiciCella + x];
        });
    }
    scelta.scrivi(lunghetta);
    if (scelta.valore > 0)
        lunghetta.semi[1] = std::to_string(scelta.numeri[0]) + " - " + std::to_string(scelta.numeri[1]);
}

void ric_ambo_capogioco(BancoLunghette& banco, Lunghetta& lunghetta, TipoRicerca tipo, int k) {
    const std::array capi{lunghetta.numero(0), lunghetta.numero(1)};
    lunghetta.lunghezza = 3;
    // A missing head reads 0, and no triple of the game holds it.
    if (capi[0] == 0 || capi[1] == 0) return;
    const auto misuratore = banco.misuratore(tipo, k, capi);
    Scelta<3> scelta;
    for (int n = 1; n <= banco.righe().massimo; ++n)
        if (n != capi[0] && n != capi[1])
            scelta.prova(valore(banco, *misuratore, tipo, n), {capi[0], capi[1], n});
    scelta.scrivi(lunghetta);
}

void ric_terni_lotto(BancoLunghette& banco, Lunghetta& lunghetta, TipoRicerca tipo) {
    const RigheGioco& righe = banco.righe();
    const int capo = lunghetta.numero(0);
    lunghetta.lunghezza = 3;
    ContaCoppie conta;  // by the two numbers beside the head
    for (std::size_t r = 0; r < righe.righe(); ++r) {
        const auto celle = righe.riga(r);
        for (std::size_t p = 0; p < celle.size(); ++p) {
            if (celle[p] != capo) continue;
            for (std::size_t q = 0; q < celle.size(); ++q)
                for (std::size_t s = q + 1; s < celle.size(); ++s)
                    if (q != p && s != p) conta.di(celle[q], celle[s]).esce(righe.c[r]);
        }
    }
    Scelta<3> scelta;
    // A triple that never came cannot be beaten.
    const auto basta = [&](int x, int y) {
        const Conta& c = conta.di(static_cast<std::size_t>(x), static_cast<std::size_t>(y));
        return scelta.prova(c.valore(tipo, righe.t), {capo, x, y}) && scelta.valore >= righe.t;
    };
    // The triples in their ascending order: below the head the outer number comes first.
    const auto visita = [&] {
        for (int x = 1; x < capo; ++x) {
            for (int y = x + 1; y <= righe.massimo; ++y)
                if (y != capo && basta(x, y)) return;
        }
        for (int x = capo + 1; x < righe.massimo; ++x)
            for (int y = x + 1; y <= righe.massimo; ++y)
                if (basta(x, y)) return;
    };
    visita();
    scelta.scrivi(lunghetta);
}

void ric_lunga(BancoLunghette& banco, Lunghetta& lunghetta, const Crescita& crescita,
               Avanzamento& avanzamento, const OsservaPasso& osserva) {
    const RigheGioco& righe = banco.righe();
    const bool a_ritardo = crescita.tipo == TipoRicerca::ritardo;
    const int prima = lunghetta.lunghezza;
    if (prima >= crescita.fino_a) return;
    std::vector<int> membri;
    membri.reserve(kCaselle);
    for (int i = 0; i < prima; ++i) membri.push_back(lunghetta.numero(static_cast<std::size_t>(i)));
    const auto misuratore = banco.misuratore(crescita.tipo, crescita.k, membri);
    std::array<bool, kIndiciCella> dentro{};
    for (const int m : membri) dentro[static_cast<std::size_t>(m)] = true;
    const auto totale = static_cast<std::size_t>((crescita.fino_a - prima) * righe.massimo);

    for (int s = prima + 1; s <= crescita.fino_a; ++s) {
        const std::int32_t punteggio = lunghetta.punteggio.value_or(0);
        const std::int64_t inizio = inizio_tratto(righe, punteggio);
        int& casella = lunghetta.caselle[static_cast<std::size_t>(s - 1)];
        std::int32_t migliore = 0;
        int provato = 0;
        for (int n = 1; n <= righe.massimo; ++n) {
            const auto fatto = static_cast<std::size_t>((s - 1 - prima) * righe.massimo + n);
            if (!avanzamento.procedi(fatto, totale)) return;
            if (dentro[static_cast<std::size_t>(n)]) continue;
            provato = n;
            const std::int32_t v = a_ritardo
                                       ? ritardo_nel_tratto(righe, inizio, punteggio, misuratore->ultima(n))
                                       : misuratore->frequenza(n);
            if (v <= migliore) continue;
            migliore = v;
            casella = n;
            lunghetta.punteggio = v;
            if (a_ritardo && v == punteggio) break;
        }
        // Where no candidate beat 0 the last one tried comes in, unless the slot held a number before.
        const int entrato = casella == kCasellaVuota ? provato : casella;
        membri.push_back(entrato);
        std::sort(membri.begin(), membri.end());
        std::copy(membri.begin(), membri.end(), lunghetta.caselle.begin());
        lunghetta.lunghezza = s;
        dentro[static_cast<std::size_t>(entrato)] = true;
        misuratore->aggiungi(entrato);
        if (osserva) osserva({.entrato = entrato, .lunghetta = lunghetta});
    }
}

}  // namespace sortimetra
