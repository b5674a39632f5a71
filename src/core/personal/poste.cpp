#include "personal/poste.h"

#include "draws/avanzamento.h"
#include "files/file_sicuro.h"
#include "personal/parametri.h"
#include "results/risultato.h"
#include "text/campi.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace sortimetra {

namespace {

/// More than any lottery takes; keeps sums far from the type's end.
constexpr Centesimi kPostaMassima = 1'000'000'000'000;
constexpr std::size_t kPosteMassimo = std::size_t{1} << 20U;

/// Digits, then at most one `segno` and its decimals; rounded to cents. Nothing for any other text.
std::optional<Centesimi> leggi_importo(std::string_view testo, char segno) {
    Centesimi valore = 0;
    int decimali = -1;  // -1 before the sign
    bool cifre = false;
    for (const char c : testo) {
        if (c == segno && decimali < 0) {
            decimali = 0;
            continue;
        }
        if (c < '0' || c > '9') return std::nullopt;
        cifre = true;
        if (decimali < 2) valore = valore * 10 + (c - '0');
        if (decimali == 2 && c >= '5') ++valore;
        if (decimali >= 0 && decimali < 3) ++decimali;
        if (valore > kPostaMassima) return std::nullopt;
    }
    if (!cifre) return std::nullopt;
    for (int d = std::max(decimali, 0); d < 2; ++d) valore *= 10;
    return valore > kPostaMassima ? std::nullopt : std::optional{valore};
}

/// A stake as the file has it: "2.50", "0" for none.
std::string campo_posta(Centesimi posta) {
    return posta == 0 ? "0" : fmt::format("{}.{:02}", posta / 100, posta % 100);
}

ErroreArchivio poste_rovinate(const std::filesystem::path& file, int riga, std::string_view trovato) {
    return {file,
            fmt::format("riga {}: trovato \"{}\", attese cinque poste in euro e 1 o 0 (stampa o no), divise "
                        "da virgole. Il file resta com'è",
                        riga, trovato.substr(0, 40))};
}

std::optional<RigaPoste> leggi_riga(std::string_view testo) {
    RigaPoste riga;
    for (std::size_t i = 0; i <= kSorti; ++i) {
        const auto virgola = testo.find(',');
        if ((virgola == std::string_view::npos) != (i == kSorti)) return std::nullopt;
        const std::string_view campo = rifila(testo.substr(0, virgola));
        if (i == kSorti) {
            if (campo != "0" && campo != "1") return std::nullopt;
            riga.stampa = campo == "1";
        } else {
            const auto posta = leggi_importo(campo, '.');
            if (!posta) return std::nullopt;
            riga.poste[i] = *posta;
            testo.remove_prefix(virgola + 1);
        }
    }
    return riga;
}

constexpr std::string_view kPredefinito =
    "5,0,0,0,0,1\r\n"
    "0,1,0,0,0,1\r\n"
    "0,1,1,0,0,1\r\n"
    "0,2.50,1,0.50,0,1\r\n"
    "0,2.25,1,0.50,0.25,1\r\n"
    "0,2.25,1,0.50,0.25,1\r\n"
    "0,3,1,0.75,0.25,1\r\n"
    "0,3,1,0.75,0.25,1\r\n"
    "0,3,1,0.75,0.25,1\r\n"
    "0,4,1,0.75,0.25,1\r\n";

}  // namespace

Centesimi RigaPoste::importo() const {
    return std::accumulate(poste.begin(), poste.end(), Centesimi{0});
}

std::vector<std::size_t> marche(Centesimi posta) {
    std::vector<std::size_t> scelte;
    for (std::size_t i = 0; i < kTagli.size() && posta > 0 && scelte.size() < kMarcheMassime; ++i) {
        if (kTagli[i] > posta) continue;
        scelte.push_back(i);
        posta -= kTagli[i];
    }
    return scelte;
}

Centesimi totale_marche(const RigaPoste& riga) {
    Centesimi totale = 0;
    for (const Centesimi posta : riga.poste)
        for (const std::size_t i : marche(posta)) totale += kTagli[i];
    return totale;
}

std::string testo_taglio(Centesimi taglio) {
    std::string testo = std::to_string(taglio / 100);
    if (taglio % 100 == 0) return testo;
    testo += ',';
    aggiungi_due_cifre(testo, static_cast<int>(taglio % 100));
    if (testo.back() == '0') testo.pop_back();
    return testo;
}

std::string testo_posta(Centesimi posta) {
    return posta == 0 ? std::string{} : quoziente_due_decimali(posta, 100, true);
}

std::string testo_importo(Centesimi importo) {
    return "€ " + quoziente_due_decimali(importo, 100, true);
}

Centesimi leggi_posta(std::string_view testo) {
    std::string senza_punti{rifila(testo)};
    std::erase(senza_punti, '.');
    return leggi_importo(senza_punti, ',').value_or(0);
}

std::string posta_lasciata(std::string_view testo) {
    std::string lasciata = quoziente_due_decimali(leggi_posta(testo), 100, true);
    if (lasciata.back() != '0' && lasciata.back() != '5') lasciata.back() = '0';
    return lasciata;
}

std::expected<Poste, ErroreArchivio> leggi_poste(const std::filesystem::path& cartella) {
    const auto file = cartella / kFilePoste;
    std::error_code errore;
    if (!std::filesystem::exists(file, errore) && !errore) return poste_predefinite();
    const auto testo = leggi_file(file, kPosteMassimo);
    if (!testo) return std::unexpected(testo.error());
    LettoreCampi lettore{*testo};
    Poste poste;
    for (std::size_t i = 0; i < poste.size(); ++i) {
        const std::string_view linea = lettore.resto();
        const auto riga = leggi_riga(linea);
        if (!riga) return std::unexpected(poste_rovinate(file, static_cast<int>(i) + 1, linea));
        poste[i] = *riga;
    }
    if (!lettore.finito())
        return std::unexpected(poste_rovinate(file, static_cast<int>(poste.size()) + 1, lettore.resto()));
    return poste;
}

std::expected<void, ErroreArchivio> crea_poste(const std::filesystem::path& cartella) {
    std::error_code errore;
    if (std::filesystem::exists(cartella / kFilePoste, errore)) return {};
    return scrivi_file(cartella / kFilePoste, kPredefinito);
}

std::expected<void, ErroreArchivio> scrivi_poste(const std::filesystem::path& cartella, const Poste& poste) {
    std::string testo;
    for (const RigaPoste& riga : poste) {
        for (const Centesimi posta : riga.poste) testo += campo_posta(posta) + ',';
        testo += riga.stampa ? '1' : '0';
        testo += kFineRecord;
    }
    return scrivi_file(cartella / kFilePoste, testo);
}

Risultato schedine(const ArchivioEstrazioni&, const Domanda& domanda, Avanzamento&) {
    const Poste& poste = domanda.di<ParametriSchedine>().poste;
    ColonnaTesti righe;
    std::array<ColonnaTesti, kSorti> sorti;
    ColonnaTesti importi;
    ColonnaTesti stampa;
    std::array<ColonnaTesti, 3> marcate;
    for (std::size_t r = 0; r < poste.size(); ++r) {
        const std::string nome{kRigheSchedine[r]};
        righe.valori.push_back(nome);
        for (std::size_t s = 0; s < kSorti; ++s) {
            const Centesimi posta = poste[r].poste[s];
            sorti[s].valori.push_back(testo_posta(posta));
            std::string tagli;
            for (const std::size_t i : marche(posta))
                tagli += (tagli.empty() ? "" : "+") + testo_taglio(kTagli[i]);
            if (!poste[r].stampa || posta == 0) continue;
            marcate[0].valori.push_back(nome);
            marcate[1].valori.emplace_back(kNomiSorti[s]);
            marcate[2].valori.push_back(tagli);
        }
        importi.valori.push_back(testo_importo(poste[r].importo()));
        stampa.valori.emplace_back(poste[r].stampa ? "1" : "0");
    }
    Tabella griglia;
    griglia.titoli = {{"Riga"}};
    griglia.colonne.emplace_back(std::move(righe));
    for (std::size_t s = 0; s < kSorti; ++s) {
        griglia.titoli[0].emplace_back(kNomiSorti[s]);
        griglia.colonne.emplace_back(std::move(sorti[s]));
    }
    griglia.titoli[0].insert(griglia.titoli[0].end(), {"Importo", "Stampa"});
    griglia.colonne.emplace_back(std::move(importi));
    griglia.colonne.emplace_back(std::move(stampa));
    Tabella tagli;
    tagli.nome = "marche";
    tagli.titoli = {{"Riga", "Sorte", "Marche"}};
    for (ColonnaTesti& c : marcate) tagli.colonne.emplace_back(std::move(c));
    Risultato r;
    r.tabelle.push_back(std::move(griglia));
    r.tabelle.push_back(std::move(tagli));
    return r;
}

std::expected<void, Messaggio> carica_poste(const std::filesystem::path& cartella, Domanda& domanda) {
    auto poste = leggi_poste(cartella);
    if (!poste) return std::unexpected(Messaggio{Avviso::file_danneggiato, poste.error().testo()});
    domanda.parametri.per<ParametriSchedine>().poste = *poste;
    return {};
}

}  // namespace sortimetra
