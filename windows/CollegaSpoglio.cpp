// Wires the spoglio area's windows into the main window: the single-draw check (also opened by a
// double click in the archive window), the archive check and the comparison of two text files.
#include "platform/ApplyLanguage.h"
#include "windows/Aree.h"
#include "windows/frmMAIN.h"
#include "windows/frmSpoglio.h"
#include "windows/frmSpoglioEstrazioni.h"
#include "windows/frmVerificaSistemi.h"
#include "windows/QtUi.h"

namespace dv {

void CollegaSpoglio(frmMAIN& main) {
    // Made unseen at start and owned by the main window for the life of the program.
    auto* spoglio = new frmSpoglio(main.corpo(), main.ui(), &main);
    auto* estrazioni = new frmSpoglioEstrazioni(main.corpo(), main.ui(), &main);
    auto* verifica = new frmVerificaSistemi(main.corpo(), main.ui(), &main);

    Finestre& f = main.finestre();
    f.initSpoglio = [spoglio] { return spoglio->init(); };
    f.mostraSpoglio = [spoglio] { spoglio->apri(); };
    f.aggiornaSpoglio = [spoglio] {
        if (spoglio->isVisible()) spoglio->setValoreDalAl();
    };
    f.popolaSpoglioEstrazioni = [estrazioni] { estrazioni->populateCmbEstrazioni(); };

    // Prizes exist for columns of at most 10 numbers: for longer ones nothing happens.
    auto apriSpoglio = [&main, spoglio] {
        if (main.corpo().LenColonna < 11) spoglio->apri();
    };
    main.collega("cmdSpoglio", apriSpoglio);
    main.collega("menuSpoglio", apriSpoglio);
    main.collega("menuSpoglioEstrazioni", [&main, estrazioni] {
        if (main.corpo().pronostico.NumColonne <= 0) return;
        estrazioni->populateCmbEstrazioni();
        ApplyLanguage(*estrazioni, main.ui().languageFile());
        estrazioni->show();
        estrazioni->raise();
        estrazioni->activateWindow();
    });
    main.collega("menuVerificaSistema", [&main, verifica] {
        ApplyLanguage(*verifica, main.ui().languageFile());
        verifica->show();
        verifica->raise();
        verifica->activateWindow();
    });
    main.aggiornaVisibilitaMenu();
}

} // namespace dv
