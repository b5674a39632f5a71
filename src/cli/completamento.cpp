#include "cli/completamento.h"

#include "cli/voci.h"

#include <fmt/core.h>

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <vector>

namespace sortimetra {

namespace {

constexpr std::string_view kFattoDa = "Fatto dalla tabella delle opzioni: non si cambia a mano.";

/// A text in single quotes, as both shells read it.
std::string apici(std::string_view testo) {
    std::string scritto = "'";
    for (const char c : testo) {
        if (c == '\'')
            scritto += "'\\''";
        else
            scritto += c;
    }
    return scritto + "'";
}

/// A text with a backslash before some characters.
std::string protetto(std::string_view testo, std::string_view quali) {
    std::string scritto;
    for (const char c : testo) {
        if (quali.find(c) != std::string_view::npos) scritto += '\\';
        scritto += c;
    }
    return scritto;
}

/// Where a line of a menu has room for one sentence: the first.
std::string_view prima_frase(std::string_view frase) {
    const std::string_view prima = frase.substr(0, frase.find(". "));
    return prima.ends_with('.') ? prima.substr(0, prima.size() - 1) : prima;
}

std::vector<VoceManuale> voci_finestra(std::span<const Opzione> opzioni) {
    std::vector<VoceManuale> voci;
    for (const Opzione& o : opzioni) voci.push_back({o.nome, o.meta, o.frase, o.parole});
    return voci;
}

/// Every option that is followed by a value, in any command or search.
std::set<std::string_view> con_valore() {
    std::set<std::string_view> nomi;
    const auto guarda = [&](const std::vector<VoceManuale>& voci) {
        for (const VoceManuale& v : voci)
            if (!v.meta.empty()) nomi.insert(v.nome);
    };
    guarda(voci_di_ogni_comando());
    for (const Comando* c : comandi_pronti()) {
        guarda(voci_comando(*c));
        if (!vuole_chiave(*c)) continue;
        for (const Ricerca* r : ricerche_pronte()) guarda(voci_ricerca(*c, *r));
    }
    return nomi;
}

using Scrive = std::string (*)(const VoceManuale&);

/// The options as the elements of an array, one a line after `rientro`.
std::string elementi(const std::vector<VoceManuale>& voci, Scrive scrive, std::string_view rientro) {
    std::string t;
    for (const VoceManuale& v : voci) t += fmt::format("{}{}\n", rientro, apici(scrive(v)));
    return t;
}

/// What of a script depends on the command and the search: an array `opzioni` that grows. The `case` of
/// both shells is the same.
std::string casi(Scrive scrive) {
    std::string t = "    case $comando in\n";
    for (const Comando* c : comandi_pronti()) {
        t += fmt::format("    {})\n        opzioni+=(\n{}        )\n", c->nome,
                         elementi(voci_comando(*c), scrive, "            "));
        if (vuole_chiave(*c)) {
            // Searches that take the same options share one branch.
            std::map<std::string, std::string> rami;
            for (const Ricerca* r : ricerche_pronte()) {
                const std::string di_ricerca = elementi(voci_ricerca(*c, *r), scrive, "                ");
                if (di_ricerca.empty()) continue;
                std::string& chiavi = rami[di_ricerca];
                if (!chiavi.empty()) chiavi += " | \\\n            ";
                chiavi += apici(r->chiave());
            }
            t += "        case $chiave in\n";
            for (const auto& [opzioni, chiavi] : rami)
                t += fmt::format("        {})\n            opzioni+=(\n{}            )\n            ;;\n",
                                 chiavi, opzioni);
            t += "        esac\n";
        }
        t += "        ;;\n";
    }
    t += fmt::format("    esac\n    opzioni+=(\n{}    )\n",
                     elementi(voci_di_ogni_comando(), scrive, "        "));
    return t;
}

/// "ricerca | stampa", for a `case`: the commands whose next words are of that kind.
std::string comandi_con(bool (*vuole)(const Comando&)) {
    std::string t;
    for (const Comando* c : comandi_pronti()) {
        if (!vuole(*c)) continue;
        if (!t.empty()) t += " | ";
        t += c->nome;
    }
    return t;
}

// ---- bash ----

/// One option in the arrays of bash: its name, the kind of its value, the words, joined by "|".
std::string voce_bash(const VoceManuale& v) {
    constexpr std::string_view kSegni = "-vfdpl";
    std::string t = fmt::format("{}|{}", v.nome, kSegni[static_cast<std::size_t>(valore_di(v))]);
    for (const std::string_view p : v.parole) t += fmt::format("|{}", p);
    return t;
}

/// What both scripts of bash share. Bash cuts the line at "=" and ":" too; a word may be quoted.
constexpr std::string_view kComuneBash = R"(
# $1: what is typed of the word; the rest: what there is to choose from. A word with blanks is written so that
# the shell reads it as one, unless a quote is open already.
_sortimetra_scelte() {
    local cur=$1 scelta aperto=false
    shift
    [[ $cur != [\"\']* ]] || aperto=true
    cur=${cur#[\"\']}
    cur=${cur//\\/}
    for scelta; do
        [[ ${scelta,,} == "${cur,,}"* ]] || continue
        $aperto || printf -v scelta %q "$scelta"
        COMPREPLY+=("$scelta")
    done
}

# $1: an option; $2: what is typed of its value; the rest: the options as the tables tell them.
_sortimetra_valore() {
    local nome=$1 cur=$2 voce tratto
    local -a pezzi
    shift 2
    for voce; do
        IFS='|' read -r -a pezzi <<<"$voce"
        [[ ${pezzi[0]} == "$nome" ]] || continue
        case ${pezzi[1]} in
        f)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$cur")
            ;;
        d)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -d -- "$cur")
            ;;
        p) _sortimetra_scelte "$cur" "${pezzi[@]:2}" ;;
        l)
            # The pieces of a list are joined by commas: the last is being typed.
            tratto=''
            [[ $cur != *,* ]] || tratto=${cur%,*},
            compopt -o nospace 2>/dev/null
            pezzi=("${pezzi[@]:2}")
            _sortimetra_scelte "$cur" "${pezzi[@]/#/$tratto}"
            ;;
        esac
        return
    done
}
)";

constexpr std::string_view kCercaBash = R"(
    # The command, the key and the option that waits for its value, in what stands before the cursor.
    for ((i = 1; i < COMP_CWORD; ++i)); do
        parola=${COMP_WORDS[i]}
        if [[ $parola == '=' ]]; then
            :
        elif [[ $parola == ':' ]]; then
            # "2:asc" comes as three words.
            ((++i))
        elif [[ $atteso ]]; then
            atteso=''
        elif [[ $parola == -* ]]; then
            [[ $con_valore != *" $parola "* ]] || atteso=$parola
        elif [[ ! $comando ]]; then
            comando=$parola
        elif [[ ! $chiave ]]; then
            chiave=${parola#[\"\']}
            chiave=${chiave%[\"\']}
            chiave=${chiave//\\/}
            chiave=${chiave,,}
        fi
    done
    [[ $cur != '=' ]] || cur=''
)";

std::string nomi_con_valore(const std::set<std::string_view>& nomi) {
    std::string t = " ";
    for (const std::string_view n : nomi) t += fmt::format("{} ", n);
    return t;
}

// ---- zsh ----

/// One option as `_arguments` of zsh takes it: "--da=[Il primo concorso]:N: ".
std::string voce_zsh(const VoceManuale& v) {
    const std::string frase = protetto(prima_frase(v.frase), "\\[]:");
    if (v.meta.empty()) return fmt::format("{}[{}]", v.nome, frase);
    const std::string meta = protetto(v.meta, "\\:");
    std::string parole;
    for (const std::string_view p : v.parole) parole += fmt::format(" {}", protetto(p, "\\ :()'\""));
    std::string azione;
    switch (valore_di(v)) {
        case ValoreOpzione::file:
            azione = "_files";
            break;
        case ValoreOpzione::cartella:
            azione = "_directories";
            break;
        case ValoreOpzione::parola:
            azione = fmt::format("({})", parole.substr(1));
            break;
        // The blank before the action: it is called as it stands.
        case ValoreOpzione::elenco:
            azione = fmt::format(" _values -s , {}{}", meta, parole);
            break;
        case ValoreOpzione::libero:
        case ValoreOpzione::nessuno:
            azione = " ";
            break;
    }
    // A long name is joined to its value by "=", a short one by nothing.
    return fmt::format("{}{}[{}]:{}:{}", v.nome, v.nome.starts_with("--") ? '=' : '+', frase, meta, azione);
}

/// A word and what it is, for `_describe`.
std::string detto(std::string_view nome, std::string_view frase) {
    return apici(fmt::format("{}:{}", protetto(nome, "\\:"), prima_frase(frase)));
}

}  // namespace

std::string completamento_bash_cli() {
    std::string comandi;
    for (const Comando* c : comandi_pronti()) comandi += fmt::format(" {}", c->nome);
    const std::string dopo_aiuto = fmt::format("        aiuto) _sortimetra_scelte \"$cur\"{} ;;\n", comandi);
    std::string t = fmt::format("# bash: Tab dopo sortimetra-cli. {}\n{}", kFattoDa, kComuneBash);
    t += "\n_sortimetra_cli() {\n"
         "    local cur=${COMP_WORDS[COMP_CWORD]} comando='' chiave='' atteso='' parola i\n";
    t += fmt::format("    local con_valore={}\n", apici(nomi_con_valore(con_valore())));
    t += "    local -a opzioni=()\n    COMPREPLY=()\n";
    t += kCercaBash;
    t += casi(voce_bash);
    t += "    if [[ $atteso ]]; then\n"
         "        _sortimetra_valore \"$atteso\" \"$cur\" \"${opzioni[@]}\"\n"
         "    elif [[ $cur == -* ]]; then\n"
         "        _sortimetra_scelte \"$cur\" \"${opzioni[@]%%|*}\"\n"
         "    elif [[ ! $comando ]]; then\n";
    t += fmt::format("        _sortimetra_scelte \"$cur\"{} aiuto\n", comandi);
    t += fmt::format(
        "    elif [[ $comando == {} ]]; then\n"
        "        compopt -o filenames 2>/dev/null\n"
        "        mapfile -t COMPREPLY < <(compgen -f -- \"$cur\")\n",
        comandi_con(vuole_file));
    t += fmt::format(
        "    elif [[ ! $chiave ]]; then\n        case $comando in\n        {})\n"
        "            _sortimetra_scelte \"$cur\"",
        comandi_con(vuole_chiave));
    for (const Ricerca* r : ricerche_pronte())
        t += fmt::format(" \\\n                {}", apici(r->chiave()));
    t += fmt::format("\n            ;;\n{}", dopo_aiuto);
    t += "        esac\n    fi\n}\n\ncomplete -F _sortimetra_cli sortimetra-cli\n";
    return t;
}

std::string completamento_bash_finestra(std::span<const Opzione> opzioni) {
    const auto voci = voci_finestra(opzioni);
    std::set<std::string_view> nomi;
    for (const VoceManuale& v : voci)
        if (!v.meta.empty()) nomi.insert(v.nome);
    std::string t = fmt::format("# bash: Tab dopo sortimetra. {}\n{}", kFattoDa, kComuneBash);
    t += fmt::format(
        "\n_sortimetra() {{\n"
        "    local cur=${{COMP_WORDS[COMP_CWORD]}} atteso=${{COMP_WORDS[COMP_CWORD - 1]}}\n"
        "    local con_valore={}\n"
        "    local -a opzioni=(\n{}    )\n"
        "    COMPREPLY=()\n"
        "    [[ $atteso != '=' ]] || atteso=${{COMP_WORDS[COMP_CWORD - 2]}}\n"
        "    [[ $cur != '=' ]] || cur=''\n"
        "    if [[ $con_valore == *\" $atteso \"* ]]; then\n"
        "        _sortimetra_valore \"$atteso\" \"$cur\" \"${{opzioni[@]}}\"\n"
        "    else\n"
        "        _sortimetra_scelte \"$cur\" \"${{opzioni[@]%%|*}}\"\n"
        "    fi\n"
        "}}\n\n"
        "complete -F _sortimetra sortimetra\n",
        apici(nomi_con_valore(nomi)), elementi(voci, voce_bash, "        "));
    return t;
}

std::string completamento_zsh_cli() {
    std::string t = fmt::format("#compdef sortimetra-cli\n# zsh: Tab dopo sortimetra-cli. {}\n\n", kFattoDa);
    t += "_sortimetra-cli_comandi() {\n    local -a comandi=(\n";
    for (const Comando* c : comandi_pronti()) t += fmt::format("        {}\n", detto(c->nome, c->frase));
    t += fmt::format("        {}\n", detto("aiuto", "Spiega un comando"));
    t += "    )\n    _describe -t comandi comando comandi\n}\n\n"
         "_sortimetra-cli_chiavi() {\n    local -a chiavi=(\n";
    for (const Ricerca* r : ricerche_pronte()) t += fmt::format("        {}\n", detto(r->chiave(), r->frase));
    t += "    )\n    _describe -t chiavi ricerca chiavi -M 'm:{[:upper:]}={[:lower:]}'\n}\n\n"
         "_sortimetra-cli() {\n"
         "    local comando='' chiave='' parola salta=''\n";
    t += fmt::format("    local con_valore={}\n", apici(nomi_con_valore(con_valore())));
    t += "    local -a opzioni=() posti=()\n"
         "    # The command and the key, in what stands before the cursor.\n"
         "    for parola in \"${(@Q)words[2,CURRENT-1]}\"; do\n"
         "        if [[ -n $salta ]]; then\n"
         "            salta=''\n"
         "        elif [[ $parola == -* ]]; then\n"
         "            [[ $con_valore != *\" $parola \"* ]] || salta=1\n"
         "        elif [[ -z $comando ]]; then\n"
         "            comando=$parola\n"
         "        elif [[ -z $chiave ]]; then\n"
         "            chiave=${(L)parola}\n"
         "        fi\n"
         "    done\n";
    t += casi(voce_zsh);
    t += fmt::format(
        "    posti=('1:comando:_sortimetra-cli_comandi')\n"
        "    case $comando in\n    {}) posti+=('2:CHIAVE:_sortimetra-cli_chiavi') ;;\n"
        "    {}) posti+=('*:FILE:_files') ;;\n"
        "    aiuto) posti+=('2:comando:_sortimetra-cli_comandi') ;;\n    esac\n"
        "    _arguments -S : $opzioni $posti\n}}\n\n_sortimetra-cli \"$@\"\n",
        comandi_con(vuole_chiave), comandi_con(vuole_file));
    return t;
}

std::string completamento_zsh_finestra(std::span<const Opzione> opzioni) {
    return fmt::format(
        "#compdef sortimetra\n# zsh: Tab dopo sortimetra. {}\n\n"
        "_sortimetra() {{\n    local -a opzioni=(\n{}    )\n    _arguments -S : $opzioni\n}}\n\n"
        "_sortimetra \"$@\"\n",
        kFattoDa, elementi(voci_finestra(opzioni), voce_zsh, "        "));
}

}  // namespace sortimetra
