#include "systems/ric_stat.h"

#include "files/insieme_file.h"
#include "results/risultato.h"
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

std::expected<void, ErroreArchivio> crea_cartella(const fs::path& cartella) {
    std::error_code errore;
    fs::create_directories(cartella, errore);
    if (errore) return std::unexpected(ErroreArchivio{cartella, "la cartella non si può creare"});
    return {};
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

void azzera_files_sistema(InsiemeFile& insieme, const fs::path& cartella, const Sistema& s) {
    insieme.scrivi(segno(cartella, s, ".nn"), "");
    for (const char* quale : {"sy", "nu", "in", "en"}) insieme.togli(file(cartella, s, quale));
}

void scrivi_numeri_sistema(InsiemeFile& insieme, const fs::path& cartella, const Sistema& s) {
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
    insieme.scrivi(file(cartella, s, "in"), std::move(testo));
}

void prepara_sistema(InsiemeFile& insieme, const fs::path& cartella, const Sistema& s) {
    insieme.scrivi(segno(cartella, s, ".nn"), "");
    insieme.scrivi(file(cartella, s, "sy"), "");
    insieme.togli(segno(cartella, s, ".rr"));
    insieme.togli(cartella / fmt::format("tempsy{}.txt", s.lettera_sistema));
}

std::optional<std::string> scrivi_conteggio_sistema(InsiemeFile& insieme, const fs::path& cartella,
                                                    const Sistema& s, Data oggi) {
    const std::size_t n = s.combinazioni.size();
    insieme.scrivi(file(cartella, s, "nu"),
                   fmt::format("#{}#,\"\"{}{},{}{}", testo_data_iso(oggi), kACapo, n, n, kACapo));
    if (n != 0) return std::nullopt;
    const fs::path rielaborato = segno(cartella, s, ".rr");
    const bool c_era = insieme.ci_sara(rielaborato);
    insieme.scrivi(segno(cartella, s, ".nn"), "");
    insieme.togli(rielaborato);
    if (!c_era) return std::nullopt;
    return std::string{kZeroCombinazioni};
}

void scrivi_sistema(InsiemeFile& insieme, const fs::path& cartella, const Sistema& s) {
    std::string testo;
    testo.reserve(s.combinazioni.size() * (s.k * 3 + 2));
    for (const CombinazioneSistema& c : s.combinazioni) {
        for (std::size_t i = 0; i < s.k; ++i) {
            if (i > 0) testo += ',';
            aggiungi_intero(testo, c[i]);
        }
        testo += kACapo;
    }
    insieme.scrivi(file(cartella, s, "sy"), std::move(testo));
}

std::expected<Consegna, ErroreArchivio> scrivi_schedina(const fs::path& cartella, const Risposta& risposta,
                                                        Data oggi) {
    const auto s = sistema_da_griglia(risposta);
    if (!s) return std::unexpected(ErroreArchivio{{}, "questa griglia non ha una schedina"});
    const std::string_view genere_s{s->nome_file_sistema.data(), s->nome_file_sistema.find('/')};
    for (const std::string_view sotto : {kCartellaLunghi, genere_s})
        if (auto esito = crea_cartella(cartella / sotto); !esito)
            return std::unexpected(std::move(esito.error()));
    InsiemeFile insieme;
    azzera_files_sistema(insieme, cartella, *s);
    scrivi_numeri_sistema(insieme, cartella, *s);
    prepara_sistema(insieme, cartella, *s);
    (void)scrivi_conteggio_sistema(insieme, cartella, *s, oggi);
    scrivi_sistema(insieme, cartella, *s);
    Consegna consegna{.file = s->nome_file_sistema};
    std::error_code errore;
    consegna.programma_aperto = fs::exists(cartella / "sch", errore);
    if (!consegna.programma_aperto)
        insieme.annuncia(cartella / "trans", fmt::format(R"("{}","{}"{})", genere_s, kNome, kACapo));
    if (auto esito = insieme.conferma(); !esito) return std::unexpected(std::move(esito.error()));
    return consegna;
}

}  // namespace sortimetra
