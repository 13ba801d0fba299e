// The data page a calculation produces: hyphen line, chart header, career
// factors, natal aspects, natal data and cosmic state, then shown.
#pragma once

#include "shell/Message.h"

namespace kal {

struct Session;

// Fills the page of a calculation and shows it. A listing that cannot run
// (its orb file is missing) is left out and its message returned.
Messages WriteCalculationPage(Session& s);

} // namespace kal
