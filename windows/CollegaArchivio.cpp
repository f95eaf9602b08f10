// Wires the archivio area's windows into the main window: the archive window, made unseen at start
// (it reads the evening archive into memory), its button and menu entry, and the forecast from the
// newest draw.
#include "archive/EstrazioneScelta.h"
#include "platform/DownloadFile.h"
#include "platform/Shell.h"
#include "settings/Impostazioni.h"
#include "windows/Aree.h"
#include "windows/frmMAIN.h"
#include "windows/frmUpdate.h"
#include "windows/QtUi.h"

#include <QAction>

namespace dv {

void CollegaArchivio(frmMAIN& main) {
    ServiziArchivio servizi{[&main] { return IndirizzoServer(main.impostazioni()); }, ScaricatoreDiRete(),
                            GetSpecialFolder(CartellaDesktop)};
    // Owned by the main window and hidden, not closed, for the life of the program.
    auto* archivio = new frmUpdate(main.corpo(), main.ui(), main.finestre(), std::move(servizi), &main);
    archivio->carica();

    main.finestre().mostraArchivio = [archivio] {
        archivio->show();
        archivio->raise();
        archivio->activateWindow();
    };
    main.collega("cmdArchivio", [&main] { main.finestre().mostraArchivio(); });
    main.collega("menuArchivioEstrazioni", [&main] { main.finestre().mostraArchivio(); });
    main.collega("mnuUltimaEstrazione",
                 [&main] { PronosticoDaArchivioEstrazione(main.corpo(), main.ui(), 0); });
    main.aggiornaVisibilitaMenu();
}

} // namespace dv
