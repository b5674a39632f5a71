#pragma once

#include "catalogue/ricerche.h"
#include "cli/comandi.h"

#include <span>
#include <string_view>
#include <vector>

namespace sortimetra {

/// An option as a manual page or a shell shows it, whichever table it stands in.
struct VoceManuale {
    std::string_view nome, meta, frase;
    std::span<const std::string_view> parole{};
};

/// What follows the name of an option, as a shell can help with it.
enum class ValoreOpzione { nessuno, libero, file, cartella, parola, elenco };
[[nodiscard]] ValoreOpzione valore_di(const VoceManuale& voce);

/// The options that every command takes.
[[nodiscard]] std::vector<VoceManuale> voci_di_ogni_comando();
/// Those that a command takes beside them, whatever it searches.
[[nodiscard]] std::vector<VoceManuale> voci_comando(const Comando& comando);
/// Those that a command takes further for one search.
[[nodiscard]] std::vector<VoceManuale> voci_ricerca(const Comando& comando, const Ricerca& ricerca);

/// Whether a command is followed by names of files.
[[nodiscard]] bool vuole_file(const Comando& comando);
/// Whether a command is followed by the key of a search.
[[nodiscard]] bool vuole_chiave(const Comando& comando);
/// The commands and the searches that there are to be used, in their order.
[[nodiscard]] std::vector<const Comando*> comandi_pronti();
[[nodiscard]] std::vector<const Ricerca*> ricerche_pronte();

}  // namespace sortimetra
