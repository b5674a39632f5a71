#include "jet/lettura.h"

#include "jet/colonne.h"
#include "jet/numerico.h"
#include "jet/password.h"
#include "stores/apertura.h"
#include "stores/celle.h"
#include "stores/protocollo.h"
#include "text/testi.h"

#include <mdbtools.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace sortimetra::jet {

namespace {

/// Output goes out in pieces of this size.
constexpr std::size_t kBlocco = 1 << 16;

/// In the decoded header page: the password's place, its length, and for the newer format the place of the
/// creation date that it is mixed with.
constexpr std::size_t kPostoPassword = 0x42;
constexpr std::size_t kPasswordJet3 = 20;
constexpr std::size_t kPasswordJet4 = 40;
constexpr std::size_t kPostoCreazione = 0x72;
/// The number of columns that a table has had stands so many bytes before the number that it has.
constexpr int kPrimaMassime = 4;

class Uscita {
  public:
    explicit Uscita(const std::function<void(std::string_view)>& scrivi) : scrivi_{scrivi} {
        byte_.reserve(kBlocco + 4096);
    }
    void marca(std::uint8_t m) { byte_ += static_cast<char>(m); }
    void u32(std::uint32_t n) {
        for (int i = 0; i < 4; ++i) marca(static_cast<std::uint8_t>(n >> (8 * i)));
    }
    void f64(double d) {
        std::uint64_t n = 0;
        std::memcpy(&n, &d, sizeof n);
        u32(static_cast<std::uint32_t>(n));
        u32(static_cast<std::uint32_t>(n >> 32U));
    }
    void testo(std::string_view t) {
        t = t.substr(0, kTestoMassimo);
        marca(static_cast<std::uint8_t>(kTesto | t.size()));
        byte_ += t;
    }
    void aggiungi(std::string_view t) { byte_ += t; }
    void errore(Errore e, std::uint32_t primo = 0, std::uint32_t secondo = 0) {
        marca(kErrore);
        marca(static_cast<std::uint8_t>(e));
        u32(primo);
        u32(secondo);
    }
    void fine_riga() {
        if (byte_.size() >= kBlocco) svuota();
    }
    void svuota() {
        if (!byte_.empty()) scrivi_(byte_);
        byte_.clear();
    }

  private:
    const std::function<void(std::string_view)>& scrivi_;
    std::string byte_;
};

StatoPassword password_del_file(const MdbHandle* mdb) {
    std::array<unsigned char, kPasswordJet4> password{};
    std::array<std::uint16_t, kPasswordJet3> lettere{};
    const bool jet3 = mdb->f->jet_version == MDB_VER_JET3;
    std::memcpy(password.data(), mdb->pg_buf + kPostoPassword, jet3 ? kPasswordJet3 : kPasswordJet4);
    double creazione = 0;
    std::memcpy(&creazione, mdb->pg_buf + kPostoCreazione, sizeof creazione);
    // A date that no clock shows mixes nothing in.
    const auto giorno = !jet3 && creazione > -1e9 && creazione < 1e9
                            ? static_cast<std::uint32_t>(static_cast<std::int32_t>(creazione))
                            : 0U;
    for (std::size_t i = 0; i < password.size(); ++i)
        password[i] ^= static_cast<unsigned char>(giorno >> (8 * (i % 4)));
    for (std::size_t i = 0; i < lettere.size(); ++i)
        lettere[i] =
            jet3 ? password[i] : static_cast<std::uint16_t>(password[2 * i] | password[2 * i + 1] << 8U);
    return stato_password(lettere);
}

/// Whether a table of draws holds such a character: ASCII, and no control character but those that are blank.
bool leggibile(unsigned unita) {
    return (unita >= 0x20 && unita < 0x7F) || unita == '\t' || unita == '\n' || unita == '\r';
}

/// The characters of a text cell. The newer format writes two bytes a character, or, after a mark, one byte
/// with zeroes that switch between the two forms. Returns false for what is not `leggibile`, and
/// for half a character.
bool decodifica(std::span<const unsigned char> byte, bool jet3, std::string& testo) {
    testo.clear();
    bool sana = true;
    const auto aggiungi = [&](unsigned unita) {
        sana = sana && leggibile(unita);
        testo += static_cast<char>(unita & 0x7FU);
    };
    if (jet3) {
        for (const unsigned char c : byte) aggiungi(c);
        return sana;
    }
    bool stretta = byte.size() >= 2 && byte[0] == 0xFF && byte[1] == 0xFE;
    const bool mista = stretta;
    for (std::size_t i = stretta ? 2 : 0; i < byte.size();) {
        if (mista && byte[i] == 0 && (stretta || i + 1 >= byte.size() || byte[i + 1] == 0)) {
            stretta = !stretta;
            ++i;
        } else if (stretta) {
            aggiungi(byte[i++]);
        } else {
            if (i + 1 >= byte.size()) return false;
            aggiungi(byte[i] | static_cast<unsigned>(byte[i + 1]) << 8U);
            i += 2;
        }
    }
    return sana;
}

template <class T>
T intero(std::span<const unsigned char> byte) {
    T n{};
    std::memcpy(&n, byte.data(), sizeof n);
    return n;
}

bool tipo_conosciuto(int tipo) {
    switch (tipo) {
        case MDB_BYTE:
        case MDB_INT:
        case MDB_LONGINT:
        case MDB_MONEY:
        case MDB_FLOAT:
        case MDB_DOUBLE:
        case MDB_DATETIME:
        case MDB_TEXT:
        case MDB_MEMO:
        case MDB_NUMERIC:
            return true;
        default:
            return false;
    }
}

void scrivi_cella(MdbHandle* mdb, const MdbColumn* colonna, Uscita& uscita, std::string& testo) {
    const auto pagina = static_cast<std::size_t>(mdb->fmt->pg_size);
    if (colonna->cur_value_len == 0) return uscita.marca(kVuota);
    if (colonna->cur_value_len < 0 || colonna->cur_value_start <= 0) return uscita.marca(kGuasta);
    const auto inizio = static_cast<std::size_t>(colonna->cur_value_start);
    const auto lunga = static_cast<std::size_t>(colonna->cur_value_len);
    if (inizio >= pagina || lunga > pagina - inizio) return uscita.marca(kGuasta);
    const std::span<const unsigned char> byte{mdb->pg_buf + inizio, lunga};
    const auto servono = [&](std::size_t n) {
        if (byte.size() >= n) return true;
        uscita.marca(kGuasta);
        return false;
    };
    const auto numero = [&](std::int32_t n) {
        uscita.marca(kIntero);
        uscita.u32(static_cast<std::uint32_t>(n));
    };
    const auto reale = [&](std::uint8_t marca, double d) {
        uscita.marca(marca);
        uscita.f64(d);
    };
    switch (colonna->col_type) {
        case MDB_BYTE:
            return numero(byte[0]);
        case MDB_INT:
            if (servono(2)) numero(intero<std::int16_t>(byte));
            return;
        case MDB_LONGINT:
            if (servono(4)) numero(intero<std::int32_t>(byte));
            return;
        case MDB_MONEY:
            if (servono(8)) reale(kReale, static_cast<double>(intero<std::int64_t>(byte)) / 10'000);
            return;
        case MDB_FLOAT:
            if (servono(4)) reale(kReale, static_cast<double>(intero<float>(byte)));
            return;
        case MDB_DOUBLE:
            if (servono(8)) reale(kReale, intero<double>(byte));
            return;
        case MDB_DATETIME:
            if (servono(8)) reale(kMomento, intero<double>(byte));
            return;
        case MDB_TEXT:
            if (!decodifica(byte, mdb->f->jet_version == MDB_VER_JET3, testo)) return uscita.marca(kGuasta);
            return uscita.testo(testo);
        case MDB_NUMERIC:
            if (const auto n = numerico(byte, colonna->col_scale)) return reale(kReale, *n);
            return uscita.marca(kGuasta);
        default: {
            // The long form of a text, which no known archive uses.
            char* lungo = mdb_col_to_string(mdb, mdb->pg_buf, colonna->cur_value_start, colonna->col_type,
                                            colonna->cur_value_len);
            testo = lungo == nullptr ? "" : lungo;
            g_free(lungo);
            // Something stands there: a text that comes out empty was not found where the cell says that it
            // is.
            const bool sana = !testo.empty() && std::all_of(testo.begin(), testo.end(), [](char c) {
                return leggibile(static_cast<unsigned char>(c));
            });
            return sana ? uscita.testo(testo) : uscita.marca(kGuasta);
        }
    }
}

/// The columns of a table that was read, in its order.
std::vector<const MdbColumn*> colonne_di(const MdbTableDef* tabella) {
    std::vector<const MdbColumn*> colonne;
    colonne.reserve(tabella->num_cols);
    for (unsigned i = 0; i < tabella->num_cols; ++i)
        colonne.push_back(static_cast<const MdbColumn*>(g_ptr_array_index(tabella->columns, i)));
    return colonne;
}

/// How long the parts of a row are that has so many columns, in the newer format.
struct Misura {
    std::uint16_t colonne = 0;
    std::size_t fisse = 0;  ///< the number of columns, and what stands at places of its own
    std::size_t testi = 0;  ///< columns of varying length
    std::size_t maschera = 0;
};

Misura misura(const MdbTableDef* tabella, std::uint16_t colonne) {
    Misura m{.colonne = colonne, .fisse = sizeof colonne, .maschera = (colonne + std::size_t{7}) / 8};
    for (const MdbColumn* c : colonne_di(tabella)) {
        if (c->col_num >= colonne) continue;
        if (c->is_fixed == 0)
            ++m.testi;
        else
            m.fisse =
                std::max(m.fisse, sizeof colonne + static_cast<std::size_t>(c->fixed_offset + c->col_size));
    }
    return m;
}

/// Holds rows to what they say of themselves: how many columns they have (one from before a column was added
/// has fewer), and how many of these are texts. One that says otherwise would lose its last cells without a
/// fault. Behind what stands at fixed places follow the texts, where each of them begins, how many there are,
/// and the mask of the empty cells.
class MisuraRighe {
  public:
    MisuraRighe(MdbHandle* mdb, const MdbTableDef* tabella, int massime)
        : mdb_{mdb}, tabella_{tabella}, intera_{misura(tabella, static_cast<std::uint16_t>(massime))} {
        const auto colonne = colonne_di(tabella);
        // Columns that are gone have left their room, and yes or no needs none.
        attiva_ = mdb->f->jet_version != MDB_VER_JET3 && std::cmp_equal(massime, colonne.size()) &&
                  std::none_of(colonne.begin(), colonne.end(),
                               [](const MdbColumn* c) { return c->col_type == MDB_BOOL; });
    }

    /// The row that was just read.
    [[nodiscard]] bool torna() const {
        constexpr unsigned kDove = 0x1FFF;  // above it the row's flags
        constexpr std::size_t kNumero = 2;
        if (!attiva_) return true;
        int inizio = 0;
        std::size_t lunga = 0;
        if (mdb_find_row(mdb_, static_cast<int>(tabella_->cur_row) - 1, &inizio, &lunga) != 0) return false;
        const std::size_t da = static_cast<unsigned>(inizio) & kDove;
        const auto pagina = static_cast<std::size_t>(mdb_->fmt->pg_size);
        if (da >= pagina || lunga > pagina - da || lunga < kNumero) return false;
        const std::span<const unsigned char> riga{mdb_->pg_buf + da, lunga};
        const auto colonne = intero<std::uint16_t>(riga);
        const Misura m = colonne == intera_.colonne ? intera_ : misura(tabella_, colonne);
        if (tabella_->num_var_cols == 0) return lunga == m.fisse + m.maschera;
        const std::size_t coda = m.maschera + 2 * kNumero;
        return lunga >= m.fisse + coda && intero<std::uint16_t>(riga.subspan(lunga - coda)) == m.fisse &&
               intero<std::uint16_t>(riga.subspan(lunga - m.maschera - kNumero)) == m.testi;
    }

  private:
    MdbHandle* mdb_;
    const MdbTableDef* tabella_;
    Misura intera_;
    bool attiva_ = false;
};

MdbCatalogEntry* trova_tabella(MdbHandle* mdb, std::string_view nome) {
    for (unsigned i = 0; i < mdb->num_catalog; ++i) {
        auto* voce = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
        if (voce->object_type == MDB_TABLE && minuscolo(voce->object_name) == nome) return voce;
    }
    return nullptr;
}

/// The column whose definition contradicts itself, or the number of columns; nothing where all fit.
std::optional<std::size_t> contraddizione(const MdbTableDef* tabella, int massime) {
    Definizione d{.colonne = {}, .massime = massime, .variabili = static_cast<int>(tabella->num_var_cols)};
    d.colonne.reserve(tabella->num_cols);
    for (const MdbColumn* c : colonne_di(tabella))
        d.colonne.push_back({.tipo = c->col_type,
                             .grandezza = c->col_size,
                             .fissa = c->is_fixed != 0,
                             .posto = c->fixed_offset,
                             .variabile = static_cast<int>(c->var_col_num),
                             .numero = c->col_num});
    return contraddizione(d);
}

/// The wanted columns; nothing once an error has been written.
std::optional<std::vector<const MdbColumn*>> colonne_volute(const MdbTableDef* tabella, int massime,
                                                            const FormaTabella& forma, Uscita& uscita) {
    const auto tutte = colonne_di(tabella);
    std::vector<const MdbColumn*> volute;
    for (std::size_t k = 0; k < forma.colonne.size(); ++k) {
        const std::string cercata = minuscolo(forma.colonne[k]);
        const auto trovata = std::find_if(tutte.begin(), tutte.end(),
                                          [&](const MdbColumn* c) { return minuscolo(c->name) == cercata; });
        if (trovata == tutte.end() || !tipo_conosciuto((*trovata)->col_type)) {
            uscita.errore(trovata == tutte.end() ? Errore::MancaColonna : Errore::TipoColonna, forma.bit,
                          static_cast<std::uint32_t>(k));
            return std::nullopt;
        }
        volute.push_back(*trovata);
    }
    if (const auto i = contraddizione(tabella, massime)) {
        const auto* const colonna = *i < tutte.size() ? tutte[*i] : nullptr;
        uscita.errore(
            Errore::Colonna, forma.bit,
            static_cast<std::uint32_t>(std::find(volute.begin(), volute.end(), colonna) - volute.begin()));
        return std::nullopt;
    }
    return volute;
}

/// Returns false once an error has been written.
bool leggi_tabella(MdbHandle* mdb, const FormaTabella& forma, Uscita& uscita) {
    MdbCatalogEntry* voce = trova_tabella(mdb, forma.nome);
    if (voce == nullptr) {
        uscita.errore(Errore::MancaTabella, forma.bit);
        return false;
    }
    MdbTableDef* tabella = mdb_read_table(voce);
    // The page of the definition is still at hand: how many columns there have been stands before their
    // number.
    const int massime =
        tabella == nullptr ? 0 : mdb_get_int16(mdb->pg_buf, mdb->fmt->tab_num_cols_offset - kPrimaMassime);
    if (tabella == nullptr || mdb_read_columns(tabella) == nullptr || tabella->num_cols == 0 ||
        tabella->columns->len < tabella->num_cols) {
        uscita.errore(Errore::Definizione, forma.bit);
        return false;
    }
    const auto colonne = colonne_volute(tabella, massime, forma, uscita);
    if (!colonne) return false;
    uscita.marca(kTabella);
    uscita.marca(static_cast<std::uint8_t>(forma.bit));
    mdb_rewind_table(tabella);
    const MisuraRighe misura_righe{mdb, tabella, massime};
    std::uint32_t lette = 0;
    std::string testo;
    while (mdb_fetch_row(tabella) != 0) {
        // One row too many is enough to know; a damaged chain of pages could go round for ever.
        if (++lette > tabella->num_rows) break;
        uscita.marca(kRiga);
        const bool sana = misura_righe.torna();
        for (const MdbColumn* c : *colonne)
            sana ? scrivi_cella(mdb, c, uscita, testo) : uscita.marca(kGuasta);
        uscita.fine_riga();
    }
    if (lette != tabella->num_rows) {
        uscita.errore(Errore::Righe, tabella->num_rows, lette);
        return false;
    }
    uscita.marca(kFineTabella);
    uscita.u32(lette);
    mdb_free_tabledef(tabella);
    return true;
}

/// Whether any table of the file, wanted or not, owns a page behind the file's end. A wanted table would be
/// found short of rows; this finds the file that was cut behind it.
bool troncato(MdbHandle* mdb, std::size_t pagine) {
    for (unsigned i = 0; i < mdb->num_catalog; ++i) {
        auto* voce = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
        if (voce->object_type != MDB_TABLE) continue;
        MdbTableDef* tabella = mdb_read_table(voce);
        if (tabella == nullptr) return true;
        const gint32 oltre =
            mdb_map_find_next(mdb, tabella->usage_map, static_cast<unsigned>(tabella->map_sz),
                              static_cast<guint32>(pagine - 1));
        mdb_free_tabledef(tabella);
        if (oltre > 0) return true;
    }
    return false;
}

void leggi_tutto(void* byte, std::size_t quanti, unsigned tabelle, Uscita& uscita) {
    uscita.aggiungi(kFirma);
    MdbHandle* mdb = mdb_open_buffer(byte, quanti, MDB_NOFLAGS);
    if (mdb == nullptr) return uscita.errore(Errore::NonApre);
    if (const StatoPassword stato = password_del_file(mdb); stato != StatoPassword::Nessuna)
        return uscita.errore(stato == StatoPassword::Guasta ? Errore::Intestazione : Errore::Password);
    if (mdb_read_catalog(mdb, MDB_TABLE) == nullptr) return uscita.errore(Errore::NonApre);
    const bool corto = troncato(mdb, quanti / static_cast<std::size_t>(mdb->fmt->pg_size));
    for (const FormaTabella& forma :
         (tabelle & kTabellaWinForLife) != 0 ? tabelle_drawit2() : tabelle_drawit()) {
        if ((tabelle & forma.bit) != 0 && !leggi_tabella(mdb, forma, uscita)) return;
    }
    // Said last: a table that is missing or short is the better news.
    if (corto) return uscita.errore(Errore::Troncato);
    uscita.marca(kFine);
    // The library's memory goes with the process.
}

}  // namespace

void leggi(void* byte, std::size_t quanti, unsigned tabelle,
           const std::function<void(std::string_view)>& scrivi) {
    Uscita uscita{scrivi};
    leggi_tutto(byte, quanti, tabelle, uscita);
    uscita.svuota();
}

}  // namespace sortimetra::jet
