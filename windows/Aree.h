// The areas of the program whose windows live in libraries of their own. At start the program
// calls each area's function once, after the main window is built: it creates the area's
// windows (unseen), fills the entries of Finestre that it offers, and connects and shows the main
// window's menu entries and buttons that open them.
#pragma once

namespace dv {

class frmMAIN;

void CollegaArchivio(frmMAIN& main);
void CollegaSpoglio(frmMAIN& main);
void CollegaStatistiche(frmMAIN& main);
void CollegaUltimate(frmMAIN& main);
void CollegaMatrici(frmMAIN& main);
void CollegaStampa(frmMAIN& main);

// Every area, in the order of start-up (the archive first: it loads the evening archive that the
// statistics read).
inline void CollegaAree(frmMAIN& main) {
    CollegaArchivio(main);
    CollegaStatistiche(main);
    CollegaSpoglio(main);
    CollegaUltimate(main);
    CollegaMatrici(main);
    CollegaStampa(main);
}

} // namespace dv
