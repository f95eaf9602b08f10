// Wires the ultimate area's windows into the main window.
#include "windows/Aree.h"
#include "windows/frmMAIN.h"

namespace dv {

void CollegaUltimate(frmMAIN&) {}

} // namespace dv
