#include "catalogue/rapporti.h"

#include "catalogue/ricerche.h"
#include "text/testi.h"

#include <string>
#include <variant>

namespace sortimetra {

namespace {

/// A search that is in no row of the table (a test's own) is taken for one of the Lotto.
constexpr Ricerca kSenzaRiga{.tabelle = 1};

const Ricerca& riga_di(const Domanda& domanda) {
    const Ricerca* riga = trova_ricerca(domanda.chiave);
    return riga == nullptr ? kSenzaRiga : *riga;
}

/// "12-34" for two capi.
std::string testo_capi(const std::vector<int>& capi) {
    std::string testo;
    for (const int capo : capi) {
        if (!testo.empty()) testo += '-';
        aggiungi_intero(testo, capo);
    }
    return testo;
}

std::string testo_ruote(const Ricerca& ricerca, const Risultato& risultato, const Domanda& domanda) {
    std::string testo;
    switch (ricerca.gioco) {
        case Gioco::superenalotto:
            testo = "SuperEnalotto";
            break;
        case Gioco::win_for_life:
            testo = "Win for Life";
            break;
        default:
            testo = domanda.ambito.ruote.nomi();
            if (domanda.parametri.tutte_le_ruote) testo = "Tutte, Nazionale";
            // With no box ticked Bari is what is read.
            if (testo.empty()) testo = kNomiRuote[0].esteso;
    }
    if (!risultato.tabelle.empty() && !risultato.tabelle[0].colonne.empty())
        if (const auto* gruppi = std::get_if<ColonnaGruppi>(risultato.tabelle[0].colonne.data()))
            if (const auto parola = parola_combinazione(gruppi->quanti); !parola.empty())
                testo.append(" ").append(parola);
    return testo;
}

/// Which hit was counted, for the searches that let one choose.
std::string_view nota(const Ricerca& ricerca, const Parametri& parametri) {
    if (!ricerca.ammette(kOpzTipo)) return "";
    switch (parametri.combo_rit) {
        case 0:
            return "Dati riferiti alla sortita dell'ambata";
        case 1:
            return "Dati riferiti alla sortita dell'ambo";
        default:
            return "Dati riferiti alla sortita del terno";
    }
}

}  // namespace

Intestazione intestazione(const Risultato& risultato, const Domanda& domanda,
                          const ArchivioEstrazioni& archivio) {
    const Ricerca& ricerca = riga_di(domanda);
    Intestazione testa{.ricerca = risultato.titolo.empty() ? std::string{ricerca.titolo} : risultato.titolo};
    if (ricerca.ammette(kOpzCapogioco) || ricerca.ammette(kOpzAmboCapo))
        if (const auto capi = testo_capi(domanda.parametri.capogioco); !capi.empty())
            testa.ricerca += " " + capi;
    if (ricerca.ammette(kOpzEstratto))
        testa.ricerca += " (" + std::to_string(domanda.parametri.estratto) + "° Estratto)";
    if (ricerca.tabelle == 0) return testa;

    testa.ruote = testo_ruote(ricerca, risultato, domanda);
    testa.nota = nota(ricerca, domanda.parametri);

    const bool wfl = ricerca.gioco == Gioco::win_for_life;
    const Concorso ultimo = wfl ? archivio.ultimo_concorso_winforlife() : archivio.ultimo_concorso();
    const TrattoConcorsi tratto = domanda.ambito.tratto.riportato(ultimo);
    testa.concorsi = std::to_string(tratto.da) + " - " + std::to_string(tratto.a);

    if (wfl) {
        const std::string_view ora = kOre[domanda.ambito.ora];
        testa.intervallo = domanda.ambito.ora == 0 ? std::string{ora} : "ore " + std::string{ora};
    } else {
        testa.intervallo = kIntervalli[domanda.ambito.intervallo].testo;
    }
    testa.periodo = testa.intervallo;
    const auto data = [&](Concorso c) { return wfl ? archivio.data_winforlife(c) : archivio.data_bari(c); };
    if (const auto da = data(tratto.da), a = data(tratto.a); da && a) {
        testa.periodo += ": " + testo_data(*da) + " - " + testo_data(*a);
        testa.date = testo_data(*da) + "-" + testo_data(*a);
    }
    return testa;
}

Rapporto prepara_rapporto(const Risultato& risultato, const Domanda& domanda,
                          const ArchivioEstrazioni& archivio, std::span<const std::uint32_t> ordine) {
    return riga_di(domanda).rapporto({risultato, intestazione(risultato, domanda, archivio), ordine});
}

}  // namespace sortimetra
