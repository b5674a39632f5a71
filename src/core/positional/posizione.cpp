#include "positional/posizione.h"

#include "draws/ambito.h"
#include "draws/combinazioni.h"
#include "draws/dieci_e_lotto.h"
#include "results/risultato.h"
#include "statistics/misure.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace sortimetra::posizione {

namespace {

/// The measures of every number in every place. Index 0 of the numbers takes empty cells and is never shown.
class Posizioni {
  public:
    Posizioni(int numeri, std::size_t posti, Estrazioni n)
        : numeri_{static_cast<std::size_t>(numeri)},
          posti_{posti},
          n_{n},
          misure_((numeri_ + 1) * posti, Misura{.ultimo = inizio_ambata(n)}) {}

    /// `numero` stands in place `posto` (from 0) in `volte` rows of the c-th draw.
    void esce(std::size_t numero, std::size_t posto, std::int32_t c, std::int32_t volte = 1) {
        Misura& m = misure_[numero * posti_ + posto];
        sortimetra::esce(m, c);
        m.frequenza += volte - 1;
    }

    [[nodiscard]] Risultato risultato(bool jolly = false) const {
        Tabella t;
        t.titoli = titoli(posti_, jolly);
        ColonnaInteri numeri;
        for (std::size_t n = 1; n <= numeri_; ++n) numeri.valori.push_back(static_cast<std::int32_t>(n));
        t.colonne.emplace_back(std::move(numeri));
        for (std::size_t p = 0; p < posti_; ++p) {
            ColonnaInteri f;
            ColonnaInteri r;
            ColonnaInteri rs;
            for (std::size_t n = 1; n <= numeri_; ++n) {
                const Misura& m = misure_[n * posti_ + p];
                const bool mai = m.frequenza == 0;
                f.valori.push_back(mai ? kCellaPuntini : m.frequenza);
                r.valori.push_back(ritardo(m, n_));
                rs.valori.push_back(mai ? kCellaPuntini : m.storico);
            }
            t.colonne.emplace_back(std::move(f));
            t.colonne.emplace_back(std::move(r));
            t.colonne.emplace_back(std::move(rs));
        }
        Risultato risultato;
        risultato.tabelle.push_back(std::move(t));
        return risultato;
    }

  private:
    std::size_t numeri_;
    std::size_t posti_;
    Estrazioni n_;
    std::vector<Misura> misure_;
};

/// Places 1 to `posti` of a combination.
void escono(Posizioni& posizioni, const Combinazione& combinazione, std::size_t posti, std::int32_t c,
            std::int32_t volte = 1) {
    for (std::size_t p = 0; p < posti; ++p)
        posizioni.esce(static_cast<std::size_t>(combinazione[p + 1]), p, c, volte);
}

}  // namespace

std::vector<std::vector<std::string>> titoli(std::size_t posti, bool jolly) {
    std::vector<std::vector<std::string>> t(3, std::vector<std::string>(1 + posti * 3));
    t[0][0] = "Num.";
    t[0][1] = "Posizione";
    for (std::size_t p = 0; p < posti; ++p) {
        t[1][1 + p * 3] = jolly && p + 1 == posti ? "Jolly" : std::to_string(p + 1);
        t[2][1 + p * 3] = "F";
        t[2][2 + p * 3] = "R";
        t[2][3 + p * 3] = "RS";
    }
    return t;
}

Risultato estratto(const ArchivioEstrazioni& archivio, const Domanda& domanda, Avanzamento& avanzamento) {
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();
    Posizioni posizioni{kNumeri, kEstratti, vista.t()};
    percorri(vista, avanzamento, [&](int c, const Numero* numeri) {
        for (std::size_t p = 0; p < kEstratti; ++p) posizioni.esce(numeri[p], p, c);
    });
    return posizioni.risultato();
}

Risultato ambataSuperEnalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                              Avanzamento& avanzamento) {
    constexpr std::size_t kSestina = 6;
    const auto righe = vista_superenalotto(archivio, domanda.ambito);
    if (righe.empty()) return senza_estrazioni();
    Posizioni posizioni{kNumeri, kSestina + 1, Estrazioni{static_cast<std::int32_t>(righe.size())}};
    percorri_righe(righe, archivio.superenalotto().concorso, avanzamento, [&](int c, std::size_t riga) {
        const Combinazione combinazione = calc_combinazione_superenalotto(archivio.superenalotto(), riga);
        escono(posizioni, combinazione, kSestina, c);
        posizioni.esce(static_cast<std::size_t>(combinazione[0]), kSestina, c);
    });
    return posizioni.risultato(true);
}

Risultato ambata10elotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                         Avanzamento& avanzamento) {
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();
    Posizioni posizioni{kNumeri, 20, Estrazioni{static_cast<std::int32_t>(vista.righe())}};
    percorri_10elotto(archivio.lotto(), vista, PassoDieciELotto::concorso, avanzamento,
                      [&](int c, int righe, const Combinazione& combinazione) {
                          escono(posizioni, combinazione, 20, c, righe);
                      });
    return posizioni.risultato();
}

Risultato ambataWinForLife(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                           Avanzamento& avanzamento) {
    const TabellaWinForLife& tabella = archivio.winforlife();
    const auto righe = vista_winforlife(archivio, domanda.ambito);
    if (righe.empty()) return senza_estrazioni();
    Posizioni posizioni{kNumeriWinForLife, 10, Estrazioni{static_cast<std::int32_t>(righe.size())}};
    percorri_righe(righe, tabella.concorso, avanzamento, [&](int c, std::size_t riga) {
        escono(posizioni, calc_combinazione_WinForLife(tabella, tabella.concorso[riga]), 10, c);
    });
    return posizioni.risultato();
}

}  // namespace sortimetra::posizione
