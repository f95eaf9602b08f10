// Wires the matrici area's windows into the main window.
#include "windows/Aree.h"
#include "windows/frmMAIN.h"

namespace dv {

void CollegaMatrici(frmMAIN&) {}

} // namespace dv
