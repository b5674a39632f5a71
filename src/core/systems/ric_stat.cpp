#include "systems/ric_stat.h"

#include "files/file_sicuro.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <set>
#include <span>
#include <utility>

namespace sortimetra {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kNome = "ric_stat";
constexpr std::string_view kCartellaLunghi = "sestine-decine";
constexpr std::string_view kACapo = "\r\n";
constexpr std::string_view kZeroCombinazioni =
    "Il sistema rielaborato ha dato zero combinazioni valide.\r\n"
    "Da adesso sarà considerato un sistema condizionato a sviluppo non registrato.";

/// Folder and letter by the count of numbers per line.
struct Genere {
    std::string_view cartella;
    std::string_view lettera;
};
Genere genere(std::size_t k) {
    constexpr std::array<Genere, 4> kGeneri{
        {{"ambo", "a"}, {"terno", "b"}, {"quaterna", "c"}, {"cinquina", "d"}}};
    return k >= 2 && k <= 5 ? kGeneri[k - 2] : Genere{kCartellaLunghi, "f"};
}

fs::path file(const fs::path& cartella, const Sistema& s, std::string_view quale) {
    return cartella / fmt::format("{}{}{}.txt", s.nome_file_sistema, quale, s.lettera_sistema);
}
fs::path segno(const fs::path& cartella, const Sistema& s, std::string_view estensione) {
    return cartella / (s.nome_file_sistema + std::string{estensione});
}

/// A file that is not there is as good as removed.
EsitoSistema elimina(const fs::path& da_togliere) {
    std::error_code errore;
    fs::remove(da_togliere, errore);
    if (errore) return std::unexpected(ErroreArchivio{da_togliere, "il file non si può eliminare"});
    return {};
}

EsitoSistema crea_cartella(const fs::path& cartella) {
    std::error_code errore;
    fs::create_directories(cartella, errore);
    if (errore) return std::unexpected(ErroreArchivio{cartella, "la cartella non si può creare"});
    return {};
}

/// Runs steps until the first that fails.
template <class... Passi>
EsitoSistema in_fila(Passi&&... passi) {
    EsitoSistema esito;
    static_cast<void>(((esito = passi(), esito.has_value()) && ...));
    return esito;
}

/// Keeps a number in the first empty slot, unless it is in one already or all are taken.
void tieni(std::span<int> posti, int numero) {
    for (int& posto : posti) {
        if (posto == numero) return;
        if (posto == 0) {
            posto = numero;
            return;
        }
    }
}

}  // namespace

CombinazioneSistema combinazione_sistema(std::span<const Numero> numeri) {
    CombinazioneSistema c{};
    for (const Numero n : numeri) tieni(c, n);
    return c;
}

bool ammette_schedina(const Risposta& risposta) {
    if (!risposta.ricerca().schedine || !risposta.prodotta() || risposta.risultato->tabelle.empty())
        return false;
    const Tabella& griglia = risposta.risultato->tabelle.front();
    return griglia.numeri_per_riga() >= 2;
}

std::optional<Sistema> sistema_da_griglia(const Risposta& risposta) {
    if (!ammette_schedina(risposta)) return std::nullopt;
    const Tabella& griglia = risposta.risultato->tabelle.front();
    Sistema s;
    s.k = std::min(griglia.numeri_per_riga(), CombinazioneSistema{}.size());
    s.combinazioni.reserve(griglia.righe());
    for (std::size_t r = 0; r < griglia.righe(); ++r)
        s.combinazioni.push_back(combinazione_sistema(griglia.numeri(r).numeri()));
    const Genere g = genere(s.k);
    s.nome_file_sistema = fmt::format("{}/{}", g.cartella, kNome);
    s.lettera_sistema = g.lettera;
    return s;
}

EsitoSistema azzera_files_sistema(const fs::path& cartella, const Sistema& s) {
    return in_fila(
        [&] { return scrivi_file(segno(cartella, s, ".nn"), ""); },
        [&] { return elimina(file(cartella, s, "sy")); }, [&] { return elimina(file(cartella, s, "nu")); },
        [&] { return elimina(file(cartella, s, "in")); }, [&] { return elimina(file(cartella, s, "en")); });
}

EsitoSistema scrivi_numeri_sistema(const fs::path& cartella, const Sistema& s) {
    std::set<int> usati;
    for (const CombinazioneSistema& c : s.combinazioni) usati.insert(c.begin(), c.end());
    usati.erase(0);
    std::string testo;
    aggiungi_intero(testo, static_cast<std::int64_t>(usati.size()));
    testo += kACapo;
    for (const int n : usati) {
        aggiungi_intero(testo, n);
        testo += kACapo;
    }
    return scrivi_file(file(cartella, s, "in"), testo);
}

EsitoSistema prepara_sistema(const fs::path& cartella, const Sistema& s) {
    return in_fila([&] { return scrivi_file(segno(cartella, s, ".nn"), ""); },
                   [&] { return scrivi_file(file(cartella, s, "sy"), ""); },
                   [&] { return elimina(segno(cartella, s, ".rr")); },
                   [&] { return elimina(cartella / fmt::format("tempsy{}.txt", s.lettera_sistema)); });
}

std::expected<std::optional<std::string>, ErroreArchivio> scrivi_conteggio_sistema(const fs::path& cartella,
                                                                                   const Sistema& s,
                                                                                   Data oggi) {
    const std::size_t n = s.combinazioni.size();
    std::optional<std::string> messaggio;
    auto esito = scrivi_file(file(cartella, s, "nu"),
                             fmt::format("#{}#,\"\"{}{},{}{}", testo_data_iso(oggi), kACapo, n, n, kACapo));
    if (esito && n == 0) {
        const fs::path rielaborato = segno(cartella, s, ".rr");
        std::error_code errore;
        if (fs::exists(rielaborato, errore)) messaggio = kZeroCombinazioni;
        esito = in_fila([&] { return scrivi_file(segno(cartella, s, ".nn"), ""); },
                        [&] { return elimina(rielaborato); });
    }
    if (!esito) return std::unexpected(std::move(esito.error()));
    return messaggio;
}

EsitoSistema scrivi_sistema(const fs::path& cartella, const Sistema& s) {
    std::string testo;
    testo.reserve(s.combinazioni.size() * (s.k * 3 + 2));
    for (const CombinazioneSistema& c : s.combinazioni) {
        for (std::size_t i = 0; i < s.k; ++i) {
            if (i > 0) testo += ',';
            aggiungi_intero(testo, c[i]);
        }
        testo += kACapo;
    }
    return scrivi_file(file(cartella, s, "sy"), testo);
}

std::expected<Consegna, ErroreArchivio> scrivi_schedina(const fs::path& cartella, const Risposta& risposta,
                                                        Data oggi) {
    const auto s = sistema_da_griglia(risposta);
    if (!s) return std::unexpected(ErroreArchivio{{}, "questa griglia non ha una schedina"});
    const std::string_view genere_s{s->nome_file_sistema.data(), s->nome_file_sistema.find('/')};
    auto esito = in_fila([&] { return crea_cartella(cartella / kCartellaLunghi); },
                         [&] { return crea_cartella(cartella / genere_s); },
                         [&] { return azzera_files_sistema(cartella, *s); },
                         [&] { return scrivi_numeri_sistema(cartella, *s); },
                         [&] { return prepara_sistema(cartella, *s); },
                         [&]() -> EsitoSistema {
                             const auto conteggio = scrivi_conteggio_sistema(cartella, *s, oggi);
                             if (!conteggio) return std::unexpected(conteggio.error());
                             return {};
                         },
                         [&] { return scrivi_sistema(cartella, *s); });
    if (!esito) return std::unexpected(std::move(esito.error()));
    Consegna consegna{.file = s->nome_file_sistema};
    std::error_code errore;
    consegna.programma_aperto = fs::exists(cartella / "sch", errore);
    if (consegna.programma_aperto) return consegna;
    if (auto scritto =
            scrivi_file(cartella / "trans", fmt::format(R"("{}","{}"{})", genere_s, kNome, kACapo));
        !scritto)
        return std::unexpected(std::move(scritto.error()));
    return consegna;
}

}  // namespace sortimetra
