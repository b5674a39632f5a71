#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace sortimetra::fuzz {

/// What became of damaged files whose sound answer is known: how many were tried, how many a reader accepted,
/// how many of those gave another answer without a word. One of the last kind ends the process, as libFuzzer
/// wants it, unless SORTIMETRA_FUZZ_CONTA is set: then they are only counted.
class Conti {
  public:
    explicit Conti(std::string_view nome) : nome_{nome} {}
    Conti(const Conti&) = delete;
    Conti& operator=(const Conti&) = delete;
    ~Conti() {
        std::fprintf(stderr, "%s: provati %lu, accettati %lu, diversi %lu, diversi senza rimedio %lu\n",
                     nome_.c_str(), provati_, accettati_, diversi_, inevitabili_);
    }

    void rifiutato() { ++provati_; }
    void uguale() {
        ++provati_;
        ++accettati_;
    }
    /// Another answer that nothing in the file contradicts: a number in the place of a number.
    void inevitabile() {
        uguale();
        ++inevitabili_;
    }
    void diverso(std::string_view cosa) {
        uguale();
        ++diversi_;
        if (diversi_ <= kDetti)
            std::fprintf(stderr, "%s: accettato e diverso: \"%.*s\"\n", nome_.c_str(),
                         static_cast<int>(cosa.size()), cosa.data());
        if (std::getenv("SORTIMETRA_FUZZ_CONTA") == nullptr) std::abort();
    }

  private:
    static constexpr unsigned long kDetti = 20;
    std::string nome_;
    unsigned long provati_ = 0;
    unsigned long accettati_ = 0;
    unsigned long diversi_ = 0;
    unsigned long inevitabili_ = 0;
};

}  // namespace sortimetra::fuzz
