#include "stores/intento.h"

#include "files/blocco_cartella.h"
#include "files/file_sicuro.h"
#include "files/passi_disco.h"
#include "stores/laterali.h"

#include <fmt/core.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>
#include <utility>

namespace sortimetra {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrima = "sortimetra: cambio dell'archivio da concludere";
constexpr std::string_view kUltima = "fine";
/// An intent is a few short lines.
constexpr std::size_t kIntentoMassimo = 4096;
/// The steps of a change take milliseconds, but a disk may be slow.
constexpr auto kAttesa = std::chrono::seconds{2};
constexpr auto kPausa = std::chrono::milliseconds{2};

bool nome_ammesso(std::string_view nome) {
    if (nome.ends_with(kFinalePrecedente)) nome.remove_suffix(kFinalePrecedente.size());
    return nome == "drawit.db" || nome == "drawit2.db";
}

/// Only what this program calls a temporary, and only in the same folder: the file may come from anywhere.
bool temporaneo_ammesso(std::string_view nome) {
    return nome.size() > 5 && nome.starts_with('.') && nome.ends_with(".tmp") &&
           nome.find_first_of(std::string_view{"/\0", 2}) == std::string_view::npos;
}

std::optional<PassoCambio> leggi_passo(std::string_view riga) {
    const auto parola = [&riga] {
        const auto fine = std::min(riga.find(' '), riga.size());
        const std::string_view p = riga.substr(0, fine);
        riga.remove_prefix(std::min(fine + 1, riga.size()));
        return p;
    };
    const std::string_view che = parola();
    PassoCambio passo{.che = che == "metti" ? PassoCambio::Che::Metti : PassoCambio::Che::Togli,
                      .nome = std::string{parola()},
                      .temporaneo = std::string{riga}};
    if ((che != "metti" && che != "togli") || !nome_ammesso(passo.nome)) return std::nullopt;
    if (che == "metti" ? !temporaneo_ammesso(passo.temporaneo) : !passo.temporaneo.empty())
        return std::nullopt;
    return passo;
}

std::optional<Intento> leggi_passi(std::string_view testo) {
    Intento intento;
    bool finito = false;
    for (bool prima = true; !testo.empty(); prima = false) {
        const auto fine = testo.find('\n');
        if (fine == std::string_view::npos || finito) return std::nullopt;
        const std::string_view riga = testo.substr(0, fine);
        testo.remove_prefix(fine + 1);
        if (prima) {
            if (riga != kPrima) return std::nullopt;
        } else if (riga == kUltima) {
            finito = true;
        } else {
            auto passo = leggi_passo(riga);
            if (!passo) return std::nullopt;
            intento.push_back(std::move(*passo));
        }
    }
    if (!finito) return std::nullopt;
    return intento;
}

/// The errno of what failed, or 0.
int applica_passo(const fs::path& cartella, const PassoCambio& passo) {
    const fs::path dove = posto(cartella, passo.nome);
    if (passo.che == PassoCambio::Che::Togli) {
        if (const int codice = togli_laterali(dove); codice != 0) return codice;
        return togli_file(cartella / passo.nome);
    }
    const fs::path nuovo = dove.parent_path() / passo.temporaneo;
    if (!esiste_voce(nuovo)) return 0;  // has its place already
    if (const int codice = togli_laterali(dove); codice != 0) return codice;
    return rinomina_file(nuovo, dove);
}

}  // namespace

fs::path posto(const fs::path& cartella, std::string_view nome) {
    return segui_collegamenti(cartella / nome);
}

std::expected<void, ErroreArchivio> scrivi_intento(const fs::path& cartella, const Intento& intento) {
    std::string testo = fmt::format("{}\n", kPrima);
    for (const PassoCambio& p : intento)
        testo += p.che == PassoCambio::Che::Metti ? fmt::format("metti {} {}\n", p.nome, p.temporaneo)
                                                  : fmt::format("togli {}\n", p.nome);
    testo += fmt::format("{}\n", kUltima);
    return scrivi_file(cartella / kFileCambio, testo);
}

std::expected<std::optional<Intento>, ErroreArchivio> leggi_intento(const fs::path& cartella) {
    const fs::path file = cartella / kFileCambio;
    if (!esiste_voce(file)) return std::nullopt;
    const auto testo = leggi_file(file, kIntentoMassimo);
    if (!testo) {
        if (!esiste_voce(file)) return std::nullopt;  // finished meanwhile
        return std::unexpected(testo.error());
    }
    auto intento = leggi_passi(*testo);
    if (!intento)
        return std::unexpected(ErroreArchivio{
            file,
            "un cambio dell'archivio è rimasto a metà e non si capisce quale: togliere questo file per usare "
            "l'archivio com'è"});
    return intento;
}

Avanzata applica_intento(const fs::path& cartella, const Intento& intento) {
    Avanzata avanzata;
    for (const PassoCambio& passo : intento) {
        if (const int codice = applica_passo(cartella, passo); codice != 0) {
            avanzata.errore =
                ErroreArchivio{cartella / passo.nome,
                               fmt::format("non si può {} il file: {}",
                                           passo.che == PassoCambio::Che::Metti ? "sostituire" : "togliere",
                                           motivo_sistema(codice))};
            return avanzata;
        }
        ++avanzata.fatti;
    }
    // The new names are on the disk before the word that they are to come goes.
    fissa_cartella(cartella / kFileCambio);
    for (const PassoCambio& passo : intento)
        if (const fs::path dove = posto(cartella, passo.nome); dove.parent_path() != cartella)
            fissa_cartella(dove);
    if (const int codice = togli_file(cartella / kFileCambio); codice != 0)
        avanzata.errore = ErroreArchivio{
            cartella / kFileCambio, fmt::format("il file non si può togliere: {}", motivo_sistema(codice))};
    return avanzata;
}

bool cambio_sospeso(const fs::path& cartella) {
    return esiste_voce(cartella / kFileCambio);
}

std::expected<Intento, ErroreArchivio> concludi_sospeso(const fs::path& cartella) {
    const fs::path file = cartella / kFileCambio;
    const auto fine = std::chrono::steady_clock::now() + kAttesa;
    while (esiste_voce(file)) {
        const auto blocco = BloccoCartella::prova(cartella);
        const bool basta = std::chrono::steady_clock::now() >= fine;
        if (blocco || basta) {
            auto intento = leggi_intento(cartella);
            if (!intento) return std::unexpected(std::move(intento.error()));
            if (!*intento) break;
            // What cannot be finished from here is read as if it were.
            if (!blocco || applica_intento(cartella, **intento).errore) return std::move(**intento);
            break;
        }
        std::this_thread::sleep_for(kPausa);
    }
    return Intento{};
}

std::optional<fs::path> come_se(const fs::path& cartella, const Intento& intento, std::string_view nome) {
    const auto passo =
        std::find_if(intento.begin(), intento.end(), [&](const PassoCambio& p) { return p.nome == nome; });
    if (passo == intento.end()) return cartella / nome;
    if (passo->che == PassoCambio::Che::Togli) return std::nullopt;
    const fs::path nuovo = posto(cartella, nome).parent_path() / passo->temporaneo;
    return esiste_voce(nuovo) ? nuovo : cartella / nome;
}

}  // namespace sortimetra
