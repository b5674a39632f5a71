#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <utility>

namespace sortimetra {

/// A descriptor of the system, closed at the end of its scope; negative for none.
class Descrittore {
  public:
    explicit Descrittore(int d) : d_{d} {}
    Descrittore(Descrittore&& altro) noexcept : d_{std::exchange(altro.d_, -1)} {}
    Descrittore& operator=(Descrittore&& altro) noexcept {
        std::swap(d_, altro.d_);
        return *this;
    }
    Descrittore(const Descrittore&) = delete;
    Descrittore& operator=(const Descrittore&) = delete;
    ~Descrittore() { chiudi(); }
    void chiudi() {
        if (d_ >= 0) close(d_);
        d_ = -1;
    }
    [[nodiscard]] int numero() const { return d_; }
    /// Moves it above the standard three, which a program may have been started without.
    bool alza() {
        if (d_ > STDERR_FILENO) return true;
        const int alto = fcntl(d_, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
        chiudi();
        d_ = alto;
        return d_ >= 0;
    }

  private:
    int d_;
};

}  // namespace sortimetra
