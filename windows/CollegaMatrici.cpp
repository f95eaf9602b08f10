// Wires the matrici area's windows into the main window: the matrix window opened to adapt a
// matrix to the forecast (cmdAdatta, menuAdattaMatrice) or as the list of every matrix
// (mnuElencoSistemiImmediati), and the checks of menuSalvaComeMatrice.
#include "matrix/Adatta.h"
#include "windows/Aree.h"
#include "windows/frmMAIN.h"
#include "windows/frmMatr.h"
#include "windows/QtUi.h"
#include "windows/QtUiDialogs.h"

namespace dv {

namespace {

void ApriMatrici(frmMAIN& main, frmMatr::Modo modo) {
    ServiziMatrici servizi;
    servizi.apriCartella = [&main](const std::string& path) { main.dialogs().openFolder(path); };
    frmMatr f(main.corpo(), main.ui(), main.impostazioni(), modo, &main, std::move(servizi));
    QtUi& ui = main.ui();
    QWidget* prima = ui.dialogParent();
    ui.setDialogParent(&f);
    f.exec();
    ui.setDialogParent(prima);
}

} // namespace

void CollegaMatrici(frmMAIN& main) {
    main.collega("cmdAdatta", [&main] { ApriMatrici(main, frmMatr::Modo::Adatta); });
    main.collega("menuAdattaMatrice", [&main] { ApriMatrici(main, frmMatr::Modo::Adatta); });
    main.collega("mnuElencoSistemiImmediati", [&main] { ApriMatrici(main, frmMatr::Modo::Elenco); });
    main.collega("menuSalvaComeMatrice", [&main] { SalvaComeMatrice(main.corpo(), main.ui()); });
    main.aggiornaVisibilitaMenu();
}

} // namespace dv
