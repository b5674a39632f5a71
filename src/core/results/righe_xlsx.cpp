#include "results/righe_xlsx.h"

#include "files/file_sicuro.h"
#include "results/risultato.h"
#include "text/testi.h"

#include <archive.h>
#include <archive_entry.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <utility>
#include <variant>

namespace sortimetra {

namespace {

constexpr std::size_t kPezzo = std::size_t{1} << 20U;
/// Files of a workbook bear this day, as the library gives it: 1 January 1980.
constexpr time_t kGiornoZip = 315'532'800;

/// "A", "B" … "Z", "AA" …
std::string nome_colonna(std::size_t colonna) {
    std::string nome;
    for (std::size_t n = colonna + 1; n > 0; n = (n - 1) / 26)
        nome.insert(nome.begin(), static_cast<char>('A' + (n - 1) % 26));
    return nome;
}

/// What stands before a cell's row number.
std::vector<std::string> inizi_celle(std::size_t colonne) {
    std::vector<std::string> inizi;
    inizi.reserve(colonne);
    for (std::size_t c = 0; c < colonne; ++c) inizi.push_back("<c r=\"" + nome_colonna(c));
    return inizi;
}

void aggiungi_stringa(std::string& xml, std::string_view testo) {
    xml += "\" t=\"inlineStr\"><is><t>";
    xml += testo;
    xml += "</t></is></c>";
}

/// One cell; an empty one is not written.
void aggiungi_cella(std::string& xml, const Colonna& colonna, std::size_t riga, std::string_view inizio,
                    std::string_view numero_riga) {
    const auto* interi = std::get_if<ColonnaInteri>(&colonna);
    if (interi != nullptr && interi->valori[riga] == kCellaVuota) return;
    xml += inizio;
    xml += numero_riga;
    if (interi == nullptr) {
        const auto& gruppi = std::get<ColonnaGruppi>(colonna);
        xml += "\" t=\"inlineStr\"><is><t>";
        for (std::size_t i = 0; i < gruppi.quanti; ++i) {
            if (i > 0) xml += gruppi.separatore;
            aggiungi_due_cifre(xml, gruppi.numeri[riga * gruppi.quanti + i]);
        }
        xml += "</t></is></c>";
    } else if (interi->valori[riga] == kCellaPuntini) {
        aggiungi_stringa(xml, "...");
    } else {
        xml += "\"><v>";
        const fmt::format_int cifre{interi->valori[riga]};
        xml.append(cifre.data(), cifre.size());
        xml += "</v></c>";
    }
}

// ---- the zip ----

struct Chiudi {
    void operator()(archive* a) const {
        // Frees for reading and for writing alike, and closes what is open.
        archive_free(a);
    }
    void operator()(archive_entry* e) const { archive_entry_free(e); }
};
using Archivio = std::unique_ptr<archive, Chiudi>;
using Voce = std::unique_ptr<archive_entry, Chiudi>;

std::unexpected<ErroreArchivio> fallito(const std::filesystem::path& file, archive* a) {
    const char* perche = archive_error_string(a);
    return std::unexpected(ErroreArchivio{
        file, fmt::format("il file non si può scrivere: {}", perche == nullptr ? "errore" : perche)});
}

/// The next file of a zip, whole.
std::expected<std::string, ErroreArchivio> corpo(archive* da, const std::filesystem::path& file) {
    std::string testo;
    std::array<char, 1U << 16U> pezzo;
    while (true) {
        const la_ssize_t n = archive_read_data(da, pezzo.data(), pezzo.size());
        if (n < 0) return fallito(file, da);
        if (n == 0) return testo;
        testo.append(pezzo.data(), static_cast<std::size_t>(n));
    }
}

bool scrivi(archive* in, std::string_view testo) {
    return archive_write_data(in, testo.data(), testo.size()) == static_cast<la_ssize_t>(testo.size());
}

/// A sheet with the rows that are missing before its last one.
bool scrivi_foglio(archive* in, std::string_view xml, const RigheMancanti& righe) {
    const std::size_t ultima = xml.rfind("<row ");
    if (ultima == std::string_view::npos || !scrivi(in, xml.substr(0, ultima))) return false;
    bool scritte = true;
    xml_righe(righe, [&](std::string_view pezzo) { return scritte = scrivi(in, pezzo); });
    return scritte && scrivi(in, xml.substr(ultima));
}

/// Copies one file of the workbook, a sheet with its rows.
std::expected<void, ErroreArchivio> copia(archive* da, archive* in, archive_entry* letta,
                                          const std::filesystem::path& file,
                                          const std::vector<RigheMancanti>& mancanti) {
    const std::string nome = archive_entry_pathname(letta);
    const auto xml = corpo(da, file);
    if (!xml) return std::unexpected(xml.error());
    const auto righe = std::find_if(mancanti.begin(), mancanti.end(), [&](const RigheMancanti& m) {
        return nome == fmt::format("xl/worksheets/sheet{}.xml", m.foglio + 1);
    });
    const Voce voce{archive_entry_new()};
    archive_entry_set_pathname(voce.get(), nome.c_str());
    archive_entry_set_filetype(voce.get(), AE_IFREG);
    archive_entry_set_perm(voce.get(), 0644);
    archive_entry_set_mtime(voce.get(), kGiornoZip, 0);
    if (righe == mancanti.end()) archive_entry_set_size(voce.get(), static_cast<la_int64_t>(xml->size()));
    if (archive_write_header(in, voce.get()) != ARCHIVE_OK) return fallito(file, in);
    const bool scritto = righe == mancanti.end() ? scrivi(in, *xml) : scrivi_foglio(in, *xml, *righe);
    if (!scritto || archive_write_finish_entry(in) != ARCHIVE_OK) return fallito(file, in);
    return {};
}

}  // namespace

bool righe_semplici(const Tabella& tabella) {
    const auto semplice = [](const Colonna& c) {
        if (std::holds_alternative<ColonnaInteri>(c)) return true;
        // A group of one is a number to a spreadsheet, or none ("07").
        const auto* gruppi = std::get_if<ColonnaGruppi>(&c);
        return gruppi != nullptr && gruppi->quanti > 1 &&
               (gruppi->separatore == '-' || gruppi->separatore == '.');
    };
    // The first cell is never empty: the last row, which the library writes, is there.
    return !tabella.colonne.empty() && std::holds_alternative<ColonnaGruppi>(tabella.colonne.front()) &&
           tabella.sfondi.empty() && tabella.primi_piani.empty() &&
           std::all_of(tabella.colonne.begin(), tabella.colonne.end(), semplice);
}

void xml_righe(const RigheMancanti& righe, const std::function<bool(std::string_view)>& pezzo) {
    const auto& colonne = righe.tabella->colonne;
    const auto inizi = inizi_celle(colonne.size());
    std::string xml;
    xml.reserve(kPezzo + kPezzo / 8);
    for (std::size_t i = 0; i < righe.quante; ++i) {
        const std::size_t riga = righe.scelte.ordine.empty() ? i : righe.scelte.ordine[i];
        const fmt::format_int cifre{righe.prima_riga + i};
        const std::string_view numero{cifre.data(), cifre.size()};
        const std::size_t prima = xml.size();
        xml += "<row r=\"";
        xml += numero;
        xml += "\">";
        const std::size_t vuota = xml.size();
        for (std::size_t c = 0; c < colonne.size(); ++c)
            aggiungi_cella(xml, colonne[c], riga, inizi[c], numero);
        if (xml.size() == vuota)
            xml.resize(prima);
        else
            xml += "</row>";
        if (xml.size() >= kPezzo) {
            if (!pezzo(xml)) return;
            xml.clear();
        }
    }
    if (!xml.empty()) pezzo(xml);
}

std::expected<void, ErroreArchivio> aggiungi_righe(const std::filesystem::path& file,
                                                   const std::vector<RigheMancanti>& mancanti) {
    const auto byte = leggi_file(file);
    if (!byte) return std::unexpected(byte.error());
    const Archivio da{archive_read_new()};
    archive_read_support_format_zip(da.get());
    if (archive_read_open_memory(da.get(), byte->data(), byte->size()) != ARCHIVE_OK)
        return fallito(file, da.get());
    const Archivio in{archive_write_new()};
    archive_write_set_format_zip(in.get());
    // Level 4 packs these rows as small as the usual 6, in half of the time; no sheet needs the long form of
    // sizes, which not every spreadsheet reads.
    if (archive_write_set_options(in.get(), "zip:compression-level=4,zip:!zip64") != ARCHIVE_OK ||
        archive_write_open_filename(in.get(), file.c_str()) != ARCHIVE_OK)
        return fallito(file, in.get());
    archive_entry* letta = nullptr;
    int esito = archive_read_next_header(da.get(), &letta);
    for (; esito == ARCHIVE_OK; esito = archive_read_next_header(da.get(), &letta))
        if (auto copiata = copia(da.get(), in.get(), letta, file, mancanti); !copiata) return copiata;
    if (esito != ARCHIVE_EOF) return fallito(file, da.get());
    if (archive_write_close(in.get()) != ARCHIVE_OK) return fallito(file, in.get());
    return {};
}

}  // namespace sortimetra
