#include "results/scrittori.h"

#include "results/risultato.h"
#include "text/numero.h"
#include "text/testi.h"
#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <nlohmann/json.hpp>
#include <optional>
#include <type_traits>

namespace sortimetra {

namespace {

/// The two digits of every number below 100, as the low bytes of a word: the tens first.
constexpr auto kDueCifre = [] {
    std::array<std::uint32_t, 256> c{};
    for (std::uint32_t n = 0; n < 256; ++n) c[n] = ('0' + n / 10 % 10) | ('0' + n % 10) << 8U;
    return c;
}();

/// Four bytes at once, lowest first, whatever the machine's order.
char* metti_parola(char* p, std::uint32_t parola) {
    if constexpr (std::endian::native == std::endian::big) parola = __builtin_bswap32(parola);
    std::memcpy(p, &parola, 4);
    return p;
}

/// Longest text of a whole-number cell, "-2147483647", and the room that writing four bytes at once may
/// spill.
constexpr std::size_t kPostoIntero = 16;
/// Asked for at once for a table's text; larger ones grow.
constexpr std::size_t kBloccoMassimo = std::size_t{64} << 20U;

/// Appends to a string through a bare pointer. Room is asked for once a row, not once a character.
class Penna {
  public:
    explicit Penna(std::string& testo) : testo_{testo}, usati_{testo.size()} {}
    Penna(const Penna&) = delete;
    Penna& operator=(const Penna&) = delete;
    ~Penna() { testo_.resize(usati_); }

    /// Makes room for `n` more bytes.
    void assicura(std::size_t n) {
        if (testo_.size() - usati_ < n) cresci(n);
    }
    /// Where the next byte goes; valid until the next `assicura`.
    [[nodiscard]] char* punta() { return testo_.data() + usati_; }
    void fino_a(const char* fine) { usati_ = static_cast<std::size_t>(fine - testo_.data()); }

    void aggiungi(std::string_view t) {
        assicura(t.size());
        fino_a(std::copy(t.begin(), t.end(), punta()));
    }
    void ripeti(char c, std::size_t n) {
        assicura(n);
        std::memset(punta(), c, n);
        usati_ += n;
    }

  private:
    void cresci(std::size_t n) {
        // The bytes past `usati_` are written before they are read: no need to clear them.
        const std::size_t nuova = std::max(usati_ + n, testo_.size() * 2);
        testo_.resize_and_overwrite(nuova, [](char*, std::size_t m) { return m; });
    }

    std::string& testo_;
    std::size_t usati_;
};

/// Writes a whole-number cell; at least `kPostoIntero` bytes must be free.
///
/// Frequencies and delays have one to four digits in no order that a branch could guess: all four are made,
/// and the leading zeros shifted out. Measured on the 117,480 terni this takes a third off the whole table.
char* metti_intero(char* p, std::int32_t valore) {
    const auto u = static_cast<std::uint32_t>(valore);
    if (u < 10000) {
        const std::uint32_t quattro = kDueCifre[u / 100] | kDueCifre[u % 100] << 16U;
        const unsigned lunga = 1U + (u > 9 ? 1U : 0U) + (u > 99 ? 1U : 0U) + (u > 999 ? 1U : 0U);
        return metti_parola(p, quattro >> (4 - lunga) * 8) + lunga;
    }
    if (valore == kCellaVuota) return p;
    if (valore == kCellaPuntini) {
        return std::fill_n(p, 3, '.');
    }
    return std::to_chars(p, p + kPostoIntero, valore).ptr;
}

/// Writes a whole-number cell to the right of `posto` blanks. Four digits go at once, blanks in the place of
/// leading zeros.
void metti_a_destra(char* p, std::size_t posto, std::int32_t valore) {
    const auto u = static_cast<std::uint32_t>(valore);
    if (u < 10000 && posto >= 4) {
        const std::uint32_t quattro = kDueCifre[u / 100] | kDueCifre[u % 100] << 16U;
        const unsigned zeri = (u > 9 ? 0U : 1U) + (u > 99 ? 0U : 1U) + (u > 999 ? 0U : 1U);
        const std::uint32_t davanti = (1U << zeri * 8) - 1;
        metti_parola(p + posto - 4, (quattro & ~davanti) | (0x20202020U & davanti));
        return;
    }
    std::array<char, kPostoIntero> cifre{};
    const auto n = static_cast<std::size_t>(metti_intero(cifre.data(), valore) - cifre.data());
    std::copy_n(cifre.data(), n, p + posto - n);
}

/// A column with its type found once, not once a cell.
struct Lettore {
    enum class Tipo : std::uint8_t { Interi, Gruppi, Testi };
    Tipo tipo = Tipo::Testi;
    const std::int32_t* interi = nullptr;
    const std::uint8_t* gruppi = nullptr;
    std::size_t quanti = 0;
    char separatore = '-';
    const std::string* testi = nullptr;
    const std::uint32_t* scelte = nullptr;  ///< which of the texts each row has; null for its own

    explicit Lettore(const Colonna& colonna) {
        if (const auto* i = std::get_if<ColonnaInteri>(&colonna)) {
            tipo = Tipo::Interi;
            interi = i->valori.data();
        } else if (const auto* g = std::get_if<ColonnaGruppi>(&colonna)) {
            tipo = Tipo::Gruppi;
            gruppi = g->numeri.data();
            quanti = g->quanti;
            separatore = g->separatore;
        } else if (const auto* v = std::get_if<ColonnaVoci>(&colonna)) {
            testi = v->voci.data();
            scelte = v->scelte.data();
        } else {
            testi = std::get<ColonnaTesti>(colonna).valori.data();
        }
    }

    [[nodiscard]] const std::string& testo(std::size_t riga) const {
        return testi[scelte == nullptr ? riga : scelte[riga]];
    }

    /// Bytes that a cell of numbers takes at most; texts ask for their own room.
    [[nodiscard]] std::size_t posto() const {
        return tipo == Tipo::Interi ? kPostoIntero : tipo == Tipo::Gruppi ? quanti * 3 + 4 : 0;
    }
    /// Writes a cell of numbers.
    [[nodiscard]] char* metti(char* p, std::size_t riga) const {
        if (tipo == Tipo::Interi) return metti_intero(p, interi[riga]);
        if (quanti == 0) return p;
        // Each number with the separator behind it; the last one's is not counted.
        const std::uint32_t dopo = static_cast<std::uint32_t>(static_cast<unsigned char>(separatore)) << 16U;
        const std::uint8_t* n = gruppi + riga * quanti;
        for (std::size_t i = 0; i < quanti; ++i) p = metti_parola(p, kDueCifre[n[i]] | dopo) + 3;
        return p - 1;
    }
};

std::vector<Lettore> lettori(const Tabella& tabella) {
    std::vector<Lettore> l;
    l.reserve(tabella.colonne.size());
    for (const Colonna& c : tabella.colonne) l.emplace_back(c);
    return l;
}

/// How many rows are written, and which row of the table stands at each place.
class Righe {
  public:
    Righe(const Tabella& tabella, const RigheScelte& scelte)
        : ordine_{scelte.ordine},
          quante_{std::min(scelte.ordine.empty() ? tabella.righe() : scelte.ordine.size(), scelte.massimo)} {}
    [[nodiscard]] std::size_t quante() const { return quante_; }
    /// The table's own rows from the first on.
    [[nodiscard]] bool in_fila() const { return ordine_.empty(); }
    [[nodiscard]] std::size_t operator[](std::size_t i) const { return ordine_.empty() ? i : ordine_[i]; }

  private:
    std::span<const std::uint32_t> ordine_;
    std::size_t quante_;
};

/// Writes all rows of a table. `Forma` says what stands before, between and after cells and rows, and how a
/// text is written; numbers need no care in any format.
template <class Forma>
void metti_righe(Penna& penna, const Tabella& tabella, const Righe& righe) {
    const std::vector<Lettore> colonne = lettori(tabella);
    std::size_t fisso = Forma::kRiga.size() + Forma::kTraRighe.size() + Forma::kFineRiga.size();
    for (const Lettore& c : colonne) fisso += c.posto() + Forma::kTraCelle.size() + 2 * Forma::kApice.size();
    const auto metti = [](char* p, std::string_view t) { return std::copy(t.begin(), t.end(), p); };
    // One piece of memory for the whole table; pages that stay untouched cost nothing.
    penna.assicura(std::min(fisso * righe.quante(), kBloccoMassimo));
    for (std::size_t i = 0; i < righe.quante(); ++i) {
        const std::size_t r = righe[i];
        penna.assicura(fisso);
        char* p = penna.punta();
        if (i > 0) p = metti(p, Forma::kTraRighe);
        p = metti(p, Forma::kRiga);
        bool prima = true;
        for (const Lettore& c : colonne) {
            if (!prima) p = metti(p, Forma::kTraCelle);
            prima = false;
            if (c.tipo == Lettore::Tipo::Testi) {
                penna.fino_a(p);
                Forma::testo(penna, rifila(c.testo(r)));
                penna.assicura(fisso);
                p = penna.punta();
            } else {
                p = metti(p, Forma::kApice);
                p = c.metti(p, r);
                p = metti(p, Forma::kApice);
            }
        }
        p = metti(p, Forma::kFineRiga);
        penna.fino_a(p);
    }
}

struct Csv {
    static constexpr std::string_view kRiga{};
    static constexpr std::string_view kApice{};
    static constexpr std::string_view kTraCelle = ";";
    static constexpr std::string_view kFineRiga = "\n";
    static constexpr std::string_view kTraRighe{};

    static void testo(Penna& penna, std::string_view t) {
        if (t.find_first_of(";\"\r\n") == std::string_view::npos) {
            penna.aggiungi(t);
            return;
        }
        penna.aggiungi("\"");
        for (std::size_t fine = t.find('"'); fine != std::string_view::npos; fine = t.find('"')) {
            penna.aggiungi(t.substr(0, fine));
            penna.aggiungi("\"\"");
            t.remove_prefix(fine + 1);
        }
        penna.aggiungi(t);
        penna.aggiungi("\"");
    }
};

struct Json {
    static constexpr std::string_view kRiga = "[";
    static constexpr std::string_view kApice = "\"";
    static constexpr std::string_view kTraCelle = ", ";
    static constexpr std::string_view kFineRiga = "]";
    static constexpr std::string_view kTraRighe = ",\n  ";

    static void testo(Penna& penna, std::string_view t) {
        const bool semplice = std::all_of(t.begin(), t.end(), [](char c) {
            return static_cast<unsigned char>(c) >= 0x20 && static_cast<unsigned char>(c) < 0x7F &&
                   c != '"' && c != '\\';
        });
        if (semplice) {
            penna.aggiungi("\"");
            penna.aggiungi(t);
            penna.aggiungi("\"");
        } else {
            // Escapes, and replaces what is no UTF-8.
            penna.aggiungi(nlohmann::json(t).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
        }
    }
};

/// A list in JSON: `una(i)` writes the i-th of n elements.
template <class Una>
void lista_json(Penna& penna, std::size_t n, std::string_view tra, Una&& una) {
    penna.aggiungi("[");
    for (std::size_t i = 0; i < n; ++i) {
        if (i > 0) penna.aggiungi(tra);
        una(i);
    }
    penna.aggiungi("]");
}

void lista_testi_json(Penna& penna, std::span<const std::string> testi) {
    lista_json(penna, testi.size(), ", ", [&](std::size_t i) { Json::testo(penna, testi[i]); });
}

void tabella_json(Penna& penna, const Tabella& tabella, const RigheScelte& scelte) {
    const Righe righe{tabella, scelte};
    penna.aggiungi("{\"nome\": ");
    Json::testo(penna, tabella.nome);
    penna.aggiungi(", \"titoli\": ");
    lista_json(penna, tabella.titoli.size(), ", ", [&](std::size_t i) {
        const auto& riga = tabella.titoli[i];
        lista_json(penna, riga.size(), ", ", [&](std::size_t c) { Json::testo(penna, rifila(riga[c])); });
    });
    penna.aggiungi(",\n \"righe\": [");
    metti_righe<Json>(penna, tabella, righe);
    penna.aggiungi("]");
    if (!tabella.sfondi.empty()) {
        penna.aggiungi(",\n \"sfondi\": ");
        lista_json(penna, righe.quante(), Json::kTraRighe, [&](std::size_t i) {
            lista_json(penna, tabella.n_colonne(), ", ", [&](std::size_t c) {
                const Colore colore = tabella.sfondo(righe[i], c);
                if (colore == kNessunColore) {
                    penna.aggiungi("null");
                } else {
                    penna.assicura(kPostoIntero);
                    penna.fino_a(metti_intero(penna.punta(), colore));
                }
            });
        });
    }
    penna.aggiungi("}");
}

// ---- terminal ----

std::size_t larghezza(char32_t c) {
    struct Tratto {
        char32_t da, a;
    };
    static constexpr Tratto kLarghi[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},  {0x3041, 0xA4CF},
                                         {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},  {0xFE30, 0xFE6F},
                                         {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},  {0x1F300, 0x1F64F},
                                         {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};
    static constexpr Tratto kSenzaPosto[] = {{0x0300, 0x036F}, {0x1AB0, 0x1AFF}, {0x200B, 0x200F},
                                             {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}};
    const auto dentro = [c](const Tratto& t) { return c >= t.da && c <= t.a; };
    if (c < 0x300) return 1;
    if (std::any_of(std::begin(kSenzaPosto), std::end(kSenzaPosto), dentro)) return 0;
    return std::any_of(std::begin(kLarghi), std::end(kLarghi), dentro) ? 2 : 1;
}

/// A text for one line of a terminal: control characters, which would break the line or do worse, are blanks.
std::string su_una_linea(std::string_view testo) {
    std::string t{rifila(testo)};
    for (char& c : t)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
    return t;
}

/// Lays out a table: widths and sides first, then the lines.
class Impaginatore {
  public:
    Impaginatore(const Tabella& tabella, const RigheScelte& scelte)
        : tabella_{tabella},
          righe_{tabella, scelte},
          colonne_{lettori(tabella)},
          larghe_(colonne_.size()),
          a_destra_(colonne_.size()) {
        for (const Lettore& l : colonne_) posto_ = std::max(posto_, l.posto());
        for (std::size_t c = 0; c < colonne_.size(); ++c) misura_colonna(c);
        for (const auto& titoli : tabella.titoli)
            per_ogni_titolo(titoli, [&](std::string_view testo, std::size_t da, std::size_t a) {
                const std::size_t serve = larghezza_terminale(su_una_linea(testo));
                const std::size_t c_e = larghezza_tratto(da, a);
                if (serve > c_e) larghe_[a - 1] += serve - c_e;
            });
    }

    void scrivi(Penna& penna) const {
        if (colonne_.empty()) return;
        for (const auto& titoli : tabella_.titoli) {
            Linea linea{penna};
            per_ogni_titolo(titoli, [&](std::string_view testo, std::size_t da, std::size_t a) {
                const std::string t = su_una_linea(testo);
                // A title over several columns begins where they begin.
                linea.cella(t, larghezza_terminale(t), larghezza_tratto(da, a), a - da == 1 && a_destra_[da]);
            });
            linea.fine();
        }
        if (!tabella_.titoli.empty()) {
            for (std::size_t c = 0; c < colonne_.size(); ++c) {
                if (c > 0) penna.aggiungi("  ");
                penna.ripeti('-', larghe_[c]);
            }
            penna.aggiungi("\n");
        }
        for (std::size_t i = 0; i < righe_.quante(); ++i) scrivi_riga(penna, righe_[i]);
    }

  private:
    /// A line whose trailing blanks are never written.
    class Linea {
      public:
        explicit Linea(Penna& penna) : penna_{penna} {}
        void cella(std::string_view testo, std::size_t larga, std::size_t posto, bool a_destra) {
            const std::size_t vuoto = posto > larga ? posto - larga : 0;
            if (!prima_) attesa_ += 2;
            prima_ = false;
            if (a_destra) attesa_ += vuoto;
            if (!testo.empty()) {
                penna_.ripeti(' ', attesa_);
                attesa_ = 0;
                penna_.aggiungi(testo);
            }
            if (!a_destra) attesa_ += vuoto;
        }
        void fine() { penna_.aggiungi("\n"); }

      private:
        Penna& penna_;
        std::size_t attesa_ = 0;
        bool prima_ = true;
    };

    /// A line of blanks in which each cell is put at its place. Letters of several bytes push what follows to
    /// the right.
    void scrivi_riga(Penna& penna, std::size_t riga) const {
        std::size_t larga = larghezza_tratto(0, colonne_.size());
        // Numbers are written in one piece, which may spill past the line's end.
        penna.assicura(larga + posto_ + 1);
        char* p = penna.punta();
        std::memset(p, ' ', larga);
        std::size_t qui = 0;
        for (std::size_t c = 0; c < colonne_.size(); ++c) {
            const Lettore& l = colonne_[c];
            std::size_t prende = larghe_[c];
            if (l.tipo == Lettore::Tipo::Testi) {
                const std::string t = su_una_linea(l.testo(riga));
                const std::size_t sue = larghezza_terminale(t);
                const std::size_t oltre = t.size() - sue;
                penna.assicura(larga + oltre + posto_ + 1);
                p = penna.punta();
                std::memset(p + larga, ' ', oltre);
                larga += oltre;
                std::copy(t.begin(), t.end(), p + qui + (a_destra_[c] ? prende - sue : 0));
                prende += oltre;
            } else {
                if (l.tipo == Lettore::Tipo::Interi) {
                    metti_a_destra(p + qui, prende, l.interi[riga]);
                } else {
                    char* fine = l.metti(p + qui, riga);
                    // The separator behind the last number is no part of the cell.
                    *fine = ' ';
                    fine[1] = ' ';
                }
            }
            qui += prende + 2;
        }
        char* fine = p + larga;
        while (fine > p && fine[-1] == ' ') --fine;
        *fine++ = '\n';
        penna.fino_a(fine);
    }

    void misura_colonna(std::size_t c) {
        const Lettore& l = colonne_[c];
        std::size_t massima = 0;
        if (l.tipo == Lettore::Tipo::Gruppi) {
            massima = righe_.quante() == 0 || l.quanti == 0 ? 0 : l.quanti * 3 - 1;
        } else if (l.tipo == Lettore::Tipo::Interi) {
            massima = larghezza_interi(l);
            a_destra_[c] = true;
        } else {
            bool numeri = true;
            bool piena = false;
            for (std::size_t i = 0; i < righe_.quante(); ++i) {
                const std::string t = su_una_linea(l.testo(righe_[i]));
                massima = std::max(massima, larghezza_terminale(t));
                piena = piena || !t.empty();
                numeri = numeri && (t.empty() || leggi_numero(t));
            }
            a_destra_[c] = numeri && piena;
        }
        larghe_[c] = massima;
    }

    /// The longest text is that of the least or of the greatest value, or the three points.
    [[nodiscard]] std::size_t larghezza_interi(const Lettore& l) const {
        std::int32_t minimo = 0;
        std::int32_t massimo = 0;
        unsigned puntini = 0;
        unsigned piene = 0;
        const auto guarda = [&](std::int32_t v) {
            const bool piena = v > kCellaPuntini;
            puntini |= static_cast<unsigned>(v == kCellaPuntini);
            piene |= static_cast<unsigned>(piena);
            minimo = std::min(minimo, piena ? v : 0);
            massimo = std::max(massimo, v);
        };
        if (righe_.in_fila())
            std::for_each_n(l.interi, righe_.quante(), guarda);
        else
            for (std::size_t i = 0; i < righe_.quante(); ++i) guarda(l.interi[righe_[i]]);
        std::size_t massima = puntini != 0 ? 3 : 0;
        std::array<char, kPostoIntero> cifre{};
        if (piene != 0)
            for (const std::int32_t v : {minimo, massimo})
                massima =
                    std::max(massima, static_cast<std::size_t>(metti_intero(cifre.data(), v) - cifre.data()));
        return massima;
    }

    /// Calls `uno(text, first, end)` for each title with the columns under it: an empty cell after a title
    /// belongs to it.
    template <class Uno>
    void per_ogni_titolo(const std::vector<std::string>& titoli, Uno&& uno) const {
        const std::size_t n = std::min(titoli.size(), colonne_.size());
        for (std::size_t da = 0; da < n;) {
            std::size_t a = da + 1;
            if (!rifila(titoli[da]).empty())
                while (a < n && rifila(titoli[a]).empty()) ++a;
            uno(titoli[da], da, a);
            da = a;
        }
    }

    [[nodiscard]] std::size_t larghezza_tratto(std::size_t da, std::size_t a) const {
        std::size_t larga = 2 * (a - da - 1);
        for (std::size_t c = da; c < a; ++c) larga += larghe_[c];
        return larga;
    }

    const Tabella& tabella_;
    Righe righe_;
    std::vector<Lettore> colonne_;
    std::vector<std::size_t> larghe_;
    std::vector<bool> a_destra_;
    std::size_t posto_ = 0;  ///< room for the longest cell of numbers
};

}  // namespace

void scrivi_csv(std::string& testo, const Tabella& tabella, RigheScelte scelte) {
    Penna penna{testo};
    for (const auto& titoli : tabella.titoli) {
        for (std::size_t c = 0; c < titoli.size(); ++c) {
            if (c > 0) penna.aggiungi(Csv::kTraCelle);
            Csv::testo(penna, rifila(titoli[c]));
        }
        penna.aggiungi(Csv::kFineRiga);
    }
    metti_righe<Csv>(penna, tabella, {tabella, scelte});
}

namespace {

/// The members beyond the usual ones: what the answer is of, where it has a scope.
void ambito_json(Penna& penna, const std::optional<AmbitoDetto>& ambito) {
    if (!ambito) return;
    const auto testo = [&](std::string_view nome, std::string_view valore) {
        penna.aggiungi(nome);
        Json::testo(penna, valore);
    };
    testo(",\n\"ambito\": {\"ruote\": ", ambito->ruote);
    testo(", \"intervallo\": ", ambito->intervallo);
    penna.aggiungi(", \"da\": " + std::to_string(ambito->tratto.da));
    penna.aggiungi(", \"a\": " + std::to_string(ambito->tratto.a));
    testo(", \"dal\": ", ambito->dal ? testo_data(*ambito->dal) : "");
    testo(", \"al\": ", ambito->al ? testo_data(*ambito->al) : "");
    penna.aggiungi(", \"T\": " + std::to_string(ambito->t));
    testo(", \"archivio\": ", ambito->archivio);
    penna.aggiungi("}");
    if (ambito->simulato) penna.aggiungi(",\n\"simulato\": true");
}

}  // namespace

void scrivi_json(std::string& testo, const Risposta& risposta, std::size_t massimo) {
    const Risultato& risultato = *risposta.risultato;
    const RigheScelte prima{.ordine = risposta.ordine, .massimo = massimo};
    Penna penna{testo};
    penna.aggiungi("{\"chiave\": ");
    Json::testo(penna, risposta.ricerca().chiave());
    penna.aggiungi(", \"titolo\": ");
    Json::testo(penna, risposta.titolo());
    penna.aggiungi(",\n\"tabelle\": ");
    lista_json(penna, risultato.tabelle.size(), ",\n", [&](std::size_t i) {
        tabella_json(penna, risultato.tabelle[i], i == 0 ? prima : RigheScelte{});
    });
    penna.aggiungi(",\n\"etichette\": {");
    for (std::size_t i = 0; i < risultato.etichette.size(); ++i) {
        const Etichetta& e = risultato.etichette[i];
        if (i > 0) penna.aggiungi(", ");
        Json::testo(penna, e.nome);
        penna.aggiungi(": ");
        if (const auto* uno = std::get_if<std::string>(&e.testo))
            Json::testo(penna, *uno);
        else
            lista_testi_json(penna, std::get<std::vector<std::string>>(e.testo));
    }
    penna.aggiungi("},\n\"messaggi\": ");
    std::vector<std::string> messaggi;
    messaggi.reserve(risultato.messaggi.size());
    for (const Messaggio& m : risultato.messaggi) messaggi.push_back(m.testo);
    lista_testi_json(penna, messaggi);
    ambito_json(penna, risposta.ambito);
    penna.aggiungi("}\n");
}

void scrivi_intestazione_csv(std::string& testo, const Risposta& risposta) {
    for (const VoceAmbito& voce : voci_ambito(risposta)) {
        Tabella riga;
        riga.colonne = {ColonnaTesti{{std::string{voce.nome}}}, ColonnaTesti{{voce.valore}}};
        scrivi_csv(testo, riga);
    }
    testo += '\n';
}

std::size_t larghezza_terminale(std::string_view testo) {
    std::size_t somma = 0;
    while (!testo.empty()) somma += larghezza(prendi_lettera(testo));
    return somma;
}

void scrivi_tabella(std::string& testo, const Tabella& tabella, RigheScelte scelte) {
    Penna penna{testo};
    Impaginatore{tabella, scelte}.scrivi(penna);
}

void scrivi_terminale(std::string& testo, const Risposta& risposta, std::size_t massimo, bool intestazione) {
    const Risultato& risultato = *risposta.risultato;
    const RigheScelte prima{.ordine = risposta.ordine, .massimo = massimo};
    testo += su_una_linea(risposta.titolo());
    testo += '\n';
    if (intestazione) {
        for (const VoceAmbito& voce : voci_ambito(risposta))
            if (voce.nome != "Ricerca")
                testo += std::string{voce.nome} + ": " + su_una_linea(voce.valore) + "\n";
    } else if (risposta.ambito && risposta.ambito->simulato) {
        testo += kArchivioSimulato;
        testo += '\n';
    }
    for (std::size_t i = 0; i < risultato.tabelle.size(); ++i) {
        const Tabella& t = risultato.tabelle[i];
        testo += '\n';
        if (risultato.tabelle.size() > 1) testo += su_una_linea(t.nome) + ":\n";
        scrivi_tabella(testo, t, i == 0 ? prima : RigheScelte{});
    }
    if (!risultato.etichette.empty()) testo += '\n';
    for (const Etichetta& e : risultato.etichette) {
        testo += e.nome + ":";
        if (const auto* uno = std::get_if<std::string>(&e.testo)) {
            if (const std::string t = su_una_linea(*uno); !t.empty()) testo += " " + t;
        } else {
            std::string_view tra = " ";
            for (const auto& voce : std::get<std::vector<std::string>>(e.testo))
                if (const std::string t = su_una_linea(voce); !t.empty()) {
                    testo += tra;
                    testo += t;
                    tra = ", ";
                }
        }
        testo += '\n';
    }
}

}  // namespace sortimetra
