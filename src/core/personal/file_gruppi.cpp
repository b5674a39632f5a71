#include "personal/file_gruppi.h"

#include "files/file_sicuro.h"
#include "personal/parametri.h"
#include "text/campi.h"
#include "text/windows1252.h"

#include <fmt/core.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace sortimetra {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kGruppiMassimo = std::size_t{64} << 20U;

Messaggio rovinato(const fs::path& cartella, int riga, std::string_view atteso) {
    return {Avviso::file_danneggiato, fmt::format("{}: riga {}: {}. Il file resta com'è.",
                                                  (cartella / kFileGruppi).string(), riga, atteso)};
}

Messaggio messaggio(const ErroreArchivio& errore) {
    return {Avviso::altro, errore.testo()};
}

/// The bytes of the file; nothing where there is none.
std::expected<std::optional<std::string>, Messaggio> leggi(const fs::path& cartella) {
    const fs::path file = cartella / kFileGruppi;
    std::error_code errore;
    if (!fs::exists(file, errore) && !errore) return std::nullopt;
    auto testo = leggi_file(file, kGruppiMassimo);
    if (!testo) return std::unexpected(messaggio(testo.error()));
    return std::move(*testo);
}

/// A group as it stands in the file, for the list and for copying it.
struct GruppoScritto {
    VoceGruppo voce;
    std::string_view nome;    ///< Windows-1252
    std::string_view numeri;  ///< the third line
};

bool dimensioni_valide(std::optional<int> lunghette, std::optional<int> numeri) {
    return lunghette && numeri && *lunghette >= 1 && *lunghette <= static_cast<int>(kLunghetteGruppo) &&
           *numeri >= 1 && *numeri <= static_cast<int>(kNumeriLunghetta);
}

std::expected<std::vector<GruppoScritto>, Messaggio> gruppi_scritti(const fs::path& cartella,
                                                                    std::string_view byte) {
    std::vector<GruppoScritto> gruppi;
    LettoreCampi lettore{byte};
    while (!lettore.finito()) {
        const int riga = lettore.riga();
        const auto nome = lettore.campo();
        if (!nome || lettore.riga() != riga + 1)
            return std::unexpected(rovinato(cartella, riga, "atteso il nome di un gruppo fra virgolette"));
        const auto lunghette = lettore.intero();
        const auto numeri = lunghette ? lettore.intero() : std::nullopt;
        if (!dimensioni_valide(lunghette, numeri) || lettore.riga() != riga + 2)
            return std::unexpected(
                rovinato(cartella, riga + 1,
                         "attesi il numero di lunghette, da 1 a 50, e quanti numeri ha ognuna, "
                         "da 1 a 20"));
        const std::string_view resto = lettore.resto();
        if (resto.empty() || lettore.riga() != riga + 3)
            return std::unexpected(rovinato(cartella, riga + 2,
                                            "attesi i numeri del gruppo: la riga manca o è "
                                            "troncata"));
        gruppi.push_back({{da_windows_1252(*nome), *lunghette, *numeri}, *nome, resto});
    }
    return gruppi;
}

/// Puts the reader behind the first field that equals the name; false if there is none.
bool cerca_nome(LettoreCampi& lettore, std::string_view nome) {
    while (const auto campo = lettore.campo()) {
        if (*campo == nome) return true;
        lettore.resto();
    }
    return false;
}

std::string record_gruppo(std::string_view nome, std::size_t lunghette, std::size_t numeri,
                          std::string_view terza_riga) {
    std::string testo;
    aggiungi_campo(testo, nome);
    testo +=
        fmt::format("{}{},{}{}{}{}", kFineRecord, lunghette, numeri, kFineRecord, terza_riga, kFineRecord);
    return testo;
}

/// The name in the file's bytes; nothing if it cannot stand there.
std::optional<std::string> nome_in_byte(std::string_view nome) {
    std::string byte = in_windows_1252(nome);
    if (byte.find_first_of("\"\r\n") != std::string::npos || byte.find('\0') != std::string::npos ||
        da_windows_1252(byte) != nome)
        return std::nullopt;
    return byte;
}

}  // namespace

std::expected<std::vector<VoceGruppo>, Messaggio> elenca_gruppi(const fs::path& cartella) {
    const auto byte = leggi(cartella);
    if (!byte) return std::unexpected(byte.error());
    if (!*byte) return std::unexpected(Messaggio{Avviso::nessun_gruppo, std::string{kNessunGruppo}});
    auto gruppi = gruppi_scritti(cartella, **byte);
    if (!gruppi) return std::unexpected(gruppi.error());
    std::vector<VoceGruppo> voci;
    voci.reserve(gruppi->size());
    for (GruppoScritto& g : *gruppi) voci.push_back(std::move(g.voce));
    return voci;
}

std::expected<SerieCorrente, Messaggio> apri_gruppo(const fs::path& cartella, std::string_view nome) {
    const auto byte = leggi(cartella);
    if (!byte) return std::unexpected(byte.error());
    if (!*byte) return std::unexpected(Messaggio{Avviso::nessun_gruppo, std::string{kNessunGruppo}});
    LettoreCampi lettore{**byte};
    const auto cercato = nome_in_byte(nome);
    if (!cercato || !cerca_nome(lettore, *cercato))
        return std::unexpected(
            Messaggio{Avviso::nessun_gruppo, fmt::format("Nessun gruppo salvato ha il nome \"{}\".", nome)});
    const int riga = lettore.riga();
    const auto lunghette = lettore.intero();
    const auto numeri = lunghette ? lettore.intero() : std::nullopt;
    if (!dimensioni_valide(lunghette, numeri))
        return std::unexpected(rovinato(
            cartella, riga,
            fmt::format(
                "dopo il nome \"{}\" attesi il numero di lunghette, da 1 a 50, e quanti numeri ha ognuna, "
                "da 1 a 20",
                nome)));
    SerieCorrente gruppo{.colonne = static_cast<std::size_t>(*numeri)};
    const std::size_t celle = static_cast<std::size_t>(*lunghette) * gruppo.colonne;
    while (gruppo.numeri.size() < celle) {
        const int dove = lettore.riga();
        const auto n = lettore.intero();
        if (!n || *n < 1 || *n > kNumeri)
            return std::unexpected(rovinato(
                cartella, dove, fmt::format("attesi {} numeri da 1 a 90 per il gruppo \"{}\"", celle, nome)));
        gruppo.numeri.push_back(static_cast<Numero>(*n));
    }
    return gruppo;
}

std::expected<void, Messaggio> salva_gruppo(const fs::path& cartella, std::string_view nome,
                                            const SerieCorrente& gruppo) {
    const auto scritto = nome_in_byte(nome);
    if (!scritto)
        return std::unexpected(Messaggio{
            Avviso::nome_non_valido,
            "Il nome di un gruppo non può contenere virgolette, a capo o caratteri fuori dall'alfabeto "
            "latino."});
    auto byte = leggi(cartella);
    if (!byte) return std::unexpected(byte.error());
    std::string testo = std::move(*byte).value_or("");
    // Behind a damaged group a new one could not be found again.
    if (const auto gruppi = gruppi_scritti(cartella, testo); !gruppi) return std::unexpected(gruppi.error());
    LettoreCampi lettore{testo};
    if (cerca_nome(lettore, *scritto))
        return std::unexpected(Messaggio{Avviso::nome_in_uso, std::string{kNomeInUso}});
    std::string numeri;
    for (const Numero n : gruppo.numeri) numeri += fmt::format("{}{}", numeri.empty() ? "" : ",", n);
    testo += record_gruppo(*scritto, gruppo.righe(), gruppo.colonne, numeri);
    if (const auto esito = scrivi_file(cartella / kFileGruppi, testo); !esito)
        return std::unexpected(messaggio(esito.error()));
    return {};
}

std::expected<void, Messaggio> elimina_gruppo(const fs::path& cartella, std::size_t posto) {
    const auto byte = leggi(cartella);
    if (!byte) return std::unexpected(byte.error());
    if (!*byte) return std::unexpected(Messaggio{Avviso::nessun_gruppo, std::string{kNessunGruppo}});
    const auto gruppi = gruppi_scritti(cartella, **byte);
    if (!gruppi) return std::unexpected(gruppi.error());
    std::string rimasti;
    for (std::size_t i = 0; i < gruppi->size(); ++i) {
        const GruppoScritto& g = (*gruppi)[i];
        if (i != posto)
            rimasti += record_gruppo(g.nome, static_cast<std::size_t>(g.voce.lunghette),
                                     static_cast<std::size_t>(g.voce.numeri), g.numeri);
    }
    if (const auto esito = scrivi_file(cartella / kFileGruppiRimasti, rimasti); !esito)
        return std::unexpected(messaggio(esito.error()));
    std::error_code errore;
    if (fs::remove(cartella / kFileGruppi, errore); errore)
        return std::unexpected(
            messaggio({cartella / kFileGruppi,
                       fmt::format("non si può eliminare: {}", motivo_sistema(errore.value()))}));
    return {};
}

}  // namespace sortimetra
