#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace sortimetra::jet {

/// Reads the wanted tables (`Tabelle`) of a Jet file that stands in memory and writes them, in the form of
/// protocollo.h, through `scrivi`. This is the only code that calls libmdb, which trusts the file: it may
/// crash, hang or make up rows, and so it runs in a process of its own.
void leggi(void* byte, std::size_t quanti, unsigned tabelle,
           const std::function<void(std::string_view)>& scrivi);

}  // namespace sortimetra::jet
