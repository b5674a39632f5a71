#pragma once

#include <filesystem>
#include <optional>

namespace sortimetra {

/// A folder held against other programs that hold it too: for a change of several files in it. It goes with
/// the object, or with the program, however that ends, and leaves no file behind.
class BloccoCartella {
  public:
    /// Nothing if another one holds the folder, or if it is not there. A file system that knows no locks lets
    /// everybody through.
    [[nodiscard]] static std::optional<BloccoCartella> prova(const std::filesystem::path& cartella);

    BloccoCartella(BloccoCartella&& altro) noexcept;
    BloccoCartella& operator=(BloccoCartella&&) = delete;
    BloccoCartella(const BloccoCartella&) = delete;
    BloccoCartella& operator=(const BloccoCartella&) = delete;
    ~BloccoCartella();

  private:
    explicit BloccoCartella(int descrittore) : descrittore_{descrittore} {}
    int descrittore_;
};

}  // namespace sortimetra
