#include "cartella.h"
#include "confronto.h"
#include "conti.h"
#include "files/file_sicuro.h"
#include "morsi.h"
#include "stores/apertura.h"
#include "stores/negozio_nativo.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>

namespace {

using namespace sortimetra;

constexpr std::size_t kMassimo = 1U << 24;
constexpr int kConcorsi = 150;

/// Draws of every game, no two rows alike: some dozens of pages, with pages of pages above them.
RigheArchivio righe() {
    RigheArchivio tutte;
    unsigned caso = 1;
    const auto numero = [&](int i) {
        caso = caso * 1'103'515'245U + 12'345U;
        return static_cast<Numero>((caso >> 16U) % 9 + 1 + static_cast<unsigned>(9 * i));
    };
    for (int c = 1; c <= kConcorsi; ++c) {
        const Data data{std::chrono::days{10'000 + c}};
        for (int w = 0; w < kRuote; ++w) {
            RigaLotto r{.concorso = c, .data = data, .ruota = w};
            for (int i = 0; i < 5; ++i) r.numeri.at(static_cast<std::size_t>(i)) = numero(i);
            tutte.lotto.push_back(r);
        }
        RigaSuperEnalotto s{.concorso = c, .data = data, .jolly = 89, .superstar = 90};
        for (int i = 0; i < 6; ++i) s.numeri.at(static_cast<std::size_t>(i)) = numero(i);
        tutte.superenalotto.push_back(s);
        RigaLotto n = tutte.lotto.back();
        n.ruota = kNazionale;
        for (int i = 0; i < 5; ++i) n.numeri.at(static_cast<std::size_t>(i)) = numero(i);
        tutte.nazionale.push_back(n);
    }
    return tutte;
}

constexpr unsigned kTabelle = kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto;

struct Sano {
    fuzz::Cartella cartella;
    std::string byte;
    ArchivioEstrazioni archivio;
    std::size_t pagina = 0;

    Sano() {
        if (!scrivi_drawit(cartella.percorso() / "drawit.db", righe(), false)) std::abort();
        auto letto = leggi_file(cartella.percorso() / "drawit.db", kMassimo);
        auto aperto = apri_archivio(cartella.percorso(), kTabelle);
        if (!letto || !aperto) std::abort();
        byte = std::move(*letto);
        archivio = std::move(*aperto);
        pagina =
            static_cast<unsigned char>(byte[16]) * std::size_t{256} + static_cast<unsigned char>(byte[17]);
    }
};

/// One thing that is wrong with the pages of the file.
void guasta(std::string& byte, std::size_t pagina, fuzz::Morsi& morsi) {
    const std::size_t pagine = byte.size() / pagina;
    const std::size_t quale = morsi.sotto(pagine);
    const std::size_t inizio = quale * pagina;
    const std::size_t testa = inizio + (quale == 0 ? 100 : 0);
    const auto somma = [&](std::size_t dove, int quanto) {
        const int n = static_cast<unsigned char>(byte[dove]) * 256 +
                      static_cast<unsigned char>(byte[dove + 1]) + quanto;
        byte[dove] = static_cast<char>(n >> 8);
        byte[dove + 1] = static_cast<char>(n);
    };
    switch (morsi.byte() % 9) {
        case 0:  // a cell more or fewer
            return somma(testa + 3, (morsi.byte() & 1U) != 0 ? 1 : -1);
        case 1: {  // a page over another
            const std::string copia = byte.substr(morsi.sotto(pagine) * pagina, pagina);
            byte.replace(inizio, pagina, copia);
            return;
        }
        case 2: {  // two pages in each other's place
            const std::size_t altra = morsi.sotto(pagine) * pagina;
            const std::string copia = byte.substr(altra, pagina);
            byte.replace(altra, pagina, byte.substr(inizio, pagina));
            byte.replace(inizio, pagina, copia);
            return;
        }
        case 3:  // a pointer to a cell, or to a page below
            return somma(testa + 8 + 2 * morsi.sotto(200), static_cast<std::int8_t>(morsi.byte()));
        case 4:  // the kind of a page, where its cells begin, its last child
            byte[testa + morsi.sotto(12)] = static_cast<char>(morsi.byte());
            return;
        case 5:
            byte.replace(inizio, pagina, std::string(pagina, '\0'));
            return;
        case 6:
            byte.resize(inizio + (morsi.byte() == 0 ? morsi.sotto(pagina) : 0));
            return;
        case 7:  // one bit anywhere in the page
            byte[inizio + morsi.sotto(pagina)] ^= static_cast<char>(1U << (morsi.byte() % 8U));
            return;
        default:  // what the file says of itself
            byte[morsi.sotto(100)] = static_cast<char>(morsi.byte());
    }
}

}  // namespace

/// A sound `drawit.db` whose pages were damaged, one thing after another: refused, or the sound file's draws.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    static const Sano sano;
    static fuzz::Conti conti{"fuzz_pagine_nativo"};
    std::string byte = sano.byte;
    fuzz::Morsi morsi{dati, n};
    while (!morsi.finiti() && byte.size() >= 2 * sano.pagina) guasta(byte, sano.pagina, morsi);
    sano.cartella.scrivi("drawit.db", byte);
    const auto letto = apri_archivio(sano.cartella.percorso(), kTabelle);
    if (!letto) {
        // A reader that refuses everything would learn nothing here.
        if (letto.error().motivo.empty() || n == 0) std::abort();
        conti.rifiutato();
    } else if (fuzz::stesse_estrazioni(*letto, sano.archivio)) {
        conti.uguale();
    } else {
        conti.diverso("pagine");
    }
    return 0;
}
