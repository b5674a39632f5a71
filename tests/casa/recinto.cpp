#include "casa/recinto.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <fstream>
#include <optional>
#include <set>
#include <sstream>
#include <utility>

namespace sortimetra::casa {

namespace {

// ---- the floors ----

struct Piano {
    std::string_view stanza;
    int altezza;
};

/// A room knows the rooms that stand lower. Rooms on one floor do not know each other.
constexpr Piano kPiani[] = {
    {"core/text", 0},
    {"core/files", 1},
    {"core/draws", 2},
    {"core/stores", 3},
    {"core/results", 3},
    {"core/statistics", 4},
    {"core/printing", 4},
    {"core/positional", 5},
    {"core/systems", 5},
    {"core/tools", 5},
    {"core/lunghette", 5},
    {"core/personal", 5},
    {"core/bets", 5},
    {"core/chance", 5},
    {"core/catalogue", 6},
    {"stampa", 7},
    {"arrivi", 7},
    {"grafico", 8},
    {"cli", 7},
    {"jet", 7},
    {"desktop/screens", 9},
    {"desktop/printing", 10},
    {"desktop/statistics", 11},
    {"desktop/positional", 12},
    {"desktop/systems", 12},
    {"desktop/tools", 12},
    {"desktop/lunghette", 12},
    {"desktop/personal", 12},
    {"desktop/bets", 12},
    {"desktop/stores", 12},
    {"desktop/chance", 12},
    {"desktop/catalogue", 13},
    {"desktop", 14},
};
/// Programs of their own: no room knows them, however high it stands.
constexpr std::array<std::string_view, 3> kTetti{"arrivi", "cli", "jet"};

std::optional<int> altezza(std::string_view stanza) {
    const auto* p = std::find_if(std::begin(kPiani), std::end(kPiani),
                                 [&](const Piano& piano) { return piano.stanza == stanza; });
    if (p == std::end(kPiani)) return std::nullopt;
    return p->altezza;
}

bool conosce(std::string_view chi, std::string_view che) {
    if (chi == che) return true;
    if (std::find(kTetti.begin(), kTetti.end(), che) != kTetti.end()) return false;
    const auto su = altezza(chi);
    const auto giu = altezza(che);
    return su && giu && *giu < *su;
}

// ---- includes ----

/// What stands between the marks of each `#include` line.
std::vector<std::string> inclusi(const std::string& testo) {
    std::vector<std::string> nomi;
    std::istringstream righe{testo};
    for (std::string riga; std::getline(righe, riga);) {
        riga.erase(std::remove_if(riga.begin(), riga.end(), [](char c) { return c == ' ' || c == '\t'; }),
                   riga.end());
        constexpr std::string_view kInclude = "#include";
        if (!riga.starts_with(kInclude) || riga.size() < kInclude.size() + 2) continue;
        const char chiude = riga[kInclude.size()] == '<' ? '>' : '"';
        const auto fine = riga.find(chiude, kInclude.size() + 1);
        if (fine != std::string::npos)
            nomi.push_back(riga.substr(kInclude.size() + 1, fine - kInclude.size() - 1));
    }
    return nomi;
}

/// Calls `una(file, name, paths)` for each include with the files of the house that it can mean.
template <class Una>
void per_ogni_inclusione(const Sorgenti& sorgenti, Una&& una) {
    std::set<std::string, std::less<>> percorsi;
    for (const Sorgente& s : sorgenti) percorsi.insert(s.percorso);
    for (const Sorgente& s : sorgenti)
        for (const std::string& nome : inclusi(s.testo)) {
            std::vector<std::string> trovati;
            for (const std::string_view radice : {"src/core/", "src/stampa/", "src/desktop/", "src/"})
                if (auto p = std::string{radice} + nome; percorsi.contains(p))
                    trovati.push_back(std::move(p));
            una(s, nome, trovati);
        }
}

// ---- tokens ----

bool di_parola(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

/// Cuts a text into words, "::" and single signs; comments, literals and directives are left out.
class Tagliatore {
  public:
    explicit Tagliatore(std::string_view testo) : testo_{testo} {}

    [[nodiscard]] std::vector<std::string_view> tutte() && {
        while (i_ < testo_.size()) una();
        return std::move(parole_);
    }

  private:
    void una() {
        const char c = testo_[i_];
        if (c == '\n') {
            a_capo_ = true;
            ++i_;
        } else if (std::isspace(static_cast<unsigned char>(c)) != 0) {
            ++i_;
        } else if (c == '#' && a_capo_) {
            direttiva();
        } else if (testo_.substr(i_, 2) == "//") {
            i_ = std::min(testo_.find('\n', i_), testo_.size());
        } else if (testo_.substr(i_, 2) == "/*") {
            oltre("*/", i_ + 2);
        } else {
            a_capo_ = false;
            segno(c);
        }
    }

    void segno(char c) {
        if (c == '"') {
            stringa();
        } else if (c == '\'') {
            fra_apici('\'');
        } else if (di_parola(c)) {
            parola();
        } else {
            const std::size_t n = testo_.substr(i_, 2) == "::" ? 2 : 1;
            parole_.push_back(testo_.substr(i_, n));
            i_ += n;
        }
    }

    /// In a number a single quote parts the digits.
    void parola() {
        const std::size_t inizio = i_;
        const bool numero = std::isdigit(static_cast<unsigned char>(testo_[i_])) != 0;
        while (i_ < testo_.size() && (di_parola(testo_[i_]) || (numero && testo_[i_] == '\''))) ++i_;
        parole_.push_back(testo_.substr(inizio, i_ - inizio));
    }

    void stringa() {
        if (i_ > 0 && testo_[i_ - 1] == 'R') {
            const auto aperta = testo_.find('(', i_);
            const std::string marca{testo_.substr(i_ + 1, aperta - i_ - 1)};
            oltre(")" + marca + "\"", aperta);
        } else {
            fra_apici('"');
        }
    }
    void fra_apici(char apice) {
        for (++i_; i_ < testo_.size() && testo_[i_] != apice; ++i_)
            if (testo_[i_] == '\\') ++i_;
        i_ = std::min(i_ + 1, testo_.size());
    }
    void oltre(std::string_view fine, std::size_t da) {
        const auto p = testo_.find(fine, da);
        i_ = p == std::string_view::npos ? testo_.size() : p + fine.size();
    }
    void direttiva() {
        while (i_ < testo_.size() && testo_[i_] != '\n') i_ += testo_[i_] == '\\' ? 2 : 1;
    }

    std::string_view testo_;
    std::size_t i_ = 0;
    bool a_capo_ = true;
    std::vector<std::string_view> parole_;
};

// ---- types ----

constexpr std::string_view kPrivato = "(privato)";

struct Definizione {
    std::string nome;   ///< "sortimetra::Cella::Tipo"
    bool privata;       ///< in an unnamed namespace
    std::string alias;  ///< what a `using` name stands for; empty for a type
};

/// Finds the types that a file defines outside of functions.
class Cercatore {
  public:
    explicit Cercatore(std::string_view testo) : parole_{Tagliatore{testo}.tutte()} {}

    [[nodiscard]] std::vector<Definizione> tutti() && {
        while (i_ < parole_.size()) {
            const std::string_view p = parole_[i_];
            if (p == "namespace") {
                spazio();
            } else if (p == "{") {
                apri("", true);
            } else if (p == "}") {
                if (!aperti_.empty()) aperti_.pop_back();
                ++i_;
            } else if (fuori() && p == "using") {
                alias();
            } else if (fuori() && (p == "struct" || p == "class" || p == "union" || p == "enum")) {
                tipo();
            } else {
                ++i_;
            }
        }
        return std::move(trovati_);
    }

  private:
    struct Aperto {
        std::string nome;
        bool blocco;  ///< a function's body, an initializer: what is in there is nobody else's
    };

    [[nodiscard]] std::string_view parola(std::size_t i) const {
        return i < parole_.size() ? parole_[i] : std::string_view{};
    }
    [[nodiscard]] bool fuori() const {
        return std::none_of(aperti_.begin(), aperti_.end(), [](const Aperto& a) { return a.blocco; });
    }
    void apri(std::string nome, bool blocco) {
        aperti_.push_back({std::move(nome), blocco});
        ++i_;
    }

    void spazio() {
        std::string nome;
        for (++i_; i_ < parole_.size() && parole_[i_] != "{" && parole_[i_] != ";" && parole_[i_] != "=";
             ++i_)
            nome += parole_[i_];
        if (parola(i_) == "{") apri(nome.empty() ? std::string{kPrivato} : nome, false);
    }

    void alias() {
        const std::string_view nome = parola(i_ + 1);
        if (parola(i_ + 2) != "=") {
            ++i_;
            return;
        }
        std::string vale;
        for (i_ += 3; i_ < parole_.size() && parole_[i_] != ";"; ++i_) vale.append(parole_[i_]).append(" ");
        segna(std::string{nome}, vale);
    }

    /// `struct`, attributes, a name, arguments of a specialisation, bases: a definition where "{" follows.
    void tipo() {
        ++i_;
        if (parola(i_) == "class" || parola(i_) == "struct") ++i_;
        std::string nome;
        for (; i_ < parole_.size(); ++i_) {
            const std::string_view p = parole_[i_];
            if (p == "[" || p == "(") {
                salta(p, p == "[" ? "]" : ")");
            } else if (p == "<") {
                if (nome.empty()) return;
                const std::size_t da = i_;
                salta("<", ">");
                for (std::size_t k = da; k <= i_ && k < parole_.size(); ++k) nome += parole_[k];
            } else if (p == "::") {
                nome += p;
            } else if (di_parola(p.front())) {
                if (p != "final" && p != "alignas") nome = nome.ends_with("::") ? nome + std::string{p} : p;
            } else {
                break;
            }
        }
        if (parola(i_) == ":")
            while (i_ < parole_.size() && parole_[i_] != "{" && parole_[i_] != ";") ++i_;
        if (parola(i_) != "{") return;
        if (!nome.empty()) segna(nome, "");
        apri(nome, false);
    }
    /// To the closing sign of the pair that opens here.
    void salta(std::string_view apre, std::string_view chiude) {
        int aperte = 0;
        for (; i_ < parole_.size(); ++i_) {
            if (parole_[i_] == apre) ++aperte;
            if (parole_[i_] == chiude && --aperte == 0) return;
        }
    }

    void segna(const std::string& nome, std::string alias) {
        std::string intero;
        bool privata = false;
        for (const Aperto& a : aperti_) {
            privata = privata || a.nome == kPrivato;
            if (a.nome != kPrivato && !a.nome.empty()) intero += a.nome + "::";
        }
        trovati_.push_back({intero + nome, privata, std::move(alias)});
    }

    std::vector<std::string_view> parole_;
    std::size_t i_ = 0;
    std::vector<Aperto> aperti_;
    std::vector<Definizione> trovati_;
};

std::string senza_estensione(std::string_view percorso) {
    return std::string{percorso.substr(0, percorso.rfind('.'))};
}

}  // namespace

Sorgenti leggi_sorgenti(const std::filesystem::path& radice, std::string_view cartella) {
    Sorgenti sorgenti;
    for (const auto& voce : std::filesystem::recursive_directory_iterator{radice / cartella}) {
        if (voce.path().extension() != ".h" && voce.path().extension() != ".cpp") continue;
        std::ifstream file{voce.path(), std::ios::binary};
        std::ostringstream testo;
        testo << file.rdbuf();
        sorgenti.push_back({voce.path().lexically_relative(radice).generic_string(), std::move(testo).str()});
    }
    std::sort(sorgenti.begin(), sorgenti.end(),
              [](const Sorgente& a, const Sorgente& b) { return a.percorso < b.percorso; });
    return sorgenti;
}

std::string stanza(std::string_view percorso) {
    constexpr std::string_view kRadice = "src/";
    if (!percorso.starts_with(kRadice)) return {};
    percorso.remove_prefix(kRadice.size());
    std::string_view cartella = percorso.substr(0, std::min(percorso.rfind('/'), percorso.size()));
    // Only core and desktop are parted into rooms; a folder in a room is part of it.
    const auto prima = cartella.find('/');
    const std::string_view libreria = cartella.substr(0, prima);
    if (prima == std::string_view::npos || (libreria != "core" && libreria != "desktop"))
        return std::string{libreria};
    return std::string{cartella.substr(0, cartella.find('/', prima + 1))};
}

Rilievi inclusioni_vietate(const Sorgenti& sorgenti) {
    Rilievi rilievi;
    for (const Sorgente& s : sorgenti)
        if (!altezza(stanza(s.percorso)))
            rilievi.push_back(s.percorso + ": room \"" + stanza(s.percorso) + "\" has no floor");
    per_ogni_inclusione(sorgenti, [&](const Sorgente& s, const std::string& nome, const auto& trovati) {
        if (trovati.size() > 1)
            rilievi.push_back(s.percorso + ": \"" + nome + "\" is " + trovati[0] + " or " + trovati[1]);
        for (const std::string& t : trovati)
            if (!conosce(stanza(s.percorso), stanza(t)))
                rilievi.push_back(s.percorso + ": " + stanza(s.percorso) + " must not know " + t);
    });
    return rilievi;
}

Rilievi stanze_a_vicenda(const Sorgenti& sorgenti) {
    std::map<std::pair<std::string, std::string>, std::string> frecce;
    per_ogni_inclusione(sorgenti, [&](const Sorgente& s, const std::string& nome, const auto& trovati) {
        for (const std::string& t : trovati)
            frecce.try_emplace({stanza(s.percorso), stanza(t)}, s.percorso + " includes " + nome);
    });
    Rilievi rilievi;
    for (const auto& [freccia, prova] : frecce) {
        const auto& [da, a] = freccia;
        const auto ritorno = frecce.find({a, da});
        if (da < a && ritorno != frecce.end())
            rilievi.push_back(da + " and " + a + ": " + prova + ", " + ritorno->second);
    }
    return rilievi;
}

Rilievi qt_dove_non_deve(const Sorgenti& sorgenti) {
    Rilievi rilievi;
    for (const Sorgente& s : sorgenti) {
        const std::string dove = stanza(s.percorso);
        if (!dove.starts_with("core") && dove != "cli" && dove != "jet") continue;
        for (const std::string& nome : inclusi(s.testo)) {
            const bool qt = nome.size() > 1 && nome[0] == 'Q' && nome[1] >= 'A' && nome[1] <= 'Z';
            if (qt || nome.starts_with("Qt") || nome.starts_with("qt_"))
                rilievi.push_back(s.percorso + ": includes " + nome);
        }
    }
    return rilievi;
}

Rilievi senza_specchio(const Sorgenti& sorgenti, const Sorgenti& prove, const Coperture& coperture) {
    std::map<std::string, const Sorgente*, std::less<>> per_percorso;
    for (const Sorgente& p : prove) per_percorso.emplace(p.percorso, &p);
    Rilievi rilievi;
    std::set<std::string, std::less<>> visti;
    for (const Sorgente& s : sorgenti) {
        constexpr std::string_view kCore = "src/core/";
        if (!s.percorso.starts_with(kCore) || !s.percorso.ends_with(".cpp")) continue;
        visti.insert(s.percorso);
        const std::string dentro = s.percorso.substr(kCore.size());
        const auto barra = dentro.rfind('/') + 1;
        const std::string specchio = "tests/core/" + dentro.substr(0, barra) + "test_" + dentro.substr(barra);
        const bool c_e = per_percorso.contains(specchio);
        const auto coperto = coperture.find(s.percorso);
        if (coperto == coperture.end()) {
            if (!c_e) rilievi.push_back(s.percorso + ": no " + specchio);
            continue;
        }
        if (c_e) rilievi.push_back(s.percorso + ": " + specchio + " is there, no other need stand in for it");
        const auto prova = per_percorso.find(coperto->second);
        const std::string testata = senza_estensione(dentro) + ".h";
        if (prova == per_percorso.end()) {
            rilievi.push_back(s.percorso + ": no " + coperto->second);
        } else if (const auto nomi = inclusi(prova->second->testo);
                   std::find(nomi.begin(), nomi.end(), testata) == nomi.end()) {
            rilievi.push_back(s.percorso + ": " + coperto->second + " does not include " + testata);
        }
    }
    for (const auto& [file, prova] : coperture)
        if (!visti.contains(file)) rilievi.push_back(file + ": is not there, yet " + prova + " covers it");
    return rilievi;
}

Rilievi tipi_doppi(const Sorgenti& sorgenti) {
    struct Visto {
        std::string percorso;
        std::string alias;
    };
    std::map<std::string, std::vector<Visto>> comuni;
    std::map<std::string, std::vector<std::string>> privati;
    for (const Sorgente& s : sorgenti)
        for (Definizione& d : Cercatore{s.testo}.tutti()) {
            if (d.privata)
                privati[d.nome].push_back(s.percorso);
            else
                comuni[d.nome].push_back({s.percorso, std::move(d.alias)});
        }
    Rilievi rilievi;
    for (const auto& [nome, visti] : comuni) {
        for (std::size_t i = 1; i < visti.size(); ++i) {
            const bool lo_stesso = !visti[i].alias.empty() && visti[i].alias == visti[0].alias;
            if (visti[i].percorso != visti[0].percorso && !lo_stesso)
                rilievi.push_back(nome + ": in " + visti[0].percorso + " and in " + visti[i].percorso);
        }
        if (const auto p = privati.find(nome); p != privati.end())
            for (const std::string& percorso : p->second)
                rilievi.push_back(nome + ": in " + visti[0].percorso + ", and another one within " +
                                  percorso);
    }
    return rilievi;
}

}  // namespace sortimetra::casa
