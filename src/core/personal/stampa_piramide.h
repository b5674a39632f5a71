#pragma once

#include "draws/ambito.h"
#include "personal/piramide.h"
#include "personal/poste.h"
#include "personal/taratura.h"
#include "printing/rapporto.h"

namespace sortimetra {

/// The triangle with a title beside each row, and under it how it came about.
[[nodiscard]] Rapporto rapporto_piramide(const MaterialeRapporto& materiale);

/// What slips are printed from.
struct MaterialeSchedine {
    Piramide piramide{};
    SelezioneRuote ruote{};
    Poste poste = poste_predefinite();
    TaraturaLotto taratura = default_taratura_lotto();
};

/// One slip a page for each row of the pyramid whose stakes say so: a cross at the places of its numbers, of
/// the wheel and of each denomination of its stakes, under the row's name; at the foot what the marks add up
/// to. Without such a row there is one page that says so.
[[nodiscard]] Rapporto stampa_schedine(const MaterialeSchedine& materiale);

}  // namespace sortimetra
