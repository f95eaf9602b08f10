// Wires the spoglio area's windows into the main window.
#include "windows/Aree.h"
#include "windows/frmMAIN.h"

namespace dv {

void CollegaSpoglio(frmMAIN&) {}

} // namespace dv
