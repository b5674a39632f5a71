#pragma once

#include <filesystem>
#include <string>

namespace sortimetra::prove {

/// What a program ("pdftotext -bbox") says of a PDF; `coda` stands behind the file's name.
[[nodiscard]] std::string di_pdf(const std::string& programma, const std::filesystem::path& file,
                                 const std::string& coda = "");
/// The text of a PDF as a reader finds it.
[[nodiscard]] std::string testo_pdf(const std::filesystem::path& file, const std::string& opzioni = "");

}  // namespace sortimetra::prove
