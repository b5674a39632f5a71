#include "systems/ric_stat.h"

#include "files/file_sicuro.h"
#include "statistics/famiglie.h"
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

/// Short labels of the families told by their ends: the step from one number to the next.
int passo_etichetta(std::string_view chiave) {
    return chiave == "decine" ? 1 : chiave == "cadenze" ? 10 : chiave == "figure" ? 9 : 0;
}

/// "1/9 (90)" as "01-02-…-09-90"; a text without such a label stays as it is.
std::string espandi(std::string_view chiave, std::string_view testo) {
    const Famiglia* famiglia = trova_famiglia(chiave);
    const std::size_t barra = testo.find('/');
    if (famiglia == nullptr || barra == std::string_view::npos) return std::string{testo};
    std::string esteso;
    const auto aggiungi = [&esteso](int n) {
        if (!esteso.empty()) esteso += '-';
        aggiungi_due_cifre(esteso, n);
    };
    if (const int passo = passo_etichetta(chiave); passo != 0) {
        const auto da = static_cast<int>(valore_iniziale(testo.substr(0, barra)));
        const auto a = static_cast<int>(valore_iniziale(testo.substr(barra + 1, 2)));
        for (int n = da; n <= a; n += passo) aggiungi(n);
        if (const std::size_t aperta = testo.find('('); aperta != std::string_view::npos)
            aggiungi(static_cast<int>(valore_iniziale(testo.substr(aperta + 1, 2))));
        return esteso;
    }
    // The other labels do not tell what lies between their ends; the series does.
    const auto serie = carica_serie(*famiglia, {});
    for (std::size_t i = 0; serie && i < serie->righe() && esteso.empty(); ++i)
        if (etichetta_membro(*famiglia, *serie, i) == testo)
            for (const Numero n : serie->membro(i)) aggiungi(n);
    return esteso.empty() ? std::string{testo} : esteso;
}

}  // namespace

NumeriInCella leggi_cella(std::string_view chiave, std::string_view testo) {
    constexpr std::string_view kSeparatori = "-.";
    const std::string esteso = espandi(chiave, testo);
    NumeriInCella cella;
    for (std::size_t inizio = 0; inizio <= esteso.size(); ++cella.quanti) {
        const std::size_t fine = std::min(esteso.find_first_of(kSeparatori, inizio), esteso.size());
        const std::size_t due = std::max(inizio, fine < 2 ? 0 : fine - 2);
        tieni(cella.numeri,
              static_cast<int>(valore_iniziale(std::string_view{esteso}.substr(due, fine - due))));
        inizio = fine + 1;
    }
    return cella;
}

bool ammette_schedina(std::string_view chiave, const Tabella& griglia) {
    if (griglia.colonne.empty() || chiave == "cifre") return false;
    if (const auto* gruppi = std::get_if<ColonnaGruppi>(&griglia.colonne.front())) return gruppi->quanti >= 2;
    return std::holds_alternative<ColonnaTesti>(griglia.colonne.front()) && trova_famiglia(chiave) != nullptr;
}

std::optional<Sistema> sistema_da_griglia(std::string_view chiave, const Tabella& griglia) {
    if (!ammette_schedina(chiave, griglia)) return std::nullopt;
    Sistema s;
    s.combinazioni.reserve(griglia.righe());
    std::string testo;
    for (std::size_t r = 0; r < griglia.righe(); ++r) {
        testo.clear();
        griglia.aggiungi_testo(testo, r, 0);
        const NumeriInCella cella = leggi_cella(chiave, testo);
        if (r == 0) s.k = cella.quanti;
        s.combinazioni.push_back(cella.numeri);
    }
    // A grid without rows still says what it would hold.
    if (const auto* gruppi = std::get_if<ColonnaGruppi>(&griglia.colonne.front());
        s.k == 0 && gruppi != nullptr)
        s.k = gruppi->quanti;
    s.k = std::min(s.k, CombinazioneSistema{}.size());
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

std::expected<Consegna, ErroreArchivio> scrivi_schedina(const fs::path& cartella, std::string_view chiave,
                                                        const Tabella& griglia, Data oggi) {
    const auto s = sistema_da_griglia(chiave, griglia);
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
