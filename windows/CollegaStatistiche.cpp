// Wires the statistiche area's windows into the main window.
#include "windows/Aree.h"
#include "windows/frmMAIN.h"

namespace dv {

void CollegaStatistiche(frmMAIN&) {}

} // namespace dv
