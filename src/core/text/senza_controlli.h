#pragma once

#include <streambuf>
#include <string>
#include <string_view>

namespace sortimetra {

/// A text as a terminal may be shown it: a control character (of the first 32, the one behind them, or U+0080
/// to U+009F) and a byte that is no UTF-8 stand as "\x1b". Lines and tabulators stay.
[[nodiscard]] std::string senza_controlli(std::string_view testo);

/// Hands on what is written to it as `senza_controlli` makes it. Names of files, groups and systems,
/// arguments and cells may be anybody's, and a terminal obeys what it is shown.
class BufferSenzaControlli final : public std::streambuf {
  public:
    explicit BufferSenzaControlli(std::streambuf* destinazione) : destinazione_{destinazione} {}
    BufferSenzaControlli(const BufferSenzaControlli&) = delete;
    BufferSenzaControlli& operator=(const BufferSenzaControlli&) = delete;
    ~BufferSenzaControlli() override { sync(); }

  protected:
    std::streamsize xsputn(const char* byte, std::streamsize quanti) override;
    int_type overflow(int_type c) override;
    int sync() override;

  private:
    bool consegna(std::string_view testo);

    std::streambuf* destinazione_;
    std::string resto_;  ///< the beginning of a character whose other bytes have not come yet
};

}  // namespace sortimetra
