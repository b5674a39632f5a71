#pragma once

namespace sortimetra {

/// Lets screen readers know windows for what they are: the toolkit calls a plain window a pane. Once is
/// enough; more does no harm.
void annuncia_finestre();

}  // namespace sortimetra
