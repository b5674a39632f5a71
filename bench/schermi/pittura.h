#pragma once

#include <QByteArrayView>
#include <chrono>
#include <functional>

namespace sortimetra::misure {

/// Qt writes a line on this category each time that a painted window is handed to the window system; the line
/// holds the word. It is the same in our own process and in one that we start.
inline constexpr const char* kRegoleRegistro = "qt.widgets.painting.info=true";
inline constexpr QByteArrayView kDipinto{"Flushing"};

/// From here on those lines are taken for the clock; everything else that Qt writes is passed on.
void ascolta_le_pitture();

/// Seconds from the start of `azione` to the moment when what it changed has been painted: the first painting
/// handed over and those that the event loop has ready at once behind it. Ten seconds without any give -1.
[[nodiscard]] double fino_alla_pittura(const std::function<void()>& azione);

/// The same to the first hand-over alone.
[[nodiscard]] double fino_alla_prima_pittura(const std::function<void()>& azione);

}  // namespace sortimetra::misure
