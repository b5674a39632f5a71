#include "jet/lettura.h"

#include "jet/numerico.h"
#include "stores/apertura.h"
#include "stores/celle.h"
#include "stores/protocollo.h"
#include "text/testi.h"

#include <mdbtools.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
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

bool ha_password(const MdbHandle* mdb) {
    std::array<unsigned char, kPasswordJet4> password{};
    const bool jet3 = mdb->f->jet_version == MDB_VER_JET3;
    const std::size_t lunga = jet3 ? kPasswordJet3 : kPasswordJet4;
    std::memcpy(password.data(), mdb->pg_buf + kPostoPassword, lunga);
    if (!jet3) {
        double creazione = 0;
        std::memcpy(&creazione, mdb->pg_buf + kPostoCreazione, sizeof creazione);
        // A date that no clock shows mixes nothing in.
        const auto giorno = creazione > -1e9 && creazione < 1e9
                                ? static_cast<std::uint32_t>(static_cast<std::int32_t>(creazione))
                                : 0U;
        for (std::size_t i = 0; i < lunga; ++i)
            password[i] ^= static_cast<unsigned char>(giorno >> (8 * (i % 4)));
    }
    return std::any_of(password.begin(), password.begin() + static_cast<std::ptrdiff_t>(lunga),
                       [](unsigned char c) { return c != 0; });
}

/// The characters of a text cell; what is no ASCII becomes "?". The newer format writes two bytes a
/// character, or, after a mark, one byte with zeroes that switch between the two forms.
void decodifica(std::span<const unsigned char> byte, bool jet3, std::string& testo) {
    testo.clear();
    const auto aggiungi = [&](unsigned unita) { testo += unita < 0x80 ? static_cast<char>(unita) : '?'; };
    if (jet3) {
        for (const unsigned char c : byte) aggiungi(c);
        return;
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
            if (i + 1 >= byte.size()) return;
            aggiungi(byte[i] | static_cast<unsigned>(byte[i + 1]) << 8U);
            i += 2;
        }
    }
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
    if (colonna->cur_value_len <= 0 || colonna->cur_value_start <= 0) return uscita.marca(kVuota);
    const auto inizio = static_cast<std::size_t>(colonna->cur_value_start);
    const auto lunga = static_cast<std::size_t>(colonna->cur_value_len);
    if (inizio >= pagina || lunga > pagina - inizio) return uscita.testo("?");
    const std::span<const unsigned char> byte{mdb->pg_buf + inizio, lunga};
    const auto servono = [&](std::size_t n) {
        if (byte.size() >= n) return true;
        uscita.testo("?");
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
            decodifica(byte, mdb->f->jet_version == MDB_VER_JET3, testo);
            return uscita.testo(testo);
        case MDB_NUMERIC:
            if (const auto n = numerico(byte, colonna->col_scale)) return reale(kReale, *n);
            return uscita.testo("?");
        default: {
            // The long form of a text, which no known archive uses.
            char* lungo = mdb_col_to_string(mdb, mdb->pg_buf, colonna->cur_value_start, colonna->col_type,
                                            colonna->cur_value_len);
            testo = lungo == nullptr ? "?" : lungo;
            g_free(lungo);
            for (char& c : testo)
                if (static_cast<unsigned char>(c) >= 0x80) c = '?';
            return uscita.testo(testo);
        }
    }
}

MdbCatalogEntry* trova_tabella(MdbHandle* mdb, std::string_view nome) {
    for (unsigned i = 0; i < mdb->num_catalog; ++i) {
        auto* voce = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
        if (voce->object_type == MDB_TABLE && minuscolo(voce->object_name) == nome) return voce;
    }
    return nullptr;
}

/// Returns false once an error has been written.
bool leggi_tabella(MdbHandle* mdb, const FormaTabella& forma, Uscita& uscita) {
    MdbCatalogEntry* voce = trova_tabella(mdb, forma.nome);
    if (voce == nullptr) {
        uscita.errore(Errore::MancaTabella, forma.bit);
        return false;
    }
    MdbTableDef* tabella = mdb_read_table(voce);
    if (tabella == nullptr || mdb_read_columns(tabella) == nullptr || tabella->num_cols == 0 ||
        tabella->columns->len < tabella->num_cols) {
        uscita.errore(Errore::Definizione, forma.bit);
        return false;
    }
    std::vector<const MdbColumn*> colonne;
    for (std::size_t k = 0; k < forma.colonne.size(); ++k) {
        const std::string cercata = minuscolo(forma.colonne[k]);
        const MdbColumn* trovata = nullptr;
        for (unsigned i = 0; i < tabella->num_cols && trovata == nullptr; ++i) {
            const auto* c = static_cast<const MdbColumn*>(g_ptr_array_index(tabella->columns, i));
            if (minuscolo(c->name) == cercata) trovata = c;
        }
        if (trovata == nullptr || !tipo_conosciuto(trovata->col_type)) {
            uscita.errore(trovata == nullptr ? Errore::MancaColonna : Errore::TipoColonna, forma.bit,
                          static_cast<std::uint32_t>(k));
            return false;
        }
        colonne.push_back(trovata);
    }
    uscita.marca(kTabella);
    uscita.marca(static_cast<std::uint8_t>(forma.bit));
    mdb_rewind_table(tabella);
    std::uint32_t lette = 0;
    std::string testo;
    while (mdb_fetch_row(tabella) != 0) {
        // One row too many is enough to know; a damaged chain of pages could go round for ever.
        if (++lette > tabella->num_rows) break;
        uscita.marca(kRiga);
        for (const MdbColumn* c : colonne) scrivi_cella(mdb, c, uscita, testo);
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
    if (ha_password(mdb)) return uscita.errore(Errore::Password);
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
