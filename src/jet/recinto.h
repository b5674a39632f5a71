#pragma once

#include <cstddef>

namespace sortimetra::jet {

// The fence round the reader of Jet files. libmdb trusts what it reads, so the reader is taken to belong to
// whoever made the file: within the fence it can compute, ask for memory, write to the pipe that it was
// given, and end.

/// Takes from the running process what reading a file does not need: memory beyond `memoria` bytes, processor
/// time beyond `secondi`, writing files, starting programs, dumping core. Limits that are tighter stay.
void limita(std::size_t memoria, unsigned secondi);

/// Closes the fence, for good: every descriptor but the standard three, new privileges, being traced, and
/// then `isola_file_system` and `filtra_chiamate`. To be called before the first byte of the file is looked
/// at, by a process of one thread. Returns false where the kernel refuses; then nothing may be read.
[[nodiscard]] bool chiudi_recinto();

/// No file by its name, no connection, no signal to others (Landlock). Returns false on a kernel without it:
/// the filter alone keeps all of these away too.
bool isola_file_system();

/// From here on the kernel answers EPERM to every call but those of `chiudi_recinto`'s promise (seccomp).
[[nodiscard]] bool filtra_chiamate();

}  // namespace sortimetra::jet
