#pragma once

#include <cstdint>
#include <filesystem>

namespace sortimetra {

// The calls that change names on a disk, or wait for it. Files that are replaced whole make all their steps
// through these, so that a test can stop a program before any one of them, or let that one fail.

enum class PassoDisco : std::uint8_t { Rinomina, Togli, Collega, Fissa };

/// Is asked before each step: 0 lets it go on, an errno is what the step fails with.
using GuardaPasso = int (*)(PassoDisco passo, const std::filesystem::path& file);

/// Sets whom to ask; null for nobody, as programs start. For tests.
void guarda_passi(GuardaPasso guarda);

// Each returns 0 or the errno of what failed.

/// Takes the name `a`, from whatever has it.
[[nodiscard]] int rinomina_file(const std::filesystem::path& da, const std::filesystem::path& a);
/// A file that is not there is as good as removed.
[[nodiscard]] int togli_file(const std::filesystem::path& file);
/// A second name for a file; where the file system knows none, a copy that has its date.
[[nodiscard]] int collega_file(const std::filesystem::path& da, const std::filesystem::path& a);
/// Waits until the bytes of an open file are on the disk.
[[nodiscard]] int fissa_file(int descrittore, const std::filesystem::path& file);
/// Waits until the names in the folder of `file` are on the disk. Some file systems refuse that for a folder;
/// what changed the names has been done by then, so that is no error.
void fissa_cartella(const std::filesystem::path& file);

}  // namespace sortimetra
