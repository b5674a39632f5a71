#pragma once

#include "draws/ambito.h"

#include <any>

namespace sortimetra {

struct Ricerca;

/// What a search takes beside the scope: a struct that the search's subject defines, whose defaults are what
/// an untouched screen has. A value that holds another struct than the one asked for answers with the
/// defaults.
class Parametri {
  public:
    Parametri() = default;
    template <class Gruppo>
        requires(!std::is_same_v<std::remove_cvref_t<Gruppo>, Parametri>)
    Parametri(Gruppo gruppo)  // NOLINT(*-explicit-*): a group is what parameters are
        : gruppo_{std::move(gruppo)} {}

    /// The group, to read.
    template <class Gruppo>
    [[nodiscard]] const Gruppo& come() const {
        static const Gruppo intatto{};
        const auto* gruppo = std::any_cast<Gruppo>(&gruppo_);
        return gruppo == nullptr ? intatto : *gruppo;
    }
    /// The group, to fill.
    template <class Gruppo>
    [[nodiscard]] Gruppo& per() {
        if (std::any_cast<Gruppo>(&gruppo_) == nullptr) gruppo_ = Gruppo{};
        return *std::any_cast<Gruppo>(&gruppo_);
    }

  private:
    std::any gruppo_;
};

/// A search as asked, filled once by a screen from its controls or by the command line from its options: the
/// row of the dispatch table and frozen values. It knows no control; what a search needs from a file of the
/// user's has been read into its parameters (`Ricerca::carica`).
struct Domanda {
    const Ricerca* ricerca = nullptr;
    AmbitoRicerca ambito;
    Parametri parametri;

    /// The parameters of one kind, to read.
    template <class Gruppo>
    [[nodiscard]] const Gruppo& di() const {
        return parametri.come<Gruppo>();
    }
};

}  // namespace sortimetra
