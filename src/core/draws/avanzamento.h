#pragma once

#include <cstddef>
#include <string_view>

namespace sortimetra {

/// The error of a job that was cancelled half way and therefore left nothing behind.
inline constexpr std::string_view kAnnullata = "operazione annullata";

/// Where a long loop reports how far it is, and learns whether to go on.
///
/// A search calls `procedi` every few hundred draws, never per row: an implementation may redraw a bar and
/// let the event loop run. The search keeps the rows it has when `procedi` says false.
class Avanzamento {
  public:
    Avanzamento() = default;
    Avanzamento(const Avanzamento&) = delete;
    Avanzamento& operator=(const Avanzamento&) = delete;
    virtual ~Avanzamento() = default;

    /// `fatto` of `totale` units are done. Returns false when the user has cancelled.
    virtual bool procedi(std::size_t fatto, std::size_t totale) = 0;
};

/// For tests, benchmarks and every caller with nobody to tell.
class SenzaAvanzamento final : public Avanzamento {
  public:
    bool procedi(std::size_t, std::size_t) override { return true; }
};

}  // namespace sortimetra
