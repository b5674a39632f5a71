#include "lunghette/misuratore.h"

#include <algorithm>
#include <utility>

namespace sortimetra {

namespace {

/// For the delay of the ambo: nothing but the last rows of pairs.
class MisuratoreCoppie final : public Misuratore {
  public:
    explicit MisuratoreCoppie(const UltimeCoppie& coppie) : coppie_{&coppie} {}

    void aggiungi(int numero) override {
        insieme_ = std::max(insieme_, ultime_[static_cast<std::size_t>(numero)]);
        const std::uint32_t* sue = coppie_->riga(numero);
        for (std::size_t n = 0; n < kIndiciCella; ++n) ultime_[n] = std::max(ultime_[n], sue[n]);
    }
    [[nodiscard]] std::int32_t frequenza(int /*candidato*/) const override { return 0; }
    [[nodiscard]] std::uint32_t ultima(int candidato) const override {
        return std::max(insieme_, ultime_[static_cast<std::size_t>(candidato)]);
    }

  private:
    const UltimeCoppie* coppie_;
    std::uint32_t insieme_ = 0;  ///< last row that the members hit by themselves
    /// Last row in which each number stands beside a member.
    std::array<std::uint32_t, kIndiciCella> ultime_{};
};

/// For every other measure: how many members each row holds. A candidate adds the rows that hold it and one
/// member less than is needed; those are counted per number and change only with the rows of a new member.
class MisuratoreConteggi final : public Misuratore {
  public:
    MisuratoreConteggi(const IndiceRighe& indice, int k)
        : indice_{&indice}, k_{k}, presenti_(indice.righe().righe()) {
        const auto n = static_cast<std::uint32_t>(presenti_.size());
        if (k_ == 0) {
            frequenza_ = static_cast<std::int32_t>(n);
            ultima_ = n;
        } else if (k_ == 1) {
            for (std::uint32_t r = 0; r < n; ++r) manca_uno(r);
        }
    }

    void aggiungi(int numero) override {
        for (const std::uint32_t r : indice_->di(numero)) {
            const int presenti = ++presenti_[r];
            if (presenti == k_) {
                ++frequenza_;
                ultima_ = std::max(ultima_, r + 1);
                for (std::size_t p = 0; p < posti(); ++p) --di_[indice_->celle(r)[p]].righe;
            } else if (presenti == k_ - 1) {
                manca_uno(r);
            }
        }
    }
    [[nodiscard]] std::int32_t frequenza(int candidato) const override {
        return frequenza_ + di_[static_cast<std::size_t>(candidato)].righe;
    }
    [[nodiscard]] std::uint32_t ultima(int candidato) const override {
        return std::max(ultima_, di_[static_cast<std::size_t>(candidato)].ultima);
    }

  private:
    struct DiNumero {
        std::int32_t righe = 0;  ///< rows with it that lack one member
        std::uint32_t ultima =
            0;  ///< the last row with it that ever did; the hit that followed is no earlier
    };

    [[nodiscard]] std::size_t posti() const { return indice_->righe().posti; }
    void manca_uno(std::uint32_t r) {
        const Numero* celle = indice_->celle(r);
        for (std::size_t p = 0; p < posti(); ++p) {
            DiNumero& d = di_[celle[p]];
            ++d.righe;
            d.ultima = std::max(d.ultima, r + 1);
        }
    }

    const IndiceRighe* indice_;
    int k_;
    std::vector<std::uint8_t> presenti_;  ///< members in each row
    std::int32_t frequenza_ = 0;          ///< rows that the members hit by themselves
    std::uint32_t ultima_ = 0;
    std::array<DiNumero, kIndiciCella> di_{};
};

}  // namespace

IndiceRighe::IndiceRighe(const RigheGioco& righe) : base_{&righe} {
    for (const Numero n : righe.celle) ++quante_[n];
    quante_[kNessunNumero] = 0;
    std::size_t fine = 0;
    for (std::size_t n = 0; n < kIndiciCella; ++n) {
        inizio_[n] = fine;
        fine += quante_[n];
    }
    righe_.resize(fine);
    quante_.fill(0);
    for (std::size_t i = 0; i < righe.celle.size(); ++i) {
        const Numero n = righe.celle[i];
        if (n == kNessunNumero) continue;
        const auto r = static_cast<std::uint32_t>(i / righe.posti);
        const std::size_t posto = inizio_[n] + quante_[n];
        if (quante_[n] > 0 && righe_[posto - 1] == r) {
            if (uniche_.empty()) uniche_ = righe.celle;
            uniche_[i] = kNessunNumero;
            continue;
        }
        righe_[posto] = r;
        ++quante_[n];
    }
}

UltimeCoppie::UltimeCoppie(const RigheGioco& righe) : ultime_(kIndiciCella * kIndiciCella) {
    const auto massimo = static_cast<std::size_t>(righe.massimo);
    std::size_t mancano = massimo * (massimo - 1) / 2;
    for (std::size_t r = righe.righe(); r-- > 0 && mancano > 0;) {
        const auto celle = righe.riga(r);
        for (std::size_t p = 0; p < celle.size(); ++p) {
            for (std::size_t q = p + 1; q < celle.size(); ++q) {
                const std::size_t a = celle[p];
                const std::size_t b = celle[q];
                std::uint32_t& ultima = ultime_[a * kIndiciCella + b];
                if (ultima != 0 || a == b || a % kNessunNumero == 0 || b % kNessunNumero == 0) continue;
                ultima = ultime_[b * kIndiciCella + a] = static_cast<std::uint32_t>(r) + 1;
                --mancano;
            }
        }
    }
}

const IndiceRighe& BancoLunghette::indice() {
    if (!indice_) indice_.emplace(righe_);
    return *indice_;
}

const UltimeCoppie& BancoLunghette::coppie() {
    if (!coppie_) coppie_.emplace(righe_);
    return *coppie_;
}

std::unique_ptr<Misuratore> BancoLunghette::misuratore(TipoRicerca tipo, int k, std::span<const int> membri) {
    std::unique_ptr<Misuratore> m;
    // Pairs with an empty cell are not told apart: a slot that shows 0 takes the other way.
    const bool con_zeri = std::find(membri.begin(), membri.end(), 0) != membri.end();
    if (tipo == TipoRicerca::ritardo && k == 2 && !con_zeri)
        m = std::make_unique<MisuratoreCoppie>(coppie());
    else
        m = std::make_unique<MisuratoreConteggi>(indice(), k);
    for (const int n : membri) m->aggiungi(n);
    return m;
}

}  // namespace sortimetra
