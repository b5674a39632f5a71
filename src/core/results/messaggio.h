#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace sortimetra {

/// What a message is about: screens move the focus, choose a title or stay quiet by it, never by its text.
enum class Avviso : std::uint8_t {
    altro,
    nessuna_estrazione,   ///< no draw is left by wheels, range and calendar
    capogioco,            ///< the head number is none
    capigioco,            ///< one of the two head numbers is none
    file_danneggiato,     ///< the list of the cinquine dei 90 cannot be read
    troppe_combinazioni,  ///< a decomposition with more members than is allowed
    posizione_dieci,      ///< a lunghetta by position has ten numbers at most
    gruppo_incompleto,    ///< no group to analyse, or one with a free row
    nessun_gruppo,        ///< no group has been saved, or none of that name
    nome_in_uso,          ///< a group of that name is there already
    nome_non_valido,      ///< a group's name that its file cannot hold
    numero_mancante,      ///< a choice of numbers that holds none
    sistema_danneggiato,  ///< the combinations of a saved system cannot be read to their end
};

/// The text of a message box, and what it is about.
struct Messaggio {
    Avviso avviso = Avviso::altro;
    std::string testo{};

    friend bool operator==(const Messaggio&, const Messaggio&) = default;
};

}  // namespace sortimetra
