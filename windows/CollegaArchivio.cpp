// Wires the archivio area's windows into the main window.
#include "windows/Aree.h"
#include "windows/frmMAIN.h"

namespace dv {

void CollegaArchivio(frmMAIN&) {}

} // namespace dv
