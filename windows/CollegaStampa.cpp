// Wires the stampa area's windows into the main window.
#include "windows/Aree.h"
#include "windows/frmMAIN.h"

namespace dv {

void CollegaStampa(frmMAIN&) {}

} // namespace dv
