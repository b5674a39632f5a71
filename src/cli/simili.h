#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// How many letters must be typed anew, dropped, added or swapped with their neighbour to make one text of
/// the other, without regard to case.
[[nodiscard]] std::size_t distanza(std::string_view uno, std::string_view altro);

/// What the user may have meant, best first, at most `massimo`: the candidates that contain the text (from
/// three letters on), else those that are a few letters away. Empty when nothing is near.
[[nodiscard]] std::vector<std::string_view> simili(std::string_view testo,
                                                   std::span<const std::string_view> candidati,
                                                   std::size_t massimo = 1);

/// " Volevi dire "csv"?" for the nearest candidates, "" without one: to be put after an error.
[[nodiscard]] std::string volevi_dire(std::string_view testo, std::span<const std::string_view> candidati,
                                      std::size_t massimo = 1);

}  // namespace sortimetra
