#include "chance/storia.h"

#include "chance/caso.h"
#include "results/risultato.h"
#include "statistics/misure.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <utility>

namespace sortimetra {

namespace {

/// Follows an event row by row and keeps what came.
class Diario {
  public:
    Diario(const Evento& evento, Storia& storia)
        : posti_{posti_contati(evento.gioco, evento.posti)}, storia_{&storia} {
        for (const Numero n : evento.numeri()) ++peso_[n];
        peso_[0] = 0;
    }

    void riga(const RigaGioco& riga) {
        estremi(riga);
        UscitaStoria uscita{.ruota = riga.ruota};
        int peso = 0;
        int pieni = 0;
        for (std::size_t p = 0; p < riga.celle.size(); ++p) {
            const Numero n = riga.celle[p];
            if (n == 0 || (posti_ >> p & 1U) == 0) continue;
            ++pieni;
            if (peso_[n] == 0 || gia_uscito(uscita, n)) continue;
            peso += peso_[n];
            uscita.numeri[uscita.quanti++] = n;
        }
        if (pieni == 0) return;
        ++storia_->percorso.righe;
        storia_->percorso.concorsi += riga.c != ultimo_c_ ? 1 : 0;
        ultimo_c_ = riga.c;
        ++storia_->anni.back().righe;
        if (peso >= storia_->evento.presenti) esce(riga, uscita, peso);
    }

  private:
    static bool gia_uscito(const UscitaStoria& uscita, Numero n) {
        const auto fine = uscita.numeri.begin() + uscita.quanti;
        return std::find(uscita.numeri.begin(), fine, n) != fine;
    }
    void estremi(const RigaGioco& riga) {
        if (storia_->vuota || riga.data != storia_->fine.data) {
            const int anno = mese_anno(riga.data).anno;
            if (storia_->vuota) storia_->inizio = {riga.concorso, riga.data};
            // Years without a draw stand there too, so that a row of bars has no gaps.
            while (storia_->anni.empty() || storia_->anni.back().anno < anno)
                storia_->anni.push_back(
                    {.anno = storia_->anni.empty() ? anno : storia_->anni.back().anno + 1});
        }
        storia_->vuota = false;
        storia_->fine = {riga.concorso, riga.data};
    }
    /// How often the row adds to the frequency: once, or once for each choice of the numbers that came.
    [[nodiscard]] std::int32_t volte(int peso) const {
        if (storia_->evento.conteggio == Conteggio::una_volta) return 1;
        std::int64_t scelte = 1;
        for (int i = 1; i <= storia_->evento.presenti; ++i)
            scelte = scelte * (peso - storia_->evento.presenti + i) / i;
        return static_cast<std::int32_t>(scelte);
    }
    void esce(const RigaGioco& riga, UscitaStoria& uscita, int peso) {
        const std::int32_t quante = volte(peso);
        storia_->frequenza += quante;
        storia_->anni.back().colpi += quante;
        std::sort(uscita.numeri.begin(), uscita.numeri.begin() + uscita.quanti);
        auto& colpi = storia_->colpi;
        if (colpi.empty() || colpi.back().estrazione != riga.c) {
            ColpoStoria colpo{.estrazione = riga.c,
                              .concorso = riga.concorso,
                              .data = riga.data,
                              .prima_uscita = static_cast<std::uint32_t>(storia_->uscite.size())};
            if (!colpi.empty()) colpo.ritardo = riga.c - colpi.back().estrazione - 1;
            colpi.push_back(colpo);
        }
        ++colpi.back().uscite;
        storia_->uscite.push_back(uscita);
    }

    Posti posti_;
    Storia* storia_;
    std::array<std::uint8_t, 256> peso_{};
    int ultimo_c_ = 0;
};

/// The measures as those of the 90 numbers are taken, from the draws of the hits.
void misura_storia(Storia& s, Estrazioni t) {
    Misura m{.ultimo = inizio_ambata(t)};
    for (const ColpoStoria& colpo : s.colpi) esce(m, colpo.estrazione);
    s.t = t;
    s.ritardo = ritardo(m, t);
    s.storico = m.storico;
}

std::string testo_numeri(const UscitaStoria& uscita) {
    std::string testo;
    for (std::size_t i = 0; i < uscita.quanti; ++i) {
        if (i > 0) testo += '-';
        aggiungi_due_cifre(testo, uscita.numeri[i]);
    }
    return testo;
}

/// The numbers that came in a draw: told once where every wheel had the same, else wheel by wheel.
std::string testo_numeri(std::span<const UscitaStoria> uscite) {
    std::string testo = testo_numeri(uscite.front());
    const bool uguali = std::all_of(uscite.begin(), uscite.end(), [&](const UscitaStoria& u) {
        return u.quanti == uscite.front().quanti && u.numeri == uscite.front().numeri;
    });
    if (uguali) return testo;
    for (const UscitaStoria& u : uscite.subspan(1)) testo += ", " + testo_numeri(u);
    return testo;
}

std::string testo_ruote(std::span<const UscitaStoria> uscite) {
    std::string testo;
    for (const UscitaStoria& u : uscite) {
        if (u.ruota < 0) continue;
        if (!testo.empty()) testo += ", ";
        testo += kNomiRuote[static_cast<std::size_t>(u.ruota)].esteso;
    }
    return testo;
}

}  // namespace

Storia storia(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito, const Evento& evento,
              Avanzamento& avanzamento) {
    Storia s;
    s.evento = evento;
    AmbitoRicerca suo = ambito;
    if (evento.gioco == Gioco::dieci_e_lotto) suo.ruote = SelezioneRuote::tutte();
    Diario diario{evento, s};
    const Estrazioni t = percorri_gioco(archivio, evento.gioco, suo, PassoDieciELotto::concorso, avanzamento,
                                        [&](const RigaGioco& riga) { diario.riga(riga); });
    misura_storia(s, t);
    return s;
}

std::string nome_evento(const Evento& evento) {
    std::string testo;
    const bool non_tutti = evento.presenti < evento.quanti;
    if (non_tutti) testo = fmt::format("{} su ", int{evento.presenti});
    for (std::size_t i = 0; i < evento.quanti; ++i) {
        if (i > 0) testo += '-';
        aggiungi_due_cifre(testo, evento.caselle[i]);
    }
    constexpr Posti kSuperstar = 1U << 7U;
    if (evento.posti == kSuperstar) return testo + " SuperStar";
    if (std::popcount(evento.posti) == 1)
        testo += fmt::format(" al {}° posto", std::countr_zero(evento.posti) + 1);
    return testo;
}

Tabella tabella_colpi(const Storia& storia) {
    const std::size_t n = storia.colpi.size();
    ColonnaInteri ordine{std::vector<std::int32_t>(n)};
    ColonnaInteri concorsi{std::vector<std::int32_t>(n)};
    ColonnaVoci date;
    date.in_ordine = true;
    ColonnaTesti ruote;
    ColonnaTesti numeri;
    ColonnaInteri ritardi{std::vector<std::int32_t>(n)};
    for (std::size_t i = 0; i < n; ++i) {
        const ColpoStoria& colpo = storia.colpi[i];
        const auto uscite = std::span{storia.uscite}.subspan(colpo.prima_uscita, colpo.uscite);
        ordine.valori[i] = static_cast<std::int32_t>(i + 1);
        concorsi.valori[i] = colpo.concorso;
        if (i == 0 || colpo.data != storia.colpi[i - 1].data) date.voci.push_back(testo_data(colpo.data));
        date.scelte.push_back(static_cast<std::uint32_t>(date.voci.size() - 1));
        ruote.valori.push_back(testo_ruote(uscite));
        numeri.valori.push_back(testo_numeri(uscite));
        ritardi.valori[i] = colpo.ritardo.value_or(kCellaPuntini);
    }
    Tabella t;
    t.titoli = {{"N.", "Concorso", "Data", "Ruote", "Numeri", "Ritardo"}};
    t.colonne = {std::move(ordine), std::move(concorsi), std::move(date),
                 std::move(ruote),  std::move(numeri),   std::move(ritardi)};
    return t;
}

Tabella tabella_sintesi(const Storia& storia) {
    const TestiCaso testi =
        testi_caso(Legge{storia.evento}, storia.percorso, storia.frequenza, storia.ritardo, 1);
    Tabella t;
    t.nome = "sintesi";
    t.titoli = {{"Frequenza", "Ritardo", "Ritardo Storico", "Attesa", "Scarto", "Probabilità", "In tabella",
                 "Record atteso"}};
    for (const std::int32_t misura : {storia.frequenza, storia.ritardo, storia.storico})
        t.colonne.emplace_back(ColonnaInteri{{misura}});
    for (const std::string* testo :
         {&testi.attesa, &testi.scarto, &testi.probabilita, &testi.in_tabella, &testi.record_atteso})
        t.colonne.emplace_back(ColonnaTesti{{*testo}});
    return t;
}

}  // namespace sortimetra
