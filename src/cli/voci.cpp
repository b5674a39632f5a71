#include "cli/voci.h"

#include "cli/richiesta.h"

#include <algorithm>

namespace sortimetra {

namespace {

template <class Riga>
void aggiungi(std::vector<VoceManuale>& voci, const Riga& o) {
    // A name may stand twice in a table, once a command or a kind of search: the first is the one told.
    if (std::any_of(voci.begin(), voci.end(), [&](const VoceManuale& v) { return v.nome == o.nome; })) return;
    voci.push_back({o.nome, o.meta, o.frase, o.parole});
}

template <class Quali>
std::vector<VoceManuale> quelle(Quali&& quali) {
    std::vector<VoceManuale> voci;
    for (const VoceOpzione& o : opzioni())
        if (quali(o)) aggiungi(voci, o);
    return voci;
}

}  // namespace

ValoreOpzione valore_di(const VoceManuale& voce) {
    if (voce.meta.empty()) return ValoreOpzione::nessuno;
    if (voce.meta.starts_with("FILE")) return ValoreOpzione::file;
    if (voce.meta == "DIR") return ValoreOpzione::cartella;
    if (voce.parole.empty()) return ValoreOpzione::libero;
    return voce.meta == "ELENCO" ? ValoreOpzione::elenco : ValoreOpzione::parola;
}

std::vector<VoceManuale> voci_di_ogni_comando() {
    return quelle(di_ogni_comando);
}

std::vector<VoceManuale> voci_comando(const Comando& comando) {
    std::vector<VoceManuale> voci;
    if (const Ricerca* sua = ricerca_propria(comando)) voci = voci_ricerca(comando, *sua);
    for (const VoceOpzione& o : opzioni())
        if (!di_ogni_comando(o) && o.ammessa == nullptr && conosce(o, comando.bit, nullptr))
            aggiungi(voci, o);
    return voci;
}

std::vector<VoceManuale> voci_ricerca(const Comando& comando, const Ricerca& ricerca) {
    std::vector<VoceManuale> voci;
    for (const Opzione* o : ricerca.opzioni) aggiungi(voci, *o);
    for (const VoceOpzione& o : opzioni())
        if (o.ammessa != nullptr && conosce(o, comando.bit, &ricerca)) aggiungi(voci, o);
    return voci;
}

bool vuole_chiave(const Comando& comando) {
    return comando.argomenti.starts_with("CHIAVE");
}

bool vuole_file(const Comando& comando) {
    return comando.argomenti.starts_with("[FILE");
}

std::vector<const Comando*> comandi_pronti() {
    std::vector<const Comando*> pronti;
    for (const Comando& c : comandi())
        if (c.esegui != nullptr) pronti.push_back(&c);
    return pronti;
}

std::vector<const Ricerca*> ricerche_pronte() {
    std::vector<const Ricerca*> pronte;
    for (const Ricerca& r : ricerche())
        if (r.pronta()) pronte.push_back(&r);
    return pronte;
}

}  // namespace sortimetra
