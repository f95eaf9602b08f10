// Wires the ultimate area's windows into the main window: the Ultimate window behind
// menuUltimate, and the filter import that the filter window's cmdLoadFiltri opens.
#include "platform/DownloadFile.h"
#include "settings/Impostazioni.h"
#include "windows/Aree.h"
#include "windows/frmImportFiltri.h"
#include "windows/frmMAIN.h"
#include "windows/frmUltimate.h"
#include "windows/QtUi.h"

#include <QApplication>

namespace dv {

void CollegaUltimate(frmMAIN& main) {
    // Created once, unseen, and owned by the main window; closing it only hides it.
    auto* ultimate = new frmUltimate(
        main.corpo(), main.ui(),
        [&main] {
            return ServerArchivi{IndirizzoServer(main.impostazioni()), ScaricatoreDiRete()};
        },
        &main);
    main.collega("menuUltimate", [ultimate] { ultimate->apri(); });
    main.finestre().importaFiltri = [&main](int tabella) {
        QWidget* padre = QApplication::activeModalWidget();
        frmImportFiltri f(main.corpo(), main.ui(), static_cast<TipoFiltro>(tabella - 1),
                          padre ? padre : &main);
        f.exec();
    };
    main.aggiornaVisibilitaMenu();
}

} // namespace dv
