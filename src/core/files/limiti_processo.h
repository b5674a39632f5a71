#pragma once

namespace sortimetra {

// What a program does where the system gives it no more: no file beyond a size (ulimit -f), no more memory.
// Neither is a fault of the program, and neither ends in an abort.

/// The exit code of a program that was stopped so.
inline constexpr int kFermatoDaUnLimite = 3;

/// From here on a write beyond the size limit is a failed write like that to a full disk, and memory that
/// ends where nobody expects it is told in one sentence, after which the program ends. `programma` is the
/// name that begins the sentence; it is kept as it stands.
void ascolta_i_limiti(const char* programma);

/// Whether a write has met the size limit.
[[nodiscard]] bool limite_dei_file_raggiunto();

/// Says on standard error that memory has ended, without needing any. Returns `kFermatoDaUnLimite`.
int memoria_finita() noexcept;

}  // namespace sortimetra
