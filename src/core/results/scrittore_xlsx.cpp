#include "files/file_sicuro.h"
#include "results/modulo_xlsx.h"
#include "results/righe_xlsx.h"
#include "results/risultato.h"
#include "results/scrittori.h"
#include "text/data.h"
#include "text/numero.h"
#include "text/testi.h"
#include "text/utf8.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

constexpr std::size_t kRigheFoglio = LXW_ROW_MAX;
constexpr std::size_t kColonneFoglio = LXW_COL_MAX;
/// Wider columns than this help nobody; characters of the workbook's own font.
constexpr std::size_t kColonnaLarga = 60;

/// A text that is a number to a spreadsheet, with the format that shows it as the grid does.
struct Tipizzato {
    double valore = 0;
    std::string formato{};  ///< empty for a plain whole number
};

/// What `leggi_numero` reads, but for texts that a number would not show again: "01", "+5", "12 %". "12.345"
/// without decimals may be a name. "+1,23" is a number whose format shows its sign.
std::optional<Tipizzato> tipizza(std::string_view testo) {
    const auto letto = leggi_numero(testo);
    if (!letto || letto->zero_davanti || testo.find(' ') != std::string_view::npos) return std::nullopt;
    const bool con_segno = testo.starts_with('+');
    if (con_segno && letto->decimali == 0) return std::nullopt;
    if (letto->punti && letto->decimali == 0) return std::nullopt;
    Tipizzato n{.valore = letto->valore};
    if (letto->percento || letto->decimali > 0) {
        n.formato = letto->punti ? "#,##0" : "0";
        if (letto->decimali > 0)
            n.formato += "." + std::string(static_cast<std::size_t>(letto->decimali), '0');
    }
    if (letto->percento) {
        n.formato += '%';
        n.valore /= 100;
    }
    if (con_segno) n.formato = "+" + n.formato + ";-" + n.formato;
    return n;
}

/// Formats made once per look: a workbook has room for few of them.
class Formati {
  public:
    explicit Formati(lxw_workbook* libro) : libro_{libro} {}

    lxw_format* titolo() {
        if (titolo_ == nullptr) {
            titolo_ = workbook_add_format(libro_);
            format_set_bold(titolo_);
            format_set_bottom(titolo_, LXW_BORDER_THIN);
        }
        return titolo_;
    }
    /// Null for the plain look.
    lxw_format* cella(Colore sfondo, Colore primo_piano, const std::string& numero) {
        if (sfondo == kNessunColore && primo_piano == kNessunColore && numero.empty()) return nullptr;
        auto& f = formati_[{sfondo, primo_piano, numero}];
        if (f == nullptr) {
            f = workbook_add_format(libro_);
            if (sfondo != kNessunColore) format_set_bg_color(f, rgb(sfondo));
            if (primo_piano != kNessunColore) format_set_font_color(f, rgb(primo_piano));
            if (!numero.empty()) format_set_num_format(f, numero.c_str());
        }
        return f;
    }

  private:
    static lxw_color_t rgb(Colore c) {
        const auto u = static_cast<std::uint32_t>(c);
        return (u & 0xFFU) << 16U | (u & 0xFF00U) | (u >> 16U & 0xFFU);
    }

    lxw_workbook* libro_;
    lxw_format* titolo_ = nullptr;
    std::map<std::tuple<Colore, Colore, std::string>, lxw_format*> formati_;
};

/// A sheet's name: at most 31 characters, none of []:*?/\, no two alike.
std::string nome_foglio(std::string_view nome, std::set<std::string>& usati) {
    // Room for a number that tells two alike apart; no letter of several bytes is cut.
    std::string n;
    for (const char c : tronca_lettere(nome, 28))
        n += std::string_view{"[]:*?/\\'"}.find(c) == std::string_view::npos ? c : '_';
    if (n.empty()) n = "risultati";
    std::string unico = n;
    for (int i = 2; !usati.insert(minuscolo(unico)).second; ++i) unico = n + " " + std::to_string(i);
    return unico;
}

lxw_error scrivi_testo(lxw_worksheet* foglio, lxw_row_t r, lxw_col_t c, std::string_view testo,
                       Formati& formati, Colore sfondo, Colore primo_piano) {
    if (const auto data = leggi_data_italiana(testo)) {
        const std::chrono::year_month_day giorno{*data};
        lxw_datetime d{};
        d.year = static_cast<int>(giorno.year());
        d.month = static_cast<int>(static_cast<unsigned>(giorno.month()));
        d.day = static_cast<int>(static_cast<unsigned>(giorno.day()));
        return worksheet_write_datetime(foglio, r, c, &d, formati.cella(sfondo, primo_piano, "dd/mm/yyyy"));
    }
    if (const auto numero = tipizza(testo))
        return worksheet_write_number(foglio, r, c, numero->valore,
                                      formati.cella(sfondo, primo_piano, numero->formato));
    lxw_format* formato = formati.cella(sfondo, primo_piano, {});
    if (testo.empty()) {
        return formato == nullptr ? LXW_NO_ERROR : worksheet_write_blank(foglio, r, c, formato);
    }
    return worksheet_write_string(foglio, r, c, std::string{testo}.c_str(), formato);
}

std::size_t quante_righe(const Tabella& tabella, const RigheScelte& scelte) {
    return std::min(scelte.ordine.empty() ? tabella.righe() : scelte.ordine.size(), scelte.massimo);
}

/// Writes the titles and the rows from the `prima`-th on.
lxw_error scrivi_foglio(lxw_worksheet* foglio, const Tabella& tabella, const RigheScelte& scelte,
                        Formati& formati, std::size_t prima = 0) {
    const std::size_t quante = quante_righe(tabella, scelte);
    const std::size_t colonne = tabella.n_colonne();
    if (quante + tabella.titoli.size() > kRigheFoglio || colonne > kColonneFoglio)
        return LXW_ERROR_WORKSHEET_INDEX_OUT_OF_RANGE;

    std::vector<std::size_t> larghe(colonne, 4);
    std::string testo;
    lxw_row_t r = 0;
    for (const auto& titoli : tabella.titoli) {
        for (std::size_t c = 0; c < std::min(titoli.size(), colonne); ++c) {
            const std::string t{rifila(titoli[c])};
            if (t.empty()) continue;
            const bool da_solo = c + 1 == colonne || !rifila(titoli[c + 1]).empty();
            if (da_solo) larghe[c] = std::max(larghe[c], larghezza_terminale(t));
            if (const auto e =
                    worksheet_write_string(foglio, r, static_cast<lxw_col_t>(c), t.c_str(), formati.titolo());
                e != LXW_NO_ERROR)
                return e;
        }
        ++r;
    }
    if (r > 0) worksheet_freeze_panes(foglio, r, 0);
    r += static_cast<lxw_row_t>(prima);
    for (std::size_t i = prima; i < quante; ++i, ++r) {
        const std::size_t riga = scelte.ordine.empty() ? i : scelte.ordine[i];
        for (std::size_t c = 0; c < colonne; ++c) {
            const auto colonna = static_cast<lxw_col_t>(c);
            const Colore sfondo = tabella.sfondo(riga, c);
            const Colore primo_piano = tabella.primo_piano(riga, c);
            const auto* interi = std::get_if<ColonnaInteri>(&tabella.colonne[c]);
            lxw_error e = LXW_NO_ERROR;
            if (interi != nullptr && interi->valori[riga] > kCellaPuntini) {
                e = worksheet_write_number(foglio, r, colonna, interi->valori[riga],
                                           formati.cella(sfondo, primo_piano, {}));
            } else {
                testo.clear();
                tabella.aggiungi_testo(testo, riga, c);
                const std::string_view t = rifila(testo);
                larghe[c] = std::max(larghe[c], larghezza_terminale(t));
                e = scrivi_testo(foglio, r, colonna, t, formati, sfondo, primo_piano);
            }
            if (e != LXW_NO_ERROR) return e;
        }
    }
    for (std::size_t c = 0; c < colonne; ++c)
        worksheet_set_column(foglio, static_cast<lxw_col_t>(c), static_cast<lxw_col_t>(c),
                             static_cast<double>(std::min(larghe[c], kColonnaLarga)) + 2, nullptr);
    return LXW_NO_ERROR;
}

/// A last sheet with what the answer is of.
lxw_error scrivi_ambito(lxw_workbook* libro, const Risposta& risposta, std::set<std::string>& nomi,
                        Formati& formati) {
    if (!risposta.ambito) return LXW_NO_ERROR;
    ColonnaTesti voci;
    ColonnaTesti valori;
    for (VoceAmbito& voce : voci_ambito(risposta)) {
        voci.valori.emplace_back(voce.nome);
        valori.valori.push_back(std::move(voce.valore));
    }
    Tabella tabella;
    tabella.colonne = {std::move(voci), std::move(valori)};
    lxw_worksheet* foglio = workbook_add_worksheet(libro, nome_foglio("Ambito", nomi).c_str());
    return foglio == nullptr ? LXW_ERROR_MEMORY_MALLOC_FAILED : scrivi_foglio(foglio, tabella, {}, formati);
}

std::string motivo(lxw_error errore) {
    switch (errore) {
        case LXW_ERROR_WORKSHEET_INDEX_OUT_OF_RANGE:
            return "la tabella ha più righe o colonne di quante ne entrano in un foglio";
        case LXW_ERROR_MEMORY_MALLOC_FAILED:
            return "memoria insufficiente";
        default:
            return "il file non si può scrivere";
    }
}

std::expected<void, ErroreArchivio> scrivi_libro(const std::filesystem::path& file, const Risposta& risposta,
                                                 std::size_t massimo) {
    const Risultato& risultato = *risposta.risultato;
    const RigheScelte prima{.ordine = risposta.ordine, .massimo = massimo};
    auto sicuro = FileSicuro::apri(file);
    if (!sicuro) return std::unexpected(std::move(sicuro.error()));
    // Rows go to disk as they come: a hundred thousand of them need no memory.
    lxw_workbook_options opzioni{};
    opzioni.constant_memory = LXW_TRUE;
    lxw_workbook* libro = workbook_new_opt(sicuro->temporaneo().c_str(), &opzioni);
    if (libro == nullptr) return std::unexpected(ErroreArchivio{file, "il file non si può scrivere"});
    Formati formati{libro};
    std::set<std::string> nomi;
    std::vector<RigheMancanti> mancanti;
    lxw_error errore = LXW_NO_ERROR;
    for (std::size_t i = 0; i < risultato.tabelle.size() && errore == LXW_NO_ERROR; ++i) {
        lxw_worksheet* foglio =
            workbook_add_worksheet(libro, nome_foglio(risultato.tabelle[i].nome, nomi).c_str());
        if (foglio == nullptr) {
            errore = LXW_ERROR_MEMORY_MALLOC_FAILED;
            break;
        }
        const Tabella& tabella = risultato.tabelle[i];
        const RigheScelte scelte = i == 0 ? prima : RigheScelte{};
        std::size_t da = 0;
        if (const std::size_t quante = quante_righe(tabella, scelte);
            quante >= kRigheLunghe && righe_semplici(tabella)) {
            da = quante - 1;
            mancanti.push_back({i, &tabella, scelte, da, tabella.titoli.size() + 1});
        }
        errore = scrivi_foglio(foglio, tabella, scelte, formati, da);
    }
    if (errore == LXW_NO_ERROR) errore = scrivi_ambito(libro, risposta, nomi, formati);
    // Closing writes the file and frees the workbook, whatever came before.
    const lxw_error chiusura = workbook_close(libro);
    if (errore == LXW_NO_ERROR) errore = chiusura;
    if (errore != LXW_NO_ERROR) return std::unexpected(ErroreArchivio{file, motivo(errore)});
    if (!mancanti.empty())
        if (auto esito = aggiungi_righe(sicuro->temporaneo(), mancanti); !esito)
            return std::unexpected(ErroreArchivio{file, std::move(esito.error().motivo)});
    return sicuro->conferma();
}

}  // namespace

}  // namespace sortimetra

/// See modulo_xlsx.h.
extern "C" __attribute__((visibility("default"))) sortimetra::ScriviXlsx sortimetra_scrivi_xlsx() {
    return sortimetra::scrivi_libro;
}
