#pragma once

#include "draws/gioco.h"
#include "text/data.h"

#include <optional>
#include <vector>

namespace sortimetra {

// When the games are drawn, by their rules. The archive may know better: what it holds is true, this is what
// can be expected.

/// The days on which the Lotto was drawn: from 22 December 1990 to `ultima`, ascending.
[[nodiscard]] std::vector<Data> calendario_lotto(Data ultima);

/// A draw to come, or one that lacks. `minuti` since midnight tells Win for Life's draws of a day apart; 0 in
/// the other games.
struct Appuntamento {
    Data data{};
    int minuti = 0;
    auto operator<=>(const Appuntamento&) const = default;
};

/// Draw days of a game after one draw and before another, neither included. The Lotto and 10eLotto have
/// Tuesday, Thursday, Friday and Saturday since July 2023, SuperEnalotto the same, with holidays moved; Win
/// for Life has every hour from 7:00 to 23:00.
[[nodiscard]] std::vector<Appuntamento> appuntamenti_fra(Gioco gioco, Appuntamento dopo, Appuntamento prima);

/// How many draws the calendar has after the archive's last one and before today: those of today may still be
/// to come.
[[nodiscard]] int estrazioni_mancanti(Gioco gioco, Appuntamento ultima, Data oggi);

/// The draw that follows, to be proposed to who types one in.
[[nodiscard]] Appuntamento prossima_estrazione(Gioco gioco, Appuntamento dopo);

}  // namespace sortimetra
