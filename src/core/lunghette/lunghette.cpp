#include "lunghette/lunghette.h"

#include "draws/ambito.h"
#include "lunghette/parametri.h"
#include "lunghette/stadi.h"
#include "lunghette/voci.h"
#include "results/ricerca.h"
#include "results/risultato.h"
#include "text/testi.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// One search on its way: what it works on, and whom it tells.
struct Corsa {
    BancoLunghette& banco;
    Lunghetta& lunghetta;
    Crescita crescita;
    Avanzamento& avanzamento;
    const OsservaPasso& osserva;

    void seme() const {
        if (osserva) osserva({.entrato = 0, .lunghetta = lunghetta});
    }
    void cresci() const { ric_lunga(banco, lunghetta, crescita, avanzamento, osserva); }
};

void da_ambata(const Corsa& corsa, int ricerca) {
    const TipoRicerca tipo = corsa.crescita.tipo;
    Ric_ambata(corsa.banco, corsa.lunghetta, tipo);
    // The delay of the terno goes through the terni of the ambata, its frequency does not.
    if (ricerca == 1) {
        ric_terni_lotto(corsa.banco, corsa.lunghetta, tipo);
    } else {
        ric_ambata_capogioco(corsa.banco, corsa.lunghetta, tipo);
        ric_ambo_capogioco(corsa.banco, corsa.lunghetta, tipo, corsa.crescita.k);
    }
    corsa.seme();
    corsa.cresci();
}

void da_ambo(const Corsa& corsa) {
    ric_ambi_lotto(corsa.banco, corsa.lunghetta, corsa.crescita.tipo);
    ric_ambo_capogioco(corsa.banco, corsa.lunghetta, corsa.crescita.tipo, corsa.crescita.k);
    if (corsa.crescita.k == 3) {
        std::string& terno = corsa.lunghetta.semi[2];
        for (std::size_t i = 0; i < 3; ++i) {
            if (i > 0) terno += '-';
            aggiungi_due_cifre(terno, corsa.lunghetta.numero(i));
        }
    }
    corsa.seme();
    corsa.cresci();
}

void da_numeri(const Corsa& corsa, const std::vector<int>& numeri) {
    Lunghetta& l = corsa.lunghetta;
    const TipoRicerca tipo = corsa.crescita.tipo;
    std::copy(numeri.begin(), numeri.end(), l.caselle.begin());
    l.lunghezza = static_cast<int>(numeri.size());
    if (numeri.size() == 3) {
        // By delay the score that the growth starts from is that of the best triple on the first two, always
        // for the ambo; the third number comes back after it.
        if (tipo == TipoRicerca::ritardo) ric_ambo_capogioco(corsa.banco, l, tipo, 2);
        std::copy(numeri.begin(), numeri.end(), l.caselle.begin());
    } else {
        if (numeri.size() == 1) ric_ambata_capogioco(corsa.banco, l, tipo);
        ric_ambo_capogioco(corsa.banco, l, tipo, corsa.crescita.k);
    }
    corsa.seme();
    corsa.cresci();
}

/// The whole chain from each of the 90 numbers in turn; the highest score wins, the first of equals. Being
/// cancelled ends the growth of one start number only.
void ricerca_automatica(const Corsa& corsa) {
    Lunghetta vincente;
    vincente.punteggio = 0;
    for (int i = 1; i <= corsa.banco.righe().massimo; ++i) {
        Lunghetta l;
        l.caselle[0] = i;
        l.lunghezza = 1;
        ric_ambata_capogioco(corsa.banco, l, TipoRicerca::ritardo);
        ric_ambo_capogioco(corsa.banco, l, TipoRicerca::ritardo, 2);
        ric_lunga(corsa.banco, l, corsa.crescita, corsa.avanzamento, {});
        if (l.punteggio.value_or(0) > *vincente.punteggio) vincente = l;
        // What was found last is on show while the next one grows.
        if (corsa.osserva) corsa.osserva({.entrato = 0, .lunghetta = l});
    }
    corsa.lunghetta = vincente;
    // The screen is cleared before the winner is put there: it has no length to go on from.
    corsa.lunghetta.lunghezza = 0;
    corsa.seme();
}

}  // namespace

std::optional<std::string> controlla_lunghette(const Domanda& domanda) {
    const auto& p = domanda.di<ParametriLunghette>();
    return opzione_estranea(domanda.ricerca->gioco, p.ricerca, p.opzione);
}

Risultato lunghette_lotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                          Avanzamento& avanzamento) {
    const auto& p = domanda.di<ParametriLunghette>();
    BancoLunghette banco{righe_lotto(archivio, domanda.ambito)};
    if (banco.righe().righe() == 0) return nessuna_lunghetta(std::string{kNessunaEstrazione} + ".");
    if (auto estranea = opzione_estranea(Gioco::lotto, p.ricerca, p.opzione))
        return nessuna_lunghetta(std::move(*estranea));
    const VoceLunghette voce = voce_lunghette(Gioco::lotto, p.ricerca);
    Lunghetta lunghetta = p.partenza ? *p.partenza : Lunghetta{};
    const Corsa corsa{.banco = banco,
                      .lunghetta = lunghetta,
                      .crescita = {.tipo = voce.tipo, .k = voce.k, .fino_a = p.lunghezza},
                      .avanzamento = avanzamento,
                      .osserva = p.a_ogni_passo};
    if (p.partenza) {
        corsa.cresci();
    } else if (p.opzione == 0) {
        da_ambata(corsa, p.ricerca);
    } else if (p.opzione == 2) {
        const auto numeri = numeri_personali(Gioco::lotto, p.numeri);
        if (numeri.empty()) return nessuna_lunghetta("Nessun numero personale da cui cominciare.");
        da_numeri(corsa, numeri);
    } else if (p.opzione == 3) {
        ricerca_automatica(corsa);
    } else {
        da_ambo(corsa);
    }
    return risultato_lunghetta(lunghetta, {.gioco = Gioco::lotto, .presenti = voce.k});
}

}  // namespace sortimetra
