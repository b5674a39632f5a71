#include "stores/apertura.h"
#include "stores/copia_compatta.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <utility>

namespace {

using namespace sortimetra;

constexpr IdentitaNegozio kIdentita{.dispositivo = 1, .inode = 2, .grandezza = 3};

/// A copy of a few draws of every game.
std::string sana() {
    RigheArchivio righe;
    for (int c = 1; c <= 9; ++c) {
        const Data data{std::chrono::days{10000 + c}};
        for (int w = c % 3; w < kRuote; ++w)
            righe.lotto.push_back({.concorso = c, .data = data, .ruota = w, .numeri = {1, 2, 3, 44, 90}});
        righe.nazionale.push_back(
            {.concorso = c, .data = data, .ruota = kNazionale, .numeri = {5, 0, 7, 8, 9}});
        righe.superenalotto.push_back(
            {.concorso = c, .data = data, .numeri = {1, 2, 3, 4, 5, 6}, .jolly = 7, .superstar = 8});
        righe.winforlife.push_back({.concorso = c,
                                    .data = data,
                                    .ora = std::to_string(8 + c % 3) + ":00",
                                    .numeri = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}});
    }
    const auto archivio = ArchivioEstrazioni::componi(std::move(righe));
    if (!archivio) std::abort();
    return byte_copia(kIdentita, {.tabelle = kTutteLeTabelle, .contenuto = archivio->tabelle()});
}

template <class Tabella>
void guarda(const Tabella& t, int massimo) {
    if (t.data.size() != t.concorso.size() || t.numeri.size() != t.concorso.size()) std::abort();
    for (std::size_t i = 0; i < t.concorso.size(); ++i) {
        if (t.concorso[i] < 1 || t.concorso[i] > kConcorsoMassimo) std::abort();
        if (i > 0 && t.concorso[i] < t.concorso[i - 1]) std::abort();
        if (t.data[i] < kPrimaData || t.data[i] > kUltimaData) std::abort();
        for (const Numero n : t.numeri[i])
            if (n > massimo) std::abort();
    }
}

}  // namespace

/// Any bytes, or those of a sound copy that was damaged, with their own checksum or with the right one: what
/// is taken holds nothing that a search could fall over.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    static const std::string intera = sana();
    if (n == 0) return 0;
    const unsigned modo = dati[0] % 3U;
    ++dati;
    --n;
    std::string testo = modo == 2 ? std::string{dati, dati + n} : intera;
    // Two bytes of place, one of value, and so on; a rest of one byte or two cuts the file there.
    for (std::size_t i = 0; modo != 2 && i < n; i += 3) {
        const std::size_t dove = (dati[i] + (i + 1 < n ? std::size_t{dati[i + 1]} * 256 : 0)) % testo.size();
        if (i + 2 < n)
            testo[dove] = static_cast<char>(dati[i + 2]);
        else
            testo.resize(dove + 1);
    }
    const auto memoria = std::make_shared_for_overwrite<std::byte[]>(testo.size());
    std::memcpy(memoria.get(), testo.data(), testo.size());
    const std::span byte{memoria.get(), testo.size()};
    if (modo == 1 && byte.size() >= kPostoSomma + sizeof(std::uint64_t)) {
        const std::uint64_t somma = somma_copia(byte);
        std::memcpy(byte.data() + kPostoSomma, &somma, sizeof somma);
    }
    const auto letta = interpreta_copia(byte, kIdentita, memoria);
    // A reader that refuses everything would learn nothing here.
    if (!letta && n == 0 && modo != 2) std::abort();
    // With its own checksum only what was written is taken.
    if (letta && modo == 0 && testo != intera) std::abort();
    if (!letta) return 0;
    guarda(letta->contenuto.lotto, kNumeri);
    guarda(letta->contenuto.nazionale, kNumeri);
    guarda(letta->contenuto.superenalotto, kNumeri);
    guarda(letta->contenuto.winforlife, kNumeriWinForLife);
    if (letta->contenuto.confini && !possibili(*letta->contenuto.confini)) std::abort();
    std::size_t lettere = 0;
    for (std::size_t i = 0; i < letta->contenuto.winforlife.ora.size(); ++i)
        lettere += letta->contenuto.winforlife.ora[i].size();
    return lettere > byte.size() * byte.size() ? 1 : 0;
}
