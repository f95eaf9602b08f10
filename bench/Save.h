// The save of a large system: SalvaFile of 4,000,000 columns of 12 (48 MB of columns).
#pragma once

#include "core/Corpo.h"

namespace dv::bench {

// Develops 1..40 in columns of 12 up to the limit into c, saves it several times into the
// temporary folder and prints the best time beside that of the plain loop that lays the columns
// out one cell at a time, with a checksum of each. False when the saved columns differ.
bool MeasureSave(Corpo& c);

} // namespace dv::bench
