// The development engine exactly as the rules write it: byte arrays, a presence map, the kept
// columns scanned from the newest to the oldest. Slow and obviously right; the reference that
// the program's engine is checked against.
#pragma once

#include "core/Engine.h"

namespace dv::reference {

RunResult SviluppaIntegrale(Corpo& c, int n, const uint8_t* numeri, RunControl& ctl, EngineObserver& obs,
                            const std::string& descrizione);
RunResult RielaboraColonne(Corpo& c, RunControl& ctl, EngineObserver& obs, const std::string& descrizione);

} // namespace dv::reference
